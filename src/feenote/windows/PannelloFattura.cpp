#include "feenote/windows/PannelloFattura.h"

#include "addressbook/modClienti.h"
#include "core/modErrori.h"
#include "feenote/codicifattura.h"
#include "feenote/einvoice/adattatori.h"
#include "feenote/einvoice/anteprima.h"
#include "feenote/einvoice/codici.h"
#include "feenote/modFatturaXml.h"
#include "feenote/windows/cornicenota.h"
#include "feenote/windows/mostra.h"
#include "feenote/windows/ui_PannelloFattura.h"
#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/scelta.h"
#include "platform/system/orologio.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int RuoloCampo = Qt::UserRole;
constexpr QStringView SenzaPagamento = u"-";

struct CasellaScelta
{
    QLineEdit* Ui::PannelloFattura::*Box;
    QString DatiFatturaXml::*Dato;
    CampoFattura Campo;
    bool Data = false;  ///< completed when it is left
};

constexpr std::array Caselle{
    CasellaScelta{&Ui::PannelloFattura::txtScadenzaXml, &DatiFatturaXml::Scadenza,
                  CampoFattura::SceltaScadenza, true},
    CasellaScelta{&Ui::PannelloFattura::txtCitataNumero, &DatiFatturaXml::CitataNumero,
                  CampoFattura::SceltaCollegata},
    CasellaScelta{&Ui::PannelloFattura::txtCitataData, &DatiFatturaXml::CitataData, CampoFattura::Nessuno,
                  true},
    CasellaScelta{&Ui::PannelloFattura::txtContrattoXml, &DatiFatturaXml::ContrattoNumero,
                  CampoFattura::SceltaContratto},
    CasellaScelta{&Ui::PannelloFattura::txtCupXml, &DatiFatturaXml::Cup, CampoFattura::Nessuno},
    CasellaScelta{&Ui::PannelloFattura::txtCigXml, &DatiFatturaXml::Cig, CampoFattura::Nessuno},
};

struct ElencoScelta
{
    QComboBox* Ui::PannelloFattura::*Elenco;
    QString DatiFatturaXml::*Dato;
    CampoFattura Campo;
};

constexpr std::array Elenchi{
    ElencoScelta{&Ui::PannelloFattura::cmbTipoXml, &DatiFatturaXml::Tipo, CampoFattura::SceltaTipo},
    ElencoScelta{&Ui::PannelloFattura::cmbFormatoXml, &DatiFatturaXml::Destinatario,
                 CampoFattura::SceltaFormato},
    ElencoScelta{&Ui::PannelloFattura::cmbModalitaXml, &DatiFatturaXml::Modalita,
                 CampoFattura::SceltaModalita},
    ElencoScelta{&Ui::PannelloFattura::cmbNaturaXml, &DatiFatturaXml::Natura, CampoFattura::SceltaNatura},
};

struct SegnoScelta
{
    QCheckBox* Ui::PannelloFattura::*Segno;
    bool DatiFatturaXml::*Dato;
    CampoFattura Campo;
};

constexpr std::array Segni{
    SegnoScelta{&Ui::PannelloFattura::chkScissioneXml, &DatiFatturaXml::Scissione,
                CampoFattura::SceltaScissione},
    SegnoScelta{&Ui::PannelloFattura::chkBolloXml, &DatiFatturaXml::BolloAddebitato,
                CampoFattura::SceltaBollo},
};

}  // namespace

PannelloFattura::PannelloFattura(Parcella& Dati, CorniceNota& Finestra, QWidget* Padre)
    : QWidget(Padre), Nota(Dati), Cornice(Finestra), ui(std::make_unique<Ui::PannelloFattura>())
{
    ui->setupUi(this);
    for (QWidget* Sfondo : {ui->datiXml, ui->scorriXml->viewport()})
        Sfondo->setAutoFillBackground(false);
    mostra::LarghezzaData(ui->txtScadenzaXml);
    mostra::LarghezzaData(ui->txtCitataData);
    CreaElenchi();
    CollegaScelte();
    CollegaComandi();
}

