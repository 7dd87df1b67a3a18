// Tab 4 by mouse and keyboard: the pages and the toolbar, the files and programs that they go to.
#include "stampa.h"

#include "core/aperture.h"
#include "platform/preview/stampante.h"
#include "platform/system/shell.h"

#include <QAction>
#include <QMenu>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

class TestStampaPagine : public QObject, private BancoStampa
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void pagine();
    void paginaUnoDopoOgniComposizione();
    void zoom_data();
    void zoom();
    void pdf();
    void pdfAnnullato();
    void pdfSopraUnAltro();
    void ogniComposizioneScriveIlDocumento();
    void documentoCheNonSiScrive();
    void word();
    void wordInUso();
    void editorAlternativo();
    void laGuida();
    void senzaStampante();
    void senzaDocumentoNonSiStampa();
    void laNotaDiPrimaNonResta();

private:
    /// The note on view goes without a question, a new one takes its window.
    void UnAltraNota();
};
PROVA(TestStampaPagine);

void TestStampaPagine::pagine()
{
    Riempi(150);
    Documento(StampaPrenotula);
    const int Tutte = vp->NumeroPagine();
    QVERIFY(Tutte >= 3);
    QCOMPARE(txtPage(), u"1/%1"_s.arg(Tutte));
    Premuto("barPrint_up");
    QCOMPARE(txtPage(), u"1/%1"_s.arg(Tutte));
    Premuto("barPrint_down");
    QCOMPARE(txtPage(), u"2/%1"_s.arg(Tutte));
    QCOMPARE(vp->PaginaInVista(), 2);
    for (int i = 0; i < Tutte; ++i)
        Premuto("barPrint_down");
    QCOMPARE(txtPage(), u"%1/%1"_s.arg(Tutte));
    Premuto("barPrint_up");
    QCOMPARE(txtPage(), u"%1/%2"_s.arg(Tutte - 1).arg(Tutte));
}

void TestStampaPagine::paginaUnoDopoOgniComposizione()
{
    Riempi(150);
    Documento(StampaPrenotula);
    const int Tutte = vp->NumeroPagine();
    for (const bool Avanti : {true, false}) {
        Premuto("barPrint_down");
        Premuto("barPrint_down");
        QCOMPARE(txtPage(), u"3/%1"_s.arg(Tutte));
        Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_0"), Avanti ? u"7"_s : u"8"_s);
        Premi(Qt::Key_Tab);
        QCOMPARE(txtPage(), u"1/%1"_s.arg(Tutte));
        QCOMPARE(vp->PaginaInVista(), 1);
        Premuto(Avanti ? "barPrint_down" : "barPrint_up");
        QCOMPARE(txtPage(), (Avanti ? u"2/%1"_s : u"1/%1"_s).arg(Tutte));
        QCOMPARE(vp->PaginaInVista(), Avanti ? 2 : 1);
        if (Avanti)
            Premuto("barPrint_up");
    }
    Premuto("barPrint_down");
    Documento(StampaSoloContabile);
    QCOMPARE(vp->PaginaInVista(), 1);
    QCOMPARE(txtPage(), u"1/%1"_s.arg(vp->NumeroPagine()));
}

void TestStampaPagine::zoom_data()
{
    QTest::addColumn<QString>("Voce");
    QTest::addColumn<int>("Percento");
    QTest::newRow("120%") << u"z120"_s << 120;
    QTest::newRow("100%") << u"z100"_s << 100;
    QTest::newRow("90%") << u"z90"_s << 90;
    QTest::newRow("80%") << u"z80"_s << 80;
    QTest::newRow("70%") << u"z70"_s << 70;
    QTest::newRow("adatta") << u"z999"_s << 0;
    QTest::newRow("il bottone stesso") << QString() << 100;
}

void TestStampaPagine::zoom()
{
    QFETCH(QString, Voce);
    QFETCH(int, Percento);
    Documento(StampaPrenotula);
    QCOMPARE(vp->Zoom(), 80);
    auto* Bottone = Controllo<QToolButton>(F, "barPrint_zoom");
    if (Voce.isEmpty())
        QTest::mouseClick(Bottone, Qt::LeftButton, Qt::NoModifier, QPoint(6, Bottone->height() / 2));
    else
        Bottone->defaultAction()->menu()->findChild<QAction*>(Voce)->trigger();
    QCOMPARE(vp->Adattato(), Percento == 0);
    if (Percento > 0)
        QCOMPARE(vp->Zoom(), Percento);
}

