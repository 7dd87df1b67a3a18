// The window of interest: boxes, messages, grid, calendar, clipboard.
#include "interessi.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int ColTasso = 2;

constexpr int ColGiorni = 3;

constexpr int ColInteresse = 4;

}  // namespace

class TestFrmInteressi : public QObject, private BancoInteressi
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void comeSiApre();
    void didascalie();
    void tastieraDaCimaAFondo();
    void unPeriodo();
    void duePeriodi();
    void finePrimaDellInizio();
    void messaggiDelControllo_data();
    void messaggiDelControllo();
    void finoAlNovemilanovecentonovantanove();
    void confiniAmmessi_data();
    void confiniAmmessi();
    void unPuntoDopoIl2012();
    void ogniCambioPulisce_data();
    void ogniCambioPulisce();
    void diMoraMostraAltro();
    void nuovoCalcolo();
    void dateSenzaSeparatori();
    void virgolaDelTastierino();
    void ilCapitaleSiLeggeCoiPunti();
    void copie();
    void nienteDaCopiare();
    void lire();
    void tassiIncolonnati();
    void calendario();
    void escNelCalendario();
    void avvertenze();
    void accessibile();
    void ricordaIlPosto();
};
PROVA(TestFrmInteressi);

void TestFrmInteressi::comeSiApre()
{
    QCOMPARE(F->windowTitle(), u"Calcolo interessi"_s);
    const auto* Tipo = Controllo<QComboBox>(F, "cmbInteressi");
    QCOMPARE(Tipo->currentIndex(), 0);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(Tipo->itemText(i), VociInteressi[size_t(i)].toString());
        QCOMPARE(Controllo<QComboBox>(F, "cmbValuta")->itemText(i), VociValuta[size_t(i)].toString());
    }
    QCOMPARE(Controllo<QComboBox>(F, "cmbValuta")->currentText(), u"Euro"_s);
    QCOMPARE(TestoDi(F, "mskDataIni"), u"__/__/____"_s);
    QCOMPARE(TestoDi(F, "mskDataFin"), u"21/11/2026"_s);
    const QString Giorno = QFileInfo(B->Tassi()).lastModified().toString(u"dd/MM/yyyy"_s);
    QCOMPARE(TestoDi(F, "barInter_1"), u" Archivio interessi aggiornato al "_s + Giorno);
    QCOMPARE(Grid()->TestoPie(ColGiorni), u"Totale in euro "_s);
    QCOMPARE(Grid()->TestoPie(ColInteresse), QString());
    QCOMPARE(Grid()->Vista()->model()->headerData(ColGiorni, Qt::Horizontal).toString(), u"N° Giorni"_s);
    QVERIFY(!Controllo(F, "fraDati1")->isVisible());
    QVERIFY(!Controllo(F, "cmdAvvIntMora")->isVisible());
    QVERIFY(!Controllo(F, "Calendario")->isVisible());
    QVERIFY(Controllo<QRadioButton>(F, "optDataFine_0")->isChecked());
    QCOMPARE(NomeFuoco(), u"cmbInteressi"_s);
}

void TestFrmInteressi::didascalie()
{
    const QStringList Attese{u"Tipo interessi:"_s,
                             u"Capitale:"_s,
                             u"Aumento:"_s,
                             u"%"_s,
                             u"Dalla data:"_s,
                             u"Alla data:"_s,
                             u"Transazione conclusa:"_s,
                             u"entro il 31/12/2012"_s,
                             u"dopo il 31/12/2012"_s,
                             u"Avvertenze"_s,
                             u"Riepilogo interessi"_s,
                             u"Nuovo calcolo"_s};
    QCOMPARE(SenzaDidascalia(F, Attese).join(u" | "_s), QString());
    QCOMPARE(Controllo(F, "cmdCalcola")->toolTip(), u"Calcola interessi"_s);
    for (const char* Nome : {"cmdCalend_0", "cmdCalend_1"})
        QCOMPARE(Controllo(F, Nome)->toolTip(), u"Osserva la scadenza sul calendario"_s);
    const QAbstractItemModel* Tabella = Grid()->Vista()->model();
    const QStringList Titoli{u"Dal giorno"_s, u"Al giorno"_s, u"Tasso"_s, u"N° Giorni"_s, u"Interessi"_s};
    for (int i = 0; i < Titoli.size(); ++i)
        QCOMPARE(Tabella->headerData(i, Qt::Horizontal).toString(), Titoli[i]);
    const auto* Tipo = Controllo<QComboBox>(F, "cmbInteressi");
    QCOMPARE(Tipo->itemText(0), u"Legali, art. 1284 cc"_s);
    QCOMPARE(Tipo->itemText(1), u"Di mora, art. 5 D.lgs. 231/02"_s);
}

