// A note and the real address book: a name made, chosen, edited and deleted there, and what the note prints.
#include "scena.h"

#include "addressbook/modClienti.h"
#include "addressbook/windows/frmRubrica.h"
#include "addressbook/windows/frmScheda.h"
#include "addressbook/windows/rubriche.h"
#include "core/app/apritori.h"
#include "core/app/avvio.h"
#include "core/comandi.h"
#include "core/posti.h"
#include "feenote/finder/windows/frmTrovaParcella.h"
#include "feenote/windows/tavolo.h"
#include "platform/base/numerierrore.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/file.h"
#include "supporto/altroprogramma.h"

#include <QAction>
#include <QPlainTextEdit>

#include <memory>

class TestStradaRubrica : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void lAltro();

    void ilNuovoClienteElaSuaVita();
    void cancellatoERimesso();
    void laSocietaNellIncarico();
    void laControparteConUnNomeSolo();
    void dalPannelloDiStampa();
    void laSchedaSenzaNome();
    void laNotaSiChiudeColSuoLibro();
    void laNotaDiDopo();
    void laNotaColPropriNominativoInVista();
    void dueProgrammi();
    void unAltroArchivio();

private:
    /// A civil note of 30.000 euro on its base tab.
    void NuovaNota();
    void Stampa(int Tipo) const;
    [[nodiscard]] QString Testo(const char* Nome) const { return Controllo<QLineEdit>(F, Nome)->text(); }
    [[nodiscard]] QString Blocco() const
    {
        return Controllo<QPlainTextEdit>(F, "txtDatiStaCli")->toPlainText();
    }
    /// The text of the pages; the lines of one paragraph are lines too.
    [[nodiscard]] QString Composto() const
    {
        QString Pagine = Controllo<VistaStampa>(F, "vp")->Pagine().Testo();
        return Pagine.replace(QChar::LineSeparator, u'\n');
    }
    /// The book of a place, in front; null when it is not open.
    [[nodiscard]] static frmRubrica* Libro(int Indice = 1);
    /// Its card, in front; null when none is open.
    [[nodiscard]] static frmScheda* Scheda(const frmRubrica* Rubrica);
    /// Types into a box of the card, by the name of its column.
    static void Compila(const frmScheda* Aperta, const QString& Colonna, const QString& Testo);
    void Richiudi();

    std::unique_ptr<Scena> S;
    std::unique_ptr<Registratore> Box;
    frmParcelle* F = nullptr;
    QString File;
};
PROVA(TestStradaRubrica);

void TestStradaRubrica::init()
{
    S = std::make_unique<Scena>();
    Box = std::make_unique<Registratore>();
    if (!AltroProgramma::Parte().isEmpty()) {
        sessione::ArchivioCliCon = AltroProgramma::Cartella();
        return;
    }
    (void)Scena::AllestisciStudio();
    RiempiApritori();
    Main({});
    File = NuovaCartella() + u"nota.mdb"_s;
    F = nullptr;
}

void TestStradaRubrica::cleanup()
{
    Box->Tollera();
    for (int i = 0; i <= UltimaParcella(); ++i)
        delete RubricaDi(i);
    Box.reset();
    AzzeraFinestre();
    LasciaRecupero();
    delete SeCaricato<frmTrovaParcella>.data();
    S.reset();
    Aperture.AreaParcelle = nullptr;
    Aperture.ParcellaAttivata = nullptr;
    Aperture.UltimaParcellaChiusa = nullptr;
}

/// Not a test of its own: what the other program does to the archive of both.
void TestStradaRubrica::lAltro()
{
    if (AltroProgramma::Parte().isEmpty())
        return;
    const Database Archivio = OpenDatabase(sessione::ArchivioCliCon);
    Archivio.Execute(u"DELETE FROM clienti WHERE ID=1"_s);
    Archivio.Execute(u"UPDATE clienti SET Nominativo='Neri Ugo e figli' WHERE ID=2"_s);
    Archivio.Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Bruni Carla')"_s);
}

