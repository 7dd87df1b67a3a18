#include "calculators/windows/frmInteressi.h"

#include "calculators/modSchede.h"
#include "calculators/modTassi.h"
#include "calculators/windows/comandicalcolo.h"
#include "calculators/windows/etamostrata.h"
#include "calculators/windows/finestracalcolo.h"
#include "calculators/windows/importoconpunti.h"
#include "core/modErrori.h"
#include "core/modLancio.h"
#include "core/sessione.h"
#include "platform/base/regionale.h"
#include "platform/calendar/calendario.h"
#include "platform/kit/annuncio.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/lettere.h"
#include "platform/system/orologio.h"

#include "calculators/windows/ui_frmInteressi.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QStatusBar>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString TitoloTotale = u"Totale in euro "_s;

}  // namespace

frmInteressi::frmInteressi() : ui(std::make_unique<Ui::frmInteressi>()), Comandi(nullptr)
{
    ui->setupUi(this);
    aspetto::MisuraConLeLettere({ui->txtCapitale});
    CreaCalendario();
    panArchivio = new QLabel;
    panArchivio->setObjectName(u"barInter_1"_s);
    ui->barInter->addWidget(panArchivio);
    Scelta = std::make_unique<SceltaNorme>(ui->cmbNorme, [this] {
        OpzioneScelta = false;
        PulisciCalcoli();
        ProponiRegola();
    });
    ui->cmdCalcola->setIcon(aspetto::Icona(u"inter"_s));
    ui->cmdCopia->setIcon(aspetto::Icona(u"copia"_s));
    PreparaCifra(ui->lblTotale);
    SfondoPannello(ui->fraRisultato);
    ui->cmdCopiaTabella->setIcon(aspetto::Icona(u"copia"_s));
    for (QToolButton* Bottone : {ui->cmdCalend_0, ui->cmdCalend_1})
        Bottone->setIcon(aspetto::Icona(u"calendario"_s));
    ColonneRiepilogo();
    Comandi = new ComandiCalcolo(this, ParteComandi());
    ImpostaMenu(this, QList<VoceMenu>{{u"mnuNew"_s, u"Nuovo calcolo"_s, QKeySequence::New,
                                       [this] { mnuNew_Click(); }}} +
                          Comandi->Voci());
    PreparaModulo(this, u"inter"_s);
    Collegamenti();
    Load();
    Comandi->Aggiorna();
}

frmInteressi::~frmInteressi()
{
    // The application still reports the focus that this window loses as it goes.
    disconnect(qApp, nullptr, this, nullptr);
}

/// The calendar lies over the form, in a frame of its own, hidden until it is asked for.
void frmInteressi::CreaCalendario()
{
    fraCalendario = new QFrame(this);
    fraCalendario->setObjectName(u"fraCalendario"_s);
    fraCalendario->setFrameShape(QFrame::Box);
    fraCalendario->setAutoFillBackground(true);
    fraCalendario->hide();
    Calendario = new CalendarioMensile;
    Calendario->setObjectName(u"Calendario"_s);
    Calendario->MostraLegenda(false);
    auto* Dentro = new QVBoxLayout(fraCalendario);
    Dentro->setContentsMargins(1, 1, 1, 1);
    Dentro->addWidget(Calendario);
}

