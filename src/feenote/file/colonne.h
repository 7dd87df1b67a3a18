// The columns of a note's file: what each holds, how it is read, written and described.
//
// The one place where a column stands. The template tables of parcelle.mdb are made from it, a save writes by
// it, a load reads by it, files from before a column are upgraded by it, and the description of a note in
// JSON names its fields by it. A new column is a row here, with the member of Parcella that it holds.
#pragma once

#include "feenote/parcella.h"
#include "platform/database/database.h"

#include <QJsonValue>
#include <QList>
#include <QString>
#include <QVariant>

#include <span>

class OggettoJson;

inline constexpr QStringView TabellaParam = u"ParcellaParam";
inline constexpr QStringView TabellaRigheNota = u"ParcellaRighe";
inline constexpr QStringView TabellaAccontiNota = u"ParcellaAcconti";

/// The kind of a note's file, a template's too: "Caln" in its head. File managers know a note by it, whatever
/// its name; the package's description of the type says the same number.
inline constexpr int SpecieNota = 0x43616C6E;

/// Characters of a line's description in the file; what is longer is cut.
constexpr int MassimoDescr = 60;
/// Characters of a password; the file keeps three digits for each.
constexpr int MassimoPsw = 6;

/// A row of parameters while it is read. Lists, parties, variation, print type and password belong together
/// and are applied when all of them are known; anything else goes into the note at once.
struct NotaLetta
{
    Parcella& Nota;
    int Categ = NessunaVoce;
    int Autor = NessunaVoce;
    int Valore = NessunaVoce;
    double Importo = 0.0;
    int AumRidIdx = NessunaVoce;
    double AumRidVarP = 0.0;
    int TipoStampa = NessunaVoce;
    QString Cliente = {};
    QString Controp = {};
    QString Psw = {};     ///< in the form of the file
    QVariant NsRif = {};  ///< Null in a file without the column
};

/// Which files have a column.
enum class Presenza {
    DaSempre,     ///< all: a file without it is no note (error 3265)
    Facoltativa,  ///< older files lack it, and the note keeps what a new one has
    Aggiunta,     ///< older files and reference databases get it, holding Null
};

/// A column of ParcellaParam.
struct ColonnaParam
{
    QStringView Nome;
    TipoCampo Tipo = TipoCampo::Lungo;
    int Caratteri = 0;  ///< of a Testo
    Presenza Dal = Presenza::DaSempre;
    QVariant (*Scrivi)(const Parcella&) = nullptr;
    void (*Leggi)(NotaLetta&, const QVariant&) = nullptr;
    QStringView Json = {};  ///< "group/field" of the description, or a field of the outermost object
    QJsonValue (*Descrivi)(const Parcella&) = nullptr;
    /// Takes the field from a description; none for one that is filled by a rule (a list, a rate, the type).
    void (*DaJson)(Parcella&, OggettoJson&, const QString& Campo) = nullptr;
};
/// In the order in which a save fills them.
[[nodiscard]] std::span<const ColonnaParam> ColonneParam();
/// The group of "group/field", empty for a field of the outermost object; and the field.
[[nodiscard]] QStringView GruppoJson(QStringView Percorso);
[[nodiscard]] QString CampoJson(QStringView Percorso);

/// How a cell of a line table stands in the file and comes back.
enum class FormaCella {
    Assente,      ///< this kind of line does not fill the column
    Data,         ///< a valid date, else Null; text again when it is read
    Descrizione,  ///< text, cut to the column's size
    Testo,
    Importo,   ///< through FormatNum
    Numero,    ///< to the digit
    Quantita,  ///< text in the file, a number again in the line while it can be held
    Intero,    ///< a whole number in the line
};

/// The cell of a line table that a column holds.
struct CellaNota
{
    FormaCella Forma = FormaCella::Assente;
    int Colonna = 0;
    QStringView Json = {};  ///< field of a described line
};

/// A column of ParcellaRighe or ParcellaAcconti.
struct ColonnaLinea
{
    QStringView Nome;
    TipoCampo Tipo = TipoCampo::Testo;
    int Caratteri = 0;
    CellaNota Prima = {};    ///< of an honorarium, or of a payment
    CellaNota Seconda = {};  ///< of an expense
};
[[nodiscard]] std::span<const ColonnaLinea> ColonneRighe();
[[nodiscard]] std::span<const ColonnaLinea> ColonneAcconti();

/// One of the cells of a column, by the kind of line.
using CellaDi = CellaNota ColonnaLinea::*;

/// The value of a line's cell as its column holds it, and back.
[[nodiscard]] QVariant CellaPerFile(const ColonnaLinea& Colonna, const CellaNota& Come,
                                    const QVariant& Cella);
[[nodiscard]] QVariant CellaDalFile(const CellaNota& Come, const QVariant& Valore);

/// A table of the note's file, empty.
struct TabellaNota
{
    QString Nome;
    QList<Campo> Colonne;
};
/// The three of them, in the order in which a save copies them.
[[nodiscard]] QList<TabellaNota> TabelleNota();

/// True when a note's file bears the program's number and has a column that this version does not know: a
/// newer one has written it. Files without the number hold whatever other programs have put there.
/// @throws Errore 3078 for a file without the tables of a note
[[nodiscard]] bool HaColonneIgnote(const Database& File);

/// True when a note's file, or a reference database, is from before a column that it must get.
/// @throws Errore as OpenDatabase
[[nodiscard]] bool DaAggiornare(const QString& Percorso);
/// Gives it those columns. @throws Errore as Database::Execute, 3027 on a read-only file
void AggiornaColonne(const QString& Percorso);

/// Reads the row of parameters.
/// @throws Errore 3021 no row, 3265 a column is missing that every file has
void LeggiParametri(const Database& File, NotaLetta& Letta);
