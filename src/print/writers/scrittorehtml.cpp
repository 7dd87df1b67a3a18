#include "print/writers/scrittorehtml.h"

#include "platform/base/paginacodice.h"
#include "print/writers/formatabella.h"
#include "print/writers/misuretesto.h"

#include <QStringList>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A length in the fewest digits, at most three behind the point.
QString Numero(double Valore)
{
    QString Testo = QString::number(Valore, 'f', 3);
    while (Testo.endsWith(u'0'))
        Testo.chop(1);
    if (Testo.endsWith(u'.'))
        Testo.chop(1);
    return Testo == "-0"_L1 ? u"0"_s : Testo;
}

QString Cm(double Valore)
{
    return Numero(Valore) + u"cm"_s;
}

QString Mm(double Valore)
{
    return Numero(Valore) + u"mm"_s;
}

/// Text between tags.
QString Protetto(const QString& Testo)
{
    return SenzaControlli(Testo).toHtmlEscaped();
}

/// A quoted string of a style sheet. What is neither letter nor digit goes by its number, so that neither the
/// string nor the sheet can end in it.
QString StringaCss(const QString& Testo)
{
    QString Scritta = u"\""_s;
    for (const uint Codice : SenzaControlli(Testo).toUcs4()) {
        if (QChar::isLetterOrNumber(Codice) || Codice == u' ')
            Scritta += QString::fromUcs4(reinterpret_cast<const char32_t*>(&Codice), 1);
        else
            Scritta += u'\\' + QString::number(Codice, 16) + u' ';
    }
    return Scritta + u'"';
}

QString FamigliaCss(const QString& Nome)
{
    const bool Bastoni = Nome.contains("Arial"_L1) || Nome.contains("Sans"_L1);
    const bool Fisso = Nome.contains("Courier"_L1);
    return StringaCss(Nome) + (Bastoni ? u",\"Liberation Sans\",sans-serif"_s
                               : Fisso ? u",\"Liberation Mono\",monospace"_s
                                       : u",\"Liberation Serif\",serif"_s);
}

/// The fonts of a document, each a class of the style sheet.
class ClassiFont
{
public:
    QString operator()(const Carattere& Quale)
    {
        const auto Suo = std::ranges::find(Tutti, Quale);
        const auto Posto = Suo - Tutti.begin();
        if (Suo == Tutti.end())
            Tutti.push_back(Quale);
        return u'f' + QString::number(Posto);
    }

    [[nodiscard]] QString Stili() const
    {
        QString Fatti;
        for (std::size_t i = 0; i < Tutti.size(); ++i) {
            const Carattere& Uno = Tutti[i];
            Fatti += u".f%1{font:"_s.arg(i) + (Uno.Corsivo ? u"italic "_s : QString()) +
                     (Uno.Grassetto ? u"bold "_s : QString()) + Numero(Uno.Punti) + u"pt "_s +
                     FamigliaCss(Uno.Nome) + Decorazione(Uno) + Rigo(Uno.Posto) + u"}\n"_s;
        }
        return Fatti;
    }

private:
    static QString Decorazione(const Carattere& Quale)
    {
        if (!Quale.Sottolineato && !Quale.Barrato)
            return {};
        return u";text-decoration:"_s + (Quale.Sottolineato ? u"underline"_s : QString()) +
               (Quale.Sottolineato && Quale.Barrato ? u" "_s : QString()) +
               (Quale.Barrato ? u"line-through"_s : QString());
    }

    /// Raised and lowered characters do not push the lines apart.
    static QString Rigo(PostoRigo Posto)
    {
        switch (Posto) {
        case PostoRigo::Apice:
            return u";vertical-align:super;font-size:67%;line-height:0"_s;
        case PostoRigo::Pedice:
            return u";vertical-align:sub;font-size:67%;line-height:0"_s;
        case PostoRigo::Normale:
            break;
        }
        return {};
    }

    std::vector<Carattere> Tutti;
};

class Scrivano
{
public:
    Scrivano(const Documento& Intero, const Carta& Carta) : Doc(Intero), Foglio(Carta) {}

