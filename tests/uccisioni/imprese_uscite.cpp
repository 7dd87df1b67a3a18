// What goes out: documents, clauses, lists, terms, the electronic invoice with its number and its mark.
#include "guasti/fatturabile.h"
#include "uccisioni/fatture.h"
#include "uccisioni/imprese.h"

#include "calculators/agenda.h"
#include "feenote/file/file_prova.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "print/modClausole.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

Parcella NotaPrima()
{
    Parcella Nota = NotaPiena();
    Nota.txtOggetto.Testo = u"prima"_s;
    while (Nota.xDiritti.Righe() < Linee)
        Nota.xDiritti.AggiungiRiga();
    return Nota;
}

QByteArray Descrizione(const QString& Oggetto)
{
    return R"({"categoria":"CIV","autorita":"Tribunale ordinario","valore":"30.000,00","precarica":true,"oggetto":")" +
           Oggetto.toUtf8() + "\"}";
}

/// What a note of the command line says, where all that it is made of is there.
QString DettoPrecaricata(const QString& File)
{
    try {
        const Database Nota = OpenDatabase(File, true);
        return Nota.OpenRecordset(u"ParcellaRighe"_s).RecordCount() < 4
                   ? u"senza righe"_s
                   : Nota.OpenRecordset(u"ParcellaParam"_s).Value(u"Oggetto"_s).toString();
    } catch (const Errore& Guasto) {
        return u"illeggibile: "_s + Guasto.Descrizione;
    }
}

/// A file without what tells one run from the next: times and identifiers.
QByteArray SenzaTempi(const QString& File)
{
    static const QRegularExpression Tempi(
        u"D:\\d{14}[^)]*|\\d{4}-\\d\\d-\\d\\dT[0-9:.+Z-]*|\\d{8}T\\d{6}Z|[0-9a-fA-F]{8}-[0-9a-fA-F-]{27}|<[0-9a-fA-F]{32}>"_s);
    return QString::fromLatin1(Contenuto(File)).remove(Tempi).toLatin1();
}

/// What a command writes where nobody kills it, worked out once.
QByteArray Intera(const Impresa& Una, const QString& Nome)
{
    static QHash<QString, QByteArray> Note;
    if (!Note.contains(Una.Nome)) {
        const QString Altrove = NuovaCartella();
        Una.Prepara(Altrove);
        QStringList Riga = Una.Riga;
        for (QString& Parola : Riga)
            Parola.replace(u"%1"_s, Altrove);
        QProcess Programma;
        Programma.start(ProgrammaDiProva() + u"calcanova-cli"_s, Riga);
        if (!Programma.waitForFinished() || Programma.exitCode() != 0)
            qFatal("the file of a command cannot be made");
        Note[Una.Nome] = SenzaTempi(Altrove + Nome);
    }
    return Note[Una.Nome];
}

/// A command that writes one file over a former one.
Impresa Uscita(const QString& Titolo, const QString& Nome, const QString& Accanto, const QStringList& Riga,
               const std::function<void(const QString& In)>& PosaAccanto)
{
    QStringList Rimane{Nome, Accanto};
    Rimane.sort();
    Impresa Una{.Nome = Titolo,
                .Prepara =
                    [=](const QString& In) {
                        PosaAccanto(In);
                        Posa(In + Nome, "prima");
                    },
                .Fa = {},
                .Difetto = {},
                .Rimane = Rimane,
                .Riga = Riga,
                .SoloChieste = true};
    Una.Difetto = [=](const QString& In) {
        const QByteArray Trovato = SenzaTempi(In + Nome);
        if (Trovato == "prima")
            return QString();
        return Trovato.size() > 100 && Trovato == Intera(Una, Nome) ? QString() : u"a metà"_s;
    };
    Una.Infine = [=](const QString& In) {
        return SenzaTempi(In + Nome) == "prima" ? u"non scritto"_s : QString();
    };
    return Una;
}

Impresa DocumentoScritto(const QString& Fine)
{
    return Uscita(u"documento "_s + Fine, u"n."_s + Fine, u"n.mdb"_s,
                  {u"stampa"_s, u"%1n.mdb"_s, u"0"_s, u"%1n."_s + Fine},
                  [](const QString& In) { ScriviNota(In + u"n.mdb"_s, NotaPrima()); });
}

Impresa Nominativi(const QString& Fine, const QString& Opzione)
{
    return Uscita(
        u"nominativi "_s + Fine, u"nomi."_s + Fine, u"DatiStudio.mdb"_s,
        {u"--archivio"_s, u"%1DatiStudio.mdb"_s, Opzione, u"%1nomi."_s + Fine, u"rubrica"_s, u"clienti"_s},
        [](const QString& In) {
            QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, In + u"DatiStudio.mdb"_s);
            const Database Db = OpenDatabase(In + u"DatiStudio.mdb"_s);
            Transazione Insieme(Db);
            for (int i = 1; i <= Linee; ++i)
                Db.Execute(u"INSERT INTO clienti (ID, Nominativo, Citta) VALUES (?,?,'Lucca')"_s,
                           {i, u"Cliente numero %1"_s.arg(i)});
            Insieme.Conferma();
        });
}

