// A library that is loaded before a program's own: the nth call of a kind fails when it concerns a file under
// one folder. What it is told stands in registro.h.
//
// The calls are those of the C library that programs and their libraries reach by name; what the C library
// calls within itself does not pass here, so that only what the program writes is met.
#include "guasti/registro.h"

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>
#include <vector>

using namespace registro;

namespace {

/// Descriptors that are known by the name they were opened with.
constexpr int Noti = 64;

struct Piano
{
    char Errore[16] = {};
    /// Behind a filter of calls nobody is told where a descriptor leads.
    char Aperti[Noti][PATH_MAX] = {};
    char Cartella[PATH_MAX] = {};
    size_t Lunga = 0;
    Chiamata Quale = Chiamate;
    unsigned Numero = 0;
    int Codice = 0;
    bool Corto = false;
    bool Sempre = false;
    bool Attivo = false;
    Conti* Registro = nullptr;
};

Piano& Preparato()
{
    static Piano Unico;
    return Unico;
}

int CodiceDi(const char* Nome)
{
    if (std::strcmp(Nome, "ENOSPC") == 0)
        return ENOSPC;
    if (std::strcmp(Nome, "EACCES") == 0)
        return EACCES;
    if (std::strcmp(Nome, "EINTR") == 0)
        return EINTR;
    return EIO;
}

const char* Variabile(const char* Nome)
{
    const char* Valore = std::getenv(Nome);
    return Valore ? Valore : "";
}

/// The next definition of a function that stands here: the system's.
template <class F>
F Vera(const char* Nome)
{
    return reinterpret_cast<F>(dlsym(RTLD_NEXT, Nome));
}

bool Sotto(const char* Percorso)
{
    const Piano& P = Preparato();
    return P.Lunga > 0 && std::strncmp(Percorso, P.Cartella, P.Lunga) == 0 &&
           (Percorso[P.Lunga] == '/' || Percorso[P.Lunga] == '\0');
}

/// A path as the system would take it, with the folder that it begins from.
void Intero(int Da, const char* Percorso, char (&Fatto)[PATH_MAX])
{
    char Inizio[PATH_MAX] = {};
    constexpr char Aperti[] = "/proc/self/fd/";
    if (std::strncmp(Percorso, Aperti, sizeof Aperti - 1) == 0) {
        const ssize_t Letti = readlink(Percorso, Fatto, sizeof Fatto - 1);
        Fatto[Letti > 0 ? Letti : 0] = '\0';
        return;
    }
    if (Percorso[0] == '/') {
        std::snprintf(Fatto, sizeof Fatto, "%s", Percorso);
        return;
    }
    if (Da == AT_FDCWD) {
        if (!getcwd(Inizio, sizeof Inizio))
            Inizio[0] = '\0';
    } else {
        char Nome[64];
        std::snprintf(Nome, sizeof Nome, "/proc/self/fd/%d", Da);
        const ssize_t Letti = readlink(Nome, Inizio, sizeof Inizio - 1);
        Inizio[Letti > 0 ? Letti : 0] = '\0';
    }
    const int Scritti = std::snprintf(Fatto, sizeof Fatto, "%s/%s", Inizio, Percorso);
    if (Scritti < 0 || size_t(Scritti) >= sizeof Fatto)
        Fatto[0] = '\0';
}

void DiDescrittore(int File, char (&Fatto)[PATH_MAX])
{
    char Nome[64];
    std::snprintf(Nome, sizeof Nome, "/proc/self/fd/%d", File);
    const ssize_t Letti = readlink(Nome, Fatto, sizeof Fatto - 1);
    Fatto[Letti > 0 ? Letti : 0] = '\0';
    if (Letti < 0 && File >= 0 && File < Noti)
        std::snprintf(Fatto, sizeof Fatto, "%s", Preparato().Aperti[File]);
}

bool ECartella(const char* Percorso)
{
    struct stat Info = {};
    return stat(Percorso, &Info) == 0 && S_ISDIR(Info.st_mode);
}

enum class Esito { Passa, Fallisce, AMeta };

/// Counts a call and says what becomes of it.
Esito Incontra(Chiamata Quale, const char* Percorso)
{
    const Piano& P = Preparato();
    if (!P.Attivo || !Sotto(Percorso))
        return Esito::Passa;
    Conti& R = *P.Registro;
    const unsigned Volta = __atomic_add_fetch(&R.Viste[Quale], 1U, __ATOMIC_SEQ_CST);
    if (Quale != P.Quale || Volta < P.Numero || (Volta > P.Numero && !P.Sempre))
        return Esito::Passa;
    if (__atomic_add_fetch(&R.Guasti, 1U, __ATOMIC_SEQ_CST) == 1) {
        std::snprintf(R.Vittima.data(), R.Vittima.size(), "%s", Percorso);
        R.SuCartella = ECartella(Percorso) ? 1 : 0;
    }
    if (P.Corto)
        return Esito::AMeta;
    errno = P.Codice;
    return Esito::Fallisce;
}

bool Fallisce(Chiamata Quale, int Da, const char* Percorso)
{
    if (!Preparato().Attivo || !Percorso)
        return false;
    char Fatto[PATH_MAX];
    Intero(Da, Percorso, Fatto);
    return Incontra(Quale, Fatto) == Esito::Fallisce;
}

Esito SulDescrittore(Chiamata Quale, int File)
{
    if (!Preparato().Attivo)
        return Esito::Passa;
    const int Prima = errno;
    char Fatto[PATH_MAX];
    DiDescrittore(File, Fatto);
    errno = Prima;
    return Incontra(Quale, Fatto);
}

/// Half of what was asked, but never nothing.
size_t Meta(size_t Byte)
{
    return Byte > 1 ? Byte / 2 : Byte;
}

/// What takes another name elsewhere, in a cache say, owes the folder no flush.
void ContaRinomina(int Riuscita, int ACartella, const char* A)
{
    const Piano& P = Preparato();
    if (Riuscita != 0 || !P.Attivo || P.Registro->Guasti != 0)
        return;
    char Fatto[PATH_MAX];
    Intero(ACartella, A, Fatto);
    if (Sotto(Fatto))
        P.Registro->Rinomine = 1;
}

int Apertura(int Da, const char* Percorso, int Bandiere, mode_t Permesso)
{
    if (Fallisce(Apri, Da, Percorso))
        return -1;
    using Tipo = int (*)(int, const char*, int, ...);
    static const auto Sistema = Vera<Tipo>("openat");
    const int File = Sistema(Da, Percorso, Bandiere, Permesso);
    if (Preparato().Attivo && File >= 0 && File < Noti)
        Intero(Da, Percorso, Preparato().Aperti[File]);
    return File;
}

mode_t PermessoDa(int Bandiere, va_list Altri)
{
    return (Bandiere & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(Altri, mode_t) : 0;
}

template <class F>
auto Scrittura(int File, size_t Byte, F Chiama)
{
    switch (SulDescrittore(Scrivi, File)) {
    case Esito::Fallisce:
        return ssize_t(-1);
    case Esito::AMeta:
        return Chiama(Meta(Byte));
    case Esito::Passa:
        break;
    }
    return Chiama(Byte);
}

template <class F>
auto Lettura(int File, size_t Byte, F Chiama)
{
    switch (SulDescrittore(Leggi, File)) {
    case Esito::Fallisce:
        return ssize_t(-1);
    case Esito::AMeta:
        return Chiama(Meta(Byte));
    case Esito::Passa:
        break;
    }
    return Chiama(Byte);
}

void Arma(const char* Cartella, Conti* Registro, Chiamata Quale, unsigned Numero, const char* Errore,
          bool Sempre)
{
    Piano& P = Preparato();
    P.Attivo = false;
    if (!Cartella || !Registro || !realpath(Cartella, P.Cartella))
        return;
    P.Registro = Registro;
    P.Lunga = std::strlen(P.Cartella);
    P.Quale = Quale;
    P.Numero = Numero;
    P.Corto = std::strcmp(Errore, "corto") == 0;
    P.Codice = CodiceDi(Errore);
    std::snprintf(P.Errore, sizeof P.Errore, "%s", Errore);
    P.Sempre = Sempre;
    P.Attivo = true;
}

__attribute__((constructor)) void Prepara()
{
    const char* Cartella = Variabile(VarCartella);
    if (Cartella[0] == '\0')
        return;
    const int File = int(syscall(SYS_openat, AT_FDCWD, Variabile(VarConti), O_RDWR | O_CLOEXEC));
    if (File < 0)
        return;
    void* Memoria = mmap(nullptr, sizeof(Conti), PROT_READ | PROT_WRITE, MAP_SHARED, File, 0);
    syscall(SYS_close, File);
    if (Memoria == MAP_FAILED)
        return;
    unsigned Quale = 0;
    while (Quale < Chiamate && Nomi[Quale] != Variabile(VarChiamata))
        ++Quale;
    Arma(Cartella, static_cast<Conti*>(Memoria), Chiamata(Quale),
         unsigned(std::strtoul(Variabile(VarNumero), nullptr, 10)), Variabile(VarErrore),
         std::strcmp(Variabile(VarSempre), "1") == 0);
    if (Variabile(VarPoi)[0] != '\0')
        Preparato().Attivo = false;
}

}  // namespace

extern "C" {

__attribute__((visibility("default"))) void guasto_arma(const char* Cartella, Conti* Registro, Chiamata Quale,
                                                        unsigned Numero, const char* Errore, bool Sempre)
{
    Arma(Cartella, Registro, Quale, Numero, Errore, Sempre);
}

__attribute__((visibility("default"))) void guasto_comincia()
{
    Preparato().Attivo = Preparato().Registro != nullptr;
}

int open(const char* Percorso, int Bandiere, ...)
{
    va_list Altri;
    va_start(Altri, Bandiere);
    const mode_t Permesso = PermessoDa(Bandiere, Altri);
    va_end(Altri);
    return Apertura(AT_FDCWD, Percorso, Bandiere, Permesso);
}

int open64(const char* Percorso, int Bandiere, ...) __attribute__((alias("open")));

int openat(int Da, const char* Percorso, int Bandiere, ...)
{
    va_list Altri;
    va_start(Altri, Bandiere);
    const mode_t Permesso = PermessoDa(Bandiere, Altri);
    va_end(Altri);
    return Apertura(Da, Percorso, Bandiere, Permesso);
}

int openat64(int Da, const char* Percorso, int Bandiere, ...) __attribute__((alias("openat")));

// The same as programs built with checks of the library call it.
int __open_2(const char* Percorso, int Bandiere)
{
    return Apertura(AT_FDCWD, Percorso, Bandiere, 0);
}

int __open64_2(const char* Percorso, int Bandiere)
{
    return Apertura(AT_FDCWD, Percorso, Bandiere, 0);
}

int creat(const char* Percorso, mode_t Permesso)
{
    return Apertura(AT_FDCWD, Percorso, O_CREAT | O_WRONLY | O_TRUNC, Permesso);
}

int creat64(const char* Percorso, mode_t Permesso)
{
    return Apertura(AT_FDCWD, Percorso, O_CREAT | O_WRONLY | O_TRUNC, Permesso);
}

ssize_t write(int File, const void* Da, size_t Byte)
{
    static const auto Sistema = Vera<ssize_t (*)(int, const void*, size_t)>("write");
    return Scrittura(File, Byte, [&](size_t Quanti) { return Sistema(File, Da, Quanti); });
}

ssize_t pwrite(int File, const void* Da, size_t Byte, off_t Dove)
{
    static const auto Sistema = Vera<ssize_t (*)(int, const void*, size_t, off_t)>("pwrite");
    return Scrittura(File, Byte, [&](size_t Quanti) { return Sistema(File, Da, Quanti, Dove); });
}

ssize_t pwrite64(int File, const void* Da, size_t Byte, off64_t Dove)
{
    static const auto Sistema = Vera<ssize_t (*)(int, const void*, size_t, off64_t)>("pwrite64");
    return Scrittura(File, Byte, [&](size_t Quanti) { return Sistema(File, Da, Quanti, Dove); });
}

ssize_t writev(int File, const struct iovec* Pezzi, int Quanti)
{
    static const auto Sistema = Vera<ssize_t (*)(int, const struct iovec*, int)>("writev");
    return Scrittura(File, 2, [&](size_t Parte) { return Sistema(File, Pezzi, Parte > 1 ? Quanti : 1); });
}

ssize_t read(int File, void* In, size_t Byte)
{
    static const auto Sistema = Vera<ssize_t (*)(int, void*, size_t)>("read");
    return Lettura(File, Byte, [&](size_t Quanti) { return Sistema(File, In, Quanti); });
}

ssize_t pread(int File, void* In, size_t Byte, off_t Dove)
{
    static const auto Sistema = Vera<ssize_t (*)(int, void*, size_t, off_t)>("pread");
    return Lettura(File, Byte, [&](size_t Quanti) { return Sistema(File, In, Quanti, Dove); });
}

ssize_t pread64(int File, void* In, size_t Byte, off64_t Dove)
{
    static const auto Sistema = Vera<ssize_t (*)(int, void*, size_t, off64_t)>("pread64");
    return Lettura(File, Byte, [&](size_t Quanti) { return Sistema(File, In, Quanti, Dove); });
}

/// A folder that has been waited for owes nothing any more.
static void ContaFlusso(int File, int Riuscito)
{
    const Piano& P = Preparato();
    if (!P.Attivo || Riuscito != 0 || P.Registro->Guasti != 0)
        return;
    char Fatto[PATH_MAX];
    DiDescrittore(File, Fatto);
    if (Sotto(Fatto) && ECartella(Fatto))
        P.Registro->Rinomine = 0;
}

int fsync(int File)
{
    static const auto Sistema = Vera<int (*)(int)>("fsync");
    const int Riuscito = SulDescrittore(Sincronizza, File) == Esito::Fallisce ? -1 : Sistema(File);
    ContaFlusso(File, Riuscito);
    return Riuscito;
}

int fdatasync(int File)
{
    static const auto Sistema = Vera<int (*)(int)>("fdatasync");
    const int Riuscito = SulDescrittore(Sincronizza, File) == Esito::Fallisce ? -1 : Sistema(File);
    ContaFlusso(File, Riuscito);
    return Riuscito;
}

/// What the disk refuses to take is told at the end, and the number of the file is free all the same.
int close(int File)
{
    static const auto Sistema = Vera<int (*)(int)>("close");
    const bool Guasta = SulDescrittore(Chiudi, File) == Esito::Fallisce;
    const int Codice = errno;
    const int Chiuso = Sistema(File);
    if (!Guasta)
        return Chiuso;
    errno = Codice;
    return -1;
}

int rename(const char* Da, const char* A) noexcept
{
    static const auto Sistema = Vera<int (*)(const char*, const char*)>("rename");
    const int Riuscita = Fallisce(Rinomina, AT_FDCWD, Da) ? -1 : Sistema(Da, A);
    ContaRinomina(Riuscita, AT_FDCWD, A);
    return Riuscita;
}

int renameat(int DaCartella, const char* Da, int ACartella, const char* A) noexcept
{
    static const auto Sistema = Vera<int (*)(int, const char*, int, const char*)>("renameat");
    const int Riuscita = Fallisce(Rinomina, DaCartella, Da) ? -1 : Sistema(DaCartella, Da, ACartella, A);
    ContaRinomina(Riuscita, ACartella, A);
    return Riuscita;
}

int renameat2(int DaCartella, const char* Da, int ACartella, const char* A, unsigned Bandiere) noexcept
{
    static const auto Sistema = Vera<int (*)(int, const char*, int, const char*, unsigned)>("renameat2");
    const int Riuscita =
        Fallisce(Rinomina, DaCartella, Da) ? -1 : Sistema(DaCartella, Da, ACartella, A, Bandiere);
    ContaRinomina(Riuscita, ACartella, A);
    return Riuscita;
}

int unlink(const char* Percorso) noexcept
{
    static const auto Sistema = Vera<int (*)(const char*)>("unlink");
    return Fallisce(Togli, AT_FDCWD, Percorso) ? -1 : Sistema(Percorso);
}

int unlinkat(int Da, const char* Percorso, int Bandiere) noexcept
{
    static const auto Sistema = Vera<int (*)(int, const char*, int)>("unlinkat");
    return Fallisce(Togli, Da, Percorso) ? -1 : Sistema(Da, Percorso, Bandiere);
}

int remove(const char* Percorso) noexcept
{
    static const auto Sistema = Vera<int (*)(const char*)>("remove");
    return Fallisce(Togli, AT_FDCWD, Percorso) ? -1 : Sistema(Percorso);
}

int rmdir(const char* Percorso) noexcept
{
    static const auto Sistema = Vera<int (*)(const char*)>("rmdir");
    return Fallisce(Togli, AT_FDCWD, Percorso) ? -1 : Sistema(Percorso);
}

int chmod(const char* Percorso, mode_t Permesso) noexcept
{
    static const auto Sistema = Vera<int (*)(const char*, mode_t)>("chmod");
    return Fallisce(Permessi, AT_FDCWD, Percorso) ? -1 : Sistema(Percorso, Permesso);
}

int fchmod(int File, mode_t Permesso) noexcept
{
    static const auto Sistema = Vera<int (*)(int, mode_t)>("fchmod");
    return SulDescrittore(Permessi, File) == Esito::Fallisce ? -1 : Sistema(File, Permesso);
}

int fchmodat(int Da, const char* Percorso, mode_t Permesso, int Bandiere) noexcept
{
    static const auto Sistema = Vera<int (*)(int, const char*, mode_t, int)>("fchmodat");
    return Fallisce(Permessi, Da, Percorso) ? -1 : Sistema(Da, Percorso, Permesso, Bandiere);
}

int ftruncate(int File, off_t Byte) noexcept
{
    static const auto Sistema = Vera<int (*)(int, off_t)>("ftruncate");
    return SulDescrittore(Tronca, File) == Esito::Fallisce ? -1 : Sistema(File, Byte);
}

int ftruncate64(int File, off64_t Byte) noexcept
{
    static const auto Sistema = Vera<int (*)(int, off64_t)>("ftruncate64");
    return SulDescrittore(Tronca, File) == Esito::Fallisce ? -1 : Sistema(File, Byte);
}

int mkdir(const char* Percorso, mode_t Permesso) noexcept
{
    static const auto Sistema = Vera<int (*)(const char*, mode_t)>("mkdir");
    return Fallisce(Cartella, AT_FDCWD, Percorso) ? -1 : Sistema(Percorso, Permesso);
}

int mkdirat(int Da, const char* Percorso, mode_t Permesso) noexcept
{
    static const auto Sistema = Vera<int (*)(int, const char*, mode_t)>("mkdirat");
    return Fallisce(Cartella, Da, Percorso) ? -1 : Sistema(Da, Percorso, Permesso);
}

int link(const char* Da, const char* A) noexcept
{
    static const auto Sistema = Vera<int (*)(const char*, const char*)>("link");
    return Fallisce(Collega, AT_FDCWD, A) ? -1 : Sistema(Da, A);
}

int linkat(int DaCartella, const char* Da, int ACartella, const char* A, int Bandiere) noexcept
{
    static const auto Sistema = Vera<int (*)(int, const char*, int, const char*, int)>("linkat");
    return Fallisce(Collega, ACartella, A) ? -1 : Sistema(DaCartella, Da, ACartella, A, Bandiere);
}

/// A program that gets surroundings of its own meets the same faults all the same.
int posix_spawn(pid_t* Nuovo, const char* Percorso, const posix_spawn_file_actions_t* Azioni,
                const posix_spawnattr_t* Attributi, char* const Argomenti[], char* const Ambiente[])
{
    static const auto Sistema = Vera<decltype(&posix_spawn)>("posix_spawn");
    const Piano& P = Preparato();
    if (!P.Attivo)
        return Sistema(Nuovo, Percorso, Azioni, Attributi, Argomenti, Ambiente);
    std::vector<std::string> Righe;
    const auto Imposta = [&](const char* Nome, const char* Valore) {
        Righe.push_back(std::string(Nome) + '=' + Valore);
    };
    for (char* const* Una = Ambiente; *Una; ++Una)
        Righe.emplace_back(*Una);
    Imposta("LD_PRELOAD", Variabile("LD_PRELOAD"));
    Imposta("ASAN_OPTIONS", Variabile("ASAN_OPTIONS"));
    Imposta(VarCartella, P.Cartella);
    Imposta(VarConti, Variabile(VarConti));
    Imposta(VarChiamata, P.Quale < Chiamate ? Nomi[P.Quale].data() : "");
    Imposta(VarNumero, std::to_string(P.Numero).c_str());
    Imposta(VarErrore, P.Errore);
    Imposta(VarSempre, P.Sempre ? "1" : "0");
    std::vector<char*> Suo;
    for (std::string& Riga : Righe)
        Suo.push_back(Riga.data());
    Suo.push_back(nullptr);
    return Sistema(Nuovo, Percorso, Azioni, Attributi, Argomenti, Suo.data());
}

int futimens(int File, const struct timespec Quando[2]) noexcept
{
    static const auto Sistema = Vera<int (*)(int, const struct timespec*)>("futimens");
    return SulDescrittore(Data, File) == Esito::Fallisce ? -1 : Sistema(File, Quando);
}

int utimensat(int Da, const char* Percorso, const struct timespec Quando[2], int Bandiere) noexcept
{
    static const auto Sistema = Vera<int (*)(int, const char*, const struct timespec*, int)>("utimensat");
    return Fallisce(Data, Da, Percorso) ? -1 : Sistema(Da, Percorso, Quando, Bandiere);
}

}  // extern "C"
