// The toolbar over a preview.
#pragma once

#include <QToolBar>

#include <functional>

class QLabel;
class VistaStampa;

/// Buttons for the pages and the scale of a preview, and those that its window adds. The window calls what it
/// wants in the order of its bar. A command runs once the box in edit is left, and not when that refuses.
///
/// The search has no button: it is the preview's own, by Ctrl+F.
class BarraAnteprima : public QToolBar
{
    Q_OBJECT

public:
    explicit BarraAnteprima(QWidget* Padre = nullptr);

    /// The preview that the bar works on, before anything is added.
    void ImpostaVista(VistaStampa* Anteprima);

    /// The buttons "up" and "down": the page before and behind the one in view.
    void AggiungiPagine();
    /// The button "zoom": fitted first, then the true size; its menu, with the keys "z120" to "z70" in
    /// percent, and "z999", which fits the page to the window; below them "paginaintera" and
    /// "larghezzapagina", of which the one in force is marked.
    void AggiungiZoom();
    /// txtPage: the page in view and how many there are.
    void AggiungiNumero();
    /// A command of the window's.
    QAction* Aggiungi(const QString& Chiave, const QString& Suggerimento, std::function<void()> Comando);

    /// txtPage as the preview stands.
    void MostraPagina();
    /// txtPage while there is no document.
    void NascondiPagina();

private:
    void MostraPagina(int Pagina);
    void ImpostaScala(int Percento);

    VistaStampa* Vista = nullptr;
    QLabel* txtPage = nullptr;
};
