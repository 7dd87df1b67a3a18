// A monkey at the windows of the program.
//
// scimmia SEED [EVENTS [SECONDS]]   1 when it has found something, 77 where it cannot be fenced in; the
// seconds are
//                                   those that it may stay without an event
//
// With CALCANOVA_DIARIO the events are written to the file of that name, whatever comes of them.
//
// The first process prepares a home and watches; the windows live in another one, which can write nowhere
// else. Where the program is ended by what the monkey does, it is started again in the same home.
#include "core/app/avvio.h"
#include "core/app/programma.h"
#include "feenote/file/modRecupero.h"
#include "feenote/windows/finestre.h"
#include "platform/kit/servizi_qt.h"
#include "platform/system/percorsi.h"
#include "scimmia/recinto.h"
#include "scimmia/scimmia.h"
#include "scimmia/tempo.h"
#include "supporto/inglese.h"
#include "supporto/prova.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <sys/personality.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int Trovato = 1;
constexpr int UsoErrato = 2;
constexpr int SenzaRecinto = 77;
constexpr auto Dentro = "--dentro";

QFile& Diario()
{
    static QFile Aperto;
    return Aperto;
}

/// Nothing is kept back: the line of the event that ends the process is there.
void Annota(const QString& Riga)
{
    Diario().write(Riga.toUtf8() + '\n');
    Diario().flush();
}

[[noreturn]] void Fermati(const QString& Guasto)
{
    Annota(u"TROVATO: "_s + Guasto);
    std::fprintf(stderr, "TROVATO: %s\n", qPrintable(Guasto));
    std::fflush(stderr);
    ::_exit(Trovato);
}

/// What Qt warns of is a fault of the program, but for what the platform without a screen cannot do.
void AvvisoDiQt(QtMsgType Tipo, const QMessageLogContext&, const QString& Detto)
{
    if (Detto.startsWith(u"This plugin does not support"))
        return;
    std::fprintf(stderr, "%s\n", qPrintable(Detto));
    if (Tipo != QtDebugMsg && Tipo != QtInfoMsg)
        Fermati(u"avviso: "_s + Detto);
}

/// A box that was shown, or asked for.
void Sentito(const QString& Testo)
{
    Annota(u"  messaggio: "_s + QString(Testo).replace(u'\n', u" | "_s).left(300));
    if (const QStringList Inglesi = ParoleInglesi(Testo); !Inglesi.isEmpty())
        Fermati(u"parole inglesi ("_s + Inglesi.join(u' ') + u") in: "_s + Testo);
}

/// --dentro SEED SESSION EVENTS HOME: one run of the program. It leaves the number of its events in the home.
int Sessione(int argc, char** argv, const QStringList& Argomenti)
{
    const quint32 Seme = Argomenti[2].toUInt();
    const int Numero = Argomenti[3].toInt();
    const int Eventi = Argomenti[4].toInt();
    const QString Casa = Argomenti[5];
    if (!ChiudiRecinto(Casa))
        return SenzaRecinto;
    Diario().setFileName(Casa + u"eventi.txt"_s);
    (void)Diario().open(QIODevice::Append);
    qInstallMessageHandler(AvvisoDiQt);

    FermaTempo();
    Applicazione Programma(argc, argv);
    PreparaProgramma();
    if (Numero == 0)
        ArredaUfficio(Casa, Seme);
    Caso Sorte(Seme, Numero);
    Scimmia Bestia(Sorte, Eventi, Seme % 3 != 0, Annota, Fermati);
    RispondiACaso(Casa, Sorte, Bestia.Come, Sentito);
    const QString Riga = RigaDiComandoDi(Seme, Numero);
    Annota(u"== sessione %1: \"%2\""_s.arg(Numero).arg(Riga));
    QTimer::singleShot(0, &Programma, [&] {
        Bestia.Parti();
        Main(Riga);
    });
    (void)QApplication::exec();
    AzzeraFinestre();
    LasciaRecupero();

    QFile Esito(Casa + u"esito"_s);
    if (!Esito.open(QIODevice::WriteOnly))
        return Trovato;
    Esito.write(QByteArray::number(Bestia.HaFinito() ? Eventi : Bestia.Fatti()) + ' ' +
                QByteArray::number(Bestia.Salvate().Rilette()));
    return 0;
}

/// The last lines of a file.
QByteArray Coda(const QString& File, qsizetype Righe)
{
    QFile Aperto(File);
    if (!Aperto.open(QIODevice::ReadOnly))
        return {};
    const QList<QByteArray> Tutte = Aperto.readAll().trimmed().split('\n');
    return Tutte.sliced(std::max<qsizetype>(0, Tutte.size() - Righe)).join('\n') + '\n';
}

