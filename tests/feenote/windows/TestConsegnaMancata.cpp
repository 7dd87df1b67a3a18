// An invoice that a save could not hand to the companion, and a document that could not be brought up to date
// for the editor.
#include "compagna/archivio.h"
#include "feenote/file/improntanota.h"
#include "stampa.h"
#include "supporto/guasti.h"

#include "platform/preview/stampante.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"

#include <QDir>
#include <QPageLayout>
#include <QPageSize>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QScopeGuard>
#include <QScopedValueRollback>

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString Trasferisco = u"E' stata salvata la parcella come fattura.\n"
                            u"Trasferisco i dati della fattura anche all'applicazione Praxivo?"_s;
const QString GuastoPV2 = u"Si è verificato un errore nel salvataggio dei dati fattura su PV"_s;

const QString NonParte = u"Si è verificato un errore nell'apertura"_s;

QString GiaAperto(const QString& File)
{
    return u"Attenzione, il documento %1 è già aperto da un'altra applicazione e non può essere aggiornato.\n"
           u"Chiudere il documento e riprovare."_s.arg(NomeFile(File));
}

/// What an office program leaves beside a document that is open in it.
QString SegnoDi(const QString& File)
{
    return CartellaFile(File) + u".~lock."_s + NomeFile(File) + u'#';
}

}  // namespace

class TestConsegnaMancata : public QObject, private BancoStampa
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup();
    void vaColSalvataggioSeguente_data();
    void vaColSalvataggioSeguente();
    void laChiusuraLaChiede_data();
    void laChiusuraLaChiede();
    void unAltroDocumentoNonLaConclude_data();
    void unAltroDocumentoNonLaConclude();
    void ilGuastoDiUnAltroDocumentoNonLaConclude();
    void lEditorNonApreIlDocumentoDiPrima();
    void lEditorTornaAlDocumentoAperto();
    void lEditorTornaAlDocumentoStampatoSuAltraCarta_data();
    void lEditorTornaAlDocumentoStampatoSuAltraCarta();
    void lEditorNonApreQuelloDiUnOmonima_data();
    void lEditorNonApreQuelloDiUnOmonima();
    void lEditorNonApreQuelloDiUnAltroProgramma();
    void lEditorNonApreQuelloDiUnAltraCartella();

private:
    /// As the user writes it in the print tab.
    void CambiaOggetto() const
    {
        auto* Casella = Controllo<QPlainTextEdit>(F, "txtDatiStaOgg");
        Casella->setFocus();
        Casella->selectAll();
        QTest::keyClicks(Casella, u"Altro oggetto"_s);
    }
    /// A saved note of a matter, whose companion's archive stands. @return the archive's bytes
    QByteArray SalvaDellaPratica();
    /// The same with invoice 8 saved behind it, which a damaged archive refuses. @return the sound archive's
    /// bytes, empty when the note was not saved
    QByteArray SalvaSenzaConsegna();
    [[nodiscard]] static int Consegnate(const QString& Numero);
    /// Saves in place; whether the user was asked for the transfer.
    bool SalvaChiesto(int Risposta);
};
PROVA(TestConsegnaMancata);

void TestConsegnaMancata::cleanup()
{
    sessione::RichiestaPV2 = {};
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"PreviewParcPath"_s, {});
    Sgombra();
}

bool TestConsegnaMancata::SalvaChiesto(int Risposta)
{
    T->Voce.Sparecchia();
    T->Voce.Attendi(Trasferisco, Risposta);
    const bool Salvata = F->SalvaSulPosto();
    const bool Chiesto = !T->Voce.Mostrati().isEmpty();
    return Salvata && Chiesto;
}

QByteArray TestConsegnaMancata::SalvaSenzaConsegna()
{
    const QByteArray Sano = SalvaDellaPratica();
    ::Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"8"_s);
    ScriviFile(sessione::ArchivioPrat, "rumore");
    T->Voce.Sparecchia();
    T->Voce.Attendi(Trasferisco, vbYes);
    T->Voce.Attendi(GuastoPV2, vbOK, u"Errore!"_s);
    return F->SalvaSulPosto() ? Sano : QByteArray();
}

QByteArray TestConsegnaMancata::SalvaDellaPratica()
{
    sessione::RichiestaPV2.ID = F->Nota.NsRif = u"P12"_s;
    sessione::ArchivioPrat = T->Ufficio.File(u"pratiche.mdb"_s);
    CreaArchivioPratiche(sessione::ArchivioPrat);
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"PreviewParcPath"_s, T->Ufficio.File(u"anteprima.htm"_s));
    Documento(StampaFatturaSintetica);
    T->Voce.AttendiSalva(sessione::ParcellePath + u"P12-uno.mdb"_s);
    T->Voce.Tollera();
    return F->SalvaParcella(false) ? LeggiFile(sessione::ArchivioPrat) : QByteArray();
}

