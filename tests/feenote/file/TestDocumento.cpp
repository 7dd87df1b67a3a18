// The fee-note file: what is written, field by field, and what comes back.
#include "file_prova.h"

#include "feenote/modVariazione.h"
#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;

class TestDocumento : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void campiDeiParametri();
    void righeDelFile();
    void ordineDelleRighe();
    void giroCompletoCivile();
    void giroCompletoPenale();
    void giroCompletoStragiudiziale();
    void notaVuota();
    void descrizioneTagliata_data();
    void descrizioneTagliata();
    void dataNonValida();
    void percentoSpento();
    void percentoNonNumero();
    void percentoMostrato_data();
    void percentoMostrato();
    void percentualiConDecimali();
    void variazione_data();
    void variazione();
    void indiciOltreLaLista();
    void valutaInParole();
    void genereSconosciuto();
    void testoIncollatoNegliImporti();
};
PROVA(TestDocumento);

void TestDocumento::campiDeiParametri()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    ScegliAumRid(Nota, 3);
    Nota.IDCli = 40000;
    Nota.IDCon = 50000;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    QCOMPARE(NumeroRighe(File, u"ParcellaParam"_s), 1);
    const QList<std::pair<QString, QVariant>> Attesi{
        {u"IDCli"_s, 40000},
        {u"IDCon"_s, 50000},
        {u"Categ"_s, 0},
        {u"Autor"_s, 2},  // third of the list
        {u"Valore"_s, 2},
        {u"Importo"_s, 30000.0},
        {u"TipoStampa"_s, 3},
        {u"AumRidVarP"_s, 25.0},
        {u"AumRidIdx"_s, 3},
        {u"Testo1"_s, u"sopra"_s},
        {u"Testo2"_s, u"sotto"_s},
        {u"VisMinMax"_s, 1},
        {u"IVA"_s, 21.0},
        {u"RA"_s, 20.0},
        {u"CP"_s, 4.0},
        {u"SpeseGen"_s, 12.5},
        {u"NsRif"_s, QVariant()},
        {u"Cliente"_s, u"Rossi Mario"_s},
        {u"Controp"_s, u"Bianchi Srl"_s},
        {u"Oggetto"_s, u"Sfratto & c.d. \"morosità\""_s},
        {u"DataFatt"_s, QDate(2024, 2, 29)},
        {u"NumFatt"_s, u"12/A"_s},
        {u"DepAut"_s, u"Tribunale di Lucca"_s},
        {u"DepSez"_s, u"II"_s},
        {u"DepRuolo"_s, u"77/2024"_s},
        {u"DepGiud"_s, u"dott. Neri"_s},
    };
    for (const auto& [Colonna, Valore] : Attesi)
        QVERIFY2(Parametro(File, Colonna) == Valore,
                 qPrintable(Colonna + u": "_s + Parametro(File, Colonna).toString()));
    QCOMPARE(Parametro(File, u"Psw"_s).toString(), QString());
}

