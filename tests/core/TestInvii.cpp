// Files on their way to another program: nobody else reads them, and they do not stay.
#include "core/modInvii.h"
#include "platform/base/errore.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "supporto/guasti.h"
#include "supporto/maschera.h"
#include "supporto/prova.h"

#include <QDir>
#include <QFileInfo>

#include <functional>

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
    void maiFinito();
    void maiFinitoAMeta();
    void cioCheEDellUtenteResta_data();
    void cioCheEDellUtenteResta();
    void laCartellaCollegataResta();

private:
    /// Hours from now that the clock shows.
    static void Passano(double Ore)
    {
        InstallaOrologio([Ore] { return QDateTime::currentDateTime().addSecs(qint64(Ore * 3600)); });
    }
    static QString Scritto(const QString& Nome = u"Fattura.pdf"_s)
    {
        return ScriviInvio(Nome, [](const QString& File) { ScriviFile(File, "%PDF"); });
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
    const SenzaMaschera Aperta;
    const QString Cartella = CartellaFile(Scritto());
    for (const QString& Sua : {Cartella, Invii(), CartellaDati()})
        QCOMPARE(QFileInfo(Sua).permissions() & DiAltri, QFile::Permissions());
}

void TestInvii::ciascunoLaSua()
{
    const QString Prima = CartellaFile(Scritto());
    QVERIFY(EsisteCartella(Prima));
    const QString Seconda = CartellaFile(Scritto());
    QVERIFY(Seconda != Prima);
    // A file in the way is passed by.
    const QDateTime Fermo = QDateTime::currentDateTime();
    InstallaOrologio([Fermo] { return Fermo.addDays(1); });
    const QString Terza = CartellaFile(Scritto());
    ScriviFile(Terza.chopped(2) + u"2"_s, "x");
    QVERIFY(CartellaFile(Scritto()).endsWith(u"-3/"_s));
}

void TestInvii::restanoUnOra()
{
    const QString File = Scritto();
    Passano(0.9);
    SpazzaInvii();
    QVERIFY(EsisteFile(File));
}

void TestInvii::poiSeNeVanno()
{
    const QString File = Scritto();
    ScriviFile(CartellaFile(File) + u".directory"_s, "of the file manager");
    Passano(1.1);
    const QString Nuovo = Scritto(u"Altra.pdf"_s);
    QVERIFY(
        QFile::setPermissions(CartellaFile(Nuovo), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    InstallaOrologio([Poi = QDateTime::currentDateTime().addSecs(3590)] { return Poi; });
    SpazzaInvii();
    QVERIFY(EsisteFile(File));
    Passano(1.1);
    SpazzaInvii();
    QVERIFY(!EsisteCartella(CartellaFile(File)));
    QVERIFY(EsisteCartella(Invii()));
}

/// A program that was killed while it wrote has offered the document to nobody.
void TestInvii::maiFinito()
{
    QString Percorso;
    const auto Muore = [&Percorso](const QString& File) {
        Percorso = File;
        ScriviFile(File, "%P");
        throw Errore(61);
    };
    QVERIFY(NumeroErrore([&] { (void)ScriviInvio(u"Fattura.pdf"_s, Muore); }) != 0);
    QVERIFY(EsisteFile(Percorso));
    Passano(5);
    SpazzaInvii();
    QVERIFY(!EsisteCartella(CartellaFile(Percorso)));
    InstallaOrologio({});
    CreaCartella(Invii() + u"20260101-120000-1"_s);
    SpazzaInvii();
    QVERIFY(EsisteCartella(Invii() + u"20260101-120000-1"_s));  // just made: another program is at it
    Passano(10);
    SpazzaInvii();
    QVERIFY(!EsisteCartella(Invii() + u"20260101-120000-1"_s));
}

/// Half a document is a client's too.
void TestInvii::maiFinitoAMeta()
{
    for (const QString& Mezzo : {u".~.inviato.tmp"_s, u".~Fattura.pdf.tmp"_s}) {
        const QString Cartella = Invii() + u"20260101-120000-1/"_s;
        CreaCartella(Cartella);
        if (Mezzo != u".~.inviato.tmp")
            ScriviFile(Cartella + u".inviato"_s, "Fattura.pdf");
        ScriviFile(Cartella + Mezzo, "%P");
        Passano(5);
        SpazzaInvii();
        QVERIFY2(EsisteFile(Cartella + Mezzo), "somebody may be writing it");
        ImpostaDataFile(Cartella + Mezzo, QDateTime::currentDateTime().addSecs(-3600));
        SpazzaInvii();
        QVERIFY2(!EsisteCartella(Cartella), qPrintable(Mezzo));
    }
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

void TestInvii::cioCheEDellUtenteResta_data()
{
    using Mano = std::function<void(const QString& Cartella)>;
    QTest::addColumn<Mano>("Lascia");
    const auto Scrive = [](const QString& Nome) {
        return Mano([Nome](const QString& Cartella) { ScriviFile(Cartella + Nome, "mio"); });
    };
    QTest::newRow("a signed copy beside it") << Scrive(u"Fattura firmata.pdf"_s);
    QTest::newRow("notes") << Scrive(u"appunti.txt"_s);
    QTest::newRow("a hidden file") << Scrive(u".mio"_s);
    QTest::newRow("the document changed in place") << Scrive(u"Fattura.pdf"_s);
    QTest::newRow("a folder") << Mano([](const QString& Cartella) { CreaCartella(Cartella + u"x"_s); });
    QTest::newRow("a signed copy in its place") << Mano([](const QString& Cartella) {
        EliminaFile(Cartella + u"Fattura.pdf"_s);
        ScriviFile(Cartella + u"Fattura firmata.pdf"_s, "mio");
    });
    QTest::newRow("a mark that is gone")
        << Mano([](const QString& Cartella) { EliminaFile(Cartella + u".inviato"_s); });
    QTest::newRow("a mark that leads elsewhere") << Mano([](const QString& Cartella) {
        ScriviFile(Invii() + u"mia.pdf"_s, "mio");
        ScriviFile(Cartella + u".inviato"_s, "../mia.pdf");
    });
}

/// He may have been sent there to attach the document by hand.
void TestInvii::cioCheEDellUtenteResta()
{
    QFETCH(std::function<void(const QString& Cartella)>, Lascia);
    const QString Cartella = CartellaFile(Scritto());
    Lascia(Cartella);
    CreaCartella(Invii() + u"mia"_s);
    ScriviFile(Invii() + u"mia/a.pdf"_s, "x");
    const auto Contiene = [](const QString& Dove) {
        return QDir(Dove).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    };
    const QStringList Qui = Contiene(Cartella);
    const QStringList Sopra = Contiene(Invii());
    Passano(5);
    SpazzaInvii();
    QCOMPARE(Contiene(Cartella), Qui);
    QCOMPARE(Contiene(Invii()), Sopra);
    QVERIFY(EsisteFile(Invii() + u"mia/a.pdf"_s));
}

void TestInvii::laCartellaCollegataResta()
{
    const QString Altrove = NuovaCartella();
    QVERIFY(QFile::link(Altrove.chopped(1), Invii().chopped(1)));
    const QString File = Scritto();
    Passano(5);
    SpazzaInvii();
    QVERIFY(EsisteFile(File));
    QVERIFY(QFile::remove(Invii().chopped(1)));
}

#include "TestInvii.moc"
