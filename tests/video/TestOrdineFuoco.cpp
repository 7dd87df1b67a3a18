// Where Tab and Enter lead in every window, written down in ordine/: a line a stop of Tab, from the first
// focus on, then behind an empty one those of Enter. To write the files anew, set CALCANOVA_SCRIVI_ORDINE,
// and read what has changed.
#include "moduli.h"
#include "vecchistudi.h"

#include <QDir>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

class TestOrdineFuoco : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void modulo_data() { RigheModuli(); }
    void modulo();
    void impostazioni_data() { RigheImpostazioni(); }
    void impostazioni();
    void scheda_data() { RigheSchede(); }
    void scheda();
    void parcella55();
    void schedaInformativa();
    void stampaDiUnCalcolo();
    void aggiornamento();
    void importa_data();
    void importa();
    void importaPassi();

private:
    [[nodiscard]] QStringList Giro(const QString& Tasto);
    void Percorri(const QString& Nome, bool ConInvio = true);
    static void Confronta(const QString& Nome, const QStringList& Incontrati, const QStringList& ConInvio);

    std::unique_ptr<Programma> P;
};
PROVA(TestOrdineFuoco);

void TestOrdineFuoco::init()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
}

void TestOrdineFuoco::cleanup()
{
    if (QTest::currentTestFailed())
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

/// The stops of a key until the first one comes again, or it moves on no more; going through the cells of a
/// grid is one stop. Enter presses a button: it is the last stop.
QStringList TestOrdineFuoco::Giro(const QString& Tasto)
{
    constexpr int Massimo = 120;
    constexpr int Celle = 40;
    QStringList Incontrati;
    int Fermo = 0;
    for (int i = 0; i < Massimo && Fermo < Celle; ++i) {
        const QString Qui = P->Fuoco();
        Fermo = !Incontrati.isEmpty() && Qui == Incontrati.last() ? Fermo + 1 : 0;
        if (Fermo == 0) {
            if (Incontrati.contains(Qui))
                break;
            Incontrati += Qui;
        }
        if (Tasto == u"Return" && P->Chiedi(u"pulsante"_s) == u"1")
            break;
        P->Premi(Tasto);
        if (!P->Messaggio().isEmpty()) {
            Incontrati += u'«' + P->Messaggio() + u'»';
            P->Rispondi(u"Escape"_s);
            break;
        }
    }
    return Incontrati;
}

void TestOrdineFuoco::Confronta(const QString& Nome, const QStringList& Incontrati,
                                const QStringList& ConInvio)
{
    const QStringList Scritti =
        ConInvio.isEmpty() ? Incontrati : Incontrati + QStringList{QString()} + ConInvio;
    QFile File(FileDiProva(u"video/ordine/"_s + Nome + u".txt"_s));
    if (qEnvironmentVariableIsSet("CALCANOVA_SCRIVI_ORDINE")) {
        QVERIFY(File.open(QIODevice::WriteOnly));
        File.write(Scritti.join(u'\n').toUtf8() + '\n');
        return;
    }
    QVERIFY2(File.open(QIODevice::ReadOnly), qPrintable(File.fileName()));
    QCOMPARE(Scritti, QString::fromUtf8(File.readAll()).chopped(1).split(u'\n'));
}

/// Enter first, since it may begin where the window does; Shift+Tab goes back through what Tab has met.
void TestOrdineFuoco::Percorri(const QString& Nome, bool ConInvio)
{
    ATTENDI_CHE(!P->Fuoco().isEmpty());
    const QString Prima = P->Fuoco();
    QStringList Invio;
    if (ConInvio) {
        Invio = Giro(u"Return"_s);
        QVERIFY2(P->VaiA(Prima), qPrintable(P->Stato()));
    }
    const QStringList Avanti = Giro(u"Tab"_s);
    QCOMPARE(P->Fuoco(), Prima);  // the ring is closed
    Confronta(Nome, Avanti, Invio);
    QStringList Indietro = Giro(u"shift+Tab"_s);
    std::reverse(Indietro.begin() + 1, Indietro.end());
    QCOMPARE(Indietro, Avanti);
}

void TestOrdineFuoco::modulo()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Tasti);
    QFETCH(QString, Titolo);
    P->Premi(Tasti);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    Percorri(Nome, Nome != QLatin1String(ElencoDocumenti.Nome));  // there Enter opens the document
}

