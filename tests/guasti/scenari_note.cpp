// Notes, templates, recovery copies, the upgrade of an old note, another name, a deletion.
#include "guasti/scenari.h"

#include "core/sessione.h"
#include "feenote/file/modDescrizione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modNotaJson.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/file/modRecupero.h"
#include "feenote/finder/modGestione.h"
#include "platform/base/errore.h"
#include "platform/database/database.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "supporto/prova.h"
#include "supporto/scrittoreaccess.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace registro;

int Svolgi(const std::function<void()>& Fai, const QString& Risposta)
{
    bool Rifiutato = false;
    const auto Di = [&](const QString& Frase) {
        std::fprintf(stderr, "%s\n", Frase.toUtf8().constData());
        Rifiutato = true;
    };
    Messaggi Voce;
    Voce.Box = [&](const QString& Testo, int Bandiere, const QString&) {
        if (PulsantiDi(Bandiere) == vbYesNo)
            return vbYes;
        if (IconaDi(Bandiere) == vbCritical || IconaDi(Bandiere) == vbExclamation)
            Di(Testo);
        return vbOK;
    };
    Voce.Immissione = [&](const QString&, const QString&, const QString&) { return Risposta; };
    InstallaMessaggi(std::move(Voce));
    // Nobody waits for a lock that a fault has made.
    attese::BlocchiMs = 100;
    attese::TurnoMs = 100;
    try {
        Fai();
    } catch (const Rifiuto& Suo) {
        Rifiutato = true;
        if (!Suo.Frase.isEmpty())
            Di(Suo.Frase);
    } catch (...) {
        const Errore Guasto = ErroreCorrente();
        Di(u"Errore: %1 (%2)"_s.arg(Guasto.Descrizione).arg(Guasto.Numero));
    }
    return Rifiutato ? 1 : 0;
}

namespace {

/// An office without an archive of its own, at work in a folder.
void Sessione(const Posto& Dove)
{
    AzzeraSessione();
    sessione::PercorsoProg = ProgrammaDiProva();
    sessione::UserFolder = Dove.Cartella;
}

QByteArray Descrizione(const QString& Cliente, int Righe)
{
    QByteArray Voci;
    for (int i = 0; i < Righe; ++i)
        Voci += QByteArray(i ? "," : "") + R"({"descrizione":"Una riga di lavoro )" + QByteArray::number(i) +
                R"(","imponibili":)" + QByteArray::number(100 + i) + '}';
    return R"({"categoria":"CIV","autorita":"Tribunale ordinario","valore":"30.000,00","precarica":true,"cliente":")" +
           Cliente.toUtf8() + R"(","oggetto":"Prova","spese":[)" + Voci + "]}";
}

QByteArray DescrizionePrima()
{
    return Descrizione(u"Rossi Maria"_s, 2);
}

QByteArray DescrizioneNuova()
{
    return Descrizione(u"Bianchi Carlo"_s, 60);
}

/// A note as it stands in a file, or nothing where none can be read.
QByteArray Letta(const QString& File)
{
    const Messaggi Prima = InstallaMessaggi({});
    QByteArray Trovata;
    try {
        Parcella Nota;
        CaricaDati(Nota, File);
        Trovata = DescriviNota(Nota);
    } catch (const Errore&) {
    }
    InstallaMessaggi(Prima);
    return Trovata;
}

/// What a description becomes once it was saved and read again, worked out once.
struct Modello
{
    explicit Modello(const QByteArray& Json)
    {
        Sessione({});
        sessione::UserFolder.clear();
        const QString File = NuovaCartella() + u"modello.mdb"_s;
        ScriviNota(File, CreaDaDescrizione(Json));
        Byte = Contenuto(File);
        Testo = Letta(File);
    }
    QByteArray Byte;
    QByteArray Testo;
};

const Modello& Vecchia()
{
    static const Modello Una(DescrizionePrima());
    return Una;
}

const Modello& Nuova()
{
    static const Modello Una(DescrizioneNuova());
    return Una;
}

/// The note under a name is one of the two, or missing where it was.
Trovato Confronta(const QString& File, bool Mancava)
{
    Sessione({});
    if (Mancava && !QFileInfo::exists(File))
        return Trovato::Prima;
    const QByteArray Presente = Letta(File);
    if (Presente == Nuova().Testo)
        return Trovato::Nuovo;
    return !Mancava && Presente == Vecchia().Testo ? Trovato::Prima : Trovato::Rotto;
}

