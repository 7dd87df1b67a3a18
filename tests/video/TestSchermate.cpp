// A picture of every window and tab, left for whoever looks; what is asked here is that each opens within the
// screen, with room for its words.
#include "moduli.h"
#include "schermate.h"
#include "studiocompleto.h"
#include "vecchistudi.h"

using namespace Qt::StringLiterals;

class TestSchermate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void modulo_data() { RigheModuli(); }
    void modulo();
    void impostazioni_data() { RigheImpostazioni(); }
    void impostazioni();
    void moduloPieno_data();
    void moduloPieno();
    void scrivania();
    void parcellaNuova_data() { RigheSchede(); }
    void parcellaNuova();
    void parcellaPiena_data();
    void parcellaPiena();
    void parcella55_data() { RigheSchede(); }
    void parcella55();
    void opzioniPiuNumerose();
    void pannelloDegliImporti();
    void documenti_data();
    void documenti();
    void schedaInformativa();
    void stampaDiUnCalcolo();
    void rubrica();
    void aggiornamento();
    void importa_data();
    void importa();
    void importaUnArchivio();
    void importaLeParcelle();
    void importaSiFerma();
    void siOffreDiConvertire();
    void esporta();
    void normeVigenti_data();
    void normeVigenti();
    void termineESuaStrada();
    void catenaDegliImporti();
    void fatturaElettronica();
    void ultimeParcelle();
    void menuDiSalva();

private:
    void Guarda(const QString& Nome) { GuardaSchermata(*P, Nome); }
    void ApriEsempio(const QString& Quale) { ::ApriEsempio(P, Esempi.path(), Quale); }

    const QTemporaryDir Esempi;
    std::unique_ptr<Programma> P;
};
PROVA(TestSchermate);

void TestSchermate::init()
{
    P.reset();
}

void TestSchermate::cleanup()
{
    if (QTest::currentTestFailed() && P)
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

void TestSchermate::modulo()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Tasti);
    QFETCH(QString, Titolo);
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(Tasti);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    Guarda(Nome);
}

void TestSchermate::impostazioni()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Titolo);
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    QVERIFY2(P->AlleImpostazioni(Titolo), qPrintable(P->Stato()));
    Guarda(u"impostazioni_"_s + Nome);
}

void TestSchermate::moduloPieno_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<QStringList>("Scritti");
    QTest::newRow("termini") << 0 << QStringList{u"01072026"_s, u"60"_s, {}, {}, {}, {}, {}};
    QTest::newRow("sequenziali") << 1 << QStringList{{}, u"01072026"_s, u" "_s, {}, {}};
    QTest::newRow("interessi") << 2 << QStringList{{}, u"1000000"_s, {}, {}, u"010190"_s, u"31122012"_s};
    QTest::newRow("istat") << 3 << QStringList{u"010190"_s, u"01012013"_s, u"1000000"_s, {}};
    QTest::newRow("codfis") << 4 << QStringList{u"Rossi"_s, u"Mario"_s, u"01011980"_s, {}, u"roma"_s};
    QTest::newRow("contributo") << 5 << QStringList{u"1100"_s, u"520000"_s, u"30000"_s, u"1"_s, u"5"_s};
}

/// Enter behind each value, the last one calculates.
void TestSchermate::moduloPieno()
{
    QFETCH(int, Quale);
    QFETCH(QStringList, Scritti);
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(QString::fromUtf8(Calcolatrici()[Quale].Tasti));
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[Quale].Titolo)), qPrintable(P->Stato()));
    for (const QString& Scritto : Scritti) {
        if (!Scritto.isEmpty())
            P->Digita(Scritto);
        P->Premi(u"Return"_s);
    }
    QCOMPARE(P->Messaggio(), QString());
    Guarda(QString::fromUtf8(Calcolatrici()[Quale].Nome) + u"_calcolato"_s);
}

void TestSchermate::scrivania()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->AllaScrivania(), qPrintable(P->Stato()));
    Guarda(u"scrivania"_s);
}

void TestSchermate::parcellaNuova()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Titolo);
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    if (Titolo != u"Dati base") {
        QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
        QVERIFY2(P->AllaScheda(Titolo), qPrintable(P->Stato()));
    }
    Guarda(u"parcella_"_s + Nome);
}

