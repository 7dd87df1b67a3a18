// Tab 4: the document, its data, the preview.
#include "core/aperture.h"
#include "feenote/windows/frmParcelle.h"

#include "core/comandi.h"
#include "core/modErrori.h"
#include "core/modTesti.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "feenote/companion/modPV2.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modInterruttori.h"
#include "feenote/modNumeraFattura.h"
#include "feenote/modParti.h"
#include "feenote/windows/barrastampa.h"
#include "feenote/windows/bottoniesporta.h"
#include "feenote/windows/mostra.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/scelta.h"
#include "platform/preview/stampante.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "print/modEsporta.h"
#include "print/modStampe.h"
#include "ui_SchedaStampa.h"

#include <QButtonGroup>
#include <QScopeGuard>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>

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

/// The setting holds "-1" until somebody names an editor.
bool HaEditor()
{
    return !sessione::WP.isEmpty() && sessione::WP != u"-1";
}

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
            if (const QWidget* Uno = Colonna->itemAt(i)->widget())
                Massima = std::max(Massima, Uno->minimumSizeHint().width());
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

QWidget* frmParcelle::txtDatiPar(int Indice) const
{
    return uiStampa->pagineDatiPar->findChild<QWidget*>(u"txtDatiPar_%1"_s.arg(Indice));
}

void frmParcelle::CollegaStampa()
{
    uiStampa->cmbTipoStampa->addItems(VociTipoStampa());
    uiStampa->cmbTipoStampa->setCurrentIndex(NessunaVoce);
    AlScegliere(uiStampa->cmbTipoStampa, [this](int Tipo, ModoScelta Come) {
        cmbTipoStampa_Click(Tipo);
        // Who walks through the documents with the arrows stays in the list.
        if (Come == ModoScelta::Scelta)
            uiStampa->vp->setFocus();
    });
    CollegaDatiStampa();
    CollegaSegniStampa();
    CollegaAnteprima();
    mostra::LarghezzaData(uiStampa->txtDatiPar_1);

    new LarghezzaContenuto(uiStampa->scorriDati);
    for (QWidget* Sfondo : {uiStampa->datiStampa, uiStampa->scorriDati->viewport()})
        Sfondo->setAutoFillBackground(false);
}

