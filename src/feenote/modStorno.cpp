#include "feenote/modStorno.h"

#include "core/modTesti.h"
#include "feenote/codicifattura.h"
#include "feenote/modAcconti.h"
#include "feenote/modNumeraFattura.h"
#include "platform/base/regionale.h"

#include <algorithm>
#include <array>
#include <cmath>
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
    return NumeroSenzaAnno(Numero, *Giorno) + u'|' + Giorno->toString(Qt::ISODate);
}

/// What the invoice had taken away that a credit note of this file takes back: the one that it cites, else
/// the document before it, where that is an invoice.
std::optional<Centesimi> DetrattiDallaFattura(const Parcella& Nota)
{
    const StatoTenuto& Tenuto = Nota.Stato;
    if (!Tenuto.Importi || Tenuto.Stato == StatoNota::Bozza)
        return std::nullopt;
    QList<DocumentoEmesso> Usciti = Tenuto.Emessi;
    if (!Tenuto.Storno && Tenuto.Emessa && Tenuto.Stato >= StatoNota::Fatturata)
        Usciti.append(
            {Tenuto.Documento, false, Tenuto.ConSocio, Tenuto.Numero, Tenuto.Data, *Tenuto.Importi});
    if (Usciti.isEmpty())
        return std::nullopt;
    const QString Citata = Firma(Nota.FatturaXml.CitataNumero, Nota.FatturaXml.CitataData);
    const auto Sua = std::ranges::find_if(Usciti, [&](const DocumentoEmesso& Uno) {
        return !Uno.Storno && !Citata.isEmpty() && Firma(Uno.Numero, Uno.Data) == Citata;
    });
    const DocumentoEmesso& Ripresa = Sua == Usciti.end() ? Usciti.last() : *Sua;
    if (Ripresa.Storno || !Ripresa.Guasto.isEmpty())
        return std::nullopt;
    const ImportiDocumento& Suoi = Ripresa.Importi;
    return InCentesimi({Suoi.AccCorrispettivi, Suoi.AccSpeseImp, Suoi.AccSpeseEsenti});
}

/// What of the payments listed makes the sums of those that the invoice had taken away.
AccontiDetratti ConSomme(const AccontiDetratti& Tutti, const Centesimi& Volute)
{
    const std::vector<Centesimi> Propri = SommeProgressive(Tutti.Propri);
    const std::vector<Centesimi> Altri = SommeProgressive(Tutti.Altri);
    // Payments are written one below the other: those of the invoice come first.
    for (size_t j = 0; j < Altri.size(); ++j)
        for (size_t i = 0; i < Propri.size(); ++i)
            if (Insieme(Propri[i], Altri[j]) == Volute)
                return {Prime(Tutti.Propri, i), Prime(Tutti.Altri, j)};
    // A payment that was taken out of the list is not taken away either: a credit note of a part would have
    // no other way to be more than nothing.
    const Centesimi Elencate = Insieme(Propri.back(), Altri.back());
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

}  // namespace

bool ENotaDiCredito(const Parcella& Nota)
{
    return Nota.FatturaXml.Tipo == codici::NotaDiCredito;
}

AccontiDetratti AccontiDelDocumento(const Parcella& Nota, int Tipo)
{
    const TipoDocumento& Documento = TipoDi(Tipo);
    if (Documento.Acconti == UsoAcconti::Mai ||
        (Documento.Acconti == UsoAcconti::SeEsposti && !Nota.chkAcconti.Attiva))
        return {};
    AccontiDetratti Tutti;
    Tutti.Propri = Nota.xAcconti;
    if (Nota.Multipla())
        Tutti.Altri = Nota.Multi.xAcconti;
    if (!Documento.EFattura || !ENotaDiCredito(Nota))
        return Tutti;
    const auto Volute = DetrattiDallaFattura(Nota);
    return Volute ? ConSomme(Tutti, *Volute) : Tutti;
}
