// The settings' page of the documents: logo and mail, by the real form.
#include "core/settings/tavolosetup.h"

#include "core/impostazioni.h"
#include "core/modLogo.h"
#include "core/modLogoStampa.h"
#include "core/settings/anteprimapagina.h"
#include "platform/system/cartelle.h"
#include "platform/system/orologio.h"
#include "supporto/danni.h"

#include <QBuffer>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QPlainTextEdit>
#include <QScopeGuard>

#include <memory>

class TestSetupDocumenti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { T = std::make_unique<TavoloSetup>(); }
    void cleanup()
    {
        T.reset();
        for (const QString& Nome : Copie())
            EliminaFile(CartellaDati() + Nome);
    }

    void predefiniti();
    void scegliPiazzaMemorizza();
    void lOriginaleNonServePiu();
    void chiudereNonConservaNulla();
    void annullato();
    void rifiutato_data();
    void rifiutato();
    void togli();
    void danneggiato();
    void ilLogoRestaDoveIlSuoNomeSiPerde_data();
    void ilLogoRestaDoveIlSuoNomeSiPerde();
    void ilLogoRestaDoveIlSuoNomeSiLeggeMale_data();
    void ilLogoRestaDoveIlSuoNomeSiLeggeMale();
    void ilLogoToltoSubitoVaPiuTardi();
    void laPaginaSiVede();
    void posta();
    void testiIniziali();
    void ordineDelFuoco();
    void nienteSiSovrappone();

private:
    frmSetup& Apri() { return T->Apri(frmSetup::SchedaDeiDocumenti); }
    [[nodiscard]] QComboBox* Posto() const { return T->Trova<QComboBox>(u"cmbLogoPosto"_s); }
    [[nodiscard]] QString Detto() const { return T->Trova<QLabel>(u"lblLogo"_s)->text(); }
    /// A picture in a folder of the user's.
    static QString Disegno(const QString& Nome = u"carta.png"_s)
    {
        QImage Figura(400, 200, QImage::Format_RGB32);
        Figura.fill(Qt::darkGreen);
        const QString File = NuovaCartella() + Nome;
        Figura.save(File);
        return File;
    }
    void ScegliLogo(Registratore& Box, const QString& File)
    {
        Box.AttendiApri(File);
        T->Premi(u"cmdLogo"_s);
    }
    /// As if they had been made a week ago: those of today stay in any case.
    static void InvecchiaCopie()
    {
        for (const QString& Nome : Copie())
            ImpostaDataFile(CartellaDati() + Nome, Adesso().addDays(-7));
    }
    static QStringList Copie() { return NomiDeiFile(CartellaDati(), u".png"_s); }

    std::unique_ptr<TavoloSetup> T;
};
PROVA(TestSetupDocumenti);

void TestSetupDocumenti::predefiniti()
{
    Apri();
    QCOMPARE(Posto()->currentText(), u"Non stampare"_s);
    QCOMPARE(Detto(), u"Nessun logo"_s);
    QCOMPARE(T->Trova<QDoubleSpinBox>(u"txtLogoAltezza"_s)->value(), 2.0);
    QString Quali;
    for (int Quale = 0; Quale < 9; ++Quale)
        if (T->Trova<QCheckBox>(u"chkLogoDoc_%1"_s.arg(Quale))->isChecked())
            Quali += QString::number(Quale);
    QCOMPARE(Quali, u"013568"_s);
    QCOMPARE(T->Trova<QCheckBox>(u"chkLogoDoc_8"_s)->text().remove(u'&'), u"Schede dei calcoli"_s);
    QCOMPARE(T->Trova<QCheckBox>(u"chkLogoDoc_3"_s)->text().remove(u'&'), u"Fattura analitica"_s);
    QVERIFY(!T->Trova<QPushButton>(u"cmdTogliLogo"_s)->isEnabled());
}

