// The lookup of the municipality field, key by key, and the table behind it.
#include "supporto/guasti.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "calculators/modComuni.h"
#include "core/sessione.h"
#include "platform/system/file.h"

using namespace Qt::StringLiterals;

namespace {

const auto NonInElenco = u"Comune non in elenco."_s;

}  // namespace

class TestComuni : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void completaIlNome();
    void backspaceLasciaIlCodice();
    void vuotoNonCercaNiente();
    void nomeIgnotoUnaVoltaSola();
    void oltreLUltimoNome();
    void maiuscoleIndifferenti();
    void accentiEApostrofi_data();
    void accentiEApostrofi();
    void erroreDettoEPoiAvanti();
    void trovaIlNomeIntero_data();
    void trovaIlNomeIntero();
    void propone();
    void nellaCartellaDelProgramma();
    void archivioMancante();
    void archivioSenzaTabella();
    void archivioTroncato();

private:
    /// The field after the keys that make this text.
    void Digita(const QString& Testo)
    {
        Campo.Testo = Testo;
        CercaComune(*Archivio, Campo);
    }

    std::optional<ArchivioComuni> Archivio;
    CampoComune Campo;
};
PROVA(TestComuni);

void TestComuni::initTestCase()
{
    Archivio.emplace(ProgrammaDiProva() + u"Comuni.mdb"_s);
}

void TestComuni::init()
{
    Campo = CampoComune();
}

void TestComuni::completaIlNome()
{
    const Registratore Box;
    Digita(u"ROM"_s);
    QCOMPARE(Campo.Testo, u"Roma"_s);  // the first name from ROM on
    QCOMPARE(Campo.Selezione, 3);
    QCOMPARE(Campo.CodComune, u"H501"_s);
    QCOMPARE(Campo.Provincia, u"RM"_s);
    QCOMPARE(Campo.Tag, u"ROM"_s);
    Digita(u"ROMAG"_s);
    QCOMPARE(Campo.Testo, u"Romagnano"_s);
    QCOMPARE(Campo.Selezione, 5);
    QVERIFY(!Campo.Rosso);
}

void TestComuni::backspaceLasciaIlCodice()
{
    const Registratore Box;
    Digita(u"Milan"_s);
    QCOMPARE(Campo.CodComune, u"F205"_s);
    Digita(u"Mila"_s);
    QCOMPARE(Campo.Testo, u"Mila"_s);
    QCOMPARE(Campo.Selezione, -1);
    QCOMPARE(Campo.CodComune, u"F205"_s);
    Digita(u"Mila"_s);  // as long as the last one
    QCOMPARE(Campo.Testo, u"Mila"_s);
    Digita(u"Milaz"_s);
    QCOMPARE(Campo.Testo, u"Milazzo"_s);
    QCOMPARE(Campo.CodComune, u"F206"_s);
}

void TestComuni::vuotoNonCercaNiente()
{
    const Registratore Box;
    Digita(u"Roma"_s);
    Campo.Rosso = true;
    Digita(u"   "_s);
    QCOMPARE(Campo.CodComune, u"H501"_s);
    QVERIFY(Campo.Rosso);
    QCOMPARE(Campo.Tag, QString());
    Digita(u"R"_s);  // longer than nothing
    QVERIFY(Campo.Testo.startsWith(u"R"));
    QVERIFY(Campo.Testo.size() > 1);
}

void TestComuni::nomeIgnotoUnaVoltaSola()
{
    Registratore Box;
    Box.Attendi(NonInElenco, vbOK, u"Attenzione!"_s);
    Digita(u"Romx"_s);
    QCOMPARE(Box.Mostrato(0).Bandiere, vbExclamation);
    QVERIFY(Campo.Rosso);
    QVERIFY(Campo.RidaiFuoco);
    QCOMPARE(Campo.Testo, u"Romx"_s);
    QCOMPARE(Campo.CodComune, u"?"_s);
    QCOMPARE(Campo.Provincia, u"?"_s);
    Digita(u"Romxy"_s);
    QVERIFY(Campo.Rosso);
    Digita(u"Rom"_s);  // a known beginning turns it black, but it is no longer text
    QVERIFY(!Campo.Rosso);
    QCOMPARE(Campo.CodComune, u"?"_s);
    Box.Attendi(NonInElenco, vbOK, u"Attenzione!"_s);
    Digita(u"Romx"_s);
    QCOMPARE(Box.Mostrati().size(), 2);
}

void TestComuni::oltreLUltimoNome()
{
    const Registratore Box;
    Digita(u"Roma"_s);
    Campo.Rosso = true;
    Digita(u"Zzzzz"_s);
    QCOMPARE(Campo.CodComune, u"H501"_s);
    QCOMPARE(Campo.Testo, u"Zzzzz"_s);
    QVERIFY(!Campo.Rosso);
}

