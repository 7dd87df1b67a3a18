#include "creaguide/creaguide.h"

#include "core/tasti.h"
#include "creadati/tabellatesto.h"
#include "creadati/tassi.h"
#include "creaguide/aiuto.h"
#include "creaguide/composizione.h"
#include "platform/base/errore.h"
#include "platform/base/nometasti.h"
#include "platform/base/regionale.h"
#include "platform/pages/impaginazione.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QDirIterator>
#include <QMap>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

TabellaDati TabellaTassi(const QList<TassoPeriodo>& Periodi)
{
    TabellaDati Fatta{{4.0, 4.0, 3.5}, {false, false, true}, {{u"Dal"_s, u"Al"_s, u"Tasso %"_s}}};
    for (const TassoPeriodo& Uno : Periodi)
        Fatta.Righe +=
            {Format(Uno.Dal, ModelloData), Format(Uno.Al, ModelloData), Format(Uno.TassoPerc, u"0.00")};
    return Fatta;
}

/// The headings of tables of fees: what the rows are, then the four phases.
TabellaDati TabellaFasi(const QString& Prima, double LarghezzaCm)
{
    return {{LarghezzaCm, 2.9, 2.9, 2.9, 2.9},
            {false, true, true, true, true},
            {{Prima, u"Studio"_s, u"Introduttiva"_s, u"Istruttoria"_s, u"Decisoria"_s}}};
}

QString Medio(const TabellaTesto& Righe, int i)
{
    return Format(double(Righe.Intero(i, u"medio"_s, 0, 1'000'000)), u"#,##0");
}

constexpr int FasiDiCognizione = 4;
constexpr int PrimaFasePenale = 101;

/// Mean fees of the ordinary court, a row for each bracket.
TabellaDati TabellaTribunale(const QString& Cartella)
{
    const TabellaTesto Scaglioni(Cartella + u"scaglioni.csv"_s, {u"materia"_s, u"numero"_s, u"da"_s, u"a"_s,
                                                                 u"valore richiesto"_s, u"testo"_s});
    const TabellaTesto Importi(Cartella + u"onorari_civili.csv"_s, {u"gruppo"_s, u"codice"_s, u"scaglione"_s,
                                                                    u"minimo"_s, u"medio"_s, u"massimo"_s});
    TabellaDati Fatta = TabellaFasi(u"Scaglione"_s, 5.4);
    for (int s = 0; s < Scaglioni.Righe(); ++s) {
        if (Scaglioni.Testo(s, u"materia"_s) != u"C")
            continue;
        QStringList Riga{Scaglioni.Testo(s, u"testo"_s)};
        for (int Fase = 1; Fase <= FasiDiCognizione; ++Fase)
            for (int i = 0; i < Importi.Righe(); ++i)
                if (Importi.Testo(i, u"gruppo"_s) == u"tribunale" &&
                    Importi.Testo(i, u"scaglione"_s) == Scaglioni.Testo(s, u"numero"_s) &&
                    Importi.Testo(i, u"codice"_s) == QString::number(Fase))
                    Riga << Medio(Importi, i);
        Fatta.Righe += Riga;
    }
    return Fatta;
}

/// Mean fees of the criminal courts, a row for each group of them, in the order of the table.
TabellaDati TabellaPenale(const QString& Cartella)
{
    const TabellaTesto Importi(Cartella + u"onorari_penali.csv"_s,
                               {u"gruppo"_s, u"codice"_s, u"minimo"_s, u"medio"_s, u"massimo"_s});
    TabellaDati Fatta = TabellaFasi(u"Ufficio"_s, 5.4);
    QMap<QString, int> Posto;
    for (int i = 0; i < Importi.Righe(); ++i) {
        const QString Gruppo = Importi.Testo(i, u"gruppo"_s);
        if (Importi.Intero(i, u"codice"_s, PrimaFasePenale, 999) >= PrimaFasePenale + FasiDiCognizione)
            continue;
        if (!Posto.contains(Gruppo)) {
            Posto[Gruppo] = int(Fatta.Righe.size());
            Fatta.Righe += QStringList{Gruppo.left(1).toUpper() + Gruppo.mid(1)};
        }
        Fatta.Righe[Posto[Gruppo]] << Medio(Importi, i);
    }
    return Fatta;
}