// ---- clauses that the office changes ----------------------------------------------------------------

constexpr QFile::Permissions Altri =
    QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
constexpr auto DelloStudio = "{\\rtf1 le clausole dello studio\\par}";
const QString Chiesta = u"ContrattoPersonaFisica.rtf"_s;
const QString Seconda = u"ContrattoPersonaGiuridica.rtf"_s;
const QString Scritta = u"ResaInformazionePersonaFisica.rtf"_s;

void UsaClausole(const QString& In)
{
    sessione::PercorsoProg = ProgrammaDiProva();
    sessione::UserFolder = In + u"utente/"_s;
}

/// One of the office's own is the delivered one, whole and its user's alone, or not there.
QString DifettoPropria(const QString& In, const QString& Nome)
{
    const QString Propria = In + u"utente/clausole/"_s + Nome;
    if (!EsisteFile(Propria))
        return {};
    if (Contenuto(Propria) != Contenuto(ProgrammaDiProva() + u"doc/"_s + Nome))
        return Nome + u" a metà"_s;
    return QFile::permissions(Propria) & Altri ? Nome + u" di tutti"_s : QString();
}

/// What is printed is whole whatever was left there, and what the office has written stays.
QString DifettoClausole(const QString& In)
{
    UsaClausole(In);
    if (Contenuto(In + u"utente/clausole/"_s + Scritta) != DelloStudio)
        return u"perdute quelle dello studio"_s;
    for (const QString& Nome : {Chiesta, Seconda}) {
        if (const QString Difetto = DifettoPropria(In, Nome); !Difetto.isEmpty())
            return Difetto;
        if (LeggiClausole(FileClausole(Nome)).Esito != EsitoClausole::Lette)
            return Nome + u" non si stampa"_s;
    }
    return {};
}

Impresa ClausoleProprie()
{
    return {.Nome = u"clausole dello studio"_s,
            .Prepara =
                [](const QString& In) {
                    QDir().mkpath(In + u"utente/clausole"_s);
                    Posa(In + u"utente/clausole/"_s + Scritta, DelloStudio);
                },
            .Fa =
                [](const QString& In) {
                    UsaClausole(In);
                    for (const QString& Nome : {Chiesta, Seconda, Scritta})
                        (void)ClausoleDaModificare(Nome);
                },
            .Difetto = DifettoClausole,
            .Rimane = {u"utente"_s, u"utente/clausole"_s, u"utente/clausole/"_s + Chiesta,
                       u"utente/clausole/"_s + Seconda, u"utente/clausole/"_s + Scritta},
            .DaCapo = true,
            .SoloChieste = true};
}

// ---- the calendar's file ----------------------------------------------------------------------------

QList<VoceAgenda> Termini()
{
    QList<VoceAgenda> Voci;
    for (int i = 0; i < Linee; ++i)
        Voci.append({QDate(2026, 12, 1).addDays(i),
                     u"Deposito dell'atto numero %1"_s.arg(i),
                     u"art. 325 c.p.c."_s,
                     u"Rossi"_s,
                     {u"dal 01/11/2026"_s},
                     QString::number(i)});
    return Voci;
}

/// @param Prima there is a former one, which its user has agreed to replace
Impresa Agenda(bool Prima)
{
    const QByteArray Vecchia = Prima ? "prima" : QByteArray();
    return {.Nome = Prima ? u"calendario"_s : u"calendario nuovo"_s,
            .Prepara =
                [=](const QString& In) {
                    Posa(In + u"altro.ics"_s, "altro");
                    if (Prima)
                        Posa(In + u"scadenze.ics"_s, Vecchia);
                },
            .Fa = [](const QString& In) { (void)SalvaIcs(In + u"scadenze"_s, Termini()); },
            .Difetto =
                [=](const QString& In) {
                    if (Contenuto(In + u"altro.ics"_s) != "altro")
                        return u"perduto quello accanto"_s;
                    const QString File = In + u"scadenze.ics"_s;
                    if (EsisteFile(File) == Prima && Contenuto(File) == Vecchia)
                        return QString();
                    static const QByteArray Intero = [] {
                        const QString Altrove = NuovaCartella() + u"intero.ics"_s;
                        Posa(Altrove, ScriviIcs(Termini()));
                        return SenzaTempi(Altrove);
                    }();
                    return SenzaTempi(File) == Intero ? QString() : u"a metà"_s;
                },
            .Rimane = {u"altro.ics"_s, u"scadenze.ics"_s},
            .Infine =
                [=](const QString& In) {
                    return Contenuto(In + u"scadenze.ics"_s) == Vecchia ? u"non scritto"_s : QString();
                },
            .DaCapo = true,
            .SoloChieste = true};
}

// ---- the electronic invoice -------------------------------------------------------------------------

/// Where invoices go that were written whole: they are sent, and their numbers are used up.
QString Spedite(const QString& In)
{
    return In.chopped(1) + u"-spedite/"_s;
}

int Contatore(const QString& In)
{
    return fatture::Contatore(In + u"Calcanova/KR5.ini"_s);
}

QString Segnata(const QString& In)
{
    return fatture::Segnata(In + u"n.mdb"_s);
}

