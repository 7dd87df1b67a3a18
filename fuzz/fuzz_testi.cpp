// Texts that the program has put into its own settings and reads again: the notes worked on last, places of
// windows, widths of columns. The first line names the reader.
#include "finestre.h"
#include "fonte.h"

#include "core/modRecenti.h"
#include "core/parametri.h"
#include "platform/grid/griglia.h"
#include "platform/kit/aspetto.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

void Recenti(const QString& Testo)
{
    SalvaImpostazione(u"NoteRecenti"_s, Testo);
    const QList<NotaRecente> Note = NoteRecenti();
    Pretendi(Note.size() <= MassimoRecenti);
    for (const NotaRecente& Nota : Note) {
        Pretendi(QFileInfo(Nota.Percorso).isAbsolute() &&
                 Nota.Percorso.endsWith(u".mdb", Qt::CaseInsensitive));
        Pretendi(std::isfinite(Nota.Netto) && Nota.Data.isValid());
        for (const QString& Riga : {Nota.Cliente, Nota.Documento, FraseRecente(Nota), TitoloRecente(Nota)})
            for (const QChar Segno : Riga)
                Pretendi(Segno != u'\n' && Segno != u'\r');
    }
    // Another note comes first, and the others stay behind it.
    const NotaRecente Nuova{u"/note/nuova.mdb"_s, u"Rossi"_s, u"Parcella"_s, 10.0, QDate(2026, 11, 22)};
    if (!Riesce([&] { RicordaRecente(Nuova); }))
        return;
    const QList<NotaRecente> Dopo = NoteRecenti();
    Pretendi(!Dopo.isEmpty() && Dopo[0] == Nuova && Dopo.size() <= MassimoRecenti);
    for (qsizetype i = 0, Presa = 1; i < Note.size() && Presa < Dopo.size(); ++i)
        if (Note[i].Percorso != Nuova.Percorso)
            Pretendi(Dopo[Presa++] == Note[i]);
}

/// Whatever the store says, a window comes up where it can be seen.
void Posto(const QString& Testo)
{
    SalvaImpostazione(u"Posto_prova"_s, Testo);
    QWidget Finestra;
    Finestra.resize(300, 200);
    aspetto::RimettiAlPosto(&Finestra, u"prova"_s);
    const QRect Schermo = QGuiApplication::primaryScreen()->availableGeometry();
    Pretendi(Schermo.contains(Finestra.geometry()) && !Finestra.geometry().isEmpty());
}

void Larghezze(const QString& Testo)
{
    static Griglia Elenco;
    static const bool Pronta = [] {
        QList<ColonnaGriglia> Colonne(3);
        for (qsizetype i = 0; i < Colonne.size(); ++i) {
            Colonne[i].Titolo = u"Colonna %1"_s.arg(i);
            Colonne[i].Larghezza = int(80 + 20 * i);
        }
        Elenco.ImpostaColonne(Colonne);
        Elenco.resize(500, 200);
        return true;
    }();
    Pretendi(Pronta);
    Elenco.ImpostaLarghezze(Testo);
    const QString Lette = Elenco.Larghezze();
    Elenco.ImpostaLarghezze(Lette);
    Pretendi(Elenco.Larghezze() == Lette);
    constexpr int Massima = 100'000;
    Pretendi(Elenco.LarghezzaIntera() > 0 && Elenco.LarghezzaIntera() < Massima);
}

void Prova(const QByteArray& Dati)
{
    PreparaFinestre();
    const qsizetype Fine = Dati.indexOf('\n');
    const QByteArray Chi = Dati.first(std::max<qsizetype>(Fine, 0));
    const QString Testo = QString::fromUtf8(Dati.sliced(Fine + 1));
    if (Chi == "posto")
        Posto(Testo);
    else if (Chi == "larghezze")
        Larghezze(Testo);
    else
        Recenti(Testo);
}

}  // namespace

BERSAGLIO(fuzz_testi, Prova);
