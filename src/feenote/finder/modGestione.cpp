#include "feenote/finder/modGestione.h"

#include "core/modErrori.h"
#include "core/modTesti.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/file/modSalvataggio.h"
#include "feenote/file/nomenota.h"
#include "platform/base/errore.h"
#include "platform/database/giornale.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

bool Consenso(const QString& Domanda)
{
    return MsgBox(Domanda, vbYesNo + vbQuestion, TitoloDomanda.toString()) == vbYes;
}

void Informa(const QString& Testo)
{
    MsgBox(Testo, vbInformation, TitoloMessaggio.toString());
}

/// The two questions before anything is done to a note.
bool Concesso(const QString& File)
{
    if (!EsisteFile(File))
        throw Errore(errori::FileMancante);
    if (SolaLettura(File) && !Consenso(u"La parcella è un modello: procedo con l'operazione?"_s))
        return false;
    return ControllaPsw(File);
}

/// A template goes with its attribute where the system lets it: a program that is killed must not leave one
/// that anybody writes over. Other systems want the attribute taken away first. Of a link the note that it
/// leads to stays as it is.
void TogliFile(const QString& File)
{
    try {
        EliminaFile(File);
        return;
    } catch (const Errore& Guasto) {
        if (QFileInfo(File).isSymLink() || Guasto.Numero != errori::Accesso)
            throw;
    }
    const AttributoSospeso Attributo(File, [](const Errore& Guasto) { GestioneErrori(Guasto); });
    EliminaFile(File);
}

/// A name that a note may have, and that leads into no other folder.
bool NomeBuono(const QString& Nome)
{
    return NomeDiNotaValido(Nome) && NomeValido(Nome) && !Nome.contains(QChar(0));
}

/// The path that a typed name means; empty when it was refused, as the user has been told.
QString PercorsoNuovo(const QString& File, const QString& Digitato)
{
    const QString Nome = SenzaEstensione(Digitato);  // separators in it stay, to be refused
    if (!NomeBuono(Nome)) {
        MsgErrore(FraseNomeNonValido.toString());
        return {};
    }
    const QString Intero = Nome + EstensioneNota.toString();
    if (ByteDelNome(Intero) > MassimoNomeNota)
        throw Errore(errori::NomeNonValido);
    QString Nuovo = CartellaFile(File) + Intero;
    // On disks that know no case the same file answers to the new name too.
    if (NomePreso(Nuovo) && !StessaVoce(File, Nuovo)) {
        MsgErrore(u"La parcella "_s + Intero + u" non può essere sovrascritta!"_s);
        return {};
    }
    return Nuovo;
}

}  // namespace

bool CancellaNota(const QString& Percorso, const std::function<void()>& Tolta)
{
    const QString File = PercorsoNativo(Percorso);
    const bool Collegamento = QFileInfo(File).isSymLink();
    const QString Cosa = Collegamento ? u"del collegamento alla parcella: '"_s : u"della parcella: '"_s;
    if (!Concesso(File) || !Consenso(u"Confermi la cancellazione "_s + Cosa + NomeMostrato(File) + u"'?"_s))
        return false;
    TogliFile(File);
    Tolta();
    Informa(Collegamento ? u"Il collegamento è stato eliminato: la parcella resta dov'è!"_s
                         : u"La parcella è stata eliminata!"_s);
    return true;
}

bool RinominaNota(const QString& Percorso, const std::function<void(const QString& Nuovo)>& Rinominata)
{
    const QString File = PercorsoNativo(Percorso);
    if (!Concesso(File))
        return false;
    const QString Presente = NomeMostrato(File);
    const QString Digitato =
        InputBox(u"Immettere il nuovo nome da assegnare alla parcella:"_s, u"Rinomina parcella"_s, Presente)
            .trimmed();
    if (Digitato.isEmpty() || SenzaEstensione(Digitato) == Presente)
        return false;
    const QString Nuovo = PercorsoNuovo(File, Digitato);
    if (Nuovo.isEmpty())
        return false;
    // Nothing of a note that had the name, and was taken away without its journal, comes into this one. On
    // disks that know no case the journal may be this note's own; of a link none is looked for beside its
    // name.
    QString Scostato;
    if (!NomePreso(Nuovo) && !QFileInfo(File).isSymLink())
        Scostato = ScostaGiornale(Nuovo);
    // A template keeps its attribute by itself: it belongs to the file, not to its name.
    try {
        RinominaFile(File, Nuovo);
    } catch (const Errore&) {
        // The former note that comes back finds its journal; whatever else has the name by now does not.
        if (!QFileInfo::exists(Nuovo))
            RimettiGiornale(Nuovo, Scostato);
        throw;
    }
    Rinominata(Nuovo);
    Informa(u"La parcella è stata rinominata!"_s);
    if (!Scostato.isEmpty())
        Informa(FraseScostato(Nuovo, Scostato));
    return true;
}
