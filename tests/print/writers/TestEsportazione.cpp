// The file that holds a document: written when its bytes change, whole or not at all.
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "print/banco_esporta.h"
#include "print/writers/esportazione.h"

using namespace Qt::StringLiterals;

class TestEsportazione : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formati();
    void soloQuandoCambia();
    void guastiDelDisco();
};
PROVA(TestEsportazione);

void TestEsportazione::formati()
{
    Banco B;
    QVERIFY(!B.Componi());
    const Documento& Doc = B.vp.Contenuto();
    QVERIFY(DocumentoEsportato(Doc, FormatoEsportazione::Word, {}).startsWith("{\\rtf1"));
    QVERIFY(DocumentoEsportato(Doc, FormatoEsportazione::Html, {}).startsWith("<!DOCTYPE html>"));
    QCOMPARE(NumeroErrore([&] { (void)DocumentoEsportato(Doc, FormatoEsportazione(7), {}); }), 5);
}

void TestEsportazione::soloQuandoCambia()
{
    Banco B;
    QVERIFY(!B.Componi());
    const Documento Doc = B.vp.Contenuto();
    const QString File = NuovaCartella() + u"a.doc"_s;
    QVERIFY(EsportaDocumento(Doc, File, FormatoEsportazione::Word, u"A"_s));
    QVERIFY(!EsportaDocumento(Doc, File, FormatoEsportazione::Word, u"A"_s));
    QVERIFY(EsportaDocumento(Doc, File, FormatoEsportazione::Word, u"B"_s));
    // One that only begins alike is another.
    ScriviFile(File, LeggiFile(File) + ' ');
    QVERIFY(EsportaDocumento(Doc, File, FormatoEsportazione::Word, u"B"_s));
    QCOMPARE(LeggiFile(File), DocumentoEsportato(Doc, FormatoEsportazione::Word, u"B"_s));
}

void TestEsportazione::guastiDelDisco()
{
    Banco B;
    const Documento Doc;
    const auto Scrivi = [&](const QString& File) {
        return NumeroErrore([&] { EsportaDocumento(Doc, File, FormatoEsportazione::Word, {}); });
    };
    const QString Cartella = NuovaCartella();
    QCOMPARE(Scrivi(Cartella + u"manca/a.doc"_s), 76);
    CreaCartella(Cartella + u"a.doc"_s);
    QCOMPARE(Scrivi(Cartella + u"a.doc"_s), 75);

    const QString Protetto = Cartella + u"b.doc"_s;
    ScriviFile(Protetto, "vecchio");
    ImpostaSolaLettura(Protetto, true);
    QCOMPARE(Scrivi(Protetto), 75);
    QCOMPARE(LeggiFile(Protetto), "vecchio"_ba);
    ImpostaSolaLettura(Protetto, false);
    guasti::LimiteFile = 10;
    QCOMPARE(Scrivi(Protetto), 61);
    QCOMPARE(LeggiFile(Protetto), "vecchio"_ba);
    guasti::LimiteFile = 0;
    QCOMPARE(Scrivi(Protetto), 0);
}

#include "TestEsportazione.moc"
