#include "feenote/windows/SchedaStampa.h"

#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/modLancio.h"
#include "core/sessione.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modInterruttori.h"
#include "feenote/modNumeraFattura.h"
#include "feenote/modParti.h"
#include "feenote/windows/PannelloFattura.h"
#include "feenote/windows/casellenota.h"
#include "feenote/windows/cornicenota.h"
#include "feenote/windows/elencocontrolli.h"
#include "feenote/windows/mostra.h"
#include "feenote/windows/ui_SchedaStampa.h"
#include "platform/base/regionale.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/lettere.h"
#include "platform/kit/scelta.h"
#include "platform/system/shell.h"
#include "print/modClausole.h"

#include <QButtonGroup>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

/// A text that the first tab shows too.
struct CasellaParte
{
    ParteNota Quale;
    QPlainTextEdit* Ui::SchedaStampa::*Box;
    int Righe;  ///< lines on view
};

constexpr std::array CaselleParti{
    CasellaParte{ParteNota::Cliente, &Ui::SchedaStampa::txtDatiStaCli, 5},
    CasellaParte{ParteNota::Oggetto, &Ui::SchedaStampa::txtDatiStaOgg, 3},
    CasellaParte{ParteNota::Controparte, &Ui::SchedaStampa::txtDatiStaControp, 2},
};

struct CasellaRappresentante
{
    QLineEdit* Ui::SchedaStampa::*Box;
    QString Rappresentante::*Dato;
};

constexpr std::array CaselleRappresentante{
    CasellaRappresentante{&Ui::SchedaStampa::txtContrRappr, &Rappresentante::Nome},
    CasellaRappresentante{&Ui::SchedaStampa::txtContrNascita, &Rappresentante::DataNascita},
    CasellaRappresentante{&Ui::SchedaStampa::txtContrLuogo, &Rappresentante::LuogoNascita},
    CasellaRappresentante{&Ui::SchedaStampa::txtContrResid, &Rappresentante::Residenza},
};

constexpr int RigheTesto = 8;

/// Calls back with the text at each edit of the user's.
template <class F>
void AlCambio(QLineEdit* Box, F Fai)
{
    Collega(Box, &QLineEdit::textEdited, Box, std::move(Fai));
    FiltraTasti(Box, {});
}

/// What is pasted beyond the longest text goes.
void Taglia(QPlainTextEdit* Box, int Massimo)
{
    if (Box->toPlainText().size() <= Massimo)
        return;
    mostra::Testo(Box, Box->toPlainText().left(Massimo));
    Box->document()->setModified(true);
    Box->moveCursor(QTextCursor::End);
}

template <class F>
void AlCambio(QPlainTextEdit* Box, int Massimo, F Fai)
{
    Collega(Box, &QPlainTextEdit::textChanged, Box, [Box, Massimo, Fai = std::move(Fai)] {
        Taglia(Box, Massimo);
        Fai(Box->toPlainText());
    });
}

/// Keeps a scrolled column as wide as the widest thing that it holds, shown or hidden, and the scroll bar
/// beside it: the page keeps its place whatever is shown.
class LarghezzaContenuto : public QObject
{
public:
    explicit LarghezzaContenuto(QScrollArea* Cornice) : QObject(Cornice), Area(Cornice)
    {
        Area->widget()->installEventFilter(this);
    }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        if (Evento->type() == QEvent::LayoutRequest || Evento->type() == QEvent::Polish)
            Area->setMinimumWidth(Larghezza() + Area->verticalScrollBar()->sizeHint().width());
        return QObject::eventFilter(Oggetto, Evento);
    }

private:
    [[nodiscard]] int Larghezza() const
    {
        const QLayout* Colonna = Area->widget()->layout();
        int Massima = 0;
        for (int i = 0; i < Colonna->count(); ++i)
            if (const QWidget* Voce = Colonna->itemAt(i)->widget())
                Massima = std::max(Massima, Voce->minimumSizeHint().width());
        const QMargins Margini = Colonna->contentsMargins();
        return Massima + Margini.left() + Margini.right();
    }

    QScrollArea* Area;
};

/// The stack is as high as the page on view; the others only give it their width.
void MostraPannello(QStackedWidget* Pagine, int Indice)
{
    for (int i = 0; i < Pagine->count(); ++i)
        Pagine->widget(i)->setSizePolicy(QSizePolicy::Preferred,
                                         i == Indice ? QSizePolicy::Preferred : QSizePolicy::Ignored);
    Pagine->setCurrentIndex(Indice);
    Pagine->updateGeometry();
}

}  // namespace