void TestSetupDocumenti::scegliPiazzaMemorizza()
{
    Registratore Box;
    Apri();
    ScegliLogo(Box, Disegno());
    QCOMPARE(Detto(), u"carta.png"_s);
    QCOMPARE(Posto()->currentText(), u"A sinistra"_s);  // who chooses one wants to see it
    Scegli(Posto(), 2);
    T->Trova<QDoubleSpinBox>(u"txtLogoAltezza"_s)->setValue(2.5);
    QTest::mouseClick(T->Trova<QCheckBox>(u"chkLogoDoc_2"_s), Qt::LeftButton, {}, {8, 8});
    T->Memorizza(Box);
    QCOMPARE(sessione::LogoPosto, u"C"_s);
    QCOMPARE(sessione::LogoAltezza, 2.5F);
    QCOMPARE(sessione::LogoDocumenti, u"012356C"_s);
    const auto PerLeSchede = [this] { return T->Trova<QCheckBox>(u"chkLogoDoc_8"_s); };
    QTest::mouseClick(PerLeSchede(), Qt::LeftButton, {}, {8, 8});
    T->Memorizza(Box);
    QCOMPARE(sessione::LogoDocumenti, u"012356"_s);
    QVERIFY(!PerLeSchede()->isChecked());
    QCOMPARE(QImage::fromData(logo::Leggi(sessione::LogoImpronta).value_or(QByteArray())).size(),
             QSize(400, 200));
    QCOMPARE(Copie().size(), 1);
    QCOMPARE(Detto(), u"Logo conservato"_s);
    ScegliLogo(Box, Disegno(u"altra.jpg"_s));
    T->Memorizza(Box);
    QCOMPARE(Copie().size(), 2);  // the former one stays a day, for another program's window
    QVERIFY(logo::Leggi(sessione::LogoImpronta));
}

void TestSetupDocumenti::lOriginaleNonServePiu()
{
    Registratore Box;
    Apri();
    const QString File = Disegno();
    ScegliLogo(Box, File);
    EliminaFile(File);
    T->Memorizza(Box);
    QVERIFY(logo::Leggi(sessione::LogoImpronta));
}

void TestSetupDocumenti::chiudereNonConservaNulla()
{
    Registratore Box;
    Apri();
    ScegliLogo(Box, Disegno());
    T->Premi(u"cmdChiudi"_s);
    QCOMPARE(Copie(), QStringList());
    Apri();
    QCOMPARE(Detto(), u"Nessun logo"_s);
}

void TestSetupDocumenti::annullato()
{
    Registratore Box;
    Apri();
    ScegliLogo(Box, {});
    QCOMPARE(Detto(), u"Nessun logo"_s);
    QCOMPARE(Posto()->currentIndex(), 0);
}

void TestSetupDocumenti::rifiutato_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("testo") << QByteArray("x")
                           << u"L'immagine non si può usare: non è un file PNG, JPEG o SVG."_s;
    QTest::newRow("rimando")
        << QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\"><use href=\"file:///etc/passwd#a\"/></svg>")
        << u"L'immagine non si può usare: il disegno SVG contiene rimandi ad altri file; salvarlo come PNG."_s;
}

void TestSetupDocumenti::rifiutato()
{
    QFETCH(QByteArray, Byte);
    QFETCH(QString, Frase);
    Registratore Box;
    Apri();
    const QString File = NuovaCartella() + u"logo.svg"_s;
    ScriviFile(File, Byte);
    Box.AttendiApri(File);
    Box.Attendi(Frase, vbOK, u"Errore:"_s);
    T->Premi(u"cmdLogo"_s);
    QCOMPARE(Detto(), u"Nessun logo"_s);
    QCOMPARE(Posto()->currentIndex(), 0);
}

