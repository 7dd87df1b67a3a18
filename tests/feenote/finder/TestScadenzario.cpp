// What is due: states read from files, what is open of them by client, the accountant's rows to the byte.
#include "finder_prova.h"

#include "feenote/file/modPosaFile.h"
#include "feenote/finder/elencotrova.h"
#include "feenote/finder/memoriatrova.h"
#include "feenote/finder/nominativi.h"
#include "feenote/modAcconti.h"
#include "feenote/modStato.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;
using enum StatoNota;

class TestScadenzario : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void letteDaiFile();
    void fileDiPrima_data();
    void fileDiPrima();
    void tabellaOstile_data();
    void tabellaOstile();
    void inUso();
    void filtri_data();
    void filtri();
    void ilFiltroConIlTesto();
    void aperto_data();
    void aperto();
    void somme();
    void stessaFattura_data();
    void stessaFattura();
    void storni();
    void frasi();
    void righe();
    void ilFile();
    void codiciDalloStudio();

private:
    static VoceTrova Voce(StatoNota Stato, double Netto, double Resto, int Documento = StampaPrenotula)
    {
        VoceTrova Una;
        Una.Dati.Stato.Stato = Stato;
        Una.Dati.Stato.Documento = Documento;
        Una.Dati.Stato.Importi = ImportiDocumento{0, 0, 0, Netto, 0, Netto};
        Una.Dati.Stato.Resto = Resto;
        return Una;
    }
    /// The one row of a folder.
    [[nodiscard]] VoceTrova Sola(const QString& Cartella) const
    {
        std::vector<VoceTrova> Righe;
        CamminoTrova Cammino(
            {Cartella, Cartella, {}, false}, [&](VoceTrova&& Una) { Righe.push_back(std::move(Una)); },
            [] { return true; }, std::make_shared<MemoriaTrova>());
        (void)Cammino.TrovaParc(Cartella);
        return Righe.size() == 1 ? Righe.front() : VoceTrova();
    }

    std::unique_ptr<Studio> Ufficio;
    QString Note;
};
PROVA(TestScadenzario);

void TestScadenzario::init()
{
    Ufficio = std::make_unique<Studio>();
    Note = Ufficio->File(u"note/"_s);
    QDir().mkpath(Note);
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
}

void TestScadenzario::cleanup()
{
    InstallaOrologio({});
    Ufficio.reset();
}

void TestScadenzario::letteDaiFile()
{
    Parcella Una = NotaDiRossi();
    Una.txtDatiPar[DatoNumFatt] = u"12/A"_s;
    Una.txtDatiPar[DatoDataFatt] = u"09/11/2026"_s;
    Una.FatturaXml.Scadenza = u"31/12/2026"_s;
    ScegliTipoStampa(Una, StampaFatturaSintetica);
    (void)NotaInviata(Una, StampaFatturaSintetica);
    Una.xAcconti(NuovoAcconto(Una), AccCorrispettivi) = 150.0;
    ScegliTipoStampa(Una, StampaPreventivo);  // looked at afterwards
    ScriviNota(Note + u"una.mdb"_s, Una);
    const VoceTrova Letta = Sola(Note);
    QCOMPARE(Letta.Nome, u"una"_s);
    QCOMPARE(Letta.Dati.TipoStampa, int(StampaPreventivo));
    QCOMPARE(Letta.Dati.NumFatt, u"12/A"_s);
    QCOMPARE(Letta.Dati.DataFatt, u"09/11/2026"_s);
    const StatoLetto& Stato = Letta.Dati.Stato;
    QCOMPARE(Stato.Stato, Fatturata);
    QCOMPARE(Stato.Documento, int(StampaFatturaSintetica));
    QCOMPARE(Stato.Dal, u"22/11/2026"_s);
    QCOMPARE(Stato.Scadenza, u"31/12/2026"_s);
    QCOMPARE(Stato.Importi, std::optional(ImportiDocumento{1150, 46, 263.12, 1459.12, 0, 1459.12}));
    QCOMPARE(Stato.Resto, 1268.8);  // 1.000,00 x 1,04 x 1,22
    QCOMPARE(ApertoDi(Letta), std::optional(1268.8));
}

