// Amounts that the law fixes: which line is offered one, what taking it writes, what another window brings.
#include "core/aperture.h"
#include "feenote/modOfferte.h"
#include "feenote/modSpese.h"
#include "platform/base/regionale.h"
#include "tariffa_prova.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

const QDate Oggi_(2026, 11, 22);

/// A line of the catalogue's item with this key.
int Inserisci(Parcella& Nota, int IDDir)
{
    return AddDiritti(Nota, {}, u"Anticipazione"_s, u"1"_s, IDDir, IDDir);
}

QStringList CelleDi(const Parcella& Nota)
{
    QStringList Righe;
    for (int Riga = 0; Riga < Nota.xDiritti.Righe(); ++Riga) {
        QStringList Celle;
        for (int Colonna = 0; Colonna < DirColonne; ++Colonna)
            Celle << CStr(Nota.xDiritti(Riga, Colonna));
        Righe << Celle.join(u'|');
    }
    return Righe;
}

}  // namespace

class TestOfferte : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void dovutaNelProcessoCivile_data();
    void dovutaNelProcessoCivile();
    void giudiceDiPaceDiPocoValore_data();
    void giudiceDiPaceDiPocoValore();
    void offertaAllaSuaRiga_data();
    void offertaAllaSuaRiga();
    void conLaDataDiOggi();
    void senzaNormeNienteOfferta();
    void laVoceSiGuarda();
    void accettata();
    void lImportoFraParentesi();
    void portate();
    void portateNellaRigaCorrente();
    void portateSenzaVociDelCatalogo();
    void niente();

private:
    std::unique_ptr<Studio> Ufficio;
    QDate Chiesto;
};
PROVA(TestOfferte);

void TestOfferte::init()
{
    Ufficio = std::make_unique<Studio>();
    Chiesto = {};
    Aperture.AnticipazioneNotifiche = [this](const QDate& Giorno) {
        Chiesto = Giorno;
        return std::optional(ImportoDiLegge{27.0, u"D.P.R. 115/2002, art. 30"_s});
    };
}

void TestOfferte::cleanup()
{
    Aperture = {};
    Ufficio.reset();
}

/// Every office of both decrees; those before which nobody advances the sum, by their names.
void TestOfferte::dovutaNelProcessoCivile_data()
{
    const QStringList Senza{u"Commissione tributaria provinciale"_s,
                            u"Commissione tributaria regionale"_s,
                            u"Tribunale amministrativo regionale"_s,
                            u"Corte dei conti - sezione giurisdizionale regionale"_s,
                            u"Consiglio di Stato e altre magistrature superiori"_s,
                            u"Tribunale di prima istanza dell'Unione europea"_s,
                            u"Corte costituzionale e organi di giustizia sovranazionali"_s,
                            u"Collegio arbitrale (arbitrato rituale)"_s,
                            u"Tribunale - cause di lavoro"_s,
                            u"Tribunale - cause di previdenza"_s,
                            u"Atto di precetto"_s,
                            u"Corte dei conti"_s,
                            u"Corte costituzionale e corti europee"_s,
                            u"Iscrizione ipotecaria e affari tavolari"_s,
                            u"Consiglio di Stato"_s,
                            u"Corte di giustizia tributaria di primo grado"_s,
                            u"Corte di giustizia tributaria di secondo grado"_s,
                            u"Collegio arbitrale - difesa delle parti"_s,
                            u"Collegio arbitrale - compenso degli arbitri"_s};
    QTest::addColumn<QString>("Sigla");
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("IDAut");
    QTest::addColumn<bool>("Dovuta");
    const Studio Qui;
    int NonDovute = 0;
    for (const Decreto* Legge : Decreti)
        for (const int Categoria : {CategCivile, CategPenale, CategStragiudiziale}) {
            const QString Codice = std::array{Civile, Penale, Stragiudiziale}[size_t(Categoria)].toString();
            for (const Autorita& Una : LeggiAutorita(*Legge, Codice).Voci) {
                const bool Dovuta = Categoria == CategCivile && !Senza.contains(Una.DesAut);
                NonDovute += Categoria == CategCivile && !Dovuta ? 1 : 0;
                QTest::addRow("%s %d", qPrintable(Legge->Sigla.toString()), Una.IDAut)
                    << Legge->Sigla.toString() << Categoria << Una.IDAut << Dovuta;
            }
        }
    QCOMPARE(NonDovute, 20);  // one name stands in both decrees
}

void TestOfferte::dovutaNelProcessoCivile()
{
    QFETCH(QString, Sigla);
    QFETCH(int, Categoria);
    QFETCH(int, IDAut);
    Parcella Nota;
    NuovaParcella(Nota, *DecretoDi(Sigla));
    CambiaCategoria(Nota, Categoria);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDAut));
    QCOMPARE(Nota.IDAutSelezionata(), IDAut);
    QTEST(AnticipazioneDovuta(Nota), "Dovuta");
}

