// Writing of cards.
#include "addressbook/exchange/vcard.h"
#include "platform/base/segni.h"

#include "platform/base/paginacodice.h"
#include "platform/base/regionale.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct ConProprieta
{
    QStringView Campo;
    QStringView Proprieta;
};

// Columns that are one property each, by name.
constexpr std::array UnaPerUna{
    ConProprieta{u"Telefono", u"TEL;TYPE=voice"},
    ConProprieta{u"Cellulare", u"TEL;TYPE=cell"},
    ConProprieta{u"Email", u"EMAIL"},
    ConProprieta{u"Pec", u"EMAIL;TYPE=x-pec"},
    ConProprieta{u"ComuneNascita", u"BIRTHPLACE"},
    ConProprieta{u"Note", u"NOTE"},
    ConProprieta{u"CodFis", u"X-CODICEFISCALE"},
    ConProprieta{u"PIva", u"X-PARTITAIVA"},
    ConProprieta{u"CodDestinatario", u"X-CODICEDESTINATARIO"},
    ConProprieta{u"RapprLegale", u"X-RAPPRESENTANTELEGALE"},
};

constexpr std::array<QStringView, 5> NellIndirizzo{u"Indirizzo", u"Citta", u"Prov", u"Cap", u"Nazione"};

bool StessoNome(QStringView A, QStringView B)
{
    return A.compare(B, Qt::CaseInsensitive) == 0;
}

QString Protetto(QString Testo)
{
    Testo.replace(u"\r\n"_s, u"\n"_s);
    Testo.replace(u'\r', u'\n');
    Testo = SenzaControlli(Testo);
    Testo.replace(u'\\', u"\\\\"_s);
    Testo.replace(u'\n', u"\\n"_s);
    Testo.replace(u',', u"\\,"_s);
    return Testo.replace(u';', u"\\;"_s);
}

/// A line of at most 75 bytes; the rest goes on in further ones, and no letter is cut.
QByteArray Piegata(const QByteArray& Linea)
{
    constexpr qsizetype Massimo = 75;
    constexpr unsigned char Seguito = 0xC0;
    constexpr unsigned char MarcaSeguito = 0x80;
    QByteArray Fatta;
    qsizetype Da = 0;
    while (Linea.size() - Da > Massimo - (Da > 0 ? 1 : 0)) {
        qsizetype Fine = Da + Massimo - (Da > 0 ? 1 : 0);
        while (Fine > Da + 1 && (static_cast<unsigned char>(Linea[Fine]) & Seguito) == MarcaSeguito)
            --Fine;
        Fatta += (Da > 0 ? " " : "") + Linea.sliced(Da, Fine - Da) + "\r\n";
        Da = Fine;
    }
    return Fatta + (Da > 0 ? " " : "") + Linea.sliced(Da) + "\r\n";
}

/// The name of a property of our own: capitals, digits and hyphens.
QString NomeProprio(const QString& Campo)
{
    QString Nome;
    for (const QChar C : Campo.toUpper())
        Nome += EMaiuscola(C) || ECifra(C) ? C : QChar(u'-');
    return u"X-"_s + Nome;
}

}  // namespace

QByteArray SchedaVcard(const ValoriNominativo& Valori, bool Societa)
{
    const auto Valore = [&](QStringView Campo) {
        const auto Trovato =
            std::ranges::find_if(Valori, [&](const auto& Voce) { return StessoNome(Voce.first, Campo); });
        return Trovato != Valori.end() ? Trovato->second : QString();
    };
    const QString Nome = Valore(u"Nominativo").trimmed();
    if (Nome.isEmpty())
        return {};
    QByteArray Scritta("BEGIN:VCARD\r\nVERSION:4.0\r\n");
    const auto Metti = [&](const QString& Proprieta, const QString& GiaProtetto) {
        Scritta += Piegata((Proprieta + u':' + GiaProtetto).toUtf8());
    };
    Metti(u"KIND"_s, Societa ? u"org"_s : u"individual"_s);
    Metti(u"FN"_s, Protetto(Nome));
    if (Societa)
        Metti(u"ORG"_s, Protetto(Nome));
    QStringList Luogo;
    for (const QStringView Campo : NellIndirizzo)
        Luogo.append(Protetto(Valore(Campo)));
    if (std::ranges::any_of(Luogo, [](const QString& Parte) { return !Parte.isEmpty(); }))
        Metti(u"ADR"_s, u";;"_s + Luogo.join(u';'));
    for (const auto& [Campo, Testo] : Valori) {
        const auto E = [&Campo = Campo](QStringView Nota) { return StessoNome(Campo, Nota); };
        if (Testo.isEmpty() || E(u"Nominativo") || std::ranges::any_of(NellIndirizzo, E))
            continue;
        const auto* Trovata =
            std::ranges::find_if(UnaPerUna, [&E](const ConProprieta& Voce) { return E(Voce.Campo); });
        if (const auto Nascita = E(u"DataNascita") ? LeggiData(Testo) : std::nullopt)
            Metti(u"BDAY"_s, Nascita->toString(u"yyyyMMdd"));
        else
            Metti(Trovata != UnaPerUna.end() ? Trovata->Proprieta.toString() : NomeProprio(Campo),
                  Protetto(Testo));
    }
    return Scritta + "END:VCARD\r\n";
}
