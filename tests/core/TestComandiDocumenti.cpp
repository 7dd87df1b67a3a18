// Commands that open a document, a page or another program.
#include "aperture_prova.h"

#include "platform/base/numerierrore.h"
#include "platform/system/impostazioni.h"
#include "supporto/danni.h"

#include <QDir>

using namespace Qt::StringLiterals;

class TestComandiDocumenti : public QObject, private BancoComandi
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void stampaWord_data();
    void stampaWord();
    void stampaWordRifiutata();
    void kr2SiAvvia();
    void kr2Manca_data();
    void kr2Manca();
    void kr2NonSiSaDove_data();
    void kr2NonSiSaDove();
    void guida_data();
    void guida();
    void documenti_data();
    void documenti();
    void leggimi();
    void leggimiManca();
    void pagineDelFornitore_data();
    void pagineDelFornitore();
    void pagineProprie_data();
    void pagineProprie();
};
PROVA(TestComandiDocumenti);

void TestComandiDocumenti::stampaWord_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("File");

    QTest::newRow("saved note") << u"rossi contro bianchi"_s << u"rossi contro bianchi.doc"_s;
    QTest::newRow("caption that is no file name") << u"Nuova parcella:2"_s << u"Nuova parcella-2.doc"_s;
    QTest::newRow("every forbidden character") << uR"(a\b/c:d*e?f"g<h>i|j)"_s << u"a-b-c-d-e-f-g-h-i-j.doc"_s;
}

void TestComandiDocumenti::stampaWord()
{
    QFETCH(QString, Nome);
    QFETCH(QString, File);
    const Registratore Box;
    Posti(u"l"_s);
    InfoParcelle[1].Nome = Nome;
    const QString Cartella = Barra(u"/utente"_s);
    for (const QString& Utente : {Cartella, Cartella.chopped(1)}) {
        Eventi.clear();
        sessione::UserFolder = Utente;
        EseguiComando(u"printword"_s, 1, {});
        QCOMPARE(Eventi, QStringList{u"file "_s + Cartella + Barra(u"doc"_s) + File});
    }
}

void TestComandiDocumenti::stampaWordRifiutata()
{
    Registratore Box;
    Posti(u"p"_s);
    Esito = 53;
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(53) + u" (53)"_s, vbOK, u"Errore:"_s);
    EseguiComando(u"printword"_s, 1, {});
}

void TestComandiDocumenti::kr2SiAvvia()
{
    const Registratore Box;
    sessione::PercorsoVDM = NuovaCartella();
    const QString Programma = sessione::PercorsoVDM + u"CalcaPrima.EXE"_s;
    ScriviFile(Programma, "MZ");
    EseguiComando(u"kr2"_s, 0, {});
    QCOMPARE(Eventi, QStringList{u"avvia "_s + Programma + u" in "_s + sessione::PercorsoVDM + u" 0"_s});
}

void TestComandiDocumenti::kr2Manca_data()
{
    QTest::addColumn<QString>("Percorso");
    QTest::addColumn<QString>("Messaggio");

    QTest::newRow("never installed") << u""_s << u"Non è stato rilevato il programma Calcanova 2.0!"_s;
    QTest::newRow("gone from its folder")
        << u"/vdm2/"_s << u"Non è stato rilevato il programma Calcanova 2.0!Percorso: \n/vdm2/"_s;
}

void TestComandiDocumenti::kr2Manca()
{
    QFETCH(QString, Percorso);
    QFETCH(QString, Messaggio);
    Registratore Box;
    sessione::PercorsoVDM = Percorso;
    Box.Attendi(Messaggio, vbOK, u"Errore:"_s);
    EseguiComando(u"kr2"_s, 0, {});
    QCOMPARE(Box.Mostrato(0).Bandiere, vbCritical);
    QCOMPARE(Eventi, QStringList());
}

void TestComandiDocumenti::kr2NonSiSaDove_data()
{
    QTest::addColumn<int>("Come");
    for (const int Come : DanniVisibili())
        if (Come != Troncato)  // another program's text has no mark of its end
            QTest::newRow(NomiDanni[size_t(Come)]) << Come;
}

void TestComandiDocumenti::kr2NonSiSaDove()
{
    QFETCH(int, Come);
    SaveSetting(u"VDM2"_s, u"Parametri"_s, u"PercorsoProcedura"_s, u"/vdm2"_s);
    const QString File = PercorsoImpostazioni(u"VDM2"_s);
    Rovina(File, Come);
    Registratore Box;
    Box.Tollera();
    EseguiComando(u"kr2"_s, 0, {});
    if (Come == Cartella)
        QVERIFY(QDir().rmdir(File));
    else
        QVERIFY(QFile::remove(File));
    QCOMPARE(Box.Mostrati().size(), 1);
    QVERIFY2(Box.UltimoTesto().count(File) == 1, qPrintable(Box.UltimoTesto()));
}

