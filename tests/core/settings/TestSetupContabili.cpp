#include "core/settings/tavolosetup.h"

#include "core/modAliquote.h"
#include "core/modControlli.h"
#include "platform/system/orologio.h"

#include <QClipboard>

#include <memory>

class TestSetupContabili : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { T = std::make_unique<TavoloSetup>(); }
    void cleanup() { T.reset(); }

    void predefiniti();
    void memorizza();
    void normeDeiCalcoli_data();
    void normeDeiCalcoli();
    void normeScritteAMano();
    void aliquotaVuota();
    void cheCosaValeDellaCasellaVuota();
    void rifiutaLasciando_data();
    void rifiutaLasciando();
    void rifiutaLasciandoLaScheda();
    void invioPassaOltre_data();
    void invioPassaOltre();
    void virgola();
    void numeroFattura_data();
    void numeroFattura();
    void numeroIncollato();
    void ilContatoreNonTornaIndietro();
    void ilContatoreCorrettoSiScrive();
    void ilContatoreVuotoGuarisce();
    void ilContatoreConDecimaliNonTrattiene();
    void aliquoteVigenti();
    void aliquoteNelTempo_data();
    void aliquoteNelTempo();
    void controlli_data();
    void controlli();
    void cheCosaVuoleOgniCasella();
    void codiceSbagliatoSegnatoENonRifiutato();
    void lAvvisoNonSpostaLaCasella();
    void avvisoNominaIlCodice_data();
    void avvisoNominaIlCodice();

private:
    std::unique_ptr<TavoloSetup> T;
};
PROVA(TestSetupContabili);

namespace {

const QStringList Caselle{u"txtIVA"_s, u"txtRA"_s, u"txtSpeseGen"_s, u"txtCP"_s, u"txtNumFatt"_s};

}  // namespace

void TestSetupContabili::predefiniti()
{
    T->Apri(1);
    QStringList Letti;
    for (const QString& Nome : Caselle)
        Letti << T->Campo(Nome)->text();
    QCOMPARE(Letti, (QStringList{u"21"_s, u"20"_s, u"12,5"_s, u"4"_s, u"0"_s}));
    QCOMPARE(T->Trova<QLabel>(u"lblNumFatt"_s)->text().remove(u'&'), u"N° ultima fattura emessa:"_s);
    QCOMPARE(T->Trova<QLabel>(u"lblTariffe"_s)->text(),
             u"In vigore per le prestazioni esaurite dopo il 23/10/2022: D.m. 55/2014."_s);
}

void TestSetupContabili::memorizza()
{
    Registratore Box;
    T->Apri(1);
    T->Scrivi(u"txtIVA"_s, u"22"_s);
    T->Scrivi(u"txtRA"_s, u"0"_s);
    T->Scrivi(u"txtSpeseGen"_s, u"15"_s);
    T->Scrivi(u"txtCP"_s, u"4,25"_s);
    T->Scrivi(u"txtNumFatt"_s, u"17"_s);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"IVA"_s), u"22"_s);
    QCOMPARE(T->Parametro(u"CP"_s), u"4,25"_s);
    QCOMPARE(T->Parametro(u"ProgFatt"_s), u"17"_s);
    QCOMPARE(sessione::IVA, 22.0F);
    QCOMPARE(sessione::RA, 0.0F);
    QCOMPARE(sessione::SpeseGen, 15.0F);
    QCOMPARE(sessione::CP, 4.25F);
    QCOMPARE(sessione::ProgFatt, 17);
}

void TestSetupContabili::normeDeiCalcoli_data()
{
    QTest::addColumn<int>("Voce");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Conservato");
    QTest::newRow("in vigore") << 1 << u"in vigore"_s << u"vigenti"_s;
    QTest::newRow("del programma") << 0 << u"del programma"_s << u"programma"_s;
}

// The program's own rules are those of a new office; a choice is stored and comes back.
void TestSetupContabili::normeDeiCalcoli()
{
    QFETCH(int, Voce);
    QFETCH(QString, Testo);
    QFETCH(QString, Conservato);
    Registratore Box;
    QCOMPARE(sessione::NormeDiPartenza, u"programma"_s);
    T->Apri(1);
    auto* Lista = T->Trova<QComboBox>(u"cmbNorme"_s);
    QCOMPARE(Lista->currentText(), u"del programma"_s);
    ScegliConFrecce(Lista, Voce);
    QCOMPARE(Lista->currentText(), Testo);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"Norme"_s), Conservato);
    QCOMPARE(sessione::NormeDiPartenza, Conservato);
    T->Modulo->close();
    T->Apri(1);
    QCOMPARE(Lista->currentText(), Testo);
}