PannelloFattura::~PannelloFattura() = default;

void PannelloFattura::CreaElenchi()
{
    // What a new note has bears no code: nothing is kept of it.
    ui->cmbTipoXml->setToolTip(
        u"TD01 per ogni fattura; TD06 se si preferisce la parcella, TD04 per storno"_s);
    for (const VoceCodificata& Voce : TipiFattura())
        ui->cmbTipoXml->addItem(ConNome(TipiFattura(), Voce.Codice),
                                Voce.Codice == codici::Fattura ? QString() : Voce.Codice.toString());
    ui->cmbFormatoXml->setToolTip(u"Chi riceve: di solito lo dice la scheda del cliente"_s);
    ui->cmbNaturaXml->setToolTip(u"Perché i compensi sono senza IVA: di solito lo dicono regime e cliente"_s);
    ui->cmbFormatoXml->addItem(u"come dice la scheda"_s, QString());
    ui->cmbFormatoXml->addItem(u"privati (FPR12)"_s, u"PR"_s);
    ui->cmbFormatoXml->addItem(u"pubblica amministrazione (FPA12)"_s, u"PA"_s);
    for (const VoceCodificata& Voce : ModalitaPagamento())
        ui->cmbModalitaXml->addItem(ConNome(ModalitaPagamento(), Voce.Codice),
                                    Voce.Codice == codici::Bonifico ? QString() : Voce.Codice.toString());
    ui->cmbModalitaXml->addItem(u"non indicato"_s, SenzaPagamento.toString());
    ui->cmbNaturaXml->addItem(u"come dice il regime"_s, QString());
    for (const VoceCodificata& Voce : NatureSenzaIva())
        ui->cmbNaturaXml->addItem(ConNome(NatureSenzaIva(), Voce.Codice), Voce.Codice.toString());
}

void PannelloFattura::CollegaScelte()
{
    for (const CasellaScelta& Voce : Caselle) {
        QLineEdit* Box = ui.get()->*Voce.Box;
        Collega(Box, &QLineEdit::textEdited, this, [this] { Raccogli(); });
        FiltraTasti(Box, {});
        AlLascia(Box, [this, Box, Data = Voce.Data] {
            if (Data)
                Box->setText(DataDigitata(Box->text()));
            Scegli();
            return true;
        });
    }
    for (const ElencoScelta& Voce : Elenchi)
        if (Voce.Campo != CampoFattura::SceltaTipo)
            AlScegliere(ui.get()->*Voce.Elenco, [this](int, ModoScelta) { Scegli(); });
    // A credit note has number and date of its own, which the other boxes of the tab show, and the page: the
    // printer's keys go behind the panel.
    AlScegliere(ui->cmbTipoXml, [this](int, ModoScelta) {
        const QString Tipo = ui->cmbTipoXml->currentData().toString();
        Cornice.ApplicaStampa([&] { (void)CambiaTipoFattura(Nota, Tipo); });
    });
    for (const SegnoScelta& Voce : Segni)
        Collega(ui.get()->*Voce.Segno, &QAbstractButton::clicked, this, [this] { Scegli(); });
}

void PannelloFattura::CollegaComandi()
{
    Collega(ui->lstMancanzeXml, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* Voce) { VaiAllaRiga(ui->lstMancanzeXml->row(Voce)); });
    Collega(ui->cmdAnteprimaXml, &QAbstractButton::toggled, this, [this](bool Si) {
        ui->pagineXml->setCurrentIndex(Si ? 1 : 0);
        Mostra();
    });
    Collega(ui->cmdChiudiXml, &QAbstractButton::clicked, this, [this] {
        if (ConcludiCampo())
            Q_EMIT Chiuso();
    });
    Collega(ui->cmdSalvaXml, &QAbstractButton::clicked, this, [this] { cmdSalvaXml_Click(); });
    Collega(ui->cmdControllaXml, &QAbstractButton::clicked, this, [this] { cmdControllaXml_Click(); });
}

