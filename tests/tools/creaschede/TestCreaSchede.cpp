// The tool of the information sheets: what it refuses, what it leaves in its folder.
#include "scheda.h"
#include "supporto/prova.h"

#include "creaschede/creaschede.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QDir>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

/// Runs the tool on a folder of tables; gives what it said.
QString Esegui(const QString& Tabelle, const QString& Uscita, int& Stato)
{
    QString Detto;
    QTextStream Errori(&Detto);
    Stato = CreaSchede({Tabelle, Uscita}, Errori);
    Errori.flush();
    return Detto.trimmed();
}

/// A copy of the tables and texts of the program, to be spoilt.
QString CopiaDati()
{
    const QString Origine = SorgenteDiProva(u"dati/"_s);
    const QString Copia = NuovaCartella();
    QDir().mkpath(Copia + u"schede"_s);
    for (const QString& Nome : {u"autorita.csv"_s, u"scaglioni.csv"_s, u"voci.csv"_s, u"onorari_civili.csv"_s,
                                u"onorari_penali.csv"_s, u"onorari_stragiudiziali.csv"_s, u"spese.csv"_s,
                                u"chiavi_precedenti.csv"_s, u"schede/civile.txt"_s, u"schede/penale.txt"_s,
                                u"schede/stragiudiziale.txt"_s})
        QFile::copy(Origine + Nome, Copia + Nome);
    for (const QString& Nome : QDir(Origine).entryList({u"*55.csv"_s}))
        QFile::copy(Origine + Nome, Copia + Nome);
    for (const QString& Nome : QDir(Origine + u"schede"_s).entryList({u"*55.txt"_s}))
        QFile::copy(Origine + u"schede/"_s + Nome, Copia + u"schede/"_s + Nome);
    return Copia;
}

}  // namespace

class TestCreaSchede : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rifiuta_data();
    void rifiuta();
    void rifiutandoNonScriveNulla();
    void leSuperflueSeNeVanno();
    void uscitaNonScrivibile();
    void usoSbagliato();
};
PROVA(TestCreaSchede);

