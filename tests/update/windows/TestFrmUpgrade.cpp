#include "supporto/mani.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/sessione.h"
#include "core/versione.h"
#include "platform/system/shell.h"
#include "update/windows/frmUpgrade.h"

#include <QLabel>

using namespace Qt::StringLiterals;

class TestFrmUpgrade : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void cosaEInUso();
    void tuttoHaUnNome();

private:
    Registratore* Voce = nullptr;
};
PROVA(TestFrmUpgrade);

void TestFrmUpgrade::init()
{
    AzzeraSessione();
    sessione::UserFolder = NuovaCartella();
    Voce = new Registratore;
}

void TestFrmUpgrade::cleanup()
{
    delete Voce;
    AzzeraSessione();
}

void TestFrmUpgrade::cosaEInUso()
{
    {
        frmUpgrade Modulo;
        QCOMPARE(Modulo.windowTitle(), u"Aggiornamento programma ed archivi"_s);
        QCOMPARE(TestoDi(&Modulo, "lblVersione"), VersioneProgramma());
        QCOMPARE(TestoDi(&Modulo, "lblArchivio"), u"archivio mancante"_s);
    }
    QFile Archivio(sessione::UserFolder + u"TASSI.DAT"_s);
    QVERIFY(Archivio.open(QIODevice::ReadWrite));
    QVERIFY(
        Archivio.setFileTime(QDateTime(QDate(2026, 3, 9), QTime(12, 0)), QFileDevice::FileModificationTime));
    Archivio.close();
    const frmUpgrade Modulo;
    QCOMPARE(TestoDi(&Modulo, "lblArchivio"), u"09/03/2026"_s);
}

void TestFrmUpgrade::tuttoHaUnNome()
{
    frmUpgrade Modulo;
    Modulo.Mostra();
    QCOMPARE(SenzaNome(&Modulo), QStringList());
}

#include "TestFrmUpgrade.moc"
