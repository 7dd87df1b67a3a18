// A linked note while the clients' archive cannot be read: it opens, one sentence says why, and no document
// goes out without the client's address until the archive is back.
#include "compagna/archivio.h"
#include "stampa.h"
#include "supporto/danni.h"

#include "feenote/modDatiStampa.h"
#include "feenote/modDuplica.h"
#include "feenote/modParti.h"
#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/system/attese.h"
#include "platform/system/impostazioni.h"

#include <QDir>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScopedValueRollback>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int Bloccato = Danni;  ///< sound, and in another program's hands

}  // namespace

class TestArchivioChiuso : public QObject, private BancoStampa
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void nienteEsceFinoAlRitorno_data();
    void nienteEsceFinoAlRitorno();
    void nessunPassoRiportaSenzaIndirizzo();
    void laCompagnaNonAspettaInSilenzio();
    void ilRitornoDaINomi();
    void ilBloccoScrittoEsce();
    void iNomiArrivanoAncheSeNienteAspetta_data();
    void iNomiArrivanoAncheSeNienteAspetta();
    void ilClienteDigitatoSiStampa();
    void nessunaControparteSiPerde();
    void laControparteDellaNotaNuova_data();
    void laControparteDellaNotaNuova();
    void laControparteSenzaNomeSiDice();
    void laFatturaElettronicaLoDice();

private:
    /// The note with its link and a document that words the client, saved; no window is open any more.
    void Scrivi(int Tipo);
    void Chiudi(int Come);
    void Riapri();

    QString Nota;
    QByteArray Sano;
    std::unique_ptr<Connessione> Altro;
};
PROVA(TestArchivioChiuso);

void TestArchivioChiuso::init()
{
    T = std::make_unique<Tavolo>();
    sessione::StudioNome = u"Avv. Laura Conti"_s;
    Nota = T->Ufficio.File(u"causa.mdb"_s);
}

void TestArchivioChiuso::cleanup()
{
    Altro.reset();
    sessione::WP = u"-1"_s;
    sessione::RichiestaPV2 = {};
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"PreviewParcPath"_s, {});
    Sgombra();
}

void TestArchivioChiuso::Scrivi(int Tipo)
{
    Parcella Nuova = NotaPiena();
    Nuova.IDCli = T->Ufficio.AggiungiCliente({{u"Nominativo"_s, u"Verdi Anna"_s},
                                              {u"Indirizzo"_s, u"Via Larga 3"_s},
                                              {u"PIva"_s, u"01234567897"_s}});
    Nuova.IDCon = T->Ufficio.AggiungiControparte(u"Neri Carlo"_s, u"Neri Carlo"_s);
    Nuova.txtCliente.Testo = u"Verdi Anna"_s;
    Nuova.txtControp.Testo = u"Neri Carlo"_s;
    ScegliTipoStampa(Nuova, Tipo);
    ScriviNota(Nota, Nuova);
    Sano = LeggiFile(sessione::ArchivioCliCon);
}

void TestArchivioChiuso::Chiudi(int Come)
{
    if (Come != Bloccato) {
        Rovina(sessione::ArchivioCliCon, Come);
        return;
    }
    Altro = std::make_unique<Connessione>(sessione::ArchivioCliCon, Connessione::Modo::Scrittura);
    Altro->Esegui(u"BEGIN EXCLUSIVE"_s);
}

void TestArchivioChiuso::Riapri()
{
    if (Altro) {
        Altro.reset();
        return;
    }
    QDir().rmdir(sessione::ArchivioCliCon);
    QFile::remove(sessione::ArchivioCliCon);
    ScriviFile(sessione::ArchivioCliCon, Sano);
}

void TestArchivioChiuso::nienteEsceFinoAlRitorno_data()
{
    QTest::addColumn<int>("Come");

    for (int Come = 0; Come <= Bloccato; ++Come)
        QTest::newRow(Come == Bloccato ? "locked" : NomiDanni[size_t(Come)]) << Come;
}

