#include "core/impostazioni.h"
#include "core/parametri.h"
#include "core/settings/modulosetup.h"
#include "supporto/danni.h"

#include <QScreen>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>

class TestFrmSetup : public QObject, ModuloSetup
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void leSchede();
    void scritte_data();
    void scritte();
    void leggeDalleImpostazioni();
    void rifiuti_data();
    void rifiuti();
    void ordineDeiRifiuti();
    void memorizza();
    void ogniImpostazioneHaChiLaScrive();
    void memorizzaConUnaParcellaAperta();
    void memorizzaNonRiesce();
    void quelCheHaScrittoUnAltroResta();
    void quelCheLaCasellaNonTieneResta();
    void quelCheIlFileHaPersoTorna_data();
    void quelCheIlFileHaPersoTorna();
    void ridisegnaLaScrivania();
    void modaleSiChiudeDopoAverMemorizzato();
    void modaleGiaApertaVieneDavanti();
    void chiudereNonCambiaNulla();
    void escChiede_data();
    void escChiede();
    void escSenzaModifiche();
    void aprirlaDueVolteNonPerdeIlTesto();
    void ricordaIlPosto();
    void ordineDelTabulatore();
    void ctrlTabGiraLeSchede();
    void changeTabFuoriDaiLimiti();
    void ogniControlloHaUnNome();

private:
    void Riempi();
};
PROVA(TestFrmSetup);

namespace {

/// Boxes and the keys that hold them.
const QList<std::pair<QString, QString>> Chiavi{
    {u"txtNomeStudio"_s, u"StudioNome"_s},
    {u"txtIndStudio"_s, u"StudioIndir"_s},
    {u"txtCittaStudio"_s, u"StudioCitta"_s},
    {u"txtEMail"_s, u"StudioMail"_s},
    {u"txtCodFisStudio"_s, u"StudioCodFisc"_s},
    {u"txtPivaStudio"_s, u"StudioPIva"_s},
    {u"txtFirma"_s, u"Firma"_s},
    {u"txtFirmaDigit"_s, u"FirmaDigit"_s},
    {u"txtIBAN"_s, u"Iban"_s},
};

}  // namespace

void TestFrmSetup::init()
{
    Prepara();
}

void TestFrmSetup::cleanup()
{
    S.reset();
}

void TestFrmSetup::Riempi()
{
    Modulo->Mostra(0);
    for (const auto& [Nome, Chiave] : Chiavi)
        Campo(Nome)->setText(u"nuovo "_s + Chiave);
}

void TestFrmSetup::leSchede()
{
    const auto* Schede = Modulo->findChild<QTabWidget*>(u"tabSetup"_s);
    QStringList Titoli;
    for (int i = 0; i < Schede->count(); ++i) {
        Titoli << Schede->tabText(i).remove(u'&');
        QCOMPARE(Schede->widget(i)->objectName(), u"fraSetup_%1"_s.arg(i));
    }
    QCOMPARE(Titoli, (QStringList{u"Dati studio"_s, u"Dati contabili"_s, u"Setup"_s,
                                  u"Personalizza desktop"_s, u"Fattura elettronica"_s, u"Documenti"_s}));
    QCOMPARE(Schede->tabText(0), u"&Dati studio"_s);
    QCOMPARE(Modulo->windowTitle(), u"Calcanova - Personalizzazione programma"_s);
}

void TestFrmSetup::scritte_data()
{
    QTest::addColumn<int>("Scheda");
    QTest::addColumn<QString>("Scritta");

    const auto Riga = [](int Scheda, const QString& Scritta) {
        QTest::newRow(qPrintable(Scritta)) << Scheda << Scritta;
    };
    Riga(1, u"N° ultima fattura emessa:"_s);
    Riga(2, u"Cartella programma:"_s);
    Riga(2, u"Cartella parcelle:"_s);
    Riga(2, u"Cartella utente locale:"_s);
    Riga(2, u"Ricerca automatica nuovi aggiornamenti:"_s);
    Riga(3, u"Seleziona modello predefinito:"_s);
    Riga(3, u"Colore sfondo:"_s);
    Riga(3, u"Colore testo icone:"_s);
    Riga(3, u"Colore bordo icone:"_s);
    Riga(3, u"Colore testo selez.:"_s);
    Riga(3, u"Gestione icone personali"_s);
    Riga(3, u"Titolo"_s);
    Riga(3, u"Programma/Link"_s);
    Riga(3, u"Icona"_s);
}

