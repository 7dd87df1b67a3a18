// The settings form in tests that fill its boxes by themselves.
#pragma once

#include "core/app/scena.h"

#include <QLineEdit>

#include <memory>

/// A stage with the form, whose boxes and button a class of tests names.
class ModuloSetup
{
protected:
    /// A new stage, the form not yet shown.
    void Prepara()
    {
        S = std::make_unique<Scena>();
        Scena::Salva(u"PercorsoProcedura"_s, ProgrammaDiProva());
        Modulo = &Singola<frmSetup>();
    }
    [[nodiscard]] QLineEdit* Campo(const QString& Nome) const { return Modulo->findChild<QLineEdit*>(Nome); }
    void Memorizza() const
    {
        QTest::mouseClick(Modulo->findChild<QWidget*>(u"cmdSaveImpost"_s), Qt::LeftButton);
    }

    inline static const QString Memorizzate = u"Le impostazioni sono state memorizzate!"_s;

    std::unique_ptr<Scena> S;
    frmSetup* Modulo = nullptr;
};
