// Settings, counters, calculations, logo, what a mail takes along, rates and installers, the first use.
#include "feenote/file/file_prova.h"
#include "guasti/pubblicato.h"
#include "uccisioni/imprese.h"

#include "calculators/ultimicalcoli.h"
#include "core/app/primouso.h"
#include "core/impostazioni.h"
#include "core/modInvii.h"
#include "core/modLogo.h"
#include "core/modTrasmissioni.h"
#include "core/parametri.h"
#include "feenote/modNumeraFattura.h"
#include "platform/base/errore.h"
#include "platform/network/rete_qt.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/profilo.h"
#include "servitore/servitore.h"
#include "update/scarico.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int PrimaFattura = 41;

constexpr QFile::Permissions Altri =
    QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;

QString ImpostazioniTrovate()
{
    return GetSetting(u"Uccise"_s, u"Parametri"_s, u"uno"_s) + u'/' +
           GetSetting(u"Uccise"_s, u"Parametri"_s, u"due"_s) + u'/' +
           GetSetting(u"Uccise"_s, u"Parametri"_s, u"lunga"_s).left(5);
}

void SalvaImpostazioni(const QString& Valore)
{
    SaveSettings(u"Uccise"_s, u"Parametri"_s,
                 {{u"uno"_s, Valore}, {u"due"_s, Valore}, {u"lunga"_s, Valore.repeated(2000)}});
}

// ---- numbers ----------------------------------------------------------------------------------------

