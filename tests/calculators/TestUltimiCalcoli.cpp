// The list of the last calculations: what goes in, what comes out, what a damaged file makes of it.
#include "supporto/guasti.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "calculators/ultimicalcoli.h"
#include "core/impostazioni.h"
#include "core/parametri.h"
#include "core/sessione.h"
#include "platform/system/attese.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/turno.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

using enum Calcolatrice;

const QDateTime Quando(QDate(2026, 11, 21), QTime(10, 30));

CalcoloRicordato Fatto(const QString& Nome, const QString& Valore = {})
{
    return {Nome, Nome + u" esito"_s, Quando, {{u"txtImporto"_s, Valore.isEmpty() ? Nome : Valore}}};
}

QStringList Nomi(Calcolatrice Quale)
{
    QStringList Tutti;
    for (const CalcoloRicordato& Calcolo : UltimiCalcoli(Quale))
        Tutti << Calcolo.Nome;
    return Tutti;
}

void Posa(const QByteArray& Byte)
{
    CreaCartellaPrivata(CartellaDati());
    ScriviFile(FileCalcoli(), Byte);
}

}  // namespace

class TestUltimiCalcoli : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void giro();
    void dieciEPoiEsce();
    void unoPerCalcolatrice();
    void dieciAncheNelFile();
    void gliStessiDatiUnaVolta();
    void gliStessiNonNeCaccianoAltri();
    void aTurno();
    void ilNomeDatoResta();
    void sostituisce();
    void rinominaDimenticaSvuota();
    void rinominaDiChiNonCe();
    void unaRigaSola();
    void spento();
    void spentoDaUnAltraSessione();
    void delSoloUtente();
    void guasti_data();
    void guasti();
    void guastoDettoUnaVolta();
    void guastoDettoRicordando();
    void guastoDettoSulDiscoPieno();
    void vociGuasteSaltate();
    void cartellaRifiutata();
};
PROVA(TestUltimiCalcoli);

void TestUltimiCalcoli::init()
{
    AzzeraSessione();
    ScartaFile(FileCalcoli());
    ScartaFile(FileCalcoliGuasto());
}

void TestUltimiCalcoli::giro()
{
    const CalcoloRicordato Calcolo{u"1.000,00 euro, è «così»"_s,
                                   u"25,07 euro"_s,
                                   Quando,
                                   {{u"txtCapitale"_s, u"1000"_s}, {u"mskDataIni"_s, u"01/01/2012"_s}}};
    QVERIFY(UltimiCalcoli(Interessi).isEmpty());
    RicordaCalcolo(Interessi, Calcolo);
    QCOMPARE(UltimiCalcoli(Interessi), QList<CalcoloRicordato>{Calcolo});
}

void TestUltimiCalcoli::dieciEPoiEsce()
{
    for (int i = 0; i < 12; ++i)
        RicordaCalcolo(Istat, Fatto(QString::number(i)));
    QCOMPARE(Nomi(Istat),
             (QStringList{u"11"_s, u"10"_s, u"9"_s, u"8"_s, u"7"_s, u"6"_s, u"5"_s, u"4"_s, u"3"_s, u"2"_s}));
}

void TestUltimiCalcoli::unoPerCalcolatrice()
{
    for (const NomiCalcolatrice& Una : TabellaCalcolatrici)
        RicordaCalcolo(Una.Quale, Fatto(Una.NelFile.toString()));
    for (const NomiCalcolatrice& Una : TabellaCalcolatrici)
        QCOMPARE(Nomi(Una.Quale), QStringList{Una.NelFile.toString()});
}

