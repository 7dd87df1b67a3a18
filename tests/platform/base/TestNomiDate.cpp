// Names of days and months by their numbers.
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "platform/base/nomidate.h"

using namespace Qt::StringLiterals;

class TestNomiDate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nomi();
    void numeriSenzaNome();
};
PROVA(TestNomiDate);

void TestNomiDate::nomi()
{
    QCOMPARE(NomeMese(1) + NomeMese(12), u"GennaioDicembre"_s);
    QCOMPARE(NomeGiorno(1) + NomeGiorno(7), u"LunedìDomenica"_s);
}

void TestNomiDate::numeriSenzaNome()
{
    for (const int Numero : {-1, 0, 13})
        QCOMPARE(NumeroErrore([Numero] { (void)NomeMese(Numero); }), 9);
    for (const int Numero : {0, 8})
        QCOMPARE(NumeroErrore([Numero] { (void)NomeGiorno(Numero); }), 9);
}

#include "TestNomiDate.moc"
