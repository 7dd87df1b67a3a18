// The electronic invoice by mouse and keyboard: what is missing, where it leads, the file.
#include "fattura.h"
#include "salvataggi.h"

#include "addressbook/modColonneFattura.h"
#include "core/modTrasmissioni.h"
#include "feenote/einvoice/controlli.h"
#include "feenote/einvoice/scrittura.h"
#include "feenote/modFatturaXml.h"
#include "platform/base/regionale.h"
#include "platform/system/messaggi.h"

#include <QMap>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSet>

using namespace Qt::StringLiterals;
using impostazioni::CasellaStudio;

namespace {

/// A box of the settings, as the tests write down where they were led.
QString DelloStudio(CasellaStudio Quale)
{
    return u"studio %1"_s.arg(int(Quale));
}

}  // namespace

class TestFatturaElettronica : public QObject, private BancoFattura
{
    Q_OBJECT
private Q_SLOTS:
    void init() { PreparaFattura(); }
    void cleanup() { Sgombra(); }

    void soloPerLeFatture();
    void tornaAllaStampa();
    void laNotaDopoCominciaDallaPagina();
    void senzaImpostazioniDiceCheCosaManca();
    void ogniRigaPortaAlSuoCampo_data();
    void ogniRigaPortaAlSuoCampo();
    void ogniCampoPortaDaQualcheParte();
    void senzaClienteSiApreLaRubrica();
    void alRitornoSiAggiorna();
    void siSalvaESiRilegge();
    void laNotaSalvataLoRicordaSubito_data();
    void laNotaSalvataLoRicordaSubito();
    void laSecondaVoltaChiede();
    void unAltroNumeroNonChiede();
    void leDateSiCompletano_data();
    void leDateSiCompletano();
    void unFileCheCERestaComE();
    void ilNomeNonSiCambia();
    void annullatoNonPrendeNumero();
    void contatoreCheNonSiConserva();
    void contatoreSbagliato();
    void cartellaCheNonSiScrive();
    void ilNumeroPresoDaAltri();
    void leSceltePassanoNelFile();
    void scadenzaSbagliata();
    void fatturaCitataAMeta();
    void laNotaDiCreditoCitaLaFattura();
    void siRicordanoNelFileDellaNota();
    void lAnteprimaHaITotaliDellaCarta();
};
PROVA(TestFatturaElettronica);

void TestFatturaElettronica::soloPerLeFatture()
{
    const auto* Bottone = Controllo<QAbstractButton>(F, "cmdFatturaXml");
    QVERIFY(Bottone->isVisible());
    Documento(StampaPrenotula);
    QVERIFY(!Bottone->isVisible());
    Documento(StampaFatturaSintetica);
    QVERIFY(Bottone->isVisible());
    ApriPannello();
    QVERIFY(!vp->isVisible());
    Documento(StampaNotaGiudiziale);
    QVERIFY(!Pannello()->isVisible());
    QVERIFY(vp->isVisible());
    Documento(StampaFatturaAnalitica);
    QVERIFY2(!Pannello()->isVisible(), "un altro documento comincia dalla sua pagina");
}

void TestFatturaElettronica::tornaAllaStampa()
{
    ApriPannello();
    QVERIFY(Pannello()->isVisible() && !vp->isVisible());
    Clic(Controllo(F, "cmdChiudiXml"));
    QVERIFY(!Pannello()->isVisible() && vp->isVisible());
    QVERIFY(!Controllo<QAbstractButton>(F, "cmdFatturaXml")->isChecked());
    QVERIFY(Pagine().contains(u"Rossi Mario"_s));
    QVERIFY2(!F->Nota.FatturaXml.Scissione && F->Nota.FatturaXml == DatiFatturaXml(),
             "guardare non sceglie nulla");
}

