// The accounting documents over pages: what stays together whatever their length.
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "documenti.h"
#include "print/modRiepilogo.h"

using namespace Qt::StringLiterals;

class TestPagineDocumenti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { campioni::ImpostaStudio(); }
    void cleanupTestCase() { AzzeraSessione(); }

    void totaliMaiSoli_data();
    void totaliMaiSoli();
    void firmeMaiSole_data();
    void firmeMaiSole();
    void righeMaiSpezzate_data();
    void righeMaiSpezzate();
    void titoliENumeroSuOgniPagina_data();
    void titoliENumeroSuOgniPagina();
    void testiSenzaSpazi_data();
    void testiSenzaSpazi();

private:
    documenti::DataFissa Oggi{QDate(2014, 1, 10)};
};
PROVA(TestPagineDocumenti);

namespace {

/// A note with so many rows of what the document lists: payments in the short invoice, fees elsewhere.
Parcella ConVoci(int Quante, int Tipo, const QString& Testo)
{
    Parcella Nota = documenti::Completa(campioni::Civile());
    Nota.xOnorari.Azzera(OnoColonne);
    Nota.chkAcconti.Attiva = true;
    // What is paid of everything makes the summary as long as it gets.
    campioni::AggiungiAcconto(Nota.xAcconti, u"fondo spese"_s, u"E"_s, 1.0, 1.0, 1.0);
    campioni::AggiungiSpesa(Nota.xDiritti, u"copie"_s, 1.0, 2.0, 2.0);
    for (int i = 1; i <= Quante; ++i) {
        if (Tipo == StampaFatturaSintetica)
            campioni::AggiungiAcconto(Nota.xAcconti, Testo.arg(i), u"E"_s, 1.0);
        else
            campioni::AggiungiOnorario(Nota.xOnorari, Testo.arg(i), 1.0, 100.0);
    }
    return Nota;
}

Impaginazione Pagine(const Parcella& Nota, int Tipo)
{
    return Impaginazione(documenti::Composto(Nota, Tipo));
}

int PaginaDi(const Impaginazione& Fatta, const QString& Parte)
{
    return pagine::CercaRiga(Fatta, Parte).Pagina;
}

/// The documents with amounts.
void RigheContabili()
{
    QTest::addColumn<int>("Tipo");
    QTest::newRow("prenotula") << int(StampaPrenotula);
    QTest::newRow("preventivo") << int(StampaPreventivo);
    QTest::newRow("fattura sintetica") << int(StampaFatturaSintetica);
    QTest::newRow("fattura analitica") << int(StampaFatturaAnalitica);
    QTest::newRow("nota giudiziale") << int(StampaNotaGiudiziale);
    QTest::newRow("parte contabile") << int(StampaSoloContabile);
}

/// The page of the row below which the sum of the lines stands, and that of the sum.
QPair<int, int> UltimaVoceESomma(const Impaginazione& Fatta, int Tipo, int Quante)
{
    const QString& Testo = Fatta.Testo();
    const qsizetype Ultima = Testo.indexOf(u"voce %1\t"_s.arg(Quante));
    // Below the fees the sum follows a rule, in the short invoice a blank row.
    const qsizetype Somma = Testo.indexOf(
        Tipo == StampaFatturaSintetica ? u"Totali:"_s : u"\n\t\t"_s + ImportoStampa(100.0 * Quante), Ultima);
    return {Fatta.PaginaDi(Ultima), Somma < 0 ? 0 : Fatta.PaginaDi(Somma + 1)};
}

}  // namespace

void TestPagineDocumenti::totaliMaiSoli_data()
{
    RigheContabili();
}

void TestPagineDocumenti::totaliMaiSoli()
{
    QFETCH(int, Tipo);
    const bool Sintetica = Tipo == StampaFatturaSintetica;
    for (int Voci = 1; Voci <= 80; ++Voci) {
        const Impaginazione Fatta = Pagine(ConVoci(Voci, Tipo, u"voce %1"_s), Tipo);
        const QByteArray Quante = "voci: " + QByteArray::number(Voci);
        QVERIFY2(pagine::Difetto(Fatta).isEmpty(), Quante);
        // The summary is one piece: its title, its first amount, its total, its words.
        const int Riepilogo = PaginaDi(Fatta, u"RIEPILOGO"_s);
        QVERIFY2(Riepilogo > 0, Quante);
        const QStringList Parti = Sintetica ? QStringList{u"Importi imponibili"_s, u"Totale fattura: euro"_s}
                                            : QStringList{u"Spese imponibili"_s, u"TOTALE EURO"_s};
        for (const QString& Parte : Parti)
            QVERIFY2(Fatta.PaginaDi(Fatta.Testo().lastIndexOf(Parte)) == Riepilogo, Quante);
        QVERIFY2(Fatta.PaginaDi(Fatta.Testo().lastIndexOf(u"/00)"_s)) == Riepilogo ||
                     Fatta.Testo().lastIndexOf(u"/00)"_s) < 0,
                 Quante);
        // The sum of the lines has the last of them above it.
        const auto [Voce, Somma] = UltimaVoceESomma(Fatta, Tipo, Voci);
        QVERIFY2(Voce > 0 && Voce == Somma, Quante);
    }
}

