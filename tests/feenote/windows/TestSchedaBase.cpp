// Tab 0 by mouse and keyboard: parties, parameters, the gate to the other tabs.
#include "schedabase.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int Milione = 1000000;  // without separators, which moc cannot read

const QString Ricalcolo = u"Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo "
                          u"con i nuovi parametri.\n"
                          u"Confermi la modifica?"_s;

QString Banner(const frmParcelle* Finestra)
{
    return Controllo<QLabel>(Finestra, "lblDatiBase")->text();
}

}  // namespace

class TestSchedaBase : public QObject, private BancoSchedaBase
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void laNotaNuovaAspetta();
    void senzaAssociataNullaDaUsare();
    void civileSubitoHaIValori();
    void lePartiSonoTestoLibero();
    void sceltaDaTastieraComeDalMouse();
    void penaleNonHaValore();
    void stragiudizialeChiedeIlValore();
    void ilValoreTrovaLoScaglione();
    void ilValoreSiMostraArrotondato();
    void ilValoreRimastoTrovaLoScaglione();
    void ilValoreFuoriDalNuovoScaglioneCade();
    void passareSulValoreNonTocca();
    void ilValoreNonNumericoRestaLi_data();
    void ilValoreNonNumericoRestaLi();
    void ilTastierinoScriveLaVirgola();
    void loScaglioneRifiutatoRidaTutto();
    void lAutoritaRifiutataTorna();
    void lAutoritaIncompatibile();
    void ilCancelloDiceCosaManca_data();
    void ilCancelloDiceCosaManca();
    void ilCancelloGuardaIlValore_data();
    void ilCancelloGuardaIlValore();
    void lIndeterminatoNonVuoleValore();
    void ilCancelloVaAncheDallaFreccia();
    void ilCampoRifiutatoFermaIlCambio();
    void leScorciatoieNonSaltanoIlCampo();
    void ogniMnemonicoPortaAlSuoCampo();
    void testoLunghissimo_data();
    void testoLunghissimo();
    void ilTestoTagliatoSiLeggeIntero();
    void ilNomeLungoSiLeggeDalPrincipio();
    void ilValorePiuGrandeSiVedeIntero();
};
PROVA(TestSchedaBase);

void TestSchedaBase::laNotaNuovaAspetta()
{
    QCOMPARE(F->Scheda(), int(SchedaBase));
    QCOMPARE(Controllo<QComboBox>(F, "cmbCateg")->currentIndex(), -1);
    QCOMPARE(Controllo<QComboBox>(F, "cmbAutor")->currentIndex(), -1);
    QCOMPARE(Controllo<QComboBox>(F, "cmbValore")->currentIndex(), -1);
    QVERIFY(Controllo<QComboBox>(F, "cmbAutor")->isEnabled());
    QVERIFY(Controllo<QComboBox>(F, "cmbValore")->count() > 0);
    QVERIFY(Controllo<QRadioButton>(F, "optAumRid_5")->isChecked());
    QVERIFY(!Controllo(F, "pctSave")->isVisible());
    QVERIFY(!Controllo(F, "pctLock")->isVisible());
    QVERIFY(!F->Nota.Modificata);
}

void TestSchedaBase::senzaAssociataNullaDaUsare()
{
    for (const char* Nome : {"cmdModPar", "cmdNoMulti", "chkMultiParam", "optMultiAntPos_0"})
        QVERIFY2(!Controllo(F, Nome)->isEnabled(), Nome);
    QVERIFY(!Controllo(F, "cmdRiassocia")->isVisible());
}

void TestSchedaBase::civileSubitoHaIValori()
{
    // The category of a new note is civil already: choosing it changes nothing, and the list must be there.
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), CategCivile);
    QVERIFY(Controllo<QComboBox>(F, "cmbValore")->isEnabled());
    Scegli(Controllo<QComboBox>(F, "cmbValore"), 2);
    QCOMPARE(F->Nota.cmbValore, 2);
    QVERIFY(F->Nota.Scaglione > 0);
}

void TestSchedaBase::lePartiSonoTestoLibero()
{
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Società Perché & Figli"_s);
    Premi(Qt::Key_Return);  // goes on to the next box
    QCOMPARE(QApplication::focusWidget(), Controllo(F, "txtControp"));
    Digita(u"Bianchi"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtOggetto"), u"Sfratto"_s);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Società Perché & Figli"_s);
    QCOMPARE(F->Nota.txtDatiStaCli.Testo, u"Società Perché & Figli"_s);
    QCOMPARE(F->Nota.txtControp.Testo, u"Bianchi"_s);
    QCOMPARE(F->Nota.txtOggetto.Testo, u"Sfratto"_s);
    QVERIFY(F->Nota.Modificata);
    QVERIFY(Controllo(F, "pctSave")->isVisible());
}

