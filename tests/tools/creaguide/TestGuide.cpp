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
    void unaPerTesto();
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

void TestGuide::unaPerTesto()
{
    QDirIterator Passo(Dati() + u"guide"_s, {u"*.txt"_s}, QDir::Files, QDirIterator::Subdirectories);
    int Quante = 0;
    while (Passo.hasNext()) {
        const QString Nome = QDir(Dati() + u"guide"_s).relativeFilePath(Passo.next());
        QVERIFY2(EsisteFile(ProgrammaDiProva() + Nome.chopped(3) + u"pdf"_s), qPrintable(Nome));
        ++Quante;
    }
    QVERIFY(Quante >= 4);
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
