// The percent variation: options of the decree, sign, limits, texts.
#include "nota_prova.h"

#include "feenote/modVariazione.h"

using namespace Qt::StringLiterals;

class TestVariazione : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void opzioneImpostaTutto_data();
    void opzioneImpostaTutto();
    void opzioneInesistente();
    void opzioneGiaScelta_data();
    void opzioneGiaScelta();
    void segnoGiaScelto();
    void ricalcoloSoloConRighe();
    void limiti_data();
    void limiti();
    void senzaLimitiTuttoAmmesso();
    void digitarePonePiu();
    void lasciareAccetta();
    void lasciareRifiutaETieneLaPrecedente();
    void lasciareVuotoSceglieLaLibera();
    void caricata_data();
    void caricata();
    void testi_data();
    void testi();
};
PROVA(TestVariazione);

void TestVariazione::opzioneImpostaTutto_data()
{
    QTest::addColumn<int>("Indice");
    QTest::addColumn<QString>("Didascalia");
    QTest::addColumn<QString>("Limiti");
    QTest::addColumn<QString>("Casella");
    QTest::addColumn<int>("Segno");
    QTest::addColumn<int>("VarP");
    const auto Riga = [](int Indice, const QString& Didascalia, const QString& Limiti, int VarP) {
        const QString Casella = VarP == 0 ? QString() : QString::number(std::abs(VarP));
        QTest::addRow("opzione %d", Indice) << Indice << Didascalia << Limiti << Casella
                                            << (VarP == 0  ? -1
                                                : VarP < 0 ? 1
                                                           : 0)
                                            << VarP;
    };
    Riga(0, u"Incarichi collegiali (art. 1, co. 4)"_s, u"100;1"_s, 100);
    Riga(1, u"Difese plurime (art. 4, co. 4, e art. 12, co. 4)"_s, u"100;1"_s, 100);
    Riga(2, u"Azioni di classe (art. 4, co. 4)"_s, u"200;1"_s, 200);
    Riga(3, u"Conciliazioni giudiziali (art. 4, co. 5)"_s, u"25;1"_s, 25);
    Riga(4, u"Conciliazioni stragiudiziali  (art. 3, co. 3)"_s, u"40;1"_s, 40);
    Riga(5, u"Altra/nessuna variazione"_s, u"-100;300"_s, 0);
    Riga(6, u"Difese  a spese dello Stato (art. 9)"_s, u"-50;-1"_s, -50);
    Riga(7, u"Indennizzi da legge Pinto (art. 9)"_s, u"-50;-1"_s, -50);
    Riga(8, u"Cause di lavoro fino a € 1.000 (art. 6)"_s, u"-50;-1"_s, -50);
    Riga(9, u"Pronunce in rito (art. 10)"_s, u"-50;-1"_s, -50);
    Riga(10, u"Responsabilità ex art. 96 cpc (art. 10)"_s, u"-50;-1"_s, -50);
}

void TestVariazione::opzioneImpostaTutto()
{
    QFETCH(int, Indice);
    Registratore Messaggi;
    Parcella Nota;
    Nota.AumRidIdx = Indice == 1 ? 0 : 1;  // another one before
    Nota.txtAumRid.Testo = u"7"_s;
    Nota.AumRidVarP = 7;
    ScegliAumRid(Nota, Indice);
    QCOMPARE(Nota.AumRidIdx, Indice);
    QTEST(DidascaliaAumRid(Indice), "Didascalia");
    QTEST(Nota.AumRidLimiti, "Limiti");
    QTEST(Nota.txtAumRid.Testo, "Casella");
    QTEST(Nota.cmbAumRid, "Segno");
    QTEST(Nota.AumRidVarP, "VarP");
    QCOMPARE(Nota.cmbAumRidAbilitata, Indice == AumRidLibera);
    QVERIFY(Nota.Modificata);
    QVERIFY(!Nota.RicalcoloNecessario);
    QVERIFY(CheckVarPerc(Nota, true));
    const QString Gruppo = Indice < 5 ? u" Aumenti "_s : Indice > 5 ? u" Riduzioni "_s : QString();
    QCOMPARE(OpzioniAumRid()[Indice].Gruppo, Gruppo);
}

