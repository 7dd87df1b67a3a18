// A note that goes over to another decree.
#include "supporto/prova.h"

#include "feenote/modCambioTariffa.h"
#include "feenote/modVariazione.h"
#include "platform/base/regionale.h"
#include "tariffa_prova.h"

using namespace Qt::StringLiterals;

class TestCambioTariffa : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void senzaRigheNonChiede();
    void conLeRigheChiede_data();
    void conLeRigheChiede();
    void leFasiPassano_data();
    void leFasiPassano();
    void vocePropriaDiUnDecreto();
    void uffici_data();
    void uffici();
    void senzaUfficioCorrispondente();
    void scaglione_data();
    void scaglione();
    void variazioniEParti();
    void speseGenerali_data();
    void speseGenerali();
    void speseGeneraliAndataERitorno_data();
    void speseGeneraliAndataERitorno();
    void speseGeneraliSullaNotaGiudiziale();
    void portataSenzaDomande();
    void archivioMancante();
    void archivioPerduto_data();
    void archivioPerduto();
    void notaNuovaSenzaArchivio_data();
    void notaNuovaSenzaArchivio();
    void archivioSenzaCorrispondenze();
};
PROVA(TestCambioTariffa);

namespace {

const QString Domanda =
    u"Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo con i nuovi "
    u"parametri.\nConfermi la modifica?"_s;

int UfficioDi(const Parcella& Nota)
{
    return Nota.IDAutSelezionata();
}

}  // namespace

void TestCambioTariffa::senzaRigheNonChiede()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = NotaCivile();
    Nota.Modificata = false;
    QVERIFY(CambiaTariffa(Nota, Dm140));  // the one that stands already
    QVERIFY(!Nota.Modificata);
    QVERIFY(CambiaTariffa(Nota, Dm55));
    QVERIFY(Nota.Modificata);
    QCOMPARE(Nota.Tariffa, &Dm55);
    QCOMPARE(Nota.CodCateg, u"CIV"_s);
    QCOMPARE(UfficioDi(Nota), IDTribunale55);
    QCOMPARE(Nota.Scaglione, 4);  // by the value: 30.000 was in the third of the other decree
    QCOMPARE(Nota.txtImporto.Testo, u"30.000,00"_s);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{170100, 120400, 180600, 290500}));
}

void TestCambioTariffa::conLeRigheChiede_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::newRow("yes") << int(vbYes);
    QTest::newRow("no") << int(vbNo);
}

void TestCambioTariffa::conLeRigheChiede()
{
    QFETCH(int, Risposta);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    Nota.Modificata = false;
    const Parcella Prima = Nota;
    Voce.Attendi(Domanda, Risposta);
    QCOMPARE(CambiaTariffa(Nota, Dm55), Risposta == vbYes);
    if (Risposta == vbNo) {
        QVERIFY(Nota == Prima);
        return;
    }
    QVERIFY(Nota.RicalcoloNecessario);
    QVERIFY(RicalcoloInSospeso(Nota));
    QVERIFY(Nota.Modificata);
    QCOMPARE(Colonna(Nota, OnoImporto), Colonna(Prima, OnoImporto));  // until the honoraria are entered
}

void TestCambioTariffa::leFasiPassano_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("Prima");
    QTest::addColumn<int>("Dopo");
    QTest::addColumn<QList<qint64>>("Importi");
    QTest::newRow("court") << int(CategCivile) << IDTribunale << IDTribunale55
                           << QList<qint64>{170100, 120400, 180600, 290500};
    QTest::newRow("criminal") << int(CategPenale) << IDMonocratico << IDMonocratico55
                              << QList<qint64>{47300, 56700, 113400, 141800};
}