void frmParcelle::CollegaDatiStampa()
{
    const auto Lasciata = [this] {
        Ricomponi();
        return true;
    };
    for (const CampoDatiPar& Campo : CampiDatiPar()) {
        const auto Scritta = [this, Campo](const QString& Testo) {
            CambiaDatiPar(Nota, Campo.Indice, Testo);
            SetModificata(true);
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
    for (const CasellaRappresentante& Voce : CaselleRappresentante) {
        QLineEdit* Box = (*uiStampa).*Voce.Box;
        AlCambio(Box, [this, Voce](const QString& Testo) {
            CambiaRappresentante(Nota, Voce.Dato, Testo);
            SetModificata(true);
        });
        AlLascia(Box, Lasciata);
    }
    for (const CasellaParte& Voce : CaselleParti) {
        QPlainTextEdit* Box = (*uiStampa).*Voce.Box;
        mostra::AltezzaRighe(Box, Voce.Righe);
        AlCambio(Box, MassimoParte(Voce.Quale), [this, Voce](const QString& Testo) {
            CambiaParteStampata(Nota, Voce.Quale, Testo);
            SetModificata(true);
        });
        AlLascia(Box, [this, Voce] {
            ApplicaStampa([&] { LasciaParteStampata(Nota, Voce.Quale); });
            return true;
        });
    }
}

void frmParcelle::CollegaSegniStampa()
{
    const auto Segno = [this](QCheckBox* Box, void (*Regola)(Parcella&, bool)) {
        ::Collega(Box, &QCheckBox::clicked, this,
                  [this, Regola](bool Attivo) { ApplicaStampa([&] { Regola(Nota, Attivo); }); });
    };
    Segno(uiStampa->chkIBAN, CambiaIban);
    Segno(uiStampa->chkRegSempl, CambiaRegime);
    Segno(uiStampa->chkIvaDiff, CambiaIvaDifferita);
    // An invoice on account prints like any other.
    ::Collega(uiStampa->chkFattAcc, &QCheckBox::clicked, this,
              [this](bool Attiva) { Applica([&] { CambiaFatturaAcconto(Nota, Attiva); }); });
    ::Collega(uiStampa->cmdProgFatt, &QPushButton::clicked, this, [this] { cmdProgFatt_Click(); });
    ::Collega(uiStampa->cmdSkIvaDiff, &QPushButton::clicked, this, [] {
        if (Aperture.PaginaWeb)
            Aperture.PaginaWeb(sessione::PercorsoProg + u"SkIvaDiff.htm"_s,
                               u"VDM - Scheda informativa Iva differita"_s);
    });
    auto* Tipi = new QButtonGroup(uiStampa->paginaIncarico);
    Tipi->setObjectName(u"optContrTipo"_s);
    Tipi->addButton(uiStampa->optContrTipo_0, 0);
    Tipi->addButton(uiStampa->optContrTipo_1, 1);
    ::Collega(Tipi, &QButtonGroup::idClicked, this, [this](int Tipo) {
        if (Tipo != Nota.optContrTipo)
            ApplicaStampa([&] { CambiaContrTipo(Nota, Tipo); });
    });
}

void frmParcelle::CollegaAnteprima()
{
    txtPage = CostruisciBarraStampa(uiStampa->barPrint, [this](const QString& Chiave) {
        if (ConcludiCampo())
            barPrint_ButtonClick(Chiave);
    });
    ::Collega(uiStampa->vp, &VistaStampa::PaginaCambiata, this, [this](int Pagina) { MostraPagina(Pagina); });

    const auto Scorciatoia = [this](const QKeySequence& Tasti, auto Fai) {
        auto* Una = new QShortcut(Tasti, this);
        Una->setContext(Qt::WidgetWithChildrenShortcut);
        ::Collega(Una, &QShortcut::activated, this, Fai);
    };
    // From another tab the command brings the page up; there it sends it to the printer.
    Scorciatoia(QKeySequence::Print, [this] {
        if (!ConcludiCampo())
            return;
        if (Scheda() == SchedaDiStampa)
            barPrint_ButtonClick(u"print"_s);
        else
            EseguiComando(u"print"_s, Posto, {});
    });
}

void frmParcelle::cmbTipoStampa_Click(int Tipo)
{
    Applica([&] { ScegliDocumento(Nota, Tipo); });
    Ricomponi();
    uiStampa->vp->ImpostaPreviewPage(1);
}

void frmParcelle::EntraScheda4()
{
    AbilitaBarraStampa();  // the settings may have named another editor meanwhile
    Ricomponi();
    uiStampa->vp->ImpostaPreviewPage(1);
}

void frmParcelle::Ricomponi()
{
    // A page that nobody sees is composed when its tab opens.
    if (Scheda() != SchedaDiStampa || Nota.cmbTipoStampa == NessunaVoce)
        return;
    // A file that cannot be written is no message here: the page on view is whole.
    Protetta([this] { (void)Componi(); });
}

std::optional<Errore> frmParcelle::Componi(bool Invio)
{
    VistaStampa* vp = uiStampa->vp;
    // What was drawn before a failure is shown.
    const auto AllaFine = qScopeGuard([this, vp] {
        vp->Aggiorna();
        MostraPagina(1);  // until the reader, who stays where he was, moves
    });
    if (TogliIbanAssente(Nota))
        mostra::Segno(uiStampa->chkIBAN, Nota.chkIBAN);
    const auto Cartella = Invio ? std::optional(CartellaCompagna()) : std::nullopt;
    const auto Esito = AnteprimaConEsportazione(vp->Foglio(), Nota, Nota.cmbTipoStampa, SteloDocumento(Posto),
                                                Cartella, vp->CartaInUso());
    MemorizzaUltimaStampa(Nota);
    return Esito;
}

void frmParcelle::DopoSalvataggio()
{
    if (Nota.cmbTipoStampa != NessunaVoce) {
        Protetta([this] { (void)Componi(); });
        // What could not be composed leaves nothing to hand over: the last figures are another document's.
        if (!sessione::RichiestaPV2.ID.isEmpty() && Protetta([this] { (void)Componi(true); }))
            ConsegnaFattura(Nota);
    }
    InvioMsgPV2();
}

void frmParcelle::cmdProgFatt_Click()
{
    if (DialogoAperto || !ConcludiCampo() || !NumeraFattura(Nota))
        return;
    SetModificata(true);
    MostraTutto();
    {
        const ClessidraAccesa Occupato;
        Ricomponi();
    }
    InDialogo(AggiornaProgFatt);
}

void frmParcelle::MostraPagina(int Pagina)
{
    txtPage->setText(u"%1/%2"_s.arg(Pagina).arg(uiStampa->vp->NumeroPagine()));
}

void frmParcelle::barPrint_ButtonClick(const QString& Chiave)
{
    VistaStampa* vp = uiStampa->vp;
    if (Chiave == u"up") {
        vp->ImpostaPreviewPage(vp->PaginaInVista() - 1);
    } else if (Chiave == u"down") {
        vp->ImpostaPreviewPage(vp->PaginaInVista() + 1);
    } else if (Chiave == u"zoom") {
        vp->ImpostaZoomMode(VistaStampa::ZoomAdatta);
        vp->ImpostaZoom(100);
    } else if (Chiave == u"print") {
        StampaParcella();
    } else if (Chiave == u"pdf") {
        SalvaPdf();
    } else if (Chiave == u"word") {
        if (!DialogoAperto)
            EsportaInWord(Posto, [this] { return Componi(); });
    } else if (Chiave == u"wp") {
        AvviaEditor(Posto);
    } else if (Chiave == u"help") {
        EseguiComando(u"guida"_s, Posto, {});
    } else if (Chiave.startsWith(TastoZoom)) {
        const int Numero = Chiave.mid(1).toInt();
        if (Numero == ZoomAlFoglio)
            vp->ImpostaZoomMode(VistaStampa::ZoomAdatta);
        else
            vp->ImpostaZoom(Numero);
    }
}

void frmParcelle::StampaParcella()
{
    VistaStampa* vp = uiStampa->vp;
    if (DialogoAperto || InDialogo([vp] { return PrintDialog(*vp); }) == 0)
        return;
    PrintDoc(*vp, Nota.Nome);
    MostraPagina(vp->PaginaInVista());  // another paper may have given other pages
}

void frmParcelle::SalvaPdf()
{
    if (DialogoAperto)
        return;
    const QString File = InDialogo(
        [this] { return EsportaPdf(*uiStampa->vp, sessione::ParcellePath, NomePerFile(Nota.Nome)); });
    if (!File.isEmpty())
        MsgBox(u"Il documento "_s + NomeFile(File) + u" è stato salvato correttamente!"_s, vbInformation,
               TitoloMessaggio.toString());
}

void frmParcelle::MostraSchedaStampa()
{
    mostra::Elenco(uiStampa->cmbTipoStampa, VociTipoStampa(), Nota.cmbTipoStampa, true);
    MostraDatiStampa();
    mostra::Segno(uiStampa->chkIBAN, Nota.chkIBAN);
    mostra::Segno(uiStampa->chkRegSempl, Nota.chkRegSempl);
    mostra::Segno(uiStampa->chkFattAcc, Nota.chkFattAcc);
    mostra::Segno(uiStampa->chkIvaDiff, Nota.chkIvaDiff);
    uiStampa->cmdSkIvaDiff->setEnabled(bool(Aperture.PaginaWeb));

    const bool Scelto = Nota.cmbTipoStampa != NessunaVoce;
    uiStampa->vp->setVisible(Scelto);
    uiStampa->lblSenzaDocumento->setVisible(!Scelto);
    AbilitaBarraStampa();
    if (!Scelto)
        txtPage->clear();
}

void frmParcelle::AbilitaBarraStampa()
{
    const bool Scelto = Nota.cmbTipoStampa != NessunaVoce;
    for (QAction* Tasto : uiStampa->barPrint->actions()) {
        const QString Chiave = Tasto->objectName();
        Tasto->setEnabled(Chiave == u"help" || (Scelto && (Chiave != u"wp" || HaEditor())));
    }
}

void frmParcelle::MostraDatiStampa()
{
    const TipoDocumento& Dati = TipoDi(Nota.cmbTipoStampa);
    uiStampa->fraDatiPar->setVisible(Dati.Pannello != PannelloStampa::Nessuno);
    uiStampa->fraDatiPar->setTitle(Dati.Titolo.toString());
    if (Dati.Pannello != PannelloStampa::Nessuno)
        MostraPannello(uiStampa->pagineDatiPar, int(Dati.Pannello) - int(PannelloStampa::Numero));
    uiStampa->chkIBAN->setVisible(Dati.Iban);
    uiStampa->fraParti->setVisible(Dati.Parti);

    for (const CampoDatiPar& Campo : CampiDatiPar()) {
        QWidget* Box = txtDatiPar(Campo.Indice);
        if (auto* Riga = qobject_cast<QLineEdit*>(Box))
            mostra::Testo(Riga, {Nota.DatiPar(Campo.Indice), true});
        else if (auto* Testo = qobject_cast<QPlainTextEdit*>(Box))
            mostra::Testo(Testo, Nota.DatiPar(Campo.Indice));
    }
    for (const CasellaParte& Voce : CaselleParti)
        mostra::Testo((*uiStampa).*Voce.Box, ParteStampata(Nota, Voce.Quale).Testo);
    for (const CasellaRappresentante& Voce : CaselleRappresentante)
        mostra::Testo((*uiStampa).*Voce.Box, {Nota.Rappr.*Voce.Dato, true});

    // Only a company is signed for by somebody else.
    uiStampa->fraContrRappr->setVisible(Nota.optContrTipo == 1);
    mostra::Opzioni(findChild<QButtonGroup*>(u"optContrTipo"_s), Nota.optContrTipo);
}
