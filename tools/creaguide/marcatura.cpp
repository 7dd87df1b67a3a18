#include "creaguide/marcatura.h"

#include "platform/base/errore.h"

#include <QRegularExpression>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int ArgomentoNonValido = 5;

constexpr double RientroVoceCm = 0.6;
constexpr double DopoParagrafoPunti = 6.0;
constexpr double DopoVocePunti = 3.0;
constexpr double PrimaSezionePunti = 12.0;
constexpr double PrimaParagrafoPunti = 8.0;
constexpr double DopoTitoloPunti = 14.0;

Carattere Corpo()
{
    return {u"Times New Roman"_s, 11.0};
}

Carattere FontTitolo()
{
    return {u"Arial"_s, 17.0, true};
}

Carattere FontSezione()
{
    return {u"Arial"_s, 12.0, true};
}

Carattere FontParagrafo()
{
    return {u"Arial"_s, 10.5, true};
}

Carattere FontTabella(bool Testata)
{
    return {u"Arial"_s, 9.0, Testata};
}

/// Reads a guide line by line; what a line belongs to is known from its first characters.
class Lettore
{
public:
    Lettore(const QString& File, const FonteTabelle& Fonte) : Nome(File), Tabelle(Fonte) {}

    Guida Leggi(const QString& Tutto)
    {
        for (const QString& Riga : Tutto.split(u'\n')) {
            ++Numero;
            Aggiungi(Riga.trimmed());
        }
        Chiudi();
        if (Fatta.Titolo.isEmpty())
            Rifiuta(u"manca il titolo"_s);
        Fatta.Doc.PiePagina = u"Pagina %d"_s;
        return std::move(Fatta);
    }

private:
    [[noreturn]] void Rifiuta(const QString& Motivo) const
    {
        throw Errore(ArgomentoNonValido, u"%1, riga %2: %3"_s.arg(Nome).arg(Numero).arg(Motivo));
    }

    void Aggiungi(const QString& Riga)
    {
        static const QRegularExpression Voce(u"\\A(-|[0-9]+[.]) +(.+)\\z"_s);
        if (Riga.isEmpty()) {
            Chiudi();
        } else if (Riga.startsWith(u"## ")) {
            Chiudi();
            Blocco(Riga.mid(3), FontSezione(), Allineamento::Sinistra,
                   {.SopraPunti = PrimaSezionePunti, .SottoPunti = DopoVocePunti});
        } else if (Riga.startsWith(u"### ")) {
            Chiudi();
            Blocco(Riga.mid(4), FontParagrafo(), Allineamento::Sinistra,
                   {.SopraPunti = PrimaParagrafoPunti, .SottoPunti = DopoVocePunti});
        } else if (Riga.startsWith(u"# ")) {
            ApriTitolo(Riga.mid(2));
        } else if (Riga.startsWith(u'%')) {
            Chiudi();
            Direttiva(Riga.mid(1));
        } else if (Riga.startsWith(u'|')) {
            RigaTabella(Riga);
        } else if (const auto Letta = Voce.match(Riga); Letta.hasMatch()) {
            Chiudi();
            Segno = Letta.captured(1) == u"-" ? u"•"_s : Letta.captured(1);
            Scritto = Letta.captured(2);
        } else {
            Scritto += (Scritto.isEmpty() ? QString() : u" "_s) + Riga;
        }
    }

    void ApriTitolo(const QString& Titolo)
    {
        if (!Fatta.Titolo.isEmpty())
            Rifiuta(u"un secondo titolo"_s);
        Fatta.Titolo = Titolo;
        Blocco(Titolo, FontTitolo(), Allineamento::Sinistra, {.SottoPunti = DopoTitoloPunti});
    }

    void Direttiva(const QString& Quale)
    {
        if (Quale == u"pagina")
            NuovaPagina = true;
        else if (Quale.startsWith(u"tabella "))
            Componi(Tabelle(Quale.mid(8).trimmed()), 0);
        else
            Rifiuta(u"direttiva sconosciuta: "_s + Quale);
    }

    void RigaTabella(const QString& Riga)
    {
        if (Riga.startsWith(u"|=")) {
            Chiudi();
            Misure(Riga.mid(2).simplified().split(u' '));
            return;
        }
        QStringList Celle = Riga.mid(1).split(u'|');
        for (QString& Cella : Celle)
            Cella = Cella.trimmed();
        if (size_t(Celle.size()) != Aperta.LarghezzeCm.size())
            Rifiuta(u"la riga ha %1 celle invece di %2"_s.arg(Celle.size()).arg(Aperta.LarghezzeCm.size()));
        Aperta.Righe += Celle;
    }

