#include "print/writers/esportazione.h"

#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "print/writers/scrittorehtml.h"
#include "print/writers/scrittorertf.h"

using namespace Qt::StringLiterals;

namespace {

bool Uguale(const QString& File, const QByteArray& Byte)
{
    try {
        return EsisteFile(File) && LeggiFile(File, Byte.size()) == Byte;
    } catch (const Errore&) {
        return false;  // what cannot be read, or is longer, is another one
    }
}

}  // namespace

QByteArray DocumentoEsportato(const Documento& Doc, FormatoEsportazione Formato, const QString& Titolo,
                              const Carta& Foglio)
{
    switch (Formato) {
    case FormatoEsportazione::Html:
        return ScriviHtml(Doc, Titolo, Foglio);
    case FormatoEsportazione::Word:
        return ScriviRtf(Doc, Titolo, Foglio);
    }
    throw Errore(errori::Argomento);
}

bool ScriviEsportato(const QString& File, const QByteArray& Byte)
{
    if (Uguale(File, Byte))
        return false;
    // Whoever has it open would be left with a file that is no longer there.
    if (!SolaLettura(File) && FileInUso(File))
        throw Errore(errori::Autorizzazione);
    ScriviFile(File, Byte, Lettori::Cartella);
    return true;
}

bool EsportaDocumento(const Documento& Doc, const QString& File, FormatoEsportazione Formato,
                      const QString& Titolo, const Carta& Foglio)
{
    return ScriviEsportato(File, DocumentoEsportato(Doc, Formato, Titolo, Foglio));
}