SchedaStampa::SchedaStampa(Parcella& Dati, CorniceNota& Finestra, QWidget* Padre)
    : QWidget(Padre), Nota(Dati), Cornice(Finestra), ui(std::make_unique<Ui::SchedaStampa>())
{
    ui->setupUi(this);
    aspetto::MisuraConLeLettere({ui->txtDatiPar_11, ui->txtDatiPar_12, ui->txtContrNascita});
    CollegaDocumento();
    CollegaDati();
    CollegaParti();
    CollegaSegni();
    CollegaAnteprima();
    CollegaPagina();
    CollegaFattura();
    CollegaControlli();

    // The data stay as wide as they need; the page takes the room.
    ui->divisoreStampa->setSizes({1, 10000});
    ui->divisoreStampa->setStretchFactor(1, 1);
    new LarghezzaContenuto(ui->scorriDati);
    for (QWidget* Sfondo : {ui->datiStampa, ui->scorriDati->viewport()})
        Sfondo->setAutoFillBackground(false);
}

SchedaStampa::~SchedaStampa() = default;

QWidget* SchedaStampa::txtDatiPar(int Indice) const
{
    switch (Indice) {
    case DatoNumero:
        return ui->txtDatiPar_0;
    case DatoData:
        return ui->txtDatiPar_1;
    case DatoNumFatt:
        return ui->txtDatiPar_11;
    case DatoDataFatt:
        return ui->txtDatiPar_12;
    case DatoDepAutorita:
        return ui->txtDatiPar_21;
    case DatoDepSezione:
        return ui->txtDatiPar_22;
    case DatoDepRuolo:
        return ui->txtDatiPar_23;
    case DatoDepGiudice:
        return ui->txtDatiPar_24;
    case DatoTestoSuperiore:
        return ui->txtDatiPar_31;
    case DatoTestoInferiore:
        return ui->txtDatiPar_32;
    default:
        return nullptr;
    }
}

void SchedaStampa::CollegaDocumento()
{
    ui->cmbTipoStampa->addItems(VociTipoStampa());
    ui->cmbTipoStampa->setCurrentIndex(NessunaVoce);
    AlScegliere(ui->cmbTipoStampa, [this](int Tipo, ModoScelta Come) {
        cmbTipoStampa_Click(Tipo);
        // Who walks through the documents with the arrows stays in the list.
        if (Come == ModoScelta::Scelta)
            ui->vp->setFocus();
    });
}

void SchedaStampa::CollegaDati()
{
    const auto Lasciata = [this] {
        Cornice.Ricomponi();
        return true;
    };
    for (const CampoDatiPar& Campo : CampiDatiPar()) {
        const auto Scritta = [this, Campo](const QString& Testo) {
            CambiaDatiPar(Nota, Campo.Indice, Testo);
            Cornice.Cambiata();
        };
        QWidget* Box = txtDatiPar(Campo.Indice);
        if (auto* Riga = qobject_cast<QLineEdit*>(Box)) {
            Riga->setMaxLength(Campo.Massimo);
            AlCambio(Riga, Scritta);
        } else if (auto* Testo = qobject_cast<QPlainTextEdit*>(Box)) {
            mostra::AltezzaRighe(Testo, RigheTesto);
            AlCambio(Testo, Campo.Massimo, Scritta);
        }
        AlLascia(Box, Lasciata);
    }
    for (const DatoStampa Quale : {DatoData, DatoDataFatt}) {
        auto* Box = qobject_cast<QLineEdit*>(txtDatiPar(Quale));
        AlLascia(Box, [this, Box, Quale] {
            if (const QString Intera = DataDigitata(Box->text()); Intera != Box->text()) {
                CambiaDatiPar(Nota, Quale, Intera);
                Box->setText(Intera);
                Cornice.Cambiata();
            }
            Cornice.Ricomponi();
            return true;
        });
    }
    mostra::LarghezzaData(ui->txtDatiPar_1);
    for (const CasellaRappresentante& Voce : CaselleRappresentante) {
        QLineEdit* Box = (*ui).*Voce.Box;
        AlCambio(Box, [this, Voce](const QString& Testo) {
            CambiaRappresentante(Nota, Voce.Dato, Testo);
            Cornice.Cambiata();
        });
        AlLascia(Box, Lasciata);
    }
}

