#include "feenote/modDuplica.h"

#include "feenote/modParti.h"

namespace {

void TogliCliente(Parcella& Nota)
{
    const Parcella Nessuno;
    Nota.IDCli = Nessuno.IDCli;
    Nota.NomeCli = Nessuno.NomeCli;
    Nota.txtCliente.Testo.clear();
    Nota.txtDatiStaCli.Testo.clear();
    Nota.optContrTipo = Nessuno.optContrTipo;
    Nota.ContrTipoDi = Nessuno.ContrTipoDi;
    Nota.Rappr = Nessuno.Rappr;
    Nota.RapprDi = Nessuno.RapprDi;
    Nota.RapprLegato = Nessuno.RapprLegato;
    Nota.BlocchiScritti = Nessuno.BlocchiScritti;
    Nota.FatturaXml = {};  // addressee, contract and the rest are agreed with him
}

}  // namespace

Parcella Duplicata(const Parcella& Nota, bool ConCliente)
{
    Parcella Copia = Nota;
    for (const DatoStampa Dato : {DatoNumero, DatoData, DatoNumFatt, DatoDataFatt})
        Copia.txtDatiPar.remove(Dato);
    // The file of an electronic invoice is that of the number which stays behind.
    DatiFatturaXml& Fattura = Copia.FatturaXml;
    for (QString* DellaPrima : {&Fattura.CitataNumero, &Fattura.CitataData, &Fattura.Scadenza, &Fattura.File,
                                &Fattura.Quando, &Fattura.Progressivo, &Fattura.DiFattura})
        DellaPrima->clear();
    Copia.Stato = StatoDiNuova();
    Copia.Percorso.clear();
    if (Copia.NomiAttesi)
        Copia.NomiAttesi->Nuova = true;
    Copia.Psw.clear();
    Copia.IDMultipla = 0;
    Copia.AvvisoNotaGiudiziale = false;
    Copia.Fuoco = CampoNota::Nessuno;
    if (!ConCliente) {
        TogliCliente(Copia);
        NonAspetta(Copia);
    }
    return Copia;
}
