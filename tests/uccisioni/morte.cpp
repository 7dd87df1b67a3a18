// Loaded before a program: kills it behind the nth call that may change a file of one folder, as a loss of
// power would that nobody sees coming. The program knows nothing of it.
//
//   MORTE_SOTTO  the folder, without a separator at its end
//   MORTE_ALLA   the call behind which the process kills itself, counted from 1; 0 never
//   MORTE_CONTA  where the number of calls so far is kept, so that whoever asks knows how many there are:
//   four
//                bytes, which the programs that this one starts count on in
//   MORTE_PADRE  set by the first one: it is killed too where one that it has started meets the call
//   MORTE_POI    set: no call counts before the program's driver has called morte_comincia
#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

namespace {

constexpr int MassimiFile = 4096;

std::array<std::atomic<bool>, MassimiFile> Nostri;
std::atomic<bool> Attesa{std::getenv("MORTE_POI") != nullptr};

const char* Sotto()
{
    static const char* Cartella = std::getenv("MORTE_SOTTO");
    return Cartella;
}

bool Nostro(const char* Nome)
{
    const char* Cartella = Sotto();
    if (!Cartella || !Nome)
        return false;
    const size_t Lungo = std::strlen(Cartella);
    return std::strncmp(Nome, Cartella, Lungo) == 0 && (Nome[Lungo] == '/' || Nome[Lungo] == '\0');
}

bool Nostro(int Fd)
{
    return Fd >= 0 && Fd < MassimiFile && Nostri[size_t(Fd)];
}

template <class F>
F* Vera(const char* Nome)
{
    return reinterpret_cast<F*>(::dlsym(RTLD_NEXT, Nome));
}

int Numero(const char* Nome)
{
    const char* Testo = std::getenv(Nome);
    return Testo ? std::atoi(Testo) : 0;
}

/// The count is in memory before a program closes its doors to further files.
std::atomic<int>* Contate = nullptr;
int Alla = 0;
int Padre = 0;

__attribute__((constructor)) void Prepara()
{
    const char* File = std::getenv("MORTE_CONTA");
    if (!File)
        return;
    Alla = Numero("MORTE_ALLA");
    Padre = Numero("MORTE_PADRE");
    const int Fd = int(::syscall(SYS_openat, AT_FDCWD, File, O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (Fd < 0)
        return;
    if (Padre == 0) {
        Padre = ::getpid();
        ::setenv("MORTE_PADRE", std::to_string(Padre).c_str(), 1);
        (void)!::syscall(SYS_ftruncate, Fd, 0);
    }
    (void)!::syscall(SYS_ftruncate, Fd, sizeof(int));
    void* Memoria = ::mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED, Fd, 0);
    ::syscall(SYS_close, Fd);
    if (Memoria != MAP_FAILED)
        Contate = new (Memoria) std::atomic<int>(*static_cast<int*>(Memoria));
}

/// A way that is open to a program which has given up sending signals to others.
void Uccidi(pid_t Chi)
{
    ::syscall(SYS_tgkill, Chi, Chi, SIGKILL);
}

/// Behind a call that may have changed the folder.
void Passata()
{
    if (Attesa || !Contate)
        return;
    const int Errno = errno;
    if (++*Contate == Alla) {
        Uccidi(Padre);
        Uccidi(::getpid());
        ::_exit(1);  // from a thread that is not the first, until the signal comes
    }
    errno = Errno;
}

template <class R>
R Dopo(bool Conta, R Esito)
{
    if (Conta)
        Passata();
    return Esito;
}

constexpr int PerScrivere = O_WRONLY | O_RDWR | O_CREAT | O_TRUNC;

int Aperto(const char* Nome, int Bandiere, int Fd)
{
    const bool Suo = Nostro(Nome) && (Bandiere & PerScrivere);
    if (Fd >= 0 && Fd < MassimiFile)
        Nostri[size_t(Fd)] = Suo;
    return Dopo(Suo, Fd);
}

mode_t ModoDi(int Bandiere, va_list Altri)
{
    return Bandiere & (O_CREAT | O_TMPFILE) ? mode_t(va_arg(Altri, int)) : 0;
}

}  // namespace

// NOLINTBEGIN(readability-identifier-naming)
extern "C" {

/// The act begins.
__attribute__((visibility("default"))) void morte_comincia()
{
    Attesa = false;
}

#define APERTURA(NOME)                                                                                       \
    int NOME(const char* Nome, int Bandiere, ...)                                                            \
    {                                                                                                        \
        static auto* Vero = Vera<int(const char*, int, ...)>(#NOME);                                         \
        va_list Altri;                                                                                       \
        va_start(Altri, Bandiere);                                                                           \
        const mode_t Modo = ModoDi(Bandiere, Altri);                                                         \
        va_end(Altri);                                                                                       \
        return Aperto(Nome, Bandiere, Vero(Nome, Bandiere, Modo));                                           \
    }
APERTURA(open)
APERTURA(open64)
#undef APERTURA

#define APERTURA(NOME)                                                                                       \
    int NOME(int Cartella, const char* Nome, int Bandiere, ...)                                              \
    {                                                                                                        \
        static auto* Vero = Vera<int(int, const char*, int, ...)>(#NOME);                                    \
        va_list Altri;                                                                                       \
        va_start(Altri, Bandiere);                                                                           \
        const mode_t Modo = ModoDi(Bandiere, Altri);                                                         \
        va_end(Altri);                                                                                       \
        return Aperto(Nome, Bandiere, Vero(Cartella, Nome, Bandiere, Modo));                                 \
    }
APERTURA(openat)
APERTURA(openat64)
#undef APERTURA

int creat(const char* Nome, mode_t Modo)
{
    static auto* Vero = Vera<int(const char*, mode_t)>("creat");
    return Aperto(Nome, O_CREAT, Vero(Nome, Modo));
}

int creat64(const char* Nome, mode_t Modo)
{
    static auto* Vero = Vera<int(const char*, mode_t)>("creat64");
    return Aperto(Nome, O_CREAT, Vero(Nome, Modo));
}

int close(int Fd)
{
    static auto* Vero = Vera<int(int)>("close");
    const bool Suo = Nostro(Fd);
    if (Suo)
        Nostri[size_t(Fd)] = false;
    return Dopo(Suo, Vero(Fd));
}

ssize_t write(int Fd, const void* Byte, size_t Quanti)
{
    static auto* Vero = Vera<ssize_t(int, const void*, size_t)>("write");
    return Dopo(Nostro(Fd), Vero(Fd, Byte, Quanti));
}

ssize_t writev(int Fd, const iovec* Pezzi, int Quanti)
{
    static auto* Vero = Vera<ssize_t(int, const iovec*, int)>("writev");
    return Dopo(Nostro(Fd), Vero(Fd, Pezzi, Quanti));
}

ssize_t pwrite(int Fd, const void* Byte, size_t Quanti, off_t Dove)
{
    static auto* Vero = Vera<ssize_t(int, const void*, size_t, off_t)>("pwrite");
    return Dopo(Nostro(Fd), Vero(Fd, Byte, Quanti, Dove));
}

ssize_t pwrite64(int Fd, const void* Byte, size_t Quanti, off64_t Dove)
{
    static auto* Vero = Vera<ssize_t(int, const void*, size_t, off64_t)>("pwrite64");
    return Dopo(Nostro(Fd), Vero(Fd, Byte, Quanti, Dove));
}

int ftruncate(int Fd, off_t Lungo) noexcept
{
    static auto* Vero = Vera<int(int, off_t)>("ftruncate");
    return Dopo(Nostro(Fd), Vero(Fd, Lungo));
}

int ftruncate64(int Fd, off64_t Lungo) noexcept
{
    static auto* Vero = Vera<int(int, off64_t)>("ftruncate64");
    return Dopo(Nostro(Fd), Vero(Fd, Lungo));
}

int fsync(int Fd)
{
    static auto* Vero = Vera<int(int)>("fsync");
    return Dopo(Nostro(Fd), Vero(Fd));
}

/// A program that gets surroundings of its own is killed and counted all the same.
int posix_spawn(pid_t* Nuovo, const char* Percorso, const posix_spawn_file_actions_t* Azioni,
                const posix_spawnattr_t* Attributi, char* const Argomenti[], char* const Ambiente[])
{
    static auto* Vero = Vera<decltype(posix_spawn)>("posix_spawn");
    std::vector<std::string> Righe;
    for (char* const* Una = Ambiente; *Una; ++Una)
        Righe.emplace_back(*Una);
    for (const char* Nome :
         {"LD_PRELOAD", "ASAN_OPTIONS", "MORTE_SOTTO", "MORTE_ALLA", "MORTE_CONTA", "MORTE_PADRE"})
        if (const char* Valore = std::getenv(Nome); Valore && !Attesa)
            Righe.push_back(std::string(Nome) + '=' + Valore);
    std::vector<char*> Suo;
    for (std::string& Riga : Righe)
        Suo.push_back(Riga.data());
    Suo.push_back(nullptr);
    return Vero(Nuovo, Percorso, Azioni, Attributi, Argomenti, Suo.data());
}

int fdatasync(int Fd)
{
    static auto* Vero = Vera<int(int)>("fdatasync");
    return Dopo(Nostro(Fd), Vero(Fd));
}

int fchmod(int Fd, mode_t Modo) noexcept
{
    static auto* Vero = Vera<int(int, mode_t)>("fchmod");
    return Dopo(Nostro(Fd), Vero(Fd, Modo));
}

int futimens(int Fd, const timespec Quando[2]) noexcept
{
    static auto* Vero = Vera<int(int, const timespec*)>("futimens");
    return Dopo(Nostro(Fd), Vero(Fd, Quando));
}

int fchown(int Fd, uid_t Utente, gid_t Gruppo) noexcept
{
    static auto* Vero = Vera<int(int, uid_t, gid_t)>("fchown");
    return Dopo(Nostro(Fd), Vero(Fd, Utente, Gruppo));
}

int flock(int Fd, int Come) noexcept
{
    static auto* Vero = Vera<int(int, int)>("flock");
    return Dopo(Nostro(Fd), Vero(Fd, Come));
}

int chmod(const char* Nome, mode_t Modo) noexcept
{
    static auto* Vero = Vera<int(const char*, mode_t)>("chmod");
    return Dopo(Nostro(Nome), Vero(Nome, Modo));
}

int fchmodat(int Cartella, const char* Nome, mode_t Modo, int Bandiere) noexcept
{
    static auto* Vero = Vera<int(int, const char*, mode_t, int)>("fchmodat");
    return Dopo(Nostro(Nome), Vero(Cartella, Nome, Modo, Bandiere));
}

int utimensat(int Cartella, const char* Nome, const timespec Quando[2], int Bandiere) noexcept
{
    static auto* Vero = Vera<int(int, const char*, const timespec*, int)>("utimensat");
    return Dopo(Nostro(Nome), Vero(Cartella, Nome, Quando, Bandiere));
}

int truncate(const char* Nome, off_t Lungo) noexcept
{
    static auto* Vero = Vera<int(const char*, off_t)>("truncate");
    return Dopo(Nostro(Nome), Vero(Nome, Lungo));
}

int truncate64(const char* Nome, off64_t Lungo) noexcept
{
    static auto* Vero = Vera<int(const char*, off64_t)>("truncate64");
    return Dopo(Nostro(Nome), Vero(Nome, Lungo));
}

int symlink(const char* A, const char* Nome) noexcept
{
    static auto* Vero = Vera<int(const char*, const char*)>("symlink");
    return Dopo(Nostro(Nome), Vero(A, Nome));
}

int chown(const char* Nome, uid_t Utente, gid_t Gruppo) noexcept
{
    static auto* Vero = Vera<int(const char*, uid_t, gid_t)>("chown");
    return Dopo(Nostro(Nome), Vero(Nome, Utente, Gruppo));
}

int mkdir(const char* Nome, mode_t Modo) noexcept
{
    static auto* Vero = Vera<int(const char*, mode_t)>("mkdir");
    return Dopo(Nostro(Nome), Vero(Nome, Modo));
}

int mkdirat(int Cartella, const char* Nome, mode_t Modo) noexcept
{
    static auto* Vero = Vera<int(int, const char*, mode_t)>("mkdirat");
    return Dopo(Nostro(Nome), Vero(Cartella, Nome, Modo));
}

int rmdir(const char* Nome) noexcept
{
    static auto* Vero = Vera<int(const char*)>("rmdir");
    return Dopo(Nostro(Nome), Vero(Nome));
}

int unlink(const char* Nome) noexcept
{
    static auto* Vero = Vera<int(const char*)>("unlink");
    return Dopo(Nostro(Nome), Vero(Nome));
}

int remove(const char* Nome) noexcept
{
    static auto* Vero = Vera<int(const char*)>("remove");
    return Dopo(Nostro(Nome), Vero(Nome));
}

int unlinkat(int Cartella, const char* Nome, int Bandiere) noexcept
{
    static auto* Vero = Vera<int(int, const char*, int)>("unlinkat");
    return Dopo(Nostro(Nome), Vero(Cartella, Nome, Bandiere));
}

int rename(const char* Da, const char* A) noexcept
{
    static auto* Vero = Vera<int(const char*, const char*)>("rename");
    return Dopo(Nostro(A), Vero(Da, A));
}

int renameat(int CartellaDa, const char* Da, int CartellaA, const char* A) noexcept
{
    static auto* Vero = Vera<int(int, const char*, int, const char*)>("renameat");
    return Dopo(Nostro(A), Vero(CartellaDa, Da, CartellaA, A));
}

int renameat2(int CartellaDa, const char* Da, int CartellaA, const char* A, unsigned Bandiere) noexcept
{
    static auto* Vero = Vera<int(int, const char*, int, const char*, unsigned)>("renameat2");
    return Dopo(Nostro(A), Vero(CartellaDa, Da, CartellaA, A, Bandiere));
}

int link(const char* Da, const char* A) noexcept
{
    static auto* Vero = Vera<int(const char*, const char*)>("link");
    return Dopo(Nostro(A), Vero(Da, A));
}

int linkat(int CartellaDa, const char* Da, int CartellaA, const char* A, int Bandiere) noexcept
{
    static auto* Vero = Vera<int(int, const char*, int, const char*, int)>("linkat");
    return Dopo(Nostro(A), Vero(CartellaDa, Da, CartellaA, A, Bandiere));
}

}  // extern "C"
// NOLINTEND(readability-identifier-naming)