void frmInteressi::ColonneRiepilogo()
{
    const auto Colonna = [this](const QString& Titolo, int Campo, int Caratteri, Qt::Alignment Allinea) {
        ColonnaGriglia Nuova;
        Nuova.Titolo = Titolo;
        Nuova.Campo = Campo;
        Nuova.Caratteri = Caratteri;
        Nuova.Allinea = Allinea;
        Nuova.Stira = Campo == IntImporto;
        Nuova.Mostra = [this, Campo](const QVariant& Valore, int) {
            return CellaInteressi(Campo, Valore, DecimaliTasso);
        };
        return Nuova;
    };
    constexpr Qt::Alignment Destra = Qt::AlignRight;
    ui->tdbInter->ImpostaColonne({
        Colonna(u"Dal giorno"_s, IntDal, 11, Qt::AlignLeft),
        Colonna(u"Al giorno"_s, IntAl, 11, Qt::AlignLeft),
        Colonna(u"Tasso"_s, IntTasso, 8, Destra),
        Colonna(u"N° Giorni"_s, IntGiorni, int(TitoloTotale.size()) + 1, Destra),
        Colonna(u"Interessi"_s, IntImporto, 12, Destra),
    });
    ui->tdbInter->FraseVuota(
        u"Immettere capitale e date e premere Calcola: una riga per ogni periodo di tasso."_s);
    ui->tdbInter->Lega(&Righe);
    ui->tdbInter->Pie(IntGiorni, TitoloTotale);
    ui->tdbInter->setMinimumWidth(ui->tdbInter->LarghezzaIntera());
}

void frmInteressi::Collegamenti()
{
    VirgolaDalTastierino(ui->txtCapitale);
    MostraConPunti(ui->txtCapitale);
    VirgolaDalTastierino(ui->txtAumento, true);
    for (MascheraData* Data : {ui->mskDataIni, ui->mskDataFin})
        AlLasciaSempre(Data, [Data] {
            Data->CompletaAnno();
            return true;
        });

    const auto Pulisci = [this] { PulisciCalcoli(); };
    for (QLineEdit* Casella :
         std::initializer_list<QLineEdit*>{ui->txtCapitale, ui->txtAumento, ui->mskDataIni, ui->mskDataFin})
        Collega(Casella, &QLineEdit::textChanged, this, Pulisci);
    Collega(ui->cmbValuta, &QComboBox::currentIndexChanged, this, Pulisci);
    Collega(ui->cmbInteressi, &QComboBox::currentIndexChanged, this, [this](int Tipo) {
        PulisciCalcoli();
        VisDati(Tipo);
        MostraDataArchivio();
        ProponiRegola();
    });
    Collega(ui->mskDataIni, &QLineEdit::textChanged, this, [this] { ProponiRegola(); });
    for (const QRadioButton* Opzione : {ui->optDataFine_0, ui->optDataFine_1})
        Collega(Opzione, &QRadioButton::clicked, this, [this] { OpzioneScelta = true; });
    Collega(ui->optDataFine_1, &QRadioButton::toggled, this, Pulisci);

    Collega(ui->cmdCalcola, &QPushButton::clicked, this, &frmInteressi::cmdCalcola_Click);
    Collega(ui->cmdAvvIntMora, &QPushButton::clicked, this,
            [] { ApriPDF(sessione::PercorsoProg + u"AvvertenzeInteressiMora.pdf"_s); });
    Collega(ui->cmdCalend_0, &QToolButton::clicked, this, [this] { cmdCalend_Click(0); });
    Collega(ui->cmdCalend_1, &QToolButton::clicked, this, [this] { cmdCalend_Click(1); });
    Collega(Calendario, &CalendarioMensile::DataScelta, this, &frmInteressi::Calendario_Scelta);
    Collega(qApp, &QApplication::focusChanged, this, [this](QWidget*, const QWidget* Nuovo) {
        if (Nuovo && Nuovo != Calendario && !Calendario->isAncestorOf(Nuovo))
            fraCalendario->hide();
    });

    CatenaInvio({ui->cmbInteressi, ui->optDataFine_0, ui->optDataFine_1, ui->txtCapitale, ui->cmbValuta,
                 ui->txtAumento, ui->mskDataIni, ui->mskDataFin},
                [this] { Protetta([this] { cmdCalcola_Click(); }); });
    CopiaRisultato(this, ui->cmdCopia, [this] { return TestoCopia(); });
    CopiaConClic(
        ui->cmdCopiaTabella, [this] { return TestoTabella(); }, [this] { return RigheTabella(); });
}