void TestSchedaBase::sceltaDaTastieraComeDalMouse()
{
    ScegliDaTastiera(Controllo<QComboBox>(F, "cmbCateg"), CategPenale);
    const int Indice = IndiceAutorita(F->Nota, IDMonocratico);
    ScegliDaTastiera(Controllo<QComboBox>(F, "cmbAutor"), Indice);
    QCOMPARE(F->Nota.CodCateg, u"PEN"_s);
    QCOMPARE(F->Nota.IDAutSelezionata(), IDMonocratico);
    QCOMPARE(F->Nota.Scaglione, IDMonocratico);
}

void TestSchedaBase::penaleNonHaValore()
{
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), CategPenale);
    QVERIFY(!Controllo(F, "cmbValore")->isEnabled());
    QVERIFY(!Controllo(F, "txtImporto")->isEnabled());
    QVERIFY(Controllo(F, "cmbAutor")->isEnabled());
}

void TestSchedaBase::stragiudizialeChiedeIlValore()
{
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), CategStragiudiziale);
    QVERIFY(!Controllo(F, "cmbValore")->isEnabled());
    QVERIFY(Controllo(F, "txtImporto")->isEnabled());
    QCOMPARE(QApplication::focusWidget(), Controllo(F, "txtImporto"));
}

void TestSchedaBase::ilValoreTrovaLoScaglione()
{
    CompilaCivile(F);
    QCOMPARE(F->Nota.ImportoPrec, 30000.0);
    QCOMPARE(Controllo<QLineEdit>(F, "txtImporto")->text(), u"30.000,00"_s);
    QCOMPARE(Controllo<QComboBox>(F, "cmbValore")->currentIndex(), F->Nota.cmbValore);
    QVERIFY(F->Nota.cmbValore >= 0);
    QCOMPARE(Banner(F), TestoDatiBase(F->Nota));
    QVERIFY(Banner(F).endsWith(u" - Valore: 30.000,00 €"_s));
}

void TestSchedaBase::ilValoreSiMostraArrotondato()
{
    CompilaCivile(F);
    Scrivi(Controllo<QLineEdit>(F, "txtImporto"), u"30000,005"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(Controllo<QLineEdit>(F, "txtImporto")->text(), u"30.000,00"_s);
}

void TestSchedaBase::ilValoreRimastoTrovaLoScaglione()
{
    // Out of court the bracket follows from the value alone: leaving a value that was there must find it.
    CompilaCivile(F);
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), CategStragiudiziale);
    QCOMPARE(F->Nota.cmbValore, -1);
    QCOMPARE(Controllo<QLineEdit>(F, "txtImporto")->text(), u"30.000,00"_s);
    Premi(Qt::Key_Tab);
    Respiro();
    QVERIFY(F->Nota.cmbValore >= 0);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(F->Scheda(), int(SchedaListaOnorari));
}

void TestSchedaBase::ilValoreFuoriDalNuovoScaglioneCade()
{
    CompilaCivile(F);
    QVERIFY(F->Nota.cmbValore > 0);
    Scegli(Controllo<QComboBox>(F, "cmbValore"), F->Nota.cmbValore - 1);
    Respiro();
    auto* Box = Controllo<QLineEdit>(F, "txtImporto");
    QVERIFY(Box->text().isEmpty());
    QCOMPARE(QApplication::focusWidget(), Box);
    QCOMPARE(F->Nota.ImportoPrec, 30000.0);
    F->Nota.RicalcoloNecessario = false;
    Premi(Qt::Key_Tab);
    QVERIFY2(F->Nota.ImportoPrec == 0.0, "chi lascia vuota la casella non ha più quel valore");
    QVERIFY(F->Nota.RicalcoloNecessario);
}

void TestSchedaBase::passareSulValoreNonTocca()
{
    CompilaCivile(F);
    F->SetModificata(false);
    F->Nota.RicalcoloNecessario = false;
    Controllo(F, "txtImporto")->setFocus();
    Premi(Qt::Key_Tab);
    QVERIFY(!F->Nota.Modificata);
    QVERIFY(!F->Nota.RicalcoloNecessario);
}

