#include "feenote/windows/barrarighe.h"

#include "platform/grid/griglia.h"
#include "platform/kit/barra.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/system/messaggi.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QSplitter>
#include <QTableView>
#include <QToolBar>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A command of the toolbar, in its order.
struct TastoBarra
{
    QStringView Chiave;
    QStringView Suggerimento;
    std::function<void()> ComandiBarra::*Comando;
    bool Stacca = false;                     ///< a new group begins
    QAction* TastiRighe::*Tenuto = nullptr;  ///< where the button is kept
};

constexpr std::array TastiBarra{
    TastoBarra{u"select", u"Inserisce la voce selezionata", &ComandiBarra::Inserisci},
    TastoBarra{u"info", u"Scheda informativa della voce", &ComandiBarra::Informa},
    TastoBarra{u"variaz", u"Modifica l'importo tra minimo e massimo", &ComandiBarra::Varia, false,
               &TastiRighe::Varia},
    TastoBarra{u"taglia", u"Taglia le righe selezionate (Ctrl+X)", &ComandiBarra::Taglia, true},
    TastoBarra{u"copia", u"Copia le righe selezionate (Ctrl+C)", &ComandiBarra::Copia},
    TastoBarra{u"incolla", u"Incolla le righe copiate o tagliate (Ctrl+V)", &ComandiBarra::Incolla, false,
               &TastiRighe::Incolla},
    TastoBarra{u"annulla", u"Rimette le righe tagliate (Ctrl+Z)", &ComandiBarra::Annulla, false,
               &TastiRighe::Annulla},
    TastoBarra{u"help", u"Guida contestuale", &ComandiBarra::Aiuto, true, &TastiRighe::Aiuto},
};

/// One of the two radio-like buttons of the insertion mode.
void AggiungiModo(QToolBar* Barra, QActionGroup* Modi, bool& InsUltima, bool Ultima, const QString& Chiave,
                  const QString& Suggerimento, const QString& Annuncio)
{
    QAction* Tasto = AggiungiTasto(Barra, Chiave, Suggerimento);
    Tasto->setCheckable(true);
    Tasto->setChecked(InsUltima == Ultima);
    Modi->addAction(Tasto);
    Collega(Tasto, &QAction::triggered, Barra, [&InsUltima, Ultima, Annuncio] {
        InsUltima = Ultima;
        MsgBox(Annuncio, vbExclamation, TitoloAvvertenza.toString());
    });
}

/// The down arrow of a search box goes to the list.
class FrecciaGiu : public QObject
{
public:
    FrecciaGiu(QLineEdit* Box, Griglia* Elenco) : QObject(Box), Lista(Elenco)
    {
        Box->installEventFilter(this);
    }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        const bool Giu =
            Evento->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(Evento)->key() == Qt::Key_Down;
        if (Giu)
            Lista->setFocus(Qt::TabFocusReason);
        return Giu || QObject::eventFilter(Oggetto, Evento);
    }

private:
    Griglia* Lista;
};

/// The place that follows the one with the focus, or precedes it; hidden ones are passed over.
QWidget* ZonaAccanto(const QList<QWidget*>& Zone, bool Avanti)
{
    constexpr qsizetype Catalogo = 1;
    const QWidget* Fuoco = QApplication::focusWidget();
    qsizetype Posto = Avanti ? Catalogo : Catalogo + 1;  // as from a place between the lists
    for (qsizetype i = 0; i < Zone.size(); ++i)
        if (Zone[i] == Fuoco || Zone[i]->isAncestorOf(Fuoco))
            Posto = i;
    const qsizetype Passo = Avanti ? 1 : Zone.size() - 1;
    do
        Posto = (Posto + Passo) % Zone.size();
    while (!Zone[Posto]->isVisible());
    return Zone[Posto];
}

}  // namespace

