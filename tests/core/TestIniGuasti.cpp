// The desktop's files of icons and colours, damaged in every way: one sentence with the file's name, however
// often they are read, and the file stays as it is.
#include "supporto/danni.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/modAspetto.h"
#include "core/modIcone.h"
#include "core/sessione.h"

using namespace Qt::StringLiterals;

class TestIniGuasti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { AzzeraSessione(); }
    void unaFraseSola_data();
    void unaFraseSola();
    void rimessoNonDiceNulla();
    void ogniTitoloDiSezione_data();
    void ogniTitoloDiSezione();
    void iColoriDelProgrammaRestano_data();
    void iColoriDelProgrammaRestano();
};
PROVA(TestIniGuasti);

namespace {

const QByteArray Icone = "[desktop]\r\nL0=Sito\r\nL0_c=www.x\r\nL0_i=a.gif\r\n"
                         "L1=Foglio\r\nL1_c=/opt/foglio/di/calcolo\r\nL1_i=foglio.gif\r\n";
const QByteArray Colori =
    "[modello1]\r\nNome=Mare\r\nSfCol=1\r\nSfImg=mare\r\nEtCol=2\r\nEtBor=3\r\nEtSel=4\r\n"
    "[modello2]\r\nNome=Bosco\r\nSfCol=1\r\nSfImg=bosco\r\nEtCol=2\r\nEtBor=3\r\nEtSel=4\r\n";

int Leggi(bool DiIcone)
{
    return DiIcone ? LeggiIcone().Righe() : int(LeggiModelli().size());
}

}  // namespace

void TestIniGuasti::init()
{
    AzzeraSessione();
    sessione::PercorsoProg = NuovaCartella();
    CreaCartella(sessione::PercorsoProg + u"sfondi"_s);
}

void TestIniGuasti::unaFraseSola_data()
{
    QTest::addColumn<bool>("DiIcone");
    QTest::addColumn<int>("Come");

    for (const bool DiIcone : {true, false})
        for (int Come = 0; Come < Mancante; ++Come)
            QTest::addRow("%s: %s", DiIcone ? "kr5.ini" : "templates.ini", NomiDanni[size_t(Come)])
                << DiIcone << Come;
}

void TestIniGuasti::unaFraseSola()
{
    QFETCH(bool, DiIcone);
    QFETCH(int, Come);
    const QString File = sessione::PercorsoProg + (DiIcone ? u"kr5.ini"_s : u"sfondi/templates.ini"_s);
    ScriviFile(File, DiIcone ? Icone : Colori);
    QCOMPARE(Leggi(DiIcone), 2);
    Rovina(File, Come);
    const QByteArray Rovinato = Come == Troncato || Come == Svuotato ? LeggiFile(File) : QByteArray();
    Registratore Box;
    Box.Tollera();
    // The start, the settings, and each save of theirs.
    for (int i = 0; i < 4; ++i)
        QCOMPARE(Leggi(DiIcone), Come == Troncato ? 1 : 0);
    QCOMPARE(Box.Mostrati().size(), 1);
    QVERIFY2(Box.UltimoTesto().count(File) == 1, qPrintable(Box.UltimoTesto()));
    if (Come == Troncato || Come == Svuotato)
        QCOMPARE(LeggiFile(File), Rovinato);
}

/// Another damage behind it is another thing to know.
void TestIniGuasti::rimessoNonDiceNulla()
{
    const QString File = sessione::PercorsoProg + u"kr5.ini"_s;
    Registratore Box;
    Box.Tollera();
    ScriviFile(File, {});
    QCOMPARE(Leggi(true), 0);
    ScriviFile(File, Icone);
    QCOMPARE(Leggi(true), 2);
    QCOMPARE(Box.Mostrati().size(), 1);
    ScriviFile(File, Icone.first(Icone.size() - 20));
    QCOMPARE(Leggi(true), 1);
    QCOMPARE(Box.Mostrati().size(), 2);
}

void TestIniGuasti::ogniTitoloDiSezione_data()
{
    QTest::addColumn<QByteArray>("Titolo");
    QTest::newRow("as it is written") << "[desktop]"_ba;
    QTest::newRow("behind blanks") << "  [desktop]"_ba;
    QTest::newRow("blanks within") << "[ desktop ]"_ba;
    QTest::newRow("another case") << "\t[DeskTop]"_ba;
}

/// A file that a hand has written, and whose icons are all read, is not damaged.
void TestIniGuasti::ogniTitoloDiSezione()
{
    QFETCH(QByteArray, Titolo);
    const Registratore Box;
    ScriviFile(sessione::PercorsoProg + u"kr5.ini"_s,
               "; mio\r\n" + QByteArray(Icone).replace("[desktop]", Titolo));
    QCOMPARE(Leggi(true), 2);
    QVERIFY(Box.Mostrati().isEmpty());
}

void TestIniGuasti::iColoriDelProgrammaRestano_data()
{
    QTest::addColumn<int>("Come");
    for (const int Come : DanniVisibili())
        if (Come == Cartella || Come == Illeggibile)
            QTest::newRow(NomiDanni[size_t(Come)]) << Come;
}

/// What stands in the user folder and cannot be read is told, and hides no other file.
void TestIniGuasti::iColoriDelProgrammaRestano()
{
    QFETCH(int, Come);
    sessione::UserFolder = NuovaCartella();
    CreaCartella(sessione::UserFolder + u"sfondi"_s);
    const QString File = sessione::UserFolder + u"sfondi/templates.ini"_s;
    ScriviFile(File, Colori.first(Colori.indexOf("[modello2]")));
    ScriviFile(sessione::PercorsoProg + u"sfondi/templates.ini"_s, Colori);
    QCOMPARE(Leggi(false), 1);
    Rovina(File, Come);
    Registratore Box;
    Box.Tollera();
    for (int i = 0; i < 2; ++i)
        QCOMPARE(Leggi(false), 2);
    QCOMPARE(Box.Mostrati().size(), 1);
    QVERIFY2(Box.UltimoTesto().contains(File), qPrintable(Box.UltimoTesto()));
    QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner);
}

#include "TestIniGuasti.moc"
