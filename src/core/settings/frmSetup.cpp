#include "core/settings/frmSetup.h"

#include "core/aperture.h"
#include "core/impostazioni.h"
#include "core/modAvvio.h"
#include "core/modControlli.h"
#include "core/modErrori.h"
#include "core/modIcone.h"
#include "core/modLogo.h"
#include "core/parametri.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "core/settings/SchedaCartelle.h"
#include "core/settings/SchedaContabili.h"
#include "core/settings/SchedaDesktop.h"
#include "core/settings/SchedaDocumenti.h"
#include "core/settings/SchedaFattura.h"
#include "core/settings/paginascorrevole.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/kit/suggerimento.h"
#include "platform/system/impostazioni.h"
#include "platform/system/messaggi.h"

#include "core/settings/ui_frmSetup.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QTabBar>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <variant>

using namespace Qt::StringLiterals;

namespace {

/// A box of the first tab and the key that it shows.
struct CampoImpostazione
{
    QLineEdit* Ui::frmSetup::*Campo;
    QStringView Chiave;
};

constexpr std::array CampiStudio{
    CampoImpostazione{&Ui::frmSetup::txtNomeStudio, u"StudioNome"},
    CampoImpostazione{&Ui::frmSetup::txtIndStudio, u"StudioIndir"},
    CampoImpostazione{&Ui::frmSetup::txtCittaStudio, u"StudioCitta"},
    CampoImpostazione{&Ui::frmSetup::txtEMail, u"StudioMail"},
    CampoImpostazione{&Ui::frmSetup::txtCodFisStudio, u"StudioCodFisc"},
    CampoImpostazione{&Ui::frmSetup::txtPivaStudio, u"StudioPIva"},
    CampoImpostazione{&Ui::frmSetup::txtFirma, u"Firma"},
    CampoImpostazione{&Ui::frmSetup::txtFirmaDigit, u"FirmaDigit"},
    CampoImpostazione{&Ui::frmSetup::txtIBAN, u"Iban"},
};

using impostazioni::CasellaStudio;

/// Where another window leads on the first tab; the other boxes are of SchedaFattura.
using CampoStudio = QLineEdit* Ui::frmSetup::*;
constexpr std::array<std::pair<CasellaStudio, CampoStudio>, 5> CaselleStudio{{
    {CasellaStudio::Nome, &Ui::frmSetup::txtNomeStudio},
    {CasellaStudio::PartitaIva, &Ui::frmSetup::txtPivaStudio},
    {CasellaStudio::CodiceFiscale, &Ui::frmSetup::txtCodFisStudio},
    {CasellaStudio::Iban, &Ui::frmSetup::txtIBAN},
    {CasellaStudio::Email, &Ui::frmSetup::txtEMail},
}};

/// A box that must not be empty, of the first tab or of the page of folders.
struct Obbligo
{
    std::variant<CampoStudio, QLineEdit* (SchedaCartelle::*)() const> Campo;
    QStringView Messaggio;
};

/// In the order in which they are looked at.
constexpr std::array Obblighi{
    Obbligo{&Ui::frmSetup::txtNomeStudio, u"Non è stato specificato il nome dello studio!"},
    Obbligo{&Ui::frmSetup::txtIndStudio, u"Non è stato specificato l'indirizzo!"},
    Obbligo{&Ui::frmSetup::txtCittaStudio, u"Non è stato specificata la città!"},
    Obbligo{&Ui::frmSetup::txtEMail, u"Non è stata specificata la mail!"},
    Obbligo{&SchedaCartelle::CasellaProgramma, u"Non è stata specificata la cartella del Programma!"},
    Obbligo{&SchedaCartelle::CasellaArchivio, u"Non è stata specificato l'archivio Clienti/Controparti!"},
    // Empty, it would hide the notes of the office, and the next start would choose another one.
    Obbligo{&SchedaCartelle::CasellaParcelle, u"Non è stata specificata la cartella delle parcelle!"},
};

QLineEdit* CampoDi(const Obbligo& Voce, const Ui::frmSetup& Prima, const SchedaCartelle& Cartelle)
{
    if (const auto* Studio = std::get_if<CampoStudio>(&Voce.Campo))
        return Prima.**Studio;
    return (Cartelle.*std::get<1>(Voce.Campo))();
}

int SchedaDi(const Obbligo& Voce)
{
    return std::holds_alternative<CampoStudio>(Voce.Campo) ? impostazioni::SchedaDatiStudio
                                                           : impostazioni::SchedaSetup;
}

/// What each tab is for.
constexpr std::array<QStringView, impostazioni::Schede> Aiuti{
    u"Nome, indirizzo, città e posta elettronica sono obbligatori: compaiono nell'intestazione dei "
    u"documenti. Codice fiscale, partita IVA e IBAN compaiono nelle fatture; la firma sotto ogni documento. "
    u"La firma digitale si conserva qui e non si stampa. Un codice o un indirizzo che non torna è segnalato "
    u"accanto alla casella e si può conservare ugualmente.",
    u"La tariffa e le percentuali proposte nelle parcelle nuove; quelle già aperte tengono le proprie, e la "
    u"tariffa di ciascuna si cambia nei suoi dati base. Di una casella vuota resta la percentuale di prima "
    u"fino alla chiusura del programma; dal prossimo avvio vale quella iniziale (21, 20, 12,5 e 4). Il "
    u"numero dell'ultima fattura avanza da solo a ogni fattura: si corregge qui soltanto per ricominciare la "
    u"numerazione.",
    u"Dove stanno programma, archivio dei clienti, parcelle e dati dell'utente. Una cartella che non esiste "
    u"è segnalata e si crea con il pulsante \"Crea\". Il word processor è facoltativo: senza, i documenti si "
    u"aprono con il programma del sistema.",
    u"Un modello imposta in un colpo solo immagine e colori della scrivania; ognuno si cambia poi da sé. Le "
    u"icone personali aprono programmi, documenti, cartelle o pagine internet: doppio clic o Invio le "
    u"modifica, Canc le elimina; si riordinano trascinandole per la colonna a sinistra del titolo, o con "
    u"Alt+Su e Alt+Giù. Nulla cambia fino a \"Memorizza le impostazioni\".",
    u"Quel che la fattura elettronica dice dello studio, oltre ai codici fiscali e all'IBAN dei dati studio. "
    u"L'indirizzo va diviso nelle sue parti: quello dei documenti di carta resta com'è scritto. Di una "
    u"persona fisica si possono indicare nome e cognome; vuoti, vale il nome dello studio. Il numero "
    u"dell'ultimo file avanza da solo a ogni fattura scritta: si corregge qui soltanto per continuare una "
    u"numerazione.",
    u"Il logo sta in testa alla prima pagina dei documenti spuntati, sopra l'intestazione dello studio: il "
    u"programma ne tiene una copia propria. La fattura sintetica lascia il margine alla carta intestata, la "
    u"nota spese e la sola parte contabile non hanno intestazione: lì il logo va chiesto. Oggetto e testo "
    u"del messaggio servono al pulsante \"Invia per posta\" della stampa.",
};
static_assert(!Aiuti.back().isEmpty());

/// Programs count on in the store while the form is open.
bool EContatore(const QString& Chiave)
{
    return Chiave == chiavi::ProgFatt || Chiave == chiavi::ProgTrasm;
}

/// The store holds no text of the key, not even an empty one.
bool MancaNelDeposito(QStringView Chiave)
{
    const QString Mai{QChar(0)};
    return Impostazione(Chiave.toString(), Mai) == Mai;
}

/// The store names a picture that can be read, or says that the logo was taken away. Of one that has lost or
/// garbled the name any picture may be the office's.
bool IlLogoSiSa()
{
    return logo::Leggi(sessione::LogoImpronta) || (!MancaNelDeposito(chiavi::LogoImpronta) &&
                                                   Impostazione(chiavi::LogoImpronta.toString()).isEmpty());
}

/// Whether to store the counters that are lost.
/// @param Guaste the damaged settings are still there
/// @param Numero what would be stored: of both the same
QString DomandaPersi(bool Guaste, bool DiFattura, bool DiFile, const QString& Numero)
{
    const bool Due = DiFattura && DiFile;
    QString Quali = u"i numeri dell'ultima fattura e dell'ultimo file XML"_s;
    if (!Due)
        Quali = DiFattura ? u"il numero dell'ultima fattura"_s : u"il numero dell'ultimo file XML"_s;
    const QString Come =
        Guaste
            ? u"Nelle impostazioni danneggiate "_s + Quali + (Due ? u" non si leggono"_s : u" non si legge"_s)
            : u"Con le impostazioni di prima "_s +
                  (Due ? u"possono essere andati persi "_s : u"può essere andato perso "_s) + Quali;
    return u"%1: con %2 si potrebbero ripetere numeri già usati.\n%3 ugualmente?"_s.arg(
        Come, Numero, Due ? u"Memorizzarli"_s : u"Memorizzarlo"_s);
}

/// The text of a key; none where the form does not write it.
std::optional<QString> ValoreDi(const ValoriScheda& Valori, const QString& Chiave)
{
    const auto Trovato = std::ranges::find_if(
        Valori, [&](const auto& Voce) { return Voce.first.compare(Chiave, Qt::CaseInsensitive) == 0; });
    return Trovato == Valori.end() ? std::nullopt : std::optional(Trovato->second);
}

}  // namespace