constexpr QFile::Permissions Riservato =
    QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;

/// The same, and the permissions that it had.
Trovato ConfrontaRiservata(const QString& File)
{
    const Trovato Stato = Confronta(File, false);
    return QFile::permissions(File) == Riservato ? Stato : Trovato::Rotto;
}

/// A note of the former program.
const QByteArray& DiAccess()
{
    static const QByteArray Byte = [] {
        const QString File = NuovaCartella() + u"antica.mdb"_s;
        Posa(File, Vecchia().Byte);
        return ScriviAccess(AccessDa(File));
    }();
    return Byte;
}

/// The former program's file stands in its place, or whole beside the new one, and never twice.
Trovato GuardaDiAccess(const Posto& Dove, const Uscita&)
{
    const QString File = Dove.Cartella + u"nota.mdb"_s;
    const QString Tenuta = File + u".access"_s;
    if (EsisteFile(Tenuta) && (Contenuto(Tenuta) != DiAccess() || QFile::permissions(Tenuta) != Riservato))
        return Trovato::Rotto;
    if (Contenuto(File) == DiAccess())
        return QFile::permissions(File) == Riservato ? Trovato::Prima : Trovato::Rotto;
    return EsisteFile(Tenuta) && ConfrontaRiservata(File) == Trovato::Nuovo ? Trovato::Nuovo : Trovato::Rotto;
}

QStringList Crea(const Posto& Dove)
{
    const QString Json = Dove.Fuori + u"nota.json"_s;
    Posa(Json, DescrizioneNuova());
    return {ProgrammaDiProva() + u"calcanova-cli"_s,
            u"--programma"_s,
            ProgrammaDiProva(),
            u"--utente"_s,
            Dove.Fuori,
            u"crea"_s,
            Json,
            Dove.Cartella + u"nota.mdb"_s};
}

/// A template from before the general expenses, read-only as templates are.
void PosaAntica(const Posto& Dove, bool Scrivibile)
{
    static const QByteArray Antica = [] {
        const QString File = NuovaCartella() + u"antica.mdb"_s;
        Posa(File, Nuova().Byte);
        OpenDatabase(File).Execute(u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
        return Contenuto(File);
    }();
    const QString File = Dove.Cartella + u"antica.mdb"_s;
    Posa(File, Antica);
    QFile::setPermissions(File, QFile::ReadOwner | (Scrivibile ? QFile::WriteOwner : QFile::Permissions()));
}

/// It can be read, and nobody has taken its attribute away.
Trovato GuardaAntica(const Posto& Dove, const Uscita& Vista, bool Scrivibile)
{
    const QString File = Dove.Cartella + u"antica.mdb"_s;
    if (SolaLettura(File) == Scrivibile || SolaLettura(Dove.Cartella))
        return Trovato::Rotto;
    // A look at it upgrades it, so the columns are counted first.
    Sessione({});
    try {
        const Database Aperta = OpenDatabase(File, true);
        const bool Completa = Aperta.EsisteCampo(u"ParcellaParam"_s, u"SpeseGen"_s);
        const bool Intera = Aperta.OpenRecordset(u"ParcellaRighe"_s).RecordCount() >= 60;
        if (!Intera)
            return Trovato::Rotto;
        return Completa && (Vista.Esito != 0 || Vista.Detto.contains(u"Bianchi Carlo"_s)) ? Trovato::Nuovo
                                                                                          : Trovato::Prima;
    } catch (const Errore&) {
        return Trovato::Rotto;
    }
}

Parcella NotaDa(const QByteArray& Json)
{
    Parcella Nota = CreaDaDescrizione(Json);
    Nota.Nome = u"prova"_s;
    return Nota;
}

/// The copy that the next start offers, and nothing beside it.
Trovato GuardaCopia(const Posto& Dove, bool Mancava)
{
    Sessione(Dove);
    const QList<CopiaRecupero> Offerte = NoteDaRecuperare();
    if (Offerte.isEmpty())
        return Mancava ? Trovato::Prima : Trovato::Rotto;
    // The next attempt is another process and leaves a copy of its own.
    QList<QByteArray> Testi;
    for (const CopiaRecupero& Una : Offerte)
        Testi.append(Letta(Una.File));
    const bool Intere = std::ranges::all_of(
        Testi, [](const QByteArray& Testo) { return Testo == Nuova().Testo || Testo == Vecchia().Testo; });
    if (!Intere || (Mancava && Testi.contains(Vecchia().Testo)))
        return Trovato::Rotto;
    return Testi.contains(Nuova().Testo) ? Trovato::Nuovo : Trovato::Prima;
}

const QStringList DelleCopie{u"recupero"_s, u"recupero/\\d+-\\d+-1\\.(mdb|json)"_s,
                             u"recupero/\\d+-\\d+\\.lock"_s};

}  // namespace

