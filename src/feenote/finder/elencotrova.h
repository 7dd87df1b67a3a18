// The rows of the finder in their order, and those of them that a typed text leaves.
#pragma once

#include "feenote/finder/modTrova.h"
#include "feenote/finder/scadenzario.h"
#include "platform/base/tabellarighe.h"

#include <QString>

#include <optional>
#include <vector>

/// Columns of the finder, from the left.
enum ColonnaTrova {
    TrovaNome = 0,
    TrovaData = 1,
    TrovaCliente = 2,
    TrovaControparte = 3,
    TrovaDimensione = 4,
    TrovaCartella = 5,
    TrovaStato = 6,
    TrovaColonne = 7,
};

/// The text of a cell.
[[nodiscard]] QString CellaTrova(const VoceTrova& Voce, int Colonna);

/// Rows are kept in the order in which they came until Ordina is called; the way up stays first.
class ElencoTrova
{
public:
    /// Empties it. The order stays.
    /// @param InFondo folders stand behind the notes
    void Azzera(bool InFondo);
    /// Appends a row, behind all others until Ordina; it is shown if the filter lets it.
    void Aggiungi(VoceTrova&& Voce);
    /// Sorts by a column: dates and sizes by their values, texts in the Italian order, equal rows by name.
    /// Folders keep the order of their names.
    void Ordina(int Colonna, bool Crescente);
    /// By the column chosen last; names at the start.
    void Ordina() { Ordina(PerColonna, InSu); }
    /// Chooses the order of the next Ordina: rows that are still arriving stay where they are.
    void ScegliOrdine(int Colonna, bool Crescente)
    {
        PerColonna = Colonna;
        InSu = Crescente;
    }
    [[nodiscard]] int Colonna() const { return PerColonna; }
    [[nodiscard]] bool Crescente() const { return InSu; }
    /// Leaves the notes in whose name, client or counterparty every word of the text stands, whatever case
    /// and accents; an empty text leaves all. The way up and the folders stay.
    void Filtra(const QString& Testo);
    [[nodiscard]] const QString& Filtro() const { return TestoFiltro; }
    /// Leaves the notes of some states besides. What other notes of the list take back or hold a second time
    /// is known once the rows have been sorted.
    void FiltraStato(FiltroStato Quali);
    [[nodiscard]] FiltroStato StatoFiltrato() const { return Stati; }
    /// Leaves the notes of one client besides, no other of a like name; nothing: those of all.
    void FiltraCliente(const std::optional<ClienteNota>& Chi);
    [[nodiscard]] const std::optional<ClienteNota>& ClienteFiltrato() const { return Solo; }
    /// True while the text, the states or the client may leave notes out.
    [[nodiscard]] bool Filtrato() const { return !Parole.isEmpty() || Stati != FiltroStato::Tutte || Solo; }
    /// The notes shown, in their order; good until the rows change.
    [[nodiscard]] std::vector<const VoceTrova*> NoteMostrate() const;
    /// All notes, whatever the filters leave; good until the rows change.
    [[nodiscard]] std::vector<const VoceTrova*> NoteTutte() const;

    /// What stands in the place of rows where none is shown.
    [[nodiscard]] QString FraseVuota() const;

    [[nodiscard]] int Righe() const { return int(Mostrate.size()); }
    [[nodiscard]] int Note() const;  ///< notes shown
    [[nodiscard]] int TutteLeNote() const { return ContaNote; }
    /// A shown row. @throws Errore 9 outside them
    [[nodiscard]] const VoceTrova& Voce(int Riga) const;
    /// The text of a cell of a shown row; a note whose figures count in another row is called a copy.
    [[nodiscard]] QString Cella(int Riga, int Colonna) const;
    /// The file that counts in the place of a shown row; empty where that one counts itself, and while rows
    /// are arriving.
    [[nodiscard]] QString CopiaDi(int Riga) const;
    /// The shown row of a file or folder.
    [[nodiscard]] std::optional<int> RigaDi(const QString& Percorso) const;
    /// The next shown row, from one on and round the end, whose name begins with these letters, whatever case
    /// and accents.
    [[nodiscard]] std::optional<int> CercaIniziali(const QString& Lettere, int Da) const;
    /// A note has gone.
    void Togli(const QString& Percorso);
    /// A note bears another name. The rows stay where they are.
    void Rinomina(const QString& Percorso, const QString& Nuovo);

    /// As many rows as are shown, for a grid; their cells are CellaTrova's.
    [[nodiscard]] TabellaRighe* Tabella() { return &Griglia; }

private:
    struct Elemento
    {
        VoceTrova Voce;
        QString Cercabile;  ///< what the filter looks at, without case and accents
        QString CopiaDi;
    };
    [[nodiscard]] bool Passa(const Elemento& Una) const;
    void Rimostra();
    void SegnaCopie();

    std::vector<Elemento> Tutte;
    std::vector<int> Mostrate;  ///< places in Tutte
    TabellaRighe Griglia{TrovaColonne};
    QString TestoFiltro;
    QStringList Parole;
    FiltroStato Stati = FiltroStato::Tutte;
    std::optional<ClienteNota> Solo;
    int PerColonna = TrovaNome;
    bool InSu = true;
    bool CartelleInFondo = false;
    int ContaNote = 0;
};
