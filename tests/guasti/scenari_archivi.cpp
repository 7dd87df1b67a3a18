// The archive of clients, the companion's archive of invoices, a file made where none is.
#include "guasti/scenari.h"

#include "addressbook/exchange/annullo.h"
#include "addressbook/exchange/colonneimporta.h"
#include "addressbook/exchange/importa.h"
#include "addressbook/modColonneFattura.h"
#include "compagna/archivio.h"
#include "core/sessione.h"
#include "feenote/companion/modPV2.h"
#include "platform/base/errore.h"
#include "platform/database/database.h"
#include "platform/database/recordset.h"
#include "platform/system/file.h"
#include "supporto/prova.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace registro;

namespace {

constexpr int Clienti = 300;

QString NomeDi(int Quale)
{
    return u"Cliente numero %1"_s.arg(Quale, 4, 10, QChar(u'0'));
}

const QByteArray& Archivio()
{
    static const QByteArray Byte = [] {
        const QString File = NuovaCartella() + u"DatiStudio.mdb"_s;
        Posa(File, Contenuto(ProgrammaDiProva() + u"DatiStudio.mdb"_s));
        const Database Db = OpenDatabase(File);
        Transazione Insieme(Db);
        for (int i = 1; i <= Clienti; ++i)
            Db.Execute(u"INSERT INTO clienti (ID, Nominativo, Citta) VALUES (?,?,?)"_s,
                       {i, NomeDi(i), u"Lucca"_s});
        Insieme.Conferma();
        return Contenuto(File);
    }();
    return Byte;
}

QString FileArchivio(const Posto& Dove)
{
    return Dove.Cartella + u"DatiStudio.mdb"_s;
}

/// Opens the archive as the card does and changes one row of it.
int Scheda(const Posto& Dove, const std::function<void()>& Comincia,
           const std::function<void(Recordset&)>& Cambia)
{
    AzzeraSessione();
    Comincia();
    return Svolgi([&] {
        Recordset Righe = OpenDatabase(FileArchivio(Dove)).OpenRecordset(u"clienti"_s);
        Cambia(Righe);
    });
}

/// The rows of the archive: all others as they were, and what a look says of the changed one.
Trovato GuardaArchivio(const Posto& Dove,
                       const std::function<Trovato(const Database& Db, int Quanti)>& Cambiata)
{
    try {
        const Database Db = OpenDatabase(FileArchivio(Dove), true);
        const Recordset Salvi = Db.OpenRecordset(
            u"SELECT ID FROM clienti WHERE Nominativo LIKE 'Cliente numero %' AND ID<>7 AND Citta='Lucca'"_s);
        const Recordset Controllo = Db.OpenRecordset(u"SELECT * FROM pragma_integrity_check"_s);
        if (Salvi.RecordCount() != Clienti - 1 || Controllo.Eof() ||
            Controllo.Value(u"integrity_check"_s).toString() != u"ok")
            return Trovato::Rotto;
        return Cambiata(Db, Db.OpenRecordset(u"clienti"_s).RecordCount());
    } catch (const Errore&) {
        return Trovato::Rotto;
    }
}

Trovato GuardaNuovo(const Posto& Dove, const Uscita&)
{
    return GuardaArchivio(Dove, [](const Database& Db, int Quanti) {
        const int Nuovi =
            Db.OpenRecordset(u"SELECT * FROM clienti WHERE Nominativo='Verdi Anna' AND Citta='Pisa'"_s)
                .RecordCount();
        if (Quanti != Clienti + Nuovi)
            return Trovato::Rotto;
        return Nuovi > 0 ? Trovato::Nuovo : Trovato::Prima;
    });
}

Trovato GuardaCambiato(const Posto& Dove, const Uscita&)
{
    return GuardaArchivio(Dove, [](const Database& Db, int Quanti) {
        const Recordset Riga = Db.OpenRecordset(u"SELECT Nominativo, Citta FROM clienti WHERE ID=7"_s);
        if (Quanti != Clienti || Riga.Eof())
            return Trovato::Rotto;
        const QString Nome =
            Riga.Value(u"Nominativo"_s).toString() + u'/' + Riga.Value(u"Citta"_s).toString();
        if (Nome == NomeDi(7) + u"/Lucca"_s)
            return Trovato::Prima;
        return Nome == u"Verdi Anna/Pisa"_s ? Trovato::Nuovo : Trovato::Rotto;
    });
}

Trovato GuardaTolto(const Posto& Dove, const Uscita&)
{
    return GuardaArchivio(Dove, [](const Database& Db, int Quanti) {
        const bool Manca = Db.OpenRecordset(u"SELECT ID FROM clienti WHERE ID=7"_s).Eof();
        if (Quanti != (Manca ? Clienti - 1 : Clienti))
            return Trovato::Rotto;
        return Manca ? Trovato::Nuovo : Trovato::Prima;
    });
}

const TabellaEstranea& DaImportare()
{
    static const TabellaEstranea Righe = [] {
        TabellaEstranea Tabella;
        Tabella.Titoli = {u"Nominativo"_s, u"Citta"_s};
        Tabella.Righe = {{u"Verdi Anna"_s, u"Pisa"_s}, {u"Neri Ugo"_s, u"Siena"_s}};
        Tabella.Numeri = {2, 3};
        return Tabella;
    }();
    return Righe;
}

void Importa(const Posto& Dove)
{
    const Database Db = OpenDatabase(FileArchivio(Dove));
    ImportaNominativi Opera(Db, u"clienti"_s, DaImportare(),
                            AbbinaColonne(DaImportare().Titoli, Db.Campi(u"clienti"_s)), Doppioni::Salta);
    if (!Opera.Prepara() || !Opera.Scrivi(u"nomi.csv"_s))
        throw Rifiuto();
}

/// An import that is in the archive has its way back, whatever was said of it, and the copy is the archive of
/// before.
Trovato GuardaImportato(const Posto& Dove, const Uscita&)
{
    const QByteArray Copia = Contenuto(FileArchivio(Dove) + u".prima"_s);
    if (!Copia.isEmpty() && Copia != Archivio())
        return Trovato::Rotto;
    return GuardaArchivio(Dove, [&](const Database& Db, int Quanti) {
        const int Nuovi =
            Db.OpenRecordset(u"SELECT * FROM clienti WHERE Nominativo IN ('Verdi Anna','Neri Ugo')"_s)
                .RecordCount();
        if (Quanti != Clienti + Nuovi || Nuovi == 1)
            return Trovato::Rotto;
        if (Nuovi == 0)
            return Trovato::Prima;
        return UltimaImportazione(FileArchivio(Dove)) ? Trovato::Nuovo : Trovato::Rotto;
    });
}

/// An archive with its import, and the way back, made once.
const QList<std::pair<QString, QByteArray>>& Importato()
{
    static const QList<std::pair<QString, QByteArray>> File = [] {
        const Posto Dove{NuovaCartella(), {}};
        Posa(FileArchivio(Dove), Archivio());
        Importa(Dove);
        QList<std::pair<QString, QByteArray>> Tutti;
        for (const QString& Fine : {u""_s, u".prima"_s, u".prima.json"_s})
            Tutti.append({u"DatiStudio.mdb"_s + Fine, Contenuto(FileArchivio(Dove) + Fine)});
        return Tutti;
    }();
    return File;
}

Trovato GuardaFatture(const Posto& Dove, const Uscita&)
{
    try {
        const Database Db = OpenDatabase(Dove.Cartella + u"pratiche.mdb"_s, true);
        const int Altre = Db.OpenRecordset(u"SELECT * FROM Fatture WHERE Rif='P7'"_s).RecordCount();
        const Recordset Sua = Db.OpenRecordset(u"SELECT * FROM Fatture WHERE Rif='P12'"_s);
        if (Altre != 1 || Sua.RecordCount() > 1)
            return Trovato::Rotto;
        if (Sua.Eof())
            return Trovato::Prima;
        return Sua.Value(u"CorriF"_s).toDouble() == 1234.5 && Sua.Value(u"NumF"_s).toString() == u"9"
                   ? Trovato::Nuovo
                   : Trovato::Rotto;
    } catch (const Errore&) {
        return Trovato::Rotto;
    }
}

/// An archive from before the electronic invoice, whose tables get their columns together.
const QByteArray& SenzaColonne()
{
    static const QByteArray Byte = [] {
        const QString File = NuovaCartella() + u"DatiStudio.mdb"_s;
        Posa(File, Archivio());
        const Database Db = OpenDatabase(File);
        for (const QString& Tabella : {u"clienti"_s, u"controparti"_s})
            for (const QString& Colonna : {u"Pec"_s, u"CodDestinatario"_s})
                Db.Execute(u"ALTER TABLE %1 DROP COLUMN %2"_s.arg(Tabella, Colonna));
        return Contenuto(File);
    }();
    return Byte;
}

Trovato GuardaColonne(const Posto& Dove, const Uscita&)
{
    return GuardaArchivio(Dove, [](const Database& Db, int Quanti) {
        const auto Mancano = [&Db](const QString& Tabella) {
            return ColonneFatturaMancanti(Db.Campi(Tabella)).size();
        };
        if (Quanti != Clienti || Mancano(u"clienti"_s) != Mancano(u"controparti"_s))
            return Trovato::Rotto;
        return Mancano(u"clienti"_s) == 0   ? Trovato::Nuovo
               : Mancano(u"clienti"_s) == 2 ? Trovato::Prima
                                            : Trovato::Rotto;
    });
}

void CompilaVerdi(Recordset& Righe)
{
    Righe.ImpostaValue(u"Nominativo"_s, u"Verdi Anna"_s);
    Righe.ImpostaValue(u"Citta"_s, u"Pisa"_s);
    Righe.Update();
}

}  // namespace

