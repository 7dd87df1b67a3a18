// What every document says, in each form in which it leaves the program: the page, the word processor's file,
// the browser's, whatever stands in the note.
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "documenti.h"
#include "platform/base/paginacodice.h"
#include "platform/document/letture.h"
#include "print/writers/scrittorehtml.h"
#include "print/writers/scrittorertf.h"

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

class TestEsportazioni : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { campioni::ImpostaStudio(); }
    void cleanupTestCase() { AzzeraSessione(); }

    void pdf_data();
    void pdf();
    void pdfOstile_data();
    void pdfOstile();
    void word_data();
    void word();
    void html_data();
    void html();

private:
    documenti::DataFissa Oggi{QDate(2014, 1, 10)};
};
PROVA(TestEsportazioni);

namespace {

// ---- notes

struct Ostile
{
    const char* Nome;
    QString Testo;
};

QList<Ostile> TestiOstili()
{
    return {
        {"plain", u"sfratto per morosità"_s},
        {"braces", u"}}}{{{ {\\b x}"_s},
        {"backslashes", u"C:\\doc\\ \\par}{\\object \\"_s},
        {"tags", u"</td></table><script>a && b</script>"_s},
        {"entities and quotes", u"&amp; &#0; ]]> \"a\" 'b' “c” ’"_s},
        {"emoji", u"a \U0001F600 b \u2764\uFE0F"_s},
        {"halves of pairs", u"a"_s + QChar(0xDC00) + u"b"_s + QChar(0xD83D) + u" c"_s + QChar(0xFFFF)},
        {"controls", u"a\u0000b\u001bc\u000bd\u0085e"_s},
        {"five hundred letters", QString(500, u'W')},
        {"from right to left", u"שלום עולם مرحبا abc"_s},
        {"runs of blanks, hard blanks, tabs", u"  a    b\u00a0\u00a0 c\t\td  "_s},
        {"several rows", u"a\r\nb\rc\n\nd"_s},
        {"the mark of the page", u"100%d %1 %"_s},
        {"rich text", u"{\\rtf1 \\b x} y"_s},
    };
}

/// 0 alone, 1 and 2 with an associated note before and behind it.
Parcella NotaCon(int Associata)
{
    Parcella Nota = documenti::Completa(Associata == 0 ? campioni::Stragiudiziale()
                                                       : campioni::ConAssociata(Associata == 1));
    Nota.chkIBAN.Attiva = true;
    return Nota;
}

/// The text wherever somebody may have written one.
void Scrivi(Parcella& Nota, const QString& Testo)
{
    for (QString& Dato : Nota.txtDatiPar)
        Dato = Testo;
    for (Casella* Box : {&Nota.txtDatiStaCli, &Nota.txtControp, &Nota.txtDatiStaControp, &Nota.txtDatiStaOgg})
        Box->Testo = Testo;
    Nota.Rappr = {Testo, Testo, Testo, Testo};
    Nota.Multi.OggettoMulti = Testo;
    Nota.xOnorari(0, OnoDescr) = Testo;
    campioni::AggiungiSpesa(Nota.xDiritti, Testo, 1.0, 1.0, 1.0);
    campioni::AggiungiAcconto(Nota.xAcconti, Testo, u"E"_s, 1.0);
}

Documento DocumentoCon(int Tipo, int Associata, const QString& Testo)
{
    Parcella Nota = documenti::ScegliTipo(NotaCon(Associata), Tipo);
    Scrivi(Nota, Testo);
    return documenti::ComeSta(Nota, Tipo);
}

/// Each document alone and in company.
void OgniDocumento(const std::function<void(const QByteArray& Nome, int Tipo, int Associata)>& Riga)
{
    const QByteArrayList Compagnie{"alone", "behind another note", "before another note"};
    for (int Tipo = StampaPrenotula; Tipo <= StampaSoloContabile; ++Tipo)
        for (int Associata = 0; Associata < 3; ++Associata)
            Riga(VociTipoStampa()[Tipo].toUtf8() + ' ' + Compagnie[Associata], Tipo, Associata);
}

void OgniTesto()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<int>("Associata");
    QTest::addColumn<QString>("Testo");
    OgniDocumento([](const QByteArray& Nome, int Tipo, int Associata) {
        for (const Ostile& Uno : TestiOstili())
            QTest::newRow(Nome + ": " + Uno.Nome) << Tipo << Associata << Uno.Testo;
    });
}

// ---- words

/// All that a document says, in order: paragraphs, and the cells of each row from the left.
QStringList Parole(const Documento& Doc)
{
    QString Tutto;
    for (const BloccoDocumento& Uno : Doc.Blocchi) {
        if (const auto* Riga = std::get_if<Paragrafo>(&Uno))
            Tutto += Riga->Testo() + u'\n';
        else
            for (const std::vector<Cella>& Celle : std::get<Tabella>(Uno).Righe)
                for (const Cella& Una : Celle)
                    Tutto += Una.Testo + u'\n';
    }
    return SenzaControlli(Tutto).simplified().split(u' ', Qt::SkipEmptyParts);
}

QStringList ParoleLette(const QByteArray& Rtf)
{
    Documento Letto;
    Letto.Blocchi = LeggiRtf(QString::fromLatin1(Rtf));
    return Parole(Letto);
}

/// Words of the body of a page, and what keeps it from being one.
std::pair<QStringList, QString> LeggiPagina(const QByteArray& Pagina)
{
    QString Tutto;
    QXmlStreamReader Lettore(Pagina);
    bool NelCorpo = false;
    while (!Lettore.atEnd()) {
        Lettore.readNext();
        NelCorpo = NelCorpo || (Lettore.isStartElement() && Lettore.name() == "body"_L1);
        if (NelCorpo && Lettore.isCharacters())
            Tutto += Lettore.text();
        else if (Lettore.name() != "span"_L1)
            Tutto += u' ';
    }
    return {Tutto.simplified().split(u' ', Qt::SkipEmptyParts), Lettore.errorString()};
}

