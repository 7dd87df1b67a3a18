#include "core/settings/tavolosetup.h"

#include "core/desktop/iconastudio.h"
#include "core/settings/frmIcons.h"
#include "platform/grid/griglia.h"

#include <QTimer>

#include <memory>

/// The icons of the form and those of the desktop, while the two differ.
class TestSetupIcone : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { T.reset(); }

    void senzaImpostazioniLaScrivaniaSegueLeIcone();
    void dalMenuDellaScrivania();
    void altraCartellaAltreIcone();
    void ogniSalvataggioLeRiscrive();
    void leIconeDiUnAltroRestano();
    void illeggibilePerUnMomento();
    void illeggibileAncheAlSalvataggio();
    void cartellaProgrammaSolaLettura();
    void senzaIconeNessunFile();

private:
    Griglia* Grigl() { return T->Trova<Griglia>(u"tdbIcone"_s); }
    QByteArray Ini() { return LeggiFile(T->Programma + u"kr5.ini"_s); }

    std::unique_ptr<TavoloSetup> T;
};
PROVA(TestSetupIcone);

void TestSetupIcone::init()
{
    T = std::make_unique<TavoloSetup>();
    ScriviFile(T->Programma + u"kr5.ini"_s, TavoloSetup::DueIcone());
}

void TestSetupIcone::senzaImpostazioniLaScrivaniaSegueLeIcone()
{
    Registratore Box;
    ScriviFile(T->Programma + u"kr5.ini"_s, "[desktop]\r\nL0=Sito\r\nL0_c=www.x.example\r\nL0_i=sito.gif\r\n"
                                            "L1=Altro\r\nL1_c=www.y.example\r\nL1_i=sito.gif\r\n");
    T->Salva(u"CercaAgg"_s, u"N"_s);
    ImpostaVariabili();
    frmStudio& Scrivania = Singola<frmStudio>();
    Scrivania.Mostra();
    Respiro();
    const int Fisse = Scrivania.NumeroIcone() - 2;
    T->Apri(3);
    Grigl()->ImpostaRigaCorrente(0);
    Box.Attendi(u"Confermi la cancellazione dell'icona Sito?"_s, vbYes);
    T->Premi(u"cmdDelIco"_s);
    // A folder stands where the store should be.
    QVERIFY(QFile::remove(Scena::FileImpostazioni()));
    QVERIFY(QDir().mkpath(Scena::FileImpostazioni() + u"/x"_s));
    Box.Attendi(Scena::RifiutoImpostazioni(), vbOK, u"Errore:"_s);
    T->Premi(u"cmdSaveImpost"_s);
    Respiro();
    QVERIFY(QDir(Scena::FileImpostazioni()).removeRecursively());
    QCOMPARE(Scrivania.NumeroIcone(), Fisse + 1);
    T->S().Eventi.clear();
    Scrivania.imgMenu(Fisse)->click();
    QCOMPARE(Scrivania.imgMenu(Fisse)->text(), u"Altro"_s);
    QCOMPARE(T->S().Eventi, QStringList{u"indirizzo http://www.y.example"_s});
}

void TestSetupIcone::dalMenuDellaScrivania()
{
    Registratore Box;
    LeggiIconeUtente();
    T->Apri(3);
    Grigl()->ImpostaRigaCorrente(0);
    Box.Attendi(u"Confermi la cancellazione dell'icona Sito?"_s, vbYes);
    T->Premi(u"cmdDelIco"_s);
    // On the desktop both are still there: the second is the form's first, the first is gone.
    TavoloSetup::NellEditor([](const frmIcons& Modulo) {
        QCOMPARE(Modulo.findChild<QLineEdit*>(u"txtTitIco"_s)->text(), u"Agenda"_s);
    });
    T->Modulo->ModificaIcona(1);
    T->Modulo->EliminaIcona(0);
    T->Modulo->EliminaIcona(2);
    QCOMPARE(Grigl()->Righe(), 1);
    // What was changed here is not what the desktop shows.
    TavoloSetup::NellEditor([](frmIcons& Modulo) {
        TavoloSetup::Riempi(Modulo, u"Agenda nuova"_s, u"/opt/agenda2"_s);
        Modulo.cmdSalvaIco_Click();
    });
    T->Modulo->ModificaIcona(1);
    T->Modulo->EliminaIcona(1);
    QCOMPARE(Grigl()->Righe(), 1);
}

void TestSetupIcone::altraCartellaAltreIcone()
{
    Registratore Box;
    const QString Altra = NuovaCartella();
    const QByteArray Sue = "[desktop]\r\nL0=Suo\r\nL0_c=www.z.example\r\nL0_i=sito.gif\r\n";
    ScriviFile(Altra + u"kr5.ini"_s, Sue);
    T->Apri(3);
    QCOMPARE(Grigl()->Righe(), 2);
    T->Campo(u"txtCartellaUtente"_s)->setText(Altra);
    T->Memorizza(Box);
    QCOMPARE(Grigl()->Righe(), 1);
    // The form goes on with the icons of the new folder.
    TavoloSetup::NellEditor([](frmIcons& Modulo) {
        TavoloSetup::Riempi(Modulo, u"Tribunale"_s, u"https://tribunale.example"_s);
        Modulo.cmdSalvaIco_Click();
    });
    T->Premi(u"cmdAddIco"_s);
    T->Memorizza(Box);
    const TabellaRighe Salvate = LeggiIcone();
    QCOMPARE(Salvate.Righe(), 2);
    QCOMPARE(Salvate(0, IconaTitolo).toString(), u"Suo"_s);
    QCOMPARE(Salvate(1, IconaTitolo).toString(), u"Tribunale"_s);
    QCOMPARE(LeggiFile(T->Programma + u"kr5.ini"_s), TavoloSetup::DueIcone());
    // An icon that is added together with another folder belongs to the former one, and the save says so.
    TavoloSetup::NellEditor([](frmIcons& Modulo) {
        TavoloSetup::Riempi(Modulo, u"Terza"_s, u"https://terza.example"_s);
        Modulo.cmdSalvaIco_Click();
    });
    T->Premi(u"cmdAddIco"_s);
    T->Campo(u"txtCartellaUtente"_s)->setText(T->Utente);
    Box.Attendi(u"Le impostazioni sono state memorizzate!"_s, vbOK, u"Messaggio:"_s);
    Box.Attendi(u"Le icone personali aggiunte o modificate valgono per la cartella utente di prima: quella "
                u"nuova ha le sue."_s,
                vbOK, u"Messaggio:"_s);
    T->Premi(u"cmdSaveImpost"_s);
    QVERIFY(LeggiFile(Altra + u"kr5.ini"_s).contains("L2=Terza"));
    QCOMPARE(Grigl()->Righe(), 2);
}

