#include "core/settings/tavolosetup.h"
#include "platform/system/attese.h"

#include "core/settings/frmSfoglia.h"
#include "platform/base/numerierrore.h"
#include "supporto/cartellaferma.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QScopedValueRollback>
#include <QTimer>

#include <memory>
#include <mutex>

class TestSetupCartelle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { T = std::make_unique<TavoloSetup>(); }
    void cleanup() { T.reset(); }

    void predefiniti();
    void memorizza();
    void parcelleSenzaBarra();
    void parcelleVuote();
    void parcelleConservateVuote();
    void archivioCompletato_data();
    void archivioCompletato();
    void programmaMaiScelto();
    void wordProcessor();
    void aggiornamenti();
    void senzaServer();
    void cartellaMancante();
    void cartellaCheNonRisponde();
    void siChiedeDietroLUltimoTasto();
    void creaParcelle();
    void creaNonRiesce();
    void scegliCartella_data();
    void scegliCartella();
    void scegliFile_data();
    void scegliFile();
    void tassiNellaCartellaNuova();
    void laCartellaUtenteDiUnAltro_data();
    void laCartellaUtenteDiUnAltro();
    void importa();
    void lArchivioImportato();

private:
    QLabel* Avviso(int Quale) { return T->Trova<QLabel>(u"lblManca_%1"_s.arg(Quale)); }

    std::unique_ptr<TavoloSetup> T;
};
PROVA(TestSetupCartelle);

void TestSetupCartelle::predefiniti()
{
    QFile::remove(Scena::FileImpostazioni());
    T->Apri(2);
    QCOMPARE(T->Campo(u"txtDirectoryProc"_s)->text(), CartellaEseguibile());
    QCOMPARE(T->Campo(u"txtArchivioCliCon"_s)->text(), CartellaEseguibile() + u"DatiStudio.mdb"_s);
    QCOMPARE(T->Campo(u"txtParcellePath"_s)->text(), Barra(CartellaEseguibile() + u"Parcelle"_s));
    QCOMPARE(T->Campo(u"txtCartellaUtente"_s)->text(), QString());
    QCOMPARE(T->Campo(u"txtWordProcessor"_s)->text(), QString());
    QVERIFY(T->Trova<QCheckBox>(u"chkCercaAgg"_s)->isChecked());
}

void TestSetupCartelle::memorizza()
{
    Registratore Box;
    const QString Note = NuovaCartella();
    T->Apri(2);
    T->Scrivi(u"txtParcellePath"_s, Note);
    T->Scrivi(u"txtArchivioCliCon"_s, T->Programma + u"Altro.mdb"_s);
    T->Scrivi(u"txtWordProcessor"_s, u"/usr/bin/word"_s);
    T->Memorizza(Box);
    QCOMPARE(sessione::ParcellePath, Note);
    QCOMPARE(sessione::ArchivioCliCon, T->Programma + u"Altro.mdb"_s);
    QCOMPARE(sessione::WP, u"/usr/bin/word"_s);
    QCOMPARE(sessione::PercorsoProg, T->Programma);
}

void TestSetupCartelle::parcelleSenzaBarra()
{
    Registratore Box;
    const QString Note = NuovaCartella();
    T->Apri(2);
    T->Scrivi(u"txtParcellePath"_s, Note.chopped(1));
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"ParcellePath"_s), Note.chopped(1));
    QCOMPARE(sessione::ParcellePath, Note);
}

/// Without a folder the office's notes would be out of reach: nothing is stored.
void TestSetupCartelle::parcelleVuote()
{
    Registratore Box;
    const QString Note = NuovaCartella();
    T->Salva(u"ParcellePath"_s, Note);
    ImpostaVariabili();
    T->Apri(2);
    T->Scrivi(u"txtParcellePath"_s, {});
    QCOMPARE(T->Campo(u"txtParcellePath"_s)->placeholderText(), u"obbligatorio"_s);
    T->Trova<QTabWidget>(u"tabSetup"_s)->setCurrentIndex(0);
    Box.Attendi(u"Non è stata specificata la cartella delle parcelle!"_s, vbOK, u"Errore:"_s);
    T->Premi(u"cmdSaveImpost"_s);
    QCOMPARE(T->Trova<QTabWidget>(u"tabSetup"_s)->currentIndex(), 2);
    QTRY_COMPARE(QApplication::focusWidget(), T->Campo(u"txtParcellePath"_s));
    QCOMPARE(T->Parametro(u"ParcellePath"_s), Note);
    QCOMPARE(sessione::ParcellePath, Note);
}

