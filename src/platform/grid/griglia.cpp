#include "platform/grid/griglia.h"

#include "platform/grid/griglia_cella.h"
#include "platform/grid/griglia_menu.h"
#include "platform/grid/griglia_modello.h"
#include "platform/grid/griglia_pie.h"
#include "platform/grid/griglia_selettore.h"
#include "platform/grid/griglia_vista.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"

#include <QEvent>
#include <QItemSelectionModel>
#include <QMetaMethod>
#include <QPainter>
#include <QScrollBar>
#include <QStringList>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

struct Griglia::Interno
{
    explicit Interno(Griglia* Padrona)
        : Vista(new VistaGriglia(Padrona)), Pie(new PieGriglia(Vista, Padrona)),
          Barra(new QScrollBar(Qt::Horizontal, Padrona))
    {}
    Interno(const Interno&) = delete;
    Interno& operator=(const Interno&) = delete;

    /// Tells of a new current row; the same one is told once.
    void Annuncia(Griglia* Padrona)
    {
        const int Riga = Vista->RigaVera().value_or(-1);
        if (std::exchange(Annunciata, Riga) != Riga)
            Q_EMIT Padrona->RigaCambiata(Riga);
    }

    void SeguiBarra()
    {
        QScrollBar* Vera = Vista->horizontalScrollBar();
        Barra->setPageStep(Vera->pageStep());
        Barra->setSingleStep(Vera->singleStep());
        Barra->setRange(Vera->minimum(), Vera->maximum());
        Barra->setVisible(Vera->maximum() > Vera->minimum());
    }

    VistaGriglia* Vista;
    PieGriglia* Pie;
    QScrollBar* Barra;
    int Annunciata = -1;
};

Griglia::Griglia(QWidget* Padre) : QWidget(Padre), Pezzi(std::make_unique<Interno>(this))
{
    auto* Colonna = new QVBoxLayout(this);
    Colonna->setContentsMargins(1, 1, 1, 1);
    Colonna->setSpacing(0);
    Colonna->addWidget(Pezzi->Vista, 1);
    Colonna->addWidget(Pezzi->Pie);
    Colonna->addWidget(Pezzi->Barra);
    Pezzi->Barra->setVisible(false);
    setFocusProxy(Pezzi->Vista);

    QScrollBar* Vera = Pezzi->Vista->horizontalScrollBar();
    Collega(Vera, &QScrollBar::rangeChanged, this, [this] { Pezzi->SeguiBarra(); });
    Collega(Vera, &QScrollBar::valueChanged, Pezzi->Barra,
            [this](int Dove) { Pezzi->Barra->setValue(Dove); });
    Collega(Pezzi->Barra, &QScrollBar::valueChanged, Vera, [Vera](int Dove) { Vera->setValue(Dove); });
    Collega(Pezzi->Vista->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        Pezzi->Vista->Evidente = true;
        Pezzi->Vista->SegnaRepaint();
        Pezzi->Annuncia(this);
    });
}

Griglia::~Griglia()
{
    // The view goes while the rules are still there: its last events may ask for them.
    Pezzi->Vista->Cella()->Annulla();
    delete Pezzi->Pie;
    delete Pezzi->Vista;
}

// ---- source

void Griglia::ImpostaColonne(const QList<ColonnaGriglia>& Colonne)
{
    Pezzi->Vista->Cella()->Annulla();
    Pezzi->Pie->Azzera();
    Pezzi->Vista->Modello()->ImpostaColonne(Colonne);
    Pezzi->Vista->LarghezzeIniziali();
    Pezzi->Vista->ColonneMosse = false;
    Rilega();
}

const QList<ColonnaGriglia>& Griglia::Colonne() const
{
    return Pezzi->Vista->Modello()->Colonne();
}

void Griglia::Lega(TabellaRighe* Tabella)
{
    Pezzi->Vista->Cella()->Annulla();
    Pezzi->Vista->Selettore()->Azzera();
    Pezzi->Vista->DimenticaSporca();
    Pezzi->Vista->Modello()->Lega(Tabella);
    Rilega();
}

void Griglia::Lega(const Recordset& Righe)
{
    Pezzi->Vista->Cella()->Annulla();
    Pezzi->Vista->Selettore()->Azzera();
    Pezzi->Vista->DimenticaSporca();
    Pezzi->Vista->Modello()->Lega(Righe);
    Rilega();
}

