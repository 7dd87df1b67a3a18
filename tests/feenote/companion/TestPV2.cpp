// The hand-over to the companion application: its row, its questions, its signal.
#include "feenote/nota_prova.h"

#include "compagna/archivio.h"
#include "feenote/companion/modPV2.h"
#include "platform/accesso/accesso.h"
#include "platform/base/numerierrore.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/shell.h"
#include "supporto/scrittoreaccess.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString Guasto = u"Si è verificato un errore nel salvataggio dei dati fattura su PV"_s;
const QString SenzaNumero = u"I dati della fattura non possono essere inviati a Praxivo\n"
                            u"in quanto non è stato specificato il numero della fattura!"_s;
const QString Domanda = u"E' stata salvata la parcella come fattura.\n"
                        u"Trasferisco i dati della fattura anche all'applicazione Praxivo?"_s;

constexpr int Contatore = 11;

const QStringList Colonne{u"Rif"_s,   u"NumF"_s,   u"DataF"_s,   u"TipoF"_s,
                          u"ModoF"_s, u"CorriF"_s, u"IDContab"_s};

/// A note that the request was for, printed as this document.
Parcella DellaPratica(int Tipo)
{
    Parcella Nota;
    Nota.NsRif = sessione::RichiestaPV2.ID;
    Nota.Scelta = sessione::RichiestaPV2.Scelta;
    Nota.cmbTipoStampa = Tipo;
    return Nota;
}

QList<QVariantList> Righe(const QString& Archivio, const QString& Origine, const QStringList& Quali)
{
    QList<QVariantList> Lette;
    Recordset Una = OpenDatabase(Archivio, true).OpenRecordset(Origine);
    for (; !Una.Eof(); Una.MoveNext()) {
        QVariantList Riga;
        for (const QString& Colonna : Quali)
            Riga.append(Una.Value(Colonna));
        Lette.append(Riga);
    }
    return Lette;
}

}  // namespace

class TestPV2 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void laRigaNuova();
    void laDataCheNonEUnaData_data();
    void laDataCheNonEUnaData();
    void lImporto_data();
    void lImporto();
    void importoCheNonEUnNumero();
    void leVirgoletteRestanoTesto_data();
    void leVirgoletteRestanoTesto();
    void laStessaFatturaDueVolte();
    void laChiaveNonGuardaLeMaiuscole();
    void gliSpaziAttornoAlNumero();
    void piuLungoDellaColonna_data();
    void piuLungoDellaColonna();
    void tabellaDiUnAltroProgramma();
    void senzaArchivio();
    void archivioGuasto_data();
    void archivioGuasto();
    void archivioDiAccess();
    void consegnaSoloLeFatture_data();
    void consegnaSoloLeFatture();
    void consegnaSenzaNumero_data();
    void consegnaSenzaNumero();
    void consegnaRifiutata();
    void consegnaAccettata();
    void consegnaConArchivioGuasto();
    void consegnaSenzaArchivio();
    void ilSegnale();
    void ilContatoreEDellaNota_data();
    void ilContatoreEDellaNota();
    void ultimaStampaSoloConRichiesta();
    void ultimaStampaDiOgniTipo_data();
    void ultimaStampaDiOgniTipo();
    void cartellaCompagna_data();
    void cartellaCompagna();

private:
    /// The invoices that were not there before.
    [[nodiscard]] QList<QVariantList> Aggiunte() const { return Righe(File, u"Fatture"_s, Colonne).mid(1); }

    std::unique_ptr<Studio> Ufficio;
    QString File;
    QStringList Segnali;
    QString Clessidre;
};
PROVA(TestPV2);

void TestPV2::init()
{
    Ufficio = std::make_unique<Studio>();
    File = Ufficio->File(u"pratiche.mdb"_s);
    CreaArchivioPratiche(File);
    sessione::ArchivioPrat = File;
    sessione::RichiestaPV2 = {u"P12"_s, 0, 0, 0.0, 0, 0, Contatore};
    MemorizzaUltimaStampa({1234.56, u"8"_s, u"21/11/2026"_s, false});
    Segnali.clear();
    Clessidre.clear();
    Shell Tavola;
    Tavola.Segnala = [this](const QString& Titolo, const QString& Testo) {
        Segnali += Titolo + u'<' + Testo;
    };
    Tavola.Clessidra = [this](bool Attiva) { Clessidre += Attiva ? u'+' : u'-'; };
    InstallaShell(Tavola);
}

