// The logo on the documents: where the settings put it, on which of them, and what a lost one is told with.
#include "campioni.h"
#include "core/modLogo.h"
#include "core/modLogoStampa.h"
#include "platform/pages/impaginazione.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "print/modStampe.h"
#include "print/writers/esportazione.h"
#include "supporto/danni.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include <QBuffer>
#include <QDir>
#include <QImage>

using namespace Qt::StringLiterals;

namespace {

const QString Perso =
    u"Il logo dello studio (\"%1\") manca o è danneggiato: i documenti si stampano senza. Sceglierlo di "
    "nuovo nelle impostazioni, scheda \"Documenti\"."_s;

QByteArray Png(const QSize& Lati = {300, 100})
{
    QImage Figura(Lati, QImage::Format_RGB32);
    Figura.fill(Qt::darkBlue);
    QByteArray Byte;
    QBuffer Uscita(&Byte);
    Uscita.open(QIODevice::WriteOnly);
    Figura.save(&Uscita, "png");
    return Byte;
}

}  // namespace

class TestLogoStampa : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { AzzeraSessione(); }
    void qualiDocumenti_data();
    void qualiDocumenti();
    void posti_data();
    void posti();
    void altezze_data();
    void altezze();
    void troppoLargo();
    void troppiPunti_data();
    void troppiPunti();
    void spento_data();
    void spento();
    void persoSiDiceUnaVolta_data();
    void persoSiDiceUnaVolta();
    void ilTestoNonCambia();
    void nellEsportazione();
    void senzaLogoLEsportazioneEUguale();

private:
    Superficie vp;
    Parcella Nota;
};
PROVA(TestLogoStampa);

void TestLogoStampa::init()
{
    campioni::ImpostaStudio();
    sessione::LogoImpronta = logo::Conserva(Png());
    sessione::LogoPosto = u"S"_s;
    Nota = campioni::Civile();
}

void TestLogoStampa::qualiDocumenti_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("Iniziale");
    for (int Tipo = 0; Tipo < int(TipiDocumento.size()); ++Tipo)
        QTest::addRow("%d", Tipo) << Tipo
                                  << (Tipo != StampaFatturaSintetica && Tipo != StampaNotaGiudiziale &&
                                      Tipo != StampaSoloContabile);
}

void TestLogoStampa::qualiDocumenti()
{
    QFETCH(int, Tipo);
    QFETCH(bool, Iniziale);
    Registratore Voce;
    Voce.Tollera();  // clauses are none of this test's
    Anteprima(vp, Nota, Tipo);
    QCOMPARE(vp.Contenuto().Testa.has_value(), Iniziale);
    sessione::LogoDocumenti = QString::number(Tipo);
    Anteprima(vp, Nota, Tipo);
    QVERIFY(vp.Contenuto().Testa.has_value());
    sessione::LogoDocumenti.clear();
    Anteprima(vp, Nota, Tipo);
    QVERIFY(!vp.Contenuto().Testa);
}

void TestLogoStampa::posti_data()
{
    QTest::addColumn<QString>("Posto");
    QTest::addColumn<int>("Atteso");
    QTest::newRow("sinistra") << u"S"_s << int(Allineamento::Sinistra);
    QTest::newRow("centro") << u"C"_s << int(Allineamento::Centro);
    QTest::newRow("destra") << u"D"_s << int(Allineamento::Destra);
}

void TestLogoStampa::posti()
{
    QFETCH(QString, Posto);
    sessione::LogoPosto = Posto;
    Anteprima(vp, Nota, StampaPrenotula);
    QVERIFY(vp.Contenuto().Testa);
    QTEST(int(vp.Contenuto().Testa->Allinea), "Atteso");
}

void TestLogoStampa::altezze_data()
{
    QTest::addColumn<float>("Chiesta");
    QTest::addColumn<double>("Avuta");
    QTest::newRow("nei limiti") << 1.5F << 1.5;
    QTest::newRow("troppo piccola") << 0.0F << logo::AltezzaMinima;
    QTest::newRow("negativa") << -3.0F << logo::AltezzaMinima;
    QTest::newRow("troppo grande") << 900.0F << logo::AltezzaMassima;
}

void TestLogoStampa::altezze()
{
    QFETCH(float, Chiesta);
    sessione::LogoAltezza = Chiesta;
    const auto Figura = LogoDelDocumento(StampaPrenotula);
    QVERIFY(Figura);
    QTEST(Figura->AltezzaCm, "Avuta");
    QVERIFY(qAbs(Figura->LarghezzaCm - 3.0 * Figura->AltezzaCm) < 1e-9);
}

/// It keeps its proportions and never passes the text.
void TestLogoStampa::troppoLargo()
{
    const auto Figura = FiguraDi(Png({2000, 100}), 5.0, Allineamento::Sinistra);
    QVERIFY(Figura);
    QCOMPARE(Figura->LarghezzaCm, 17.6);
    QVERIFY(qAbs(Figura->AltezzaCm - 0.88) < 1e-9);
}

