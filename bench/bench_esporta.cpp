// Documents as files of other programs, and rich text read: five pages of a note, clauses of a megabyte.
#include "misura.h"

#include "feenote/parcella.h"
#include "platform/document/lettorertf.h"
#include "print/modStampe.h"
#include "print/writers/esportazione.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

/// About five pages: fees with their triples, 59 a page.
Documento CinquePagine()
{
    Parcella Nota;
    Nota.Pronta = true;
    Nota.CodCateg = u"CIV"_s;
    Nota.txtImporto.Testo = u"30.000,00"_s;
    Nota.chkMinMax.Attiva = true;
    for (int i = 0; i < 5 * 59 - 30; ++i) {
        const int Riga = Nota.xOnorari.AggiungiRiga();
        Nota.xOnorari(Riga, OnoDescr) =
            u"Esame e studio degli atti della controparte, attività n. %1"_s.arg(i);
        Nota.xOnorari(Riga, OnoQta) = 1.0;
        for (const int Colonna : {OnoImporto, OnoMedio, OnoMin, OnoMax})
            Nota.xOnorari(Riga, Colonna) = 1000.0 + i;
    }
    Superficie vp;
    return Anteprima(vp, Nota, StampaPrenotula) ? vp.Contenuto() : Documento();
}

/// Each run writes another title, or the file would be left as it is.
double Esporta(FormatoEsportazione Formato)
{
    const Documento Doc = CinquePagine();
    const QTemporaryDir Cartella;
    int Volta = 0;
    return MedianaMs(9, [&] {
        EsportaDocumento(Doc, Cartella.filePath(u"nota.doc"_s), Formato, QString::number(++Volta));
    });
}

/// A megabyte of clauses as a word processor writes them, formats and accents in every line.
QString UnMegabyte()
{
    constexpr qsizetype Lungo = 1 << 20;
    const QString Riga =
        u"\\pard\\plain\\qj\\sa120\\f0\\fs22 {\\b Art. 7} - Il compenso \\'e8 dovuto {\\i qualunque} sia "
        u"l\\rquote esito; pi\\u249? le spese, cos\\'ec come l'imposta.\\par\r\n"_s;
    return u"{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\froman Times New Roman;}}"_s +
           Riga.repeated(Lungo / Riga.size()) + u'}';
}

double LeggiUnMegabyte()
{
    const QString Testo = UnMegabyte();
    return MedianaMs(9, [&] { Consuma(static_cast<double>(LeggiRtf(Testo).size())); });
}

const RegistraMisura Word(u"export five pages for a word processor"_s, 50.0,
                          [] { return Esporta(FormatoEsportazione::Word); });
const RegistraMisura Html(u"export five pages as HTML"_s, 50.0,
                          [] { return Esporta(FormatoEsportazione::Html); });
const RegistraMisura Lettura(u"read 1 MB of rich text"_s, 100.0, LeggiUnMegabyte);

}  // namespace
