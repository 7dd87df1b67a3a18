// The decree of a note in its file and in templates.
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "tariffa_file.h"

#include "feenote/file/modMultipla.h"
#include "feenote/file/modRecupero.h"
#include "feenote/modCambioTariffa.h"
#include "platform/database/connessione.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"

#include <QDir>
#include <QScopedValueRollback>
#include <QThread>

#include <thread>

using namespace Qt::StringLiterals;

class TestTariffaNelFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void vaEViene_data();
    void vaEViene();
    void ilFileDelDodiciNonLaNomina();
    void unModelloLaTiene();
    void laCopiaDiRecuperoLaTiene();
    void laImpostazioneNonTocca();
    void tariffaSconosciuta_data();
    void tariffaSconosciuta();
    void senzaLArchivioDelDodici();
    void associata();
    void leSpeseGeneraliProprie();
    void illeggibilePerUnMomento();
    void memoriaDisonesta_data();
    void memoriaDisonesta();
};
PROVA(TestTariffaNelFile);

void TestTariffaNelFile::vaEViene_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("Ufficio");
    QTest::addColumn<QString>("Valore");
    QTest::newRow("civil") << int(CategCivile) << IDTribunale55 << u"30000"_s;
    QTest::newRow("criminal") << int(CategPenale) << IDMonocratico55 << QString();
    QTest::newRow("out of court") << int(CategStragiudiziale) << IDStragiudiziale55 << u"30000"_s;
    QTest::newRow("nothing chosen") << -1 << 0 << QString();
}

void TestTariffaNelFile::vaEViene()
{
    QFETCH(int, Categoria);
    QFETCH(int, Ufficio);
    QFETCH(QString, Valore);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota;
    NuovaParcella(Nota, Dm55);
    if (Categoria >= 0)
        Nota = Nota55ConFasi(Categoria, Ufficio, Valore);
    const Parcella Letta = Riletta(Suo, Nota);
    QCOMPARE(Letta.Tariffa, &Dm55);
    QCOMPARE(Letta.IDAutSelezionata(), Ufficio);
    QCOMPARE(Letta.cmbValore, Nota.cmbValore);
    QCOMPARE(Letta.Scaglione, Nota.Scaglione);
    QCOMPARE(Letta.txtSpeGen.Testo, u"15"_s);
    QCOMPARE(Colonna(Letta, OnoImporto), Colonna(Nota, OnoImporto));
    QCOMPARE(Letta.ListaVariazioni, Nota.ListaVariazioni);
    QVERIFY(!Letta.RicalcoloNecessario);
    QVERIFY(!Letta.Modificata);

    const Parcella Piena = NotaScritta();
    const Parcella Riletto = Riletta(Suo, Piena);
    QCOMPARE(Riletto.AumRidIdx, Telematici);
    QCOMPARE(Riletto.AumRidVarP, 20);
    QCOMPARE(Riletto.PartiAssistite, 3);
    QCOMPARE(Riletto.txtParti.Testo, u"3"_s);
    QCOMPARE(Colonna(Riletto, OnoImporto)[1], qint64(123456));
}

void TestTariffaNelFile::ilFileDelDodiciNonLaNomina()
{
    const Studio Suo;
    Registratore Voce;
    const QString File = Salvata(Suo, NotaPiena());
    const MemoriaFile Memoria = MemoriaDi(File);
    for (const auto& [Nome, Valore] : Memoria.asKeyValueRange())
        QVERIFY2(!Nome.startsWith(u"Tariffa") && Nome != u"PartiAssistite", qPrintable(Nome));
    QCOMPARE(&TariffaDella(Memoria), &Dm140);
    const MemoriaFile Altra = MemoriaDi(Salvata(Suo, NotaScritta()));
    QCOMPARE(Altra.value(u"Tariffa"_s), u"55"_s);
    QCOMPARE(Altra.value(u"Tariffa.Autorita"_s), u"102"_s);
    QCOMPARE(Altra.value(u"Tariffa.Scaglione"_s), u"4"_s);
    QCOMPARE(Altra.value(u"PartiAssistite"_s), u"3"_s);
    QVERIFY(!HaVociIgnote(Altra));
}

