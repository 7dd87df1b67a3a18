// Expense lines.
#include "nota_prova.h"

#include "feenote/modSpese.h"

using namespace Qt::StringLiterals;

class TestSpese : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rigaDalCatalogo();
    void vociNascoste();
    void stessaVocePiuVolte();
    void dataNonConservata();
    void postoDellaRiga();
};
PROVA(TestSpese);

void TestSpese::rigaDalCatalogo()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    SetModificata(Nota, false);
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    Voci.datDir.FindFirst(u"IDDir=3"_s);
    QCOMPARE(InserisciSpesa(Nota, Voci), 0);
    QCOMPARE(Nota.xDiritti(0, DirData).toString(), QString());
    QCOMPARE(Nota.xDiritti(0, DirDescr).toString(), u"Marca da bollo"_s);
    QCOMPARE(Nota.xDiritti(0, DirQta).toString(), u"1"_s);
    QCOMPARE(Nota.xDiritti(0, DirImponibile), QVariant(0.0));
    QVERIFY(!Nota.xDiritti(0, DirEsente).isValid());  // left empty
    QCOMPARE(Nota.xDiritti(0, DirNVoce).toInt(), 3);
    QCOMPARE(Nota.xDiritti(0, DirIDDir).toInt(), 3);
    QVERIFY(Nota.Modificata);
}

void TestSpese::vociNascoste()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Ufficio.TariffeProprie().Execute(u"UPDATE Diritti SET NVis=0 WHERE IDDir=3"_s);
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    Voci.datDir.FindFirst(u"IDDir=3"_s);
    QVERIFY(Voci.datDir.NoMatch());
}

void TestSpese::stessaVocePiuVolte()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    for (int Volta = 0; Volta < 3; ++Volta)
        InserisciSpesa(Nota, Voci);
    QCOMPARE(Nota.xDiritti.Righe(), 3);
}

void TestSpese::dataNonConservata()
{
    Parcella Nota;
    AddDiritti(Nota, QDate(2024, 3, 5), u"Bollo"_s, u"2"_s, 4, 5);
    QCOMPARE(Nota.xDiritti(0, DirData).toString(), QString());
    QCOMPARE(Nota.xDiritti(0, DirQta).toString(), u"2"_s);
    QCOMPARE(Nota.xDiritti(0, DirNVoce).toInt(), 4);
    QCOMPARE(Nota.xDiritti(0, DirIDDir).toInt(), 5);
}

void TestSpese::postoDellaRiga()
{
    Parcella Nota;
    AddDiritti(Nota, {}, u"prima"_s, u"1"_s, 1, 1, 0);
    AddDiritti(Nota, {}, u"seconda"_s, u"1"_s, 2, 2, 0);
    QCOMPARE(Nota.xDiritti(1, DirDescr).toString(), u"seconda"_s);
    // The honoraria's mode is another list's.
    Nota.InsUltimaOno = false;
    QCOMPARE(AddDiritti(Nota, {}, u"terza"_s, u"1"_s, 3, 3, 0), 2);
    Nota.InsUltimaDir = false;
    QCOMPARE(AddDiritti(Nota, {}, u"quarta"_s, u"1"_s, 4, 4, 0), 0);
    QCOMPARE(AddDiritti(Nota, {}, u"quinta"_s, u"1"_s, 5, 5), 4);
}

#include "TestSpese.moc"
