#!/usr/bin/perl
# The words of the Italian texts that the files named hold: "file:line", a tab, the word; one a line.
#
# Texts of the guides and sheets, pages of the program, forms, and of the sources the literals that somebody
# reads. What is no word is left out: marks, references, names of the code, abbreviations, elisions.
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

for my $file (@ARGV) {
    open(my $flusso, '<', $file) or die "$file: $!\n";
    my $testo = do { local $/; <$flusso> };
    close($flusso);
    if    ($file =~ /[.]htm$/)      { pagina($file, $testo); }
    elsif ($file =~ /[.]rtf$/)      { rtf($file, $testo); }
    elsif ($file =~ /[.]ui$/)       { modulo($file, $testo); }
    elsif ($file =~ /[.](?:cpp|h)$/) { sorgente($file, $testo); }
    else                            { guida($file, $testo); }
}