void TestFrmInteressi::tastieraDaCimaAFondo()
{
    for (const auto& [Nome, Testo] : {std::pair{u"cmbInteressi"_s, QString()},
                                      {u"txtCapitale"_s, u"1000"_s},
                                      {u"cmbValuta"_s, QString()},
                                      {u"txtAumento"_s, QString()},
                                      {u"mskDataIni"_s, u"010112"_s},
                                      {u"mskDataFin"_s, u"31/12/12"_s}}) {
        QCOMPARE(NomeFuoco(), Nome);
        Digita(Testo);
        Premi(Qt::Key_Return);
    }
    QCOMPARE(TestoDi(F, "mskDataIni"), u"01/01/2012"_s);
    QCOMPARE(TestoDi(F, "lblTotale"), u"25,07"_s);
    CopiaConTasti();
    QCOMPARE(Appunti(), u"25,07"_s);
}

void TestFrmInteressi::unPeriodo()
{
    Compila(u"1000"_s, u"01/01/2012"_s, u"31/12/2012"_s);
    Calcola();
    QCOMPARE(Grid()->Righe(), 1);
    const QStringList Attese{u"01/01/2012"_s, u"31/12/2012"_s, u"2,5"_s, u"366"_s, u"25,07"_s};
    for (int i = 0; i < Attese.size(); ++i)
        QCOMPARE(Cella(0, i), Attese[i]);
    QCOMPARE(Grid()->TestoPie(ColInteresse), u"25,07"_s);
    QCOMPARE(Controllo(F, "lblTotale")->accessibleName(), u"Totale interessi, in euro 25,07"_s);
}

void TestFrmInteressi::duePeriodi()
{
    Compila(u"10.000"_s, u"01/01/2013"_s, u"31/12/2014"_s);
    Calcola();
    QCOMPARE(Grid()->Righe(), 2);
    QCOMPARE(Cella(0, 1), u"31/12/2013"_s);
    QCOMPARE(Cella(1, 0), u"01/01/2014"_s);
    QCOMPARE(Grid()->TestoPie(ColInteresse), u"350,00"_s);
}

void TestFrmInteressi::finePrimaDellInizio()
{
    Compila(u"1000"_s, u"01/01/2013"_s, u"31/12/2012"_s);
    Calcola();
    QCOMPARE(Grid()->Righe(), 0);
    QCOMPARE(Grid()->TestoPie(ColInteresse), u"0,00"_s);
}

void TestFrmInteressi::messaggiDelControllo_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Capitale");
    QTest::addColumn<QString>("Dal");
    QTest::addColumn<QString>("Al");
    QTest::addColumn<bool>("Dopo");
    QTest::addColumn<QString>("Messaggio");
    QTest::addColumn<QString>("Fuoco");
    const auto Buona = u"01/01/2012"_s;
    QTest::newRow("capitale vuoto") << 0 << QString() << Buona << Buona << false
                                    << u"Non è stato specificato l'importo del capitale"_s
                                    << u"txtCapitale"_s;
    QTest::newRow("mora troppo presto")
        << 1 << u"1"_s << u"08/08/2002"_s << Buona << false
        << u"Per il tasso di mora, non sono ammesse date antecedenti al 9 agosto 2002"_s << u"mskDataIni"_s;
    QTest::newRow("legali troppo presto")
        << 0 << u"1"_s << u"31/12/1956"_s << Buona << false
        << u"Per il tasso legale, non sono ammesse date antecedenti al 1° gennaio 1957"_s << u"mskDataIni"_s;
    QTest::newRow("inizio che non esiste") << 0 << u"1"_s << u"31/02/2012"_s << Buona << false
                                           << u"La data iniziale non è valida"_s << u"mskDataIni"_s;
    QTest::newRow("zero") << 0 << u"1"_s << u"00/00/0000"_s << Buona << false
                          << u"La data iniziale non è valida"_s << u"mskDataIni"_s;
    QTest::newRow("inizio nell'anno 1") << 0 << u"1"_s << u"01/01/0001"_s << Buona << false
                                        << u"La data iniziale non è valida"_s << u"mskDataIni"_s;
    QTest::newRow("fine vuota, vince sul capitale vuoto")
        << 0 << QString() << Buona << QString() << false << u"La data finale non è valida"_s
        << u"mskDataFin"_s;
    QTest::newRow("dopo il 2012, vince sulla fine vuota")
        << 1 << u"1"_s << u"31/12/2012"_s << QString() << true
        << u"La data iniziale non può essere antecedente al 01/01/2013!"_s << u"mskDataIni"_s;
}

