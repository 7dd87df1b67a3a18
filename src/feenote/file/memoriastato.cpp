#include "feenote/file/memoriastato.h"

#include "feenote/modStato.h"

#include <QDate>

#include <algorithm>
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
const QString VoceFattura = u"Stato.Fattura"_s;
const QString VoceConFile = u"Stato.ConFile"_s;
const QString VoceConSocio = u"Stato.ConSocio"_s;
const QString VoceSocio = u"Stato.Socio"_s;
const std::array VociEmessi{u"Stato.Emesso.1"_s, u"Stato.Emesso.2"_s, u"Stato.Emesso.3"_s,
                            u"Stato.Emesso.4"_s};
static_assert(VociEmessi.size() == size_t(MassimiEmessi));
const QString VoceCitata = u"Stato.Citata"_s;
const std::array VociCitate{u"Stato.Citata.1"_s, u"Stato.Citata.2"_s, u"Stato.Citata.3"_s,
                            u"Stato.Citata.4"_s};
static_assert(VociCitate.size() == VociEmessi.size());
/// Beside the entries: these end in the number, which may hold any sign.
const std::array VociDal{u"Stato.Dal.Emesso.1"_s, u"Stato.Dal.Emesso.2"_s, u"Stato.Dal.Emesso.3"_s,
                         u"Stato.Dal.Emesso.4"_s};
static_assert(VociDal.size() == VociEmessi.size());
/// What is left of one that the user has called paid: its entry has his word there.
const std::array VociResto{u"Stato.Resto.Emesso.1"_s, u"Stato.Resto.Emesso.2"_s, u"Stato.Resto.Emesso.3"_s,
                           u"Stato.Resto.Emesso.4"_s};
static_assert(VociResto.size() == VociEmessi.size());
const std::array VociDalPrima{u"Stato.DalPrima.Emesso.1"_s, u"Stato.DalPrima.Emesso.2"_s,
                              u"Stato.DalPrima.Emesso.3"_s, u"Stato.DalPrima.Emesso.4"_s};
static_assert(VociDalPrima.size() == VociEmessi.size());
const std::array VociConFile{u"Stato.ConFile.Emesso.1"_s, u"Stato.ConFile.Emesso.2"_s,
                             u"Stato.ConFile.Emesso.3"_s, u"Stato.ConFile.Emesso.4"_s};
static_assert(VociConFile.size() == VociEmessi.size());
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

/// As many amounts as there are parts, or nothing.
template <size_t Quanti>
std::optional<std::array<double, Quanti>> LeggiValori(const QList<QStringView>& Parti, double Massimo)
{
    if (Parti.size() != qsizetype(Quanti))
        return std::nullopt;
    std::array<double, Quanti> Valori{};
    for (size_t i = 0; i < Quanti; ++i) {
        bool Numero = false;
        const double Valore = Parti[qsizetype(i)].toDouble(&Numero);
        if (!Numero || !std::isfinite(Valore) || std::abs(Valore) > Massimo)
            return std::nullopt;
        Valori[i] = Valore;
    }
    return Valori;
}

std::optional<ImportiLetti> LeggiImporti(const QList<QStringView>& Parti, double Massimo)
{
    const auto Valori = LeggiValori<QuantiImporti>(Parti, Massimo);
    if (!Valori)
        return std::nullopt;
    const auto& [Imponibile, CP, IVA, Totale, RA, Netto, Corrispettivi, SpeseImp, SpeseEsenti, Resto] =
        *Valori;
    if (Resto < 0)
        return std::nullopt;
    return ImportiLetti{{Imponibile, CP, IVA, Totale, RA, Netto, Corrispettivi, SpeseImp, SpeseEsenti},
                        Resto};
}

std::optional<ImportiLetti> LeggiImporti(const QString& Testo, double Massimo)
{
    return LeggiImporti(QStringView(Testo).split(u';'), Massimo);
}

// ---- a document of both notes -----------------------------------------------------------------------

/// The mark, and what the document has taken away of the associated note's payments: "1|500.00|0.00|0.00".
QString MarcaSocio(bool ConSocio, const std::optional<AccontiTenuti>& Detti)
{
    if (!ConSocio)
        return u"0"_s;
    QString Testo = u"1"_s;
    if (Detti)
        for (const double Uno : {Detti->Corrispettivi, Detti->SpeseImp, Detti->SpeseEsenti})
            Testo += u'|' + QString::number(Uno, 'f', 2);
    return Testo;
}

