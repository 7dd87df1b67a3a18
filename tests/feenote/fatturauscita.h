// What the tests of an invoice that has gone out share: a payment, a number, the sheet, the file.
#pragma once

#include "nota_prova.h"
#include "notadamille.h"

#include "feenote/modAcconti.h"
#include "feenote/modEmessi.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modStato.h"
#include "feenote/modStorno.h"
#include "platform/system/orologio.h"

/// Invoice 12 of a note of 1.000,00, before it goes out, on 22/11/2026.
class BancoFatturaUscita
{
protected:
    static constexpr double Intero = 1459.12;
    static constexpr double Meno400 = 951.60;  // 750,00 with fund and VAT

    /// Begins with an empty session and stops the clock; Finisci lets it go on.
    void Comincia()
    {
        AzzeraSessione();
        InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
        Nota = NotaDaMille(StampaFatturaAnalitica);
        Numera(Nota, QStringLiteral("12"));
        Vista = {};
    }
    static void Finisci() { InstallaOrologio({}); }

    static void Paga(Parcella& Nota, double Compensi)
    {
        Nota.xAcconti(NuovoAcconto(Nota), AccCorrispettivi) = Compensi;
    }

    static void Numera(Parcella& Nota, const QString& Numero)
    {
        Nota.txtDatiPar[DatoNumFatt] = Numero;
        Nota.txtDatiPar[DatoDataFatt] = QStringLiteral("9/11/2026");
    }

    static void Stampa(Parcella& Nota) { (void)NotaInviata(Nota, StampaFatturaAnalitica); }

    static void ScriviFile(Parcella& Nota)
    {
        SegnaFatturaScritta(Nota, QStringLiteral("IT1.xml"), QStringLiteral("1"));
    }

    static QString Numeri(const Parcella& Nota)
    {
        QStringList Tutti;
        for (const DocumentoEmesso& Uno : Nota.Stato.Emessi)
            Tutti += Uno.Numero;
        return Tutti.join(u' ') + QStringLiteral(" | ") + Nota.Stato.Numero;
    }

    static double Totale(const Parcella& Nota)
    {
        return CatenaFiscale(RaccogliFattura(Nota, StampaFatturaAnalitica)).Totale;
    }

    Parcella Nota;
    Copertura Vista;
};
