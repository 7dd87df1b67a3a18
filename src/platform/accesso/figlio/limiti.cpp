#include "platform/accesso/figlio/limiti.h"

#if defined(Q_OS_LINUX)

#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#define CON_SANITARI 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define CON_SANITARI 1
#endif
#endif

namespace {

void Limita(decltype(RLIMIT_CPU) Cosa, rlim_t Quanto)
{
    const rlimit Limite{Quanto, Quanto};
    (void)::setrlimit(Cosa, &Limite);
}

#if !defined(CON_SANITARI) && (defined(__x86_64__) || defined(__aarch64__))

#if defined(__x86_64__)
constexpr unsigned Macchina = AUDIT_ARCH_X86_64;
#else
constexpr unsigned Macchina = AUDIT_ARCH_AARCH64;
#endif

/// What reading and writing open files, memory and the end of a process take.
constexpr std::array Permesse
{
    SYS_read, SYS_write, SYS_pread64, SYS_pwrite64, SYS_readv, SYS_writev, SYS_lseek, SYS_close, SYS_fstat,
        SYS_newfstatat, SYS_fcntl, SYS_ftruncate, SYS_fsync, SYS_fdatasync, SYS_mmap, SYS_munmap, SYS_mremap,
        SYS_mprotect, SYS_madvise, SYS_brk, SYS_futex, SYS_getpid, SYS_gettid, SYS_geteuid, SYS_getrandom,
        SYS_clock_gettime, SYS_gettimeofday, SYS_rt_sigaction, SYS_rt_sigprocmask, SYS_rt_sigreturn, SYS_exit,
        SYS_exit_group, SYS_tgkill, SYS_clock_nanosleep, SYS_nanosleep, SYS_sched_yield, SYS_restart_syscall,
#if defined(__x86_64__)
        SYS_stat, SYS_lstat,
#endif
};

#define CON_FILTRO 1
#endif

}  // namespace

void LimitaRisorse(int Secondi, qint64 MassimoScritto)
{
#if !defined(CON_SANITARI)
    constexpr rlim_t Memoria = rlim_t(512) << 20;
    Limita(RLIMIT_AS, Memoria);
#endif
    Limita(RLIMIT_CPU, rlim_t(Secondi));
    Limita(RLIMIT_FSIZE, rlim_t(MassimoScritto));
    Limita(RLIMIT_CORE, 0);
    constexpr rlim_t File = 32;
    Limita(RLIMIT_NOFILE, File);
    // A file that grows beyond its limit is a failed write, as on a full disk.
    (void)std::signal(SIGXFSZ, SIG_IGN);
    (void)::prctl(PR_SET_PDEATHSIG, SIGKILL);
    (void)::prctl(PR_SET_DUMPABLE, 0);
}

void ChiudiPorte()
{
#ifdef CON_FILTRO
    std::vector<sock_filter> Regole{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, arch)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, Macchina, 1, 0),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
    };
    for (const long Chiamata : Permesse) {
        Regole.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, unsigned(Chiamata), 0, 1));
        Regole.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    }
    Regole.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM));
    const sock_fprog Programma{static_cast<unsigned short>(Regole.size()), Regole.data()};
    (void)::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    // A kernel without filters leaves the limits above.
    (void)::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &Programma);
#endif
}

#else

void LimitaRisorse(int, qint64)
{}
void ChiudiPorte()
{}

#endif
