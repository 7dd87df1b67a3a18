// Two notes, their messages and their ends: who has the focus afterwards, and whether the keys mean the note
// on view.
#include "programma.h"

#include <QDirIterator>

using namespace Qt::StringLiterals;

class TestNote : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void nuovaHaIlFuoco();
    void dueParcelle();
    void chiusaUnaSiSalvaLAltra();
    void ilFuocoTornaDaUnMessaggio();
    void annullareUnaChiusura();
    void sessioneBassa();

private:
    std::unique_ptr<Programma> P;
};
PROVA(TestNote);

void TestNote::init()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
}

void TestNote::cleanup()
{
    if (QTest::currentTestFailed())
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

void TestNote::nuovaHaIlFuoco()
{
    ATTENDI(u"fuoco"_s, "txtCliente");
    P->Digita(u"Bianchi"_s);
    ATTENDI(u"testo txtCliente"_s, "Bianchi");
}

/// From one to the other by Ctrl+Tab and by the mouse: the keys mean the one in front. The first is closed
/// from behind and the second goes on.
void TestNote::dueParcelle()
{
    P->Digita(u"Bianchi"_s);
    P->Premi(u"ctrl+n"_s);
    ATTENDI(u"attiva"_s, "Calcanova 3 - [Nuova parcella:2]|Nuova parcella:2");
    ATTENDI(u"fuoco"_s, "txtCliente");
    P->Digita(u"Verdi"_s);
    ATTENDI(u"testo txtCliente"_s, "Verdi");
    P->Premi(u"ctrl+Tab"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).endsWith(u"|Nuova parcella"));
    ATTENDI(u"testo txtCliente"_s, "Bianchi");
    ATTENDI(u"fuoco"_s, "txtCliente");
    P->Premi(u"End"_s);
    P->Digita(u" Ugo"_s);
    ATTENDI(u"testo txtCliente"_s, "Bianchi Ugo");
    P->Premi(u"ctrl+Tab"_s);
    ATTENDI(u"testo txtCliente"_s, "Verdi");
    P->Premi(u"ctrl+Tab"_s);
    ATTENDI(u"testo txtCliente"_s, "Bianchi Ugo");
    P->Premi(u"ctrl+w"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"Vuoi salvare"));
    P->Rispondi(u"Right"_s);  // from Yes to No
    P->Premi(u"Return"_s);
    ATTENDI(u"messaggio"_s, "");
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).contains(u"|Nuova parcella:2"));
    ATTENDI(u"fuoco"_s, "txtCliente");
    P->Premi(u"End"_s);
    P->Digita(u" Pia"_s);
    ATTENDI(u"testo txtCliente"_s, "Verdi Pia");
    P->Premi(u"ctrl+Next"_s);
    ATTENDI_CHE(!P->Messaggio().isEmpty());  // its own parameters are asked for
    P->Rispondi(u"Return"_s);
    ATTENDI(u"messaggio"_s, "");
    P->Premi(u"ctrl+s"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).contains(u"Salva"));
    P->Premi(u"Escape"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).contains(u"|Nuova parcella:2"));
}

void TestNote::chiusaUnaSiSalvaLAltra()
{
    P->Clic(u"txtCliente"_s);
    P->Digita(u"Bianchi"_s);
    P->Premi(u"ctrl+n"_s);
    ATTENDI(u"testo txtCliente"_s, "");
    P->Premi(u"ctrl+w"_s);
    ATTENDI(u"testo txtCliente"_s, "Bianchi");
    ATTENDI_CHE(!P->Fuoco().isEmpty());
    P->Premi(u"ctrl+s"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).contains(u"Salva"));
    P->Digita(u"bianchi prova"_s);
    P->Premi(u"Return"_s);
    const auto Salvate = [this] {
        QDirIterator Giro(P->Casa(), {u"bianchi prova.mdb"_s}, QDir::Files, QDirIterator::Subdirectories);
        return Giro.hasNext() ? Giro.next() : QString();
    };
    QTRY_VERIFY2_WITH_TIMEOUT(!Salvate().isEmpty(), qPrintable(P->Stato()), 15000);
    // Another program reads what was saved.
    QProcess Altro;
    Altro.start(qEnvironmentVariable("CALCANOVA_CARTELLA") + u"/calcanova-cli"_s, {u"nota"_s, Salvate()});
    QVERIFY(Altro.waitForFinished(30000));
    QVERIFY2(Altro.readAllStandardOutput().contains("Bianchi"), Altro.readAllStandardError());
}

void TestNote::ilFuocoTornaDaUnMessaggio()
{
    P->Clic(u"txtImporto"_s);
    P->Digita(u"1-2"_s);
    P->Premi(u"Tab"_s);
    ATTENDI(u"messaggio"_s, "Immettere un valore numerico!");
    P->Fotografa(u"messaggio"_s);
    P->Rispondi(u"Return"_s);
    ATTENDI(u"messaggio"_s, "");
    ATTENDI(u"fuoco"_s, "txtImporto");
}

void TestNote::annullareUnaChiusura()
{
    P->Clic(u"txtOggetto"_s);
    P->Digita(u"appalto"_s);
    P->Premi(u"ctrl+w"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"Vuoi salvare"));
    P->Rispondi(u"Escape"_s);
    ATTENDI(u"messaggio"_s, "");
    ATTENDI(u"testo txtOggetto"_s, "appalto");
    ATTENDI(u"fuoco"_s, "txtOggetto");
    QVERIFY(P->InVita());
}

/// Without desktop and buttons: the note can be written, saved and closed, which ends the program; the keys
/// of the buttons that are hidden do nothing.
void TestNote::sessioneBassa()
{
    P = std::make_unique<Programma>(QStringList{u"-low"_s});
    QVERIFY2(P->Aperta(u"Nuova parcella"_s), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "txtCliente");
    P->Digita(u"Bianchi"_s);
    for (const QString& Tasti : {u"ctrl+n"_s, u"ctrl+o"_s, u"ctrl+shift+t"_s}) {
        P->Premi(Tasti);
        QVERIFY2(P->Fermo(u"txtCliente"_s), qPrintable(Tasti + u": "_s + P->Stato()));
    }
    QVERIFY2(P->Chiedi(u"attiva"_s).endsWith(u"|Nuova parcella"), qPrintable(P->Stato()));
    QCOMPARE(P->Chiedi(u"visto barParcelle"_s), QString());
    P->Premi(u"ctrl+s"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).contains(u"Salva"));
    P->Premi(u"Escape"_s);
    QVERIFY2(P->Aperta(u"Nuova parcella"_s), qPrintable(P->Stato()));
    P->Premi(u"ctrl+w"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"Vuoi salvare"));
    P->Rispondi(u"Right"_s);  // from Yes to No
    P->Premi(u"Return"_s);
    QTRY_VERIFY_WITH_TIMEOUT(!P->InVita(), 15000);
}

#include "TestNote.moc"
