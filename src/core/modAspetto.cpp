#include "core/modAspetto.h"

#include "core/CIni.h"
#include "core/inidanneggiato.h"
#include "core/modIcone.h"
#include "core/sessione.h"
#include "platform/base/ordineitaliano.h"
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

/// Where pictures stand, what the office has put into its user folder before what the program came with.
QStringList Luoghi(const QString& Sotto)
{
    QStringList Cartelle;
    for (const QString& Sopra : {sessione::UserFolder, sessione::PercorsoProg})
        if (!Sopra.isEmpty())
            Cartelle << Barra(Sopra) + Barra(Sotto);
    return Cartelle;
}

/// A file by its name in the first of those folders that has it; empty when none has.
QString FileIn(const QString& Sotto, const QString& Nome)
{
    if (Nome.isEmpty())
        return {};
    for (const QString& Cartella : Luoghi(Sotto))
        if (const QString File = TrovaFile(Cartella + Nome); EsisteFile(File))
            return File;
    return {};
}

struct FileModelli
{
    QString File;
    Lettura Esito = Lettura::Assente;
};

/// The first file of templates that can be read. One that cannot, or a folder of its name, is told and hides
/// no other.
FileModelli TrovaModelli()
{
    FileModelli Trovato;
    for (const QString& Cartella : Luoghi(u"sfondi"_s)) {
        Trovato.File = TrovaFile(Cartella + u"templates.ini"_s);
        Trovato.Esito = EsaminaIni(Trovato.File, u"modello1");
        if (Trovato.Esito != Lettura::Assente && Trovato.Esito != Lettura::Illeggibile)
            break;
    }
    return Trovato;
}

/// Names of files with an ending in all of those folders, each once, in the order of a reader.
QStringList NomiIn(const QString& Sotto, const QString& Estensione)
{
    QStringList Nomi;
    for (const QString& Cartella : Luoghi(Sotto))
        for (const QString& Nome : FileDi(Cartella, Estensione))
            if (!Nomi.contains(Nome, Qt::CaseInsensitive))
                Nomi << Nome;
    OrdinaItaliano(Nomi, [](const QString& Nome) { return Nome; });
    return Nomi;
}

const QString Sfondi = u"sfondi"_s;
const QString Icone = u"icone"_s;

}  // namespace

QString FileSfondo()
{
    return FileSfondo(sessione::SfondoDesktop);
}

QString FileSfondo(const QString& Nome)
{
    return FileIn(Sfondi, Nome);
}

QStringList LeggiSfondi()
{
    return NomiIn(Sfondi, EstensioneSfondo);
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
    const auto [Percorso, Esito] = TrovaModelli();
    CIni File;
    File.ImpostaFileName(Percorso);
    QList<ModelloAspetto> Modelli;
    if (Esito == Lettura::Assente || Esito == Lettura::Illeggibile)
        return Modelli;
    bool Incompleto = false;
    for (int n = 1;; ++n) {
        File.ImpostaApplicationKey(u"modello"_s + QString::number(n));
        ModelloAspetto Letto;
        Letto.Nome = File.GetValue(u"Nome"_s);
        if (Letto.Nome.isEmpty())
            break;
        const std::array<QString, ColoriDesktop> Chiavi{u"SfCol"_s, u"EtCol"_s, u"EtBor"_s, u"EtSel"_s};
        for (size_t i = 0; i < Chiavi.size(); ++i)
            Letto.Colori[i] = LeggiColore(File.GetValue(Chiavi[i]));
        Letto.Immagine = File.GetValue(u"SfImg"_s);
        Incompleto = Letto.Immagine.isEmpty() ||
                     std::ranges::any_of(Letto.Colori, [](const auto& Colore) { return !Colore; });
        Modelli << Letto;
    }
    if (Esito == Lettura::Guasta || (Esito == Lettura::Troncata && Incompleto))
        DiDelFile(
            File.FileName(),
            u"Il file \"%1\" è danneggiato o incompleto: i modelli di colori che vi mancano non si possono "
            "scegliere. Rimetterlo da una copia, o reinstallare il programma."_s.arg(File.FileName()));
    return Modelli;
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
    for (const QString& Nome : NomiIn(Icone, EstensioneFigura))
        if (const QString Corto = Nome.chopped(EstensioneFigura.size()); Conservabile(Corto))
            Nomi << Corto;
    return Nomi;
}

QString FileFigura(const QString& Nome)
{
    return FileIn(Icone, NomeFile(Nome));
}