void TestCreaSchede::rifiuta_data()
{
    QTest::addColumn<QString>("File");
    QTest::addColumn<QString>("Cerca");
    QTest::addColumn<QString>("Metti");
    QTest::addColumn<QString>("Motivo");

    const auto Caso = [](const char* Nome, const QString& File, const QString& Cerca, const QString& Metti,
                         const QString& Motivo) { QTest::newRow(Nome) << File << Cerca << Metti << Motivo; };
    const QString Civ = u"schede/civile.txt"_s;
    const QString Pen = u"schede/penale.txt"_s;
    const QString Str = u"schede/stragiudiziale.txt"_s;
    Caso("item without a text", u"voci.csv"_s, u"PEN;999;"_s, u"PEN;106;6;6;Fase nuova;\nPEN;999;"_s,
         u"manca l'importo penale"_s);
    Caso("item without a text, with amounts", u"voci.csv"_s, u"CIV;999;999;999;Voce non prevista;"_s,
         u"CIV;999;999;999;Voce non prevista;\nSTR;220;20;20;Voce nuova;"_s, u"voce 220"_s);
    Caso("text without an item", Civ, u"= 8 Affari tavolari"_s, u"= 88 Affari tavolari"_s,
         u"civile.txt, riga "_s);
    Caso("text of nothing", Civ, u"= 8 Affari tavolari"_s, u"= Affari tavolari"_s, u"serve il codice"_s);
    Caso("text left out", Pen, u"= 102 Fase introduttiva"_s, u"## Fase introduttiva"_s,
         u"manca la scheda della voce 102, Fase introduttiva"_s);
    Caso("another description", Pen, u"= 101 Fase di studio"_s, u"= 101 Fase di esame"_s,
         u"la voce 101 si chiama «Fase di studio»"_s);
    Caso("two texts of an item", Pen, u"= 102 Fase introduttiva"_s, u"= 101 Fase di studio"_s,
         u"la voce 101 ha già una scheda"_s);
    Caso("words before any section", Pen, u"= 101 Fase di studio"_s, u"ciao\n= 101 Fase di studio"_s,
         u"penale.txt, riga 1: testo fuori da ogni sezione"_s);
    Caso("a group without its words", Civ, u"= gruppo appello: Appello\n"_s, QString(),
         u"manca il gruppo «appello»"_s);
    Caso("a group of nobody", Civ, u"= gruppo appello: Appello"_s, u"= gruppo appelli: Appello"_s,
         u"nessuna autorità appartiene al gruppo «appelli»"_s);
    Caso("a group without a title", Civ, u"= gruppo appello: Appello"_s, u"= gruppo appello"_s,
         u"due punti"_s);
    Caso("a group twice", Civ, u"= gruppo appello: Appello"_s, u"= gruppo tribunale: Appello"_s,
         u"il gruppo «tribunale» è già descritto"_s);
    Caso("closing words left out", Pen, u"= ogni scheda\n"_s, QString(), u"manca la sezione «ogni scheda»"_s);
    Caso("doubt of nothing", Pen, u"= ogni scheda\n"_s, u"= dubbio\nforse\n= ogni scheda\n"_s,
         u"nessun importo è in dubbio"_s);
    Caso("doubt left out", u"schede/penale55.txt"_s, u"= dubbio\n"_s, QString(),
         u"manca la sezione «dubbio»"_s);
    Caso("doubt twice", u"schede/penale55.txt"_s, u"= dubbio\n"_s, u"= dubbio\n= dubbio\n"_s,
         u"una seconda sezione «dubbio»"_s);
    Caso("closing words twice", Pen, u"= ogni scheda\n"_s, u"= ogni scheda\n= ogni scheda\n"_s,
         u"una seconda sezione «ogni scheda»"_s);
    Caso("amounts left out", Pen, u"%importi percentuali monocratico\n"_s, QString(),
         u"«%importi» serve una volta"_s);
    Caso("amounts of the free item", Pen, u"= 999 Voce non prevista\n"_s,
         u"= 999 Voce non prevista\n%importi\n"_s, QString());
    Caso("quantity left out", Pen, u"%quantità\n"_s, QString(), u"«%quantità» serve una volta"_s);
    Caso("quantity of an item without one", Pen, u"= 101 Fase di studio\n"_s,
         u"= 101 Fase di studio\n%quantità\n"_s, u"«%quantità» non serve"_s);
    Caso("no articles", Pen, u"## Nel decreto\n"_s, QString(), u"manca «## Nel decreto»"_s);
    Caso("unknown directive", Str, u"%quantità\n"_s, u"%quantita\n"_s, u"direttiva sconosciuta: quantita"_s);
    Caso("bold without an end", Str, u"- **Art. 3**:"_s, u"- **Art. 3:"_s, u"grassetto senza fine"_s);
    Caso("a link to no item", Str, u"%vedi S202 S203 C1"_s, u"%vedi S202 S77"_s, u"nessuna voce S77"_s);
    Caso("a link to no category", Str, u"%vedi S202 S203 C1"_s, u"%vedi S202 X3"_s, u"nessuna voce X3"_s);
    Caso("an example of a civil item", Civ, u"%vedi C20 C5 C6"_s, u"%esempio 3000"_s, u"non si adatta"_s);
    Caso("an example without its quantity", Str, u"%esempio 30000 2"_s, u"%esempio 30000"_s,
         u"non si adatta"_s);
    Caso("an example with a quantity too many", Str, u"%esempio 80000"_s, u"%esempio 80000 2"_s,
         u"non si adatta"_s);
    Caso("an example outside the brackets", Str, u"%esempio 80000"_s, u"%esempio 0"_s,
         u"in nessuno scaglione"_s);
    Caso("percentages that the figures do not follow", u"onorari_penali.csv"_s, u"assise;102;750;1500;2250"_s,
         u"assise;102;757;1500;2250"_s, u"la voce 102 non segue da una percentuale intera"_s);
    Caso("a formula that words cannot tell", u"onorari_stragiudiziali.csv"_s, u"206;1;50+x*0.03;150+x*0.08"_s,
         u"206;1;50+x*0.03;150+x*x*0.08"_s, u"non si può dire a parole"_s);
}