/// The program's own copies have no more: a larger one is not one of them.
void TestLogoStampa::troppiPunti_data()
{
    QTest::addColumn<QSize>("Lati");
    QTest::addColumn<bool>("Ammessi");
    QTest::newRow("il più largo") << QSize(logo::PixelLarghezza, 100) << true;
    QTest::newRow("troppo largo") << QSize(logo::PixelLarghezza + 1, 100) << false;
    QTest::newRow("il più alto") << QSize(300, logo::PixelAltezza) << true;
    QTest::newRow("troppo alto") << QSize(300, logo::PixelAltezza + 1) << false;
}

void TestLogoStampa::troppiPunti()
{
    QFETCH(QSize, Lati);
    QTEST(FiguraDi(Png(Lati), 2.0, Allineamento::Sinistra).has_value(), "Ammessi");
}

void TestLogoStampa::spento_data()
{
    QTest::addColumn<bool>("SenzaPosto");
    QTest::newRow("non si stampa") << true;
    QTest::newRow("non c'è") << false;
}

void TestLogoStampa::spento()
{
    QFETCH(bool, SenzaPosto);
    Registratore Voce;
    (SenzaPosto ? sessione::LogoPosto : sessione::LogoImpronta).clear();
    Anteprima(vp, Nota, StampaPrenotula);
    QVERIFY(!vp.Contenuto().Testa);
}

void TestLogoStampa::persoSiDiceUnaVolta_data()
{
    QTest::addColumn<int>("Come");
    for (int Come = 0; Come < Danni; ++Come)
        QTest::newRow(NomiDanni[size_t(Come)]) << Come;
}

void TestLogoStampa::persoSiDiceUnaVolta()
{
    QFETCH(int, Come);
    // Another one each time: what was told of one logo is told of it alone.
    sessione::LogoImpronta = logo::Conserva(Png({310, 100 + Come}));
    const QString File = logo::File(sessione::LogoImpronta);
    const QByteArray Buono = LeggiFile(File);
    Rovina(File, Come);
    Registratore Voce;
    Voce.Attendi(Perso.arg(File), vbOK, u"Errore:"_s);
    for (int i = 0; i < 3; ++i) {
        QVERIFY(Anteprima(vp, Nota, StampaPrenotula));
        QVERIFY(!vp.Contenuto().Testa);
    }
    QCOMPARE(Voce.Mostrati().size(), 1);
    if (Come == Cartella)
        QVERIFY(QDir().rmdir(File));
    else if (Come != Mancante)
        QVERIFY(QFile::remove(File));
    ScriviFile(File, Buono);
    Anteprima(vp, Nota, StampaPrenotula);
    QVERIFY(vp.Contenuto().Testa);
}

void TestLogoStampa::ilTestoNonCambia()
{
    Anteprima(vp, Nota, StampaPrenotula);
    const Impaginazione Con(vp.Contenuto());
    sessione::LogoPosto.clear();
    Anteprima(vp, Nota, StampaPrenotula);
    const Impaginazione Senza(vp.Contenuto());
    QCOMPARE(Con.Testo(), Senza.Testo());
    QVERIFY(qAbs(Con.Righe(1).front().Mm.top() - Senza.Righe(1).front().Mm.top() - 24.0) < 0.05);
}

void TestLogoStampa::nellEsportazione()
{
    sessione::LogoPosto = u"D"_s;
    Anteprima(vp, Nota, StampaPrenotula);
    const QByteArray Rtf = DocumentoEsportato(vp.Contenuto(), FormatoEsportazione::Word, u"Prova"_s);
    // Two centimetres by six, in twips, half an inch and a bit from the edge; then the page's own foot.
    QVERIFY(Rtf.contains("\\titlepg\\headery850"));
    QVERIFY(Rtf.contains("{\\headerf\\pard\\plain\\qr"));
    QVERIFY(Rtf.contains("{\\pict\\pngblip\\picwgoal3402\\pichgoal1134\r\n89504e470d0a1a0a"));
    QVERIFY(Rtf.contains("{\\footerf\\") && Rtf.contains("{\\footer\\"));
    QVERIFY(QByteArray(Rtf).replace("\r\n", "").contains(Png().toHex()));
    int Aperte = 0;
    for (const char C : Rtf)
        Aperte += C == '{' ? 1 : C == '}' ? -1 : 0;
    QCOMPARE(Aperte, 0);
    // What a browser shows to the companion has no paper, and no logo.
    QVERIFY(!DocumentoEsportato(vp.Contenuto(), FormatoEsportazione::Html, u"Prova"_s).contains("<img"));
}

void TestLogoStampa::senzaLogoLEsportazioneEUguale()
{
    sessione::LogoPosto.clear();
    Anteprima(vp, Nota, StampaPrenotula);
    const QByteArray Rtf = DocumentoEsportato(vp.Contenuto(), FormatoEsportazione::Word, u"Prova"_s);
    for (const char* Parola : {"\\titlepg", "\\headerf", "\\footerf", "\\headery", "\\pict"})
        QVERIFY2(!Rtf.contains(Parola), Parola);
}

#include "TestLogoStampa.moc"
