// What the tests of the last calculations share: a calculation in each window, hands for the list.
#pragma once

#include "banconorme.h"

#include "calculators/windows/frmUltimiCalcoli.h"
#include "platform/grid/griglia.h"

#include <QAction>

#include <memory>

inline void CalcolaTermine(QDialog* F, int Quale)
{
    Scrivi(F, "mskDecorr", QStringLiteral("20072012"));
    Scrivi(F, "txtIncrNum", QString::number(20 + Quale));
    Clic(Controllo(F, "cmdEsegui"));
}

inline void CalcolaSequenza(QDialog* F, int Quale)
{
    Scegli(F, "cmbArticolo", Quale % 2);
    Scrivi(F, "mskDecorr", Quale < 2 ? QStringLiteral("12112012") : QStringLiteral("10072012"));
    Clic(Controllo(F, "cmdEsegui"));
}

inline void CalcolaInteressi(QDialog* F, int Quale)
{
    Scegli(F, "cmbInteressi", Quale % 2);
    Scrivi(F, "txtCapitale", QString::number(1000 * (Quale + 1)));
    Scrivi(F, "mskDataIni", QStringLiteral("01012012"));
    Scrivi(F, "mskDataFin", QStringLiteral("31122012"));
    Clic(Controllo(F, "cmdCalcola"));
}

inline void CalcolaIstat(QDialog* F, int Quale)
{
    Scrivi(F, "mskDataIni", QStringLiteral("01012020"));
    Scrivi(F, "mskDataFin", QStringLiteral("01012024"));
    Scrivi(F, "txtImporto", QString::number(1000 * (Quale + 1)));
    Clic(Controllo(F, "cmdCalcola"));
}

inline void CalcolaCodice(QDialog* F, int Quale)
{
    Scrivi(F, "txtCognome", Quale == 0 ? QStringLiteral("Rossi") : QStringLiteral("Fo"));
    Scrivi(F, "txtNome", Quale == 0 ? QStringLiteral("Mario") : QStringLiteral("Anna"));
    Scrivi(F, "txtDataNascita", QStringLiteral("01011980"));
    Scegli(F, "cboSesso", Quale % 2);
    Scrivi(F, "txtComune", QStringLiteral("roma"));
    Premi(Qt::Key_Return);
}

inline void CalcolaContributo(QDialog* F, int Quale)
{
    Scrivi(F, "txtValore_0", QString::number(1000 * (Quale + 1)));
    Premi(Qt::Key_Return);
}

inline bool Attiva(const QDialog* Finestra, const char* Nome)
{
    return Controllo<QAction>(Finestra, Nome)->isEnabled();
}

/// Opens the list by its key.
inline frmUltimiCalcoli* ApriElenco(QDialog* F)
{
    if (!MostraAttiva(*F))
        return nullptr;
    Premi(Qt::Key_L, Qt::ControlModifier);
    Respiro();
    return Aperta<frmUltimiCalcoli>(F);
}

/// The list is closed and the calculator in front again.
inline bool ChiudiElenco(QDialog* F, frmUltimiCalcoli* Elenco)
{
    Chiudi(Elenco);
    F->activateWindow();
    return MostraAttiva(*F);
}

/// Takes the current row of the list; the calculator is in front again.
inline bool Riprendi(QDialog* F)
{
    Premi(Qt::Key_Return);
    Respiro();
    const bool Chiuso = !F->findChild<frmUltimiCalcoli*>() || !F->findChild<frmUltimiCalcoli*>()->isVisible();
    F->activateWindow();
    return MostraAttiva(*F) && Chiuso;
}

inline QStringList Colonna(const frmUltimiCalcoli* Elenco, int Quale)
{
    const auto* Tabella = Controllo<Griglia>(Elenco, "tdbCalcoli");
    QStringList Testi;
    for (int Riga = 0; Riga < Tabella->Righe(); ++Riga)
        Testi << Tabella->Vista()->model()->index(Riga, Quale).data().toString();
    return Testi;
}

/// A desk with the delivered rates for each test.
class ConCalcoli
{
protected:
    void Prepara()
    {
        B = std::make_unique<Banco>();
        B->ConTassi();
        delete SeCaricato<frmPrint>.data();
    }
    void Sgombra() { B.reset(); }

    std::unique_ptr<Banco> B;
};