void Griglia::Rilega()
{
    VistaGriglia* Vista = Pezzi->Vista;
    const ModelloGriglia* Modello = Vista->Modello();
    const auto Corrente = Vista->RigaVera();
    Vista->SenzaDomande([Vista] { Vista->Modello()->Rilega(); });
    Vista->Selettore()->TogliSparite();
    Vista->RigheCambiate();
    // A row that has gone leaves its place to the last one; a grid with rows has a current one.
    if (Corrente && *Corrente >= Modello->RigheVere() && Modello->RigheVere() > 0)
        Vista->PortaA(Modello->RigheVere() - 1, -1);
    else if (!Vista->currentIndex().isValid() && Modello->rowCount() > 0)
        Vista->PortaA(0, -1);
    Vista->SegnaRepaint();
    Pezzi->Annuncia(this);
}

int Griglia::Righe() const
{
    return Pezzi->Vista->Modello()->RigheVere();
}

void Griglia::ConsentiNuove(bool Si)
{
    const QModelIndex Corrente = Pezzi->Vista->currentIndex();
    Pezzi->Vista->Cella()->Annulla();
    Pezzi->Vista->Modello()->ConsentiNuove(Si);
    Pezzi->Vista->PortaA(std::max(0, Corrente.row()), Corrente.column());
    Pezzi->Annuncia(this);
}

void Griglia::FraseVuota(const QString& Testo)
{
    Pezzi->Vista->Frase = Testo;
    Pezzi->Vista->SegnaRepaint();
}

// ---- rows

std::optional<int> Griglia::RigaCorrente() const
{
    return Pezzi->Vista->RigaVera();
}

int Griglia::ColonnaCorrente() const
{
    return Pezzi->Vista->currentIndex().column();
}

void Griglia::ImpostaRigaCorrente(int Riga, int Colonna)
{
    if (Pezzi->Vista->Cella()->Concludi())
        Pezzi->Vista->PortaA(Riga, Colonna);
}

void Griglia::ApriCella(int Riga, int Colonna)
{
    if (!Pezzi->Vista->Cella()->Concludi())
        return;
    Pezzi->Vista->PortaA(Riga, Colonna);
    setFocus(Qt::OtherFocusReason);
    Pezzi->Vista->Cella()->ApriOfferta(Pezzi->Vista->currentIndex());
}

int Griglia::PrimaRiga() const
{
    return std::max(0, Pezzi->Vista->rowAt(0));
}

void Griglia::ImpostaPrimaRiga(int Riga)
{
    const QAbstractItemModel* Modello = Pezzi->Vista->Modello();
    const QModelIndex Cella = Modello->index(std::clamp(Riga, 0, std::max(0, Modello->rowCount() - 1)), 0);
    if (Cella.isValid())
        Pezzi->Vista->verticalScrollBar()->setValue(Cella.row());
}

QList<int> Griglia::Selezione() const
{
    return Pezzi->Vista->Selettore()->Scelte();
}

void Griglia::AzzeraSelezione()
{
    Pezzi->Vista->Selettore()->Azzera();
}

void Griglia::Seleziona(int Riga)
{
    Pezzi->Vista->Selettore()->Scegli(Riga);
}

void Griglia::TogliEvidenza()
{
    AzzeraSelezione();
    Pezzi->Vista->Evidente = false;
    Pezzi->Vista->SegnaRepaint();
}

// ---- columns and footer

void Griglia::MostraColonna(int Colonna, bool Visibile)
{
    Pezzi->Vista->MostraColonna(Colonna, Visibile);
    Pezzi->Pie->update();
}

bool Griglia::ColonnaVisibile(int Colonna) const
{
    return !Pezzi->Vista->isColumnHidden(Colonna);
}

void Griglia::Pie(int Colonna, const QString& Testo)
{
    Pezzi->Pie->Imposta(Colonna, Testo);
}

QString Griglia::TestoPie(int Colonna) const
{
    return Pezzi->Pie->Testo(Colonna);
}

/// "width@place;..." column by column.
QString Griglia::Larghezze() const
{
    QStringList Parti;
    const QHeaderView* Testata = Pezzi->Vista->horizontalHeader();
    for (int i = 0; i < Testata->count(); ++i)
        Parti += QString::number(Pezzi->Vista->LarghezzaPiena(i)) + u'@' +
                 QString::number(Testata->visualIndex(i));
    return Parti.join(u';');
}