void TestSetupIcone::ogniSalvataggioLeRiscrive()
{
    // The list ends at the icon without a picture: what stands behind it has no place in the file.
    Registratore Box;
    ScriviFile(T->Programma + u"kr5.ini"_s, "[desktop]\r\nL0=Sito\r\nL0_c=www.x.example\r\nL0_i=sito.gif\r\n"
                                            "; una nota\r\nL1=Senza figura\r\nL1_c=/opt/b\r\n"
                                            "L2=Agenda\r\nL2_c=/opt/agenda\r\nL2_i=agenda.gif\r\n");
    T->Apri(3);
    T->Memorizza(Box);
    QCOMPARE(Ini(), "[desktop]\r\n; una nota\r\nL0=Sito\r\nL0_c=www.x.example\r\nL0_i=sito.gif\r\n");

    // What cannot be written is told, although no icon was changed.
    ImpostaSolaLettura(T->Programma + u"kr5.ini"_s, true);
    sessione::UserFolder = T->Utente + u"manca"_s;
    Box.Attendi(u"Errore scrittura .ini"_s, vbOK, u"Errore:"_s);
    T->Memorizza(Box);
}

void TestSetupIcone::leIconeDiUnAltroRestano()
{
    Registratore Box;
    T->Apri(3);
    const QByteArray DiAltri = TavoloSetup::DueIcone() + "L2=Terza\r\nL2_c=/opt/terza\r\nL2_i=c.gif\r\n";
    ScriviFile(T->Programma + u"kr5.ini"_s, DiAltri);
    T->Memorizza(Box);
    QCOMPARE(Ini(), DiAltri);
    QCOMPARE(Grigl()->Righe(), 3);
}

void TestSetupIcone::illeggibilePerUnMomento()
{
    // An empty list is not what the file holds.
    Registratore Box;
    const QString File = T->Programma + u"kr5.ini"_s;
    QVERIFY(QFile::remove(File));
    CreaCartella(File);
    Box.Attendi(u"75 Errore di accesso al percorso o al file: "_s + File);
    T->Apri(3);
    QDir().rmdir(File);
    ScriviFile(File, TavoloSetup::DueIcone());
    T->Memorizza(Box);
    QCOMPARE(Ini(), TavoloSetup::DueIcone());
    QCOMPARE(Grigl()->Righe(), 2);
}

void TestSetupIcone::illeggibileAncheAlSalvataggio()
{
    // Nothing is known of the office's icons: no list of none takes their place.
    Registratore Box;
    const QString File = T->Programma + u"kr5.ini"_s;
    QVERIFY(QFile::remove(File));
    CreaCartella(File);
    const QString Illeggibile = u"75 Errore di accesso al percorso o al file: "_s + File;
    Box.Attendi(Illeggibile);
    T->Apri(3);
    Box.Attendi(u"Errore scrittura .ini"_s, vbOK, u"Errore:"_s);  // the damage itself is told once
    T->Memorizza(Box);
    QVERIFY(!QFile::exists(T->Utente + u"kr5.ini"_s));
}

void TestSetupIcone::cartellaProgrammaSolaLettura()
{
    // Who has changed no icon goes on with those of the program folder, whatever they are later.
    Registratore Box;
    ImpostaSolaLettura(T->Programma + u"kr5.ini"_s, true);
    T->Apri(3);
    Box.Attendi(u"Errore scrittura .ini"_s, vbOK, u"Errore:"_s);
    T->Memorizza(Box);
    QVERIFY(!QFile::exists(T->Utente + u"kr5.ini"_s));
    TavoloSetup::NellEditor([](frmIcons& Modulo) {
        TavoloSetup::Riempi(Modulo, u"Tribunale"_s, u"https://tribunale.example"_s);
        Modulo.cmdSalvaIco_Click();
    });
    T->Premi(u"cmdAddIco"_s);
    T->Memorizza(Box);
    QVERIFY(LeggiFile(T->Utente + u"kr5.ini"_s).contains("L2=Tribunale"));
    QCOMPARE(Ini(), TavoloSetup::DueIcone());
}

void TestSetupIcone::senzaIconeNessunFile()
{
    Registratore Box;
    QVERIFY(QFile::remove(T->Programma + u"kr5.ini"_s));
    T->Apri(3);
    T->Memorizza(Box);
    QVERIFY(!QFile::exists(T->Programma + u"kr5.ini"_s) && !QFile::exists(T->Utente + u"kr5.ini"_s));
}

#include "TestSetupIcone.moc"
