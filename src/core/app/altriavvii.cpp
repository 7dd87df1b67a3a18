#include "core/app/altriavvii.h"

#include "core/aperture.h"
#include "core/app/avvio.h"
#include "core/modErrori.h"
#include "core/parametri.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "feenote/windows/noteaperte.h"
#include "platform/kit/collega.h"
#include "platform/kit/servizi_qt.h"
#include "platform/network/staffetta.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"

#include <QApplication>
#include <QStringList>
#include <QTimer>

namespace {

QString Impostazioni()
{
    return PercorsoImpostazioni(NomeApplicazione.toString());
}

void ApriFile(const QString& Percorso)
{
    if (const frmParcelle* Aperta = FinestraConFile(Percorso))
        PortaDavanti(Aperta->Indice());
    else if (Aperture.ApriParcella)
        Aperture.ApriParcella(Percorso, 0, {});
}

/// The files that have come, until the user has his hands free.
class FileGiunti : public QObject
{
public:
    explicit FileGiunti(QObject* Padre) : QObject(Padre)
    {
        constexpr int OgniMs = 50;
        Orologio.setInterval(OgniMs);
        Collega(&Orologio, &QTimer::timeout, this, [this] { Passo(); });
    }

    void Aggiungi(const QString& Percorso)
    {
        Attesi << Percorso;
        // Who waits for an answer comes into view, or nothing would seem to happen.
        if (QWidget* Davanti = QApplication::activeModalWidget()) {
            Davanti->raise();
            Davanti->activateWindow();
        }
        Orologio.start();
    }

private:
    void Passo()
    {
        if (RespiroInCorso() || UtenteImpegnato())
            return;
        if (Attesi.isEmpty()) {
            Orologio.stop();
            return;
        }
        // Opening may ask, and the next tick comes in the middle of it.
        const QString Primo = Attesi.takeFirst();
        Protetta([&Primo] { ApriFile(Primo); });
    }

    QStringList Attesi;
    QTimer Orologio;
};

}  // namespace

bool PassaAdAltroAvvio(const QString& RigaDiComando)
{
    const QString File = FileDellaRiga(RigaDiComando);
    return !File.isEmpty() && PassaFile(Impostazioni(), File);
}

void AscoltaAltriAvvii(const QString& RigaDiComando)
{
    if (RigaDiAltri(RigaDiComando))
        return;
    auto* Giunti = new FileGiunti(qApp);
    auto* Ascolto = new Staffetta(
        Impostazioni(), [Giunti](const QString& File) { Giunti->Aggiungi(File); }, qApp);
    // Who ends takes nothing any more, while its windows still close.
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, Ascolto, &QObject::deleteLater);
}
