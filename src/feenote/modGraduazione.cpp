#include "feenote/modGraduazione.h"

#include "core/modErrori.h"
#include "feenote/modControlliNota.h"
#include "feenote/modRighe.h"
#include "platform/base/regionale.h"
#include "platform/system/messaggi.h"
#include "tariffs/modTariffe.h"

using namespace Qt::StringLiterals;

namespace {

/// Columns of the lines in the order of the panel's rows.
constexpr std::array ColonneFasce{OnoMin, OnoMedio, OnoMax};

/// Captions of the rows, for one line and for all of them; the blanks bring the brackets under one another.
struct Didascalie
{
    QStringView Una;
    QStringView Tutte;
};
constexpr std::array<Didascalie, NumFasce> NomiFasce{{
    {u"MINIMO      (", u"MINIMI      (Tot.: "},
    {u"MEDIO       (", u"MEDI        (Tot.: "},
    {u"MASSIMO  (", u"MASSIMI  (Tot.: "},
}};

QString TestoGraduato(const Graduazione& Pannello, int Posizione)
{
    const double Min = Pannello.Fasce[FasciaMin];
    const double Max = Pannello.Fasce[FasciaMax];
    return TestoImporto(ArrotondaRiga(Min + (Max - Min) / GraduaMax * Posizione, Pannello.Decimali));
}

/// The first of the three amounts that shows as this text.
int FasciaDi(const Graduazione& Pannello, const QString& Importo)
{
    for (int Fascia = 0; Fascia < NumFasce; ++Fascia)
        if (TestoImporto(NumeroDi(Importo)) == TestoImporto(Pannello.Fasce[size_t(Fascia)]))
            return Fascia;
    return NessunaFascia;
}

/// Where CheckFascia leaves the slider.
int GraduaDopo(const Graduazione& Pannello, const QString& Importo, int Posizione)
{
    constexpr std::array Posti{GraduaMin, GraduaMeta, GraduaMax};
    const int Fascia = FasciaDi(Pannello, Importo);
    return Fascia == NessunaFascia ? Posizione : Posti[size_t(Fascia)];
}

bool InTariffa(const TabellaRighe& Righe, int Riga)
{
    const double NVoce = NumeroDi(Righe(Riga, OnoNVoce));
    return NVoce != 0 && NVoce < PrimaVoceFuoriTariffa;
}

void ScriviRigheFasce(Graduazione& Pannello)
{
    Pannello.RigheFasce.clear();
    for (size_t Fascia = 0; Fascia < NumFasce; ++Fascia) {
        const QStringView Nome = Pannello.Tutti ? NomiFasce[Fascia].Tutte : NomiFasce[Fascia].Una;
        Pannello.RigheFasce += Nome.toString() + TestoImporto(Pannello.Fasce[Fascia]) + u')';
    }
}

void CaricaTutte(Graduazione& Pannello, const TabellaRighe& Righe)
{
    for (size_t Fascia = 0; Fascia < NumFasce; ++Fascia)
        Pannello.Fasce[Fascia] = SommaColonna(Righe, ColonneFasce[Fascia]);
    Pannello.OnoDesc = u"Tutti gli onorari"_s;
    Pannello.Imp = u"Importo totale:"_s;
    Pannello.Evidenziata = FasciaMin;
    Pannello.Gradua = GraduaMin;
    Pannello.ImpOno = TestoImporto(Pannello.Fasce[FasciaMin]);
}

void CaricaUna(Graduazione& Pannello, const TabellaRighe& Righe, int Riga)
{
    for (size_t Fascia = 0; Fascia < NumFasce; ++Fascia)
        Pannello.Fasce[Fascia] = NumeroDi(Righe(Riga, ColonneFasce[Fascia]));
    Pannello.Riga = Riga;
    Pannello.OnoDesc = u"Onorari inseriti: "_s + CStr(Righe(Riga, OnoDescr));
    Pannello.Imp = u"Importo onorario:"_s;
    const QVariant& Importo = Righe(Riga, OnoImporto);
    Pannello.ImpOno = Importo.isValid() ? TestoImporto(NumeroDi(Importo)) : QString();
    CheckFascia(Pannello, Pannello.ImpOno);
}

/// What a line comes to at the slider's position.
double ImportoDi(const Graduazione& Pannello, const TabellaRighe& Righe, int Riga)
{
    const double Min = NumeroDi(Righe(Riga, OnoMin));
    const double Max = NumeroDi(Righe(Riga, OnoMax));
    return ArrotondaRiga(Min + (Max - Min) * Round(double(Pannello.Gradua) / GraduaMax, 2),
                         Pannello.Decimali);
}

void ScriviTutte(const Graduazione& Pannello, TabellaRighe& Righe)
{
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga) {
        if (NumeroDi(Righe(Riga, OnoCodVoce)) <= 0)
            continue;
        if (Pannello.Evidenziata == NessunaFascia)
            Righe(Riga, OnoImporto) = ImportoDi(Pannello, Righe, Riga);
        else
            Righe(Riga, OnoImporto) = Righe(Riga, ColonneFasce[size_t(Pannello.Evidenziata)]);
    }
}

}  // namespace

void ApriModOno(Graduazione& Pannello, const TabellaRighe& Righe, std::optional<int> Corrente)
{
    if (!Corrente || *Corrente > Righe.UpperBound(1))
        return;
    if (NumeroDi(Righe(*Corrente, OnoNVoce)) == VoceLibera) {
        MsgBox(u"L'onorario 'Voce non prevista' non è variabile percentualmente!"_s, vbInformation,
               TitoloMessaggio.toString());
        return;
    }
    if (!CStr(Righe(*Corrente, OnoMedio)).isEmpty())
        CaricaModOno(Pannello, Righe, *Corrente);
}