void frmInteressi::Load()
{
    VisDati(0);
    if (!DataArchivio(ArchivioTassi()))
        return;
    ui->cmbInteressi->setCurrentIndex(InteressiLegali);
    ui->cmbValuta->setCurrentIndex(ValutaEuro);
    MostraDataArchivio();
    ui->mskDataFin->ImpostaData(Oggi());
}

void frmInteressi::MostraDataArchivio()
{
    if (const auto Aggiornato = DataArchivio(ArchivioTassi()))
        panArchivio->setText(u" Archivio interessi aggiornato al "_s + Format(*Aggiornato, ModelloData));
    Copertura = CoperturaLetta(ArchivioTassi());
    if (const auto Quale = Eta())
        MostraEta(ui->lblEta, *Quale);
    else
        ui->lblEta->clear();
}

/// The age of the rates of the chosen kind.
std::optional<EtaDati> frmInteressi::Eta() const
{
    if (!Copertura)
        return std::nullopt;
    return ui->cmbInteressi->currentIndex() == InteressiLegali ? EtaLegali(*Copertura, Oggi())
                                                               : EtaMora(*Copertura, Oggi());
}

/// Says under the total that it reaches beyond the rates; nothing while it does not.
void frmInteressi::MostraOltre()
{
    const auto Quale = Eta();
    const auto Fine = ui->mskDataFin->Data();
    const bool Calcolato = !ui->lblTotale->text().isEmpty();
    ui->lblOltre->setText(Calcolato && Quale && Fine ? NotaOltre(*Quale, *Fine) : QString());
    ui->lblOltre->setVisible(!ui->lblOltre->text().isEmpty());
}

/// By the norms in force default interest proposes the rule of its first day; a choice of the user's stays.
void frmInteressi::ProponiRegola()
{
    const bool Mora = ui->cmbInteressi->currentIndex() == InteressiMora;
    const auto Inizio = ui->mskDataIni->Data();
    const PropostaMora Proposta = Mora && Inizio ? ProponiMora(Scelta->Insieme(), *Inizio) : PropostaMora{};
    ui->lblProposta->setText(Proposta.Nota);
    ui->lblProposta->setVisible(!Proposta.Nota.isEmpty());
    if (Mora && Inizio && Scelta->InVigore() && !OpzioneScelta)
        (Proposta.Dopo2012 ? ui->optDataFine_1 : ui->optDataFine_0)->setChecked(true);
}

void frmInteressi::Mostra()
{
    if (!isVisible())
        Scelta->Comincia();
    if (MostraModulo(this))
        ui->cmbInteressi->setFocus();
}

void frmInteressi::keyPressEvent(QKeyEvent* Evento)
{
    if (Evento->key() == Qt::Key_Escape && Calendario->isVisible()) {
        (IndiceCalendario == 0 ? ui->mskDataIni : ui->mskDataFin)->setFocus();
        return;
    }
    QDialog::keyPressEvent(Evento);
}

// ---- calculation --------------------------------------------------------------------------------

DatiInteressi frmInteressi::Dati() const
{
    return {ui->cmbInteressi->currentIndex(), TestoDigitato(ui->txtCapitale), ui->cmbValuta->currentIndex(),
            ui->txtAumento->text(),           ui->mskDataIni->Testo(),        ui->mskDataFin->Testo(),
            ui->optDataFine_1->isChecked()};
}

bool frmInteressi::Check()
{
    const auto Trovata = CheckInteressi(Dati());
    if (!Trovata)
        return true;
    MsgErrore(Trovata->Messaggio);
    // As CampoInteressi.
    const std::array<QWidget*, 3> Caselle{ui->txtCapitale, ui->mskDataIni, ui->mskDataFin};
    RidaiFuoco(Caselle[size_t(Trovata->Dove)]);
    return false;
}

