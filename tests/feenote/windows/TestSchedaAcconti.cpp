// Tab 3 by mouse and keyboard: payments on account, percentages and their switches.
#include "core/aperture.h"
#include "core/posti.h"
#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"
#include "tavolo.h"

#include <QAccessible>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

const QString NonNumero = u"Immettere un valore numerico!"_s;

QString Mostrato(const Griglia* Righe, int Riga, int Colonna)
{
    const QAbstractItemModel* Modello = Righe->Vista()->model();
    return Modello->index(Riga, Colonna).data().toString();
}

}  // namespace

class TestSchedaAcconti : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void laRigaNuovaEInEuro();
    void leVuoteDiventanoZero();
    void laVuotaSiRileggeZero();
    void leColonneTengonoLaLarghezza();
    void ilRiepilogoNonContaLeImposte();
    void valutaDigitata_data();
    void valutaDigitata();
    void valutaAlClic();
    void valutaAlDoppioClic();
    void valutaMaiuscolaMentreSiScrive();
    void valutaSbagliataTieneLaRiga();
    void lireSenzaCentesimi();
    void importoSbagliato_data();
    void importoSbagliato();
    void cancellaUna();
    void cancellaPiu();
    void cancellaNo();
    void cancellaSenzaSelezione();
    void spuntaPortaLAliquota_data();
    void spuntaPortaLAliquota();
    void ilPuntoNellePercentuali();
    void soloCifreNellePercentuali();
    void percentoNonNumerico_data();
    void percentoNonNumerico();
    void percentoOltreIlMassimo_data();
    void percentoOltreIlMassimo();
    void percentoTolto();
    void notaGiudizialeAvvertita();
    void esponi();
    void controlNellaCella();
    void controlNellImporto();
    void controlNelPercento();
    void nomiAccessibili_data();
    void nomiAccessibili();
    void laPaginaCominciaDaSinistra();

private:
    void Acconto(const QString& Descr, const QString& Importo);

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    Griglia* Righe = nullptr;
};
PROVA(TestSchedaAcconti);

void TestSchedaAcconti::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
    ClicScheda(F, SchedaImposte);
    QCOMPARE(F->Scheda(), int(SchedaImposte));
    Righe = Controllo<Griglia>(F, "tdbAcconti");
}

void TestSchedaAcconti::cleanup()
{
    T.reset();
}

void TestSchedaAcconti::Acconto(const QString& Descr, const QString& Importo)
{
    const int Riga = F->Nota.xAcconti.Righe();
    ScriviCella(Righe, Riga, AccDescr, Descr);
    ScriviCella(Righe, Riga, AccCorrispettivi, Importo);
}

void TestSchedaAcconti::laRigaNuovaEInEuro()
{
    ScriviCella(Righe, 0, AccDescr, u"Fondo spese"_s);
    QCOMPARE(F->Nota.xAcconti.Righe(), 1);
    QCOMPARE(CStr(F->Nota.xAcconti(0, AccValuta)), u"E"_s);
    QCOMPARE(Mostrato(Righe, 0, AccValuta), u"Euro"_s);
    QVERIFY(InfoParcelle[1].Modificata);
}

void TestSchedaAcconti::leVuoteDiventanoZero()
{
    ScriviCella(Righe, 0, AccDescr, u"Fondo spese"_s);
    Controllo(F, "chkIva")->setFocus();
    Respiro();
    for (const int Colonna : {AccCorrispettivi, AccSpeseImp, AccSpeseEsenti}) {
        QVERIFY(F->Nota.xAcconti(0, Colonna).isValid());
        QCOMPARE(F->Nota.xAcconti(0, Colonna).toDouble(), 0.0);
    }
    QVERIFY2(F->Nota.xAcconti.Righe() == 1, "la riga di zeri resta");
}

