// The page of payments on account, taxes and the multiple note.
#pragma once

#include "feenote/parcella.h"

#include <QWidget>

#include <memory>

enum class CasellaNota;
class CorniceNota;
class QButtonGroup;
class QKeyEvent;
class QMouseEvent;

namespace Ui {
class SchedaAcconti;
}

class SchedaAcconti : public QWidget
{
    Q_OBJECT

public:
    /// @param Dati the note shown, which lives as long as the page
    SchedaAcconti(Parcella& Dati, CorniceNota& Finestra, QWidget* Padre);
    ~SchedaAcconti() override;

    /// Writes the controls from the record; call it with the window's guard.
    void Mostra();
    /// A control of this page; null for one of another.
    [[nodiscard]] QWidget* Casella(CasellaNota Quale) const;
    /// The panel of the associated note alone.
    void MostraMultipla();
    /// Another note has come into the record: the grid forgets the former one's lines.
    void NuovaNota();

protected:
    /// The keys on the name of the associated note.
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    void CollegaAcconti();
    void CollegaImposte();
    void CollegaMultipla();
    void cmdOpenPar_Click();
    bool TastoSulNome(const QKeyEvent& Tasto);  ///< true when the key did something
    void LasciatoSulNome(const QMouseEvent& Tasto);
    void tdbAcconti_Click(int Riga, int Colonna);
    void tdbAcconti_Delete();
    void RigheScritte();  ///< marks the note

    Parcella& Nota;
    CorniceNota& Cornice;
    std::unique_ptr<Ui::SchedaAcconti> ui;
    QButtonGroup* optMultiAntPos = nullptr;
};
