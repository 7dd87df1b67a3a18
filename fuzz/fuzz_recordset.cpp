// A database of whoever made it, through the engine's own door: views, triggers, tables that are none,
// columns that compute, cells of every form. What comes out is values or the program's errors; a reader
// leaves the file as it was, and what is written is read back.
#include "basedati.h"
#include "fonte.h"

#include "platform/database/database.h"

#include <QDate>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimeRighe = 40;

const QByteArray& Sana()
{
    static const QByteArray Letta = [] {
        const QString File = CartellaDiLavoro() + u"sana.mdb"_s;
        {
            const Database Nuovo = CreateDatabase(File);
            Nuovo.CreaTabella(u"clienti"_s, {{u"ID"_s, TipoCampo::Lungo, 0, {}, true},
                                             {u"Nome"_s, TipoCampo::Testo, 30, u"Nome"_s},
                                             {u"Nato"_s, TipoCampo::Data, 0, {}},
                                             {u"Attivo"_s, TipoCampo::Booleano, 0, {}},
                                             {u"Euro"_s, TipoCampo::Doppio, 0, {}},
                                             {u"Appunti"_s, TipoCampo::Memo, 0, {}}});
            Nuovo.CreaIndice(u"clienti"_s, u"Nome"_s, {u"Nome"_s});
            for (int i = 0; i < 5; ++i)
                Nuovo.Execute(u"INSERT INTO clienti (Nome, Nato, Attivo, Euro) VALUES (?,?,?,?)"_s,
                              {u"Nome%1"_s.arg(i), QDate(1960, 1, i + 1), i % 2 == 0, i * 1.5});
            Nuovo.Annota({{u"versione"_s, u"1"_s}});
        }
        return Contenuto(File);
    }();
    return Letta;
}

void ScorriRighe(Recordset& Righe)
{
    const QList<Campo> Colonne = Righe.Campi();
    int Viste = 0;
    for (Righe.MoveFirst(); !Righe.Eof() && Viste < MassimeRighe; Righe.MoveNext(), ++Viste)
        for (const Campo& Colonna : Colonne)
            Riesce([&] { (void)Righe.Value(Colonna.Name).toString().size(); });
    Pretendi(Righe.RecordCount() >= Viste);
}

void CercaRighe(Recordset& Righe, const Campo& Colonna)
{
    const QString Nome = u'[' + Colonna.Name + u']';
    for (const QString& Criterio : {Nome + u" Like '*a*'"_s, Nome + u" = 1"_s, Nome + u" Is Not Null"_s})
        Riesce([&] {
            Righe.FindFirst(Criterio);
            if (!Righe.NoMatch())
                (void)Righe.Value(Colonna.Name);
            Righe.FindLast(Criterio);
        });
    Riesce([&] {
        Righe.ImpostaIndex(Colonna.Name);
        Righe.Seek(u">="_s, u"N"_s);
    });
}

void Leggi(const Database& Base)
{
    for (const QString& Tabella : Base.Tabelle())
        Riesce([&] {
            const QList<Campo> Campi = Base.Campi(Tabella);
            Recordset Righe = Base.OpenRecordset(Tabella);
            ScorriRighe(Righe);
            for (const Campo& Colonna : Campi.first(std::min<qsizetype>(Campi.size(), 3)))
                CercaRighe(Righe, Colonna);
            Pretendi(Base.EsisteTabella(Tabella));
        });
    Riesce([&] { (void)Base.Annotazioni(); });
    for (const QString& Sql :
         {u"SELECT Nome, Nato FROM clienti ORDER BY Nome COLLATE SenzaAccenti"_s,
          u"SELECT group_concat(Nome, char(10)) AS Nomi FROM clienti"_s,
          u"SELECT * FROM clienti WHERE Nato<datevalue('01/01/2000') ORDER BY Nome COLLATE SenzaMaiuscole"_s})
        Riesce([&] {
            Recordset Righe = Base.OpenRecordset(Sql);
            ScorriRighe(Righe);
        });
}

/// The first text column of a table takes a text and gives it back.
void Scrivi(const Database& Base, const QString& Tabella)
{
    Recordset Righe = Base.OpenRecordset(Tabella);
    if (Righe.Eof())
        return;
    const QString Nuovo = u"à'\"%_"_s;
    for (const Campo& Colonna : Righe.Campi()) {
        if (Colonna.Type != TipoCampo::Testo && Colonna.Type != TipoCampo::Memo)
            continue;
        Righe.Edit();
        Righe.ImpostaValue(Colonna.Name, Nuovo);
        const QVariant Posto = Righe.Bookmark();
        Righe.Update();
        Righe.ImpostaBookmark(Posto);
        Pretendi(Righe.Value(Colonna.Name).toString() == Nuovo);
        return;
    }
}

/// A database that its first page has kept with a log of another kind.
bool ConLog(const QByteArray& Byte)
{
    constexpr qsizetype Versioni = 18;
    return Byte.size() > Versioni + 1 && (Byte[Versioni] == 2 || Byte[Versioni + 1] == 2);
}

void LeggiEScrivi(const QString& File)
{
    const QByteArray Prima = Contenuto(File);
    const QByteArray Mendata = QFile::exists(File + u"-journal"_s) ? Risanata(File) : Prima;
    const bool Letta = Riesce([&] { Leggi(OpenDatabase(File, true)); });
    // Behind a log of its own kind the engine brings a file back to the program's. What a journal says was
    // cut off is undone before anything is read.
    const QByteArray Dopo = Contenuto(File);
    Pretendi(ConLog(Prima) || ConLog(Mendata) || Dopo == Mendata || (!Letta && Dopo == Prima));
    if (!Letta)
        return;
    Riesce([&] {
        const Database Base = OpenDatabase(File);
        for (const QString& Tabella : Base.Tabelle())
            Riesce([&] { Scrivi(Base, Tabella); });
        Base.Annota({{u"chiave"_s, u"valore"_s}});
        Pretendi(Base.Annotazioni().value(u"chiave"_s) == u"valore");
    });
}

void Prova(const QByteArray& Dati)
{
    (void)Sana();
    const QString File = PosaDatabase(u"ostile.mdb"_s, Sana(), Dati);
    LeggiEScrivi(File);
    PretendiVicini(File);
    PretendiSolaLettura(File);
}

}  // namespace

BERSAGLIO(fuzz_recordset, Prova);
