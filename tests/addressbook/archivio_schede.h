// An archive with a field of every type, for the tests of card and search.
#pragma once

#include "platform/database/database.h"
#include "supporto/prova.h"

#include <QDateTime>

inline Campo CampoScheda(const QString& Nome, TipoCampo Tipo, int Size = 0)
{
    return {Nome, Tipo, Size, {}, false};
}

/// Table clienti: Verdi (1), Bianchi (2), Nicolò (3), nobody (4); the first one filled, the last one all
/// Null.
inline Database ArchivioSchede()
{
    using namespace Qt::StringLiterals;
    const Database Db = CreateDatabase(NuovaCartella() + u"DatiStudio.mdb"_s);
    Transazione Tutto(Db);
    Db.CreaTabella(u"clienti"_s, {{u"ID"_s, TipoCampo::Lungo, 0, {}, true},
                                  CampoScheda(u"Nominativo"_s, TipoCampo::Testo, 20),
                                  CampoScheda(u"CodFis"_s, TipoCampo::Testo, 16),
                                  CampoScheda(u"PIva"_s, TipoCampo::Testo, 28),
                                  CampoScheda(u"DataNascita"_s, TipoCampo::Data),
                                  CampoScheda(u"Attivo"_s, TipoCampo::Booleano),
                                  CampoScheda(u"Classe"_s, TipoCampo::Byte),
                                  CampoScheda(u"Anni"_s, TipoCampo::Intero),
                                  CampoScheda(u"Numero"_s, TipoCampo::Lungo),
                                  CampoScheda(u"Saldo"_s, TipoCampo::Valuta),
                                  CampoScheda(u"Peso"_s, TipoCampo::Singolo),
                                  CampoScheda(u"Misura"_s, TipoCampo::Doppio),
                                  CampoScheda(u"Note"_s, TipoCampo::Memo)});
    const QString Nomi = u"INSERT INTO clienti (Nominativo) VALUES (?)"_s;
    for (const QString& Nome : {u"Verdi Anna"_s, u"Bianchi"_s, u"Nicolò"_s})
        Db.Execute(Nomi, {Nome});
    Db.Execute(u"INSERT INTO clienti (Nominativo, Attivo) VALUES (?, ?)"_s, {QVariant(), QVariant()});
    Db.Execute(u"UPDATE clienti SET CodFis=?, PIva=?, DataNascita=?, Attivo=?, Classe=?, Anni=?, Numero=?, "
               "Saldo=?, Peso=?, Misura=?, Note=? WHERE ID=1"_s,
               {u"RSSMRA80A01H501U"_s, u"00743110157"_s, QDate(1980, 1, 1), true, 7, 43, 100000, 1234.5, 12.7,
                -0.25, u"prima riga\nseconda"_s});
    Tutto.Conferma();
    return Db;
}

/// Table controparti: Rossi (1) with the same name in a note, Neri (2) with another one, Gialli (3) with
/// none.
inline void CreaControparti(const Database& Db)
{
    using namespace Qt::StringLiterals;
    Transazione Tutto(Db);
    Db.CreaTabella(u"controparti"_s, {{u"ID"_s, TipoCampo::Lungo, 0, {}, true},
                                      CampoScheda(u"Nominativo"_s, TipoCampo::Testo, 150),
                                      CampoScheda(u"Controp"_s, TipoCampo::Testo, 8)});
    const QString Sql = u"INSERT INTO controparti (Nominativo, Controp) VALUES (?,?)"_s;
    Db.Execute(Sql, {u"Rossi"_s, u"Rossi"_s});
    Db.Execute(Sql, {u"Neri"_s, u"Neri spa"_s});
    Db.Execute(Sql, {u"Gialli"_s, QVariant()});
    Tutto.Conferma();
}