frmSetup::frmSetup()
    : ui(std::make_unique<Ui::frmSetup>()), Contabili(new SchedaContabili(this)),
      Cartelle(new SchedaCartelle(this)), Desktop(new SchedaDesktop(this)), Fattura(new SchedaFattura(this)),
      Documenti(new SchedaDocumenti(this))
{
    ui->setupUi(this);
    const std::array<std::pair<QWidget*, QStringView>, 5> Pagine{{{Contabili, u"Dati contabili"},
                                                                  {Cartelle, u"Setup"},
                                                                  {Desktop, u"Personalizza desktop"},
                                                                  {Fattura, u"Fattura elettronica"},
                                                                  {Documenti, u"Documenti"}}};
    const QString PrimoTitolo = ui->tabSetup->tabText(0);
    QWidget* Prima = ui->tabSetup->widget(0);
    ui->tabSetup->removeTab(0);
    ui->tabSetup->addTab(new PaginaScorrevole(Prima), PrimoTitolo);
    for (const auto& [Pagina, Titolo] : Pagine) {
        Pagina->setObjectName(u"fraSetup_%1"_s.arg(ui->tabSetup->count()));
        ui->tabSetup->addTab(new PaginaScorrevole(Pagina), Titolo.toString());
    }
    // A remark that comes and goes beside its field moves no field, and those that have one end together.
    int PiuLargo = 0;
    const std::array Avvisi{ui->lblAvvisoEMail, ui->lblAvvisoCodFis, ui->lblAvvisoPiva, ui->lblAvvisoIBAN};
    for (const QLabel* Avviso : Avvisi)
        PiuLargo = std::max(PiuLargo, Avviso->sizeHint().width());
    for (QLabel* Avviso : Avvisi) {
        Avviso->setFixedWidth(PiuLargo);
        QSizePolicy Posto = Avviso->sizePolicy();
        Posto.setRetainSizeWhenHidden(true);
        Avviso->setSizePolicy(Posto);
    }
    // From the page on view to the buttons; behind the last one the round begins anew with the tabs.
    setTabOrder(ui->txtIBAN, ui->cmdHelp);
    setTabOrder(ui->cmdHelp, ui->cmdSaveImpost);
    setTabOrder(ui->cmdSaveImpost, ui->cmdChiudi);
    ui->pctHelp->hide();
    Fattura->IndirizzoScritto = [this] {
        return std::pair(ui->txtIndStudio->text(), ui->txtCittaStudio->text());
    };
    aspetto::TitoliInGrassetto(this);
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    aspetto::RicordaPostoDi(this, objectName());
    Collega(ui->cmdSaveImpost, &QAbstractButton::clicked, this, [this] { cmdSaveImpost_Click(); });
    Collega(ui->cmdChiudi, &QAbstractButton::clicked, this, [this] { close(); });
    Collega(ui->cmdHelp, &QAbstractButton::toggled, this, [this](bool Si) { ShowHelp(Si); });
    Collega(this, &QDialog::finished, this, [] { Invoca(Aperture.ImpostazioniChiuse); });
    Collega(ui->tabSetup, &QTabWidget::currentChanged, this, [this] {
        PortatoDavanti = false;
        ShowHelp(ui->cmdHelp->isChecked());
    });
    for (const Obbligo& Voce : Obblighi) {
        QLineEdit* Campo = CampoDi(Voce, *ui, *Cartelle);
        Campo->setPlaceholderText(u"obbligatorio"_s);
        SuggerisciLeggibile(Campo);
    }
    for (const QLineEdit* Campo : {ui->txtEMail, ui->txtCodFisStudio, ui->txtPivaStudio, ui->txtIBAN})
        Collega(Campo, &QLineEdit::textChanged, this, [this] { SegnaControlli(); });
    LasciaPrima(ui->tabSetup->tabBar());
    CreaTasti();
}

