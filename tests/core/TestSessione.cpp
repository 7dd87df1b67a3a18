#include "core/aperture.h"
#include "platform/system/attese.h"
#include "supporto/cartellaferma.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/impostazioni.h"
#include "core/modAvvio.h"
#include "core/modErrori.h"
#include "platform/base/numerierrore.h"
#include "platform/system/aparte.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QDir>
#include <QFile>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

class TestSessione : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void azzeraTornaAllInizio();
    void senzaImpostazioni();
    void valoriFissi();
    void leggeITesti();
    void leggeINumeri();
    void percorsoProgPrendeLaBarra_data();
    void percorsoProgPrendeLaBarra();
    void archivio_data();
    void archivio();
    void archivioNasceAccantoAlProgramma();
    void cartelleDelleParcelle_data();
    void cartelleDelleParcelle();
    void parcelleConservataPrendeLaBarra();
    void iModelliSuUnaReteMuta();
    void cercaAgg_data();
    void cercaAgg();
    void aliquotaMalformataRestaComEra();
    void unaSolaAliquotaMalformata();
    void numeroMalformatoNonFermaLaLettura_data();
    void numeroMalformatoNonFermaLaLettura();
    void bordoDelleEtichetteConDueGrafie();
    void cartellaUtentePerSistema();
    void cartellaUtenteConservata();
    void cartellaUtenteMancante();
    void tracciaSoloInDebug();
    void tabella();
    void azzeraDaiPredefiniti();
    void molteInsieme();
    void rileggeQuelCheCambia();
};
PROVA(TestSessione);

namespace {

void Salva(const QString& Chiave, const QString& Valore)
{
    SaveSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave, Valore);
}

/// Everything the session holds, as text: what two states must agree on.
QStringList Stato()
{
    using namespace sessione;
    QStringList Testi{PercorsoProg,    ArchivioCliCon, StudioNome,  StudioIndir,    StudioCitta,
                      StudioCodFisc,   StudioMail,     StudioPIva,  Firma,          ParcellePath,
                      ModelliPath,     Iban,           WP,          UserFolder,     SfondoDesktop,
                      TitoloProdotto,  PrefissoOdbc,   PercorsoVDM, CartellaLocale, ArchivioPrat,
                      RichiestaPV2.ID, TestoDebug};
    for (const double Numero :
         {double(IVA), double(RA), double(SpeseGen), double(CP), double(CercaAgg), double(ProgFatt),
          double(ColoreSfondoDesktop), double(ColoreEtichette), double(ColoreEtichetteBordo),
          double(ColoreEtichettaSel), double(ModoLow), double(ModoDebug), double(RichiestaPV2.Categoria),
          double(RichiestaPV2.Autorita), RichiestaPV2.Valore, double(RichiestaPV2.IDCli),
          double(RichiestaPV2.IDCon), double(RichiestaPV2.Scelta)})
        Testi << QString::number(Numero);
    Testi << QStringList(GiorniSett.begin(), GiorniSett.end()) << QStringList(Mesi.begin(), Mesi.end());
    return Testi;
}

/// The state before anything ran: taken while the program's static data are still untouched.
const QStringList StatoIniziale = Stato();

void Sporca()
{
    using namespace sessione;
    for (QString* Testo : {&PercorsoProg,   &ArchivioCliCon, &StudioNome,  &StudioIndir,    &StudioCitta,
                           &StudioCodFisc,  &StudioMail,     &StudioPIva,  &Firma,          &ParcellePath,
                           &ModelliPath,    &Iban,           &WP,          &UserFolder,     &SfondoDesktop,
                           &TitoloProdotto, &PrefissoOdbc,   &PercorsoVDM, &CartellaLocale, &ArchivioPrat,
                           &TestoDebug})
        *Testo = u"sporco"_s;
    IVA = RA = SpeseGen = CP = 99.0F;
    CercaAgg = false;
    ProgFatt = ColoreSfondoDesktop = ColoreEtichette = ColoreEtichetteBordo = ColoreEtichettaSel = 99;
    ModoLow = ModoDebug = true;
    RichiestaPV2 = {u"sporco"_s, 9, 9, 9.0, 9, 9, 9};
    GiorniSett.fill(u"sporco"_s);
    Mesi.fill(u"sporco"_s);
}

}  // namespace

