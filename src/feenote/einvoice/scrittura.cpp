#include "feenote/einvoice/scrittura.h"

#include "core/modTrasmissioni.h"
#include "feenote/einvoice/codici.h"
#include "feenote/einvoice/controlli.h"
#include "feenote/einvoice/forma.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QXmlStreamWriter>

using namespace Qt::StringLiterals;

namespace {

/// Writes the elements of one document; an element without a text is left out.
class Penna
{
public:
    explicit Penna(QByteArray& Dove) : Xml(&Dove)
    {
        Xml.setAutoFormatting(true);
        Xml.setAutoFormattingIndent(2);
    }

    void Scrivi(const FatturaElettronica& Fattura)
    {
        Xml.writeStartDocument();
        Xml.writeNamespace(SpazioFattura.toString(), u"p"_s);
        Xml.writeStartElement(SpazioFattura.toString(), u"FatturaElettronica"_s);
        Xml.writeAttribute(u"versione"_s, Fattura.Formato);
        Gruppo(u"FatturaElettronicaHeader", [&] { Testata(Fattura); });
        Gruppo(u"FatturaElettronicaBody", [&] { Corpo(Fattura); });
        Xml.writeEndElement();
        Xml.writeEndDocument();
    }

private:
    void Testo(QStringView Nome, const QString& Valore)
    {
        if (!Valore.isEmpty())
            Xml.writeTextElement(Nome.toString(), Valore);
    }
    void Numero(QStringView Nome, double Valore) { Testo(Nome, FormatNum(Valore).replace(u',', u'.')); }
    void Data(QStringView Nome, const QDate& Valore) { Testo(Nome, Valore.toString(Qt::ISODate)); }
    void Ritenuta(bool Soggetta) { Testo(u"Ritenuta", Soggetta ? u"SI"_s : QString()); }
    template <class Contenuto>
    void Gruppo(QStringView Nome, Contenuto Scrivi)
    {
        Xml.writeStartElement(Nome.toString());
        Scrivi();
        Xml.writeEndElement();
    }

    void Codice(QStringView Nome, const IdFiscale& Valore)
    {
        Gruppo(Nome, [&] {
            Testo(u"IdPaese", Valore.Paese);
            Testo(u"IdCodice", Valore.Codice);
        });
    }

    void Testata(const FatturaElettronica& Fattura)
    {
        Gruppo(u"DatiTrasmissione", [&] {
            Codice(u"IdTrasmittente", Fattura.Trasmittente);
            Testo(u"ProgressivoInvio", Fattura.Progressivo);
            Testo(u"FormatoTrasmissione", Fattura.Formato);
            Testo(u"CodiceDestinatario", Fattura.CodiceDestinatario);
            Testo(u"PECDestinatario", Fattura.PecDestinatario);
        });
        Gruppo(u"CedentePrestatore", [&] {
            Parte(Fattura.Cedente, Fattura.Regime);
            if (!Fattura.EmailCedente.isEmpty())
                Gruppo(u"Contatti", [&] { Testo(u"Email", Fattura.EmailCedente); });
        });
        Gruppo(u"CessionarioCommittente", [&] { Parte(Fattura.Cessionario, {}); });
    }

    void Parte(const ParteFattura& Scritta, const QString& Regime)
    {
        Gruppo(u"DatiAnagrafici", [&] {
            if (Scritta.IdFiscaleIva)
                Codice(u"IdFiscaleIVA", *Scritta.IdFiscaleIva);
            Testo(u"CodiceFiscale", Scritta.CodiceFiscale);
            Gruppo(u"Anagrafica", [&] {
                Testo(u"Denominazione", Scritta.Denominazione);
                Testo(u"Nome", Scritta.Nome);
                Testo(u"Cognome", Scritta.Cognome);
            });
            Testo(u"RegimeFiscale", Regime);
        });
        const Sede& Luogo = Scritta.Indirizzo;
        Gruppo(u"Sede", [&] {
            Testo(u"Indirizzo", Luogo.Indirizzo);
            Testo(u"NumeroCivico", Luogo.NumeroCivico);
            Testo(u"CAP", Luogo.Cap);
            Testo(u"Comune", Luogo.Comune);
            Testo(u"Provincia", Luogo.Provincia);
            Testo(u"Nazione", Luogo.Nazione);
        });
    }

    void Corpo(const FatturaElettronica& Fattura)
    {
        Gruppo(u"DatiGenerali", [&] {
            Gruppo(u"DatiGeneraliDocumento", [&] { Generali(Fattura); });
            if (Fattura.Contratto)
                Citato(u"DatiContratto", *Fattura.Contratto);
            for (const DocumentoCitato& Citata : Fattura.Collegate)
                Citato(u"DatiFattureCollegate", Citata);
        });
        Gruppo(u"DatiBeniServizi", [&] {
            int Posto = 0;
            for (const LineaFattura& Linea : Fattura.Linee)
                ScriviLinea(++Posto, Linea);
            for (const RiepilogoFattura& Riepilogo : Fattura.Riepiloghi)
                ScriviRiepilogo(Riepilogo);
        });
        if (Fattura.Pagamento)
            Gruppo(u"DatiPagamento", [&] { ScriviPagamento(*Fattura.Pagamento); });
    }

