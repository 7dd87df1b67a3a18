#include "addressbook/exchange/importa.h"

#include "addressbook/chiavi.h"
#include "addressbook/exchange/annullo.h"
#include "addressbook/exchange/colonneimporta.h"
#include "addressbook/modRubrica.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/orologio.h"

#include <QDateTime>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int OgniTante = 500;  ///< rows between two looks at the user
constexpr int Porzione = 4000;  ///< rows of the archive that are read in one go
constexpr int MassimoAvvisi = 1000;

QString Numero(int Quanti)
{
    return Format(Quanti, u"#,##0");
}

/// A name of the engine's, whatever it holds.
QString FraNome(QString Nome)
{
    return u'"' + Nome.replace(u'"', u"\"\""_s) + u'"';
}

bool Vuoto(const QVariant& Valore)
{
    return !Valore.isValid() || Valore.isNull() ||
           (Valore.typeId() == QMetaType::QString && Valore.toString().trimmed().isEmpty());
}

}  // namespace

QString FraseImporta(const ContoImporta& Conto, bool Fatto)
{
    const auto Voce = [&](int Quanti, const QString& Uno, const QString& Tanti) {
        return Quanti == 1 ? Uno : Numero(Quanti) + u' ' + Tanti;
    };
    QStringList Parti;
    if (Fatto)
        Parti.append(Voce(Conto.Aggiunti, u"1 nominativo aggiunto"_s, u"nominativi aggiunti"_s));
    else
        Parti.append(Voce(Conto.Aggiunti, u"1 nominativo da aggiungere"_s, u"nominativi da aggiungere"_s));
    if (Conto.Completati > 0)
        Parti.append(Fatto ? Voce(Conto.Completati, u"1 completato"_s, u"completati"_s)
                           : Voce(Conto.Completati, u"1 da completare"_s, u"da completare"_s));
    if (Conto.GiaPresenti > 0)
        Parti.append(Voce(Conto.GiaPresenti, u"1 già presente che resta com'è"_s,
                          u"già presenti che restano come sono"_s));
    if (Conto.SenzaNome > 0)
        Parti.append(Voce(Conto.SenzaNome, u"1 senza nome, tralasciato"_s, u"senza nome, tralasciati"_s));
    return Parti.join(u", "_s) + u'.';
}

ImportaNominativi::ImportaNominativi(const Database& DiArchivio, const QString& DiTabella,
                                     TabellaEstranea DaFile, const QStringList& Chiavi, Doppioni Scelti)
    : Archivio(DiArchivio), Tabella(DiTabella), Da(std::move(DaFile)), Mete(Chiavi), Modo(Scelti),
      Composizione(Da.Titoli, Chiavi, DiArchivio.Campi(DiTabella)),
      PostoCodFis(Composizione.Posto(u"CodFis")), PostoPIva(Composizione.Posto(u"PIva"))
{}

// ---- what is there ------------------------------------------------------------------------------

bool ImportaNominativi::LeggiPresenti(const Avanzamento& Prosegui)
{
    const Recordset Righe = Archivio.OpenRecordset(Tabella);
    const QList<Campo> Tutti = Righe.Campi();
    QStringList Nomi;
    for (const Campo& Uno : Composizione.Campi())
        Nomi.append(Uno.Name);
    const auto Colonna = [&](QStringView Nome) {
        for (int i = 0; i < Nomi.size(); ++i)
            if (Nomi[i].compare(Nome, Qt::CaseInsensitive) == 0)
                return i;
        if (!HaColonna(Tutti, Nome.toString()))
            return -1;
        Nomi.append(Nome.toString());
        return int(Nomi.size()) - 1;
    };
    const int Nome = Colonna(u"Nominativo");
    const int Fiscale = Colonna(u"CodFis");
    const int Iva = Colonna(u"PIva");
    const auto Testo = [](const RigaScorsa& Riga, int Posto) {
        return Posto < 0 ? QString() : QString::fromUtf8(Riga.Utf8(Posto));
    };
    std::optional<qint64> Ultima;
    do {
        Ultima = Righe.Scorri(Nomi, Ultima, Porzione, [&](const RigaScorsa& Riga) {
            Presente Vecchio;
            Vecchio.Chiave = Riga.Chiave();
            Vecchio.CodFis = CodicePiano(Testo(Riga, Fiscale));
            Vecchio.PIva = CodicePiano(Testo(Riga, Iva));
            for (int i = 0; Modo == Doppioni::Completa && i < Composizione.Campi().size(); ++i)
                Vecchio.Pieni.push_back(!Riga.Utf8(i).trimmed().isEmpty());
            Registra(std::move(Vecchio), Testo(Riga, Nome));
        });
        if (Prosegui && !Prosegui(0, int(Da.Righe.size())))
            return false;
    } while (Ultima);
    return true;
}