void TestTariffaNelFile::unModelloLaTiene()
{
    const Studio Suo;
    Registratore Voce;
    const QString File = Suo.File(u"modello.mdb"_s);
    ScriviNota(File, NotaScritta(), true);
    QVERIFY(SolaLettura(File));
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Tariffa, &Dm55);
    QCOMPARE(Letta.PartiAssistite, 3);
    QVERIFY(SolaLettura(File));
}

void TestTariffaNelFile::laCopiaDiRecuperoLaTiene()
{
    const Studio Suo;
    sessione::UserFolder = Suo.File(u"utente/"_s);
    QVERIFY(QDir().mkpath(sessione::UserFolder));
    Registratore Voce;
    AggiornaCopia(NotaScritta(), 1);
    const QStringList Copie = QDir(sessione::UserFolder + u"recupero"_s).entryList({u"*.mdb"_s});
    QCOMPARE(Copie.size(), 1);
    QCOMPARE(MemoriaDi(sessione::UserFolder + u"recupero/"_s + Copie.first()).value(u"Tariffa"_s), u"55"_s);
    TogliCopia(1);
    LasciaRecupero();
}

void TestTariffaNelFile::laImpostazioneNonTocca()
{
    const Studio Suo;
    Registratore Voce;
    const QString Vecchia = Salvata(Suo, NotaPiena());
    sessione::Tariffa = u"55"_s;
    Parcella Letta;
    CaricaDati(Letta, Vecchia);
    QCOMPARE(Letta.Tariffa, &Dm140);
    QCOMPARE(Letta.IDAutSelezionata(), IDTribunale);
    const QString Nuova = Suo.File(u"nuova.mdb"_s);
    ScriviNota(Nuova, NotaScritta());
    sessione::Tariffa = u"140"_s;
    CaricaDati(Letta, Nuova);
    QCOMPARE(Letta.Tariffa, &Dm55);
}

void TestTariffaNelFile::tariffaSconosciuta_data()
{
    QTest::addColumn<QString>("Sigla");
    QTest::newRow("of tomorrow") << u"99"_s;
    QTest::newRow("edited by hand") << u"D.m. 55/2014"_s;
}

void TestTariffaNelFile::tariffaSconosciuta()
{
    QFETCH(QString, Sigla);
    const Studio Suo;
    Registratore Voce;
    const QString File = Salvata(Suo, NotaScritta());
    EseguiSu(File, u"UPDATE _Calcanova SET Valore=? WHERE Nome='Tariffa'"_s, {Sigla});
    Parcella Letta = NotaCivile();
    const QString Detto = DescrizioneErroreDi([&] { CaricaDati(Letta, File); });
    QCOMPARE(Detto,
             u"La parcella segue una tariffa che questa versione del programma non conosce (%1): per aprirla "
             u"occorre aggiornarlo"_s.arg(Sigla));
    QVERIFY(Letta.Percorso.isEmpty());
    QVERIFY(Letta.xOnorari.Vuota());
    QVERIFY(!Letta.ListaAutorita.isEmpty());  // a new note
}

void TestTariffaNelFile::senzaLArchivioDelDodici()
{
    const Studio Suo;
    (void)Tariffa55Propria(Suo);
    const QString File = Salvata(Suo, NotaScritta());
    QVERIFY(QFile::remove(Suo.File(u"parcelle.mdb"_s)));
    Registratore Voce;
    Parcella Letta;
    CaricaDati(Letta, File);  // it needs the other one alone
    QCOMPARE(Letta.IDAutSelezionata(), IDTribunale55);
    ScriviNota(File, Letta);
}

void TestTariffaNelFile::associata()
{
    const Studio Suo;
    Registratore Voce;
    const QString File = Salvata(Suo, NotaScritta());
    Parcella Principale = NotaCivile();
    QVERIFY(AssociaMulti(Principale, File));
    QCOMPARE(Principale.Multi.Tariffa, &Dm55);
    QCOMPARE(Principale.Multi.AutorMulti, u"Tribunale - cognizione ordinaria e sommaria"_s);
    QCOMPARE(Principale.Tariffa, &Dm140);
}

