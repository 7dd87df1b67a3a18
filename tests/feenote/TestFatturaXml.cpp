// What a note keeps of its electronic invoice.
#include "supporto/prova.h"

#include "feenote/modFatturaXml.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;

class TestFatturaXml : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void scritta();
    void unAltraFattura();
    void scelteUguali();
};
PROVA(TestFatturaXml);

namespace {

Parcella Numerata()
{
    Parcella Nota;
    Nota.txtDatiPar[DatoNumFatt] = u"12"_s;
    Nota.txtDatiPar[DatoDataFatt] = u"22/11/2026"_s;
    return Nota;
}

}  // namespace

void TestFatturaXml::scritta()
{
    Parcella Nota = Numerata();
    QVERIFY(!FatturaGiaScritta(Nota));
    SegnaFatturaScritta(Nota, u"IT01234567897_00001.xml"_s, u"00001"_s);
    QVERIFY(FatturaGiaScritta(Nota));
    QVERIFY(Nota.Modificata);
    QCOMPARE(Nota.FatturaXml.File, u"IT01234567897_00001.xml"_s);
    QCOMPARE(Nota.FatturaXml.Progressivo, u"00001"_s);
    QCOMPARE(Nota.FatturaXml.Quando, Oggi().toString(u"dd/MM/yyyy"_s));
    Nota.txtDatiPar[DatoNumFatt] = u" 12 "_s;
    QVERIFY(FatturaGiaScritta(Nota));
}

/// A copy of the note with another number, or another year's, is another invoice.
void TestFatturaXml::unAltraFattura()
{
    Parcella Nota = Numerata();
    SegnaFatturaScritta(Nota, u"IT01234567897_00001.xml"_s, u"00001"_s);
    Nota.txtDatiPar[DatoNumFatt] = u"13"_s;
    QVERIFY(!FatturaGiaScritta(Nota));
    Nota = Numerata();
    SegnaFatturaScritta(Nota, u"IT01234567897_00001.xml"_s, u"00001"_s);
    Nota.txtDatiPar[DatoDataFatt] = u"22/11/2027"_s;
    QVERIFY(!FatturaGiaScritta(Nota));
}

void TestFatturaXml::scelteUguali()
{
    Parcella Nota = Numerata();
    QVERIFY(!CambiaFatturaXml(Nota, {}));
    QVERIFY(!Nota.Modificata);
    DatiFatturaXml Scelte;
    Scelte.Tipo = u"TD06"_s;
    QVERIFY(CambiaFatturaXml(Nota, Scelte));
    QVERIFY(Nota.Modificata);
    QCOMPARE(Nota.FatturaXml.Tipo, u"TD06"_s);
}

#include "TestFatturaXml.moc"
