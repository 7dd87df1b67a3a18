#include "core/modAspetto.h"

#include "core/CIni.h"
#include "core/modIcone.h"
#include "core/sessione.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString EstensioneSfondo = u".jpg"_s;
const QString EstensioneFigura = u".gif"_s;

/// Names of files with an ending, in any case, of a folder; hidden ones are none.
QStringList FileDi(const QString& Cartella, const QString& Estensione)
{
    QStringList Trovati = NomiDeiFile(Cartella, Estensione);
    Trovati.removeIf([](const QString& Nome) { return Nome.startsWith(u'.'); });
    return Trovati;
}

QString CartellaIcone(const QString& Sopra)
{
    return Sopra.isEmpty() ? QString() : Barra(Sopra) + Barra(u"icone"_s);
}

}  // namespace

QString CartellaSfondi()
{
    return sessione::PercorsoProg + Barra(u"sfondi"_s);
}

QString FileSfondo()
{
    const QString File = TrovaFile(CartellaSfondi() + sessione::SfondoDesktop);
    return !sessione::SfondoDesktop.isEmpty() && EsisteFile(File) ? File : QString();
}

QStringList LeggiSfondi()
{
    return FileDi(CartellaSfondi(), EstensioneSfondo);
}

QString TrovaSfondo(const QStringList& Sfondi, const QString& Nome)
{
    const auto Trovato = std::ranges::find_if(Sfondi, [&](const QString& Presente) {
        return Presente.compare(Nome, Qt::CaseInsensitive) == 0 ||
               Presente.compare(Nome + EstensioneSfondo, Qt::CaseInsensitive) == 0;
    });
    return Trovato == Sfondi.end() ? QString() : *Trovato;
}

QList<ModelloAspetto> LeggiModelli()
{
    CIni File;
    File.ImpostaFileName(TrovaFile(CartellaSfondi() + u"templates.ini"_s));
    QList<ModelloAspetto> Modelli;
    if (!EsisteFile(File.FileName()))
        return Modelli;
    for (int n = 1;; ++n) {
        File.ImpostaApplicationKey(u"modello"_s + QString::number(n));
        ModelloAspetto Letto;
        Letto.Nome = File.GetValue(u"Nome"_s);
        if (Letto.Nome.isEmpty())
            return Modelli;
        const std::array<QString, ColoriDesktop> Chiavi{u"SfCol"_s, u"EtCol"_s, u"EtBor"_s, u"EtSel"_s};
        for (size_t i = 0; i < Chiavi.size(); ++i)
            Letto.Colori[i] = LeggiColore(File.GetValue(Chiavi[i]));
        Letto.Immagine = File.GetValue(u"SfImg"_s);
        Modelli << Letto;
    }
}

std::optional<int> LeggiColore(const QString& Testo)
{
    constexpr int Bianco = 0xFFFFFF;
    bool Letto = false;
    const int Colore = Testo.trimmed().toInt(&Letto);
    return Letto && Colore >= 0 && Colore <= Bianco ? std::optional(Colore) : std::nullopt;
}

QStringList LeggiFigure()
{
    QStringList Nomi;
    for (const QString& Sopra : {sessione::PercorsoProg, sessione::UserFolder})
        for (const QString& Nome : FileDi(CartellaIcone(Sopra), EstensioneFigura))
            if (const QString Corto = Nome.chopped(EstensioneFigura.size());
                Conservabile(Corto) && !Nomi.contains(Corto, Qt::CaseInsensitive))
                Nomi << Corto;
    return Nomi;
}

QString FileFigura(const QString& Nome)
{
    for (const QString& Sopra : {sessione::PercorsoProg, sessione::UserFolder})
        if (const QString File = TrovaFile(CartellaIcone(Sopra) + NomeFile(Nome));
            !Sopra.isEmpty() && EsisteFile(File))
            return File;
    return {};
}