/// The window is used again by another invoice: it opens on its page, and nothing of the former panel stays.
void TestFatturaElettronica::laNotaDopoCominciaDallaPagina()
{
    const QString File = T->Ufficio.File(u"altra.mdb"_s);
    Parcella Altra = NotaCivile();
    Altra.cmbTipoStampa = StampaFatturaSintetica;
    ScriviNota(File, Altra);
    ApriPannello();
    Clic(Controllo(F, "cmdAnteprimaXml"));
    QVERIFY(Controllo(F, "txtAnteprimaXml")->isVisible());
    F->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Tavolo::Apri(File), F);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(F->Nota.cmbTipoStampa, int(StampaFatturaSintetica));
    QVERIFY(!Pannello()->isVisible());
    QVERIFY(vp->isVisible() && Controllo(F, "barPrint")->isVisible());
    QVERIFY(!Controllo<QAbstractButton>(F, "cmdFatturaXml")->isChecked());
    ApriPannello();
    QVERIFY(Lista()->isVisible());
    QVERIFY(!Controllo<QTextBrowser>(F, "txtAnteprimaXml")->toPlainText().contains(u"Rossi Mario"_s));
}

void TestFatturaElettronica::senzaImpostazioniDiceCheCosaManca()
{
    sessione::StudioPIva.clear();
    sessione::StudioVia.clear();
    ApriPannello();
    QVERIFY2(Righe().join(u'|').contains(u"Manca la partita IVA dello studio"_s),
             qPrintable(Righe().join(u'|')));
    QVERIFY2(Righe().join(u'|').contains(u"Manca l'indirizzo dello studio"_s),
             qPrintable(Righe().join(u'|')));
    QCOMPARE(Stato(), u"Mancano 2 dati: doppio clic o Invio portano al campo."_s);
    QVERIFY(!Controllo(F, "cmdSalvaXml")->isEnabled());
    QVERIFY(Lista()->isVisible());
    sessione::StudioPIva = PivaStudio;
    ApriPannello();
    QCOMPARE(Stato(), u"Manca un dato: doppio clic o Invio portano al campo."_s);
    sessione::StudioVia = u"Via Fillungo"_s;
    ApriPannello();
    QCOMPARE(Righe(), QStringList());
    QVERIFY2(!Lista()->isVisible(), "vuota lascia il posto alle scelte");
    Respiro();
    const QWidget* Scelte = Controllo(F, "fraScelteXml");
    QCOMPARE(Scelte->height(), Scelte->sizeHint().height());
}

void TestFatturaElettronica::ogniRigaPortaAlSuoCampo_data()
{
    QTest::addColumn<QString*>("Svuotata");
    QTest::addColumn<QString>("Colonna");
    QTest::addColumn<QString>("Casella");
    QTest::newRow("the office's VAT number")
        << &sessione::StudioPIva << QString() << DelloStudio(CasellaStudio::PartitaIva);
    QTest::newRow("the office's code")
        << &sessione::StudioCodFisc << QString() << DelloStudio(CasellaStudio::CodiceFiscale);
    QTest::newRow("street") << &sessione::StudioVia << QString() << DelloStudio(CasellaStudio::Via);
    QTest::newRow("postal code") << &sessione::StudioCap << QString() << DelloStudio(CasellaStudio::Cap);
    QTest::newRow("town") << &sessione::StudioComune << QString() << DelloStudio(CasellaStudio::Comune);
    QTest::newRow("the client's code") << static_cast<QString*>(nullptr) << u"CodFis"_s << u"CodFis"_s;
    QTest::newRow("the client's street")
        << static_cast<QString*>(nullptr) << u"Indirizzo"_s << u"Indirizzo"_s;
    QTest::newRow("the client's postal code") << static_cast<QString*>(nullptr) << u"Cap"_s << u"Cap"_s;
    QTest::newRow("the client's town") << static_cast<QString*>(nullptr) << u"Citta"_s << u"Citta"_s;
    QTest::newRow("number") << static_cast<QString*>(nullptr) << QString() << u"txtDatiPar_11"_s;
    QTest::newRow("date") << static_cast<QString*>(nullptr) << QString() << u"txtDatiPar_12"_s;
}

