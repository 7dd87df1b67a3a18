// The command of calcanova-cli that lists what a tariff has for a case: the items with their three amounts.
#include "cli/comandi.h"
#include "cli/letture.h"

#include "feenote/modOnorari.h"
#include "feenote/modRighe.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "tariffs/decreto.h"
#include "tariffs/modEvaluate.h"
#include "tariffs/modTariffe.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void Rifiuta(const QString& Nome, const QString& Valore, const QString& Motivo)
{
    constexpr int Massimo = 40;
    throw Errore(errori::Argomento, u"%1: «%2»: %3"_s.arg(Nome, Valore.left(Massimo), Motivo));
}

/// The rows of a list that was read whole.
template <class Riga>
QList<Riga> Interi(const Letti<Riga>& Elenco)
{
    if (Elenco.Guasto)
        throw Errore(*Elenco.Guasto);
    return Elenco.Voci;
}

QString LeggiCategoria(const QString& Valore)
{
    const QStringList Parole{u"civile"_s, u"penale"_s, u"stragiudiziale"_s, u"civ"_s, u"pen"_s, u"str"_s};
    const int Posto = LeggiParola(u"categoria"_s, Valore, Parole) % 3;
    return std::array{Civile, Penale, Stragiudiziale}[size_t(Posto)].toString();
}

/// An authority by its number or its name. Out of court none is needed.
std::optional<Autorita> LeggiUfficio(const Decreto& Legge, const QString& Categ, const QString& Valore)
{
    const QString Cercata = Valore.trimmed();
    if (Cercata.isEmpty() && Categ == Stragiudiziale)
        return std::nullopt;
    for (const Autorita& Una : Interi(LeggiAutorita(Legge, Categ)))
        if (QString::number(Una.IDAut) == Cercata || Una.DesAut.compare(Cercata, Qt::CaseInsensitive) == 0)
            return Una;
    Rifiuta(u"autorità"_s, Valore, u"la tariffa %1 non l'ha in questa categoria"_s.arg(Legge.Nome));
}

/// What the amounts hang on.
struct Parametri
{
    const Decreto& Legge;
    QString Categ;
    std::optional<Autorita> Ufficio;
    std::optional<ScaglioneValore> Scaglione;  ///< none in criminal matters
    double Valore = 0.0;

    /// The number of the columns of the amounts.
    [[nodiscard]] int Numero() const { return Scaglione ? Scaglione->NumSca : Ufficio->IDAut; }
};

/// A bracket by a value in it, by its text, or by the word for a case of no certain value.
void LeggiValore(const QString& Valore, Parametri& Suoi)
{
    const QString Cercato = Valore.trimmed();
    const auto Nominato = [&](const ScaglioneValore& Uno) {
        return Uno.DesVal.compare(Cercato, Qt::CaseInsensitive) == 0 ||
               (Suoi.Categ == Civile && Uno.NumSca == ScaglioneIndeterminato &&
                Cercato.compare(u"indeterminato"_s, Qt::CaseInsensitive) == 0);
    };
    const QList<ScaglioneValore> Tutti = Interi(LeggiScaglioni(Suoi.Legge, Suoi.Categ));
    auto Trovato = std::ranges::find_if(Tutti, Nominato);
    if (Trovato == Tutti.end() || Suoi.Categ == Stragiudiziale) {
        Suoi.Valore = Round(Numero(u"valore"_s, Valore), 2);
        Trovato = std::ranges::find_if(Tutti, [&](const ScaglioneValore& Uno) {
            return Uno.DaVal <= Suoi.Valore && Suoi.Valore <= Uno.AVal && Uno.AVal > 0;
        });
    }
    if (Trovato == Tutti.end())
        Rifiuta(u"valore"_s, Valore, u"non è compreso in nessuno scaglione"_s);
    Suoi.Scaglione = *Trovato;
}

/// The three amounts as a line would take them.
struct Terna
{
    double Minimo = 0.0;
    double Medio = 0.0;
    double Massimo = 0.0;
};

double Calcola(const QString& Formula, double Valore)
{
    int Codice = 0;
    const double Calcolato = ValutaEspressione(Formula, Valore, Codice);
    if (Codice != 0)
        throw Errore(Codice, MessaggioErrore(Codice));
    return Calcolato;
}

