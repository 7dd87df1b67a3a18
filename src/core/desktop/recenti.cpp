#include "core/desktop/recenti.h"

#include "core/aperture.h"
#include "core/parametri.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/kit/collega.h"
#include "platform/system/aparte.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"

#include <QFontMetrics>
#include <QMenu>
#include <QScreen>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Property of the entries that MettiRecenti has put into a menu.
constexpr auto Recente = "recente";

/// A text as a menu shows it.
QString PerMenu(const QFontMetrics& Misure, const QString& Testo, int Larghezza)
{
    QString Corto = Misure.elidedText(Testo, Qt::ElideRight, Larghezza);
    Corto.replace(u'\t', u' ');
    return Corto.replace(u'&', u"&&"_s);
}

/// Who it is for, what it is and where it lies; a long name is cut first, so that a menu has room on any
/// screen.
QString ChiECosa(const QMenu* Tendina, const NotaRecente& Nota)
{
    constexpr int MassimoCaratteri = 70;
    constexpr int MinimoCaratteri = 12;
    constexpr double Parte = 0.4;  // of the screen; the amounts and the menu's own margins take the rest
    const QFontMetrics Misure(Tendina->font());
    const int Largo = Misure.averageCharWidth();
    const int Intera =
        std::min(Largo * MassimoCaratteri, int(Tendina->screen()->availableSize().width() * Parte));
    QStringList Resto;
    if (!Nota.Documento.isEmpty())
        Resto << PerMenu(Misure, Nota.Documento, Largo * MassimoCaratteri);
    Resto << PerMenu(Misure, CartellaRecente(Nota), Largo * 2 * MinimoCaratteri);
    const QString Coda = u", "_s + Resto.join(u", "_s);
    const int PerTitolo = std::max(Intera - Misure.horizontalAdvance(Coda), Largo * MinimoCaratteri);
    return PerMenu(Misure, TitoloRecente(Nota), PerTitolo) + Coda;
}

void AggiungiVoce(QMenu* Tendina, const NotaRecente& Nota, int Numero, bool (*Prima)())
{
    const QString Cifra = QString::number(Numero % MassimoRecenti);
    const QString Destra =
        u"%1 €   %2"_s.arg(Format(Nota.Netto, ModelloImporto), Nota.Data.toString(u"dd/MM/yyyy"_s));
    QAction* Voce = Tendina->addAction(u"&%1  %2\t%3"_s.arg(Cifra, ChiECosa(Tendina, Nota), Destra));
    Voce->setObjectName(u"recente_"_s + QString::number(Numero));
    Voce->setToolTip(Nota.Percorso);
    Voce->setProperty(Recente, true);
    Collega(Voce, &QAction::triggered, Tendina, [Nota, Prima] {
        if (!Prima || Prima())
            ApriRecente(Nota);
    });
}

/// The notes of the list as entries, or the words that there are none.
void AggiungiVoci(QMenu* Tendina, bool (*Prima)())
{
    const QList<NotaRecente> Note = NoteRecenti();
    int Numero = 0;
    for (const NotaRecente& Nota : Note)
        AggiungiVoce(Tendina, Nota, ++Numero, Prima);
    if (!Note.isEmpty())
        return;
    QAction* Nessuna = Tendina->addAction(u"Nessuna parcella recente"_s);
    Nessuna->setObjectName(u"recente_nessuna"_s);
    Nessuna->setProperty(Recente, true);
    Nessuna->setEnabled(false);
}

}  // namespace

void ApriRecente(const NotaRecente& Nota)
{
    const QString Cartella = CartellaFile(Nota.Percorso);
    const std::optional<bool> Trovata = EsisteFileEntro(Nota.Percorso);
    if (!Trovata) {
        MsgBox(u"La cartella %1 non risponde: la parcella %2 non si può aprire adesso."_s.arg(
                   Cartella, NomeRecente(Nota)),
               vbExclamation, TitoloAvvertenza.toString());
        return;
    }
    if (*Trovata) {
        Invoca(Aperture.MostraParcella, Nota.Percorso);
        return;
    }
    if (EsisteCartellaEntro(Cartella)) {
        // He has asked for the note, not to have its name gone: why that stays is told once, and behind it.
        QString Rifiuto;
        try {
            DimenticaSparita(Nota.Percorso);
        } catch (const Errore& Guasto) {
            Rifiuto = u'\n' + Guasto.Descrizione;
        }
        const QList<NotaRecente> Ora = NoteRecenti();
        // Damaged settings may look empty, and give the name back with the rest.
        const bool Resta = !FraseImpostazioniGuaste().isEmpty() ||
                           std::ranges::find(Ora, Nota.Percorso, &NotaRecente::Percorso) != Ora.end();
        MsgBox(u"La parcella %1 non si trova più nella cartella %2"_s.arg(NomeRecente(Nota), Cartella) +
                   (Resta ? u"."_s + Rifiuto : u"\ne non compare più tra le ultime."_s),
               vbExclamation, TitoloAvvertenza.toString());
        return;
    }
    if (MsgBox(u"La cartella %1 non si trova: la parcella %2 non si può aprire.\n"
               u"Togliere la parcella dalle ultime?"_s.arg(Cartella, NomeRecente(Nota)),
               vbYesNo + vbQuestion, TitoloDomanda.toString()) != vbYes)
        return;
    DimenticaRecente(Nota.Percorso);
}

void MettiRecenti(QMenu* Tendina, bool (*Prima)())
{
    Tendina->setToolTipsVisible(true);
    Collega(Tendina, &QMenu::aboutToShow, Tendina, [Tendina, Prima] {
        for (QAction* Voce : Tendina->actions())
            if (Voce->property(Recente).toBool())
                delete Voce;
        Tendina->addSeparator()->setProperty(Recente, true);
        AggiungiVoci(Tendina, Prima);
    });
}

void MostraMenuRecenti(QWidget* Sotto, bool (*Prima)())
{
    auto* Tendina = new QMenu(Sotto->window());
    Tendina->setObjectName(u"menuRecenti"_s);
    Tendina->setAttribute(Qt::WA_DeleteOnClose);
    Tendina->setToolTipsVisible(true);
    AggiungiVoci(Tendina, Prima);
    if (QAction* Primo = Tendina->actions().constFirst(); Primo->isEnabled())
        Tendina->setActiveAction(Primo);
    const QWidget* Finestra = Sotto->window();
    const QPoint Dove = Sotto->isVisible()
                            ? Sotto->mapToGlobal(QPoint(0, Sotto->height()))
                            : Finestra->mapToGlobal(Finestra->rect().center()) -
                                  QPoint(Tendina->sizeHint().width(), Tendina->sizeHint().height()) / 2;
    Tendina->popup(Dove);
}
