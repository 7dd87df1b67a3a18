// The client and the counterparty in the address book.
#include "addressbook/richiesta.h"
#include "core/aperture.h"
#include "feenote/windows/frmParcelle.h"

#include "feenote/modParti.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "ui_SchedaDatiBase.h"

#include <QToolButton>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// What an element of the arrays of buttons asks for: 0 the client, 1 the counterparty.
struct VoceCliCon
{
    QStringView Tabella;
    QStringView Parola;
    QStringView ParolaStampa;
    int Parcella::*Legame;
};

constexpr std::array VociCliCon{
    VoceCliCon{u"clienti", u"cli", u"c_cli", &Parcella::IDCli},
    VoceCliCon{u"controparti", u"con", u"c_con", &Parcella::IDCon},
};

}  // namespace

void frmParcelle::CollegaCliCon()
{
    const std::array Visualizza{uiBase->cmdVisCliCon_0, uiBase->cmdVisCliCon_1};
    const std::array Inserisci{uiBase->cmdInsCliCon_0, uiBase->cmdInsCliCon_1};
    const std::array Modifica{uiBase->cmdModCliCon_0, uiBase->cmdModCliCon_1};
    const auto Alla = [this](QToolButton* Bottone, auto Fai) {
        Collega(Bottone, &QToolButton::clicked, this, Fai);
    };
    for (int i = 0; i < int(VociCliCon.size()); ++i) {
        Alla(Visualizza[size_t(i)], [this, i] { CliCon(i, false, {}); });
        Alla(Inserisci[size_t(i)], [this, i] { CliCon(i, false, u"new"_s); });
        Alla(Modifica[size_t(i)], [this, i] { CliCon(i, false, u"edit"_s); });
    }
}

void frmParcelle::CliCon(int Elemento, bool DaStampa, const QString& MenuStart)
{
    if (!Aperture.RubricaParcella || !ConcludiCampo())
        return;
    const VoceCliCon& Voce = VociCliCon[size_t(Elemento)];
    const QStringView Parola = DaStampa ? Voce.ParolaStampa : Voce.Parola;
    const QString KeyStart = MenuStart == u"edit" ? u"ID="_s + QString::number(Nota.*Voce.Legame) : QString();
    Aperture.RubricaParcella({Posto, Voce.Tabella.toString(), Parola.toString(), MenuStart, KeyStart});
}

void frmParcelle::oRubrica_SelDone(const QString& Parent, const QVariantList& Valori)
{
    if (Valori.size() < 2)
        return;
    ApplicaStampa([&] { RiceviDaRubrica(Nota, Parent, Valori[0].toInt(), Valori[1].toString()); });
}

void frmParcelle::MostraCliCon()
{
    // The parties are free text until the address book is there.
    const bool Presente = bool(Aperture.RubricaParcella);
    for (QWidget* Bottone : {uiBase->cmdVisCliCon_0, uiBase->cmdInsCliCon_0, uiBase->cmdModCliCon_0,
                             uiBase->cmdVisCliCon_1, uiBase->cmdInsCliCon_1, uiBase->cmdModCliCon_1})
        Bottone->setVisible(Presente);
    uiBase->cmdModCliCon_0->setEnabled(Nota.IDCli > 0);
    uiBase->cmdModCliCon_1->setEnabled(Nota.IDCon > 0);
}