void TestSessione::init()
{
    AzzeraSessione();
    Aperture.MostraTraccia = nullptr;
    const QString File = qEnvironmentVariable("XDG_CONFIG_HOME") + u"/Calcanova/KR5.ini"_s;
    if (EsisteFile(File))
        QVERIFY(QFile::remove(File));
}

void TestSessione::azzeraTornaAllInizio()
{
    Sporca();
    const QStringList Sporco = Stato();
    for (qsizetype i = 0; i < Sporco.size(); ++i)
        QVERIFY2(Sporco[i] != StatoIniziale[i], qPrintable(u"not touched: %1"_s.arg(i)));
    AzzeraSessione();
    QCOMPARE(Stato(), StatoIniziale);
}

void TestSessione::senzaImpostazioni()
{
    using namespace sessione;
    const Registratore Box;
    Sporca();
    ModoDebug = false;
    UserFolder.clear();
    ImpostaVariabili();
    QCOMPARE(PercorsoProg, CartellaEseguibile());
    QVERIFY(PercorsoProg.endsWith(QDir::separator()));
    QCOMPARE(ArchivioCliCon, PercorsoProg + u"DatiStudio.mdb"_s);
    for (const QString& Testo :
         {StudioNome, StudioIndir, StudioCitta, StudioCodFisc, StudioMail, StudioPIva, Firma, Iban})
        QCOMPARE(Testo, QString());
    QCOMPARE(IVA, 21.0F);
    QCOMPARE(RA, 20.0F);
    QCOMPARE(SpeseGen, 12.5F);
    QCOMPARE(CP, 4.0F);
    QVERIFY(CercaAgg);
    QCOMPARE(WP, u"-1"_s);
    QCOMPARE(ProgFatt, 0);
    QCOMPARE(SfondoDesktop, u"lex.jpg"_s);
    QCOMPARE(ColoreSfondoDesktop, 2508052);
    QCOMPARE(ColoreEtichette, 0xFFFFFF);
    QCOMPARE(ColoreEtichetteBordo, 0);
    QCOMPARE(ColoreEtichettaSel, 255);
    QCOMPARE(UserFolder, CartellaSpeciale(5) + u"KR5"_s + QDir::separator());
    QVERIFY2(!EsisteCartella(UserFolder), "reading the settings creates no folder");
}

void TestSessione::valoriFissi()
{
    using namespace sessione;
    const Registratore Box;
    ImpostaVariabili();
    QCOMPARE(TitoloProdotto, u"Calcanova 3"_s);
    QCOMPARE(PrefissoOdbc, u"DRIVER=Microsoft Access Driver (*.mdb);DBQ="_s);
    QCOMPARE(QStringList(GiorniSett.begin(), GiorniSett.end()).join(u' '),
             u" Lunedì Martedì Mercoledì Giovedì Venerdì Sabato Domenica"_s);
    QCOMPARE(
        QStringList(Mesi.begin(), Mesi.end()).join(u' '),
        u" Gennaio Febbraio Marzo Aprile Maggio Giugno Luglio Agosto Settembre Ottobre Novembre Dicembre"_s);
}

void TestSessione::leggeITesti()
{
    using namespace sessione;
    const Registratore Box;
    const QList<std::pair<QString, QString*>> Testi{
        {u"StudioNome"_s, &StudioNome},
        {u"StudioIndir"_s, &StudioIndir},
        {u"StudioCitta"_s, &StudioCitta},
        {u"StudioCodFisc"_s, &StudioCodFisc},
        {u"StudioMail"_s, &StudioMail},
        {u"StudioPIva"_s, &StudioPIva},
        {u"Firma"_s, &Firma},
        {u"Iban"_s, &Iban},
        {u"WP"_s, &WP},
        {u"SfondoDesktop"_s, &SfondoDesktop},
    };
    for (const auto& [Chiave, Variabile] : Testi)
        Salva(Chiave, u"di "_s + Chiave);
    ImpostaVariabili();
    for (const auto& [Chiave, Variabile] : Testi)
        QCOMPARE(*Variabile, u"di "_s + Chiave);
}

