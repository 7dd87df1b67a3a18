// What is written into the file of a note where it stands: its state, the mark of its electronic invoice and
// the mark's withdrawal; a file of its own where a backup holds it by another name too; a save over one whose
// last write was cut off.
#include "guasti/scenari.h"

#include "core/sessione.h"
#include "feenote/file/memorianota.h"
#include "feenote/file/modDescrizione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/file/modSalvataggio.h"
#include "feenote/modFatturaXml.h"
#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/database/database.h"
#include "platform/database/recordset.h"
#include "platform/system/messaggi.h"
#include "supporto/prova.h"

#include <QFile>

#include <cstdio>
#include <filesystem>

using namespace Qt::StringLiterals;
using namespace registro;

namespace nellanota {
namespace {

constexpr int Righe = 60;
const QString XmlScritto = u"IT01234567897_00007.xml"_s;

void Usa(const Posto& Dove)
{
    AzzeraSessione();
    sessione::PercorsoProg = ProgrammaDiProva();
    sessione::UserFolder = Dove.Cartella;
}

QString Nota(const Posto& Dove)
{
    return Dove.Cartella + u"nota.mdb"_s;
}

/// The name under which a backup holds it.
QString Salvata(const Posto& Dove)
{
    return Dove.Cartella + u"salvata.mdb"_s;
}

QByteArray Descritta(const QString& Oggetto)
{
    QByteArray Voci;
    for (int i = 0; i < Righe; ++i)
        Voci += QByteArray(i ? "," : "") + R"({"descrizione":"Una riga","imponibili":)" +
                QByteArray::number(100 + i) + '}';
    return R"({"categoria":"CIV","autorita":"Tribunale ordinario","valore":"30.000,00","precarica":true,"cliente":"Rossi","oggetto":")" +
           Oggetto.toUtf8() + R"(","spese":[)" + Voci + "]}";
}

/// A note without a mark and one that bears it, made once.
const QByteArray& Fatta(bool Segnata)
{
    static const auto Fai = [](bool Con) {
        Usa({});
        const QString File = NuovaCartella() + u"nota.mdb"_s;
        Parcella Sua = CreaDaDescrizione(Descritta(u"Prova"_s));
        if (Con)
            SegnaFatturaScritta(Sua, XmlScritto, u"00007"_s);
        ScriviNota(File, Sua);
        return Contenuto(File);
    };
    static const QByteArray Senza = Fai(false);
    static const QByteArray Con = Fai(true);
    return Segnata ? Con : Senza;
}

/// What the note says of its state and its invoice, and that nothing else has changed; nothing where it
/// cannot be read.
std::optional<QString> Detto(const QString& File)
{
    try {
        const Database Aperta = OpenDatabase(File, true);
        const Recordset Controllo = Aperta.OpenRecordset(u"SELECT * FROM pragma_integrity_check"_s);
        const int Spese =
            Aperta.OpenRecordset(u"SELECT * FROM ParcellaRighe WHERE OnoDir='D' AND Descr='Una riga'"_s)
                .RecordCount();
        if (Controllo.Eof() || Controllo.Value(u"integrity_check"_s).toString() != u"ok" || Spese != Righe ||
            Aperta.OpenRecordset(u"ParcellaParam"_s).Value(u"Oggetto"_s).toString() != u"Prova")
            return std::nullopt;
        const MemoriaFile Memoria = LeggiMemoria(Aperta);
        return Memoria.value(u"Stato"_s) + u'/' + Memoria.value(u"FatturaXml.File"_s);
    } catch (const Errore&) {
        return std::nullopt;
    }
}

/// One of the two; the other name holds what it held, whatever becomes of this one.
Trovato Guarda(const Posto& Dove, const QString& Prima, const QString& Nuovo)
{
    if (Detto(Salvata(Dove)) != Prima)
        return Trovato::Rotto;
    const auto Ora = Detto(Nota(Dove));
    return Ora == Nuovo ? Trovato::Nuovo : Ora == Prima ? Trovato::Prima : Trovato::Rotto;
}

