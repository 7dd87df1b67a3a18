// The checks of the exchange system on sums, rates and codes of each document.
#include "feenote/einvoice/regole.h"

#include "platform/base/regionale.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

using enum GravitaControllo;

/// Two amounts that differ by more than so much. Doubles of amounts of eleven digits have a rest behind their
/// eighth decimal.
bool Lontani(double Uno, double Altro, double Tolleranza)
{
    constexpr double RestoRelativo = 1e-14;
    const double Resto = std::max({1e-9, std::abs(Uno) * RestoRelativo, std::abs(Altro) * RestoRelativo});
    return std::abs(Uno - Altro) > Tolleranza + Resto;
}

/// Rate and reason together: what the sums of a document are kept by.
QString ChiaveDi(double Aliquota, const QString& Natura)
{
    return CifraDetta(Aliquota) + u' ' + Natura;
}

QString DettaChiave(double Aliquota, const QString& Natura)
{
    return Natura.isEmpty() ? u"l'aliquota %1%"_s.arg(CifraDetta(Aliquota)) : u"la natura %1"_s.arg(Natura);
}

void PerOgniImporto(const CorpoEsaminato& Corpo, const std::function<void(const ImportoEsaminato&)>& Fai)
{
    for (const ImportoEsaminato& Linea : Corpo.Linee)
        Fai(Linea);
    for (const ImportoEsaminato& Cassa : Corpo.Casse)
        Fai(Cassa);
}

// ---- rates and reasons

template <std::vector<ImportoEsaminato> CorpoEsaminato::*Dove>
void NaturaMancante(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi)
        for (const ImportoEsaminato& Voce : Corpo.*Dove)
            if (Voce.Aliquota == 0 && Voce.Natura.isEmpty())
                File.Segnala(Voce.Nodo, u"L'aliquota IVA è 0 e manca la natura."_s);
}

template <std::vector<ImportoEsaminato> CorpoEsaminato::*Dove>
void NaturaDiTroppo(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi)
        for (const ImportoEsaminato& Voce : Corpo.*Dove)
            if (Voce.Aliquota != 0 && !Voce.Natura.isEmpty())
                File.Segnala(Voce.Nodo, u"C'è la natura %1 e l'aliquota IVA non è 0."_s.arg(Voce.Natura));
}

void NaturaMancanteRiepilogo(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi)
        for (const RiepilogoEsaminato& Voce : Corpo.Riepiloghi)
            if (Voce.Aliquota == 0 && Voce.Natura.isEmpty())
                File.Segnala(Voce.Nodo, u"L'aliquota IVA del riepilogo è 0 e manca la natura."_s);
}

void NaturaDiTroppoRiepilogo(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi)
        for (const RiepilogoEsaminato& Voce : Corpo.Riepiloghi)
            if (Voce.Aliquota != 0 && !Voce.Natura.isEmpty())
                File.Segnala(Voce.Nodo,
                             u"Nel riepilogo c'è la natura %1 e l'aliquota IVA non è 0."_s.arg(Voce.Natura));
}

void AliquotaFrazionaria(Esame& File)
{
    const auto Guarda = [&](int Nodo, double Aliquota) {
        if (Aliquota > 0 && Aliquota < 1)
            File.Segnala(Nodo, u"L'aliquota IVA va scritta in percentuale: %1"_s.arg(CifraDetta(Aliquota)));
    };
    for (const CorpoEsaminato& Corpo : File.Corpi) {
        PerOgniImporto(Corpo, [&](const ImportoEsaminato& Voce) { Guarda(Voce.Nodo, Voce.Aliquota); });
        for (const RiepilogoEsaminato& Voce : Corpo.Riepiloghi)
            Guarda(Voce.Nodo, Voce.Aliquota);
    }
}

void NaturaGenerica(Esame& File)
{
    const QDate Dal(2021, 1, 1);
    const auto Guarda = [&](int Nodo, const QString& Natura) {
        if (Natura == u"N2" || Natura == u"N3" || Natura == u"N6")
            File.Segnala(Nodo, u"La natura %1 va distinta dal 2021: %1.1 e seguenti."_s.arg(Natura));
    };
    for (const CorpoEsaminato& Corpo : File.Corpi) {
        if (Corpo.Data < Dal)
            continue;
        PerOgniImporto(Corpo, [&](const ImportoEsaminato& Voce) { Guarda(Voce.Nodo, Voce.Natura); });
        for (const RiepilogoEsaminato& Voce : Corpo.Riepiloghi)
            Guarda(Voce.Nodo, Voce.Natura);
    }
}

// ---- withholding

