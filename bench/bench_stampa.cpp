// The pro-forma note of a long case, from the record to plain text.
#include "misura.h"

#include "feenote/parcella.h"
#include "platform/superficie.h"
#include "print/modStampe.h"
#include "print/scrittoretesto.h"

using namespace Qt::StringLiterals;

namespace {

/// About 60 rows fill a page: fees, expenses and payments for five pages.
Parcella NotaDiCinquePagine()
{
    Parcella Nota;
    Nota.Pronta = true;
    Nota.CodCateg = u"CIV"_s;
    Nota.txtImporto.Testo = u"30.000,00"_s;
    Nota.chkMinMax.Attiva = Nota.chkAcconti.Attiva = true;
    for (int i = 0; i < 200; ++i) {
        const int Riga = Nota.xOnorari.AggiungiRiga();
        Nota.xOnorari(Riga, OnoDescr) = u"Esame e studio degli atti della controparte, voce %1"_s.arg(i);
        Nota.xOnorari(Riga, OnoQta) = 1.0;
        for (const int Colonna : {OnoImporto, OnoMedio, OnoMin, OnoMax})
            Nota.xOnorari(Riga, Colonna) = 1000.0 + i;
    }
    for (int i = 0; i < 60; ++i) {
        const int Riga = Nota.xDiritti.AggiungiRiga();
        Nota.xDiritti(Riga, DirDescr) = u"Diritti di copia"_s;
        Nota.xDiritti(Riga, DirImponibile) = 12.5;
        Nota.xDiritti(Riga, DirEsente) = 3.68;
    }
    for (int i = 0; i < 20; ++i) {
        const int Riga = Nota.xAcconti.AggiungiRiga();
        Nota.xAcconti(Riga, AccDescr) = u"Acconto"_s;
        Nota.xAcconti(Riga, AccValuta) = i % 2 == 0 ? u"E"_s : u"L"_s;
        Nota.xAcconti(Riga, AccCorrispettivi) = 250000.0;
    }
    return Nota;
}

double CinquePagineComeTesto()
{
    const Parcella Nota = NotaDiCinquePagine();
    Superficie vp;
    return MedianaMs(9, [&] {
        if (Anteprima(vp, Nota, StampaPrenotula))
            Consuma(static_cast<double>(ScriviTesto(vp.Contenuto()).size()));
    });
}
const RegistraMisura Registrata(u"compose five pages as text"_s, 5.0, CinquePagineComeTesto);

}  // namespace
