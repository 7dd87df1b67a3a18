// Who has the focus when a window opens, and who gets it back when it closes; the same of the messages.
#include "moduli.h"

#include <utility>

using namespace Qt::StringLiterals;

class TestFinestre : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void dallaParcella_data() { RigheModuli(); }
    void dallaParcella();
    void dallaScrivania_data();
    void dallaScrivania();
    void schedaInformativa();
    void schedaIvaDifferita();
    void pannelloRiaperto();
    void stampaDiUnCalcolo();
    void datiBaseIncompleti();
    void cancellareUnaVoce();
    void numeroInUnaCella();
    void impostazioniIncomplete();
    void tornareAlMenuIniziale();

private:
    void Apri(const QString& Scheda);

    std::unique_ptr<Programma> P;
};
PROVA(TestFinestre);

void TestFinestre::init()
{
    P = std::make_unique<Programma>();
}

void TestFinestre::cleanup()
{
    if (QTest::currentTestFailed())
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

/// A new note with a tab of it on view.
void TestFinestre::Apri(const QString& Scheda)
{
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    QVERIFY2(P->AllaScheda(Scheda), qPrintable(P->Stato()));
}

/// Twice, since the second showing of a window is another road of the program than the first.
void TestFinestre::dallaParcella()
{
    QFETCH(QString, Tasti);
    QFETCH(QString, Titolo);
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Clic(u"txtOggetto"_s);
    ATTENDI(u"fuoco"_s, "txtOggetto");
    QString Primo;
    for (const int Volta : {1, 2}) {
        P->Premi(Tasti);
        QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
        ATTENDI_CHE(!P->Fuoco().isEmpty() && P->Fuoco() != u"txtOggetto");
        if (Volta == 1)
            Primo = P->Fuoco();
        else
            QCOMPARE(P->Fuoco(), Primo);
        P->Premi(u"Escape"_s);
        QVERIFY2(P->Aperta(u"Nuova parcella"_s), qPrintable(P->Stato()));
        ATTENDI(u"fuoco"_s, "txtOggetto");
    }
}

void TestFinestre::dallaScrivania_data()
{
    QTest::addColumn<QString>("Icona");
    QTest::addColumn<QString>("Titolo");
    for (const NomiCalcolatrice& Una : TabellaCalcolatrici) {
        const Modulo& Sua = Calcolatrici()[size_t(Una.Quale)];
        QTest::newRow(Sua.Nome) << IconaDi(Una.Comando) << QString::fromUtf8(Sua.Titolo);
    }
}

void TestFinestre::dallaScrivania()
{
    QFETCH(QString, Icona);
    QFETCH(QString, Titolo);
    QVERIFY2(P->AllaScrivania(), qPrintable(P->Stato()));
    QVERIFY2(P->VaiA(Icona), qPrintable(P->Stato()));
    P->Premi(u"Return"_s);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    ATTENDI_CHE(!P->Fuoco().isEmpty() && P->Fuoco() != Icona);
    P->Premi(u"Escape"_s);
    QVERIFY2(P->AllaScrivania(), qPrintable(P->Stato()));
    QTRY_COMPARE(P->Fuoco(), Icona);
}

void TestFinestre::schedaInformativa()
{
    Apri(u"Onorari"_s);
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(P->VaiA(u"tdbListaOno"_s), qPrintable(P->Stato()));
    P->Clic(u"barListaOnoDir_info"_s);
    QVERIFY2(P->Aperta(u"KR5 - Scheda informativa"_s), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "Web1");
    P->Premi(u"ctrl+f"_s);
    ATTENDI(u"fuoco"_s, "txtCerca");
    P->Premi(u"Escape"_s);  // closes the search alone
    ATTENDI(u"fuoco"_s, "Web1");
    P->Premi(u"Escape"_s);
    QVERIFY2(P->Aperta(u"Nuova parcella"_s), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "tdbListaOno");
}

void TestFinestre::schedaIvaDifferita()
{
    Apri(u"Stampa"_s);
    if (QTest::currentTestFailed())
        return;
    ATTENDI(u"fuoco"_s, "cmbTipoStampa");
    constexpr int Documenti = 8;
    for (int i = 0; i < Documenti && P->Chiedi(u"visto cmdSkIvaDiff"_s) != u"1"; ++i)
        P->Premi(u"Down"_s);
    ATTENDI(u"visto cmdSkIvaDiff"_s, "1");
    QVERIFY2(P->VaiA(u"cmdSkIvaDiff"_s), qPrintable(P->Stato()));
    P->Premi(u"space"_s);
    ATTENDI(u"finestra"_s, "frmWeb");
    ATTENDI(u"fuoco"_s, "Web1");
    P->Premi(u"Escape"_s);
    QVERIFY2(P->Aperta(u"Nuova parcella"_s), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "cmdSkIvaDiff");
}

/// The panel takes its room from the descriptions: each time it opens every column is in view, without a bar.
void TestFinestre::pannelloRiaperto()
{
    Apri(u"Onorari"_s);
    if (QTest::currentTestFailed())
        return;
    ATTENDI(u"barra tdbOnor"_s, "0 0");
    QString Intera;  // the tab lays itself out by steps: two answers alike tell that it has done
    ATTENDI_CHE(std::exchange(Intera, P->Chiedi(u"posto tdbOnor"_s)) == Intera);
    for (int Volta = 1; Volta <= 4; ++Volta) {
        if (Volta == 3)  // by its key and its own buttons, too
            P->Clic(P->Cella(u"tdbOnor"_s, 1, 1));
        P->Clic(u"barListaOnoDir_variaz"_s);
        ATTENDI(u"fuoco"_s, "sldGraduaOno");
        ATTENDI_CHE(P->Chiedi(u"posto tdbOnor"_s) != Intera);
        ATTENDI(u"barra tdbOnor"_s, "0 0");
        if (Volta % 2 == 0)
            P->Clic(u"barListaOnoDir_variaz"_s);
        else
            P->Premi(u"Escape"_s);
        QTRY_COMPARE_WITH_TIMEOUT(P->Chiedi(u"posto tdbOnor"_s), Intera, 15000);
        ATTENDI(u"barra tdbOnor"_s, "0 0");
    }
}

void TestFinestre::stampaDiUnCalcolo()
{
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(QString::fromLatin1(Calcolatrici()[0].Tasti));
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[0].Titolo)), qPrintable(P->Stato()));
    P->Digita(u"01072026"_s);
    P->Premi(u"Return"_s);
    P->Digita(u"60"_s);
    P->Premi(QStringList(6, u"Return"_s));
    ATTENDI_CHE(!P->Testo(u"lblRisult"_s).isEmpty());
    const QString Prima = P->Fuoco();
    P->Premi(u"ctrl+p"_s);
    QVERIFY2(P->Aperta(u"Stampa documento"_s), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "fogliStampa");
    P->Premi(u"Escape"_s);
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[0].Titolo)), qPrintable(P->Stato()));
    QTRY_COMPARE(P->Fuoco(), Prima);
    QVERIFY(!P->Testo(u"lblRisult"_s).isEmpty());
}

