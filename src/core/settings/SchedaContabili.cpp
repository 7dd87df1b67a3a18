#include "core/settings/SchedaContabili.h"

#include "core/impostazioni.h"
#include "core/modAliquote.h"
#include "core/modErrori.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/scelta.h"
#include "platform/system/orologio.h"
#include "tariffs/decreto.h"

#include "core/settings/ui_SchedaContabili.h"

#include <algorithm>
#include <array>
#include <optional>
#include <variant>

using namespace Qt::StringLiterals;

namespace {

const QString NonNumerico = u"Immettere un valore numerico!"_s;

struct VoceAliquota
{
    QLineEdit* Ui::SchedaContabili::*Campo;
    QLabel* Ui::SchedaContabili::*SeVuota;  ///< what is said while the box is empty
    QStringView Chiave;
    QStringView Nome;
};

constexpr std::array Aliquote{
    VoceAliquota{&Ui::SchedaContabili::txtIVA, &Ui::SchedaContabili::lblVuotaIVA, u"IVA", u"I.V.A."},
    VoceAliquota{&Ui::SchedaContabili::txtRA, &Ui::SchedaContabili::lblVuotaRA, u"RA", u"ritenuta d'acconto"},
    VoceAliquota{&Ui::SchedaContabili::txtSpeseGen, &Ui::SchedaContabili::lblVuotaSpeseGen, u"SpeseGen",
                 u"spese generali"},
    VoceAliquota{&Ui::SchedaContabili::txtCP, &Ui::SchedaContabili::lblVuotaCP, u"CP", u"cassa previdenza"},
};

QString SenzaBianchi(const QLineEdit* Campo)
{
    return Campo->text().trimmed();
}

/// True for a number from 0 to 100; of a text that is one and too large for any variable, false.
bool EPercentuale(const QString& Testo)
{
    constexpr double Massima = 100;
    try {
        const double Valore = CDbl(Testo);
        return Valore >= 0 && Valore <= Massima;
    } catch (const Errore&) {
        return false;
    }
}

/// What an empty box stands for: the session keeps its rate, and the next one begins with the first of all.
QString FraseVuota(QStringView Chiave)
{
    const VoceImpostazione& Voce = VoceDi(Chiave);
    const QString Ora = CStr(*std::get<float*>(Voce.Variabile));
    const QString Poi = PredefinitoDi(Voce);
    return Ora == Poi ? u"Vuota: vale %1 %."_s.arg(Poi)
                      : u"Vuota: resta %1 %, dal prossimo avvio %2 %."_s.arg(Ora, Poi);
}

/// An empty rate leaves the one in force.
bool LasciaPercentuale(const QLineEdit* Campo)
{
    const QString Testo = SenzaBianchi(Campo);
    if (Testo.isEmpty())
        return true;
    if (!IsNumeric(Testo)) {
        MsgErrore(NonNumerico);
        return false;
    }
    if (EPercentuale(Testo))
        return true;
    MsgErrore(u"La percentuale non è compresa tra 0 e 100!"_s);
    return false;
}

/// "0" for none; nothing for a text that is no number of an invoice.
QString NumeroFattura(const QString& Testo)
{
    if (Testo.isEmpty())
        return u"0"_s;
    const std::optional<int> Numero = LeggiProgFatt(Testo);
    return Numero ? QString::number(*Numero) : QString();
}

/// As wide as the amounts that it takes.
void Stringi(QLineEdit* Campo)
{
    constexpr int Caratteri = 12;
    Campo->setFixedWidth(Campo->fontMetrics().horizontalAdvance(QString(Caratteri, u'0')));
}

}  // namespace