void TestFatturaElettronica::ogniRigaPortaAlSuoCampo()
{
    QFETCH(QString*, Svuotata);
    QFETCH(QString, Colonna);
    QFETCH(QString, Casella);
    QString Aperta;
    Aperture.CasellaImpostazioni = [&](CasellaStudio Quale) { Aperta = DelloStudio(Quale); };
    Aperture.RubricaParcella = [&](const RichiestaRubrica& Chiesta) {
        if (Chiesta.MenuStart == u"edit" && Chiesta.KeyStart == u"ID=%1"_s.arg(F->Nota.IDCli))
            Aperta = Chiesta.CampoStart;
    };
    if (Svuotata)
        Svuotata->clear();
    if (!Colonna.isEmpty())
        CambiaCliente(Colonna, QString());
    if (Casella.startsWith(u"txtDati"))
        Scrivi(Controllo<QLineEdit>(F, qPrintable(Casella)), QString());
    ApriPannello();
    QVERIFY2(Mancanti() == 1, qPrintable(Righe().join(u'|')));
    AttivaRiga(0);
    if (Casella.startsWith(u"txtDati"))
        QTRY_COMPARE(NomeFuoco(), Casella);
    else
        QCOMPARE(Aperta, Casella);
}

/// Whatever field a sentence names: a box of the panel, of the settings, of the client's card or of the note.
void TestFatturaElettronica::ogniCampoPortaDaQualcheParte()
{
    QString Aperta;
    Aperture.CasellaImpostazioni = [&](CasellaStudio Quale) { Aperta = DelloStudio(Quale); };
    Aperture.RubricaParcella = [&](const RichiestaRubrica& Chiesta) {
        Aperta = u"cliente "_s + Chiesta.CampoStart;
    };
    ApriPannello();
    const auto* Quadro = qobject_cast<PannelloFattura*>(Pannello());
    QVERIFY(Quadro);
    QSet<QString> Colonne{u"Nominativo"_s};
    for (const Campo& Colonna : ColonneFattura())
        Colonne.insert(Colonna.Name);
    const QMap<CampoFattura, QString> DellaNota{{CampoFattura::NotaTipoStampa, u"cmbTipoStampa"_s},
                                                {CampoFattura::NotaOggetto, u"txtDatiStaOgg"_s},
                                                {CampoFattura::NotaOnorari, u"tdbOnor"_s},
                                                {CampoFattura::NotaSpese, u"tdbDir"_s},
                                                {CampoFattura::NotaAcconti, u"tdbAcconti"_s},
                                                {CampoFattura::NotaSpeseGen, u"chkSpeseGen"_s},
                                                {CampoFattura::NotaCP, u"chkCP"_s},
                                                {CampoFattura::NotaIva, u"chkIva"_s},
                                                {CampoFattura::NotaRA, u"chkRA"_s},
                                                {CampoFattura::NotaRegime, u"chkRegSempl"_s},
                                                {CampoFattura::NotaIvaDifferita, u"chkIvaDiff"_s},
                                                {CampoFattura::NotaNumero, u"txtDatiPar_11"_s},
                                                {CampoFattura::NotaData, u"txtDatiPar_12"_s}};
    const auto HaFuoco = [](const QString& Nome) {
        const QWidget* Dove = QApplication::focusWidget();
        while (Dove && Dove->objectName() != Nome)
            Dove = Dove->parentWidget();
        return Dove && !Nome.isEmpty();
    };
    for (int i = 1; i <= int(CampoFattura::SceltaContratto); ++i) {
        const auto Dove = CampoFattura(i);
        if (Quadro->CasellaDi(Dove))
            continue;
        Aperta.clear();
        F->VaiAlCampo(Dove);
        if (Aperta.startsWith(u"cliente "))
            QVERIFY2(Dove == CampoFattura::Cliente || Colonne.contains(Aperta.section(u' ', 1)),
                     qPrintable(Aperta));
        else if (Aperta.isEmpty())
            QTRY_VERIFY2(HaFuoco(DellaNota.value(Dove)), qPrintable(QString::number(i)));
        ClicScheda(F, SchedaDiStampa);
        ApriPannello();
    }
    F->VaiAlCampo(CampoFattura::StudioEmail);
    QCOMPARE(Aperta, DelloStudio(CasellaStudio::Email));
    sessione::StudioPec = u"conti@pec"_s;
    F->VaiAlCampo(CampoFattura::StudioEmail);
    QCOMPARE(Aperta, DelloStudio(CasellaStudio::Pec));
}

