// How far the note has come: a button beside the banner, and what leads on.
#include "feenote/windows/frmParcelle.h"

#include "core/aperture.h"
#include "feenote/file/modSalvataggio.h"
#include "feenote/windows/ui_frmParcelle.h"
#include "platform/kit/collega.h"

#include <QActionGroup>
#include <QMenu>

using namespace Qt::StringLiterals;

void frmParcelle::CollegaStato()
{
    auto* Tendina = new QMenu(ui->cmdStato);
    auto* Scelte = new QActionGroup(Tendina);
    for (const StatoNota Stato : StatiNota) {
        QAction* Voce = Tendina->addAction(NomeStato(Stato));
        Voce->setObjectName(u"stato_"_s + NomeStato(Stato));
        Voce->setCheckable(true);
        Voce->setData(int(Stato));
        Scelte->addAction(Voce);
    }
    ui->cmdStato->setMenu(Tendina);
    Collega(Scelte, &QActionGroup::triggered, this, [this](const QAction* Voce) {
        if (!DialogoAperto && ScegliStato(Nota, StatoNota(Voce->data().toInt())))
            Cambiata();
        MostraStato();
    });
    MostraStato();
}

void frmParcelle::MostraStato()
{
    const StatoTenuto& Tenuto = Nota.Stato;
    const bool Noto = Tenuto.Stato != StatoNota::Ignoto;
    for (QAction* Voce : ui->cmdStato->menu()->actions())
        Voce->setChecked(Voce->data().toInt() == int(Tenuto.Stato));
    const QString Detto = u"Stato: "_s + (Noto ? NomeStato(Tenuto.Stato).toLower() : u"non noto"_s);
    ui->cmdStato->setText(Detto);
    ui->cmdStato->setAccessibleName(Detto);
    QString Frase = Noto ? QString() : u"È di una versione precedente: il suo stato non è noto.\n"_s;
    if (!Tenuto.Dal().isEmpty())
        Frase += NomeStato(Tenuto.Stato) + u" dal "_s + Tenuto.Dal() + u".\n"_s;
    ui->cmdStato->setToolTip(Frase + u"Segue la stampa o l'invio, il numero della fattura e gli acconti; "
                                     u"qui si può cambiare."_s);
}

void frmParcelle::CominciaNota(bool Salvata)
{
    Storia.Comincia(Nota, Salvata);
    AccontiVisti = CoperturaDi(Nota);
}

bool frmParcelle::RivediStato()
{
    const bool Cambiato = SegueStato(Nota, AccontiVisti);
    if (Cambiato)
        MostraStato();
    return Cambiato;
}

void frmParcelle::DocumentoUscito(int Tipo)
{
    const bool Intatta = !Nota.Modificata;
    if (NotaInviata(Nota, Tipo))
        SegueUscita(Intatta);
}

void frmParcelle::DocumentoUscitoPrima(const StatoTenuto& Stato)
{
    const bool Intatta = !Nota.Modificata;
    Nota.Stato = Stato;
    ::SetModificata(Nota, true);
    SegueUscita(Intatta);
}

void frmParcelle::SegueUscita(bool Intatta)
{
    if (!Intatta || !TieniStato())
        Cambiata();
    MostraStato();
}

bool frmParcelle::FatturaScritta(bool Intatta)
{
    const bool Tenuta = Intatta && Tieni(ScriviSoloFattura) == EsitoStato::Scritto;
    if (!Tenuta) {
        Cambiata();
        // Until the note is saved its recovery copy alone knows of the file, which is about to be there.
        (void)ScriviCopia();
    }
    MostraTutto();
    return Tenuta;
}

bool frmParcelle::FatturaNonScritta(const DatiFatturaXml& Prima, const StatoTenuto& Stato, bool Intatta,
                                    bool Tenuta)
{
    Nota.FatturaXml = Prima;
    Nota.Stato = Stato;
    const bool Ritirata = !Tenuta || Tieni(ScriviSoloFattura) == EsitoStato::Scritto;
    if (!Ritirata)
        ::SetModificata(Nota, true);
    else if (!Tenuta && Intatta)
        ::SetModificata(Nota, false);
    SetModificata(Nota.Modificata);
    CopiaInAttesa();
    MostraTutto();
    return Ritirata;
}

bool frmParcelle::TieniStato()
{
    const EsitoStato Esito = Tieni(ScriviSoloStato);
    if (Esito == EsitoStato::NonSiTiene)
        SegnaTenuta();
    return Esito != EsitoStato::Fallito;
}

EsitoStato frmParcelle::Tieni(ScritturaSola Scrivi)
{
    const EsitoStato Esito = Scrivi(Nota, [this] { return ImprontaMia == ImprontaDi(Nota.Percorso); });
    if (Esito == EsitoStato::Scritto) {
        ImprontaMia = ImprontaDi(Nota.Percorso);
        SegnaTenuta();
    }
    return Esito;
}

void frmParcelle::SegnaTenuta()
{
    Storia.Segna(Nota);
    Storia.SegnaSalvata(Nota);
    SetModificata(false);
    Invoca(Aperture.RinfrescaTrova);
}
