#include "calculators/ultimicalcoli.h"

#include "core/impostazioni.h"
#include "core/modErrori.h"
#include "core/modTesti.h"
#include "core/parametri.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/turno.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString ChiaveFormato = u"ultimiCalcoli"_s;
constexpr int FormatoElenco = 1;
const QString FormaTempo = u"yyyy-MM-dd'T'HH:mm:ss"_s;

constexpr qsizetype MassimoRiga = 120;   // of a name, of a result
constexpr qsizetype MassimoCampo = 300;  // the longest box takes 200
constexpr qsizetype MassimoChiave = 40;
constexpr qsizetype MassimoCampi = 40;
constexpr qint64 MassimoFile = qint64(8) << 20;

/// A calculation of which nothing is missing and nothing too long.
bool Intero(const CalcoloRicordato& Calcolo)
{
    return !Calcolo.Nome.isEmpty() && Calcolo.Quando.isValid() && !Calcolo.Campi.isEmpty() &&
           Calcolo.Campi.size() <= MassimoCampi &&
           std::all_of(Calcolo.Campi.keyValueBegin(), Calcolo.Campi.keyValueEnd(), [](const auto& Campo) {
               return !Campo.first.isEmpty() && Campo.first.size() <= MassimoChiave &&
                      Campo.second.size() <= MassimoCampo && Campo.first.isValidUtf16() &&
                      Campo.second.isValidUtf16();
           });
}

/// The same as it goes into a list.
CalcoloRicordato Sistemato(CalcoloRicordato Calcolo)
{
    Calcolo.Nome = UnaRiga(Calcolo.Nome, MassimoRiga);
    Calcolo.Esito = UnaRiga(Calcolo.Esito, MassimoRiga);
    for (QString& Valore : Calcolo.Campi)
        Valore.truncate(MassimoCampo);
    return Calcolo;
}

CalcoloRicordato Letto(const QJsonObject& Voce)
{
    CalcoloRicordato Calcolo;
    Calcolo.Nome = UnaRiga(Voce[u"nome"].toString(), MassimoRiga);
    Calcolo.Esito = UnaRiga(Voce[u"esito"].toString(), MassimoRiga);
    Calcolo.Quando = QDateTime::fromString(Voce[u"quando"].toString(), FormaTempo);
    Calcolo.NomeDato = Voce[u"dato"].toBool();
    const QJsonObject Campi = Voce[u"campi"].toObject();
    for (auto Campo = Campi.begin(); Campo != Campi.end(); ++Campo)
        if (Campo.value().isString())
            Calcolo.Campi.insert(Campo.key(), Campo.value().toString());
    return Calcolo;
}

QJsonObject Scritto(const CalcoloRicordato& Calcolo)
{
    QJsonObject Campi;
    for (auto Campo = Calcolo.Campi.begin(); Campo != Calcolo.Campi.end(); ++Campo)
        Campi.insert(Campo.key(), Campo.value());
    QJsonObject Voce{{u"nome"_s, Calcolo.Nome},
                     {u"esito"_s, Calcolo.Esito},
                     {u"quando"_s, Calcolo.Quando.toString(FormaTempo)},
                     {u"campi"_s, Campi}};
    if (Calcolo.NomeDato)
        Voce.insert(u"dato"_s, true);
    return Voce;
}

auto ConCampi(const QMap<QString, QString>& Campi)
{
    return [&Campi](const CalcoloRicordato& Calcolo) { return Calcolo.Campi == Campi; };
}

/// The lists of the file, and empty ones where none is or it is damaged.
ElencoCalcoli Letti(bool& Guasto)
{
    Guasto = false;
    if (!EsisteFile(FileCalcoli()) && !EsisteCartella(FileCalcoli()))
        return {};
    QByteArray Byte;
    try {
        Byte = LeggiFile(FileCalcoli(), MassimoFile);
    } catch (const Errore& Rifiuto) {
        if (Rifiuto.Numero != errori::Memoria)
            throw Errore(Rifiuto.Numero, u"L'elenco degli ultimi calcoli non si può leggere: "_s +
                                             FileCalcoli() + u": "_s + Rifiuto.Descrizione);
    }
    auto Elenco = LeggiElenco(Byte);
    Guasto = !Elenco;
    return Elenco ? *std::move(Elenco) : ElencoCalcoli{};
}

void Posa(const ElencoCalcoli& Elenco)
{
    ScriviFile(FileCalcoli(), ScriviElenco(Elenco), Lettori::SoloUtente);
}

/// Reads the file, changes it and puts it back, in turn with other programs; a damaged one is told behind it.
void Cambia(const std::function<void(ElencoCalcoli&)>& Fai)
{
    bool Guasto = false;
    std::exception_ptr Rifiuto;
    CreaCartellaPrivata(CartellaDati());
    ATurno(FileCalcoli(), u".~"_s + NomeFile(FileCalcoli()) + u".lock"_s, [&] {
        ElencoCalcoli Elenco = Letti(Guasto);
        if (Guasto) {
            DaiPermessi(FileCalcoli(), {}, Lettori::SoloUtente);  // it names clients all the same
            SostituisciFile(FileCalcoli(), FileCalcoliGuasto());
        }
        const ElencoCalcoli Prima = Elenco;
        Fai(Elenco);
        try {
            if (Elenco != Prima)
                Posa(Elenco);
        } catch (const Errore&) {
            Rifiuto = std::current_exception();  // the list that was put aside is told first
        }
    });
    if (Guasto)
        MsgBox(FraseElencoGuasto(), vbExclamation, TitoloMessaggio.toString());
    if (Rifiuto)
        std::rethrow_exception(Rifiuto);
}

}  // namespace

