#include "core/settings/frmIcons.h"

#include "core/modAspetto.h"
#include "core/modErrori.h"
#include "core/modIcone.h"
#include "core/settings/filtrofile.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/system/messaggi.h"

#include "core/settings/ui_frmIcons.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString Estensione = u".gif"_s;

bool FinisceInGif(const QString& Nome)
{
    return Nome.endsWith(Estensione, Qt::CaseInsensitive);
}

}  // namespace

frmIcons::frmIcons(TabellaRighe& Icone, int Riga, QWidget* Padre)
    : QDialog(Padre), ui(std::make_unique<Ui::frmIcons>()), Tabella(Icone), RigaIcona(Riga)
{
    ui->setupUi(this);
    ui->txtTitIco->setMaxLength(MassimoTitolo);
    ui->txtCollegIco->setMaxLength(MassimoCollegamento);
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    const auto Premuto = &QAbstractButton::clicked;
    Collega(ui->cmdSalvaIco, Premuto, this, [this] { cmdSalvaIco_Click(); });
    Collega(ui->cmdAnnulla, Premuto, this, [this] { reject(); });
    Collega(ui->cmdSelProg, Premuto, this, [this] { cmdSelProg_Click(); });
    Collega(ui->cmbImgIco, &QComboBox::currentIndexChanged, this, [this] { MostraFigura(); });
    // An address that is typed or pasted says by itself what it is.
    Collega(ui->txtCollegIco, &QLineEdit::textEdited, this, [this](const QString& Testo) {
        if (ELink(Testo.trimmed()))
            ui->cmbTipoIco->setCurrentIndex(Collegamento);
    });
    ui->cmbImgIco->addItems(LeggiFigure());
    LoadIconData();
}

frmIcons::~frmIcons() = default;

void frmIcons::LoadIconData()
{
    FiguraLetta = FiguraPredefinita.toString();
    QString Titolo;
    QString Destinazione;
    if (RigaIcona >= 0) {
        Titolo = Tabella(RigaIcona, IconaTitolo).toString();
        Destinazione = Tabella(RigaIcona, IconaCollegamento).toString();
        ui->cmbTipoIco->setCurrentIndex(ELink(Destinazione) ? Collegamento : Programma);
        FiguraLetta = Tabella(RigaIcona, IconaFigura).toString();
    }
    MostraIntero(ui->txtTitIco, Titolo);
    MostraIntero(ui->txtCollegIco, Destinazione);
    const QString Corto = FinisceInGif(FiguraLetta) ? FiguraLetta.chopped(Estensione.size()) : FiguraLetta;
    int Voce = ui->cmbImgIco->findText(Corto, Qt::MatchFixedString);
    if (Voce < 0 && RigaIcona < 0 && ui->cmbImgIco->count() > 0)
        Voce = 0;
    ui->cmbImgIco->setCurrentIndex(Voce);
    MostraFigura();
}

QString frmIcons::Figura() const
{
    if (ui->cmbImgIco->currentIndex() >= 0)
        return ui->cmbImgIco->currentText() + Estensione;
    // With no picture chosen the one of the row stays: its file may come back.
    return FiguraLetta.isEmpty() || FiguraLetta.contains(u'.') ? FiguraLetta : FiguraLetta + Estensione;
}

void frmIcons::MostraFigura()
{
    const QSize Lato = ui->imgPreviewIco->minimumSize() - QSize(aspetto::Bordo, aspetto::Bordo);
    const QPixmap Letta(FileFigura(Figura()));
    if (Letta.isNull()) {
        ui->imgPreviewIco->setPixmap(aspetto::Icona(u"link"_s).pixmap(Lato / 2));
        return;
    }
    const double Densita = devicePixelRatioF();
    QPixmap Ridotta = Letta.scaled(Lato * Densita, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    Ridotta.setDevicePixelRatio(Densita);
    ui->imgPreviewIco->setPixmap(Ridotta);
}

bool frmIcons::Rifiuta(const QString& Messaggio, QWidget* Campo)
{
    MsgErrore(Messaggio);
    RidaiFuoco(Campo);
    return false;
}

bool frmIcons::Verifica()
{
    const QString Titolo = ui->txtTitIco->text().trimmed();
    const QString Destinazione = ui->txtCollegIco->text().trimmed();
    if (Titolo.isEmpty() || Destinazione.isEmpty())
        return Rifiuta(u"Immettere i valori necessari!"_s,
                       Titolo.isEmpty() ? ui->txtTitIco : ui->txtCollegIco);
    const bool Link = ELink(Destinazione);
    if (ui->cmbTipoIco->currentIndex() == Programma && Link)
        return Rifiuta(u"Immettere il percorso valido per il programma desiderato!"_s, ui->txtCollegIco);
    if (ui->cmbTipoIco->currentIndex() == Collegamento && !Link)
        return Rifiuta(u"Immettere un indirizzo web valido!"_s, ui->txtCollegIco);
    // The file of icons would give them back as "?", and a path like that never opens.
    for (QLineEdit* Campo : {ui->txtTitIco, ui->txtCollegIco})
        if (!Conservabile(Campo->text()))
            return Rifiuta(u"Il testo contiene caratteri che non si possono conservare!"_s, Campo);
    return true;
}

void frmIcons::cmdSalvaIco_Click()
{
    if (!Verifica())
        return;
    if (RigaIcona < 0)
        RigaIcona = Tabella.AggiungiRiga();
    Tabella(RigaIcona, IconaTitolo) = ui->txtTitIco->text().trimmed();
    Tabella(RigaIcona, IconaCollegamento) = ui->txtCollegIco->text().trimmed();
    Tabella(RigaIcona, IconaFigura) = Figura();
    accept();
}

void frmIcons::cmdSelProg_Click()
{
    const QString Scelto = DialogoApri(u"Scegli il programma"_s, ui->txtCollegIco->text(),
                                       FiltroProgrammi(u"Applicazione (*.exe)|*.exe;*.com"_s));
    if (!Scelto.isEmpty()) {
        ui->txtCollegIco->setText(Scelto);
        ui->cmbTipoIco->setCurrentIndex(Programma);
    }
    ui->txtCollegIco->setFocus();
}

#include "moc_frmIcons.cpp"
