// The window of a document that belongs to no fee note.
#pragma once

#include <QMainWindow>
#include <QString>

#include <functional>

class BarraAnteprima;
class Superficie;
class VistaStampa;

/// "Stampa documento": a preview and what one does with it.
class frmPrint : public QMainWindow
{
    Q_OBJECT

public:
    frmPrint();

    /// The preview; compose on its surface, then call Mostra.
    [[nodiscard]] VistaStampa& vpFree() { return *Vista; }
    /// Shows what the surface holds, at the zoom that it asks for, from its first page on. The caption is the
    /// form's own with the suffix behind it.
    void Mostra(const QString& Suffisso);

protected:
    void keyPressEvent(QKeyEvent* Evento) override;

private:
    void CreaBarra();
    void CreaApriCartella();
    void Stampa();
    void Esporta();

    VistaStampa* Vista;
    BarraAnteprima* Barra;
    QString Documento;  ///< what the window shows, as a file name
    QString Salvato;    ///< the PDF written last
};

/// Composes a document on the one frmPrint and shows it.
///
/// @param Suffisso behind the window's caption, such as ": calcolo termini"
/// @param Componi  gives false when there is nothing to print, which it has said; no window is shown then
/// @return whether the window is shown
bool MostraStampa(const QString& Suffisso, const std::function<bool(Superficie& vp)>& Componi);