/// @param Segnata the note bears the mark before
Scenario InPosto(const QString& Nome, bool Segnata,
                 EsitoStato (*Scrivi)(const Parcella&, const std::function<bool()>&),
                 void (*Cambia)(Parcella& Sua), const QString& Prima, const QString& Nuovo)
{
    return {.Nome = Nome,
            .Attese = {Apri, registro::Scrivi, Sincronizza, Rinomina, Togli, Chiudi, Leggi},
            .Prepara =
                [Segnata](const Posto& Dove) {
                    Posa(Nota(Dove), Fatta(Segnata));
                    std::filesystem::create_hard_link(Nota(Dove).toStdString(), Salvata(Dove).toStdString());
                },
            .Atto =
                [=](const Posto& Dove, const std::function<void()>& Comincia) {
                    Usa(Dove);
                    // The window has read it long before.
                    Parcella Sua;
                    CaricaDati(Sua, Nota(Dove));
                    Cambia(Sua);
                    Comincia();
                    return Svolgi([&] {
                        if (Scrivi(Sua, [] { return true; }) != EsitoStato::Scritto)
                            throw Rifiuto();
                    });
                },
            .Guarda = [=](const Posto& Dove, const Uscita&) { return nellanota::Guarda(Dove, Prima, Nuovo); },
            .Ammessi = {u"(nota|salvata)\\.mdb"_s},
            .Spazza = [](const Posto& Dove) { TogliRestiDiNote(Dove.Cartella); },
            .InBreve = !Segnata,
            // The window says nothing: the note keeps its mark of unsaved changes.
            .SenzaFrase = true};
}

Scenario Separa()
{
    return {.Nome = u"separa-nomi"_s,
            .Attese = {Apri, Sincronizza, Rinomina, Chiudi, Leggi, Data, Permessi},
            .Prepara =
                [](const Posto& Dove) {
                    Posa(Nota(Dove), Fatta(false));
                    QFile::setPermissions(Nota(Dove), QFile::ReadOwner | QFile::WriteOwner);
                    std::filesystem::create_hard_link(Nota(Dove).toStdString(), Salvata(Dove).toStdString());
                },
            .Atto =
                [](const Posto& Dove, const std::function<void()>& Comincia) {
                    Usa(Dove);
                    Comincia();
                    return Svolgi([&] { SeparaNomi(Nota(Dove)); });
                },
            .Guarda =
                [](const Posto& Dove, const Uscita&) {
                    for (const QString& File : {Nota(Dove), Salvata(Dove)})
                        if (Contenuto(File) != Fatta(false) ||
                            QFile::permissions(File) & (QFile::ReadGroup | QFile::ReadOther))
                            return Trovato::Rotto;
                    return std::filesystem::hard_link_count(Nota(Dove).toStdString()) > 1 ? Trovato::Prima
                                                                                          : Trovato::Nuovo;
                },
            .Ammessi = {u"(nota|salvata)\\.mdb"_s},
            .Spazza = [](const Posto& Dove) { TogliRestiDiNote(Dove.Cartella); }};
}

// ---- over a write that was cut off ------------------------------------------------------------------

struct Interrotta
{
    QByteArray Byte;
    QByteArray Giornale;
};

const Interrotta& AMeta()
{
    static const Interrotta Una = [] {
        const QString File = NuovaCartella() + u"nota.mdb"_s;
        Posa(File, Fatta(false));
        Connessione Conn(File, Connessione::Modo::Scrittura);
        Conn.Esegui(u"PRAGMA cache_size=2"_s);
        Conn.Esegui(u"BEGIN IMMEDIATE"_s);
        // What the second one needs room for sends the pages of the first one to the disk.
        Conn.Esegui(u"UPDATE ParcellaRighe SET Descr='UNA RIGA'"_s);
        Conn.Esegui(u"UPDATE ParcellaParam SET Oggetto=printf('%.200000c', 'x')"_s);
        Interrotta Fatto{Contenuto(File), Contenuto(File + u"-journal"_s)};
        if (!Fatto.Byte.contains("UNA RIGA"))
            qFatal("a write that was cut off and has changed nothing");
        Conn.Esegui(u"ROLLBACK"_s);
        return Fatto;
    }();
    return Una;
}

