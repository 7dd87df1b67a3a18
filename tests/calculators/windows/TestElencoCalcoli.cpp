// The list of the last calculations: its commands and keys, one that is damaged or cannot be written.
#include "tuttelecalcolatrici.h"

#include "calculators/windows/frmIstat.h"
#include "calculators/windows/frmTermini.h"
#include "calculators/windows/frmTerminiSeq.h"
#include "platform/system/file.h"

#include <QCheckBox>

using namespace Qt::StringLiterals;

class TestElencoCalcoli : public QObject, private ConCalcoli
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void rinominaETogli();
    void svuota();
    void tastiDellElenco();
    void elencoVuoto();
    void elencoDanneggiato();
    void elencoCheNonSiScrive();
    void voceNonPiuInElenco();
    void nullaDiUnaVoceRifiutata();
    void accessibile();
};
PROVA(TestElencoCalcoli);

void TestElencoCalcoli::rinominaETogli()
{
    QDialog* F = Apri<frmIstat>();
    for (const int Quale : {0, 1, 2})
        CalcolaIstat(F, Quale);
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    auto* Tabella = Controllo<Griglia>(Elenco, "tdbCalcoli");
    ClicCella(Tabella, 1, 0);
    B->Voce.AttendiImmissione(u"Nome del calcolo:"_s, u" Causa Rossi "_s);
    Clic(Controllo(Elenco, "cmdRinomina"));
    QCOMPARE(Colonna(Elenco, 0).at(1), u"Causa Rossi"_s);
    QCOMPARE(Tabella->RigaCorrente(), 1);
    B->Voce.AttendiImmissione(u"Nome del calcolo:"_s, QString());
    Clic(Controllo(Elenco, "cmdRinomina"));
    QCOMPARE(Colonna(Elenco, 0).at(1), u"Causa Rossi"_s);
    ClicCella(Tabella, 0, 0);
    Clic(Controllo(Elenco, "cmdElimina"));
    QCOMPARE(Colonna(Elenco, 1), (QStringList{u"2.323,28 euro"_s, u"1.161,64 euro"_s}));
    QVERIFY(ChiudiElenco(F, Elenco));
    // The calculation on view was taken out: made again, it comes in again.
    QVERIFY(MostraAttiva(*F));
    Clic(Controllo(F, "cmdCalcola"));
    Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(Colonna(Elenco, 1).first(), u"3.484,92 euro"_s);
    QCOMPARE(Colonna(Elenco, 0).at(1), u"Causa Rossi"_s);
}

void TestElencoCalcoli::svuota()
{
    QDialog* F = Apri<frmIstat>();
    CalcolaIstat(F, 0);
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    const QString Domanda = u"Confermi la cancellazione di tutti i calcoli in elenco?"_s;
    B->Voce.Attendi(Domanda, vbNo, u"Domanda:"_s);
    Clic(Controllo(Elenco, "cmdSvuota"));
    QCOMPARE(Colonna(Elenco, 0).size(), 1);
    B->Voce.Attendi(Domanda, vbYes);
    Clic(Controllo(Elenco, "cmdSvuota"));
    QVERIFY(Colonna(Elenco, 0).isEmpty());
    QVERIFY(!Controllo(Elenco, "cmdSvuota")->isEnabled());
    QVERIFY(UltimiCalcoli(Calcolatrice::Istat).isEmpty());
}

void TestElencoCalcoli::tastiDellElenco()
{
    QDialog* F = Apri<frmIstat>();
    CalcolaIstat(F, 0);
    CalcolaIstat(F, 1);
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(NomeFuoco(), u"tdbCalcoli"_s);
    Premi(Qt::Key_Down);
    B->Voce.AttendiImmissione(u"Nome del calcolo:"_s, u"mille"_s);
    Premi(Qt::Key_F2);
    QCOMPARE(Colonna(Elenco, 0).at(1), u"mille"_s);
    Premi(Qt::Key_Delete);
    QCOMPARE(Colonna(Elenco, 1), QStringList{u"2.323,28 euro"_s});
    Premi(Qt::Key_Escape);
    Respiro();
    QVERIFY(!Aperta<frmUltimiCalcoli>(F));
    QCOMPARE(TestoDi(F, "lblImpRival"), u"2.323,28  "_s);
}