QProcessEnvironment Ambiente(const QString& Casa)
{
    QProcessEnvironment Intorno = QProcessEnvironment::systemEnvironment();
    for (const char* Nome : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        Intorno.insert(QString::fromLatin1(Nome), Casa);
    Intorno.insert(u"XDG_DOCUMENTS_DIR"_s, Casa + u"Documenti"_s);
    Intorno.insert(u"XDG_RUNTIME_DIR"_s, Casa + u"sessione"_s);
    Intorno.insert(u"TMPDIR"_s, Casa + u"tmp"_s);
    Intorno.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    Intorno.insert(u"QT_HASH_SEED"_s, u"0"_s);
    Intorno.insert(u"QT_NO_GLIB"_s, u"1"_s);  // Qt's own loop, which says when it has nothing left to do
    for (const QString& Sotto : {u"Documenti"_s, u"sessione"_s, u"tmp"_s})
        QDir().mkpath(Casa + Sotto);
    QFile::setPermissions(Casa + u"sessione"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return Intorno;
}

/// Waits for the end of a session, as long as there are events. @return false when it was killed in its
/// silence
bool AttendiFiglia(QProcess& Figlia, const QString& Eventi, int Secondi)
{
    constexpr int OgniMs = 500;
    qint64 Lungo = 0;
    QElapsedTimer Silenzio;
    Silenzio.start();
    while (!Figlia.waitForFinished(OgniMs)) {
        if (Figlia.state() == QProcess::NotRunning)
            return true;
        if (const qint64 Adesso = QFileInfo(Eventi).size(); Adesso != Lungo) {
            Lungo = Adesso;
            Silenzio.restart();
        }
        if (Silenzio.elapsed() > qint64(Secondi) * 1000) {
            Figlia.kill();
            Figlia.waitForFinished();
            return false;
        }
    }
    return true;
}

/// Runs sessions of a seed until its events are made. @return the status of the first that ended otherwise,
/// or 0
int Prova(const QString& Questo, const QString& Casa, int Eventi, int Secondi)
{
    const QProcessEnvironment Intorno = Ambiente(Casa);
    // Some sets of the toolkit are in the order of their addresses; where the system refuses, a seed is less
    // the same.
    ::personality(ADDR_NO_RANDOMIZE);
    QElapsedTimer Orologio;
    Orologio.start();
    int Restano = Eventi;
    int Rilette = 0;
    int Numero = 0;
    for (; Restano > 0; ++Numero) {
        QFile::remove(Casa + u"esito"_s);
        QProcess Figlia;
        Figlia.setProcessEnvironment(Intorno);
        Figlia.setStandardOutputFile(Casa + u"detto.txt"_s);
        Figlia.setProcessChannelMode(QProcess::MergedChannels);
        Figlia.start(
            QCoreApplication::applicationFilePath(),
            {QString::fromLatin1(Dentro), Questo, QString::number(Numero), QString::number(Restano), Casa});
        const bool Finita = AttendiFiglia(Figlia, Casa + u"eventi.txt"_s, Secondi);
        if (Finita && Figlia.exitStatus() == QProcess::NormalExit && Figlia.exitCode() == SenzaRecinto)
            return SenzaRecinto;
        const QByteArrayList Esito = Coda(Casa + u"esito"_s, 1).trimmed().split(' ');
        if (!Finita || Figlia.exitStatus() != QProcess::NormalExit || Figlia.exitCode() != 0 ||
            Esito.size() != 2) {
            constexpr qsizetype UltimiEventi = 60;
            constexpr qsizetype UltimeParole = 120;
            std::printf("%s\n%s", Coda(Casa + u"eventi.txt"_s, UltimiEventi).constData(),
                        Coda(Casa + u"detto.txt"_s, UltimeParole).constData());
            std::printf("seme %s: %s, sessione %d\n", qPrintable(Questo),
                        Finita ? "TROVATO qualcosa" : "fermo", Numero);
            return Trovato;
        }
        Restano -= Esito[0].toInt();
        Rilette += Esito[1].toInt();
    }
    std::printf("seme %s: %d eventi, %d avvii, %d note rilette, %lld s\n", qPrintable(Questo), Eventi, Numero,
                Rilette, static_cast<long long>(Orologio.elapsed() / 1000));
    return 0;
}

int Seme(const QString& Questo, int Eventi, int Secondi)
{
    const QTemporaryDir Radice(QDir::tempPath() + u"/calcanova-scimmia-XXXXXX"_s);
    const QString Casa = Radice.path() + u'/';
    const int Esito = Prova(Questo, Casa, Eventi, Secondi);
    if (const QString Copia = qEnvironmentVariable("CALCANOVA_DIARIO"); !Copia.isEmpty()) {
        QFile::remove(Copia);
        QFile::copy(Casa + u"eventi.txt"_s, Copia);
    }
    return Esito;
}

}  // namespace

int main(int argc, char** argv)
{
    QStringList Argomenti;
    for (int i = 0; i < argc; ++i)
        Argomenti += QString::fromLocal8Bit(argv[i]);
    if (Argomenti.size() == 6 && Argomenti[1] == QLatin1StringView(Dentro))
        return Sessione(argc, argv, Argomenti);
    constexpr int EventiDiSolito = 4000;
    constexpr int SecondiDiSolito = 300;
    const QCoreApplication Programma(argc, argv);
    const int Eventi = Argomenti.value(2, QString::number(EventiDiSolito)).toInt();
    const int Secondi = Argomenti.value(3, QString::number(SecondiDiSolito)).toInt();
    if (Argomenti.size() < 2 || Argomenti.size() > 4 || Eventi < 1 || Secondi < 1) {
        std::fputs("scimmia SEME [EVENTI [SECONDI]]\n", stderr);
        return UsoErrato;
    }
    return Seme(Argomenti[1], Eventi, Secondi);
}
