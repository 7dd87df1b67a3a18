#include "feenote/file/memoriastato.h"

#include "feenote/modStato.h"

#include <QDate>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QString VoceStato = u"Stato"_s;
const QString VocePrima = u"Stato.Prima"_s;
const QString VoceDocumento = u"Stato.Documento"_s;
const QString VoceEmessa = u"Stato.Emessa"_s;
const QString VoceStorno = u"Stato.Storno"_s;
const QString VoceImporti = u"Stato.Importi"_s;
const QString VoceNumero = u"txtDatiPar.Numero"_s;
const QString VoceData = u"txtDatiPar.Data"_s;
const QString VoceScadenza = u"FatturaXml.Scadenza"_s;
const QString VoceCitataNumero = u"FatturaXml.CitataNumero"_s;
const QString VoceCitataData = u"FatturaXml.CitataData"_s;

/// Beyond it an amount is none of a note's.
constexpr double MassimoImporto = 1e18;
/// The same for a list, which sums: a cell of a note ends below a thousand billions, and larger figures would
/// take the cents of the other notes.
constexpr double MassimoInElenco = 1e13;
/// The figures of the document, the payments that it has taken away, what is left of it.
constexpr qsizetype QuantiImporti = 10;

QString VoceGiorno(StatoNota Stato)
{
    return u"Stato.Dal."_s + NomeStato(Stato);
}

/// A day as ScriviStato has written it; empty for any other text. Ten thousand notes are listed at once: no
/// pattern is looked at.
QString GiornoBuono(const QString& Testo)
{
    constexpr qsizetype Lungo = 10;  // dd/mm/yyyy
    if (Testo.size() != Lungo || Testo[2] != u'/' || Testo[5] != u'/')
        return {};
    const QStringView Tutto(Testo);
    std::array<bool, 3> Cifre{};
    const bool Valido = QDate::isValid(Tutto.mid(6).toInt(&Cifre[2]), Tutto.mid(3, 2).toInt(&Cifre[1]),
                                       Tutto.left(2).toInt(&Cifre[0]));
    return Valido && Cifre[0] && Cifre[1] && Cifre[2] ? Testo : QString();
}

StatoNota LeggiNome(const MemoriaFile& Memoria, const QString& Voce)
{
    return StatoDelNome(Memoria.value(Voce)).value_or(StatoNota::Ignoto);
}

int LeggiDocumento(const MemoriaFile& Memoria)
{
    bool Numero = false;
    const int Tipo = Memoria.value(VoceDocumento).toInt(&Numero);
    return Numero && ETipoStampa(Tipo) ? Tipo : -1;
}

struct ImportiLetti
{
    ImportiDocumento Importi;
    double Resto = 0.0;
};

QString Scritti(const ImportiDocumento& Importi, double Resto)
{
    QStringList Testi;
    for (const double Uno :
         {Importi.Imponibile, Importi.CP, Importi.IVA, Importi.Totale, Importi.RA, Importi.Netto,
          Importi.AccCorrispettivi, Importi.AccSpeseImp, Importi.AccSpeseEsenti, Resto})
        Testi += QString::number(Uno, 'f', 2);
    return Testi.join(u';');
}

std::optional<ImportiLetti> LeggiImporti(const QString& Testo, double Massimo)
{
    const QStringList Parti = Testo.split(u';');
    if (Parti.size() != QuantiImporti)
        return std::nullopt;
    std::array<double, size_t(QuantiImporti)> Valori{};
    for (qsizetype i = 0; i < QuantiImporti; ++i) {
        bool Numero = false;
        const double Valore = Parti[i].toDouble(&Numero);
        if (!Numero || !std::isfinite(Valore) || std::abs(Valore) > Massimo)
            return std::nullopt;
        Valori[size_t(i)] = Valore;
    }
    const auto& [Imponibile, CP, IVA, Totale, RA, Netto, Corrispettivi, SpeseImp, SpeseEsenti, Resto] =
        Valori;
    if (Resto < 0)
        return std::nullopt;
    return ImportiLetti{{Imponibile, CP, IVA, Totale, RA, Netto, Corrispettivi, SpeseImp, SpeseEsenti},
                        Resto};
}

}  // namespace

