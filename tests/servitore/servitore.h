// A server on this machine beside a test: a process of its own, gone with the object.
#pragma once

#include "platform/system/file.h"
#include "supporto/prova.h"

#include <QProcess>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

class Servitore
{
public:
    /// @param Fiducia a folder with cert.pem and key.pem: it serves by TLS
    explicit Servitore(const QString& Fiducia = {}) : Base(NuovaCartella()), Sicuro(!Fiducia.isEmpty())
    {
        QStringList Argomenti{Cartella(), Base + QStringLiteral("uditi")};
        if (Sicuro)
            Argomenti << Fiducia + QStringLiteral("cert.pem") << Fiducia + QStringLiteral("key.pem");
        CreaCartella(Cartella());
        Programma.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        Programma.start(QStringLiteral(PROGRAMMA_SERVITORE), Argomenti);
        while (!Programma.canReadLine())
            if (!Programma.waitForReadyRead(AttesaMs))
                return;
        Porta = Programma.readLine().trimmed().toInt();
    }
    ~Servitore()
    {
        Ferma();
        if (Tenuta >= 0)
            ::close(Tenuta);
    }
    Servitore(const Servitore&) = delete;
    Servitore& operator=(const Servitore&) = delete;

    [[nodiscard]] bool Pronto() const { return Porta > 0; }
    /// The folder of its files, with the separator at its end.
    [[nodiscard]] QString Cartella() const { return Base + QStringLiteral("file/"); }
    /// An address that is answered in a way of its own: see the program.
    [[nodiscard]] QString Indirizzo(const QString& Modo = QStringLiteral("piano"),
                                    const QString& Percorso = {}) const
    {
        return QStringLiteral("%1://127.0.0.1:%2/%3%4")
            .arg(Sicuro ? QStringLiteral("https") : QStringLiteral("http"))
            .arg(Porta)
            .arg(Modo, Percorso.isEmpty() ? QString() : u'/' + Percorso);
    }
    /// What it was asked so far.
    [[nodiscard]] QByteArray Uditi() const { return LeggiFile(Base + QStringLiteral("uditi")); }
    /// From now on nobody answers: the port stays taken, or the server of a test beside this one might get
    /// it.
    void Ferma()
    {
        Programma.closeWriteChannel();
        if (Programma.state() != QProcess::NotRunning && !Programma.waitForFinished(AttesaMs))
            Programma.kill();
        if (Tenuta < 0 && Pronto())
            TieniPorta();
    }

private:
    void TieniPorta()
    {
        Tenuta = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const int Acceso = 1;
        ::setsockopt(Tenuta, SOL_SOCKET, SO_REUSEADDR, &Acceso, sizeof Acceso);
        sockaddr_in Qui = {};
        Qui.sin_family = AF_INET;
        Qui.sin_port = htons(quint16(Porta));
        Qui.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (::bind(Tenuta, reinterpret_cast<const sockaddr*>(&Qui), sizeof Qui) != 0)
            qWarning("the port of a server that has stopped is taken");
    }

    static constexpr int AttesaMs = 10000;

    QString Base;
    bool Sicuro;
    QProcess Programma;
    int Porta = 0;
    int Tenuta = -1;  ///< a socket that has the port and does not listen
};

/// A certificate for 127.0.0.1 and its key, made for this test alone; the folder that holds cert.pem and
/// key.pem. It is its own authority.
inline QString NuovoCertificato(const QString& Nome = QStringLiteral("IP:127.0.0.1"))
{
    const QString Dove = NuovaCartella();
    QProcess Openssl;
    Openssl.start(
        QStringLiteral("openssl"),
        {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"), QStringLiteral("ec"),
         QStringLiteral("-pkeyopt"), QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-nodes"),
         QStringLiteral("-days"), QStringLiteral("2"), QStringLiteral("-subj"), QStringLiteral("/CN=prova"),
         QStringLiteral("-addext"), QStringLiteral("subjectAltName=") + Nome, QStringLiteral("-keyout"),
         Dove + QStringLiteral("key.pem"), QStringLiteral("-out"), Dove + QStringLiteral("cert.pem")});
    return Openssl.waitForFinished() && Openssl.exitCode() == 0 ? Dove : QString();
}