void PannelloFattura::NuovaNota()
{
    hide();
    ui->cmdAnteprimaXml->setChecked(false);
    ui->txtAnteprimaXml->clear();
    ui->lstMancanzeXml->clear();
    Composta = AlPosto = {};
    Scartata.reset();
    ColonneBloccate.clear();
}

void PannelloFattura::Entra()
{
    ui->cmdAnteprimaXml->setChecked(false);
    ChiediColonne();
    Mostra();
    QWidget* Primo = SiScrive() ? static_cast<QWidget*>(ui->cmdSalvaXml) : ui->lstMancanzeXml;
    Primo->setFocus();
}

void PannelloFattura::Mostra()
{
    MostraScelte();
    if (!isVisible())
        return;
    if (!Protetta([this] { ComponiTutto(); })) {
        Composta = {};
        Scartata.reset();
    }
    MostraMancanze();
    MostraStato();
    if (ui->cmdAnteprimaXml->isChecked())
        ui->txtAnteprimaXml->setHtml(
            PaginaFattura(!Composta.Completa() && Scartata ? AlPosto.Fattura : Composta.Fattura));
}

Composizione PannelloFattura::Componi(const Parcella& Di, const QString& Progressivo) const
{
    // The counter steps when the file is written; until then any number shows what the file will be.
    Composizione Fatta = ComponiDellaNota(Di, Progressivo.isEmpty() ? u"00000"_s : Progressivo, Oggi());
    if (!ColonneBloccate.isEmpty())
        Fatta.Avvisi.append({u"L'archivio dei clienti non si può modificare e non ha: %1."_s.arg(
                                 ColonneBloccate.join(u", "_s)),
                             CampoFattura::Nessuno});
    return Fatta;
}

/// As a next invoice it takes away what was paid of the former one, all of it where that is paid: in its
/// place it does not.
void PannelloFattura::ComponiTutto()
{
    try {
        Composta = Componi(Nota);
    } catch (const ArchivioIlleggibile& Guasto) {
        // A row of the list, and no box at each key, for as long as it lasts.
        Composta = {};
        Composta.Mancanze.append({Guasto.Descrizione, CampoFattura::Nessuno});
        Scartata.reset();
        return;
    }
    Scartata = FatturaGiaScritta(Nota) ? std::nullopt : ForseScartato(Nota);
    if (!Scartata)
        return;
    Parcella Sua = Nota;
    PrendiIlPosto(Sua);
    AlPosto = Componi(Sua);
    if (!AlPosto.Completa())
        Scartata.reset();
}

void PannelloFattura::MostraScelte()
{
    const DatiFatturaXml& Tenuti = Nota.FatturaXml;
    for (const CasellaScelta& Voce : Caselle)
        mostra::Testo(ui.get()->*Voce.Box, {Tenuti.*Voce.Dato, true});
    for (const ElencoScelta& Voce : Elenchi) {
        QComboBox* Elenco = ui.get()->*Voce.Elenco;
        const QSignalBlocker Zitto(Elenco);
        const int Posto = Elenco->findData(Tenuti.*Voce.Dato);
        // A code that another version has kept is shown as it is.
        if (Posto < 0)
            Elenco->addItem(Tenuti.*Voce.Dato, Tenuti.*Voce.Dato);
        Elenco->setCurrentIndex(Posto < 0 ? Elenco->count() - 1 : Posto);
    }
    for (const SegnoScelta& Voce : Segni)
        mostra::Segno(ui.get()->*Voce.Segno, {Tenuti.*Voce.Dato, true});
}

void PannelloFattura::Raccogli()
{
    DatiFatturaXml Scelte = Nota.FatturaXml;
    for (const CasellaScelta& Voce : Caselle)
        Scelte.*Voce.Dato = (ui.get()->*Voce.Box)->text();
    for (const ElencoScelta& Voce : Elenchi)
        Scelte.*Voce.Dato = (ui.get()->*Voce.Elenco)->currentData().toString();
    for (const SegnoScelta& Voce : Segni)
        Scelte.*Voce.Dato = (ui.get()->*Voce.Segno)->isChecked();
    if (CambiaFatturaXml(Nota, Scelte))
        Cornice.Cambiata();
}

