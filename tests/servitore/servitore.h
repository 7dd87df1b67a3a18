// A server on this machine beside a test: a process of its own, gone with the object.
#pragma once

#include "platform/system/file.h"
#include "supporto/prova.h"

#include <QProcess>

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
    ~Servitore() { Ferma(); }
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
    void Ferma()
    {
        Programma.closeWriteChannel();
        if (Programma.state() != QProcess::NotRunning && !Programma.waitForFinished(AttesaMs))
            Programma.kill();
    }

private:
    static constexpr int AttesaMs = 10000;

    QString Base;
    bool Sicuro;
    QProcess Programma;
    int Porta = 0;
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
