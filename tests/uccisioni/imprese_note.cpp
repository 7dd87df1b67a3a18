// Notes: written, changed, mended, marked in place, renamed, removed, exported.
#include "feenote/file/file_prova.h"
#include "guasti/posa.h"
#include "uccisioni/imprese.h"

#include "core/modRecenti.h"
#include "core/parametri.h"
#include "feenote/file/memoriastato.h"
#include "feenote/file/modRecupero.h"
#include "feenote/file/modSalvataggio.h"
#include "feenote/finder/modGestione.h"
#include "feenote/modFatturaXml.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "supporto/scrittoreaccess.h"

#include <QFile>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

Parcella NotaDetta(const QString& Detta)
{
    Parcella Nota = NotaPiena();
    Nota.txtOggetto.Testo = Detta;
    while (Nota.xDiritti.Righe() < Linee)
        Nota.xDiritti.AggiungiRiga();
    for (int i = 0; i < Nota.xDiritti.Righe(); ++i)
        Nota.xDiritti(i, 1) = Detta;
    return Nota;
}

/// What a note says, if it says it in every row; otherwise what is wrong with it.
QString DettoDa(const QString& File)
{
    if (!EsisteFile(File))
        return {};
    try {
        const Database Nota = OpenDatabase(File, true);
        const QString Detta = Nota.OpenRecordset(u"ParcellaParam"_s).Value(u"Oggetto"_s).toString();
        int Quante = 0;
        for (Recordset Righe = Nota.OpenRecordset(u"ParcellaRighe"_s); !Righe.Eof(); Righe.MoveNext())
            if (Righe.Value(u"OnoDir"_s).toString() == u"D") {
                ++Quante;
                if (Righe.Value(u"Descr"_s).toString() != Detta)
                    return u"mista"_s;
            }
        return Quante == Linee ? Detta : u"con %1 righe"_s.arg(Quante);
    } catch (const Errore& Guasto) {
        return u"illeggibile: "_s + Guasto.Descrizione;
    }
}

/// Leaves a file as a write that was cut off leaves it: half of it changed, its journal beside it.
void LasciaAMeta(const QString& File)
{
    const QString Giornale = u"-journal"_s;
    const QString Copia = File + u".a-meta"_s;
    {
        const Database Nota = OpenDatabase(File);
        const Transazione Aperta(Nota);
        Nota.Execute(u"PRAGMA cache_size=1"_s);
        // What the second one needs room for sends the pages of the first one to the disk.
        Nota.Execute(u"UPDATE ParcellaRighe SET Descr='UNA RIGA'"_s);
        Nota.Execute(u"UPDATE ParcellaParam SET Oggetto=printf('%.200000c', 'x')"_s);
        if (!LeggiFile(File).contains("UNA RIGA"))
            qFatal("a write that was cut off and has changed nothing");
        QFile::copy(File, Copia);
        QFile::copy(File + Giornale, Copia + Giornale);
    }
    QFile::remove(File);
    QFile::rename(Copia, File);
    QFile::rename(Copia + Giornale, File + Giornale);
}

QString DifettoCopia(const QString& Cartella)
{
    sessione::UserFolder = Cartella;
    for (const CopiaRecupero& Copia : NoteDaRecuperare())
        if (const QString Difetto = NonUna(DettoDa(Copia.File), {u"prima"_s, u"dopo"_s}); !Difetto.isEmpty())
            return Difetto;
    return {};
}

// ---- marked in place --------------------------------------------------------------------------------

/// A note that a backup holds by another name too.
void PreparaCollegata(const QString& In)
{
    ScriviNota(In + u"n.mdb"_s, NotaDetta(u"prima"_s));
    std::filesystem::create_hard_link(QFile::encodeName(In + u"n.mdb"_s).toStdString(),
                                      QFile::encodeName(In + u"salvata.mdb"_s).toStdString());
}