frmSetup::~frmSetup() = default;

void frmSetup::CreaTasti()
{
    const auto Tasto = [this](const auto& Sequenza, auto Azione) {
        Collega(new QShortcut(Sequenza, this), &QShortcut::activated, this, std::move(Azione));
    };
    const auto Gira = [this](int Passo) {
        const int Quante = ui->tabSetup->count();
        if (ConcludiCampo())
            ui->tabSetup->setCurrentIndex((ui->tabSetup->currentIndex() + Passo + Quante) % Quante);
    };
    Tasto(QKeySequence(Qt::CTRL | Qt::Key_S), [this] { cmdSaveImpost_Click(); });
    // On a display a list in the page keeps Ctrl+Tab for itself.
    Tasto(QKeySequence::NextChild, [Gira] { Gira(1); });
    Tasto(QKeySequence::PreviousChild, [Gira] { Gira(-1); });
    Tasto(QKeySequence(Qt::CTRL | Qt::Key_PageDown), [Gira] { Gira(1); });
    Tasto(QKeySequence(Qt::CTRL | Qt::Key_PageUp), [Gira] { Gira(-1); });
    Tasto(QKeySequence(Qt::SHIFT | Qt::Key_F1), [this] { ui->cmdHelp->toggle(); });
}

void frmSetup::Prepara(int Indice)
{
    if (!isVisible()) {
        ui->cmdHelp->setChecked(false);
        LoadValori();
        ui->txtNomeStudio->setFocus();
        resize(sizeHint());
    }
    ChangeTab(Indice);
    PortatoDavanti = false;
}

