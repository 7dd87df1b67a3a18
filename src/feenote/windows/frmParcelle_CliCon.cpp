// The client and the counterparty in the address book.
#include "feenote/windows/frmParcelle.h"

#include "addressbook/modClienti.h"
#include "addressbook/richiesta.h"
#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "feenote/modParti.h"
#include "feenote/windows/SchedaDatiBase.h"
#include "feenote/windows/SchedaStampa.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/system/messaggi.h"

#include <QAbstractEventDispatcher>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// What an element of the arrays of buttons asks for: 0 the client, 1 the counterparty.
struct VoceCliCon
{
    QStringView Tabella;
    QStringView Parola;
    QStringView ParolaStampa;
    ParteNota Parte;
};

constexpr std::array VociCliCon{
    VoceCliCon{u"clienti", u"cli", u"c_cli", ParteNota::Cliente},
    VoceCliCon{u"controparti", u"con", u"c_con", ParteNota::Controparte},
};

}  // namespace

void frmParcelle::CliCon(int Elemento, bool DaStampa, const QString& MenuStart)
{
    if (!Aperture.RubricaParcella || !ConcludiCampo())
        return;
    const VoceCliCon& Voce = VociCliCon[size_t(Elemento)];
    const QStringView Parola = DaStampa ? Voce.ParolaStampa : Voce.Parola;
    const int Legame = LegameParte(Nota, Voce.Parte);
    const QString KeyStart = MenuStart == u"edit" ? u"ID="_s + QString::number(Legame) : QString();
    Aperture.RubricaParcella({.Indice = Posto,
                              .Numero = NumeroNota,
                              .DataSource = sessione::ArchivioCliCon,
                              .RecordSource = Voce.Tabella.toString(),
                              .Selezione = true,
                              .Parent = Parola.toString(),
                              .MenuStart = MenuStart,
                              .KeyStart = KeyStart,
                              .CampoStart = {},
                              .ID = Legame});
}

RichiestaRubrica frmParcelle::RichiestaCliente() const
{
    const VoceCliCon& Voce = VociCliCon.front();
    return {.Indice = Posto,
            .Numero = NumeroNota,
            .DataSource = sessione::ArchivioCliCon,
            .RecordSource = Voce.Tabella.toString(),
            .Selezione = true,
            .Parent = Voce.Parola.toString(),
            .MenuStart = {},
            .KeyStart = {},
            .CampoStart = {},
            .ID = Nota.IDCli};
}

void frmParcelle::oRubrica_SelDone(const QString& Parent, const QVariantList& Valori)
{
    if (Valori.size() < 2)
        return;
    ApplicaStampa([&] {
        RiceviDaRubrica(Nota, Parent, Valori[0].toInt(), Valori[1].toString());
        if (Scheda() != SchedaBase || !InPrimoPiano())
            Nota.Fuoco = CampoNota::Nessuno;  // the user is elsewhere by now
    });
}

void frmParcelle::ScegliNome(int Elemento, int Chiave)
{
    const VoceCliCon& Voce = VociCliCon[size_t(Elemento)];
    std::optional<QString> Nome;
    if (!Protetta([&] {
            Nome = Voce.Parte == ParteNota::Cliente ? CercaCliente(Chiave)
                                                    : CercaControparte(Chiave, u"Nominativo"_s);
        }))
        return;
    if (!Nome || Nome->trimmed().isEmpty()) {
        MsgBox(u"Il nominativo scelto non è più nell'archivio!"_s, vbExclamation,
               TitoloAvvertenza.toString());
        return;
    }
    ApplicaStampa([&] {
        RiceviDaRubrica(Nota, Voce.Parola.toString(), Chiave, *Nome);
        Nota.Fuoco = CampoNota::Nessuno;  // the box is in use already
    });
}

void frmParcelle::NominativoCambiato(const QString& RecordSource, int ID)
{
    for (const VoceCliCon& Voce : VociCliCon) {
        if (Voce.Tabella.compare(RecordSource, Qt::CaseInsensitive) != 0)
            continue;
        // What shows nothing new is not written again: a cell of the note may be in edit meanwhile.
        bool AltroNome = false;
        Protetta([&] { AltroNome = SegueArchivio(Nota, Voce.Parte, ID); });
        if (AltroNome) {
            Storia.Dimentica(Nota);
            ApplicaStampa([] {});
        } else {
            Storia.Allinea(Nota);
            MostraRubrica();
        }
        Stampa->RileggiControlli();
    }
}

bool frmParcelle::InPrimoPiano() const
{
    const auto* Sotto = qobject_cast<const QMdiSubWindow*>(parentWidget());
    return !Sotto || !Sotto->mdiArea() || Sotto->mdiArea()->currentSubWindow() == Sotto;
}

void frmParcelle::MostraRubrica()
{
    RubricaInVista = bool(Aperture.RubricaParcella);
    Base->MostraRubrica();
    Stampa->MostraRubrica();
}

/// The address book may come after the windows: they show their buttons as soon as it is there.
void frmParcelle::CollegaRubrica()
{
    Collega(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this, [this] {
        if (RubricaInVista != bool(Aperture.RubricaParcella))
            MostraRubrica();
    });
}
