// A user folder that a whole office shares: installers of two users never stand together.
#include "banco.h"

#include "platform/system/cartelle.h"
#include "platform/system/permessi.h"
#include "supporto/guasti.h"

class TestScaricoCondiviso : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void nellaCartellaDiUnCollega_data();
    void nellaCartellaDiUnCollega();
};
PROVA(TestScaricoCondiviso);

void TestScaricoCondiviso::nellaCartellaDiUnCollega_data()
{
    QTest::addColumn<bool>("ConLeSue");
    QTest::newRow("his installers stand there") << true;
    QTest::newRow("he lets nobody write there") << false;
}

void TestScaricoCondiviso::nellaCartellaDiUnCollega()
{
    QFETCH(bool, ConLeSue);
    BancoAggiornamenti B;
    const QString Nome = u"upgrade3.0.15.exe"_s;
    B.Posa(Nome, "installatore");
    B.Annunciate(SoloProgramma);
    const Annuncio Trovato = B.Controllato(DalServer());
    const QString Sue = Barra(sessione::UserFolder) + u"upgrade/"_s;
    const CartellaChiusa Chiusa(ConLeSue ? (CreaCartella(Sue), Sue) : sessione::UserFolder);
    const EsitoScarico Esito = ScaricaProgramma(Trovato);
    QCOMPARE(Esito.Dettaglio, QString());
    QCOMPARE(Esito.File, CartellaDati() + u"upgrade/"_s + Nome);
    QCOMPARE(LeggiFile(Esito.File), "installatore"_ba);
    QVERIFY(DiQuestoUtente(Esito.File));
    QVERIFY(ContenutoDi(Sue).isEmpty());
    QVERIFY(QDir(CartellaDati() + u"upgrade"_s).removeRecursively());
}

#include "TestScaricoCondiviso.moc"
