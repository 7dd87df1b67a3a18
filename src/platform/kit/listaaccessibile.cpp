#include "platform/kit/listaaccessibile.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QLineEdit>

namespace {

class ListaAccessibile : public QAccessibleWidget
{
public:
    explicit ListaAccessibile(QComboBox* Lista) : QAccessibleWidget(Lista, QAccessible::ComboBox) {}

    QString text(QAccessible::Text Quale) const override
    {
        return Quale == QAccessible::Value ? Lista()->currentText() : QAccessibleWidget::text(Quale);
    }

    QAccessible::State state() const override
    {
        QAccessible::State Stato = QAccessibleWidget::state();
        Stato.expandable = true;
        Stato.expanded = Lista()->view()->isVisible();
        Stato.editable = Lista()->isEditable();
        return Stato;
    }

    int childCount() const override { return Lista()->isEditable() ? 2 : 1; }

    QAccessibleInterface* child(int Indice) const override
    {
        if (Indice == 0)
            return QAccessible::queryAccessibleInterface(Lista()->view());
        return Indice == 1 && Lista()->isEditable()
                   ? QAccessible::queryAccessibleInterface(Lista()->lineEdit())
                   : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* Figlio) const override
    {
        if (Figlio && Figlio->object() == Lista()->view())
            return 0;
        return Figlio && Lista()->isEditable() && Figlio->object() == Lista()->lineEdit() ? 1 : -1;
    }

    QAccessibleInterface* childAt(int X, int Y) const override
    {
        return Lista()->isEditable() && Lista()->lineEdit()->rect().contains(X, Y) ? child(1) : nullptr;
    }

    QStringList actionNames() const override
    {
        return QStringList{showMenuAction(), pressAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& Azione) override
    {
        if (Azione != showMenuAction() && Azione != pressAction())
            QAccessibleWidget::doAction(Azione);
        else if (Lista()->view()->isVisible())
            Lista()->hidePopup();
        else
            Lista()->showPopup();
    }

private:
    [[nodiscard]] QComboBox* Lista() const { return static_cast<QComboBox*>(widget()); }
};

QAccessibleInterface* FabbricaListe(const QString& Classe, QObject* Oggetto)
{
    auto* Lista = Classe == QStringLiteral("QComboBox") ? qobject_cast<QComboBox*>(Oggetto) : nullptr;
    return Lista ? new ListaAccessibile(Lista) : nullptr;
}

}  // namespace

void InstallaListeAccessibili()
{
    QAccessible::installFactory(FabbricaListe);
}
