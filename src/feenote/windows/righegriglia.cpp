#include "feenote/windows/righegriglia.h"

#include "core/modErrori.h"
#include "feenote/file/colonne.h"
#include "feenote/modQuantita.h"
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
bool ConvalidaNumero(const QString& Testo)
{
    if (Testo.trimmed().isEmpty() || IsNumeric(Testo))
        return true;
    MsgErrore(u"Immettere un valore numerico!"_s);
    return false;
}

bool ConvalidaImporto(int, const QString& Testo)
{
    if (!ConvalidaNumero(Testo))
        return false;
    if (!Testo.trimmed().isEmpty() && Oltre(Testo, MassimoImporto)) {
        MsgErrore(u"L'importo è troppo grande: al massimo 999.999.999.999,99!"_s);
        return false;
    }
    return true;
}

bool ConvalidaQuantita(int, const QString& Testo)
{
    if (!ConvalidaNumero(Testo))
        return false;
    if (!Testo.trimmed().isEmpty() && Oltre(Testo, MassimaQuantita)) {
        MsgErrore(u"La quantità è troppo grande: al massimo 999.999.999!"_s);
        return false;
    }
    return true;
}

bool ConvalidaData(int, const QString& Testo)
{
    if (DataDiRiga(Testo))
        return true;
    MsgErrore(u"La data inserita non è valida!\nFormato valido: gg/mm/aaaa"_s);
    return false;
}

QVariant ValoreImporto(const QString& Testo)
{
    return IsNumeric(Testo) ? QVariant(Arrotonda2(CDbl(Testo))) : QVariant(Testo);
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
    Colonna.Convalida = ConvalidaData;
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
    Colonna.Convalida = ConvalidaQuantita;
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
    Colonna.Convalida = ConvalidaImporto;
    Colonna.Valore = ValoreImporto;
    Colonna.Massimo = LunghezzaCifre;
    Colonna.Mostra = Importo;
    return Colonna;
}

bool DataDiRiga(const QString& Testo)
{
    return Testo.trimmed().isEmpty() || (IsDate(Testo) && Val(Testo.mid(3, 2)) <= 12);
}
