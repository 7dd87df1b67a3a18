// The file of the last calculations, damaged in every way: one sentence with its name, and what it held
// stays.
#include "supporto/danni.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "calculators/ultimicalcoli.h"
#include "core/sessione.h"

#include <QDir>

using namespace Qt::StringLiterals;
using enum Calcolatrice;

class TestCalcoliGuasti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unaFraseColNome_data();
    void unaFraseColNome();
};
PROVA(TestCalcoliGuasti);

void TestCalcoliGuasti::unaFraseColNome_data()
{
    QTest::addColumn<int>("Come");
    for (int Come = 0; Come < Mancante; ++Come)
        QTest::newRow(NomiDanni[size_t(Come)]) << Come;
}

void TestCalcoliGuasti::unaFraseColNome()
{
    QFETCH(int, Come);
    AzzeraSessione();
    const CalcoloRicordato Uno{
        u"uno"_s, u"esito"_s, QDateTime(QDate(2026, 11, 21), QTime(10, 30)), {{u"txtImporto"_s, u"1"_s}}};
    RicordaCalcolo(Istat, Uno);
    const QByteArray Sano = LeggiFile(FileCalcoli());
    Rovina(FileCalcoli(), Come);
    Registratore Box;
    Box.Tollera();
    // The list is opened, a calculation remembered: the window tells what either throws.
    const ErroreVisto Lettura = ErroreDi([] { (void)UltimiCalcoli(Istat); });
    const ErroreVisto Scrittura = ErroreDi([&] { RicordaCalcolo(Istat, Uno); });
    const bool Chiuso = Come == Cartella || Come == Illeggibile;
    QCOMPARE(Lettura.Numero != 0, Chiuso);
    QCOMPARE(Scrittura.Numero != 0, Chiuso);
    QCOMPARE(Box.Mostrati().size(), Chiuso ? 0 : 1);
    for (const QString& Frase :
         Chiuso ? QStringList{Lettura.Descrizione, Scrittura.Descrizione} : QStringList{Box.UltimoTesto()})
        QVERIFY2(Frase.count(FileCalcoli()) == 1, qPrintable(Frase));
    if (Chiuso)
        QCOMPARE(Lettura.Descrizione.section(FileCalcoli(), 1), u": "_s + DescrizioneErrore(Lettura.Numero));
    // Nothing is written over what cannot be read.
    if (Come == Illeggibile) {
        QVERIFY(QFile::setPermissions(FileCalcoli(), QFile::ReadOwner | QFile::WriteOwner));
        QCOMPARE(LeggiFile(FileCalcoli()), Sano);
    } else if (Come == Cartella) {
        QVERIFY(QDir().rmdir(FileCalcoli()));
    } else {
        QCOMPARE(UltimiCalcoli(Istat).size(), 1);
        QCOMPARE(LeggiFile(FileCalcoliGuasto()), Sano.first(Come == Troncato ? Sano.size() / 2 : 0));
    }
    QFile::remove(FileCalcoli());
    QFile::remove(FileCalcoliGuasto());
}

#include "TestCalcoliGuasti.moc"
