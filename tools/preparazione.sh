# shellcheck shell=bash
# Shared by ./run and ./test: packages, environment, build. Sourced, never run by itself.
#
# What these functions say goes to standard error: standard output belongs to the program that is run.

set -euo pipefail

Radice=$(dirname -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")")

Pacchetti=(build-essential cmake ninja-build ccache qt6-base-dev qt6-svg-dev libsqlite3-dev
           libsodium-dev mdbtools-dev shared-mime-info qt6-translations-l10n fonts-dejavu-core fonts-liberation)
# What the tests alone use: they read PDFs back, calendars by a library that is not the program's, electronic invoices
# by the schema, and make the certificates of a server of their own.
# shellcheck disable=SC2034 # for those who source this file
PacchettiProve=(openssl poppler-utils python3-icalendar libxml2-utils)

Avvisa()
{
    printf '%s\n' "$*" >&2
}

# Passo TITLE COMMAND...: runs a step in silence, says how long it took; its output is shown if it fails.
Passo()
{
    local Titolo=$1 Inizio=$SECONDS Esito=0 Registro
    shift
    Registro=$(mktemp)
    printf '%s... ' "$Titolo" >&2
    "$@" >"$Registro" 2>&1 </dev/null || Esito=$?
    if ((Esito == 0)); then
        Avvisa "$((SECONDS - Inizio)) s"
    else
        Avvisa "non riuscita (stato $Esito):"
        cat -- "$Registro" >&2
    fi
    rm -f -- "$Registro"
    return "$Esito"
}

# Those of the packages named that are not installed, one a line.
Mancanti()
{
    local Installati Pacchetto
    Installati=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
    for Pacchetto in "$@"; do
        grep -qxF -- "$Pacchetto installed" <<<"$Installati" || printf '%s\n' "$Pacchetto"
    done
}

# True when sudo works: without a password, or with one that somebody at the terminal can type.
SudoUsabile()
{
    command -v sudo >/dev/null || return 1
    sudo -n true 2>/dev/null || { [[ -t 0 ]] && sudo -v; }
}

# Apt COMMAND...: apt-get with nobody to answer it, waiting for another one that is at work.
# "${Amministratore[@]}" is the caller's: empty for root, sudo for anybody else.
Apt()
{
    "${Amministratore[@]}" env DEBIAN_FRONTEND=noninteractive apt-get --yes --quiet \
        -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 "$@"
}

# The lists have a lock that apt-get does not wait for. An update that fails in the end is no reason to
# stop: the lists at hand may do, and if they do not the installation says so.
AggiornaListe()
{
    local Tentativo
    for Tentativo in 1 2 3; do
        Apt update && return 0
        ((Tentativo == 3)) || sleep 5
    done
    return 0
}

# Installs those of the packages named that are missing. Where it has not the power to, it prints the
# command to type and ends with status 1.
InstallaPacchetti()
{
    local -a Mancano Amministratore=()
    # Not a Debian: CMake will say what is not there.
    command -v dpkg-query >/dev/null || return 0
    mapfile -t Mancano < <(Mancanti "$@")
    ((${#Mancano[@]})) || return 0

    if ((EUID != 0)); then
        if SudoUsabile; then
            Amministratore=(sudo)
        else
            local Chi='su - -c'
            ! command -v sudo >/dev/null || Chi='sudo sh -c'
            Avvisa 'Mancano alcuni pacchetti. Per installarli:'
            Avvisa "    $Chi 'apt-get update; apt-get install --yes --no-install-recommends ${Mancano[*]}'"
            exit 1
        fi
    fi
    Passo 'Aggiornamento delle liste dei pacchetti' AggiornaListe
    Passo "Installazione di ${Mancano[*]}" Apt install --no-install-recommends "${Mancano[@]}"
}

# What the tools and Qt expect of a session and a bare machine, a service or a container does not give.
PreparaAmbiente()
{
    mkdir -p -- "$Radice/build"

    # Qt and this program speak UTF-8; C.UTF-8 is on every Debian.
    [[ $(locale charmap 2>/dev/null) == UTF-8 ]] || export LC_ALL=C.UTF-8

    if [[ -z ${XDG_RUNTIME_DIR-} ]]; then
        export XDG_RUNTIME_DIR="$Radice/build/sessione"
        mkdir -p -- "$XDG_RUNTIME_DIR"
        chmod 700 -- "$XDG_RUNTIME_DIR"
    fi

    # The user's own cache where it can be written, else one beside the build.
    local Cache
    Cache=$(ccache --get-config cache_dir 2>/dev/null || true)
    if [[ -z $Cache ]] || ! mkdir -p -- "$Cache/tmp" 2>/dev/null || [[ ! -w $Cache/tmp ]]; then
        export CCACHE_DIR="$Radice/build/ccache"
    fi
}

# Prepara [PACKAGE...]: what every command begins with, with the packages that it alone needs.
Prepara()
{
    InstallaPacchetti "${Pacchetti[@]}" "$@"
    PreparaAmbiente
}

# True when PRESET was configured here, with the presets as they are now; changes of the CMake files
# themselves are noticed by ninja.
Configurata()
{
    local Timbro=$Radice/build/$1/.configurata
    [[ -f $Radice/build/$1/build.ninja && -f $Timbro ]] \
        && [[ $(<"$Timbro") == "$Radice" && ! $Radice/CMakePresets.json -nt $Timbro ]]
}

# Compila PRESET [TARGET...]: configures if there is need, and builds. One at a time in the same tree.
Compila()
{
    local Preset=$1
    shift
    (
        flock 9
        cd -- "$Radice"
        if ! Configurata "$Preset"; then
            Passo "Configurazione ($Preset)" cmake --fresh --preset "$Preset"
            printf '%s\n' "$Radice" >"build/$Preset/.configurata"
        fi
        Passo "Compilazione ($Preset)" cmake --build --preset "$Preset" ${1+--target "$@"} -- --quiet
    ) 9>"$Radice/build/.blocco"
}
