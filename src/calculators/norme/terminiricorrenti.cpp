#include "calculators/norme/terminiricorrenti.h"

#include "calculators/norme/rifiuto.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/base/testopiano.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A number is a word of its own, so that 16 does not find 166; other words are found anywhere.
bool Contiene(const QString& Testo, const QString& Parola)
{
    if (!Parola.front().isDigit())
        return Testo.contains(Parola);
    for (qsizetype Posto = Testo.indexOf(Parola); Posto >= 0; Posto = Testo.indexOf(Parola, Posto + 1)) {
        const qsizetype Dopo = Posto + Parola.size();
        const bool Comincia = Posto == 0 || !Testo[Posto - 1].isDigit();
        const bool Finisce = Dopo == Testo.size() || !Testo[Dopo].isDigit() || !Parola.back().isDigit();
        if (Comincia && Finisce)
            return true;
    }
    return false;
}

/// A row is in force on the day that its validity is measured by.
void ControllaVigenza(const TermineRicorrente& Termine, const QDate& Evento,
                      const std::optional<QDate>& Inizio)
{
    const QString Vale = u"%1 vale %2"_s.arg(Termine.Codice, TestoVigenza(Termine.Quando));
    const bool DalProcedimento = Termine.Misura == MisuraVigenza::Procedimento;
    if (!DalProcedimento && Inizio)
        Rifiuta(u"%1 non dipende dal giorno in cui il procedimento è cominciato"_s.arg(Termine.Codice));
    if (DalProcedimento && Inizio && !Termine.Quando.Contiene(*Inizio))
        Rifiuta(Vale + u": il procedimento è cominciato il "_s + Format(*Inizio, ModelloData));
    const Vigenza DaGuardare = DalProcedimento ? Vigenza{Termine.Quando.Dal, {}} : Termine.Quando;
    if (!DaGuardare.Contiene(Evento))
        Rifiuta(Vale + u": il termine corre dal "_s + Format(Evento, ModelloData));
}

/// Cases seldom last longer: a term of today says nothing of a reform that lies so far back.
constexpr int AnniDiUnaCausa = 10;

/// A proceeding that began before a reform keeps its rules: whoever counts without that day must know.
QStringList NoteVigenza(const TermineRicorrente& Termine, const QDate& Evento,
                        const std::optional<QDate>& Inizio)
{
    if (Termine.Misura != MisuraVigenza::Procedimento || Inizio)
        return {};
    const Vigenza& Quando = Termine.Quando;
    if (Quando.Al.isValid() && Evento > Quando.Al)
        return {u"Vale per i procedimenti cominciati fino al "_s + Format(Quando.Al, ModelloData)};
    if (!Quando.Al.isValid() && Quando.Dal.isValid() && Evento < Quando.Dal.addYears(AnniDiUnaCausa))
        return {u"Vale per i procedimenti cominciati dal "_s + Format(Quando.Dal, ModelloData)};
    return {};
}

/// What differs from the row is a choice, which its matter does not overrule and for which no source need
/// speak; what does not differ stays as sure or unsure as the row has it.
void Scegli(RichiestaTermine& Chiesto, const OpzioniTermine& Scelte)
{
    if (Chiesto.Opzioni.Sospensione != Scelte.Sospensione) {
        Chiesto.Opzioni.Sospensione = Scelte.Sospensione;
        Chiesto.Materia.clear();
        Chiesto.SospensioneIgnota = false;
    }
    if (Chiesto.Opzioni.Sabato != Scelte.Sabato) {
        Chiesto.Opzioni.Sabato = Scelte.Sabato;
        Chiesto.SabatoIgnoto = false;
    }
}

}  // namespace

QString MisuraTermine(const TermineRicorrente& Termine)
{
    if (Termine.Regola)
        return u"regola"_s;
    const bool Uno = Termine.Quantita == 1;
    const QString Unita = Termine.Tipo == TipoGiorni ? (Uno ? u"giorno"_s : u"giorni"_s)
                          : Termine.Tipo == TipoMesi ? (Uno ? u"mese"_s : u"mesi"_s)
                                                     : (Uno ? u"anno"_s : u"anni"_s);
    return CStr(Termine.Quantita) + u' ' + Unita +
           (!Termine.Libero ? QString()
            : Uno           ? u" libero"_s
                            : u" liberi"_s) +
           (Termine.Antecedente ? u" prima"_s : QString());
}

QString TestoVigenza(const Vigenza& Quando)
{
    const QString Dal = Quando.Dal.isValid() ? u"dal "_s + Format(Quando.Dal, ModelloData) : QString();
    const QString Al = Quando.Al.isValid() ? (Quando.Dal.isValid() ? u"al "_s : u"fino al "_s) +
                                                 Format(Quando.Al, ModelloData)
                                           : QString();
    return Dal.isEmpty() || Al.isEmpty() ? Dal + Al : Dal + u' ' + Al;
}

