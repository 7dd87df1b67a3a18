# shellcheck shell=bash
# ./test --guasti: every call of the system that writes a file of the program fails once and for ever, one after the
# other. Sourced by ./test behind preparazione.sh.

# Guasti [--chiamata NAME] [SCENARIO...]: builds what it needs and prints the table; status 1 when something is wrong.
Guasti()
{
    Compila release guasti
    exec nice -n 19 "${Radice:?}/build/release/tests/guasti" "$@"
}
