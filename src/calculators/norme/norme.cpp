#include "calculators/norme/norme.h"

#include "calculators/norme/contributovigente.h"
#include "calculators/norme/pasqua.h"
#include "calculators/norme/regolenorme.h"
#include "calculators/norme/righenorme.h"
#include "calculators/norme/terminiricorrenti.h"
#include "core/modTesti.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView NomeNorme = u"Norme.mdb";

/// The tables in the order of the seal.
constexpr std::array<QStringView, 8> OrdineTabelle{u"Sospensioni", u"Feste",  u"Materie",    u"Regole",
                                                   u"Termini",     u"Catene", u"Contributi", u"Avvisi"};

constexpr int MassimaQuantita = 999;
constexpr double MassimoFattore = 10.0;

bool Riscontrata(const RigheNorme& Riga, bool AncheAMemoria)
{
    QStringList Parole{u"due"_s, u"una"_s};
    if (AncheAMemoria)
        Parole << u"memoria"_s;
    return Riga.Parola(u"Riscontro"_s, Parole) != 2;
}

template <class Riga>
QList<Riga> LeggiTutte(const Database& Db, const QString& Tabella, Riga (*Leggi)(const RigheNorme&))
{
    QList<Riga> Lette;
    for (RigheNorme Righe(Db, Tabella); !Righe.Finite(); Righe.Avanti())
        Lette.append(Leggi(Righe));
    return Lette;
}

NormaSospensione LeggiSospensione(const RigheNorme& Riga)
{
    (void)Riscontrata(Riga, false);
    NormaSospensione Letta{Riga.Periodo(), Riga.Giorno(u"Primo"_s), Riga.Giorno(u"Ultimo"_s),
                           Riga.Testo(u"Norma"_s)};
    if (!Letta.Quando.Dal.isValid())
        Riga.Rifiuta(u"Dal"_s, u"manca"_s);
    if (Letta.Ultimo.Mese * 100 + Letta.Ultimo.Giorno < Letta.Primo.Mese * 100 + Letta.Primo.Giorno)
        Riga.Rifiuta(u"Ultimo"_s, u"la sospensione finisce prima di cominciare"_s);
    return Letta;
}

NormaFesta LeggiFesta(const RigheNorme& Riga)
{
    const bool Mobile = Riga.Testo(u"Giorno"_s) == u"pasquetta";
    NormaFesta Letta{Riga.Testo(u"Nome"_s), Mobile ? GiornoDellAnno() : Riga.Giorno(u"Giorno"_s),
                     Riga.Periodo(), Riga.Testo(u"Norma"_s), Riscontrata(Riga, true)};
    if (!Letta.Quando.Dal.isValid())
        Riga.Rifiuta(u"Dal"_s, u"manca"_s);
    return Letta;
}

NormaMateria LeggiMateria(const RigheNorme& Riga)
{
    (void)Riscontrata(Riga, false);
    return {Riga.Testo(u"Codice"_s), Riga.Testo(u"Materia"_s), Riga.Periodo(), Riga.Testo(u"Norma"_s)};
}

NormaRegola LeggiRegola(const RigheNorme& Riga)
{
    return {Riga.Testo(u"Codice"_s), Riga.Periodo(), Riga.Testo(u"Norma"_s), Riscontrata(Riga, true)};
}

NormaAvviso LeggiAvviso(const RigheNorme& Riga)
{
    const QString Ambito = Riga.Testo(u"Ambito"_s);
    (void)Riga.Parola(u"Ambito"_s, {AmbitoTermini.toString(), AmbitoContributo.toString()});
    return {Ambito, Riga.Periodo(), Riga.Testo(u"Testo"_s)};
}

