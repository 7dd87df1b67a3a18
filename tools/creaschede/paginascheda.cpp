#include "creaschede/paginascheda.h"

#include "creaschede/importischeda.h"
#include "feenote/modOnorari.h"
#include "feenote/modQuantita.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView ColonnaDalMedio = u"«Dal medio»: quanto il minimo e il massimo se ne scostano.";
constexpr QStringView ColonnaUfficio =
    u" «Ufficio»: quanto il medio si scosta da quello dell'ufficio di base.";
constexpr QStringView QuantitaOre =
    u"L'importo è quello di un'ora. All'inserimento il programma chiede le ore impiegate: anche una frazione "
    u"d'ora conta, e il numero è portato all'intero superiore.";
constexpr QStringView QuantitaOltre =
    u"L'importo è quello di un'ora. All'inserimento il programma chiede le ore impiegate, e le porta a ore "
    u"intere: una frazione vale un'ora soltanto oltre i trenta minuti.";
constexpr QStringView QuantitaVuota =
    u"Con una risposta che non arriva a un'ora, vuota o pari a zero la voce non è inserita.";
constexpr QStringView QuantitaNumero =
    u"L'importo è quello di una sola prestazione. All'inserimento il programma chiede quante sono: un numero "
    u"con decimali è portato all'intero superiore.";
constexpr QStringView QuantitaInFondo = u"Fa eccezione il solo centesimo oltre un numero pari, che non "
                                        u"conta. Con una risposta vuota o pari a zero "
                                        u"la voce non è inserita.";

QString NomeCategoria(const QString& Categ)
{
    return Categ == Civile   ? u"Onorari civili e amministrativi"_s
           : Categ == Penale ? u"Onorari penali"_s
                             : u"Onorari stragiudiziali"_s;
}

QString Titolo2(const QString& Testo)
{
    return u"<h2>"_s + Testo.toHtmlEscaped() + u"</h2>\n"_s;
}

QString Paragrafo(const QString& Html)
{
    return u"<p>"_s + Html + u"</p>\n"_s;
}

QString Piccolo(const QString& Html)
{
    return u"<p class=\"piede\">"_s + Html + u"</p>\n"_s;
}

QString Riquadro(const QString& Html)
{
    return u"<table border=\"0\" cellspacing=\"0\" cellpadding=\"8\" width=\"99%\"><tr><td class=\"attenzione\">"_s +
           Html + u"</td></tr></table>\n"_s;
}

/// Writes the sections of a sheet, one after the other, into one text.
class Composizione
{
public:
    Composizione(const Tariffe& Tutte, const QString& Categoria, const VoceTariffa& Sua,
                 const TestiSchede& TestiCateg)
        : Dati(Tutte), Categ(Categoria), Voce(Sua), Testi(TestiCateg)
    {}

    QString Componi();

private:
    /// The category, and the tariff where it is not that of 2012.
    [[nodiscard]] QString DiQuale() const;

    /// A directive stands once in the sheet of an item that wants it, and in no other.
    void Pretendi(const SezioneScheda& Sezione, const QString& Direttiva, bool Serve) const;
    void Scrivi(const SezioneScheda& Sezione);
    void Aggiungi(const QString& Riga);

    /// Ends the paragraph or the item that is open.
    void Chiudi();
    void ChiudiElenco();
    [[nodiscard]] QString Marcato(const QString& Testo) const;
    void Direttiva(const QString& Nome, const QString& Argomenti);
    void Importi(const ModoImporti& Modo);
    void ImportiCivili(const ModoImporti& Modo);

    /// One anchor for each authority of a group: a note opens the sheet at its own.
    [[nodiscard]] QString Ancore(const QString& Gruppo) const;
    [[nodiscard]] QString Uffici(const QString& Gruppo) const;
    void ConEsempio(const QStringList& Parole);
    void Quantita();
    void Collegamenti(const QStringList& Quali);
    static const QString& CategoriaDi(const QString& Quale);

    const Tariffe& Dati;
    const QString Categ;
    const VoceTariffa& Voce;
    const TestiSchede& Testi;
    const SezioneScheda* Qui = nullptr;
    qsizetype Linea = 0;
    QString Html;
    QString Scritto;  ///< of the paragraph or item that is open
    bool DaVoce = false;
    bool InElenco = false;
    bool InPiccolo = false;  ///< the words that close the sheet
};

QString Composizione::Componi()
{
    const SezioneScheda& Sezione = Testi.Voci.at(Voce.Codice);
    Scrivi(Sezione);
    Pretendi(Sezione, u"%importi"_s, HaImporti(Dati, Categ, Voce));
    Pretendi(Sezione, u"%quantità"_s, !Voce.Quantita.isEmpty());
    if (!Sezione.Testo.contains(u"## "_s + SezioneNorme.toString()))
        Sezione.Rifiuta(-1, u"manca «## %1»"_s.arg(SezioneNorme));
    InPiccolo = true;
    Scrivi(Testi.Fondo);
    return u"<html>\n<head><meta charset=\"utf-8\"/><title>%1</title></head>\n<body>\n<h1>%1</h1>\n"
           u"<p class=\"piede\">%2, voce %3</p>\n%4</body>\n</html>\n"_s.arg(
               Voce.Descrizione.toHtmlEscaped(), DiQuale(), QString::number(Voce.NVoce), Html);
}

