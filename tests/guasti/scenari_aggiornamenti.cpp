// Updates from a folder and from a server: what is announced, the archive of rates, the installer.
#include "guasti/pubblicato.h"
#include "guasti/scenari.h"

#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/network/firma.h"
#include "platform/network/rete_qt.h"
#include "platform/system/file.h"
#include "servitore/servitore.h"
#include "supporto/prova.h"
#include "update/scarico.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace registro;

namespace {

using namespace pubblicato;

/// The same folder behind a server of this machine, which no fault meets.
Provenienza DaUnServer()
{
    static const Servitore Locale;
    static const bool Pieno = [] {
        const QString Setup = Locale.Cartella() + u"kr5/setup/"_s;
        QDir().mkpath(Setup);
        for (const QString& Nome : QDir(Pubblicato()).entryList(QDir::Files))
            QFile::copy(Pubblicato() + Nome, Setup + Nome);
        return Locale.Pronto();
    }();
    if (!Pieno)
        qFatal("the server of updates does not start");
    return {Locale.Indirizzo(), {}};
}

Provenienza DaUnaCartella()
{
    return DallaCartella(Pubblicato() + u"versioni.txt"_s);
}

void UsaPubblicato(const Posto& Dove)
{
    AzzeraSessione();
    sessione::PercorsoProg = ProgrammaDiProva();
    sessione::UserFolder = Dove.Cartella;
    InstallaFileChiave(Pubblicato() + u"calcanova.pub"_s);
    InstallaReteQt({});
}

/// The announcement, checked before anything fails.
Annuncio Annunciato(const Posto& Dove, const Provenienza& Da)
{
    Annuncio Trovato;
    Posto Altrove = Dove;
    Altrove.Cartella = Dove.Fuori;
    UsaPubblicato(Altrove);
    if (!ControlloVersioni(Da, true, Trovato))
        qFatal("the announcement of the update is not taken");
    UsaPubblicato(Dove);
    return Trovato;
}

/// What every check begins with.
void Sgombra(const Posto& Dove)
{
    UsaPubblicato(Dove);
    TogliAvanzi();
}

void PosaTassi(const Posto& Dove)
{
    const QString File = Dove.Cartella + u"Tassi.dat"_s;
    Posa(File, Vecchi());
    ImpostaDataFile(File, QDateTime(QDate(2026, 9, 1), QTime(9, 0)));
}

/// An archive in use is whole, and the one kept beside it too; a new one bears its date, or it would be
/// offered again.
Trovato GuardaTassi(const Posto& Dove, const Uscita&)
{
    const QString File = Dove.Cartella + u"Tassi.dat"_s;
    const QByteArray Prima = Contenuto(File + u".prima"_s);
    if (!Prima.isEmpty() && Prima != Vecchi() && Prima != Nuovi())
        return Trovato::Rotto;
    const QByteArray Byte = Contenuto(File);
    if (Byte == Vecchi())
        return DataFile(File).date() == QDate(2026, 9, 1) ? Trovato::Prima : Trovato::Rotto;
    return Byte == Nuovi() && DataFile(File).date() >= QDate(2026, 12, 1) ? Trovato::Nuovo : Trovato::Rotto;
}

/// The archive of rates brought and put in the former one's place.
Scenario PortaTassi(const QString& Nome, Provenienza (*Da)())
{
    return {.Nome = Nome,
            .Attese = {Apri, Scrivi, Sincronizza, Rinomina, Chiudi, Leggi, Data},
            .Prepara =
                [Da](const Posto& Dove) {
                    (void)Da();  // a server starts here, not in a process that fails
                    PosaTassi(Dove);
                },
            .Atto =
                [Da](const Posto& Dove, const std::function<void()>& Comincia) {
                    const Annuncio Trovato = Annunciato(Dove, Da());
                    Comincia();
                    return Svolgi([&] {
                        // Whoever tries again where the new one has come finds nothing to bring.
                        if (Contenuto(Dove.Cartella + u"Tassi.dat"_s) != Nuovi())
                            if (const EsitoScarico Esito = ScaricaTassi(Trovato); !Esito.Riuscito())
                                throw Rifiuto{FraseTassiFalliti.toString() + u'\n' + Esito.Dettaglio};
                    });
                },
            .Guarda = GuardaTassi,
            .Ammessi = {u"Tassi\\.dat(\\.prima)?"_s},
            .Spazza = Sgombra};
}

/// The installer brought into its folder.
Scenario PortaProgramma(const QString& Nome, Provenienza (*Da)())
{
    return {.Nome = Nome,
            .Attese = {Apri, Scrivi, Sincronizza, Rinomina, Chiudi, Leggi, registro::Cartella},
            .Prepara = [Da](const Posto&) { (void)Da(); },
            .Atto =
                [Da](const Posto& Dove, const std::function<void()>& Comincia) {
                    const Annuncio Trovato = Annunciato(Dove, Da());
                    Comincia();
                    return Svolgi([&] {
                        if (const EsitoScarico Esito = ScaricaProgramma(Trovato); !Esito.Riuscito())
                            throw Rifiuto{FraseDownloadFallito(NomeInstallatore(Trovato), Esito.Dettaglio)};
                    });
                },
            .Guarda =
                [](const Posto& Dove, const Uscita&) {
                    const QString File = Dove.Cartella + u"upgrade/upgrade3.0.99.exe"_s;
                    if (!EsisteFile(File))
                        return Trovato::Prima;
                    return Contenuto(File) == Installatore ? Trovato::Nuovo : Trovato::Rotto;
                },
            .Ammessi = {u"upgrade"_s, u"upgrade/upgrade3\\.0\\.99\\.exe"_s},
            .Spazza = Sgombra};
}

}  // namespace

QList<Scenario> ScenariAggiornamenti()
{
    QList<Scenario> Tutti{PortaTassi(u"aggiorna-tassi"_s, DaUnaCartella),
                          PortaTassi(u"aggiorna-tassi-rete"_s, DaUnServer),
                          PortaProgramma(u"aggiorna-programma"_s, DaUnaCartella),
                          PortaProgramma(u"aggiorna-programma-rete"_s, DaUnServer)};
    Tutti[0].InBreve = true;
    Tutti.append({.Nome = u"versioni"_s,
                  .Attese = {Apri, Scrivi, Rinomina, Chiudi, Leggi},
                  .Prepara =
                      [](const Posto& Dove) {
                          Posa(Dove.Cartella + u"versioni.txt"_s, "versione=[3.0.1]\n01/01/2026\nnota=");
                      },
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          UsaPubblicato(Dove);
                          Comincia();
                          return Svolgi([&] {
                              Annuncio Trovato;
                              if (!ControlloVersioni(DaUnaCartella(), true, Trovato))
                                  throw Rifiuto{Trovato.Difetto};
                          });
                      },
                  .Guarda =
                      [](const Posto& Dove, const Uscita&) {
                          const QByteArray Byte = Contenuto(Dove.Cartella + u"versioni.txt"_s);
                          if (Byte.startsWith("versione=[3.0.1]"))
                              return Trovato::Prima;
                          return Byte == Contenuto(Pubblicato() + u"versioni.txt"_s) ? Trovato::Nuovo
                                                                                     : Trovato::Rotto;
                      },
                  .Ammessi = {u"versioni\\.txt"_s},
                  // What was announced is asked again at the next start, and of the check alone a refusal
                  // speaks: the list may have come.
                  .SenzaPromessa = true,
                  .DiPassaggio = true});
    return Tutti;
}