void TestSessione::leggeINumeri()
{
    using namespace sessione;
    const Registratore Box;
    Salva(u"IVA"_s, u"22"_s);
    Salva(u"RA"_s, u"23,5"_s);
    Salva(u"SpeseGen"_s, u"15"_s);
    Salva(u"CP"_s, u"2,25"_s);
    Salva(u"ProgFatt"_s, u"32767"_s);
    Salva(u"ColoreSfondoDesktop"_s, u"1"_s);
    Salva(u"ColoreEtichette"_s, u"2"_s);
    Salva(u"ColoreEtichettaSel"_s, u"16777215"_s);
    ImpostaVariabili();
    QCOMPARE(IVA, 22.0F);
    QCOMPARE(RA, 23.5F);
    QCOMPARE(SpeseGen, 15.0F);
    QCOMPARE(CP, 2.25F);
    QCOMPARE(ProgFatt, 32767);
    QCOMPARE(ColoreSfondoDesktop, 1);
    QCOMPARE(ColoreEtichette, 2);
    QCOMPARE(ColoreEtichettaSel, 16777215);
}

void TestSessione::percorsoProgPrendeLaBarra_data()
{
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<QString>("Atteso");

    const QChar Barra = QDir::separator();
    QTest::newRow("without separator") << u"/opt/kr5"_s << u"%1opt%1kr5%1"_s.arg(Barra);
    QTest::newRow("with separator") << u"/opt/kr5/"_s << u"%1opt%1kr5%1"_s.arg(Barra);
    QTest::newRow("with the other separator") << u"/opt/kr5\\"_s << u"%1opt%1kr5%1"_s.arg(Barra);
    QTest::newRow("stored empty stays empty") << u""_s << u""_s;
}

void TestSessione::percorsoProgPrendeLaBarra()
{
    QFETCH(QString, Valore);
    const Registratore Box;
    Salva(u"PercorsoProcedura"_s, Valore);
    ImpostaVariabili();
    QTEST(sessione::PercorsoProg, "Atteso");
}

void TestSessione::archivio_data()
{
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<QString>("Atteso");

    const QChar Barra = QDir::separator();
    QTest::newRow("folder without separator") << u"/studio"_s << u"%1studio%1DatiStudio.mdb"_s.arg(Barra);
    QTest::newRow("folder with separator") << u"/studio/"_s << u"%1studio%1DatiStudio.mdb"_s.arg(Barra);
    QTest::newRow("folder with the other separator")
        << u"/studio\\"_s << u"%1studio%1DatiStudio.mdb"_s.arg(Barra);
    QTest::newRow("file") << u"/studio/a.mdb"_s << u"/studio/a.mdb"_s;
    QTest::newRow("file in capitals stays as it is") << u"C:\\STUDIO\\A.MDB"_s << u"C:\\STUDIO\\A.MDB"_s;
    QTest::newRow("file in mixed case") << u"a.mDb"_s << u"a.mDb"_s;
    QTest::newRow("empty stays empty") << u""_s << u""_s;
    QTest::newRow("shorter than the extension") << u"mdb"_s << u"mdb%1DatiStudio.mdb"_s.arg(Barra);
}

void TestSessione::archivio()
{
    QFETCH(QString, Valore);
    QFETCH(QString, Atteso);
    const Registratore Box;
    QCOMPARE(PercorsoArchivio(Valore), Atteso);
    Salva(u"ArchivioCliCon"_s, Valore);
    ImpostaVariabili();
    QCOMPARE(sessione::ArchivioCliCon, Atteso);
}