void TestPagineDocumenti::firmeMaiSole_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Firmato");
    const QString Riepilogo = u"RIEPILOGO"_s;
    QTest::newRow("prenotula") << int(StampaPrenotula) << u"N.B. : la presente"_s;
    QTest::newRow("preventivo") << int(StampaPreventivo) << u"N.B.: il presente"_s;
    QTest::newRow("fattura sintetica") << int(StampaFatturaSintetica) << Riepilogo;
    QTest::newRow("fattura analitica") << int(StampaFatturaAnalitica) << Riepilogo;
    QTest::newRow("nota giudiziale") << int(StampaNotaGiudiziale) << Riepilogo;
}

/// Whatever the length of the list, a signature stands on the page of what it signs: the reservations of an
/// estimate whole, the summary elsewhere.
void TestPagineDocumenti::firmeMaiSole()
{
    QFETCH(int, Tipo);
    QFETCH(QString, Firmato);
    for (int Voci = 1; Voci <= 60; ++Voci) {
        Parcella Nota = ConVoci(Voci, Tipo, u"voce %1"_s);
        Nota.chkIBAN.Attiva = Nota.chkIvaDiff.Attiva = false;  // nothing between that and the signature
        const Impaginazione Fatta = Pagine(Nota, Tipo);
        const QString& Testo = Fatta.Testo();
        const qsizetype Firma = Testo.lastIndexOf(u"Avv. Giulia Neri"_s);
        const qsizetype Sopra = Testo.lastIndexOf(Firmato, Firma);
        QVERIFY(Sopra > 0);
        QVERIFY2(Fatta.PaginaDi(Sopra) == Fatta.PaginaDi(Firma), "voci: " + QByteArray::number(Voci));
    }
    // The exports are told the same: down to the signature, every block goes with the one below.
    const std::vector<BloccoDocumento> Blocchi =
        documenti::Composto(ConVoci(3, Tipo, u"voce %1"_s), Tipo).Blocchi;
    for (std::size_t i = Blocchi.size() - 3; i < Blocchi.size(); ++i)
        QCOMPARE(std::visit([](const auto& Uno) { return Uno.ConSeguente; }, Blocchi[i]),
                 i + 1 < Blocchi.size());
}

void TestPagineDocumenti::righeMaiSpezzate_data()
{
    RigheContabili();
}

void TestPagineDocumenti::righeMaiSpezzate()
{
    QFETCH(int, Tipo);
    const QString Lunga = u"voce %1 "_s + u"assistenza e redazione degli atti "_s.repeated(5);
    for (int Voci = 10; Voci <= 40; Voci += 3) {
        const Impaginazione Fatta = Pagine(ConVoci(Voci, Tipo, Lunga), Tipo);
        QVERIFY(Fatta.NumeroPagine() > 1 || Voci < 20);
        qsizetype Inizio = 0;
        for (const QString& Riga : Fatta.Testo().split(u'\n')) {
            if (Riga.contains(u'\t'))
                QCOMPARE(Fatta.PaginaDi(Inizio), Fatta.PaginaDi(Inizio + Riga.size() - 1));
            Inizio += Riga.size() + 1;
        }
    }
}

void TestPagineDocumenti::titoliENumeroSuOgniPagina_data()
{
    RigheContabili();
}

void TestPagineDocumenti::titoliENumeroSuOgniPagina()
{
    QFETCH(int, Tipo);
    const Impaginazione Fatta = Pagine(ConVoci(120, Tipo, u"voce %1"_s), Tipo);
    QVERIFY(Fatta.NumeroPagine() >= 3);
    const QByteArray Pdf = Fatta.Pdf(u"Prova"_s);
    const QStringList Titoli = Tipo == StampaFatturaSintetica
                                   ? QStringList{u"-"_s, u"voce"_s}
                                   : QStringList{u"ONORARI"_s, u"Importo"_s, u"voce"_s};
    for (int Pagina = 1; Pagina <= Fatta.NumeroPagine(); ++Pagina) {
        const QStringList Parole = pagine::ParoleDiPagina(Pdf, Pagina);
        QCOMPARE(Parole.mid(Parole.size() - 2), (QStringList{u"Pagina"_s, QString::number(Pagina)}));
        if (Pagina > 1 && Pagina < Fatta.NumeroPagine())
            QCOMPARE(Parole.mid(0, Titoli.size()), Titoli);
    }
}

void TestPagineDocumenti::testiSenzaSpazi_data()
{
    RigheContabili();
}

/// A name, a subject and a description without a place to break a line stay on the sheet.
void TestPagineDocumenti::testiSenzaSpazi()
{
    QFETCH(int, Tipo);
    const QString Lungo(500, u'M');
    Parcella Nota = ConVoci(2, Tipo, u"voce%1"_s + Lungo.left(60));
    for (Casella* Box : {&Nota.txtDatiStaCli, &Nota.txtControp, &Nota.txtDatiStaControp, &Nota.txtDatiStaOgg})
        Box->Testo = Lungo;
    campioni::ImpostaTesti(Nota, Lungo, Lungo);
    const Impaginazione Fatta = Pagine(Nota, Tipo);
    QCOMPARE(pagine::Difetto(Fatta), QString());
    // client, counterparty, and subject but for the court; two texts where nobody is named
    const int Volte = Tipo == StampaNotaGiudiziale || Tipo == StampaSoloContabile ? 2 : 3;
    QCOMPARE(Fatta.Testo().count(Lungo), Volte);
}

#include "TestPagineDocumenti.moc"
