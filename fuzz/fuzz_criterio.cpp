// What is looked for in a recordset: any text is a criterion or an error, and what is found going forth is
// found going back. Behind it the search by field, whose texts come from a box, and the filter of a list.
#include "fonte.h"

#include "addressbook/filtro.h"
#include "addressbook/modRicerca.h"
#include "feenote/finder/elencotrova.h"
#include "platform/database/database.h"

#include <QDate>

#include <set>

using namespace Qt::StringLiterals;

namespace {

const QList<QString>& Nomi()
{
    static const QList<QString> Tutti{u"Rossi"_s,    u"rossi"_s,   u"Però D'Orazio"_s, u""_s,
                                      u"100%_[a]"_s, u"àèìòù"_s,   u"De Luca"_s,       u"12,50"_s,
                                      u"*?#"_s,      u"STRASSE"_s, u"straße 1"_s,      u"a\u0301 b"_s};
    return Tutti;
}

Database& Base()
{
    static Database Aperta = [] {
        Database Nuova = CreateDatabase(CartellaDiLavoro() + u"nomi.mdb"_s);
        Nuova.CreaTabella(u"nomi"_s, {{u"ID"_s, TipoCampo::Lungo, 0, {}, true},
                                      {u"Nome"_s, TipoCampo::Testo, 60, {}},
                                      {u"Nato il"_s, TipoCampo::Data, 0, {}},
                                      {u"Euro"_s, TipoCampo::Doppio, 0, {}},
                                      {u"Si"_s, TipoCampo::Booleano, 0, {}}});
        for (qsizetype i = 0; i < Nomi().size(); ++i)
            Nuova.Execute(u"INSERT INTO nomi (Nome, \"Nato il\", Euro, Si) VALUES (?,?,?,?)"_s,
                          {i == 3 ? QVariant() : QVariant(Nomi()[i]), QDate(1950 + int(i), 1, 31),
                           double(i) * 12.5, i % 3 == 0});
        return Nuova;
    }();
    return Aperta;
}

/// Keys found from this end on.
std::set<int> Trovate(Recordset& Righe, const QString& Criterio, bool Indietro)
{
    std::set<int> Chiavi;
    Indietro ? Righe.FindLast(Criterio) : Righe.FindFirst(Criterio);
    while (!Righe.NoMatch()) {
        Pretendi(Chiavi.insert(Righe.Value(u"ID"_s).toInt()).second);
        Indietro ? Righe.FindPrevious(Criterio) : Righe.FindNext(Criterio);
    }
    return Chiavi;
}

void Criterio(const QString& Testo)
{
    Recordset Righe = Base().OpenRecordset(u"nomi"_s);
    Riesce([&] {
        const std::set<int> Avanti = Trovate(Righe, Testo, false);
        Pretendi(Trovate(Righe, Testo, true) == Avanti);
    });
}

/// Each operator of the search form with the text that was typed.
void PerCampo(const QString& Testo)
{
    Recordset Righe = Base().OpenRecordset(u"nomi"_s);
    const QList<Campo> Colonne = Righe.Campi();
    for (const Campo& Colonna : Colonne)
        for (int Operatore = 0; Operatore < OperatoriDi(Colonna.Type); ++Operatore)
            Riesce([&] {
                Righe.MoveFirst();
                const QString Fatto = CriterioRicerca(Colonna, Operatore, Testo);
                if (CercaRiga(Righe, Fatto, PassoRicerca::Primo))
                    (void)CercaRiga(Righe, Fatto, PassoRicerca::Successivo);
            });
    // What is typed for a text stays text, whatever it holds.
    for (const int Operatore : {UgualeA, IniziaPer, TerminaPer, Contiene, NonContiene})
        Pretendi(Riesce([&] {
                     (void)CercaRiga(Righe, CriterioRicerca(Colonne[1], Operatore, Testo.left(60)),
                                     PassoRicerca::Primo);
                 }) ||
                 Testo.contains(QChar(0)));
}

void Filtri(const QString& Testo)
{
    RighePiane Piane;
    for (const QString& Nome : Nomi())
        Piane.Aggiungi(RigaPiana({Nome, Testo.left(10)}));
    const Filtro Scritto(Testo);
    std::vector<int> Passate;
    for (int i = 0; i < Piane.Righe(); ++i)
        if (Scritto.Passa(Piane.Riga(i)))
            Passate.push_back(i);
    Pretendi(Piane.Cerca(Scritto) == Passate);

    ElencoTrova Elenco;
    for (const QString& Nome : Nomi()) {
        VoceTrova Voce;
        Voce.Nome = Voce.Percorso = Nome;
        Elenco.Aggiungi(std::move(Voce));
    }
    Elenco.Filtra(Testo);
    Pretendi(Elenco.Righe() <= Elenco.TutteLeNote());
    (void)Elenco.CercaIniziali(Testo, 0);
    Elenco.Filtra({});
    Pretendi(Elenco.Righe() == Nomi().size());
}

void Prova(const QByteArray& Dati)
{
    constexpr qsizetype Massimo = 2000;
    Fonte Da(Dati.left(Massimo));
    const QString Prima = Da.Riga();
    const QString Resto = Da.Riga();
    Criterio(Prima);
    PerCampo(Resto);
    Filtri(Resto);
}

}  // namespace

BERSAGLIO(fuzz_criterio, Prova);