void TestSchedaBase::ilValoreNonNumericoRestaLi_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::newRow("parola") << u"abc"_s;
    QTest::newRow("il punto non è un decimale") << u"30000.50"_s;
    QTest::newRow("data") << u"31/02/2012"_s;
    QTest::newRow("un milione di caratteri") << QString(Milione, u'x');
    QTest::newRow("più righe") << u"1\n2\n3"_s;
}

void TestSchedaBase::ilValoreNonNumericoRestaLi()
{
    QFETCH(QString, Testo);
    CompilaCivile(F);
    auto* Box = Controllo<QLineEdit>(F, "txtImporto");
    Incolla(Box, Testo);
    const QString Rimasto = Box->text();
    T->Voce.Attendi(u"Immettere un valore numerico!"_s, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Tab);
    Respiro();
    QCOMPARE(QApplication::focusWidget(), Box);
    QVERIFY2(Box->text() == Rimasto, "il testo resta da correggere");
    QCOMPARE(F->Nota.ImportoPrec, 30000.0);

    Scrivi(Box, u"28000"_s);  // and the window goes on
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Nota.ImportoPrec, 28000.0);
}

void TestSchedaBase::ilTastierinoScriveLaVirgola()
{
    CompilaCivile(F);
    auto* Box = Controllo<QLineEdit>(F, "txtImporto");
    Scrivi(Box, u"30100"_s);
    Digita(u"."_s, Qt::KeypadModifier);
    Digita(u"5"_s);
    QCOMPARE(Box->text(), u"30100,5"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Nota.ImportoPrec, 30100.5);
}

void TestSchedaBase::loScaglioneRifiutatoRidaTutto()
{
    CompilaCivile(F);
    RigaOnorario(F->Nota, u"Fase di studio"_s, 1000);
    F->Nota.RicalcoloNecessario = false;
    const int Prima = F->Nota.cmbValore;
    T->Voce.Attendi(Ricalcolo, vbNo, u"Domanda:"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtImporto"), u"900000"_s);
    Premi(Qt::Key_Tab);
    Respiro();
    QCOMPARE(Controllo<QComboBox>(F, "cmbValore")->currentIndex(), Prima);
    QCOMPARE(Controllo<QLineEdit>(F, "txtImporto")->text(), u"30.000,00"_s);
    QCOMPARE(F->Nota.ImportoPrec, 30000.0);
    QVERIFY(!F->Nota.RicalcoloNecessario);
}

void TestSchedaBase::lAutoritaRifiutataTorna()
{
    CompilaCivile(F);
    RigaOnorario(F->Nota, u"Fase di studio"_s, 1000);
    const int Prima = F->Nota.cmbAutor;
    T->Voce.Attendi(Ricalcolo, vbNo, u"Domanda:"_s);
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDGiudiceDiPace));
    QCOMPARE(Controllo<QComboBox>(F, "cmbAutor")->currentIndex(), Prima);
    QCOMPARE(F->Nota.cmbAutor, Prima);
    // The same entry once more asks nothing.
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), Prima);
}

void TestSchedaBase::lAutoritaIncompatibile()
{
    CompilaCivile(F);
    RigaOnorario(F->Nota, u"Fase di studio"_s, 1000);
    const int Prima = F->Nota.cmbAutor;
    T->Voce.Attendi(u"L'autorità selezionata non è compatibile con la precedente!"_s, vbOK, u"Errore:"_s);
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDTribunaleIngiunzione));
    QCOMPARE(Controllo<QComboBox>(F, "cmbAutor")->currentIndex(), Prima);
}

void TestSchedaBase::ilCancelloDiceCosaManca_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("Autorita");
    QTest::addColumn<QString>("Messaggio");
    QTest::addColumn<QByteArray>("Fuoco");
    QTest::newRow("niente") << -1 << 0 << u"Non è stata specificata la categoria della pratica!"_s
                            << QByteArray("cmbCateg");
    QTest::newRow("solo la categoria")
        << int(CategCivile) << 0 << u"Non è stato specificato il campo Autorità"_s << QByteArray("cmbAutor");
    QTest::newRow("penale senza autorità")
        << int(CategPenale) << 0 << u"Non è stato specificato il campo Autorità"_s << QByteArray("cmbAutor");
    QTest::newRow("civile senza valore")
        << int(CategCivile) << IDTribunale << u"Non è stato specificato lo scaglione di valore della causa!"_s
        << QByteArray("txtImporto");
    QTest::newRow("stragiudiziale senza valore")
        << int(CategStragiudiziale) << 0 << u"Non è stato specificato lo scaglione di valore della causa!"_s
        << QByteArray("txtImporto");
}

