// Files that are no fee notes, disks that refuse: nothing half-read, nothing half-written.
#include "feenote/nota_prova.h"

#include "core/rapportiunici.h"
#include "feenote/file/errorecarico.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPosaFile.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "tariffs/modTariffe.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

Parcella NotaSemplice()
{
    Parcella Nota = NotaCivile();
    Nota.txtCliente.Testo = u"Rossi"_s;
    for (int Riga = 0; Riga < 3; ++Riga)
        RigaOnorario(Nota, u"riga"_s, 100);
    return Nota;
}

/// Loads, and tells the error; a failed load leaves a new note without a path.
int ErroreDelCarico(const QString& File)
{
    Parcella Nuova;
    NuovaParcella(Nuova);
    Parcella Nota = NotaSemplice();
    Nota.Percorso = u"prima.mdb"_s;
    const int Numero = NumeroErrore([&] { CaricaDati(Nota, File); });
    if (Numero != 0 && !(Nota == Nuova))
        QTest::qFail("il carico fallito ha lasciato qualcosa", __FILE__, __LINE__);
    return Numero;
}

/// What a new note says when its reference database is away.
QString RapportoAssente(const Decreto& Legge)
{
    try {
        (void)ApriTariffe(Legge);
        return {};
    } catch (const Errore& Guasto) {
        return u"Errore: %1 (%2)"_s.arg(Guasto.Descrizione).arg(Guasto.Numero);
    }
}

/// No page may be added while it lives, as on a full disk.
struct DiscoPieno
{
    explicit DiscoPieno(int Pagine) { guasti::LimitePagine = Pagine; }
    ~DiscoPieno() { guasti::LimitePagine = 0; }
    DiscoPieno(const DiscoPieno&) = delete;
    DiscoPieno& operator=(const DiscoPieno&) = delete;
};

}  // namespace

class TestDocumentoGuasto : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void fileAssente();
    void cartellaAlPostoDelFile();
    void fileEstraneo_data();
    void fileEstraneo();
    void troncato();
    void tabellaMancante_data();
    void tabellaMancante();
    void colonnaNecessaria_data();
    void colonnaNecessaria();
    void senzaParametri();
    void valoriAssurdi();
    void aggiornamentoFallito();
    void supportoDiSolaLettura();
    void nessunRiferimentoDopoIlGuasto();
    void nessunFileAperto();

    void discoPieno_data();
    void discoPieno();
    void cartellaDiSolaLettura();
    void cartellaAssente();
    void modelloNonSovrascritto();
    void tariffeAssenti();
    void tariffeAssentiAllApertura_data();
    void tariffeAssentiAllApertura();
    void diTariffaDiversa();
    void testoTroppoLungo();
    void restoDiUnaCaduta();
};
PROVA(TestDocumentoGuasto);

void TestDocumentoGuasto::fileAssente()
{
    const Studio Ufficio;
    Registratore Messaggi;
    QCOMPARE(ErroreDelCarico(Ufficio.File(u"manca.mdb"_s)), 3024);
    QVERIFY(!QFile::exists(Ufficio.File(u"manca.mdb"_s)));
    QCOMPARE(NumeroErrore([&] { (void)LeggiPsw(Ufficio.File(u"manca.mdb"_s)); }), 3024);
}

void TestDocumentoGuasto::cartellaAlPostoDelFile()
{
    const Studio Ufficio;
    Registratore Messaggi;
    QDir().mkpath(Ufficio.File(u"nota.mdb"_s));
    QCOMPARE(ErroreDelCarico(Ufficio.File(u"nota.mdb"_s)), 75);
}

void TestDocumentoGuasto::fileEstraneo_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::newRow("vuoto") << QByteArray();
    QTest::newRow("testo") << QByteArray("Egregio collega, le invio la nota spese.");
    QTest::newRow("solo l'intestazione") << QByteArray("SQLite format 3", 16);
    QTest::newRow("zeri") << QByteArray(8192, '\0');
}

