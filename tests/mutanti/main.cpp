// The real command line over damaged files: seeded mutants of everything that it reads, each in a process of
// its own with 1 GB and ten seconds. A mutant is a failure where the command dies, hangs, or ends without a
// word.
//
//   mutanti CALCANOVA-CLI PROGRAM-FOLDER HOW-MANY [FIRST-SEED [FOLDER FOR WHAT FAILED]]
#include "mutazioni.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <map>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr rlim_t MassimaMemoria = RLIM_INFINITY;  // the shadow of the memory takes terabytes of addresses
#else
constexpr rlim_t MassimaMemoria = rlim_t(1) << 30;
#endif
constexpr rlim_t MassimiSecondi = 10;    ///< of the processor: the machine may have other work
constexpr unsigned MassimaAttesa = 300;  ///< seconds, for one that waits for what never comes

QByteArray Leggi(const QString& File)
{
    QFile Aperto(File);
    if (!Aperto.open(QIODevice::ReadOnly))
        qFatal("%s: non si legge", qPrintable(File));
    return Aperto.readAll();
}

void Scrivi(const QString& File, const QByteArray& Byte)
{
    QFile Nuovo(File);
    if (!Nuovo.open(QIODevice::WriteOnly) || Nuovo.write(Byte) != Byte.size())
        qFatal("%s: non si scrive", qPrintable(File));
}

/// How one process ended.
struct Fine
{
    int Stato = 0;  ///< exit status, or minus the signal
    qint64 Ms = 0;
    long KByte = 0;  ///< most memory that it had
    QByteArray Uscita, Guasti;
};

