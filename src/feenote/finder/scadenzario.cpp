#include "feenote/finder/scadenzario.h"

#include "feenote/modNumeraFattura.h"
#include "feenote/modStato.h"
#include "feenote/modStorno.h"
#include "platform/base/fogliocsv.h"
#include "platform/base/ordineitaliano.h"
#include "platform/base/regionale.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct VoceFiltro
{
    FiltroStato Filtro;
    QStringView Voce;
    QStringView Parola;
};

constexpr std::array Filtri{
    VoceFiltro{FiltroStato::Tutte, u"Tutte", u"tutte"},
    VoceFiltro{FiltroStato::DaIncassare, u"Da incassare", u"aperte"},
    VoceFiltro{FiltroStato::Bozza, u"Bozza", u"bozza"},
    VoceFiltro{FiltroStato::Inviata, u"Inviata", u"inviata"},
    VoceFiltro{FiltroStato::Fatturata, u"Fatturata", u"fatturata"},
    VoceFiltro{FiltroStato::Pagata, u"Pagata", u"pagata"},
    VoceFiltro{FiltroStato::SenzaStato, u"Senza stato", u"ignoto"},
};

/// A cell of the file: programs that read it want no points between the thousands.
QString Cifra(double Valore)
{
    return Format(Valore, u"0.00");
}

bool Attende(StatoNota Stato)
{
    return Stato == StatoNota::Inviata || Stato == StatoNota::Fatturata;
}

/// What is open of the document of a note; nothing where it is not known.
std::optional<double> ApertoDelDocumento(const VoceTrova& Nota)
{
    const StatoLetto& Stato = Nota.Dati.Stato;
    if (Nota.Illeggibile || Stato.Stato == StatoNota::Ignoto)
        return std::nullopt;
    const int Documento = DocumentoDi(Nota.Dati);
    if (!Attende(Stato.Stato) || EStorno(Stato) || (Documento >= 0 && !ChiedePagamento(Documento)))
        return 0.0;
    return Stato.Importi ? std::optional(Stato.Resto) : std::nullopt;
}

/// What is open of a note among others; nothing where it is not known.
std::optional<double> ApertoConLegame(const VoceTrova& Nota, const LegameFattura& Legame)
{
    const std::optional<double> Aperto = ApertoDelDocumento(Nota);
    if (!Aperto || (*Aperto > 0 && Legame.StornoIgnoto))
        return std::nullopt;
    return std::max(0.0, Arrotonda2(*Aperto - Legame.Stornato));
}

/// It is a copy of one that counts elsewhere in the same rows.
bool DiTroppo(const LegameFattura& Legame)
{
    return Legame.Copia && !Legame.Sola;
}

QStringList Figure(const VoceTrova& Nota, const LegameFattura& Legame)
{
    const auto& Importi = Nota.Dati.Stato.Importi;
    if (!Importi || DiTroppo(Legame) || (EStorno(Nota.Dati.Stato) && !Legame.Citata))
        return QStringList(6, QString());
    const double Segno = EStorno(Nota.Dati.Stato) ? -1.0 : 1.0;
    QStringList Celle;
    for (const double Uno :
         {Importi->Imponibile, Importi->CP, Importi->IVA, Importi->RA, Importi->Totale, Importi->Netto})
        Celle += Cifra(Segno * Uno);
    return Celle;
}

/// What was paid of the document; nothing where it is not known. Of a draft nothing was asked for. Of one
/// that the user has called paid nobody has paid what had been taken back before; a credit note that another
/// file sends out behind the word gives back what was paid.
std::optional<double> PagatoDi(const VoceTrova& Nota, const LegameFattura& Legame)
{
    const StatoLetto& Stato = Nota.Dati.Stato;
    if (!Stato.Importi || Stato.Stato == StatoNota::Ignoto)
        return std::nullopt;
    if (EStorno(Stato))
        return 0.0;
    const double Versato = std::max(0.0, Stato.Importi->Netto - Stato.Resto);
    if (Stato.Stato == StatoNota::Pagata)
        return std::max(Versato, Arrotonda2(Stato.Importi->Netto - Legame.StornatoPrima));
    return Versato;
}

QString CifraONulla(const std::optional<double>& Valore)
{
    return Valore ? Cifra(*Valore) : QString();
}

}  // namespace

QStringList VociFiltroStato()
{
    QStringList Voci;
    for (const VoceFiltro& Uno : Filtri)
        Voci += Uno.Voce.toString();
    return Voci;
}

