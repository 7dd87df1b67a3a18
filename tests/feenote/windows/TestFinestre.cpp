// Windows of notes in their frame: places, captions, pairs, the focus.
#include "cornice.h"

using namespace Qt::StringLiterals;

class TestFinestre : public QObject, private BancoCornice
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void laPrimaIntattaSiRiusa();
    void laPrimaToccataNo();
    void conDueSeNeApreSempreUna();
    void ilPostoLiberatoTieneIlNumero();
    void titoloConLaPratica();
    void ilTagPrimaDiMostrarsi();
    void laChiusuraDalSistema();
    void chiusaERiapertaNellaCornice();
    void coppiaCollegata();
    void compagnaInesistente_data();
    void compagnaInesistente();
    void chiudendoLaPrincipaleVaLaCompagna();
    void chiudendoLaCompagnaRestaLaPrincipale();
    void laCompagnaRifiutaEAllora();
    void dallaTerzaSchedaAllaCompagna();
    void ilPostoRiusatoScioglieLaCoppia();
    void lUltimaChiama();
    void ilSocioEAvvisato();
    void laCorniceChiusaMentreSiChiede();
    void chiusaUnaTornaLAltra_data();
    void chiusaUnaTornaLAltra();
    void chiusaQuellaDietroNonCambiaNulla();
    void chiSiChiedeStaDavanti();
    void ilFuocoNelPrimoTestoVuoto_data();
    void ilFuocoNelPrimoTestoVuoto();
    void riusataCominciaDaCapo();
    void ilTastoPortaInVistaIlCampo();
    void riempitaPrimaDiMostrarsi();
};
PROVA(TestFinestre);

void TestFinestre::laPrimaIntattaSiRiusa()
{
    ApriParcella({}, 0, {});
    ApriParcella({}, 0, {});
    QCOMPARE(UltimaParcella(), 1);
    QCOMPARE(Parcelle(1)->windowTitle(), u"Nuova parcella"_s);
}

void TestFinestre::laPrimaToccataNo()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    QCOMPARE(UltimaParcella(), 2);
    QCOMPARE(Parcelle(2)->windowTitle(), u"Nuova parcella:2"_s);
    QCOMPARE(InfoParcelle[2].Nome, u"Nuova parcella:2"_s);
}

void TestFinestre::conDueSeNeApreSempreUna()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(false);
    ApriParcella({}, 0, {});
    QCOMPARE(UltimaParcella(), 3);
    QCOMPARE(Parcelle(3)->windowTitle(), u"Nuova parcella:3"_s);
}

void TestFinestre::ilPostoLiberatoTieneIlNumero()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    QVERIFY(ChiudiParcella(2));
    ApriParcella({}, 0, {});
    QCOMPARE(UltimaParcella(), 2);
    QCOMPARE(Parcelle(2)->windowTitle(), u"Nuova parcella:2"_s);
}

void TestFinestre::titoloConLaPratica()
{
    sessione::RichiestaPV2.ID = u"AB12"_s;
    ApriParcella({}, 0, u"AB12"_s);
    QCOMPARE(Parcelle(1)->windowTitle(), u"[AB12] Nuova parcella"_s);
    QCOMPARE(InfoParcelle[1].Nome, u"Nuova parcella"_s);
    QVERIFY(Controllo(Parcelle(1), "lblRif_0")->isVisible());
    QCOMPARE(Controllo<QLabel>(Parcelle(1), "lblRif_1")->text(), u"AB12"_s);
}

void TestFinestre::ilTagPrimaDiMostrarsi()
{
    QStringList Visti;
    QObject::connect(Area, &QMdiArea::subWindowActivated, this, [&](const QMdiSubWindow* Quale) {
        if (Quale)
            Visti.append(Quale->property("Tag").toString());
    });
    QList<int> Attivate;
    Aperture.ParcellaAttivata = [&](int Indice) { Attivate.append(Indice); };
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    QCOMPARE(Attivate, (QList{1, 2}));
    QVERIFY(!Visti.isEmpty());
    QVERIFY2(!Visti.contains(QString()), "nessuna attivazione senza indice");
    QCOMPARE(Visti.last(), u"2"_s);
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::laChiusuraDalSistema()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbCancel);
    Sotto(1)->close();
    QVERIFY(Sotto(1)->isVisible() && Parcelle(1)->isVisible());
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbNo);
    Sotto(1)->close();
    QVERIFY(!Sotto(1)->isVisible());
    QVERIFY(InfoParcelle[1].Libera);
}

