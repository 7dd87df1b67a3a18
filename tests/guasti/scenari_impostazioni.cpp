// The store of the settings, the counter of invoices, the files of sections and keys.
#include "guasti/scenari.h"

#include "core/CIni.h"
#include "core/modAvvio.h"
#include "core/modIcone.h"
#include "core/parametri.h"
#include "core/sessione.h"
#include "feenote/modNumeraFattura.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "supporto/prova.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace registro;

namespace {

constexpr auto Deposito = "[Parametri]\n"
                          "arrivocli=\"/home/studio/DatiStudio.mdb\"\n"
                          "iban=IT60X0542811101000000123456\n"
                          "progfatt=41\n"
                          "speseGen=\"12,5\"\n"
                          "studiocitta=Lucca\n"
                          "studionome=Studio Rossi\n";

QString FileDeposito(const Posto& Dove)
{
    return Dove.Cartella + u"Calcanova/KR5.ini"_s;
}

void PosaDeposito(const Posto& Dove)
{
    QDir().mkpath(Dove.Cartella + u"Calcanova"_s);
    Posa(FileDeposito(Dove), Deposito);
}

void Usa(const Posto& Dove)
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(Dove.Cartella.chopped(1)));
    AzzeraSessione();
    sessione::PercorsoProg = ProgrammaDiProva();
}

/// The texts of some keys, read from the file itself.
QStringList Testi(const Posto& Dove, const QStringList& Chiavi)
{
    QStringList Trovati;
    const QStringList Righe = QString::fromUtf8(Contenuto(FileDeposito(Dove))).split(u'\n');
    for (const QString& Chiave : Chiavi) {
        const QStringList Sue = Righe.filter(
            QRegularExpression(u"^%1="_s.arg(Chiave), QRegularExpression::CaseInsensitiveOption));
        Trovati.append(Sue.size() == 1 ? Sue[0].section(u'=', 1).remove(u'"') : u"?"_s);
    }
    return Trovati;
}

const QStringList Altre{u"iban"_s, u"spesegen"_s};
const QStringList AltreGiuste{u"IT60X0542811101000000123456"_s, u"12,5"_s};

Trovato GuardaTesti(const Posto& Dove)
{
    if (Testi(Dove, Altre) != AltreGiuste)
        return Trovato::Rotto;
    const QStringList Cambiate = Testi(Dove, {u"studionome"_s, u"studiocitta"_s});
    if (Cambiate == QStringList{u"Studio Rossi"_s, u"Lucca"_s})
        return Contenuto(FileDeposito(Dove)) == Deposito ? Trovato::Prima : Trovato::Rotto;
    return Cambiate == QStringList{u"Studio Bianchi"_s, QString(400, u'x')} ? Trovato::Nuovo : Trovato::Rotto;
}

Trovato GuardaDeposito(const Posto& Dove, const Uscita&)
{
    return DannoFalso(Dove) ? Trovato::Rotto : GuardaTesti(Dove);
}

/// The store as a loss of power has left it: all keys, and not its last line.
const QByteArray& Mozzo()
{
    static const QByteArray Byte = [] {
        const QString Cartella = NuovaCartella();
        const Posto Qui{Cartella, Cartella};
        PosaDeposito(Qui);
        Usa(Qui);
        SalvaImpostazione(u"StudioCitta"_s, u"Lucca"_s);
        SalvaImpostazione(u"StudioCap"_s, u"55100"_s);
        constexpr qsizetype Perduti = 3;
        return Contenuto(FileDeposito(Qui)).chopped(Perduti);
    }();
    return Byte;
}

/// What was damaged stands in its place or beside it, once.
Trovato GuardaMozzo(const Posto& Dove, const Uscita&)
{
    const QString Messo = FileDeposito(Dove) + u".guasto"_s;
    const bool Parte = QFile::exists(Messo);
    if (Parte && Contenuto(Messo) != Mozzo())
        return Trovato::Rotto;
    if (Contenuto(FileDeposito(Dove)) == Mozzo())
        return Trovato::Prima;
    return Parte ? GuardaTesti(Dove) : Trovato::Rotto;
}