void TestFatturaElettronica::senzaClienteSiApreLaRubrica()
{
    RichiestaRubrica Avuta;
    Aperture.RubricaParcella = [&](const RichiestaRubrica& Chiesta) { Avuta = Chiesta; };
    T->Voce.Attendi(u"Il cliente è stato dissociato dalla parcella!"_s);
    ClicScheda(F, SchedaBase);
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), QString());
    ClicScheda(F, SchedaDiStampa);
    ApriPannello();
    QCOMPARE(Mancanti(), 1);
    AttivaRiga(0);
    QCOMPARE(Avuta.RecordSource, u"clienti"_s);
    QCOMPARE(Avuta.MenuStart, QString());
    QVERIFY(Avuta.Selezione);
    QCOMPARE(Avuta.Parent, u"cli"_s);
}

void TestFatturaElettronica::alRitornoSiAggiorna()
{
    CambiaCliente(u"Cap"_s, QString());
    ApriPannello();
    QCOMPARE(Mancanti(), 1);
    CambiaCliente(u"Cap"_s, u"55100"_s);
    QWidget Altra;
    QVERIFY(MostraAttiva(Altra));
    F->activateWindow();
    QTRY_COMPARE(Mancanti(), 0);
    QVERIFY(Controllo(F, "cmdSalvaXml")->isEnabled());
}

void TestFatturaElettronica::siSalvaESiRilegge()
{
    ApriPannello();
    QVERIFY2(Mancanti() == 0, qPrintable(Righe().join(u'|')));
    F->SetModificata(false);
    const QString Nome = u"IT%1_00001.xml"_s.arg(CodiceStudio);
    const QString File = T->Ufficio.File(Nome);
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(
        u"La fattura elettronica è stata scritta nel file %1.\nLa parcella lo ricorderà quando sarà "
        "salvata."_s.arg(Nome),
        vbOK, u"Messaggio:"_s);
    Clic(Controllo(F, "cmdSalvaXml"));
    QCOMPARE(NomeFile(T->Voce.InizioDialogo()), Nome);
    QVERIFY(EsisteFile(File));
    const QList<EsitoControllo> Esiti = ControllaFattura(LeggiFile(File), Nome, Oggi());
    QVERIFY2(Accettabile(Esiti), qPrintable(Esiti.isEmpty() ? QString() : TestoEsito(Esiti.first())));
    QVERIFY(LeggiFile(File).contains("<ProgressivoInvio>00001</ProgressivoInvio>"));
    constexpr auto Altri = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY2(!(QFile::permissions(File) & Altri), "it holds the client's codes and amounts");
    QVERIFY(F->Nota.Modificata);
    QVERIFY(FatturaGiaScritta(F->Nota));
    QCOMPARE(Impostazione(u"ProgTrasm"_s), u"1"_s);
    QVERIFY2(Stato().startsWith(u"Già scritta il %1 come %2."_s.arg(Format(Oggi(), u"dd/mm/yyyy"), Nome)),
             qPrintable(Stato()));
    // The next dialog begins where this one ended.
    QCOMPARE(Impostazione(u"CartellaFattureXml"_s), CartellaFile(File));
}

void TestFatturaElettronica::laNotaSalvataLoRicordaSubito_data()
{
    QTest::addColumn<bool>("Cambiata");
    QTest::addColumn<bool>("DaAltri");
    QTest::newRow("as its file") << false << false;
    QTest::newRow("with changes of its own") << true << false;
    QTest::newRow("saved by a colleague since") << false << true;
}