void TestFinestre::chiusaERiapertaNellaCornice()
{
    ApriParcella({}, 0, {});
    frmParcelle* Prima = Parcelle(1);
    Sotto(1)->close();
    Respiro();
    ApriParcella({}, 0, {});
    QCOMPARE(Parcelle(1), Prima);
    QVERIFY(Sotto(1)->isVisible() && Prima->isVisible());
    QCOMPARE(Sotto(1)->size(), QSize(853, 587));
}

void TestFinestre::coppiaCollegata()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    QCOMPARE(Parcelle(2)->Socio(), 1);
    QCOMPARE(Parcelle(1)->Socio(), 2);
    QVERIFY(!Parcelle(2)->HaStampa());
    QVERIFY(Parcelle(1)->HaStampa());
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::compagnaInesistente_data()
{
    QTest::addColumn<int>("Socio");
    QTest::newRow("se stessa") << 1;
    QTest::newRow("mai aperta") << 7;
    QTest::newRow("negativa") << -1;
}

void TestFinestre::compagnaInesistente()
{
    QFETCH(int, Socio);
    ApriParcella({}, Socio, {});
    QCOMPARE(Parcelle(1)->Socio(), 0);
    QVERIFY(Parcelle(1)->HaStampa());
}

void TestFinestre::chiudendoLaPrincipaleVaLaCompagna()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    Parcelle(1)->SetModificata(false);
    int Ultime = 0;
    Aperture.UltimaParcellaChiusa = [&] { ++Ultime; };
    QVERIFY(ChiudiParcella(1));
    QVERIFY(InfoParcelle[1].Libera && InfoParcelle[2].Libera);
    QCOMPARE(Ultime, 1);
}

void TestFinestre::chiudendoLaCompagnaRestaLaPrincipale()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    QVERIFY(ChiudiParcella(2));
    QVERIFY(!InfoParcelle[1].Libera && InfoParcelle[2].Libera);
    QCOMPARE(Parcelle(1)->Socio(), 0);
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::laCompagnaRifiutaEAllora()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    Parcelle(2)->SetModificata(true);
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbNo);
    T->Voce.Attendi(u"Nuova parcella:2\nVuoi salvare la parcella prima di chiudere?"_s, vbCancel);
    QVERIFY(!ChiudiParcella(1));
    QVERIFY2(!InfoParcelle[1].Libera && !InfoParcelle[2].Libera, "nessuna delle due se ne va");
    QCOMPARE(Parcelle(1)->Socio(), 2);
    Parcelle(1)->SetModificata(false);
    Parcelle(2)->SetModificata(false);
}

void TestFinestre::dallaTerzaSchedaAllaCompagna()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    CompilaCivile(Parcelle(2));
    ClicScheda(Parcelle(2), SchedaImposte);
    QCOMPARE(Parcelle(2)->Scheda(), int(SchedaImposte));
    Clic(Controllo(Parcelle(2), "imgNext"));
    QCOMPARE(Area->activeSubWindow(), Sotto(1));
    QCOMPARE(Parcelle(2)->Scheda(), int(SchedaImposte));
    for (const int i : {1, 2})
        Parcelle(i)->SetModificata(false);
}

void TestFinestre::ilPostoRiusatoScioglieLaCoppia()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    QVERIFY(ChiudiParcella(2));
    ApriParcella({}, 0, {});
    QCOMPARE(Parcelle(2)->Socio(), 0);
    QVERIFY2(Parcelle(2)->HaStampa(), "la stampa torna");
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::lUltimaChiama()
{
    int Ultime = 0;
    Aperture.UltimaParcellaChiusa = [&] { ++Ultime; };
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    QVERIFY(ChiudiParcella(2));
    QCOMPARE(Ultime, 0);
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Ultime, 1);
}

void TestFinestre::ilSocioEAvvisato()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    Parcelle(1)->Nota.txtParcMultipla = u"compagna"_s;
    const auto* Onorari = Controllo<QLabel>(Parcelle(1), "lblOnora");
    QCOMPARE(Onorari->text(), u"Onor.: 0"_s);
    RigaOnorario(Parcelle(2)->Nota, u"Studio"_s, 1234);
    Scrivi(Controllo<QLineEdit>(Parcelle(2), "txtCliente"), u"Rossi"_s);
    QCOMPARE(Onorari->text(), u"Onor.: 1.234,00"_s);
    for (const int i : {1, 2})
        Parcelle(i)->SetModificata(false);
}

