// The table of commands: when each is enabled, what it opens.
#include "aperture_prova.h"

#include "platform/base/errore.h"

using namespace Qt::StringLiterals;

class TestComandi : public QObject, private BancoComandi
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void ordineDellaTabella();
    void senzaLavoroNonSiAbilita_data();
    void senzaLavoroNonSiAbilita();
    void laGuidaVuoleIlSuoDocumento();
    void pagineConServerOPagina_data();
    void pagineConServerOPagina();
    void server_data();
    void server();
    void laBarraELaScrivania();
    void apreUnaFinestra_data();
    void apreUnaFinestra();
    void senzaApritoreNonFaNulla();
    void parolaSconosciuta_data();
    void parolaSconosciuta();
    void nuovaConRiferimento();
    void guardie_data();
    void guardie();
    void proteggiSenzaNota_data();
    void proteggiSenzaNota();
    void spegniChiudeQuelleAperte();
    void spegniDaUnaPratica();
    void guastoRiferito();
    void postoNuovo();
    void postoLiberato();
    void postoDellaPrimaIntatta_data();
    void postoDellaPrimaIntatta();
    void parcellaAperta();
};
PROVA(TestComandi);

void TestComandi::ordineDellaTabella()
{
    const std::vector<QString> Attese{
        u"new"_s,     u"open"_s,      u"openpar"_s,  u"openmod"_s,   u"save"_s,    u"savepar"_s,
        u"savemod"_s, u"print"_s,     u"printopz"_s, u"printword"_s, u"kr2"_s,     u"clienti"_s,
        u"codfis"_s,  u"setup"_s,     u"recupera"_s, u"contrib"_s,   u"termini"_s, u"sequenz"_s,
        u"inter"_s,   u"istat"_s,     u"novita"_s,   u"help"_s,      u"off"_s,     u"lock"_s,
        u"upgrade"_s, u"docum"_s,     u"release"_s,  u"readme"_s,    u"guida"_s,   u"about"_s,
        u"link"_s,    u"assistenza"_s};
    std::vector<QString> Parole;
    for (const Comando& Riga : Comandi())
        Parole.push_back(Riga.Parola.toString());
    QCOMPARE(Parole, Attese);
}

void TestComandi::senzaLavoroNonSiAbilita_data()
{
    QTest::addColumn<QString>("Comando");
    QTest::addColumn<bool>("ConFinestra");
    QTest::addColumn<QString>("Motivo");

    const QString Finestra = u"non ancora disponibile in questa versione"_s;
    int Quante = 0;
    for (const Comando& Riga : Comandi()) {
        if (!ApreFinestra(Riga))
            continue;
        const QString Parola = Riga.Parola.toString();
        QTest::newRow(qPrintable(Parola + u", no window"_s)) << Parola << false << Finestra;
        QTest::newRow(qPrintable(Parola)) << Parola << true << QString();
        ++Quante;
    }
    QVERIFY(Quante > 5);
    for (const QString& Parola : {u"link"_s, u"assistenza"_s})
        QTest::newRow(qPrintable(Parola))
            << Parola << true << u"la pagina manca dalla cartella del programma"_s;
    for (const QString& Parola :
         {u"new"_s, u"kr2"_s, u"novita"_s, u"help"_s, u"off"_s, u"setup"_s, u"release"_s, u"boh"_s})
        QTest::newRow(qPrintable(Parola)) << Parola << false << QString();
}

void TestComandi::senzaLavoroNonSiAbilita()
{
    QFETCH(QString, Comando);
    QFETCH(bool, ConFinestra);
    if (!ConFinestra)
        Aperture = {};
    QTEST(Impedimento(Comando), "Motivo");
}

void TestComandi::laGuidaVuoleIlSuoDocumento()
{
    sessione::PercorsoProg = NuovaCartella();
    QCOMPARE(Impedimento(u"guida"), u"il documento manca dalla cartella del programma"_s);
    ScriviFile(sessione::PercorsoProg + u"guidagiuridica.PDF"_s, "%PDF-");
    QCOMPARE(Impedimento(u"guida"), QString());
}