/// What was ticked under the first decree comes back to it, with a save on the way too.
void TestTariffaNelFile::leSpeseGeneraliProprie()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = NotaCivile();
    (void)ClicImposta(Nota, Imposta::SpeseGen, true);
    CambiaPercento(Nota, Imposta::SpeseGen, u"15"_s);
    QVERIFY(CambiaTariffa(Nota, Dm55));
    Parcella Letta = Riletta(Suo, Nota);
    QVERIFY(CambiaTariffa(Letta, Dm140));
    QVERIFY(Letta.chkSpeseGen.Attiva);
    QCOMPARE(Letta.txtSpeGen.Testo, u"15"_s);
    QVERIFY(!MemoriaDi(Salvata(Suo, Letta)).contains(u"chkSpeseGen.Propria"_s));
    // Those that came with the decree go with it.
    Letta = Riletta(Suo, Nota55(CategCivile, IDTribunale55));
    QVERIFY(CambiaTariffa(Letta, Dm140));
    QVERIFY(!Letta.chkSpeseGen.Attiva);
}

/// A file that cannot be read for a moment is no note of the first decree.
void TestTariffaNelFile::illeggibilePerUnMomento()
{
    const Studio Suo;
    const QString File = Salvata(Suo, NotaScritta());
    Registratore Voce;
    const QScopedValueRollback Poco(attese::BlocchiMs, 300);
    Connessione AltroProgramma(File, Connessione::Modo::Scrittura);
    AltroProgramma.Esegui(u"BEGIN EXCLUSIVE"_s);
    std::jthread Rilascio([&AltroProgramma] {
        QThread::msleep(450);
        AltroProgramma.Esegui(u"ROLLBACK"_s);
    });
    Parcella Letta;
    const QString Detto = DescrizioneErroreDi([&] { CaricaDati(Letta, File); });
    QVERIFY(Detto.isEmpty() ? Letta.Tariffa == &Dm55 : Letta.xOnorari.Vuota() && Letta.Percorso.isEmpty());
    Rilascio.join();
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Tariffa, &Dm55);
    QCOMPARE(Letta.IDAutSelezionata(), IDTribunale55);
}

void TestTariffaNelFile::memoriaDisonesta_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Valore");
    for (const QString& Valore :
         {u"1e300"_s, u"nan"_s, u"-7"_s, u"0"_s, u"99999999999"_s, u"tre"_s, QString(3000, u'9')})
        for (const QString& Nome : {u"PartiAssistite.Aumento"_s, u"Variazione.Esatto"_s})
            QTest::addRow("%s %s", qPrintable(Nome), qPrintable(Valore.left(12))) << Nome << Valore;
    QTest::newRow("limits") << u"Variazione.Limiti"_s << u"x;y"_s;
    QTest::newRow("a sentence without end") << u"Variazione.Frase"_s << QString(100000, u'%');
    QTest::newRow("an article without end") << u"PartiAssistite.Articolo"_s << QString(100000, u'a');
}

/// A file that somebody has written by hand names no amounts out of all bounds.
void TestTariffaNelFile::memoriaDisonesta()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Valore);
    const Studio Suo;
    Parcella Nota = Nota55(CategCivile, IDTribunale55, u"30000"_s);
    ScegliAumRid(Nota, 104);  // by a third
    CaricaParti(Nota, 3);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    const QString File = Salvata(Suo, Nota);
    EseguiSu(File, u"UPDATE _Calcanova SET Valore=? WHERE Nome=?"_s, {Valore, Nome});
    Registratore Voce;
    Parcella Letta;
    CaricaDati(Letta, File);
    QVERIFY(AumentoParti(Letta) > 0 && AumentoParti(Letta) < 1'000'000);
    QVERIFY(std::abs(PercentoEsatto(Letta, Letta.AumRidVarP) - 33) < 1);
    QVERIFY(FraseVariazione(Letta).size() < 2000);
    QVERIFY(FraseParti(Letta).size() < 200);
    QCOMPARE(Colonna(Letta, OnoImporto), Colonna(Nota, OnoImporto));
}

#include "TestTariffaNelFile.moc"