void frmInteressi::cmdCalcola_Click()
{
    if (!ConcludiCampo() || !Check())
        return;
    const EsitoInteressi Esito = CalcolaInteressi(ArchivioTassi(), Dati(), UltimoAumento);
    if (Esito.Fine == FineInteressi::Completa)
        MostraEsito(Esito);
    const bool Chiudi = Esito.Fine == FineInteressi::Chiudi || Esito.Fine == FineInteressi::AggiornaEChiudi;
    if (Esito.Fine == FineInteressi::Aggiorna || Esito.Fine == FineInteressi::AggiornaEChiudi)
        ApriAggiornamento({});
    if (Chiudi)
        close();
}

void frmInteressi::MostraEsito(const EsitoInteressi& Esito)
{
    const QString Totale = Format(Esito.TotaleInteressi, ModelloImporto);
    Righe = Esito.Righe;
    DecimaliTasso = DecimaliTassi(Righe);
    ui->tdbInter->Rilega();
    ui->tdbInter->Pie(IntImporto, Totale);
    MostraCifra(ui->lblTotale, ui->lblDidTotale, Totale);
    MostraOltre();
    AbilitaCopie();
    AnnunciaRisultato(ui->lblTotale);
    Comandi->Ricorda(true);
    LasciaSelezione();
}

void frmInteressi::PulisciCalcoli()
{
    Righe.Azzera(ColonneInteressi);
    ui->tdbInter->Rilega();
    ui->tdbInter->Pie(IntImporto, {});
    MostraCifra(ui->lblTotale, ui->lblDidTotale, {});
    MostraOltre();
    AbilitaCopie();
}

void frmInteressi::VisDati(int Tipo)
{
    ui->fraDati1->setVisible(Tipo != 0);
    ui->cmdAvvIntMora->setVisible(Tipo != 0);
}

void frmInteressi::mnuNew_Click()
{
    ui->mskDataIni->ImpostaTesto(u"  /  /    "_s);
    ui->mskDataFin->ImpostaTesto(u"  /  /    "_s);
    ui->cmbInteressi->setCurrentIndex(InteressiLegali);
    ui->cmbValuta->setCurrentIndex(ValutaEuro);
    ui->txtCapitale->clear();
    ui->txtAumento->clear();
    OpzioneScelta = false;
    PulisciCalcoli();
    ui->cmbInteressi->setFocus();
}

// ---- calendar -----------------------------------------------------------------------------------

void frmInteressi::cmdCalend_Click(int Indice)
{
    IndiceCalendario = Indice;
    const MascheraData* Casella = Indice == 0 ? ui->mskDataIni : ui->mskDataFin;
    Calendario->ImpostaData(Casella->Data().value_or(Oggi()));
    fraCalendario->adjustSize();
    // Beside its box, which stays in sight, and as low as it is seen whole.
    const QToolButton* Accanto = Indice == 0 ? ui->cmdCalend_0 : ui->cmdCalend_1;
    const QPoint Posto = Accanto->mapTo(this, QPoint(Accanto->width() + aspetto::TraCampi, 0));
    const auto Entro = [](int Da, int Lungo, int Spazio) {
        return std::max(0, std::min(Da, Spazio - Lungo - aspetto::Bordo));
    };
    fraCalendario->move(Entro(Posto.x(), fraCalendario->width(), width()),
                        Entro(Posto.y(), fraCalendario->height(), height()));
    fraCalendario->show();
    fraCalendario->raise();
    Calendario->setFocus();
}

void frmInteressi::Calendario_Scelta(const QDate& Data)
{
    MascheraData* Casella = IndiceCalendario == 0 ? ui->mskDataIni : ui->mskDataFin;
    Casella->ImpostaData(Data);
    fraCalendario->hide();
    Casella->setFocus();
}

// ---- clipboard ----------------------------------------------------------------------------------

void frmInteressi::AbilitaCopie()
{
    ui->cmdCopia->setEnabled(!ui->lblTotale->text().isEmpty());
    ui->cmdCopiaTabella->setEnabled(!Righe.Vuota());
    Comandi->Aggiorna();
}

