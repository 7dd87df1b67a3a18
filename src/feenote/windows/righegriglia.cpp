#include "feenote/windows/righegriglia.h"

#include "core/modErrori.h"
#include "feenote/file/colonne.h"
#include "feenote/modOnorari.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView FiltroData = u"d";
constexpr QStringView FiltroIntero = u"n";
constexpr QStringView FiltroImporto = u",";

/// The largest amount of a cell: fourteen digits with its cents, which sums, file and prints tell exactly.
constexpr double MassimoImporto = 999'999'999'999.99;

/// Characters that a cell of dates or numbers takes: far more than one has, so that what is pasted is refused
/// rather than cut to something else. A number that fills the cell may have been cut.
constexpr int LunghezzaCifre = 40;

QString Importo(const QVariant& Valore, int)
{
    return Valore.isValid() ? TestoImporto(NumeroDi(Valore)) : QString();
}

/// True for the text of a number that lies beyond the limit, or beyond what can be read at all.
bool Oltre(const QString& Testo, double Limite)
{
    if (Testo.size() >= LunghezzaCifre)
        return true;
    try {
        return std::abs(Arrotonda2(CDbl(Testo))) > Limite;
    } catch (const Errore&) {
        return true;
    }
}

/// An empty cell passes, and counts as none.
bool ConvalidaNumero(const ColonnaGriglia& Colonna, const QString& Testo)
{
    if (Testo.trimmed().isEmpty())
        return true;
    if (!IsNumeric(Testo)) {
        MsgErrore(u"Immettere un valore numerico!"_s);
        return false;
    }
    if (Colonna.Filtro == FiltroImporto && Oltre(Testo, MassimoImporto)) {
        MsgErrore(u"L'importo è troppo grande: al massimo 999.999.999.999,99!"_s);
        return false;
    }
    if (Colonna.Filtro == FiltroIntero && Oltre(Testo, MassimaQuantita)) {
        MsgErrore(u"La quantità è troppo grande: al massimo 999.999.999!"_s);
        return false;
    }
    return true;
}

}  // namespace

ColonnaGriglia ColonnaData(int Campo)
{
    ColonnaGriglia Colonna;
    Colonna.Titolo = u"Data"_s;
    Colonna.Campo = Campo;
    Colonna.Caratteri = 10;
    Colonna.Modificabile = true;
    Colonna.Filtro = FiltroData.toString();
    Colonna.Massimo = LunghezzaCifre;
    return Colonna;
}

ColonnaGriglia ColonnaDescrizione(int Campo)
{
    ColonnaGriglia Colonna;
    Colonna.Titolo = u"Descrizione"_s;
    Colonna.Campo = Campo;
    Colonna.Caratteri = 18;
    Colonna.Modificabile = true;
    Colonna.Stira = true;
    Colonna.Massimo = MassimoDescr;
    return Colonna;
}

ColonnaGriglia ColonnaQuantita(int Campo)
{
    ColonnaGriglia Colonna;
    Colonna.Titolo = u"Q.tà"_s;
    Colonna.Campo = Campo;
    Colonna.Caratteri = 6;
    Colonna.Allinea = Qt::AlignRight;
    Colonna.Modificabile = true;
    Colonna.Filtro = FiltroIntero.toString();
    Colonna.Massimo = LunghezzaCifre;
    return Colonna;
}

ColonnaGriglia ColonnaImporto(const QString& Titolo, int Campo, bool Modificabile)
{
    ColonnaGriglia Colonna;
    Colonna.Titolo = Titolo;
    Colonna.Campo = Campo;
    Colonna.Caratteri = 12;
    Colonna.Allinea = Qt::AlignRight;
    Colonna.Modificabile = Modificabile;
    Colonna.Filtro = FiltroImporto.toString();
    Colonna.Massimo = LunghezzaCifre;
    Colonna.Mostra = Importo;
    return Colonna;
}

bool DataDiRiga(const QString& Testo)
{
    return Testo.trimmed().isEmpty() || (IsDate(Testo) && Val(Testo.mid(3, 2)) <= 12);
}

bool ConvalidaCella(const ColonnaGriglia& Colonna, const QString& Testo)
{
    if (Colonna.Filtro == FiltroData && !DataDiRiga(Testo)) {
        MsgErrore(u"La data inserita non è valida!\nFormato valido: gg/mm/aaaa"_s);
        return false;
    }
    const bool Numerica = Colonna.Filtro == FiltroImporto || Colonna.Filtro == FiltroIntero;
    return !Numerica || ConvalidaNumero(Colonna, Testo);
}

QVariant ValoreCella(const ColonnaGriglia& Colonna, const QString& Testo)
{
    if (Colonna.Filtro == FiltroImporto && IsNumeric(Testo))
        return Arrotonda2(CDbl(Testo));
    if (Colonna.Filtro == FiltroIntero && IsNumeric(Testo))
        return CDbl(Testo);
    return Testo;
}
