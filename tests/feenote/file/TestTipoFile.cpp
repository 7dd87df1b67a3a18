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
    if (!EsisteFile(DelSistema))
        QSKIP("no base of types on this machine");
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
    QTest::addColumn<bool>("Parcella");
    QTest::newRow("nota.mdb") << true;
    QTest::newRow("modello.mdb") << true;
    QTest::newRow("senza fine") << true;
    QTest::newRow("vecchia.mdb") << false;  // until it is saved
    QTest::newRow("parcelle.mdb") << false;
    QTest::newRow("DatiStudio.mdb") << false;
    QTest::newRow("Comuni.mdb") << false;
    QTest::newRow("access.mdb") << false;
    QTest::newRow("vuota.mdb") << false;
}

void TestTipoFile::tipo()
{
    QFETCH(bool, Parcella);
    const QString Nome = QString::fromLatin1(QTest::currentDataTag());
    const QString Tipo = QMimeDatabase().mimeTypeForFile(Cartella + Nome).name();
    QVERIFY(QMimeDatabase().mimeTypeForName(TipoParcella).isValid());
    QVERIFY2((Tipo == TipoParcella) == Parcella, qPrintable(Tipo));
}

void TestTipoFile::lAltroNumero()
{
    // The number of the description is the one that a save writes.
    const QByteArray Descrizione = LeggiFile(SorgenteDiProva(u"pacchetto/calcanova-parcella.xml"_s));
    QVERIFY(Descrizione.contains("value=\"0x" + QByteArray::number(SpecieNota, 16) + '"'));
}

#include "TestTipoFile.moc"
