// The norms in force, each with the days it holds for: Norme.mdb, read once and checked whole.
//
// The program's own rules ("del programma") are in modTermini, modTerminiSeq and modContributo and know
// nothing of this. A file that is missing, damaged or edited gives an error that names it, never a result.
#pragma once

#include <QDate>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>
#include <memory>
#include <optional>

class Database;

/// Which rules a calculator follows.
enum class InsiemeNorme {
    Programma,  ///< those that the program was built on, the same for every year
    Vigenti,    ///< those of the law, by date
};

/// The entries of the choice "Norme:", in the order of InsiemeNorme.
inline constexpr std::array<QStringView, 2> VociNorme{u"del programma", u"in vigore"};

/// The days a norm holds for, both included; no first or no last day: for ever.
struct Vigenza
{
    QDate Dal;
    QDate Al;

    [[nodiscard]] bool Contiene(const QDate& Giorno) const
    {
        return (!Dal.isValid() || Giorno >= Dal) && (!Al.isValid() || Giorno <= Al);
    }
    friend bool operator==(const Vigenza&, const Vigenza&) = default;
};

/// Days and months of every year.
struct GiornoDellAnno
{
    int Giorno = 0;
    int Mese = 0;

    [[nodiscard]] bool Vuoto() const { return Mese == 0; }
    [[nodiscard]] QDate Nel(int Anno) const { return {Anno, Mese, Giorno}; }
    friend bool operator==(const GiornoDellAnno&, const GiornoDellAnno&) = default;
};

/// The summer suspension of the years whose first day of it lies within the norm.
struct NormaSospensione
{
    Vigenza Quando;
    GiornoDellAnno Primo;
    GiornoDellAnno Ultimo;
    QString Norma;
};

/// A matter that the suspension spares.
struct NormaMateria
{
    QString Codice;
    QString Testo;
    Vigenza Quando;
    QString Norma;
};

/// A holiday.
struct NormaFesta
{
    QString Nome;
    GiornoDellAnno Giorno;  ///< empty: Easter Monday
    Vigenza Quando;
    QString Norma;
    bool Riscontrata = true;
};

/// A rule without a figure, such as the one on Saturdays: what it is called and from when it holds.
struct NormaRegola
{
    QString Codice;
    Vigenza Quando;
    QString Norma;
    bool Riscontrata = true;
};

/// What is not known of a time, said under a result that falls into it.
struct NormaAvviso
{
    QString Ambito;  ///< AmbitoTermini or AmbitoContributo
    Vigenza Quando;
    QString Testo;
};
inline constexpr QStringView AmbitoTermini = u"termini";
inline constexpr QStringView AmbitoContributo = u"contributo";

/// The summer suspension of one year.
struct Sospensione
{
    QDate Dal;
    QDate Al;
    QString Norma;
};

struct TermineRicorrente;
struct CatenaTermini;
struct VoceContributo;

/// The loaded set. Immutable.
class Norme
{
public:
    /// Reads and checks a file. @throws Errore 5 with one sentence that names the file
    explicit Norme(const QString& Percorso);
    ~Norme();
    Norme(const Norme&) = delete;
    Norme& operator=(const Norme&) = delete;

    /// The day up to which the norms are known.
    [[nodiscard]] const QDate& NoteFinoAl() const { return Al; }
    /// The first day of the oldest norm that a term needs.
    /// @param ConSospensione the suspension counts for it
    [[nodiscard]] QDate NoteDal(bool ConSospensione) const;
    /// "Norme note fino al gg/mm/aaaa" for a later day, empty otherwise.
    [[nodiscard]] QString AvvisoOltre(const QDate& Giorno) const;

    /// What is not known on a day.
    [[nodiscard]] QStringList Avvisi(QStringView Ambito, const QDate& Giorno) const;

    /// The summer suspension of a year; none before the law that brought it.
    [[nodiscard]] std::optional<Sospensione> SospensioneDel(int Anno) const;
    /// True for a day of it; serves the colours of the calendars.
    [[nodiscard]] bool GiornoSospeso(const QDate& Giorno) const;
    /// The holiday of a day, Sundays apart; nullptr for none.
    [[nodiscard]] const NormaFesta* Festa(const QDate& Giorno) const;
    /// A rule by its code; @throws Errore 9 no such rule (a fault of the program: the reader asks for all)
    [[nodiscard]] const NormaRegola& Regola(QStringView Codice) const;

    [[nodiscard]] const QList<NormaSospensione>& Sospensioni() const { return TutteSospensioni; }
    [[nodiscard]] const QList<NormaFesta>& Feste() const { return TutteFeste; }
    [[nodiscard]] const QList<NormaMateria>& Materie() const { return TutteMaterie; }
    [[nodiscard]] const QList<NormaRegola>& Regole() const { return TutteRegole; }
    [[nodiscard]] const QList<TermineRicorrente>& Termini() const { return TuttiTermini; }
    [[nodiscard]] const QList<CatenaTermini>& Catene() const { return TutteCatene; }
    [[nodiscard]] const QList<VoceContributo>& Contributi() const { return TuttiContributi; }

private:
    void Leggi(const Database& Db);

    QString File;
    QDate Al;
    QList<NormaSospensione> TutteSospensioni;
    QList<NormaFesta> TutteFeste;
    QList<NormaMateria> TutteMaterie;
    QList<NormaRegola> TutteRegole;
    QList<NormaAvviso> TuttiAvvisi;
    QList<TermineRicorrente> TuttiTermini;
    QList<CatenaTermini> TutteCatene;
    QList<VoceContributo> TuttiContributi;
};

/// Full path of Norme.mdb in the program folder.
[[nodiscard]] QString PercorsoNorme();

/// The norms of the program folder, read again when the file is another one.
/// @throws Errore 5 with one sentence that names the file
[[nodiscard]] std::shared_ptr<const Norme> NormeVigenti();

/// The seal of what a file says: a digest of all its rows. Whoever writes a file keeps it in its annotations
/// under NomeSigillo; a reader that finds another one refuses the file.
[[nodiscard]] QString SigilloNorme(const Database& Db);
inline constexpr QStringView NomeSigillo = u"Sigillo";
/// The annotation that holds the day up to which the norms are known, gg/mm/aaaa.
inline constexpr QStringView NomeNoteFinoAl = u"Al";
