#include "creaguide/marcatura.h"

#include "core/tasti.h"
#include "platform/base/errore.h"
#include "platform/base/numerierrore.h"

#include <QRegularExpression>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Genere = BloccoGuida::Genere;
using Posto = BloccoGuida::Posto;

/// Reads a guide line by line; what a line belongs to is known from its first characters.
class Lettore
{
public:
    Lettore(const QString& File, const FonteTabelle& Fonte) : Tabelle(Fonte) { Fatto.Nome = File; }

    TestoGuida Leggi(const QString& Tutto)
    {
        for (const QString& Riga : Tutto.split(u'\n')) {
            ++Numero;
            Aggiungi(Riga.trimmed());
        }
        Chiudi();
        if (Fatto.Titolo.isEmpty())
            Rifiuta(u"manca il titolo"_s);
        return std::move(Fatto);
    }

private:
    [[noreturn]] void Rifiuta(const QString& Motivo) const { RifiutaGuida(Fatto.Nome, Numero, Motivo); }

    void Aggiungi(const QString& Riga)
    {
        static const QRegularExpression Voce(u"\\A(-|[0-9]+[.]) +(.+)\\z"_s);
        if (Riga.isEmpty()) {
            Chiudi();
        } else if (Riga.startsWith(u"## ")) {
            Chiudi();
            Accoda(Genere::Sezione, Parole(Riga.mid(3)));
        } else if (Riga.startsWith(u"### ")) {
            Chiudi();
            Accoda(Genere::Parte, Parole(Riga.mid(4)));
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

    static std::vector<ParoleGuida> Semplici(const QString& Testo)
    {
        std::vector<ParoleGuida> Fatte;
        Fatte.push_back({Testo, false, false, {}});
        return Fatte;
    }

    void ApriTitolo(const QString& Titolo)
    {
        if (!Fatto.Titolo.isEmpty())
            Rifiuta(u"un secondo titolo"_s);
        Fatto.Titolo = Titolo;
        Accoda(Genere::Titolo, Semplici(Titolo));
    }

    void Direttiva(const QString& Scritta)
    {
        const QString Nome = Scritta.section(u' ', 0, 0);
        const QString Resto = Scritta.section(u' ', 1).trimmed();
        if (Nome == u"pagina" && Resto.isEmpty())
            NuovaPagina = true;
        else if (Nome == u"tabella")
            AccodaTabella(Resto);
        else if (Nome == u"tasti" && Resto.isEmpty())
            AltriTasti();
        else if (Nome == u"solo")
            Riserva(Resto);
        else if (Nome == u"capitoli" && Resto.isEmpty())
            Fatto.Capitoli = true;
        else if (Nome == u"prova")
            AggiungiProva(Resto);
        else
            Rifiuta(u"direttiva sconosciuta: "_s + Scritta);
    }

    void AccodaTabella(const QString& Nome)
    {
        AccodaTabella(Tabelle(Nome), Nome.startsWith(u"tasti:"));
        Mostrate << Nome;
    }

    void AltriTasti()
    {
        for (const GruppoTasti& Gruppo : GruppiTasti()) {
            const QString Nome =
                u"tasti:"_s + (Gruppo.Finestra.isEmpty() ? u"ovunque"_s : Gruppo.Finestra.toString());
            if (Mostrate.contains(Nome))
                continue;
            Accoda(Genere::Sezione, Semplici(Gruppo.Titolo.toString()));
            AccodaTabella(Nome);
        }
    }

    void Riserva(const QString& Per)
    {
        if (Per == u"carta")
            Dove = Posto::Carta;
        else if (Per == u"schermo")
            Dove = Posto::Schermo;
        else if (Per.isEmpty() && Dove != Posto::Ovunque)
            Dove = Posto::Ovunque;
        else
            Rifiuta(u"«%1» non è carta né schermo"_s.arg(Per));
    }

    void AggiungiProva(const QString& Scritta)
    {
        const QStringList Parti = Scritta.split(u"=>"_s);
        ProvaGuida Nuova{Parti.first().trimmed(), {}, Fatto.Blocchi.size(), Numero};
        for (const QString& Atteso : Parti.value(1).split(u';', Qt::SkipEmptyParts))
            Nuova.Attesi << Atteso.trimmed();
        if (Parti.size() != 2 || Nuova.Chiamata.isEmpty() || Nuova.Attesi.isEmpty() ||
            Nuova.Attesi.contains(QString()))
            Rifiuta(u"una prova è una chiamata, «=>» e quello che risponde"_s);
        Fatto.Prove.push_back(std::move(Nuova));
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
            AccodaTabella(std::exchange(Aperta, {}), true);
        const QString Finito = std::exchange(Scritto, {});
        const QString SuoSegno = std::exchange(Segno, {});
        if (Finito.isEmpty())
            return;
        Accoda(SuoSegno.isEmpty() ? Genere::Testo : Genere::Voce, Parole(Finito));
        Fatto.Blocchi.back().Segno = SuoSegno;
    }

    void Accoda(Genere Che, std::vector<ParoleGuida> Sue)
    {
        if (Fatto.Titolo.isEmpty())
            Rifiuta(u"il titolo viene per primo"_s);
        BloccoGuida Nuovo;
        Nuovo.Che = Che;
        Nuovo.Dove = Dove;
        Nuovo.Parole = std::move(Sue);
        Nuovo.NuovaPagina = std::exchange(NuovaPagina, false);
        Nuovo.Riga = Numero;
        Fatto.Blocchi.push_back(std::move(Nuovo));
    }

    void AccodaTabella(TabellaDati Dati, bool Lineata)
    {
        const bool Prima = std::exchange(NuovaPagina, false);
        Accoda(Genere::Tabella, {});
        Fatto.Blocchi.back().Dati = std::move(Dati);
        Fatto.Blocchi.back().Lineata = Lineata;
        NuovaPagina = Prima;  // a table begins no page: what follows it does
    }

    std::vector<ParoleGuida> Parole(const QString& Testo) const
    {
        static const QRegularExpression Segni(u"[*]{2}|_{2}|\\[([^\\]]+)\\]\\(([^)]*)\\)"_s);
        std::vector<ParoleGuida> Fatte;
        ParoleGuida Ora;
        bool Chiusi = true;
        const auto Metti = [&](const QString& Scritte, const QString& Rimando) {
            if (!Scritte.isEmpty())
                Fatte.push_back({Scritte, Ora.Grassetto, Ora.Corsivo, Rimando});
        };
        qsizetype Da = 0;
        auto Passi = Segni.globalMatch(Testo);
        while (Passi.hasNext()) {
            const auto Passo = Passi.next();
            Metti(Testo.mid(Da, Passo.capturedStart() - Da), {});
            Da = Passo.capturedEnd();
            if (Passo.captured() == u"**")
                Ora.Grassetto = !Ora.Grassetto;
            else if (Passo.captured() == u"__")
                Ora.Corsivo = !Ora.Corsivo;
            else if (Passo.captured(2).isEmpty())
                Rifiuta(u"un rimando senza meta: "_s + Passo.captured());
            else
                Metti(Passo.captured(1), Passo.captured(2));
            Chiusi = !Ora.Grassetto && !Ora.Corsivo;
        }
        Metti(Testo.mid(Da), {});
        if (!Chiusi)
            Rifiuta(u"grassetto o corsivo senza fine"_s);
        return Fatte;
    }

    const FonteTabelle& Tabelle;
    TestoGuida Fatto;
    QStringList Mostrate;  ///< tables of the program's data
    TabellaDati Aperta;
    QString Scritto;
    QString Segno;  ///< of the item that is open, empty for a paragraph
    Posto Dove = Posto::Ovunque;
    int Numero = 0;
    bool NuovaPagina = false;
};

}  // namespace

QString BloccoGuida::Testo() const
{
    QString Tutto;
    for (const ParoleGuida& Tratto : Parole)
        Tutto += Tratto.Testo;
    QStringList Celle;
    for (const QStringList& Parti : Dati.Righe)
        Celle << Parti.join(u' ');
    return Celle.isEmpty() ? Tutto : Celle.join(u'\n');
}

QString TestoGuida::TestoDellaSezione(size_t Blocco) const
{
    const auto Apre = [this](size_t i) {
        return Blocchi[i].Che == Genere::Sezione || Blocchi[i].Che == Genere::Titolo;
    };
    size_t Da = std::min(Blocco, Blocchi.size() - 1);
    if (Blocco < Blocchi.size() && Apre(Blocco) && Blocco > 0)
        --Da;  // written behind the last block of the section before
    while (Da > 0 && !Apre(Da))
        --Da;
    QStringList Righe{Blocchi[Da].Testo()};
    for (size_t i = Da + 1; i < Blocchi.size() && !Apre(i); ++i)
        Righe << Blocchi[i].Testo();
    return Righe.join(u'\n');
}

TestoGuida LeggiTesto(const QString& Nome, const QString& Testo, const FonteTabelle& Tabelle)
{
    return Lettore(Nome, Tabelle).Leggi(Testo);
}

void RifiutaGuida(const QString& Nome, int Riga, const QString& Motivo)
{
    throw Errore(errori::Argomento, u"%1, riga %2: %3"_s.arg(Nome).arg(Riga).arg(Motivo));
}
