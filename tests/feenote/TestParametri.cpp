// Category, authority, bracket, value of the case: what each change brings and what it asks.
#include "nota_prova.h"

#include "platform/base/numerierrore.h"

using namespace Qt::StringLiterals;

namespace {

const QString Incompatibile = u"L'autorità selezionata non è compatibile con la precedente!"_s;

}  // namespace

class TestParametri : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void categoriaDecideListeEStati_data();
    void categoriaDecideListeEStati();
    void stessaCategoriaNonToccaNulla();
    void laCategoriaLasciaLoScaglione();
    void stessaAutoritaNonChiede();
    void stessoIDAutNonChiede();
    void autoritaSenzaRigheNonChiede();
    void autoritaIncompatibileTorna();
    void autoritaCompatibileChiede_data();
    void autoritaCompatibileChiede();
    void soloSpeseContanoPerLaCompatibilita();
    void elencoCompatibili_data();
    void elencoCompatibili();
    void autoritaPenaleFaDaScaglione();
    void verificaInOrdine_data();
    void verificaInOrdine();
    void leFrasiStannoInOrdine();
    void verificaMutaNonParla();
    void verificaGuardaAncheLaVariazione();
    void testata_data();
    void testata();
    void testataInBreve();
    void ventiduesimoScaglione();
    void senzaTariffeListeVuote();
};
PROVA(TestParametri);

void TestParametri::categoriaDecideListeEStati_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<int>("Autorita");
    QTest::addColumn<int>("Scaglioni");
    QTest::addColumn<bool>("Valore");
    QTest::addColumn<bool>("Importo");
    QTest::addColumn<CampoNota>("Fuoco");
    QTest::newRow("civile") << 0 << u"CIV"_s << 16 << 8 << true << true << CampoNota::Nessuno;
    QTest::newRow("penale: nessun valore")
        << 1 << u"PEN"_s << 10 << 8 << false << false << CampoNota::Nessuno;
    QTest::newRow("stragiudiziale: solo importo")
        << 2 << u"STR"_s << 3 << 7 << false << true << CampoNota::Valore;
}

void TestParametri::categoriaDecideListeEStati()
{
    QFETCH(int, Categoria);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    CambiaCategoria(Nota, Categoria);
    QTEST(Nota.CodCateg, "Codice");
    QTEST(int(Nota.ListaAutorita.size()), "Autorita");
    QTEST(int(Nota.ListaScaglioni.size()), "Scaglioni");
    QTEST(Nota.cmbValoreAbilitata, "Valore");
    QTEST(Nota.txtImporto.Abilitata, "Importo");
    QTEST(Nota.Fuoco, "Fuoco");
    QVERIFY(Nota.cmbAutorAbilitata);
    QCOMPARE(Nota.cmbAutor, NessunaVoce);
    QCOMPARE(Nota.cmbValore, NessunaVoce);
    QCOMPARE(Nota.IdxValorePrec, NessunaVoce);
    // A new note is civil before anything is picked: its lists are those already there.
    QCOMPARE(Nota.RicalcoloNecessario, Categoria != CategCivile);
    QVERIFY(Nota.Modificata);
}

void TestParametri::stessaCategoriaNonToccaNulla()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    SetModificata(Nota, false);
    const Parcella Prima = Nota;
    CambiaCategoria(Nota, CategCivile);
    QVERIFY(Nota == Prima);
}

/// A column of civil amounts says nothing of any other category: as in a file that has no bracket, none is
/// left.
void TestParametri::laCategoriaLasciaLoScaglione()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    QVERIFY(Nota.Scaglione > 0);
    CambiaCategoria(Nota, CategStragiudiziale);
    QCOMPARE(Nota.cmbValore, NessunaVoce);
    QCOMPARE(Nota.Scaglione, 0);
    // Nor is the office of a criminal matter a bracket of any other.
    CambiaCategoria(Nota, CategPenale);
    CambiaAutorita(Nota, 0);
    QVERIFY(Nota.Scaglione > 0);
    CambiaCategoria(Nota, CategCivile);
    QCOMPARE(Nota.Scaglione, 0);
}

