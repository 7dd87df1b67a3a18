#include "feenote/file/modNotaJson.h"

#include "feenote/file/colonne.h"
#include "feenote/modTotali.h"
#include "feenote/modVariazione.h"
#include "platform/base/regionale.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

/// Sets a field of the outermost object, or of one of its groups.
void Metti(QJsonObject& Tutto, QStringView Percorso, const QJsonValue& Valore)
{
    const QStringView Nome = GruppoJson(Percorso);
    if (Nome.isEmpty()) {
        Tutto[Percorso.toString()] = Valore;
        return;
    }
    QJsonObject Gruppo = Tutto[Nome.toString()].toObject();
    Gruppo[CampoJson(Percorso)] = Valore;
    Tutto[Nome.toString()] = Gruppo;
}

bool EDiTesto(FormaCella Forma)
{
    return Forma == FormaCella::Data || Forma == FormaCella::Descrizione || Forma == FormaCella::Testo;
}

QJsonArray Linee(const TabellaRighe& Righe, std::span<const ColonnaLinea> Colonne, CellaDi Cella)
{
    QJsonArray Elenco;
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga) {
        QJsonObject Linea;
        for (const ColonnaLinea& Colonna : Colonne) {
            const CellaNota& Come = Colonna.*Cella;
            if (Come.Forma == FormaCella::Assente)
                continue;
            const QVariant& Valore = Righe(Riga, Come.Colonna);
            Linea[Come.Json.toString()] =
                EDiTesto(Come.Forma) ? QJsonValue(CStr(Valore)) : QJsonValue(NumeroDi(Valore));
        }
        Elenco.append(Linea);
    }
    return Elenco;
}

/// Sums of cents, without what their binary form leaves over.
QJsonObject Totali(const Parcella& Nota)
{
    const Somme Proprie = CalcolaSomme(Nota);
    return {
        {u"onorari"_s, Arrotonda2(Proprie.TotOnorari)},
        {u"medi"_s, Arrotonda2(Proprie.TotMed)},
        {u"minimi"_s, Arrotonda2(Proprie.TotMin)},
        {u"massimi"_s, Arrotonda2(Proprie.TotMax)},
        {u"speseImponibili"_s, Arrotonda2(Proprie.TotSpeseImp)},
        {u"speseEsenti"_s, Arrotonda2(Proprie.TotSpeseEsenti)},
    };
}

}  // namespace

QByteArray DescriviNota(const Parcella& Nota)
{
    QJsonObject Tutto;
    for (const ColonnaParam& Colonna : ColonneParam())
        Metti(Tutto, Colonna.Json, Colonna.Descrivi(Nota));
    Metti(Tutto, u"stampa/esponiAcconti", Nota.chkAcconti.Attiva);
    if (Nota.Tariffa->Dichiarato)
        Tutto[u"tariffa"_s] = Nota.Tariffa->Sigla.toString();
    if (PartiContano(Nota))
        Metti(Tutto, u"variazione/partiAssistite", Nota.PartiAssistite);
    Tutto[u"numeroScaglione"_s] = Nota.Scaglione;
    Tutto[u"onorari"_s] = Linee(Nota.xOnorari, ColonneRighe(), &ColonnaLinea::Prima);
    Tutto[u"spese"_s] = Linee(Nota.xDiritti, ColonneRighe(), &ColonnaLinea::Seconda);
    Tutto[u"acconti"_s] = Linee(Nota.xAcconti, ColonneAcconti(), &ColonnaLinea::Prima);
    Tutto[u"totali"_s] = Totali(Nota);
    return QJsonDocument(Tutto).toJson(QJsonDocument::Indented);
}