/// What goes is gone from the file, and a file that has more, by whatever hand, shows ten.
void TestUltimiCalcoli::dieciAncheNelFile()
{
    for (int i = 0; i < 12; ++i)
        RicordaCalcolo(Istat, Fatto(QString::number(i)));
    const QJsonObject Tutto = QJsonDocument::fromJson(LeggiFile(FileCalcoli())).object();
    QCOMPARE(Tutto[u"istat"].toArray().size(), 10);
    ElencoCalcoli Elenco;
    for (int i = 0; i < 12; ++i)
        Elenco[size_t(Istat)] << Fatto(QString::number(i));
    const auto Letto = LeggiElenco(ScriviElenco(Elenco));
    QVERIFY(Letto);
    QCOMPARE((*Letto)[size_t(Istat)].size(), 10);
    QCOMPARE((*Letto)[size_t(Istat)].last().Nome, u"9"_s);
}

/// One that is made again takes no other one's place.
void TestUltimiCalcoli::gliStessiNonNeCaccianoAltri()
{
    for (int i = 0; i < 10; ++i)
        RicordaCalcolo(Istat, Fatto(QString::number(i)));
    RicordaCalcolo(Istat, Fatto(u"5"_s));
    QCOMPARE(Nomi(Istat),
             (QStringList{u"5"_s, u"9"_s, u"8"_s, u"7"_s, u"6"_s, u"4"_s, u"3"_s, u"2"_s, u"1"_s, u"0"_s}));
}

/// While another program changes the file nobody else does: what that one has read would be lost.
void TestUltimiCalcoli::aTurno()
{
    const QScopedValueRollback Breve(attese::TurnoMs, 50);
    RicordaCalcolo(Istat, Fatto(u"prima"_s));
    int Rifiuto = 0;
    ATurno(FileCalcoli(), u".~calcoli.json.lock"_s,
           [&] { Rifiuto = NumeroErrore([] { RicordaCalcolo(Istat, Fatto(u"intanto"_s)); }); });
    QCOMPARE(Rifiuto, 55);
    QCOMPARE(Nomi(Istat), QStringList{u"prima"_s});
    RicordaCalcolo(Istat, Fatto(u"poi"_s));
    QCOMPARE(Nomi(Istat), (QStringList{u"poi"_s, u"prima"_s}));
}

void TestUltimiCalcoli::gliStessiDatiUnaVolta()
{
    RicordaCalcolo(Istat, Fatto(u"a"_s));
    RicordaCalcolo(Istat, Fatto(u"b"_s));
    CalcoloRicordato Ancora = Fatto(u"a"_s);
    Ancora.Quando = Quando.addDays(1);
    RicordaCalcolo(Istat, Ancora);
    QCOMPARE(Nomi(Istat), (QStringList{u"a"_s, u"b"_s}));
    QCOMPARE(UltimiCalcoli(Istat).first().Quando, Quando.addDays(1));
}

void TestUltimiCalcoli::ilNomeDatoResta()
{
    const CalcoloRicordato Calcolo = Fatto(u"1000 euro"_s);
    RicordaCalcolo(Istat, Calcolo);
    RinominaCalcolo(Istat, Calcolo.Campi, u" Causa Rossi "_s);
    RicordaCalcolo(Istat, Calcolo);
    QCOMPARE(Nomi(Istat), QStringList{u"Causa Rossi"_s});
}

void TestUltimiCalcoli::sostituisce()
{
    const CalcoloRicordato Prima = Fatto(u"prima"_s);
    RicordaCalcolo(Contributo, Prima);
    RicordaCalcolo(Contributo, Fatto(u"altro"_s));
    RicordaCalcolo(Contributo, Fatto(u"dopo"_s), Prima.Campi);
    QCOMPARE(Nomi(Contributo), (QStringList{u"dopo"_s, u"altro"_s}));
    // A name that was given goes on with it, one that was made of the inputs does not.
    RinominaCalcolo(Contributo, Fatto(u"dopo"_s).Campi, u"Rossi c. Bianchi"_s);
    RicordaCalcolo(Contributo, Fatto(u"ancora"_s), Fatto(u"dopo"_s).Campi);
    QCOMPARE(Nomi(Contributo), (QStringList{u"Rossi c. Bianchi"_s, u"altro"_s}));
    RicordaCalcolo(Contributo, Fatto(u"infine"_s), Fatto(u"ancora"_s).Campi);
    QCOMPARE(Nomi(Contributo).first(), u"Rossi c. Bianchi"_s);
}

