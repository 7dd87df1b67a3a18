#include "feenote/finder/modTrova.h"

#include "core/sessione.h"
#include "feenote/file/colonne.h"
#include "feenote/file/nomenota.h"
#include "feenote/finder/memoriatrova.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/base/ordineitaliano.h"
#include "platform/base/regionale.h"
#include "platform/database/primariga.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QDateTime>
#include <QScopeGuard>

#include <algorithm>
#include <array>
#include <atomic>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Characters of a name that a list shows.
constexpr int MassimoNome = 255;

enum ColonnaLetta {
    LettaIDCli,
    LettaIDCon,
    LettaCliente,
    LettaControp,
    LettaOggetto,
    LettaTipoStampa,
    LettaNumFatt,
    LettaDataFatt,
};
const QStringList ColonneLette{u"IDCli"_s,   u"IDCon"_s,      u"Cliente"_s, u"Controp"_s,
                               u"Oggetto"_s, u"TipoStampa"_s, u"NumFatt"_s, u"DataFatt"_s};
/// What a file must have: all; what was there before the invoices; before the subject.
constexpr std::array Gruppi{LettaDataFatt + 1, LettaOggetto + 1, LettaControp + 1};

/// One line: names are shown in cells.
QString SuUnaRiga(const QString& Testo)
{
    return Testo.simplified();
}

std::optional<QStringList> PrimaRiga(const QString& File, AnnotazioniChieste& Annotate)
{
    std::optional<Errore> Manca;
    for (const int Quante : Gruppi) {
        try {
            auto Celle = LeggiPrimaRiga(File, TabellaParam.toString(), ColonneLette.first(Quante),
                                        MassimoNome, &Annotate);
            if (Celle)
                Celle->resize(ColonneLette.size());
            return Celle;
        } catch (const Errore& Guasto) {
            if (Guasto.Numero != errori::CampoSconosciuto)
                throw;
            Manca = Guasto;
        }
    }
    throw *Manca;
}

/// The same of a note that may be one of Access.
std::optional<QStringList> PrimaRigaDiNota(const QString& File, AnnotazioniChieste& Annotate)
{
    try {
        return PrimaRiga(File, Annotate);
    } catch (const Errore& Guasto) {
        if (Guasto.Numero != errori::FormatoDatabase || !EDiAccess(File))
            throw;
    }
    return PrimaRiga(CopiaNativa(File), Annotate);
}

using LettoreRiga = std::function<std::optional<QStringList>(AnnotazioniChieste& Annotate)>;

std::optional<DatiNota> DatiDi(const LettoreRiga& Leggi)
{
    AnnotazioniChieste Annotate{VociStatoLetto(), {}};
    const auto Celle = Leggi(Annotate);
    if (!Celle)
        return std::nullopt;
    DatiNota Dati;
    Dati.IDCli = Celle->at(LettaIDCli).toInt();
    Dati.IDCon = Celle->at(LettaIDCon).toInt();
    Dati.Cliente = SuUnaRiga(Celle->at(LettaCliente));
    Dati.Controp = SuUnaRiga(Celle->at(LettaControp));
    Dati.Oggetto = SuUnaRiga(Celle->at(LettaOggetto));
    bool Numero = false;
    const int Tipo = Celle->at(LettaTipoStampa).toInt(&Numero);
    Dati.TipoStampa = Numero && ETipoStampa(Tipo) ? Tipo : -1;
    Dati.NumFatt = SuUnaRiga(Celle->at(LettaNumFatt));
    if (const QString& Giorno = Celle->at(LettaDataFatt); !Giorno.isEmpty()) {
        const QDate Data = QDate::fromString(Giorno.left(10), Qt::ISODate);
        Dati.DataFatt = Data.isValid() ? Format(Data, ModelloData) : QString();
    }
    Dati.Stato = LeggiStatoLetto(Annotate.Trovate);
    return Dati;
}

