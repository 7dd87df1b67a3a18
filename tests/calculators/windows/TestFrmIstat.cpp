// The window of the revaluation: boxes, messages, results, plot, calendar, clipboard, damaged archives.
#include "banco.h"

#include "calculators/windows/frmIstat.h"
#include "calculators/windows/graficoindici.h"
#include "platform/calendar/calendario.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"

#include <array>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array Risultati{"lblImporto",  "lblIndFin",   "lblCoeffRacc", "lblIndIni",
                               "lblCoeffRiv", "lblImpRival", "lblRivalutaz", "lblVarPerc"};

}  // namespace

class TestFrmIstat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void comeSiApre();
    void didascalie();
    void tastieraDaCimaAFondo();
    void gliOttoRisultati();
    void cambioDiBaseMostraIlMese();
    void lire();
    void messaggiDelControllo_data();
    void messaggiDelControllo();
    void ogniCambioPulisce_data();
    void ogniCambioPulisce();
    void ultimoIndiceConAvviso();
    void unSiBastaPerTutta();
    void inizioSenzaIndice_data();
    void inizioSenzaIndice();
    void coefficienteMancante();
    void importiSbagliati_data();
    void importiSbagliati();
    void archiviGuasti_data();
    void archiviGuasti();
    void archivioBloccato();
    void nuovoCalcolo();
    void calendario();
    void grafico();
    void lImportoSiLeggeCoiPunti();
    void copie();
    void nienteDaCopiare();
    void accessibile();
    void ricordaIlPosto();

private:
    void Compila(const QString& Importo, const QString& Dal, const QString& Al) const
    {
        Scrivi(F, "txtImporto", Importo);
        Controllo<MascheraData>(F, "mskDataIni")->ImpostaTesto(Dal);
        Controllo<MascheraData>(F, "mskDataFin")->ImpostaTesto(Al);
    }
    void Calcola() const { Controllo<QPushButton>(F, "cmdCalcola")->click(); }
    void Esegui(const QString& Sql) const { OpenDatabase(B->Tassi()).Execute(Sql); }
    [[nodiscard]] bool Vuoti() const
    {
        return std::ranges::all_of(Risultati,
                                   [this](const char* Nome) { return TestoDi(F, Nome).isEmpty(); });
    }

    std::unique_ptr<Banco> B;
    QPointer<frmIstat> F;
};
PROVA(TestFrmIstat);

void TestFrmIstat::init()
{
    B = std::make_unique<Banco>();
    B->ConTassi();
    F = Apri<frmIstat>();
    QVERIFY(F);
}

void TestFrmIstat::cleanup()
{
    B.reset();
    QVERIFY(!F);
}

void TestFrmIstat::comeSiApre()
{
    QCOMPARE(F->windowTitle(), u"Calcolo rivalutazione Istat (Indici: F.O.I.)"_s);
    QCOMPARE(TestoDi(F, "mskDataIni"), u"__/__/____"_s);
    QCOMPARE(TestoDi(F, "mskDataFin"), u"__/__/____"_s);
    const auto* Valuta = Controllo<QComboBox>(F, "cmbValuta");
    QCOMPARE(Valuta->currentIndex(), 0);
    QCOMPARE(Valuta->itemText(0), u" €"_s);
    QCOMPARE(Valuta->itemText(1), u" £"_s);
    const QString Giorno = QFileInfo(B->Tassi()).lastModified().toString(u"dd/MM/yyyy"_s);
    QCOMPARE(TestoDi(F, "barIstat_1"), u" Archivio Istat aggiornato al "_s + Giorno);
    QVERIFY(Controllo(F, "Calendario")->isVisible());
    QVERIFY(Vuoti());
    QCOMPARE(NomeFuoco(), u"mskDataIni"_s);
}

