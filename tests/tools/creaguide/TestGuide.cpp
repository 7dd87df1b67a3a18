#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "calculators/modContributo.h"
#include "creadati/tassi.h"
#include "creaguide/creaguide.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

/// The guides as they were built, read back with other tools.
class TestGuide : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documenti_data();
    void documenti();
    void vociAccantoAlSegno_data();
    void vociAccantoAlSegno();
    void tassiInTabella();
    void importiDelleImpugnazioni_data();
    void importiDelleImpugnazioni();
    void capitoliDellaGuidaGiuridica_data();
    void capitoliDellaGuidaGiuridica();
    void indiceDellaGuidaGiuridica();
    void pagineDellaGuidaGiuridica();
    void mediInTabella();
    void unaPerTesto();
    void sintesiDatate_data();
    void sintesiDatate();
    void indirizzoMancante();
    void elencoDeiDocumenti();
    void usoErrato();
    void testoRifiutato();
    void senzaTesti();
};
PROVA(TestGuide);

namespace {

QByteArray Pdf(const QString& Nome)
{
    return LeggiFile(ProgrammaDiProva() + Nome);
}

QString Testo(const QByteArray& Contenuto)
{
    return pagine::Leggi(u"pdftotext"_s, {u"-layout"_s, u"%"_s, u"-"_s}, Contenuto);
}

QString Dati()
{
    return SorgenteDiProva(u"dati/"_s);
}

/// The names of the list of documents, as delivered.
QStringList Elenco()
{
    QStringList Righe;
    for (const QString& Riga :
         QString::fromUtf8(LeggiFile(ProgrammaDiProva() + u"docum/elenco.txt"_s)).split(u'\n'))
        if (!Riga.trimmed().isEmpty())
            Righe << Riga.trimmed();
    return Righe;
}

/// The words of a document of the list, on one line.
QString ParoleDelDocumento(const QString& Nome)
{
    static const QRegularExpression Marche(u"<[^>]+>"_s);
    const QByteArray Contenuto = Pdf(u"docum/"_s + Nome);
    if (Nome.endsWith(u".pdf"))
        return Testo(Contenuto).simplified();
    return QString::fromUtf8(Contenuto).section(u"<body>"_s, 1).remove(Marche).simplified();
}

}  // namespace

void TestGuide::documenti_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Titolo");
    QTest::addColumn<QString>("Frase");

    QTest::newRow("default interest") << u"AvvertenzeInteressiMora.pdf"_s
                                      << u"Interessi di mora: avvertenze"_s << u"il divisore è sempre 365"_s;
    QTest::newRow("appeals") << u"docum/SchedaImpugnazioni.pdf"_s
                             << u"Contributo unificato: impugnazioni e cassazione"_s
                             << u"aumentato della metà"_s;
    QTest::newRow("news") << u"NovitaKR5.pdf"_s << u"Calcanova 3: le novità"_s << u"Copia di recupero"_s;
    QTest::newRow("legal guide") << u"GuidaGiuridica.pdf"_s << u"Guida giuridica alle funzioni del quadro"_s
                                 << u"Le parti"_s;
    QTest::newRow("guide") << u"GuidaOperativa.pdf"_s << u"Guida operativa"_s
                           << u"Una parcella in cinque passi"_s;
}

void TestGuide::documenti()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Titolo);
    QFETCH(QString, Frase);
    const QByteArray Contenuto = Pdf(Nome);
    QVERIFY(Contenuto.startsWith("%PDF-"));
    const QString Letto = Testo(Contenuto);
    QVERIFY2(Letto.trimmed().startsWith(Titolo), qPrintable(Letto.left(200)));
    QVERIFY2(Letto.contains(Frase), qPrintable(Letto));
    // No mark of the text they are written in is left over.
    for (const QStringView Segno : {u"**", u"__", u"%tabella", u"|=", u"##"})
        QVERIFY2(!Letto.contains(Segno), qPrintable(Segno.toString()));
    QCOMPARE(pagine::FontMancanti(Contenuto), QStringList());
    QVERIFY(pagine::Leggi(u"pdfinfo"_s, {u"%"_s}, Contenuto).contains(Titolo));
}