void TestFrmSetup::scritte()
{
    QFETCH(int, Scheda);
    QFETCH(QString, Scritta);
    Modulo->Mostra(Scheda);
    const auto* Pagina = Modulo->findChild<QWidget*>(u"fraSetup_%1"_s.arg(Scheda));
    QStringList Viste;
    for (const QWidget* Dentro : Pagina->findChildren<QWidget*>()) {
        if (!Dentro->isVisible())
            continue;
        for (const char* Proprieta : {"text", "title"})
            Viste << Dentro->property(Proprieta).toString().remove(u'&');
        if (const auto* Tabella = qobject_cast<const QTableView*>(Dentro))
            for (int c = 0; c < Tabella->model()->columnCount(); ++c)
                Viste << Tabella->model()->headerData(c, Qt::Horizontal).toString();
    }
    QVERIFY2(Viste.contains(Scritta), qPrintable(Viste.join(u" / "_s)));
}

void TestFrmSetup::leggeDalleImpostazioni()
{
    // The session holds something else: the store counts.
    sessione::StudioNome = u"sessione"_s;
    for (const auto& [Nome, Chiave] : Chiavi)
        Scena::Salva(Chiave, u"di "_s + Chiave);
    Modulo->Mostra(0);
    for (const auto& [Nome, Chiave] : Chiavi)
        QCOMPARE(Campo(Nome)->text(), u"di "_s + Chiave);
}

void TestFrmSetup::rifiuti_data()
{
    QTest::addColumn<QString>("Vuoto");
    QTest::addColumn<QString>("Messaggio");

    QTest::newRow("name") << u"txtNomeStudio"_s << u"Non è stato specificato il nome dello studio!"_s;
    QTest::newRow("address") << u"txtIndStudio"_s << u"Non è stato specificato l'indirizzo!"_s;
    QTest::newRow("city") << u"txtCittaStudio"_s << u"Non è stato specificata la città!"_s;
    QTest::newRow("e-mail") << u"txtEMail"_s << u"Non è stata specificata la mail!"_s;
    QTest::newRow("program folder, on another tab")
        << u"txtDirectoryProc"_s << u"Non è stata specificata la cartella del Programma!"_s;
    QTest::newRow("archive") << u"txtArchivioCliCon"_s
                             << u"Non è stata specificato l'archivio Clienti/Controparti!"_s;
}

void TestFrmSetup::rifiuti()
{
    QFETCH(QString, Vuoto);
    QFETCH(QString, Messaggio);
    Registratore Box;
    Riempi();
    QVERIFY(MostraAttiva(*Modulo));
    for (const QString& Testo : {u""_s, u"   "_s}) {
        Modulo->ChangeTab(frmSetup::SchedaDatiContabili);
        Campo(Vuoto)->setText(Testo);
        Box.Attendi(Messaggio, vbOK, u"Errore:"_s);
        Memorizza();
        QTRY_COMPARE(QApplication::focusWidget(), Campo(Vuoto));
    }
    QCOMPARE(Box.Mostrato(0).Bandiere, vbCritical);
    QCOMPARE(Scena::Parametro(u"StudioCodFisc"_s), QString());
}

