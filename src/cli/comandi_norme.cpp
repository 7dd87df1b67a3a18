// The commands of calcanova-cli that follow norms: those that the program was built on, or the law in force.
#include "cli/comandi.h"
#include "cli/letture.h"
#include "cli/righecomandi.h"

#include "calculators/modContributo.h"
#include "calculators/modTerminiSeq.h"
#include "calculators/norme/contributovigente.h"
#include "calculators/norme/terminecontato.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/messaggi.h"
#include "platform/system/orologio.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimoIncremento = 9999;  // what the field of the form can hold
constexpr int MassimoRicorrenti = 9999;

QString ConNota(const QDate& Data, bool Spostata, const QString& Nota)
{
    return Giorno(Data) + (Spostata ? u" (%1)"_s.arg(Nota) : QString());
}

/// The number of units as the form's field would hold it.
QString LeggiIncremento(const QString& Valore)
{
    const double Quanti = NumeroOZero(u"numero"_s, Valore);
    if (Quanti != std::floor(Quanti) || Quanti < 0 || Quanti > MassimoIncremento)
        throw Errore(errori::Argomento,
                     u"numero: «%1»: va da 1 a %2"_s.arg(Valore.left(40)).arg(MassimoIncremento));
    return CStr(Quanti);
}

QDate LeggiGiorno(const QString& Nome, const QString& Valore)
{
    const auto Letto = LeggiData(Valore);
    if (!Letto)
        throw Errore(errori::Tipo, u"%1: «%2» non è una data"_s.arg(Nome, Valore.left(40)));
    return *Letto;
}

QJsonArray StradaJson(const Strada& Passi)
{
    QJsonArray Tutti;
    for (const PassoStrada& Passo : Passi)
        Tutti.append(QJsonObject{{u"da"_s, Giorno(Passo.Da)},
                                 {u"a"_s, Giorno(Passo.A)},
                                 {u"giorni"_s, Passo.Giorni},
                                 {u"passo"_s, NomePasso(Passo.Genere)},
                                 {u"nota"_s, Passo.Nota},
                                 {u"norma"_s, Passo.Norma},
                                 {u"riscontrato"_s, !Passo.NonRiscontrato}});
    return Tutti;
}

/// What --spiega adds to a record, and the notes of the law in force, which always stand there.
void Spiega(QJsonObject& Record, const EsitoTermine& Esito, const NormeChieste& Scelta)
{
    if (Scelta.Spiega)
        Record[u"strada"_s] = StradaJson(Esito.Passi);
    if (Scelta.Spiega || Scelta.Insieme == InsiemeNorme::Vigenti)
        Record[u"note"_s] = QJsonArray::fromStringList(Esito.Note);
}

/// Notes on a result by the law in force are told beside an answer of one line.
void Avverti(const QStringList& Note, const NormeChieste& Scelta)
{
    if (Scelta.Insieme == InsiemeNorme::Vigenti && Scelta.NoteAParte && !Note.isEmpty())
        MsgBox(Note.join(u'\n'), vbInformation);
}

/// The answer with its reasons below it: road, then notes.
QString Spiegato(const QString& Testo, const EsitoTermine& Esito, const NormeChieste& Scelta)
{
    return Scelta.Spiega ? (QStringList{Testo, TestoStrada(Esito.Passi)} + Esito.Note).join(u'\n') : Testo;
}

QString NotaDi(const OpzioniTermine& Opzioni)
{
    return Opzioni.Antecedente ? u"Anticipata"_s : u"Posticipata"_s;
}

void Segna(const NormeChieste& Scelta, const QList<VoceAgenda>& Voci)
{
    if (Scelta.Ics.isEmpty())
        return;
    ControllaUscita(ConEstensioneIcs(Scelta.Ics));
    (void)SalvaIcs(Scelta.Ics, Voci);
}