void TestScadenzario::fileDiPrima_data()
{
    QTest::addColumn<QStringList>("Sql");
    QTest::newRow("without the state")
        << QStringList{u"DELETE FROM \"_Calcanova\" WHERE Nome LIKE 'Stato%'"_s};
    QTest::newRow("without the table") << QStringList{u"DROP TABLE \"_Calcanova\""_s};
    QTest::newRow("without the invoice's columns")
        << QStringList{u"DROP TABLE \"_Calcanova\""_s, u"ALTER TABLE ParcellaParam DROP COLUMN NumFatt"_s,
                       u"ALTER TABLE ParcellaParam DROP COLUMN DataFatt"_s};
    QTest::newRow("without the subject")
        << QStringList{u"DROP TABLE \"_Calcanova\""_s, u"ALTER TABLE ParcellaParam DROP COLUMN Oggetto"_s};
}

/// A note of before is listed, its state and what is open of it are not known.
void TestScadenzario::fileDiPrima()
{
    QFETCH(QStringList, Sql);
    Parcella Una = NotaDiRossi();
    (void)NotaInviata(Una, StampaPrenotula);
    const QString File = Note + u"una.mdb"_s;
    ScriviNota(File, Una);
    for (const QString& Comando : Sql)
        EseguiSu(File, Comando);
    const VoceTrova Letta = Sola(Note);
    QCOMPARE(Letta.Cliente, u"Rossi Mario"_s);
    QCOMPARE(CellaTrova(Letta, TrovaStato), QString());
    QCOMPARE(ApertoDi(Letta), std::nullopt);
    QCOMPARE(SommaAperto({&Letta}), (ApertoTutto{0, 0, 1, 0, {}}));
    QVERIFY(PassaStato(FiltroStato::SenzaStato, Letta));
}

void TestScadenzario::tabellaOstile_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<bool>("Noto");
    const QString Via = u"DROP TABLE \"_Calcanova\";"_s;
    QTest::newRow("a view that runs for ever")
        << Via +
               u"CREATE VIEW \"_Calcanova\" AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n) "
               u"SELECT 'Stato' AS Nome, i AS Valore FROM n"_s
        << false;
    QTest::newRow("a view, which is code of the file's own")
        << Via + u"CREATE VIEW \"_Calcanova\" AS SELECT 'Stato' AS Nome, 'Inviata' AS Valore"_s << false;
    QTest::newRow("other columns") << Via + u"CREATE TABLE \"_Calcanova\" (Chi TEXT, Che TEXT)"_s << false;
    QTest::newRow("an unknown state")
        << u"UPDATE \"_Calcanova\" SET Valore='Smarrita' WHERE Nome='Stato'"_s << false;
    QTest::newRow("a value of a megabyte")
        << u"UPDATE \"_Calcanova\" SET Valore=hex(zeroblob(500000)) WHERE Nome='Stato'"_s << false;
    QTest::newRow("no text") << u"UPDATE \"_Calcanova\" SET Valore=x'00ff' WHERE Nome='Stato'"_s << false;
    QTest::newRow("the name many times over")
        << Via +
               u"CREATE TABLE \"_Calcanova\" AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n "
               u"LIMIT 5000) SELECT 'Stato' AS Nome, 'Smarrita' AS Valore FROM n"_s
        << false;
    QTest::newRow("a negative rest")
        << u"UPDATE \"_Calcanova\" SET Valore='1;1;1;1;1;1;0;0;0;-5' WHERE Nome='Stato.Importi'"_s << true;
    QTest::newRow("an amount that eats the cents of the others")
        << u"UPDATE \"_Calcanova\" SET Valore='1e17;0;0;1e17;0;1e17;0;0;0;1e17' WHERE Nome='Stato.Importi'"_s
        << true;
    QTest::newRow("a rest without limits")
        << u"UPDATE \"_Calcanova\" SET Valore='1;1;1;1;1;1;0;0;0;1e999' WHERE Nome='Stato.Importi'"_s << true;
}

