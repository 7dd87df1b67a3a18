#include "core/settings/SchedaDocumenti.h"

#include "core/impostazioni.h"
#include "core/modErrori.h"
#include "core/modLogo.h"
#include "core/settings/anteprimapagina.h"
#include "feenote/modLettera.h"
#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/figurascelta.h"
#include "platform/kit/scelta.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include "core/settings/ui_SchedaDocumenti.h"

#include <QCheckBox>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct VocePosto
{
    QStringView Valore;
    QStringView Scritta;
    Allineamento Dove;
};

constexpr std::array Posti{
    VocePosto{u"", u"Non stampare", Allineamento::Sinistra},
    VocePosto{u"S", u"A sinistra", Allineamento::Sinistra},
    VocePosto{u"C", u"Al centro", Allineamento::Centro},
    VocePosto{u"D", u"A destra", Allineamento::Destra},
};

/// How the setting names what a tick stands for: a document by its print type, behind them the sheets.
QString ValoreDi(int Quale)
{
    return ETipoStampa(Quale) ? QString::number(Quale) : logo::VoceSchede.toString();
}

}  // namespace

SchedaDocumenti::SchedaDocumenti(QWidget* Padre) : QWidget(Padre), ui(std::make_unique<Ui::SchedaDocumenti>())
{
    ui->setupUi(this);
    for (const VocePosto& Voce : Posti)
        ui->cmbLogoPosto->addItem(Voce.Scritta.toString(), Voce.Valore.toString());
    ui->txtLogoAltezza->setRange(logo::AltezzaMinima, logo::AltezzaMassima);
    constexpr int Colonne = 2;
    const QStringList Nomi = VociTipoStampa() + QStringList{u"Schede dei calcoli"_s};
    for (int Quale = 0; Quale < Nomi.size(); ++Quale) {
        auto* Spunta = new QCheckBox(Nomi[Quale], ui->fraLogo);
        Spunta->setObjectName(u"chkLogoDoc_%1"_s.arg(Quale));
        ui->grigliaDocumenti->addWidget(Spunta, Quale / Colonne, Quale % Colonne);
        chkLogoDoc += Spunta;
    }
    QWidget* Prima = ui->txtLogoAltezza;
    for (QCheckBox* Spunta : chkLogoDoc) {
        setTabOrder(Prima, Spunta);
        Prima = Spunta;
    }
    setTabOrder(Prima, ui->txtPostaOggetto);
    Foglio = new AnteprimaPagina(this);
    Foglio->setObjectName(u"foglioLogo"_s);
    Foglio->setAccessibleName(u"Prima pagina di un documento"_s);
    ui->colonnaFoglio->insertWidget(1, Foglio, 1);
    QStringList Segni;
    for (const QString& Nome : SegnapostiLettera())
        Segni += u'{' + Nome + u'}';
    ui->lblSegnaposti->setText(u"Si possono usare "_s + Segni.join(u", "_s) +
                               u"; una riga senza alcun valore non viene scritta."_s);
    Collega(ui->cmdLogo, &QAbstractButton::clicked, this, [this] { cmdLogo_Click(); });
    Collega(ui->cmdTogliLogo, &QAbstractButton::clicked, this, [this] { cmdTogliLogo_Click(); });
    Collega(ui->cmdTestiIniziali, &QAbstractButton::clicked, this, [this] { cmdTestiIniziali_Click(); });
    AlScegliere(ui->cmbLogoPosto, [this](int, ModoScelta) { MostraFoglio(); });
    Collega(ui->txtLogoAltezza, &QDoubleSpinBox::valueChanged, this, [this](double) { MostraFoglio(); });
}

SchedaDocumenti::~SchedaDocumenti() = default;

void SchedaDocumenti::Carica()
{
    // A name that a damaged file has garbled is one of a copy that cannot be read: nobody has taken it away.
    Impronta = ValoreConservato(chiavi::LogoImpronta);
    Png = logo::Leggi(Impronta).value_or(QByteArray());
    PngLetto = Png;
    Difetto = !Impronta.isEmpty() && Png.isEmpty();
    Detto = Difetto ? u"Il logo conservato manca o è danneggiato: sceglierlo di nuovo."_s : QString();
    const int Posto = ui->cmbLogoPosto->findData(logo::PostoNoto(ValoreConservato(chiavi::LogoPosto)));
    ui->cmbLogoPosto->setCurrentIndex(std::max(Posto, 0));
    ui->txtLogoAltezza->setValue(NumeroDi(ValoreConservato(chiavi::LogoAltezza)));
    const QString Quali = ValoreConservato(chiavi::LogoDocumenti);
    for (int Quale = 0; Quale < chkLogoDoc.size(); ++Quale)
        chkLogoDoc[Quale]->setChecked(Quali.contains(ValoreDi(Quale)));
    MostraIntero(ui->txtPostaOggetto, ValoreConservato(chiavi::PostaOggetto));
    ui->txtPostaTesto->setPlainText(ValoreConservato(chiavi::PostaTesto));
    MostraLogo();
}

