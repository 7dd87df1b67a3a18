#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "platform/system/messaggi.h"

#include <QCoreApplication>
#include <QProcess>

using namespace Qt::StringLiterals;

class TestMessaggi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { InstallaMessaggi({}); }
    void senzaTavolaRispostaSicura_data();
    void senzaTavolaRispostaSicura();
    void senzaTavolaDialoghiAnnullati();
    void laTavolaRiceveEDecide();
    void titoliPredefiniti();
    void rendeLaTavolaPrecedente();
    void siPuoCambiareTavolaDuranteUnMessaggio();
    void registratoreRisponde();
    void registratoreTollerante();
    void registratoreRidaLaTavolaPrecedente();
    void registratoreFaFallire_data();
    void registratoreFaFallire();
};
PROVA(TestMessaggi);

/// Fails on purpose, each function in one way; TestMessaggi runs it in a process of its own.
class CasiCheFalliscono : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inatteso();
    void testoDiverso();
    void titoloDiverso();
    void maiMostrato();
    void boxAlPostoDiImmissione();
    void immissioneInattesa();
    void ordineScambiato();
};
PROVA(CasiCheFalliscono);

void TestMessaggi::senzaTavolaRispostaSicura_data()
{
    QTest::addColumn<int>("Bandiere");
    QTest::addColumn<int>("Risposta");

    QTest::newRow("OK alone") << vbOKOnly << vbOK;
    QTest::newRow("OK alone, with an icon") << (vbOKOnly | vbCritical) << vbOK;
    QTest::newRow("OK or Cancel") << vbOKCancel << vbCancel;
    QTest::newRow("Yes, No or Cancel") << (vbYesNoCancel | vbQuestion) << vbCancel;
    QTest::newRow("Yes or No") << (vbYesNo | vbQuestion) << vbNo;
    QTest::newRow("Yes or No, No by default") << (vbYesNo | vbExclamation | vbDefaultButton2) << vbNo;
}

void TestMessaggi::senzaTavolaRispostaSicura()
{
    QFETCH(int, Bandiere);
    QFETCH(int, Risposta);
    QCOMPARE(MsgBox(u"Testo"_s, Bandiere), Risposta);
    QCOMPARE(MsgBoxPulsanti(u"Testo"_s, Bandiere, u"Titolo"_s, {u"a"_s, u"b"_s}), Risposta);
}

void TestMessaggi::senzaTavolaDialoghiAnnullati()
{
    QCOMPARE(InputBox(u"Testo"_s, u"Titolo"_s, u"predefinito"_s), QString());
    QCOMPARE(DialogoApri(u"t"_s, u"/x"_s, u"*.par"_s), QString());
    QCOMPARE(DialogoSalva(u"t"_s, u"/x"_s, u"*.par"_s), QString());
    QCOMPARE(DialogoColore(0xFF), std::nullopt);
}

void TestMessaggi::laTavolaRiceveEDecide()
{
    const auto Unisci = [](const QString& A, const QString& B, const QString& C) {
        return A + u'|' + B + u'|' + C;
    };
    QString Visto;
    Messaggi Tavola;
    Tavola.Box = [&](const QString& Testo, int Bandiere, const QString& Titolo) {
        Visto = Unisci(Testo, Titolo, QString::number(Bandiere));
        return vbYes;
    };
    Tavola.BoxPulsanti = [&](const QString& Testo, int, const QString& Titolo, const QStringList& Pulsanti) {
        Visto = Unisci(Testo, Titolo, Pulsanti.join(u';'));
        return vbOK;
    };
    Tavola.Immissione = Unisci;
    Tavola.ApriFile = Unisci;
    Tavola.SalvaFile = Unisci;
    Tavola.ScegliColore = [](int Iniziale) { return std::optional(Iniziale + 1); };
    InstallaMessaggi(Tavola);

    QCOMPARE(MsgBox(u"a"_s, vbYesNo | vbQuestion, u"b"_s), vbYes);
    QCOMPARE(Visto, u"a|b|36"_s);
    QCOMPARE(MsgBoxPulsanti(u"a"_s, vbOKCancel, u"b"_s, {u" VEDI "_s, u"Chiudi"_s}), vbOK);
    QCOMPARE(Visto, u"a|b| VEDI ;Chiudi"_s);
    QCOMPARE(InputBox(u"a"_s, u"b"_s, u"c"_s), u"a|b|c"_s);
    QCOMPARE(DialogoApri(u"a"_s, u"b"_s, u"c"_s), u"a|b|c"_s);
    QCOMPARE(DialogoSalva(u"d"_s, u"e"_s, u"f"_s), u"d|e|f"_s);
    QCOMPARE(DialogoColore(7), std::optional(8));
}

