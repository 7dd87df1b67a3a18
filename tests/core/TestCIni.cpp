#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/CIni.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QFile>

using namespace Qt::StringLiterals;

class TestCIni : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void iCampiNasconoVuotiESiRifilano();
    void valori_data();
    void valori();
    void predefiniti_data();
    void predefiniti();
    void valoreTagliatoANovecentonovantanove();
    void fileMancanteDaIlPredefinito();
    void guastoDiLettura();
    void guasto1025();
    void scriveNellaSezioneCorrente();
    void scritturaFallita();
    void writeIniUnisceCartellaENome_data();
    void writeIniUnisceCartellaENome();
    void writeIniSenzaCartella();
};
PROVA(TestCIni);

namespace {

CIni Aperto(const QByteArray& Contenuto, const QString& Sezione = u"desktop"_s)
{
    CIni Ini;
    Ini.ImpostaFileName(NuovaCartella() + u"kr5.ini"_s);
    Ini.ImpostaApplicationKey(Sezione);
    ScriviFile(Ini.FileName(), Contenuto);
    return Ini;
}

}  // namespace

void TestCIni::iCampiNasconoVuotiESiRifilano()
{
    CIni Ini;
    QCOMPARE(Ini.FileName(), QString());
    QCOMPARE(Ini.ApplicationKey(), QString());
    Ini.ImpostaFileName(u"  mio file.ini "_s);
    Ini.ImpostaApplicationKey(u" desktop  "_s);
    QCOMPARE(Ini.FileName(), u"mio file.ini"_s);
    QCOMPARE(Ini.ApplicationKey(), u"desktop"_s);
    // Tabs and hard blanks are letters of a name like others.
    Ini.ImpostaFileName(u" \tmio\u00A0 "_s);
    QCOMPARE(Ini.FileName(), u"\tmio\u00A0"_s);
    Ini.ImpostaFileName(u"   "_s);
    QCOMPARE(Ini.FileName(), QString());
}

void TestCIni::valori_data()
{
    QTest::addColumn<QByteArray>("Scritto");
    QTest::addColumn<QString>("Valore");

    QTest::newRow("plain") << "Nuova parcella"_ba << u"Nuova parcella"_s;
    QTest::newRow("a tab inside goes and the words join") << "Nuova\tparcella"_ba << u"Nuovaparcella"_s;
    QTest::newRow("every control code goes") << QByteArray("a\0\1\x1F"
                                                           "b",
                                                           5)
                                             << u"ab"_s;
    QTest::newRow("blanks left bare by a control code go") << "\x01 a \x02"_ba << u"a"_s;
    QTest::newRow("hard blanks stay") << " \xA0 a\xA0 "_ba << u"\u00A0 a\u00A0"_s;
    QTest::newRow("quotes stay") << "\"a\""_ba << u"\"a\""_s;
    QTest::newRow("Windows-1252") << "Utilit\xE0 \x96 \x80"_ba << u"Utilità – €"_s;
    QTest::newRow("empty stays empty") << ""_ba << u""_s;
    QTest::newRow("nothing but control codes") << "\x01\x02"_ba << u""_s;
}

void TestCIni::valori()
{
    QFETCH(QByteArray, Scritto);
    const Registratore Box;
    QTEST(Aperto("[desktop]\nL0=" + Scritto + "\n").GetValue(u"L0"_s, u"predefinito"_s), "Valore");
}

void TestCIni::predefiniti_data()
{
    QTest::addColumn<QString>("Predefinito");
    QTest::addColumn<QString>("Valore");

    QTest::newRow("plain") << u"un valore"_s << u"un valore"_s;
    QTest::newRow("stripped and trimmed like a value") << u" a\tb\n "_s << u"ab"_s;
    QTest::newRow("cut like a value") << QString(2000, u'a') << QString(999, u'a');
    QTest::newRow("none") << QString() << QString();
}

void TestCIni::predefiniti()
{
    QFETCH(QString, Predefinito);
    QTEST(Aperto("[desktop]\nL0=x\n").GetValue(u"L1"_s, Predefinito), "Valore");
}

void TestCIni::valoreTagliatoANovecentonovantanove()
{
    const CIni Ini = Aperto("[desktop]\nL0=" + QByteArray(998, 'a') + "bc\n");
    QCOMPARE(Ini.GetValue(u"L0"_s), QString(998, u'a') + u'b');
}

