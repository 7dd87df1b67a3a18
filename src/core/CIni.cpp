#include "core/CIni.h"

#include "platform/base/errore.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/profilo.h"
#include "platform/system/shell.h"

namespace {

/// Characters of the read buffer, its end mark included.
constexpr int Capienza = 1000;

/// Without the blanks around it; tabs and hard blanks are no blanks.
QString SenzaBlank(const QString& Testo)
{
    qsizetype Inizio = 0;
    qsizetype Fine = Testo.size();
    while (Inizio < Fine && Testo[Inizio] == u' ')
        ++Inizio;
    while (Fine > Inizio && Testo[Fine - 1] == u' ')
        --Fine;
    return Testo.sliced(Inizio, Fine - Inizio);
}

QString Ripulito(QString Testo)
{
    Testo.removeIf([](QChar Carattere) { return Carattere.unicode() < 32; });
    return SenzaBlank(Testo);
}

}  // namespace

void CIni::ImpostaFileName(const QString& Nome)
{
    File = SenzaBlank(Nome);
}

void CIni::ImpostaApplicationKey(const QString& Nome)
{
    Sezione = SenzaBlank(Nome);
}

QString CIni::GetValue(const QString& Chiave, const QString& Predefinito) const
{
    try {
        return Ripulito(
            GetPrivateProfileString(Sezione, Chiave, Predefinito.left(Capienza - 1), Capienza, File));
    } catch (...) {
        return ValoreDopoGuasto(ErroreCorrente(), Predefinito);
    }
}

bool CIni::SetValue(const QString& Chiave, const QString& Valore) const
{
    return WritePrivateProfileString(Sezione, Chiave, Valore, File);
}

bool CIni::WriteINI(const QString& Gruppo, const QString& Chiave, const QString& Valore, const QString& Nome,
                    const QString& Percorso) const
{
    const QString Cartella = Barra(Percorso.isEmpty() ? CartellaEseguibile() : Percorso);
    return WritePrivateProfileString(Gruppo, Chiave, Valore, Cartella + Nome);
}

QString ValoreDopoGuasto(const Errore& Guasto, const QString& Predefinito)
{
    if (Guasto.Numero == errori::TroppoComplessa)
        return Predefinito;
    MsgBox(QString::number(Guasto.Numero) + u' ' + Guasto.Descrizione);
    return {};
}
