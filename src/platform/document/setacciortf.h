// Lets the text of a rich text pass and its pictures run by.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// Takes a rich text in pieces of any size and keeps of it what a reader reads. Pictures, objects and raw
/// bytes leave their words and braces only, so that a letterhead's logo counts for nothing; behind the end of
/// the outermost group nothing is kept. Memory grows with what is kept and with the depth of groups alone.
class SetaccioRtf
{
public:
    void Passa(QByteArrayView Pezzo);

    [[nodiscard]] const QByteArray& Resto() const { return Tenuti; }
    /// The outermost group has ended: what follows is no text.
    [[nodiscard]] bool Finito() const { return Dove == Fuori; }
    /// Words stood behind that end: a brace too many has closed the text before them.
    [[nodiscard]] bool Prosegue() const { return Oltre; }
    /// Zeros stood where text stands: the file is damaged, or is no text at all.
    [[nodiscard]] bool ConZeri() const { return Zeri; }

private:
    enum Stato { Testo, Barra, Nome, Numero, Grezzi, Fuori };
    void Leggi(char C);
    void LeggiTesto(char C);
    void FineParola();
    void Tieni(char C);

    Stato Dove = Testo;
    QByteArray Parola;
    QByteArray Cifre;
    QByteArray Tenuti;
    qint64 DaSaltare = 0;  ///< raw bytes still to come
    qint64 Profondo = 0;   ///< groups that are open
    qint64 SaltatoDa = 0;  ///< depth of the group whose content runs by, 0 none
    bool Zeri = false;
    bool Oltre = false;
};