TastiRighe CostruisciBarraRighe(QToolBar* Barra, bool& InsUltima, const ComandiBarra& Comandi)
{
    TastiRighe Tenuti;
    Barra->setIconSize({18, 18});
    for (const TastoBarra& Descritto : TastiBarra) {
        const auto& Comando = Comandi.*Descritto.Comando;
        if (!Comando)
            continue;
        if (Descritto.Stacca)
            Barra->addSeparator();
        QAction* Tasto = AggiungiTasto(Barra, Descritto.Chiave.toString(), Descritto.Suggerimento.toString());
        Collega(Tasto, &QAction::triggered, Barra, [Comando] {
            if (ConcludiCampo())
                Comando();
        });
        if (Descritto.Tenuto)
            Tenuti.*Descritto.Tenuto = Tasto;
    }
    Barra->addSeparator();

    auto* Modi = new QActionGroup(Barra);
    AggiungiModo(Barra, Modi, InsUltima, true, u"lastrow"_s, u"Inserisce nell'ultima riga"_s,
                 u"Le nuove prestazioni saranno inserite nell'ultima riga!"_s);
    AggiungiModo(Barra, Modi, InsUltima, false, u"currentrow"_s, u"Inserisce nella riga selezionata"_s,
                 u"Le nuove prestazioni saranno inserite nella riga selezionata!"_s);
    return Tenuti;
}

void SeguiBarra(const Griglia* Prima, const QToolBar* Barra, const Griglia* Dopo)
{
    QWidget* Precedente = Prima->Vista();
    for (QAction* Tasto : Barra->actions()) {
        if (Tasto->isSeparator())
            continue;
        QWidget::setTabOrder(Precedente, Barra->widgetForAction(Tasto));
        Precedente = Barra->widgetForAction(Tasto);
    }
    QWidget::setTabOrder(Precedente, Dopo->Vista());
}

void CollegaZone(QWidget* Pagina, const QList<QWidget*>& Zone)
{
    for (const bool Avanti : {true, false}) {
        auto* Scorciatoia =
            new QShortcut(QKeySequence((Avanti ? Qt::NoModifier : Qt::ShiftModifier) | Qt::Key_F6), Pagina);
        Scorciatoia->setContext(Qt::WidgetWithChildrenShortcut);
        Collega(Scorciatoia, &QShortcut::activated, Pagina, [Zone, Avanti] {
            if (ConcludiCampo())
                ZonaAccanto(Zone, Avanti)->setFocus(Avanti ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        });
    }
}

void DividiLista(QSplitter* Divisore)
{
    Divisore->setSizes({1000, 2000});
    Divisore->setStretchFactor(0, 1);
    Divisore->setStretchFactor(1, 2);
    // In a low window a row of the catalogue and one of the lines stay on view, and the totals and the bar
    // below them have room of their own: the bar too while it is not there, or the splitter would move with
    // it.
    for (const int Parte : {0, 1})
        if (auto* Elenco = Divisore->widget(Parte)->findChild<Griglia*>()) {
            QTableView* Vista = Elenco->Vista();
            Vista->setMinimumHeight(Vista->horizontalHeader()->sizeHint().height() + 2 * Vista->frameWidth() +
                                    Vista->verticalHeader()->defaultSectionSize());
            if (Parte == 1)
                Elenco->setMinimumHeight(Elenco->AltezzaConTotali());
        }
}

bool VaiARiga(Recordset& Righe, int Riga)
{
    if (!Righe.Aperto() || Riga < 0 || Riga >= Righe.RecordCount())
        return false;
    Righe.ImpostaAbsolutePosition(Riga);
    return true;
}

void CollegaRicerca(QLineEdit* Box, Griglia* Lista, std::function<Recordset()> Righe, const QString& Colonna)
{
    FiltraTasti(Box, {});
    new FrecciaGiu(Box, Lista);
    // A letter typed on the catalogue begins another search; those that follow find the box with the focus.
    Lista->CercaLettere = [Box](const QString& Lettere) {
        Box->setFocus(Qt::OtherFocusReason);
        Box->selectAll();
        Box->insert(Lettere);
    };
    Collega(Box, &QLineEdit::textEdited, Lista,
            [Lista, Righe = std::move(Righe), Colonna](const QString& Testo) {
                Recordset Catalogo = Righe();
                if (!Catalogo.Aperto() || Testo.trimmed().isEmpty())
                    return;
                Recordset Ricerca = Catalogo.Clone();
                int Riga = 0;
                for (Ricerca.MoveFirst(); !Ricerca.Eof(); Ricerca.MoveNext(), ++Riga) {
                    if (Ricerca.Value(Colonna, QString())
                            .toString()
                            .contains(Testo.trimmed(), Qt::CaseInsensitive)) {
                        Lista->ImpostaRigaCorrente(Riga);
                        return;
                    }
                }
            });
}
