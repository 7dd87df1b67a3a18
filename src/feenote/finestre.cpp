#include "feenote/finestre.h"

#include "core/comandi.h"
#include "core/sessione.h"
#include "feenote/frmParcelle.h"
#include "platform/aspetto.h"
#include "platform/impostazioni.h"
#include "platform/percorsi.h"
#include "platform/shell.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Nuova = u"Nuova parcella";

/// Sizes in twips, as the settings hold them.
constexpr int LarghezzaPredefinita = 12800;
constexpr int AltezzaPredefinita = 8800;
constexpr int CascataAlto = 380;
constexpr int CascataSinistra = 140;
constexpr int PrimoAlto = 150;
constexpr int PrimoSinistra = 220;

std::vector<QPointer<frmParcelle>> Finestre(1);

int Misura(const QString& Chiave, int Predefinita)
{
    bool Letta = false;
    const int Valore = GetSetting(u"KR5"_s, u"Parametri"_s, Chiave).toInt(&Letta);
    return Letta && Valore > 0 ? Valore : Predefinita;
}

QMdiSubWindow* Cornice(const frmParcelle* Finestra)
{
    return Finestra ? qobject_cast<QMdiSubWindow*>(Finestra->parentWidget()) : nullptr;
}

/// The window of a place, made at its first use and kept for the next note that takes the place.
frmParcelle* FinestraPerPosto(int Indice)
{
    if (int(Finestre.size()) <= Indice)
        Finestre.resize(size_t(Indice) + 1);
    QPointer<frmParcelle>& Finestra = Finestre[size_t(Indice)];
    if (Finestra)
        return Finestra;
    Finestra = new frmParcelle(Indice);
    if (QMdiArea* Area = AreaParcelle ? AreaParcelle() : nullptr) {
        QMdiSubWindow* Sotto = Area->addSubWindow(Finestra);
        Sotto->setAttribute(Qt::WA_DeleteOnClose, false);
        Sotto->setProperty("Tag", QString::number(Indice));
    }
    return Finestra;
}

void MettiInCascata(frmParcelle* Finestra, int Indice)
{
    QMdiSubWindow* Sotto = Cornice(Finestra);
    if (!Sotto || Sotto->isMaximized())
        return;
    Sotto->setGeometry(aspetto::Pixel((Indice - 1) * CascataSinistra + PrimoSinistra),
                       aspetto::Pixel((Indice - 1) * CascataAlto + PrimoAlto),
                       aspetto::Pixel(Misura(u"FormWidth"_s, LarghezzaPredefinita)),
                       aspetto::Pixel(Misura(u"FormHeight"_s, AltezzaPredefinita)));
}

QString TitoloNuova(int Indice, const QString& ID)
{
    if (!ID.isEmpty())
        return u"["_s + ID + u"] "_s + Nuova.toString();
    return Indice < 2 ? Nuova.toString() : Nuova.toString() + u':' + QString::number(Indice);
}

QString NomeNota(const QString& Percorso)
{
    return NomeFile(Percorso).toLower().remove(u".mdb"_s);
}

/// The normal size, not that of a maximised window, is what the next start wants.
void RicordaMisure(const frmParcelle* Finestra)
{
    const QMdiSubWindow* Sotto = Cornice(Finestra);
    if (!Sotto)
        return;
    const auto Scrivi = [](const QString& Chiave, int Valore) {
        SaveSetting(u"KR5"_s, u"Parametri"_s, Chiave, QString::number(Valore));
    };
    if (!Sotto->isMaximized()) {
        Scrivi(u"FormWidth"_s, aspetto::Twip(Sotto->width()));
        Scrivi(u"FormHeight"_s, aspetto::Twip(Sotto->height()));
    }
    Scrivi(u"FormState"_s, Sotto->isMaximized() ? 2 : 0);
}

/// Frees the place; the window stays, hidden, for the next note that takes it.
void Libera(frmParcelle* Finestra)
{
    Finestra->Scarica();
    if (QMdiSubWindow* Sotto = Cornice(Finestra))
        Sotto->hide();
    else
        Finestra->hide();
}

/// What follows the close of a note: the end of the process for a matter's one, the desktop after the last.
void DopoChiusura(frmParcelle* Finestra)
{
    if (!sessione::RichiestaPV2.ID.isEmpty()) {
        Termina();
        return;
    }
    if (ParcellaAperta())
        return;
    RicordaMisure(Finestra);
    if (sessione::ModoLow)
        Termina();
    else if (UltimaParcellaChiusa)
        UltimaParcellaChiusa();
}

}  // namespace

frmParcelle* Parcelle(int Indice)
{
    return Indice >= 1 && Indice < int(Finestre.size()) ? Finestre[size_t(Indice)].data() : nullptr;
}

void ApriParcella(const QString& Percorso, int Socio, const QString& ID)
{
    const int Indice = TrovaPostoParcella([] {
        const frmParcelle* Prima = Parcelle(1);
        return Prima && Prima->windowTitle() == Nuova;
    });
    frmParcelle* Finestra = FinestraPerPosto(Indice);
    InfoParcella& Info = InfoParcelle[size_t(Indice)];
    MettiInCascata(Finestra, Indice);
    // A partner that is the window itself is none: the place was reused.
    Finestra->Collega(Socio);
    if (frmParcelle* Altra = Parcelle(Finestra->Socio()))
        Altra->Nota.IDMultipla = Indice;

    const bool DaFile = ID.isEmpty() && !Percorso.isEmpty();
    Info.Nome = DaFile ? NomeNota(Percorso) : ID.isEmpty() ? TitoloNuova(Indice, ID) : Nuova.toString();
    Finestra->setWindowTitle(DaFile ? Info.Nome : TitoloNuova(Indice, ID));
    Finestra->Nota.Nome = Info.Nome;
    if (QMdiSubWindow* Sotto = Cornice(Finestra)) {
        Sotto->show();
        Finestra->show();
        if (Misura(u"FormState"_s, 0) == 2)
            Sotto->showMaximized();
        Sotto->mdiArea()->setActiveSubWindow(Sotto);
    } else {
        Finestra->show();
    }
    if (DaFile)
        Finestra->Carica(Percorso);
    else
        Finestra->Nuova(ID);
}

bool ChiudiParcella(int Indice)
{
    frmParcelle* Finestra = Parcelle(Indice);
    if (!Finestra || InfoParcelle[size_t(Indice)].Libera)
        return true;
    const int Socio = Finestra->Socio();
    frmParcelle* Altra = Parcelle(Socio);
    const bool Principale = Finestra->HaStampa();
    if (!Finestra->ChiediChiusura() || (Altra && Principale && !Altra->ChiediChiusura()))
        return false;
    if (Altra) {
        Altra->Collega(0);
        Finestra->Collega(0);
    }
    Libera(Finestra);
    if (Altra && Principale)
        Libera(Altra);
    DopoChiusura(Finestra);
    return true;
}

void AzzeraFinestre()
{
    for (const QPointer<frmParcelle>& Finestra : Finestre) {
        QMdiSubWindow* Sotto = Cornice(Finestra);
        delete Finestra.data();
        delete Sotto;
    }
    Finestre.assign(1, {});
    AzzeraParcelle();
}
