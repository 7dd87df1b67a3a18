// The icons of the desktop: the program's own and the user's, how they are marked and walked through.
#include "core/desktop/frmStudio.h"

#include "core/aperture.h"
#include "core/comandi.h"
#include "core/desktop/iconastudio.h"
#include "core/modAspetto.h"
#include "core/modErrori.h"
#include "core/modIcone.h"
#include "core/modLancio.h"
#include "core/sessione.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/servizi_qt.h"
#include "platform/kit/tastimostrati.h"
#include "platform/system/shell.h"

#include "core/desktop/ui_frmStudio.h"

#include <QKeyEvent>
#include <QMenu>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString PrefissoUtente = u"user"_s;

bool DiUtente(const IconaStudio* Icona)
{
    return Icona->Tag().startsWith(PrefissoUtente);
}

/// Opens the target of a user's icon; nothing for a row that is gone.
void ApriCollegamento(int Riga)
{
    if (Riga >= 0 && Riga < IconeUtente.Righe())
        ApriDestinazione(IconeUtente(Riga, IconaCollegamento).toString());
}

/// How far an icon lies in the direction of an arrow; infinite when it lies elsewhere.
double Distanza(const QPoint& Da, const QPoint& A, int Tasto)
{
    const QPoint Via = A - Da;
    const bool Orizzontale = Tasto == Qt::Key_Left || Tasto == Qt::Key_Right;
    const int Avanti =
        (Orizzontale ? Via.x() : Via.y()) * (Tasto == Qt::Key_Left || Tasto == Qt::Key_Up ? -1 : 1);
    const int Lato = std::abs(Orizzontale ? Via.y() : Via.x());
    // Rows are a hundred pixels apart and a few off each other's columns.
    constexpr int StessaFila = 40;
    if (Avanti < StessaFila || (Orizzontale && Lato > StessaFila))
        return std::numeric_limits<double>::infinity();
    constexpr double PesoLato = 0.5;
    return Avanti + PesoLato * Lato;
}

/// The menu of a user's icon; the settings do what it offers.
void MenuIcona(const QPoint& Dove, int Riga)
{
    if (!Aperture.IconaPersonale)
        return;
    QMenu Tendina;
    Tendina.setObjectName(u"menuIcona"_s);
    const QAction* Modifica = Tendina.addAction(u"Modifica..."_s);
    const QAction* Elimina = Tendina.addAction(u"Elimina..."_s);
    const QAction* Scelta = Tendina.exec(Dove);
    if (Scelta == Modifica || Scelta == Elimina)
        Aperture.IconaPersonale(Riga, Scelta == Elimina);
}

}  // namespace

void frmStudio::CreaIconeFisse()
{
    const auto Fisse = ComandiDellaScrivania();
    for (const Comando* Riga : Fisse) {
        const QString Parola = Riga->Parola.toString();
        IconaStudio* Icona = NuovaIcona(Riga->Icona.Etichetta.toString(), Parola,
                                        PostoFisso(NumeroIcone(), int(Fisse.size())));
        Icona->ImpostaIcona(aspetto::Icona(Parola));
        MostraTasti(Icona, QKeySequence(Riga->Tasti.toString(), QKeySequence::PortableText));
    }
}

void frmStudio::UnSoloCarattere()
{
    // The label with the longest words rules the program's icons; one of the user's rules itself alone.
    int Pixel = QFontInfo(font()).pixelSize();
    for (const IconaStudio* Icona : Icone)
        if (!DiUtente(Icona))
            Pixel = std::min(Pixel, IconaStudio::AltezzaCarattere(font(), Icona->text(), Scala));
    for (IconaStudio* Icona : Icone)
        Icona->ImpostaAltezzaCarattere(
            DiUtente(Icona) ? std::min(Pixel, IconaStudio::AltezzaCarattere(font(), Icona->text(), Scala))
                            : Pixel);
}

void frmStudio::AbilitaIcone()
{
    for (IconaStudio* Icona : Icone) {
        if (DiUtente(Icona))
            continue;
        const QString Motivo = Impedimento(Icona->Tag());
        Icona->setEnabled(Motivo.isEmpty());
        Icona->setToolTip(Motivo.isEmpty() ? QString() : Icona->text() + u": "_s + Motivo);
    }
    // Without a site they show what the page of assistance says, and stand or fall with its command.
    const QString Motivo = Impedimento(u"assistenza");
    for (QToolButton* Marchio : {ui->imgMarvenna, ui->imgQB}) {
        Marchio->setEnabled(Motivo.isEmpty());
        Marchio->setToolTip(Marchio->text() + u": "_s + (Motivo.isEmpty() ? u"chi è"_s : Motivo));
    }
}

