// A note from the icon to the printed page and back, by the keyboard: client, authority, value, items,
// expenses, payments, document, save, close; then the file once more.
#include "moduli.h"

#include <QDirIterator>

using namespace Qt::StringLiterals;

class TestGiornata : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void unaParcellaIntera();

private:
    void DatiBase();
    void Onorari();
    void Spese();
    void Acconti();
    void Stampa();
    void Salva();
    void Riapri();

    std::unique_ptr<Programma> P;
    QString Salvata;
};
PROVA(TestGiornata);

void TestGiornata::cleanup()
{
    if (QTest::currentTestFailed())
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

void TestGiornata::DatiBase()
{
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "txtCliente");
    P->Digita(u"Rossi Maria"_s);
    P->Premi(u"Return"_s);
    P->Digita(u"Edilnova"_s);
    P->Premi(u"Return"_s);
    P->Digita(u"appalto"_s);
    P->Premi(u"Tab"_s);
    ATTENDI(u"fuoco"_s, "cmbCateg");
    P->Premi({u"alt+Down"_s, u"Home"_s, u"Return"_s});
    ATTENDI(u"popup"_s, "");
    P->Premi(u"Tab"_s);
    ATTENDI(u"fuoco"_s, "cmbAutor");
    P->Digita(u"tribunale"_s);
    P->Premi(u"Tab"_s);
    ATTENDI(u"testo cmbAutor"_s, "Tribunale ordinario");
    QVERIFY2(P->VaiA(u"txtImporto"_s), qPrintable(P->Stato()));
    P->Digita(u"30000"_s);
    P->Premi(u"Return"_s);
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
}

void TestGiornata::Onorari()
{
    // The phases of the authority have come by themselves; one is taken once more from the catalogue, by its
    // name.
    ATTENDI_CHE(!P->TestoCella(u"tdbOnor"_s, 0, 1).isEmpty());
    int Righe = 0;
    while (!P->TestoCella(u"tdbOnor"_s, Righe, 1).isEmpty())
        ++Righe;
    QVERIFY2(P->VaiA(u"txtCercaOno"_s), qPrintable(P->Stato()));
    P->Digita(u"fase"_s);
    P->Premi(u"Down"_s);
    ATTENDI(u"fuoco"_s, "tdbListaOno");
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"è stato già inserito"));
    P->Rispondi(u"Return"_s);
    ATTENDI_CHE(!P->TestoCella(u"tdbOnor"_s, Righe, 1).isEmpty());
    ATTENDI(u"fuoco"_s, "tdbListaOno");
    P->Premi(u"F6"_s);
    ATTENDI(u"fuoco"_s, "tdbOnor");
    P->Fotografa(u"giornata_onorari"_s);
}

void TestGiornata::Spese()
{
    QVERIFY2(P->AllaScheda(u"Spese inserite"_s), qPrintable(P->Stato()));
    QVERIFY2(P->VaiA(u"tdbListaDir"_s), qPrintable(P->Stato()));
    P->Premi(u"Return"_s);
    ATTENDI_CHE(!P->TestoCella(u"tdbDir"_s, 0, 1).isEmpty());
    QVERIFY2(P->Messaggio().isEmpty(), qPrintable(P->Stato()));
    // The amount is open, its 0 selected.
    ATTENDI(u"fuoco"_s, "cella");
    P->Digita(u"12,50"_s);
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbDir"_s, 0, 3) == u"12,50");
    P->Fotografa(u"giornata_spese"_s);
}

void TestGiornata::Acconti()
{
    QVERIFY2(P->AllaScheda(u"Acconti e imposte"_s), qPrintable(P->Stato()));
    QVERIFY2(P->VaiA(u"tdbAcconti"_s), qPrintable(P->Stato()));
    P->Digita(u"Fondo spese"_s);
    P->Premi({u"Return"_s, u"Return"_s});  // past the currency, which is already there
    P->Digita(u"500"_s);
    P->Premi(u"Return"_s);
    QVERIFY2(P->Messaggio().isEmpty(), qPrintable(P->Stato()));
    ATTENDI_CHE(P->TestoCella(u"tdbAcconti"_s, 0, 2) == u"500,00");
    P->Fotografa(u"giornata_acconti"_s);
    P->Premi(u"F6"_s);  // out of the cells
    QVERIFY2(P->VaiA(u"chkSpeseGen"_s), qPrintable(P->Stato()));
    if (P->Testo(u"chkSpeseGen"_s) == u"0")
        P->Premi(u"space"_s);
    ATTENDI(u"testo chkSpeseGen"_s, "1");
}

void TestGiornata::Stampa()
{
    P->Premi(u"ctrl+p"_s);
    ATTENDI(u"testo tabParcelle"_s, "Stampa");
    QVERIFY2(P->Messaggio().isEmpty(), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "cmbTipoStampa");
    // Down through the documents: each is composed, and the list keeps the keys.
    P->Premi({u"Down"_s, u"Down"_s});
    ATTENDI(u"fuoco"_s, "cmbTipoStampa");
    ATTENDI_CHE(P->Testo(u"txtPage"_s).startsWith(u"1/"));
    P->Fotografa(u"giornata_stampa"_s);
}

void TestGiornata::Salva()
{
    P->Premi(u"ctrl+s"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).contains(u"Salva"));
    P->Premi(u"ctrl+a"_s);
    P->Digita(u"rossi appalto"_s);
    P->Premi(u"Return"_s);
    ATTENDI_CHE(!P->Messaggio().isEmpty());
    P->Rispondi(u"Return"_s);
    ATTENDI(u"messaggio"_s, "");
    QDirIterator Giro(P->Casa(), {u"rossi appalto.mdb"_s}, QDir::Files, QDirIterator::Subdirectories);
    QVERIFY2(Giro.hasNext(), qPrintable(P->Stato()));
    Salvata = Giro.next();
    P->Premi(u"ctrl+w"_s);
    QVERIFY2(P->AllaScrivania(), qPrintable(P->Stato()));
}

void TestGiornata::unaParcellaIntera()
{
    P = std::make_unique<Programma>();
    for (const auto Passo :
         {&TestGiornata::DatiBase, &TestGiornata::Onorari, &TestGiornata::Spese, &TestGiornata::Acconti,
          &TestGiornata::Stampa, &TestGiornata::Salva, &TestGiornata::Riapri}) {
        (this->*Passo)();
        if (QTest::currentTestFailed())
            return;
    }
}

/// From another note, by the window that finds the saved ones.
void TestGiornata::Riapri()
{
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(u"ctrl+o"_s);
    QVERIFY2(P->Aperta(u"Apri da parcelle salvate"_s), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "txtDesPar");
    P->Digita(u"edilnova"_s);
    // Behind the folder of the templates, which stays.
    ATTENDI_CHE(P->TestoCella(u"tdbParcelle"_s, 1, 0) == u"rossi appalto");
    P->Fotografa(u"giornata_trova"_s);
    P->Premi({u"Down"_s, u"End"_s, u"Return"_s});
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).contains(u"|rossi appalto"));
    ATTENDI(u"testo txtCliente"_s, "Rossi Maria");
    ATTENDI(u"testo txtImporto"_s, "30.000,00");
    QVERIFY2(P->AllaScheda(u"Spese inserite"_s), qPrintable(P->Stato()));
    QCOMPARE(P->TestoCella(u"tdbDir"_s, 0, 3), u"12,50"_s);
}

#include "TestGiornata.moc"
