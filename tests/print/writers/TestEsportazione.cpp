// The file that holds a document: written when its bytes change, whole or not at all.
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "print/banco_esporta.h"
#include "print/writers/esportazione.h"
#include "print/writers/scrittorertf.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class TestEsportazione : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formati();
    void soloQuandoCambia();
    void guastiDelDisco();
    void diChiPuoScrivereNellaCartella_data();
    void diChiPuoScrivereNellaCartella();
};
PROVA(TestEsportazione);

void TestEsportazione::formati()
{
    Banco B;
    QVERIFY(!B.Componi());
    const Documento& Doc = B.vp.Contenuto();
    const QByteArray Word = DocumentoEsportato(Doc, FormatoEsportazione::Word, {});
    QVERIFY(Word.startsWith("{\\rtf1"));
    QVERIFY(EScrittoDaNoi(Word));
    QVERIFY(EScrittoDaNoi(DocumentoEsportato(Documento(), FormatoEsportazione::Word, u"B"_s)));
    QVERIFY(!EScrittoDaNoi("{\\rtf1\\ansi\\ansicpg1252\\deff0\\nouicompat\\deflang1040"));
    QVERIFY(!EScrittoDaNoi(Word.first(8)));
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

void TestEsportazione::diChiPuoScrivereNellaCartella_data()
{
    QTest::addColumn<int>("DellaCartella");
    QTest::addColumn<int>("Atteso");
    QTest::newRow("the user's folder") << 0755 << 0600;
    QTest::newRow("an office's folder") << 0770 << 0660;
}

void TestEsportazione::diChiPuoScrivereNellaCartella()
{
    QFETCH(int, DellaCartella);
    Banco B;
    QVERIFY(!B.Componi());
    const mode_t Prima = ::umask(0);
    const QString Cartella = NuovaCartella();
    QVERIFY(::chmod(QFile::encodeName(Cartella).constData(), mode_t(DellaCartella)) == 0);
    const QString File = Cartella + u"nota.doc"_s;
    const bool Scritto = EsportaDocumento(B.vp.Contenuto(), File, FormatoEsportazione::Word, {});
    ::umask(Prima);
    QVERIFY(Scritto);
    struct stat Suo = {};
    QVERIFY(::stat(QFile::encodeName(File).constData(), &Suo) == 0);
    QTEST(int(Suo.st_mode & 0777), "Atteso");
}

#include "TestEsportazione.moc"
