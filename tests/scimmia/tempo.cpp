#include "scimmia/tempo.h"

#include <cerrno>
#include <ctime>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr long NanoPerSecondo = 1'000'000'000;

// Only the thread that has stopped its clock has one of its own.
thread_local bool Fermo = false;
thread_local timespec Adesso{};

void Passano(long Secondi, long Nano)
{
    Adesso.tv_sec += Secondi + (Adesso.tv_nsec + Nano) / NanoPerSecondo;
    Adesso.tv_nsec = (Adesso.tv_nsec + Nano) % NanoPerSecondo;
}

timespec DaMs(int Ms)
{
    constexpr int MsPerSecondo = 1000;
    constexpr long NanoPerMs = 1'000'000;
    return {Ms / MsPerSecondo, Ms % MsPerSecondo * NanoPerMs};
}

}  // namespace

void FermaTempo()
{
    ::syscall(SYS_clock_gettime, CLOCK_MONOTONIC, &Adesso);
    Fermo = true;
}

void TempoPassa(int Ms)
{
    const timespec Quanto = DaMs(Ms);
    Passano(Quanto.tv_sec, Quanto.tv_nsec);
}

void AttendiGliAltri(int Ms)
{
    const timespec Quanto = DaMs(Ms);
    ::syscall(SYS_nanosleep, &Quanto, nullptr);
}

// In the place of the C library's, for whatever this program links.
extern "C" {

int clock_gettime(clockid_t Quale, timespec* Dove) noexcept
{
    if (!Fermo || Quale != CLOCK_MONOTONIC)
        return int(::syscall(SYS_clock_gettime, Quale, Dove));
    *Dove = Adesso;
    return 0;
}

int nanosleep(const timespec* Quanto, timespec* Resto)
{
    if (!Fermo)
        return int(::syscall(SYS_nanosleep, Quanto, Resto));
    Passano(Quanto->tv_sec, Quanto->tv_nsec);
    return 0;
}

int clock_nanosleep(clockid_t Quale, int Modo, const timespec* Quanto, timespec* Resto)
{
    if (!Fermo || Quale != CLOCK_MONOTONIC)
        return ::syscall(SYS_clock_nanosleep, Quale, Modo, Quanto, Resto) == 0 ? 0 : errno;
    if (Modo == TIMER_ABSTIME)
        Adesso = *Quanto;
    else
        Passano(Quanto->tv_sec, Quanto->tv_nsec);
    return 0;
}

int usleep(useconds_t Micro)
{
    constexpr useconds_t MicroPerSecondo = 1'000'000;
    constexpr long NanoPerMicro = 1000;
    const timespec Quanto{long(Micro / MicroPerSecondo), long(Micro % MicroPerSecondo) * NanoPerMicro};
    return nanosleep(&Quanto, nullptr);
}

}  // extern "C"
