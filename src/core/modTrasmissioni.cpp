#include "core/modTrasmissioni.h"

#include "core/dannoricordato.h"
#include "core/impostazioni.h"
#include "core/parametri.h"
#include "platform/base/errore.h"
#include "platform/system/impostazioni.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int Caratteri = 5;
constexpr int Base = 36;

[[noreturn]] void AllaFine()
{
    throw Errore(errori::Imprevisto,
                 u"Il progressivo dei file è arrivato all'ultimo numero (%1): correggerlo nelle "
                 "impostazioni"_s.arg(UltimoProgTrasm));
}

[[noreturn]] void NonNumero()
{
    throw Errore(errori::Imprevisto, u"Il progressivo dei file non è un numero: correggerlo nelle "
                                     "impostazioni"_s);
}

/// The first number would be one that was used before the settings were lost.
void RifiutaPerso()
{
    if (ContatorePerso(chiavi::ProgTrasm))
        throw Errore(errori::Imprevisto,
                     u"Dopo il guasto delle impostazioni il numero dell'ultimo file XML non si conosce: "
                     "indicarlo nelle impostazioni e memorizzarle"_s);
}

}  // namespace

QString TestoProgTrasm(int Numero)
{
    return QString::number(Numero, Base).toUpper().rightJustified(Caratteri, u'0');
}

int ProssimaTrasmissione()
{
    RifiutaPerso();
    const QString Testo = ValoreConservato(chiavi::ProgTrasm).trimmed();
    bool Intero = false;
    const int Ultima = Testo.isEmpty() ? 0 : Testo.toInt(&Intero);
    if ((!Testo.isEmpty() && !Intero) || Ultima < 0)
        NonNumero();
    if (Ultima >= UltimoProgTrasm)
        AllaFine();
    return Ultima + 1;
}

int PrendiTrasmissione()
{
    RifiutaPerso();
    try {
        return PrendiNumero(NomeApplicazione.toString(), SezioneParametri.toString(),
                            chiavi::ProgTrasm.toString(), UltimoProgTrasm);
    } catch (const Errore& Guasto) {
        if (Guasto.Numero == errori::Eccedenza)
            AllaFine();
        if (Guasto.Numero == errori::Tipo)
            NonNumero();
        (void)FraseDelDannoRicordato();  // what is thrown tells of it
        throw;
    }
}