/// A file of settings that somebody has written with an empty folder: as one that does not name it.
void TestSetupCartelle::parcelleConservateVuote()
{
    Registratore Box;
    T->Salva(u"ParcellePath"_s, {});
    ImpostaVariabili();
    QCOMPARE(sessione::ParcellePath, T->Programma);
    CreaCartella(T->Programma + u"Parcelle"_s);
    ImpostaVariabili();
    QCOMPARE(sessione::ParcellePath, T->Programma + Barra(u"Parcelle"_s));
    T->Apri(2);
    QCOMPARE(T->Campo(u"txtParcellePath"_s)->text(), T->Programma + Barra(u"Parcelle"_s));
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"ParcellePath"_s), T->Programma + Barra(u"Parcelle"_s));
}

void TestSetupCartelle::archivioCompletato_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Conservato");

    const QChar Barra = QDir::separator();
    QTest::newRow("folder") << u"/studio"_s << u"%1studio%1DatiStudio.mdb"_s.arg(Barra);
    QTest::newRow("file") << u"/studio/A.MDB"_s << u"/studio/A.MDB"_s;
}

void TestSetupCartelle::archivioCompletato()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Conservato);
    Registratore Box;
    T->Apri(2);
    T->Scrivi(u"txtArchivioCliCon"_s, Testo);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"ArchivioCliCon"_s), Conservato);
    QCOMPARE(T->Campo(u"txtArchivioCliCon"_s)->text(), Conservato);
}

void TestSetupCartelle::programmaMaiScelto()
{
    Registratore Box;
    QFile::remove(Scena::FileImpostazioni());
    for (const QString& Chiave : {u"StudioNome"_s, u"StudioIndir"_s, u"StudioCitta"_s, u"StudioMail"_s})
        T->Salva(Chiave, u"x"_s);
    T->Apri(2);
    T->Memorizza(Box);
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"PercorsoProcedura"_s, u"manca"_s), u"manca"_s);
    // Another folder is a choice.
    T->Scrivi(u"txtDirectoryProc"_s, T->Programma);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"PercorsoProcedura"_s), T->Programma);
    // And so is the executable's from then on.
    T->Scrivi(u"txtDirectoryProc"_s, CartellaEseguibile());
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"PercorsoProcedura"_s), CartellaEseguibile());
}

void TestSetupCartelle::wordProcessor()
{
    Registratore Box;
    T->Salva(u"WP"_s, u"-1"_s);
    T->Apri(2);
    QCOMPARE(T->Campo(u"txtWordProcessor"_s)->text(), QString());
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"WP"_s), u"-1"_s);
}

void TestSetupCartelle::aggiornamenti()
{
    Registratore Box;
    T->Apri(2);
    auto* Cerca = T->Trova<QCheckBox>(u"chkCercaAgg"_s);
    Cerca->setChecked(false);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"CercaAgg"_s), u"N"_s);
    QVERIFY(!sessione::CercaAgg);
    Cerca->setChecked(true);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"CercaAgg"_s), u"S"_s);
}

void TestSetupCartelle::senzaServer()
{
    // Without a server the wish is kept and has no effect: the page says so while it lasts.
    T->Apri(2);
    const auto* Riga = T->Trova<QLabel>(u"lblSenzaServer"_s);
    const auto* Cerca = T->Trova<QCheckBox>(u"chkCercaAgg"_s);
    QVERIFY(Riga->isVisible());
    QVERIFY(Riga->text().startsWith(u"Nessun server di aggiornamento è impostato"));
    QCOMPARE(Cerca->accessibleDescription(), Riga->text());
    QVERIFY(Cerca->isEnabled());
    T->Trova<QWidget>(u"cmdChiudi"_s)->window()->close();
    T->Salva(u"ServerAggiornamenti"_s, u"https://aggiorna.example"_s);
    T->Apri(2);
    QVERIFY(!Riga->isVisible());
    QCOMPARE(Cerca->accessibleDescription(), QString());
}

