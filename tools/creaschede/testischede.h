// The texts of the information sheets: a file for each category of a tariff, in it a section for each item.
//
//   = 1 Fase di studio          the sheet of an item: its key and its description, as the catalogue has them
//   = gruppo superiori: Titolo  of a group of authorities: title and words of its table, in every sheet
//   = ogni scheda               what closes every sheet of the category
//   = dubbio                    what is said of amounts that stand for want of a better source, marked with *
// and within a section:
//   ## Sezione                  a heading
//   testo                       a paragraph; its lines are joined, a blank line ends it
//   - voce                      an item of a list
//   %attenzione testo           what must not be missed
//   %importi                    the amounts of the item; see paginascheda.h for this and for what follows
//   %esempio, %quantità, %vedi
//   **grassetto**               within a line
#pragma once

#include "creadati/tariffe.h"

#include <QStringList>

#include <map>

/// A section as it stands in its file.
struct SezioneScheda
{
    QString File;
    int Riga = 0;       ///< line of the heading, from 1
    QString Titolo;     ///< what stands behind the key of the heading
    QStringList Testo;  ///< the lines below it

    /// @param Linea line of `Testo`, from 0; -1 the heading
    /// @throws Errore 5 "file, riga n: motivo"
    [[noreturn]] void Rifiuta(qsizetype Linea, const QString& Motivo) const;
};

/// The texts of a category.
struct TestiSchede
{
    std::map<int, SezioneScheda> Voci;     ///< by key of the item
    QHash<QString, SezioneScheda> Gruppi;  ///< by name of the group
    SezioneScheda Fondo;                   ///< closes every sheet
    SezioneScheda Dubbio;                  ///< empty where no amount of the category is in doubt
};

/// Reads the texts of a category from the folder of the texts.
///
/// @throws Errore 53 the file is missing; 5 "file, riga n: motivo" for a section of no item or of another
///         description, a second one, a group that has no amounts, an item or a group without its section
[[nodiscard]] TestiSchede LeggiTesti(const QString& Cartella, const QString& Categ, const Tariffe& Dati);
