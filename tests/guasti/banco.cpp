#include "guasti/banco.h"

#include "platform/base/numerierrore.h"
#include "platform/system/sincrono.h"
#include "supporto/inglese.h"
#include "supporto/prova.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace registro;

namespace {

constexpr int AttesaMs = 20000;

QString NomeDi(Chiamata Quale)
{
    const std::string_view Nome = Nomi[Quale];
    return QString::fromLatin1(Nome.data(), qsizetype(Nome.size()));
}

QString TestoDi(const QString& File)
{
    QFile Letto(File);
    return Letto.open(QIODevice::ReadOnly) ? QString::fromUtf8(Letto.readAll()) : QString();
}

void Svuota(const QString& Cartella)
{
    // What a fault has made read-only goes all the same.
    QDirIterator Cammino(Cartella, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (Cammino.hasNext())
        QFile::setPermissions(Cammino.next(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QDir(Cartella).removeRecursively();
    QDir().mkpath(Cartella);
}

/// Makes every file that a fault has left an hour old.
void Invecchia(const QString& Cartella)
{
    constexpr qint64 UnOra = 3600;
    QDirIterator Cammino(Cartella, {u".*"_s, u"*.parziale"_s}, QDir::Files | QDir::Hidden,
                         QDirIterator::Subdirectories);
    while (Cammino.hasNext()) {
        QFile File(Cammino.next());
        if (File.open(QIODevice::ReadWrite))
            File.setFileTime(QDateTime::currentDateTime().addSecs(-UnOra), QFileDevice::FileModificationTime);
    }
}

GuastoArma Arma()
{
    static const auto Trovata = reinterpret_cast<GuastoArma>(dlsym(RTLD_DEFAULT, NomeGuastoArma));
    return Trovata;
}

/// Sends what a child says into two files.
void Ascolta(const QString& Detto, const QString& Frasi)
{
    for (const auto& [File, Numero] : {std::pair(Detto, 1), std::pair(Frasi, 2)}) {
        const int Aperto =
            ::open(QFile::encodeName(File).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        ::dup2(Aperto, Numero);
    }
}

/// Starts the program of a scenario under the shim; comes back only when it cannot.
void Avvia(const QStringList& Comando, const Posto& Dove, const QString& FileConti, const Guasto& Come,
           unsigned Numero)
{
    qputenv(VarCartella, QFile::encodeName(Dove.Cartella));
    qputenv(VarConti, QFile::encodeName(FileConti));
    qputenv(VarChiamata, Numero == 0 ? QByteArray() : NomeDi(Come.Chiamata).toLatin1());
    qputenv(VarNumero, QByteArray::number(Numero));
    qputenv(VarErrore, Come.Errore);
    qputenv(VarSempre, Come.Sempre ? "1" : "0");
    std::vector<QByteArray> Parole;
    for (const QString& Parola : Comando)
        Parole.push_back(QFile::encodeName(Parola));
    std::vector<char*> Argomenti;
    for (QByteArray& Parola : Parole)
        Argomenti.push_back(Parola.data());
    Argomenti.push_back(nullptr);
    ::execv(Argomenti[0], Argomenti.data());
}

/// A sentence that an Italian user can read: some words, none of them English. What a library says of its own
/// classes is none.
bool InItaliano(const QString& Frasi)
{
    constexpr qsizetype Parole = 3;
    static const QRegularExpression Parola(u"(?<![\\w/.])\\p{L}{2,}(?![\\w/])"_s);
    static const QRegularExpression Classe(u"\\bQ[A-Z][a-z]+"_s);
    const auto Detta = [](const QString& Riga) { return Riga.count(Parola) >= Parole; };
    const QStringList Righe = Frasi.split(u'\n', Qt::SkipEmptyParts);
    return std::ranges::any_of(Righe, Detta) && ParoleInglesi(Frasi).isEmpty() && !Frasi.contains(Classe);
}

/// A flush that may fail without a word: that of a lock, which says nothing after a loss of power, and that
/// of a folder to which the engine's journal has just come, before anything was promised.
bool Perdonato(const Uscita& Vista)
{
    const QString Vittima = QString::fromUtf8(Vista.Conti.Vittima.data());
    const bool Blocco = std::ranges::any_of(std::array{u".turno"_s, u".lock"_s, u".rmlock"_s, u".presa"_s},
                                            [&](const QString& Fine) { return Vittima.endsWith(Fine); });
    return Blocco || (Vista.Conti.SuCartella != 0 && Vista.Conti.Rinomine == 0);
}

/// The files of which a refusal says that they stand there all the same.
QStringList DettiAlSuoPosto(const QString& Frasi)
{
    static const QRegularExpression Forma(FraseAlSuoPosto.toString().arg(u"(\\S.*?)"_s));
    QStringList Nomi;
    for (auto Una = Forma.globalMatch(Frasi); Una.hasNext();)
        Nomi.append(Una.next().captured(1));
    return Nomi;
}

/// Whether a file of this name stands anywhere below a folder.
bool CeNella(const QString& Cartella, const QString& Nome)
{
    QDirIterator Cammino(Cartella, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (Cammino.hasNext())
        if (Cammino.next().endsWith(u'/' + Nome))
            return true;
    return false;
}

QString Descrizione(const Scenario& Cosa, const Guasto& Come, unsigned Numero, const Uscita& Vista)
{
    return u"%1: %2 %3%4 al n. %5 (%6), esito %7, detto «%8»"_s.arg(
        Cosa.Nome, NomeDi(Come.Chiamata), QString::fromLatin1(Come.Errore),
        Come.Sempre ? u" per sempre"_s : QString(), QString::number(Numero),
        QString::fromUtf8(Vista.Conti.Vittima.data()), QString::number(Vista.Esito),
        Vista.Frasi.trimmed().left(200));
}

void Stampa(const QString& Riga)
{
    std::printf("%s\n", Riga.toUtf8().constData());
    std::fflush(stdout);
}

void Conteggia(Somme& Tutto, const Giudizio& Questo)
{
    ++Tutto.Prove;
    Tutto.Prima += Questo.Stato == Trovato::Prima;
    Tutto.Nuovo += Questo.Stato == Trovato::Nuovo;
    Tutto.Rotti += !Questo.Rotto.isEmpty();
    Tutto.Taciuti += !Questo.Taciuto.isEmpty();
    Tutto.Negati += !Questo.Negato.isEmpty();
    Tutto.Muti += !Questo.Muto.isEmpty();
    Tutto.SenzaFrase += Questo.SenzaFrase;
    Tutto.Resti += !Questo.Resti.isEmpty();
    Tutto.Bloccati += !Questo.Bloccato.isEmpty();
}

QString RigaDiTabella(const QString& Scenario, const QString& Chiamata, const Somme& S)
{
    QString Riga = Scenario.leftJustified(20) + u' ' + Chiamata.leftJustified(10);
    for (const int Numero :
         {S.Prove, S.Prima, S.Nuovo, S.Rotti, S.Taciuti, S.Negati, S.Muti, S.SenzaFrase, S.Resti, S.Bloccati})
        Riga += QString::number(Numero).rightJustified(8);
    return Riga;
}

}  // namespace

QStringList Giudizio::Difetti() const
{
    QStringList Tutti;
    for (const QString* Uno : {&Rotto, &Taciuto, &Negato, &Muto, &Resti, &Bloccato})
        if (!Uno->isEmpty())
            Tutti.append(*Uno);
    return Tutti;
}

QList<Guasto> GuastiDi(Chiamata Quale)
{
    const auto Insieme = [&](std::initializer_list<std::pair<const char*, bool>> Modi) {
        QList<Guasto> Tutti;
        for (const auto& [Errore, Sempre] : Modi)
            Tutti.append({Quale, Errore, Sempre});
        return Tutti;
    };
    // What a signal has broken off is not broken off for ever.
    switch (Quale) {
    case Apri:
        return Insieme({{"ENOSPC", false},
                        {"EIO", false},
                        {"EIO", true},
                        {"EACCES", false},
                        {"EACCES", true},
                        {"EINTR", false}});
    case Scrivi:
        return Insieme({{"ENOSPC", false},
                        {"ENOSPC", true},
                        {"EIO", false},
                        {"EIO", true},
                        {"EINTR", false},
                        {"corto", false},
                        {"corto", true}});
    case Sincronizza:
        return Insieme({{"EIO", false}, {"EIO", true}, {"ENOSPC", false}, {"EINTR", false}});
    case Rinomina:
        return Insieme({{"ENOSPC", false}, {"EIO", false}, {"EACCES", false}, {"EACCES", true}});
    case Togli:
        return Insieme({{"EIO", false}, {"EACCES", false}, {"EACCES", true}});
    case Permessi:
        return Insieme({{"EIO", false}, {"EACCES", false}, {"EACCES", true}});
    case Chiudi:
        return Insieme({{"EIO", false}, {"EIO", true}, {"ENOSPC", false}, {"EINTR", false}});
    case Tronca:
        return Insieme({{"ENOSPC", false}, {"EIO", false}, {"EIO", true}});
    case registro::Cartella:
        return Insieme({{"ENOSPC", false}, {"EACCES", false}, {"EIO", true}});
    case Collega:
        return Insieme({{"ENOSPC", false}, {"EACCES", false}, {"EIO", true}});
    case Leggi:
        return Insieme({{"EIO", false}, {"EIO", true}, {"EINTR", false}, {"corto", false}});
    case Data:
        return Insieme({{"EACCES", false}, {"EIO", false}});
    case Chiamate:
        break;
    }
    return {};
}

Banco::Banco(const Scenario& Chi)
    : Cosa(Chi), Dove{NuovaCartella(), NuovaCartella()}, FileConti(Dove.Fuori + u"conti"_s)
{
    QFile File(FileConti);
    if (!File.open(QIODevice::ReadWrite) || !File.resize(sizeof(Conti)))
        qFatal("no room for the counts");
    void* Memoria = mmap(nullptr, sizeof(Conti), PROT_READ | PROT_WRITE, MAP_SHARED, File.handle(), 0);
    if (Memoria == MAP_FAILED)
        qFatal("the counts cannot be mapped");
    Registro = static_cast<Conti*>(Memoria);
}

Banco::~Banco()
{
    munmap(Registro, sizeof(Conti));
    Svuota(Dove.Cartella);
}

Uscita Banco::Esegui(const Guasto& Come, unsigned Numero)
{
    std::memset(Registro, 0, sizeof(Conti));
    const QString Detto = Dove.Fuori + u"detto"_s;
    const QString Frasi = Dove.Fuori + u"frasi"_s;
    std::fflush(nullptr);
    const pid_t Figlio = ::fork();
    if (Figlio == 0) {
        // The system takes no permission away: what is closed to others the program has closed.
        ::umask(0);
        Ascolta(Detto, Frasi);
        if (Cosa.Comando) {
            Avvia(Cosa.Comando(Dove), Dove, FileConti, Come, Numero);
            ::_exit(127);
        }
        qputenv(VarConti, QFile::encodeName(FileConti));
        bool Cominciato = false;
        const auto Comincia = [&] {
            Cominciato = true;
            Arma()(QFile::encodeName(Dove.Cartella).constData(), Registro,
                   Numero == 0 ? Chiamate : Come.Chiamata, Numero, Come.Errore, Come.Sempre);
        };
        const int Esito = Cosa.Atto(Dove, Comincia);
        std::fflush(nullptr);
        ::_exit(Cominciato ? Esito : 126);
    }
    Uscita Vista;
    QElapsedTimer Orologio;
    Orologio.start();
    int Stato = 0;
    while (::waitpid(Figlio, &Stato, WNOHANG) == 0) {
        if (Orologio.elapsed() > AttesaMs && !Vista.Appesa) {
            Vista.Appesa = true;
            ::kill(Figlio, SIGKILL);
        }
        ::usleep(500);
    }
    Vista.Caduta = !Vista.Appesa && !WIFEXITED(Stato);
    Vista.Esito = WIFEXITED(Stato) ? WEXITSTATUS(Stato) : -1;
    Vista.Detto = TestoDi(Detto);
    Vista.Frasi = TestoDi(Frasi);
    Vista.Conti = *Registro;
    return Vista;
}

QStringList Banco::Estranei() const
{
    QStringList Trovati;
    QDirIterator Cammino(Dove.Cartella, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (Cammino.hasNext()) {
        const QString Nome = Cammino.next().mid(Dove.Cartella.size());
        const bool Ammesso = std::ranges::any_of(Cosa.Ammessi, [&](const QString& Forma) {
            return QRegularExpression(QRegularExpression::anchoredPattern(Forma)).match(Nome).hasMatch();
        });
        if (!Ammesso)
            Trovati.append(Nome);
    }
    Trovati.sort();
    return Trovati;
}

QStringList Banco::Conta()
{
    const Guasto Nessuno{Chiamate, "", false};
    Svuota(Dove.Cartella);
    Cosa.Prepara(Dove);
    const Uscita Vista = Esegui(Nessuno, 0);
    std::ranges::copy(Vista.Conti.Viste, Contate.begin());
    QStringList Difetti;
    if (Vista.Esito != 0)
        Difetti.append(u"%1: senza guasti finisce con %2: %3"_s.arg(Cosa.Nome)
                           .arg(Vista.Esito)
                           .arg(Vista.Frasi.trimmed()));
    else if (Cosa.Guarda(Dove, Vista) != Trovato::Nuovo)
        Difetti.append(u"%1: senza guasti il nuovo non c'è"_s.arg(Cosa.Nome));
    if (const QStringList Altri = Estranei(); !Altri.isEmpty())
        Difetti.append(u"%1: senza guasti restano %2"_s.arg(Cosa.Nome, Altri.join(u", ")));
    for (const Chiamata Quale : Cosa.Attese)
        if (Contate[Quale] == 0)
            Difetti.append(u"%1: nessuna chiamata di %2"_s.arg(Cosa.Nome, NomeDi(Quale)));
    if (Cosa.Attese.isEmpty())
        Difetti.append(u"%1: non aspetta nessuna chiamata"_s.arg(Cosa.Nome));
    return Difetti;
}

Giudizio Banco::Giudica(const Guasto& Come, const Uscita& Vista, const QStringList& Accanto)
{
    Giudizio Questo;
    Questo.Stato = Cosa.Guarda(Dove, Vista);
    const bool Detto = Vista.Esito == 0 && !Vista.Appesa && !Vista.Caduta;
    if (Vista.Appesa)
        Questo.Rotto = u"non finisce"_s;
    else if (Vista.Caduta)
        Questo.Rotto = u"cade"_s;
    else if (Questo.Stato == Trovato::Rotto)
        Questo.Rotto = u"né il vecchio né il nuovo"_s;
    const bool Flusso = Come.Chiamata == Sincronizza && std::strcmp(Come.Errore, "EINTR") != 0;
    if (Detto && Questo.Stato != Trovato::Nuovo)
        Questo.Taciuto = u"detto fatto, e non è"_s;
    else if (Detto && Flusso && !Cosa.SenzaPromessa && !Perdonato(Vista) &&
             (Cosa.Avverte.isEmpty() || !Vista.Frasi.contains(Cosa.Avverte)))
        Questo.Taciuto = u"il disco ha rifiutato e non si dice"_s;
    const QStringList AlSuoPosto = DettiAlSuoPosto(Vista.Frasi);
    const auto Ce = [this](const QString& Nome) { return CeNella(Dove.Cartella, Nome); };
    const bool Taciuto = Cosa.DiPassaggio || (Cosa.FraseFissa && Come.Sempre);
    if (!Detto && Questo.Stato == Trovato::Nuovo && AlSuoPosto.isEmpty() && !Taciuto)
        Questo.Negato = u"detto non fatto, ed è"_s;
    else if (!std::ranges::all_of(AlSuoPosto, Ce))
        Questo.Negato = u"detto al suo posto, e non è"_s;
    Questo.SenzaFrase = !Detto && Cosa.SenzaFrase && Vista.Frasi.isEmpty();
    if (!Detto && Questo.Rotto.isEmpty() && !Questo.SenzaFrase && !InItaliano(Vista.Frasi))
        Questo.Muto = u"nessuna frase italiana"_s;
    else if (!Detto && Cosa.DicePerche && std::strcmp(Come.Errore, "ENOSPC") == 0 &&
             !Vista.Frasi.contains(DescrizioneErrore(errori::DiscoPieno)))
        Questo.Muto = u"non dice che il disco è pieno"_s;
    if (Detto && Accanto.isEmpty())
        return Questo;
    // The next one finds its way free, and sweeps; it comes later.
    Invecchia(Dove.Cartella);
    const Uscita Poi = Esegui({Chiamate, "", false}, 0);
    if (Poi.Esito != 0 || Cosa.Guarda(Dove, Poi) != Trovato::Nuovo)
        Questo.Bloccato = u"poi non riesce: "_s + Poi.Frasi.trimmed().left(200);
    if (Come.Chiamata == Togli && Cosa.Spazza)
        Cosa.Spazza(Dove);
    const QStringList Ancora = Estranei();
    // What could not be removed may wait for the next one, and so does the engine's journal where the disk
    // has refused to undo too: it is what the next one undoes by.
    const bool Attende = Come.Chiamata == Togli || std::ranges::all_of(Accanto, [](const QString& Nome) {
                             return Nome.endsWith(u"-journal");
                         });
    if (!Ancora.isEmpty() || !Attende)
        Questo.Resti = u"restano "_s + (Ancora.isEmpty() ? Accanto : Ancora).join(u", ");
    return Questo;
}

Giudizio Banco::Prova(const Guasto& Come, unsigned Numero, bool& Accaduto, Uscita& Vista)
{
    Svuota(Dove.Cartella);
    Cosa.Prepara(Dove);
    Vista = Esegui(Come, Numero);
    Accaduto = Vista.Conti.Guasti > 0 || Vista.Appesa || Vista.Caduta;
    if (!Accaduto)
        return {};
    return Giudica(Come, Vista, Estranei());
}

namespace {

/// The calls of the short selection; each fails in one way, at its last number.
bool InBreve(Chiamata Quale)
{
    return Quale == Apri || Quale == Scrivi || Quale == Sincronizza || Quale == Rinomina;
}

struct Corsa
{
    Somme Tutto;
    QStringList Difetti;
};

void UnaProva(Banco& Qui, const Scenario& Cosa, const Guasto& Come, unsigned Numero, Corsa& Insieme,
              bool& Accaduto)
{
    Uscita Vista;
    const Giudizio Questo = Qui.Prova(Come, Numero, Accaduto, Vista);
    if (!Accaduto)
        return;
    Conteggia(Insieme.Tutto, Questo);
    for (const QString& Difetto : Questo.Difetti())
        Insieme.Difetti.append(Descrizione(Cosa, Come, Numero, Vista) + u": "_s + Difetto);
}

Corsa ProvaChiamata(Banco& Qui, const Scenario& Cosa, Chiamata Quale, bool Breve)
{
    Corsa Insieme;
    const QList<Guasto> Modi = GuastiDi(Quale);
    bool Accaduto = true;
    if (Breve) {
        // The first flush is that of a content, the last one of what follows it.
        if (Quale == Sincronizza && Qui.Viste(Quale) > 1)
            UnaProva(Qui, Cosa, Modi[1], 1, Insieme, Accaduto);
        UnaProva(Qui, Cosa, Modi[1], Qui.Viste(Quale), Insieme, Accaduto);
        return Insieme;
    }
    for (const Guasto& Come : Modi) {
        Accaduto = true;
        // A fault may make further calls come; it ends with the number that no call has.
        constexpr unsigned Massimo = 5000;
        for (unsigned Numero = 1; Accaduto && Numero < Massimo; ++Numero)
            UnaProva(Qui, Cosa, Come, Numero, Insieme, Accaduto);
    }
    return Insieme;
}

}  // namespace

int EseguiScenari(const QList<Scenario>& Tutti, bool Breve, const QStringList& Soli,
                  const QString& SolaChiamata)
{
    int Sbagliate = 0;
    Somme Intere;
    QString Testata = u"scenario"_s.leftJustified(21) + u"chiamata"_s.leftJustified(10);
    for (const QString& Colonna : {u"prove"_s, u"prima"_s, u"nuovo"_s, u"rotti"_s, u"taciuti"_s, u"negati"_s,
                                   u"muti"_s, u"s.frase"_s, u"resti"_s, u"bloc."_s})
        Testata += Colonna.rightJustified(8);
    Stampa(Testata);
    for (const Scenario& Cosa : Tutti) {
        if ((!Soli.isEmpty() && !Soli.contains(Cosa.Nome)) || (Breve && Soli.isEmpty() && !Cosa.InBreve))
            continue;
        Banco Qui(Cosa);
        const QStringList Prima = Qui.Conta();
        for (const QString& Difetto : Prima)
            Stampa(u"  ! "_s + Difetto);
        Sbagliate += int(Prima.size());
        for (unsigned i = 0; i < Chiamate && Prima.isEmpty(); ++i) {
            const auto Quale = Chiamata(i);
            if (Qui.Viste(Quale) == 0 || (Breve && !InBreve(Quale)) ||
                (!SolaChiamata.isEmpty() && SolaChiamata != NomeDi(Quale)))
                continue;
            const Corsa Fatta = ProvaChiamata(Qui, Cosa, Quale, Breve);
            Stampa(RigaDiTabella(Cosa.Nome, NomeDi(Quale), Fatta.Tutto));
            for (const QString& Difetto : Fatta.Difetti)
                Stampa(u"  ! "_s + Difetto);
            Sbagliate += int(Fatta.Difetti.size());
            for (const auto Membro :
                 {&Somme::Prove, &Somme::Prima, &Somme::Nuovo, &Somme::Rotti, &Somme::Taciuti, &Somme::Negati,
                  &Somme::Muti, &Somme::SenzaFrase, &Somme::Resti, &Somme::Bloccati})
                Intere.*Membro += Fatta.Tutto.*Membro;
        }
    }
    Stampa(RigaDiTabella(u"tutto"_s, {}, Intere));
    if (Intere.Prove == 0) {
        Stampa(u"  ! nessuna prova"_s);
        ++Sbagliate;
    }
    return Sbagliate;
}
