// The decree of a note in the descriptions that make it and show it.
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "tariffa_file.h"

#include "feenote/file/modDescrizione.h"
#include "feenote/file/modNotaJson.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

class TestTariffaDescritta : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void descrizione();
    void descrizioneSenzaTariffa();
    void descrizioneRifiutata_data();
    void descrizioneRifiutata();
    void notaMostrata();
    void sommeAlCentesimo();
};
PROVA(TestTariffaDescritta);

void TestTariffaDescritta::descrizione()
{
    const Studio Suo;
    Registratore Voce;
    const QByteArray Json = R"({"tariffa": "55", "categoria": "CIV", "autorita": 102, "valore": 30000,
        "variazione": {"opzione": 102, "partiAssistite": 2}, "onorari": [{"voce": 999, "importo": 100.5}]})";
    const Parcella Nota = CreaDaDescrizione(Json);
    QCOMPARE(Nota.Tariffa, &Dm55);
    // Thirty per cent for the second party, a quarter more on the decisional phase: 2.905 x 1,3 x 1,25.
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{221130, 156520, 234780, 472063, 10050}));
    QVERIFY(Nota.chkSpeseGen.Attiva);
    const Parcella ConNumero = CreaDaDescrizione(R"({"tariffa": 55, "categoria": "PEN", "autorita": 138})");
    QCOMPARE(ConNumero.Tariffa, &Dm55);
}

void TestTariffaDescritta::descrizioneSenzaTariffa()
{
    const Studio Suo;
    Registratore Voce;
    sessione::Tariffa = u"55"_s;  // a description from before goes on meaning what it meant
    const Parcella Nota = CreaDaDescrizione(R"({"categoria": "CIV", "autorita": 2, "valore": 30000})");
    QCOMPARE(Nota.Tariffa, &Dm140);
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{120000, 60000, 120000, 150000}));
    QCOMPARE(CreaDaDescrizione(R"({"tariffa": "140", "categoria": "PEN", "autorita": 23})").Tariffa, &Dm140);
}

void TestTariffaDescritta::descrizioneRifiutata_data()
{
    QTest::addColumn<QByteArray>("Json");
    QTest::addColumn<QString>("Motivo");
    QTest::newRow("a tariff that is none") << QByteArray(R"({"tariffa": "37", "categoria": "CIV"})")
                                           << u"Campo tariffa: «37» non è una tariffa (140, 55)"_s;
    QTest::newRow("a truth value") << QByteArray(R"({"tariffa": true, "categoria": "CIV"})")
                                   << u"Campo tariffa: deve essere un numero o un testo"_s;
    QTest::newRow("an office of the other decree")
        << QByteArray(R"({"tariffa": "55", "categoria": "CIV", "autorita": 2, "valore": 30000})")
        << u"Campo autorita: «2» non è un'autorità della categoria"_s;
    QTest::newRow("an option of the other decree")
        << QByteArray(
               R"({"tariffa": "55", "categoria": "PEN", "autorita": 138, "variazione": {"opzione": 6}})")
        << u"Campo variazione.opzione: le opzioni sono 122, 123, 124, 5"_s;
    QTest::newRow("an option of this decree in the other")
        << QByteArray(R"({"categoria": "PEN", "autorita": 23, "variazione": {"opzione": 123}})")
        << u"Campo variazione.opzione: le opzioni vanno da 0 a 10"_s;
    QTest::newRow("parties by the other decree")
        << QByteArray(R"({"categoria": "PEN", "autorita": 23, "variazione": {"partiAssistite": 2}})")
        << u"Campo variazione.partiAssistite: per questa tariffa o categoria le parti non contano"_s;
    QTest::newRow("no party")
        << QByteArray(R"({"tariffa": "55", "categoria": "PEN", "variazione": {"partiAssistite": 0}})")
        << u"Campo variazione.partiAssistite: il numero va da 1 a 999"_s;
    QTest::newRow("an item without an amount there")
        << QByteArray(R"({"tariffa": "55", "categoria": "PEN", "autorita": 145, "onorari": [{"voce": 3}]})")
        << u"Campo onorari[0].voce: la voce non può essere inserita"_s;
    QTest::newRow("beyond the last bracket")
        << QByteArray(R"({"tariffa": "55", "categoria": "CIV", "autorita": 102, "valore": 17000000})")
        << u"Campo valore: Il valore della causa specificato non è compreso nello scaglione!"_s;
}

void TestTariffaDescritta::descrizioneRifiutata()
{
    QFETCH(QByteArray, Json);
    QFETCH(QString, Motivo);
    const Studio Suo;
    Registratore Voce;
    Voce.Tollera();
    QCOMPARE(DescrizioneErroreDi([&] { (void)CreaDaDescrizione(Json); }), Motivo);
}

void TestTariffaDescritta::notaMostrata()
{
    const Studio Suo;
    Registratore Voce;
    const QJsonObject Nuova = QJsonDocument::fromJson(DescriviNota(NotaScritta())).object();
    QCOMPARE(Nuova[u"tariffa"_s].toString(), u"55"_s);
    QCOMPARE(Nuova[u"variazione"_s].toObject()[u"partiAssistite"_s].toInt(), 3);
    QCOMPARE(Nuova[u"variazione"_s].toObject()[u"opzione"_s].toInt(), Telematici);
    const QJsonObject Vecchia = QJsonDocument::fromJson(DescriviNota(NotaPiena())).object();
    QVERIFY(!Vecchia.contains(u"tariffa"_s));
    QVERIFY(!Vecchia[u"variazione"_s].toObject().contains(u"partiAssistite"_s));
}

/// Sums of cents show no rest of their binary form.
void TestTariffaDescritta::sommeAlCentesimo()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = NotaScritta();
    for (int Riga = 0; Riga < 3; ++Riga)
        for (const int Colonna : {OnoImporto, OnoMedio, OnoMin, OnoMax})
            Nota.xOnorari(Riga, Colonna) = 0.1;
    Nota.xOnorari.EliminaRiga(3);
    for (int Riga = 0; Riga < 3; ++Riga) {
        Nota.xDiritti.AggiungiRiga();
        Nota.xDiritti(Riga, DirImponibile) = 0.1;
        Nota.xDiritti(Riga, DirEsente) = 0.7;
    }
    const QJsonObject Totali = QJsonDocument::fromJson(DescriviNota(Nota)).object()[u"totali"_s].toObject();
    for (const QString& Nome : {u"onorari"_s, u"medi"_s, u"minimi"_s, u"massimi"_s, u"speseImponibili"_s})
        QVERIFY2(Totali[Nome].toDouble() == 0.3, qPrintable(Nome));
    QVERIFY(Totali[u"speseEsenti"_s].toDouble() == 2.1);
}

#include "TestTariffaDescritta.moc"
