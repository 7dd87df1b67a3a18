// The state of a note that prints with another one: association, reopening, payments in the other window.
#include "multiple.h"

#include "feenote/file/memorianota.h"
#include "feenote/file/memoriastato.h"
#include "feenote/modAcconti.h"
#include "feenote/modStato.h"
#include "feenote/windows/noteaperte.h"
#include "platform/database/database.h"

using namespace Qt::StringLiterals;
using namespace salvataggi;
using enum StatoNota;

class TestStatoMultipla : public QObject, private BancoMultipla
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        Prepara();
        Mia = F->Nota.Percorso;
    }
    void cleanup() { Sgombra(); }
    void siRiapreESiSalva();
    void siAssociaDiNuovo();
    void pagatiFrattanto();
    void nellaSuaFinestra();
    void siToglie();

private:
    /// A document of both goes out and is kept in the file. @return what is open of it
    double Manda()
    {
        Associa(File);
        (void)NotaInviata(F->Nota, StampaPrenotula);
        ScriviNota(Mia, F->Nota);
        return Aperto();
    }
    [[nodiscard]] double Aperto() const
    {
        return LeggiStatoLetto(LeggiMemoria(OpenDatabase(Mia, true))).Resto;
    }
    /// Payments in the file of the other note.
    void PagaAltra(double Quanto)
    {
        const int Riga = NuovoAcconto(Altra);
        Altra.xAcconti(Riga, AccCorrispettivi) = Quanto;
        ScriviNota(File, Altra);
    }
    void Riapri()
    {
        F->SetModificata(false);
        QVERIFY(F->Carica(Mia));
        ClicScheda(F, SchedaImposte);
        QVERIFY(!F->Nota.Multipla());
        QCOMPARE(F->Nota.txtPathParcMult, File);
    }

    QString Mia;
};
PROVA(TestStatoMultipla);

/// Opened again alone, worked on and saved: what the other one has paid stays taken off.
void TestStatoMultipla::siRiapreESiSalva()
{
    const double Chiesti = Manda();
    QVERIFY(Chiesti > 0);
    PagaAltra(100);
    F->ControllaMulti();
    ScriviNota(Mia, F->Nota);
    const double Dopo = Aperto();
    QVERIFY(Dopo < Chiesti);
    Riapri();
    Tocca(F, u"Bianchi"_s);
    Salva(*T, Mia);
    QCOMPARE(Aperto(), Dopo);
    QCOMPARE(F->Nota.Stato.Stato, Inviata);
}

void TestStatoMultipla::siAssociaDiNuovo()
{
    (void)Manda();
    Riapri();
    Associa(File);
    QVERIFY(F->Nota.Multipla());
    Tocca(F, u"Bianchi"_s);
    QCOMPARE(F->Nota.Stato.Stato, Inviata);
}

/// Payments in the other file that cover both make the document paid as soon as they are known.
void TestStatoMultipla::pagatiFrattanto()
{
    (void)Manda();
    PagaAltra(1e6);
    Riapri();
    QCOMPARE(F->Nota.Stato.Stato, Inviata);
    Associa(File);
    QCOMPARE(F->Nota.Stato.Stato, Pagata);
    QVERIFY(F->Nota.Modificata && InfoParcelle[1].Modificata);
    QCOMPARE(Controllo<QAbstractButton>(F, "cmdStato")->text(), u"Stato: pagata"_s);
    F->SetModificata(false);
}

/// Payments that are typed in the other window, and taken away there again.
void TestStatoMultipla::nellaSuaFinestra()
{
    (void)Manda();
    frmParcelle* Compagna = ApriAltra();
    QVERIFY(Compagna);
    Compagna->Nota.xAcconti(NuovoAcconto(Compagna->Nota), AccCorrispettivi) = 1e6;
    Compagna->SetModificata(true);
    QCOMPARE(F->Nota.Stato.Stato, Pagata);
    Compagna->Nota.xAcconti.EliminaRiga(Compagna->Nota.xAcconti.Righe() - 1);
    Compagna->SetModificata(true);
    QCOMPARE(F->Nota.Stato.Stato, Inviata);
    F->SetModificata(false);
    Compagna->SetModificata(false);
}

/// The cross takes the association away, not what was paid of the document of both.
void TestStatoMultipla::siToglie()
{
    const double Chiesti = Manda();
    PagaAltra(100);
    F->ControllaMulti();
    Clic(Controllo(F, "cmdNoMulti"));
    QVERIFY(F->Nota.txtPathParcMult.isEmpty());
    ScriviNota(Mia, F->Nota);
    QVERIFY(Aperto() < Chiesti);
    const double Dopo = Aperto();
    F->SetModificata(false);
    QVERIFY(F->Carica(Mia));
    ScriviNota(Mia, F->Nota);
    QCOMPARE(Aperto(), Dopo);
}

#include "TestStatoMultipla.moc"
