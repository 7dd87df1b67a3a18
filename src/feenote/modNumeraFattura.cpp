#include "feenote/modNumeraFattura.h"

#include "core/dannoricordato.h"
#include "core/impostazioni.h"
#include "core/modAvvio.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/base/segni.h"
#include "platform/system/impostazioni.h"
#include "platform/system/messaggi.h"
#include "platform/system/orologio.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The counter as it stands in the store: another program may have moved it since this one has started.
/// @return false for a text that is no number of an invoice: which one the office has come to is not known
bool RileggiProgFatt()
{
    const QString Testo =
        GetSetting(NomeApplicazione.toString(), SezioneParametri.toString(), chiavi::ProgFatt.toString());
    if (Testo.trimmed().isEmpty())
        return true;
    const std::optional<int> Conservato = LeggiProgFatt(Testo);
    if (Conservato)
        sessione::ProgFatt = *Conservato;
    return Conservato.has_value();
}

}  // namespace

QString NumeroDellaFattura(const Parcella& Nota)
{
    QString Numero = Nota.DatiPar(DatoNumFatt).trimmed();
    const auto Data = LeggiData(Nota.DatiPar(DatoDataFatt));
    // The year alone makes no number of a text.
    const bool ConCifre = std::ranges::any_of(Numero, ECifra);
    const QString Anno = Data && ConCifre ? u'/' + QString::number(Data->year()) : QString();
    return Numero.endsWith(Anno) ? Numero : Numero + Anno;
}

QString NumeroSenzaAnno(const QString& Numero, const QDate& Giorno)
{
    QString Pulito = Numero.simplified().toUpper();
    if (const QString Anno = u'/' + QString::number(Giorno.year()); Pulito.endsWith(Anno))
        Pulito.chop(Anno.size());
    return Pulito;
}

bool NumeraFattura(Parcella& Nota)
{
    if (!Nota.DatiPar(DatoNumFatt).isEmpty() || !Nota.DatiPar(DatoDataFatt).isEmpty()) {
        MsgErrore(u"I campi Numero e Data fattura sono già valorizzati!"_s);
        return false;
    }
    if (const QString Frase = FraseDelDannoRicordato(); !Frase.isEmpty()) {
        MsgErrore(Frase + u": il numero delle fatture non si conosce"_s);
        return false;
    }
    if (ContatorePerso(chiavi::ProgFatt)) {
        MsgErrore(u"Dopo il guasto delle impostazioni il numero dell'ultima fattura non si conosce!\n"
                  "Indicarlo nelle impostazioni e memorizzarle, oppure indicare il numero a mano."_s);
        return false;
    }
    if (!RileggiProgFatt()) {
        MsgErrore(u"Il progressivo delle fatture, nelle impostazioni, non è un numero da 0 a %1!\n"
                  "Correggerlo nelle impostazioni oppure indicare il numero a mano."_s.arg(UltimoProgFatt));
        return false;
    }
    if (sessione::ProgFatt >= UltimoProgFatt) {
        MsgErrore(u"Il progressivo delle fatture è arrivato all'ultimo numero (%1)!\n"
                  "Correggerlo nelle impostazioni oppure indicare il numero a mano."_s.arg(UltimoProgFatt));
        return false;
    }
    Nota.txtDatiPar[DatoNumFatt] = CStr(sessione::ProgFatt + 1);
    Nota.txtDatiPar[DatoDataFatt] = Format(Oggi(), ModelloData);
    SetModificata(Nota, true);
    return true;
}

void AggiornaProgFatt()
{
    if (MsgBox(u"Procedo all'aggiornamento del progressivo?"_s, vbYesNo + vbQuestion,
               TitoloDomanda.toString()) != vbYes)
        return;
    try {
        // Never back: a program beside this one may have gone further while the question stood.
        sessione::ProgFatt = PortaNumero(NomeApplicazione.toString(), SezioneParametri.toString(),
                                         chiavi::ProgFatt.toString(), sessione::ProgFatt + 1);
    } catch (const Errore&) {
        (void)FraseDelDannoRicordato();  // what is thrown tells of it
        throw;
    }
}
