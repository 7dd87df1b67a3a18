#include "feenote/windows/SchedaOnorari.h"

#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "feenote/modControlliNota.h"
#include "feenote/modOnorari.h"
#include "feenote/modTotali.h"
#include "feenote/modVariazione.h"
#include "feenote/windows/PannelloModOno.h"
#include "feenote/windows/barrarighe.h"
#include "feenote/windows/casellenota.h"
#include "feenote/windows/comandirighe.h"
#include "feenote/windows/cornicenota.h"
#include "feenote/windows/righegriglia.h"
#include "feenote/windows/ui_SchedaOnorari.h"
#include "platform/base/regionale.h"
#include "platform/grid/griglia.h"
#include "platform/kit/annuncio.h"
#include "platform/kit/collega.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QAction>
#include <QHelpEvent>
#include <QTableView>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

/// Columns of the grid by the columns of the lines; the hidden ones have no place in it.
QList<ColonnaGriglia> ColonneOnorari(const TabellaRighe* Righe)
{
    ColonnaGriglia Quantita = ColonnaQuantita(OnoQta);
    Quantita.Visibile = false;  // until an item asks for one
    ColonnaGriglia Importo = ColonnaImporto(u"Importo"_s, OnoImporto, true);
    Importo.Segno = [Righe](int Riga) { return FraseLimite(*Righe, Riga); };
    return {ColonnaData(OnoData),
            ColonnaDescrizione(OnoDescr),
            Quantita,
            Importo,
            ColonnaImporto(u"Medio"_s, OnoMedio, false),
            ColonnaImporto(u"Min."_s, OnoMin, false),
            ColonnaImporto(u"Max"_s, OnoMax, false)};
}

QList<ColonnaGriglia> ColonneCatalogoOnorari()
{
    ColonnaGriglia Voce;
    Voce.Titolo = u"Voce"_s;
    Voce.NomeCampo = u"NVoce"_s;
    Voce.Caratteri = 6;
    Voce.Allinea = Qt::AlignRight;
    ColonnaGriglia Descr;
    Descr.Titolo = u"Descrizione"_s;
    Descr.NomeCampo = u"DescrOno"_s;
    Descr.Stira = true;
    return {Voce, Descr};
}

constexpr QStringView TitoloNota = u"KR5 - Scheda informativa prestazione";

/// A line outside the tariff has no range of its own: it follows the typed amount.
bool SenzaTariffa(const TabellaRighe& Righe, int Riga)
{
    const double NVoce = NumeroDi(Righe(Riga, OnoNVoce));
    return NVoce == 0 || NVoce == VoceLibera;
}

/// Says over a catalogue row how to see its sheet.
class SuggerimentoVoce : public QObject
{
public:
    SuggerimentoVoce(Griglia* Elenco, std::function<Recordset()> Righe)
        : QObject(Elenco), Vista(Elenco->Vista()), Catalogo(std::move(Righe))
    {
        Vista->viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        if (Evento->type() != QEvent::ToolTip)
            return QObject::eventFilter(Oggetto, Evento);
        const auto* Aiuto = static_cast<QHelpEvent*>(Evento);
        QToolTip::showText(Aiuto->globalPos(), Testo(Vista->rowAt(Aiuto->pos().y())), Vista);
        return true;
    }

    [[nodiscard]] QString Testo(int Riga) const
    {
        Recordset Voce = Catalogo();
        if (!Voce.Aperto())
            return {};
        Voce = Voce.Clone();
        if (!VaiARiga(Voce, Riga))
            return {};
        return u" Per visualizzare la scheda informativa di\n"_s +
               Voce.Value(u"DescrOno"_s, QString()).toString() +
               u"\n selezionare la voce e cliccare sul pulsante Info"_s;
    }

private:
    QTableView* Vista;
    std::function<Recordset()> Catalogo;
};

}  // namespace

