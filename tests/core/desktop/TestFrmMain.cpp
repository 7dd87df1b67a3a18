// The frame of the notes: its bar, its menus, its title, its ground.
#include "bancocornice.h"

class TestFrmMain : public QObject, private BancoCornice
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void barra();
    void barraStaNellaLarghezzaSolita();
    void menuDeiPulsanti();
    void bassaNonHaParoleSottoLeIcone();
    void ogniControlloHaUnNome();
    void ilPulsanteAgisceSullaParcellaAttiva_data();
    void ilPulsanteAgisceSullaParcellaAttiva();
    void nuovaNonHaSocio();
    void ilMenuAgisceSullaParcellaAttiva();
    void laVoceGuideChiedeLaScheda();
    void ilCampoApertoFermaIlComando();
    void diciottoProcedure();
    void bassoNascondeIPulsanti();
    void laFinestraAttivaDiventaIlBersaglio();
    void ilTitoloNominaLaParcella();
    void sfondo();
    void fondoSegueLaTavolozza();
    void schedaDellaGuida();
    void ilModelloDiUnaParcellaIntatta_data();
    void ilModelloDiUnaParcellaIntatta();
    void ilModelloSenzaParcelle();
};
PROVA(TestFrmMain);

void TestFrmMain::barra()
{
    QStringList Trovati;
    for (const QAction* Azione : Barra_()->actions())
        Trovati << (Azione->isSeparator()
                        ? u"-"_s
                        : Barra_()->widgetForAction(const_cast<QAction*>(Azione))->objectName().mid(12) +
                              u": "_s + Azione->toolTip());
    QStringList Attesi;
    const Comando* Prima = nullptr;
    for (const Comando* Riga : ComandiDellaBarra()) {
        if (Prima && Prima->Pulsante.Gruppo != Riga->Pulsante.Gruppo)
            Attesi << u"-"_s;
        Attesi << u"%1: %2"_s.arg(Riga->Parola, Riga->Pulsante.Suggerimento);
        Prima = Riga;
    }
    QCOMPARE(Trovati, Attesi);
    for (const QAction* Azione : Barra_()->actions())
        QVERIFY2(Azione->isSeparator() || (!Azione->icon().isNull() && !Azione->text().isEmpty()),
                 qPrintable(Azione->toolTip()));
}

void TestFrmMain::barraStaNellaLarghezzaSolita()
{
    constexpr int LarghezzaSolita = 13400;
    QVERIFY2(Barra_()->sizeHint().width() <= aspetto::Pixel(LarghezzaSolita),
             qPrintable(QString::number(Barra_()->sizeHint().width())));
}

void TestFrmMain::menuDeiPulsanti()
{
    const auto Voci = [this](const QString& Chiave) {
        QStringList Testi;
        for (const QAction* Voce :
             Cornice->findChild<QToolButton*>(u"barParcelle_"_s + Chiave)->defaultAction()->menu()->actions())
            Testi << Voce->text().section(u'\t', 0, 0);
        return Testi;
    };
    QCOMPARE(Voci(u"open"_s), (QStringList{u"Apri da parcelle salvate"_s, u"Apri da modelli"_s}));
    QCOMPARE(Voci(u"help"_s), (QStringList{u"Guida all'uso"_s, u"Tasti del programma"_s,
                                           u"Assistenza tecnica"_s, u"Informazioni su.."_s}));
    QCOMPARE(Voci(u"save"_s),
             (QStringList{u"Salva"_s, u"Salva con nome..."_s, u"Salva come modello"_s, u"Duplica..."_s}));
}

void TestFrmMain::bassaNonHaParoleSottoLeIcone()
{
    Cornice->show();
    Cornice->resize(680, 380);
    Respiro();
    const int Bassa = Barra_()->height();
    Cornice->resize(893, 706);
    Respiro();
    QVERIFY2(Barra_()->height() > Bassa, qPrintable(QString::number(Bassa)));
}

void TestFrmMain::ogniControlloHaUnNome()
{
    QCOMPARE(SenzaNome(Cornice).join(u", "_s), QString());
    for (const QToolButton* Pulsante : Barra_()->findChildren<QToolButton*>())
        QVERIFY2(!Pulsante->toolTip().isEmpty() || Pulsante->objectName().startsWith(u"qt_"),
                 qPrintable(Pulsante->objectName()));
}