void TestSessione::archivioNasceAccantoAlProgramma()
{
    const Registratore Box;
    const QString Programma = NuovaCartella();
    Salva(u"PercorsoProcedura"_s, Programma);
    ImpostaVariabili();
    QCOMPARE(sessione::ArchivioCliCon, Programma + u"DatiStudio.mdb"_s);
}

void TestSessione::cartelleDelleParcelle_data()
{
    QTest::addColumn<QString>("Esistente");
    QTest::addColumn<QString>("Parcelle");
    QTest::addColumn<QString>("Modelli");

    QTest::newRow("neither folder") << u""_s << u""_s << u""_s;
    QTest::newRow("fee notes alone") << u"Parcelle"_s << u"Parcelle/"_s << u""_s;
    QTest::newRow("both") << u"Parcelle/Modelli"_s << u"Parcelle/"_s << u"Parcelle/Modelli/"_s;
    QTest::newRow("templates beside the program") << u"Modelli"_s << u""_s << u"Modelli/"_s;
}

void TestSessione::cartelleDelleParcelle()
{
    QFETCH(QString, Esistente);
    QFETCH(QString, Parcelle);
    QFETCH(QString, Modelli);
    const Registratore Box;
    const QString Programma = NuovaCartella();
    if (!Esistente.isEmpty())
        CreaCartella(Programma + Esistente);
    Salva(u"PercorsoProcedura"_s, Programma);
    ImpostaVariabili();
    QCOMPARE(sessione::ParcellePath, PercorsoNativo(Programma + Parcelle));
    QCOMPARE(sessione::ModelliPath, PercorsoNativo(Programma + Modelli));
}

void TestSessione::parcelleConservataPrendeLaBarra()
{
    const Registratore Box;
    const QString Cartella = NuovaCartella();
    CreaCartella(Cartella + u"Modelli"_s);
    Salva(u"ParcellePath"_s, Cartella.chopped(1));
    ImpostaVariabili();
    QCOMPARE(sessione::ParcellePath, Cartella);
    QCOMPARE(sessione::ModelliPath, Barra(Cartella + u"Modelli"_s));
}

/// A share that does not answer is not waited for long, and its folder of templates stays what it was.
void TestSessione::iModelliSuUnaReteMuta()
{
    const Registratore Box;
    const QString Note = NuovaCartella();
    const QString Modelli = Barra(Note + u"Modelli"_s);
    Salva(u"ParcellePath"_s, Note);
    constexpr int AttesaMs = 10000;
    QScopedValueRollback Poco(attese::CartellaMs, 50);
    {
        const CartellaFerma Rete(Modelli);
        ImpostaVariabili();
        QVERIFY(Rete.Attesa());
        QCOMPARE(sessione::ModelliPath, Modelli);
    }
    QVERIFY(AttendiLavoriAParte(AttesaMs));
    attese::CartellaMs = AttesaMs;
    ImpostaVariabili();
    QVERIFY2(sessione::ModelliPath == sessione::PercorsoProg, "it answers that there is none");
}

void TestSessione::cercaAgg_data()
{
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<bool>("Cerca");

    QTest::newRow("S") << u"S"_s << true;
    QTest::newRow("N") << u"N"_s << false;
    QTest::newRow("any other text") << u"Si"_s << false;
    QTest::newRow("small s") << u"s"_s << false;
    QTest::newRow("empty") << u""_s << false;
}

void TestSessione::cercaAgg()
{
    QFETCH(QString, Valore);
    const Registratore Box;
    Salva(u"CercaAgg"_s, Valore);
    ImpostaVariabili();
    QTEST(sessione::CercaAgg, "Cerca");
}

void TestSessione::aliquotaMalformataRestaComEra()
{
    using namespace sessione;
    const Registratore Box;
    IVA = 19.0F;
    RA = 18.0F;
    SpeseGen = 10.0F;
    CP = 2.0F;
    for (const QString& Chiave : {u"IVA"_s, u"RA"_s, u"SpeseGen"_s, u"CP"_s})
        Salva(Chiave, u"12.5"_s);
    Salva(u"ProgFatt"_s, u"7"_s);
    ImpostaVariabili();
    QCOMPARE(IVA, 19.0F);
    QCOMPARE(RA, 18.0F);
    QCOMPARE(SpeseGen, 10.0F);
    QCOMPARE(CP, 2.0F);
    QCOMPARE(ProgFatt, 7);
}