void TestUltimiCalcoli::rinominaDimenticaSvuota()
{
    for (const QString& Nome : {u"a"_s, u"b"_s, u"c"_s})
        RicordaCalcolo(Termini, Fatto(Nome));
    RicordaCalcolo(Istat, Fatto(u"resta"_s));
    RinominaCalcolo(Termini, Fatto(u"b"_s).Campi, u"appello"_s);
    QCOMPARE(Nomi(Termini), (QStringList{u"c"_s, u"appello"_s, u"a"_s}));
    DimenticaCalcolo(Termini, Fatto(u"b"_s).Campi);
    QCOMPARE(Nomi(Termini), (QStringList{u"c"_s, u"a"_s}));
    SvuotaCalcoli(Termini);
    QVERIFY(Nomi(Termini).isEmpty());
    QCOMPARE(Nomi(Istat), QStringList{u"resta"_s});
    // Nothing of them is left on the disk.
    QVERIFY(!LeggiFile(FileCalcoli()).contains("esito\":\"c"));
}

void TestUltimiCalcoli::rinominaDiChiNonCe()
{
    RicordaCalcolo(Termini, Fatto(u"a"_s));
    RinominaCalcolo(Termini, Fatto(u"b"_s).Campi, u"x"_s);
    RinominaCalcolo(Termini, Fatto(u"a"_s).Campi, u"  "_s);
    DimenticaCalcolo(Termini, Fatto(u"b"_s).Campi);
    QCOMPARE(Nomi(Termini), QStringList{u"a"_s});
}

void TestUltimiCalcoli::unaRigaSola()
{
    CalcoloRicordato Calcolo = Fatto(u"a"_s);
    Calcolo.Nome = u"due\nrighe \u202Erovesciate "_s + QString(200, u'x');
    Calcolo.Esito = QString(200, u'y');
    Calcolo.Campi[u"lungo"_s] = QString(400, u'z');
    RicordaCalcolo(Termini, Calcolo);
    const CalcoloRicordato Letto = UltimiCalcoli(Termini).first();
    QVERIFY(Letto.Nome.startsWith(u"due righe rovesciate xxx"));
    QCOMPARE(Letto.Nome.size(), 120);
    QVERIFY(Letto.Nome.endsWith(u"x…"));
    QCOMPARE(Letto.Esito.size(), 120);
    QCOMPARE(Letto.Campi.value(u"lungo"_s).size(), 300);
}

/// A session that began before holds to it too.
void TestUltimiCalcoli::spentoDaUnAltraSessione()
{
    RicordaCalcolo(Termini, Fatto(u"a"_s));
    SalvaImpostazione(chiavi::RicordaCalcoli.toString(), u"N"_s);
    QVERIFY(sessione::RicordaCalcoli);
    RicordaCalcolo(Termini, Fatto(u"b"_s));
    QCOMPARE(Nomi(Termini), QStringList{u"a"_s});
    SalvaImpostazione(chiavi::RicordaCalcoli.toString(), u"S"_s);
    RicordaCalcolo(Termini, Fatto(u"b"_s));
    QCOMPARE(Nomi(Termini).size(), 2);
}

void TestUltimiCalcoli::spento()
{
    RicordaCalcolo(Termini, Fatto(u"a"_s));
    ImpostaRicordo(false);
    QVERIFY(!sessione::RicordaCalcoli);
    QCOMPARE(ValoreConservato(chiavi::RicordaCalcoli), u"N"_s);
    RicordaCalcolo(Termini, Fatto(u"b"_s));
    QCOMPARE(Nomi(Termini), QStringList{u"a"_s});
    // A new session reads what was stored.
    AzzeraSessione();
    QVERIFY(sessione::RicordaCalcoli);
    LeggiInSessione(VoceDi(chiavi::RicordaCalcoli));
    QVERIFY(!sessione::RicordaCalcoli);
    ImpostaRicordo(true);
    RicordaCalcolo(Termini, Fatto(u"b"_s));
    QCOMPARE(Nomi(Termini), (QStringList{u"b"_s, u"a"_s}));
}

