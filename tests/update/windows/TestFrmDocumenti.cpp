#include "supporto/mani.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/grid/griglia.h"
#include "platform/kit/collega.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "update/windows/frmDocumenti.h"

#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QTableView>

#include <memory>

using namespace Qt::StringLiterals;

class TestFrmDocumenti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void righeEConto();
    void cartellaMancante();
    void elencoIlleggibile();
    void doppioClicEInvio();
    void documentoSenzaProgramma();
    void filtro();
    void tastiDellaRicerca();
    void lettereSullElenco();
    void escChiude();
    void rilettaQuandoTorna();
    void tuttoHaUnNome();
    void ricordaIlPosto();

private:
    void Apri();
    [[nodiscard]] QString Cella(int Riga, int Colonna) const
    {
        return Lista()->Vista()->model()->index(Riga, Colonna).data().toString();
    }
    [[nodiscard]] Griglia* Lista() const { return Controllo<Griglia>(W.get(), "tdbDocum"); }
    [[nodiscard]] QLineEdit* Cerca() const { return Controllo<QLineEdit>(W.get(), "txtCerca"); }
    [[nodiscard]] QString Conto() const { return Controllo<QLabel>(W.get(), "panConto")->text(); }

    QString Docum;
    Shell Precedente;
    QStringList Aperti;
    bool ConProgramma = true;
    std::unique_ptr<frmDocumenti> W;
};
PROVA(TestFrmDocumenti);

void TestFrmDocumenti::init()
{
    AzzeraSessione();
    Registratore::AlMostrare() = BoxDavanti;
    sessione::PercorsoProg = NuovaCartella();
    Docum = sessione::PercorsoProg + Barra(u"docum"_s);
    CreaCartella(Docum);
    for (const QString& Nome : {u"Termini.pdf"_s, u"Tabella dei contributi.htm"_s, u"Interessi.pdf"_s})
        ScriviFile(Docum + Nome, "x");
    ScriviFile(Docum + u"elenco.txt"_s, "Termini.pdf\nTabella dei contributi.htm\nInteressi.pdf\n");
    Aperti.clear();
    ConProgramma = true;
    Shell Nuova;
    Nuova.ApriFile = [this](const QString& File) {
        Aperti << NomeFile(File);
        return 0;
    };
    Nuova.HaProgramma = [this](const QString&) { return ConProgramma; };
    Precedente = InstallaShell(std::move(Nuova));
    InstallaUltimaRete([](const Errore& Guasto) { GestioneErrori(Guasto); });
    W = std::make_unique<frmDocumenti>();
}

void TestFrmDocumenti::cleanup()
{
    W.reset();
    InstallaUltimaRete(nullptr);
    InstallaShell(std::move(Precedente));
    Registratore::AlMostrare() = {};
    AzzeraSessione();
}

void TestFrmDocumenti::Apri()
{
    W->Mostra();
    QVERIFY(MostraAttiva(*W));
}

void TestFrmDocumenti::righeEConto()
{
    const Registratore Box;
    Apri();
    QCOMPARE(W->windowTitle(), u"Documentazione normativa"_s);
    QCOMPARE(Lista()->Righe(), 3);
    QCOMPARE(Lista()->Vista()->model()->columnCount(), 2);
    QCOMPARE(Cella(1, 0), u"Tabella dei contributi"_s);
    QCOMPARE(Cella(1, 1), u"HTM"_s);
    QCOMPARE(Conto(), u"3 documenti"_s);
    QVERIFY(Controllo<QStatusBar>(W.get(), "barDocum")->isVisible());
    // The first one is ready to be opened.
    QCOMPARE(Lista()->RigaCorrente(), 0);
    QCOMPARE(NomeFuoco(), u"tdbDocum"_s);
    QVERIFY(!W->isModal());
}