/// Takes some and writes each down, as whoever names a file by it does.
void PrendiNumeri(const QString& In)
{
    constexpr int Quanti = 4;
    for (int i = 0; i < Quanti; ++i) {
        const int Numero = PrendiTrasmissione();
        QFile Presi(In + u"presi"_s);
        if (!Presi.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
            throw Errore(errori::Accesso);
        Presi.write(QByteArray::number(Numero) + '\n');
    }
}

/// None was given twice, and none that was given will be.
QString DifettoNumeri(const QString& In)
{
    ConCasaIn(In);
    if (Impostazione(u"StudioNome"_s) != u"Studio Rossi")
        return u"impostazioni perdute"_s;
    const int Prossimo = ProssimaTrasmissione();
    QSet<int> Dati;
    for (const QByteArray& Riga : LeggiFile(In + u"presi"_s).split('\n')) {
        const int Numero = Riga.toInt();
        if (Riga.isEmpty())
            continue;
        if (Dati.contains(Numero))
            return u"%1 due volte"_s.arg(Numero);
        if (Numero >= Prossimo)
            return u"%1 si darebbe ancora"_s.arg(Numero);
        Dati.insert(Numero);
    }
    return {};
}

/// Proposes some numbers of invoices and moves the counter on, writing each down behind that.
void PrendiFatture(const QString& In)
{
    Messaggi Voce;
    Voce.Box = [](const QString&, int, const QString&) { return vbYes; };
    InstallaMessaggi(std::move(Voce));
    constexpr int Quanti = 4;
    for (int i = 0; i < Quanti; ++i) {
        sessione::ProgFatt = Impostazione(chiavi::ProgFatt.toString()).toInt();
        AggiornaProgFatt();
        QFile Presi(In + u"presi"_s);
        if (!Presi.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
            throw Errore(errori::Accesso);
        Presi.write(QByteArray::number(sessione::ProgFatt) + '\n');
    }
}

/// The counter went on, and never back.
QString DifettoFatture(const QString& In)
{
    ConCasaIn(In);
    if (Impostazione(u"StudioNome"_s) != u"Studio Rossi")
        return u"impostazioni perdute"_s;
    int Ultimo = PrimaFattura;
    for (const QByteArray& Riga : LeggiFile(In + u"presi"_s).split('\n')) {
        if (Riga.isEmpty())
            continue;
        if (Riga.toInt() <= Ultimo)
            return u"%1 dietro %2"_s.arg(Riga.toInt()).arg(Ultimo);
        Ultimo = Riga.toInt();
    }
    const int Ora = Impostazione(chiavi::ProgFatt.toString()).toInt();
    return Ora < Ultimo ? u"il contatore torna a %1"_s.arg(Ora) : QString();
}

// ---- settings that were cut off ---------------------------------------------------------------------

QString FileImpostazioni(const QString& In)
{
    return In + u"Calcanova/Uccise.ini"_s;
}

/// As a program without a sync left them.
QByteArray Mozzate(const QString& In)
{
    ConCasaIn(In);
    SalvaImpostazioni(u"prima"_s);
    constexpr qsizetype Perduti = 3;
    return LeggiFile(FileImpostazioni(In)).chopped(Perduti);
}

/// The former ones in their place or put aside, once, and the new ones whole.
QString DifettoMozzate(const QString& In)
{
    static const QByteArray Prima = Mozzate(NuovaCartella());
    ConCasaIn(In);
    const QString Messe = FileImpostazioni(In) + u".guasto"_s;
    if (EsisteFile(Messe) && (LeggiFile(Messe) != Prima || (QFile::permissions(Messe) & Altri)))
        return u"messo da parte altro, o per tutti"_s;
    if (LeggiFile(FileImpostazioni(In)) == Prima)
        return {};
    return EsisteFile(Messe) ? NonUna(ImpostazioniTrovate(), {u"dopo/dopo/dopod"_s})
                             : u"perdute quelle di prima"_s;
}

// ---- the last calculations --------------------------------------------------------------------------

const QByteArray Rovinato = "{\"formato\": ";

CalcoloRicordato Calcolo(const QString& Nome)
{
    return {
        Nome, u"esito"_s, QDateTime(QDate(2026, 11, 21), QTime(10, 30)), {{u"txtImporto"_s, Nome}}, false};
}

QString DifettoCalcoli(const QString& In, bool Guasto)
{
    const QString File = In + u"dati/Calcanova/calcoli.json"_s;
    const bool Messo = EsisteFile(File + u".guasto"_s);
    if (Messo && (!Guasto || LeggiFile(File + u".guasto"_s) != Rovinato))
        return u"messo da parte un elenco che non è quello"_s;
    if (!EsisteFile(File))
        return Messo ? QString() : u"nessun elenco"_s;
    if (QFile::permissions(File) & Altri)
        return u"di tutti"_s;
    const QByteArray Byte = LeggiFile(File);
    if (Guasto && Byte == Rovinato)
        return {};
    if (Guasto && !Messo)
        return u"perduto l'elenco guasto"_s;
    const auto Tutti = LeggiElenco(Byte);
    if (!Tutti)
        return u"illeggibile"_s;
    QStringList Nomi;
    for (const CalcoloRicordato& Uno : (*Tutti)[size_t(Calcolatrice::Interessi)])
        Nomi.append(Uno.Nome);
    return Guasto ? NonUna(Nomi.join(u','), {u"nuovo"_s})
                  : NonUna(Nomi.join(u','), {u"vecchio"_s, u"nuovo,vecchio"_s});
}

Impresa Calcoli(bool Guasto)
{
    QStringList Rimane{u"dati"_s, u"dati/Calcanova"_s, u"dati/Calcanova/calcoli.json"_s};
    if (Guasto)
        Rimane += u"dati/Calcanova/calcoli.json.guasto"_s;
    return {.Nome = Guasto ? u"calcoli guasti"_s : u"calcoli"_s,
            .Prepara =
                [=](const QString& In) {
                    ElencoCalcoli Elenco;
                    Elenco[size_t(Calcolatrice::Interessi)].append(Calcolo(u"vecchio"_s));
                    QDir().mkpath(In + u"dati/Calcanova"_s);
                    const QString File = In + u"dati/Calcanova/calcoli.json"_s;
                    Posa(File, Guasto ? Rovinato : ScriviElenco(Elenco));
                    QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner);
                },
            .Fa =
                [](const QString&) {
                    sessione::RicordaCalcoli = true;
                    RicordaCalcolo(Calcolatrice::Interessi, Calcolo(u"nuovo"_s));
                },
            .Difetto = [=](const QString& In) { return DifettoCalcoli(In, Guasto); },
            .Rimane = Rimane,
            .DaCapo = true,
            .SoloChieste = true};
}

// ---- the logo ---------------------------------------------------------------------------------------

QByteArray Figura(char Riempimento)
{
    return "\x89PNG\r\n\x1a\n" + QByteArray(60'000, Riempimento);
}

void ScegliLogo(const QByteArray& Png)
{
    const QString Impronta = logo::Conserva(Png);
    SalvaImpostazione(chiavi::LogoImpronta.toString(), Impronta);
    logo::TogliAltri(Impronta);
}

QString DifettoLogo(const QString& In)
{
    ConCasaIn(In);
    const auto Letto = logo::Leggi(Impostazione(chiavi::LogoImpronta.toString()));
    return Letto && (*Letto == Figura('p') || *Letto == Figura('d')) ? QString() : u"nessun logo"_s;
}

// ---- what a mail takes along ------------------------------------------------------------------------

const QByteArray Allegato = "%PDF-1.4\n" + QByteArray(150'000, 'x') + "%%EOF\n";

/// A document whose mark says that it is complete is.
QString DifettoInvio(const QString& In)
{
    const QString Qui = In + u"dati/Calcanova/invii/"_s;
    for (const QString& Cartella : NomiDentro(Qui)) {
        const QString Suo = Qui + Cartella + u"/Parcella Rossi.pdf"_s;
        const QString Segno = Qui + Cartella + u"/.inviato"_s;
        if (EsisteFile(Suo) && LeggiFile(Suo) != Allegato)
            return u"allegato a metà"_s;
        if (EsisteFile(Segno) && LeggiFile(Segno).contains('\n') && !EsisteFile(Suo))
            return u"un segno senza allegato"_s;
    }
    return {};
}

/// An hour later nothing of it is there, whoever was killed.
QString DifettoSpazzati(const QString& In)
{
    const QString Qui = In + u"dati/Calcanova/invii/"_s;
    constexpr int DueOre = 7200;
    for (const QString& Cartella : NomiDentro(Qui)) {
        Invecchia(Qui + Cartella, DueOre);
        const struct timespec Quando[2] = {{::time(nullptr) - DueOre, 0}, {::time(nullptr) - DueOre, 0}};
        ::utimensat(AT_FDCWD, QFile::encodeName(Qui + Cartella).constData(), Quando, 0);
    }
    SpazzaInvii();
    QStringList Rimasti;
    for (const QString& Cartella : NomiDentro(Qui))
        Rimasti += NomiDentro(Qui + Cartella);
    return NomiDentro(Qui).isEmpty() ? QString() : u"restano "_s + Rimasti.join(u", "_s);
}

// ---- updates ----------------------------------------------------------------------------------------

void UsaPubblicato(const QString& In)
{
    sessione::PercorsoProg = ProgrammaDiProva();
    sessione::UserFolder = In + u"utente/"_s;
    InstallaFileChiave(In + u"pubblicato/calcanova.pub"_s);
}

/// Where the update comes from: a server of this machine, where one was laid out, else the folder.
QString FileServitore(const QString& In)
{
    return In + u"pubblicato/servitore"_s;
}

Annuncio Annunciato(const QString& In)
{
    UsaPubblicato(In);
    InstallaReteQt({});
    const QString Indirizzo = QString::fromLatin1(Contenuto(FileServitore(In)));
    const Provenienza Da =
        Indirizzo.isEmpty() ? DallaCartella(In + u"pubblicato/versioni.txt"_s) : Provenienza{Indirizzo, {}};
    Annuncio Trovato;
    if (!ControlloVersioni(Da, true, Trovato))
        throw Errore(errori::Imprevisto, Trovato.Difetto);
    return Trovato;
}

void Pretendi(const EsitoScarico& Esito)
{
    if (!Esito.Riuscito())
        throw Errore(errori::Imprevisto, Esito.Dettaglio);
}

const QStringList DelPubblicato{u"pubblicato"_s,
                                u"pubblicato/calcanova.pub"_s,
                                u"pubblicato/tassi.dat"_s,
                                u"pubblicato/upgrade3.0.99.exe"_s,
                                u"pubblicato/versioni.txt"_s,
                                u"pubblicato/versioni.txt.sig"_s,
                                u"utente"_s};

void PosaPubblicato(const QString& In)
{
    const QString Da = pubblicato::Pubblicato();
    QDir().mkpath(In + u"pubblicato"_s);
    QDir().mkpath(In + u"utente"_s);
    for (const QString& Nome : ContenutoDi(Da))
        QFile::copy(Da + Nome, In + u"pubblicato/"_s + Nome);
    Posa(In + u"utente/Tassi.dat"_s, pubblicato::Vecchi());
    ImpostaDataFile(In + u"utente/Tassi.dat"_s, QDateTime(QDate(2026, 9, 1), QTime(9, 0)));
    Posa(In + u"utente/versioni.txt"_s, "versione=[3.0.1]\n01/01/2026\nnota=");
}

/// The same folder behind a server, which nobody kills.
void PosaServito(const QString& In)
{
    static const Servitore Locale;
    static const bool Pieno = [] {
        const QString Setup = Locale.Cartella() + u"kr5/setup/"_s;
        QDir().mkpath(Setup);
        for (const QString& Nome : ContenutoDi(pubblicato::Pubblicato()))
            QFile::copy(pubblicato::Pubblicato() + Nome, Setup + Nome);
        return Locale.Pronto();
    }();
    if (!Pieno)
        qFatal("the server of updates does not start");
    PosaPubblicato(In);
    Posa(FileServitore(In), Locale.Indirizzo().toLatin1());
}

/// The archive of rates in use is whole and has its date, or it would be offered again or never; so is the
/// one kept beside it, the installer, and what was announced.
QString DifettoAggiornamento(const QString& In)
{
    const QString File = In + u"utente/Tassi.dat"_s;
    const QByteArray Byte = Contenuto(File);
    const QByteArray Prima = Contenuto(File + u".prima"_s);
    const QByteArray Programma = Contenuto(In + u"utente/upgrade/upgrade3.0.99.exe"_s);
    const QByteArray Annunciate = Contenuto(In + u"utente/versioni.txt"_s);
    if (!Prima.isEmpty() && Prima != pubblicato::Vecchi() && Prima != pubblicato::Nuovi())
        return u"la copia dei tassi è a metà"_s;
    if (!Programma.isEmpty() && Programma != pubblicato::Installatore)
        return u"un installatore a metà"_s;
    if (!Annunciate.startsWith("versione=[3.0.1]") &&
        Annunciate != Contenuto(In + u"pubblicato/versioni.txt"_s))
        return u"un annuncio a metà"_s;
    if (Byte == pubblicato::Vecchi())
        return DataFile(File).date() == QDate(2026, 9, 1) ? QString() : u"tassi vecchi con un'altra data"_s;
    if (Byte != pubblicato::Nuovi())
        return u"tassi a metà"_s;
    return DataFile(File).date() >= QDate(2026, 12, 1) ? QString() : u"tassi nuovi con la data vecchia"_s;
}

Impresa Aggiornamento(bool DallaRete)
{
    QStringList Rimane =
        DelPubblicato + QStringList{u"utente/Tassi.dat"_s, u"utente/Tassi.dat.prima"_s, u"utente/upgrade"_s,
                                    u"utente/upgrade/upgrade3.0.99.exe"_s, u"utente/versioni.txt"_s};
    if (DallaRete)
        Rimane += u"pubblicato/servitore"_s;
    return {.Nome = DallaRete ? u"tassi e programma dalla rete"_s : u"tassi e programma nuovi"_s,
            .Prepara = DallaRete ? PosaServito : PosaPubblicato,
            .Fa =
                [](const QString& In) {
                    const Annuncio Trovato = Annunciato(In);
                    if (Contenuto(In + u"utente/Tassi.dat"_s) != pubblicato::Nuovi())
                        Pretendi(ScaricaTassi(Trovato));
                    Pretendi(ScaricaProgramma(Trovato));
                },
            .Difetto = DifettoAggiornamento,
            .Rimane = Rimane,
            .Poi = [](const QString& In) { Invecchia(In); },
            .Infine =
                [](const QString& In) {
                    return Contenuto(In + u"utente/Tassi.dat"_s) == pubblicato::Nuovi() ? QString()
                                                                                        : u"tassi vecchi"_s;
                },
            .DaCapo = true,
            .SoloChieste = true,
            .APezzi = DallaRete};
}

// ---- the first use ----------------------------------------------------------------------------------

QString CasaDi(const QString& In)
{
    return In + u"casa/"_s;
}

/// What stands there is whole and nobody else's, and what is set is there.
QString DifettoPrimoUso(const QString& In)
{
    const QString Documenti = CasaDi(In) + u"Documents/"_s;
    for (const QString& Copia : {Documenti + u"Calcanova/DatiStudio.mdb"_s, Documenti + u"KR5/Tassi.dat"_s})
        if (EsisteFile(Copia)) {
            if (Contenuto(Copia) != Contenuto(ProgrammaDiProva() + NomeFile(Copia)))
                return Copia + u" a metà"_s;
            if (QFile::permissions(Copia) & Altri)
                return Copia + u" di tutti"_s;
        }
    ConCasaIn(In);
    for (const QStringView Chiave : {chiavi::UserFolder, chiavi::ParcellePath, chiavi::ArchivioCliCon})
        if (const QString Dove = Impostazione(Chiave.toString()); !Dove.isEmpty() && !QFileInfo::exists(Dove))
            return Chiave.toString() + u" di ciò che non c'è"_s;
    return {};
}

/// All of it is there, and the rates have the age of their archive.
QString DifettoUsato(const QString& In)
{
    ConCasaIn(In);
    for (const QStringView Chiave : {chiavi::UserFolder, chiavi::ParcellePath, chiavi::ArchivioCliCon})
        if (Impostazione(Chiave.toString()).isEmpty())
            return Chiave.toString() + u" senza valore"_s;
    const QString Tassi = CasaDi(In) + u"Documents/KR5/Tassi.dat"_s;
    return DataFile(Tassi) == DataFile(ProgrammaDiProva() + u"Tassi.dat"_s) ? QString()
                                                                            : u"tassi con un'altra data"_s;
}

}  // namespace

QList<Impresa> ImpreseProgramma()
{
    return {
        {u"impostazioni"_s,
         [](const QString& In) {
             ConCasaIn(In);
             SalvaImpostazioni(u"prima"_s);
         },
         [](const QString&) { SalvaImpostazioni(u"dopo"_s); },
         [](const QString& In) {
             ConCasaIn(In);
             return NonUna(ImpostazioniTrovate(), {u"prima/prima/prima"_s, u"dopo/dopo/dopod"_s});
         },
         {u"Calcanova"_s, u"Calcanova/Uccise.ini"_s}},
        {.Nome = u"impostazioni guaste"_s,
         .Prepara =
             [](const QString& In) {
                 const QByteArray Prima = Mozzate(In);
                 ScriviFile(FileImpostazioni(In), Prima);
             },
         .Fa = [](const QString&) { SalvaImpostazioni(u"dopo"_s); },
         .Difetto = DifettoMozzate,
         .Rimane = {u"Calcanova"_s, u"Calcanova/Uccise.ini"_s, u"Calcanova/Uccise.ini.guasto"_s},
         .DaCapo = true},
        {.Nome = u"numero di fattura"_s,
         .Prepara =
             [](const QString& In) {
                 ConCasaIn(In);
                 ::SalvaImpostazioni({{u"StudioNome"_s, u"Studio Rossi"_s},
                                      {chiavi::ProgFatt.toString(), QString::number(PrimaFattura)}});
                 ScriviFile(In + u"presi"_s, {});
             },
         .Fa = PrendiFatture,
         .Difetto = DifettoFatture,
         .Rimane = {u"Calcanova"_s, u"Calcanova/KR5.ini"_s, u"presi"_s},
         .SoloChieste = true},
        {u"kr5.ini"_s,
         [](const QString& In) {
             (void)WritePrivateProfileString(u"desktop"_s, u"L1"_s, u"prima"_s, In + u"kr5.ini"_s);
         },
         [](const QString& In) {
             (void)WritePrivateProfileString(u"desktop"_s, u"L1"_s, u"dopo"_s, In + u"kr5.ini"_s);
         },
         [](const QString& In) {
             return NonUna(GetPrivateProfileString(u"desktop"_s, u"L1"_s, {}, 100, In + u"kr5.ini"_s),
                           {u"prima"_s, u"dopo"_s});
         },
         {u"kr5.ini"_s}},
        {.Nome = u"numeri presi"_s,
         .Prepara =
             [](const QString& In) {
                 SalvaImpostazioni({{u"StudioNome"_s, u"Studio Rossi"_s}, {u"ProgTrasm"_s, u"7"_s}});
                 Posa(In + u"presi"_s, {});
             },
         .Fa = PrendiNumeri,
         .Difetto = DifettoNumeri,
         .Rimane = {u"Calcanova"_s, u"Calcanova/KR5.ini"_s, u"presi"_s},
         .SoloChieste = true},
        Calcoli(false),
        Calcoli(true),
        {.Nome = u"logo"_s,
         .Prepara = [](const QString&) { ScegliLogo(Figura('p')); },
         .Fa = [](const QString&) { ScegliLogo(Figura('d')); },
         .Difetto = DifettoLogo,
         .Rimane = {u"Calcanova"_s, u"Calcanova/KR5.ini"_s, u"dati"_s, u"dati/Calcanova"_s,
                    u"dati/Calcanova/logo-%1.png"_s.arg(logo::Impronta(Figura('d')).left(16))},
         .Infine =
             [](const QString& In) {
                 // Another program may print with a former one for a day.
                 const QString Qui = In + u"dati/Calcanova/"_s;
                 for (const QString& Nome : NomiDeiFile(Qui, u".png"_s))
                     ImpostaDataFile(Qui + Nome, QDateTime::currentDateTime().addDays(-2));
                 logo::TogliAltri(Impostazione(chiavi::LogoImpronta.toString()));
                 return DifettoLogo(In);
             },
         .DaCapo = true,
         .SoloChieste = true},
        {.Nome = u"allegato di un messaggio"_s,
         .Prepara = [](const QString&) {},
         .Fa =
             [](const QString&) {
                 SpazzaInvii();
                 (void)ScriviInvio(u"Parcella Rossi.pdf"_s, [](const QString& File) {
                     ScriviFile(File, Allegato, Lettori::Cartella);
                 });
             },
         .Difetto = DifettoInvio,
         .Rimane = {u"dati"_s, u"dati/Calcanova"_s, u"dati/Calcanova/invii"_s},
         .Infine = DifettoSpazzati},
        Aggiornamento(false),
        Aggiornamento(true),
        {.Nome = u"primo uso"_s,
         .Prepara = [](const QString&) { SalvaImpostazione(u"PercorsoProcedura"_s, ProgrammaDiProva()); },
         .Fa =
             [](const QString& In) {
                 qputenv("HOME", QFile::encodeName(CasaDi(In).chopped(1)));
                 PrimoUso();
             },
         .Difetto = DifettoPrimoUso,
         .Rimane = {u"Calcanova"_s, u"Calcanova/KR5.ini"_s, u"casa"_s, u"casa/Documents"_s,
                    u"casa/Documents/Calcanova"_s, u"casa/Documents/Calcanova/DatiStudio.mdb"_s,
                    u"casa/Documents/Calcanova/Parcelle"_s, u"casa/Documents/Calcanova/Parcelle/Modelli"_s,
                    u"casa/Documents/KR5"_s, u"casa/Documents/KR5/Tassi.dat"_s},
         .Infine =
             [](const QString& In) {
                 ConCasaIn(In);
                 SalvaImpostazione(u"Prova"_s, u"1"_s);  // what lies beside the settings goes with the next
                 return DifettoUsato(In);
             },
         .DaCapo = true,
         .SoloChieste = true},
    };
}
