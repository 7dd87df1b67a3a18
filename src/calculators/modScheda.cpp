#include "calculators/modScheda.h"

#include "core/modErrori.h"
#include "core/modLogoStampa.h"
#include "core/sessione.h"
#include "platform/base/regionale.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double PuntiTitolo = 12;
constexpr double PuntiTesto = 10;
constexpr double PuntiTabella = 9;
constexpr double SopraTitolo = 18;
constexpr double SopraParte = 12;
constexpr double SottoRiga = 4;

void Riga(Superficie& vp, const QString& Testo, bool Grassetto = false)
{
    vp.FontBold(Grassetto);
    vp.Paragraph(Testo);
    vp.FontBold(false);
}

/// Name, seat and codes of the office, each on its line; empty for a program that nobody has personalised.
QString TestoStudio()
{
    QStringList Righe;
    for (const QString& Parte : {sessione::StudioNome, sessione::StudioIndir, sessione::StudioCitta})
        if (!Parte.isEmpty())
            Righe << Parte;
    QStringList Codici;
    if (!sessione::StudioCodFisc.isEmpty())
        Codici << u"C.F. "_s + sessione::StudioCodFisc;
    if (!sessione::StudioPIva.isEmpty())
        Codici << u"P.I. "_s + sessione::StudioPIva;
    if (!Codici.isEmpty())
        Righe << Codici.join(u"  "_s);
    return Righe.join(u'\n');
}

/// The office at the left, the day at the right.
void Testa(Superficie& vp)
{
    vp.StartTable();
    vp.TableCell(AttrTabella::Colonne, 2);
    vp.TableCell(AttrTabella::Righe, 1);
    vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 1, u"12.4cm"_s);
    vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 2, u"5cm"_s);
    vp.ColonnaTabella(AttrTabella::Allinea, 1, int(Allineamento::AltoSinistra));
    vp.ColonnaTabella(AttrTabella::Allinea, 2, int(Allineamento::Destra));
    vp.CellaTabella(AttrTabella::Testo, 1, 1, TestoStudio());
    vp.CellaTabella(AttrTabella::Testo, 1, 2, Format(Oggi(), ModelloData));
    vp.TableBorder(0);
    vp.EndTable();
}

void ScriviTabella(Superficie& vp, const TabellaScheda& Tabella)
{
    vp.FontSize(PuntiTabella);
    vp.StartTable();
    vp.TableCell(AttrTabella::Colonne, int(Tabella.Colonne.size()));
    vp.TableCell(AttrTabella::Righe, int(Tabella.Righe.size()) + 1);
    for (qsizetype i = 0; i < Tabella.Colonne.size(); ++i) {
        const int Colonna = int(i) + 1;
        vp.ColonnaTabella(AttrTabella::LarghezzaColonna, Colonna, Tabella.Colonne[i].Larghezza);
        vp.ColonnaTabella(AttrTabella::Allinea, Colonna, int(Tabella.Colonne[i].Allinea));
        vp.CellaTabella(AttrTabella::Testo, 1, Colonna, Tabella.Colonne[i].Titolo);
        vp.CellaTabella(AttrTabella::Grassetto, 1, Colonna, true);
        for (qsizetype j = 0; j < Tabella.Righe.size(); ++j) {
            vp.CellaTabella(AttrTabella::Testo, int(j) + 2, Colonna, Tabella.Righe[j].value(i));
            if (Tabella.ConTotale && j + 1 == Tabella.Righe.size())
                vp.CellaTabella(AttrTabella::Grassetto, int(j) + 2, Colonna, true);
        }
    }
    vp.TableBorder(1);
    vp.EndTable();
    vp.FontSize(PuntiTesto);
}

