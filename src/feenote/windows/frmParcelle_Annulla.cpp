// Steps back and again: two buttons beside the banner, and their keys.
#include "feenote/windows/frmParcelle.h"

#include "feenote/modDatiStampa.h"
#include "feenote/windows/SchedaOnorari.h"
#include "feenote/windows/SchedaSpese.h"
#include "feenote/windows/ui_frmParcelle.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

void MostraPasso(QToolButton* Bottone, const QString& Nome, const QString& Atto, const QString& Senza,
                 const QString& Tasti)
{
    Bottone->setEnabled(!Nome.isEmpty());
    Bottone->setToolTip((Nome.isEmpty() ? Senza : Atto + u": "_s + Nome) + u" ("_s + Tasti + u')');
}

/// What is looked for is no part of the note.
bool DiRicerca(const QLineEdit* Campo)
{
    return Campo->objectName().startsWith(u"txtCerca");
}

/// A box that was left goes back with the note's steps, not letter by letter.
void DimenticaLettere(QWidget* Lasciato)
{
    if (auto* Testo = qobject_cast<QPlainTextEdit*>(Lasciato))
        Testo->document()->clearUndoRedoStacks();
    auto* Campo = qobject_cast<QLineEdit*>(Lasciato);
    if (!Campo || DiRicerca(Campo) || (!Campo->isUndoAvailable() && !Campo->isRedoAvailable()))
        return;
    const QSignalBlocker Muto(Campo);
    const bool InModifica = Campo->isModified();
    const int Cursore = Campo->cursorPosition();
    Campo->setText(Campo->text());
    Campo->setCursorPosition(Cursore);
    Campo->setModified(InModifica);
}

}  // namespace

void frmParcelle::CollegaAnnulla()
{
    ui->cmdAnnulla->setIcon(aspetto::Icona(u"annulla"_s));
    ui->cmdRipeti->setIcon(aspetto::Icona(u"ripeti"_s));
    ui->cmdAnnulla->setAccessibleName(u"Annulla"_s);
    ui->cmdRipeti->setAccessibleName(u"Ripeti"_s);
    Collega(ui->cmdAnnulla, &QToolButton::clicked, this, [this] { Passo(false); });
    Collega(ui->cmdRipeti, &QToolButton::clicked, this, [this] { Passo(true); });
    const QList<QKeySequence> Indietro{QKeySequence(Qt::CTRL | Qt::Key_Z)};
    const QList<QKeySequence> Avanti{QKeySequence(Qt::CTRL | Qt::Key_Y),
                                     QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)};
    for (const auto& [Tasti, InAvanti] : {std::pair(Indietro, false), std::pair(Avanti, true)}) {
        auto* Scorciatoia = new QShortcut(this);
        Scorciatoia->setKeys(Tasti);
        Scorciatoia->setContext(Qt::WidgetWithChildrenShortcut);
        Collega(Scorciatoia, &QShortcut::activated, this, [this, InAvanti = InAvanti] { Passo(InAvanti); });
    }
    for (QLineEdit* Campo : findChildren<QLineEdit*>())
        if (!DiRicerca(Campo))
            Campo->installEventFilter(this);
    for (QPlainTextEdit* Campo : findChildren<QPlainTextEdit*>())
        Campo->installEventFilter(this);
    // What is typed into one box is one step; in the next one another begins.
    Collega(qApp, &QApplication::focusChanged, this, [this](QWidget* Lasciato, QWidget* Preso) {
        // A question that the leaving has raised, or another window, is no other box.
        if (!Lasciato || !Preso || !isAncestorOf(Lasciato) || !isAncestorOf(Preso))
            return;
        Storia.ChiudiTesto();
        DimenticaLettere(Lasciato);
    });
    MostraAnnulla();
}

void frmParcelle::DimenticaOgniLettera()
{
    for (QLineEdit* Campo : findChildren<QLineEdit*>())
        DimenticaLettere(Campo);
    for (QPlainTextEdit* Campo : findChildren<QPlainTextEdit*>())
        DimenticaLettere(Campo);
}

bool frmParcelle::TestoHaAnnulla(const QObject* Campo, bool Avanti) const
{
    if (const auto* Riga = qobject_cast<const QLineEdit*>(Campo))
        return Avanti ? Riga->isRedoAvailable() : Riga->isUndoAvailable();
    if (const auto* Testo = qobject_cast<const QPlainTextEdit*>(Campo))
        return Avanti ? Testo->document()->isRedoAvailable() : Testo->document()->isUndoAvailable();
    return true;
}

void frmParcelle::MostraAnnulla()
{
    MostraPasso(ui->cmdAnnulla, Storia.NomeAnnulla(), u"Annulla"_s, u"Niente da annullare"_s, u"Ctrl+Z"_s);
    MostraPasso(ui->cmdRipeti, Storia.NomeRipeti(), u"Ripeti"_s, u"Niente da ripetere"_s, u"Ctrl+Y"_s);
}

bool frmParcelle::AnnullaPasso()
{
    if (Storia.NomeAnnulla().isEmpty() || Storia.UltimaRimessa())
        return false;
    Passo(false);
    return true;
}

void frmParcelle::Passo(bool Avanti)
{
    // Ctrl+Y is no key of the boxes everywhere; letters taken back come again before any step does.
    auto* Campo = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    if (Avanti && Campo && isAncestorOf(Campo) && Campo->isRedoAvailable()) {
        Campo->redo();
        return;
    }
    if (DialogoAperto || !ConcludiCampo())
        return;
    const Parcella Prima = Nota;
    if (!(Avanti ? Storia.Ripeti(Nota) : Storia.Annulla(Nota)))
        return;
    if (RivediStato()) {
        ::SetModificata(Nota, !Storia.ESalvata(Nota));
        Storia.Allinea(Nota);
    }
    // The lines that were cut are where they were; to put them back once more would double them.
    const bool AltreRighe = Prima.xOnorari != Nota.xOnorari || Prima.xDiritti != Nota.xDiritti;
    if (AltreRighe && Comune.Copiate.DaTaglio)
        SvuotaAppunti(Comune.Copiate);
    // The page in view stays, with its own ticks and wording.
    if (Prima.cmbTipoStampa != Nota.cmbTipoStampa && Prima.cmbTipoStampa >= 0) {
        const bool Modificata = Nota.Modificata;
        ScegliDocumento(Nota, Prima.cmbTipoStampa);
        ::SetModificata(Nota, Modificata);
        Storia.Allinea(Nota);
    }
    if (ParametriDiversi(Prima, Nota))
        TornaAllaBase();  // where they are tested on leaving; the catalogues are those of other ones
    if (Prima.xOnorari != Nota.xOnorari)
        Onorari->RigheRimesse();
    if (Prima.xDiritti != Nota.xDiritti)
        Spese->RigheRimesse();
    SetModificata(Nota.Modificata);
    MostraTutto();
    Ricomponi();
}
