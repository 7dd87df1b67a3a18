// What keeps a window within the screen: its content scrolls where there is no room for it.
#pragma once

#include <QScrollArea>

class QDialog;

/// The content of a window, shown whole where the window is large enough, else behind scroll bars. What gets
/// the focus comes into view.
class AreaScorrevole : public QScrollArea
{
public:
    /// Takes the layout of a dialog, without its menu and status bars, which stay at its edges.
    explicit AreaScorrevole(QDialog* Modulo);
    ~AreaScorrevole() override;

    /// The room that the content asks for: with it no bar is needed.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

private:
    [[nodiscard]] int AltezzaConcessa() const;
};
