// An invoice and its credit note in one file: both stand in the accountant's rows, and their sums are 0.
#include "bancostorni.h"

#include "feenote/modAcconti.h"
#include "feenote/modDuplica.h"

#include <QFile>

using namespace Qt::StringLiterals;
using enum StatoNota;

class TestScadenzarioStorni : public QObject, private BancoStorni
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void leDueRighe();
    void cheCosaResta_data();
    void cheCosaResta();
    void inCorso();
    void seguitaDaUnAltra();
    void dopoUnaPagataAMano();
    void pagateInsieme();
    void stornoSottoZero();
    void citataAltrove();
    void inUnFileSuo();
    void colNumeroDelFoglio();
    void primaDelNumero();
    void sottoUnFiltro();
    void pagataNellAltroFile();
    void inElenco();
    void ilRovescioDeiNumeri();
};
PROVA(TestScadenzarioStorni);

void TestScadenzarioStorni::leDueRighe()
{
    Parcella Una = Nota();
    Emetti(Una, u"12"_s);
    Una.xOnorari.AggiungiRiga();  // a line that came behind the invoice
    Emetti(Una, u"13"_s, true);
    Scrivi(Una);
    QCOMPARE(Tabella(), (QStringList{u"Fattura analitica|12|1150,00|1459,12|0,00|0,00"_s,
                                     u"Nota di credito della fattura 12|13|-1150,00|-1459,12|0,00|0,00"_s}));
    QCOMPARE(SommaAperto(Note), (ApertoTutto{0, 0, 0, 0, {}}));
    const QByteArray Csv = CsvScadenzario(Note, [](int Chi) {
        return CodiciCliente{QString::number(Chi), {}};
    });
    QCOMPARE(Csv.count("\r\n"), 3);
    QVERIFY(
        Csv.contains("\r\nRossi Mario;0;;Fattura analitica;12;09/11/2026;Fatturata;22/11/2026;;1150,00;46,00;"
                     "263,12;0,00;1459,12;1459,12;0,00;0,00;una\r\n"));
    QVERIFY(Csv.contains(
        "\r\nRossi Mario;0;;Nota di credito della fattura 12;13;09/11/2026;Fatturata;22/11/2026;;"
        "-1150,00;-46,00;-263,12;0,00;-1459,12;-1459,12;0,00;0,00;una\r\n"));
    QCOMPARE(FrasiDocumenti(Righe[0]),
             (QStringList{u"Fattura analitica 12 del 09/11/2026: 1.459,12"_s,
                          u"Nota di credito 13 del 09/11/2026, della fattura 12: -1.459,12"_s}));
    QCOMPARE(ParolaStato(Righe[0]), u"Stornata"_s);
    QCOMPARE(CellaTrova(Righe[0], TrovaStato), u"Stornata"_s);
    QCOMPARE(StatoMostrato(Righe[0]), Fatturata);
    QVERIFY(!PassaStato(FiltroStato::DaIncassare, Righe[0]));
    QVERIFY(PassaStato(FiltroStato::Fatturata, Righe[0]));
}

void TestScadenzarioStorni::cheCosaResta_data()
{
    QTest::addColumn<double>("Storno");
    QTest::addColumn<double>("Pagato");
    QTest::addColumn<int>("Stato");
    QTest::addColumn<QString>("Prima");
    QTest::addColumn<double>("Aperto");
    QTest::addColumn<QString>("Parola");
    const auto Caso = [](const char* Nome, double Storno, double Pagato, StatoNota Stato,
                         const QString& Prima, double Aperto, const QString& Parola) {
        QTest::newRow(Nome) << Storno << Pagato << int(Stato) << Prima << Aperto << Parola;
    };
    Caso("a part of it is taken back", 100, 0, Fatturata,
         u"Fattura analitica|12|1150,00|1459,12|0,00|1313,21"_s, 1313.21, u"Fatturata"_s);
    Caso("a part, and the rest is paid in part", 100, 100, Fatturata,
         u"Fattura analitica|12|1150,00|1459,12|126,88|1186,33"_s, 1186.33, u"Fatturata"_s);
    Caso("a part was paid, all is taken back", 1000, 100, Fatturata,
         u"Fattura analitica|12|1150,00|1459,12|126,88|0,00"_s, 0, u"Stornata"_s);
    Caso("more than it was", 2000, 0, Fatturata, u"Fattura analitica|12|1150,00|1459,12|0,00|0,00"_s, 0,
         u"Stornata"_s);
    Caso("a part, and the user says that the rest is paid", 100, 0, Pagata,
         u"Fattura analitica|12|1150,00|1459,12|1313,21|0,00"_s, 0, u"Pagata"_s);
    Caso("called a draft again", 1000, 0, Bozza, {}, 0, u"Bozza"_s);
}

