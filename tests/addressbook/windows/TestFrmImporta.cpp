// Names of other programs come in and go out: the steps of the dialog, as its user goes through them.
#include "bancoimportazione.h"
#include "supporto/maschera.h"

#include "platform/system/cartelle.h"

#include <QGroupBox>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

class TestFrmImporta : public QObject, private BancoImportazione
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void ilPosto();  // before the pages have words to show, which may ask for more room
    void leDidascalieEINomi();
    void leFrasiStannoInLettereGrandi();
    void leFrasiCheHannoPosto();
    void iPassi();
    void daTastiera();
    void leColonneSiCambiano();
    void ilSeparatoreEITitoli();
    void unaLetturaRifiutata();
    void iDoppioniSiContano();
    void unaRubrica();
    void unArchivioAccess();
    void leScelteRestano();
    void ilResocontoSiSalva();
    void leFrasi_data();
    void leFrasi();
    void dalBrowser();
    void ilFiltroResta();
    void laSchedaAperta();
    void siEsporta();
    void siEsportaSenzaNome();
    void siEsportaSullaStessa();
};
PROVA(TestFrmImporta);

void TestFrmImporta::leDidascalieEINomi()
{
    const frmImporta* F = Apri();
    QCOMPARE(F->windowTitle(), u"Importa archivio"_s);
    QCOMPARE(SenzaDidascalia(F, {u"Usa questo archivio"_s, u"Aggiungi i nominativi"_s,
                                 u"Copia le vecchie parcelle"_s, u"Avanti"_s, u"Chiudi"_s}),
             QStringList());
    QCOMPARE(SenzaNome(F).join(u' '), QString());
    QVERIFY(!Controllo(F, "txtArrivo")->isVisible());
    QVERIFY(Controllo(F, "optTabella_0")->isVisible());
    Clic(Controllo(F, "optModo_0"));
    QCOMPARE(Didascalia(F, "cmdAvanti"), u"Usa questo archivio"_s);
    QVERIFY(!Controllo(F, "optTabella_0")->isVisible());
    Clic(Controllo(F, "optModo_2"));
    QCOMPARE(Didascalia(F, "cmdAvanti"), u"Copia"_s);
    QVERIFY(Controllo(F, "txtArrivo")->isVisible());
}

/// On a screen of 1366 points at 150 %, in letters of 14 points.
void TestFrmImporta::leFrasiStannoInLettereGrandi()
{
    constexpr int Largo = 1366 * 2 / 3;
    const QFont Prima = QApplication::font();
    const auto Rimetti = qScopeGuard([&] { QApplication::setFont(Prima); });
    QFont Grande = Prima;
    Grande.setPointSize(14);
    QApplication::setFont(Grande);
    const frmImporta* F = Apri(frmImporta::Nominativi, Salva(u"nomi.csv"_s, DueNomi));
    Premuto(F, "cmdAvanti");
    constexpr int TraLoro = 8;
    int Serve = 2 * 12;
    for (const char* Nome : {"lblSeparatore", "cmbSeparatore", "lblCodifica", "cmbCodifica", "chkTitoli"})
        Serve += Controllo(F, Nome)->sizeHint().width() + TraLoro;
    QVERIFY2(Serve <= Largo, qPrintable(QString::number(Serve)));
    Premuto(F, "cmdAvanti");
    const auto* Gruppo = Controllo<QGroupBox>(F, "fraDoppioni");
    constexpr int Orli = 24;
    QVERIFY(Gruppo->fontMetrics().horizontalAdvance(Gruppo->title()) <= Largo - Orli);
}

