// The browser of the address book and what others write to its archive: another program, another browser.
#include "archivio.h"

#include "addressbook/windows/frmScheda.h"
#include "platform/base/numerierrore.h"
#include "platform/database/connessione.h"
#include "platform/system/attese.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

class TestScrittureAltrui : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { A = std::make_unique<ArchivioDiProva>(); }
    void cleanup() { A.reset(); }

    void dopoLaPropria_data();
    void dopoLaPropria();
    void laSceltaRilegge_data();
    void laSceltaRilegge();
    void laNotaSaPerPrima();

private:
    static frmScheda* Scheda(const frmRubrica* F)
    {
        auto* Trovata = F->findChild<frmScheda*>();
        return Trovata && Trovata->isVisible() ? Trovata : nullptr;
    }
    static void Compila(const frmRubrica* F, const QString& Nome)
    {
        QVERIFY(Scheda(F));
        QApplication::setActiveWindow(Scheda(F));
        Scrivi(Scheda(F)->findChild<QLineEdit*>(u"txtFieldData_1"_s), Nome);
    }
    void Altrove(const QString& Sql, bool AltroProgramma) const
    {
        if (!AltroProgramma) {
            OpenDatabase(A->File).Execute(Sql);
            return;
        }
        Connessione Sua(A->File, Connessione::Modo::Scrittura);
        Sua.Esegui(Sql);
    }

    std::unique_ptr<ArchivioDiProva> A;
};
PROVA(TestScrittureAltrui);

void TestScrittureAltrui::dopoLaPropria_data()
{
    QTest::addColumn<bool>("AltroProgramma");
    QTest::addColumn<QString>("Propria");
    for (const bool Altro : {true, false})
        for (const QString& Propria : {u"edit"_s, u"new"_s, u"delete"_s, u"rimetti"_s})
            QTest::addRow("%s, %s", Altro ? "un altro programma" : "un'altra finestra", qPrintable(Propria))
                << Altro << Propria;
}

/// A row that others have made before one's own write is counted at once, and found by the next filter.
void TestScrittureAltrui::dopoLaPropria()
{
    QFETCH(bool, AltroProgramma);
    QFETCH(QString, Propria);
    frmRubrica* F = A->Apri(A->DaScrivania());
    QVERIFY(F);
    const QString Domanda = u"Confermi la cancellazione del nominativo selezionato?"_s;
    if (Propria == u"rimetti"_s) {
        A->Voce.Attendi(Domanda, vbYes);
        F->Comando(u"delete"_s);
    }
    Altrove(u"INSERT INTO clienti (Nominativo) VALUES ('Rossini Ugo')"_s, AltroProgramma);
    VaiA(F, 1);
    const bool ConScheda = Propria == u"edit"_s || Propria == u"new"_s;
    if (Propria == u"delete"_s)
        A->Voce.Attendi(Domanda, vbYes);
    F->Comando(Propria);
    if (ConScheda) {
        Compila(F, u"Abate"_s);
        Premi(Qt::Key_F10);
        QTRY_VERIFY(!Scheda(F));
        QCOMPARE(Corrente(F), u"Abate"_s);
    } else {
        QCOMPARE(Corrente(F), u"verdi Anna"_s);
    }
    const int Quanti = Propria == u"new"_s ? 7 : Propria == u"delete"_s ? 5 : 6;
    QCOMPARE(Conto(F), u"%1 nominativi"_s.arg(Quanti));
    QVERIFY(Nomi(F).contains(u"Rossini Ugo"_s));
    Vaglio(F)->setText(u"ross"_s);
    QTRY_COMPARE(Conto(F), u"3 di %1"_s.arg(Quanti));
    QVERIFY(Nomi(F).contains(u"Rossini Ugo"_s));
}

void TestScrittureAltrui::laSceltaRilegge_data()
{
    QTest::addColumn<QString>("Modo");
    QTest::addColumn<QString>("Tasto");
    QTest::addColumn<bool>("Cancellata");
    for (const bool Cancellata : {false, true}) {
        const char* Fine = Cancellata ? "cancellata" : "rinominata";
        QTest::addRow("vista, %s", Fine) << u"view"_s << u"off"_s << Cancellata;
        QTest::addRow("annullata, %s", Fine) << u"edit"_s << u"undo"_s << Cancellata;
    }
}

/// What a card has shown is not what is handed over, once another program has written to the row.
void TestScrittureAltrui::laSceltaRilegge()
{
    QFETCH(QString, Modo);
    QFETCH(QString, Tasto);
    QFETCH(bool, Cancellata);
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    VaiA(F, 3);
    F->Comando(Modo);
    QVERIFY(Scheda(F));
    Scheda(F)->barScheda_ButtonClick(Tasto);
    Respiro();
    QVERIFY(!Scheda(F));
    QApplication::setActiveWindow(F);
    Altrove(Cancellata ? u"DELETE FROM clienti WHERE ID=4"_s
                       : u"UPDATE clienti SET Nominativo='Rossi Marta' WHERE ID=4"_s,
            true);
    if (Cancellata)
        A->Voce.Attendi(u"Errore: %1 (3167)"_s.arg(DescrizioneErrore(3167)), vbOK, u"Errore:"_s);
    Premi(Qt::Key_Return);
    if (Cancellata) {
        QVERIFY(A->Scelte.empty());
        QCOMPARE(Conto(F), u"4 nominativi"_s);
    } else {
        QCOMPARE(A->Scelte.size(), std::size_t(1));
        QCOMPARE(A->Scelte[0].Valori.at(1).toString(), u"Rossi Marta"_s);
    }
}

/// The notes follow a row that was saved before the list is read again, which may fail.
void TestScrittureAltrui::laNotaSaPerPrima()
{
    const QScopedValueRollback Breve(attese::BlocchiMs, 30);
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    Vaglio(F)->setText(u"rossi"_s);
    QTRY_COMPARE(Conto(F), u"2 di 5"_s);
    F->Comando(u"edit"_s);
    Compila(F, u"Rossi Marta"_s);
    Connessione AltroProgramma(A->File, Connessione::Modo::Scrittura);
    Aperture.NominativoCambiato = [&](const QString& Tabella, int ID) {
        A->Cambiati.append(Tabella + u' ' + QString::number(ID));
        AltroProgramma.Esegui(u"BEGIN EXCLUSIVE"_s);
    };
    A->Voce.Attendi(u"Errore: %1 (3260)"_s.arg(DescrizioneErrore(3260)), vbOK, u"Errore:"_s);
    Premi(Qt::Key_F10);
    QTRY_VERIFY(!Scheda(F));
    QCOMPARE(A->Cambiati, QStringList{u"clienti 4"_s});
    AltroProgramma.Esegui(u"COMMIT"_s);
}

#include "TestScrittureAltrui.moc"