QList<Scenario> ScenariNote()
{
    const QList<Chiamata> DiUnaNota{Apri, Scrivi, Sincronizza, Rinomina, Togli, Chiudi, Leggi};
    QList<Scenario> Tutti;
    Tutti.append({.Nome = u"nota-nuova"_s,
                  .Attese = DiUnaNota,
                  .Prepara = [](const Posto&) {},
                  .Comando = Crea,
                  .Guarda = [](const Posto& Dove,
                               const Uscita&) { return Confronta(Dove.Cartella + u"nota.mdb"_s, true); },
                  .Ammessi = {u"nota\\.mdb"_s}});
    Tutti.append({.Nome = u"nota-cambiata"_s,
                  .Attese = DiUnaNota + QList{Permessi},
                  .Prepara =
                      [](const Posto& Dove) {
                          Posa(Dove.Cartella + u"nota.mdb"_s, Vecchia().Byte);
                          QFile::setPermissions(Dove.Cartella + u"nota.mdb"_s, Riservato);
                      },
                  .Comando = Crea,
                  .Guarda = [](const Posto& Dove,
                               const Uscita&) { return ConfrontaRiservata(Dove.Cartella + u"nota.mdb"_s); },
                  .Ammessi = {u"nota\\.mdb"_s},
                  .InBreve = true});
    Tutti.append({.Nome = u"nota-collegata"_s,
                  .Attese = DiUnaNota,
                  .Prepara =
                      [](const Posto& Dove) {
                          Posa(Dove.Cartella + u"vera.mdb"_s, Vecchia().Byte);
                          QFile::link(u"vera.mdb"_s, Dove.Cartella + u"nota.mdb"_s);
                      },
                  .Comando = Crea,
                  .Guarda =
                      [](const Posto& Dove, const Uscita&) {
                          const bool Resta = QFileInfo(Dove.Cartella + u"nota.mdb"_s).isSymLink();
                          return Resta ? Confronta(Dove.Cartella + u"vera.mdb"_s, false) : Trovato::Rotto;
                      },
                  .Ammessi = {u"(nota|vera)\\.mdb"_s}});
    Tutti.append({.Nome = u"nota-access"_s,
                  .Attese = DiUnaNota + QList{Permessi, Data},
                  .Prepara =
                      [](const Posto& Dove) {
                          Posa(Dove.Cartella + u"nota.mdb"_s, DiAccess());
                          QFile::setPermissions(Dove.Cartella + u"nota.mdb"_s, Riservato);
                      },
                  .Comando = Crea,
                  .Guarda = GuardaDiAccess,
                  .Ammessi = {u"nota\\.mdb(\\.access)?"_s},
                  .InBreve = true});
    Tutti.append({.Nome = u"modello"_s,
                  .Attese = DiUnaNota + QList{Permessi},
                  .Prepara = [](const Posto&) {},
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          Sessione(Dove);
                          const Parcella Nota = NotaDa(DescrizioneNuova());
                          const QString File = Dove.Cartella + u"modello.mdb"_s;
                          Comincia();
                          // A template is never overwritten; who saves it again after a failure has none
                          // there.
                          return Svolgi([&] {
                              if (!EsisteFile(File))
                                  ScriviNota(File, Nota, true);
                          });
                      },
                  .Guarda =
                      [](const Posto& Dove, const Uscita&) {
                          const QString File = Dove.Cartella + u"modello.mdb"_s;
                          const Trovato Stato = Confronta(File, true);
                          return Stato == Trovato::Nuovo && !SolaLettura(File) ? Trovato::Rotto : Stato;
                      },
                  .Ammessi = {u"modello\\.mdb"_s},
                  .Spazza = [](const Posto& Dove) { TogliRestiDiNote(Dove.Cartella); },
                  .InBreve = true});
    for (const bool Scrivibile : {false, true})
        Tutti.append({.Nome = Scrivibile ? u"nota-antica-scrivibile"_s : u"nota-antica"_s,
                      .Attese = {Apri, Scrivi, Sincronizza, Chiudi, Leggi},
                      .Prepara = [=](const Posto& Dove) { PosaAntica(Dove, Scrivibile); },
                      .Comando =
                          [](const Posto& Dove) {
                              return QStringList{ProgrammaDiProva() + u"calcanova-cli"_s,
                                                 u"--programma"_s,
                                                 ProgrammaDiProva(),
                                                 u"--utente"_s,
                                                 Dove.Fuori,
                                                 u"nota"_s,
                                                 Dove.Cartella + u"antica.mdb"_s};
                          },
                      .Guarda = [=](const Posto& Dove,
                                    const Uscita& Vista) { return GuardaAntica(Dove, Vista, Scrivibile); },
                      .Ammessi = {u"antica\\.mdb"_s},
                      .Spazza = [](const Posto& Dove) { TogliRestiDiNote(Dove.Cartella); },
                      .DiPassaggio = true});
    Tutti.append({.Nome = u"copia-prima"_s,
                  .Attese = {Apri, Scrivi, Sincronizza, Rinomina, Chiudi, registro::Cartella},
                  .Prepara = [](const Posto&) {},
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          Sessione(Dove);
                          const Parcella Nota = NotaDa(DescrizioneNuova());
                          Comincia();
                          return Svolgi([&] { AggiornaCopia(Nota, 1); });
                      },
                  .Guarda = [](const Posto& Dove, const Uscita&) { return GuardaCopia(Dove, true); },
                  .Ammessi = DelleCopie});
    Tutti.append({.Nome = u"copia-seconda"_s,
                  .Attese = {Apri, Scrivi, Sincronizza, Rinomina, Chiudi},
                  .Prepara = [](const Posto&) {},
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          Sessione(Dove);
                          const Parcella Nota = NotaDa(DescrizioneNuova());
                          AggiornaCopia(NotaDa(DescrizionePrima()), 1);
                          Comincia();
                          return Svolgi([&] { AggiornaCopia(Nota, 1); });
                      },
                  .Guarda = [](const Posto& Dove, const Uscita&) { return GuardaCopia(Dove, false); },
                  .Ammessi = DelleCopie,
                  .InBreve = true});
    Tutti.append({.Nome = u"rinomina"_s,
                  .Attese = {Rinomina},
                  .Prepara = [](const Posto& Dove) { Posa(Dove.Cartella + u"nota.mdb"_s, Nuova().Byte); },
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          Sessione(Dove);
                          Comincia();
                          const QString File = Dove.Cartella + u"nota.mdb"_s;
                          return Svolgi(
                              [&] {
                                  if (EsisteFile(File))
                                      (void)RinominaNota(File, [](const QString&) {});
                              },
                              u"altra"_s);
                      },
                  .Guarda =
                      [](const Posto& Dove, const Uscita&) {
                          const QByteArray Vecchio = Contenuto(Dove.Cartella + u"nota.mdb"_s);
                          const QByteArray Altro = Contenuto(Dove.Cartella + u"altra.mdb"_s);
                          if (Altro == Nuova().Byte && Vecchio.isEmpty())
                              return Trovato::Nuovo;
                          return Vecchio == Nuova().Byte && Altro.isEmpty() ? Trovato::Prima : Trovato::Rotto;
                      },
                  .Ammessi = {u"(nota|altra)\\.mdb"_s}});
    Tutti.append({.Nome = u"cancella"_s,
                  .Attese = {Togli},
                  .Prepara =
                      [](const Posto& Dove) {
                          Posa(Dove.Cartella + u"nota.mdb"_s, Nuova().Byte);
                          QFile::setPermissions(Dove.Cartella + u"nota.mdb"_s,
                                                QFile::ReadOwner | QFile::ReadUser);
                      },
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          Sessione(Dove);
                          Comincia();
                          const QString File = Dove.Cartella + u"nota.mdb"_s;
                          return Svolgi([&] {
                              if (EsisteFile(File))
                                  (void)CancellaNota(File, [] {});
                          });
                      },
                  .Guarda =
                      [](const Posto& Dove, const Uscita&) {
                          const QString File = Dove.Cartella + u"nota.mdb"_s;
                          if (!QFileInfo::exists(File))
                              return Trovato::Nuovo;
                          return Contenuto(File) == Nuova().Byte ? Trovato::Prima : Trovato::Rotto;
                      },
                  .Ammessi = {u"nota\\.mdb"_s}});
    return Tutti;
}
