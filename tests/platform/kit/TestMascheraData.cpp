// The masked date box, typed into, pasted into and filled by code.
#include "platform/kit/mascheradata.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class TestMascheraData : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void siDigita_data();
    void siDigita();
    void siIncolla_data();
    void siIncolla();
    void siIncollaDalMenu();
    void assegnata_data();
    void assegnata();
    void cancellareUnPosto();
    void selezionataTuttaSiRiscrive();
    void soloLUtenteLaTocca();
    void data();
    void annoCompletato();
    void clicSullaVuota();
    void siFaLeggere_data();
    void siFaLeggere();

private:
    std::unique_ptr<MascheraData> M;
};
PROVA(TestMascheraData);

void TestMascheraData::init()
{
    M = std::make_unique<MascheraData>();
    QVERIFY(MostraAttiva(*M));
    M->setFocus(Qt::TabFocusReason);
}

void TestMascheraData::cleanup()
{
    M.reset();
}

void TestMascheraData::siDigita_data()
{
    QTest::addColumn<QString>("Tasti");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("nulla") << u""_s << u"__/__/____"_s;
    QTest::newRow("cifre sole saltano i separatori") << u"31122012"_s << u"31/12/2012"_s;
    QTest::newRow("con i separatori") << u"31/12/2012"_s << u"31/12/2012"_s;
    QTest::newRow("incompleta") << u"120"_s << u"12/0_/____"_s;
    QTest::newRow("giorno e mese di una cifra") << u"1/2/2013"_s << u"01/02/2013"_s;
    QTest::newRow("trattini") << u"1-2-2013"_s << u"01/02/2013"_s;
    QTest::newRow("punti") << u"1.2.2013"_s << u"01/02/2013"_s;
    QTest::newRow("lettere scartate") << u"a3b1c"_s << u"31/__/____"_s;
    QTest::newRow("cifre di troppo scartate") << u"3112201299"_s << u"31/12/2012"_s;
}

void TestMascheraData::siDigita()
{
    QFETCH(QString, Tasti);
    Digita(Tasti);
    QTEST(M->Testo(), "Testo");
}

void TestMascheraData::siIncolla_data()
{
    QTest::addColumn<QString>("Appunti");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("intera") << u"31/12/2012"_s << u"31/12/2012"_s;
    QTest::newRow("senza separatori") << u"31122012"_s << u"31/12/2012"_s;
    QTest::newRow("cifre sole") << u"1/2/2013"_s << u"01/02/2013"_s;
    QTest::newRow("trattini") << u"1-2-2013"_s << u"01/02/2013"_s;
    QTest::newRow("blanchi attorno") << u"  31/12/2012\n"_s << u"31/12/2012"_s;
    QTest::newRow("anno di due cifre") << u"01/02/13"_s << u"01/02/2013"_s;
    QTest::newRow("cifre fra segni di controllo") << u"\u0001"
                                                     "12Masche\u001b"_s
                                                  << u"12/__/____"_s;
    QTest::newRow("blanchi fra le parti") << u"1 12 2012"_s << u"01/12/2012"_s;
    QTest::newRow("segni di controllo in mezzo") << u"1\u0001\u001b12\t2012"_s << u"01/12/2012"_s;
    QTest::newRow("parole in mezzo") << u"il 1, mese 2 (2012)"_s << u"01/02/2012"_s;
    QTest::newRow("un punto in testa") << u"n. 5"_s << u"5_/__/____"_s;
    QTest::newRow("un segno in coda") << u"1-2-"_s << u"01/02/____"_s;
    QTest::newRow("incompleta, da una maschera") << u"__/05/2012"_s << u"__/05/2012"_s;
    QTest::newRow("parole e giorno") << u"il 5 maggio"_s << u"5_/__/____"_s;
    QTest::newRow("parole") << u"domani"_s << u"__/__/____"_s;
}

void TestMascheraData::siIncolla()
{
    QFETCH(QString, Appunti);
    QSignalSpy Digitate(M.get(), &QLineEdit::textEdited);
    QApplication::clipboard()->setText(Appunti);
    Premi(Qt::Key_V, Qt::ControlModifier);
    QTEST(M->Testo(), "Testo");
    QCOMPARE(M->isModified(), !M->Vuota());
    QCOMPARE(!Digitate.isEmpty(), !M->Vuota());
}

