// How far a fee note has come: what the record keeps of it beside its columns.
#pragma once

#include <QList>
#include <QString>
#include <QStringView>

#include <array>
#include <optional>

/// The states in their order: an event leads to a later one, never to an earlier.
enum class StatoNota {
    Ignoto,     ///< of a file from before the states, until something happens to the note
    Bozza,      ///< nothing has gone out
    Inviata,    ///< a document was printed, exported or sent
    Fatturata,  ///< an invoice with number and date has gone out, or its electronic file
    Pagata,     ///< the payments on account cover the net, or the user says so
};

/// Those that a user may choose.
inline constexpr std::array StatiNota{StatoNota::Bozza, StatoNota::Inviata, StatoNota::Fatturata,
                                      StatoNota::Pagata};

/// "Bozza" and so on, as it is shown; empty for one that is not known.
[[nodiscard]] QString NomeStato(StatoNota Stato);
/// The state of a word, whatever its case; nothing for another word.
[[nodiscard]] std::optional<StatoNota> StatoDelNome(QStringView Nome);

/// Payments of a list without taxes, euro.
struct AccontiTenuti
{
    double Corrispettivi = 0.0;
    double SpeseImp = 0.0;
    double SpeseEsenti = 0.0;

    friend bool operator==(const AccontiTenuti&, const AccontiTenuti&) = default;
};

/// The figures of a document, euro, each of two decimals.
struct ImportiDocumento
{
    double Imponibile = 0.0;
    double CP = 0.0;
    double IVA = 0.0;
    double Totale = 0.0;
    double RA = 0.0;
    double Netto = 0.0;
    /// The payments that it has taken away, without taxes: what is paid later is counted from here.
    double AccCorrispettivi = 0.0;
    double AccSpeseImp = 0.0;
    double AccSpeseEsenti = 0.0;
    /// Of these the payments of the associated note; nothing where the file does not tell.
    std::optional<AccontiTenuti> DelSocio = {};

    friend bool operator==(const ImportiDocumento&, const ImportiDocumento&) = default;
};

/// What an associated note brings to the account, euro: sums of its lines and of its payments, without taxes.
struct SocioTenuto
{
    double Onorari = 0.0;
    double SpeseImp = 0.0;
    double SpeseEsenti = 0.0;
    double AccCorrispettivi = 0.0;
    double AccSpeseImp = 0.0;
    double AccSpeseEsenti = 0.0;

    friend bool operator==(const SocioTenuto&, const SocioTenuto&) = default;
};

/// An invoice or a credit note that another one has followed in the same file.
struct DocumentoEmesso
{
    int Documento = -1;     ///< a TipoStampa
    bool Storno = false;    ///< a credit note
    bool ConSocio = false;  ///< of this note and of the associated one
    QString Numero = {};
    QString Data = {};  ///< dd/mm/yyyy, empty where it is not known
    ImportiDocumento Importi = {};
    /// What of an invoice the user has called paid, euro, beside what its payments had paid by then. What is
    /// paid later pays the next one.
    double AMano = 0.0;
    QString Guasto =
        {};  ///< its entry as the file holds it, where that cannot be read: a save leaves it as it is
    QString CitataNumero = {}, CitataData = {};  ///< of a credit note: the invoice that it cited
    /// Since when it is invoiced, or paid where the user has said so, dd/mm/yyyy; empty: not known.
    QString Dal = {};
    /// The same before the user's word "paid" that its credit note has followed: where that word is taken
    /// back, so is AMano. Nothing where another word made it paid, or none.
    std::optional<QString> DalPrima = {};
    bool ConFile = false;  ///< its electronic file is written

    friend bool operator==(const DocumentoEmesso&, const DocumentoEmesso&) = default;
};

/// Those that are kept beside the last one: two invoices with their credit notes.
inline constexpr qsizetype MassimiEmessi = 4;

/// The state of a note and what it comes from.
struct StatoTenuto
{
    StatoNota Stato = StatoNota::Ignoto;
    /// The state before the payments covered the net, for when they no longer do; none where the user has
    /// chosen Pagata.
    std::optional<StatoNota> Prima;
    int Documento = -1;     ///< TipoStampa of the document that has gone out, -1 none
    bool Emessa = false;    ///< it was an invoice with number and date
    bool Storno = false;    ///< it was a credit note, numbered or not, by which nobody owes anything
    bool ConSocio = false;  ///< it was of this note and of the associated one
    bool ConFile = false;   ///< its electronic file is written
    QString Numero, Data;   ///< of that invoice, dd/mm/yyyy: its credit note takes both out of the note
    /// Of a credit note, the invoice that it cited when it went out: the next invoice takes both out again.
    QString CitataNumero, CitataData;
    /// The two before they were put right; not in the file. Letters that lead to the number of an earlier
    /// invoice put nothing right.
    QString NumeroPrima, DataPrima;
    /// The figures of that document: a note that is worked on afterwards is owed what was asked for.
    std::optional<ImportiDocumento> Importi;
    /// What has gone out before it and stands, the oldest first: an invoice that was taken back, its credit
    /// note where another invoice has followed.
    QList<DocumentoEmesso> Emessi;
    /// The associated note as it was seen last. The file names it by its path alone: its figures are not
    /// known again before the user associates it.
    std::optional<SocioTenuto> Socio;
    std::array<QString, 5> Giorni;  ///< since when, dd/mm/yyyy, by state; empty: not known

    /// Since when the note is in its state.
    [[nodiscard]] const QString& Dal() const { return Giorni[size_t(Stato)]; }
    friend bool operator==(const StatoTenuto&, const StatoTenuto&) = default;
};

/// The state of a note that begins.
[[nodiscard]] StatoTenuto StatoDiNuova();