Parcella LettaDa(const QString& File)
{
    Parcella Letta;
    CaricaDati(Letta, File);
    return Letta;
}

void Pretendi(EsitoStato Esito)
{
    if (Esito != EsitoStato::Scritto)
        throw Errore(errori::Accesso);
}

/// The rest of the note as it was, and all that bears the other name.
QString DifettoSegnata(const QString& In, const QString& Voce, const QString& Nuova, bool Finita)
{
    if (const QString Detta = DettoDa(In + u"n.mdb"_s); Detta != u"prima")
        return u"trovato «%1»"_s.arg(Detta);
    const QString Prima = MemoriaDi(In + u"salvata.mdb"_s).value(Voce);
    if (DettoDa(In + u"salvata.mdb"_s) != u"prima" || Prima == Nuova)
        return u"l'altro nome è cambiato"_s;
    const QString Ora = MemoriaDi(In + u"n.mdb"_s).value(Voce);
    return Finita ? NonUna(Ora, {Nuova}) : NonUna(Ora, {Prima, Nuova});
}

const QString VoceStato = u"Stato"_s;
const QString VoceFattura = u"FatturaXml.File"_s;

// ---- another name, none -----------------------------------------------------------------------------

/// As a user who answers what he is asked.
void Rispondi(const QString& Nome)
{
    Messaggi Voce;
    Voce.Box = [](const QString&, int Bandiere, const QString&) {
        return PulsantiDi(Bandiere) == vbYesNo ? vbYes : vbOK;
    };
    Voce.Immissione = [Nome](const QString&, const QString&, const QString&) { return Nome; };
    InstallaMessaggi(std::move(Voce));
}

/// One of the two, with all that it holds.
QString DifettoRinominata(const QString& In)
{
    if (EsisteFile(In + u"n.mdb"_s) && EsisteFile(In + u"m.mdb"_s))
        return u"due volte"_s;
    return NonUna(DettoDa(In + u"n.mdb"_s) + DettoDa(In + u"m.mdb"_s), {u"prima"_s});
}

/// A note of the former program, and what stands beside the one that took its place.
const QByteArray& DiAccess()
{
    static const QByteArray Byte = [] {
        const QString File = NuovaCartella() + u"antica.mdb"_s;
        ScriviNota(File, NotaDetta(u"prima"_s));
        return ScriviAccess(AccessDa(File));
    }();
    return Byte;
}

// ---- deleted in the browser of notes ----------------------------------------------------------------

/// A note that was worked on lately, with all that may lie beside it and is not it: another name of its file,
/// the file that a former program had of it, the invoice, another note.
void PreparaElencata(const QString& In)
{
    PreparaCollegata(In);
    ScriviNota(In + u"m.mdb"_s, NotaDetta(u"prima"_s));
    Posa(In + u"n.mdb.access"_s, DiAccess());
    Posa(In + u"n.xml"_s, "<fattura/>");
    ::SalvaImpostazioni({{u"StudioNome"_s, u"Studio Rossi"_s}});
    for (const QString& Nome : {u"m.mdb"_s, u"n.mdb"_s})
        RicordaRecente({In + Nome, u"Rossi"_s, u"Fattura"_s, 100.0, QDate(2026, 11, 21)});
}

/// As the browser does it, and its user: a line that is left of a note goes when he picks it. No start has
/// mended before what was cut off: another program may have died a moment ago.
void CancellaElencata(const QString& In)
{
    Rispondi({});
    const QString File = In + u"n.mdb"_s;
    if (!EsisteFile(File))
        DimenticaSparita(File);
    else if (!CancellaNota(File, [&] { DimenticaCancellata(File); }))
        throw Errore(errori::Accesso);
    TogliRestiDiNote(In);
}