void TestSetupCartelle::cartellaMancante()
{
    Registratore Box;
    const QString Nuova = T->Utente + u"nuova"_s;
    T->Apri(2);
    QVERIFY(!Avviso(3)->isVisible());
    T->Scrivi(u"txtCartellaUtente"_s, Nuova);
    QTRY_VERIFY(Avviso(3)->isVisible());
    QCOMPARE(Avviso(3)->text(), u"Questa cartella non esiste"_s);
    T->Premi(u"cmdCrea_3"_s);
    QVERIFY(EsisteCartella(Nuova));
    QVERIFY(!Avviso(3)->isVisible());
    QVERIFY(!T->Trova<QWidget>(u"cmdCrea_3"_s)->isVisible());
    // An archive that is not there is marked; nothing makes one.
    T->Scrivi(u"txtArchivioCliCon"_s, Nuova);
    QTRY_VERIFY(Avviso(1)->isVisible());
    QVERIFY(!T->Trova<QWidget>(u"cmdCrea_1"_s));
}

/// The box in which a folder that hangs is changed must not hang with it.
void TestSetupCartelle::cartellaCheNonRisponde()
{
    const Registratore Box;
    const QString Ferma = NuovaCartella();
    T->Salva(u"ParcellePath"_s, Ferma);
    const QScopedValueRollback Attesa(attese::CartellaMs, 200);
    const CartellaFerma Rete(Ferma);
    QElapsedTimer Orologio;
    Orologio.start();
    T->Apri(2);
    QVERIFY2(Orologio.elapsed() < 2000, qPrintable(QString::number(Orologio.elapsed())));
    QVERIFY(!Avviso(2)->isVisible());
}

void TestSetupCartelle::siChiedeDietroLUltimoTasto()
{
    const Registratore Box;
    T->Apri(2);
    std::mutex Turno;
    QStringList Chieste;
    guasti::PrimaDiScorrere = [&](const QString& Cartella) {
        const std::lock_guard Mio(Turno);
        Chieste.append(Cartella);
    };
    T->Scrivi(u"txtCartellaUtente"_s, u"/manca/davvero"_s);
    QCOMPARE(Chieste, QStringList());
    QTRY_VERIFY(Avviso(3)->isVisible());
    AttendiLavoriAParte(10000);
    guasti::PrimaDiScorrere = {};
    QCOMPARE(Chieste, QStringList(u"/manca/davvero"_s));
}

void TestSetupCartelle::creaParcelle()
{
    const Registratore Box;
    const QString Note = T->Utente + u"mie/parcelle"_s;
    T->Apri(2);
    T->Scrivi(u"txtParcellePath"_s, Note);
    QTRY_VERIFY(Avviso(2)->isVisible());
    T->Premi(u"cmdCrea_2"_s);
    QVERIFY(EsisteCartella(Note + u"/Modelli"_s));
}

void TestSetupCartelle::creaNonRiesce()
{
    Registratore Box;
    T->Apri(2);
    ScriviFile(T->Utente + u"file"_s, "x");
    T->Scrivi(u"txtCartellaUtente"_s, T->Utente + u"file/sotto"_s);
    QTRY_VERIFY(Avviso(3)->isVisible());
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(errori::Accesso) + u" (75)"_s, vbOK, u"Errore:"_s);
    T->Premi(u"cmdCrea_3"_s);
    QVERIFY(Avviso(3)->isVisible());
}

void TestSetupCartelle::scegliCartella_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<QString>("Casella");

    QTest::newRow("program") << 0 << u"txtDirectoryProc"_s;
    QTest::newRow("notes") << 2 << u"txtParcellePath"_s;
    QTest::newRow("user") << 3 << u"txtCartellaUtente"_s;
}

void TestSetupCartelle::scegliCartella()
{
    QFETCH(int, Quale);
    QFETCH(QString, Casella);
    const Registratore Box;
    T->Apri(2);
    const QString Scelta = NuovaCartella();
    T->Scrivi(Casella, Scelta);
    bool Aperto = false;
    QTimer::singleShot(0, this, [&] {
        auto* Sfoglia = qobject_cast<frmSfoglia*>(QApplication::activeModalWidget());
        QVERIFY(Sfoglia);
        Aperto = true;
        Sfoglia->cmdSeleziona_Click();
    });
    T->Campo(Casella)->setText(Scelta.chopped(1));
    T->Premi(u"cmdSelDir_%1"_s.arg(Quale));
    QVERIFY(Aperto);
    QCOMPARE(T->Campo(Casella)->text(), Scelta);
}

