#include "scimmia/recinto.h"

#include <QFile>

#include <array>
#include <cstdint>
#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// What the headers of an older system lack.
constexpr std::uint64_t Tronca = 1ULL << 14;
constexpr std::uint64_t TcpAscolta = 1ULL << 0;
constexpr std::uint64_t TcpChiama = 1ULL << 1;

/// What is refused unless a rule allows it: files, and connections where the system can refuse them.
struct Divieti
{
    std::uint64_t File = 0;
    std::uint64_t Rete = 0;
};

constexpr std::uint64_t Scritture = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
                                    LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR |
                                    LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG |
                                    LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
                                    LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;

/// A file or folder below which these things are allowed.
bool Concedi(int Regole, const QByteArray& Percorso, std::uint64_t Cosa)
{
    landlock_path_beneath_attr Regola{};
    Regola.allowed_access = Cosa;
    Regola.parent_fd = ::open(Percorso.constData(), O_PATH | O_CLOEXEC);
    if (Regola.parent_fd < 0)
        return false;
    const bool Messa = ::syscall(SYS_landlock_add_rule, Regole, LANDLOCK_RULE_PATH_BENEATH, &Regola, 0U) == 0;
    ::close(Regola.parent_fd);
    return Messa;
}

}  // namespace

bool ChiudiRecinto(const QString& Cartella)
{
    constexpr int ConSpostamenti = 2;  // versions of the fence: what each has more
    constexpr int ConTronca = 3;
    constexpr int ConRete = 4;
    const long Versione =
        ::syscall(SYS_landlock_create_ruleset, nullptr, std::size_t{0}, LANDLOCK_CREATE_RULESET_VERSION);
    if (Versione < ConSpostamenti)
        return false;
    const std::uint64_t Qui = Scritture | LANDLOCK_ACCESS_FS_REFER | (Versione >= ConTronca ? Tronca : 0);
    Divieti Tutti{Qui | LANDLOCK_ACCESS_FS_EXECUTE, 0};
    if (Versione >= ConRete)
        Tutti.Rete = TcpAscolta | TcpChiama;
    const std::size_t Lunghi = Versione >= ConRete ? sizeof(Divieti) : sizeof(Divieti::File);
    const int Regole = int(::syscall(SYS_landlock_create_ruleset, &Tutti, Lunghi, 0U));
    const bool Chiuso = Regole >= 0 && Concedi(Regole, QFile::encodeName(Cartella), Qui) &&
                        Concedi(Regole, "/dev/null", LANDLOCK_ACCESS_FS_WRITE_FILE) &&
                        ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
                        ::syscall(SYS_landlock_restrict_self, Regole, 0U) == 0;
    if (Regole >= 0)
        ::close(Regole);
    return Chiuso;
}