void TestArchivioChiuso::nienteEsceFinoAlRitorno()
{
    QFETCH(int, Come);
    const QScopedValueRollback Fretta(attese::BlocchiMs, 20);
    sessione::WP = u"editor"_s;
    Scrivi(StampaFatturaAnalitica);
    Chiudi(Come);
    Registratore& Voce = T->Voce;
    Voce.Tollera();
    const auto UnaSola = [&] {
        const bool Una = Voce.Mostrati().size() == 1 && Voce.UltimoTesto().contains(u"DatiStudio.mdb"_s) &&
                         !Voce.UltimoTesto().contains(u"associat"_s);
        Voce.Sparecchia();
        return Una;
    };
    F = T->Apri(Nota);
    QVERIFY(F);
    QVERIFY2(UnaSola(), "the opening");
    QCOMPARE(F->Nota.txtCliente.Testo, u"Verdi Anna"_s);
    QCOMPARE(F->Nota.txtControp.Testo, u"Neri Carlo"_s);
    QVERIFY(!F->Nota.Modificata);

    ClicScheda(F, SchedaDiStampa);
    vp = Controllo<VistaStampa>(F, "vp");
    QCOMPARE(Voce.Mostrati().size(), 0);
    QVERIFY2(!Pagine().contains(u"Verdi"_s), qPrintable(Pagine()));
    QVERIFY(!vp->Avviso().isEmpty());
    // No answer is laid out for the dialogs of printer and file: one that came up would fail the test.
    for (const char* Tasto :
         {"barPrint_print", "barPrint_pdf", "barPrint_invia", "barPrint_word", "barPrint_wp"}) {
        Premuto(Tasto);
        QVERIFY2(UnaSola(), Tasto);
    }
    ClicScheda(F, SchedaBase);
    ::Scrivi(Controllo<QLineEdit>(F, "txtOggetto"), u"Altro oggetto"_s);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Cliente(Nota), u"Verdi Anna"_s);
    QCOMPARE(Voce.Mostrati().size(), 0);
    QCOMPARE(Esportato(), QByteArray());

    Riapri();
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(Voce.Mostrati().size(), 0);
    QVERIFY2(Pagine().contains(u"Via Larga 3"_s), qPrintable(Pagine()));
    QCOMPARE(vp->Avviso(), QString());
    QVERIFY(!F->Nota.Modificata);
    QVERIFY(!Esportato().isEmpty());
}

/// A step of when the archive was shut leads to the client that the archive has given since, and to a note
/// without changes.
void TestArchivioChiuso::nessunPassoRiportaSenzaIndirizzo()
{
    Scrivi(StampaFatturaAnalitica);
    Chiudi(Svuotato);
    T->Voce.Tollera();
    F = T->Apri(Nota);
    QVERIFY(F);
    vp = Controllo<VistaStampa>(F, "vp");
    const QString Prima = F->Nota.txtOggetto.Testo;
    ::Scrivi(Controllo<QLineEdit>(F, "txtOggetto"), u"Altro oggetto"_s);
    Riapri();
    ClicScheda(F, SchedaDiStampa);
    QVERIFY2(Pagine().contains(u"Via Larga 3"_s), qPrintable(Pagine()));
    QVERIFY(F->Nota.Modificata);

    T->Voce.Sparecchia();
    Clic(Controllo(F, "cmdAnnulla"));
    Respiro();
    QCOMPARE(F->Nota.txtOggetto.Testo, Prima);
    QVERIFY2(Pagine().contains(u"Via Larga 3"_s), qPrintable(Pagine()));
    QCOMPARE(vp->Avviso(), QString());
    QVERIFY(!F->Nota.Modificata);
    Clic(Controllo(F, "cmdRipeti"));
    Respiro();
    QCOMPARE(F->Nota.txtOggetto.Testo, u"Altro oggetto"_s);
    QVERIFY2(Pagine().contains(u"Via Larga 3"_s), qPrintable(Pagine()));
    QVERIFY(F->Nota.Modificata);
    Clic(Controllo(F, "cmdAnnulla"));
    Respiro();
    QVERIFY(!F->Nota.Modificata);
    QVERIFY(!F->Nota.ArchivioNonLetto);
    QCOMPARE(T->Voce.Mostrati().size(), 0);
}