void frmSetup::Mostra(int Indice)
{
    Prepara(Indice);
    PortaDavanti(this);
}

void frmSetup::MostraModale(int Indice)
{
    Prepara(Indice);
    if (!isVisible()) {
        EseguiDavanti(this);
        return;
    }
    PortaDavanti(this);
}

void frmSetup::MostraCasella(CasellaStudio Quale)
{
    if (QWidget* DiFattura = Fattura->Casella(Quale)) {
        Mostra(SchedaFatturaElettronica);
        RidaiFuoco(DiFattura);
        return;
    }
    Mostra(SchedaDatiStudio);
    if (const auto Sua =
            std::ranges::find(CaselleStudio, Quale, &std::pair<CasellaStudio, CampoStudio>::first);
        Sua != CaselleStudio.end())
        RidaiFuoco(ui.get()->*Sua->second);
}

void frmSetup::ChangeTab(int Indice)
{
    if (Indice >= 0 && Indice < ui->tabSetup->count())
        ui->tabSetup->setCurrentIndex(Indice);
}

void frmSetup::ShowHelp(bool Si)
{
    ui->pctHelp->setText(Aiuti.at(size_t(ui->tabSetup->currentIndex())).toString());
    ui->pctHelp->setVisible(Si);
}

/// Esc is pressed by habit, the button by intention: only the key asks.
void frmSetup::keyPressEvent(QKeyEvent* Evento)
{
    const bool Esce = Evento->key() == Qt::Key_Escape;
    if (Esce && ui->cmdHelp->isChecked())
        ui->cmdHelp->setChecked(false);
    else if (
        !Esce || !Cambiate() ||
        MsgBox(u"Le modifiche alle impostazioni non sono state memorizzate.\nChiudere senza memorizzarle?"_s,
               vbYesNo | vbQuestion | vbDefaultButton2, TitoloDomanda.toString()) == vbYes)
        QDialog::keyPressEvent(Evento);
}

