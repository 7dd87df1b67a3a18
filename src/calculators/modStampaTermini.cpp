#include "calculators/modStampaTermini.h"

#include "core/modErrori.h"
#include "platform/base/errore.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QString SiNo(bool Segno)
{
    return Segno ? u"Sì"_s : u"No"_s;
}

void RigheVuote(Superficie& vp, int Quante)
{
    for (int i = 0; i < Quante; ++i)
        vp.Paragraph({});
}

void Prepara(Superficie& vp)
{
    vp.Zoom = 80;
    vp.MarginLeft(u"2cm"_s);
    vp.MarginRight(u"1.4cm"_s);
    vp.MarginTop(u"2cm"_s);
    vp.MarginBottom(u"3cm"_s);
    vp.HeadPicture({});  // of a sheet that stood on the same surface
    vp.Author({});
    vp.Subject({});
    vp.FontName(u"Arial"_s);
    vp.FontUnderline(false);
}

/// Title, data with a blank row between them, result and the line under it.
bool Componi(Superficie& vp, const QString& Titolo, const QStringList& Dati, const QString& Risultato,
             const QString& Avviso)
{
    if (Risultato.trimmed().isEmpty()) {
        MsgErrore(u"Non è stato effettuato alcun calcolo!"_s);
        return false;
    }
    vp.StartDoc();
    Prepara(vp);
    vp.TextAlign(Allineamento::Centro);
    vp.FontSize(12);
    vp.FontBold(true);
    vp.Paragraph(Titolo);
    RigheVuote(vp, 3);

    vp.TextAlign(Allineamento::Sinistra);
    vp.FontSize(10);
    vp.FontBold(false);
    for (const QString& Riga : Dati) {
        vp.Paragraph(Riga);
        if (&Riga != &Dati.last())
            RigheVuote(vp, 1);
    }
    RigheVuote(vp, 2);

    vp.FontBold(true);
    vp.FontUnderline(true);
    vp.Paragraph(u"RISULTATO ELABORAZIONE:"_s);
    vp.FontBold(false);
    vp.FontUnderline(false);
    RigheVuote(vp, 1);
    vp.Paragraph(Risultato);
    if (!Avviso.isEmpty())
        vp.Paragraph(Avviso);
    vp.EndDoc();
    return true;
}

}  // namespace

bool StampaTermine(Superficie& vp, const DatiTermine& Dati, const QString& Risultato, const QString& Avviso)
{
    const QString Unita =
        VociIncremento.size() > size_t(Dati.Tipo) ? VociIncremento[size_t(Dati.Tipo)].toString() : QString();
    return Componi(vp, u"CALCOLO TERMINI "_s,
                   {u"Data decorrenza: "_s + Dati.Decorrenza, u"Incremento: "_s + Dati.Numero + u' ' + Unita,
                    u"Sospensione feriale: "_s + SiNo(Dati.Opzioni.Sospensione),
                    u"Termine libero: "_s + SiNo(Dati.Opzioni.Libero),
                    // The sheet has always shown the free term here, whatever the Saturday.
                    u"Proroga del sabato: "_s + SiNo(Dati.Opzioni.Libero),
                    u"Scadenza: "_s + (Dati.Opzioni.Antecedente ? u"Antecedente"_s : u"Successiva"_s)},
                   Risultato, Avviso);
}

bool StampaSequenza(Superficie& vp, const QString& Udienza, int Articolo, const OpzioniTermine& Opzioni,
                    const QString& Risultato, const QString& Avviso)
{
    if (Articolo < 0 || Articolo >= int(Articoli().size()))
        throw Errore(errori::Indice);
    return Componi(vp, u"CALCOLO TERMINI SEQUENZIALI"_s,
                   {u"Articolo: "_s + Articoli()[size_t(Articolo)].Voce.toString(),
                    u"Data udienza: "_s + Udienza, u"Sospensione feriale: "_s + SiNo(Opzioni.Sospensione),
                    u"Proroga del sabato: "_s + SiNo(Opzioni.Sabato)},
                   Risultato, Avviso);
}
