// The court filing fee (contributo unificato) in force on the day of filing, with what says so.
#pragma once

#include "calculators/norme/norme.h"
#include "core/spesedilegge.h"

/// What a row of the fees is.
enum class GenereContributo {
    Scaglione,   ///< an amount for the values between two limits
    Fisso,       ///< an amount for a kind of proceeding
    Moltiplica,  ///< a rule: times a factor
    Aggiunge,    ///< an amount that is owed besides
    Minimo,      ///< what is to be paid for the filing to be taken
};

/// Before whom: rules on degrees, halves and minimum are each of one kind.
enum class ProcessoContributo { Civile, Amministrativo, Tributario, Altro };

struct VoceContributo
{
    QString Codice;     ///< of the kind of proceeding or of the rule
    QString Categoria;  ///< for the user
    GenereContributo Genere = GenereContributo::Fisso;
    std::optional<double> DaEuro;  ///< limits of a bracket, both included; none: no limit
    std::optional<double> AEuro;
    double Valore = 0.0;  ///< euro, or a factor
    Vigenza Quando;
    ProcessoContributo Processo = ProcessoContributo::Civile;
    bool ConGradi = false;      ///< appeals multiply it
    bool ConNotifiche = false;  ///< the lump sum for notifications is owed besides
    bool PerCiascuno = false;   ///< owed for each applicant, lot or the like
    QString Norma;
    QString Nota;
};

/// The degree of the proceeding.
enum class GradoGiudizio { Primo, Impugnazione, Cassazione };
inline constexpr std::array<QStringView, 3> VociGrado{u"Primo grado", u"Impugnazione", u"Cassazione"};

/// A kind of proceeding to choose from.
struct ProcedimentoContributo
{
    QString Codice;
    QString Categoria;
    bool AValore = false;       ///< the fee depends on the value
    bool ConGradi = false;      ///< the degree may be chosen
    bool PerCiascuno = false;   ///< the number of applicants counts
    bool ConNotifiche = false;  ///< the lump sum for notifications may be owed
};

/// The kinds of proceedings that the norms know, in their order.
[[nodiscard]] QList<ProcedimentoContributo> ProcedimentiContributo(const Norme& Insieme);

struct RichiestaContributo
{
    QString Procedimento;  ///< code
    QDate Deposito;
    std::optional<double> ValoreEuro;  ///< of the case; for a bracketed fee
    GradoGiudizio Grado = GradoGiudizio::Primo;
    bool Dimezzato = false;  ///< special proceedings, opposition to an order for payment
    /// Employment or civil service, of a party that owes the fee at all: half of it (D.P.R. 115/2002, art.
    /// 13, par. 3), the whole in cassation whatever else would halve it (art. 9, par. 1-bis), and never the
    /// lump sum for notifications (art. 30, which spares the cases of L. 319/1958).
    bool Lavoro = false;
    bool Imprese = false;     ///< specialised sections for enterprises
    bool OmessiDati = false;  ///< certified mail or fiscal code not stated
    bool Respinta = false;    ///< appeal refused: as much again
    bool Notifiche = true;    ///< with the lump sum for notifications, where it is owed at all
    int Ricorrenti = 1;       ///< for what is owed for each of them
};

/// How the amount came about, a row for each norm.
struct PassoContributo
{
    QString Testo;      ///< "Scaglione da 5.200,01 a 26.000,00"
    double Euro = 0.0;  ///< the amount behind this row
    QString Norma;
    bool NonRiscontrato = false;
    QString Nota{};

    friend bool operator==(const PassoContributo&, const PassoContributo&) = default;
};

struct EsitoContributo
{
    double ContributoEuro = 0.0;
    double AggiunteEuro = 0.0;         ///< what is owed besides: notifications, registration
    double NotificheEuro = 0.0;        ///< of which the lump sum for notifications
    std::optional<double> MinimoEuro;  ///< to be paid for the filing to be taken; none: no such norm yet
    QString NormaMinimo;               ///< that says so
    QList<PassoContributo> Passi;
    QStringList Note;

    [[nodiscard]] double TotaleEuro() const { return ContributoEuro + AggiunteEuro; }
    friend bool operator==(const EsitoContributo&, const EsitoContributo&) = default;
};

/// Rounded to 2 decimals, ties away from zero.
/// @throws Errore 5 with a sentence: no such proceeding, before the oldest amount, a value that lacks or is
///         negative, a degree or a rule that no norm provides for
[[nodiscard]] EsitoContributo ContributoVigente(const Norme& Insieme, const RichiestaContributo& Richiesta);

/// The lump sum for notifications (art. 30) in force on a day; none before the oldest amount that is known.
[[nodiscard]] std::optional<ImportoDiLegge> AnticipazioneNotifiche(const Norme& Insieme, const QDate& Giorno);
/// The same by the norms of the program folder; none, without a word, where they cannot be read.
[[nodiscard]] std::optional<ImportoDiLegge> AnticipazioneInVigore(const QDate& Giorno);
