// What the tests of the fee-note window share: an office with windows on screen, and hands to use them.
#pragma once

#include "core/aperture.h"
#include "feenote/file/file_prova.h"
#include "feenote/file/modRecupero.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/grid/griglia.h"
#include "platform/kit/campo.h"
#include "supporto/finestre.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>

/// An office whose windows are gone with the object. Windows of notes stand by themselves, outside any frame.
class Tavolo
{
public:
    Tavolo()
    {
        using namespace Qt::StringLiterals;
        sessione::UserFolder = Ufficio.File(u"utente/"_s);
        sessione::ModelliPath = Ufficio.File(u"Modelli/"_s);
        QDir().mkpath(sessione::UserFolder);
        QDir().mkpath(sessione::ModelliPath);
        Registratore::AlMostrare() = BoxDavanti;
        AzzeraFinestre();
        Aperture.ChiudiParcella = ChiudiParcella;
        Aperture.SalvaParcella = [](int Indice, bool ComeModello) {
            (void)Parcelle(Indice)->SalvaParcella(ComeModello);
        };
    }
    ~Tavolo()
    {
        AzzeraFinestre();
        LasciaRecupero();
        Aperture = {};
        Aperture.AreaParcelle = {};
        Aperture.UltimaParcellaChiusa = {};
        Aperture.ParcellaAttivata = {};
        Registratore::AlMostrare() = {};
    }
    Tavolo(const Tavolo&) = delete;
    Tavolo& operator=(const Tavolo&) = delete;

    /// Opens a file, or a new note, and puts its window in front. Null when it does not come up.
    static frmParcelle* Apri(const QString& File = {}, int Posto = 1)
    {
        ApriParcella(File, 0, {});
        frmParcelle* Finestra = Parcelle(Posto);
        return Finestra && MostraAttiva(*Finestra) ? Finestra : nullptr;
    }

