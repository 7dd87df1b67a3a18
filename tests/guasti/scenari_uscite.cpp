// Lists and terms for other programs, reports, clauses of the office's own, what a mail takes along, the
// logo, what the program remembers by itself.
#include "guasti/scenari.h"

#include "addressbook/exchange/notevecchie.h"
#include "calculators/agenda.h"
#include "core/impostazioni.h"
#include "core/modInvii.h"
#include "core/modLogo.h"
#include "core/modRecenti.h"
#include "core/parametri.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/database/database.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "print/modClausole.h"
#include "supporto/prova.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <ctime>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace registro;

namespace uscite {
namespace {

const QList<Chiamata> DiUnFile{Apri, Scrivi, Sincronizza, Rinomina, Chiudi, Permessi};
constexpr QFile::Permissions DegliAltri =
    QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
constexpr auto DiPrima = "quello di prima\n";

// ---- commands that write one file over a former one -------------------------------------------------

/// Bytes without the moment at which they were written.
QByteArray SenzaMomento(const QByteArray& Byte)
{
    static const QRegularExpression Momento(u"\\d{8}T\\d{6}Z|\\d\\d/\\d\\d/\\d{4} \\d\\d:\\d\\d"_s);
    return QString::fromUtf8(Byte).remove(Momento).toUtf8();
}

void PosaNominativi(const Posto& Dove)
{
    static const QByteArray Byte = [] {
        const QString File = NuovaCartella() + u"DatiStudio.mdb"_s;
        Posa(File, Contenuto(ProgrammaDiProva() + u"DatiStudio.mdb"_s));
        const Database Db = OpenDatabase(File);
        Transazione Insieme(Db);
        for (int i = 1; i <= 200; ++i)
            Db.Execute(u"INSERT INTO clienti (ID, Nominativo, Citta) VALUES (?,?,'Forlì')"_s,
                       {i, u"Cliente numero %1"_s.arg(i)});
        Insieme.Conferma();
        return Contenuto(File);
    }();
    Posa(Dove.Fuori + u"DatiStudio.mdb"_s, Byte);
}

/// @param Riga what comes behind the options of the program; "%1" is the file
Scenario DelComando(const QString& Nome, const QString& File, const QStringList& Riga,
                    const std::function<void(const Posto&)>& Accanto)
{
    const auto Giusto = std::make_shared<QByteArray>();
    return {
        .Nome = Nome,
        .Attese = DiUnFile,
        .Prepara =
            [=](const Posto& Dove) {
                Accanto(Dove);
                Posa(Dove.Cartella + File, DiPrima);
                QFile::setPermissions(Dove.Cartella + File, QFile::ReadOwner | QFile::WriteOwner);
            },
        .Comando =
            [=](const Posto& Dove) {
                QStringList Parole{ProgrammaDiProva() + u"calcanova-cli"_s, u"--programma"_s,
                                   ProgrammaDiProva(), u"--utente"_s, Dove.Fuori};
                for (const QString& Parola : Riga)
                    Parole +=
                        QString(Parola).replace(u"%1"_s, Dove.Cartella + File).replace(u"%2"_s, Dove.Fuori);
                return Parole;
            },
        .Guarda =
            [=](const Posto& Dove, const Uscita& Vista) {
                const QByteArray Byte = SenzaMomento(Contenuto(Dove.Cartella + File));
                // The first one, without a fault, says what the file is.
                if (Giusto->isEmpty() && Vista.Conti.Guasti == 0)
                    *Giusto = Byte;
                if (QFile::permissions(Dove.Cartella + File) & DegliAltri)
                    return Trovato::Rotto;
                if (Byte == DiPrima)
                    return Trovato::Prima;
                return Byte == *Giusto && Byte.size() > 100 ? Trovato::Nuovo : Trovato::Rotto;
            },
        .Ammessi = {QRegularExpression::escape(File)},
        .DicePerche = true};
}

/// A note for the finder, made by the program.
void PosaNota(const Posto& Dove)
{
    static const QByteArray Byte = [] {
        const QString Cartella = NuovaCartella();
        const QString Comando =
            u"\"%1calcanova-cli\" --programma \"%1\" --utente \"%2\" crea \"%3\" \"%2nota.mdb\" >\"%2detto\""_s
                .arg(ProgrammaDiProva(), Cartella, SorgenteDiProva(u"dati/esempi/civile.json"_s));
        if (std::system(QFile::encodeName(Comando).constData()) != 0)
            qFatal("the note of the list cannot be made");
        return Contenuto(Cartella + u"nota.mdb"_s);
    }();
    Posa(Dove.Fuori + u"nota.mdb"_s, Byte);
}

// ---- acts -------------------------------------------------------------------------------------------

void Usa(const Posto& Dove)
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(Dove.Cartella.chopped(1)));
    qputenv("XDG_DATA_HOME", QFile::encodeName(Dove.Cartella + u"dati"_s));
    AzzeraSessione();
    sessione::PercorsoProg = ProgrammaDiProva();
    sessione::UserFolder = Dove.Cartella;
}