TermineRicorrente LeggiTermine(const RigheNorme& Riga)
{
    (void)Riscontrata(Riga, false);
    constexpr int PostoRegola = 3;
    TermineRicorrente Letto;
    Letto.Codice = Riga.Testo(u"Codice"_s);
    Letto.Articolo = Riga.Testo(u"Articolo"_s);
    Letto.Rito = Riga.Testo(u"Rito"_s);
    Letto.Atto = Riga.Testo(u"Atto"_s);
    const int Unita = Riga.Parola(u"Unita"_s, {u"giorni"_s, u"mesi"_s, u"anni"_s, u"regola"_s});
    Letto.Regola = Unita == PostoRegola;
    Letto.Evento = Riga.Testo(u"Evento"_s, Letto.Regola);
    if (!Letto.Regola) {
        Letto.Tipo = Unita;
        Letto.Quantita = Riga.Intero(u"Quantita"_s, 1, MassimaQuantita);
        Letto.Antecedente = Riga.Parola(u"Verso"_s, {u"avanti"_s, u"a ritroso"_s}) == 1;
    }
    Letto.Libero = Riga.SiNo(u"Libero"_s);
    Letto.Sospeso = Riga.SiNoOVuoto(u"Sospeso"_s);
    Letto.Materia = Riga.Testo(u"Materia"_s, true);
    if (!Letto.Materia.isEmpty() && Letto.Sospeso.value_or(true))
        Riga.Rifiuta(u"Materia"_s, u"non va con un termine sospeso"_s);
    Letto.Sabato = Riga.SiNoOVuoto(u"Sabato"_s);
    Letto.Misura = Riga.Parola(u"Misura"_s, {u"evento"_s, u"procedimento"_s}) == 0
                       ? MisuraVigenza::Evento
                       : MisuraVigenza::Procedimento;
    Letto.Quando = Riga.Periodo();
    Letto.Nota = Riga.Testo(u"Nota"_s, true);
    return Letto;
}

/// The rows of a chain stand one below the other.
QList<CatenaTermini> LeggiCatene(const Database& Db)
{
    QList<CatenaTermini> Lette;
    for (RigheNorme Riga(Db, u"Catene"_s); !Riga.Finite(); Riga.Avanti()) {
        const QString Codice = Riga.Testo(u"Catena"_s);
        if (Lette.isEmpty() || Lette.last().Codice != Codice)
            Lette.append({Codice, Riga.Testo(u"Titolo"_s), Riga.Testo(u"Evento"_s), {}});
        CatenaTermini& Catena = Lette.last();
        const int Posto = int(Catena.Anelli.size()) + 1;
        (void)Riga.Intero(u"Posto"_s, Posto, Posto);
        AnelloCatena Nuovo{Riga.Testo(u"Termine"_s), InizioAnello::Evento, Riga.Testo(u"Da"_s, true)};
        Nuovo.Inizio = InizioAnello(Riga.Parola(u"Inizio"_s, {u"evento"_s, u"scadenza"_s, u"aumento"_s}));
        if ((Nuovo.Inizio == InizioAnello::Evento) != Nuovo.Da.isEmpty())
            Riga.Rifiuta(u"Da"_s, u"non va con l'inizio"_s);
        if (!Nuovo.Da.isEmpty() &&
            std::ranges::find(Catena.Anelli, Nuovo.Da, &AnelloCatena::Termine) == Catena.Anelli.end())
            Riga.Rifiuta(u"Da"_s, u"nessun termine prima di questo ha quel codice"_s);
        Catena.Anelli.append(Nuovo);
    }
    return Lette;
}

