// The network as Qt gives it: each transfer has a thread of its own, made when the first one begins.
//
// Certificates are never waived, three changes of address are followed on the same server and never from
// https to http. The system's proxy holds, but for this machine. Nothing is cached, no cookie is kept or
// sent.
#pragma once

#include <QString>

#include <functional>

struct OpzioniReteQt
{
    std::function<bool()> Respiro;  ///< see Rete
    QString FileAutorita;           ///< certificates that are trusted, in place of the system's; for tests
};

/// Fills the network's table, and `Connesso` in the desktop's. A system that does not know whether it is
/// connected counts as connected.
void InstallaReteQt(OpzioniReteQt Opzioni);
