// The fee-note file: what is written, field by field, and what comes back.
#include "nota_prova.h"

#include "feenote/modDocumento.h"
#include "feenote/modFile.h"
#include "feenote/modSpese.h"
#include "feenote/modVariazione.h"
#include "platform/percorsi.h"

using namespace Qt::StringLiterals;

namespace {

const QString Protetta_ = u"Attenzione, la parcella è protetta! Le modifiche potranno essere salvate\n"
                          "solo dopo aver specificato la chiave di protezione."_s;

/// Every field of a note with a value of its own.
Parcella NotaPiena()
{
    Parcella Nota = NotaCivile();
    Nota.IDCli = 0;
    Nota.txtCliente.Testo = u"Rossi Mario"_s;
    Nota.txtControp.Testo = u"Bianchi Srl"_s;
    Nota.txtOggetto.Testo = u"Sfratto & c.d. \"morosità\""_s;
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    Nota.xOnorari(0, OnoData) = u"05/03/2024"_s;
    Voci.datDir.MoveFirst();
    InserisciSpesa(Nota, Voci);
    Nota.xDiritti(0, DirImponibile) = 10.5;
    Nota.xDiritti(0, DirEsente) = 27.0;
    Nota.xDiritti(0, DirData) = u"06/03/2024"_s;
    RigaAcconto(Nota, u"L"_s, 1936270.0, 12.345, 0.0);
    Nota.xAcconti(0, AccDescr) = u"Fondo spese"_s;
    Nota.txtDatiPar[DatoTestoSuperiore] = u"sopra"_s;
    Nota.txtDatiPar[DatoTestoInferiore] = u"sotto"_s;
    Nota.txtDatiPar[DatoNumFatt] = u"12/A"_s;
    Nota.txtDatiPar[DatoDataFatt] = u"29/02/2024"_s;
    Nota.txtDatiPar[DatoDepAutorita] = u"Tribunale di Lucca"_s;
    Nota.txtDatiPar[DatoDepSezione] = u"II"_s;
    Nota.txtDatiPar[DatoDepRuolo] = u"77/2024"_s;
    Nota.txtDatiPar[DatoDepGiudice] = u"dott. Neri"_s;
    (void)ClicImposta(Nota, Imposta::RA, true);
    (void)ClicImposta(Nota, Imposta::SpeseGen, true);
    CambiaMinMax(Nota, true);
    ScegliTipoStampa(Nota, StampaFatturaAnalitica);
    return Nota;
}

/// Saves and loads again.
Parcella Riletta(const Studio& Ufficio, const Parcella& Nota)
{
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    Parcella Letta;
    CaricaDati(Letta, File);
    return Letta;
}

/// The value of a column of the one row of parameters.
QVariant Parametro(const QString& File, const QString& Colonna)
{
    return OpenDatabase(File, true).OpenRecordset(u"ParcellaParam"_s).Value(Colonna);
}

/// Some columns of the lines, row by row.
QList<QVariantList> Celle(const QString& File, const QString& Tabella, const QStringList& Colonne)
{
    QList<QVariantList> Righe;
    Recordset Letta = OpenDatabase(File, true).OpenRecordset(Tabella);
    for (; !Letta.Eof(); Letta.MoveNext()) {
        QVariantList Riga;
        for (const QString& Colonna : Colonne)
            Riga.append(Letta.Value(Colonna));
        Righe.append(Riga);
    }
    return Righe;
}

int NumeroRighe(const QString& File, const QString& Tabella)
{
    return OpenDatabase(File, true).OpenRecordset(Tabella).RecordCount();
}

void EseguiSu(const QString& File, const QString& Sql, const QVariantList& Valori = {})
{
    OpenDatabase(File).Execute(Sql, Valori);
}

}  // namespace

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
    void campiFuoriDalFile();
    void variazione_data();
    void variazione();
    void indiciOltreLaLista();
    void valutaInParole();
    void genereSconosciuto();
    void testoIncollatoNegliImporti();
    void cliente();
    void clienteAssente();
    void controparte();
    void riferimento();
    void riferimentoVuoto_data();
    void riferimentoVuoto();
    void password();
    void passwordCodificata_data();
    void passwordCodificata();
    void passwordDecodificata_data();
    void passwordDecodificata();
    void tipoApplicatoPerUltimo();
    void vecchioSenzaSpeseGen();
    void vecchioSenzaRiferimento();
    void vecchioSenzaColonneDiStampa();
    void modelloTieneLAttributo();
    void modelloVecchioTieneLAttributo();
    void ricaricaDaSeStessa();
    void tariffeSenzaSpeseGen();
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

    const QStringList Colonne{u"OnoDir"_s, u"Data"_s, u"Descr"_s, u"NVoce"_s, u"CodOnoDir"_s,
                              u"Qta"_s,    u"Importo"_s, u"Imp1"_s, u"Imp2"_s, u"Imp3"_s,
                              u"Imp4"_s,   u"Imp5"_s,    u"Imp6"_s, u"VarP"_s};
    const QList<QVariantList> Righe = Celle(File, u"ParcellaRighe"_s, Colonne);
    QCOMPARE(int(Righe.size()), 5);
    // The base amounts go through two decimals, away from zero: 10.05, 11.055, 12.06.
    const QVariantList Studio{u"O"_s, QDate(2024, 3, 5), u"Fase di studio della controversia"_s, u"1"_s, u"1"_s,
                              u"1"_s, 1200.0, 1200.0, 600.0, 1920.0, 10.05, 11.06, 12.06, -50.0};
    QCOMPARE(Righe[0], Studio);
    // An expense: its key in NVoce, its number in CodOnoDir, the exempt amount in the first amount field.
    Nota.xDiritti(0, DirNVoce) = 8;
    Nota.xDiritti(0, DirIDDir) = 9;
    ScriviNota(File, Nota);
    const QVariantList Spesa{u"D"_s, QDate(2024, 3, 6), u"Contributo unificato di iscrizione a ruolo"_s, u"9"_s,
                             u"8"_s, u"1"_s, 10.5, 27.0, QVariant(), QVariant(), QVariant(), QVariant(),
                             QVariant(), QVariant()};
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
    QCOMPARE(Letta.txtIVA.Testo + u' ' + Letta.txtRA.Testo + u' ' + Letta.txtCP.Testo + u' ' + Letta.txtSpeGen.Testo,
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
    QCOMPARE(Letta.Fuoco, QString());
    QCOMPARE(CatenaFiscale(Letta, StampaFatturaAnalitica).Netto, CatenaFiscale(Nota, StampaFatturaAnalitica).Netto);

    // Saved again, the file says the same.
    const QString Altra = Ufficio.File(u"altra.mdb"_s);
    ScriviNota(Altra, Letta);
    const QStringList Colonne{u"OnoDir"_s, u"Data"_s, u"Descr"_s, u"NVoce"_s, u"CodOnoDir"_s, u"Qta"_s, u"Imp6"_s};
    QCOMPARE(Celle(Altra, u"ParcellaRighe"_s, Colonne), Celle(Letta.Percorso, u"ParcellaRighe"_s, Colonne));
}