void TestFrmIstat::didascalie()
{
    const QStringList Attese{u"Dalla data:"_s,
                             u"Alla data:"_s,
                             u"Importo da rivalutare:"_s,
                             u"[ Risultati ed elementi di calcolo, in euro ]"_s,
                             u"Indice finale"_s,
                             u"x  Coeff. raccordo /"_s,
                             u"Indice iniziale"_s,
                             u"Coeff. rivalutaz."_s,
                             u"Importo rivalutato:"_s,
                             u"Rivalutazione:"_s,
                             u"Variaz. percent.:"_s,
                             u"Nuovo calcolo"_s};
    QCOMPARE(SenzaDidascalia(F, Attese).join(u" | "_s), QString());
}

void TestFrmIstat::tastieraDaCimaAFondo()
{
    for (const auto& [Nome, Testo] : {std::pair{u"mskDataIni"_s, u"010120"_s},
                                      {u"mskDataFin"_s, u"1/1/2024"_s},
                                      {u"txtImporto"_s, u"1000"_s},
                                      {u"cmbValuta"_s, QString()}}) {
        QCOMPARE(NomeFuoco(), Nome);
        Digita(Testo);
        Premi(Qt::Key_Return);
    }
    QCOMPARE(TestoDi(F, "mskDataIni"), u"01/01/2020"_s);
    QCOMPARE(TestoDi(F, "lblImpRival"), u"1.161,64  "_s);
    QCOMPARE(B->Campanelli, 1);
    CopiaConTasti();
    QCOMPARE(Appunti(), u"1.161,64"_s);
}

void TestFrmIstat::gliOttoRisultati()
{
    Esegui(u"UPDATE IndiciIstat SET Indice=100 WHERE Anno=2020 AND Mese=1"_s);
    Esegui(u"UPDATE IndiciIstat SET Indice=110 WHERE Anno=2024 AND Mese=1"_s);
    Compila(u"1.000,00"_s, u"01/01/2020"_s, u"31/01/2024"_s);
    Calcola();
    const QStringList Attesi{u"1.000,00  "_s, u"110\ngen 2024"_s, u"1"_s,        u"100\ngen 2020"_s,
                             u"1,1"_s,        u"1.100,00  "_s,    u"100,00  "_s, u"10"_s};
    for (size_t i = 0; i < Risultati.size(); ++i)
        QCOMPARE(TestoDi(F, Risultati[i]), Attesi[qsizetype(i)]);
    QCOMPARE(Controllo(F, "lblImpRival")->accessibleName(), u"Importo rivalutato: 1.100,00"_s);
}

void TestFrmIstat::cambioDiBaseMostraIlMese()
{
    Compila(u"1000"_s, u"31/12/2010"_s, u"01/12/2011"_s);
    Calcola();
    QCOMPARE(TestoDi(F, "lblCoeffRacc"), u"1,373"_s);
    QCOMPARE(TestoDi(F, "lblIndIni"), u"138,4\ndic 2010"_s);
    QCOMPARE(TestoDi(F, "lblImpRival"), u"1.031,73  "_s);
}

void TestFrmIstat::lire()
{
    Scegli(F, "cmbValuta", 1);
    Compila(u"1000000"_s, u"15/03/1985"_s, u"15/07/2026"_s);
    Calcola();
    QCOMPARE(TestoDi(F, "lblImporto"), u"516,46  "_s);
    QCOMPARE(TestoDi(F, "lblImpRival"), u"1.635,67  "_s);
}

