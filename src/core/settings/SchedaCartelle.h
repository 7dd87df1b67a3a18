// The settings' page of folders, archive, word processor and updates.
#pragma once

#include "core/settings/valorischeda.h"

#include <QSet>
#include <QTimer>
#include <QWidget>

#include <array>
#include <memory>

class QLineEdit;

namespace Ui {
class SchedaCartelle;
}

class SchedaCartelle : public QWidget
{
    Q_OBJECT

public:
    explicit SchedaCartelle(QWidget* Padre);
    ~SchedaCartelle() override;

    /// Fills the boxes from the settings store.
    void Carica();
    /// The same behind a save. A default that stood for a lost path, and still does, is none that was chosen.
    void Ricarica();
    /// What is to be stored. The program folder stays unset while it is unset and its box shows the
    /// executable's: a program run from another folder after an update would go on in the old one. So does a
    /// path that damaged settings have lost, and that only a default stands for: stored, no later start would
    /// set it. Written by hand or picked, the same path is a choice.
    [[nodiscard]] ValoriScheda Valori() const;

    /// Another archive was stored by somebody else: its box shows that one, unless something was typed there.
    void SegueArchivio();

    /// The boxes that must not be empty.
    [[nodiscard]] QLineEdit* CasellaProgramma() const;
    [[nodiscard]] QLineEdit* CasellaArchivio() const;
    [[nodiscard]] QLineEdit* CasellaParcelle() const;

    /// Lets the user choose what a box names.
    /// @param Quale 0 program folder, 1 archive, 2 folder of notes, 3 user folder, 4 word processor
    void cmdSelDir_Click(int Quale);

private:
    void cmdCrea_Click(int Quale);
    /// Says of the boxes whose text has changed whether what they name is there.
    void SegnaMancanti();

    QSet<int> Cambiate;               ///< boxes that were not looked after yet
    QTimer Pausa;                     ///< runs while somebody types
    QString ArchivioLetto;            ///< as its box was filled
    std::array<QString, 5> Ripieghi;  ///< defaults that stand for what damaged settings have lost
    std::unique_ptr<Ui::SchedaCartelle> ui;
};
