// A note at its first tab.
#pragma once

#include "feenote/modVariazione.h"
#include "platform/kit/suggerimento.h"
#include "tavolo.h"

#include <QGroupBox>
#include <QHelpEvent>
#include <QStyleOptionFrame>
#include <QToolTip>

using namespace Qt::StringLiterals;

/// A new note in view.
class BancoSchedaBase
{
protected:
    void Prepara();
    void Sgombra();

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};

inline void BancoSchedaBase::Prepara()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
}

inline void BancoSchedaBase::Sgombra()
{
    T.reset();
}
