#include "update/scarico.h"

#include "calculators/modTassi.h"
#include "core/sessione.h"
#include "core/versione.h"
#include "platform/base/errore.h"
#include "platform/network/firma.h"
#include "platform/network/rete.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "platform/system/sincrono.h"
#include "update/controllotassi.h"
#include "update/modCopyURL.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MassimoFirma = qint64(64) << 10;
constexpr QStringView FirmaNonValida = u"firma non valida";

/// A download that has failed: unwinds to the one place that tells it.
struct Fallito
{
    QString Dettaglio;
    bool Annullato = false;
};

/// A file that is being brought; it goes with the object unless it has found its place.
class Arrivo
{
public:
    explicit Arrivo(const QString& Meta) : Nome(Provvisorio(Meta)) {}
    ~Arrivo() { ScartaFile(Nome); }
    Arrivo(const Arrivo&) = delete;
    Arrivo& operator=(const Arrivo&) = delete;
    [[nodiscard]] const QString& File() const { return Nome; }

private:
    QString Nome;
};

/// A name that is on the disk before the bytes behind it would be half a file after a loss of power.
/// @param Come the file whose readers it keeps: an office's folder is open to colleagues whose system is not
void Sostituisci(const Arrivo& Nuovo, const QString& Vecchio, const QString& Come)
{
    ScriviSulDisco(Nuovo.File());
    DaiPermessi(Nuovo.File(), Come, Lettori::Cartella);
    SostituisciFile(Nuovo.File(), Vecchio);
}

bool SuQuestaMacchina(const Provenienza& Da)
{
    return QuestaMacchina(QUrl(Da.Indirizzo).host());
}

/// @throws Fallito, Errore
void Porta(const Provenienza& Da, const QString& Nome, const QString& File, qint64 MassimoByte,
           const PassoAggiornamento& Passo)
{
    if (!Da.Indirizzo.isEmpty()) {
        bool Fermato = false;
        const auto Osserva = [&](qint64 Ricevuti, qint64 Totale) {
            Fermato = Fermato || !(Passo ? Passo(Ricevuti, Totale) : RespiroRete());
            return !Fermato;
        };
        QString Dettaglio;
        const int Esito = CopiaURL(Da.Indirizzo + CartellaServer.toString() + Nome, File,
                                   {false, MassimoByte, Osserva}, &Dettaglio);
        // Who stops at the very end of one file does not want the next one either.
        if (Fermato)
            throw Fallito{DescriviFine(FineRete::Annullata), true};
        if (Esito != 0)
            throw Fallito{Dettaglio};
        return;
    }
    const QString Origine = TrovaFile(Da.Cartella + Nome);
    const qint64 Totale = QFileInfo(Origine).size();
    if (!CopiaFile(Origine, File, MassimoByte,
                   [&](qint64 Copiati) { return !Passo || Passo(Copiati, Totale); }))
        throw Fallito{DescriviFine(FineRete::Annullata), true};
}

/// A text of the form of a signature, whoever made it. A server's page about a missing file is none.
bool SembraFirma(const QByteArray& Testo)
{
    constexpr qsizetype ByteFirma = 64;
    const auto Letta =
        QByteArray::fromBase64Encoding(Testo.trimmed(), QByteArray::AbortOnBase64DecodingErrors);
    return Letta && Letta.decoded.size() == ByteFirma;
}

QByteArray PortaFirma(const Annuncio& Trovato, const PassoAggiornamento& Passo)
{
    const Arrivo Firma(Barra(sessione::UserFolder) + FirmaVersioni.toString());
    try {
        Porta(Trovato.Da, FirmaVersioni.toString(), Firma.File(), MassimoFirma, Passo);
        return LeggiFile(Firma.File(), MassimoFirma);
    } catch (const Errore& Guasto) {
        // A folder without it, or with a file that is too long to be one.
        if (Guasto.Numero == errori::FileMancante || Guasto.Numero == errori::Memoria)
            return {};
        throw;
    }
}

/// @throws Fallito unless the announcement is the publisher's
void PretendiFirma(const Annuncio& Trovato, const PassoAggiornamento& Passo)
{
    const QByteArray Chiave = ChiavePubblica();
    const QByteArray Firma = PortaFirma(Trovato, Passo);
    if (SuQuestaMacchina(Trovato.Da) && (Chiave.isEmpty() || !SembraFirma(Firma)))
        return;
    if (FirmaValida(Trovato.Byte, Firma, Chiave))
        return;
    const QString Difetto = DifettoChiave();
    throw Fallito{Difetto.isEmpty() ? FirmaNonValida.toString() : Difetto};
}

/// @throws Fallito
void PretendiIntegro(const Annuncio& Trovato, const QString& Nome, const QString& File)
{
    const QString Difetto = DifettoFile(Trovato, Nome, File);
    if (!Difetto.isEmpty())
        throw Fallito{Difetto};
}

/// Runs a download; what keeps it from its end becomes words.
template <class F>
EsitoScarico Tenta(F&& Scarica)
{
    try {
        return {Scarica(), {}, false};
    } catch (const Fallito& Perche) {
        return {{}, Perche.Dettaglio, Perche.Annullato};
    } catch (const Errore& Guasto) {
        return {{}, Guasto.Descrizione, false};
    }
}