void PannelloFattura::Scegli()
{
    Raccogli();
    Mostra();
}

void PannelloFattura::MostraMancanze()
{
    QListWidget* Lista = ui->lstMancanzeXml;
    const int Prima = Lista->currentRow();
    Lista->clear();
    const auto Aggiungi = [&](const MancanzaFattura& Detta, bool Manca) {
        auto* Voce = new QListWidgetItem(aspetto::Icona(Manca ? u"rename"_s : u"info"_s),
                                         Manca ? Detta.Messaggio : u"Avviso: "_s + Detta.Messaggio, Lista);
        Voce->setData(RuoloCampo, int(Detta.Dove));
        if (Manca)
            Voce->setForeground(aspetto::Sbagliato());
        if (Detta.Dove != CampoFattura::Nessuno)
            Voce->setToolTip(u"Doppio clic o Invio portano al campo"_s);
    };
    for (const MancanzaFattura& Detta : std::as_const(Composta.Mancanze))
        Aggiungi(Detta, true);
    for (const AvvisoFattura& Detto : std::as_const(Composta.Avvisi))
        Aggiungi(Detto, false);
    if (Lista->count() > 0)
        Lista->setCurrentRow(std::clamp(Prima, 0, Lista->count() - 1));
    // Empty it leaves its room to the choices.
    Lista->setVisible(Lista->count() > 0);
}

void PannelloFattura::MostraStato()
{
    QString Stato;
    if (FatturaGiaScritta(Nota))
        Stato = FraseGiaScritta(Nota)
                    .replace(u"La fattura è già stata scritta"_s, u"Già scritta"_s)
                    .replace(u"La nota di credito è già stata scritta"_s, u"Già scritta"_s) +
                u". "_s;
    const int Quante = int(Composta.Mancanze.size());
    if (Quante == 0)
        Stato += u"Non manca nulla: il file si può salvare."_s;
    else if (Scartata)
        Stato += u"Se la fattura %1 del %2 è stata scartata, questa si può salvare al suo posto."_s.arg(
            Scartata->Numero, Scartata->Data);
    else
        Stato += (Quante == 1 ? u"Manca un dato"_s : u"Mancano %1 dati"_s.arg(Quante)) +
                 u": doppio clic o Invio portano al campo."_s;
    ui->lblStatoXml->setText(Stato);
    ui->cmdSalvaXml->setEnabled(SiScrive());
    ui->cmdSalvaXml->setToolTip(SiScrive() ? u"Scrive il file della fattura elettronica"_s
                                           : u"Prima occorre completare i dati che mancano"_s);
}

void PannelloFattura::VaiAllaRiga(int Riga)
{
    const QListWidgetItem* Voce = ui->lstMancanzeXml->item(Riga);
    if (!Voce || Cornice.InDomanda())
        return;
    const auto Dove = CampoFattura(Voce->data(RuoloCampo).toInt());
    if (QWidget* Casella = CasellaDi(Dove))
        RidaiFuoco(Casella);
    else
        Cornice.VaiAlCampo(Dove);
}

QWidget* PannelloFattura::CasellaDi(CampoFattura Dove) const
{
    if (Dove == CampoFattura::Nessuno)
        return nullptr;
    // Of a cited invoice whose number stands there the date is what is wrong.
    if (Dove == CampoFattura::SceltaCollegata && !Nota.FatturaXml.CitataNumero.trimmed().isEmpty() &&
        !LeggiData(Nota.FatturaXml.CitataData))
        return ui->txtCitataData;
    for (const CasellaScelta& Voce : Caselle)
        if (Voce.Campo == Dove)
            return ui.get()->*Voce.Box;
    for (const ElencoScelta& Voce : Elenchi)
        if (Voce.Campo == Dove)
            return ui.get()->*Voce.Elenco;
    for (const SegnoScelta& Voce : Segni)
        if (Voce.Campo == Dove)
            return ui.get()->*Voce.Segno;
    return nullptr;
}

#include "moc_PannelloFattura.cpp"
