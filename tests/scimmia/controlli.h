// What must hold whatever a monkey does.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <map>

/// What is wrong with the windows, in Italian; empty when nothing is. Asked between two events of the
/// outermost loop, where nobody is in the middle of anything.
[[nodiscard]] QString FinestreGuaste();

/// Follows the notes on view: each that was saved is read back, and must be the one that its window shows.
class NoteSalvate
{
public:
    /// What differs between the file and the window, empty when nothing does.
    [[nodiscard]] QString Confronta();
    [[nodiscard]] int Rilette() const { return Volte; }

private:
    struct Prima
    {
        int Numero = 0;
        bool Modificata = false;
        QDateTime Scritta;  ///< when its file was last written
    };
    std::map<int, Prima> Stati;  ///< by the place of the window
    int Volte = 0;
};

/// The first lines in which two texts differ.
[[nodiscard]] QString Differenza(const QByteArray& Finestra, const QByteArray& File);