// ---- values -------------------------------------------------------------------------------------

void frmSetup::CaricaStudio()
{
    for (const CampoImpostazione& Voce : CampiStudio)
        MostraIntero(ui.get()->*Voce.Campo, ValoreConservato(Voce.Chiave));
    SegnaControlli();
}

void frmSetup::LoadValori()
{
    Conservati.clear();
    for (const VoceImpostazione& Voce : VociImpostazioni())
        Conservati[Voce.Chiave.toString().toLower()] = Impostazione(Voce.Chiave.toString());
    ContatoriPersi.clear();
    const std::optional<DepositoGuasto> Guasto = EsaminaImpostazioni(NomeApplicazione.toString());
    if (Guasto)
        RicordaDanno(*Guasto);
    DannoLetto = std::max(DannoRicordato(), Guasto ? DannoDi(*Guasto) : DannoImpostazioni::Nessuno);
    if (DannoLetto != DannoImpostazioni::Nessuno)
        for (const QStringView Chiave : {chiavi::ProgFatt, chiavi::ProgTrasm})
            if (Impostazione(Chiave.toString()).trimmed().isEmpty())
                ContatoriPersi.insert(Chiave.toString());
    CaricaStudio();
    Contabili->Carica();
    Cartelle->Carica();
    Desktop->Carica();
    Fattura->Carica();
    Documenti->Carica();
    SegnaLetti();
}

void frmSetup::SegnaControlli()
{
    // Marked and never refused: a code of another country follows other rules.
    const auto Segna = [](QLineEdit* Campo, QLabel* Accanto, bool Torna, const QString& Avviso) {
        QPalette Colori = Accanto->palette();
        Colori.setColor(QPalette::WindowText, aspetto::Sbagliato());
        Accanto->setPalette(Colori);
        Accanto->setVisible(!Torna);
        Campo->setToolTip(Torna ? QString() : Avviso);
        Campo->setAccessibleDescription(Campo->toolTip());
    };
    const QString Posta = ui->txtEMail->text();
    const QString CodFis = ui->txtCodFisStudio->text();
    const QString PIva = ui->txtPivaStudio->text();
    const QString Iban = ui->txtIBAN->text();
    Segna(ui->txtEMail, ui->lblAvvisoEMail, Posta.trimmed().isEmpty() || PostaTorna(Posta),
          u"Un indirizzo di posta elettronica ha la forma nome@dominio"_s);
    Segna(ui->txtCodFisStudio, ui->lblAvvisoCodFis, CodFis.trimmed().isEmpty() || CodiceFiscaleTorna(CodFis),
          u"Il codice fiscale non torna con il suo carattere di controllo"_s);
    Segna(ui->txtPivaStudio, ui->lblAvvisoPiva, PIva.trimmed().isEmpty() || PartitaIvaTorna(PIva),
          u"La partita IVA non torna con la sua cifra di controllo"_s);
    Segna(ui->txtIBAN, ui->lblAvvisoIBAN, Iban.trimmed().isEmpty() || IbanTorna(Iban),
          u"L'IBAN non torna con le sue cifre di controllo"_s);
}

bool frmSetup::Rifiuta(const QString& Messaggio, int Indice, QWidget* Campo)
{
    MsgErrore(Messaggio);
    return Porta(Indice, Campo);
}

bool frmSetup::Porta(int Indice, QWidget* Campo)
{
    if (ui->tabSetup->currentIndex() != Indice) {
        ChangeTab(Indice);
        PortatoDavanti = true;
    }
    RidaiFuoco(Campo);
    return false;
}

bool frmSetup::CheckValori()
{
    for (const Obbligo& Voce : Obblighi) {
        QLineEdit* Campo = CampoDi(Voce, *ui, *Cartelle);
        if (Campo->text().trimmed().isEmpty())
            return Rifiuta(Voce.Messaggio.toString(), SchedaDi(Voce), Campo);
    }
    return true;
}