void TestUltimiCalcoli::delSoloUtente()
{
    RicordaCalcolo(CodiceFiscale, Fatto(u"Rossi Mario"_s));
    QCOMPARE(QFileInfo(FileCalcoli()).permissions() & QFile::Permissions(0x0077), QFile::Permissions());
    QCOMPARE(QFileInfo(CartellaDati()).permissions() & QFile::Permissions(0x0077), QFile::Permissions());
    // A file that others may read is closed to them by the next write.
    QVERIFY(QFile::setPermissions(FileCalcoli(), QFile::Permissions(0x6644)));
    RicordaCalcolo(CodiceFiscale, Fatto(u"Bianchi Anna"_s));
    QCOMPARE(QFileInfo(FileCalcoli()).permissions() & QFile::Permissions(0x0077), QFile::Permissions());
    // One that cannot be read still names clients where it is put aside, and so does one that was there.
    Registratore Voce;
    Voce.Tollera();
    Posa("guasto");
    QVERIFY(QFile::setPermissions(FileCalcoli(), QFile::Permissions(0x6644)));
    RicordaCalcolo(CodiceFiscale, Fatto(u"Verdi Anna"_s));
    QCOMPARE(LeggiFile(FileCalcoliGuasto()), QByteArray("guasto"));
    QCOMPARE(QFileInfo(FileCalcoliGuasto()).permissions() & QFile::Permissions(0x0077), QFile::Permissions());
}

void TestUltimiCalcoli::guasti_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::newRow("vuoto") << QByteArray();
    QTest::newRow("non è JSON") << QByteArray("{\"ultimiCalcoli\":1,");
    QTest::newRow("elenco") << QByteArray("[1,2]");
    QTest::newRow("altro formato") << QByteArray("{\"ultimiCalcoli\":2}");
    QTest::newRow("formato a parole") << QByteArray("{\"ultimiCalcoli\":\"1\"}");
    QTest::newRow("altro oggetto") << QByteArray("{\"termini\":[]}");
    QTest::newRow("troppo grande") << "{\"ultimiCalcoli\":1,\"x\":\"" + QByteArray((8 << 20) + 1, 'x') +
                                          "\"}";
}

void TestUltimiCalcoli::guasti()
{
    QFETCH(QByteArray, Byte);
    Registratore Voce;
    Posa(Byte);
    Voce.Attendi(FraseElencoGuasto(), vbOK, u"Messaggio:"_s);
    QVERIFY(UltimiCalcoli(Termini).isEmpty());
    // It is somebody's work, or a newer program's: put aside, not lost.
    QCOMPARE(LeggiFile(FileCalcoliGuasto()), Byte);
    QVERIFY(FraseElencoGuasto().contains(FileCalcoliGuasto()));
    RicordaCalcolo(Termini, Fatto(u"a"_s));
    QCOMPARE(Nomi(Termini), QStringList{u"a"_s});
    QCOMPARE(LeggiFile(FileCalcoliGuasto()), Byte);
    {  // what stays is said: it has names in it
        const QScopedValueRollback Trattenuto(guasti::FileTrattenuti, CartellaFile(FileCalcoliGuasto()));
        QCOMPARE(NumeroErrore([] { SvuotaCalcoli(Termini); }), errori::Accesso);
        QVERIFY(EsisteFile(FileCalcoliGuasto()));
    }
    // Whoever empties the list wants nothing of it kept.
    SvuotaCalcoli(Termini);
    QVERIFY(!EsisteFile(FileCalcoliGuasto()));
}

