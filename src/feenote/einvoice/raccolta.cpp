#include "feenote/einvoice/raccolta.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool GiaDetta(const QList<MancanzaFattura>& Frasi, const QString& Frase)
{
    return std::ranges::any_of(Frasi, [&](const MancanzaFattura& Detta) { return Detta.Messaggio == Frase; });
}

}  // namespace

void Raccolta::Manca(CampoFattura Dove, const QString& Frase)
{
    if (!GiaDetta(Mancanze, Frase))
        Mancanze.append({Frase, Dove});
}

void Raccolta::Avvisa(CampoFattura Dove, const QString& Frase)
{
    if (!GiaDetta(Avvisi, Frase))
        Avvisi.append({Frase, Dove});
}

QString Raccolta::Pulisci(const QString& Scritto, const CampoDiTesto& Campo, AlfabetoFattura Alfabeto)
{
    const TestoPulito Pulito = PulisciTesto(Scritto, Alfabeto);
    if (!Pulito.Rifiutati.isEmpty())
        Manca(Campo.Dove, u"Caratteri che la fattura elettronica non ammette, %1: %2"_s.arg(
                              Campo.Nome, Pulito.Rifiutati));
    for (const QChar Carattere : Pulito.Cambiati)
        if (!Cambiati.contains(Carattere))
            Cambiati += Carattere;
    return Pulito.Testo;
}

QString Raccolta::Testo(const QString& Scritto, const CampoDiTesto& Campo)
{
    const QString Pulito = Pulisci(Scritto, Campo, AlfabetoFattura::Latino);
    QString Tagliato = TagliaTesto(Pulito, Campo.Massimo);
    if (Tagliato != Pulito)
        Avvisa(Campo.Dove, u"Nel file il testo è tagliato a %1 caratteri, %2: %3"_s.arg(Campo.Massimo)
                               .arg(Campo.Nome, Tagliato));
    return Tagliato;
}

QString Raccolta::TestoIntero(const QString& Scritto, const CampoDiTesto& Campo)
{
    return Pulisci(Scritto, Campo, AlfabetoFattura::Latino);
}

QString Raccolta::Sigla(const QString& Scritto, const CampoDiTesto& Campo)
{
    QString Pulito = Pulisci(Scritto, Campo, AlfabetoFattura::Base);
    if (Pulito.size() > Campo.Massimo)
        Manca(Campo.Dove, u"Più di %1 caratteri, %2: %3"_s.arg(Campo.Massimo).arg(Campo.Nome, Pulito));
    return Pulito;
}

void Raccolta::ChiudiTesti()
{
    if (!Cambiati.isEmpty())
        Avvisa(
            CampoFattura::Nessuno,
            u"Nel file alcuni caratteri sono scritti altrimenti, perché il formato non li ammette: %1"_s.arg(
                Cambiati));
}