void TestParametri::stessaAutoritaNonChiede()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 100);
    Nota.RicalcoloNecessario = false;
    SetModificata(Nota, false);
    CambiaAutorita(Nota, Nota.cmbAutor);
    QVERIFY(!Nota.RicalcoloNecessario);
    QVERIFY(!Nota.Modificata);
    QCOMPARE(Nota.IDAutSelezionata(), IDTribunale);
}

void TestParametri::stessoIDAutNonChiede()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Nota.ListaAutorita.append({IDTribunale, u"Tribunale ordinario, sezione lavoro"_s, true});
    RigaOnorario(Nota, u"Studio"_s, 100);
    Nota.RicalcoloNecessario = false;
    const int Seconda = int(Nota.ListaAutorita.size()) - 1;
    CambiaAutorita(Nota, Seconda);
    QCOMPARE(Nota.cmbAutor, Seconda);
    QCOMPARE(Nota.IdxAutorPrec, Seconda);
    QVERIFY(!Nota.RicalcoloNecessario);
}

void TestParametri::autoritaSenzaRigheNonChiede()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Nota.RicalcoloNecessario = false;
    // Not among the compatible ones: without lines nothing can be wrong.
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDTribunaleIngiunzione));
    QCOMPARE(Nota.IDAutSelezionata(), IDTribunaleIngiunzione);
    QVERIFY(Nota.RicalcoloNecessario);
}

void TestParametri::autoritaIncompatibileTorna()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 100);
    Nota.RicalcoloNecessario = false;
    Messaggi.Attendi(Incompatibile, vbOK, u"Errore:"_s);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDTribunaleIngiunzione));
    QCOMPARE(Nota.IDAutSelezionata(), IDTribunale);
    QCOMPARE(Nota.IdxAutorPrec, Nota.cmbAutor);
    QVERIFY(!Nota.RicalcoloNecessario);
}

void TestParametri::autoritaCompatibileChiede_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<int>("IDFinale");
    QTest::addColumn<bool>("Ricalcolo");
    QTest::newRow("si") << vbYes << IDCorteAppello << true;
    QTest::newRow("no") << vbNo << IDTribunale << false;
}

void TestParametri::autoritaCompatibileChiede()
{
    QFETCH(int, Risposta);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 100);
    Nota.RicalcoloNecessario = false;
    Messaggi.Attendi(DomandaRicalcolo, Risposta, u"Domanda:"_s);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDCorteAppello));
    QTEST(Nota.IDAutSelezionata(), "IDFinale");
    QTEST(Nota.RicalcoloNecessario, "Ricalcolo");
    QCOMPARE(Nota.IdxAutorPrec, Nota.cmbAutor);
}

void TestParametri::soloSpeseContanoPerLaCompatibilita()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    RigaSpesa(Nota, 10.0, 0.0);
    Messaggi.Attendi(Incompatibile);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDTribunaleIngiunzione));
    // Expenses depend on no authority: a compatible one asks nothing.
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDCorteAppello));
    QCOMPARE(Nota.IDAutSelezionata(), IDCorteAppello);
}

void TestParametri::elencoCompatibili_data()
{
    QTest::addColumn<QVariant>("Elenco");
    QTest::addColumn<int>("Nuova");
    QTest::addColumn<bool>("Compatibile");
    QTest::newRow("tutte") << QVariant(u"*"_s) << 14 << true;
    QTest::newRow("fra virgole") << QVariant(u",1,4,12,"_s) << 4 << true;
    QTest::newRow("non elencata") << QVariant(u",1,4,12,"_s) << 3 << false;
    QTest::newRow("1 non e' parte di 12") << QVariant(u",12,"_s) << 1 << false;
    QTest::newRow("senza virgola iniziale cade la prima") << QVariant(u"1,4,12,"_s) << 1 << false;
    QTest::newRow("senza virgola finale cade l'ultima") << QVariant(u",1,4,12"_s) << 12 << false;
    QTest::newRow("senza virgole esterne resta la media") << QVariant(u"1,4,12"_s) << 4 << true;
    QTest::newRow("Null") << QVariant() << 4 << false;
}

