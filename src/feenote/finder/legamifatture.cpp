#include "feenote/finder/legamifatture.h"

#include "feenote/modNumeraFattura.h"
#include "feenote/modStato.h"
#include "feenote/modStorno.h"
#include "platform/base/regionale.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A day as files hold it, or as somebody has typed it. Ten thousand are read behind each letter of a filter.
QDate GiornoDi(const QString& Data)
{
    constexpr qsizetype Lungo = 10;  // dd/mm/yyyy
    const QStringView Tutto(Data);
    if (Tutto.size() == Lungo && Tutto[2] == u'/' && Tutto[5] == u'/')
        return {Tutto.mid(6).toInt(), Tutto.mid(3, 2).toInt(), Tutto.left(2).toInt()};
    return LeggiData(Data).value_or(QDate());
}

/// Client, number and date of an invoice; empty without a number or a date.
QString Fattura(const VoceTrova& Nota, const QString& Numero, const QString& Data)
{
    const QDate Giorno = Numero.isEmpty() ? QDate() : GiornoDi(Data);
    if (!Giorno.isValid())
        return {};
    const ClienteNota Chi = ClienteDi(Nota);
    return (Chi.IDCli > 0 ? QString::number(Chi.IDCli) : u'\n' + Chi.Nome) + u'\n' +
           QString::number(Giorno.toJulianDay()) + u'\n' + NumeroSenzaAnno(Numero, Giorno);
}

/// The invoice, or the credit note, that a note has gone out as.
QString FatturaDi(const VoceTrova& Nota)
{
    const StatoLetto& Stato = Nota.Dati.Stato;
    if (Nota.Genere != GenereVoce::Nota || Nota.Modello || Nota.Illeggibile ||
        (Stato.Stato != StatoNota::Fatturata && Stato.Stato != StatoNota::Pagata))
        return {};
    const int Documento = DocumentoDi(Nota.Dati);
    if (Documento >= 0 && !TipoDi(Documento).EFattura)
        return {};
    const NumeroFattura Suo = NumeroUscito(Nota.Dati);
    return Fattura(Nota, Suo.Numero, Suo.Data);
}

/// The same with a sign for credit notes, which have numbers of their own.
QString Segnata(const VoceTrova& Nota)
{
    const QString Chiave = FatturaDi(Nota);
    return Nota.Dati.Stato.Storno && !Chiave.isEmpty() ? u'-' + Chiave : Chiave;
}

/// What the credit notes of its own file take back of each document of a note, the last one behind the
/// others.
QList<double> RipresiDi(const StatoLetto& Stato)
{
    QList<DocumentoEmesso> Usciti;
    for (const EmessoLetto& Emesso : Stato.Emessi)
        Usciti.append(Emesso.Che);
    Usciti.append({.Storno = EStorno(Stato),
                   .Importi = Stato.Importi.value_or(ImportiDocumento()),
                   .CitataNumero = Stato.CitataNumero,
                   .CitataData = Stato.CitataData});
    return RipresiDagliStorni(Usciti);
}

/// A document of a note's file that another one has followed, as a note of its own.
/// @param Ripreso what its credit notes take back of it, euro
VoceTrova VoceDi(const VoceTrova& Nota, const EmessoLetto& Emesso, double Ripreso)
{
    VoceTrova Voce = Nota;
    StatoLetto& Stato = Voce.Dati.Stato;
    Stato.Emessi.clear();
    Stato.Documento = Emesso.Che.Documento;
    Stato.Storno = Emesso.Che.Storno;
    Stato.Importi = Emesso.Importi ? std::optional(Emesso.Che.Importi) : std::nullopt;
    Stato.Resto = Emesso.Resto;
    Stato.FatturaNumero.clear();
    Stato.FatturaData.clear();
    Voce.Dati.NumFatt = Emesso.Che.Numero;
    Voce.Dati.DataFatt = Emesso.Che.Data;
    Stato.CitataNumero = Emesso.Che.CitataNumero;
    Stato.CitataData = Emesso.Che.CitataData;
    Stato.Scadenza.clear();
    // Which day's payments have paid it is not known.
    const bool Saldata = Stato.Stato == StatoNota::Pagata && Emesso.Che.AMano <= 0;
    Stato.Dal = Saldata ? QString() : Emesso.Che.Dal;
    // Sent again for a larger sum behind the word, it is not paid whole.
    const bool AMano = Emesso.Che.AMano > 0 && Arrotonda2(Emesso.Resto - Ripreso) <= 0;
    Stato.Stato = Saldata || AMano ? StatoNota::Pagata : StatoNota::Fatturata;
    // What the user has called paid has the day of his word in the place of its own: no credit note is.
    Stato.UscitoIl = Emesso.Che.AMano > 0 ? QString() : Emesso.Che.Dal;
    if (!Saldata)
        Stato.PagatoIl = AMano ? Emesso.Che.Dal : QString();
    return Voce;
}

