#include "update/windows/frmUpgrade.h"

#include "calculators/modTassi.h"
#include "core/aperture.h"
#include "core/comandi.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "core/versione.h"
#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/kit/servizi_qt.h"
#include "platform/system/messaggi.h"
#include "update/scarico.h"
#include "update/windows/installatore.h"

#include "update/windows/ui_frmUpgrade.h"

#include <QPointer>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView StatoIniziale =
    u"Clicca sul pulsante di verifica per controllare la presenza di nuovi aggiornamenti...";
constexpr QStringView StatoSenzaServer = u"Nessun server di aggiornamento è impostato: con \"Da file...\" si "
                                         u"aggiorna da una cartella, per esempio di "
                                         u"una chiavetta.";
constexpr QStringView StatoPronto = u"Clicca sul pulsante Aggiorna per avviare l'aggiornamento...";
constexpr QStringView ParolaRun = u"run";

/// A size as one reads it: "912 KB", "3,4 MB".
QString Misura(qint64 Byte)
{
    constexpr qint64 Kilo = 1024;
    constexpr qint64 Mega = Kilo * Kilo;
    return Byte < Mega ? QString::number((Byte + Kilo - 1) / Kilo) + u" KB"_s
                       : Format(double(Byte) / double(Mega), u"#,##0.0") + u" MB"_s;
}

}  // namespace

/// A transfer on its way: its row is on view, the other buttons wait, and everything is as before behind it.
class frmUpgrade::Lavoro
{
public:
    explicit Lavoro(frmUpgrade& Finestra) : Modulo(Finestra)
    {
        Modulo.AlLavoro = true;
        Fuoco = Modulo.focusWidget();
        Abilita(false);
        Modulo.ui->barAvanza->setRange(0, 0);
        Modulo.ui->fraAvanza->show();
        Modulo.ui->cmdAnnulla->setFocus();
    }
    ~Lavoro()
    {
        Modulo.ui->fraAvanza->hide();
        Abilita(true);
        if (Fuoco && Fuoco->isVisible())
            Fuoco->setFocus();
        Modulo.AlLavoro = false;
    }
    Lavoro(const Lavoro&) = delete;
    Lavoro& operator=(const Lavoro&) = delete;

private:
    void Abilita(bool Si) const
    {
        for (QWidget* Pulsante :
             std::array<QWidget*, 5>{Modulo.ui->cmdFile, Modulo.ui->cmdUpgrade, Modulo.ui->cmdPreview,
                                     Modulo.ui->cmdChiudi, Modulo.ui->cmdVerifica})
            Pulsante->setEnabled(Si);
        Modulo.ui->cmdVerifica->setEnabled(Si && !DalServer().Indirizzo.isEmpty());
    }

    frmUpgrade& Modulo;
    QPointer<QWidget> Fuoco;
};

frmUpgrade::frmUpgrade() : ui(std::make_unique<Ui::frmUpgrade>())
{
    ui->setupUi(this);
    setWindowFlags(Qt::Window);
    setWindowIcon(aspetto::Icona(u"upgrade"_s));
    ui->cmdPreview->setIcon(aspetto::Icona(u"novita"_s));
    ui->cmdVerifica->setIcon(aspetto::Icona(u"upgrade"_s));
    ui->cmdFile->setIcon(aspetto::Icona(u"cartella"_s));
    ui->pannello->setBackgroundRole(QPalette::Base);
    ui->pannello->setAutoFillBackground(true);
    // Five lines of the status, three of what is new, four of the note: nothing jumps when they come.
    constexpr int RigheStato = 5;
    constexpr int RigheNovita = 3;
    constexpr int RigheNota = 4;
    ui->lblStatus->setMinimumHeight(RigheStato * fontMetrics().lineSpacing());
    ui->lblUpgrade->setMinimumHeight(RigheNovita * fontMetrics().lineSpacing());
    ui->txtNota->setFixedHeight(RigheNota * fontMetrics().lineSpacing() + 2 * aspetto::TraCampi);
    for (QWidget* Parte : std::array<QWidget*, 3>{ui->fraAvanza, ui->fraUpgrade, ui->txtNota}) {
        QSizePolicy Posto = Parte->sizePolicy();
        Posto.setRetainSizeWhenHidden(true);
        Parte->setSizePolicy(Posto);
        Parte->hide();
    }
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    aspetto::TitoliInGrassetto(this);
    aspetto::RicordaPostoDi(this, objectName());
    Collegamenti();
    Load();
}

frmUpgrade::~frmUpgrade() = default;

