// The socket of the hand-over: a caller may write any bytes, in any pieces. A file is opened only when its
// path was offered and then confirmed, once, and as it was offered.
#include "bersaglio.h"
#include "finestre.h"

#include "platform/network/staffetta.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString Impostazioni = u"/prova/KR5.ini"_s;

QStringList& Aperti()
{
    static QStringList Tutti;
    return Tutti;
}

void Ascolta()
{
    static const bool Pronta = [] {
        const QString Sessione = CartellaDiLavoro() + u"sessione"_s;
        QDir().mkdir(Sessione, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        const auto* Sola = new Staffetta(
            Impostazioni, [](const QString& File) { Aperti() += File; }, qApp);
        return Sola->InAscolto();
    }();
    Pretendi(Pronta);
}

/// The caller's end of the socket; closed with the object.
class Chiamante
{
public:
    Chiamante() : Presa(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0))
    {
        sockaddr_un Dove{};
        Dove.sun_family = AF_UNIX;
        const QByteArray Nome = QFile::encodeName(PresaStaffetta(Impostazioni));
        Pretendi(Nome.size() < qsizetype(sizeof Dove.sun_path));
        std::copy(Nome.begin(), Nome.end(), Dove.sun_path);
        Pretendi(::connect(Presa, reinterpret_cast<const sockaddr*>(&Dove), sizeof Dove) == 0);
    }
    ~Chiamante() { ::close(Presa); }
    Chiamante(const Chiamante&) = delete;
    Chiamante& operator=(const Chiamante&) = delete;

    void Scrivi(QByteArrayView Byte) const
    {
        (void)::send(Presa, Byte.data(), size_t(Byte.size()), MSG_NOSIGNAL);
    }
    void Smetti() const { (void)::shutdown(Presa, SHUT_WR); }
    /// False once the listener has let go.
    [[nodiscard]] bool Tenuto() const
    {
        std::array<char, 64> Letti{};
        const ssize_t Avuti = ::recv(Presa, Letti.data(), Letti.size(), 0);
        return Avuti > 0 || (Avuti < 0 && errno == EAGAIN);
    }

private:
    int Presa;
};

void Respira()
{
    QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The first byte says in how many pieces an offer comes, and whether what follows it waits for the answer.
void Prova(const QByteArray& Dati)
{
    PreparaFinestre();
    Ascolta();
    Aperti().clear();
    const QByteArray Byte = Dati.mid(1).left(3 * MassimoPercorso);
    const int Come = Dati.isEmpty() ? 0 : uchar(Dati[0]);
    const bool Aspetta = Come % 2 != 0;
    const qsizetype Fine = Byte.indexOf('\0');
    const qsizetype Offerta = Aspetta && Fine >= 0 ? Fine + 1 : Byte.size();
    {
        const Chiamante Chi;
        const qsizetype Lungo = Offerta / (1 + Come / 2 % 3) + 1;
        for (qsizetype Da = 0; Da < Offerta; Da += Lungo) {
            Chi.Scrivi(QByteArrayView(Byte).sliced(Da, std::min(Lungo, Offerta - Da)));
            Respira();
        }
        for (int i = 0; i < 3; ++i)
            Respira();
        Chi.Scrivi(QByteArrayView(Byte).sliced(Offerta));
        Respira();
        Chi.Smetti();
        constexpr int MassimiGiri = 500;
        int Giri = 0;
        while (Chi.Tenuto() && ++Giri < MassimiGiri)
            Respira();
        // Who says nothing more is let go.
        Pretendi(Giri < MassimiGiri);
    }
    Respira();
    const bool Confermata = Fine >= 0 && Fine < MassimoPercorso && Byte.mid(Fine + 1, 1) == "C";
    Pretendi(Aperti().isEmpty() ||
             (Confermata && Aperti() == QStringList{QString::fromUtf8(Byte.first(Fine))}));
    Pretendi(Aperti().isEmpty() || !Aperti()[0].isEmpty());
    // Who waits for the answer, as the program does, is heard.
    Pretendi(!Aspetta || !Confermata || Fine == 0 || Aperti().size() == 1);
}

}  // namespace

BERSAGLIO(fuzz_staffetta, Prova);
