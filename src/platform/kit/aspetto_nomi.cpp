#include "platform/kit/aspetto.h"

#include <QAbstractButton>
#include <QAction>
#include <QFormLayout>
#include <QGroupBox>
#include <QHash>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QList>
#include <QSet>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// The letter behind the "&" of a caption, in lower case; null when it has none.
QChar Mnemonico(const QString& Testo)
{
    const QString Sequenza = QKeySequence::mnemonic(Testo).toString();
    return Sequenza.isEmpty() ? QChar() : Sequenza.back().toLower();
}

/// The caption with "&" before a free letter, best at the start of a word; as it is when none is free.
QString ConMnemonico(const QString& Testo, QSet<QChar>& Usati)
{
    for (const bool SoloIniziali : {true, false}) {
        for (qsizetype i = 0; i < Testo.size(); ++i) {
            const QChar Lettera = Testo[i].toLower();
            const bool Iniziale = i == 0 || !Testo[i - 1].isLetterOrNumber();
            // A keyboard reaches plain letters and digits; an accented one may not be on it.
            const bool Digitabile =
                (Lettera >= u'a' && Lettera <= u'z') || (Lettera >= u'0' && Lettera <= u'9');
            if (!Digitabile || (SoloIniziali && !Iniziale) || Usati.contains(Lettera))
                continue;
            Usati.insert(Lettera);
            return Testo.left(i) + u'&' + Testo.mid(i);
        }
    }
    return Testo;
}

/// A caption somewhere on a form: how it is read and written.
struct Scritta
{
    QString Testo;
    std::function<void(const QString&)> Imposta;
};

void AggiungiScritte(QWidget* Oggetto, QList<Scritta>& Scritte)
{
    if (auto* Etichetta = qobject_cast<QLabel*>(Oggetto)) {
        if (Etichetta->buddy())
            Scritte.append({Etichetta->text(), [Etichetta](const QString& T) { Etichetta->setText(T); }});
    } else if (auto* Pulsante = qobject_cast<QAbstractButton*>(Oggetto)) {
        // A letter in the caption would take the place of keys that the button was given.
        if (Mnemonico(Pulsante->text()).isNull() && !Pulsante->shortcut().isEmpty())
            return;
        Scritte.append({Pulsante->text(), [Pulsante](const QString& T) { Pulsante->setText(T); }});
    } else if (auto* Gruppo = qobject_cast<QGroupBox*>(Oggetto); Gruppo && Gruppo->isCheckable()) {
        Scritte.append({Gruppo->title(), [Gruppo](const QString& T) { Gruppo->setTitle(T); }});
    } else if (auto* Linguette = qobject_cast<QTabBar*>(Oggetto)) {
        for (int i = 0; i < Linguette->count(); ++i)
            Scritte.append(
                {Linguette->tabText(i), [Linguette, i](const QString& T) { Linguette->setTabText(i, T); }});
    }
}

/// Gathers the captions under a widget, and the pages of which only one is on view.
void Raccogli(QWidget* Da, QList<Scritta>& Scritte, QList<QWidget*>& Pagine)
{
    AggiungiScritte(Da, Scritte);
    const auto* Pila = qobject_cast<const QStackedWidget*>(Da);
    for (QObject* Figlio : Da->children()) {
        auto* Oggetto = qobject_cast<QWidget*>(Figlio);
        if (!Oggetto || Oggetto->isWindow())
            continue;
        if (Pila && Pila->indexOf(Oggetto) >= 0)
            Pagine += Oggetto;
        else
            Raccogli(Oggetto, Scritte, Pagine);
    }
}

/// The letters that captions have been given by hand, on all pages below.
QSet<QChar> LettereDelle(const QList<QWidget*>& Pagine)
{
    QSet<QChar> Lettere;
    for (QWidget* Pagina : Pagine) {
        QList<Scritta> Scritte;
        QList<QWidget*> Interne;
        Raccogli(Pagina, Scritte, Interne);
        for (const Scritta& Voce : std::as_const(Scritte))
            if (const QChar Lettera = Mnemonico(Voce.Testo); !Lettera.isNull())
                Lettere.insert(Lettera);
        Lettere.unite(LettereDelle(Interne));
    }
    return Lettere;
}

void Assegna(QWidget* Da, QSet<QChar> Usati)
{
    QList<Scritta> Scritte;
    QList<QWidget*> Pagine;
    Raccogli(Da, Scritte, Pagine);
    for (const Scritta& Voce : std::as_const(Scritte))
        if (const QChar Lettera = Mnemonico(Voce.Testo); !Lettera.isNull())
            Usati.insert(Lettera);
    // What stands around the pages is on view with each of them.
    QSet<QChar> Presi = LettereDelle(Pagine) + Usati;
    for (const Scritta& Voce : std::as_const(Scritte)) {
        if (!Mnemonico(Voce.Testo).isNull() || Voce.Testo.isEmpty() || Qt::mightBeRichText(Voce.Testo))
            continue;
        const QString Nuova = ConMnemonico(Voce.Testo, Presi);
        Voce.Imposta(Nuova);
        if (const QChar Lettera = Mnemonico(Nuova); !Lettera.isNull())
            Usati.insert(Lettera);
    }
    // Pages of one stack share letters; those of another stand beside them.
    for (QWidget* Pagina : std::as_const(Pagine)) {
        QList<QWidget*> Accanto;
        for (QWidget* Altra : std::as_const(Pagine))
            if (Altra->parentWidget() != Pagina->parentWidget())
                Accanto += Altra;
        Assegna(Pagina, Usati + LettereDelle(Accanto));
    }
}

