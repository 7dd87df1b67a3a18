// A small archive for the tests of recordsets: four people, one of each awkward kind.
#pragma once

#include "platform/database/database.h"
#include "supporto/prova.h"

#include <filesystem>

/// The same file by another name, as another program has it open: with a connection of its own.
inline Database AltraConnessione(const Database& Db)
{
    const QString Nome = NuovaCartella() + QStringLiteral("altro.mdb");
    std::filesystem::create_hard_link(Db.Percorso().toStdString(), Nome.toStdString());
    return OpenDatabase(Nome);
}

inline Campo Colonna(const QString& Nome, TipoCampo Tipo, int Size = 0)
{
    return {Nome, Tipo, Size, {}, false};
}

/// Table Clienti with the keys 1 to 4 in a new folder.
inline Database ArchivioClienti()
{
    using namespace Qt::StringLiterals;
    const Database Db = CreateDatabase(NuovaCartella() + u"prova.mdb"_s);
    Db.CreaTabella(u"Clienti"_s, {{u"ID"_s, TipoCampo::Lungo, 0, {}, true},
                                  Colonna(u"Nominativo"_s, TipoCampo::Testo, 12),
                                  Colonna(u"Codice"_s, TipoCampo::Testo, 10),
                                  Colonna(u"1Med"_s, TipoCampo::Doppio),
                                  Colonna(u"Nata"_s, TipoCampo::Data),
                                  Colonna(u"Attivo"_s, TipoCampo::Booleano),
                                  Colonna(u"Anni"_s, TipoCampo::Intero)});
    const QString Sql =
        u"INSERT INTO Clienti (Nominativo, Codice, \"1Med\", Nata, Attivo, Anni) VALUES (?,?,?,?,?,?)"_s;
    Transazione Righe(Db);
    Db.Execute(Sql, {u"Verdi"_s, u"05"_s, 10, QDate(1950, 3, 1), true, 3});
    Db.Execute(Sql, {u"bianchi"_s, u"1e5"_s, 2.5, QDate(1961, 4, 2), false, 1});
    Db.Execute(Sql, {u"Àlvari"_s, u"abc"_s, -1, QVariant(), true, 3});
    Db.Execute(Sql, {u"ROSSI"_s, u"7"_s, 0, QDate(2001, 12, 31), false, QVariant()});
    Righe.Conferma();
    return Db;
}
