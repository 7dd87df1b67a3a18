#include "platform/system/impostazioni.h"

#include "platform/base/errore.h"
#include "platform/system/deposito.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/turno.h"

#include <QStandardPaths>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// What no settings reach; a larger file is somebody else's.
constexpr qint64 MassimoDeposito = qint64(4) << 20;

/// The store as it is, empty where none is. @throws Errore 75 when it cannot be read, 7 when it is too large
QByteArray LeggiDeposito(const QString& File)
{
    return EsisteFile(File) ? LeggiFile(File, MassimoDeposito) : QByteArray();
}

QString Dice(DannoDeposito Danno)
{
    switch (Danno) {
    case DannoDeposito::Nessuno:
        break;
    case DannoDeposito::Vuoto:
        return u"è vuoto"_s;
    case DannoDeposito::Estraneo:
        return u"è danneggiato"_s;
    case DannoDeposito::Troncato:
        return u"è troncato"_s;
    }
    return {};
}

struct Diagnosi
{
    GuastoDeposito Genere;
    QString Come;  ///< behind the name of the file
};

/// None for a sound store, and where there is none.
std::optional<Diagnosi> Esamina(const QString& File)
{
    if (EsisteCartella(File))
        return Diagnosi{GuastoDeposito::Cartella, u"non si legge: al suo posto c'è una cartella"_s};
    if (!EsisteFile(File))
        return std::nullopt;
    try {
        const DannoDeposito Danno = DannoDelDeposito(LeggiDeposito(File));
        if (Danno == DannoDeposito::Nessuno)
            return std::nullopt;
        return Diagnosi{Danno == DannoDeposito::Vuoto ? GuastoDeposito::Vuoto : GuastoDeposito::Rovinato,
                        Dice(Danno)};
    } catch (const Errore& Guasto) {
        if (Guasto.Numero == errori::Memoria)
            return Diagnosi{GuastoDeposito::Enorme, u"è troppo grande per contenere impostazioni"_s};
        return Diagnosi{GuastoDeposito::Illeggibile, u"non si legge: "_s + Guasto.Descrizione};
    }
}

/// What is done about a damaged store.
enum class SeGuasto { Conserva, Rifiuta };

/// Puts another text in the store's place, in turn with other programs: two that store at one moment would
/// each put back what the other has changed.
/// @throws Errore why not
void Cambia(const QString& File, SeGuasto Che, const std::function<QByteArray(const QByteArray& Prima)>& Dopo)
{
    CreaCartellaDiUtente(CartellaFile(File));
    ATurno(File, NomeFile(File) + u".lock"_s, [&] {
        const QByteArray Prima = LeggiDeposito(File);
        const DannoDeposito Danno = EsisteFile(File) ? DannoDelDeposito(Prima) : DannoDeposito::Nessuno;
        if (Danno != DannoDeposito::Nessuno && Che == SeGuasto::Rifiuta)
            throw Errore(errori::Accesso,
                         u"il file "_s + Dice(Danno) + u", occorre memorizzare di nuovo le impostazioni"_s);
        const QByteArray Nuovo = Dopo(SenzaRigaTronca(Prima));
        // No file is made for nothing. A damaged one that has lost nothing of these keys becomes whole.
        if (Nuovo == Prima && (Nuovo.isEmpty() || Danno == DannoDeposito::Nessuno))
            return;
        // A number or a text can be looked up there.
        if (Danno != DannoDeposito::Nessuno && !Prima.trimmed().isEmpty())
            ConservaGuasto(File, Prima, Lettori::SoloUtente);
        ScriviFile(File, DepositoIntero(Nuovo), Lettori::SoloUtente);
    });
}

[[noreturn]] void NonScritte(const QString& File, const Errore& Guasto)
{
    throw Errore(errori::Accesso,
                 u"Impossibile scrivere le impostazioni nel file %1: %2"_s.arg(File, Guasto.Descrizione));
}

/// @throws Errore 6, 13
int NumeroDopo(const QString& Testo, int Massimo)
{
    bool Intero = false;
    const int Ultimo = Testo.trimmed().isEmpty() ? 0 : Testo.toInt(&Intero);
    if ((!Intero && !Testo.trimmed().isEmpty()) || Ultimo < 0)
        throw Errore(errori::Tipo);
    if (Ultimo >= Massimo)
        throw Errore(errori::Eccedenza);
    return Ultimo + 1;
}

}  // namespace

QString PercorsoImpostazioni(const QString& Applicazione)
{
#ifdef Q_OS_WIN
    const QString Cartella = qEnvironmentVariable("APPDATA");
#else
    const QString Cartella = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
#endif
    return PercorsoNativo(Cartella + u"/Calcanova/"_s + Applicazione + u".ini"_s);
}

