// Two notes printed as one, each in its window: how they end with the program, and what the next ones find.
#include "feenote/modNuovaParcella.h"
#include "ufficio.h"

#include "core/aperture.h"
#include "core/app/apritori.h"
#include "core/app/avvio.h"
#include "core/comandi.h"
#include "core/posti.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/file/modRecupero.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/system/file.h"

#include <QTabWidget>
#include <QToolButton>

#include <memory>

class TestFineCoppia : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void spegni_data();
    void spegni();
    void spegniTieneChiRifiuta();
    void ctrlQ_data();
    void ctrlQ();
    void laCorniceSiChiude();
    void bassa();

private:
    static frmMain& Cornice() { return Singola<frmMain>(); }
    [[nodiscard]] QString Nota(const QString& Nome, double Esente) const;
    /// The first note associated with the second one, which is opened by the pencil.
    void Unisci();
    [[nodiscard]] static QString Domanda(const QString& Nome)
    {
        return Nome + u"\nVuoi salvare la parcella prima di chiudere?"_s;
    }
    [[nodiscard]] static QString Esenti() { return TestoDi(Parcelle(1), "lblSpese"); }
    /// Neither window knows of another one, and both can print.
    static void Sciolte();

    std::unique_ptr<Scena> S;
    std::unique_ptr<Registratore> Box;
    QString Note;
    QString Altra;  ///< the file to associate
};
PROVA(TestFineCoppia);

void TestFineCoppia::init()
{
    S = std::make_unique<Scena>();
    Box = std::make_unique<Registratore>();
    Note = SalvaUfficio();
    RiempiApritori();
    Altra = Nota(u"altra"_s, 27.0);
    Aperture.TrovaParcella = [this](int, const QString&, int, const QString&) { return Altra; };
}

void TestFineCoppia::cleanup()
{
    Box.reset();
    AzzeraFinestre();
    LasciaRecupero();
    S.reset();
    Aperture.AreaParcelle = nullptr;
    Aperture.ParcellaAttivata = nullptr;
    Aperture.UltimaParcellaChiusa = nullptr;
}

QString TestFineCoppia::Nota(const QString& Nome, double Esente) const
{
    sessione::PercorsoProg = ProgrammaDiProva();
    Parcella Nuova;
    NuovaParcella(Nuova);
    const int Riga = Nuova.xDiritti.AggiungiRiga();
    Nuova.xDiritti(Riga, DirDescr) = u"Bolli"_s;
    Nuova.xDiritti(Riga, DirEsente) = Esente;
    const QString File = Note + Nome + u".mdb"_s;
    ScriviNota(File, Nuova);
    return File;
}

void TestFineCoppia::Unisci()
{
    Controllo<QToolButton>(Parcelle(1), "cmdOpenPar")->click();
    Controllo<QToolButton>(Parcelle(1), "cmdModPar")->click();
    QVERIFY(Parcelle(2) && Parcelle(2)->isVisible());
    QCOMPARE(Parcelle(1)->Socio(), 2);
    QCOMPARE(Parcelle(2)->Socio(), 1);
    QVERIFY(Parcelle(1)->HaStampa() && !Parcelle(2)->HaStampa());
}

void TestFineCoppia::Sciolte()
{
    for (const int Indice : {1, 2}) {
        QCOMPARE(Parcelle(Indice)->Socio(), 0);
        QVERIFY(Parcelle(Indice)->HaStampa());
        QVERIFY2(!Parcelle(Indice)->windowTitle().contains(u"multipla"),
                 qPrintable(Parcelle(Indice)->windowTitle()));
        QVERIFY(Controllo(Parcelle(Indice), "fraMultipla")->isEnabledTo(Parcelle(Indice)));
    }
}

void TestFineCoppia::spegni_data()
{
    QTest::addColumn<QList<int>>("Cambiate");
    QTest::newRow("nothing to ask about") << QList<int>{};
    QTest::newRow("the partner is asked about once, with the main note") << QList<int>{2};
    QTest::newRow("both are asked about before either goes") << QList<int>{1, 2};
}

