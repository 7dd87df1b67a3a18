// The choice of the tariff in the real program: from the line of a new note to the settings and back, and a
// note that goes over to the other decree.
#include "programma.h"

using namespace Qt::StringLiterals;

class TestTariffa : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void dallaRigaAllaScelta();
    void unaParcellaPerSe();

private:
    void Scegli(const QString& Lista, int Passi);

    std::unique_ptr<Programma> P;
};
PROVA(TestTariffa);

void TestTariffa::cleanup()
{
    if (QTest::currentTestFailed() && P)
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

/// The entry of a list that stands so many steps below the first.
void TestTariffa::Scegli(const QString& Lista, int Passi)
{
    P->Clic(Lista);
    ATTENDI_CHE(!P->Chiedi(u"popup"_s).isEmpty());
    P->Premi(QStringList{u"Home"_s} + QStringList(Passi, u"Down"_s) + QStringList{u"Return"_s});
    ATTENDI_CHE(P->Chiedi(u"popup"_s).isEmpty());
}

void TestTariffa::dallaRigaAllaScelta()
{
    P = std::make_unique<Programma>(
        QStringList{}, u"StudioIndir=Via Roma 1\nStudioCitta=Roma\nStudioMail=studio@esempio.it"_s);
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Clic(u"cmdTariffa"_s);
    QVERIFY2(P->Aperta(u"Calcanova - Personalizzazione programma"_s), qPrintable(P->Stato()));
    ATTENDI(u"testo tabSetup"_s, "Dati contabili");
    QVERIFY2(P->VaiA(u"cmbTariffa"_s), qPrintable(P->Stato()));
    P->Premi(u"Down"_s);
    ATTENDI(u"testo cmbTariffa"_s, "D.m. 55/2014");
    P->Premi(u"ctrl+s"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"memorizzate"));
    P->Rispondi(u"Return"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"riavviare"));
    P->Rispondi(u"Return"_s);
    P->Premi(u"alt+F4"_s);
    QVERIFY2(P->Aperta(u"Nuova parcella"_s), qPrintable(P->Stato()));
    ATTENDI(u"testo lblDatiBase"_s, "D.m. 55/2014");
    ATTENDI(u"testo cmbTariffa"_s, "D.m. 55/2014");
}

void TestTariffa::unaParcellaPerSe()
{
    P = std::make_unique<Programma>(QStringList{}, u"Tariffa=55"_s);
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    Scegli(u"cmbCateg"_s, 0);
    Scegli(u"cmbAutor"_s, 1);
    P->Clic(u"txtImporto"_s);
    P->Digita(u"30000"_s);
    P->Premi(u"Tab"_s);
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    QCOMPARE(P->TestoCella(u"tdbOnor"_s, 0, 3), u"1.701,00"_s);
    P->Premi(u"ctrl+Prior"_s);
    ATTENDI(u"testo tabParcelle"_s, "Dati base");
    // Refused, then confirmed by keys.
    for (const auto& [Risposta, Dopo] :
         {std::pair{u"n"_s, u"D.m. 55/2014"_s}, std::pair{u"s"_s, u"D.m. 140/2012"_s}}) {
        P->Clic(u"cmbTariffa"_s);
        ATTENDI_CHE(!P->Chiedi(u"popup"_s).isEmpty());
        P->Premi({u"Home"_s, u"Return"_s});
        ATTENDI_CHE(P->Messaggio().contains(u"Confermi la modifica?"));
        P->Rispondi(u"alt+"_s + Risposta);
        ATTENDI_CHE(P->Messaggio().isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(P->Testo(u"cmbTariffa"_s), Dopo, 15000);
    }
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 0, 3) == u"1.200,00");
}

#include "TestTariffa.moc"
