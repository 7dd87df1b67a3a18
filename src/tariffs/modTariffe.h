// The reference database of a decree: authorities, brackets, catalogues, variations.
#pragma once

#include "platform/database/database.h"
#include "tariffs/decreto.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

struct Errore;

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
/// Items from this number up stand outside the tariff: a change of the parameters leaves them alone.
constexpr int PrimaVoceFuoriTariffa = 900;
/// Item "Voce non prevista", in every catalogue.
constexpr int VoceLibera = 999;

/// Path of a decree's reference database in the program folder.
[[nodiscard]] QString PercorsoTariffe(const Decreto& Legge);

/// The reference database of a decree, read-only.
/// @throws Errore as OpenDatabase; for a decree that its database names also 3343 when the file is another
///         one's, or an older one. The description of such a decree says what becomes of its notes
[[nodiscard]] Database ApriTariffe(const Decreto& Legge);

/// The rows of a list as far as they could be read, and what stopped the reading, if anything did.
template <class Riga>
struct Letti
{
    QList<Riga> Voci;
    std::shared_ptr<const Errore> Guasto;  ///< null: all were read
};

/// Authorities of a category in display order.
[[nodiscard]] Letti<Autorita> LeggiAutorita(const Decreto& Legge, const QString& Categ);

/// Compatib of an authority: "*", or IDAut values in commas, closed by commas. Empty optional: no such row.
[[nodiscard]] std::optional<QString> LeggiCompatib(const Decreto& Legge, int IDAut, const QString& Categ);

/// Brackets of a category in the table's order. Error 9 stops at the 22nd row.
[[nodiscard]] Letti<ScaglioneValore> LeggiScaglioni(const Decreto& Legge, const QString& Categ);

/// The two catalogues of a category, open, and the key column of the first.
struct Catalogo
{
    Recordset datOno;   ///< honoraria; not open for an unknown category
    Recordset datDir;   ///< expense items
    QString ChiaveOno;  ///< "CodOno" for CIV, "IDOno" for the others
};

/// @param IDAut authority whose rows a civil catalogue shows
/// @throws Errore as Database::OpenRecordset
[[nodiscard]] Catalogo ApriCatalogo(const Decreto& Legge, const QString& Categ, int IDAut);

/// The values of the rights of older tariffs, as a table with its index CodDir set. Nothing reads its rows.
/// @throws Errore as Database::OpenRecordset, 3015 without the index
[[nodiscard]] Recordset ApriDirittiValori(const Decreto& Legge);

/// Present keys of catalogue items by the keys that they had before.
using ChiaviTradotte = QHash<QString, QString>;

/// Catalogues of two categories once had keys in common, so that a line found another category's item under
/// its key. The table ChiaviPrecedenti gives the old keys of a category whose catalogue has them no more.
/// @return empty for a reference database without that table
/// @throws Errore as Database::OpenRecordset
[[nodiscard]] ChiaviTradotte LeggiChiaviPrecedenti(const Decreto& Legge, const QString& Categ);
/// True when the reference database has that table, and keys of its own for each category.
/// @throws Errore as OpenDatabase
[[nodiscard]] bool HaChiaviPrecedenti(const Decreto& Legge);

/// Find criterion of a saved line in its catalogue: key + "=" + code, for CIV also the authority.
/// A code that is no whole number is quoted text.
[[nodiscard]] QString CriterioVoce(const QString& Categ, const QString& ChiaveOno, const QVariant& Codice,
                                   int IDAut);

/// A catalogue amount: the column of bracket `Scaglione` named by its number and "Med", "Min" or "Max".
/// Null is 0. @throws Errore 3265 when the table has no such column
[[nodiscard]] double ImportoCatalogo(const Recordset& Voce, int Scaglione, const QString& Estremo);
/// The same as formula text; Null is empty.
[[nodiscard]] QString FormulaCatalogo(const Recordset& Voce, int Scaglione, const QString& Estremo);
/// True when an item has neither end of its amounts in a bracket: both are Null. The free item, which
/// never has any, is for the caller to leave out. @throws Errore 3265 when the table has no such column
[[nodiscard]] bool SenzaImporto(const Recordset& Voce, int Scaglione);