void TestVariazione::opzioneInesistente()
{
    Parcella Nota;
    const Parcella Prima = Nota;
    ScegliAumRid(Nota, NumAumRid);
    ScegliAumRid(Nota, -1);
    QVERIFY(Nota == Prima);
    QCOMPARE(DidascaliaAumRid(NumAumRid), QString());
}

void TestVariazione::opzioneGiaScelta_data()
{
    QTest::addColumn<int>("Opzione");
    QTest::addColumn<QString>("Percento");
    QTest::newRow("aumento ridotto dall'utente") << 0 << u"20"_s;
    QTest::newRow("riduzione") << 8 << u"10"_s;
    QTest::newRow("variazione libera") << AumRidLibera << u"30"_s;
}

void TestVariazione::opzioneGiaScelta()
{
    QFETCH(int, Opzione);
    QFETCH(QString, Percento);
    Registratore Messaggi;
    Parcella Nota;
    AzzeraVariazione(Nota);
    ScegliAumRid(Nota, Opzione);
    CambiaTestoAumRid(Nota, Percento);
    LasciaAumRid(Nota);
    RigaOnorario(Nota, u"Studio"_s, 100);
    SetModificata(Nota, false);
    const Parcella Prima = Nota;
    ScegliAumRid(Nota, Opzione);
    QVERIFY(Nota == Prima);
    QVERIFY(!Nota.Modificata);
}

void TestVariazione::segnoGiaScelto()
{
    Parcella Nota;
    AzzeraVariazione(Nota);
    CambiaSegnoAumRid(Nota, 1);
    SetModificata(Nota, false);
    CambiaSegnoAumRid(Nota, 1);
    QVERIFY(!Nota.Modificata);
    CambiaSegnoAumRid(Nota, 0);
    QVERIFY(Nota.Modificata);
}

void TestVariazione::ricalcoloSoloConRighe()
{
    Registratore Messaggi;
    Parcella Nota;
    AzzeraVariazione(Nota);
    RigaOnorario(Nota, u"Studio"_s, 100);
    ScegliAumRid(Nota, AumRidLibera);
    QVERIFY(!Nota.RicalcoloNecessario);  // 0 as before
    ScegliAumRid(Nota, 6);
    QVERIFY(Nota.RicalcoloNecessario);
    Nota.RicalcoloNecessario = false;
    ScegliAumRid(Nota, 7);  // -50 as before
    QVERIFY(!Nota.RicalcoloNecessario);
    ScegliAumRid(Nota, AumRidLibera);
    QVERIFY(Nota.RicalcoloNecessario);
}

void TestVariazione::limiti_data()
{
    QTest::addColumn<int>("Opzione");
    QTest::addColumn<int>("Segno");
    QTest::addColumn<QString>("Casella");
    QTest::addColumn<QString>("Messaggio");
    QTest::addColumn<QString>("CasellaDopo");
    const QString Collegiali = u"La variazione deve essere compreso tra 1 e 100!"_s;
    const QString Stato = u"La variazione deve essere compreso tra -50 e -1!"_s;
    const QString Libera = u"La variazione deve essere compreso tra -100 e 300!"_s;
    QTest::newRow("collegiali, minimo") << 0 << 0 << u"1"_s << QString() << u"1"_s;
    QTest::newRow("collegiali, massimo") << 0 << 0 << u"100"_s << QString() << u"100"_s;
    QTest::newRow("collegiali, oltre") << 0 << 0 << u"101"_s << Collegiali << u"100"_s;
    QTest::newRow("collegiali, zero") << 0 << 0 << u"0"_s << Collegiali << u"100"_s;
    QTest::newRow("collegiali, vuota") << 0 << 0 << QString() << Collegiali << u"100"_s;
    QTest::newRow("Stato, massima riduzione") << 6 << 1 << u"50"_s << QString() << u"50"_s;
    QTest::newRow("Stato, oltre") << 6 << 1 << u"51"_s << Stato << u"50"_s;
    QTest::newRow("Stato, zero") << 6 << 1 << u"0"_s << Stato << u"50"_s;
    QTest::newRow("libera, -100") << 5 << 1 << u"100"_s << QString() << u"100"_s;
    QTest::newRow("libera, -101") << 5 << 1 << u"101"_s << Libera << u"100"_s;
    QTest::newRow("libera, 300") << 5 << 0 << u"300"_s << QString() << u"300"_s;
    QTest::newRow("libera, 301") << 5 << 0 << u"301"_s << Libera << u"100"_s;
    QTest::newRow("libera, senza segno vale piu'") << 5 << -1 << u"300"_s << QString() << u"300"_s;
    QTest::newRow("testo incollato conta zero") << 5 << 0 << u"x"_s << QString() << u"x"_s;
}

