#include "feenote/file/modSalvataggio.h"

#include "core/modErrori.h"
#include "core/modTesti.h"
#include "core/sessione.h"
#include "feenote/file/colonne.h"
#include "feenote/file/memorianota.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPassword.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/file/nomenota.h"
#include "feenote/modStato.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/database/database.h"
#include "platform/system/aparte.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/sincrono.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView FiltroNote = u"Parcelle (*.mdb)";

/// The code of the matter before the names of its notes. A code like "12/2026" would name a folder, and one
/// like "2026.12" a note that could never be saved under the name it bears.
QString Prefisso()
{
    const QString& ID = sessione::RichiestaPV2.ID;
    if (ID.isEmpty())
        return {};
    QString Nome = NomePerFile(ID);
    for (const QChar Vietato : VietatiNeiNomi)
        Nome.replace(Vietato, u'-');
    return Nome + u'-';
}

/// A note that has a template as its file is saved elsewhere, so that the template is safe.
bool DaModello(const Parcella& Nota)
{
    return NellaCartellaModelli(Nota.Percorso);
}

/// The proposed name, with a number where a note of that name is there already: a copy would take its place.
QString NomeLibero(const QString& Inizio, const QString& Proposto)
{
    constexpr int MassimoNumero = 99;
    const auto Preso = [&](const QString& Nome) {
        return EsisteFileEntro(Inizio + Nome + EstensioneNota.toString()).value_or(false);
    };
    if (Proposto.isEmpty() || !Preso(Proposto))
        return Proposto;
    for (int Numero = 2; Numero <= MassimoNumero; ++Numero)
        if (QString Nome = Proposto + u' ' + QString::number(Numero); !Preso(Nome))
            return Nome;
    return Proposto;
}

QString PuntoDiPartenza(const Parcella& Nota, bool ComeModello, const QString& Proposto)
{
    if (!Nota.Percorso.isEmpty() && !ComeModello && !DaModello(Nota))
        return Nota.Percorso;
    const QString Inizio = Barra(ComeModello ? sessione::ModelliPath : sessione::ParcellePath) + Prefisso();
    return Inizio + NomeLibero(Inizio, Proposto);
}

/// A name without a folder belongs where the dialog began, not in the folder where the process happens to be.
QString ConCartella(const QString& Scelto, const QString& Inizio)
{
    return CartellaFile(Scelto).isEmpty() ? CartellaFile(Inizio) + Scelto : Scelto;
}

/// The extension is compared with case: "x.MDB" gets a second one, whose dot is then refused.
QString ConEstensione(const QString& Percorso)
{
    return Percorso.endsWith(EstensioneNota) ? Percorso : Percorso + EstensioneNota.toString();
}

bool NomeAmmesso(const QString& Percorso)
{
    const QString Nome = NomeFile(Percorso).chopped(EstensioneNota.size());
    if (NomeDiNotaValido(Nome))
        return true;
    MsgErrore(FraseNomeNonValido.toString() + u"\nSalvataggio non effettuato!"_s);
    return false;
}

/// A note tied to a matter bears its code.
bool HaCodice(const QString& Percorso)
{
    const QString Codice = Prefisso();
    return Codice.isEmpty() || NomeFile(Percorso).startsWith(Codice, Qt::CaseInsensitive);
}

QString ConRiferimento(const QString& Percorso)
{
    if (HaCodice(Percorso))
        return Percorso;
    const QString Codice = Prefisso();
    const QString Nome = NomeFile(Percorso);
    const QString Nuovo = Codice + Nome;
    MsgBox(u"La parcella, essendo associato ad una pratica, deve iniziare col codice seguito dal trattino!\n"
           u"Il nome della parcella è stato modificato in: "_s +
               Nuovo,
           vbCritical, u"Errore salvataggio:"_s);
    return CartellaFile(Percorso) + Nuovo;
}

bool SovrascritturaAmmessa(const Parcella& Nota, const QString& Percorso)
{
    if (!EsisteFile(Percorso))
        return true;
    const QString Nome = NomeFile(Percorso);
    if (SolaLettura(Percorso)) {
        MsgErrore(u"La parcella "_s + Nome + u" non può essere sovrascritta!"_s);
        return false;
    }
    if (!ControllaPsw(Percorso))
        return false;
    if (PercorsoNativo(Nota.Percorso) == Percorso)
        return true;
    return MsgBox(u"La parcella "_s + Nome + u" già esiste: confermi la sovrascrittura?"_s,
                  vbYesNo + vbQuestion, TitoloDomanda.toString()) == vbYes;
}