void TestFrmMain::ilPulsanteAgisceSullaParcellaAttiva_data()
{
    QTest::addColumn<QString>("Bersaglio");
    QTest::addColumn<QString>("Evento");

    QTest::newRow("first note") << u"1"_s << u"proteggi 1"_s;
    QTest::newRow("second note") << u"2"_s << u"proteggi 2"_s;
}

void TestFrmMain::ilPulsanteAgisceSullaParcellaAttiva()
{
    QFETCH(QString, Bersaglio);
    QFETCH(QString, Evento);
    const Registratore Box;
    Scena::ApriPosti(2);
    Cornice->show();
    Cornice->ImpostaTag(Bersaglio);
    Clic(u"lock"_s);
    QCOMPARE(S->Eventi, QStringList{Evento});
    // Unmodified: there is nothing to save.
    Clic(u"save"_s);
    QCOMPARE(S->Eventi.size(), 1);
    InfoParcelle[size_t(Bersaglio.toInt())].Modificata = true;
    Clic(u"save"_s);
    QCOMPARE(S->Eventi.last(), u"salva "_s + Bersaglio);
}

void TestFrmMain::nuovaNonHaSocio()
{
    const Registratore Box;
    Scena::ApriPosti(1);
    Cornice->show();
    Cornice->ImpostaTag(u"1"_s);
    Clic(u"new"_s);
    QCOMPARE(S->Eventi, QStringList{u"parcella 0"_s});
}

void TestFrmMain::ilMenuAgisceSullaParcellaAttiva()
{
    const Registratore Box;
    Cornice->findChild<QAction*>(u"menu_openpar"_s)->trigger();
    Cornice->findChild<QAction*>(u"menu_openmod"_s)->trigger();
    Cornice->findChild<QAction*>(u"menu_about"_s)->trigger();
    QCOMPARE(S->Eventi, (QStringList{u"trova 0"_s, u"trova 1"_s, u"informazioni"_s}));
}

void TestFrmMain::laVoceGuideChiedeLaScheda()
{
    const Registratore Box;
    Aperture.SchedaCorrente = [this](int Indice) {
        S->Annota(u"scheda di %1"_s.arg(Indice));
        return 2;
    };
    Cornice->ImpostaTag(u"3"_s);
    Cornice->barParcelle_ButtonClick(u"guide"_s);
    QCOMPARE(S->Eventi, QStringList{u"scheda di 3"_s});
}

void TestFrmMain::ilCampoApertoFermaIlComando()
{
    const Registratore Box;
    auto* Campo = new QLineEdit(Cornice);
    bool Accetta = false;
    AlLasciaSempre(Campo, [&] { return Accetta; });
    QVERIFY(MostraAttiva(*Cornice));
    Campo->show();
    Campo->setFocus();
    Clic(u"termini"_s);
    Cornice->findChild<QAction*>(u"comando_termini"_s)->trigger();
    QCOMPARE(S->Eventi, QStringList());
    Accetta = true;
    Clic(u"termini"_s);
    QCOMPARE(S->Eventi, QStringList{u"termini"_s});
}

void TestFrmMain::diciottoProcedure()
{
    Registratore Box;
    const auto Annota = [this](const QString& Nome) { return [this, Nome] { S->Annota(Nome); }; };
    QStringList Attese;
    QStringList Attesi;
    const QMap<QString, QString> Altri{{u"new"_s, u"parcella 0"_s},
                                       {u"openpar"_s, u"trova 0"_s},
                                       {u"openmod"_s, u"trova 1"_s},
                                       {u"setup"_s, u"setup 0"_s},
                                       {u"recupera"_s, u"setup 3"_s},
                                       {u"off"_s, u"fine"_s},
                                       {u"assistenza"_s, u"pagina assistenza.htm"_s}};
    for (const Comando& Riga : Comandi()) {
        const QString Parola = Riga.Parola.toString();
        if (ApreFinestra(Riga))
            Aperture.Finestre[Parola] = Annota(Parola);
        if (!Riga.Procedura)
            continue;
        Attese << Parola;
        if (const QString Evento = ApreFinestra(Riga) ? Parola : Altri.value(Parola); !Evento.isEmpty())
            Attesi << Evento;
    }
    Aperture.Impostazioni = [this](int Scheda, bool) { S->Annota(u"setup %1"_s.arg(Scheda)); };
    Aperture.PaginaWeb = [this](const QString& Pagina, const QString&) {
        S->Annota(u"pagina "_s + NomeFile(Pagina));
    };
    sessione::PercorsoProg = NuovaCartella();
    Box.Attendi(u"Documento "_s + sessione::PercorsoProg + u"GuidaOperativa.pdf non trovato!"_s);
    Cornice->ImpostaTag(u"5"_s);
    QStringList Parole;
    for (QAction* Azione : Cornice->actions()) {
        if (!Azione->objectName().startsWith(u"comando_"))
            continue;
        Parole << Azione->objectName().mid(8);
        Azione->trigger();
    }
    QCOMPARE(Parole, Attese + QStringList{u"tassi"_s});
    QCOMPARE(S->Eventi, Attesi);
}

