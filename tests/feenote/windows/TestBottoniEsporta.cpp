// The buttons "word" and "wp".
#include "feenote/windows/bottoniesporta.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "print/banco_esporta.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

using namespace Qt::StringLiterals;

namespace {

const QString InUso =
    u"Attenzione, il documento rossi.doc è già aperto da un'altra applicazione e non può essere "
    u"aggiornato.\nChiudere il documento e riprovare."_s;
const QString NonTrovato = u"Attenzione, il documento rossi.doc non è stato trovato!"_s;

bool Word(Banco& B)
{
    return EsportaInWord(1, [&B] { return B.Componi(); });
}

}  // namespace

class TestBottoniEsporta : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void word();
    void senzaWordDiceDove_data();
    void senzaWordDiceDove();
    void wordInUso_data();
    void wordInUso();
    void wordMancante();
    void wordNonAggiornato();
    void wordComposizioneFallita();
    void editor();
    void editorCheNonParte();
};
PROVA(TestBottoniEsporta);

void TestBottoniEsporta::word()
{
    Banco B;
    Registratore Voce;
    QVERIFY(Word(B));
    QCOMPARE(B.Aperti, QStringList{B.File()});
    QVERIFY(EsisteFile(B.File()));
    QCOMPARE(B.Puntatore, u"+-"_s);
}

void TestBottoniEsporta::senzaWordDiceDove_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::newRow("letto") << vbNo;
    QTest::newRow("apre la cartella") << vbYes;
}

/// The command runs all the same, and the desktop keeps silent about it.
void TestBottoniEsporta::senzaWordDiceDove()
{
    QFETCH(int, Risposta);
    Banco B;
    B.ConProgramma = false;
    Registratore Voce;
    Voce.Attendi(u"Nessun programma di questo computer apre i documenti di testo.\n"
                 "Il documento rossi.doc è stato scritto nella cartella "_s +
                     CartellaFile(B.File()),
                 Risposta, u"Messaggio:"_s);
    QVERIFY(Word(B));
    QCOMPARE(B.Aperti,
             Risposta == vbYes ? QStringList({B.File(), CartellaFile(B.File())}) : QStringList{B.File()});
}

void TestBottoniEsporta::wordInUso_data()
{
    QTest::addColumn<bool>("Protetto");
    QTest::addColumn<bool>("Aperto");
    QTest::newRow("read-only") << true << false;
    QTest::newRow("open in a word processor") << false << true;
    QTest::newRow("free") << false << false;
}

void TestBottoniEsporta::wordInUso()
{
    QFETCH(bool, Protetto);
    QFETCH(bool, Aperto);
    Banco B;
    Registratore Voce;
    CreaCartella(sessione::UserFolder + u"doc"_s);
    ScriviFile(B.File(), "vecchio");
    if (Aperto)
        ScriviFile(CartellaFile(B.File()) + u".~lock.rossi.doc#"_s, "neri");
    ImpostaSolaLettura(B.File(), Protetto);
    const bool Rifiutato = Protetto || Aperto;
    if (Rifiutato)
        Voce.Attendi(InUso, vbOK, u"Errore:"_s);
    QCOMPARE(Word(B), !Rifiutato);
    ImpostaSolaLettura(B.File(), false);
    // The preview is as it was, and nothing is opened.
    QCOMPARE(B.vp.Contenuto().Blocchi.empty(), Rifiutato);
    QCOMPARE(B.Aperti.isEmpty(), Rifiutato);
    QCOMPARE(LeggiFile(B.File()) == "vecchio", Rifiutato);
    QCOMPARE(B.Puntatore, u"+-"_s);
}

void TestBottoniEsporta::wordMancante()
{
    Banco B;
    Registratore Voce;
    ScriviFile(sessione::UserFolder + u"doc"_s, "no folder");
    Voce.Attendi(NonTrovato, vbOK, u"Errore:"_s);
    QVERIFY(!Word(B));
    QVERIFY(B.Aperti.isEmpty());
    QCOMPARE(B.Puntatore, u"+-"_s);
}

void TestBottoniEsporta::wordNonAggiornato()
{
    Banco B;
    Registratore Voce;
    CreaCartella(sessione::UserFolder + u"doc"_s);
    ScriviFile(B.File(), "vecchio");
    guasti::LimiteFile = 20;
    Voce.Attendi(u"Errore: "_s + DescrizioneErrore(61) + u" (61)"_s);
    QVERIFY(!Word(B));
    QVERIFY(B.Aperti.isEmpty());
    QCOMPARE(LeggiFile(B.File()), "vecchio"_ba);
}

void TestBottoniEsporta::wordComposizioneFallita()
{
    Banco B;
    Registratore Voce;
    CreaCartella(sessione::UserFolder + u"doc"_s);
    ScriviFile(B.File(), "vecchio");
    Voce.Attendi(u"Errore: "_s + DescrizioneErrore(13) + u" (13)"_s);
    QVERIFY(!EsportaInWord(1, []() -> std::optional<Errore> { throw Errore(13); }));
    QVERIFY(B.Aperti.isEmpty());
    QVERIFY(B.Puntatore.endsWith(u'-'));
}

void TestBottoniEsporta::editor()
{
    Banco B;
    Registratore Voce;
    sessione::WP.clear();
    AvviaEditor(1);
    QVERIFY(B.Avviati.isEmpty());
    sessione::WP = u"/opt/editor di testi"_s;
    AvviaEditor(1);
    QCOMPARE(B.Avviati, QStringList{u"/opt/editor di testi|"_s + B.File() + u'|' +
                                    Barra(sessione::UserFolder + u"doc"_s)});
}

void TestBottoniEsporta::editorCheNonParte()
{
    Banco B;
    Registratore Voce;
    B.EsitoAvvio = 53;
    sessione::WP = u"manca"_s;
    Voce.Attendi(u"Si è verificato un errore nell'apertura"_s, vbOK, u"Errore!"_s);
    AvviaEditor(1);
}

#include "TestBottoniEsporta.moc"
