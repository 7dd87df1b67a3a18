#include "feenote/einvoice/esame.h"

#include "platform/base/regionale.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

ImportoEsaminato LeggiImporto(const AlberoXml& Albero, int Nodo, QStringView Campo)
{
    return {Nodo, NumeroXml(Albero.Valore(Nodo, Campo)), NumeroXml(Albero.Valore(Nodo, u"AliquotaIVA")),
            Albero.Valore(Nodo, u"Natura"), Albero.Valore(Nodo, u"Ritenuta") == u"SI"};
}

RiepilogoEsaminato LeggiRiepilogo(const AlberoXml& Albero, int Nodo)
{
    const auto Numero = [&](QStringView Campo) { return NumeroXml(Albero.Valore(Nodo, Campo)); };
    return {Nodo,
            Numero(u"AliquotaIVA"),
            Albero.Valore(Nodo, u"Natura"),
            Numero(u"Arrotondamento"),
            Numero(u"ImponibileImporto"),
            Numero(u"Imposta"),
            Albero.Valore(Nodo, u"EsigibilitaIVA")};
}

CorpoEsaminato LeggiCorpo(const AlberoXml& Albero, int Nodo)
{
    CorpoEsaminato Corpo;
    Corpo.Nodo = Nodo;
    Corpo.Generali = Albero.Trova(Nodo, u"DatiGenerali/DatiGeneraliDocumento");
    Corpo.Tipo = Albero.Valore(Corpo.Generali, u"TipoDocumento");
    Corpo.Numero = Albero.Valore(Corpo.Generali, u"Numero");
    Corpo.Data = QDate::fromString(Albero.Valore(Corpo.Generali, u"Data").left(10), Qt::ISODate);
    for (const int Cassa : Albero.Figli(Corpo.Generali, u"DatiCassaPrevidenziale"))
        Corpo.Casse.push_back(LeggiImporto(Albero, Cassa, u"ImportoContributoCassa"));
    const int Beni = Albero.Trova(Nodo, u"DatiBeniServizi");
    for (const int Linea : Albero.Figli(Beni, u"DettaglioLinee"))
        Corpo.Linee.push_back(LeggiImporto(Albero, Linea, u"PrezzoTotale"));
    for (const int Riepilogo : Albero.Figli(Beni, u"DatiRiepilogo"))
        Corpo.Riepiloghi.push_back(LeggiRiepilogo(Albero, Riepilogo));
    return Corpo;
}

}  // namespace

Esame::Esame(const AlberoXml& DaVedere, const QDate& Giorno) : Albero(DaVedere), Oggi(Giorno)
{
    Testa = Albero.Trova(0, u"FatturaElettronicaHeader");
    for (const int Nodo : Albero.Figli(0, u"FatturaElettronicaBody"))
        Corpi.push_back(LeggiCorpo(Albero, Nodo));
}

void Esame::Comincia(QStringView Codice, GravitaControllo Gravita)
{
    CodiceCorrente = Codice.toString();
    GravitaCorrente = Gravita;
    Detti = 0;
}

void Esame::Segnala(int Nodo, const QString& Frase)
{
    if (++Detti > MassimoPerCodice)
        return;
    const bool Posto = Nodo != AlberoXml::Nessuno;
    Esiti.append({CodiceCorrente, GravitaCorrente, Frase, Posto ? Albero.PercorsoDi(Nodo) : QString(),
                  Posto ? Albero[Nodo].Linea : 0});
}

double NumeroXml(const QString& Testo)
{
    bool Letto = false;
    const double Numero = Testo.toDouble(&Letto);
    return Letto && std::isfinite(Numero) ? Numero : 0.0;
}

QString CifraDetta(double Importo)
{
    return FormatNum(Importo);
}
