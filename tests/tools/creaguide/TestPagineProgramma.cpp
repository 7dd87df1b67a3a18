#include "supporto/prova.h"

#include "calculators/modContributo.h"
#include "calculators/paginacontributo.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

using namespace Qt::StringLiterals;

/// The pages beside the program as they were built.
class TestPagineProgramma : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nominate_data();
    void nominate();
    void collegamenti_data();
    void collegamenti();
    void bozze_data();
    void bozze();
    void importiDelContributo_data();
    void importiDelContributo();
    void importiFissi();
    void importiFuoriDalQuadro_data();
    void importiFuoriDalQuadro();
    void iscrizioneARuolo_data();
    void iscrizioneARuolo();
};
PROVA(TestPagineProgramma);

namespace {

const QString TabellaContributi = u"docum/Tabella contributo unificato.htm"_s;
const QString Decreto = u"docum/D.P.R. n. 115 del 30.5.2002 (stralcio, contributo unificato).htm"_s;

QString Pagina(const QString& Nome)
{
    return QString::fromUtf8(LeggiFile(ProgrammaDiProva() + Nome));
}

void OgniPagina()
{
    QTest::addColumn<QString>("Nome");
    const QString Origine = SorgenteDiProva(u"programma"_s);
    QDirIterator Passo(Origine, {u"*.htm"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (Passo.hasNext()) {
        const QString Nome = QDir(Origine).relativeFilePath(Passo.next());
        QTest::newRow(qPrintable(Nome)) << Nome;
    }
}

/// The cells of the rows of a table that begin with this text.
QStringList RigaDi(const QString& Html, const QString& Inizio)
{
    static const QRegularExpression Marche(u"<[^>]+>"_s);
    for (const QString& Riga : Html.split(u"<tr>"_s)) {
        QStringList Celle;
        for (QString Cella : Riga.split(u"</td>"_s))
            Celle << Cella.remove(Marche).trimmed();
        if (Celle.first() == Inizio)
            return Celle;
    }
    return {};
}

}  // namespace

void TestPagineProgramma::nominate_data()
{
    QTest::addColumn<QString>("Nome");

    // Names to the letter: the disks of some offices tell capitals apart.
    for (const char* Nome : {"link.htm", "assistenza.htm", "GuidaGiuridica.pdf", "docum/elenco.txt",
                             "avvisokr6.htm", "avvertenzetermini.htm", "SchedaNotaSpese.htm", "SkIvaDiff.htm",
                             "note/blank.htm", "docum/Tabella contributo unificato.htm",
                             "docum/D.P.R. n. 115 del 30.5.2002 (stralcio, contributo unificato).htm",
                             "docum/SchedaImpugnazioni.pdf", "AvvertenzeInteressiMora.pdf", "NovitaKR5.pdf",
                             "GuidaOperativa.pdf"})
        QTest::newRow(Nome) << QString::fromLatin1(Nome);
}

void TestPagineProgramma::nominate()
{
    QFETCH(QString, Nome);
    const QFileInfo File(ProgrammaDiProva() + Nome);
    QVERIFY(QDir(File.path()).entryList(QDir::Files).contains(File.fileName()));
    QVERIFY(File.size() > 0);
}

void TestPagineProgramma::collegamenti_data()
{
    OgniPagina();
}

void TestPagineProgramma::collegamenti()
{
    QFETCH(QString, Nome);
    static const QRegularExpression Riferimento(u"(?:href|src)=\"([^\"]*)\""_s);
    const QString Html = Pagina(Nome);
    const QUrl Qui = QUrl::fromLocalFile(ProgrammaDiProva() + Nome);
    auto Passi = Riferimento.globalMatch(Html);
    while (Passi.hasNext()) {
        const QString Scritto = Passi.next().captured(1);
        const QUrl Meta = Qui.resolved(QUrl(Scritto));
        if (Meta.scheme() == u"comando")
            continue;  // a window of the program: the viewer's tests know which
        if (!Meta.isLocalFile()) {
            QCOMPARE(Meta.scheme(), u"https"_s);
            continue;
        }
        QVERIFY2(EsisteFile(Meta.toLocalFile()), qPrintable(Scritto));
        if (Meta.hasFragment())
            QVERIFY2(Html.contains(u"<a name=\"%1\">"_s.arg(Meta.fragment())), qPrintable(Scritto));
    }
}

void TestPagineProgramma::bozze_data()
{
    OgniPagina();
}

void TestPagineProgramma::bozze()
{
    QFETCH(QString, Nome);
    const QString Html = Pagina(Nome);
    QVERIFY(Html.contains(u"charset=\"utf-8\""));
    QVERIFY(!Html.contains(QChar::ReplacementCharacter));
    QVERIFY(!Html.contains(u"<script"));
    // Colours and sizes are the viewer's: a page with its own would be unreadable on a dark palette.
    for (const QStringView Proprio : {u"style=", u"<style", u"bgcolor", u"color=", u"<font"})
        QVERIFY2(!Html.contains(Proprio, Qt::CaseInsensitive), qPrintable(Proprio.toString()));
    for (const QStringView Marca :
         {u"table", u"tr", u"td", u"ul", u"ol", u"li", u"p", u"h1", u"h2", u"a", u"b"})
        QVERIFY2(Html.count(QRegularExpression(u"<%1[ >]"_s.arg(Marca))) == Html.count(u"</%1>"_s.arg(Marca)),
                 qPrintable(Marca.toString()));
}

void TestPagineProgramma::importiDelContributo_data()
{
    QTest::addColumn<QString>("Riga");
    QTest::addColumn<double>("ValoreEuro");

    QTest::newRow("1") << u"fino a € 1.100,00"_s << 1100.0;
    QTest::newRow("2") << u"oltre € 1.100,00 e fino a € 5.200,00"_s << 5200.0;
    QTest::newRow("3") << u"oltre € 5.200,00 e fino a € 26.000,00"_s << 26000.0;
    QTest::newRow("4") << u"oltre € 26.000,00 e fino a € 52.000,00"_s << 52000.0;
    QTest::newRow("5") << u"oltre € 52.000,00 e fino a € 260.000,00"_s << 260000.0;
    QTest::newRow("6") << u"oltre € 260.000,00 e fino a € 520.000,00"_s << 520000.0;
    QTest::newRow("7") << u"oltre € 520.000,00"_s << 520000.01;
    QTest::newRow("tax 1") << u"fino a € 2.582,28"_s << 2582.28;
    QTest::newRow("tax 2") << u"oltre € 2.582,28 e fino a € 5.000,00"_s << 2582.29;
    QTest::newRow("tax 3") << u"oltre € 5.000,00 e fino a € 25.000,00"_s << 25000.0;
    QTest::newRow("tax 4") << u"oltre € 25.000,00 e fino a € 75.000,00"_s << 75000.0;
    QTest::newRow("tax 5") << u"oltre € 75.000,00 e fino a € 200.000,00"_s << 200000.0;
    QTest::newRow("tax 6") << u"oltre € 200.000,00"_s << 200000.01;
}

void TestPagineProgramma::importiDelContributo()
{
    QFETCH(QString, Riga);
    QFETCH(double, ValoreEuro);
    const bool Tributario = QString::fromLatin1(QTest::currentDataTag()).startsWith(u"tax");
    const auto Testo = [](double Euro) { return Format(Euro, u"#,##0.00"); };
    const QStringList Celle = RigaDi(Pagina(TabellaContributi), Riga);
    const double Pieno =
        Contributo(ValoreEuro, Tributario ? TabellaContributo::Tributaria : TabellaContributo::Ordinaria);
    QStringList Attese{Riga, Testo(Pieno)};
    if (!Tributario)
        Attese << Testo(Contributo(ValoreEuro, TabellaContributo::Dimezzata)) << Testo(Pieno * 1.5)
               << Testo(Pieno * 2);
    QCOMPARE(Celle.first(Attese.size()), Attese);
}

void TestPagineProgramma::importiFissi()
{
    // Every fixed fee of the form stands on the page too.
    const QString Html = Pagina(TabellaContributi);
    int Visti = 0;
    for (const SezionePagina& Sezione : PaginaContributo())
        for (const VocePagina& Voce : Sezione.Voci) {
            if (!Voce.Contributo.contains(u','))
                continue;
            QVERIFY2(Html.contains(u">"_s + Voce.Contributo.toString() + u'<'),
                     qPrintable(Voce.Testo.toString() + u' ' + Voce.Contributo.toString()));
            ++Visti;
        }
    QVERIFY(Visti > 15);
}

void TestPagineProgramma::importiFuoriDalQuadro_data()
{
    QTest::addColumn<QString>("Comma");
    QTest::addColumn<QString>("Argomento");
    QTest::addColumn<QString>("Importo");

    QTest::newRow("search for goods") << u"1-quinquies"_s << u"492-bis"_s << u"43,00"_s;
    QTest::newRow("citizenship") << u"1-sexies"_s << u"cittadinanza italiana"_s << u"600,00"_s;
}

void TestPagineProgramma::importiFuoriDalQuadro()
{
    // Fees of the law that the form has no row for: a row of the table, a passage of the decree.
    QFETCH(QString, Comma);
    QFETCH(QString, Argomento);
    QFETCH(QString, Importo);
    const QString Riga =
        Pagina(TabellaContributi).section(u"omma "_s + Comma + u')', 1).section(u"</tr>"_s, 0, 0);
    QVERIFY2(Riga.contains(u'>' + Importo + u'<'), qPrintable(Riga));
    const QString Passo = Pagina(Decreto).section(u"Comma "_s + Comma + u'.', 1).section(u"</li>"_s, 0, 0);
    QVERIFY2(Passo.contains(Argomento) && Passo.contains(u"€ "_s + Importo), qPrintable(Passo));
}

void TestPagineProgramma::iscrizioneARuolo_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::newRow("table") << TabellaContributi;
    QTest::newRow("decree") << Decreto;
}

void TestPagineProgramma::iscrizioneARuolo()
{
    // Since 2025 no case is listed without the least fee.
    QFETCH(QString, Nome);
    bool Trovato = false;
    for (const QString& Passo : Pagina(Nome).split(u"<p>"_s))
        Trovato = Trovato || (Passo.contains(u"comma 3.1") && Passo.contains(u"€ 43,00") &&
                              Passo.contains(u"1° gennaio 2025"));
    QVERIFY(Trovato);
}

#include "TestPagineProgramma.moc"