// ---- messages

/// Tabs that ask for the parameters: the message brings the user to what is missing.
void TestFinestre::datiBaseIncompleti()
{
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(u"ctrl+Next"_s);
    ATTENDI_CHE(!P->Messaggio().isEmpty());
    P->Rispondi(u"Return"_s);
    ATTENDI(u"messaggio"_s, "");
    ATTENDI(u"testo tabParcelle"_s, "Dati base");
    ATTENDI_CHE(P->Fuoco() == u"cmbAutor" || P->Fuoco() == u"cmbCateg");
}

/// A question over the lines: No keeps the line and its place, Yes takes it; the keys stay in the grid.
void TestFinestre::cancellareUnaVoce()
{
    Apri(u"Onorari"_s);
    if (QTest::currentTestFailed())
        return;
    // Those that have come with the authority.
    const QString Prima = P->TestoCella(u"tdbOnor"_s, 0, 1);
    const QString Seconda = P->TestoCella(u"tdbOnor"_s, 1, 1);
    QVERIFY(!Prima.isEmpty() && !Seconda.isEmpty());
    P->Clic(P->Cella(u"tdbOnor"_s, 0, -1));
    P->Premi(u"Delete"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"cancellazione"));
    P->Rispondi(u"Escape"_s);
    ATTENDI(u"messaggio"_s, "");
    ATTENDI(u"fuoco"_s, "tdbOnor");
    QCOMPARE(P->TestoCella(u"tdbOnor"_s, 0, 1), Prima);
    P->Premi(u"Delete"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"cancellazione"));
    P->Rispondi(u"Return"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 0, 1) == Seconda);
    ATTENDI(u"fuoco"_s, "tdbOnor");
}

/// A refused amount keeps its cell open under the message, and goes on being typed.
void TestFinestre::numeroInUnaCella()
{
    Apri(u"Onorari"_s);
    if (QTest::currentTestFailed())
        return;
    QVERIFY(!P->TestoCella(u"tdbOnor"_s, 0, 1).isEmpty());
    P->Clic(P->Cella(u"tdbOnor"_s, 0, 3));
    P->Premi(u"F2"_s);
    ATTENDI(u"fuoco"_s, "cella");
    P->Premi(u"ctrl+a"_s);
    P->Digita(u"1-2"_s);
    P->Premi(u"Return"_s);
    ATTENDI_CHE(!P->Messaggio().isEmpty());
    P->Rispondi(u"Return"_s);
    ATTENDI(u"messaggio"_s, "");
    ATTENDI(u"fuoco"_s, "cella");
    P->Premi(u"ctrl+a"_s);
    P->Digita(u"700"_s);
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 0, 3) == u"700,00");
}

void TestFinestre::impostazioniIncomplete()
{
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(QString::fromLatin1(Impostazioni.Tasti));
    QVERIFY2(P->Aperta(QString::fromUtf8(Impostazioni.Titolo)), qPrintable(P->Stato()));
    P->Clic(u"cmdSaveImpost"_s);
    ATTENDI(u"messaggio"_s, "Non è stato specificato l'indirizzo!");
    P->Rispondi(u"Return"_s);
    ATTENDI(u"messaggio"_s, "");
    ATTENDI(u"fuoco"_s, "txtIndStudio");
}

/// The question of the arrow on the first tab: No leaves the user where he was.
void TestFinestre::tornareAlMenuIniziale()
{
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Clic(u"txtOggetto"_s);
    P->Digita(u"appalto"_s);
    P->Clic(u"imgPrev"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"ritorno al menu iniziale"));
    P->Rispondi(u"Escape"_s);
    ATTENDI(u"messaggio"_s, "");
    ATTENDI(u"fuoco"_s, "txtOggetto");
    QCOMPARE(P->Testo(u"txtOggetto"_s), u"appalto"_s);
}

#include "TestFinestre.moc"