template <std::vector<ImportoEsaminato> CorpoEsaminato::*Dove>
void RitenutaMancante(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi) {
        const bool Dichiarata = File.Albero.Trova(Corpo.Generali, u"DatiRitenuta") != AlberoXml::Nessuno;
        const auto Soggetta = std::ranges::find_if(Corpo.*Dove, &ImportoEsaminato::Ritenuta);
        if (!Dichiarata && Soggetta != (Corpo.*Dove).end())
            File.Segnala(Soggetta->Nodo,
                         u"C'è un importo soggetto a ritenuta e mancano i dati della ritenuta."_s);
    }
}

// ---- sums

void RiepilogoMancante(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi) {
        QSet<QString> Presenti;
        for (const RiepilogoEsaminato& Voce : Corpo.Riepiloghi)
            Presenti += CifraDetta(Voce.Aliquota);
        PerOgniImporto(Corpo, [&](const ImportoEsaminato& Voce) {
            if (Presenti.contains(CifraDetta(Voce.Aliquota)))
                return;
            Presenti += CifraDetta(Voce.Aliquota);
            File.Segnala(Voce.Nodo,
                         u"Manca il riepilogo per l'aliquota %1%."_s.arg(CifraDetta(Voce.Aliquota)));
        });
    }
}

void NaturaNonRiepilogata(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi) {
        QSet<QString> Presenti{QString()};
        for (const RiepilogoEsaminato& Voce : Corpo.Riepiloghi)
            Presenti += Voce.Natura;
        PerOgniImporto(Corpo, [&](const ImportoEsaminato& Voce) {
            if (Presenti.contains(Voce.Natura))
                return;
            Presenti += Voce.Natura;
            File.Segnala(Voce.Nodo, u"Manca il riepilogo per la natura %1."_s.arg(Voce.Natura));
        });
    }
}

void ImpostaDelRiepilogo(Esame& File)
{
    constexpr double Centesimo = 0.01;
    for (const CorpoEsaminato& Corpo : File.Corpi)
        for (const RiepilogoEsaminato& Voce : Corpo.Riepiloghi) {
            const double Attesa = Arrotonda2(Voce.Imponibile * Voce.Aliquota / 100);
            if (Lontani(Voce.Imposta, Attesa, Centesimo))
                File.Segnala(Voce.Nodo, u"L'imposta è %1, il %2% di %3 è %4."_s.arg(
                                            CifraDetta(Voce.Imposta), CifraDetta(Voce.Aliquota),
                                            CifraDetta(Voce.Imponibile), CifraDetta(Attesa)));
        }
}

void ImponibileDelRiepilogo(Esame& File)
{
    constexpr double UnEuro = 1.0;
    for (const CorpoEsaminato& Corpo : File.Corpi) {
        QHash<QString, double> Attesi;
        PerOgniImporto(Corpo, [&](const ImportoEsaminato& Voce) {
            Attesi[ChiaveDi(Voce.Aliquota, Voce.Natura)] += Voce.Importo;
        });
        // A rate may have several summaries, by the day on which its VAT is due.
        QHash<QString, double> Scritti;
        for (const RiepilogoEsaminato& Voce : Corpo.Riepiloghi)
            Scritti[ChiaveDi(Voce.Aliquota, Voce.Natura)] += Voce.Imponibile - Voce.Arrotondamento;
        for (const RiepilogoEsaminato& Voce : Corpo.Riepiloghi) {
            const QString Chiave = ChiaveDi(Voce.Aliquota, Voce.Natura);
            if (!Scritti.contains(Chiave))
                continue;
            const double Scritto = Scritti.take(Chiave);
            if (Lontani(Scritto, Attesi.value(Chiave), UnEuro))
                File.Segnala(Voce.Nodo, u"Per %1 l'imponibile è %2, righe e casse fanno %3."_s.arg(
                                            DettaChiave(Voce.Aliquota, Voce.Natura), CifraDetta(Scritto),
                                            CifraDetta(Attesi.value(Chiave))));
        }
    }
}

/// The price of a line with its discounts and increases, one after the other.
double PrezzoScontato(const AlberoXml& Albero, int Linea)
{
    double Prezzo = NumeroXml(Albero.Valore(Linea, u"PrezzoUnitario"));
    for (const int Nodo : Albero.Figli(Linea, u"ScontoMaggiorazione")) {
        const double Segno = Albero.Valore(Nodo, u"Tipo") == u"SC" ? -1.0 : 1.0;
        const QString Importo = Albero.Valore(Nodo, u"Importo");
        Prezzo += Segno * (Importo.isEmpty() ? Prezzo * NumeroXml(Albero.Valore(Nodo, u"Percentuale")) / 100
                                             : NumeroXml(Importo));
    }
    return Prezzo;
}