void TestMessaggi::titoliPredefiniti()
{
    QStringList Titoli;
    Messaggi Tavola;
    Tavola.Box = [&](const QString&, int Bandiere, const QString& Titolo) {
        Titoli += Titolo + QString::number(Bandiere);
        return vbOK;
    };
    Tavola.Immissione = [&](const QString&, const QString& Titolo, const QString& Predefinito) {
        Titoli += Titolo + Predefinito;
        return QString();
    };
    InstallaMessaggi(Tavola);
    MsgBox(u"a"_s);
    InputBox(u"a"_s);
    QCOMPARE(Titoli, QStringList({u"Calcanova0"_s, u"Calcanova"_s}));
}

void TestMessaggi::rendeLaTavolaPrecedente()
{
    Messaggi Prima;
    Prima.Box = [](const QString&, int, const QString&) { return vbYes; };
    QVERIFY(!InstallaMessaggi(Prima).Box);
    const Messaggi Resa = InstallaMessaggi({});
    QCOMPARE(Resa.Box({}, 0, {}), vbYes);
    QCOMPARE(MsgBox(u"a"_s, vbYesNo), vbNo);
}

void TestMessaggi::siPuoCambiareTavolaDuranteUnMessaggio()
{
    const QString Trattenuto = u"risposta "_s.repeated(20);
    QString Letto;
    Messaggi Tavola;
    Tavola.Box = [Trattenuto, &Letto](const QString&, int, const QString&) {
        InstallaMessaggi({});
        Letto = Trattenuto;  // what the running function holds must still be there
        return vbYes;
    };
    InstallaMessaggi(std::move(Tavola));
    QCOMPARE(MsgBox(u"a"_s, vbYesNo), vbYes);
    QCOMPARE(Letto, Trattenuto);
    QCOMPARE(MsgBox(u"a"_s, vbYesNo), vbNo);
}

void TestMessaggi::registratoreRisponde()
{
    Registratore Messi;
    Messi.Attendi(u"Salvare?"_s, vbYes, u"Domanda:"_s);
    Messi.Attendi(u"Scheda"_s, vbCancel);
    Messi.AttendiImmissione(u"parola"_s, u"segreta"_s);
    QCOMPARE(MsgBox(u"Salvare?"_s, vbYesNo | vbQuestion, TitoloDomanda.toString()), vbYes);
    QCOMPARE(MsgBoxPulsanti(u"Scheda"_s, vbOKCancel, u"Altro"_s, {u"a"_s, u"b"_s}), vbCancel);
    QCOMPARE(InputBox(u"Indicare la parola chiave"_s, u"Accesso"_s), u"segreta"_s);

    QCOMPARE(Messi.Mostrati().size(), 3);
    QCOMPARE(Messi.Mostrato(0).Testo, u"Salvare?"_s);
    QCOMPARE(Messi.Mostrato(0).Bandiere, vbYesNo | vbQuestion);
    QCOMPARE(Messi.Mostrato(0).Titolo, u"Domanda:"_s);
    QCOMPARE(Messi.Mostrato(1).Titolo, u"Altro"_s);
    QCOMPARE(Messi.UltimoTesto(), u"Indicare la parola chiave"_s);
}

