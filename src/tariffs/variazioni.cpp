#include "tariffs/variazioni.h"

#include "platform/base/errore.h"
#include "platform/base/regionale.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView TabellaVariazioni = u"Variazioni";
constexpr QStringView TabellaParti = u"PartiAssistite";
constexpr QStringView TabellaCorrispondenze = u"Corrispondenze";

/// Percents and numbers of parties have three digits at most.
constexpr int MassimoNumero = 999;

std::shared_ptr<const Errore> RigaSbagliata(const Decreto& Legge, QStringView Tabella, int Numero)
{
    return std::make_shared<const Errore>(
        errori::Tipo,
        u"L'archivio della tariffa %1, %2, ha nella tabella %3 una riga che non ha senso (%4): non è usata"_s
            .arg(Legge.Nome, Legge.File, Tabella)
            .arg(Numero));
}

/// Two whole percents of one sign, neither of them 0.
bool LimitiSensati(const QString& Limiti)
{
    static const QRegularExpression Forma(u"\\A(-?)[1-9][0-9]{0,2};(-?)[1-9][0-9]{0,2}\\z"_s);
    const QRegularExpressionMatch Parti = Forma.match(Limiti);
    return Parti.hasMatch() && Parti.captured(1) == Parti.captured(2);
}

QString TestoDi(const Recordset& Righe, const QString& Colonna)
{
    return Righe.Value(Colonna, QString()).toString();
}

OpzioneAumRid RigaVariazione(const Recordset& Righe)
{
    OpzioneAumRid Opzione;
    Opzione.Numero = Righe.Value(u"IDVar"_s).toInt();
    Opzione.Didascalia = TestoDi(Righe, u"Didascalia"_s);
    Opzione.Limiti = TestoDi(Righe, u"Limiti"_s);
    Opzione.Gruppo = (Opzione.Limiti.startsWith(u'-') ? GruppoRiduzioni : GruppoAumenti).toString();
    Opzione.Frase = TestoDi(Righe, u"Frase"_s);
    Opzione.Voci = TestoDi(Righe, u"Voci"_s);
    Opzione.Uffici = TestoDi(Righe, u"Uffici"_s);
    return Opzione;
}

FasciaParti RigaParti(const Recordset& Righe)
{
    return {Righe.Value(u"Da"_s).toInt(), Righe.Value(u"A"_s).toInt(), Righe.Value(u"Perc"_s).toInt(),
            TestoDi(Righe, u"Articolo"_s)};
}

bool Sensata(const FasciaParti& Fascia)
{
    return Fascia.Da >= 2 && Fascia.A >= Fascia.Da && Fascia.A <= MassimoNumero && Fascia.Percento > 0 &&
           Fascia.Percento <= MassimoNumero;
}

/// A number that two options had would not say which of them a note means.
bool Sensata(const OpzioneAumRid& Opzione, const QList<OpzioneAumRid>& Prima)
{
    return Opzione.Numero > MassimoNumeroFisso && !Opzione.Didascalia.isEmpty() &&
           LimitiSensati(Opzione.Limiti) && std::ranges::none_of(Prima, [&](const OpzioneAumRid& Una) {
               return Una.Numero == Opzione.Numero;
           });
}

void LeggiOpzioni(const Database& Tariffe, const Decreto& Legge, const QString& Categ, VariazioniLette& Lette)
{
    const bool ConEsatto = Tariffe.EsisteCampo(TabellaVariazioni.toString(), u"Esatto"_s);
    Lette.Opzioni.emplace();
    Recordset Righe = Tariffe.OpenRecordset(
        u"SELECT * FROM Variazioni WHERE Categ=? COLLATE SenzaMaiuscole ORDER BY Ordine"_s, {Categ});
    for (; !Righe.Eof(); Righe.MoveNext()) {
        OpzioneAumRid Opzione = RigaVariazione(Righe);
        if (ConEsatto)
            Opzione.Esatto = std::abs(NumeroDi(Righe.Value(u"Esatto"_s)));
        if (Sensata(Opzione, *Lette.Opzioni))
            Lette.Opzioni->append(Opzione);
        else
            Lette.Guasto = RigaSbagliata(Legge, TabellaVariazioni, Opzione.Numero);
    }
}

void LeggiParti(const Database& Tariffe, const Decreto& Legge, const QString& Categ, VariazioniLette& Lette)
{
    Recordset Righe = Tariffe.OpenRecordset(
        u"SELECT * FROM PartiAssistite WHERE Categ=? COLLATE SenzaMaiuscole ORDER BY Da"_s, {Categ});
    for (; !Righe.Eof(); Righe.MoveNext()) {
        const FasciaParti Fascia = RigaParti(Righe);
        if (Sensata(Fascia) && (Lette.Parti.isEmpty() || Lette.Parti.last().A < Fascia.Da))
            Lette.Parti.append(Fascia);
        else
            Lette.Guasto = RigaSbagliata(Legge, TabellaParti, Fascia.Da);
    }
}

}  // namespace

VariazioniLette LeggiVariazioni(const Decreto& Legge, const QString& Categ)
{
    VariazioniLette Lette;
    try {
        const Database Tariffe = ApriTariffe(Legge);
        if (Tariffe.EsisteTabella(TabellaVariazioni.toString()))
            LeggiOpzioni(Tariffe, Legge, Categ, Lette);
        if (Tariffe.EsisteTabella(TabellaParti.toString()))
            LeggiParti(Tariffe, Legge, Categ, Lette);
    } catch (const Errore& Guasto) {
        Lette.Guasto = std::make_shared<const Errore>(Guasto);
    }
    return Lette;
}

bool Comprende(const QString& Elenco, const QString& Numero)
{
    return Elenco == OgniNumero || Elenco.contains(u',' + Numero + u',');
}

QHash<QString, QString> LeggiCorrispondenze(const Decreto& Da, const Decreto& Verso, const QString& Categ,
                                            GenereComune Genere)
{
    // The table stands in the database that names itself, and speaks of the other decree.
    const bool InAvanti = Verso.Dichiarato;
    QHash<QString, QString> Numeri;
    const Database Tariffe = ApriTariffe(InAvanti ? Verso : Da);
    if (!Tariffe.EsisteTabella(TabellaCorrispondenze.toString()))
        return Numeri;
    Recordset Righe = Tariffe.OpenRecordset(
        u"SELECT Codice140, Codice FROM Corrispondenze WHERE Genere=? AND Categ=? COLLATE SenzaMaiuscole"_s,
        {Genere == GenereComune::Ufficio ? u"A"_s : u"V"_s, Categ});
    for (; !Righe.Eof(); Righe.MoveNext()) {
        const QString Prima = CStr(Righe.Value(u"Codice140"_s));
        const QString Propria = CStr(Righe.Value(u"Codice"_s));
        const QString& Chiave = InAvanti ? Prima : Propria;
        if (!Numeri.contains(Chiave))
            Numeri.insert(Chiave, InAvanti ? Propria : Prima);
    }
    return Numeri;
}
