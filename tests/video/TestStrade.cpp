// Roads behind the first note, by keys as the display sends them: saving in place, steps back and again, the
// last notes, a term of the catalogue and its road, the file of the electronic invoice.
#include "moduli.h"
#include "studiocompleto.h"

#include <QDirIterator>

using namespace Qt::StringLiterals;

class TestStrade : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { P.reset(); }
    void cleanup();
    void salvaSulPosto();
    void passiNellaGriglia();
    void passiNelTesto();
    void speseDaTastiera();
    void anticipazioneOfferta();
    void scaglioneOfferto();
    void contributoNellaParcella();
    void ultimeParcelle();
    void termineRicorrente();
    void fatturaElettronica();

private:
    /// Saves the note on view for the first time, under a name. @return its file
    QString SalvaCome(const QString& Nome);
    /// Base data of a civil note before the court, 30.000 euro.
    void Civile();
    [[nodiscard]] QString FileDi(const QString& Nome) const;

    std::unique_ptr<Programma> P;
};
PROVA(TestStrade);

void TestStrade::cleanup()
{
    if (QTest::currentTestFailed() && P)
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

QString TestStrade::FileDi(const QString& Nome) const
{
    QDirIterator Giro(P->Casa(), {Nome}, QDir::Files, QDirIterator::Subdirectories);
    return Giro.hasNext() ? Giro.next() : QString();
}

QString TestStrade::SalvaCome(const QString& Nome)
{
    P->Premi(u"ctrl+s"_s);
    if (!P->Attendi(u"attiva"_s, [](const QString& Titoli) { return Titoli.contains(u"Salva"); }))
        return {};
    P->Premi(u"ctrl+a"_s);
    P->Digita(Nome);
    P->Premi(u"Return"_s);
    P->Rispondi(u"Return"_s);
    return P->Attendi(u"messaggio"_s, [](const QString& Testo) { return Testo.isEmpty(); })
               ? FileDi(Nome + u".mdb"_s)
               : QString();
}

/// The first time asks for a name, the next ones write where the note is: a line says so, and goes by itself.
void TestStrade::salvaSulPosto()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Digita(u"Bianchi"_s);
    const QString File = SalvaCome(u"bianchi sfratto"_s);
    QVERIFY2(!File.isEmpty(), qPrintable(P->Stato()));
    P->Clic(u"txtOggetto"_s);
    P->Digita(u"finita locazione"_s);
    P->Premi(u"ctrl+s"_s);
    ATTENDI_CHE(P->Testo(u"lblSalvata"_s).startsWith(u"Salvata alle "));
    P->Fotografa(u"salvata_sul_posto"_s);
    QVERIFY2(P->Fermo(u"txtOggetto"_s), qPrintable(P->Stato()));
    QString Letta;
    QCOMPARE(StudioCompleto::Comanda({u"nota"_s, File}, &Letta), 0);
    QVERIFY2(Letta.contains(u"finita locazione"), qPrintable(Letta));
    ATTENDI(u"visto lblSalvata"_s, "");
    // Nothing has changed since, and the line says it.
    P->Premi(u"ctrl+s"_s);
    ATTENDI_CHE(P->Testo(u"lblSalvata"_s).startsWith(u"Già salvata"));
    QVERIFY2(P->Fermo(u"txtOggetto"_s), qPrintable(P->Stato()));
    P->Premi(u"ctrl+w"_s);  // nor is there anything to ask
    QVERIFY2(P->AllaScrivania(), qPrintable(P->Stato()));
    ATTENDI(u"messaggio"_s, "");
}

/// An amount, back and again, by the keys and by the buttons beside the banner.
void TestStrade::passiNellaGriglia()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    const QString Prima = P->TestoCella(u"tdbOnor"_s, 0, 3);
    QVERIFY(!Prima.isEmpty() && Prima != u"777,00");
    P->Clic(P->Cella(u"tdbOnor"_s, 0, 3));
    P->Premi(u"F2"_s);
    ATTENDI(u"fuoco"_s, "cella");
    P->Premi(u"ctrl+a"_s);
    P->Digita(u"777"_s);
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 0, 3) == u"777,00");
    if (P->Fuoco() == u"cella")
        P->Premi(u"Escape"_s);
    ATTENDI(u"fuoco"_s, "tdbOnor");
    for (int Volta = 0; Volta < 2; ++Volta) {
        P->Premi(u"ctrl+z"_s);
        ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 0, 3) == Prima);
        P->Premi(u"ctrl+y"_s);
        ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 0, 3) == u"777,00");
    }
    P->Clic(u"cmdAnnulla"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 0, 3) == Prima);
    P->Fotografa(u"passo_indietro"_s);
    P->Clic(u"cmdRipeti"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 0, 3) == u"777,00");
    ATTENDI(u"visto cmdRipeti"_s, "0");
    QCOMPARE(P->Messaggio(), QString());
}

