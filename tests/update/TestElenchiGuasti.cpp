// The list of versions and the publisher's key, damaged in every way: one sentence with the file's name, and
// neither "up to date" nor anything brought.
#include "banco.h"
#include "supporto/danni.h"
#include "supporto/guasti.h"

#include "update/modAggiorna.h"

#include <memory>

class TestElenchiGuasti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { B = std::make_unique<BancoAggiornamenti>(); }
    void cleanup() { B.reset(); }
    void versioni_data();
    void versioni();
    void ilSuoPosto_data();
    void ilSuoPosto();
    void chiave_data();
    void chiave();

private:
    std::unique_ptr<BancoAggiornamenti> B;
};
PROVA(TestElenchiGuasti);

namespace {

const QByteArray Annunciato = "versione=[3.0.15]\n01/12/2026\nnota=Nuovi tassi\n";

void QuattroDanni()
{
    QTest::addColumn<int>("Come");
    for (int Come = 0; Come < Mancante; ++Come)
        QTest::newRow(NomiDanni[size_t(Come)]) << Come;
}

}  // namespace

void TestElenchiGuasti::versioni_data()
{
    QuattroDanni();
}

/// In the folder of a stick, or of the office's server.
void TestElenchiGuasti::versioni()
{
    QFETCH(int, Come);
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(Annunciato);
    B->Firmate();
    const QString File = B->Setup() + u"versioni.txt"_s;
    Rovina(File, Come);
    Annuncio Trovato;
    B->Voce.Tollera();
    QString Detto;
    const ErroreVisto Guasto = ErroreDi([&] { (void)ControlloVersioni(B->Cartella(), true, Trovato); });
    if (Guasto.Numero != 0)
        Detto = Guasto.Descrizione;  // told by whoever asked
    else if (Come != Troncato)
        Detto = B->Voce.UltimoTesto();
    QCOMPARE(B->Voce.Mostrati().size(), Come == Svuotato ? 1 : 0);
    if (Come == Troncato) {
        // What is left names no date: the signature shows that it is not whole.
        QCOMPARE(ScaricaProgramma(Trovato).Dettaglio, FirmaNonValida);
    } else {
        QVERIFY2(Detto.count(u"versioni.txt"_s) == 1, qPrintable(Detto));
        QVERIFY(!Trovato.Letto);
    }
    QVERIFY(B->ArchivioIntatto());
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestElenchiGuasti::ilSuoPosto_data()
{
    QuattroDanni();
}

/// What the last check has left counts for nothing: the next one brings another.
void TestElenchiGuasti::ilSuoPosto()
{
    QFETCH(int, Come);
    B->Annunciate(Annunciato);
    const QString File = sessione::UserFolder + u"versioni.txt"_s;
    ScriviFile(File, Annunciato);
    Rovina(File, Come);
    if (Come == Cartella)
        B->Voce.Attendi(u"Errore nel salvataggio del file delle versioni."_s, vbOK, u"Avvertenza:"_s);
    Annuncio Trovato;
    QCOMPARE(ControlloVersioni(DalServer(), true, Trovato), Come != Cartella);
    QCOMPARE(sessione::VersioneDisp, Come == Cartella ? QString() : u"3.0.15"_s);
}

void TestElenchiGuasti::chiave_data()
{
    QuattroDanni();
}

void TestElenchiGuasti::chiave()
{
    QFETCH(int, Come);
    B->Posa(u"tassi.dat"_s, B->ArchivioNuovo());
    B->Annunciate(Annunciato);
    B->Firmate();
    QCOMPARE(DifettoChiave(), QString());
    Rovina(B->FileChiave, Come);
    const EsitoScarico Esito = ScaricaTassi(B->Controllato(B->Cartella()));
    QVERIFY(!Esito.Riuscito());
    QCOMPARE(Esito.Dettaglio,
             u"il file \"%1\" è danneggiato, reinstallare il programma"_s.arg(B->FileChiave));
    QVERIFY(B->ArchivioIntatto());
    QCOMPARE(B->Avanzi(), QStringList());
}

#include "TestElenchiGuasti.moc"
