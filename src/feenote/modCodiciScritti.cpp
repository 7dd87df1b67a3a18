#include "feenote/modCodiciScritti.h"

#include "core/modControlli.h"
#include "platform/base/regionale.h"
#include "platform/base/segni.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The digits of a VAT number, which may stand in groups. What follows it is none of it: a postal code behind
/// a dash, another group where there is nearly a number already.
QString CifreDi(QStringView Testo)
{
    QString Cifre;
    for (const QChar C : Testo) {
        const bool Spazio = C.isSpace() || C == u'.';
        if (ECifra(C))
            Cifre += C;
        else if (!Spazio || Cifre.size() >= CifrePartitaIva - 1)
            break;
        if (Cifre.size() == CifrePartitaIva)
            break;
    }
    return Cifre;
}

/// What follows a name, in one piece, cut to the code that it begins with; empty where it begins with none.
/// "C.F. e P.IVA 0123..." has the second name in between, and is found at that one.
QString Dietro(const QString& Resto, bool& Esteri)
{
    static const QRegularExpression Numero(u"^[\\s:.°n]*(?:IT)?[\\s.]*(?=[0-9])"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    if (const QRegularExpressionMatch Davanti = Numero.match(Resto); Davanti.hasMatch())
        return CifreDi(QStringView(Resto).sliced(Davanti.capturedEnd()));
    QString Codice = CodiceInUnPezzo(Resto);
    Codice.removeIf([](QChar C) { return C == u':' || C == u'°'; });
    if (Codice.isEmpty())
        return {};
    // Two letters in front of a number are a country.
    if (Codice.size() > 2 && EMaiuscola(Codice[0]) && EMaiuscola(Codice[1]) && ECifra(Codice[2])) {
        Esteri = true;
        return {};
    }
    const QString Intero = Codice.left(LettereCodFis);
    // Six letters and the year of birth: no word goes on like this.
    constexpr qsizetype LettereNome = 6;
    const bool Forma = Intero.size() > LettereNome + 1 &&
                       std::all_of(Intero.cbegin(), Intero.cbegin() + LettereNome, EMaiuscola) &&
                       (ECifra(Intero[LettereNome]) || ECifra(Intero[LettereNome + 1]));
    return Forma ? Intero : QString();
}

void Aggiungi(CodiciScritti& Letti, const QString& Codice, bool Nominato)
{
    const bool Numero = std::ranges::all_of(Codice, ECifra);
    const auto Gia = [&](const CodiceScritto& Uno) { return Uno.Codice == Codice; };
    if (!Codice.isEmpty() && !std::ranges::any_of(Letti.Codici, Gia))
        Letti.Codici.append({Codice, Numero, CodiceFiscaleTorna(Codice), Nominato});
}

}  // namespace

CodiciScritti LeggiCodici(const QString& Testo)
{
    static const QRegularExpression Nomi(
        u"(?:\\bp(?:art(?:ita)?)?\\s*\\.?\\s*i\\s*\\.?\\s*v\\s*\\.?\\s*a\\b|"
        "\\bc\\s*\\.\\s*f\\b|\\bcf\\b|\\bcod(?:ice)?\\s*\\.?\\s*fisc(?:ale)?\\b)\\.?"_s,
        QRegularExpression::CaseInsensitiveOption);
    // Digits of a person's code may have become letters, where two persons would have the same one.
    static const QRegularExpression Forme(
        u"\\b(?:[A-Z]{6}[0-9L-NP-V]{2}[A-Z][0-9L-NP-V]{2}[A-Z][0-9L-NP-V]{3}[A-Z]|(?:IT)?[0-9]{11})\\b"_s,
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression Vat(u"\\bVAT\\b"_s, QRegularExpression::CaseInsensitiveOption);
    CodiciScritti Letti;
    Letti.Esteri = Testo.contains(Vat);
    for (const QString& Riga : Testo.split(u'\n')) {
        auto Giro = Nomi.globalMatch(Riga);
        while (Giro.hasNext())
            Aggiungi(Letti, Dietro(Riga.sliced(Giro.next().capturedEnd()), Letti.Esteri), true);
    }
    auto Giro = Forme.globalMatch(Testo);
    while (Giro.hasNext()) {
        QString Codice = Giro.next().captured().toUpper();
        if (Codice.startsWith(u"IT") && Codice.size() < LettereCodFis)
            Codice.remove(0, 2);
        if (Codice.size() == LettereCodFis || PartitaIvaTorna(Codice))
            Aggiungi(Letti, Codice, false);
    }
    return Letti;
}

std::optional<QDate> GiornoPagato(const QString& Testo, const QDate& Massimo)
{
    static const QRegularExpression Data(
        u"(?<![0-9])[0-9]{1,2}([/.-])[0-9]{1,2}\\1(?:[0-9]{4}|[0-9]{2})(?![0-9])"_s);
    static const QRegularExpression DiPagare(u"bonific|pag|versa|ricevut|assegn|contant|incass"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression DiCarte(u"fatt|prevent|pro-?forma|prenot|parcell|nota"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    std::optional<QDate> Pagata, Altra;
    qsizetype Prima = 0;
    auto Giro = Data.globalMatch(Testo);
    while (Giro.hasNext()) {
        const QRegularExpressionMatch Trovata = Giro.next();
        const QString Parole = Testo.sliced(Prima, Trovata.capturedStart() - Prima);
        Prima = Trovata.capturedEnd();
        const auto Letta = LeggiData(Trovata.captured());
        if (!Letta || *Letta > Massimo)
            continue;
        std::optional<QDate>* Quale = Parole.contains(DiPagare) ? &Pagata : &Altra;
        if (Quale == &Altra && Parole.contains(DiCarte))
            continue;
        if (!*Quale || **Quale < *Letta)
            *Quale = Letta;
    }
    return Pagata ? Pagata : Altra;
}