void TestCIni::fileMancanteDaIlPredefinito()
{
    const Registratore Box;
    CIni Ini;
    QCOMPARE(Ini.GetValue(u"L0"_s, u"x"_s), u"x"_s);
    Ini.ImpostaFileName(NuovaCartella() + u"nessuno.ini"_s);
    Ini.ImpostaApplicationKey(u"desktop"_s);
    QCOMPARE(Ini.GetValue(u"L0"_s, u"x"_s), u"x"_s);
    QVERIFY(!EsisteFile(Ini.FileName()));
}

void TestCIni::guastoDiLettura()
{
    Registratore Box;
    const CIni Ini = Aperto("[desktop]\nL0=x\n");
    QVERIFY(QFile::setPermissions(Ini.FileName(), QFile::Permissions()));
    Box.Attendi(u"75 %1: %2"_s.arg(DescrizioneErrore(75), Ini.FileName()));
    QCOMPARE(Ini.GetValue(u"L0"_s, u"predefinito"_s), QString());
    QCOMPARE(Box.Mostrato(0).Bandiere, vbOKOnly);
}

void TestCIni::guasto1025()
{
    const Registratore Box;
    QCOMPARE(ValoreDopoGuasto(Errore(1025), u"predefinito"_s), u"predefinito"_s);
}

void TestCIni::scriveNellaSezioneCorrente()
{
    CIni Ini = Aperto("[desktop]\nL0=x\n[altra]\nL0=z\n");
    QVERIFY(Ini.SetValue(u"L0"_s, u"Utilità"_s));
    QCOMPARE(Ini.GetValue(u"l0"_s), u"Utilità"_s);
    Ini.ImpostaApplicationKey(u"Altra"_s);
    QCOMPARE(Ini.GetValue(u"L0"_s), u"z"_s);
    QCOMPARE(LeggiFile(Ini.FileName()), "[desktop]\nL0=Utilit\xE0\n[altra]\nL0=z\n"_ba);
}

void TestCIni::scritturaFallita()
{
    const Registratore Box;
    CIni Ini;
    Ini.ImpostaFileName(NuovaCartella() + u"nessuna/kr5.ini"_s);
    Ini.ImpostaApplicationKey(u"desktop"_s);
    QVERIFY(!Ini.SetValue(u"L0"_s, u"x"_s));
    QVERIFY(!Ini.WriteINI(u"s"_s, u"k"_s, u"v"_s, u"a.ini"_s, CartellaFile(Ini.FileName())));
}

void TestCIni::writeIniUnisceCartellaENome_data()
{
    QTest::addColumn<QString>("Coda");

    QTest::newRow("without separator") << u""_s;
    QTest::newRow("with separator") << u"/"_s;
    QTest::newRow("with the other separator") << u"\\"_s;
}

void TestCIni::writeIniUnisceCartellaENome()
{
    QFETCH(QString, Coda);
    QString Cartella = NuovaCartella();
    Cartella.chop(1);
    CIni Ini;
    Ini.ImpostaFileName(u"altro.ini"_s);
    Ini.ImpostaApplicationKey(u"altra"_s);
    QVERIFY(Ini.WriteINI(u"avvisokr5"_s, u"letto"_s, u"24/09/2012"_s, u"avvisokr5.ini"_s, Cartella + Coda));
    QCOMPARE(LeggiFile(Cartella + u"/avvisokr5.ini"_s), "[avvisokr5]\r\nletto=24/09/2012\r\n"_ba);
    QCOMPARE(Ini.FileName(), u"altro.ini"_s);
    QCOMPARE(Ini.ApplicationKey(), u"altra"_s);
}

void TestCIni::writeIniSenzaCartella()
{
    const QString File = u"prova-"_s + QString::number(QCoreApplication::applicationPid()) + u".ini"_s;
    const bool Scritto = CIni().WriteINI(u"s"_s, u"k"_s, u"v"_s, File);
    const bool Trovato = EsisteFile(CartellaEseguibile() + File);
    QFile::remove(CartellaEseguibile() + File);
    QVERIFY(Scritto);
    QVERIFY(Trovato);
}

#include "TestCIni.moc"
