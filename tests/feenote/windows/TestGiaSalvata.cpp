// Ctrl+S where there is nothing to save, the line that speaks of one note alone, what a copy takes along.
#include "salvataggi.h"

#include "feenote/modAcconti.h"
#include "platform/kit/rigachesvanisce.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;
using namespace salvataggi;

class TestGiaSalvata : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nienteDaSalvare();
    void daUnModello();
    void giaSalvata();
    void cambiataDaAltri();
    void nonConfermata();
    void ilFileNonCePiu();
    void conUnCampoAperto();
    void laRigaVaConLaNota_data();
    void laRigaVaConLaNota();
    void laCopiaDiceGliAcconti_data();
    void laCopiaDiceGliAcconti();

private:
    [[nodiscard]] QString Riga() const
    {
        const auto* Sua = Controllo<QLabel>(F, "lblSalvata");
        return Sua->isVisible() ? Sua->text() : QString();
    }
    void Salvata_()
    {
        Tocca(F);
        File = SalvaCome(*T, u"rossi.mdb"_s);
        QVERIFY(!F->Nota.Modificata);
    }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    QString File;
    std::function<QDateTime()> Orologio;
};
PROVA(TestGiaSalvata);

void TestGiaSalvata::init()
{
    Orologio = InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 42)); });
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
}

void TestGiaSalvata::cleanup()
{
    guasti::PrimaDellaCartella = nullptr;
    T.reset();
    InstallaOrologio(Orologio);
}

void TestGiaSalvata::nienteDaSalvare()
{
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Riga(), u"Niente da salvare"_s);
}

void TestGiaSalvata::daUnModello()
{
    Tocca(F);
    const QString Modello = SalvaCome(*T, u"ingiunzione.mdb"_s, true);
    F = T->Apri(Modello, 2);
    QVERIFY(F);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Riga(), u"Niente da salvare"_s);
}

void TestGiaSalvata::giaSalvata()
{
    Salvata_();
    const QDateTime Quando = DataFile(File).addSecs(-60);
    ImpostaDataFile(File, Quando);
    F = T->Apri(File, 2);
    QVERIFY(F);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Riga(), u"Già salvata"_s);
    QCOMPARE(DataFile(File), Quando);
}

void TestGiaSalvata::cambiataDaAltri()
{
    Salvata_();
    ImpostaDataFile(File, DataFile(File).addSecs(60));
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Riga(), u"Il file è stato cambiato da altri"_s);
}

/// The disk has not confirmed what stands there already: it is this note's, and is saved again.
void TestGiaSalvata::nonConfermata()
{
    Salvata_();
    Tocca(F, u"Verdi"_s);
    guasti::PrimaDellaCartella = [this](const QString& Quale) { return Quale != File; };
    T->Voce.Attendi(Guasto(errori::Periferica) + u"; il file rossi.mdb è però al suo posto"_s);
    QVERIFY(!F->SalvaSulPosto());
    guasti::PrimaDellaCartella = nullptr;
    QCOMPARE(Cliente(File), u"Verdi"_s);
    QVERIFY(F->Nota.Modificata);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Riga(), u"Salvata alle 10:42"_s);
}

/// Whoever presses the keys to be sure gets his file again.
void TestGiaSalvata::ilFileNonCePiu()
{
    Salvata_();
    QVERIFY(QFile::remove(File));
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(Salvata(u"rossi.mdb"_s), vbOK, u"Messaggio:"_s);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(T->Voce.InizioDialogo(), File);
    QCOMPARE(Cliente(File), u"Rossi"_s);
}

/// What stands in a cell that is still in edit is no change that is saved already.
void TestGiaSalvata::conUnCampoAperto()
{
    Salvata_();
    auto* Casella = Controllo<QLineEdit>(F, "txtOggetto");
    Casella->setFocus();
    Digita(u"Sfratto"_s);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Riga(), u"Salvata alle 10:42"_s);
}

void TestGiaSalvata::laRigaVaConLaNota_data()
{
    QTest::addColumn<bool>("Nuova");
    QTest::newRow("a new note") << true;
    QTest::newRow("another note") << false;
}

/// Closed and opened again while the line is there: the next note in that place was not saved.
void TestGiaSalvata::laRigaVaConLaNota()
{
    QFETCH(bool, Nuova);
    Salvata_();
    const QString Altra = sessione::ParcellePath + u"bianchi.mdb"_s;
    QVERIFY(QFile::copy(File, Altra));
    Tocca(F, u"Verdi"_s);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Riga(), u"Salvata alle 10:42"_s);
    QVERIFY(ChiudiParcella(1));
    F = T->Apri(Nuova ? QString() : Altra);
    QVERIFY(F);
    QCOMPARE(Riga(), QString());
}

void TestGiaSalvata::laCopiaDiceGliAcconti_data()
{
    QTest::addColumn<QList<double>>("Acconti");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("none") << QList<double>{} << QString();
    QTest::newRow("one") << QList<double>{400} << u"anche l'acconto, di 400,00 euro, ma "_s;
    QTest::newRow("three") << QList<double>{400, 300, 500.5}
                           << u"anche gli acconti: 3, per 1.200,50 euro, ma "_s;
}

/// Payments are the other matter's more often than not: the question names them.
void TestGiaSalvata::laCopiaDiceGliAcconti()
{
    QFETCH(QList<double>, Acconti);
    QFETCH(QString, Frase);
    Tocca(F, u"Rossi %2"_s);
    for (int i = 0; const double Suo : Acconti)
        F->Nota.xAcconti(NuovoAcconto(F->Nota), AccCorrispettivi + i++ % 3) = Suo;
    T->Voce.Attendi(u"La copia avrà righe, parametri e testi di questa parcella,\n"_s + Frase +
                        u"senza numero, data e password.\nMantenere anche il cliente Rossi %2?"_s,
                    vbYes, u"Domanda:"_s);
    DuplicaParcella(1);
    QVERIFY(Parcelle(2));
    QVERIFY(Parcelle(2)->Nota.xAcconti == F->Nota.xAcconti);
}

#include "TestGiaSalvata.moc"