void TestSchedaBase::ilCancelloDiceCosaManca()
{
    QFETCH(int, Categoria);
    QFETCH(int, Autorita);
    QFETCH(QString, Messaggio);
    QFETCH(QByteArray, Fuoco);
    if (Categoria >= 0)
        Scegli(Controllo<QComboBox>(F, "cmbCateg"), Categoria);
    if (Autorita > 0)
        Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, Autorita));
    for (const int Scheda : {int(SchedaListaOnorari), int(SchedaDiStampa)}) {
        T->Voce.Attendi(Messaggio, vbOK, u"Errore:"_s);
        ClicScheda(F, Scheda);
        QCOMPARE(F->Scheda(), int(SchedaBase));
        QCOMPARE(QApplication::focusWidget(), Controllo(F, Fuoco.constData()));
        QVERIFY(F->Nota.xOnorari.Vuota());
    }
}

void TestSchedaBase::ilCancelloGuardaIlValore_data()
{
    QTest::addColumn<int>("Scaglione");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<QString>("Messaggio");
    QTest::newRow("valore esatto richiesto")
        << 6 << QString() << u"Occorre specificare il valore esatto della causa!"_s;
    QTest::newRow("oltre ogni scaglione")
        << 6 << u"9999999999999"_s << u"Il valore della causa specificato non è compreso nello scaglione!"_s;
    QTest::newRow("senza scaglione") << -1 << u"9999999999999"_s
                                     << u"Non è stato specificato lo scaglione di valore della causa!"_s;
}

void TestSchedaBase::ilCancelloGuardaIlValore()
{
    QFETCH(int, Scaglione);
    QFETCH(QString, Valore);
    QFETCH(QString, Messaggio);
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), CategCivile);
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDTribunale));
    if (Scaglione >= 0)
        Scegli(Controllo<QComboBox>(F, "cmbValore"), Scaglione);
    auto* Box = Controllo<QLineEdit>(F, "txtImporto");
    if (!Valore.isEmpty())
        Scrivi(Box, Valore);
    T->Voce.Attendi(Messaggio, vbOK, u"Errore:"_s);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(F->Scheda(), int(SchedaBase));
    QCOMPARE(QApplication::focusWidget(), Box);
    Scrivi(Box, u"2000000"_s);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(F->Scheda(), int(SchedaListaOnorari));
}

void TestSchedaBase::lIndeterminatoNonVuoleValore()
{
    CompilaCivile(F);
    Scegli(Controllo<QComboBox>(F, "cmbValore"), F->Nota.ListaScaglioni.size() - 1);
    QVERIFY(Indeterminato(*F->Nota.ScaglioneSelezionato()));
    QVERIFY(Controllo<QLineEdit>(F, "txtImporto")->text().isEmpty());
    QCOMPARE(F->Nota.ImportoPrec, 0.0);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(F->Scheda(), int(SchedaListaOnorari));
}

void TestSchedaBase::ilCancelloVaAncheDallaFreccia()
{
    T->Voce.Attendi(u"Non è stata specificata la categoria della pratica!"_s);
    Clic(Controllo(F, "imgNext"));
    QCOMPARE(F->Scheda(), int(SchedaBase));
}

void TestSchedaBase::ilCampoRifiutatoFermaIlCambio()
{
    CompilaCivile(F);
    Incolla(Controllo<QLineEdit>(F, "txtImporto"), u"abc"_s);
    T->Voce.Attendi(u"Immettere un valore numerico!"_s);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(F->Scheda(), int(SchedaBase));
    QVERIFY2(F->Nota.xOnorari.Vuota(), "la scheda rifiutata non precarica");
    QCOMPARE(QApplication::focusWidget(), Controllo(F, "txtImporto"));
}

void TestSchedaBase::leScorciatoieNonSaltanoIlCampo()
{
    CompilaCivile(F);
    Scrivi(Controllo<QLineEdit>(F, "txtImporto"), u"31000"_s);
    QTest::keyClick(Controllo<QTabWidget>(F, "tabParcelle"), Qt::Key_Tab, Qt::ControlModifier);
    Respiro();
    QCOMPARE(F->Nota.ImportoPrec, 31000.0);
    QCOMPARE(F->Scheda(), int(SchedaListaOnorari));
}