DatiTermine LeggiDatiTermine(const QStringList& Valori)
{
    DatiTermine Dati;
    Dati.Decorrenza = Valori[0];
    Dati.Numero = LeggiIncremento(Valori[1]);
    Dati.Tipo = LeggiParola(u"tipo"_s, Valori[2], {u"giorni"_s, u"mesi"_s, u"anni"_s});
    Dati.Opzioni.Sospensione = LeggiBit(u"sospensione"_s, Valori.value(3), true);
    Dati.Opzioni.Libero = LeggiBit(u"libero"_s, Valori.value(4));
    Dati.Opzioni.Sabato = LeggiBit(u"sabato"_s, Valori.value(5));
    const QString Verso = Valori.value(6);
    Dati.Opzioni.Antecedente =
        !Verso.isEmpty() && LeggiParola(u"verso"_s, Verso, {u"successiva"_s, u"antecedente"_s}) == 1;
    return Dati;
}

/// A matter that the suspension spares means something to the law in force alone.
QString LeggiMateria(const QStringList& Valori, int Posto, InsiemeNorme Insieme)
{
    QString Materia = Valori.value(Posto).trimmed();
    if (!Materia.isEmpty() && Insieme == InsiemeNorme::Programma)
        throw Errore(errori::Argomento, u"materia: vale solo con --norme vigenti"_s);
    return Materia;
}

/// One date of a list of them.
struct DataTrovata
{
    QString Voce;  ///< the term it belongs to
    TermineContato Contato;
};

/// The answer of a chain: dates in one line, with --spiega a paragraph for each.
Risposta RispostaDate(const QList<DataTrovata>& Date, const QString& Nota, const NormeChieste& Scelta)
{
    QStringList Testi;
    QStringList Paragrafi;
    QJsonArray Termini;
    QList<VoceAgenda> Voci;
    QStringList Note;
    for (const DataTrovata& Trovata : Date) {
        const EsitoTermine& Esito = Trovata.Contato.Esito;
        const QString Testo = ConNota(Esito.Scadenza, Esito.Spostata, Nota);
        Testi << Testo;
        Paragrafi << Spiegato(Trovata.Voce + u": "_s + Testo, Esito, Scelta);
        QJsonObject Record{{u"scadenza"_s, Giorno(Esito.Scadenza)}, {u"spostata"_s, Esito.Spostata}};
        if (Scelta.Insieme == InsiemeNorme::Vigenti)
            Record[u"voce"_s] = Trovata.Voce;
        Spiega(Record, Esito, Scelta);
        Termini.append(Record);
        Voci << AgendaDi(Trovata.Contato, Scelta.Insieme);
        Note << Esito.Note;
    }
    Note.removeDuplicates();
    Avverti(Note, Scelta);
    Segna(Scelta, Voci);
    return {
        Scelta.Spiega ? Paragrafi.join(u"\n\n"_s) : Testi.join(u"; "_s), {{u"termini"_s, Termini}}, false};
}

QList<DataTrovata> DateDiCatena(const Norme& Insieme, const CatenaTermini& Catena, const QDate& Evento,
                                const QString& Materia = {}, const std::optional<QDate>& Inizio = {})
{
    QList<DataTrovata> Date;
    for (const TermineContato& Contato :
         ContaCatena(InsiemeNorme::Vigenti, Insieme, Catena, Evento, Materia, Inizio))
        Date.append({Contato.Codice, Contato});
    return Date;
}

