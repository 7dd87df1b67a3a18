// The window of interest and its archive of rates: too old, damaged, locked, without a rate.
#include "interessi.h"
#include "platform/system/attese.h"

using namespace Qt::StringLiterals;

class TestInteressiArchivi : public QObject, private BancoInteressi
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void senzaArchivioNonSiPrepara();
    void avvisoDellAumentoUnaVoltaSola();
    void oltreLUltimaRigaConLUltimoTasso();
    void oltreLUltimaRigaAggiorna();
    void inizioSenzaTassoChiude_data();
    void inizioSenzaTassoChiude();
    void tassoAZeroTace();
    void importiSbagliati_data();
    void importiSbagliati();
    void archiviGuasti_data();
    void archiviGuasti();
    void archivioBloccato();
    void siSenzaAggiornamento();
};
PROVA(TestInteressiArchivi);

void TestInteressiArchivi::senzaArchivioNonSiPrepara()
{
    F->close();
    QVERIFY(QFile::remove(B->Tassi()));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    F = Apri<frmInteressi>();
    QCOMPARE(Controllo<QComboBox>(F, "cmbInteressi")->currentIndex(), -1);
    QCOMPARE(TestoDi(F, "mskDataFin"), u"__/__/____"_s);
    QCOMPARE(TestoDi(F, "barInter_1"), QString());
    Scegli(F, "cmbInteressi", 0);
    Compila(u"1000"_s, u"01/01/2012"_s, u"31/12/2012"_s);
    B->Voce.Tollera();
    Calcola();
    QVERIFY(B->Voce.UltimoTesto().endsWith(u"(3024)"));
    QCOMPARE(B->Voce.Mostrati().size(), 1);
}

void TestInteressiArchivi::avvisoDellAumentoUnaVoltaSola()
{
    Scrivi(F, "txtAumento", u"1,5"_s);
    Compila(u"10.000"_s, u"01/01/2013"_s, u"31/12/2014"_s);
    B->Voce.Attendi(u"I tassi di interessi saranno aumentati del 1,5%"_s, vbOK, u"Avvertimento:"_s);
    Calcola();
    QCOMPARE(B->Voce.Ultimo().Bandiere, vbExclamation);
    QCOMPARE(Grid()->Righe(), 2);
    Calcola();
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    Scrivi(F, "txtAumento", u"2"_s);
    B->Voce.Attendi(u"I tassi di interessi saranno aumentati del 2%"_s, vbOK, u"Avvertimento:"_s);
    Calcola();
}

void TestInteressiArchivi::oltreLUltimaRigaConLUltimoTasso()
{
    Sostituisci(ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2012, 12, 31), 5.0}}));
    Compila(u"36500"_s, u"31/12/2012"_s, u"10/01/2013"_s);
    B->Voce.Attendi(NonAggiornati, vbNo, u"Domanda:"_s);
    B->Voce.Attendi(UltimoIndice, vbOK, u"Avvertimento:"_s);
    Calcola();
    QCOMPARE(Grid()->Righe(), 2);
    QCOMPARE(TestoDi(F, "lblTotale"), u"55,00"_s);
    QVERIFY(B->Aperti.isEmpty());
}

void TestInteressiArchivi::oltreLUltimaRigaAggiorna()
{
    Sostituisci(ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2012, 12, 31), 5.0}}));
    Compila(u"36500"_s, u"31/12/2012"_s, u"10/01/2013"_s);
    B->Voce.Attendi(NonAggiornati, vbYes, u"Domanda:"_s);
    Calcola();
    QCOMPARE(B->Aperti, QStringList{u"aggiorna []"_s});
    QCOMPARE(Grid()->Righe(), 0);
    QVERIFY(F->isVisible());
}

void TestInteressiArchivi::inizioSenzaTassoChiude_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<QStringList>("Aperti");
    QTest::newRow("no") << vbNo << QStringList();
    QTest::newRow("si") << vbYes << QStringList{u"aggiorna []"_s};
}

void TestInteressiArchivi::inizioSenzaTassoChiude()
{
    QFETCH(int, Risposta);
    QFETCH(QStringList, Aperti);
    Sostituisci(ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2012, 12, 31), 5.0}}));
    Compila(u"36500"_s, u"31/12/2011"_s, u"10/01/2012"_s);
    B->Voce.Attendi(NonAggiornati, Risposta, u"Domanda:"_s);
    Calcola();
    QCOMPARE(B->Aperti, Aperti);
    QVERIFY(!F->isVisible());
}

