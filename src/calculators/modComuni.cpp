#include "calculators/modComuni.h"

#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"

using namespace Qt::StringLiterals;

namespace {

/// Case and accents taken away.
QString SenzaAccenti(const QString& Testo)
{
    QString Piano;
    Piano.reserve(Testo.size());
    for (const QChar C : Testo.normalized(QString::NormalizationForm_D))
        if (C.category() != QChar::Mark_NonSpacing)
            Piano += C.toCaseFolded();
    return Piano;
}

/// On keyboards without accents an apostrophe stands behind the last letter.
QString SenzaApostrofoFinale(const QString& Testo)
{
    return Testo.endsWith(u'\'') ? Testo.chopped(1) : Testo;
}

Comune RigaCorrente(const Recordset& Righe)
{
    return {Righe.Value(u"COMU_DESCR"_s).toString(), Righe.Value(u"COMU_PROV"_s).toString(),
            Righe.Value(u"COMU_COD"_s).toString()};
}

/// What the row that the index gives makes of the field.
void Applica(const Comune& Trovato, const QString& Testo, CampoComune& Campo)
{
    if (Trovato.Nome.startsWith(Testo, Qt::CaseInsensitive)) {
        if (Testo.size() > Campo.Tag.size()) {
            Campo.Testo = Trovato.Nome;
            Campo.Selezione = int(Testo.size());
            Campo.Provincia = Trovato.Provincia;
            Campo.CodComune = Trovato.Codice;
        }
        Campo.Rosso = false;
        return;
    }
    if (!Campo.Rosso)
        MsgBox(u"Comune non in elenco."_s, vbExclamation, u"Attenzione!"_s);
    Campo.Rosso = true;
    Campo.Provincia = Campo.CodComune = u"?"_s;
    Campo.RidaiFuoco = true;
}

}  // namespace

ArchivioComuni::ArchivioComuni(const QString& Percorso) : Archivio(OpenDatabase(Percorso, true))
{
    Comuni = Archivio.OpenRecordset(u"Comuni"_s);
    Comuni.ImpostaIndex(u"COMUNI2L"_s);
}

std::optional<Comune> ArchivioComuni::Cerca(const QString& Testo)
{
    Comuni.Seek(u">="_s, Testo);
    return Comuni.NoMatch() ? std::nullopt : std::optional(RigaCorrente(Comuni));
}

std::optional<Comune> ArchivioComuni::Trova(const QString& Nome)
{
    const QString Cercato = Nome.trimmed();
    Comuni.Seek(u"="_s, Cercato);
    if (!Comuni.NoMatch())
        return RigaCorrente(Comuni);
    const QString Piano = SenzaApostrofoFinale(SenzaAccenti(Cercato));
    QStringList Uguali;
    for (const NomePiano& Uno : Nomi())
        if (Uno.Piano == Piano)
            Uguali << Uno.Nome;
    return Uguali.size() == 1 && Uguali.first() != Cercato ? Trova(Uguali.first()) : std::nullopt;
}

QStringList ArchivioComuni::Proponi(const QString& Testo, int Massimo)
{
    const QString Piano = SenzaAccenti(Testo.trimmed());
    QStringList Proposti;
    if (Piano.isEmpty())
        return Proposti;
    for (const NomePiano& Uno : Nomi()) {
        if (Proposti.size() >= Massimo)
            break;
        if (Uno.Piano.startsWith(Piano))
            Proposti << Uno.Nome;
    }
    return Proposti;
}

QList<Comune> ArchivioComuni::DelCodice(const QString& Codice) const
{
    Recordset Righe =
        Archivio.OpenRecordset(u"SELECT COMU_DESCR, COMU_PROV, COMU_COD FROM Comuni WHERE COMU_COD = ? "
                               "ORDER BY COMU_DESCR"_s,
                               {Codice});
    QList<Comune> Trovati;
    for (; !Righe.Eof(); Righe.MoveNext())
        Trovati << RigaCorrente(Righe);
    return Trovati;
}

QString ArchivioComuni::Al() const
{
    return Archivio.Annotazioni().value(u"Al"_s);
}

const QList<ArchivioComuni::NomePiano>& ArchivioComuni::Nomi()
{
    if (!Elenco.isEmpty())
        return Elenco;
    // All names in one cell: row by row the file would be locked and let go eleven thousand times.
    const Recordset Tutti =
        Archivio.OpenRecordset(u"SELECT group_concat(COMU_DESCR, char(10)) AS Nomi FROM Comuni"_s);
    for (const QString& Nome : Tutti.Value(u"Nomi"_s).toString().split(u'\n', Qt::SkipEmptyParts))
        Elenco.append({Nome, SenzaAccenti(Nome)});
    std::ranges::sort(Elenco, {}, &NomePiano::Piano);
    return Elenco;
}

QString FraseComuni(const QList<Comune>& Comuni)
{
    const auto Luogo = [](const Comune& Uno) {
        return Uno.Provincia == u"EE" ? u" (stato estero)"_s : u" ("_s + Uno.Provincia + u')';
    };
    QString Frase;
    for (qsizetype i = 0; i < Comuni.size(); ++i) {
        // The province once, behind the names that share it.
        const bool Ultimo = i + 1 == Comuni.size() || Comuni[i + 1].Provincia != Comuni[i].Provincia;
        Frase += Comuni[i].Nome + (Ultimo ? Luogo(Comuni[i]) : QString());
        if (i + 1 < Comuni.size())
            Frase += u" / "_s;
    }
    return Frase;
}

void FasMsg(const Errore& Guasto)
{
    MsgBox(u"FasMsg: %1 %2"_s.arg(Guasto.Numero).arg(Guasto.Descrizione));
}

QString PercorsoComuni()
{
    return TrovaFile(Barra(sessione::PercorsoProg) + u"Comuni.mdb"_s);
}

void CercaComune(ArchivioComuni& Archivio, CampoComune& Campo)
{
    Campo.Selezione = -1;
    Campo.RidaiFuoco = false;
    const QString Testo = Campo.Testo.trimmed();
    try {
        if (!Testo.isEmpty()) {
            if (const auto Trovato = Archivio.Cerca(Testo))
                Applica(*Trovato, Testo, Campo);
            else
                Campo.Rosso = false;
        }
    } catch (...) {
        FasMsg(ErroreCorrente());
    }
    Campo.Tag = Testo;
}
