// Notes in Access format among those of a folder: one reading program for all of them.
#include "feenote/finder/finder_prova.h"
#include "feenote/finder/memoriatrova.h"
#include "feenote/finder/nominativi.h"
#include "platform/accesso/accesso.h"
#include "supporto/scrittoreaccess.h"

#include <QScopedValueRollback>

#include <memory>

using namespace Qt::StringLiterals;

class TestTrovaAccess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { Ufficio.reset(); }
    void siElencano();
    void senzaOggetto();
    void leCopieServonoAncora();
    void daArchivioAccess();

private:
    QList<VoceTrova> Trova(const QString& Cartella) const
    {
        QList<VoceTrova> Voci;
        Nominativi Nomi;
        CamminoTrova Cammino(
            {.Cartella = Cartella, .Radice = Cartella, .Testo = {}},
            [&](VoceTrova&& Voce) {
                Nomi.Completa(Voce);
                Voci.append(std::move(Voce));
            },
            [] { return true; }, std::make_shared<MemoriaTrova>());
        (void)Cammino.TrovaParc(Cartella);
        return Voci;
    }
    FileScritto Nota(const QString& Cliente, const QString& Controparte, int IDCli = 0) const
    {
        return AccessDa(SalvaNota(NuovaCartella() + u"n.mdb"_s, Cliente, Controparte, IDCli));
    }

    std::unique_ptr<Studio> Ufficio;
};
PROVA(TestTrovaAccess);

void TestTrovaAccess::init()
{
    Ufficio = std::make_unique<Studio>();
    accesso::CartellaCopie = NuovaCartella();
}

void TestTrovaAccess::siElencano()
{
    const QString Cartella = NuovaCartella();
    (void)SalvaNota(Cartella + u"a nativa.mdb"_s, u"Rossi"_s);
    ScriviAccess(Cartella + u"b vecchia.mdb"_s, Nota(u"Bianchi"_s, u"Neri"_s));
    FileScritto Altro;
    Altro.Tabelle = {
        {.Nome = u"Altro"_s, .Colonne = {{.Nome = u"N"_s, .Tipo = tipoaccess::Intero}}, .Righe = {{1}}}};
    ScriviAccess(Cartella + u"c altro.mdb"_s, Altro);
    QFile Rotto(Cartella + u"d rotto.mdb"_s);
    QVERIFY(Rotto.open(QIODevice::WriteOnly));
    Rotto.write(ScriviAccess(Nota(u"X"_s, {})).first(5000));
    Rotto.close();
    const QList<VoceTrova> Voci = Trova(Cartella);
    QCOMPARE(Voci.size(), 2);
    QCOMPARE(Voci[1].Nome, u"b vecchia"_s);
    QCOMPARE(Voci[1].Cliente, u"Bianchi"_s);
    QCOMPARE(Voci[1].Controparte, u"Neri"_s);
    QVERIFY(EDiAccess(Cartella + u"b vecchia.mdb"_s));
}

/// The first notes of the former program have no column for the subject.
void TestTrovaAccess::senzaOggetto()
{
    FileScritto Come = Nota(u"Bianchi"_s, {});
    for (TabellaScritta& Tabella : Come.Tabelle)
        for (qsizetype i = Tabella.Colonne.size(); i-- > 0;)
            if (Tabella.Colonne[i].Nome == u"Oggetto") {
                Tabella.Colonne.remove(i);
                for (RigaScritta& Riga : Tabella.Righe)
                    Riga.remove(i);
            }
    const QString Cartella = NuovaCartella();
    ScriviAccess(Cartella + u"a.mdb"_s, Come);
    const QList<VoceTrova> Voci = Trova(Cartella);
    QCOMPARE(Voci.size(), 1);
    QCOMPARE(Voci[0].Cliente, u"Bianchi"_s);
}

/// A copy serves until its note changes: the second walk needs no reading program.
void TestTrovaAccess::leCopieServonoAncora()
{
    const QString Cartella = NuovaCartella();
    for (int i = 0; i < 20; ++i)
        ScriviAccess(Cartella + u"n%1.mdb"_s.arg(i), Nota(u"Cliente %1"_s.arg(i), {}));
    QCOMPARE(Trova(Cartella).size(), 20);
    const QScopedValueRollback Senza(accesso::Programma, u"/bin/false"_s);
    QCOMPARE(Trova(Cartella).size(), 20);
    ScriviAccess(Cartella + u"n3.mdb"_s, Nota(u"Un altro cliente"_s, u"con controparte"_s));
    QCOMPARE(Trova(Cartella).size(), 19);
}

void TestTrovaAccess::daArchivioAccess()
{
    TabellaScritta Clienti{.Nome = u"Clienti"_s,
                           .Colonne = {{.Nome = u"ID"_s, .Tipo = tipoaccess::Lungo, .Contatore = true},
                                       {.Nome = u"Nominativo"_s}},
                           .Righe = {{40, u"Dall'archivio"_s}}};
    TabellaScritta Controparti = Clienti;
    Controparti.Nome = u"Controparti"_s;
    const QScopedValueRollback Archivio(
        sessione::ArchivioCliCon,
        ScriviAccess(NuovaCartella() + u"Studio.mdb"_s, {.Tabelle = {Clienti, Controparti}}));
    const QString Cartella = NuovaCartella();
    ScriviAccess(Cartella + u"a.mdb"_s, Nota(u"Nella nota"_s, {}, 40));
    QCOMPARE(Trova(Cartella)[0].Cliente, u"Dall'archivio"_s);
}

#include "TestTrovaAccess.moc"