void TestSchedaAcconti::laVuotaSiRileggeZero()
{
    ScriviCella(Righe, 0, AccDescr, u"Fondo spese"_s);
    const QString File = T->Ufficio.File(u"acconti.mdb"_s);
    T->Voce.AttendiSalva(File);
    T->Voce.Tollera();
    QVERIFY(F->SalvaParcella(false));
    F->Carica(File);
    QCOMPARE(F->Nota.xAcconti.Righe(), 1);
    for (const int Colonna : {AccCorrispettivi, AccSpeseImp, AccSpeseEsenti})
        QCOMPARE(CStr(F->Nota.xAcconti(0, Colonna)), u"0"_s);
}

void TestSchedaAcconti::leColonneTengonoLaLarghezza()
{
    QHeaderView* Testata = Righe->Vista()->horizontalHeader();
    const int Larga = Testata->sectionSize(AccCorrispettivi);
    const QPoint Orlo(Testata->sectionViewportPosition(AccCorrispettivi) + Larga - 1, Testata->height() / 2);
    TrascinaCon(Testata->viewport(), Orlo, Orlo + QPoint(29, 0));
    QCOMPARE(Testata->sectionSize(AccCorrispettivi), Larga + 29);
    F->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    AzzeraFinestre();
    F = T->Apri();
    QVERIFY(F);
    QCOMPARE(Controllo<Griglia>(F, "tdbAcconti")->Vista()->columnWidth(AccCorrispettivi), Larga + 29);
}

void TestSchedaAcconti::ilRiepilogoNonContaLeImposte()
{
    RigaOnorario(F->Nota, u"Studio"_s, 1000);
    F->MostraTutto();
    Clic(Controllo(F, "chkSpeseGen"));
    Clic(Controllo(F, "chkRA"));
    QVERIFY(F->Nota.chkIva.Attiva && F->Nota.chkCP.Attiva && F->Nota.chkSpeseGen.Attiva &&
            F->Nota.chkRA.Attiva);
    Acconto(u"Fondo"_s, u"300"_s);
    QCOMPARE(Controllo<QLabel>(F, "lblTotal")->text(), u"Totale: 1.000,00"_s);
}

void TestSchedaAcconti::valutaDigitata_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Valuta");
    QTest::newRow("l minuscola") << u"l"_s << u"L"_s;
    QTest::newRow("E") << u"E"_s << u"E"_s;
    QTest::newRow("le altre lettere non entrano") << u"xl"_s << u"L"_s;
}

void TestSchedaAcconti::valutaDigitata()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Valuta);
    Acconto(u"Fondo"_s, u"100"_s);
    ScriviCella(Righe, 0, AccValuta, Testo);
    QCOMPARE(CStr(F->Nota.xAcconti(0, AccValuta)), Valuta);
}

void TestSchedaAcconti::valutaAlClic()
{
    Acconto(u"Fondo"_s, u"100"_s);
    F->SetModificata(false);
    ClicCella(Righe, 0, AccValuta);
    QCOMPARE(Mostrato(Righe, 0, AccValuta), u"Lire"_s);
    QVERIFY(F->Nota.Modificata);
    ClicCella(Righe, 0, AccValuta);
    QCOMPARE(Mostrato(Righe, 0, AccValuta), u"Euro"_s);
}

void TestSchedaAcconti::valutaAlDoppioClic()
{
    Acconto(u"Fondo"_s, u"100"_s);
    ClicCella(Righe, 0, AccValuta);
    QTest::mouseDClick(Righe->Vista()->viewport(), Qt::LeftButton, Qt::NoModifier,
                       CentroCella(Righe, 0, AccValuta));
    Respiro();
    QVERIFY(LaCella(Righe));
    QCOMPARE(LaCella(Righe)->text(), u"E"_s);  // as it was before the two clicks
    Premi(Qt::Key_Escape);
    QCOMPARE(Mostrato(Righe, 0, AccValuta), u"Euro"_s);
}