bool EConSocio(QStringView Marca)
{
    return Marca == u"1" || Marca.startsWith(u"1|");
}

/// Nothing of a mark alone, as older versions have written it, nor of what cannot be read.
std::optional<AccontiTenuti> LeggiDetti(QStringView Marca)
{
    const auto Valori = LeggiValori<4>(Marca.split(u'|'), MassimoImporto);
    if (!Valori || !EConSocio(Marca))
        return std::nullopt;
    return AccontiTenuti{(*Valori)[1], (*Valori)[2], (*Valori)[3]};
}

// ---- number and day of what has gone out, what went before it ---------------------------------------

/// The number stands last: it may hold any sign, and a list cuts what is long.
QString Scritta(const QString& Numero, const QString& Data)
{
    return Numero.isEmpty() ? QString() : Data + u';' + Numero;
}

void LeggiFattura(const QString& Testo, QString& Numero, QString& Data)
{
    const qsizetype Fine = Testo.indexOf(u';');
    Data = Fine < 0 ? QString() : GiornoBuono(Testo.left(Fine));
    Numero = Fine < 0 ? QString() : Testo.mid(Fine + 1).simplified();
}

/// Second mark of a document: none for an invoice. One that the user has called paid has what was left of it
/// then in the place of what is left.
constexpr QStringView SegnoStorno = u"1";
constexpr QStringView SegnoPagata = u"2";

QString Scritto(const DocumentoEmesso& Emesso, double Resto)
{
    if (!Emesso.Guasto.isEmpty())
        return Emesso.Guasto;
    const bool AMano = Emesso.AMano > 0;
    return QStringList{QString::number(Emesso.Documento),
                       (Emesso.Storno ? SegnoStorno
                        : AMano       ? SegnoPagata
                                      : QStringView(u"0"))
                           .toString(),
                       MarcaSocio(Emesso.ConSocio, Emesso.Importi.DelSocio),
                       Scritti(Emesso.Importi, AMano ? Emesso.AMano : Resto),
                       Emesso.Data,
                       Emesso.Numero}
        .join(u';');
}

/// An entry that is damaged is a document none the less: whoever sums must know that something is missing.
EmessoLetto LeggiEmesso(const QString& Testo, double Massimo)
{
    constexpr qsizetype Prima = 3;  // document and two marks
    constexpr qsizetype Fissi = Prima + QuantiImporti;
    const QList<QStringView> Parti = QStringView(Testo).split(u';');
    EmessoLetto Letto;
    Letto.Che.Storno = Parti.value(1) == SegnoStorno;
    Letto.Che.ConSocio = EConSocio(Parti.value(2));
    const bool Intero = Parti.size() >= Fissi + 2;
    if (Intero) {
        Letto.Che.Data = GiornoBuono(Parti[Fissi].toString());
        Letto.Che.Numero = Testo.mid(Parti[Fissi + 1].data() - Testo.constData()).simplified();
    }
    bool Numero = false;
    const int Documento = Parti[0].toInt(&Numero);
    Letto.Che.Documento = Numero && ETipoStampa(Documento) ? Documento : -1;
    const auto Importi = Intero ? LeggiImporti(Parti.sliced(Prima, QuantiImporti), Massimo) : std::nullopt;
    Letto.Importi = Importi && Letto.Che.Documento >= 0;
    if (Letto.Importi) {
        Letto.Che.Importi = Importi->Importi;
        Letto.Che.Importi.DelSocio = LeggiDetti(Parti[2]);
        const bool AMano = Parti[1] == SegnoPagata;
        (AMano ? Letto.Che.AMano : Letto.Resto) = Importi->Resto;
    } else {
        Letto.Che.Guasto = Testo;
    }
    return Letto;
}

