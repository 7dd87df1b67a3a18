#include "feenote/file/file_prova.h"
#include "feenote/file/modMultipla.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"

#include <memory>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

/// What a note takes of another that is printed with it.
class TestMultipla : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dalFile();
    void leSpeseNonSonoOnorari();
    void dallaFinestra();
    void ilValoreDeiDocumenti_data();
    void ilValoreDeiDocumenti();
    void laPraticaNonSiSegue();
    void ilFileRestaComE();
    void ilFileVecchioNonSiAggiorna();
    void ilModelloPerdeLaProtezione();
    void ilSupportoCheRifiuta();
    void quelCheNonSiLegge_data();
    void quelCheNonSiLegge();
    void importiCheNonSiLeggono_data();
    void importiCheNonSiLeggono();
    void seStessa_data();
    void seStessa();
    void unaSceltaDopoLAltra();
    void siToglie();
    void leSommeDelleDue();

private:
    std::unique_ptr<Studio> Ufficio;
    std::unique_ptr<Registratore> Box;
    QString File;
    Parcella Altra;
};
PROVA(TestMultipla);

void TestMultipla::init()
{
    Ufficio = std::make_unique<Studio>();
    File = Ufficio->File(u"Altra Nota.mdb"_s);
    Altra = NotaPiena();
    ScriviNota(File, Altra);
    Box = std::make_unique<Registratore>();  // nothing is told by a reading
}

void TestMultipla::cleanup()
{
    Box.reset();
    Ufficio.reset();
}

void TestMultipla::dalFile()
{
    const NotaAssociata Dati = LeggiMulti(File);
    QCOMPARE(Dati.CategMulti, u"Civile o Amministrativa"_s);
    QCOMPARE(Dati.AutorMulti, TestoAutorita(Altra));
    QVERIFY(!Dati.AutorMulti.isEmpty());
    QCOMPARE(Dati.ValoreMulti, TestoValore(Altra));
    QCOMPARE(Dati.OggettoMulti, u"Sfratto & c.d. \"morosità\""_s);
    QCOMPARE(Dati.xOnorariMulti.Righe(), Altra.xOnorari.Righe());
    for (int Riga = 0; Riga < Dati.xOnorariMulti.Righe(); ++Riga)
        for (const int Colonna : {OnoDescr, OnoImporto, OnoMedio, OnoMin, OnoMax, OnoNVoce})
            QCOMPARE(CStr(Dati.xOnorariMulti(Riga, Colonna)), CStr(Altra.xOnorari(Riga, Colonna)));
    QCOMPARE(CStr(Dati.xOnorariMulti(0, OnoData)), u"05/03/2024"_s);
    QCOMPARE(Dati.xAccontiMulti.Righe(), 1);
    QCOMPARE(CStr(Dati.xAccontiMulti(0, AccDescr)), u"Fondo spese"_s);
    QCOMPARE(CStr(Dati.xAccontiMulti(0, AccValuta)), u"L"_s);
    QCOMPARE(NumeroDi(Dati.xAccontiMulti(0, AccCorrispettivi)), 1936270.0);
    QCOMPARE(Dati.TotOnorariMulti, CalcolaSomme(Altra).TotOnorari);
}

void TestMultipla::leSpeseNonSonoOnorari()
{
    const NotaAssociata Dati = LeggiMulti(File);
    QCOMPARE(Dati.xDirittiMulti.Righe(), 1);
    QCOMPARE(Dati.TotSpeseImpMulti, 10.5);
    QCOMPARE(Dati.TotSpeseEsentiMulti, 27.0);
    QCOMPARE(NumeroDi(Dati.xDirittiMulti(0, DirImponibile)), 10.5);
    QCOMPARE(NumeroDi(Dati.xDirittiMulti(0, DirEsente)), 27.0);
}

void TestMultipla::dallaFinestra()
{
    Altra.txtOggetto.Testo = u"cambiato e non salvato"_s;
    Altra.xDiritti(0, DirEsente) = 30.0;
    Parcella Nota = NotaCivile();
    QVERIFY(AssociaMulti(Nota, File, &Altra));
    QCOMPARE(Nota.Multi.OggettoMulti, u"cambiato e non salvato"_s);
    QCOMPARE(Nota.Multi.TotSpeseEsentiMulti, 30.0);
    QVERIFY(AssociaMulti(Nota, File));
    QCOMPARE(Nota.Multi.TotSpeseEsentiMulti, 27.0);
}

void TestMultipla::ilValoreDeiDocumenti_data()
{
    QTest::addColumn<double>("Importo");
    QTest::addColumn<bool>("Esatto");
    QTest::newRow("the exact value, where there is one") << 30000.0 << true;
    QTest::newRow("else the bracket in small letters") << 0.0 << false;
}

void TestMultipla::ilValoreDeiDocumenti()
{
    QFETCH(double, Importo);
    QFETCH(bool, Esatto);
    EseguiSu(File, u"UPDATE ParcellaParam SET Importo=?, Valore=2"_s, {Importo});
    const QString Valore = LeggiMulti(File).ValoreMulti;
    if (Esatto)
        QCOMPARE(Valore, u"30.000,00 €"_s);
    else
        QCOMPARE(Valore, u"da € 25.000,01 a € 50.000,00"_s);
}

