#include "supporto/mani.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/sessione.h"
#include "core/versione.h"
#include "platform/system/file.h"
#include "update/windows/frmAbout.h"

#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

class TestFrmAbout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void titoloEVersione();
    void cheCosaDice();
    void copiaTutto();
    void unPercorsoNonEMarcatura();
    void rilettoQuandoTorna();
    void tastiera();
    void tuttoHaUnNome();
    void ricordaIlPosto();
};
PROVA(TestFrmAbout);

void TestFrmAbout::init()
{
    AzzeraSessione();
    sessione::TitoloProdotto = u"Calcanova 3"_s;
    sessione::PercorsoProg = ProgrammaDiProva();
    sessione::UserFolder = NuovaCartella();
}

void TestFrmAbout::cleanup()
{
    AzzeraSessione();
}

void TestFrmAbout::titoloEVersione()
{
    const Registratore Box;
    frmAbout W;
    W.Mostra();
    QCOMPARE(W.windowTitle(), u"Informazioni su Calcanova"_s);
    QCOMPARE(TestoDi(&W, "lblTitolo"), u"Calcanova 3"_s);
    QCOMPARE(TestoDi(&W, "lblVersione"), u"Release "_s + VersioneProgramma());
    QVERIFY(!W.isModal());
}

void TestFrmAbout::cheCosaDice()
{
    const Registratore Box;
    frmAbout W;
    W.Mostra();
    const QString Letto = Controllo<QTextBrowser>(&W, "txtInformazioni")->toPlainText();
    for (const GruppoInformazioni& Gruppo : Informazioni()) {
        QVERIFY2(Letto.contains(Gruppo.Titolo), qPrintable(Gruppo.Titolo));
        for (const RigaInformazione& Riga : Gruppo.Righe)
            QVERIFY2(Letto.contains(Riga.Nome) && Letto.contains(Riga.Valore), qPrintable(Riga.Nome));
    }
}

void TestFrmAbout::copiaTutto()
{
    const Registratore Box;
    frmAbout W;
    W.Mostra();
    Clic(Controllo<QPushButton>(&W, "cmdCopia"));
    QCOMPARE(Appunti(), TestoInformazioni(Informazioni()));
    QCOMPARE(TestoDi(&W, "lblCopiato"), u"Copiato negli appunti"_s);
}

void TestFrmAbout::unPercorsoNonEMarcatura()
{
    const Registratore Box;
    sessione::UserFolder = u"/studio <b>Rossi & figli</b>/"_s;
    frmAbout W;
    W.Mostra();
    QVERIFY(Controllo<QTextBrowser>(&W, "txtInformazioni")->toPlainText().contains(sessione::UserFolder));
}

void TestFrmAbout::rilettoQuandoTorna()
{
    const Registratore Box;
    frmAbout W;
    W.Mostra();
    Clic(Controllo<QPushButton>(&W, "cmdCopia"));
    W.close();
    sessione::ParcellePath = NuovaCartella();
    W.Mostra();
    QVERIFY(Controllo<QTextBrowser>(&W, "txtInformazioni")->toPlainText().contains(sessione::ParcellePath));
    QCOMPARE(TestoDi(&W, "lblCopiato"), QString());
}

void TestFrmAbout::tastiera()
{
    const Registratore Box;
    frmAbout W;
    W.Mostra();
    QVERIFY(MostraAttiva(W));
    QCOMPARE(NomeFuoco(), u"cmdChiudi"_s);
    QCOMPARE(OrdineTab(Controllo(&W, "txtInformazioni"), 3),
             (QStringList{u"txtInformazioni"_s, u"cmdCopia"_s, u"cmdChiudi"_s}));
    Premi(Qt::Key_Escape);
    QVERIFY(!W.isVisible());
}

void TestFrmAbout::tuttoHaUnNome()
{
    const Registratore Box;
    frmAbout W;
    W.Mostra();
    QCOMPARE(SenzaNome(&W).join(u", "), QString());
}

void TestFrmAbout::ricordaIlPosto()
{
    const Registratore Box;
    std::unique_ptr<frmAbout> Aperta;
    ProvaPosto(u"frmAbout"_s, [&]() -> QWidget* {
        Aperta = std::make_unique<frmAbout>();
        Aperta->Mostra();
        return Aperta.get();
    });
}

#include "TestFrmAbout.moc"