/// The note is there whole, with its line in the list of the last ones, or gone; whatever else is as it was.
QString DifettoElencata(const QString& In)
{
    ConCasaIn(In);
    if (Impostazione(u"StudioNome"_s) != u"Studio Rossi")
        return u"impostazioni perdute"_s;
    if (Contenuto(In + u"n.mdb.access"_s) != DiAccess() || Contenuto(In + u"n.xml"_s) != "<fattura/>")
        return u"tolto ciò che le sta accanto"_s;
    if (DettoDa(In + u"m.mdb"_s) + DettoDa(In + u"salvata.mdb"_s) != u"primaprima")
        return u"tolta un'altra nota"_s;
    QStringList Ultime;
    for (const NotaRecente& Una : NoteRecenti())
        Ultime += NomeRecente(Una);
    const QString Elenco = Ultime.join(u',');
    const QString Detta = DettoDa(In + u"n.mdb"_s);
    return Detta.isEmpty() ? NonUna(Elenco, {u"n,m"_s, u"m"_s})
                           : NonUna(Detta + u' ' + Elenco, {u"prima n,m"_s});
}

QString DifettoTolta(const QString& In)
{
    SalvaImpostazione(u"Prova"_s, u"1"_s);  // what lies beside the settings goes with the next
    return EsisteFile(In + u"n.mdb"_s) ? u"c'è ancora"_s
           : NoteRecenti().size() != 1 ? u"resta tra le ultime"_s
                                       : QString();
}

/// @param AMeta a write of it was cut off before
Impresa Cancellata(bool AMeta)
{
    return {.Nome = AMeta ? u"nota a meta' cancellata"_s : u"nota cancellata"_s,
            .Prepara =
                [=](const QString& In) {
                    PreparaElencata(In);
                    if (AMeta)
                        LasciaAMeta(In + u"n.mdb"_s);
                },
            .Fa = CancellaElencata,
            .Difetto = DifettoElencata,
            .Rimane = {u"Calcanova"_s, u"Calcanova/KR5.ini"_s, u"m.mdb"_s, u"n.mdb.access"_s, u"n.xml"_s,
                       u"salvata.mdb"_s},
            .Infine = DifettoTolta,
            .DaCapo = true,
            .SoloChieste = true};
}

}  // namespace