/// In the box the letters go back, from another one the whole of what it was given does.
void TestStrade::passiNelTesto()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    ATTENDI(u"visto cmdAnnulla"_s, "0");
    P->Clic(u"txtOggetto"_s);
    P->Digita(u"appalto"_s);
    P->Premi(u"ctrl+z"_s);
    ATTENDI(u"testo txtOggetto"_s, "");
    P->Premi(u"ctrl+y"_s);
    ATTENDI(u"testo txtOggetto"_s, "appalto");
    QVERIFY2(P->Fermo(u"txtOggetto"_s), qPrintable(P->Stato()));
    P->Premi(u"Tab"_s);
    ATTENDI_CHE(P->Fuoco() != u"txtOggetto");
    P->Premi(u"ctrl+z"_s);
    ATTENDI(u"testo txtOggetto"_s, "");
    P->Premi(u"ctrl+shift+z"_s);
    ATTENDI(u"testo txtOggetto"_s, "appalto");
    P->Clic(u"cmdAnnulla"_s);
    ATTENDI(u"testo txtOggetto"_s, "");
    P->Clic(u"cmdRipeti"_s);
    ATTENDI(u"testo txtOggetto"_s, "appalto");
}

/// F6 goes from the search to the catalogue and the lines and round, from the toolbar too; an expense that
/// was inserted has its amount open, by keys and by the mouse.
void TestStrade::speseDaTastiera()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    QVERIFY2(P->AllaScheda(u"Spese inserite"_s), qPrintable(P->Stato()));
    QVERIFY2(P->VaiA(u"txtCercaDir"_s), qPrintable(P->Stato()));
    P->Premi(u"F6"_s);
    ATTENDI(u"fuoco"_s, "tdbListaDir");
    P->Premi(u"F6"_s);
    ATTENDI(u"fuoco"_s, "tdbDir");
    P->Premi(u"F6"_s);
    ATTENDI(u"fuoco"_s, "txtCercaDir");
    P->Premi(u"shift+F6"_s);
    ATTENDI(u"fuoco"_s, "tdbDir");
    P->Premi(u"shift+F6"_s);
    ATTENDI(u"fuoco"_s, "tdbListaDir");
    P->Premi(u"Tab"_s);
    ATTENDI_CHE(P->Fuoco().startsWith(u"barListaOnoDir_"));
    P->Premi(u"F6"_s);
    ATTENDI(u"fuoco"_s, "tdbDir");
    P->Premi(u"shift+F6"_s);
    ATTENDI(u"fuoco"_s, "tdbListaDir");

    P->Premi(u"Return"_s);
    ATTENDI(u"fuoco"_s, "cella");
    P->Digita(u"43"_s);
    P->Fotografa(u"spesa_importo_aperto"_s);
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbDir"_s, 0, 3) == u"43,00");
    ATTENDI(u"fuoco"_s, "tdbDir");
    P->Clic(P->Cella(u"tdbListaDir"_s, 2, 0), 2);
    ATTENDI(u"fuoco"_s, "cella");
    P->Digita(u"16,5"_s);
    P->Premi(u"F6"_s);  // written on the way to the search
    ATTENDI(u"fuoco"_s, "txtCercaDir");
    ATTENDI_CHE(P->TestoCella(u"tdbDir"_s, 1, 3) == u"16,50");
    // Right behind an insertion Ctrl+Z takes it back.
    P->Premi(u"F6"_s);
    ATTENDI(u"fuoco"_s, "tdbListaDir");
    P->Premi(u"Return"_s);
    ATTENDI(u"fuoco"_s, "cella");
    P->Premi(u"ctrl+z"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbDir"_s, 2, 1).isEmpty());
    QCOMPARE(P->Messaggio(), QString());
}