void TestDocumento::righeDelFile()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    for (int Colonna = OnoBaseMedio; Colonna <= OnoBaseMax; ++Colonna)
        Nota.xOnorari(0, Colonna) = Colonna * 1.005;
    Nota.xOnorari(0, OnoVarPerc) = -50;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);

    const QStringList Colonne{u"OnoDir"_s, u"Data"_s,    u"Descr"_s, u"NVoce"_s, u"CodOnoDir"_s,
                              u"Qta"_s,    u"Importo"_s, u"Imp1"_s,  u"Imp2"_s,  u"Imp3"_s,
                              u"Imp4"_s,   u"Imp5"_s,    u"Imp6"_s,  u"VarP"_s};
    const QList<QVariantList> Righe = Celle(File, u"ParcellaRighe"_s, Colonne);
    QCOMPARE(int(Righe.size()), 5);
    // The base amounts go through two decimals, away from zero: 10.05, 11.055, 12.06.
    const QVariantList Studio{u"O"_s,
                              QDate(2024, 3, 5),
                              u"Fase di studio della controversia"_s,
                              u"1"_s,
                              u"1"_s,
                              u"1"_s,
                              1200.0,
                              1200.0,
                              600.0,
                              1920.0,
                              10.05,
                              11.06,
                              12.06,
                              -50.0};
    QCOMPARE(Righe[0], Studio);
    // An expense: its key in NVoce, its number in CodOnoDir, the exempt amount in the first amount field.
    Nota.xDiritti(0, DirNVoce) = 8;
    Nota.xDiritti(0, DirIDDir) = 9;
    ScriviNota(File, Nota);
    const QVariantList Spesa{u"D"_s,
                             QDate(2024, 3, 6),
                             u"Contributo unificato di iscrizione a ruolo"_s,
                             u"9"_s,
                             u"8"_s,
                             u"1"_s,
                             10.5,
                             27.0,
                             QVariant(),
                             QVariant(),
                             QVariant(),
                             QVariant(),
                             QVariant(),
                             QVariant()};
    QCOMPARE(Celle(File, u"ParcellaRighe"_s, Colonne).last(), Spesa);

    const QVariantList Acconto{u"Fondo spese"_s, u"L"_s, 1936270.0, 12.345, 0.0};
    QCOMPARE(Celle(File, u"ParcellaAcconti"_s, {u"DesAcc"_s, u"Valuta"_s, u"Corr"_s, u"SpImp"_s, u"SpEse"_s}),
             QList<QVariantList>{Acconto});
}

void TestDocumento::ordineDelleRighe()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    RigaSpesa(Nota, 1.0, 0.0);
    RigaOnorario(Nota, u"seconda"_s, 2);
    RigaOnorario(Nota, u"terza"_s, 3);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    QCOMPARE(Celle(File, u"ParcellaRighe"_s, {u"OnoDir"_s, u"Importo"_s}),
             (QList<QVariantList>{{u"O"_s, 2.0}, {u"O"_s, 3.0}, {u"D"_s, 1.0}}));
    // The reader takes each to its table in whatever order the file has them.
    EseguiSu(File, u"UPDATE ParcellaRighe SET OnoDir='D' WHERE Importo=2"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.xOnorari.Righe(), 1);
    QCOMPARE(Numeri(Letta.xDiritti, 0, {DirImponibile}), QList<double>{2.0});
    QCOMPARE(Numeri(Letta.xDiritti, 1, {DirImponibile}), QList<double>{1.0});
}

