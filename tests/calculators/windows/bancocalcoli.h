// What the tests of the last calculations share: the desk, hands for the list.
#pragma once

#include "banconorme.h"

#include "calculators/windows/frmUltimiCalcoli.h"
#include "platform/grid/griglia.h"

#include <QAction>

#include <memory>

inline bool Attiva(const QDialog* Finestra, const char* Nome)
{
    return Controllo<QAction>(Finestra, Nome)->isEnabled();
}

/// Opens the list by its key.
inline frmUltimiCalcoli* ApriElenco(QDialog* F)
{
    if (!MostraAttiva(*F))
        return nullptr;
    Premi(Qt::Key_L, Qt::ControlModifier);
    Respiro();
    return Aperta<frmUltimiCalcoli>(F);
}

/// The list is closed and the calculator in front again.
inline bool ChiudiElenco(QDialog* F, frmUltimiCalcoli* Elenco)
{
    Chiudi(Elenco);
    F->activateWindow();
    return MostraAttiva(*F);
}

/// Takes the current row of the list; the calculator is in front again.
inline bool Riprendi(QDialog* F)
{
    Premi(Qt::Key_Return);
    Respiro();
    const bool Chiuso = !F->findChild<frmUltimiCalcoli*>() || !F->findChild<frmUltimiCalcoli*>()->isVisible();
    F->activateWindow();
    return MostraAttiva(*F) && Chiuso;
}

inline QStringList Colonna(const frmUltimiCalcoli* Elenco, int Quale)
{
    const auto* Tabella = Controllo<Griglia>(Elenco, "tdbCalcoli");
    QStringList Testi;
    for (int Riga = 0; Riga < Tabella->Righe(); ++Riga)
        Testi << Tabella->Vista()->model()->index(Riga, Quale).data().toString();
    return Testi;
}

/// A desk with the delivered rates for each test.
class ConCalcoli
{
protected:
    void Prepara()
    {
        B = std::make_unique<Banco>();
        B->ConTassi();
        delete SeCaricato<frmPrint>.data();
    }
    void Sgombra() { B.reset(); }

    std::unique_ptr<Banco> B;
};