/// A file that one act writes over a former one.
Scenario DiUnAtto(const QString& Nome, const QString& File, const QByteArray& Nuovo,
                  const std::function<void(const QString& Percorso)>& Fai)
{
    return {.Nome = Nome,
            .Attese = DiUnFile,
            .Prepara =
                [=](const Posto& Dove) {
                    Posa(Dove.Cartella + File, DiPrima);
                    QFile::setPermissions(Dove.Cartella + File, QFile::ReadOwner | QFile::WriteOwner);
                },
            .Atto =
                [=](const Posto& Dove, const std::function<void()>& Comincia) {
                    Usa(Dove);
                    Comincia();
                    return Svolgi([&] { Fai(Dove.Cartella + File); });
                },
            .Guarda =
                [=](const Posto& Dove, const Uscita&) {
                    const QByteArray Byte = SenzaMomento(Contenuto(Dove.Cartella + File));
                    if (QFile::permissions(Dove.Cartella + File) & DegliAltri)
                        return Trovato::Rotto;
                    if (Byte == DiPrima)
                        return Trovato::Prima;
                    return Byte == SenzaMomento(Nuovo) ? Trovato::Nuovo : Trovato::Rotto;
                },
            .Ammessi = {QRegularExpression::escape(File)}};
}

QList<VoceAgenda> Termini()
{
    QList<VoceAgenda> Voci;
    for (int i = 0; i < 20; ++i)
        Voci.append({QDate(2026, 12, 1).addDays(i),
                     u"Deposito dell'atto numero %1"_s.arg(i),
                     u"art. 325 c.p.c."_s,
                     u"Rossi"_s,
                     {u"dal 01/11/2026"_s},
                     QString::number(i)});
    return Voci;
}

QString Copiate()
{
    QList<EsitoNota> Esiti;
    for (int i = 0; i < 200; ++i)
        Esiti.append({u"nota %1.mdb"_s.arg(i), i % 3 != 0, i % 3 ? QString() : u"c'è già"_s});
    return ResocontoNote(u"vecchie"_s, u"nuove"_s, Esiti);
}

// ---- clauses of the office's own --------------------------------------------------------------------

const QString NomeDelleClausole = u"ContrattoPersonaFisica.rtf"_s;

Scenario ClausoleProprie()
{
    return {.Nome = u"clausole-proprie"_s,
            .Attese = {Apri, Scrivi, Sincronizza, Collega, Chiudi, Permessi, registro::Cartella},
            .Prepara = [](const Posto&) {},
            .Atto =
                [](const Posto& Dove, const std::function<void()>& Comincia) {
                    Usa(Dove);
                    Comincia();
                    return Svolgi([] { (void)ClausoleDaModificare(NomeDelleClausole); });
                },
            .Guarda =
                [](const Posto& Dove, const Uscita&) {
                    const QString File = Dove.Cartella + u"clausole/"_s + NomeDelleClausole;
                    if (!EsisteFile(File))
                        return Trovato::Prima;
                    return Contenuto(File) == Contenuto(ProgrammaDiProva() + u"doc/"_s + NomeDelleClausole) &&
                                   !(QFile::permissions(File) & DegliAltri)
                               ? Trovato::Nuovo
                               : Trovato::Rotto;
                },
            .Ammessi = {u"clausole(/ContrattoPersonaFisica\\.rtf)?"_s}};
}

// ---- what a mail takes along ------------------------------------------------------------------------

const QByteArray Allegato = "%PDF-1.4\n" + QByteArray(150'000, 'x') + "%%EOF\n";

QString Invii(const Posto& Dove)
{
    return Dove.Cartella + u"dati/Calcanova/invii/"_s;
}

/// Two hours later.
void SpazzaDopo(const Posto& Dove)
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(Dove.Cartella + u"dati"_s));
    const time_t Allora = ::time(nullptr) - 7200;
    const std::array<timespec, 2> Quando{timespec{Allora, 0}, timespec{Allora, 0}};
    for (const QString& Nome : NomiDentro(Invii(Dove)))
        ::utimensat(AT_FDCWD, QFile::encodeName(Invii(Dove) + Nome).constData(), Quando.data(), 0);
    SpazzaInvii();
}

