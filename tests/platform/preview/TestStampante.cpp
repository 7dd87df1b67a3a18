// Printing and PDF: the dialog through the message seam, the paper through a printer that writes a file.
#include "platform/kit/messaggi_qt.h"
#include "platform/preview/stampante.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "supporto/guasti.h"
#include "supporto/maschera.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"
#include "vista_prova.h"

#include <QDir>
#include <QFile>
#include <QPageSize>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QTimer>

using namespace Qt::StringLiterals;

class TestStampante : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void senzaStampanti();
    void annullareNonStampa();
    void intervalloECopie_data();
    void intervalloECopie();
    void nessunaPagina();
    void dallUltimaPagina();
    void paginaInVista();
    void laCartaDellaStampanteResta();
    void stampanteSparita();
    void stampaSuFileDelSoloUtente();
    void stampaSuFileRifiutata_data();
    void stampaSuFileRifiutata();
    void unaSceltaValePerUnaVolta();
    void copieEIntervalloNonSiRicordano();
    void dialogoVero();
    void pdfConNomeProposto();
    void pdfSenzaEstensione();
    void pdfSopraUnAltro();
    void pdfAnnullato();
    void pdfRifiutato_data();
    void pdfRifiutato();

private:
    void Scegli(std::function<bool(QPrinter&)> Come) { Dialogo = std::move(Come); }
    [[nodiscard]] QString Uscita() const { return CartellaDiProva() + u"stampa.pdf"_s; }

    std::unique_ptr<Registratore> Messaggi;
    std::function<bool(QPrinter&)> Dialogo;
    Stampanti DelSistema;
    QStringList Presenti;
    bool Viva = true;
};
PROVA(TestStampante);

namespace {

/// Text of the pages of a PDF, each without its blanks at the ends.
QStringList PagineDi(const QString& File)
{
    QProcess Lettore;
    Lettore.start(u"pdftotext"_s, {u"-layout"_s, File, u"-"_s});
    if (!Lettore.waitForFinished() || Lettore.exitCode() != 0)
        return {};
    QStringList Pagine = QString::fromUtf8(Lettore.readAllStandardOutput()).split(u'\f');
    Pagine.removeLast();
    return Pagine;
}

/// First line of each page, to tell which it is.
QStringList Inizi(const QString& File)
{
    QStringList Righe;
    for (const QString& Pagina : PagineDi(File))
        Righe += Pagina.trimmed().section(u'\n', 0, 0).section(u' ', 0, 1);
    return Righe;
}

}  // namespace

void TestStampante::init()
{
    QFile::remove(Uscita());
    Presenti = QStringList{u"Ufficio"_s};
    Viva = true;
    Messaggi = std::make_unique<Registratore>();
    Messaggi->ScegliStampante = [this](QPrinter& Scelta) { return Dialogo && Dialogo(Scelta); };
    DelSistema = InstallaStampanti({[this] { return Presenti; }, [this](const QPrinter&) { return Viva; }});
}

void TestStampante::cleanup()
{
    InstallaStampanti(DelSistema);
    Dialogo = {};
    Messaggi.reset();
}

void TestStampante::senzaStampanti()
{
    VistaStampa vp;
    Presenti.clear();
    bool Chiesto = false;
    Scegli([&](QPrinter&) { return Chiesto = true; });
    Messaggi->Attendi(
        u"Nessuna stampante installata.\nInstallare una stampante, oppure salvare il documento in PDF."_s,
        vbOK, u"Avvertenza:"_s);
    QCOMPARE(PrintDialog(vp), 0);
    QVERIFY(!Chiesto);
}

void TestStampante::annullareNonStampa()
{
    VistaStampa vp;
    ScriviRighe(vp, 3);
    Scegli([this](QPrinter& Scelta) {
        Scelta.setOutputFileName(Uscita());
        return false;
    });
    QCOMPARE(PrintDialog(vp), 0);
    PrintDoc(vp, u"prova"_s);
    QVERIFY(!QFile::exists(Uscita()));
}

void TestStampante::intervalloECopie_data()
{
    QTest::addColumn<int>("Da");
    QTest::addColumn<int>("A");
    QTest::addColumn<int>("Copie");
    QTest::addColumn<bool>("Fascicolate");
    QTest::addColumn<QString>("Pagine");

    QTest::newRow("tutto") << 0 << 0 << 1 << true << u"1234"_s;
    QTest::newRow("una pagina") << 3 << 3 << 1 << true << u"3"_s;
    QTest::newRow("intervallo") << 2 << 3 << 1 << true << u"23"_s;
    QTest::newRow("oltre la fine") << 3 << 9 << 1 << true << u"34"_s;
    QTest::newRow("due copie in fascicoli") << 1 << 2 << 2 << true << u"1212"_s;
    QTest::newRow("due copie di ogni pagina") << 1 << 2 << 2 << false << u"1122"_s;
}