void TestMultipla::laPraticaNonSiSegue()
{
    Altra.NsRif = u"P77"_s;
    ScriviNota(File, Altra);
    Parcella Nota = NotaCivile();
    QVERIFY(AssociaMulti(Nota, File));
    QCOMPARE(Nota.NsRif, QString());
    QCOMPARE(sessione::RichiestaPV2.ID, QString());
}

void TestMultipla::ilFileRestaComE()
{
    EseguiSu(File, u"UPDATE ParcellaParam SET Psw=?, IDCli=4711"_s, {CodificaPsw(u"chiave"_s)});
    const QByteArray Prima = LeggiFile(File);
    (void)LeggiMulti(File);
    QCOMPARE(LeggiFile(File), Prima);
    QCOMPARE(FileAperti(File), 0);
}

/// A file from before a column is read as it stands: only who opens a note brings it up to date.
void TestMultipla::ilFileVecchioNonSiAggiorna()
{
    EseguiSu(File, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
    const QByteArray Prima = LeggiFile(File);
    const NotaAssociata Dati = LeggiMulti(File);
    QCOMPARE(Dati.TotSpeseEsentiMulti, 27.0);
    QCOMPARE(Dati.xOnorariMulti.Righe(), Altra.xOnorari.Righe());
    QCOMPARE(LeggiFile(File), Prima);
}

void TestMultipla::ilModelloPerdeLaProtezione()
{
    ImpostaSolaLettura(File, true);
    Parcella Nota = NotaCivile();
    QVERIFY(AssociaMulti(Nota, File));
    QVERIFY(!SolaLettura(File));
}

void TestMultipla::ilSupportoCheRifiuta()
{
    ImpostaSolaLettura(File, true);
    guasti::SupportoBloccato = Ufficio->Cartella();
    const NotaAssociata Dati = LeggiMulti(File);
    guasti::SupportoBloccato.clear();
    QCOMPARE(Dati.TotSpeseEsentiMulti, 27.0);
    QVERIFY(SolaLettura(File));
}

void TestMultipla::quelCheNonSiLegge_data()
{
    QTest::addColumn<QString>("Come");
    QTest::addColumn<int>("Numero");
    QTest::newRow("gone") << u"manca"_s << 3024;
    QTest::newRow("another kind of file") << u"estraneo"_s << 3343;
    QTest::newRow("cut by half") << u"tagliato"_s << 3343;
    QTest::newRow("a pipe, which nobody writes into") << u"tubo"_s << 75;
    QTest::newRow("without its row") << u"vuoto"_s << 3021;
    QTest::newRow("without its lines") << u"righe"_s << 3078;
    QTest::newRow("more lines than a note has") << u"troppe"_s << 1000;
}

void TestMultipla::quelCheNonSiLegge()
{
    QFETCH(QString, Come);
    Parcella Nota = NotaCivile();
    const QString Prima = Ufficio->File(u"prima.mdb"_s);
    ScriviNota(Prima, Altra);
    QVERIFY(AssociaMulti(Nota, Prima));
    const NotaAssociata Aveva = Nota.Multi;
    if (Come == u"manca") {
        QVERIFY(QFile::remove(File));
    } else if (Come == u"estraneo") {
        ScriviFile(File, QByteArray(9000, 'x'));
    } else if (Come == u"tagliato") {
        QFile Meta(File);
        QVERIFY(Meta.resize(Meta.size() / 2));
    } else if (Come == u"tubo") {
        QVERIFY(QFile::remove(File));
        QCOMPARE(::mkfifo(QFile::encodeName(File).constData(), 0600), 0);
    } else if (Come == u"vuoto") {
        EseguiSu(File, u"DELETE FROM ParcellaParam"_s);
    } else if (Come == u"righe") {
        EseguiSu(File, u"DROP TABLE ParcellaRighe"_s);
    } else {
        EseguiSu(File, u"INSERT INTO ParcellaRighe (OnoDir) WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL "
                       u"SELECT n+1 FROM c WHERE n<100001) SELECT 'O' FROM c"_s);
    }
    if (Come != u"manca")
        ImpostaSolaLettura(File, true);
    QTEST(NumeroErrore([&] { (void)AssociaMulti(Nota, File); }), "Numero");
    QCOMPARE(Nota.Multi, Aveva);
    QCOMPARE(Nota.txtPathParcMult, Prima);
    QCOMPARE(Nota.txtParcMultipla, u"prima"_s);
    QVERIFY2(Come == u"manca" || SolaLettura(File), "what is no note keeps its attribute");
}

void TestMultipla::importiCheNonSiLeggono_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Detto");
    const QString Come = u"Attenzione, %1: al %2 posto è 0.\nPrima di stamparle insieme occorre aprirla, "
                         u"%3 di nuovo e salvarla."_s;
    QTest::newRow("all can be read") << QString() << QString();
    QTest::newRow("a payment") << u"UPDATE ParcellaAcconti SET Corr='mille' WHERE rowid=1"_s
                               << Come.arg(
                                      u"un importo della parcella associata \"Altra Nota\" non si legge"_s,
                                      u"suo"_s, u"scriverlo"_s);
    QTest::newRow("fees") << u"UPDATE ParcellaRighe SET Importo='1,2,3', Imp1='x' "
                             "WHERE rowid=(SELECT min(rowid) FROM ParcellaRighe WHERE OnoDir='O')"_s
                          << Come.arg(u"2 importi della parcella associata \"Altra Nota\" non si leggono"_s,
                                      u"loro"_s, u"scriverli"_s);
}

