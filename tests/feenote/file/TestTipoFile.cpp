// How a desktop tells the program's notes from other databases: the description of the type, asked as a file
// manager does.
#include "file_prova.h"

#include "platform/system/file.h"

#include <QMimeDatabase>

using namespace Qt::StringLiterals;

class TestTipoFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void tipo_data();
    void tipo();
    void lAltroNumero();

private:
    QString Cartella;
};
PROVA(TestTipoFile);

namespace {

const QString TipoParcella = u"application/x-calcanova-parcella"_s;

}  // namespace

void TestTipoFile::initTestCase()
{
    // As the package lays it, beside the types that every desktop knows, in one base as the system makes it
    // of them.
    const QString Dati = NuovaCartella();
    const QString Tipi = Dati + u"mime/packages/"_s;
    const QString DelSistema = u"/usr/share/mime/packages/freedesktop.org.xml"_s;
    QVERIFY2(EsisteFile(DelSistema), "the package shared-mime-info is missing");
    CreaCartella(Tipi);
    ScriviFile(Tipi + u"calcanova.xml"_s, LeggiFile(SorgenteDiProva(u"pacchetto/calcanova-parcella.xml"_s)));
    ScriviFile(Tipi + u"freedesktop.org.xml"_s, LeggiFile(DelSistema));
    for (const char* Nome : {"XDG_DATA_HOME", "XDG_DATA_DIRS"})
        qputenv(Nome, QFile::encodeName(Dati));
    Cartella = NuovaCartella();
    const Studio Ufficio;
    ScriviNota(Cartella + u"nota.mdb"_s, NotaPiena());
    ScriviNota(Cartella + u"modello.mdb"_s, NotaPiena(), true);
    ScriviNota(Cartella + u"vecchia.mdb"_s, NotaPiena());
    OpenDatabase(Cartella + u"vecchia.mdb"_s).ImpostaSpecie(0);
    ScriviFile(Cartella + u"senza fine"_s, LeggiFile(Cartella + u"nota.mdb"_s));
    for (const QString& Nome : {u"parcelle.mdb"_s, u"DatiStudio.mdb"_s, u"Comuni.mdb"_s})
        ScriviFile(Cartella + Nome, LeggiFile(ProgrammaDiProva() + Nome));
    ScriviFile(Cartella + u"access.mdb"_s,
               QByteArray("\0\1\0\0Standard Jet DB\0", 20) + QByteArray(4076, '\1'));
    ScriviFile(Cartella + u"vuota.mdb"_s, {});
}

void TestTipoFile::tipo_data()
{
    QTest::addColumn<QString>("Atteso");
    const QString DelMotore = u"application/vnd.sqlite3"_s;
    const QString Access = u"application/vnd.ms-access"_s;
    QTest::newRow("nota.mdb") << TipoParcella;
    QTest::newRow("modello.mdb") << TipoParcella;
    QTest::newRow("senza fine") << TipoParcella;
    QTest::newRow("vecchia.mdb") << DelMotore;  // until it is saved
    QTest::newRow("parcelle.mdb") << DelMotore;
    QTest::newRow("DatiStudio.mdb") << DelMotore;
    QTest::newRow("Comuni.mdb") << DelMotore;
    QTest::newRow("access.mdb") << Access;
    QTest::newRow("vuota.mdb") << Access;
}

void TestTipoFile::tipo()
{
    QFETCH(QString, Atteso);
    const QString Nome = QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(QMimeDatabase().mimeTypeForFile(Cartella + Nome).name(), Atteso);
}

void TestTipoFile::lAltroNumero()
{
    // The number of the description is the one that a save writes.
    const QByteArray Descrizione = LeggiFile(SorgenteDiProva(u"pacchetto/calcanova-parcella.xml"_s));
    QVERIFY(Descrizione.contains("value=\"0x" + QByteArray::number(SpecieNota, 16) + '"'));
}

#include "TestTipoFile.moc"
