// A server on this machine for the tests of the network, honest or not.
//
// servitore FOLDER HEARD [CERTIFICATE KEY]: serves the files below FOLDER, by TLS where it has a certificate,
// and appends each question to HEARD. It prints its port and ends when its standard input does.
//
// The first part of a path says how it behaves, the rest which file is meant: /spezza/kr5/tassi.dat. Behind
// an
// "@" stands the end of the names that the behaviour is for; others are served honestly.
#include <QCoreApplication>
#include <QFile>
#include <QHostAddress>
#include <QSocketNotifier>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <memory>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray Contenuto(const QString& Percorso)
{
    QFile File(Percorso);
    return File.open(QIODevice::ReadOnly) ? File.readAll() : QByteArray();
}

QByteArray Testata(const QByteArray& Stato, const QByteArray& Resto)
{
    return "HTTP/1.1 " + Stato + "\r\nConnection: close\r\n" + Resto + "\r\n";
}

QByteArray Lunga(qint64 Byte)
{
    return "Content-Length: " + QByteArray::number(Byte) + "\r\n";
}

QByteArray Pezzo(const QByteArray& Byte)
{
    return QByteArray::number(Byte.size(), 16) + "\r\n" + Byte + "\r\n";
}

/// Takes calls for somebody else.
class Portiere : public QTcpServer
{
public:
    std::function<void(qintptr)> Accogli;

protected:
    void incomingConnection(qintptr Descrittore) override { Accogli(Descrittore); }
};

/// Hears on 127.0.0.1, and by the same port on 127.0.0.2, which to a client is another machine: no name has
/// to be looked up, so that the tests need no list of hosts.
class Servitore : public QTcpServer
{
public:
    Servitore(QString Radice, const QString& FileUditi, const QString& Certificato, const QString& Chiave)
        : Cartella(std::move(Radice)), Uditi(FileUditi)
    {
        if (Certificato.isEmpty())
            return;
        const QByteArray Byte = Contenuto(Chiave);
        SuoCertificato = QSslCertificate(Contenuto(Certificato));
        SuaChiave = QSslKey(Byte, QSsl::Rsa);
        if (SuaChiave.isNull())
            SuaChiave = QSslKey(Byte, QSsl::Ec);
    }

    bool Apri()
    {
        Altro.Accogli = [this](qintptr Descrittore) { incomingConnection(Descrittore); };
        return Uditi.open(QIODevice::WriteOnly | QIODevice::Append) && listen(QHostAddress::LocalHost) &&
               Altro.listen(QHostAddress(u"127.0.0.2"_s), serverPort());
    }

protected:
    void incomingConnection(qintptr Descrittore) override
    {
        auto* Presa = new QSslSocket(this);
        Presa->setSocketDescriptor(Descrittore);
        connect(Presa, &QAbstractSocket::disconnected, Presa, &QObject::deleteLater);
        if (!SuoCertificato.isNull()) {
            Presa->setLocalCertificate(SuoCertificato);
            Presa->setPrivateKey(SuaChiave);
            Presa->startServerEncryption();
        }
        auto Domanda = std::make_shared<QByteArray>();
        connect(Presa, &QIODevice::readyRead, Presa, [this, Presa, Domanda] {
            *Domanda += Presa->readAll();
            if (!Domanda->endsWith("\r\n\r\n"))
                return;
            Uditi.write(*Domanda);
            Uditi.flush();
            Rispondi(*Presa, *Domanda);
        });
    }

private:
    void Rispondi(QSslSocket& Presa, const QByteArray& Domanda);
    void Male(QSslSocket& Presa, const QString& Modo, const QString& Resto, const QByteArray& Corpo);
    static void Congeda(QSslSocket& Presa, const QByteArray& Byte)
    {
        Presa.write(Byte);
        Presa.disconnectFromHost();
    }
    static void SenzaFine(QSslSocket& Presa, const QByteArray& Byte, int OgniMs);

    Portiere Altro;
    QString Cartella;
    QFile Uditi;
    QSslCertificate SuoCertificato;
    QSslKey SuaChiave;
};

/// The same bytes again and again, as long as somebody takes them.
void Servitore::SenzaFine(QSslSocket& Presa, const QByteArray& Byte, int OgniMs)
{
    constexpr qint64 Scorta = qint64(4) << 20;
    auto* Orologio = new QTimer(&Presa);
    connect(Orologio, &QTimer::timeout, &Presa, [&Presa, Byte] {
        if (Presa.bytesToWrite() < Scorta)
            Presa.write(Byte);
    });
    Orologio->start(OgniMs);
}

