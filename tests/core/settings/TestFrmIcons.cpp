#include "core/settings/tavolosetup.h"

#include "core/modAspetto.h"
#include "core/settings/frmIcons.h"

#include <QClipboard>

#include <memory>

class TestFrmIcons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nuova();
    void esistente_data();
    void esistente();
    void rifiuti_data();
    void rifiuti();
    void salva();
    void senzaFigure();
    void figuraSparita();
    void figuraConservata_data();
    void figuraConservata();
    void figureDellUtente();
    void incollatoImpostaIlTipo();
    void scegliProgramma();
    void escNonCambia();
    void limiti();
    void oltreILimitiNienteSiPerde();
    void ogniControlloHaUnNome();

private:
    frmIcons& Apri(int Riga);
    QLineEdit* Campo(const QString& Nome) { return Modulo->findChild<QLineEdit*>(Nome); }
    QComboBox* Lista(const QString& Nome) { return Modulo->findChild<QComboBox*>(Nome); }

    std::unique_ptr<TavoloSetup> T;
    TabellaRighe Icone{ColonneIcona};
    std::unique_ptr<frmIcons> Modulo;
};
PROVA(TestFrmIcons);

void TestFrmIcons::init()
{
    T = std::make_unique<TavoloSetup>();
    Icone.Azzera(ColonneIcona);
    (void)Icone.AggiungiRiga();
    Icone(0, IconaTitolo) = u"Sito"_s;
    Icone(0, IconaCollegamento) = u"www.x.example"_s;
    Icone(0, IconaFigura) = u"sito.gif"_s;
}

void TestFrmIcons::cleanup()
{
    Modulo.reset();
    T.reset();
}

frmIcons& TestFrmIcons::Apri(int Riga)
{
    Modulo = std::make_unique<frmIcons>(Icone, Riga, nullptr);
    if (!MostraAttiva(*Modulo))
        QTest::qFail("not active", __FILE__, __LINE__);
    return *Modulo;
}

void TestFrmIcons::nuova()
{
    Apri(-1);
    QCOMPARE(Modulo->windowTitle(), u"KR5 - Gestione icone utente"_s);
    QCOMPARE(Campo(u"txtTitIco"_s)->text(), QString());
    QCOMPARE(Lista(u"cmbTipoIco"_s)->currentText(), u"Programma"_s);
    QCOMPARE(Lista(u"cmbImgIco"_s)->currentText(), u"icona"_s);
    QVERIFY(!Modulo->findChild<QLabel*>(u"imgPreviewIco"_s)->pixmap().isNull());
    QStringList Voci;
    for (int i = 0; i < Lista(u"cmbImgIco"_s)->count(); ++i)
        Voci << Lista(u"cmbImgIco"_s)->itemText(i);
    QVERIFY2(Voci.size() >= 12 && Voci.filter(u".gif"_s).isEmpty(), qPrintable(Voci.join(u' ')));
}

void TestFrmIcons::esistente_data()
{
    QTest::addColumn<QString>("Destinazione");
    QTest::addColumn<QString>("Tipo");

    QTest::newRow("www") << u"www.x.example"_s << u"Collegamento internet!"_s;
    QTest::newRow("https, capitals") << u"HTTPS://x.example"_s << u"Collegamento internet!"_s;
    QTest::newRow("path") << u"/opt/x"_s << u"Programma"_s;
    QTest::newRow("mail") << u"mailto:a@x.example"_s << u"Programma"_s;
}

void TestFrmIcons::esistente()
{
    QFETCH(QString, Destinazione);
    Icone(0, IconaCollegamento) = Destinazione;
    Apri(0);
    QCOMPARE(Campo(u"txtTitIco"_s)->text(), u"Sito"_s);
    QCOMPARE(Campo(u"txtCollegIco"_s)->text(), Destinazione);
    QTEST(Lista(u"cmbTipoIco"_s)->currentText(), "Tipo");
    QCOMPARE(Lista(u"cmbImgIco"_s)->currentText(), u"sito"_s);
}

