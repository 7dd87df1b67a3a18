#include "feenote/windows/finestre.h"

#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/parametri.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "feenote/file/modRecupero.h"
#include "feenote/modDuplica.h"
#include "feenote/windows/frmParcelle.h"
#include "feenote/windows/notarecente.h"
#include "feenote/windows/noteaperte.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/lettere.h"
#include "platform/kit/servizi_qt.h"
#include "platform/kit/trattieni.h"
#include "platform/system/memoria.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QApplication>
#include <QEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>

#include <algorithm>
#include <utility>
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

/// The size of a note window that the next start wants, in twips: the one that was asked for, until the user
/// gives the window another. What the frame had room for, and a maximised or minimised window, are not his.
class MisuraScelta : public QObject
{
public:
    explicit MisuraScelta(QMdiSubWindow* Finestra) : QObject(Finestra), Sotto(Finestra)
    {
        Sotto->installEventFilter(this);
    }

    /// The size asked for; the one that the window has now is what the frame made of it.
    void Chiesta(const QSize& Twip)
    {
        Voluta = Twip;
        Data = Sotto->size();
    }

    /// The window has settled by itself, since it cannot be smaller than its contents.
    void Assestata() { Data = Sotto->size(); }

    [[nodiscard]] QSize Scelta()
    {
        Guarda();
        return Voluta;
    }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        // A frame that is resized passes through a normal state of its maximised windows: look when it is
        // over.
        if (Oggetto == Sotto && Evento->type() == QEvent::Resize)
            QMetaObject::invokeMethod(this, &MisuraScelta::Guarda, Qt::QueuedConnection);
        return QObject::eventFilter(Oggetto, Evento);
    }

private:
    void Guarda()
    {
        if (Sotto->isMaximized() || Sotto->isMinimized())
            return;
        if (QMdiArea* Area = Sotto->mdiArea(); Area && Sotto->isVisible())
            Area->setProperty(RiempionoLaCornice, false);
        const QSize Ora = Sotto->size();
        if (Ora.width() != Data.width())
            Voluta.setWidth(aspetto::Twip(Ora.width()));
        if (Ora.height() != Data.height())
            Voluta.setHeight(aspetto::Twip(Ora.height()));
        Data = Ora;
    }

    QMdiSubWindow* Sotto;
    QSize Voluta;
    QSize Data;  ///< in pixels
};

/// A window of a place, and what the user made of its size; both are null while nobody has used the place.
struct FinestraDelPosto
{
    QPointer<frmParcelle> Finestra;
    QPointer<MisuraScelta> Misura;
};

std::vector<FinestraDelPosto> Finestre(1);

QMdiSubWindow* SottoFinestra(const frmParcelle* Finestra)
{
    return Finestra ? qobject_cast<QMdiSubWindow*>(Finestra->parentWidget()) : nullptr;
}

