// Tab 4 by mouse and keyboard: switches, ticks and options, those of the tab before it too.
#include "stampa.h"

#include "core/aperture.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

const QString AvvisoIban =
    u"Per esporre l'IBAN occorre prima inserirlo nel quadro Dati Studio del menu Impostazioni"_s;
const QString AvvisoNotaSpese =
    u"Si consiglia di non esporre cassa previdenza e imposte nella nota giudiziale."_s;

}  // namespace

class TestStampaSegni : public QObject, private BancoStampa
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void gliInterruttoriSiVedonoAllApertura();
    void interruttoriRicordatiOltreLaNotaSpese();
    void regimeAgevolato();
    void accontiEMediDisabilitati_data();
    void accontiEMediDisabilitati();
    void iban();
    void ibanToltoDalleImpostazioni();
    void ivaDifferita();
    void schedaIvaDifferita();
    void avvisoDellaNotaSpese_data();
    void avvisoDellaNotaSpese();
    void avvisoChiuso();
    void personaOSocieta();
    void rappresentante();
};
PROVA(TestStampaSegni);

void TestStampaSegni::gliInterruttoriSiVedonoAllApertura()
{
    Riempi(1);
    Documento(StampaPrenotula);
    QVERIFY(Pagine().contains(u"I.V.A. 21%"_s));
    ClicScheda(F, SchedaImposte);
    Segna();
    Clic(Controllo(F, "chkIva"));
    Clic(Controllo(F, "chkRA"));
    QVERIFY2(!Composto(), "una pagina che nessuno vede aspetta");
    ClicScheda(F, SchedaDiStampa);
    QVERIFY(Composto());
    QVERIFY(!Pagine().contains(u"I.V.A."_s));
    QVERIFY(Pagine().contains(u"Ritenuta Acconto 20%"_s));
}

void TestStampaSegni::interruttoriRicordatiOltreLaNotaSpese()
{
    ClicScheda(F, SchedaImposte);
    Scrivi(Controllo<QLineEdit>(F, "txtIVA"), u"10"_s);
    Clic(Controllo(F, "chkRA"));
    Clic(Controllo(F, "chkAcconti"));
    ClicScheda(F, SchedaDiStampa);
    Documento(StampaNotaGiudiziale);
    for (const char* Nome : {"chkIva", "chkCP", "chkRA", "chkSpeseGen"})
        QVERIFY2(!Controllo<QCheckBox>(F, Nome)->isChecked(), Nome);
    for (const char* Nome : {"chkAcconti", "chkRA", "txtRA"})
        QVERIFY2(!Controllo(F, Nome)->isEnabledTo(F), Nome);
    QCOMPARE(Controllo<QLineEdit>(F, "txtIVA")->text(), QString());
    Documento(StampaPrenotula);
    QCOMPARE(Controllo<QLineEdit>(F, "txtIVA")->text(), u"10"_s);
    QCOMPARE(Controllo<QLineEdit>(F, "txtRA")->text(), u"20"_s);
    QVERIFY(Controllo<QCheckBox>(F, "chkAcconti")->isChecked());
    QVERIFY(Controllo(F, "chkRA")->isEnabledTo(F));
    QVERIFY2(Pagine().contains(u"I.V.A. 10%"_s), qPrintable(Pagine()));
}

void TestStampaSegni::regimeAgevolato()
{
    ClicScheda(F, SchedaImposte);
    Clic(Controllo(F, "chkRA"));
    ClicScheda(F, SchedaDiStampa);
    Documento(StampaFatturaAnalitica);
    Clic(Controllo(F, "chkIvaDiff"));
    Segna();
    Clic(Controllo(F, "chkRegSempl"));
    QVERIFY(Composto());
    QVERIFY(!F->Nota.chkIva.Vale() && !F->Nota.chkRA.Vale() && !F->Nota.chkIvaDiff.Attiva);
    QVERIFY(!Controllo(F, "chkIvaDiff")->isEnabled());
    Documento(StampaPrenotula);
    Documento(StampaFatturaAnalitica);
    QVERIFY2(!F->Nota.chkIva.Attiva, "nessun documento la rimette");
    Clic(Controllo(F, "chkRegSempl"));
    QVERIFY(F->Nota.chkIva.Vale() && F->Nota.chkRA.Vale());
    QVERIFY(Controllo(F, "chkIvaDiff")->isEnabled());
    QVERIFY(!F->Nota.chkIvaDiff.Attiva);
}

