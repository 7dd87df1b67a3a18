#include "addressbook/exchange/esporta.h"

#include "addressbook/exchange/vcard.h"
#include "addressbook/modClienti.h"
#include "addressbook/modScheda.h"
#include "platform/base/errore.h"
#include "platform/base/fogliocsv.h"
#include "platform/base/paginacodice.h"
#include "platform/base/regionale.h"
#include "platform/system/fileapezzi.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

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

constexpr int RighePerPezzo = 200;

/// Rows of a set by their places, as the texts of some columns.
class LettoreDiPezzi
{
public:
    LettoreDiPezzi(const Recordset& DiRighe, const QList<ColonnaRubrica>& Colonne) : Righe(DiRighe.Clone())
    {
        for (const ColonnaRubrica& Colonna : Colonne)
            Nomi.append(Colonna.Nome);
    }

    /// @throws Errore 3167 one of the rows is gone
    [[nodiscard]] std::vector<QStringList> Leggi(const std::vector<int>& Posti)
    {
        const std::vector<qint64> Chiavi = ChiaviDi(Posti);
        return Fitte(Chiavi) ? InUnaVolta(Chiavi) : UnaPerUna(Posti);
    }

private:
    [[nodiscard]] std::vector<qint64> ChiaviDi(const std::vector<int>& Posti)
    {
        std::vector<qint64> Chiavi;
        Chiavi.reserve(Posti.size());
        for (const int Posto : Posti) {
            Righe.ImpostaAbsolutePosition(Posto);
            Chiavi.push_back(Righe.Bookmark().toLongLong());
        }
        return Chiavi;
    }

    /// Whether reading the table from the first key to the last one passes over few other rows.
    [[nodiscard]] static bool Fitte(const std::vector<qint64>& Chiavi)
    {
        constexpr quint64 PerRiga = 4;
        return std::ranges::adjacent_find(Chiavi, std::greater_equal()) == Chiavi.end() &&
               quint64(Chiavi.back()) - quint64(Chiavi.front()) < PerRiga * Chiavi.size();
    }

    [[nodiscard]] std::vector<QStringList> InUnaVolta(const std::vector<qint64>& Chiavi) const
    {
        const bool DalPrincipio = Chiavi.front() == std::numeric_limits<qint64>::min();
        std::vector<QStringList> Lette;
        (void)Righe.Scorri(Nomi, DalPrincipio ? std::nullopt : std::optional(Chiavi.front() - 1),
                           int(Chiavi.back() - Chiavi.front()) + 1, [&](const RigaScorsa& Riga) {
                               if (Lette.size() == Chiavi.size() || Riga.Chiave() != Chiavi[Lette.size()])
                                   return;
                               QStringList Celle;
                               for (int i = 0; i < Nomi.size(); ++i)
                                   Celle.append(TestoScheda(Riga.Valore(i)));
                               Lette.push_back(std::move(Celle));
                           });
        if (Lette.size() != Chiavi.size())
            throw Errore(errori::RecordEliminato);
        return Lette;
    }

    [[nodiscard]] std::vector<QStringList> UnaPerUna(const std::vector<int>& Posti)
    {
        std::vector<QStringList> Lette;
        for (const int Posto : Posti) {
            Righe.ImpostaAbsolutePosition(Posto);
            QStringList Celle;
            for (const QString& Nome : std::as_const(Nomi))
                Celle.append(TestoScheda(Righe.Value(Nome)));
            Lette.push_back(std::move(Celle));
        }
        return Lette;
    }

    Recordset Righe;
    QStringList Nomi;
};

/// The places of a piece: of those chosen, or of all rows.
std::vector<int> PostiDelPezzo(const QList<int>& Scelti, int Da, int Tutte)
{
    std::vector<int> Posti;
    for (int i = Da; i < Tutte && Posti.size() < size_t(RighePerPezzo); ++i)
        Posti.push_back(Scelti.isEmpty() ? i : Scelti[i]);
    return Posti;
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

NominativiEsportati EsportaNominativi(const QString& File, const Recordset& DiRighe, FormatoEsporta Forma,
                                      const QList<int>& Posti, const std::function<bool(int, int)>& Prosegui)
{
    const QList<ColonnaRubrica> Colonne = ColonneEsportate(DiRighe.Campi());
    LettoreDiPezzi Righe(DiRighe, Colonne);
    FileAPezzi Nuovo(File, Lettori::SoloUtente);
    NominativiEsportati Esito;
    if (Forma == FormatoEsporta::Csv) {
        QStringList Titoli;
        for (const ColonnaRubrica& Colonna : Colonne)
            Titoli.append(Colonna.Titolo);
        Nuovo.Scrivi(MarcaUtf8.toByteArray() + RigaCsv(Titoli));
    }
    QList<int> InOrdine = Posti;
    std::ranges::sort(InOrdine);
    const int Tutte = InOrdine.isEmpty() ? DiRighe.RecordCount() : int(InOrdine.size());
    for (int i = 0; i < Tutte; i += RighePerPezzo) {
        if (Prosegui && !Prosegui(i, Tutte))
            return {};
        QByteArray Pezzo;
        for (const QStringList& Celle : Righe.Leggi(PostiDelPezzo(InOrdine, i, Tutte))) {
            const QByteArray Scritta =
                Forma == FormatoEsporta::Csv ? RigaCsv(Celle) : SchedaScritta(Celle, Colonne);
            Pezzo += Scritta;
            ++(Scritta.isEmpty() ? Esito.SenzaNome : Esito.Quanti);
        }
        Nuovo.Scrivi(Pezzo);
    }
    Nuovo.Posa();
    return Esito;
}

QString FraseTralasciati(const NominativiEsportati& Esportati)
{
    if (Esportati.SenzaNome == 0)
        return {};
    return Esportati.SenzaNome == 1 ? u"1 senza nome, tralasciato"_s
                                    : Format(Esportati.SenzaNome, u"#,##0") + u" senza nome, tralasciati"_s;
}
