// What the tests of the fee-note window share: an office with windows on screen, and hands to use them.
#pragma once

#include "core/aperture.h"
#include "feenote/file/file_prova.h"
#include "feenote/file/modRecupero.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/base/regionale.h"
#include "platform/grid/griglia.h"
#include "platform/kit/campo.h"
#include "supporto/mani.h"

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

/// What a list tells after a choice in it. Nothing drops down: the window that a list covers is drawn anew
/// three times, for each note of each test.
inline void ScegliSenzaAprire(QComboBox* Lista, int Indice)
{
    Lista->setFocus();
    QTest::keyClick(Lista, Qt::Key_Shift);  // a hand at the list, which begins anew
    Lista->setCurrentIndex(Indice);
    Q_EMIT Lista->activated(Indice);
}

/// A civil note before the court, 30.000 euro; tab 0 in view.
inline void CompilaCivile(const frmParcelle* Finestra)
{
    ScegliSenzaAprire(Controllo<QComboBox>(Finestra, "cmbCateg"), CategCivile);
    ScegliSenzaAprire(Controllo<QComboBox>(Finestra, "cmbAutor"),
                      IndiceAutorita(Finestra->Nota, IDTribunale));
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
