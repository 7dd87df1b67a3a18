// The browser on an archive in Access format: everything to be read, nothing to be written, one offer.
#include "archivio.h"

#include "addressbook/elenconomi.h"
#include "addressbook/modClienti.h"
#include "platform/accesso/accesso.h"
#include "platform/system/file.h"
#include "supporto/scrittoreaccess.h"

#include <memory>
#include <optional>

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

class TestRubricaAccess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        A = std::make_unique<ArchivioDiProva>();
        Nativo = A->File;
        A->File = ScriviAccess(NuovaCartella() + u"Vecchio.mdb"_s, AccessDa(Nativo));
        sessione::ArchivioCliCon = A->File;
    }
    void cleanup() { A.reset(); }

    void siGuarda();
    void siOffreUnaVolta();
    void siConverte();
    void siRilegge();
    void siSceglie();
    void leRigheDelleNote();
    void iNomiDaOffrire();

private:
    std::unique_ptr<ArchivioDiProva> A;
    QString Nativo;
    [[nodiscard]] QString Domanda() const
    {
        return u"L'archivio Vecchio.mdb è di Access: si può consultare, ma non modificare.\n"
               "Convertirlo in un archivio del programma? Il file di Access resta com'è."_s;
    }
};
PROVA(TestRubricaAccess);

void TestRubricaAccess::siGuarda()
{
    const QByteArray Prima = LeggiFile(A->File);
    const frmRubrica* F = A->Apri(A->DaScrivania());
    QVERIFY(F);
    QCOMPARE(Nomi(F).size(), 5);
    QCOMPARE(Nomi(F)[1], u"Àlvari Nicolò"_s);
    // The descriptions have come along: a hidden column, headings of their own.
    QCOMPARE(Lista(F)->Vista()->model()->headerData(2, Qt::Horizontal).toString(), u"Città"_s);
    for (const char* Chiave : {"new", "edit", "delete", "rimetti"})
        QVERIFY2(!Azione(F, Chiave)->isVisible(), Chiave);
    QVERIFY(Azione(F, "view")->isEnabled());
    QCOMPARE(Controllo<QLabel>(F, "lblArchivio")->text(),
             u"Archivio di Access: si consulta, non si modifica"_s);
    QCOMPARE(LeggiFile(A->File), Prima);
}

void TestRubricaAccess::siOffreUnaVolta()
{
    QStringList Chiesti;
    Aperture.ImportaArchivio = [&](const QString& File) { Chiesti.append(File); };
    A->Voce.Attendi(Domanda(), vbNo, u"Domanda:"_s);
    frmRubrica* F = A->Apri(A->DaScrivania());
    QCOMPARE(A->Voce.Mostrati().size(), 1);
    F->close();
    (void)A->Apri(A->DaScrivania());
    QCOMPARE(A->Voce.Mostrati().size(), 1);
    QVERIFY(Chiesti.isEmpty());
}

void TestRubricaAccess::siConverte()
{
    QStringList Chiesti;
    const QWidget* Davanti = nullptr;
    Aperture.ImportaArchivio = [&](const QString& File) { Chiesti.append(File); };
    // What is in front when the question comes up; behind it nothing has the focus yet.
    const auto Mostra = Registratore::AlMostrare();
    const QScopedValueRollback Spia(Registratore::AlMostrare(), std::function<void()>([&] {
                                        Davanti = QApplication::activeWindow();
                                        if (Mostra)
                                            Mostra();
                                    }));
    A->Voce.Attendi(Domanda(), vbYes, u"Domanda:"_s);
    const frmRubrica* F = A->Apri(A->DaScrivania());
    QCOMPARE(Chiesti, QStringList{A->File});
    QVERIFY2(Davanti == F, "asked before the browser was in front");
}

/// The former program has written to its file meanwhile.
void TestRubricaAccess::siRilegge()
{
    const frmRubrica* F = A->Apri(A->DaScrivania());
    OpenDatabase(Nativo).Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Nuovo Nome')"_s);
    ScriviAccess(A->File, AccessDa(Nativo));
    QTest::keyClick(const_cast<frmRubrica*>(F), Qt::Key_F5);
    QCOMPARE(Nomi(F).size(), 6);
    QVERIFY(Nomi(F).contains(u"Nuovo Nome"_s));
}

void TestRubricaAccess::siSceglie()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    VaiA(F, 3);
    Azione(F, "selez")->trigger();
    QCOMPARE(A->Scelte.size(), size_t(1));
    QCOMPARE(A->Scelte[0].Valori[0].toInt(), 4);
    QCOMPARE(A->Scelte[0].Valori[1].toString(), u"Rossi Mario"_s);
}

/// Without it every old note would tell that its client was not found.
void TestRubricaAccess::leRigheDelleNote()
{
    QCOMPARE(CercaCliente(4), std::optional(u"Rossi Mario"_s));
    QCOMPARE(CercaCliente(99), std::optional<QString>());
    QCOMPARE(LeggiCliente(4)->Citta, u"Lucca"_s);
    QCOMPARE(CercaControparte(2, u"Nominativo"_s), std::optional(u"Delta Srl"_s));
}

void TestRubricaAccess::iNomiDaOffrire()
{
    ElencoNomi Elenco(u"clienti"_s);
    Elenco.Segui();
    while (Elenco.Avanza())
        continue;
    QCOMPARE(Elenco.Proponi(u"ross"_s, 10).size(), 2);
}

#include "TestRubricaAccess.moc"
