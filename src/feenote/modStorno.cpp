#include "feenote/modStorno.h"

#include "core/modTesti.h"
#include "feenote/codicifattura.h"
#include "feenote/modAcconti.h"
#include "feenote/modNumeraFattura.h"
#include "platform/base/regionale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array ColonneImporti{AccCorrispettivi, AccSpeseImp, AccSpeseEsenti};

/// Sums in cents, by ColonneImporti.
using Centesimi = std::array<qint64, ColonneImporti.size()>;

Centesimi InCentesimi(const std::array<double, ColonneImporti.size()>& Euro)
{
    Centesimi Interi{};
    for (size_t i = 0; i < Interi.size(); ++i)
        Interi[i] = qint64(std::llround(Arrotonda2(Euro[i]) * 100));
    return Interi;
}

Centesimi Insieme(const Centesimi& A, const Centesimi& B)
{
    Centesimi Somma{};
    for (size_t i = 0; i < Somma.size(); ++i)
        Somma[i] = A[i] + B[i];
    return Somma;
}

/// The sums of the first rows: of none, of one, and so on.
std::vector<Centesimi> SommeProgressive(const TabellaRighe& Righe)
{
    std::array<double, ColonneImporti.size()> Euro{};
    std::vector<Centesimi> Somme{Centesimi{}};
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga) {
        for (size_t i = 0; i < Euro.size(); ++i)
            Euro[i] += AccontoInEuro(Righe(Riga, ColonneImporti[i]), Righe(Riga, AccValuta));
        Somme.push_back(InCentesimi(Euro));
    }
    return Somme;
}

TabellaRighe Prime(TabellaRighe Righe, size_t Quante)
{
    while (size_t(Righe.Righe()) > Quante)
        Righe.EliminaRiga(Righe.Righe() - 1);
    return Righe;
}

/// An invoice by number and day, empty without either: "12" and "12/2026" are one number.
QString Firma(const QString& Numero, const QString& Data)
{
    const auto Giorno = LeggiData(Data);
    if (!Giorno || Numero.trimmed().isEmpty())
        return {};
    constexpr qsizetype Basta = 50;  // a list cuts what is longer, and the exchange system takes twenty
    return NumeroSenzaAnno(Numero.trimmed().left(Basta), *Giorno) + u'|' + Giorno->toString(Qt::ISODate);
}

/// The documents of this file that have gone out and count, the oldest first; credit notes before the last
/// one too.
QList<DocumentoEmesso> Usciti(const StatoTenuto& Tenuto)
{
    if (!Tenuto.Importi || Tenuto.Stato == StatoNota::Bozza)
        return {};
    QList<DocumentoEmesso> Tutti = Tenuto.Emessi;
    if (!Tenuto.Storno && Tenuto.Emessa && Tenuto.Stato >= StatoNota::Fatturata)
        Tutti.append({.Documento = Tenuto.Documento,
                      .ConSocio = Tenuto.ConSocio,
                      .Numero = Tenuto.Numero,
                      .Data = Tenuto.Data,
                      .Importi = *Tenuto.Importi});
    return Tutti;
}

/// The invoice of a number and day.
std::optional<DocumentoEmesso> LaFattura(const QList<DocumentoEmesso>& Fra, const QString& Numero,
                                         const QString& Data)
{
    const QString Cercata = Firma(Numero, Data);
    const auto Sua = std::ranges::find_if(Fra, [&](const DocumentoEmesso& Uno) {
        return !Uno.Storno && !Cercata.isEmpty() && Firma(Uno.Numero, Uno.Data) == Cercata;
    });
    return Sua == Fra.end() ? std::nullopt : std::optional(*Sua);
}

/// What an invoice has taken away.
struct Detratti
{
    Centesimi Somme{};
    std::optional<Centesimi> DelSocio;  ///< of it what the associated note was paid; nothing: not known
};

/// Nothing where its figures cannot be read.
std::optional<Detratti> DetrattiDa(const DocumentoEmesso& Fattura)
{
    if (Fattura.Storno || !Fattura.Guasto.isEmpty())
        return std::nullopt;
    const ImportiDocumento& Suoi = Fattura.Importi;
    Detratti Tolti{InCentesimi({Suoi.AccCorrispettivi, Suoi.AccSpeseImp, Suoi.AccSpeseEsenti}), {}};
    if (const auto& Socio = Suoi.DelSocio)
        Tolti.DelSocio = InCentesimi({Socio->Corrispettivi, Socio->SpeseImp, Socio->SpeseEsenti});
    return Tolti;
}

/// The credit note in hand.
DocumentoEmesso Credito(const DatiFatturaXml& Dati)
{
    DocumentoEmesso Suo;
    Suo.Storno = true;
    Suo.CitataNumero = Dati.CitataNumero;
    Suo.CitataData = Dati.CitataData;
    return Suo;
}