void TestSchedaBase::ogniMnemonicoPortaAlSuoCampo()
{
    CompilaCivile(F);
    const auto Tasto = [](const QString& Testo) {
        const qsizetype Dove = Testo.indexOf(u'&');
        return Dove < 0 ? Qt::Key_unknown : Qt::Key(Testo[Dove + 1].toUpper().unicode());
    };
    int Visti = 0;
    for (const QLabel* Una : F->findChildren<QLabel*>()) {
        if (!Una->buddy() || !Una->isVisible())
            continue;
        Controllo(F, "optAumRid_5")->setFocus();
        QTest::keyClick(F, Tasto(Una->text()), Qt::AltModifier);
        QVERIFY2(Una->buddy()->hasFocus(), qPrintable(Una->text()));
        ++Visti;
    }
    QCOMPARE(Visti, 9);
    for (const QRadioButton* Una : PaginaIn(F)->findChildren<QRadioButton*>()) {
        QTest::keyClick(F, Tasto(Una->text()), Qt::AltModifier);
        QVERIFY2(Una->hasFocus(), qPrintable(Una->text()));
        QVERIFY2(Una->isDown() || Una->isChecked(), "si preme da sé, un momento dopo");
    }
}

void TestSchedaBase::testoLunghissimo_data()
{
    QTest::addColumn<QByteArray>("Casella");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<int>("Restano");
    const QString Lungo(Milione, u'à');
    const QString Righe = u"riga\n"_s.repeated(Milione / 5);
    QTest::newRow("cliente") << QByteArray("txtCliente") << Lungo << 2000;
    QTest::newRow("controparte, tante righe") << QByteArray("txtControp") << Righe << 2000;
    QTest::newRow("oggetto") << QByteArray("txtOggetto") << Lungo << 4000;
    QTest::newRow("oggetto, tante righe") << QByteArray("txtOggetto") << Righe << 4000;
    QTest::newRow("percento") << QByteArray("txtAumRid") << QString(Milione, u'9') << 3;
}

void TestSchedaBase::testoLunghissimo()
{
    QFETCH(QByteArray, Casella);
    QFETCH(QString, Testo);
    QFETCH(int, Restano);
    CompilaCivile(F);
    auto* Box = Controllo<QLineEdit>(F, Casella.constData());
    Incolla(Box, Testo);
    QCOMPARE(Box->text(), Testo.left(Restano));
    if (Casella == "txtAumRid")
        T->Voce.Attendi(u"La variazione deve essere compreso tra -100 e 300!"_s, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Tab);
    Respiro();
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(F->Scheda(), int(SchedaListaOnorari));
}

void TestSchedaBase::ilTestoTagliatoSiLeggeIntero()
{
    auto* Box = Controllo<QLineEdit>(F, "txtOggetto");
    const QString Lungo = u"Rossi & Bianchi "_s.repeated(20);
    for (const QString& Testo : {u"Sfratto"_s, Lungo}) {
        Scrivi(Box, Testo);
        QHelpEvent Aiuto(QEvent::ToolTip, Box->rect().center(), Box->mapToGlobal(Box->rect().center()));
        QApplication::sendEvent(Box, &Aiuto);
        QCOMPARE(QToolTip::text(), Testo == Lungo ? SuPiuRighe(Lungo) : QString());
    }
    QToolTip::hideText();
}

void TestSchedaBase::ilNomeLungoSiLeggeDalPrincipio()
{
    for (const char* Nome : {"txtCliente", "txtControp", "txtOggetto"}) {
        auto* Box = Controllo<QLineEdit>(F, Nome);
        Scrivi(Box, u"Costruzioni Generali e Impianti Tecnologici S.r.l. in liquidazione "_s.repeated(3));
        QVERIFY(Box->cursorPosition() > 0);
        Premi(Qt::Key_Tab);
        QCOMPARE(Box->cursorPosition(), 0);
    }
}

void TestSchedaBase::ilValorePiuGrandeSiVedeIntero()
{
    auto* Box = Controllo<QLineEdit>(F, "txtImporto");
    Scrivi(Box, u"999999999999,99"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(Box->text(), u"999.999.999.999,99"_s);
    QStyleOptionFrame Cornice;
    Cornice.initFrom(Box);
    Cornice.lineWidth = Box->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &Cornice, Box);
    const QRect Dentro = Box->style()->subElementRect(QStyle::SE_LineEditContents, &Cornice, Box);
    constexpr int MarginiDelTesto = 4;
    QVERIFY(Box->fontMetrics().horizontalAdvance(Box->text()) <= Dentro.width() - MarginiDelTesto);
}

#include "TestSchedaBase.moc"
