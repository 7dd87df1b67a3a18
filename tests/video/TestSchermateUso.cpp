// Pictures of what the day is made of: checks, states and sums, one page, lists of past work, hints. What is
// asked of them is what TestSchermate asks of every window.
#include "moduli.h"
#include "schermate.h"
#include "studiocompleto.h"

#include <QDirIterator>

using namespace Qt::StringLiterals;

class TestSchermateUso : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { P.reset(); }
    void cleanup();
    void daControllare();
    void statiESomme();
    void unaPagina();
    void esportato();
    void spesaOfferta();
    void scaglioneOfferto();
    void codiceLetto();
    void contributoInVigore();
    void contributoPortato();
    void interessiDiMora();
    void ultimiCalcoli();
    void paginaDeiTasti();
    void codiciSbagliati();
    void menuApri();

private:
    void Guarda(const QString& Nome) { GuardaSchermata(*P, Nome); }
    void ApriEsempio(const QString& Quale) { ::ApriEsempio(P, Esempi.path(), Quale); }
    /// A new note with its base data, and a calculator over it.
    void ApriCalcolatrice(int Quale, const QString& Righe = {});

    const QTemporaryDir Esempi;
    std::unique_ptr<Programma> P;
};
PROVA(TestSchermateUso);

void TestSchermateUso::cleanup()
{
    if (QTest::currentTestFailed() && P)
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

void TestSchermateUso::ApriCalcolatrice(int Quale, const QString& Righe)
{
    P = std::make_unique<Programma>(QStringList{}, Righe);
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(QString::fromLatin1(Calcolatrici()[Quale].Tasti));
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[Quale].Titolo)), qPrintable(P->Stato()));
}

/// The list on the print tab, and the mark of an amount in the grid of the lines.
void TestSchermateUso::daControllare()
{
    P = std::make_unique<Programma>(QStringList{}, u"IVA=22\n"_s);
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Digita(u"Bianchi"_s);
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    P->Clic(P->Cella(u"tdbOnor"_s, 0, 3));
    P->Premi(u"F2"_s);
    ATTENDI(u"fuoco"_s, "cella");
    P->Premi(u"ctrl+a"_s);
    P->Digita(u"99999"_s);
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 0, 3) == u"99.999,00");
    if (P->Fuoco() == u"cella")
        P->Premi(u"Escape"_s);
    Guarda(u"onorari_oltre"_s);
    P->Premi(u"ctrl+p"_s);
    ATTENDI(u"fuoco"_s, "cmbTipoStampa");
    constexpr int Documenti = 8;
    for (int i = 0; i < Documenti && P->Chiedi(u"visto cmdFatturaXml"_s) != u"1"; ++i)
        P->Premi(u"Down"_s);
    ATTENDI_CHE(!P->Testo(u"lstControlli"_s).isEmpty());
    Guarda(u"da_controllare"_s);
}

/// The state at the head of a note and its menu; the finder that filters and sums by it.
void TestSchermateUso::statiESomme()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Digita(u"Bianchi Anna"_s);
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    P->Clic(u"cmdStato"_s);
    ATTENDI_CHE(!P->Chiedi(u"popup"_s).isEmpty());
    Guarda(u"stato_menu"_s);
    P->Premi({u"Down"_s, u"Down"_s, u"Return"_s});
    ATTENDI(u"testo cmdStato"_s, "Stato: inviata");
    P->Premi(u"ctrl+s"_s);
    QVERIFY(P->Attendi(u"attiva"_s, [](const QString& Titoli) { return Titoli.contains(u"Salva"); }));
    P->Premi(u"ctrl+a"_s);
    P->Digita(u"bianchi"_s);
    P->Premi(u"Return"_s);
    P->Rispondi(u"Return"_s);
    ATTENDI(u"messaggio"_s, "");
    QDirIterator Giro(P->Casa(), {u"bianchi.mdb"_s}, QDir::Files, QDirIterator::Subdirectories);
    QVERIFY(Giro.hasNext());
    const QString Cartella = QFileInfo(Giro.next()).path();
    for (const QString& Quale : {u"civile"_s, u"penale"_s, u"stragiudiziale"_s, u"tribunale55"_s})
        QCOMPARE(StudioCompleto::Comanda({u"crea"_s, SorgenteDiProva(u"dati/esempi/"_s + Quale + u".json"_s),
                                          Cartella + u'/' + Quale + u".mdb"_s}),
                 0);

    P->Premi(u"ctrl+o"_s);
    QVERIFY2(P->Aperta(u"Apri da parcelle salvate"_s), qPrintable(P->Stato()));
    ATTENDI_CHE(P->Testo(u"lblAperto"_s).contains(u"Bianchi Anna "));
    Guarda(u"trova_stati"_s);
    QVERIFY(P->VaiA(u"cmdPerCliente"_s));
    P->Premi(u"space"_s);
    ATTENDI_CHE(!P->Chiedi(u"popup"_s).isEmpty());
    Guarda(u"trova_per_cliente"_s);
    P->Premi(u"Escape"_s);
}