/// Whatever stands in the hidden table: the note is listed, and what is open of it is not known.
void TestScadenzario::tabellaOstile()
{
    QFETCH(QString, Sql);
    QFETCH(bool, Noto);
    Parcella Una = NotaDiRossi();
    (void)NotaInviata(Una, StampaPrenotula);
    const QString File = Note + u"una.mdb"_s;
    ScriviNota(File, Una);
    for (const QString& Parte : Sql.split(u';', Qt::SkipEmptyParts))
        if (Sql.startsWith(u"DROP"_s))
            EseguiSu(File, Parte);
    if (!Sql.startsWith(u"DROP"_s))
        EseguiSu(File, Sql);
    const VoceTrova Letta = Sola(Note);
    QCOMPARE(Letta.Nome, u"una"_s);
    QCOMPARE(Letta.Dati.Stato.Stato, Noto ? Inviata : Ignoto);
    QCOMPARE(ApertoDi(Letta), std::nullopt);
    QCOMPARE(SommaAperto({&Letta}).Ignote, 1);
}

void TestScadenzario::inUso()
{
    VoceTrova Una = Voce(Inviata, 10, 10);
    Una.Illeggibile = true;
    QCOMPARE(ApertoDi(Una), std::nullopt);
}

void TestScadenzario::filtri_data()
{
    QTest::addColumn<int>("Filtro");
    QTest::addColumn<QStringList>("Nomi");
    const auto Caso = [](FiltroStato Filtro, const QStringList& Nomi) {
        QTest::newRow(qPrintable(VociFiltroStato()[int(Filtro)])) << int(Filtro) << Nomi;
    };
    Caso(FiltroStato::Tutte, {u"bozza"_s, u"fatturata"_s, u"inviata"_s, u"modello"_s, u"pagata"_s,
                              u"preventivo"_s, u"saldata"_s, u"vecchia"_s});
    Caso(FiltroStato::DaIncassare, {u"fatturata"_s, u"inviata"_s});
    Caso(FiltroStato::Bozza, {u"bozza"_s});
    Caso(FiltroStato::Inviata, {u"inviata"_s, u"preventivo"_s, u"saldata"_s});
    Caso(FiltroStato::Fatturata, {u"fatturata"_s});
    Caso(FiltroStato::Pagata, {u"pagata"_s});
    Caso(FiltroStato::SenzaStato, {u"modello"_s, u"vecchia"_s});
}

namespace {

void Riempi(ElencoTrova& Elenco, const QList<std::pair<QString, VoceTrova>>& Voci)
{
    for (auto [Nome, Una] : Voci) {
        Una.Nome = Nome;
        Una.Percorso = u"/note/"_s + Nome;
        Elenco.Aggiungi(std::move(Una));
    }
    Elenco.Ordina();
}

QStringList NomiDi(const ElencoTrova& Elenco)
{
    QStringList Tutti;
    for (const VoceTrova* Una : Elenco.NoteMostrate())
        Tutti += Una->Nome;
    return Tutti;
}

}  // namespace

void TestScadenzario::filtri()
{
    QFETCH(int, Filtro);
    QFETCH(QStringList, Nomi);
    ElencoTrova Elenco;
    VoceTrova Modello = Voce(Inviata, 9, 9);
    Modello.Modello = true;
    VoceTrova Cartella;
    Cartella.Genere = GenereVoce::Cartella;
    Riempi(Elenco, {{u"bozza"_s, Voce(Bozza, 1, 1)},
                    {u"inviata"_s, Voce(Inviata, 2, 2)},
                    {u"fatturata"_s, Voce(Fatturata, 3, 3)},
                    {u"pagata"_s, Voce(Pagata, 4, 0)},
                    {u"preventivo"_s, Voce(Inviata, 5, 5, StampaPreventivo)},
                    {u"saldata"_s, Voce(Inviata, 6, 0)},
                    {u"vecchia"_s, VoceTrova()},
                    {u"modello"_s, Modello},
                    {u"[sotto]"_s, Cartella}});
    Elenco.FiltraStato(FiltroStato(Filtro));
    QCOMPARE(NomiDi(Elenco), Nomi);
    QCOMPARE(Elenco.Righe(), int(Nomi.size()) + 1);  // the folder stays
    QCOMPARE(Elenco.Filtrato(), Filtro != 0);
    QCOMPARE(Elenco.TutteLeNote(), 8);
}