void TestOrdineFuoco::impostazioni()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Titolo);
    QVERIFY2(P->AlleImpostazioni(Titolo), qPrintable(P->Stato()));
    Percorri(u"impostazioni_"_s + Nome, false);  // Enter saves, as on the first tab
}

void TestOrdineFuoco::scheda()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Titolo);
    if (Titolo != u"Dati base") {
        QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
        QVERIFY2(P->AllaScheda(Titolo), qPrintable(P->Stato()));
    }
    Percorri(u"parcella_"_s + Nome);
}

/// The base data where the office has chosen the tariff in force: its list, its options, the parties.
void TestOrdineFuoco::parcella55()
{
    P = std::make_unique<Programma>(QStringList{}, u"Tariffa=55"_s);
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Clic(u"cmbCateg"_s);
    ATTENDI_CHE(!P->Chiedi(u"popup"_s).isEmpty());
    P->Premi({u"Home"_s, u"Return"_s});
    ATTENDI_CHE(P->Chiedi(u"popup"_s).isEmpty());
    QVERIFY2(P->VaiA(u"txtCliente"_s), qPrintable(P->Stato()));
    Percorri(u"parcella55_datibase"_s);
}

void TestOrdineFuoco::schedaInformativa()
{
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    P->Clic(u"barListaOnoDir_info"_s);
    QVERIFY2(P->Aperta(u"KR5 - Scheda informativa"_s), qPrintable(P->Stato()));
    Percorri(u"scheda_informativa"_s);
}

void TestOrdineFuoco::stampaDiUnCalcolo()
{
    P->Premi(QString::fromLatin1(Calcolatrici()[0].Tasti));
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[0].Titolo)), qPrintable(P->Stato()));
    P->Digita(u"01072026"_s);
    P->Premi(u"Return"_s);
    P->Digita(u"60"_s);
    P->Premi(QStringList(6, u"Return"_s));
    P->Premi(u"ctrl+p"_s);
    QVERIFY2(P->Aperta(u"Stampa documento"_s), qPrintable(P->Stato()));
    Percorri(u"stampa_documento"_s);
}

/// From the desktop; without a server the search is off and "Da file..." comes first.
void TestOrdineFuoco::aggiornamento()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->AllaScrivania(), qPrintable(P->Stato()));
    QVERIFY2(P->VaiA(IconaAggiornamento()), qPrintable(P->Stato()));
    P->Premi(u"Return"_s);
    QVERIFY2(P->Aperta(QString::fromUtf8(Aggiornamento.Titolo)), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "cmdFile");
    Percorri(QString::fromUtf8(Aggiornamento.Nome));
}

void TestOrdineFuoco::importa_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Scelta");
    QTest::newRow("a whole archive") << u"intero"_s << u"optModo_0"_s;
    QTest::newRow("names") << u"nominativi"_s << u"optModo_1"_s;
    QTest::newRow("old notes") << u"parcelle"_s << u"optModo_2"_s;
}

/// The first step of each way.
void TestOrdineFuoco::importa()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Scelta);
    QVERIFY2(ApriImporta(*P), qPrintable(P->Stato()));
    ScegliModo(*P, Scelta);
    P->Clic(u"txtFile"_s);
    ATTENDI(u"fuoco"_s, "txtFile");
    Percorri(u"importa_"_s + Nome, false);  // Enter goes on, as from any box
}

void TestOrdineFuoco::importaPassi()
{
    const VecchioStudio Vecchio;
    QVERIFY2(ApriImporta(*P), qPrintable(P->Stato()));
    P->Digita(Vecchio.Csv());
    P->Premi(u"Return"_s);
    ATTENDI(u"fuoco"_s, "tdbColonne");
    Percorri(u"importa_colonne"_s, false);
    P->Clic(u"cmdAvanti"_s);
    ATTENDI(u"fuoco"_s, "cmdAvanti");
    ATTENDI_CHE(P->Testo(u"lblProva"_s).contains(u"aggiungere"_s));
    Percorri(u"importa_doppioni"_s, false);
    P->Clic(u"cmdAvanti"_s);
    ATTENDI(u"fuoco"_s, "cmdChiudi");
    Percorri(u"importa_resoconto"_s, false);
}

#include "TestOrdineFuoco.moc"