VoceContributo LeggiContributo(const RigheNorme& Riga)
{
    (void)Riscontrata(Riga, false);
    VoceContributo Letta;
    Letta.Codice = Riga.Testo(u"Codice"_s);
    Letta.Categoria = Riga.Testo(u"Categoria"_s);
    Letta.Genere = GenereContributo(
        Riga.Parola(u"Genere"_s, {u"scaglione"_s, u"fisso"_s, u"moltiplica"_s, u"aggiunge"_s, u"minimo"_s}));
    Letta.DaEuro = Riga.ImportoOVuoto(u"Da"_s);
    Letta.AEuro = Riga.ImportoOVuoto(u"A"_s);
    if ((Letta.Genere == GenereContributo::Scaglione) != Letta.DaEuro.has_value())
        Riga.Rifiuta(u"Da"_s, u"non va con il genere"_s);
    if (Letta.AEuro && (!Letta.DaEuro || *Letta.AEuro < *Letta.DaEuro))
        Riga.Rifiuta(u"A"_s, u"lo scaglione finisce prima di cominciare"_s);
    Letta.Valore = Riga.Importo(u"Valore"_s);
    if (Letta.Genere == GenereContributo::Moltiplica && !(Letta.Valore > 0 && Letta.Valore <= MassimoFattore))
        Riga.Rifiuta(u"Valore"_s, u"non è un fattore"_s);
    Letta.Quando = Riga.Periodo();
    Letta.Processo = ProcessoContributo(
        Riga.Parola(u"Processo"_s, {u"civile"_s, u"amministrativo"_s, u"tributario"_s, u"altro"_s}));
    Letta.ConGradi = Riga.SiNo(u"Gradi"_s);
    Letta.ConNotifiche = Riga.SiNo(u"Notifiche"_s);
    Letta.PerCiascuno = Riga.SiNo(u"Ciascuno"_s);
    Letta.Norma = Riga.Testo(u"Norma"_s);
    Letta.Nota = Riga.Testo(u"Nota"_s, true);
    return Letta;
}

QString CellaComeTesto(const QVariant& Valore)
{
    if (!Valore.isValid())
        return u"-"_s;
    if (Valore.typeId() == QMetaType::QDate)
        return Valore.toDate().toString(Qt::ISODate);
    if (ENumero(Valore))
        return QString::number(Valore.toDouble(), 'g', 17);
    return u"'"_s + Valore.toString();
}

QDate LeggiNoteFinoAl(const Database& Db)
{
    const auto Letta = LeggiData(Db.Annotazioni().value(NomeNoteFinoAl.toString()));
    if (!Letta)
        throw Errore(errori::Argomento, u"manca il giorno fino al quale le norme sono note"_s);
    return *Letta;
}

[[noreturn]] void RifiutaFile(const QString& Motivo)
{
    throw Errore(errori::Argomento,
                 u"%1: %2; le norme in vigore non si possono usare"_s.arg(NomeNorme, Motivo));
}

struct NormeLette
{
    QString Percorso;
    QDateTime Quando;
    qint64 Byte = -1;
    std::shared_ptr<const Norme> Lette;
};

}  // namespace

Norme::~Norme() = default;