QList<EmessoLetto> LeggiEmessi(const MemoriaFile& Memoria, double Massimo)
{
    QList<EmessoLetto> Letti;
    for (size_t i = 0; i < VociEmessi.size(); ++i)
        if (const QString Testo = Memoria.value(VociEmessi[i]); !Testo.isEmpty()) {
            Letti.append(LeggiEmesso(Testo, Massimo));
            DocumentoEmesso& Che = Letti.last().Che;
            LeggiFattura(Memoria.value(VociCitate[i]), Che.CitataNumero, Che.CitataData);
            Che.Dal = GiornoBuono(Memoria.value(VociDal[i]));
            // A day that is not known is written as a line.
            if (const QString Prima = Memoria.value(VociDalPrima[i]); !Prima.isEmpty())
                Che.DalPrima = GiornoBuono(Prima);
            Che.ConFile = Memoria.value(VociConFile[i]) == u"1";
            if (Che.AMano > 0)
                if (const auto Resto = LeggiValori<1>({QStringView(Memoria.value(VociResto[i]))}, Massimo))
                    Letti.last().Resto = std::max(0.0, Resto->front());
        }
    return Letti;
}

// ---- the associated note ----------------------------------------------------------------------------

QString Scritto(const SocioTenuto& Socio)
{
    QStringList Testi;
    for (const double Uno : {Socio.Onorari, Socio.SpeseImp, Socio.SpeseEsenti, Socio.AccCorrispettivi,
                             Socio.AccSpeseImp, Socio.AccSpeseEsenti})
        Testi += QString::number(Uno, 'f', 2);
    return Testi.join(u';');
}

std::optional<SocioTenuto> LeggiSocio(const QString& Testo)
{
    const auto Valori = LeggiValori<6>(QStringView(Testo).split(u';'), MassimoImporto);
    if (!Valori)
        return std::nullopt;
    const auto& [Onorari, SpeseImp, SpeseEsenti, Corrispettivi, Imponibili, Esenti] = *Valori;
    return SocioTenuto{Onorari, SpeseImp, SpeseEsenti, Corrispettivi, Imponibili, Esenti};
}

}  // namespace