SchedaOnorari::SchedaOnorari(Parcella& Dati, RigheInComune& Condivise, CorniceNota& Finestra, QWidget* Padre)
    : QWidget(Padre), Nota(Dati), Comune(Condivise), Cornice(Finestra),
      ui(std::make_unique<Ui::SchedaOnorari>())
{
    ui->setupUi(this);
    Pannello = new PannelloModOno(Nota, this);
    ui->colonnaLista->addWidget(Pannello);
    CollegaCatalogo();
    CollegaRighe();
    CollegaBarra();
    CollegaPannello();
    CollegaZone(this, {ui->txtCercaOno, ui->tdbListaOno, ui->tdbOnor, Pannello});
    DividiLista(ui->divisoreOno);
}

SchedaOnorari::~SchedaOnorari() = default;

void SchedaOnorari::CollegaCatalogo()
{
    Griglia* Lista = ui->tdbListaOno;
    Lista->ImpostaColonne(ColonneCatalogoOnorari());
    Lista->FraseVuota(
        u"Scegliere categoria, autorità e valore nei dati base: qui compaiono le voci della tariffa."_s);
    Collega(Lista, &Griglia::DoppioClic, this, &SchedaOnorari::tdbListaOno_DblClick);
    Collega(Lista, &Griglia::MenuContestuale, this, [this](int Riga) { ShowNota(Riga); });
    Collega(Lista, &Griglia::RigaCambiata, this, &SchedaOnorari::SeguiNota);
    const auto Righe = [this] { return Comune.Voci.datOno; };
    CollegaRicerca(ui->txtCercaOno, Lista, Righe, u"DescrOno"_s);
    new SuggerimentoVoce(Lista, Righe);
}

void SchedaOnorari::CollegaRighe()
{
    Griglia* Righe = ui->tdbOnor;
    Righe->ImpostaColonne(ColonneOnorari(&Nota.xOnorari));
    Righe->Lega(&Nota.xOnorari);
    Righe->ConsentiNuove(true);
    Righe->FraseVuota(u"Fare doppio clic su una voce del catalogo per inserirla."_s);
    Righe->NuovaRiga = [this](int Riga) { Nota.xOnorari(Riga, OnoQta) = 1.0; };
    Collega(Righe, &Griglia::CellaScritta, this, &SchedaOnorari::tdbOnor_CellaScritta);
}

void SchedaOnorari::CollegaBarra()
{
    Comandi = new ComandiRighe(ui->tdbOnor, TipoRiga::Onorari, Nota, Comune, Cornice);
    const auto VoceCorrente = [this] { return ui->tdbListaOno->RigaCorrente().value_or(-1); };
    ComandiBarra DellaPagina;
    DellaPagina.Inserisci = [=, this] { tdbListaOno_DblClick(VoceCorrente()); };
    DellaPagina.Informa = [=, this] { ShowNota(VoceCorrente()); };
    DellaPagina.Varia = [this] { AbilitaModOno(!Pannello->Aperto()); };
    QAction* Varia = Comandi->CostruisciBarra(ui->barListaOnoDir, DellaPagina).Varia;
    Varia->setCheckable(true);
    Collega(Pannello, &PannelloModOno::Mostrato, Varia, &QAction::setChecked);
    // Behind the command: a cell that refuses to be left releases the button too.
    Collega(Varia, &QAction::triggered, Pannello, [this] { Pannello->Mostra(); });
    SeguiBarra(ui->tdbListaOno, ui->barListaOnoDir, ui->tdbOnor);
}

void SchedaOnorari::CollegaPannello()
{
    Collega(Pannello, &PannelloModOno::ConfermaChiesta, this, &SchedaOnorari::cmdModOno_Click);
    Collega(Pannello, &PannelloModOno::Rinunciato, this, &SchedaOnorari::cmdAnnModOno_Click);
    Collega(Pannello, &PannelloModOno::Mostrato, this, &SchedaOnorari::StringiImporti);
    Collega(Comandi, &ComandiRighe::Mutate, this, [this] { Pannello->Rinfresca(RigaCorrente()); });
    Collega(ui->tdbOnor, &Griglia::RigaCambiata, this, [this] {
        if (Pannello->Aperto())
            ui->tdbListaOno->TogliEvidenza();
        Pannello->SeguiRiga(RigaCorrente());
    });
}

