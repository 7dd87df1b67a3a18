// The table of fonts of a rich text.
#pragma once

#include <QHash>
#include <QString>
#include <QStringView>

class FontRtf
{
public:
    /// Code page of the font being read.
    void ImpostaPagina(int Pagina) { Corrente.Pagina = Pagina; }
    /// More of the name of the font being read. A name ends at its semicolon.
    void Aggiungi(QStringView Nome, int Numero);
    /// Ends the font being read; one without a name is none.
    void Chiudi(int Numero);

    /// Code page of a font; 0 where the document's own holds.
    [[nodiscard]] int Pagina(int Numero) const;
    /// Family of a font; empty for one that is not in the table.
    [[nodiscard]] QString Nome(int Numero) const;

private:
    struct Voce
    {
        QString Nome;
        int Pagina = 0;
    };
    QHash<int, Voce> Tutti;
    Voce Corrente;
};
