#include "feenote/barrarighe.h"

#include "platform/aspetto.h"
#include "platform/collega.h"
#include "platform/griglia.h"
#include "platform/messaggi.h"

#include <QAction>
#include <QActionGroup>
#include <QLineEdit>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

QAction* AggiungiTasto(QToolBar* Barra, const QString& Chiave, const QString& Suggerimento)
{
    QAction* Tasto = Barra->addAction(aspetto::Icona(Chiave), Suggerimento);
    Tasto->setObjectName(Chiave);
    return Tasto;
}

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

}  // namespace

void CostruisciBarraRighe(QToolBar* Barra, QWidget* Modulo, bool& InsUltima, std::function<void()> Inserisci)
{
    Barra->setIconSize({18, 18});
    QAction* Scelta = AggiungiTasto(Barra, u"select"_s, u"Inserisci la voce selezionata"_s);
    Collega(Scelta, &QAction::triggered, Barra, std::move(Inserisci));
    Barra->addSeparator();

    auto* Modi = new QActionGroup(Modulo);
    AggiungiModo(Barra, Modi, InsUltima, true, u"lastrow"_s, u"Inserisci nell'ultima riga"_s,
                 u"Le nuove prestazioni saranno inserite nell'ultima riga!"_s);
    AggiungiModo(Barra, Modi, InsUltima, false, u"currentrow"_s, u"Inserisci nella riga selezionata"_s,
                 u"Le nuove prestazioni saranno inserite nella riga selezionata!"_s);
}

bool VaiARiga(Recordset& Righe, int Riga)
{
    if (!Righe.Aperto() || Riga < 0 || Riga >= Righe.RecordCount())
        return false;
    Righe.MoveFirst();
    for (int i = 0; i < Riga; ++i)
        Righe.MoveNext();
    return true;
}

void CollegaRicerca(QLineEdit* Box, Griglia* Lista, std::function<Recordset()> Righe, const QString& Colonna)
{
    Collega(Box, &QLineEdit::textEdited, Lista, [Lista, Righe = std::move(Righe), Colonna](const QString& Testo) {
        Recordset Catalogo = Righe();
        if (!Catalogo.Aperto() || Testo.trimmed().isEmpty())
            return;
        Recordset Ricerca = Catalogo.Clone();
        int Riga = 0;
        for (Ricerca.MoveFirst(); !Ricerca.Eof(); Ricerca.MoveNext(), ++Riga) {
            if (Ricerca.Value(Colonna, QString()).toString().contains(Testo.trimmed(), Qt::CaseInsensitive)) {
                Lista->ImpostaRigaCorrente(Riga);
                return;
            }
        }
    });
}