void TestStampante::intervalloECopie()
{
    QFETCH(int, Da);
    QFETCH(int, A);
    QFETCH(int, Copie);
    QFETCH(bool, Fascicolate);
    QFETCH(QString, Pagine);
    VistaStampa vp;
    ScriviRighe(vp, 190);
    Scegli([&](QPrinter& Scelta) {
        Scelta.setOutputFileName(Uscita());
        if (Da > 0) {
            Scelta.setPrintRange(QPrinter::PageRange);
            Scelta.setFromTo(Da, A);
        }
        Scelta.setCopyCount(Copie);
        Scelta.setCollateCopies(Fascicolate);
        return true;
    });
    QCOMPARE(PrintDialog(vp), 1);
    PrintDoc(vp, u"Parcella Rossi"_s);
    QStringList Attese;
    for (const QChar Pagina : Pagine) {
        const Selezione Sua = vp.Pagine().TestoDiPagina(Pagina.digitValue());
        Attese += vp.Pagine().Testo().mid(Sua.Da, 40).section(u' ', 0, 1);
    }
    QCOMPARE(Inizi(Uscita()), Attese);
}

/// A choice beyond the end prints nothing, and says so.
void TestStampante::nessunaPagina()
{
    VistaStampa vp;
    ScriviRighe(vp, 190);
    Scegli([this](QPrinter& Scelta) {
        Scelta.setOutputFileName(Uscita());
        Scelta.setPrintRange(QPrinter::PageRange);
        Scelta.setFromTo(7, 9);
        return true;
    });
    QCOMPARE(PrintDialog(vp), 1);
    Messaggi->Attendi(
        u"Il documento ha 4 pagine: fra quelle scelte non ce n'è alcuna, e non è stato stampato."_s);
    QVERIFY(!PrintDoc(vp, u"Parcella Rossi"_s));
    QVERIFY(!QFile::exists(Uscita()));
}

void TestStampante::dallUltimaPagina()
{
    VistaStampa vp;
    ScriviRighe(vp, 80);
    Scegli([&](QPrinter& Scelta) {
        Scelta.setOutputFileName(Uscita());
        Scelta.setPageOrder(QPrinter::LastPageFirst);
        return true;
    });
    QCOMPARE(PrintDialog(vp), 1);
    PrintDoc(vp, u"prova"_s);
    QCOMPARE(Inizi(Uscita()).constLast(), u"Riga 1"_s);
}

void TestStampante::paginaInVista()
{
    Scena S(190);
    S.vp.ImpostaPreviewPage(3);
    Scegli([&](QPrinter& Scelta) {
        Scelta.setOutputFileName(Uscita());
        Scelta.setPrintRange(QPrinter::CurrentPage);
        return true;
    });
    QCOMPARE(PrintDialog(S.vp), 1);
    PrintDoc(S.vp, u"prova"_s);
    const Selezione Sua = S.vp.Pagine().TestoDiPagina(3);
    QCOMPARE(Inizi(Uscita()), QStringList{S.vp.Pagine().Testo().mid(Sua.Da, 40).section(u' ', 0, 1)});
}

void TestStampante::laCartaDellaStampanteResta()
{
    Scena S(190);
    S.vp.ImpostaPreviewPage(2);
    Scegli([&](QPrinter& Scelta) {
        Scelta.setOutputFileName(Uscita());
        Scelta.setPageSize(QPageSize(QPageSize::A5));
        return true;
    });
    QCOMPARE(PrintDialog(S.vp), 1);
    QCOMPARE(S.vp.CartaInUso(), Carta());  // nothing was printed yet
    PrintDoc(S.vp, u"prova"_s);
    QCOMPARE(S.vp.CartaInUso(), (Carta{148.0, 210.0}));
    QCOMPARE(PagineDi(Uscita()).size(), S.vp.NumeroPagine());
    QVERIFY(S.vp.NumeroPagine() > 4);

    // The next time the dialog begins with it.
    auto Proposta = QPageSize::A4;
    Scegli([&](QPrinter& Scelta) {
        Proposta = Scelta.pageLayout().pageSize().id();
        return false;
    });
    QCOMPARE(PrintDialog(S.vp), 0);
    QCOMPARE(Proposta, QPageSize::A5);
}

