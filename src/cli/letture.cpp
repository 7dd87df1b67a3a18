#include "cli/letture.h"

#include "platform/base/errore.h"
#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;

namespace {

/// As much of a wrong value as a sentence should hold.
QString Citato(const QString& Nome, const QString& Valore)
{
    constexpr int Massimo = 40;
    return u"%1: «%2»"_s.arg(Nome, Valore.left(Massimo));
}

}  // namespace

double Numero(const QString& Nome, const QString& Valore)
{
    try {
        return CDbl(Valore);
    } catch (const Errore& Guasto) {
        throw Errore(Guasto.Numero, u"%1: %2"_s.arg(Citato(Nome, Valore), Guasto.Descrizione));
    }
}

double NumeroOZero(const QString& Nome, const QString& Valore)
{
    return Valore.trimmed().isEmpty() ? 0.0 : Numero(Nome, Valore);
}

bool LeggiBit(const QString& Nome, const QString& Valore, bool Vuoto)
{
    const QString Testo = Valore.trimmed();
    if (Testo.isEmpty())
        return Vuoto;
    if (Testo != u"0" && Testo != u"1")
        throw Errore(errori::Tipo, u"%1 non è 0 né 1"_s.arg(Citato(Nome, Valore)));
    return Testo == u"1";
}

int LeggiParola(const QString& Nome, const QString& Valore, const QStringList& Parole)
{
    const qsizetype Posto = Parole.indexOf(Valore.trimmed().toLower());
    if (Posto < 0)
        throw Errore(errori::Argomento, u"%1 non è fra %2"_s.arg(Citato(Nome, Valore), Parole.join(u", "_s)));
    return int(Posto);
}

QString Giorno(const QDate& Data)
{
    return Format(Data, ModelloData);
}
