#include "print/writers/scrittorertf.h"

#include "platform/document/misura.h"
#include "print/writers/formatabella.h"
#include "print/writers/testortf.h"

#include <QStringList>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using rtf::Parola;
using rtf::ScriviTesto;
using rtf::TabellaFont;

namespace {

/// What every file begins with.
constexpr QByteArrayView Inizio = "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\\deflang1040";

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

// ---- the document

/// What every row of a table needs, found by a look at all its cells.
struct FormaTabella
{
    std::vector<double> Larghezze;  ///< of the columns, cm
    bool Intera;                    ///< no page divides it
    bool Lineata;                   ///< some side of some cell is drawn
};

class ScrivanoRtf
{
public:
    ScrivanoRtf(const Documento& Intero, const Carta& Carta) : Doc(Intero), Foglio(Carta) {}

    void operator()(const Paragrafo& Questo);
    void operator()(const Tabella& Questa);
    void Concludi();  ///< a text ends with a paragraph
    [[nodiscard]] QByteArray PiePagina();
    [[nodiscard]] QByteArray Testa();
    [[nodiscard]] const QByteArray& Corpo() const { return Uscita; }
    [[nodiscard]] QByteArray Font() const { return Famiglie.Scritta(); }

private:
    QByteArray Formato(const Carattere& Quale);
    void ScriviTratti(const Paragrafo& Questo);
    void Separa();
    void ScriviRiga(const Tabella& Questa, std::size_t Quale, const FormaTabella& Forma);
    void ScriviCella(const Cella& Quale, const MarginiCella& Margini, const QByteArray& PerTutte);