void TestFrmInteressi::messaggiDelControllo()
{
    QFETCH(int, Tipo);
    QFETCH(QString, Capitale);
    QFETCH(QString, Dal);
    QFETCH(QString, Al);
    QFETCH(bool, Dopo);
    QFETCH(QString, Messaggio);
    QFETCH(QString, Fuoco);
    Scegli(F, "cmbInteressi", Tipo);
    Controllo<QRadioButton>(F, "optDataFine_1")->setChecked(Dopo);
    Compila(Capitale, Dal, Al);
    B->Voce.Attendi(Messaggio, vbOK, u"Errore:"_s);
    Calcola();
    Respiro();
    QCOMPARE(B->Voce.Ultimo().Bandiere, vbCritical);
    QCOMPARE(NomeFuoco(), Fuoco);
    // The form goes on.
    Controllo<QRadioButton>(F, "optDataFine_0")->setChecked(true);
    Scegli(F, "cmbInteressi", 0);
    Compila(u"1000"_s, u"01/01/2012"_s, u"31/12/2012"_s);
    Calcola();
    QCOMPARE(TestoDi(F, "lblTotale"), u"25,07"_s);
}

// The last rate is kept to the end of the calendar, and the form goes on.
void TestFrmInteressi::finoAlNovemilanovecentonovantanove()
{
    Sostituisci(ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2012, 12, 31), 5.0}}));
    Compila(u"36500"_s, u"01/01/2012"_s, u"31/12/9999"_s);
    B->Voce.Attendi(NonAggiornati, vbNo, u"Domanda:"_s);
    B->Voce.Attendi(UltimoIndice, vbOK, u"Avvertimento:"_s);
    Calcola();
    QCOMPARE(Grid()->Righe(), 2);
    const qint64 Attesi = QDate(2013, 1, 1).daysTo(QDate(9999, 12, 31)) + 1;
    QCOMPARE(Cella(1, ColGiorni), QString::number(Attesi));
    QCOMPARE(Cella(1, ColInteresse), Format(double(5 * Attesi), u"#,##0.00"));
    Compila(u"36500"_s, u"01/01/2012"_s, u"10/01/2012"_s);
    Calcola();
    QCOMPARE(TestoDi(F, "lblTotale"), u"50,00"_s);
}

void TestFrmInteressi::confiniAmmessi_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Dal");
    QTest::newRow("mora") << 1 << u"09/08/2002"_s;
    QTest::newRow("legali") << 0 << u"01/01/1957"_s;
}

void TestFrmInteressi::confiniAmmessi()
{
    QFETCH(int, Tipo);
    QFETCH(QString, Dal);
    Scegli(F, "cmbInteressi", Tipo);
    Compila(u"1000"_s, Dal, Dal);
    Calcola();
    QCOMPARE(Grid()->Righe(), 1);
    QCOMPARE(Cella(0, ColGiorni), u"1"_s);
}

void TestFrmInteressi::unPuntoDopoIl2012()
{
    Sostituisci(ArchivioConTassi(u"InteressiMora"_s, {{QDate(2013, 1, 1), QDate(2030, 12, 31), 8.0}}));
    Scegli(F, "cmbInteressi", 1);
    Controllo<QRadioButton>(F, "optDataFine_1")->click();
    Compila(u"36500"_s, u"01/01/2013"_s, u"10/01/2013"_s);
    Calcola();
    QCOMPARE(Cella(0, 2), u"9"_s);
    QCOMPARE(TestoDi(F, "lblTotale"), u"90,00"_s);
}