void TestScadenzario::ilFiltroConIlTesto()
{
    ElencoTrova Elenco;
    Elenco.FiltraStato(FiltroStato::Inviata);  // before they arrive
    Riempi(Elenco, {{u"rossi 2"_s, Voce(Inviata, 2, 2)},
                    {u"rossi 1"_s, Voce(Bozza, 1, 1)},
                    {u"verdi"_s, Voce(Inviata, 3, 3)}});
    QCOMPARE(NomiDi(Elenco), (QStringList{u"rossi 2"_s, u"verdi"_s}));
    Elenco.Filtra(u"rossi"_s);
    QCOMPARE(NomiDi(Elenco), QStringList{u"rossi 2"_s});
    Elenco.FiltraStato(FiltroStato::Tutte);
    QCOMPARE(NomiDi(Elenco), (QStringList{u"rossi 1"_s, u"rossi 2"_s}));
    Elenco.Filtra({});
    Elenco.Ordina(TrovaStato, false);
    QCOMPARE(NomiDi(Elenco), (QStringList{u"rossi 2"_s, u"verdi"_s, u"rossi 1"_s}));
}

void TestScadenzario::aperto_data()
{
    QTest::addColumn<VoceTrova>("Voce");
    QTest::addColumn<bool>("Nota");
    QTest::addColumn<double>("Aperto");
    const auto Caso = [](const char* Nome, const VoceTrova& Una, std::optional<double> Quanto) {
        QTest::newRow(Nome) << Una << Quanto.has_value() << Quanto.value_or(0.0);
    };
    Caso("a draft asks for nothing", Voce(Bozza, 100, 100), 0.0);
    Caso("sent", Voce(Inviata, 100, 60), 60.0);
    Caso("invoiced", Voce(Fatturata, 100, 100, StampaFatturaAnalitica), 100.0);
    Caso("paid, whatever is left", Voce(Pagata, 100, 100), 0.0);
    Caso("an estimate", Voce(Inviata, 100, 100, StampaPreventivo), 0.0);
    Caso("the judge's note", Voce(Inviata, 100, 100, StampaNotaGiudiziale), 0.0);
    Caso("the account alone", Voce(Inviata, 100, 100, StampaSoloContabile), 100.0);
    Caso("chosen by hand, without a document", Voce(Inviata, 100, 100, -1), 100.0);
    VoceTrova Vista = Voce(Inviata, 100, 100, -1);
    Vista.Dati.TipoStampa = StampaPreventivo;
    Caso("chosen by hand, an estimate in view", Vista, 100.0);
    VoceTrova Storno = Voce(Fatturata, 100, 100, StampaFatturaAnalitica);
    Storno.Dati.Stato.Storno = true;
    Caso("a credit note", Storno, 0.0);
    VoceTrova Senza = Voce(Inviata, 0, 0);
    Senza.Dati.Stato.Importi.reset();
    Caso("without figures", Senza, std::nullopt);
    Caso("without a state", Voce(Ignoto, 100, 100), std::nullopt);
}

void TestScadenzario::aperto()
{
    QFETCH(VoceTrova, Voce);
    QFETCH(bool, Nota);
    QFETCH(double, Aperto);
    QCOMPARE(ApertoDi(Voce), Nota ? std::optional(Aperto) : std::nullopt);
}

void TestScadenzario::somme()
{
    const auto Di = [](const QString& Cliente, int Chiave, double Resto, StatoNota Stato = Inviata) {
        VoceTrova Una = Voce(Stato, Resto, Resto);
        Una.Cliente = Cliente;
        Una.Dati.IDCli = Chiave;
        return Una;
    };
    const std::array Voci{
        Di(u"Rossi"_s, 1, 0.1),   Di(u"Rossi"_s, 1, 0.2),         Di(u"Rossi"_s, 2, 5),
        Di(u"Verdi"_s, 0, 700.5), Di(u"Verdi"_s, 0, 200),         Di(u"Neri"_s, 0, 100, Bozza),
        Di(QString(), 0, 5),      Di(u"Bianchi"_s, 0, 5, Pagata), Di(u"Gialli"_s, 0, 9, Ignoto),
    };
    std::vector<const VoceTrova*> Mostrate;
    for (const VoceTrova& Una : Voci)
        Mostrate.push_back(&Una);
    VoceTrova Modello = Di(u"Rossi"_s, 1, 1000);
    Modello.Modello = true;
    Mostrate.push_back(&Modello);
    const ApertoTutto Somma = SommaAperto(Mostrate);
    QCOMPARE(Somma.Aperto, 910.8);
    QCOMPARE(Somma.Note, 6);
    QCOMPARE(Somma.Ignote, 1);
    QCOMPARE(
        Somma.Clienti,
        (QList<ApertoCliente>{
            {u"Verdi"_s, 900.5, 2}, {QString(), 5.0, 1}, {u"Rossi"_s, 5.0, 1, 2}, {u"Rossi"_s, 0.3, 2, 1}}));
}