void TestStradaRubrica::NuovaNota()
{
    Singola<frmMain>().barParcelle_ButtonClick(u"new"_s);
    F = Parcelle(1);
    QVERIFY(F && MostraAttiva(Singola<frmMain>()));
    CompilaCivile(F);
    Respiro();
}

void TestStradaRubrica::Stampa(int Tipo) const
{
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), Tipo);
    Respiro();
}

frmRubrica* TestStradaRubrica::Libro(int Indice)
{
    frmRubrica* Rubrica = RubricaDi(Indice);
    if (Rubrica && !Rubrica->findChild<frmScheda*>())
        (void)MostraAttiva(*Rubrica);
    return Rubrica;
}

frmScheda* TestStradaRubrica::Scheda(const frmRubrica* Rubrica)
{
    auto* Aperta = Rubrica->findChild<frmScheda*>();
    return Aperta && MostraAttiva(*Aperta) ? Aperta : nullptr;
}

void TestStradaRubrica::Compila(const frmScheda* Aperta, const QString& Colonna, const QString& Testo)
{
    for (auto* Trovato : Aperta->findChildren<QLineEdit*>())
        if (Trovato->property("Tag").toString() == Colonna)
            return Scrivi(Trovato, Testo);
    QFAIL(qPrintable(Colonna));
}

/// Saves the note, closes it and opens its file.
void TestStradaRubrica::Richiudi()
{
    ScriviNota(File, F->Nota);
    F->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    Aperture.ApriParcella(File, 0, {});
    F = Parcelle(1);
    QVERIFY(F && MostraAttiva(Singola<frmMain>()));
}

/// New client from a note, card, choice, estimate with his block, edit, and the note follows.
void TestStradaRubrica::ilNuovoClienteElaSuaVita()
{
    NuovaNota();
    Clic(Controllo(F, "cmdInsCliCon_0"));
    frmRubrica* Rubrica = Libro();
    QVERIFY(Rubrica);
    QCOMPARE(Rubrica->windowTitle(), u"Archivio: clienti"_s);
    frmScheda* Nuova = Scheda(Rubrica);
    QVERIFY(Nuova);
    Compila(Nuova, u"Nominativo"_s, u"D'Àvila Nicolò"_s);
    Compila(Nuova, u"Indirizzo"_s, u"Via Roma 1"_s);
    Compila(Nuova, u"Citta"_s, u"Forlì"_s);
    Premi(Qt::Key_F10);
    QTRY_VERIFY(!Rubrica->findChild<frmScheda*>());
    QCOMPARE(Testo("txtCliente"), QString());  // nothing is handed over unasked
    QVERIFY(MostraAttiva(*Rubrica));
    Premi(Qt::Key_Return);
    QTRY_VERIFY(!RubricaDi(1));
    QCOMPARE(F->Nota.IDCli, 1);
    QCOMPARE(Testo("txtCliente"), u"D'Àvila Nicolò"_s);
    QVERIFY(MostraAttiva(Singola<frmMain>()));
    QTRY_COMPARE(NomeFuoco(), u"txtCliente"_s);

    Stampa(StampaPreventivo);
    QCOMPARE(Blocco(), u"D'Àvila Nicolò\nVia Roma 1\nForlì"_s);
    QVERIFY(Composto().contains(u"D'Àvila Nicolò\nVia Roma 1\nForlì"_s));

    ClicScheda(F, SchedaBase);
    Clic(Controllo(F, "cmdModCliCon_0"));
    Rubrica = Libro();
    QVERIFY(Rubrica);
    frmScheda* Aperta = Scheda(Rubrica);
    QVERIFY(Aperta);
    Compila(Aperta, u"Nominativo"_s, u"D'Àvila Maria"_s);
    Compila(Aperta, u"Citta"_s, u"Cefalù"_s);
    Premi(Qt::Key_F10);
    QTRY_VERIFY(!Rubrica->findChild<frmScheda*>());
    QCOMPARE(Testo("txtCliente"), u"D'Àvila Maria"_s);
    QVERIFY(RubricaDi(1));
    Rubrica->close();
    Stampa(StampaPreventivo);
    QCOMPARE(Blocco(), u"D'Àvila Maria\nVia Roma 1\nCefalù"_s);
}

