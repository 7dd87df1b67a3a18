// The frame of the notes as a window: how large it is, and how it closes.
#include "bancocornice.h"

class TestFrmMainChiusura : public QObject, private BancoCornice
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void massimaLaRiempieLaParcella();
    void misure_data();
    void misure();
    void misureSalvate();
    void loSchermoPiccoloNonSiRicorda();
    void ridottaTornaInVista();
    void chiusuraChiedeAOgnunaEUnNoLaFerma();
    void chiusuraPortaAllaScrivania();
    void chiusuraSenzaParcelle();
    void chiusuraDiUnaPratica();
    void ultimaInModoBasso();
    void comandiSenzaLavoro();
    void ctrlQ_data();
    void ctrlQ();
    void nuovaParcellaPrimaDelloScarico();
};
PROVA(TestFrmMainChiusura);

void TestFrmMainChiusura::massimaLaRiempieLaParcella()
{
    auto* Area = Cornice->findChild<QMdiArea*>(u"areaParcelle"_s);
    QMdiSubWindow* Nota = Area->addSubWindow(new QWidget);
    Cornice->show();
    Nota->show();
    Nota->resize(300, 200);
    QVERIFY(!Nota->isMaximized());
    Cornice->showMaximized();
    Respiro();
    QVERIFY(Nota->isMaximized());
    QVERIFY2(Area->property(RiempionoLaCornice).toBool(), "it is nobody's choice of the note's own state");
    // What the user makes small in a large frame stays so.
    Nota->showNormal();
    Cornice->showMinimized();
    Cornice->showMaximized();
    Respiro();
    QVERIFY(!Nota->isMaximized());
    delete Nota;
}

void TestFrmMainChiusura::misure_data()
{
    QTest::addColumn<QString>("LarghezzaTwip");
    QTest::addColumn<QString>("AltezzaTwip");
    QTest::addColumn<QSize>("Attesa");

    const QSize Schermo = QGuiApplication::primaryScreen()->availableSize();
    QTest::newRow("stored") << u"9000"_s << u"6000"_s << QSize(600, 400);
    QTest::newRow("larger than the screen") << u"900000"_s << u"6000"_s << QSize(Schermo.width(), 400);
    QTest::newRow("no numbers") << u"largo"_s << u""_s << QSize(893, 707).boundedTo(Schermo);
    QTest::newRow("not positive") << u"0"_s << u"-15"_s << QSize(893, 707).boundedTo(Schermo);
}

void TestFrmMainChiusura::misure()
{
    QFETCH(QString, LarghezzaTwip);
    QFETCH(QString, AltezzaTwip);
    Scena::Salva(u"MainWidth"_s, LarghezzaTwip);
    Scena::Salva(u"MainHeight"_s, AltezzaTwip);
    QVERIFY(Cornice->Area());
    QTEST(Cornice->size(), "Attesa");
    QVERIFY(Cornice->screen()->availableGeometry().contains(Cornice->geometry()));
}

void TestFrmMainChiusura::loSchermoPiccoloNonSiRicorda()
{
    Scena::Salva(u"MainWidth"_s, u"900000"_s);
    Scena::Salva(u"MainHeight"_s, u"6000"_s);
    QVERIFY(Cornice->Area());
    Cornice->SalvaMisure();
    QCOMPARE(Scena::Parametro(u"MainWidth"_s), u"900000"_s);
    QCOMPARE(Scena::Parametro(u"MainHeight"_s), u"6000"_s);
    Cornice->resize(Cornice->width(), 450);
    Cornice->SalvaMisure();
    QCOMPARE(Scena::Parametro(u"MainWidth"_s), u"900000"_s);
    QCOMPARE(Scena::Parametro(u"MainHeight"_s), u"6750"_s);
}

void TestFrmMainChiusura::misureSalvate()
{
    QVERIFY(Cornice->Area());
    Cornice->resize(620, 410);
    Cornice->SalvaMisure();
    QCOMPARE(Scena::Parametro(u"MainWidth"_s), u"9300"_s);
    QCOMPARE(Scena::Parametro(u"MainHeight"_s), u"6150"_s);
    Cornice->showMaximized();
    Cornice->SalvaMisure();
    QCOMPARE(Scena::Parametro(u"MainWidth"_s), u"9300"_s);
}

void TestFrmMainChiusura::ridottaTornaInVista()
{
    QVERIFY(Cornice->Area());
    Cornice->resize(600, 400);
    Cornice->showMinimized();
    QVERIFY(Cornice->Area());
    QVERIFY(!Cornice->isMinimized());
    QCOMPARE(Cornice->size(), QSize(600, 400));
    Cornice->showMaximized();
    Cornice->showMinimized();
    QVERIFY(Cornice->Area());
    QVERIFY2(Cornice->isMaximized(), "as it was before");
}

void TestFrmMainChiusura::chiusuraChiedeAOgnunaEUnNoLaFerma()
{
    const Registratore Box;
    Scena::ApriPosti(4);
    InfoParcelle[2].Libera = true;
    QVERIFY(Cornice->Area());
    RegistraChiusure({true, false});
    Cornice->close();
    Respiro();
    QCOMPARE(S->Eventi, (QStringList{u"chiudi 1"_s, u"chiudi 3"_s}));
    QVERIFY(Cornice->isVisible());
    QVERIFY(!SeCaricato<frmStudio>);
}

