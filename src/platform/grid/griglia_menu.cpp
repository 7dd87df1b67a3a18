#include "platform/grid/griglia_menu.h"

#include "platform/grid/griglia.h"
#include "platform/grid/griglia_cella.h"
#include "platform/grid/griglia_modello.h"
#include "platform/grid/griglia_selettore.h"
#include "platform/grid/griglia_vista.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct VoceComando
{
    QStringView Nome;  ///< of the action and of its picture
    QStringView Testo;
    QKeySequence::StandardKey Tasti;
    ComandoRighe Quale;
    bool DiRighe;  ///< wants rows to work on
};

constexpr std::array VociComandi{
    VoceComando{u"taglia", u"Taglia le righe", QKeySequence::Cut, ComandoRighe::Taglia, true},
    VoceComando{u"copia", u"Copia le righe", QKeySequence::Copy, ComandoRighe::Copia, true},
    VoceComando{u"incolla", u"Incolla le righe", QKeySequence::Paste, ComandoRighe::Incolla, false},
    VoceComando{u"annulla", u"Rimetti le righe tagliate", QKeySequence::Undo, ComandoRighe::Annulla, false},
};

/// The grid takes the key itself; the menu names it.
QString ConTasti(QStringView Testo, const QKeySequence& Tasti)
{
    return Testo.toString() + u'\t' + Tasti.toString(QKeySequence::NativeText);
}

class MenuRighe : public QMenu
{
public:
    MenuRighe(Griglia* Intera, VistaGriglia* DiVista) : QMenu(DiVista), Padrona(Intera), Vista(DiVista)
    {
        setObjectName(u"menuRighe"_s);
        setAttribute(Qt::WA_DeleteOnClose);
    }

    void AggiungiComandi()
    {
        const bool ConRighe = !Vista->Selettore()->Vuoto();
        for (const VoceComando& Voce : VociComandi) {
            QAction* Azione =
                addAction(aspetto::Icona(Voce.Nome.toString()), ConTasti(Voce.Testo, Voce.Tasti));
            Azione->setObjectName(Voce.Nome.toString());
            const bool Possibile = !Padrona->ComandoPossibile || Padrona->ComandoPossibile(Voce.Quale);
            Azione->setEnabled(Possibile && (ConRighe || !Voce.DiRighe));
            Collega(Azione, &QAction::triggered, Padrona,
                    [Grid = Padrona, Quale = Voce.Quale] { Q_EMIT Grid->Comando(Quale); });
        }
    }

    void AggiungiCancella()
    {
        QAction* Azione = addAction(ConTasti(u"Elimina le righe", QKeySequence(Qt::Key_Delete)));
        Azione->setObjectName(u"elimina"_s);
        Azione->setEnabled(!Vista->Selettore()->Vuoto());
        Collega(Azione, &QAction::triggered, Padrona, [Grid = Padrona] { Q_EMIT Grid->Cancella(); });
    }

    void AggiungiNuova()
    {
        QAction* Azione = addAction(u"Scrivi una nuova riga"_s);
        Azione->setObjectName(u"nuova"_s);
        Collega(Azione, &QAction::triggered, Padrona, [Griglia = Vista] { Griglia->IniziaRiga(); });
    }

    void AggiungiTesto(bool CopiaIlTesto)
    {
        QAction* Copia = addAction(CopiaIlTesto ? ConTasti(u"Copia il testo della cella", QKeySequence::Copy)
                                                : u"Copia il testo della cella"_s);
        Copia->setObjectName(u"copiaTesto"_s);
        const QString Testo = Vista->currentIndex().data().toString();
        Copia->setEnabled(!Testo.isEmpty());
        Collega(Copia, &QAction::triggered, Padrona, [Testo] { QApplication::clipboard()->setText(Testo); });
        QAction* Tutte = addAction(ConTasti(u"Seleziona tutte le righe", QKeySequence::SelectAll));
        Tutte->setObjectName(u"tutte"_s);
        Tutte->setEnabled(Vista->Modello()->RigheVere() > 0);
        Collega(Tutte, &QAction::triggered, Padrona,
                [Griglia = Vista] { Griglia->Selettore()->TuttaLaTabella(); });
    }

private:
    Griglia* Padrona;
    VistaGriglia* Vista;
};

}  // namespace

void ApriMenuRighe(Griglia* Padrona, VistaGriglia* Vista, int Riga, const QPoint& Punto,
                   const OffertaMenu& Offerta)
{
    SelettoreRighe* Selettore = Vista->Selettore();
    const bool DiRighe = Offerta.Comandi || Offerta.Cancella;
    if (DiRighe && Riga >= 0 && !Selettore->Scelta(Riga))
        Selettore->ScegliSola(Riga);
    auto* Menu = new MenuRighe(Padrona, Vista);
    if (Offerta.Comandi)
        Menu->AggiungiComandi();
    if (Offerta.Cancella)
        Menu->AggiungiCancella();
    if (Offerta.Nuove)
        Menu->AggiungiNuova();
    if (!Menu->isEmpty())
        Menu->addSeparator();
    Menu->AggiungiTesto(!Offerta.Comandi || Selettore->Vuoto());
    Menu->popup(Punto);
}