void TestFrmIstat::messaggiDelControllo_data()
{
    QTest::addColumn<QString>("Importo");
    QTest::addColumn<QString>("Dal");
    QTest::addColumn<QString>("Al");
    QTest::addColumn<QString>("Messaggio");
    QTest::addColumn<QString>("Fuoco");
    QTest::newRow("inizio") << u"1"_s << u"31/02/2012"_s << QString()
                            << u"E' stata inserita una data iniziale non valida!"_s << u"mskDataIni"_s;
    QTest::newRow("anno 1") << u"1"_s << u"01/01/0001"_s << u"01/01/2012"_s
                            << u"E' stata inserita una data iniziale non valida!"_s << u"mskDataIni"_s;
    QTest::newRow("anno 9999")
        << u"1"_s << u"01/02/2012"_s << u"31/12/9999"_s
        << u"La rivalutazione non può essere calcolata per date successive a quella odierna."_s
        << u"mskDataFin"_s;
    QTest::newRow("fine") << u"1"_s << u"01/02/2012"_s << u"00/00/0000"_s
                          << u"E' stata inserita una data finale non valida!"_s << u"mskDataFin"_s;
    QTest::newRow("importo") << QString() << u"01/02/2012"_s << u"01/02/2012"_s
                             << u"Non è stato specificato l'importo da rivalutare."_s << u"txtImporto"_s;
    QTest::newRow("date uguali") << u"1"_s << u"01/02/2012"_s << u"01/02/2012"_s
                                 << u"La data di arrivo non è superiore di quella di partenza."_s
                                 << u"mskDataFin"_s;
    QTest::newRow("domani")
        << u"1"_s << u"01/02/2012"_s << u"22/11/2026"_s
        << u"La rivalutazione non può essere calcolata per date successive a quella odierna."_s
        << u"mskDataFin"_s;
}

void TestFrmIstat::messaggiDelControllo()
{
    QFETCH(QString, Importo);
    QFETCH(QString, Dal);
    QFETCH(QString, Al);
    QFETCH(QString, Messaggio);
    QFETCH(QString, Fuoco);
    Compila(Importo, Dal, Al);
    B->Voce.Attendi(Messaggio, vbOK, u"Errore:"_s);
    Calcola();
    Respiro();
    QCOMPARE(B->Voce.Ultimo().Bandiere, vbCritical);
    QCOMPARE(NomeFuoco(), Fuoco);
    Compila(u"1000"_s, u"01/01/2020"_s, u"01/01/2024"_s);
    Calcola();
    QCOMPARE(TestoDi(F, "lblImpRival"), u"1.161,64  "_s);
}

void TestFrmIstat::ogniCambioPulisce_data()
{
    QTest::addColumn<QString>("Campo");
    for (const auto& Nome : {u"txtImporto"_s, u"mskDataIni"_s, u"mskDataFin"_s, u"cmbValuta"_s})
        QTest::newRow(qPrintable(Nome)) << Nome;
}

void TestFrmIstat::ogniCambioPulisce()
{
    QFETCH(QString, Campo);
    Compila(u"1000"_s, u"01/01/2020"_s, u"01/01/2024"_s);
    Calcola();
    QVERIFY(!Vuoti());
    if (Campo == u"cmbValuta")
        Scegli(F, "cmbValuta", 1);
    else
        Scrivi(F, qPrintable(Campo), u"2"_s);
    QVERIFY(Vuoti());
    QVERIFY(Controllo<GraficoIndici>(F, "grafico")->Serie().isEmpty());
}

void TestFrmIstat::ultimoIndiceConAvviso()
{
    Compila(u"1000"_s, u"01/01/2020"_s, u"20/11/2026"_s);
    B->Voce.Attendi(u"Attenzione: ultimo indice disponibile Agosto 2026. \n"
                    "Si vuole procedere all'aggiornamento degli indici?"_s,
                    vbNo, u"Domanda:"_s);
    B->Voce.Attendi(u"Il calcolo verrà effettuato utilizzando l'ultimo indice disponibile."_s, vbOK,
                    u"Avvertenza:"_s);
    Calcola();
    QVERIFY(TestoDi(F, "lblIndFin").endsWith(u"\nago 2026"));
    QVERIFY(B->Aperti.isEmpty());
}

void TestFrmIstat::unSiBastaPerTutta()
{
    Compila(u"1000"_s, u"01/01/2020"_s, u"20/11/2026"_s);
    B->Voce.Attendi(u"Attenzione: ultimo indice disponibile Agosto 2026. \n"
                    "Si vuole procedere all'aggiornamento degli indici?"_s,
                    vbYes, u"Domanda:"_s);
    Calcola();
    QCOMPARE(B->Aperti, QStringList{u"aggiorna [run]"_s});
    QCOMPARE(TestoDi(F, "lblImpRival"), QString());
    B->Voce.Attendi(u"Il calcolo verrà effettuato utilizzando l'ultimo indice disponibile."_s, vbOK,
                    u"Avvertenza:"_s);
    Calcola();
    QVERIFY(!TestoDi(F, "lblImpRival").isEmpty());
}

