#include "core/modSede.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// Commas, hyphens and blanks at the ends.
QString Rifilato(QString Testo)
{
    static const QRegularExpression Bordi(u"^[\\s,;-]+|[\\s,;-]+$"_s);
    return Testo.simplified().remove(Bordi);
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
    if (!Trovato.hasMatch())
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