void TestSetupContabili::normeScritteAMano()
{
    TavoloSetup::Salva(u"Norme"_s, u"domani"_s);
    ImpostaVariabili();
    T->Apri(1);
    QCOMPARE(T->Trova<QComboBox>(u"cmbNorme"_s)->currentText(), u"del programma"_s);
}

void TestSetupContabili::aliquotaVuota()
{
    Registratore Box;
    sessione::IVA = 19;
    T->Apri(1);
    T->Scrivi(u"txtIVA"_s, {});
    T->Memorizza(Box);
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"IVA"_s, u"manca"_s), QString());
    QCOMPARE(sessione::IVA, 19.0F);
}

/// What the form says of an empty rate is what holds, until the program ends and behind its next start.
void TestSetupContabili::cheCosaValeDellaCasellaVuota()
{
    Registratore Box;
    T->Salva(u"IVA"_s, u"22"_s);
    T->Salva(u"SpeseGen"_s, u"15,5"_s);
    ImpostaVariabili();
    T->Apri(1);
    const auto* Detto = T->Trova<QLabel>(u"lblVuotaIVA"_s);
    QVERIFY(!Detto->isVisible());
    T->Scrivi(u"txtIVA"_s, {});
    T->Scrivi(u"txtSpeseGen"_s, {});
    T->Scrivi(u"txtCP"_s, {});
    const QString Frase = u"Vuota: resta 22 %, dal prossimo avvio 21 %."_s;
    QVERIFY(Detto->isVisible());
    QCOMPARE(Detto->text(), Frase);
    QCOMPARE(T->Campo(u"txtIVA"_s)->accessibleDescription(), Frase);
    QCOMPARE(T->Trova<QLabel>(u"lblVuotaSpeseGen"_s)->text(),
             u"Vuota: resta 15,5 %, dal prossimo avvio 12,5 %."_s);
    QCOMPARE(T->Trova<QLabel>(u"lblVuotaCP"_s)->text(), u"Vuota: vale 4 %."_s);
    QVERIFY(!T->Trova<QLabel>(u"lblVuotaRA"_s)->isVisible());
    T->Memorizza(Box);
    QCOMPARE(sessione::IVA, 22.0F);
    QCOMPARE(sessione::SpeseGen, 15.5F);
    QCOMPARE(Detto->text(), Frase);
    T->Modulo->close();
    AzzeraSessione();
    ImpostaVariabili();
    QCOMPARE(sessione::IVA, 21.0F);
    QCOMPARE(sessione::SpeseGen, 12.5F);
    T->Apri(1);
    QCOMPARE(Detto->text(), u"Vuota: vale 21 %."_s);
    // A rate in the box hides it.
    T->Scrivi(u"txtIVA"_s, u"22"_s);
    QVERIFY(!Detto->isVisible());
    QCOMPARE(T->Campo(u"txtIVA"_s)->accessibleDescription(), QString());
}

void TestSetupContabili::rifiutaLasciando_data()
{
    QTest::addColumn<QString>("Casella");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Messaggio");

    const QString Fuori = u"La percentuale non è compresa tra 0 e 100!"_s;
    const QString NonNumero = u"Immettere un valore numerico!"_s;
    QTest::newRow("rate above a hundred") << u"txtIVA"_s << u"100,1"_s << Fuori;
    QTest::newRow("rate below zero, pasted") << u"txtRA"_s << u"-1"_s << Fuori;
    QTest::newRow("word, pasted") << u"txtIVA"_s << u"ventidue"_s << NonNumero;
    QTest::newRow("rate of two commas") << u"txtCP"_s << u"4,,5"_s << NonNumero;
    QTest::newRow("beyond every number, pasted") << u"txtIVA"_s << u"1e400"_s << Fuori;
    QTest::newRow("counter beyond 16 bits") << u"txtNumFatt"_s << u"32768"_s << NonNumero;
    QTest::newRow("counter below zero") << u"txtNumFatt"_s << u"-3"_s << NonNumero;
}

