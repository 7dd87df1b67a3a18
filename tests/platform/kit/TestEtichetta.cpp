// A label whose text is longer than its room.
#include "supporto/prova.h"

#include "platform/kit/etichetta.h"

using namespace Qt::StringLiterals;

class TestEtichetta : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void diceDiEssereTagliata();
    void inMezzo();
    void primaLeFormeBrevi();
    void disegnaCioCheMostra();
};
PROVA(TestEtichetta);

namespace {

const QString Lungo =
    u"Civile o Amministrativa - Tribunale - Valore Indeterminato di particolare importanza"_s;

QImage Disegno(QWidget& Cosa, int Larghezza)
{
    Cosa.resize(Larghezza, Cosa.sizeHint().height());
    return Cosa.grab().toImage();
}

}  // namespace

void TestEtichetta::diceDiEssereTagliata()
{
    Etichetta Riga;
    Riga.setTextFormat(Qt::PlainText);
    Riga.setText(Lungo);
    Riga.resize(Riga.sizeHint());
    QCOMPARE(Riga.Mostrato(), Lungo);
    Riga.resize(Riga.sizeHint().width() / 2, Riga.sizeHint().height());
    QVERIFY(Riga.Mostrato().endsWith(u'…'));
    QVERIFY(Lungo.startsWith(Riga.Mostrato().chopped(1)));
    QCOMPARE(Riga.text(), Lungo);
}

void TestEtichetta::inMezzo()
{
    Etichetta Riga;
    Riga.setTextFormat(Qt::PlainText);
    Riga.setText(Lungo);
    Riga.TogliInMezzo();
    Riga.resize(Riga.sizeHint());
    QCOMPARE(Riga.Mostrato(), Lungo);
    Riga.resize(Riga.sizeHint().width() / 2, Riga.sizeHint().height());
    const QStringList Capi = Riga.Mostrato().split(u'…');
    QCOMPARE(Capi.size(), 2);
    QVERIFY(Capi[0].size() > 10 && Capi[1].size() > 10);
    QVERIFY(Lungo.startsWith(Capi[0]) && Lungo.endsWith(Capi[1]));
}

/// A shorter form is read before anything is cut.
void TestEtichetta::primaLeFormeBrevi()
{
    const QString Media = u"Civile o Amministrativa - Tribunale - Indeterminato"_s;
    const QString Corta = u"Civile o Amministrativa - Tribunale"_s;
    Etichetta Riga;
    Riga.setTextFormat(Qt::PlainText);
    Riga.TogliInMezzo();
    Riga.MostraForme(Lungo, {Media, Corta});
    const auto Larga = [&](const QString& Testo, int Meno) {
        Riga.resize(Riga.fontMetrics().horizontalAdvance(Testo) - Meno, Riga.sizeHint().height());
        return Riga.Mostrato();
    };
    QCOMPARE(Larga(Lungo, 0), Lungo);
    QCOMPARE(Larga(Lungo, 1), Media);
    QCOMPARE(Larga(Media, 1), Corta);
    const QStringList Capi = Larga(Corta, 1).split(u'…');
    QCOMPARE(Capi.size(), 2);
    QVERIFY(Corta.startsWith(Capi[0]) && Corta.endsWith(Capi[1]));
    QCOMPARE(Riga.text(), Lungo);
    Riga.MostraForme(Lungo, {});
    QVERIFY(Larga(Media, 1).contains(u'…'));
}

/// Whole as any label; cut as a label would be that had the shorter text.
void TestEtichetta::disegnaCioCheMostra()
{
    for (const bool Intera : {true, false}) {
        Etichetta Riga;
        QLabel Comune;
        Riga.setTextFormat(Qt::PlainText);
        Comune.setTextFormat(Qt::PlainText);
        Riga.setText(Lungo);
        const int Larghezza = Riga.sizeHint().width() / (Intera ? 1 : 2);
        Riga.resize(Larghezza, Riga.sizeHint().height());
        Comune.setText(Riga.Mostrato());
        QCOMPARE(Disegno(Riga, Larghezza), Disegno(Comune, Larghezza));
    }
}

#include "TestEtichetta.moc"
