// What is said of a file that was written, and the way to its folder.
#include "platform/system/esportato.h"
#include "platform/system/messaggi.h"
#include "platform/system/shell.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

using namespace Qt::StringLiterals;

class TestEsportato : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { InstallaShell({}); }
    void lettoENientAltro();
    void apreLaCartella();
    void laCartellaCheNonSiApre();
    void leScritte();
    void sopraUnAltro();

private:
    QStringList Aperti;
    int Esito = 0;
};
PROVA(TestEsportato);

void TestEsportato::init()
{
    Aperti.clear();
    Esito = 0;
    Shell Tavola;
    Tavola.ApriFile = [this](const QString& File) { return Aperti += File, Esito; };
    InstallaShell(std::move(Tavola));
}

void TestEsportato::lettoENientAltro()
{
    Registratore Voce;
    Voce.Attendi(u"Fatto."_s, vbNo, u"Messaggio:"_s);
    MostraEsportato(u"Fatto."_s, u"/uno/due.pdf"_s);
    QCOMPARE(Aperti, QStringList());
}

void TestEsportato::apreLaCartella()
{
    Registratore Voce;
    Voce.Attendi(u"Fatto."_s, vbYes, u"Messaggio:"_s);
    MostraEsportato(u"Fatto."_s, u"/uno/due \"tre\"/quattro.pdf"_s);
    QCOMPARE(Aperti, QStringList{u"/uno/due \"tre\"/"_s});
    QCOMPARE(Voce.Ultimo().Bandiere, vbYesNo + vbInformation + vbDefaultButton2);
}

void TestEsportato::laCartellaCheNonSiApre()
{
    Registratore Voce;
    Esito = 31;
    Voce.Attendi(u"Non è stato possibile aprire la cartella /uno/: aprirla con il gestore dei file."_s);
    ApriCartellaDi(u"/uno/due.pdf"_s);
    QCOMPARE(Aperti, QStringList{u"/uno/"_s});
}

void TestEsportato::leScritte()
{
    QStringList Viste;
    Messaggi Tabella;
    Tabella.BoxPulsanti = [&](const QString&, int, const QString&, const QStringList& Pulsanti) {
        Viste = Pulsanti;
        return vbNo;
    };
    Messaggi Prima = InstallaMessaggi(std::move(Tabella));
    MostraEsportato(u"Fatto."_s, u"/uno/due.pdf"_s);
    InstallaMessaggi(std::move(Prima));
    QCOMPARE(Viste, (QStringList{u"Apri cartella"_s, u"OK"_s}));
}

void TestEsportato::sopraUnAltro()
{
    Registratore Voce;
    const QString File = NuovaCartella() + u"due.csv"_s;
    QVERIFY(Sostituibile(File));
    ScriviFile(File, "mio");
    for (const auto Risposta : {vbNo, vbYes}) {
        Voce.Attendi(u"Il file due.csv esiste già: si vuole sostituirlo?"_s, Risposta, u"Domanda:"_s);
        QCOMPARE(Sostituibile(File), Risposta == vbYes);
    }
}

#include "TestEsportato.moc"
