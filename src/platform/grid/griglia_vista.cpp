#include "platform/grid/griglia_vista.h"

#include "platform/grid/griglia_cella.h"
#include "platform/grid/griglia_disegno.h"
#include "platform/grid/griglia_modello.h"
#include "platform/grid/griglia_selettore.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The one gate through which the current cell changes, whoever moves it.
class Cursore : public QItemSelectionModel
{
public:
    Cursore(QAbstractItemModel* Modello, QObject* Padre, std::function<bool(const QModelIndex&)> Domanda)
        : QItemSelectionModel(Modello, Padre), PuoAndare(std::move(Domanda))
    {}

    void setCurrentIndex(const QModelIndex& Cella, QItemSelectionModel::SelectionFlags Modo) override
    {
        if (Cella == currentIndex() || (PuoAndare(Cella) && Cella.row() < model()->rowCount()))
            QItemSelectionModel::setCurrentIndex(Cella, Modo);
    }

private:
    std::function<bool(const QModelIndex&)> PuoAndare;
};

/// Knows whether widths and order of the columns change because the user has a title, or its edge, in hand.
class ManoSuiTitoli : public QObject
{
public:
    ManoSuiTitoli(QHeaderView* Testata, bool& ColonneMosse) : QObject(Testata)
    {
        Testata->viewport()->installEventFilter(this);
        const auto Segna = [this, &ColonneMosse] { ColonneMosse = ColonneMosse || InMano; };
        Collega(Testata, &QHeaderView::sectionResized, this, Segna);
        Collega(Testata, &QHeaderView::sectionMoved, this, Segna);
    }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        switch (Evento->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            InMano = true;
            break;
        case QEvent::MouseButtonRelease:
            // The title takes its new place while this event goes on.
            QMetaObject::invokeMethod(
                this, [this] { InMano = false; }, Qt::QueuedConnection);
            break;
        default:
            break;
        }
        return QObject::eventFilter(Oggetto, Evento);
    }

private:
    bool InMano = false;
};

bool Stampabile(const QKeyEvent& Evento)
{
    const bool Comando = Evento.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !Comando && !Evento.text().isEmpty() && Evento.text().front().isPrint();
}

}  // namespace

VistaGriglia::VistaGriglia(Griglia* Intera)
    : QTableView(Intera), Padrona(Intera), Righe(new ModelloGriglia(this)),
      Sinistra(new SelettoreRighe(Intera, this)), Aperta(new CellaAperta(Intera, this))
{
    setModel(Righe);
    auto* Predefinito = selectionModel();
    setSelectionModel(
        new Cursore(Righe, this, [this](const QModelIndex& Verso) { return PuoAndare(Verso); }));
    delete Predefinito;
    setVerticalHeader(Sinistra);
    setItemDelegate(new DisegnoCelle(this));
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setSelectionMode(QAbstractItemView::NoSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);  // else a press on a title moves the current row
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // the grid's own bar stands below the footer
    auto* Stile = new StileTitoli(u"Fusion"_s);
    Stile->setParent(horizontalHeader());  // a widget does not own its style
    horizontalHeader()->setStyle(Stile);
    horizontalHeader()->setSectionsMovable(true);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    AltezzaRighe();
    Collega(this, &QAbstractItemView::doubleClicked, this, &VistaGriglia::DoppioClicSu);
    Collega(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& Dove) {
        if (Dove == currentIndex() && !Righe->RigaVuota(Dove.row()) && !Aperta->Aperta())
            Q_EMIT Padrona->ClicCella(Dove.row(), Dove.column());
    });
    Collega(horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
        Stira();
        Aperta->Riposiziona();
    });
    Collega(horizontalHeader(), &QHeaderView::sectionMoved, this, [this] {
        ColonnaSpostata();
        Aperta->Riposiziona();
    });
    new ManoSuiTitoli(horizontalHeader(), ColonneMosse);
    Collega(horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int Colonna) { Q_EMIT Padrona->ClicTitolo(Colonna); });
}

