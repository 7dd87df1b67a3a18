#include "calculators/windows/frmIstat.h"

#include "calculators/modSchede.h"
#include "calculators/modTassi.h"
#include "calculators/windows/comandicalcolo.h"
#include "calculators/windows/etamostrata.h"
#include "calculators/windows/finestracalcolo.h"
#include "calculators/windows/importoconpunti.h"
#include "core/modErrori.h"
#include "platform/base/regionale.h"
#include "platform/kit/annuncio.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/lettere.h"
#include "platform/system/orologio.h"
#include "platform/system/shell.h"

#include "calculators/windows/ui_frmIstat.h"

#include <QScopeGuard>
#include <QStatusBar>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A result, its caption and its place among the results.
struct Etichetta
{
    QLabel* Ui::frmIstat::*Cifra;
    QLabel* Ui::frmIstat::*Didascalia;
    QString RisultatiIstat::*Testo;
};

/// In the order in which one reads the calculation.
constexpr std::array Etichette{
    Etichetta{&Ui::frmIstat::lblImporto, &Ui::frmIstat::did_lblImporto, &RisultatiIstat::lblImporto},
    Etichetta{&Ui::frmIstat::lblIndFin, &Ui::frmIstat::did_lblIndFin, &RisultatiIstat::lblIndFin},
    Etichetta{&Ui::frmIstat::lblCoeffRacc, &Ui::frmIstat::did_lblCoeffRacc, &RisultatiIstat::lblCoeffRacc},
    Etichetta{&Ui::frmIstat::lblIndIni, &Ui::frmIstat::did_lblIndIni, &RisultatiIstat::lblIndIni},
    Etichetta{&Ui::frmIstat::lblCoeffRiv, &Ui::frmIstat::did_lblCoeffRiv, &RisultatiIstat::lblCoeffRiv},
    Etichetta{&Ui::frmIstat::lblImpRival, &Ui::frmIstat::did_lblImpRival, &RisultatiIstat::lblImpRival},
    Etichetta{&Ui::frmIstat::lblRivalutaz, &Ui::frmIstat::did_lblRivalutaz, &RisultatiIstat::lblRivalutaz},
    Etichetta{&Ui::frmIstat::lblVarPerc, &Ui::frmIstat::did_lblVarPerc, &RisultatiIstat::lblVarPerc},
};

/// A caption without the signs of the formula around it.
QString NomeCopia(QString Didascalia)
{
    return Didascalia.remove(u':').remove(u"x  "_s).remove(u'/').simplified();
}

}  // namespace

frmIstat::frmIstat() : ui(std::make_unique<Ui::frmIstat>())
{
    ui->setupUi(this);
    aspetto::MisuraConLeLettere({ui->txtImporto});
    ui->Calendario->MostraLegenda(false);
    Misure();
    panArchivio = new QLabel;
    panArchivio->setObjectName(u"barIstat_1"_s);
    ui->barIstat->addWidget(panArchivio);
    ui->cmdCalcola->setIcon(aspetto::Icona(u"istat"_s));
    ui->cmdCopia->setIcon(aspetto::Icona(u"copia"_s));
    ui->cmdCopiaTutto->setIcon(aspetto::Icona(u"copia"_s));
    for (QToolButton* Bottone : {ui->cmdCalend_0, ui->cmdCalend_1})
        Bottone->setIcon(aspetto::Icona(u"calendario"_s));
    Comandi = new ComandiCalcolo(this, ParteComandi());
    ImpostaMenu(this, QList<VoceMenu>{{u"mnuNew"_s, u"Nuovo calcolo"_s, QKeySequence::New,
                                       [this] { mnuNew_Click(); }}} +
                          Comandi->Voci());
    PreparaModulo(this, u"istat"_s);
    aspetto::TitoliInGrassetto(this);
    Collegamenti();
    Load();
}

frmIstat::~frmIstat() = default;

/// Results keep their room while they are empty, and the percentage its column: the amounts end in two
/// blanks.
void frmIstat::Misure()
{
    const QFontMetrics Righe = fontMetrics();
    ui->lblIndFin->setMinimumHeight(2 * Righe.lineSpacing());
    ui->lblVarPerc->setContentsMargins(0, 0, Righe.horizontalAdvance(u"  "_s), 0);
    ui->lblImporto->setMinimumWidth(Righe.horizontalAdvance(u"999.999.999,99  "_s));
    PreparaCifra(ui->lblImpRival);
}