QString Tassi(const Annuncio& Trovato, const PassoAggiornamento& Passo)
{
    QString Archivio = ArchivioTassi();
    const auto Presente = DataArchivio(Archivio);
    if (!Presente || !Trovato.Lette.DataTassi || *Presente >= *Trovato.Lette.DataTassi)
        throw Fallito{u"l'archivio non è più recente di quello in uso"_s};
    PretendiFirma(Trovato, Passo);
    const Arrivo Nuovo(Archivio);
    Porta(Trovato.Da, NomeTassi.toString(), Nuovo.File(), MassimoTassi, Passo);
    PretendiIntegro(Trovato, NomeTassi.toString(), Nuovo.File());
    if (const QString Difetto = DifettoTassi(Nuovo.File(), Archivio); !Difetto.isEmpty())
        throw Fallito{Difetto};

    const QDate Data = std::max(*Trovato.Lette.DataTassi, Oggi());
    ImpostaDataFile(Nuovo.File(), QDateTime(Data, QTime(12, 0)));
    // The former one is kept by way of a file of its own too: a full disk must not cost both.
    const Arrivo Prima(Archivio);
    CopiaFile(Archivio, Prima.File(), MassimoTassi);
    ImpostaDataFile(Prima.File(), DataFile(Archivio));
    Sostituisci(Prima, CartellaFile(Archivio) + u"Tassi.dat.prima"_s, Archivio);
    Sostituisci(Nuovo, Archivio, Archivio);
    return Archivio;
}

/// Installers of other versions have done their work.
void TogliAltri(const QString& Nome)
{
    const QString Cartella = CartellaUpgrade();
    const QStringList Presenti = NomiDeiFile(Cartella, u".exe"_s) + NomiDeiFile(Cartella, u".deb"_s);
    for (const QString& Altro : Presenti)
        if (Altro != Nome && Altro.startsWith(u"upgrade", Qt::CaseInsensitive))
            ScartaFile(Cartella + Altro);
}

QString Programma(const Annuncio& Trovato, const PassoAggiornamento& Passo)
{
    if (!VersioneNuova(Trovato.Lette.Versione, VersioneProgramma()))
        throw Fallito{u"la versione non è più recente di quella in uso"_s};
    PretendiFirma(Trovato, Passo);
    const QString Nome = NomeInstallatore(Trovato);
    CreaCartellaPrivata(CartellaUpgrade());
    TogliAltri(Nome);
    QString File = CartellaUpgrade() + Nome;
    if (Trovato.Lette.Elencato(Nome) && EsisteFile(File) && DifettoFile(Trovato, Nome, File).isEmpty())
        return File;
    const Arrivo Nuovo(File);
    Porta(Trovato.Da, Nome, Nuovo.File(), MassimoInstallatore, Passo);
    PretendiIntegro(Trovato, Nome, Nuovo.File());
    Sostituisci(Nuovo, File, File);
    return File;
}

QByteArray Sha256Di(const QString& File)
{
    QCryptographicHash Somma(QCryptographicHash::Sha256);
    LeggiAPezzi(File, [&](QByteArrayView Pezzo) {
        Somma.addData(Pezzo);
        return true;
    });
    return Somma.result();
}

}  // namespace

EsitoScarico ScaricaTassi(const Annuncio& Trovato, const PassoAggiornamento& Passo)
{
    return Tenta([&] { return Tassi(Trovato, Passo); });
}

QString NomeInstallatore(const Annuncio& Trovato)
{
    const QString Stelo = u"upgrade"_s + Trovato.Lette.Versione;
    const QString Nostro = Stelo + EstensioneInstallatore();
    return Trovato.Lette.Elencato(Nostro) ? Nostro : Stelo + u".exe"_s;
}

EsitoScarico ScaricaProgramma(const Annuncio& Trovato, const PassoAggiornamento& Passo)
{
    return Tenta([&] { return Programma(Trovato, Passo); });
}

QString FraseDownloadFallito(const QString& Nome, const QString& Dettaglio)
{
    return u"Errore di download del file di aggiornamento %1 (%2). Contatattare l'assistenza."_s.arg(
        Nome, Dettaglio);
}

QString DifettoFile(const Annuncio& Trovato, const QString& Nome, const QString& File)
{
    const FileElencato* Voce = Trovato.Lette.Elencato(Nome);
    // A list without the file vouches for nothing; on this machine none is asked for.
    if (!Voce)
        return SuQuestaMacchina(Trovato.Da) ? QString() : FirmaNonValida.toString();
    const bool Stesso =
        QFileInfo(PercorsoNativo(File)).size() == Voce->Byte && Sha256Di(File) == Voce->Sha256;
    return Stesso ? QString() : FirmaNonValida.toString();
}

qint64 DaScaricare(const Annuncio& Trovato, const QString& Nome)
{
    const FileElencato* Voce = Trovato.Lette.Elencato(Nome);
    return Voce ? Voce->Byte : 0;
}
