// The rate archive, which comes by an update or a colleague: interest, revaluation and the look that an
// update takes at it end in figures or in the program's errors.
#include "basedati.h"
#include "fonte.h"

#include "calculators/modInteressi.h"
#include "calculators/modIstat.h"
#include "calculators/modTassi.h"
#include "calculators/norme/etadati.h"
#include "update/controllotassi.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    static const QByteArray Sana = Contenuto(CartellaCostruita() + u"Tassi.dat"_s);
    const QString File = PosaDatabase(u"Tassi.dat"_s, Sana, Dati);
    for (const int Tipo : {InteressiLegali, InteressiMora})
        Riesce([&] {
            QString Aumento;
            const EsitoInteressi Esito = CalcolaInteressi(
                File, {Tipo, u"1000"_s, ValutaEuro, {}, u"01/02/1999"_s, u"31/01/2013"_s, true}, Aumento);
            Pretendi(std::isfinite(Esito.TotaleInteressi));
            for (int i = 0; i < Esito.Righe.Righe(); ++i)
                Pretendi(std::isfinite(Esito.Righe(i, IntImporto).toDouble()));
        });
    Riesce([&] {
        bool Chiesto = false;
        RisultatiIstat Etichette;
        const FineIstat Fine =
            CalcolaRivalutazione(File, {u"01/03/1998"_s, u"01/11/2012"_s, u"100"_s, 0}, Chiesto, Etichette);
        Pretendi(Fine != FineIstat::Completa || !Etichette.lblImpRival.isEmpty());
    });
    Riesce([&] {
        for (const PuntoIndice& Punto : SerieIndici(File, QDate(1990, 1, 1), QDate(2012, 12, 1)))
            Pretendi(std::isfinite(Punto.Valore));
    });
    Riesce([&] { (void)DifettoTassi(File, CartellaCostruita() + u"Tassi.dat"_s); });
    Riesce([&] {
        const CoperturaTassi Copertura = LeggiCopertura(File);
        const QDate Oggi(2026, 11, 22);
        for (const EtaDati& Eta :
             {EtaLegali(Copertura, Oggi), EtaMora(Copertura, Oggi), EtaIndici(Copertura, Oggi)})
            Pretendi(!Eta.Frase.isEmpty() && NotaOltre(Eta, Eta.FinoAl.addDays(1)).contains(u"oltre"));
    });
    Pretendi(DataArchivio(File).has_value());
}

}  // namespace

BERSAGLIO(fuzz_tassi, Prova);