void TestUltimiCalcoli::guastoDettoUnaVolta()
{
    Registratore Voce;
    Posa("guasto");
    Voce.Attendi(FraseElencoGuasto());
    for (int i = 0; i < 3; ++i)
        QVERIFY(UltimiCalcoli(Istat).isEmpty());
    QCOMPARE(Voce.Mostrati().size(), 1);
}

void TestUltimiCalcoli::guastoDettoRicordando()
{
    Registratore Voce;
    Posa("guasto");
    Voce.Attendi(FraseElencoGuasto());
    RicordaCalcolo(Istat, Fatto(u"a"_s));
    QCOMPARE(Nomi(Istat), QStringList{u"a"_s});
}

/// The list that was put aside is told even where the new one cannot be written.
void TestUltimiCalcoli::guastoDettoSulDiscoPieno()
{
    Registratore Voce;
    Posa("guasto");
    Voce.Attendi(FraseElencoGuasto());
    const QScopedValueRollback Pieno(guasti::LimiteFile, qint64(5));
    QVERIFY(NumeroErrore([&] { RicordaCalcolo(Istat, Fatto(u"a"_s)); }) != 0);
    QCOMPARE(Voce.Mostrati().size(), 1);
    QCOMPARE(LeggiFile(FileCalcoliGuasto()), QByteArray("guasto"));
}

void TestUltimiCalcoli::vociGuasteSaltate()
{
    const QJsonObject Campi{{u"txt"_s, u"1"_s}};
    const auto Voce = [&](const QString& Nome, const QJsonValue& Tempo, const QJsonObject& Caselle) {
        return QJsonObject{
            {u"nome"_s, Nome}, {u"esito"_s, u"x"_s}, {u"quando"_s, Tempo}, {u"campi"_s, Caselle}};
    };
    const QString Sano = u"2026-11-21T10:30:00"_s;
    QJsonObject Troppi;
    for (int i = 0; i < 41; ++i)
        Troppi.insert(QString::number(i), u"1"_s);
    const QJsonArray Voci{Voce(u""_s, Sano, Campi),
                          Voce(u"senza tempo"_s, u"ieri"_s, Campi),
                          Voce(u"tempo a numeri"_s, 5, Campi),
                          Voce(u"senza campi"_s, Sano, {}),
                          Voce(u"campi a numeri"_s, Sano, {{u"txt"_s, 1}}),
                          Voce(u"troppi campi"_s, Sano, Troppi),
                          Voce(u"campo lungo"_s, Sano, {{u"txt"_s, QString(301, u'x')}}),
                          Voce(u"chiave lunga"_s, Sano, {{QString(41, u'x'), u"1"_s}}),
                          u"parola"_s,
                          Voce(u"sana"_s, Sano, Campi),
                          Voce(u"doppia"_s, Sano, Campi)};
    const auto Elenco = LeggiElenco(
        QJsonDocument(QJsonObject{{u"ultimiCalcoli"_s, 1}, {u"termini"_s, Voci}, {u"istat"_s, u"no"_s}})
            .toJson());
    QVERIFY(Elenco);
    QCOMPARE((*Elenco)[size_t(Termini)].size(), 1);
    QCOMPARE((*Elenco)[size_t(Termini)].first().Nome, u"sana"_s);
    QVERIFY((*Elenco)[size_t(Istat)].isEmpty());
    QCOMPARE(LeggiElenco(ScriviElenco(*Elenco)), Elenco);
}

void TestUltimiCalcoli::cartellaRifiutata()
{
    RicordaCalcolo(Termini, Fatto(u"a"_s));
    // A folder in the file's place: it is no list, and nothing overwrites it.
    ScartaFile(FileCalcoli());
    QVERIFY(QDir().mkpath(FileCalcoli()));
    QVERIFY(NumeroErrore([&] { RicordaCalcolo(Termini, Fatto(u"b"_s)); }) != 0);
    QVERIFY(QDir().rmdir(FileCalcoli()));
}

#include "TestUltimiCalcoli.moc"