std::optional<DatiNota> LeggiDati(const QString& File)
{
    return DatiDi([&File](AnnotazioniChieste& Annotate) { return PrimaRigaDiNota(File, Annotate); });
}

/// What makes a file none of ours for as long as it stays as it is: no database, no such table or column.
bool NonENota(const Errore& Guasto)
{
    static constexpr std::array Numeri{errori::FormatoDatabase, errori::TabellaMancante,
                                       errori::CampoSconosciuto};
    return std::ranges::find(Numeri, Guasto.Numero) != Numeri.end();
}

/// So many files are read side by side, by so many threads: rows come at once, and the next folder soon.
constexpr size_t FilePerVolta = 32;
constexpr int LettoriInsieme = 4;

/// A file that begins as a database is one that is damaged, and may have been a note.
bool HaTestata(const QString& File)
{
    constexpr QByteArrayView Testata("SQLite format 3");
    return InizioDelFile(File, int(Testata.size())) == Testata;
}

/// "1 file", "2 cartelle".
QString Quanti(int Numero, const QString& Uno, const QString& Molti)
{
    return QString::number(Numero) + u' ' + (Numero == 1 ? Uno : Molti);
}

QString CartelleNonLette(const ContoTrova& Conto)
{
    return Quanti(Conto.CartelleNonLette, u"cartella non letta"_s, u"cartelle non lette"_s);
}

QString NomiIlleggibili(const ContoTrova& Conto)
{
    return Quanti(Conto.NomiIlleggibili, u"nome illeggibile"_s, u"nomi illeggibili"_s) + u", da rinominare"_s;
}

bool ENomeDiNota(const QString& Nome, QStringView Modello)
{
    return Nome.endsWith(Modello.mid(1), Qt::CaseInsensitive);  // the pattern is "*" and an ending
}

}  // namespace

QString CartellaDelRecupero()
{
    return Barra(Barra(sessione::UserFolder) + u"recupero"_s);
}

QString KByte(qint64 Byte)
{
    constexpr qint64 Mille = 1024;
    const qint64 Interi = (Byte + Mille - 1) / Mille;
    return Format(double(Interi), u"#,###,###,##0");
}

QString FraseEsito(const ContoTrova& Conto)
{
    const QString Frase =
        Conto.Archivi == 0
            ? FraseNessuna.toString()
            : u"Trovati %1 archivi in %2 cartelle per un totale di %3 KBytes"_s.arg(Conto.Archivi)
                  .arg(Conto.Cartelle)
                  .arg(KByte(Conto.Byte));
    QStringList Parti{Frase};
    if (Conto.CartelleNonLette > 0)
        Parti += CartelleNonLette(Conto);
    if (Conto.NomiIlleggibili > 0)
        Parti += NomiIlleggibili(Conto);
    return Parti.join(u"; "_s) + (Conto.Interrotta ? u" (ricerca interrotta)"_s : QString());
}

/// One of Access waits for its turn: its copy is made by a program of its own.
void CamminoTrova::LeggiPrima(const QString& File, Anticipo& Letto)
{
    try {
        Letto.Dati = DatiDi([&File](AnnotazioniChieste& Annotate) { return PrimaRiga(File, Annotate); });
        Letto.Letto = true;
    } catch (const Errore& Guasto) {
        if (Guasto.Numero != errori::FormatoDatabase)
            Letto.Guasto = std::current_exception();
    } catch (...) {
        Letto.Guasto = std::current_exception();
    }
}

QString FraseParziale(const ContoTrova& Conto)
{
    QStringList Parti;
    const QString File = Quanti(Conto.NonLetti, u"file"_s, u"file"_s);
    const QString Cartelle = Quanti(Conto.CartelleNonLette, u"cartella"_s, u"cartelle"_s);
    if (Conto.NonLetti > 0 && Conto.CartelleNonLette > 0)
        Parti += File + u" e "_s + Cartelle + u" non letti"_s;
    else if (Conto.NonLetti > 0)
        Parti += File + (Conto.NonLetti == 1 ? u" non letto"_s : u" non letti"_s);
    else if (Conto.CartelleNonLette > 0)
        Parti += CartelleNonLette(Conto);
    if (Conto.NomiIlleggibili > 0)
        Parti += NomiIlleggibili(Conto);
    if (Conto.Interrotta)
        Parti += u"ricerca interrotta"_s;
    return Parti.join(u"; "_s);
}

