// The bench of the tests of terms by the norms: the window of a term on it, its catalogue, road and calendar.
#pragma once

#include "banco.h"

#include "calculators/windows/frmAgenda.h"
#include "calculators/windows/frmRicorrenti.h"
#include "calculators/windows/frmStrada.h"
#include "calculators/windows/frmTermini.h"
#include "platform/kit/singola.h"
#include "platform/preview/vistastampa.h"
#include "print/windows/frmPrint.h"

#include <variant>

inline constexpr int DelProgramma = 0;
inline constexpr int InVigore = 1;

/// The child window of a class that is on view, in front; null when none is.
template <class Modulo>
Modulo* Aperta(const QWidget* Padre)
{
    for (Modulo* Una : Padre->findChildren<Modulo*>())
        if (Una->isVisible())
            return MostraAttiva(*Una) ? Una : nullptr;
    return nullptr;
}

inline QString Risultato(const QWidget* Finestra)
{
    return TestoDi(Finestra, "lblRisult");
}

/// The line under the result, empty while it is hidden.
inline QString Avviso(const QWidget* Finestra)
{
    const auto* Riga = Controllo<QLabel>(Finestra, "lblSettembre");
    return Riga->isHidden() ? QString() : Riga->text();
}

/// The rows of the sheet in the print window.
inline QStringList Stampato()
{
    QStringList Righe;
    if (const auto& Finestra = SeCaricato<frmPrint>; Finestra && Finestra->isVisible())
        for (const BloccoDocumento& Blocco : Finestra->vpFree().Foglio().Contenuto().Blocchi)
            if (const auto* Testo = std::get_if<Paragrafo>(&Blocco); Testo && !Testo->Testo().isEmpty())
                Righe << Testo->Testo();
    return Righe;
}

/// What a class of these tests stands on.
class ConTermini
{
protected:
    void Prepara()
    {
        B = std::make_unique<Banco>();
        F = Apri<frmTermini>();
        QVERIFY(F);
    }
    void Sparecchia()
    {
        delete SeCaricato<frmPrint>.data();
        B.reset();
    }

    /// Types a start date and a number of days and calculates.
    void Calcola(const QString& Data, const QString& Numero)
    {
        Scrivi(F, "mskDecorr", Data);
        Scrivi(F, "txtIncrNum", Numero);
        Clic(Controllo(F, "cmdEsegui"));
    }

    /// Opens the catalogue, types a search and takes its first row.
    void Prendi(const QString& Cercato)
    {
        Clic(Controllo(F, "cmdRicorrenti"));
        auto* Catalogo = Aperta<frmRicorrenti>(F);
        QVERIFY(Catalogo);
        Scrivi(Catalogo, "txtCerca", Cercato);
        Clic(Controllo(Catalogo, "cmdScegli"));
        Respiro();
        F->activateWindow();
        QVERIFY(MostraAttiva(*F));
    }

    [[nodiscard]] frmStrada* Strada() const
    {
        Clic(Controllo(F, "cmdStrada"));
        return Aperta<frmStrada>(F);
    }

    [[nodiscard]] frmAgenda* Agenda() const
    {
        Clic(Controllo(F, "cmdAgenda"));
        return Aperta<frmAgenda>(F);
    }

    std::unique_ptr<Banco> B;
    QPointer<frmTermini> F;
};
