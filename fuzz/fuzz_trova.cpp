// The finder over a folder with a file that may be anybody's: what it reads of a note, what lists and sums
// make of it, the accountant's rows. An input that begins with "memoria" gives the entries of the state by
// themselves.
#include "basedati.h"
#include "fonte.h"

#include "feenote/file/modDescrizione.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/finder/elencotrova.h"
#include "feenote/finder/memoriatrova.h"
#include "feenote/finder/modTrova.h"
#include "feenote/finder/nominativi.h"
#include "feenote/finder/scadenzario.h"

#include <QDir>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QString Cartella = u"trova/"_s;

/// An invoice that has gone out, with its state and its figures.
const QByteArray& Sana()
{
    static const QByteArray Letta = [] {
        const QString File = CartellaDiLavoro() + u"sana.mdb"_s;
        Parcella Nota = CreaDaDescrizione(R"({"categoria": "CIV", "autorita": 2, "valore": 30000,
            "spese": [{"voce": 3, "imponibili": 16}], "cliente": "Rossi"})");
        Nota.IDCli = 1;
        ScriviNota(File, Nota);
        return Contenuto(File);
    }();
    return Letta;
}

void Prepara()
{
    static const bool Pronta = [] {
        QDir().mkpath(CartellaDiLavoro() + Cartella + u"sotto"_s);
        (void)Posa(Cartella + u"sotto/sana.mdb"_s, Sana());
        return true;
    }();
    Pretendi(Pronta);
}

void Somma(double Importo)
{
    constexpr double Massimo = 1e14;  // a list sums ten of the largest
    Pretendi(std::isfinite(Importo) && std::abs(Importo) <= Massimo);
}

/// Values that are none count as missing.
void Guarda(const StatoLetto& Stato)
{
    if (Stato.Importi)
        Somma(Stato.Resto);
    for (const QString* Giorno : {&Stato.Dal, &Stato.UscitoIl, &Stato.PagatoIl})
        Pretendi(Giorno->isEmpty() || QDate::fromString(*Giorno, u"dd/MM/yyyy"_s).isValid());
    constexpr qsizetype MassimiDiUnFile = 4;
    Pretendi(Stato.Emessi.size() <= MassimiDiUnFile);
    for (const EmessoLetto& Uno : Stato.Emessi)
        Somma(Uno.Resto);
}

void Memoria(Fonte& Dati)
{
    MemoriaFile Voci;
    while (!Dati.Finita()) {
        const QString Riga = Dati.Riga();
        Voci.insert(Riga.section(u'=', 0, 0), Riga.section(u'=', 1));
    }
    Guarda(LeggiStatoLetto(Voci));
    // What a note takes of them it writes again, and they are read as they were.
    Parcella Nota;
    LeggiStato(Nota, Voci);
    MemoriaFile Scritte;
    ScriviStato(Nota, Scritte);
    Parcella Ancora;
    LeggiStato(Ancora, Scritte);
    MemoriaFile DiNuovo;
    ScriviStato(Ancora, DiNuovo);
    Pretendi(DiNuovo == Scritte);
}

void Cerca()
{
    ElencoTrova Elenco;
    Nominativi Nomi;
    int Note = 0;
    CriterioTrova Chiesto;
    Chiesto.Cartella = Chiesto.Radice = CartellaDiLavoro() + Cartella;
    Chiesto.Sottocartelle = true;
    CamminoTrova Cammino(
        Chiesto,
        [&](VoceTrova&& Voce) {
            Pretendi(Voce.Percorso.startsWith(CartellaDiLavoro() + Cartella.chopped(1)));
            if (Voce.Genere == GenereVoce::Nota) {
                ++Note;
                for (const QString* Testo : {&Voce.Dati.Cliente, &Voce.Dati.Controp, &Voce.Dati.Oggetto})
                    Pretendi(!Testo->contains(u'\n') && !Testo->contains(u'\r'));
                Guarda(Voce.Dati.Stato);
            }
            Nomi.Completa(Voce);
            Elenco.Aggiungi(std::move(Voce));
        },
        [] { return true; }, std::make_shared<MemoriaTrova>());
    const ContoTrova Conto = Cammino.TrovaParc(Chiesto.Cartella);
    Nomi.Chiudi();
    // The sound note is there whatever stands beside it.
    Pretendi(Note >= 1 && Conto.Archivi == Note && Note + Conto.NonLetti <= 2);
    for (int Colonna = 0; Colonna < TrovaColonne; ++Colonna) {
        Elenco.ScegliOrdine(Colonna, true);
        Elenco.Ordina();
        for (int Riga = 0; Riga < Elenco.Righe(); ++Riga)
            (void)Elenco.Cella(Riga, Colonna);
    }
    const std::vector<const VoceTrova*> Tutte = Elenco.NoteTutte();
    const ApertoTutto Aperto = SommaAperto(Tutte);
    Somma(Aperto.Aperto);
    Pretendi(!FraseAperto(Aperto).isEmpty());
    for (const VoceTrova* Una : Tutte) {
        (void)ParolaStato(*Una);
        (void)FrasiDocumenti(*Una);
    }
    const QByteArray Csv = CsvScadenzario(Tutte, [&](int Chi) { return Nomi.Codici(Chi); });
    Nomi.Chiudi();
    // What a spreadsheet would take for a formula is none.
    for (const QByteArray& Riga : Csv.split('\n'))
        for (const QByteArray& Cella : Riga.split(';'))
            Pretendi(!Cella.startsWith('=') && !Cella.startsWith('@') && !Cella.startsWith("\"="));
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    if (Dati.startsWith("memoria\n")) {
        Fonte Voci(Dati.sliced(8));
        Memoria(Voci);
        return;
    }
    Prepara();
    const QString File = PosaDatabase(Cartella + u"nota.mdb"_s, Sana(), Dati);
    const QByteArray Prima = Contenuto(File);
    Riesce([] { Cerca(); });
    Pretendi(Contenuto(File) == Prima);
}

}  // namespace

BERSAGLIO(fuzz_trova, Prova);
