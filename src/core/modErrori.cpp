#include "core/modErrori.h"

#include "core/aperture.h"
#include "core/rapportiunici.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/system/messaggi.h"
#include "platform/system/shell.h"

using namespace Qt::StringLiterals;

namespace {

/// What the outermost RapportiUnici has seen; null while there is none.
QStringList*& RapportiMostrati()
{
    static QStringList* Tutti = nullptr;
    return Tutti;
}

/// True for a report that is to be shown; it counts as shown from then on.
bool Nuovo(const QString& Rapporto)
{
    QStringList* Mostrati = RapportiMostrati();
    if (!Mostrati)
        return true;
    const bool Primo = !Mostrati->contains(Rapporto);
    Mostrati->append(Rapporto);
    return Primo;
}

void Traccia()
{
    Invoca(Aperture.MostraTraccia, u"FINESTRA DEBUG:\n"_s + sessione::TestoDebug);
}

}  // namespace

bool GestioneErrori(const Errore& Guasto, int Ignora)
{
    const QString Rapporto = u"Errore: %1 (%2)"_s.arg(Guasto.Descrizione, QString::number(Guasto.Numero));
    const bool Mostrato = Guasto.Numero > 0 && Guasto.Numero != Ignora && Nuovo(Rapporto);
    if (Mostrato) {
        if (!sessione::TestoDebug.isEmpty())
            Traccia();
        MsgErrore(Rapporto);
    }
    Clessidra(false);
    return Mostrato;
}

RapportiUnici::RapportiUnici()
{
    if (!RapportiMostrati())
        RapportiMostrati() = &Mostrati;
}

RapportiUnici::~RapportiUnici()
{
    if (RapportiMostrati() == &Mostrati)
        RapportiMostrati() = nullptr;
}

bool RiferisciCorrente(int Ignora)
{
    return GestioneErrori(ErroreCorrente(), Ignora);
}

void MsgErrore(const QString& Testo)
{
    MsgBox(Testo, vbCritical, TitoloErrore.toString());
}

void VerificaEsito(int Esito)
{
    if (Esito != 0)
        throw Errore(Esito);
}

void TraceDebug(const QString& Messaggio)
{
    // The first entry has no line break behind it, so that the second follows it on its line: kept so.
    const bool Prima = sessione::TestoDebug.isEmpty();
    sessione::TestoDebug += u"- "_s + Messaggio;
    if (!Prima)
        sessione::TestoDebug += u'\n';
    Traccia();
}
