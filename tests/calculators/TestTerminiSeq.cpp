// Sequential terms: worked chains and the text of the result.
#include "casi.h"
#include "supporto/guasti.h"

#include "calculators/modTerminiSeq.h"

using namespace Qt::StringLiterals;

class TestTerminiSeq : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void esempi_data();
    void esempi();
    void articoli();
    void testo();
    void settembreDiUnAnelloSolo();
    void sempreAvantiSenzaGiorniLiberi();
    void difetti_data();
    void difetti();
    void articoloInesistente();
    void oltreIlCalendario();
};
PROVA(TestTerminiSeq);

void TestTerminiSeq::esempi_data()
{
    QTest::addColumn<QStringList>("Riga");
    const auto Righe = Casi(u"sequenziali.csv"_s);
    QVERIFY(Righe.size() >= 7);
    for (size_t i = 0; i < Righe.size(); ++i)
        QTest::newRow(NomeCaso(i, Righe[i]).constData()) << Righe[i];
}

void TestTerminiSeq::esempi()
{
    QFETCH(QStringList, Riga);
    QCOMPARE(Riga.size(), 6);
    const OpzioniTermine Opzioni{Riga[2] == u"1", false, Riga[3] == u"1", false};
    QStringList Date;
    for (const ScadenzaAnello& Una : CalcolaSequenza(Riga[0], Riga[1].toInt(), Opzioni))
        Date << Una.Data.toString(u"dd/MM/yyyy"_s) + (Una.Prorogata ? u"*"_s : QString());
    QCOMPARE(Date.join(u' '), Riga[4]);
}

void TestTerminiSeq::articoli()
{
    QStringList Voci;
    for (const ArticoloTermini& Uno : Articoli()) {
        QStringList Giorni;
        for (const Anello& A : Uno.Catena)
            Giorni << QString::number(A.Giorni) + A.Didascalia.toString();
        Voci << u"%1|%2|%3"_s.arg(Uno.Numero).arg(Uno.Voce, Giorni.join(u'|'));
    }
    QCOMPARE(Voci, (QStringList{u"183|Art. 183, 6° co. cpc (deposito memorie)|30  1° termine (30 giorni):  |"
                                "30  2° termine (30 giorni):  |20  3° termine (20 giorni):  "_s,
                                u"190|Art. 190 cpc (deposito conclusionale e repliche)|"
                                "60  1° termine (60 giorni):  |20  2° termine (20 giorni):  "_s}));
}

void TestTerminiSeq::testo()
{
    const OpzioniTermine Opzioni{true, false, false, false};
    QCOMPARE(TestoSequenza(0, CalcolaSequenza(u"10/07/2012"_s, 0, Opzioni)),
             u"\r\n  1° termine (30 giorni):  Lunedì,  24 Settembre  2012 (Posticipato)\r\n\r\n"
             "  2° termine (30 giorni):  Mercoledì,  24 Ottobre  2012\r\n\r\n"
             "  3° termine (20 giorni):  Martedì,  13 Novembre  2012"_s);
    QVERIFY(TestoSequenza(1, CalcolaSequenza(u"12/11/12__"_s, 1, Opzioni))
                .endsWith(u"Giovedì,  31 Gennaio  2013"));
}

void TestTerminiSeq::settembreDiUnAnelloSolo()
{
    const OpzioniTermine Sospesi{true, false, false, false};
    const auto Scadenze = CalcolaSequenza(u"10/07/2026"_s, 0, Sospesi);
    QVERIFY(Scadenze[0].SettembreSospeso);
    QVERIFY(!Scadenze[1].SettembreSospeso);
    QVERIFY(SettembreSospeso(Scadenze));
    QVERIFY(!SettembreSospeso(CalcolaSequenza(u"10/07/2012"_s, 0, Sospesi)));
    QVERIFY(!SettembreSospeso(CalcolaSequenza(u"10/07/2026"_s, 0, {false, false, false, false})));
    QVERIFY(!SettembreSospeso(CalcolaSequenza(u"10/11/2026"_s, 0, Sospesi)));
}

void TestTerminiSeq::sempreAvantiSenzaGiorniLiberi()
{
    const auto Scadenze = CalcolaSequenza(u"12/11/2012"_s, 1, {false, true, false, true});
    QCOMPARE(Scadenze[0].Data, QDate(2013, 1, 11));
    QCOMPARE(Scadenze[1].Data, QDate(2013, 1, 31));
}

void TestTerminiSeq::difetti_data()
{
    QTest::addColumn<QString>("Udienza");
    QTest::addColumn<QString>("Messaggio");
    const auto NonValida = u"La Data udienza indicata non è valida!"_s;
    QTest::newRow("vuota") << u"__/__/____"_s << u"Non è stata specificata la Data udienza!"_s;
    QTest::newRow("31/02") << u"31/02/2012"_s << NonValida;
    QTest::newRow("a metà") << u"1_/__/____"_s << NonValida;
    QTest::newRow("anno di due cifre") << u"12/11/12__"_s << QString();
    QTest::newRow("intera") << u"12/11/2012"_s << QString();
}

void TestTerminiSeq::difetti()
{
    QFETCH(QString, Udienza);
    QFETCH(QString, Messaggio);
    const auto Trovato = DifettoUdienza(Udienza);
    QCOMPARE(Trovato ? Trovato->Messaggio : QString(), Messaggio);
    if (Trovato)
        QCOMPARE(Trovato->Dove, CampoTermine::Decorrenza);
}

void TestTerminiSeq::articoloInesistente()
{
    QCOMPARE(NumeroErrore([] { (void)CalcolaSequenza(u"12/11/2012"_s, -1, {}); }), 9);
    QCOMPARE(NumeroErrore([] { (void)CalcolaSequenza(u"12/11/2012"_s, 2, {}); }), 9);
}

void TestTerminiSeq::oltreIlCalendario()
{
    QCOMPARE(NumeroErrore([] { (void)CalcolaSequenza(u"20/12/9999"_s, 0, {}); }), 5);
}

#include "TestTerminiSeq.moc"