void TestSchedaAcconti::valutaMaiuscolaMentreSiScrive()
{
    Acconto(u"Fondo"_s, u"100"_s);
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, AccValuta);
    Digita(u"l"_s);
    QVERIFY(LaCella(Righe));
    QCOMPARE(LaCella(Righe)->text(), u"L"_s);
    Incolla(LaCella(Righe), u"e"_s);
    QCOMPARE(LaCella(Righe)->text(), u"E"_s);
    // No other column raises its letters.
    Premi(Qt::Key_Escape);
    Righe->ImpostaRigaCorrente(0, AccDescr);
    Digita(u"l"_s);
    QCOMPARE(LaCella(Righe)->text(), u"l"_s);
}

void TestSchedaAcconti::valutaSbagliataTieneLaRiga()
{
    Acconto(u"Fondo"_s, u"100"_s);
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, AccValuta);
    Premi(Qt::Key_F2);
    Incolla(LaCella(Righe), u"$"_s);
    Premi(Qt::Key_Return);
    T->Voce.Attendi(u"Immettere L o E"_s, vbOK, u"Errore:"_s);
    ClicScheda(F, SchedaBase);
    QCOMPARE(F->Scheda(), int(SchedaImposte));
    QCOMPARE(Righe->RigaCorrente(), std::optional(0));
    ScriviCella(Righe, 0, AccValuta, u"L"_s);
    ClicScheda(F, SchedaBase);
    QCOMPARE(F->Scheda(), int(SchedaBase));
}

void TestSchedaAcconti::lireSenzaCentesimi()
{
    Acconto(u"Fondo"_s, u"1936270,4"_s);
    QCOMPARE(Mostrato(Righe, 0, AccCorrispettivi), u"1.936.270,40"_s);
    ScriviCella(Righe, 0, AccValuta, u"L"_s);
    QCOMPARE(Mostrato(Righe, 0, AccCorrispettivi), u"1.936.270"_s);
    QCOMPARE(F->Nota.xAcconti(0, AccCorrispettivi).toDouble(), 1936270.4);
    QCOMPARE(CalcolaAcconti(F->Nota, StampaPrenotula).AccontiCorrispettivi, 1000.0);
}

void TestSchedaAcconti::importoSbagliato_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Messaggio");
    QTest::newRow("parola") << u"abc"_s << NonNumero;
    QTest::newRow("punto") << u"30000.50"_s << NonNumero;
    QTest::newRow("un milione di cifre")
        << QString(1000000, u'9') << u"L'importo è troppo grande: al massimo 999.999.999.999,99!"_s;
}

void TestSchedaAcconti::importoSbagliato()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Messaggio);
    Acconto(u"Fondo"_s, u"100"_s);
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, AccSpeseImp);
    Premi(Qt::Key_F2);
    Incolla(LaCella(Righe), Testo);
    T->Voce.Attendi(Messaggio, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Return);
    Respiro();
    QVERIFY(Righe->InModifica());
    QCOMPARE(NumeroDi(F->Nota.xAcconti(0, AccSpeseImp)), 0.0);
    Scrivi(LaCella(Righe), u"40,5"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(NumeroDi(F->Nota.xAcconti(0, AccSpeseImp)), 40.5);
}

void TestSchedaAcconti::cancellaUna()
{
    Acconto(u"Uno"_s, u"1"_s);
    Acconto(u"Due"_s, u"2"_s);
    F->SetModificata(false);
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0);
    Premi(Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(Righe->Selezione(), QList{0});
    T->Voce.Attendi(u"Confermi la cancellazione della voce selezionata?"_s, vbYes, u"Domanda:"_s);
    Premi(Qt::Key_Delete);
    QCOMPARE(Testi(F->Nota.xAcconti, {AccDescr}), QStringList{u"Due"_s});
    QVERIFY(Righe->Selezione().isEmpty());
    QVERIFY(F->Nota.Modificata);
}

void TestSchedaAcconti::cancellaPiu()
{
    for (const QString& Nome : {u"Uno"_s, u"Due"_s, u"Tre"_s, u"Quattro"_s})
        Acconto(Nome, u"1"_s);
    Righe->Seleziona(3);
    Righe->Seleziona(0);
    T->Voce.Attendi(u"Confermi la cancellazione delle voci selezionate?"_s, vbYes, u"Domanda:"_s);
    Righe->setFocus();
    Premi(Qt::Key_Delete);
    QCOMPARE(Testi(F->Nota.xAcconti, {AccDescr}), (QStringList{u"Due"_s, u"Tre"_s}));
}

