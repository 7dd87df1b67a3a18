// The toolbar over the preview: its buttons, paper of another size, an editor of the user's own.
#include "tavolo.h"

#include "core/posti.h"
#include "platform/kit/shell_qt.h"
#include "platform/preview/stampante.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QMenu>
#include <QPageSize>
#include <QPrinter>
#include <QScopeGuard>
#include <QToolBar>

using namespace Qt::StringLiterals;

class TestBarraStampa : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup()
    {
        if (Prima)
            InstallaShell(*std::exchange(Prima, std::nullopt));
        sessione::WP = u"-1"_s;
        T.reset();
    }
    void tastiESuggerimenti();
    void vociDelloZoom();
    void cartaDellaStampante();
    void editorConSpaziNelNome();
    void editorCheNonParte();

private:
    void Premuto(const char* Chiave) const { Clic(Controllo(F, Chiave)); }
    /// Names an editor in the settings and shows the print tab again, which enables its button.
    void ScegliEditor(const QString& Programma)
    {
        Prima = InstallaShell(ShellQt());
        sessione::WP = Programma;
        ClicScheda(F, SchedaBase);
        ClicScheda(F, SchedaDiStampa);
    }
    [[nodiscard]] QString txtPage() const { return Controllo<QLabel>(F, "txtPage")->text(); }

    std::optional<Shell> Prima;  ///< what a test found installed
    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    VistaStampa* vp = nullptr;
};
PROVA(TestBarraStampa);

void TestBarraStampa::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
    F->resize(845, 555);
    ClicScheda(F, SchedaDiStampa);
    vp = Controllo<VistaStampa>(F, "vp");
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaPrenotula);
    Respiro();
}

void TestBarraStampa::tastiESuggerimenti()
{
    const QStringList Attesi{u"up: Pagina precedente"_s,    u"down: Pagina successiva"_s,
                             u"zoom: Dimensioni preview"_s, u"print: Stampa parcella"_s,
                             u"pdf: Salva in PDF"_s,        u"invia: Invia per posta"_s,
                             u"word: Esporta in Word"_s,    u"wp: Avvia editor alternativo"_s,
                             u"help: Guida contestuale"_s};
    QStringList Visti;
    for (const QAction* Tasto : Controllo<QToolBar>(F, "barPrint")->actions())
        if (!Tasto->objectName().isEmpty())
            Visti += Tasto->objectName() + u": "_s + Tasto->toolTip();
    QCOMPARE(Visti, Attesi);
}

void TestBarraStampa::vociDelloZoom()
{
    QStringList Viste;
    for (const QAction* Voce : Controllo<QToolButton>(F, "barPrint_zoom")->defaultAction()->menu()->actions())
        Viste += Voce->objectName() + u": "_s + Voce->text().section(u'\t', 0, 0);  // without its keys
    QCOMPARE(Viste, (QStringList{u"z120: 120%"_s, u"z100: 100%"_s, u"z90: 90%"_s, u"z80: 80%"_s,
                                 u"z70: 70%"_s, u"z999: Adatta"_s, u": "_s, u"paginaintera: Pagina intera"_s,
                                 u"larghezzapagina: Larghezza pagina"_s}));
}

/// A printer with letter paper: the pages are laid out anew for it, and so is what is exported from then on.
void TestBarraStampa::cartaDellaStampante()
{
    const Stampanti Altre =
        InstallaStampanti({[] { return QStringList{u"Ufficio"_s}; }, [](const QPrinter&) { return true; }});
    const auto Rimetti = qScopeGuard([&] { InstallaStampanti(Altre); });
    QVERIFY(LeggiFile(FileDocumento(1)).contains("\\paperw11906\\paperh16838"));
    const QString Uscita = CartellaDiProva() + u"lettera.pdf"_s;
    T->Voce.ScegliStampante = [&](QPrinter& Scelta) {
        Scelta.setOutputFileName(Uscita);
        Scelta.setPageSize(QPageSize(QPageSize::Letter));
        return true;
    };
    Premuto("barPrint_print");
    QVERIFY(EsisteFile(Uscita));
    const QSizeF Mm = vp->Pagine().DimensioneMm();
    QVERIFY(qAbs(Mm.width() - 215.9) < 0.2 && qAbs(Mm.height() - 279.4) < 0.2);
    QCOMPARE(txtPage(), u"1/%1"_s.arg(vp->NumeroPagine()));
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaSoloContabile);
    Respiro();
    const QByteArray Rtf = LeggiFile(FileDocumento(1));
    QVERIFY(Rtf.contains("\\paperw12240\\paperh15840") || Rtf.contains("\\paperw12239\\paperh15838"));
}

/// Blanks and quotes in the names of program and file: the editor gets the one path, whole.
void TestBarraStampa::editorConSpaziNelNome()
{
    const QString Cartella = CartellaDiProva() + u"un \"bel\" editor/"_s;
    CreaCartella(Cartella);
    const QString Programma = Cartella + u"scrivi qui"_s;
    const QString Visto = Cartella + u"visto"_s;
    ScriviFile(
        Programma,
        "#!/bin/sh\nprintf '%s|' \"$#\" \"$1\" >\"$0.tmp\"\nmv \"$0.tmp\" \"$(dirname \"$0\")/visto\"\n");
    QVERIFY(QFile::setPermissions(Programma, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    InfoParcelle[1].Nome = u"causa \"Rossi\" & figli"_s;
    ScegliEditor(Programma);
    Premuto("barPrint_wp");
    QTRY_VERIFY(EsisteFile(Visto));
    QCOMPARE(QString::fromUtf8(LeggiFile(Visto)), u"1|"_s + PercorsoNativo(FileDocumento(1)) + u'|');
}

void TestBarraStampa::editorCheNonParte()
{
    ScegliEditor(u"/opt/manca/editor"_s);
    T->Voce.Attendi(u"Si è verificato un errore nell'apertura"_s, vbOK, u"Errore!"_s);
    Premuto("barPrint_wp");
}

#include "TestBarraStampa.moc"