/// Terms of the program's own chain, each with its road.
QList<DataTrovata> DateDelProgramma(const QDate& Udienza, int Articolo, const OpzioniTermine& Opzioni)
{
    QList<DataTrovata> Date;
    RichiestaTermine Chiesto;
    Chiesto.Decorrenza = Udienza;
    Chiesto.Opzioni = Opzioni;
    for (const Anello& Termine : Articoli()[size_t(Articolo)].Catena) {
        Chiesto.Numero = Termine.Giorni;
        TermineContato Nuovo = ContatoDi(Chiesto, ComputaTermine(InsiemeNorme::Programma, Chiesto));
        const QString Voce = Termine.Didascalia.trimmed().chopped(1).toString();
        Nuovo.Atto = Voce;
        Nuovo.Articolo = u"art. %1 c.p.c."_s.arg(Articoli()[size_t(Articolo)].Numero);
        Nuovo.Codice = Nuovo.Articolo + u' ' + Voce;
        Nuovo.Origine = Udienza;
        Chiesto.Decorrenza = Nuovo.Esito.Scadenza;
        Date.append({Voce, Nuovo});
    }
    return Date;
}

QString RigaTermine(const TermineRicorrente& Termine)
{
    return QStringList{Termine.Codice, Termine.Articolo,       Termine.Rito, Termine.Atto,
                       Termine.Evento, MisuraTermine(Termine), Termine.Nota, TestoVigenza(Termine.Quando)}
        .join(u'|');
}

// ---- filing fee -----------------------------------------------------------------------------------

/// A table of the page as the law knows it, or a code of the law's own.
QString CodiceProcedimento(const Norme& Insieme, const QString& Scritto)
{
    QString Testo = Scritto.trimmed().toLower();
    if (Testo.isEmpty() || Testo == u"ordinario" || Testo == u"ridotto")
        return u"civile"_s;
    QStringList Codici{u"ordinario"_s, u"ridotto"_s};
    for (const ProcedimentoContributo& Uno : ProcedimentiContributo(Insieme))
        Codici << Uno.Codice;
    (void)LeggiParola(u"tabella"_s, Scritto, Codici);
    return Testo;
}

/// What the law makes of a fee besides its kind, by the words of a call.
struct VarianteContributo
{
    QStringView Parola;
    bool RichiestaContributo::*Segno;
    bool Valore = true;
};

constexpr std::array VariantiContributo{
    VarianteContributo{u"ridotto", &RichiestaContributo::Dimezzato},
    VarianteContributo{u"imprese", &RichiestaContributo::Imprese},
    VarianteContributo{u"dati", &RichiestaContributo::OmessiDati},
    VarianteContributo{u"respinta", &RichiestaContributo::Respinta},
    VarianteContributo{u"lavoro", &RichiestaContributo::Lavoro},
    VarianteContributo{u"senza-notifiche", &RichiestaContributo::Notifiche, false},
};

/// Words joined by commas, in any order.
void SegnaVarianti(RichiestaContributo& Chiesto, const QString& Scritte)
{
    QStringList Parole;
    for (const VarianteContributo& Una : VariantiContributo)
        Parole << Una.Parola.toString();
    for (const QString& Scritta : Scritte.split(u',', Qt::SkipEmptyParts)) {
        const auto& [Parola, Segno, Valore] =
            VariantiContributo[size_t(LeggiParola(u"varianti"_s, Scritta, Parole))];
        Chiesto.*Segno = Valore;
    }
}

RichiestaContributo LeggiContributo(const Norme& Insieme, const QStringList& Valori)
{
    RichiestaContributo Chiesto;
    if (!Valori[0].trimmed().isEmpty())
        Chiesto.ValoreEuro = Numero(u"valore"_s, Valori[0]);
    Chiesto.Procedimento = CodiceProcedimento(Insieme, Valori.value(1));
    Chiesto.Dimezzato = Valori.value(1).trimmed().compare(u"ridotto", Qt::CaseInsensitive) == 0;
    Chiesto.Deposito = Valori.value(2).trimmed().isEmpty() ? Oggi() : LeggiGiorno(u"deposito"_s, Valori[2]);
    if (!Valori.value(3).trimmed().isEmpty())
        Chiesto.Grado = GradoGiudizio(
            LeggiParola(u"grado"_s, Valori[3], {u"primo"_s, u"impugnazione"_s, u"cassazione"_s}));
    SegnaVarianti(Chiesto, Valori.value(4));
    if (const QString Quanti = Valori.value(5).trimmed(); !Quanti.isEmpty()) {
        const double Letti = Numero(u"ricorrenti"_s, Quanti);
        if (Letti != std::floor(Letti) || Letti < 1 || Letti > MassimoRicorrenti)
            throw Errore(errori::Argomento,
                         u"ricorrenti: «%1»: va da 1 a %2"_s.arg(Quanti.left(40)).arg(MassimoRicorrenti));
        Chiesto.Ricorrenti = int(Letti);
    }
    return Chiesto;
}