void TestFrmIcons::rifiuti_data()
{
    QTest::addColumn<QString>("Titolo");
    QTest::addColumn<QString>("Destinazione");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Messaggio");
    QTest::addColumn<QString>("Fuoco");

    const QString Necessari = u"Immettere i valori necessari!"_s;
    const QString Estranei = u"Il testo contiene caratteri che non si possono conservare!"_s;
    const QString Link = u"txtCollegIco"_s;
    QTest::newRow("no title") << u" "_s << u"/opt/x"_s << 0 << Necessari << u"txtTitIco"_s;
    QTest::newRow("no target") << u"A"_s << u""_s << 0 << Necessari << Link;
    QTest::newRow("address as a program")
        << u"A"_s << u"Http://x"_s << 0 << u"Immettere il percorso valido per il programma desiderato!"_s
        << Link;
    QTest::newRow("program as an address")
        << u"A"_s << u"/opt/x"_s << 1 << u"Immettere un indirizzo web valido!"_s << Link;
    QTest::newRow("mail as an address")
        << u"A"_s << u"mailto:a@b"_s << 1 << u"Immettere un indirizzo web valido!"_s << Link;
    QTest::newRow("title beyond the code page")
        << u"Łódź"_s << u"/opt/x"_s << 0 << Estranei << u"txtTitIco"_s;
    QTest::newRow("target beyond the code page") << u"A"_s << u"/opt/日本"_s << 0 << Estranei << Link;
}

void TestFrmIcons::rifiuti()
{
    QFETCH(QString, Titolo);
    QFETCH(QString, Destinazione);
    QFETCH(int, Tipo);
    QFETCH(QString, Messaggio);
    QFETCH(QString, Fuoco);
    Registratore Box;
    const TabellaRighe Prima = Icone;
    Apri(-1);
    Campo(u"txtTitIco"_s)->setText(Titolo);
    Campo(u"txtCollegIco"_s)->setText(Destinazione);
    Lista(u"cmbTipoIco"_s)->setCurrentIndex(Tipo);
    Box.Attendi(Messaggio, vbOK, u"Errore:"_s);
    QTest::mouseClick(Modulo->findChild<QWidget*>(u"cmdSalvaIco"_s), Qt::LeftButton);
    QVERIFY(Modulo->isVisible());
    QCOMPARE(Icone, Prima);
    QTRY_COMPARE(QApplication::focusWidget(), Campo(Fuoco));
}

void TestFrmIcons::salva()
{
    const Registratore Box;
    Apri(-1);
    Campo(u"txtTitIco"_s)->setText(u" Agenda "_s);
    Campo(u"txtCollegIco"_s)->setText(u"/opt/agenda"_s);
    Lista(u"cmbImgIco"_s)->setCurrentText(u"agenda"_s);
    Campo(u"txtTitIco"_s)->setFocus();
    Premi(Qt::Key_Return);
    QCOMPARE(Modulo->result(), int(QDialog::Accepted));
    QCOMPARE(Icone.Righe(), 2);
    QCOMPARE(Modulo->Riga(), 1);
    QCOMPARE(Icone(1, IconaTitolo).toString(), u"Agenda"_s);
    QCOMPARE(Icone(1, IconaFigura).toString(), u"agenda.gif"_s);
}

void TestFrmIcons::senzaFigure()
{
    const Registratore Box;
    QVERIFY(QDir(T->Programma + u"icone"_s).removeRecursively());
    Apri(-1);
    Campo(u"txtTitIco"_s)->setText(u"A"_s);
    Campo(u"txtCollegIco"_s)->setText(u"/a"_s);
    Modulo->cmdSalvaIco_Click();
    QCOMPARE(Icone(1, IconaFigura).toString(), u"icona.gif"_s);
}

void TestFrmIcons::figuraSparita()
{
    const Registratore Box;
    Icone(0, IconaFigura) = u"mia.gif"_s;
    Apri(0);
    QVERIFY2(!Modulo->findChild<QLabel*>(u"imgPreviewIco"_s)->pixmap().isNull(), "the program's own drawing");
    Modulo->cmdSalvaIco_Click();
    QCOMPARE(Icone(0, IconaFigura).toString(), u"mia.gif"_s);
}

void TestFrmIcons::figuraConservata_data()
{
    QTest::addColumn<QString>("Letta");
    QTest::addColumn<QString>("Salvata");

    QTest::newRow("without an extension") << u"mia"_s << u"mia.gif"_s;
    QTest::newRow("with another one") << u"mia.png"_s << u"mia.png"_s;
    QTest::newRow("in capitals") << u"MIA.GIF"_s << u"MIA.GIF"_s;
}

