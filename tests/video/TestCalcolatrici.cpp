// Each calculator by the keyboard alone, on a real display: from the key that opens it to the result in the
// clipboard and back to the note.
#include "moduli.h"

using namespace Qt::StringLiterals;

class TestCalcolatrici : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void termini();
    void sequenziali();
    void interessi();
    void istat();
    void codiceFiscale();
    void comuneSenzaAccento();
    void comuneSegnatoELasciato();
    void contributo();

private:
    void Apri(const Modulo& Quale);

    std::unique_ptr<Programma> P;
};
PROVA(TestCalcolatrici);

void TestCalcolatrici::init()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
}

void TestCalcolatrici::cleanup()
{
    if (QTest::currentTestFailed())
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

void TestCalcolatrici::Apri(const Modulo& Quale)
{
    P->Premi(QString::fromLatin1(Quale.Tasti));
    QVERIFY2(P->Aperta(QString::fromUtf8(Quale.Titolo)), qPrintable(P->Stato()));
}

void TestCalcolatrici::termini()
{
    Apri(Calcolatrici[0]);
    ATTENDI(u"fuoco"_s, "mskDecorr");
    P->Digita(u"01072026"_s);
    P->Premi(u"Return"_s);
    P->Digita(u"60"_s);
    P->Premi(QStringList(6, u"Return"_s));
    ATTENDI(u"testo lblRisult"_s, "La scadenza è Giovedì,  15 Ottobre  2026\\n(Posticipata)");
    ATTENDI(u"visto lblSettembre"_s, "1");
    ATTENDI(u"fuoco"_s, "mskDecorr");
    P->Premi(u"ctrl+c"_s);
    QTRY_COMPARE(Appunti(), u"La scadenza è Giovedì, 15 Ottobre 2026\n(Posticipata)"_s);
    P->Fotografa(u"termini_calcolati"_s);
    P->Premi(u"Escape"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).contains(u"|"));
}

void TestCalcolatrici::sequenziali()
{
    Apri(Calcolatrici[1]);
    ATTENDI(u"fuoco"_s, "cmbArticolo");
    P->Premi(u"Return"_s);
    P->Digita(u"01072026"_s);
    P->Premi({u"Return"_s, u"space"_s, u"Return"_s, u"Return"_s});
    ATTENDI_CHE(P->Testo(u"lblRisult"_s).contains(u"1° termine (30 giorni):  Venerdì,  31 Luglio  2026"));
    ATTENDI(u"visto lblSettembre"_s, "1");
    P->Fotografa(u"sequenziali_calcolati"_s);
}

void TestCalcolatrici::interessi()
{
    Apri(Calcolatrici[2]);
    ATTENDI(u"fuoco"_s, "cmbInteressi");
    P->Premi(u"Return"_s);
    P->Digita(u"1000"_s);
    P->Premi({u"Return"_s, u"Return"_s, u"Return"_s});
    P->Digita(u"010112"_s);
    P->Premi(u"Return"_s);
    P->Digita(u"31122012"_s);
    P->Premi(u"Return"_s);
    ATTENDI(u"testo lblTotale"_s, "25,07");
    P->Premi(u"ctrl+c"_s);
    QTRY_COMPARE(Appunti(), u"25,07"_s);
    P->Fotografa(u"interessi_calcolati"_s);
}