/// What Ctrl+C takes: the table where the focus is in it, the total elsewhere.
QString frmInteressi::TestoCopia() const
{
    return ui->tdbInter->isAncestorOf(QApplication::focusWidget()) ? TestoTabella() : ui->lblTotale->text();
}

/// Headings, lines (the selected ones, if any are) and total.
QList<QStringList> frmInteressi::RigheTabella() const
{
    if (Righe.Vuota())
        return {};
    const QList<int> Scelte = ui->tdbInter->Selezione();
    QList<QStringList> Tutte{{u"Dal giorno"_s, u"Al giorno"_s, u"Tasso"_s, u"N° Giorni"_s, u"Interessi"_s}};
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga)
        if (Scelte.isEmpty() || Scelte.contains(Riga))
            Tutte << CelleInteressi(Righe, Riga, DecimaliTasso);
    if (Scelte.isEmpty())
        Tutte << QStringList{{}, {}, {}, TitoloTotale.trimmed(), ui->lblTotale->text()};
    return Tutte;
}

QString frmInteressi::TestoTabella() const
{
    return TestoRighe(RigheTabella());
}

// ---- sheet and list -----------------------------------------------------------------------------

ParteDelCalcolo frmInteressi::ParteComandi()
{
    ParteDelCalcolo Parte;
    Parte.Quale = Calcolatrice::Interessi;
    for (QWidget* Campo :
         std::initializer_list<QWidget*>{ui->cmbNorme, ui->cmbInteressi, ui->cmbValuta, ui->txtCapitale,
                                         ui->txtAumento, ui->mskDataIni, ui->mskDataFin})
        Parte.Campi << CampoDi(Campo);
    // Behind the first day, whose rule is only proposed.
    CampoRicordato Dopo = CampoDi(ui->optDataFine_1);
    Dopo.Scrivi = [this](const QString& Valore) {
        // By now the rule of the first day is proposed: what differs from it was the user's choice.
        const bool Dopo2012 = !Valore.isEmpty();
        OpzioneScelta = Dati().Tipo == InteressiMora && Dati().Dopo2012 != Dopo2012;
        (Dopo2012 ? ui->optDataFine_1 : ui->optDataFine_0)->setChecked(true);
        return true;
    };
    Parte.Campi << Dopo;
    Parte.Nome = [this] {
        const DatiInteressi Scritti = Dati();
        return (Scritti.Tipo == InteressiMora ? u"Mora, "_s : u"Legali, "_s) +
               ImportoScritto(Scritti.Capitale) + (Scritti.Valuta == ValutaLire ? u" lire"_s : u" euro"_s) +
               u" dal "_s + Scritti.DataIni + u" al "_s + Scritti.DataFin;
    };
    Parte.Esito = [this] {
        const QString Totale = ui->lblTotale->text();
        return Totale.isEmpty() || Righe.Vuota() ? QString() : Totale + u" euro"_s;
    };
    Parte.Scheda = [this] { return Scheda(); };
    Parte.Suffisso = u": calcolo interessi"_s;
    Parte.Prepara = [this] {
        OpzioneScelta = false;
        ui->optDataFine_0->setChecked(true);
        ui->mskDataIni->ImpostaTesto({});
        PulisciCalcoli();
    };
    Parte.Calcola = [this] { cmdCalcola_Click(); };
    return Parte;
}

SchedaCalcolo frmInteressi::Scheda() const
{
    QStringList Note;
    if (!ui->lblOltre->text().isEmpty())
        Note << ui->lblOltre->text();
    DatiInteressi Scritti = Dati();
    Scritti.Capitale = ImportoScritto(Scritti.Capitale);
    return SchedaInteressi(Scritti, Righe, ui->lblTotale->text(), Note, RigheEta(Eta()));
}

#include "moc_frmInteressi.cpp"