void TestComuni::maiuscoleIndifferenti()
{
    const Registratore Box;
    Digita(u"  bOLOG"_s);
    QCOMPARE(Campo.Testo, u"Bologna"_s);
    QCOMPARE(Campo.Selezione, 5);
}

void TestComuni::accentiEApostrofi_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Codice");
    QTest::newRow("apostrofo") << u"l'aq"_s << u"L'Aquila"_s << u"A345"_s;
    QTest::newRow("accento in fondo") << u"Forlì"_s << u"Forlì"_s << u"D704"_s;
    QTest::newRow("accento maiuscolo") << u"CANTÙ"_s << u"Cantù"_s << u"B639"_s;
    QTest::newRow("apostrofo in mezzo") << u"Sant'Elena S"_s << u"Sant'Elena Sannita"_s << u"B466"_s;
}

void TestComuni::accentiEApostrofi()
{
    const Registratore Box;
    QFETCH(QString, Testo);
    Digita(Testo);
    QTEST(Campo.Testo, "Nome");
    QTEST(Campo.CodComune, "Codice");
}

// The file goes away under the open form.
void TestComuni::erroreDettoEPoiAvanti()
{
    const QString File = NuovaCartella() + u"Comuni.mdb"_s;
    QVERIFY(QFile::copy(ProgrammaDiProva() + u"Comuni.mdb"_s, File));
    ArchivioComuni Copia(File);
    OpenDatabase(File).Execute(u"DROP TABLE Comuni"_s);
    Registratore Box;
    Box.Tollera();
    Campo.Testo = u"Roma"_s;
    CercaComune(Copia, Campo);
    QCOMPARE(Box.Mostrati().size(), 1);
    QVERIFY2(Box.UltimoTesto().startsWith(u"FasMsg: 3078 "), qPrintable(Box.UltimoTesto()));
    QCOMPARE(Campo.Testo, u"Roma"_s);
    QCOMPARE(Campo.CodComune, QString());
}

void TestComuni::trovaIlNomeIntero_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Codice");
    QTest::newRow("come sta") << u"Roma"_s << u"H501"_s;
    QTest::newRow("maiuscole e spazi") << u" ROMA "_s << u"H501"_s;
    QTest::newRow("senza accento") << u"Cantu"_s << u"B639"_s;
    QTest::newRow("apostrofo al posto dell'accento") << u"forli'"_s << u"D704"_s;
    QTest::newRow("due nomi, accento dato") << u"Cagnò"_s << u"B360"_s;
    QTest::newRow("due nomi, senza accento è l'altro") << u"Cagno"_s << u"B359"_s;
    QTest::newRow("solo il principio") << u"Rom"_s << QString();
    QTest::newRow("niente") << QString() << QString();
}

void TestComuni::trovaIlNomeIntero()
{
    QFETCH(QString, Nome);
    const auto Trovato = Archivio->Trova(Nome);
    QTEST(Trovato ? Trovato->Codice : QString(), "Codice");
}

void TestComuni::propone()
{
    const QStringList Forli = Archivio->Proponi(u"forli"_s, 10);
    QVERIFY2(Forli.contains(u"Forlì"), qPrintable(Forli.join(u'|')));
    QVERIFY(Forli.contains(u"Forlimpopoli"));
    QCOMPARE(Archivio->Proponi(u"San"_s, 7).size(), 7);
    QCOMPARE(Archivio->Proponi(u"  "_s, 7), QStringList());
    QCOMPARE(Archivio->Proponi(u"Zzzz"_s, 7), QStringList());
}

void TestComuni::nellaCartellaDelProgramma()
{
    sessione::PercorsoProg = ProgrammaDiProva();
    QCOMPARE(PercorsoComuni(), ProgrammaDiProva() + u"Comuni.mdb"_s);
    AzzeraSessione();
}

void TestComuni::archivioMancante()
{
    QCOMPARE(NumeroErrore([] { const ArchivioComuni Nessuno(NuovaCartella() + u"Comuni.mdb"_s); }), 3024);
}

void TestComuni::archivioSenzaTabella()
{
    const QString File = NuovaCartella() + u"Comuni.mdb"_s;
    CreateDatabase(File).CreaTabella(u"Altro"_s, {{u"A"_s, TipoCampo::Testo, 10, {}, false}});
    QCOMPARE(NumeroErrore([&] { const ArchivioComuni Vuoto(File); }), 3078);
}

void TestComuni::archivioTroncato()
{
    const QString File = NuovaCartella() + u"Comuni.mdb"_s;
    ScriviFile(File, LeggiFile(ProgrammaDiProva() + u"Comuni.mdb"_s).left(5000));
    QCOMPARE(NumeroErrore([&] { const ArchivioComuni Guasto(File); }), 3343);
}

#include "TestComuni.moc"