std::optional<ElencoCalcoli> LeggiElenco(const QByteArray& Byte)
{
    const QJsonObject Tutto = QJsonDocument::fromJson(Byte).object();
    if (Tutto[ChiaveFormato].toInt() != FormatoElenco)
        return std::nullopt;
    ElencoCalcoli Elenco;
    for (size_t Quale = 0; Quale < Elenco.size(); ++Quale)
        for (const auto& Voce : Tutto[TabellaCalcolatrici[Quale].NelFile].toArray()) {
            CalcoloRicordato Calcolo = Letto(Voce.toObject());
            if (Intero(Calcolo) && std::ranges::none_of(Elenco[Quale], ConCampi(Calcolo.Campi)))
                Elenco[Quale].append(std::move(Calcolo));
            if (Elenco[Quale].size() == MassimoCalcoli)
                break;
        }
    return Elenco;
}

QByteArray ScriviElenco(const ElencoCalcoli& Elenco)
{
    QJsonObject Tutto{{ChiaveFormato, FormatoElenco}};
    for (size_t Quale = 0; Quale < Elenco.size(); ++Quale) {
        QJsonArray Voci;
        for (const CalcoloRicordato& Calcolo : Elenco[Quale])
            Voci.append(Scritto(Calcolo));
        if (!Voci.isEmpty())
            Tutto.insert(TabellaCalcolatrici[Quale].NelFile.toString(), Voci);
    }
    return QJsonDocument(Tutto).toJson(QJsonDocument::Compact);
}

QString FileCalcoli()
{
    return CartellaDati() + u"calcoli.json"_s;
}

QString FileCalcoliGuasto()
{
    return FileCalcoli() + u".guasto"_s;
}

QString FraseElencoGuasto()
{
    return u"L'elenco degli ultimi calcoli non si può leggere e ricomincia vuoto. Quello di prima resta in "_s +
           FileCalcoliGuasto();
}

QList<CalcoloRicordato> UltimiCalcoli(Calcolatrice Quale)
{
    bool Guasto = false;
    const ElencoCalcoli Elenco = Letti(Guasto);
    if (Guasto)
        Cambia([](ElencoCalcoli&) {});
    return Elenco[size_t(Quale)];
}

void RicordaCalcolo(Calcolatrice Quale, const CalcoloRicordato& Calcolo,
                    const QMap<QString, QString>& Sostituisce)
{
    // Another session may have switched it off meanwhile.
    if (!sessione::RicordaCalcoli || ValoreConservato(chiavi::RicordaCalcoli) == u"N")
        return;
    CalcoloRicordato Nuovo = Sistemato(Calcolo);
    if (!Intero(Nuovo))
        return;
    Cambia([&](ElencoCalcoli& Elenco) {
        QList<CalcoloRicordato>& Lista = Elenco[size_t(Quale)];
        for (const CalcoloRicordato& Vecchio : std::as_const(Lista))
            if (Vecchio.NomeDato && (Vecchio.Campi == Nuovo.Campi || Vecchio.Campi == Sostituisce)) {
                Nuovo.Nome = Vecchio.Nome;
                Nuovo.NomeDato = true;
            }
        Lista.removeIf(ConCampi(Nuovo.Campi));
        Lista.removeIf(ConCampi(Sostituisce));
        Lista.prepend(Nuovo);
        Lista.resize(std::min<qsizetype>(Lista.size(), MassimoCalcoli));
    });
}

void RinominaCalcolo(Calcolatrice Quale, const QMap<QString, QString>& Campi, const QString& Nome)
{
    const QString Riga = UnaRiga(Nome, MassimoRiga);
    if (Riga.isEmpty())
        return;
    Cambia([&](ElencoCalcoli& Elenco) {
        for (CalcoloRicordato& Calcolo : Elenco[size_t(Quale)])
            if (Calcolo.Campi == Campi) {
                Calcolo.Nome = Riga;
                Calcolo.NomeDato = true;
            }
    });
}

void DimenticaCalcolo(Calcolatrice Quale, const QMap<QString, QString>& Campi)
{
    Cambia([&](ElencoCalcoli& Elenco) { Elenco[size_t(Quale)].removeIf(ConCampi(Campi)); });
}

void SvuotaCalcoli(Calcolatrice Quale)
{
    Cambia([&](ElencoCalcoli& Elenco) { Elenco[size_t(Quale)].clear(); });
    if (EsisteFile(FileCalcoliGuasto()))
        EliminaFile(FileCalcoliGuasto());
}

void ImpostaRicordo(bool Ricorda)
{
    SalvaImpostazione(chiavi::RicordaCalcoli.toString(), Ricorda ? u"S"_s : u"N"_s);
    sessione::RicordaCalcoli = Ricorda;
}