void TestPV2::cleanup()
{
    InstallaShell({});
    MemorizzaUltimaStampa(UltimaStampa());
    Ufficio.reset();
}

void TestPV2::laRigaNuova()
{
    const Registratore Voce;
    SalvaFatturaPV2(Contatore);
    const QList<QVariantList> Attese{{u"P7"_s, u"3"_s, QDate(2026, 2, 1), u"A"_s, u"E"_s, 250.5, 1},
                                     {u"P12"_s, u"8"_s, QDate(2026, 11, 21), u"A"_s, u"E"_s, 1234.56, 11}};
    QCOMPARE(Righe(File, u"Fatture"_s, Colonne), Attese);
    QCOMPARE(Clessidre, u"+-"_s);
    QCOMPARE(FileAperti(File), 0);
}

void TestPV2::laDataCheNonEUnaData_data()
{
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QVariant>("Attesa");
    QTest::newRow("una data") << u"1/2/2026"_s << QVariant(QDate(2026, 2, 1));
    QTest::newRow("anno di due cifre") << u"01.02.26"_s << QVariant(QDate(2026, 2, 1));
    QTest::newRow("prima il giorno") << u"02/01/2026"_s << QVariant(QDate(2026, 1, 2));
    QTest::newRow("vuota") << QString() << QVariant();
    QTest::newRow("parole") << u"ieri"_s << QVariant();
    QTest::newRow("non bisestile") << u"29/02/2026"_s << QVariant();
    QTest::newRow("prima il mese") << u"12/31/2026"_s << QVariant();
    QTest::newRow("maschera vuota") << u"  /  /    "_s << QVariant();
}

void TestPV2::laDataCheNonEUnaData()
{
    QFETCH(QString, Data);
    const Registratore Voce;
    MemorizzaUltimaStampa({100.0, u"8"_s, Data, false});
    SalvaFatturaPV2(Contatore);
    QCOMPARE(Aggiunte().size(), 1);
    QTEST(Aggiunte().first()[2], "Attesa");
    // As the engine keeps it: dates as text of the one form, no date as Null.
    QCOMPARE(Righe(File, u"SELECT typeof(DataF) AS Forma FROM Fatture WHERE Rif='P12'"_s, {u"Forma"_s}),
             (QList<QVariantList>{{Aggiunte().first()[2].isNull() ? u"null"_s : u"text"_s}}));
}

void TestPV2::lImporto_data()
{
    QTest::addColumn<double>("Importo");
    QTest::addColumn<double>("Atteso");
    QTest::newRow("zero") << 0.0 << 0.0;
    QTest::newRow("centesimi") << 1234.56 << 1234.56;
    QTest::newRow("un centesimo") << 0.01 << 0.01;
    QTest::newRow("la coda di una somma") << 0.1 + 0.2 << 0.3;
    QTest::newRow("negativo") << -12.5 << -12.5;
    QTest::newRow("milioni senza punti") << 12345678.9 << 12345678.9;
    QTest::newRow("quindici cifre") << 9999999999999.99 << 9999999999999.99;
    QTest::newRow("oltre le quindici cifre") << 1e15 << 1e15;
    QTest::newRow("enorme") << 1e300 << 1e300;
}

void TestPV2::lImporto()
{
    QFETCH(double, Importo);
    QFETCH(double, Atteso);
    const Registratore Voce;
    for (const bool Prima : {true, false}) {
        MemorizzaUltimaStampa({Prima ? 7.0 : Importo, Prima ? u"9"_s : u"8"_s, {}, false});
        SalvaFatturaPV2(Contatore);  // once added, once changed
        MemorizzaUltimaStampa({Importo, u"9"_s, {}, false});
        SalvaFatturaPV2(Contatore);
    }
    QCOMPARE(Aggiunte().size(), 2);
    for (const QVariantList& Riga : Aggiunte()) {
        QCOMPARE(Riga[5].typeId(), int(QMetaType::Double));
        QVERIFY2(Riga[5].toDouble() == Atteso, "to the last bit: QCOMPARE would not look so closely");
    }
}

void TestPV2::importoCheNonEUnNumero()
{
    Registratore Voce;
    Voce.Attendi(Guasto, vbOK, u"Errore!"_s);
    MemorizzaUltimaStampa({std::numeric_limits<double>::infinity(), u"8"_s, {}, false});
    SalvaFatturaPV2(Contatore);
    QVERIFY(Aggiunte().isEmpty());
}

