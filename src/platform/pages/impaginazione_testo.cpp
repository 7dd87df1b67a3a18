// The text of the pages: places, selections, search.
#include "platform/pages/impaginazione.h"

#include "platform/pages/impaginata.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

Selezione Ordinata(const Selezione& Scelta, qsizetype Fine)
{
    const auto [Da, A] = std::minmax(Scelta.Da, Scelta.A);
    return {std::clamp<qsizetype>(Da, 0, Fine), std::clamp<qsizetype>(A, 0, Fine)};
}

/// How far a value lies outside an interval.
double Distanza(double Valore, double Da, double A)
{
    return std::max({Da - Valore, Valore - A, 0.0});
}

// ---- words

enum class GenereLettera { Spazio, Parola, Segno };

/// A point or a comma between digits belongs to its number.
GenereLettera GenereLetteraDi(QStringView Testo, qsizetype Posto)
{
    const QChar C = Testo[Posto];
    if (C.isSpace())
        return GenereLettera::Spazio;
    if (C.isLetterOrNumber() || C.isMark() || C.isSurrogate())
        return GenereLettera::Parola;
    const bool Dentro =
        Posto > 0 && Posto + 1 < Testo.size() && Testo[Posto - 1].isDigit() && Testo[Posto + 1].isDigit();
    return Dentro && (C == u'.' || C == u',') ? GenereLettera::Parola : GenereLettera::Segno;
}

/// Marks that end a cell or a paragraph.
bool FineBlocco(QChar C)
{
    return C == u'\n' || C == u'\t';
}

// ---- search

/// The pattern that finds a text; without a word there is none.
std::optional<QRegularExpression> ModelloDi(const QString& Cercato)
{
    QStringList Parole;
    for (const QString& Parola : Cercato.simplified().split(u' ', Qt::SkipEmptyParts))
        Parole += QRegularExpression::escape(Parola);
    if (Parole.isEmpty())
        return std::nullopt;
    return QRegularExpression(Parole.join(u"\\s+"_s), QRegularExpression::CaseInsensitiveOption |
                                                          QRegularExpression::UseUnicodePropertiesOption);
}

Selezione Trovata(const QRegularExpressionMatch& Una)
{
    return {Una.capturedStart(), Una.capturedEnd()};
}

void TogliCoda(QString& Testo)
{
    while (Testo.endsWith(u' ') || Testo.endsWith(u'\t'))
        Testo.chop(1);
}

}  // namespace

// ---- lines and places -----------------------------------------------------------------------------

const VoceIndice* Impaginazione::Impaginata::RigaDi(qsizetype Posto) const
{
    if (Indice.empty())
        return nullptr;
    const auto Dopo = std::ranges::upper_bound(Indice, Posto, {}, &VoceIndice::Inizio);
    return Dopo == Indice.begin() ? &Indice.front() : &*std::prev(Dopo);
}

double Impaginazione::Impaginata::XDi(const PaginaPosata& Dove, std::size_t Riga, qsizetype Posto) const
{
    const RigaPosata& Posata = Dove.Posate[Riga];
    if (Posata.Brano < 0)
        return Dove.Righe[Riga].Mm.left();
    const Brano& Suo = Steso.Brani[static_cast<std::size_t>(Posata.Brano)];
    const QTextLine Linea = Suo.Disposto->lineAt(Posata.Riga);
    const int Primo = Linea.textStart();
    const auto Dentro = std::clamp<qsizetype>(Posto - Suo.Inizio, Primo, Primo + Linea.textLength());
    return (Suo.X + Linea.cursorToX(static_cast<int>(Dentro))) / PuntiPerMm;
}

qsizetype Impaginazione::Impaginata::PostoNellaRiga(const PaginaPosata& Dove, std::size_t Quale,
                                                    double XMm) const
{
    const RigaPosata& Posata = Dove.Posate[Quale];
    if (Posata.Brano < 0)
        return Dove.Righe[Quale].Inizio;
    const Brano& Suo = Steso.Brani[static_cast<std::size_t>(Posata.Brano)];
    const QTextLine Linea = Suo.Disposto->lineAt(Posata.Riga);
    int Posto = Linea.xToCursor(XMm * PuntiPerMm - Suo.X);
    // The place where a line is broken is shown at the head of the next one: the end of this one is before
    // the blank that was broken at.
    const int Fine = Linea.textStart() + Linea.textLength();
    const bool Ultima = Posata.Riga + 1 == Suo.Disposto->lineCount();
    if (!Ultima && Posto >= Fine && Linea.textLength() > 0)
        Posto = Fine - 1;
    return Suo.Inizio + Posto;
}