void TestSchermate::parcellaPiena_data()
{
    RigheSchede();
}

void TestSchermate::parcellaPiena()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Titolo);
    ApriEsempio(u"civile"_s);
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(P->AllaScheda(Titolo), qPrintable(P->Stato()));
    Guarda(u"parcella_"_s + Nome + u"_piena"_s);
}

/// A note under the tariff in force.
void TestSchermate::parcella55()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Titolo);
    ApriEsempio(u"tribunale55"_s);
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(P->AllaScheda(Titolo), qPrintable(P->Stato()));
    Guarda(u"parcella55_"_s + Nome);
}

/// The court with the most options.
void TestSchermate::opzioniPiuNumerose()
{
    P = std::make_unique<Programma>(QStringList{}, u"Tariffa=55"_s);
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    constexpr int PostoDelTar = 20;
    for (const auto& [Lista, Passi] : {std::pair{u"cmbCateg"_s, 0}, std::pair{u"cmbAutor"_s, PostoDelTar}}) {
        QVERIFY2(P->VaiA(Lista), qPrintable(P->Stato()));
        P->Premi(u"alt+Down"_s);
        ATTENDI_CHE(!P->Chiedi(u"popup"_s).isEmpty());
        P->Premi(QStringList{u"Home"_s} + QStringList(Passi, u"Down"_s) + QStringList{u"Return"_s});
        ATTENDI_CHE(P->Chiedi(u"popup"_s).isEmpty());
    }
    ATTENDI(u"testo cmbAutor"_s, "Tribunale amministrativo regionale");
    Guarda(u"parcella55_opzioni"_s);
}

void TestSchermate::pannelloDegliImporti()
{
    ApriEsempio(u"civile"_s);
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    P->Clic(u"barListaOnoDir_variaz"_s);
    ATTENDI(u"fuoco"_s, "sldGraduaOno");
    Guarda(u"parcella_pannello"_s);
}

void TestSchermate::documenti_data()
{
    QTest::addColumn<int>("Documento");
    for (int i = 0; i < 8; ++i)
        QTest::newRow(qPrintable(QString::number(i))) << i;
}

void TestSchermate::documenti()
{
    QFETCH(int, Documento);
    ApriEsempio(u"civile"_s);
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(P->AllaScheda(u"Stampa"_s), qPrintable(P->Stato()));
    QVERIFY2(P->VaiA(u"cmbTipoStampa"_s), qPrintable(P->Stato()));
    P->Premi(u"Home"_s);
    P->Premi(QStringList(Documento, u"Down"_s));
    QCOMPARE(P->Messaggio(), QString());
    Guarda(u"parcella_documento_%1"_s.arg(Documento));
}

void TestSchermate::schedaInformativa()
{
    ApriEsempio(u"civile"_s);
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    P->Clic(P->Cella(u"tdbListaOno"_s, 0, 1));
    P->Clic(u"barListaOnoDir_info"_s);
    QVERIFY2(P->Aperta(u"KR5 - Scheda informativa"_s), qPrintable(P->Stato()));
    Guarda(u"scheda_informativa"_s);
}

void TestSchermate::stampaDiUnCalcolo()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(QString::fromUtf8(Calcolatrici()[0].Tasti));
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[0].Titolo)), qPrintable(P->Stato()));
    P->Digita(u"01072026"_s);
    P->Premi(u"Return"_s);
    P->Digita(u"60"_s);
    P->Premi(QStringList(6, u"Return"_s));
    P->Premi(u"ctrl+p"_s);
    QVERIFY2(P->Aperta(u"Stampa documento"_s), qPrintable(P->Stato()));
    Guarda(u"stampa_documento"_s);
}

