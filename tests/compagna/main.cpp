// The companion application's side in tests: an archive of its own, and ears for the signal.
//
// compagna ARCHIVE HEARD: makes the archive where it is missing, listens under the title of the window, and
// appends what each caller sends to the file HEARD, a line a caller. It obeys lines of its standard input,
// each answered by a line: "blocca" keeps the archive to itself, "sblocca" gives it back, "conta" tells how
// many callers there were, "fine" or the end of the input ends it.
#include "archivio.h"

#include "platform/base/errore.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QSocketNotifier>

#include <cstdio>
#include <memory>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Where this user's programs find the window by its title. Written out, as another program would have it.
QString Presa()
{
    return qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/Praxivo - Gestione pratiche"_s;
}

void Rispondi(const char* Testo)
{
    std::printf("%s\n", Testo);
    std::fflush(stdout);
}

class Compagna
{
public:
    Compagna(QString FileArchivio, const QString& FileUditi)
        : Archivio(std::move(FileArchivio)), Uditi(FileUditi)
    {}

    bool Apri()
    {
        if (!QFile::exists(Archivio))
            CreaArchivioPratiche(Archivio);
        QLocalServer::removeServer(Presa());
        QObject::connect(&Ascolto, &QLocalServer::newConnection, [this] { Ascolta(); });
        return Uditi.open(QIODevice::WriteOnly | QIODevice::Append) && Ascolto.listen(Presa());
    }

    void Esegui(const QByteArray& Comando)
    {
        if (Comando == "blocca") {
            Bloccato = OpenDatabase(Archivio);
            Bloccato.Execute(u"BEGIN EXCLUSIVE"_s);
            Rispondi("bloccato");
        } else if (Comando == "sblocca") {
            Bloccato.Execute(u"ROLLBACK"_s);
            Bloccato = {};
            Rispondi("sbloccato");
        } else if (Comando == "conta") {
            while (Ascolto.waitForNewConnection(0))
                Ascolta();
            Rispondi(QByteArray::number(Chiamate).constData());
        } else {
            QCoreApplication::quit();
        }
    }

private:
    void Ascolta()
    {
        while (Ascolto.hasPendingConnections()) {
            const std::unique_ptr<QLocalSocket> Uno(Ascolto.nextPendingConnection());
            while (Uno->state() == QLocalSocket::ConnectedState && Uno->waitForReadyRead(2000)) {
            }
            Uditi.write(Uno->readAll() + '\n');
            Uditi.flush();
            ++Chiamate;
        }
    }

    QString Archivio;
    QFile Uditi;
    QLocalServer Ascolto;
    Database Bloccato;
    int Chiamate = 0;
};

/// What has come in so far, cut into lines; the rest of the last one waits.
QList<QByteArray> Righe(QByteArray& Attesa)
{
    char Parte[256];
    const auto Letti = ::read(STDIN_FILENO, Parte, sizeof Parte);
    if (Letti <= 0)
        return {"fine"};
    Attesa.append(Parte, qsizetype(Letti));
    QList<QByteArray> Intere = Attesa.split('\n');
    Attesa = Intere.takeLast();
    return Intere;
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication Programma(argc, argv);
    const QStringList Argomenti = QCoreApplication::arguments();
    if (Argomenti.size() != 3)
        return 2;
    try {
        Compagna Lei(Argomenti[1], Argomenti[2]);
        if (!Lei.Apri())
            return 1;
        QByteArray Attesa;
        QSocketNotifier Comandi(STDIN_FILENO, QSocketNotifier::Read);
        QObject::connect(&Comandi, &QSocketNotifier::activated, [&] {
            for (const QByteArray& Riga : Righe(Attesa))
                Lei.Esegui(Riga);
        });
        Rispondi("pronta");
        return QCoreApplication::exec();
    } catch (const Errore& Guasto) {
        std::fprintf(stderr, "%s\n", Guasto.what());
        return 1;
    }
}