void TestGuide::vociAccantoAlSegno_data()
{
    documenti_data();
}

void TestGuide::vociAccantoAlSegno()
{
    QFETCH(QString, Nome);
    static const QRegularExpression Segno(u"\\A(•|[0-9]+ *[.])( .*)?\\z"_s);
    int Voci = 0;
    for (const QString& Riga : Testo(Pdf(Nome)).split(u'\n')) {
        const auto Letta = Segno.match(Riga.trimmed());
        if (!Letta.hasMatch())
            continue;
        QVERIFY2(Letta.capturedLength(2) > 10, qPrintable(Riga));
        ++Voci;
    }
    QVERIFY(Voci >= 6);
}

void TestGuide::tassiInTabella()
{
    const QString Letto = Testo(Pdf(u"AvvertenzeInteressiMora.pdf"_s)).simplified();
    const QList<TassoPeriodo> Mora = LeggiTassi(Dati()).Mora;
    QVERIFY(Mora.size() > 40);
    for (const TassoPeriodo& Uno : Mora) {
        const QString Riga = Format(Uno.Dal, u"dd/mm/yyyy") + u' ' + Format(Uno.Al, u"dd/mm/yyyy") + u' ' +
                             Format(Uno.TassoPerc, u"0.00");
        QVERIFY2(Letto.contains(Riga), qPrintable(Riga));
    }
}

void TestGuide::importiDelleImpugnazioni_data()
{
    QTest::addColumn<double>("ValoreEuro");
    QTest::addColumn<QString>("Riga");

    QTest::newRow("1") << 1100.0 << u"fino a 1.100,00"_s;
    QTest::newRow("2") << 5200.0 << u"oltre 1.100,00 e fino a 5.200,00"_s;
    QTest::newRow("3") << 26000.0 << u"oltre 5.200,00 e fino a 26.000,00"_s;
    QTest::newRow("4") << 52000.0 << u"oltre 26.000,00 e fino a 52.000,00"_s;
    QTest::newRow("5") << 260000.0 << u"oltre 52.000,00 e fino a 260.000,00"_s;
    QTest::newRow("6") << 520000.0 << u"oltre 260.000,00 e fino a 520.000,00"_s;
    QTest::newRow("7") << 520000.01 << u"oltre 520.000,00"_s;
}

void TestGuide::importiDelleImpugnazioni()
{
    // Half as much again on appeal, double before the Cassazione.
    QFETCH(double, ValoreEuro);
    QFETCH(QString, Riga);
    const double Pieno = Contributo(ValoreEuro, TabellaContributo::Ordinaria);
    for (const double Volte : {1.0, 1.5, 2.0})
        Riga += u' ' + Format(Pieno * Volte, u"#,##0.00");
    const QString Letto = Testo(Pdf(u"docum/SchedaImpugnazioni.pdf"_s)).simplified();
    QVERIFY2(Letto.contains(u' ' + Riga + u' '), qPrintable(Riga));
}

void TestGuide::capitoliDellaGuidaGiuridica_data()
{
    QTest::addColumn<int>("Pagina");
    QTest::addColumn<QString>("Titolo");

    // The pages that the tabs of a fee note ask for.
    QTest::newRow("title") << 1 << u"Guida giuridica alle funzioni del quadro"_s;
    QTest::newRow("base data") << 2 << u"Capitolo 1. Dati base"_s;
    QTest::newRow("honoraria") << 13 << u"Capitolo 2. Onorari"_s;
    QTest::newRow("expenses") << 15 << u"Capitolo 3. Spese"_s;
    QTest::newRow("payments") << 17 << u"Capitolo 4. Acconti e imposte"_s;
    QTest::newRow("print") << 18 << u"Capitolo 5. Stampa"_s;
}

void TestGuide::capitoliDellaGuidaGiuridica()
{
    QFETCH(int, Pagina);
    QFETCH(QString, Titolo);
    const QString Letta = pagine::ParoleDiPagina(Pdf(u"GuidaGiuridica.pdf"_s), Pagina).join(u' ');
    QVERIFY2(Letta.startsWith(Titolo), qPrintable(Letta.left(80)));
}