void TestFrmInteressi::ogniCambioPulisce_data()
{
    QTest::addColumn<QString>("Campo");
    for (const auto& Nome : {u"cmbInteressi"_s, u"cmbValuta"_s, u"txtCapitale"_s, u"txtAumento"_s,
                             u"mskDataIni"_s, u"mskDataFin"_s, u"optDataFine_1"_s})
        QTest::newRow(qPrintable(Nome)) << Nome;
}

void TestFrmInteressi::ogniCambioPulisce()
{
    QFETCH(QString, Campo);
    Compila(u"1000"_s, u"01/01/2013"_s, u"31/12/2013"_s);
    Calcola();
    QCOMPARE(Grid()->Righe(), 1);
    auto* Uno = F->findChild<QWidget*>(Campo);
    QVERIFY(Uno);
    if (auto* Lista = qobject_cast<QComboBox*>(Uno))
        Lista->setCurrentIndex(1);
    else if (auto* Opzione = qobject_cast<QRadioButton*>(Uno))
        Opzione->setChecked(true);
    else
        Scrivi(F, qPrintable(Campo), u"2"_s);
    QCOMPARE(Grid()->Righe(), 0);
    QCOMPARE(Grid()->TestoPie(ColInteresse), QString());
    QCOMPARE(TestoDi(F, "lblTotale"), QString());
}

void TestFrmInteressi::diMoraMostraAltro()
{
    const int Prima = Controllo(F, "fraDati")->mapTo(F, QPoint()).y();
    Scegli(F, "cmbInteressi", 1);
    Respiro();
    QVERIFY(Controllo(F, "fraDati1")->isVisible());
    QVERIFY(Controllo(F, "cmdAvvIntMora")->isVisible());
    QVERIFY(Controllo(F, "fraDati")->mapTo(F, QPoint()).y() > Prima);
    Scegli(F, "cmbInteressi", 0);
    QVERIFY(!Controllo(F, "fraDati1")->isVisible());
    QVERIFY(!Controllo(F, "cmdAvvIntMora")->isVisible());
}

void TestFrmInteressi::nuovoCalcolo()
{
    Scegli(F, "cmbInteressi", 1);
    Scegli(F, "cmbValuta", 1);
    Scrivi(F, "txtAumento", u"1"_s);
    Compila(u"1000"_s, u"01/01/2013"_s, u"31/12/2013"_s);
    DalMenu(F, "mnuNew");
    for (const char* Nome : {"txtCapitale", "txtAumento", "lblTotale"})
        QCOMPARE(TestoDi(F, Nome), QString());
    for (const char* Nome : {"mskDataIni", "mskDataFin"})
        QCOMPARE(TestoDi(F, Nome), u"__/__/____"_s);
    for (const char* Nome : {"cmbInteressi", "cmbValuta"})
        QCOMPARE(Controllo<QComboBox>(F, Nome)->currentIndex(), 0);
    QVERIFY(!Controllo(F, "fraDati1")->isVisible());
    QCOMPARE(NomeFuoco(), u"cmbInteressi"_s);
}

void TestFrmInteressi::dateSenzaSeparatori()
{
    Scrivi(F, "mskDataIni", u"150398"_s);
    QCOMPARE(TestoDi(F, "mskDataIni"), u"15/03/98__"_s);
    Controllo(F, "mskDataFin")->setFocus();
    QCOMPARE(TestoDi(F, "mskDataIni"), u"15/03/1998"_s);
    Scrivi(F, "mskDataFin", u"31/2/12"_s);
    Controllo(F, "txtCapitale")->setFocus();
    QCOMPARE(TestoDi(F, "mskDataFin"), u"31/02/12__"_s);
}

void TestFrmInteressi::virgolaDelTastierino()
{
    Scrivi(F, "txtCapitale", u"1."_s);
    Digita(u"."_s, Qt::KeypadModifier);
    QCOMPARE(TestoDi(F, "txtCapitale"), u"1.,"_s);
    Scrivi(F, "txtAumento", u"1.5"_s);
    QCOMPARE(TestoDi(F, "txtAumento"), u"1,5"_s);
}

