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
    void elencoSchedaTabella_data();
    void elencoSchedaTabella();

private:
    void Apri(const Modulo& Quale);
    /// Keys by their names, texts in quotes, one beside the other.
    void Compi(const QString& Gesti);

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
    Apri(Calcolatrici()[0]);
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
    Apri(Calcolatrici()[1]);
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
    Apri(Calcolatrici()[2]);
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
    Apri(Calcolatrici()[3]);
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
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[3].Titolo)), qPrintable(P->Stato()));
    ATTENDI(u"messaggio"_s, "");
}

void TestCalcolatrici::codiceFiscale()
{
    Apri(Calcolatrici()[4]);
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
    Apri(Calcolatrici()[4]);
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
    Apri(Calcolatrici()[4]);
    P->Premi(QStringList(4, u"Tab"_s));
    P->Digita(u"reggio"_s);
    ATTENDI(u"popup"_s, "lstComuni");
    P->Premi({u"Down"_s, u"Down"_s, u"Down"_s, u"Tab"_s});
    ATTENDI_CHE(P->Testo(u"lblProvincia"_s).contains(u"H223"));
}

void TestCalcolatrici::contributo()
{
    Apri(Calcolatrici()[5]);
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

void TestCalcolatrici::Compi(const QString& Gesti)
{
    for (const QString& Gesto : Gesti.split(u' ', Qt::SkipEmptyParts))
        if (Gesto.startsWith(u'\''))
            P->Digita(Gesto.mid(1).chopped(1));
        else
            P->Premi(Gesto);
}

void TestCalcolatrici::elencoSchedaTabella_data()
{
    QTest::addColumn<int>("Indice");
    QTest::addColumn<QString>("Gesti");
    QTest::addColumn<QString>("Risultato");
    QTest::addColumn<QString>("Contiene");
    QTest::addColumn<QString>("Copia");
    QTest::addColumn<QString>("Stampa");
    const auto Riga = [](int Indice, const char* Gesti, const char* Risultato, const char* Contiene,
                         const char* Copia, const char* Stampa = "ctrl+p") {
        QTest::newRow(Calcolatrici()[Indice].Nome)
            << Indice << QString::fromUtf8(Gesti) << QString::fromUtf8(Risultato)
            << QString::fromUtf8(Contiene) << QString::fromUtf8(Copia) << QString::fromUtf8(Stampa);
    };
    Riga(0, "'01072026' Return '60' Return Return Return Return Return Return", "lblRisult", "15 Ottobre",
         "cmdCopia", "ctrl+shift+p");
    Riga(1, "Return '01072026' Return space Return Return", "lblRisult", "31 Luglio", "cmdCopia",
         "ctrl+shift+p");
    Riga(2, "Return '1000' Return Return Return '010112' Return '31122012' Return", "lblTotale", "25,07",
         "cmdCopia");
    Riga(3, "'010112' Return '01012013' Return '1000' Return Return", "lblImpRival", "1.0", "cmdCopia");
    Riga(4, "'Rossi' Return 'Mario' Return '01011980' Return Return 'roma' Return", "txtCodiceFiscale",
         "RSSMRA80A01H501U", "cmdCopia");
    Riga(5, "'1100,00' Return", "lblContr_0", "43,00", "cmdCopia_0");
}

/// What every calculator does with its last calculations: it lists them, gives them back by key and by mouse,
/// names and drops them, prints a sheet and copies figure and table.
void TestCalcolatrici::elencoSchedaTabella()
{
    QFETCH(int, Indice);
    QFETCH(QString, Gesti);
    QFETCH(QString, Risultato);
    QFETCH(QString, Contiene);
    QFETCH(QString, Copia);
    QFETCH(QString, Stampa);
    const QString Titolo = QString::fromUtf8(Calcolatrici()[Indice].Titolo);
    const auto Calcolato = [&] { return P->Testo(Risultato).contains(Contiene); };
    Apri(Calcolatrici()[Indice]);
    Compi(Gesti);
    ATTENDI_CHE(Calcolato());
    for (const bool ColMouse : {false, true}) {
        P->Premi(u"ctrl+n"_s);
        ATTENDI_CHE(!Calcolato());
        P->Premi(u"ctrl+l"_s);
        ATTENDI(u"finestra"_s, "frmUltimiCalcoli");
        ATTENDI(u"fuoco"_s, "tdbCalcoli");
        ATTENDI_CHE(!P->TestoCella(u"tdbCalcoli"_s, 0, 0).isEmpty());
        QVERIFY2(P->TestoCella(u"tdbCalcoli"_s, 1, 0).isEmpty(), "il calcolo è in elenco una volta");
        P->Fotografa(u"ultimi_"_s + QString::fromUtf8(Calcolatrici()[Indice].Nome));
        if (ColMouse)
            P->Clic(P->Cella(u"tdbCalcoli"_s, 0, 0), 2);
        else
            P->Premi(u"Return"_s);
        QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
        ATTENDI_CHE(Calcolato());
    }
    // The figure and the table.
    P->Clic(Copia);
    QTRY_VERIFY2(!Appunti().isEmpty(), "la copia del risultato");
    const QString Cifra = Appunti();
    P->Premi(u"ctrl+shift+c"_s);
    QTRY_VERIFY2(Appunti() != Cifra && Appunti().contains(u'\t'), qPrintable(Appunti()));
    // The sheet.
    P->Premi(Stampa);
    ATTENDI(u"finestra"_s, "frmPrint");
    P->Fotografa(u"scheda_"_s + QString::fromUtf8(Calcolatrici()[Indice].Nome));
    P->Premi(u"Escape"_s);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    // A name, and out of the list.
    P->Premi(u"ctrl+l"_s);
    ATTENDI(u"finestra"_s, "frmUltimiCalcoli");
    P->Premi(u"F2"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s) == u"Ultimi calcoli");
    P->Premi(u"ctrl+a"_s);
    P->Digita(u"Rossi"_s);
    P->Premi(u"Return"_s);
    ATTENDI(u"finestra"_s, "frmUltimiCalcoli");
    ATTENDI_CHE(P->TestoCella(u"tdbCalcoli"_s, 0, 0) == u"Rossi");
    ATTENDI(u"fuoco"_s, "tdbCalcoli");
    P->Premi(u"Delete"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbCalcoli"_s, 0, 0).isEmpty());
    P->Premi(u"Escape"_s);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    QVERIFY2(Calcolato(), "la finestra tiene il suo calcolo");
    P->Premi(u"Escape"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).contains(u"|"));
    ATTENDI(u"messaggio"_s, "");
}

#include "TestCalcolatrici.moc"