std::optional<Errore> GuastoImpostazioni(const QString& Applicazione)
{
    const std::optional<DepositoGuasto> Guasto = EsaminaImpostazioni(Applicazione);
    return Guasto ? std::optional(Errore(errori::Accesso, Guasto->Frase)) : std::nullopt;
}

std::optional<DepositoGuasto> EsaminaImpostazioni(const QString& Applicazione)
{
    const QString File = PercorsoImpostazioni(Applicazione);
    const std::optional<Diagnosi> Guasto = Esamina(File);
    if (!Guasto)
        return std::nullopt;
    return DepositoGuasto{Guasto->Genere, u"Il file delle impostazioni %1 "_s.arg(File) + Guasto->Come};
}

QString GetSetting(const QString& Applicazione, const QString& Sezione, const QString& Chiave,
                   const QString& Predefinito)
{
    try {
        return ValoreDelDeposito(LeggiDeposito(PercorsoImpostazioni(Applicazione)), Sezione, Chiave)
            .value_or(Predefinito);
    } catch (const Errore&) {
        return Predefinito;
    }
}

QString GetSettingSicuro(const QString& Applicazione, const QString& Sezione, const QString& Chiave)
{
    const QString File = PercorsoImpostazioni(Applicazione);
    try {
        return ValoreDelDeposito(LeggiDeposito(File), Sezione, Chiave).value_or(QString());
    } catch (const Errore& Guasto) {
        throw Errore(Guasto.Numero,
                     u"Impossibile leggere le impostazioni nel file %1: %2"_s.arg(File, Guasto.Descrizione));
    }
}

void SaveSetting(const QString& Applicazione, const QString& Sezione, const QString& Chiave,
                 const QString& Valore)
{
    SaveSettings(Applicazione, Sezione, {{Chiave, Valore}});
}

void SaveSettings(const QString& Applicazione, const QString& Sezione,
                  const QList<std::pair<QString, QString>>& Valori,
                  const std::function<bool(const QString& Chiave, const QString& Ora)>& SiScrive)
{
    const QString File = PercorsoImpostazioni(Applicazione);
    try {
        Cambia(File, SeGuasto::Conserva, [&](const QByteArray& Prima) {
            QList<std::pair<QString, QString>> Da = Valori;
            // What a store has lost meanwhile nobody has stored in it.
            if (SiScrive && DannoDelDeposito(Prima) == DannoDeposito::Nessuno)
                Da.removeIf([&](const auto& Voce) {
                    const auto Ora = ValoreDelDeposito(Prima, Sezione, Voce.first);
                    return Ora && !SiScrive(Voce.first, *Ora);
                });
            return ConValoriNelDeposito(Prima, Sezione, Da);
        });
    } catch (const Errore& Guasto) {
        NonScritte(File, Guasto);
    }
}

void MutaSetting(const QString& Applicazione, const QString& Sezione, const QString& Chiave,
                 const std::function<QString(const QString& Prima)>& Dopo)
{
    const QString File = PercorsoImpostazioni(Applicazione);
    try {
        Cambia(File, SeGuasto::Rifiuta, [&](const QByteArray& Prima) {
            const QString Era = ValoreDelDeposito(Prima, Sezione, Chiave).value_or(QString());
            const QString Nuovo = Dopo(Era);
            return Nuovo == Era ? Prima : ConValoriNelDeposito(Prima, Sezione, {{Chiave, Nuovo}});
        });
    } catch (const Errore& Guasto) {
        NonScritte(File, Guasto);
    }
}

int PortaNumero(const QString& Applicazione, const QString& Sezione, const QString& Chiave, int Almeno)
{
    const QString File = PercorsoImpostazioni(Applicazione);
    int Ora = Almeno;
    try {
        Cambia(File, SeGuasto::Rifiuta, [&](const QByteArray& Prima) {
            Ora = std::max(Almeno, ValoreDelDeposito(Prima, Sezione, Chiave).value_or(QString()).toInt());
            return ConValoriNelDeposito(Prima, Sezione, {{Chiave, QString::number(Ora)}});
        });
    } catch (const Errore& Guasto) {
        NonScritte(File, Guasto);
    }
    return Ora;
}

int PrendiNumero(const QString& Applicazione, const QString& Sezione, const QString& Chiave, int Massimo)
{
    const QString File = PercorsoImpostazioni(Applicazione);
    int Preso = 0;
    try {
        Cambia(File, SeGuasto::Rifiuta, [&](const QByteArray& Prima) {
            Preso = NumeroDopo(ValoreDelDeposito(Prima, Sezione, Chiave).value_or(QString()), Massimo);
            return ConValoriNelDeposito(Prima, Sezione, {{Chiave, QString::number(Preso)}});
        });
    } catch (const Errore& Guasto) {
        if (Guasto.Numero == errori::Eccedenza || Guasto.Numero == errori::Tipo)
            throw;
        NonScritte(File, Guasto);
    }
    return Preso;
}