void TestFrmSetup::ordineDeiRifiuti()
{
    Registratore Box;
    Modulo->Mostra(0);
    for (const auto& [Nome, Messaggio] :
         {std::pair{u"txtNomeStudio"_s, u"Non è stato specificato il nome dello studio!"_s},
          std::pair{u"txtIndStudio"_s, u"Non è stato specificato l'indirizzo!"_s},
          std::pair{u"txtCittaStudio"_s, u"Non è stato specificata la città!"_s},
          std::pair{u"txtEMail"_s, u"Non è stata specificata la mail!"_s}}) {
        Box.Attendi(Messaggio);
        QVERIFY(!Modulo->CheckValori());
        Campo(Nome)->setText(u"x"_s);
    }
    Campo(u"txtDirectoryProc"_s)->clear();
    Campo(u"txtArchivioCliCon"_s)->clear();
    Box.Attendi(u"Non è stata specificata la cartella del Programma!"_s);
    QVERIFY(!Modulo->CheckValori());
    Campo(u"txtDirectoryProc"_s)->setText(u"x"_s);
    Box.Attendi(u"Non è stata specificato l'archivio Clienti/Controparti!"_s);
    QVERIFY(!Modulo->CheckValori());
    Campo(u"txtArchivioCliCon"_s)->setText(u"x"_s);
    QVERIFY(Modulo->CheckValori());
}

void TestFrmSetup::memorizza()
{
    Registratore Box;
    Riempi();
    Box.Attendi(Memorizzate, vbOK, u"Messaggio:"_s);
    Memorizza();
    for (const auto& [Nome, Chiave] : Chiavi)
        QCOMPARE(Scena::Parametro(Chiave), u"nuovo "_s + Chiave);
    QCOMPARE(sessione::StudioNome, u"nuovo StudioNome"_s);
    QCOMPARE(sessione::Iban, u"nuovo Iban"_s);
    QVERIFY2(Modulo->isVisible(), "opened by the user, it stays");
}

/// A row without a page that saves it would be read for ever at its default.
void TestFrmSetup::ogniImpostazioneHaChiLaScrive()
{
    const QStringList Altrove{
        u"Tariffa"_s,              // stored once it is chosen, so that the decree in force stays the default
        u"RicordaCalcoli"_s,       // by the list of the last calculations
        u"LogoImpronta"_s,         // once there is a logo: an empty one says that it was taken away
        u"ServerAggiornamenti"_s,  // by who looks after the machines of an office
    };
    const QString Mai = u"mai scritta"_s;
    Registratore Box;
    Riempi();
    Box.Attendi(Memorizzate);
    Memorizza();
    QStringList NonScritte;
    for (const VoceImpostazione& Voce : VociImpostazioni()) {
        const QString Chiave = Voce.Chiave.toString();
        if (GetSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave, Mai) == Mai)
            NonScritte << Chiave;
    }
    QCOMPARE(NonScritte.join(u", "_s), Altrove.join(u", "_s));
}

void TestFrmSetup::memorizzaConUnaParcellaAperta()
{
    Registratore Box;
    Riempi();
    Scena::ApriPosti(1);
    Box.Attendi(Memorizzate, vbOK, u"Messaggio:"_s);
    Box.Attendi(u"Per essere certi della piena operatività è consigliabile riavviare il programma."_s, vbOK,
                u"Messaggio:"_s);
    Memorizza();
}

void TestFrmSetup::memorizzaNonRiesce()
{
    Registratore Box;
    Riempi();
    // A folder stands where the store should be.
    QVERIFY(QFile::remove(Scena::FileImpostazioni()));
    QVERIFY(QDir().mkpath(Scena::FileImpostazioni() + u"/x"_s));
    Box.Attendi(Scena::RifiutoImpostazioni(), vbOK, u"Errore:"_s);
    Memorizza();
    // Closing it now tells nothing more.
    Modulo->close();
    QVERIFY(QDir(Scena::FileImpostazioni()).removeRecursively());
    QCOMPARE(sessione::StudioNome, QString());
    QCOMPARE(Campo(u"txtNomeStudio"_s)->text(), u"nuovo StudioNome"_s);
}