/// What keeps a file from being rich text: a group too many or one left open, a byte beyond ASCII.
QString DifettoRtf(const QByteArray& Rtf)
{
    int Profondo = 0;
    qsizetype Fine = 0;
    for (qsizetype i = 0; i < Rtf.size(); ++i) {
        const char C = Rtf[i];
        if (static_cast<unsigned char>(C) >= 0x80 || (C < ' ' && C != '\r' && C != '\n'))
            return u"byte %1 at %2"_s.arg(int(C)).arg(i);
        if (C == '\\')
            ++i;
        else if (C == '{')
            ++Profondo;
        else if (C == '}' && --Profondo == 0)
            Fine = i + 1;
    }
    return Profondo == 0 && Fine == Rtf.trimmed().size() ? QString()
                                                         : u"groups do not close where the file ends"_s;
}

/// A difference that one can read: the first word that is another, and where.
QString Differenza(const QStringList& Sue, const QStringList& Attese)
{
    for (qsizetype i = 0; i < std::max(Sue.size(), Attese.size()); ++i)
        if (Sue.value(i) != Attese.value(i))
            return u"word %1: %2 instead of %3"_s.arg(i).arg(Sue.value(i), Attese.value(i));
    return {};
}

}  // namespace

// ---- PDF ------------------------------------------------------------------------------------------

void TestEsportazioni::pdf_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<int>("Associata");
    OgniDocumento(
        [](const QByteArray& Nome, int Tipo, int Associata) { QTest::newRow(Nome) << Tipo << Associata; });
}

/// Page by page, with the page's own number behind it.
void TestEsportazioni::pdf()
{
    QFETCH(int, Tipo);
    QFETCH(int, Associata);
    const Documento Doc = documenti::Composto(NotaCon(Associata), Tipo);
    const Impaginazione Fatta(Doc);
    const QByteArray Pdf = Fatta.Pdf(u"Documento"_s);
    QStringList Tutte;
    for (int Pagina = 1; Pagina <= Fatta.NumeroPagine(); ++Pagina) {
        QStringList Lette = pagine::ParoleDiPagina(Pdf, Pagina);
        const QStringList Piede{u"Pagina"_s, QString::number(Pagina)};
        QCOMPARE(Lette.mid(Lette.size() - 2), Piede);
        Tutte += Lette.mid(0, Lette.size() - 2);
    }
    QVERIFY(Tutte.size() > 20);
    // Rules are drawn: nobody who reads the page by its letters meets them.
    QStringList Attese = Parole(Doc);
    Attese.removeIf([](const QString& Parola) { return QString(Parola).remove(u'_').isEmpty(); });
    QCOMPARE(Differenza(Tutte, Attese), QString());
}

void TestEsportazioni::pdfOstile_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Testo");
    for (int Tipo = StampaPrenotula; Tipo <= StampaSoloContabile; ++Tipo)
        for (const Ostile& Uno : TestiOstili())
            QTest::newRow(VociTipoStampa()[Tipo].toUtf8() + ": " + Uno.Nome) << Tipo << Uno.Testo;
}

/// Lines within the margins, none over another, nothing lost; the letters in the file.
void TestEsportazioni::pdfOstile()
{
    QFETCH(int, Tipo);
    QFETCH(QString, Testo);
    const Documento Doc = DocumentoCon(Tipo, 0, Testo);
    const Impaginazione Fatta(Doc);
    QCOMPARE(pagine::Difetto(Fatta), QString());
    const QByteArray Pdf = Fatta.Pdf(Testo);
    const QString Letto = pagine::Leggi(u"pdftotext"_s, {u"-raw"_s, u"%"_s, u"-"_s}, Pdf);
    for (const QString& Parola : Parole(Doc)) {
        // Long words are broken; poppler puts others in an order of its own, or reads one sign for several.
        const bool Filetto = QString(Parola).remove(u'_').isEmpty();  // drawn
        const bool Semplice =
            !Filetto && Parola.size() < 40 &&
            std::all_of(Parola.begin(), Parola.end(), [](QChar C) { return C.unicode() < 0x0250; });
        QVERIFY2(!Semplice || Letto.contains(Parola), qPrintable(Parola));
    }
}

// ---- word processor -------------------------------------------------------------------------------

void TestEsportazioni::word_data()
{
    OgniTesto();
}

void TestEsportazioni::word()
{
    QFETCH(int, Tipo);
    QFETCH(int, Associata);
    QFETCH(QString, Testo);
    const Documento Doc = DocumentoCon(Tipo, Associata, Testo);
    const QByteArray Rtf = ScriviRtf(Doc, Testo);
    QCOMPARE(DifettoRtf(Rtf), QString());
    QCOMPARE(Differenza(ParoleLette(Rtf), Parole(Doc)), QString());
}

// ---- browser --------------------------------------------------------------------------------------

void TestEsportazioni::html_data()
{
    OgniTesto();
}

void TestEsportazioni::html()
{
    QFETCH(int, Tipo);
    QFETCH(int, Associata);
    QFETCH(QString, Testo);
    const Documento Doc = DocumentoCon(Tipo, Associata, Testo);
    const auto [Lette, Guasto] = LeggiPagina(ScriviHtml(Doc, Testo));
    QCOMPARE(Guasto, QString());
    QCOMPARE(Differenza(Lette, Parole(Doc)), QString());
}

#include "TestEsportazioni.moc"