void TestStampaSegni::accontiEMediDisabilitati_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("Acconti");
    QTest::addColumn<bool>("Medi");
    QTest::newRow("prenotula") << 0 << true << true;
    QTest::newRow("preventivo") << 1 << true << true;
    QTest::newRow("fattura sintetica") << 2 << true << false;
    QTest::newRow("fattura analitica") << 3 << true << true;
    QTest::newRow("nota spese") << 4 << false << true;
    QTest::newRow("contratto") << 5 << false << false;
    QTest::newRow("informativa") << 6 << false << false;
    QTest::newRow("solo conti") << 7 << true << true;
}

void TestStampaSegni::accontiEMediDisabilitati()
{
    QFETCH(int, Tipo);
    Documento(StampaContratto);  // which disables both
    Documento(Tipo);
    QTEST(Controllo(F, "chkAcconti")->isEnabledTo(F), "Acconti");
    QTEST(Controllo(F, "chkMinMax")->isEnabledTo(F), "Medi");
}

void TestStampaSegni::iban()
{
    Documento(StampaPrenotula);
    auto* Box = Controllo<QCheckBox>(F, "chkIBAN");
    T->Voce.Attendi(AvvisoIban, vbOK, u"Messaggio:"_s);
    Clic(Box);
    QVERIFY(!Box->isChecked());
    QVERIFY(!F->Nota.chkIBAN.Attiva);

    sessione::Iban = u"IT60X0542811101000000123456"_s;
    Clic(Box);
    QVERIFY(Box->isChecked());
    QVERIFY(Pagine().contains(sessione::Iban));
    Documento(StampaPreventivo);
    QVERIFY(!Pagine().contains(sessione::Iban));
    Documento(StampaFatturaAnalitica);
    QVERIFY2(Box->isVisible() && Box->isChecked(), "una casella per i tre documenti");
}

void TestStampaSegni::ibanToltoDalleImpostazioni()
{
    Documento(StampaPrenotula);
    sessione::Iban = u"IT60X0542811101000000123456"_s;
    auto* Box = Controllo<QCheckBox>(F, "chkIBAN");
    Clic(Box);
    sessione::Iban.clear();
    ClicScheda(F, SchedaImposte);
    ClicScheda(F, SchedaDiStampa);
    QVERIFY2(!Pagine().contains(u"IBAN"_s), "nessuna frase senza il suo numero");
    QVERIFY(!Box->isChecked());
    QVERIFY(!F->Nota.chkIBAN.Attiva);
}

void TestStampaSegni::ivaDifferita()
{
    Documento(StampaFatturaAnalitica);
    Segna();
    Clic(Controllo(F, "chkFattAcc"));
    QVERIFY(F->Nota.chkFattAcc.Attiva);
    QVERIFY2(!Composto(), "l'acconto non cambia la fattura");
    Clic(Controllo(F, "chkIvaDiff"));
    QVERIFY(F->Nota.chkIvaDiff.Attiva && Composto());
}

void TestStampaSegni::schedaIvaDifferita()
{
    Documento(StampaFatturaSintetica);
    QVERIFY2(!Controllo(F, "cmdSkIvaDiff")->isEnabled(), "chi mostra le pagine non c'è");
    QString Aperta;
    Aperture.PaginaWeb = [&](const QString& Pagina, const QString& Titolo) {
        Aperta = Pagina + u'|' + Titolo;
    };
    F->MostraTutto();
    Clic(Controllo(F, "cmdSkIvaDiff"));
    QCOMPARE(Aperta, sessione::PercorsoProg + u"SkIvaDiff.htm|VDM - Scheda informativa Iva differita"_s);
}

