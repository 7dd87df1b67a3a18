#include "creadati/norme.h"

#include "calculators/norme/norme.h"
#include "creadati/scrittura.h"
#include "creadati/tabellatesto.h"
#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimoTesto = 255;

/// What a cell holds.
enum class Genere { Testo, Data, Numero, Importo };

struct ColonnaDiNorme
{
    QString Titolo;  ///< of the text
    QString Campo;   ///< of the database
    Genere Cosa = Genere::Testo;
    bool Vuota = false;    ///< may be empty
    QStringList Parole{};  ///< words allowed; none: any text
};

struct FormaTabella
{
    QString File;
    QString Nome;
    QList<ColonnaDiNorme> Colonne;
};

ColonnaDiNorme Testo(const QString& Titolo, const QString& Campo, bool Vuota = false)
{
    return {Titolo, Campo, Genere::Testo, Vuota};
}

ColonnaDiNorme Parola(const QString& Titolo, const QString& Campo, const QStringList& Parole,
                      bool Vuota = false)
{
    return {Titolo, Campo, Genere::Testo, Vuota, Parole};
}

QList<ColonnaDiNorme> Periodo()
{
    return {{u"dal"_s, u"Dal"_s, Genere::Data, true}, {u"al"_s, u"Al"_s, Genere::Data, true}};
}

/// Rows that nobody has confirmed are let in where the program says so under a result.
ColonnaDiNorme Riscontro(bool AncheAMemoria = false)
{
    QStringList Parole{u"due"_s, u"una"_s};
    if (AncheAMemoria)
        Parole << u"memoria"_s;
    return Parola(u"riscontro"_s, u"Riscontro"_s, Parole);
}

QList<FormaTabella> Forme()
{
    const QStringList SiNo{u"sì"_s, u"no"_s};
    const ColonnaDiNorme Norma = Testo(u"norma"_s, u"Norma"_s);
    const ColonnaDiNorme Codice = Testo(u"codice"_s, u"Codice"_s);
    return {
        {u"norme_sospensioni.csv"_s, u"Sospensioni"_s,
         QList{Testo(u"primo"_s, u"Primo"_s), Testo(u"ultimo"_s, u"Ultimo"_s)} + Periodo() +
             QList{Norma, Riscontro()}},
        {u"norme_feste.csv"_s, u"Feste"_s,
         QList{Testo(u"nome"_s, u"Nome"_s), Testo(u"giorno"_s, u"Giorno"_s)} + Periodo() +
             QList{Norma, Riscontro(true)}},
        {u"norme_materie.csv"_s, u"Materie"_s,
         QList{Codice, Testo(u"materia"_s, u"Materia"_s)} + Periodo() + QList{Norma, Riscontro()}},
        {u"norme_regole.csv"_s, u"Regole"_s, QList{Codice, Norma} + Periodo() + QList{Riscontro(true)}},
        {u"norme_termini.csv"_s, u"Termini"_s,
         QList{Codice, Testo(u"articolo"_s, u"Articolo"_s), Testo(u"rito"_s, u"Rito"_s),
               Testo(u"atto"_s, u"Atto"_s), Testo(u"evento"_s, u"Evento"_s, true),
               ColonnaDiNorme{u"quantità"_s, u"Quantita"_s, Genere::Numero, true},
               Parola(u"unità"_s, u"Unita"_s, {u"giorni"_s, u"mesi"_s, u"anni"_s, u"regola"_s}),
               Parola(u"verso"_s, u"Verso"_s, {u"avanti"_s, u"a ritroso"_s}, true),
               Parola(u"libero"_s, u"Libero"_s, SiNo), Parola(u"sospeso"_s, u"Sospeso"_s, SiNo, true),
               Testo(u"materia"_s, u"Materia"_s, true), Parola(u"sabato"_s, u"Sabato"_s, SiNo, true),
               Parola(u"misura"_s, u"Misura"_s, {u"evento"_s, u"procedimento"_s})} +
             Periodo() + QList{Riscontro(), Testo(u"nota"_s, u"Nota"_s, true)}},
        {u"norme_catene.csv"_s, u"Catene"_s,
         QList{Testo(u"catena"_s, u"Catena"_s), Testo(u"titolo"_s, u"Titolo"_s),
               Testo(u"evento"_s, u"Evento"_s), ColonnaDiNorme{u"posto"_s, u"Posto"_s, Genere::Numero},
               Testo(u"termine"_s, u"Termine"_s),
               Parola(u"inizio"_s, u"Inizio"_s, {u"evento"_s, u"scadenza"_s, u"aumento"_s}),
               Testo(u"da"_s, u"Da"_s, true)}},
        {u"norme_contributo.csv"_s, u"Contributi"_s,
         QList{Codice, Testo(u"categoria"_s, u"Categoria"_s),
               Parola(u"genere"_s, u"Genere"_s,
                      {u"scaglione"_s, u"fisso"_s, u"moltiplica"_s, u"aggiunge"_s, u"minimo"_s}),
               ColonnaDiNorme{u"da"_s, u"Da"_s, Genere::Importo, true},
               ColonnaDiNorme{u"a"_s, u"A"_s, Genere::Importo, true},
               ColonnaDiNorme{u"valore"_s, u"Valore"_s, Genere::Importo}} +
             Periodo() +
             QList{Parola(u"processo"_s, u"Processo"_s,
                          {u"civile"_s, u"amministrativo"_s, u"tributario"_s, u"altro"_s}),
                   Parola(u"gradi"_s, u"Gradi"_s, SiNo), Parola(u"notifiche"_s, u"Notifiche"_s, SiNo),
                   Parola(u"ciascuno"_s, u"Ciascuno"_s, SiNo), Norma, Riscontro(),
                   Testo(u"nota"_s, u"Nota"_s, true)}},
        {u"norme_avvisi.csv"_s, u"Avvisi"_s,
         QList{Parola(u"ambito"_s, u"Ambito"_s, {u"termini"_s, u"contributo"_s})} + Periodo() +
             QList{Testo(u"testo"_s, u"Testo"_s)}},
    };
}

