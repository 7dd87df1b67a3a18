#!/usr/bin/perl
# The words of the Italian texts that the files named hold: "file:line", a tab, the word; one a line.
#
# Texts of the guides and sheets, pages of the program and of the manual, forms, what a desktop and a shell show, and of
# the sources the literals that somebody reads. What is no word is left out: marks, references, names of the code, abbreviations, elisions.
use strict;
use warnings;
use utf8;
use open qw(:std :encoding(UTF-8));

my $Lettera = qr/[A-Za-zÀ-ÖØ-öø-ÿ]/;

sub parole {
    my ($dove, $testo) = @_;
    $testo =~ s{https?://\S+|www[.]\S+|\S+@\S+|\S+[.](?:mdb|ini|dat|txt|htm|pdf|doc|rtf|exe|jpg|gif|xls|csv|pub|deb)\b}{ }gi;
    $testo =~ s{[\\/]\w+[\\/]}{ }g;
    # "dell'art": what stands before the apostrophe is an elision.
    $testo =~ s{$Lettera+['’](?=$Lettera)}{ }g;
    $testo =~ s{$Lettera+['’]}{ }g;
    while ($testo =~ m{(?<![\w%&\\.-])($Lettera+)(?![\w(]|[.]\w)}g) {
        my $parola = $1;
        next if length($parola) < 4;
        next if $parola =~ /[a-zà-ÿ][A-ZÀ-Þ]/;                # a name of the code
        next if $parola eq uc($parola) && length($parola) < 6;  # an acronym
        print "$dove\t$parola\n";
    }
}

sub righe {
    my ($file, $testo, $offset) = @_;
    my $riga = $offset;
    parole($file . ':' . $riga++, $_) for split /\n/, $testo, -1;
}

# Line breaks stay where they are, so that places are told rightly.
sub svuota { my ($tolto) = @_; return $tolto =~ s/[^\n]+/ /gr; }

sub guida {
    my ($file, $testo) = @_;
    $testo =~ s{^%(?:prova|tabella|pagina|solo|capitoli|importi|esempio|quantità|vedi).*$}{}gm;
    $testo =~ s{^\[.*\]$}{}gm;
    $testo =~ s{\]\([^)]*\)}{ }g;
    $testo =~ s{^- (?:guida:)?\w+$}{}gm if $file =~ m{/indice[.]txt$};
    righe($file, $testo, 1);
}

sub pagina {
    my ($file, $testo) = @_;
    $testo =~ s{<style.*?</style>|<!--.*?-->|<[^>]*>}{svuota($&)}gse;
    $testo =~ s{&[a-z#0-9]+;}{ }g;
    righe($file, $testo, 1);
}

sub modulo {
    my ($file, $testo) = @_;
    my $riga = 0;
    for (split /\n/, $testo) {
        ++$riga;
        while (m{<string>([^<]*)</string>}g) {
            my $scritta = $1;
            $scritta =~ s/&amp;//g;
            $scritta =~ s/&[a-z]+;/ /g;
            parole("$file:$riga", $scritta);
        }
    }
}

# Literals with a blank are sentences or captions of several words; what is asked of a database is not.
sub sorgente {
    my ($file, $testo) = @_;
    my $riga = 0;
    for (split /\n/, $testo) {
        ++$riga;
        next if m{^\s*//|^\s*#};
        while (m{u"((?:[^"\\]|\\.)*)"}g) {
            my $scritta = $1;
            next unless $scritta =~ / / && $scritta =~ /[a-zà-ÿ]{3}/;
            next if $scritta =~ /\b(?:SELECT|INSERT|UPDATE|DELETE|CREATE|WHERE|ORDER BY|COLLATE|PRAGMA|FROM|VALUES|ALTER|INTEGER)\b/;
            next if $scritta =~ /[{}<>=]|::|\byyyy\b|^(?:Not )?Like$/;
        $scritta =~ s/Times New Roman|Courier New|Arial|Liberation \w+|DejaVu \w+/ /g;
            $scritta =~ s/\\[nrt"\\]/ /g;
            parole("$file:$riga", $scritta);
        }
    }
}

# A rich text: accents are bytes of Windows-1252 or numbers, a group that begins with a star is none of the text.
sub rtf {
    my ($file, $testo) = @_;
    $testo =~ s{\{\\(?:\*|fonttbl|colortbl|stylesheet|info)[^{}]*(?:\{[^{}]*\}[^{}]*)*\}}{svuota($&)}ge;
    $testo =~ s{\\'([0-9a-fA-F]{2})}{chr hex $1}ge;
    $testo =~ s{\\u([0-9]+) ?\??}{chr $1}ge;
    $testo =~ s{\\[a-z]+-?[0-9]* ?|\\[^a-z]|[{}]}{}g;
    righe($file, $testo, 1);
}

# A page of the manual: a line that begins with a point is a request of the formatter, and what it sets apart is typed
# as it stands; headings alone have words there.
sub manuale {
    my ($file, $testo) = @_;
    my $riga = 0;
    for my $scritta (split /\n/, $testo) {
        ++$riga;
        next if $scritta =~ /^['.]\\"/ || $scritta =~ /^[.](?!S[HS]\b)/;
        $scritta =~ s/^[.]S[HS]\s+//;
        $scritta =~ s/\\f[BI].*?\\f[RP]/ /g;
        $scritta =~ s/\\-/-/g;
        $scritta =~ s/\\(?:\(..|.)/ /g;
        parole("$file:$riga", $scritta);
    }
}

# An entry of the menu: its lines in Italian.
sub voce {
    my ($file, $testo) = @_;
    my $riga = 0;
    for (split /\n/, $testo) {
        ++$riga;
        parole("$file:$riga", $1) if /^\w+\[it\]=(.*)/;
    }
}

# The elements of a file in several languages that say they are Italian.
sub italiani {
    my ($file, $testo) = @_;
    while ($testo =~ m{<(\w+)\b[^>]*\bxml:lang="it"[^>]*>(.*?)</\1>}gs) {
        my ($prima, $scritta) = (substr($testo, 0, $-[2]), $2);
        $scritta =~ s{<[^>]*>}{svuota($&)}ge;
        righe($file, $scritta, 1 + ($prima =~ tr/\n//));
    }
}

# What the shell offers in the place of a value; names of commands and options are none of these.
sub completamento {
    my ($file, $testo) = @_;
    my $riga = 0;
    for (split /\n/, $testo) {
        ++$riga;
        parole("$file:$riga", $1) while /compgen -W "([^"\$]+)"/g;
    }
}

for my $file (@ARGV) {
    open(my $flusso, '<', $file) or die "$file: $!\n";
    my $testo = do { local $/; <$flusso> };
    close($flusso);
    if    ($file =~ /[.]htm$/)      { pagina($file, $testo); }
    elsif ($file =~ /[.]rtf$/)      { rtf($file, $testo); }
    elsif ($file =~ /[.]ui$/)       { modulo($file, $testo); }
    elsif ($file =~ /[.](?:cpp|h)$/) { sorgente($file, $testo); }
    elsif ($file =~ /[.]1$/)        { manuale($file, $testo); }
    elsif ($file =~ /[.]desktop$/)  { voce($file, $testo); }
    elsif ($file =~ /[.]xml$/)      { italiani($file, $testo); }
    elsif ($file =~ /[.]completamento$/) { completamento($file, $testo); }
    else                            { guida($file, $testo); }
}