void ImportaNominativi::Registra(Presente Nuovo, const QString& Nome)
{
    const int Posto = int(Presenti.size());
    // The first row of a code or name is the one that others are taken for.
    for (const QString& Codice : {Nuovo.CodFis, Nuovo.PIva})
        if (!Codice.isEmpty() && !PerCodice.contains(Codice))
            PerCodice.insert(Codice, Posto);
    if (const QString Piano = NomePiano(Nome); !Piano.isEmpty())
        PerNome.insert(Piano, Posto);
    Presenti.push_back(std::move(Nuovo));
}

QString ImportaNominativi::Codice(const RigaComposta& Riga, int Posto) const
{
    return Posto < 0 ? QString() : CodicePiano(Riga.Valori[Posto].toString());
}

/// The row that this one is, by its place; -1 none.
int ImportaNominativi::Trova(const RigaComposta& Riga) const
{
    const QString CodFis = Codice(Riga, PostoCodFis);
    const QString PIva = Codice(Riga, PostoPIva);
    for (const QString& Uno : {CodFis, PIva})
        if (const auto Trovato = PerCodice.constFind(Uno); !Uno.isEmpty() && Trovato != PerCodice.cend())
            return *Trovato;
    const auto Diversi = [](const QString& A, const QString& B) {
        return !A.isEmpty() && !B.isEmpty() && A != B;
    };
    int Primo = -1;
    const auto [Inizio, Fine] = PerNome.equal_range(NomePiano(Riga.Nominativo));
    for (auto Uno = Inizio; Uno != Fine; ++Uno) {
        const Presente& Vecchio = Presenti[size_t(*Uno)];
        if (!Diversi(CodFis, Vecchio.CodFis) && !Diversi(PIva, Vecchio.PIva) && (Primo < 0 || *Uno < Primo))
            Primo = *Uno;
    }
    return Primo;
}

// ---- what is to be done -------------------------------------------------------------------------

bool ImportaNominativi::Prepara(const Avanzamento& Prosegui)
{
    Presenti.clear();
    PerCodice.clear();
    PerNome.clear();
    Mosse.clear();
    Annotati.clear();
    Lasciati.clear();
    Taciuti = 0;
    RigheSenzaNome.clear();
    Contati = {};
    Versione.reset();
    const quint64 Letta = Archivio.Versione();
    if (!LeggiPresenti(Prosegui))
        return false;
    const int Tutte = int(Da.Righe.size());
    Contati.Righe = Tutte;
    for (int i = 0; i < Tutte; ++i) {
        if (i % OgniTante == 0 && Prosegui && !Prosegui(i, Tutte))
            return false;
        Valuta(Composizione.Componi(Da.Righe[size_t(i)]), Da.Numeri[size_t(i)]);
    }
    if (Taciuti > 0)
        Annotati.append(u"... e altri "_s + ::Numero(Taciuti) + u" avvisi"_s);
    Versione = Letta;
    return true;
}

void ImportaNominativi::Annota(int Numero, const QString& Frase)
{
    if (Annotati.size() >= MassimoAvvisi)
        ++Taciuti;
    else
        Annotati.append(Da.Unita + u' ' + QString::number(Numero) + u": "_s + Frase);
}

void ImportaNominativi::Valuta(const RigaComposta& Riga, int Numero)
{
    if (Riga.Nominativo.isEmpty()) {
        ++Contati.SenzaNome;
        Annota(Numero, u"senza nome, tralasciata"_s);
        return;
    }
    const int Posto = Modo == Doppioni::Aggiungi ? -1 : Trova(Riga);
    if (Posto < 0) {
        Aggiungi(Riga);
    } else {
        const bool DelFile = Presenti[size_t(Posto)].Mossa >= 0;
        const bool Unita = Modo == Doppioni::Completa && Completa(Presenti[size_t(Posto)], Riga);
        if (DelFile)
            Annota(Numero, (Unita ? u"già presente nel file, unita all'altra: "_s
                                  : u"già presente nel file, tralasciata: "_s) +
                               Riga.Nominativo);
        if (!Unita) {
            ++Contati.GiaPresenti;
            if (!DelFile && Lasciati.size() < MassimoAvvisi)
                Lasciati.append(Da.Unita + u' ' + QString::number(Numero) + u": "_s + Riga.Nominativo);
            return;  // nothing of it is written
        }
    }
    for (const QString& Avviso : Riga.Avvisi)
        Annota(Numero, Avviso);
}

