#include "print/modTestata.h"

#include "core/sessione.h"

using namespace Qt::StringLiterals;

namespace {

/// The text on a line of its own below another; nothing when it is empty.
QString Sotto(const QString& Testo)
{
    return Testo.isEmpty() ? QString() : u'\n' + Testo;
}

QString CodiciStudio()
{
    QString Codici;
    if (!sessione::StudioCodFisc.isEmpty())
        Codici += u"C.F. "_s + sessione::StudioCodFisc + u'\n';
    if (!sessione::StudioPIva.isEmpty())
        Codici += u"P.I. "_s + sessione::StudioPIva;
    return Codici;
}

}  // namespace

void TestoInCella(Superficie& vp, int Riga, int Colonna, const QString& Testo)
{
    vp.CellaTabella(AttrTabella::Testo, Riga, Colonna, Testo);
}

void RigaVuota(Superficie& vp, int Quante)
{
    for (int Fatte = 0; Fatte < Quante; ++Fatte)
        vp.Paragraph({});
}

void IntestazioneStudio(Superficie& vp, const Parcella& Nota, int /*Tipo*/)
{
    vp.FontSize(12);
    vp.TextAlign(Allineamento::Sinistra);
    vp.StartTable();
    vp.TableCell(AttrTabella::Colonne, QVariant(3));
    vp.TableCell(AttrTabella::Righe, QVariant(2));
    vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 1, u"8cm"_s);
    vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 2, u"0.5cm"_s);
    vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 3, u"9.5cm"_s);
    for (const int Colonna : {1, 3})
        vp.ColonnaTabella(AttrTabella::AllineaTesto, Colonna, static_cast<int>(Allineamento::AltoSinistra));

    TestoInCella(vp, 1, 1,
                 sessione::StudioNome + Sotto(sessione::StudioIndir) + Sotto(sessione::StudioCitta));
    vp.CellaTabella(AttrTabella::FontDimensione, 2, 1, 10);
    TestoInCella(vp, 2, 1, CodiciStudio());
    TestoInCella(vp, 2, 3, Nota.txtDatiStaCli.Testo);
    vp.TableBorder(0);
    vp.EndTable();
}

void VoceIntestazione(Superficie& vp, const QString& Decide, const QString& Testo)
{
    if (Decide.isEmpty())
        return;
    RigaVuota(vp);
    vp.SpaceBefore(SpazioVoce);
    vp.Text(Testo);
}

QString RigaControparte(const Parcella& Nota)
{
    // A counterparty of the archive stays with the note when the user takes it out of what is printed.
    const QString& Testo = Nota.txtDatiStaControp.Testo;
    return Nota.txtControp.Testo.isEmpty() || Testo.isEmpty() ? QString() : u"Controparte: "_s + Testo;
}

QString RigaValore(const Parcella& Nota)
{
    return Nota.CodCateg == Penale || Nota.Multipla() ? QString() : u"Valore: "_s + TestoValore(Nota);
}

void StampaIban(Superficie& vp, const Parcella& Nota)
{
    if (!Nota.chkIBAN.Attiva)
        return;
    RigaVuota(vp, 2);
    vp.Text(u"Il pagamento può essere effettuato mediante bonifico su c/c con il seguente IBAN: "_s +
            sessione::Iban);
}

void StampaFirma(Superficie& vp)
{
    constexpr int BianchiPrima = 65;  // pushes the signature to the right half
    if (sessione::Firma.isEmpty()) {
        RigaVuota(vp);
        return;
    }
    // A signature stands with what it signs.
    vp.KeepNext();
    RigaVuota(vp);
    vp.KeepNext();
    RigaVuota(vp);
    vp.KeepNext();
    vp.Text(QString(BianchiPrima, u' ') + FirmaSuRighe(BianchiPrima));
}

QString FirmaSuRighe(int Bianchi)
{
    // The right half of the sheet holds so many letters of eleven points; what the page broke by itself would
    // go on at the left margin, in an estimate below the client's signature.
    constexpr int LettereDiRiga = 50;
    QString Righe;
    QString Riga;
    for (const QString& Parola : sessione::Firma.split(u' ', Qt::SkipEmptyParts)) {
        if (!Riga.isEmpty() && Riga.size() + 1 + Parola.size() > LettereDiRiga) {
            Righe += Riga + u'\n' + QString(Bianchi, u' ');
            Riga.clear();
        }
        Riga += (Riga.isEmpty() ? QString() : u" "_s) + Parola;
    }
    return sessione::Firma.size() > LettereDiRiga ? Righe + Riga : sessione::Firma;
}