/// The number is taken and the file written: whatever becomes of the window, the note knows it.
void TestFatturaElettronica::laNotaSalvataLoRicordaSubito()
{
    QFETCH(bool, Cambiata);
    QFETCH(bool, DaAltri);
    const QString Dove = salvataggi::SalvaCome(*T, u"rossi.mdb"_s);
    ApriPannello();
    F->SetModificata(Cambiata);
    if (DaAltri)
        ImpostaDataFile(Dove, DataFile(Dove).addSecs(60));
    const bool Ricorda = !Cambiata && !DaAltri;
    const QString Nome = u"IT%1_00001.xml"_s.arg(CodiceStudio);
    const QString Poi = Ricorda ? QString() : u"\nLa parcella lo ricorderà quando sarà salvata."_s;
    T->Voce.AttendiSalva(T->Ufficio.File(Nome));
    T->Voce.Attendi(u"La fattura elettronica è stata scritta nel file %1."_s.arg(Nome) + Poi);
    Clic(Controllo(F, "cmdSalvaXml"));
    QCOMPARE(F->Nota.Modificata, !Ricorda);
    Parcella Letta;
    CaricaDati(Letta, Dove);
    QCOMPARE(Letta.FatturaXml.File, Ricorda ? Nome : QString());
    QCOMPARE(Letta.Stato.Stato == StatoNota::Fatturata, Ricorda);
}

void TestFatturaElettronica::laSecondaVoltaChiede()
{
    ApriPannello();
    SalvaIn(T->Ufficio.Cartella(), 1);
    const QString Domanda =
        u"La fattura è già stata scritta il %1 come IT%2_00001.xml.\nScriverla di nuovo, con un altro nome?"_s
            .arg(Format(Oggi(), u"dd/mm/yyyy"), CodiceStudio);
    T->Voce.Attendi(Domanda, vbNo, u"Domanda:"_s);
    Clic(Controllo(F, "cmdSalvaXml"));
    QCOMPARE(Impostazione(u"ProgTrasm"_s), u"1"_s);
    T->Voce.Attendi(Domanda, vbYes);
    SalvaIn(T->Ufficio.Cartella(), 2);
    QVERIFY(EsisteFile(T->Ufficio.File(u"IT%1_00002.xml"_s.arg(CodiceStudio))));
}

void TestFatturaElettronica::unAltroNumeroNonChiede()
{
    ApriPannello();
    SalvaIn(T->Ufficio.Cartella(), 1);
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"13"_s);
    F->Nota.xOnorari(0, OnoImporto) = 1250.0;
    ApriPannello();
    QVERIFY2(Stato().startsWith(u"Non manca nulla"_s), qPrintable(Stato()));
    SalvaIn(T->Ufficio.Cartella(), 2);
}

void TestFatturaElettronica::leDateSiCompletano_data()
{
    QTest::addColumn<QString>("Box");
    QTest::newRow("due") << u"txtScadenzaXml"_s;
    QTest::newRow("of the cited invoice") << u"txtCitataData"_s;
}