void TestSetupDocumenti::togli()
{
    Registratore Box;
    Apri();
    ScegliLogo(Box, Disegno());
    T->Memorizza(Box);
    T->Premi(u"cmdTogliLogo"_s);
    QCOMPARE(Detto(), u"Nessun logo"_s);
    QCOMPARE(Posto()->currentIndex(), 0);
    QCOMPARE(Copie().size(), 1);  // until it is stored
    T->Memorizza(Box);
    QCOMPARE(sessione::LogoImpronta, QString());
}

void TestSetupDocumenti::danneggiato()
{
    Registratore Box;
    Apri();
    ScegliLogo(Box, Disegno());
    T->Memorizza(Box);
    const QString Impronta = sessione::LogoImpronta;
    ScriviFile(logo::File(Impronta), "x");
    T->Premi(u"cmdChiudi"_s);
    Apri();
    QCOMPARE(Detto(), u"Il logo conservato manca o è danneggiato: sceglierlo di nuovo."_s);
    QVERIFY(T->Trova<QPushButton>(u"cmdTogliLogo"_s)->isEnabled());
    T->Memorizza(Box);
    QCOMPARE(sessione::LogoImpronta, Impronta);  // it may be on a disk that is not there
}

void TestSetupDocumenti::ilLogoRestaDoveIlSuoNomeSiPerde_data()
{
    QTest::addColumn<int>("Come");
    for (const int Come : {Troncato, Svuotato, Mancante})
        QTest::newRow(NomiDanni[size_t(Come)]) << Come;
    QTest::newRow("cut in the name") << int(Danni);
}

void TestSetupDocumenti::ilLogoRestaDoveIlSuoNomeSiLeggeMale_data()
{
    QTest::addColumn<int>("Quante");  // digits of the name
    QTest::addColumn<QByteArray>("Altre");
    QTest::newRow("no digit") << 1 << "?"_ba;
    QTest::newRow("another digit") << 1 << "x"_ba;  // see below
    QTest::newRow("in capitals") << 64 << "A"_ba;
    QTest::newRow("shorter") << 60 << ""_ba;
}

/// The file is whole, no damage is told, and the name in it is none that the program has written.
void TestSetupDocumenti::ilLogoRestaDoveIlSuoNomeSiLeggeMale()
{
    QFETCH(int, Quante);
    QFETCH(QByteArray, Altre);
    Registratore Box;
    Apri();
    ScegliLogo(Box, Disegno());
    T->Memorizza(Box);
    T->Premi(u"cmdChiudi"_s);
    InvecchiaCopie();
    const QString Buona = sessione::LogoImpronta;
    if (Altre == "x")
        Altre = Buona.startsWith(u'0') ? "1" : "0";
    const QString Guasta =
        QString::fromLatin1(Altre.repeated(Altre.isEmpty() ? 0 : Quante)) + Buona.mid(Quante);
    Scena::Salva(chiavi::LogoImpronta.toString(), Guasta);
    ImpostaVariabili();
    // Whoever prints before he opens the settings is told as well.
    QVERIFY(!LogoDelleSchede());
    const QString File = logo::File(Guasta);
    QCOMPARE(File.isEmpty(), logo::ImprontaValida(Guasta).isEmpty());
    Box.Attendi(
        u"Il logo dello studio %1manca o è danneggiato: i documenti si stampano senza. Sceglierlo di nuovo "
        u"nelle impostazioni, scheda \"Documenti\"."_s.arg(File.isEmpty() ? QString()
                                                                          : u"(\"%1\") "_s.arg(File)),
        vbOK, u"Errore:"_s);
    AvvisaLogo();
    Apri();
    QCOMPARE(Detto(), u"Il logo conservato manca o è danneggiato: sceglierlo di nuovo."_s);
    for (int Volta = 0; Volta < 2; ++Volta) {
        T->Memorizza(Box);
        QCOMPARE(Copie().size(), 1);
        QCOMPARE(Scena::Parametro(chiavi::LogoImpronta.toString()), Guasta);
    }
    // What the user takes away goes, and not by the way: on no document there is nothing else that changes.
    Posto()->setCurrentIndex(0);
    T->Memorizza(Box);
    T->Premi(u"cmdTogliLogo"_s);
    Box.Attendi(u"Le modifiche alle impostazioni non sono state memorizzate.\nChiudere senza memorizzarle?"_s,
                vbNo, u"Domanda:"_s);
    QTest::keyClick(T->Modulo, Qt::Key_Escape);
    QVERIFY(T->Modulo->isVisible());
    T->Memorizza(Box);
    QCOMPARE(Copie(), QStringList());
    QCOMPARE(Scena::Parametro(chiavi::LogoImpronta.toString()), QString());
    QTest::keyClick(T->Modulo, Qt::Key_Escape);
    QVERIFY(!T->Modulo->isVisible());
}

