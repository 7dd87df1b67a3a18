#include "platform/system/messaggi.h"

#include <utility>

namespace {

Messaggi& Installati()
{
    static Messaggi Tabella;
    return Tabella;
}

/// The answer that changes nothing, among the buttons of the flags.
int RispostaSicura(int Bandiere)
{
    switch (PulsantiDi(Bandiere)) {
    case vbOKOnly:
        return vbOK;
    case vbYesNo:
        return vbNo;
    default:
        return vbCancel;
    }
}

}  // namespace

Messaggi InstallaMessaggi(Messaggi Nuovi)
{
    return std::exchange(Installati(), std::move(Nuovi));
}

// Each function is copied before it is called: while its box is open, another table may be installed.

int MsgBox(const QString& Testo, int Bandiere, const QString& Titolo)
{
    const auto Box = Installati().Box;
    return Box ? Box(Testo, Bandiere, Titolo) : RispostaSicura(Bandiere);
}

int MsgBoxPulsanti(const QString& Testo, int Bandiere, const QString& Titolo, const QStringList& Pulsanti)
{
    const auto Box = Installati().BoxPulsanti;
    return Box ? Box(Testo, Bandiere, Titolo, Pulsanti) : RispostaSicura(Bandiere);
}

QString InputBox(const QString& Testo, const QString& Titolo, const QString& Predefinito)
{
    const auto Immissione = Installati().Immissione;
    return Immissione ? Immissione(Testo, Titolo, Predefinito) : QString();
}

QString DialogoApri(const QString& Titolo, const QString& Iniziale, const QString& Filtro)
{
    const auto ApriFile = Installati().ApriFile;
    return ApriFile ? ApriFile(Titolo, Iniziale, Filtro) : QString();
}

QString DialogoSalva(const QString& Titolo, const QString& Iniziale, const QString& Filtro)
{
    const auto SalvaFile = Installati().SalvaFile;
    return SalvaFile ? SalvaFile(Titolo, Iniziale, Filtro) : QString();
}

std::optional<int> DialogoColore(int Iniziale)
{
    const auto ScegliColore = Installati().ScegliColore;
    return ScegliColore ? ScegliColore(Iniziale) : std::nullopt;
}

bool DialogoStampante(QPrinter& Scelta)
{
    const auto ScegliStampante = Installati().ScegliStampante;
    return ScegliStampante && ScegliStampante(Scelta);
}
