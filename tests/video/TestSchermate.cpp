// A picture of every window, left for whoever looks; what is asked here is that each opens within the screen.
#include "moduli.h"

using namespace Qt::StringLiterals;

class TestSchermate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void modulo_data() { RigheModuli(); }
    void modulo();
    void scrivania();
    void parcella();

private:
    [[nodiscard]] static QString Suffisso();

    std::unique_ptr<Programma> P;
};
PROVA(TestSchermate);

/// Pictures of several scales stand side by side.
QString TestSchermate::Suffisso()
{
    const QString Scala = qEnvironmentVariable("QT_SCALE_FACTOR", u"1"_s);
    return u'@' + Scala;
}

void TestSchermate::init()
{
    P.reset();
}

void TestSchermate::cleanup()
{
    P.reset();
}

void TestSchermate::modulo()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Tasti);
    QFETCH(QString, Titolo);
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(Tasti);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    P->Fotografa(Nome + Suffisso());
    const QRect Finestra = P->Posto(P->Chiedi(u"finestra"_s));
    constexpr QRect Schermo(0, 0, 1366, 768);
    constexpr int Titolare = 12;  // of the title there must be something to take hold of
    QVERIFY2(Schermo.contains(Finestra.adjusted(0, -Titolare, 0, 0)),
             qPrintable(u"%1,%2 %3x%4"_s.arg(Finestra.x())
                            .arg(Finestra.y())
                            .arg(Finestra.width())
                            .arg(Finestra.height())));
}

void TestSchermate::scrivania()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->Aperta(u"Calcanova 3"_s), qPrintable(P->Stato()));
    P->Fotografa(u"scrivania"_s + Suffisso());
}

void TestSchermate::parcella()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Fotografa(u"parcella"_s + Suffisso());
}

#include "TestSchermate.moc"