IconaStudio* frmStudio::NuovaIcona(const QString& Etichetta, const QString& Tag, const QPoint& Dove)
{
    const int Indice = NumeroIcone();
    auto* Icona = new IconaStudio(Etichetta, Tag, Scala, ui->quadro);
    Icona->setObjectName(u"imgMenu_"_s + QString::number(Indice));
    Icona->MettiImmagine(Dove);
    Icona->show();
    Icone.push_back(Icona);
    Collega(Icona, &IconaStudio::Puntata, this,
            [this, Indice](bool Sopra) { Menu(Sopra ? Indice : NessunaIcona); });
    Collega(Icona, &IconaStudio::Freccia, this, [this, Indice](int Tasto) { Sposta(Indice, Tasto); });
    Collega(Icona, &QAbstractButton::clicked, this, [this, Tag] { imgMenu_Click(Tag); });
    return Icona;
}

IconaStudio* frmStudio::imgMenu(int Indice) const
{
    return Indice >= 0 && Indice < NumeroIcone() ? Icone[size_t(Indice)] : nullptr;
}

void frmStudio::TogliIconeUtente()
{
    const auto Utente = std::stable_partition(Icone.begin(), Icone.end(),
                                              [](const IconaStudio* Icona) { return !DiUtente(Icona); });
    std::for_each(Utente, Icone.end(), [](IconaStudio* Icona) { delete Icona; });
    Icone.erase(Utente, Icone.end());
}

void frmStudio::LoadIconsFromIniFile()
{
    LeggiIconeUtente();
    for (int Riga = 0; Riga < IconeUtente.Righe(); ++Riga) {
        const QPoint Posto = PostoIcona(Riga);
        DrawNewIcon(IconeUtente(Riga, IconaTitolo).toString(),
                    IconeUtente(Riga, IconaCollegamento).toString(),
                    IconeUtente(Riga, IconaFigura).toString(), Riga, Posto.x(), Posto.y());
    }
}

void frmStudio::DrawNewIcon(const QString& Etichetta, const QString& Destinazione, const QString& Figura,
                            int Riga, int X, int Y)
{
    IconaStudio* Icona = NuovaIcona(Etichetta, PrefissoUtente + QString::number(Riga), {X, Y});
    // A picture that is gone, or is none, leaves the program's own drawing.
    Icona->ImpostaIcona(aspetto::Icona(ELink(Destinazione) ? u"link"_s : u"open"_s));
    Icona->ImpostaFigura(QPixmap(FileFigura(Figura)));
    Icona->setToolTip(u"Icona personale: "_s + Etichetta);
    Icona->setAccessibleDescription(Destinazione);
    Icona->setContextMenuPolicy(Qt::CustomContextMenu);
    Collega(Icona, &QWidget::customContextMenuRequested, this,
            [Icona, Riga](const QPoint& Dove) { MenuIcona(Icona->mapToGlobal(Dove), Riga); });
}

void frmStudio::imgMenu_Click(const QString& Tag)
{
    Clessidra(true);
    Protetta([&] {
        if (Tag.startsWith(PrefissoUtente))
            ApriCollegamento(Tag.mid(PrefissoUtente.size()).toInt());
        else if (!Tag.isEmpty())
            EseguiComando(Tag, 0, {});
    });
    Clessidra(false);
}

void frmStudio::Menu(int Indice)
{
    if (const IconaStudio* Icona = imgMenu(Indice); Icona && !Icona->isEnabled())
        return;  // what cannot be opened is not marked
    if (Indice == IconaMarcata)
        return;
    IconaMarcata = Indice;
    for (int i = 0; i < NumeroIcone(); ++i)
        Icone[size_t(i)]->Colora(
            aspetto::DaBgr(i == Indice ? sessione::ColoreEtichettaSel : sessione::ColoreEtichette),
            aspetto::DaBgr(sessione::ColoreEtichetteBordo), i == Indice);
}

void frmStudio::Sposta(int Da, int Tasto)
{
    int Meta = Da;
    if (Tasto == Qt::Key_Home || Tasto == Qt::Key_End) {
        Meta = Tasto == Qt::Key_Home ? 0 : NumeroIcone() - 1;
    } else {
        double Minima = std::numeric_limits<double>::infinity();
        for (int i = 0; i < NumeroIcone(); ++i) {
            if (!Icone[size_t(i)]->isEnabled())
                continue;
            const double Via = Distanza(Icone[size_t(Da)]->pos(), Icone[size_t(i)]->pos(), Tasto);
            if (Via < Minima) {
                Minima = Via;
                Meta = i;
            }
        }
    }
    Icone[size_t(Meta)]->setFocus(Qt::TabFocusReason);
    ui->areaQuadro->ensureWidgetVisible(Icone[size_t(Meta)], 0, 0);
}

void frmStudio::keyPressEvent(QKeyEvent* Evento)
{
    switch (Evento->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
        Sposta(0, Qt::Key_Home);
        break;
    case Qt::Key_End:
        Sposta(0, Qt::Key_End);
        break;
    default:
        QWidget::keyPressEvent(Evento);
    }
}
