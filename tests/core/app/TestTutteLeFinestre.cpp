#include "supporto/accessibili.h"
#include "tuttelefinestre.h"

#include "core/app/suggerimenti.h"
#include "core/tasti.h"
#include "platform/base/nometasti.h"
#include "platform/kit/tastimostrati.h"

#include <QAction>
#include <QCheckBox>
#include <QDirIterator>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QMap>
#include <QMenu>
#include <QRegularExpression>
#include <QSet>
#include <QShortcut>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>

/// All windows, walked once: their keys held against the one table of keys, their controls as a screen reader
/// meets them, their captions.
class TestTutteLeFinestre : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void ogniTastoStaNellaTabella();
    void ogniRigaHaIlSuoTasto();
    void ogniRigaNominaUnControllo();
    void suggerimenti();
    void suggerimentiDiUnaManiera();
    void unTastoUnaSolaAzione();
    void unaLetteraUnSoloControllo();
    void menuSenzaTastiPropri();
    void ogniControlloHaUnNomeSuo();
    void leDidascalieSpuntano();
    void nessunaFinestraResta();

private:
    struct TastoTrovato
    {
        QString Finestra;
        QString Gruppo;  ///< of the table, as the nearest owner is called
        QString Tasti;
        QString Chi;
    };
    QList<TastoTrovato> Trovati;
    QStringList FuoriTabella;
    QStringList SuggerimentiSbagliati;
    QStringList SuggerimentiCheComandano;
    QStringList Doppi;
    QStringList LettereDoppie;
    int BottoniConTasti = 0;
    int Lettere = 0;
    QStringList TastiNeiMenu;
    QStringList DifettiDeiNomi;
    QStringList DidascalieMute;
    QSet<QString> Percorse;                   ///< classes of windows, tabs and panels that were on view
    QMap<QString, QSet<QString>> Incontrati;  ///< names of the parts met, by the classes around them
    int Controlli = 0;
    int Spunte = 0;
};
PROVA(TestTutteLeFinestre);