void frmIstat::Collegamenti()
{
    VirgolaDalTastierino(ui->txtImporto);
    MostraConPunti(ui->txtImporto);
    const auto Pulisci = [this] { PulisciCalcoli(); };
    for (const int Indice : {0, 1}) {
        MascheraData* Data = Casella(Indice);
        AlLasciaSempre(Data, [Data] {
            Data->CompletaAnno();
            return true;
        });
        Data->installEventFilter(this);
        Collega(Data, &QLineEdit::textChanged, this, [this, Data] {
            PulisciCalcoli();
            SeguiData(Data);
        });
    }
    Collega(ui->txtImporto, &QLineEdit::textChanged, this, Pulisci);
    Collega(ui->cmbValuta, &QComboBox::currentIndexChanged, this, Pulisci);

    Collega(ui->cmdCalcola, &QPushButton::clicked, this, &frmIstat::cmdCalcola_Click);
    Collega(ui->cmdCalend_0, &QToolButton::clicked, this, [this] { cmdCalend_Click(0); });
    Collega(ui->cmdCalend_1, &QToolButton::clicked, this, [this] { cmdCalend_Click(1); });
    Collega(ui->Calendario, &CalendarioMensile::DataScelta, this,
            [this](const QDate& Data) { Casella(IndiceCalendario)->ImpostaData(Data); });

    CatenaInvio({ui->mskDataIni, ui->mskDataFin, ui->txtImporto, ui->cmbValuta},
                [this] { Protetta([this] { cmdCalcola_Click(); }); });
    CopiaRisultato(this, ui->cmdCopia, [this] { return DidascaliaPulita(ui->lblImpRival->text()); });
    CopiaConClic(
        ui->cmdCopiaTutto, [this] { return TestoRighe(RigheTutto()); }, [this] { return RigheTutto(); });
}

void frmIstat::Load()
{
    ui->mskDataIni->ImpostaTesto(u"  /  /    "_s);
    ui->mskDataFin->ImpostaTesto(u"  /  /    "_s);
    ui->cmbValuta->setCurrentIndex(0);
    PulisciCalcoli();
    MostraDataArchivio();
}

void frmIstat::MostraDataArchivio()
{
    if (const auto Aggiornato = DataArchivio(ArchivioTassi()))
        panArchivio->setText(u" Archivio Istat aggiornato al "_s + Format(*Aggiornato, ModelloData));
    Copertura = CoperturaLetta(ArchivioTassi());
    if (Copertura)
        MostraEta(ui->lblEta, EtaIndici(*Copertura, Oggi()));
}

void frmIstat::MostraOltre()
{
    const auto Fine = ui->mskDataFin->Data();
    const bool Calcolato = !Risultati.lblImpRival.isEmpty();
    ui->lblOltre->setText(Calcolato && Copertura && Fine ? NotaOltre(EtaIndici(*Copertura, Oggi()), *Fine)
                                                         : QString());
    ui->lblOltre->setVisible(!ui->lblOltre->text().isEmpty());
}

void frmIstat::Mostra()
{
    if (MostraModulo(this))
        ui->mskDataIni->setFocus();
}

// ---- calculation --------------------------------------------------------------------------------

DatiIstat frmIstat::Dati() const
{
    return {ui->mskDataIni->Testo(), ui->mskDataFin->Testo(), TestoDigitato(ui->txtImporto),
            ui->cmbValuta->currentIndex()};
}

bool frmIstat::Check()
{
    const auto Trovato = CheckIstat(Dati());
    if (!Trovato)
        return true;
    MsgErrore(Trovato->Messaggio);
    const std::array<QWidget*, 3> Caselle{ui->mskDataIni, ui->mskDataFin, ui->txtImporto};  // as CampoIstat
    RidaiFuoco(Caselle[size_t(Trovato->Dove)]);
    return false;
}

void frmIstat::cmdCalcola_Click()
{
    if (!ConcludiCampo() || !Check())
        return;
    FineIstat Fine{};
    {
        // What was written before a failure stays on screen.
        const auto Mostra = qScopeGuard([this] { MostraRisultati(); });
        Fine = CalcolaRivalutazione(ArchivioTassi(), Dati(), AggiornamentoChiesto, Risultati);
    }
    if (Fine == FineIstat::Aggiorna)
        ApriAggiornamento(u"run"_s);
    if (Fine != FineIstat::Completa)
        return;
    Campanello();
    AnnunciaRisultato(ui->lblImpRival);
    Comandi->Ricorda(true);
    LasciaSelezione();
    ui->grafico->Imposta(SerieIndici(ArchivioTassi(), CDate(Dati().DataIni), CDate(Dati().DataFin)));
}