void TestSetupContabili::rifiutaLasciando()
{
    QFETCH(QString, Casella);
    QFETCH(QString, Testo);
    QFETCH(QString, Messaggio);
    Registratore Box;
    T->Apri(1);
    QGuiApplication::clipboard()->setText(Testo);
    T->Campo(Casella)->setFocus();
    T->Campo(Casella)->selectAll();
    T->Campo(Casella)->paste();
    Box.Attendi(Messaggio, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Tab);
    QTRY_COMPARE(QApplication::focusWidget(), T->Campo(Casella));
}

void TestSetupContabili::rifiutaLasciandoLaScheda()
{
    Registratore Box;
    T->Apri(1);
    auto* Schede = T->Trova<QTabWidget>(u"tabSetup"_s);
    QTabBar* Linguette = Schede->tabBar();
    const QString Fuori = u"La percentuale non è compresa tra 0 e 100!"_s;
    T->Scrivi(u"txtIVA"_s, u"150"_s);
    Box.Attendi(Fuori, vbOK, u"Errore:"_s);
    QTest::mouseClick(Linguette, Qt::LeftButton, {}, Linguette->tabRect(0).center());
    QCOMPARE(Schede->currentIndex(), 1);
    QTRY_COMPARE(QApplication::focusWidget(), T->Campo(u"txtIVA"_s));
    // By the letter of a tab it is the same.
    Box.Attendi(Fuori, vbOK, u"Errore:"_s);
    Premi(Qt::Key_D, Qt::AltModifier);
    QCOMPARE(Schede->currentIndex(), 1);
    QTRY_COMPARE(QApplication::focusWidget(), T->Campo(u"txtIVA"_s));
    T->Scrivi(u"txtIVA"_s, u"22"_s);
    QTest::mouseClick(Linguette, Qt::LeftButton, {}, Linguette->tabRect(0).center());
    QCOMPARE(Schede->currentIndex(), 0);
}

void TestSetupContabili::invioPassaOltre_data()
{
    QTest::addColumn<QString>("Casella");
    for (const QString& Nome : Caselle)
        QTest::newRow(qPrintable(Nome)) << Nome;
}

void TestSetupContabili::invioPassaOltre()
{
    QFETCH(QString, Casella);
    const Registratore Box;
    T->Apri(1);
    for (const Qt::Key Tasto : {Qt::Key_Return, Qt::Key_Enter}) {
        T->Scrivi(Casella, u"7"_s);
        Premi(Tasto);
        QVERIFY(QApplication::focusWidget() != T->Campo(Casella));
    }
    QVERIFY(T->Modulo->isVisible());
    QCOMPARE(Box.Mostrati().size(), 0);
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"IVA"_s, u"manca"_s), u"manca"_s);
}

void TestSetupContabili::virgola()
{
    T->Apri(1);
    T->Scrivi(u"txtSpeseGen"_s, u"12.5x"_s);
    QCOMPARE(T->Campo(u"txtSpeseGen"_s)->text(), u"12,5"_s);
    T->Scrivi(u"txtNumFatt"_s, u"1a2,3"_s);
    QCOMPARE(T->Campo(u"txtNumFatt"_s)->text(), u"123"_s);
}

void TestSetupContabili::numeroFattura_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Conservato");  // empty: refused

    QTest::newRow("the greatest") << u"32767"_s << u"32767"_s;
    QTest::newRow("beyond") << u"32768"_s << u""_s;
    QTest::newRow("zero") << u"0"_s << u"0"_s;
    QTest::newRow("empty is zero") << u""_s << u"0"_s;
    QTest::newRow("blanks are zero") << u"  "_s << u"0"_s;
    QTest::newRow("leading zeros") << u"007"_s << u"7"_s;
    QTest::newRow("a word") << u"dodici"_s << u""_s;
    QTest::newRow("a fraction") << u"1,5"_s << u""_s;
    QTest::newRow("below zero") << u"-3"_s << u""_s;
    QTest::newRow("whole with its decimals") << u"41,0"_s << u"41"_s;
    QTest::newRow("points of thousands") << u"1.233"_s << u"1233"_s;
}

void TestSetupContabili::numeroFattura()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Conservato);
    Registratore Box;
    T->Salva(u"ProgFatt"_s, u"5"_s);
    T->Apri(0);
    T->Campo(u"txtNumFatt"_s)->setText(Testo);
    if (!Conservato.isEmpty()) {
        T->Memorizza(Box);
        QCOMPARE(T->Parametro(u"ProgFatt"_s), Conservato);
        return;
    }
    Box.Attendi(u"Immettere un valore numerico!"_s, vbOK, u"Errore:"_s);
    T->Premi(u"cmdSaveImpost"_s);
    QCOMPARE(T->Trova<QTabWidget>(u"tabSetup"_s)->currentIndex(), 1);
    QTRY_COMPARE(QApplication::focusWidget(), T->Campo(u"txtNumFatt"_s));
    QCOMPARE(T->Parametro(u"ProgFatt"_s), u"5"_s);
}