void TestCambioTariffa::leFasiPassano()
{
    QFETCH(int, Categoria);
    QFETCH(int, Prima);
    QFETCH(int, Dopo);
    QFETCH(QList<qint64>, Importi);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = NotaNuova(Categoria, Prima);
    if (Categoria == CategCivile)
        ScriviValore(Nota, u"30000"_s);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    Nota.xOnorari(1, OnoData) = u"03/04/2026"_s;
    Nota.xOnorari(2, OnoQta) = 2.0;
    const QList<qint64> Vecchi = Colonna(Nota, OnoImporto);
    Voce.Attendi(Domanda, vbYes);
    QVERIFY(CambiaTariffa(Nota, Dm55));
    QCOMPARE(UfficioDi(Nota), Dopo);
    EntraOnorari(Nota, Voci);
    QList<qint64> Attesi = Importi;
    Attesi[2] *= 2;
    QCOMPARE(Colonna(Nota, OnoImporto), Attesi);
    QCOMPARE(CStr(Nota.xOnorari(1, OnoData)), u"03/04/2026"_s);
    QVERIFY(!RicalcoloInSospeso(Nota));

    // There and back again.
    Voce.Attendi(Domanda, vbYes);
    QVERIFY(CambiaTariffa(Nota, Dm140));
    QCOMPARE(UfficioDi(Nota), Prima);
    EntraOnorari(Nota, Voci);
    Attesi = Vecchi;
    Attesi[2] *= 2;
    QCOMPARE(Colonna(Nota, OnoImporto), Attesi);
}

void TestCambioTariffa::vocePropriaDiUnDecreto()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = NotaPenale();
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    QVERIFY(VaiAVoce(Voci, 105));  // by the hour: the other decree has no such phase
    QVERIFY(InserisciOnorario(Nota, Voci, {}, 3.0));
    const QList<qint64> Prima = Colonna(Nota, OnoImporto);
    Voce.Attendi(Domanda, vbYes);
    QVERIFY(CambiaTariffa(Nota, Dm55));
    Voce.Attendi(u"Attenzione, l'onorario Fase esecutiva, per ogni ora o frazione di ora non è previsto per "
                 u"l'autorità "
                 u"selezionata!"_s);
    EntraOnorari(Nota, Voci);
    QCOMPARE(Colonna(Nota, OnoImporto), Prima);
}

void TestCambioTariffa::uffici_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("Vecchio");
    QTest::addColumn<int>("Nuovo");
    QTest::newRow("justice of the peace") << int(CategCivile) << 1 << 101;
    QTest::newRow("appeal") << int(CategCivile) << 4 << 112;
    QTest::newRow("order for payment") << int(CategCivile) << 14 << 108;
    QTest::newRow("assizes") << int(CategPenale) << 26 << 140;
    QTest::newRow("out of court") << int(CategStragiudiziale) << 41 << 161;
}

void TestCambioTariffa::uffici()
{
    QFETCH(int, Categoria);
    QFETCH(int, Vecchio);
    QFETCH(int, Nuovo);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = NotaNuova(Categoria, Vecchio);
    QVERIFY(CambiaTariffa(Nota, Dm55));
    QCOMPARE(UfficioDi(Nota), Nuovo);
    QCOMPARE(Nota.IdxAutorPrec, Nota.cmbAutor);
    if (Categoria == CategPenale)
        QCOMPARE(Nota.Scaglione, Nuovo);  // there the court plays the role of the bracket
    QVERIFY(CambiaTariffa(Nota, Dm140));
    QCOMPARE(UfficioDi(Nota), Vecchio);
}

void TestCambioTariffa::senzaUfficioCorrispondente()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = Nota55(CategPenale, 133);  // defensive investigations
    QVERIFY(CambiaTariffa(Nota, Dm140));
    QCOMPARE(Nota.cmbAutor, NessunaVoce);
    QCOMPARE(Nota.Scaglione, 0);
    Voce.Attendi(u"Non è stato specificato il campo Autorità"_s);
    QVERIFY(!CheckOK(Nota, true));
}

void TestCambioTariffa::scaglione_data()
{
    QTest::addColumn<int>("Scelto");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<int>("Dopo");  // number of the bracket, 0 none
    QTest::newRow("by the value") << -1 << u"6000"_s << 3;
    QTest::newRow("undetermined") << 7 << QString() << 8;
    QTest::newRow("a bracket alone says no value") << 1 << QString() << 0;
    QTest::newRow("none") << -1 << QString() << 0;
}