void TestFrmMain::bassoNascondeIPulsanti()
{
    QVERIFY(Cornice->Area());
    QVERIFY(Cornice->findChild<QWidget*>(u"barParcelle_new"_s)->isVisible());
    Cornice->hide();
    sessione::ModoLow = true;
    QVERIFY(Cornice->Area());
    for (const QAction* Azione : Barra_()->actions())
        QVERIFY(!Azione->isVisible());
    QVERIFY2(!Barra_()->isVisible(), "an empty strip");
    for (const QAction* Azione : Cornice->actions())
        QVERIFY2(!Azione->isEnabled(), "its keys would do what the buttons may not");
}

void TestFrmMain::laFinestraAttivaDiventaIlBersaglio()
{
    QMdiArea* Area = Cornice->Area();
    QMdiSubWindow* Finestre[2];
    for (int i = 0; i < 2; ++i) {
        Finestre[i] = Area->addSubWindow(new QWidget);
        Finestre[i]->setProperty("Tag", QString::number(i + 1));
        Finestre[i]->show();
    }
    Area->setActiveSubWindow(Finestre[0]);
    QCOMPARE(Cornice->Tag(), u"1"_s);
    Area->setActiveSubWindow(Finestre[1]);
    QCOMPARE(Cornice->Tag(), u"2"_s);
    Area->setActiveSubWindow(nullptr);
    QCOMPARE(Cornice->Tag(), u"2"_s);
}

void TestFrmMain::ilTitoloNominaLaParcella()
{
    QMdiArea* Area = Cornice->Area();
    QMdiSubWindow* Finestre[2];
    for (int i = 0; i < 2; ++i) {
        Finestre[i] = Area->addSubWindow(new QWidget);
        Finestre[i]->widget()->setWindowTitle(u"nota %1"_s.arg(i));
        Finestre[i]->show();
    }
    Area->setActiveSubWindow(Finestre[0]);
    QCOMPARE(Cornice->windowTitle(), u"Calcanova 3 - [nota 0]"_s);
    Area->setActiveSubWindow(Finestre[1]);
    QCOMPARE(Cornice->windowTitle(), u"Calcanova 3 - [nota 1]"_s);
    Finestre[1]->showMaximized();
    Respiro();
    QCOMPARE(Cornice->windowTitle(), u"Calcanova 3 - [nota 1]"_s);
    Finestre[1]->widget()->setWindowTitle(u"rossi"_s);
    Respiro();
    QCOMPARE(Cornice->windowTitle(), u"Calcanova 3 - [rossi]"_s);
    Area->setActiveSubWindow(Finestre[0]);
    Respiro();
    QCOMPARE(Cornice->windowTitle(), u"Calcanova 3 - [nota 0]"_s);
    Finestre[0]->showNormal();
    Respiro();
    QCOMPARE(Cornice->windowTitle(), u"Calcanova 3 - [nota 0]"_s);
    Finestre[1]->widget()->setWindowTitle(u"altro"_s);
    Respiro();
    QVERIFY2(Cornice->windowTitle() == u"Calcanova 3 - [nota 0]", "di quella dietro non si dice nulla");
    Cornice->ScaricaInCoda();
    Respiro();
    QCOMPARE(Cornice->windowTitle(), u"Calcanova 3"_s);
}