void TestSetupContabili::numeroIncollato()
{
    Registratore Box;
    T->Apri(1);
    QGuiApplication::clipboard()->setText(u"fattura 12"_s);
    T->Campo(u"txtNumFatt"_s)->setFocus();
    T->Campo(u"txtNumFatt"_s)->selectAll();
    T->Campo(u"txtNumFatt"_s)->paste();
    Box.Attendi(u"Immettere un valore numerico!"_s);
    Premi(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(Box.Mostrati().size(), 1);
    Respiro();
    QCOMPARE(Box.Mostrati().size(), 1);
    QCOMPARE(T->Parametro(u"ProgFatt"_s), QString());
}

void TestSetupContabili::ilContatoreNonTornaIndietro()
{
    Registratore Box;
    T->Salva(u"ProgFatt"_s, u"5"_s);
    T->Apri(1);
    // A note takes the next number while the form is open.
    T->Salva(u"ProgFatt"_s, u"6"_s);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"ProgFatt"_s), u"6"_s);
    QCOMPARE(sessione::ProgFatt, 6);
    QCOMPARE(T->Campo(u"txtNumFatt"_s)->text(), u"6"_s);
}

void TestSetupContabili::ilContatoreCorrettoSiScrive()
{
    Registratore Box;
    T->Salva(u"ProgFatt"_s, u"5"_s);
    T->Apri(1);
    T->Scrivi(u"txtNumFatt"_s, u"2"_s);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"ProgFatt"_s), u"2"_s);
    // The form goes on: what it has stored is no edit any more.
    T->Salva(u"ProgFatt"_s, u"3"_s);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"ProgFatt"_s), u"3"_s);
}

void TestSetupContabili::ilContatoreVuotoGuarisce()
{
    Registratore Box;
    for (const QString& Vuoto : {u""_s, u"  "_s}) {
        T->Salva(u"ProgFatt"_s, Vuoto);
        T->Apri(1);
        T->Memorizza(Box);
        QCOMPARE(T->Parametro(u"ProgFatt"_s), u"0"_s);
        T->Modulo->close();
    }
}

/// What numbers the invoices keeps no other setting from being stored.
void TestSetupContabili::ilContatoreConDecimaliNonTrattiene()
{
    Registratore Box;
    T->Salva(u"ProgFatt"_s, u"41,0"_s);
    T->Apri(1);
    T->Scrivi(u"txtIVA"_s, u"22"_s);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"IVA"_s), u"22"_s);
    QCOMPARE(T->Parametro(u"ProgFatt"_s), u"41,0"_s);
    QCOMPARE(sessione::ProgFatt, 41);
}

void TestSetupContabili::aliquoteVigenti()
{
    Registratore Box;
    const auto Prima = InstallaOrologio([] { return QDateTime(QDate(2026, 3, 1), QTime(10, 0)); });
    T->Apri(1);
    const auto* Spiega = T->Trova<QLabel>(u"lblVigenti"_s);
    QVERIFY(!Spiega->isVisible());
    T->Premi(u"cmdVigenti"_s);
    InstallaOrologio(Prima);
    QCOMPARE(T->Campo(u"txtIVA"_s)->text(), u"22"_s);
    QCOMPARE(T->Campo(u"txtSpeseGen"_s)->text(), u"15"_s);
    QCOMPARE(T->Campo(u"txtCP"_s)->text(), u"4"_s);
    QCOMPARE(T->Campo(u"txtRA"_s)->text(), u"20"_s);
    QVERIFY(Spiega->isVisible());
    QVERIFY2(Spiega->text().contains(u"01/10/2013"), qPrintable(Spiega->text()));
    // The button fills, the save stores.
    QCOMPARE(T->Parametro(u"IVA"_s), QString());
    T->Memorizza(Box);
    QCOMPARE(sessione::IVA, 22.0F);
    QCOMPARE(sessione::SpeseGen, 15.0F);
}

