#include "feenote/modVariazione.h"

#include "core/modErrori.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Aumenti = u" Aumenti ";
constexpr QStringView Riduzioni = u" Riduzioni ";

// The captions are the house's; "stragiudiziali" carries two blanks, and so does "Difese".
constexpr std::array<OpzioneAumRid, NumAumRid> Opzioni{{
    {u"Incarichi collegiali (art. 1, co. 4)", u"100;1", Aumenti},
    {u"Difese plurime (art. 4, co. 4, e art. 12, co. 4)", u"100;1", Aumenti},
    {u"Azioni di classe (art. 4, co. 4)", u"200;1", Aumenti},
    {u"Conciliazioni giudiziali (art. 4, co. 5)", u"25;1", Aumenti},
    {u"Conciliazioni stragiudiziali  (art. 3, co. 3)", u"40;1", Aumenti},
    {u"Altra/nessuna variazione", u"", u""},
    {u"Difese  a spese dello Stato (art. 9)", u"-50;-1", Riduzioni},
    {u"Indennizzi da legge Pinto (art. 9)", u"-50;-1", Riduzioni},
    {u"Cause di lavoro fino a € 1.000 (art. 6)", u"-50;-1", Riduzioni},
    {u"Pronunce in rito (art. 10)", u"-50;-1", Riduzioni},
    {u"Responsabilità ex art. 96 cpc (art. 10)", u"-50;-1", Riduzioni},
}};
static_assert(Opzioni[AumRidLibera].Limiti.empty());

constexpr QStringView LimitiLiberi = u"-100;300";
constexpr int SegnoPiu = 0;
constexpr int SegnoMeno = 1;

/// Whole percent typed in the box; at most 3 digits count, so that it fits wherever it goes.
int PercentoDigitato(const Parcella& Nota)
{
    const QString Cifre = Nota.txtAumRid.Testo.trimmed().left(3);
    return int(NumeroDi(Cifre));
}

int ConSegno(const Parcella& Nota, int Percento)
{
    return Nota.cmbAumRid == SegnoMeno ? -Percento : Percento;
}

struct Limiti
{
    int Lo = 0;
    int Hi = 0;
};

Limiti LeggiLimiti(const QString& Testo)
{
    const qsizetype Punto = Testo.indexOf(u';');
    return {int(NumeroDi(Testo.left(Punto))), int(NumeroDi(Testo.mid(Punto + 1)))};
}

/// Sign list and range as the option's tag asks; the percent is the caller's.
void ImpostaOpzione(Parcella& Nota, int Indice)
{
    const QString Tag = Opzioni[size_t(Indice)].Limiti.toString();
    Nota.AumRidIdx = Indice;
    Nota.AumRidLimiti = Tag.isEmpty() ? LimitiLiberi.toString() : Tag;
    Nota.cmbAumRidAbilitata = Tag.isEmpty();
    Nota.cmbAumRid = Tag.isEmpty() ? NessunaVoce : Tag.startsWith(u'-') ? SegnoMeno : SegnoPiu;
}

void ImpostaVarP(Parcella& Nota, int VarP)
{
    if (VarP != Nota.AumRidVarP && !Nota.xOnorari.Vuota())
        SegnaRicalcolo(Nota);
    Nota.AumRidVarP = VarP;
}

/// Range, sign and first limit of an option; the free one empties the percent.
void ApplicaOpzione(Parcella& Nota, int Indice)
{
    SetModificata(Nota, true);
    ImpostaOpzione(Nota, Indice);
    if (Indice == AumRidLibera) {
        Nota.txtAumRid.Testo.clear();
        ImpostaVarP(Nota, 0);
        return;
    }
    // "-50;-1" with the minus sign is -50: the absolute limit takes the sign of the list.
    const int Primo = std::abs(LeggiLimiti(Nota.AumRidLimiti).Lo);
    Nota.txtAumRid.Testo = QString::number(Primo);
    ImpostaVarP(Nota, ConSegno(Nota, Primo));
}

}  // namespace

const std::array<OpzioneAumRid, NumAumRid>& OpzioniAumRid()
{
    return Opzioni;
}

QString DidascaliaAumRid(int Indice)
{
    return Indice >= 0 && Indice < NumAumRid ? Opzioni[size_t(Indice)].Didascalia.toString() : QString();
}

