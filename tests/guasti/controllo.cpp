// The bench looked at itself: programs that break a rule, each in its own way, must be found out.
#include "guasti/banco.h"

#include "guasti/scenari.h"
#include "supporto/prova.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace registro;

namespace {

const QByteArray FileVecchio(3000, 'v');
const QByteArray Nuovo(5000, 'n');

/// How a file is written by whoever takes no care, or takes it.
struct Modi
{
    bool SulPosto = false;                          ///< the former file goes before the new one is whole
    bool SenzaGuardare = false;                     ///< what a write answers does not count
    bool SenzaDisco = false;                        ///< nor what the flush answers
    bool Lascia = false;                            ///< a file beside stays after a failure
    bool Zitto = false;                             ///< a failure is told by nothing but the status
    const char* Dice = "Errore: disco pieno (61)";  ///< a failure
    bool Nega = false;     ///< refuses for the folder's flush, when the new file stands already
    bool Altrove = false;  ///< nothing is written here at all
    bool Ferma = false;    ///< a failure leaves what stops the next one
};

int ScriviFile(const Posto& Dove, const Modi& Come)
{
    const QByteArray File = QFile::encodeName((Come.Altrove ? Dove.Fuori : Dove.Cartella) + u"file"_s);
    const QByteArray Accanto = Come.SulPosto ? File : File + ".nuovo";
    const QByteArray Presa = QFile::encodeName(Dove.Cartella + u"presa"_s);
    const auto Rifiuta = [&] {
        if (Come.Ferma)
            ::mkdir(Presa.constData(), 0700);
        if (!Come.Lascia && !Come.SulPosto)
            ::unlink(Accanto.constData());
        if (!Come.Zitto)
            std::fprintf(stderr, "%s\n", Come.Dice);
        return 1;
    };
    if (::access(Presa.constData(), F_OK) == 0)
        return Rifiuta();
    const int Aperto = ::open(Accanto.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (Aperto < 0)
        return Rifiuta();
    ssize_t Scritti = 0;
    while (Scritti < Nuovo.size()) {
        const ssize_t Ora = ::write(Aperto, Nuovo.constData() + Scritti, size_t(Nuovo.size() - Scritti));
        if (Ora < 0 && !Come.SenzaGuardare) {
            ::close(Aperto);
            return Rifiuta();
        }
        Scritti += Ora < 0 ? Nuovo.size() : Ora;
    }
    const bool Svuotato = ::fsync(Aperto) == 0;
    ::close(Aperto);
    if (!Svuotato && !Come.SenzaDisco)
        return Rifiuta();
    if (!Come.SulPosto && ::rename(Accanto.constData(), File.constData()) != 0)
        return Rifiuta();
    if (!Come.Nega)
        return 0;
    const int Cartella = ::open(QFile::encodeName(Dove.Cartella).constData(), O_RDONLY | O_DIRECTORY);
    const bool Confermato = ::fsync(Cartella) == 0;
    ::close(Cartella);
    return Confermato ? 0 : Rifiuta();
}

Scenario Con(const QString& Nome, const Modi& Come,
             const QList<Chiamata>& Attese = {Apri, registro::Scrivi, Sincronizza})
{
    return {.Nome = Nome,
            .Attese = Attese,
            .Prepara = [](const Posto& Dove) { Posa(Dove.Cartella + u"file"_s, FileVecchio); },
            .Atto =
                [Come](const Posto& Dove, const std::function<void()>& Comincia) {
                    Comincia();
                    return ScriviFile(Dove, Come);
                },
            .Guarda =
                [Come](const Posto& Dove, const Uscita&) {
                    const QByteArray Byte =
                        Contenuto((Come.Altrove ? Dove.Fuori : Dove.Cartella) + u"file"_s);
                    if (Byte == Nuovo)
                        return Trovato::Nuovo;
                    return Byte == FileVecchio ? Trovato::Prima : Trovato::Rotto;
                },
            .Ammessi = {Come.Ferma ? u"file|presa"_s : u"file"_s}};
}

Scenario SenzaFrase(Scenario Cosa)
{
    Cosa.SenzaFrase = true;
    return Cosa;
}

/// What is wrong with the first call of a kind failing.
QStringList Difetti(const Scenario& Cosa, const Guasto& Come)
{
    Banco Qui(Cosa);
    QStringList Trovati = Qui.Conta();
    bool Accaduto = false;
    Uscita Vista;
    if (Trovati.isEmpty())
        Trovati = Qui.Prova(Come, 1, Accaduto, Vista).Difetti();
    if (Trovati.isEmpty() && !Accaduto)
        Trovati.append(u"nessun guasto"_s);
    return Trovati;
}

}  // namespace

QStringList ControllaBanco()
{
    const Guasto Disco{registro::Scrivi, "ENOSPC", true};
    const Guasto Flusso{Sincronizza, "EIO", false};
    struct Riga
    {
        Scenario Cosa;
        Guasto Come;
        QString Atteso;  ///< what is found begins so; empty: nothing
    };
    QList<Riga> Righe{
        {Con(u"attento"_s, {}), Disco, {}},
        {Con(u"attento al flusso"_s, {}), Flusso, {}},
        {Con(u"attento, a metà"_s, {}), {registro::Scrivi, "corto", true}, {}},
        {Con(u"sul posto"_s, {.SulPosto = true}), Disco, u"né il vecchio né il nuovo"_s},
        {Con(u"non guarda chi scrive"_s, {.SulPosto = true, .SenzaGuardare = true}), Disco,
         u"né il vecchio né il nuovo"_s},
        {Con(u"non guarda il flusso"_s, {.SenzaDisco = true}), Flusso,
         u"il disco ha rifiutato e non si dice"_s},
        {Con(u"nega quello che c'è"_s, {.SenzaDisco = true, .Nega = true}),
         {Sincronizza, "EIO", true},
         u"detto non fatto, ed è"_s},
        {Con(u"lascia resti"_s, {.Lascia = true}), Disco, u"restano file.nuovo"_s},
        {Con(u"tace"_s, {.Zitto = true}), Disco, u"nessuna frase italiana"_s},
        {Con(u"parla inglese"_s, {.Dice = "Could not write the file"}), Disco, u"nessuna frase italiana"_s},
        {Con(u"parla mezzo inglese"_s, {.Dice = "Errore di scrittura: database disk image missing (61)"}),
         Disco, u"nessuna frase italiana"_s},
        {Con(u"nomina la libreria"_s, {.Dice = "Il salvataggio di QSaveFile non va"}), Disco,
         u"nessuna frase italiana"_s},
        {Con(u"dice un numero"_s, {.Dice = "Errore: /casa/di lui/nota.mdb (61)"}), Disco,
         u"nessuna frase italiana"_s},
        {SenzaFrase(Con(u"può tacere"_s, {.Zitto = true})), Disco, {}},
        {SenzaFrase(Con(u"può tacere e parla inglese"_s, {.Dice = "Could not write the file"})), Disco,
         u"nessuna frase italiana"_s},
        {Con(u"si ferma su quel che ha lasciato"_s, {.Ferma = true}), Disco, u"poi non riesce"_s},
        {Con(u"non passa di qui"_s, {.Altrove = true}), Disco,
         u"non passa di qui: nessuna chiamata di open"_s},
        {Con(u"non aspetta niente"_s, {}, {}), Disco, u"non aspetta niente: non aspetta nessuna chiamata"_s},
    };
    // What the system and the engine say of a failing disk, and Italian that looks a little like it.
    for (const char* Detta :
         {"database or disk is full", "database disk image is malformed",
          "attempt to write a readonly database", "database is locked", "disk I/O error",
          "No space left on device", "Read-only file system", "Device or resource busy",
          "Interrupted system call", "Resource temporarily unavailable", "Disk quota exceeded",
          "Input/output error", "Operation not permitted", "Too many links", "Bad file descriptor",
          "Stale file handle", "Text file busy", "Connection timed out"})
        Righe.append({Con(QString::fromLatin1(Detta), {.Dice = Detta}), Disco, u"nessuna frase italiana"_s});
    for (const char* Detta : {"Il file della nota di Torino (TO) non si scrive: era di Isernia (IS)",
                              "La query non trova la colonna: no, la quota del database"})
        Righe.append({Con(QString::fromUtf8(Detta), {.Dice = Detta}), Disco, {}});
    QStringList Sbagliate;
    for (const Riga& Una : Righe) {
        const QStringList Trovati = Difetti(Una.Cosa, Una.Come);
        const bool Giusto = Una.Atteso.isEmpty() ? Trovati.isEmpty()
                                                 : !Trovati.isEmpty() && Trovati[0].startsWith(Una.Atteso);
        if (!Giusto)
            Sbagliate.append(
                u"%1: atteso «%2», trovato «%3»"_s.arg(Una.Cosa.Nome, Una.Atteso, Trovati.join(u"; ")));
    }
    return Sbagliate;
}