    void Misure(const QStringList& Parti)
    {
        for (QString Parte : Parti) {
            const bool Destra = Parte.endsWith(u'>');
            if (Destra)
                Parte.chop(1);
            bool Buona = false;
            const double Cm = Parte.toDouble(&Buona);
            if (!Buona || Cm <= 0.0)
                Rifiuta(u"«%1» non è una larghezza"_s.arg(Parte));
            Aperta.LarghezzeCm.push_back(Cm);
            Aperta.ADestra.push_back(Destra);
        }
    }

    /// Ends the paragraph, the item or the table that is open.
    void Chiudi()
    {
        if (!Aperta.LarghezzeCm.empty())
            Componi(std::exchange(Aperta, {}), 1);
        const QString Finito = std::exchange(Scritto, {});
        const QString SuoSegno = std::exchange(Segno, {});
        if (Finito.isEmpty())
            return;
        if (SuoSegno.isEmpty())
            Blocco(Finito, Corpo(), Allineamento::Giustificato, {.SottoPunti = DopoParagrafoPunti});
        else
            Blocco(SuoSegno + u'\t' + Finito, Corpo(), Allineamento::Giustificato,
                   {.SinistroCm = RientroVoceCm, .PrimaRigaCm = -RientroVoceCm, .SottoPunti = DopoVocePunti});
    }

    void Blocco(const QString& Parole, const Carattere& Font, Allineamento Allinea, const Rientri& Spazi)
    {
        if (Fatta.Titolo.isEmpty())
            Rifiuta(u"il titolo viene per primo"_s);
        Paragrafo Nuovo{Allinea, Tratti(Parole, Font), Font, Spazi, std::exchange(NuovaPagina, false)};
        Fatta.Doc.Blocchi.emplace_back(std::move(Nuovo));
    }

    std::vector<Tratto> Tratti(const QString& Parole, Carattere Font) const
    {
        static const QRegularExpression Segni(u"[*]{2}|_{2}"_s);
        std::vector<Tratto> Fatti;
        qsizetype Da = 0;
        auto Passi = Segni.globalMatch(Parole);
        while (Passi.hasNext()) {
            const auto Passo = Passi.next();
            if (Passo.capturedStart() > Da)
                Fatti.push_back({Parole.mid(Da, Passo.capturedStart() - Da), Font});
            Da = Passo.capturedEnd();
            bool& Quale = Passo.captured() == u"**" ? Font.Grassetto : Font.Corsivo;
            Quale = !Quale;
        }
        if (Da < Parole.size())
            Fatti.push_back({Parole.mid(Da), Font});
        if (Parole.count(u"**"_s) % 2 != 0 || Parole.count(u"__"_s) % 2 != 0)
            Rifiuta(u"grassetto o corsivo senza fine"_s);
        return Fatti;
    }

    /// A long table without rules has a blank row below its headings, which are then repeated on each page.
    void Componi(const TabellaDati& Dati, int Bordo)
    {
        Tabella Nuova;
        Nuova.LarghezzeCm = Dati.LarghezzeCm;
        Nuova.Bordo = Bordo;
        for (const QStringList& Riga : Dati.Righe) {
            const bool Testata = Nuova.Righe.empty();
            Nuova.Righe.push_back(Celle(Riga, Dati, Testata));
            if (Testata && Bordo == 0)
                Nuova.Righe.push_back(Celle(QStringList(Riga.size()), Dati, false));
        }
        Fatta.Doc.Blocchi.emplace_back(std::move(Nuova));
        Fatta.Doc.Blocchi.emplace_back(Paragrafo{Allineamento::Sinistra, {}, {u"Times New Roman"_s, 6.0}});
    }

    static std::vector<Cella> Celle(const QStringList& Testi, const TabellaDati& Dati, bool Testata)
    {
        std::vector<Cella> Fatte;
        for (const QString& Uno : Testi) {
            const bool Destra = Dati.ADestra[Fatte.size()];
            Fatte.push_back(
                {Uno, Destra ? Allineamento::Destra : Allineamento::Sinistra, FontTabella(Testata)});
        }
        return Fatte;
    }

    const QString Nome;
    const FonteTabelle& Tabelle;
    Guida Fatta;
    TabellaDati Aperta;
    QString Scritto;
    QString Segno;  ///< of the item that is open, empty for a paragraph
    int Numero = 0;
    bool NuovaPagina = false;
};

}  // namespace

Guida LeggiGuida(const QString& Nome, const QString& Testo, const FonteTabelle& Tabelle)
{
    return Lettore(Nome, Tabelle).Leggi(Testo);
}
