#include "feenote/modTotali.h"

#include "feenote/modAcconti.h"

using namespace Qt::StringLiterals;

Somme CalcolaSomme(const Parcella& Nota)
{
    Somme Risultato;
    Risultato.TotOnorari = SommaColonna(Nota.xOnorari, OnoImporto);
    Risultato.TotMed = SommaColonna(Nota.xOnorari, OnoMedio);
    Risultato.TotMin = SommaColonna(Nota.xOnorari, OnoMin);
    Risultato.TotMax = SommaColonna(Nota.xOnorari, OnoMax);
    Risultato.TotSpeseImp = SommaColonna(Nota.xDiritti, DirImponibile);
    Risultato.TotSpeseEsenti = SommaColonna(Nota.xDiritti, DirEsente);
    return Risultato;
}

PannelliRiep TestiRiep(const Parcella& Nota)
{
    const Somme Proprie = CalcolaSomme(Nota);
    const NotaAssociata Altra = Nota.Multipla() ? Nota.Multi : NotaAssociata();
    const double Onorari = Altra.TotOnorari + Proprie.TotOnorari;
    const double SpeseImp = Altra.TotSpeseImp + Proprie.TotSpeseImp;
    const double Esenti = Altra.TotSpeseEsenti + Proprie.TotSpeseEsenti;
    const auto Testo = [](QStringView Etichetta, double Valore) {
        return Etichetta.toString() + TestoImporto(Valore);
    };
    return {Testo(u"Onor.: ", Onorari), Testo(u"Sp.Imp: ", SpeseImp), Testo(u"Esenti: ", Esenti),
            Testo(u"Totale: ", SpeseImp + Onorari + Esenti)};
}

namespace {

void Accumula(SommeAcconti& Somme, const TabellaRighe& Righe)
{
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga) {
        const QVariant& Valuta = Righe(Riga, AccValuta);
        Somme.Corrispettivi += AccontoInEuro(Righe(Riga, AccCorrispettivi), Valuta);
        Somme.SpeseImp += AccontoInEuro(Righe(Riga, AccSpeseImp), Valuta);
        Somme.SpeseEsenti += AccontoInEuro(Righe(Riga, AccSpeseEsenti), Valuta);
    }
}

Aliquota LeggiAliquota(const Spunta& Casella, const ::Casella& Percento, bool ContaAbilitata)
{
    Aliquota Risultato;
    Risultato.Attiva = Casella.Attiva;
    Risultato.Perc = Percento.Numero();
    Risultato.Testo = Percento.Testo.trimmed();
    Risultato.Vale = (ContaAbilitata ? Casella.Vale() : Casella.Attiva) && Risultato.Perc > 0;
    return Risultato;
}

/// A tax on its base, rounded as it arises; 0 when it does not apply.
double Applica(const Aliquota& Tassa, double Base)
{
    return Tassa.Vale ? Arrotonda2(Tassa.Perc * Base / 100) : 0.0;
}

}  // namespace

SommeAcconti CalcolaAcconti(const Parcella& Nota, int Tipo)
{
    SommeAcconti Risultato;
    if (Tipo == StampaNotaGiudiziale || (Tipo == StampaFatturaSintetica && !Nota.chkAcconti.Attiva))
        return Risultato;
    Accumula(Risultato, Nota.xAcconti);
    if (Nota.Multipla())
        Accumula(Risultato, Nota.Multi.xAcconti);
    return Risultato;
}

DatiCatena RaccogliCatena(const Parcella& Nota, int Tipo)
{
    const Somme Proprie = CalcolaSomme(Nota);
    DatiCatena Dati;
    Dati.Multipla = Nota.Multipla();
    Dati.Onorari = Proprie.TotOnorari + (Dati.Multipla ? Nota.Multi.TotOnorari : 0.0);
    Dati.SpeseImp = Proprie.TotSpeseImp + (Dati.Multipla ? Nota.Multi.TotSpeseImp : 0.0);
    Dati.SpeseEsenti = Proprie.TotSpeseEsenti + (Dati.Multipla ? Nota.Multi.TotSpeseEsenti : 0.0);
    Dati.Acconti = CalcolaAcconti(Nota, Tipo);
    // The subsidised regime disables VAT and withholding; the other two know only their tick.
    Dati.SpeseGen = LeggiAliquota(Nota.chkSpeseGen, Nota.txtSpeGen, false);
    Dati.CP = LeggiAliquota(Nota.chkCP, Nota.txtCP, false);
    Dati.IVA = LeggiAliquota(Nota.chkIva, Nota.txtIVA, true);
    Dati.RA = LeggiAliquota(Nota.chkRA, Nota.txtRA, true);
    Dati.Tipo = Tipo;
    Dati.RegimeAgevolato = Nota.chkRegSempl.Attiva;
    return Dati;
}

Catena CatenaFiscale(const DatiCatena& Dati)
{
    Catena Conti;
    Conti.Dati = Dati;
    Conti.SpeseGen = Applica(Dati.SpeseGen, Dati.Onorari);
    // The order of this sum is part of its meaning; the base itself is not rounded.
    Conti.Imponibile =
        Dati.Onorari - Dati.Acconti.Corrispettivi + Dati.SpeseImp - Dati.Acconti.SpeseImp + Conti.SpeseGen;
    Conti.CP = Applica(Dati.CP, Conti.Imponibile);
    Conti.IVA = Applica(Dati.IVA, Conti.Imponibile + Conti.CP);
    Conti.Totale =
        Arrotonda2(Conti.Imponibile + Conti.CP + Conti.IVA + Dati.SpeseEsenti - Dati.Acconti.SpeseEsenti);
    Conti.RA = Applica(Dati.RA, Conti.Imponibile);
    Conti.Netto = Arrotonda2(Conti.Totale - Conti.RA);
    return Conti;
}

Catena CatenaFiscale(const Parcella& Nota, int Tipo)
{
    return CatenaFiscale(RaccogliCatena(Nota, Tipo));
}

QString Riep(int n)
{
    return u"lblRiep"_s + QString::number(n + 1);
}
