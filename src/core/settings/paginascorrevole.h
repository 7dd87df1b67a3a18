// A page of the settings that scrolls where the screen is smaller than what it holds.
#pragma once

#include <QScrollArea>

class PaginaScorrevole : public QScrollArea
{
    Q_OBJECT

public:
    /// Takes the page over and is called as it was.
    explicit PaginaScorrevole(QWidget* Pagina);

    /// As large as the page wants to be.
    [[nodiscard]] QSize sizeHint() const override;
};
