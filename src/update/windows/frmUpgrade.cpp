#include "update/windows/frmUpgrade.h"

#include "calculators/modTassi.h"
#include "core/comandi.h"
#include "core/versione.h"
#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"

#include "ui_frmUpgrade.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView StatoIniziale =
    u"Clicca sul pulsante di verifica per controllare la presenza di nuovi aggiornamenti...";

}  // namespace

frmUpgrade::frmUpgrade() : ui(std::make_unique<Ui::frmUpgrade>())
{
    ui->setupUi(this);
    setWindowFlags(Qt::Window);
    setWindowIcon(aspetto::Icona(u"upgrade"_s));
    ui->cmdPreview->setIcon(aspetto::Icona(u"novita"_s));
    ui->pannello->setBackgroundRole(QPalette::Base);
    ui->pannello->setAutoFillBackground(true);
    for (QWidget* Parte : {static_cast<QWidget*>(ui->fraAvanza), static_cast<QWidget*>(ui->fraUpgrade)}) {
        QSizePolicy Posto = Parte->sizePolicy();
        Posto.setRetainSizeWhenHidden(true);
        Parte->setSizePolicy(Posto);
        Parte->hide();
    }
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    aspetto::TitoliInGrassetto(this);
    aspetto::RicordaPostoDi(this, objectName());
    Collega(ui->cmdPreview, &QPushButton::clicked, this, &frmUpgrade::cmdPreview_Click);
    Collega(ui->cmdChiudi, &QPushButton::clicked, this, [this] { close(); });
    Load();
}

frmUpgrade::~frmUpgrade() = default;

void frmUpgrade::Load()
{
    const auto Data = DataArchivio(ArchivioTassi());
    ui->lblVersione->setText(VersioneProgramma());
    ui->lblArchivio->setText(Data ? Format(*Data, u"dd/mm/yyyy") : u"archivio mancante"_s);
    ui->lblStatus->setText(StatoIniziale.toString());
}

void frmUpgrade::Mostra()
{
    show();
    raise();
    activateWindow();
}

void frmUpgrade::cmdPreview_Click()
{
    const QString Rilascio = u"release"_s;
    EseguiComando(Impedimento(Rilascio).isEmpty() ? Rilascio : u"novita"_s, 0, {});
}
