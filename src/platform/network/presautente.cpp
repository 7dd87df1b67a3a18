#include "platform/network/presautente.h"

#include <QLocalSocket>

#ifndef Q_OS_WIN
#include <sys/socket.h>
#include <unistd.h>
#endif

bool PresaDiQuestoUtente(const QLocalSocket& Presa)
{
#ifdef SO_PEERCRED
    ucred Chi{};
    socklen_t Misura = sizeof Chi;
    return ::getsockopt(int(Presa.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &Chi, &Misura) == 0 &&
           Chi.uid == ::geteuid();
#elif defined(Q_OS_UNIX)
    uid_t Utente = 0;
    gid_t Gruppo = 0;
    return ::getpeereid(int(Presa.socketDescriptor()), &Utente, &Gruppo) == 0 && Utente == ::geteuid();
#else
    Q_UNUSED(Presa);
    return false;  // here a start with a file opens it by itself
#endif
}
