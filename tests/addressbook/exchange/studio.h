// The delivered archive in a folder of the test's own, and what stands in it.
#pragma once

#include "addressbook/exchange/colonneimporta.h"
#include "addressbook/exchange/csv.h"
#include "addressbook/exchange/importa.h"
#include "addressbook/exchange/sorgente.h"
#include "platform/database/database.h"
#include "platform/system/file.h"
#include "supporto/prova.h"

#include <QDate>
#include <QFile>

/// An empty archive, as it is delivered.
class Studio
{
public:
    Studio() : Cartella(NuovaCartella()), File(Cartella + QStringLiteral("DatiStudio.mdb"))
    {
        QFile::copy(ProgrammaDiProva() + QStringLiteral("DatiStudio.mdb"), File);
        QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
    }

    [[nodiscard]] QByteArray Byte() const { return LeggiFile(File); }
    void Esegui(const QString& Sql, const QVariantList& Valori = {}) const
    {
        OpenDatabase(File).Execute(Sql, Valori);
    }
    /// The columns that Riempi fills.
    [[nodiscard]] static QStringList Riempite()
    {
        using namespace Qt::StringLiterals;
        return {u"Nominativo"_s,  u"Indirizzo"_s, u"Cap"_s,         u"CodFis"_s, u"PIva"_s,
                u"Telefono"_s,    u"Email"_s,     u"Pec"_s,         u"Note"_s,   u"RapprLegale"_s,
                u"DataNascita"_s, u"Nazione"_s,   u"TipoSoggetto"_s};
    }
    /// A person with the signs that files of rows stumble over, and a company.
    void Riempi() const
    {
        using namespace Qt::StringLiterals;
        Esegui(u"INSERT INTO clienti (Nominativo, Indirizzo, Cap, CodFis, Telefono, Email, Pec, Note, "
               u"DataNascita) "
               "VALUES (?,?,?,?,?,?,?,?,?)"_s,
               {u"=Rossi; \"Nicolò\""_s, u"Via Roma, 1"_s, u"00184"_s, u"RSSNCL80A31D704Z"_s, u"+39 0583"_s,
                u"@a"_s, u"n@pec.it"_s, u"una\ndue"_s, QDate(1980, 1, 31)});
        Esegui(
            u"INSERT INTO clienti (Nominativo, PIva, RapprLegale, Nazione, TipoSoggetto) VALUES ('Alfa Srl', "
            "'00159560366', 'Rossi', 'SM', 'Società')"_s);
    }
    /// Cells of all rows, joined by "|", in the order of their keys.
    [[nodiscard]] QStringList Righe(const QStringList& Colonne,
                                    const QString& Tabella = QStringLiteral("clienti")) const
    {
        QStringList Tutte;
        for (Recordset Una = OpenDatabase(File, true).OpenRecordset(Tabella); !Una.Eof(); Una.MoveNext()) {
            QStringList Celle;
            for (const QString& Colonna : Colonne)
                Celle.append(CStrDi(Una.Value(Colonna)));
            Tutte.append(Celle.join(u'|'));
        }
        return Tutte;
    }
    /// A file of names in the folder.
    QString Scrivi(const QString& Nome, const QByteArray& Contenuto) const
    {
        ScriviFile(Cartella + Nome, Contenuto);
        return Cartella + Nome;
    }

    const QString Cartella;
    const QString File;

private:
    static QString CStrDi(const QVariant& Valore)
    {
        return Valore.typeId() == QMetaType::QDate ? Valore.toDate().toString(QStringLiteral("dd/MM/yyyy"))
                                                   : Valore.toString();
    }
};

/// Rows as a spreadsheet gives them, with the titles in the first one.
inline TabellaEstranea Tabella(const std::vector<QStringList>& Righe)
{
    TabellaEstranea Fatta{.Titoli = Righe.front(), .Righe = {}, .Numeri = {}};
    for (size_t i = 1; i < Righe.size(); ++i) {
        Fatta.Righe.push_back(Righe[i]);
        Fatta.Numeri.push_back(int(i) + 1);
    }
    return Fatta;
}