void TestStrade::Civile()
{
    QVERIFY2(P->VaiA(u"cmbCateg"_s), qPrintable(P->Stato()));
    P->Premi({u"alt+Down"_s, u"Home"_s, u"Return"_s});
    ATTENDI(u"popup"_s, "");
    P->Premi(u"Tab"_s);
    ATTENDI(u"fuoco"_s, "cmbAutor");
    P->Digita(u"tribunale"_s);
    P->Premi(u"Tab"_s);
    ATTENDI(u"testo cmbAutor"_s, "Tribunale ordinario");
    QVERIFY2(P->VaiA(u"txtImporto"_s), qPrintable(P->Stato()));
    P->Digita(u"30000"_s);
    P->Premi(u"Return"_s);
}

/// The amount in force stands exempt by one key, and goes by one step.
void TestStrade::anticipazioneOfferta()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    Civile();
    QVERIFY2(P->AllaScheda(u"Spese inserite"_s), qPrintable(P->Stato()));
    ATTENDI(u"visto cmdOfferta"_s, "");
    P->Clic(P->Cella(u"tdbListaDir"_s, 1, 0), 2);
    ATTENDI(u"fuoco"_s, "cella");
    ATTENDI_CHE(P->Testo(u"cmdOfferta"_s).startsWith(u"27,00 esente: Ctrl+Invio"));
    P->Fotografa(u"anticipazione_offerta"_s);
    P->Premi(u"ctrl+Return"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbDir"_s, 0, 4) == u"27,00");
    ATTENDI(u"visto cmdOfferta"_s, "");
    ATTENDI(u"fuoco"_s, "tdbDir");
    P->Premi(u"ctrl+z"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbDir"_s, 0, 4).isEmpty());
    QVERIFY(!P->TestoCella(u"tdbDir"_s, 0, 1).isEmpty());
    P->Clic(P->Cella(u"tdbListaDir"_s, 1, 0), 2);
    ATTENDI_CHE(P->Testo(u"cmdOfferta"_s).startsWith(u"27,00 esente"));
    P->Clic(u"cmdOfferta"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbDir"_s, 1, 4) == u"27,00");
    QCOMPARE(P->Messaggio(), QString());
}

/// The bracket is named as the value is typed, and chosen without leaving it.
void TestStrade::scaglioneOfferto()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    Civile();
    P->Clic(u"txtImporto"_s);
    P->Premi(u"ctrl+a"_s);
    P->Digita(u"60000"_s);
    ATTENDI_CHE(P->Testo(u"cmdScaglione"_s).startsWith(u"Scaglione: da "));
    P->Fotografa(u"scaglione_offerto"_s);
    P->Premi(u"ctrl+Return"_s);
    ATTENDI(u"testo txtImporto"_s, "60.000,00");
    ATTENDI(u"visto cmdScaglione"_s, "");
    ATTENDI(u"fuoco"_s, "txtImporto");
    QCOMPARE(P->Messaggio(), QString());
}

/// From the note to the calculator and back: the fee and the lump sum stand among the exempt expenses.
void TestStrade::contributoNellaParcella()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    Civile();
    P->Premi(u"ctrl+shift+c"_s);
    QVERIFY2(P->Aperta(u"Calcolo contributo unificato"_s), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "txtValore_0");
    P->Digita(u"30000"_s);
    P->Premi({u"Tab"_s, u"Tab"_s});
    ATTENDI(u"fuoco"_s, "cmdPorta_0");
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->Testo(u"lblPortata"_s).startsWith(u"Portato in «Nuova parcella"));
    P->Fotografa(u"contributo_portato"_s);
    P->Premi(u"Escape"_s);
    QVERIFY2(P->AllaScheda(u"Spese inserite"_s), qPrintable(P->Stato()));
    ATTENDI_CHE(P->TestoCella(u"tdbDir"_s, 0, 4) == u"518,00");
    ATTENDI_CHE(P->TestoCella(u"tdbDir"_s, 1, 4) == u"27,00");
    P->Fotografa(u"contributo_nella_parcella"_s);
    QCOMPARE(P->Messaggio(), QString());
}

/// From the desktop the list takes the keys, from the frame it comes as a menu.
void TestStrade::ultimeParcelle()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Digita(u"Bianchi"_s);
    QVERIFY2(!SalvaCome(u"sfratto"_s).isEmpty(), qPrintable(P->Stato()));
    P->Premi(u"ctrl+w"_s);
    QVERIFY2(P->AllaScrivania(), qPrintable(P->Stato()));
    P->Premi(u"ctrl+r"_s);
    ATTENDI(u"fuoco"_s, "lstRecenti");
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).endsWith(u"|sfratto"));
    ATTENDI(u"testo txtCliente"_s, "Bianchi");
    P->Premi(u"ctrl+w"_s);
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(u"ctrl+r"_s);
    ATTENDI_CHE(!P->Chiedi(u"popup"_s).isEmpty());
    P->Fotografa(u"ultime_parcelle"_s);
    P->Premi(u"Escape"_s);
    ATTENDI(u"popup"_s, "");
    ATTENDI(u"fuoco"_s, "txtCliente");
    P->Premi(u"ctrl+r"_s);
    ATTENDI_CHE(!P->Chiedi(u"popup"_s).isEmpty());
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).endsWith(u"|sfratto"));
    ATTENDI(u"testo txtCliente"_s, "Bianchi");
}

