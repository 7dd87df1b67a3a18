// From the start to the new rates: search, question, form, archive in place, calculators that show its date.
#include "scena.h"
#include "update/banco.h"

#include "calculators/windows/frmInteressi.h"
#include "calculators/windows/frmIstat.h"
#include "core/app/apritori.h"
#include "platform/kit/servizi_qt.h"
#include "platform/kit/singola.h"
#include "update/modCopyURL.h"
#include "update/windows/frmUpgrade.h"

#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

#include <memory>

class TestStradaAggiornamento : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void dallAvvioAlCalcolatore();
    void dalComando();
    void senzaServerNonUnaParola();
    void laScrivaniaAspettaIlTrasferimento();

private:
    void Prepara(const QString& Server);

    std::unique_ptr<Scena> S;
    std::unique_ptr<BancoAggiornamenti> B;
    QString Utente;
};
PROVA(TestStradaAggiornamento);

namespace {

/// The words of a window's status bar.
QString Stato(const QWidget* Modulo)
{
    const auto* Barra = Modulo->findChild<QStatusBar*>();
    QStringList Parole;
    for (const QLabel* Pannello : Barra->findChildren<QLabel*>())
        Parole << Pannello->text().trimmed();
    return Parole.join(u'|');
}

}  // namespace

void TestStradaAggiornamento::init()
{
    S = std::make_unique<Scena>();
    B = std::make_unique<BancoAggiornamenti>();
    Utente = sessione::UserFolder;
}

void TestStradaAggiornamento::cleanup()
{
    delete SeCaricato<frmUpgrade>.data();
    delete SeCaricato<frmInteressi>.data();
    delete SeCaricato<frmIstat>.data();
    B.reset();
    S.reset();
}

void TestStradaAggiornamento::Prepara(const QString& Server)
{
    ScriviFile(Utente + u"avvisokr5.ini"_s, "[avvisokr5]\nletto=21/11/2026\n");
    Scena::Salva(u"PercorsoProcedura"_s, ProgrammaDiProva());
    Scena::Salva(u"CercaAgg"_s, u"S"_s);
    Scena::Salva(u"UserFolder"_s, Utente);
    Scena::Salva(u"StudioNome"_s, u"Studio Bianchi"_s);
    Scena::Salva(u"ServerAggiornamenti"_s, Server);
    RiempiApritori();
}

void TestStradaAggiornamento::dallAvvioAlCalcolatore()
{
    const QByteArray Nuovo = B->ArchivioNuovo();
    B->Posa(u"tassi.dat"_s, Nuovo);
    B->Annunciate(SoloTassi);
    B->Firmate();
    Prepara(B->Server.Indirizzo());
    Aperture.Apri(u"inter");
    Aperture.Apri(u"istat");
    QCOMPARE(Stato(&Singola<frmInteressi>()).section(u'|', 0, 0),
             u"Archivio interessi aggiornato al 01/09/2026"_s);

    B->Voce.Attendi(
        u"Sono presenti dei nuovi aggiornamenti del programma.\nVuoi procedere con l'aggiornamento?"_s, vbYes,
        u"Domanda:"_s);
    B->Voce.Attendi(u"L'aggiornamento dell'archivio è stato correttamente completato."_s, vbOK,
                    u"Avvertenza:"_s);
    bool Finito = false;
    QTimer Mano;
    connect(&Mano, &QTimer::timeout, this, [&] {
        frmUpgrade* Modulo = SeCaricato<frmUpgrade>;
        if (!Modulo || QApplication::activeModalWidget() != Modulo)
            return;
        if (auto* Bottone = Modulo->findChild<QPushButton*>(u"cmdUpgrade"_s); Bottone->isVisible()) {
            Clic(Bottone);
        } else if (B->Voce.Mostrati().size() == 2) {
            Finito = true;
            Modulo->close();
        }
    });
    Mano.start(20);
    Main({});
    QTRY_VERIFY_WITH_TIMEOUT(Finito, 15000);
    QVERIFY(LeggiFile(Utente + u"Tassi.dat"_s) == Nuovo);
    QVERIFY(Stato(&Singola<frmInteressi>()).startsWith(u"Archivio interessi aggiornato al 01/12/2026"));
    QVERIFY(Stato(&Singola<frmIstat>()).startsWith(u"Archivio Istat aggiornato al 01/12/2026"));
    // The search does not come again, whatever the settings say.
    const qsizetype Chiesti = B->Server.Uditi().count("GET ");
    sessione::CercaAgg = true;
    Singola<frmStudio>().Form_Activate();
    QTest::qWait(300);
    QCOMPARE(B->Server.Uditi().count("GET "), Chiesti);
}

void TestStradaAggiornamento::dalComando()
{
    Prepara(B->Server.Indirizzo());
    sessione::ServerAggiornamenti = B->Server.Indirizzo();
    QCOMPARE(Impedimento(u"upgrade"), QString());
    EseguiComando(u"upgrade"_s, 0, {});
    QVERIFY(Singola<frmUpgrade>().isVisible());
    QVERIFY(!Singola<frmUpgrade>().isModal());
    // The command has no word: nothing is searched until it is asked for.
    QVERIFY(B->Server.Uditi().isEmpty());
}

void TestStradaAggiornamento::senzaServerNonUnaParola()
{
    Prepara({});
    Main({});
    QVERIFY(Singola<frmStudio>().isVisible());
    QTest::qWait(500);
    QVERIFY(B->Voce.Mostrati().isEmpty());
    QVERIFY(B->Server.Uditi().isEmpty());
    QVERIFY(!EsisteFile(Utente + u"versioni.txt"_s));
}

void TestStradaAggiornamento::laScrivaniaAspettaIlTrasferimento()
{
    Prepara({});
    Main({});
    frmStudio& Scrivania = Singola<frmStudio>();
    QVERIFY(MostraAttiva(Scrivania));
    QTest::qWait(100);
    sessione::ModoDebug = true;
    sessione::TestoDebug.clear();
    const QString Nuova = u"avvio form programma"_s;

    QEvent Tornata(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&Scrivania, &Tornata);
    int Respiri = 0;
    bool Attivata = false;
    const auto Osserva = [&](qint64, qint64) {
        constexpr int Bastano = 20;
        const bool Prosegui = Respira();
        Attivata = Attivata || sessione::TestoDebug.contains(Nuova);
        return Prosegui && ++Respiri < Bastano;
    };
    (void)CopiaURL(B->Server.Indirizzo(u"lento"_s), Utente + u"x"_s, {true, qint64(4) << 20, Osserva});
    QVERIFY(Respiri > 1);
    QVERIFY2(!Attivata, "it has nothing to ask meanwhile");
    QTRY_VERIFY(sessione::TestoDebug.contains(Nuova));
}

#include "TestStradaAggiornamento.moc"