/// The invoice that a save could not hand to the companion is told so, and goes with the next one.
void TestArchivioChiuso::laCompagnaNonAspettaInSilenzio()
{
    Nota = T->Ufficio.File(u"p12-causa.mdb"_s);
    Scrivi(StampaFatturaAnalitica);
    Chiudi(Svuotato);
    Registratore& Voce = T->Voce;
    Voce.Tollera();
    F = T->Apri(Nota);
    QVERIFY(F);
    ClicScheda(F, SchedaDiStampa);
    ::Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"8"_s);
    sessione::RichiestaPV2.ID = F->Nota.NsRif = u"P12"_s;
    sessione::ArchivioPrat = T->Ufficio.File(u"pratiche.mdb"_s);
    CreaArchivioPratiche(sessione::ArchivioPrat);
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"PreviewParcPath"_s, T->Ufficio.File(u"anteprima.htm"_s));
    const auto Fatture = [] {
        return OpenDatabase(sessione::ArchivioPrat, true)
            .OpenRecordset(u"SELECT COUNT(*) AS N FROM Fatture WHERE Rif='P12'"_s)
            .Value(u"N"_s)
            .toInt();
    };
    Voce.Sparecchia();
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Voce.Mostrati().size(), 1);
    QVERIFY2(Voce.UltimoTesto().contains(u"DatiStudio.mdb"_s), qPrintable(Voce.UltimoTesto()));
    QVERIFY2(Voce.UltimoTesto().contains(u"la fattura non è stata consegnata"_s),
             qPrintable(Voce.UltimoTesto()));
    QCOMPARE(Fatture(), 0);
    QVERIFY2(!F->Nota.Modificata, "it is saved");

    Riapri();
    Voce.Sparecchia();
    Voce.Attendi(u"E' stata salvata la parcella come fattura.\n"
                 u"Trasferisco i dati della fattura anche all'applicazione Praxivo?"_s,
                 vbYes);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Voce.Mostrati().size(), 1);
    QCOMPARE(Fatture(), 1);
    QVERIFY(!F->Nota.Modificata);
}

/// The archive gives the names that the opening would have had from it, and a note that nobody has worked on
/// stays without changes.
void TestArchivioChiuso::ilRitornoDaINomi()
{
    Scrivi(StampaFatturaAnalitica);
    {
        const Database Archivio = OpenDatabase(sessione::ArchivioCliCon);
        Archivio.Execute(u"UPDATE Clienti SET Nominativo='Verdi Anna Maria'"_s);
        Archivio.Execute(u"UPDATE Controparti SET Controp='Neri Carlo e figli'"_s);
    }
    Sano = LeggiFile(sessione::ArchivioCliCon);
    Chiudi(Svuotato);
    T->Voce.Tollera();
    F = T->Apri(Nota);
    QVERIFY(F);
    vp = Controllo<VistaStampa>(F, "vp");
    QCOMPARE(F->Nota.txtCliente.Testo, u"Verdi Anna"_s);
    Riapri();
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Verdi Anna Maria"_s);
    QCOMPARE(F->Nota.NomeCli, u"Verdi Anna Maria"_s);
    QCOMPARE(F->Nota.txtControp.Testo, u"Neri Carlo e figli"_s);
    QCOMPARE(F->Nota.NomeCon, u"Neri Carlo e figli"_s);
    QCOMPARE(F->Nota.txtDatiStaControp.Testo, u"Neri Carlo e figli"_s);
    QVERIFY2(Pagine().contains(u"Verdi Anna Maria"_s), qPrintable(Pagine()));
    QVERIFY(!F->Nota.Modificata);
    QCOMPARE(T->Voce.Mostrati().size(), 1);
}

