// What is due, by keys and mouse as the display sends them: the state at the head of a note, the finder that
// filters and sums by it, the command line that lists the same.
#include "programma.h"
#include "studiocompleto.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

class TestScadenze : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void dallaNotaAllElenco();

private:
    std::unique_ptr<Programma> P;
};
PROVA(TestScadenze);

void TestScadenze::cleanup()
{
    if (QTest::currentTestFailed() && P)
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

void TestScadenze::dallaNotaAllElenco()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Digita(u"Bianchi Anna"_s);
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    ATTENDI(u"testo cmdStato"_s, "Stato: bozza");
    P->Clic(u"cmdStato"_s);
    P->Premi({u"Down"_s, u"Down"_s, u"Return"_s});
    ATTENDI(u"testo cmdStato"_s, "Stato: inviata");
    P->Fotografa(u"stato_della_nota"_s);
    P->Premi(u"ctrl+s"_s);
    QVERIFY(P->Attendi(u"attiva"_s, [](const QString& Titoli) { return Titoli.contains(u"Salva"); }));
    P->Premi(u"ctrl+a"_s);
    P->Digita(u"bianchi"_s);
    P->Premi(u"Return"_s);
    P->Rispondi(u"Return"_s);
    ATTENDI(u"messaggio"_s, "");

    P->Premi(u"ctrl+o"_s);
    QVERIFY2(P->Aperta(u"Apri da parcelle salvate"_s), qPrintable(P->Stato()));
    ATTENDI_CHE(P->Testo(u"lblAperto"_s).contains(u" in 1 parcella; Bianchi Anna "));
    QVERIFY(P->VaiA(u"cmbStato"_s));
    P->Premi({u"Down"_s, u"Down"_s});  // the drafts
    ATTENDI(u"testo lblAperto"_s, "Niente da incassare tra le parcelle mostrate.");
    P->Premi(u"Up"_s);
    ATTENDI_CHE(P->Testo(u"lblAperto"_s).contains(u" in 1 parcella; Bianchi Anna "));
    P->Fotografa(u"trova_da_incassare"_s);
    QVERIFY(P->VaiA(u"cmdPerCliente"_s));
    P->Premi({u"space"_s, u"Down"_s, u"Return"_s});
    ATTENDI(u"testo cmdUnCliente"_s, "Solo Bianchi Anna");
    ATTENDI(u"fuoco"_s, "tdbParcelle");
    P->Premi(u"Escape"_s);
}

#include "TestScadenze.moc"