/// Points while it is read, the typed text while it is written; neither is a change of the capital.
void TestFrmInteressi::ilCapitaleSiLeggeCoiPunti()
{
    Compila(u"1000000"_s, u"01/01/2013"_s, u"31/12/2014"_s);
    QCOMPARE(TestoDi(F, "txtCapitale"), u"1000000"_s);
    Controllo(F, "txtAumento")->setFocus();
    QCOMPARE(TestoDi(F, "txtCapitale"), u"1.000.000,00"_s);
    Calcola();
    QCOMPARE(TestoDi(F, "lblTotale"), u"35.000,00"_s);
    Controllo(F, "txtCapitale")->setFocus();
    QCOMPARE(TestoDi(F, "txtCapitale"), u"1000000"_s);
    Controllo(F, "txtAumento")->setFocus();
    QCOMPARE(TestoDi(F, "txtCapitale"), u"1.000.000,00"_s);
    QCOMPARE(TestoDi(F, "lblTotale"), u"35.000,00"_s);
    // What is no number stays, and what code writes is its own.
    Scrivi(F, "txtCapitale", u"mille"_s);
    Controllo(F, "txtAumento")->setFocus();
    QCOMPARE(TestoDi(F, "txtCapitale"), u"mille"_s);
    QCOMPARE(TestoDi(F, "lblTotale"), QString());
    Scrivi(F, "txtCapitale", u"0,125"_s);
    Controllo(F, "txtAumento")->setFocus();
    QCOMPARE(TestoDi(F, "txtCapitale"), u"0,125"_s);
    Scrivi(F, "txtCapitale", u"2000"_s);
    Controllo(F, "txtAumento")->setFocus();
    DalMenu(F, "mnuNew");
    QCOMPARE(TestoDi(F, "txtCapitale"), QString());
}

void TestFrmInteressi::copie()
{
    Controllo<QToolButton>(F, "cmdCopiaTabella")->click();
    QCOMPARE(Appunti(), QString());
    Compila(u"1.000.000"_s, u"01/01/2013"_s, u"31/12/2014"_s);
    Calcola();
    Controllo<QToolButton>(F, "cmdCopia")->click();
    QCOMPARE(Appunti(), u"35.000,00"_s);
    const auto Tabella = u"Dal giorno\tAl giorno\tTasso\tN° Giorni\tInteressi\n"
                         "01/01/2013\t31/12/2013\t2,5\t365\t25.000,00\n"
                         "01/01/2014\t31/12/2014\t1,0\t365\t10.000,00\n"
                         "\t\t\tTotale in euro\t35.000,00"_s;
    Controllo<QToolButton>(F, "cmdCopiaTabella")->click();
    QCOMPARE(Appunti(), Tabella);
    QApplication::clipboard()->clear();
    Grid()->setFocus();
    CopiaConTasti();
    QCOMPARE(Appunti(), Tabella);
    Grid()->Seleziona(1);
    CopiaConTasti();
    QCOMPARE(Appunti(), u"Dal giorno\tAl giorno\tTasso\tN° Giorni\tInteressi\n"
                        "01/01/2014\t31/12/2014\t1,0\t365\t10.000,00"_s);
}

void TestFrmInteressi::nienteDaCopiare()
{
    const auto* Totale = Controllo(F, "cmdCopia");
    const auto* Tabella = Controllo(F, "cmdCopiaTabella");
    QVERIFY(!Totale->isEnabled() && !Tabella->isEnabled());
    Compila(u"1000"_s, u"01/01/2012"_s, u"31/12/2012"_s);
    Calcola();
    QVERIFY(Totale->isEnabled() && Tabella->isEnabled());
    Scrivi(F, "txtCapitale", u"2"_s);
    QVERIFY(!Totale->isEnabled() && !Tabella->isEnabled());
    Compila(u"1000"_s, u"31/12/2012"_s, u"01/01/2012"_s);
    Calcola();
    QVERIFY2(Totale->isEnabled() && !Tabella->isEnabled(), "a total of 0,00 without lines");
}

void TestFrmInteressi::lire()
{
    Compila(u"1936270"_s, u"01/01/2012"_s, u"31/12/2012"_s);
    Scegli(F, "cmbValuta", 1);
    Calcola();
    QCOMPARE(TestoDi(F, "lblTotale"), u"25,07"_s);
}