void TestFrmIstat::inizioSenzaIndice_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<QStringList>("Aperti");
    QTest::newRow("no") << vbNo << QStringList();
    QTest::newRow("si") << vbYes << QStringList{u"aggiorna [run]"_s};
}

void TestFrmIstat::inizioSenzaIndice()
{
    QFETCH(int, Risposta);
    QFETCH(QStringList, Aperti);
    Compila(u"1000"_s, u"01/10/2026"_s, u"20/11/2026"_s);
    B->Voce.Attendi(u"Attenzione: indici Istat non aggiornati (10/2026).\n"
                    "Si vuole procedere all'aggiornamento degli indici?"_s,
                    Risposta, u"Domanda:"_s);
    Calcola();
    QCOMPARE(B->Aperti, Aperti);
    QVERIFY(Vuoti());
    QCOMPARE(B->Campanelli, 0);
}

void TestFrmIstat::coefficienteMancante()
{
    Esegui(u"DELETE FROM CoefficientiRaccordo"_s);
    Compila(u"1000"_s, u"01/01/2020"_s, u"01/01/2024"_s);
    B->Voce.Attendi(u"Attenzione: coefficienti di rivalutazione Istat non aggiornati.\n"
                    "Si vuole procedere all'aggiornamento degli indici?"_s,
                    vbNo, u"Domanda:"_s);
    Calcola();
    // What was found before the question stays.
    QCOMPARE(TestoDi(F, "lblIndIni"), u"102,7"_s);
    QCOMPARE(TestoDi(F, "lblImpRival"), QString());
}

void TestFrmIstat::importiSbagliati_data()
{
    QTest::addColumn<QString>("Testo");
    for (const auto& Testo : {u"abc"_s, u"1-2"_s, u"12.5"_s})
        QTest::newRow(qPrintable(Testo)) << Testo;
}

void TestFrmIstat::importiSbagliati()
{
    QFETCH(QString, Testo);
    Compila(Testo, u"01/01/2020"_s, u"01/01/2024"_s);
    B->Voce.Attendi(u"Errore: Tipo di dato non corrispondente (13)"_s, vbOK, u"Errore:"_s);
    Calcola();
    QVERIFY(Vuoti());
    Compila(u"1000"_s, u"01/01/2020"_s, u"01/01/2024"_s);
    Calcola();
    QCOMPARE(TestoDi(F, "lblImpRival"), u"1.161,64  "_s);
}

void TestFrmIstat::archiviGuasti_data()
{
    QTest::addColumn<int>("Byte");
    QTest::addColumn<QString>("Togli");
    QTest::addColumn<int>("Numero");
    QTest::newRow("mancante") << -1 << QString() << 3024;
    QTest::newRow("vuoto") << 0 << QString() << 3343;
    QTest::newRow("troncato") << 10000 << QString() << 3343;
    QTest::newRow("senza indici") << -2 << u"IndiciIstat"_s << 3078;
    QTest::newRow("senza coefficienti") << -2 << u"CoefficientiRaccordo"_s << 3078;
}

void TestFrmIstat::archiviGuasti()
{
    QFETCH(int, Byte);
    QFETCH(QString, Togli);
    QFETCH(int, Numero);
    const QByteArray Intero = LeggiFile(B->Tassi());
    if (Byte == -1)
        QVERIFY(QFile::remove(B->Tassi()));
    else if (Byte >= 0)
        ScriviFile(B->Tassi(), Intero.left(Byte));
    if (!Togli.isEmpty())
        Esegui(u"DROP TABLE "_s + Togli);
    Compila(u"1000"_s, u"01/01/2020"_s, u"01/01/2024"_s);
    B->Voce.Tollera();
    Calcola();
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    QVERIFY2(B->Voce.UltimoTesto().endsWith(u"(%1)"_s.arg(Numero)), qPrintable(B->Voce.UltimoTesto()));
    QCOMPARE(TestoDi(F, "lblImpRival"), QString());
    QFile::remove(B->Tassi());
    ScriviFile(B->Tassi(), Intero);
    Calcola();
    QCOMPARE(TestoDi(F, "lblImpRival"), u"1.161,64  "_s);
}