void TestCreaSchede::rifiuta()
{
    QFETCH(QString, File);
    QFETCH(QString, Cerca);
    QFETCH(QString, Metti);
    QFETCH(QString, Motivo);
    const QString Copia = CopiaDati();
    QString Testo = QString::fromUtf8(LeggiFile(Copia + File));
    const qsizetype Dove = Testo.indexOf(Cerca);
    QVERIFY(Dove >= 0);
    Testo.replace(Dove, Cerca.size(), Metti);
    ScriviFile(Copia + File, Testo.toUtf8());
    int Stato = -1;
    const QString Detto = Esegui(Copia, NuovaCartella(), Stato);
    QCOMPARE(Stato, 1);
    QVERIFY2(!Detto.isEmpty() && Detto.contains(Motivo), qPrintable(Detto));
}

void TestCreaSchede::rifiutandoNonScriveNulla()
{
    const QString Copia = CopiaDati();
    const QString Uscita = NuovaCartella();
    QVERIFY(QFile::remove(Copia + u"schede/stragiudiziale.txt"_s));
    int Stato = -1;
    QCOMPARE(Esegui(Copia, Uscita, Stato), u"File non trovato"_s);
    QCOMPARE(Stato, 1);
    QVERIFY(!EsisteCartella(Uscita + u"note"_s));
}

void TestCreaSchede::leSuperflueSeNeVanno()
{
    const QString Uscita = NuovaCartella();
    CreaCartella(Uscita + u"note"_s);
    for (const QString& Nome :
         {u"C777.htm"_s, u"blank.htm"_s, u"Cliente.htm"_s, u"c777.htm"_s, u"S0777.html"_s})
        ScriviFile(Uscita + u"note/"_s + Nome, "prima");
    ScriviFile(Uscita + u"note/C001.htm"_s, "prima");
    int Stato = -1;
    QCOMPARE(Esegui(SorgenteDiProva(u"dati"_s), Uscita, Stato), QString());
    QCOMPARE(Stato, 0);
    const QStringList Nomi = QDir(Uscita + u"note"_s).entryList(QDir::Files);
    QVERIFY(!Nomi.contains(u"C777.htm"_s));
    for (const QString& Nome : {u"blank.htm"_s, u"Cliente.htm"_s, u"c777.htm"_s, u"S0777.html"_s})
        QCOMPARE(LeggiFile(Uscita + u"note/"_s + Nome), QByteArray("prima"));
    QCOMPARE(LeggiFile(Uscita + u"note/C001.htm"_s), LeggiFile(CartellaNote() + u"C001.htm"_s));
    QCOMPARE(Nomi.size(), 38 + 28 + 4);
}

void TestCreaSchede::uscitaNonScrivibile()
{
    const QString Uscita = NuovaCartella();
    ScriviFile(Uscita + u"note"_s, "un file al posto della cartella");
    int Stato = -1;
    QVERIFY(!Esegui(SorgenteDiProva(u"dati"_s), Uscita, Stato).isEmpty());
    QCOMPARE(Stato, 1);
}

void TestCreaSchede::usoSbagliato()
{
    QString Detto;
    QTextStream Errori(&Detto);
    QCOMPARE(CreaSchede({u"dati"_s}, Errori), 2);
    Errori.flush();
    QVERIFY(Detto.startsWith(u"Uso: creaschede "));
}

#include "TestCreaSchede.moc"