void TestMascheraData::siIncollaDalMenu()
{
    QApplication::clipboard()->setText(u"1-2-2013"_s);
    QContextMenuEvent Evento(QContextMenuEvent::Mouse, QPoint(5, 5), M->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(M.get(), &Evento);
    auto* Menu = M->findChild<QMenu*>();
    QVERIFY(Menu);
    for (QAction* Voce : Menu->actions())
        if (Voce->text().startsWith(QLineEdit::tr("&Paste")))
            Voce->trigger();
    QCOMPARE(M->Testo(), u"01/02/2013"_s);
    Menu->close();
}

void TestMascheraData::assegnata_data()
{
    QTest::addColumn<QString>("Assegnato");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("intera") << u"31/12/2012"_s << u"31/12/2012"_s;
    QTest::newRow("blanchi") << u"  /  /    "_s << u"__/__/____"_s;
    QTest::newRow("segnaposti") << u"__/__/____"_s << u"__/__/____"_s;
    QTest::newRow("vuota") << u""_s << u"__/__/____"_s;
    QTest::newRow("incompleta con segnaposti") << u"12/0_/____"_s << u"12/0_/____"_s;
    QTest::newRow("incompleta con blanchi") << u"12/  /2013"_s << u"12/__/2013"_s;
    QTest::newRow("solo l'anno") << u"__/__/2013"_s << u"__/__/2013"_s;
    QTest::newRow("data che non esiste") << u"31/02/2012"_s << u"31/02/2012"_s;
    QTest::newRow("cifre sole") << u"1/2/2013"_s << u"01/02/2013"_s;
}

void TestMascheraData::assegnata()
{
    QFETCH(QString, Assegnato);
    M->ImpostaTesto(u"11/11/1999"_s);
    QSignalSpy Digitate(M.get(), &QLineEdit::textEdited);
    M->ImpostaTesto(Assegnato);
    QTEST(M->Testo(), "Testo");
    QVERIFY(!M->isModified());
    QVERIFY(Digitate.isEmpty());
}

void TestMascheraData::cancellareUnPosto()
{
    M->ImpostaTesto(u"31/12/2012"_s);
    M->setCursorPosition(1);
    Premi(Qt::Key_Delete);
    QCOMPARE(M->Testo(), u"3_/12/2012"_s);
    QVERIFY(!M->Data());
    Premi(Qt::Key_Backspace);
    QCOMPARE(M->Testo(), u"__/12/2012"_s);
    Digita(u"07"_s);
    QCOMPARE(M->Testo(), u"07/12/2012"_s);
}

void TestMascheraData::selezionataTuttaSiRiscrive()
{
    M->ImpostaTesto(u"31/12/2012"_s);
    M->selectAll();
    Digita(u"0"_s);
    QCOMPARE(M->Testo(), u"0_/__/____"_s);
    Digita(u"1022013"_s);
    QCOMPARE(M->Testo(), u"01/02/2013"_s);
    M->selectAll();
    Premi(Qt::Key_Delete);
    QVERIFY(M->Vuota());
}

void TestMascheraData::soloLUtenteLaTocca()
{
    QSignalSpy Digitate(M.get(), &QLineEdit::textEdited);
    M->ImpostaData(QDate(2013, 2, 1));
    QVERIFY(Digitate.isEmpty() && !M->isModified());
    M->selectAll();
    Digita(u"1/"_s);
    QVERIFY(!Digitate.isEmpty());
    QVERIFY2(M->isModified(), "completare il giorno non cancella il segno");
    QCOMPARE(M->Testo(), u"01/__/____"_s);
    Digita(u"2"_s);
    QCOMPARE(M->Testo(), u"01/2_/____"_s);
}

void TestMascheraData::data()
{
    QVERIFY(M->Vuota() && !M->Data());
    M->ImpostaData(QDate(2012, 2, 29));
    QCOMPARE(M->Testo(), u"29/02/2012"_s);
    QCOMPARE(M->Data(), std::optional(QDate(2012, 2, 29)));
    M->ImpostaTesto(u"29/02/2013"_s);
    QVERIFY(!M->Data() && !M->Vuota());
    M->ImpostaData(std::nullopt);
    QVERIFY(M->Vuota());
}

void TestMascheraData::annoCompletato()
{
    Digita(u"120320"_s);
    M->CompletaAnno();
    QCOMPARE(M->Testo(), u"12/03/2020"_s);
    for (const QString& Testo : {u"31/02/20__"_s, u"12/03/2___"_s, u"__/__/____"_s, u"12/03/1920"_s}) {
        M->ImpostaTesto(Testo);
        M->CompletaAnno();
        QCOMPARE(M->Testo(), Testo);
    }
}

void TestMascheraData::clicSullaVuota()
{
    QTest::mouseClick(M.get(), Qt::LeftButton, Qt::NoModifier, QPoint(M->width() - 8, M->height() / 2));
    QCOMPARE(M->cursorPosition(), 0);
    Digita(u"01022013"_s);
    QCOMPARE(M->Data(), std::optional(QDate(2013, 2, 1)));
}

void TestMascheraData::siFaLeggere_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Letto");
    QTest::newRow("vuota: niente, non i separatori") << QString() << QString();
    QTest::newRow("intera") << u"31/12/2012"_s << u"31/12/2012"_s;
    QTest::newRow("cominciata: con i posti da scrivere") << u"12/0_/____"_s << u"12/0_/____"_s;
}

void TestMascheraData::siFaLeggere()
{
    QFETCH(QString, Testo);
    M->setAccessibleName(u"Decorrenza"_s);
    M->ImpostaTesto(Testo);
    QAccessibleInterface* Lettore = QAccessible::queryAccessibleInterface(M.get());
    QVERIFY(Lettore && Lettore->textInterface() && Lettore->editableTextInterface());
    QCOMPARE(Lettore->text(QAccessible::Name), u"Decorrenza"_s);
    QTEST(Lettore->text(QAccessible::Value), "Letto");
    QTEST(Lettore->textInterface()->text(0, Lettore->textInterface()->characterCount()), "Letto");
    QVERIFY(Lettore->state().editable && Lettore->state().focused);
    Lettore->editableTextInterface()->replaceText(0, 10, u"01/02/2013"_s);
    QCOMPARE(M->Testo(), u"01/02/2013"_s);
}

#include "TestMascheraData.moc"