void TestOfferte::giudiceDiPaceDiPocoValore_data()
{
    QTest::addColumn<QString>("Sigla");
    QTest::addColumn<int>("IDAut");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<bool>("Dovuta");
    QTest::newRow("giudice di pace, al limite") << u"140"_s << 1 << u"1.033,00"_s << false;
    QTest::newRow("giudice di pace, un centesimo oltre") << u"140"_s << 1 << u"1.033,01"_s << true;
    QTest::newRow("giudice di pace, valore ignoto") << u"140"_s << 1 << QString() << true;
    QTest::newRow("ingiunzione del giudice di pace") << u"140"_s << 13 << u"800"_s << false;
    QTest::newRow("tribunale") << u"140"_s << IDTribunale << u"800"_s << true;
    QTest::newRow("giudice di pace, D.m. 55") << u"55"_s << IDGiudiceDiPace55 << u"1033"_s << false;
    QTest::newRow("giudice di pace oltre, D.m. 55") << u"55"_s << IDGiudiceDiPace55 << u"1100"_s << true;
}

/// L. 374/1991, art. 46: up to 1.033,00 euro the filing fee alone.
void TestOfferte::giudiceDiPaceDiPocoValore()
{
    QFETCH(QString, Sigla);
    QFETCH(int, IDAut);
    QFETCH(QString, Valore);
    Parcella Nota;
    NuovaParcella(Nota, *DecretoDi(Sigla));
    CambiaCategoria(Nota, CategCivile);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDAut));
    Nota.txtImporto.Testo = Valore;
    LasciaImporto(Nota);
    QTEST(AnticipazioneDovuta(Nota), "Dovuta");
    QTEST(ImportoOfferto(Nota, Inserisci(Nota, 2), Oggi_).has_value(), "Dovuta");
}

void TestOfferte::offertaAllaSuaRiga_data()
{
    QTest::addColumn<int>("IDDir");
    QTest::addColumn<double>("Imponibile");
    QTest::addColumn<double>("Esente");
    QTest::addColumn<bool>("Offerta");
    QTest::newRow("anticipazione senza importo") << 2 << 0.0 << 0.0 << true;
    QTest::newRow("contributo unificato") << 1 << 0.0 << 0.0 << false;
    QTest::newRow("con un importo imponibile") << 2 << 8.0 << 0.0 << false;
    QTest::newRow("con un importo esente") << 2 << 0.0 << 27.0 << false;
    QTest::newRow("voce che comincia con la sua cifra") << 20 << 0.0 << 0.0 << false;
}

void TestOfferte::offertaAllaSuaRiga()
{
    QFETCH(int, IDDir);
    QFETCH(double, Imponibile);
    QFETCH(double, Esente);
    Parcella Nota = NotaCivile();
    const int Riga = Inserisci(Nota, IDDir);
    Nota.xDiritti(Riga, DirImponibile) = Imponibile;
    if (Esente > 0)
        Nota.xDiritti(Riga, DirEsente) = Esente;
    const TabellaRighe Prima = Nota.xDiritti;
    QTEST(ImportoOfferto(Nota, Riga, Oggi_).has_value(), "Offerta");
    QCOMPARE(Nota.xDiritti, Prima);
    Parcella DelPenale = NotaPenale();
    QVERIFY(!ImportoOfferto(DelPenale, Inserisci(DelPenale, IDDir), Oggi_));
}

void TestOfferte::conLaDataDiOggi()
{
    Parcella Nota = NotaCivile();
    const auto Importo = ImportoOfferto(Nota, Inserisci(Nota, 2), Oggi_);
    QVERIFY(Importo);
    QCOMPARE(Importo->Euro, 27.0);
    QCOMPARE(Chiesto, Oggi_);
}

void TestOfferte::senzaNormeNienteOfferta()
{
    Parcella Nota = NotaCivile();
    const int Riga = Inserisci(Nota, 2);
    Aperture.AnticipazioneNotifiche = [](const QDate&) { return std::optional<ImportoDiLegge>(); };
    QVERIFY(!ImportoOfferto(Nota, Riga, Oggi_));
    Aperture = {};
    QVERIFY(!ImportoOfferto(Nota, Riga, Oggi_));
}

/// Another archive of tariffs has another item under the key: it gets no amount, and no line its name.
void TestOfferte::laVoceSiGuarda()
{
    Parcella Nota = NotaCivile();
    const int Riga = Inserisci(Nota, 2);
    Nota.xDiritti(Riga, DirDescr) = u"Marca da bollo"_s;
    QVERIFY(!ImportoOfferto(Nota, Riga, Oggi_));
    Nota.xDiritti(Riga, DirDescr) = u"Spese di notificazione"_s;
    QVERIFY(ImportoOfferto(Nota, Riga, Oggi_));
    Nota.xDiritti(Riga, DirDescr) = u"ANTICIPAZIONE, notifica a Rossi"_s;
    QVERIFY(ImportoOfferto(Nota, Riga, Oggi_));

    Parcella Altra = NotaCivile();
    Ufficio->TariffeProprie().Execute(u"UPDATE Diritti SET DescrDir='Diritti di copia' WHERE IDDir=1"_s);
    Catalogo Voci;
    LoadOnoDir(Altra, Voci);
    QCOMPARE(PortaSpese(Altra, Voci.datDir, {{VoceDiLegge::Contributo, 43, Oggi_}}), 0);
    QCOMPARE(CelleDi(Altra), QStringList(u"22/11/2026|Contributo unificato|1|0|43||"_s));
}