int TestConsegnaMancata::Consegnate(const QString& Numero)
{
    return OpenDatabase(sessione::ArchivioPrat, true)
        .OpenRecordset(u"SELECT COUNT(*) AS N FROM Fatture WHERE Rif='P12' AND NumF='%1'"_s.arg(Numero))
        .Value(u"N"_s)
        .toInt();
}

void TestConsegnaMancata::vaColSalvataggioSeguente_data()
{
    QTest::addColumn<bool>("ConUnPasso");

    QTest::newRow("at once") << false;
    QTest::newRow("with a step back and again in between") << true;
}

/// The note is saved and unmarked, though the companion's archive has no row of it.
void TestConsegnaMancata::vaColSalvataggioSeguente()
{
    QFETCH(bool, ConUnPasso);
    const QByteArray Sano = SalvaSenzaConsegna();
    QVERIFY(!Sano.isEmpty());
    QCOMPARE(T->Voce.Mostrati().size(), 2);
    QVERIFY(!F->Nota.Modificata);

    ScriviFile(sessione::ArchivioPrat, Sano);
    if (ConUnPasso) {
        Clic(Controllo(F, "cmdAnnulla"));
        Clic(Controllo(F, "cmdRipeti"));
        Respiro();
        QVERIFY(!F->Nota.Modificata);
    }
    QVERIFY(SalvaChiesto(vbYes));
    QCOMPARE(Consegnate(u"8"_s), 1);
    // What has been handed over, and what the user has declined, is not asked again.
    T->Voce.Sparecchia();
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(T->Voce.Mostrati().size(), 0);
    ::Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"9"_s);
    QVERIFY(SalvaChiesto(vbNo));
    T->Voce.Sparecchia();
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(T->Voce.Mostrati().size(), 0);
}

void TestConsegnaMancata::laChiusuraLaChiede_data()
{
    QTest::addColumn<int>("Prima");  // what the question of unsaved changes is answered with, 0 without any

    QTest::newRow("the save of the close") << int(vbYes);
    QTest::newRow("a save before") << 0;
    QTest::newRow("a save before, and changes that are left") << int(vbNo);
}

/// Once the window is gone, nothing tells that the invoice waits.
void TestConsegnaMancata::laChiusuraLaChiede()
{
    QFETCH(int, Prima);
    const QByteArray Sano = SalvaDellaPratica();
    QVERIFY(!Sano.isEmpty());
    const QString Salvare = u"p12-uno\nVuoi salvare la parcella prima di chiudere?"_s;
    const QString NonConsegnata =
        u"p12-uno\nLa fattura non è stata consegnata a Praxivo.\nChiudere ugualmente?"_s;
    ::Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"8"_s);
    ScriviFile(sessione::ArchivioPrat, "rumore");
    T->Voce.Sparecchia();
    if (Prima == vbYes) {
        T->Voce.Attendi(Salvare, vbYes);
        T->Voce.AttendiSalva(sessione::ParcellePath + u"P12-uno.mdb"_s);
        T->Voce.Tollera();
    }
    T->Voce.Attendi(Trasferisco, vbYes);
    T->Voce.Attendi(GuastoPV2, vbOK, u"Errore!"_s);
    if (Prima != vbYes)
        QVERIFY(F->SalvaSulPosto());
    if (Prima == vbNo) {
        ::Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"9"_s);
        T->Voce.Attendi(Salvare, vbNo);
    }
    T->Voce.Attendi(NonConsegnata, vbNo, u"Domanda:"_s);
    QVERIFY(!ChiudiParcella(1));
    QCOMPARE(T->Voce.UltimoTesto(), NonConsegnata);
    QVERIFY(F->isVisible() && !InfoParcelle[1].Libera);

    if (Prima == vbNo)
        return;
    // Who stayed saves once more, and is asked nothing then.
    ScriviFile(sessione::ArchivioPrat, Sano);
    QVERIFY(SalvaChiesto(vbYes));
    QCOMPARE(Consegnate(u"8"_s), 1);
    T->Voce.Sparecchia();
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(T->Voce.Mostrati().size(), 0);
}

void TestConsegnaMancata::unAltroDocumentoNonLaConclude_data()
{
    QTest::addColumn<int>("Tipo");

    QTest::newRow("a pro-forma note") << int(StampaPrenotula);
    QTest::newRow("figures alone") << int(StampaSoloContabile);
}

