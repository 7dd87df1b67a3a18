// A store that is damaged: said with its file, kept beside the one that takes its place, and no counter that
// it held begins again.
#include "supporto/danni.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"

#include <QDir>

using namespace Qt::StringLiterals;

class TestImpostazioniGuaste : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void ogniTaglioSiVede();
    void dopoOgniTaglioSiSalva();
    void laRigaTagliataNonTornaIntera();
    void chiNonHaMaiSalvatoNonHaGuasti();
    void nienteDaScrivereNonFaUnFile();
    void iDueCommentiDaSoli_data();
    void iDueCommentiDaSoli();
    void scrittaAMano_data();
    void scrittaAMano();
    void danni_data();
    void danni();
    void laCopiaNonNeSostituisceUnAltra();

private:
    const QString Sezione = u"Parametri"_s;
    const QString App = u"Guaste"_s;
    QString File;
};
PROVA(TestImpostazioniGuaste);

void TestImpostazioniGuaste::init()
{
    File = PercorsoImpostazioni(App);
    QDir Cartella(CartellaFile(File));
    for (const QString& Nome : Cartella.entryList({u"Guaste*"_s}, QDir::Files))
        Cartella.remove(Nome);
    QDir(File).removeRecursively();
}

/// Wherever a full disk or a broken one has ended it.
void TestImpostazioniGuaste::ogniTaglioSiVede()
{
    SaveSettings(App, Sezione, {{u"StudioNome"_s, u"Avv. Mario Rossi, Lucca"_s}, {u"ProgFatt"_s, u"41"_s}});
    SaveSetting(App, Sezione, u"Iban"_s, u"IT60X0542811101000000123456"_s);
    const QByteArray Intero = LeggiFile(File);
    QVERIFY(!GuastoImpostazioni(App));
    // Without the end of its last line it is whole still.
    for (qsizetype Byte = 0; Byte < Intero.size() - 1; ++Byte) {
        ScriviFile(File, Intero.first(Byte));
        const std::optional<Errore> Guasto = GuastoImpostazioni(App);
        QVERIFY2(Guasto && Guasto->Descrizione.contains(File), Intero.first(Byte).constData());
    }
}

/// The same texts again, whatever of them and of others the cut has left.
void TestImpostazioniGuaste::dopoOgniTaglioSiSalva()
{
    const QList<std::pair<QString, QString>> Valori{{u"StudioNome"_s, u"Avv. Mario Rossi, Lucca"_s},
                                                    {u"ProgFatt"_s, u"41"_s}};
    SaveSettings(App, Sezione, Valori);
    SaveSetting(App, Sezione, u"NoteRecenti"_s, u"bianchi.pv2"_s);
    const QByteArray Intero = LeggiFile(File);
    for (qsizetype Byte = 0; Byte < Intero.size() - 1; ++Byte) {
        ScriviFile(File, Intero.first(Byte));
        SaveSettings(App, Sezione, Valori);
        QVERIFY2(!GuastoImpostazioni(App), Intero.first(Byte).constData());
        for (const auto& [Chiave, Testo] : Valori)
            QCOMPARE(GetSetting(App, Sezione, Chiave), Testo);
        QCOMPARE(PrendiNumero(App, Sezione, u"ProgFatt"_s, 99), 42);
    }
}

/// The file that a save makes whole holds no counter that the cut has made lower.
void TestImpostazioniGuaste::laRigaTagliataNonTornaIntera()
{
    SaveSettings(App, Sezione, {{u"ProgFatt"_s, u"41"_s}});
    QByteArray Tagliato = LeggiFile(File);
    Tagliato.truncate(Tagliato.indexOf("=41") + 2);
    ScriviFile(File, Tagliato);
    SaveSetting(App, Sezione, u"StudioNome"_s, u"Rossi"_s);
    QVERIFY(!GuastoImpostazioni(App));
    QCOMPARE(GetSetting(App, Sezione, u"StudioNome"_s), u"Rossi"_s);
    QCOMPARE(GetSetting(App, Sezione, u"ProgFatt"_s, u"perso"_s), u"perso"_s);
    QCOMPARE(LeggiFile(File + u".guasto"_s), Tagliato);
}

void TestImpostazioniGuaste::chiNonHaMaiSalvatoNonHaGuasti()
{
    QVERIFY(!GuastoImpostazioni(App));
    QCOMPARE(PrendiNumero(App, Sezione, u"ProgTrasm"_s, 99), 1);
    QVERIFY(!GuastoImpostazioni(App));
}

void TestImpostazioniGuaste::nienteDaScrivereNonFaUnFile()
{
    MutaSetting(App, Sezione, u"a"_s, [](const QString& Era) { return Era; });
    SaveSettings(App, Sezione, {});
    QVERIFY(!EsisteFile(File));
    QVERIFY(!GuastoImpostazioni(App));
}

void TestImpostazioniGuaste::iDueCommentiDaSoli_data()
{
    QTest::addColumn<QByteArray>("Attorno");
    QTest::addColumn<bool>("Guasto");

    QTest::newRow("alone") << QByteArray() << false;
    QTest::newRow("with blank lines") << " \n\t\r\n"_ba << false;
    QTest::newRow("with something else") << "altro\n"_ba << true;
}