void TestFatturaElettronica::leDateSiCompletano()
{
    QFETCH(QString, Box);
    ApriPannello();
    auto* Data = Controllo<QLineEdit>(F, qPrintable(Box));
    Scrivi(Data, u"1/2/2026"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(Data->text(), u"01/02/2026"_s);
    const DatiFatturaXml& Tenuti = F->Nota.FatturaXml;
    QCOMPARE(Tenuti.Scadenza + Tenuti.CitataData, u"01/02/2026"_s);
    Scrivi(Data, u"presto"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(Data->text(), u"presto"_s);
}

void TestFatturaElettronica::unFileCheCERestaComE()
{
    const QString Nome = u"IT%1_00001.xml"_s.arg(CodiceStudio);
    ScriviFile(T->Ufficio.File(Nome), "di prima");
    ApriPannello();
    T->Voce.AttendiSalva(T->Ufficio.File(Nome));
    T->Voce.Attendi(u"Il file %1 esiste già e non viene sostituito: scegliere un'altra cartella!"_s.arg(Nome),
                    vbOK, u"Errore:"_s);
    Clic(Controllo(F, "cmdSalvaXml"));
    QCOMPARE(LeggiFile(T->Ufficio.File(Nome)), QByteArray("di prima"));
    QCOMPARE(Impostazione(u"ProgTrasm"_s), QString());
    QVERIFY(!FatturaGiaScritta(F->Nota));
}

void TestFatturaElettronica::ilNomeNonSiCambia()
{
    ApriPannello();
    T->Voce.AttendiSalva(T->Ufficio.File(u"fattura.xml"_s));
    T->Voce.Attendi(
        u"Il nome del file è imposto dalle regole della fattura elettronica, IT%1_00001.xml: si sceglie "
        "soltanto la cartella!"_s.arg(CodiceStudio),
        vbOK, u"Errore:"_s);
    Clic(Controllo(F, "cmdSalvaXml"));
    QVERIFY(!EsisteFile(T->Ufficio.File(u"fattura.xml"_s)));
    QCOMPARE(Impostazione(u"ProgTrasm"_s), QString());
}

void TestFatturaElettronica::annullatoNonPrendeNumero()
{
    ApriPannello();
    F->SetModificata(false);
    T->Voce.AttendiSalva({});
    Clic(Controllo(F, "cmdSalvaXml"));
    QCOMPARE(Impostazione(u"ProgTrasm"_s), QString());
    QVERIFY(!F->Nota.Modificata);
}

void TestFatturaElettronica::contatoreCheNonSiConserva()
{
    ApriPannello();
    const QByteArray Prima = qgetenv("XDG_CONFIG_HOME");
    const auto Torna = qScopeGuard([&] { qputenv("XDG_CONFIG_HOME", Prima); });
    const QString Chiusa = NuovaCartella();
    ScriviFile(Chiusa + u"Calcanova"_s, "un file dove va la cartella");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(Chiusa));
    const QString File = T->Ufficio.File(u"IT%1_00001.xml"_s.arg(CodiceStudio));
    T->Voce.AttendiSalva(File);
    T->Voce.Tollera();
    Clic(Controllo(F, "cmdSalvaXml"));
    QVERIFY2(T->Voce.UltimoTesto().startsWith(
                 u"La fattura elettronica non è stata scritta: Impossibile scrivere le "
                 "impostazioni"_s),
             qPrintable(T->Voce.UltimoTesto()));
    QCOMPARE(T->Voce.Mostrati().size(), 1);
    QVERIFY(!EsisteFile(File));
    QVERIFY(!FatturaGiaScritta(F->Nota));
}

void TestFatturaElettronica::contatoreSbagliato()
{
    SalvaImpostazione(u"ProgTrasm"_s, u"molti"_s);
    ApriPannello();
    T->Voce.Tollera();
    Clic(Controllo(F, "cmdSalvaXml"));
    QVERIFY2(T->Voce.UltimoTesto().contains(u"Il progressivo dei file non è un numero"_s),
             qPrintable(T->Voce.UltimoTesto()));
    QCOMPARE(T->Voce.Mostrati().size(), 1);
}

void TestFatturaElettronica::cartellaCheNonSiScrive()
{
    ApriPannello();
    const QString File = T->Ufficio.File(u"nessuna/IT%1_00001.xml"_s.arg(CodiceStudio));
    T->Voce.AttendiSalva(File);
    T->Voce.Tollera();
    Clic(Controllo(F, "cmdSalvaXml"));
    QVERIFY2(T->Voce.UltimoTesto().startsWith(u"La fattura elettronica non è stata scritta: "_s),
             qPrintable(T->Voce.UltimoTesto()));
    QVERIFY(!EsisteFile(File));
    QVERIFY(!FatturaGiaScritta(F->Nota));
    // The number that was taken for it is not given again.
    T->Voce.Sparecchia();
    SalvaIn(T->Ufficio.Cartella(), 2);
}

void TestFatturaElettronica::ilNumeroPresoDaAltri()
{
    ApriPannello();
    const QString Atteso = u"IT%1_00001.xml"_s.arg(CodiceStudio);
    const QString Avuto = u"IT%1_00002.xml"_s.arg(CodiceStudio);
    // While the dialog is up another program writes its file.
    QString Detto;
    Messaggi Nuovi;
    Nuovi.SalvaFile = [&](const QString&, const QString&, const QString&) {
        (void)PrendiTrasmissione();
        return T->Ufficio.File(Atteso);
    };
    Nuovi.BoxPulsanti = [&](const QString& Testo, int, const QString&, const QStringList&) {
        Detto = Testo;
        return vbNo;
    };
    const Messaggi Prima = InstallaMessaggi(Nuovi);
    const auto Torna = qScopeGuard([&] { InstallaMessaggi(Prima); });
    Clic(Controllo(F, "cmdSalvaXml"));
    QCOMPARE(Detto,
             u"La fattura elettronica è stata scritta nel file %1.\nLa parcella lo ricorderà quando sarà "
             "salvata.\nIl numero proposto era già stato preso da un altro programma."_s.arg(Avuto));
    QVERIFY(!EsisteFile(T->Ufficio.File(Atteso)));
    QVERIFY(LeggiFile(T->Ufficio.File(Avuto)).contains("<ProgressivoInvio>00002</ProgressivoInvio>"));
}

void TestFatturaElettronica::leSceltePassanoNelFile()
{
    ApriPannello();
    ScegliVoceDi("cmbTipoXml", u"TD06"_s);
    ScegliVoceDi("cmbModalitaXml", u"MP01"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtScadenzaXml"), u"31/12/2099"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtCitataNumero"), u"7/2025"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtCitataData"), u"01/02/2025"_s);
    Premi(Qt::Key_Tab);
    QVERIFY2(Mancanti() == 0, qPrintable(Righe().join(u'|')));
    SalvaIn(T->Ufficio.Cartella(), 1);
    const QByteArray Byte = LeggiFile(T->Ufficio.File(u"IT%1_00001.xml"_s.arg(CodiceStudio)));
    for (const char* Atteso :
         {"<TipoDocumento>TD06</TipoDocumento>", "<ModalitaPagamento>MP01</ModalitaPagamento>",
          "<DataScadenzaPagamento>2099-12-31</DataScadenzaPagamento>", "<IdDocumento>7/2025</IdDocumento>",
          "<Data>2025-02-01</Data>"})
        QVERIFY2(Byte.contains(Atteso), Atteso);
}

void TestFatturaElettronica::scadenzaSbagliata()
{
    ApriPannello();
    Scrivi(Controllo<QLineEdit>(F, "txtScadenzaXml"), u"31/02/2027"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(Righe().first(), u"La scadenza non è una data: 31/02/2027"_s);
    QVERIFY(!Controllo(F, "cmdSalvaXml")->isEnabled());
    AttivaRiga(0);
    QTRY_COMPARE(NomeFuoco(), u"txtScadenzaXml"_s);
}

void TestFatturaElettronica::fatturaCitataAMeta()
{
    ApriPannello();
    Scrivi(Controllo<QLineEdit>(F, "txtCitataNumero"), u"7"_s);
    Premi(Qt::Key_Tab);
    QVERIFY2(Righe().contains(u"Manca la data della fattura citata"_s), qPrintable(Righe().join(u'|')));
    QCOMPARE(Mancanti(), 1);  // of one fault one row
    AttivaRiga(int(Righe().indexOf(u"Manca la data della fattura citata"_s)));
    QTRY_COMPARE(NomeFuoco(), u"txtCitataData"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtCitataNumero"), QString());
    Scrivi(Controllo<QLineEdit>(F, "txtCitataData"), u"01/02/2025"_s);
    Premi(Qt::Key_Tab);
    QVERIFY2(Righe().contains(u"Manca il numero della fattura citata"_s), qPrintable(Righe().join(u'|')));
    AttivaRiga(int(Righe().indexOf(u"Manca il numero della fattura citata"_s)));
    QTRY_COMPARE(NomeFuoco(), u"txtCitataNumero"_s);
}

void TestFatturaElettronica::laNotaDiCreditoCitaLaFattura()
{
    ApriPannello();
    ScegliVoceDi("cmbTipoXml", u"TD04"_s);
    QCOMPARE(TestoDi(F, "txtDatiPar_11"), u"12"_s);  // no file of it yet: nothing is taken back
    QCOMPARE(TestoDi(F, "txtCitataNumero"), QString());
    ScegliVoceDi("cmbTipoXml", QString());
    SalvaIn(T->Ufficio.Cartella(), 1);
    const QString Oggi = Format(::Oggi(), u"dd/mm/yyyy");
    QVERIFY2(Pagine().contains(u"Fattura N° 12/"_s), qPrintable(Pagine()));
    ScegliVoceDi("cmbTipoXml", u"TD04"_s);
    QVERIFY2(!Pagine().contains(u"N° 12"_s), "dietro il pannello si stampa la pagina: è quella di adesso");
    QCOMPARE(TestoDi(F, "txtCitataNumero"), u"12/%1"_s.arg(::Oggi().year()));
    QCOMPARE(TestoDi(F, "txtCitataData"), Oggi);
    QCOMPARE(TestoDi(F, "txtDatiPar_11"), QString());
    QCOMPARE(TestoDi(F, "txtDatiPar_12"), QString());
    QVERIFY(Mancanti() > 0);
    ScegliVoceDi("cmbTipoXml", QString());
    QVERIFY(Pagine().contains(u"Fattura N° 12/"_s));
    QCOMPARE(TestoDi(F, "txtDatiPar_11"), u"12"_s);
    QCOMPARE(TestoDi(F, "txtDatiPar_12"), Oggi);
    QCOMPARE(TestoDi(F, "txtCitataNumero"), QString());
    ScegliVoceDi("cmbTipoXml", u"TD04"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"13"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_12"), Oggi);
    ApriPannello();
    QVERIFY2(Mancanti() == 0, qPrintable(Righe().join(u'|')));
    SalvaIn(T->Ufficio.Cartella(), 2);
    const QByteArray Byte = LeggiFile(T->Ufficio.File(u"IT%1_00002.xml"_s.arg(CodiceStudio)));
    QVERIFY(Byte.contains("<TipoDocumento>TD04</TipoDocumento>"));
    QVERIFY(Byte.contains(u"<IdDocumento>12/%1</IdDocumento>"_s.arg(::Oggi().year()).toLatin1()));
}

void TestFatturaElettronica::siRicordanoNelFileDellaNota()
{
    ApriPannello();
    ScegliVoceDi("cmbTipoXml", u"TD06"_s);
    SalvaIn(T->Ufficio.Cartella(), 1);
    const QString File = T->Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, F->Nota);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.FatturaXml, F->Nota.FatturaXml);
    QVERIFY(FatturaGiaScritta(Letta));
    QCOMPARE(Letta.FatturaXml.Tipo, u"TD06"_s);
}

void TestFatturaElettronica::lAnteprimaHaITotaliDellaCarta()
{
    Respiro();
    const QString Carta = Pagine();
    const Catena Conti = CatenaFiscale(F->Nota, StampaFatturaAnalitica);
    QVERIFY(Carta.contains(Format(Conti.Totale, u"#,##0.00")));
    ApriPannello();
    Clic(Controllo(F, "cmdAnteprimaXml"));
    const QString Letta = Controllo<QTextBrowser>(F, "txtAnteprimaXml")->toPlainText();
    for (const QString& Atteso : {Format(Conti.Totale, u"#,##0.00"), Format(Conti.Netto, u"#,##0.00"),
                                  u"Rossi"_s, u"12/"_s + QString::number(Oggi().year())})
        QVERIFY2(Letta.contains(Atteso), qPrintable(Atteso + u" / "_s + Letta));
    QCOMPARE(Controllo<QTextBrowser>(F, "txtAnteprimaXml")->horizontalScrollBar()->maximum(), 0);
    Clic(Controllo(F, "cmdAnteprimaXml"));
    QVERIFY(Controllo(F, "fraScelteXml")->isVisible());
}

#include "TestFatturaElettronica.moc"