bool Impaginazione::Impaginata::InTabella(qsizetype Posto) const
{
    const auto Dopo = std::ranges::upper_bound(Steso.Tabelle, Posto, {}, &Selezione::Da);
    return Dopo != Steso.Tabelle.begin() && Posto < std::prev(Dopo)->A;
}

const QString& Impaginazione::Testo() const
{
    return Dati->Steso.Testo;
}

const std::vector<RigaImpaginata>& Impaginazione::Righe(int Pagina) const
{
    static const std::vector<RigaImpaginata> Nessuna;
    const PaginaPosata* Sua = Dati->Pagina(Pagina);
    return Sua ? Sua->Righe : Nessuna;
}

Selezione Impaginazione::TestoDiPagina(int Pagina) const
{
    const std::vector<RigaImpaginata>& Sue = Righe(Pagina);
    if (Sue.empty())
        return {};
    const auto [Prima, Ultima] = std::ranges::minmax_element(Sue, {}, &RigaImpaginata::Inizio);
    return {Prima->Inizio, Ultima->Inizio + Ultima->Lunghezza};
}

int Impaginazione::PaginaDi(qsizetype Posto) const
{
    const VoceIndice* Riga = Dati->RigaDi(Posto);
    return Riga ? Riga->Pagina : 1;
}

qsizetype Impaginazione::PostoIn(int Pagina, QPointF Mm) const
{
    const PaginaPosata* Sua = Dati->Pagina(Pagina);
    if (!Sua || Sua->Fasce.empty())
        return 0;
    const auto Vicina = std::ranges::min_element(
        Sua->Fasce, {}, [&](const FasciaPagina& Una) { return Distanza(Mm.y(), Una.AltoMm, Una.BassoMm); });

    // Within a row of a table the cell under the point counts before the line: it may have fewer of them.
    std::size_t Scelta = Vicina->Prima;
    std::pair Minima(std::numeric_limits<double>::max(), 0.0);
    for (std::size_t i = Vicina->Prima; i < Vicina->Prima + Vicina->Quante; ++i) {
        const QRectF& Dove = Sua->Righe[i].Mm;
        const int Quale = Sua->Posate[i].Brano;
        double Da = Dove.left();
        double A = Dove.right();
        if (Quale >= 0) {
            const Brano& Suo = Dati->Steso.Brani[static_cast<std::size_t>(Quale)];
            Da = Suo.X / PuntiPerMm;
            A = (Suo.X + Suo.Larghezza) / PuntiPerMm;
        }
        const std::pair Lontana(Distanza(Mm.x(), Da, A), Distanza(Mm.y(), Dove.top(), Dove.bottom()));
        if (Lontana < Minima) {
            Minima = Lontana;
            Scelta = i;
        }
    }
    return Dati->PostoNellaRiga(*Sua, Scelta, Mm.x());
}

bool Impaginazione::SulTesto(int Pagina, QPointF Mm) const
{
    return std::ranges::any_of(Righe(Pagina), [&](const RigaImpaginata& Una) { return Una.Mm.contains(Mm); });
}

RettangoloPagina Impaginazione::Cursore(qsizetype Posto) const
{
    const VoceIndice* Voce = Dati->RigaDi(Posto);
    if (!Voce)
        return {1, QRectF(AreaTestoMm().topLeft(), QSizeF(0.0, 0.0))};
    const PaginaPosata& Sua = *Dati->Pagina(Voce->Pagina);
    const QRectF& Riga = Sua.Righe[Voce->Riga].Mm;
    return {Voce->Pagina, QRectF(Dati->XDi(Sua, Voce->Riga, Posto), Riga.top(), 0.0, Riga.height())};
}

