// The row of the companion application, written by two programs at once.
#include "feenote/nota_prova.h"

#include "compagna/archivio.h"
#include "feenote/companion/modPV2.h"
#include "platform/base/regionale.h"
#include "platform/database/database.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QHash>
#include <QProcess>
#include <QThread>

using namespace Qt::StringLiterals;

class TestPV2Insieme : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { MemorizzaUltimaStampa(UltimaStampa()); }
    void dueProgrammiInsieme();

private:
    static constexpr int Volte = 40;
    static constexpr int OgniMs = 15;
    static void Scrivi(const QString& File, qint64 Inizio);
};
PROVA(TestPV2Insieme);

/// Writes one invoice after the other, each when its moment has come.
void TestPV2Insieme::Scrivi(const QString& File, qint64 Inizio)
{
    sessione::ArchivioPrat = File;
    sessione::RichiestaPV2 = {u"P12"_s, 0, 0, 0.0, 0, 0, 11};
    for (int i = 0; i < Volte; ++i) {
        MemorizzaUltimaStampa({1234.56, QString::number(100 + i), u"21/11/2026"_s, false});
        while (QDateTime::currentMSecsSinceEpoch() < Inizio + i * OgniMs)
            QThread::usleep(100);
        SalvaFatturaPV2(11);
    }
}

/// Who looks while another program adds the same invoice changes it, and adds none again.
void TestPV2Insieme::dueProgrammiInsieme()
{
    const Registratore Voce;
    // The other program.
    if (const QStringList Suo = qEnvironmentVariable("CALCANOVA_INSIEME").split(u';'); Suo.size() == 2) {
        Scrivi(Suo[0], Suo[1].toLongLong());
        return;
    }
    const Studio Ufficio;
    const QString File = Ufficio.File(u"pratiche.mdb"_s);
    CreaArchivioPratiche(File);
    const qint64 Inizio = QDateTime::currentMSecsSinceEpoch() + 1500;
    QProcess Altro;
    QProcessEnvironment Casa = QProcessEnvironment::systemEnvironment();
    Casa.insert(u"CALCANOVA_INSIEME"_s, u"%1;%2"_s.arg(File).arg(Inizio));
    Altro.setProcessEnvironment(Casa);
    Altro.start(QCoreApplication::applicationFilePath(), {u"TestPV2Insieme"_s, u"dueProgrammiInsieme"_s});
    QVERIFY(Altro.waitForStarted());
    Scrivi(File, Inizio);
    QVERIFY(Altro.waitForFinished(30000));
    QCOMPARE(Altro.exitCode(), 0);
    QHash<QString, int> Quante;
    Recordset Una = OpenDatabase(File, true).OpenRecordset(u"Fatture"_s);
    for (; !Una.Eof(); Una.MoveNext())
        if (Una.Value(u"Rif"_s) == u"P12"_s)
            ++Quante[CStr(Una.Value(u"NumF"_s))];
    QCOMPARE(Quante.size(), Volte);
    for (const auto& [Numero, Righe] : Quante.asKeyValueRange())
        QVERIFY2(Righe == 1, qPrintable(Numero));
}

#include "TestPV2Insieme.moc"
