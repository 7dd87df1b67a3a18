#include "creaguide/paginaaiuto.h"

#include "platform/base/testopiano.h"

#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

using Genere = BloccoGuida::Genere;

QString Meta(const QString& Rimando)
{
    if (Rimando.startsWith(u"comando:") || Rimando.startsWith(u'#'))
        return Rimando;
    if (Rimando.startsWith(u"pdf:"))
        return u"../"_s + Rimando.mid(4) + u".pdf"_s;
    const qsizetype Segno = Rimando.indexOf(u'#');
    return Segno < 0 ? Rimando + u".htm"_s : Rimando.left(Segno) + u".htm"_s + Rimando.mid(Segno);
}

QString Html(const std::vector<ParoleGuida>& Parole)
{
    QString Fatto;
    for (const ParoleGuida& Parola : Parole) {
        QString Sua = Parola.Testo.toHtmlEscaped();
        if (!Parola.Rimando.isEmpty())
            Sua = u"<a href=\"%1\">%2</a>"_s.arg(Meta(Parola.Rimando).toHtmlEscaped(), Sua);
        if (Parola.Corsivo)
            Sua = u"<i>"_s + Sua + u"</i>"_s;
        if (Parola.Grassetto)
            Sua = u"<b>"_s + Sua + u"</b>"_s;
        Fatto += Sua;
    }
    return Fatto;
}

QString Cella(QStringView Marca, const QString& Testo, bool Destra, int Percento)
{
    return u"<%1%2 width=\"%3%\">%4</%1>"_s.arg(Marca, Destra ? u" class=\"cifre\"" : u"")
        .arg(Percento)
        .arg(Testo.toHtmlEscaped());
}

QString TavolaHtml(const TabellaDati& Dati)
{
    const double Totale = std::accumulate(Dati.LarghezzeCm.begin(), Dati.LarghezzeCm.end(), 0.0);
    QString Fatta = u"<table border=\"1\" cellspacing=\"0\" cellpadding=\"6\" width=\"100%\">\n"_s;
    for (qsizetype r = 0; r < Dati.Righe.size(); ++r) {
        Fatta += u"<tr>"_s;
        for (qsizetype c = 0; c < Dati.Righe[r].size(); ++c)
            Fatta += Cella(r == 0 ? u"th" : u"td", Dati.Righe[r][c], Dati.ADestra[size_t(c)],
                           int(std::lround(Dati.LarghezzeCm[size_t(c)] / Totale * 100.0)));
        Fatta += u"</tr>\n"_s;
    }
    return Fatta + u"</table>\n"_s;
}

/// Writes blocks one behind the other, with a list around items that follow each other.
class Stesura
{
public:
    void Scrivi(const BloccoGuida& Blocco)
    {
        const QString Elenco = Blocco.Che != Genere::Voce ? QString()
                               : Blocco.Segno == u"•"     ? u"ul"_s
                                                          : u"ol"_s;
        if (Elenco != Aperto || (Elenco == u"ol" && Blocco.Segno == u"1."))
            ApriElenco(Elenco);
        switch (Blocco.Che) {
        case Genere::Titolo:
            Fatto += u"<h1>%1</h1>\n"_s.arg(Html(Blocco.Parole));
            break;
        case Genere::Sezione:
            Fatto += u"<h2><a name=\"%1\"></a>%2</h2>\n"_s.arg(AncoraDi(Blocco.Testo()), Html(Blocco.Parole));
            break;
        case Genere::Parte:
            Fatto += u"<h3><a name=\"%1\"></a>%2</h3>\n"_s.arg(AncoraDi(Blocco.Testo()), Html(Blocco.Parole));
            break;
        case Genere::Testo:
            Fatto += u"<p>%1</p>\n"_s.arg(Html(Blocco.Parole));
            break;
        case Genere::Voce:
            Fatto += u"<li>%1</li>\n"_s.arg(Html(Blocco.Parole));
            break;
        case Genere::Tabella:
            Fatto += TavolaHtml(Blocco.Dati);
            break;
        }
    }

    QString Fine()
    {
        ApriElenco({});
        return std::move(Fatto);
    }

private:
    void ApriElenco(const QString& Nuovo)
    {
        if (!Aperto.isEmpty())
            Fatto += u"</%1>\n"_s.arg(Aperto);
        if (!Nuovo.isEmpty())
            Fatto += u"<%1>\n"_s.arg(Nuovo);
        Aperto = Nuovo;
    }

    QString Fatto;
    QString Aperto;  ///< the list that is open
};

bool SulloSchermo(const BloccoGuida& Blocco)
{
    return Blocco.Dove != BloccoGuida::Posto::Carta;
}

QString Passo(const QString& Pagina, const QString& Scritta)
{
    return Pagina.isEmpty()
               ? QString()
               : u"<a href=\"%1.htm\">%2</a>"_s.arg(Pagina.toHtmlEscaped(), Scritta.toHtmlEscaped());
}

}  // namespace

QString AncoraDi(const QString& Titolo)
{
    QString Fatta;
    for (const QChar Segno : TestoPiano(Titolo)) {
        if (Segno.isLetterOrNumber())
            Fatta += Segno;
        else if (!Fatta.isEmpty() && !Fatta.endsWith(u'-'))
            Fatta += u'-';
    }
    while (Fatta.endsWith(u'-'))
        Fatta.chop(1);
    return Fatta;
}

std::vector<SezioneAiuto> SezioniDi(const TestoGuida& Testo)
{
    std::vector<SezioneAiuto> Tutte{{QString(), Testo.Titolo, QString()}};
    for (const BloccoGuida& Blocco : Testo.Blocchi) {
        if (!SulloSchermo(Blocco) || Blocco.Che == Genere::Titolo)
            continue;
        if (Blocco.Che == Genere::Sezione || Blocco.Che == Genere::Parte)
            Tutte.push_back({AncoraDi(Blocco.Testo()), Blocco.Testo(), QString()});
        else
            Tutte.back().Testo = (Tutte.back().Testo + u' ' + Blocco.Testo()).simplified();
    }
    return Tutte;
}

QByteArray PaginaIntera(const QString& Titolo, const QString& Corpo)
{
    return u"<html>\n<head><meta charset=\"utf-8\"/><title>%1</title></head>\n<body>\n%2</body>\n</html>\n"_s
        .arg(Titolo.toHtmlEscaped(), Corpo)
        .toUtf8();
}

QByteArray PaginaAiuto(const TestoGuida& Testo, const CorniceAiuto& Cornice)
{
    Stesura Scrittura;
    for (const BloccoGuida& Blocco : Testo.Blocchi)
        if (SulloSchermo(Blocco))
            Scrittura.Scrivi(Blocco);
    const QString Passi =
        QStringList{Passo(Cornice.Prima, u"← "_s + Cornice.TitoloPrima), Passo(u"indice"_s, u"Indice"_s),
                    Passo(Cornice.Dopo, Cornice.TitoloDopo + u" →"_s)}
            .filter(u"<"_s)
            .join(u" &nbsp;|&nbsp; "_s);
    return PaginaIntera(Testo.Titolo,
                        u"<p class=\"piede\">%1</p>\n%2<hr/>\n<p class=\"piede\">%3</p>\n"_s.arg(
                            Cornice.Capitolo.toHtmlEscaped(), Scrittura.Fine(), Passi));
}
