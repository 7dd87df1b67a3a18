// What the tests of the checks before printing share: an invoice of which there is nothing to say.
#pragma once

#include "addressbook/modClienti.h"
#include "feenote/modControlliNota.h"
#include "nota_prova.h"

inline const QDate GiornoControlli(2026, 11, 22);

/// A client whose codes agree with their check characters.
inline DatiCliente ClienteInRegola()
{
    DatiCliente Riga;
    Riga.Nominativo = QStringLiteral("Rossi Mario");
    Riga.CodFis = QStringLiteral("RSSMRA80A01H501U");
    Riga.PIva = QStringLiteral("01234567897");
    return Riga;
}

/// A finished invoice: nothing to say of it.
inline Parcella FatturaInRegola()
{
    Parcella Nota = NotaCivile();
    Nota.txtCliente.Testo = Nota.txtDatiStaCli.Testo = QStringLiteral("Rossi Mario");
    Nota.txtControp.Testo = Nota.txtDatiStaControp.Testo = QStringLiteral("Neri Carlo");
    Nota.IDCli = 7;
    const int Riga = RigaOnorario(Nota, QStringLiteral("Fase di studio"), 1200);
    Nota.xOnorari(Riga, OnoMin) = 600.0;
    Nota.xOnorari(Riga, OnoMax) = 1920.0;
    RigaSpesa(Nota, 12.5, QVariant());
    Nota.txtIVA.Testo = QStringLiteral("22");
    RicordaStampa(Nota);
    ScegliTipoStampa(Nota, StampaFatturaAnalitica);
    Nota.txtDatiPar[DatoNumFatt] = QStringLiteral("12");
    Nota.txtDatiPar[DatoDataFatt] = QStringLiteral("20/11/2026");
    return Nota;
}

struct Guardata
{
    QList<GenereRilievo> Generi;
    QStringList Frasi;
    QList<Rilievo> Tutti;
};

inline Guardata Guarda(const Parcella& Nota, const std::optional<DatiCliente>& Cliente = ClienteInRegola(),
                       bool ScriveXml = false)
{
    Guardata Esito;
    Esito.Tutti = ControllaNota(
        Nota, {.Oggi = GiornoControlli, .Cliente = Cliente ? &*Cliente : nullptr, .ScriveXml = ScriveXml});
    for (const Rilievo& Detto : Esito.Tutti) {
        Esito.Generi += Detto.Genere;
        Esito.Frasi += Detto.Frase;
    }
    return Esito;
}
