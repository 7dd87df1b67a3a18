#include "update/windows/frmDocumenti.h"

#include "core/modErrori.h"
#include "core/parametri.h"
#include "platform/base/numerierrore.h"
#include "platform/grid/griglia.h"
#include "platform/kit/annuncio.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include "update/windows/ui_frmDocumenti.h"

#include <QHideEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

enum ColonnaDocum { ColDocumento, ColTipo, NumColonne };

const QString ChiaveLarghezze = u"Disposizione_tdbDocum"_s;
constexpr QStringView NessunDocumento = u"Non ci sono documenti nella cartella «docum» del programma.";
constexpr QStringView NessunoTrovato = u"Nessun documento ha nel nome il testo cercato.";

}  // namespace

frmDocumenti::frmDocumenti() : ui(std::make_unique<Ui::frmDocumenti>())
{
    ui->setupUi(this);
    setWindowFlags(Qt::Window);
    setWindowIcon(aspetto::Icona(u"docum"_s));
    panConto = new QLabel;
    panConto->setObjectName(u"panConto"_s);
    panConto->setContentsMargins(aspetto::Bordo - 2, 0, 0, 0);  // under the grid's edge
    ui->barDocum->addWidget(panConto, 1);
    CostruisciGriglia();
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    CollegaControlli();
    aspetto::RicordaPostoDi(this, objectName());
}

frmDocumenti::~frmDocumenti() = default;

void frmDocumenti::CostruisciGriglia()
{
    ColonnaGriglia Documento;
    Documento.Titolo = u"Documento"_s;
    Documento.Campo = ColDocumento;
    Documento.Caratteri = 40;
    Documento.Stira = true;
    ColonnaGriglia Tipo;
    Tipo.Titolo = u"Tipo"_s;
    Tipo.Campo = ColTipo;
    Tipo.Caratteri = 7;
    Righe.Azzera(NumColonne);
    ui->tdbDocum->ImpostaColonne({Documento, Tipo});
    ui->tdbDocum->Lega(&Righe);
    ui->tdbDocum->Suggerimento = [this](int Riga) {
        return Riga >= 0 && Riga < Mostrati.size() ? NomeFile(Mostrati[Riga].File) : QString();
    };
    // Letters typed on the list begin another search.
    ui->tdbDocum->CercaLettere = [this](const QString& Lettere) {
        ui->txtCerca->setFocus(Qt::ShortcutFocusReason);
        ui->txtCerca->setText(Lettere);
    };
    ui->tdbDocum->ImpostaLarghezze(Impostazione(ChiaveLarghezze));
}

void frmDocumenti::CollegaControlli()
{
    Collega(ui->tdbDocum, &Griglia::DoppioClic, this, &frmDocumenti::tdbDocum_DblClick);
    Collega(ui->txtCerca, &QLineEdit::textChanged, this, &frmDocumenti::txtCerca_Change);
    ui->txtCerca->installEventFilter(this);
    auto* Cerca = new QShortcut(QKeySequence::Find, this);
    Collega(Cerca, &QShortcut::activated, this, [this] {
        ui->txtCerca->setFocus(Qt::ShortcutFocusReason);
        ui->txtCerca->selectAll();
    });
    auto* Rileggi = new QShortcut(QKeySequence::Refresh, this);
    Collega(Rileggi, &QShortcut::activated, this, [this] { Load(); });
}

void frmDocumenti::Mostra()
{
    if (!isVisible()) {
        ui->txtCerca->clear();
        Load();
        ui->tdbDocum->ImpostaRigaCorrente(0);
        ui->tdbDocum->setFocus();
    }
    PortaDavanti(this);
}

void frmDocumenti::Load()
{
    Tutti.clear();
    // The window comes up all the same: its sentence stands where the rows would.
    Protetta([this] { Tutti = ElencoDocumenti(CartellaDocum()); });
    Elenca();
}

void frmDocumenti::Elenca()
{
    Mostrati.clear();
    Righe.Azzera(NumColonne);
    for (const VoceDocumento& Voce : Tutti) {
        if (!TrovatoNelDocumento(Voce, ui->txtCerca->text()))
            continue;
        Mostrati.append(Voce);
        const int Riga = Righe.AggiungiRiga();
        Righe(Riga, ColDocumento) = Voce.Nome;
        Righe(Riga, ColTipo) = Voce.Tipo;
    }
    ui->tdbDocum->FraseVuota((Tutti.isEmpty() ? NessunDocumento : NessunoTrovato).toString());
    ui->tdbDocum->Rilega();
    panConto->setText(ContoDocumenti(Mostrati.size(), Tutti.size()));
}

void frmDocumenti::txtCerca_Change()
{
    Elenca();
    AnnunciaTesto(this, panConto->text());
    ui->tdbDocum->ImpostaRigaCorrente(0);
}

void frmDocumenti::tdbDocum_DblClick(int Riga)
{
    if (Riga < 0 || Riga >= Mostrati.size())
        return;
    const ClessidraAccesa Attesa;
    ApriDocumento(Mostrati[Riga]);
}

void frmDocumenti::hideEvent(QHideEvent* Evento)
{
    // No message where the widths cannot be stored: the next showing uses the former ones.
    if (!Evento->spontaneous() && ui->tdbDocum->ColonneMosse())
        Protetta([this] { SalvaImpostazione(ChiaveLarghezze, ui->tdbDocum->Larghezze()); }, errori::Accesso);
    QDialog::hideEvent(Evento);
}

bool frmDocumenti::TastoTesto(const QKeyEvent& Evento)
{
    if (EInvio(Evento.key())) {
        if (const auto Riga = ui->tdbDocum->RigaCorrente())
            Protetta([this, Riga] { tdbDocum_DblClick(*Riga); });
        return true;
    }
    if (Evento.key() == Qt::Key_Down && !Mostrati.isEmpty()) {
        ui->tdbDocum->setFocus();
        return true;
    }
    // The first Esc takes the search away, the next one the window.
    if (Evento.key() == Qt::Key_Escape && !ui->txtCerca->text().isEmpty()) {
        ui->txtCerca->clear();
        return true;
    }
    return false;
}

bool frmDocumenti::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Oggetto == ui->txtCerca && Evento->type() == QEvent::KeyPress &&
        TastoTesto(*static_cast<QKeyEvent*>(Evento)))
        return true;
    return QDialog::eventFilter(Oggetto, Evento);
}

#include "moc_frmDocumenti.cpp"
