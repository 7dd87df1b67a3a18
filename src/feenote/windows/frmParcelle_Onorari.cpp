// Tab 1: the catalogue of honoraria and the lines taken from it.
#include "core/aperture.h"
#include "feenote/windows/frmParcelle.h"

#include "core/modErrori.h"
#include "core/sessione.h"
#include "feenote/modOnorari.h"
#include "feenote/modVariazione.h"
#include "feenote/windows/barrarighe.h"
#include "feenote/windows/righegriglia.h"
#include "platform/grid/griglia.h"
#include "platform/kit/collega.h"
#include "platform/system/percorsi.h"
#include "ui_SchedaOnorari.h"
#include "ui_frmParcelle.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QTableView>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

/// Columns of the grid by the columns of the lines; the hidden ones have no place in it.
QList<ColonnaGriglia> ColonneOnorari()
{
    ColonnaGriglia Quantita = ColonnaQuantita(OnoQta);
    Quantita.Visibile = false;  // until an item asks for one
    return {ColonnaData(OnoData),
            ColonnaDescrizione(OnoDescr),
            Quantita,
            ColonnaImporto(u"Importo"_s, OnoImporto, true),
            ColonnaImporto(u"Medio"_s, OnoMedio, false),
            ColonnaImporto(u"Min."_s, OnoMin, false),
            ColonnaImporto(u"Max"_s, OnoMax, false)};
}

QList<ColonnaGriglia> ColonneCatalogo()
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

/// Tells over a catalogue row how to see its sheet.
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

void frmParcelle::CollegaCatalogoOnorari()
{
    Griglia* Lista = uiOnorari->tdbListaOno;
    Lista->ImpostaColonne(ColonneCatalogo());
    Lista->FraseVuota(
        u"Scegliere categoria, autorità e valore nei dati base: qui compaiono le voci della tariffa."_s);
    Collega(Lista, &Griglia::DoppioClic, this, [this](int Riga) { tdbListaOno_DblClick(Riga); });
    Collega(Lista, &Griglia::MenuContestuale, this, [this](int Riga) { ShowNota(Riga); });
    Collega(Lista, &Griglia::RigaCambiata, this, [this](int Riga) { SeguiNota(Riga); });
    CollegaRicerca(
        uiOnorari->txtCercaOno, Lista, [this] { return Comune.Voci.datOno; }, u"DescrOno"_s);
    new SuggerimentoVoce(Lista, [this] { return Comune.Voci.datOno; });

    const auto Corrente = [Lista] { return Lista->RigaCorrente().value_or(-1); };
    ComandiBarra Comandi;
    Comandi.Inserisci = [=, this] { tdbListaOno_DblClick(Corrente()); };
    Comandi.Informa = [=, this] { ShowNota(Corrente()); };
    Comandi.Varia = [this] { AbilitaModOno(!ModOno.Aperto); };
    RigheOno = new ComandiRighe(uiOnorari->tdbOnor, TipoRiga::Onorari, Nota, Comune, *this);
    Collega(RigheOno, &ComandiRighe::Mutate, this, [this] {
        RinfrescaModOno(ModOno, Nota.xOnorari, uiOnorari->tdbOnor->RigaCorrente());
        MostraModOno();
    });
    TastiOno = RigheOno->CostruisciBarra(uiOnorari->barListaOnoDir, Comandi);
    SeguiBarra(Lista, uiOnorari->barListaOnoDir, uiOnorari->tdbOnor);
}

