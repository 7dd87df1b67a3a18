#include "core/modInvii.h"

#include "platform/base/errore.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/fileaccanto.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

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

/// What stands beside a document: its name, and how its file stood when it was complete.
constexpr auto NomeSegno = ".inviato"_L1;
constexpr qint64 MassimoSegno = 4096;

QByteArray Stato(const QString& File)
{
    const QFileInfo Ora(File);
    return QByteArray::number(Ora.size()) + ' ' + QByteArray::number(Ora.lastModified().toMSecsSinceEpoch());
}

/// Nothing of the user's stands there: he may have been sent to that folder to work. What a file manager
/// hides in every folder that it shows is not his.
bool NientAltro(const QString& Cartella, const QString& Nome)
{
    return std::ranges::all_of(NomiDentro(Cartella), [&Nome](const QString& Voce) {
        return Voce == Nome || Voce == NomeSegno || Voce == u".directory";
    });
}

/// A mark that has the name alone is that of a program which ended before the document was complete.
void Svuota(const QString& Cartella)
{
    // A program that was killed has left it empty, or with half a file in it.
    TogliRestiAccanto(Cartella);
    ScartaCartella(Cartella);
    if (!EsisteCartella(Cartella))
        return;
    const QList<QByteArray> Segno = LeggiFile(Cartella + NomeSegno, MassimoSegno).split('\n');
    const QString Nome = QString::fromUtf8(Segno.first());
    const QString File = Cartella + Nome;
    const bool Nostro = Segno.size() < 2 || !EsisteFile(File) || Segno[1] == Stato(File);
    if (Nome.isEmpty() || NomeFile(File) != Nome || !Nostro || !NientAltro(Cartella, Nome))
        return;
    ScartaFile(File);
    ScartaFile(Cartella + u".directory"_s);
    ScartaFile(Cartella + NomeSegno);
    ScartaCartella(Cartella);
}

QString NuovaCartellaInvio()
{
    CreaCartellaPrivata(CartellaDati());
    CreaCartellaPrivata(CartellaInvii());
    const QString Quando = Adesso().toString(u"yyyyMMdd-HHmmss"_s);
    // Two sent in one second, or by two programs, stand apart.
    for (int Numero = 1;; ++Numero)
        if (const QString Cartella = CartellaInvii() + Quando + u'-' + QString::number(Numero);
            CreaCartellaNuova(Cartella))
            return Barra(Cartella);
}

}  // namespace

QString ScriviInvio(const QString& Nome, const std::function<void(const QString& File)>& Scrivi)
{
    const QString Cartella = NuovaCartellaInvio();
    ScriviFile(Cartella + NomeSegno, Nome.toUtf8(), Lettori::SoloUtente);
    Scrivi(Cartella + Nome);
    ScriviFile(Cartella + NomeSegno, Nome.toUtf8() + '\n' + Stato(Cartella + Nome), Lettori::SoloUtente);
    return Cartella + Nome;
}

void SpazzaInvii()
{
    const QFileInfo Radice(CartellaInvii().chopped(1));
    if (!Radice.isDir() || Radice.isSymLink())
        return;
    constexpr qint64 MsOra = qint64(3600) * 1000;
    const qint64 Limite = Adesso().toMSecsSinceEpoch() - OreInvio * MsOra;
    try {
        ScorriCartella(CartellaInvii(), [Limite](VoceCartella&& Voce) {
            const bool Vecchia = Voce.Cartella && !Voce.Collegamento && Voce.Modificata <= Limite;
            try {
                if (Vecchia && NomeNostro(Voce.Nome))
                    Svuota(CartellaInvii() + Barra(Voce.Nome));
            } catch (const Errore&) {
                // Without its mark a folder is nobody's to empty.
            }
            return true;
        });
    } catch (const Errore&) {
        // A folder that cannot be read keeps what it holds; nobody waits for this.
    }
}
