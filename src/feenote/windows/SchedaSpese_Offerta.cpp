// The amount in force of an expense that the law fixes: offered beside the toolbar, taken by a click or a
// key.
#include "feenote/windows/SchedaSpese.h"

#include "feenote/modOfferte.h"
#include "feenote/windows/cornicenota.h"
#include "feenote/windows/rigaofferta.h"
#include "feenote/windows/ui_SchedaSpese.h"
#include "platform/base/regionale.h"
#include "platform/grid/griglia.h"
#include "platform/kit/annuncio.h"
#include "platform/kit/collega.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;

namespace {

QString TestoEsente(const ImportoDiLegge& Importo)
{
    return Format(Importo.Euro, ModelloImporto) + u" esente"_s;
}

/// Of a quantity that is not 1 one might think that it multiplies the amount.
QString NotaQuantita(const Parcella& Nota, std::optional<int> Riga)
{
    const double Quante = Riga ? NumeroDi(Nota.xDiritti(*Riga, DirQta)) : 0.0;
    return Quante == 0 || Quante == 1 ? QString()
                                      : u"Q.tà %1: l'importo è il totale della riga"_s.arg(CStr(Quante));
}

}  // namespace

void SchedaSpese::CollegaOfferta()
{
    ui->rigaOfferta->Ascolta(this);
    Collega(ui->rigaOfferta, &RigaOfferta::Accettata, this, [this] { AccettaOfferta(); });
    Collega(ui->tdbDir, &Griglia::RigaCambiata, this, [this] { RigaInMano(); });
}

std::optional<ImportoDiLegge> SchedaSpese::ImportoPer(int Riga) const
{
    const auto Giorno = LeggiData(CStr(Nota.xDiritti(Riga, DirData)));
    return ImportoOfferto(Nota, Riga, Giorno.value_or(Oggi()));
}

void SchedaSpese::OffriImporto(int Riga)
{
    const QString Inserita = u"Inserita: "_s + CStr(Nota.xDiritti(Riga, DirDescr));
    const auto Importo = ImportoPer(Riga);
    if (!Importo) {
        ui->rigaOfferta->Togli();
        AnnunciaTesto(this, Inserita);
        return;
    }
    MostraOfferta(Riga, *Importo);
    AnnunciaTesto(this, Inserita + u". "_s + TestoEsente(*Importo) + u": Ctrl+Invio"_s);
}

void SchedaSpese::MostraOfferta(int Riga, const ImportoDiLegge& Importo)
{
    Offerto = ImportoInOfferta{Nota.xDiritti.Chiave(Riga), Importo};
    QString Perche = u"Scrive l'importo in vigore fra le spese esenti ("_s + Importo.Norma + u')';
    if (!Importo.Nota.isEmpty())
        Perche += u'\n' + Importo.Nota;
    Perche += u'\n' + LimiteAnticipazione();
    ui->rigaOfferta->Offri(TestoEsente(Importo) + u": Ctrl+Invio ("_s + Importo.Norma + u')', Perche);
}

/// The line of the offer while it is in hand and has no amount yet.
std::optional<int> SchedaSpese::RigaInOfferta() const
{
    if (!Offerto || !ui->rigaOfferta->InOfferta())
        return std::nullopt;
    const auto Corrente = ui->tdbDir->RigaCorrente();
    const bool Sua = Corrente && *Corrente < Nota.xDiritti.Righe() &&
                     Nota.xDiritti.Chiave(*Corrente) == Offerto->Chiave && SenzaImporti(Nota, *Corrente);
    return Sua ? Corrente : std::nullopt;
}

void SchedaSpese::RigaInMano()
{
    SeguiRiga();
    const auto Corrente = ui->tdbDir->RigaCorrente();
    if (!isVisible() || !Corrente || *Corrente >= Nota.xDiritti.Righe())
        return;
    if (const auto Importo = ImportoPer(*Corrente))
        MostraOfferta(*Corrente, *Importo);
}

void SchedaSpese::SeguiRiga()
{
    if (ui->rigaOfferta->InOfferta()) {
        const auto Riga = RigaInOfferta();
        const auto Importo = Riga ? ImportoPer(*Riga) : std::nullopt;
        if (!Importo)
            ui->rigaOfferta->Togli();
        else if (*Importo != Offerto->Importo)  // its day is another one now
            MostraOfferta(*Riga, *Importo);
    }
    const auto Corrente = ui->tdbDir->RigaCorrente();
    ui->rigaOfferta->Annota(
        NotaQuantita(Nota, Corrente && *Corrente < Nota.xDiritti.Righe() ? Corrente : std::nullopt));
}

void SchedaSpese::AccettaOfferta()
{
    // What stands in the open cell is the user's own amount, and wins.
    if (!ui->tdbDir->Concludi())
        return;
    const auto Riga = RigaInOfferta();
    if (!Riga)
        return;
    const ImportoDiLegge Importo = Offerto->Importo;
    ui->rigaOfferta->Togli();
    AccettaImporto(Nota, *Riga, Importo);
    Cornice.CambiataDa(u"anticipazione esente"_s);
    ui->tdbDir->Rilega();
    Cornice.RefreshGrid();
    ui->tdbDir->ImpostaRigaCorrente(*Riga, DirEsente);
    ui->tdbDir->setFocus();
    AnnunciaTesto(this, TestoEsente(Importo));
}