namespace {

VoceTrova Fatturata12(const QString& Nome, qint64 Quando, double Resto = 100)
{
    VoceTrova Una;
    Una.Nome = Nome;
    Una.Percorso = u"/note/"_s + Nome;
    Una.Cliente = u"Rossi"_s;
    Una.Modificata = Quando;
    Una.Dati.NumFatt = u"12/A"_s;
    Una.Dati.DataFatt = u"09/11/2026"_s;
    Una.Dati.Stato.Stato = Fatturata;
    Una.Dati.Stato.Documento = StampaFatturaAnalitica;
    Una.Dati.Stato.Importi = ImportiDocumento{0, 0, 0, 100, 0, 100};
    Una.Dati.Stato.Resto = Resto;
    return Una;
}

}  // namespace

void TestScadenzario::stessaFattura_data()
{
    QTest::addColumn<VoceTrova>("Altra");
    QTest::addColumn<double>("Aperto");
    QTest::addColumn<int>("Copie");
    const auto Caso = [](const char* Nome, double Aperto, int Copie, auto Cambia) {
        VoceTrova Una = Fatturata12(u"altra"_s, 2, 60);
        Cambia(Una);
        QTest::newRow(Nome) << Una << Aperto << Copie;
    };
    Caso("the one that was saved last counts", 60, 1, [](VoceTrova&) {});
    Caso("it was saved before", 100, 1, [](VoceTrova& V) { V.Modificata = 0; });
    Caso("paid since", 0, 1, [](VoceTrova& V) { V.Dati.Stato.Stato = Pagata; });
    Caso("the number in other letters", 60, 1, [](VoceTrova& V) { V.Dati.NumFatt = u" 12/a"_s; });
    Caso("another number", 160, 0, [](VoceTrova& V) { V.Dati.NumFatt = u"13"_s; });
    Caso("another day", 160, 0, [](VoceTrova& V) { V.Dati.DataFatt = u"10/11/2026"_s; });
    Caso("no day", 160, 0, [](VoceTrova& V) { V.Dati.DataFatt.clear(); });
    Caso("another client", 160, 0, [](VoceTrova& V) { V.Cliente = u"Verdi"_s; });
    Caso("another client of that name", 160, 0, [](VoceTrova& V) { V.Dati.IDCli = 3; });
    Caso("a draft that is begun from it", 100, 0, [](VoceTrova& V) { V.Dati.Stato.Stato = Bozza; });
    Caso("a pro-forma note", 160, 0, [](VoceTrova& V) {
        V.Dati.Stato.Stato = Inviata;
        V.Dati.Stato.Documento = StampaPrenotula;
    });
}

/// An invoice that stands in two files is owed once.
void TestScadenzario::stessaFattura()
{
    QFETCH(VoceTrova, Altra);
    QFETCH(double, Aperto);
    QFETCH(int, Copie);
    const VoceTrova Una = Fatturata12(u"una"_s, 1);
    for (const std::vector<const VoceTrova*>& Mostrate :
         {std::vector<const VoceTrova*>{&Una, &Altra}, std::vector<const VoceTrova*>{&Altra, &Una}}) {
        const ApertoTutto Somma = SommaAperto(Mostrate);
        QCOMPARE(Somma.Aperto, Aperto);
        QCOMPARE(Somma.Copie, Copie);
        const QByteArray Csv = CsvScadenzario(Mostrate, [](int) { return CodiciCliente(); });
        QCOMPARE(Csv.count("Fattura analitica (copia);"), Copie);
        QCOMPARE(Csv.count(";;;;;;;;;;;"), Copie);  // no figure of it
    }
}

