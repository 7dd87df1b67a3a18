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
    for (const Autorita& Ufficio : Interi(LeggiAutorita(Legge, Categ)))
        if (QString::number(Ufficio.IDAut) == Cercata ||
            Ufficio.DesAut.compare(Cercata, Qt::CaseInsensitive) == 0)
            return Ufficio;
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
void LeggiValore(const QString& Valore, Parametri& Caso)
{
    const QString Cercato = Valore.trimmed();
    const auto Nominato = [&](const ScaglioneValore& Scaglione) {
        return Scaglione.DesVal.compare(Cercato, Qt::CaseInsensitive) == 0 ||
               (Caso.Categ == Civile && Scaglione.NumSca == ScaglioneIndeterminato &&
                Cercato.compare(u"indeterminato"_s, Qt::CaseInsensitive) == 0);
    };
    const QList<ScaglioneValore> Tutti = Interi(LeggiScaglioni(Caso.Legge, Caso.Categ));
    auto Trovato = std::ranges::find_if(Tutti, Nominato);
    if (Trovato == Tutti.end() || Caso.Categ == Stragiudiziale) {
        Caso.Valore = Round(Numero(u"valore"_s, Valore), 2);
        Trovato = std::ranges::find_if(Tutti, [&](const ScaglioneValore& Scaglione) {
            return Scaglione.DaVal <= Caso.Valore && Caso.Valore <= Scaglione.AVal && Scaglione.AVal > 0;
        });
    }
    if (Trovato != Tutti.end())
        Caso.Scaglione = *Trovato;
    else
        Rifiuta(u"valore"_s, Valore, u"non è compreso in nessuno scaglione"_s);
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
std::optional<Terna> LeggiTerna(const Recordset& Voce, const Parametri& Caso)
{
    const int NVoce = int(NumeroDi(CStr(Voce.Value(u"NVoce"_s))));
    const bool Rifiutata =
        Caso.Categ == Civile && (NVoce == 19 || NVoce == 20) && Caso.Numero() == ScaglioneIndeterminato;
    if (Rifiutata || NonPrevista(Caso.Legge, Caso.Categ, Voce, Caso.Numero()))
        return std::nullopt;
    Terna Letta;
    if (Caso.Categ == Stragiudiziale) {
        Letta.Minimo = Calcola(FormulaCatalogo(Voce, Caso.Numero(), u"Min"_s), Caso.Valore);
        Letta.Massimo = Calcola(FormulaCatalogo(Voce, Caso.Numero(), u"Max"_s), Caso.Valore);
        Letta.Medio = Medio(Letta.Minimo, Letta.Massimo);
    } else {
        Letta.Minimo = ImportoCatalogo(Voce, Caso.Numero(), u"Min"_s);
        Letta.Medio = ImportoCatalogo(Voce, Caso.Numero(), u"Med"_s);
        Letta.Massimo = ImportoCatalogo(Voce, Caso.Numero(), u"Max"_s);
    }
    for (double* Importo : {&Letta.Minimo, &Letta.Medio, &Letta.Massimo})
        *Importo = ArrotondaRiga(*Importo, Caso.Legge.Decimali);
    return Letta;
}

QString InRiga(const QJsonObject& Voce)
{
    const QString Capo =
        u"%1|%2"_s.arg(CStr(Voce[u"codice"_s].toVariant()), Voce[u"descrizione"_s].toString());
    if (Voce[u"medio"_s].isNull())
        return Capo + u"|non prevista"_s;
    const auto Importo = [&](const QString& Nome) {
        return u'|' + Format(Voce[Nome].toDouble(), ModelloImporto);
    };
    return Capo + Importo(u"minimo"_s) + Importo(u"medio"_s) + Importo(u"massimo"_s);
}

QJsonObject Descritta(const Recordset& Voce, const QString& Chiave, const Parametri& Caso)
{
    const std::optional<Terna> Importi = LeggiTerna(Voce, Caso);
    const auto Cella = [&](double Terna::*Estremo) {
        return Importi ? QJsonValue(*Importi.*Estremo) : QJsonValue();
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
QString Dove(const Parametri& Caso)
{
    QStringList Parti{Caso.Legge.Nome.toString()};
    if (Caso.Ufficio)
        Parti += Caso.Ufficio->DesAut;
    if (Caso.Scaglione)
        Parti += Caso.Scaglione->DesVal;
    return Parti.join(u" - "_s);
}

}  // namespace

Risposta ComandoVoci(const QStringList& Valori, const Decreto& Legge)
{
    Parametri Caso{Legge, LeggiCategoria(Valori[0]), {}, {}, 0.0};
    Caso.Ufficio = LeggiUfficio(Legge, Caso.Categ, Valori[1]);
    if (Caso.Categ != Penale)
        LeggiValore(Valori[2], Caso);

    QJsonArray Voci;
    QStringList Righe;
    Catalogo Aperto = ApriCatalogo(Legge, Caso.Categ, Caso.Ufficio ? Caso.Ufficio->IDAut : 0);
    for (; !Aperto.datOno.Eof(); Aperto.datOno.MoveNext()) {
        if (CStr(Aperto.datOno.Value(u"NVoce"_s)) == QString::number(VoceLibera))
            continue;
        const QJsonObject Voce = Descritta(Aperto.datOno, Aperto.ChiaveOno, Caso);
        Righe += InRiga(Voce);
        Voci.append(Voce);
    }
    Righe += u"%1: %2"_s.arg(Dove(Caso)).arg(Voci.size());

    QJsonObject Record{
        {u"tariffa"_s, Legge.Sigla.toString()}, {u"categoria"_s, Caso.Categ}, {u"voci"_s, Voci}};
    if (Caso.Ufficio)
        Record[u"autorita"_s] = Numerata(Caso.Ufficio->IDAut, Caso.Ufficio->DesAut);
    if (Caso.Scaglione)
        Record[u"scaglione"_s] = Numerata(Caso.Scaglione->NumSca, Caso.Scaglione->DesVal);
    if (Caso.Valore > 0)
        Record[u"valore"_s] = Caso.Valore;
    return {Righe.join(u'\n'), Record, false};
}