void TestPV2::leVirgoletteRestanoTesto_data()
{
    QTest::addColumn<QString>("Rif");
    QTest::addColumn<QString>("Numero");
    QTest::newRow("apostrofo nel riferimento") << u"D'Amico"_s << u"8"_s;
    QTest::newRow("apostrofo nel numero") << u"P12"_s << u"8'bis"_s;
    QTest::newRow("fine dell'istruzione") << u"'); DROP TABLE x;--"_s << u"'); DELETE FROM F;"_s;
    QTest::newRow("condizione sempre vera") << u"x' OR '1'='1"_s << u"' OR ''='"_s;
    QTest::newRow("virgolette doppie") << u"P\"12\""_s << u"\"8\""_s;
    QTest::newRow("segnaposto e jolly") << u"?"_s << u"%_*?1"_s;
    QTest::newRow("accenti e altro") << u"Però €"_s << u"8/à😀"_s;
}

void TestPV2::leVirgoletteRestanoTesto()
{
    QFETCH(QString, Rif);
    QFETCH(QString, Numero);
    const Registratore Voce;
    sessione::RichiestaPV2.ID = Rif;
    for (const double Importo : {100.0, 200.0}) {
        MemorizzaUltimaStampa({Importo, Numero, u"21/11/2026"_s, false});
        SalvaFatturaPV2(Contatore);
        const QList<QVariantList> Attese{{Rif, Numero, QDate(2026, 11, 21), u"A"_s, u"E"_s, Importo, 11}};
        QCOMPARE(Aggiunte(), Attese);
    }
    QCOMPARE(Righe(File, u"Pratiche"_s, {u"Rif"_s, u"Oggetto"_s}),
             (QList<QVariantList>{{u"P12"_s, u"Sfratto"_s}}));
    QCOMPARE(OpenDatabase(File, true).OpenRecordset(u"Agenda"_s).RecordCount(), 1);
}

void TestPV2::laStessaFatturaDueVolte()
{
    const Registratore Voce;
    SalvaFatturaPV2(Contatore);
    MemorizzaUltimaStampa({99.5, u"9"_s, u"22/11/2026"_s, false});
    SalvaFatturaPV2(Contatore);
    sessione::RichiestaPV2.ID = u"P13"_s;
    MemorizzaUltimaStampa({5.0, u"8"_s, u"23/11/2026"_s, false});
    SalvaFatturaPV2(Contatore);

    sessione::RichiestaPV2.ID = u"P12"_s;
    MemorizzaUltimaStampa({2000.0, u"8"_s, {}, false});
    SalvaFatturaPV2(77);
    const QList<QVariantList> Attese{
        {u"P12"_s, u"8"_s, QVariant(), u"A"_s, u"E"_s, 2000.0,
         11},  // the counter stays that of the first time
        {u"P12"_s, u"9"_s, QDate(2026, 11, 22), u"A"_s, u"E"_s, 99.5, 11},
        {u"P13"_s, u"8"_s, QDate(2026, 11, 23), u"A"_s, u"E"_s, 5.0, 11},
    };
    QCOMPARE(Aggiunte(), Attese);
}

void TestPV2::laChiaveNonGuardaLeMaiuscole()
{
    const Registratore Voce;
    MemorizzaUltimaStampa({1.0, u"8/à"_s, {}, false});
    SalvaFatturaPV2(Contatore);
    sessione::RichiestaPV2.ID = u"p12"_s;
    MemorizzaUltimaStampa({2.0, u"8/À"_s, {}, false});
    SalvaFatturaPV2(Contatore);
    QCOMPARE(Aggiunte().size(), 1);
    QCOMPARE(Aggiunte().first()[0], QVariant(u"P12"_s));
    QCOMPARE(Aggiunte().first()[5], QVariant(2.0));
}

void TestPV2::gliSpaziAttornoAlNumero()
{
    const Registratore Voce;
    SalvaFatturaPV2(Contatore);
    MemorizzaUltimaStampa({2.0, u" 8 "_s, {}, false});
    SalvaFatturaPV2(Contatore);
    QCOMPARE(Aggiunte().size(), 1);
    QCOMPARE(Aggiunte().first()[1], QVariant(u"8"_s));
    QCOMPARE(Aggiunte().first()[5], QVariant(2.0));
}