namespace {

/// A key and where it counts.
struct Scorciatoia
{
    QKeySequence Tasti;
    const QWidget* Dove;
    bool SoloDentro;  ///< where the focus is in there, else in the whole window
    bool Attiva;
    QString Chi;
};

bool DiFinestra(Qt::ShortcutContext Contesto)
{
    return Contesto == Qt::WindowShortcut || Contesto == Qt::ApplicationShortcut;
}

/// The widget is of the window, not of another one that it owns, and on a page on view.
bool Appartiene(const QWidget* Parte, const QWidget* Finestra)
{
    return Parte && Parte->window() == Finestra && (Parte == Finestra || Parte->isVisibleTo(Finestra));
}

QList<Scorciatoia> ScorciatoieDi(QWidget* Finestra)
{
    QList<Scorciatoia> Tutte;
    for (const QShortcut* Una : Finestra->findChildren<QShortcut*>()) {
        const auto* Dove = qobject_cast<const QWidget*>(Una->parent());
        if (!Appartiene(Dove, Finestra) || Una->context() == Qt::WidgetShortcut)
            continue;
        for (const QKeySequence& Tasti : Una->keys())
            Tutte.append({Tasti, Dove, !DiFinestra(Una->context()), Una->isEnabled(),
                          u"scorciatoia di "_s + Dove->objectName()});
    }
    QList<const QAction*> Azioni;
    for (const QAction* Azione : Finestra->findChildren<QAction*>())
        Azioni << Azione;
    for (const QAction* Azione : Azioni) {
        if (Azione->shortcutContext() == Qt::WidgetShortcut)
            continue;
        for (const QObject* Oggetto : Azione->associatedObjects()) {
            const auto* Dove = qobject_cast<const QWidget*>(Oggetto);
            if (!Dove || qobject_cast<const QMenu*>(Dove) || !Appartiene(Dove, Finestra))
                continue;
            for (const QKeySequence& Tasti : Azione->shortcuts())
                Tutte.append({Tasti, Dove, !DiFinestra(Azione->shortcutContext()), Azione->isEnabled(),
                              Azione->objectName()});
            break;
        }
    }
    // Buttons with keys of their own, beside the letters of their captions.
    for (const QAbstractButton* Bottone : Finestra->findChildren<QAbstractButton*>())
        if (Appartiene(Bottone, Finestra) && !Bottone->shortcut().isEmpty() &&
            !Bottone->shortcut().toString().startsWith(u"Alt+"))
            Tutte.append({Bottone->shortcut(), Bottone, false, Bottone->isEnabled(), Bottone->objectName()});
    return Tutte;
}

/// Both would answer, so neither does.
bool SiContendono(const Scorciatoia& A, const Scorciatoia& B)
{
    if (A.Tasti != B.Tasti || !A.Attiva || !B.Attiva)
        return false;
    if (A.SoloDentro && B.SoloDentro)
        return A.Dove == B.Dove || A.Dove->isAncestorOf(B.Dove) || B.Dove->isAncestorOf(A.Dove);
    return true;
}

/// What the key of the table is called by the nearest owner; the frame's notes have two parts of the page.
QStringList GruppiDi(const QWidget* Dove)
{
    QStringList Nomi;
    for (; Dove; Dove = Dove->parentWidget()) {
        const QString Classe = QString::fromLatin1(Dove->metaObject()->className());
        Nomi << Classe << Dove->objectName();
        if (Classe == u"frmMain")
            Nomi << u"cornice"_s;
        if (Classe == u"frmStudio")
            Nomi << u"frmMain"_s;
    }
    return Nomi << QString();
}

const RigaTasti* RigaPer(const QStringList& Gruppi, const QString& Tasti)
{
    for (const QString& Gruppo : Gruppi)
        for (const RigaTasti& Riga : TabellaTasti())
            if (Riga.Finestra == Gruppo && Riga.Tasti.toString().split(u' ').contains(Tasti))
                return &Riga;
    return nullptr;
}

/// Keys that every window of the toolkit has, or that one row stands for.
bool SenzaRiga(const QString& Tasti)
{
    static const QRegularExpression Altri(u"\\A(Ctrl\\+[2-7]|Enter|Back|Forward|Ctrl\\+(Shift\\+)?F6)?\\z"_s);
    return Altri.match(Tasti).hasMatch();
}

/// The keys that a hint names at its end.
QString TastiDetti(const QString& Suggerimento)
{
    static const QRegularExpression Coda(
        u"\\(((?:Ctrl|Maiusc|Alt)\\+[^()]+|F[0-9]+|Ins|Canc|Esc|Invio|Pag su|Pag giù)\\)\\z"_s);
    return Coda.match(Suggerimento).captured(1);
}

/// A hint says what its button does, "Apre la rubrica"; some old ones tell the user to do it. Of verbs in
/// -are nobody sees the difference.
bool Comanda(const QString& Suggerimento)
{
    static const QStringList Antichi{u"Apri parcella"_s, u"Apri parcella multipla in modifica"_s};
    static const QRegularExpression Imperativo(
        u"\\A(Aggiungi|Apri|Chiudi|Esci|Inserisci|Leggi|Metti|Rileggi|Rimetti|Scegli|Scrivi|Togli|Vai)\\b"_s);
    return !Antichi.contains(Suggerimento.section(u" ("_s, 0, 0)) &&
           Imperativo.match(Suggerimento).hasMatch();
}

QList<std::pair<QChar, QString>> LettereDi(QWidget* Finestra)
{
    QList<std::pair<QChar, QString>> Tutte;
    const auto Aggiungi = [&](const QString& Testo, const QWidget* Chi) {
        const QString Tasti = QKeySequence::mnemonic(Testo).toString();
        if (!Tasti.isEmpty() && Appartiene(Chi, Finestra) && Chi->isEnabled())
            Tutte.append({Tasti.back(), Chi->objectName() + u" «"_s + Testo + u'»'});
    };
    for (const QWidget* Parte : Finestra->findChildren<QWidget*>()) {
        if (const auto* Bottone = qobject_cast<const QAbstractButton*>(Parte))
            Aggiungi(Bottone->text(), Parte);
        else if (const auto* Etichetta = qobject_cast<const QLabel*>(Parte); Etichetta && Etichetta->buddy())
            Aggiungi(Etichetta->text(), Parte);
        else if (const auto* Gruppo = qobject_cast<const QGroupBox*>(Parte); Gruppo && Gruppo->isCheckable())
            Aggiungi(Gruppo->title(), Parte);
        else if (const auto* Linguette = qobject_cast<const QTabBar*>(Parte))
            for (int i = 0; i < Linguette->count(); ++i)
                Aggiungi(Linguette->tabText(i), Parte);
    }
    return Tutte;
}

/// Ticks without a text of their own have a caption beside them. @return those that it does not tick
QStringList Mute(const QString& Nome, QWidget* Finestra, int& Provate)
{
    QStringList Trovate;
    for (auto* Casella : Finestra->findChildren<QCheckBox*>()) {
        if (!Appartiene(Casella, Finestra) || !Casella->isEnabled() || !Casella->text().isEmpty())
            continue;
        ++Provate;
        QLabel* Didascalia = nullptr;
        for (QLabel* Etichetta : Finestra->findChildren<QLabel*>())
            if (Etichetta->buddy() == Casella)
                Didascalia = Etichetta;
        const bool Prima = Casella->isChecked();
        if (Didascalia)
            QTest::mouseClick(Didascalia, Qt::LeftButton);
        if (!Didascalia || Casella->isChecked() == Prima)
            Trovate << Nome + u": "_s + Casella->objectName();
        else
            Casella->setChecked(Prima);
    }
    return Trovate;
}

}  // namespace

