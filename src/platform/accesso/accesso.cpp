#include "platform/accesso/accesso.h"

#include "platform/accesso/copie.h"
#include "platform/accesso/lettore.h"
#include "platform/base/errore.h"
#include "platform/database/fileincopia.h"
#include "platform/database/primariga.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/permessi.h"
#include "platform/system/shell.h"

#include <QDateTime>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>
#include <mutex>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MassimoFile = qint64(2) << 30;

constexpr int PostoDelSegno = 4;
constexpr int ByteDelSegno = PostoDelSegno + 16;

/// Whether a file that begins so is one of Access.
bool HaSegnoDiAccess(QByteArrayView Inizio)
{
    if (Inizio.size() < ByteDelSegno)
        return false;
    const QByteArrayView Nome = Inizio.sliced(PostoDelSegno);
    return Nome == QByteArrayView("Standard Jet DB\0", Nome.size()) ||
           Nome == QByteArrayView("Standard ACE DB\0", Nome.size());
}

QString ProgrammaLettore()
{
    return accesso::Programma.isEmpty() ? CartellaEseguibile() + u"calcanova-accesso"_s : accesso::Programma;
}

Errore Rifiutato(const QString& Perche)
{
    return Errore(errori::FormatoDatabase, Perche);
}

/// True for what Access and its kin put beside a database that somebody has open.
bool HaBlocco(const QString& File)
{
    const QFileInfo Info(File);
    const QString Senza = Info.path() + u'/' + Info.completeBaseName();
    return EsisteFile(TrovaFile(Senza + u".ldb"_s)) || EsisteFile(TrovaFile(Senza + u".laccdb"_s));
}

void ControllaOrigine(const QString& File)
{
    const QFileInfo Info(File);
    if (!Info.exists())
        throw Errore(errori::FileMancante);
    if (!Info.isFile() || !Leggibile(Info))
        throw Errore(errori::Accesso);
    if (!EDiAccess(File))
        throw Rifiutato(u"Il file non è un archivio di Access"_s);
    if (Info.size() > MassimoFile)
        throw Rifiutato(
            u"Il file supera i 2 GB, che un archivio di Access non ha: scegliere il file giusto"_s);
}

QString TestoDi(const QJsonValue& Valore)
{
    constexpr qsizetype Massimo = 1000;
    return Valore.toString().left(Massimo);
}

RapportoAccess LeggiRapporto(const QJsonObject& Risposta)
{
    RapportoAccess Rapporto;
    for (const auto& Voce : Risposta[u"tabelle"_s].toArray())
        Rapporto.Tabelle.append({TestoDi(Voce[u"nome"]), Voce[u"righe"].toInteger()});
    for (const auto& Voce : Risposta[u"tralasciati"_s].toArray())
        Rapporto.Tralasciati.append({TestoDi(Voce[u"cosa"]), TestoDi(Voce[u"perche"])});
    return Rapporto;
}

[[noreturn]] void LanciaErrore(const QJsonObject& Risposta)
{
    // Whatever the answer says, it is an error of a number that there is.
    const int Detto = Risposta[u"errore"_s].toInt(errori::FormatoDatabase);
    const int Numero = Detto > 0 ? Detto : int(errori::FormatoDatabase);
    const QString Descrizione = TestoDi(Risposta[u"descrizione"_s]);
    if (Descrizione.isEmpty())
        throw Errore(Numero);
    throw Errore(Numero, Descrizione);
}

/// How one request to a reading program ended.
struct Esito
{
    Lettore::Fine Come = Lettore::Fine::Morto;
    QJsonObject Risposta = {};
    bool Muto = true;  ///< not a line came
};

Esito Chiedi(Lettore& Con, const QString& Da, const QString& A, const ModoAccess& Come)
{
    const QJsonObject Domanda{{u"da"_s, Da}, {u"a"_s, A}, {u"secondi"_s, Come.Secondi}};
    Esito Avuto;
    qint64 Righe = 0;
    Avuto.Come = Con.Chiedi(
        QJsonDocument(Domanda).toJson(QJsonDocument::Compact) + '\n',
        (Come.Secondi + 1) * accesso::AttesaPerSecondo * 1000,
        [&](QByteArrayView Riga) {
            Avuto.Muto = false;
            const QJsonObject Letta = QJsonDocument::fromJson(Riga.toByteArray()).object();
            if (const QJsonValue Avanzate = Letta[u"avanzate"_s]; Avanzate.isDouble()) {
                Righe = Avanzate.toInteger();
                return false;
            }
            Avuto.Risposta = Letta;
            return true;
        },
        [&] { return !Come.Prosegui || Come.Prosegui(Righe); });
    return Avuto;
}

/// What it says of the file.
std::optional<RapportoAccess> RapportoDi(const Esito& Avuto, const QString& A)
{
    switch (Avuto.Come) {
    case Lettore::Fine::Fermata:
        return std::nullopt;
    case Lettore::Fine::Scaduta:
        throw Rifiutato(
            u"La lettura del file ha richiesto troppo tempo: il file è danneggiato o troppo grande"_s);
    case Lettore::Fine::Morto:
        throw Rifiutato(u"La lettura del file si è interrotta: il file è danneggiato"_s);
    case Lettore::Fine::Risposta:
        break;
    }
    if (Avuto.Risposta[u"errore"_s].toInt(errori::FormatoDatabase) != 0)
        LanciaErrore(Avuto.Risposta);
    if (!EsisteFile(A))
        throw Errore(errori::FormatoDatabase);
    return LeggiRapporto(Avuto.Risposta);
}

