// versioni.txt as any server may send it: what is read of it goes into paths, addresses and a message.
#include "bersaglio.h"

#include "update/versioni.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

bool NomeSemplice(const QString& Nome)
{
    return !Nome.contains(u'/') && !Nome.contains(u'\\') && !Nome.startsWith(u'.') && Nome.size() <= 100;
}

void Prova(const QByteArray& Dati)
{
    const Versioni Lette = LeggiVersioni(Dati.left(MassimoVersioni));
    static const QRegularExpression TreNumeri(u"^[0-9]{1,5}\\.[0-9]{1,5}\\.[0-9]{1,5}\\z"_s);
    Pretendi(Lette.Versione.isEmpty() || TreNumeri.match(Lette.Versione).hasMatch());
    Pretendi(!Lette.RigaVuota || Lette.Versione.isEmpty());
    Pretendi(!Lette.DataTassi || Lette.DataTassi->isValid());
    Pretendi(Lette.Nota.size() <= 500);
    for (const QChar Segno : Lette.Nota)
        Pretendi(Segno.category() != QChar::Other_Control);
    for (const FileElencato& File : Lette.File) {
        Pretendi(NomeSemplice(File.Nome) && File.Byte >= 0 && File.Sha256.size() == 32);
        Pretendi(Lette.Elencato(File.Nome) != nullptr);
        // The line is written as it is read.
        const Versioni Ancora = LeggiVersioni("\n\n\n" + RigaElenco(File).toLatin1());
        Pretendi(Ancora.File.size() == 1 && Ancora.File.first() == File);
    }
    // Newer one way at most.
    const QString Presente = u"3.0.14"_s;
    Pretendi(!VersioneNuova(Lette.Versione, Presente) || !VersioneNuova(Presente, Lette.Versione));
}

}  // namespace

BERSAGLIO(fuzz_versioni, Prova);