void TestCambioTariffa::scaglione()
{
    QFETCH(int, Scelto);
    QFETCH(QString, Valore);
    QFETCH(int, Dopo);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = NotaNuova(CategCivile, IDTribunale);
    if (Scelto >= 0)
        QVERIFY(CambiaScaglione(Nota, Scelto));
    if (!Valore.isEmpty())
        ScriviValore(Nota, Valore);
    QVERIFY(CambiaTariffa(Nota, Dm55));
    const ScaglioneValore* Suo55 = Nota.ScaglioneSelezionato();
    QCOMPARE(Suo55 ? Suo55->NumSca : 0, Dopo);
    QCOMPARE(Nota.Scaglione, Dopo);
    QCOMPARE(Nota.IdxValorePrec, Nota.cmbValore);
}

void TestCambioTariffa::variazioniEParti()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = NotaCivile();
    ScegliAumRid(Nota, 1);
    const QString Tolta =
        u"La variazione «Difese plurime (art. 4, co. 4, e art. 12, co. 4)» non è prevista dalla "
        u"tariffa D.m. 55/2014 e viene tolta."_s;
    const QString Chiede = u"\nConfermi la modifica?"_s;
    Voce.Attendi(Tolta + Chiede, vbNo, u"Domanda:"_s);
    const Parcella Prima = Nota;
    QVERIFY(!CambiaTariffa(Nota, Dm55));
    QVERIFY(Nota == Prima);
    Voce.Attendi(Tolta + Chiede, vbYes);
    QVERIFY(CambiaTariffa(Nota, Dm55));
    QCOMPARE(Nota.AumRidIdx, AumRidLibera);  // an option of the other decree's articles
    QCOMPARE(Nota.AumRidVarP, 0);
    CaricaVariazione(Nota, AumRidLibera, 12);
    CaricaParti(Nota, 4);
    const QString Parti =
        u"L'aumento per le 4 parti assistite non è previsto dalla tariffa D.m. 140/2012 e viene "
        u"tolto."_s;
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    Voce.Attendi(QString(Domanda).replace(u"\n"_s, u'\n' + Parti + u'\n'), vbYes);
    QVERIFY(CambiaTariffa(Nota, Dm140));
    QCOMPARE(Nota.AumRidVarP, 12);  // the free one is nobody's
    QCOMPARE(Nota.PartiAssistite, 1);
    QCOMPARE(OpzioniAumRid(Nota), OpzioniAumRid());
}

void TestCambioTariffa::speseGenerali_data()
{
    QTest::addColumn<bool>("Attive");
    QTest::addColumn<QString>("Percento");
    QTest::addColumn<bool>("DopoAttive");
    QTest::addColumn<QString>("DopoPercento");
    QTest::newRow("as a new note has them") << false << QString() << true << u"15"_s;
    QTest::newRow("ticked by the user") << true << u"12,5"_s << true << u"12,5"_s;
    QTest::newRow("the user's fifteen") << true << u"15"_s << true << u"15"_s;
}

void TestCambioTariffa::speseGenerali()
{
    QFETCH(bool, Attive);
    QFETCH(QString, Percento);
    QFETCH(bool, DopoAttive);
    QFETCH(QString, DopoPercento);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = NotaCivile();
    Nota.chkSpeseGen.Attiva = Attive;
    Nota.txtSpeGen.Testo = Percento;
    RicordaStampa(Nota);
    QVERIFY(CambiaTariffa(Nota, Dm55));
    QCOMPARE(Nota.chkSpeseGen.Attiva, DopoAttive);
    QCOMPARE(Nota.txtSpeGen.Testo, DopoPercento);
    // What the print types give back is the same.
    ScegliTipoStampa(Nota, StampaNotaGiudiziale);
    ScegliTipoStampa(Nota, StampaPrenotula);
    QCOMPARE(Nota.chkSpeseGen.Attiva, DopoAttive);
    QCOMPARE(Nota.txtSpeGen.Testo, DopoPercento);
    (void)ClicImposta(Nota, Imposta::SpeseGen, false);
    QVERIFY(CambiaTariffa(Nota, Dm140));
    QVERIFY(!Nota.chkSpeseGen.Attiva);  // the user has taken them out
}