void TestSchermateUso::unaPagina()
{
    ApriEsempio(u"civile"_s);
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(P->AllaScheda(u"Stampa"_s), qPrintable(P->Stato()));
    QVERIFY2(P->VaiA(u"chkUnaPagina"_s), qPrintable(P->Stato()));
    P->Premi(u"space"_s);
    ATTENDI(u"testo chkUnaPagina"_s, "1");
    Guarda(u"stampa_una_pagina"_s);
    QVERIFY2(P->VaiA(u"fogliStampa"_s), qPrintable(P->Stato()));
    P->Premi(u"ctrl+1"_s);
    Guarda(u"stampa_pagina_intera"_s);
}

/// What is said behind an export, with the way to its folder.
void TestSchermateUso::esportato()
{
    ApriEsempio(u"civile"_s);
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(P->AllaScheda(u"Stampa"_s), qPrintable(P->Stato()));
    QVERIFY2(P->VaiA(u"barPrint_pdf"_s), qPrintable(P->Stato()));
    P->Premi(u"space"_s);
    ATTENDI_CHE(P->Chiedi(u"attiva"_s).contains(u"Salva"));
    P->Premi(u"ctrl+a"_s);
    P->Digita(Esempi.filePath(u"prova"_s));
    P->Premi(u"Return"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"è stato salvato correttamente!"));
    Guarda(u"esportato"_s);
}

void TestSchermateUso::spesaOfferta()
{
    ApriEsempio(u"civile"_s);
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(P->AllaScheda(u"Spese inserite"_s), qPrintable(P->Stato()));
    QVERIFY2(P->VaiA(u"tdbListaDir"_s), qPrintable(P->Stato()));
    P->Premi({u"Down"_s, u"Return"_s});
    ATTENDI(u"fuoco"_s, "cella");
    ATTENDI_CHE(P->Testo(u"cmdOfferta"_s).contains(u" esente"));
    Guarda(u"spesa_offerta"_s);
}

void TestSchermateUso::scaglioneOfferto()
{
    ApriEsempio(u"civile"_s);
    if (QTest::currentTestFailed())
        return;
    P->Clic(u"txtImporto"_s);
    P->Premi(u"ctrl+a"_s);
    P->Digita(u"60000"_s);
    ATTENDI_CHE(P->Testo(u"cmdScaglione"_s).startsWith(u"Scaglione: da "));
    Guarda(u"scaglione_offerto"_s);
}

/// What a code says, and one with a wrong last letter.
void TestSchermateUso::codiceLetto()
{
    ApriCalcolatrice(4);
    if (QTest::currentTestFailed())
        return;
    for (const auto& [Nome, Codice] : {std::pair{u"codfis_letto"_s, u"RSSMRA80A01H501U"_s},
                                       std::pair{u"codfis_letto_sbagliato"_s, u"RSSMRA80A01H501X"_s}}) {
        P->Clic(u"txtLetto"_s, 3);
        P->Digita(Codice);
        ATTENDI_CHE(!P->Testo(u"lblLettura"_s).isEmpty() || !P->Testo(u"lblNoteLettura"_s).isEmpty());
        Guarda(Nome);
    }
}

void TestSchermateUso::contributoInVigore()
{
    ApriCalcolatrice(5, u"norme=vigenti\n"_s);
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(P->VaiA(u"txtValoreVigente"_s), qPrintable(P->Stato()));
    P->Digita(u"60000"_s);
    P->Premi(u"Tab"_s);
    ATTENDI_CHE(!P->Testo(u"lblVigente"_s).isEmpty());
    Guarda(u"contributo_vigente_calcolato"_s);
}