/// Nobody frees a lock whose machine is gone: who knows that nobody saves there may.
bool TurnoLiberato(const QString& Percorso)
{
    const std::optional<TurnoLasciato> Trovato = TurnoAbbandonato(Percorso);
    if (!Trovato)
        return true;
    if (MsgBox(
            FraseTurno(*Trovato) +
                u".\nSe nessuno sta salvando la parcella, il file si può eliminare.\nEliminarlo e salvare?"_s,
            vbYesNo + vbQuestion, TitoloDomanda.toString()) != vbYes)
        return false;
    TogliBlocco(Trovato->File);
    return true;
}

EsitoStato ScriviSolo(const Parcella& Nota, const std::function<bool()>& Immutata,
                      void (*Annota)(const Database& File, const Parcella& Nota))
{
    if (Nota.Percorso.isEmpty() || !EsisteFile(Nota.Percorso))
        return EsitoStato::Fallito;
    if (DaModello(Nota) || SolaLettura(Nota.Percorso) || EDiAccess(Nota.Percorso))
        return EsitoStato::NonSiTiene;
    try {
        if (Immutata())
            SeparaNomi(Nota.Percorso);
        const Database File = OpenDatabase(Nota.Percorso);
        Transazione Turno(File);
        if (!Immutata())
            return EsitoStato::Fallito;
        Annota(File, Nota);
        Turno.Conferma();
        return EsitoStato::Scritto;
    } catch (const Errore& Guasto) {
        return Guasto.Numero == errori::DatabaseSolaLettura ? EsitoStato::NonSiTiene : EsitoStato::Fallito;
    }
}

}  // namespace

bool NomeDiNotaValido(const QString& Nome)
{
    return !Nome.isEmpty() && NomeValido(Nome, VietatiNeiNomi.toString());
}

bool ControllaPsw(const QString& Percorso)
{
    const QString Psw = LeggiPsw(Percorso);
    if (Psw.isEmpty())
        return true;
    const QString Data =
        InputBox(u"Specificare la password per modificare la parcella:"_s, u"Immissione password"_s);
    if (Data.isEmpty())
        return false;
    // Compared in the form that the file holds, where characters outside the code page are alike.
    if (CodificaPsw(Data) == CodificaPsw(Psw) && Data.size() <= MassimoPsw)
        return true;
    MsgErrore(u"La password immessa non è corretta!\nL'operazione non è stata effettuata."_s);
    return false;
}

namespace {

/// Over a file that others save too: whoever has the turn saves it while this one waits for it.
/// @return false when the user keeps what is there
bool ScriviConGuardia(const QString& Percorso, const Parcella& Nota, const GuardiaFile& Guardia)
{
    do {
        while (!Guardia.Immutata())
            if (!Guardia.Chiedi())
                return false;
    } while (!ScriviNotaSe(Percorso, Nota, Guardia.Immutata));
    return true;
}

/// The note is that of the file that was written.
void AdottaFile(Parcella& Nota, const Parcella& Scritta, const QString& Percorso)
{
    Nota.Stato = Scritta.Stato;
    Nota.Percorso = Percorso;
    Nota.Nome = NomeFile(Percorso).chopped(EstensioneNota.size()).toLower();
    if (Nota.Psw.startsWith(PswDaSalvare))
        Nota.Psw = PswNelCampo(Nota.Psw.mid(PswDaSalvare.size()));
}

/// Writes the note; from then on it is that of the file.
std::optional<FileSalvato> ScriviQui(const QString& Percorso, Parcella& Nota, bool ComeModello,
                                     const GuardiaFile* Guardia = nullptr)
{
    if (!SovrascritturaAmmessa(Nota, Percorso) || !TurnoLiberato(Percorso))
        return std::nullopt;
    Parcella DaScrivere = Nota;
    DaScrivere.Stato = ComeModello ? StatoDiNuova()  // what begins from a template is a draft
                                   : SoloBozza(Nota.Stato);
    QString Scostato;
    const auto Adotta = [&] { AdottaFile(Nota, DaScrivere, Percorso); };
    try {
        if (!Guardia)
            Scostato = ScriviNota(Percorso, DaScrivere, ComeModello);
        else if (!ScriviConGuardia(Percorso, DaScrivere, *Guardia))
            return std::nullopt;
    } catch (const NonConfermato&) {
        Adotta();  // it stands there, and is no other program's
        throw;
    }
    Adotta();
    return FileSalvato{Percorso, Scostato};
}

}  // namespace

