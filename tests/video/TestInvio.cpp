// Enter, as the display server sends it, does what the lit button says: in every window that has one, from
// the field where the window comes up and from those that make something of their own of Enter.
#include "moduli.h"
#include "passi.h"

using namespace Qt::StringLiterals;

class TestInvio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void faQuelCheDiceIlBottone_data();
    void faQuelCheDiceIlBottone();

private:
    std::unique_ptr<Programma> P;
};
PROVA(TestInvio);

void TestInvio::cleanup()
{
    if (QTest::currentTestFailed() && P)
        P->Fotografa(u"fallita_invio_"_s +
                     QString::fromUtf8(QTest::currentDataTag()).replace(u' ', u'_').remove(u','));
    P.reset();
}

void TestInvio::faQuelCheDiceIlBottone_data()
{
    QTest::addColumn<QString>("Passi");
    QTest::addColumn<QString>("Acceso");  // empty: none is lit
    QTest::addColumn<QString>("Dopo");    // what Enter has done, as a step
    const auto Riga = [](const char* Nome, const QString& Passi, const QString& Acceso, const QString& Dopo) {
        QTest::newRow(Nome) << Passi << Acceso << Dopo;
    };

    const QString SenzaMail = u"dice Non è stata specificata la mail!"_s;
    // ---- boxes
    Riga("domanda di salvare", u"nota;digita Rossi;premi ctrl+w;davanti 1"_s, u"Sì"_s, u"aperta Salva"_s);
    Riga("messaggio", u"nota;impostazioni Dati studio;premi Return;davanti 1"_s, u"OK"_s,
         u"messaggio ;finestra frmSetup;fuoco txtEMail"_s);
    Riga("domanda con un testo", u"nota;clic barParcelle_lock;aperta Proteggi"_s, u"OK"_s,
         u"finestra frmMain"_s);
    Riga("salva con nome", u"nota;digita Rossi;premi ctrl+s;aperta Salva"_s, u"Salva"_s,
         u"dice Rossi.mdb è stata salvata"_s);
    // ---- settings
    const QString AlleSue = u"nota;impostazioni "_s;
    Riga("impostazioni", AlleSue + u"Dati studio"_s, u"cmdSaveImpost"_s, SenzaMail);
    Riga("impostazioni, percentuale", AlleSue + u"Dati contabili;vai txtIVA"_s, {}, u"fuoco txtRA"_s);
    Riga("impostazioni, numero", AlleSue + u"Dati contabili;vai txtNumFatt"_s, {}, u"fuoco tabSetup"_s);
    Riga("impostazioni, cartella", AlleSue + u"Setup;vai txtParcellePath"_s, u"cmdSaveImpost"_s, SenzaMail);
    Riga("impostazioni, icone", AlleSue + u"Personalizza desktop;vai tdbIcone"_s, {}, u"fuoco tdbIcone"_s);
    Riga("impostazioni, colore", AlleSue + u"Personalizza desktop;vai cmdColor_0"_s, {},
         u"aperta Seleziona colore"_s);
    Riga("impostazioni, elenco", AlleSue + u"Personalizza desktop;vai cmbSfondi"_s, u"cmdSaveImpost"_s,
         SenzaMail);
    Riga("impostazioni, testo", AlleSue + u"Documenti;vai txtPostaTesto"_s, {}, u"fuoco txtPostaTesto"_s);
    Riga("impostazioni, misura", AlleSue + u"Documenti;vai txtLogoAltezza"_s, u"cmdSaveImpost"_s, SenzaMail);
    Riga("impostazioni, aiuto", AlleSue + u"Dati studio;vai cmdHelp"_s, {}, u"vede pctHelp"_s);
    Riga("impostazioni, chiudi", AlleSue + u"Dati studio;vai cmdChiudi"_s, {},
         u"finestra frmMain;messaggio "_s);
    Riga("icona personale", AlleSue + u"Personalizza desktop;clic cmdAddIco;finestra frmIcons"_s,
         u"cmdSalvaIco"_s, u"dice Immettere i valori necessari!"_s);
    const QString Cartella = AlleSue + u"Setup;clic cmdSelDir_2;finestra frmSfoglia;"_s;
    Riga("cartella, elenco", Cartella, {}, u"finestra frmSfoglia;fuoco dirDir"_s);
    Riga("cartella, scritta", Cartella + u"vai txtCartella"_s, {}, u"finestra frmSfoglia;fuoco dirDir"_s);
    // ---- calculators
    const QString Termini = u"nota;premi ctrl+shift+t;finestra frmTermini;"_s;
    const QString Calcolato =
        Termini +
        u"digita 01072026;premi Return;digita 60;premi Return Return Return Return Return Return;vede cmdStrada;"_s;
    const QString SenzaData = u"dice Non è stata specificata la Data"_s;
    Riga("termini", Termini + u"digita 01072026"_s, {}, u"fuoco txtIncrNum"_s);
    Riga("termini, ultimo campo", Termini + u"vai optTipoScad_0"_s, u"cmdEsegui"_s, SenzaData);
    Riga("termini, il bottone", Termini + u"vai cmdEsegui"_s, u"cmdEsegui"_s, SenzaData);
    Riga("termini, un altro bottone", Termini + u"vai cmdRicorrenti"_s, {}, u"finestra frmRicorrenti"_s);
    const QString Sequenziali = u"nota;premi ctrl+shift+s;finestra frmTerminiSeq;"_s;
    Riga("sequenziali", Sequenziali + u"vai mskDecorr"_s, {}, u"fuoco chkSosp"_s);
    Riga("sequenziali, il bottone", Sequenziali + u"vai cmdEsegui"_s, u"cmdEsegui"_s, SenzaData);
    const QString Ricorrenti = Termini + u"premi ctrl+t;finestra frmRicorrenti;"_s;
    Riga("ricorrenti", Ricorrenti, u"cmdScegli"_s, u"finestra frmTermini"_s);
    Riga("ricorrenti, elenco", Ricorrenti + u"vai tdbRicorrenti"_s, u"cmdScegli"_s, u"finestra frmTermini"_s);
    const QString Agenda = Calcolato + u"premi ctrl+g;finestra frmAgenda;"_s;
    Riga("calendario dello studio", Agenda, u"cmdApri"_s, u"dice apre i calendari"_s);
    Riga("calendario dello studio, elenco", Agenda + u"vai lstScadenze"_s, u"cmdApri"_s,
         u"dice apre i calendari"_s);
    Riga("ultimi calcoli", Calcolato + u"premi ctrl+l;finestra frmUltimiCalcoli"_s, u"cmdRiprendi"_s,
         u"finestra frmTermini"_s);
    const QString Interessi = u"nota;premi ctrl+shift+i;finestra frmInteressi;"_s;
    Riga("interessi", Interessi + u"vai txtCapitale"_s, {}, u"fuoco cmbValuta"_s);
    Riga("interessi, il bottone", Interessi + u"vai cmdCalcola"_s, u"cmdCalcola"_s,
         u"dice La data iniziale non è valida"_s);
    const QString Istat = u"nota;premi ctrl+shift+v;finestra frmIstat;"_s;
    Riga("istat", Istat + u"vai mskDataIni"_s, {}, u"fuoco mskDataFin"_s);
    Riga("istat, il bottone", Istat + u"vai cmdCalcola"_s, u"cmdCalcola"_s,
         u"dice E' stata inserita una data iniziale"_s);
    Riga("codice fiscale", u"nota;premi ctrl+shift+f;finestra frmCodFis"_s, {}, u"fuoco txtNome"_s);
    Riga("contributo", u"nota;premi ctrl+shift+c;finestra frmContrib"_s, {}, u"fuoco txtValore_1"_s);
    // ---- address book
    const QString Rubrica = u"nota;premi ctrl+shift+r;finestra frmRubrica;"_s;
    Riga("rubrica", Rubrica, {}, u"finestra frmScheda"_s);
    Riga("scheda", Rubrica + u"premi Insert;finestra frmScheda"_s, {}, u"fuoco txtFieldData_2"_s);
    Riga("scheda, annulla", Rubrica + u"premi Insert;finestra frmScheda;vai barScheda_undo"_s, {},
         u"finestra frmRubrica"_s);
    const QString Ricerca = Rubrica + u"premi ctrl+f;finestra frmRicerche;"_s;
    Riga("ricerca per campo", Ricerca, {}, u"fuoco txtValore"_s);
    Riga("ricerca per campo, testo", Ricerca + u"digita zzz"_s, u"cmdFind_0"_s, u"dice Non ho trovato"_s);
    Riga("ricerca per campo, chiudi", Ricerca + u"vai cmdExit"_s, u"cmdExit"_s, u"finestra frmRubrica"_s);
    const QString Importa = Rubrica + u"premi ctrl+i;finestra frmImporta;"_s;
    const QString Colonne = Importa + u"digita $CASA/nomi.csv;premi Return;fuoco tdbColonne;"_s;
    Riga("importa", Importa, u"cmdAvanti"_s, u"dice Scegliere il file da importare."_s);
    Riga("importa, scelta", Importa + u"vai optTabella_0"_s, u"cmdAvanti"_s,
         u"dice Scegliere il file da importare."_s);
    Riga("importa, sfoglia", Importa + u"vai cmdSfoglia_0"_s, {}, u"aperta Scegli il file"_s);
    Riga("importa, chiudi", Importa + u"vai cmdChiudi"_s, {}, u"finestra frmRubrica"_s);
    Riga("importa, colonne", Colonne, {}, u"fuoco cmbMeta"_s);
    Riga("importa, anteprima", Colonne + u"vai tdbAnteprima"_s, {}, u"fuoco tdbAnteprima"_s);
    // ---- the note
    const QString Conti = u"nota;compila;premi ctrl+t;finestra frmCatena;"_s;
    Riga("conti del documento", Conti, u"cmdChiudiCatena"_s, u"finestra frmMain"_s);
    Riga("conti del documento, copia", Conti + u"vai cmdCopiaCatena"_s, u"cmdCopiaCatena"_s,
         u"finestra frmCatena;fuoco cmdCopiaCatena"_s);
    Riga(
        "controllo di una fattura",
        u"fattura;clic cmdControllaXml;aperta Controlla;digita $CASA/guasta.xml;premi Return;finestra frmControlloFattura"_s,
        u"cmdChiudi"_s, u"finestra frmMain"_s);
    Riga("lo stato", u"nota;vai cmdStato"_s, {}, u"tendina"_s);
    Riga("una freccia delle schede", u"nota;compila;vai imgNext"_s, {}, u"scheda Onorari"_s);
    Riga("trova", u"nota;premi ctrl+o;finestra frmTrovaParcella"_s, {},
         u"dice Inserire il testo da cercare!"_s);
    Riga("documenti", u"nota;premi ctrl+shift+d;finestra frmDocumenti"_s, {},
         u"dice Nessun programma di questo computer apre"_s);
    Riga("aggiornamento", u"scrivania;clic %1;finestra frmUpgrade"_s.arg(IconaAggiornamento()), u"cmdFile"_s,
         u"aperta Scegli l'elenco delle versioni"_s);
    Riga("vecchie tariffe", u"scrivania;clic imgMenu_1;davanti 1"_s, u"OK"_s, u"finestra frmStudio"_s);
}