/// A document whose mark says that it is complete is, and what was begun goes some day.
Scenario Invio()
{
    return {.Nome = u"allegato"_s,
            .Attese = DiUnFile + QList{registro::Cartella},
            .Prepara = [](const Posto&) {},
            .Atto =
                [](const Posto& Dove, const std::function<void()>& Comincia) {
                    Usa(Dove);
                    Comincia();
                    return Svolgi([] {
                        (void)ScriviInvio(u"Parcella Rossi.pdf"_s, [](const QString& File) {
                            ScriviFile(File, Allegato, Lettori::Cartella);
                        });
                    });
                },
            .Guarda =
                [](const Posto& Dove, const Uscita&) {
                    Trovato Stato = Trovato::Prima;
                    for (const QString& Nome : NomiDentro(Invii(Dove))) {
                        const QString Qui = Invii(Dove) + Nome + u'/';
                        const QByteArray Byte = Contenuto(Qui + u"Parcella Rossi.pdf"_s);
                        const bool Segnato = Contenuto(Qui + u".inviato"_s).contains('\n');
                        if ((!Byte.isEmpty() && Byte != Allegato) || (Segnato && Byte != Allegato))
                            return Trovato::Rotto;
                        if (Segnato)
                            Stato = Trovato::Nuovo;
                    }
                    return Stato;
                },
            .Ammessi = {u"dati(/Calcanova(/invii(/[0-9-]+(/(\\.inviato|Parcella Rossi\\.pdf))?)?)?)?"_s},
            .Spazza = SpazzaDopo,
            // It serves the mail alone.
            .SenzaPromessa = true};
}

// ---- the logo ---------------------------------------------------------------------------------------

QByteArray Figura(char Riempimento)
{
    return "\x89PNG\r\n\x1a\n" + QByteArray(60'000, Riempimento);
}

/// The settings name one that is there, whole.
Scenario Logo()
{
    return {.Nome = u"logo"_s,
            .Attese = DiUnFile + QList{Togli},
            .Prepara =
                [](const Posto& Dove) {
                    Usa(Dove);
                    const QString Prima = logo::Conserva(Figura('p'));
                    SalvaImpostazione(chiavi::LogoImpronta.toString(), Prima);
                    ImpostaDataFile(logo::File(Prima), QDateTime::currentDateTime().addDays(-2));
                },
            .Atto =
                [](const Posto& Dove, const std::function<void()>& Comincia) {
                    Usa(Dove);
                    Comincia();
                    return Svolgi([] {
                        const QString Nuovo = logo::Conserva(Figura('d'));
                        SalvaImpostazione(chiavi::LogoImpronta.toString(), Nuovo);
                        logo::TogliAltri(Nuovo);
                    });
                },
            .Guarda =
                [](const Posto& Dove, const Uscita&) {
                    Usa(Dove);
                    const auto Letto = logo::Leggi(Impostazione(chiavi::LogoImpronta.toString()));
                    if (!Letto || DannoFalso(Dove))
                        return Trovato::Rotto;
                    return *Letto == Figura('d')   ? Trovato::Nuovo
                           : *Letto == Figura('p') ? Trovato::Prima
                                                   : Trovato::Rotto;
                },
            .Ammessi = {u"Calcanova(/KR5\\.ini(\\.danno)?)?"_s,
                        u"dati(/Calcanova(/logo-(%1|%2)\\.png)?)?"_s.arg(
                            logo::Impronta(Figura('p')).left(16), logo::Impronta(Figura('d')).left(16))}};
}

// ---- what the program remembers ---------------------------------------------------------------------

constexpr auto Deposito = "[Parametri]\niban=IT60X0542811101000000123456\nmainwidth=9000\n";

QString FileDeposito(const Posto& Dove)
{
    return Dove.Cartella + u"Calcanova/KR5.ini"_s;
}

NotaRecente Recente(const QString& Nome)
{
    return {.Percorso = u"/studio/"_s + Nome + u".mdb"_s,
            .Cliente = u"Rossi"_s,
            .Documento = u"Fattura"_s,
            .Netto = 100,
            .Data = QDate(2026, 11, 21)};
}

/// @param Prima what is in the store besides
/// @param Ce true for the new state, by what the store says
Scenario Ricordata(const QString& Nome, const std::function<void()>& Prima, const std::function<void()>& Fai,
                   const std::function<Trovato()>& Ce)
{
    return {.Nome = Nome,
            .Attese = {Apri, Scrivi, Sincronizza, Rinomina, Chiudi},
            .Prepara =
                [=](const Posto& Dove) {
                    QDir().mkpath(Dove.Cartella + u"Calcanova"_s);
                    Posa(FileDeposito(Dove), Deposito);
                    Usa(Dove);
                    Prima();
                },
            .Atto =
                [=](const Posto& Dove, const std::function<void()>& Comincia) {
                    Usa(Dove);
                    Comincia();
                    return Svolgi(Fai);
                },
            .Guarda =
                [=](const Posto& Dove, const Uscita&) {
                    Usa(Dove);
                    if (!Contenuto(FileDeposito(Dove)).contains("IT60X0542811101000000123456") ||
                        DannoFalso(Dove))
                        return Trovato::Rotto;
                    return Ce();
                },
            .Ammessi = {u"Calcanova(/KR5\\.ini(\\.danno)?)?"_s},
            .Spazza =
                [](const Posto& Dove) {
                    Usa(Dove);
                    SalvaImpostazione(u"Prova"_s,
                                      u"1"_s);  // what lies beside the settings goes with the next
                }};
}

QStringList NomiRecenti()
{
    QStringList Nomi;
    for (const NotaRecente& Una : NoteRecenti())
        Nomi += NomeRecente(Una);
    return Nomi;
}

Trovato Fra(const QStringList& Ora, const QStringList& Prima, const QStringList& Nuovo)
{
    return Ora == Nuovo ? Trovato::Nuovo : Ora == Prima ? Trovato::Prima : Trovato::Rotto;
}

}  // namespace
}  // namespace uscite