void TestComandiDocumenti::guida_data()
{
    QTest::addColumn<QString>("Posti");
    QTest::addColumn<int>("Indice");
    QTest::addColumn<int>("Scheda");
    QTest::addColumn<int>("Pagina");

    QTest::newRow("base data") << u"p"_s << 1 << 0 << 2;
    QTest::newRow("honoraria") << u"p"_s << 1 << 1 << 13;
    QTest::newRow("expenses") << u"p"_s << 1 << 2 << 15;
    QTest::newRow("payments and taxes") << u"p"_s << 1 << 3 << 17;
    QTest::newRow("print") << u"p"_s << 1 << 4 << 18;
    QTest::newRow("a tab beyond") << u"p"_s << 1 << 5 << 0;
    QTest::newRow("no window") << u""_s << 0 << 3 << 0;
    QTest::newRow("no window is the target") << u"p"_s << 0 << 3 << 0;
    QTest::newRow("its window was closed") << u"l"_s << 1 << 3 << 0;
    QTest::newRow("beyond the places") << u"p"_s << 2 << 3 << 0;
}

void TestComandiDocumenti::guida()
{
    QFETCH(QString, Posti);
    QFETCH(int, Indice);
    QFETCH(int, Pagina);
    const Registratore Box;
    ::Posti(Posti);
    QFETCH(int, Scheda);
    SchedaInVista = Scheda;
    sessione::PercorsoProg = NuovaCartella();
    ScriviFile(sessione::PercorsoProg + u"GuidaGiuridica.pdf"_s, "%PDF");
    EseguiComando(u"guida"_s, Indice, {});
    QCOMPARE(Eventi, QStringList{u"pdf GuidaGiuridica.pdf"_s + Numeri({Pagina})});
}

void TestComandiDocumenti::documenti_data()
{
    QTest::addColumn<QString>("Comando");
    QTest::addColumn<QString>("File");

    QTest::newRow("news") << u"novita"_s << u"NovitaKR5.pdf"_s;
    QTest::newRow("manual") << u"help"_s << u"GuidaOperativa.pdf"_s;
}

void TestComandiDocumenti::documenti()
{
    QFETCH(QString, Comando);
    QFETCH(QString, File);
    Registratore Box;
    sessione::PercorsoProg = NuovaCartella();
    Box.Attendi(u"Documento "_s + sessione::PercorsoProg + File + u" non trovato!"_s, vbOK, u"Errore:"_s);
    EseguiComando(Comando, 0, {});
    QCOMPARE(Eventi, QStringList());
    ScriviFile(sessione::PercorsoProg + File, "%PDF");
    EseguiComando(Comando, 1, {});
    QCOMPARE(Eventi, QStringList{u"pdf "_s + File + u" 0"_s});
}

void TestComandiDocumenti::leggimi()
{
    const Registratore Box;
    sessione::PercorsoProg = NuovaCartella();
    const QString File = sessione::PercorsoProg + u"Avvertenze.doc"_s;
    ScriviFile(File, "testo");
    EseguiComando(u"readme"_s, 0, {});
    QCOMPARE(Eventi, QStringList{u"file "_s + File});
}

void TestComandiDocumenti::leggimiManca()
{
    Registratore Box;
    sessione::PercorsoProg = NuovaCartella();
    Box.Attendi(sessione::PercorsoProg + u"avvertenze.doc non è stato trovato!"_s, vbOK, u"Errore:"_s);
    EseguiComando(u"readme"_s, 0, {});
    QCOMPARE(Box.Mostrato(0).Bandiere, vbCritical);
    QCOMPARE(Eventi, QStringList());
}

void TestComandiDocumenti::pagineDelFornitore_data()
{
    QTest::addColumn<QString>("Comando");
    QTest::addColumn<QString>("Percorso");

    QTest::newRow("release notes") << u"release"_s << u"/vdm/setup/notes.htm"_s;
    QTest::newRow("useful sites") << u"link"_s << u"/vdm/link.htm"_s;
    QTest::newRow("assistance") << u"assistenza"_s << u"/vdm.asp"_s;
}

void TestComandiDocumenti::pagineDelFornitore()
{
    QFETCH(QString, Comando);
    QFETCH(QString, Percorso);
    const Registratore Box;
    ImpostaServer(u"https://www.esempio.it/"_s);
    EseguiComando(Comando, 0, {});
    QCOMPARE(Eventi, QStringList{u"indirizzo https://www.esempio.it"_s + Percorso});
}

void TestComandiDocumenti::pagineProprie_data()
{
    QTest::addColumn<QString>("Comando");
    QTest::addColumn<QString>("Evento");

    QTest::newRow("release notes") << u"release"_s << u"pdf NovitaKR5.pdf 0"_s;
    QTest::newRow("useful sites") << u"link"_s << u"pagina link.htm [Elenco siti web utili]"_s;
    QTest::newRow("assistance") << u"assistenza"_s << u"pagina assistenza.htm [Assistenza tecnica]"_s;
}

void TestComandiDocumenti::pagineProprie()
{
    QFETCH(QString, Comando);
    QFETCH(QString, Evento);
    const Registratore Box;
    sessione::PercorsoProg = NuovaCartella();
    ScriviFile(sessione::PercorsoProg + u"NovitaKR5.pdf"_s, "%PDF-");
    EseguiComando(Comando, 0, {});
    QCOMPARE(Eventi, QStringList{Evento});
}

#include "TestComandiDocumenti.moc"