/// By the keyboard alone: an empty archive, a card, its row, the filter, the search by field.
void TestSchermate::rubrica()
{
    const QString Titolo = u"Archivio: clienti"_s;
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(u"ctrl+shift+r"_s);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    Guarda(u"rubrica_vuota"_s);
    P->Premi(u"Insert"_s);
    QVERIFY2(P->Aperta(u"Inserimento dati"_s), qPrintable(P->Stato()));
    P->Digita(u"Rossi Mario"_s);
    Guarda(u"scheda"_s);
    P->Premi(u"F10"_s);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    ATTENDI(u"testo datNom"_s, "1 nominativo");
    Guarda(u"rubrica"_s);
    P->Digita(u"bianchi"_s);
    ATTENDI(u"testo datNom"_s, "0 di 1");
    Guarda(u"rubrica_filtrata"_s);
    P->Premi(u"Escape"_s);
    P->Premi(u"ctrl+f"_s);
    QVERIFY2(P->Aperta(u"Ricerca"_s), qPrintable(P->Stato()));
    Guarda(u"ricerca"_s);
}

void TestSchermate::aggiornamento()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->AllaScrivania(), qPrintable(P->Stato()));
    P->Clic(IconaAggiornamento());
    QVERIFY2(P->Aperta(QString::fromUtf8(Aggiornamento.Titolo)), qPrintable(P->Stato()));
    Guarda(QString::fromUtf8(Aggiornamento.Nome));
}

// ---- old archives come in -----------------------------------------------------------------------

void TestSchermate::importa_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::newRow("csv") << u"csv"_s;
    QTest::newRow("vcard") << u"vcard"_s;
    QTest::newRow("access") << u"access"_s;
}

/// Names of a file into the archive: each step.
void TestSchermate::importa()
{
    QFETCH(QString, Nome);
    const VecchioStudio Vecchio;
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    QVERIFY2(ApriImporta(*P), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "txtFile");
    P->Digita(Nome == u"csv" ? Vecchio.Csv() : Nome == u"vcard" ? Vecchio.Vcard() : Vecchio.Access());
    Guarda(u"importa_"_s + Nome);
    P->Premi(u"Return"_s);
    ATTENDI(u"fuoco"_s, "tdbColonne");
    Guarda(u"importa_%1_colonne"_s.arg(Nome));
    P->Clic(u"cmdAvanti"_s);
    ATTENDI_CHE(P->Testo(u"lblProva"_s).contains(u"aggiungere"_s));
    Guarda(u"importa_%1_doppioni"_s.arg(Nome));
    P->Clic(u"cmdAvanti"_s);
    ATTENDI_CHE(P->Testo(u"lblEsito"_s).contains(u"aggiunt"_s));
    Guarda(u"importa_%1_resoconto"_s.arg(Nome));
    // The next time the import is offered to be undone.
    P->Premi(u"Escape"_s);
    P->Premi(u"ctrl+i"_s);
    QVERIFY2(P->Aperta(u"Importa archivio"_s), qPrintable(P->Stato()));
    ATTENDI(u"visto cmdAnnullaUltima"_s, "1");
    Guarda(u"importa_%1_dopo"_s.arg(Nome));
}

void TestSchermate::importaUnArchivio()
{
    const VecchioStudio Vecchio;
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    QVERIFY2(ApriImporta(*P), qPrintable(P->Stato()));
    P->Digita(Vecchio.Access());
    ScegliModo(*P, u"optModo_0"_s);
    Guarda(u"importa_intero"_s);
    P->Clic(u"cmdAvanti"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"diventa l'archivio clienti e controparti"_s));
    P->Fotografa(u"importa_intero_domanda"_s);
    P->Rispondi(u"alt+s"_s);
    ATTENDI(u"testo lblEsito"_s, "L'archivio è pronto: 3 clienti e 0 controparti.");
    Guarda(u"importa_intero_resoconto"_s);
}

void TestSchermate::importaLeParcelle()
{
    const VecchioStudio Vecchio;
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    QVERIFY2(ApriImporta(*P), qPrintable(P->Stato()));
    ScegliModo(*P, u"optModo_2"_s);
    P->Clic(u"txtFile"_s);
    P->Digita(Vecchio.Parcelle());
    P->Clic(u"txtArrivo"_s, 3);
    P->Digita(Vecchio.Copie());
    Guarda(u"importa_parcelle"_s);
    P->Clic(u"cmdAvanti"_s);
    ATTENDI(u"testo lblEsito"_s, "Parcelle copiate: 1 su 2.");
    Guarda(u"importa_parcelle_resoconto"_s);
}