QList<Scenario> ScenariUscite()
{
    using namespace uscite;
    QList<Scenario> Tutti;
    const QStringList Rubrica{u"--archivio"_s, u"%2DatiStudio.mdb"_s};
    Tutti.append(DelComando(u"rubrica-csv"_s, u"nomi.csv"_s,
                            Rubrica + QStringList{u"--csv"_s, u"%1"_s, u"rubrica"_s, u"clienti"_s},
                            PosaNominativi));
    Tutti.last().InBreve = true;
    Tutti.append(DelComando(u"rubrica-vcard"_s, u"nomi.vcf"_s,
                            Rubrica + QStringList{u"--vcard"_s, u"%1"_s, u"rubrica"_s, u"clienti"_s},
                            PosaNominativi));
    Tutti.append(DelComando(u"scadenzario-csv"_s, u"note.csv"_s,
                            Rubrica + QStringList{u"--csv"_s, u"%1"_s, u"scadenzario"_s, u"%2"_s},
                            [](const Posto& Dove) {
                                PosaNominativi(Dove);
                                PosaNota(Dove);
                            }));
    Tutti.append(DelComando(u"termini-ics"_s, u"termini.ics"_s,
                            {u"--ics"_s, u"%1"_s, u"termini"_s, u"01/03/2026"_s, u"30"_s, u"giorni"_s},
                            [](const Posto&) {}));
    Tutti.append(DiUnAtto(u"agenda"_s, u"agenda.ics"_s, ScriviIcs(Termini()),
                          [](const QString& File) { (void)SalvaIcs(File, Termini()); }));
    Tutti.append(DiUnAtto(u"resoconto"_s, u"resoconto.txt"_s, Copiate().toUtf8(), [](const QString& File) {
        ScriviFile(File, Copiate().toUtf8(), Lettori::SoloUtente);
    }));
    Tutti.append(ClausoleProprie());
    Tutti.append(Invio());
    Tutti.append(Logo());
    Tutti.append(Ricordata(
        u"note-recenti"_s, [] { RicordaRecente(Recente(u"a"_s)); }, [] { RicordaRecente(Recente(u"b"_s)); },
        [] {
            return Fra(NomiRecenti(), {u"a"_s}, {u"b"_s, u"a"_s});
        }));
    Tutti.append(Ricordata(
        u"note-recenti-via"_s,
        [] {
            RicordaRecente(Recente(u"a"_s));
            RicordaRecente(Recente(u"b"_s));
        },
        [] {
            // What was refused and told before hides no name that stays.
            try {
                RicordaRecente(Recente(u"c"_s));
            } catch (const Errore&) {
            }
            SvuotaRecenti();
        },
        [] {
            const QStringList Ora = NomiRecenti();
            if (Ora.isEmpty())
                return Trovato::Nuovo;
            const QStringList Erano{u"b"_s, u"a"_s};
            return Ora == Erano || Ora == QStringList{u"c"_s} + Erano ? Trovato::Prima : Trovato::Rotto;
        }));
    Tutti.last().InBreve = true;
    Tutti.last().SenzaPromessa = true;  // of the one that is refused before
    Tutti.append(Ricordata(
        u"misure"_s, [] {},
        [] {
            RicordaImpostazioni({{u"MainWidth"_s, u"12000"_s}, {u"MainHeight"_s, u"8000"_s}});
        },
        [] {
            return Fra({Impostazione(u"MainWidth"_s), Impostazione(u"MainHeight"_s)}, {u"9000"_s, QString()},
                       {u"12000"_s, u"8000"_s});
        }));
    return Tutti;
}