/// A file is whole, its note knows it, and its number is nobody else's; a number that was taken is behind the
/// counter for good.
QString DifettoFattura(const QString& In)
{
    const int Preso = Contatore(In);
    if (Preso < 0 || !Contenuto(In + u"Calcanova/KR5.ini"_s).contains("Via della Prova"))
        return u"impostazioni perdute"_s;
    const QString Nome = Segnata(In);
    if (!EsisteFile(In + u"f.xml"_s))
        return {};
    const QByteArray Xml = Contenuto(In + u"f.xml"_s);
    if (const QString Difetto = fatture::Difetto(Xml, {Nome}, Preso); !Difetto.isEmpty())
        return Difetto;
    const QString Suo = fatture::Progressivo(Xml);
    return EsisteFile(Spedite(In) + Suo) ? u"due volte il numero "_s + Suo : QString();
}

/// What was written is sent; of a note that was marked and whose file is missing the user takes the mark
/// back.
void Spedisci(const QString& In)
{
    QDir().mkpath(Spedite(In));
    if (EsisteFile(In + u"f.xml"_s))
        QFile::rename(In + u"f.xml"_s, Spedite(In) + fatture::Progressivo(Contenuto(In + u"f.xml"_s)));
    if (!Segnata(In).isEmpty())
        Posa(In + u"n.mdb"_s, fatturabile::Fatturabile().Nota);
}

Impresa Fattura()
{
    return {.Nome = u"fattura elettronica"_s,
            .Prepara =
                [](const QString& In) {
                    Posa(In + u"DatiStudio.mdb"_s, fatturabile::Fatturabile().Archivio);
                    Posa(In + u"n.mdb"_s, fatturabile::Fatturabile().Nota);
                    QDir().mkpath(In + u"Calcanova"_s);
                    Posa(In + u"Calcanova/KR5.ini"_s, fatturabile::DelloStudio);
                    QDir(Spedite(In)).removeRecursively();
                },
            .Fa = {},
            .Difetto = DifettoFattura,
            .Rimane = {u"Calcanova"_s, u"Calcanova/KR5.ini"_s, u"DatiStudio.mdb"_s, u"f.xml"_s, u"n.mdb"_s},
            .Riga = {u"--archivio"_s, u"%1DatiStudio.mdb"_s, u"fattura"_s, u"%1n.mdb"_s, u"%1f.xml"_s},
            .Poi = Spedisci,
            .Infine =
                [](const QString& In) { return EsisteFile(In + u"f.xml"_s) ? QString() : u"non scritta"_s; }};
}

}  // namespace

QList<Impresa> ImpreseUscite()
{
    return {
        {u"calcanova-cli crea"_s,
         [](const QString& In) {
             ScriviNota(In + u"n.mdb"_s, NotaPrima());
             ScriviFile(In + u"d.json"_s, Descrizione(u"dopo"_s));
         },
         {},
         [](const QString& In) {
             return NonUna(DettoPrecaricata(In + u"n.mdb"_s), {u"prima"_s, u"dopo"_s});
         },
         {u"d.json"_s, u"n.mdb"_s},
         {u"crea"_s, u"%1d.json"_s, u"%1n.mdb"_s}},
        {u"calcanova-cli stampa"_s,
         [](const QString& In) {
             ScriviNota(In + u"n.mdb"_s, NotaPrima());
             ScriviFile(In + u"n.doc"_s, "prima");
         },
         {},
         [](const QString& In) {
             const QByteArray Trovato = LeggiFile(In + u"n.doc"_s);
             const bool Intero = Trovato.startsWith("{\\rtf") && Trovato.trimmed().endsWith('}');
             return Trovato == "prima" || Intero ? QString() : u"documento a meta'"_s;
         },
         {u"n.doc"_s, u"n.mdb"_s},
         {u"stampa"_s, u"%1n.mdb"_s, u"0"_s, u"%1n.doc"_s},
         {},
         [](const QString& In) {
             return LeggiFile(In + u"n.doc"_s) == "prima" ? u"non scritto"_s : QString();
         }},
        DocumentoScritto(u"txt"_s),
        DocumentoScritto(u"htm"_s),
        DocumentoScritto(u"pdf"_s),
        Nominativi(u"csv"_s, u"--csv"_s),
        Nominativi(u"vcf"_s, u"--vcard"_s),
        Uscita(u"scadenzario csv"_s, u"s.csv"_s, u"n.mdb"_s,
               {u"--csv"_s, u"%1s.csv"_s, u"scadenzario"_s, u"%1"_s},
               [](const QString& In) { ScriviNota(In + u"n.mdb"_s, NotaPrima()); }),
        Uscita(u"termine ics"_s, u"t.ics"_s, u"n.mdb"_s,
               {u"--ics"_s, u"%1t.ics"_s, u"termini"_s, u"01/03/2026"_s, u"30"_s, u"giorni"_s},
               [](const QString& In) { ScriviNota(In + u"n.mdb"_s, NotaPrima()); }),
        ClausoleProprie(),
        Agenda(true),
        Agenda(false),
        Fattura(),
    };
}