void ImportaNominativi::Aggiungi(const RigaComposta& Riga)
{
    ++Contati.Aggiunti;
    Presente Nuovo{.Mossa = int(Mosse.size()),
                   .CodFis = Codice(Riga, PostoCodFis),
                   .PIva = Codice(Riga, PostoPIva),
                   .Pieni = {}};
    for (const QVariant& Valore : Riga.Valori)
        Nuovo.Pieni.push_back(!Vuoto(Valore));
    Mosse.push_back({.Chiave = {}, .Valori = Riga.Valori});
    if (Modo != Doppioni::Aggiungi)
        Registra(std::move(Nuovo), Riga.Nominativo);
}

/// Fills what is empty in a row. @return false when the row has nothing for it
bool ImportaNominativi::Completa(Presente& Vecchio, const RigaComposta& Riga)
{
    QVariantList Nuovi(Riga.Valori.size());
    bool Qualcosa = false;
    for (int i = 0; i < Riga.Valori.size(); ++i) {
        // The second name of a counterparty follows the first only where that is new.
        const bool Seguito = Composizione.Campi()[i].Name.compare(u"Controp", Qt::CaseInsensitive) == 0 &&
                             !Mete.contains(Composizione.Campi()[i].Name);
        if (Vecchio.Pieni[size_t(i)] || Vuoto(Riga.Valori[i]) || Seguito)
            continue;
        Nuovi[i] = Riga.Valori[i];
        Vecchio.Pieni[size_t(i)] = true;
        Qualcosa = true;
    }
    if (!Qualcosa)
        return false;
    if (Vecchio.CodFis.isEmpty())
        Vecchio.CodFis = Codice(Riga, PostoCodFis);
    if (Vecchio.PIva.isEmpty())
        Vecchio.PIva = Codice(Riga, PostoPIva);
    const int Posto = int(&Vecchio - Presenti.data());
    for (const QString& Uno : {Vecchio.CodFis, Vecchio.PIva})
        if (!Uno.isEmpty() && !PerCodice.contains(Uno))
            PerCodice.insert(Uno, Posto);
    if (Vecchio.Mossa < 0) {
        ++Contati.Completati;
        Mosse.push_back({Vecchio.Chiave, Nuovi});
        return true;
    }
    // A row of this very file: it is completed before it is written, and counts once.
    ++Contati.GiaPresenti;
    QVariantList& Scritti = Mosse[size_t(Vecchio.Mossa)].Valori;
    for (int i = 0; i < Nuovi.size(); ++i)
        if (Nuovi[i].isValid())
            Scritti[i] = Nuovi[i];
    return true;
}

// ---- writing ------------------------------------------------------------------------------------

bool ImportaNominativi::Scrivi(const QString& Sorgente, const Avanzamento& Prosegui)
{
    CopiaDiPrima Conservata(Archivio.Percorso());
    if (Versione != Archivio.Versione() && !Prepara(Prosegui))
        return false;
    if (Mosse.empty())
        return true;
    Conservata.Prendi();
    {
        Transazione Tutto(Archivio);
        // The transaction's own beginning may count; what others have written in between does in any case.
        if (const quint64 Ora = Archivio.Versione(); Ora != *Versione && Ora != *Versione + 1)
            RifiutaFile(u"Nel frattempo un altro programma ha scritto nell'archivio: ripetere "
                        "l'importazione."_s);
        if (!ScriviMosse(Prosegui))
            return false;
        // Names that could not be taken back are not brought in.
        Conservata.Annuncia(Archivio, {.Quando = Adesso(),
                                       .Tabella = Tabella,
                                       .Sorgente = Sorgente,
                                       .Aggiunti = Contati.Aggiunti,
                                       .Completati = Contati.Completati});
        Tutto.Conferma();
    }
    Copia = Conservata.Tieni();
    // The names are in the archive: a disk that fails from here on has refused nothing of the import.
    try {
        Versione = Archivio.Versione();
    } catch (const Errore&) {
        Versione.reset();
    }
    return true;
}

