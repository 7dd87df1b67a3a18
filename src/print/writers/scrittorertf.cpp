#include "print/writers/scrittorertf.h"

#include "platform/base/paginacodice.h"
#include "print/writers/formatabella.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double CmPerPollice = 2.54;
constexpr int TwipPerPollice = 1440;
constexpr int TwipPerPunto = 20;
constexpr int MassimoTwip = 31680;    // 55 cm, as far as word processors reckon
constexpr double AltezzaRiga = 1.15;  // of the font's size

int TwipDaCm(double Cm)
{
    return qRound(std::clamp(Cm / CmPerPollice * TwipPerPollice, -1.0 * MassimoTwip, 1.0 * MassimoTwip));
}

int TwipDaPunti(double Punti)
{
    return qRound(std::clamp(Punti * TwipPerPunto, 0.0, 1.0 * MassimoTwip));
}

/// A control word with its number.
QByteArray Parola(const char* Nome, int Valore)
{
    return QByteArray(Nome) + QByteArray::number(Valore);
}

// ---- text

void ScriviCodice(char16_t Codice, QByteArray& Uscita)
{
    Uscita += Parola("\\u", static_cast<qint16>(Codice)) + '?';
}

/// A character beyond ASCII: by its code in 1252 where it has one.
void ScriviOltre(QChar C, QByteArray& Uscita)
{
    const QByteArray Byte = Cp1252(QString(C));
    const auto Codice = static_cast<unsigned char>(Byte.front());
    if (Codice >= 0x80)
        Uscita += "\\'" + QByteArray::number(Codice, 16);
    else
        ScriviCodice(C.unicode(), Uscita);
}

void ScriviTesto(const QString& Testo, QByteArray& Uscita)
{
    QChar Precedente;
    for (const QChar C : TestoPulito(Testo)) {
        // Between two plain blanks some readers put one of their own, and what blanks push would go too far.
        const QChar Suo = C == u' ' && Precedente == u' ' ? QChar(QChar::Nbsp) : C;
        Precedente = Suo;
        switch (Suo.unicode()) {
        case u'\\':
        case u'{':
        case u'}':
            Uscita += '\\';
            Uscita += static_cast<char>(Suo.unicode());
            break;
        case u'\n':
        case QChar::LineSeparator:
        case QChar::ParagraphSeparator:
            Uscita += "\\line ";
            break;
        case u'\t':
            Uscita += "\\tab ";
            break;
        case QChar::Nbsp:
            Uscita += "\\~";
            break;
        default:
            if (Suo.unicode() < 0x80)
                Uscita += static_cast<char>(Suo.unicode());
            else
                ScriviOltre(Suo, Uscita);
        }
    }
}

// ---- fonts

/// The families of a document, by the number that they take in the file.
class TabellaFont
{
public:
    int operator()(const QString& Nome)
    {
        const auto Suo = std::ranges::find(Nomi, Nome);
        if (Suo != Nomi.end())
            return static_cast<int>(Suo - Nomi.begin());
        Nomi.push_back(Nome);
        return static_cast<int>(Nomi.size()) - 1;
    }

    [[nodiscard]] QByteArray Scritta() const
    {
        QByteArray Uscita = "{\\fonttbl";
        for (std::size_t i = 0; i < Nomi.size(); ++i) {
            Uscita += Parola("{\\f", static_cast<int>(i)) + Famiglia(Nomi[i]) + "\\fcharset0 ";
            ScriviTesto(QString(Nomi[i]).remove(u';'), Uscita);
            Uscita += ";}";
        }
        return Uscita + "}";
    }

private:
    /// What a reader without the font takes in its place.
    static QByteArray Famiglia(const QString& Nome)
    {
        if (Nome.contains("Arial"_L1) || Nome.contains("Sans"_L1))
            return "\\fswiss";
        return Nome.contains("Courier"_L1) ? "\\fmodern" : "\\froman";
    }

    std::vector<QString> Nomi;
};

// ---- the document

class Scrivano
{
public:
    explicit Scrivano(double Larghezza) : LarghezzaCm(Larghezza) {}

    void operator()(const Paragrafo& Questo)
    {
        // Right behind a table a row of text would have to be told from the table's.
        Uscita += "\\pard\\plain" + Posto(Questo);
        for (const Tratto& Uno : Questo.Tratti)
            ScriviTratto(Uno.Testo, Uno.Font);
        // The mark's own font comes last: a run would take from it whatever it does not say itself.
        Uscita += Formato(Questo.Tratti.empty() ? Questo.Font : Questo.Tratti.back().Font) + "\\par\r\n";
        DopoTabella = false;
    }