/// The save that makes damaged settings whole, and those behind it, delete no picture that nobody has given
/// up.
void TestSetupDocumenti::ilLogoRestaDoveIlSuoNomeSiPerde()
{
    QFETCH(int, Come);
    Registratore Box;
    Apri();
    ScegliLogo(Box, Disegno());
    T->Memorizza(Box);
    T->Premi(u"cmdChiudi"_s);
    InvecchiaCopie();
    const QString File = Scena::FileImpostazioni();
    const QByteArray Intero = LeggiFile(File);
    if (Come == Danni)
        ScriviFile(File, Intero.first(Intero.indexOf("logoimpronta=") + 30));
    else
        Rovina(File, Come);
    ImpostaVariabili();
    QCOMPARE(sessione::LogoImpronta, QString());
    Apri();
    for (const char* Nome : {"txtNomeStudio", "txtIndStudio", "txtCittaStudio", "txtEMail"})
        T->Campo(QString::fromLatin1(Nome))->setText(u"nuovo"_s);
    for (const char* Contatore : {"txtNumFatt", "txtProgTrasm"})
        T->Campo(QString::fromLatin1(Contatore))->setText(u"41"_s);
    for (int Volta = 0; Volta < 2; ++Volta) {
        T->Memorizza(Box);
        QCOMPARE(Copie().size(), 1);
    }
    // The file that was put back has its picture.
    ScriviFile(File, Intero);
    ImpostaVariabili();
    QVERIFY(logo::Leggi(sessione::LogoImpronta));
    // What the user takes away goes.
    T->Premi(u"cmdChiudi"_s);
    Apri();
    T->Premi(u"cmdTogliLogo"_s);
    T->Memorizza(Box);
    QCOMPARE(Copie(), QStringList());
}

/// A picture of today stays, since another program may just be storing its name; a later save takes it.
void TestSetupDocumenti::ilLogoToltoSubitoVaPiuTardi()
{
    Registratore Box;
    Apri();
    ScegliLogo(Box, Disegno());
    T->Memorizza(Box);
    T->Premi(u"cmdTogliLogo"_s);
    T->Memorizza(Box);
    QCOMPARE(Copie().size(), 1);
    T->Premi(u"cmdChiudi"_s);
    InvecchiaCopie();
    Apri();
    T->Memorizza(Box);
    QCOMPARE(Copie(), QStringList());
}

/// The page beside the choices follows each of them.
void TestSetupDocumenti::laPaginaSiVede()
{
    Registratore Box;
    Apri();
    const auto Alto = [this] {
        return T->Trova<AnteprimaPagina>(u"foglioLogo"_s)->Pagine().Righe(1).front().Mm.top();
    };
    const double Senza = Alto();
    ScegliLogo(Box, Disegno());
    QVERIFY(qAbs(Alto() - Senza - 24.0) < 0.05);
    T->Trova<QDoubleSpinBox>(u"txtLogoAltezza"_s)->setValue(3.0);
    QVERIFY(qAbs(Alto() - Senza - 34.0) < 0.05);
    const auto Vista = [this] { return T->Trova<AnteprimaPagina>(u"foglioLogo"_s)->grab().toImage(); };
    const QImage Sinistra = Vista();
    Scegli(Posto(), 3);
    QVERIFY(Vista() != Sinistra);
    Scegli(Posto(), 0);
    QCOMPARE(Alto(), Senza);
}

