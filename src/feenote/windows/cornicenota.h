// What the pages of a fee note's window ask of the window.
//
// A page knows its own controls, the record and this; neither the window nor the other pages.
#pragma once

#include <QScopedValueRollback>
#include <QString>

#include <utility>

enum class CampoFattura;
struct DatiFatturaXml;
struct Rilievo;
struct StatoTenuto;

class CorniceNota
{
public:
    virtual ~CorniceNota() = default;

    /// The place of the note's window.
    [[nodiscard]] virtual int Indice() const = 0;
    /// Answer of the last check of the parameters; without it no line moves.
    [[nodiscard]] virtual bool BaseValida() const = 0;

    /// The record was worked on: its mark is shown, with what follows it (the recovery copy, the partner's
    /// sums).
    virtual void Cambiata() = 0;
    /// The same, and the step that can be taken back has this name.
    virtual void CambiataDa(const QString& Passo) = 0;
    /// A rule has tidied the record behind a step (empty amounts become 0): that is no step of its own.
    virtual void Riordinata() = 0;
    /// Writes the controls of every page, the banner and the sums from the record, signals held back, and
    /// gives the focus that a rule asked for.
    virtual void MostraTutto() = 0;
    /// Sums in the status bar and in the footers of the page in view.
    virtual void RefreshGrid() = 0;
    /// Composes the chosen document anew while its page is in view: something that it shows has changed.
    virtual void Ricomponi() = 0;
    /// The same at once where it waits for the partner to be left alone: the page is about to go out.
    virtual void ComponiInAttesa() = 0;

    /// The note's document of this type was printed, exported or sent: the note's state follows.
    virtual void DocumentoUscito(int Tipo) = 0;
    /// The same of a document that went out a while ago, with the state that it gave the note then.
    virtual void DocumentoUscitoPrima(const StatoTenuto& Stato) = 0;
    /// The file of the note's electronic invoice is about to be written, and the note says so: one that had
    /// no changes before keeps that in its own file at once, any other is marked and has its recovery copy
    /// keep it. Shows what has changed.
    /// @return true when the file has it
    virtual bool FatturaScritta(bool Intatta) = 0;
    /// That file could not be written: the note is as it was before, in its own file too. Shows it.
    /// @param Tenuta what FatturaScritta has answered
    /// @return false when its own file keeps the mark
    virtual bool FatturaNonScritta(const DatiFatturaXml& Prima, const StatoTenuto& Stato, bool Intatta,
                                   bool Tenuta) = 0;
    /// A number that no other note of the session has, and a window without a note: 0.
    [[nodiscard]] virtual int Numero() const = 0;

    /// Takes the user's last step back, and shows what came of it. @return false when there is none, or when
    /// it has put back what was cut
    virtual bool AnnullaPasso() = 0;
    /// The last step has put back lines that were cut.
    virtual void SegnaRimessa() = 0;

    /// False while the note is open as another's partner, which is printed with that one.
    [[nodiscard]] virtual bool HaStampa() const = 0;
    /// Asks the finder for the note to be printed with this one.
    virtual void ScegliMulti() = 0;
    /// Associates the note of a file; a failure is reported and keeps what there was.
    virtual void AssociaNota(const QString& Percorso) = 0;
    /// Opens the associated note in a window of its own, linked to this one, or brings it to the front.
    virtual void ApriMulti() = 0;
    /// Takes the association away; the other note's window, if there is one, stays as an ordinary one.
    virtual void EliminaMulti() = 0;

    /// Opens the settings where the tariff of new notes is chosen; this note follows the choice while it has
    /// no lines.
    virtual void ScegliTariffa() = 0;

    /// Opens the address book.
    /// @param Elemento 0 the client, 1 the counterparty
    /// @param DaStampa for the print data, else for the base data
    /// @param MenuStart empty to choose, "new", or "edit" for the row that the note is linked to
    virtual void CliCon(int Elemento, bool DaStampa, const QString& MenuStart) = 0;
    /// Links a party to a row of the archive, as a choice in the address book does. A row that has gone
    /// meanwhile, or that has no name, is told.
    virtual void ScegliNome(int Elemento, int Chiave) = 0;
    /// Leads to a field that the electronic invoice needs: a box of the note, the client's card, the
    /// settings.
    virtual void VaiAlCampo(CampoFattura Dove) = 0;
    /// Leads to the field that a remark speaks of: its tab, the box with the focus, the cell current.
    virtual void VaiAlRilievo(const Rilievo& Detto) = 0;
    /// True while a question of this window waits for its answer.
    [[nodiscard]] virtual bool InDomanda() const = 0;

    /// Runs something that asks the user. Meanwhile the note neither closes nor is saved a second time, and
    /// what is on screen stands in the recovery copy.
    template <class Procedura>
    auto InDialogo(Procedura&& Chiedi)
    {
        const auto Guardia = ApriDomanda();
        return std::forward<Procedura>(Chiedi)();
    }
    /// Runs a rule of feenote on the record, then shows what came of it.
    template <class Regola>
    void Applica(Regola&& Fai)
    {
        std::forward<Regola>(Fai)();
        Cambiata();
        MostraTutto();
    }
    /// The same for a rule whose outcome is printed.
    template <class Regola>
    void ApplicaStampa(Regola&& Fai)
    {
        Applica(std::forward<Regola>(Fai));
        Ricomponi();
    }

protected:
    /// InDomanda is true for as long as the object lives.
    [[nodiscard]] virtual QScopedValueRollback<bool> ApriDomanda() = 0;
};
