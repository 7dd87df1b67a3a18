#include "calculators/windows/pannellocontributo.h"

#include "platform/kit/aspetto.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

enum ColonnaRiga { ColNumero, ColTesto, ColContributo };

/// Sections of the left column: those that one calculates with and those of a fixed fee.
constexpr size_t SezioniASinistra = 4;
constexpr int TraVoci = 4;
constexpr int TraSezioni = 12;

/// Two captions of one proceeding run on as one text.
QString DiSeguito(QString Testo)
{
    return Testo.replace(u" \n"_s, u" "_s).replace(u'\n', u' ');
}

QLabel* Testo(const QString& Frase)
{
    auto* Etichetta = new QLabel(DiSeguito(Frase));
    Etichetta->setTextFormat(Qt::PlainText);
    Etichetta->setWordWrap(true);
    Etichetta->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return Etichetta;
}

QLabel* Grassetto(QLabel* Etichetta)
{
    QFont Carattere = Etichetta->font();
    Carattere.setBold(true);
    Etichetta->setFont(Carattere);
    return Etichetta;
}

QGridLayout* NuovaColonna()
{
    auto* Griglia = new QGridLayout;
    Griglia->setHorizontalSpacing(aspetto::TraCampi);
    Griglia->setVerticalSpacing(TraVoci);
    Griglia->setColumnStretch(ColTesto, 1);
    return Griglia;
}

}  // namespace

void Finestrella::resizeEvent(QResizeEvent* Evento)
{
    QWidget::resizeEvent(Evento);
    Q_EMIT Misurata();
}

void Finestrella::wheelEvent(QWheelEvent* Evento)
{
    Q_EMIT Rotella(Evento->angleDelta().y());
    Evento->accept();
}

PannelloContributo::PannelloContributo(QWidget* Padre) : QWidget(Padre)
{
    setObjectName(u"fraContrib"_s);
    auto* Colonne = new QHBoxLayout(this);
    Colonne->setContentsMargins(aspetto::Bordo, aspetto::TraCampi, aspetto::Bordo, aspetto::TraCampi);
    Colonne->setSpacing(2 * aspetto::TraGruppi);
    const auto Pagina = PaginaContributo();
    for (const auto& Parte : {Pagina.first(SezioniASinistra), Pagina.subspan(SezioniASinistra)}) {
        QGridLayout* Griglia = NuovaColonna();
        for (const SezionePagina& Una : Parte)
            Sezione(Griglia, Una);
        Griglia->setRowStretch(Griglia->rowCount(), 1);
        Colonne->addLayout(Griglia, 1);
    }
}

void PannelloContributo::Sezione(QGridLayout* Griglia, const SezionePagina& Una)
{
    int Riga = Griglia->rowCount();
    if (Griglia->count() > 0)
        Griglia->setRowMinimumHeight(Riga++, TraSezioni - TraVoci);
    QLabel* Titolo = Grassetto(Testo(Una.Titolo.toString()));
    QPalette Colori;
    Colori.setColor(QPalette::WindowText, aspetto::Accento());
    Titolo->setPalette(Colori);
    Griglia->addWidget(Titolo, Riga++, ColNumero, 1, ColContributo + 1);
    if (!Una.Norma.isEmpty())
        Griglia->addWidget(Testo(Una.Norma.toString()), Riga++, ColNumero, 1, ColContributo + 1);
    for (const VocePagina& Voce_ : Una.Voci)
        Voce(Griglia, Voce_, Una.Titolo.toString().trimmed());
}

void PannelloContributo::Voce(QGridLayout* Griglia, const VocePagina& Una, const QString& Nome)
{
    int Riga = Griglia->rowCount();
    const bool Importo = !Una.Contributo.isEmpty();
    if (!Una.Numero.isEmpty())
        Griglia->addWidget(Testo(Una.Numero.toString()), Riga, ColNumero);
    if (!Una.Testo.isEmpty()) {
        const int Da = Una.Numero.isEmpty() && !Importo ? ColNumero : ColTesto;
        const int Fino = Importo ? ColTesto : ColContributo;
        Griglia->addWidget(Testo(Una.Testo.toString()), Riga, Da, 1, Fino - Da + 1);
    }
    if (Importo) {
        auto* Contributo = new QLabel(Una.Contributo.toString());
        Griglia->addWidget(Contributo, Riga, ColContributo, Qt::AlignRight | Qt::AlignTop);
    }
    if (Una.Campo == SenzaCampo)
        return;
    if (!Una.Testo.isEmpty())
        ++Riga;
    const QString Intero = (Nome + u' ' + Una.Numero.toString()).trimmed();
    Griglia->addWidget(RigaValore(Una.Campo, Intero), Riga, ColTesto, 1, 2);
}

/// "Valore: [....] Contributo: ... [copy]"
QWidget* PannelloContributo::RigaValore(int Indice, const QString& Nome)
{
    const QString Suffisso = u'_' + QString::number(Indice);
    auto* Riga = new QWidget;
    auto* Fila = new QHBoxLayout(Riga);
    Fila->setContentsMargins(0, 0, 0, 0);
    Fila->setSpacing(aspetto::TraCampi);

    auto* Valore = new QLineEdit;
    Valore->setObjectName(u"txtValore"_s + Suffisso);
    Valore->setAccessibleName(u"Valore, "_s + Nome);
    Valore->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    constexpr int BordoCasella = 16;
    Valore->setFixedWidth(Valore->fontMetrics().horizontalAdvance(u"999.999.999,99"_s) + BordoCasella);
    auto* DidValore = new QLabel(u"Valore:"_s);
    DidValore->setBuddy(Valore);

    auto* Contributo = Grassetto(new QLabel);
    Contributo->setObjectName(u"lblContr"_s + Suffisso);
    Contributo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Contributo->setMinimumWidth(Contributo->fontMetrics().horizontalAdvance(u"9.999,00 "_s));
    auto* Copia = new QToolButton;
    Copia->setObjectName(u"cmdCopia"_s + Suffisso);
    Copia->setFocusPolicy(Qt::StrongFocus);  // a click on it leaves the value, which computes the fee
    Copia->setIcon(aspetto::Icona(u"copia"_s));
    Copia->setToolTip(u"Copia il contributo (Ctrl+C)"_s);
    Copia->setAccessibleName(u"Copia il contributo, "_s + Nome);

    auto* Porta = new QToolButton;
    Porta->setObjectName(u"cmdPorta"_s + Suffisso);
    Porta->setFocusPolicy(Qt::StrongFocus);
    Porta->setAccessibleName(u"Porta nella parcella, "_s + Nome);

    Fila->addStretch(1);
    Fila->addWidget(DidValore);
    Fila->addWidget(Valore);
    Fila->addSpacing(aspetto::TraCampi);
    Fila->addWidget(new QLabel(u"Contributo:"_s));
    Fila->addWidget(Contributo);
    Fila->addWidget(Copia);
    Fila->addWidget(Porta);

    Valori[size_t(Indice)] = Valore;
    Contributi[size_t(Indice)] = Contributo;
    Copie[size_t(Indice)] = Copia;
    Porte[size_t(Indice)] = Porta;
    return Riga;
}

void PannelloContributo::Allarga(int Larghezza)
{
    resize(Larghezza, std::max(layout()->heightForWidth(Larghezza), minimumSizeHint().height()));
}

#include "moc_pannellocontributo.cpp"