void TestSchedaAcconti::cancellaNo()
{
    Acconto(u"Uno"_s, u"1"_s);
    F->SetModificata(false);
    Righe->Seleziona(0);
    Righe->setFocus();
    T->Voce.Attendi(u"Confermi la cancellazione della voce selezionata?"_s, vbNo);
    Premi(Qt::Key_Delete);
    QCOMPARE(F->Nota.xAcconti.Righe(), 1);
    QVERIFY(!F->Nota.Modificata);
}

void TestSchedaAcconti::cancellaSenzaSelezione()
{
    Acconto(u"Uno"_s, u"1"_s);
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0);
    Premi(Qt::Key_Delete);
    QCOMPARE(F->Nota.xAcconti.Righe(), 1);
}

void TestSchedaAcconti::spuntaPortaLAliquota_data()
{
    QTest::addColumn<QByteArray>("Spunta");
    QTest::addColumn<QByteArray>("Casella");
    QTest::addColumn<QString>("Predefinita");
    QTest::newRow("spese generali") << QByteArray("chkSpeseGen") << QByteArray("txtSpeGen") << u"12,5"_s;
    QTest::newRow("ritenuta") << QByteArray("chkRA") << QByteArray("txtRA") << u"20"_s;
    QTest::newRow("cassa") << QByteArray("chkCP") << QByteArray("txtCP") << u"4"_s;
    QTest::newRow("iva") << QByteArray("chkIva") << QByteArray("txtIVA") << u"21"_s;
}

void TestSchedaAcconti::spuntaPortaLAliquota()
{
    QFETCH(QByteArray, Spunta);
    QFETCH(QByteArray, Casella);
    QFETCH(QString, Predefinita);
    auto* Tick = Controllo<QCheckBox>(F, Spunta.constData());
    auto* Box = Controllo<QLineEdit>(F, Casella.constData());
    if (Tick->isChecked()) {  // VAT and pension fund are on in a new note
        Clic(Tick);
        QVERIFY(Box->text().isEmpty());
    }
    F->SetModificata(false);
    Clic(Tick);
    QVERIFY(Tick->isChecked());
    QCOMPARE(Box->text(), Predefinita);
    QVERIFY(F->Nota.Modificata);
    Clic(Tick);
    QVERIFY(Box->text().isEmpty());
}

void TestSchedaAcconti::ilPuntoNellePercentuali()
{
    Clic(Controllo(F, "chkSpeseGen"));
    auto* Box = Controllo<QLineEdit>(F, "txtSpeGen");
    Scrivi(Box, u"12.75"_s);
    QCOMPARE(Box->text(), u"12,75"_s);
    QCOMPARE(F->Nota.txtSpeGen.Numero(), 12.75);
}

void TestSchedaAcconti::soloCifreNellePercentuali()
{
    auto* Box = Controllo<QLineEdit>(F, "txtIVA");
    Scrivi(Box, u"-2x2,5"_s);
    QCOMPARE(Box->text(), u"22,5"_s);
}

void TestSchedaAcconti::percentoNonNumerico_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::newRow("parola") << u"abc"_s;
    QTest::newRow("data") << u"31/02/2012"_s;
    QTest::newRow("tante righe") << u"2\n2\n"_s.repeated(250000);
    QTest::newRow("un milione di caratteri") << QString(1000000, u'x');
}