void TestFrmIstat::archivioBloccato()
{
    const QString Altro = sessione::UserFolder + u"altro.dat"_s;
    std::filesystem::create_hard_link(B->Tassi().toStdString(), Altro.toStdString());
    attese::BlocchiMs = 20;
    Compila(u"1000"_s, u"01/01/2020"_s, u"01/01/2024"_s);
    {
        const Database Suo = OpenDatabase(Altro);
        Suo.Execute(u"BEGIN EXCLUSIVE"_s);
        B->Voce.Tollera();
        Calcola();
        QVERIFY(B->Voce.UltimoTesto().endsWith(u"(3260)"));
        QVERIFY(Vuoti());
        Suo.Execute(u"COMMIT"_s);
    }
    Calcola();
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    QCOMPARE(TestoDi(F, "lblImpRival"), u"1.161,64  "_s);
}

void TestFrmIstat::nuovoCalcolo()
{
    Scegli(F, "cmbValuta", 1);
    Compila(u"1000"_s, u"01/01/1990"_s, u"01/01/2024"_s);
    Calcola();
    DalMenu(F, "mnuNew");
    QCOMPARE(TestoDi(F, "mskDataIni"), u"__/__/____"_s);
    QCOMPARE(TestoDi(F, "mskDataFin"), u"__/__/____"_s);
    QCOMPARE(TestoDi(F, "txtImporto"), QString());
    QCOMPARE(Controllo<QComboBox>(F, "cmbValuta")->currentIndex(), 1);
    QVERIFY(Vuoti());
    QCOMPARE(NomeFuoco(), u"mskDataIni"_s);
}

void TestFrmIstat::calendario()
{
    auto* Calendario = Controllo<CalendarioMensile>(F, "Calendario");
    Q_EMIT Calendario->DataScelta(QDate(2020, 2, 29));
    QCOMPARE(TestoDi(F, "mskDataIni"), u"29/02/2020"_s);
    QCOMPARE(Calendario->Data(), QDate(2020, 2, 29));
    Controllo(F, "mskDataFin")->setFocus();
    QCOMPARE(Calendario->Data(), QDate(2020, 2, 29));
    Q_EMIT Calendario->DataScelta(QDate(2024, 1, 31));
    QCOMPARE(TestoDi(F, "mskDataFin"), u"31/01/2024"_s);
    Controllo<QToolButton>(F, "cmdCalend_0")->click();
    QCOMPARE(Calendario->Data(), QDate(2020, 2, 29));
    // A typed date is followed as soon as it is one; moving about in the calendar writes nothing.
    Scrivi(F, "mskDataFin", u"15082015"_s);
    QCOMPARE(Calendario->Data(), QDate(2015, 8, 15));
    Calendario->ImpostaData(QDate(2000, 1, 1));
    QCOMPARE(TestoDi(F, "mskDataFin"), u"15/08/2015"_s);
}

void TestFrmIstat::grafico()
{
    Compila(u"1000"_s, u"15/11/2010"_s, u"15/02/2011"_s);
    Calcola();
    const auto* Grafico = Controllo<GraficoIndici>(F, "grafico");
    QCOMPARE(Grafico->Serie().size(), 4);
    QCOMPARE(Grafico->Serie().first().Mese, 11);
    QCOMPARE(Grafico->Serie().last().Anno, 2011);
    // All on the base of the first month: no step where the institute began a new one.
    for (qsizetype i = 1; i < Grafico->Serie().size(); ++i)
        QVERIFY(std::abs(Grafico->Serie()[i].Valore / Grafico->Serie()[i - 1].Valore - 1) < 0.02);
    QVERIFY(Grafico->accessibleDescription().startsWith(u"Da 137,9 (nov 2010) a "));
}