void TestCambioTariffa::speseGeneraliAndataERitorno_data()
{
    QTest::addColumn<const Decreto*>("Nata");
    QTest::addColumn<QString>("Scritto");  // "-": nothing done, empty: not ticked
    QTest::addColumn<QString>("DiLa");     // what it has by the other decree; empty: not ticked
    QTest::addColumn<QString>("DiNuovo");
    QTest::newRow("2012, as a new note has them") << &Dm140 << u"-"_s << u"15"_s << QString();
    QTest::newRow("2012, ticked with the percent of the other") << &Dm140 << u"15"_s << u"15"_s << u"15"_s;
    QTest::newRow("2012, ticked with another percent") << &Dm140 << u"12,5"_s << u"12,5"_s << u"12,5"_s;
    QTest::newRow("2014, as a new note has them") << &Dm55 << u"-"_s << QString() << u"15"_s;
    QTest::newRow("2014, ticked anew") << &Dm55 << u"15"_s << u"15"_s << u"15"_s;
    QTest::newRow("2014, taken out") << &Dm55 << QString() << QString() << QString();
}

void TestCambioTariffa::speseGeneraliAndataERitorno()
{
    QFETCH(const Decreto*, Nata);
    QFETCH(QString, Scritto);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota;
    NuovaParcella(Nota, *Nata);
    if (Scritto != u"-") {
        (void)ClicImposta(Nota, Imposta::SpeseGen, false);
        (void)ClicImposta(Nota, Imposta::SpeseGen, !Scritto.isEmpty());
        if (!Scritto.isEmpty())
            CambiaPercento(Nota, Imposta::SpeseGen, Scritto);
    }
    const auto Ticcate = [&Nota] { return Nota.chkSpeseGen.Attiva ? Nota.txtSpeGen.Testo : QString(); };
    QVERIFY(CambiaTariffa(Nota, Nata == &Dm55 ? Dm140 : Dm55));
    QTEST(Ticcate(), "DiLa");
    QVERIFY(CambiaTariffa(Nota, *Nata));
    QTEST(Ticcate(), "DiNuovo");
}

/// The court costs note shows none of them; the note behind it follows all the same.
void TestCambioTariffa::speseGeneraliSullaNotaGiudiziale()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = NotaCivile();
    ScegliTipoStampa(Nota, StampaNotaGiudiziale);
    QVERIFY(CambiaTariffa(Nota, Dm55));
    QVERIFY(!Nota.chkSpeseGen.Attiva);
    ScegliTipoStampa(Nota, StampaPrenotula);
    QVERIFY(Nota.chkSpeseGen.Attiva);
    QCOMPARE(Nota.txtSpeGen.Testo, u"15"_s);
}

/// For a note that is being filled: told, never asked, and nothing moves without the database.
void TestCambioTariffa::portataSenzaDomande()
{
    const Studio Suo;
    (void)Tariffa55Propria(Suo);
    Registratore Voce;
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    ScegliAumRid(Nota, 3);
    Nota.Modificata = false;
    Parcella Portata = Nota;
    Voce.Attendi(
        u"La variazione «Conciliazioni giudiziali (art. 4, co. 5)» non è prevista dalla tariffa D.m. "
        u"55/2014 e viene tolta."_s);
    PortaSuTariffa(Portata, Dm55);
    QCOMPARE(Portata.Tariffa, &Dm55);
    QCOMPARE(UfficioDi(Portata), IDTribunale55);

    QVERIFY(QFile::remove(Suo.File(u"parcelle55.mdb"_s)));
    const Parcella Prima = Nota;
    Voce.Attendi(
        u"Errore: L'archivio della tariffa D.m. 55/2014, parcelle55.mdb, manca dalla cartella del programma: "
        u"gli importi delle parcelle restano quelli che sono, e senza l'archivio non si possono ricalcolare "
        u"né salvare (3024)"_s);
    PortaSuTariffa(Nota, Dm55);
    QVERIFY(Nota == Prima);
}