/// One walk, looked at from several sides.
void TestTutteLeFinestre::initTestCase()
{
    Finestre F;
    F.Tutte([this](const QString& Nome, QWidget* Finestra) {
        QVERIFY2(Finestra, qPrintable(Nome));
        const QList<Scorciatoia> Tutte = ScorciatoieDi(Finestra);
        for (qsizetype i = 0; i < Tutte.size(); ++i) {
            const QString Tasti =
                Tutte[i].Tasti.toString(QKeySequence::PortableText).replace(u"Backtab"_s, u"Tab"_s);
            const RigaTasti* Riga = RigaPer(GruppiDi(Tutte[i].Dove), Tasti);
            if (!Riga && !SenzaRiga(Tasti))
                FuoriTabella << u"%1: %2, %3"_s.arg(Nome, Tasti, Tutte[i].Chi);
            Trovati.append({Nome, Riga ? Riga->Finestra.toString() : QString(), Tasti, Tutte[i].Chi});
            for (qsizetype j = i + 1; j < Tutte.size(); ++j)
                if (SiContendono(Tutte[i], Tutte[j]))
                    Doppi << u"%1: %2, %3 e %4"_s.arg(Nome, Tasti, Tutte[i].Chi, Tutte[j].Chi);
        }
        for (const QObject* Parte : Finestra->findChildren<QObject*>())
            if (!Parte->objectName().isEmpty())
                for (const QObject* Di = Parte; Di; Di = Di->parent())
                    Incontrati[QString::fromLatin1(Di->metaObject()->className())].insert(
                        Parte->objectName());
        for (QWidget* Parte : Finestra->findChildren<QWidget*>()) {
            if (!Appartiene(Parte, Finestra))
                continue;
            PreparaSuggerimento(Parte);
            const QString Detto = SuggerimentoMostrato(Parte);
            if (Comanda(Parte->toolTip()))
                SuggerimentiCheComandano << Nome + u": "_s + Parte->toolTip();
            const RigaTasti* Riga = TastiDelControllo(Parte);
            if (Riga) {
                ++BottoniConTasti;
                const QString Atteso = NomeTasti(Riga->Tasti.toString().section(u' ', 0, 0));
                static const QRegularExpression Seconda(u"\\((Ctrl|Maiusc|Pag)[^()]*\\) ?\\("_s);
                if (!Detto.endsWith(u'(' + Atteso + u')') || Detto.contains(Seconda))
                    SuggerimentiSbagliati << u"%1: «%2» non dice %3"_s.arg(Nome, Detto, Atteso);
            }
            // What a hint names is in the table, for this window.
            const QString Nominati = TastiDetti(Detto);
            bool Noti = Nominati.isEmpty();
            for (const RigaTasti& Una : TabellaTasti())
                for (const QString& Tasti : Una.Tasti.toString().split(u' '))
                    Noti = Noti || (NomeTasti(Tasti) == Nominati &&
                                    (GruppiDi(Parte).contains(Una.Finestra.toString()) || Riga == &Una));
            if (!Noti)
                SuggerimentiSbagliati
                    << u"%1: «%2» di %3 non sta nella tabella"_s.arg(Nome, Detto, Parte->objectName());
        }
        for (const QWidget* Parte : Finestra->findChildren<QWidget*>())
            if (Appartiene(Parte, Finestra))
                Percorse << QString::fromLatin1(Parte->metaObject()->className());
        Percorse << QString::fromLatin1(Finestra->metaObject()->className());
        // An entry with keys of its own answers them, beside the window, while its button has the focus.
        for (const auto* Bottone : Finestra->findChildren<QToolButton*>())
            if (Bottone->menu() && Bottone->focusPolicy() != Qt::NoFocus && Appartiene(Bottone, Finestra))
                for (const QAction* Voce : Bottone->menu()->actions())
                    for (const Scorciatoia& Una : Tutte)
                        if (!Voce->shortcut().isEmpty() && Voce->shortcut() == Una.Tasti)
                            TastiNeiMenu << Nome + u": "_s + Voce->text();
        int Quanti = 0;
        for (const QString& Difetto : accessibili::Difetti(Finestra, &Quanti))
            DifettiDeiNomi << Nome + u": "_s + Difetto;
        QVERIFY2(Quanti > 1, qPrintable(Nome));
        Controlli += Quanti;
        DidascalieMute += Mute(Nome, Finestra, Spunte);
        const auto Sue = LettereDi(Finestra);
        Lettere += int(Sue.size());
        for (qsizetype i = 0; i < Sue.size(); ++i)
            for (qsizetype j = i + 1; j < Sue.size(); ++j)
                if (Sue[i].first == Sue[j].first)
                    LettereDoppie << u"%1: Alt+%2, %3 e %4"_s.arg(Nome, Sue[i].first, Sue[i].second,
                                                                  Sue[j].second);
    });
}

