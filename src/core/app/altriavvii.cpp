#include "core/app/altriavvii.h"

#include "core/aperture.h"
#include "core/app/avvio.h"
#include "core/modErrori.h"
#include "core/parametri.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "feenote/windows/noteaperte.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/kit/servizi_qt.h"
#include "platform/network/staffetta.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QApplication>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString Impostazioni()
{
    return PercorsoImpostazioni(NomeApplicazione.toString());
}

/// Files that have come and are not open yet.
int& InAttesa()
{
    static int Quanti = 0;
    return Quanti;
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

    /// Takes the files of other starts from now on.
    void Ascolta()
    {
        Ascolto = new Staffetta(
            Impostazioni(), [this](const QString& File) { Aggiungi(File); }, this);
        // Who ends takes nothing any more, while its windows still close.
        connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { Cedi(); });
    }
    /// False where another session does, or nobody can.
    [[nodiscard]] bool InAscolto() const { return Ascolto && Ascolto->InAscolto(); }

    /// The session opens what it was begun for before anything else.
    void Aspetta(bool Ancora) { InAvvio = Ancora; }

    void Aggiungi(const QString& Percorso)
    {
        Attesi << Percorso;
        ++InAttesa();
        // Who waits for an answer comes into view, or nothing would seem to happen.
        if (QWidget* Davanti = QApplication::activeModalWidget())
            PortaDavanti(Davanti);
        Orologio.start();
    }

private:
    void Passo()
    {
        if (InAvvio || RespiroInCorso() || UtenteImpegnato())
            return;
        if (Attesi.isEmpty()) {
            Orologio.stop();
            return;
        }
        // Opening may ask, and the next tick comes in the middle of it.
        const QString Primo = Attesi.takeFirst();
        Protetta([&Primo] { MostraParcella(Primo); });
        --InAttesa();
        // The session's own file may have been none, and this one too.
        if (InAttesa() == 0)
            FineSenzaFinestre();
    }

    /// What has come and was not opened gets a start of its own: who handed it over has ended in good faith.
    void Cedi()
    {
        Orologio.stop();
        if (Ascolto) {
            Ascolto->Concludi();
            delete Ascolto.data();
        }
        InAttesa() -= int(Attesi.size());
        for (const QString& File : std::exchange(Attesi, {}))
            (void)AvviaProgramma(QCoreApplication::applicationFilePath(), {File}, CartellaFile(File));
    }

    QStringList Attesi;
    QTimer Orologio;
    bool InAvvio = false;
    QPointer<Staffetta> Ascolto;
};

FileGiunti* AscoltaAltriAvvii()
{
    auto* Giunti = new FileGiunti(qApp);
    Giunti->setObjectName(u"fileGiunti"_s);
    Giunti->Ascolta();
    return Giunti;
}

}  // namespace

void MostraParcella(const QString& Percorso)
{
    if (const frmParcelle* Aperta = FinestraConFile(Percorso))
        PortaNotaDavanti(Aperta->Indice());
    else
        Invoca(Aperture.ApriParcella, Percorso, 0, QString());
}

bool ComeUnaSessione(const QString& RigaDiComando, const std::function<void()>& Comincia)
{
    const QString File = FileDellaRiga(RigaDiComando);
    if (File.isEmpty()) {
        Comincia();
        if (!RigaDiAltri(RigaDiComando))
            (void)AscoltaAltriAvvii();
        return true;
    }
    // Others of the same moment wait for this one's turn to end, and ask it meanwhile.
    auto Turno = std::make_unique<TurnoStaffetta>(Impostazioni());
    if (Turno->Passa(File))
        return false;
    FileGiunti* Giunti = AscoltaAltriAvvii();
    if (!Giunti->InAscolto())
        Turno.reset();  // they would wait for an answer that nobody gives
    Giunti->Aspetta(true);
    Comincia();
    Giunti->Aspetta(false);
    return true;
}

bool FileInArrivo()
{
    return InAttesa() > 0;
}