    Studio Ufficio;
    Registratore Voce;
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

/// A click where a button listens: the indicator of an option or of a check box stands at the left.
inline void Clic(QWidget* Bottone)
{
    QVERIFY2(Bottone->isVisible(), qPrintable(Bottone->objectName()));
    const bool ConSegno = qobject_cast<QRadioButton*>(Bottone) || qobject_cast<QCheckBox*>(Bottone);
    const QPoint Dove = ConSegno ? QPoint(8, Bottone->height() / 2) : Bottone->rect().center();
    QTest::mouseClick(Bottone, Qt::LeftButton, Qt::NoModifier, Dove);
}

inline void ClicScheda(const frmParcelle* Finestra, int Indice)
{
    QTabBar* Barra = Controllo<QTabWidget>(Finestra, "tabParcelle")->tabBar();
    QTest::mouseClick(Barra, Qt::LeftButton, Qt::NoModifier, Barra->tabRect(Indice).center());
    // A page shown for the first time finds the places of its controls step by step.
    for (int i = 0; i < 5; ++i)
        Respiro();
}

/// The page in view; two of them have controls of the same names.
inline QWidget* PaginaIn(const frmParcelle* Finestra)
{
    return Controllo<QTabWidget>(Finestra, "tabParcelle")->currentWidget();
}

/// What a window manager does when the list that dropped down has closed.
inline void TornaAttiva(QComboBox* Lista)
{
    Respiro();
    QApplication::setActiveWindow(Lista->window());
    QVERIFY(QTest::qWaitForWindowActive(Lista->window()));
}

/// Chooses an entry with the mouse in the list that drops down.
inline void Scegli(QComboBox* Lista, int Indice)
{
    Lista->setFocus();
    Lista->showPopup();
    Lista->view()->scrollTo(Lista->model()->index(Indice, 0));
    const QPoint Dove = Lista->view()->visualRect(Lista->model()->index(Indice, 0)).center();
    QTest::mouseMove(Lista->view()->viewport(), Dove);
    QTest::mouseClick(Lista->view()->viewport(), Qt::LeftButton, Qt::NoModifier, Dove);
    TornaAttiva(Lista);
}

/// The same by keyboard: the list dropped down, its first entry, down, Enter.
inline void ScegliDaTastiera(QComboBox* Lista, int Indice)
{
    Lista->setFocus();
    Lista->showPopup();
    QTest::keyClick(Lista->view(), Qt::Key_Home);
    for (int i = 0; i < Indice; ++i)
        QTest::keyClick(Lista->view(), Qt::Key_Down);
    QTest::keyClick(Lista->view(), Qt::Key_Return);
    TornaAttiva(Lista);
}

/// Types into a box over what it holds.
inline void Scrivi(QLineEdit* Box, const QString& Testo)
{
    Box->setFocus();
    Box->selectAll();
    if (Testo.isEmpty())
        Premi(Qt::Key_Delete);
    else
        Digita(Testo);
}

/// Pastes into a box over what it holds.
inline void Incolla(QLineEdit* Box, const QString& Testo)
{
    QApplication::clipboard()->setText(Testo);
    Box->setFocus();
    Box->selectAll();
    Box->paste();
}

inline QPoint CentroCella(const Griglia* Righe, int Riga, int Colonna)
{
    const QTableView* Vista = Righe->Vista();
    return Vista->visualRect(Vista->model()->index(Riga, Colonna)).center();
}

inline void ClicCella(const Griglia* Righe, int Riga, int Colonna)
{
    QTest::mouseClick(Righe->Vista()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      CentroCella(Righe, Riga, Colonna));
}

inline void DoppioClic(const Griglia* Righe, int Riga)
{
    ClicCella(Righe, Riga, 0);  // the second click alone is what the next line sends
    QTest::mouseDClick(Righe->Vista()->viewport(), Qt::LeftButton, Qt::NoModifier,
                       CentroCella(Righe, Riga, 0));
    Respiro();
}

/// The box of the open cell, null when none is.
inline QLineEdit* LaCella(const Griglia* Righe)
{
    return Righe->Vista()->viewport()->findChild<QLineEdit*>(QStringLiteral("cella"));
}

/// Types a text into a cell and closes it with Enter.
inline void ScriviCella(Griglia* Righe, int Riga, int Colonna, const QString& Testo)
{
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(Riga, Colonna);
    Digita(Testo);
    Premi(Qt::Key_Return);
    Respiro();
}

/// A civil note before the court, 30.000 euro, chosen with the mouse; tab 0 in view.
inline void CompilaCivile(const frmParcelle* Finestra)
{
    Scegli(Controllo<QComboBox>(Finestra, "cmbCateg"), CategCivile);
    Scegli(Controllo<QComboBox>(Finestra, "cmbAutor"), IndiceAutorita(Finestra->Nota, IDTribunale));
    Scrivi(Controllo<QLineEdit>(Finestra, "txtImporto"), QStringLiteral("30000"));
    Premi(Qt::Key_Tab);
    Respiro();
}

/// A civil note with tab 1 in view and no lines yet; null when no window came up.
inline frmParcelle* ApriSenzaRighe(Tavolo& T)
{
    frmParcelle* Finestra = T.Apri();
    if (!Finestra)
        return nullptr;
    CompilaCivile(Finestra);
    ClicScheda(Finestra, SchedaListaOnorari);
    Finestra->Nota.xOnorari.Azzera(OnoColonne);
    return Finestra;
}

/// The rows of a table as text; an amount of 0 and an empty one are alike.
inline QStringList Testi(const TabellaRighe& Tabella, const QList<int>& Colonne)
{
    QStringList Righe;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        QStringList Celle;
        for (const int Colonna : Colonne) {
            const QString Cella = CStr(Tabella(Riga, Colonna));
            Celle.append(Cella == u"0" ? QString() : Cella);
        }
        Righe.append(Celle.join(u'|'));
    }
    return Righe;
}

/// The client as a file holds it.
inline QString Cliente(const QString& File)
{
    return Parametro(File, QStringLiteral("Cliente")).toString();
}