void TestMessaggi::registratoreTollerante()
{
    Registratore Messi;
    Messi.Tollera();
    QCOMPARE(MsgBox(u"a"_s), vbOK);
    QCOMPARE(MsgBox(u"b"_s, vbYesNo), vbNo);
    QCOMPARE(MsgBox(u"c"_s, vbYesNoCancel), vbCancel);
    QCOMPARE(InputBox(u"d"_s), QString());
    QCOMPARE(Messi.Mostrati().size(), 4);
    QCOMPARE(Messi.UltimoTesto(), u"d"_s);
}

void TestMessaggi::registratoreRidaLaTavolaPrecedente()
{
    Messaggi Tavola;
    Tavola.Box = [](const QString&, int, const QString&) { return vbYes; };
    InstallaMessaggi(Tavola);
    {
        Registratore Messi;
        Messi.Attendi(u"a"_s, vbNo);
        QCOMPARE(MsgBox(u"a"_s, vbYesNo), vbNo);
    }
    QCOMPARE(MsgBox(u"a"_s, vbYesNo), vbYes);
}

void TestMessaggi::registratoreFaFallire_data()
{
    QTest::addColumn<QString>("Funzione");
    QTest::addColumn<QString>("Motivo");

    QTest::newRow("nobody expected it") << u"inatteso"_s << u"messaggio inatteso: [Calcanova] Sorpresa"_s;
    QTest::newRow("another text") << u"testoDiverso"_s << u"messaggio inatteso: [Calcanova] Due"_s;
    QTest::newRow("another title") << u"titoloDiverso"_s << u"messaggio inatteso: [Errore:] Uno"_s;
    QTest::newRow("never shown") << u"maiMostrato"_s << u"messaggio atteso e mai mostrato: Uno"_s;
    QTest::newRow("a box where an input was expected")
        << u"boxAlPostoDiImmissione"_s << u"messaggio inatteso: [Calcanova] Nome"_s;
    QTest::newRow("an input nobody expected")
        << u"immissioneInattesa"_s << u"immissione inattesa: [Calcanova] Nome"_s;
    QTest::newRow("out of order") << u"ordineScambiato"_s << u"messaggio inatteso: [Calcanova] Due"_s;
}

void TestMessaggi::registratoreFaFallire()
{
    QFETCH(QString, Funzione);
    QFETCH(QString, Motivo);
    QProcess Figlio;
    Figlio.start(QCoreApplication::applicationFilePath(), {u"CasiCheFalliscono"_s, Funzione});
    QVERIFY(Figlio.waitForFinished());
    QCOMPARE(Figlio.exitStatus(), QProcess::NormalExit);
    QVERIFY(Figlio.exitCode() > 0);
    const QString Scritto = QString::fromUtf8(Figlio.readAllStandardOutput());
    QVERIFY2(Scritto.contains(Motivo), qPrintable(Scritto));
}

void CasiCheFalliscono::inatteso()
{
    const Registratore Messi;
    MsgBox(u"Sorpresa"_s);
}

void CasiCheFalliscono::testoDiverso()
{
    Registratore Messi;
    Messi.Attendi(u"Uno"_s);
    MsgBox(u"Due"_s);
}

void CasiCheFalliscono::titoloDiverso()
{
    Registratore Messi;
    Messi.Attendi(u"Uno"_s, vbOK, u"Messaggio:"_s);
    MsgBox(u"Uno"_s, vbOKOnly, TitoloErrore.toString());
}

void CasiCheFalliscono::maiMostrato()
{
    Registratore Messi;
    Messi.Attendi(u"Uno"_s);
}

void CasiCheFalliscono::boxAlPostoDiImmissione()
{
    Registratore Messi;
    Messi.AttendiImmissione(u"Nome"_s, u"x"_s);
    MsgBox(u"Nome"_s);
}

void CasiCheFalliscono::immissioneInattesa()
{
    Registratore Messi;
    Messi.Attendi(u"Nome"_s);
    InputBox(u"Nome"_s);
}

void CasiCheFalliscono::ordineScambiato()
{
    Registratore Messi;
    Messi.Attendi(u"Uno"_s);
    Messi.Attendi(u"Due"_s);
    MsgBox(u"Due"_s);
    MsgBox(u"Uno"_s);
}

#include "TestMessaggi.moc"