Scenario SuUnGiornale()
{
    return {.Nome = u"nota-su-giornale"_s,
            .Attese = {Apri, registro::Scrivi, Sincronizza, Rinomina, Togli, Chiudi, Leggi},
            .Prepara =
                [](const Posto& Dove) {
                    Posa(Nota(Dove), AMeta().Byte);
                    Posa(Nota(Dove) + u"-journal"_s, AMeta().Giornale);
                },
            .Atto =
                [](const Posto& Dove, const std::function<void()>& Comincia) {
                    Usa(Dove);
                    Parcella Sua = CreaDaDescrizione(Descritta(u"Prova"_s));
                    SegnaFatturaScritta(Sua, XmlScritto, u"00007"_s);
                    Comincia();
                    return Svolgi([&] { ScriviNota(Nota(Dove), Sua); });
                },
            .Guarda =
                [](const Posto& Dove, const Uscita&) {
                    const auto Ora = Detto(Nota(Dove));
                    // Beside the new one a journal of the former would have nothing to do.
                    const bool Resta = EsisteFile(Nota(Dove) + u"-journal"_s);
                    return Ora == u"Fatturata/"_s + XmlScritto ? (Resta ? Trovato::Rotto : Trovato::Nuovo)
                           : Ora == u"Bozza/"_s                ? Trovato::Prima
                                                               : Trovato::Rotto;
                },
            // A journal beside it is what the former one is made whole with.
            .Ammessi = {u"nota\\.mdb(-journal)?"_s},
            .Spazza = [](const Posto& Dove) { TogliRestiDiNote(Dove.Cartella); }};
}

/// A read-only one whose last write was cut off is made whole beside itself before it is read.
Scenario Risanata()
{
    return {.Nome = u"nota-risanata"_s,
            .Attese = {Apri, registro::Scrivi, Sincronizza, Rinomina, Togli, Permessi, Chiudi, Leggi},
            .Prepara =
                [](const Posto& Dove) {
                    Posa(Nota(Dove), AMeta().Byte);
                    Posa(Nota(Dove) + u"-journal"_s, AMeta().Giornale);
                    QFile::setPermissions(Nota(Dove), QFile::ReadOwner);
                },
            .Atto =
                [](const Posto& Dove, const std::function<void()>& Comincia) {
                    Usa(Dove);
                    Comincia();
                    return Svolgi([&] {
                        Parcella Sua;
                        CaricaDati(Sua, Nota(Dove));
                        std::printf("%s\n", qPrintable(Sua.txtOggetto.Testo));
                    });
                },
            .Guarda =
                [](const Posto& Dove, const Uscita& Vista) {
                    if (QFile::permissions(Nota(Dove)) & (QFile::WriteOwner | QFile::WriteOther))
                        return Trovato::Rotto;
                    // A look at it would mend it: the two are looked at elsewhere. The journal may be left
                    // beside a note that is whole already, over which it changes nothing.
                    if (QFile::exists(Nota(Dove) + u"-journal"_s)) {
                        const QString Altrove = Dove.Fuori + u"vista.mdb"_s;
                        Posa(Altrove, Contenuto(Nota(Dove)));
                        Posa(Altrove + u"-journal"_s, Contenuto(Nota(Dove) + u"-journal"_s));
                        return Detto(Altrove) == u"Bozza/" ? Trovato::Prima : Trovato::Rotto;
                    }
                    if (Detto(Nota(Dove)) != u"Bozza/")
                        return Trovato::Rotto;
                    return Vista.Esito != 0 || Vista.Detto == u"Prova\n" ? Trovato::Nuovo : Trovato::Rotto;
                },
            .Ammessi = {u"nota\\.mdb(-journal)?"_s},
            .Spazza = [](const Posto& Dove) { TogliRestiDiNote(Dove.Cartella); },
            .DiPassaggio = true};
}

}  // namespace
}  // namespace nellanota

QList<Scenario> ScenariNellaNota()
{
    using namespace nellanota;
    return {InPosto(
                u"stato-nella-nota"_s, false, ScriviSoloStato,
                [](Parcella& Sua) { Sua.Stato.Stato = StatoNota::Inviata; }, u"Bozza/"_s, u"Inviata/"_s),
            InPosto(
                u"fattura-nella-nota"_s, false, ScriviSoloFattura,
                [](Parcella& Sua) { SegnaFatturaScritta(Sua, XmlScritto, u"00007"_s); }, u"Bozza/"_s,
                u"Fatturata/"_s + XmlScritto),
            InPosto(
                u"fattura-ritirata"_s, true, ScriviSoloFattura,
                [](Parcella& Sua) {
                    Sua.FatturaXml = {};
                    Sua.Stato = StatoDiNuova();
                },
                u"Fatturata/"_s + XmlScritto, u"Bozza/"_s),
            Separa(),
            SuUnGiornale(),
            Risanata()};
}