void TestDocumento::giroCompletoCivile()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const Parcella Nota = NotaPiena();
    const Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Letta.CodCateg, u"CIV"_s);
    QCOMPARE(Letta.cmbCateg, 0);
    QCOMPARE(Letta.IDAutSelezionata(), IDTribunale);
    QCOMPARE(Letta.IdxAutorPrec, Letta.cmbAutor);
    QCOMPARE(Letta.cmbValore, 2);
    QCOMPARE(Letta.IdxValorePrec, 2);
    QCOMPARE(Letta.Scaglione, 3);
    QCOMPARE(Letta.ImportoPrec, 30000.0);
    QCOMPARE(Letta.txtImporto.Testo, u"30.000,00"_s);
    QCOMPARE(int(Letta.ListaAutorita.size()), 16);
    QCOMPARE(int(Letta.ListaScaglioni.size()), 8);
    QVERIFY(Letta.cmbAutorAbilitata && Letta.cmbValoreAbilitata && Letta.txtImporto.Abilitata);

    QCOMPARE(Letta.txtCliente.Testo, u"Rossi Mario"_s);
    QCOMPARE(Letta.txtControp.Testo, u"Bianchi Srl"_s);
    QCOMPARE(Letta.txtOggetto.Testo, u"Sfratto & c.d. \"morosità\""_s);
    QCOMPARE(Letta.txtDatiPar, Nota.txtDatiPar);
    QVERIFY(Letta.chkIva.Attiva && Letta.chkRA.Attiva && Letta.chkCP.Attiva && Letta.chkSpeseGen.Attiva);
    QCOMPARE(Letta.txtIVA.Testo + u' ' + Letta.txtRA.Testo + u' ' + Letta.txtCP.Testo + u' ' +
                 Letta.txtSpeGen.Testo,
             u"21 20 4 12,5"_s);
    QVERIFY(Letta.chkMinMax.Attiva);
    QCOMPARE(Letta.cmbTipoStampa, int(StampaFatturaAnalitica));

    QCOMPARE(Letta.xOnorari.Righe(), 4);
    for (int Riga = 0; Riga < 4; ++Riga) {
        QCOMPARE(Importi(Letta, Riga), Importi(Nota, Riga));
        QCOMPARE(Base(Letta, Riga), Base(Nota, Riga));
        for (const int Colonna : {OnoData, OnoDescr, OnoCodVoce})
            QCOMPARE(CStr(Letta.xOnorari(Riga, Colonna)), CStr(Nota.xOnorari(Riga, Colonna)));
        QCOMPARE(Letta.xOnorari(Riga, OnoNVoce), Nota.xOnorari(Riga, OnoNVoce));
        QCOMPARE(Letta.xOnorari(Riga, OnoQta), Nota.xOnorari(Riga, OnoQta));
        QCOMPARE(Letta.xOnorari(Riga, OnoVarPerc).toInt(), 0);
    }
    for (int Colonna = 0; Colonna < DirColonne; ++Colonna)
        QCOMPARE(CStr(Letta.xDiritti(0, Colonna)), CStr(Nota.xDiritti(0, Colonna)));
    QCOMPARE(Letta.xAcconti, Nota.xAcconti);

    QCOMPARE(Letta.Percorso, Ufficio.File(u"nota.mdb"_s));
    QCOMPARE(Letta.Psw, QString());
    QCOMPARE(Letta.NsRif, QString());
    QVERIFY(!Letta.Modificata);
    QVERIFY(!Letta.RicalcoloNecessario);
    QVERIFY(Letta.Pronta);
    QCOMPARE(Letta.Fuoco, CampoNota::Nessuno);
    QCOMPARE(CatenaFiscale(Letta, StampaFatturaAnalitica).Netto,
             CatenaFiscale(Nota, StampaFatturaAnalitica).Netto);

    // Saved again, the file says the same.
    const QString Altra = Ufficio.File(u"altra.mdb"_s);
    ScriviNota(Altra, Letta);
    const QStringList Colonne{u"OnoDir"_s,    u"Data"_s, u"Descr"_s, u"NVoce"_s,
                              u"CodOnoDir"_s, u"Qta"_s,  u"Imp6"_s};
    QCOMPARE(Celle(Altra, u"ParcellaRighe"_s, Colonne), Celle(Letta.Percorso, u"ParcellaRighe"_s, Colonne));
}

void TestDocumento::giroCompletoPenale()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPenale();
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QVERIFY(VaiAVoce(Voci, 105));
    InserisciOnorario(Nota, Voci, {}, 3.0);
    Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Letta.CodCateg, u"PEN"_s);
    QCOMPARE(Letta.IDAutSelezionata(), IDMonocratico);
    QCOMPARE(Letta.Scaglione, IDMonocratico);
    QCOMPARE(Letta.cmbValore, NessunaVoce);
    QVERIFY(!Letta.cmbValoreAbilitata && !Letta.txtImporto.Abilitata);
    QCOMPARE(Letta.txtImporto.Testo, QString());
    QCOMPARE(Importi(Letta, 4), QList<double>({60, 60, 30, 90}));
    QVERIFY(CheckOK(Letta, true));
    // What was saved recalculates: the keys are found again.
    Letta.RicalcoloNecessario = true;
    Letta.AumRidVarP = 100;
    LoadOnoDir(Letta, Voci);
    QCOMPARE(CalcolaSomme(Letta).TotOnorari, 5520.0);
}

