#include "feenote/windows/PannelloCatena.h"

#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "print/modRiepilogo.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A row of the panel.
struct RigaCatena
{
    QString Nome;
    QString Importo;
    bool Somma = false;  ///< it stands below a rule of the document
};

/// The rows of the summary, with a name for the sums that the document leaves without.
QList<RigaCatena> RigheDi(const Catena& Conti, QString& InLettere)
{
    QList<RigaCatena> Tutte;
    QStringList Senza{u"Imponibile"_s, u"Imponibile e cassa"_s};
    bool Sotto = false;
    for (const RigaRiepilogo& Voce : RigheRiepilogo(Conti)) {
        if (Voce.Tipo == RigaRiepilogo::Filetto)
            Sotto = true;
        if (Voce.Tipo == RigaRiepilogo::Lettere)
            InLettere = Voce.Etichetta;
        if (Voce.Tipo != RigaRiepilogo::Voce)
            continue;
        const bool Anonima = Voce.Etichetta.isEmpty() && !Senza.isEmpty();
        Tutte.append({Anonima ? Senza.takeFirst() : Voce.Etichetta, Voce.Importo, Sotto});
        Sotto = false;
    }
    return Tutte;
}

}  // namespace

PannelloCatena::PannelloCatena(QWidget* Padre)
    : QDialog(Padre), Documento(new QLabel(this)), Righe(new QTableWidget(0, 2, this)),
      Lettere(new QLabel(this))
{
    setObjectName(u"frmCatena"_s);
    setWindowTitle(u"Importi del documento"_s);
    Documento->setObjectName(u"lblDocumento"_s);
    QFont Marcato = Documento->font();
    Marcato.setBold(true);
    Documento->setFont(Marcato);
    Righe->setObjectName(u"tabCatena"_s);
    Righe->setAccessibleName(u"Importi del documento"_s);
    Righe->horizontalHeader()->hide();
    Righe->verticalHeader()->hide();
    Righe->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    Righe->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    Righe->setShowGrid(false);
    Righe->setFrameShape(QFrame::NoFrame);
    Righe->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Righe->setSelectionBehavior(QAbstractItemView::SelectRows);
    Righe->setSelectionMode(QAbstractItemView::SingleSelection);
    Righe->setTabKeyNavigation(false);
    Righe->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    Righe->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Lettere->setObjectName(u"lblLettere"_s);
    Lettere->setWordWrap(true);
    auto* Bottoni = new QDialogButtonBox(this);
    QPushButton* Copiare = Bottoni->addButton(u"Copia"_s, QDialogButtonBox::ActionRole);
    Copiare->setObjectName(u"cmdCopiaCatena"_s);
    Copiare->setToolTip(u"Copia gli importi come tabella (Ctrl+C)"_s);
    QPushButton* Chiudere = Bottoni->addButton(u"Chiudi"_s, QDialogButtonBox::RejectRole);
    Chiudere->setObjectName(u"cmdChiudiCatena"_s);
    Chiudere->setToolTip(u"Torna alla parcella (Esc)"_s);
    Chiudere->setDefault(true);
    auto* Colonna = new QVBoxLayout(this);
    Colonna->setContentsMargins(aspetto::Bordo, aspetto::Bordo, aspetto::Bordo, aspetto::Bordo);
    Colonna->setSpacing(aspetto::TraCampi);
    Colonna->addWidget(Documento);
    Colonna->addWidget(Righe, 1);
    Colonna->addWidget(Lettere);
    Colonna->addWidget(Bottoni);
    Collega(Copiare, &QAbstractButton::clicked, this, [this] { Copia(); });
    Collega(Bottoni, &QDialogButtonBox::rejected, this, [this] { reject(); });
    aspetto::AssegnaMnemonici(this);
}

void PannelloCatena::Mostra(const Catena& Conti)
{
    const QString Nome = TipoDi(Conti.Dati.Tipo).Nome.toString();
    QString InLettere;
    const QList<RigaCatena> Nuove = RigheDi(Conti, InLettere);
    Documento->setText(Nome);
    Lettere->setText(InLettere);
    const int Corrente = std::max(Righe->currentRow(), 0);
    Righe->setRowCount(int(Nuove.size()));
    QFont Marcato = font();
    Marcato.setBold(true);
    for (int Riga = 0; Riga < Nuove.size(); ++Riga) {
        const RigaCatena& Voce = Nuove[Riga];
        for (int Colonna : {0, 1}) {
            auto* Cella = new QTableWidgetItem(Colonna == 0 ? Voce.Nome : Voce.Importo);
            Cella->setTextAlignment(Qt::Alignment(Qt::AlignVCenter) |
                                    (Colonna == 0 ? Qt::AlignLeft : Qt::AlignRight));
            Cella->setFont(Voce.Somma ? Marcato : font());
            Righe->setItem(Riga, Colonna, Cella);
        }
    }
    constexpr int Aria = 8;
    const int Alta = QFontMetrics(Marcato).height() + Aria;
    Righe->verticalHeader()->setDefaultSectionSize(Alta);
    if (Righe->rowCount() > 0)
        Righe->setCurrentCell(std::min(Corrente, Righe->rowCount() - 1), 0);
    Righe->setMinimumHeight(std::min(Righe->rowCount() * Alta + 2, screen()->availableSize().height() / 2));
    const int Larga =
        QFontMetrics(Marcato).horizontalAdvance(u"Importo dovuto al netto della R.A.  -999.999,99"_s);
    Righe->setMinimumWidth(Larga + 2 * Aria);
}

void PannelloCatena::Alterna(const QWidget* Sopra)
{
    if (isVisible()) {
        reject();
        return;
    }
    adjustSize();
    const QRect Schermo = Sopra->screen()->availableGeometry();
    const QPoint Angolo = Sopra->mapToGlobal(QPoint(Sopra->width(), 0));
    // The window's frame comes on top of its size.
    QRect Posto(QPoint(), size() + QSize(0, style()->pixelMetric(QStyle::PM_TitleBarHeight)));
    Posto.moveBottomRight(Angolo - QPoint(0, aspetto::TraCampi));
    Posto.moveLeft(
        std::clamp(Posto.left(), Schermo.left(), std::max(Schermo.left(), Schermo.right() - width())));
    Posto.moveTop(std::max(Posto.top(), Schermo.top()));
    move(Posto.topLeft());
    PortaDavanti(this);
    Righe->setFocus(Qt::OtherFocusReason);
}

QString PannelloCatena::Testo() const
{
    QStringList Tutte;
    for (int Riga = 0; Riga < Righe->rowCount(); ++Riga)
        Tutte += Righe->item(Riga, 0)->text() + u'\t' + Righe->item(Riga, 1)->text();
    return Tutte.join(u'\n');
}

void PannelloCatena::Copia() const
{
    QGuiApplication::clipboard()->setText(Testo());
}

void PannelloCatena::keyPressEvent(QKeyEvent* Evento)
{
    if (Evento->matches(QKeySequence::Copy))
        Copia();
    else
        QDialog::keyPressEvent(Evento);
}

#include "moc_PannelloCatena.cpp"