/// Beside the panel the amounts are as narrow as they can be, so that minimum and maximum stay in view;
/// widths that the user has given are his.
void SchedaOnorari::StringiImporti(bool Si)
{
    Griglia* Righe = ui->tdbOnor;
    if (Si && !Righe->ColonneMosse()) {
        if (LarghezzeIntere.isEmpty())
            LarghezzeIntere = Righe->Larghezze();
        Righe->StringiAlContenuto({OnoImporto, OnoMedio, OnoMin, OnoMax});
    } else if (!Si && !LarghezzeIntere.isEmpty()) {
        if (!Righe->ColonneMosse())
            Righe->ImpostaLarghezze(LarghezzeIntere);
        LarghezzeIntere.clear();
    }
}

std::optional<int> SchedaOnorari::RigaCorrente() const
{
    return ui->tdbOnor->RigaCorrente();
}

void SchedaOnorari::Entra()
{
    SvuotaAppunti(Comune.Copiate);
    Pannello->Chiudi();
    Protetta([&] { (void)EntraOnorari(Nota, Comune.Voci); });
    Cornice.Cambiata();  // as the lines that came or were recalculated have left the mark
    const auto DelCatalogo = std::pair(Nota.CodCateg, Nota.IDAutSelezionata());
    if (std::exchange(CatalogoCercato, DelCatalogo) != DelCatalogo)
        ui->txtCercaOno->clear();  // what was looked for in another catalogue
    ui->tdbListaOno->Lega(Comune.Voci.datOno);
    // The row's number may be the same as before, and the item another.
    SeguiNota(ui->tdbListaOno->RigaCorrente().value_or(-1));
    ui->lblAumRidOno->setText(TestoAumRidOno(Nota));
    ui->lblAumRidOno->setToolTip(SuggerimentoAumRidOno(Nota));
}

void SchedaOnorari::RigheRimesse()
{
    ui->tdbOnor->AzzeraSelezione();
    Pannello->Chiudi();
}

void SchedaOnorari::NuovaNota()
{
    ui->txtCercaOno->clear();
    ui->tdbListaOno->Lega(Comune.Voci.datOno);
    ui->tdbOnor->Lega(&Nota.xOnorari);
    ui->tdbOnor->MostraColonna(OnoQta, false);
    Pannello->Chiudi();
}

void SchedaOnorari::tdbListaOno_DblClick(int Riga)
{
    if (!VaiARiga(Comune.Voci.datOno, Riga))
        return;
    Griglia* Righe = ui->tdbOnor;
    if (!Righe->Concludi())
        return;
    const std::optional<int> Inserita = InserisciOnorario(Nota, Comune.Voci, RigaCorrente());
    if (!Inserita)
        return;
    if (!Comune.Voci.datOno.Value(u"QtaOno"_s, QString()).toString().isEmpty())
        Righe->MostraColonna(OnoQta, true);
    // The new line is current and, where the lines reach that far, the first on view; the catalogue keeps its
    // row.
    Comandi->RigheMutate(*Inserita);
    Righe->ImpostaPrimaRiga(*Inserita);
    AnnunciaTesto(this,
                  u"Inserito: %1, %2"_s.arg(CStr(Nota.xOnorari(*Inserita, OnoDescr)),
                                            TestoImporto(NumeroDi(Nota.xOnorari(*Inserita, OnoImporto)))));
}