void TestFrmMain::sfondo()
{
    QMdiArea* Area = Cornice->Area();
    Respiro();
    QImage Immagine(2, 1, QImage::Format_RGB32);
    Immagine.setPixelColor(0, 0, Qt::red);
    Immagine.setPixelColor(1, 0, Qt::blue);
    const auto AiLati = [&] {
        const QImage Vista = Area->grab().toImage();
        return std::pair{Vista.pixelColor(4, 50), Vista.pixelColor(Vista.width() - 5, 50)};
    };
    const QColor Nudo = AiLati().first;
    Cornice->BackImage(QPixmap::fromImage(Immagine));
    for (const QSize& Misura : {QSize(500, 400), QSize(700, 300)}) {
        Cornice->resize(Misura);
        Respiro();
        const auto [Sinistra, Destra] = AiLati();
        QVERIFY(Sinistra.red() > 200 && Sinistra.blue() < 60);
        QVERIFY(Destra.blue() > 200 && Destra.red() < 60);
    }
    Cornice->BackImage({});
    QCOMPARE(AiLati().first, Nudo);
}

void TestFrmMain::fondoSegueLaTavolozza()
{
    const QPalette Prima = QApplication::palette();
    const QMdiArea* Area = Cornice->Area();
    Respiro();
    QVERIFY(Area->background().color().lightness() > 128);
    // Only the roles that a dark theme must set.
    QPalette Scura = Prima;
    Scura.setColor(QPalette::Window, QColor(45, 45, 48));
    Scura.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(Scura);
    Respiro();
    const int Luce = Area->background().color().lightness();
    QApplication::setPalette(Prima);
    QVERIFY2(Luce < 45, qPrintable(QString::number(Luce)));
}

void TestFrmMain::schedaDellaGuida()
{
    Cornice->ShowGuida(u"art5.htm"_s);
    QCOMPARE(S->Eventi, QStringList());
    Aperture.PaginaWeb = [this](const QString& Pagina, const QString& Titolo) {
        S->Annota(Pagina + u'|' + Titolo);
    };
    Cornice->ShowGuida(u"art5.htm"_s);
    QCOMPARE(S->Eventi,
             QStringList{ProgrammaDiProva() + Barra(u"note"_s) + u"art5.htm|VDM - Guida giuridica"_s});
}

void TestFrmMain::ilModelloDiUnaParcellaIntatta_data()
{
    QTest::addColumn<bool>("Modificata");
    QTest::addColumn<bool>("Salvata");
    QTest::addColumn<QStringList>("Eventi");

    QTest::newRow("untouched, cancelled")
        << false << false << QStringList{u"segna 1"_s, u"salva 1 1"_s, u"segna 0"_s};
    QTest::newRow("untouched, saved") << false << true << QStringList{u"segna 1"_s, u"salva 1 1"_s};
    QTest::newRow("changed, cancelled") << true << false << QStringList{u"salva 1 1"_s};
    QTest::newRow("changed, saved") << true << true << QStringList{u"salva 1 1"_s};
}

void TestFrmMain::ilModelloDiUnaParcellaIntatta()
{
    QFETCH(bool, Modificata);
    QFETCH(bool, Salvata);
    const Registratore Box;
    Scena::ApriPosti(1);
    InfoParcelle[1].Modificata = Modificata;
    Aperture.SegnaModificata = [this](int Indice, bool Si) {
        S->Annota(u"segna %1"_s.arg(int(Si)));
        InfoParcelle[size_t(Indice)].Modificata = Si;
    };
    Aperture.SalvaParcella = [&](int Indice, bool ComeModello) {
        S->Annota(u"salva %1 %2"_s.arg(Indice).arg(int(ComeModello)));
        if (Salvata)
            InfoParcelle[size_t(Indice)].Modificata = false;
    };
    Cornice->ImpostaTag(u"1"_s);
    Cornice->findChild<QAction*>(u"menu_savemod"_s)->trigger();
    QTEST(S->Eventi, "Eventi");
    QCOMPARE(InfoParcelle[1].Modificata, Modificata && !Salvata);
}

void TestFrmMain::ilModelloSenzaParcelle()
{
    const Registratore Box;
    Aperture.SegnaModificata = [this](int, bool) { S->Annota(u"segna"_s); };
    Cornice->findChild<QAction*>(u"menu_savemod"_s)->trigger();
    Scena::ApriPosti(1);
    InfoParcelle[1].Libera = true;
    Cornice->ImpostaTag(u"1"_s);
    Cornice->findChild<QAction*>(u"menu_savemod"_s)->trigger();
    QCOMPARE(S->Eventi, QStringList());
}

#include "TestFrmMain.moc"