SchedaContabili::SchedaContabili(QWidget* Padre) : QWidget(Padre), ui(std::make_unique<Ui::SchedaContabili>())
{
    ui->setupUi(this);
    QStringList InVigore;
    for (const Decreto* Legge : Decreti) {
        ui->cmbTariffa->addItem(Legge->Nome.toString(), Legge->Sigla.toString());
        if (!Legge->InVigore.isEmpty())
            InVigore += u"In vigore %1: %2."_s.arg(Legge->InVigore, Legge->Nome);
    }
    ui->lblTariffe->setText(InVigore.join(u'\n'));
    AlScegliere(ui->cmbTariffa, [this](int, ModoScelta) { TariffaScelta = true; });
    ui->cmbNorme->setItemData(0, NormeDelProgramma.toString());
    ui->cmbNorme->setItemData(1, NormeInVigore.toString());
    for (const VoceAliquota& Voce : Aliquote) {
        QLineEdit* Campo = ui.get()->*Voce.Campo;
        Stringi(Campo);
        CampoPercento(Campo, [Campo] { return LasciaPercentuale(Campo); });
        Collega(Campo, &QLineEdit::textChanged, this, [this] { SegnaVuote(); });
        QLabel* SeVuota = ui.get()->*Voce.SeVuota;
        QPalette Colori = SeVuota->palette();
        Colori.setColor(QPalette::WindowText, aspetto::Sbagliato());
        SeVuota->setPalette(Colori);
    }
    Stringi(ui->txtNumFatt);
    FiltraTasti(ui->txtNumFatt, u"n"_s);
    ui->txtNumFatt->setAlignment(Qt::AlignRight);
    AlLascia(ui->txtNumFatt, [this] { return LasciaNumero(); });
    Collega(ui->cmdVigenti, &QAbstractButton::clicked, this, [this] { cmdVigenti_Click(); });
}

SchedaContabili::~SchedaContabili() = default;

void SchedaContabili::Carica()
{
    const QString Tariffa = ValoreConservato(chiavi::Tariffa);
    TariffaScelta = DecretoDi(Tariffa);
    ui->cmbTariffa->setCurrentIndex(std::max(ui->cmbTariffa->findData(Tariffa), 0));
    ui->cmbNorme->setCurrentIndex(
        std::max(ui->cmbNorme->findData(ValoreConservato(chiavi::NormeDiPartenza)), 0));
    for (const VoceAliquota& Voce : Aliquote)
        MostraIntero(ui.get()->*Voce.Campo, ValoreConservato(Voce.Chiave));
    MostraIntero(ui->txtNumFatt, ValoreConservato(chiavi::ProgFatt));
    ui->lblVigenti->hide();
    SegnaVuote();
}

ValoriScheda SchedaContabili::Valori() const
{
    ValoriScheda Fatti;
    if (TariffaScelta)
        Fatti.append({chiavi::Tariffa.toString(), ui->cmbTariffa->currentData().toString()});
    Fatti.append({chiavi::NormeDiPartenza.toString(), ui->cmbNorme->currentData().toString()});
    for (const VoceAliquota& Voce : Aliquote)
        Fatti.append({Voce.Chiave.toString(), SenzaBianchi(ui.get()->*Voce.Campo)});
    Fatti.append({chiavi::ProgFatt.toString(), NumeroFattura(SenzaBianchi(ui->txtNumFatt))});
    return Fatti;
}

QLineEdit* SchedaContabili::CasellaNumero() const
{
    return ui->txtNumFatt;
}

QLineEdit* SchedaContabili::NumeroSbagliato() const
{
    return NumeroFattura(SenzaBianchi(ui->txtNumFatt)).isEmpty() ? ui->txtNumFatt : nullptr;
}

void SchedaContabili::SegnaVuote()
{
    for (const VoceAliquota& Voce : Aliquote) {
        QLineEdit* Campo = ui.get()->*Voce.Campo;
        QLabel* SeVuota = ui.get()->*Voce.SeVuota;
        const bool Vuota = SenzaBianchi(Campo).isEmpty();
        const QString Frase = Vuota ? FraseVuota(Voce.Chiave) : QString();
        SeVuota->setText(Frase);
        SeVuota->setVisible(Vuota);
        Campo->setAccessibleDescription(Frase);
    }
}

bool SchedaContabili::LasciaNumero()
{
    if (!NumeroSbagliato())
        return true;
    MsgErrore(NonNumerico);
    return false;
}

void SchedaContabili::cmdVigenti_Click()
{
    QStringList Righe;
    for (const AliquotaDatata& Vigente : AliquoteAl(Oggi()))
        for (const VoceAliquota& Voce : Aliquote)
            if (Voce.Chiave == Vigente.Chiave) {
                const QString Percento = CStr(Vigente.Percento);
                (ui.get()->*Voce.Campo)->setText(Percento);
                Righe << u"%1 %2 %, dal %3 (%4)"_s.arg(Voce.Nome.toString(), Percento,
                                                       Vigente.Dal.toString(u"dd/MM/yyyy"_s), Vigente.Norma);
            }
    // They are stored by the save, as whatever else is typed here.
    ui->lblVigenti->setText(u"In vigore oggi: "_s + Righe.join(u"; "_s) +
                            u". Saranno proposte nelle parcelle nuove dopo \"Memorizza le impostazioni\"."_s);
    ui->lblVigenti->show();
}

#include "moc_SchedaContabili.cpp"
