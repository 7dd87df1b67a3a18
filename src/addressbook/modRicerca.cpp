#include "addressbook/modRicerca.h"

#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/base/segni.h"
#include "platform/database/valori.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

bool ConTestoODate(TipoCampo Tipo)
{
    return Tipo == TipoCampo::Testo || Tipo == TipoCampo::Data;
}

/// The numeric types that take digits alone; 19 is a decimal number of other engines.
bool PrendeSoloCifre(TipoCampo Tipo)
{
    constexpr int Decimale = 19;
    return Tipo == TipoCampo::Byte || Tipo == TipoCampo::Intero || Tipo == TipoCampo::Lungo ||
           int(Tipo) == Decimale;
}

bool ParolaSemplice(const QString& Nome)
{
    const auto Lettera = [](QChar C) { return C.isLetterOrNumber() || C == u'_'; };
    const bool Cifre = std::ranges::all_of(Nome, [](QChar C) { return C.isDigit(); });
    return !Cifre && std::ranges::all_of(Nome, Lettera) && Nome.compare(u"NOT", Qt::CaseInsensitive) != 0;
}

QString TraVirgolette(QString Testo)
{
    return u'"' + Testo.replace(u'"', u"\"\""_s) + u'"';
}

/// "Sì" and "No" as the engine spells them, a number with its decimal point; any other text as it stands.
QString ValoreAltro(TipoCampo Tipo, const QString& Testo)
{
    const QString Scritto = Testo.trimmed();
    const auto E = [&Scritto](QStringView Parola) {
        return Scritto.compare(Parola, Qt::CaseInsensitive) == 0;
    };
    if (Tipo == TipoCampo::Booleano) {
        if (E(u"Sì") || E(u"Si") || E(u"Vero"))
            return u"True"_s;
        return E(u"No") || E(u"Falso") ? u"False"_s : Testo;
    }
    if (Tipo == TipoCampo::Memo || !IsNumeric(Scritto))
        return Testo;
    // Digits in full: the engine's dialect has no powers of ten.
    return QString::number(NumeroDi(Scritto), 'f', QLocale::FloatingPointShortest);
}

QString ValoreDi(const Campo& Colonna, int Operatore, const QString& Testo)
{
    if (SenzaValore(Operatore))
        return Colonna.Type == TipoCampo::Testo  ? u"\"\""_s
               : Colonna.Type == TipoCampo::Data ? u"Null"_s
                                                 : u"0"_s;
    if (Colonna.Type == TipoCampo::Data)
        return u"DateValue('"_s + Testo + u"')"_s;
    if (Colonna.Type != TipoCampo::Testo)
        return ValoreAltro(Colonna.Type, Testo);
    const bool StellaPrima = Operatore == TerminaPer || Operatore == Contiene || Operatore == NonContiene;
    const bool StellaDopo = Operatore == IniziaPer || Operatore == Contiene || Operatore == NonContiene;
    return TraVirgolette((StellaPrima ? u"*"_s : QString()) + Testo + (StellaDopo ? u"*"_s : QString()));
}

/// The current row's place; none after a deletion, or where there is no row.
std::optional<QVariant> SegnoCorrente(const Recordset& Righe)
{
    try {
        return Righe.Bookmark();
    } catch (const Errore&) {
        return std::nullopt;
    }
}

}  // namespace

int OperatoriDi(TipoCampo Tipo)
{
    return ConTestoODate(Tipo) ? OperatoriRicerca : CampoNonVuoto + 1;
}

int LunghezzaRicerca(const Campo& Colonna)
{
    constexpr int Ampia = 32767;
    constexpr int Giorno = 10;
    constexpr int Numero = 9;
    if (Colonna.Type == TipoCampo::Testo)
        return Colonna.Size > 0 ? Colonna.Size : Ampia;
    return Colonna.Type == TipoCampo::Data ? Giorno : Numero;
}

bool TastoRicerca(TipoCampo Tipo, QChar Carattere)
{
    const bool Cifra = ECifra(Carattere);
    if (Tipo == TipoCampo::Data)
        return Cifra || Carattere == u'/';
    return Cifra || !PrendeSoloCifre(Tipo);
}

bool SenzaValore(int Operatore)
{
    return Operatore == CampoVuoto || Operatore == CampoNonVuoto;
}

QString CriterioRicerca(const Campo& Colonna, int Operatore, const QString& Testo)
{
    const QString Nome = ParolaSemplice(Colonna.Name) ? Colonna.Name : u'[' + Colonna.Name + u']';
    const QStringView Segno = TabellaOperatori.at(size_t(OperatoriRicerca) + size_t(Operatore));
    return Nome + u' ' + Segno.toString() + u' ' + ValoreDi(Colonna, Operatore, Testo);
}

bool CercaRiga(Recordset& Righe, const QString& Criterio, PassoRicerca Passo)
{
    const auto Prima = SegnoCorrente(Righe);
    if (Passo == PassoRicerca::Primo || (Passo == PassoRicerca::Successivo && !Prima))
        Righe.FindFirst(Criterio);
    else if (Passo == PassoRicerca::Successivo)
        Righe.FindNext(Criterio);
    else if (Prima)
        Righe.FindPrevious(Criterio);
    else
        Righe.FindLast(Criterio);
    if (!Righe.NoMatch())
        return true;
    if (Prima)
        Righe.ImpostaBookmark(*Prima);
    return false;
}