/// The larger the letters, the fewer sentences have room: all of them, that of the choice, none. What is not
/// seen waits below the pointer.
void TestFrmImporta::leFrasiCheHannoPosto()
{
    const QFont Prima = QApplication::font();
    const auto Rimetti = qScopeGuard([&] { QApplication::setFont(Prima); });
    QList<qsizetype> Viste;
    for (int Pixel = 12; Pixel <= 60; Pixel += 2) {
        QFont Grande = Prima;
        Grande.setPixelSize(Pixel);
        QApplication::setFont(Grande);
        const frmImporta* F = Apri();
        const auto InVista = [F] {
            QList<int> Quali;
            for (int i = 0; i < 3; ++i) {
                const auto* Frase = Controllo<QLabel>(F, qPrintable(u"lblModo_%1"_s.arg(i)));
                const auto* Scelta = Controllo<QRadioButton>(F, qPrintable(u"optModo_%1"_s.arg(i)));
                if (Frase->isVisible())
                    Quali += i;
                QTEST_ASSERT(Scelta->toolTip() == (Frase->isVisible() ? QString() : Frase->text()));
            }
            return Quali;
        };
        const QList<int> Frasi = InVista();
        const qsizetype Quante = Frasi.size();
        for (const int Modo : {0, 2, 1}) {
            Clic(Controllo(F, qPrintable(u"optModo_%1"_s.arg(Modo))));
            // The choice alone has its sentence, whichever it is; another one may need more room.
            if (Quante == 1 && InVista().size() == 1)
                QCOMPARE(InVista(), QList<int>{Modo});
        }
        if (Viste.isEmpty() || Viste.last() != Quante)
            Viste += Quante;
    }
    QCOMPARE(Viste, (QList<qsizetype>{3, 1, 0}));
}

void TestFrmImporta::iPassi()
{
    const frmImporta* F = Apri(frmImporta::Nominativi, Salva(u"nomi.csv"_s, DueNomi));
    Premuto(F, "cmdAvanti");
    QCOMPARE(Pagina(F), int(frmImporta::PagColonne));
    QCOMPARE(Colonna(F, 0, 0), u"Cognome"_s);
    QCOMPARE(Colonna(F, 0, 1), u"Nominativo: cognome"_s);
    QCOMPARE(Colonna(F, 0, 2), u"Neri"_s);
    QCOMPARE(Colonna(F, 3, 1), u"(non importare)"_s);
    QCOMPARE(
        TestoDi(F, "lblUsate"),
        u"Righe: 2. Colonne importate: 3 su 4. Più colonne possono andare nelle Note, col loro titolo."_s);
    QCOMPARE(Controllo<Griglia>(F, "tdbAnteprima")->Righe(), 2);
    Premuto(F, "cmdAvanti");
    QCOMPARE(Pagina(F), int(frmImporta::PagDoppioni));
    QCOMPARE(TestoDi(F, "lblProva"), u"1 nominativo da aggiungere, 1 già presente che resta com'è."_s);
    QCOMPARE(InArchivio(), Cinque);
    QCOMPARE(Didascalia(F, "cmdAvanti"), u"Importa"_s);
    Premuto(F, "cmdAvanti");
    QCOMPARE(Pagina(F), int(frmImporta::PagResoconto));
    QCOMPARE(TestoDi(F, "lblEsito"), u"1 nominativo aggiunto, 1 già presente che resta com'è."_s);
    QVERIFY(Controllo<QPlainTextEdit>(F, "txtResoconto")
                ->toPlainText()
                .contains(u"Colonne non importate: Fax\n"));
    QCOMPARE(InArchivio(), Cinque + QStringList{u"Neri Ugo"_s});
}

