// Rate archives that are missing, damaged, locked or not filled in, for interest and for revaluation.
#include "archivio_prova.h"
#include "supporto/guasti.h"
#include "supporto/registratore.h"

#include "calculators/modInteressi.h"
#include "calculators/modIstat.h"
#include "calculators/modTassi.h"
#include "core/sessione.h"
#include "platform/base/regionale.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"

#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

EsitoInteressi Interesse(const QString& Archivio, const QString& Capitale = u"36500"_s,
                         const QString& Aumento = {}, const QString& Al = u"10/01/2013"_s)
{
    QString UltimoAumento = Aumento;
    return CalcolaInteressi(Archivio,
                            {InteressiLegali, Capitale, ValutaEuro, Aumento, u"31/12/2012"_s, Al, false},
                            UltimoAumento);
}

FineIstat Rivaluta(const QString& Archivio, RisultatiIstat& Etichette, const QString& Importo = u"100"_s)
{
    bool Chiesto = false;
    return CalcolaRivalutazione(Archivio, {u"01/01/2012"_s, u"01/02/2012"_s, Importo, 0}, Chiesto, Etichette);
}

}  // namespace

class TestArchiviGuasti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void mancante();
    void senzaTabella();
    void senzaIndice();
    void troncato_data();
    void troncato();
    void bloccato();
    void bucoFraLeRighe();
    void righeSovrapposte();
    void tassoAZero();
    void tassoNullo();
    void finePeriodoNulla();
    void importiCheNonSonoNumeri_data();
    void importiCheNonSonoNumeri();
    void cifreTroppoGrandi();
    void indiceAZero();
    void meseFuoriDallAnno();
    void doveSta();
};
PROVA(TestArchiviGuasti);

void TestArchiviGuasti::cleanup()
{
    attese::BlocchiMs = 3000;
    AzzeraSessione();
}

void TestArchiviGuasti::mancante()
{
    const QString File = NuovaCartella() + u"Tassi.dat"_s;
    RisultatiIstat Etichette;
    QCOMPARE(NumeroErrore([&] { (void)Interesse(File); }), 3024);
    QCOMPARE(NumeroErrore([&] { (void)Rivaluta(File, Etichette); }), 3024);
    QCOMPARE(Etichette, RisultatiIstat());
}

void TestArchiviGuasti::senzaTabella()
{
    const QString File = ArchivioConTassi(u"InteressiMora"_s, {});
    RisultatiIstat Etichette;
    QCOMPARE(NumeroErrore([&] { (void)Interesse(File); }), 3078);
    QCOMPARE(NumeroErrore([&] { (void)Rivaluta(File, Etichette); }), 3078);
}

void TestArchiviGuasti::senzaIndice()
{
    const QString File = ArchivioConTassi(u"InteressiLegali"_s, {});
    OpenDatabase(File).Execute(u"DROP INDEX \"InteressiLegali.Dal\""_s);
    QCOMPARE(NumeroErrore([&] { (void)Interesse(File); }), 3015);
}

void TestArchiviGuasti::troncato_data()
{
    QTest::addColumn<int>("Byte");
    QTest::newRow("vuoto") << 0;
    QTest::newRow("in mezzo all'intestazione") << 50;
    QTest::newRow("alla prima pagina") << 4096;
    QTest::newRow("in mezzo a una pagina") << 10000;
}

void TestArchiviGuasti::troncato()
{
    QFETCH(int, Byte);
    const QString File = NuovaCartella() + u"Tassi.dat"_s;
    ScriviFile(File, LeggiFile(ArchivioConsegnato()).left(Byte));
    RisultatiIstat Etichette;
    QCOMPARE(NumeroErrore([&] { (void)Interesse(File); }), 3343);
    QCOMPARE(NumeroErrore([&] { (void)Rivaluta(File, Etichette); }), 3343);
    QCOMPARE(Etichette, RisultatiIstat());
}

// Another name of the same file gets a connection of its own, as another program would.
void TestArchiviGuasti::bloccato()
{
    const QString File =
        ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2013, 12, 31), 5.0}});
    const QString Altro = CartellaFile(File) + u"altro.dat"_s;
    std::filesystem::create_hard_link(File.toStdString(), Altro.toStdString());
    attese::BlocchiMs = 50;
    {
        const Database Suo = OpenDatabase(Altro);
        Suo.Execute(u"BEGIN EXCLUSIVE"_s);
        QCOMPARE(NumeroErrore([&] { (void)Interesse(File); }), 3260);
        Suo.Execute(u"COMMIT"_s);
    }
    QCOMPARE(Interesse(File).TotaleInteressi, 55.0);
}

// Nobody asks whether a row begins where the last one ended: the next rate covers the gap too.
void TestArchiviGuasti::bucoFraLeRighe()
{
    const QString File =
        ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2012, 12, 31), 5.0},
                                                {QDate(2013, 1, 5), QDate(2013, 12, 31), 10.0}});
    const EsitoInteressi Esito = Interesse(File);
    QCOMPARE(Esito.Righe.Righe(), 2);
    QCOMPARE(Esito.Righe(1, IntDal).toDate(), QDate(2013, 1, 1));
    QCOMPARE(Esito.Righe(1, IntGiorni).toInt(), 10);
    QCOMPARE(Esito.TotaleInteressi, 105.0);
}