/// The bar while a large file comes in, and Esc.
void TestSchermate::importaSiFerma()
{
    const VecchioStudio Vecchio;
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    QVERIFY2(ApriImporta(*P), qPrintable(P->Stato()));
    P->Digita(Vecchio.Grande(150'000));
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->Fuoco() == u"cmdInterrompi" || P->Fuoco() == u"tdbColonne");
    ATTENDI(u"fuoco"_s, "tdbColonne");
    P->Clic(u"cmdAvanti"_s);
    ATTENDI_CHE(P->Testo(u"lblProva"_s).contains(u"aggiungere"_s));
    P->Clic(u"cmdAvanti"_s);
    ATTENDI(u"fuoco"_s, "cmdInterrompi");
    P->Fotografa(NomeSchermata(u"importa_avanza"_s));
    P->Premi(u"Escape"_s);
    ATTENDI(u"testo lblProva"_s, "L'importazione è stata interrotta: l'archivio è com'era.");
    Guarda(u"importa_fermata"_s);
}

/// The archive of the settings is one of Access: it is shown, and the conversion offered.
void TestSchermate::siOffreDiConvertire()
{
    const VecchioStudio Vecchio;
    P = std::make_unique<Programma>(QStringList{}, u"archivioclicon="_s + Vecchio.Access() + u'\n');
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(u"ctrl+shift+r"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"Convertirlo in un archivio del programma?"_s));
    Guarda(u"importa_offerta"_s);
    P->Rispondi(u"alt+s"_s);
    QVERIFY2(P->Aperta(u"Importa archivio"_s), qPrintable(P->Stato()));
    ATTENDI_CHE(P->Testo(u"txtFile"_s) == Vecchio.Access());
    Guarda(u"importa_offerta_modulo"_s);
}

void TestSchermate::esporta()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(u"ctrl+shift+r"_s);
    QVERIFY2(P->Aperta(u"Archivio: clienti"_s), qPrintable(P->Stato()));
    P->Premi(u"Insert"_s);
    QVERIFY2(P->Aperta(u"Inserimento dati"_s), qPrintable(P->Stato()));
    P->Digita(u"Rossi Mario"_s);
    P->Premi(u"F10"_s);
    ATTENDI(u"testo datNom"_s, "1 nominativo");
    P->Premi(u"ctrl+e"_s);
    ATTENDI_CHE(!P->Fuoco().isEmpty() && P->Chiedi(u"finestra"_s) != u"frmRubrica");
    P->Fotografa(u"esporta_scelta"_s);
    const QString File = P->Casa() + u"/nomi.csv"_s;
    P->Premi(u"ctrl+a"_s);
    P->Digita(File);
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"1 nominativo esportato"_s));
    Guarda(u"esporta_fatto"_s);
    QFile Scritto(File);
    QVERIFY(Scritto.open(QIODevice::ReadOnly));
    QVERIFY(Scritto.readAll().contains("Rossi Mario"));
}

void TestSchermate::normeVigenti_data()
{
    QTest::addColumn<int>("Quale");
    for (const int Quale : {0, 1, 2, 5})
        QTest::newRow(Calcolatrici()[Quale].Nome) << Quale;
}

/// The calculators that have a choice, with the norms in force.
void TestSchermate::normeVigenti()
{
    QFETCH(int, Quale);
    P = std::make_unique<Programma>(QStringList{}, u"norme=vigenti\n"_s);
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(QString::fromUtf8(Calcolatrici()[Quale].Tasti));
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[Quale].Titolo)), qPrintable(P->Stato()));
    Guarda(QString::fromUtf8(Calcolatrici()[Quale].Nome) + u"_vigenti"_s);
}

