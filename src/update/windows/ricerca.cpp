#include "update/windows/ricerca.h"

#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/kit/collega.h"
#include "platform/kit/servizi_qt.h"
#include "platform/kit/singola.h"
#include "platform/system/cartelle.h"
#include "platform/system/shell.h"
#include "update/modAggiorna.h"
#include "update/windows/frmUpgrade.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

bool HaFinestraDipinta()
{
    const QWindowList Finestre = QGuiApplication::topLevelWindows();
    return std::ranges::any_of(Finestre, [](const QWindow* Finestra) { return Finestra->isExposed(); });
}

bool ModuloAperto()
{
    const frmUpgrade* Modulo = SeCaricato<frmUpgrade>;
    return Modulo && Modulo->isVisible();
}

/// The request of the start, which waits for a slow server no longer than this. Without a user folder there
/// is no place for the answer, and no request; the start has told so.
std::optional<RichiestaRete> RichiestaAllAvvio(const Provenienza& Da)
{
    constexpr int ConnessioneMs = 4000;
    constexpr int TotaleMs = 8000;
    try {
        RichiestaRete Chiesta = InizioControllo(Da);
        Chiesta.ConnessioneMs = ConnessioneMs;
        Chiesta.TotaleMs = TotaleMs;
        return Chiesta;
    } catch (const Errore&) {
        return std::nullopt;
    }
}

/// What is said of a search that has come to its end.
void Concludi(bool Riuscita)
{
    if (!Riuscita)
        DiRicercaFallita();
    else if (ProponiAggiornamento())
        Singola<frmUpgrade>().MostraModale(u"run"_s);
}

/// The search beside the event loop. It belongs to the application: what is on its way ends with it.
class RicercaAlFianco : public QObject
{
public:
    RicercaAlFianco() : QObject(qApp)
    {
        constexpr int OgniMs = 50;
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, this, &QObject::deleteLater);
        Collega(&Orologio, &QTimer::timeout, this, [this] { Passo(); });
        Orologio.start(OgniMs);
    }
    ~RicercaAlFianco() override
    {
        Corrente.reset();
        if (!Chiesta.File.isEmpty())
            ScartaFile(Chiesta.File);
    }

private:
    void Passo()
    {
        if (!Corrente && HaFinestraDipinta())
            Parti();
        if (!Corrente || !Corrente->Attendi(0) || UtenteImpegnato())
            return;
        Orologio.stop();
        deleteLater();
        if (ModuloAperto())
            return;
        Annuncio Trovato;
        Concludi(Corrente->Fine() == FineRete::Completa && FineControllo(Chiesta, Da, false, Trovato));
    }

    void Parti()
    {
        const auto Richiesta = RichiestaAllAvvio(Da);
        if (!Richiesta) {
            Orologio.stop();
            deleteLater();
            return;
        }
        Chiesta = *Richiesta;
        Corrente = AvviaTrasferimento(Chiesta);
    }

    const Provenienza Da = DalServer();
    RichiestaRete Chiesta;
    std::unique_ptr<Trasferimento> Corrente;
    QTimer Orologio;
};

/// The search while the caller waits, for a trace that keeps its order.
void CercaInAttesa()
{
    constexpr int OgniMs = 20;
    const Provenienza Da = DalServer();
    const auto Chiesta = RichiestaAllAvvio(Da);
    if (!Chiesta)
        return;
    bool Riuscita = false;
    {
        const ClessidraAccesa Attesa;
        const auto Corrente = AvviaTrasferimento(*Chiesta);
        while (!Corrente->Attendi(OgniMs))
            if (!RespiroRete())
                Corrente->Annulla();
        Annuncio Trovato;
        Riuscita = Corrente->Fine() == FineRete::Completa && FineControllo(*Chiesta, Da, false, Trovato);
        if (!Riuscita)
            ScartaFile(Chiesta->File);
    }
    Concludi(Riuscita);
}

}  // namespace

void CercaAggiornamenti()
{
    sessione::CercaAgg = false;
    if (DalServer().Indirizzo.isEmpty())
        return;
    if (!sessione::ModoDebug) {
        (void)new RicercaAlFianco;  // it deletes itself
        return;
    }
    TraceDebug(u"avvio ricerca aggiornamenti"_s);
    // The activation goes on behind it, whatever happens here.
    (void)Protetta([] { CercaInAttesa(); });
}
