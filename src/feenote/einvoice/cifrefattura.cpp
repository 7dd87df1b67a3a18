#include "feenote/einvoice/cifrefattura.h"

#include "feenote/codicifattura.h"
#include "feenote/einvoice/codici.h"
#include "feenote/modStorno.h"
#include "platform/base/regionale.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double MassimoImporto = 1e10;  // eleven digits, with room for the taxes

/// Percentages in hundredths, as the file has them.
void ControllaPercento(const Aliquota& Tassa, CampoFattura Dove, QStringView Nome, Raccolta& Note)
{
    constexpr int DecimaliGuardati = 6;
    constexpr double Massimo = 100.0;
    if (Tassa.Vale && (Round(Tassa.Perc, DecimaliGuardati) != Arrotonda2(Tassa.Perc) || Tassa.Perc > Massimo))
        Note.Manca(Dove,
                   u"La percentuale ha più di due decimali, o è più di 100: %1 %2"_s.arg(Nome, Tassa.Testo));
}

void ControllaRegime(const CifreFattura& Cifre, Raccolta& Note)
{
    const bool SenzaIva = RegimeSenzaIva(Cifre.Regime);
    if (Cifre.Nota.chkRegSempl.Attiva && !SenzaIva && !Cifre.Regime.isEmpty())
        Note.Manca(CampoFattura::StudioRegime,
                   u"La parcella è in regime agevolato, le impostazioni dello studio dicono %1."_s.arg(
                       ConNome(regimi::Voci(), Cifre.Regime)));
    if (SenzaIva && Cifre.Conti.Dati.IVA.Vale)
        Note.Manca(
            CampoFattura::NotaRegime,
            u"Nel regime dello studio (%1) la fattura è senza IVA: spuntare il regime agevolato."_s.arg(
                ConNome(regimi::Voci(), Cifre.Regime)));
    if (SenzaIva && Cifre.Conti.Dati.RA.Vale)
        Note.Manca(
            CampoFattura::NotaRegime,
            u"Nel regime dello studio (%1) la fattura è senza ritenuta: spuntare il regime agevolato."_s.arg(
                ConNome(regimi::Voci(), Cifre.Regime)));
}

/// The regimes of VAT on a cash basis and the invoice's own tick.
void AvvisaPerCassa(const CifreFattura& Cifre, Raccolta& Note)
{
    const bool DiCassa = Cifre.Regime == regimi::Cassa || Cifre.Regime == regimi::CassaPubblica;
    if (PerCassa(Cifre) && !DiCassa)
        Note.Avvisa(CampoFattura::StudioRegime,
                    u"L'IVA della fattura è per cassa, il regime dello studio è %1."_s.arg(
                        ConNome(regimi::Voci(), Cifre.Regime)));
    if (DiCassa && Cifre.Conti.Dati.IVA.Vale && !PerCassa(Cifre) && !Cifre.Scelta.ScissionePagamenti)
        Note.Avvisa(CampoFattura::NotaIvaDifferita,
                    u"Il regime dello studio è %1, l'IVA della fattura è immediata."_s.arg(
                        ConNome(regimi::Voci(), Cifre.Regime)));
}

void ControllaScissione(const CifreFattura& Cifre, Raccolta& Note)
{
    if (!Cifre.Scelta.ScissionePagamenti)
        return;
    if (Cifre.Conti.Dati.RA.Vale)
        Note.Manca(CampoFattura::SceltaScissione,
                   u"La scissione dei pagamenti non vale per i compensi con ritenuta d'acconto."_s);
    if (!Cifre.Conti.Dati.IVA.Vale)
        Note.Manca(CampoFattura::SceltaScissione, u"Senza IVA non c'è scissione dei pagamenti."_s);
    if (PerCassa(Cifre))
        Note.Manca(
            CampoFattura::SceltaScissione,
            u"L'IVA è differita o è versata dal cliente (scissione dei pagamenti), non tutte e due."_s);
}

}  // namespace

qint64 Centesimi(double Euro)
{
    return qint64(std::llround(Arrotonda2(Euro) * 100));
}

bool PerCassa(const CifreFattura& Cifre)
{
    return Cifre.Nota.chkIvaDiff.Attiva && Cifre.Conti.Dati.IVA.Vale;
}

bool ControllaCifre(const CifreFattura& Cifre, Raccolta& Note)
{
    constexpr double AliquotaMinima = 1.0;  // a lesser one would be taken for a fraction
    ControllaPercento(Cifre.Conti.Dati.SpeseGen, CampoFattura::NotaSpeseGen, u"spese generali", Note);
    ControllaPercento(Cifre.Conti.Dati.CP, CampoFattura::NotaCP, u"cassa previdenza", Note);
    ControllaPercento(Cifre.Conti.Dati.IVA, CampoFattura::NotaIva, u"IVA", Note);
    ControllaPercento(Cifre.Conti.Dati.RA, CampoFattura::NotaRA, u"ritenuta d'acconto", Note);
    if (Cifre.Conti.Dati.IVA.Vale && Cifre.Conti.Dati.IVA.Perc < AliquotaMinima)
        Note.Manca(CampoFattura::NotaIva,
                   u"L'aliquota IVA è meno dell'1%: %1"_s.arg(Cifre.Conti.Dati.IVA.Testo));
    ControllaRegime(Cifre, Note);
    ControllaScissione(Cifre, Note);
    AvvisaPerCassa(Cifre, Note);
    if (Cifre.Conti.Dati.IVA.Vale && !Cifre.Scelta.Natura.isEmpty())
        Note.Avvisa(CampoFattura::SceltaNatura,
                    u"La fattura ha l'IVA: la natura scelta (%1) non conta."_s.arg(Cifre.Scelta.Natura));
    if (!std::isfinite(Cifre.Conti.Totale) || std::abs(Cifre.Conti.Totale) >= MassimoImporto ||
        std::abs(Cifre.Conti.Imponibile) >= MassimoImporto) {
        Note.Manca(CampoFattura::NotaOnorari,
                   u"Gli importi sono troppo grandi per una fattura elettronica."_s);
        return false;
    }
    const bool Acconti = Cifre.Conti.Dati.Acconti != SommeAcconti();
    if (Cifre.Scelta.Tipo == codici::NotaDiCredito && Acconti && Centesimi(Cifre.Conti.Totale) <= 0) {
        Note.Manca(CampoFattura::NotaAcconti, FraseCreditoVuoto(Cifre.Conti.Totale));
        return false;
    }
    if (Centesimi(Cifre.Conti.Imponibile) < 0) {
        const QString Base = FormatNum(Cifre.Conti.Imponibile);
        if (!Acconti)
            Note.Manca(CampoFattura::NotaOnorari,
                       u"L'imponibile della fattura è negativo: %1 euro."_s.arg(Base));
        else
            Note.Manca(
                CampoFattura::NotaAcconti,
                u"Gli acconti superano compensi e spese imponibili: l'imponibile è %1 euro."_s.arg(Base));
        return false;
    }
    if (Centesimi(Cifre.Conti.Totale) <= 0) {
        Note.Manca(CampoFattura::NotaOnorari, Centesimi(Cifre.Conti.Totale) == 0
                                                  ? u"Il totale della fattura è zero."_s
                                                  : u"Il totale della fattura è negativo: %1 euro."_s.arg(
                                                        FormatNum(Cifre.Conti.Totale)));
        return false;
    }
    return true;
}
