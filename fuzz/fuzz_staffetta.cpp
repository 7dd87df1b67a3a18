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

/// The first byte says in how many pieces the others come.
void Prova(const QByteArray& Dati)
{
    PreparaFinestre();
    Ascolta();
    Aperti().clear();
    const QByteArray Byte = Dati.mid(1).left(3 * MassimoPercorso);
    {
        const Chiamante Chi;
        const qsizetype Pezzi = Dati.isEmpty() ? 1 : 1 + uchar(Dati[0]) % 3;
        const qsizetype Lungo = Byte.size() / Pezzi + 1;
        for (qsizetype Da = 0; Da < Byte.size(); Da += Lungo) {
            Chi.Scrivi(QByteArrayView(Byte).sliced(Da, std::min(Lungo, Byte.size() - Da)));
            Respira();
        }
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
    const qsizetype Fine = Byte.indexOf('\0');
    Pretendi(Aperti().size() <= 1);
    if (!Aperti().isEmpty()) {
        Pretendi(Fine >= 0 && Fine < MassimoPercorso && Byte.size() > Fine + 1 && Byte[Fine + 1] == 'C');
        Pretendi(Aperti()[0] == QString::fromUtf8(Byte.first(Fine)));
    }
}

}  // namespace

BERSAGLIO(fuzz_staffetta, Prova);
