// The command line of calcanova-cli, taken apart.
#pragma once

#include <QString>
#include <QStringList>

/// A command line. Options may stand anywhere; "--" ends them, so that a value may begin with "--".
struct RigaComando
{
    QString Comando;
    QStringList Valori;
    bool Json = false;       ///< --json
    bool Batch = false;      ///< --batch: cases come from standard input
    bool Righe = false;      ///< --righe: the answer with its lines
    QString Multipla;        ///< --multipla NOTA: the note that is joined to the one of the command
    bool Prima = false;      ///< --prima: it stands before that one
    bool Aiuto = false;      ///< --help or --aiuto
    QString Programma;       ///< --programma DIR
    QString Utente;          ///< --utente DIR
    QString In;              ///< --in TABELLA: the table that takes the names of a file
    bool Prova = false;      ///< --prova: only tells what would be done
    bool Controlla = false;  ///< --controlla: a file is looked at, none is made
    bool Leggi = false;      ///< --leggi: a code is read, none is made
    QString Esporta;         ///< --csv FILE, --vcard FILE: the rows go into this file
    bool InSchede = false;   ///< --vcard
    QString Stato;           ///< --stato STATO: the notes that a list shows
    QString Tariffa;         ///< --tariffa 140|55: the decree whose items are meant
    QString Norme;           ///< --norme programma|vigenti: the rules that a calculator follows
    bool Spiega = false;     ///< --spiega: the reasons behind the answer
    QString Ics;             ///< --ics FILE: the dates go into this file too, for a calendar
    QString Archivio;        ///< --archivio FILE: clients and counterparties
};

/// @throws ErroreUso for an unknown option or one without its value
[[nodiscard]] RigaComando LeggiRiga(const QStringList& Argomenti);

/// A command that was called the wrong way: exit status 2.
struct ErroreUso
{
    QString Testo;
};

/// One case of --batch: values separated by ";". A command whose first value may hold that sign itself
/// (an expression, a pattern) is split at the last one only.
[[nodiscard]] QStringList DividiCaso(const QString& Riga, bool AllUltimo);