/// A store that holds nothing is a whole one.
void TestImpostazioniGuaste::iDueCommentiDaSoli()
{
    QFETCH(QByteArray, Attorno);
    QFETCH(bool, Guasto);
    SaveSetting(App, Sezione, u"a"_s, u"1"_s);
    const QByteArrayList Righe = LeggiFile(File).split('\n');
    QVERIFY(Righe.size() > 3);
    ScriviFile(File, Righe[0] + '\n' + Attorno + Righe[Righe.size() - 2] + '\n');
    QCOMPARE(GuastoImpostazioni(App).has_value(), Guasto);
    if (!Guasto)
        QCOMPARE(PrendiNumero(App, Sezione, u"ProgTrasm"_s, 99), 1);
}

void TestImpostazioniGuaste::scrittaAMano_data()
{
    QTest::addColumn<QByteArray>("Testo");

    QTest::newRow("plain") << "[Parametri]\nprogfatt=41\n"_ba;
    QTest::newRow("last line without its end") << "[Parametri]\nprogfatt=41"_ba;
    QTest::newRow("with the mark of an editor") << "\xEF\xBB\xBF[Parametri]\r\nprogfatt=41\r\n"_ba;
}

void TestImpostazioniGuaste::scrittaAMano()
{
    QFETCH(QByteArray, Testo);
    CreaCartella(CartellaFile(File));
    ScriviFile(File, Testo);
    QVERIFY(!GuastoImpostazioni(App));
    QCOMPARE(PrendiNumero(App, Sezione, u"ProgFatt"_s, 99), 42);
    SaveSetting(App, Sezione, u"a"_s, u"1"_s);
    QVERIFY(!GuastoImpostazioni(App));
    QCOMPARE(GetSetting(App, Sezione, u"progfatt"_s), u"42"_s);
    QVERIFY(!QFile::exists(File + u".guasto"_s));
    // One more line by hand is none less.
    ScriviFile(File, LeggiFile(File) + "iban=IT60\n");
    SaveSetting(App, Sezione, u"b"_s, u"2"_s);
    QCOMPARE(GetSetting(App, Sezione, u"iban"_s), u"IT60"_s);
    QCOMPARE(LeggiFile(File).count("; fine"), 2);  // in the sentence of the first line, and the last one
    QVERIFY(LeggiFile(File).trimmed().endsWith("; fine"));
}

void TestImpostazioniGuaste::danni_data()
{
    QTest::addColumn<int>("Come");

    for (const int Come : DanniVisibili())
        QTest::newRow(NomiDanni[size_t(Come)]) << Come;
}

void TestImpostazioniGuaste::danni()
{
    QFETCH(int, Come);
    SaveSettings(App, Sezione, {{u"StudioNome"_s, u"Avv. Rossi"_s}, {u"ProgTrasm"_s, u"41"_s}});
    Rovina(File, Come);
    const std::optional<Errore> Guasto = GuastoImpostazioni(App);
    QVERIFY(Guasto.has_value());
    QVERIFY2(Guasto->Descrizione.contains(File), qPrintable(Guasto->Descrizione));
    QCOMPARE(GetSetting(App, Sezione, u"ProgTrasm"_s, u"manca"_s), u"manca"_s);
    const QByteArray Rovinato = Come == Cartella || Come == Illeggibile ? QByteArray() : LeggiFile(File);

    // No number is given a second time.
    QCOMPARE(NumeroErrore([&] { (void)PrendiNumero(App, Sezione, u"ProgTrasm"_s, 99999); }), 75);
    QCOMPARE(NumeroErrore([&] { (void)PortaNumero(App, Sezione, u"ProgTrasm"_s, 1); }), 75);
    QCOMPARE(NumeroErrore([&] { MutaSetting(App, Sezione, u"a"_s, [](auto) { return u"1"_s; }); }), 75);
    QVERIFY(GuastoImpostazioni(App).has_value());

    const int Esito = NumeroErrore([&] { SaveSetting(App, Sezione, u"ProgTrasm"_s, u"42"_s); });
    QCOMPARE(Esito, Come == Cartella || Come == Illeggibile ? 75 : 0);
    if (Esito != 0)
        return;
    QVERIFY(!GuastoImpostazioni(App));
    QCOMPARE(PrendiNumero(App, Sezione, u"ProgTrasm"_s, 99999), 43);
    QCOMPARE(QFile::exists(File + u".guasto"_s), Come == Troncato);
    if (Come == Troncato)
        QCOMPARE(LeggiFile(File + u".guasto"_s), Rovinato);
}

void TestImpostazioniGuaste::laCopiaNonNeSostituisceUnAltra()
{
    SaveSetting(App, Sezione, u"a"_s, u"1"_s);
    for (const char* Resto : {"uno", "due", "due", "tre"}) {
        ScriviFile(File, Resto);
        SaveSetting(App, Sezione, u"a"_s, u"1"_s);
    }
    QCOMPARE(LeggiFile(File + u".guasto"_s), "uno"_ba);
    QCOMPARE(LeggiFile(File + u".guasto2"_s), "due"_ba);
    QCOMPARE(LeggiFile(File + u".guasto3"_s), "tre"_ba);
    QVERIFY(!QFile::exists(File + u".guasto4"_s));
}

#include "TestImpostazioniGuaste.moc"
