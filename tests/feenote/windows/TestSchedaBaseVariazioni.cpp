// The variations of tab 0 by mouse and keyboard: options, sign, percentage.
#include "schedabase.h"

using namespace Qt::StringLiterals;

class TestSchedaBaseVariazioni : public QObject, private BancoSchedaBase
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void variazioneOltreIlLimite();
    void ilLimiteRimessoVale();
    void soloCifreAncheIncollando_data();
    void soloCifreAncheIncollando();
    void leVariazioniComeNelDecreto();
    void leFrecceScorronoLeVariazioni();
    void ilSegnoAspettaIlPercento();
    void ilSegnoCambiaLaVariazione();
    void ilPercentoVuotoTornaLibero();
    void lOpzioneGiaSceltaNonCambiaNulla();
};
PROVA(TestSchedaBaseVariazioni);

void TestSchedaBaseVariazioni::variazioneOltreIlLimite()
{
    Clic(Controllo(F, "optAumRid_0"));
    QCOMPARE(F->Nota.AumRidVarP, 100);
    QVERIFY(!Controllo(F, "cmbAumRid")->isEnabled());
    auto* Box = Controllo<QLineEdit>(F, "txtAumRid");
    Scrivi(Box, u"101"_s);
    T->Voce.Attendi(u"La variazione deve essere compreso tra 1 e 100!"_s, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Tab);
    Respiro();
    QCOMPARE(Box->text(), u"100"_s);
    QCOMPARE(QApplication::focusWidget(), Box);
}

void TestSchedaBaseVariazioni::ilLimiteRimessoVale()
{
    Clic(Controllo(F, "optAumRid_0"));
    auto* Box = Controllo<QLineEdit>(F, "txtAumRid");
    Scrivi(Box, u"50"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Nota.AumRidVarP, 50);
    Scrivi(Box, u"101"_s);
    T->Voce.Attendi(u"La variazione deve essere compreso tra 1 e 100!"_s);
    Premi(Qt::Key_Tab);
    Respiro();
    Premi(Qt::Key_Tab);  // the limit put back is left as it stands
    Respiro();
    QCOMPARE(F->Nota.AumRidVarP, 100);
}

void TestSchedaBaseVariazioni::soloCifreAncheIncollando_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::newRow("col segno") << u"-5"_s;
    QTest::newRow("con la virgola") << u"1,5"_s;
    QTest::newRow("parola") << u"abc"_s;
}

void TestSchedaBaseVariazioni::soloCifreAncheIncollando()
{
    QFETCH(QString, Testo);
    auto* Box = Controllo<QLineEdit>(F, "txtAumRid");
    Scrivi(Box, u"20"_s);
    Incolla(Box, Testo);
    QCOMPARE(Box->text(), u"20"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Nota.AumRidVarP, 20);
}

void TestSchedaBaseVariazioni::leVariazioniComeNelDecreto()
{
    for (int i = 0; i < NumAumRid; ++i) {
        const QByteArray Nome = "optAumRid_" + QByteArray::number(i);
        const auto* Una = Controllo<QRadioButton>(F, Nome.constData());
        QCOMPARE(QString(Una->text()).remove(u'&'), DidascaliaAumRid(i));
        const auto* Gruppo = qobject_cast<QGroupBox*>(Una->parentWidget());
        QVERIFY(Gruppo);
        if (i != AumRidLibera)
            QCOMPARE(Gruppo->title(), OpzioniAumRid()[i].Gruppo);
        QVERIFY2(Gruppo->font().bold() && !Una->font().bold(), Nome.constData());
    }
    QCOMPARE(Controllo(F, "optAumRid_6")->toolTip(),
             u"applica le riduzioni previste dagli art. 82 e 130 del D.p.r. n. 115/2002"_s);
}

void TestSchedaBaseVariazioni::leFrecceScorronoLeVariazioni()
{
    // Up through the increases, over to the reductions, down through them and back to the free one.
    Controllo(F, "optAumRid_5")->setFocus(Qt::TabFocusReason);
    QList<int> Viste;
    for (const Qt::Key Freccia : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Right,
                                  Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down}) {
        Premi(Freccia);
        const QByteArray Nome = "optAumRid_" + QByteArray::number(F->Nota.AumRidIdx);
        QVERIFY(Controllo<QRadioButton>(F, Nome.constData())->hasFocus());
        QVERIFY(Controllo<QRadioButton>(F, Nome.constData())->isChecked());
        Viste.append(F->Nota.AumRidIdx);
    }
    QCOMPARE(Viste, (QList{4, 3, 2, 1, 0, 6, 7, 8, 9, 10, 5}));
}

void TestSchedaBaseVariazioni::ilSegnoAspettaIlPercento()
{
    Scegli(Controllo<QComboBox>(F, "cmbAumRid"), 1);
    QCOMPARE(Controllo<QComboBox>(F, "cmbAumRid")->currentText(), u"-"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtAumRid"), u"20"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Nota.AumRidVarP, -20);
}

void TestSchedaBaseVariazioni::ilSegnoCambiaLaVariazione()
{
    Scrivi(Controllo<QLineEdit>(F, "txtAumRid"), u"20"_s);
    QCOMPARE(Controllo<QComboBox>(F, "cmbAumRid")->currentText(), u"+"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Nota.AumRidVarP, 20);
    Scegli(Controllo<QComboBox>(F, "cmbAumRid"), 1);
    QCOMPARE(F->Nota.AumRidVarP, -20);
}

void TestSchedaBaseVariazioni::ilPercentoVuotoTornaLibero()
{
    Clic(Controllo(F, "optAumRid_6"));
    QCOMPARE(F->Nota.AumRidVarP, -50);
    Scrivi(Controllo<QLineEdit>(F, "txtAumRid"), {});
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Nota.AumRidVarP, 0);
    QVERIFY(Controllo<QRadioButton>(F, "optAumRid_5")->isChecked());
    QVERIFY(!Controllo<QRadioButton>(F, "optAumRid_6")->isChecked());
    QCOMPARE(Controllo<QComboBox>(F, "cmbAumRid")->currentIndex(), -1);
}

void TestSchedaBaseVariazioni::lOpzioneGiaSceltaNonCambiaNulla()
{
    CompilaCivile(F);
    Clic(Controllo<QRadioButton>(F, "optAumRid_0"));
    Scrivi(Controllo<QLineEdit>(F, "txtAumRid"), u"20"_s);
    Premi(Qt::Key_Tab);
    RigaOnorario(F->Nota, u"Studio"_s, 100);
    F->Nota.RicalcoloNecessario = false;
    F->SetModificata(false);
    Clic(Controllo<QRadioButton>(F, "optAumRid_0"));
    QCOMPARE(Controllo<QLineEdit>(F, "txtAumRid")->text(), u"20"_s);
    QCOMPARE(F->Nota.AumRidVarP, 20);
    QVERIFY(!F->Nota.RicalcoloNecessario);
    QVERIFY(!F->Nota.Modificata);
}

#include "TestSchedaBaseVariazioni.moc"