void SchedaStampa::CollegaParti()
{
    for (const CasellaParte& Voce : CaselleParti) {
        QPlainTextEdit* Box = (*ui).*Voce.Box;
        mostra::AltezzaRighe(Box, Voce.Righe);
        AlCambio(Box, MassimoParte(Voce.Quale), [this, Voce](const QString& Testo) {
            CambiaParteStampata(Nota, Voce.Quale, Testo);
            Cornice.Cambiata();
        });
        AlLascia(Box, [this, Voce] {
            Cornice.ApplicaStampa([&] { LasciaParteStampata(Nota, Voce.Quale); });
            return true;
        });
    }
    const std::array Seleziona{ui->cmdContrSelAnag_0, ui->cmdContrSelAnag_1};
    const std::array Inserisci{ui->cmdContrInsAnag_0, ui->cmdContrInsAnag_1};
    for (int i = 0; i < int(Seleziona.size()); ++i) {
        Collega(Seleziona[size_t(i)], &QToolButton::clicked, this,
                [this, i] { Cornice.CliCon(i, true, {}); });
        Collega(Inserisci[size_t(i)], &QToolButton::clicked, this,
                [this, i] { Cornice.CliCon(i, true, u"new"_s); });
    }
}

void SchedaStampa::CollegaSegni()
{
    const auto Segno = [this](QCheckBox* Box, void (*Regola)(Parcella&, bool)) {
        Collega(Box, &QCheckBox::clicked, this,
                [this, Regola](bool Attivo) { Cornice.ApplicaStampa([&] { Regola(Nota, Attivo); }); });
    };
    Segno(ui->chkIBAN, CambiaIban);
    Segno(ui->chkRegSempl, CambiaRegime);
    Segno(ui->chkIvaDiff, CambiaIvaDifferita);
    // An invoice on account prints like any other.
    Collega(ui->chkFattAcc, &QCheckBox::clicked, this,
            [this](bool Attiva) { Cornice.Applica([&] { CambiaFatturaAcconto(Nota, Attiva); }); });
    Collega(ui->cmdProgFatt, &QPushButton::clicked, this, &SchedaStampa::cmdProgFatt_Click);
    Collega(ui->cmdSkIvaDiff, &QPushButton::clicked, this, [] {
        Invoca(Aperture.PaginaWeb, sessione::PercorsoProg + u"SkIvaDiff.htm"_s,
               u"VDM - Scheda informativa Iva differita"_s);
    });
    Collega(ui->cmdClausole, &QPushButton::clicked, this, &SchedaStampa::cmdClausole_Click);
    optContrTipo = new QButtonGroup(ui->paginaIncarico);
    optContrTipo->setObjectName(u"optContrTipo"_s);
    optContrTipo->addButton(ui->optContrTipo_0, 0);
    optContrTipo->addButton(ui->optContrTipo_1, 1);
    Collega(optContrTipo, &QButtonGroup::idClicked, this, [this](int Tipo) {
        if (Tipo != Nota.optContrTipo)
            Cornice.ApplicaStampa([&] { CambiaContrTipo(Nota, Tipo); });
    });
}

void SchedaStampa::cmbTipoStampa_Click(int Tipo)
{
    Cornice.ApplicaStampa([&] { ScegliDocumento(Nota, Tipo); });
    ui->vp->ImpostaPreviewPage(1);
}

void SchedaStampa::cmdProgFatt_Click()
{
    if (Cornice.InDomanda() || !ConcludiCampo() || !NumeraFattura(Nota))
        return;
    SetModificata(Nota, true);
    Cornice.Cambiata();
    Cornice.MostraTutto();
    {
        const ClessidraAccesa Occupato;
        Cornice.Ricomponi();
    }
    Cornice.InDialogo(AggiornaProgFatt);
}

void SchedaStampa::CollegaFattura()
{
    Elettronica = new PannelloFattura(Nota, Cornice, ui->fraPagina);
    Elettronica->setObjectName(u"PannelloFattura"_s);
    Elettronica->hide();
    ui->colonnaPagina->addWidget(Elettronica, 1);
    QWidget::setTabOrder(ui->vp, Elettronica);
    Collega(ui->cmdFatturaXml, &QAbstractButton::clicked, this, [this](bool Si) {
        if (ConcludiCampo())
            MostraFattura(Si);
        else
            ui->cmdFatturaXml->setChecked(!Si);
    });
    Collega(Elettronica, &PannelloFattura::Chiuso, this, [this] {
        MostraFattura(false);
        ui->cmdFatturaXml->setFocus();
    });
}

void SchedaStampa::CollegaControlli()
{
    Controlli = new ElencoControlli(Nota, Cornice, ui->fraPagina);
    Controlli->hide();
    ui->colonnaPagina->insertWidget(ui->colonnaPagina->indexOf(ui->vp), Controlli);
    Controlli->MettiInGiro(ui->txtDatiStaControp, ui->vp);
}

void SchedaStampa::SeguonoControlli()
{
    Controlli->Segui();
}

void SchedaStampa::RileggiControlli()
{
    Controlli->Rileggi();
}

