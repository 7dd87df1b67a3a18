#include "core/settings/frmSfoglia.h"

#include "core/modErrori.h"
#include "platform/base/ordineitaliano.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/predefinito.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include "core/settings/ui_frmSfoglia.h"

#include <QKeyEvent>
#include <QListWidget>

using namespace Qt::StringLiterals;

namespace {

const QString NomePosto = u"frmSfoglia"_s;
constexpr int RuoloPercorso = Qt::UserRole;

/// The folder itself, or the nearest one above it that is there; the user's home for none.
QString Partenza(const QString& Chiesta)
{
    QString Cartella = Barra(Chiesta);
    while (!Cartella.isEmpty() && !EsisteCartella(Cartella))
        Cartella = CartellaSuperiore(Cartella);
    return Cartella.isEmpty() ? CartellaPersonale() : Cartella;
}

/// Names of the folders in a folder, in the Italian order.
QStringList Sottocartelle(const QString& Cartella)
{
    const ClessidraAccesa Attesa;
    QStringList Nomi;
    (void)ScorriCartella(Cartella, [&](VoceCartella&& Voce) {
        if (Voce.Cartella)
            Nomi += Voce.Nome;
        return true;
    });
    OrdinaItaliano(Nomi, [](const QString& Nome) -> const QString& { return Nome; });
    return Nomi;
}

/// The folders that lead to one, the topmost first and it the last.
QStringList CartelleFinoA(const QString& Cartella)
{
    QStringList Sopra;
    for (QString Una = Cartella; !Una.isEmpty(); Una = CartellaSuperiore(Una))
        Sopra.prepend(Una);
    return Sopra;
}

}  // namespace

frmSfoglia::frmSfoglia(QWidget* Chiamante) : QDialog(Chiamante), ui(std::make_unique<Ui::frmSfoglia>())
{
    ui->setupUi(this);
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    Collega(ui->drvDir, &QComboBox::activated, this, &frmSfoglia::drvDir_Change);
    Collega(ui->dirDir, &QListWidget::itemDoubleClicked, this, &frmSfoglia::dirDir_DblClick);
    // What the button would choose is always seen.
    Collega(ui->dirDir, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* Riga) {
        if (Riga)
            ui->txtCartella->setText(Riga->data(RuoloPercorso).toString());
    });
    Collega(ui->cmdSeleziona, &QAbstractButton::clicked, this, [this] { cmdSeleziona_Click(); });
    Collega(ui->cmdAnnulla, &QAbstractButton::clicked, this, [this] { reject(); });
    ui->dirDir->installEventFilter(this);
    ui->txtCartella->installEventFilter(this);
    // In both Enter goes into a folder; the button chooses it.
    TieneInvio(ui->dirDir);
    TieneInvio(ui->txtCartella);
    aspetto::RicordaPostoDi(this, NomePosto);
}

frmSfoglia::~frmSfoglia() = default;

QString frmSfoglia::Scegli(const QString& Titolo, const QString& Inizio)
{
    setWindowTitle(Titolo);
    Presente.clear();
    Volumi = VolumiVisibili();
    ElencaVolumi();
    const QString Prima = Partenza(Inizio);
    // A folder that is there and cannot be read is told, and the user begins at home.
    if (!VaiA(Prima) && !VaiA(CartellaPersonale()))
        return {};
    ui->dirDir->setFocus();
    return exec() == Accepted ? Presente : QString();
}

void frmSfoglia::ElencaVolumi()
{
    ui->drvDir->clear();
    for (const Volume& Uno : Volumi)
        ui->drvDir->addItem(Uno.Nome, Uno.Percorso);
}

void frmSfoglia::SeguiVolume()
{
    ui->drvDir->setCurrentIndex(VolumeDi(Volumi, Presente));
}

bool frmSfoglia::VaiA(const QString& Cartella)
{
    QStringList Dentro;
    const bool Letta = Protetta([&] { Dentro = Sottocartelle(Cartella); });
    if (Letta) {
        Presente = Barra(Cartella);
        Elenca(Dentro);
    }
    SeguiVolume();
    return Letta;
}

void frmSfoglia::Elenca(const QStringList& Dentro)
{
    constexpr int Rientro = 3;
    ui->dirDir->clear();
    const auto Aggiungi = [this](const QString& Percorso, const QString& Nome, qsizetype Profondita) {
        auto* Riga = new QListWidgetItem(QString(Profondita * Rientro, u' ') + Nome, ui->dirDir);
        Riga->setData(RuoloPercorso, Percorso);
        return Riga;
    };
    const QStringList Sopra = CartelleFinoA(Presente);
    for (qsizetype i = 0; i < Sopra.size(); ++i) {
        const QString Nome = i == 0 ? Sopra[i] : NomeFile(Sopra[i].chopped(1));
        QListWidgetItem* Riga = Aggiungi(Sopra[i], Nome, i);
        Riga->setIcon(aspetto::Icona(u"open"_s));
        if (Sopra[i] == Presente)
            ui->dirDir->setCurrentItem(Riga);
    }
    for (const QString& Nome : Dentro)
        Aggiungi(Barra(Presente + Nome), Nome, Sopra.size())->setIcon(aspetto::Icona(u"cartella"_s));
    ui->dirDir->scrollToItem(ui->dirDir->currentItem(), QAbstractItemView::PositionAtTop);
    ui->txtCartella->setText(Presente);
}

void frmSfoglia::drvDir_Change(int Indice)
{
    if (Indice >= 0 && Indice < Volumi.size())
        (void)VaiA(Volumi[Indice].Percorso);
}

void frmSfoglia::dirDir_DblClick(const QListWidgetItem* Riga)
{
    if (Riga)
        (void)VaiA(Riga->data(RuoloPercorso).toString());
}

bool frmSfoglia::VaiAllaScritta()
{
    const QString Scritta = Barra(ui->txtCartella->text().trimmed());
    // A name without its root is one of the folder on view: the process's own is nobody's choice.
    return VaiA(Scritta.isEmpty() ? Scritta : PercorsoIntero(Scritta, Presente));
}

void frmSfoglia::txtCartella_Invio()
{
    if (VaiAllaScritta())
        ui->dirDir->setFocus();
    else
        RidaiFuoco(ui->txtCartella);
}

void frmSfoglia::cmdSeleziona_Click()
{
    // Looked into once more: it may have gone since, and a typed one may never have been.
    if (VaiAllaScritta())
        accept();
    else
        RidaiFuoco(ui->txtCartella);
}

bool frmSfoglia::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Evento->type() != QEvent::KeyPress)
        return QDialog::eventFilter(Oggetto, Evento);
    const int Tasto = static_cast<QKeyEvent*>(Evento)->key();
    const bool Invio = EInvio(Tasto);
    if (Oggetto == ui->txtCartella && Invio) {
        txtCartella_Invio();
        return true;
    }
    if (Oggetto == ui->dirDir && Invio) {
        dirDir_DblClick(ui->dirDir->currentItem());
        return true;
    }
    if (Oggetto == ui->dirDir && Tasto == Qt::Key_Backspace) {
        if (const QString Sopra = CartellaSuperiore(Presente); !Sopra.isEmpty())
            (void)VaiA(Sopra);
        return true;
    }
    return QDialog::eventFilter(Oggetto, Evento);
}

#include "moc_frmSfoglia.cpp"