/// @return nothing where the tariff has no amount, or refuses the item
std::optional<Terna> LeggiTerna(const Recordset& Voce, const Parametri& Suoi)
{
    const int NVoce = int(NumeroDi(CStr(Voce.Value(u"NVoce"_s))));
    const bool Rifiutata =
        Suoi.Categ == Civile && (NVoce == 19 || NVoce == 20) && Suoi.Numero() == ScaglioneIndeterminato;
    if (Rifiutata || SenzaImporto(Voce, Suoi.Numero()))
        return std::nullopt;
    Terna Letta;
    if (Suoi.Categ == Stragiudiziale) {
        Letta.Minimo = Calcola(FormulaCatalogo(Voce, Suoi.Numero(), u"Min"_s), Suoi.Valore);
        Letta.Massimo = Calcola(FormulaCatalogo(Voce, Suoi.Numero(), u"Max"_s), Suoi.Valore);
        Letta.Medio = Medio(Letta.Minimo, Letta.Massimo);
    } else {
        Letta.Minimo = ImportoCatalogo(Voce, Suoi.Numero(), u"Min"_s);
        Letta.Medio = ImportoCatalogo(Voce, Suoi.Numero(), u"Med"_s);
        Letta.Massimo = ImportoCatalogo(Voce, Suoi.Numero(), u"Max"_s);
    }
    for (double* Importo : {&Letta.Minimo, &Letta.Medio, &Letta.Massimo})
        *Importo = ArrotondaRiga(*Importo, Suoi.Legge.Decimali);
    return Letta;
}

QString InRiga(const QJsonObject& Voce)
{
    const QString Capo =
        u"%1|%2"_s.arg(CStr(Voce[u"codice"_s].toVariant()), Voce[u"descrizione"_s].toString());
    if (Voce[u"medio"_s].isNull())
        return Capo + u"|non prevista"_s;
    const auto Importo = [&](const QString& Nome) {
        return u'|' + Format(Voce[Nome].toDouble(), u"#,##0.00");
    };
    return Capo + Importo(u"minimo"_s) + Importo(u"medio"_s) + Importo(u"massimo"_s);
}

QJsonObject Descritta(const Recordset& Voce, const QString& Chiave, const Parametri& Suoi)
{
    const std::optional<Terna> Importi = LeggiTerna(Voce, Suoi);
    const auto Cella = [&](double Terna::*Quale) {
        return Importi ? QJsonValue(*Importi.*Quale) : QJsonValue();
    };
    return {{u"codice"_s, Voce.Value(Chiave).toInt()},
            {u"descrizione"_s, Voce.Value(u"DescrOno"_s).toString()},
            {u"quantita"_s, !Voce.Value(u"QtaOno"_s).toString().isEmpty()},
            {u"minimo"_s, Cella(&Terna::Minimo)},
            {u"medio"_s, Cella(&Terna::Medio)},
            {u"massimo"_s, Cella(&Terna::Massimo)}};
}

QJsonObject Numerata(int Numero, const QString& Nome)
{
    return {{u"numero"_s, Numero}, {u"nome"_s, Nome}};
}

/// What was asked for, as the lists of a note call it.
QString Dove(const Parametri& Suoi)
{
    QStringList Parti{Suoi.Legge.Nome.toString()};
    if (Suoi.Ufficio)
        Parti += Suoi.Ufficio->DesAut;
    if (Suoi.Scaglione)
        Parti += Suoi.Scaglione->DesVal;
    return Parti.join(u" - "_s);
}

}  // namespace

Risposta ComandoVoci(const QStringList& Valori, const Decreto& Legge)
{
    Parametri Suoi{Legge, LeggiCategoria(Valori[0]), {}, {}, 0.0};
    Suoi.Ufficio = LeggiUfficio(Legge, Suoi.Categ, Valori[1]);
    if (Suoi.Categ != Penale)
        LeggiValore(Valori[2], Suoi);

    QJsonArray Voci;
    QStringList Righe;
    Catalogo Aperto = ApriCatalogo(Legge, Suoi.Categ, Suoi.Ufficio ? Suoi.Ufficio->IDAut : 0);
    for (; !Aperto.datOno.Eof(); Aperto.datOno.MoveNext()) {
        if (CStr(Aperto.datOno.Value(u"NVoce"_s)) == QString::number(VoceLibera))
            continue;
        const QJsonObject Voce = Descritta(Aperto.datOno, Aperto.ChiaveOno, Suoi);
        Righe += InRiga(Voce);
        Voci.append(Voce);
    }
    Righe += u"%1: %2"_s.arg(Dove(Suoi)).arg(Voci.size());

    QJsonObject Record{
        {u"tariffa"_s, Legge.Sigla.toString()}, {u"categoria"_s, Suoi.Categ}, {u"voci"_s, Voci}};
    if (Suoi.Ufficio)
        Record[u"autorita"_s] = Numerata(Suoi.Ufficio->IDAut, Suoi.Ufficio->DesAut);
    if (Suoi.Scaglione)
        Record[u"scaglione"_s] = Numerata(Suoi.Scaglione->NumSca, Suoi.Scaglione->DesVal);
    if (Suoi.Valore > 0)
        Record[u"valore"_s] = Suoi.Valore;
    return {Righe.join(u'\n'), Record, false};
}
