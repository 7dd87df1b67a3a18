// The lump sum for notifications by the day, by itself and within a filing fee.
#include "banconorme.h"

#include "calculators/norme/contributovigente.h"

using namespace Qt::StringLiterals;

class TestAnticipazione : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { AzzeraSessione(); }
    void perGiorno_data();
    void perGiorno();
    void conLaSuaNorma();
    void dallaCartellaDelProgramma();
    void nelContributo_data();
    void nelContributo();
};
PROVA(TestAnticipazione);

void TestAnticipazione::perGiorno_data()
{
    QTest::addColumn<QDate>("Giorno");
    QTest::addColumn<double>("Euro");  // -1: none
    QTest::newRow("prima che se ne sappia") << QDate(2004, 12, 31) << -1.0;
    QTest::newRow("il primo giorno noto") << QDate(2005, 1, 1) << 8.0;
    QTest::newRow("l'ultimo degli 8") << QDate(2013, 12, 31) << 8.0;
    QTest::newRow("il primo dei 27") << QDate(2014, 1, 1) << 27.0;
    QTest::newRow("oggi") << QDate(2026, 11, 22) << 27.0;
}

void TestAnticipazione::perGiorno()
{
    QFETCH(QDate, Giorno);
    const auto Importo = AnticipazioneNotifiche(NormeConsegnate(), Giorno);
    QTEST(Importo ? Importo->Euro : -1.0, "Euro");
}

void TestAnticipazione::conLaSuaNorma()
{
    const auto Importo = AnticipazioneNotifiche(NormeConsegnate(), QDate(2026, 11, 22));
    QVERIFY(Importo);
    QCOMPARE(Importo->Norma, u"D.P.R. 115/2002, art. 30"_s);
    QCOMPARE(Importo->Nota, u"Non per lavoro e previdenza."_s);
}

/// A file that cannot be used gives nothing, and says nothing.
void TestAnticipazione::dallaCartellaDelProgramma()
{
    sessione::PercorsoProg = ProgrammaDiProva();
    QCOMPARE(AnticipazioneInVigore(QDate(2026, 11, 22)),
             AnticipazioneNotifiche(NormeConsegnate(), QDate(2026, 11, 22)));
    sessione::PercorsoProg = NuovaCartella();
    QVERIFY(!AnticipazioneInVigore(QDate(2026, 11, 22)));
    const QString Ritoccate =
        NormeRitoccate(u"UPDATE Contributi SET Valore=28 WHERE Codice='notifiche'"_s, false);
    sessione::PercorsoProg = Ritoccate.left(Ritoccate.lastIndexOf(u'/') + 1);
    QVERIFY2(!AnticipazioneInVigore(QDate(2026, 11, 22)), "un importo ritoccato non si offre");
}

void TestAnticipazione::nelContributo_data()
{
    QTest::addColumn<QString>("Procedimento");
    QTest::addColumn<bool>("Notifiche");
    QTest::addColumn<bool>("Cassazione");
    QTest::addColumn<double>("Euro");
    QTest::newRow("processo civile") << u"civile"_s << true << false << 27.0;
    QTest::newRow("senza notifiche") << u"civile"_s << false << false << 0.0;
    QTest::newRow("in cassazione, oltre al registro") << u"civile"_s << true << true << 27.0;
    QTest::newRow("previdenza") << u"previdenza"_s << true << false << 0.0;
    QTest::newRow("processo tributario") << u"tributario"_s << true << false << 0.0;
    QTest::newRow("processo amministrativo") << u"amministrativo"_s << true << false << 0.0;
}

void TestAnticipazione::nelContributo()
{
    QFETCH(QString, Procedimento);
    QFETCH(bool, Notifiche);
    QFETCH(bool, Cassazione);
    RichiestaContributo Chiesto;
    Chiesto.Procedimento = Procedimento;
    Chiesto.Deposito = QDate(2026, 11, 22);
    Chiesto.ValoreEuro = 10000;
    Chiesto.Notifiche = Notifiche;
    if (Cassazione)
        Chiesto.Grado = GradoGiudizio::Cassazione;
    QTEST(ContributoVigente(NormeConsegnate(), Chiesto).NotificheEuro, "Euro");
}

#include "TestAnticipazione.moc"