/// The invoice waits until it is an invoice that is saved.
void TestConsegnaMancata::unAltroDocumentoNonLaConclude()
{
    QFETCH(int, Tipo);
    const QByteArray Sano = SalvaSenzaConsegna();
    QVERIFY(!Sano.isEmpty());
    ScriviFile(sessione::ArchivioPrat, Sano);

    Documento(Tipo);
    T->Voce.Sparecchia();
    // Nothing has changed, and the save of this document would hand nothing over.
    const auto* Riga = Controllo<QLabel>(F, "lblSalvata");
    const ImprontaNota Salvata = ImprontaDi(F->Nota.Percorso);
    constexpr int UnAttimo = 30;
    QTest::qWait(UnAttimo);
    QVERIFY(F->SalvaSulPosto());
    QVERIFY2(ImprontaDi(F->Nota.Percorso) == Salvata, "an unchanged note was written");
    QCOMPARE(Riga->text(), u"Già salvata; scegliere la fattura per consegnarla"_s);
    QCOMPARE(T->Voce.Mostrati().size(), 0);
    T->Voce.Attendi(
        u"p12-uno\nLa fattura non è stata consegnata a Praxivo: per consegnarla occorre sceglierla "
        u"come documento e salvare di nuovo la parcella.\nChiudere ugualmente?"_s,
        vbNo, u"Domanda:"_s);
    QVERIFY(!ChiudiParcella(1));
    QCOMPARE(T->Voce.Mostrati().size(), 1);

    Documento(StampaFatturaSintetica);
    QVERIFY(SalvaChiesto(vbYes));
    QCOMPARE(Consegnate(u"8"_s), 1);
    T->Voce.Sparecchia();
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(T->Voce.Mostrati().size(), 0);
}

/// A document that is no invoice and cannot be composed has nothing to hand over, and the invoice waits on.
void TestConsegnaMancata::ilGuastoDiUnAltroDocumentoNonLaConclude()
{
    const QByteArray Sano = SalvaSenzaConsegna();
    QVERIFY(!Sano.isEmpty());
    ScriviFile(sessione::ArchivioPrat, Sano);

    // The contract words a linked client, whose archive cannot be read meanwhile.
    const QString Archivio = NuovaCartella() + u"DatiStudio.mdb"_s;
    ScriviFile(Archivio, "rumore");
    std::optional<QScopedValueRollback<QString>> Chiuso(std::in_place, sessione::ArchivioCliCon, Archivio);
    F->Nota.IDCli = 1;
    T->Voce.Sparecchia();
    T->Voce.Tollera();
    Documento(StampaContratto);
    CambiaOggetto();
    T->Voce.Sparecchia();
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(T->Voce.Mostrati().size(), 1);
    const QString Detto = T->Voce.UltimoTesto();
    QVERIFY2(Detto.contains(Archivio), qPrintable(Detto));
    QVERIFY2(!Detto.contains(u"consegnata"), qPrintable(Detto));
    T->Voce.Sparecchia();
    T->Voce.Attendi(
        u"p12-uno\nLa fattura non è stata consegnata a Praxivo: per consegnarla occorre sceglierla "
        u"come documento e salvare di nuovo la parcella.\nChiudere ugualmente?"_s,
        vbNo, u"Domanda:"_s);
    QVERIFY(!ChiudiParcella(1));
    QCOMPARE(T->Voce.Mostrati().size(), 1);

    Chiuso.reset();
    F->Nota.IDCli = 0;
    Documento(StampaFatturaSintetica);
    QVERIFY(SalvaChiesto(vbYes));
    QCOMPARE(Consegnate(u"8"_s), 1);
}

void TestConsegnaMancata::lEditorNonApreIlDocumentoDiPrima()
{
    const QScopedValueRollback Rimetti(sessione::WP, u"/opt/manca/editor"_s);
    Documento(StampaPrenotula);
    ClicScheda(F, SchedaBase);
    ClicScheda(F, SchedaDiStampa);
    QVERIFY(!Esportato().isEmpty());
    T->Voce.Tollera();
    {
        const LimiteDiScrittura Pieno{16};
        CambiaOggetto();
        Premuto("barPrint_wp");
    }
    QCOMPARE(T->Voce.Mostrati().size(), 1);
    QVERIFY2(T->Voce.UltimoTesto() != NonParte, "the editor was started on the former document");
    T->Voce.Sparecchia();
    Premuto("barPrint_wp");
    QCOMPARE(T->Voce.UltimoTesto(), NonParte);
    QVERIFY(Esportato().contains("Altro oggetto"));
}

