// Each row of "Da controllare" leads to its field, by mouse and keyboard: one note has them all.
#include "bancocontrolli.h"

#include "feenote/modParametri.h"

using namespace Qt::StringLiterals;

class TestVociControlli : public QObject, private BancoControlli
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase() { SgombraControlli(); }
    void ogniVocePortaAlSuoCampo_data();
    void ogniVocePortaAlSuoCampo();
};
PROVA(TestVociControlli);

void TestVociControlli::initTestCase()
{
    PreparaControlli();
    Parcella& Nota = F->Nota;
    Nota.txtDatiPar[DatoNumFatt].clear();
    Nota.txtDatiPar[DatoDataFatt] = u"pippo"_s;
    Nota.IDCli = 0;
    Nota.txtCliente.Testo.clear();
    Nota.txtDatiStaCli.Testo.clear();
    RigaSpesa(Nota, 10.0, QVariant());
    RigaSpesa(Nota, 20.0, QVariant());
    RigaSpesa(Nota, 0.0, QVariant());
    RigaAcconto(Nota, u"E"_s, 90000.0, 0.0, 5.0);
    Nota.xAcconti(RigaAcconto(Nota, u"E"_s, 1.0, 0.0, 0.0), AccDescr) = u"bonifico del 05/10/2020"_s;
    Nota.chkFattAcc.Attiva = true;
    Nota.chkCP.Attiva = Nota.chkIva.Attiva = Nota.chkRA.Attiva = true;
    Nota.txtIVA.Testo = u"21"_s;
    Nota.txtCP.Testo = u"2"_s;
    Nota.txtRA.Testo = u"19"_s;
    Nota.RigheDaRicalcolare = true;
    RigaConLimiti(5000, 750, 2400);
}

/// The list in view, wherever the last row has led.
void TestVociControlli::init()
{
    Premi(Qt::Key_Escape);  // a cell that is being written
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(F->Scheda(), int(SchedaDiStampa));
}

void TestVociControlli::ogniVocePortaAlSuoCampo_data()
{
    QTest::addColumn<QString>("Inizio");
    QTest::addColumn<int>("Scheda");
    QTest::addColumn<QString>("Fuoco");
    QTest::addColumn<int>("Riga");
    QTest::addColumn<int>("Colonna");
    QTest::addColumn<int>("Come");
    struct Attesa
    {
        const char* Nome;
        QString Inizio;
        int Scheda;
        QString Fuoco;
        int Riga = -1;
        int Colonna = -1;
    };
    const QList<Attesa> Attese{
        {"numero", u"La fattura è senza numero"_s, SchedaDiStampa, u"txtDatiPar_11"_s},
        {"data", u"La data della fattura"_s, SchedaDiStampa, u"txtDatiPar_12"_s},
        {"cliente", u"La fattura è senza cliente"_s, SchedaBase, u"txtCliente"_s},
        {"ricalcolo", u"Gli onorari sono da ricalcolare"_s, SchedaDiStampa, u"cmdRicalcola"_s},
        {"onorario", u"Onorario 2"_s, SchedaListaOnorari, u"tdbOnor"_s, 1, OnoImporto},
        {"spesa", u"Spesa 3"_s, SchedaListaSpese, u"tdbDir"_s, 2, DirImponibile},
        {"acconti sui corrispettivi", u"Gli acconti sui corrispettivi"_s, SchedaImposte, u"tdbAcconti"_s, 0,
         AccCorrispettivi},
        {"acconti sulle spese esenti", u"Gli acconti sulle spese esenti"_s, SchedaImposte, u"tdbAcconti"_s, 0,
         AccSpeseEsenti},
        {"termine dell'acconto", u"L'acconto del 05/10/2020"_s, SchedaImposte, u"tdbAcconti"_s, 1, AccDescr},
        {"IVA", u"I.V.A. al 21%"_s, SchedaImposte, u"txtIVA"_s},
        {"cassa", u"Cassa di previdenza al 2%"_s, SchedaImposte, u"txtCP"_s},
        {"ritenuta", u"Ritenuta d'acconto al 19%"_s, SchedaImposte, u"txtRA"_s},
    };
    const auto Riga = [](const Attesa& Una, const char* Nome, Gesto Come) {
        QTest::newRow(qPrintable(u"%1, %2"_s.arg(QLatin1StringView(Una.Nome), QLatin1StringView(Nome))))
            << Una.Inizio << Una.Scheda << Una.Fuoco << Una.Riga << Una.Colonna << int(Come);
    };
    for (const Attesa& Una : Attese) {
        Riga(Una, "clic", Gesto::Clic);
        Riga(Una, "Invio", Gesto::Invio);
    }
    Riga(Attese[0], "spazio", Gesto::Spazio);
    Riga(Attese[4], "spazio", Gesto::Spazio);
}

void TestVociControlli::ogniVocePortaAlSuoCampo()
{
    QFETCH(const QString, Inizio);
    QFETCH(const int, Scheda);
    QFETCH(const QString, Fuoco);
    QFETCH(const int, Riga);
    QFETCH(const int, Colonna);
    QFETCH(const int, Come);
    const int Posto = PostoDi(Inizio);
    QVERIFY2(Posto >= 0, qPrintable(Voci().join(u'\n')));
    Fai(Gesto(Come), Posto);
    QCOMPARE(F->Scheda(), Scheda);
    QCOMPARE(NomeFuoco(), Fuoco);
    if (Riga < 0)
        return;
    const auto* Lista = F->findChild<Griglia*>(Fuoco);
    QCOMPARE(Lista->RigaCorrente(), std::optional(Riga));
    QCOMPARE(Lista->ColonnaCorrente(), Colonna);
}

#include "TestVociControlli.moc"