void TestTutteLeFinestre::cleanupTestCase()
{
    Trovati.clear();
}

void TestTutteLeFinestre::ogniTastoStaNellaTabella()
{
    NienteDi(FuoriTabella);
    QVERIFY(Trovati.size() > 60);
}

/// A key that the table promises and no window has would do nothing.
void TestTutteLeFinestre::ogniRigaHaIlSuoTasto()
{
    QStringList Mancano;
    for (const RigaTasti& Riga : TabellaTasti()) {
        if (Riga.Interno)
            continue;
        for (const QString& Tasti : Riga.Tasti.toString().split(u' ')) {
            bool Trovato = false;
            for (const TastoTrovato& Uno : std::as_const(Trovati))
                Trovato = Trovato || (Uno.Tasti == Tasti && Uno.Gruppo == Riga.Finestra);
            if (!Trovato)
                Mancano << Riga.Finestra.toString() + u": "_s + Tasti;
        }
    }
    NienteDi(Mancano);
}

/// A name that no control bears would take its keys from a hint, in silence.
void TestTutteLeFinestre::ogniRigaNominaUnControllo()
{
    const auto Ce = [this](const RigaTasti& Riga, const QString& Nome) {
        for (auto Di = Incontrati.cbegin(); Di != Incontrati.cend(); ++Di) {
            // The button that does what a grid or a calendar does with a key stands beside it.
            const bool Sua = Riga.Finestra.isEmpty() || Riga.Interno || Di.key() == Riga.Finestra ||
                             (Di.key() == u"frmMain" && Riga.Finestra == u"cornice");
            // A word of the commands stands behind the name of what sends it.
            if (Sua && std::ranges::any_of(*Di, [&](const QString& Altro) {
                    return Altro == Nome || Altro.endsWith(u'_' + Nome);
                }))
                return true;
        }
        return false;
    };
    QStringList Mancano;
    int Quanti = 0;
    for (const RigaTasti& Riga : TabellaTasti())
        for (const QString& Nome : Riga.Comando.toString().split(u' ', Qt::SkipEmptyParts)) {
            ++Quanti;
            if (!Ce(Riga, Nome))
                Mancano << Riga.Finestra.toString() + u": "_s + Nome;
        }
    QVERIFY(Quanti > 60);
    NienteDi(Mancano);
}

void TestTutteLeFinestre::suggerimenti()
{
    NienteDi(SuggerimentiSbagliati);
    QVERIFY(BottoniConTasti > 30);
}

void TestTutteLeFinestre::suggerimentiDiUnaManiera()
{
    QVERIFY(Comanda(u"Chiudi la scheda"_s) && !Comanda(u"Chiude la scheda"_s));
    NienteDi(SuggerimentiCheComandano);
}

void TestTutteLeFinestre::unTastoUnaSolaAzione()
{
    NienteDi(Doppi);
}

void TestTutteLeFinestre::unaLetteraUnSoloControllo()
{
    NienteDi(LettereDoppie);
    QVERIFY(Lettere > 60);
}

void TestTutteLeFinestre::menuSenzaTastiPropri()
{
    NienteDi(TastiNeiMenu);
}

void TestTutteLeFinestre::ogniControlloHaUnNomeSuo()
{
    NienteDi(DifettiDeiNomi);
    QVERIFY(Controlli > 300);
}

void TestTutteLeFinestre::leDidascalieSpuntano()
{
    NienteDi(DidascalieMute);
    QVERIFY2(Spunte >= 4, qPrintable(QString::number(Spunte)));
}

/// A new form is walked too.
void TestTutteLeFinestre::nessunaFinestraResta()
{
    QDirIterator Passo(SorgenteDiProva(u"src"_s), {u"*.ui"_s}, QDir::Files, QDirIterator::Subdirectories);
    int Moduli = 0;
    while (Passo.hasNext()) {
        const QString Classe = QFileInfo(Passo.next()).completeBaseName();
        ++Moduli;
        if (!Percorse.contains(Classe))
            QTest::qFail(qPrintable(Classe), __FILE__, __LINE__);
    }
    QVERIFY(Moduli > 30);
}

#include "TestTutteLeFinestre.moc"