void Sezione(Superficie& vp, const SezioneScheda& Parte)
{
    vp.SpaceBefore(SopraParte);
    if (!Parte.Titolo.isEmpty())
        Riga(vp, Parte.Titolo, true);
    if (!Parte.Risultato.isEmpty()) {
        vp.FontBold(Parte.Titolo.isEmpty());
        vp.Text(Parte.Risultato);
        vp.SpaceAfter(SottoRiga);
        vp.Paragraph({});
        vp.FontBold(false);
    }
    if (!Parte.Tabella.Righe.isEmpty()) {
        vp.KeepNext();
        ScriviTabella(vp, Parte.Tabella);
    }
    for (const QString& Nota : Parte.Note) {
        vp.SpaceBefore(SottoRiga);
        Riga(vp, Nota);
    }
}

void Elenco(Superficie& vp, const QString& Titolo, const QStringList& Righe)
{
    if (Righe.isEmpty())
        return;
    vp.FontSize(PuntiTabella);
    vp.SpaceBefore(SopraParte);
    Riga(vp, Titolo, true);
    for (const QString& Testo : Righe)
        Riga(vp, Testo);
    vp.FontSize(PuntiTesto);
}

}  // namespace

bool StampaScheda(Superficie& vp, const SchedaCalcolo& Scheda)
{
    if (Scheda.Sezioni.isEmpty()) {
        MsgErrore(u"Non è stato effettuato alcun calcolo!"_s);
        return false;
    }
    vp.StartDoc();
    vp.Zoom = 80;
    vp.MarginLeft(u"2cm"_s);
    vp.MarginRight(u"1.4cm"_s);
    vp.MarginTop(u"2cm"_s);
    vp.MarginBottom(u"3cm"_s);
    vp.HeadPicture(LogoDelleSchede());
    vp.Author(sessione::StudioNome);
    vp.Subject(Scheda.Titolo);
    vp.FontName(u"Arial"_s);
    vp.FontUnderline(false);
    vp.FontBold(false);
    vp.FontSize(PuntiTesto);
    vp.TextAlign(Allineamento::Sinistra);
    Testa(vp);
    vp.TextAlign(Allineamento::Centro);
    vp.FontSize(PuntiTitolo);
    vp.SpaceBefore(SopraTitolo);
    Riga(vp, Scheda.Titolo, true);
    vp.TextAlign(Allineamento::Sinistra);
    vp.FontSize(PuntiTesto);
    vp.Paragraph({});
    for (const QString& Testo : Scheda.Dati)
        Riga(vp, Testo);
    for (const SezioneScheda& Parte : Scheda.Sezioni)
        Sezione(vp, Parte);
    Elenco(vp, u"Norme"_s, Scheda.Norme);
    Elenco(vp, u"Dati"_s, Scheda.EtaDati);
    vp.EndDoc();
    AvvisaLogo();
    return true;
}

QList<QStringList> RigheScheda(const SchedaCalcolo& Scheda)
{
    // "Capitale: 1.000,00" in two cells; the colon of a sentence parts nothing.
    const auto DueCelle = [](const QString& Testo) {
        const qsizetype Dove = Testo.indexOf(u": "_s);
        return Dove < 0 ? QStringList{Testo, {}} : QStringList{Testo.left(Dove), Testo.mid(Dove + 2)};
    };
    QList<QStringList> Righe;
    if (Scheda.Sezioni.isEmpty())
        return Righe;
    for (const QString& Testo : Scheda.Dati)
        Righe << DueCelle(Testo);
    for (const SezioneScheda& Parte : Scheda.Sezioni) {
        if (!Parte.Titolo.isEmpty())
            Righe << QStringList{Parte.Titolo, Parte.Risultato};
        else if (!Parte.Risultato.isEmpty())
            Righe << DueCelle(Parte.Risultato);
        if (!Parte.Tabella.Righe.isEmpty()) {
            QStringList Titoli;
            for (const ColonnaScheda& Colonna : Parte.Tabella.Colonne)
                Titoli << Colonna.Titolo;
            Righe << Titoli << Parte.Tabella.Righe;
        }
        for (const QString& Nota : Parte.Note)
            Righe << QStringList{Nota};
    }
    return Righe;
}

QString TestoRighe(const QList<QStringList>& Righe)
{
    QStringList Testo;
    for (const QStringList& Celle : Righe)
        Testo << Celle.join(u'\t');
    return Testo.join(u'\n');
}
