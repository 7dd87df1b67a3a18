// Hints of empty boxes in the colours of the desktop.
#include "supporto/prova.h"

#include "platform/kit/suggerimento.h"

#include <QApplication>
#include <QLineEdit>
#include <QPalette>
#include <QScopeGuard>

class TestSuggerimento : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void siLeggeSuOgniColore();
};
PROVA(TestSuggerimento);

/// A desktop that gives dark colours and leaves the hints black, while the program runs.
void TestSuggerimento::siLeggeSuOgniColore()
{
    const QPalette Prima = QApplication::palette();
    const auto Rimetti = qScopeGuard([&] { QApplication::setPalette(Prima); });
    SuggerimentiLeggibili();
    for (const auto& [Testo, Fondo] : {std::pair(Qt::white, Qt::black), std::pair(Qt::black, Qt::white)}) {
        QPalette Colori = Prima;
        Colori.setColor(QPalette::Text, Testo);
        Colori.setColor(QPalette::Base, Fondo);
        Colori.setColor(QPalette::PlaceholderText, Fondo);
        QApplication::setPalette(Colori);
        const QLineEdit Casella;
        const QColor Detto = Casella.palette().color(QPalette::PlaceholderText);
        QVERIFY2(std::abs(Detto.lightness() - QColor(Fondo).lightness()) > 100, qPrintable(Detto.name()));
        QCOMPARE(Casella.palette().color(QPalette::Text), QColor(Testo));
    }
}

#include "TestSuggerimento.moc"