QString Composizione::DiQuale() const
{
    const QString& Nome = Dati.Identita.Nome;
    return NomeCategoria(Categ) + (Nome.isEmpty() ? QString() : u", "_s + Nome.toHtmlEscaped());
}

void Composizione::Pretendi(const SezioneScheda& Sezione, const QString& Direttiva, bool Serve) const
{
    const auto Volte = std::ranges::count_if(Sezione.Testo, [&](const QString& Una) {
        return Una == Direttiva || Una.startsWith(Direttiva + u' ');
    });
    if (Volte != (Serve ? 1 : 0))
        Sezione.Rifiuta(-1, Serve ? u"«%1» serve una volta"_s.arg(Direttiva)
                                  : u"«%1» non serve a questa voce"_s.arg(Direttiva));
}

void Composizione::Scrivi(const SezioneScheda& Sezione)
{
    Qui = &Sezione;
    for (Linea = 0; Linea < Sezione.Testo.size(); ++Linea)
        Aggiungi(Sezione.Testo[Linea]);
    Chiudi();
    ChiudiElenco();
}

void Composizione::Aggiungi(const QString& Riga)
{
    if (Riga.isEmpty()) {
        Chiudi();
    } else if (Riga.startsWith(u"## ")) {
        Chiudi();
        ChiudiElenco();
        Html += Titolo2(Riga.mid(3));
    } else if (Riga.startsWith(u'%')) {
        Chiudi();
        ChiudiElenco();
        Direttiva(Riga.mid(1).section(u' ', 0, 0), Riga.section(u' ', 1));
    } else if (Riga.startsWith(u"- ")) {
        Chiudi();
        if (!std::exchange(InElenco, true))
            Html += u"<ul>\n"_s;
        DaVoce = true;
        Scritto = Riga.mid(2);
    } else {
        Scritto += (Scritto.isEmpty() ? QString() : u" "_s) + Riga;
    }
}

void Composizione::Chiudi()
{
    const QString Finito = std::exchange(Scritto, {});
    const bool SuaVoce = std::exchange(DaVoce, false);
    if (Finito.isEmpty())
        return;
    if (SuaVoce) {
        Html += u"<li>"_s + Marcato(Finito) + u"</li>\n"_s;
        return;
    }
    ChiudiElenco();
    Html += InPiccolo ? Piccolo(Marcato(Finito)) : Paragrafo(Marcato(Finito));
}

void Composizione::ChiudiElenco()
{
    if (std::exchange(InElenco, false))
        Html += u"</ul>\n"_s;
}

QString Composizione::Marcato(const QString& Testo) const
{
    const QStringList Parti = Testo.toHtmlEscaped().split(u"**"_s);
    if (Parti.size() % 2 == 0)
        Qui->Rifiuta(Linea, u"grassetto senza fine"_s);
    QString Fatto;
    for (qsizetype i = 0; i < Parti.size(); ++i)
        Fatto += i % 2 == 1 ? u"<b>"_s + Parti[i] + u"</b>"_s : Parti[i];
    return Fatto;
}

void Composizione::Direttiva(const QString& Nome, const QString& Argomenti)
{
    const QStringList Parole = Argomenti.split(u' ', Qt::SkipEmptyParts);
    try {
        if (Nome == u"importi")
            Importi({Parole.value(0) == u"percentuali", Parole.value(1)});
        else if (Nome == u"esempio")
            ConEsempio(Parole);
        else if (Nome == u"quantità")
            Quantita();
        else if (Nome == u"vedi")
            Collegamenti(Parole);
        else if (Nome == u"attenzione")
            Html += Riquadro(Marcato(Argomenti));
        else
            throw Errore(errori::Argomento, u"direttiva sconosciuta: "_s + Nome);
    } catch (const Errore& Guasto) {
        Qui->Rifiuta(Linea, Guasto.Descrizione);
    }
}

void Composizione::Importi(const ModoImporti& Modo)
{
    Html += Titolo2(u"Importi"_s);
    if (Categ == Civile)
        ImportiCivili(Modo);
    else
        Html += Categ == Penale ? TabellaPenale(Dati, Voce, Modo) : TabellaStragiudiziale(Dati, Voce);
    if (Modo.Percentuali)
        Html += Piccolo(ColonnaDalMedio.toString() +
                        (Modo.Riferimento.isEmpty() ? QString() : ColonnaUfficio.toString()));
    if (InDubbio(Dati, Voce))
        Html += Riquadro(Marcato(Testi.Dubbio.Testo.join(u' ').simplified()));
}