void TestInvio::faQuelCheDiceIlBottone()
{
    QFETCH(QString, Passi);
    QFETCH(QString, Acceso);
    QFETCH(QString, Dopo);
    const StudioCompleto Studio;
    P = std::make_unique<Programma>(QStringList{}, Studio.Impostazioni());
    for (const auto& [Nome, Testo] :
         {std::pair(u"/guasta.xml"_s, "<a/>"), std::pair(u"/nomi.csv"_s, "Nome;Fax\nNeri Ugo;1\n")}) {
        QFile Uno(P->Casa() + Nome);
        QVERIFY(Uno.open(QIODevice::WriteOnly) && Uno.write(Testo) > 0);
    }
    for (const QString& Uno : Passi.split(u';', Qt::SkipEmptyParts))
        QVERIFY2(Passo(*P, Uno), qPrintable(Uno + u": "_s + P->Stato()));
    QCOMPARE(P->Chiedi(u"acceso"_s), Acceso);
    const QString Fuoco = P->Fuoco();
    P->Premi(u"Return"_s);
    for (const QString& Uno : Dopo.split(u';', Qt::SkipEmptyParts))
        QVERIFY2(Passo(*P, Uno), qPrintable(u"da %1, %2: %3"_s.arg(Fuoco, Uno, P->Stato())));
}

#include "TestInvio.moc"
