// The counter of invoices.
#include "nota_prova.h"

#include "core/impostazioni.h"
#include "feenote/modNumeraFattura.h"
#include "platform/system/impostazioni.h"
#include "platform/system/orologio.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

const QString GiaScritti = u"I campi Numero e Data fattura sono già valorizzati!"_s;
const QString Domanda = u"Procedo all'aggiornamento del progressivo?"_s;

QString Salvato()
{
    return GetSetting(u"KR5"_s, u"Parametri"_s, u"ProgFatt"_s, u"nessuno"_s);
}

QString FileImpostazioni()
{
    return qEnvironmentVariable("XDG_CONFIG_HOME") + u"/Calcanova/KR5.ini"_s;
}

}  // namespace

class TestNumeraFattura : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void propone_data();
    void propone();
    void entrambiVuoti_data();
    void entrambiVuoti();
    void lUltimoNumero();
    void accettato();
    void rifiutato();
    void impostazioniCheNonSiScrivono();
    void dueProgrammi();
    void deposito_data();
    void deposito();
    void depositoSenzaNumero_data();
    void depositoSenzaNumero();
};
PROVA(TestNumeraFattura);

void TestNumeraFattura::init()
{
    AzzeraSessione();
    QFile::remove(FileImpostazioni());
    QFile::remove(FileImpostazioni() + u".danno"_s);
    InstallaOrologio([] { return QDateTime(QDate(2026, 3, 5), QTime(23, 59)); });
}

void TestNumeraFattura::cleanup()
{
    InstallaOrologio({});
    AzzeraSessione();
}

void TestNumeraFattura::propone_data()
{
    QTest::addColumn<int>("ProgFatt");
    QTest::addColumn<QString>("Numero");
    QTest::newRow("la prima") << 0 << u"1"_s;
    QTest::newRow("senza punti delle migliaia") << 1233 << u"1234"_s;
    QTest::newRow("la penultima") << 32766 << u"32767"_s;
    QTest::newRow("un progressivo negativo") << -3 << u"-2"_s;
}

void TestNumeraFattura::propone()
{
    QFETCH(int, ProgFatt);
    const Registratore Voce;
    sessione::ProgFatt = ProgFatt;
    Parcella Nota;
    QVERIFY(NumeraFattura(Nota));
    QTEST(Nota.DatiPar(DatoNumFatt), "Numero");
    QCOMPARE(Nota.DatiPar(DatoDataFatt), u"05/03/2026"_s);
    QVERIFY(Nota.Modificata);
    QCOMPARE(sessione::ProgFatt, ProgFatt);
    QCOMPARE(Salvato(), u"nessuno"_s);
}

void TestNumeraFattura::entrambiVuoti_data()
{
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<QString>("Data");
    QTest::newRow("numero senza data") << u"7"_s << QString();
    QTest::newRow("data senza numero") << QString() << u"01/01/2026"_s;
    QTest::newRow("tutti e due") << u"7"_s << u"01/01/2026"_s;
    QTest::newRow("uno spazio") << u" "_s << QString();
}

void TestNumeraFattura::entrambiVuoti()
{
    QFETCH(QString, Numero);
    QFETCH(QString, Data);
    Registratore Voce;
    Voce.Attendi(GiaScritti, vbOK, u"Errore:"_s);
    Parcella Nota;
    Nota.txtDatiPar[DatoNumFatt] = Numero;
    Nota.txtDatiPar[DatoDataFatt] = Data;
    const Parcella Prima = Nota;
    QVERIFY(!NumeraFattura(Nota));
    QVERIFY(Nota == Prima);
}

void TestNumeraFattura::lUltimoNumero()
{
    Registratore Voce;
    Voce.Attendi(u"Il progressivo delle fatture è arrivato all'ultimo numero (32767)!\n"
                 "Correggerlo nelle impostazioni oppure indicare il numero a mano."_s,
                 vbOK, u"Errore:"_s);
    sessione::ProgFatt = 32767;
    Parcella Nota;
    const Parcella Prima = Nota;
    QVERIFY(!NumeraFattura(Nota));
    QVERIFY(Nota == Prima);
    QCOMPARE(sessione::ProgFatt, 32767);
}

void TestNumeraFattura::accettato()
{
    Registratore Voce;
    sessione::ProgFatt = 41;
    Voce.Attendi(Domanda, vbYes, u"Domanda:"_s);
    AggiornaProgFatt();
    QCOMPARE(Voce.Mostrato(0).Bandiere, vbYesNo + vbQuestion);
    QCOMPARE(sessione::ProgFatt, 42);
    QCOMPARE(Salvato(), u"42"_s);
}

