// The list "Da controllare" by keys and mouse as the display sends them: each row leads to its field, and
// goes when it is put right.
#include "moduli.h"

#include <QDate>

using namespace Qt::StringLiterals;

class TestDaControllare : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void dalleVociAiCampi();

private:
    /// How many rows the list has.
    qsizetype Voci() { return P->Testo(u"lstControlli"_s).split(u" | "_s, Qt::SkipEmptyParts).size(); }

    std::unique_ptr<Programma> P;
};
PROVA(TestDaControllare);

void TestDaControllare::cleanup()
{
    if (QTest::currentTestFailed() && P)
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

void TestDaControllare::dalleVociAiCampi()
{
    P = std::make_unique<Programma>(QStringList{}, u"IVA=22"_s);
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Digita(u"Bianchi"_s);
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    // An amount beyond its maximum, typed among the lines.
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    P->Clic(P->Cella(u"tdbOnor"_s, 0, 3));
    P->Premi(u"F2"_s);
    ATTENDI(u"fuoco"_s, "cella");
    P->Premi(u"ctrl+a"_s);
    P->Digita(u"99999"_s);
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 0, 3) == u"99.999,00");
    if (P->Fuoco() == u"cella")
        P->Premi(u"Escape"_s);
    P->Fotografa(u"oltre_il_massimo"_s);
    // An invoice without number and date.
    P->Premi(u"ctrl+p"_s);
    ATTENDI(u"fuoco"_s, "cmbTipoStampa");
    constexpr int Documenti = 8;
    for (int i = 0; i < Documenti && P->Chiedi(u"visto cmdFatturaXml"_s) != u"1"; ++i)
        P->Premi(u"Down"_s);
    ATTENDI_CHE(Voci() == 4);
    P->Fotografa(u"da_controllare"_s);
    QVERIFY2(P->VaiA(u"lstControlli"_s), qPrintable(P->Stato()));
    P->Premi(u"Return"_s);
    ATTENDI(u"fuoco"_s, "txtDatiPar_11");
    P->Digita(u"12"_s);
    ATTENDI_CHE(Voci() == 3);
    QVERIFY2(P->VaiA(u"lstControlli"_s), qPrintable(P->Stato()));
    P->Premi(u"space"_s);
    ATTENDI(u"fuoco"_s, "txtDatiPar_12");
    P->Digita(u"32/13/26"_s);
    ATTENDI_CHE(Voci() == 3);
    P->Premi(u"ctrl+a"_s);
    P->Digita(QDate::currentDate().toString(u"dd/MM/yyyy"));
    ATTENDI_CHE(Voci() == 2);
    // The second row speaks of the line: by keys, and by a click.
    QVERIFY2(P->VaiA(u"lstControlli"_s), qPrintable(P->Stato()));
    P->Premi({u"Down"_s, u"Return"_s});
    ATTENDI(u"fuoco"_s, "tdbOnor");
    P->Premi(u"ctrl+p"_s);
    ATTENDI(u"visto lstControlli"_s, "1");
    QRect Righe = P->Posto(u"lstControlli"_s);
    Righe.setTop(Righe.top() + Righe.height() / 2);
    P->Clic(Righe);
    ATTENDI(u"fuoco"_s, "tdbOnor");
    P->Digita(u"1200"_s);
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 0, 3) == u"1.200,00");
    if (P->Fuoco() == u"cella")
        P->Premi(u"Escape"_s);
    P->Premi(u"ctrl+p"_s);
    ATTENDI_CHE(Voci() == 1);
    QCOMPARE(P->Messaggio(), QString());
}

#include "TestDaControllare.moc"
