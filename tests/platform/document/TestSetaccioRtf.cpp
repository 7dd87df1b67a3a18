#include "supporto/prova.h"

#include "platform/document/setacciortf.h"

using namespace Qt::StringLiterals;

class TestSetaccioRtf : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void passa_data();
    void passa();
    void immaginiSmisurate();
};
PROVA(TestSetaccioRtf);

void TestSetaccioRtf::passa_data()
{
    QTest::addColumn<QByteArray>("Intero");
    QTest::addColumn<QByteArray>("Resto");
    QTest::addColumn<bool>("Finito");
    QTest::addColumn<bool>("Zeri");

    QTest::newRow("text as it stands") << "{\\rtf1 a\\b b\\'e9\\{\\par}"_ba
                                       << "{\\rtf1 a\\b b\\'e9\\{\\par}"_ba << true << false;
    QTest::newRow("a picture") << "{\\rtf1 a{\\pict\\pngblip 00ff}b}"_ba
                               << "{\\rtf1 a{\\pict}b}"_ba << true << false;
    QTest::newRow("a picture with groups and signs")
        << "{\\rtf1 {\\*\\shppict{\\pict{\\*\\picprop{x}}\\}00}}b}"_ba
        << "{\\rtf1 {\\*\\shppict{\\pict}}b}"_ba << true << false;
    QTest::newRow("raw bytes of a picture") << "{\\rtf1 {\\pict\\bin5 }}{\\\0}b}"_ba
                                            << "{\\rtf1 {\\pict}b}"_ba << true << false;
    QTest::newRow("raw bytes in the text") << "{\\rtf1 a\\bin4 }}{{b}"_ba
                                           << "{\\rtf1 a\\bin0 b}"_ba << true << false;
    QTest::newRow("zeros of a picture")
        << QByteArray("{\\rtf1 {\\pict \0\0}b}", 19) << "{\\rtf1 {\\pict}b}"_ba << true << false;
    QTest::newRow("an object") << "{\\rtf1 {\\object{\\*\\objdata 01}{\\result r}}}"_ba
                               << "{\\rtf1 {\\object{\\*\\objdata}{\\result r}}}"_ba << true << false;
    QTest::newRow("what follows the end")
        << QByteArray("{\\rtf1 a}\0\0dopo", 16) << "{\\rtf1 a}"_ba << true << false;
    QTest::newRow("zeros in the text")
        << QByteArray("{\\rtf1 a\0b}", 11) << QByteArray("{\\rtf1 a\0b}", 11) << true << true;
    QTest::newRow("broken off in a picture") << "{\\rtf1 a{\\pict 00"_ba
                                             << "{\\rtf1 a{\\pict"_ba << false << false;
    QTest::newRow("a word that begins like one of data") << "{\\rtf1 {\\picture a}}"_ba
                                                         << "{\\rtf1 {\\picture a}}"_ba << true << false;
}

/// In one piece and byte by byte alike.
void TestSetaccioRtf::passa()
{
    QFETCH(QByteArray, Intero);
    SetaccioRtf InUnPezzo;
    InUnPezzo.Passa(Intero);
    SetaccioRtf PerByte;
    for (const char C : Intero)
        PerByte.Passa(QByteArrayView(&C, 1));
    for (const SetaccioRtf* Quale : {&InUnPezzo, &PerByte}) {
        QTEST(Quale->Resto(), "Resto");
        QTEST(Quale->Finito(), "Finito");
        QTEST(Quale->ConZeri(), "Zeri");
    }
}

void TestSetaccioRtf::immaginiSmisurate()
{
    SetaccioRtf Setaccio;
    Setaccio.Passa("{\\rtf1 a{\\pict ");
    const QByteArray Pezzo(1 << 20, 'f');
    for (int i = 0; i < 100; ++i)
        Setaccio.Passa(Pezzo);
    Setaccio.Passa("}b}");
    QCOMPARE(Setaccio.Resto(), "{\\rtf1 a{\\pict}b}"_ba);
}

#include "TestSetaccioRtf.moc"