void TestStampante::stampanteSparita()
{
    Scena S(190);
    S.vp.ImpostaPreviewPage(3);
    Scegli([&](QPrinter& Scelta) {
        Scelta.setOutputFileName(Uscita());
        Scelta.setPageSize(QPageSize(QPageSize::A5));
        Viva = false;
        return true;
    });
    QCOMPARE(PrintDialog(S.vp), 1);
    const ErroreVisto Guasto = ErroreDi([&] { PrintDoc(S.vp, u"prova"_s); });
    QCOMPARE(Guasto.Numero, 482);
    QVERIFY(Guasto.Descrizione.contains(u"stampante"));
    QVERIFY(!QFile::exists(Uscita()));
    QCOMPARE(S.vp.CartaInUso(), Carta());
    QCOMPARE(S.vp.NumeroPagine(), 4);
    QCOMPARE(S.vp.PaginaInVista(), 3);
}

/// What a client owes is not for everybody to read, and a file that was there stays as open as it was.
void TestStampante::stampaSuFileDelSoloUtente()
{
    VistaStampa vp;
    ScriviRighe(vp, 3);
    QString NomeDopo;
    Scegli([&](QPrinter& Scelta) {
        NomeDopo = Scelta.outputFileName();
        Scelta.setOutputFileName(Uscita());
        return true;
    });
    const SenzaMaschera Aperta;
    QCOMPARE(PrintDialog(vp), 1);
    QVERIFY(PrintDoc(vp, u"prova"_s));
    QCOMPARE(Inizi(Uscita()), QStringList{u"Riga 1"_s});
    QCOMPARE(QFileInfo(Uscita()).permissions() & DiAltri, QFile::Permissions());

    QVERIFY(QFile::setPermissions(Uscita(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    QCOMPARE(PrintDialog(vp), 1);
    QCOMPARE(NomeDopo, Uscita());  // the dialog begins with what was chosen last
    QVERIFY(PrintDoc(vp, u"prova"_s));
    QCOMPARE(QFileInfo(Uscita()).permissions() & DiAltri, QFile::Permissions(QFile::ReadGroup));
}

void TestStampante::stampaSuFileRifiutata_data()
{
    pdfRifiutato_data();
}

void TestStampante::stampaSuFileRifiutata()
{
    QFETCH(QString, Caso);
    QFETCH(int, Numero);
    Scena S(190);
    ScriviFile(Uscita(), "vecchio");
    const auto Rimetti = qScopeGuard([&] {
        guasti::LimiteFile = 0;
        ImpostaSolaLettura(Uscita(), false);
    });
    if (Caso == u"disco")
        guasti::LimiteFile = 100;
    else if (Caso != u"cartella")
        ImpostaSolaLettura(Uscita(), true);
    Scegli([&](QPrinter& Scelta) {
        Scelta.setOutputFileName(Caso == u"cartella" ? CartellaDiProva() + u"manca/stampa.pdf"_s : Uscita());
        Scelta.setPageSize(QPageSize(QPageSize::A5));
        return true;
    });
    QCOMPARE(PrintDialog(S.vp), 1);
    const ErroreVisto Guasto = ErroreDi([&] { PrintDoc(S.vp, u"prova"_s); });
    QCOMPARE(Guasto.Numero, Numero);
    QVERIFY(!Guasto.Descrizione.isEmpty());
    QCOMPARE(LeggiFile(Uscita()), "vecchio");
    QCOMPARE(S.vp.CartaInUso(), Carta());
}

void TestStampante::unaSceltaValePerUnaVolta()
{
    VistaStampa vp;
    ScriviRighe(vp, 3);
    Scegli([&](QPrinter& Scelta) {
        Scelta.setOutputFileName(Uscita());
        return true;
    });
    QCOMPARE(PrintDialog(vp), 1);
    PrintDoc(vp, u"prova"_s);
    QVERIFY(QFile::remove(Uscita()));
    PrintDoc(vp, u"prova"_s);
    QVERIFY(!QFile::exists(Uscita()));
}

void TestStampante::copieEIntervalloNonSiRicordano()
{
    VistaStampa vp;
    ScriviRighe(vp, 190);
    Scegli([&](QPrinter& Scelta) {
        Scelta.setOutputFileName(Uscita());
        Scelta.setPrintRange(QPrinter::PageRange);
        Scelta.setFromTo(2, 2);
        Scelta.setCopyCount(3);
        return true;
    });
    QCOMPARE(PrintDialog(vp), 1);
    PrintDoc(vp, u"prova"_s);
    int Copie = 0;
    QPrinter::PrintRange Tratto = QPrinter::PageRange;
    int Ultima = 0;
    Scegli([&](QPrinter& Scelta) {
        Copie = Scelta.copyCount();
        Tratto = Scelta.printRange();
        Ultima = Scelta.toPage();
        return false;
    });
    QCOMPARE(PrintDialog(vp), 0);
    QCOMPARE(Copie, 1);
    QCOMPARE(Tratto, QPrinter::AllPages);
    QCOMPARE(Ultima, 4);
}

void TestStampante::dialogoVero()
{
    VistaStampa vp;
    ScriviRighe(vp, 190);
    const auto DelRegistratore = InstallaMessaggi(MessaggiQt());
    const auto Rimetti = qScopeGuard([&] { InstallaMessaggi(DelRegistratore); });
    bool Visto = false;
    QTimer::singleShot(0, this, [&Visto] {
        auto* Finestra = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        if (!Finestra)
            return;
        Visto = Finestra->windowTitle() == u"Stampa" && Finestra->minPage() == 1 && Finestra->maxPage() == 4;
        Finestra->reject();
    });
    QCOMPARE(PrintDialog(vp), 0);
    QVERIFY(Visto);
}

void TestStampante::pdfConNomeProposto()
{
    VistaStampa vp;
    ScriviRighe(vp, 80);
    Messaggi->AttendiSalva(Uscita());
    QCOMPARE(EsportaPdf(vp, CartellaDiProva(), u"Rossi c. Bianchi"_s), Uscita());
    QCOMPARE(Messaggi->InizioDialogo(), CartellaDiProva() + u"Rossi c. Bianchi.pdf"_s);
    QCOMPARE(Inizi(Uscita()).size(), 2);
    QCOMPARE(Inizi(Uscita()).constFirst(), u"Riga 1"_s);
}

void TestStampante::pdfSenzaEstensione()
{
    VistaStampa vp;
    ScriviRighe(vp, 3);
    Messaggi->AttendiSalva(CartellaDiProva() + u"stampa"_s);
    QCOMPARE(EsportaPdf(vp, CartellaDiProva(), u"stampa"_s), Uscita());
    QVERIFY(QFile::exists(Uscita()));
}

void TestStampante::pdfSopraUnAltro()
{
    VistaStampa vp;
    ScriviRighe(vp, 3);
    ScriviFile(Uscita(), "vecchio");
    const QString Domanda = u"Il documento stampa.pdf esiste già: si vuole sostituirlo?"_s;
    Messaggi->AttendiSalva(Uscita());
    Messaggi->Attendi(Domanda, vbNo, u"Domanda:"_s);
    QCOMPARE(EsportaPdf(vp, CartellaDiProva(), u"stampa"_s), QString());
    QCOMPARE(LeggiFile(Uscita()), "vecchio");
    Messaggi->AttendiSalva(Uscita());
    Messaggi->Attendi(Domanda, vbYes, u"Domanda:"_s);
    QCOMPARE(EsportaPdf(vp, CartellaDiProva(), u"stampa"_s), Uscita());
    QVERIFY(LeggiFile(Uscita()).startsWith("%PDF-"));
}

void TestStampante::pdfAnnullato()
{
    VistaStampa vp;
    Messaggi->AttendiSalva({});
    QCOMPARE(EsportaPdf(vp, CartellaDiProva(), u"stampa"_s), QString());
    QVERIFY(!QFile::exists(Uscita()));
}

void TestStampante::pdfRifiutato_data()
{
    QTest::addColumn<QString>("Caso");
    QTest::addColumn<int>("Numero");

    QTest::newRow("cartella che manca") << u"cartella"_s << 76;
    QTest::newRow("file di sola lettura") << u"sola lettura"_s << 75;
    QTest::newRow("disco pieno") << u"disco"_s << 61;
}

void TestStampante::pdfRifiutato()
{
    QFETCH(QString, Caso);
    QFETCH(int, Numero);
    VistaStampa vp;
    ScriviRighe(vp, 3);
    QString Percorso = Uscita();
    ScriviFile(Uscita(), "vecchio");
    const auto Rimetti = qScopeGuard([&] {
        guasti::LimiteFile = 0;
        ImpostaSolaLettura(Uscita(), false);
    });
    if (Caso == u"cartella")
        Percorso = CartellaDiProva() + u"manca/stampa.pdf"_s;
    else if (Caso == u"disco")
        guasti::LimiteFile = 100;
    else
        ImpostaSolaLettura(Uscita(), true);
    Messaggi->AttendiSalva(Percorso);
    if (Percorso == Uscita())
        Messaggi->Attendi(u"Il documento stampa.pdf esiste già: si vuole sostituirlo?"_s, vbYes);
    const ErroreVisto Guasto = ErroreDi([&] { EsportaPdf(vp, CartellaDiProva(), u"stampa"_s); });
    QCOMPARE(Guasto.Numero, Numero);
    QCOMPARE(LeggiFile(Uscita()), "vecchio");
}

#include "TestStampante.moc"
