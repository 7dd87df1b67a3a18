// The form of the terms, and what it says.
#pragma once

#include "bancotermini.h"
#include "calculators/windows/frmTermini.h"
#include "core/aperture.h"
#include "platform/kit/aspetto.h"

#include <memory>

using namespace Qt::StringLiterals;

inline constexpr int InGiorni = 0;

inline constexpr int InMesi = 1;

/// The form, open on its own data, and hands to fill it.
class BancoFrmTermini
{
protected:
    void Prepara();
    void Sgombra();

    /// Types a start date and a number, chooses a unit.
    void Compila(const QString& Data, const QString& Numero, int Tipo = InGiorni);
    [[nodiscard]] bool SullaData() const { return QApplication::focusWidget() == B->Data(); }

    std::unique_ptr<BancoTermini<frmTermini>> B;
};

inline void BancoFrmTermini::Prepara()
{
    B = std::make_unique<BancoTermini<frmTermini>>();
    QVERIFY(B->Attiva);
}

inline void BancoFrmTermini::Sgombra()
{
    B.reset();
}

inline void BancoFrmTermini::Compila(const QString& Data, const QString& Numero, int Tipo)
{
    B->Scrivi(u"mskDecorr"_s, Data);
    B->Scrivi(u"txtIncrNum"_s, Numero);
    B->Scegli(u"cmbIncrTipo"_s, Tipo);
}
