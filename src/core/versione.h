// The program's version.
#pragma once

#include <QString>

/// "3.0.14": major, minor and revision, as the build gives them.
[[nodiscard]] QString VersioneProgramma();

/// Where this build looks for updates, without a path; empty: nowhere.
[[nodiscard]] QString ServerCostruito();