void TestFinestre::laCorniceChiusaMentreSiChiede()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    Messaggi Suoi;
    int Mostrati = 0;
    Suoi.Box = [&](const QString&, int, const QString&) {
        ++Mostrati;
        Area->closeAllSubWindows();
        return vbCancel;
    };
    const Messaggi Prima = InstallaMessaggi(Suoi);
    QVERIFY(!ChiudiParcella(1));
    InstallaMessaggi(Prima);
    QCOMPARE(Mostrati, 1);
    QVERIFY(Sotto(1)->isVisible() && Parcelle(1)->isVisible() && Parcelle(1)->Nota.Modificata);
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::chiusaUnaTornaLAltra_data()
{
    QTest::addColumn<int>("Chiusa");
    QTest::addColumn<bool>("DallaCroce");
    QTest::addColumn<bool>("InUnCampo");
    for (const int Chiusa : {1, 2})
        for (const bool DallaCroce : {true, false})
            for (const bool InUnCampo : {true, false})
                QTest::addRow("la %d, %s, %s", Chiusa, DallaCroce ? "dalla croce" : "dal comando",
                              InUnCampo ? "con un campo" : "senza campo")
                    << Chiusa << DallaCroce << InUnCampo;
}

void TestFinestre::chiusaUnaTornaLAltra()
{
    QFETCH(int, Chiusa);
    QFETCH(bool, DallaCroce);
    QFETCH(bool, InUnCampo);
    QList<int> Bersagli;
    Aperture.ParcellaAttivata = [&](int Indice) { Bersagli.append(Indice); };
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    const int Rimasta = 3 - Chiusa;
    Parcelle(Rimasta)->SetModificata(true);
    Parcelle(Chiusa)->SetModificata(false);
    AttivaParcella(Chiusa);
    QVERIFY(Cornice->isActiveWindow());
    if (InUnCampo)
        Controllo(Parcelle(Chiusa), "txtOggetto")->setFocus();
    else if (QWidget* Campo = QApplication::focusWidget())
        Campo->clearFocus();
    if (DallaCroce)
        Sotto(Chiusa)->close();
    else
        QVERIFY(ChiudiParcella(Chiusa));
    Respiro();
    QVERIFY(!Sotto(Chiusa)->isVisible());
    QCOMPARE(Area->activeSubWindow(), Sotto(Rimasta));
    QCOMPARE(Bersagli.last(), Rimasta);
    QVERIFY2(QApplication::focusWidget() && Parcelle(Rimasta)->isAncestorOf(QApplication::focusWidget()),
             "i tasti vanno alla parcella che si vede");
    Parcelle(Rimasta)->SetModificata(false);
}

void TestFinestre::chiusaQuellaDietroNonCambiaNulla()
{
    for (int i = 1; i <= 3; ++i) {
        ApriParcella({}, 0, {});
        Parcelle(i)->SetModificata(true);
    }
    Controllo(Parcelle(3), "txtControp")->setFocus();
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    Respiro();
    QCOMPARE(Area->activeSubWindow(), Sotto(3));
    QCOMPARE(QApplication::focusWidget(), Controllo(Parcelle(3), "txtControp"));
    // The one that was in front before it, not the next place.
    AttivaParcella(2);
    ApriParcella({}, 0, {});  // in place 1
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Area->activeSubWindow(), Sotto(2));
    for (const int i : {2, 3})
        Parcelle(i)->SetModificata(false);
}

void TestFinestre::chiSiChiedeStaDavanti()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    QCOMPARE(Area->activeSubWindow(), Sotto(2));
    QMdiSubWindow* Davanti = nullptr;
    Messaggi Suoi;
    Suoi.Box = [&](const QString&, int, const QString&) {
        Davanti = Area->activeSubWindow();
        return vbCancel;
    };
    const Messaggi Prima = InstallaMessaggi(Suoi);
    QVERIFY(!ChiudiParcella(1));
    InstallaMessaggi(Prima);
    QCOMPARE(Davanti, Sotto(1));
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::ilFuocoNelPrimoTestoVuoto_data()
{
    QTest::addColumn<QString>("Cliente");
    QTest::addColumn<QString>("Controparte");
    QTest::addColumn<QString>("Oggetto");
    QTest::addColumn<QString>("Campo");
    QTest::newRow("nuova") << u""_s << u""_s << u""_s << u"txtCliente"_s;
    QTest::newRow("col cliente") << u"Rossi"_s << u""_s << u""_s << u"txtControp"_s;
    QTest::newRow("manca l'oggetto") << u"Rossi"_s << u"Bianchi"_s << u""_s << u"txtOggetto"_s;
    QTest::newRow("completa") << u"Rossi"_s << u"Bianchi"_s << u"appalto"_s << u"txtCliente"_s;
}

