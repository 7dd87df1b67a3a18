#include "banco.h"

#include "core/versione.h"
#include "update/modCopyURL.h"

class TestCopyURL : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void copia();
    void diUnErroreRestaLaPagina();
    void senzaConnessione();
    void inSilenzio();
    void parziale();
    void annullata();
    void discoPieno();
    void chiRespira();

private:
    std::unique_ptr<BancoAggiornamenti> B;
    QString File;
};
PROVA(TestCopyURL);

void TestCopyURL::init()
{
    B = std::make_unique<BancoAggiornamenti>();
    File = NuovaCartella() + u"copia"_s;
}

void TestCopyURL::cleanup()
{
    B.reset();
}

void TestCopyURL::copia()
{
    ScriviFile(B->Server.Cartella() + u"x"_s, "ciao");
    ScriviFile(File, "un file più lungo di prima");
    QString Dettaglio = u"?"_s;
    QCOMPARE(CopiaURL(B->Server.Indirizzo(u"piano"_s, u"x"_s), File, {}, &Dettaglio), 0);
    QCOMPARE(LeggiFile(File), "ciao"_ba);
    QCOMPARE(Dettaglio, QString());
    QVERIFY(B->Server.Uditi().contains("User-Agent: Calcanova/" + VersioneProgramma().toLatin1() + "\r\n"));
}

void TestCopyURL::diUnErroreRestaLaPagina()
{
    QCOMPARE(CopiaURL(B->Server.Indirizzo(u"pagina404"_s, u"x"_s), File), 0);
    QVERIFY(LeggiFile(File).startsWith("<!DOCTYPE html>"));
}

void TestCopyURL::senzaConnessione()
{
    B->Server.Ferma();
    ScriviFile(File, "prima");
    B->Voce.Attendi(SenzaConnessione, vbOK, u"Errore:"_s);
    QString Dettaglio;
    QCOMPARE(CopiaURL(B->Server.Indirizzo(), File, {}, &Dettaglio), 1000);
    QCOMPARE(Dettaglio, u"nessuna connessione"_s);
    QCOMPARE(B->Voce.Mostrato(0).Bandiere, vbCritical);
    QCOMPARE(LeggiFile(File), "prima"_ba);
}

void TestCopyURL::inSilenzio()
{
    B->Server.Ferma();
    OpzioniCopia Opzioni;
    Opzioni.Silenziosa = true;
    QCOMPARE(CopiaURL(B->Server.Indirizzo(), File, Opzioni), 1000);
    QVERIFY(B->Voce.Mostrati().isEmpty());
}

void TestCopyURL::parziale()
{
    ScriviFile(B->Server.Cartella() + u"x"_s, "0123456789");
    ScriviFile(File, "prima");
    B->Voce.Attendi(SenzaConnessione, vbOK, u"Errore:"_s);
    QString Dettaglio;
    QVERIFY(CopiaURL(B->Server.Indirizzo(u"spezza"_s, u"x"_s), File, {}, &Dettaglio) != 0);
    QCOMPARE(Dettaglio, u"connessione interrotta"_s);
    QCOMPARE(LeggiFile(File), "01234"_ba);
}

void TestCopyURL::annullata()
{
    OpzioniCopia Opzioni;
    qint64 Visti = 0;
    qint64 Tutti = 0;
    Opzioni.Passo = [&](qint64 Ricevuti, qint64 Totale) {
        Visti = Ricevuti;
        Tutti = Totale;
        return Ricevuti == 0;
    };
    QString Dettaglio;
    QVERIFY(CopiaURL(B->Server.Indirizzo(u"lento"_s, u"x"_s), File, Opzioni, &Dettaglio) != 0);
    QCOMPARE(Dettaglio, u"operazione annullata"_s);
    QVERIFY(Visti > 0);
    QCOMPARE(Tutti, qint64(1) << 20);
    // Who has stopped it needs not be told.
    QVERIFY(B->Voce.Mostrati().isEmpty());
}

void TestCopyURL::discoPieno()
{
    ScriviFile(B->Server.Cartella() + u"x"_s, QByteArray(5000, 'x'));
    guasti::LimiteFile = 1000;
    B->Voce.Attendi(u"Impossibile salvare il file ricevuto: controllare lo spazio libero su disco."_s, vbOK,
                    u"Errore:"_s);
    QCOMPARE(CopiaURL(B->Server.Indirizzo(u"piano"_s, u"x"_s), File), 61);
}

void TestCopyURL::chiRespira()
{
    int Respiri = 0;
    InstallaReteQt({[&] { return ++Respiri < 3; }, {}});
    QString Dettaglio;
    QVERIFY(CopiaURL(B->Server.Indirizzo(u"lento"_s, u"x"_s), File, {}, &Dettaglio) != 0);
    QCOMPARE(Dettaglio, u"operazione annullata"_s);
    QVERIFY(Respiri >= 3);
}

#include "TestCopyURL.moc"