/// What the credit note leaves of its invoice is open, and payments of the file are the invoice's.
void TestScadenzarioStorni::cheCosaResta()
{
    QFETCH(double, Storno);
    QFETCH(double, Pagato);
    QFETCH(int, Stato);
    QFETCH(QString, Prima);
    QFETCH(double, Aperto);
    Parcella Una = Nota();
    Emetti(Una, u"12"_s);
    Una.xOnorari(0, OnoImporto) = Storno;
    Emetti(Una, u"13"_s, true);
    if (Pagato > 0)
        Una.xAcconti(NuovoAcconto(Una), AccCorrispettivi) = Pagato;
    (void)ScegliStato(Una, StatoNota(Stato));
    Scrivi(Una);
    QCOMPARE(Tabella().size(), Prima.isEmpty() ? 1 : 2);
    QCOMPARE(Prima.isEmpty() ? QString() : Tabella()[0], Prima);
    QCOMPARE(ApertoDi(Righe[0]), std::optional(Aperto));
    QCOMPARE(SommaAperto(Note).Aperto, Aperto);
    QCOMPARE(SommaAperto(Note).Note, Aperto > 0 ? 1 : 0);
    QCOMPARE(PassaStato(FiltroStato::DaIncassare, Righe[0]), Aperto > 0);
    QTEST(ParolaStato(Righe[0]), "Parola");
}

/// The copy of such a file counts neither of the two again.
void TestScadenzarioStorni::inCorso()
{
    Parcella Una = Nota();
    Emetti(Una, u"12"_s);
    Una.FatturaXml.Tipo = u"TD04"_s;
    Una.txtDatiPar.remove(DatoNumFatt);
    Una.txtDatiPar.remove(DatoDataFatt);
    Scrivi(Una);
    QCOMPARE(Tabella(), QStringList{u"Fattura analitica|12|1150,00|1459,12|0,00|1459,12"_s});
    QCOMPARE(FrasiDocumenti(Righe[0]), QStringList());
    // One whose number was taken away is none.
    Una.FatturaXml.Tipo.clear();
    Copertura Vista;
    (void)SegueStato(Una, Vista);
    Scrivi(Una);
    QCOMPARE(Una.Stato.Stato, Inviata);
    QCOMPARE(Tabella(), QStringList{u"Fattura analitica||1150,00|1459,12|0,00|1459,12"_s});
}

void TestScadenzarioStorni::seguitaDaUnAltra()
{
    Parcella Una = Nota();
    Emetti(Una, u"12"_s);
    Emetti(Una, u"13"_s, true);
    Una.xOnorari(0, OnoImporto) = 100.0;
    Emetti(Una, u"14"_s);
    Scrivi(Una);
    QCOMPARE(Tabella(), (QStringList{u"Fattura analitica|12|1150,00|1459,12|0,00|0,00"_s,
                                     u"Nota di credito della fattura 12|13|-1150,00|-1459,12|0,00|0,00"_s,
                                     u"Fattura analitica|14|115,00|145,91|0,00|145,91"_s}));
    QCOMPARE(SommaAperto(Note).Aperto, 145.91);
    QCOMPARE(ParolaStato(Righe[0]), u"Fatturata"_s);
    // A payment by hand is of the last one; the first is owed no more.
    (void)ScegliStato(Una, Pagata);
    Scrivi(Una);
    QCOMPARE(SommaAperto(Note).Aperto, 0.0);
}

/// The user has called the first paid and has written no payment down: it stays paid, the next one is open.
void TestScadenzarioStorni::dopoUnaPagataAMano()
{
    Parcella Una = Nota();
    Emetti(Una, u"12"_s);
    (void)ScegliStato(Una, Pagata);
    Una.xOnorari(0, OnoImporto) = 100.0;
    Emetti(Una, u"30"_s);
    Scrivi(Una);
    QCOMPARE(Tabella(), (QStringList{u"Fattura analitica|12|1150,00|1459,12|1459,12|0,00"_s,
                                     u"Fattura analitica|30|115,00|145,91|0,00|145,91"_s}));
    QStringList Stati;
    for (const QStringList& Celle : RigheScadenzario(Note, [](int) { return CodiciCliente(); }))
        Stati += Celle[6];
    QCOMPARE(Stati, (QStringList{u"Pagata"_s, u"Fatturata"_s}));
    QCOMPARE(SommaAperto(Note).Aperto, 145.91);
    QVERIFY(PassaStato(FiltroStato::DaIncassare, Righe[0]));
}

