#include "core/modSede.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Commas, hyphens and blanks at the ends.
QString Rifilato(const QString& Testo)
{
    static const QRegularExpression Bordi(u"^[\\s,;-]+|[\\s,;-]+$"_s);
    return Testo.simplified().remove(Bordi);
}

/// A street that says nothing without the number behind it: "Strada Provinciale 12", "km 5".
bool VuoleIlNumero(const QString& Via)
{
    static const QStringList Parole{
        u"provinciale"_s, u"statale"_s,   u"regionale"_s, u"comunale"_s, u"vicinale"_s, u"sp"_s,
        u"ss"_s,          u"sr"_s,        u"sc"_s,        u"km"_s,       u"via"_s,      u"viale"_s,
        u"piazza"_s,      u"corso"_s,     u"strada"_s,    u"vicolo"_s,   u"contrada"_s, u"località"_s,
        u"frazione"_s,    u"borgata"_s,   u"lotto"_s,     u"scala"_s,    u"interno"_s,  u"int"_s,
        u"piano"_s,       u"palazzina"_s, u"casella"_s,   u"postale"_s,  u"cp"_s,       u"settore"_s,
        u"traversa"_s,    u"calle"_s,     u"autostrada"_s};
    QString Ultima = Via.simplified().section(u' ', -1).toLower();
    Ultima.remove(u'.');
    return Parole.contains(Ultima);
}

}  // namespace

PartiIndirizzo SpezzaVia(const QString& Indirizzo)
{
    // Behind a comma or "n." anything numeric is the house; behind a blank alone a number that ends the line.
    static const QRegularExpression Civico(
        u"^(?<via>.*\\p{L}{2}.*?)(?:\\s*,\\s*(?:n(?:\\.|°|r\\.?|um\\.?)?\\s*)?|\\s+n(?:\\.|°|r\\.?|um\\.?)"
        u"\\s*|\\s+)"
        "(?<civico>\\d{1,5}(?:\\s?[/-]?\\s?[A-Za-z](?![A-Za-z])|\\s?/\\s?\\d{1,4}(?:\\s?/?[A-Za-z])?)?|s\\.?n\\.?c\\.?)$"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    const QString Intero = Rifilato(Indirizzo);
    const QRegularExpressionMatch Trovato = Civico.match(Intero);
    // A comma or "n." says that it is the house's number; a blank alone does not.
    const qsizetype FineVia = Trovato.capturedEnd(u"via");
    const QString Fra =
        Intero.sliced(std::max<qsizetype>(FineVia, 0)).left(Trovato.capturedStart(u"civico") - FineVia);
    if (!Trovato.hasMatch() || (Fra.trimmed().isEmpty() && VuoleIlNumero(Trovato.captured(u"via"))))
        return {.Via = Intero, .Civico = {}, .Cap = {}, .Comune = {}, .Prov = {}};
    QString Numero = Trovato.captured(u"civico").toUpper();
    Numero.removeIf([](QChar C) { return C.isSpace() || C == u'.'; });
    return {.Via = Rifilato(Trovato.captured(u"via")), .Civico = Numero, .Cap = {}, .Comune = {}, .Prov = {}};
}

PartiIndirizzo SpezzaCitta(const QString& Citta)
{
    static const QRegularExpression Forma(
        u"^(?:(?:I-?)?(?<cap>\\d{5})\\s*[,-]?\\s*)?(?<comune>.*?)"
        "(?:\\s*[(\\[]\\s*(?<fra>[A-Za-z]{2})\\s*[)\\]]|[\\s,-]+(?<nuda>[A-Z]{2}))?$"_s);
    const QRegularExpressionMatch Trovato = Forma.match(Rifilato(Citta));
    const QString Fra = Trovato.captured(u"fra");
    return {.Via = {},
            .Civico = {},
            .Cap = Trovato.captured(u"cap"),
            .Comune = Rifilato(Trovato.captured(u"comune")),
            .Prov = (Fra.isEmpty() ? Trovato.captured(u"nuda") : Fra).toUpper()};
}

PartiIndirizzo SpezzaIndirizzo(const QString& Indirizzo, const QString& Citta)
{
    static const QRegularExpression InFondo(u"^(?<via>.+?)[\\s,-]+(?<citta>\\d{5}\\s.+)$"_s);
    const PartiIndirizzo Luogo = SpezzaCitta(Citta);
    const QRegularExpressionMatch Tutto = InFondo.match(Rifilato(Indirizzo));
    PartiIndirizzo Fatto = SpezzaVia(Tutto.hasMatch() ? Tutto.captured(u"via") : Indirizzo);
    const PartiIndirizzo Dentro = SpezzaCitta(Tutto.captured(u"citta"));
    const auto Primo = [](const QString& Uno, const QString& Altro) { return Uno.isEmpty() ? Altro : Uno; };
    Fatto.Cap = Primo(Luogo.Cap, Dentro.Cap);
    Fatto.Comune = Primo(Luogo.Comune, Dentro.Comune);
    Fatto.Prov = Primo(Luogo.Prov, Dentro.Prov);
    return Fatto;
}