void TestComandi::pagineConServerOPagina_data()
{
    QTest::addColumn<QString>("Comando");
    QTest::addColumn<QString>("Pagina");

    QTest::newRow("useful sites") << u"link"_s << u"LINK.htm"_s;
    QTest::newRow("assistance") << u"assistenza"_s << u"assistenza.HTM"_s;
}

void TestComandi::pagineConServerOPagina()
{
    QFETCH(QString, Comando);
    QFETCH(QString, Pagina);
    const QString Manca = u"la pagina manca dalla cartella del programma"_s;
    sessione::PercorsoProg = NuovaCartella();
    QCOMPARE(Impedimento(Comando), Manca);
    ImpostaServer(u"https://www.esempio.it"_s);
    QCOMPARE(Impedimento(Comando), QString());
    ImpostaServer({});
    QCOMPARE(Impedimento(Comando), Manca);
    ScriviFile(sessione::PercorsoProg + Pagina, "<p>pagina</p>");
    QCOMPARE(Impedimento(Comando), QString());
}

void TestComandi::server_data()
{
    QTest::addColumn<QString>("Impostato");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("none, as delivered") << QString() << QString();
    QTest::newRow("blanks are none") << u"   "_s << QString();
    QTest::newRow("as it stands") << u"https://www.esempio.it"_s << u"https://www.esempio.it"_s;
    QTest::newRow("slashes at its end")
        << u" https://www.esempio.it/kr// "_s << u"https://www.esempio.it/kr"_s;
    QTest::newRow("no scheme") << u"www.esempio.it"_s << u"https://www.esempio.it"_s;
    QTest::newRow("this machine") << u"http://127.0.0.1:8080"_s << u"http://127.0.0.1:8080"_s;
}

void TestComandi::server()
{
    QFETCH(QString, Impostato);
    QFETCH(QString, Atteso);
    ImpostaServer(Impostato);
    QCOMPARE(indirizzi::Server(), Atteso);
    QCOMPARE(indirizzi::Editore(), Atteso.isEmpty() ? QString() : Atteso + u"/vdm.asp#editore"_s);
    QCOMPARE(indirizzi::Sviluppatore(), Atteso.isEmpty() ? QString() : Atteso + u"/vdm.asp#sviluppo"_s);
}

/// Places, words and keys as the user knows them: every other test takes them from the table.
void TestComandi::laBarraELaScrivania()
{
    QStringList Pulsanti;
    for (const Comando* Riga : ComandiDellaBarra())
        Pulsanti << u"%1 %2: %3"_s.arg(Riga->Pulsante.Gruppo).arg(Riga->Parola, Riga->Pulsante.Suggerimento);
    QCOMPARE(Pulsanti.join(u'\n'), u"0 new: Nuova parcella\n"
                                   "0 open: Apri parcella\n"
                                   "0 save: Salva parcella\n"
                                   "0 lock: Proteggi parcella\n"
                                   "1 clienti: Rubrica clienti e controparti\n"
                                   "2 contrib: Calcolo contributo unificato\n"
                                   "2 inter: Calcolo interessi legali e comm.li\n"
                                   "2 istat: Rivalutazione istat\n"
                                   "2 termini: Calcolo dei termini\n"
                                   "2 sequenz: Calcolo dei termini sequenziali\n"
                                   "3 guida: Guida giuridica alle funzioni del quadro\n"
                                   "3 docum: Documentazione normativa\n"
                                   "4 setup: Impostazioni programma\n"
                                   "5 help: Guida in linea"_s);
    QStringList Icone;
    for (const Comando* Riga : ComandiDellaScrivania())
        Icone << u"%1: %2"_s.arg(Riga->Parola, Riga->Icona.Etichetta);
    QCOMPARE(Icone.join(u'\n'), u"new: Parcellazione nuove tariffe\n"
                                "kr2: Parcellazione vecchie tariffe\n"
                                "clienti: Rubrica clienti\n"
                                "termini: Computo termini\n"
                                "sequenz: Termini sequenziali\n"
                                "inter: Calcolo interessi\n"
                                "istat: Rivalutazione Istat\n"
                                "codfis: Codice fiscale\n"
                                "contrib: Contributo unificato\n"
                                "docum: Documentazione normativa\n"
                                "guida: Guida giuridica\n"
                                "link: Elenco siti web utili\n"
                                "novita: Novità\n"
                                "upgrade: Aggiorna programma\n"
                                "setup: Impostazioni"_s);
    QStringList Tasti;
    for (const Comando& Riga : Comandi())
        if (!Riga.Tasti.isEmpty())
            Tasti << u"%1 %2"_s.arg(Riga.Tasti, Riga.Parola);
    Tasti.sort();
    QCOMPARE(Tasti.join(u'\n'), u"Ctrl+F1 help\n"
                                "Ctrl+N new\n"
                                "Ctrl+O openpar\n"
                                "Ctrl+Shift+C contrib\n"
                                "Ctrl+Shift+D docum\n"
                                "Ctrl+Shift+F codfis\n"
                                "Ctrl+Shift+I inter\n"
                                "Ctrl+Shift+L lock\n"
                                "Ctrl+Shift+O openmod\n"
                                "Ctrl+Shift+P setup\n"
                                "Ctrl+Shift+R clienti\n"
                                "Ctrl+Shift+S sequenz\n"
                                "Ctrl+Shift+T termini\n"
                                "Ctrl+Shift+V istat\n"
                                "Shift+F1 guida"_s);
}