void TestFineCoppia::spegni()
{
    QFETCH(QList<int>, Cambiate);
    Main({});
    ApriParcella(Nota(u"mia"_s, 1.0), 0, {});
    Unisci();
    for (const int Indice : Cambiate) {
        Parcelle(Indice)->SetModificata(true);
        Box->Attendi(Domanda(Indice == 1 ? u"mia"_s : u"altra"_s), vbNo, u"Domanda:"_s);
    }
    EseguiComando(u"off"_s, 0, {});
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QVERIFY(InfoParcelle[1].Libera && InfoParcelle[2].Libera);
    Sciolte();
}

/// The shutdown goes on, whatever is answered; who stays is an ordinary note, with the figures of the file.
void TestFineCoppia::spegniTieneChiRifiuta()
{
    Main({});
    ApriParcella(Nota(u"mia"_s, 1.0), 0, {});
    Unisci();
    Parcelle(2)->Nota.xDiritti(0, DirEsente) = 40.0;
    Parcelle(2)->SetModificata(true);
    QCOMPARE(Esenti(), u"Esenti: 41,00"_s);
    Box->Attendi(Domanda(u"altra"_s), vbCancel, u"Domanda:"_s);
    Box->Attendi(Domanda(u"altra"_s), vbNo, u"Domanda:"_s);
    EseguiComando(u"off"_s, 0, {});
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QVERIFY(!InfoParcelle[1].Libera && InfoParcelle[2].Libera);
    Sciolte();
    QCOMPARE(Esenti(), u"Esenti: 28,00"_s);
    QVERIFY2(Parcelle(1)->Nota.Multipla(), "it is still printed with the other one");
}

void TestFineCoppia::ctrlQ_data()
{
    QTest::addColumn<bool>("Annullata");
    QTest::newRow("both go, the program ends") << false;
    QTest::newRow("cancelled at the second one: both stay, linked") << true;
}

void TestFineCoppia::ctrlQ()
{
    QFETCH(bool, Annullata);
    Main({});
    ApriParcella(Nota(u"mia"_s, 1.0), 0, {});
    Unisci();
    Parcelle(2)->SetModificata(true);
    Box->Attendi(Domanda(u"altra"_s), Annullata ? vbCancel : vbNo, u"Domanda:"_s);
    QVERIFY(MostraAttiva(Cornice()));
    QTest::keyClick(&Cornice(), Qt::Key_Q, Qt::ControlModifier);
    QCOMPARE(S->Eventi, Annullata ? QStringList() : QStringList{u"fine"_s});
    QCOMPARE(InfoParcelle[1].Libera, !Annullata);
    QCOMPARE(InfoParcelle[2].Libera, !Annullata);
    if (!Annullata) {
        Sciolte();
        return;
    }
    QCOMPARE(Parcelle(1)->Socio(), 2);
    QCOMPARE(Parcelle(2)->Socio(), 1);
    QVERIFY(!Parcelle(2)->HaStampa());
    QCOMPARE(Parcelle(2)->windowTitle(), u"altra (multipla di mia)"_s);
    Parcelle(2)->SetModificata(false);
}

/// The windows are kept for the next notes, which know nothing of the pair that was there.
void TestFineCoppia::laCorniceSiChiude()
{
    Main({});
    ApriParcella(Nota(u"mia"_s, 1.0), 0, {});
    Unisci();
    Cornice().close();
    QTRY_VERIFY(!Cornice().isVisible());
    QCOMPARE(S->Eventi, QStringList());
    Sciolte();
    EseguiComando(u"new"_s, 0, {});
    Parcelle(1)->SetModificata(true);
    EseguiComando(u"new"_s, 0, {});
    QCOMPARE(Parcelle(2)->windowTitle(), u"Nuova parcella:2"_s);
    Sciolte();
    QVERIFY(!Parcelle(1)->Nota.Multipla());
    QCOMPARE(Esenti(), u"Esenti: 0"_s);
    Parcelle(1)->SetModificata(false);
}

void TestFineCoppia::bassa()
{
    Main(u"-low"_s);
    Unisci();
    QVERIFY(ChiudiParcella(2));
    QCOMPARE(S->Eventi, QStringList());
    Sciolte();
    Controllo<QToolButton>(Parcelle(1), "cmdModPar")->click();
    QCOMPARE(Parcelle(1)->Socio(), 2);
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    Sciolte();
}

#include "TestFineCoppia.moc"
