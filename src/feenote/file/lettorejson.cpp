#include "feenote/file/lettorejson.h"

#include "platform/base/errore.h"
#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;

namespace {

/// Amounts from here up are no amounts of a fee note.
constexpr double LimiteImporto = 1e12;

/// Entries of a list; a note has some tens.
constexpr int MassimoElementi = 10'000;

double NumeroDaTesto(const QString& Campo, const QString& Testo)
{
    try {
        return CDbl(Testo);
    } catch (const Errore& Guasto) {
        const QString Motivo = Guasto.Numero == errori::Eccedenza
                                   ? u"il numero è troppo grande"_s
                                   : u"«%1» non è un numero"_s.arg(Testo.left(40));
        throw OggettoJson::Rifiuto(Guasto.Numero, Campo, Motivo);
    }
}

}  // namespace

OggettoJson::OggettoJson(QString Nome, const QJsonValue& Valore) : Percorso(std::move(Nome))
{
    if (!Valore.isObject())
        throw Rifiuto(errori::Tipo, Percorso, u"deve essere un oggetto"_s);
    Dati = Valore.toObject();
}

Errore OggettoJson::Rifiuto(int Numero, const QString& Campo, const QString& Motivo)
{
    return Errore(Numero,
                  Campo.isEmpty() ? u"Descrizione: "_s + Motivo : u"Campo "_s + Campo + u": "_s + Motivo);
}

QString OggettoJson::Nome(const QString& Campo) const
{
    return Percorso.isEmpty() ? Campo : Percorso + u'.' + Campo;
}

bool OggettoJson::Ha(const QString& Campo) const
{
    const auto Trovato = Dati.constFind(Campo);
    return Trovato != Dati.constEnd() && !Trovato->isNull();
}

QJsonValue OggettoJson::Prendi(const QString& Campo)
{
    Chiesti.insert(Campo);
    return Ha(Campo) ? Dati.value(Campo) : QJsonValue(QJsonValue::Undefined);
}

QString OggettoJson::Testo(const QString& Campo, int Massimo)
{
    const QJsonValue Letto = Prendi(Campo);
    if (Letto.isUndefined())
        return {};
    if (!Letto.isString())
        throw Rifiuto(errori::Tipo, Nome(Campo), u"deve essere un testo"_s);
    QString Risultato = Letto.toString();
    if (Risultato.size() > Massimo)
        throw Rifiuto(errori::TestoLungo, Nome(Campo), u"il testo supera %1 caratteri"_s.arg(Massimo));
    return Risultato;
}

std::optional<double> OggettoJson::Numero(const QString& Campo)
{
    const QJsonValue Letto = Prendi(Campo);
    if (Letto.isUndefined())
        return std::nullopt;
    if (!Letto.isDouble() && !Letto.isString())
        throw Rifiuto(errori::Tipo, Nome(Campo), u"deve essere un numero"_s);
    const double Risultato =
        Letto.isDouble() ? Letto.toDouble() : NumeroDaTesto(Nome(Campo), Letto.toString());
    if (!(std::abs(Risultato) < LimiteImporto))
        throw Rifiuto(errori::Eccedenza, Nome(Campo), u"il numero è troppo grande"_s);
    return Risultato + 0.0;  // "-0" is no amount of its own
}

std::optional<double> OggettoJson::Positivo(const QString& Campo)
{
    const std::optional<double> Risultato = Numero(Campo);
    if (Risultato && *Risultato < 0)
        throw Rifiuto(errori::Argomento, Nome(Campo), u"il numero non può essere negativo"_s);
    return Risultato;
}

std::optional<int> OggettoJson::Intero(const QString& Campo)
{
    const std::optional<double> Letto = Numero(Campo);
    if (!Letto)
        return std::nullopt;
    if (*Letto != std::floor(*Letto))
        throw Rifiuto(errori::Tipo, Nome(Campo), u"deve essere un numero intero"_s);
    if (std::abs(*Letto) > 2147483647.0)
        throw Rifiuto(errori::Eccedenza, Nome(Campo), u"il numero è troppo grande"_s);
    return int(*Letto);
}

std::optional<bool> OggettoJson::Booleano(const QString& Campo)
{
    const QJsonValue Letto = Prendi(Campo);
    if (Letto.isUndefined())
        return std::nullopt;
    if (!Letto.isBool())
        throw Rifiuto(errori::Tipo, Nome(Campo), u"deve essere true o false"_s);
    return Letto.toBool();
}

QString OggettoJson::Data(const QString& Campo)
{
    const QString Letto = Testo(Campo, 40);
    if (Letto.trimmed().isEmpty())
        return {};
    const std::optional<QDate> Giorno = LeggiData(Letto);
    if (!Giorno)
        throw Rifiuto(errori::Tipo, Nome(Campo), u"«%1» non è una data gg/mm/aaaa"_s.arg(Letto));
    return Format(*Giorno, ModelloData);
}

QJsonValue OggettoJson::Valore(const QString& Campo)
{
    return Prendi(Campo);
}

bool OggettoJson::Nullo(const QString& Campo)
{
    Chiesti.insert(Campo);
    return Dati.contains(Campo) && Dati.value(Campo).isNull();
}

std::optional<OggettoJson> OggettoJson::Oggetto(const QString& Campo)
{
    const QJsonValue Letto = Prendi(Campo);
    if (Letto.isUndefined())
        return std::nullopt;
    return OggettoJson(Nome(Campo), Letto);
}

QList<OggettoJson> OggettoJson::Lista(const QString& Campo)
{
    const QJsonValue Letto = Prendi(Campo);
    if (Letto.isUndefined())
        return {};
    if (!Letto.isArray())
        throw Rifiuto(errori::Tipo, Nome(Campo), u"deve essere un elenco"_s);
    const QJsonArray Elementi = Letto.toArray();
    if (Elementi.size() > MassimoElementi)
        throw Rifiuto(errori::Eccedenza, Nome(Campo),
                      u"l'elenco ha più di %1 elementi"_s.arg(MassimoElementi));
    QList<OggettoJson> Risultato;
    Risultato.reserve(Elementi.size());
    for (qsizetype i = 0; i < Elementi.size(); ++i)
        Risultato.append(OggettoJson(Nome(Campo) + u"[%1]"_s.arg(i), Elementi[i]));
    return Risultato;
}

void OggettoJson::Finisci() const
{
    for (auto Campo = Dati.constBegin(); Campo != Dati.constEnd(); ++Campo)
        if (!Chiesti.contains(Campo.key()))
            throw Rifiuto(errori::Argomento, Nome(Campo.key().left(60)), u"nome non previsto"_s);
}
