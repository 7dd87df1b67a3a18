#include "platform/preview/vistastampa_accessibile.h"

#include "platform/preview/vistastampa.h"
#include "platform/preview/vistastampa_fogli.h"

#include <QAccessible>
#include <QAccessibleWidget>

using namespace Qt::StringLiterals;

namespace {

/// Places of characters are those of the document's text stream.
class FogliAccessibili : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit FogliAccessibili(FogliStampa* Suoi) : QAccessibleWidget(Suoi, QAccessible::EditableText) {}

    QAccessible::State state() const override
    {
        QAccessible::State Stato = QAccessibleWidget::state();
        Stato.readOnly = true;
        Stato.multiLine = true;
        Stato.selectableText = true;
        return Stato;
    }
    QString text(QAccessible::Text Quale) const override
    {
        return Quale == QAccessible::Value ? Testo() : QAccessibleWidget::text(Quale);
    }
    void* interface_cast(QAccessible::InterfaceType Tipo) override
    {
        return Tipo == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(Tipo);
    }

    // ---- text
    QString text(int Da, int A) const override { return Testo().mid(Da, std::max(0, A - Da)); }
    int characterCount() const override { return static_cast<int>(Testo().size()); }
    int cursorPosition() const override { return static_cast<int>(Fogli()->Scelta().A); }
    void setCursorPosition(int Posto) override { Vai({Posto, Posto}); }
    QRect characterRect(int Posto) const override
    {
        const QList<RettangoloPagina> Suoi = Vista()->Pagine().Rettangoli({Posto, Posto + 1});
        const RettangoloPagina Suo = Suoi.isEmpty() ? Vista()->Pagine().Cursore(Posto) : Suoi.first();
        const QRect Dove = Fogli()->InFinestra(Suo);
        return {Fogli()->viewport()->mapToGlobal(Dove.topLeft()), Dove.size()};
    }
    int offsetAtPoint(const QPoint& Punto) const override
    {
        return static_cast<int>(Fogli()->PostoA(Fogli()->viewport()->mapFromGlobal(Punto)));
    }
    void scrollToSubstring(int Da, int A) override { Fogli()->Mostra({Da, A}); }
    QString attributes(int Posto, int* Da, int* A) const override
    {
        // One stretch of plain text a block: its looks tell a listener nothing.
        const Selezione Blocco = Vista()->Pagine().BloccoIn(Posto);
        *Da = static_cast<int>(Blocco.Da);
        *A = static_cast<int>(std::max<qsizetype>(Blocco.A, Posto + 1));
        return {};
    }

    // ---- selection
    int selectionCount() const override { return Fogli()->Scelta().Vuota() ? 0 : 1; }
    void selection(int Quale, int* Da, int* A) const override
    {
        const Selezione Scelta = Quale == 0 ? Fogli()->Scelta() : Selezione();
        *Da = static_cast<int>(std::min(Scelta.Da, Scelta.A));
        *A = static_cast<int>(std::max(Scelta.Da, Scelta.A));
    }
    void addSelection(int Da, int A) override { Vai({Da, A}); }
    void setSelection(int Quale, int Da, int A) override
    {
        if (Quale == 0)
            Vai({Da, A});
    }
    void removeSelection(int Quale) override
    {
        if (Quale == 0)
            Vai({Fogli()->Scelta().A, Fogli()->Scelta().A});
    }

private:
    FogliStampa* Fogli() const { return static_cast<FogliStampa*>(widget()); }
    VistaStampa* Vista() const { return static_cast<VistaStampa*>(Fogli()->parentWidget()); }
    const QString& Testo() const { return Vista()->Pagine().Testo(); }
    void Vai(const Selezione& Dove)
    {
        const qsizetype Fine = Testo().size();
        Fogli()->Scegli({std::clamp<qsizetype>(Dove.Da, 0, Fine), std::clamp<qsizetype>(Dove.A, 0, Fine)});
        Fogli()->Mostra(Fogli()->Scelta());
    }
};

QAccessibleInterface* Fabbrica(const QString&, QObject* Oggetto)
{
    auto* Fogli = qobject_cast<FogliStampa*>(Oggetto);
    return Fogli && qobject_cast<VistaStampa*>(Fogli->parentWidget()) ? new FogliAccessibili(Fogli) : nullptr;
}

}  // namespace

void RendiLeggibileAnteprima()
{
    QAccessible::installFactory(Fabbrica);  // the same one is kept once
}