void TestDocumento::giroCompletoPenale()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPenale();
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QVERIFY(VaiAVoce(Voci, 5));
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
    QVERIFY(VaiAVoce(Voci, 6));
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
    Nota.txtDatiPar[DatoDataFatt] = u"domani"_s;
    const Parcella Letta = Riletta(Ufficio, Nota);
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
    EseguiSu(File, u"UPDATE ParcellaParam SET IVA=?, RA=?, CP=?, SpeseGen=?"_s, {Valore, Valore, Valore, Valore});
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

void TestDocumento::campiFuoriDalFile()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    Nota.txtDatiPar[DatoNumero] = u"7"_s;
    Nota.txtDatiPar[DatoData] = u"01/01/2024"_s;
    for (Spunta Parcella::*Tick : {&Parcella::chkRegSempl, &Parcella::chkIBAN, &Parcella::chkIvaDiff,
                                   &Parcella::chkFattAcc, &Parcella::chkAcconti})
        (Nota.*Tick).Attiva = true;
    RicordaStampa(Nota);
    const Parcella Letta = Riletta(Ufficio, Nota);
    QVERIFY(Letta.txtDatiPar.isEmpty());
    for (Spunta Parcella::*Tick : {&Parcella::chkRegSempl, &Parcella::chkIBAN, &Parcella::chkIvaDiff,
                                   &Parcella::chkFattAcc, &Parcella::chkAcconti})
        QVERIFY(!(Letta.*Tick).Attiva);
    QVERIFY(!Letta.Memoria.Acconti);
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
    QCOMPARE(CalcolaAcconti(Letta, StampaPrenotula).Corrispettivi, 1010.0);
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