bool ImportaNominativi::ScriviMosse(const Avanzamento& Prosegui)
{
    const QList<Campo>& Campi = Composizione.Campi();
    QStringList Nomi;
    for (const Campo& Uno : Campi)
        Nomi.append(FraNome(Uno.Name));
    std::optional<qint64> Prossima = PrimaChiaveLibera(Archivio, Tabella);
    QStringList Tutti = Nomi;
    if (const QList<Campo> Suoi = Archivio.Campi(Tabella); Prossima)
        Tutti.append(FraNome(std::ranges::find_if(Suoi, EChiave)->Name));
    const QString Inserisci = u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(
        FraNome(Tabella), Tutti.join(u','), QStringList(Tutti.size(), u"?"_s).join(u','));
    const int Tutte = int(Mosse.size());
    int Fatte = 0;
    for (const Mossa& Una : Mosse) {
        if (Fatte++ % OgniTante == 0 && Prosegui && !Prosegui(Fatte, Tutte))
            return false;
        if (!Una.Chiave) {
            QVariantList Valori = Una.Valori;
            if (Prossima)
                Valori.append((*Prossima)++);
            Archivio.Execute(Inserisci, Valori);
            continue;
        }
        QStringList Assegnati;
        QVariantList Valori;
        for (int i = 0; i < Una.Valori.size(); ++i)
            if (Una.Valori[i].isValid()) {
                Assegnati.append(Nomi[i] + u"=?"_s);
                Valori.append(Una.Valori[i]);
            }
        Archivio.Execute(u"UPDATE %1 SET %2 WHERE rowid=?"_s.arg(FraNome(Tabella), Assegnati.join(u',')),
                         Valori + QVariantList{*Una.Chiave});
    }
    return true;
}

// ---- the report ---------------------------------------------------------------------------------

QString ImportaNominativi::Resoconto(const QString& Sorgente, bool Fatto) const
{
    QStringList Righe;
    Righe.append((Fatto ? u"Importazione del "_s : u"Prova di importazione del "_s) +
                 Adesso().toString(u"dd/MM/yyyy HH:mm"));
    Righe.append(u"File: "_s + Sorgente);
    Righe.append(u"Archivio: "_s + Archivio.Percorso() + u" ("_s + Tabella + u')');
    Righe.append(QString());
    Righe.append(u"Righe lette: "_s + ::Numero(Contati.Righe));
    Righe.append((Fatto ? u"Nominativi aggiunti: "_s : u"Nominativi da aggiungere: "_s) +
                 ::Numero(Contati.Aggiunti));
    Righe.append((Fatto ? u"Nominativi completati: "_s : u"Nominativi da completare: "_s) +
                 ::Numero(Contati.Completati));
    Righe.append(u"Già presenti, lasciati come sono: "_s + ::Numero(Contati.GiaPresenti));
    Righe.append(u"Senza nome, tralasciati: "_s + ::Numero(Contati.SenzaNome));
    QStringList Usate;
    QStringList Lasciate;
    const QList<MetaColonna> Possibili = MeteDi(Archivio.Campi(Tabella));
    for (qsizetype i = 0; i < Da.Titoli.size(); ++i) {
        const QString Chiave = Mete.value(i);
        const auto Meta = std::ranges::find(Possibili, Chiave, &MetaColonna::Chiave);
        if (Chiave.isEmpty())
            Lasciate.append(Da.Titoli[i]);
        else
            Usate.append(Da.Titoli[i] + u" → "_s + (Meta != Possibili.end() ? Meta->Titolo : Chiave));
    }
    Righe.append(QString());
    Righe.append(u"Colonne importate: "_s + Usate.join(u"; "_s));
    Righe.append(u"Colonne non importate: "_s + (Lasciate.isEmpty() ? u"nessuna"_s : Lasciate.join(u"; "_s)));
    if (const QStringList Tutti = Da.Avvisi + Annotati; !Tutti.isEmpty()) {
        Righe.append(QString());
        Righe.append(u"Avvisi:"_s);
        Righe += Tutti;
    }
    if (!Lasciati.isEmpty()) {
        Righe.append(QString());
        Righe.append(Lasciati.size() < MassimoAvvisi
                         ? u"Già nell'archivio:"_s
                         : u"Già nell'archivio, i primi %1:"_s.arg(::Numero(MassimoAvvisi)));
        Righe += Lasciati;
    }
    if (Fatto && !Copia.isEmpty()) {
        Righe.append(QString());
        Righe.append(u"Copia dell'archivio com'era prima: "_s + Copia);
    }
    return Righe.join(u'\n') + u'\n';
}