    void operator()(const Paragrafo& Questo)
    {
        const Carattere Primo = Portante(Questo.Tratti.empty() ? Questo.Font : Questo.Tratti.front().Font);
        Uscita += u"<p class=\""_s + Font(Primo) + Allineato(Questo.Allinea) + u'"' + Posto(Questo) + u'>';
        qsizetype Fatto = 0;
        X = 0.0;
        for (const Tratto& Uno : Questo.Tratti) {
            const bool Altro = !(Uno.Font == Primo);
            Uscita += Altro ? u"<span class=\""_s + Font(Uno.Font) + u"\">"_s : QString();
            Uscita += (Questo.Fermi.empty() ? Righe(Uno.Testo) : Tabulate(Questo, Uno, Fatto)) +
                      (Altro ? u"</span>"_s : QString());
            Fatto += Uno.Testo.size();
        }
        // A row without text keeps its height by a line break, as does one that ends in one.
        const QString Testo = Questo.Testo();
        Uscita += Testo.isEmpty() || Testo.endsWith(u'\n') ? u"<br/></p>\n"_s : u"</p>\n"_s;
    }

    void operator()(const Tabella& Questa)
    {
        const bool Lineata = Questa.Bordo == 0 && ConLinee(Questa);
        Uscita += Questa.Bordo > 0 ? u"<table class=\"b\""_s
                  : Lineata        ? u"<table class=\"l\""_s
                                   : u"<table"_s;
        const std::vector<double> Larghezze = LarghezzeEntro(Questa, LarghezzaTestoCm(Doc, Foglio));
        double Somma = 0.0;
        QString Colonne;
        for (const double Una : Larghezze) {
            Somma += Una;
            Colonne += u"<col style=\"width:"_s + Cm(Una) + u"\"/>"_s;
        }
        Uscita += u" style=\"width:"_s + Cm(Somma) + u"\"><colgroup>"_s + Colonne + u"</colgroup>\n"_s;
        const std::size_t Titoli = RigheDiTitoli(Questa);
        Intera = TabellaIntera(Questa, Doc, Foglio);
        Parte(Questa, u"thead"_s, 0, Titoli);
        Parte(Questa, u"tbody"_s, Titoli, Questa.Righe.size());
        Uscita += u"</table>\n"_s;
    }

    [[nodiscard]] const QString& Corpo() const { return Uscita; }
    [[nodiscard]] QString Stili() const { return Font.Stili(); }
    ClassiFont Font;

private:
    /// The font of a whole row of text: what is struck out or raised is so in its run alone.
    static Carattere Portante(Carattere Font)
    {
        Font.Barrato = Font.Sottolineato = false;
        Font.Posto = PostoRigo::Normale;
        return Font;
    }

    /// A class beside the font's.
    static QString Allineato(Allineamento Come)
    {
        switch (Come) {
        case Allineamento::Centro:
            return u" c"_s;
        case Allineamento::Destra:
            return u" d"_s;
        case Allineamento::Giustificato:
            return u" g"_s;
        case Allineamento::AltoSinistra:
        case Allineamento::Sinistra:
            break;
        }
        return {};
    }

    static QString Posto(const Paragrafo& Questo)
    {
        const Rientri& Suoi = Questo.Spazi;
        QString Stile;
        if (!(Suoi == Rientri()))
            Stile = u"margin:%1pt %2 %3pt %4;text-indent:%5"_s.arg(Numero(Suoi.SopraPunti), Cm(Suoi.DestroCm),
                                                                   Numero(Suoi.SottoPunti),
                                                                   Cm(Suoi.SinistroCm), Cm(Suoi.PrimaRigaCm));
        if (Suoi.PrimaRigaCm < 0.0)
            Stile += u";tab-size:"_s + Cm(-Suoi.PrimaRigaCm);
        Stile += StileRighe(Questo.Righe);
        if (Questo.NuovaPagina)
            Stile += u";break-before:page"_s;
        if (Questo.Intera)
            Stile += u";break-inside:avoid"_s;
        if (Questo.ConSeguente)
            Stile += u";break-after:avoid"_s;
        return Stile.isEmpty() ? QString() : u" style=\""_s + Stile + u'"';
    }

    static QString StileRighe(const Interlinea& Righe)
    {
        if (Righe.EsattaPunti > 0.0)
            return u";line-height:"_s + Numero(Righe.EsattaPunti) + u"pt"_s;
        if (Righe.AlmenoPunti > 0.0)
            return u";line-height:max("_s + Numero(Righe.AlmenoPunti) + u"pt,1.15em)"_s;
        return Righe.Multipla > 1.0 ? u";line-height:"_s + Numero(Righe.Multipla * AltezzaRiga) : QString();
    }

