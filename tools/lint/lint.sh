# shellcheck shell=bash
# ./test --lint: what can be said of the sources without running them. Sourced by ./test behind preparazione.sh.
#
# The order is that of the time each takes: a slip of the format is shown before the compiler is asked.

PacchettiLint=(clang clang-format-14 clang-tidy cppcheck shellcheck)

LintScript()
{
    shellcheck -x run test .ci/run tools/*.sh tools/lint/*.sh tests/word/controlla
}

# Version 14: another one breaks some lines elsewhere.
LintFormato()
{
    git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format-14 --dry-run -Werror
}

# cppcheck stops at an accent in a name, so it reads a copy that has none.
CopiaSenzaAccenti()
{
    rm -rf -- "$1"
    mkdir -p -- "$1"
    cp -r -- src tools "$1"
    find "$1" \( -name '*.cpp' -o -name '*.h' \) -exec sed -i 's/\b\(Autorit\|Modalit\|LoadAutorit\)à\b/\1a_/g' {} +
}

# The functions that cppcheck finds without a caller, one a line.
FunzioniSenzaUso()
{
    sed -n "s/^unusedFunction .*The function '\([^']*\)' is never used\..*/\1/p" | sort -u
}

# A function that nothing calls is shown unless tools/lint/senza_uso.txt names it with the reason why it stays; a
# name that stands there and is called by now is shown too.
LintCppcheck()
{
    local Copia=${Radice:?}/build/lint/sorgenti Detto=${Radice:?}/build/lint/cppcheck.txt Esito=0
    CopiaSenzaAccenti "$Copia"
    cppcheck --quiet --std=c++20 --language=c++ --library=qt --inline-suppr --template='{id} {file}:{line} {message}' \
        --enable=warning,performance,portability,unusedFunction --suppressions-list=tools/lint/cppcheck.txt \
        -I "$Copia/src" -I "$Copia/tools" "$Copia" 2>"$Detto"
    ! grep -v '^unusedFunction ' "$Detto" || Esito=1
    diff --label 'tools/lint/senza_uso.txt' --label 'functions without a caller' --unified=0 \
        <(sed 's/ *#.*//; /^$/d' tools/lint/senza_uso.txt | sort -u) <(FunzioniSenzaUso <"$Detto") || Esito=1
    return "$Esito"
}

# Compiled by clang without precompiled headers, so that every source names what it uses; clang-tidy looks at each
# source that is compiled. The first time takes long, then only what has changed is looked at.
LintClang()
{
    Compila lint
}

Lint()
{
    cd -- "${Radice:?}" || return
    InstallaPacchetti "${PacchettiLint[@]}"
    Passo 'shellcheck' LintScript
    Passo 'clang-format' LintFormato
    Passo 'cppcheck' LintCppcheck
    LintClang
}