QString VistaGriglia::SuggerimentoDi(int Riga) const
{
    return Padrona->Suggerimento && !Righe->RigaVuota(Riga) ? Padrona->Suggerimento(Riga) : QString();
}

void VistaGriglia::AltezzaRighe()
{
    constexpr int Aria = 8;
    const int Altezza = fontMetrics().height() + Aria;
    Sinistra->setMinimumSectionSize(Altezza);
    Sinistra->setDefaultSectionSize(Altezza);
}

void VistaGriglia::SegnaRepaint()
{
    viewport()->update();
    Sinistra->viewport()->update();
}

// ---- the current row

std::optional<int> VistaGriglia::RigaVera() const
{
    const int Riga = currentIndex().row();
    return Riga >= 0 && !Righe->RigaVuota(Riga) ? std::optional(Riga) : std::nullopt;
}

bool VistaGriglia::LasciaRiga(int Riga)
{
    const auto Domanda = Padrona->LasciaRiga;
    if (!Domanda || InDomanda)
        return true;
    const QPointer<VistaGriglia> Vivo = this;
    InDomanda = true;
    bool Accettato = false;
    try {
        Accettato = Domanda(Riga);
    } catch (...) {
        RiportaEccezione();
    }
    if (!Vivo)
        return false;
    InDomanda = false;
    if (Accettato)
        Sporca.reset();
    SegnaRepaint();  // the rule may have set the row right
    return Accettato;
}

bool VistaGriglia::Concludi()
{
    const QPointer<VistaGriglia> Vivo = this;
    if (!Aperta->Concludi() || !Vivo)
        return false;
    return !Sporca || Righe->RigaVuota(*Sporca) || LasciaRiga(*Sporca);
}

bool VistaGriglia::PuoAndare(const QModelIndex& Verso)
{
    if (ZittaDomande > 0)
        return true;
    const QPointer<VistaGriglia> Vivo = this;
    if (!Aperta->Concludi() || !Vivo)
        return false;
    const auto Riga = RigaVera();
    const bool Resta = !Riga || Verso.row() == *Riga;
    return (Resta || LasciaRiga(*Riga)) && Vivo;
}

void VistaGriglia::SenzaDomande(const std::function<void()>& Fai)
{
    const QScopedValueRollback Zitta(ZittaDomande, ZittaDomande + 1);
    Fai();
}

void VistaGriglia::RigheCambiate()
{
    if (Sporca && Righe->RigaVuota(*Sporca))
        Sporca.reset();
    if (Aperta->Aperta() && !Aperta->Cella().isValid())
        Aperta->Annulla();
}

bool VistaGriglia::VaiARiga(int Riga)
{
    const QModelIndex Dove = Righe->index(Riga, std::max(0, currentIndex().column()));
    selectionModel()->setCurrentIndex(Dove, QItemSelectionModel::NoUpdate);
    return currentIndex().row() == Riga;
}

void VistaGriglia::PortaA(int Riga, int Colonna)
{
    int Dove = Colonna >= 0 ? Colonna : currentIndex().column();
    if (Dove < 0 || isColumnHidden(Dove))
        Dove = std::max(0, horizontalHeader()->logicalIndexAt(0));
    const QModelIndex Cella = Righe->index(std::min(Riga, Righe->rowCount() - 1), Dove);
    SenzaDomande([&] { selectionModel()->setCurrentIndex(Cella, QItemSelectionModel::NoUpdate); });
    if (Cella.isValid())
        scrollTo(Cella);
    SegnaRepaint();
}