QStringList ParoleFiltroStato()
{
    QStringList Parole;
    for (const VoceFiltro& Uno : Filtri)
        Parole += Uno.Parola.toString();
    return Parole;
}

StatoNota StatoMostrato(const VoceTrova& Voce)
{
    return Voce.Genere != GenereVoce::Nota || Voce.Modello ? StatoNota::Ignoto : Voce.Dati.Stato.Stato;
}

bool PassaStato(FiltroStato Filtro, const VoceTrova& Nota)
{
    const StatoNota Stato = StatoMostrato(Nota);
    switch (Filtro) {
    case FiltroStato::Tutte:
        return true;
    case FiltroStato::DaIncassare:
        return Attende(Stato) && ApertoDi(Nota) != 0.0;
    case FiltroStato::Bozza:
        return Stato == StatoNota::Bozza;
    case FiltroStato::Inviata:
        return Stato == StatoNota::Inviata;
    case FiltroStato::Fatturata:
        return Stato == StatoNota::Fatturata;
    case FiltroStato::Pagata:
        return Stato == StatoNota::Pagata;
    case FiltroStato::SenzaStato:
        return Stato == StatoNota::Ignoto;
    }
    return true;
}

std::optional<double> ApertoDi(const VoceTrova& Nota)
{
    if (!HaEmessi(Nota))
        return ApertoDelDocumento(Nota);
    const DocumentiNote Suoi({&Nota});
    const QHash<const VoceTrova*, LegameFattura> Legami = LegamiFatture(Suoi.Tutti());
    double Somma = 0.0;
    for (const VoceTrova* Voce : Suoi.Tutti()) {
        const std::optional<double> Aperto = ApertoConLegame(*Voce, Legami.value(Voce));
        if (!Aperto)
            return std::nullopt;
        Somma += *Aperto;
    }
    return Arrotonda2(Somma);
}

QString ParolaStato(const VoceTrova& Voce)
{
    const StatoNota Stato = StatoMostrato(Voce);
    const bool Stornata = HaEmessi(Voce) && EStorno(Voce.Dati.Stato) && ApertoDi(Voce) == 0.0;
    return Stornata && Stato == StatoNota::Fatturata ? u"Stornata"_s : NomeStato(Stato);
}

QStringList FrasiDocumenti(const VoceTrova& Nota)
{
    if (Nota.Genere != GenereVoce::Nota || Nota.Modello || !EStorno(Nota.Dati.Stato))
        return {};
    QStringList Frasi;
    const DocumentiNote Suoi({&Nota});
    for (const VoceTrova* Voce : Suoi.Tutti()) {
        const StatoLetto& Stato = Voce->Dati.Stato;
        const bool Storno = EStorno(Stato);
        const NumeroFattura Suo = NumeroUscito(Voce->Dati);
        const QStringView Nome = TipoDi(DocumentoDi(Voce->Dati)).Nome;
        QString Frase = Storno ? u"Nota di credito"_s : Nome.isEmpty() ? u"Documento"_s : Nome.toString();
        if (!Suo.Numero.isEmpty())
            Frase += u' ' + Suo.Numero;
        if (!Suo.Data.isEmpty())
            Frase += u" del "_s + Suo.Data;
        if (Storno && !Stato.CitataNumero.isEmpty())
            Frase += u", della fattura "_s + Stato.CitataNumero;
        if (Stato.Importi)
            Frase += u": "_s + Format(Storno ? -Stato.Importi->Netto : Stato.Importi->Netto, u"#,##0.00");
        else
            Frase += u": importo non noto"_s;
        Frasi += Frase;
    }
    return Frasi;
}