void TestPV2::piuLungoDellaColonna_data()
{
    QTest::addColumn<QString>("Rif");
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<bool>("Entra");
    QTest::newRow("entrambi al limite") << QString(20, u'r') << QString(20, u'9') << true;
    QTest::newRow("riferimento") << QString(21, u'r') << u"8"_s << false;
    QTest::newRow("numero") << u"P12"_s << QString(21, u'9') << false;
}

void TestPV2::piuLungoDellaColonna()
{
    QFETCH(QString, Rif);
    QFETCH(QString, Numero);
    QFETCH(bool, Entra);
    Registratore Voce;
    if (!Entra)
        Voce.Attendi(Guasto, vbOK, u"Errore!"_s);
    sessione::RichiestaPV2.ID = Rif;
    MemorizzaUltimaStampa({1.0, Numero, {}, false});
    SalvaFatturaPV2(Contatore);
    QCOMPARE(Aggiunte().size(), Entra ? 1 : 0);
}

void TestPV2::tabellaDiUnAltroProgramma()
{
    // Made by other hands: no description of its columns, another order, columns of its own.
    const Registratore Voce;
    File = Ufficio->File(u"altra.mdb"_s);
    sessione::ArchivioPrat = File;
    CreateDatabase(File).Execute(
        u"CREATE TABLE fatture (IDContab INTEGER, corrif NUMERIC(15,2), numf VARCHAR(12), rif VARCHAR(12), "
        "dataf DATE, tipof CHAR(1), modof CHAR(1), Pagata INTEGER DEFAULT 0)"_s);
    SalvaFatturaPV2(Contatore);
    SalvaFatturaPV2(Contatore);
    const QList<QVariantList> Attese{{u"P12"_s, u"8"_s, QDate(2026, 11, 21), u"A"_s, u"E"_s, 1234.56, 11}};
    QCOMPARE(Righe(File, u"Fatture"_s, Colonne), Attese);
}

void TestPV2::senzaArchivio()
{
    const Registratore Voce;
    sessione::ArchivioPrat.clear();
    SalvaFatturaPV2(Contatore);
    QVERIFY(Aggiunte().isEmpty());
    QCOMPARE(Clessidre, QString());
}

/// The archive of a companion that keeps it in Access: it is read, and never written.
void TestPV2::archivioDiAccess()
{
    FileScritto Come = AccessDa(File);
    File = ScriviAccess(Ufficio->File(u"access.mdb"_s), Come);
    sessione::ArchivioPrat = File;
    const QByteArray Prima = LeggiFile(File);
    Registratore Voce;
    Voce.Attendi(Guasto, vbOK, u"Errore!"_s);
    SalvaFatturaPV2(Contatore);
    QCOMPARE(LeggiFile(File), Prima);
    QCOMPARE(ApriArchivio(File).OpenRecordset(u"Fatture"_s).RecordCount(), 1);
    const ErroreVisto Fallito =
        ErroreDi([&] { ApriArchivio(File).Execute(u"UPDATE Fatture SET CorriF=0"_s); });
    QCOMPARE(Fallito.Numero, errori::DatabaseSolaLettura);
}

void TestPV2::archivioGuasto_data()
{
    QTest::addColumn<QString>("Quale");
    for (const char* Quale : {"manca", "cartella", "vuoto", "non è un archivio", "troncato", "senza tabella",
                              "senza colonna", "sola lettura", "cartella che manca"})
        QTest::newRow(Quale) << QString::fromUtf8(Quale);
}

void TestPV2::archivioGuasto()
{
    QFETCH(QString, Quale);
    if (Quale == u"manca")
        QVERIFY(QFile::remove(File));
    else if (Quale == u"cartella")
        sessione::ArchivioPrat = Ufficio->Cartella();
    else if (Quale == u"vuoto")
        ScriviFile(File, {});
    else if (Quale == u"non è un archivio")
        ScriviFile(File, QByteArray(5000, 'x'));
    else if (Quale == u"troncato")
        ScriviFile(File, LeggiFile(File).left(5000));
    else if (Quale == u"senza tabella")
        OpenDatabase(File).Execute(u"DROP TABLE Fatture"_s);
    else if (Quale == u"senza colonna")
        OpenDatabase(File).Execute(u"ALTER TABLE Fatture DROP COLUMN IDContab"_s);
    else if (Quale == u"sola lettura")
        ImpostaSolaLettura(File, true);
    else
        sessione::ArchivioPrat = Ufficio->File(u"non c'è/pratiche.mdb"_s);
    const QByteArray Prima = EsisteFile(File) ? LeggiFile(File) : QByteArray();
    const QStringList Accanto = QDir(Ufficio->Cartella()).entryList(QDir::AllEntries | QDir::Hidden);

    Registratore Voce;
    Voce.Attendi(Guasto, vbOK, u"Errore!"_s);
    SalvaFatturaPV2(Contatore);
    QCOMPARE(Voce.Ultimo().Bandiere, vbCritical);
    QCOMPARE(EsisteFile(File) ? LeggiFile(File) : QByteArray(), Prima);
    QCOMPARE(QDir(Ufficio->Cartella()).entryList(QDir::AllEntries | QDir::Hidden), Accanto);
    QCOMPARE(Clessidre, u"+-"_s);
    if (EsisteFile(File))
        ImpostaSolaLettura(File, false);
}