// ---- selections -----------------------------------------------------------------------------------

QList<RettangoloPagina> Impaginazione::Rettangoli(const Selezione& Scelta) const
{
    constexpr double SegnoMm = 1.0;  // a blank row inside a selection is seen to belong to it
    const Selezione Vera = Ordinata(Scelta, Testo().size());
    QList<RettangoloPagina> Tutti;
    if (Vera.Vuota())
        return Tutti;
    const VoceIndice* Fine = Dati->Indice.data() + Dati->Indice.size();
    for (const VoceIndice* Voce = Dati->RigaDi(Vera.Da); Voce && Voce != Fine && Voce->Inizio < Vera.A;
         ++Voce) {
        const PaginaPosata& Sua = *Dati->Pagina(Voce->Pagina);
        const RigaImpaginata& Riga = Sua.Righe[Voce->Riga];
        const qsizetype Ultimo = Riga.Inizio + Riga.Lunghezza;
        if (Sua.Posate[Voce->Riga].Brano >= 0 && Vera.Da >= Ultimo)
            continue;
        const double Da = Dati->XDi(Sua, Voce->Riga, Vera.Da);
        const double A = Dati->XDi(Sua, Voce->Riga, std::min(Vera.A, Ultimo));
        const double Larga = Sua.Posate[Voce->Riga].Brano < 0 ? SegnoMm : A - Da;
        Tutti.append({Voce->Pagina, QRectF(Da, Riga.Mm.top(), Larga, Riga.Mm.height())});
    }
    return Tutti;
}

Selezione Impaginazione::ParolaIn(qsizetype Posto) const
{
    const QStringView Tutto = Testo();
    const Selezione Blocco = BloccoIn(Posto);
    if (Blocco.Vuota())
        return Blocco;
    // At the end of a cell the word before it is meant.
    const qsizetype Centro = std::clamp(Posto, Blocco.Da, Blocco.A - 1);
    const GenereLettera Suo = GenereLetteraDi(Tutto, Centro);
    Selezione Parola{Centro, Centro + 1};
    while (Parola.Da > Blocco.Da && GenereLetteraDi(Tutto, Parola.Da - 1) == Suo)
        --Parola.Da;
    while (Parola.A < Blocco.A && GenereLetteraDi(Tutto, Parola.A) == Suo)
        ++Parola.A;
    return Parola;
}

Selezione Impaginazione::BloccoIn(qsizetype Posto) const
{
    const QString& Tutto = Testo();
    Selezione Blocco;
    Blocco.Da = Blocco.A = std::clamp<qsizetype>(Posto, 0, Tutto.size());
    while (Blocco.Da > 0 && !FineBlocco(Tutto[Blocco.Da - 1]))
        --Blocco.Da;
    while (Blocco.A < Tutto.size() && !FineBlocco(Tutto[Blocco.A]))
        ++Blocco.A;
    return Blocco;
}

Selezione Impaginazione::Tutto() const
{
    return {0, Testo().size()};
}

QString Impaginazione::TestoDi(const Selezione& Scelta) const
{
    const Selezione Vera = Ordinata(Scelta, Testo().size());
    const QStringView Parte = QStringView(Testo()).sliced(Vera.Da, Vera.A - Vera.Da);
    const bool InUnaCella = std::none_of(Parte.begin(), Parte.end(), FineBlocco);
    QString Copia;
    Copia.reserve(Parte.size());
    for (qsizetype i = 0; i < Parte.size(); ++i) {
        QChar C = Parte[i];
        if (C == QChar::LineSeparator)
            C = InUnaCella || !Dati->InTabella(Vera.Da + i) ? u'\n' : u' ';
        if (C == u'\n')
            TogliCoda(Copia);
        Copia += C;
    }
    TogliCoda(Copia);
    return Copia;
}

// ---- search ---------------------------------------------------------------------------------------

QList<Selezione> Impaginazione::CercaTutte(const QString& Cercato) const
{
    QList<Selezione> Tutte;
    if (const auto Modello = ModelloDi(Cercato))
        for (auto Una = Modello->globalMatch(Testo()); Una.hasNext();)
            Tutte.append(Trovata(Una.next()));
    return Tutte;
}
