#include "feenote/modVariazione.h"

#include "core/modErrori.h"
#include "feenote/modParametri.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/messaggi.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct OpzioneFissa
{
    QStringView Didascalia;
    QStringView Limiti;
    QStringView Gruppo;
};

constexpr QStringView Aumenti = GruppoAumenti;
constexpr QStringView Riduzioni = GruppoRiduzioni;

// The captions are the house's; "stragiudiziali" carries two blanks, and so does "Difese".
constexpr std::array<OpzioneFissa, NumAumRid> Fisse{{
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
static_assert(Fisse[AumRidLibera].Limiti.empty());
static_assert(NumAumRid == MassimoNumeroFisso + 1);

QList<OpzioneAumRid> CreaFisse()
{
    QList<OpzioneAumRid> Elenco;
    for (const OpzioneFissa& Fissa : Fisse)
        Elenco.append({.Numero = int(Elenco.size()),
                       .Didascalia = Fissa.Didascalia.toString(),
                       .Limiti = Fissa.Limiti.toString(),
                       .Gruppo = Fissa.Gruppo.toString()});
    return Elenco;
}

const OpzioneAumRid& Libera()
{
    return OpzioniAumRid()[AumRidLibera];
}

/// The note's whole list. Without one in the database there are the eleven, but for a decree that names
/// itself: they are articles of the other one.
const QList<OpzioneAumRid>& ListaDi(const Parcella& Nota)
{
    static const QList<OpzioneAumRid> SolaLibera{Libera()};
    if (!Nota.ListaVariazioni.isEmpty())
        return Nota.ListaVariazioni;
    return Nota.Tariffa->Dichiarato ? SolaLibera : OpzioniAumRid();
}

bool PerUfficio(const OpzioneAumRid& Opzione, const Parcella& Nota)
{
    return Comprende(Opzione.Uffici, QString::number(Nota.IDAutSelezionata()));
}

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
void ImpostaOpzione(Parcella& Nota, const OpzioneAumRid& Opzione)
{
    const QString& Tag = Opzione.Limiti;
    Nota.VariazioneTenuta = AumRidLibera;
    Nota.OpzioneSalvata.reset();
    Nota.AumRidIdx = Opzione.Numero;
    Nota.AumRidLimiti = Tag.isEmpty() ? LimitiLiberi.toString() : Tag;
    Nota.cmbAumRidAbilitata = Tag.isEmpty();
    Nota.cmbAumRid = Tag.isEmpty() ? NessunaVoce : Tag.startsWith(u'-') ? SegnoMeno : SegnoPiu;
}

void ImpostaVarP(Parcella& Nota, int VarP)
{
    if (VarP != Nota.AumRidVarP) {
        Nota.VariazioneTenuta = AumRidLibera;  // the percent was another option's
        Nota.OpzioneSalvata.reset();
        if (!Nota.xOnorari.Vuota())
            SegnaRicalcolo(Nota);
    }
    Nota.AumRidVarP = VarP;
}

/// Range, sign and first limit of an option; the free one empties the percent.
void ApplicaOpzione(Parcella& Nota, const OpzioneAumRid& Opzione)
{
    SetModificata(Nota, true);
    ImpostaOpzione(Nota, Opzione);
    if (Opzione.Numero == AumRidLibera) {
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

const QList<OpzioneAumRid>& OpzioniAumRid()
{
    static const QList<OpzioneAumRid> Elenco = CreaFisse();
    return Elenco;
}

QList<OpzioneAumRid> OpzioniAumRid(const Parcella& Nota)
{
    QList<OpzioneAumRid> Offerte;
    std::ranges::copy_if(ListaDi(Nota), std::back_inserter(Offerte),
                         [&](const OpzioneAumRid& Opzione) { return PerUfficio(Opzione, Nota); });
    return Offerte;
}

const OpzioneAumRid* OpzioneDi(const Parcella& Nota, int Numero)
{
    const QList<OpzioneAumRid>& Elenco = ListaDi(Nota);
    const auto Trovata = std::ranges::find(Elenco, Numero, &OpzioneAumRid::Numero);
    return Trovata == Elenco.end() ? nullptr : &*Trovata;
}

QString DidascaliaAumRid(int Indice)
{
    return OpzioniAumRid().value(Indice).Didascalia;
}

void LoadVariazioni(Parcella& Nota)
{
    const VariazioniLette Lette = LeggiVariazioni(*Nota.Tariffa, Nota.CodCateg);
    Nota.ListaVariazioni.clear();
    if (Lette.Opzioni)
        Nota.ListaVariazioni = *Lette.Opzioni + QList{Libera()};
    Nota.ListaParti = Lette.Parti;
    if (Lette.Guasto)
        GestioneErrori(*Lette.Guasto);
}

void AzzeraVariazione(Parcella& Nota)
{
    ImpostaOpzione(Nota, Libera());
    Nota.txtAumRid.Testo.clear();
    Nota.AumRidVarP = 0;
}

namespace {

/// The option that the file names is not offered: of a list that stands, or because there is none.
void AvvisaVariazione(const Parcella& Nota, int Indice)
{
    const QString Causa = Nota.ListaVariazioni.isEmpty()
                              ? u"Attenzione, l'archivio della tariffa %2 non dice quale sia la variazione "
                                u"n. %1 della parcella!"_s
                              : u"Attenzione, la variazione n. %1 della parcella non è fra quelle della "
                                u"tariffa %2!"_s;
    MsgBox(Causa.arg(Indice).arg(Nota.Tariffa->Nome) +
               u"\nLa percentuale resta come variazione libera e gli importi sono quelli salvati."_s,
           vbExclamation, TitoloAvvertenza.toString());
}

}  // namespace

void CaricaVariazione(Parcella& Nota, int Indice, double VarP)
{
    const OpzioneAumRid* Opzione = OpzioneDi(Nota, Indice);
    const bool Offerta = Opzione && PerUfficio(*Opzione, Nota);
    ImpostaOpzione(Nota, Offerta ? *Opzione : Libera());
    if (!Offerta && Nota.Tariffa->Dichiarato)
        Nota.VariazioneTenuta = Indice;
    Nota.AumRidVarP = int(Round(std::clamp(VarP, -999.0, 999.0)));
    Nota.txtAumRid.Testo.clear();
    if (Nota.AumRidVarP != 0) {
        Nota.cmbAumRid = Nota.AumRidVarP > 0 ? SegnoPiu : SegnoMeno;
        Nota.txtAumRid.Testo = QString::number(std::abs(Nota.AumRidVarP));
    }
    if (!Offerta && (Nota.Tariffa->Dichiarato || !Nota.ListaVariazioni.isEmpty()))
        AvvisaVariazione(Nota, Indice);
}

int VariazioneDelFile(const Parcella& Nota)
{
    return Nota.AumRidIdx == AumRidLibera ? Nota.VariazioneTenuta : Nota.AumRidIdx;
}

bool VariazioneAltrui(const Parcella& Nota)
{
    const OpzioneAumRid* Opzione = OpzioneDi(Nota, Nota.AumRidIdx);
    return !Opzione || !PerUfficio(*Opzione, Nota);
}

void LasciaVariazioneAltrui(Parcella& Nota)
{
    if (VariazioneAltrui(Nota))
        ApplicaOpzione(Nota, Libera());
}

QString FraseVariazioneTolta(const Parcella& Nota, const QString& Dove)
{
    const OpzioneAumRid* Opzione = OpzioneDi(Nota, Nota.AumRidIdx);
    const QString Nome = Opzione ? Opzione->Didascalia : QString::number(Nota.AumRidIdx);
    return u"La variazione «%1» non è prevista %2 e viene tolta."_s.arg(Nome, Dove);
}

void ScegliAumRid(Parcella& Nota, int Indice)
{
    if (Indice == Nota.AumRidIdx) {
        if (Nota.VariazioneTenuta != AumRidLibera) {
            Nota.VariazioneTenuta = AumRidLibera;
            const auto Salvata = std::exchange(Nota.OpzioneSalvata, std::nullopt);
            // The free one takes the whole percent of every item, which that option did not.
            const bool Altrimenti = Salvata && (Salvata->Esatto != 0 || Salvata->Voci != OgniNumero);
            if (Altrimenti && !Nota.xOnorari.Vuota())
                SegnaRicalcolo(Nota);
            SetModificata(Nota, true);
        }
        return;
    }
    const OpzioneAumRid* Opzione = OpzioneDi(Nota, Indice);
    if (Opzione && PerUfficio(*Opzione, Nota))
        ApplicaOpzione(Nota, *Opzione);
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
        ApplicaOpzione(Nota, Libera());
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
        MsgErrore(TestoFrase(FraseParametri::Variazione).arg(Minimo).arg(Massimo));
        Nota.txtAumRid.Testo = QString::number(std::abs(Trovati.Lo));
    }
    Nota.Fuoco = CampoNota::Variazione;
    return false;
}

const OpzioneAumRid* OpzioneInForza(const Parcella& Nota)
{
    return Nota.OpzioneSalvata ? &*Nota.OpzioneSalvata : OpzioneDi(Nota, Nota.AumRidIdx);
}

void LasciaVariazioneSalvata(Parcella& Nota)
{
    Nota.OpzioneSalvata.reset();
    if (PartiContano(Nota))
        Nota.PartiSalvate.reset();
}

int VariazioneDi(const Parcella& Nota, const QVariant& CodVoce)
{
    const OpzioneAumRid* Opzione = OpzioneInForza(Nota);
    return Opzione && !Comprende(Opzione->Voci, CStr(CodVoce)) ? 0 : Nota.AumRidVarP;
}

double PercentoEsatto(const Parcella& Nota, int VarPerc)
{
    const OpzioneAumRid* Opzione = OpzioneInForza(Nota);
    if (!Opzione || Opzione->Esatto == 0 || VarPerc != LeggiLimiti(Opzione->Limiti).Lo)
        return VarPerc;
    // A list or a file that somebody has edited: 33 may be a third, and nothing beside it.
    if (!(std::abs(Opzione->Esatto - std::abs(VarPerc)) < 1))
        return VarPerc;
    return VarPerc < 0 ? -Opzione->Esatto : Opzione->Esatto;
}

// ---- parties assisted

bool PartiContano(const Parcella& Nota)
{
    return !Nota.ListaParti.isEmpty();
}

int AumentoParti(const Parcella& Nota)
{
    if (Nota.PartiSalvate)
        return Nota.PartiSalvate->Percento;
    int Aumento = 0;
    for (const FasciaParti& Fascia : Nota.ListaParti)
        Aumento += std::max(0, std::min(Nota.PartiAssistite, Fascia.A) - Fascia.Da + 1) * Fascia.Percento;
    return Aumento;
}

void CaricaParti(Parcella& Nota, int Quante)
{
    Nota.PartiSalvate.reset();
    Nota.PartiAssistite = std::clamp(Quante, 1, MassimoParti);
    Nota.txtParti.Testo = QString::number(Nota.PartiAssistite);
}

void VerificaParti(const Parcella& Nota)
{
    const bool Previste = Nota.CodCateg == Civile || Nota.CodCateg == Penale;
    if (!Nota.Tariffa->Dichiarato || !Previste || Nota.PartiAssistite <= 1 || PartiContano(Nota))
        return;
    try {
        (void)ApriTariffe(*Nota.Tariffa);
    } catch (const Errore&) {
        return;  // a database that cannot be used was told already
    }
    MsgBox(u"Attenzione, l'archivio della tariffa %1, %2, non dice più l'aumento per le %3 parti assistite "
           u"della parcella!\nGli importi della parcella restano quelli salvati."_s.arg(
               Nota.Tariffa->Nome, Nota.Tariffa->File, QString::number(Nota.PartiAssistite)),
           vbExclamation, TitoloAvvertenza.toString());
}

void LasciaParti(Parcella& Nota)
{
    const int Scritte = int(std::clamp(Nota.txtParti.Numero(), 1.0, double(MassimoParti)));
    if (Scritte == Nota.PartiAssistite) {
        Nota.txtParti.Testo = QString::number(Scritte);
        return;
    }
    CaricaParti(Nota, Scritte);
    SetModificata(Nota, true);
    if (!Nota.xOnorari.Vuota())
        SegnaRicalcolo(Nota);
}

QString FraseParti(const Parcella& Nota)
{
    const int Aumento = AumentoParti(Nota);
    if (Aumento == 0)
        return {};
    const QString& Articolo =
        Nota.PartiSalvate ? Nota.PartiSalvate->Articolo : Nota.ListaParti.first().Articolo;
    return u"Aumento del %1% per %2 parti assistite (%3, %4)"_s.arg(
        QString::number(Aumento), QString::number(Nota.PartiAssistite), Articolo, Nota.Tariffa->Nome);
}

// ---- how it is shown

namespace {

/// "-33,33", "20": without decimals where it is whole.
QString TestoPercento(double Percento)
{
    return CStr(Arrotonda2(Percento));
}

QString ConSegnoScritto(double Percento)
{
    return (Percento > 0 ? u"+"_s : QString()) + TestoPercento(Percento) + u'%';
}

/// Caption of the note's option.
QString Didascalia(const Parcella& Nota)
{
    const OpzioneAumRid* Opzione = OpzioneInForza(Nota);
    return Opzione ? Opzione->Didascalia : QString();
}

/// The sentence that an option brings along; empty for one that is worded from its caption.
QString FrasePropria(const Parcella& Nota)
{
    const OpzioneAumRid* Opzione = OpzioneInForza(Nota);
    if (!Opzione || Opzione->Frase.isEmpty())
        return {};
    const double Percento = std::abs(PercentoEsatto(Nota, Nota.AumRidVarP));
    return QString(Opzione->Frase).replace(u"%1"_s, TestoPercento(Percento));
}

/// True when an option that is meant for certain items has varied none of the lines: a document that named it
/// would claim what its amounts do not hold.
bool NonToccaRighe(const Parcella& Nota)
{
    const OpzioneAumRid* Opzione = OpzioneInForza(Nota);
    if (!Nota.Tariffa->Dichiarato || !Opzione || Opzione->Voci == OgniNumero)
        return false;
    for (int Riga = 0; Riga < Nota.xOnorari.Righe(); ++Riga)
        if (NumeroDi(Nota.xOnorari(Riga, OnoVarPerc)) != 0)
            return false;
    return true;
}

bool Varia(const Parcella& Nota)
{
    return Nota.AumRidVarP != 0 && !NonToccaRighe(Nota);
}

}  // namespace

QString TestoAumRidOno(const Parcella& Nota)
{
    QStringList Testi;
    if (const int Aumento = AumentoParti(Nota); Aumento != 0)
        Testi += u"%1 parti: +%2%"_s.arg(Nota.PartiAssistite).arg(Aumento);
    if (Varia(Nota))
        Testi += ConSegnoScritto(PercentoEsatto(Nota, Nota.AumRidVarP));
    return Testi.join(u"  "_s);
}

QString SuggerimentoAumRidOno(const Parcella& Nota)
{
    QStringList Righe;
    if (const QString Parti = FraseParti(Nota); !Parti.isEmpty())
        Righe += Parti;
    const QString Propria = FrasePropria(Nota);
    if (Varia(Nota) && !Propria.isEmpty())
        Righe += Propria;
    else if (Varia(Nota))
        Righe += u"Applicat"_s + (Nota.AumRidVarP < 0 ? u"a riduzione "_s : u"o aumento "_s) + u"per "_s +
                 Didascalia(Nota);
    return Righe.join(u'\n');
}

QString FraseVariazione(const Parcella& Nota)
{
    if (!Varia(Nota))
        return {};
    if (QString Propria = FrasePropria(Nota); !Propria.isEmpty())
        return Propria;
    QString Frase = u"Applicat"_s + (Nota.AumRidVarP >= 1 ? u"o aumento "_s : u"a riduzione del "_s) +
                    QString::number(std::abs(Nota.AumRidVarP)) + u"% "_s;
    const OpzioneAumRid* Opzione = OpzioneInForza(Nota);
    if (Opzione && Opzione->Numero != AumRidLibera && !Opzione->Didascalia.isEmpty())
        Frase += u"per "_s + Didascalia(Nota);
    return Frase;
}