std::optional<FileSalvato> SalvaConDialogo(Parcella& Nota, bool ComeModello, const QString& Proposto)
{
    const QString Titolo = ComeModello ? u"Salva parcella come modello"_s : u"Salva parcella"_s;
    const QString Inizio = PuntoDiPartenza(Nota, ComeModello, Proposto);
    const QString Scelto = DialogoSalva(Titolo, Inizio, FiltroNote.toString());
    if (Scelto.isEmpty())
        return std::nullopt;
    const QString Percorso = ConEstensione(PercorsoNativo(ConCartella(Scelto, Inizio)));
    if (!NomeAmmesso(Percorso))
        return std::nullopt;
    return ScriviQui(ConRiferimento(Percorso), Nota, ComeModello);
}

bool HaFileSuo(const Parcella& Nota)
{
    return !Nota.Percorso.isEmpty() && !DaModello(Nota) && HaCodice(Nota.Percorso) &&
           EsisteFile(Nota.Percorso);
}

std::optional<FileSalvato> SalvaSulFile(Parcella& Nota, const GuardiaFile& Guardia)
{
    return ScriviQui(PercorsoNativo(Nota.Percorso), Nota, false, &Guardia);
}

EsitoStato ScriviSoloStato(const Parcella& Nota, const std::function<bool()>& Immutata)
{
    return ScriviSolo(Nota, Immutata, AnnotaStato);
}

EsitoStato ScriviSoloFattura(const Parcella& Nota, const std::function<bool()>& Immutata)
{
    return ScriviSolo(Nota, Immutata,
                      [](const Database& File, const Parcella& Sua) { (void)AnnotaFattura(File, Sua); });
}

DatiFatturaXml FatturaNelFile(const Parcella& Nota)
{
    if (Nota.Percorso.isEmpty() || !EsisteFile(Nota.Percorso) || EDiAccess(Nota.Percorso))
        return {};
    try {
        Parcella Letta;
        ApplicaMemoria(Letta, LeggiMemoria(OpenDatabase(Nota.Percorso, true)));
        return Letta.FatturaXml;
    } catch (const Errore&) {
        return {};
    }
}

void DiSalvata(const QString& Percorso)
{
    MsgBox(u"La parcella "_s + NomeFile(Percorso) + u" è stata salvata correttamente!"_s, vbInformation,
           TitoloMessaggio.toString());
}

void DiScostato(const FileSalvato& Scritta)
{
    if (!Scritta.Scostato.isEmpty())
        MsgBox(FraseScostato(Scritta.Percorso, Scritta.Scostato), vbInformation, TitoloMessaggio.toString());
}

int CheckModInCorso(const Parcella& Nota, bool Chiusura)
{
    if (!Nota.Modificata)
        return vbNo;
    const QString Testo =
        Chiusura
            ? u"Attenzione le modifiche effettuate non sono state ancora salvate e andranno perdute.\n"
              u"Vuoi salvare la parcella prima di chiudere?"_s
            : u"Attenzione le modifiche effettuate sulla precedente parcella non sono state ancora salvate e "
              u"andranno perdute.\nVuoi salvare la parcella prima di aprire la nuova?"_s;
    return MsgBox(Testo, vbYesNoCancel + vbQuestion, TitoloDomanda.toString());
}

void ProteggiNota(Parcella& Nota, bool InVista)
{
    if (!Nota.Psw.isEmpty()) {
        MsgErrore(u"La password di protezione è già impostata!"_s);
        return;
    }
    if (!InVista) {
        MsgErrore(u"Occorre prima selezionare una parcella!"_s);
        return;
    }
    const QString Psw = TagliaPsw(
        InputBox(u"Immettere la password per la protezione della parcella:\n"
                 u"(Attenzione saranno presi in considerazione solo i primi 6 caratteri inseriti!)"_s,
                 u"Proteggi parcella"_s));
    if (Psw.isEmpty())
        return;
    MsgBox(u"E' stata impostata la password: "_s + Psw +
               u"\nLa protezione diverrà operativa al salvataggio della parcella."_s,
           vbInformation, TitoloMessaggio.toString());
    Nota.Psw = PswDaSalvare.toString() + Psw;
    SetModificata(Nota, true);  // else a password on an unmodified note could never be saved
}
