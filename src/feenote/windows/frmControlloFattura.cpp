#include "feenote/windows/frmControlloFattura.h"

#include "feenote/windows/ui_frmControlloFattura.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString Quanti(qsizetype Numero, const QString& Uno, const QString& Molti)
{
    return Numero == 1 ? u"1 "_s + Uno : QString::number(Numero) + u' ' + Molti;
}

}  // namespace

QString FraseEsiti(const QString& File, const QList<EsitoControllo>& Esiti)
{
    const auto Rifiuti = std::ranges::count(Esiti, GravitaControllo::Rifiuto, &EsitoControllo::Gravita);
    const qsizetype Avvisi = Esiti.size() - Rifiuti;
    const QString DegliAvvisi = Quanti(Avvisi, u"avviso"_s, u"avvisi"_s);
    if (Rifiuti > 0)
        return u"%1 sarebbe scartato: %2, %3."_s.arg(
            File, Quanti(Rifiuti, u"motivo di rifiuto"_s, u"motivi di rifiuto"_s), DegliAvvisi);
    return Avvisi > 0 ? u"%1 non ha motivi di rifiuto, ma %2."_s.arg(File, DegliAvvisi)
                      : u"%1 è in ordine: nessun rifiuto, nessun avviso."_s.arg(File);
}

frmControlloFattura::frmControlloFattura(const QString& File, const QList<EsitoControllo>& Esiti,
                                         QWidget* Padre)
    : QDialog(Padre), ui(std::make_unique<Ui::frmControlloFattura>())
{
    ui->setupUi(this);
    ui->lblEsito->setText(FraseEsiti(File, Esiti));
    QStringList Righe;
    for (const EsitoControllo& Esito : Esiti) {
        const bool Rifiuto = Esito.Gravita == GravitaControllo::Rifiuto;
        Righe.append(TestoEsito(Esito));
        auto* Voce = new QListWidgetItem(aspetto::Icona(Rifiuto ? u"chiudi"_s : u"info"_s), Righe.last(),
                                         ui->lstEsiti);
        Voce->setToolTip(Esito.Elemento);
        if (Rifiuto)
            Voce->setForeground(aspetto::Sbagliato());
    }
    ui->lstEsiti->setVisible(!Esiti.isEmpty());
    ui->cmdCopia->setVisible(!Esiti.isEmpty());
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    aspetto::RicordaPostoDi(this, objectName());
    Collega(ui->cmdChiudi, &QAbstractButton::clicked, this, [this] { accept(); });
    Collega(ui->cmdCopia, &QAbstractButton::clicked, this, [Righe, Detta = ui->lblEsito->text()] {
        QGuiApplication::clipboard()->setText(Detta + u'\n' + Righe.join(u'\n'));
    });
    constexpr QSize Prima(560, 320);
    if (!Esiti.isEmpty())
        resize(Prima);
}

frmControlloFattura::~frmControlloFattura() = default;

#include "moc_frmControlloFattura.cpp"
