// The client and the counterparty in the address book.
#include "feenote/windows/frmParcelle.h"

#include "addressbook/richiesta.h"
#include "core/aperture.h"
#include "core/sessione.h"
#include "feenote/modParti.h"
#include "platform/kit/campo.h"

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

void frmParcelle::CliCon(int Elemento, bool DaStampa, const QString& MenuStart)
{
    if (!Aperture.RubricaParcella || !ConcludiCampo())
        return;
    const VoceCliCon& Voce = VociCliCon[size_t(Elemento)];
    const QStringView Parola = DaStampa ? Voce.ParolaStampa : Voce.Parola;
    const QString KeyStart = MenuStart == u"edit" ? u"ID="_s + QString::number(Nota.*Voce.Legame) : QString();
    Aperture.RubricaParcella({.Indice = Posto,
                              .DataSource = sessione::ArchivioCliCon,
                              .RecordSource = Voce.Tabella.toString(),
                              .Selezione = true,
                              .Parent = Parola.toString(),
                              .MenuStart = MenuStart,
                              .KeyStart = KeyStart});
}

void frmParcelle::oRubrica_SelDone(const QString& Parent, const QVariantList& Valori)
{
    if (Valori.size() < 2)
        return;
    ApplicaStampa([&] { RiceviDaRubrica(Nota, Parent, Valori[0].toInt(), Valori[1].toString()); });
}