/// A payment is spent once: rows, sums and word of the state say the same.
void TestScadenzarioStorni::pagateInsieme()
{
    Parcella Una = Nota();
    Emetti(Una, u"12"_s);
    Una.xOnorari(0, OnoImporto) = 100.0;
    Emetti(Una, u"13"_s, true);
    Una.xOnorari(0, OnoImporto) = 1000.0;
    Emetti(Una, u"14"_s);
    // 1.035,00 are what the credit note leaves of the first.
    Una.xAcconti(NuovoAcconto(Una), AccCorrispettivi) = 1135.0;
    Scrivi(Una);
    QCOMPARE(Tabella(), (QStringList{u"Fattura analitica|12|1150,00|1459,12|1313,21|0,00"_s,
                                     u"Nota di credito della fattura 12|13|-115,00|-145,91|0,00|0,00"_s,
                                     u"Fattura analitica|14|1150,00|1459,12|126,88|1332,24"_s}));
    QCOMPARE(SommaAperto(Note), (ApertoTutto{1332.24, 1, 0, 0, {{Righe[0].Cliente, 1332.24, 1}}}));
    QCOMPARE(ApertoDi(Righe[0]), std::optional(1332.24));
    QCOMPARE(Righe[0].Dati.Stato.Stato, Fatturata);
}

/// A credit note below 0 raises nothing that its invoice asked for.
void TestScadenzarioStorni::stornoSottoZero()
{
    Parcella Una = Nota();
    Una.xAcconti(NuovoAcconto(Una), AccCorrispettivi) = 500.0;
    Emetti(Una, u"12"_s);
    Una.xOnorari(0, OnoImporto) = 100.0;
    Emetti(Una, u"13"_s, true);
    Scrivi(Una);
    QCOMPARE(SommaAperto(Note).Aperto, 824.72);
    QCOMPARE(ApertoDi(Righe[0]), std::optional(824.72));
}

/// A credit note that cites an invoice of another file takes that one back; the file's own stays owed.
void TestScadenzarioStorni::citataAltrove()
{
    Parcella Altra = Nota();
    Emetti(Altra, u"7"_s);
    Scrivi(Altra, u"altra.mdb"_s);
    Parcella Una = Nota();
    Una.xOnorari(0, OnoImporto) = 500.0;
    Emetti(Una, u"12"_s);
    Una.xOnorari(0, OnoImporto) = 1000.0;
    Una.FatturaXml.Tipo = u"TD04"_s;
    Una.FatturaXml.CitataNumero = u"7"_s;
    Una.FatturaXml.CitataData = u"9/11/2026"_s;
    Una.txtDatiPar[DatoNumFatt] = u"13"_s;
    SegnaFatturaScritta(Una, u"IT1_13.xml"_s, u"13"_s);
    Scrivi(Una);
    QCOMPARE(SommaAperto(Note).Aperto, 729.56);
    QVERIFY(Tabella().contains(u"Fattura analitica|7|1150,00|1459,12|0,00|0,00"_s));
    QVERIFY(Tabella().contains(u"Fattura analitica|12|575,00|729,56|0,00|729,56"_s));
}

/// In a file of its own a credit note says what it takes back, and its state is that of any document.
void TestScadenzarioStorni::inUnFileSuo()
{
    Parcella Una = Nota();
    Una.txtDatiPar[DatoNumFatt] = u"7"_s;
    Una.txtDatiPar[DatoDataFatt] = u"01/11/2026"_s;
    Emetti(Una, u"13"_s, true);
    Scrivi(Una);
    QCOMPARE(Tabella(), QStringList{u"Nota di credito della fattura 7|13|||0,00|0,00"_s});
    QCOMPARE(FrasiDocumenti(Righe[0]),
             QStringList{u"Nota di credito 13 del 09/11/2026, della fattura 7: -1.459,12"_s});
    QCOMPARE(ParolaStato(Righe[0]), u"Fatturata"_s);
    QCOMPARE(ApertoDi(Righe[0]), std::optional(0.0));
}

