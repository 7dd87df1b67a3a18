// The masked date box "99/99/9999".
#pragma once

#include <QDate>
#include <QLineEdit>

#include <optional>

/// A line edit with the mask "99/99/9999". `Testo` keeps the prompt character "_" for places not filled;
/// assigning blanks, "  /  /    " or "" empties it. A date may be typed without separators; "/", "-" and "."
/// behind a single digit end the day or the month ("1/2/2013" gives 01/02/2013), typed or pasted.
///
/// `text` drops the prompt characters, as every masked line edit's does: read `Testo`.
class MascheraData : public QLineEdit
{
    Q_OBJECT

public:
    explicit MascheraData(QWidget* Padre = nullptr);

    [[nodiscard]] QString Testo() const;  ///< "12/0_/____"
    void ImpostaTesto(const QString& Testo);
    [[nodiscard]] bool Vuota() const;
    /// The date, empty when the mask is empty or holds none.
    [[nodiscard]] std::optional<QDate> Data() const;
    void ImpostaData(const std::optional<QDate>& Data);
    /// Gives a date typed with two digits of the year all four; for the boxes that show it so when they are
    /// left. Any other text stays as it is.
    void CompletaAnno();

protected:
    void keyPressEvent(QKeyEvent* Evento) override;
    void focusInEvent(QFocusEvent* Evento) override;
    void mouseReleaseEvent(QMouseEvent* Evento) override;
    void contextMenuEvent(QContextMenuEvent* Evento) override;

private:
    void Incolla();
    void CompletaGruppi();
    void Riempi(const QString& Posti);
};