void TestFinestre::ilFuocoNelPrimoTestoVuoto()
{
    QFETCH(QString, Cliente);
    QFETCH(QString, Controparte);
    QFETCH(QString, Oggetto);
    QFETCH(QString, Campo);
    QString File;
    if (!Cliente.isEmpty()) {
        Parcella Nota;
        NuovaParcella(Nota);
        Nota.txtCliente.Testo = Cliente;
        Nota.txtControp.Testo = Controparte;
        Nota.txtOggetto.Testo = Oggetto;
        File = T->Ufficio.File(u"rossi.mdb"_s);
        ScriviNota(File, Nota);
    }
    ApriParcella(File, 0, {});
    QVERIFY(QApplication::focusWidget());
    QCOMPARE(QApplication::focusWidget()->objectName(), Campo);
    QVERIFY(Parcelle(1)->isAncestorOf(QApplication::focusWidget()));
    Digita(u"xyz"_s);
    QVERIFY(Controllo<QLineEdit>(Parcelle(1), qPrintable(Campo))->text().contains(u"xyz"_s));
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::riusataCominciaDaCapo()
{
    Cornice->resize(910, 300);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    QScrollArea* Scorre = nullptr;
    for (QWidget* Padre = Controllo(Parcelle(1), "txtCliente"); Padre && !Scorre;
         Padre = Padre->parentWidget())
        Scorre = qobject_cast<QScrollArea*>(Padre);
    QVERIFY(Scorre);
    Scorre->verticalScrollBar()->setValue(Scorre->verticalScrollBar()->maximum());
    QVERIFY(Scorre->verticalScrollBar()->value() > 0);
    Controllo(Parcelle(1), "txtOggetto")->setFocus();
    QVERIFY(ChiudiParcella(1));
    ApriParcella({}, 0, {});
    Respiro();
    QCOMPARE(Scorre->verticalScrollBar()->value(), 0);
    QCOMPARE(QApplication::focusWidget(), Controllo(Parcelle(1), "txtCliente"));
}

void TestFinestre::ilTastoPortaInVistaIlCampo()
{
    Cornice->resize(910, 300);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    QWidget* Ultima = Controllo(Parcelle(1), "optAumRid_10");
    QVERIFY2(Ultima->visibleRegion().isEmpty(), "sta sotto");
    Ultima->setFocus(Qt::ShortcutFocusReason);
    QCOMPARE(QApplication::focusWidget(), Ultima);
    QCOMPARE(QRegion(Ultima->rect()), Ultima->visibleRegion());
}

void TestFinestre::riempitaPrimaDiMostrarsi()
{
    // What is said while a file is read lies over no unfinished window, and leaves no note named as the file.
    const QString File = T->Ufficio.File(u"rotta.mdb"_s);
    ScriviFile(File, "rumore");
    QStringList Detti;
    bool InVista = false;
    Messaggi Suoi;
    Suoi.Box = [&](const QString& Testo, int, const QString&) {
        Detti << Testo;
        InVista = InVista || (Parcelle(1) && Parcelle(1)->isVisible());
        return vbOK;
    };
    const Messaggi Prima = InstallaMessaggi(Suoi);
    ApriParcella(File, 0, {});
    InstallaMessaggi(Prima);
    QCOMPARE(Detti, QStringList{u"Errore: rotta.mdb non è una parcella di Calcanova (3343)"_s});
    QVERIFY(!InVista);
    QVERIFY(Parcelle(1)->isVisible() && Parcelle(1)->Nota.Percorso.isEmpty());
    QCOMPARE(Parcelle(1)->windowTitle(), u"Nuova parcella"_s);
    QCOMPARE(InfoParcelle[1].Nome, u"rotta"_s);
    // Untouched, it is the one that the next note takes.
    ApriParcella({}, 0, {});
    QCOMPARE(UltimaParcella(), 1);
}

#include "TestFinestre.moc"