/// The number that the session goes on with is the one that the next start will read.
Trovato GuardaContatore(const Posto& Dove, const Uscita& Vista)
{
    const QStringList Numero = Testi(Dove, {u"progfatt"_s});
    if (Testi(Dove, Altre) != AltreGiuste || DannoFalso(Dove))
        return Trovato::Rotto;
    if (Vista.Esito == 0)
        return Numero[0] == Vista.Detto.trimmed() && Numero[0].toInt() > 41 ? Trovato::Nuovo : Trovato::Rotto;
    return Numero[0] == u"41" && Vista.Detto.trimmed() == u"41" ? Trovato::Prima
           : Numero[0] == u"42"                                 ? Trovato::Nuovo
                                                                : Trovato::Rotto;
}

constexpr auto Icone =
    "[altra]\r\nx=1\r\n[desktop]\r\nL0=Agenda\r\nL0_c=http://www.x.example\r\nL0_i=icona.gif\r\n";

TabellaRighe IconeNuove()
{
    TabellaRighe Nuove{ColonneIcona};
    for (int i = 0; i < 40; ++i) {
        const int Riga = Nuove.AggiungiRiga();
        Nuove(Riga, IconaTitolo) = u"Sito %1"_s.arg(i);
        Nuove(Riga, IconaCollegamento) = u"http://www.y%1.example"_s.arg(i);
        Nuove(Riga, IconaFigura) = u"icona.gif"_s;
    }
    return Nuove;
}

Trovato GuardaIcone(const Posto& Dove, const Uscita&)
{
    const QByteArray Byte = Contenuto(Dove.Cartella + u"kr5.ini"_s);
    if (Byte == Icone)
        return Trovato::Prima;
    const bool Intera = Byte.startsWith("[altra]\r\nx=1\r\n[desktop]\r\n") &&
                        Byte.count("_c=http://www.y") == 40 && Byte.endsWith("L39_i=icona.gif\r\n") &&
                        !Byte.contains("Agenda");
    return Intera ? Trovato::Nuovo : Trovato::Rotto;
}

}  // namespace

bool DannoFalso(const Posto& Dove, const QString& Deposito)
{
    const QString File = Dove.Cartella + Deposito + u".danno"_s;
    return QFile::exists(File) && Contenuto(File) != "fuori portata";
}

