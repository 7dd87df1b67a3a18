#include "platform/grid/griglia_cella.h"

#include "platform/base/regionale.h"
#include "platform/grid/griglia_modello.h"
#include "platform/grid/griglia_vista.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/system/messaggi.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QValidator>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView FiltroData = u"d";

const QString& FiltroDi(const VistaGriglia* Vista, const QModelIndex& Cella)
{
    return Vista->Modello()->Colonne()[Cella.column()].Filtro;
}

bool Numerico(const ColonnaGriglia& Colonna)
{
    return Colonna.Filtro == u"," || Colonna.Filtro == u"n";
}

/// Raises what comes into a box.
class SoloMaiuscole : public QValidator
{
public:
    using QValidator::QValidator;
    State validate(QString& Testo, int&) const override
    {
        Testo = Testo.toUpper();
        return Acceptable;
    }
};

QVariant ValorePredefinito(const ColonnaGriglia& Colonna, const QString& Testo)
{
    if (Numerico(Colonna) && IsNumeric(Testo))
        return CDbl(Testo);
    return Testo;
}

}  // namespace

CellaAperta::CellaAperta(Griglia* Intera, VistaGriglia* DiVista)
    : QObject(DiVista), Padrona(Intera), Vista(DiVista)
{}

void CellaAperta::Crea(const QModelIndex& Dove, const QString& Testo)
{
    const ColonnaGriglia& Colonna = Vista->Modello()->Colonne()[Dove.column()];
    Campo = new QLineEdit(Vista->viewport());
    Campo->setObjectName(u"cella"_s);
    Campo->setAccessibleName(Colonna.Titolo);
    Campo->setFrame(false);
    Campo->setAutoFillBackground(true);
    Campo->setAlignment(Colonna.Allinea | Qt::AlignVCenter);
    if (Colonna.Massimo > 0)
        Campo->setMaxLength(Colonna.Massimo);
    if (Colonna.Maiuscole)
        Campo->setValidator(new SoloMaiuscole(Campo));
    Campo->setToolTip(Colonna.Spiegazione);
    Campo->setAccessibleDescription(Colonna.Spiegazione);
    Posto = Dove;
    Offerta = false;
    // As the box can hold it: a longer text that is only passed over is no edit, and stays whole.
    Campo->setText(CStr(Vista->Modello()->Valore(Dove.row(), Dove.column())));
    Iniziale = Campo->text();
    Campo->setText(Testo);
    if (!Colonna.Filtro.isEmpty())
        FiltraTasti(Campo, Colonna.Filtro);
    Campo->installEventFilter(this);  // behind the filter of keys, so that it sees Enter first
    Riposiziona();
    Campo->show();
    Campo->setFocus(Qt::OtherFocusReason);
}

void CellaAperta::Apri(const QModelIndex& Dove)
{
    if (Aperta() || !Vista->Modello()->Modificabile(Dove.column()))
        return;
    Crea(Dove, CStr(Vista->Modello()->Valore(Dove.row(), Dove.column())));
    Campo->selectAll();
}

void CellaAperta::ApriOfferta(const QModelIndex& Dove)
{
    Apri(Dove);
    Offerta = Aperta();
}

void CellaAperta::ApriDigitando(const QModelIndex& Dove, const QKeyEvent& Tasto)
{
    if (Aperta() || !Vista->Modello()->Modificabile(Dove.column()))
        return;
    Crea(Dove, {});
    QKeyEvent Copia(QEvent::KeyPress, Tasto.key(), Tasto.modifiers(), Tasto.text());
    QCoreApplication::sendEvent(Campo, &Copia);
    if (Campo && Campo->text().isEmpty())
        Annulla();
}

void CellaAperta::Riposiziona()
{
    if (!Campo)
        return;
    // One pixel above the row's rule; behind the header when the row is scrolled out of view.
    Campo->setGeometry(Vista->visualRect(Posto).adjusted(0, 0, 0, -1));
}

void CellaAperta::Chiudi()
{
    const QPointer<QLineEdit> Vecchio = std::exchange(Campo, nullptr);
    if (!Vecchio)
        return;
    // Only an editor that still has the focus hands it on to the grid.
    if (Vecchio->hasFocus())
        Vista->setFocus(Qt::OtherFocusReason);
    Vecchio->hide();
    // It lives on until its own event is over: without its name, so that no search finds it as the open
    // editor.
    Vecchio->setObjectName(QString());
    Vecchio->deleteLater();
    Posto = QModelIndex();
    Vista->SegnaRepaint();
}

void CellaAperta::Annulla()
{
    Chiudi();
}

QString CellaAperta::Normalizzato() const
{
    return FiltroDi(Vista, Posto) == FiltroData ? DataDigitata(Campo->text()) : Campo->text();
}

