// Files of sections and keys: kr5.ini, templates.ini, avvisokr5.ini.
#pragma once

#include <QString>

struct Errore;

/// One file and a current section. Both names lose the blanks around them when they are set.
class CIni
{
public:
    [[nodiscard]] QString FileName() const { return File; }
    void ImpostaFileName(const QString& Nome);
    [[nodiscard]] QString ApplicationKey() const { return Sezione; }
    void ImpostaApplicationKey(const QString& Nome);

    /// The value of a key of the current section, at most 999 characters; control characters (below
    /// code 32) are stripped, then blanks trimmed. The default, given when file, section or key is
    /// missing, goes the same way; "key=" is empty. A failure ends as ValoreDopoGuasto says.
    [[nodiscard]] QString GetValue(const QString& Chiave, const QString& Predefinito = {}) const;

    /// @return true when the file was written
    bool SetValue(const QString& Chiave, const QString& Valore) const;

    /// Writes a key without touching the fields.
    /// @param Gruppo section
    /// @param Nome file name
    /// @param Percorso folder, with or without the separator at its end; empty: the program's own folder
    /// @return true when the file was written
    bool WriteINI(const QString& Gruppo, const QString& Chiave, const QString& Valore, const QString& Nome,
                  const QString& Percorso = {}) const;

private:
    QString File;
    QString Sezione;
};

/// What GetValue gives after a failure: the default in silence for number 1025; for any other an empty
/// text, once number and description were shown.
[[nodiscard]] QString ValoreDopoGuasto(const Errore& Guasto, const QString& Predefinito);
