#include "supporto/prova.h"

#include "platform/kit/modFiltri.h"
#include "platform/system/shell.h"

using namespace Qt::StringLiterals;

class TestFiltri : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void tastiPassano_data();
    void tastiPassano();
    void tuttiETreITipi_data();
    void tuttiETreITipi();
    void caratteriPassano_data();
    void caratteriPassano();

private:
    int Passaggi = 0;
    Shell Precedente;
};
PROVA(TestFiltri);

void TestFiltri::init()
{
    Passaggi = 0;
    Shell Nuova;
    Nuova.ProssimoCampo = [this] { ++Passaggi; };
    Precedente = InstallaShell(std::move(Nuova));
}

void TestFiltri::cleanup()
{
    InstallaShell(std::move(Precedente));
}

void TestFiltri::tastiPassano_data()
{
    QTest::addColumn<int>("Tasto");
    QTest::addColumn<QString>("Tipo");
    QTest::addColumn<int>("Resta");
    QTest::addColumn<int>("PassaggiAttesi");

    QTest::newRow("Enter moves on and is swallowed") << 13 << u"d"_s << 0 << 1;
    QTest::newRow("Enter with no type") << 13 << u""_s << 0 << 1;
    QTest::newRow("Escape passes") << 27 << u"d"_s << 27 << 0;
    QTest::newRow("Backspace passes") << 8 << u"n"_s << 8 << 0;
    QTest::newRow("no key passes") << 0 << u"d"_s << 0 << 0;
    QTest::newRow("other control codes do not") << 22 << u"d"_s << 0 << 0;
    QTest::newRow("letter in a date") << int('a') << u"d"_s << 0 << 0;
    QTest::newRow("slash in a date") << int('/') << u"d"_s << int('/') << 0;
    QTest::newRow("dash in a date") << int('-') << u"d"_s << int('-') << 0;
    QTest::newRow("empty type allows a letter") << int('a') << u""_s << int('a') << 0;
    QTest::newRow("list of its own, inside") << int('X') << u"XY"_s << int('X') << 0;
    QTest::newRow("list of its own, outside") << int('Z') << u"XY"_s << 0 << 0;
    QTest::newRow("list of its own looks at the case") << int('x') << u"XY"_s << 0 << 0;
    QTest::newRow("list with an accent") << int(u'à') << u"àè"_s << int(u'à') << 0;
    QTest::newRow("one character that is no type") << int('x') << u"x"_s << 0 << 0;
    QTest::newRow("capital D is no type") << int('1') << u"D"_s << 0 << 0;
    QTest::newRow("character beyond 16 bits") << 0x1F600 << u"XY"_s << 0 << 0;
    QTest::newRow("character beyond 16 bits, allowed") << 0x1F600 << u"X😀"_s << 0x1F600 << 0;
}

void TestFiltri::tastiPassano()
{
    QFETCH(int, Tasto);
    QFETCH(QString, Tipo);
    QTEST(FiltroTasti(Tasto, Tipo), "Resta");
    QTEST(Passaggi, "PassaggiAttesi");
}

void TestFiltri::tuttiETreITipi_data()
{
    QTest::addColumn<QString>("Tipo");
    QTest::addColumn<QString>("Ammessi");

    QTest::newRow("dates") << u"d"_s << u"-/0123456789"_s;
    QTest::newRow("whole numbers") << u"n"_s << u"-0123456789"_s;
    QTest::newRow("amounts") << u","_s << u",-.0123456789"_s;
}

void TestFiltri::tuttiETreITipi()
{
    QFETCH(QString, Tipo);
    QString Passati;
    for (int Tasto = 32; Tasto < 256; ++Tasto)
        if (FiltroTasti(Tasto, Tipo) == Tasto)
            Passati += QChar(Tasto);
    QTEST(Passati, "Ammessi");
}

void TestFiltri::caratteriPassano_data()
{
    QTest::addColumn<int>("Tasto");
    QTest::addColumn<QString>("Lista");
    QTest::addColumn<bool>("InvioTab");
    QTest::addColumn<int>("Resta");
    QTest::addColumn<int>("PassaggiAttesi");

    QTest::newRow("inside the list") << int('1') << u"123"_s << false << int('1') << 0;
    QTest::newRow("outside the list") << int('4') << u"123"_s << false << 0 << 0;
    QTest::newRow("empty list allows everything") << int('4') << u""_s << false << int('4') << 0;
    QTest::newRow("list of one character") << int('1') << u"1"_s << false << int('1') << 0;
    QTest::newRow("Backspace passes") << 8 << u"123"_s << false << 8 << 0;
    QTest::newRow("no key passes") << 0 << u"123"_s << false << 0 << 0;
    QTest::newRow("Escape goes through the list") << 27 << u"123"_s << false << 0 << 0;
    QTest::newRow("Enter moves on, then goes through the list") << 13 << u"123"_s << true << 0 << 1;
    QTest::newRow("Enter moves on and passes an empty list") << 13 << u""_s << true << 13 << 1;
    QTest::newRow("Enter without moving") << 13 << u""_s << false << 13 << 0;
    QTest::newRow("another key never moves on") << int('1') << u"123"_s << true << int('1') << 0;
}

void TestFiltri::caratteriPassano()
{
    QFETCH(int, Tasto);
    QFETCH(QString, Lista);
    QFETCH(bool, InvioTab);
    QTEST(FiltroCaratteri(Tasto, Lista, InvioTab), "Resta");
    QTEST(Passaggi, "PassaggiAttesi");
}

#include "TestFiltri.moc"