/// What the invoice had taken away that a credit note of this file takes back.
std::optional<Detratti> DetrattiDallaFattura(const Parcella& Nota)
{
    const QList<DocumentoEmesso> Fra = Usciti(Nota.Stato);
    const qsizetype Posto = FatturaStornata(Fra + QList{Credito(Nota.FatturaXml)}, Fra.size());
    return Posto < 0 ? std::nullopt : DetrattiDa(Fra[Posto]);
}

/// The first payments of the lists that make these sums: they are written one below the other.
std::optional<AccontiDetratti> PrimiConSomme(const AccontiDetratti& Tutti, const Detratti& Volute)
{
    const std::vector<Centesimi> Propri = SommeProgressive(Tutti.Propri);
    const std::vector<Centesimi> Altri = SommeProgressive(Tutti.Altri);
    std::optional<std::pair<size_t, size_t>> Trovati;
    for (size_t j = 0; j < Altri.size(); ++j)
        for (size_t i = 0; i < Propri.size(); ++i)
            if (Insieme(Propri[i], Altri[j]) == Volute.Somme) {
                // Of several ways the one by which it went out.
                if (Altri[j] == Volute.DelSocio)
                    return AccontiDetratti{Prime(Tutti.Propri, i), Prime(Tutti.Altri, j)};
                Trovati = Trovati.value_or(std::pair(i, j));
            }
    if (!Trovati)
        return std::nullopt;
    return AccontiDetratti{Prime(Tutti.Propri, Trovati->first), Prime(Tutti.Altri, Trovati->second)};
}

/// What of the payments listed makes the sums of those that the invoice had taken away.
AccontiDetratti ConSomme(const AccontiDetratti& Tutti, const Detratti& Tolti)
{
    if (const auto Primi = PrimiConSomme(Tutti, Tolti))
        return *Primi;
    const Centesimi& Volute = Tolti.Somme;
    // A payment that was taken out of the list is not taken away either: a credit note of a part would have
    // no other way to be more than nothing.
    const Centesimi Elencate =
        Insieme(SommeProgressive(Tutti.Propri).back(), SommeProgressive(Tutti.Altri).back());
    Centesimi Restano{};
    for (size_t i = 0; i < Restano.size(); ++i)
        Restano[i] = std::clamp(Elencate[i], std::min<qint64>(0, Volute[i]), std::max<qint64>(0, Volute[i]));
    if (Restano == Elencate)
        return Tutti;
    AccontiDetratti Soli;
    const int Riga = Soli.Propri.AggiungiRiga();
    Soli.Propri(Riga, AccDescr) = u"Acconti detratti dalla fattura"_s;
    Soli.Propri(Riga, AccValuta) = QString(LetteraEuro);
    for (size_t i = 0; i < Restano.size(); ++i)
        Soli.Propri(Riga, ColonneImporti[i]) = double(Restano[i]) / 100;
    return Soli;
}

/// The payments of the note and of the associated one, whatever a document takes away of them.
AccontiDetratti Elencati(const Parcella& Nota)
{
    AccontiDetratti Tutti;
    Tutti.Propri = Nota.xAcconti;
    if (Nota.Multipla())
        Tutti.Altri = Nota.Multi.xAccontiMulti;
    return Tutti;
}

}  // namespace

bool ENotaDiCredito(const Parcella& Nota)
{
    return Nota.FatturaXml.Tipo == codici::NotaDiCredito;
}

qsizetype FatturaStornata(const QList<DocumentoEmesso>& Usciti, qsizetype Storno)
{
    const DocumentoEmesso& Credito = Usciti[Storno];
    const QString Citata = Firma(Credito.CitataNumero, Credito.CitataData);
    if (!Citata.isEmpty()) {
        for (qsizetype i = 0; i < Storno; ++i)
            if (!Usciti[i].Storno && Firma(Usciti[i].Numero, Usciti[i].Data) == Citata)
                return i;
        // It may be one of which the file can no longer be read.
        for (qsizetype i = Storno - 1; i >= 0; --i)
            if (!Usciti[i].Storno && Usciti[i].Numero.isEmpty())
                return i;
        return -1;
    }
    qsizetype Posto = Storno - 1;
    while (Posto >= 0 && Usciti[Posto].Storno)
        --Posto;
    return Posto;
}

QList<double> RipresiDagliStorni(const QList<DocumentoEmesso>& Usciti)
{
    QList<double> Ripresi(Usciti.size(), 0.0);
    for (qsizetype i = 0; i < Usciti.size(); ++i)
        if (const qsizetype Posto = Usciti[i].Storno ? FatturaStornata(Usciti, i) : -1; Posto >= 0)
            Ripresi[Posto] += std::max(0.0, Usciti[i].Importi.Netto);
    return Ripresi;
}