bool frmSetup::CheckNumero()
{
    const QString Messaggio = u"Immettere un valore numerico!"_s;
    if (QLineEdit* Campo = Contabili->NumeroSbagliato())
        return Rifiuta(Messaggio, SchedaDatiContabili, Campo);
    if (QLineEdit* Campo = Fattura->NumeroSbagliato())
        return Rifiuta(Messaggio, SchedaFatturaElettronica, Campo);
    if (!ConfermaPersi())
        return false;
    const std::optional<int> Prima = Fattura->NumeroIndietro();
    if (!Prima ||
        MsgBox(u"Il numero dell'ultimo file XML torna indietro, era %1: si ripeterebbero nomi già usati.\n"
               "Memorizzarlo ugualmente?"_s.arg(*Prima),
               vbYesNo | vbQuestion | vbDefaultButton2, TitoloDomanda.toString()) == vbYes)
        return true;
    return Porta(SchedaFatturaElettronica, Fattura->CasellaNumero());
}

/// A store that is or was damaged holds no counter, and nobody has written one into its box: what the form
/// would store may not be the number that the office has come to. Nobody knows whether it has ever come to
/// one.
bool frmSetup::ConfermaPersi()
{
    const std::optional<DepositoGuasto> Guasto = EsaminaImpostazioni(NomeApplicazione.toString());
    if (Guasto && DannoDi(*Guasto) != DannoImpostazioni::Perse)
        return true;  // nothing is stored before it can be read
    // What could not be read has lost nothing once it is back. A window that remembers its place makes a file
    // too, but none with what an office has stored.
    if (!Guasto && DannoLetto != DannoImpostazioni::Perse && !Impostazione(u"StudioNome"_s).isEmpty())
        return true;
    const ValoriScheda Ora = Valori();
    QString Mostrato;
    const auto Perso = [&](QStringView Quale) {
        const QString Chiave = Quale.toString();
        const std::optional<QString> Numero = ValoreDi(Ora, Chiave);
        if (!ContatoriPersi.contains(Chiave) || Numero != ValoreDi(Letti, Chiave) ||
            !Impostazione(Chiave).trimmed().isEmpty())
            return false;
        Mostrato = Numero.value_or(QString());
        return true;
    };
    const bool DiFattura = Perso(chiavi::ProgFatt);
    const bool DiFile = Perso(chiavi::ProgTrasm);
    if (!DiFattura && !DiFile)
        return true;
    if (MsgBox(DomandaPersi(Guasto.has_value(), DiFattura, DiFile, Mostrato),
               vbYesNo | vbQuestion | vbDefaultButton2, TitoloDomanda.toString()) == vbYes)
        return true;
    return DiFattura ? Porta(SchedaDatiContabili, Contabili->CasellaNumero())
                     : Porta(SchedaFatturaElettronica, Fattura->CasellaNumero());
}

ValoriScheda frmSetup::Valori() const
{
    ValoriScheda Tutti;
    for (const CampoImpostazione& Voce : CampiStudio)
        Tutti.append({Voce.Chiave.toString(), (ui.get()->*Voce.Campo)->text()});
    return Tutti + Contabili->Valori() + Cartelle->Valori() + Desktop->Valori() + Fattura->Valori() +
           Documenti->Valori();
}

bool frmSetup::Cambiate() const
{
    return Valori() != Letti || Desktop->IconeCambiate() || Documenti->LogoCambiato();
}

void frmSetup::SegnaLetti()
{
    Letti = Valori();
}