/// The columns that can be written, as they stand on screen.
QList<int> VistaGriglia::ColonneScrivibili() const
{
    QList<int> Trovate;
    for (int Visuale = 0; Visuale < horizontalHeader()->count(); ++Visuale) {
        const int Colonna = horizontalHeader()->logicalIndex(Visuale);
        if (!isColumnHidden(Colonna) && Righe->Modificabile(Colonna))
            Trovate += Colonna;
    }
    return Trovate;
}

bool VistaGriglia::ProssimaCella(bool Avanti)
{
    QList<int> Colonne = ColonneScrivibili();
    if (Colonne.isEmpty() || Righe->rowCount() == 0)
        return false;
    if (!Avanti)
        std::reverse(Colonne.begin(), Colonne.end());
    const auto Posto = [this](int Colonna) { return horizontalHeader()->visualIndex(Colonna); };
    const QModelIndex Da = currentIndex();
    int Riga = std::max(0, Da.row());
    const auto Oltre = std::find_if(Colonne.cbegin(), Colonne.cend(), [&](int Colonna) {
        return !Da.isValid() ||
               (Avanti ? Posto(Colonna) > Posto(Da.column()) : Posto(Colonna) < Posto(Da.column()));
    });
    int Colonna = Colonne.constFirst();
    if (Oltre != Colonne.cend())
        Colonna = *Oltre;
    else
        Riga += Avanti ? 1 : -1;
    if (Riga < 0 || Riga >= Righe->rowCount())
        return false;
    selectionModel()->setCurrentIndex(Righe->index(Riga, Colonna), QItemSelectionModel::NoUpdate);
    return true;
}

// ---- keys

void VistaGriglia::keyboardSearch(const QString&)
{
    // A letter typed on a catalogue belongs to nobody; searching would fetch every row of it.
}

