// The office's own clauses: the button that makes and opens them, and the page that follows them.
#include "stampa.h"

#include "core/aperture.h"
#include "platform/base/numerierrore.h"
#include "platform/document/letture.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

class TestClausoleProprie : public QObject, private BancoStampa
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void soloDoveCiSono();
    void copiaEApre_data();
    void copiaEApre();
    void apreQuelleDelloStudio();
    void nonSiPossonoFare_data();
    void nonSiPossonoFare();
    void tornandoSiVedono();
    void guasteEsceSoloChiVuole();

private:
    [[nodiscard]] static QString Propria(const QString& Nome)
    {
        return sessione::UserFolder + u"clausole/"_s + Nome;
    }
    [[nodiscard]] bool Stampato(const QString& Testo) const
    {
        for (const BloccoDocumento& Blocco : vp->Foglio().Contenuto().Blocchi)
            if (const auto* Riga = std::get_if<Paragrafo>(&Blocco); Riga && Riga->Testo().contains(Testo))
                return true;
        return false;
    }

    QStringList Aperti;
    int EsitoApertura = 0;
    Shell Prima;
};
PROVA(TestClausoleProprie);

namespace {

bool VieneDavanti(QWidget& Finestra)
{
    Finestra.show();
    Finestra.activateWindow();
    return QTest::qWaitForWindowActive(&Finestra);
}

}  // namespace

void TestClausoleProprie::init()
{
    Prepara();
    Aperti.clear();
    EsitoApertura = 0;
    Shell Nuova;
    Nuova.ApriFile = [this](const QString& File) {
        Aperti << File;
        return EsitoApertura;
    };
    Prima = InstallaShell(std::move(Nuova));
}

void TestClausoleProprie::cleanup()
{
    InstallaShell(std::move(Prima));
    Sgombra();
}

void TestClausoleProprie::soloDoveCiSono()
{
    for (int Tipo = StampaPrenotula; Tipo <= StampaSoloContabile; ++Tipo) {
        Documento(Tipo);
        QCOMPARE(Controllo(F, "cmdClausole")->isVisible(),
                 Tipo == StampaContratto || Tipo == StampaInformativa);
    }
}

void TestClausoleProprie::copiaEApre_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<int>("Cliente");
    QTest::addColumn<QString>("Nome");
    QTest::newRow("contratto, persona") << int(StampaContratto) << 0 << u"ContrattoPersonaFisica.rtf"_s;
    QTest::newRow("contratto, società") << int(StampaContratto) << 1 << u"ContrattoPersonaGiuridica.rtf"_s;
    QTest::newRow("informativa, persona")
        << int(StampaInformativa) << 0 << u"ResaInformazionePersonaFisica.rtf"_s;
    QTest::newRow("informativa, società")
        << int(StampaInformativa) << 1 << u"ResaInformazionePersonaGiuridica.rtf"_s;
}

void TestClausoleProprie::copiaEApre()
{
    QFETCH(int, Tipo);
    QFETCH(int, Cliente);
    QFETCH(QString, Nome);
    Documento(Tipo);
    Premuto(Cliente == 1 ? "optContrTipo_1" : "optContrTipo_0");
    const bool Modificata = F->Nota.Modificata;
    Premuto("cmdClausole");
    QCOMPARE(Aperti, QStringList{Propria(Nome)});
    QCOMPARE(LeggiFile(Propria(Nome)), LeggiFile(ProgrammaDiProva() + u"doc/"_s + Nome));
    QCOMPARE(F->Nota.Modificata, Modificata);  // the note does not hold them
}

void TestClausoleProprie::apreQuelleDelloStudio()
{
    Documento(StampaContratto);
    CreaCartella(sessione::UserFolder + u"clausole"_s);
    const QString Scritta = Propria(u"CONTRATTOpersonafisica.RTF"_s);
    ScriviFile(Scritta, "{\\rtf1 dello studio}");
    Premuto("cmdClausole");
    QCOMPARE(Aperti, QStringList{Scritta});
    QCOMPARE(LeggiFile(Scritta), "{\\rtf1 dello studio}");
}

void TestClausoleProprie::nonSiPossonoFare_data()
{
    QTest::addColumn<QString>("Che");
    QTest::addColumn<int>("Numero");
    QTest::newRow("nothing is delivered") << u"manca"_s << errori::FileMancante;
    QTest::newRow("the folder cannot be made") << u"cartella"_s << errori::Accesso;
    QTest::newRow("no program opens them") << u"programma"_s << errori::NessunProgramma;
}

void TestClausoleProprie::nonSiPossonoFare()
{
    QFETCH(QString, Che);
    QFETCH(int, Numero);
    Documento(StampaContratto);
    QString Frase = DescrizioneErrore(Numero);
    if (Che == u"manca") {
        sessione::PercorsoProg = NuovaCartella();
        Frase += u": "_s + sessione::PercorsoProg + u"doc/ContrattoPersonaFisica.rtf"_s;
    } else if (Che == u"cartella") {
        ScriviFile(sessione::UserFolder + u"clausole"_s, "a file of this name");
    } else {
        EsitoApertura = errori::NessunProgramma;
    }
    T->Voce.Attendi(u"Errore: %1 (%2)"_s.arg(Frase).arg(Numero), vbOK, u"Errore:"_s);
    Premuto("cmdClausole");
    QVERIFY(Controllo(F, "cmdClausole")->isEnabled());
}