const QString CartellaAiuto = u"aiuto/"_s;
const QString PrefissoTasti = u"tasti:"_s;
/// The keys that work in every window, which have no window's name.
constexpr QStringView TastiOvunque = u"ovunque";

/// The keys of a window, from the program's own table.
TabellaDati TabellaDeiTasti(const QString& Finestra)
{
    TabellaDati Fatta{{5.5, 11.0}, {false, false}, {{u"Tasti"_s, u"Effetto"_s}}};
    for (const RigaTasti& Riga : TabellaTasti()) {
        if (Riga.Finestra != (Finestra == TastiOvunque ? QString() : Finestra))
            continue;
        QStringList Uguali;
        for (const QString& Tasti : Riga.Tasti.toString().split(u' '))
            if (const QString Nome = NomeTasti(Tasti); !Uguali.contains(Nome))
                Uguali << Nome;
        Fatta.Righe += QStringList{Uguali.join(u", "_s), Riga.Effetto.toString()};
    }
    if (Fatta.Righe.size() == 1)
        throw Errore(errori::Argomento, u"Nessun tasto di "_s + Finestra);
    return Fatta;
}

/// The pages of the help, where the folder of the guides has any.
std::optional<Aiuto> AiutoDi(const QString& Testi, const FonteTabelle& Tabelle)
{
    if (!EsisteFile(Testi + CartellaAiuto + u"indice.txt"_s))
        return std::nullopt;
    return LeggiAiuto(Testi, Tabelle);
}

void Scrivi(const TestoGuida& Testo, const std::optional<Aiuto>& Pagine, const QString& Uscita)
{
    Documento Doc;
    ComponiTesto(Doc, Testo);
    if (Testo.Capitoli && !Pagine)
        throw Errore(errori::FileMancante, Testo.Nome + u": manca aiuto/indice.txt"_s);
    if (Testo.Capitoli)
        ComponiCapitoli(Doc, *Pagine);
    const QString Pdf = Uscita + Testo.Nome.chopped(4) + u".pdf"_s;
    CreaCartella(CartellaFile(Pdf));
    Impaginazione(Doc).ScriviPdf(Pdf, Testo.Titolo);
}

void ScriviTutte(const QString& Tabelle, const QString& Uscita)
{
    const QString Testi = Barra(Tabelle + u"guide"_s);
    QDirIterator Passo(Testi, {u"*.txt"_s}, QDir::Files, QDirIterator::Subdirectories);
    if (!Passo.hasNext())
        throw Errore(errori::FileMancante, u"Non ci sono guide in "_s + Testi);
    const FonteTabelle Fonte = TabelleDi(Tabelle);
    const std::optional<Aiuto> Pagine = AiutoDi(Testi, Fonte);
    if (Pagine)
        ScriviAiuto(*Pagine, Uscita + CartellaAiuto);
    while (Passo.hasNext()) {
        const QString File = Passo.next();
        const QString Relativo = QDir(Testi).relativeFilePath(File);
        if (!Relativo.startsWith(CartellaAiuto))
            Scrivi(LeggiTesto(Relativo, QString::fromUtf8(LeggiFile(File)), Fonte), Pagine, Uscita);
    }
}

}  // namespace

FonteTabelle TabelleDi(const QString& Cartella)
{
    return [Cartella](const QString& Nome) {
        if (Nome == u"tassi_mora")
            return TabellaTassi(LeggiTassi(Cartella).Mora);
        if (Nome == u"tassi_legali")
            return TabellaTassi(LeggiTassi(Cartella).Legali);
        if (Nome == u"medi_tribunale")
            return TabellaTribunale(Cartella);
        if (Nome == u"medi_penali")
            return TabellaPenale(Cartella);
        if (Nome.startsWith(PrefissoTasti))
            return TabellaDeiTasti(Nome.mid(PrefissoTasti.size()));
        throw Errore(errori::Argomento, u"Tabella sconosciuta: "_s + Nome);
    };
}

int CreaGuide(const QStringList& Argomenti, QTextStream& Errori)
{
    if (Argomenti.size() != 2) {
        Errori << u"Uso: creaguide <cartella delle tabelle> <cartella di uscita>\n"_s;
        return 2;
    }
    try {
        ScriviTutte(Barra(Argomenti[0]), Barra(Argomenti[1]));
        return 0;
    } catch (...) {
        Errori << ErroreCorrente().Descrizione << u'\n';
        return 1;
    }
}
