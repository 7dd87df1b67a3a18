#include "platform/kit/mascheradata_accessibile.h"

#include "platform/kit/mascheradata.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <algorithm>

namespace {

/// Places of characters are those of the mask.
class MascheraAccessibile : public QAccessibleWidget,
                            public QAccessibleTextInterface,
                            public QAccessibleEditableTextInterface
{
public:
    explicit MascheraAccessibile(MascheraData* Campo) : QAccessibleWidget(Campo, QAccessible::EditableText) {}

    QString text(QAccessible::Text Quale) const override
    {
        return Quale == QAccessible::Value ? Letto() : QAccessibleWidget::text(Quale);
    }
    void setText(QAccessible::Text Quale, const QString& Testo) override
    {
        if (Quale == QAccessible::Value)
            Campo()->ImpostaTesto(Testo);
        else
            QAccessibleWidget::setText(Quale, Testo);
    }
    QAccessible::State state() const override
    {
        QAccessible::State Stato = QAccessibleWidget::state();
        Stato.editable = !Campo()->isReadOnly();
        Stato.readOnly = Campo()->isReadOnly();
        Stato.selectableText = true;
        return Stato;
    }
    void* interface_cast(QAccessible::InterfaceType Tipo) override
    {
        if (Tipo == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        if (Tipo == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface*>(this);
        return QAccessibleWidget::interface_cast(Tipo);
    }

    // ---- text
    QString text(int Da, int A) const override { return Letto().mid(Da, std::max(0, A - Da)); }
    int characterCount() const override { return int(Letto().size()); }
    int cursorPosition() const override { return Campo()->cursorPosition(); }
    void setCursorPosition(int Posto) override { Campo()->setCursorPosition(Posto); }
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint& Punto) const override
    {
        return Campo()->cursorPositionAt(Campo()->mapFromGlobal(Punto));
    }
    void scrollToSubstring(int Da, int) override { Campo()->setCursorPosition(Da); }
    QString attributes(int, int* Da, int* A) const override
    {
        *Da = 0;
        *A = characterCount();
        return {};
    }

    // ---- selection
    int selectionCount() const override { return Campo()->hasSelectedText() ? 1 : 0; }
    void selection(int, int* Da, int* A) const override
    {
        *Da = std::max(0, Campo()->selectionStart());
        *A = *Da + Campo()->selectionLength();
    }
    void addSelection(int Da, int A) override { Campo()->setSelection(Da, A - Da); }
    void setSelection(int, int Da, int A) override { Campo()->setSelection(Da, A - Da); }
    void removeSelection(int) override { Campo()->deselect(); }

    // ---- editing: through the mask, as typing goes
    void deleteText(int Da, int A) override
    {
        Campo()->setSelection(Da, A - Da);
        Campo()->del();
    }
    void insertText(int Posto, const QString& Testo) override
    {
        Campo()->setCursorPosition(Posto);
        Campo()->insert(Testo);
    }
    void replaceText(int Da, int A, const QString& Testo) override
    {
        deleteText(Da, A);
        insertText(Da, Testo);
    }

private:
    [[nodiscard]] MascheraData* Campo() const { return static_cast<MascheraData*>(widget()); }
    [[nodiscard]] QString Letto() const { return Campo()->Vuota() ? QString() : Campo()->Testo(); }
};

QAccessibleInterface* FabbricaMaschere(const QString&, QObject* Oggetto)
{
    auto* Campo = qobject_cast<MascheraData*>(Oggetto);
    return Campo ? new MascheraAccessibile(Campo) : nullptr;
}

}  // namespace

void RendiLeggibiliMaschere()
{
    QAccessible::installFactory(FabbricaMaschere);  // the same one is kept once
}