/// All of them but what another program has stored since the form was read, and nobody has touched here: an
/// office works with one set of settings from several places.
void frmSetup::SalvaValori()
{
    Documenti->ConservaLogo();
    const ValoriScheda Mostrati = Valori();
    const auto Intatta = [&](const QString& Chiave) {
        return ValoreDi(Letti, Chiave) == ValoreDi(Mostrati, Chiave);
    };
    ValoriScheda Tutti = Mostrati;
    // Nobody counts on in a damaged store; whoever did before it was may have gone further than the form.
    if (EsaminaImpostazioni(NomeApplicazione.toString()))
        for (auto& [Chiave, Valore] : Tutti)
            if (EContatore(Chiave) && Intatta(Chiave) && ValoreConservato(Chiave).toInt() > Valore.toInt())
                Valore = ValoreConservato(Chiave);
    // An empty name says that the logo was taken away; of one that a damaged file has lost nobody has said
    // so.
    if (MancaNelDeposito(chiavi::LogoImpronta) && Intatta(chiavi::LogoImpronta.toString()))
        Tutti.removeIf(
            [](const auto& Voce) { return Voce.first == chiavi::LogoImpronta && Voce.second.isEmpty(); });
    QSet<QString> Lasciate;
    const auto SiScrive = [&](const QString& Chiave, const QString& Ora) {
        // A counter that is held counts on without the form; an empty one would stop each start.
        if (!Intatta(Chiave) ||
            (EContatore(Chiave) ? Ora.trimmed().isEmpty() : Ora == Conservati.value(Chiave.toLower())))
            return true;
        Lasciate.insert(Chiave);
        return false;
    };
    // In one write: a failure in the middle would leave half of them.
    SalvaImpostazioni(Tutti, SiScrive);
    for (const auto& [Chiave, Valore] : Tutti)
        if (!Lasciate.contains(Chiave))
            Conservati[Chiave.toLower()] = Valore;
}

void frmSetup::SegueArchivio()
{
    const bool Prima = Cambiate();
    Cartelle->SegueArchivio();
    if (!Prima)
        SegnaLetti();
}

void frmSetup::cmdSaveImpost_Click()
{
    if (!ConcludiCampo())
        return;
    // What is refused leads to another page, and the save behind it would not know of the choice.
    if (ui->tabSetup->currentIndex() == SchedaDatiContabili && !PortatoDavanti)
        Contabili->ScegliTariffaInVista();
    if (!CheckValori() || !CheckNumero())
        return;
    const bool IconeCambiate = Desktop->IconeCambiate();
    const bool IconeScritte = Desktop->SalvaIcone();
    const bool IconeNuove = IconeCambiate && IconeScritte;
    if (!IconeScritte)
        MsgErrore(u"Errore scrittura .ini"_s);
    if (!Protetta([this] { SalvaValori(); })) {
        // The icons are written all the same: those of the desktop would open their neighbours' targets.
        Invoca(Aperture.ImpostazioniCambiate);
        return;
    }
    const TabellaRighe IconeSue = IconeNuove ? LeggiIcone() : TabellaRighe(ColonneIcona);
    RileggiVariabili();
    const bool AltreIcone = IconeNuove && LeggiIcone() != IconeSue;
    if (IlLogoSiSa())
        logo::TogliAltri(sessione::LogoImpronta);
    Invoca(Aperture.ImpostazioniCambiate);
    CaricaStudio();
    Contabili->Carica();
    Cartelle->Ricarica();
    Fattura->Carica();
    Documenti->Carica();
    // Another folder may hold other icons; those that could not be written stay in the form.
    if (IconeScritte)
        Desktop->Carica();
    SegnaLetti();
    ContatoriPersi.clear();
    DimenticaDanno();
    MsgBox(u"Le impostazioni sono state memorizzate!"_s, vbInformation, TitoloMessaggio.toString());
    if (AltreIcone)
        MsgBox(u"Le icone personali aggiunte o modificate valgono per la cartella utente di prima: quella "
               u"nuova ha le sue."_s,
               vbInformation, TitoloMessaggio.toString());
    if (ParcellaAperta())
        MsgBox(u"Per essere certi della piena operatività è consigliabile riavviare il programma."_s,
               vbInformation, TitoloMessaggio.toString());
    // Opened by the start, the form has done what it was opened for.
    if (isModal())
        accept();
}

// ---- icons of the desktop -----------------------------------------------------------------------

void frmSetup::ModificaIcona(int Riga)
{
    ChangeTab(SchedaPersonalizza);
    if (const std::optional<int> Propria = Desktop->RigaDi(Riga))
        Desktop->ModificaIcona(*Propria);
}

void frmSetup::EliminaIcona(int Riga)
{
    ChangeTab(SchedaPersonalizza);
    if (const std::optional<int> Propria = Desktop->RigaDi(Riga))
        Desktop->EliminaIcona(*Propria);
}

#include "moc_frmSetup.cpp"
