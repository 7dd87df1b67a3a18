#include "calculators/windows/frmAgenda.h"

#include "calculators/windows/finestracalcolo.h"
#include "core/modErrori.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/system/cartelle.h"
#include "platform/system/esportato.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include "calculators/windows/ui_frmAgenda.h"

#include <QListWidget>

using namespace Qt::StringLiterals;

namespace {

const QString Filtro = u"Calendario (*.ics)|*.ics"_s;

/// A folder of the user's own, which a shared user folder is not: the other program reads the file after this
/// one has let it go. What it has read before goes now, since clients are named in it.
QString CartellaConsegna()
{
    QString Cartella = CartellaDati() + Barra(u"agenda"_s);
    CreaCartellaPrivata(CartellaDati());
    CreaCartellaPrivata(Cartella);
    for (const QString& Vecchio : NomiDeiFile(Cartella, u".ics"_s))
        ScartaFile(Cartella + Vecchio);
    return Cartella;
}

}  // namespace

frmAgenda::frmAgenda(QWidget* Padre, const QList<TermineContato>& Scadenze, InsiemeNorme Norme)
    : QDialog(Padre), ui(std::make_unique<Ui::frmAgenda>()), Termini(Scadenze), Insieme(Norme)
{
    ui->setupUi(this);
    for (const TermineContato& Termine : std::as_const(Termini)) {
        auto* Riga = new QListWidgetItem(TestoAgenda({AgendaDi(Termine, Insieme)}), ui->lstScadenze);
        Riga->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        Riga->setCheckState(Qt::Checked);
    }
    ui->lstScadenze->setCurrentRow(0);
    constexpr int RigheMinime = 4;
    ui->lstScadenze->setMinimumHeight(ui->lstScadenze->sizeHintForRow(0) * RigheMinime);
    ui->cmdApri->setIcon(aspetto::Icona(u"calendario"_s));
    ui->cmdSalva->setIcon(aspetto::Icona(u"save"_s));
    ui->cmdCopia->setIcon(aspetto::Icona(u"copia"_s));
    PreparaModulo(this, u"calendario"_s);
    setWindowModality(Qt::WindowModal);
    Collegamenti();
    Abilita();
}

frmAgenda::~frmAgenda() = default;

void frmAgenda::Collegamenti()
{
    Collega(ui->lstScadenze, &QListWidget::itemChanged, this, [this] { Abilita(); });
    Collega(ui->cmdApri, &QPushButton::clicked, this, [this] { cmdApri_Click(); });
    Collega(ui->cmdSalva, &QPushButton::clicked, this, [this] { cmdSalva_Click(); });
    Collega(ui->cmdChiudi, &QPushButton::clicked, this, [this] { close(); });
    CopiaRisultato(this, ui->cmdCopia, [this] { return TestoAgenda(Scelte()); });
}

void frmAgenda::Mostra()
{
    if (MostraModulo(this))
        ui->txtPratica->setFocus();
}

void frmAgenda::Abilita()
{
    const bool Qualcuna = !Scelte().isEmpty();
    for (QPushButton* Pulsante : {ui->cmdApri, ui->cmdSalva, ui->cmdCopia})
        Pulsante->setEnabled(Qualcuna);
}

QList<VoceAgenda> frmAgenda::Scelte() const
{
    QList<VoceAgenda> Voci;
    for (int i = 0; i < ui->lstScadenze->count(); ++i)
        if (ui->lstScadenze->item(i)->checkState() == Qt::Checked)
            Voci << AgendaDi(Termini[i], Insieme, ui->txtPratica->text().trimmed());
    return Voci;
}

void frmAgenda::cmdApri_Click()
{
    const QList<VoceAgenda> Voci = Scelte();
    const QString File = SalvaIcs(CartellaConsegna() + NomeFileIcs(Voci), Voci);
    if (!HaProgramma(File)) {
        ScartaFile(File);  // it names the client, and nobody asked for a copy
        MsgErrore(u"Nessun programma di questo computer apre i calendari .ics. Salvare il file e importarlo "
                  "dal calendario che si usa."_s);
        return;
    }
    VerificaEsito(ApriConSistema(File));
}

void frmAgenda::cmdSalva_Click()
{
    const QList<VoceAgenda> Voci = Scelte();
    const QString Proposto = CartellaSpeciale(CartellaDocumenti) + NomeFileIcs(Voci);
    const QString Scelto = DialogoSalva(u"Salva le scadenze"_s, Proposto, Filtro);
    if (Scelto.isEmpty())
        return;
    const QString File = ConEstensioneIcs(Scelto);
    if (!Sostituibile(File))
        return;
    SalvaIcs(File, Voci);
    MostraEsportato(u"Le scadenze sono state salvate in "_s + File, File);
}

#include "moc_frmAgenda.cpp"
