#include "core/settings/SchedaFattura.h"

#include "core/impostazioni.h"
#include "core/modControlli.h"
#include "core/modErrori.h"
#include "core/modRegimi.h"
#include "core/modSede.h"
#include "core/modTrasmissioni.h"
#include "platform/base/segni.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/scelta.h"

#include "core/settings/ui_SchedaFattura.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct CampoFattura
{
    QLineEdit* Ui::SchedaFattura::*Campo;
    QStringView Chiave;
};

constexpr std::array CampiTitolare{
    CampoFattura{&Ui::SchedaFattura::txtTitolareNome, u"StudioTitolareNome"},
    CampoFattura{&Ui::SchedaFattura::txtTitolareCognome, u"StudioTitolareCognome"},
    CampoFattura{&Ui::SchedaFattura::txtVia, u"StudioVia"},
    CampoFattura{&Ui::SchedaFattura::txtCivico, u"StudioCivico"},
    CampoFattura{&Ui::SchedaFattura::txtCap, u"StudioCap"},
    CampoFattura{&Ui::SchedaFattura::txtComune, u"StudioComune"},
    CampoFattura{&Ui::SchedaFattura::txtProv, u"StudioProv"},
    CampoFattura{&Ui::SchedaFattura::txtPecStudio, u"StudioPec"},
};

struct ElencoFattura
{
    QComboBox* Ui::SchedaFattura::*Elenco;
    QStringView Chiave;
    std::span<const VoceCodificata> (*Voci)();
    QString (*Noto)(const QString&);
};

constexpr std::array Elenchi{
    ElencoFattura{&Ui::SchedaFattura::cmbTipoStudio, u"TipoStudio", tipostudio::Voci, tipostudio::Noto},
    ElencoFattura{&Ui::SchedaFattura::cmbRegime, u"RegimeFiscale", regimi::Voci, regimi::Noto},
};

void LargoCome(QLineEdit* Campo, int Caratteri)
{
    constexpr int BordoCasella = 20;
    Campo->setFixedWidth(Campo->fontMetrics().horizontalAdvance(QString(Caratteri, u'M')) + BordoCasella);
}

bool ENumero(const QString& Testo)
{
    bool Intero = false;
    const int Numero = Testo.toInt(&Intero);
    return Testo.isEmpty() || (Intero && Numero >= 0 && Numero <= UltimoProgTrasm);
}

bool SoloLettere(const QString& Testo, qsizetype Quante)
{
    return Testo.size() == Quante && std::ranges::all_of(Testo, EMaiuscola);
}

void Avvisa(QLabel* Accanto, bool Torna)
{
    QPalette Colori = Accanto->palette();
    Colori.setColor(QPalette::WindowText, aspetto::Sbagliato());
    Accanto->setPalette(Colori);
    Accanto->setVisible(!Torna);
}

}  // namespace

SchedaFattura::SchedaFattura(QWidget* Padre) : QWidget(Padre), ui(std::make_unique<Ui::SchedaFattura>())
{
    ui->setupUi(this);
    for (const ElencoFattura& Di : Elenchi) {
        for (const VoceCodificata& Voce : Di.Voci())
            (ui.get()->*Di.Elenco)
                ->addItem(Voce.Codice.size() > 1 ? Voce.Codice.toString() + u" - "_s + Voce.Nome.toString()
                                                 : Voce.Nome.toString(),
                          Voce.Codice.toString());
    }
    LargoCome(ui->txtCivico, 6);
    LargoCome(ui->txtCap, 5);
    LargoCome(ui->txtProv, 3);
    LargoCome(ui->txtProgTrasm, 7);
    ui->txtProgTrasm->setAlignment(Qt::AlignRight);
    FiltraTasti(ui->txtProgTrasm, u"n"_s);
    AlLascia(ui->txtProgTrasm, [this] { return LasciaNumero(); });
    AlScegliere(ui->cmbTipoStudio, [this](int, ModoScelta) { MostraTipo(); });
    for (const QLineEdit* Campo : {ui->txtCap, ui->txtProv, ui->txtPecStudio})
        Collega(Campo, &QLineEdit::textChanged, this, [this] { SegnaControlli(); });
    Collega(ui->txtProgTrasm, &QLineEdit::textChanged, this, [this] { MostraNome(); });
    Collega(ui->cmdRicava, &QAbstractButton::clicked, this, [this] { cmdRicava_Click(); });
}

SchedaFattura::~SchedaFattura() = default;

QWidget* SchedaFattura::Casella(impostazioni::CasellaStudio Quale) const
{
    using enum impostazioni::CasellaStudio;
    switch (Quale) {
    case Genere:
        return ui->cmbTipoStudio;
    case Via:
        return ui->txtVia;
    case Civico:
        return ui->txtCivico;
    case Cap:
        return ui->txtCap;
    case Comune:
        return ui->txtComune;
    case Provincia:
        return ui->txtProv;
    case Regime:
        return ui->cmbRegime;
    case Pec:
        return ui->txtPecStudio;
    case Progressivo:
        return ui->txtProgTrasm;
    default:
        return nullptr;
    }
}