/// The box says "12", paper and electronic file "12/2026": it is one invoice.
void TestScadenzarioStorni::colNumeroDelFoglio()
{
    Parcella Fattura = Nota();
    Emetti(Fattura, u"12"_s);
    Scrivi(Fattura, u"fattura.mdb"_s);
    Parcella Credito = Duplicata(Fattura, true);
    Credito.txtDatiPar[DatoNumFatt] = u"12/2026"_s;
    Credito.txtDatiPar[DatoDataFatt] = u"9/11/2026"_s;
    Emetti(Credito, u"13"_s, true);
    Scrivi(Credito, u"credito.mdb"_s);
    QCOMPARE(SommaAperto(Note).Aperto, 0.0);
    QVERIFY(Tabella().contains(u"Fattura analitica|12|1150,00|1459,12|0,00|0,00"_s));
    QVERIFY(Tabella().contains(u"Nota di credito della fattura 12/2026|13|-1150,00|-1459,12|0,00|0,00"_s));
    Parcella Copia = Nota();
    Emetti(Copia, u"12/2026"_s);
    Scrivi(Copia, u"copia.mdb"_s);
    QCOMPARE(SommaAperto(Note).Copie, 1);
    QCOMPARE(SommaAperto(Note).Aperto, 0.0);
    // The year of another date is part of the number.
    Parcella Altra = Nota();
    Emetti(Altra, u"12/2025"_s);
    Scrivi(Altra, u"d.mdb"_s);
    QCOMPARE(SommaAperto(Note).Aperto, 1459.12);
}

/// The draft of a credit note is no money to be cashed, and takes nothing back yet.
void TestScadenzarioStorni::primaDelNumero()
{
    Parcella Fattura = Nota();
    Emetti(Fattura, u"12"_s);
    Scrivi(Fattura, u"fattura.mdb"_s);
    for (const bool AMano : {false, true}) {
        Parcella Credito = Duplicata(Fattura, true);
        Credito.FatturaXml.Tipo = u"TD04"_s;
        Credito.FatturaXml.CitataNumero = u"12"_s;
        Credito.FatturaXml.CitataData = u"09/11/2026"_s;
        (void)(AMano ? ScegliStato(Credito, Inviata) : NotaInviata(Credito, StampaFatturaAnalitica));
        Scrivi(Credito, u"credito.mdb"_s);
        QCOMPARE(SommaAperto(Note).Aperto, 1459.12);
        QCOMPARE(SommaAperto(Note).Note, 1);
        QVERIFY(Tabella().contains(u"Nota di credito della fattura 12||||0,00|0,00"_s));
    }
}

/// What a filter leaves out still takes back and still holds an invoice a second time.
void TestScadenzarioStorni::sottoUnFiltro()
{
    Parcella Fattura = Nota();
    Emetti(Fattura, u"12"_s);
    Scrivi(Fattura, u"fattura.mdb"_s);
    Parcella Credito = Duplicata(Fattura, true);
    Credito.txtDatiPar[DatoNumFatt] = u"12"_s;
    Credito.txtDatiPar[DatoDataFatt] = u"09/11/2026"_s;
    Credito.xOnorari(0, OnoImporto) = 100.0;
    Emetti(Credito, u"13"_s, true);
    Scrivi(Credito, u"credito.mdb"_s);
    ElencoTrova Elenco;
    Elenco.Azzera(false);
    for (const VoceTrova& Una : Righe)
        Elenco.Aggiungi(VoceTrova(Una));
    Elenco.FiltraStato(FiltroStato::DaIncassare);
    QCOMPARE(Elenco.Note(), 1);
    QCOMPARE(Elenco.Voce(0).Nome, u"fattura"_s);
    QCOMPARE(SommaAperto(Elenco.NoteMostrate(), Elenco.NoteTutte()).Aperto, 1313.21);
    const QByteArray Csv = CsvScadenzario(
        Elenco.NoteMostrate(), [](int) { return CodiciCliente(); }, Elenco.NoteTutte());
    QCOMPARE(Csv.count("\r\n"), 2);
    QVERIFY(Csv.contains(";1459,12;0,00;1313,21;fattura\r\n"));
    // The credit note without its invoice takes nothing away from the sums of the sheet.
    Elenco.FiltraStato(FiltroStato::Tutte);
    Elenco.Filtra(u"credito"_s);
    QCOMPARE(Elenco.Note(), 1);
    const QByteArray Solo = CsvScadenzario(
        Elenco.NoteMostrate(), [](int) { return CodiciCliente(); }, Elenco.NoteTutte());
    QVERIFY(Solo.contains(
        ";Nota di credito della fattura 12;13;09/11/2026;Fatturata;22/11/2026;;;;;;;;0,00;0,00;credito\r\n"));
    Elenco.Filtra(u"fattura"_s);
    QCOMPARE(Elenco.Note(), 1);
    QCOMPARE(SommaAperto(Elenco.NoteMostrate(), Elenco.NoteTutte()).Aperto, 1313.21);
    // Taken back whole it waits for nobody's money.
    Credito.xOnorari(0, OnoImporto) = 1000.0;
    SegnaFatturaScritta(Credito, u"IT1_13.xml"_s, u"13"_s);
    Scrivi(Credito, u"credito.mdb"_s);
    Elenco.Azzera(false);
    Elenco.Filtra({});
    Elenco.FiltraStato(FiltroStato::DaIncassare);
    for (const VoceTrova& Una : Righe)
        Elenco.Aggiungi(VoceTrova(Una));
    Elenco.Ordina();
    QCOMPARE(Elenco.Note(), 0);
    QCOMPARE(Elenco.TutteLeNote(), 2);
}