    static QString Righe(const QString& Testo)
    {
        return Protetto(Testo).replace(u'\n', u"<br/>"_s).replace(QChar(QChar::LineSeparator), u"<br/>"_s);
    }

    /// A run with room for its tabs, as browsers know no stops: what is filled is drawn. X is where the text
    /// stands on its line, which holds for the lines that break by themselves less than for the others.
    /// @param Da place of the run in its paragraph
    QString Tabulate(const Paragrafo& Questo, const Tratto& Pezzo, qsizetype Da)
    {
        QString Scritto;
        qsizetype Inizio = 0;
        const QString Intero = Questo.Testo();
        for (qsizetype i = 0; i <= Pezzo.Testo.size(); ++i) {
            if (i < Pezzo.Testo.size() && Pezzo.Testo[i] != u'\t' && Pezzo.Testo[i] != u'\n')
                continue;
            const QString Prima = Pezzo.Testo.sliced(Inizio, i - Inizio);
            Scritto += Righe(Prima);
            X += LarghezzaTesto(Prima, Pezzo.Font);
            Inizio = i + 1;
            if (i == Pezzo.Testo.size())
                break;
            if (Pezzo.Testo[i] == u'\n') {
                Scritto += u"<br/>"_s;
                X = 0.0;
                continue;
            }
            const QString Seguente = Intero.sliced(Da + i + 1).section(u'\t', 0, 0).section(u'\n', 0, 0);
            Scritto += Tabulazione(Questo, LarghezzaTesto(Seguente, Pezzo.Font));
        }
        return Scritto;
    }

    /// The room from X to the stop that comes next, less what stands before the stop.
    QString Tabulazione(const Paragrafo& Questo, double SeguenteCm)
    {
        const double Rientro = Questo.Spazi.SinistroCm;
        const auto Verso =
            std::ranges::find_if(Questo.Fermi, [&](const Fermo& Uno) { return Uno.Cm - Rientro > X; });
        if (Verso == Questo.Fermi.end())
            return u"\t"_s;
        const double Arretra = Verso->Come == Fermo::Sinistra ? 0.0
                               : Verso->Come == Fermo::Centro ? SeguenteCm / 2.0
                                                              : SeguenteCm;
        const double Larga = std::max(Verso->Cm - Rientro - X - Arretra, 0.0);
        X += Larga;
        const QString Classe = Verso->Riempie == 0 ? u"t"_s : Verso->Riempie == u'.' ? u"t p"_s : u"t s"_s;
        return u"<span class=\""_s + Classe + u"\" style=\"width:"_s + Cm(Larga) + u"\"></span>"_s;
    }

    void Parte(const Tabella& Questa, const QString& Nome, std::size_t Da, std::size_t A)
    {
        if (Da >= A)
            return;
        Uscita += u'<' + Nome + u">\n"_s;
        for (std::size_t Riga = Da; Riga < A; ++Riga)
            ScriviRiga(Questa, Riga);
        Uscita += u"</"_s + Nome + u">\n"_s;
    }

    /// Rows that stand with the next one, and rows of rules, which are as low as on the printed page.
    [[nodiscard]] QString ClasseRiga(const Tabella& Questa, std::size_t Quale) const
    {
        const bool Unita = UnitaAllaSeguente(Questa, Quale, Intera);
        if (RigaDiFiletti(Questa, Quale))
            return Unita ? u" class=\"u r\""_s : u" class=\"r\""_s;
        return Unita ? u" class=\"u\""_s : QString();
    }

    void ScriviRiga(const Tabella& Questa, std::size_t Quale)
    {
        const RigaTabella& Riga = Questa.Righe[Quale];
        Uscita += u"<tr"_s + ClasseRiga(Questa, Quale) + u'>';
        for (std::size_t Colonna = 0; Colonna < Riga.size();) {
            const Cella& Una = Riga[Colonna];
            const std::size_t Coperte = ColonneCoperte(Riga, Colonna);
            Uscita += u"<td class=\""_s + Font(Una.Font) + Allineato(Una.Allinea) + u'"';
            if (Coperte > 1)
                Uscita += u" colspan=\""_s + QString::number(Coperte) + u'"';
            Uscita += Lati(Questa, Una) + u'>';
            if (Una.Paragrafi.empty())
                Uscita += Una.Testo.isEmpty() ? u"<br/>"_s : Righe(Una.Testo);
            for (const Paragrafo& Singolo : Una.Paragrafi)
                (*this)(Singolo);
            Uscita += u"</td>"_s;
            Colonna += Coperte;
        }
        Uscita += u"</tr>\n"_s;
    }

