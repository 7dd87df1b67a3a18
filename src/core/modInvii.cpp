#include "core/modInvii.h"

#include "platform/base/errore.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"

#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QString CartellaInvii()
{
    return CartellaDati() + Barra(u"invii"_s);
}

/// A folder that NuovaCartellaInvio has made.
bool NomeNostro(const QString& Nome)
{
    static const QRegularExpression Forma(u"\\A\\d{8}-\\d{6}-\\d+\\z"_s);
    return Forma.match(Nome).hasMatch();
}

/// Where the user has put something beside the document, everything stays: he was sent there to work.
void Svuota(const QString& Cartella)
{
    QStringList Nomi = NomiDeiFile(Cartella);
    Nomi.removeIf([](const QString& Nome) { return Nome.startsWith(u'.'); });  // of the file manager
    if (Nomi.size() == 1 && Nomi.first().endsWith(".pdf"_L1, Qt::CaseInsensitive))
        ScartaFile(Cartella + Nomi.first());
    ScartaCartella(Cartella);
}

}  // namespace

QString NuovaCartellaInvio()
{
    CreaCartellaPrivata(CartellaInvii());
    const QString Quando = Adesso().toString(u"yyyyMMdd-HHmmss"_s);
    // Two sent in one second, or by two programs, stand apart.
    for (int Numero = 1;; ++Numero)
        if (const QString Cartella = CartellaInvii() + Quando + u'-' + QString::number(Numero);
            CreaCartellaNuova(Cartella))
            return Barra(Cartella);
}

void SpazzaInvii()
{
    const QFileInfo Radice(CartellaInvii().chopped(1));
    if (!Radice.isDir() || Radice.isSymLink())
        return;
    constexpr qint64 MsOra = 3600 * 1000;
    const qint64 Limite = Adesso().toMSecsSinceEpoch() - OreInvio * MsOra;
    try {
        ScorriCartella(CartellaInvii(), [Limite](VoceCartella&& Voce) {
            if (Voce.Cartella && !Voce.Collegamento && Voce.Modificata <= Limite && NomeNostro(Voce.Nome))
                Svuota(CartellaInvii() + Barra(Voce.Nome));
            return true;
        });
    } catch (const Errore&) {
        // A folder that cannot be read keeps what it holds; nobody waits for this.
    }
    ScartaCartella(CartellaInvii());
}