/// The short term of the appeal runs over August and ends on a Saturday.
void TestStrade::termineRicorrente()
{
    P = std::make_unique<Programma>(QStringList{}, u"norme=vigenti\n"_s);
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(QString::fromLatin1(Calcolatrici()[0].Tasti));
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[0].Titolo)), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "mskDecorr");
    P->Digita(u"20072026"_s);
    P->Premi(u"ctrl+t"_s);
    ATTENDI(u"finestra"_s, "frmRicorrenti");
    ATTENDI(u"fuoco"_s, "txtCerca");
    P->Digita(u"325 appello"_s);
    P->Fotografa(u"termine_cercato"_s);
    P->Premi(u"Return"_s);
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[0].Titolo)), qPrintable(P->Stato()));
    ATTENDI(u"testo lblRisult"_s, "La scadenza è Lunedì,  21 Settembre  2026\\n(Posticipata)");
    QVERIFY2(P->Testo(u"lblTermine"_s).contains(u"325"), qPrintable(P->Testo(u"lblTermine"_s)));
    const QString Prima = P->Fuoco();
    P->Premi(u"ctrl+d"_s);
    ATTENDI(u"finestra"_s, "frmStrada");
    ATTENDI(u"fuoco"_s, "tdbStrada");
    ATTENDI_CHE(P->Testo(u"lblScadenza"_s).contains(u"21 Settembre 2026"));
    const QString Primo = P->Testo(u"lblPasso"_s);
    QVERIFY(!Primo.isEmpty());
    P->Premi(u"Down"_s);
    ATTENDI_CHE(P->Testo(u"lblPasso"_s) != Primo);
    P->Fotografa(u"termine_strada"_s);
    P->Premi(u"ctrl+c"_s);
    QTRY_VERIFY2(Appunti().contains(u"Settembre"), qPrintable(Appunti()));
    P->Premi(u"Escape"_s);
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[0].Titolo)), qPrintable(P->Stato()));
    QTRY_COMPARE(P->Fuoco(), Prima);
}

/// Whole, from the archive's client to a file that the checks accept.
void TestStrade::fatturaElettronica()
{
    const StudioCompleto Studio;
    P = std::make_unique<Programma>(QStringList{}, Studio.Impostazioni());
    QVERIFY2(FinoAllaFattura(*P), qPrintable(P->Stato()));
    ATTENDI(u"testo lblStatoXml"_s, "Non manca nulla: il file si può salvare.");
    ATTENDI(u"fuoco"_s, "cmdSalvaXml");
    P->Fotografa(u"fattura_pronta"_s);
    P->Premi(u"space"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).contains(u"Salva la fattura elettronica"));
    P->Premi(u"Return"_s);
    const QString Nome = u"ITCNTLRA70A41E715E_00001.xml"_s;
    ATTENDI_CHE(P->Messaggio().contains(u"è stata scritta nel file "_s + Nome));
    P->Rispondi(u"Return"_s);
    ATTENDI(u"messaggio"_s, "");
    ATTENDI(u"fuoco"_s, "cmdSalvaXml");
    ATTENDI_CHE(P->Testo(u"lblStatoXml"_s).startsWith(u"Già scritta il "));
    const QString File = FileDi(Nome);
    QVERIFY(!File.isEmpty());
    QString Esito;
    QCOMPARE(StudioCompleto::Comanda({u"--controlla"_s, u"fattura"_s, File}, &Esito), 0);
    QVERIFY2(Esito.contains(u"0 rifiuti"), qPrintable(Esito));
    // Back to the printed page, to the button that leads here.
    QVERIFY2(P->VaiA(u"cmdChiudiXml"_s), qPrintable(P->Stato()));
    P->Premi(u"space"_s);
    ATTENDI(u"visto PannelloFattura"_s, "");
    ATTENDI(u"fuoco"_s, "cmdFatturaXml");
}

#include "TestStrade.moc"