bool VistaGriglia::event(QEvent* Evento)
{
    // The form's own step back comes behind what the lines do with the key. A form that puts no lines back
    // has the key for itself.
    if (Evento->type() == QEvent::ShortcutOverride && ConComandi && Padrona->ComandoPossibile &&
        static_cast<QKeyEvent*>(Evento)->matches(QKeySequence::Undo)) {
        Evento->accept();
        return true;
    }
    if (Evento->type() == QEvent::KeyPress) {
        const auto& Tasto = *static_cast<QKeyEvent*>(Evento);
        const bool Indietro = Tasto.key() == Qt::Key_Backtab;
        const bool Nudo = (Tasto.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
        if ((Indietro || Tasto.key() == Qt::Key_Tab) && Nudo && ProssimaCella(!Indietro)) {
            Evento->accept();
            return true;
        }
    }
    return QTableView::event(Evento);
}

void VistaGriglia::keyPressEvent(QKeyEvent* Evento)
{
    // A press on a column's title has taken the focus from the cell and left it open.
    if (hasFocus() && !Aperta->Concludi()) {
        Evento->accept();
        return;
    }
    const QModelIndex Dove = currentIndex();
    if (TastoComando(*Evento)) {
        Evento->accept();
    } else if (Stampabile(*Evento)) {
        Evento->accept();
        if (Righe->Modificabile(Dove.column()))
            Aperta->ApriDigitando(Dove, *Evento);
        else if (LetteraCercata(*Evento))
            Padrona->CercaLettere(Lettere);
        else if (Evento->key() == Qt::Key_Space && RigaVera())
            Q_EMIT Padrona->ClicCella(Dove.row(), Dove.column());
    } else {
        QTableView::keyPressEvent(Evento);
    }
}

/// Letters that follow quickly are one text; a blank begins none. @return true when the form seeks them
bool VistaGriglia::LetteraCercata(const QKeyEvent& Evento)
{
    if (!Padrona->CercaLettere)
        return false;
    const bool Segue =
        UltimaLettera.isValid() && UltimaLettera.elapsed() <= QApplication::keyboardInputInterval();
    if (!Segue)
        Lettere.clear();
    if (Lettere.isEmpty() && Evento.key() == Qt::Key_Space)
        return false;
    Lettere += Evento.text();
    UltimaLettera.start();
    return true;
}

/// The keys of what is done with rows. @return true when the form was told
bool VistaGriglia::TastoRighe(const QKeyEvent& Evento)
{
    constexpr std::array Tasti{std::pair(QKeySequence::Cut, ComandoRighe::Taglia),
                               std::pair(QKeySequence::Copy, ComandoRighe::Copia),
                               std::pair(QKeySequence::Paste, ComandoRighe::Incolla),
                               std::pair(QKeySequence::Undo, ComandoRighe::Annulla)};
    if (!ConComandi)
        return false;
    for (const auto& [Sequenza, Quale] : Tasti) {
        if (!Evento.matches(Sequenza))
            continue;
        if (Quale == ComandoRighe::Copia && Sinistra->Vuoto())
            return false;  // the cell's text then
        Q_EMIT Padrona->Comando(Quale);
        return true;
    }
    return false;
}

/// The keys that mean something of their own. @return true when it was one of them
bool VistaGriglia::TastoComando(const QKeyEvent& Evento)
{
    if (TastoRighe(Evento))
        return true;
    if (Evento.matches(QKeySequence::Copy)) {
        if (currentIndex().isValid())
            QApplication::clipboard()->setText(currentIndex().data().toString());
        return true;
    }
    if (Evento.matches(QKeySequence::SelectAll)) {
        Sinistra->TuttaLaTabella();
        return true;
    }
    switch (Evento.key()) {
    case Qt::Key_Escape:
        if (Sinistra->InTrascinamento())
            Sinistra->AnnullaTrascinamento();
        else if (!Sinistra->Vuoto())
            Sinistra->Azzera();
        else
            return false;
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Invio();
        return true;
    case Qt::Key_F2:
        Aperta->Apri(currentIndex());
        return true;
    case Qt::Key_F6:
        PassaAvanti(this, !Evento.modifiers().testFlag(Qt::ShiftModifier));
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        return Evento.modifiers().testFlag(Qt::ShiftModifier) &&
               EstendiSelezione(Evento.key() == Qt::Key_Down ? 1 : -1);
    case Qt::Key_Delete:
        if (RigaVera() || !Sinistra->Vuoto())
            Q_EMIT Padrona->Cancella();
        return true;
    case Qt::Key_Space:
        if (!Evento.modifiers().testFlag(Qt::ShiftModifier))
            return false;
        if (const auto Riga = RigaVera())
            Sinistra->Scambia(*Riga);
        return true;
    default:
        return false;
    }
}

/// Selects the rows from the first of a run of such keys to the one beside the current row, and goes there.
bool VistaGriglia::EstendiSelezione(int Passo)
{
    const auto Da = RigaVera();
    if (!Da)
        return false;
    const int A = std::clamp(*Da + Passo, 0, Righe->RigheVere() - 1);
    if (VaiARiga(A))
        Sinistra->Estendi(*Da, A);
    return true;
}

void VistaGriglia::Invio()
{
    if (Righe->HaModificabili())
        (void)ProssimaCella(true);
    else if (const auto Riga = RigaVera())
        Padrona->AnnunciaInvio(*Riga);
}

void VistaGriglia::inputMethodEvent(QInputMethodEvent* Evento)
{
    // Letters composed by an input method (accents, dead keys) begin a cell, or are sought, like typed ones.
    if (!Evento->commitString().isEmpty()) {
        const QKeyEvent Tasto(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, Evento->commitString());
        if (Righe->Modificabile(currentIndex().column()))
            Aperta->ApriDigitando(currentIndex(), Tasto);
        else if (LetteraCercata(Tasto))
            Padrona->CercaLettere(Lettere);
    }
    Evento->accept();
}

void VistaGriglia::IniziaRiga()
{
    const QList<int> Colonne = ColonneScrivibili();
    if (Colonne.isEmpty() || !VaiARiga(Righe->rowCount() - 1))
        return;
    setFocus(Qt::OtherFocusReason);
    PortaA(Righe->rowCount() - 1, Colonne.constFirst());
    Aperta->Apri(currentIndex());
}

// ---- mouse and focus

void VistaGriglia::DoppioClicSu(const QModelIndex& Dove)
{
    if (Dove != currentIndex())
        return;  // the row before did not let itself be left
    const bool Vera = !Righe->RigaVuota(Dove.row());
    if (!Righe->Modificabile(Dove.column())) {
        if (Vera)
            Q_EMIT Padrona->DoppioClic(Dove.row());
        return;
    }
    // A cell that a click changes has been changed by the first of the two: the second one gives it back.
    if (Vera)
        Q_EMIT Padrona->ClicCella(Dove.row(), Dove.column());
    Aperta->Apri(Dove);
}

void VistaGriglia::mousePressEvent(QMouseEvent* Evento)
{
    const QModelIndex Dove = indexAt(Evento->position().toPoint());
    if (!Dove.isValid()) {
        (void)Concludi();
        return;
    }
    QTableView::mousePressEvent(Evento);  // the cursor's gate commits the open cell
}

void VistaGriglia::mouseMoveEvent(QMouseEvent* Evento)
{
    // With a button down the view would drag the current row along, past the rule of leaving it.
    if (Evento->buttons() == Qt::NoButton)
        QTableView::mouseMoveEvent(Evento);
}

void VistaGriglia::contextMenuEvent(QContextMenuEvent* Evento)
{
    const bool Tastiera = Evento->reason() == QContextMenuEvent::Keyboard;
    const int Riga = Tastiera ? currentIndex().row() : rowAt(Evento->y());
    const QPoint Punto =
        Tastiera ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()) : Evento->globalPos();
    Padrona->ApriMenu(Riga >= 0 && !Righe->RigaVuota(Riga) ? Riga : -1, Punto);
}

