// A preview on screen with a document of known words, for tests.
#pragma once

#include "platform/pages/documenti.h"
#include "platform/preview/vistastampa.h"
#include "platform/preview/vistastampa_fogli.h"
#include "supporto/finestre.h"

#include <QScrollBar>
#include <QTest>

/// So many lines "Riga n" and what follows them; about 55 fill a page.
inline void ScriviRighe(VistaStampa& vp, int Righe, const QString& Coda = {})
{
    documenti::PreparaPagina(vp.Foglio());
    for (int i = 1; i <= Righe; ++i)
        vp.Foglio().Paragraph(QStringLiteral("Riga %1 del documento").arg(i));
    if (!Coda.isEmpty())
        vp.Foglio().Paragraph(Coda);
    vp.Foglio().EndDoc();
    vp.Aggiorna();
}

/// The preview in a window, with short ways to what the tests touch.
struct Scena
{
    VistaStampa vp;
    FogliStampa* Fogli = vp.findChild<FogliStampa*>(QStringLiteral("fogliStampa"));

    explicit Scena(int Righe, const QString& Coda = {})
    {
        vp.resize(700, 500);
        ScriviRighe(vp, Righe, Coda);
        if (!MostraAttiva(vp))
            QTest::qFail("la finestra non si attiva", __FILE__, __LINE__);
        vp.setFocus();
    }

    [[nodiscard]] Selezione Dove(const QString& Testo) const
    {
        const QList<Selezione> Trovati = vp.Pagine().CercaTutte(Testo);
        if (Trovati.isEmpty())
            QTest::qFail(qPrintable(QStringLiteral("manca ") + Testo), __FILE__, __LINE__);
        return Trovati.value(0);
    }
    [[nodiscard]] QRect Riquadro(const QString& Testo) const
    {
        return Fogli->InFinestra(vp.Pagine().Rettangoli(Dove(Testo)).constFirst());
    }
    [[nodiscard]] QScrollBar* Barra() const { return Fogli->verticalScrollBar(); }
    [[nodiscard]] QColor Pixel(QPoint Punto) const
    {
        return Fogli->viewport()->grab().toImage().pixelColor(Punto);
    }
};