void ChiudiModOno(Graduazione& Pannello)
{
    Pannello.Aperto = false;
    Pannello.Tutti = false;
    Pannello.Confermabile = false;
}

void CaricaModOno(Graduazione& Pannello, const TabellaRighe& Righe, int Riga)
{
    Pannello.Tutti = Riga == TutteLeRighe;
    if (Pannello.Tutti)
        CaricaTutte(Pannello, Righe);
    else
        CaricaUna(Pannello, Righe, Riga);
    ScriviRigheFasce(Pannello);
    Pannello.Confermabile = false;
    Pannello.Aperto = true;
}

void ScegliModAll(Graduazione& Pannello, const TabellaRighe& Righe, bool Tutti)
{
    if (Tutti != Pannello.Tutti)
        CaricaModOno(Pannello, Righe, Tutti ? TutteLeRighe : Pannello.Riga);
}

void SeguiRigaModOno(Graduazione& Pannello, const TabellaRighe& Righe, std::optional<int> Corrente)
{
    if (!Pannello.Aperto || !Corrente || *Corrente > Righe.UpperBound(1) || !InTariffa(Righe, *Corrente))
        return;
    if (Pannello.Tutti)
        Pannello.Riga = *Corrente;  // for the return to one line
    else if (*Corrente != Pannello.Riga)
        CaricaModOno(Pannello, Righe, *Corrente);
}

void RicaricaModOno(Graduazione& Pannello, const TabellaRighe& Righe)
{
    if (Pannello.Aperto)
        CaricaModOno(Pannello, Righe, Pannello.Tutti ? TutteLeRighe : Pannello.Riga);
}

void RinfrescaModOno(Graduazione& Pannello, const TabellaRighe& Righe, std::optional<int> Corrente)
{
    if (!Pannello.Aperto)
        return;
    // The line shown may stand elsewhere now: the current one is what the user sees marked.
    if (!Corrente || *Corrente > Righe.UpperBound(1) || !InTariffa(Righe, *Corrente)) {
        ChiudiModOno(Pannello);
        return;
    }
    Pannello.Riga = *Corrente;
    CaricaModOno(Pannello, Righe, Pannello.Tutti ? TutteLeRighe : *Corrente);
}

void CheckFascia(Graduazione& Pannello, const QString& Importo)
{
    Pannello.Evidenziata = FasciaDi(Pannello, Importo);
    Pannello.Gradua = GraduaDopo(Pannello, Importo, Pannello.Gradua);
}

void ScegliFascia(Graduazione& Pannello, int Riga)
{
    if (Riga < 0 || Riga >= NumFasce)
        return;
    Pannello.Evidenziata = Riga;
    Pannello.Confermabile = true;
    Pannello.ImpOno = TestoImporto(Pannello.Fasce[size_t(Riga)]);
    const double Min = Pannello.Fasce[FasciaMin];
    const double Ampiezza = Pannello.Fasce[FasciaMax] - Min;
    // An item without a range has no proportion.
    const double Parte = Ampiezza == 0 ? 0 : (NumeroDi(Pannello.ImpOno) - Min) / Ampiezza;
    Pannello.Gradua = int(Round(std::clamp(Parte, 0.0, 1.0) * GraduaMax));
    CheckFascia(Pannello, Pannello.ImpOno);
}

void SpostaGradua(Graduazione& Pannello, int Posizione)
{
    Pannello.Gradua = std::clamp(Posizione, GraduaMin, GraduaMax);
    Pannello.Confermabile = true;
    Pannello.ImpOno = TestoGraduato(Pannello, Pannello.Gradua);
    CheckFascia(Pannello, Pannello.ImpOno);
}

QString AvvisoGradua(const Graduazione& Pannello)
{
    const double Importo = NumeroDi(Pannello.ImpOno);
    const double Min = Pannello.Fasce[FasciaMin];
    const double Max = Pannello.Fasce[FasciaMax];
    if (Pannello.Tutti || Pannello.ImpOno.isEmpty() || FasciaDi(Pannello, Pannello.ImpOno) != NessunaFascia ||
        Max <= 0 || Min > Max)
        return {};
    if (Importo > Max || Importo < Min)
        return u"L'importo è "_s + FraseLimite({Importo > Max, Importo > Max ? Max : Min});
    return TestoGraduato(Pannello, Pannello.Gradua) == Pannello.ImpOno
               ? QString()
               : u"Il cursore non segna l'importo attuale"_s;
}

int PassoGradua(const Graduazione& Pannello, int Da, int A)
{
    const int Verso = A > Da ? 1 : -1;
    for (int Posizione = A; Posizione > GraduaMin && Posizione < GraduaMax; Posizione += Verso) {
        const int Arrivo = GraduaDopo(Pannello, TestoGraduato(Pannello, Posizione), Posizione);
        if ((Arrivo - Da) * Verso > 0)
            return Posizione;
    }
    return Verso > 0 ? GraduaMax : GraduaMin;
}

bool ConfermaModOno(Graduazione& Pannello, TabellaRighe& Righe)
{
    if (Pannello.ImpOno.isEmpty()) {
        MsgErrore(u"Specificare l'importo!"_s);
        return false;
    }
    if (Pannello.Tutti)
        ScriviTutte(Pannello, Righe);
    else if (Pannello.Decimali > 0 && Pannello.Evidenziata != NessunaFascia)
        // Two ends that are rounded to the cent each by itself have a mid-point a cent off the medium shown.
        Righe(Pannello.Riga, OnoImporto) = Righe(Pannello.Riga, ColonneFasce[size_t(Pannello.Evidenziata)]);
    else
        Righe(Pannello.Riga, OnoImporto) = ImportoDi(Pannello, Righe, Pannello.Riga);
    ChiudiModOno(Pannello);
    return true;
}
