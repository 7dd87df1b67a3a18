// The files of clauses, which the office edits with any program: what cannot be printed has its reason, what
// can be is laid out and exported.
#include "fonte.h"

#include "platform/document/superficie.h"
#include "print/modClausole.h"
#include "print/writers/scrittorehtml.h"
#include "print/writers/scrittorertf.h"
#include "print/writers/scrittoretesto.h"

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    const Clausole Lette = LeggiClausole(Posa(u"clausole.rtf"_s, Dati));
    Pretendi(Lette.Esito != EsitoClausole::Mancano && Lette.Esito != EsitoClausole::Illeggibili);
    Pretendi(Lette.Testo.size() <= MassimoTesto);
    if (Lette.Testo.isEmpty()) {
        Pretendi(Lette.Esito != EsitoClausole::Lette);
        return;
    }
    Superficie Doc;
    Doc.StartDoc();
    Doc.Paragraph(Lette.Testo);
    Doc.EndDoc();
    (void)ScriviTesto(Doc.Contenuto());
    (void)ScriviRtf(Doc.Contenuto());
    QXmlStreamReader Letto(ScriviHtml(Doc.Contenuto()));
    while (!Letto.atEnd())
        Letto.readNext();
    Pretendi(!Letto.hasError());
}

}  // namespace

BERSAGLIO(fuzz_clausole, Prova);
