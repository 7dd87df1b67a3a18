#include "feenote/modTotali.h"

#include "feenote/modAcconti.h"
#include "feenote/modStorno.h"
#include "platform/base/decimale.h"
#include "platform/base/regionale.h"

#include <algorithm>
#include <cmath>

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
    const double Onorari = Altra.TotOnorariMulti + Proprie.TotOnorari;
    const double SpeseImp = Altra.TotSpeseImpMulti + Proprie.TotSpeseImp;
    const double Esenti = Altra.TotSpeseEsentiMulti + Proprie.TotSpeseEsenti;
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
        Somme.AccontiCorrispettivi += AccontoInEuro(Righe(Riga, AccCorrispettivi), Valuta);
        Somme.AccontiSpeseImp += AccontoInEuro(Righe(Riga, AccSpeseImp), Valuta);
        Somme.AccontiSpeseEsenti += AccontoInEuro(Righe(Riga, AccSpeseEsenti), Valuta);
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

/// A base as its decimals say it. Amounts that nearly cancel each other leave a binary rest, which would
/// decide a tie of the tax: a base that prints as 213,50 and is a trifle less had its 44,835 of VAT rounded
/// down.
///
/// @param Massimo the largest amount of the sum: what it is exact to is what the base can be exact to
double SenzaResto(double Base, double Massimo)
{
    constexpr int CifreFidate = 14;  // of the 15 that a double holds, one goes into the sum
    constexpr int MenoDecimali = 2;
    constexpr int PiuDecimali = 6;
    return Round(Base, std::clamp(CifreFidate - Scomponi(Massimo).Intere(), MenoDecimali, PiuDecimali));
}

}  // namespace

SommeAcconti SommaAcconti(const TabellaRighe& Acconti)
{
    SommeAcconti Somma;
    Accumula(Somma, Acconti);
    return Somma;
}

SommeAcconti CalcolaAcconti(const Parcella& Nota, int Tipo)
{
    SommeAcconti Risultato;
    const AccontiDetratti Detratti = AccontiDelDocumento(Nota, Tipo);
    Accumula(Risultato, Detratti.Propri);
    Accumula(Risultato, Detratti.Altri);
    return Risultato;
}

DatiCatena RaccogliCatena(const Parcella& Nota, int Tipo)
{
    const Somme Proprie = CalcolaSomme(Nota);
    DatiCatena Dati;
    Dati.Multipla = Nota.Multipla();
    Dati.Onorari = Proprie.TotOnorari + (Dati.Multipla ? Nota.Multi.TotOnorariMulti : 0.0);
    Dati.SpeseImp = Proprie.TotSpeseImp + (Dati.Multipla ? Nota.Multi.TotSpeseImpMulti : 0.0);
    Dati.SpeseEsenti = Proprie.TotSpeseEsenti + (Dati.Multipla ? Nota.Multi.TotSpeseEsentiMulti : 0.0);
    Dati.Acconti = CalcolaAcconti(Nota, Tipo);
    // The subsidised regime disables VAT and withholding; general expenses and pension fund depend on their
    // tick alone.
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
    const SommeAcconti& Pagati = Dati.Acconti;
    const double Massimo =
        std::max({std::abs(Dati.Onorari), std::abs(Dati.SpeseImp), std::abs(Pagati.AccontiCorrispettivi),
                  std::abs(Pagati.AccontiSpeseImp)});
    Catena Conti;
    Conti.Dati = Dati;
    Conti.SpeseGen = Applica(Dati.SpeseGen, SenzaResto(Dati.Onorari, Dati.Onorari));
    // The order of this sum is part of its meaning; the base itself is not rounded.
    Conti.Imponibile =
        Dati.Onorari - Pagati.AccontiCorrispettivi + Dati.SpeseImp - Pagati.AccontiSpeseImp + Conti.SpeseGen;
    const double Base = SenzaResto(Conti.Imponibile, Massimo);
    Conti.CP = Applica(Dati.CP, Base);
    Conti.IVA = Applica(Dati.IVA, SenzaResto(Base + Conti.CP, Massimo));
    Conti.Totale =
        Arrotonda2(Conti.Imponibile + Conti.CP + Conti.IVA + Dati.SpeseEsenti - Pagati.AccontiSpeseEsenti);
    Conti.RA = Applica(Dati.RA, Base);
    Conti.Netto = Arrotonda2(Conti.Totale - Conti.RA);
    return Conti;
}

DatiCatena ConImponibile(const DatiCatena& Dati, double Base)
{
    DatiCatena Sua = Dati;
    Sua.Acconti = {};
    constexpr double UnCentesimo = 0.01;
    const double Scarto = Arrotonda2(CatenaFiscale(Sua).Imponibile) - Arrotonda2(Base);
    if (Arrotonda2(std::abs(Scarto)) > UnCentesimo) {
        Sua.Onorari = Arrotonda2(Base);
        Sua.SpeseImp = 0.0;
        Sua.SpeseGen.Vale = false;
    }
    Sua.Acconti = Dati.Acconti;
    return Sua;
}

Catena CatenaFiscale(const Parcella& Nota, int Tipo)
{
    return CatenaFiscale(RaccogliCatena(Nota, Tipo));
}

QString Riep(int n)
{
    return u"lblRiep"_s + QString::number(n + 1);
}