void TestDocumento::giroCompletoStragiudiziale()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaStragiudiziale();
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    QVERIFY(VaiAVoce(Voci, 206));
    InserisciOnorario(Nota, Voci);
    Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Letta.CodCateg, u"STR"_s);
    QCOMPARE(Letta.IDAutSelezionata(), IDStragiudiziale);
    QCOMPARE(Letta.Scaglione, 3);
    QVERIFY(!Letta.cmbValoreAbilitata && Letta.txtImporto.Abilitata);
    QCOMPARE(Importi(Letta, 0), QList<double>({1312, 1312, 675, 1950}));
    Letta.RicalcoloNecessario = true;
    LoadOnoDir(Letta, Voci);
    QCOMPARE(Importi(Letta, 0), QList<double>({1312, 1312, 675, 1950}));
}

void TestDocumento::notaVuota()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(NumeroRighe(File, u"ParcellaParam"_s), 1);
    QCOMPARE(NumeroRighe(File, u"ParcellaRighe"_s), 0);
    QCOMPARE(NumeroRighe(File, u"ParcellaAcconti"_s), 0);
    QCOMPARE(Parametro(File, u"Categ"_s).toInt(), -1);
    QCOMPARE(Parametro(File, u"TipoStampa"_s).toInt(), -1);
    QVERIFY(!Parametro(File, u"DataFatt"_s).isValid());
    // But for its path it is the new note again.
    Letta.Percorso.clear();
    QVERIFY(Letta == Nota);
}

void TestDocumento::descrizioneTagliata_data()
{
    QTest::addColumn<QString>("Descr");
    QTest::addColumn<QString>("Salvata");
    QTest::newRow("60 caratteri") << QString(60, u'à') << QString(60, u'à');
    QTest::newRow("61 caratteri") << QString(60, u'x') + u'y' << QString(60, u'x');
    QTest::newRow("10.000 caratteri") << QString(10'000, u'x') << QString(60, u'x');
    QTest::newRow("un carattere di due unita' non si spezza")
        << QString(59, u'x') + u"\U0001F600"_s << QString(59, u'x');
    QTest::newRow("apici e righe") << u"dell'\"atto\"\r\nSELECT"_s << u"dell'\"atto\"\r\nSELECT"_s;
}

void TestDocumento::descrizioneTagliata()
{
    QFETCH(QString, Descr);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    RigaOnorario(Nota, Descr, 1);
    RigaSpesa(Nota, 1.0, 0.0);
    Nota.xDiritti(0, DirDescr) = Descr;
    const Parcella Letta = Riletta(Ufficio, Nota);
    QTEST(Letta.xOnorari(0, OnoDescr).toString(), "Salvata");
    QTEST(Letta.xDiritti(0, DirDescr).toString(), "Salvata");
    QCOMPARE(Nota.xOnorari(0, OnoDescr).toString(), Descr);  // the note on screen keeps it
}

void TestDocumento::dataNonValida()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    const QStringList Date{u"5/3/24"_s, u"nel marzo"_s, u"30/02/2024"_s, QString()};
    for (const QString& Data : Date)
        Nota.xOnorari(RigaOnorario(Nota, u"riga"_s, 1), OnoData) = Data;
    Nota.xDiritti(RigaSpesa(Nota, 10.0, 0.0), DirData) = u"nel marzo"_s;
    Nota.txtDatiPar[DatoDataFatt] = u"domani"_s;
    const Parcella Letta = Riletta(Ufficio, Nota);
    // Null, where an empty text would be a date that nobody can read.
    const Recordset Vuote =
        OpenDatabase(Letta.Percorso, true)
            .OpenRecordset(u"SELECT group_concat(OnoDir || typeof(Data), ' ') AS Che FROM "
                           u"(SELECT * FROM ParcellaRighe ORDER BY rowid)"_s);
    QCOMPARE(CStr(Vuote.Value(u"Che"_s)), u"Otext Onull Onull Onull Dnull"_s);
    QCOMPARE(Letta.xDiritti(0, DirData).toString(), QString());
    QCOMPARE(Letta.xOnorari(0, OnoData).toString(), u"05/03/2024"_s);
    for (int Riga = 1; Riga < Date.size(); ++Riga)
        QCOMPARE(Letta.xOnorari(Riga, OnoData).toString(), QString());
    QVERIFY(!Parametro(Letta.Percorso, u"DataFatt"_s).isValid());
    QCOMPARE(Letta.DatiPar(DatoDataFatt), QString());
}