/// Deleted in the book, the note that is opened again keeps what it has saved, and says so. The row comes
/// back under its key.
void TestStradaRubrica::cancellatoERimesso()
{
    OpenDatabase(sessione::ArchivioCliCon)
        .Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Rossi Ada')"_s);
    NuovaNota();
    Clic(Controllo(F, "cmdVisCliCon_0"));
    QVERIFY(Libro());
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.IDCli, 1);
    ScriviNota(File, F->Nota);
    F->SetModificata(false);

    EseguiComando(u"clienti"_s, 0, {});
    frmRubrica* Rubrica = Libro(0);
    QVERIFY(Rubrica);
    Box->Attendi(u"Confermi la cancellazione del nominativo selezionato?"_s, vbYes, u"Domanda:"_s);
    Premi(Qt::Key_Delete);
    QCOMPARE(F->Nota.IDCli, 1);
    QVERIFY(ChiudiParcella(1));
    Box->Attendi(u"Il cliente associato alla parcella non è stato trovato!"_s, vbOK, u"Errore:"_s);
    Aperture.ApriParcella(File, 0, {});
    QCOMPARE(Testo("txtCliente"), u"Rossi Ada"_s);
    // A link that leads nowhere opens the book without a card.
    QVERIFY(MostraAttiva(Singola<frmMain>()));
    Clic(Controllo(F, "cmdModCliCon_0"));
    QVERIFY(Libro(1));
    QVERIFY(!RubricaDi(1)->findChild<frmScheda*>());
    RubricaDi(1)->close();
    Respiro();

    QVERIFY(MostraAttiva(*Rubrica));
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(ChiudiParcella(1));
    Aperture.ApriParcella(File, 0, {});
    QCOMPARE(Testo("txtCliente"), u"Rossi Ada"_s);
    QCOMPARE(F->findChild<QAction*>(u"segno_txtCliente"_s)->toolTip(),
             u"Collegato all'archivio: Rossi Ada\nPer scollegarlo c'è il menu del pulsante di modifica."_s);
}

/// A company is a company in the agreement by itself, with who signs for it.
void TestStradaRubrica::laSocietaNellIncarico()
{
    NuovaNota();
    Stampa(StampaContratto);
    QVERIFY(Controllo<QRadioButton>(F, "optContrTipo_0")->isChecked());
    Clic(Controllo(F, "cmdContrInsAnag_0"));
    frmRubrica* Rubrica = Libro();
    QVERIFY(Rubrica);
    frmScheda* Nuova = Scheda(Rubrica);
    QVERIFY(Nuova);
    Compila(Nuova, u"Nominativo"_s, u"Gamma \"Tre\" Spa"_s);
    Compila(Nuova, u"Citta"_s, u"Torino"_s);
    Compila(Nuova, u"RapprLegale"_s, u"Carla Bruni"_s);
    Premi(Qt::Key_F10);
    QTRY_VERIFY(!Rubrica->findChild<frmScheda*>());
    QVERIFY(MostraAttiva(*Rubrica));
    Rubrica->Comando(u"selez"_s);
    QTRY_VERIFY(!RubricaDi(1));
    QCOMPARE(F->Nota.IDCli, 1);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Gamma \"Tre\" Spa"_s);
    QVERIFY(Controllo<QRadioButton>(F, "optContrTipo_1")->isChecked());
    QCOMPARE(Testo("txtContrRappr"), u"Carla Bruni"_s);
    QVERIFY(Composto().contains(u"Gamma \"Tre\" Spa con sede in Torino in persona del legale "
                                "rappresentante, Sig.Carla Bruni"_s));
}