/// What the user words himself comes from nowhere else.
void TestArchivioChiuso::ilBloccoScrittoEsce()
{
    Scrivi(StampaPrenotula);
    Chiudi(Svuotato);
    T->Voce.Tollera();
    F = T->Apri(Nota);
    QVERIFY(F);
    ClicScheda(F, SchedaDiStampa);
    vp = Controllo<VistaStampa>(F, "vp");
    auto* Box = Controllo<QPlainTextEdit>(F, "txtDatiStaCli");
    Box->setFocus();
    Box->selectAll();
    QTest::keyClicks(Box, u"Verdi Anna, Lucca"_s);
    Controllo(F, "vp")->setFocus();
    Respiro();
    QVERIFY2(Pagine().contains(u"Verdi Anna, Lucca"_s), qPrintable(Pagine()));
    QCOMPARE(vp->Avviso(), QString());
    QCOMPARE(T->Voce.Mostrati().size(), 1);
}

void TestArchivioChiuso::iNomiArrivanoAncheSeNienteAspetta_data()
{
    QTest::addColumn<int>("Tipo");

    QTest::newRow("no document") << int(NessunaVoce);
    QTest::newRow("figures alone") << int(StampaSoloContabile);
    QTest::newRow("a client in the user's words") << int(StampaPrenotula);
}

/// No document waits, but the names are the old ones: the page chosen later would bear one of each.
void TestArchivioChiuso::iNomiArrivanoAncheSeNienteAspetta()
{
    QFETCH(int, Tipo);
    Scrivi(Tipo);
    if (Tipo == StampaPrenotula) {
        Parcella Scritta = NotaPiena();
        CaricaDati(Scritta, Nota);
        CambiaParteStampata(Scritta, ParteNota::Cliente, u"Verdi Anna, Lucca"_s);
        ScriviNota(Nota, Scritta);
    }
    {
        const Database Archivio = OpenDatabase(sessione::ArchivioCliCon);
        Archivio.Execute(u"UPDATE Clienti SET Nominativo='Verdi Anna Maria'"_s);
        Archivio.Execute(u"UPDATE Controparti SET Controp='Neri Carlo e figli'"_s);
    }
    Sano = LeggiFile(sessione::ArchivioCliCon);
    Chiudi(Svuotato);
    T->Voce.Tollera();
    F = T->Apri(Nota);
    QVERIFY(F);
    vp = Controllo<VistaStampa>(F, "vp");
    QVERIFY(!F->Nota.ArchivioNonLetto);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(vp->Avviso(), QString());
    QCOMPARE(T->Voce.Mostrati().size(), 1);
    if (Tipo == StampaPrenotula) {
        QVERIFY2(Pagine().contains(u"Verdi Anna, Lucca"_s), qPrintable(Pagine()));
        Documento(StampaPreventivo);  // worded alike
        QVERIFY2(Pagine().contains(u"Verdi Anna, Lucca"_s), qPrintable(Pagine()));
        QCOMPARE(T->Voce.Mostrati().size(), 1);
    }
    Riapri();
    Documento(StampaFatturaAnalitica);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Verdi Anna Maria"_s);
    QCOMPARE(F->Nota.NomeCli, u"Verdi Anna Maria"_s);
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Verdi Anna Maria"_s);
    QCOMPARE(Controllo<QLineEdit>(F, "txtControp")->text(), u"Neri Carlo e figli"_s);
    QCOMPARE(F->Nota.txtDatiStaControp.Testo, u"Neri Carlo e figli"_s);
    QVERIFY2(Pagine().contains(Tipo == StampaPrenotula ? u"Verdi Anna, Lucca"_s : u"Via Larga 3"_s),
             qPrintable(Pagine()));
    QVERIFY(!F->Nota.Modificata);
    QVERIFY(!AspettaArchivio(F->Nota));
    QCOMPARE(T->Voce.Mostrati().size(), 1);
}