void TestFrmIcons::figuraConservata()
{
    QFETCH(QString, Letta);
    const Registratore Box;
    Icone(0, IconaFigura) = Letta;
    Apri(0);
    Modulo->cmdSalvaIco_Click();
    QTEST(Icone(0, IconaFigura).toString(), "Salvata");
}

void TestFrmIcons::figureDellUtente()
{
    CreaCartella(T->Utente + u"icone"_s);
    ScriviFile(T->Utente + u"icone/Mia.GIF"_s, LeggiFile(T->Programma + u"icone/sito.gif"_s));
    ScriviFile(T->Utente + u"icone/sito.gif"_s, "x");
    Apri(-1);
    QVERIFY(Lista(u"cmbImgIco"_s)->findText(u"Mia"_s) >= 0);
    QCOMPARE(Lista(u"cmbImgIco"_s)->findText(u"sito"_s),
             Lista(u"cmbImgIco"_s)->findText(u"sito"_s, Qt::MatchFixedString));
    // The office's own file wins over the delivered one of the same name.
    QCOMPARE(FileFigura(u"sito.gif"_s), T->Utente + u"icone/sito.gif"_s);
    QCOMPARE(FileFigura(u"posta.gif"_s), T->Programma + u"icone/posta.gif"_s);
}

void TestFrmIcons::incollatoImpostaIlTipo()
{
    Apri(-1);
    QGuiApplication::clipboard()->setText(u"https://x.example/Pagina"_s);
    Campo(u"txtCollegIco"_s)->setFocus();
    Campo(u"txtCollegIco"_s)->paste();
    QCOMPARE(Lista(u"cmbTipoIco"_s)->currentText(), u"Collegamento internet!"_s);
}

void TestFrmIcons::scegliProgramma()
{
    Registratore Box;
    Apri(0);
    Box.AttendiApri({});
    QTest::mouseClick(Modulo->findChild<QWidget*>(u"cmdSelProg"_s), Qt::LeftButton);
    QCOMPARE(Campo(u"txtCollegIco"_s)->text(), u"www.x.example"_s);
    QCOMPARE(Box.FiltroDialogo().section(u"|Tutti"_s, 0, 0), u"Applicazione (*.exe)|*.exe;*.com"_s);
    Box.AttendiApri(u"/opt/agenda"_s);
    QTest::mouseClick(Modulo->findChild<QWidget*>(u"cmdSelProg"_s), Qt::LeftButton);
    QCOMPARE(Campo(u"txtCollegIco"_s)->text(), u"/opt/agenda"_s);
    QCOMPARE(Lista(u"cmbTipoIco"_s)->currentText(), u"Programma"_s);
}

void TestFrmIcons::escNonCambia()
{
    const TabellaRighe Prima = Icone;
    Apri(0);
    Campo(u"txtTitIco"_s)->setText(u"Altro"_s);
    QTest::keyClick(Modulo.get(), Qt::Key_Escape);
    QVERIFY(!Modulo->isVisible());
    QCOMPARE(Icone, Prima);
}

void TestFrmIcons::limiti()
{
    Apri(-1);
    QCOMPARE(Campo(u"txtTitIco"_s)->maxLength(), 60);
    QCOMPARE(Campo(u"txtCollegIco"_s)->maxLength(), 500);
}

void TestFrmIcons::oltreILimitiNienteSiPerde()
{
    const Registratore Box;
    const QString Titolo(75, u't');
    const QString Destinazione = u"/opt/"_s + QString(600, u'd');
    Icone(0, IconaTitolo) = Titolo;
    Icone(0, IconaCollegamento) = Destinazione;
    Apri(0);
    Modulo->cmdSalvaIco_Click();
    QCOMPARE(Icone(0, IconaTitolo).toString(), Titolo);
    QCOMPARE(Icone(0, IconaCollegamento).toString(), Destinazione);
}

void TestFrmIcons::ogniControlloHaUnNome()
{
    Apri(-1);
    QCOMPARE(SenzaNome(Modulo.get()), QStringList());
}

#include "TestFrmIcons.moc"
