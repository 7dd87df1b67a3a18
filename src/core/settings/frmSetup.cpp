#include "core/settings/frmSetup.h"

#include "core/aperture.h"
#include "core/modAvvio.h"
#include "core/modErrori.h"
#include "core/posti.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/system/messaggi.h"

#include "ui_frmSetup.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A box and the key that it shows.
struct CampoImpostazione
{
    QLineEdit* Ui::frmSetup::*Campo;
    QStringView Chiave;
    QStringView Predefinito;
};

constexpr std::array Campi{
    CampoImpostazione{&Ui::frmSetup::txtNomeStudio, u"StudioNome", u""},
    CampoImpostazione{&Ui::frmSetup::txtIndStudio, u"StudioIndir", u""},
    CampoImpostazione{&Ui::frmSetup::txtCittaStudio, u"StudioCitta", u""},
    CampoImpostazione{&Ui::frmSetup::txtEMail, u"StudioMail", u""},
    CampoImpostazione{&Ui::frmSetup::txtCodFisStudio, u"StudioCodFisc", u""},
    CampoImpostazione{&Ui::frmSetup::txtPivaStudio, u"StudioPIva", u""},
    CampoImpostazione{&Ui::frmSetup::txtFirma, u"Firma", u""},
    CampoImpostazione{&Ui::frmSetup::txtFirmaDigit, u"FirmaDigit", u""},
    CampoImpostazione{&Ui::frmSetup::txtIBAN, u"Iban", u""},
};

/// A box that must not be empty, in the order in which they are looked at.
struct Obbligo
{
    QLineEdit* Ui::frmSetup::*Campo;
    int Scheda;
    QStringView Messaggio;
};

constexpr std::array Obblighi{
    Obbligo{&Ui::frmSetup::txtNomeStudio, frmSetup::SchedaDatiStudio,
            u"Non è stato specificato il nome dello studio!"},
    Obbligo{&Ui::frmSetup::txtIndStudio, frmSetup::SchedaDatiStudio, u"Non è stato specificato l'indirizzo!"},
    Obbligo{&Ui::frmSetup::txtCittaStudio, frmSetup::SchedaDatiStudio, u"Non è stata specificato la città!"},
    Obbligo{&Ui::frmSetup::txtEMail, frmSetup::SchedaDatiStudio, u"Non è stata specificata la mail!"},
};

}  // namespace

frmSetup::frmSetup() : ui(std::make_unique<Ui::frmSetup>())
{
    ui->setupUi(this);
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    aspetto::RicordaPostoDi(this, objectName());
    Collega<QAbstractButton>(ui->cmdSaveImpost, &QAbstractButton::clicked, this,
                             [this] { cmdSaveImpost_Click(); });
    Collega<QAbstractButton>(ui->cmdChiudi, &QAbstractButton::clicked, this, [this] { close(); });
}

frmSetup::~frmSetup() = default;

void frmSetup::Prepara(int Indice)
{
    if (!isVisible()) {
        LoadValori();
        ui->txtNomeStudio->setFocus();
        adjustSize();
    }
    ChangeTab(Indice);
}

void frmSetup::Mostra(int Indice)
{
    Prepara(Indice);
    show();
    raise();
    activateWindow();
}

void frmSetup::MostraModale(int Indice)
{
    Prepara(Indice);
    if (!isVisible())
        exec();
}

void frmSetup::ChangeTab(int Indice)
{
    if (Indice >= 0 && Indice < ui->tabSetup->count())
        ui->tabSetup->setCurrentIndex(Indice);
}

void frmSetup::LoadValori()
{
    for (const CampoImpostazione& Voce : Campi)
        (ui.get()->*Voce.Campo)->setText(Impostazione(Voce.Chiave.toString(), Voce.Predefinito.toString()));
}

bool frmSetup::CheckValori()
{
    for (const Obbligo& Voce : Obblighi) {
        QLineEdit* Campo = ui.get()->*Voce.Campo;
        if (!Campo->text().trimmed().isEmpty())
            continue;
        MsgErrore(Voce.Messaggio.toString());
        ChangeTab(Voce.Scheda);
        RidaiFuoco(Campo);
        return false;
    }
    return true;
}

void frmSetup::SalvaValori() const
{
    for (const CampoImpostazione& Voce : Campi)
        SalvaImpostazione(Voce.Chiave.toString(), (ui.get()->*Voce.Campo)->text());
}

void frmSetup::cmdSaveImpost_Click()
{
    if (!CheckValori() || !Protetta([this] { SalvaValori(); }))
        return;
    ImpostaVariabili();
    if (Aperture.ImpostazioniCambiate)
        Aperture.ImpostazioniCambiate();
    MsgBox(u"Le impostazioni sono state memorizzate!"_s, vbInformation, TitoloMessaggio.toString());
    if (ParcellaAperta())
        MsgBox(u"Per essere certi della piena operatività è consigliabile riavviare il programma."_s,
               vbInformation, TitoloMessaggio.toString());
    // Opened by the start, the form has done what it was opened for.
    if (isModal())
        accept();
}