namespace {

/// The copies that stand for a document which is not seen, by that document: the one that was saved last.
QHash<const VoceTrova*, const VoceTrova*> CopieSole(const QSet<const VoceTrova*>& Viste,
                                                    const QHash<const VoceTrova*, LegameFattura>& Legami)
{
    QHash<const VoceTrova*, const VoceTrova*> Sole;
    for (auto Uno = Legami.begin(); Uno != Legami.end(); ++Uno) {
        if (!Uno->Contata || Viste.contains(Uno->Contata) || !Viste.contains(Uno.key()))
            continue;
        const VoceTrova*& Sola = Sole[Uno->Contata];
        if (!Sola || std::pair(Sola->Modificata, Uno.key()->Percorso) <
                         std::pair(Uno.key()->Modificata, Sola->Percorso))
            Sola = Uno.key();
    }
    return Sole;
}

/// The document whose figures a row has.
const VoceTrova& ConLeCifre(const VoceTrova& Voce, const LegameFattura& Legame)
{
    return Legame.Sola && Legame.Contata ? *Legame.Contata : Voce;
}

/// Each document of some notes of a list, templates left out, with what it hangs together with in the whole
/// list.
/// @param Tutte empty: the notes are the whole list
void PercorriDocumenti(
    const std::vector<const VoceTrova*>& Note, const std::vector<const VoceTrova*>& Tutte,
    const std::function<void(const VoceTrova& Voce, const VoceTrova& Nota, const LegameFattura& Legame)>& Fai)
{
    const DocumentiNote Documenti(Tutte.empty() ? Note : Tutte);
    const QHash<const VoceTrova*, LegameFattura> Legami = LegamiFatture(Documenti.Tutti());
    const QSet<const VoceTrova*> Volute(Note.begin(), Note.end());
    QSet<const VoceTrova*> Viste;
    for (size_t i = 0; i < Documenti.Tutti().size(); ++i)
        if (Volute.contains(Documenti.NotaDi(i)))
            Viste.insert(Documenti.Tutti()[i]);
    const QHash<const VoceTrova*, const VoceTrova*> AlPosto = CopieSole(Viste, Legami);
    const auto Vista = [&](const VoceTrova* Voce) { return Viste.contains(Voce) || AlPosto.contains(Voce); };
    for (size_t i = 0; i < Documenti.Tutti().size(); ++i) {
        const VoceTrova* const Voce = Documenti.Tutti()[i];
        if (Voce->Genere != GenereVoce::Nota || Voce->Modello || !Viste.contains(Voce))
            continue;
        LegameFattura Legame = Legami.value(Voce);
        if (Legame.Contata && AlPosto.value(Legame.Contata) == Voce) {
            const VoceTrova* const Contata = Legame.Contata;
            Legame = Legami.value(Contata);
            Legame.Copia = Legame.Sola = true;
            Legame.Contata = Contata;
        }
        // Figures are taken away only where those of the invoice stand too; what is open looks at all.
        Legame.Citata = Legame.Citata && Vista(Legame.Ripresa);
        Fai(*Voce, *Documenti.NotaDi(i), Legame);
    }
}

}  // namespace

QSet<const VoceTrova*> NoteDaIncassare(const std::vector<const VoceTrova*>& Tutte)
{
    QSet<const VoceTrova*> Aperte;
    PercorriDocumenti(
        Tutte, Tutte, [&](const VoceTrova& Voce, const VoceTrova& Nota, const LegameFattura& Legame) {
            if (Attende(StatoMostrato(Nota)) && !Legame.Copia && ApertoConLegame(Voce, Legame) != 0.0)
                Aperte.insert(&Nota);
        });
    return Aperte;
}

QHash<const VoceTrova*, const VoceTrova*> NoteCopie(const std::vector<const VoceTrova*>& Tutte)
{
    const DocumentiNote Documenti(Tutte);
    const QHash<const VoceTrova*, LegameFattura> Legami = LegamiFatture(Documenti.Tutti());
    QHash<const VoceTrova*, const VoceTrova*> NotaDi;
    for (size_t i = 0; i < Documenti.Tutti().size(); ++i)
        NotaDi[Documenti.Tutti()[i]] = Documenti.NotaDi(i);
    QHash<const VoceTrova*, const VoceTrova*> Copie;
    for (const VoceTrova* Nota : Tutte)
        if (const auto Suo = Legami.constFind(Nota); Suo != Legami.constEnd() && Suo->Contata)
            Copie[Nota] = NotaDi.value(Suo->Contata);
    return Copie;
}

ApertoTutto SommaAperto(const std::vector<const VoceTrova*>& Note, const std::vector<const VoceTrova*>& Tutte)
{
    ApertoTutto Somma;
    QHash<std::pair<int, QString>, qsizetype> Posti;
    PercorriDocumenti(Note, Tutte, [&](const VoceTrova& Voce, const VoceTrova&, const LegameFattura& Legame) {
        if (DiTroppo(Legame)) {
            ++Somma.Copie;
            return;
        }
        const std::optional<double> Aperto = ApertoConLegame(ConLeCifre(Voce, Legame), Legame);
        if (!Aperto) {
            ++Somma.Ignote;
            return;
        }
        if (*Aperto == 0)
            return;
        Somma.Aperto += *Aperto;
        ++Somma.Note;
        const ClienteNota Suo = ClienteDi(Voce);
        const std::pair Chi(Suo.IDCli, Suo.Nome);
        auto Posto = Posti.constFind(Chi);
        if (Posto == Posti.constEnd()) {
            Posto = Posti.insert(Chi, Somma.Clienti.size());
            Somma.Clienti.append({Voce.Cliente, 0.0, 0, Suo.IDCli});
        }
        ApertoCliente& Somme = Somma.Clienti[*Posto];
        Somme.Aperto += *Aperto;
        ++Somme.Note;
    });
    Somma.Aperto = Arrotonda2(Somma.Aperto);
    for (ApertoCliente& Uno : Somma.Clienti)
        Uno.Aperto = Arrotonda2(Uno.Aperto);
    OrdinaItaliano(Somma.Clienti, [](const ApertoCliente& Uno) -> const QString& { return Uno.Cliente; });
    std::ranges::stable_sort(Somma.Clienti, std::ranges::greater(), &ApertoCliente::Aperto);
    return Somma;
}