/// Of two programs each stores what its user has changed. The form then shows what the other one has.
void TestFrmSetup::quelCheHaScrittoUnAltroResta()
{
    Registratore Box;
    Riempi();
    Campo(u"txtIBAN"_s)->setText(u"IT60X0542811101000000123456"_s);
    Box.Attendi(Memorizzate);
    Memorizza();
    Scena::Salva(u"Iban"_s, u"IT02L1234512345123456789012"_s);
    Scena::Salva(u"StudioMail"_s, u"altro@studio.it"_s);
    Scena::Salva(u"CP"_s, u"5"_s);
    Campo(u"txtCittaStudio"_s)->setText(u"Pisa"_s);
    Campo(u"txtEMail"_s)->setText(u"mio@studio.it"_s);
    for (int Volta = 0; Volta < 2; ++Volta) {
        Box.Attendi(Memorizzate);
        Memorizza();
        QCOMPARE(Scena::Parametro(u"Iban"_s), u"IT02L1234512345123456789012"_s);
        QCOMPARE(Scena::Parametro(u"CP"_s), u"5"_s);
        QCOMPARE(Scena::Parametro(u"StudioCitta"_s), u"Pisa"_s);
        // What both have changed is as the last one wants it.
        QCOMPARE(Scena::Parametro(u"StudioMail"_s), u"mio@studio.it"_s);
        QCOMPARE(Campo(u"txtIBAN"_s)->text(), u"IT02L1234512345123456789012"_s);
    }
}

/// Texts longer than may be typed, from the hand of whoever wrote the file.
void TestFrmSetup::quelCheLaCasellaNonTieneResta()
{
    const QString Lungo(1500, u'x');
    QStringList Lunghe{u"PostaOggetto"_s, u"StudioVia"_s, u"StudioTitolareNome"_s, u"WP"_s};
    for (const auto& [Nome, Chiave] : Chiavi)
        Lunghe << Chiave;
    for (const QString& Chiave : std::as_const(Lunghe))
        Scena::Salva(Chiave, Lungo);
    Registratore Box;
    Modulo->Mostra(0);
    for (const auto& [Nome, Chiave] : Chiavi)
        QCOMPARE(Campo(Nome)->text(), Lungo);
    Campo(u"txtCittaStudio"_s)->setText(u"Pisa"_s);
    Box.Attendi(Memorizzate);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"StudioCitta"_s), u"Pisa"_s);
    Lunghe.removeOne(u"StudioCitta"_s);
    for (const QString& Chiave : std::as_const(Lunghe))
        QVERIFY2(Scena::Parametro(Chiave) == Lungo, qPrintable(Chiave));
    QCOMPARE(Campo(u"txtCittaStudio"_s)->maxLength(), 200);
}

void TestFrmSetup::quelCheIlFileHaPersoTorna_data()
{
    QTest::addColumn<int>("Come");

    for (const int Come : {Troncato, Svuotato, Mancante})
        QTest::newRow(NomiDanni[size_t(Come)]) << Come;
    QTest::newRow("another program's few lines") << int(Danni);
}

/// A file that is lost while the form is open takes nothing of what the form has on view with it.
void TestFrmSetup::quelCheIlFileHaPersoTorna()
{
    QFETCH(int, Come);
    Registratore Box;
    Riempi();
    Box.Attendi(Memorizzate);
    Memorizza();
    const QString File = Scena::FileImpostazioni();
    if (Come == Danni)
        ScriviFile(File, "[Parametri]\nstudiocitta=Pisa\n");
    else
        Rovina(File, Come);
    for (int Volta = 0; Volta < 2; ++Volta) {
        Box.Attendi(Memorizzate);
        Memorizza();
        for (const auto& [Nome, Chiave] : Chiavi)
            QCOMPARE(Scena::Parametro(Chiave),
                     Come == Danni && Chiave == u"StudioCitta" ? u"Pisa"_s : u"nuovo "_s + Chiave);
        QCOMPARE(Scena::Parametro(u"PercorsoProcedura"_s), ProgrammaDiProva());
        QCOMPARE(Scena::Parametro(u"CP"_s), u"4"_s);
    }
}

void TestFrmSetup::ridisegnaLaScrivania()
{
    Registratore Box;
    S->Preparata();
    frmStudio& Scrivania = Singola<frmStudio>();
    Scrivania.Mostra();
    Respiro();
    Scena::Salva(u"CercaAgg"_s, u"N"_s);
    Scena::Salva(u"ColoreSfondoDesktop"_s, u"255"_s);
    Scena::Salva(u"SfondoDesktop"_s, {});
    Riempi();
    Box.Attendi(Memorizzate);
    Memorizza();
    // Behind the form the desktop is not activated: it follows by itself.
    Respiro();
    QCOMPARE(Scrivania.grab().toImage().pixelColor(2, 2), QColor(255, 0, 0));
}