void TestSetupDocumenti::posta()
{
    Registratore Box;
    Apri();
    T->Scrivi(u"txtPostaOggetto"_s, u"{documento} per {cliente}"_s);
    T->Trova<QPlainTextEdit>(u"txtPostaTesto"_s)->setPlainText(u"Buongiorno,\n\n\"{nome}\"; a=b\n"_s);
    T->Memorizza(Box);
    QCOMPARE(sessione::PostaOggetto, u"{documento} per {cliente}"_s);
    QCOMPARE(sessione::PostaTesto, u"Buongiorno,\n\n\"{nome}\"; a=b\n"_s);
    T->Premi(u"cmdChiudi"_s);
    Apri();
    QCOMPARE(T->Trova<QPlainTextEdit>(u"txtPostaTesto"_s)->toPlainText(), sessione::PostaTesto);
    QVERIFY(T->Trova<QLabel>(u"lblSegnaposti"_s)
                ->text()
                .startsWith(u"Si possono usare {cliente}, {documento}, {numero}, {data}, {oggetto}, {netto}, "
                            u"{studio};"_s));
}

void TestSetupDocumenti::testiIniziali()
{
    Apri();
    T->Scrivi(u"txtPostaOggetto"_s, u"altro"_s);
    T->Trova<QPlainTextEdit>(u"txtPostaTesto"_s)->clear();
    T->Premi(u"cmdTestiIniziali"_s);
    QCOMPARE(T->Campo(u"txtPostaOggetto"_s)->text(), PredefinitoDi(VoceDi(chiavi::PostaOggetto)));
    QCOMPARE(T->Trova<QPlainTextEdit>(u"txtPostaTesto"_s)->toPlainText(),
             PredefinitoDi(VoceDi(chiavi::PostaTesto)));
}

void TestSetupDocumenti::ordineDelFuoco()
{
    Apri();
    QCOMPARE(OrdineTab(T->Trova<QWidget>(u"cmdLogo"_s), 15),
             (QStringList{u"cmdLogo"_s, u"cmbLogoPosto"_s, u"txtLogoAltezza"_s, u"chkLogoDoc_0"_s,
                          u"chkLogoDoc_1"_s, u"chkLogoDoc_2"_s, u"chkLogoDoc_3"_s, u"chkLogoDoc_4"_s,
                          u"chkLogoDoc_5"_s, u"chkLogoDoc_6"_s, u"chkLogoDoc_7"_s, u"chkLogoDoc_8"_s,
                          u"txtPostaOggetto"_s, u"txtPostaTesto"_s, u"cmdTestiIniziali"_s}));
}

/// Nor in a window that is too low for large letters: the page scrolls.
void TestSetupDocumenti::nienteSiSovrappone()
{
    const QFont Prima = QApplication::font();
    const auto Rimetti = qScopeGuard([&] { QApplication::setFont(Prima); });
    QFont Grande = Prima;
    Grande.setPixelSize(19);
    QApplication::setFont(Grande);
    frmSetup& F = Apri();
    F.resize(1200, 560);
    QVERIFY(QTest::qWaitForWindowExposed(&F));
    const auto* Testo = T->Trova<QPlainTextEdit>(u"txtPostaTesto"_s);
    const auto* Sotto = T->Trova<QLabel>(u"lblSegnaposti"_s);
    QTRY_VERIFY(Sotto->height() >= Sotto->heightForWidth(Sotto->width()));
    QVERIFY2(Testo->geometry().bottom() < Sotto->geometry().top(),
             qPrintable(u"%1 %2"_s.arg(Testo->geometry().bottom()).arg(Sotto->geometry().top())));
}

#include "TestSetupDocumenti.moc"
