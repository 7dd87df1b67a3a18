#include "platform/kit/campo.h"

#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/kit/collega.h"
#include "platform/kit/modFiltri.h"
#include "platform/kit/predefinito.h"
#include "platform/system/messaggi.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QTabBar>
#include <QTextDocument>
#include <QTextEdit>
#include <QToolTip>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

bool InRitorno = false;

/// The edit mark of a widget's text; true for a widget that keeps none.
bool Toccato(const QWidget* Campo)
{
    if (const auto* Riga = qobject_cast<const QLineEdit*>(Campo))
        return Riga->isModified();
    if (const auto* Lista = qobject_cast<const QComboBox*>(Campo))
        return !Lista->lineEdit() || Lista->lineEdit()->isModified();
    if (const auto* Testo = qobject_cast<const QTextEdit*>(Campo))
        return Testo->document()->isModified();
    if (const auto* Piano = qobject_cast<const QPlainTextEdit*>(Campo))
        return Piano->document()->isModified();
    return true;
}

void SegnaIntatto(QWidget* Campo)
{
    if (auto* Riga = qobject_cast<QLineEdit*>(Campo))
        Riga->setModified(false);
    else if (auto* Lista = qobject_cast<QComboBox*>(Campo); Lista && Lista->lineEdit())
        Lista->lineEdit()->setModified(false);
    else if (auto* Testo = qobject_cast<QTextEdit*>(Campo))
        Testo->document()->setModified(false);
    else if (auto* Piano = qobject_cast<QPlainTextEdit*>(Campo))
        Piano->document()->setModified(false);
}

/// Watches one box; a child of it, so that it goes with it.
class OsservatoreCampo : public QObject
{
public:
    explicit OsservatoreCampo(QWidget* Campo) : QObject(Campo), Box(Campo)
    {
        Campo->installEventFilter(this);
    }

    /// The box's watcher, null when it has none.
    static OsservatoreCampo* Di(const QWidget* Campo)
    {
        for (QObject* Figlio : Campo->children())
            if (auto* Trovato = dynamic_cast<OsservatoreCampo*>(Figlio))
                return Trovato;
        return nullptr;
    }

    /// Runs the procedure if there is cause. @return false when it refuses
    bool Esegui();

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        if (Evento->type() != QEvent::FocusOut || !LasciaDavvero(*static_cast<QFocusEvent*>(Evento)))
            return QObject::eventFilter(Oggetto, Evento);
        // A box that is being destroyed, a plain widget already, is not left: its form may be gone.
        if (Oggetto->metaObject() == &QWidget::staticMetaObject)
            return false;
        const QPointer<QWidget> Vivo = Box;
        (void)Esegui();
        return !Vivo;  // an event for a box that is gone stops here
    }

    std::function<bool()> Procedura;
    bool Sempre = false;

private:
    QWidget* Box;
    bool InCorso = false;
};

bool OsservatoreCampo::Esegui()
{
    if (InCorso || !Procedura || (!Sempre && !Toccato(Box)))
        return true;
    InCorso = true;
    // The procedure may show a message, and the form may be gone behind it.
    const QPointer<OsservatoreCampo> Vivo = this;
    const auto Copia = Procedura;
    bool Accettato = true;
    try {
        Accettato = Copia();
    } catch (...) {
        RiportaEccezione();
    }
    if (!Vivo)
        return Accettato;
    InCorso = false;
    if (Accettato)
        SegnaIntatto(Box);
    else
        RidaiFuoco(Box);
    return Accettato;
}

void Osserva(QWidget* Campo, std::function<bool()> Procedura, bool Sempre)
{
    OsservatoreCampo* Osservatore = OsservatoreCampo::Di(Campo);
    if (!Osservatore)
        Osservatore = new OsservatoreCampo(Campo);
    Osservatore->Procedura = std::move(Procedura);
    Osservatore->Sempre = Sempre;
}

constexpr const char* ProprietaRifiutati = "tastiRifiutati";

void SegnaRifiutato(QLineEdit* Campo, QChar Carattere)
{
    const QString Prima = Campo->property(ProprietaRifiutati).toString();
    if (!Carattere.isSpace() && Carattere != u'€' && !Prima.contains(Carattere))
        Campo->setProperty(ProprietaRifiutati, Prima + Carattere);
}