/// They are 0 in the sums of both, and somebody must say so; while it is read nothing is shown.
void TestMultipla::importiCheNonSiLeggono()
{
    QFETCH(QString, Sql);
    QFETCH(QString, Detto);
    if (!Sql.isEmpty())
        EseguiSu(File, Sql);
    Parcella Nota = NotaPiena();
    QVERIFY(AssociaMulti(Nota, File));
    if (!Detto.isEmpty())
        Box->Attendi(Detto, vbOK, u"Avvertenza:"_s);
    AvvisaIlleggibiliMulti(Nota);
    QCOMPARE(Box->Mostrati().size(), Detto.isEmpty() ? 0 : 1);
    // What a window holds was told when it was opened.
    QVERIFY(AssociaMulti(Nota, File, &Altra));
    QCOMPARE(Nota.Multi.Illeggibili, 0);
}

void TestMultipla::seStessa_data()
{
    QTest::addColumn<QString>("Come");
    QTest::newRow("the same path") << u"uguale"_s;
    QTest::newRow("the other separators") << u"barre"_s;
    QTest::newRow("through a link") << u"collegamento"_s;
    QTest::newRow("the window itself, never saved") << u"finestra"_s;
}

void TestMultipla::seStessa()
{
    QFETCH(QString, Come);
    Parcella Nota = NotaCivile();
    Nota.Percorso = File;
    QString Scelto = File;
    if (Come == u"barre") {
        Scelto.replace(u'/', u'\\');
    } else if (Come == u"collegamento") {
        Scelto = Ufficio->File(u"giro.mdb"_s);
        QVERIFY(QFile::link(File, Scelto));
    } else if (Come == u"finestra") {
        Nota.Percorso.clear();
    }
    Box->Attendi(u"La parcella non può essere associata a se stessa!"_s, vbOK, u"Errore:"_s);
    QVERIFY(!AssociaMulti(Nota, Scelto, Come == u"finestra" ? &Nota : nullptr));
    QVERIFY(!Nota.Multipla());
    QCOMPARE(Nota.Multi, NotaAssociata());
}

void TestMultipla::unaSceltaDopoLAltra()
{
    Parcella Nota = NotaCivile();
    SetModificata(Nota, false);
    const QString Seconda = Ufficio->File(u"seconda.MDB"_s);
    QVERIFY(QFile::copy(File, Seconda));
    EseguiSu(Seconda, u"DELETE FROM ParcellaRighe WHERE OnoDir='D'"_s);
    QVERIFY(AssociaMulti(Nota, File));
    QCOMPARE(Nota.txtParcMultipla, u"Altra Nota"_s);
    QVERIFY(AssociaMulti(Nota, Seconda));
    QCOMPARE(Nota.txtParcMultipla, u"seconda"_s);
    QCOMPARE(Nota.txtPathParcMult, Seconda);
    QVERIFY(Nota.Multi.xDirittiMulti.Vuota());
    QCOMPARE(Nota.Multi.TotSpeseEsentiMulti, 0.0);
    QVERIFY2(!Nota.Modificata, "an association is no change of the note");
}

void TestMultipla::siToglie()
{
    Parcella Nota = NotaCivile();
    QVERIFY(AssociaMulti(Nota, File));
    QVERIFY(Nota.Multipla());
    TogliMulti(Nota);
    QVERIFY(!Nota.Multipla());
    QCOMPARE(Nota.Multi, NotaAssociata());
    QCOMPARE(Nota.txtPathParcMult, QString());
}

void TestMultipla::leSommeDelleDue()
{
    Parcella Nota = NotaCivile();
    RigaAcconto(Nota, u"E"_s, 100.0, 0.0, 0.0);
    const DatiCatena Sola = RaccogliCatena(Nota, StampaPrenotula);
    QVERIFY(AssociaMulti(Nota, File));
    const DatiCatena Due = RaccogliCatena(Nota, StampaPrenotula);
    QVERIFY(Due.Multipla && !Sola.Multipla);
    QCOMPARE(Due.Onorari, Sola.Onorari + CalcolaSomme(Altra).TotOnorari);
    QCOMPARE(Due.SpeseImp, Sola.SpeseImp + 10.5);
    QCOMPARE(Due.SpeseEsenti, Sola.SpeseEsenti + 27.0);
    QCOMPARE(Due.Acconti.AccontiCorrispettivi, Sola.Acconti.AccontiCorrispettivi + 1000.0);  // 1.936.270 lire
}

#include "TestMultipla.moc"
