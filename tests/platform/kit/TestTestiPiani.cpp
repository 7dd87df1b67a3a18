// Words that look like tags, in labels and in tool tips.
#include "platform/kit/suggerimento.h"
#include "supporto/prova.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QToolTip>

using namespace Qt::StringLiterals;

class TestTestiPiani : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void etichetta_data();
    void etichetta();
    void cambiataInVista();
    void suggerimento();
    void chiLoDice();
    void suPiuRighe_data();
    void suPiuRighe();

private:
    static constexpr int Lato = 400;
    QString Figura;  ///< a picture of that side, named by a tag
};
PROVA(TestTestiPiani);

namespace {

QLabel* Mostrato()
{
    for (QWidget* Finestra : QApplication::topLevelWidgets())
        if (Finestra->inherits("QTipLabel") && Finestra->isVisible())
            return qobject_cast<QLabel*>(Finestra);
    return nullptr;
}

}  // namespace

void TestTestiPiani::initTestCase()
{
    const QString File = NuovaCartella() + u"figura.png"_s;
    QImage Rossa(Lato, Lato, QImage::Format_RGB32);
    Rossa.fill(Qt::red);
    QVERIFY(Rossa.save(File));
    Figura = u"<img src=\"%1\">"_s.arg(File);
}

void TestTestiPiani::etichetta_data()
{
    QTest::addColumn<bool>("Misurata");
    QTest::newRow("measured before it is shown") << true;
    QTest::newRow("shown at once") << false;
}

void TestTestiPiani::etichetta()
{
    QFETCH(bool, Misurata);
    QLabel Nome(Figura);
    if (Misurata)
        QVERIFY(Nome.sizeHint().height() < Lato / 2);
    Nome.show();
    QVERIFY2(Nome.sizeHint().height() < Lato / 2, "the picture was read");
    QCOMPARE(Nome.text(), Figura);
}

void TestTestiPiani::cambiataInVista()
{
    QLabel Nome(u"Rossi"_s);
    Nome.show();
    Nome.setText(Figura);
    QVERIFY(Nome.sizeHint().height() < Lato / 2);
}

void TestTestiPiani::suggerimento()
{
    QWidget Sotto;
    Sotto.resize(100, 100);
    Sotto.show();
    for (const QString& Testo :
         {u"Rossi & figli"_s, Figura, u"1 < 2"_s, u"Fase <b>decisoria</b>\ne oltre"_s, Figura}) {
        QToolTip::showText(Sotto.mapToGlobal(QPoint(5, 5)), Testo, &Sotto);
        const QLabel* Detto = Mostrato();
        QVERIFY(Detto);
        QCOMPARE(Detto->text(), Testo);
        QCOMPARE(Detto->textFormat(), Qt::PlainText);
        QVERIFY2(Detto->height() < Lato / 2, "the picture was read");
        QToolTip::hideText();
    }
}

/// A label of the program's own words may be rich, where it says so.
void TestTestiPiani::chiLoDice()
{
    QLabel Nome(u"<b>Totale</b>"_s);
    Nome.setTextFormat(Qt::RichText);
    Nome.show();
    QCOMPARE(Nome.textFormat(), Qt::RichText);
}

void TestTestiPiani::suPiuRighe_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QStringList>("Righe");
    const QString Parole = u"parola "_s.repeated(30).trimmed();
    QTest::newRow("short") << u"Rossi"_s << QStringList{u"Rossi"_s};
    QTest::newRow("empty") << QString() << QStringList{QString()};
    QTest::newRow("lines of its own") << u"uno\n\ndue"_s << QStringList{u"uno"_s, QString(), u"due"_s};
    QTest::newRow("words") << Parole
                           << QStringList{u"parola "_s.repeated(11).trimmed(),
                                          u"parola "_s.repeated(11).trimmed(),
                                          u"parola "_s.repeated(8).trimmed()};
    QTest::newRow("one long word") << QString(100, u'x') << QStringList{QString(80, u'x'), QString(20, u'x')};
    QTest::newRow("a letter of two halves at the cut")
        << QString(79, u'x') + u"\U0001F600y"_s << QStringList{QString(79, u'x'), u"\U0001F600y"_s};
}

void TestTestiPiani::suPiuRighe()
{
    QFETCH(QString, Testo);
    QFETCH(QStringList, Righe);
    QCOMPARE(SuPiuRighe(Testo), Righe.join(u'\n'));
}

#include "TestTestiPiani.moc"
