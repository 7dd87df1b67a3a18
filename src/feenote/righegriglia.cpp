#include "feenote/righegriglia.h"

#include "core/modErrori.h"
#include "feenote/modDocumento.h"
#include "platform/regionale.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView FiltroData = u"d";
constexpr QStringView FiltroIntero = u"n";
constexpr QStringView FiltroImporto = u",";

QString Importo(const QVariant& Valore, int)
{
    return Valore.isValid() ? Format(NumeroDi(Valore), u"#,##0.00;-#,##0.00;0") : QString();
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
    Colonna.Massimo = 10;
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
    Colonna.Massimo = 9;
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
    Colonna.Massimo = 18;
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
    if (Numerica && !Testo.trimmed().isEmpty() && !IsNumeric(Testo)) {
        MsgErrore(u"Immettere un valore numerico!"_s);
        return false;
    }
    return true;
}