Risposta ContributoDiLegge(const QStringList& Valori, const NormeChieste& Scelta)
{
    const auto Insieme = NormeVigenti();
    const EsitoContributo Esito = ContributoVigente(*Insieme, LeggiContributo(*Insieme, Valori));
    QStringList Righe{Format(Esito.ContributoEuro, ModelloImporto)};
    QJsonArray Passi;
    for (const PassoContributo& Passo : Esito.Passi) {
        Righe << QStringList{Passo.Testo, Format(Passo.Euro, ModelloImporto), Passo.Norma, Passo.Nota}.join(
            u'\t');
        Passi.append(QJsonObject{{u"testo"_s, Passo.Testo},
                                 {u"euro"_s, Passo.Euro},
                                 {u"norma"_s, Passo.Norma},
                                 {u"nota"_s, Passo.Nota},
                                 {u"riscontrato"_s, !Passo.NonRiscontrato}});
    }
    QJsonObject Record{{u"contributo"_s, Esito.ContributoEuro},
                       {u"aggiunte"_s, Esito.AggiunteEuro},
                       {u"totale"_s, Esito.TotaleEuro()},
                       {u"note"_s, QJsonArray::fromStringList(Esito.Note)}};
    if (Esito.MinimoEuro)
        Record[u"minimo"_s] = *Esito.MinimoEuro;
    Avverti(Esito.Note, Scelta);
    if (!Scelta.Spiega)
        return {Righe.first(), Record, false};
    Record[u"passi"_s] = Passi;
    if (Esito.AggiunteEuro > 0)
        Righe << QStringList{u"In tutto"_s, Format(Esito.TotaleEuro(), ModelloImporto), {}, {}}.join(u'\t');
    if (Esito.MinimoEuro)
        Righe << QStringList{
            u"Almeno, per l'iscrizione a ruolo"_s,
            Format(*Esito.MinimoEuro, ModelloImporto),
            Esito.NormaMinimo,
            {}}.join(u'\t');
    return {(Righe + Esito.Note).join(u'\n'), Record, false};
}

// ---- commands ---------------------------------------------------------------------------------------

Risposta ComandoTermini(const QStringList& Valori, const NormeChieste& Scelta)
{
    DatiTermine Dati = LeggiDatiTermine(Valori);
    // The law moves a backward term off a Saturday too; the program's rule does not.
    if (Scelta.Insieme == InsiemeNorme::Programma)
        (void)TogliSabatoARitroso(Dati.Opzioni);
    RifiutaMancanza(DifettoTermine(Dati));
    RichiestaTermine Chiesto;
    Chiesto.Decorrenza = CDate(SenzaSecolo(Dati.Decorrenza));
    Chiesto.Numero = CInt(Dati.Numero);
    Chiesto.Tipo = Dati.Tipo;
    Chiesto.Opzioni = Dati.Opzioni;
    Chiesto.Materia = LeggiMateria(Valori, 7, Scelta.Insieme);

    const EsitoTermine Esito = ComputaTermine(Scelta.Insieme, Chiesto);
    Segna(Scelta, {AgendaDi(ContatoDi(Chiesto, Esito), Scelta.Insieme)});
    QJsonObject Record{{u"scadenza"_s, Giorno(Esito.Scadenza)}, {u"spostata"_s, Esito.Spostata}};
    Spiega(Record, Esito, Scelta);
    Avverti(Esito.Note, Scelta);
    return {Spiegato(ConNota(Esito.Scadenza, Esito.Spostata, NotaDi(Dati.Opzioni)), Esito, Scelta), Record,
            false};
}