bool CellaAperta::Concludi()
{
    // While a rule shows a message the focus moves: that is no second leaving.
    if (!Campo || InCorso)
        return true;
    if (!Posto.isValid() || Campo->text() == Iniziale) {
        Chiudi();
        return true;
    }
    const QPointer<CellaAperta> Vivo = this;
    bool Riuscito = false;
    InCorso = true;
    try {
        const QString Testo = Normalizzato();
        Riuscito = Accettato(Testo);
        if (Vivo)
            InCorso = false;
        if (Vivo && Riuscito)
            Scrivi(Testo);
    } catch (...) {
        Riuscito = false;
        RiportaEccezione();
    }
    if (!Vivo)
        return Riuscito;
    InCorso = false;
    if (!Riuscito && Campo)
        Rifiuta();
    return Riuscito;
}

/// The user goes on where he was. A date that is none is given up, what else was typed can be put right.
void CellaAperta::Rifiuta()
{
    if (FiltroDi(Vista, Posto) == FiltroData)
        Campo->setText(Iniziale);
    RidaiFuoco(Campo);
}

bool CellaAperta::Accettato(const QString& Testo)
{
    // What is left of a date typed among the amounts is a number too, and not the user's.
    const ColonnaGriglia& Colonna = Vista->Modello()->Colonne()[Posto.column()];
    const QString Rifiutati = Numerico(Colonna) ? TastiRifiutati(Campo) : QString();
    if (!Rifiutati.isEmpty() && !Testo.isEmpty()) {
        MsgBox(u"In questa casella non si può scrivere «%1»: controllare il valore «%2»!"_s.arg(Rifiutati,
                                                                                                Testo),
               vbCritical, u"Errore:"_s);
        return false;
    }
    // A copy: the columns may be set anew while the check shows its message.
    const auto Convalida = Colonna.Convalida;
    return !Convalida || Convalida(Posto.row(), Testo);
}

void CellaAperta::Scrivi(const QString& Testo)
{
    ModelloGriglia* Modello = Vista->Modello();
    int Riga = Posto.row();
    const int Colonna = Posto.column();
    const ColonnaGriglia& Descritta = Modello->Colonne()[Colonna];
    const QVariant Nuovo = Descritta.Valore ? Descritta.Valore(Testo) : ValorePredefinito(Descritta, Testo);
    const bool Inizia = Modello->RigaVuota(Riga);
    if (Inizia) {
        Riga = Modello->AggiungiRiga();
        if (const auto Riempi = Padrona->NuovaRiga)
            Riempi(Riga);
    }
    Modello->Scrivi(Riga, Colonna, Nuovo);
    Vista->SegnaSporca(Riga);
    Chiudi();
    Padrona->Rilega();
    Q_EMIT Padrona->CellaScritta(Riga, Colonna);
}

bool CellaAperta::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Oggetto != Campo)
        return QObject::eventFilter(Oggetto, Evento);
    switch (Evento->type()) {
    case QEvent::KeyPress:
        if (Tasto(*static_cast<QKeyEvent*>(Evento))) {
            Evento->accept();
            return true;
        }
        return false;
    case QEvent::ShortcutOverride:
        // Esc and Del belong to the cell, not to the window's shortcuts.
        if (static_cast<QKeyEvent*>(Evento)->key() == Qt::Key_Escape)
            Evento->accept();
        return false;
    case QEvent::FocusOut:
        return LasciaFuoco(*static_cast<QFocusEvent*>(Evento));
    default:
        return false;
    }
}

bool CellaAperta::Tasto(const QKeyEvent& Evento)
{
    if (Offerta && Evento.matches(QKeySequence::Undo) && !Campo->isUndoAvailable()) {
        // The step to take back is the one that has led here.
        if (Concludi()) {
            QKeyEvent Copia(QEvent::KeyPress, Evento.key(), Evento.modifiers());
            QCoreApplication::sendEvent(Vista, &Copia);
        }
        return true;
    }
    switch (Evento.key()) {
    case Qt::Key_Escape:
        Annulla();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (Concludi())
            (void)Vista->ProssimaCella(true);
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: {
        const bool Avanti = Evento.key() == Qt::Key_Tab && !Evento.modifiers().testFlag(Qt::ShiftModifier);
        if (Concludi() && !Vista->ProssimaCella(Avanti))
            PassaAvanti(Vista, Avanti);
        return true;
    }
    case Qt::Key_F6:
        if (Concludi())
            PassaAvanti(Vista, !Evento.modifiers().testFlag(Qt::ShiftModifier));
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (Concludi()) {
            QKeyEvent Copia(QEvent::KeyPress, Evento.key(), Evento.modifiers());
            QCoreApplication::sendEvent(Vista, &Copia);
        }
        return true;
    default:
        return false;
    }
}

/// A press inside the grid commits by its own road, with the cell still open; anything else is a leaving.
bool CellaAperta::LasciaFuoco(const QFocusEvent& Evento)
{
    if (!LasciaDavvero(Evento))
        return false;
    const QWidget* Nuovo = QApplication::focusWidget();
    const bool Dentro = Nuovo && (Nuovo == Padrona || Padrona->isAncestorOf(Nuovo));
    if (Dentro && Evento.reason() == Qt::MouseFocusReason)
        return false;
    const QPointer<QLineEdit> Vivo = Campo;
    const bool Rifiutato = !Padrona->Concludi();
    if (Vivo && Rifiutato && !Aperta())
        RidaiFuoco(Vista);  // the cell is written, but its row does not let itself be left
    return !Vivo;
}