/// A running reading program for one request: the one that the last request has left, or a new one. Starting
/// one costs more than a note.
class LettoreInPrestito
{
public:
    /// @param Nuovo one that has read nothing yet
    explicit LettoreInPrestito(bool Nuovo = false)
    {
        const QString Programma = ProgrammaLettore();
        {
            const std::lock_guard Mio(Turno());
            if (Nuovo || Avviato() != Programma)
                Libero().reset();
            Avviato() = Programma;
            Proprio = std::move(Libero());
        }
        Usato = Proprio != nullptr;
        if (!Proprio)
            Proprio = std::make_unique<Lettore>(Programma);
        Quale = Programma;
    }
    ~LettoreInPrestito()
    {
        const std::lock_guard Mio(Turno());
        if (Proprio->Vivo() && Avviato() == Quale)
            std::swap(Libero(), Proprio);
    }
    LettoreInPrestito(const LettoreInPrestito&) = delete;
    LettoreInPrestito& operator=(const LettoreInPrestito&) = delete;

    [[nodiscard]] Lettore& operator*() const { return *Proprio; }
    /// Whether it has read other files before.
    [[nodiscard]] bool GiaUsato() const { return Usato; }

private:
    static std::mutex& Turno()
    {
        static std::mutex Uno;
        return Uno;
    }
    static std::unique_ptr<Lettore>& Libero()
    {
        static std::unique_ptr<Lettore> Uno;
        return Uno;
    }
    static QString& Avviato()
    {
        static QString Uno;
        return Uno;
    }
    std::unique_ptr<Lettore> Proprio;
    QString Quale;
    bool Usato = false;
};

/// What tells one state of a file from another.
struct Impronta
{
    qint64 Byte = 0;
    qint64 Data = 0;
    friend bool operator==(const Impronta&, const Impronta&) = default;
};

Impronta ImprontaDi(const QString& File)
{
    const QFileInfo Info(File);
    return {Info.size(), Info.lastModified().toMSecsSinceEpoch()};
}

std::optional<RapportoAccess> Leggi(const QString& Da, const FileInCopia& A, const ModoAccess& Come)
{
    // Somebody works with the file: a copy made in one go is read in its place.
    const bool Aperto = HaBlocco(Da);
    if (Aperto && !CopiaFile(
                      Da, A.Letto(), MassimoFile, [&](qint64) { return !Come.Prosegui || Come.Prosegui(0); },
                      Lettori::SoloUtente))
        return std::nullopt;
    const QString Letto = Aperto ? A.Letto() : Da;
    {
        const LettoreInPrestito Con;
        const Esito Avuto = Chiedi(*Con, Letto, A.Percorso(), Come);
        // One that was kept may have ended since its last file, for want of memory on the machine: that is
        // nothing that the next file has done. A new one tells.
        if (Avuto.Come != Lettore::Fine::Morto || !Avuto.Muto || !Con.GiaUsato())
            return RapportoDi(Avuto, A.Percorso());
    }
    A.TogliScritto();
    const LettoreInPrestito Nuovo(true);
    return RapportoDi(Chiedi(*Nuovo, Letto, A.Percorso(), Come), A.Percorso());
}

}  // namespace

bool EDiAccess(const QString& Percorso)
{
    return HaSegnoDiAccess(InizioDelFile(Percorso, ByteDelSegno));
}

bool EDiAccessDiSicuro(const QString& Percorso)
{
    const QByteArray Inizio = InizioDelFile(Percorso, ByteDelSegno);
    if (Inizio.isEmpty() && QFileInfo(PercorsoNativo(Percorso)).size() > 0)
        throw Errore(errori::Accesso);
    return HaSegnoDiAccess(Inizio);
}

std::optional<RapportoAccess> ConvertiAccess(const QString& Da, const QString& A, const ModoAccess& Come)
{
    return Converti(Da, A, Come, true);
}

std::optional<RapportoAccess> Converti(const QString& Da, const QString& A, const ModoAccess& Come,
                                       bool SulDisco)
{
    const QString Origine = QFileInfo(PercorsoNativo(Da)).absoluteFilePath();
    ControllaOrigine(Origine);
    const FileInCopia Costruito(A);
    // A file that changes while it is read is read once more; who writes all the time must stop.
    for (int Volta = 0; Volta < 2; ++Volta) {
        Costruito.Togli();
        const Impronta Prima = ImprontaDi(Origine);
        std::optional<RapportoAccess> Rapporto = Leggi(Origine, Costruito, Come);
        if (!Rapporto)
            return std::nullopt;
        if (ImprontaDi(Origine) != Prima)
            continue;
        Costruito.Posa(Come.Chi, SulDisco, Come.Data);
        return Rapporto;
    }
    throw Errore(errori::DatiBloccati);
}

Database ApriArchivio(const QString& Percorso, bool SolaLettura)
{
    try {
        return OpenDatabase(Percorso, SolaLettura);
    } catch (const Errore& Guasto) {
        if (Guasto.Numero != errori::FormatoDatabase || !EDiAccess(Percorso))
            throw;
    }
    return OpenDatabase(CopiaNativa(Percorso), true);
}