void TestVariazione::limiti()
{
    QFETCH(int, Opzione);
    QFETCH(int, Segno);
    QFETCH(QString, Casella);
    QFETCH(QString, Messaggio);
    Registratore Messaggi;
    Parcella Nota;
    AzzeraVariazione(Nota);
    ScegliAumRid(Nota, Opzione);
    Nota.cmbAumRid = Segno;
    Nota.txtAumRid.Testo = Casella;

    QCOMPARE(CheckVarPerc(Nota, false), Messaggio.isEmpty());
    QCOMPARE(Nota.txtAumRid.Testo, Casella);  // without a message nothing is put right
    if (!Messaggio.isEmpty())
        Messaggi.Attendi(Messaggio, vbOK, u"Errore:"_s);
    QCOMPARE(CheckVarPerc(Nota, true), Messaggio.isEmpty());
    QTEST(Nota.txtAumRid.Testo, "CasellaDopo");
    QCOMPARE(Nota.Fuoco, Messaggio.isEmpty() ? CampoNota::Nessuno : CampoNota::Variazione);
}

void TestVariazione::senzaLimitiTuttoAmmesso()
{
    Registratore Messaggi;
    Parcella Nota;
    Nota.txtAumRid.Testo = u"999"_s;
    QVERIFY(CheckVarPerc(Nota, true));
}

void TestVariazione::digitarePonePiu()
{
    Registratore Messaggi;
    Parcella Nota;
    AzzeraVariazione(Nota);
    CambiaTestoAumRid(Nota, u"0"_s);
    QCOMPARE(Nota.cmbAumRid, NessunaVoce);
    CambiaTestoAumRid(Nota, u"20"_s);
    QCOMPARE(Nota.cmbAumRid, 0);
    QCOMPARE(Nota.AumRidVarP, 0);  // in force only on leaving the box
    CambiaSegnoAumRid(Nota, 1);
    CambiaTestoAumRid(Nota, u"30"_s);
    QCOMPARE(Nota.cmbAumRid, 1);  // a sign that was chosen stays
}

void TestVariazione::lasciareAccetta()
{
    Registratore Messaggi;
    Parcella Nota;
    AzzeraVariazione(Nota);
    RigaOnorario(Nota, u"Studio"_s, 100);
    CambiaTestoAumRid(Nota, u"30"_s);
    CambiaSegnoAumRid(Nota, 1);
    LasciaAumRid(Nota);
    QCOMPARE(Nota.AumRidVarP, -30);
    QVERIFY(Nota.RicalcoloNecessario);
    Nota.RicalcoloNecessario = false;
    LasciaAumRid(Nota);
    QVERIFY(!Nota.RicalcoloNecessario);  // the same value again
}

void TestVariazione::lasciareRifiutaETieneLaPrecedente()
{
    Registratore Messaggi;
    Parcella Nota;
    ScegliAumRid(Nota, 3);
    CambiaTestoAumRid(Nota, u"26"_s);
    Messaggi.Attendi(u"La variazione deve essere compreso tra 1 e 25!"_s, vbOK, u"Errore:"_s);
    LasciaAumRid(Nota);
    QCOMPARE(Nota.txtAumRid.Testo, u"25"_s);
    QCOMPARE(Nota.AumRidVarP, 25);
}