QList<Scenario> ScenariArchivi()
{
    const QList<Chiamata> DelMotore{Apri, Scrivi, Sincronizza, Togli, Chiudi, Leggi};
    const auto PosaArchivio = [](const Posto& Dove) { Posa(FileArchivio(Dove), Archivio()); };
    const QStringList Solo{u"DatiStudio\\.mdb"_s};
    QList<Scenario> Tutti;
    Tutti.append({.Nome = u"cliente-nuovo"_s,
                  .Attese = DelMotore,
                  .Prepara = PosaArchivio,
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          return Scheda(Dove, Comincia, [](Recordset& Righe) {
                              Righe.AddNew();
                              CompilaVerdi(Righe);
                          });
                      },
                  .Guarda = GuardaNuovo,
                  .Ammessi = Solo});
    Tutti.append({.Nome = u"cliente-cambiato"_s,
                  .Attese = DelMotore,
                  .Prepara = PosaArchivio,
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          return Scheda(Dove, Comincia, [](Recordset& Righe) {
                              Righe.FindFirst(u"ID = 7"_s);
                              Righe.Edit();
                              CompilaVerdi(Righe);
                          });
                      },
                  .Guarda = GuardaCambiato,
                  .Ammessi = Solo,
                  .InBreve = true});
    Tutti.append({.Nome = u"cliente-tolto"_s,
                  .Attese = DelMotore,
                  .Prepara = PosaArchivio,
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          return Scheda(Dove, Comincia, [](Recordset& Righe) {
                              Righe.FindFirst(u"ID = 7"_s);
                              if (!Righe.NoMatch())
                                  Righe.Delete();
                          });
                      },
                  .Guarda = GuardaTolto,
                  .Ammessi = Solo});
    Tutti.append({.Nome = u"colonne-fattura"_s,
                  .Attese = DelMotore,
                  .Prepara = [](const Posto& Dove) { Posa(FileArchivio(Dove), SenzaColonne()); },
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          AzzeraSessione();
                          sessione::ArchivioCliCon = FileArchivio(Dove);
                          Comincia();
                          return Svolgi(AggiungiColonneFattura);
                      },
                  .Guarda = GuardaColonne,
                  .Ammessi = Solo});
    Tutti.append({.Nome = u"importa"_s,
                  .Attese = DelMotore + QList{Rinomina},
                  .Prepara = PosaArchivio,
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          AzzeraSessione();
                          Comincia();
                          return Svolgi([&] { Importa(Dove); });
                      },
                  .Guarda = GuardaImportato,
                  .Ammessi = {u"DatiStudio\\.mdb(\\.prima(\\.2)?(\\.json)?)?"_s}});
    Tutti.append({.Nome = u"annulla-importa"_s,
                  .Attese = {Apri, Sincronizza, Rinomina, Togli, Chiudi, Leggi},
                  .Prepara =
                      [](const Posto& Dove) {
                          for (const auto& [Nome, Byte] : Importato())
                              Posa(Dove.Cartella + Nome, Byte);
                      },
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          AzzeraSessione();
                          Comincia();
                          return Svolgi([&] {
                              if (Contenuto(FileArchivio(Dove)) != Archivio())
                                  AnnullaImportazione(FileArchivio(Dove));
                          });
                      },
                  .Guarda =
                      [](const Posto& Dove, const Uscita&) {
                          const QByteArray Byte = Contenuto(FileArchivio(Dove));
                          if (Byte == Archivio())
                              return Trovato::Nuovo;
                          const bool Intero = Byte == Importato()[0].second &&
                                              Contenuto(FileArchivio(Dove) + u".prima"_s) == Archivio();
                          return Intero ? Trovato::Prima : Trovato::Rotto;
                      },
                  .Ammessi = {u"DatiStudio\\.mdb(\\.prima(\\.2)?(\\.json)?|\\.chiavi)?"_s},
                  .Spazza = [](const Posto& Dove) { TogliRestiDiImportazioni(FileArchivio(Dove)); }});
    Tutti.append(
        {.Nome = u"fattura"_s,
         .Attese = DelMotore,
         .Prepara = [](const Posto& Dove) { CreaArchivioPratiche(Dove.Cartella + u"pratiche.mdb"_s); },
         .Atto =
             [](const Posto& Dove, const std::function<void()>& Comincia) {
                 AzzeraSessione();
                 sessione::ArchivioPrat = Dove.Cartella + u"pratiche.mdb"_s;
                 sessione::RichiestaPV2.ID = u"P12"_s;
                 MemorizzaUltimaStampa({1234.5, u"9"_s, u"22/11/2026"_s, false});
                 Comincia();
                 return Svolgi([] { SalvaFatturaPV2(3); });
             },
         .Guarda = GuardaFatture,
         .Ammessi = {u"pratiche\\.mdb"_s}});
    Tutti.append({.Nome = u"primo-archivio"_s,
                  .Attese = {Apri, Scrivi, Sincronizza, Collega, Chiudi},
                  .Prepara = [](const Posto&) {},
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          Comincia();
                          return Svolgi([&] { (void)CreaFile(FileArchivio(Dove), Archivio()); });
                      },
                  .Guarda =
                      [](const Posto& Dove, const Uscita&) {
                          if (!EsisteFile(FileArchivio(Dove)))
                              return Trovato::Prima;
                          return Contenuto(FileArchivio(Dove)) == Archivio() ? Trovato::Nuovo
                                                                             : Trovato::Rotto;
                      },
                  .Ammessi = Solo});
    return Tutti;
}
