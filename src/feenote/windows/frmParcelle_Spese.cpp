// Tab 2: the catalogue of expenses and the lines whose amounts the user types.
#include "feenote/windows/frmParcelle.h"

#include "core/modErrori.h"
#include "feenote/modSpese.h"
#include "feenote/windows/barrarighe.h"
#include "feenote/windows/righegriglia.h"
#include "platform/grid/griglia.h"
#include "platform/kit/collega.h"
#include "ui_SchedaSpese.h"
#include "ui_frmParcelle.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

QList<ColonnaGriglia> ColonneSpese()
{
    return {ColonnaData(DirData), ColonnaDescrizione(DirDescr), ColonnaQuantita(DirQta),
            ColonnaImporto(u"Imponibili"_s, DirImponibile, true),
            ColonnaImporto(u"Esenti"_s, DirEsente, true)};
}

QList<ColonnaGriglia> ColonneCatalogo()
{
    ColonnaGriglia Descr;
    Descr.Titolo = u"Descrizione"_s;
    Descr.NomeCampo = u"DescrDir"_s;
    Descr.Stira = true;
    return {Descr};
}

}  // namespace

void frmParcelle::CollegaSpese()
{
    Griglia* Lista = uiSpese->tdbListaDir;
    Lista->ImpostaColonne(ColonneCatalogo());
    Lista->FraseVuota(u"Il catalogo delle spese non si può leggere: scriverle nella riga vuota qui sotto."_s);
    Collega(Lista, &Griglia::DoppioClic, this, [this](int Riga) { tdbListaDir_DblClick(Riga); });
    CollegaRicerca(
        uiSpese->txtCercaDir, Lista, [this] { return Voci.datDir; }, u"DescrDir"_s);

    Griglia* Righe = uiSpese->tdbDir;
    Righe->ImpostaColonne(ColonneSpese());
    Righe->Lega(&Nota.xDiritti);
    Righe->ConsentiNuove(true);
    Righe->FraseVuota(u"Fare doppio clic su una spesa del catalogo, poi scriverne l'importo."_s);
    Righe->Convalida = [](int, int Colonna, const QString& Testo) {
        return ConvalidaCella(ColonneSpese()[Colonna], Testo);
    };
    Righe->Valore = [](int, int Colonna, const QString& Testo) {
        return ValoreCella(ColonneSpese()[Colonna], Testo);
    };
    Collega(Righe, &Griglia::CellaScritta, this, [this] {
        SetModificata(true);
        RefreshGrid();
    });

    CollegaRighe(Righe, Nota.xDiritti);
    CollegaZone(ui->tabParcelle->widget(SchedaListaSpese), {uiSpese->txtCercaDir, Lista, Righe});
    ComandiBarra Comandi = ComandiRigheDi(Righe, Nota.xDiritti);
    Comandi.Inserisci = [this] { tdbListaDir_DblClick(uiSpese->tdbListaDir->RigaCorrente().value_or(-1)); };
    CostruisciBarraRighe(uiSpese->barListaOnoDir, this, Nota.InsUltimaDir, Comandi);
    SeguiBarra(Lista, uiSpese->barListaOnoDir, Righe);
}

void frmParcelle::EntraScheda2()
{
    // The catalogue of expenses comes with that of the honoraria; whoever skips that tab gets it here.
    if (!Voci.datDir.Aperto())
        Protetta([&] { Voci.datDir = ApriCatalogo({}, 0).datDir; });
    uiSpese->tdbListaDir->Lega(Voci.datDir);
}

void frmParcelle::tdbListaDir_DblClick(int Riga)
{
    if (!VaiARiga(Voci.datDir, Riga))
        return;
    Griglia* Righe = uiSpese->tdbDir;
    if (!Righe->Concludi())
        return;
    const int Inserita = InserisciSpesa(Nota, Voci, Righe->RigaCorrente());
    RigheMutate(Righe, Inserita);
    // The amount is the user's to write: the new line waits for it.
    Righe->ImpostaRigaCorrente(Inserita, DirImponibile);
    Righe->setFocus();
}

void frmParcelle::MostraSpese()
{
    uiSpese->tdbDir->Rilega();
}
