#include "update/windows/frmAbout.h"

#include "core/sessione.h"
#include "core/versione.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/system/shell.h"

#include "update/windows/ui_frmAbout.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int LatoIcona = 48;
constexpr double CorpoTitolo = 1.6;  ///< times the letters of the window

/// The groups as a page of the palette's own colours: nothing of them is read as markup.
QString Pagina(const QList<GruppoInformazioni>& Gruppi)
{
    QString Html;
    for (const GruppoInformazioni& Gruppo : Gruppi) {
        Html += u"<p><b>%1</b></p><table cellspacing=\"0\" cellpadding=\"3\">"_s.arg(
            Gruppo.Titolo.toHtmlEscaped());
        for (const RigaInformazione& Riga : Gruppo.Righe)
            Html += u"<tr><td width=\"170\">%1</td><td>%2</td></tr>"_s.arg(Riga.Nome.toHtmlEscaped(),
                                                                           Riga.Valore.toHtmlEscaped());
        Html += u"</table>"_s;
    }
    return Html;
}

}  // namespace

frmAbout::frmAbout() : ui(std::make_unique<Ui::frmAbout>())
{
    ui->setupUi(this);
    setWindowFlags(Qt::Window);
    ui->imgProgramma->setPixmap(
        aspetto::Icona(u"calcanova"_s).pixmap(QSize(LatoIcona, LatoIcona), devicePixelRatio()));
    QFont Grande = ui->lblTitolo->font();
    Grande.setPointSizeF(Grande.pointSizeF() * CorpoTitolo);
    Grande.setBold(true);
    ui->lblTitolo->setFont(Grande);
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    aspetto::RicordaPostoDi(this, objectName());
    Collega(ui->cmdCopia, &QPushButton::clicked, this, &frmAbout::cmdCopia_Click);
    Collega(ui->cmdChiudi, &QPushButton::clicked, this, [this] { close(); });
}

frmAbout::~frmAbout() = default;

void frmAbout::Mostra()
{
    if (!isVisible()) {
        const ClessidraAccesa Attesa;
        Load();
        ui->cmdChiudi->setFocus();
    }
    PortaDavanti(this);
}

void frmAbout::Load()
{
    Gruppi = Informazioni();
    ui->lblTitolo->setText(sessione::TitoloProdotto);
    ui->lblVersione->setText(u"Release "_s + VersioneProgramma());
    ui->txtInformazioni->setHtml(Pagina(Gruppi));
    ui->txtInformazioni->verticalScrollBar()->setValue(0);
    ui->lblCopiato->clear();
}

void frmAbout::cmdCopia_Click()
{
    QGuiApplication::clipboard()->setText(TestoInformazioni(Gruppi));
    ui->lblCopiato->setText(u"Copiato negli appunti"_s);
}

#include "moc_frmAbout.cpp"