void TestGuide::indiceDellaGuidaGiuridica()
{
    const QByteArray Contenuto = Pdf(u"GuidaGiuridica.pdf"_s);
    const QString Prima =
        pagine::Leggi(u"pdftotext"_s, {u"-layout"_s, u"-l"_s, u"1"_s, u"%"_s, u"-"_s}, Contenuto);
    static const QRegularExpression Voce(u"^ *([1-5])  +([^:]+):.* ([0-9]+)$"_s,
                                         QRegularExpression::MultilineOption);
    int Trovate = 0;
    auto Passi = Voce.globalMatch(Prima);
    while (Passi.hasNext()) {
        const auto Passo = Passi.next();
        const QString Titolo = u"Capitolo "_s + Passo.captured(1) + u". "_s + Passo.captured(2).trimmed();
        const int Pagina = Passo.captured(3).toInt();
        QVERIFY2(pagine::ParoleDiPagina(Contenuto, Pagina).join(u' ').startsWith(Titolo), qPrintable(Titolo));
        ++Trovate;
    }
    QVERIFY2(Trovate == 5, qPrintable(Prima));
}

void TestGuide::pagineDellaGuidaGiuridica()
{
    // A topic to a page, and none of them nearly empty: a text that flows over shows up as a page of a line.
    constexpr int ParoleDiUnaPagina = 200;
    const QByteArray Contenuto = Pdf(u"GuidaGiuridica.pdf"_s);
    const QString Fatti = pagine::Leggi(u"pdfinfo"_s, {u"%"_s}, Contenuto);
    static const QRegularExpression Quante(u"Pages: +([0-9]+)"_s);
    const int Pagine = Quante.match(Fatti).captured(1).toInt();
    QVERIFY2(Pagine >= 18, qPrintable(Fatti));
    for (int i = 1; i <= Pagine; ++i) {
        const qsizetype Parole = pagine::ParoleDiPagina(Contenuto, i).size();
        QVERIFY2(Parole >= ParoleDiUnaPagina, qPrintable(u"pagina %1: %2 parole"_s.arg(i).arg(Parole)));
    }
}

void TestGuide::mediInTabella()
{
    // The tables are the archive's own figures.
    const QString Letto = Testo(Pdf(u"GuidaGiuridica.pdf"_s)).simplified();
    for (const QString& Riga :
         {u"da € 25.000,01 a € 50.000,00 1.200 600 1.200 1.500"_s, u"fino a € 5.000,00 550 300 550 700"_s,
          u"Monocratico 300 600 900 900"_s, u"Collegiale 390 780 1.170 1.170"_s})
        QVERIFY2(Letto.contains(Riga), qPrintable(Riga));
}

void TestGuide::unaPerTesto()
{
    QDirIterator Passo(Dati() + u"guide"_s, {u"*.txt"_s}, QDir::Files, QDirIterator::Subdirectories);
    int Quante = 0;
    while (Passo.hasNext()) {
        const QString Nome = QDir(Dati() + u"guide"_s).relativeFilePath(Passo.next());
        const bool Aiuto = Nome.startsWith(u"aiuto/");
        QVERIFY2(EsisteFile(ProgrammaDiProva() + Nome.chopped(3) + (Aiuto ? u"htm"_s : u"pdf"_s)),
                 qPrintable(Nome));
        ++Quante;
    }
    QVERIFY(Quante >= 4);
}

void TestGuide::sintesiDatate_data()
{
    QTest::addColumn<QString>("Nome");
    const QStringList Documenti = Elenco();
    QVERIFY(Documenti.size() >= 10);
    for (const QString& Nome : Documenti)
        QTest::newRow(qPrintable(Nome)) << Nome;
}