    void Generali(const FatturaElettronica& Fattura)
    {
        Testo(u"TipoDocumento", Fattura.Tipo);
        Testo(u"Divisa", u"EUR"_s);
        Data(u"Data", Fattura.Data);
        Testo(u"Numero", Fattura.Numero);
        if (const auto& Ritenuta = Fattura.Ritenuta)
            Gruppo(u"DatiRitenuta", [&] {
                Testo(u"TipoRitenuta", Ritenuta->Tipo);
                Numero(u"ImportoRitenuta", Ritenuta->Importo);
                Numero(u"AliquotaRitenuta", Ritenuta->Aliquota);
                Testo(u"CausalePagamento", Ritenuta->Causale);
            });
        if (Fattura.Bollo > 0)
            Gruppo(u"DatiBollo", [&] {
                Testo(u"BolloVirtuale", u"SI"_s);
                Numero(u"ImportoBollo", Fattura.Bollo);
            });
        if (Fattura.Cassa)
            Gruppo(u"DatiCassaPrevidenziale", [&] { ScriviCassa(*Fattura.Cassa); });
        Numero(u"ImportoTotaleDocumento", Fattura.Totale);
        for (const QString& Causale : Fattura.Causali)
            Testo(u"Causale", Causale);
    }

    void ScriviCassa(const CassaFattura& Cassa)
    {
        Testo(u"TipoCassa", Cassa.Tipo);
        Numero(u"AlCassa", Cassa.Aliquota);
        Numero(u"ImportoContributoCassa", Cassa.Contributo);
        Numero(u"ImponibileCassa", Cassa.Imponibile);
        Numero(u"AliquotaIVA", Cassa.AliquotaIva);
        Ritenuta(Cassa.Ritenuta);
        Testo(u"Natura", Cassa.Natura);
    }

    void Citato(QStringView Nome, const DocumentoCitato& Documento)
    {
        Gruppo(Nome, [&] {
            Testo(u"IdDocumento", Documento.Numero);
            Data(u"Data", Documento.Data);
            Testo(u"CodiceCUP", Documento.Cup);
            Testo(u"CodiceCIG", Documento.Cig);
        });
    }

    void ScriviLinea(int Posto, const LineaFattura& Linea)
    {
        Gruppo(u"DettaglioLinee", [&] {
            Testo(u"NumeroLinea", QString::number(Posto));
            Testo(u"Descrizione", Linea.Descrizione);
            Numero(u"PrezzoUnitario", Linea.Importo);
            Numero(u"PrezzoTotale", Linea.Importo);
            Numero(u"AliquotaIVA", Linea.AliquotaIva);
            Ritenuta(Linea.Ritenuta);
            Testo(u"Natura", Linea.Natura);
        });
    }

    void ScriviRiepilogo(const RiepilogoFattura& Riepilogo)
    {
        Gruppo(u"DatiRiepilogo", [&] {
            Numero(u"AliquotaIVA", Riepilogo.AliquotaIva);
            Testo(u"Natura", Riepilogo.Natura);
            Numero(u"ImponibileImporto", Riepilogo.Imponibile);
            Numero(u"Imposta", Riepilogo.Imposta);
            Testo(u"EsigibilitaIVA", Riepilogo.Esigibilita);
            Testo(u"RiferimentoNormativo", Riepilogo.RiferimentoNormativo);
        });
    }

    void ScriviPagamento(const PagamentoFattura& Pagamento)
    {
        Testo(u"CondizioniPagamento", u"TP02"_s);
        Gruppo(u"DettaglioPagamento", [&] {
            Testo(u"ModalitaPagamento", Pagamento.Modalita);
            Data(u"DataScadenzaPagamento", Pagamento.Scadenza);
            Numero(u"ImportoPagamento", Pagamento.Importo);
            Testo(u"IBAN", Pagamento.Iban);
        });
    }

    QXmlStreamWriter Xml;
};

}  // namespace

QString ProgressivoFile(int Numero)
{
    if (Numero < 1 || Numero > UltimoProgTrasm)
        throw Errore(
            errori::Eccedenza,
            u"Il progressivo dei file delle fatture va da 1 a %1: %2"_s.arg(UltimoProgTrasm).arg(Numero));
    return TestoProgTrasm(Numero);
}

QString NomeFileFattura(const FatturaElettronica& Fattura)
{
    return Fattura.Trasmittente.Paese + Fattura.Trasmittente.Codice + u'_' + Fattura.Progressivo + u".xml"_s;
}

QByteArray XmlFattura(const FatturaElettronica& Fattura)
{
    QByteArray Byte;
    Penna(Byte).Scrivi(Fattura);
    return Byte;
}

void SalvaFattura(const QString& File, const FatturaElettronica& Fattura, const QDate& Oggi)
{
    const QByteArray Byte = XmlFattura(Fattura);
    // The name is the caller's: whoever keeps copies of files may call them as he likes.
    if (const QList<EsitoControllo> Esiti = ControllaFattura(Byte, {}, Oggi); !Esiti.isEmpty())
        throw Errore(NumeroFatturaRifiutata,
                     u"La fattura elettronica non supera i controlli: %1"_s.arg(TestoEsito(Esiti.first())));
    const QString Percorso = PercorsoNativo(File);
    if (!CreaFile(Percorso, Byte, Lettori::Cartella))
        throw Errore(errori::FilePresente, u"Il file %1 esiste già"_s.arg(NomeFile(Percorso)));
}