QList<Impresa> ImpreseNote()
{
    return {
        {u"nota nuova"_s,
         [](const QString&) {},
         [](const QString& In) { ScriviNota(In + u"n.mdb"_s, NotaDetta(u"dopo"_s)); },
         [](const QString& In) {
             return NonUna(DettoDa(In + u"n.mdb"_s), {u""_s, u"dopo"_s});
         },
         {u"n.mdb"_s}},
        {u"nota cambiata"_s,
         [](const QString& In) { ScriviNota(In + u"n.mdb"_s, NotaDetta(u"prima"_s)); },
         [](const QString& In) { ScriviNota(In + u"n.mdb"_s, NotaDetta(u"dopo"_s)); },
         [](const QString& In) {
             return NonUna(DettoDa(In + u"n.mdb"_s), {u"prima"_s, u"dopo"_s});
         },
         {u"n.mdb"_s}},
        {u"modello di ieri"_s,
         [](const QString& In) {
             ScriviNota(In + u"n.mdb"_s, NotaDetta(u"prima"_s));
             EseguiSu(In + u"n.mdb"_s, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
             ImpostaSolaLettura(In + u"n.mdb"_s, true);
         },
         [](const QString& In) {
             TogliRestiDiNote(In);  // a completed one is not written again, so that the start has to
             Parcella Letta;
             CaricaDati(Letta, In + u"n.mdb"_s);
         },
         [](const QString& In) {
             if (!SolaLettura(In + u"n.mdb"_s))
                 return u"senza il suo attributo"_s;
             return NonUna(DettoDa(In + u"n.mdb"_s), {u"prima"_s});
         },
         {u"n.mdb"_s}},
        {u"modello scritto a meta'"_s,
         [](const QString& In) {
             ScriviNota(In + u"n.mdb"_s, NotaDetta(u"prima"_s));
             LasciaAMeta(In + u"n.mdb"_s);
             ImpostaSolaLettura(In + u"n.mdb"_s, true);
         },
         [](const QString& In) {
             TogliRestiDiNote(In);  // a mended one is not written again
             Parcella Letta;
             CaricaDati(Letta, In + u"n.mdb"_s);
         },
         [](const QString& In) {
             if (!SolaLettura(In + u"n.mdb"_s))
                 return u"senza il suo attributo"_s;
             return NonUna(DettoDa(In + u"n.mdb"_s), {u"prima"_s});
         },
         {u"n.mdb"_s}},
        {.Nome = u"modello salvato"_s,
         .Prepara = [](const QString&) {},
         .Fa =
             [](const QString& In) {
                 TogliRestiDiNote(In);
                 if (!EsisteFile(In + u"m.mdb"_s))  // one that is there is never saved over
                     ScriviNota(In + u"m.mdb"_s, NotaDetta(u"dopo"_s), true);
             },
         .Difetto =
             [](const QString& In) {
                 if (EsisteFile(In + u"m.mdb"_s) && !SolaLettura(In + u"m.mdb"_s))
                     return u"senza il suo attributo"_s;
                 return NonUna(DettoDa(In + u"m.mdb"_s), {u""_s, u"dopo"_s});
             },
         .Rimane = {u"m.mdb"_s},
         .DaCapo = true},
        {.Nome = u"nota di ieri"_s,
         .Prepara =
             [](const QString& In) {
                 ScriviNota(In + u"n.mdb"_s, NotaDetta(u"prima"_s));
                 EseguiSu(In + u"n.mdb"_s, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
             },
         .Fa =
             [](const QString& In) {
                 Parcella Letta;
                 CaricaDati(Letta, In + u"n.mdb"_s);
             },
         .Difetto = [](const QString& In) { return NonUna(DettoDa(In + u"n.mdb"_s), {u"prima"_s}); },
         .Rimane = {u"n.mdb"_s},
         .Infine =
             [](const QString& In) {
                 const Database Nota = OpenDatabase(In + u"n.mdb"_s, true);
                 return Nota.EsisteCampo(u"ParcellaParam"_s, u"SpeseGen"_s) ? QString() : u"non completata"_s;
             },
         .DaCapo = true,
         .SoloChieste = true},
        {u"copia di recupero"_s,
         [](const QString& In) {
             sessione::UserFolder = In;
             AggiornaCopia(NotaDetta(u"prima"_s), 1);
         },
         [](const QString& In) {
             sessione::UserFolder = In;
             AggiornaCopia(NotaDetta(u"prima"_s), 2);
             AggiornaCopia(NotaDetta(u"dopo"_s), 2);
         },
         DifettoCopia,
         {}},
        {.Nome = u"nota su un giornale"_s,
         .Prepara =
             [](const QString& In) {
                 ScriviNota(In + u"n.mdb"_s, NotaDetta(u"prima"_s));
                 LasciaAMeta(In + u"n.mdb"_s);
             },
         .Fa = [](const QString& In) { ScriviNota(In + u"n.mdb"_s, NotaDetta(u"dopo"_s)); },
         .Difetto =
             [](const QString& In) {
                 return NonUna(DettoDa(In + u"n.mdb"_s), {u"prima"_s, u"dopo"_s});
             },
         .Rimane = {u"n.mdb"_s},
         .DaCapo = true,
         .SoloChieste = true},
        {.Nome = u"stato nella nota"_s,
         .Prepara = PreparaCollegata,
         .Fa =
             [](const QString& In) {
                 TogliRestiDiNote(In);
                 Parcella Nota = LettaDa(In + u"n.mdb"_s);
                 Nota.Stato.Stato = StatoNota::Inviata;
                 Pretendi(ScriviSoloStato(Nota, [] { return true; }));
             },
         .Difetto = [](const QString& In) { return DifettoSegnata(In, VoceStato, u"Inviata"_s, false); },
         .Rimane = {u"n.mdb"_s, u"salvata.mdb"_s},
         .Infine = [](const QString& In) { return DifettoSegnata(In, VoceStato, u"Inviata"_s, true); },
         .DaCapo = true},
        {.Nome = u"fattura segnata nella nota"_s,
         .Prepara = PreparaCollegata,
         .Fa =
             [](const QString& In) {
                 TogliRestiDiNote(In);
                 Parcella Nota = LettaDa(In + u"n.mdb"_s);
                 SegnaFatturaScritta(Nota, u"IT01234567897_00007.xml"_s, u"00007"_s);
                 Pretendi(ScriviSoloFattura(Nota, [] { return true; }));
             },
         .Difetto =
             [](const QString& In) {
                 return DifettoSegnata(In, VoceFattura, u"IT01234567897_00007.xml"_s, false);
             },
         .Rimane = {u"n.mdb"_s, u"salvata.mdb"_s},
         .Infine =
             [](const QString& In) {
                 return DifettoSegnata(In, VoceFattura, u"IT01234567897_00007.xml"_s, true);
             },
         .DaCapo = true,
         .SoloChieste = true},
        {.Nome = u"nota rinominata"_s,
         .Prepara = [](const QString& In) { ScriviNota(In + u"n.mdb"_s, NotaDetta(u"prima"_s)); },
         .Fa =
             [](const QString& In) {
                 Rispondi(u"m"_s);
                 if (EsisteFile(In + u"n.mdb"_s) && !RinominaNota(In + u"n.mdb"_s, [](const QString&) {}))
                     throw Errore(errori::Accesso);
             },
         .Difetto = DifettoRinominata,
         .Rimane = {u"m.mdb"_s},
         .DaCapo = true,
         .SoloChieste = true},
        {.Nome = u"modello cancellato"_s,
         .Prepara = [](const QString& In) { ScriviNota(In + u"n.mdb"_s, NotaDetta(u"prima"_s), true); },
         .Fa =
             [](const QString& In) {
                 Rispondi({});
                 if (EsisteFile(In + u"n.mdb"_s) && !CancellaNota(In + u"n.mdb"_s, [] {}))
                     throw Errore(errori::Accesso);
             },
         .Difetto =
             [](const QString& In) {
                 if (EsisteFile(In + u"n.mdb"_s) && !SolaLettura(In + u"n.mdb"_s))
                     return u"senza il suo attributo"_s;
                 return NonUna(DettoDa(In + u"n.mdb"_s), {u""_s, u"prima"_s});
             },
         .Rimane = {},
         .Infine =
             [](const QString& In) { return EsisteFile(In + u"n.mdb"_s) ? u"c'è ancora"_s : QString(); },
         .DaCapo = true,
         .SoloChieste = true},
        Cancellata(false),
        Cancellata(true),
        {.Nome = u"nota di Access"_s,
         .Prepara =
             [](const QString& In) {
                 QFile Nuova(In + u"n.mdb"_s);
                 if (!Nuova.open(QIODevice::WriteOnly) || Nuova.write(DiAccess()) != DiAccess().size())
                     qFatal("the old note cannot be laid out");
             },
         .Fa = [](const QString& In) { ScriviNota(In + u"n.mdb"_s, NotaDetta(u"dopo"_s)); },
         .Difetto =
             [](const QString& In) {
                 const bool Tenuta = EsisteFile(In + u"n.mdb.access"_s);
                 if (Tenuta && LeggiFile(In + u"n.mdb.access"_s) != DiAccess())
                     return u"il file di Access non è più quello"_s;
                 if (LeggiFile(In + u"n.mdb"_s) == DiAccess())
                     return QString();
                 return Tenuta ? NonUna(DettoDa(In + u"n.mdb"_s), {u"dopo"_s}) : u"senza il file di Access"_s;
             },
         .Rimane = {u"n.mdb"_s, u"n.mdb.access"_s},
         .DaCapo = true},
    };
}