void TestSessione::unaSolaAliquotaMalformata()
{
    using namespace sessione;
    const Registratore Box;
    IVA = 19.0F;
    Salva(u"IVA"_s, u"ventuno"_s);
    Salva(u"RA"_s, u""_s);
    Salva(u"CP"_s, u"5"_s);
    Salva(u"Iban"_s, u"IT60"_s);
    ImpostaVariabili();
    QCOMPARE(IVA, 19.0F);
    QCOMPARE(RA, 20.0F);
    QCOMPARE(CP, 5.0F);
    QCOMPARE(Iban, u"IT60"_s);
}

void TestSessione::numeroMalformatoNonFermaLaLettura_data()
{
    QTest::addColumn<QString>("Chiave");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<int>("Numero");

    QTest::newRow("invoice number that is none") << u"ProgFatt"_s << u"abc"_s << 13;
    QTest::newRow("invoice number beyond 16 bits") << u"ProgFatt"_s << u"32768"_s << 6;
    QTest::newRow("colour that is none") << u"ColoreSfondoDesktop"_s << u"rosso"_s << 13;
    QTest::newRow("colour beyond 32 bits") << u"ColoreEtichettaSel"_s << u"2147483648"_s << 6;
}

void TestSessione::numeroMalformatoNonFermaLaLettura()
{
    QFETCH(QString, Chiave);
    QFETCH(QString, Valore);
    QFETCH(int, Numero);
    Registratore Box;
    Salva(Chiave, Valore);
    Salva(u"StudioNome"_s, u"Studio"_s);
    Salva(u"ColoreEtichette"_s, u"255"_s);
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(Numero) + u" ("_s + QString::number(Numero) + u')', vbOK,
                u"Errore:"_s);
    ImpostaVariabili();
    QCOMPARE(sessione::StudioNome, u"Studio"_s);
    QCOMPARE(sessione::ProgFatt, 0);
    // Each key by itself: what stands behind the bad one is read, the names come last.
    QVERIFY(!sessione::UserFolder.isEmpty());
    QCOMPARE(sessione::ColoreEtichette, 255);
    QCOMPARE(sessione::GiorniSett[1], u"Lunedì"_s);
}

void TestSessione::bordoDelleEtichetteConDueGrafie()
{
    const Registratore Box;
    Salva(u"ColoreEtichettebordo"_s, u"1"_s);
    Salva(u"ColoreEtichetteBordo"_s, u"2"_s);
    ImpostaVariabili();
    QCOMPARE(sessione::ColoreEtichetteBordo, 2);
}

void TestSessione::cartellaUtentePerSistema()
{
    sessione::PercorsoProg = Barra(u"/opt/kr5"_s);
    const QString Documenti = CartellaSpeciale(5) + u"KR5"_s + QDir::separator();
    QCOMPARE(CartellaUtente({.Windows = true, .Maggiore = 6}), Documenti);
    QCOMPARE(CartellaUtente({.Windows = true, .Maggiore = 10}), Documenti);
    QCOMPARE(CartellaUtente({.Windows = true, .Maggiore = 5, .Minore = 1}), sessione::PercorsoProg);
    QCOMPARE(CartellaUtente({.Windows = true, .Maggiore = 4, .Nt = false}), sessione::PercorsoProg);
    QCOMPARE(CartellaUtente(LeggiVersioneSistema()), Documenti);
}

void TestSessione::cartellaUtenteConservata()
{
    const Registratore Box;
    const QString Cartella = NuovaCartella().chopped(1);
    Salva(u"UserFolder"_s, Cartella);
    ImpostaVariabili();
    QCOMPARE(sessione::UserFolder, Cartella);
}