void TestDocumentoGuasto::fileEstraneo()
{
    QFETCH(QByteArray, Contenuto);
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviFile(File, Contenuto);
    QCOMPARE(ErroreDelCarico(File), 3343);
    QCOMPARE(LeggiFile(File), Contenuto);
    QCOMPARE(NumeroErrore([&] { (void)LeggiPsw(File); }), 3343);
}

void TestDocumentoGuasto::troncato()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaSemplice());
    const QByteArray Intero = LeggiFile(File);
    QVERIFY(Intero.size() > 4096);
    for (const qsizetype Resto : {Intero.size() - 4096, Intero.size() / 2, qsizetype(4096), qsizetype(100)}) {
        ScriviFile(File, Intero.left(Resto));
        QVERIFY2(ErroreDelCarico(File) != 0, qPrintable(QString::number(Resto)));
    }
}

void TestDocumentoGuasto::tabellaMancante_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::newRow("righe") << u"ParcellaRighe"_s;
    QTest::newRow("acconti") << u"ParcellaAcconti"_s;
}

void TestDocumentoGuasto::tabellaMancante()
{
    QFETCH(QString, Tabella);
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaSemplice());
    OpenDatabase(File).Execute(u"DROP TABLE "_s + Tabella);
    QCOMPARE(ErroreDelCarico(File), 3078);
}

void TestDocumentoGuasto::colonnaNecessaria_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<QString>("Colonna");
    for (const char16_t* Nome :
         {u"IDCli", u"Categ", u"Autor", u"Valore", u"Importo", u"AumRidVarP", u"AumRidIdx", u"Psw"})
        QTest::newRow(qPrintable(QString::fromUtf16(Nome))) << u"ParcellaParam"_s << QString::fromUtf16(Nome);
    QTest::newRow("importo della riga") << u"ParcellaRighe"_s << u"Importo"_s;
}

void TestDocumentoGuasto::colonnaNecessaria()
{
    QFETCH(QString, Tabella);
    QFETCH(QString, Colonna);
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaSemplice());
    OpenDatabase(File).Execute(u"ALTER TABLE "_s + Tabella + u" DROP COLUMN "_s + Colonna);
    QCOMPARE(ErroreDelCarico(File), 3265);
}

void TestDocumentoGuasto::senzaParametri()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaSemplice());
    OpenDatabase(File).Execute(u"DELETE FROM ParcellaParam"_s);
    QCOMPARE(ErroreDelCarico(File), 3021);
    QCOMPARE(NumeroErrore([&] { (void)LeggiPsw(File); }), 3021);
}

void TestDocumentoGuasto::valoriAssurdi()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Messaggi.Tollera();
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaSemplice());
    OpenDatabase(File).Execute(
        u"UPDATE ParcellaParam SET IDCli='molti', IDCon=9e300, Categ='x', Autor=-9e300, "
        "Valore=1e19, Importo='tanto', TipoStampa=3000000000, AumRidVarP=1e300, "
        "AumRidIdx=-3, VisMinMax='si', IVA='ventuno', DataFatt='ieri', Psw='abc'"_s);
    OpenDatabase(File).Execute(
        u"UPDATE ParcellaRighe SET Data='mai', NVoce='1e300', Qta='1e400', Importo='boh', "
        "VarP=-1e300"_s);
    Parcella Nota;
    CaricaDati(Nota, File);
    QCOMPARE(Nota.cmbAutor, NessunaVoce);
    QCOMPARE(Nota.ImportoPrec, 0.0);
    QCOMPARE(Nota.Psw, u"abc"_s);  // no code, but somebody has protected the file
    QCOMPARE(Nota.xOnorari.Righe(), 3);
    QCOMPARE(CalcolaSomme(Nota).TotOnorari, 0.0);
    QCOMPARE(Nota.xOnorari(0, OnoNVoce).toInt(), 2147483647);
    QCOMPARE(Nota.xOnorari(0, OnoQta).toString(), u"1e400"_s);
}