bool Griglia::ColonneMosse() const
{
    return Pezzi->Vista->ColonneMosse;
}

void Griglia::ImpostaLarghezze(const QString& Testo)
{
    QHeaderView* Testata = Pezzi->Vista->horizontalHeader();
    const QStringList Parti = Testo.split(u';');
    if (Parti.size() != Testata->count())
        return;  // other columns than those remembered
    QList<int> Ordine(Parti.size(), -1);
    for (qsizetype i = 0; i < Parti.size(); ++i) {
        const int Larghezza = Parti[i].section(u'@', 0, 0).toInt();
        const int Posto = Parti[i].section(u'@', 1, 1).toInt();
        if (Larghezza <= 0 || Posto < 0 || Posto >= Ordine.size() || Ordine[Posto] >= 0)
            return;
        Ordine[Posto] = int(i);
    }
    Pezzi->Vista->ImpostaOrdine(Ordine);
    for (qsizetype i = 0; i < Parti.size(); ++i)
        Pezzi->Vista->ImpostaLarghezza(int(i), Parti[i].section(u'@', 0, 0).toInt());
}

void Griglia::StringiAlContenuto(const QList<int>& Colonne)
{
    Pezzi->Vista->StringiAlContenuto(Colonne);
    Pezzi->Pie->Allarga();
}

int Griglia::LarghezzaIntera() const
{
    const VistaGriglia* Vista = Pezzi->Vista;
    const QMargins Bordi = contentsMargins() + layout()->contentsMargins();
    return Vista->LarghezzaColonne() + Vista->verticalHeader()->sizeHint().width() + 2 * Vista->frameWidth() +
           Vista->verticalScrollBar()->sizeHint().width() + Bordi.left() + Bordi.right();
}

int Griglia::AltezzaConTotali() const
{
    const QMargins Bordi = contentsMargins() + layout()->contentsMargins();
    return Pezzi->Vista->minimumHeight() + Pezzi->Pie->sizeHint().height() +
           Pezzi->Barra->sizeHint().height() + Bordi.top() + Bordi.bottom();
}

void Griglia::ConsentiTrascina(bool Si)
{
    Pezzi->Vista->Selettore()->ConsentiTrascina(Si);
}

void Griglia::ConsentiComandi(bool Si)
{
    Pezzi->Vista->ConComandi = Si;
}

bool Griglia::Concludi()
{
    return Pezzi->Vista->Concludi();
}

bool Griglia::InModifica() const
{
    return Pezzi->Vista->Cella()->Aperta();
}

void Griglia::ApriMenu(int Riga, const QPoint& Punto)
{
    if (isSignalConnected(QMetaMethod::fromSignal(&Griglia::MenuContestuale))) {
        Q_EMIT MenuContestuale(Riga, Punto);
        return;
    }
    if (!Pezzi->Vista->Cella()->Concludi())
        return;
    ApriMenuRighe(this, Pezzi->Vista, Riga, Punto,
                  {Pezzi->Vista->ConComandi, Pezzi->Vista->Modello()->ConRigaNuova(),
                   isSignalConnected(QMetaMethod::fromSignal(&Griglia::Cancella))});
}

void Griglia::AnnunciaInvio(int Riga)
{
    if (isSignalConnected(QMetaMethod::fromSignal(&Griglia::Invio)))
        Q_EMIT Invio(Riga);
    else
        Q_EMIT DoppioClic(Riga);
}

QTableView* Griglia::Vista() const
{
    return Pezzi->Vista;
}

void Griglia::showEvent(QShowEvent* Evento)
{
    QWidget::showEvent(Evento);
    Pezzi->Vista->setAccessibleName(accessibleName());
}

void Griglia::paintEvent(QPaintEvent*)
{
    QPainter Pennello(this);
    Pennello.fillRect(rect(), palette().color(QPalette::Base));
    Pennello.setPen(aspetto::Filo());
    Pennello.drawRect(rect().adjusted(0, 0, -1, -1));
}

void Griglia::changeEvent(QEvent* Evento)
{
    QWidget::changeEvent(Evento);
    if (Evento->type() == QEvent::FontChange && Pezzi)
        Pezzi->Vista->AltezzaRighe();
}

#include "moc_griglia.cpp"
