#include "core/aperture.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/modErrori.h"
#include "core/rapportiunici.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/system/shell.h"

#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

class TestErrori : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void mostraDescrizioneENumero();
    void tacePerNumeri_data();
    void tacePerNumeri();
    void ilPuntatoreTornaDopoIlMessaggio();
    void mostraPrimaLaTraccia();
    void msgErroreECritico();
    void laStessaFraseUnaVolta();

    void protettaDiceSeEArrivataInFondo();
    void protettaIgnoraIlNumeroDato();
    void protettaFermaOgniEccezione();

    void laPrimaVoceNonVaACapo();
    void tracciaSenzaScrivania();

private:
    QStringList Eventi;
    Shell Precedente;
};
PROVA(TestErrori);

void TestErrori::init()
{
    AzzeraSessione();
    Eventi.clear();
    Shell Nuova;
    Nuova.Clessidra = [this](bool Attiva) { Eventi << (Attiva ? u"clessidra"_s : u"freccia"_s); };
    Precedente = InstallaShell(std::move(Nuova));
    Aperture.MostraTraccia = [this](const QString& Testo) { Eventi << Testo; };
}

void TestErrori::cleanup()
{
    InstallaShell(std::move(Precedente));
    Aperture.MostraTraccia = nullptr;
}

void TestErrori::mostraDescrizioneENumero()
{
    Registratore Box;
    Box.Attendi(u"Errore: Prova non riuscita (3021)"_s, vbOK, u"Errore:"_s);
    QVERIFY(GestioneErrori(Errore(3021, u"Prova non riuscita"_s)));
    QCOMPARE(Box.Mostrato(0).Bandiere, vbCritical);
}

void TestErrori::tacePerNumeri_data()
{
    QTest::addColumn<int>("Numero");
    QTest::addColumn<int>("Ignora");

    QTest::newRow("no error") << 0 << 0;
    QTest::newRow("number below 0") << -1 << 0;
    QTest::newRow("the one to ignore") << 53 << 53;
}

void TestErrori::tacePerNumeri()
{
    QFETCH(int, Numero);
    QFETCH(int, Ignora);
    Registratore Box;
    sessione::TestoDebug = u"- a"_s;
    QVERIFY(!GestioneErrori(Errore(Numero), Ignora));
    QCOMPARE(Eventi, QStringList{u"freccia"_s});
}

void TestErrori::ilPuntatoreTornaDopoIlMessaggio()
{
    Registratore Box;
    Box.Attendi(u"Errore: x (53)"_s);
    QVERIFY(GestioneErrori(Errore(53, u"x"_s), 75));
    QCOMPARE(Eventi, QStringList{u"freccia"_s});
}

void TestErrori::mostraPrimaLaTraccia()
{
    Messaggi Nuovi;
    Nuovi.Box = [this](const QString&, int, const QString&) {
        Eventi << u"box"_s;
        return vbOK;
    };
    Messaggi Prima = InstallaMessaggi(std::move(Nuovi));
    sessione::TestoDebug = u"- a"_s;
    GestioneErrori(Errore(5));
    InstallaMessaggi(std::move(Prima));
    QCOMPARE(Eventi, (QStringList{u"FINESTRA DEBUG:\n- a"_s, u"box"_s, u"freccia"_s}));
}

void TestErrori::msgErroreECritico()
{
    Registratore Box;
    Box.Attendi(u"Una frase."_s, vbOK, u"Errore:"_s);
    MsgErrore(u"Una frase."_s);
    QCOMPARE(Box.Mostrato(0).Bandiere, vbCritical);
}

void TestErrori::protettaDiceSeEArrivataInFondo()
{
    Registratore Box;
    bool Arrivata = false;
    QVERIFY(Protetta([&] { Arrivata = true; }));
    QVERIFY(Arrivata);
    QCOMPARE(Eventi, QStringList());

    Box.Attendi(u"Errore: x (13)"_s);
    QVERIFY(!Protetta([] { throw Errore(13, u"x"_s); }));
}

void TestErrori::protettaIgnoraIlNumeroDato()
{
    Registratore Box;
    QVERIFY(!Protetta([] { throw Errore(53); }, 53));
    QCOMPARE(Eventi, QStringList{u"freccia"_s});
}

void TestErrori::protettaFermaOgniEccezione()
{
    Registratore Box;
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(7) + u" (7)"_s);
    QVERIFY(!Protetta([] { throw std::bad_alloc(); }));
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(1000) + u" (1000)"_s);
    QVERIFY(!Protetta([] { throw std::runtime_error("x"); }));
}

void TestErrori::laPrimaVoceNonVaACapo()
{
    TraceDebug(u"a"_s);
    TraceDebug(u"b"_s);
    TraceDebug(u"c"_s);
    QCOMPARE(sessione::TestoDebug, u"- a- b\n- c\n"_s);
    QCOMPARE(Eventi, (QStringList{u"FINESTRA DEBUG:\n- a"_s, u"FINESTRA DEBUG:\n- a- b\n"_s,
                                  u"FINESTRA DEBUG:\n- a- b\n- c\n"_s}));
}

// What one damaged file keeps from several readings is one thing to know; another one is told, and so is the
// same one behind the next act.
void TestErrori::laStessaFraseUnaVolta()
{
    const Errore Stesso(13, u"a.mdb"_s);
    for (int Atto = 0; Atto < 2; ++Atto) {
        Registratore Box;
        Box.Attendi(u"Errore: a.mdb (13)"_s, vbOK, u"Errore:"_s);
        Box.Attendi(u"Errore: b.mdb (13)"_s, vbOK, u"Errore:"_s);
        const RapportiUnici UnaVolta;
        QVERIFY(GestioneErrori(Stesso));
        {
            const RapportiUnici Dentro;
            QVERIFY2(!GestioneErrori(Stesso), "held back");
            QVERIFY(GestioneErrori(Errore(13, u"b.mdb"_s)));
        }
        QVERIFY(!GestioneErrori(Stesso));
    }
    Registratore Box;
    for (int Volta = 0; Volta < 2; ++Volta)
        Box.Attendi(u"Errore: a.mdb (13)"_s, vbOK, u"Errore:"_s);
    GestioneErrori(Stesso);
    GestioneErrori(Stesso);
}

void TestErrori::tracciaSenzaScrivania()
{
    Aperture.MostraTraccia = nullptr;
    TraceDebug(u"a"_s);
    QCOMPARE(sessione::TestoDebug, u"- a"_s);
}

#include "TestErrori.moc"