void TestParametri::elencoCompatibili()
{
    QFETCH(QVariant, Elenco);
    QFETCH(int, Nuova);
    const Studio Ufficio;
    Registratore Messaggi;
    Ufficio.TariffeProprie().Execute(u"UPDATE Autorità SET Compatib=? WHERE IDAut=2"_s, {Elenco});
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 100);
    Nota.cmbAutor = IndiceAutorita(Nota, Nuova);
    QTEST(CheckAutorCompatib(Nota), "Compatibile");

    // The former authority is gone from the table: nothing speaks against the move.
    Ufficio.TariffeProprie().Execute(u"DELETE FROM Autorità WHERE IDAut=2"_s);
    QVERIFY(CheckAutorCompatib(Nota));
}

void TestParametri::autoritaPenaleFaDaScaglione()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const Parcella Nota = NotaPenale();
    QCOMPARE(Nota.Scaglione, IDMonocratico);
    QCOMPARE(Nota.cmbValore, NessunaVoce);
    Parcella Copia = Nota;
    QVERIFY(CheckOK(Copia, true));
}

// With the delivered brackets every value fits one: the last of them is taken away here.
void TestParametri::verificaInOrdine_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("IDAut");
    QTest::addColumn<int>("Scaglione");
    QTest::addColumn<QString>("Importo");
    QTest::addColumn<QString>("Messaggio");
    QTest::addColumn<CampoNota>("Fuoco");
    QTest::newRow("categoria") << -1 << 0 << -1 << QString()
                               << u"Non è stata specificata la categoria della pratica!"_s
                               << CampoNota::Categoria;
    QTest::newRow("autorita civile") << 0 << 0 << -1 << QString()
                                     << u"Non è stato specificato il campo Autorità"_s << CampoNota::Autorita;
    QTest::newRow("autorita penale") << 1 << 0 << -1 << QString()
                                     << u"Non è stato specificato il campo Autorità"_s << CampoNota::Autorita;
    QTest::newRow("scaglione civile")
        << 0 << 2 << -1 << u"30000"_s << u"Non è stato specificato lo scaglione di valore della causa!"_s
        << CampoNota::Valore;
    QTest::newRow("scaglione stragiudiziale, senza autorita")
        << 2 << 0 << -1 << QString() << u"Non è stato specificato lo scaglione di valore della causa!"_s
        << CampoNota::Valore;
    QTest::newRow("valore esatto civile oltre l'ultimo limite")
        << 0 << 2 << 6 << QString() << u"Occorre specificare il valore esatto della causa!"_s
        << CampoNota::Valore;
    QTest::newRow("valore esatto stragiudiziale")
        << 2 << 41 << 0 << u"zero"_s << u"Occorre specificare il valore esatto della causa!"_s
        << CampoNota::Valore;
    QTest::newRow("valore negativo civile")
        << 0 << 2 << 6 << u"-5"_s << u"Occorre specificare il valore esatto della causa!"_s
        << CampoNota::Valore;
    QTest::newRow("valore negativo stragiudiziale")
        << 2 << 41 << 2 << u"-30.000,00"_s << u"Occorre specificare il valore esatto della causa!"_s
        << CampoNota::Valore;
    QTest::newRow("negativo dove il valore non occorre")
        << 0 << 2 << 1 << u"-5"_s << QString() << CampoNota::Nessuno;
    QTest::newRow("valore sopra lo scaglione")
        << 0 << 2 << 0 << u"5.000,01"_s
        << u"Il valore della causa specificato non è compreso nello scaglione!"_s << CampoNota::Valore;
    QTest::newRow("valore sotto lo scaglione")
        << 0 << 2 << 1 << u"5.000,00"_s
        << u"Il valore della causa specificato non è compreso nello scaglione!"_s << CampoNota::Valore;
    QTest::newRow("penale: il valore non conta")
        << 1 << 23 << -1 << u"999"_s << QString() << CampoNota::Nessuno;
    QTest::newRow("civile senza valore esatto")
        << 0 << 2 << 1 << QString() << QString() << CampoNota::Nessuno;
}

