// What the system would leave open to everybody.
#pragma once

#include <QFile>

#include <sys/stat.h>

/// What anybody but the owner may do with a file or a folder.
inline constexpr QFile::Permissions DiAltri = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                              QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;

/// Lets a folder's group write into it, as an office's does: what is made there is the group's, unless it is
/// the user's alone.
inline void ApriAlGruppo(const QString& Cartella)
{
    QFile::setPermissions(Cartella, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup);
}

/// While it lives the system takes nothing away of the permissions that a program asks for: what the program
/// does not close itself is open to everybody.
class SenzaMaschera
{
public:
    SenzaMaschera() : Prima(::umask(0)) {}
    ~SenzaMaschera() { ::umask(Prima); }
    SenzaMaschera(const SenzaMaschera&) = delete;
    SenzaMaschera& operator=(const SenzaMaschera&) = delete;

private:
    mode_t Prima;
};