void TestSetupContabili::aliquoteNelTempo_data()
{
    QTest::addColumn<QDate>("Giorno");
    QTest::addColumn<QString>("Attese");

    QTest::newRow("last day of 21") << QDate(2013, 9, 30) << u"IVA 21, CP 4, RA 20"_s;
    QTest::newRow("first day of 22") << QDate(2013, 10, 1) << u"IVA 22, CP 4, RA 20"_s;
    QTest::newRow("general expenses are back") << QDate(2014, 4, 3) << u"IVA 22, SpeseGen 15, CP 4, RA 20"_s;
    QTest::newRow("last day of 12,5") << QDate(2012, 7, 24) << u"IVA 21, SpeseGen 12.5, CP 4, RA 20"_s;
    QTest::newRow("pension fund of 2") << QDate(2009, 12, 31) << u"IVA 20, SpeseGen 12.5, CP 2, RA 20"_s;
}

void TestSetupContabili::aliquoteNelTempo()
{
    QFETCH(QDate, Giorno);
    QStringList Trovate;
    for (const AliquotaDatata& Aliquota : AliquoteAl(Giorno))
        Trovate << Aliquota.Chiave + u' ' + QString::number(Aliquota.Percento);
    QTEST(Trovate.join(u", "_s), "Attese");
}

void TestSetupContabili::controlli_data()
{
    QTest::addColumn<QString>("Genere");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<bool>("Torna");

    // The examples that the rules themselves are explained with.
    QTest::newRow("fiscal code") << u"cf"_s << u"RSSMRA85T10A562S"_s << true;
    QTest::newRow("fiscal code, small and spaced") << u"cf"_s << u"rss mra 85t10 a562s"_s << true;
    QTest::newRow("fiscal code, last letter wrong") << u"cf"_s << u"RSSMRA85T10A562T"_s << false;
    QTest::newRow("fiscal code too short") << u"cf"_s << u"RSSMRA85T10A562"_s << false;
    QTest::newRow("company's fiscal code") << u"cf"_s << u"00743110157"_s << true;
    QTest::newRow("VAT number") << u"iva"_s << u"00743110157"_s << true;
    QTest::newRow("VAT number with country") << u"iva"_s << u"IT 00743110157"_s << true;
    QTest::newRow("VAT number, last digit wrong") << u"iva"_s << u"00743110158"_s << false;
    QTest::newRow("VAT number with a letter") << u"iva"_s << u"0074311015A"_s << false;
    QTest::newRow("IBAN") << u"iban"_s << u"IT60 X054 2811 1010 0000 0123 456"_s << true;
    QTest::newRow("IBAN of another country") << u"iban"_s << u"DE89370400440532013000"_s << true;
    QTest::newRow("IBAN, digits swapped") << u"iban"_s << u"IT60X0542811101000000123465"_s << false;
    QTest::newRow("IBAN too short") << u"iban"_s << u"IT60X"_s << false;
    QTest::newRow("mail") << u"posta"_s << u"laura.conti@studio.it"_s << true;
    QTest::newRow("mail with blanks around") << u"posta"_s << u" l@s "_s << true;
    QTest::newRow("mail without its sign") << u"posta"_s << u"pippo"_s << false;
    QTest::newRow("mail with two signs") << u"posta"_s << u"a@b@c"_s << false;
    QTest::newRow("mail without a name") << u"posta"_s << u"@studio.it"_s << false;
    QTest::newRow("mail without a domain") << u"posta"_s << u"laura@"_s << false;
    QTest::newRow("mail with a blank") << u"posta"_s << u"laura conti@studio.it"_s << false;
}

void TestSetupContabili::controlli()
{
    QFETCH(QString, Genere);
    QFETCH(QString, Testo);
    const bool Torna = Genere == u"cf"      ? CodiceFiscaleTorna(Testo)
                       : Genere == u"iva"   ? PartitaIvaTorna(Testo)
                       : Genere == u"posta" ? PostaTorna(Testo)
                                            : IbanTorna(Testo);
    QTEST(Torna, "Torna");
}