void TestParametri::verificaInOrdine()
{
    QFETCH(int, Categoria);
    QFETCH(int, IDAut);
    QFETCH(int, Scaglione);
    QFETCH(QString, Importo);
    QFETCH(QString, Messaggio);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    SelezionaInSilenzio(Nota, Categoria, NessunaVoce, Scaglione);
    if (IDAut > 0)
        CambiaAutorita(Nota, IndiceAutorita(Nota, IDAut));
    Nota.txtImporto.Testo = Importo;
    if (!Messaggio.isEmpty())
        Messaggi.Attendi(Messaggio, vbOK, u"Errore:"_s);
    QCOMPARE(CheckOK(Nota, true), Messaggio.isEmpty());
    QTEST(Nota.Fuoco, "Fuoco");
}

void TestParametri::leFrasiStannoInOrdine()
{
    const QStringList Attese{u"Non è stata specificata la categoria della pratica!"_s,
                             u"Non è stato specificato il campo Autorità"_s,
                             u"Non è stato specificato lo scaglione di valore della causa!"_s,
                             u"Occorre specificare il valore esatto della causa!"_s,
                             u"Il valore inserito è superiore a quello massimo dello scaglione!"_s,
                             u"Il valore della causa specificato non è compreso nello scaglione!"_s,
                             u"La variazione deve essere compreso tra %1 e %2!"_s};
    for (int i = 0; i < Attese.size(); ++i)
        QCOMPARE(TestoFrase(FraseParametri(i)), Attese[i]);
    QVERIFY(TestoFrase(FraseParametri::OltreLaTariffa).startsWith(u"Il valore della causa supera"_s));
}

void TestParametri::verificaMutaNonParla()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    QVERIFY(!CheckOK(Nota, false));
    QVERIFY(Messaggi.Mostrati().isEmpty());
    QCOMPARE(Nota.Fuoco, CampoNota::Categoria);
}

void TestParametri::verificaGuardaAncheLaVariazione()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Nota.AumRidLimiti = u"100;1"_s;
    Nota.cmbAumRid = 0;
    Nota.txtAumRid.Testo = u"101"_s;
    Messaggi.Attendi(u"La variazione deve essere compreso tra 1 e 100!"_s, vbOK, u"Errore:"_s);
    QVERIFY(!CheckOK(Nota, true));
    QCOMPARE(Nota.Fuoco, CampoNota::Variazione);
}

void TestParametri::testata_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("IDAut");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<QString>("Multipla");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("vuota") << -1 << 0 << QString() << QString() << QString();
    QTest::newRow("solo categoria") << 1 << 0 << QString() << QString() << u"Penale"_s;
    QTest::newRow("tutto") << 0 << 2 << u"30000"_s << QString()
                           << u"Civile o Amministrativa - Tribunale ordinario - "
                              "da € 25.000,01 a € 50.000,00 - Valore: 30.000,00 €"_s;
    QTest::newRow("multipla") << 1 << 23 << QString() << u"rossi"_s
                              << u"Penale - Tribunale monocratico (Parcella multipla)"_s;
}

