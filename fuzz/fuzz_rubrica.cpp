// The law office's archive, which may be anybody's: the browser's columns and texts, the card, the names that
// are offered while one is typed, the client of a note.
#include "basedati.h"
#include "fonte.h"

#include "addressbook/elenconomi.h"
#include "addressbook/modClienti.h"
#include "addressbook/modRubrica.h"
#include "addressbook/modScheda.h"
#include "core/sessione.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimeRighe = 30;
constexpr int MassimeLetture = 50;

const QByteArray& Sana()
{
    static const QByteArray Letta = [] {
        const QString File = Posa(u"studio.mdb"_s, Contenuto(CartellaCostruita() + u"DatiStudio.mdb"_s));
        {
            const Database Base = OpenDatabase(File);
            for (const QString& Tabella : {u"clienti"_s, u"controparti"_s}) {
                Recordset Righe = Base.OpenRecordset(Tabella);
                for (const QString& Nome : {u"Rossi Maria"_s, u"S.p.A. \"Uno\""_s, u"Però"_s}) {
                    Righe.AddNew();
                    Righe.ImpostaValue(u"Nominativo"_s, Nome);
                    Righe.Update();
                }
            }
        }
        return Contenuto(File);
    }();
    return Letta;
}

void Sfoglia(const Database& Base, const QString& Tabella)
{
    const QList<Campo> Campi = Base.Campi(Tabella);
    const QList<ColonnaRubrica> Colonne = ColonneRubrica(Campi);
    Recordset Righe = Base.OpenRecordset(SqlRubrica(Tabella));
    int Viste = 0;
    for (; !Righe.Eof() && Viste < MassimeRighe; Righe.MoveNext(), ++Viste) {
        Riesce([&] { (void)ValoriScelti(Righe, Colonne); });
        for (const Campo& Uno : Campi)
            Riesce([&] { (void)ValoreScheda(Uno, TestoScheda(Righe.Value(Uno.Name))); });
        for (const ColonnaRubrica& Una : Colonne)
            Riesce([&] { (void)TestoCella(Righe.Value(Una.Nome), Una); });
    }
    for (const ColonnaRubrica& Una : Colonne)
        Riesce([&] { (void)Base.OpenRecordset(SqlRubrica(Tabella, Una, true)).RecordCount(); });
}

/// A card writes what is typed into every field, and its row is there afterwards.
void ScriviRiga(const Database& Base, const QString& Tabella)
{
    Recordset Righe = Base.OpenRecordset(Tabella);
    const int Prima = Righe.RecordCount();
    Righe.AddNew();
    for (const Campo& Uno : Base.Campi(Tabella))
        if (!Uno.Contatore)
            Riesce([&] { ScriviScheda(Righe, Uno, u"1/2/1990"_s); });
    Righe.Update();
    Pretendi(Righe.RecordCount() == Prima + 1);
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    sessione::ArchivioCliCon = PosaDatabase(u"DatiStudio.mdb"_s, Sana(), Dati);
    for (const int Chiave : {1, 2, -1}) {
        Riesce([&] { (void)CercaCliente(Chiave); });
        Riesce([&] { (void)CercaControparte(Chiave, u"Nominativo"_s); });
        Riesce([&] {
            if (const auto Letto = LeggiCliente(Chiave))
                (void)ESocieta(*Letto);
        });
    }
    for (const QString& Tabella : {u"clienti"_s, u"controparti"_s}) {
        ElencoNomi Nomi(Tabella);
        Nomi.Segui();
        for (int i = 0; i < MassimeLetture && Nomi.Avanza(); ++i) {
        }
        constexpr int Massimo = 8;
        Pretendi(Nomi.Proponi(u"ro"_s, Massimo).size() <= Massimo);
    }
    Riesce([&] {
        const Database Base = OpenDatabase(sessione::ArchivioCliCon);
        for (const QString& Tabella : {u"clienti"_s, u"controparti"_s}) {
            Riesce([&] { Sfoglia(Base, Tabella); });
            Riesce([&] { ScriviRiga(Base, Tabella); });
        }
    });
}

}  // namespace

BERSAGLIO(fuzz_rubrica, Prova);
