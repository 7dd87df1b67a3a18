#include "core/modRecenti.h"

#include "core/modTesti.h"
#include "core/parametri.h"
#include "platform/base/regionale.h"
#include "platform/system/percorsi.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
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

void Conserva(const QList<NotaRecente>& Note)
{
    QJsonArray Elenco;
    for (const NotaRecente& Nota : Note)
        Elenco.append(Scritta(Nota));
    const QString Testo =
        Note.isEmpty() ? QString() : QString::fromUtf8(QJsonDocument(Elenco).toJson(QJsonDocument::Compact));
    if (Testo != Impostazione(ChiaveRecenti))
        RicordaImpostazioni({{ChiaveRecenti, Testo}});
}

}  // namespace

QList<NotaRecente> NoteRecenti()
{
    const QString Testo = Impostazione(ChiaveRecenti);
    QList<NotaRecente> Note;
    if (Testo.size() > MassimoElenco)
        return Note;
    for (const QJsonValue& Voce : QJsonDocument::fromJson(Testo.toUtf8()).array()) {
        const NotaRecente Nota = Letta(Voce.toObject());
        if (Intera(Nota) && std::ranges::none_of(Note, StessoFile(Nota.Percorso)))
            Note.append(Nota);
        if (Note.size() == MassimoRecenti)
            break;
    }
    return Note;
}

void RicordaRecente(const NotaRecente& Nota)
{
    NotaRecente Nuova = Nota;
    Nuova.Percorso = PercorsoNativo(Nota.Percorso);
    Nuova.Cliente = UnaRiga(Nota.Cliente, MassimoTesto);
    Nuova.Documento = UnaRiga(Nota.Documento, MassimoTesto);
    if (!Intera(Nuova))
        return;
    QList<NotaRecente> Note = NoteRecenti();
    Note.removeIf(StessoFile(Nuova.Percorso));
    Note.prepend(Nuova);
    Conserva(Note.first(std::min<qsizetype>(Note.size(), MassimoRecenti)));
}

void DimenticaRecente(const QString& Percorso)
{
    QList<NotaRecente> Note = NoteRecenti();
    if (Note.removeIf(StessoFile(Percorso)) > 0)
        Conserva(Note);
}

void SvuotaRecenti()
{
    Conserva({});
}

void SpostaRecente(const QString& Vecchio, const QString& Nuovo)
{
    QList<NotaRecente> Note = NoteRecenti();
    const auto Voce = std::ranges::find_if(Note, StessoFile(Vecchio));
    if (Voce == Note.end())
        return;
    NotaRecente Spostata = *Voce;
    Spostata.Percorso = PercorsoNativo(Nuovo);
    const qsizetype Posto = std::distance(Note.begin(), Voce);
    Note.removeAt(Posto);
    Note.removeIf(StessoFile(Nuovo));
    if (Intera(Spostata))
        Note.insert(std::min(Posto, Note.size()), Spostata);
    Conserva(Note);
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
    Parti += u"netto "_s + Format(Nota.Netto, u"#,##0.00") + u" €"_s;
    Parti += Nota.Data.toString(u"dd/MM/yyyy"_s);
    Parti += u"cartella "_s + CartellaRecente(Nota);
    return Parti.join(u", "_s);
}