CamminoTrova::CamminoTrova(CriterioTrova Chiesto, std::function<void(VoceTrova&&)> Prendi,
                           std::function<bool()> Continua, std::shared_ptr<MemoriaTrova> Ricordi)
    : Criterio(std::move(Chiesto)), Riga(std::move(Prendi)), Avanti(std::move(Continua)),
      Memoria(std::move(Ricordi))
{
    Criterio.Testo = Criterio.Testo.toLower();
}

ContoTrova CamminoTrova::TrovaParc(const QString& Cartella)
{
    const QString Prima = Barra(Cartella);
    if (Prima != Barra(Criterio.Radice) && !CartellaSuperiore(Prima).isEmpty()) {
        VoceTrova Torna;
        Torna.Genere = GenereVoce::Torna;
        Torna.Nome = VoceTorna.toString();
        Torna.Percorso = CartellaSuperiore(Prima);
        Riga(std::move(Torna));
    }
    DaPercorrere = {Prima};
    while (!DaPercorrere.isEmpty() && !Conto.Interrotta) {
        const QString Dove = DaPercorrere.takeFirst();
        try {
            FindFiles(Dove, ModelloNote.toString());
        } catch (const Errore&) {
            if (Dove == Prima)
                throw;  // one below that cannot be read, or has gone, keeps nobody from the others
            ++Conto.CartelleNonLette;
        }
    }
    if (!Conto.Interrotta && !EsisteCartella(Prima))
        throw Errore(errori::PercorsoMancante);
    return Conto;
}

void CamminoTrova::FindFiles(const QString& Cartella, const QString& Modello)
{
    // The names come first, so that rows appear in their order.
    QList<VoceCartella> Cartelle;
    QList<VoceCartella> File;
    const bool Intera = ScorriCartella(
        Cartella,
        [&](VoceCartella&& Trovata) {
            if (Trovata.Cartella)
                Cartelle.append(std::move(Trovata));
            else if (ENomeDiNota(Trovata.Nome, Modello) && Cercato(Trovata.Nome))
                File.append(std::move(Trovata));
            return Avanti();
        },
        [&](const VoceCartella& Trovata) {
            const bool Nota = ENomeDiNota(Trovata.Nome, Modello) && Cercato(Trovata.Nome);
            Conto.NomiIlleggibili += Trovata.Cartella || Nota;
        });
    ++Conto.Cartelle;
    const auto PerNome = [](const VoceCartella& Una) -> const QString& { return Una.Nome; };
    OrdinaItaliano(Cartelle, PerNome);
    OrdinaItaliano(File, PerNome);

    for (const VoceCartella& Una : Cartelle)
        AddDir(Cartella, Una);
    const std::span<const VoceCartella> Tutti(File.constData(), size_t(File.size()));
    for (size_t Primo = 0; Primo < Tutti.size(); Primo += FilePerVolta) {
        const auto Questi = Tutti.subspan(Primo, std::min(FilePerVolta, Tutti.size() - Primo));
        const std::vector<Anticipo> Letti = LeggiInsieme(Cartella, Questi);
        for (size_t i = 0; i < Questi.size(); ++i) {
            if (Conto.Interrotta || !Avanti()) {
                Conto.Interrotta = true;
                return;
            }
            AddFile(Cartella, Questi[i], Letti[i]);
        }
    }
    Conto.Interrotta = Conto.Interrotta || !Intera;
}

bool CamminoTrova::Cercato(const QString& NomeFile) const
{
    return Criterio.Testo.isEmpty() || NomeFile.toLower().contains(Criterio.Testo);
}