void TestDocumento::cliente()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    Nota.IDCli = Ufficio.AggiungiCliente(u"Rossi Mario Maria"_s);
    Nota.txtCliente.Testo = u"Rossi"_s;
    Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi Mario Maria"_s);  // the archive's present name
    QCOMPARE(Letta.txtDatiStaCli.Testo, u"Rossi Mario Maria"_s);

    OpenDatabase(sessione::ArchivioCliCon).Execute(u"UPDATE clienti SET Nominativo=NULL"_s);
    CaricaDati(Letta, Ufficio.File(u"nota.mdb"_s));
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi"_s);  // no name there: the stored one fills the box
}

void TestDocumento::clienteAssente()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    Nota.IDCli = 77;
    Nota.IDCon = 88;
    Nota.txtCliente.Testo = u"Rossi"_s;
    Messaggi.Attendi(u"Il cliente associato alla parcella non è stato trovato!"_s, vbOK, u"Errore:"_s);
    Messaggi.Attendi(u"La controparte associata alla parcella non è stata trovata!"_s, vbOK, u"Errore:"_s);
    const Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Letta.IDCli, 77);
    QCOMPARE(Letta.IDCon, 88);
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi"_s);
    QCOMPARE(Letta.txtControp.Testo, QString());
}

void TestDocumento::controparte()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    Nota.IDCon = Ufficio.AggiungiControparte(u"Bianchi Srl"_s, u"BIANCHI S.R.L."_s);
    QCOMPARE(Riletta(Ufficio, Nota).txtControp.Testo, u"BIANCHI S.R.L."_s);
}

void TestDocumento::riferimento()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    sessione::RichiestaPV2.ID = u"2024/7"_s;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    QCOMPARE(Parametro(File, u"NsRif"_s).toString(), u"2024/7"_s);
    // An ordinary open makes the session that of the matter.
    sessione::RichiestaPV2 = {};
    CaricaDati(Nota, File);
    QCOMPARE(Nota.NsRif, u"2024/7"_s);
    QCOMPARE(sessione::RichiestaPV2.ID, u"2024/7"_s);
}

void TestDocumento::riferimentoVuoto_data()
{
    QTest::addColumn<QVariant>("NsRif");
    QTest::newRow("Null") << QVariant();
    QTest::newRow("vuoto") << QVariant(QString());
    QTest::newRow("spazi") << QVariant(u"  "_s);
    QTest::newRow("zero") << QVariant(u"0"_s);
}

void TestDocumento::riferimentoVuoto()
{
    QFETCH(QVariant, NsRif);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    EseguiSu(File, u"UPDATE ParcellaParam SET NsRif=?"_s, {NsRif});
    CaricaDati(Nota, File);
    QCOMPARE(Nota.NsRif, QString());
    QCOMPARE(sessione::RichiestaPV2.ID, QString());
}