/// A caption as it is spoken: without the "&" and the colon behind it.
QString Pronuncia(QString Testo)
{
    Testo.replace(u"&&"_s, u"\1"_s).remove(u'&').replace(u'\1', u'&');
    Testo = Testo.simplified();
    if (Testo.endsWith(u':'))
        Testo.chop(1);
    return Testo;
}

/// Signs that stand for a picture say nothing.
bool SiLegge(const QString& Testo)
{
    return std::ranges::any_of(Testo, [](QChar Lettera) { return Lettera.isLetterOrNumber(); });
}

/// The labels of a form by the control that each of them calls.
using EtichettePerControllo = QHash<const QWidget*, const QLabel*>;

EtichettePerControllo EtichetteDi(const QWidget* Modulo)
{
    EtichettePerControllo Trovate;
    for (const QLabel* Etichetta : Modulo->findChildren<QLabel*>())
        if (const QWidget* Oggetto = Etichetta->buddy(); Oggetto && !Trovate.contains(Oggetto))
            Trovate.insert(Oggetto, Etichetta);
    return Trovate;
}

QString EtichettaDi(const EtichettePerControllo& Etichette, QWidget* Oggetto)
{
    if (const QLabel* Etichetta = Etichette.value(Oggetto))
        return Etichetta->text();
    for (QWidget* Padre = Oggetto->parentWidget(); Padre; Padre = Padre->parentWidget()) {
        const auto* Disposizione = qobject_cast<const QFormLayout*>(Padre->layout());
        if (!Disposizione)
            continue;
        if (const auto* Etichetta = qobject_cast<const QLabel*>(Disposizione->labelForField(Oggetto)))
            return Etichetta->text();
    }
    return {};
}

QString GruppoDi(const QWidget* Oggetto)
{
    for (const QWidget* Padre = Oggetto->parentWidget(); Padre; Padre = Padre->parentWidget())
        if (const auto* Gruppo = qobject_cast<const QGroupBox*>(Padre); Gruppo && !Gruppo->title().isEmpty())
            return Gruppo->title();
    return {};
}

QString NomePer(const QWidget* Modulo, const EtichettePerControllo& Etichette, QWidget* Oggetto)
{
    const auto* Pulsante = qobject_cast<const QAbstractButton*>(Oggetto);
    const auto* Riga = qobject_cast<const QLineEdit*>(Oggetto);
    QWidget* Padre = Oggetto->parentWidget();
    const bool Interno = Padre && Padre != Modulo && Padre->focusProxy() == Oggetto;
    for (const QString& Testo : {EtichettaDi(Etichette, Oggetto), Pulsante ? Pulsante->text() : QString(),
                                 Oggetto->toolTip(), Riga ? Riga->placeholderText() : QString()})
        if (QString Nome = Pronuncia(Testo); SiLegge(Nome))
            return Nome;
    // The part of a composed control that takes its focus is called as the whole is.
    if (Interno)
        return Padre->accessibleName().isEmpty() ? NomePer(Modulo, Etichette, Padre)
                                                 : Padre->accessibleName();
    return Pronuncia(GruppoDi(Oggetto));
}

/// The button that empties a box, where the box has one. It is the toolkit's, which gives it no name.
QToolButton* TastoSvuota(const QLineEdit* Riga)
{
    const auto* Azione = Riga->findChild<QAction*>(u"_q_qlineeditclearaction"_s);
    for (QToolButton* Tasto : Riga->findChildren<QToolButton*>())
        if (Azione && Tasto->defaultAction() == Azione)
            return Tasto;
    return nullptr;
}

}  // namespace

namespace aspetto {

void AssegnaMnemonici(QWidget* Modulo)
{
    Assegna(Modulo, {});
}

void AssegnaNomiAccessibili(QWidget* Modulo)
{
    const EtichettePerControllo Etichette = EtichetteDi(Modulo);
    for (QWidget* Oggetto : Modulo->findChildren<QWidget*>()) {
        if (const auto* Riga = qobject_cast<const QLineEdit*>(Oggetto))
            if (QToolButton* Svuota = TastoSvuota(Riga))
                Svuota->setAccessibleName(u"Svuota la casella"_s);
        // The toolkit's arrow of a bar that is too narrow.
        if (Oggetto->objectName() == u"qt_toolbar_ext_button")
            Oggetto->setAccessibleName(u"Altri comandi"_s);
        const bool Comando = Oggetto->focusPolicy() != Qt::NoFocus || qobject_cast<QAbstractButton*>(Oggetto);
        if (!Comando || !Oggetto->accessibleName().isEmpty() || Oggetto->objectName().startsWith(u"qt_"))
            continue;
        if (const QString Nome = NomePer(Modulo, Etichette, Oggetto); !Nome.isEmpty())
            Oggetto->setAccessibleName(Nome);
    }
}

}  // namespace aspetto