void Servitore::Rispondi(QSslSocket& Presa, const QByteArray& Domanda)
{
    const QString Percorso = QString::fromLatin1(Domanda.split(' ').value(1));
    QString Modo = Percorso.section(u'/', 1, 1);
    const QString Resto = Percorso.section(u'/', 2);
    const QString Soltanto = Modo.section(u'@', 1);
    Modo = Modo.section(u'@', 0, 0);
    if (!Resto.endsWith(Soltanto))
        Modo = u"piano"_s;
    const QString File = Cartella + u'/' + Resto;
    const QByteArray Corpo = Contenuto(File);
    if (Modo == u"piano" && QFile::exists(File))
        Congeda(Presa, Testata("200 OK", Lunga(Corpo.size())) + Corpo);
    else if (Modo == u"piano")
        Male(Presa, u"pagina404"_s, Resto, {});
    else
        Male(Presa, Modo, Resto, Corpo);
}

void Servitore::Male(QSslSocket& Presa, const QString& Modo, const QString& Resto, const QByteArray& Corpo)
{
    const QByteArray Meta = Corpo.left(Corpo.size() / 2);
    const QByteArray Bene = Testata("200 OK", Lunga(Corpo.size()));
    const QByteArray Pagina = "<!DOCTYPE html><html><body>versione non trovata</body></html>";
    const QByteArray Qui = QByteArray::number(serverPort());
    const auto Rinvia = [&](const QByteArray& Dove) {
        Congeda(Presa, Testata("302 Found", "Location: " + Dove + "\r\n" + Lunga(9)) + "di la'...");
    };
    if (Modo == u"muto") {
        return;
    } else if (Modo == u"chiude") {
        Presa.abort();
    } else if (Modo == u"spezza") {
        Congeda(Presa, Bene + Meta);
    } else if (Modo == u"fermo") {
        Presa.write(Bene + Meta);
    } else if (Modo == u"lento") {
        Presa.write(Testata("200 OK", Lunga(qint64(1) << 20)));
        SenzaFine(Presa, QByteArray(64, 'x'), 10);
    } else if (Modo == u"piu") {  // says less than it sends
        Congeda(Presa, Testata("200 OK", Lunga(Meta.size())) + Corpo);
    } else if (Modo == u"infinito") {
        Presa.write(Testata("200 OK", {}));
        SenzaFine(Presa, QByteArray(64 << 10, 'x'), 0);
    } else if (Modo == u"enorme") {
        Presa.write(Testata("200 OK", Lunga(qint64(1) << 40)));
        SenzaFine(Presa, QByteArray(64, 'x'), 10);
    } else if (Modo == u"senzalunghezza") {
        Congeda(Presa, Testata("200 OK", {}) + Corpo);
    } else if (Modo == u"pezzi") {
        Congeda(Presa, Testata("200 OK", "Transfer-Encoding: chunked\r\n") + Pezzo(Meta) +
                           Pezzo(Corpo.mid(Meta.size())) + "0\r\n\r\n");
    } else if (Modo == u"pezzirotti") {
        Congeda(Presa, Testata("200 OK", "Transfer-Encoding: chunked\r\n") + Pezzo(Meta));
    } else if (Modo == u"pagina404") {
        Congeda(Presa,
                Testata("404 Not Found", "Content-Type: text/html\r\n" + Lunga(Pagina.size())) + Pagina);
    } else if (Modo == u"pagina500") {
        Congeda(Presa, Testata("500 Internal Server Error", Lunga(Pagina.size())) + Pagina);
    } else if (Modo == u"spezza404") {
        Congeda(Presa, Testata("404 Not Found", Lunga(Pagina.size())) + Pagina.chopped(5));
    } else if (Modo == u"chiave") {
        Congeda(Presa, Testata("401 Unauthorized",
                               "WWW-Authenticate: Basic realm=\"x\"\r\n" + Lunga(Pagina.size())) +
                           Pagina);
    } else if (Modo.startsWith(u"rinvia")) {
        const int Volte = QStringView(Modo).mid(6).toInt();
        const QByteArray Poi = Volte > 1 ? "rinvia" + QByteArray::number(Volte - 1) : "piano"_ba;
        Rinvia("/" + Poi + "/" + Resto.toLatin1());
    } else if (Modo == u"altrove") {
        Rinvia("http://127.0.0.2:" + Qui + "/piano/" + Resto.toLatin1());
    } else if (Modo == u"incasa") {
        Rinvia("http://localhost:" + Qui + "/piano/" + Resto.toLatin1());
    } else if (Modo == u"altronome") {
        Rinvia("https://127.0.0.2:" + Qui + "/piano/" + Resto.toLatin1());
    } else if (Modo == u"giu") {
        Rinvia("http://127.0.0.1:" + Qui + "/piano/" + Resto.toLatin1());
    } else if (Modo == u"file") {
        Rinvia("file:///etc/hostname");
    } else {
        Presa.abort();
    }
}

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication Programma(argc, argv);
    const QStringList Argomenti = QCoreApplication::arguments();
    Servitore Lui(Argomenti.value(1), Argomenti.value(2), Argomenti.value(3), Argomenti.value(4));
    if (!Lui.Apri())
        return 1;
    QSocketNotifier Fine(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&Fine, &QSocketNotifier::activated, &QCoreApplication::quit);
    std::printf("%d\n", int(Lui.serverPort()));
    std::fflush(stdout);
    return QCoreApplication::exec();
}