void SchedaOnorari::tdbOnor_CellaScritta(int Riga, int Colonna)
{
    TabellaRighe& Tabella = Nota.xOnorari;
    if (Colonna == OnoImporto && SenzaTariffa(Tabella, Riga))
        for (const int Altra : {OnoMedio, OnoMin, OnoMax})
            Tabella(Riga, Altra) = Tabella(Riga, OnoImporto);
    SetModificata(Nota, true);
    Cornice.Cambiata();
    ui->tdbOnor->Rilega();
    Pannello->Ricarica();
    Cornice.RefreshGrid();
}

QString SchedaOnorari::PaginaNota(int Riga) const
{
    const Catalogo& Voci = Comune.Voci;
    if (!Voci.datOno.Aperto())
        return {};
    Recordset Voce = Voci.datOno.Clone();
    if (!VaiARiga(Voce, Riga))
        return {};
    const QString Cartella = sessione::PercorsoProg + Barra(Nota.Tariffa->Schede.toString());
    const QString Pagina = TrovaFile(Cartella + FileScheda(Nota.CodCateg, Voce.Value(Voci.ChiaveOno)));
    if (!EsisteFile(Pagina))
        return Cartella + u"blank.htm"_s;
    // A civil sheet has a table for each group of courts: it opens at the one of the note.
    return Nota.CodCateg == Civile ? Pagina + u"#a%1"_s.arg(Nota.IDAutSelezionata()) : Pagina;
}

void SchedaOnorari::ShowNota(int Riga)
{
    const QString Pagina = PaginaNota(Riga);
    if (!Pagina.isEmpty() && Aperture.PaginaWeb)
        Aperture.PaginaWeb(Pagina, TitoloNota.toString());
}

void SchedaOnorari::SeguiNota(int Riga)
{
    const QString Pagina = PaginaNota(Riga);
    if (!Pagina.isEmpty() && Aperture.PaginaSegue)
        Aperture.PaginaSegue(Pagina, TitoloNota.toString());
}

void SchedaOnorari::AbilitaModOno(bool Si)
{
    const bool Dentro = Pannello->isAncestorOf(focusWidget());
    if (Si) {
        ui->tdbListaOno->TogliEvidenza();
        Pannello->Apri(RigaCorrente());
    } else {
        Pannello->Chiudi();
    }
    if (Pannello->Aperto())
        Pannello->setFocus();
    else if (Dentro)
        ui->tdbOnor->setFocus();
}

void SchedaOnorari::cmdModOno_Click()
{
    const bool Tutti = Pannello->Tutti();
    if (!ui->tdbOnor->Concludi() || !Pannello->Conferma())
        return;
    if (Tutti)
        ui->tdbOnor->AzzeraSelezione();
    SetModificata(Nota, true);
    Cornice.Cambiata();
    AbilitaModOno(false);
    Cornice.MostraTutto();
}

void SchedaOnorari::cmdAnnModOno_Click()
{
    ui->tdbOnor->AzzeraSelezione();
    AbilitaModOno(false);
}

QWidget* SchedaOnorari::Casella(CasellaNota Quale) const
{
    return Quale == CasellaNota::Onorari ? ui->tdbOnor : nullptr;
}

void SchedaOnorari::Mostra()
{
    Griglia* Righe = ui->tdbOnor;
    if (!Righe->ColonnaVisibile(OnoQta) && ChiedonoQuantita(Nota, Comune.Voci))
        Righe->MostraColonna(OnoQta, true);
    Righe->Rilega();
    Pannello->Mostra();
    Comandi->MostraAppunti();
}

void SchedaOnorari::MostraTotali(const Somme& Sommate)
{
    Griglia* Righe = ui->tdbOnor;
    Righe->Pie(OnoDescr, u"Totali "_s);
    Righe->Pie(OnoImporto, TestoImporto(Sommate.TotOnorari));
    Righe->Pie(OnoMedio, TestoImporto(Sommate.TotMed));
    Righe->Pie(OnoMin, TestoImporto(Sommate.TotMin));
    Righe->Pie(OnoMax, TestoImporto(Sommate.TotMax));
}

#include "moc_SchedaOnorari.cpp"
