#include "creaguide/aiuto.h"

#include "core/comandi.h"
#include "creaguide/composizione.h"
#include "creaguide/paginaaiuto.h"
#include "platform/pages/impaginazione.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QDir>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

using Genere = BloccoGuida::Genere;

constexpr QStringView PrefissoGuida = u"guida:";
/// The line of the index that stands for those of the calculators.
constexpr QStringView LeCalcolatrici = u"calcolatrici";
constexpr QStringView InizioCapitolo = u"Capitolo ";

TestoGuida LeggiFileTesto(const QString& Cartella, const QString& Relativo, const FonteTabelle& Tabelle)
{
    return LeggiTesto(Relativo, QString::fromUtf8(LeggiFile(Cartella + Relativo)), Tabelle);
}

/// The headings of a page one step up: its chapter is its title.
void Alza(BloccoGuida& Blocco)
{
    if (Blocco.Che == Genere::Sezione)
        Blocco.Che = Genere::Titolo;
    else if (Blocco.Che == Genere::Parte)
        Blocco.Che = Genere::Sezione;
}

/// A guide with a document of its own: its first page, then one for each chapter.
std::vector<PaginaDiAiuto> PagineDiGuida(const QString& Cartella, const QString& Nome,
                                         const FonteTabelle& Tabelle)
{
    TestoGuida Intera = LeggiFileTesto(Cartella, Nome + u".txt"_s, Tabelle);
    std::vector<PaginaDiAiuto> Pagine;
    for (size_t i = 0; i < Intera.Blocchi.size(); ++i) {
        BloccoGuida& Blocco = Intera.Blocchi[i];
        const bool Capitolo = Blocco.Che == Genere::Sezione && Blocco.Testo().startsWith(InizioCapitolo);
        if (Pagine.empty() || Capitolo) {
            const QString Suo = Pagine.empty() ? Nome : Nome + u'-' + QString::number(Pagine.size());
            Pagine.push_back({Suo, {Intera.Nome, Blocco.Testo(), {}, {}}, true});
        }
        if (Pagine.size() > 1)
            Alza(Blocco);
        Pagine.back().Testo.Blocchi.push_back(Blocco);
    }
    return Pagine;
}

void AggiungiPagine(Aiuto& Guida, const BloccoGuida& Voce, const QString& Cartella,
                    const FonteTabelle& Tabelle)
{
    if (Guida.Capitoli.empty())
        RifiutaGuida(Guida.Indice.Nome, Voce.Riga, u"una pagina senza capitolo"_s);
    auto& Pagine = Guida.Capitoli.back().Pagine;
    const QString Nome = Voce.Testo();
    if (!Nome.startsWith(PrefissoGuida)) {
        Pagine.push_back({Nome, LeggiFileTesto(Cartella, u"aiuto/"_s + Nome + u".txt"_s, Tabelle)});
        return;
    }
    for (PaginaDiAiuto& Sua : PagineDiGuida(Cartella, Nome.mid(PrefissoGuida.size()), Tabelle))
        Pagine.push_back(std::move(Sua));
}

/// The pages of the calculators that the index does not name, in the order of their icons.
void AggiungiCalcolatrici(Aiuto& Guida, const BloccoGuida& Voce, const QString& Cartella,
                          const FonteTabelle& Tabelle)
{
    for (const Comando* Riga : ComandiDellaScrivania()) {
        BloccoGuida Sua = Voce;
        Sua.Parole = {{Riga->Finestra.toString(), false, false, {}}};
        const auto Nominata = [&](const BloccoGuida& Blocco) {
            return Blocco.Che == Genere::Voce && Blocco.Testo() == Riga->Finestra;
        };
        if (!Riga->Finestra.isEmpty() && std::ranges::none_of(Guida.Indice.Blocchi, Nominata))
            AggiungiPagine(Guida, Sua, Cartella, Tabelle);
    }
}

QSet<QString> AncoreDi(const TestoGuida& Testo)
{
    QSet<QString> Tutte;
    for (const SezioneAiuto& Sezione : SezioniDi(Testo))
        Tutte << Sezione.Ancora;
    return Tutte;
}

/// Looks whether every reference leads somewhere.
class Controllo
{
public:
    Controllo(const Aiuto& Letta, const QString& Cartella) : Guide(Cartella)
    {
        for (const CapitoloAiuto& Capitolo : Letta.Capitoli)
            for (const PaginaDiAiuto& Pagina : Capitolo.Pagine) {
                if (Ancore.contains(Pagina.Nome))
                    RifiutaGuida(Letta.Indice.Nome, 0, u"%1 vi sta due volte"_s.arg(Pagina.Nome));
                Ancore[Pagina.Nome] = AncoreDi(Pagina.Testo);
            }
    }