const TermineRicorrente* TrovaTermine(const Norme& Insieme, QStringView Codice)
{
    for (const TermineRicorrente& Termine : Insieme.Termini())
        if (Codice.compare(Termine.Codice, Qt::CaseInsensitive) == 0)
            return &Termine;
    return nullptr;
}

const CatenaTermini* TrovaCatena(const Norme& Insieme, QStringView Codice)
{
    for (const CatenaTermini& Catena : Insieme.Catene())
        if (Codice.compare(Catena.Codice, Qt::CaseInsensitive) == 0)
            return &Catena;
    return nullptr;
}

bool TermineRisponde(const TermineRicorrente& Termine, const QString& Cercato)
{
    static const QRegularExpression Spazi(u"\\s+"_s);
    const QString Tutto = TestoPiano(QStringList{Termine.Codice, Termine.Articolo, Termine.Rito, Termine.Atto,
                                                 Termine.Evento, Termine.Nota}
                                         .join(u' '));
    const QStringList Parole = TestoPiano(Cercato).split(Spazi, Qt::SkipEmptyParts);
    return std::ranges::all_of(Parole, [&](const QString& Parola) { return Contiene(Tutto, Parola); });
}

QList<const TermineRicorrente*> CercaTermini(const Norme& Insieme, const QString& Cercato)
{
    QList<const TermineRicorrente*> Trovati;
    for (const TermineRicorrente& Termine : Insieme.Termini())
        if (TermineRisponde(Termine, Cercato))
            Trovati.append(&Termine);
    return Trovati;
}

RichiestaTermine RichiestaTermineDi(const TermineRicorrente& Termine, const QDate& Decorrenza)
{
    if (Termine.Regola)
        Rifiuta(u"%1 è una regola, non un termine da contare"_s.arg(Termine.Codice));
    RichiestaTermine Chiesto;
    Chiesto.Decorrenza = Decorrenza;
    Chiesto.Numero = Termine.Quantita;
    Chiesto.Tipo = Termine.Tipo;
    // Where no source says so the earlier date is taken, which harms nobody, and the road tells: no
    // suspension, a Saturday that stands forward and moves backward.
    Chiesto.Opzioni = {Termine.Sospeso.value_or(Termine.Antecedente), Termine.Libero,
                       Termine.Sabato.value_or(Termine.Antecedente), Termine.Antecedente};
    Chiesto.Materia = Termine.Materia;
    Chiesto.MaiSospeso = Termine.Sospeso && !*Termine.Sospeso;
    Chiesto.Norma = Termine.Articolo;
    Chiesto.SospensioneIgnota = !Termine.Sospeso;
    Chiesto.SabatoIgnoto = !Termine.Sabato;
    return Chiesto;
}

EsitoTermine ComputaRicorrente(const Norme& Insieme, const TermineRicorrente& Termine, const QDate& Evento,
                               const QString& Materia, const std::optional<QDate>& Inizio,
                               const std::optional<OpzioniTermine>& Scelte)
{
    RichiestaTermine Chiesto = RichiestaTermineDi(Termine, Evento);
    ControllaVigenza(Termine, Evento, Inizio);
    if (Scelte)
        Scegli(Chiesto, *Scelte);
    if (!Materia.isEmpty())
        Chiesto.Materia = Materia;
    EsitoTermine Esito = ComputaTermine(Insieme, Chiesto);
    Esito.Note = NoteVigenza(Termine, Evento, Inizio) + Esito.Note;
    return Esito;
}

QList<ScadenzaCatena> ComputaCatena(const Norme& Insieme, const CatenaTermini& Catena, const QDate& Evento,
                                    const QString& Materia, const std::optional<QDate>& Inizio)
{
    QList<ScadenzaCatena> Scadenze;
    QHash<QString, int> Giorni;  // of each link with what it adds to
    QHash<QString, QDate> Date;
    for (const AnelloCatena& Anello : Catena.Anelli) {
        const TermineRicorrente* Termine = TrovaTermine(Insieme, Anello.Termine);
        if (!Termine)
            throw Errore(errori::Indice);
        TermineRicorrente DaContare = *Termine;
        if (Anello.Inizio == InizioAnello::Aumento)
            DaContare.Quantita += Giorni.value(Anello.Da);
        const QDate Da = Anello.Inizio == InizioAnello::Scadenza ? Date.value(Anello.Da) : Evento;
        ScadenzaCatena Nuova{Termine, RichiestaTermineDi(DaContare, Da),
                             Anello.Inizio == InizioAnello::Scadenza ? Termine->Evento : Catena.Evento,
                             ComputaRicorrente(Insieme, DaContare, Da, Materia, Inizio)};
        Giorni[Anello.Termine] = DaContare.Quantita;
        Date[Anello.Termine] = Nuova.Esito.Scadenza;
        Scadenze.append(Nuova);
    }
    return Scadenze;
}
