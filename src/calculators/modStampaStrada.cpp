#include "calculators/modStampaStrada.h"

#include "core/modErrori.h"
#include "platform/base/regionale.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr double PuntiTitolo = 12;
constexpr double PuntiTesto = 10;
constexpr double PuntiTabella = 9;
constexpr double SopraParte = 12;
constexpr double SottoRiga = 4;

/// A column of the table of steps.
struct ColonnaPassi
{
    QStringView Titolo;
    QStringView Larghezza;
    Allineamento Allinea;
};

// Together as wide as the page between the margins.
constexpr std::array Colonne{
    ColonnaPassi{u"Date", u"3.9cm", Allineamento::Sinistra},
    ColonnaPassi{u"Giorni", u"1.5cm", Allineamento::Destra},
    ColonnaPassi{u"Che cosa", u"5.9cm", Allineamento::Sinistra},
    ColonnaPassi{u"Norma", u"6.1cm", Allineamento::Sinistra},
};

void Riga(Superficie& vp, const QString& Testo, bool Grassetto = false)
{
    vp.FontBold(Grassetto);
    vp.Paragraph(Testo);
    vp.FontBold(false);
}

void ScriviRiga(Superficie& vp, int Numero, const std::array<QString, Colonne.size()>& Celle)
{
    for (size_t i = 0; i < Celle.size(); ++i)
        vp.CellaTabella(AttrTabella::Testo, Numero, int(i) + 1, Celle[i]);
}

void TabellaPassi(Superficie& vp, const Strada& Passi)
{
    vp.FontSize(PuntiTabella);
    vp.StartTable();
    vp.TableCell(AttrTabella::Colonne, int(Colonne.size()));
    vp.TableCell(AttrTabella::Righe, int(Passi.size()) + 1);
    for (size_t i = 0; i < Colonne.size(); ++i) {
        const int Colonna = int(i) + 1;
        vp.ColonnaTabella(AttrTabella::LarghezzaColonna, Colonna, Colonne[i].Larghezza.toString());
        vp.ColonnaTabella(AttrTabella::Allinea, Colonna, int(Colonne[i].Allinea));
        vp.CellaTabella(AttrTabella::Testo, 1, Colonna, Colonne[i].Titolo.toString());
        vp.CellaTabella(AttrTabella::Grassetto, 1, Colonna, true);
    }
    for (qsizetype i = 0; i < Passi.size(); ++i) {
        const PassoStrada& Passo = Passi[i];
        ScriviRiga(vp, int(i) + 2,
                   {DatePasso(Passo), Passo.Giorni > 0 ? CStr(Passo.Giorni) : QString(),
                    DescrizionePasso(Passo), NormaPasso(Passo)});
    }
    vp.TableBorder(1);
    vp.EndTable();
    vp.FontSize(PuntiTesto);
}

void Parte(Superficie& vp, const ParteStrada& Una)
{
    vp.SpaceBefore(SopraParte);
    if (!Una.Titolo.isEmpty())
        Riga(vp, Una.Titolo, true);
    Riga(vp, Una.Risultato, Una.Titolo.isEmpty());
    vp.KeepNext();
    TabellaPassi(vp, Una.Passi);
    for (const QString& Nota : Una.Note) {
        vp.SpaceBefore(SottoRiga);
        Riga(vp, Nota);
    }
}

}  // namespace

bool StampaStrada(Superficie& vp, const QStringList& Dati, const QList<ParteStrada>& Parti)
{
    if (Parti.isEmpty()) {
        MsgErrore(u"Non è stato effettuato alcun calcolo!"_s);
        return false;
    }
    vp.StartDoc();
    vp.Zoom = 80;
    vp.MarginLeft(u"2cm"_s);
    vp.MarginRight(u"1.4cm"_s);
    vp.MarginTop(u"2cm"_s);
    vp.MarginBottom(u"3cm"_s);
    vp.FontName(u"Arial"_s);
    vp.FontUnderline(false);
    vp.TextAlign(Allineamento::Centro);
    vp.FontSize(PuntiTitolo);
    Riga(vp, u"CALCOLO TERMINI"_s, true);
    vp.TextAlign(Allineamento::Sinistra);
    vp.FontSize(PuntiTesto);
    vp.Paragraph({});
    for (const QString& Testo : Dati)
        Riga(vp, Testo);
    for (const ParteStrada& Una : Parti)
        Parte(vp, Una);
    vp.EndDoc();
    return true;
}

QString TestoParti(const QList<ParteStrada>& Parti)
{
    QStringList Righe;
    for (const ParteStrada& Una : Parti) {
        if (!Righe.isEmpty())
            Righe << QString();
        if (!Una.Titolo.isEmpty())
            Righe << Una.Titolo;
        Righe << Una.Risultato << TestoStrada(Una.Passi);
        Righe += Una.Note;
    }
    return Righe.join(u'\n');
}
