#include "core/desktop/recenti.h"

#include "core/aperture.h"
#include "platform/base/regionale.h"
#include "platform/kit/collega.h"
#include "platform/system/aparte.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"

#include <QFontMetrics>
#include <QMenu>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// Property of the entries that MettiRecenti has put into a menu.
constexpr auto Recente = "recente";

/// A text as a menu shows it, of bounded width.
QString PerMenu(const QMenu* Tendina, const QString& Testo)
{
    constexpr int MassimoCaratteri = 48;
    const QFontMetrics Misure(Tendina->font());
    QString Corto = Misure.elidedText(Testo, Qt::ElideRight, Misure.averageCharWidth() * MassimoCaratteri);
    Corto.replace(u'\t', u' ');
    return Corto.replace(u'&', u"&&"_s);
}

/// Who it is for and what it is; the client where the name of the note does not say him.
QString ChiECosa(const NotaRecente& Nota)
{
    const QString Nome = NomeRecente(Nota);
    QStringList Parti{Nome};
    if (!Nota.Cliente.isEmpty() && !Nome.contains(Nota.Cliente, Qt::CaseInsensitive))
        Parti += Nota.Cliente;
    if (!Nota.Documento.isEmpty())
        Parti += Nota.Documento;
    return Parti.join(u", "_s);
}

void AggiungiVoce(QMenu* Tendina, const NotaRecente& Nota, int Numero, bool (*Prima)())
{
    const QString Cifra = QString::number(Numero % MassimoRecenti);
    const QString Destra =
        u"%1 €   %2   %3"_s.arg(Format(Nota.Netto, u"#,##0.00"), Nota.Data.toString(u"dd/MM/yyyy"_s),
                                PerMenu(Tendina, CartellaRecente(Nota)));
    QAction* Voce = Tendina->addAction(u"&%1  %2\t%3"_s.arg(Cifra, PerMenu(Tendina, ChiECosa(Nota)), Destra));
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
        if (Aperture.MostraParcella)
            Aperture.MostraParcella(Nota.Percorso);
        return;
    }
    if (EsisteCartellaEntro(Cartella)) {
        DimenticaRecente(Nota.Percorso);
        MsgBox(u"La parcella %1 non si trova più nella cartella %2\ne non compare più tra le ultime."_s.arg(
                   NomeRecente(Nota), Cartella),
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