void TestSessione::cartellaUtenteMancante()
{
    Registratore Box;
    const QString Cartella = NuovaCartella() + u"nessuna"_s;
    Salva(u"UserFolder"_s, Cartella);
    Box.Attendi(u"Attenzione la cartella "_s + Cartella +
                    u" non è stata trovata!\nVerificare la corretta impostazione nel menu "
                    u"Personalizzazioni->Setup quindi creare la cartella se necessario."_s,
                vbOK, u"Errore:"_s);
    ImpostaVariabili();
    QCOMPARE(Box.Mostrato(0).Bandiere, vbCritical);
    QCOMPARE(sessione::UserFolder, Cartella);
    QCOMPARE(sessione::Mesi[12], u"Dicembre"_s);
    QVERIFY(!EsisteCartella(Cartella));
}

void TestSessione::tracciaSoloInDebug()
{
    const Registratore Box;
    ImpostaVariabili();
    QCOMPARE(sessione::TestoDebug, QString());
    sessione::ModoDebug = true;
    ImpostaVariabili();
    QCOMPARE(
        sessione::TestoDebug,
        u"- avvio impostazione variabili- avvio impostazione variabili1\n- avvio impostazione variabili2\n"
        u"- avvio impostazione variabili3\n- avvio impostazione variabili4\n- fine impostazione variabili\n"_s);
}

void TestSessione::rileggeQuelCheCambia()
{
    const Registratore Box;
    Salva(u"StudioNome"_s, u"Prima"_s);
    ImpostaVariabili();
    sessione::RichiestaPV2.ID = u"P1"_s;
    Salva(u"StudioNome"_s, u"Dopo"_s);
    ImpostaVariabili();
    QCOMPARE(sessione::StudioNome, u"Dopo"_s);
    QCOMPARE(sessione::RichiestaPV2.ID, u"P1"_s);
}

void TestSessione::tabella()
{
    QStringList Viste;
    for (const VoceImpostazione& Voce : VociImpostazioni()) {
        const QString Chiave = Voce.Chiave.toString();
        QVERIFY2(!Viste.contains(Chiave, Qt::CaseInsensitive), qPrintable(Chiave));
        Viste << Chiave;
        QCOMPARE(VoceDi(Chiave.toUpper()).Chiave, Voce.Chiave);
        // A default converts to what its row is.
        LeggiInSessione(Voce);
        Salva(Chiave, u"7"_s);
        QCOMPARE(ValoreConservato(Chiave), u"7"_s);
    }
    QVERIFY(NumeroErrore([&] { (void)VoceDi(u"Nessuna"); }) != 0);
}

void TestSessione::azzeraDaiPredefiniti()
{
    using namespace sessione;
    IVA = 1;
    ProgFatt = 9;
    CercaAgg = false;
    WP = u"x"_s;
    SfondoDesktop = u"x"_s;
    ColoreEtichettaSel = 1;
    ModelliPath = u"x"_s;
    AzzeraSessione();
    QCOMPARE(IVA, 21.0F);
    QCOMPARE(SpeseGen, 12.5F);
    QCOMPARE(ProgFatt, 0);
    QVERIFY(CercaAgg);
    QCOMPARE(WP, u"-1"_s);
    QCOMPARE(SfondoDesktop, u"lex.jpg"_s);
    QCOMPARE(ColoreEtichettaSel, 255);
    QCOMPARE(ModelliPath, QString());
    QCOMPARE(PercorsoProg, QString());
}

void TestSessione::molteInsieme()
{
    SalvaImpostazioni({{u"StudioNome"_s, u"A"_s}, {u"coloreetichettebordo"_s, u"3"_s}, {u"IVA"_s, {}}});
    QCOMPARE(ValoreConservato(u"StudioNome"), u"A"_s);
    QCOMPARE(ValoreConservato(u"ColoreEtichetteBordo"), u"3"_s);
    QCOMPARE(ValoreConservato(u"IVA"), QString());
}

#include "TestSessione.moc"
