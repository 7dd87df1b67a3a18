// The one door to the network: a file from an address.
//
// A table as the desktop's: the windows and the tests install Qt's, and without one nothing is transferred.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

/// How a transfer ended.
enum class FineRete {
    Completa,          ///< every announced byte is in the file, whatever the server's status
    Annullata,         ///< the caller has stopped it
    SenzaConnessione,  ///< nobody answers at the address
    Interrotta,        ///< broken off, or silent for too long
    Certificato,       ///< the server cannot prove its name
    Vietata,           ///< an address that is no way in, or one that leads elsewhere
    TroppoGrande,      ///< more bytes than the caller takes
    Disco,             ///< the file cannot be written
};

/// The end in the user's words: "connessione interrotta".
[[nodiscard]] QString DescriviFine(FineRete Fine);

/// True for the host of an address that is this machine, which needs no encryption and no signature.
[[nodiscard]] bool QuestaMacchina(const QString& Host);

/// What is asked of one transfer.
struct RichiestaRete
{
    QString Indirizzo;  ///< https; http for this machine alone, by 127.0.0.1 or ::1
    QString File;       ///< full path; a file that is there goes once the server answers
    QByteArray Agente;  ///< the only thing that the server learns of the program
    qint64 MassimoByte = qint64(64) << 20;
    int ConnessioneMs = 15000;
    int SilenzioMs = 15000;  ///< how long no byte may come
    int TotaleMs = 0;        ///< of the whole transfer, 0 no limit
};

/// A transfer on its way, beside the caller. While it lives its file is its own; when it goes unfinished, it
/// is stopped first and its file goes too.
class Trasferimento
{
public:
    virtual ~Trasferimento() = default;
    /// Waits that long at most. @return true when it has ended
    [[nodiscard]] virtual bool Attendi(int Ms) = 0;
    /// How it has ended; Annullata as long as it has not.
    [[nodiscard]] virtual FineRete Fine() const = 0;
    [[nodiscard]] virtual qint64 Ricevuti() const = 0;
    [[nodiscard]] virtual qint64 Totale() const = 0;  ///< announced by the server, -1 unknown
    /// Asks it to stop; it ends soon after.
    virtual void Annulla() = 0;
};

struct Rete
{
    std::function<std::unique_ptr<Trasferimento>(const RichiestaRete& Chiesta)> Avvia;
    /// What a caller does while it waits; false when the user asked to stop.
    std::function<bool()> Respiro;
};

/// Installs the services and returns the former ones.
Rete InstallaRete(Rete Nuova);

/// Begins a transfer; never null. Without a table it has ended in SenzaConnessione.
[[nodiscard]] std::unique_ptr<Trasferimento> AvviaTrasferimento(const RichiestaRete& Chiesta);
[[nodiscard]] bool RespiroRete();  ///< Rete::Respiro; true without a table
