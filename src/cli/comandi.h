// The commands of calcanova-cli.
#pragma once

#include "calculators/norme/norme.h"
#include "cli/riga.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <span>

struct Catena;
struct Parcella;
struct Decreto;

/// What a command answers: one line of text, and the same as a record for --json.
struct Risposta
{
    QString Testo;
    QJsonObject Record;
    bool Fallita = false;  ///< answered, but with exit status 1
    QString Righe{};       ///< what --righe adds behind a "|"
};

/// The note that a command joins to its own; no path: none.
struct NotaMultipla
{
    QString Percorso;
    bool Prima = false;  ///< it stands before the command's own
};

/// The rules that a calculator follows, and what is wanted beside its answer.
struct NormeChieste
{
    InsiemeNorme Insieme = InsiemeNorme::Programma;
    bool Spiega = false;      ///< the reasons: rows of text, or a part of the record
    QString Ics{};            ///< file for a calendar; empty: none
    bool NoteAParte = false;  ///< the answer has no room for notes: they are told beside it
};

/// A command and the shape of its call.
struct ComandoCli
{
    QStringView Nome;
    QStringView Valori;  ///< names of its values in order, for the help
    int Minimo;          ///< values it needs
    int Massimo;
    Risposta (*Esegui)(const QStringList& Valori, const RigaComando& Chiamata);
    QList<Opzione> Opzioni{};                           ///< beside those that any command takes
    bool DivideAllUltimo = false;                       ///< --batch splits a case at the last ";"
    void (*Rifiuta)(const RigaComando& Chiamata) = {};  ///< what no other command refuses. @throws ErroreUso
};

/// The table of commands, in the order of the help: those beside the calculators, then these two parts.
[[nodiscard]] std::span<const ComandoCli> ComandiCli();
/// Terms and their catalogue.
[[nodiscard]] std::span<const ComandoCli> ComandiTermini();
/// The other calculators. A new one is a function beside its row.
[[nodiscard]] std::span<const ComandoCli> ComandiCalcoli();

/// A saved note, with another one joined to it as the window's panel does.
[[nodiscard]] Parcella LeggiNota(const QString& Percorso, const NotaMultipla& Altra = {});

/// The commands that work on fee-note files.
[[nodiscard]] Risposta ComandoCrea(const QStringList& Valori);
[[nodiscard]] Risposta ComandoNota(const QStringList& Valori);
[[nodiscard]] Risposta ComandoRiepilogo(const QStringList& Valori, const NotaMultipla& Altra = {});
[[nodiscard]] Risposta ComandoStampa(const QStringList& Valori, const NotaMultipla& Altra = {});
[[nodiscard]] Risposta ComandoTrova(const QStringList& Valori);

/// What is due of the notes of a folder, a row each as the accountant has it, the sums last; or the rows into
/// a file that this user alone may read.
/// @param Stato a word of ParoleFiltroStato; empty: all
/// @param File empty: none
[[nodiscard]] Risposta ComandoScadenzario(const QStringList& Valori, const QString& Stato,
                                          const QString& File);

/// The names of the office's archive, or of the one that --archivio names.
[[nodiscard]] Risposta ComandoRubrica(const QStringList& Valori);
/// The same names into a file that this user alone may read, rows of a spreadsheet or cards.
[[nodiscard]] Risposta ComandoEsporta(const QStringList& Valori, const QString& File, bool InSchede);
/// The names of a file, whatever has written it, into a table of the session's archive; those that it has
/// stay as they are.
[[nodiscard]] Risposta ComandoImportaIn(const QStringList& Valori, const QString& Tabella, bool Prova);

/// The items of a tariff for a category, an authority and a value, with minimum, medium and maximum as a line
/// of a note would take them; the free item, which has none, is left out.
[[nodiscard]] Risposta ComandoVoci(const QStringList& Valori, const Decreto& Legge);

/// The electronic invoice of a note into a file, whole or not at all; the counter of such files steps first.
[[nodiscard]] Risposta ComandoFattura(const QStringList& Valori, const NotaMultipla& Altra = {});
/// What is wrong with the file of an electronic invoice, whoever has written it. It fails where the exchange
/// system would send the file back.
[[nodiscard]] Risposta ComandoControllaFattura(const QStringList& Valori);

/// A file of Access as a native one.
[[nodiscard]] Risposta ComandoImporta(const QStringList& Valori);

/// The filing fee, which stands with the law in force.
[[nodiscard]] Risposta ComandoContributo(const QStringList& Valori, const NormeChieste& Scelta = {});

/// The rows of a summary as text and record.
[[nodiscard]] Risposta RispostaRiepilogo(const Catena& Conti);

/// Print type of a value, 0 to 7. @throws Errore 13, 5
[[nodiscard]] int LeggiTipo(const QString& Valore);

/// Runs a command line; `Ingresso` gives the lines of --batch (an invalid QByteArray ends them), `Uscita` and
/// `Guasti` take UTF-8 text.
/// @return exit status: 0, 1 a value was refused or something failed, 2 called the wrong way
int EseguiCli(const QStringList& Argomenti, const std::function<QByteArray()>& Ingresso,
              const std::function<void(const QByteArray&)>& Uscita,
              const std::function<void(const QByteArray&)>& Guasti);
