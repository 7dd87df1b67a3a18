# shellcheck shell=bash
# Sourced by ./test, behind tools/preparazione.sh: seeded damage to the files that the command line reads.

# Mutanti HOW-MANY [FIRST-SEED]: at the lowest priority, since a whole run takes hours. What fails is left in
# build/mutanti.
Mutanti()
{
    local Quanti=${1-} Seme=${2:-1} Costruita=${Radice:?}/build
    if [[ ! $Quanti =~ ^[1-9][0-9]*$ || ! $Seme =~ ^[0-9]+$ ]]; then
        Uso >&2
        exit 2
    fi
    Compila release
    exec nice -n 19 "$Costruita/release/tests/mutanti/mutanti" "$Costruita/programma/calcanova-cli" \
        "$Costruita/programma" "$Quanti" "$Seme" "$Costruita/mutanti"
}