    QByteArray Uscita;
    TabellaFont Famiglie;
    const Documento& Doc;
    const Carta& Foglio;
    bool DopoTabella = false;
};

QByteArray Allineato(Allineamento Come)
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
QByteArray SeC(const char* Nome, int Twip)
{
    return Twip == 0 ? QByteArray() : Parola(Nome, Twip);
}

/// Lines nearer to each other than their own height.
QByteArray Vicine(const Strettezza& Quanto)
{
    return Quanto.Interlinea < 1.0 ? Parola("\\sl", qRound(Quanto.Interlinea * RigaSemplice)) + "\\slmult1"
                                   : QByteArray();
}

/// A blank row of which a part is left.
QByteArray BiancaStretta(double Punti, const Strettezza& Quanto)
{
    return Quanto.Bianche < 1.0
               ? Parola("\\sl", -std::max(TwipDaPunti(Punti * AltezzaRiga * Quanto.Bianche), 1)) + "\\slmult0"
               : QByteArray();
}

QByteArray Distanza(const Interlinea& Righe, const Strettezza& Quanto)
{
    if (Righe.EsattaPunti > 0.0)
        return Parola("\\sl", -TwipDaPunti(Righe.EsattaPunti)) + "\\slmult0";
    if (Righe.AlmenoPunti > 0.0)
        return Parola("\\sl", TwipDaPunti(Righe.AlmenoPunti)) + "\\slmult0";
    return Righe.Multipla > 1.0
               ? Parola("\\sl", qRound(Righe.Multipla * Quanto.Interlinea * RigaSemplice)) + "\\slmult1"
               : Vicine(Quanto);
}

QByteArray FermiDi(const std::vector<Fermo>& Tutti)
{
    QByteArray Scritti;
    for (const Fermo& Singolo : Tutti) {
        if (Singolo.Come == Fermo::Centro)
            Scritti += "\\tqc";
        else if (Singolo.Come == Fermo::Destra)
            Scritti += "\\tqr";
        else if (Singolo.Come == Fermo::Decimale)
            Scritti += "\\tqdec";
        if (Singolo.Riempie != 0)
            Scritti += Singolo.Riempie == u'.' ? "\\tldot" : "\\tlul";
        Scritti += Parola("\\tx", TwipDaCm(Singolo.Cm));
    }
    return Scritti;
}

/// @param Margini of the cell that it stands in; none on the page
QByteArray Posto(const Paragrafo& Questo, const Strettezza& Quanto, const MarginiCella& Margini = {})
{
    const bool Bianca = Questo.Testo().trimmed().isEmpty();
    const Rientri& Spazi = Questo.Spazi;
    return Allineato(Questo.Allinea) + (Questo.NuovaPagina ? "\\pagebb" : "") +
           (Questo.Intera ? "\\keep" : "") + (Questo.ConSeguente ? "\\keepn" : "") + FermiDi(Questo.Fermi) +
           SeC("\\li", TwipDaCm(Spazi.SinistroCm + Margini.PrimaCm)) +
           SeC("\\ri", TwipDaCm(Spazi.DestroCm + Margini.DopoCm)) + SeC("\\fi", TwipDaCm(Spazi.PrimaRigaCm)) +
           SeC("\\sb", TwipDaPunti(Spazi.SopraPunti * Quanto.Bianche)) +
           SeC("\\sa", TwipDaPunti(Spazi.SottoPunti * Quanto.Bianche)) +
           (Bianca && Quanto.Bianche < 1.0 ? BiancaStretta(Questo.Font.Punti, Quanto)
                                           : Distanza(Questo.Righe, Quanto));
}

bool ConInterruzioni(const Paragrafo& Questo)
{
    const QString Testo = Questo.Testo();
    return Testo.contains(u'\n') || Testo.contains(QChar::LineSeparator);
}

/// The lines of a paragraph as paragraphs of their own, as word processors stretch a justified line that ends
/// in a line break. Room and page breaks stay at the two ends; the first line and the last one do not part
/// from their neighbours, and none does where the paragraph is not divided.
std::vector<Paragrafo> InRighe(const Paragrafo& Questo)
{
    std::vector<Paragrafo> Righe(1, Questo);
    Righe.back().Tratti.clear();
    for (const Tratto& Pezzo : Questo.Tratti) {
        const QStringList Testi =
            QString(Pezzo.Testo).replace(QChar(QChar::LineSeparator), QChar(u'\n')).split(u'\n');
        for (qsizetype i = 0; i < Testi.size(); ++i) {
            if (i > 0) {
                Righe.push_back(Righe.back());
                Righe.back().Tratti.clear();
                Righe.back().Font = Pezzo.Font;
            }
            if (!Testi[i].isEmpty())
                Righe.back().Tratti.push_back({Testi[i], Pezzo.Font});
        }
    }
    for (std::size_t i = 0; i < Righe.size(); ++i) {
        const bool Prima = i == 0;
        const bool Ultima = i + 1 == Righe.size();
        Righe[i].NuovaPagina = Prima && Questo.NuovaPagina;
        Righe[i].Spazi.SopraPunti = Prima ? Questo.Spazi.SopraPunti : 0.0;
        Righe[i].Spazi.SottoPunti = Ultima ? Questo.Spazi.SottoPunti : 0.0;
        Righe[i].Spazi.PrimaRigaCm = Prima ? Questo.Spazi.PrimaRigaCm : 0.0;
        Righe[i].ConSeguente = Ultima ? Questo.ConSeguente : Questo.Intera || Prima || i + 2 == Righe.size();
    }
    return Righe;
}

void ScrivanoRtf::operator()(const Paragrafo& Questo)
{
    if (Questo.Allinea == Allineamento::Giustificato && ConInterruzioni(Questo)) {
        for (const Paragrafo& Riga : InRighe(Questo))
            (*this)(Riga);
        return;
    }
    // Right behind a table a row of text would have to be told from the table's.
    Uscita += "\\pard\\plain" + Posto(Questo, Doc.Stretta);
    ScriviTratti(Questo);
    Uscita += "\\par\r\n";
    DopoTabella = false;
}

void ScrivanoRtf::ScriviTratti(const Paragrafo& Questo)
{
    for (const Tratto& Pezzo : Questo.Tratti) {
        Uscita += '{' + Formato(Pezzo.Font) + ' ';
        ScriviTesto(Pezzo.Testo, Uscita);
        Uscita += '}';
    }
    // The mark's own font comes last: a run would take from it whatever it does not say itself.
    Carattere Segno = Questo.Tratti.empty() ? Questo.Font : Questo.Tratti.back().Font;
    Segno.Barrato = false;
    Segno.Posto = PostoRigo::Normale;
    Uscita += Formato(Segno);
}

void ScrivanoRtf::operator()(const Tabella& Questa)
{
    // Two tables that touch would be one.
    if (DopoTabella)
        Separa();
    const FormaTabella Forma{LarghezzeEntro(Questa, LarghezzaTestoCm(Doc, Foglio)),
                             TabellaIntera(Questa, Doc, Foglio), ConLinee(Questa)};
    for (std::size_t Riga = 0; Riga < Questa.Righe.size(); ++Riga)
        ScriviRiga(Questa, Riga, Forma);
    DopoTabella = true;
}

void ScrivanoRtf::Concludi()
{
    if (DopoTabella)
        Separa();
}

QByteArray ScrivanoRtf::PiePagina()
{
    if (Doc.PiePagina.trimmed().isEmpty())
        return {};
    QByteArray Pie = "{\\footer\\pard\\plain\\ql" + Formato(Doc.FontPiePagina) + ' ';
    const QStringList Parti = QString(Doc.PiePagina).replace(u'\n', u' ').split(u"%d"_s);
    for (qsizetype i = 0; i < Parti.size(); ++i) {
        if (i > 0)
            Pie += "{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}";
        ScriviTesto(Parti[i], Pie);
    }
    return Pie + "\\par}\r\n";
}

QByteArray ScrivanoRtf::Formato(const Carattere& Quale)
{
    const int MezziPunti = std::max(qRound(PuntiStretti(Quale.Punti, Doc.Stretta) * 2.0), 1);
    return Parola("\\f", Famiglie(Quale.Nome)) + Parola("\\fs", MezziPunti) + (Quale.Grassetto ? "\\b" : "") +
           (Quale.Corsivo ? "\\i" : "") + (Quale.Sottolineato ? "\\ul" : "") +
           (Quale.Barrato ? "\\strike" : "") +
           (Quale.Posto == PostoRigo::Apice    ? "\\super"
            : Quale.Posto == PostoRigo::Pedice ? "\\sub"
                                               : "");
}

void ScrivanoRtf::Separa()
{
    Uscita += "\\pard\\plain" + Parola("\\f", Famiglie(Carattere().Nome)) + "\\fs2\\par\r\n";
    DopoTabella = false;
}

// ---- tables

/// A row of rules is as low as on the printed page.
QByteArray DistanzaRighe(const Tabella& Questa, std::size_t Riga, const Strettezza& Quanto)
{
    double Punti = 0.0;
    for (const Cella& Singola : Questa.Righe[Riga])
        Punti = std::max(Punti, PuntiStretti(Singola.Font.Punti, Quanto));
    if (RigaBianca(Questa.Righe[Riga]) && !Questa.Letterale)
        return BiancaStretta(Punti, Quanto);
    if (!RigaDiFiletti(Questa, Riga))
        return Questa.Letterale ? QByteArray() : Vicine(Quanto);
    return Parola("\\sl", -TwipDaPunti(Punti * AltezzaRiga * QuotaRigaFiletti * Quanto.Interlinea)) +
           "\\slmult0";
}

/// An empty cell among others that are nearer to the next row: some readers keep an empty line as high as it
/// is, unless they are told its height.
QByteArray DistanzaVuota(const Cella& Quale, const Strettezza& Quanto)
{
    return Parola("\\sl",
                  -TwipDaPunti(PuntiStretti(Quale.Font.Punti, Quanto) * AltezzaRiga * Quanto.Interlinea)) +
           "\\slmult0";
}

QByteArray Intestazione(const Tabella& Questa, std::size_t Riga)
{
    // Readers disagree on where cells with margins of their own begin: the text is indented instead.
    return QByteArray("\\trowd\\trgaph0\\trleft0\\trkeep") + (Riga < RigheDiTitoli(Questa) ? "\\trhdr" : "");
}

/// The right edge of each cell, from the left margin.
QByteArray Bordi(const Tabella& Questa, const RigaTabella& Riga, const std::vector<double>& Larghezze)
{
    QByteArray Tutti;
    double Cm = 0.0;
    for (std::size_t Colonna = 0; Colonna < Riga.size();) {
        const int Lati = LineeDi(Questa, Riga[Colonna]);
        const std::size_t Fine = Colonna + ColonneCoperte(Riga, Colonna);
        for (; Colonna < Fine; ++Colonna)
            Cm += Larghezze[Colonna];
        for (const auto& [Lato, Nome] : {std::pair(Cella::Alto, "t"), std::pair(Cella::Sinistro, "l"),
                                         std::pair(Cella::Basso, "b"), std::pair(Cella::Destro, "r")})
            if (Lati & Lato)
                Tutti += QByteArray("\\clbrdr") + Nome + "\\brdrs\\brdrw10";
        Tutti += "\\clvertalt" + Parola("\\cellx", TwipDaCm(Cm));
    }
    return Tutti;
}

void ScrivanoRtf::ScriviRiga(const Tabella& Questa, std::size_t Quale, const FormaTabella& Forma)
{
    const RigaTabella& Riga = Questa.Righe[Quale];
    if (Riga.empty())
        return;
    Uscita += Intestazione(Questa, Quale) + Bordi(Questa, Riga, Forma.Larghezze) + "\r\n";
    const QByteArray Unita = UnitaAllaSeguente(Questa, Quale, Forma.Intera) ? "\\keepn" : "";
    const QByteArray Distanza = DistanzaRighe(Questa, Quale, Doc.Stretta);
    const bool Vicina = !Distanza.isEmpty() && Distanza == Vicine(Doc.Stretta);
    for (std::size_t Colonna = 0; Colonna < Riga.size(); Colonna += ColonneCoperte(Riga, Colonna)) {
        const Cella& Singola = Riga[Colonna];
        const bool Vuota = Vicina && Singola.Paragrafi.empty() && CellaBianca(Singola);
        ScriviCella(Singola, MarginiDi(Colonna, Forma.Lineata),
                    Unita + (Vuota ? DistanzaVuota(Singola, Doc.Stretta) : Distanza));
    }
    Uscita += "\\row\r\n";
}

void ScrivanoRtf::ScriviCella(const Cella& Quale, const MarginiCella& Margini, const QByteArray& PerTutte)
{
    if (Quale.Paragrafi.empty()) {
        Uscita += "\\pard\\plain\\intbl" + Allineato(Quale.Allinea) + PerTutte +
                  SeC("\\li", TwipDaCm(Margini.PrimaCm)) + SeC("\\ri", TwipDaCm(Margini.DopoCm)) +
                  Formato(Quale.Font) + ' ';
        ScriviTesto(Quale.Testo, Uscita);
    }
    for (const Paragrafo& Singolo : Quale.Paragrafi) {
        if (&Singolo != &Quale.Paragrafi.front())
            Uscita += "\\par\r\n";
        Uscita += "\\pard\\plain\\intbl" + PerTutte + Posto(Singolo, Doc.Stretta, Margini);
        ScriviTratti(Singolo);
    }
    Uscita += "\\cell";
}

/// A picture as lines of digits, made once: a document is written at each change.
QByteArray Cifre(const QByteArray& Png)
{
    constexpr qsizetype CifreRiga = 128;
    static QByteArray Scritta;
    static QByteArray Righe;
    if (Png == Scritta)
        return Righe;
    Scritta = Png;
    Righe.clear();
    const QByteArray Tutte = Png.toHex();
    for (qsizetype i = 0; i < Tutte.size(); i += CifreRiga)
        Righe += Tutte.mid(i, CifreRiga) + "\r\n";
    return Righe;
}

/// The picture in the head of the first page, which pushes the text down as far as it takes; a page that has
/// a head of its own has its own running line too.
QByteArray ScrivanoRtf::Testa()
{
    if (!Doc.Testa)
        return {};
    const FiguraTesta& Figura = *Doc.Testa;
    const double AltezzaTesto = Foglio.AltezzaMm / 10.0 - Doc.MargineAltoCm - Doc.MargineBassoCm;
    const double Parte = ParteDellaTesta(Figura, LarghezzaTestoCm(Doc, Foglio), std::max(AltezzaTesto, 1.0));
    QByteArray Scritta = "{\\headerf\\pard\\plain" + Allineato(Figura.Allinea) +
                         Parola("\\sa", TwipDaCm(FiguraTesta::SottoCm)) + "\\fs2{\\pict\\pngblip" +
                         Parola("\\picwgoal", TwipDaCm(Figura.LarghezzaCm * Parte)) +
                         Parola("\\pichgoal", TwipDaCm(Figura.AltezzaCm * Parte)) + "\r\n";
    return Scritta + Cifre(Figura.Png) + "}\\par}\r\n" + PiePagina().replace("{\\footer\\", "{\\footerf\\");
}

/// The running line ends half an inch above the edge where the margin has room for that, else in its middle.
int AltezzaPiePagina(const Documento& Doc)
{
    constexpr int DalBordo = static_cast<int>(TwipPerPollice) / 2;
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
           (Doc.Testa ? "\\titlepg" + Parola("\\headery", TwipDaCm(AltoDellaTesta(Doc.MargineAltoCm)))
                      : QByteArray()) +
           Parola("\\margb", TwipDaCm(Doc.MargineBassoCm)) + Parola("\\footery", AltezzaPiePagina(Doc)) +
           Parola("\\deftab", Tabulazione);
}

}  // namespace

QByteArray ScriviRtf(const Documento& Doc, const QString& Titolo, const Carta& Foglio)
{
    ScrivanoRtf Scrivi(Doc, Foglio);
    for (const BloccoDocumento& Uno : Doc.Blocchi)
        std::visit([&](const auto& Questo) { Scrivi(Questo); }, Uno);
    Scrivi.Concludi();
    const QByteArray PiePagina = Scrivi.PiePagina() + Scrivi.Testa();

    QByteArray Info;
    if (!Titolo.isEmpty()) {
        Info = "{\\info{\\title ";
        ScriviTesto(Titolo, Info);
        Info += "}}";
    }
    return Inizio.toByteArray() + Scrivi.Font() + Info + "\r\n" + Pagina(Doc, Foglio) + "\\widowctrl\r\n" +
           PiePagina + Scrivi.Corpo() + "}\r\n";
}

bool EScrittoDaNoi(QByteArrayView Byte)
{
    return Byte.startsWith(Inizio);
}