/// What must not stay empty says so while it is; what the less plain boxes are for is in their hints.
void TestSetupContabili::cheCosaVuoleOgniCasella()
{
    T->Apri(0);
    for (const QString& Nome : {u"txtNomeStudio"_s, u"txtIndStudio"_s, u"txtCittaStudio"_s, u"txtEMail"_s})
        QCOMPARE(T->Campo(Nome)->placeholderText(), u"obbligatorio"_s);
    QCOMPARE(T->Campo(u"txtIBAN"_s)->placeholderText(), QString());
    QVERIFY(T->Campo(u"txtFirma"_s)->toolTip().contains(u"in fondo ai documenti"));
    QVERIFY(T->Campo(u"txtFirmaDigit"_s)->toolTip().contains(u"nessun documento la stampa"));
    QVERIFY(T->Campo(u"txtNomeStudio"_s)->toolTip().contains(u"«avv.»"));
    const auto* Accanto = T->Trova<QLabel>(u"lblAvvisoEMail"_s);
    T->Scrivi(u"txtEMail"_s, u"pippo"_s);
    QVERIFY(Accanto->isVisible());
    QCOMPARE(T->Campo(u"txtEMail"_s)->accessibleDescription(),
             u"Un indirizzo di posta elettronica ha la forma nome@dominio"_s);
    T->Scrivi(u"txtEMail"_s, u"pippo@studio.it"_s);
    QVERIFY(!Accanto->isVisible());
    T->Scrivi(u"txtEMail"_s, {});
    QVERIFY2(!Accanto->isVisible(), "an empty box is required, not wrong");
}

/// The fields end together, those that may have a remark beside them too, and stay where they are when it
/// comes.
void TestSetupContabili::lAvvisoNonSpostaLaCasella()
{
    T->Apri(0);
    QList<QRect> Prima;
    const QStringList Caselle{u"txtEMail"_s, u"txtCodFisStudio"_s, u"txtPivaStudio"_s, u"txtIBAN"_s};
    Respiro();
    for (const QString& Nome : Caselle)
        Prima.append(T->Campo(Nome)->geometry());
    for (const QString& Nome : Caselle)
        T->Scrivi(Nome, u"sbagliato"_s);
    Respiro();
    for (qsizetype i = 0; i < Caselle.size(); ++i) {
        QVERIFY(!T->Campo(Caselle[i])->toolTip().isEmpty());
        QCOMPARE(T->Campo(Caselle[i])->geometry(), Prima[i]);
        QCOMPARE(Prima[i].right(), T->Campo(u"txtNomeStudio"_s)->geometry().right());
    }
}

void TestSetupContabili::codiceSbagliatoSegnatoENonRifiutato()
{
    Registratore Box;
    T->Apri(0);
    QCOMPARE(T->Campo(u"txtIBAN"_s)->toolTip(), QString());
    T->Scrivi(u"txtIBAN"_s, u"IT60X0542811101000000123465"_s);
    QVERIFY(!T->Campo(u"txtIBAN"_s)->toolTip().isEmpty());
    QVERIFY(T->Trova<QLabel>(u"lblAvvisoIBAN"_s)->isVisible());
    QVERIFY(!T->Trova<QLabel>(u"lblAvvisoPiva"_s)->isVisible());
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"Iban"_s), u"IT60X0542811101000000123465"_s);
    T->Scrivi(u"txtIBAN"_s, u"IT60X0542811101000000123456"_s);
    QCOMPARE(T->Campo(u"txtIBAN"_s)->toolTip(), QString());
}

void TestSetupContabili::avvisoNominaIlCodice_data()
{
    QTest::addColumn<QString>("Campo");
    QTest::addColumn<QString>("Avviso");
    QTest::addColumn<QString>("Nome");
    QTest::newRow("fiscal code") << u"txtCodFisStudio"_s << u"lblAvvisoCodFis"_s << u"Codice fiscale"_s;
    QTest::newRow("VAT number") << u"txtPivaStudio"_s << u"lblAvvisoPiva"_s << u"Partita IVA"_s;
    QTest::newRow("IBAN") << u"txtIBAN"_s << u"lblAvvisoIBAN"_s << u"IBAN"_s;
}

void TestSetupContabili::avvisoNominaIlCodice()
{
    QFETCH(QString, Campo);
    QFETCH(QString, Avviso);
    QFETCH(QString, Nome);
    T->Apri(0);
    T->Scrivi(Campo, u"IT99X"_s);
    const auto* Accanto = T->Trova<QLabel>(Avviso);
    QVERIFY(Accanto->isVisible());
    QVERIFY2(Accanto->text().startsWith(Nome), qPrintable(Accanto->text()));
    QVERIFY(T->Campo(Campo)->toolTip().contains(Nome, Qt::CaseInsensitive));
    // The whole sentence is on view, and the box keeps room for its code.
    QVERIFY(Accanto->width() >= Accanto->sizeHint().width());
    QVERIFY(T->Campo(Campo)->width() > Accanto->width());
}

#include "TestSetupContabili.moc"
