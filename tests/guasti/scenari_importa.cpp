// What comes from another program: an archive taken whole, old notes copied, a look at names, Access files;
// the last calculations; the first use.
#include "guasti/origine.h"
#include "guasti/scenari.h"

#include "addressbook/exchange/archiviointero.h"
#include "addressbook/exchange/archivionativo.h"
#include "addressbook/exchange/notevecchie.h"
#include "addressbook/exchange/sorgente.h"
#include "calculators/ultimicalcoli.h"
#include "core/app/primouso.h"
#include "core/parametri.h"
#include "core/sessione.h"
#include "feenote/file/modPosaFile.h"
#include "platform/accesso/accesso.h"
#include "platform/accesso/copie.h"
#include "platform/base/errore.h"
#include "platform/database/database.h"
#include "platform/database/recordset.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "supporto/prova.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;
using namespace registro;

namespace importati {
namespace {

using namespace origine;

/// A copy is whole and nobody else's, or not there; what it was made of is as it was.
Trovato GuardaCopia(const QString& Da, const QString& A, bool DiAccess)
{
    if (!Intatto(Da, DiAccess))
        return Trovato::Rotto;
    if (!EsisteFile(A))
        return Trovato::Prima;
    return HaTutti(A) && !(QFile::permissions(A) & Altri) ? Trovato::Nuovo : Trovato::Rotto;
}

void Usa()
{
    AzzeraSessione();
    accesso::Programma = ProgrammaDiProva() + u"calcanova-accesso"_s;
}

Scenario Prendi(bool DiAccess)
{
    const auto Da = [](const Posto& Dove) { return Dove.Cartella + u"vecchio.mdb"_s; };
    const auto A = [](const Posto& Dove) { return Dove.Cartella + u"studio/DatiStudio.mdb"_s; };
    return {
        .Nome = DiAccess ? u"prendi-access"_s : u"prendi-archivio"_s,
        .Attese = {Apri, Scrivi, Sincronizza, Rinomina, Togli, Permessi, Chiudi},
        .Prepara = [=](const Posto& Dove) { PosaVecchio(Da(Dove), DiAccess); },
        .Atto =
            [=](const Posto& Dove, const std::function<void()>& Comincia) {
                Usa();
                Comincia();
                // Whoever finds it there does not take it again.
                return Svolgi([&] {
                    if (!EsisteFile(A(Dove)) && !PrendiArchivio(Da(Dove), Dove.Cartella + u"studio/"_s))
                        throw Rifiuto();
                });
            },
        .Guarda = [=](const Posto& Dove, const Uscita&) { return GuardaCopia(Da(Dove), A(Dove), DiAccess); },
        .Ammessi = {u"vecchio\\.mdb(-journal)?"_s, u"studio(/DatiStudio\\.mdb)?"_s},
        .Spazza =
            [](const Posto& Dove) {
                TogliRestiDiArchivi(Dove.Cartella + u"studio/"_s);
                TogliRestiDiNote(Dove.Cartella + u"studio/"_s);
            },
        .InBreve = !DiAccess};
}

Scenario CopiaVecchie(bool DiAccess)
{
    const auto Da = [](const Posto& Dove) { return Dove.Cartella + u"vecchie/nota.mdb"_s; };
    const auto A = [](const Posto& Dove) { return Dove.Cartella + u"nuove/nota.mdb"_s; };
    return {
        .Nome = DiAccess ? u"copia-note-access"_s : u"copia-note"_s,
        .Attese = {Apri, Sincronizza, Rinomina, Togli, Permessi, Chiudi, registro::Cartella, Data},
        .Prepara = [=](const Posto& Dove) { PosaVecchio(Da(Dove), DiAccess); },
        .Atto =
            [=](const Posto& Dove, const std::function<void()>& Comincia) {
                Usa();
                Comincia();
                return Svolgi([&] {
                    const auto Esiti = CopiaNote(Dove.Cartella + u"vecchie"_s, Dove.Cartella + u"nuove"_s);
                    if (!Esiti)
                        throw Rifiuto();
                    for (const EsitoNota& Esito : *Esiti)
                        if (!Esito.Copiata && !Esito.Detto.startsWith(u"c'è già"))
                            throw Rifiuto{Esito.Detto};
                });
            },
        .Guarda = [=](const Posto& Dove, const Uscita&) { return GuardaCopia(Da(Dove), A(Dove), DiAccess); },
        .Ammessi = {u"vecchie(/nota\\.mdb(-journal)?)?"_s, u"nuove(/nota\\.mdb)?"_s},
        .Spazza = [](const Posto& Dove) { TogliRestiDiNote(Dove.Cartella + u"nuove/"_s); }};
}

/// A look at the names of a source: nothing is promised but that it stays as it is.
Scenario Guardata(bool DiAccess)
{
    const auto Da = [](const Posto& Dove) { return Dove.Cartella + u"vecchio.mdb"_s; };
    return {.Nome = DiAccess ? u"sorgente-access"_s : u"sorgente"_s,
            .Attese = {Apri, Togli, Chiudi},
            .Prepara = [=](const Posto& Dove) { PosaVecchio(Da(Dove), DiAccess); },
            .Atto =
                [=](const Posto& Dove, const std::function<void()>& Comincia) {
                    qputenv("XDG_DATA_HOME", QFile::encodeName(Dove.Cartella + u"dati"_s));
                    Usa();
                    Comincia();
                    return Svolgi([&] {
                        const SorgenteNominativi Aperta(Da(Dove));
                        OpzioniSorgente Come;
                        std::printf("%d nomi\n", int(Aperta.Leggi(Come).Righe.size()));
                    });
                },
            .Guarda =
                [=](const Posto& Dove, const Uscita& Vista) {
                    if (!Intatto(Da(Dove), DiAccess))
                        return Trovato::Rotto;
                    if (!Vista.Detto.contains(u" nomi"))
                        return Trovato::Prima;
                    return Vista.Detto.contains(u"%1 nomi"_s.arg(origine::Nomi)) ? Trovato::Nuovo
                                                                                 : Trovato::Rotto;
                },
            .Ammessi = {u"vecchio\\.mdb(-journal)?"_s, u"dati(/Calcanova(/importa)?)?"_s},
            .Spazza =
                [](const Posto& Dove) {
                    qputenv("XDG_DATA_HOME", QFile::encodeName(Dove.Cartella + u"dati"_s));
                    TogliRestiDiSorgenti();
                },
            .SenzaPromessa = true};
}

/// The native copy of an Access file, which serves as long as the file stays.
Scenario CopiaTenuta()
{
    return {.Nome = u"copia-access"_s,
            .Attese = {Apri, Rinomina, Togli, Permessi, Chiudi},
            .Prepara = [](const Posto& Dove) { PosaVecchio(Dove.Cartella + u"vecchio.mdb"_s, true); },
            .Atto =
                [](const Posto& Dove, const std::function<void()>& Comincia) {
                    Usa();
                    accesso::CartellaCopie = Dove.Cartella + u"copie"_s;
                    Comincia();
                    return Svolgi([&] {
                        const QString Copia = CopiaNativa(Dove.Cartella + u"vecchio.mdb"_s);
                        const Database Db = OpenDatabase(Copia, true);
                        std::printf("%d nomi\n", Db.OpenRecordset(u"clienti"_s).RecordCount());
                    });
                },
            .Guarda =
                [](const Posto& Dove, const Uscita& Vista) {
                    if (!Intatto(Dove.Cartella + u"vecchio.mdb"_s, true))
                        return Trovato::Rotto;
                    const QString Qui = Dove.Cartella + u"copie/"_s;
                    for (const QString& Nome : NomiDeiFile(Qui, u".mdb"_s))
                        if (!HaTutti(Qui + Nome) || (QFile::permissions(Qui + Nome) & Altri))
                            return Trovato::Rotto;
                    return Vista.Detto.contains(u"%1 nomi"_s.arg(origine::Nomi)) ? Trovato::Nuovo
                                                                                 : Trovato::Prima;
                },
            .Ammessi = {u"vecchio\\.mdb"_s, u"copie(/[0-9a-f]{64}\\.mdb)?"_s},
            .Spazza =
                [](const Posto& Dove) {
                    const QString Qui = Dove.Cartella + u"copie/"_s;
                    TogliRestiDiNote(Qui);
                    // A day later.
                    for (const QString& Nome : NomiDeiFile(Qui))
                        if (!Nome.endsWith(u".mdb"))
                            ImpostaDataFile(Qui + Nome, QDateTime::currentDateTime().addDays(-2));
                    accesso::CartellaCopie = Qui;
                    SpazzaCopie();
                },
            .SenzaPromessa = true};
}

const QByteArray Rovinato = "{\"formato\": ";

CalcoloRicordato Calcolo(const QString& Nome)
{
    return {
        Nome, u"esito"_s, QDateTime(QDate(2026, 11, 21), QTime(10, 30)), {{u"txtImporto"_s, Nome}}, false};
}

/// The last calculations: of a damaged list the former one is put aside and said to be.
Scenario Calcoli(bool Guasto)
{
    const auto File = [](const Posto& Dove) { return Dove.Cartella + u"Calcanova/calcoli.json"_s; };
    static const QByteArray Prima = [] {
        ElencoCalcoli Elenco;
        Elenco[size_t(Calcolatrice::Interessi)].append(Calcolo(u"vecchio"_s));
        return ScriviElenco(Elenco);
    }();
    return {.Nome = Guasto ? u"calcoli-guasti"_s : u"calcoli"_s,
            .Attese = {Apri, Scrivi, Sincronizza, Rinomina, Togli, Permessi, Chiudi},
            .Prepara =
                [=](const Posto& Dove) {
                    QDir().mkpath(Dove.Cartella + u"Calcanova"_s);
                    Posa(File(Dove), Guasto ? Rovinato : Prima);
                    QFile::setPermissions(File(Dove), QFile::ReadOwner | QFile::WriteOwner);
                },
            .Atto =
                [](const Posto& Dove, const std::function<void()>& Comincia) {
                    qputenv("XDG_DATA_HOME", QFile::encodeName(Dove.Cartella.chopped(1)));
                    Usa();
                    sessione::RicordaCalcoli = true;
                    Comincia();
                    // That a damaged list begins anew is said, and no refusal.
                    bool Fatto = false;
                    (void)Svolgi([&] {
                        RicordaCalcolo(Calcolatrice::Interessi, Calcolo(u"nuovo"_s));
                        Fatto = true;
                    });
                    return Fatto ? 0 : 1;
                },
            .Guarda =
                [=](const Posto& Dove, const Uscita&) {
                    const QByteArray Messo = Contenuto(File(Dove) + u".guasto"_s);
                    const QByteArray Ora = Contenuto(File(Dove));
                    if (Guasto ? Ora != Rovinato && Messo != Rovinato : !Messo.isEmpty())
                        return Trovato::Rotto;
                    if (Ora == (Guasto ? Rovinato : Prima) || (Guasto && !EsisteFile(File(Dove))))
                        return Trovato::Prima;
                    const auto Tutti = LeggiElenco(Ora);
                    if (!Tutti || (QFile::permissions(File(Dove)) & Altri))
                        return Trovato::Rotto;
                    QStringList Trovati;
                    for (const CalcoloRicordato& Uno : (*Tutti)[size_t(Calcolatrice::Interessi)])
                        Trovati.append(Uno.Nome);
                    return Trovati ==
                                   (Guasto ? QStringList{u"nuovo"_s} : QStringList{u"nuovo"_s, u"vecchio"_s})
                               ? Trovato::Nuovo
                               : Trovato::Rotto;
                },
            .Ammessi = {u"Calcanova(/calcoli\\.json%1)?"_s.arg(Guasto ? u"(\\.guasto)?"_s : QString())}};
}

/// Folders, archive and rates of a user who starts the program for the first time.
Scenario Primo()
{
    const auto Archivio = [](const Posto& Dove) {
        return Dove.Cartella + u"casa/Documents/Calcanova/DatiStudio.mdb"_s;
    };
    const auto Casa = [](const Posto& Dove) {
        qputenv("HOME", QFile::encodeName(Dove.Cartella + u"casa"_s));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(Dove.Cartella + u"casa/config"_s));
        AzzeraSessione();
    };
    return {
        .Nome = u"primo-uso"_s,
        .Attese = {Apri, Scrivi, Sincronizza, Collega, Permessi, Chiudi, registro::Cartella, Data},
        .Prepara =
            [](const Posto& Dove) {
                const QString Config = Dove.Cartella + u"casa/config/Calcanova/"_s;
                QDir().mkpath(Config);
                Posa(Config + u"KR5.ini"_s,
                     "[Parametri]\npercorsoprocedura=" + QFile::encodeName(ProgrammaDiProva()) + '\n');
            },
        .Atto =
            [=](const Posto& Dove, const std::function<void()>& Comincia) {
                Casa(Dove);
                Comincia();
                return Svolgi(PrimoUso);
            },
        .Guarda =
            [=](const Posto& Dove, const Uscita&) {
                const QString File = Archivio(Dove);
                const QString Tassi = Dove.Cartella + u"casa/Documents/KR5/Tassi.dat"_s;
                for (const QString& Copia : {File, Tassi})
                    if (EsisteFile(Copia) &&
                        (Contenuto(Copia) != Contenuto(ProgrammaDiProva() + NomeFile(Copia)) ||
                         (QFile::permissions(Copia) & Altri)))
                        return Trovato::Rotto;
                const QString FileDeposito = u"casa/config/Calcanova/KR5.ini"_s;
                if (DannoFalso(Dove, FileDeposito))
                    return Trovato::Rotto;
                const QByteArray Deposito = Contenuto(Dove.Cartella + FileDeposito);
                const bool Ricordato = Deposito.toLower().contains("archivioclicon=");
                if (!EsisteFile(File))
                    return Ricordato ? Trovato::Rotto : Trovato::Prima;
                // All four are told together where one is missed; the age of the rates is that of their
                // archive.
                return Ricordato && Deposito.toLower().contains("userfolder=") &&
                               Deposito.toLower().contains("parcellepath=") &&
                               DataFile(Tassi) == DataFile(ProgrammaDiProva() + u"Tassi.dat"_s)
                           ? Trovato::Nuovo
                           : Trovato::Prima;
            },
        .Ammessi =
            {u"casa(/config(/Calcanova(/KR5\\.ini(\\.danno)?)?)?)?"_s,
             u"casa/Documents(/KR5(/Tassi\\.dat)?|/Calcanova(/DatiStudio\\.mdb|/Parcelle(/Modelli)?)?)?"_s},
        .Spazza =
            [=](const Posto& Dove) {
                Casa(Dove);
                SalvaImpostazione(u"Prova"_s, u"1"_s);  // what lies beside the settings goes with the next
            }};
}

}  // namespace
}  // namespace importati

QList<Scenario> ScenariImporta()
{
    return {importati::Prendi(false),       importati::Prendi(true),
            importati::CopiaVecchie(false), importati::CopiaVecchie(true),
            importati::Guardata(false),     importati::Guardata(true),
            importati::CopiaTenuta(),       importati::Calcoli(false),
            importati::Calcoli(true),       importati::Primo()};
}
