// The page of the base data: parties, subject, parameters of the proceeding, percent variation.
#pragma once

#include "feenote/parcella.h"

#include <QWidget>

#include <array>
#include <memory>

enum class CasellaNota;
class CampoRubrica;
class CorniceNota;
class QButtonGroup;
class QRadioButton;

namespace Ui {
class SchedaDatiBase;
}

class SchedaDatiBase : public QWidget
{
    Q_OBJECT

public:
    /// @param Dati the note shown, which lives as long as the page
    SchedaDatiBase(Parcella& Dati, CorniceNota& Finestra, QWidget* Padre);
    ~SchedaDatiBase() override;

    /// Writes the controls from the record; call it with the window's guard.
    void Mostra();
    /// A control of this page; null for one of another.
    [[nodiscard]] QWidget* Casella(CasellaNota Quale) const;
    /// The buttons of the address book, and the links of the parties.
    void MostraRubrica();
    /// The box of a field of the note; null for none.
    [[nodiscard]] QWidget* CasellaDi(CampoNota Campo) const;
    /// Where a note begins: the first of its texts that is empty, client in front, or else the client.
    [[nodiscard]] QWidget* CasellaIniziale() const;

private:
    void CollegaParti();
    void CollegaRubrica();
    void CollegaParametri();
    void CollegaTariffa();     ///< the note's decree, and the way to the choice of the office
    void CollegaVariazione();  ///< option, sign and percent
    void CollegaParte();       ///< the number of parties assisted
    void MostraTariffa();
    void MostraOpzioni();  ///< as many buttons as the note has options
    void MostraParte();
    /// The button that the page itself has for an option; null for one of a database.
    [[nodiscard]] QRadioButton* BottoneFisso(int Numero) const;
    [[nodiscard]] QRadioButton* NuovoBottone(const OpzioneAumRid& Opzione);
    void MostraParti();
    void txtImporto_LostFocus();
    void CollegaScaglione();
    void MostraScaglione();  ///< the bracket of the value in the box, where it is another one
    [[nodiscard]] bool ConRighe() const;
    void cmbAumRid_Click(int Segno);
    [[nodiscard]] bool txtAumRid_LostFocus();

    Parcella& Nota;
    CorniceNota& Cornice;
    std::unique_ptr<Ui::SchedaDatiBase> ui;
    QButtonGroup* optAumRid = nullptr;
    QList<OpzioneAumRid> OpzioniMostrate;     ///< that the group has buttons for
    std::array<CampoRubrica*, 2> Rubriche{};  ///< client and counterparty
};