void TestScadenzarioStorni::pagataNellAltroFile()
{
    Parcella Fattura = Nota();
    Emetti(Fattura, u"12"_s);
    Scrivi(Fattura, u"prima.mdb"_s);
    (void)ScegliStato(Fattura, Pagata);
    Scrivi(Fattura, u"dopo.mdb"_s);
    QFile Indietro(Cartella + u"prima.mdb"_s);
    QVERIFY(Indietro.open(QIODevice::ReadWrite));
    QVERIFY(
        Indietro.setFileTime(QDateTime::currentDateTime().addDays(-9), QFileDevice::FileModificationTime));
    Indietro.close();
    Leggi();
    QCOMPARE(NoteDaIncassare(Note).size(), 0);
    VoceTrova& Prima = Righe[0].Nome == u"prima" ? Righe[0] : Righe[1];
    QCOMPARE(Prima.Nome, u"prima"_s);
    QCOMPARE(SommaAperto({&Prima}).Aperto, 1459.12);                       // alone it is the only one
    QCOMPARE(SommaAperto({&Prima}, Note), (ApertoTutto{0, 0, 0, 0, {}}));  // it stands for the paid one
    // The other way round: the last one saved is owed.
    Prima.Modificata += qint64(30) * 24 * 3600 * 1000;
    QCOMPARE(NoteDaIncassare(Note), QSet<const VoceTrova*>{&Prima});
}

/// Templates, folders and notes of before have one row or none.
void TestScadenzarioStorni::inElenco()
{
    Parcella Una = Nota();
    Emetti(Una, u"12"_s);
    Emetti(Una, u"13"_s, true);
    Scrivi(Una);
    VoceTrova Modello = Righe[0];
    Modello.Modello = true;
    QCOMPARE(DocumentiNote({&Modello}).Tutti().size(), size_t(1));
    QVERIFY(RigheScadenzario({&Modello}, [](int) { return CodiciCliente(); }).empty());
    QCOMPARE(FrasiDocumenti(Modello), QStringList());
    VoceTrova SenzaStato = Righe[0];
    SenzaStato.Dati.Stato.Stato = Ignoto;
    QCOMPARE(DocumentiNote({&SenzaStato}).Tutti().size(), size_t(1));
    const DocumentiNote Due({&Righe[0], &Modello, &Righe[0]});
    QCOMPARE(Due.Tutti().size(), size_t(5));
}

/// A number may hold the sign between the parts of an entry, and be longer than a list shows.
void TestScadenzarioStorni::ilRovescioDeiNumeri()
{
    const QString Strano = u"12;A/\"è\""_s;
    Parcella Una = Nota();
    Emetti(Una, Strano);
    Emetti(Una, u"13"_s, true);
    Scrivi(Una);
    QCOMPARE(Tabella()[0], u"Fattura analitica|"_s + Strano + u"|1150,00|1459,12|0,00|0,00"_s);
    Parcella Lunga = Nota();
    Emetti(Lunga, QString(250, u'9'));
    Emetti(Lunga, u"13"_s, true);
    Scrivi(Lunga);
    QVERIFY(Tabella()[0].startsWith(u"Fattura analitica|9999999999"_s));
    QVERIFY(Tabella()[0].endsWith(u"|1150,00|1459,12|0,00|0,00"_s));
    QCOMPARE(SommaAperto(Note).Aperto, 0.0);
}

#include "TestScadenzarioStorni.moc"