void AzzeraVariazione(Parcella& Nota)
{
    ImpostaOpzione(Nota, AumRidLibera);
    Nota.txtAumRid.Testo.clear();
    Nota.AumRidVarP = 0;
}

void CaricaVariazione(Parcella& Nota, int Indice, double VarP)
{
    ImpostaOpzione(Nota, Indice >= 0 && Indice < NumAumRid ? Indice : AumRidLibera);
    Nota.AumRidVarP = int(std::clamp(VarP, -999.0, 999.0));
    Nota.txtAumRid.Testo.clear();
    if (Nota.AumRidVarP != 0) {
        Nota.cmbAumRid = Nota.AumRidVarP > 0 ? SegnoPiu : SegnoMeno;
        Nota.txtAumRid.Testo = QString::number(std::abs(Nota.AumRidVarP));
    }
}

void ScegliAumRid(Parcella& Nota, int Indice)
{
    if (Indice != Nota.AumRidIdx && Indice >= 0 && Indice < NumAumRid)
        ApplicaOpzione(Nota, Indice);
}

void CambiaTestoAumRid(Parcella& Nota, const QString& Testo)
{
    Nota.txtAumRid.Testo = Testo;
    SetModificata(Nota, true);
    if (NumeroDi(Testo) > 0 && Nota.cmbAumRid == NessunaVoce)
        Nota.cmbAumRid = SegnoPiu;
}

void CambiaSegnoAumRid(Parcella& Nota, int Indice)
{
    if (Indice == Nota.cmbAumRid)
        return;
    Nota.cmbAumRid = Indice;
    SetModificata(Nota, true);
}

bool VariazioneInSospeso(const Parcella& Nota)
{
    const int Percento = PercentoDigitato(Nota);
    const bool SegnoSolo =
        Percento == 0 && (Nota.cmbAumRid != NessunaVoce || !Nota.txtAumRid.Testo.isEmpty());
    return SegnoSolo || ConSegno(Nota, Percento) != Nota.AumRidVarP;
}

void LasciaAumRid(Parcella& Nota)
{
    if (PercentoDigitato(Nota) == 0)
        ApplicaOpzione(Nota, AumRidLibera);
    if (!CheckVarPerc(Nota, true))
        return;
    ImpostaVarP(Nota, ConSegno(Nota, PercentoDigitato(Nota)));
}

bool CheckVarPerc(Parcella& Nota, bool ShowMessage)
{
    if (Nota.AumRidLimiti.isEmpty())
        return true;
    const Limiti Trovati = LeggiLimiti(Nota.AumRidLimiti);
    const int Minimo = std::min(Trovati.Lo, Trovati.Hi);
    const int Massimo = std::max(Trovati.Lo, Trovati.Hi);
    const int Valore = ConSegno(Nota, PercentoDigitato(Nota));
    if (Valore >= Minimo && Valore <= Massimo)
        return true;

    if (ShowMessage) {
        MsgErrore(u"La variazione deve essere compreso tra %1 e %2!"_s.arg(Minimo).arg(Massimo));
        Nota.txtAumRid.Testo = QString::number(std::abs(Trovati.Lo));
    }
    Nota.Fuoco = CampoNota::Variazione;
    return false;
}

QString TestoAumRidOno(const Parcella& Nota)
{
    if (Nota.AumRidVarP == 0)
        return {};
    return (Nota.AumRidVarP > 0 ? u"+"_s : QString()) + QString::number(Nota.AumRidVarP) + u"%"_s;
}

QString SuggerimentoAumRidOno(const Parcella& Nota)
{
    if (Nota.AumRidVarP == 0)
        return {};
    return u"Applicat"_s + (Nota.AumRidVarP < 0 ? u"a riduzione "_s : u"o aumento "_s) + u"per "_s +
           DidascaliaAumRid(Nota.AumRidIdx);
}

QString FraseVariazione(const Parcella& Nota)
{
    if (Nota.AumRidVarP == 0)
        return {};
    QString Frase = u"Applicat"_s + (Nota.AumRidVarP >= 1 ? u"o aumento "_s : u"a riduzione del "_s) +
                    QString::number(std::abs(Nota.AumRidVarP)) + u"% "_s;
    const QString Didascalia = DidascaliaAumRid(Nota.AumRidIdx);
    if (Nota.AumRidIdx != AumRidLibera && !Didascalia.isEmpty())
        Frase += u"per "_s + Didascalia;
    return Frase;
}
