# shellcheck shell=bash
# The spelling of the Italian texts: guides, sheets, pages, forms, what the sources say to users,
# pages of the manual, entry of the menu and what else presents the program to a system. Sourced by lint.sh.
#
# A word that the dictionary lacks stands in parole.txt, where it is one, or in alla_lettera.txt, where it is misspelt
# and stays. A word that stands there and is in no text any more is shown too.

# What has texts; formats of documents, style sheets and the names of columns that others write together are none.
FontiDeiTesti()
{
    git ls-files -z --cached --others --exclude-standard -- \
        'dati/guide/*.txt' 'dati/schede/*.txt' 'programma/*.htm' 'programma/*.txt' 'programma/*.rtf' \
        dati/voci.csv dati/spese.csv dati/autorita.csv dati/scaglioni.csv \
        dati/voci55.csv dati/autorita55.csv dati/scaglioni55.csv dati/variazioni55.csv \
        'dati/norme_*.csv' \
        'src/*.ui' 'src/*.cpp' 'src/*.h' \
        'pacchetto/*.1' 'pacchetto/*.desktop' 'pacchetto/*.xml' 'pacchetto/*.completamento' \
        ':!src/demo' ':!src/print/writers' ':!src/platform/pages' ':!src/platform/document' \
        ':!src/addressbook/exchange/colonneimporta.cpp' ':!src/addressbook/exchange/nazioni.cpp'
}

# ParoleAmmesse FILE...: the words of the lists, without their reasons.
ParoleAmmesse()
{
    sed 's/ *#.*//; /^$/d' "$@"
}

LintOrtografia()
{
    local Cartella=build/lint/ortografia Lista Esito=0
    mkdir -p -- "$Cartella"
    for Lista in tools/lint/parole.txt tools/lint/alla_lettera.txt; do
        ParoleAmmesse "$Lista" | LC_ALL=C sort -cu || Esito=1
    done
    FontiDeiTesti | xargs -0 perl tools/lint/testi.pl >"$Cartella/testi"
    cut -f 2 "$Cartella/testi" | LC_ALL=C sort -u >"$Cartella/parole"
    hunspell -d it_IT -i UTF-8 -l "$Cartella/parole" | LC_ALL=C sort -u >"$Cartella/ignote"
    ParoleAmmesse tools/lint/parole.txt tools/lint/alla_lettera.txt | LC_ALL=C sort -u >"$Cartella/ammesse"
    LC_ALL=C comm -23 "$Cartella/ignote" "$Cartella/ammesse" >"$Cartella/sbagliate"
    LC_ALL=C comm -13 "$Cartella/ignote" "$Cartella/ammesse" >"$Cartella/inutili"
    if [[ -s $Cartella/sbagliate ]]; then
        echo 'Not in the dictionary:'
        grep -w -F -f "$Cartella/sbagliate" "$Cartella/testi"
        Esito=1
    fi
    if [[ -s $Cartella/inutili ]]; then
        echo 'In a list, and in no text or in the dictionary:'
        cat -- "$Cartella/inutili"
        Esito=1
    fi
    return "$Esito"
}