void TestElencoCalcoli::elencoVuoto()
{
    QDialog* F = Apri<frmIstat>();
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    for (const char* Nome : {"cmdRiprendi", "cmdRinomina", "cmdElimina", "cmdSvuota"})
        QVERIFY2(!Controllo(Elenco, Nome)->isEnabled(), Nome);
    QCOMPARE(NomeFuoco(), u"cmdChiudi"_s);
    Premi(Qt::Key_F2);
    Premi(Qt::Key_Return);
    Respiro();
    QVERIFY(!Aperta<frmUltimiCalcoli>(F));
}

void TestElencoCalcoli::elencoDanneggiato()
{
    CreaCartellaPrivata(CartellaDati());
    ScriviFile(FileCalcoli(), "{\"ultimi");
    QDialog* F = Apri<frmIstat>();
    B->Voce.Attendi(FraseElencoGuasto());
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QVERIFY(Colonna(Elenco, 0).isEmpty());
    QVERIFY(ChiudiElenco(F, Elenco));
    CalcolaIstat(F, 0);
    QCOMPARE(UltimiCalcoli(Calcolatrice::Istat).size(), 1);
    // What was put aside holds the lists of all windows: emptying one says that it goes too.
    Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    B->Voce.Attendi(
        u"Confermi la cancellazione di tutti i calcoli in elenco?\nSi cancella anche l'elenco danneggiato "
        "che era stato messo da parte."_s,
        vbNo);
    Clic(Controllo(Elenco, "cmdSvuota"));
    QVERIFY(EsisteFile(FileCalcoliGuasto()));
}

// A list that cannot be written is told once; the calculation is there all the same.
void TestElencoCalcoli::elencoCheNonSiScrive()
{
    QVERIFY(QDir().mkpath(FileCalcoli()));
    QDialog* F = Apri<frmIstat>();
    B->Voce.Tollera();
    CalcolaIstat(F, 0);
    QCOMPARE(TestoDi(F, "lblImpRival"), u"1.161,64  "_s);
    CalcolaIstat(F, 1);
    QCOMPARE(TestoDi(F, "lblImpRival"), u"2.323,28  "_s);
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    QVERIFY2(B->Voce.UltimoTesto().startsWith(u"Errore: "), qPrintable(B->Voce.UltimoTesto()));
    QVERIFY(QDir().rmdir(FileCalcoli()));
    // It is told again when it comes back.
    CalcolaIstat(F, 2);
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    QCOMPARE(UltimiCalcoli(Calcolatrice::Istat).size(), 1);
}

void TestElencoCalcoli::voceNonPiuInElenco()
{
    RicordaCalcolo(Calcolatrice::Sequenziali,
                   {u"vecchio"_s, u"x"_s, Adesso(), {{u"cmbArticolo"_s, u"Art. 999"_s}}});
    QDialog* F = Apri<frmTerminiSeq>();
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    B->Voce.Attendi(u"Il calcolo non si può riprendere: \"Art. 999\" non è più in elenco."_s, vbOK,
                    u"Errore:"_s);
    Clic(Controllo(Elenco, "cmdRiprendi"));
    QCOMPARE(TestoDi(F, "lblRisult"), QString());
}

/// Half of a calculation would be taken for another one.
void TestElencoCalcoli::nullaDiUnaVoceRifiutata()
{
    RicordaCalcolo(Calcolatrice::Termini,
                   {u"vecchio"_s,
                    u"x"_s,
                    Adesso(),
                    {{u"mskDecorr"_s, u"20/07/2012"_s}, {u"cmbIncrTipo"_s, u"Lustri"_s}}});
    QDialog* F = Apri<frmTermini>();
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    B->Voce.Attendi(u"Il calcolo non si può riprendere: \"Lustri\" non è più in elenco."_s, vbOK,
                    u"Errore:"_s);
    Clic(Controllo(Elenco, "cmdRiprendi"));
    QVERIFY(Controllo<MascheraData>(F, "mskDecorr")->Vuota());
}

void TestElencoCalcoli::accessibile()
{
    QDialog* F = Apri<frmIstat>();
    CalcolaIstat(F, 0);
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(SenzaNome(Elenco).join(u", "_s), QString());
    QVERIFY(Elenco->minimumSizeHint().width() <= 910);
    QVERIFY(Elenco->minimumSizeHint().height() <= 470);
    QCOMPARE(OrdineTab(Controllo<Griglia>(Elenco, "tdbCalcoli")->Vista(), 5).mid(1),
             (QStringList{u"chkRicorda"_s, u"cmdRinomina"_s, u"cmdElimina"_s, u"cmdSvuota"_s}));
}

#include "TestElencoCalcoli.moc"