void TestComandi::apreUnaFinestra_data()
{
    QTest::addColumn<QString>("Comando");
    QTest::addColumn<int>("Indice");
    QTest::addColumn<QString>("Evento");

    QTest::newRow("new note") << u"new"_s << 0 << u"parcella [] 0 []"_s;
    QTest::newRow("new note linked to a window") << u"new"_s << 2 << u"parcella [] 2 []"_s;
    QTest::newRow("open") << u"open"_s << 0 << u"trova 0"_s;
    QTest::newRow("open from notes") << u"openpar"_s << 3 << u"trova 0"_s;
    QTest::newRow("open from templates") << u"openmod"_s << 0 << u"trova 1"_s;
    QTest::newRow("settings") << u"setup"_s << 0 << u"impostazioni 0"_s;
    QTest::newRow("settings at the icons") << u"recupera"_s << 0 << u"impostazioni 3"_s;
    for (const Comando& Riga : Comandi())
        if (ApreFinestra(Riga))
            QTest::addRow("%ls", qUtf16Printable(Riga.Parola.toString()))
                << Riga.Parola.toString() << 0 << Riga.Parola.toString();
}

void TestComandi::apreUnaFinestra()
{
    QFETCH(QString, Comando);
    QFETCH(int, Indice);
    QFETCH(QString, Evento);
    const Registratore Box;
    EseguiComando(Comando, Indice, {});
    QCOMPARE(Eventi, QStringList{Evento});
}

void TestComandi::senzaApritoreNonFaNulla()
{
    const Registratore Box;
    Aperture = {};
    Posti(u"m"_s);
    // Those that need no window of the program are left out: they have their own tests.
    QStringList Parole{u"new"_s,   u"open"_s, u"openmod"_s, u"save"_s,    u"savemod"_s,
                       u"print"_s, u"lock"_s, u"setup"_s,   u"recupera"_s};
    for (const Comando& Riga : Comandi())
        if (ApreFinestra(Riga))
            Parole << Riga.Parola.toString();
    for (const QString& Parola : std::as_const(Parole))
        EseguiComando(Parola, 1, {});
    QCOMPARE(Eventi, QStringList());
}