/// As with an archive that can be read: what is typed on the first tab prints, until another document words
/// the row.
void TestArchivioChiuso::ilClienteDigitatoSiStampa()
{
    Scrivi(StampaFatturaAnalitica);
    Chiudi(Svuotato);
    T->Voce.Tollera();
    F = T->Apri(Nota);
    QVERIFY(F);
    vp = Controllo<VistaStampa>(F, "vp");
    const QString Digitato = u"Esposito"_s;
    ::Scrivi(Controllo<QLineEdit>(F, "txtCliente"), Digitato);
    for (const bool Aperto : {false, true}) {
        if (Aperto)
            Riapri();
        ClicScheda(F, SchedaBase);
        ClicScheda(F, SchedaDiStampa);
        QCOMPARE(F->Nota.txtCliente.Testo, Digitato);
        QCOMPARE(F->Nota.txtDatiStaCli.Testo, Digitato);
        QVERIFY2(Pagine().contains(Digitato), qPrintable(Pagine()));
        QVERIFY2(!Pagine().contains(u"Via Larga 3"_s), qPrintable(Pagine()));
        QCOMPARE(F->Nota.NomeCli, Aperto ? u"Verdi Anna"_s : QString());
        QCOMPARE(T->Voce.Mostrati().size(), 1);
    }
    Clic(Controllo(F, "cmdAnnulla"));
    Respiro();
    QCOMPARE(F->Nota.txtCliente.Testo, u"Verdi Anna"_s);
    QCOMPARE(F->Nota.NomeCli, u"Verdi Anna"_s);
    QVERIFY(!F->Nota.Modificata);
    Clic(Controllo(F, "cmdRipeti"));
    Respiro();
    Documento(StampaPrenotula);
    QCOMPARE(F->Nota.txtCliente.Testo, Digitato);
    QVERIFY2(Pagine().contains(u"Via Larga 3"_s), qPrintable(Pagine()));
    QCOMPARE(T->Voce.Mostrati().size(), 1);
}

/// The same file shows the same counterparty, however late the archive came; one whose row is gone is told.
void TestArchivioChiuso::nessunaControparteSiPerde()
{
    for (const bool Sparita : {false, true}) {
        Scrivi(StampaFatturaAnalitica);
        {
            Parcella Scritta = NotaPiena();
            CaricaDati(Scritta, Nota);
            Scritta.txtControp.Testo.clear();
            Scritta.txtDatiStaControp.Testo.clear();
            ScriviNota(Nota, Scritta);
            OpenDatabase(sessione::ArchivioCliCon)
                .Execute(Sparita ? u"DELETE FROM Controparti"_s : u"UPDATE Controparti SET Controp=''"_s);
        }
        Sano = LeggiFile(sessione::ArchivioCliCon);
        Chiudi(Svuotato);
        T->Voce.Tollera();
        F = T->Apri(Nota);
        QVERIFY(F);
        QCOMPARE(F->Nota.txtControp.Testo, QString());
        T->Voce.Sparecchia();
        Riapri();
        ClicScheda(F, SchedaDiStampa);
        QCOMPARE(F->Nota.txtControp.Testo, QString());
        QCOMPARE(F->Nota.txtDatiStaControp.Testo, QString());
        QCOMPARE(T->Voce.Mostrati().size(), Sparita ? 1 : 0);
        if (Sparita)
            QCOMPARE(T->Voce.UltimoTesto(), u"La controparte associata alla parcella non è stata trovata!"_s);
        QVERIFY(!F->Nota.Modificata);
        F->close();
        Respiro();
    }
}

void TestArchivioChiuso::laControparteDellaNotaNuova_data()
{
    QTest::addColumn<bool>("EraNuova");
    QTest::addColumn<bool>("Copiata");
    QTest::addColumn<bool>("Salvata");
    QTest::addColumn<QString>("Nome");

    QTest::newRow("new still") << true << false << false << u"Neri Carlo"_s;
    QTest::newRow("new, and saved since") << true << false << true << u"Neri Carlo"_s;
    QTest::newRow("opened from its file") << false << false << true << QString();
    QTest::newRow("a copy of that, saved since") << false << true << true << u"Neri Carlo"_s;
}

