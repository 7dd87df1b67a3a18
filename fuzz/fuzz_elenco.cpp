// The catalogue of documents: whatever it names, rows are files of its own folder, each of them once.
#include "fonte.h"

#include "update/modDocumenti.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

/// A folder with documents, a folder named like one, and links that lead out.
QString Cartella()
{
    static const QString Pronta = [] {
        const QString Radice = CartellaDiLavoro() + u"docum/"_s;
        QDir().mkpath(Radice + u"sotto.pdf"_s);
        for (const QString& Nome : {u"uno.pdf"_s, u"Due.DOC"_s, u"per\u00F2.xls"_s, u"..pdf"_s, u"a b.txt"_s})
            (void)Posa(u"docum/"_s + Nome, "x");
        (void)Posa(u"fuori.pdf"_s, "x");
        QFile::link(CartellaDiLavoro() + u"fuori.pdf"_s, Radice + u"legato.pdf"_s);
        QFile::link(Radice + u"uno.pdf"_s, Radice + u"dentro.pdf"_s);
        return Radice;
    }();
    return Pronta;
}

void Prova(const QByteArray& Dati)
{
    const QString Qui = QFileInfo(Cartella()).canonicalFilePath();
    (void)Posa(u"docum/elenco.txt"_s, Dati);
    Riesce([&] {
        const QList<VoceDocumento> Voci = ElencoDocumenti(Cartella());
        QSet<QString> Visti;
        for (const VoceDocumento& Voce : Voci) {
            const QFileInfo Vero(QFileInfo(Voce.File).canonicalFilePath());
            Pretendi(Vero.isFile() && Vero.path() == Qui && !Voce.Nome.isEmpty());
            Pretendi(!Visti.contains(Voce.File));
            Visti.insert(Voce.File);
            Pretendi(TrovatoNelDocumento(Voce, Voce.Nome));
        }
        (void)ContoDocumenti(Voci.size(), Voci.size());
    });
}

}  // namespace

BERSAGLIO(fuzz_elenco, Prova);