/// The name of the notes stays hidden, and goes with the one that is seen.
void TestStradaRubrica::laControparteConUnNomeSolo()
{
    NuovaNota();
    Clic(Controllo(F, "cmdInsCliCon_1"));
    frmRubrica* Rubrica = Libro();
    QVERIFY(Rubrica);
    QCOMPARE(Rubrica->windowTitle(), u"Archivio: controparti"_s);
    frmScheda* Nuova = Scheda(Rubrica);
    QVERIFY(Nuova);
    for (const auto* Casella : Nuova->findChildren<QLineEdit*>())
        QVERIFY(Casella->property("Tag").toString() != u"Controp");
    Compila(Nuova, u"Nominativo"_s, u"Bianchi Srl"_s);
    Premi(Qt::Key_F10);
    QTRY_VERIFY(!Rubrica->findChild<frmScheda*>());
    QVERIFY(MostraAttiva(*Rubrica));
    Premi(Qt::Key_Return);
    QCOMPARE(Testo("txtControp"), u"Bianchi Srl"_s);
    Richiudi();
    QCOMPARE(Testo("txtControp"), u"Bianchi Srl"_s);

    // Renamed while no note is open, it bears the new name at the next opening.
    QVERIFY(ChiudiParcella(1));
    ApriRubrica({.DataSource = sessione::ArchivioCliCon,
                 .RecordSource = u"controparti"_s,
                 .Parent = u"cli"_s,
                 .MenuStart = u"edit"_s,
                 .KeyStart = u"ID=1"_s});
    Rubrica = Libro(0);
    QVERIFY(Rubrica);
    frmScheda* Aperta = Scheda(Rubrica);
    QVERIFY(Aperta);
    Compila(Aperta, u"Nominativo"_s, u"Bianchi Spa"_s);
    Premi(Qt::Key_F10);
    QTRY_VERIFY(!Rubrica->findChild<frmScheda*>());
    Aperture.ApriParcella(File, 0, {});
    QCOMPARE(Testo("txtControp"), u"Bianchi Spa"_s);
}

void TestStradaRubrica::dalPannelloDiStampa()
{
    const Database Archivio = OpenDatabase(sessione::ArchivioCliCon);
    Archivio.Execute(u"INSERT INTO clienti (Nominativo, Citta) VALUES ('Rossi Ada','Lucca'), "
                     "('Verdi Anna','Pisa')"_s);
    Archivio.Execute(u"INSERT INTO controparti (Nominativo) VALUES ('Gamma Spa')"_s);
    NuovaNota();
    Stampa(StampaPreventivo);
    // An unlinked note is linked, a linked one prints another client and keeps its own.
    Clic(Controllo(F, "cmdContrSelAnag_0"));
    QVERIFY(Libro());
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.IDCli, 1);
    QCOMPARE(Blocco(), u"Rossi Ada\nLucca"_s);
    QVERIFY(MostraAttiva(Singola<frmMain>()));
    Clic(Controllo(F, "cmdContrSelAnag_0"));
    frmRubrica* Rubrica = Libro();
    QVERIFY(Rubrica);
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.IDCli, 1);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Rossi Ada"_s);
    QCOMPARE(Blocco(), u"Verdi Anna\nPisa"_s);
    QVERIFY(Composto().contains(u"Verdi Anna\nPisa"_s));
    QVERIFY(MostraAttiva(Singola<frmMain>()));
    Clic(Controllo(F, "cmdContrSelAnag_1"));
    QVERIFY(Libro());
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.IDCon, 1);
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtDatiStaControp")->toPlainText(), u"Gamma Spa"_s);
}

void TestStradaRubrica::laSchedaSenzaNome()
{
    OpenDatabase(sessione::ArchivioCliCon).Execute(u"INSERT INTO clienti (Citta) VALUES ('Lucca')"_s);
    NuovaNota();
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Rossi"_s);
    Clic(Controllo(F, "cmdVisCliCon_0"));
    QVERIFY(Libro());
    Box->Attendi(u"Il nominativo scelto non ha un nome!"_s, vbOK, u"Avvertenza:"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.IDCli, 0);
    QCOMPARE(Testo("txtCliente"), u"Rossi"_s);
    QVERIFY2(RubricaDi(1), "the book stays open for another choice");
}