void TestVariazione::lasciareVuotoSceglieLaLibera()
{
    Registratore Messaggi;
    Parcella Nota;
    ScegliAumRid(Nota, 6);
    CambiaTestoAumRid(Nota, QString());
    LasciaAumRid(Nota);
    QCOMPARE(Nota.AumRidIdx, AumRidLibera);
    QCOMPARE(Nota.cmbAumRid, NessunaVoce);
    QCOMPARE(Nota.AumRidVarP, 0);
    QVERIFY(Nota.cmbAumRidAbilitata);
}

void TestVariazione::caricata_data()
{
    QTest::addColumn<int>("Indice");
    QTest::addColumn<double>("VarP");
    QTest::addColumn<int>("AumRidVarP");
    QTest::addColumn<QString>("Casella");
    QTest::addColumn<int>("Segno");
    QTest::addColumn<QString>("Limiti");
    QTest::newRow("aumento") << 0 << 80.0 << 80 << u"80"_s << 0 << u"100;1"_s;
    QTest::newRow("riduzione") << 6 << -30.0 << -30 << u"30"_s << 1 << u"-50;-1"_s;
    QTest::newRow("libera") << 5 << -12.0 << -12 << u"12"_s << 1 << u"-100;300"_s;
    QTest::newRow("nessuna") << 5 << 0.0 << 0 << QString() << -1 << u"-100;300"_s;
    // What a damaged or foreign file may hold.
    QTest::newRow("opzione inesistente") << 11 << 20.0 << 20 << u"20"_s << 0 << u"-100;300"_s;
    QTest::newRow("senza opzione") << -1 << 20.0 << 20 << u"20"_s << 0 << u"-100;300"_s;
    QTest::newRow("fuori misura") << 5 << 1e300 << 999 << u"999"_s << 0 << u"-100;300"_s;
}

void TestVariazione::caricata()
{
    QFETCH(int, Indice);
    QFETCH(double, VarP);
    Registratore Messaggi;
    Parcella Nota;
    RigaOnorario(Nota, u"Studio"_s, 100);
    SetModificata(Nota, false);
    CaricaVariazione(Nota, Indice, VarP);
    QTEST(Nota.AumRidVarP, "AumRidVarP");
    QTEST(Nota.txtAumRid.Testo, "Casella");
    QTEST(Nota.cmbAumRid, "Segno");
    QTEST(Nota.AumRidLimiti, "Limiti");
    QVERIFY(!Nota.RicalcoloNecessario);
    QVERIFY(!Nota.Modificata);
}

void TestVariazione::testi_data()
{
    QTest::addColumn<int>("Opzione");
    QTest::addColumn<int>("VarP");
    QTest::addColumn<QString>("Etichetta");
    QTest::addColumn<QString>("Suggerimento");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("nessuna") << 5 << 0 << QString() << QString() << QString();
    QTest::newRow("riduzione") << 6 << -50 << u"-50%"_s
                               << u"Applicata riduzione per Difese  a spese dello Stato (art. 9)"_s
                               << u"Applicata riduzione del 50% per Difese  a spese dello Stato (art. 9)"_s;
    QTest::newRow("aumento") << 0 << 20 << u"+20%"_s
                             << u"Applicato aumento per Incarichi collegiali (art. 1, co. 4)"_s
                             << u"Applicato aumento 20% per Incarichi collegiali (art. 1, co. 4)"_s;
    QTest::newRow("libera") << 5 << 15 << u"+15%"_s << u"Applicato aumento per Altra/nessuna variazione"_s
                            << u"Applicato aumento 15% "_s;
}

void TestVariazione::testi()
{
    QFETCH(int, Opzione);
    QFETCH(int, VarP);
    Parcella Nota;
    Nota.AumRidIdx = Opzione;
    Nota.AumRidVarP = VarP;
    QTEST(TestoAumRidOno(Nota), "Etichetta");
    QTEST(SuggerimentoAumRidOno(Nota), "Suggerimento");
    QTEST(FraseVariazione(Nota), "Frase");
}

#include "TestVariazione.moc"