void frmParcelle::CollegaOnorari()
{
    CollegaCatalogoOnorari();
    Griglia* Righe = uiOnorari->tdbOnor;
    Righe->ImpostaColonne(ColonneOnorari());
    Righe->Lega(&Nota.xOnorari);
    Righe->ConsentiNuove(true);
    Righe->FraseVuota(u"Fare doppio clic su una voce del catalogo per inserirla."_s);
    Righe->Convalida = [](int, int Colonna, const QString& Testo) {
        return ConvalidaCella(ColonneOnorari()[Colonna], Testo);
    };
    Righe->Valore = [](int, int Colonna, const QString& Testo) {
        return ValoreCella(ColonneOnorari()[Colonna], Testo);
    };
    Righe->NuovaRiga = [this](int Riga) { Nota.xOnorari(Riga, OnoQta) = 1.0; };
    Collega(Righe, &Griglia::CellaScritta, this, [this](int Riga, int Colonna) {
        TabellaRighe& Tabella = Nota.xOnorari;
        if (Colonna == OnoImporto && SenzaTariffa(Tabella, Riga))
            for (const int Altra : {OnoMedio, OnoMin, OnoMax})
                Tabella(Riga, Altra) = Tabella(Riga, OnoImporto);
        SetModificata(true);
        uiOnorari->tdbOnor->Rilega();
        RicaricaModOno(ModOno, Nota.xOnorari);
        MostraModOno();
        RefreshGrid();
    });
    CollegaZone(ui->tabParcelle->widget(SchedaListaOnorari),
                {uiOnorari->txtCercaOno, uiOnorari->tdbListaOno, Righe, uiOnorari->pctInsModOno});
}

void frmParcelle::EntraScheda1()
{
    SvuotaAppunti(Comune.Copiate);
    ChiudiModOno(ModOno);
    Protetta([&] { (void)EntraOnorari(Nota, Comune.Voci); });
    SetModificata(Nota.Modificata);  // as the lines that came or were recalculated have left it
    const auto DelCatalogo = std::pair(Nota.CodCateg, Nota.IDAutSelezionata());
    if (std::exchange(CatalogoCercato, DelCatalogo) != DelCatalogo)
        uiOnorari->txtCercaOno->clear();  // what was looked for in another catalogue
    uiOnorari->tdbListaOno->Lega(Comune.Voci.datOno);
    // The row's number may be the same as before, and the item another.
    SeguiNota(uiOnorari->tdbListaOno->RigaCorrente().value_or(-1));
    uiOnorari->lblAumRidOno->setText(TestoAumRidOno(Nota));
    uiOnorari->lblAumRidOno->setToolTip(SuggerimentoAumRidOno(Nota));
}

void frmParcelle::tdbListaOno_DblClick(int Riga)
{
    if (!VaiARiga(Comune.Voci.datOno, Riga))
        return;
    Griglia* Righe = uiOnorari->tdbOnor;
    if (!Righe->Concludi())
        return;
    const std::optional<int> Inserita = InserisciOnorario(Nota, Comune.Voci, Righe->RigaCorrente());
    if (!Inserita)
        return;
    if (!Comune.Voci.datOno.Value(u"QtaOno"_s, QString()).toString().isEmpty())
        Righe->MostraColonna(OnoQta, true);
    RigheOno->RigheMutate(*Inserita);  // the new line is current and in sight; the catalogue keeps its row
}

QString frmParcelle::PaginaNota(int Riga) const
{
    if (!Comune.Voci.datOno.Aperto())
        return {};
    Recordset Voce = Comune.Voci.datOno.Clone();
    if (!VaiARiga(Voce, Riga))
        return {};
    const QString Cartella = sessione::PercorsoProg + Barra(u"note"_s);
    const QString Pagina = TrovaFile(Cartella + FileScheda(Nota.CodCateg, Voce.Value(Comune.Voci.ChiaveOno)));
    if (!EsisteFile(Pagina))
        return Cartella + u"blank.htm"_s;
    // A civil sheet has a table for each group of courts: it opens at the one of the note.
    return Nota.CodCateg == Civile ? Pagina + u"#a%1"_s.arg(Nota.IDAutSelezionata()) : Pagina;
}

void frmParcelle::ShowNota(int Riga)
{
    const QString Pagina = PaginaNota(Riga);
    if (!Pagina.isEmpty() && Aperture.PaginaWeb)
        Aperture.PaginaWeb(Pagina, TitoloNota.toString());
}

void frmParcelle::SeguiNota(int Riga)
{
    const QString Pagina = PaginaNota(Riga);
    if (!Pagina.isEmpty() && Aperture.PaginaSegue)
        Aperture.PaginaSegue(Pagina, TitoloNota.toString());
}

void frmParcelle::MostraOnorari()
{
    Griglia* Righe = uiOnorari->tdbOnor;
    if (!Righe->ColonnaVisibile(OnoQta) && ChiedonoQuantita(Nota, Comune.Voci))
        Righe->MostraColonna(OnoQta, true);
    Righe->Rilega();
    MostraModOno();
    RigheOno->MostraAppunti();
}