QString SchedaDocumenti::Documenti() const
{
    QString Quali;
    for (int Quale = 0; Quale < chkLogoDoc.size(); ++Quale)
        if (chkLogoDoc[Quale]->isChecked())
            Quali += ValoreDi(Quale);
    return Quali;
}

void SchedaDocumenti::ConservaLogo()
{
    // A copy that cannot be read stays named: it may be on a disk that is not there.
    if (!Png.isEmpty())
        Impronta = logo::Conserva(Png);
    else if (!Difetto)
        Impronta.clear();
}

ValoriScheda SchedaDocumenti::Valori() const
{
    return {{chiavi::LogoImpronta.toString(), Impronta},
            {chiavi::LogoPosto.toString(), ui->cmbLogoPosto->currentData().toString()},
            {chiavi::LogoAltezza.toString(), Format(ui->txtLogoAltezza->value(), u"0.0"_s)},
            {chiavi::LogoDocumenti.toString(), Documenti()},
            {chiavi::PostaOggetto.toString(), ui->txtPostaOggetto->text()},
            {chiavi::PostaTesto.toString(), ui->txtPostaTesto->toPlainText()}};
}

void SchedaDocumenti::cmdLogo_Click()
{
    const QString File = DialogoApri(u"Scegli il logo dello studio"_s, CartellaSpeciale(CartellaDocumenti),
                                     u"Immagini (*.png;*.jpg;*.jpeg;*.svg)|*.png;*.jpg;*.jpeg;*.svg"_s);
    if (File.isEmpty())
        return;
    FiguraScelta Letta;
    if (!Protetta([&] {
            const ClessidraAccesa Attesa;
            Letta =
                LeggiFigura(LeggiFile(File, MassimoByteFigura), {logo::PixelLarghezza, logo::PixelAltezza});
        }))
        return;
    if (!Letta.Difetto.isEmpty()) {
        MsgErrore(Letta.Difetto);
        return;
    }
    Png = ComePng(Letta.Immagine);
    Difetto = false;
    Detto = NomeFile(File);
    if (ui->cmbLogoPosto->currentIndex() == 0)
        ui->cmbLogoPosto->setCurrentIndex(1);  // who chooses a logo wants to see it
    MostraLogo();
}

void SchedaDocumenti::cmdTogliLogo_Click()
{
    Png.clear();
    Difetto = false;
    Detto.clear();
    ui->cmbLogoPosto->setCurrentIndex(0);
    MostraLogo();
    ui->cmdLogo->setFocus();
}

void SchedaDocumenti::cmdTestiIniziali_Click()
{
    ui->txtPostaOggetto->setText(PredefinitoDi(VoceDi(chiavi::PostaOggetto)));
    ui->txtPostaTesto->setPlainText(PredefinitoDi(VoceDi(chiavi::PostaTesto)));
}

void SchedaDocumenti::MostraLogo()
{
    QPalette Colori = palette();
    if (Difetto)
        Colori.setColor(QPalette::WindowText, aspetto::Sbagliato());
    ui->lblLogo->setPalette(Colori);
    ui->lblLogo->setText(!Detto.isEmpty() ? Detto : Png.isEmpty() ? u"Nessun logo"_s : u"Logo conservato"_s);
    ui->cmdTogliLogo->setEnabled(!Png.isEmpty() || Difetto);
    MostraFoglio();
}

void SchedaDocumenti::MostraFoglio()
{
    const int Posto = std::max(ui->cmbLogoPosto->currentIndex(), 0);
    const bool Stampato = Posto > 0 && !Png.isEmpty();
    Foglio->Mostra(Stampato ? Png : QByteArray(), ui->txtLogoAltezza->value(), Posti[size_t(Posto)].Dove);
}

#include "moc_SchedaDocumenti.cpp"
