#include "platform/calendar/calendario.h"

#include "platform/base/nomidate.h"
#include "platform/calendar/calendario_mese.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/system/orologio.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int MesiAnno = 12;
constexpr int VociFisse = 6;  // of the legend

/// A sample of a day, as the legend shows it.
class Campione : public QWidget
{
public:
    Campione(const AspettoGiorno& Quale, QWidget* Padre) : QWidget(Padre), Aspetto(Quale)
    {
        constexpr int Margine = 4;
        setFixedSize(fontMetrics().horizontalAdvance(u"00"_s) + 2 * Margine,
                     fontMetrics().height() + Margine);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter Pennello(this);
        QFont Piccolo = font();
        Piccolo.setPointSizeF(Piccolo.pointSizeF() * 0.85);
        Pennello.setFont(Piccolo);
        DipingiCasella(Pennello, rect(), Aspetto.Segno ? QString() : u"1"_s, Aspetto);
    }

private:
    AspettoGiorno Aspetto;
};

/// A button of the head line.
struct Freccia
{
    QStringView Nome;
    QStringView Figura;
    QStringView Aiuto;
    int Mesi;
};

constexpr std::array FreccePrima{
    Freccia{u"cmdAnnoPrima", u"annoprima", u"Anno precedente", -MesiAnno},
    Freccia{u"cmdMesePrima", u"prev", u"Mese precedente", -1},
};
constexpr std::array FrecceDopo{
    Freccia{u"cmdMeseDopo", u"next", u"Mese seguente", 1},
    Freccia{u"cmdAnnoDopo", u"annodopo", u"Anno seguente", MesiAnno},
};

bool Risponde(const std::function<bool(const QDate&)>& Regola, const QDate& Giorno)
{
    return Regola && Regola(Giorno);
}

}  // namespace

CalendarioMensile::CalendarioMensile(QWidget* Padre)
    : QWidget(Padre), NomeInizio(u"Decorrenza"_s), Mese(new MeseCalendario(this))
{
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setFocusProxy(Mese);
    auto* Colonna = new QVBoxLayout(this);
    Colonna->setContentsMargins(aspetto::TraCampi, aspetto::TraCampi, aspetto::TraCampi, aspetto::TraCampi);
    Colonna->setSpacing(aspetto::TraCampi);
    CreaTestata();
    Colonna->addWidget(Mese);
    CreaLegenda();
    Colonna->addStretch();
    Mese->Spostato = [this] { Mostra(); };
    Mese->Scelto = [this](const QDate& Giorno) { Q_EMIT DataScelta(Giorno); };
    ImpostaData(Oggi());
}

void CalendarioMensile::CreaTestata()
{
    auto* Riga = new QHBoxLayout;
    Riga->setSpacing(0);
    const auto Aggiungi = [this, Riga](const Freccia& Una) {
        auto* Bottone = new QToolButton(this);
        Bottone->setObjectName(Una.Nome);
        Bottone->setIcon(aspetto::Icona(Una.Figura.toString()));
        Bottone->setToolTip(Una.Aiuto.toString());
        Bottone->setAccessibleName(Una.Aiuto.toString());
        Bottone->setAutoRaise(true);
        Bottone->setAutoRepeat(true);
        Bottone->setFocusPolicy(Qt::NoFocus);  // the keys of the days do the same
        Collega(Bottone, &QToolButton::clicked, this, [this, Mesi = Una.Mesi] { Mese->SpostaMesi(Mesi); });
        Riga->addWidget(Bottone);
    };
    std::ranges::for_each(FreccePrima, Aggiungi);
    lblMese = new QLabel(this);
    lblMese->setObjectName(u"lblMese"_s);
    lblMese->setAlignment(Qt::AlignCenter);
    QFont Grassetto = lblMese->font();
    Grassetto.setBold(true);
    lblMese->setFont(Grassetto);
    Riga->addWidget(lblMese, 1);
    std::ranges::for_each(FrecceDopo, Aggiungi);
    static_cast<QVBoxLayout*>(layout())->addLayout(Riga);
}

void CalendarioMensile::CreaLegenda()
{
    struct Voce
    {
        QString Testo;
        AspettoGiorno Aspetto;
    };
    const std::array Voci{
        Voce{u"Domenica"_s, {.Domenica = true}},
        Voce{NomeInizio, {.Inizio = true}},
        Voce{u"Festivo"_s, {.Festivo = true}},
        Voce{u"Scadenza"_s, {.Scadenza = true}},
        Voce{u"Sospensione feriale"_s, {.Sospeso = true}},
        Voce{u"Oggi"_s, {.Oggi = true}},
    };
    Legenda = new QWidget(this);
    auto* Tabella = new QGridLayout(Legenda);
    Tabella->setContentsMargins(0, 0, 0, 0);
    Tabella->setHorizontalSpacing(aspetto::TraCampi / 2);
    Tabella->setVerticalSpacing(2);
    for (const Voce& Una : Voci) {
        QLabel* Testo = AggiungiVoce(Una.Testo, Una.Aspetto);
        if (Una.Aspetto.Inizio)
            lblInizio = Testo;
    }
    static_assert(std::tuple_size_v<decltype(Voci)> == VociFisse);
    Tabella->setColumnStretch(2, 1);
    Tabella->setColumnStretch(5, 1);
    layout()->addWidget(Legenda);
}