void TestComandi::parolaSconosciuta_data()
{
    QTest::addColumn<QString>("Comando");

    QTest::newRow("capitals") << u"SAVE"_s;
    QTest::newRow("one capital") << u"New"_s;
    QTest::newRow("sent by an old entry") << u"tassi"_s;
    QTest::newRow("reserved for the multiple note") << u"loadpar"_s;
    QTest::newRow("blank behind") << u"new "_s;
    QTest::newRow("beginning of a word") << u"savep"_s;
    QTest::newRow("empty") << u""_s;
}

void TestComandi::parolaSconosciuta()
{
    QFETCH(QString, Comando);
    const Registratore Box;
    Posti(u"m"_s);
    EseguiComando(Comando, 1, u"P1"_s);
    QCOMPARE(Eventi, QStringList());
}

void TestComandi::nuovaConRiferimento()
{
    const Registratore Box;
    EseguiComando(u"new"_s, 2, u"P12"_s);
    QCOMPARE(Eventi, QStringList{u"parcella [] 0 [P12]"_s});
}

void TestComandi::guardie_data()
{
    QTest::addColumn<QString>("Comando");
    QTest::addColumn<QString>("Posti");
    QTest::addColumn<int>("Indice");
    QTest::addColumn<QString>("Evento");

    QTest::newRow("save with no note open") << u"save"_s << u""_s << 0 << u""_s;
    QTest::newRow("save of the unused place 0") << u"save"_s << u"m"_s << 0 << u""_s;
    QTest::newRow("save beyond the places") << u"save"_s << u"m"_s << 2 << u""_s;
    QTest::newRow("save below the places") << u"save"_s << u"m"_s << -1 << u""_s;
    QTest::newRow("save of a modified note") << u"save"_s << u"pm"_s << 2 << u"salva 2 0"_s;
    QTest::newRow("save of an unmodified note") << u"save"_s << u"p"_s << 1 << u""_s;
    QTest::newRow("save of a closed window") << u"save"_s << u"l"_s << 1 << u""_s;
    QTest::newRow("save by the other word") << u"savepar"_s << u"m"_s << 1 << u"salva 1 0"_s;
    QTest::newRow("save by the other word, unmodified") << u"savepar"_s << u"p"_s << 1 << u""_s;
    QTest::newRow("template of a modified note") << u"savemod"_s << u"m"_s << 1 << u"salva 1 1"_s;
    QTest::newRow("template of an unmodified note") << u"savemod"_s << u"p"_s << 1 << u""_s;
    QTest::newRow("print") << u"print"_s << u"p"_s << 1 << u"scheda 1 4"_s;
    QTest::newRow("print by the other word") << u"printopz"_s << u"m"_s << 1 << u"scheda 1 4"_s;
    QTest::newRow("print of a closed window") << u"print"_s << u"pl"_s << 2 << u""_s;
    QTest::newRow("print with no note open") << u"print"_s << u""_s << 0 << u""_s;
    QTest::newRow("print of place 0") << u"print"_s << u"p"_s << 0 << u""_s;
    QTest::newRow("protect") << u"lock"_s << u"p"_s << 1 << u"proteggi 1"_s;
    QTest::newRow("protect of a closed window") << u"lock"_s << u"l"_s << 1 << u"proteggi 1"_s;
    QTest::newRow("protect with no place") << u"lock"_s << u""_s << 0 << u""_s;
    QTest::newRow("export of place 0") << u"printword"_s << u"p"_s << 0 << u""_s;
    QTest::newRow("export beyond the places") << u"printword"_s << u"p"_s << 2 << u""_s;
}

void TestComandi::guardie()
{
    QFETCH(QString, Comando);
    QFETCH(QString, Posti);
    QFETCH(int, Indice);
    QFETCH(QString, Evento);
    const Registratore Box;
    ::Posti(Posti);
    EseguiComando(Comando, Indice, {});
    QCOMPARE(Eventi.join(u'|'), Evento);
}

void TestComandi::proteggiSenzaNota_data()
{
    QTest::addColumn<QString>("Posti");
    QTest::addColumn<int>("Indice");

    QTest::newRow("no window is the target") << u"l"_s << 0;
    QTest::newRow("beyond the places") << u"p"_s << 2;
}

