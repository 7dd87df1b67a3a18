#include "platform/database/testicolonna.h"

#include <algorithm>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

constexpr int PrimeRighe = 256;  ///< a search that finds at once reads no more
constexpr int MassimoRighe = 1 << 20;

std::string_view Vista(QByteArrayView Testo)
{
    return {Testo.data(), size_t(Testo.size())};
}

}  // namespace

// ---- the question -------------------------------------------------------------------------------

DomandaTesto::DomandaTesto(const ConfrontoTesto& Chiesto) : Segno(Chiesto.Segno), Modello(Chiesto.Testo)
{
    QString Fisso = Chiesto.Testo;
    if (Segno == SegnoTesto::Simile || Segno == SegnoTesto::Dissimile) {
        const bool StellaPrima = Fisso.startsWith(u'*');
        const bool StellaDopo = Fisso.size() > 1 && Fisso.endsWith(u'*');
        Fisso = Fisso.sliced(StellaPrima, Fisso.size() - StellaPrima - StellaDopo);
        const bool SoloLettere = std::ranges::none_of(Fisso, [](QChar C) { return u"*?#["_s.contains(C); });
        // A plain text between, before or behind stars is looked for as it stands.
        if (!SoloLettere || !(StellaPrima || StellaDopo))
            Modo = Come::Modello;
        else if (StellaPrima && StellaDopo)
            Modo = Come::Dentro;
        else
            Modo = StellaPrima ? Come::Fine : Come::Inizio;
    }
    AccodaSenzaMaiuscole(Cercato, Fisso.toUtf8());
}

bool DomandaTesto::Vale(QByteArrayView Piegato) const
{
    const std::string_view Testo = Vista(Piegato);
    const std::string_view Fisso = Vista(Cercato);
    const auto Somiglia = [&] {
        switch (Modo) {
        case Come::Dentro:
            return Testo.find(Fisso) != std::string_view::npos;
        case Come::Inizio:
            return Testo.starts_with(Fisso);
        case Come::Fine:
            return Testo.ends_with(Fisso);
        default:
            return Modello.Corrisponde(Piegato);
        }
    };
    switch (Segno) {
    case SegnoTesto::Uguale:
        return Testo == Fisso;
    case SegnoTesto::Diverso:
        return Testo != Fisso;
    case SegnoTesto::Minore:
        return Testo < Fisso;
    case SegnoTesto::MinoreUguale:
        return Testo <= Fisso;
    case SegnoTesto::Maggiore:
        return Testo > Fisso;
    case SegnoTesto::MaggioreUguale:
        return Testo >= Fisso;
    case SegnoTesto::Simile:
        return Somiglia();
    case SegnoTesto::Dissimile:
        break;
    }
    return !Somiglia();
}

// ---- the texts ----------------------------------------------------------------------------------

void TestiColonna::Verifica()
{
    const quint64 Adesso = Da.Conn->Versione();
    if (Adesso == Versione && Prossime > 0)
        return;
    Versione = Adesso;
    Prossime = PrimeRighe;
    Chiavi.clear();
    Voci.clear();
    Testi.clear();
    Finiti = false;
    Buoni = true;
}

void TestiColonna::LeggiAncora()
{
    const QString Inizio = Chiavi.empty() ? QString() : u" WHERE %1>?"_s.arg(Da.Chiave);
    QVariantList Valori{Prossime};
    if (!Chiavi.empty())
        Valori.prepend(Chiavi.back());
    Istruzione Righe(*Da.Conn,
                     u"SELECT %1, %2 FROM %3%4 ORDER BY %1 LIMIT ?"_s.arg(Da.Chiave, Da.NomiSql[Colonna],
                                                                          Da.Tabella, Inizio),
                     Valori);
    int Lette = 0;
    while (Righe.Avanza()) {
        Voce Nuova{quint32(Testi.size()), -1};
        if (Righe.ETesto(1)) {
            AccodaSenzaMaiuscole(Testi, Righe.Utf8(1));
            Nuova.Lunga = qint32(Testi.size() - qsizetype(Nuova.Inizio));
        } else if (!Righe.ENullo(1)) {
            Buoni = false;
        }
        Buoni = Buoni && Testi.size() <= MassimoByte;
        if (!Buoni)
            break;
        Chiavi.push_back(Righe.Intero(0));
        Voci.push_back(Nuova);
        ++Lette;
    }
    Finiti = !Buoni || Lette < Prossime;
    Prossime = std::min(Prossime * 4, MassimoRighe);
    if (!Buoni) {
        Testi = {};  // nothing of it will be asked for
        Chiavi = {};
        Voci = {};
    }
}

void TestiColonna::LeggiTutti()
{
    Prossime = MassimoRighe;
    while (!Finiti)
        LeggiAncora();
}

void TestiColonna::LeggiFino(qint64 Chiave)
{
    while (!Finiti && (Chiavi.empty() || Chiavi.back() < Chiave))
        LeggiAncora();
}

qsizetype TestiColonna::PostoDa(qint64 Chiave) const
{
    return std::ranges::lower_bound(Chiavi, Chiave) - Chiavi.begin();
}

bool TestiColonna::Vale(const DomandaTesto& Domanda, qsizetype Posto) const
{
    const Voce& Qui = Voci[size_t(Posto)];
    return Qui.Lunga >= 0 &&
           Domanda.Vale(QByteArrayView(Testi.constData() + Qui.Inizio, qsizetype(Qui.Lunga)));
}

qsizetype TestiColonna::Avanti(const DomandaTesto& Domanda, qsizetype DaPosto)
{
    for (qsizetype Posto = DaPosto;; ++Posto) {
        while (Posto >= Righe() && !Finiti)
            LeggiAncora();
        if (Posto >= Righe())
            return -1;
        if (Vale(Domanda, Posto))
            return Posto;
    }
}

qsizetype TestiColonna::Indietro(const DomandaTesto& Domanda, qsizetype DaPosto) const
{
    for (qsizetype Posto = std::min(DaPosto, Righe() - 1); Posto >= 0; --Posto)
        if (Vale(Domanda, Posto))
            return Posto;
    return -1;
}