void frmUpgrade::Collegamenti()
{
    Collega(ui->cmdPreview, &QPushButton::clicked, this, &frmUpgrade::cmdPreview_Click);
    Collega(ui->cmdVerifica, &QPushButton::clicked, this, &frmUpgrade::cmdVerifica_Click);
    Collega(ui->cmdFile, &QPushButton::clicked, this, &frmUpgrade::cmdFile_Click);
    Collega(ui->cmdUpgrade, &QPushButton::clicked, this, &frmUpgrade::cmdUpgrade_Click);
    Collega(ui->cmdChiudi, &QPushButton::clicked, this, [this] { close(); });
}

void frmUpgrade::Load()
{
    const bool Server = !DalServer().Indirizzo.isEmpty();
    MostraPresente();
    ui->fraUpgrade->hide();
    ui->lblStatus->setText((Server ? StatoIniziale : StatoSenzaServer).toString());
    ui->cmdVerifica->setEnabled(Server);
    (Server ? ui->cmdVerifica : ui->cmdFile)->setDefault(true);
}

void frmUpgrade::MostraPresente()
{
    const auto Data = DataArchivio(ArchivioTassi());
    ui->lblVersione->setText(VersioneProgramma());
    ui->lblArchivio->setText(Data ? Format(*Data, ModelloData) : u"archivio mancante"_s);
}

void frmUpgrade::showEvent(QShowEvent* Evento)
{
    QDialog::showEvent(Evento);
    // The server and the archive may be others since the window was closed.
    if (!Evento->spontaneous() && !AlLavoro)
        Load();
}

void frmUpgrade::Mostra(const QString& Parola)
{
    PortaDavanti(this);
    Avvia(Parola);
}

void frmUpgrade::MostraModale(const QString& Parola)
{
    hide();
    QMetaObject::invokeMethod(
        this, [this, Parola] { Protetta([&] { Avvia(Parola); }); }, Qt::QueuedConnection);
    EseguiDavanti(this);
    setModal(false);
}

void frmUpgrade::Avvia(const QString& Parola)
{
    if (Parola == ParolaRun && !AlLavoro && !DalServer().Indirizzo.isEmpty())
        cmdVerifica_Click();
    else if (!AlLavoro)
        (ui->cmdVerifica->isEnabled() ? ui->cmdVerifica : ui->cmdFile)->setFocus();
}

void frmUpgrade::cmdPreview_Click()
{
    EseguiComando(u"release"_s, 0, {});
}

// ---- the check ----------------------------------------------------------------------------------

void frmUpgrade::cmdVerifica_Click()
{
    Verifica(DalServer());
}

void frmUpgrade::cmdFile_Click()
{
    const QString Scelto = DialogoApri(u"Scegli l'elenco delle versioni"_s, {},
                                       u"Elenco delle versioni (versioni.txt)|versioni.txt"_s);
    if (!Scelto.isEmpty())
        Verifica(DallaCartella(Scelto));
}

void frmUpgrade::Verifica(const Provenienza& Da)
{
    ui->fraUpgrade->hide();
    ui->lblStatus->setText(u"Ricerca degli aggiornamenti in corso..."_s);
    ProgrammaNuovo = TassiNuovi = false;
    (void)Protetta([&] {
        const Lavoro InCorso(*this);
        (void)ControlloVersioni(Da, true, Trovato,
                                [this](qint64 Ricevuti, qint64 Totale) { return Avanza(Ricevuti, Totale); });
    });
    // A list without the date of the rates may still name a newer program.
    if (!Trovato.Letto) {
        const QString Perche = Trovato.Difetto.isEmpty() ? QString() : u": "_s + Trovato.Difetto;
        ui->lblStatus->setText(u"La verifica non è riuscita"_s + Perche + u'.');
        return;
    }
    ProgrammaNuovo = VersioneNuova(sessione::VersioneDisp, VersioneProgramma());
    TassiNuovi = TassiVecchi(sessione::DataTassiDisp);
    if (ProgrammaNuovo || TassiNuovi) {
        MostraNovita();
        return;
    }
    Load();
    MsgBox(u"Il programma è già aggiornato all'ultima versione disponibile."_s, vbExclamation,
           TitoloAvvertenza.toString());
}