/// A sample and its name behind those that the legend has, two side by side.
QLabel* CalendarioMensile::AggiungiVoce(const QString& Nome, const AspettoGiorno& Aspetto)
{
    auto* Tabella = static_cast<QGridLayout*>(Legenda->layout());
    const int Posto = Tabella->count() / 2;
    const int Colonna = Posto % 2 * 3;
    auto* Testo = new QLabel(Nome, Legenda);
    auto* Esempio = new Campione(Aspetto, Legenda);
    Tabella->addWidget(Esempio, Posto / 2, Colonna);
    Tabella->addWidget(Testo, Posto / 2, Colonna + 1);
    // At once: a legend on view would show them, and count their room, behind the next event.
    Esempio->show();
    Testo->show();
    return Testo;
}

void CalendarioMensile::ImpostaSegni(QList<SegnoCalendario> Nuovi, std::function<int(const QDate&)> Quale)
{
    while (Legenda->layout()->count() > 2 * VociFisse) {
        const std::unique_ptr<QLayoutItem> Ultima(Legenda->layout()->takeAt(2 * VociFisse));
        delete Ultima->widget();
    }
    Segni = std::move(Nuovi);
    SegnoDi = std::move(Quale);
    for (const SegnoCalendario& Segno : std::as_const(Segni))
        AggiungiVoce(Segno.Nome, {.Segno = Segno});
    Ridisegna();
}

void CalendarioMensile::MostraLegenda(bool Si)
{
    Legenda->setVisible(Si);
}

void CalendarioMensile::ImpostaRegole(RegoleCalendario Nuove)
{
    Regole = std::move(Nuove);
    Ridisegna();
}

void CalendarioMensile::Ridisegna()
{
    Mese->update();
}

QDate CalendarioMensile::Data() const
{
    return Mese->Data();
}

void CalendarioMensile::ImpostaData(const QDate& Data)
{
    Mese->ImpostaData(Data);
    Mostra();
}

void CalendarioMensile::Segna(const std::optional<QDate>& Inizio, const QList<QDate>& Scadenze)
{
    Decorrenza = Inizio;
    Fini = Scadenze;
    Ridisegna();
}

void CalendarioMensile::ImpostaNomeInizio(const QString& Nome)
{
    NomeInizio = Nome;
    lblInizio->setText(Nome);
}

AspettoGiorno CalendarioMensile::Aspetto(const QDate& Giorno) const
{
    const int Quale = SegnoDi ? SegnoDi(Giorno) : -1;
    return {.Domenica = Giorno.dayOfWeek() == Qt::Sunday,
            .Festivo = Risponde(Regole.Festivo, Giorno),
            .Sospeso = Risponde(Regole.Sospeso, Giorno),
            .Inizio = Decorrenza == Giorno,
            .Scadenza = Fini.contains(Giorno),
            .Oggi = Giorno == Oggi(),
            .Segno = Quale >= 0 && Quale < Segni.size() ? std::optional(Segni[Quale]) : std::nullopt};
}

QString CalendarioMensile::Descrizione(const QDate& Giorno) const
{
    const AspettoGiorno Come = Aspetto(Giorno);
    QStringList Parti{NomeGiorno(Giorno.dayOfWeek()).toLower() + u' ' + QString::number(Giorno.day()) + u' ' +
                      NomeMese(Giorno.month()).toLower() + u' ' + QString::number(Giorno.year())};
    if (Come.Oggi)
        Parti << u"oggi"_s;
    if (Come.Festivo)
        Parti << u"festivo"_s;
    if (Come.Sospeso)
        Parti << u"sospensione feriale"_s;
    if (Come.Segno)
        Parti << Come.Segno->Nome.toLower();
    if (Come.Inizio)
        Parti << NomeInizio.toLower();
    if (Come.Scadenza)
        Parti << u"scadenza"_s;
    return Parti.join(u", "_s);
}

QRect CalendarioMensile::Riquadro(const QDate& Giorno) const
{
    const QRect Dentro = Mese->Riquadro(Giorno);
    return Dentro.isEmpty() ? QRect() : Dentro.translated(Mese->pos());
}

void CalendarioMensile::Mostra()
{
    lblMese->setText(NomeMese(Data().month()).toLower() + u' ' + QString::number(Data().year()));
}

void CalendarioMensile::wheelEvent(QWheelEvent* Evento)
{
    constexpr int Scatto = 120;  // a notch, in eighths of a degree; a touchpad sends parts of it
    Rotella += Evento->angleDelta().y();
    Mese->SpostaMesi(-(Rotella / Scatto));
    Rotella %= Scatto;
    Evento->accept();
}

#include "moc_calendario.cpp"
