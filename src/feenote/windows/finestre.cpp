#include "feenote/windows/finestre.h"

#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "feenote/file/modRecupero.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/kit/aspetto.h"
#include "platform/system/impostazioni.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

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

/// FormState of a maximised window, 0 of a normal one.
constexpr int StatoMassimo = 2;

std::vector<QPointer<frmParcelle>> Finestre(1);

/// Keeps the size that a window had before it was maximised or minimised; a child window knows no such thing.
class MisuraNormale : public QObject
{
public:
    static constexpr const char* Nome = "misuraNormale";

    explicit MisuraNormale(QMdiSubWindow* Sotto) : QObject(Sotto) { Sotto->installEventFilter(this); }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        // While the window is destroyed events still come, from what is left of it.
        const auto* Sotto = qobject_cast<QMdiSubWindow*>(Oggetto);
        if (Sotto && Evento->type() == QEvent::Resize && !Sotto->isMaximized() && !Sotto->isMinimized())
            Oggetto->setProperty(Nome, Sotto->size());
        return QObject::eventFilter(Oggetto, Evento);
    }
};

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
    if (QMdiArea* Area = Aperture.AreaParcelle ? Aperture.AreaParcelle() : nullptr) {
        QMdiSubWindow* Sotto = Area->addSubWindow(Finestra);
        Sotto->setAttribute(Qt::WA_DeleteOnClose, false);
        Sotto->setProperty("Tag", QString::number(Indice));
        new MisuraNormale(Sotto);
    }
    return Finestra;
}

/// The size wanted, or what of it the frame has room for, so that a small screen shows the status bar too. A
/// window is never made smaller than it can be used.
QSize NellArea(const QMdiSubWindow* Sotto, QPoint Posto, QSize Voluta)
{
    const QSize Area = Sotto->mdiArea()->viewport()->size();
    const QSize Libera(Area.width() - Posto.x(), Area.height() - Posto.y());
    return Voluta.boundedTo(Libera.expandedTo(Sotto->minimumSizeHint()));
}

void MettiInCascata(frmParcelle* Finestra, int Indice)
{
    QMdiSubWindow* Sotto = Cornice(Finestra);
    if (!Sotto || Sotto->isMaximized())
        return;
    if (Sotto->isMinimized())
        Sotto->showNormal();
    const QPoint Posto(aspetto::Pixel((Indice - 1) * CascataSinistra + PrimoSinistra),
                       aspetto::Pixel((Indice - 1) * CascataAlto + PrimoAlto));
    const QSize Voluta(aspetto::Pixel(Misura(u"FormWidth"_s, LarghezzaPredefinita)),
                       aspetto::Pixel(Misura(u"FormHeight"_s, AltezzaPredefinita)));
    Sotto->setGeometry({Posto, NellArea(Sotto, Posto, Voluta)});
}

QString TitoloNuova(int Indice, const QString& ID)
{
    if (!ID.isEmpty())
        return u"["_s + ID + u"] "_s + Nuova.toString();
    return Indice < 2 ? Nuova.toString() : Nuova.toString() + u':' + QString::number(Indice);
}

/// The window of a place that holds a note, null for a free one.
frmParcelle* InUso(int Indice)
{
    frmParcelle* Finestra = Parcelle(Indice);
    return Finestra && !InfoParcelle[size_t(Indice)].Libera ? Finestra : nullptr;
}

QString NomeNota(const QString& Percorso)
{
    return NomeFile(Percorso).toLower().remove(u".mdb"_s);
}

/// What the next start wants: the normal size, of a maximised window too, and that it was maximised.
void RicordaMisure(const frmParcelle* Finestra)
{
    const QMdiSubWindow* Sotto = Cornice(Finestra);
    if (!Sotto)
        return;
    const auto Scrivi = [](const QString& Chiave, int Valore) {
        SaveSetting(u"KR5"_s, u"Parametri"_s, Chiave, QString::number(Valore));
    };
    const QSize Normale = Sotto->property(MisuraNormale::Nome).toSize();
    if (Normale.isValid()) {
        Scrivi(u"FormWidth"_s, aspetto::Twip(Normale.width()));
        Scrivi(u"FormHeight"_s, aspetto::Twip(Normale.height()));
    }
    Scrivi(u"FormState"_s, Sotto->isMaximized() ? StatoMassimo : 0);
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
    if (Aperture.RinfrescaTrova)
        Aperture.RinfrescaTrova();
    if (ParcellaAperta())
        return;
    Protetta([&] { RicordaMisure(Finestra); });
    if (Aperture.UltimaParcellaChiusa)
        Aperture.UltimaParcellaChiusa();  // saves the frame's size, then ends a low session or brings the
                                          // desktop back
    else if (sessione::ModoLow)
        Termina();
}