void frmUpgrade::MostraNovita()
{
    const QString Versione = sessione::VersioneDisp;
    ui->lblUpgrade->setText(
        u"E' presente un aggiornamento "_s +
        (ProgrammaNuovo ? u"del programma alla versione "_s + Versione
                        : u"degli indici di interesse e rivalutazione"_s) +
        u"\nDopo il download il programma verrà riavviato, chiudere pertanto le parcelle in "
        u"lavorazione prima di procedere con l'upgrade."_s);
    ui->cmdUpgrade->setText(ProgrammaNuovo ? u"Aggiorna alla versione "_s + Versione
                                           : u"Aggiorna indici di interesse"_s);
    ui->cmdUpgrade->setAccessibleName(ui->cmdUpgrade->text());
    ui->txtNota->setPlainText(sessione::NotaAgg);
    ui->txtNota->setVisible(!sessione::NotaAgg.isEmpty());
    const qint64 Byte = (TassiNuovi ? DaScaricare(Trovato, NomeTassi.toString()) : 0) +
                        (ProgrammaNuovo ? DaScaricare(Trovato, NomeInstallatore(Trovato)) : 0);
    ui->lblMisura->setText(Byte > 0 ? u"Da scaricare: "_s + Misura(Byte) : QString());
    ui->lblStatus->setText(StatoPronto.toString());
    ui->fraUpgrade->show();
    ui->cmdUpgrade->setDefault(true);
    ui->cmdUpgrade->setFocus();
}

// ---- the download -------------------------------------------------------------------------------

void frmUpgrade::Aggiungi(const QString& Riga)
{
    ui->lblStatus->setText(ui->lblStatus->text() + u'\n' + Riga);
}

bool frmUpgrade::Avanza(qint64 Ricevuti, qint64 Totale)
{
    constexpr int Intero = 1000;
    ui->barAvanza->setRange(0, Totale > 0 ? Intero : 0);
    ui->barAvanza->setValue(Totale > 0 ? int(Ricevuti * Intero / Totale) : 0);
    ui->barAvanza->setFormat(Misura(Ricevuti) + (Totale > 0 ? u" di "_s + Misura(Totale) : QString()));
    return Respira(ui->cmdAnnulla);
}

void frmUpgrade::cmdUpgrade_Click()
{
    ui->lblStatus->setText(StatoPronto.toString());  // without what an earlier try has added
    if (TassiNuovi && !AggiornaTassi())
        return;
    if (ProgrammaNuovo)
        AggiornaProgramma();
}

/// @return false when the user has stopped it
bool frmUpgrade::AggiornaTassi()
{
    Aggiungi(u"> Download archivio indici interessi"_s);
    EsitoScarico Esito;
    {
        const Lavoro InCorso(*this);
        Esito = ScaricaTassi(Trovato, [this](qint64 Avuti, qint64 Tutti) { return Avanza(Avuti, Tutti); });
    }
    if (!Esito.Riuscito()) {
        // The sentence has no room for the reason.
        ui->lblStatus->setText(ui->lblStatus->text() + u": "_s + Esito.Dettaglio);
        if (Esito.Annullato)
            return false;
        MsgErrore(FraseTassiFalliti.toString());
        return true;
    }
    TassiNuovi = false;
    MostraPresente();
    Invoca(Aperture.TassiCambiati);
    if (!ProgrammaNuovo) {
        Load();
        MsgBox(u"L'aggiornamento dell'archivio è stato correttamente completato."_s, vbExclamation,
               TitoloAvvertenza.toString());
    }
    return true;
}

void frmUpgrade::AggiornaProgramma()
{
    Aggiungi(u"> Download nuova versione del programma"_s);
    EsitoScarico Esito;
    {
        const Lavoro InCorso(*this);
        Esito =
            ScaricaProgramma(Trovato, [this](qint64 Avuti, qint64 Tutti) { return Avanza(Avuti, Tutti); });
    }
    if (Esito.Annullato) {
        // Who has pressed the button needs no assistance.
        ui->lblStatus->setText(ui->lblStatus->text() + u": "_s + Esito.Dettaglio);
        return;
    }
    if (!Esito.Riuscito()) {
        MsgErrore(FraseDownloadFallito(NomeInstallatore(Trovato), Esito.Dettaglio));
        return;
    }
    // What it announces does not come where the user installs by a command of his own.
    if (SiInstallaDaSe(Esito.File))
        MsgBox(u"Il download è stato correttamente completato.\n"_s
               u"Il programma verrà ora chiuso ed avviato l'aggiornamento."_s,
               vbInformation, TitoloMessaggio.toString());
    AvviaInstallatore(Esito.File);
}

void frmUpgrade::AvviaInstallatore(const QString& File)
{
    const QString Comando = InstallaEdEsci(Trovato, File);
    if (!Comando.isEmpty())
        Aggiungi(u"> Per installare la nuova versione, a programma chiuso: "_s + Comando);
}

#include "moc_frmUpgrade.cpp"
