#include "platform/system/turno.h"

#include "platform/base/errore.h"
#include "platform/system/attese.h"
#include "platform/system/blocco.h"
#include "platform/system/percorsi.h"

void ATurno(const QString& File, const QString& Blocco, const std::function<void()>& Fai)
{
    FileBlocco Turno(CartellaFile(PercorsoNativo(File)) + Blocco);
    FileBlocco::Esito Ora = Turno.Prendi(attese::TurnoMs);
    // Nobody writes such a file for minutes.
    if (Ora == FileBlocco::Esito::Abbandonato && TogliBlocco(Turno.Percorso()))
        Ora = Turno.Prendi(attese::TurnoMs);
    switch (Ora) {
    case FileBlocco::Esito::Preso:
        break;
    case FileBlocco::Esito::Altrui:
    case FileBlocco::Esito::Abbandonato:
        throw Errore(errori::GiaInUso);
    case FileBlocco::Esito::Rifiutato:
        throw Errore(errori::Accesso);
    case FileBlocco::Esito::Impedito:
        throw Errore(errori::Periferica);
    }
    Fai();
}