/// Points while it is read, the typed text while it is written; the results stay.
void TestFrmIstat::lImportoSiLeggeCoiPunti()
{
    Compila(u"10000"_s, u"15/01/2010"_s, u"15/01/2012"_s);
    Controllo(F, "cmbValuta")->setFocus();
    QCOMPARE(TestoDi(F, "txtImporto"), u"10.000,00"_s);
    Controllo<QPushButton>(F, "cmdCalcola")->click();
    const QString Fatto = TestoDi(F, "lblImpRival");
    QVERIFY(!Fatto.isEmpty());
    Controllo(F, "txtImporto")->setFocus();
    QCOMPARE(TestoDi(F, "txtImporto"), u"10000"_s);
    QCOMPARE(TestoDi(F, "lblImpRival"), Fatto);
}

void TestFrmIstat::copie()
{
    Controllo<QToolButton>(F, "cmdCopia")->click();
    Controllo<QToolButton>(F, "cmdCopiaTutto")->click();
    QCOMPARE(Appunti(), QString());
    Compila(u"1000"_s, u"01/01/2020"_s, u"01/01/2024"_s);
    Calcola();
    Controllo<QToolButton>(F, "cmdCopia")->click();
    QCOMPARE(Appunti(), u"1.161,64"_s);
    Controllo<QToolButton>(F, "cmdCopiaTutto")->click();
    QCOMPARE(Appunti(), u"Importo da rivalutare\t1.000,00\n"
                        "Indice finale\t119,3 gen 2024\n"
                        "Coeff. raccordo\t1\n"
                        "Indice iniziale\t102,7 gen 2020\n"
                        "Coeff. rivalutaz.\t1,16164\n"
                        "Importo rivalutato\t1.161,64\n"
                        "Rivalutazione\t161,64\n"
                        "Variaz. percent.\t16,164"_s);
}

void TestFrmIstat::nienteDaCopiare()
{
    const auto* Importo = Controllo(F, "cmdCopia");
    const auto* Tutto = Controllo(F, "cmdCopiaTutto");
    QVERIFY(!Importo->isEnabled() && !Tutto->isEnabled());
    Compila(u"1000"_s, u"01/01/2012"_s, u"01/01/2013"_s);
    Calcola();
    QVERIFY(Importo->isEnabled() && Tutto->isEnabled());
    Scrivi(F, "txtImporto", u"2"_s);
    QVERIFY(!Importo->isEnabled() && !Tutto->isEnabled());
}

void TestFrmIstat::accessibile()
{
    QCOMPARE(Controllo(F, "cmdCalend_0")->accessibleName(), u"Calendario della data iniziale"_s);
    QCOMPARE(Controllo(F, "cmdCalend_1")->accessibleName(), u"Calendario della data finale"_s);
    QCOMPARE(SenzaNome(F).join(u", "_s), QString());
    for (const char* Nome : {"cmdCalend_0", "cmdCalend_1"})
        QCOMPARE(Controllo(F, Nome)->toolTip(), u"Osserva la scadenza sul calendario"_s);
    QCOMPARE(Controllo(F, "txtImporto")->accessibleName(), u"Importo da rivalutare"_s);
    QVERIFY2(F->minimumSizeHint().width() <= 910, qPrintable(QString::number(F->minimumSizeHint().width())));
    QVERIFY2(F->minimumSizeHint().height() <= 470,
             qPrintable(QString::number(F->minimumSizeHint().height())));
}

void TestFrmIstat::ricordaIlPosto()
{
    QCOMPARE(Riaperta(F, QPoint(1, 60)).y(), 60);  // as wide as the screen of the tests
    QCOMPARE(TestoDi(F, "txtImporto"), QString());
}

#include "TestFrmIstat.moc"