void TestDocumento::password()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    Nota.Psw = u"->>aB1"_s;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    QCOMPARE(Parametro(File, u"Psw"_s).toString(), u"097066049"_s);
    QCOMPARE(LeggiPsw(File), u"aB1"_s);

    Parcella Letta;
    Messaggi.Attendi(Protetta_, vbOK, u"Messaggio:"_s);
    CaricaDati(Letta, File);
    QCOMPARE(Messaggi.Mostrati().last().Bandiere, vbInformation);
    QCOMPARE(Letta.Psw, u"aB1"_s);
    QCOMPARE(Letta.xOnorari.Righe(), 4);  // all of it is there

    // The password goes with every further save, under another name too.
    const QString Copia = Ufficio.File(u"copia.mdb"_s);
    ScriviNota(Copia, Letta);
    QCOMPARE(LeggiPsw(Copia), u"aB1"_s);

    NuovaParcella(Nota);
    ScriviNota(File, Nota);
    QCOMPARE(LeggiPsw(File), QString());
}

void TestDocumento::passwordCodificata_data()
{
    QTest::addColumn<QString>("Psw");
    QTest::addColumn<QString>("Cifre");
    QTest::newRow("vuota") << QString() << QString();
    QTest::newRow("una lettera") << u"A"_s << u"065"_s;
    QTest::newRow("sei caratteri") << u"abcXYZ"_s << u"097098099088089090"_s;
    QTest::newRow("il settimo non conta") << u"abcXYZ7"_s << u"097098099088089090"_s;
    QTest::newRow("accento ed euro") << u"è€"_s << u"232128"_s;
    QTest::newRow("fuori dalla tabella") << u"aЖb"_s << u"097063098"_s;
}

void TestDocumento::passwordCodificata()
{
    QFETCH(QString, Psw);
    QTEST(CodificaPsw(Psw), "Cifre");
}

void TestDocumento::passwordDecodificata_data()
{
    QTest::addColumn<QString>("Cifre");
    QTest::addColumn<QString>("Psw");
    QTest::newRow("andata e ritorno") << u"232128097"_s << u"è€a"_s;
    QTest::newRow("pezzo monco in fondo") << u"09709"_s << u"a"_s;
    QTest::newRow("lettere") << u"097x98"_s << u"a"_s;
    QTest::newRow("segni e spazi non sono cifre") << u"097+98 98"_s << u"a"_s;
    QTest::newRow("oltre 255") << u"097256098"_s << u"a"_s;
    QTest::newRow("troppo lunga") << QString(u"097"_s).repeated(50) << u"aaaaaa"_s;
}

void TestDocumento::passwordDecodificata()
{
    QFETCH(QString, Cifre);
    QTEST(DecodificaPsw(Cifre), "Psw");
}

void TestDocumento::tipoApplicatoPerUltimo()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    ScegliTipoStampa(Nota, StampaFatturaSintetica);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    EseguiSu(File, u"UPDATE ParcellaParam SET VisMinMax=1"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.cmbTipoStampa, int(StampaFatturaSintetica));
    QVERIFY(!Letta.chkMinMax.Attiva && Letta.chkAcconti.Attiva);
    ScegliTipoStampa(Letta, StampaPrenotula);
    QVERIFY(Letta.chkMinMax.Attiva && !Letta.chkAcconti.Attiva);  // what the file said was remembered first

    EseguiSu(File, u"UPDATE ParcellaParam SET TipoStampa=4"_s);
    CaricaDati(Letta, File);
    QVERIFY(!Letta.chkIva.Attiva && !Letta.chkRA.Abilitata);
    ScegliTipoStampa(Letta, StampaPrenotula);
    QCOMPARE(Letta.txtIVA.Testo + u' ' + Letta.txtSpeGen.Testo, u"21 12,5"_s);
}