QList<Scenario> ScenariImpostazioni()
{
    const QStringList DelDeposito{u"Calcanova"_s, u"Calcanova/KR5\\.ini"_s};
    // What a refusal tells of a store that is damaged, or that nobody can read any more, is noted.
    const QStringList ColDanno = DelDeposito + QStringList{u"Calcanova/KR5\\.ini\\.danno"_s};
    const QList<Chiamata> DelNuovo{Apri, Scrivi, Sincronizza, Chiudi};
    const QList<Chiamata> DiUnFile = DelNuovo + QList{Rinomina};
    QList<Scenario> Tutti;
    Tutti.append({.Nome = u"impostazioni"_s,
                  .Attese = DiUnFile,
                  .Prepara = PosaDeposito,
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          Usa(Dove);
                          Comincia();
                          return Svolgi([] {
                              SalvaImpostazioni({{u"StudioNome"_s, u"Studio Bianchi"_s},
                                                 {u"StudioCitta"_s, QString(400, u'x')}});
                          });
                      },
                  .Guarda = GuardaDeposito,
                  .Ammessi = ColDanno,
                  .InBreve = true});
    Tutti.append({.Nome = u"impostazioni-guaste"_s,
                  .Attese = DiUnFile + QList{Collega},
                  .Prepara =
                      [](const Posto& Dove) {
                          QDir().mkpath(Dove.Cartella + u"Calcanova"_s);
                          Posa(FileDeposito(Dove), Mozzo());
                      },
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          Usa(Dove);
                          Comincia();
                          return Svolgi([] {
                              SalvaImpostazioni({{u"StudioNome"_s, u"Studio Bianchi"_s},
                                                 {u"StudioCitta"_s, QString(400, u'x')}});
                          });
                      },
                  .Guarda = GuardaMozzo,
                  .Ammessi = ColDanno + QStringList{u"Calcanova/KR5\\.ini\\.guasto"_s}});
    Tutti.append({.Nome = u"impostazioni-prime"_s,
                  .Attese = DelNuovo + QList{registro::Cartella},
                  .Prepara = [](const Posto&) {},
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          Usa(Dove);
                          Comincia();
                          return Svolgi([] { SalvaImpostazione(u"UserFolder"_s, u"/home/studio/KR5/"_s); });
                      },
                  .Guarda =
                      [](const Posto& Dove, const Uscita&) {
                          const QByteArray Byte = Contenuto(FileDeposito(Dove));
                          if (Byte.isEmpty() && !EsisteFile(FileDeposito(Dove)))
                              return Trovato::Prima;
                          return Testi(Dove, {u"userfolder"_s}) == QStringList{u"/home/studio/KR5/"_s}
                                     ? Trovato::Nuovo
                                     : Trovato::Rotto;
                      },
                  .Ammessi = DelDeposito});
    Tutti.append({.Nome = u"contatore"_s,
                  .Attese = DiUnFile,
                  .Prepara = PosaDeposito,
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          Usa(Dove);
                          sessione::ProgFatt = Impostazione(u"ProgFatt"_s).toInt();
                          Comincia();
                          const int Esito = Svolgi([] { AggiornaProgFatt(); });
                          std::printf("%d\n", sessione::ProgFatt);
                          return Esito;
                      },
                  .Guarda = GuardaContatore,
                  .Ammessi = ColDanno,
                  .InBreve = true});
    Tutti.append({.Nome = u"kr5.ini"_s,
                  .Attese = DiUnFile,
                  .Prepara = [](const Posto& Dove) { Posa(Dove.Cartella + u"kr5.ini"_s, Icone); },
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          Usa(Dove);
                          sessione::PercorsoProg = Dove.Cartella;
                          sessione::UserFolder = Dove.Cartella;
                          Comincia();
                          return Svolgi([] {
                              if (!ScriviIconeUtente(IconeNuove()))
                                  throw Rifiuto();
                          });
                      },
                  .Guarda = GuardaIcone,
                  .Ammessi = {u"kr5\\.ini"_s},
                  .InBreve = true,
                  .FraseFissa = true,
                  // The form of the settings says it.
                  .SenzaFrase = true});
    Tutti.append({.Nome = u"avvisokr5.ini"_s,
                  .Attese = DelNuovo,
                  .Prepara = [](const Posto&) {},
                  .Atto =
                      [](const Posto& Dove, const std::function<void()>& Comincia) {
                          Usa(Dove);
                          Comincia();
                          return Svolgi([&] {
                              if (!CIni().WriteINI(u"avvisokr5"_s, u"letto"_s, u"22/11/2026"_s,
                                                   u"avvisokr5.ini"_s, Dove.Cartella))
                                  throw Rifiuto();
                          });
                      },
                  .Guarda =
                      [](const Posto& Dove, const Uscita&) {
                          const QString File = Dove.Cartella + u"avvisokr5.ini"_s;
                          if (!EsisteFile(File))
                              return Trovato::Prima;
                          return Contenuto(File) == "[avvisokr5]\r\nletto=22/11/2026\r\n" ? Trovato::Nuovo
                                                                                          : Trovato::Rotto;
                      },
                  .Ammessi = {u"avvisokr5\\.ini"_s},
                  // Whoever has read a notice loses nothing by seeing it once more, so nobody says it.
                  .SenzaFrase = true});
    return Tutti;
}