void TestDocumento::percentoSpento()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    Nota.chkIva.Attiva = false;
    Nota.txtIVA.Testo = u"22"_s;
    const Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Parametro(Letta.Percorso, u"IVA"_s).toDouble(), 0.0);
    QCOMPARE(Letta.txtIVA.Testo, QString());
    QVERIFY(!Letta.chkIva.Attiva);
    QVERIFY(Letta.chkCP.Attiva);
}

void TestDocumento::percentoNonNumero()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    Nota.txtIVA.Testo = u"22%"_s;
    Nota.txtCP.Testo = u"2.5"_s;
    Nota.txtImporto.Testo = u"molto"_s;
    const Parcella Letta = Riletta(Ufficio, Nota);
    for (const QString& Colonna : {u"IVA"_s, u"CP"_s, u"Importo"_s})
        QCOMPARE(Parametro(Letta.Percorso, Colonna).toDouble(), 0.0);
    QVERIFY(!Letta.chkIva.Attiva);
}

void TestDocumento::percentoMostrato_data()
{
    QTest::addColumn<double>("Valore");
    QTest::addColumn<bool>("Attiva");
    QTest::addColumn<QString>("Casella");
    QTest::newRow("intero") << 22.0 << true << u"22"_s;
    QTest::newRow("un decimale") << 12.5 << true << u"12,5"_s;
    QTest::newRow("due decimali") << 1.25 << true << u"1,25"_s;
    QTest::newRow("sotto l'unita'") << 0.5 << true << u",5"_s;
    QTest::newRow("sotto i decimali mostrati") << 0.001 << true << u","_s;  // the pattern's own doing
    QTest::newRow("zero") << 0.0 << false << QString();
    QTest::newRow("negativo") << -5.0 << false << u"-5"_s;
}

void TestDocumento::percentoMostrato()
{
    QFETCH(double, Valore);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    EseguiSu(File, u"UPDATE ParcellaParam SET IVA=?, RA=?, CP=?, SpeseGen=?"_s,
             {Valore, Valore, Valore, Valore});
    Parcella Letta;
    CaricaDati(Letta, File);
    QTEST(Letta.chkIva.Attiva, "Attiva");
    QTEST(Letta.chkRA.Attiva, "Attiva");
    QTEST(Letta.chkCP.Attiva, "Attiva");
    QTEST(Letta.chkSpeseGen.Attiva, "Attiva");
    QTEST(Letta.txtIVA.Testo, "Casella");
    QTEST(Letta.txtRA.Testo, "Casella");
    QTEST(Letta.txtCP.Testo, "Casella");
    QTEST(Letta.txtSpeGen.Testo, "Casella");
}

/// Another program's file: the line keeps its percent to the digit, and the note has the nearest whole one.
void TestDocumento::percentualiConDecimali()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    Nota.xOnorari(0, OnoVarPerc) = -50;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    EseguiSu(File, u"UPDATE ParcellaParam SET AumRidVarP=13.7"_s);
    EseguiSu(File, u"UPDATE ParcellaRighe SET VarP=-13.7 WHERE VarP=-50"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.AumRidVarP, 14);
    QCOMPARE(Letta.txtAumRid.Testo, u"14"_s);
    QCOMPARE(NumeroDi(Letta.xOnorari(0, OnoVarPerc)), -13.7);
    ScriviNota(File, Letta);
    const Recordset Riscritta =
        OpenDatabase(File, true).OpenRecordset(u"SELECT VarP FROM ParcellaRighe WHERE VarP<>0"_s);
    QCOMPARE(Riscritta.Value(u"VarP"_s).toDouble(), -13.7);
}

