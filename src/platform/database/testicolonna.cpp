#include "platform/database/testicolonna.h"

#include <algorithm>
#include <limits>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

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

void TestiColonna::Verifica(qsizetype Attese)
{
    const quint64 Adesso = Da.Conn->Versione();
    if (Adesso == Versione)
        return;
    Versione = Adesso;
    Voci.clear();
    Voci.reserve(size_t(Attese));
    Testi.clear();
    Finiti = false;
    Buoni = true;
}

bool TestiColonna::Prendi(qint64 Chiave, Cella Che, QByteArrayView Utf8)
{
    const qsizetype Inizio = Testi.size();
    if (Che == Cella::Testo)
        AccodaSenzaMaiuscole(Testi, Utf8);
    Buoni = Che != Cella::Altro && Testi.size() <= MassimoByte;
    if (!Buoni)
        return true;
    const qint32 Lunga = Che == Cella::Testo ? qint32(Testi.size() - Inizio) : -1;
    // Made here, in registers: put together on the stack before the text is written it takes twice as long.
    Voci.push_back({Chiave, quint32(Inizio), Lunga});
    return Cercata && Lunga >= 0 && Chiave >= CercataDa &&
           Cercata->Vale(QByteArrayView(Testi.constData() + Inizio, qsizetype(Lunga)));
}

void TestiColonna::Leggi(const DomandaTesto* Domanda, qint64 DaChiave)
{
    if (Finiti)
        return;
    Cercata = Domanda;
    CercataDa = DaChiave;
    // By the table, in the order of its keys: an index on the column would hand the rows out in its own.
    const QString Sql = u"SELECT 1 FROM %1 NOT INDEXED WHERE %2raccogli(?, %3, %4) ORDER BY %3"_s.arg(
        Da.Tabella, Voci.empty() ? QString() : u"%1>? AND "_s.arg(Da.Chiave), Da.Chiave, Da.NomiSql[Colonna]);
    Istruzione Righe(*Da.Conn, Sql, QVariantList(Voci.empty() ? 1 : 2));
    if (!Voci.empty())
        Righe.Lega(1, Voci.back().Chiave);
    Righe.Lega(Voci.empty() ? 1 : 2, *this);
    Finiti = !Righe.Avanza();
    if (!Buoni) {
        Testi = {};  // nothing of it will be asked for
        Voci = {};
    }
}

qsizetype TestiColonna::PostoDa(qint64 Chiave) const
{
    return std::ranges::lower_bound(Voci, Chiave, {}, &Voce::Chiave) - Voci.begin();
}

bool TestiColonna::Vale(const DomandaTesto& Domanda, const Voce& Qui) const
{
    return Qui.Lunga >= 0 &&
           Domanda.Vale(QByteArrayView(Testi.constData() + Qui.Inizio, qsizetype(Qui.Lunga)));
}

qsizetype TestiColonna::Avanti(const DomandaTesto& Domanda, qint64 DaChiave)
{
    const qsizetype Lette = Righe();
    for (qsizetype Posto = PostoDa(DaChiave); Posto < Lette; ++Posto)
        if (Vale(Domanda, Voci[size_t(Posto)]))
            return Posto;
    if (Finiti)
        return -1;
    Leggi(&Domanda, DaChiave);
    return Finiti || !Buoni ? -1 : Righe() - 1;  // the walk has stopped at the row
}

qsizetype TestiColonna::Oltre(const DomandaTesto& Domanda, qsizetype Posto)
{
    constexpr qint64 Ultima = std::numeric_limits<qint64>::max();
    return Chiave(Posto) == Ultima ? -1 : Avanti(Domanda, Chiave(Posto) + 1);
}

qsizetype TestiColonna::Indietro(const DomandaTesto& Domanda, qint64 DaChiave)
{
    Leggi(nullptr);
    const qsizetype Posto = PostoDa(DaChiave);
    const bool Compresa = Posto < Righe() && Chiave(Posto) == DaChiave;
    return PrimaDi(Domanda, Compresa ? Posto + 1 : Posto);
}

qsizetype TestiColonna::PrimaDi(const DomandaTesto& Domanda, qsizetype Posto) const
{
    while (--Posto >= 0)
        if (Vale(Domanda, Voci[size_t(Posto)]))
            return Posto;
    return -1;
}