QList<qsizetype> FattureStornate(const StatoTenuto& Tenuto)
{
    QList<DocumentoEmesso> Usciti = Tenuto.Emessi;
    DocumentoEmesso Ultimo;
    Ultimo.Storno = Tenuto.Storno;
    Ultimo.CitataNumero = Tenuto.CitataNumero;
    Ultimo.CitataData = Tenuto.CitataData;
    Usciti.append(Ultimo);
    QList<qsizetype> Posti;
    for (qsizetype i = 0; i < Usciti.size(); ++i)
        Posti.append(Usciti[i].Storno ? FatturaStornata(Usciti, i) : -1);
    return Posti;
}

bool CitataAltrove(const Parcella& Nota)
{
    if (!ENotaDiCredito(Nota))
        return false;
    const QList<DocumentoEmesso> Fra = Usciti(Nota.Stato);
    return std::ranges::count(Fra, false, &DocumentoEmesso::Storno) > 0 &&
           FatturaStornata(Fra + QList{Credito(Nota.FatturaXml)}, Fra.size()) < 0;
}

AccontiDetratti AccontiDelDocumento(const Parcella& Nota, int Tipo)
{
    const TipoDocumento& Documento = TipoDi(Tipo);
    if (Documento.Acconti == UsoAcconti::Mai ||
        (Documento.Acconti == UsoAcconti::SeEsposti && !Nota.chkAcconti.Attiva))
        return {};
    AccontiDetratti Tutti = Elencati(Nota);
    if (!Documento.EFattura || !ENotaDiCredito(Nota))
        return Tutti;
    if (CitataAltrove(Nota))
        return {};  // those that are listed are of its own invoices
    const auto Volute = DetrattiDallaFattura(Nota);
    return Volute ? ConSomme(Tutti, *Volute) : Tutti;
}

AccontiDetratti AccontiFatturati(const Parcella& Nota, int Tipo)
{
    AccontiDetratti Suoi = AccontiDelDocumento(Nota, Tipo);
    if (!TipoDi(Tipo).EFattura || ENotaDiCredito(Nota))
        return Suoi;
    const auto Uscita = LaFattura(Usciti(Nota.Stato), Nota.DatiPar(DatoNumFatt), Nota.DatiPar(DatoDataFatt));
    // A list that begins otherwise was put right, and the invoice with it.
    const auto Tolti = Uscita ? DetrattiDa(*Uscita) : std::nullopt;
    return Tolti ? PrimiConSomme(Elencati(Nota), *Tolti).value_or(Suoi) : Suoi;
}

DatiCatena RaccogliFattura(const Parcella& Nota, int Tipo)
{
    DatiCatena Dati = RaccogliCatena(Nota, Tipo);
    const AccontiDetratti Acconti = AccontiFatturati(Nota, Tipo);
    const SommeAcconti Propri = SommaAcconti(Acconti.Propri);
    const SommeAcconti Altri = SommaAcconti(Acconti.Altri);
    Dati.Acconti = {Propri.AccontiCorrispettivi + Altri.AccontiCorrispettivi,
                    Propri.AccontiSpeseImp + Altri.AccontiSpeseImp,
                    Propri.AccontiSpeseEsenti + Altri.AccontiSpeseEsenti};
    return Dati;
}

QString FraseAccontiDopo(const Parcella& Nota, int Tipo, double Fattura)
{
    const AccontiDetratti Tolti = AccontiDelDocumento(Nota, Tipo);
    const double Carta = CatenaFiscale(Nota, Tipo).Totale;
    const auto Frase = [&](const QString& Detta) {
        return Detta.arg(TestoImporto(Fattura), TestoImporto(Carta));
    };
    if (Tolti.Propri.Vuota() && Tolti.Altri.Vuota())
        return Frase(
            u"La fattura è di %1 euro, tolti gli acconti con cui è uscita, e resta tale, ma la carta "
            u"stampata ora non li toglie e dice %2 euro."_s);
    if (Carta > Fattura)
        return Frase(u"La fattura è di %1 euro e resta tale: ciò che è scritto dopo fra gli acconti non la "
                     u"cambia, ma la carta stampata ora lo conta e dice %2 euro."_s);
    return Frase(
        u"La fattura è di %1 euro e resta tale: gli acconti scritti dopo la pagano, ma la carta stampata "
        u"ora li toglie e dice %2 euro."_s);
}

QString FraseCreditoVuoto(double Totale)
{
    return u"Tolti gli acconti la nota di credito è di %1 euro: cancellare quelli che la fattura stornata "
           u"non "
           u"aveva detratto."_s.arg(FormatNum(Totale));
}