int PrendiPosto()
{
    return TrovaPostoParcella([] {
        const frmParcelle* Prima = Parcelle(1);
        return Prima && Prima->windowTitle() == Nuova;
    });
}

/// Brings up the window of a place under a caption, linked to its partner.
frmParcelle* MostraFinestra(int Indice, int Socio, const QString& Titolo)
{
    frmParcelle* Finestra = FinestraPerPosto(Indice);
    MettiInCascata(Finestra, Indice);
    // A partner that is the window itself, or whose note has closed meanwhile, is none.
    frmParcelle* Altra = Socio == Indice ? nullptr : InUso(Socio);
    Finestra->Associa(Altra ? Socio : 0);
    if (Altra)
        Altra->Nota.IDMultipla = Indice;

    Finestra->setWindowTitle(Titolo);
    Finestra->ImpostaNome(Titolo);
    if (QMdiSubWindow* Sotto = Cornice(Finestra)) {
        Sotto->show();
        Finestra->show();
        if (Misura(u"FormState"_s, 0) == StatoMassimo)
            Sotto->showMaximized();
    } else {
        Finestra->show();
    }
    AttivaParcella(Indice);
    return Finestra;
}

void ApriRecuperata(const CopiaRecupero& Copia)
{
    const int Indice = PrendiPosto();
    const QString Titolo = Copia.Percorso.isEmpty() ? TitoloNuova(Indice, {}) : NomeNota(Copia.Percorso);
    frmParcelle* Finestra = MostraFinestra(Indice, 0, Titolo);
    Finestra->Recupera(Copia);
    Finestra->ImpostaNome(Titolo);
}

}  // namespace

frmParcelle* Parcelle(int Indice)
{
    return Indice >= 1 && Indice < int(Finestre.size()) ? Finestre[size_t(Indice)].data() : nullptr;
}

void ApriParcella(const QString& Percorso, int Socio, const QString& ID)
{
    const int Indice = PrendiPosto();
    const bool DaFile = ID.isEmpty() && !Percorso.isEmpty();
    const QString Titolo = DaFile ? NomeNota(Percorso) : TitoloNuova(Indice, ID);
    frmParcelle* Finestra = MostraFinestra(Indice, Socio, Titolo);
    if (!ID.isEmpty())
        Finestra->ImpostaNome(Nuova.toString());
    if (DaFile)
        Finestra->Carica(Percorso);
    else
        Finestra->Nuova(ID);
}

void OffriRecupero()
{
    for (const CopiaRecupero& Copia : NoteDaRecuperare()) {
        const PrenotazioneCopia Mia(Copia);
        if (!Mia)
            continue;
        const int Risposta =
            MsgBoxPulsanti(u"Il programma si è chiuso senza che la parcella \"%1\" fosse salvata.\n"
                           u"Ne esiste una copia del %2.\nVuoi recuperarla?"_s.arg(
                               Copia.Nome, Copia.Quando.toString(u"dd/MM/yyyy 'ore' HH:mm"_s)),
                           vbYesNoCancel + vbQuestion, TitoloDomanda.toString(),
                           {u"Recupera"_s, u"Elimina"_s, u"Più tardi"_s});
        if (Risposta == vbYes)
            ApriRecuperata(Copia);
        else if (Risposta == vbNo)
            EliminaCopia(Copia);
    }
}

void AttivaParcella(int Indice)
{
    frmParcelle* Finestra = InUso(Indice);
    if (!Finestra)
        return;
    if (QMdiSubWindow* Sotto = Cornice(Finestra)) {
        if (Sotto->isMinimized())
            Sotto->showNormal();
        Sotto->mdiArea()->setActiveSubWindow(Sotto);
    } else {
        Finestra->activateWindow();
    }
    if (Aperture.ParcellaAttivata)
        Aperture.ParcellaAttivata(Indice);
}

bool ChiudiParcella(int Indice)
{
    frmParcelle* Finestra = InUso(Indice);
    if (!Finestra)
        return true;
    frmParcelle* Altra = InUso(Finestra->Socio());
    const bool Principale = Finestra->HaStampa();
    if (!Finestra->ChiediChiusura() || (Altra && Principale && !Altra->ChiediChiusura()))
        return false;
    if (Altra) {
        Altra->Associa(0);
        Finestra->Associa(0);
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
