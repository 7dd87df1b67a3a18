#include "platform/kit/barraricerca.h"

#include "platform/kit/annuncio.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/suggerimento.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int SpazioCorto = 4;
constexpr int LarghezzaCampo = 220;

}  // namespace

BarraRicerca::BarraRicerca(QWidget* Padre) : QWidget(Padre), Campo(new QLineEdit), Conto(new QLabel)
{
    setObjectName(u"barRicerca"_s);
    Campo->setObjectName(u"txtRicerca"_s);
    Campo->setPlaceholderText(u"Cerca nel documento"_s);
    SuggerisciLeggibile(Campo);
    Campo->setAccessibleName(u"Cerca nel documento"_s);
    Campo->setClearButtonEnabled(true);
    Campo->setMaximumWidth(LarghezzaCampo);
    Conto->setObjectName(u"lblRicerca"_s);
    Conto->setTextFormat(Qt::PlainText);

    auto* Riga = new QHBoxLayout(this);
    Riga->setContentsMargins(aspetto::TraCampi, SpazioCorto, aspetto::TraCampi, SpazioCorto);
    Riga->setSpacing(SpazioCorto);
    Riga->addWidget(Campo, 1);
    Indietro = Tasto(u"up"_s, u"Precedente"_s, u"Risultato precedente (Maiusc+F3)"_s);
    Avanti = Tasto(u"down"_s, u"Successivo"_s, u"Risultato seguente (F3)"_s);
    Riga->addSpacing(SpazioCorto);
    Riga->addWidget(Conto);
    Riga->addStretch(1);
    QToolButton* Chiudi = Tasto(u"chiudi"_s, {}, u"Chiude la ricerca (Esc)"_s);

    Collega(Campo, &QLineEdit::textChanged, this, [this](const QString& Nuovo) { Q_EMIT Cercato(Nuovo); });
    Collega(Indietro, &QToolButton::clicked, this, [this] { Q_EMIT Precedente(); });
    Collega(Avanti, &QToolButton::clicked, this, [this] { Q_EMIT Successivo(); });
    Collega(Chiudi, &QToolButton::clicked, this, [this] { Q_EMIT Chiusa(); });
    aspetto::AssegnaNomiAccessibili(this);
    MostraConto(0, 0);
    hide();
}

QToolButton* BarraRicerca::Tasto(const QString& Icona, const QString& Scritta, const QString& Suggerimento)
{
    auto* Nuovo = new QToolButton;
    Nuovo->setObjectName(u"cmdRicerca_"_s + Icona);
    Nuovo->setIcon(aspetto::Icona(Icona));
    Nuovo->setText(Scritta);
    Nuovo->setToolButtonStyle(Scritta.isEmpty() ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
    Nuovo->setToolTip(Suggerimento);
    Nuovo->setAccessibleName(Suggerimento.section(u" ("_s, 0, 0));
    Nuovo->setAutoRaise(true);
    layout()->addWidget(Nuovo);
    return Nuovo;
}

QString BarraRicerca::Testo() const
{
    return Campo->text();
}

void BarraRicerca::Apri(const QString& Proposto)
{
    show();
    if (!Proposto.isEmpty())
        Campo->setText(Proposto);
    Campo->selectAll();
    Campo->setFocus(Qt::ShortcutFocusReason);
}

void BarraRicerca::Dimentica()
{
    hide();
    const QSignalBlocker Zitto(Campo);  // nothing is sought
    Campo->setText({});                 // not to be taken back either
    MostraConto(0, 0);
}

bool BarraRicerca::NelCampo() const
{
    return Campo->hasFocus();
}

void BarraRicerca::MostraConto(qsizetype Quale, qsizetype Quante)
{
    const bool Vuota = Campo->text().trimmed().isEmpty();
    Conto->setText(Vuota         ? QString()
                   : Quante == 0 ? u"Nessun risultato"_s
                                 : u"%1 di %2"_s.arg(Quale).arg(Quante));
    AnnunciaTesto(this, Conto->text());
    Indietro->setEnabled(Quante > 0);
    Avanti->setEnabled(Quante > 0);
}

void BarraRicerca::paintEvent(QPaintEvent*)
{
    QPainter Pittore(this);
    Pittore.fillRect(rect(), palette().color(QPalette::Button));
    Pittore.setPen(aspetto::Filo());
    Pittore.drawLine(rect().bottomLeft(), rect().bottomRight());
}

#include "moc_barraricerca.cpp"
