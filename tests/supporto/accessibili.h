// What a screen reader would find wrong with a window: its tree of accessible controls walked, what is on
// view. Header alone, so that the plugin of the second suite has it too.
#pragma once

#include <QAccessible>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace accessibili {

/// Roles of what a user acts on or reads a value of.
inline bool DaNominare(QAccessible::Role Ruolo)
{
    switch (Ruolo) {
    case QAccessible::PushButton:
    case QAccessible::ButtonMenu:
    case QAccessible::ButtonDropDown:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::EditableText:
    case QAccessible::ComboBox:
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::Dial:
    case QAccessible::List:
    case QAccessible::Table:
    case QAccessible::Tree:
    case QAccessible::PageTab:
    case QAccessible::ToolBar:
    case QAccessible::MenuItem:
    case QAccessible::Graphic:
    case QAccessible::Link:
        return true;
    default:
        return false;
    }
}

/// What lies inside belongs to the control itself: cells, entries, the arrows of a list.
inline bool Chiuso(QAccessible::Role Ruolo)
{
    return Ruolo == QAccessible::Table || Ruolo == QAccessible::Tree || Ruolo == QAccessible::List ||
           Ruolo == QAccessible::ComboBox || Ruolo == QAccessible::SpinBox ||
           Ruolo == QAccessible::ScrollBar || Ruolo == QAccessible::PopupMenu;
}

inline bool HaLettere(const QString& Testo)
{
    return std::any_of(Testo.begin(), Testo.end(), [](QChar C) { return C.isLetterOrNumber(); });
}

inline QString Dove(const QAccessibleInterface& Parte)
{
    const QObject* Oggetto = Parte.object();
    return Oggetto ? QString::fromLatin1(Oggetto->metaObject()->className()) + u' ' + Oggetto->objectName()
                   : QString::number(Parte.role());
}

class Esame
{
public:
    QStringList Difetti;
    int Esaminati = 0;

    void Visita(QAccessibleInterface* Parte)
    {
        if (!Parte || !Parte->isValid() || Parte->state().invisible)
            return;
        if (const auto* Oggetto = qobject_cast<const QWidget*>(Parte->object());
            Oggetto && Profondo > 0 && (Oggetto->isWindow() || !Oggetto->isVisible()))
            return;
        const QAccessible::Role Ruolo = Parte->role();
        if (DaNominare(Ruolo) || Parte->state().focusable)
            Guarda(*Parte, Ruolo);
        if (Chiuso(Ruolo))
            return;
        ++Profondo;
        for (int i = 0; i < Parte->childCount(); ++i)
            Visita(Parte->child(i));
        --Profondo;
    }

private:
    void Guarda(QAccessibleInterface& Parte, QAccessible::Role Ruolo)
    {
        // A frame that hands its focus on, and the window itself.
        if (Profondo == 0 || Ruolo == QAccessible::Pane || Ruolo == QAccessible::PageTabList ||
            Ruolo == QAccessible::StaticText || Ruolo == QAccessible::Dialog || Ruolo == QAccessible::Window)
            return;
        ++Esaminati;
        const QString Nome = Parte.text(QAccessible::Name).simplified();
        const QString Valore = Parte.text(QAccessible::Value);
        if (Nome.isEmpty())
            Difetti << QStringLiteral("senza nome: ") + Dove(Parte);
        else if (!HaLettere(Nome))
            Difetti << QStringLiteral("il nome è un segno, «%1»: ").arg(Nome) + Dove(Parte);
        else if (Ruolo == QAccessible::ComboBox && Nome == Valore.simplified())
            Difetti << QStringLiteral("il nome è il valore, «%1»: ").arg(Nome) + Dove(Parte);
        else if (const QString Primo = Visti.value({int(Ruolo), Nome}); !Primo.isEmpty())
            Difetti << QStringLiteral("due volte «%1»: %2, %3").arg(Nome, Primo, Dove(Parte));
        if (Ruolo == QAccessible::EditableText && !Valore.trimmed().isEmpty() && !HaLettere(Valore) &&
            Valore.contains(u'/'))
            Difetti << QStringLiteral("maschera vuota letta «%1»: ").arg(Valore) + Dove(Parte);
        Visti.insert({int(Ruolo), Nome}, Dove(Parte));
    }

    QMap<std::pair<int, QString>, QString> Visti;
    int Profondo = 0;
};

/// The faults of a window on view, one a line; none when a screen reader can tell every control from the
/// others.
/// @param Quanti is given how many controls were looked at
inline QStringList Difetti(QWidget* Finestra, int* Quanti = nullptr)
{
    Esame Tutto;
    Tutto.Visita(QAccessible::queryAccessibleInterface(Finestra));
    if (Quanti)
        *Quanti = Tutto.Esaminati;
    return Tutto.Difetti;
}

}  // namespace accessibili
