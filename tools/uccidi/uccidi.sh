# shellcheck shell=bash
# ./test --uccidi: programs killed while they write. Sourced, never run by itself.

# Uccidi KILLS [CLASS]: so many of what writes files, a tenth of them of the real window, some of the invoice that it
# writes and of its browser of notes, and one behind each call of each kind of save. What is counted is shown; the
# seed that a failure names gives the same moments again as CALCANOVA_SEME.
Uccidi()
{
    local Esito=0 Classe Programma
    local -a Classi=(TestUccisioniFile TestUccisioniFinestra TestUccisioniFattura TestUccisioniElenco)
    if [[ ! ${1-} =~ ^[1-9][0-9]*$ ]]; then
        Uso >&2
        exit 2
    fi
    [[ -z ${2-} ]] || Classi=("$2")
    Compila release prove_uccisioni
    Programma=${Radice:?}/build/release/tests/prove_uccisioni
    export CALCANOVA_UCCISIONI=$1 QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 QTEST_FUNCTION_TIMEOUT=2000000000
    for Classe in "${Classi[@]}"; do
        nice -n 19 "$Programma" "$Classe" -maxwarnings 0 || Esito=1
    done
    return "$Esito"
}