void TestStampaPagine::pdf()
{
    Documento(StampaPrenotula);
    const QString File = T->Ufficio.File(u"uscita.pdf"_s);
    T->Voce.AttendiSalva(T->Ufficio.File(u"uscita"_s));
    T->Voce.Attendi(u"Il documento uscita.pdf è stato salvato correttamente!"_s);
    Premuto("barPrint_pdf");
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ParcellePath + u"Rossi Mario - Sfratto - Prenotula.pdf"_s);
    QFile Scritto(File);
    QVERIFY(Scritto.open(QIODevice::ReadOnly));
    QVERIFY(Scritto.readAll().startsWith("%PDF-"));
}

void TestStampaPagine::pdfAnnullato()
{
    Documento(StampaPrenotula);
    T->Voce.AttendiSalva({});
    Premuto("barPrint_pdf");
    QVERIFY(T->Voce.Mostrati().isEmpty());
}

void TestStampaPagine::pdfSopraUnAltro()
{
    Documento(StampaPrenotula);
    const QString File = T->Ufficio.File(u"c'è già.pdf"_s);
    QFile Altro(File);
    QVERIFY(Altro.open(QIODevice::WriteOnly));
    Altro.write("altro");
    Altro.close();
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(u"Il documento c'è già.pdf esiste già: si vuole sostituirlo?"_s, vbNo, u"Domanda:"_s);
    Premuto("barPrint_pdf");
    QVERIFY(Altro.open(QIODevice::ReadOnly));
    QCOMPARE(Altro.readAll(), "altro"_ba);
}

void TestStampaPagine::ogniComposizioneScriveIlDocumento()
{
    QCOMPARE(Esportato(), QByteArray());
    Documento(StampaPrenotula);
    QVERIFY(Esportato().startsWith("{\\rtf1"));
    QVERIFY(Esportato().contains("Rossi Mario"));
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_0"), u"12/A"_s);
    QVERIFY(!Esportato().contains("12/A"));
    Premi(Qt::Key_Tab);
    QVERIFY(Esportato().contains("12/A"));
}

void TestStampaPagine::documentoCheNonSiScrive()
{
    ScriviFile(sessione::UserFolder + u"doc"_s, "not a folder");
    Documento(StampaPrenotula);
    QVERIFY2(T->Voce.Mostrati().isEmpty(), "la pagina c'è: chi la guarda non si disturba");
    QVERIFY(Pagine().contains(u"Rossi Mario"_s));
    T->Voce.Attendi(u"Attenzione, il documento Nuova parcella.doc non è stato trovato!"_s, vbOK,
                    u"Errore:"_s);
    Premuto("barPrint_word");
}

void TestStampaPagine::word()
{
    QStringList Aperti;
    QByteArray Letto;
    Shell Finta;
    Finta.ApriFile = [&](const QString& File) {
        Aperti.append(File);
        Letto = LeggiFile(File);
        return 0;
    };
    Finta.HaProgramma = [](const QString&) { return true; };
    const Shell Vera = InstallaShell(Finta);
    const auto Rimetti = qScopeGuard([&] { InstallaShell(Vera); });
    QVERIFY2(!Controllo(F, "barPrint_word")->isEnabled(), "senza documento non c'è nulla da esportare");
    Documento(StampaPrenotula);
    // The field that is being written is left first: what opens holds it.
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_0"), u"7/B"_s);
    Premuto("barPrint_word");
    QCOMPARE(Aperti, QStringList{FileDocumento(1)});
    QVERIFY(Letto.contains("7/B"));
}

void TestStampaPagine::wordInUso()
{
    Documento(StampaPrenotula);
    const QByteArray Prima = Esportato();
    ImpostaSolaLettura(FileDocumento(1), true);
    Segna();
    T->Voce.Attendi(
        u"Attenzione, il documento Nuova parcella.doc è già aperto da un'altra applicazione e non "
        u"può essere aggiornato.\nChiudere il documento e riprovare."_s,
        vbOK, u"Errore:"_s);
    Premuto("barPrint_word");
    QVERIFY2(!Composto(), "la pagina resta com'è");
    ImpostaSolaLettura(FileDocumento(1), false);
    QCOMPARE(Esportato(), Prima);
}

void TestStampaPagine::editorAlternativo()
{
    QStringList Avviati;
    Shell Finta;
    Finta.Avvia = [&](const QString& Programma, const QStringList& Argomenti, const QString&) {
        Avviati.append(Programma + u'|' + Argomenti.join(u'|'));
        return 0;
    };
    const Shell Vera = InstallaShell(Finta);
    const auto Rimetti = qScopeGuard([&] {
        InstallaShell(Vera);
        sessione::WP = u"-1"_s;
    });
    Documento(StampaPrenotula);
    for (const QString& Nessuno : {u"-1"_s, QString()}) {
        sessione::WP = Nessuno;
        ClicScheda(F, SchedaBase);
        ClicScheda(F, SchedaDiStampa);
        QVERIFY2(!Controllo(F, "barPrint_wp")->isEnabled(), "nessun editor nelle impostazioni");
    }
    ClicScheda(F, SchedaBase);
    sessione::WP = u"/usr/bin/editor"_s;
    ClicScheda(F, SchedaDiStampa);
    Premuto("barPrint_wp");
    QCOMPARE(Avviati, QStringList{u"/usr/bin/editor|"_s + FileDocumento(1)});
}