bool SchedaStampa::FatturaInVista() const
{
    return ui->cmdFatturaXml->isChecked() && TipoDi(Nota.cmbTipoStampa).EFattura;
}

void SchedaStampa::MostraFattura(bool Si)
{
    ui->cmdFatturaXml->setChecked(Si && TipoDi(Nota.cmbTipoStampa).EFattura);
    MostraAnteprima();
    if (FatturaInVista())
        Elettronica->Entra();
    else
        Ricomponi();
}

void SchedaStampa::cmdClausole_Click()
{
    if (Cornice.InDomanda() || !ConcludiCampo())
        return;
    Protetta([this] { ApriDocWord(ClausoleDaModificare(NomeClausole(Nota.cmbTipoStampa, Nota))); });
}

QWidget* SchedaStampa::Casella(CasellaNota Quale) const
{
    switch (Quale) {
    case CasellaNota::TipoStampa:
        return ui->cmbTipoStampa;
    case CasellaNota::Oggetto:
        return ui->txtDatiStaOgg;
    case CasellaNota::BloccoCliente:
        return ui->txtDatiStaCli;
    case CasellaNota::BloccoControparte:
        return ui->txtDatiStaControp;
    case CasellaNota::DataDocumento:
        return ui->txtDatiPar_1;
    case CasellaNota::NumeroFattura:
        return ui->txtDatiPar_11;
    case CasellaNota::DataFattura:
        return ui->txtDatiPar_12;
    case CasellaNota::RegimeSemplificato:
        return ui->chkRegSempl;
    case CasellaNota::IvaDifferita:
        return ui->chkIvaDiff;
    default:
        return nullptr;
    }
}

void SchedaStampa::Mostra()
{
    mostra::Elenco(ui->cmbTipoStampa, VociTipoStampa(), Nota.cmbTipoStampa, true);
    MostraDati();
    MostraParti();
    mostra::Segno(ui->chkIBAN, Nota.chkIBAN);
    mostra::Segno(ui->chkRegSempl, Nota.chkRegSempl);
    mostra::Segno(ui->chkFattAcc, Nota.chkFattAcc);
    mostra::Segno(ui->chkIvaDiff, Nota.chkIvaDiff);
    mostra::Segno(ui->chkUnaPagina, {Nota.UnaPagina, true});
    ui->cmdSkIvaDiff->setEnabled(bool(Aperture.PaginaWeb));
    MostraAnteprima();
    Elettronica->Mostra();
    Controlli->Segui();
}

void SchedaStampa::MostraDati()
{
    const TipoDocumento& Dati = TipoDi(Nota.cmbTipoStampa);
    ui->fraDatiPar->setVisible(Dati.Pannello != PannelloStampa::Nessuno);
    ui->fraDatiPar->setTitle(Dati.Titolo.toString());
    if (Dati.Pannello != PannelloStampa::Nessuno)
        MostraPannello(ui->pagineDatiPar, int(Dati.Pannello) - int(PannelloStampa::Numero));
    ui->chkIBAN->setVisible(Dati.Iban);

    for (const CampoDatiPar& Campo : CampiDatiPar()) {
        QWidget* Box = txtDatiPar(Campo.Indice);
        if (auto* Riga = qobject_cast<QLineEdit*>(Box))
            mostra::Testo(Riga, {Nota.DatiPar(Campo.Indice), true});
        else if (auto* Testo = qobject_cast<QPlainTextEdit*>(Box))
            mostra::Testo(Testo, Nota.DatiPar(Campo.Indice));
    }
    for (const CasellaRappresentante& Voce : CaselleRappresentante)
        mostra::Testo((*ui).*Voce.Box, {Nota.Rappr.*Voce.Dato, true});

    // Only a company is signed for by somebody else.
    ui->fraContrRappr->setVisible(Nota.optContrTipo == 1);
    mostra::SceltaTra(optContrTipo, Nota.optContrTipo);
}

void SchedaStampa::MostraParti()
{
    ui->fraParti->setVisible(TipoDi(Nota.cmbTipoStampa).Parti);
    for (const CasellaParte& Voce : CaselleParti)
        mostra::Testo((*ui).*Voce.Box, ParteStampata(Nota, Voce.Quale).Testo);
    MostraRubrica();
}

void SchedaStampa::MostraRubrica()
{
    // The parties are free text until the address book is there.
    for (QWidget* Bottone :
         {ui->cmdContrSelAnag_0, ui->cmdContrInsAnag_0, ui->cmdContrSelAnag_1, ui->cmdContrInsAnag_1})
        Bottone->setVisible(bool(Aperture.RubricaParcella));
}

#include "moc_SchedaStampa.cpp"
