#include "addressbook/exchange/esporta.h"

#include "addressbook/exchange/vcard.h"
#include "addressbook/modClienti.h"
#include "addressbook/modScheda.h"
#include "platform/base/fogliocsv.h"
#include "platform/base/regionale.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The columns that show, without the key.
QList<ColonnaRubrica> ColonneEsportate(const QList<Campo>& Campi)
{
    QList<Campo> Scelti = Campi;
    Scelti.removeIf([](const Campo& Uno) { return Uno.Contatore; });
    return ColonneRubrica(Scelti);
}

bool DiSocieta(const QStringList& Celle, const QList<ColonnaRubrica>& Colonne)
{
    const auto Cella = [&](QStringView Nome) {
        for (qsizetype i = 0; i < Colonne.size(); ++i)
            if (Colonne[i].Nome.compare(Nome, Qt::CaseInsensitive) == 0)
                return Celle[i].trimmed();
        return QString();
    };
    DatiCliente Cliente;
    Cliente.CodFis = Cella(u"CodFis");
    Cliente.RapprLegale = Cella(u"RapprLegale");
    Cliente.TipoSoggetto = Cella(u"TipoSoggetto");
    return ESocieta(Cliente);
}

QByteArray SchedaScritta(const QStringList& Celle, const QList<ColonnaRubrica>& Colonne)
{
    ValoriNominativo Valori;
    for (qsizetype i = 0; i < Colonne.size(); ++i)
        Valori.append({Colonne[i].Nome, Celle[i]});
    return SchedaVcard(Valori, DiSocieta(Celle, Colonne));
}

}  // namespace

FormatoEsporta FormatoDi(const QString& File)
{
    return QFileInfo(File).suffix().compare(u"vcf", Qt::CaseInsensitive) == 0 ? FormatoEsporta::Vcard
                                                                              : FormatoEsporta::Csv;
}

QString ConEstensione(const QString& File)
{
    // A date at the end of a name is no ending: "Elenco 22.11.2026".
    static constexpr std::array Note{u".csv", u".txt", u".vcf"};
    const bool Finito =
        std::ranges::any_of(Note, [&](QStringView Nota) { return File.endsWith(Nota, Qt::CaseInsensitive); });
    return Finito ? File : File + u".csv"_s;
}

NominativiEsportati EsportaNominativi(const Recordset& DiRighe, FormatoEsporta Forma, const QList<int>& Posti,
                                      const std::function<bool(int, int)>& Prosegui)
{
    constexpr int OgniTante = 200;
    Recordset Righe = DiRighe.Clone();
    const QList<ColonnaRubrica> Colonne = ColonneEsportate(Righe.Campi());
    std::vector<QStringList> Fatte;
    NominativiEsportati Esito;
    if (Forma == FormatoEsporta::Csv) {
        QStringList Titoli;
        for (const ColonnaRubrica& Colonna : Colonne)
            Titoli.append(Colonna.Titolo);
        Fatte.push_back(Titoli);
    }
    QList<int> InOrdine = Posti;
    std::ranges::sort(InOrdine);
    const int Tutte = InOrdine.isEmpty() ? Righe.RecordCount() : int(InOrdine.size());
    for (int i = 0; i < Tutte; ++i) {
        if (i % OgniTante == 0 && Prosegui && !Prosegui(i, Tutte))
            return {};
        Righe.ImpostaAbsolutePosition(InOrdine.isEmpty() ? i : InOrdine[i]);
        QStringList Celle;
        for (const ColonnaRubrica& Colonna : Colonne)
            Celle.append(TestoScheda(Righe.Value(Colonna.Nome)));
        if (Forma == FormatoEsporta::Csv) {
            Fatte.push_back(Celle);
            ++Esito.Quanti;
        } else {
            const QByteArray Scheda = SchedaScritta(Celle, Colonne);
            Esito.Byte += Scheda;
            ++(Scheda.isEmpty() ? Esito.SenzaNome : Esito.Quanti);
        }
    }
    if (Forma == FormatoEsporta::Csv)
        Esito.Byte = ScriviCsv(Fatte);
    return Esito;
}

QString FraseTralasciati(const NominativiEsportati& Esportati)
{
    if (Esportati.SenzaNome == 0)
        return {};
    return Esportati.SenzaNome == 1 ? u"1 senza nome, tralasciato"_s
                                    : Format(Esportati.SenzaNome, u"#,##0") + u" senza nome, tralasciati"_s;
}