void Composizione::ImportiCivili(const ModoImporti& Modo)
{
    const QStringList Gruppi = GruppiCivili(Dati, Voce);
    if (Gruppi.size() > 1) {
        QStringList Indice;
        for (qsizetype i = 0; i < Gruppi.size(); ++i)
            Indice +=
                u"<a href=\"#g%1\">%2</a>"_s.arg(i + 1).arg(Testi.Gruppi[Gruppi[i]].Titolo.toHtmlEscaped());
        Html += Paragrafo(Indice.join(u" - "_s));
    }
    const SezioneScheda* Prima = Qui;
    const qsizetype PrimaLinea = Linea;
    for (qsizetype i = 0; i < Gruppi.size(); ++i) {
        const SezioneScheda& Gruppo = Testi.Gruppi[Gruppi[i]];
        Html += u"<h3><a name=\"g%1\"></a>%2%3</h3>\n"_s.arg(i + 1).arg(Ancore(Gruppi[i]),
                                                                        Gruppo.Titolo.toHtmlEscaped()) +
                Piccolo(Uffici(Gruppi[i]));
        Html += TabellaCivile(Dati, Voce, Gruppi[i], Modo);
        Scrivi(Gruppo);
    }
    Qui = Prima;
    Linea = PrimaLinea;
}

QString Composizione::Ancore(const QString& Gruppo) const
{
    QString Tutte;
    for (const AutoritaTariffa& Ente : Dati.Enti)
        if (Ente.Categ == Categ && Ente.Gruppo == Gruppo)
            Tutte += u"<a name=\"a%1\"></a>"_s.arg(Ente.Dati.IDAut);
    return Tutte;
}

QString Composizione::Uffici(const QString& Gruppo) const
{
    QStringList Nomi;
    for (const AutoritaTariffa& Ente : Dati.Enti)
        if (Ente.Categ == Categ && Ente.Gruppo == Gruppo)
            Nomi += Ente.Dati.DesAut.toHtmlEscaped();
    return Nomi.join(u"; "_s);
}

void Composizione::ConEsempio(const QStringList& Parole)
{
    if (Categ != Stragiudiziale || Parole.isEmpty() || (Parole.size() > 1) == Voce.Quantita.isEmpty())
        throw Errore(errori::Argomento, u"l'esempio non si adatta alla voce"_s);
    Html += Titolo2(u"Un esempio"_s) + Esempio(Dati, Voce, NumeroDi(Parole[0]), Parole.value(1));
}

void Composizione::Quantita()
{
    Html += Titolo2(u"Quantità"_s);
    const bool Oltre = Voce.Quantita.startsWith(CodiceOreEFrazioni);
    Html += Paragrafo(Oltre ? QuantitaOltre.toString()
                            : (Voce.Quantita.startsWith(u'H') ? QuantitaOre : QuantitaNumero).toString());
    QString Conti;
    for (const QString& Risposta : {u"1"_s, u"2,5"_s, Oltre ? u"2,51"_s : u"2,02"_s, u"2,01"_s})
        Conti += u"<li>%1 conta %2</li>\n"_s.arg(Risposta, CStr(QuantitaContata(Voce.Quantita, Risposta)));
    Html += u"<ul>\n"_s + Conti + u"</ul>\n"_s;
    Html += Paragrafo((Oltre ? QuantitaVuota : QuantitaInFondo).toString());
}

void Composizione::Collegamenti(const QStringList& Quali)
{
    QString Voci;
    for (const QString& Quale : Quali) {
        const QString& Sua = CategoriaDi(Quale);
        const QList<VoceTariffa>& Elenco = Dati.Voci.find(Sua).value();
        const auto Trovata = std::ranges::find(Elenco, Quale.mid(1).toInt(), &VoceTariffa::Codice);
        if (Trovata == Elenco.end())
            throw Errore(errori::Argomento, u"nessuna voce %1"_s.arg(Quale));
        Voci += u"<li><a href=\"%1\">%2</a>%3</li>\n"_s.arg(
            FileScheda(Sua, Trovata->Codice), Trovata->Descrizione.toHtmlEscaped(),
            Sua == Categ ? QString() : u" ("_s + NomeCategoria(Sua).toLower() + u')');
    }
    Html += Titolo2(u"Voci vicine"_s) + u"<ul>\n"_s + Voci + u"</ul>\n"_s;
}

const QString& Composizione::CategoriaDi(const QString& Quale)
{
    static const QStringList Categorie{Civile.toString(), Penale.toString(), Stragiudiziale.toString()};
    const auto Trovata =
        std::ranges::find_if(Categorie, [&](const QString& Una) { return Una[0] == Quale[0]; });
    if (Trovata == Categorie.end())
        throw Errore(errori::Argomento, u"nessuna voce %1"_s.arg(Quale));
    return *Trovata;
}

}  // namespace

QString PaginaScheda(const Tariffe& Dati, const QString& Categ, const VoceTariffa& Voce,
                     const TestiSchede& Testi)
{
    return Composizione(Dati, Categ, Voce, Testi).Componi();
}
