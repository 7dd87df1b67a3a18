#include "update/controllotassi.h"

#include "platform/base/errore.h"
#include "platform/database/database.h"
#include "platform/system/file.h"

#include <QDate>
#include <QStringList>

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// A table of the archive: what the calculators read of it.
struct TabellaTassi
{
    QStringView Nome;
    QStringView Colonne;  ///< all of them, parted by commas
    QStringView Indice;   ///< empty: none
};

constexpr std::array Tabelle{
    TabellaTassi{u"InteressiLegali", u"Dal,Al,Tasso", u"Dal"},
    TabellaTassi{u"InteressiMora", u"Dal,Al,Tasso", u"Dal"},
    TabellaTassi{u"IndiciIstat", u"Anno,Mese,Indice", u"Indice"},
    TabellaTassi{u"CoefficientiRaccordo", u"Coefficiente,DataIni_Dal,DataIni_Al,DataFin_Dal,DataFin_Al", u""},
};

using Fini = std::array<QDate, Tabelle.size()>;

/// The last day that a row speaks of; one without an end never ends.
QDate FineRiga(const TabellaTassi& Tabella, const Recordset& Riga)
{
    if (Tabella.Nome == u"IndiciIstat")
        return {Riga.Value(u"Anno"_s).toInt(), Riga.Value(u"Mese"_s).toInt(), 1};
    const QVariant Fine = Riga.Value(Tabella.Nome == u"CoefficientiRaccordo" ? u"DataFin_Al"_s : u"Al"_s);
    const QDate MaiFinito(9999, 12, 31);
    return Fine.isValid() ? Fine.toDate() : MaiFinito;
}

/// The last day of a table; a null date when it has no rows. Reads every cell, so that half a file shows.
QDate FineTabella(const Database& Archivio, const TabellaTassi& Tabella)
{
    const QStringList Colonne = Tabella.Colonne.toString().split(u',');
    Recordset Righe = Archivio.OpenRecordset(Tabella.Nome.toString());
    if (!Tabella.Indice.isEmpty())
        Righe.ImpostaIndex(Tabella.Indice.toString());
    QDate Ultima;
    for (; !Righe.Eof(); Righe.MoveNext()) {
        for (const QString& Colonna : Colonne)
            (void)Righe.Value(Colonna);
        const QDate Fine = FineRiga(Tabella, Righe);
        if (Fine.isValid() && !(Fine <= Ultima))
            Ultima = Fine;
    }
    return Ultima;
}

/// The last days of the four tables. @throws Errore when one is not as it must be
Fini LeggiFini(const QString& File)
{
    const Database Archivio = OpenDatabase(File, true);
    Fini Lette;
    for (size_t i = 0; i < Tabelle.size(); ++i)
        Lette[i] = FineTabella(Archivio, Tabelle[i]);
    return Lette;
}

std::optional<Fini> SeLeggibili(const QString& File)
{
    try {
        return LeggiFini(File);
    } catch (const Errore&) {
        return std::nullopt;
    }
}

/// Archives of another engine are never taken from outside, whatever may open them here.
bool Nativo(const QString& File)
{
    const QByteArray Segno = "SQLite format 3\0"_ba;
    QByteArray Testa;
    LeggiAPezzi(File, [&](QByteArrayView Pezzo) {
        Testa = Pezzo.first(std::min(Pezzo.size(), Segno.size())).toByteArray();
        return false;
    });
    return Testa == Segno;
}

}  // namespace

QString DifettoTassi(const QString& Nuovo, const QString& Presente)
{
    const QString Estraneo = u"il file non è un archivio di tassi"_s;
    if (!Nativo(Nuovo))
        return Estraneo;
    const auto Dopo = SeLeggibili(Nuovo);
    if (!Dopo)
        return Estraneo;
    const auto Prima = SeLeggibili(Presente);
    for (size_t i = 0; i < Tabelle.size(); ++i) {
        const QString Nome = Tabelle[i].Nome.toString();
        if (!(*Dopo)[i].isValid())
            return u"la tabella "_s + Nome + u" è vuota"_s;
        if (Prima && (*Prima)[i].isValid() && (*Dopo)[i] < (*Prima)[i])
            return u"la tabella "_s + Nome + u" finisce prima di quella in uso"_s;
    }
    return {};
}