/// Runs the command line with its answers in two files.
Fine Lancia(const QString& Cli, const QStringList& Argomenti, const QString& Cartella)
{
    const QByteArray Uscita = QFile::encodeName(Cartella + u"uscita"_s);
    const QByteArray Guasti = QFile::encodeName(Cartella + u"guasti"_s);
    QByteArrayList Byte{QFile::encodeName(Cli)};
    for (const QString& Uno : Argomenti)
        Byte += QFile::encodeName(Uno);
    std::vector<char*> Puntatori;
    for (QByteArray& Uno : Byte)
        Puntatori.push_back(Uno.data());
    Puntatori.push_back(nullptr);

    QElapsedTimer Tempo;
    Tempo.start();
    const pid_t Figlio = fork();
    if (Figlio == 0) {
        const auto Verso = [](const QByteArray& File, int Canale) {
            const int Aperto = open(File.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            return Aperto >= 0 && dup2(Aperto, Canale) >= 0;
        };
        const rlimit Memoria{MassimaMemoria, MassimaMemoria};
        const rlimit SenzaSalvataggio{0, 0};
        setrlimit(RLIMIT_AS, &Memoria);
        setrlimit(RLIMIT_CORE, &SenzaSalvataggio);
        const rlimit Processore{MassimiSecondi, MassimiSecondi + 1};
        setrlimit(RLIMIT_CPU, &Processore);
        alarm(MassimaAttesa);  // outlives the exec, and nobody there answers it
        if (Verso(Uscita, STDOUT_FILENO) && Verso(Guasti, STDERR_FILENO))
            execv(Puntatori[0], Puntatori.data());
        _exit(126);
    }
    int Stato = 0;
    rusage Uso{};
    if (Figlio < 0 || wait4(Figlio, &Stato, 0, &Uso) != Figlio)
        qFatal("nessun processo");
    return {WIFSIGNALED(Stato) ? -WTERMSIG(Stato) : WEXITSTATUS(Stato), Tempo.elapsed(), Uso.ru_maxrss,
            Leggi(QFile::decodeName(Uscita)), Leggi(QFile::decodeName(Guasti))};
}

/// What is damaged, and the commands that read it.
struct Genere
{
    QString Nome;
    QString File;  ///< the mutant, in the working folder
    QByteArray Sano;
    enum { Byte, Schema, Testo } Come;
    QList<QStringList> Comandi;
};

class Banco
{
public:
    Banco(QString DelCli, const QString& Programma, QString PerTrovati)
        : Cli(std::move(DelCli)), Trovati(std::move(PerTrovati))
    {
        Qui = Cartella.path() + u'/';
        for (const char* Nome :
             {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_DOCUMENTS_DIR", "XDG_RUNTIME_DIR"})
            qputenv(Nome, QFile::encodeName(Qui + QString::fromLatin1(Nome)));
        qputenv("QT_QPA_PLATFORM", "offscreen");
        for (const QString& Nome : {u"programma/doc"_s, u"utente"_s, u"XDG_CONFIG_HOME/Calcanova"_s})
            QDir(Qui).mkpath(Nome);
        for (const QString& Nome :
             {u"parcelle.mdb"_s, u"parcelle55.mdb"_s, u"Comuni.mdb"_s, u"DatiStudio.mdb"_s, u"Norme.mdb"_s})
            Scrivi(Qui + u"programma/"_s + Nome, Leggi(Programma + Nome));
        Scrivi(Qui + u"utente/Tassi.dat"_s, Leggi(Programma + u"Tassi.dat"_s));
        Scrivi(Qui + u"nota.json"_s, Descrizione());
        if (Chiama({u"crea"_s, Qui + u"nota.json"_s, Qui + u"sana.mdb"_s}).Stato != 0)
            qFatal("la nota sana non si crea");
        Generi = Tutti(Programma);
    }

    /// One mutant. @return true when each command ended in one of the ways it may
    bool Prova(unsigned Seme)
    {
        Caso Dado(Seme);
        const Genere& Uno = Generi[Fra(Dado, 0, int(Generi.size()) - 1)];
        const QString File = Qui + Uno.File;
        for (const QString& Accanto : {u"-journal"_s, u"-wal"_s, u"-shm"_s})
            QFile::remove(File + Accanto);
        if (Uno.Come == Genere::Testo) {
            Scrivi(File, MutaTesto(Uno.Sano, Dado));
        } else {
            Scrivi(File, Uno.Come == Genere::Byte ? MutaByte(Uno.Sano, Dado) : Uno.Sano);
            if (Uno.Come == Genere::Schema)
                MutaSchema(File, Dado);
        }
        const QByteArray Mutante = Leggi(File);
        bool Buono = true;
        for (const QStringList& Comando : Uno.Comandi) {
            QFile::remove(Qui + u"nuova.mdb"_s);
            const Fine Avuta = Chiama(Comando);
            ++Chiamate;
            Picco = std::max(Picco, Avuta.KByte);
            if (Avuta.Ms > Lento) {
                Lento = Avuta.Ms;
                DelLento = u"%1 %2"_s.arg(Uno.Nome).arg(Seme);
            }
            const QString Male = Difetto(Avuta);
            if (Male.isEmpty())
                continue;
            Buono = false;
            ++Difetti[Male];
            const QString Dove = Trovati + u"%1-%2"_s.arg(Uno.Nome).arg(Seme);
            QDir().mkpath(Trovati);
            Scrivi(Dove, Mutante);
            std::printf("%s: %s (%s)\n%s", qPrintable(Male), qPrintable(Dove), qPrintable(Comando.join(u' ')),
                        Avuta.Guasti.left(2000).constData());
            std::fflush(stdout);
        }
        Scrivi(File, Uno.Sano);
        ++Provati[Uno.Nome];
        return Buono;
    }

    void Racconta() const
    {
        int Somma = 0;
        for (const auto& [Nome, Quanti] : Provati) {
            std::printf("  %-12s %7d\n", qPrintable(Nome), Quanti);
            Somma += Quanti;
        }
        std::printf("%d mutanti, %d comandi; picco %ld MB, il più lento %lld ms (%s)\n", Somma, Chiamate,
                    Picco / 1024, static_cast<long long>(Lento), qPrintable(DelLento));
        if (Difetti.empty())
            std::printf("nessun difetto\n");
        for (const auto& [Male, Quanti] : Difetti)
            std::printf("%s: %d\n", qPrintable(Male), Quanti);
    }

private:
    [[nodiscard]] Fine Chiama(const QStringList& Comando) const
    {
        return Lancia(Cli,
                      QStringList{u"--programma"_s, Qui + u"programma"_s, u"--utente"_s, Qui + u"utente"_s} +
                          Comando,
                      Qui);
    }

    /// In a few words, what a command may not do; empty for what it may.
    static QString Difetto(const Fine& Avuta)
    {
        if (Avuta.Stato == -SIGALRM || Avuta.Stato == -SIGXCPU)
            return u"fermo"_s;
        if (Avuta.Stato < 0 || Avuta.Stato > 2)
            return u"caduto (%1)"_s.arg(Avuta.Stato);
        if (Avuta.Stato == 0 && Avuta.Uscita.trimmed().isEmpty())
            return u"riuscito senza risposta"_s;
        if (Avuta.Stato != 0 && Avuta.Guasti.trimmed().isEmpty() && Avuta.Uscita.trimmed().isEmpty())
            return u"rifiutato senza una frase"_s;
        return {};
    }

    static QByteArray Descrizione()
    {
        return R"({"categoria": "CIV", "autorita": 2, "valore": 30000, "cliente": "Rossi Maria",
 "controparte": "Bianchi S.r.l.", "oggetto": "Recupero crediti",
 "onorari": [{"voce": 999, "descrizione": "Parere", "importo": 120.5}],
 "spese": [{"voce": 3, "imponibili": 16, "data": "01/02/2013"}],
 "acconti": [{"descrizione": "Primo", "corrispettivi": 100}],
 "percentuali": {"iva": 22}, "password": "chiave"}
)";
    }

    [[nodiscard]] QList<Genere> Tutti(const QString& Programma) const
    {
        const QString Nota = Qui + u"mutante.mdb"_s;
        const QString Testo = Qui + u"uscita.txt"_s;
        const QByteArray Sana = Leggi(Qui + u"sana.mdb"_s);
        const QList<QStringList> DellaNota{
            {u"nota"_s, Nota}, {u"riepilogo"_s, Nota}, {u"stampa"_s, Nota, u"2"_s, Testo}};
        const QList<QStringList> DeiTassi{{u"interessi"_s, u"mora"_s, u"1000"_s, u"Euro"_s, u""_s,
                                           u"01/02/2009"_s, u"31/01/2013"_s, u"1"_s},
                                          {u"istat"_s, u"100"_s, u"€"_s, u"01/03/1998"_s, u"01/11/2012"_s}};
        const QList<QStringList> DelloStudio{{u"rubrica"_s, u"clienti"_s, u"ro"_s},
                                             {u"rubrica"_s, u"controparti"_s}};
        const QList<QStringList> DelleTariffe{{u"crea"_s, Qui + u"nota.json"_s, Qui + u"nuova.mdb"_s}};
        const QList<QStringList> DelleTariffe55{
            {u"--tariffa"_s, u"55"_s, u"voci"_s, u"CIV"_s, u"102"_s, u"30000"_s},
            {u"--tariffa"_s, u"55"_s, u"voci"_s, u"PEN"_s, u"138"_s, u""_s},
            {u"--tariffa"_s, u"55"_s, u"voci"_s, u"STR"_s, u""_s, u"3000000"_s}};
        const QList<QStringList> DeiComuni{
            {u"codfis"_s, u"Rossi"_s, u"Maria"_s, u"01/02/1980"_s, u"F"_s, u"Forli'"_s}};
        const QList<QStringList> DelleNorme{
            {u"--norme"_s, u"vigenti"_s, u"--spiega"_s, u"termini"_s, u"10/03/2026"_s, u"200"_s, u"giorni"_s},
            {u"--norme"_s, u"vigenti"_s, u"contributo"_s, u"6000"_s, u"ordinario"_s, u"10/06/2025"_s},
            {u"ricorrenti"_s},
            {u"scadenza"_s, u"CPC-171TER"_s, u"15/06/2026"_s}};
        const QList<QStringList> DelleClausole{
            {u"stampa"_s, Qui + u"sana.mdb"_s, u"5"_s, Testo},
            {u"stampa"_s, Qui + u"sana.mdb"_s, u"5"_s, Qui + u"uscita.htm"_s}};
        const QList<QStringList> DelleImpostazioni{{u"riepilogo"_s, Qui + u"sana.mdb"_s},
                                                   {u"stampa"_s, Qui + u"sana.mdb"_s, u"0"_s, Testo}};
        const QByteArray Tassi = Leggi(Programma + u"Tassi.dat"_s);
        const QByteArray Tariffe = Leggi(Programma + u"parcelle.mdb"_s);
        const QByteArray Tariffe55 = Leggi(Programma + u"parcelle55.mdb"_s);
        const QByteArray Comuni = Leggi(Programma + u"Comuni.mdb"_s);
        const QByteArray Norme = Leggi(Programma + u"Norme.mdb"_s);
        const QByteArray Studio = Leggi(Programma + u"DatiStudio.mdb"_s);
        const QByteArray Clausole =
            "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Times New Roman;}}\\pard\\qj\\b Art. 3 - Incarico\\b0\\par "
            "L'incarico \\'e8 conferito\\tab a:\\par\\trowd\\cellx3000\\cellx6000\\intbl uno\\cell "
            "due\\cell\\row "
            "\\pard{\\pntext 1.\\tab}Primo\\par{\\pict\\picw10 00ff}\\u8364? 100\\par}";
        const QByteArray Impostazioni =
            "[Parametri]\nStudioNome=Avv. Rossi\nIVA=22\nSpeseGen=\"12,5\"\nCP=4\n"
            "progfatt=7\nUserFolder=/tmp\nColoreEtichette=16777215\nIban=IT60\n";
        const QString FileImpostazioni = u"XDG_CONFIG_HOME/Calcanova/KR5.ini"_s;
        return {
            {u"nota"_s, u"mutante.mdb"_s, Sana, Genere::Byte, DellaNota},
            {u"nota-schema"_s, u"mutante.mdb"_s, Sana, Genere::Schema, DellaNota},
            {u"json"_s, u"nota.json"_s, Descrizione(), Genere::Testo, DelleTariffe},
            {u"clausole"_s, u"programma/doc/ContrattoPersonaFisica.rtf"_s, Clausole, Genere::Testo,
             DelleClausole},
            {u"impostazioni"_s, FileImpostazioni, Impostazioni, Genere::Testo, DelleImpostazioni},
            {u"tassi"_s, u"utente/Tassi.dat"_s, Tassi, Genere::Byte, DeiTassi},
            {u"tassi-schema"_s, u"utente/Tassi.dat"_s, Tassi, Genere::Schema, DeiTassi},
            {u"comuni"_s, u"programma/Comuni.mdb"_s, Comuni, Genere::Byte, DeiComuni},
            {u"tariffe"_s, u"programma/parcelle.mdb"_s, Tariffe, Genere::Byte, DelleTariffe},
            {u"tariffe-schema"_s, u"programma/parcelle.mdb"_s, Tariffe, Genere::Schema, DelleTariffe},
            {u"tariffe55"_s, u"programma/parcelle55.mdb"_s, Tariffe55, Genere::Byte, DelleTariffe55},
            {u"tariffe55-schema"_s, u"programma/parcelle55.mdb"_s, Tariffe55, Genere::Schema, DelleTariffe55},
            {u"norme"_s, u"programma/Norme.mdb"_s, Norme, Genere::Byte, DelleNorme},
            {u"norme-schema"_s, u"programma/Norme.mdb"_s, Norme, Genere::Schema, DelleNorme},
            {u"archivio"_s, u"programma/DatiStudio.mdb"_s, Studio, Genere::Byte, DelloStudio},
            {u"archivio-schema"_s, u"programma/DatiStudio.mdb"_s, Studio, Genere::Schema, DelloStudio}};
    }

    QTemporaryDir Cartella;
    QString Qui, Cli, Trovati;
    QList<Genere> Generi;
    std::map<QString, int> Provati, Difetti;
    int Chiamate = 0;
    long Picco = 0;
    qint64 Lento = 0;
    QString DelLento;
};

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication Programma(argc, argv);
    const QStringList Argomenti = QCoreApplication::arguments();
    const int Quanti = Argomenti.value(3).toInt();
    if (Quanti <= 0) {
        std::fprintf(stderr, "mutanti CALCANOVA-CLI CARTELLA QUANTI [PRIMO SEME [CARTELLA DEI TROVATI]]\n");
        return 2;
    }
    const unsigned Primo = Argomenti.value(4, u"1"_s).toUInt();
    Banco Prove(Argomenti[1], Argomenti[2] + u'/', Argomenti.value(5, u"."_s) + u'/');
    bool Buoni = true;
    for (int i = 0; i < Quanti; ++i)
        Buoni = Prove.Prova(Primo + unsigned(i)) && Buoni;
    Prove.Racconta();
    return Buoni ? 0 : 1;
}