void TestStampaPagine::laGuida()
{
    sessione::PercorsoProg = T->Ufficio.Cartella();
    ClicScheda(F, SchedaBase);
    ClicScheda(F, SchedaDiStampa);
    const auto* Bottone = Controllo<QToolButton>(F, "barPrint_help");
    QVERIFY2(!Bottone->isEnabled(), "there is no guide");
    QVERIFY2(Bottone->toolTip().startsWith(u"Guida contestuale: "), qPrintable(Bottone->toolTip()));
    ScriviFile(sessione::PercorsoProg + u"GuidaGiuridica.pdf"_s, "%PDF");
    ClicScheda(F, SchedaBase);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(Bottone->toolTip(), u"Guida contestuale"_s);
    Aperture.SchedaCorrente = [this](int) { return F->Scheda(); };
    int Pagina = 0;
    Shell Finta;
    Finta.HaProgramma = [](const QString&) { return true; };
    Finta.ApriPdf = [&](const QString&, int Quale) {
        Pagina = Quale;
        return 0;
    };
    const Shell Vera = InstallaShell(Finta);
    const auto Rimetti = qScopeGuard([&] { InstallaShell(Vera); });
    Premuto("barPrint_help");  // before any document is chosen, too
    QCOMPARE(Pagina, 18);
}

void TestStampaPagine::senzaStampante()
{
    const Stampanti Prima = InstallaStampanti({[] { return QStringList(); }, {}});
    const auto Rimetti = qScopeGuard([&] { InstallaStampanti(Prima); });
    Documento(StampaPrenotula);
    const QString Testo = Pagine();
    for (int Volta = 0; Volta < 2; ++Volta) {
        T->Voce.Attendi(
            u"Nessuna stampante installata.\nInstallare una stampante, oppure salvare il documento in PDF."_s);
        if (Volta == 0)
            Premuto("barPrint_print");
        else
            Premi(Qt::Key_P, Qt::ControlModifier);
        Respiro();
    }
    QCOMPARE(Pagine(), Testo);
    QCOMPARE(txtPage(), u"1/1"_s);
}

void TestStampaPagine::UnAltraNota()
{
    F->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    QVERIFY2(Pagine().trimmed().isEmpty(), qPrintable(Pagine()));
    QCOMPARE(Tavolo::Apri(), F);
    CompilaCivile(F);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(F->Scheda(), int(SchedaDiStampa));
}

void TestStampaPagine::senzaDocumentoNonSiStampa()
{
    const Stampanti Prima =
        InstallaStampanti({[] { return QStringList{u"Ufficio"_s}; }, [](const QPrinter&) { return true; }});
    const auto Rimetti = qScopeGuard([&] { InstallaStampanti(Prima); });
    int Chieste = 0;
    T->Voce.ScegliStampante = [&](QPrinter&) {
        ++Chieste;
        return false;
    };
    Controllo(F, "cmbTipoStampa")->setFocus();
    Premi(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(Chieste, 0);
    Documento(StampaPrenotula);
    Premi(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(Chieste, 1);
    UnAltraNota();
    Controllo(F, "cmbTipoStampa")->setFocus();
    Premi(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(Chieste, 1);
}

/// Pages, remark and search of a client's document: the next client's note finds none of them.
void TestStampaPagine::laNotaDiPrimaNonResta()
{
    Riempi(150);
    Documento(StampaPrenotula);
    Clic(Controllo(F, "chkUnaPagina"));
    QVERIFY(!Controllo(F, "lblUnaPagina")->isHidden());
    vp->setFocus();
    Premi(Qt::Key_F, Qt::ControlModifier);
    Digita(u"Rossi"_s);
    QVERIFY(Pagine().contains(u"Rossi Mario"_s));
    UnAltraNota();
    QVERIFY(Pagine().trimmed().isEmpty());
    QVERIFY(Controllo(F, "lblUnaPagina")->isHidden());
    QVERIFY(Controllo(F, "barRicerca")->isHidden());
    QCOMPARE(Controllo<QLineEdit>(F, "txtRicerca")->text(), QString());
    Documento(StampaPrenotula);
    QCOMPARE(txtPage(), u"1/1"_s);
    QVERIFY(!Pagine().contains(u"Rossi"_s));
}

#include "TestStampaPagine.moc"