void SchedaFattura::Carica()
{
    for (const ElencoFattura& Di : Elenchi) {
        QComboBox* Elenco = ui.get()->*Di.Elenco;
        const QString Codice = Di.Noto(ValoreConservato(Di.Chiave));
        if (Elenco->findData(Codice) < 0)
            Elenco->addItem(Codice + u" - sconosciuto"_s, Codice);
        Elenco->setCurrentIndex(Elenco->findData(Codice));
    }
    for (const CampoFattura& Voce : CampiTitolare)
        MostraIntero(ui.get()->*Voce.Campo, ValoreConservato(Voce.Chiave));
    NumeroLetto = ValoreConservato(chiavi::ProgTrasm);
    MostraIntero(ui->txtProgTrasm, NumeroLetto);
    ui->lblProposta->hide();
    MostraTipo();
    MostraNome();
    SegnaControlli();
}

ValoriScheda SchedaFattura::Valori() const
{
    ValoriScheda Fatti;
    for (const ElencoFattura& Di : Elenchi)
        Fatti.append({Di.Chiave.toString(), (ui.get()->*Di.Elenco)->currentData().toString()});
    for (const CampoFattura& Voce : CampiTitolare) {
        const QString Testo = (ui.get()->*Voce.Campo)->text().simplified();
        Fatti.append(
            {Voce.Chiave.toString(), Voce.Campo == &Ui::SchedaFattura::txtProv ? Testo.toUpper() : Testo});
    }
    const QString Numero = ui->txtProgTrasm->text().trimmed();
    Fatti.append({chiavi::ProgTrasm.toString(), Numero.isEmpty() ? u"0"_s : Numero});
    return Fatti;
}

QLineEdit* SchedaFattura::CasellaNumero() const
{
    return ui->txtProgTrasm;
}

QLineEdit* SchedaFattura::NumeroSbagliato() const
{
    return ENumero(ui->txtProgTrasm->text().trimmed()) ? nullptr : ui->txtProgTrasm;
}

std::optional<int> SchedaFattura::NumeroIndietro() const
{
    const QString Scritto = ui->txtProgTrasm->text().trimmed();
    const int Conservato = ValoreConservato(chiavi::ProgTrasm).toInt();
    if (Scritto == NumeroLetto.trimmed() || Scritto.toInt() >= Conservato)
        return std::nullopt;
    return Conservato;
}

bool SchedaFattura::LasciaNumero()
{
    if (!NumeroSbagliato())
        return true;
    MsgErrore(u"Immettere un valore numerico!"_s);
    return false;
}

void SchedaFattura::MostraTipo()
{
    const QString Tipo = ui->cmbTipoStudio->currentData().toString();
    const bool Persona = Tipo == tipostudio::Persona;
    for (QWidget* DiPersona : std::initializer_list<QWidget*>{ui->lblTitolare, ui->txtTitolareNome,
                                                              ui->lblTitolareCognome, ui->txtTitolareCognome})
        DiPersona->setEnabled(Persona);
    ui->lblRitenuta->setText(u"ritenuta dei clienti: "_s + tipostudio::Ritenuta(Tipo));
}

/// Letters count on behind the digits: what the number becomes in the file's name is said beside it.
void SchedaFattura::MostraNome()
{
    const QString Numero = ui->txtProgTrasm->text().trimmed();
    const bool Detto = !Numero.isEmpty() && ENumero(Numero) && Numero.toInt() > 0;
    ui->lblNomeTrasm->setText(Detto ? u"nel nome del file: "_s + TestoProgTrasm(Numero.toInt()) : QString());
}

void SchedaFattura::SegnaControlli()
{
    // Marked and never refused: the invoice itself says what it lacks.
    constexpr qsizetype CifreCap = 5;
    const QString Cap = ui->txtCap->text().trimmed();
    const QString Prov = ui->txtProv->text().trimmed().toUpper();
    const QString Pec = ui->txtPecStudio->text().trimmed();
    Avvisa(ui->lblAvvisoSede, (Cap.isEmpty() || (Cap.size() == CifreCap && SoloCifre(Cap))) &&
                                  (Prov.isEmpty() || SoloLettere(Prov, 2)));
    Avvisa(ui->lblAvvisoPec, Pec.isEmpty() || PostaTorna(Pec));
}

void SchedaFattura::cmdRicava_Click()
{
    const auto [Indirizzo, Citta] = IndirizzoScritto ? IndirizzoScritto() : std::pair<QString, QString>();
    const PartiIndirizzo Parti = SpezzaIndirizzo(Indirizzo, Citta);
    if (Parti == PartiIndirizzo()) {
        ui->lblProposta->setText(u"L'indirizzo dello studio è vuoto: scriverlo in \"Dati studio\"."_s);
        ui->lblProposta->show();
        return;
    }
    ui->txtVia->setText(Parti.Via);
    ui->txtCivico->setText(Parti.Civico);
    ui->txtCap->setText(Parti.Cap);
    ui->txtComune->setText(Parti.Comune);
    ui->txtProv->setText(Parti.Prov);
    // A proposal, which the save stores as whatever else is typed here.
    ui->lblProposta->setText(
        u"Proposto da \"%1\", \"%2\": controllare e completare prima di memorizzare."_s.arg(
            Indirizzo.simplified(), Citta.simplified()));
    ui->lblProposta->show();
}

#include "moc_SchedaFattura.cpp"