void PrezzoDellaLinea(Esame& File)
{
    constexpr double Centesimo = 0.01;
    for (const CorpoEsaminato& Corpo : File.Corpi)
        for (const ImportoEsaminato& Linea : Corpo.Linee) {
            const QString Quantita = File.Albero.Valore(Linea.Nodo, u"Quantita");
            const double Atteso =
                PrezzoScontato(File.Albero, Linea.Nodo) * (Quantita.isEmpty() ? 1.0 : NumeroXml(Quantita));
            if (Lontani(Linea.Importo, Atteso, Centesimo))
                File.Segnala(Linea.Nodo, u"Il prezzo totale è %1, prezzo e quantità danno %2."_s.arg(
                                             CifraDetta(Linea.Importo), CifraDetta(Atteso)));
        }
}

void TotaleDelDocumento(Esame& File)
{
    constexpr double Centesimo = 0.01;
    for (const CorpoEsaminato& Corpo : File.Corpi) {
        const QString Scritto = File.Albero.Valore(Corpo.Generali, u"ImportoTotaleDocumento");
        if (Scritto.isEmpty())
            continue;
        double Atteso = NumeroXml(File.Albero.Valore(Corpo.Generali, u"Arrotondamento"));
        for (const RiepilogoEsaminato& Voce : Corpo.Riepiloghi)
            Atteso += Voce.Imponibile + Voce.Imposta;
        if (Lontani(NumeroXml(Scritto), Atteso, Centesimo))
            File.Segnala(Corpo.Generali, u"Il totale del documento è %1, i riepiloghi fanno %2."_s.arg(
                                             CifraDetta(NumeroXml(Scritto)), CifraDetta(Atteso)));
    }
}

void ScissioneEInversione(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi)
        for (const RiepilogoEsaminato& Voce : Corpo.Riepiloghi)
            if (Voce.Esigibilita == u"S" && Voce.Natura.startsWith(u"N6"))
                File.Segnala(Voce.Nodo,
                             u"La scissione dei pagamenti non sta con la natura %1."_s.arg(Voce.Natura));
}

// ---- discounts that say nothing

void ScontiVuoti(Esame& File, const QList<int>& Sconti)
{
    for (const int Nodo : Sconti)
        if (File.Albero.Valore(Nodo, u"Percentuale").isEmpty() &&
            File.Albero.Valore(Nodo, u"Importo").isEmpty())
            File.Segnala(Nodo, u"Lo sconto non ha né percentuale né importo."_s);
}

void ScontoDelDocumento(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi)
        ScontiVuoti(File, File.Albero.Figli(Corpo.Generali, u"ScontoMaggiorazione"));
}

void ScontoDellaLinea(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi)
        for (const ImportoEsaminato& Linea : Corpo.Linee)
            ScontiVuoti(File, File.Albero.Figli(Linea.Nodo, u"ScontoMaggiorazione"));
}

constexpr std::array RegoleDegliImporti{
    RegolaSdi{u"00400", Rifiuto, NaturaMancante<&CorpoEsaminato::Linee>},
    RegolaSdi{u"00401", Rifiuto, NaturaDiTroppo<&CorpoEsaminato::Linee>},
    RegolaSdi{u"00411", Rifiuto, RitenutaMancante<&CorpoEsaminato::Linee>},
    RegolaSdi{u"00413", Rifiuto, NaturaMancante<&CorpoEsaminato::Casse>},
    RegolaSdi{u"00414", Rifiuto, NaturaDiTroppo<&CorpoEsaminato::Casse>},
    RegolaSdi{u"00415", Avviso, RitenutaMancante<&CorpoEsaminato::Casse>},
    RegolaSdi{u"00419", Avviso, RiepilogoMancante},
    RegolaSdi{u"00420", Avviso, ScissioneEInversione},
    RegolaSdi{u"00421", Avviso, ImpostaDelRiepilogo},
    RegolaSdi{u"00422", Avviso, ImponibileDelRiepilogo},
    RegolaSdi{u"00423", Rifiuto, PrezzoDellaLinea},
    RegolaSdi{u"00424", Rifiuto, AliquotaFrazionaria},
    RegolaSdi{u"00429", Avviso, NaturaMancanteRiepilogo},
    RegolaSdi{u"00430", Avviso, NaturaDiTroppoRiepilogo},
    RegolaSdi{u"00437", Avviso, ScontoDelDocumento},
    RegolaSdi{u"00438", Avviso, ScontoDellaLinea},
    RegolaSdi{u"00443", Avviso, RiepilogoMancante},
    RegolaSdi{u"00444", Avviso, NaturaNonRiepilogata},
    RegolaSdi{u"00445", Avviso, NaturaGenerica},
    RegolaSdi{u"", Avviso, TotaleDelDocumento},
};

}  // namespace

void RegoleImporti(Esame& File)
{
    for (const RegolaSdi& Regola : RegoleDegliImporti) {
        File.Comincia(Regola.Codice, Regola.Gravita);
        Regola.Esegui(File);
    }
}