/// The invoice of its own file that a credit note takes back; null where there is none.
/// @param Primo the place of the file's first document, all of them stand together
const VoceTrova* StornataQui(const std::vector<const VoceTrova*>& Documenti, size_t Primo, size_t Storno)
{
    QList<DocumentoEmesso> Usciti;
    for (size_t i = Primo; i < Documenti.size() && Documenti[i]->Percorso == Documenti[Primo]->Percorso;
         ++i) {
        const DatiNota& Dati = Documenti[i]->Dati;
        const auto [Numero, Data] = NumeroUscito(Dati);
        Usciti.append({.Storno = EStorno(Dati.Stato),
                       .Numero = Numero,
                       .Data = Data,
                       .CitataNumero = Dati.Stato.CitataNumero,
                       .CitataData = Dati.Stato.CitataData});
    }
    const qsizetype Posto = FatturaStornata(Usciti, qsizetype(Storno - Primo));
    return Posto < 0 ? nullptr : Documenti[Primo + size_t(Posto)];
}

/// The credit note of another file was out when its invoice was called paid. Files know days alone: of one
/// day the credit note comes first, as the word is of what is still owed.
bool PrimaDellaParola(const StatoLetto& Storno, const StatoLetto& Fattura)
{
    const QDate Uscito = GiornoDi(Storno.UscitoIl), Pagata = GiornoDi(Fattura.PagatoIl);
    return Uscito.isValid() && Pagata.isValid() && Uscito <= Pagata;
}

using Legami = QHash<const VoceTrova*, LegameFattura>;

/// Of the files that hold one invoice the one that was saved last counts; the others are copies of it.
/// @return the documents that count, by their invoice
QHash<QString, const VoceTrova*> SegnaCopie(const std::vector<const VoceTrova*>& Documenti, Legami& Trovati)
{
    QHash<QString, const VoceTrova*> Emessi;
    for (const VoceTrova* Nota : Documenti) {
        const QString Chiave = Segnata(*Nota);
        if (Chiave.isEmpty())
            continue;
        const VoceTrova*& Primo = Emessi[Chiave];
        if (!Primo) {
            Primo = Nota;
            continue;
        }
        const bool Dopo =
            std::pair(Nota->Modificata, Primo->Percorso) > std::pair(Primo->Modificata, Nota->Percorso);
        Trovati[Dopo ? std::exchange(Primo, Nota) : Nota].Copia = true;
    }
    for (const VoceTrova* Nota : Documenti)
        if (const auto Suo = Trovati.find(Nota); Suo != Trovati.end() && Suo->Copia)
            Suo->Contata = Emessi.value(Segnata(*Nota));
    return Emessi;
}

/// A note that has gone out as a credit note.
bool StornoUscito(const VoceTrova& Nota)
{
    const StatoLetto& Stato = Nota.Dati.Stato;
    const bool Uscito = Stato.Stato == StatoNota::Fatturata || Stato.Stato == StatoNota::Pagata;
    return Nota.Genere == GenereVoce::Nota && !Nota.Modello && EStorno(Stato) && Uscito;
}

