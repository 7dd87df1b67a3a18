# shellcheck shell=bash
# ./test --scimmia: a monkey at the windows, under the sanitizers. Sourced by ./test behind preparazione.sh.

# Semi 12, 5-9: the seeds that are asked for, one a line.
Semi()
{
    local Chiesto
    for Chiesto in "$@"; do
        if [[ $Chiesto =~ ^([0-9]+)-([0-9]+)$ ]]; then
            seq "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
        elif [[ $Chiesto =~ ^[0-9]+$ ]]; then
            printf '%s\n' "$Chiesto"
        else
            return 1
        fi
    done
}

# Scimmia SEED|FROM-TO...: each seed has a process, a home and a time of its own. What one finds is left in
# build/scimmia with the events that led there, and the others have their turn all the same.
Scimmia()
{
    local Seme Registro Inizio=$SECONDS Esito=0 Programma=${Radice:?}/build/asan/tests/scimmia/scimmia
    local Dove=$Radice/build/scimmia
    local -a Tutti
    # A second process looks for leaks at the end of the first: it cannot, through the fence around that one.
    export ASAN_OPTIONS=detect_leaks=0:strict_string_checks=1:detect_stack_use_after_return=1:check_initialization_order=1
    export UBSAN_OPTIONS=print_stacktrace=1
    if (($# == 0)) || ! Semi "$@" >/dev/null; then
        Uso >&2
        exit 2
    fi
    mapfile -t Tutti < <(Semi "$@")
    Compila asan scimmia
    mkdir -p -- "$Dove"
    for Seme in "${Tutti[@]}"; do
        Registro=$Dove/seme-$Seme
        if CALCANOVA_DIARIO=$Registro.eventi "$Programma" "$Seme" >"$Registro.txt" 2>&1; then
            cat -- "$Registro.txt"
            rm -f -- "$Registro.txt" "$Registro.eventi"
            continue
        fi
        tail -n 1 -- "$Registro.txt"
        Avvisa "  da vedere: $Registro.txt; ancora: ./test --scimmia $Seme"
        Esito=1
    done
    Avvisa "${#Tutti[@]} semi, $((SECONDS - Inizio)) s"
    return "$Esito"
}