void TestFrmDocumenti::cartellaMancante()
{
    const Registratore Box;
    sessione::PercorsoProg = NuovaCartella();
    Apri();
    QCOMPARE(Lista()->Righe(), 0);
    QCOMPARE(Conto(), u"0 documenti"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(Aperti, QStringList());
}

void TestFrmDocumenti::elencoIlleggibile()
{
    Registratore Box;
    ScriviFile(Docum + u"elenco.txt"_s, QByteArray((1 << 20) + 1, '\n'));
    Box.Attendi(u"Errore: Memoria insufficiente: %1 (7)"_s.arg(Docum + u"elenco.txt"_s), vbOK, u"Errore:"_s);
    W->Mostra();
    QVERIFY(W->isVisible());
    QCOMPARE(Lista()->Righe(), 0);
}

void TestFrmDocumenti::doppioClicEInvio()
{
    const Registratore Box;
    Apri();
    QTableView* Vista = Lista()->Vista();
    const QPoint Terza = Vista->visualRect(Vista->model()->index(2, 0)).center();
    QTest::mouseClick(Vista->viewport(), Qt::LeftButton, {}, Terza);
    QTest::mouseDClick(Vista->viewport(), Qt::LeftButton, {}, Terza);
    QCOMPARE(Aperti, QStringList{u"Interessi.pdf"_s});
    Premi(Qt::Key_Up);
    Premi(Qt::Key_Return);
    QCOMPARE(Aperti, (QStringList{u"Interessi.pdf"_s, u"Tabella dei contributi.htm"_s}));
    QVERIFY(W->isVisible());
}

void TestFrmDocumenti::documentoSenzaProgramma()
{
    Registratore Box;
    ConProgramma = false;
    Apri();
    Box.Attendi(u"Errore: Nessun programma di questo computer apre il documento Termini.pdf (31)"_s, vbOK,
                u"Errore:"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(Aperti, QStringList());
    // Told once, and the list goes on.
    ConProgramma = true;
    Premi(Qt::Key_Return);
    QCOMPARE(Aperti, QStringList{u"Termini.pdf"_s});
}

void TestFrmDocumenti::filtro()
{
    const Registratore Box;
    Apri();
    Cerca()->setFocus();
    Digita(u"CONTRIB"_s);
    QCOMPARE(Lista()->Righe(), 1);
    QCOMPARE(Cella(0, 0), u"Tabella dei contributi"_s);
    QCOMPARE(Conto(), u"1 di 3 documenti"_s);
    Cerca()->clear();
    QCOMPARE(Lista()->Righe(), 3);
    Digita(u"niente"_s);
    QCOMPARE(Lista()->Righe(), 0);
    QCOMPARE(Conto(), u"0 di 3 documenti"_s);
}

void TestFrmDocumenti::tastiDellaRicerca()
{
    const Registratore Box;
    Apri();
    Premi(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(NomeFuoco(), u"txtCerca"_s);
    Digita(u"inter"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(Aperti, QStringList{u"Interessi.pdf"_s});
    Premi(Qt::Key_Down);
    QCOMPARE(NomeFuoco(), u"tdbDocum"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(Aperti.size(), 2);
    Cerca()->setFocus();
    Digita(u"zzz"_s);
    Premi(Qt::Key_Return);
    Premi(Qt::Key_Down);
    QCOMPARE(Aperti.size(), 2);
    QCOMPARE(NomeFuoco(), u"txtCerca"_s);
}

void TestFrmDocumenti::lettereSullElenco()
{
    const Registratore Box;
    Apri();
    Digita(u"tab"_s);
    QCOMPARE(Cerca()->text(), u"tab"_s);
    QCOMPARE(NomeFuoco(), u"txtCerca"_s);
    QCOMPARE(Lista()->Righe(), 1);
}

void TestFrmDocumenti::escChiude()
{
    const Registratore Box;
    Apri();
    Cerca()->setFocus();
    Digita(u"inter"_s);
    Premi(Qt::Key_Escape);
    QVERIFY(W->isVisible());
    QCOMPARE(Cerca()->text(), QString());
    QCOMPARE(Lista()->Righe(), 3);
    Premi(Qt::Key_Escape);
    QVERIFY(!W->isVisible());
}

void TestFrmDocumenti::rilettaQuandoTorna()
{
    const Registratore Box;
    Apri();
    Cerca()->setText(u"inter"_s);
    W->close();
    ScriviFile(Docum + u"elenco.txt"_s, "Interessi.pdf\nTermini.pdf\n");
    Apri();
    QCOMPARE(Lista()->Righe(), 2);
    QCOMPARE(Cella(0, 0), u"Interessi"_s);
    ScriviFile(Docum + u"elenco.txt"_s, "Termini.pdf\n");
    Premi(Qt::Key_F5);
    QCOMPARE(Conto(), u"1 documento"_s);
}

void TestFrmDocumenti::tuttoHaUnNome()
{
    const Registratore Box;
    Apri();
    QCOMPARE(SenzaNome(W.get()), QStringList());
}

void TestFrmDocumenti::ricordaIlPosto()
{
    const Registratore Box;
    W.reset();
    std::unique_ptr<frmDocumenti> Aperta;
    ProvaPosto(u"frmDocumenti"_s, [&]() -> QWidget* {
        Aperta = std::make_unique<frmDocumenti>();
        Aperta->Mostra();
        return Aperta.get();
    });
}

#include "TestFrmDocumenti.moc"