const QStringList& VociStatoLetto()
{
    static const QStringList Voci = [] {
        QStringList Tutte{VoceStato, VoceDocumento, VoceStorno,       VoceImporti,   VoceNumero,
                          VoceData,  VoceScadenza,  VoceCitataNumero, VoceCitataData};
        for (const StatoNota Stato : StatiNota)
            Tutte += VoceGiorno(Stato);
        return Tutte;
    }();
    return Voci;
}

StatoLetto LeggiStatoLetto(const MemoriaFile& Memoria)
{
    StatoLetto Letto;
    Letto.Stato = LeggiNome(Memoria, VoceStato);
    Letto.Documento = LeggiDocumento(Memoria);
    Letto.Storno = Letto.Documento >= 0 && Memoria.value(VoceStorno) == u"1";
    if (Letto.Stato != StatoNota::Ignoto)
        Letto.Dal = GiornoBuono(Memoria.value(VoceGiorno(Letto.Stato)));
    if (const auto Importi = LeggiImporti(Memoria.value(VoceImporti), MassimoInElenco)) {
        Letto.Importi = Importi->Importi;
        Letto.Resto = Importi->Resto;
    }
    Letto.Numero = Memoria.value(VoceNumero).simplified();
    Letto.Data = Memoria.value(VoceData).simplified();
    Letto.Scadenza = Memoria.value(VoceScadenza).simplified();
    if (Letto.Storno) {
        Letto.CitataNumero = Memoria.value(VoceCitataNumero).simplified();
        Letto.CitataData = Memoria.value(VoceCitataData).simplified();
    }
    return Letto;
}

void ScriviStato(const Parcella& Nota, MemoriaFile& Memoria)
{
    const StatoTenuto Tenuto = SoloBozza(Nota.Stato);
    const auto Metti = [&](const QString& Voce, const QString& Valore) {
        Memoria.remove(Voce);
        if (!Valore.isEmpty())
            Memoria[Voce] = Valore;
    };
    Metti(VoceStato, NomeStato(Tenuto.Stato));
    if (Tenuto.Prima)
        Metti(VocePrima, *Tenuto.Prima == StatoNota::Ignoto ? u"-"_s : NomeStato(*Tenuto.Prima));
    else
        Memoria.remove(VocePrima);
    Metti(VoceDocumento, Tenuto.Documento >= 0 ? QString::number(Tenuto.Documento) : QString());
    Metti(VoceEmessa, Tenuto.Emessa ? u"1"_s : QString());
    Metti(VoceStorno, Tenuto.Storno ? u"1"_s : QString());
    for (const StatoNota Stato : StatiNota)
        Metti(VoceGiorno(Stato), Tenuto.Giorni[size_t(Stato)]);
    Metti(VoceImporti, Scritti(ImportiDellaNota(Nota), RestoDellaNota(Nota)));
}

void LeggiStato(Parcella& Nota, const MemoriaFile& Memoria)
{
    StatoTenuto Tenuto;
    Tenuto.Stato = LeggiNome(Memoria, VoceStato);
    Tenuto.Documento = LeggiDocumento(Memoria);
    Tenuto.Emessa = Tenuto.Documento >= 0 && Memoria.value(VoceEmessa) == u"1";
    Tenuto.Storno = Tenuto.Documento >= 0 && Memoria.value(VoceStorno) == u"1";
    for (const StatoNota Stato : StatiNota)
        Tenuto.Giorni[size_t(Stato)] = GiornoBuono(Memoria.value(VoceGiorno(Stato)));
    // Payments that covered the net of a note without a state leave it without one again.
    if (Tenuto.Stato == StatoNota::Pagata && Memoria.contains(VocePrima))
        Tenuto.Prima = LeggiNome(Memoria, VocePrima);
    if (Tenuto.Documento >= 0)
        if (const auto Importi = LeggiImporti(Memoria.value(VoceImporti), MassimoImporto))
            Tenuto.Importi = Importi->Importi;
    Nota.Stato = SoloBozza(Tenuto);
}

bool EVoceDiStato(const QString& Nome)
{
    return Nome == VocePrima || Nome == VoceEmessa ||
           (Nome.startsWith(VoceStato) && VociStatoLetto().contains(Nome));
}