QStringList TitoliScadenzario()
{
    return {u"Cliente"_s,  u"Codice fiscale"_s, u"Partita IVA"_s, u"Documento"_s,
            u"Numero"_s,   u"Data"_s,           u"Stato"_s,       u"Dal"_s,
            u"Scadenza"_s, u"Imponibile"_s,     u"Cassa"_s,       u"IVA"_s,
            u"Ritenuta"_s, u"Totale"_s,         u"Netto"_s,       u"Pagato"_s,
            u"Aperto"_s,   u"Parcella"_s};
}

QStringList RigaScadenzario(const VoceTrova& Nota, const CodiciCliente& Codici, const LegameFattura& Legame)
{
    const DatiNota& Dati = Nota.Dati;
    const TipoDocumento& Documento = TipoDi(DocumentoDi(Dati));
    const bool Storno = EStorno(Dati.Stato);
    QString Detto = Storno ? u"Nota di credito"_s : Documento.Nome.toString();
    if (Storno && !Dati.Stato.CitataNumero.isEmpty())
        Detto += u" della fattura "_s + Dati.Stato.CitataNumero;
    if (Legame.Copia)
        Detto += u" (copia)"_s;
    QStringList Celle{Nota.Cliente, Codici.CodFis, Codici.PIva, Detto};
    // What the user calls invoiced bears the invoice's number, whatever document is in view.
    const bool SenzaDocumento = Documento.Nome.isEmpty() && Dati.Stato.Stato == StatoNota::Fatturata;
    if (Documento.EFattura || SenzaDocumento)
        Celle << NumeroUscito(Dati).Numero << NumeroUscito(Dati).Data;
    else if (Documento.Pannello == PannelloStampa::Numero)
        Celle << Dati.Stato.Numero << Dati.Stato.Data;
    else
        Celle << QString() << QString();
    const VoceTrova& Cifre = ConLeCifre(Nota, Legame);
    const auto Pagato = PagatoDi(Cifre, Legame);
    // Among others that are paid: of this one nothing was.
    const bool SoloStornata =
        Dati.Stato.Stato == StatoNota::Pagata && Legame.StornatoPrima > 0 && Pagato == 0.0;
    Celle << NomeStato(SoloStornata ? StatoNota::Fatturata : Dati.Stato.Stato)
          << (SoloStornata ? QString() : Dati.Stato.Dal) << Dati.Stato.Scadenza;
    Celle += Figure(Cifre, Legame);
    if (DiTroppo(Legame))
        Celle << QString() << QString();
    else
        Celle << CifraONulla(Pagato) << CifraONulla(ApertoConLegame(Cifre, Legame));
    Celle << Nota.Nome;
    return Celle;
}

std::vector<QStringList> RigheScadenzario(const std::vector<const VoceTrova*>& Note,
                                          const std::function<CodiciCliente(int IDCli)>& Codici,
                                          const std::vector<const VoceTrova*>& Tutte)
{
    std::vector<QStringList> Righe;
    PercorriDocumenti(Note, Tutte, [&](const VoceTrova& Voce, const VoceTrova&, const LegameFattura& Legame) {
        Righe.push_back(RigaScadenzario(Voce, Codici(Voce.Dati.IDCli), Legame));
    });
    return Righe;
}

QByteArray CsvScadenzario(const std::vector<const VoceTrova*>& Note,
                          const std::function<CodiciCliente(int IDCli)>& Codici,
                          const std::vector<const VoceTrova*>& Tutte)
{
    static const QList<int> Cifre{9, 10, 11, 12, 13, 14, 15, 16};  // from Imponibile to Aperto
    std::vector<QStringList> Righe = RigheScadenzario(Note, Codici, Tutte);
    Righe.insert(Righe.begin(), TitoliScadenzario());
    return ScriviCsv(Righe, Cifre);
}