void TestSetupCartelle::scegliFile_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<QString>("Casella");
    QTest::addColumn<QString>("Scelto");
    QTest::addColumn<QString>("Filtro");

    QTest::newRow("archive") << 1 << u"txtArchivioCliCon"_s << u"/studio/Altro.mdb"_s
                             << u"Applicazione (*.mdb)|*.mdb"_s;
    QTest::newRow("word processor") << 4 << u"txtWordProcessor"_s << u"/usr/bin/word"_s
                                    << u"Applicazione (*.exe)|*.exe"_s;
}

void TestSetupCartelle::scegliFile()
{
    QFETCH(int, Quale);
    QFETCH(QString, Casella);
    QFETCH(QString, Scelto);
    Registratore Box;
    T->Apri(2);
    const QString Prima = T->Campo(Casella)->text();
    Box.AttendiApri({});
    T->Premi(u"cmdSelDir_%1"_s.arg(Quale));
    QCOMPARE(T->Campo(Casella)->text(), Prima);
    QTEST(Box.FiltroDialogo().section(u"|Tutti"_s, 0, 0), "Filtro");
    Box.AttendiApri(Scelto);
    T->Premi(u"cmdSelDir_%1"_s.arg(Quale));
    QCOMPARE(T->Campo(Casella)->text(), Scelto);
}

void TestSetupCartelle::tassiNellaCartellaNuova()
{
    Registratore Box;
    bool Lasciata = false;
    QString Allora;
    Aperture.LasciaCartellaUtente = [&] {
        Lasciata = true;
        Allora = sessione::UserFolder;
    };
    T->Apri(2);
    T->Memorizza(Box);
    QVERIFY2(!Lasciata, "the folder is the same");
    const QString Nuova = NuovaCartella();
    T->Scrivi(u"txtCartellaUtente"_s, Nuova);
    T->Memorizza(Box);
    // Recovery copies are dropped while the session still knows where they are.
    QVERIFY(Lasciata);
    QCOMPARE(Allora, T->Utente);
    QCOMPARE(sessione::UserFolder, Nuova);
}

void TestSetupCartelle::laCartellaUtenteDiUnAltro_data()
{
    QTest::addColumn<bool>("Prima");
    QTest::newRow("before the form opens") << true;
    QTest::newRow("while it is open") << false;
}

/// Another program has stored a user folder: this one takes it over with its next save, and leaves its own.
void TestSetupCartelle::laCartellaUtenteDiUnAltro()
{
    QFETCH(bool, Prima);
    Registratore Box;
    QStringList Lasciate;
    Aperture.LasciaCartellaUtente = [&] { Lasciate << sessione::UserFolder; };
    const QString Nuova = NuovaCartella();
    if (Prima)
        T->Salva(u"UserFolder"_s, Nuova);
    T->Apri(2);
    if (!Prima)
        T->Salva(u"UserFolder"_s, Nuova);
    T->Memorizza(Box);
    QCOMPARE(Lasciate, QStringList{T->Utente});
    QCOMPARE(sessione::UserFolder, Nuova);
    T->Memorizza(Box);
    QCOMPARE(Lasciate.size(), 1);
}

/// The button beside the archive is there where something imports.
void TestSetupCartelle::importa()
{
    const auto Prima = Aperture.Finestre;
    int Volte = 0;
    Aperture.Finestre[u"importa"_s] = [&] { ++Volte; };
    T->Apri(2);
    T->Premi(u"cmdImporta"_s);
    QCOMPARE(Volte, 1);
    Aperture.Finestre.erase(u"importa"_s);
    Singola<frmSetup>().close();
    T->Apri(2);
    QVERIFY(!T->Trova<QAbstractButton>(u"cmdImporta"_s)->isVisible());
    Aperture.Finestre = Prima;
}

/// An import that sets another archive shows it in the open form, but never over what is typed there.
void TestSetupCartelle::lArchivioImportato()
{
    frmSetup& F = T->Apri(2);
    const QString Nuovo = T->Utente + u"DatiStudio.mdb"_s;
    T->Salva(u"ArchivioCliCon"_s, Nuovo);
    F.SegueArchivio();
    QCOMPARE(T->Campo(u"txtArchivioCliCon"_s)->text(), Nuovo);
    T->Scrivi(u"txtArchivioCliCon"_s, u"/altro.mdb"_s);
    T->Salva(u"ArchivioCliCon"_s, T->Utente + u"terzo.mdb"_s);
    F.SegueArchivio();
    QCOMPARE(T->Campo(u"txtArchivioCliCon"_s)->text(), u"/altro.mdb"_s);
}

#include "TestSetupCartelle.moc"