/// What a box of a kind of FiltroTasti takes, as the end of a sentence; empty for a list of letters.
QString CheCosaPrende(const QString& Tipo)
{
    if (Tipo == u"d")
        return u"qui va una data (cifre, / e -)"_s;
    if (Tipo == u",")
        return u"qui va un importo (cifre, virgola, punto e -)"_s;
    if (Tipo == u"n")
        return u"qui va un numero (cifre e -)"_s;
    const bool Cifre = std::all_of(Tipo.cbegin(), Tipo.cend(), [](QChar C) { return C.isDigit(); });
    if (Cifre)
        return u"qui vanno solo cifre"_s;
    return Tipo.contains(u'1') && Tipo.contains(u',') ? u"qui va una percentuale (cifre e virgola)"_s
                                                      : QString();
}

/// A key that is kept out says so beside the box, or the rest would pass for what was typed.
void DilloAccanto(QLineEdit* Campo, const QString& Tipo, QChar Carattere)
{
    const QString Prende = CheCosaPrende(Tipo);
    if (Prende.isEmpty() || Carattere.isSpace() || !Campo->hasFocus())
        return;
    QToolTip::showText(Campo->mapToGlobal(QPoint(0, Campo->height())),
                       u"«%1» non è stato scritto: %2"_s.arg(QString(Carattere), Prende), Campo);
}

/// Stands before the pages of a window.
class GuardiaSchede : public QObject
{
public:
    explicit GuardiaSchede(QTabBar* Schede) : QObject(Schede) { Schede->installEventFilter(this); }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        switch (Evento->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::Wheel:
        case QEvent::Shortcut:
            if (!ConcludiCampo())
                return true;
            break;
        default:
            break;
        }
        return QObject::eventFilter(Oggetto, Evento);
    }
};

/// Stands between the keyboard and one box.
class FiltroDigitazione : public QObject
{
public:
    FiltroDigitazione(QLineEdit* Campo, const QString& TipoTasti, bool PuntoVirgola, bool TastierinoVirgola)
        : QObject(Campo), Box(Campo), Tipo(TipoTasti), PuntoInVirgola(PuntoVirgola),
          TastierinoInVirgola(TastierinoVirgola)
    {
        Campo->installEventFilter(this);
        TieneInvio(Campo);
    }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        if (Evento->type() == QEvent::KeyPress && Filtra(*static_cast<QKeyEvent*>(Evento))) {
            Evento->accept();
            return true;
        }
        return QObject::eventFilter(Oggetto, Evento);
    }

private:
    /// True when the key goes no further.
    bool Filtra(const QKeyEvent& Tasto)
    {
        if (EInvio(Tasto.key())) {
            PassaAvanti(Box);
            return true;
        }
        const QList<uint> Testo = Tasto.text().toUcs4();
        if (Testo.isEmpty() || !QChar::isPrint(Testo.first()) || Box->isReadOnly())
            return false;
        const int Prima = int(Testo.first());
        const int Dopo = FiltroTasti(Decimale(Tasto, Prima), Tipo);
        if (Dopo == Prima)
            return false;
        if (Dopo == 0) {
            const QChar Rifiutato(char16_t(std::min(Prima, 0xFFFF)));
            SegnaRifiutato(Box, Rifiutato);
            DilloAccanto(Box, Tipo, Rifiutato);
        }
        if (Dopo != 0) {
            const auto Carattere = char32_t(Dopo);
            Box->insert(QString::fromUcs4(&Carattere, 1));
        }
        return true;
    }

    /// The character meant: Italian keypads have a point where amounts want a comma.
    int Decimale(const QKeyEvent& Tasto, int Carattere) const
    {
        if (Carattere != u'.')
            return Carattere;
        const bool Tastierino = Tasto.modifiers().testFlag(Qt::KeypadModifier);
        return PuntoInVirgola || (Tastierino && TastierinoInVirgola) ? u',' : u'.';
    }

    QLineEdit* Box;
    QString Tipo;
    bool PuntoInVirgola;
    bool TastierinoInVirgola;
};

/// Runs what is open in a widget and in those around it. @return false when something refuses
bool ConcludiDa(QPointer<QWidget> Campo)
{
    while (Campo) {
        // The parent is taken first: the procedure may close the form.
        const QPointer<QWidget> Padre = Campo->isWindow() ? nullptr : Campo->parentWidget();
        if (auto* Aperto = dynamic_cast<Concludibile*>(Campo.data()); Aperto && !Aperto->Concludi())
            return false;
        if (OsservatoreCampo* Osservatore = Campo ? OsservatoreCampo::Di(Campo) : nullptr;
            Osservatore && !Osservatore->Esegui())
            return false;
        Campo = Padre;
    }
    return true;
}

void PreparaNumerico(QLineEdit* Campo, bool Percento)
{
    Campo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    FiltraTasti(Campo, Percento ? u"1234567890,."_s : u","_s, Percento);
}