void TestSchedaAcconti::percentoNonNumerico()
{
    QFETCH(QString, Testo);
    RigaOnorario(F->Nota, u"Studio"_s, 1000);
    auto* Box = Controllo<QLineEdit>(F, "txtIVA");
    Incolla(Box, Testo);
    QVERIFY(Box->text().size() <= 8);
    QCOMPARE(Box->palette().color(QPalette::Text), aspetto::Sbagliato());
    QCOMPARE(Box->toolTip(), u"Non è un numero: conta come 0"_s);
    const QString Incollato = Box->text();
    Premi(Qt::Key_Tab);  // it is left as it stands
    Respiro();
    QVERIFY(QApplication::focusWidget() != Box);
    QCOMPARE(Box->text(), Incollato);
    QCOMPARE(CatenaFiscale(F->Nota, StampaPrenotula).IVA, 0.0);
    Scrivi(Box, u"22"_s);
    QCOMPARE(Box->toolTip(), QString());
    QVERIFY(Box->palette().color(QPalette::Text) != aspetto::Sbagliato());
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Nota.txtIVA.Numero(), 22.0);
}

void TestSchedaAcconti::percentoOltreIlMassimo_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<bool>("Segnato");
    QTest::newRow("cento") << u"100"_s << false;
    QTest::newRow("poco oltre") << u"100,01"_s << true;
    QTest::newRow("tre cifre") << u"999"_s << true;
    QTest::newRow("enorme") << u"99999999"_s << true;
    QTest::newRow("negativo") << u"-5"_s << true;
}

void TestSchedaAcconti::percentoOltreIlMassimo()
{
    QFETCH(QString, Testo);
    QFETCH(bool, Segnato);
    auto* Box = Controllo<QLineEdit>(F, "txtIVA");
    Incolla(Box, Testo);
    QCOMPARE(Box->palette().color(QPalette::Text) == aspetto::Sbagliato(), Segnato);
    QCOMPARE(Box->toolTip(), Segnato ? u"La percentuale non è compresa tra 0 e 100"_s : QString());
    Premi(Qt::Key_Tab);
    Respiro();
    QVERIFY(QApplication::focusWidget() != Box);
    QCOMPARE(Box->text(), Testo);
    QCOMPARE(F->Nota.txtIVA.Testo, Testo);
}

void TestSchedaAcconti::percentoTolto()
{
    Clic(Controllo(F, "chkSpeseGen"));
    Scrivi(Controllo<QLineEdit>(F, "txtSpeGen"), {});
    Premi(Qt::Key_Tab);
    RigaOnorario(F->Nota, u"Studio"_s, 1000);
    QVERIFY(F->Nota.chkSpeseGen.Attiva);
    QCOMPARE(CatenaFiscale(F->Nota, StampaPrenotula).SpeseGen, 0.0);
}

void TestSchedaAcconti::notaGiudizialeAvvertita()
{
    ScegliTipoStampa(F->Nota, StampaNotaGiudiziale);
    F->MostraTutto();
    QString Pagina;
    Aperture.PaginaWeb = [&](const QString& Quale, const QString&) { Pagina = Quale; };
    T->Voce.Attendi(u"Si consiglia di non esporre cassa previdenza e imposte nella nota giudiziale."_s, vbOK,
                    u"Avvertenza:"_s);
    Clic(Controllo(F, "chkIva"));
    QCOMPARE(Pagina, sessione::PercorsoProg + u"SchedaNotaSpese.htm"_s);
    Clic(Controllo(F, "chkCP"));  // once per window
    QVERIFY2(!Controllo(F, "chkRA")->isEnabled(), "la nota giudiziale non conosce ritenuta");
}

void TestSchedaAcconti::esponi()
{
    F->SetModificata(false);
    Clic(Controllo(F, "chkMinMax"));
    QVERIFY(F->Nota.chkMinMax.Attiva && F->Nota.Modificata);
    F->SetModificata(false);
    Clic(Controllo(F, "chkAcconti"));
    QVERIFY(F->Nota.chkAcconti.Attiva && F->Nota.Modificata);
}

