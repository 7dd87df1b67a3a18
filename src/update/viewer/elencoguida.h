// What the guide consists of: chapters, pages, sections, and a search in all of them.
#pragma once

#include <QList>
#include <QString>

#include <vector>

/// A page of the guide.
struct PaginaGuida
{
    QString Capitolo;
    QString File;  ///< in the folder of the guide
    QString Titolo;
};

/// A section that a search has found.
struct TrovatoGuida
{
    QString Meta;  ///< its file, with "#" and the anchor
    QString Pagina;
    QString Sezione;  ///< empty for what stands before the first one
    QString Brano;    ///< some words around the first one that was looked for
};

/// The list that stands beside the pages of a guide ("elenco.txt"), see tools/creaguide/aiuto.h.
class ElencoGuida
{
public:
    ElencoGuida() = default;
    /// Reads the list of a folder; empty where there is none. @throws Errore as LeggiFile
    explicit ElencoGuida(const QString& Cartella);

    [[nodiscard]] const std::vector<PaginaGuida>& Pagine() const { return Tutte; }

    /// The sections that hold every word, whatever case and accents: those of pages with them in the title
    /// first, then those with them in their own, then the others, each in the order of the guide. Nothing for
    /// a text without a word.
    [[nodiscard]] QList<TrovatoGuida> Cerca(const QString& Testo) const;

private:
    struct Sezione
    {
        size_t Pagina = 0;
        QString Meta;
        QString Titolo;
        QString Testo;
        QString Piano;  ///< titles and text as they are compared
    };

    void Aggiungi(const QStringList& Parti);

    std::vector<PaginaGuida> Tutte;
    std::vector<Sezione> Sezioni;
    QString Capitolo;
};