    void operator()(const Tabella& Questa)
    {
        // Two tables that touch would be one.
        if (DopoTabella)
            Separa();
        const std::vector<double> Larghezze = LarghezzeEntro(Questa, LarghezzaCm);
        for (std::size_t Riga = 0; Riga < Questa.Righe.size(); ++Riga)
            ScriviRiga(Questa, Riga, Larghezze);
        DopoTabella = true;
    }

    /// A text ends with a paragraph.
    void Concludi()
    {
        if (DopoTabella)
            Separa();
    }

    [[nodiscard]] QByteArray PiePagina(const QString& Testo, const Carattere& Font)
    {
        if (Testo.trimmed().isEmpty())
            return {};
        QByteArray Fuori;
        std::swap(Fuori, Uscita);
        Uscita += "{\\footer\\pard\\plain\\ql" + Formato(Font) + ' ';
        const QStringList Parti = QString(Testo).replace(u'\n', u' ').split(u"%d"_s);
        for (qsizetype i = 0; i < Parti.size(); ++i) {
            if (i > 0)
                Uscita += "{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}";
            ScriviTesto(Parti[i], Uscita);
        }
        Uscita += "\\par}\r\n";
        std::swap(Fuori, Uscita);
        return Fuori;
    }

    [[nodiscard]] const QByteArray& Corpo() const { return Uscita; }
    [[nodiscard]] QByteArray Font() const { return Famiglie.Scritta(); }

private:
    static QByteArray Allineato(Allineamento Come)
    {
        switch (Come) {
        case Allineamento::Centro:
            return "\\qc";
        case Allineamento::Destra:
            return "\\qr";
        case Allineamento::Giustificato:
            return "\\qj";
        case Allineamento::AltoSinistra:
        case Allineamento::Sinistra:
            break;
        }
        return "\\ql";
    }

    /// A measure, where there is any.
    static QByteArray SeC(const char* Nome, int Twip)
    {
        return Twip == 0 ? QByteArray() : Parola(Nome, Twip);
    }

    static QByteArray Posto(const Paragrafo& Questo)
    {
        const Rientri& Suoi = Questo.Spazi;
        return Allineato(Questo.Allinea) + (Questo.NuovaPagina ? "\\pagebb" : "") +
               (Questo.Intera ? "\\keep" : "") + (Questo.ConSeguente ? "\\keepn" : "") +
               SeC("\\li", TwipDaCm(Suoi.SinistroCm)) + SeC("\\ri", TwipDaCm(Suoi.DestroCm)) +
               SeC("\\fi", TwipDaCm(Suoi.PrimaRigaCm)) + SeC("\\sb", TwipDaPunti(Suoi.SopraPunti)) +
               SeC("\\sa", TwipDaPunti(Suoi.SottoPunti));
    }

    QByteArray Formato(const Carattere& Quale)
    {
        const int MezziPunti = std::max(qRound(Quale.Punti * 2.0), 1);
        return Parola("\\f", Famiglie(Quale.Nome)) + Parola("\\fs", MezziPunti) +
               (Quale.Grassetto ? "\\b" : "") + (Quale.Corsivo ? "\\i" : "") +
               (Quale.Sottolineato ? "\\ul" : "");
    }

    void ScriviTratto(const QString& Testo, const Carattere& Font)
    {
        Uscita += '{' + Formato(Font) + ' ';
        ScriviTesto(Testo, Uscita);
        Uscita += '}';
    }

    void Separa()
    {
        Uscita += "\\pard\\plain" + Parola("\\f", Famiglie(Carattere().Nome)) + "\\fs2\\par\r\n";
        DopoTabella = false;
    }

    // ---- tables

    void ScriviRiga(const Tabella& Questa, std::size_t Quale, const std::vector<double>& Larghezze)
    {
        const RigaTabella& Riga = Questa.Righe[Quale];
        if (Riga.empty())
            return;
        Uscita += Intestazione(Questa, Quale) + Bordi(Questa, Riga, Larghezze) + "\r\n";
        const QByteArray PerTutte = (UnitaAllaSeguente(Questa, Quale) ? "\\keepn" : "") + Interlinea(Riga);
        for (std::size_t Colonna = 0; Colonna < Riga.size(); Colonna += ColonneCoperte(Riga, Colonna)) {
            const Cella& Una = Riga[Colonna];
            const MarginiCella Suoi = MarginiDi(Questa, Colonna);
            Uscita += "\\pard\\plain\\intbl" + Allineato(Una.Allinea) + PerTutte +
                      SeC("\\li", TwipDaCm(Suoi.PrimaCm)) + SeC("\\ri", TwipDaCm(Suoi.DopoCm)) +
                      Formato(Una.Font) + ' ';
            ScriviTesto(Una.Testo, Uscita);
            Uscita += "\\cell";
        }
        Uscita += "\\row\r\n";
    }