Risposta ComandoSequenziali(const QStringList& Valori, const NormeChieste& Scelta)
{
    OpzioniTermine Opzioni;
    const int Articolo = LeggiParola(u"articolo"_s, Valori[1], {u"183"_s, u"190"_s});
    Opzioni.Sospensione = LeggiBit(u"sospensione"_s, Valori.value(2), true);
    Opzioni.Sabato = LeggiBit(u"sabato"_s, Valori.value(3));
    RifiutaMancanza(DifettoUdienza(Valori[0]));
    if (Scelta.Insieme == InsiemeNorme::Programma)
        return RispostaDate(DateDelProgramma(CDate(SenzaSecolo(Valori[0])), Articolo, Opzioni),
                            u"Posticipato"_s, Scelta);
    if (Valori.size() > 2)
        throw Errore(errori::Argomento, u"sospensione e sabato: con --norme vigenti li dice la legge"_s);
    const auto Insieme = NormeVigenti();
    const CatenaTermini* Catena = TrovaCatena(*Insieme, Articolo == 0 ? u"CPC-183" : u"CPC-190");
    if (!Catena)
        throw Errore(errori::Indice);
    return RispostaDate(DateDiCatena(*Insieme, *Catena, CDate(SenzaSecolo(Valori[0]))), u"Posticipato"_s,
                        Scelta);
}

/// The catalogue of recurring terms and of their chains: all rows, or those with the words of a text.
Risposta ComandoRicorrenti(const QStringList& Valori)
{
    const auto Insieme = NormeVigenti();
    const QList<const TermineRicorrente*> Trovati = CercaTermini(*Insieme, Valori.value(0));
    QStringList Righe;
    QJsonArray Termini;
    for (const TermineRicorrente* Termine : Trovati) {
        Righe << RigaTermine(*Termine);
        Termini.append(QJsonObject{{u"codice"_s, Termine->Codice},
                                   {u"articolo"_s, Termine->Articolo},
                                   {u"rito"_s, Termine->Rito},
                                   {u"atto"_s, Termine->Atto},
                                   {u"evento"_s, Termine->Evento},
                                   {u"misura"_s, MisuraTermine(*Termine)},
                                   {u"nota"_s, Termine->Nota},
                                   {u"vigenza"_s, TestoVigenza(Termine->Quando)}});
    }
    QJsonArray Catene;
    for (const CatenaTermini& Catena : Insieme->Catene()) {
        QStringList Codici;
        bool Risponde = false;
        for (const AnelloCatena& Anello : Catena.Anelli) {
            Codici << Anello.Termine;
            Risponde = Risponde || std::ranges::find(Trovati, Anello.Termine, &TermineRicorrente::Codice) !=
                                       Trovati.end();
        }
        if (!Risponde)
            continue;
        Righe << QStringList{Catena.Codice, Catena.Titolo, Catena.Evento, Codici.join(u", "_s)}.join(u'|');
        Catene.append(QJsonObject{{u"codice"_s, Catena.Codice},
                                  {u"titolo"_s, Catena.Titolo},
                                  {u"evento"_s, Catena.Evento},
                                  {u"termini"_s, QJsonArray::fromStringList(Codici)}});
    }
    Righe << u"%1 di %2"_s.arg(Trovati.size()).arg(Insieme->Termini().size());
    return {Righe.join(u'\n'), {{u"termini"_s, Termini}, {u"catene"_s, Catene}}, false};
}