    /// The sides of a cell that are drawn; a table with a border has its class.
    static QString Lati(const Tabella& Questa, const Cella& Quale)
    {
        if (Questa.Bordo > 0 || Quale.Linee == 0)
            return {};
        QString Stile;
        for (const auto& [Lato, Nome] :
             {std::pair(Cella::Alto, u"top"_s), std::pair(Cella::Destro, u"right"_s),
              std::pair(Cella::Basso, u"bottom"_s), std::pair(Cella::Sinistro, u"left"_s)})
            if (Quale.Linee & Lato)
                Stile += u"border-"_s + Nome + u":.15mm solid;"_s;
        return u" style=\""_s + Stile.chopped(1) + u'"';
    }

    static constexpr double AltezzaRiga = 1.15;  // of the font's size

    QString Uscita;
    const Documento& Doc;
    const Carta& Foglio;
    double X = 0.0;       ///< width of the line of text so far, in centimetres
    bool Intera = false;  ///< the table being written is not divided
};

/// The running line as what a page counter makes of it; the sheet's own margin box holds it.
QString PiePagina(const Documento& Doc)
{
    if (Doc.PiePagina.trimmed().isEmpty())
        return {};
    QStringList Parti;
    for (const QString& Una : QString(Doc.PiePagina).replace(u'\n', u' ').split(u"%d"_s))
        Parti += StringaCss(Una);
    return u"@bottom-left{font:"_s + Numero(Doc.FontPiePagina.Punti) + u"pt "_s +
           FamigliaCss(Doc.FontPiePagina.Nome) + u";white-space:pre;content:"_s +
           Parti.join(u" counter(page) "_s) + u'}';
}

QString Stili(const Documento& Doc, const Carta& Foglio, const QString& Font)
{
    const QString Margini = QStringList{Cm(Doc.MargineAltoCm), Cm(Doc.MargineDestroCm),
                                        Cm(Doc.MargineBassoCm), Cm(Doc.MargineSinistroCm)}
                                .join(u' ');
    return u"@page{size:"_s + Mm(Foglio.LarghezzaMm) + u' ' + Mm(Foglio.AltezzaMm) + u";margin:"_s + Margini +
           u';' + PiePagina(Doc) +
           u"}\n"
           u"@media screen{html{background:#ddd}body{box-sizing:border-box;background:#fff;margin:1em auto;width:"_s +
           Mm(Foglio.LarghezzaMm) + u";padding:"_s + Margini +
           u"}}\n"
           u"@media print{body{margin:0}}\n"
           u"body{color:#000}\n"
           u"p{margin:0;orphans:2;widows:2}\n"
           u"p,td{white-space:pre-wrap;overflow-wrap:break-word;tab-size:12.5mm}\n"
           u"table{border-collapse:collapse;table-layout:fixed}\n"
           u"tr{break-inside:avoid}\n"
           u".u{break-after:avoid}\n"
           u".r td{line-height:0;padding-bottom:.69em}\n"
           u"td{padding:0 0 0 1.5mm;vertical-align:top}\n"
           u"td:first-child{padding-left:0}\n"
           u".b td{border:.15mm solid;padding:.5mm .75mm}\n"
           u".l td{padding:.5mm .75mm}\n"
           u".t{display:inline-block}\n"
           u".s{border-bottom:.2mm solid}\n"
           u".p{border-bottom:.3mm dotted}\n"
           u".c{text-align:center}\n"
           u".d{text-align:right}\n"
           u".g{text-align:justify}\n"_s +
           Font;
}

}  // namespace

QByteArray ScriviHtml(const Documento& Doc, const QString& Titolo, const Carta& Foglio)
{
    Scrivano Scrivi(Doc, Foglio);
    for (const BloccoDocumento& Uno : Doc.Blocchi)
        std::visit([&](const auto& Questo) { Scrivi(Questo); }, Uno);
    const QString Pagina = u"<!DOCTYPE html>\n"
                           u"<html lang=\"it\">\n<head>\n<meta charset=\"utf-8\"/>\n<title>"_s +
                           Protetto(Titolo) + u"</title>\n<style>\n"_s + Stili(Doc, Foglio, Scrivi.Stili()) +
                           u"</style>\n</head>\n<body>\n"_s + Scrivi.Corpo() + u"</body>\n</html>\n"_s;
    return Pagina.toUtf8();
}