void TestNumeraFattura::rifiutato()
{
    Registratore Voce;
    sessione::ProgFatt = 41;
    Voce.Attendi(Domanda, vbNo);
    AggiornaProgFatt();
    QCOMPARE(sessione::ProgFatt, 41);
    QCOMPARE(Salvato(), u"nessuno"_s);
}

void TestNumeraFattura::impostazioniCheNonSiScrivono()
{
    // A folder in the place of the file: nobody can write it, not even the superuser.
    QVERIFY(QDir().mkpath(FileImpostazioni() + u"/dentro"_s));
    const auto Sgombra = qScopeGuard([] { QDir(FileImpostazioni()).removeRecursively(); });
    Registratore Voce;
    sessione::ProgFatt = 41;
    Voce.Attendi(Domanda, vbYes);
    QCOMPARE(NumeroErrore([] { AggiornaProgFatt(); }), 75);
    QCOMPARE(sessione::ProgFatt, 41);
}

/// The other program numbers two invoices while this one runs, and one more while the question stands.
void TestNumeraFattura::dueProgrammi()
{
    Registratore Voce;
    const auto Altro = [](const QString& Numero) {
        SaveSetting(u"KR5"_s, u"Parametri"_s, u"ProgFatt"_s, Numero);
    };
    sessione::ProgFatt = 5;
    Altro(u"7"_s);
    Parcella Nota;
    QVERIFY(NumeraFattura(Nota));
    QCOMPARE(Nota.DatiPar(DatoNumFatt), u"8"_s);
    Altro(u"9"_s);
    Voce.Attendi(Domanda, vbYes);
    AggiornaProgFatt();
    QCOMPARE(Salvato(), u"9"_s);
    QCOMPARE(sessione::ProgFatt, 9);
}

void TestNumeraFattura::deposito_data()
{
    QTest::addColumn<QString>("Conservato");
    QTest::addColumn<QString>("Numero");
    QTest::newRow("begun anew elsewhere") << u"0"_s << u"1"_s;
    QTest::newRow("blanks around") << u" 12 "_s << u"13"_s;
    QTest::newRow("decimals, as the start reads them") << u"57,0"_s << u"58"_s;
    QTest::newRow("points of thousands") << u"1.233"_s << u"1234"_s;
    QTest::newRow("blanks") << u"  "_s << u"42"_s;
    QTest::newRow("empty") << QString() << u"42"_s;
}

void TestNumeraFattura::deposito()
{
    QFETCH(QString, Conservato);
    QFETCH(QString, Numero);
    sessione::ProgFatt = 41;
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"ProgFatt"_s, Conservato);
    Parcella Nota;
    QVERIFY(NumeraFattura(Nota));
    QCOMPARE(Nota.DatiPar(DatoNumFatt), Numero);
}

void TestNumeraFattura::depositoSenzaNumero_data()
{
    QTest::addColumn<QString>("Conservato");
    QTest::newRow("a word") << u"abc"_s;
    QTest::newRow("a letter among the digits") << u"4l"_s;
    QTest::newRow("a letter behind them") << u"41x"_s;
    QTest::newRow("too large") << u"32768"_s;
    QTest::newRow("too small") << u"-32769"_s;
    QTest::newRow("negative") << u"-3"_s;
    QTest::newRow("a fraction") << u"41,5"_s;
}

/// The number that the office has come to may still be read in it: it is not written over from the beginning.
void TestNumeraFattura::depositoSenzaNumero()
{
    QFETCH(QString, Conservato);
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"ProgFatt"_s, Conservato);
    (void)NumeroErrore([] { LeggiInSessione(VoceDi(chiavi::ProgFatt)); });  // as the start has read it
    Registratore Voce;
    Voce.Attendi(u"Il progressivo delle fatture, nelle impostazioni, non è un numero da 0 a 32767!\n"
                 "Correggerlo nelle impostazioni oppure indicare il numero a mano."_s,
                 vbOK, u"Errore:"_s);
    Parcella Nota;
    const Parcella Prima = Nota;
    QVERIFY(!NumeraFattura(Nota));
    QVERIFY(Nota == Prima);
    QCOMPARE(Salvato(), Conservato);
}

#include "TestNumeraFattura.moc"
