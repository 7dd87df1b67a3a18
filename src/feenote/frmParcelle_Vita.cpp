// Life of the window: new, load, save, protect, close.
#include "feenote/frmParcelle.h"

#include "core/comandi.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "feenote/finestre.h"
#include "feenote/modDocumento.h"
#include "feenote/modFile.h"
#include "feenote/modOnorari.h"
#include "feenote/modSalvataggio.h"
#include "platform/campo.h"
#include "platform/messaggi.h"
#include "platform/percorsi.h"

#include <QCloseEvent>

using namespace Qt::StringLiterals;

void frmParcelle::Nuova(const QString& ID)
{
    NuovaParcella(Nota, ID);
    Voci = {};
    CambioScheda = true;
    VaiAllaScheda(SchedaBase);
    CambioScheda = false;
    SetModificata(false);
    Mostra();
}

void frmParcelle::Carica(const QString& Percorso)
{
    Protetta([&] { CaricaDati(Nota, Percorso); });
    Voci = {};
    CambioScheda = true;
    VaiAllaScheda(SchedaBase);
    CambioScheda = false;
    SetModificata(false);
    Mostra();
}

bool frmParcelle::SalvaParcella(bool ComeModello)
{
    if (!ConcludiCampo())
        return false;
    try {
        const std::optional<QString> Scritta = SalvaConDialogo(Nota, ComeModello);
        if (!Scritta)
            return false;
        InfoParcelle[size_t(Posto)].Nome = Nota.Nome;
        setWindowTitle(Nota.Nome);
        SetModificata(false);
        Mostra();
        return true;
    } catch (const Errore& Guasto) {
        MsgErrore(u"Codice errore: %1\n%2"_s.arg(Guasto.Numero).arg(Guasto.Descrizione));
        return false;
    }
}

void frmParcelle::Proteggi()
{
    ProteggiNota(Nota);
    SetModificata(Nota.Modificata);
    Mostra();
}

bool frmParcelle::ChiediChiusura()
{
    if (!Nota.Modificata)
        return true;
    const int Risposta = MsgBox(windowTitle() + u"\nVuoi salvare la parcella prima di chiudere?"_s,
                                vbYesNoCancel + vbQuestion, TitoloDomanda.toString());
    if (Risposta == vbNo)
        return true;
    if (Risposta != vbYes)
        return false;
    SalvaParcella(false);
    return !Nota.Modificata;  // a save that was cancelled or refused keeps the note on screen
}

void frmParcelle::Scarica()
{
    Nota.Modificata = false;
    Voci = {};
    InfoParcelle[size_t(Posto)].Libera = true;
    InfoParcelle[size_t(Posto)].Modificata = false;
}

void frmParcelle::SetModificata(bool Valore)
{
    ::SetModificata(Nota, Valore);
    InfoParcelle[size_t(Posto)].Modificata = Valore;
    MostraSegni();
}

void frmParcelle::closeEvent(QCloseEvent* Evento)
{
    Evento->setAccepted(Aperture.ChiudiParcella ? Aperture.ChiudiParcella(Posto) : ChiediChiusura());
}