void TestClausoleProprie::tornandoSiVedono()
{
    Documento(StampaContratto);
    QVERIFY(Stampato(u"Art. 3"_s));
    Premuto("cmdClausole");
    Segna();
    // The office writes in its word processor and comes back.
    ScriviFile(Propria(u"ContrattoPersonaFisica.rtf"_s), "{\\rtf1 Clausola dello studio\\par}");
    QWidget Altra;
    QVERIFY(VieneDavanti(Altra));
    QVERIFY(VieneDavanti(*F));
    QTRY_VERIFY(Composto());
    QVERIFY(Stampato(u"Clausola dello studio"_s));
    QVERIFY(!Stampato(u"Art. 3"_s));
    // Who comes back without having written finds the page as he left it.
    Segna();
    QVERIFY(VieneDavanti(Altra));
    QVERIFY(VieneDavanti(*F));
    Respiro();
    QVERIFY(!Composto());
    // Another document does not look at them.
    Documento(StampaPrenotula);
    Segna();
    ScriviFile(Propria(u"ContrattoPersonaFisica.rtf"_s), "{\\rtf1 Terza\\par}");
    QVERIFY(VieneDavanti(Altra));
    QVERIFY(VieneDavanti(*F));
    Respiro();
    QVERIFY(!Composto());
}

/// Told once, then by the margin; what would let the document out asks, and goes on only where it is wanted.
void TestClausoleProprie::guasteEsceSoloChiVuole()
{
    sessione::WP = u"editor"_s;
    Documento(StampaContratto);
    Premuto("cmdClausole");
    Aperti.clear();
    const QString File = Propria(u"ContrattoPersonaFisica.rtf"_s);
    const QByteArray Sane = LeggiFile(File);
    ScriviFile(File, Sane.first(Sane.size() / 2));
    Registratore& Voce = T->Voce;
    Voce.Tollera();
    const QString Frase =
        u"le clausole di ContrattoPersonaFisica.rtf sono state stampate solo in parte: il file è troncato."_s;
    const auto UnaSola = [&](const QString& Attesa) {
        const bool Una = Voce.Mostrati().size() == 1 && Voce.UltimoTesto() == Attesa;
        Voce.Sparecchia();
        return Una;
    };
    const auto TornaAllaStampa = [&] {
        ClicScheda(F, SchedaBase);
        ClicScheda(F, SchedaDiStampa);
    };
    TornaAllaStampa();
    QVERIFY2(UnaSola(u"Attenzione, "_s + Frase), "the page");
    // The page ends behind what the file gives, and says so as long as that lasts.
    QVERIFY(Stampato(u"Contratto di affidamento"_s));
    QCOMPARE(vp->Avviso(), u"Le clausole di ContrattoPersonaFisica.rtf sono state stampate solo in parte: il "
                           u"file è troncato"_s);
    TornaAllaStampa();
    QCOMPARE(Voce.Mostrati().size(), 0);
    QVERIFY(F->SalvaSulPosto() || F->Nota.Percorso.isEmpty());
    Voce.Sparecchia();
    // No answer is laid out for the dialogs of printer and file: one that came up would fail the test.
    const QString Domanda = u"Attenzione, "_s + Frase + u"\nFare uscire lo stesso il documento?"_s;
    for (const char* Tasto :
         {"barPrint_print", "barPrint_pdf", "barPrint_invia", "barPrint_word", "barPrint_wp"}) {
        Premuto(Tasto);
        QVERIFY2(UnaSola(Domanda), Tasto);
    }
    QCOMPARE(Aperti, QStringList());
    // What was written into the document by hand stays, whatever looks at it again.
    const QByteArray AMano = Esportato().replace("Contratto", "CONTRATTO");
    QVERIFY(AMano != Esportato());
    ScriviFile(FileDocumento(1), AMano);
    for (const char* Tasto : {"barPrint_print", "barPrint_wp"}) {
        Premuto(Tasto);
        QVERIFY2(UnaSola(Domanda), Tasto);
    }
    QCOMPARE(Esportato(), AMano);
    // Who wants it all the same comes to the dialog, left here by its cross.
    Voce.Attendi(Domanda, vbYes);
    Voce.AttendiSalva({});
    Premuto("barPrint_pdf");
    Voce.Sparecchia();
    // Mended under the date that it had: looked at when the document is to go out.
    const QDateTime Quando = DataFile(File);
    ScriviFile(File, Sane);
    ImpostaDataFile(File, Quando);
    Voce.AttendiSalva({});
    Premuto("barPrint_pdf");
    QCOMPARE(Voce.Mostrati().size(), 0);
    Voce.Sparecchia();
    // Damaged since the page was composed: nothing goes out unasked either.
    ScriviFile(File, Sane.first(Sane.size() / 2));
    Premuto("barPrint_word");
    QCOMPARE(Voce.UltimoTesto(), Domanda);
    Voce.Sparecchia();
    // Another document goes out unasked, and this one once its clauses are whole.
    Documento(StampaPrenotula);
    QCOMPARE(vp->Avviso(), QString());
    ScriviFile(File, Sane);
    Documento(StampaContratto);
    QVERIFY(Stampato(u"Art. 3"_s));
    QCOMPARE(vp->Avviso(), QString());
    QCOMPARE(Voce.Mostrati().size(), 0);
}

#include "TestClausoleProprie.moc"