/// A credit note in a file of its own takes back what its invoice has open; the sum of both is what is owed.
void TestScadenzario::storni()
{
    const VoceTrova Una = Fatturata12(u"una"_s, 1);
    VoceTrova Credito = Fatturata12(u"credito"_s, 2);
    Credito.Dati.NumFatt = u"13"_s;
    Credito.Dati.Stato.Storno = true;
    Credito.Dati.Stato.CitataNumero = u"12/A"_s;
    Credito.Dati.Stato.CitataData = u"9/11/2026"_s;
    Credito.Dati.Stato.Importi = ImportiDocumento{0, 0, 0, 70, 0, 70};
    QCOMPARE(SommaAperto({&Una, &Credito}).Aperto, 30.0);
    QHash<const VoceTrova*, LegameFattura> Legami = LegamiFatture({&Credito, &Una});
    QCOMPARE(RigaScadenzario(Una, {}, Legami[&Una]).mid(14, 3).join(u'|'), u"100,00|0,00|30,00"_s);
    QCOMPARE(RigaScadenzario(Credito, {}, Legami[&Credito]).mid(14, 3).join(u'|'), u"-70,00|0,00|0,00"_s);
    Credito.Dati.Stato.CitataNumero = u"11"_s;
    QCOMPARE(SommaAperto({&Una, &Credito}).Aperto, 100.0);
    Credito.Dati.Stato.CitataNumero = u"12/A"_s;
    Credito.Dati.Stato.Importi->Netto = 500;
    QCOMPARE(SommaAperto({&Una, &Credito}).Aperto, 0.0);  // never below
}

void TestScadenzario::frasi()
{
    QCOMPARE(FraseAperto(ApertoTutto{0, 0, 5, 0, {}}), u"Aperto non noto: 5 parcelle senza importo"_s);
    QCOMPARE(FraseAperto(ApertoTutto{}), u"Aperto: 0,00 in 0 parcelle"_s);
    QCOMPARE(
        FraseAperto(ApertoTutto{12480, 7, 2, 0, {{u"Rossi"_s, 9280, 1}, {QString(), 3200, 6}}}),
        u"Aperto: 12.480,00 in 7 parcelle; 2 parcelle senza importo noto; Rossi 9.280,00; senza cliente 3.200,00"_s);
    QCOMPARE(FraseAperto(ApertoTutto{5, 1, 1, 2, {}}),
             u"Aperto: 5,00 in 1 parcella; 1 parcella senza importo noto; 2 copie non contate"_s);
    QCOMPARE(FraseAperto(ApertoCliente{u"Rossi"_s, 3200, 2}), u"3.200,00 in 2 parcelle"_s);
    QCOMPARE(ParoleFiltroStato().size(), VociFiltroStato().size());
}

void TestScadenzario::righe()
{
    VoceTrova Una = Voce(Fatturata, 1229.12, 1000, StampaFatturaAnalitica);
    Una.Nome = u"causa"_s;
    Una.Cliente = u"Rossi Mario"_s;
    Una.Dati.NumFatt = u"12"_s;
    Una.Dati.DataFatt = u"09/11/2026"_s;
    Una.Dati.Stato.Dal = u"10/11/2026"_s;
    Una.Dati.Stato.Scadenza = u"31/12/2026"_s;
    Una.Dati.Stato.Importi = ImportiDocumento{1150, 46, 263.12, 1459.12, 230, 1229.12};
    Una.Dati.Stato.Numero = u"7"_s;
    Una.Dati.Stato.Data = u"01/02/2026"_s;
    QCOMPARE(RigaScadenzario(Una, {u"RSSMRA80A01F205X"_s, u"01234567897"_s}),
             (QStringList{u"Rossi Mario"_s, u"RSSMRA80A01F205X"_s, u"01234567897"_s, u"Fattura analitica"_s,
                          u"12"_s, u"09/11/2026"_s, u"Fatturata"_s, u"10/11/2026"_s, u"31/12/2026"_s,
                          u"1150,00"_s, u"46,00"_s, u"263,12"_s, u"230,00"_s, u"1459,12"_s, u"1229,12"_s,
                          u"229,12"_s, u"1000,00"_s, u"causa"_s}));
    QCOMPARE(RigaScadenzario(Una, {}).size(), TitoliScadenzario().size());
    // Numbers are those of the document.
    Una.Dati.Stato.Documento = StampaPrenotula;
    QCOMPARE(RigaScadenzario(Una, {}).mid(3, 3), (QStringList{u"Prenotula"_s, u"7"_s, u"01/02/2026"_s}));
    Una.Dati.Stato.Documento = StampaSoloContabile;
    QCOMPARE(RigaScadenzario(Una, {}).mid(3, 3),
             (QStringList{u"Solo parte contabile!"_s, QString(), QString()}));
    Una.Dati.Stato.Documento = -1;
    QCOMPARE(RigaScadenzario(Una, {})[3], QString());
    // Paid: nothing is open, whatever the file left.
    Una.Dati.Stato.Stato = Pagata;
    QCOMPARE(RigaScadenzario(Una, {}).mid(14, 3), (QStringList{u"1229,12"_s, u"1229,12"_s, u"0,00"_s}));
    // Called invoiced by hand, with the contract in view.
    Una.Dati.TipoStampa = StampaContratto;
    Una.Dati.Stato.Stato = Fatturata;
    QCOMPARE(RigaScadenzario(Una, {}).mid(3, 3), (QStringList{QString(), u"12"_s, u"09/11/2026"_s}));
    Una.Dati.Stato.Documento = StampaFatturaAnalitica;
    Una.Dati.Stato.Storno = true;
    QCOMPARE(RigaScadenzario(Una, {}, {.Citata = true}).mid(3, 14).join(u'|'),
             u"Nota di credito|12|09/11/2026|Fatturata|10/11/2026|31/12/2026|-1150,00|-46,00|-263,12|-230,00|"
             u"-1459,12|-1229,12|0,00|0,00"_s);
    // Its invoice is not in the list: a sum would take away what it does not hold.
    Una.Dati.Stato.CitataNumero = u"9"_s;
    QCOMPARE(
        RigaScadenzario(Una, {}).mid(3, 14).join(u'|'),
        u"Nota di credito della fattura 9|12|09/11/2026|Fatturata|10/11/2026|31/12/2026|||||||0,00|0,00"_s);
    // A note of before: what is not known stays empty.
    Una.Dati.Stato = {};
    QCOMPARE(RigaScadenzario(Una, {}).mid(6, 11).join(QString()), QString());
}