void TestSchedaAcconti::controlNellaCella()
{
    Acconto(u"Fondo"_s, u"100"_s);
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, AccDescr);
    Premi(Qt::Key_F2);
    Premi(Qt::Key_Control, Qt::ControlModifier);
    QVERIFY2(LaCella(Righe), "il tasto da solo non chiude la cella");
    Premi(Qt::Key_End);
    Premi(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(LaCella(Righe)->selectedText(), u"Fondo"_s);
    QVERIFY(Righe->Selezione().isEmpty());
    Premi(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(LaCella(Righe)->text(), QString());
    Premi(Qt::Key_V, Qt::ControlModifier);
    Premi(Qt::Key_V, Qt::ControlModifier);
    Premi(Qt::Key_Return);
    QCOMPARE(CStr(F->Nota.xAcconti(0, AccDescr)), u"FondoFondo"_s);
    QCOMPARE(F->Nota.xAcconti.Righe(), 1);
}

void TestSchedaAcconti::controlNellImporto()
{
    Acconto(u"Fondo"_s, u"100"_s);
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, AccCorrispettivi);
    Premi(Qt::Key_F2);
    Incolla(LaCella(Righe), u"10.50"_s);
    Premi(Qt::Key_Control, Qt::ControlModifier);  // no message before the user has left the cell
    Premi(Qt::Key_A, Qt::ControlModifier);
    Digita(u"10,50"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(NumeroDi(F->Nota.xAcconti(0, AccCorrispettivi)), 10.5);
}

void TestSchedaAcconti::controlNelPercento()
{
    auto* Box = Controllo<QLineEdit>(F, "txtIVA");
    Scrivi(Box, u"22"_s);
    QVERIFY(Box->isModified());
    Premi(Qt::Key_Control, Qt::ControlModifier);
    QVERIFY2(Box->isModified(), "la casella non è stata lasciata");
    QVERIFY(Box->hasFocus());
    Premi(Qt::Key_A, Qt::ControlModifier);
    Digita(u"10"_s);
    QCOMPARE(F->Nota.txtIVA.Testo, u"10"_s);
}

void TestSchedaAcconti::nomiAccessibili_data()
{
    QTest::addColumn<QByteArray>("Casella");
    QTest::addColumn<QString>("Nome");
    QTest::newRow("spese generali") << QByteArray("txtSpeGen") << u"Spese generali, percento"_s;
    QTest::newRow("cassa") << QByteArray("txtCP") << u"Cassa previdenza, percento"_s;
    QTest::newRow("iva") << QByteArray("txtIVA") << u"I.V.A., percento"_s;
    QTest::newRow("ritenuta") << QByteArray("txtRA") << u"Ritenuta d'acconto, percento"_s;
    QTest::newRow("apri multipla") << QByteArray("cmdOpenPar") << u"Seleziona parcella multipla"_s;
    QTest::newRow("modifica multipla") << QByteArray("cmdModPar") << u"Modifica parcella multipla"_s;
    QTest::newRow("elimina multipla") << QByteArray("cmdNoMulti") << u"Elimina parcella multipla"_s;
}

void TestSchedaAcconti::nomiAccessibili()
{
    QFETCH(QByteArray, Casella);
    const QAccessibleInterface* Letto =
        QAccessible::queryAccessibleInterface(Controllo(F, Casella.constData()));
    QVERIFY(Letto);
    QTEST(Letto->text(QAccessible::Name), "Nome");
}

/// A page that is wider than its window opens on its beginning, and so it does behind each field.
void TestSchedaAcconti::laPaginaCominciaDaSinistra()
{
    auto* Cornice = qobject_cast<QScrollArea*>(PaginaIn(F));
    QVERIFY(Cornice);
    F->setMinimumSize(0, 0);
    F->resize(430, 380);
    Respiro();
    QScrollBar* Barra = Cornice->horizontalScrollBar();
    QVERIFY2(Barra->maximum() > 0, "più larga della finestra");
    Controllo(F, "chkIva")->setFocus(Qt::TabFocusReason);
    Barra->setValue(Barra->maximum());
    Righe->Vista()->setFocus(Qt::TabFocusReason);
    Respiro();
    QCOMPARE(Barra->value(), 0);
    Barra->setValue(12);
    Controllo(F, "txtSpeGen")->setFocus(Qt::TabFocusReason);
    Respiro();
    QCOMPARE(Barra->value(), 0);
}

#include "TestSchedaAcconti.moc"