void TestFrmSetup::modaleSiChiudeDopoAverMemorizzato()
{
    Registratore Box;
    Box.Attendi(Memorizzate);
    bool Modale = false;
    QTimer::singleShot(0, this, [&] {
        Modale = Modulo->isModal();
        for (const auto& [Nome, Chiave] : Chiavi)
            Campo(Nome)->setText(u"x"_s);
        Memorizza();
    });
    Modulo->MostraModale(0);
    QVERIFY(Modale);
    QVERIFY(!Modulo->isVisible());
    QCOMPARE(sessione::StudioNome, u"x"_s);
}

void TestFrmSetup::modaleGiaApertaVieneDavanti()
{
    QVERIFY(MostraAttiva(*Modulo));
    QWidget Altra;
    QVERIFY(MostraAttiva(Altra));
    Modulo->MostraModale(frmSetup::SchedaSetup);
    QVERIFY(QTest::qWaitForWindowActive(Modulo));
    QVERIFY(Modulo->isVisible());
    QCOMPARE(Modulo->findChild<QTabWidget*>(u"tabSetup"_s)->currentIndex(), int(frmSetup::SchedaSetup));
}

void TestFrmSetup::chiudereNonCambiaNulla()
{
    const Registratore Box;
    Scena::Salva(u"StudioNome"_s, u"prima"_s);
    Riempi();
    QTest::mouseClick(Modulo->findChild<QWidget*>(u"cmdChiudi"_s), Qt::LeftButton);
    QVERIFY(!Modulo->isVisible());
    QCOMPARE(Scena::Parametro(u"StudioNome"_s), u"prima"_s);
    Modulo->Mostra(0);
    QCOMPARE(Campo(u"txtNomeStudio"_s)->text(), u"prima"_s);
}

void TestFrmSetup::escChiede_data()
{
    QTest::addColumn<int>("Scheda");
    QTest::addColumn<QString>("Controllo");
    QTest::newRow("text") << int(frmSetup::SchedaDatiStudio) << u"txtFirma"_s;
    QTest::newRow("rate") << int(frmSetup::SchedaDatiContabili) << u"txtIVA"_s;
    QTest::newRow("folder") << int(frmSetup::SchedaSetup) << u"txtParcellePath"_s;
    QTest::newRow("invoice") << int(frmSetup::SchedaFatturaElettronica) << u"txtProgTrasm"_s;
    QTest::newRow("mail") << int(frmSetup::SchedaDeiDocumenti) << u"txtPostaOggetto"_s;
}

void TestFrmSetup::escChiede()
{
    QFETCH(int, Scheda);
    QFETCH(QString, Controllo);
    const QString Domanda = u"Le modifiche alle impostazioni non sono state memorizzate.\n"
                            "Chiudere senza memorizzarle?"_s;
    Modulo->Mostra(Scheda);
    QVERIFY(QTest::qWaitForWindowActive(Modulo));
    QVERIFY2(Campo(Controllo), qPrintable(Controllo));
    const QString Prima = Campo(Controllo)->text();
    Campo(Controllo)->setFocus();
    QTest::keyClick(Campo(Controllo), Qt::Key_End);
    QTest::keyClick(Campo(Controllo), Qt::Key_7);
    QVERIFY(Campo(Controllo)->text() != Prima);
    const QString Scritto = Campo(Controllo)->text();
    Registratore Box;
    Box.Attendi(Domanda, vbNo, u"Domanda:"_s);
    QTest::keyClick(Campo(Controllo), Qt::Key_Escape);
    QVERIFY(Modulo->isVisible());
    QCOMPARE(Campo(Controllo)->text(), Scritto);
    Box.Attendi(Domanda, vbYes, u"Domanda:"_s);
    QTest::keyClick(Campo(Controllo), Qt::Key_Escape);
    QVERIFY(!Modulo->isVisible());
    Modulo->Mostra(Scheda);
    QCOMPARE(Campo(Controllo)->text(), Prima);
    Modulo->hide();
}