QVariant LeggiCella(const TabellaTesto& Tabella, int Riga, const ColonnaDiNorme& Colonna)
{
    if (Colonna.Vuota && Tabella.Testo(Riga, Colonna.Titolo).isEmpty())
        return {};
    switch (Colonna.Cosa) {
    case Genere::Data:
        return Tabella.Data(Riga, Colonna.Titolo);
    case Genere::Numero:
        return Tabella.Intero(Riga, Colonna.Titolo, 1, 999);
    case Genere::Importo:
        return Tabella.Importo(Riga, Colonna.Titolo);
    case Genere::Testo:
        break;
    }
    const QString Letto = Tabella.Testo(Riga, Colonna.Titolo, MassimoTesto);
    if (!Colonna.Parole.isEmpty() && !Colonna.Parole.contains(Letto))
        Tabella.Rifiuta(Riga, Colonna.Titolo, u"non è fra %1"_s.arg(Colonna.Parole.join(u", "_s)));
    return Letto;
}

TabellaDiNorme LeggiTabella(const QString& Cartella, const FormaTabella& Forma)
{
    QStringList Titoli;
    TabellaDiNorme Letta{Forma.Nome, {}, {}};
    for (const ColonnaDiNorme& Colonna : Forma.Colonne) {
        Titoli << Colonna.Titolo;
        Letta.Colonne << Colonna.Campo;
    }
    const TabellaTesto Tabella(Cartella + Forma.File, Titoli);
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        QVariantList Celle;
        for (const ColonnaDiNorme& Colonna : Forma.Colonne)
            Celle << LeggiCella(Tabella, Riga, Colonna);
        Letta.Righe.append(Celle);
    }
    return Letta;
}

Campo CampoPer(const ColonnaDiNorme& Colonna)
{
    switch (Colonna.Cosa) {
    case Genere::Data:
        return CampoDi(TipoCampo::Data, Colonna.Campo);
    case Genere::Numero:
        return CampoDi(TipoCampo::Intero, Colonna.Campo);
    case Genere::Importo:
        return CampoDi(TipoCampo::Doppio, Colonna.Campo);
    case Genere::Testo:
        break;
    }
    return CampoTesto(Colonna.Campo, MassimoTesto);
}

}  // namespace

TabelleNorme LeggiNorme(const QString& Cartella)
{
    TabelleNorme Lette;
    for (const FormaTabella& Forma : Forme())
        Lette.Tabelle.append(LeggiTabella(Cartella, Forma));
    const TabellaTesto Stato(Cartella + u"norme_stato.csv"_s, {u"al"_s});
    if (Stato.Righe() != 1)
        Stato.RifiutaInFondo(u"al"_s, u"occorre una riga sola"_s);
    Lette.NoteFinoAl = Stato.Data(0, u"al"_s);
    return Lette;
}

void ScriviNorme(const TabelleNorme& Dati, const QString& Percorso)
{
    {
        const Database Db = CreateDatabase(Percorso);
        Transazione Tutto(Db);
        const QList<FormaTabella> Tutte = Forme();
        for (qsizetype i = 0; i < Tutte.size(); ++i) {
            TabellaNuova Tabella{Tutte[i].Nome, {}};
            for (const ColonnaDiNorme& Colonna : Tutte[i].Colonne)
                Tabella.Colonne.append(CampoPer(Colonna));
            Crea(Db, Tabella);
            for (const QVariantList& Riga : Dati.Tabelle[i].Righe)
                AggiungiRiga(Db, Tabella, Riga);
        }
        Tutto.Conferma();
        const QString Al = Format(Dati.NoteFinoAl, ModelloData);
        Db.Annota({{NomeNoteFinoAl.toString(), Al}});
        Db.Annota({{NomeNoteFinoAl.toString(), Al}, {NomeSigillo.toString(), SigilloNorme(Db)}});
    }
    const Norme RiletteCosi(Percorso);
}