void VistaGriglia::focusInEvent(QFocusEvent* Evento)
{
    Evidente = true;
    QTableView::focusInEvent(Evento);
    SegnaRepaint();
}

void VistaGriglia::focusOutEvent(QFocusEvent* Evento)
{
    QTableView::focusOutEvent(Evento);
    SegnaRepaint();
    const QWidget* Nuovo = QApplication::focusWidget();
    const bool Dentro = Nuovo && Padrona->isAncestorOf(Nuovo);
    if (LasciaDavvero(*Evento) && !Dentro && !InDomanda && !Concludi() && !Aperta->Aperta())
        RidaiFuoco(this);
}

// ---- drawing

void VistaGriglia::resizeEvent(QResizeEvent* Evento)
{
    QTableView::resizeEvent(Evento);
    Stira();
    Aperta->Riposiziona();
}

void VistaGriglia::scrollContentsBy(int X, int Y)
{
    QTableView::scrollContentsBy(X, Y);
    Aperta->Riposiziona();
}

void VistaGriglia::paintEvent(QPaintEvent* Evento)
{
    QTableView::paintEvent(Evento);
    QPainter Pennello(viewport());
    if (Righe->RigheVere() == 0 && !Frase.isEmpty()) {
        constexpr int Margine = 16;
        const int Sopra = Righe->rowCount() * Sinistra->defaultSectionSize();
        constexpr double Grigio = 0.6;
        Pennello.setPen(
            aspetto::Mischia(palette().color(QPalette::Text), palette().color(QPalette::Base), Grigio));
        Pennello.drawText(viewport()->rect().adjusted(Margine, Sopra + Margine, -Margine, -Margine),
                          Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, Frase);
    }
    if (const auto Linea = Sinistra->Linea()) {
        constexpr int Spessore = 2;
        Pennello.fillRect(0, std::max(0, *Linea - Spessore / 2), viewport()->width(), Spessore,
                          aspetto::Accento());
    }
}