// Commas below each other: as many decimals in every line as the longest rate needs.
void TestFrmInteressi::tassiIncolonnati()
{
    Sostituisci(ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2012, 12, 31), 8.75},
                                                        {QDate(2013, 1, 1), QDate(2013, 12, 31), 8.0},
                                                        {QDate(2014, 1, 1), QDate(2014, 12, 31), 10.5}}));
    Compila(u"1000"_s, u"01/06/2012"_s, u"01/06/2014"_s);
    Calcola();
    QCOMPARE(Cella(0, ColTasso), u"8,75"_s);
    QCOMPARE(Cella(1, ColTasso), u"8,00"_s);
    QCOMPARE(Cella(2, ColTasso), u"10,50"_s);
}

void TestFrmInteressi::calendario()
{
    auto* Calendario = Controllo<CalendarioMensile>(F, "Calendario");
    Controllo<MascheraData>(F, "mskDataIni")->ImpostaTesto(u"15/03/2009"_s);
    Controllo<QToolButton>(F, "cmdCalend_0")->click();
    QVERIFY(Calendario->isVisible());
    QCOMPARE(Calendario->Data(), QDate(2009, 3, 15));
    QVERIFY(Calendario->isAncestorOf(QApplication::focusWidget()));
    QVERIFY(F->rect().contains(Calendario->geometry().translated(Calendario->parentWidget()->pos())));
    Premi(Qt::Key_Right);
    QCOMPARE(TestoDi(F, "mskDataIni"), u"15/03/2009"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(TestoDi(F, "mskDataIni"), u"16/03/2009"_s);
    QVERIFY(!Calendario->isVisible());
    Controllo<QToolButton>(F, "cmdCalend_1")->click();
    QCOMPARE(Calendario->Data(), QDate(2026, 11, 21));
    Q_EMIT Calendario->DataScelta(QDate(2020, 2, 29));
    QCOMPARE(TestoDi(F, "mskDataFin"), u"29/02/2020"_s);
    Controllo<QToolButton>(F, "cmdCalend_1")->click();
    Controllo(F, "txtCapitale")->setFocus();
    QVERIFY(!Calendario->isVisible());
}

void TestFrmInteressi::escNelCalendario()
{
    Controllo<QToolButton>(F, "cmdCalend_1")->click();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!Controllo(F, "Calendario")->isVisible());
    QVERIFY(F->isVisible());
    QCOMPARE(NomeFuoco(), u"mskDataFin"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!F || !F->isVisible());
}

void TestFrmInteressi::avvertenze()
{
    Scegli(F, "cmbInteressi", 1);
    sessione::PercorsoProg = NuovaCartella();
    B->Voce.Attendi(u"Documento %1AvvertenzeInteressiMora.pdf non trovato!"_s.arg(sessione::PercorsoProg));
    Controllo<QPushButton>(F, "cmdAvvIntMora")->click();
    ScriviFile(sessione::PercorsoProg + u"AvvertenzeInteressiMora.pdf"_s, "%PDF");
    Controllo<QPushButton>(F, "cmdAvvIntMora")->click();
    QCOMPARE(B->Aperti, QStringList{u"pdf AvvertenzeInteressiMora.pdf"_s});
}

void TestFrmInteressi::accessibile()
{
    QCOMPARE(SenzaNome(F).join(u", "_s), QString());
    QCOMPARE(Controllo(F, "cmdCalcola")->toolTip(), u"Calcola interessi"_s);
    for (const char* Nome : {"cmdCalend_0", "cmdCalend_1"})
        QCOMPARE(Controllo(F, Nome)->toolTip(), u"Osserva la scadenza sul calendario"_s);
    QCOMPARE(Controllo(F, "mskDataIni")->accessibleName(), u"Dalla data"_s);
    // 1366x768 at 150 %, with its title bar.
    QVERIFY(F->minimumSizeHint().width() <= 910);
    Scegli(F, "cmbInteressi", 1);
    QVERIFY2(F->minimumSizeHint().height() <= 470,
             qPrintable(QString::number(F->minimumSizeHint().height())));
}

void TestFrmInteressi::ricordaIlPosto()
{
    QCOMPARE(Riaperta(F, QPoint(10, 50)), QPoint(10, 50));
    QCOMPARE(TestoDi(F, "txtCapitale"), QString());
}

#include "TestFrmInteressi.moc"
