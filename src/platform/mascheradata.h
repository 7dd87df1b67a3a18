// The masked date box "99/99/9999".
#pragma once

#include <QDate>
#include <QLineEdit>

#include <optional>

/// A line edit with the mask "99/99/9999". `Testo` keeps the prompt character "_" for places not filled;
/// assigning blanks, "  /  /    " or "" empties it. A date may be typed without separators.
class MascheraData : public QLineEdit
{
    Q_OBJECT

public:
    explicit MascheraData(QWidget* Padre = nullptr);

    [[nodiscard]] QString Testo() const;    ///< "12/0_/____"
    void ImpostaTesto(const QString& Testo);
    [[nodiscard]] bool Vuota() const;
    /// The date, empty when the mask is empty or holds none.
    [[nodiscard]] std::optional<QDate> Data() const;
    void ImpostaData(const std::optional<QDate>& Data);
};