/// True for a number that can be held; one that lies beyond every number is none.
bool Leggibile(const QString& Testo)
{
    try {
        (void)CDbl(Testo);
        return true;
    } catch (const Errore&) {
        return false;
    }
}

/// A leave procedure that runs only on a number or on nothing; another text is told and refused.
std::function<bool()> SoloNumeri(QLineEdit* Campo, std::function<bool()> Procedura)
{
    return [Campo, Procedura = std::move(Procedura)] {
        const QString Testo = Campo->text().trimmed();
        if (Testo.isEmpty() || Leggibile(Testo))
            return !Procedura || Procedura();
        MsgBox(u"Immettere un valore numerico!"_s, vbCritical, TitoloErrore.toString());
        return false;
    };
}

}  // namespace

bool LasciaDavvero(const QFocusEvent& Evento)
{
    return !InRitorno && Evento.reason() != Qt::ActiveWindowFocusReason &&
           Evento.reason() != Qt::PopupFocusReason;
}

void MostraIntero(QLineEdit* Campo, const QString& Testo)
{
    constexpr const char* Limite = "LimiteDiBattitura";
    if (!Campo->property(Limite).isValid())
        Campo->setProperty(Limite, Campo->maxLength());
    Campo->setMaxLength(std::max(Campo->property(Limite).toInt(), int(Testo.size())));
    Campo->setText(Testo);
}

void RidaiFuoco(QWidget* Campo)
{
    QMetaObject::invokeMethod(
        Campo,
        [Campo] {
            const QScopedValueRollback Guardia(InRitorno, true);
            Campo->setFocus(Qt::OtherFocusReason);
            if (auto* Riga = qobject_cast<QLineEdit*>(Campo))
                Riga->selectAll();
            // What a page scrolls to by itself is the field that the Tab key comes to.
            for (QWidget* Padre = Campo->parentWidget(); Padre; Padre = Padre->parentWidget())
                if (auto* Pagina = qobject_cast<QScrollArea*>(Padre))
                    Pagina->ensureWidgetVisible(Campo);
        },
        Qt::QueuedConnection);
}

void PassaAvanti(QWidget* Da, bool Avanti)
{
    // The function is protected in QWidget; a name brought in by a derived class reaches it.
    struct Porta : QWidget
    {
        using QWidget::focusNextPrevChild;
    };
    // The style draws the focus of lists, ticks and options only where the keyboard is known to move it.
    Da->window()->setAttribute(Qt::WA_KeyboardFocusChange);
    (Da->*(&Porta::focusNextPrevChild))(Avanti);
}

void AlLascia(QWidget* Campo, std::function<bool()> Procedura)
{
    Osserva(Campo, std::move(Procedura), false);
}

void AlLasciaSempre(QWidget* Campo, std::function<bool()> Procedura)
{
    Osserva(Campo, std::move(Procedura), true);
}

bool ConcludiCampo()
{
    if (QWidget* Campo = QApplication::focusWidget())
        return ConcludiDa(Campo);
    // A command may come while another program is in front: each window keeps its field all the same.
    QList<QPointer<QWidget>> Campi;
    for (const QWidget* Finestra : QApplication::topLevelWidgets())
        if (Finestra->isVisible() && Finestra->focusWidget())
            Campi += Finestra->focusWidget();
    return std::all_of(Campi.cbegin(), Campi.cend(), ConcludiDa);
}

void LasciaPrima(QTabBar* Schede)
{
    new GuardiaSchede(Schede);
}

void FiltraTasti(QLineEdit* Campo, const QString& Tipo, bool PuntoInVirgola)
{
    new FiltroDigitazione(Campo, Tipo, PuntoInVirgola, Tipo.contains(u','));
}

QString TastiRifiutati(QLineEdit* Campo)
{
    QString Rifiutati = Campo->property(ProprietaRifiutati).toString();
    Campo->setProperty(ProprietaRifiutati, {});
    return Rifiutati;
}

void VirgolaDalTastierino(QLineEdit* Campo, bool PuntoInVirgola)
{
    new FiltroDigitazione(Campo, {}, PuntoInVirgola, true);
}

void CampoPercento(QLineEdit* Campo, std::function<bool()> Procedura)
{
    PreparaNumerico(Campo, true);
    AlLascia(Campo, std::move(Procedura));
}

void CampoNumericoSempre(QLineEdit* Campo, std::function<bool()> Procedura)
{
    PreparaNumerico(Campo, false);
    AlLasciaSempre(Campo, SoloNumeri(Campo, std::move(Procedura)));
}
