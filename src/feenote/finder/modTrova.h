// Finding saved notes: there is no index of them, so that folders are walked and each file is looked into.
//
// The walk knows no window and may run in a thread of its own; what a key means (Nominativi) is looked up by
// whoever takes the rows. Nothing on the disk changes by it, neither a file nor an attribute.
#pragma once

#include "feenote/file/memoriastato.h"

#include <QList>
#include <QString>
#include <QThreadPool>

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

class MemoriaTrova;
struct VoceCartella;

/// What a row of the finder is.
enum class GenereVoce {
    Torna,     ///< the way up
    Cartella,  ///< a folder
    Nota,      ///< a fee note
};

/// The row that leads up, as it is shown.
inline constexpr QStringView VoceTorna = u"[Torna alla cartella superiore]";
/// The names that are fee notes.
inline constexpr QStringView ModelloNote = u"*.mdb";

/// What a file says of itself in a list.
struct DatiNota
{
    int IDCli = 0;  ///< keys of the parties in the archive, 0 none
    int IDCon = 0;
    QString Cliente;  ///< as the file spells them
    QString Controp;
    QString Oggetto;
    int TipoStampa = -1;  ///< the document in view when it was saved; -1 none
    QString NumFatt;
    QString DataFatt;  ///< dd/mm/yyyy
    StatoLetto Stato;

    friend bool operator==(const DatiNota&, const DatiNota&) = default;
};

/// A row of the finder.
struct VoceTrova
{
    GenereVoce Genere = GenereVoce::Nota;
    QString Nome;              ///< as it is shown: without ".mdb", a folder's in brackets
    QString Percorso;          ///< the file, or the folder to which the row leads
    QString Cartella;          ///< where it stands, with the separator at its end
    qint64 Modificata = 0;     ///< last change in milliseconds from 1970, UTC
    qint64 Byte = 0;           ///< of a note
    bool Modello = false;      ///< read-only, as templates are
    bool Illeggibile = false;  ///< in use at the moment: listed by its name alone
    DatiNota Dati;
    QString Cliente;  ///< as they are shown: by the key or, where it leads nowhere, as the file spells them
    QString Controparte;
};

/// Where the copies of unsaved notes stand.
[[nodiscard]] QString CartellaDelRecupero();

/// What is looked for, and where.
struct CriterioTrova
{
    QString Cartella;
    QString Radice;  ///< where the search began; the way up is shown wherever Cartella is another
    QString Testo;   ///< what the name of the file must hold, whatever its case; empty: every name
    bool Sottocartelle = false;
    QString DaSaltare = CartellaDelRecupero();  ///< what the program itself keeps is no saved note

    /// Folders stand behind the notes where they are no way to go on by.
    [[nodiscard]] bool CartelleInFondo() const { return Sottocartelle || !Testo.isEmpty(); }
};

/// What a walk has found.
struct ContoTrova
{
    int Archivi = 0;
    int Cartelle = 0;  ///< walked, the first included
    qint64 Byte = 0;
    bool Interrotta = false;
    int NonLetti = 0;          ///< files that may be notes: damaged ones, and those that the system refuses
    int CartelleNonLette = 0;  ///< below the first
    int NomiIlleggibili = 0;   ///< notes and folders whose names are no text; see ScorriCartella

    friend bool operator==(const ContoTrova&, const ContoTrova&) = default;
};

/// The text of the status bar behind a walk.
[[nodiscard]] QString FraseEsito(const ContoTrova& Conto);
/// What sums of its rows do not hold: "2 file e 1 cartella non letti", "1 nome illeggibile, da
/// rinominare", "ricerca interrotta"; empty: they hold all.
[[nodiscard]] QString FraseParziale(const ContoTrova& Conto);
/// What is said while it runs, and where nothing was found.
inline constexpr QStringView FraseRicerca =
    u"Ricerca in corso, attendere prego... (premere <Interr> per interrompere)";
inline constexpr QStringView FraseNessuna =
    u"Non è stata trovata alcuna parcella che soddisfi i criteri impostati";

/// Bytes as they are shown: "#,###,###,##0" in thousands of 1024 bytes, begun ones counted.
[[nodiscard]] QString KByte(qint64 Byte);

/// One walk.
class CamminoTrova
{
public:
    /// @param Prendi takes each row as it is found: the way up, then folder by folder in the order of names
    /// @param Continua is asked at each entry; false ends the walk
    /// @param Ricordi what earlier walks have read
    CamminoTrova(CriterioTrova Chiesto, std::function<void(VoceTrova&&)> Prendi,
                 std::function<bool()> Continua, std::shared_ptr<MemoriaTrova> Ricordi);

    /// Walks the folder of the criterion and, if asked to, those below it. A folder below that cannot be read
    /// is counted alone; links to folders are rows but are not followed.
    /// @throws Errore 76 the folder is not there, or has gone meanwhile; 75 it cannot be read
    ContoTrova TrovaParc(const QString& Cartella);

private:
    void FindFiles(const QString& Cartella, const QString& Modello);
    /// What was read of a file before its turn came.
    struct Anticipo
    {
        bool Letto = false;
        std::optional<DatiNota> Dati;
        std::exception_ptr Guasto;
    };
    /// Reads some files side by side: a disk that answers late answers all of them at once. Those that
    /// earlier walks have seen, and those that are to be read in turn, are left out.
    static void LeggiPrima(const QString& File, Anticipo& Letto);
    [[nodiscard]] std::vector<Anticipo> LeggiInsieme(const QString& Cartella,
                                                     std::span<const VoceCartella> File);
    /// Completes a row by what its file holds. @return false for a file that is no fee note
    [[nodiscard]] bool CheckCondiz(VoceTrova& Voce, const Anticipo& Prima);
    void AddDir(const QString& Cartella, const VoceCartella& Trovata);
    void AddFile(const QString& Cartella, const VoceCartella& Trovata, const Anticipo& Prima);
    [[nodiscard]] bool Cercato(const QString& NomeFile) const;

    CriterioTrova Criterio;
    std::function<void(VoceTrova&&)> Riga;
    std::function<bool()> Avanti;
    std::shared_ptr<MemoriaTrova> Memoria;
    QList<QString> DaPercorrere;
    ContoTrova Conto;
    QThreadPool Lettori;
};
