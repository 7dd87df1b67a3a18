// What the tests of imports into the archive share.
#pragma once

#include "studio.h"

inline const TabellaEstranea Tre =
    Tabella({{QStringLiteral("Cognome"), QStringLiteral("Nome"), QStringLiteral("CF"),
              QStringLiteral("P.IVA"), QStringLiteral("Nato il"), QStringLiteral("Colore")},
             {QStringLiteral("Rossi"),
              QStringLiteral("Mario"),
              QStringLiteral("RSSMRA80A01H501U"),
              {},
              QStringLiteral("01/01/1980"),
              QStringLiteral("blu")},
             {QStringLiteral("Alfa Srl"), {}, {}, QStringLiteral("00159560366"), {}, {}},
             {{}, {}, {}, {}, QStringLiteral("02/02/1980"), {}},
             {QStringLiteral("Verdi"), QStringLiteral("Anna"), {}, {}, QStringLiteral("31/02/1980"), {}}});

/// An office and imports into its archive.
class BancoImporta
{
protected:
    [[nodiscard]] ImportaNominativi Nuovo(const TabellaEstranea& Da, Doppioni Modo = Doppioni::Salta,
                                          const QString& In = QStringLiteral("clienti")) const
    {
        const Database Db = OpenDatabase(S->File);
        return {Db, In, Da, AbbinaColonne(Da.Titoli, Db.Campi(In)), Modo};
    }
    void Importa(const TabellaEstranea& Da, Doppioni Modo = Doppioni::Salta,
                 const QString& In = QStringLiteral("clienti")) const
    {
        ImportaNominativi Opera = Nuovo(Da, Modo, In);
        QVERIFY(Opera.Prepara());
        QVERIFY(Opera.Scrivi(QStringLiteral("nomi.csv")));
    }
    std::unique_ptr<Studio> S;
};
