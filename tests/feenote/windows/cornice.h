// An office whose notes stand in a frame.
#pragma once

#include "core/aperture.h"
#include "core/parametri.h"
#include "core/posti.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "tavolo.h"

#include <QDir>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScopeGuard>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSplitter>

using namespace Qt::StringLiterals;

/// Notes open in a frame of their own, which nobody has sized before.
class BancoCornice
{
protected:
    void Prepara();
    void Sgombra();

    [[nodiscard]] static QMdiSubWindow* Sotto(int Posto)
    {
        return qobject_cast<QMdiSubWindow*>(Parcelle(Posto)->parentWidget());
    }

    std::unique_ptr<Tavolo> T;
    std::unique_ptr<QMainWindow> Cornice;
    QMdiArea* Area = nullptr;
};

inline void BancoCornice::Prepara()
{
    T = std::make_unique<Tavolo>();
    for (const QString& Chiave : {u"FormWidth"_s, u"FormHeight"_s, u"FormState"_s})
        SaveSetting(u"KR5"_s, u"Parametri"_s, Chiave, {});
    Cornice = std::make_unique<QMainWindow>();
    Area = new QMdiArea(Cornice.get());
    Cornice->setCentralWidget(Area);
    Cornice->resize(1300, 740);
    QVERIFY(MostraAttiva(*Cornice));
    Aperture.AreaParcelle = [this] { return Area; };
}

inline void BancoCornice::Sgombra()
{
    AzzeraFinestre();
    Cornice.reset();
    T.reset();
}