// A row that is over before its turn comes holds for one day.
void TestArchiviGuasti::righeSovrapposte()
{
    const QString File =
        ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2013, 1, 4), 5.0},
                                                {QDate(2012, 6, 1), QDate(2012, 7, 1), 7.0},
                                                {QDate(2013, 1, 1), QDate(2013, 12, 31), 10.0}});
    QString UltimoAumento;
    const EsitoInteressi Esito = CalcolaInteressi(
        File, {InteressiLegali, u"36500"_s, 0, {}, u"01/01/2012"_s, u"10/01/2013"_s, false}, UltimoAumento);
    QCOMPARE(Esito.Righe.Righe(), 3);
    QCOMPARE(Esito.Righe(0, IntAl).toDate(), QDate(2013, 1, 4));
    QCOMPARE(Esito.Righe(1, IntGiorni).toInt(), 1);
    QCOMPARE(Esito.Righe(1, IntTasso).toDouble(), 7.0);
    QCOMPARE(Esito.Righe(2, IntDal).toDate(), QDate(2013, 1, 6));
}

void TestArchiviGuasti::tassoAZero()
{
    const Registratore Box;
    const QString Subito =
        ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2013, 12, 31), 0.0}});
    QCOMPARE(Interesse(Subito).Fine, FineInteressi::Interrotta);
    const QString Dopo =
        ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2012, 12, 31), 5.0},
                                                {QDate(2013, 1, 1), QDate(2013, 12, 31), 0.0}});
    QCOMPARE(Interesse(Dopo).Fine, FineInteressi::Interrotta);
    QCOMPARE(Interesse(Dopo, u"36500"_s, {}, u"31/12/2012"_s).Fine, FineInteressi::Completa);
}

void TestArchiviGuasti::tassoNullo()
{
    const Registratore Box;
    const QString File =
        ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2013, 12, 31), QVariant()}});
    QCOMPARE(Interesse(File).Fine, FineInteressi::Interrotta);
}

void TestArchiviGuasti::finePeriodoNulla()
{
    const Registratore Box;
    const QString File = ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(), 5.0}});
    QCOMPARE(Interesse(File).TotaleInteressi, 55.0);
}

void TestArchiviGuasti::importiCheNonSonoNumeri_data()
{
    QTest::addColumn<QString>("Testo");
    for (const auto& Testo : {u"abc"_s, u"1-2"_s, u"12.5"_s, u"  "_s, u"1.2.3"_s})
        QTest::newRow(qPrintable(Testo)) << Testo;
}

void TestArchiviGuasti::importiCheNonSonoNumeri()
{
    QFETCH(QString, Testo);
    RisultatiIstat Etichette;
    QCOMPARE(NumeroErrore([&] { (void)Interesse(ArchivioConsegnato(), Testo); }), 13);
    QCOMPARE(NumeroErrore([&] { (void)Interesse(ArchivioConsegnato(), u"1"_s, Testo); }), 13);
    QCOMPARE(NumeroErrore([&] { (void)Rivaluta(ArchivioConsegnato(), Etichette, Testo); }), 13);
    QCOMPARE(Etichette, RisultatiIstat());
}

void TestArchiviGuasti::cifreTroppoGrandi()
{
    RisultatiIstat Etichette;
    QCOMPARE(NumeroErrore([&] { (void)Interesse(ArchivioConsegnato(), u"1E400"_s); }), 6);
    QCOMPARE(NumeroErrore([&] { (void)Interesse(ArchivioConsegnato(), u"1,7E308"_s, u"1000"_s); }), 6);
    QCOMPARE(NumeroErrore([&] { (void)Interesse(ArchivioConsegnato(), u"1"_s, u"1E39"_s); }), 6);
    QCOMPARE(NumeroErrore([&] { (void)Rivaluta(ArchivioConsegnato(), Etichette, u"1E400"_s); }), 6);
    QCOMPARE(NumeroErrore([&] { (void)Rivaluta(ArchivioConsegnato(), Etichette, u"1,797E308"_s); }), 5);
}

void TestArchiviGuasti::indiceAZero()
{
    const QString File = NuovaCartella() + u"Tassi.dat"_s;
    QVERIFY(QFile::copy(ArchivioConsegnato(), File));
    OpenDatabase(File).Execute(u"UPDATE IndiciIstat SET Indice=NULL WHERE Anno=2012 AND Mese=1"_s);
    RisultatiIstat Etichette;
    QCOMPARE(NumeroErrore([&] { (void)Rivaluta(File, Etichette); }), 11);
}

void TestArchiviGuasti::meseFuoriDallAnno()
{
    const QString File = NuovaCartella() + u"Tassi.dat"_s;
    QVERIFY(QFile::copy(ArchivioConsegnato(), File));
    const Database Db = OpenDatabase(File);
    Db.Execute(u"DELETE FROM IndiciIstat WHERE Anno>2012 OR (Anno=2012 AND Mese>1)"_s);
    Db.Execute(u"INSERT INTO IndiciIstat VALUES (2012, 13, 100)"_s);
    Registratore Box;
    RisultatiIstat Etichette;
    QCOMPARE(NumeroErrore([&] { (void)Rivaluta(File, Etichette); }), 9);
}

void TestArchiviGuasti::doveSta()
{
    const QString Cartella = NuovaCartella();
    sessione::UserFolder = Cartella.chopped(1);
    QCOMPARE(ArchivioTassi(), Cartella + u"Tassi.dat"_s);
    QVERIFY(!DataArchivio(ArchivioTassi()));
    ScriviFile(Cartella + u"TASSI.DAT"_s, "x");
    QCOMPARE(ArchivioTassi(), Cartella + u"TASSI.DAT"_s);
    QCOMPARE(DataArchivio(ArchivioTassi()), std::optional(Oggi()));
}

#include "TestArchiviGuasti.moc"
