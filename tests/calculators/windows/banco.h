// What the tests of the calculators' windows share: a fixed day, folders, everything opened written down.
#pragma once

#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/database/database.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/mascheradata.h"
#include "platform/system/guasti.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QToolButton>

/// A desk with the delivered program on it, on 21 November 2026. Its windows go with it.
class Banco
{
public:
    Banco()
    {
        using namespace Qt::StringLiterals;
        AzzeraSessione();
        sessione::PercorsoProg = ProgrammaDiProva();
        sessione::UserFolder = NuovaCartella();
        Aperture = {};
        Aperture.Finestre[u"upgrade"_s] = [this] { Aperti << u"aggiorna"_s; };
        Aperture.PaginaWeb = [this](const QString& Pagina, const QString& Titolo) {
            Aperti << u"pagina "_s + Pagina + u" | "_s + Titolo;
        };
        Registratore::AlMostrare() = BoxDavanti;
        InstallaUltimaRete([](const Errore& Guasto) { GestioneErrori(Guasto); });
        InstallaOrologio([] { return QDateTime(QDate(2026, 11, 21), QTime(10, 0)); });
        Shell Nuova;
        Nuova.ApriFile = [this](const QString& File) {
            Aperti << u"file "_s + NomeFile(File);
            return Esito;
        };
        Nuova.ApriPdf = [this](const QString& File, int) {
            Aperti << u"pdf "_s + NomeFile(File);
            return 0;
        };
        Nuova.HaProgramma = [this](const QString&) { return Lettore; };
        Nuova.Campanello = [this] { ++Campanelli; };
        Precedente = InstallaShell(std::move(Nuova));
        QApplication::clipboard()->clear();
    }
    ~Banco()
    {
        for (QWidget* Finestra : QApplication::topLevelWidgets())
            Finestra->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        InstallaShell(std::move(Precedente));
        InstallaOrologio({});
        InstallaUltimaRete({});
        Registratore::AlMostrare() = {};
        guasti::AttesaBlocchiMs = 3000;
        Aperture = {};
        AzzeraSessione();
    }
    Banco(const Banco&) = delete;
    Banco& operator=(const Banco&) = delete;

    /// Lays the delivered rate archive into the user folder.
    void ConTassi() const { QVERIFY(QFile::copy(ProgrammaDiProva() + QStringLiteral("Tassi.dat"), Tassi())); }
    [[nodiscard]] QString Tassi() const { return sessione::UserFolder + QStringLiteral("Tassi.dat"); }

    Registratore Voce;
    QStringList Aperti;
    int Esito = 0;        ///< what the system answers when it is asked to open a file
    bool Lettore = true;  ///< whether the system has a program for a document
    int Campanelli = 0;

private:
    Shell Precedente;
};

/// A control of a window by its name.
template <class T = QWidget>
T* Controllo(const QWidget* Finestra, const char* Nome)
{
    T* Trovato = Finestra->findChild<T*>(QString::fromLatin1(Nome));
    if (!Trovato)
        QTest::qFail(Nome, __FILE__, __LINE__);
    return Trovato;
}

inline QString TestoDi(const QWidget* Finestra, const char* Nome)
{
    const auto* Uno = Controllo(Finestra, Nome);
    if (const auto* Etichetta = qobject_cast<const QLabel*>(Uno))
        return Etichetta->text();
    if (const auto* Data = qobject_cast<const MascheraData*>(Uno))
        return Data->Testo();
    const auto* Riga = qobject_cast<const QLineEdit*>(Uno);
    return Riga ? Riga->text() : QString();
}

/// Those of the captions that no label, button, frame or entry of the menu of a window shows.
inline QStringList SenzaDidascalia(const QWidget* Finestra, QStringList Attese)
{
    const auto Vista = [&Attese](QString Testo) { Attese.removeAll(Testo.remove(u'&')); };
    for (const auto* Una : Finestra->findChildren<QLabel*>())
        Vista(Una->text());
    for (const auto* Uno : Finestra->findChildren<QAbstractButton*>())
        Vista(Uno->text());
    for (const auto* Uno : Finestra->findChildren<QGroupBox*>())
        Vista(Uno->title());
    for (const auto* Una : Finestra->findChildren<QAction*>())
        Vista(Una->text());
    return Attese;
}

/// Makes a window of its own, in front. It goes when it is closed.
template <class Modulo>
Modulo* Apri()
{
    auto* Finestra = new Modulo;
    Finestra->Mostra();
    return MostraAttiva(*Finestra) ? Finestra : nullptr;
}

/// Closes a window and waits until it has gone.
inline void Chiudi(QWidget* Finestra)
{
    Finestra->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Moves a window, closes it and makes it anew. It is as small as it can be: the screen of the tests is
/// narrow.
/// @return where the new one came up
template <class Modulo>
QPoint Riaperta(QPointer<Modulo>& Finestra, const QPoint& Posto)
{
    Finestra->setGeometry(QRect(Posto, Finestra->minimumSizeHint()));
    Chiudi(Finestra);
    Finestra = Apri<Modulo>();
    return Finestra ? Finestra->geometry().topLeft() : QPoint();
}

/// Types over what a box holds.
inline void Scrivi(const QWidget* Finestra, const char* Nome, const QString& Testo)
{
    auto* Casella = Controllo<QLineEdit>(Finestra, Nome);
    Casella->setFocus(Qt::MouseFocusReason);
    Casella->selectAll();
    if (Testo.isEmpty())
        Premi(Qt::Key_Delete);
    Digita(Testo);
}

inline void Scegli(const QWidget* Finestra, const char* Nome, int Indice)
{
    Controllo<QComboBox>(Finestra, Nome)->setCurrentIndex(Indice);
}

/// Chooses an entry of the menu of the window.
inline void DalMenu(const QWidget* Finestra, const char* Nome)
{
    auto* Entrata = Finestra->findChild<QAction*>(QString::fromLatin1(Nome));
    QVERIFY2(Entrata, Nome);
    Entrata->trigger();
}

/// Ctrl+C as the user types it: the key goes by the shortcuts of the window.
inline void CopiaConTasti()
{
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, Qt::ControlModifier);
}

inline QString Appunti()
{
    return QApplication::clipboard()->text();
}

/// The name of what has the focus; that of the control around it for parts without one.
inline QString NomeFuoco()
{
    for (const QWidget* Uno = QApplication::focusWidget(); Uno; Uno = Uno->parentWidget())
        if (!Uno->objectName().isEmpty() && !Uno->objectName().startsWith(u"qt_"))
            return Uno->objectName();
    return {};
}

/// The controls that a user can reach and a screen reader could not name.
inline QStringList SenzaNome(const QWidget* Finestra)
{
    QStringList Trovati;
    for (const QWidget* Uno : Finestra->findChildren<QWidget*>()) {
        if (qobject_cast<const QTableView*>(Uno->parentWidget()))
            continue;  // parts of a grid that nothing reaches
        const bool Comando = Uno->focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton*>(Uno);
        if (Comando && Uno->accessibleName().isEmpty() && !Uno->objectName().startsWith(u"qt_"))
            Trovati << QString::fromLatin1(Uno->metaObject()->className()) + u' ' + Uno->objectName();
    }
    return Trovati;
}
