#include "core/modInvii.h"

#include "platform/base/errore.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"

using namespace Qt::StringLiterals;

namespace {

QString CartellaInvii()
{
    return CartellaDati() + Barra(u"invii"_s);
}

}  // namespace

QString NuovaCartellaInvio()
{
    CreaCartellaPrivata(CartellaInvii());
    const QString Quando = Adesso().toString(u"yyyyMMdd-HHmmss"_s);
    // Two sent in one second, or by two programs, stand apart.
    for (int Numero = 1;; ++Numero) {
        const QString Cartella = CartellaInvii() + Barra(Quando + u'-' + QString::number(Numero));
        if (EsisteCartella(Cartella))
            continue;
        CreaCartellaPrivata(Cartella);
        return Cartella;
    }
}

void SpazzaInvii()
{
    if (!EsisteCartella(CartellaInvii()))
        return;
    constexpr qint64 MsOra = 3600 * 1000;
    const qint64 Limite = Adesso().toMSecsSinceEpoch() - OreInvio * MsOra;
    try {
        ScorriCartella(CartellaInvii(), [Limite](VoceCartella&& Voce) {
            if (!Voce.Cartella || Voce.Collegamento || Voce.Modificata > Limite)
                return true;
            const QString Vecchia = CartellaInvii() + Barra(Voce.Nome);
            for (const QString& Nome : NomiDeiFile(Vecchia))
                ScartaFile(Vecchia + Nome);
            ScartaCartella(Vecchia);
            return true;
        });
    } catch (const Errore&) {
        // A folder that cannot be read keeps what it holds; nobody waits for this.
    }
    ScartaCartella(CartellaInvii());
}
