#include "core/modRecenti.h"

#include "core/dannoricordato.h"
#include "core/modTesti.h"
#include "core/parametri.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/percorsi.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString ChiaveRecenti = u"NoteRecenti"_s;
constexpr QStringView Estensione = u".mdb";

constexpr qsizetype MassimoTesto = 120;       // of a name or of a document's
constexpr qsizetype MassimoPercorso = 4000;   // as systems take them
constexpr qsizetype MassimoElenco = 100'000;  // ten of the longest
constexpr double MassimoEuro = 1e12;

/// A path that a note may have, by its letters alone.
bool PercorsoDiNota(const QString& Percorso)
{
    const bool Lungo = Percorso.isEmpty() || Percorso.size() > MassimoPercorso;
    return !Lungo && QFileInfo(Percorso).isAbsolute() && Percorso.endsWith(Estensione, Qt::CaseInsensitive) &&
           std::ranges::none_of(Percorso,
                                [](QChar Segno) { return Segno.category() == QChar::Other_Control; });
}

bool Intera(const NotaRecente& Nota)
{
    return PercorsoDiNota(Nota.Percorso) && Nota.Data.isValid() && std::abs(Nota.Netto) < MassimoEuro;
}

NotaRecente Letta(const QJsonObject& Voce)
{
    return {.Percorso = PercorsoNativo(Voce[u"percorso"].toString()),
            .Cliente = UnaRiga(Voce[u"cliente"].toString(), MassimoTesto),
            .Documento = UnaRiga(Voce[u"documento"].toString(), MassimoTesto),
            .Netto = Voce[u"netto"].toDouble(),
            .Data = QDate::fromString(Voce[u"data"].toString(), Qt::ISODate)};
}

QJsonObject Scritta(const NotaRecente& Nota)
{
    return {{u"percorso"_s, Nota.Percorso},
            {u"cliente"_s, Nota.Cliente},
            {u"documento"_s, Nota.Documento},
            {u"netto"_s, Nota.Netto},
            {u"data"_s, Nota.Data.toString(Qt::ISODate)}};
}

auto StessoFile(const QString& Percorso)
{
    return [Nativo = PercorsoNativo(Percorso)](const NotaRecente& Nota) { return Nota.Percorso == Nativo; };
}

QList<NotaRecente> Lette(const QString& Testo)
{
    QList<NotaRecente> Note;
    if (Testo.size() > MassimoElenco)
        return Note;
    for (const auto& Voce : QJsonDocument::fromJson(Testo.toUtf8()).array()) {
        const NotaRecente Nota = Letta(Voce.toObject());
        if (Intera(Nota) && std::ranges::none_of(Note, StessoFile(Nota.Percorso)))
            Note.append(Nota);
        if (Note.size() == MassimoRecenti)
            break;
    }
    return Note;
}

QString Scritte(const QList<NotaRecente>& Note)
{
    QJsonArray Elenco;
    for (const NotaRecente& Nota : Note)
        Elenco.append(Scritta(Nota));
    return Note.isEmpty() ? QString()
                          : QString::fromUtf8(QJsonDocument(Elenco).toJson(QJsonDocument::Compact));
}

/// Where a change comes from. A damaged store looks empty, and may hold what is to be changed.
enum class Origine {
    Programma,  ///< what happens to a note that may never have been in the list
    Elenco,     ///< a note of the list was picked
    Utente,     ///< he wants it gone
};

/// Changes the list as it stands when the store's turn comes: two programs that remember a note at one moment
/// would each take the other's away. A list that is as it should be is not written.
/// @param Fai false: nothing is to be changed
void Muta(const std::function<bool(QList<NotaRecente>& Note)>& Fai, Origine Da = Origine::Programma)
{
    const bool Chiesto = Da == Origine::Utente;
    const auto Dopo = [&Fai](const QString& Testo) {
        QList<NotaRecente> Note = Lette(Testo);
        return Fai(Note) ? Scritte(Note) : Testo;
    };
    if (const QString Frase = Chiesto ? FraseDelDannoRicordato() : QString(); !Frase.isEmpty())
        throw Errore(errori::Accesso, Frase);
    const QString Ora = Chiesto ? ImpostazioneSicura(ChiaveRecenti) : Impostazione(ChiaveRecenti);
    if (Dopo(Ora) != Ora || (Da == Origine::Elenco && !FraseImpostazioniGuaste().isEmpty()))
        (Chiesto ? MutaImpostazione : RicordaMutata)(ChiaveRecenti, Dopo);
}

