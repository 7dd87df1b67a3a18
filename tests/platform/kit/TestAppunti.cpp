// A table in the clipboard: the same rows in every form.
#include "supporto/prova.h"

#include "platform/kit/appunti.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTextDocument>
#include <QTextTable>

using namespace Qt::StringLiterals;

namespace {

const QList<QStringList> Righe{
    {u"Dal giorno"_s, u"Interessi"_s}, {u"01/01/2012"_s, u"1.025,07"_s}, {u"Nota: {a} \\ <b> è — 𝄞"_s}};

/// The cells of the first table that a page has, row by row.
QList<QStringList> CelleHtml(const QString& Pagina)
{
    QTextDocument Documento;
    Documento.setHtml(Pagina);
    QList<QStringList> Tutte;
    const auto* Tabella = qobject_cast<QTextTable*>(Documento.rootFrame()->childFrames().value(0));
    for (int Riga = 0; Tabella && Riga < Tabella->rows(); ++Riga) {
        QStringList Celle;
        for (int Colonna = 0; Colonna < Tabella->columns();) {
            const QTextTableCell Cella = Tabella->cellAt(Riga, Colonna);
            Celle << Cella.firstCursorPosition().block().text();
            Colonna += Cella.columnSpan();
        }
        Tutte << Celle;
    }
    return Tutte;
}

}  // namespace

class TestAppunti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void treForme();
    void cellaLarga();
    void numeriADestra_data();
    void numeriADestra();
    void rtf();
    void senzaRighe_data();
    void senzaRighe();
    void negliAppunti();
};
PROVA(TestAppunti);

void TestAppunti::treForme()
{
    const auto Dati = DatiTabella(u"piano\tuno"_s, Righe);
    QCOMPARE(Dati->text(), u"piano\tuno"_s);
    QVERIFY(Dati->hasFormat(u"text/rtf"_s));
    QCOMPARE(CelleHtml(Dati->html()), Righe);
}

void TestAppunti::cellaLarga()
{
    QTextDocument Documento;
    Documento.setHtml(DatiTabella({}, Righe)->html());
    const auto* Tabella = qobject_cast<QTextTable*>(Documento.rootFrame()->childFrames().value(0));
    QVERIFY(Tabella);
    QCOMPARE(Tabella->columns(), 2);
    QCOMPARE(Tabella->cellAt(2, 0).columnSpan(), 2);
    QCOMPARE(Tabella->cellAt(1, 0).columnSpan(), 1);
    // The same in rich text: one cell as wide as two.
    const QByteArray Rtf = DatiTabella({}, Righe)->data(u"text/rtf"_s);
    QCOMPARE(Rtf.count("\\cellx9600"), 3);
    QCOMPARE(Rtf.count("\\cellx4800"), 2);
}

void TestAppunti::numeriADestra_data()
{
    QTest::addColumn<QString>("Cella");
    QTest::addColumn<bool>("Destra");
    QTest::newRow("importo") << u"1.025,07"_s << true;
    QTest::newRow("negativo") << u"-500,00 €"_s << true;
    QTest::newRow("percento") << u"2,5%"_s << true;
    QTest::newRow("data") << u"01/01/2012"_s << false;
    QTest::newRow("parole") << u"30 giorni"_s << false;
    QTest::newRow("segni soli") << u"-"_s << false;
    QTest::newRow("vuota") << QString() << false;
}

void TestAppunti::numeriADestra()
{
    QFETCH(QString, Cella);
    QFETCH(bool, Destra);
    const auto Dati = DatiTabella({}, {{Cella, u"x"_s}});
    QCOMPARE(Dati->html().contains(u"align=\"right\""), Destra);
    QCOMPARE(Dati->data(u"text/rtf"_s).contains("\\qr "), Destra);
}

void TestAppunti::rtf()
{
    const QByteArray Rtf = DatiTabella({}, Righe)->data(u"text/rtf"_s);
    QVERIFY(Rtf.startsWith("{\\rtf1\\ansi") && Rtf.endsWith('}'));
    QVERIFY2(Rtf.contains("Nota: \\{a\\} \\\\ <b> \\u232? \\u8212? \\u-10188?\\u-8930?\\cell"),
             Rtf.constData());
    QCOMPARE(Rtf.count("\\row\n"), 3);
    for (const char Byte : Rtf)
        QVERIFY(uchar(Byte) < 0x80);
    // A line end inside a cell is one there too.
    QVERIFY(DatiTabella({}, {{u"a\nb"_s}})->data(u"text/rtf"_s).contains("a\\line b\\cell"));
    QVERIFY(DatiTabella({}, {{u"a\nb"_s}})->html().contains(u"a<br>b"));
}

void TestAppunti::senzaRighe_data()
{
    QTest::addColumn<QList<QStringList>>("Nessuna");
    QTest::newRow("nessuna") << QList<QStringList>{};
    QTest::newRow("righe senza celle") << QList<QStringList>{{}, {}};
}

void TestAppunti::senzaRighe()
{
    QFETCH(QList<QStringList>, Nessuna);
    const auto Dati = DatiTabella(u"25,07"_s, Nessuna);
    QCOMPARE(Dati->text(), u"25,07"_s);
    QVERIFY(!Dati->hasHtml() && !Dati->hasFormat(u"text/rtf"_s));
}

void TestAppunti::negliAppunti()
{
    CopiaTabella(u"a\tb"_s, {{u"a"_s, u"b"_s}});
    const QMimeData* Dati = QGuiApplication::clipboard()->mimeData();
    QVERIFY(Dati);
    QCOMPARE(Dati->text(), u"a\tb"_s);
    QVERIFY(Dati->html().contains(u"<td>a</td><td>b</td>"));
}

#include "TestAppunti.moc"