    /// A row of rules is as low as on the printed page.
    static QByteArray Interlinea(const RigaTabella& Riga)
    {
        constexpr double Quota = 0.6;
        if (!RigaDiFiletti(Riga))
            return {};
        double Punti = 0.0;
        for (const Cella& Una : Riga)
            Punti = std::max(Punti, Una.Font.Punti);
        return Parola("\\sl", -TwipDaPunti(Punti * AltezzaRiga * Quota)) + "\\slmult0";
    }

    static QByteArray Intestazione(const Tabella& Questa, std::size_t Riga)
    {
        // Readers disagree on where cells with margins of their own begin: the text is indented instead.
        return QByteArray("\\trowd\\trgaph0\\trleft0\\trkeep") +
               (Riga < RigheDiTitoli(Questa) ? "\\trhdr" : "");
    }

    /// The right edge of each cell, from the left margin.
    static QByteArray Bordi(const Tabella& Questa, const RigaTabella& Riga,
                            const std::vector<double>& Larghezze)
    {
        QByteArray Tutti;
        double Cm = 0.0;
        for (std::size_t Colonna = 0; Colonna < Riga.size();) {
            const std::size_t Fine = Colonna + ColonneCoperte(Riga, Colonna);
            for (; Colonna < Fine; ++Colonna)
                Cm += Larghezze[Colonna];
            for (const char* Lato : {"t", "l", "b", "r"})
                if (Questa.Bordo > 0)
                    Tutti += QByteArray("\\clbrdr") + Lato + "\\brdrs\\brdrw10";
            Tutti += "\\clvertalt" + Parola("\\cellx", TwipDaCm(Cm));
        }
        return Tutti;
    }

    QByteArray Uscita;
    TabellaFont Famiglie;
    double LarghezzaCm;
    bool DopoTabella = false;
};

/// The running line ends half an inch above the edge where the margin has room for that, else in its middle.
int AltezzaPiePagina(const Documento& Doc)
{
    constexpr int DalBordo = TwipPerPollice / 2;
    const int Margine = TwipDaCm(Doc.MargineBassoCm);
    const int Riga = TwipDaPunti(Doc.FontPiePagina.Punti * AltezzaRiga);
    return Margine >= DalBordo + Riga ? DalBordo : std::max((Margine - Riga) / 2, 0);
}

QByteArray Pagina(const Documento& Doc, const Carta& Foglio)
{
    constexpr double CmPerMm = 0.1;
    constexpr int Tabulazione = 709;  // 12.5 mm
    return Parola("\\paperw", TwipDaCm(Foglio.LarghezzaMm * CmPerMm)) +
           Parola("\\paperh", TwipDaCm(Foglio.AltezzaMm * CmPerMm)) +
           Parola("\\margl", TwipDaCm(Doc.MargineSinistroCm)) +
           Parola("\\margr", TwipDaCm(Doc.MargineDestroCm)) + Parola("\\margt", TwipDaCm(Doc.MargineAltoCm)) +
           Parola("\\margb", TwipDaCm(Doc.MargineBassoCm)) + Parola("\\footery", AltezzaPiePagina(Doc)) +
           Parola("\\deftab", Tabulazione);
}

}  // namespace

QByteArray ScriviRtf(const Documento& Doc, const QString& Titolo, const Carta& Foglio)
{
    Scrivano Scrivi(LarghezzaTestoCm(Doc, Foglio));
    for (const BloccoDocumento& Uno : Doc.Blocchi)
        std::visit([&](const auto& Questo) { Scrivi(Questo); }, Uno);
    Scrivi.Concludi();
    const QByteArray PiePagina = Scrivi.PiePagina(Doc.PiePagina, Doc.FontPiePagina);

    QByteArray Info;
    if (!Titolo.isEmpty()) {
        Info = "{\\info{\\title ";
        ScriviTesto(Titolo, Info);
        Info += "}}";
    }
    // The last word: lines that end in a line break are not stretched.
    return "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\\deflang1040" + Scrivi.Font() + Info + "\r\n" +
           Pagina(Doc, Foglio) + "\\widowctrl\\expshrtn\r\n" + PiePagina + Scrivi.Corpo() + "}\r\n";
}
