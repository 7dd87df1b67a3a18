#include "feenote/modAppunti.h"

#include "core/modErrori.h"
#include "platform/system/messaggi.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

void Avverti(const QString& Testo)
{
    MsgBox(Testo, vbExclamation, TitoloErrore.toString());
}

bool Domanda(const QString& Testo)
{
    return MsgBox(Testo, vbYesNo + vbQuestion, TitoloDomanda.toString()) == vbYes;
}

bool QualcunaScelta(const QList<int>& Scelte)
{
    if (Scelte.isEmpty())
        Avverti(u"Evidenziare prima la prestazione cliccando sulla colonna di selezione!"_s);
    return !Scelte.isEmpty();
}

void Raccogli(AppuntiRighe& Copiate, const TabellaRighe& Tabella, const QList<int>& Scelte)
{
    SvuotaAppunti(Copiate);
    for (const int Riga : Scelte)
        CreaVoceAppo(Copiate, Tabella, Riga);
}

/// Inserts the clipboard at a row and empties it.
int Inserisci(AppuntiRighe& Copiate, TabellaRighe& Tabella, int Riga)
{
    const int Prima = std::min(Riga, Tabella.UpperBound(1) + 1);
    const TabellaRighe Voci = Copiate.Appunti;
    const int Colonne = std::min(Voci.Colonne(), Tabella.Colonne());
    Tabella.InserisciRighe(Prima, Voci.Righe());
    for (int Voce = 0; Voce < Voci.Righe(); ++Voce)
        for (int Colonna = 0; Colonna < Colonne; ++Colonna)
            Tabella(Prima + Voce, Colonna) = Voci(Voce, Colonna);
    SvuotaAppunti(Copiate);
    return Prima;
}

}  // namespace

void SvuotaAppunti(AppuntiRighe& Copiate)
{
    Copiate.Appunti.Azzera(OnoColonne);
    Copiate.DaTaglio = false;
}

void CreaVoceAppo(AppuntiRighe& Copiate, const TabellaRighe& Tabella, int Riga)
{
    const int Voce = Copiate.Appunti.AggiungiRiga();
    const int Colonne = std::min(Copiate.Appunti.Colonne(), Tabella.Colonne());
    for (int Colonna = 0; Colonna < Colonne; ++Colonna)
        Copiate.Appunti(Voce, Colonna) = Tabella(Riga, Colonna);
}

bool TagliaVoci(AppuntiRighe& Copiate, TabellaRighe& Tabella, const QList<int>& Scelte, bool Chiedi)
{
    if (!QualcunaScelta(Scelte) || (Chiedi && !ConfermaCancellazione(Scelte.size())))
        return false;
    Raccogli(Copiate, Tabella, Scelte);
    EliminaRighe(Tabella, Scelte);
    Copiate.RigaTagliata = *std::min_element(Scelte.cbegin(), Scelte.cend());
    Copiate.DaTaglio = true;
    return true;
}

bool CopiaVoci(AppuntiRighe& Copiate, const TabellaRighe& Tabella, const QList<int>& Scelte)
{
    if (!QualcunaScelta(Scelte))
        return false;
    Raccogli(Copiate, Tabella, Scelte);
    return true;
}

std::optional<int> IncollaVoci(AppuntiRighe& Copiate, TabellaRighe& Tabella, int Riga, int Posto)
{
    if (!Copiate.PuoIncollare()) {
        Avverti(Riga >= 0 ? u"Impossibile annullare!"_s : u"Non è presente alcuna voce da incollare!"_s);
        return std::nullopt;
    }
    return Inserisci(Copiate, Tabella, Riga >= 0 ? Riga : Posto);
}

std::optional<int> AnnullaTaglio(AppuntiRighe& Copiate, TabellaRighe& Tabella)
{
    // Lines that were only copied since are no cut: putting them "back" would double them.
    if (!Copiate.PuoAnnullare()) {
        Avverti(u"Impossibile annullare!"_s);
        return std::nullopt;
    }
    return IncollaVoci(Copiate, Tabella, Copiate.RigaTagliata, 0);
}

std::optional<int> SpostaVoci(AppuntiRighe& Copiate, TabellaRighe& Tabella, const QList<int>& Scelte,
                              int Destinazione)
{
    if (Scelte.isEmpty()) {
        MsgErrore(u"Selezionare la riga cliccando nella colonna di selezione!"_s);
        return std::nullopt;
    }
    const QString Quali = Scelte.size() == 1 ? u"della riga"_s : u"delle righe"_s;
    if (!Domanda(u"Confermi lo spostamento "_s + Quali + u"?"_s))
        return std::nullopt;
    (void)TagliaVoci(Copiate, Tabella, Scelte, false);
    return IncollaVoci(Copiate, Tabella, Destinazione, 0);
}

bool ConfermaCancellazione(qsizetype Quante)
{
    const QString Quali = Quante == 1 ? u"della voce selezionata"_s : u"delle voci selezionate"_s;
    return Domanda(u"Confermi la cancellazione "_s + Quali + u"?"_s);
}

void EliminaRighe(TabellaRighe& Tabella, QList<int> Quali)
{
    // From the highest down: those still to go keep their numbers.
    std::sort(Quali.begin(), Quali.end(), std::greater<>());
    for (const int Riga : std::as_const(Quali))
        if (Riga <= Tabella.UpperBound(1))
            Tabella.EliminaRiga(Riga);
}
