// Files on their way to another program: nobody else reads them, and they do not stay.
#include "core/modInvii.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "supporto/prova.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

class TestInvii : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { InstallaOrologio({}); }
    void soloDellUtente();
    void ciascunoLaSua();
    void restanoUnOra();
    void poiSeNeVanno();
    void senzaCartella();
    void unCollegamentoResta();
    void cioCheEDellUtenteResta();
    void laCartellaCollegataResta();

private:
    /// Hours from now that the clock shows.
    static void Passano(double Ore)
    {
        InstallaOrologio([Ore] { return QDateTime::currentDateTime().addSecs(qint64(Ore * 3600)); });
    }
    static QString Invii() { return CartellaDati() + u"invii/"_s; }
};
PROVA(TestInvii);

void TestInvii::init()
{
    QDir(Invii()).removeRecursively();
}

void TestInvii::soloDellUtente()
{
    const QString Cartella = NuovaCartellaInvio();
    const QFile::Permissions Altri = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                     QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(QFileInfo(Cartella).permissions() & Altri, QFile::Permissions());
    QCOMPARE(QFileInfo(Invii()).permissions() & Altri, QFile::Permissions());
}

void TestInvii::ciascunoLaSua()
{
    const QString Prima = NuovaCartellaInvio();
    QVERIFY(EsisteCartella(Prima));
    const QString Seconda = NuovaCartellaInvio();
    QVERIFY(Seconda != Prima);
    // A file in the way is passed by.
    const QDateTime Fermo = QDateTime::currentDateTime();
    InstallaOrologio([Fermo] { return Fermo.addDays(1); });
    const QString Terza = NuovaCartellaInvio();
    ScriviFile(Terza.chopped(2) + u"2"_s, "x");
    QVERIFY(NuovaCartellaInvio().endsWith(u"-3/"_s));
}

void TestInvii::restanoUnOra()
{
    const QString File = NuovaCartellaInvio() + u"Fattura.pdf"_s;
    ScriviFile(File, "%PDF");
    Passano(0.9);
    SpazzaInvii();
    QVERIFY(EsisteFile(File));
}

void TestInvii::poiSeNeVanno()
{
    const QString File = NuovaCartellaInvio() + u"Fattura.pdf"_s;
    ScriviFile(File, "%PDF");
    ScriviFile(CartellaFile(File) + u".directory"_s, "x");
    Passano(1.1);
    const QString Nuovo = NuovaCartellaInvio() + u"Altra.pdf"_s;
    ScriviFile(Nuovo, "%PDF");
    ImpostaDataFile(Nuovo, Adesso());
    SpazzaInvii();
    QVERIFY(!EsisteFile(File));
    EliminaFile(CartellaFile(File) + u".directory"_s);
    Passano(3);
    SpazzaInvii();
    QVERIFY(!EsisteCartella(Invii()));
}

void TestInvii::senzaCartella()
{
    SpazzaInvii();
    QVERIFY(!EsisteCartella(Invii()));
}

/// What somebody has put there that leads elsewhere is not swept.
void TestInvii::unCollegamentoResta()
{
    const QString Altrove = NuovaCartella();
    ScriviFile(Altrove + u"mio.pdf"_s, "x");
    CreaCartella(Invii());
    for (const QString& Nome : {u"via"_s, u"20260101-120000-1"_s})
        QVERIFY(QFile::link(Altrove, Invii() + Nome));
    Passano(5);
    SpazzaInvii();
    QVERIFY(EsisteFile(Altrove + u"mio.pdf"_s));
}

/// He may have been sent there to attach the document by hand.
void TestInvii::cioCheEDellUtenteResta()
{
    const QString Cartella = NuovaCartellaInvio();
    ScriviFile(Cartella + u"Fattura.pdf"_s, "%PDF");
    ScriviFile(Cartella + u"Fattura firmata.pdf"_s, "%PDF");
    const QString Altra = NuovaCartellaInvio();
    ScriviFile(Altra + u"appunti.txt"_s, "x");
    CreaCartella(Invii() + u"mia"_s);
    ScriviFile(Invii() + u"mia/a.pdf"_s, "x");
    Passano(5);
    SpazzaInvii();
    for (const QString& File : {Cartella + u"Fattura.pdf"_s, Cartella + u"Fattura firmata.pdf"_s,
                                Altra + u"appunti.txt"_s, Invii() + u"mia/a.pdf"_s})
        QVERIFY2(EsisteFile(File), qPrintable(File));
}

void TestInvii::laCartellaCollegataResta()
{
    const QString Altrove = NuovaCartella();
    QVERIFY(QFile::link(Altrove.chopped(1), Invii().chopped(1)));
    const QString File = NuovaCartellaInvio() + u"Fattura.pdf"_s;
    ScriviFile(File, "%PDF");
    Passano(5);
    SpazzaInvii();
    QVERIFY(EsisteFile(File));
    QVERIFY(QFile::remove(Invii().chopped(1)));
}

#include "TestInvii.moc"