Norme::Norme(const QString& Percorso)
{
    if (!EsisteFile(Percorso))
        RifiutaFile(u"il file manca nella cartella del programma"_s);
    try {
        const Database Db = OpenDatabase(Percorso, true);
        Al = LeggiNoteFinoAl(Db);
        Leggi(Db);
        ControllaNorme(*this);
        if (Db.Annotazioni().value(NomeSigillo.toString()) != SigilloNorme(Db))
            throw Errore(errori::Argomento, u"il contenuto non è quello consegnato"_s);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (...) {
        // What broke a rule may be named, and the name is the damaged file's.
        constexpr qsizetype MassimoMotivo = 300;
        RifiutaFile(u"il file è danneggiato o modificato (%1)"_s.arg(
            UnaRiga(ErroreCorrente().Descrizione, MassimoMotivo)));
    }
}

void Norme::Leggi(const Database& Db)
{
    TutteSospensioni = LeggiTutte(Db, u"Sospensioni"_s, LeggiSospensione);
    TutteFeste = LeggiTutte(Db, u"Feste"_s, LeggiFesta);
    TutteMaterie = LeggiTutte(Db, u"Materie"_s, LeggiMateria);
    TutteRegole = LeggiTutte(Db, u"Regole"_s, LeggiRegola);
    TuttiTermini = LeggiTutte(Db, u"Termini"_s, LeggiTermine);
    TutteCatene = LeggiCatene(Db);
    TuttiContributi = LeggiTutte(Db, u"Contributi"_s, LeggiContributo);
    TuttiAvvisi = LeggiTutte(Db, u"Avvisi"_s, LeggiAvviso);
}

QDate Norme::NoteDal(bool ConSospensione) const
{
    const QDate Feste =
        std::ranges::min(TutteFeste, {}, [](const NormaFesta& F) { return F.Quando.Dal; }).Quando.Dal;
    return ConSospensione ? std::max(Feste, TutteSospensioni.first().Quando.Dal) : Feste;
}

QString Norme::AvvisoOltre(const QDate& Giorno) const
{
    return Giorno > Al ? u"Norme note fino al "_s + Format(Al, ModelloData) : QString();
}

QStringList Norme::Avvisi(QStringView Ambito, const QDate& Giorno) const
{
    QStringList Testi;
    for (const NormaAvviso& Avviso : TuttiAvvisi)
        if (Avviso.Ambito == Ambito && Avviso.Quando.Contiene(Giorno))
            Testi << Avviso.Testo;
    return Testi;
}

std::optional<Sospensione> Norme::SospensioneDel(int Anno) const
{
    for (const NormaSospensione& Norma : TutteSospensioni) {
        const QDate Primo = Norma.Primo.Nel(Anno);
        if (Norma.Quando.Contiene(Primo))
            return Sospensione{Primo, Norma.Ultimo.Nel(Anno), Norma.Norma};
    }
    return std::nullopt;
}

bool Norme::GiornoSospeso(const QDate& Giorno) const
{
    const auto Periodo = SospensioneDel(Giorno.year());
    return Periodo && Giorno >= Periodo->Dal && Giorno <= Periodo->Al;
}

const NormaFesta* Norme::Festa(const QDate& Giorno) const
{
    for (const NormaFesta& Norma : TutteFeste) {
        const QDate Cade =
            Norma.Giorno.Vuoto() ? LunediDellAngelo(Giorno.year()) : Norma.Giorno.Nel(Giorno.year());
        if (Giorno == Cade && Norma.Quando.Contiene(Giorno))
            return &Norma;
    }
    return nullptr;
}

const NormaRegola& Norme::Regola(QStringView Codice) const
{
    const auto Trovata = std::ranges::find(TutteRegole, Codice, &NormaRegola::Codice);
    if (Trovata == TutteRegole.end())
        throw Errore(errori::Indice);
    return *Trovata;
}

QString PercorsoNorme()
{
    return TrovaFile(Barra(sessione::PercorsoProg) + NomeNorme.toString());
}

std::shared_ptr<const Norme> NormeVigenti()
{
    static NormeLette Ultime;
    const QFileInfo File(PercorsoNorme());
    const NormeLette Ora{File.filePath(), File.lastModified(), File.size(), nullptr};
    if (!Ultime.Lette || Ultime.Percorso != Ora.Percorso || Ultime.Quando != Ora.Quando ||
        Ultime.Byte != Ora.Byte) {
        Ultime = Ora;
        Ultime.Lette = std::make_shared<const Norme>(Ora.Percorso);
    }
    return Ultime.Lette;
}

QString SigilloNorme(const Database& Db)
{
    QCryptographicHash Conto(QCryptographicHash::Sha256);
    const auto Aggiungi = [&](const QString& Testo) {
        const QByteArray Utf8 = Testo.toUtf8();
        Conto.addData(QByteArray::number(Utf8.size()) + ':' + Utf8);
    };
    Aggiungi(Db.Annotazioni().value(NomeNoteFinoAl.toString()));
    for (const QStringView Tabella : OrdineTabelle) {
        Aggiungi(Tabella.toString());
        Recordset Righe = Db.OpenRecordset(u"SELECT * FROM %1 ORDER BY rowid"_s.arg(Tabella));
        for (const Campo& Colonna : Righe.Campi())
            Aggiungi(Colonna.Name);
        const QList<Campo> Colonne = Righe.Campi();
        for (; !Righe.Eof(); Righe.MoveNext())
            for (const Campo& Colonna : Colonne)
                Aggiungi(CellaComeTesto(Righe.Value(Colonna.Name)));
    }
    return QString::fromLatin1(Conto.result().toHex());
}