/// What is open there, and what was written there, is that document still.
void TestConsegnaMancata::lEditorTornaAlDocumentoAperto()
{
    const QScopedValueRollback Rimetti(sessione::WP, u"/opt/manca/editor"_s);
    Documento(StampaPrenotula);
    ClicScheda(F, SchedaBase);
    ClicScheda(F, SchedaDiStampa);
    const QString File = FileDocumento(1);
    QVERIFY(EsisteFile(File));
    ScriviFile(File, "scritto a mano");
    const QString Blocco = SegnoDi(File);
    for (const bool Aperto : {true, false}) {
        if (Aperto)
            ScriviFile(Blocco, "neri");
        else
            QFile::remove(Blocco);
        T->Voce.Attendi(NonParte, vbOK, u"Errore!"_s);
        Premuto("barPrint_wp");
        QCOMPARE(Esportato(), QByteArray("scritto a mano"));
    }
    // The same page composed once more is the same document.
    ScriviFile(Blocco, "neri");
    ClicScheda(F, SchedaBase);
    ClicScheda(F, SchedaDiStampa);
    T->Voce.Attendi(NonParte, vbOK, u"Errore!"_s);
    Premuto("barPrint_wp");
    QCOMPARE(Esportato(), QByteArray("scritto a mano"));
    // Another composition does not get there while it is open.
    CambiaOggetto();
    T->Voce.Attendi(GiaAperto(File), vbOK, u"Errore:"_s);
    Premuto("barPrint_wp");
    QCOMPARE(Esportato(), QByteArray("scritto a mano"));
}

void TestConsegnaMancata::lEditorTornaAlDocumentoStampatoSuAltraCarta_data()
{
    QTest::addColumn<int>("Formato");
    QTest::addColumn<bool>("Girata");
    QTest::addColumn<bool>("UnaPagina");

    QTest::newRow("the same paper") << int(QPageSize::A4) << false << false;
    QTest::newRow("another paper") << int(QPageSize::Letter) << false << false;
    QTest::newRow("turned") << int(QPageSize::A4) << true << false;
    QTest::newRow("on one page, which is tighter") << int(QPageSize::A5) << false << true;
}

/// What was written in the editor stays there; a file that nobody has written in gets the paper in use once
/// it is closed.
void TestConsegnaMancata::lEditorTornaAlDocumentoStampatoSuAltraCarta()
{
    QFETCH(int, Formato);
    QFETCH(bool, Girata);
    QFETCH(bool, UnaPagina);
    const QScopedValueRollback Rimetti(sessione::WP, u"/opt/manca/editor"_s);
    const Stampanti Altre =
        InstallaStampanti({[] { return QStringList{u"Ufficio"_s}; }, [](const QPrinter&) { return true; }});
    const auto RimettiStampanti = qScopeGuard([&] { InstallaStampanti(Altre); });
    if (UnaPagina) {
        constexpr int Righe = 18;  // more than one page of the smaller paper
        Riempi(Righe);
        F->Nota.UnaPagina = true;
    }
    Documento(StampaPrenotula);
    const QString File = FileDocumento(1);
    const QByteArray Prima = Esportato();
    QVERIFY(!Prima.isEmpty());
    T->Voce.ScegliStampante = [&](QPrinter& Scelta) {
        Scelta.setOutputFileName(T->Ufficio.File(u"stampato.pdf"_s));
        Scelta.setPageSize(QPageSize(QPageSize::PageSizeId(Formato)));
        Scelta.setPageOrientation(Girata ? QPageLayout::Landscape : QPageLayout::Portrait);
        return true;
    };
    Premuto("barPrint_print");
    QCOMPARE(vp->CartaInUso() == Carta(), Formato == QPageSize::A4 && !Girata);

    ScriviFile(File, "{\\rtf1 scritto a mano}");
    T->Voce.Sparecchia();
    T->Voce.Attendi(NonParte, vbOK, u"Errore!"_s);
    Premuto("barPrint_wp");
    QCOMPARE(Esportato(), QByteArray("{\\rtf1 scritto a mano}"));
    // Open there as it was written, it cannot get the other paper, and is the same document.
    ScriviFile(File, Prima);
    const QString Blocco = SegnoDi(File);
    ScriviFile(Blocco, "neri");
    T->Voce.Attendi(NonParte, vbOK, u"Errore!"_s);
    Premuto("barPrint_wp");
    QCOMPARE(Esportato(), Prima);
    QVERIFY(QFile::remove(Blocco));
    T->Voce.Attendi(NonParte, vbOK, u"Errore!"_s);
    Premuto("barPrint_wp");
    QCOMPARE(Esportato() == Prima, vp->CartaInUso() == Carta());
    // Another document is another one on any paper.
    ScriviFile(File, "{\\rtf1 scritto a mano}");
    CambiaOggetto();
    T->Voce.Attendi(NonParte, vbOK, u"Errore!"_s);
    Premuto("barPrint_wp");
    QVERIFY(Esportato().contains("Altro oggetto"));
}