void TestStradaRubrica::laNotaSiChiudeColSuoLibro()
{
    OpenDatabase(sessione::ArchivioCliCon)
        .Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Rossi Ada')"_s);
    NuovaNota();
    F->SetModificata(false);
    EseguiComando(u"clienti"_s, 0, {});
    Clic(Controllo(F, "cmdVisCliCon_0"));
    QVERIFY(Libro(0) && Libro(1));
    QVERIFY(ChiudiParcella(1));
    Respiro();
    QVERIFY(!RubricaDi(1));
    QVERIFY2(RubricaDi(0), "the desktop's own stays");
}

/// The place of a note that has gone belongs to another one: its client is never the one chosen for the
/// first.
void TestStradaRubrica::laNotaDiDopo()
{
    OpenDatabase(sessione::ArchivioCliCon)
        .Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Rossi Ada')"_s);
    NuovaNota();
    Clic(Controllo(F, "cmdModCliCon_0"));  // disabled: nothing is linked
    QVERIFY(!RubricaDi(1));
    Clic(Controllo(F, "cmdInsCliCon_0"));
    frmRubrica* Rubrica = Libro();
    QVERIFY(Rubrica);
    frmScheda* Nuova = Scheda(Rubrica);
    QVERIFY(Nuova);
    Compila(Nuova, u"Nominativo"_s, u"Verdi Anna"_s);
    // The note goes while the card is open; who wants to keep what he has typed stays on it.
    F->SetModificata(false);
    Box->Attendi(u"Salvare le modifiche alla scheda?"_s, vbCancel, u"Domanda:"_s);
    QVERIFY(ChiudiParcella(1));
    QPointer<frmRubrica> Rimasta = Rubrica;
    QVERIFY(Rimasta && Rimasta->isVisible());
    NuovaNota();
    QVERIFY(MostraAttiva(*Nuova));
    Premi(Qt::Key_F10);
    QTRY_VERIFY(!Rimasta || !Rimasta->findChild<frmScheda*>());
    if (Rimasta) {
        QVERIFY(MostraAttiva(*Rimasta));
        Rimasta->Comando(u"selez"_s);
    }
    Respiro();
    QCOMPARE(F->Nota.IDCli, 0);
    QCOMPARE(Testo("txtCliente"), QString());
    QVERIFY2(CercaCliente(2).has_value(), "what was typed is saved all the same");
    if (Rimasta)
        Rimasta->close();
}

void TestStradaRubrica::laNotaColPropriNominativoInVista()
{
    OpenDatabase(sessione::ArchivioCliCon)
        .Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Rossi Ada'), ('Verdi Anna'), ('Neri Ugo')"_s);
    NuovaNota();
    F->oRubrica_SelDone(u"cli"_s, {2, u"Verdi Anna"_s});
    Respiro();
    Controllo<QLineEdit>(F, "txtCliente")->setFocus();
    Premi(Qt::Key_F4);
    Respiro();
    frmRubrica* Rubrica = Libro();
    QVERIFY(Rubrica);
    QCOMPARE(Rubrica->RigheMostrate().Value(u"ID"_s).toInt(), 2);
    Rubrica->close();
    Respiro();
    QVERIFY(MostraAttiva(Singola<frmMain>()));
    Controllo<QLineEdit>(F, "txtCliente")->setFocus();
    Premi(Qt::Key_Return, Qt::ControlModifier);
    Respiro();
    QVERIFY(Libro());
    QVERIFY(Scheda(RubricaDi(1)));
    QCOMPARE(RubricaDi(1)->findChild<frmScheda*>()->Modalità(), u"edit"_s);
}