void TestComandi::proteggiSenzaNota()
{
    QFETCH(QString, Posti);
    QFETCH(int, Indice);
    Registratore Box;
    ::Posti(Posti);
    Box.Attendi(u"Occorre prima selezionare una parcella!"_s, vbOK, u"Errore:"_s);
    EseguiComando(u"lock"_s, Indice, {});
    QCOMPARE(Box.Mostrato(0).Bandiere, vbCritical);
    QCOMPARE(Eventi, QStringList());
}

void TestComandi::spegniChiudeQuelleAperte()
{
    const Registratore Box;
    Posti(u"mlpm"_s);
    Aperture.ChiudiRubriche = [this] {
        Eventi << u"rubriche"_s;
        return false;
    };
    EseguiComando(u"off"_s, 0, {});
    // Every close was refused: the shutdown goes on all the same.
    QCOMPARE(Eventi, (QStringList{u"chiudi 1"_s, u"chiudi 3"_s, u"chiudi 4"_s, u"rubriche"_s, u"fine 0"_s}));
}

void TestComandi::spegniDaUnaPratica()
{
    const Registratore Box;
    Posti(u"mm"_s);
    sessione::RichiestaPV2.ID = u"P1"_s;
    EseguiComando(u"off"_s, 0, {});
    QCOMPARE(Eventi, (QStringList{u"chiudi 1"_s, u"chiudi 2"_s, u"fine 0"_s}));
    // A close that is carried out ends the process: the others are not asked about.
    Eventi.clear();
    Aperture.ChiudiParcella = [this](int Indice) {
        Eventi << u"chiudi"_s + Numeri({Indice});
        Termina();
        return true;
    };
    EseguiComando(u"off"_s, 0, {});
    QCOMPARE(Eventi, (QStringList{u"chiudi 1"_s, u"fine 0"_s}));
}

void TestComandi::guastoRiferito()
{
    Registratore Box;
    Aperture.Finestre[u"termini"_s] = [] { throw Errore(7); };
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(7) + u" (7)"_s, vbOK, u"Errore:"_s);
    EseguiComando(u"termini"_s, 0, {});
}

void TestComandi::postoNuovo()
{
    QCOMPARE(UltimaParcella(), 0);
    QCOMPARE(TrovaPostoParcella({}), 1);
    QCOMPARE(UltimaParcella(), 1);
    QVERIFY(!InfoParcelle[1].Libera);
    InfoParcelle[1].Modificata = true;
    QCOMPARE(TrovaPostoParcella([] { return true; }), 2);
    QVERIFY(!InfoParcelle[2].Libera);
}

void TestComandi::postoLiberato()
{
    Posti(u"mll"_s);
    QCOMPARE(TrovaPostoParcella([] { return true; }), 2);
    QVERIFY(!InfoParcelle[2].Libera);
    QCOMPARE(TrovaPostoParcella([] { return true; }), 3);
    QCOMPARE(TrovaPostoParcella([] { return true; }), 4);
}

void TestComandi::postoDellaPrimaIntatta_data()
{
    QTest::addColumn<QString>("Posti");
    QTest::addColumn<bool>("Intatta");
    QTest::addColumn<int>("Posto");

    QTest::newRow("untouched") << u"p"_s << true << 1;
    QTest::newRow("captioned otherwise") << u"p"_s << false << 2;
    QTest::newRow("modified") << u"m"_s << true << 2;
    QTest::newRow("not the only one") << u"pp"_s << true << 3;
}

void TestComandi::postoDellaPrimaIntatta()
{
    QFETCH(QString, Posti);
    QFETCH(bool, Intatta);
    ::Posti(Posti);
    QTEST(TrovaPostoParcella([&] { return Intatta; }), "Posto");
}

void TestComandi::parcellaAperta()
{
    QVERIFY(!ParcellaAperta());
    Posti(u"ll"_s);
    QVERIFY(!ParcellaAperta());
    Posti(u"lp"_s);
    QVERIFY(ParcellaAperta());
}

#include "TestComandi.moc"