void TestScadenzario::ilFile()
{
    VoceTrova Ostile = Voce(Inviata, -1459.12, 0);
    Ostile.Nome = u"=causa;1"_s;
    Ostile.Cliente = u"+Rossi \"detto\" Mario"_s;
    Ostile.Dati.Stato.Importi = ImportiDocumento{-1150, -46, -263.12, -1459.12, 0, -1459.12};
    Ostile.Dati.IDCli = 3;
    Ostile.Dati.Stato.Numero = u"-7"_s;
    VoceTrova Modello;
    Modello.Modello = true;
    VoceTrova Cartella;
    Cartella.Genere = GenereVoce::Cartella;
    const QByteArray Csv = CsvScadenzario({&Ostile, &Modello, &Cartella}, [](int Chi) {
        return CodiciCliente{u"@%1"_s.arg(Chi), QString()};
    });
    QCOMPARE(Csv, QByteArray("\xEF\xBB\xBF"
                             "Cliente;Codice fiscale;Partita IVA;Documento;Numero;Data;Stato;Dal;Scadenza;"
                             "Imponibile;Cassa;IVA;Ritenuta;Totale;Netto;Pagato;Aperto;Parcella\r\n"
                             "\"'+Rossi \"\"detto\"\" Mario\";'@3;;Prenotula;'-7;;Inviata;;;"
                             "-1150,00;-46,00;-263,12;0,00;-1459,12;-1459,12;0,00;0,00;\"'=causa;1\"\r\n"));
}

void TestScadenzario::codiciDalloStudio()
{
    const int Chiave = Ufficio->AggiungiCliente({{u"Nominativo"_s, u"Rossi Mario"_s},
                                                 {u"CodFis"_s, u"RSSMRA80A01F205X"_s},
                                                 {u"PIva"_s, u"01234567897"_s}});
    Nominativi Nomi;
    QCOMPARE(Nomi.Codici(Chiave).CodFis, u"RSSMRA80A01F205X"_s);
    QCOMPARE(Nomi.Codici(Chiave).PIva, u"01234567897"_s);
    QCOMPARE(Nomi.Codici(Chiave + 1).CodFis, QString());
    QCOMPARE(Nomi.Codici(0).CodFis, QString());
    Nomi.Chiudi();
    sessione::ArchivioCliCon = Ufficio->File(u"manca.mdb"_s);
    QCOMPARE(Nomi.Codici(Chiave).CodFis, QString());
}

#include "TestScadenzario.moc"