void TestSchermateUso::contributoPortato()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    P->Premi(QString::fromLatin1(Calcolatrici()[5].Tasti));
    QVERIFY2(P->Aperta(QString::fromUtf8(Calcolatrici()[5].Titolo)), qPrintable(P->Stato()));
    P->Digita(u"30000"_s);
    P->Premi({u"Tab"_s, u"Tab"_s, u"Return"_s});
    ATTENDI_CHE(P->Testo(u"lblPortata"_s).startsWith(u"Portato in "));
    Guarda(u"contributo_portato"_s);
}

/// The norms in force propose the rule of the first day.
void TestSchermateUso::interessiDiMora()
{
    ApriCalcolatrice(2, u"norme=vigenti\n"_s);
    if (QTest::currentTestFailed())
        return;
    P->Premi({u"Down"_s, u"Down"_s});
    ATTENDI(u"testo cmbInteressi"_s, "Di mora, art. 5 D.lgs. 231/02");
    QVERIFY2(P->VaiA(u"txtCapitale"_s), qPrintable(P->Stato()));
    P->Digita(u"1000000"_s);
    P->Premi(u"Tab"_s);
    for (const auto& [Casella, Data] :
         {std::pair{u"mskDataIni"_s, u"01012005"_s}, std::pair{u"mskDataFin"_s, u"31122012"_s}}) {
        QVERIFY2(P->VaiA(Casella), qPrintable(P->Stato()));
        P->Digita(Data);
    }
    QVERIFY2(P->VaiA(u"cmdCalcola"_s), qPrintable(P->Stato()));
    P->Premi(u"space"_s);
    ATTENDI_CHE(!P->Testo(u"lblTotale"_s).isEmpty() || !P->Messaggio().isEmpty());
    QCOMPARE(P->Messaggio(), QString());
    Guarda(u"interessi_mora_calcolata"_s);
}

void TestSchermateUso::ultimiCalcoli()
{
    ApriCalcolatrice(0);
    if (QTest::currentTestFailed())
        return;
    for (const QString& Giorni : {u"60"_s, u"90"_s}) {
        P->Digita(u"01072026"_s);
        P->Premi(u"Return"_s);
        P->Digita(Giorni);
        P->Premi(QStringList(6, u"Return"_s));
        ATTENDI_CHE(!P->Testo(u"lblRisult"_s).isEmpty());
        P->Premi(u"ctrl+n"_s);
    }
    P->Premi(u"ctrl+l"_s);
    ATTENDI(u"finestra"_s, "frmUltimiCalcoli");
    Guarda(u"ultimi_calcoli"_s);
}

void TestSchermateUso::paginaDeiTasti()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(u"ctrl+question"_s);
    QVERIFY2(P->Aperta(u"Calcanova - Guida: La tastiera"_s), qPrintable(P->Stato()));
    Guarda(u"pagina_dei_tasti"_s);
}

/// The hints below the codes of the office as they are typed.
void TestSchermateUso::codiciSbagliati()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    QVERIFY2(P->AlleImpostazioni(u"Dati studio"_s), qPrintable(P->Stato()));
    for (const auto& [Casella, Codice] : {std::pair{u"txtCodFisStudio"_s, u"RSSMRA80A01H501X"_s},
                                          std::pair{u"txtPivaStudio"_s, u"01234567890"_s},
                                          std::pair{u"txtIBAN"_s, u"IT60X0542811101000000123457"_s}}) {
        QVERIFY2(P->VaiA(Casella), qPrintable(P->Stato()));
        P->Digita(Codice);
    }
    P->Premi(u"Tab"_s);
    Guarda(u"impostazioni_codici_sbagliati"_s);
}

/// The menu of the button "Apri" with the last notes.
void TestSchermateUso::menuApri()
{
    ApriEsempio(u"civile"_s);
    if (QTest::currentTestFailed())
        return;
    P->Premi(u"ctrl+r"_s);
    ATTENDI_CHE(!P->Chiedi(u"popup"_s).isEmpty());
    Guarda(u"menu_ultime"_s);
    P->Premi(u"Escape"_s);
}

#include "TestSchermateUso.moc"