void TestConsegnaMancata::lEditorNonApreQuelloDiUnOmonima_data()
{
    QTest::addColumn<bool>("Salvato");
    QTest::addColumn<bool>("Aperto");

    QTest::newRow("as it was composed") << false << false;
    QTest::newRow("saved in the editor since") << true << false;
    QTest::newRow("saved in the editor, and open there") << true << true;
}

/// Two notes of one name, in two folders, have one document between them.
void TestConsegnaMancata::lEditorNonApreQuelloDiUnOmonima()
{
    QFETCH(bool, Salvato);
    QFETCH(bool, Aperto);
    const QScopedValueRollback Rimetti(sessione::WP, u"/opt/manca/editor"_s);
    std::array<frmParcelle*, 2> Note{};
    for (const int i : {0, 1}) {
        const QString Cartella = T->Ufficio.File(u"202%1/"_s.arg(5 + i));
        QDir().mkpath(Cartella);
        Parcella Nota = NotaPiena();
        Nota.txtOggetto.Testo = Nota.txtDatiStaOgg.Testo = i == 0 ? u"Lite Bianchi"_s : u"Lite Verdi"_s;
        ScegliTipoStampa(Nota, StampaPrenotula);
        ScriviNota(Cartella + u"rossi.mdb"_s, Nota);
        Note[size_t(i)] = T->Apri(Cartella + u"rossi.mdb"_s, 2 + i);
        QVERIFY(Note[size_t(i)]);
        ClicScheda(Note[size_t(i)], SchedaDiStampa);
    }
    const QString File = FileDocumento(2);
    QCOMPARE(FileDocumento(3), File);
    QVERIFY(LeggiFile(File).contains("Lite Verdi"));
    if (Salvato)
        ScriviFile(File, "della Verdi, a mano");
    if (Aperto)
        ScriviFile(SegnoDi(File), "neri");

    QVERIFY(MostraAttiva(*Note[0]));
    if (Aperto)
        T->Voce.Attendi(GiaAperto(File), vbOK, u"Errore:"_s);
    else
        T->Voce.Attendi(NonParte, vbOK, u"Errore!"_s);
    Clic(Controllo(Note[0], "barPrint_wp"));
    if (Aperto)
        QCOMPARE(LeggiFile(File), QByteArray("della Verdi, a mano"));
    else
        QVERIFY2(LeggiFile(File).contains("Lite Bianchi"), "the other note's document");
}

/// Which is told by how it begins: an editor writes in its own way.
void TestConsegnaMancata::lEditorNonApreQuelloDiUnAltroProgramma()
{
    const QScopedValueRollback Rimetti(sessione::WP, u"/opt/manca/editor"_s);
    Documento(StampaPrenotula);
    const QByteArray Altrui = Esportato();
    QVERIFY(!Altrui.isEmpty() && !Altrui.contains("Altro oggetto"));
    CambiaOggetto();
    T->Voce.Attendi(NonParte, vbOK, u"Errore!"_s);
    Premuto("barPrint_wp");
    QVERIFY(Esportato().contains("Altro oggetto"));
    ScriviFile(FileDocumento(1), Altrui);
    T->Voce.Attendi(NonParte, vbOK, u"Errore!"_s);
    Premuto("barPrint_wp");
    QVERIFY(Esportato().contains("Altro oggetto"));
}

/// The settings have another user folder now, where a document of this name has lain for long.
void TestConsegnaMancata::lEditorNonApreQuelloDiUnAltraCartella()
{
    const QScopedValueRollback Rimetti(sessione::WP, u"/opt/manca/editor"_s);
    Documento(StampaPrenotula);
    QVERIFY(!Esportato().isEmpty());
    const QScopedValueRollback Altrove(sessione::UserFolder, T->Ufficio.File(u"altra/"_s));
    QDir().mkpath(sessione::UserFolder + u"doc"_s);
    ScriviFile(FileDocumento(1), "di un altro cliente");
    T->Voce.Attendi(NonParte, vbOK, u"Errore!"_s);
    Premuto("barPrint_wp");
    QVERIFY2(Esportato().contains("Sfratto"), "the document that was there");
}

#include "TestConsegnaMancata.moc"