void TestCambioTariffa::archivioMancante()
{
    const Studio Suo;
    (void)Suo.TariffeProprie();  // a program folder that has the first decree alone
    Registratore Voce;
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    const Parcella Prima = Nota;
    Voce.Attendi(
        u"Errore: L'archivio della tariffa D.m. 55/2014, parcelle55.mdb, manca dalla cartella del programma: "
        u"gli importi delle parcelle restano quelli che sono, e senza l'archivio non si possono ricalcolare "
        u"né "
        u"salvare (3024)"_s);
    QVERIFY(!CambiaTariffa(Nota, Dm55));
    QVERIFY(Nota == Prima);
}

void TestCambioTariffa::archivioPerduto_data()
{
    QTest::addColumn<bool>("Via");  // away from the decree whose database is missing
    QTest::newRow("the note's own") << true;
    QTest::newRow("the one wanted") << false;
}

void TestCambioTariffa::archivioPerduto()
{
    QFETCH(bool, Via);
    const Studio Suo;
    (void)Tariffa55Propria(Suo);
    Registratore Voce;
    Parcella Nota = Via ? Nota55(CategCivile, IDTribunale55, u"30000"_s) : NotaCivile();
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    Voci = {};
    QVERIFY(QFile::remove(Suo.File(u"parcelle55.mdb"_s)));
    const Parcella Prima = Nota;
    Voce.Attendi(
        u"Errore: L'archivio della tariffa D.m. 55/2014, parcelle55.mdb, manca dalla cartella del programma: "
        u"gli importi delle parcelle restano quelli che sono, e senza l'archivio non si possono ricalcolare "
        u"né salvare (3024)"_s);
    QVERIFY(!CambiaTariffa(Nota, Via ? Dm140 : Dm55));
    QVERIFY(Nota == Prima);
}

void TestCambioTariffa::notaNuovaSenzaArchivio_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<QString>("Mancante");
    QTest::newRow("civil") << int(CategCivile) << u"Non è stato specificato il campo Autorità"_s;
    QTest::newRow("criminal") << int(CategPenale) << u"Non è stato specificato il campo Autorità"_s;
    QTest::newRow("out of court") << int(CategStragiudiziale)
                                  << u"Non è stato specificato lo scaglione di valore della causa!"_s;
}

void TestCambioTariffa::notaNuovaSenzaArchivio()
{
    QFETCH(int, Categoria);
    QFETCH(QString, Mancante);
    const Studio Suo;
    (void)Suo.TariffeProprie();
    Registratore Voce;
    Voce.Tollera();
    Parcella Nota;
    NuovaParcella(Nota, Dm55);
    CambiaCategoria(Nota, Categoria);
    const std::optional<Mancanza<CampoNota>> Detta = PrimaMancanza(Nota);
    QVERIFY(Detta);  // there is no file that names what cannot be chosen
    QCOMPARE(Detta->Messaggio, Mancante);
    // Nothing stands that a change could spoil: the way back to the other decree is open.
    QVERIFY(CambiaTariffa(Nota, Dm140));
    QVERIFY(!Nota.ListaAutorita.isEmpty());
}

void TestCambioTariffa::archivioSenzaCorrispondenze()
{
    const Studio Suo;
    Tariffa55Propria(Suo).Execute(u"DROP TABLE Corrispondenze"_s);
    Registratore Voce;
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    const QList<qint64> Prima = Colonna(Nota, OnoImporto);
    Voce.Attendi(Domanda, vbYes);
    QVERIFY(CambiaTariffa(Nota, Dm55));
    QCOMPARE(Nota.cmbAutor, NessunaVoce);  // to be chosen; each line is told when they are recalculated
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDTribunale55));
    for (int Riga = 0; Riga < 4; ++Riga)
        Voce.Attendi(u"Attenzione, l'onorario %1 non è previsto per l'autorità selezionata!"_s.arg(
            CStr(Nota.xOnorari(Riga, OnoDescr))));
    EntraOnorari(Nota, Voci);
    QCOMPARE(Colonna(Nota, OnoImporto), Prima);
}

#include "TestCambioTariffa.moc"