/// The line names the amount that it has.
void TestOfferte::lImportoFraParentesi()
{
    const QString Nome = u"Anticipazione forfettaria art. 30 D.P.R. 115/02 "_s;
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    const QDate Deposito(2012, 3, 5);
    QCOMPARE(PortaSpese(Nota, Voci.datDir, {{VoceDiLegge::Anticipazione, 8.0, Deposito}}), 0);
    QCOMPARE(CelleDi(Nota), QStringList(u"05/03/2012|"_s + Nome + u"(€ 8,00)|1|0|8|2|2"_s));
    Nota.xDiritti(0, DirDescr) = Nome + u"(€ 27,00)"_s;
    AccettaImporto(Nota, 0, {8.0, {}});
    QCOMPARE(CStr(Nota.xDiritti(0, DirDescr)), Nome + u"(€ 8,00)"_s);
    Nota.xDiritti(0, DirDescr) = u"Anticipazione (due notifiche)"_s;
    AccettaImporto(Nota, 0, {8.0, {}});
    QCOMPARE(CStr(Nota.xDiritti(0, DirDescr)), u"Anticipazione (due notifiche)"_s);
}

void TestOfferte::accettata()
{
    Parcella Nota = NotaCivile();
    const int Riga = Inserisci(Nota, 2);
    SetModificata(Nota, false);
    AccettaImporto(Nota, Riga, {27.0, {}});
    QCOMPARE(CelleDi(Nota), QStringList({u"|Anticipazione|1|0|27|2|2"_s}));
    QVERIFY(Nota.Modificata);
    QCOMPARE(CalcolaSomme(Nota).TotSpeseEsenti, 27.0);
    QCOMPARE(CalcolaSomme(Nota).TotSpeseImp, 0.0);
}

void TestOfferte::portate()
{
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    (void)Inserisci(Nota, 3);
    SetModificata(Nota, false);
    const QDate Deposito(2026, 3, 5);
    QCOMPARE(
        PortaSpese(Nota, Voci.datDir,
                   {{VoceDiLegge::Contributo, 118.5, Deposito}, {VoceDiLegge::Anticipazione, 27.0, Deposito}},
                   0),
        1);
    QCOMPARE(
        CelleDi(Nota),
        QStringList({u"|Anticipazione|1|0||3|3"_s,
                     u"05/03/2026|Contributo unificato di iscrizione a ruolo|1|0|118,5|1|1"_s,
                     u"05/03/2026|Anticipazione forfettaria art. 30 D.P.R. 115/02 (€ 27,00)|1|0|27|2|2"_s}));
    QVERIFY(Nota.Modificata);
}

void TestOfferte::portateNellaRigaCorrente()
{
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    for (int i = 0; i < 3; ++i)
        (void)Inserisci(Nota, 5);
    Nota.InsUltimaDir = false;
    QCOMPARE(PortaSpese(Nota, Voci.datDir,
                        {{VoceDiLegge::Contributo, 43, Oggi_}, {VoceDiLegge::Anticipazione, 27, Oggi_}}, 1),
             1);
    QStringList Chiavi;
    for (int Riga = 0; Riga < Nota.xDiritti.Righe(); ++Riga)
        Chiavi << CStr(Nota.xDiritti(Riga, DirIDDir));
    QCOMPARE(Chiavi, QStringList({u"5"_s, u"1"_s, u"2"_s, u"5"_s, u"5"_s}));
}

/// A catalogue that hides the items, or that cannot be read, takes no expense away.
void TestOfferte::portateSenzaVociDelCatalogo()
{
    Parcella Nota = NotaCivile();
    QCOMPARE(PortaSpese(Nota, {}, {{VoceDiLegge::Contributo, 43, Oggi_}}), 0);
    Ufficio->TariffeProprie().Execute(u"UPDATE Diritti SET NVis=0 WHERE IDDir=2"_s);
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    QCOMPARE(PortaSpese(Nota, Voci.datDir, {{VoceDiLegge::Anticipazione, 27, Oggi_}}), 1);
    QCOMPARE(CelleDi(Nota),
             QStringList({u"22/11/2026|Contributo unificato|1|0|43||"_s,
                          u"22/11/2026|Anticipazione forfettaria art. 30 D.P.R. 115/02|1|0|27||"_s}));
}

void TestOfferte::niente()
{
    Parcella Nota = NotaCivile();
    SetModificata(Nota, false);
    QCOMPARE(PortaSpese(Nota, {}, {}), -1);
    QVERIFY(!Nota.Modificata);
    QVERIFY(Nota.xDiritti.Vuota());
}

#include "TestOfferte.moc"
