// The reference database parcelle.mdb: authorities, brackets, catalogues (D.m. 20 luglio 2012, n. 140).
#pragma once

#include "platform/database/database.h"

#include <QList>
#include <QString>
#include <QVariant>

#include <functional>
#include <optional>

// Category codes; they are also the values of TipoAut.
inline constexpr QStringView Civile = u"CIV";
inline constexpr QStringView Penale = u"PEN";
inline constexpr QStringView Stragiudiziale = u"STR";

/// An authority as the list shows it.
struct Autorita
{
    int IDAut = 0;
    QString DesAut;
    bool PreLoad = false;  ///< its catalogue items are inserted by themselves in an empty note

    friend bool operator==(const Autorita&, const Autorita&) = default;
};

/// A value bracket as the list shows it. Limits in euro, both inclusive.
struct ScaglioneValore
{
    QString DesVal;
    int NumSca = 0;  ///< the n of the catalogue columns nMed, nMin, nMax
    double DaVal = 0.0;
    double AVal = 0.0;
    bool RicValore = false;  ///< the exact value of the case is required

    friend bool operator==(const ScaglioneValore&, const ScaglioneValore&) = default;
};

/// Number of the bracket of undetermined value in the civil table.
constexpr int ScaglioneIndeterminato = 8;
/// Brackets of one matter that a note can hold.
constexpr int MassimoScaglioni = 21;
/// Item "Voce non prevista", in every catalogue.
constexpr int VoceLibera = 999;

/// Path of the reference database in the program folder.
[[nodiscard]] QString PercorsoTariffe();

/// The reference database, read-only. @throws Errore as OpenDatabase
[[nodiscard]] Database ApriTariffe();

/// Authorities of a category in display order. @throws Errore as Database::OpenRecordset
[[nodiscard]] QList<Autorita> LeggiAutorita(const QString& Categ);

/// Compatib of an authority: "*", or IDAut values in commas, closed by commas. Empty optional: no such row.
[[nodiscard]] std::optional<QString> LeggiCompatib(int IDAut, const QString& Categ);

/// Brackets of a category in the table's order, each given to `Aggiungi` as it is read, so that what was
/// read stands when the rest fails. @throws Errore 9 at the 22nd row
void LeggiScaglioni(const QString& Categ, const std::function<void(const ScaglioneValore&)>& Aggiungi);

/// The two catalogues of a category, open, and the key column of the first.
struct Catalogo
{
    Recordset datOno;   ///< honoraria; not open for an unknown category
    Recordset datDir;   ///< expense items
    QString ChiaveOno;  ///< "CodOno" for CIV, "IDOno" for the others
};

/// @param IDAut authority whose rows a civil catalogue shows
/// @throws Errore as Database::OpenRecordset
[[nodiscard]] Catalogo ApriCatalogo(const QString& Categ, int IDAut);

/// Find criterion of a saved line in its catalogue: key + "=" + code, for CIV also the authority.
/// A code that is no whole number is quoted text.
[[nodiscard]] QString CriterioVoce(const QString& Categ, const QString& ChiaveOno, const QVariant& Codice,
                                   int IDAut);

/// A catalogue amount: the column of bracket `Scaglione` named by its number and "Med", "Min" or "Max".
/// Null is 0. @throws Errore 3265 when the table has no such column
[[nodiscard]] double ImportoCatalogo(const Recordset& Voce, int Scaglione, const QString& Estremo);
/// The same as formula text; Null is empty.
[[nodiscard]] QString FormulaCatalogo(const Recordset& Voce, int Scaglione, const QString& Estremo);