/// The catalogue, a term of it and a chain, the road, the entry for a calendar.
void TestSchermate::termineESuaStrada()
{
    P = std::make_unique<Programma>(QStringList{}, u"norme=vigenti\n"_s);
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(QString::fromUtf8(Calcolatrici()[0].Tasti));
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[0].Titolo)), qPrintable(P->Stato()));
    P->Digita(u"20072026"_s);
    const std::pair<QString, QString> Scelti[] = {{u"termine"_s, u"325 appello"_s}, {u"catena"_s, {}}};
    for (const auto& [Nome, Cercato] : Scelti) {
        P->Premi(u"ctrl+t"_s);
        ATTENDI(u"finestra"_s, "frmRicorrenti");
        if (!Cercato.isEmpty())
            P->Digita(Cercato);
        Guarda(u"ricorrenti_"_s + Nome);
        P->Premi(u"Return"_s);
        QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[0].Titolo)), qPrintable(P->Stato()));
        ATTENDI_CHE(!P->Testo(u"lblRisult"_s).isEmpty());
        Guarda(u"termini_"_s + Nome);
        P->Premi(u"ctrl+d"_s);
        ATTENDI(u"finestra"_s, "frmStrada");
        ATTENDI(u"fuoco"_s, "tdbStrada");
        Guarda(u"strada_"_s + Nome);
        P->Premi(u"Escape"_s);
        QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[0].Titolo)), qPrintable(P->Stato()));
        P->Premi(u"ctrl+g"_s);
        ATTENDI(u"finestra"_s, "frmAgenda");
        Guarda(u"agenda_"_s + Nome);
        P->Premi(u"Escape"_s);
        QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[0].Titolo)), qPrintable(P->Stato()));
    }
}

/// The whole chain over the note, by its key.
void TestSchermate::catenaDegliImporti()
{
    ApriEsempio(u"civile"_s);
    if (QTest::currentTestFailed())
        return;
    P->Premi(u"ctrl+t"_s);
    ATTENDI(u"visto frmCatena"_s, "1");
    Guarda(u"parcella_catena"_s);
}

/// The panel where all is missing and where nothing is, and what the recipient will read.
void TestSchermate::fatturaElettronica()
{
    const StudioCompleto Studio;
    const QString SoloArchivio = u"archivioclicon="_s + Studio.Archivio() + u'\n';
    for (const bool Completa : {false, true}) {
        P = std::make_unique<Programma>(QStringList{}, Completa ? Studio.Impostazioni() : SoloArchivio);
        QVERIFY2(FinoAllaFattura(*P), qPrintable(P->Stato()));
        Guarda(Completa ? u"fattura_completa"_s : u"fattura_mancante"_s);
        if (QTest::currentTestFailed())
            return;
    }
    P->Clic(u"cmdAnteprimaXml"_s);
    ATTENDI(u"visto txtAnteprimaXml"_s, "1");
    Guarda(u"fattura_anteprima"_s);
}

/// The desktop with a note of its own, the list in use.
void TestSchermate::ultimeParcelle()
{
    ApriEsempio(u"civile"_s);
    if (QTest::currentTestFailed())
        return;
    P->Premi(u"ctrl+w"_s);
    QVERIFY2(P->AllaScrivania(), qPrintable(P->Stato()));
    const bool ConStriscia = P->Chiedi(u"visto lstRecenti"_s) == u"1";
    P->Premi(u"ctrl+r"_s);
    if (ConStriscia)
        ATTENDI(u"fuoco"_s, "lstRecenti");
    else  // a screen without room for it has the list as a menu
        ATTENDI_CHE(!P->Chiedi(u"popup"_s).isEmpty());
    Guarda(u"scrivania_ultime"_s);
}

/// The ways of saving below the arrow of the button, and the question of the copy.
void TestSchermate::menuDiSalva()
{
    ApriEsempio(u"civile"_s);
    if (QTest::currentTestFailed())
        return;
    constexpr int Freccia = 8;
    QRect Posto = P->Posto(u"barParcelle_save"_s);
    Posto.setLeft(Posto.right() - Freccia);
    P->Clic(Posto);
    ATTENDI_CHE(!P->Chiedi(u"popup"_s).isEmpty());
    Guarda(u"menu_salva"_s);
    P->Premi(u"Escape"_s);
    ATTENDI(u"popup"_s, "");
    P->Premi(u"ctrl+d"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"Mantenere anche il cliente Rossi Maria?"));
    Guarda(u"duplica"_s);
    P->Rispondi(u"Return"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).endsWith(u"|Nuova parcella:2"));
    ATTENDI(u"testo txtCliente"_s, "Rossi Maria");
}

#include "TestSchermate.moc"