void TestDocumentoGuasto::aggiornamentoFallito()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"modello.mdb"_s);
    ScriviNota(File, NotaSemplice());
    OpenDatabase(File).Execute(u"DROP TABLE ParcellaParam"_s);
    ImpostaSolaLettura(File, true);
    // The column is missing with its table, and there is nothing to add it to.
    QCOMPARE(ErroreDelCarico(File), 3078);
    QVERIFY(SolaLettura(File));
}

void TestDocumentoGuasto::supportoDiSolaLettura()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaSemplice());
    OpenDatabase(File).Execute(u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
    ImpostaSolaLettura(File, true);
    guasti::SupportoBloccato = Ufficio.Cartella();
    const int Numero = ErroreDelCarico(File);
    guasti::SupportoBloccato.clear();
    QCOMPARE(Numero, 75);
    QVERIFY(SolaLettura(File));
}

void TestDocumentoGuasto::nessunRiferimentoDopoIlGuasto()
{
    const Studio Ufficio;
    Registratore Messaggi;
    sessione::RichiestaPV2.ID = u"2024/7"_s;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaSemplice());
    sessione::RichiestaPV2 = {};
    OpenDatabase(File).Execute(u"DROP TABLE ParcellaAcconti"_s);
    Parcella Nota;
    QCOMPARE(NumeroErrore([&] { CaricaDati(Nota, File); }), 3078);
    // A note that was not opened belongs to no matter.
    QCOMPARE(Nota.NsRif, QString());
}

void TestDocumentoGuasto::nessunFileAperto()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaSemplice());
    QCOMPARE(FileAperti(File), 0);
    Parcella Nota;
    CaricaDati(Nota, File);
    QCOMPARE(FileAperti(File), 0);
    OpenDatabase(File).Execute(u"DROP TABLE ParcellaAcconti"_s);
    QCOMPARE(ErroreDelCarico(File), 3078);
    QCOMPARE(FileAperti(File), 0);
}

// ---- saving -------------------------------------------------------------------------------------

void TestDocumentoGuasto::discoPieno_data()
{
    QTest::addColumn<int>("Pagine");
    QTest::newRow("nemmeno le tabelle") << 2;
    QTest::newRow("non tutte le righe") << 12;
}

void TestDocumentoGuasto::discoPieno()
{
    QFETCH(int, Pagine);
    const Studio Ufficio;
    Registratore Messaggi;
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"nota.mdb"_s;
    ScriviNota(File, NotaSemplice());
    const QByteArray Prima = LeggiFile(File);

    Parcella Grande = NotaSemplice();
    for (int Riga = 0; Riga < 3000; ++Riga)
        RigaOnorario(Grande, u"Una riga di lavoro con una descrizione piuttosto lunga"_s, Riga);
    {
        const DiscoPieno Pieno(Pagine);
        QCOMPARE(NumeroErrore([&] { ScriviNota(File, Grande); }), 3026);
        QCOMPARE(NumeroErrore([&] { ScriviNota(Cartella + u"nuova.mdb"_s, Grande); }), 3026);
    }
    QCOMPARE(LeggiFile(File), Prima);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
    ScriviNota(File, Grande);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.xOnorari.Righe(), 3003);
}

void TestDocumentoGuasto::cartellaDiSolaLettura()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"nota.mdb"_s;
    ScriviNota(File, NotaSemplice());
    const QByteArray Prima = LeggiFile(File);
    {
        const CartellaChiusa Sigillo(Cartella);
        QCOMPARE(NumeroErrore([&] { ScriviNota(File, NotaSemplice()); }), 75);
    }
    QCOMPARE(LeggiFile(File), Prima);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
}

void TestDocumentoGuasto::cartellaAssente()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const int Numero = NumeroErrore([&] { ScriviNota(Ufficio.File(u"manca/nota.mdb"_s), NotaSemplice()); });
    QCOMPARE(Numero, 3044);
    QVERIFY(!QFile::exists(Ufficio.File(u"manca"_s)));
}

