// The fees of the page and of the panel go into a note, with the lump sum for notifications where it is owed.
#include "calculators/windows/frmContrib.h"

#include "calculators/norme/contributovigente.h"
#include "calculators/windows/pannellocontributo.h"
#include "calculators/windows/portanota.h"
#include "platform/base/regionale.h"
#include "platform/kit/collega.h"
#include "platform/kit/rigachesvanisce.h"
#include "platform/system/orologio.h"

#include "calculators/windows/ui_frmContrib.h"

#include <QCheckBox>
#include <QToolButton>

using namespace Qt::StringLiterals;

void frmContrib::CollegaPorte()
{
    auto* Detto = new RigaCheSvanisce(this);
    Detto->setObjectName(u"lblPortata"_s);
    QSizePolicy Suo(QSizePolicy::Ignored, QSizePolicy::Fixed);
    Suo.setRetainSizeWhenHidden(true);  // the page does not jump
    Detto->setSizePolicy(Suo);
    ui->colonna->insertWidget(1, Detto);  // as wide as the window: beside the buttons it would be cut

    // The page has one tick for its values; the panel of the fees in force has its own.
    chkAnticipazione = new QCheckBox(this);
    chkAnticipazione->setObjectName(u"chkAnticipazione"_s);
    chkAnticipazione->setChecked(true);
    chkAnticipazione->setText(u"Con l'anticipazione (art. 30)"_s);
    chkAnticipazione->setToolTip(u"Con il contributo di una casella porta nella parcella anche "
                                 u"l'anticipazione per le notifiche.\nNon è "
                                 "dovuta per lavoro e previdenza, né davanti al giudice di pace fino a € "
                                 "1.033,00 (L. 374/1991, art. 46); "
                                 "nei ricorsi tributari non c'è mai"_s);
    ui->rigaNorme->insertWidget(0, chkAnticipazione);
    setTabOrder(ui->cmdVisual_1, chkAnticipazione);
    setTabOrder(chkAnticipazione, ui->cmbNorme);

    Porte = new PortaNota(this, Detto);
    Porte->Accompagna(chkAnticipazione);
    for (int i = 0; i < CampiContributo; ++i)
        Porte->Aggiungi(
            fraContrib->cmdPorta(i), [this, i] { return fraContrib->cmdCopia(i)->isEnabled(); },
            [this, i] { return SpeseDi(i); });
    auto* DelPannello = new QToolButton(ui->fraVigente);
    DelPannello->setObjectName(u"cmdPortaVigente"_s);
    DelPannello->setAccessibleName(u"Porta nella parcella"_s);
    DelPannello->setAutoRaise(true);
    DelPannello->setFocusPolicy(Qt::TabFocus);
    ui->fraVigente->AggiungiAccanto(DelPannello);
    Porte->Aggiungi(
        DelPannello, [this] { return !ui->fraVigente->Spese().isEmpty(); },
        [this] { return ui->fraVigente->Spese(); }, [this] { return ui->fraVigente->FuoriDalleSpese(); });
    Collega(ui->fraVigente, &PannelloVigente::Calcolato, this, [this] { Porte->Aggiorna(); });
}

/// What a value of the page brings. The page's fees are those of today.
QList<SpesaDiLegge> frmContrib::SpeseDi(int Indice) const
{
    const QString Scritto = Contributi[size_t(Indice)];
    const double Contributo = IsNumeric(Scritto) ? CDbl(Scritto) : 0.0;
    if (!(Contributo > 0))
        return {};
    QList<SpesaDiLegge> Spese{{VoceDiLegge::Contributo, Contributo, Oggi()}};
    if (Indice != CampoTributario && chkAnticipazione->isChecked())
        if (const auto Importo = AnticipazioneInVigore(Oggi()))
            Spese.append({VoceDiLegge::Anticipazione, Importo->Euro, Oggi()});
    return Spese;
}