void TestDocumento::variazione_data()
{
    QTest::addColumn<int>("Opzione");
    QTest::addColumn<int>("VarP");
    QTest::newRow("nessuna") << 5 << 0;
    QTest::newRow("aumento dell'opzione") << 2 << 150;
    QTest::newRow("riduzione dell'opzione") << 8 << -20;
    QTest::newRow("libera") << 5 << -100;
}

void TestDocumento::variazione()
{
    QFETCH(int, Opzione);
    QFETCH(int, VarP);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    ScegliAumRid(Nota, Opzione);
    if (VarP != 0) {
        CambiaTestoAumRid(Nota, QString::number(std::abs(VarP)));
        if (Opzione == AumRidLibera)
            CambiaSegnoAumRid(Nota, VarP < 0 ? 1 : 0);
        LasciaAumRid(Nota);
    }
    const Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Letta.AumRidVarP, VarP);
    QCOMPARE(Letta.AumRidIdx, Opzione);
    QCOMPARE(Letta.AumRidLimiti, Nota.AumRidLimiti);
    QCOMPARE(Letta.cmbAumRid, Nota.cmbAumRid);
    QCOMPARE(Letta.cmbAumRidAbilitata, Nota.cmbAumRidAbilitata);
    QCOMPARE(Letta.txtAumRid, Nota.txtAumRid);
}

void TestDocumento::indiciOltreLaLista()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaCivile());
    EseguiSu(File, u"UPDATE ParcellaParam SET Autor=99, Valore=99, TipoStampa=99, AumRidIdx=99"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.cmbAutor, NessunaVoce);
    QCOMPARE(Letta.IdxAutorPrec, NessunaVoce);
    QCOMPARE(Letta.cmbValore, NessunaVoce);
    QCOMPARE(Letta.IdxValorePrec, NessunaVoce);
    QCOMPARE(Letta.cmbTipoStampa, NessunaVoce);
    QCOMPARE(Letta.AumRidIdx, 5);
    QCOMPARE(Letta.ImportoPrec, 30000.0);

    EseguiSu(File, u"UPDATE ParcellaParam SET Categ=3, Autor=NULL, Valore=-7"_s);
    CaricaDati(Letta, File);
    QCOMPARE(Letta.cmbCateg, NessunaVoce);
    QCOMPARE(Letta.CodCateg, u"CIV"_s);
    QCOMPARE(Letta.cmbAutor, NessunaVoce);
}

void TestDocumento::valutaInParole()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    RigaAcconto(Nota, u"E"_s, 10.0, 0.0, 0.0);
    RigaAcconto(Nota, u"L"_s, 1936270.0, 0.0, 0.0);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    // As other hands wrote them.
    EseguiSu(File, u"UPDATE ParcellaAcconti SET Valuta='Euro' WHERE Valuta='E'"_s);
    EseguiSu(File, u"UPDATE ParcellaAcconti SET Valuta='Lire', SpEse=NULL WHERE Valuta='L'"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(CalcolaAcconti(Letta, StampaPrenotula).AccontiCorrispettivi, 1010.0);
    QCOMPARE(Letta.xAcconti(1, AccSpeseEsenti), QVariant(0.0));
}

void TestDocumento::genereSconosciuto()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    RigaOnorario(Nota, u"una"_s, 1);
    RigaOnorario(Nota, u"due"_s, 2);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    EseguiSu(File, u"UPDATE ParcellaRighe SET OnoDir='o' WHERE Descr='una'"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.xOnorari.Righe(), 1);
    QVERIFY(Letta.xDiritti.Vuota());
}

void TestDocumento::testoIncollatoNegliImporti()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    RigaSpesa(Nota, u"circa 10"_s, u"1.234,565"_s);
    Nota.xDiritti(0, DirQta) = u"2 (due)"_s;
    const Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Numeri(Letta.xDiritti, 0, {DirImponibile, DirEsente}), QList<double>({0.0, 1234.57}));
    QCOMPARE(Letta.xDiritti(0, DirQta).toString(), u"2 (due)"_s);
}

#include "TestDocumento.moc"