    void Presenti(const QString& Indice) const
    {
        for (const QString& File :
             QDir(Guide + u"aiuto"_s).entryList({u"*.txt"_s}, QDir::Files, QDir::Name)) {
            const QString Nome = File.chopped(4);
            if (Nome != u"indice" && !Ancore.contains(Nome))
                RifiutaGuida(Indice, 0, u"manca la pagina %1"_s.arg(Nome));
        }
    }

    void Rimandi(const PaginaDiAiuto& Pagina) const
    {
        for (const BloccoGuida& Blocco : Pagina.Testo.Blocchi)
            for (const ParoleGuida& Parola : Blocco.Parole)
                if (!Parola.Rimando.isEmpty() && !Conduce(Parola.Rimando, Pagina.Nome))
                    RifiutaGuida(Pagina.Testo.Nome, Blocco.Riga,
                                 u"«%1» non porta da nessuna parte"_s.arg(Parola.Rimando));
    }

private:
    [[nodiscard]] bool Conduce(const QString& Rimando, const QString& Da) const
    {
        if (Rimando.startsWith(u"comando:"))
            return true;
        if (Rimando.startsWith(u"pdf:"))
            return EsisteFile(Guide + Rimando.mid(4) + u".txt"_s);
        const QString Nome = Rimando.startsWith(u'#') ? Da : Rimando.section(u'#', 0, 0);
        const auto Sue = Ancore.find(Nome);
        return Sue != Ancore.end() && (!Rimando.contains(u'#') || Sue->contains(Rimando.section(u'#', 1)));
    }

    QString Guide;
    QMap<QString, QSet<QString>> Ancore;
};

QString Collegamento(const PaginaDiAiuto& Pagina)
{
    return u"<a href=\"%1.htm\">%2</a>"_s.arg(Pagina.Nome.toHtmlEscaped(),
                                              Pagina.Testo.Titolo.toHtmlEscaped());
}

QByteArray PaginaIndice(const Aiuto& Guida)
{
    TestoGuida Introduzione = Guida.Indice;
    std::erase_if(Introduzione.Blocchi, [](const BloccoGuida& Blocco) {
        return Blocco.Che == Genere::Sezione || Blocco.Che == Genere::Voce;
    });
    QString Corpo = u"<h1>%1</h1>\n"_s.arg(Guida.Titolo.toHtmlEscaped());
    for (const SezioneAiuto& Sezione : SezioniDi(Introduzione))
        Corpo += u"<p>%1</p>\n"_s.arg(Sezione.Testo.toHtmlEscaped());
    for (const CapitoloAiuto& Capitolo : Guida.Capitoli) {
        Corpo += u"<h2>%1</h2>\n<ul>\n"_s.arg(Capitolo.Titolo.toHtmlEscaped());
        for (const PaginaDiAiuto& Pagina : Capitolo.Pagine)
            Corpo += u"<li>%1</li>\n"_s.arg(Collegamento(Pagina));
        Corpo += u"</ul>\n"_s;
    }
    return PaginaIntera(Guida.Titolo, Corpo);
}

/// A part of a line of the list.
QString SuUnaRiga(const QString& Testo)
{
    return Testo.simplified();
}

QByteArray Elenco(const Aiuto& Guida)
{
    QStringList Righe;
    for (const CapitoloAiuto& Capitolo : Guida.Capitoli) {
        Righe << u"C\t"_s + SuUnaRiga(Capitolo.Titolo);
        for (const PaginaDiAiuto& Pagina : Capitolo.Pagine) {
            const QString File = Pagina.Nome + u".htm"_s;
            Righe << u"P\t"_s + File + u'\t' + SuUnaRiga(Pagina.Testo.Titolo);
            for (const SezioneAiuto& Sezione : SezioniDi(Pagina.Testo))
                Righe << QStringList{u"S"_s, Sezione.Ancora.isEmpty() ? File : File + u'#' + Sezione.Ancora,
                                     SuUnaRiga(Sezione.Titolo), SuUnaRiga(Sezione.Testo)}
                             .join(u'\t');
        }
    }
    return (Righe.join(u'\n') + u'\n').toUtf8();
}

/// The pages one behind the other, with the title of the chapter of each.
std::vector<std::pair<const CapitoloAiuto*, const PaginaDiAiuto*>> InFila(const Aiuto& Guida)
{
    std::vector<std::pair<const CapitoloAiuto*, const PaginaDiAiuto*>> Tutte;
    for (const CapitoloAiuto& Capitolo : Guida.Capitoli)
        for (const PaginaDiAiuto& Pagina : Capitolo.Pagine)
            Tutte.emplace_back(&Capitolo, &Pagina);
    return Tutte;
}

bool SuCarta(const CapitoloAiuto& Capitolo)
{
    return std::ranges::any_of(Capitolo.Pagine,
                               [](const PaginaDiAiuto& Pagina) { return !Pagina.DiAltraGuida; });
}