const QStringList& VociStatoLetto()
{
    static const QStringList Voci = [] {
        QStringList Tutte{VoceStato,    VoceDocumento,    VoceStorno,     VoceImporti, VoceNumero, VoceData,
                          VoceScadenza, VoceCitataNumero, VoceCitataData, VoceFattura, VoceCitata};
        for (const auto& DegliEmessi : {VociEmessi, VociCitate, VociDal, VociResto})
            for (const QString& Voce : DegliEmessi)
                Tutte += Voce;
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
    Letto.Storno = Memoria.value(VoceStorno) == u"1";
    if (Letto.Stato != StatoNota::Ignoto)
        Letto.Dal = GiornoBuono(Memoria.value(VoceGiorno(Letto.Stato)));
    if (Letto.Stato == StatoNota::Fatturata || Letto.Stato == StatoNota::Pagata)
        Letto.UscitoIl = GiornoBuono(Memoria.value(VoceGiorno(StatoNota::Fatturata)));
    if (Letto.Stato == StatoNota::Pagata)
        Letto.PagatoIl = Letto.Dal;
    if (const auto Importi = LeggiImporti(Memoria.value(VoceImporti), MassimoInElenco)) {
        Letto.Importi = Importi->Importi;
        Letto.Resto = Importi->Resto;
    }
    Letto.Numero = Memoria.value(VoceNumero).simplified();
    Letto.Data = Memoria.value(VoceData).simplified();
    Letto.Scadenza = Memoria.value(VoceScadenza).simplified();
    LeggiFattura(Memoria.value(VoceFattura), Letto.FatturaNumero, Letto.FatturaData);
    Letto.Emessi = LeggiEmessi(Memoria, MassimoInElenco);
    if (Letto.Storno)
        LeggiFattura(Memoria.value(VoceCitata), Letto.CitataNumero, Letto.CitataData);
    if (Letto.Storno && Letto.CitataNumero.isEmpty()) {
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
    const QList<double> Resti = RestiDellaNota(Nota);
    Metti(VoceImporti, Scritti(ImportiDellaNota(Nota), Resti.last()));
    Metti(VoceFattura, Scritta(Tenuto.Numero, Tenuto.Data));
    Metti(VoceCitata, Scritta(Tenuto.CitataNumero, Tenuto.CitataData));
    for (qsizetype i = 0; i < MassimiEmessi; ++i) {
        const DocumentoEmesso Uno = Tenuto.Emessi.value(i);
        const bool Vuota = i >= Tenuto.Emessi.size();
        Metti(VociEmessi[size_t(i)], Vuota ? QString() : Scritto(Uno, Resti.value(i)));
        Metti(VociCitate[size_t(i)], Scritta(Uno.CitataNumero, Uno.CitataData));
        Metti(VociDal[size_t(i)], Uno.Dal);
        const bool AMano = Uno.AMano > 0 && Uno.Guasto.isEmpty() && Resti.value(i) > 0;
        Metti(VociResto[size_t(i)], AMano ? QString::number(Resti.value(i), 'f', 2) : QString());
        const QString Prima = Uno.DalPrima.value_or(QString());
        Metti(VociDalPrima[size_t(i)], Uno.DalPrima && Prima.isEmpty() ? u"-"_s : Prima);
        Metti(VociConFile[size_t(i)], Uno.ConFile ? u"1"_s : QString());
    }
    const std::optional<SocioTenuto> Socio = SocioDellaNota(Nota);
    const std::optional<AccontiTenuti> Detti = Tenuto.Importi ? Tenuto.Importi->DelSocio : std::nullopt;
    Metti(VoceConFile, Tenuto.ConFile ? u"1"_s : QString());
    Metti(VoceConSocio, Tenuto.ConSocio ? MarcaSocio(true, Detti) : QString());
    Metti(VoceSocio, Socio ? Scritto(*Socio) : QString());
}

void LeggiStato(Parcella& Nota, const MemoriaFile& Memoria)
{
    StatoTenuto Tenuto;
    Tenuto.Stato = LeggiNome(Memoria, VoceStato);
    Tenuto.Documento = LeggiDocumento(Memoria);
    Tenuto.Emessa = Tenuto.Documento >= 0 && Memoria.value(VoceEmessa) == u"1";
    Tenuto.Storno = Memoria.value(VoceStorno) == u"1";
    for (const StatoNota Stato : StatiNota)
        Tenuto.Giorni[size_t(Stato)] = GiornoBuono(Memoria.value(VoceGiorno(Stato)));
    // Payments that covered the net of a note without a state leave it without one again.
    if (Tenuto.Stato == StatoNota::Pagata && Memoria.contains(VocePrima))
        Tenuto.Prima = LeggiNome(Memoria, VocePrima);
    if (Tenuto.Documento >= 0)
        if (const auto Importi = LeggiImporti(Memoria.value(VoceImporti), MassimoImporto))
            Tenuto.Importi = Importi->Importi;
    if (Tenuto.Importi) {
        LeggiFattura(Memoria.value(VoceFattura), Tenuto.Numero, Tenuto.Data);
        LeggiFattura(Memoria.value(VoceCitata), Tenuto.CitataNumero, Tenuto.CitataData);
        const QString Marca = Memoria.value(VoceConSocio);
        Tenuto.ConFile = Memoria.value(VoceConFile) == u"1";
        Tenuto.ConSocio = EConSocio(Marca);
        Tenuto.Importi->DelSocio = LeggiDetti(Marca);
        for (EmessoLetto& Letto : LeggiEmessi(Memoria, MassimoImporto))
            Tenuto.Emessi.append(std::move(Letto.Che));
    } else {
        // What the last document asked for is not known: those before it stay as they are written.
        for (EmessoLetto& Letto : LeggiEmessi(Memoria, MassimoImporto))
            Tenuto.Emessi.append(std::move(Letto.Che));
        qsizetype Posto = 0;
        for (const QString& Voce : VociEmessi)
            if (const QString Testo = Memoria.value(Voce); !Testo.isEmpty())
                Tenuto.Emessi[Posto++].Guasto = Testo;
    }
    if (const auto Socio = Memoria.constFind(VoceSocio); Socio != Memoria.constEnd())
        Tenuto.Socio = LeggiSocio(*Socio);
    Nota.Stato = SoloBozza(Tenuto);
}

const QStringList& VociDiStato()
{
    static const QStringList Voci = [] {
        QStringList Tutte{VocePrima, VoceEmessa, VoceConFile, VoceConSocio, VoceSocio};
        for (const auto& DegliEmessi : {VociConFile, VociDalPrima})
            for (const QString& Voce : DegliEmessi)
                Tutte += Voce;
        for (const QString& Nome : VociStatoLetto())
            if (Nome.startsWith(VoceStato))
                Tutte += Nome;
        return Tutte;
    }();
    return Voci;
}

bool EVoceDiStato(const QString& Nome)
{
    return VociDiStato().contains(Nome);
}