/// A row without a name for notes is headed all the same: a note that was made meanwhile takes that.
void TestArchivioChiuso::laControparteDellaNotaNuova()
{
    QFETCH(bool, EraNuova);
    QFETCH(bool, Copiata);
    QFETCH(bool, Salvata);
    Scrivi(StampaFatturaAnalitica);
    Parcella Una = NotaPiena();
    CaricaDati(Una, Nota);
    OpenDatabase(sessione::ArchivioCliCon).Execute(u"UPDATE Controparti SET Controp=''"_s);
    Una.txtControp.Testo.clear();
    Una.txtDatiStaControp.Testo.clear();
    Una.NomeCon.clear();
    Una.Percorso = EraNuova ? QString() : Nota;
    SegnaNonLetto(Una, Errore(errori::Accesso));
    if (Copiata)
        Una = Duplicata(Una, true);
    if (Salvata)
        Una.Percorso = Nota;
    QVERIFY(RiprovaArchivio(Una));
    QTEST(Una.txtControp.Testo, "Nome");
}

/// A new note that was saved without the name has none in its file: opened again, it would leave him out in
/// silence.
void TestArchivioChiuso::laControparteSenzaNomeSiDice()
{
    const QString SenzaNome = u"La controparte non ha un nome"_s;
    Scrivi(StampaFatturaAnalitica);
    Parcella Scritta = NotaPiena();
    CaricaDati(Scritta, Nota);
    Scritta.txtControp.Testo.clear();
    Scritta.txtDatiStaControp.Testo.clear();
    ScriviNota(Nota, Scritta);
    OpenDatabase(sessione::ArchivioCliCon).Execute(u"UPDATE Controparti SET Controp=''"_s);
    Sano = LeggiFile(sessione::ArchivioCliCon);
    const auto Riga = [&]() -> QListWidgetItem* {
        Respiro();
        const QList<QListWidgetItem*> Trovate =
            Controllo<QListWidget>(F, "lstControlli")->findItems(SenzaNome, Qt::MatchExactly);
        return Trovate.isEmpty() ? nullptr : Trovate.first();
    };
    Chiudi(Svuotato);
    T->Voce.Tollera();
    F = T->Apri(Nota);
    QVERIFY(F);
    ClicScheda(F, SchedaDiStampa);
    QVERIFY2(!Riga(), "the archive may still name him");
    Riapri();
    ClicScheda(F, SchedaBase);
    ClicScheda(F, SchedaDiStampa);
    QVERIFY(Riga());

    const auto* Elenco = Controllo<QListWidget>(F, "lstControlli");
    QTest::mouseClick(Elenco->viewport(), Qt::LeftButton, Qt::NoModifier,
                      Elenco->visualItemRect(Riga()).center());
    Respiro();
    QCOMPARE(F->Scheda(), int(SchedaBase));
    auto* Casella = Controllo<QLineEdit>(F, "txtControp");
    QVERIFY(Casella->hasFocus());
    ::Scrivi(Casella, u"Neri Carlo"_s);
    ClicScheda(F, SchedaDiStampa);
    QVERIFY(!Riga());
}

/// The panel lists it, and says nothing of a client who is not linked.
void TestArchivioChiuso::laFatturaElettronicaLoDice()
{
    Scrivi(StampaFatturaAnalitica);
    Chiudi(Troncato);
    T->Voce.Tollera();
    F = T->Apri(Nota);
    QVERIFY(F);
    ClicScheda(F, SchedaDiStampa);
    Clic(Controllo(F, "cmdFatturaXml"));
    Respiro();
    const auto* Elenco = Controllo<QListWidget>(F, "lstMancanzeXml");
    QCOMPARE(Elenco->count(), 1);
    QVERIFY2(Elenco->item(0)->text().contains(u"DatiStudio.mdb"_s), qPrintable(Elenco->item(0)->text()));
    QVERIFY(!Controllo(F, "cmdSalvaXml")->isEnabled());
    QCOMPARE(T->Voce.Mostrati().size(), 1);
}

#include "TestArchivioChiuso.moc"