void TestDocumentoGuasto::modelloNonSovrascritto()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"modello.mdb"_s);
    ScriviNota(File, NotaSemplice(), true);
    const QByteArray Prima = LeggiFile(File);
    QCOMPARE(NumeroErrore([&] { ScriviNota(File, NotaSemplice()); }), 70);
    QCOMPARE(LeggiFile(File), Prima);
    QVERIFY(SolaLettura(File));
}

void TestDocumentoGuasto::tariffeAssenti()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const Parcella Nota = NotaSemplice();
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"nota.mdb"_s;
    ScriviNota(File, Nota);
    const QByteArray Prima = LeggiFile(File);
    sessione::PercorsoProg = NuovaCartella();
    QCOMPARE(NumeroErrore([&] { ScriviNota(File, Nota); }), 3024);
    ScriviFile(sessione::PercorsoProg + u"parcelle.mdb"_s, "non sono un database");
    QCOMPARE(NumeroErrore([&] { ScriviNota(File, Nota); }), 3343);
    QCOMPARE(LeggiFile(File), Prima);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
}

// The lists would be empty and the selections lost, with the next save for good: the note does not open, and
// that is said once, by whoever asked for it.
void TestDocumentoGuasto::tariffeAssentiAllApertura_data()
{
    QTest::addColumn<QString>("Scelta");
    QTest::newRow("the note's own") << u"140"_s;
    QTest::newRow("the other one") << u"55"_s;
}

void TestDocumentoGuasto::tariffeAssentiAllApertura()
{
    QFETCH(QString, Scelta);
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaSemplice());
    sessione::PercorsoProg = NuovaCartella();
    sessione::Tariffa = Scelta;
    const RapportiUnici UnaVolta;
    Messaggi.Attendi(RapportoAssente(DecretoNuove()), vbOK, u"Errore:"_s);
    QCOMPARE(ErroreDelCarico(File), 3024);
}

void TestDocumentoGuasto::diTariffaDiversa()
{
    // What is not shown says nothing of the notes to come: the new one is the office's.
    const Studio Ufficio;
    Registratore Messaggi;
    const QString Vecchia = Ufficio.File(u"vecchia.mdb"_s);
    ScriviNota(Vecchia, NotaSemplice());
    OpenDatabase(Vecchia).Execute(u"DROP TABLE ParcellaRighe"_s);
    Parcella Nota;
    NuovaParcella(Nota, Dm55);
    const QString Recente = Ufficio.File(u"recente.mdb"_s);
    ScriviNota(Recente, Nota);
    OpenDatabase(Recente).Execute(u"DROP TABLE ParcellaRighe"_s);

    QVERIFY(ErroreDelCarico(Recente) != 0);
    sessione::Tariffa = u"55"_s;
    QVERIFY(ErroreDelCarico(Vecchia) != 0);
    try {
        CaricaDati(Nota, Vecchia);
        QFAIL("la nota senza righe e' stata letta");
    } catch (const ErroreCarico& Guasto) {
        QCOMPARE(Guasto.Tariffa, &Dm140);
    }
    QCOMPARE(Nota.Tariffa, &Dm55);
    QCOMPARE(Nota.txtSpeGen.Testo, u"15"_s);
}

void TestDocumentoGuasto::testoTroppoLungo()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString Cartella = NuovaCartella();
    Parcella Nota = NotaSemplice();
    Nota.txtDatiPar[DatoNumFatt] = QString(256, u'9');
    QCOMPARE(NumeroErrore([&] { ScriviNota(Cartella + u"nota.mdb"_s, Nota); }), 3163);
    QCOMPARE(ContenutoDi(Cartella), QStringList());
}

void TestDocumentoGuasto::restoDiUnaCaduta()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"nota.mdb"_s;
    ScriviFile(Cartella + u".~nota.mdb.tmp"_s, "a meta'");
    ScriviNota(File, NotaSemplice());
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.xOnorari.Righe(), 3);
}

#include "TestDocumentoGuasto.moc"
