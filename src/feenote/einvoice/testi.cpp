#include "feenote/einvoice/testi.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// What a character is written as; the first column in order, for the search.
struct Sostituto
{
    char32_t Carattere;
    QStringView Scritto;
};

// Those that a decomposition of the standard does not bring to plain letters.
constexpr std::array Sostituti{
    Sostituto{0x00AB, u"\""},                            // «
    Sostituto{0x00B0, u"."},                             // °
    Sostituto{0x00B4, u"'"},                             // acute accent by itself
    Sostituto{0x00B7, u"-"},                             // ·
    Sostituto{0x00BB, u"\""},                            // »
    Sostituto{0x00C6, u"AE"},                            // Æ
    Sostituto{0x00D0, u"D"},                             // Ð
    Sostituto{0x00D8, u"O"},                             // Ø
    Sostituto{0x00DE, u"TH"},                            // Þ
    Sostituto{0x00DF, u"ss"},                            // ß
    Sostituto{0x00E6, u"ae"},                            // æ
    Sostituto{0x00F0, u"d"},                             // ð
    Sostituto{0x00F8, u"o"},                             // ø
    Sostituto{0x00FE, u"th"},                            // þ
    Sostituto{0x0110, u"D"},                             // Đ
    Sostituto{0x0111, u"d"},                             // đ
    Sostituto{0x0126, u"H"},                             // Ħ
    Sostituto{0x0127, u"h"},                             // ħ
    Sostituto{0x0131, u"i"},                             // ı
    Sostituto{0x0141, u"L"},                             // Ł
    Sostituto{0x0142, u"l"},                             // ł
    Sostituto{0x0152, u"OE"},                            // Œ
    Sostituto{0x0153, u"oe"},                            // œ
    Sostituto{0x0192, u"f"},                             // ƒ
    Sostituto{0x02B9, u"'"},                             // modifier prime
    Sostituto{0x02BB, u"'"},                             // turned comma
    Sostituto{0x02BC, u"'"},                             // modifier apostrophe
    Sostituto{0x1E9E, u"SS"},                            // ẞ
    Sostituto{0x2010, u"-"},                             // hyphen
    Sostituto{0x2011, u"-"},                             // hyphen that does not break
    Sostituto{0x2012, u"-"},                             // figure dash
    Sostituto{0x2013, u"-"},                             // en dash
    Sostituto{0x2014, u"-"},                             // em dash
    Sostituto{0x2015, u"-"},                             // bar
    Sostituto{0x2018, u"'"},                             // opening quote
    Sostituto{0x2019, u"'"},                             // closing quote, the typographer's apostrophe
    Sostituto{0x201A, u"'"},                             // low quote
    Sostituto{0x201B, u"'"},                             // reversed quote
    Sostituto{0x201C, u"\""},                            // opening double quote
    Sostituto{0x201D, u"\""},                            // closing double quote
    Sostituto{0x201E, u"\""},                            // low double quote
    Sostituto{0x201F, u"\""},                            // reversed double quote
    Sostituto{0x2022, u"-"},                             // bullet
    Sostituto{0x2032, u"'"},                             // prime
    Sostituto{0x2033, u"\""},                            // double prime
    Sostituto{0x2039, u"'"},                             // single angle quotes
    Sostituto{0x203A, u"'"},   Sostituto{0x2044, u"/"},  // fraction slash
    Sostituto{0x20AC, u"EUR"},                           // €
    Sostituto{0x2212, u"-"},                             // minus
};
static_assert(std::ranges::is_sorted(Sostituti, {}, &Sostituto::Carattere));

QStringView SostitutoDi(char32_t Carattere)
{
    const auto Posto = std::ranges::lower_bound(Sostituti, Carattere, {}, &Sostituto::Carattere);
    return Posto != Sostituti.end() && Posto->Carattere == Carattere ? Posto->Scritto : QStringView();
}

bool Ammesso(char32_t Carattere, AlfabetoFattura Alfabeto)
{
    constexpr char32_t Primo = 0x20, UltimoBase = 0x7E, PrimoLatino = 0xA1, UltimoLatino = 0xFF;
    constexpr char32_t TrattinoMorbido = 0xAD;
    if (Carattere >= Primo && Carattere <= UltimoBase)
        return true;
    return Alfabeto == AlfabetoFattura::Latino && Carattere >= PrimoLatino && Carattere <= UltimoLatino &&
           Carattere != TrattinoMorbido;
}

/// Marks that nobody sees: they say nothing in a text that has one line.
bool Invisibile(char32_t Carattere)
{
    const QChar::Category Genere = QChar::category(Carattere);
    return Genere == QChar::Other_Control || Genere == QChar::Other_Format;
}

/// The plain letters that a character is made of; empty when one of them is none of the alphabet.
QString Scomposto(char32_t Carattere, AlfabetoFattura Alfabeto)
{
    QString Lettere;
    const QString Intero = QString::fromUcs4(&Carattere, 1);
    for (const char32_t Parte : Intero.normalized(QString::NormalizationForm_KD).toUcs4()) {
        if (QChar::isMark(Parte))
            continue;
        if (Ammesso(Parte, Alfabeto))
            Lettere += QString::fromUcs4(&Parte, 1);
        else if (const QStringView Altro = SostitutoDi(Parte); !Altro.isEmpty())
            Lettere += Altro;
        else
            return {};
    }
    return Lettere;
}

void Annota(QString& Dove, const QString& Carattere)
{
    if (!Dove.contains(Carattere))
        Dove += Carattere;
}

}  // namespace

TestoPulito PulisciTesto(const QString& Testo, AlfabetoFattura Alfabeto)
{
    TestoPulito Pulito;
    // Accents that stand behind their letter are one character with it first.
    for (const char32_t Carattere : Testo.normalized(QString::NormalizationForm_C).toUcs4()) {
        const QString Intero = QString::fromUcs4(&Carattere, 1);
        if (Ammesso(Carattere, Alfabeto)) {
            Pulito.Testo += Intero;
            continue;
        }
        if (QChar::isSpace(Carattere)) {
            Pulito.Testo += u' ';
            continue;
        }
        if (Invisibile(Carattere))
            continue;
        const QStringView Sostituto = SostitutoDi(Carattere);
        const QString Scritto = Sostituto.isEmpty() ? Scomposto(Carattere, Alfabeto) : Sostituto.toString();
        Pulito.Testo += Scritto;
        Annota(Scritto.isEmpty() ? Pulito.Rifiutati : Pulito.Cambiati, Intero);
    }
    Pulito.Testo = Pulito.Testo.simplified();
    return Pulito;
}

QString TagliaTesto(const QString& Testo, qsizetype Massimo)
{
    if (Testo.size() <= Massimo)
        return Testo;
    // A word of more than half of the room is divided.
    const qsizetype Fine = Testo.lastIndexOf(u' ', Massimo);
    if (Fine >= Massimo / 2)
        return Testo.first(Fine).trimmed();
    return Testo.first(Testo[Massimo - 1].isHighSurrogate() ? Massimo - 1 : Massimo);
}

QStringList DividiTesto(const QString& Testo, qsizetype Massimo)
{
    QStringList Pezzi;
    for (QString Resto = Testo.trimmed(); !Resto.isEmpty();
         Resto = Resto.sliced(Pezzi.last().size()).trimmed())
        Pezzi += TagliaTesto(Resto, Massimo);
    return Pezzi;
}
