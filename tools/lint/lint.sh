# shellcheck shell=bash
# ./test --lint: what can be said of the sources without running them. Sourced by ./test behind preparazione.sh.
#
# The order is that of the time each takes: a slip of the format is shown before the compiler is asked.

# shellcheck source=tools/lint/ortografia.sh
source "${Radice:?}/tools/lint/ortografia.sh"

PacchettiLint=(git clang clang-format-14 clang-tidy cppcheck shellcheck hunspell hunspell-it)

LintScript()
{
    shellcheck -x run test .ci/run tools/*.sh tools/*/*.sh tools/pacchetto tools/provapacchetto tests/word/controlla \
        tests/pacchetto/manuale
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
    find "$1" \( -name '*.cpp' -o -name '*.h' \) -exec sed -i 's/\([A-Za-z]\)à/\1a_/g' {} +
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

# Compiled by clang without precompiled headers, so that every source names what it uses. The first time takes long,
# then only what has changed is compiled.
LintClang()
{
    Compila lint
}

# The sources that differ from the main branch, uncommitted ones too, and those of the headers that do; on the main
# branch itself, from the commit before.
FontiCambiate()
{
    local Base Nome
    Base=$(git merge-base HEAD main 2>/dev/null || git rev-parse HEAD)
    [[ $Base != "$(git rev-parse HEAD)" ]] || Base=$(git rev-parse --verify --quiet HEAD~1 || echo "$Base")
    { git diff --name-only "$Base" -- src tools; git ls-files --others --exclude-standard -- src tools; } \
        | while read -r Nome; do
            case $Nome in
            *.cpp | *.h) Nome=${Nome%.*}.cpp ;;
            *) continue ;;
            esac
            [[ ! -f $Nome ]] || printf '%s\n' "$Nome"
        done | sort -u
}

# LintTidy SOURCE...: some seconds for each; those that no target compiles are left out.
LintTidy()
{
    local Fonte
    for Fonte in "$@"; do
        ! grep -qF "\"file\": \"$Radice/$Fonte\"" build/lint/compile_commands.json || printf '%s\0' "$Fonte"
    done | xargs -0 -r -n 1 -P "$(nproc)" clang-tidy -p build/lint --quiet --warnings-as-errors='*'
}

# Lint [tutto]: clang-tidy looks at what has changed, or at every source.
Lint()
{
    local -a Fonti
    cd -- "${Radice:?}" || return
    InstallaPacchetti "${PacchettiLint[@]}"
    Passo 'shellcheck' LintScript
    Passo 'ortografia' LintOrtografia
    Passo 'clang-format' LintFormato
    Passo 'cppcheck' LintCppcheck
    LintClang
    if [[ ${1-} == tutto ]]; then
        mapfile -t Fonti < <(git ls-files -- 'src/*.cpp' 'tools/*.cpp')
    else
        mapfile -t Fonti < <(FontiCambiate)
    fi
    ((${#Fonti[@]} == 0)) || Passo "clang-tidy (${#Fonti[@]} sorgenti)" LintTidy "${Fonti[@]}"
}