void TestCalcolatrici::istat()
{
    Apri(Calcolatrici[3]);
    ATTENDI(u"fuoco"_s, "mskDataIni");
    P->Digita(u"010112"_s);
    P->Premi(u"Return"_s);
    P->Digita(u"01012013"_s);
    P->Premi(u"Return"_s);
    P->Digita(u"1000"_s);
    P->Premi({u"Return"_s, u"Return"_s});
    ATTENDI_CHE(!P->Testo(u"lblImpRival"_s).isEmpty());
    P->Fotografa(u"istat_calcolato"_s);
    // Up to today: the last index is older. Yes leads to the updates, which without a server come from a
    // file.
    P->Premi(u"ctrl+n"_s);
    ATTENDI(u"fuoco"_s, "mskDataIni");
    P->Digita(u"01012012"_s);
    P->Premi(u"Return"_s);
    P->Digita(QDate::currentDate().toString(u"ddMMyyyy"_s));
    P->Premi(u"Return"_s);
    P->Digita(u"1000"_s);
    P->Premi({u"Return"_s, u"Return"_s});
    ATTENDI_CHE(P->Messaggio().contains(u"Si vuole procedere all'aggiornamento degli indici?"));
    P->Rispondi(u"Return"_s);
    QVERIFY2(P->Aperta(QString::fromUtf8(Aggiornamento.Titolo)), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "cmdFile");
    ATTENDI_CHE(P->Testo(u"lblStatus"_s)
                    .startsWith(u"Nessun server di aggiornamento è impostato: con \"Da file...\""));
    ATTENDI(u"messaggio"_s, "");
    P->Fotografa(u"istat_aggiornamento"_s);
    P->Premi(u"Escape"_s);
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici[3].Titolo)), qPrintable(P->Stato()));
    ATTENDI(u"messaggio"_s, "");
}

void TestCalcolatrici::codiceFiscale()
{
    Apri(Calcolatrici[4]);
    ATTENDI(u"fuoco"_s, "txtCognome");
    P->Digita(u"Rossi"_s);
    P->Premi(u"Return"_s);
    P->Digita(u"Mario"_s);
    P->Premi(u"Return"_s);
    P->Digita(u"01011980"_s);
    P->Premi({u"Return"_s, u"Return"_s});
    P->Digita(u"roma"_s);
    P->Premi(u"Return"_s);
    ATTENDI(u"testo txtCodiceFiscale"_s, "RSSMRA80A01H501U");
    P->Fotografa(u"codfis_calcolato"_s);
    P->Premi(u"shift+Tab"_s);
    P->Premi(u"Down"_s);
    ATTENDI(u"testo txtCodiceFiscale"_s, "");
}

// The message takes the focus and gives it back; the list comes with it, and its row can be taken.
void TestCalcolatrici::comuneSenzaAccento()
{
    Apri(Calcolatrici[4]);
    P->Premi(QStringList(4, u"Tab"_s));
    ATTENDI(u"fuoco"_s, "txtComune");
    P->Digita(u"cantu"_s);
    ATTENDI(u"messaggio"_s, "Comune non in elenco.");
    P->Rispondi(u"Return"_s);
    ATTENDI(u"popup"_s, "lstComuni");
    P->Fotografa(u"codfis_elenco"_s);
    P->Premi({u"Down"_s, u"Return"_s});
    ATTENDI(u"testo txtComune"_s, "Cantù");
    ATTENDI(u"testo lblProvincia"_s, "CO  B639");
}

void TestCalcolatrici::comuneSegnatoELasciato()
{
    Apri(Calcolatrici[4]);
    P->Premi(QStringList(4, u"Tab"_s));
    P->Digita(u"reggio"_s);
    ATTENDI(u"popup"_s, "lstComuni");
    P->Premi({u"Down"_s, u"Down"_s, u"Down"_s, u"Tab"_s});
    ATTENDI_CHE(P->Testo(u"lblProvincia"_s).contains(u"H223"));
}

void TestCalcolatrici::contributo()
{
    Apri(Calcolatrici[5]);
    ATTENDI(u"fuoco"_s, "txtValore_0");
    P->Digita(u"1100,005"_s);
    P->Premi(u"Return"_s);
    ATTENDI(u"fuoco"_s, "txtValore_1");
    P->Digita(u"520000,01"_s);
    P->Premi(u"Return"_s);
    ATTENDI(u"fuoco"_s, "txtValore_2");
    ATTENDI(u"testo lblContr_0"_s, "43,00");
    ATTENDI(u"testo lblContr_1"_s, "843,00");
    P->Fotografa(u"contributo_calcolato"_s);
}

#include "TestCalcolatrici.moc"