void TestParametri::testata()
{
    QFETCH(int, Categoria);
    QFETCH(int, IDAut);
    QFETCH(QString, Valore);
    QFETCH(QString, Multipla);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    if (Categoria >= 0)
        CambiaCategoria(Nota, Categoria);
    if (IDAut > 0)
        CambiaAutorita(Nota, IndiceAutorita(Nota, IDAut));
    if (!Valore.isEmpty())
        ScriviValore(Nota, Valore);
    Nota.txtParcMultipla = Multipla;
    QTEST(TestoDatiBase(Nota), "Testo");
}

/// What goes first for less room: the words of the bracket, then the bracket that the value tells.
void TestParametri::testataInBreve()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    CambiaCategoria(Nota, 0);
    CambiaAutorita(Nota, IndiceAutorita(Nota, 2));
    const QString Corte = u"Tribunale ordinario"_s;
    const QString Prima = u"Civile o Amministrativa - "_s + Corte;
    QCOMPARE(DatiBaseInBreve(Nota), (QStringList{Prima, Corte}));
    CambiaScaglione(Nota, 2);
    QCOMPARE(DatiBaseInBreve(Nota),
             (QStringList{Prima + u" - 25.000–50.000"_s, Corte + u" - 25.000–50.000"_s}));
    ScriviValore(Nota, u"30000"_s);
    const QString Valore = u" - Valore: 30.000,00 €"_s;
    QCOMPARE(DatiBaseInBreve(Nota),
             (QStringList{Prima + u" - 25.000–50.000"_s + Valore, Prima + Valore, Corte + Valore}));
    CambiaAutorita(Nota, IndiceAutorita(Nota, 12));
    QVERIFY(TestoAutorita(Nota).startsWith(u"Tribunale - procedimenti "));
    QCOMPARE(DatiBaseInBreve(Nota).constLast(), u"Tribunale"_s + Valore);
    QCOMPARE(ScaglioneInBreve(u"da € 1.100,01 a € 5.200,00"_s),
             (QStringList{u"da 1.100,01 a 5.200,00"_s, u"1.100–5.200"_s, u"1,1–5,2 mila"_s}));
    QCOMPARE(ScaglioneInBreve(u"fino a € 5.000,00"_s),
             (QStringList{u"fino a 5.000,00"_s, u"fino a 5.000"_s}));
}

void TestParametri::ventiduesimoScaglione()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const Database Tariffe = Ufficio.TariffeProprie();
    for (int Riga = 0; Riga < 14; ++Riga)
        Tariffe.Execute(u"INSERT INTO Scaglioni (Materia, NumSca, DesVal, DaVal, AVal, RicValore) "
                        "VALUES ('C', ?, 'altro', 0, 0, 0)"_s,
                        {Riga + 9});
    Parcella Nota;
    Messaggi.Attendi(TestoErrore(9), vbOK, u"Errore:"_s);
    NuovaParcella(Nota);
    QCOMPARE(int(Nota.ListaScaglioni.size()), MassimoScaglioni);
    // One row fewer is no error.
    Tariffe.Execute(u"DELETE FROM Scaglioni WHERE NumSca=22"_s);
    NuovaParcella(Nota);
    QCOMPARE(int(Nota.ListaScaglioni.size()), MassimoScaglioni);
}

void TestParametri::senzaTariffeListeVuote()
{
    const Studio Ufficio;
    sessione::PercorsoProg = Ufficio.Cartella();
    Registratore Messaggi;
    Parcella Nota;
    // Two lists, one file that is missing: one sentence, and it says which.
    Messaggi.Attendi(
        u"Errore: %1: %2parcelle.mdb (3024)"_s.arg(DescrizioneErrore(3024), sessione::PercorsoProg), vbOK,
        u"Errore:"_s);
    NuovaParcella(Nota);
    QVERIFY(Nota.ListaAutorita.isEmpty());
    QVERIFY(Nota.ListaScaglioni.isEmpty());
    QVERIFY(!Nota.cmbAutorAbilitata);
}

#include "TestParametri.moc"