void CamminoTrova::AddDir(const QString& Cartella, const VoceCartella& Trovata)
{
    VoceTrova Voce;
    Voce.Genere = GenereVoce::Cartella;
    Voce.Nome = u'[' + Trovata.Nome + u']';
    Voce.Percorso = Barra(Cartella + Trovata.Nome);
    Voce.Cartella = Cartella;
    Voce.Modificata = Trovata.Modificata;
    if (Voce.Percorso == Criterio.DaSaltare)
        return;
    if (Criterio.Sottocartelle && !Trovata.Collegamento)
        DaPercorrere.append(Voce.Percorso);
    Riga(std::move(Voce));
}

std::vector<CamminoTrova::Anticipo> CamminoTrova::LeggiInsieme(const QString& Cartella,
                                                               std::span<const VoceCartella> File)
{
    std::vector<Anticipo> Letti(File.size());
    std::atomic<size_t> Prossimo = 0;
    std::atomic<bool> Ferma = false;
    const auto Leggi = [&](const std::function<bool()>& Prosegui) {
        for (size_t i = Prossimo++; i < File.size() && !Ferma; i = Prossimo++) {
            const QString Percorso = Cartella + File[i].Nome;
            if (!Memoria->Cerca(Percorso, {File[i].Byte, File[i].Modificata}))
                LeggiPrima(Percorso, Letti[i]);
            if (Prosegui && !Prosegui())
                Ferma = true;
        }
    };
    for (int i = 1; i < LettoriInsieme && size_t(i) < File.size(); ++i)
        Lettori.start([&Leggi] { Leggi({}); });
    const auto Fine = qScopeGuard([this] { Lettori.waitForDone(); });
    Leggi(Avanti);
    return Letti;
}

void CamminoTrova::AddFile(const QString& Cartella, const VoceCartella& Trovata, const Anticipo& Prima)
{
    VoceTrova Voce;
    Voce.Nome = NomeMostrato(Trovata.Nome);
    Voce.Percorso = Cartella + Trovata.Nome;
    Voce.Cartella = Cartella;
    Voce.Modificata = Trovata.Modificata;
    Voce.Byte = Trovata.Byte;
    Voce.Modello = Trovata.SolaLettura;
    if (!CheckCondiz(Voce, Prima))
        return;
    ++Conto.Archivi;
    Conto.Byte += Voce.Byte;
    Voce.Cliente = Voce.Dati.Cliente;
    Voce.Controparte = Voce.Dati.Controp;
    Riga(std::move(Voce));
}

bool CamminoTrova::CheckCondiz(VoceTrova& Voce, const Anticipo& Prima)
{
    const ImprontaFile Impronta{Voce.Byte, Voce.Modificata};
    auto Letto = Memoria->Cerca(Voce.Percorso, Impronta);
    if (!Letto) {
        Letto = MemoriaTrova::Ricordo{Impronta, {}};
        try {
            if (Prima.Guasto)
                std::rethrow_exception(Prima.Guasto);
            Letto->Dati = Prima.Letto ? Prima.Dati : LeggiDati(Voce.Percorso);
        } catch (const Errore& Guasto) {
            // Another program is writing the note: it is one none the less.
            Voce.Illeggibile = Guasto.Numero == errori::DatiBloccati;
            // No program leaves a note without a byte: a loss of power does.
            const bool DaMendare =
                Voce.Byte == 0 || (Guasto.Numero == errori::FormatoDatabase && HaTestata(Voce.Percorso));
            if (!NonENota(Guasto) || DaMendare) {
                Conto.NonLetti += !Voce.Illeggibile && Guasto.Numero != errori::FileMancante;
                return Voce.Illeggibile;  // the next walk looks again
            }
        }
        Memoria->Ricorda(Voce.Percorso, *Letto, QDateTime::currentMSecsSinceEpoch());
    }
    if (!Letto->Dati)
        return false;
    Voce.Dati = *Letto->Dati;
    return true;
}