/// The window of a place, made at its first use and kept for the next note that takes the place.
frmParcelle* FinestraPerPosto(int Indice)
{
    if (int(Finestre.size()) <= Indice)
        Finestre.resize(size_t(Indice) + 1);
    auto& [Finestra, Misura] = Finestre[size_t(Indice)];
    if (Finestra)
        return Finestra;
    Finestra = new frmParcelle(Indice);
    TrattieniDietroIBox(Finestra);
    if (QMdiArea* Area = Aperture.AreaParcelle ? Aperture.AreaParcelle() : nullptr) {
        QMdiSubWindow* Sotto = Area->addSubWindow(Finestra);
        Sotto->setAttribute(Qt::WA_DeleteOnClose, false);
        TrattieniDietroIBox(Sotto);
        Sotto->setProperty("Tag", QString::number(Indice));
        Misura = new MisuraScelta(Sotto);
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

/// Where a note is larger than the frame, its own bars would stand beside those of the frame, and no line
/// would be seen between them.
bool HaPosto(const QMdiSubWindow* Sotto)
{
    const QSize Minima = Sotto->minimumSizeHint();
    return Sotto->isMaximized() ||
           Sotto->mdiArea()->viewport()->size().expandedTo(Minima) == Sotto->mdiArea()->viewport()->size();
}

/// A note that fits the frame, and only stands too low or too far right for it, is moved back.
QRect Dentro(QRect Posto, const QRect& Area)
{
    Posto.moveLeft(std::max(std::min(Posto.left(), Area.right() + 1 - Posto.width()), Area.left()));
    Posto.moveTop(std::max(std::min(Posto.top(), Area.bottom() + 1 - Posto.height()), Area.top()));
    return Posto;
}

void RiempiCornice(QMdiSubWindow* Sotto)
{
    Sotto->showMaximized();
    Sotto->mdiArea()->setProperty(RiempionoLaCornice, true);
}

void MettiInCascata(frmParcelle* Finestra, int Indice)
{
    QMdiSubWindow* Sotto = SottoFinestra(Finestra);
    if (!Sotto || Sotto->isMaximized())
        return;
    if (Sotto->isMinimized())
        Sotto->showNormal();
    const QPoint Posto(aspetto::Pixel((Indice - 1) * CascataSinistra + PrimoSinistra),
                       aspetto::Pixel((Indice - 1) * CascataAlto + PrimoAlto));
    const QSize Voluta(MisuraTwip(u"FormWidth"_s, LarghezzaPredefinita),
                       MisuraTwip(u"FormHeight"_s, AltezzaPredefinita));
    const QSize Pixel =
        aspetto::CresciutaConLeLettere({aspetto::Pixel(Voluta.width()), aspetto::Pixel(Voluta.height())},
                                       Voluta, {LarghezzaPredefinita, AltezzaPredefinita}, Sotto);
    Sotto->setGeometry(Dentro({Posto, NellArea(Sotto, Posto, Pixel)}, Sotto->mdiArea()->viewport()->rect()));
    Finestre[size_t(Indice)].Misura->Chiesta(Voluta);
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

/// What the next start wants: the size of the window when it is not maximised, and whether it was.
void RicordaMisure(const frmParcelle* Finestra)
{
    const QMdiSubWindow* Sotto = SottoFinestra(Finestra);
    if (!Sotto)
        return;
    const bool Scelto = Sotto->isMaximized() && !Sotto->mdiArea()->property(RiempionoLaCornice).toBool();
    QList<std::pair<QString, QString>> Misure{{u"FormState"_s, QString::number(Scelto ? StatoMassimo : 0)}};
    const QSize Scelta = Finestre[size_t(Finestra->Indice())].Misura->Scelta();
    if (Scelta.isValid())
        Misure += {{u"FormWidth"_s, QString::number(Scelta.width())},
                   {u"FormHeight"_s, QString::number(Scelta.height())}};
    RicordaImpostazioni(Misure);
}

/// The open note that was in front before the others, 0 when none is open.
int AltraDavanti(const QMdiArea* Area)
{
    const QList<QMdiSubWindow*> Storia = Area->subWindowList(QMdiArea::ActivationHistoryOrder);
    for (auto Sotto = Storia.rbegin(); Sotto != Storia.rend(); ++Sotto) {
        const int Indice = (*Sotto)->property("Tag").toInt();
        if (InUso(Indice))
            return Indice;
    }
    return 0;
}

/// Frees the places; the windows stay, hidden, for the next notes that take them. Where one of them was in
/// front, the note that was there before it comes back, with the focus and as the toolbar's target.
void Libera(const std::vector<frmParcelle*>& Chiuse)
{
    const QMdiArea* Area = nullptr;
    bool Davanti = false;
    for (frmParcelle* Finestra : Chiuse) {
        Finestra->Scarica();
        if (QMdiSubWindow* Sotto = SottoFinestra(Finestra)) {
            Area = Sotto->mdiArea();
            Davanti = Davanti || Area->currentSubWindow() == Sotto;
        }
    }
    // While the closed one is still on screen, since a maximised window hands its state on to the next.
    if (Davanti)
        AttivaParcella(AltraDavanti(Area));
    for (frmParcelle* Finestra : Chiuse) {
        if (QMdiSubWindow* Sotto = SottoFinestra(Finestra))
            Sotto->hide();
        else
            Finestra->hide();
    }
}

/// No note but these is open.
bool NessunAltra(const std::vector<frmParcelle*>& Queste)
{
    for (int i = 1; i <= UltimaParcella(); ++i) {
        const frmParcelle* Finestra = InUso(i);
        if (Finestra && std::ranges::find(Queste, Finestra) == Queste.end())
            return false;
    }
    return true;
}

/// The program ends with these notes, a matter's one or the last ones of a low session.
bool FinisceCon(const std::vector<frmParcelle*>& Chiuse)
{
    return !sessione::RichiestaPV2.ID.isEmpty() || (sessione::ModoLow && NessunAltra(Chiuse));
}

/// Of the windows that wait for the next notes those of the first places stay, which is what an office has
/// open at once: each of the others holds a megabyte and more until the program ends.
void ScartaFinestre()
{
    constexpr std::size_t Pronte = 8;
    if (ParcellaAperta())
        return;
    for (std::size_t i = Pronte + 1; i < Finestre.size(); ++i) {
        frmParcelle* Finestra = std::exchange(Finestre[i], {}).Finestra;
        if (QMdiSubWindow* Sotto = SottoFinestra(Finestra))
            Sotto->deleteLater();
        else if (Finestra)
            Finestra->deleteLater();
    }
    QMetaObject::invokeMethod(
        qApp, [] { RendiMemoria(); }, Qt::QueuedConnection);  // behind those deletions
}

/// What follows the close of a note: the end of the process for a matter's one, the desktop after the last.
void DopoChiusura(const frmParcelle* Finestra)
{
    if (!sessione::RichiestaPV2.ID.isEmpty()) {
        Termina();
        return;
    }
    Invoca(Aperture.RinfrescaTrova);
    if (ParcellaAperta())
        return;
    Protetta([&] { RicordaMisure(Finestra); });
    InCodaDopoIlRespiro(qApp, ScartaFinestre);  // the closing of one of them is still going on
    if (Aperture.UltimaParcellaChiusa)
        Aperture.UltimaParcellaChiusa();  // saves the frame's size, then ends a low session or brings the
                                          // desktop back
    else if (sessione::ModoLow)
        Termina();
}

/// @param Socio window that another is opened for, 0 none; its place is never taken
int PrendiPosto(int Socio)
{
    return TrovaPostoParcella([Socio] {
        const frmParcelle* Prima = Parcelle(1);
        return Socio != 1 && Prima && Prima->Titolo() == Nuova;
    });
}

/// Makes the window of a place ready under a caption.
frmParcelle* PreparaFinestra(int Indice, const QString& Titolo)
{
    frmParcelle* Finestra = FinestraPerPosto(Indice);
    MettiInCascata(Finestra, Indice);
    Sciogli(*Finestra);
    Finestra->ImpostaTitolo(Titolo);
    Finestra->ImpostaNome(Titolo);
    return Finestra;
}

/// Brings a window up with its note in it, ready to be typed into.
void MostraFinestra(frmParcelle* Finestra)
{
    const int Indice = Finestra->Indice();
    if (QMdiSubWindow* Sotto = SottoFinestra(Finestra)) {
        const bool Nascosta = !Sotto->isVisible();
        Sotto->show();
        Finestra->show();
        if (Nascosta)
            Finestre[size_t(Indice)].Misura->Assestata();
        if (MisuraTwip(u"FormState"_s, 0) == StatoMassimo)
            Sotto->showMaximized();
        else if (!HaPosto(Sotto))
            RiempiCornice(Sotto);
    } else {
        Finestra->show();
    }
    AttivaParcella(Indice);
    Finestra->FuocoIniziale();
}

void ApriRecuperata(const CopiaRecupero& Copia)
{
    const int Indice = PrendiPosto(0);
    const QString Titolo = Copia.Percorso.isEmpty() ? TitoloNuova(Indice, {}) : NomeNota(Copia.Percorso);
    frmParcelle* Finestra = PreparaFinestra(Indice, Titolo);
    Protetta([&] { Finestra->Recupera(Copia); });
    Finestra->ImpostaNome(Titolo);
    MostraFinestra(Finestra);
}

}  // namespace

frmParcelle* Parcelle(int Indice)
{
    return Indice >= 1 && Indice < int(Finestre.size()) ? Finestre[size_t(Indice)].Finestra.data() : nullptr;
}

void LasciaPosto(const frmParcelle* Morente)
{
    for (FinestraDelPosto& Posto : Finestre)
        if (Posto.Finestra == Morente)
            Posto.Finestra = nullptr;
}

void ApriParcella(const QString& Percorso, int Socio, const QString& ID)
{
    const int Indice = PrendiPosto(Socio);
    const bool DaFile = ID.isEmpty() && !Percorso.isEmpty();
    const QString Titolo = DaFile ? NomeNota(Percorso) : TitoloNuova(Indice, ID);
    frmParcelle* Finestra = PreparaFinestra(Indice, Titolo);
    if (!ID.isEmpty())
        Finestra->ImpostaNome(Nuova.toString());
    // A partner that is the window itself, or whose note has closed meanwhile, is none.
    frmParcelle* Altra = Socio == Indice ? nullptr : InUso(Socio);
    // Filled before it is shown: a message that comes meanwhile would lie over unfinished controls.
    bool Letta = true;
    Protetta([&] {
        if (!DaFile)
            Finestra->Nuova(ID);
        else
            Letta = Finestra->Carica(Percorso);
    });
    if (!Letta && Altra) {
        Libera({Finestra});  // an empty note in its stead would be printed as the partner
        return;
    }
    if (!Letta)
        Finestra->ImpostaTitolo(TitoloNuova(Indice, {}));  // its place keeps the file's name
    if (Altra)
        Unisci(*Altra, *Finestra);
    MostraFinestra(Finestra);
    if (DaFile && Letta)
        InCodaDopoIlRespiro(Finestra, [Finestra, Numero = Finestra->Numero()] {
            if (Finestra->Numero() == Numero)
                Protetta([Finestra] { RicordaNota(Finestra->Nota); });
        });
}

void DuplicaParcella(int Indice)
{
    frmParcelle* Origine = InUso(Indice);
    if (!Origine)
        return;
    bool ConCliente = true;
    if (!Origine->Nota.txtCliente.Testo.isEmpty()) {
        const std::optional<bool> Risposta = Origine->ChiediCliente();
        if (!Risposta)
            return;
        ConCliente = *Risposta;
    }
    const Parcella Copia = Duplicata(Origine->Nota, ConCliente);
    const int Posto = PrendiPosto(0);
    const QString Titolo = TitoloNuova(Posto, Copia.NsRif);
    frmParcelle* Finestra = PreparaFinestra(Posto, Titolo);
    if (!Copia.NsRif.isEmpty())
        Finestra->ImpostaNome(Nuova.toString());
    Protetta([&] { Finestra->Prendi(Copia); });
    MostraFinestra(Finestra);
}

void LasciaCopie()
{
    for (int i = 1; i <= UltimaParcella(); ++i)
        if (frmParcelle* Finestra = Parcelle(i))
            Finestra->SpostaCopia();
    LasciaRecupero();
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

void PortaNotaDavanti(int Indice)
{
    // The frame too may lie minimised, or behind the desktop.
    if (InUso(Indice) && Aperture.AreaParcelle)
        (void)Aperture.AreaParcelle();
    AttivaParcella(Indice);
}

void AttivaParcella(int Indice)
{
    frmParcelle* Finestra = InUso(Indice);
    if (!Finestra)
        return;
    if (QMdiSubWindow* Sotto = SottoFinestra(Finestra)) {
        if (Sotto->isMinimized())
            Sotto->showNormal();
        Sotto->mdiArea()->setActiveSubWindow(Sotto);
    } else {
        Finestra->activateWindow();
    }
    Invoca(Aperture.ParcellaAttivata, Indice);
}

void Unisci(frmParcelle& Principale, frmParcelle& Compagna)
{
    Sciogli(Principale);
    Sciogli(Compagna);
    Principale.Nota.IDMultipla = Compagna.Indice();
    Compagna.Associa(Principale.Indice());
    Principale.SocioCambiato();
}

void Sciogli(frmParcelle& Finestra)
{
    frmParcelle* Altra = InUso(Finestra.Socio());
    Finestra.Associa(0);
    if (Altra && Altra->Socio() == Finestra.Indice())
        Altra->Associa(0);
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
    std::vector<frmParcelle*> Chiuse{Finestra};
    if (Altra && Principale)
        Chiuse.push_back(Altra);
    // Who stays with a card of the address book keeps the program, and with it the note.
    if (FinisceCon(Chiuse) && Aperture.ChiudiRubriche && !Aperture.ChiudiRubriche())
        return false;
    Sciogli(*Finestra);
    Libera(Chiuse);
    ControllaAssociate();
    DopoChiusura(Finestra);
    return true;
}

void AzzeraFinestre()
{
    for (const FinestraDelPosto& Posto : Finestre) {
        QMdiSubWindow* Sotto = SottoFinestra(Posto.Finestra);
        delete Posto.Finestra.data();
        delete Sotto;
    }
    Finestre.assign(1, {});
    AzzeraParcelle();
}
