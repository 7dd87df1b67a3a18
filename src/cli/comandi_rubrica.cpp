// The command of calcanova-cli that lists the names of an archive as the browser's filter does.
#include "cli/comandi.h"

#include "addressbook/elencorubrica.h"
#include "addressbook/exchange/esporta.h"
#include "cli/letture.h"
#include "core/sessione.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

Risposta ComandoRubrica(const QStringList& Valori)
{
    const ElencoRubrica Elenco = ElencaRubrica(sessione::ArchivioCliCon, Valori[0], Valori.value(1));
    QStringList Righe;
    QJsonArray Nominativi;
    for (const QStringList& Celle : Elenco.Righe) {
        Righe += CelleInRiga(Celle);
        QJsonObject Nominativo;
        for (qsizetype i = 0; i < Celle.size(); ++i)
            Nominativo[Elenco.Campi[i]] = Celle[i];
        Nominativi.append(Nominativo);
    }
    Righe += u"%1 di %2"_s.arg(Elenco.Righe.size()).arg(Elenco.Tutte);
    return {Righe.join(u'\n'), {{u"nominativi"_s, Nominativi}, {u"tutti"_s, Elenco.Tutte}}, false};
}

Risposta ComandoEsporta(const QStringList& Valori, const QString& File, bool InSchede)
{
    ControllaUscita(File);
    const Recordset Righe = RigheRubrica(sessione::ArchivioCliCon, Valori[0], Valori.value(1));
    const NominativiEsportati Esito =
        EsportaNominativi(File, Righe, InSchede ? FormatoEsporta::Vcard : FormatoEsporta::Csv);
    QStringList Linee{QString::number(Esito.Quanti)};
    if (const QString Altri = FraseTralasciati(Esito); !Altri.isEmpty())
        Linee += Altri;
    return {Linee.join(u'\n'),
            {{u"esportati"_s, Esito.Quanti}, {u"senzaNome"_s, Esito.SenzaNome}, {u"file"_s, File}},
            false};
}