void TestPV2::consegnaSoloLeFatture_data()
{
    QTest::addColumn<int>("Tipo");
    for (int Tipo = NessunaVoce; Tipo <= StampaSoloContabile; ++Tipo)
        QTest::addRow("%s", qPrintable(VociTipoStampa().value(Tipo, u"nessuno"_s))) << Tipo;
}

void TestPV2::consegnaSoloLeFatture()
{
    QFETCH(int, Tipo);
    const bool Fattura = Tipo == StampaFatturaSintetica || Tipo == StampaFatturaAnalitica;
    Registratore Voce;
    if (Fattura)
        Voce.Attendi(Domanda, vbYes, u"Domanda:"_s);
    QVERIFY(ConsegnaFattura(DellaPratica(Tipo)));
    QCOMPARE(Voce.Mostrati().size(), Fattura ? 1 : 0);
    QCOMPARE(Aggiunte().size(), Fattura ? 1 : 0);
    QCOMPARE(Segnali.size(), Fattura ? 1 : 0);
}

void TestPV2::consegnaSenzaNumero_data()
{
    QTest::addColumn<QString>("Numero");
    QTest::newRow("vuoto") << QString();
    QTest::newRow("soli spazi") << u"   "_s;
}

void TestPV2::consegnaSenzaNumero()
{
    QFETCH(QString, Numero);
    MemorizzaUltimaStampa({100.0, Numero, u"21/11/2026"_s, false});
    Registratore Voce;
    Voce.Attendi(SenzaNumero, vbOK, u"Errore:"_s);
    QVERIFY(ConsegnaFattura(DellaPratica(StampaFatturaAnalitica)));
    QVERIFY(Aggiunte().isEmpty());
    QCOMPARE(Segnali, QStringList());
}

void TestPV2::consegnaRifiutata()
{
    Registratore Voce;
    Voce.Attendi(Domanda, vbNo, u"Domanda:"_s);
    QVERIFY(ConsegnaFattura(DellaPratica(StampaFatturaSintetica)));
    QCOMPARE(Voce.Mostrato(0).Bandiere, vbYesNo + vbQuestion);
    QVERIFY(Aggiunte().isEmpty());
    QCOMPARE(Segnali, QStringList());
}

void TestPV2::consegnaAccettata()
{
    Registratore Voce;
    Voce.Attendi(Domanda, vbYes);
    QVERIFY(ConsegnaFattura(DellaPratica(StampaFatturaSintetica)));
    QCOMPARE(Aggiunte().size(), 1);
    QCOMPARE(Segnali, QStringList{u"Praxivo - Gestione pratiche<refresh"_s});
}

void TestPV2::consegnaConArchivioGuasto()
{
    QVERIFY(QFile::remove(File));
    Registratore Voce;
    Voce.Attendi(Domanda, vbYes);
    Voce.Attendi(Guasto, vbOK, u"Errore!"_s);
    QVERIFY(!ConsegnaFattura(DellaPratica(StampaFatturaSintetica)));
    QCOMPARE(Segnali.size(), 1);  // the document in its folder is new all the same
}

void TestPV2::consegnaSenzaArchivio()
{
    // A session that a file's reference has tied to a matter knows no archive.
    sessione::ArchivioPrat.clear();
    Registratore Voce;
    Voce.Attendi(Domanda, vbYes);
    QVERIFY(ConsegnaFattura(DellaPratica(StampaFatturaSintetica)));
    QVERIFY(Aggiunte().isEmpty());
    QCOMPARE(Segnali.size(), 1);
}

