// The month calendar of the forms that count days.
#pragma once

#include <QColor>
#include <QDate>
#include <QList>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>

class MeseCalendario;
class QLabel;

/// Which days a calendar tells apart; an empty rule marks none. Sundays need none.
struct RegoleCalendario
{
    std::function<bool(const QDate& Giorno)> Festivo;
    std::function<bool(const QDate& Giorno)> Sospeso;
};

/// A kind of days of the caller's own: a tint with a letter in its corner, since no colour speaks alone.
struct SegnoCalendario
{
    QString Nome;  ///< in the legend, and for the screen reader
    QChar Lettera;
    QColor Tinta;  ///< mixed with the ground, so that it serves light and dark alike

    friend bool operator==(const SegnoCalendario&, const SegnoCalendario&) = default;
};

/// How a day is shown.
struct AspettoGiorno
{
    bool Domenica = false;
    bool Festivo = false;
    bool Sospeso = false;
    bool Inizio = false;
    bool Scadenza = false;
    bool Oggi = false;
    std::optional<SegnoCalendario> Segno = {};

    friend bool operator==(const AspettoGiorno&, const AspettoGiorno&) = default;
};

/// One month at a time from Monday to Sunday, in Italian whatever the locale, from 01/01/0100 to 31/12/9999,
/// with a legend of its colours below. The selected day lies in the month on view.
///
/// Mouse: a click picks a day, the wheel turns the months. Keys: arrows move the selected day, PgUp and PgDn
/// by a month, with Ctrl by a year, Home and End to the ends of the month; Enter and the space bar pick it.
class CalendarioMensile : public QWidget
{
    Q_OBJECT

public:
    /// Today is selected.
    explicit CalendarioMensile(QWidget* Padre = nullptr);

    void ImpostaRegole(RegoleCalendario Nuove);
    /// The caller's own kinds of days. `Quale` gives the place of a day's kind in the list, -1 for none; an
    /// empty list takes them away. The legend names them.
    void ImpostaSegni(QList<SegnoCalendario> Nuovi, std::function<int(const QDate& Giorno)> Quale);
    /// The legend, shown unless the calendar only picks dates.
    void MostraLegenda(bool Si);
    /// The rules answer differently from now on.
    void Ridisegna();

    /// The selected day. Set by code it turns the page and picks nothing; one outside the calendar's range
    /// takes its nearest end.
    [[nodiscard]] QDate Data() const;
    void ImpostaData(const QDate& Data);

    /// The days of a count: where it starts and where it ends.
    void Segna(const std::optional<QDate>& Inizio, const QList<QDate>& Scadenze);
    /// What the legend and the screen reader call the start.
    void ImpostaNomeInizio(const QString& Nome);

    [[nodiscard]] AspettoGiorno Aspetto(const QDate& Giorno) const;
    /// "sabato 15 agosto 2015, festivo, sospensione feriale": tooltip and screen reader.
    [[nodiscard]] QString Descrizione(const QDate& Giorno) const;
    /// Where a day of the month on view stands, in this widget's coordinates; empty for another day.
    [[nodiscard]] QRect Riquadro(const QDate& Giorno) const;

Q_SIGNALS:
    void DataScelta(const QDate& Data);  ///< the user has picked a day

protected:
    void wheelEvent(QWheelEvent* Evento) override;

private:
    void CreaTestata();
    void CreaLegenda();
    QLabel* AggiungiVoce(const QString& Nome, const AspettoGiorno& Aspetto);
    void Mostra();

    RegoleCalendario Regole;
    QList<SegnoCalendario> Segni;
    std::function<int(const QDate&)> SegnoDi;
    std::optional<QDate> Decorrenza;
    QList<QDate> Fini;
    QString NomeInizio;
    QLabel* lblMese = nullptr;
    QLabel* lblInizio = nullptr;
    QWidget* Legenda = nullptr;
    MeseCalendario* Mese;
    int Rotella = 0;
};