/// A term of the catalogue or a chain of them, from the day of its event; always by the law in force.
Risposta ComandoScadenza(const QStringList& Valori, const NormeChieste& Scelta)
{
    const auto Insieme = NormeVigenti();
    const NormeChieste DiLegge{InsiemeNorme::Vigenti, Scelta.Spiega, Scelta.Ics, Scelta.NoteAParte};
    const QDate Evento = LeggiGiorno(u"evento"_s, Valori[1]);
    const QString Materia = Valori.value(2).trimmed();
    const QString Inizio = Valori.value(3).trimmed();
    const auto Cominciato = Inizio.isEmpty() ? std::nullopt : std::optional(LeggiGiorno(u"inizio"_s, Inizio));
    const QString Codice = Valori[0].trimmed();
    if (const CatenaTermini* Catena = TrovaCatena(*Insieme, Codice))
        return RispostaDate(DateDiCatena(*Insieme, *Catena, Evento, Materia, Cominciato), u"Spostata"_s,
                            DiLegge);
    const TermineRicorrente* Termine = TrovaTermine(*Insieme, Codice);
    if (!Termine)
        throw Errore(errori::Argomento, u"codice: «%1» non è nel catalogo"_s.arg(Codice.left(40)));
    TermineContato Trovato = ContatoDi(*Termine);
    Trovato.Decorrenza = Evento;
    Trovato.Esito = ComputaRicorrente(*Insieme, *Termine, Evento, Materia, Cominciato);
    return RispostaDate({{Termine->Codice, Trovato}}, u"Spostata"_s, DiLegge);
}

void SoloNormeVigenti(const RigaComando& Chiamata)
{
    if (Chiamata.Di(Opzione::Norme) == u"programma")
        throw ErroreUso{u"Il comando %1 segue soltanto le norme vigenti"_s.arg(Chiamata.Comando)};
}

}  // namespace

Risposta ComandoContributo(const QStringList& Valori, const NormeChieste& Scelta)
{
    if (Scelta.Insieme == InsiemeNorme::Vigenti)
        return ContributoDiLegge(Valori, Scelta);
    if (Valori.size() > 2 || Scelta.Spiega)
        throw Errore(errori::Argomento,
                     u"deposito, grado, varianti e spiegazione valgono solo con --norme vigenti"_s);
    constexpr std::array Tabelle{TabellaContributo::Ordinaria, TabellaContributo::Dimezzata,
                                 TabellaContributo::Tributaria};
    const double Valore = Numero(u"valore"_s, Valori[0]);
    const int Tabella = LeggiParola(u"tabella"_s, Valori.value(1, u"ordinario"_s),
                                    {u"ordinario"_s, u"ridotto"_s, u"tributario"_s});
    const double Dovuto = Contributo(Valore, Tabelle[size_t(Tabella)]);
    return {Format(Dovuto, ModelloImporto), {{u"contributo"_s, Dovuto}}, false};
}

std::span<const ComandoCli> ComandiTermini()
{
    using enum Opzione;
    static const std::array Tabella{
        ComandoCli{u"termini",
                   u"DECORRENZA NUMERO TIPO [SOSPENSIONE [LIBERO [SABATO [VERSO [MATERIA]]]]]",
                   3,
                   8,
                   PerNorme<ComandoTermini>,
                   {Norme, Spiega, Ics}},
        ComandoCli{u"sequenziali",
                   u"UDIENZA ARTICOLO [SOSPENSIONE [SABATO]]",
                   2,
                   4,
                   PerNorme<ComandoSequenziali>,
                   {Norme, Spiega, Ics}},
        ComandoCli{u"ricorrenti", u"[TESTO]", 0, 1, DaSolo<ComandoRicorrenti>},
        ComandoCli{.Nome = u"scadenza",
                   .Valori = u"CODICE EVENTO [MATERIA [INIZIO]]",
                   .Minimo = 2,
                   .Massimo = 4,
                   .Esegui = PerNorme<ComandoScadenza>,
                   .Opzioni = {Norme, Spiega, Ics},
                   .Rifiuta = SoloNormeVigenti},
    };
    return Tabella;
}