void TestInteressiArchivi::tassoAZeroTace()
{
    Compila(u"36500"_s, u"01/01/2013"_s, u"10/01/2013"_s);
    Calcola();
    QCOMPARE(Grid()->Righe(), 1);
    Sostituisci(ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2013, 12, 31), 0.0}}));
    Calcola();
    QCOMPARE(Grid()->Righe(), 1);
    QCOMPARE(TestoDi(F, "lblTotale"), u"25,00"_s);
}

void TestInteressiArchivi::importiSbagliati_data()
{
    QTest::addColumn<QString>("Campo");
    QTest::addColumn<QString>("Testo");
    for (const auto& Testo : {u"abc"_s, u"1-2"_s, u"12.5"_s, u"1.2.3"_s})
        QTest::newRow(qPrintable(u"capitale "_s + Testo)) << u"txtCapitale"_s << Testo;
    for (const auto& Testo : {u"abc"_s, u"1-2"_s})
        QTest::newRow(qPrintable(u"aumento "_s + Testo)) << u"txtAumento"_s << Testo;
}

void TestInteressiArchivi::importiSbagliati()
{
    QFETCH(QString, Campo);
    QFETCH(QString, Testo);
    Compila(u"1000"_s, u"01/01/2012"_s, u"31/12/2012"_s);
    Scrivi(F, qPrintable(Campo), Testo);
    QCOMPARE(TestoDi(F, qPrintable(Campo)), Testo);
    if (Campo == u"txtAumento")
        B->Voce.Attendi(u"I tassi di interessi saranno aumentati del %1%"_s.arg(Testo));
    B->Voce.Attendi(u"Errore: Tipo di dato non corrispondente (13)"_s, vbOK, u"Errore:"_s);
    Calcola();
    QCOMPARE(Grid()->Righe(), 0);
    Scrivi(F, "txtAumento", {});
    Scrivi(F, "txtCapitale", u"1000"_s);
    Calcola();
    // The days of the calculation that failed are not counted again.
    QCOMPARE(TestoDi(F, "lblTotale"), u"25,07"_s);
}

void TestInteressiArchivi::archiviGuasti_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<int>("Numero");
    const QByteArray Intero = LeggiFile(ArchivioConsegnato());
    QTest::newRow("vuoto") << QByteArray() << 3343;
    QTest::newRow("troncato") << Intero.left(10000) << 3343;
    QTest::newRow("non e' un archivio") << QByteArray(5000, 'x') << 3343;
    QTest::newRow("senza la tabella") << LeggiFile(ArchivioConTassi(u"InteressiMora"_s, {})) << 3078;
}

void TestInteressiArchivi::archiviGuasti()
{
    QFETCH(QByteArray, Contenuto);
    QFETCH(int, Numero);
    ScriviFile(B->Tassi(), Contenuto);
    Compila(u"1000"_s, u"01/01/2012"_s, u"31/12/2012"_s);
    B->Voce.Tollera();
    Calcola();
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    QVERIFY2(B->Voce.UltimoTesto().endsWith(u"(%1)"_s.arg(Numero)), qPrintable(B->Voce.UltimoTesto()));
    Sostituisci(ArchivioConsegnato());
    Calcola();
    QCOMPARE(TestoDi(F, "lblTotale"), u"25,07"_s);
}

void TestInteressiArchivi::archivioBloccato()
{
    const QString Altro = sessione::UserFolder + u"altro.dat"_s;
    std::filesystem::create_hard_link(B->Tassi().toStdString(), Altro.toStdString());
    attese::BlocchiMs = 20;
    Compila(u"1000"_s, u"01/01/2012"_s, u"31/12/2012"_s);
    {
        const Database Suo = OpenDatabase(Altro);
        Suo.Execute(u"BEGIN EXCLUSIVE"_s);
        B->Voce.Tollera();
        Calcola();
        QVERIFY(B->Voce.UltimoTesto().endsWith(u"(3260)"));
        Suo.Execute(u"COMMIT"_s);
    }
    Calcola();
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    QCOMPARE(TestoDi(F, "lblTotale"), u"25,07"_s);
}

void TestInteressiArchivi::siSenzaAggiornamento()
{
    Aperture.Aggiorna = {};
    Sostituisci(ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2012, 12, 31), 5.0}}));
    Compila(u"36500"_s, u"31/12/2011"_s, u"10/01/2012"_s);
    B->Voce.Attendi(NonAggiornati, vbYes, u"Domanda:"_s);
    Calcola();
    QVERIFY(!F->isVisible());
    QCOMPARE(B->Voce.Mostrati().size(), 1);
}

#include "TestInteressiArchivi.moc"