/// Another program has deleted a row and renamed the next while the book was open.
void TestStradaRubrica::dueProgrammi()
{
    OpenDatabase(sessione::ArchivioCliCon)
        .Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Rossi Ada'), ('Neri Ugo')"_s);
    NuovaNota();
    Clic(Controllo(F, "cmdVisCliCon_0"));
    frmRubrica* Rubrica = Libro();
    QVERIFY(Rubrica);
    QCOMPARE(Rubrica->RigheMostrate().RecordCount(), 2);
    AltroProgramma Altro(u"TestStradaRubrica"_s, u"scrive"_s, sessione::ArchivioCliCon);
    QVERIFY(Altro.Finito());
    Box->Attendi(u"Errore: "_s + DescrizioneErrore(errori::RecordEliminato) + u" (3167)"_s, vbOK,
                 u"Errore:"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.IDCli, 0);
    QVERIFY2(RubricaDi(1), "a row that has gone is told, and the book goes on");
    QCOMPARE(Rubrica->RigheMostrate().RecordCount(), 2);
    QCOMPARE(Rubrica->RigheMostrate().Value(u"ID"_s).toInt(), 2);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.IDCli, 2);
    QCOMPARE(Testo("txtCliente"), u"Neri Ugo e figli"_s);
}

/// The keys of the former archive are other people's in the new one.
void TestStradaRubrica::unAltroArchivio()
{
    const QString Vecchio = sessione::ArchivioCliCon;
    const QString Altro = NuovaCartella() + u"Altro.mdb"_s;
    QVERIFY(QFile::copy(Vecchio, Altro));
    OpenDatabase(Vecchio).Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Rossi Ada')"_s);
    OpenDatabase(Altro).Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Neri Ugo')"_s);
    NuovaNota();
    F->oRubrica_SelDone(u"cli"_s, {1, u"Rossi Ada"_s});
    EseguiComando(u"clienti"_s, 0, {});
    QVERIFY(MostraAttiva(Singola<frmMain>()));
    Clic(Controllo(F, "cmdModCliCon_0"));
    frmRubrica* Rubrica = Libro(1);
    QVERIFY(Rubrica && RubricaDi(0));
    const frmScheda* Aperta = Scheda(Rubrica);
    QVERIFY(Aperta);
    Compila(Aperta, u"Nominativo"_s, u"Rossi Eva"_s);
    // What was saved with the same archive closes nothing.
    Aperture.ImpostazioniCambiate();
    QVERIFY(RubricaDi(0) && RubricaDi(1));

    sessione::ArchivioCliCon = Altro;
    Box->Attendi(u"Salvare le modifiche alla scheda?"_s, vbCancel, u"Domanda:"_s);
    Aperture.ImpostazioniCambiate();
    QVERIFY2(!RubricaDi(0), "nothing was open in it");
    QCOMPARE(RubricaDi(1), Rubrica);
    // Who stays with the card saves it where it belongs, and no note follows.
    QVERIFY(MostraAttiva(*Rubrica->findChild<frmScheda*>()));
    Premi(Qt::Key_F10);
    QTRY_VERIFY(!Rubrica->findChild<frmScheda*>());
    QCOMPARE(OpenDatabase(Vecchio).OpenRecordset(u"clienti"_s).Value(u"Nominativo"_s).toString(),
             u"Rossi Eva"_s);
    QCOMPARE(Testo("txtCliente"), u"Rossi Ada"_s);
    QVERIFY(MostraAttiva(*Rubrica));
    F->Nota.IDCli = 0;
    Box->Attendi(
        u"Nelle impostazioni è stato scelto un altro archivio: riaprire la rubrica dalla parcella!"_s, vbOK,
        u"Avvertenza:"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.IDCli, 0);
    // Asked again, it shows the new one.
    QVERIFY(MostraAttiva(Singola<frmMain>()));
    Clic(Controllo(F, "cmdVisCliCon_0"));
    QCOMPARE(Libro(1)->RigheMostrate().Value(u"Nominativo"_s).toString(), u"Neri Ugo"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.IDCli, 1);
    QCOMPARE(Testo("txtCliente"), u"Neri Ugo"_s);
}

#include "TestStradaRubrica.moc"
