#include "calculators/norme/terminecontato.h"

#include "core/modTesti.h"
#include "platform/base/errore.h"
#include "platform/base/nomidate.h"
#include "platform/base/regionale.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

QString Spostamento(const TermineContato& Termine)
{
    if (!Termine.Esito.Spostata)
        return {};
    return Termine.Antecedente ? u"Anticipata"_s : u"Posticipata"_s;
}

QString TraParentesi(const QString& Testo)
{
    return Testo.isEmpty() ? QString() : u" ("_s + Testo + u')';
}

QString RigaDecorrenza(const TermineContato& Termine)
{
    return u"Decorrenza: "_s + Format(Termine.Decorrenza, ModelloData) + TraParentesi(Termine.Evento);
}

TermineContato Contato(const TermineRicorrente& Termine, const QDate& Da, const EsitoTermine& Esito)
{
    TermineContato Nuovo = ContatoDi(Termine);
    Nuovo.Decorrenza = Da;
    Nuovo.Esito = Esito;
    return Nuovo;
}

/// The links of a chain by the program's own rules, as ComputaCatena has them by those in force.
QList<TermineContato> CatenaDelProgramma(const Norme& DiLegge, const CatenaTermini& Catena,
                                         const QDate& Evento)
{
    QHash<QString, TermineContato> Fatti;
    QHash<QString, int> Giorni;
    QList<TermineContato> Tutti;
    for (const AnelloCatena& Anello : Catena.Anelli) {
        const TermineRicorrente* Termine = TrovaTermine(DiLegge, Anello.Termine);
        if (!Termine)
            throw Errore(errori::Indice);
        const QDate Da =
            Anello.Inizio == InizioAnello::Scadenza ? Fatti.value(Anello.Da).Esito.Scadenza : Evento;
        RichiestaTermine Chiesto = RichiestaTermineDi(*Termine, Da);
        if (Anello.Inizio == InizioAnello::Aumento)
            Chiesto.Numero += Giorni.value(Anello.Da);
        // These rules move no backward term off a Saturday.
        Chiesto.Opzioni.Sabato = Chiesto.Opzioni.Sabato && !Chiesto.Opzioni.Antecedente;
        Giorni[Anello.Termine] = Chiesto.Numero;
        Fatti[Anello.Termine] = Contato(*Termine, Da, ComputaTermine(InsiemeNorme::Programma, Chiesto));
        Fatti[Anello.Termine].Misura = MisuraRichiesta(Chiesto);
        Fatti[Anello.Termine].Origine = Evento;
        if (Anello.Inizio != InizioAnello::Scadenza)
            Fatti[Anello.Termine].Evento = Catena.Evento;
        Tutti << Fatti[Anello.Termine];
    }
    return Tutti;
}

}  // namespace

QList<TermineContato> ContaCatena(InsiemeNorme Insieme, const Norme& DiLegge, const CatenaTermini& Catena,
                                  const QDate& Evento, const QString& Materia,
                                  const std::optional<QDate>& Inizio)
{
    if (Insieme == InsiemeNorme::Programma)
        return CatenaDelProgramma(DiLegge, Catena, Evento);
    QList<TermineContato> Tutti;
    for (const ScadenzaCatena& Una : ComputaCatena(DiLegge, Catena, Evento, Materia, Inizio)) {
        TermineContato Nuovo = Contato(*Una.Termine, Una.Richiesta.Decorrenza, Una.Esito);
        Nuovo.Misura = MisuraRichiesta(Una.Richiesta);
        Nuovo.Evento = Una.Evento;
        Nuovo.Origine = Evento;
        Tutti << Nuovo;
    }
    return Tutti;
}

TermineContato ContatoDi(const TermineRicorrente& Termine)
{
    TermineContato Contato;
    Contato.Atto = Termine.Atto;
    Contato.Articolo = Termine.Articolo;
    Contato.Evento = Termine.Evento;
    Contato.Misura = MisuraTermine(Termine);
    Contato.Codice = Termine.Codice;
    Contato.Antecedente = Termine.Antecedente;
    return Contato;
}

TermineContato ContatoDi(const RichiestaTermine& Richiesta, const EsitoTermine& Esito, TermineContato Da)
{
    Da.Misura = MisuraRichiesta(Richiesta);
    Da.Decorrenza = Richiesta.Decorrenza;
    Da.Antecedente = Richiesta.Opzioni.Antecedente;
    Da.Esito = Esito;
    return Da;
}

QString MisuraRichiesta(const RichiestaTermine& Richiesta)
{
    TermineRicorrente Termine;
    Termine.Quantita = Richiesta.Numero;
    Termine.Tipo = Richiesta.Tipo;
    Termine.Libero = Richiesta.Opzioni.Libero;
    Termine.Antecedente = Richiesta.Opzioni.Antecedente;
    return MisuraTermine(Termine);
}

QString NomeTermine(const TermineContato& Termine)
{
    if (Termine.Atto.isEmpty())
        return u"Termine di "_s + Termine.Misura;
    QString Nome = Termine.Atto;
    Nome.front() = Nome.front().toUpper();
    return Nome + TraParentesi(Termine.Articolo);
}

VoceAgenda AgendaDi(const TermineContato& Termine, InsiemeNorme Insieme, const QString& Pratica)
{
    VoceAgenda Voce;
    Voce.Giorno = Termine.Esito.Scadenza;
    Voce.Atto = NomeTermine(Termine);
    Voce.Pratica = Pratica;
    Voce.Note = {RigaDecorrenza(Termine), u"Termine: "_s + Termine.Misura};
    if (const QString Mosso = Spostamento(Termine); !Mosso.isEmpty())
        Voce.Note << Mosso;
    Voce.Note << RigaNorme(Insieme) << Termine.Esito.Note;
    // By what it runs from and how long, not by the rules that it was reckoned with.
    Voce.Chiave = (Termine.Codice.isEmpty() ? Termine.Misura : Termine.Codice) + u' ' +
                  (Termine.Origine.isValid() ? Termine.Origine : Termine.Decorrenza).toString(Qt::ISODate);
    return Voce;
}

QString TestoScadenza(const TermineContato& Termine)
{
    return DataLunga(Termine.Esito.Scadenza).simplified() + TraParentesi(Spostamento(Termine));
}

QString RigaScadenza(const TermineContato& Termine)
{
    const QDate& Giorno = Termine.Esito.Scadenza;
    constexpr qsizetype Lettere = 3;
    return NomeGiorno(Giorno.dayOfWeek()).left(Lettere).toLower() + u' ' + Format(Giorno, ModelloData) +
           u": "_s + NomeTermine(Termine) + TraParentesi(Spostamento(Termine));
}

ParteStrada ParteDi(const TermineContato& Termine)
{
    return {NomeTermine(Termine), u"Scadenza: "_s + TestoScadenza(Termine), Termine.Esito.Passi,
            Termine.Esito.Note};
}

QString RigaNorme(InsiemeNorme Insieme)
{
    return u"Norme: "_s + VociNorme[size_t(Insieme)].toString();
}