void TestDocumento::vecchioSenzaSpeseGen()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    EseguiSu(File, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
    QVERIFY(!EsisteCampo(File, u"ParcellaParam"_s, u"SpeseGen"_s));
    Parcella Letta;
    CaricaDati(Letta, File);
    QVERIFY(EsisteCampo(File, u"ParcellaParam"_s, u"SpeseGen"_s));
    QVERIFY(!Parametro(File, u"SpeseGen"_s).isValid());
    QVERIFY(!Letta.chkSpeseGen.Attiva);
    QCOMPARE(Letta.txtSpeGen.Testo, QString());
    QVERIFY(Letta.chkIva.Attiva);
    QCOMPARE(Letta.xOnorari.Righe(), 4);
}

void TestDocumento::vecchioSenzaRiferimento()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    EseguiSu(File, u"ALTER TABLE ParcellaParam DROP COLUMN NsRif"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.NsRif, QString());
    QVERIFY(!EsisteCampo(File, u"ParcellaParam"_s, u"NsRif"_s));  // only the general expenses are added
}

void TestDocumento::vecchioSenzaColonneDiStampa()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    for (const QString& Colonna : {u"TipoStampa"_s, u"Testo1"_s, u"VisMinMax"_s, u"IVA"_s, u"RA"_s, u"Oggetto"_s,
                                   u"Cliente"_s, u"DataFatt"_s, u"NumFatt"_s, u"DepGiud"_s})
        EseguiSu(File, u"ALTER TABLE ParcellaParam DROP COLUMN "_s + Colonna);
    Parcella Letta;
    CaricaDati(Letta, File);
    // What is missing stays as a new note has it; all the rest is read.
    QCOMPARE(Letta.cmbTipoStampa, NessunaVoce);
    QVERIFY(!Letta.chkMinMax.Attiva);
    QVERIFY(Letta.chkIva.Attiva && !Letta.chkRA.Attiva);
    QCOMPARE(Letta.txtIVA.Testo, u"21"_s);
    QCOMPARE(Letta.txtOggetto.Testo + Letta.txtCliente.Testo, QString());
    QCOMPARE(Letta.txtControp.Testo, u"Bianchi Srl"_s);
    QCOMPARE(Letta.DatiPar(DatoTestoInferiore), u"sotto"_s);
    QCOMPARE(Letta.DatiPar(DatoDepRuolo), u"77/2024"_s);
    QVERIFY(Letta.chkSpeseGen.Attiva);
}

void TestDocumento::modelloTieneLAttributo()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"modello.mdb"_s);
    ScriviNota(File, NotaPiena(), true);
    QVERIFY(SolaLettura(File));
    Parcella Letta;
    CaricaDati(Letta, File);
    QVERIFY(SolaLettura(File));
    QCOMPARE(Letta.xOnorari.Righe(), 4);
}

void TestDocumento::modelloVecchioTieneLAttributo()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"modello.mdb"_s);
    ScriviNota(File, NotaPiena());
    EseguiSu(File, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
    ImpostaSolaLettura(File, true);
    Parcella Letta;
    CaricaDati(Letta, File);
    QVERIFY(EsisteCampo(File, u"ParcellaParam"_s, u"SpeseGen"_s));
    QVERIFY(SolaLettura(File));
}

void TestDocumento::ricaricaDaSeStessa()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Letta = Riletta(Ufficio, NotaPiena());
    CaricaDati(Letta, Letta.Percorso);
    QCOMPARE(Letta.Percorso, Ufficio.File(u"nota.mdb"_s));
    QCOMPARE(Letta.xOnorari.Righe(), 4);  // and not eight
}

void TestDocumento::tariffeSenzaSpeseGen()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Ufficio.TariffeProprie().Execute(u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
    Parcella Nota = NotaPiena();
    const Parcella Letta = Riletta(Ufficio, Nota);
    QVERIFY(EsisteCampo(Ufficio.File(u"parcelle.mdb"_s), u"ParcellaParam"_s, u"SpeseGen"_s));
    QCOMPARE(Letta.txtSpeGen.Testo, u"12,5"_s);
}

#include "TestDocumento.moc"