Documento ConIndice(const Documento& Prima, const Aiuto& Guida, const QStringList& Numeri)
{
    Documento Doc = Prima;
    BloccoGuida Tavola;
    Tavola.Che = Genere::Tabella;
    Tavola.Dati = {{14.0, 2.5}, {false, true}, {{u"Capitoli e pagine"_s, u"Pagina"_s}}};
    qsizetype Posto = 0;
    for (const CapitoloAiuto& Capitolo : Guida.Capitoli) {
        if (!SuCarta(Capitolo))
            continue;
        Tavola.Dati.Righe += QStringList{Capitolo.Titolo.toUpper(), Numeri.value(Posto++, u"00"_s)};
        for (const PaginaDiAiuto& Pagina : Capitolo.Pagine)
            if (!Pagina.DiAltraGuida)
                Tavola.Dati.Righe +=
                    QStringList{u"    "_s + Pagina.Testo.Titolo, Numeri.value(Posto++, u"00"_s)};
    }
    TestoGuida Indice;
    Indice.Blocchi.push_back(std::move(Tavola));
    ComponiTesto(Doc, Indice);
    for (const CapitoloAiuto& Capitolo : Guida.Capitoli) {
        if (!SuCarta(Capitolo))
            continue;
        ComponiCapitolo(Doc, Capitolo.Titolo);
        for (const PaginaDiAiuto& Pagina : Capitolo.Pagine)
            if (!Pagina.DiAltraGuida)
                ComponiTesto(Doc, Pagina.Testo, Rango::Pagina);
    }
    return Doc;
}

}  // namespace

Aiuto LeggiAiuto(const QString& Cartella, const FonteTabelle& Tabelle)
{
    Aiuto Letta;
    Letta.Indice = LeggiFileTesto(Cartella, u"aiuto/indice.txt"_s, Tabelle);
    Letta.Titolo = Letta.Indice.Titolo;
    for (const BloccoGuida& Blocco : Letta.Indice.Blocchi) {
        if (Blocco.Che == Genere::Sezione)
            Letta.Capitoli.push_back({Blocco.Testo(), {}});
        else if (Blocco.Che == Genere::Voce && Blocco.Testo() == LeCalcolatrici)
            AggiungiCalcolatrici(Letta, Blocco, Cartella, Tabelle);
        else if (Blocco.Che == Genere::Voce)
            AggiungiPagine(Letta, Blocco, Cartella, Tabelle);
    }
    const Controllo Esame(Letta, Cartella);
    Esame.Presenti(Letta.Indice.Nome);
    for (const auto& [Capitolo, Pagina] : InFila(Letta))
        Esame.Rimandi(*Pagina);
    return Letta;
}

void ScriviAiuto(const Aiuto& Guida, const QString& Cartella)
{
    const QString Dentro = Barra(Cartella);
    CreaCartella(Dentro);
    QSet<QString> Scritte{u"indice.htm"_s};
    const auto Fila = InFila(Guida);
    for (size_t i = 0; i < Fila.size(); ++i) {
        CorniceAiuto Cornice{Fila[i].first->Titolo, {}, {}, {}, {}};
        if (i > 0) {
            Cornice.Prima = Fila[i - 1].second->Nome;
            Cornice.TitoloPrima = Fila[i - 1].second->Testo.Titolo;
        }
        if (i + 1 < Fila.size()) {
            Cornice.Dopo = Fila[i + 1].second->Nome;
            Cornice.TitoloDopo = Fila[i + 1].second->Testo.Titolo;
        }
        const QString File = Fila[i].second->Nome + u".htm"_s;
        ScriviFile(Dentro + File, PaginaAiuto(Fila[i].second->Testo, Cornice));
        Scritte << File;
    }
    ScriviFile(Dentro + u"indice.htm"_s, PaginaIndice(Guida));
    ScriviFile(Dentro + u"elenco.txt"_s, Elenco(Guida));
    for (const QString& File : QDir(Dentro).entryList({u"*.htm"_s}, QDir::Files))
        if (!Scritte.contains(File))
            EliminaFile(Dentro + File);
}

void ComponiCapitoli(Documento& Doc, const Aiuto& Guida)
{
    const Documento Prima = Doc;
    const Documento SenzaNumeri = ConIndice(Prima, Guida, {});
    const Impaginazione Pagine(SenzaNumeri);
    QStringList Numeri;
    qsizetype Dove = 0;
    const auto Segna = [&](const QString& Titolo) {
        Dove = Pagine.Testo().indexOf(u'\n' + Titolo + u'\n', Dove);
        Numeri << QString::number(Pagine.PaginaDi(++Dove));
    };
    for (const CapitoloAiuto& Capitolo : Guida.Capitoli) {
        if (!SuCarta(Capitolo))
            continue;
        Segna(Capitolo.Titolo);
        for (const PaginaDiAiuto& Pagina : Capitolo.Pagine)
            if (!Pagina.DiAltraGuida)
                Segna(Pagina.Testo.Titolo);
    }
    Doc = ConIndice(Prima, Guida, Numeri);
}