void frmIstat::MostraRisultati()
{
    for (const Etichetta& Voce : Etichette)
        MostraCifra(ui.get()->*Voce.Cifra, ui.get()->*Voce.Didascalia, Risultati.*Voce.Testo);
    MostraOltre();
    ui->cmdCopia->setEnabled(!Risultati.lblImpRival.isEmpty());
    ui->cmdCopiaTutto->setEnabled(Risultati != RisultatiIstat{});
    Comandi->Aggiorna();
}

void frmIstat::PulisciCalcoli()
{
    Risultati = {};
    MostraRisultati();
    ui->grafico->Imposta({});
}

void frmIstat::mnuNew_Click()
{
    ui->mskDataIni->ImpostaTesto(u"  /  /    "_s);
    ui->mskDataFin->ImpostaTesto(u"  /  /    "_s);
    ui->txtImporto->clear();
    ui->mskDataIni->setFocus();
}

// ---- calendar -----------------------------------------------------------------------------------

MascheraData* frmIstat::Casella(int Indice) const
{
    return Indice == 0 ? ui->mskDataIni : ui->mskDataFin;
}

/// The calendar goes to the date of a box that holds one.
void frmIstat::SeguiData(const MascheraData* Casella)
{
    if (const auto Data = Casella->Data())
        ui->Calendario->ImpostaData(*Data);
}

void frmIstat::cmdCalend_Click(int Indice)
{
    IndiceCalendario = Indice;
    SeguiData(Casella(Indice));
}

bool frmIstat::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Evento->type() == QEvent::FocusIn)
        for (const int Indice : {0, 1})
            if (Oggetto == Casella(Indice))
                cmdCalend_Click(Indice);
    return QDialog::eventFilter(Oggetto, Evento);
}

/// The calculation as rows: caption and value.
QList<QStringList> frmIstat::RigheTutto() const
{
    QList<QStringList> Righe;
    if (Risultati == RisultatiIstat{})
        return Righe;
    for (const Etichetta& Voce : Etichette)
        Righe << QStringList{NomeCopia((ui.get()->*Voce.Didascalia)->text()),
                             (Risultati.*Voce.Testo).simplified()};
    return Righe;
}

// ---- sheet and list -----------------------------------------------------------------------------

ParteDelCalcolo frmIstat::ParteComandi()
{
    ParteDelCalcolo Parte;
    Parte.Quale = Calcolatrice::Istat;
    for (QWidget* Campo :
         std::initializer_list<QWidget*>{ui->mskDataIni, ui->mskDataFin, ui->txtImporto, ui->cmbValuta})
        Parte.Campi << CampoDi(Campo);
    Parte.Nome = [this] {
        const DatiIstat Scritti = Dati();
        return ImportoScritto(Scritti.Importo) + (Scritti.Valuta == 1 ? u" lire dal "_s : u" euro dal "_s) +
               Scritti.DataIni + u" al "_s + Scritti.DataFin;
    };
    // What a failure has left half written is no result.
    Parte.Esito = [this] {
        return Risultati.lblVarPerc.isEmpty() ? QString() : Risultati.lblImpRival.trimmed() + u" euro"_s;
    };
    Parte.Scheda = [this] { return Scheda(); };
    Parte.Suffisso = u": rivalutazione Istat"_s;
    Parte.Prepara = [this] { mnuNew_Click(); };
    Parte.Calcola = [this] { cmdCalcola_Click(); };
    return Parte;
}

SchedaCalcolo frmIstat::Scheda() const
{
    QStringList Note;
    if (!ui->lblOltre->text().isEmpty())
        Note << ui->lblOltre->text();
    DatiIstat Scritti = Dati();
    Scritti.Importo = ImportoScritto(Scritti.Importo);
    return SchedaIstat(Scritti, Risultati, Note,
                       RigheEta(Copertura ? std::optional(EtaIndici(*Copertura, Oggi())) : std::nullopt));
}

#include "moc_frmIstat.cpp"