/// A credit note takes back the invoice that it cites; that of a copy is a copy itself.
void Storna(const VoceTrova& Nota, const VoceTrova& Ripresa, Legami& Trovati)
{
    if (Trovati.value(&Ripresa).Copia) {
        Trovati[&Nota].Copia = true;
        return;
    }
    Trovati[&Nota].Citata = true;
    Trovati[&Nota].Ripresa = &Ripresa;
    const StatoLetto& Stato = Nota.Dati.Stato;
    const double Netto = Stato.Importi ? std::max(0.0, Stato.Importi->Netto) : 0.0;
    LegameFattura& Sua = Trovati[&Ripresa];
    Sua.Stornato += Netto;
    if (Ripresa.Percorso == Nota.Percorso || PrimaDellaParola(Stato, Ripresa.Dati.Stato))
        Sua.StornatoPrima += Netto;
    Sua.StornoIgnoto = Sua.StornoIgnoto || !Stato.Importi;
}

}  // namespace

ClienteNota ClienteDi(const VoceTrova& Nota)
{
    const int IDCli = std::max(0, Nota.Dati.IDCli);
    return {IDCli, IDCli > 0 ? QString() : Nota.Cliente};
}

int DocumentoDi(const DatiNota& Dati)
{
    return DocumentoDelloStato(Dati.Stato.Documento, Dati.TipoStampa, Dati.Stato.Stato);
}

bool EStorno(const StatoLetto& Stato)
{
    return Stato.Storno && Stato.Stato != StatoNota::Bozza && Stato.Stato != StatoNota::Ignoto;
}

NumeroFattura NumeroUscito(const DatiNota& Dati)
{
    const StatoLetto& Stato = Dati.Stato;
    const bool Emessa = Stato.Stato == StatoNota::Fatturata || Stato.Stato == StatoNota::Pagata;
    return Emessa && !Stato.FatturaNumero.isEmpty() ? NumeroFattura{Stato.FatturaNumero, Stato.FatturaData}
                                                    : NumeroFattura{Dati.NumFatt, Dati.DataFatt};
}

bool HaEmessi(const VoceTrova& Nota)
{
    const StatoLetto& Stato = Nota.Dati.Stato;
    return Nota.Genere == GenereVoce::Nota && !Nota.Modello && !Stato.Emessi.isEmpty() &&
           Stato.Stato != StatoNota::Bozza && Stato.Stato != StatoNota::Ignoto;
}

DocumentiNote::DocumentiNote(const std::vector<const VoceTrova*>& Quelle)
{
    Voci.reserve(Quelle.size());
    Note.reserve(Quelle.size());
    for (const VoceTrova* Nota : Quelle) {
        if (HaEmessi(*Nota))
            for (const QList<double> Ripresi = RipresiDi(Nota->Dati.Stato);
                 const EmessoLetto& Emesso : Nota->Dati.Stato.Emessi) {
                const qsizetype Posto = &Emesso - Nota->Dati.Stato.Emessi.constData();
                Prima.push_back(VoceDi(*Nota, Emesso, Ripresi[Posto]));
                Voci.push_back(&Prima.back());
                Note.push_back(Nota);
            }
        Voci.push_back(Nota);
        Note.push_back(Nota);
    }
}

QHash<const VoceTrova*, LegameFattura> LegamiFatture(const std::vector<const VoceTrova*>& Documenti)
{
    Legami Trovati;
    const QHash<QString, const VoceTrova*> Emessi = SegnaCopie(Documenti, Trovati);
    size_t Primo = 0;
    for (size_t i = 0; i < Documenti.size(); ++i) {
        const VoceTrova& Nota = *Documenti[i];
        if (Nota.Percorso != Documenti[Primo]->Percorso)
            Primo = i;
        if (!StornoUscito(Nota) || Trovati.value(&Nota).Copia)
            continue;
        const StatoLetto& Stato = Nota.Dati.Stato;
        const VoceTrova* Ripresa = StornataQui(Documenti, Primo, i);
        if (const QString Chiave = Fattura(Nota, Stato.CitataNumero, Stato.CitataData); !Chiave.isEmpty())
            Ripresa = Emessi.value(Chiave, Ripresa);
        if (Ripresa)
            Storna(Nota, *Ripresa, Trovati);
    }
    return Trovati;
}