/// Read again, walked through, stored: nothing to ask about.
void TestFrmSetup::escSenzaModifiche()
{
    Registratore Box;
    Riempi();
    Box.Attendi(Memorizzate);
    Memorizza();
    QTest::keyClick(Modulo, Qt::Key_Escape);
    QVERIFY(!Modulo->isVisible());
    Modulo->Mostra(0);
    QVERIFY(QTest::qWaitForWindowActive(Modulo));
    for (int Scheda = 0; Scheda < Modulo->findChild<QTabWidget*>(u"tabSetup"_s)->count(); ++Scheda) {
        Modulo->ChangeTab(Scheda);
        constexpr int Fermate = 25;
        for (int i = 0; i < Fermate; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QTest::keyClick(Modulo, Qt::Key_Escape);
    QVERIFY(!Modulo->isVisible());
    // The cross and the button do as ever.
    Riempi();
    Campo(u"txtFirma"_s)->setText(u"altra"_s);
    QTest::mouseClick(Modulo->findChild<QWidget*>(u"cmdChiudi"_s), Qt::LeftButton);
    QVERIFY(!Modulo->isVisible());
}

void TestFrmSetup::aprirlaDueVolteNonPerdeIlTesto()
{
    Riempi();
    Modulo->Mostra(0);
    QCOMPARE(Campo(u"txtNomeStudio"_s)->text(), u"nuovo StudioNome"_s);
}

void TestFrmSetup::ricordaIlPosto()
{
    Modulo->Mostra(0);
    const QRect Schermo = Modulo->screen()->availableGeometry();
    QVERIFY(Schermo.contains(Modulo->geometry()));
    // In the middle together with its title bar, whose height is the window manager's.
    constexpr int TitoloAlto = 48;
    QVERIFY(std::abs(Modulo->geometry().center().x() - Schermo.center().x()) <= 2);
    QVERIFY(std::abs(Modulo->geometry().center().y() - Schermo.center().y()) <= TitoloAlto);
    ProvaPosto(u"frmSetup"_s, [this] {
        delete Modulo;
        Modulo = &Singola<frmSetup>();
        Modulo->Mostra(0);
        return Modulo;
    });
}

void TestFrmSetup::ordineDelTabulatore()
{
    QVERIFY(MostraAttiva(*Modulo));
    Modulo->Mostra(0);
    Campo(u"txtNomeStudio"_s)->setFocus();
    QStringList Passati;
    for (qsizetype i = 0; i < Chiavi.size() + 4; ++i) {
        Passati << QApplication::focusWidget()->objectName();
        Premi(Qt::Key_Tab);
    }
    QStringList Attesi;
    for (const auto& [Nome, Chiave] : Chiavi)
        Attesi << Nome;
    Attesi << u"cmdHelp"_s << u"cmdSaveImpost"_s << u"cmdChiudi"_s;
    QCOMPARE(Passati.first(Attesi.size()), Attesi);
}

/// From whatever field a page begins with, a list too.
void TestFrmSetup::ctrlTabGiraLeSchede()
{
    QVERIFY(MostraAttiva(*Modulo));
    Modulo->Mostra(0);
    const auto* Schede = Modulo->findChild<QTabWidget*>(u"tabSetup"_s);
    for (int Passo = 1; Passo <= Schede->count(); ++Passo) {
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_Tab, u"\t"_s,
                            Qt::ControlModifier);
        QCOMPARE(Schede->currentIndex(), Passo % Schede->count());
    }
    QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_Backtab, u"\t"_s,
                        Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Schede->currentIndex(), Schede->count() - 1);
}

void TestFrmSetup::changeTabFuoriDaiLimiti()
{
    const auto* Schede = Modulo->findChild<QTabWidget*>(u"tabSetup"_s);
    for (const int Quale : {-1, 6, 99}) {
        Modulo->ChangeTab(Quale);
        QCOMPARE(Schede->currentIndex(), 0);
    }
}

void TestFrmSetup::ogniControlloHaUnNome()
{
    QCOMPARE(SenzaNome(Modulo).join(u", "_s), QString());
}

#include "TestFrmSetup.moc"
