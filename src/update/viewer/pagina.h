// A page of the program on view: text, tables, pictures, links. No scripts, no network.
#pragma once

#include <QTextBrowser>

class QPagedPaintDevice;

/// Shows pages of the program folder, and of nowhere else.
class Pagina : public QTextBrowser
{
    Q_OBJECT

public:
    explicit Pagina(QWidget* Padre = nullptr);

    /// Shows a page by its path, at the anchor behind a "#" where there is one, or hands an address (http,
    /// https, mailto) to the user's browser.
    ///
    /// @throws Errore 53 no such page, 70 a page outside the program folder or a file that is none, 7 one too
    ///         large or too entangled to be shown, 52 an address of another kind; the page on view stays
    /// @return false when it was handed on
    bool Naviga(const QString& Indirizzo);
    /// The same for a link of the page; a PDF of the program folder is handed on to the user's viewer, and
    /// "comando:<word>" opens the window of that command, where it is one of those that only show something.
    bool Segui(const QUrl& Collegamento);

    /// Scrolls to the anchor that the page was asked for with, once more; nothing where there was none.
    void TornaAllAncora();

    /// Selects the next occurrence, going on at the other end of the page.
    /// @return false when there is none
    bool Cerca(const QString& Testo, bool Indietro);

    /// Marks every occurrence of some words until another page is on view.
    void Evidenzia(const QStringList& Parole);

    /// Prints the page on view, black on white in a dark palette too.
    void Stampa(QPagedPaintDevice& Dove);

    /// Steps of text size from the first one, kept within sensible ends.
    void Ingrandisci(int Passi);
    void GrandezzaNormale();

    QVariant loadResource(int Tipo, const QUrl& Nome) override;

protected:
    void changeEvent(QEvent* Evento) override;
    void wheelEvent(QWheelEvent* Evento) override;

private:
    void Mostra(const QUrl& Indirizzo);
    void Ridisegna();

    int Passo = 0;
};