void TestGuide::sintesiDatate()
{
    QFETCH(QString, Nome);
    static const QRegularExpression Data(u"Stato al [0-9]{1,2} [a-z]+ 20[0-9]{2}"_s);
    const QString Letto = ParoleDelDocumento(Nome);
    QVERIFY2(Data.match(Letto.left(400)).hasMatch(), qPrintable(Letto.left(400)));
    if (!Nome.endsWith(u".pdf"))
        return;  // TestPagineProgramma knows how a page is written
    QVERIFY2(Letto.contains(u"Nel programma"), qPrintable(Nome));
    for (const QStringView Segno : {u"**", u"__", u"%tabella", u"|=", u"##"})
        QVERIFY2(!Letto.contains(Segno), qPrintable(Segno.toString()));
    QCOMPARE(pagine::FontMancanti(Pdf(u"docum/"_s + Nome)), QStringList());
}

void TestGuide::indirizzoMancante()
{
    // Only before the tax courts does a missing certified address raise the fee; elsewhere the fiscal code
    // does.
    int Trovati = 0;
    for (const QString& Nome : Elenco())
        for (const QString& Frase : ParoleDelDocumento(Nome).split(u'.'))
            if (Frase.contains(u"elettronica certificata")) {
                QVERIFY2(Frase.contains(u"codice fiscale della parte"), qPrintable(Nome + u": "_s + Frase));
                QVERIFY2(Frase.contains(u"nel processo tributario anche") ||
                             Frase.contains(u"nel processo tributario aumenta anche"),
                         qPrintable(Nome + u": "_s + Frase));
                ++Trovati;
            }
    QCOMPARE(Trovati, 2);
}

void TestGuide::elencoDeiDocumenti()
{
    // Each line names a document, and each document has its line.
    const QString Cartella = ProgrammaDiProva() + u"docum/"_s;
    QStringList Righe = Elenco();
    QVERIFY(Righe.size() >= 10);
    QStringList Presenti;
    for (const QString& Testo : QDir(Dati() + u"guide/docum"_s).entryList({u"*.txt"_s}))
        Presenti << Testo.chopped(3) + u"pdf"_s;
    Presenti << QDir(SorgenteDiProva(u"programma/docum"_s)).entryList({u"*.htm"_s});
    for (const QString& Nome : Presenti) {
        QVERIFY2(QDir(Cartella).exists(Nome), qPrintable(Nome));
        QVERIFY2(Righe.contains(Nome), qPrintable(Nome));
    }
    Righe.sort();
    Presenti.sort();
    QCOMPARE(Righe, Presenti);
}

void TestGuide::usoErrato()
{
    QString Detto;
    QTextStream Errori(&Detto);
    QCOMPARE(CreaGuide({u"una"_s}, Errori), 2);
    QCOMPARE(Detto, u"Uso: creaguide <cartella delle tabelle> <cartella di uscita>\n"_s);
}

void TestGuide::testoRifiutato()
{
    const QString Entrata = NuovaCartella();
    const QString Uscita = NuovaCartella();
    CreaCartella(Entrata + u"guide/docum"_s);
    ScriviFile(Entrata + u"guide/docum/Scheda.txt"_s, "# Scheda\n\ncon **grassetto aperto\n");
    QString Detto;
    QTextStream Errori(&Detto);
    QCOMPARE(CreaGuide({Entrata, Uscita}, Errori), 1);
    QCOMPARE(Detto, u"docum/Scheda.txt, riga 4: grassetto o corsivo senza fine\n"_s);
    QVERIFY(QDir(Uscita).isEmpty());
    // Mended, it is written in the folder of its name.
    ScriviFile(Entrata + u"guide/docum/Scheda.txt"_s, "# Scheda\n\ncon **grassetto**\n");
    QCOMPARE(CreaGuide({Entrata, Uscita}, Errori), 0);
    QVERIFY(Testo(LeggiFile(Uscita + u"docum/Scheda.pdf"_s)).contains(u"con grassetto"));
}

void TestGuide::senzaTesti()
{
    QString Detto;
    QTextStream Errori(&Detto);
    QCOMPARE(CreaGuide({NuovaCartella(), NuovaCartella()}, Errori), 1);
    QVERIFY2(Detto.startsWith(u"Non ci sono guide in "), qPrintable(Detto));
}

#include "TestGuide.moc"