void TestStampaSegni::avvisoDellaNotaSpese_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<bool>("Avviso");
    QTest::newRow("I.V.A.") << u"chkIva"_s << true;
    QTest::newRow("cassa") << u"chkCP"_s << true;
    QTest::newRow("non le spese generali") << u"chkSpeseGen"_s << false;
}

void TestStampaSegni::avvisoDellaNotaSpese()
{
    QFETCH(QString, Nome);
    QFETCH(bool, Avviso);
    QString Aperta;
    Aperture.PaginaWeb = [&](const QString& Pagina, const QString& Titolo) {
        Aperta = Pagina + u'|' + Titolo;
    };
    Documento(StampaNotaGiudiziale);
    ClicScheda(F, SchedaImposte);
    if (Avviso)
        T->Voce.Attendi(AvvisoNotaSpese, vbOK, u"Avvertenza:"_s);
    Clic(Controllo(F, Nome.toLatin1().constData()));
    const QString Scheda =
        sessione::PercorsoProg + u"SchedaNotaSpese.htm|KR5 - Scheda informativa nota spese giudiziale"_s;
    QCOMPARE(Aperta, Avviso ? Scheda : QString());
    Clic(Controllo(F, Nome.toLatin1().constData()));
    Clic(Controllo(F, Nome.toLatin1().constData()));  // once for each window
}

void TestStampaSegni::avvisoChiuso()
{
    bool Aperta = false;
    Aperture.PaginaWeb = [&](const QString&, const QString&) { Aperta = true; };
    Documento(StampaNotaGiudiziale);
    ClicScheda(F, SchedaImposte);
    QStringList Pulsanti;
    const Messaggi Voce = InstallaMessaggi({});
    Messaggi Ascolto = Voce;
    Ascolto.BoxPulsanti = [&](const QString& Testo, int Bandiere, const QString& Titolo,
                              const QStringList& Scritti) {
        Pulsanti = Scritti;
        return Voce.BoxPulsanti(Testo, Bandiere, Titolo, Scritti);
    };
    InstallaMessaggi(Ascolto);
    const auto Rimetti = qScopeGuard([&] { InstallaMessaggi(Voce); });
    T->Voce.Attendi(AvvisoNotaSpese, vbCancel, u"Avvertenza:"_s);
    Clic(Controllo(F, "chkIva"));
    QCOMPARE(Pulsanti, (QStringList{u" VEDI SCHEDA "_s, u"Chiudi"_s}));
    QCOMPARE(T->Voce.Ultimo().Bandiere, vbOKCancel + vbInformation);
    QVERIFY(!Aperta);
    QVERIFY2(F->Nota.chkIva.Attiva, "il consiglio non cambia la scelta");
}

void TestStampaSegni::personaOSocieta()
{
    Documento(StampaContratto);
    QVERIFY(Controllo<QRadioButton>(F, "optContrTipo_0")->isChecked());
    QVERIFY(!Controllo(F, "txtContrRappr")->isVisible());
    Segna();
    Clic(Controllo(F, "optContrTipo_1"));
    QCOMPARE(F->Nota.optContrTipo, 1);
    QVERIFY(Composto());
    Respiro();
    QVERIFY(Controllo(F, "txtContrRappr")->isVisible());
}

void TestStampaSegni::rappresentante()
{
    Documento(StampaContratto);
    Clic(Controllo(F, "optContrTipo_1"));
    Respiro();
    Scrivi(Controllo<QLineEdit>(F, "txtContrRappr"), u"Verdi Anna"_s);
    Premi(Qt::Key_Tab);
    Digita(u"01/02/1960"_s);
    Premi(Qt::Key_Tab);
    Digita(u"Lucca"_s);
    Premi(Qt::Key_Tab);
    Digita(u"Pisa"_s);
    Segna();
    Premi(Qt::Key_Tab);
    QVERIFY(Composto());
    const Rappresentante Atteso{u"Verdi Anna"_s, u"01/02/1960"_s, u"Lucca"_s, u"Pisa"_s};
    QVERIFY(F->Nota.Rappr == Atteso);
}

#include "TestStampaSegni.moc"