void TestFrmMainChiusura::chiusuraPortaAllaScrivania()
{
    const Registratore Box;
    Scena::ApriPosti(2);
    QVERIFY(Cornice->Area());
    Cornice->resize(600, 400);
    Cornice->ImpostaTag(u"2"_s);
    RegistraChiusure({true, true});
    Cornice->close();
    QVERIFY2(Cornice->isVisible(), "still closing its child");
    QTRY_VERIFY(!Cornice->isVisible());
    QVERIFY(SeCaricato<frmStudio>->isVisible());
    QCOMPARE(Cornice->Tag(), QString());
    QCOMPARE(S->Eventi, (QStringList{u"chiudi 1"_s, u"chiudi 2"_s}));
    QCOMPARE(Scena::Parametro(u"MainWidth"_s), u"9000"_s);
    QCOMPARE(Scena::Parametro(u"MainHeight"_s), u"6000"_s);
}

void TestFrmMainChiusura::chiusuraSenzaParcelle()
{
    const Registratore Box;
    QVERIFY(Cornice->Area());
    Cornice->close();
    QTRY_VERIFY(!Cornice->isVisible());
    QVERIFY(SeCaricato<frmStudio>->isVisible());
}

void TestFrmMainChiusura::chiusuraDiUnaPratica()
{
    const Registratore Box;
    Scena::ApriPosti(2);
    QVERIFY(Cornice->Area());
    sessione::RichiestaPV2.ID = u"P1"_s;
    RegistraChiusure({true, true});
    Cornice->close();
    QCOMPARE(S->Eventi, QStringList{u"chiudi 1"_s});
}

void TestFrmMainChiusura::ultimaInModoBasso()
{
    const Registratore Box;
    sessione::ModoLow = true;
    QVERIFY(Cornice->Area());
    Cornice->resize(600, 400);
    DopoUltimaParcella();
    Respiro();
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QCOMPARE(Scena::Parametro(u"MainWidth"_s), u"9000"_s);
    QVERIFY(!SeCaricato<frmStudio>);
}

void TestFrmMainChiusura::nuovaParcellaPrimaDelloScarico()
{
    const Registratore Box;
    QVERIFY(Cornice->Area());
    DopoUltimaParcella();
    Scena::ApriPosti(1);
    Respiro();
    QVERIFY(Cornice->isVisible());
}

void TestFrmMainChiusura::comandiSenzaLavoro()
{
    const Registratore Box;
    Aperture.Finestre.erase(u"clienti"_s);
    Aperture.Finestre.erase(u"about"_s);
    sessione::PercorsoProg = NuovaCartella();  // no pages and no guide
    QVERIFY(Cornice->Area());
    const auto* Rubrica = Cornice->findChild<QToolButton*>(u"barParcelle_clienti"_s);
    QVERIFY(!Rubrica->isEnabled());
    QCOMPARE(Rubrica->toolTip(),
             u"Rubrica clienti e controparti: non ancora disponibile in questa versione"_s);
    for (const QString& Nome : {u"menu_about"_s, u"menu_assistenza"_s, u"comando_clienti"_s,
                                u"comando_about"_s, u"comando_assistenza"_s})
        QVERIFY2(!Cornice->findChild<QAction*>(Nome)->isEnabled(), qPrintable(Nome));
    for (const QString& Nome : {u"menu_help"_s, u"menu_savemod"_s, u"comando_termini"_s, u"tastiUscita"_s})
        QVERIFY2(Cornice->findChild<QAction*>(Nome)->isEnabled(), qPrintable(Nome));
    // The window is there: its controls come alive with the next use of the frame.
    Aperture.Finestre[u"clienti"_s] = [] {};
    Cornice->hide();
    QVERIFY(Cornice->Area());
    QVERIFY(Rubrica->isEnabled());
    QCOMPARE(Rubrica->toolTip(), u"Rubrica clienti e controparti"_s);
}

void TestFrmMainChiusura::ctrlQ_data()
{
    QTest::addColumn<QList<bool>>("Risposte");
    QTest::addColumn<QStringList>("Eventi");

    QTest::newRow("granted") << QList<bool>{true, true}
                             << QStringList{u"chiudi 1"_s, u"chiudi 2"_s, u"fine"_s};
    QTest::newRow("cancelled") << QList<bool>{true, false} << QStringList{u"chiudi 1"_s, u"chiudi 2"_s};
}

void TestFrmMainChiusura::ctrlQ()
{
    QFETCH(QList<bool>, Risposte);
    const Registratore Box;
    Scena::ApriPosti(2);
    QVERIFY(Cornice->Area());
    QVERIFY(MostraAttiva(*Cornice));
    RegistraChiusure(Risposte);
    QTest::keyClick(Cornice, Qt::Key_Q, Qt::ControlModifier);
    QTEST(S->Eventi, "Eventi");
}

#include "TestFrmMainChiusura.moc"
