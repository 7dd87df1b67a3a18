#include "calculators/windows/etamostrata.h"

#include "platform/base/errore.h"
#include "platform/kit/aspetto.h"
#include "platform/system/file.h"

#include <QApplication>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

QColor Colore(GradoEta Grado)
{
    switch (Grado) {
    case GradoEta::Fresco:
        break;
    case GradoEta::Vecchio:
        return aspetto::Scuro() ? QColor(0xE3, 0xB3, 0x5A) : QColor(0x8A, 0x5A, 0x00);
    case GradoEta::Stantio:
        return aspetto::Sbagliato();
    }
    return QApplication::palette().color(QPalette::WindowText);
}

QString TestoEta(const EtaDati& Eta)
{
    const QString Parola = Eta.Grado == GradoEta::Stantio ? u"Dati da aggiornare. "_s : QString();
    return (Parola + Eta.Frase + u' ' + Eta.Attesa).trimmed();
}

}  // namespace

void MostraEta(QLabel* Dove, const EtaDati& Eta)
{
    Dove->setText(TestoEta(Eta));
    QPalette Colori;
    Colori.setColor(Dove->foregroundRole(), Colore(Eta.Grado));
    Dove->setPalette(Colori);
}

QStringList RigheEta(const std::optional<EtaDati>& Eta)
{
    return Eta ? QStringList{TestoEta(*Eta)} : QStringList();
}

std::optional<CoperturaTassi> CoperturaLetta(const QString& Archivio)
{
    if (!EsisteFile(Archivio))
        return std::nullopt;
    try {
        return LeggiCopertura(Archivio);
    } catch (const Errore&) {
        return std::nullopt;
    }
}