void TestPV2::ilSegnale()
{
    const Registratore Voce;
    sessione::RichiestaPV2 = {};
    InvioMsgPV2();
    QCOMPARE(Segnali, QStringList{u"Praxivo - Gestione pratiche<refresh"_s});
    InstallaShell({});
    InvioMsgPV2();  // nowhere to go, and nothing to tell
}

void TestPV2::ilContatoreEDellaNota_data()
{
    QTest::addColumn<QString>("Rif");
    QTest::addColumn<int>("Scelta");
    QTest::addColumn<QString>("Sessione");
    QTest::addColumn<int>("Atteso");
    QTest::newRow("la richiesta della nota") << u"P12"_s << 11 << u"P12"_s << 11;
    QTest::newRow("di un'altra pratica") << u"P77"_s << 0 << u"P77"_s << 0;
    QTest::newRow("la sessione passata a un'altra") << u"P12"_s << 11 << u"P77"_s << 0;
    QTest::newRow("senza riferimento") << QString() << 0 << u"P12"_s << 0;
}

void TestPV2::ilContatoreEDellaNota()
{
    QFETCH(QString, Rif);
    QFETCH(int, Scelta);
    QFETCH(QString, Sessione);
    Parcella Nota;
    Nota.NsRif = Rif;
    Nota.Scelta = Scelta;
    Nota.cmbTipoStampa = StampaFatturaSintetica;
    sessione::RichiestaPV2 = {Sessione, 0, 0, 0.0, 0, 0, 7};
    Registratore Voce;
    Voce.Attendi(Domanda, vbYes);
    QVERIFY(ConsegnaFattura(Nota));
    QCOMPARE(Aggiunte().size(), 1);
    QCOMPARE(Aggiunte().first()[0].toString(), Sessione);
    QTEST(Aggiunte().first()[6].toInt(), "Atteso");
}

// ---- what a composed note leaves

namespace {

Parcella NotaDaStampare(int Tipo)
{
    Parcella Nota;
    NuovaParcella(Nota);
    Nota.xOnorari(Nota.xOnorari.AggiungiRiga(), OnoImporto) = 4500.0;
    Nota.txtParcMultipla = u"altra"_s;
    Nota.Multi.TotOnorariMulti = 900.0;
    Nota.txtDatiPar[DatoNumFatt] = u" 45 "_s;
    Nota.txtDatiPar[DatoDataFatt] = u"30/12/2013"_s;
    Nota.chkFattAcc.Attiva = true;
    Nota.cmbTipoStampa = Tipo;
    return Nota;
}

}  // namespace

void TestPV2::ultimaStampaSoloConRichiesta()
{
    const UltimaStampa Prima = LeggiUltimaStampa();
    sessione::RichiestaPV2 = {};
    MemorizzaUltimaStampa(NotaDaStampare(StampaFatturaAnalitica));
    QCOMPARE(LeggiUltimaStampa(), Prima);
    sessione::RichiestaPV2.ID = u"P12"_s;
    Parcella Nota = NotaDaStampare(StampaFatturaAnalitica);
    Nota.Pronta = false;  // composes nothing
    MemorizzaUltimaStampa(Nota);
    QCOMPARE(LeggiUltimaStampa(), Prima);
}

void TestPV2::ultimaStampaDiOgniTipo_data()
{
    consegnaSoloLeFatture_data();
}

void TestPV2::ultimaStampaDiOgniTipo()
{
    QFETCH(int, Tipo);
    const UltimaStampa Prima = LeggiUltimaStampa();
    const bool SenzaImporti = Tipo == NessunaVoce || Tipo == StampaContratto || Tipo == StampaInformativa;
    MemorizzaUltimaStampa(NotaDaStampare(Tipo));
    QCOMPARE(LeggiUltimaStampa(),
             SenzaImporti ? Prima : (UltimaStampa{5400.0, u" 45 "_s, u"30/12/2013"_s, true}));
}

void TestPV2::cartellaCompagna_data()
{
    QTest::addColumn<QString>("Impostata");
    QTest::addColumn<QString>("Attesa");
    QTest::newRow("un file") << u"/dati/praxivo/anteprima.htm"_s << u"/dati/praxivo"_s;
    QTest::newRow("vuota") << QString() << QString();
    QTest::newRow("senza cartella") << u"anteprima.htm"_s << QString();
}

void TestPV2::cartellaCompagna()
{
    QFETCH(QString, Impostata);
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"PreviewParcPath"_s, Impostata);
    QTEST(CartellaCompagna(), "Attesa");
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"PreviewParcPath"_s, {});
}

#include "TestPV2.moc"