/// A note goes out of the list.
void Togli(const QString& Percorso, Origine Da)
{
    Muta([&Percorso](QList<NotaRecente>& Note) { return Note.removeIf(StessoFile(Percorso)) > 0; }, Da);
}

}  // namespace

QList<NotaRecente> NoteRecenti()
{
    return Lette(Impostazione(ChiaveRecenti));
}

void RicordaRecente(const NotaRecente& Nota)
{
    NotaRecente Nuova = Nota;
    Nuova.Percorso = PercorsoNativo(Nota.Percorso);
    Nuova.Cliente = UnaRiga(Nota.Cliente, MassimoTesto);
    Nuova.Documento = UnaRiga(Nota.Documento, MassimoTesto);
    if (!Intera(Nuova))
        return;
    Muta([&Nuova](QList<NotaRecente>& Note) {
        Note.removeIf(StessoFile(Nuova.Percorso));
        Note.prepend(Nuova);
        Note.resize(std::min<qsizetype>(Note.size(), MassimoRecenti));
        return true;
    });
}

void DimenticaRecente(const QString& Percorso)
{
    Togli(Percorso, Origine::Utente);
}

void DimenticaCancellata(const QString& Percorso)
{
    Togli(Percorso, Origine::Programma);
}

void DimenticaSparita(const QString& Percorso)
{
    Togli(Percorso, Origine::Elenco);
}

void SvuotaRecenti()
{
    Muta(
        [](QList<NotaRecente>& Note) {
            Note.clear();
            return true;
        },
        Origine::Utente);
}

void SpostaRecente(const QString& Vecchio, const QString& Nuovo)
{
    Muta([&](QList<NotaRecente>& Note) {
        const auto Voce = std::ranges::find_if(Note, StessoFile(Vecchio));
        if (Voce == Note.end())
            return false;
        NotaRecente Spostata = *Voce;
        Spostata.Percorso = PercorsoNativo(Nuovo);
        const qsizetype Posto = std::distance(Note.begin(), Voce);
        Note.removeAt(Posto);
        Note.removeIf(StessoFile(Nuovo));
        if (Intera(Spostata))
            Note.insert(std::min(Posto, Note.size()), Spostata);
        return true;
    });
}

QString NomeRecente(const NotaRecente& Nota)
{
    return NomeFile(Nota.Percorso).chopped(Estensione.size());
}

QString TitoloRecente(const NotaRecente& Nota)
{
    // A name that was made of the client lacks what no file's name may hold.
    const auto Lettere = [](const QString& Testo) {
        QString Sole;
        for (const QChar Segno : Testo)
            if (Segno.isLetterOrNumber())
                Sole += Segno.toCaseFolded();
        return Sole;
    };
    const QString Nome = NomeRecente(Nota);
    return Lettere(Nome).contains(Lettere(Nota.Cliente)) ? Nome : Nota.Cliente + u" - "_s + Nome;
}

QString CartellaRecente(const NotaRecente& Nota)
{
    const QString Cartella = CartellaFile(Nota.Percorso);
    const QString Ultima = NomeFile(Cartella.chopped(1));
    return Ultima.isEmpty() ? Cartella : Ultima;
}

QString FraseRecente(const NotaRecente& Nota)
{
    QStringList Parti{NomeRecente(Nota)};
    if (!Nota.Cliente.isEmpty())
        Parti += Nota.Cliente;
    if (!Nota.Documento.isEmpty())
        Parti += Nota.Documento;
    Parti += u"netto "_s + Format(Nota.Netto, ModelloImporto) + u" €"_s;
    Parti += Nota.Data.toString(u"dd/MM/yyyy"_s);
    Parti += u"cartella "_s + CartellaRecente(Nota);
    return Parti.join(u", "_s);
}