/// From the file to the report by keys alone, Enter at each step.
void TestFrmImporta::daTastiera()
{
    const frmImporta* F = Apri(frmImporta::Nominativi, {}, u"controparti"_s);
    QCOMPARE(NomeFuoco(), u"txtFile"_s);
    Digita(Salva(u"nomi.csv"_s, "Nome\nOmega Srl\n"));
    Premi(Qt::Key_Return);
    Respiro();
    QCOMPARE(Pagina(F), int(frmImporta::PagColonne));
    QCOMPARE(NomeFuoco(), u"tdbColonne"_s);
    Premi(Qt::Key_Return);  // to the list of fields of the column
    QCOMPARE(NomeFuoco(), u"cmbMeta"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(NomeFuoco(), u"tdbAnteprima"_s);
    Premi(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(NomeFuoco(), u"cmbMeta"_s);
    Premi(Qt::Key_Return);
    Respiro();
    QCOMPARE(Pagina(F), int(frmImporta::PagDoppioni));
    QCOMPARE(NomeFuoco(), u"cmdAvanti"_s);
    Premi(Qt::Key_Return);
    Respiro();
    QCOMPARE(Pagina(F), int(frmImporta::PagResoconto));
    QCOMPARE(InArchivio(u"controparti"_s).last(), u"Omega Srl"_s);
    Premi(Qt::Key_Escape);
    QVERIFY(!F->isVisible());
}

void TestFrmImporta::leColonneSiCambiano()
{
    const frmImporta* F = Apri(frmImporta::Nominativi, Salva(u"nomi.csv"_s, "Chi;Dove\nNeri Ugo;Lucca\n"));
    Premuto(F, "cmdAvanti");
    // No title is known: the first row is one of names.
    QVERIFY(!Controllo<QCheckBox>(F, "chkTitoli")->isChecked());
    A->Voce.Attendi(u"Nessuna colonna del file va nel nominativo: scegliere quale contiene il nome."_s, vbOK,
                    u"Avvertenza:"_s);
    Premuto(F, "cmdAvanti");
    QCOMPARE(Pagina(F), int(frmImporta::PagColonne));
    Clic(Controllo(F, "chkTitoli"));
    QCOMPARE(Colonna(F, 1, 0), u"Dove"_s);
    auto* Mete = Controllo<QComboBox>(F, "cmbMeta");
    Scegli(Mete, Mete->findText(u"Nominativo"_s));
    ClicCella(Controllo<Griglia>(F, "tdbColonne"), 1, 0);
    QCOMPARE(Mete->currentText(), u"(non importare)"_s);
    ScegliDaTastiera(Mete, Mete->findText(u"Città"_s));
    QCOMPARE(Colonna(F, 0, 1), u"Nominativo"_s);
    QCOMPARE(Colonna(F, 1, 1), u"Città"_s);
    Premuto(F, "cmdAvanti");
    Premuto(F, "cmdAvanti");
    Recordset Righe = OpenDatabase(A->File).OpenRecordset(u"clienti"_s);
    Righe.MoveLast();
    QCOMPARE(Righe.Value(u"Nominativo"_s).toString(), u"Neri Ugo"_s);
    QCOMPARE(Righe.Value(u"Citta"_s).toString(), u"Lucca"_s);
}

void TestFrmImporta::ilSeparatoreEITitoli()
{
    const frmImporta* F = Apri(frmImporta::Nominativi, Salva(u"nomi.csv"_s, "Nome;x,Città\nNeri;y,Lucca\n"));
    Premuto(F, "cmdAvanti");
    QCOMPARE(Controllo<QComboBox>(F, "cmbSeparatore")->currentText(), u"punto e virgola (;)"_s);
    Scegli(Controllo<QComboBox>(F, "cmbSeparatore"), 1);
    QCOMPARE(Colonna(F, 0, 0), u"Nome;x"_s);
    QCOMPARE(Colonna(F, 1, 1), u"Città"_s);
    Scegli(Controllo<QComboBox>(F, "cmbCodifica"), 1);
    QCOMPARE(Colonna(F, 1, 0), u"CittÃ\u00a0"_s.trimmed());
    Clic(Controllo(F, "chkTitoli"));
    QCOMPARE(Colonna(F, 0, 0), u"Colonna 1"_s);
    QCOMPARE(Controllo<Griglia>(F, "tdbAnteprima")->Righe(), 2);
    Premuto(F, "cmdIndietro");
    QCOMPARE(Pagina(F), int(frmImporta::PagScelta));
}

/// A way of reading that the file refuses is none: the lists show how it is read.
void TestFrmImporta::unaLetturaRifiutata()
{
    const frmImporta* F = Apri(frmImporta::Nominativi,
                               Salva(u"nomi.csv"_s, "Nome;Studio\nNeri;" + QByteArray(1200, ',') + "\n"));
    Premuto(F, "cmdAvanti");
    A->Voce.Attendi(
        u"Il file ha più di 1.000 colonne: togliere quelle che non servono, o controllare il separatore."_s,
        vbOK, u"Avvertenza:"_s);
    Scegli(Controllo<QComboBox>(F, "cmbSeparatore"), 1);
    QCOMPARE(Controllo<QComboBox>(F, "cmbSeparatore")->currentText(), u"punto e virgola (;)"_s);
    Scegli(Controllo<QComboBox>(F, "cmbCodifica"), 1);
    QCOMPARE(Colonna(F, 0, 0), u"Nome"_s);
}

void TestFrmImporta::iDoppioniSiContano()
{
    const frmImporta* F = Apri(frmImporta::Nominativi, Salva(u"nomi.csv"_s, DueNomi));
    Premuto(F, "cmdAvanti");
    Premuto(F, "cmdAvanti");
    Clic(Controllo(F, "optDoppioni_1"));
    QCOMPARE(TestoDi(F, "lblProva"), u"1 nominativo da aggiungere, 1 da completare."_s);
    Clic(Controllo(F, "optDoppioni_2"));
    QCOMPARE(TestoDi(F, "lblProva"), u"2 nominativi da aggiungere."_s);
    Premuto(F, "cmdIndietro");
    QCOMPARE(Pagina(F), int(frmImporta::PagColonne));
    Premuto(F, "cmdAvanti");
    Premuto(F, "cmdAvanti");
    QCOMPARE(InArchivio().size(), 7);
    // Nothing to do is nothing to press.
    F = Apri(frmImporta::Nominativi, Salva(u"nomi.csv"_s, "Nome\nNeri Ugo\n"));
    Premuto(F, "cmdAvanti");
    Premuto(F, "cmdAvanti");
    QVERIFY(Controllo<QRadioButton>(F, "optDoppioni_0")->isChecked());  // each import begins so
    QCOMPARE(TestoDi(F, "lblProva"), u"0 nominativi da aggiungere, 1 già presente che resta com'è."_s);
    QVERIFY(!Controllo(F, "cmdAvanti")->isEnabled());
}

void TestFrmImporta::unaRubrica()
{
    const frmImporta* F =
        Apri(frmImporta::Nominativi,
             Salva(u"nomi.vcf"_s, "BEGIN:VCARD\nVERSION:3.0\nN:Neri;Ugo\nADR:;;Via;Lucca;;55100;\n"
                                  "END:VCARD\nBEGIN:VCARD\nTEL:1\nEND:VCARD\n"));
    Premuto(F, "cmdAvanti");
    for (const char* Nome : {"cmbSeparatore", "cmbCodifica", "chkTitoli", "cmbTabella"})
        QVERIFY2(!Controllo(F, Nome)->isVisible(), Nome);
    Premuto(F, "cmdAvanti");
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtAvvisi")->toPlainText(),
             u"scheda 2: senza nome, tralasciata"_s);
    Premuto(F, "cmdAvanti");
    QCOMPARE(InArchivio().last(), u"Neri Ugo"_s);
}

void TestFrmImporta::unArchivioAccess()
{
    const TabellaScritta Persone{
        .Nome = u"Anagrafe"_s,
        .Colonne = {{.Nome = u"Codice"_s, .Tipo = tipoaccess::Lungo, .Contatore = true},
                    {.Nome = u"Ragione sociale"_s},
                    {.Nome = u"Foto"_s, .Tipo = tipoaccess::Ole}},
        .Righe = {{4, u"Omega Srl"_s, QVariant()}}};
    TabellaScritta Clienti = Persone;
    Clienti.Nome = u"clienti"_s;
    Clienti.Righe = {};
    const QString File = ScriviAccess(Cartella + u"vecchio.mdb"_s, {.Tabelle = {Persone, Clienti}});
    const QByteArray Prima = LeggiFile(File);
    const frmImporta* F = Apri(frmImporta::Nominativi, File);
    Premuto(F, "cmdAvanti");
    auto* Tabelle = Controllo<QComboBox>(F, "cmbTabella");
    QCOMPARE(Tabelle->currentText(), u"clienti"_s);
    Scegli(Tabelle, Tabelle->findText(u"Anagrafe"_s));
    QCOMPARE(Colonna(F, 1, 2), u"Omega Srl"_s);
    Premuto(F, "cmdAvanti");
    QVERIFY(Controllo<QPlainTextEdit>(F, "txtAvvisi")->toPlainText().contains(u"Anagrafe.Foto"));
    Premuto(F, "cmdAvanti");
    QCOMPARE(InArchivio().last(), u"Omega Srl"_s);
    // The same archive once more doubles nothing.
    F = Apri(frmImporta::Nominativi, File);
    Premuto(F, "cmdAvanti");
    Scegli(Tabelle, Tabelle->findText(u"Anagrafe"_s));
    Premuto(F, "cmdAvanti");
    QCOMPARE(TestoDi(F, "lblProva"), u"0 nominativi da aggiungere, 1 già presente che resta com'è."_s);
    QVERIFY(!Controllo(F, "cmdAvanti")->isEnabled());
    QCOMPARE(LeggiFile(File), Prima);
    SeCaricato<frmImporta>->close();
    QCOMPARE(ContenutoDi(CartellaDati() + u"importa/"_s), QStringList());  // the working copy has gone
}

/// What the user has matched stays, whatever he then tries with separator, code and titles.
void TestFrmImporta::leScelteRestano()
{
    const frmImporta* F = Apri(frmImporta::Nominativi,
                               Salva(u"nomi.csv"_s, Cp1252(u"Chi;Dov'è;CAP\nNeri, Ugo;Forlì;47121\n"_s)));
    Premuto(F, "cmdAvanti");
    auto* Mete = Controllo<QComboBox>(F, "cmbMeta");
    Scegli(Mete, Mete->findText(u"Nominativo"_s));
    ClicCella(Controllo<Griglia>(F, "tdbColonne"), 1, 0);
    Scegli(Mete, Mete->findText(u"Città"_s));
    const auto Abbinate = [F] { return QStringList{Colonna(F, 0, 1), Colonna(F, 1, 1), Colonna(F, 2, 1)}; };
    const QStringList Mie{u"Nominativo"_s, u"Città"_s, u"CAP"_s};
    QCOMPARE(Abbinate(), Mie);
    Scegli(Controllo<QComboBox>(F, "cmbCodifica"), 0);
    QVERIFY(Colonna(F, 1, 0) != u"Dov'è");
    QCOMPARE(Abbinate(), Mie);
    Clic(Controllo(F, "chkTitoli"));
    QCOMPARE(Colonna(F, 0, 0), u"Colonna 1"_s);
    QCOMPARE(Abbinate().first(2), Mie.first(2));
    Clic(Controllo(F, "chkTitoli"));
    Scegli(Controllo<QComboBox>(F, "cmbSeparatore"), 1);
    QCOMPARE(Controllo<Griglia>(F, "tdbColonne")->Righe(), 2);
    Scegli(Controllo<QComboBox>(F, "cmbSeparatore"), 0);
    QCOMPARE(Abbinate(), Mie);
}

void TestFrmImporta::ilResocontoSiSalva()
{
    const frmImporta* F = Importato();
    const QString File = Cartella + u"resoconto.txt"_s;
    ApriAlGruppo(Cartella);
    A->Voce.AttendiSalva(File);
    Premuto(F, "cmdSalvaResoconto");
    QCOMPARE(QString::fromUtf8(LeggiFile(File)), Controllo<QPlainTextEdit>(F, "txtResoconto")->toPlainText());
    QCOMPARE(QFileInfo(File).permissions() & DiAltri, QFile::Permissions());
    A->Voce.AttendiSalva(File);
    A->Voce.Attendi(u"Il file resoconto.txt esiste già: si vuole sostituirlo?"_s, vbNo, u"Domanda:"_s);
    Premuto(F, "cmdSalvaResoconto");
}

void TestFrmImporta::leFrasi_data()
{
    QTest::addColumn<int>("Modo");
    QTest::addColumn<QString>("File");
    QTest::addColumn<QByteArray>("Byte");
    QTest::addColumn<QString>("Frase");
    using enum frmImporta::Modo;
    QTest::newRow("no file") << int(Nominativi) << QString() << QByteArray()
                             << u"Scegliere il file da importare."_s;
    QTest::newRow("no archive") << int(ArchivioIntero) << QString() << QByteArray()
                                << u"Scegliere il file dell'archivio."_s;
    QTest::newRow("no folder") << int(Parcelle) << QString() << QByteArray()
                               << u"Scegliere la cartella delle vecchie parcelle."_s;
    QTest::newRow("a spreadsheet's own file")
        << int(Nominativi) << u"nomi.xlsx"_s << QByteArray("PK\x03\x04xxxx")
        << u"Il file è di un foglio di calcolo: aprirlo con quel programma e salvarlo in formato CSV."_s;
    QTest::newRow("cut rows") << int(Nominativi) << u"nomi.csv"_s << QByteArray("Nome;Via\nRossi;\"Via")
                              << u"Il file finisce dentro una cella fra virgolette, nella riga che comincia "
                                 u"alla linea 2: è incompleto, ripetere "
                                 "l'esportazione dal programma d'origine."_s;
    QTest::newRow("cut cards")
        << int(Nominativi) << u"nomi.vcf"_s << QByteArray("BEGIN:VCARD\nFN:x\n")
        << u"Il file finisce a metà della scheda 1: è incompleto, ripetere l'esportazione dal "
           "programma d'origine."_s;
}

/// One sentence each, and the archive as it was.
void TestFrmImporta::leFrasi()
{
    QFETCH(int, Modo);
    QFETCH(QString, File);
    QFETCH(QByteArray, Byte);
    QFETCH(QString, Frase);
    const QByteArray Prima = LeggiFile(A->File);
    const frmImporta* F = Apri(frmImporta::Modo(Modo), File.isEmpty() ? File : Salva(File, Byte));
    A->Voce.Attendi(Frase, vbOK, u"Avvertenza:"_s);
    Premuto(F, "cmdAvanti");
    QCOMPARE(Pagina(F), int(frmImporta::PagScelta));
    QCOMPARE(LeggiFile(A->File), Prima);
}

void TestFrmImporta::dalBrowser()
{
    const frmRubrica* R = A->Apri(A->DaScrivania());
    Azione(R, "importa")->trigger();
    const frmImporta* F = SeCaricato<frmImporta>;
    QVERIFY(F && F->isVisible() && F->isModal());
    QVERIFY(Controllo<QRadioButton>(F, "optTabella_0")->isChecked());
    // Where rows cannot be made there is nothing to import into.
    RichiestaRubrica SoloLettura = A->DaScrivania();
    SoloLettura.Modifiche = false;
    R = A->Apri(SoloLettura);
    QVERIFY(!Azione(R, "importa")->isVisible());
    QVERIFY(Azione(R, "esporta")->isVisible());
}

/// A card that is open is answered before its rows are read anew.
void TestFrmImporta::ilFiltroResta()
{
    frmRubrica* Rubrica = A->Apri(A->DaScrivania());
    QVERIFY(Rubrica);
    Controllo<QLineEdit>(Rubrica, "txtFiltro")->setText(u"rossi"_s);
    QTRY_COMPARE(Conto(Rubrica), u"2 di 5"_s);
    (void)Importato();
    QCOMPARE(InArchivio().size(), 6);
    QCOMPARE(TestoDi(Rubrica, "txtFiltro"), u"rossi"_s);
    QTRY_COMPARE(Conto(Rubrica), u"2 di 6"_s);
}

void TestFrmImporta::laSchedaAperta()
{
    frmRubrica* R = A->Apri(A->DaScrivania());
    R->Comando(u"edit"_s);
    auto* Card = R->findChild<QDialog*>(u"frmScheda"_s);
    QVERIFY(Card);
    QApplication::setActiveWindow(Card);
    Scrivi(Card->findChild<QLineEdit*>(u"txtFieldData_1"_s), u"Verdi Anna Maria"_s);
    const frmImporta* F = Apri(frmImporta::Nominativi, Salva(u"nomi.csv"_s, DueNomi));
    Premuto(F, "cmdAvanti");
    Premuto(F, "cmdAvanti");
    A->Voce.Attendi(u"Salvare le modifiche alla scheda?"_s, vbCancel);
    Premuto(F, "cmdAvanti");
    QCOMPARE(Pagina(F), int(frmImporta::PagDoppioni));
    QCOMPARE(InArchivio(), Cinque);
    A->Voce.Attendi(u"Salvare le modifiche alla scheda?"_s, vbYes);
    Premuto(F, "cmdAvanti");
    QCOMPARE(Pagina(F), int(frmImporta::PagResoconto));
    QCOMPARE(InArchivio().first(), u"Verdi Anna Maria"_s);
    QCOMPARE(Nomi(R).size(), 6);
}

void TestFrmImporta::siEsporta()
{
    frmRubrica* R = A->Apri(A->DaScrivania());
    Vaglio(R)->setText(u"rossi"_s);
    const QString File = Cartella + u"nomi.csv"_s;
    ApriAlGruppo(Cartella);
    A->Voce.AttendiSalva(Cartella + u"nomi"_s);  // the ending is the program's
    A->Voce.Attendi(u"2 nominativi esportati in \"nomi.csv\"."_s, vbOK, u"Messaggio:"_s);
    R->Comando(u"esporta"_s);
    QCOMPARE(LeggiFile(File),
             QByteArray("\xEF\xBB\xBFNominativo;Citt\xC3\xA0;CAP\r\nRossi Mario;Lucca;\r\nRossi Ada;;\r\n"));
    QCOMPARE(QFileInfo(File).permissions() & DiAltri, QFile::Permissions());
    Lista(R)->Seleziona(1);
    A->Voce.AttendiSalva(Cartella + u"nomi.vcf"_s);
    A->Voce.Attendi(u"1 nominativo esportato in \"nomi.vcf\"."_s, vbOK, u"Messaggio:"_s);
    R->Comando(u"esporta"_s);
    QCOMPARE(LeggiFile(Cartella + u"nomi.vcf"_s).count("BEGIN:VCARD"), 1);
    QVERIFY(LeggiFile(Cartella + u"nomi.vcf"_s).contains("FN:Rossi Ada\r\n"));
}

/// There is no card without a name.
void TestFrmImporta::siEsportaSenzaNome()
{
    OpenDatabase(A->File).Execute(u"UPDATE clienti SET Nominativo='' WHERE Nominativo LIKE 'Rossi%'"_s);
    frmRubrica* R = A->Apri(A->DaScrivania());
    A->Voce.AttendiSalva(Cartella + u"nomi.vcf"_s);
    A->Voce.Attendi(u"3 nominativi esportati in \"nomi.vcf\"; 2 senza nome, tralasciati."_s, vbOK,
                    u"Messaggio:"_s);
    R->Comando(u"esporta"_s);
    QCOMPARE(LeggiFile(Cartella + u"nomi.vcf"_s).count("BEGIN:VCARD"), 3);
}

void TestFrmImporta::siEsportaSullaStessa()
{
    frmRubrica* R = A->Apri(A->DaScrivania());
    const QString File = Salva(u"nomi.csv"_s, "prima");
    A->Voce.AttendiSalva(File);
    A->Voce.Attendi(u"Il file nomi.csv esiste già: si vuole sostituirlo?"_s, vbNo, u"Domanda:"_s);
    R->Comando(u"esporta"_s);
    QCOMPARE(LeggiFile(File), QByteArray("prima"));
}

void TestFrmImporta::ilPosto()
{
    ProvaPosto(u"frmImporta"_s, [this] { return Apri(); });
}

#include "TestFrmImporta.moc"
