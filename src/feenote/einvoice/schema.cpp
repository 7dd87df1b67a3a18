#include "feenote/einvoice/schema.h"

#include <algorithm>
#include <array>

namespace {

// ---- The groups, in the order of the schema.

constexpr std::array FatturaElettronicaType{
    ElementoSchema{u"FatturaElettronicaHeader", u"FatturaElettronicaHeaderType", Uno},
    ElementoSchema{u"FatturaElettronicaBody", u"FatturaElettronicaBodyType", UnoOPiu},
    ElementoSchema{u"Signature", u"ds:Signature", Facoltativo},
};
constexpr std::array FatturaElettronicaHeaderType{
    ElementoSchema{u"DatiTrasmissione", u"DatiTrasmissioneType", Uno},
    ElementoSchema{u"CedentePrestatore", u"CedentePrestatoreType", Uno},
    ElementoSchema{u"RappresentanteFiscale", u"RappresentanteFiscaleType", Facoltativo},
    ElementoSchema{u"CessionarioCommittente", u"CessionarioCommittenteType", Uno},
    ElementoSchema{u"TerzoIntermediarioOSoggettoEmittente", u"TerzoIntermediarioSoggettoEmittenteType",
                   Facoltativo},
    ElementoSchema{u"SoggettoEmittente", u"SoggettoEmittenteType", Facoltativo},
};
constexpr std::array FatturaElettronicaBodyType{
    ElementoSchema{u"DatiGenerali", u"DatiGeneraliType", Uno},
    ElementoSchema{u"DatiBeniServizi", u"DatiBeniServiziType", Uno},
    ElementoSchema{u"DatiVeicoli", u"DatiVeicoliType", Facoltativo},
    ElementoSchema{u"DatiPagamento", u"DatiPagamentoType", Molti},
    ElementoSchema{u"Allegati", u"AllegatiType", Molti},
};
constexpr std::array DatiTrasmissioneType{
    ElementoSchema{u"IdTrasmittente", u"IdFiscaleType", Uno},
    ElementoSchema{u"ProgressivoInvio", u"String10Type", Uno},
    ElementoSchema{u"FormatoTrasmissione", u"FormatoTrasmissioneType", Uno},
    ElementoSchema{u"CodiceDestinatario", u"CodiceDestinatarioType", Uno},
    ElementoSchema{u"ContattiTrasmittente", u"ContattiTrasmittenteType", Facoltativo},
    ElementoSchema{u"PECDestinatario", u"EmailType", Facoltativo},
};
constexpr std::array IdFiscaleType{
    ElementoSchema{u"IdPaese", u"NazioneType", Uno},
    ElementoSchema{u"IdCodice", u"CodiceType", Uno},
};
constexpr std::array ContattiTrasmittenteType{
    ElementoSchema{u"Telefono", u"TelFaxType", Facoltativo},
    ElementoSchema{u"Email", u"EmailContattiType", Facoltativo},
};
constexpr std::array DatiGeneraliType{
    ElementoSchema{u"DatiGeneraliDocumento", u"DatiGeneraliDocumentoType", Uno},
    ElementoSchema{u"DatiOrdineAcquisto", u"DatiDocumentiCorrelatiType", Molti},
    ElementoSchema{u"DatiContratto", u"DatiDocumentiCorrelatiType", Molti},
    ElementoSchema{u"DatiConvenzione", u"DatiDocumentiCorrelatiType", Molti},
    ElementoSchema{u"DatiRicezione", u"DatiDocumentiCorrelatiType", Molti},
    ElementoSchema{u"DatiFattureCollegate", u"DatiDocumentiCorrelatiType", Molti},
    ElementoSchema{u"DatiSAL", u"DatiSALType", Molti},
    ElementoSchema{u"DatiDDT", u"DatiDDTType", Molti},
    ElementoSchema{u"DatiTrasporto", u"DatiTrasportoType", Facoltativo},
    ElementoSchema{u"FatturaPrincipale", u"FatturaPrincipaleType", Facoltativo},
};
constexpr std::array DatiGeneraliDocumentoType{
    ElementoSchema{u"TipoDocumento", u"TipoDocumentoType", Uno},
    ElementoSchema{u"Divisa", u"DivisaType", Uno},
    ElementoSchema{u"Data", u"DataFatturaType", Uno},
    ElementoSchema{u"Numero", u"String20Type", Uno},
    ElementoSchema{u"DatiRitenuta", u"DatiRitenutaType", Molti},
    ElementoSchema{u"DatiBollo", u"DatiBolloType", Facoltativo},
    ElementoSchema{u"DatiCassaPrevidenziale", u"DatiCassaPrevidenzialeType", Molti},
    ElementoSchema{u"ScontoMaggiorazione", u"ScontoMaggiorazioneType", Molti},
    ElementoSchema{u"ImportoTotaleDocumento", u"Amount2DecimalType", Facoltativo},
    ElementoSchema{u"Arrotondamento", u"Amount2DecimalType", Facoltativo},
    ElementoSchema{u"Causale", u"String200LatinType", Molti},
    ElementoSchema{u"Art73", u"Art73Type", Facoltativo},
};
constexpr std::array DatiRitenutaType{
    ElementoSchema{u"TipoRitenuta", u"TipoRitenutaType", Uno},
    ElementoSchema{u"ImportoRitenuta", u"Amount2DecimalType", Uno},
    ElementoSchema{u"AliquotaRitenuta", u"RateType", Uno},
    ElementoSchema{u"CausalePagamento", u"CausalePagamentoType", Uno},
};
constexpr std::array DatiBolloType{
    ElementoSchema{u"BolloVirtuale", u"BolloVirtualeType", Uno},
    ElementoSchema{u"ImportoBollo", u"Amount2DecimalType", Facoltativo},
};
constexpr std::array DatiCassaPrevidenzialeType{
    ElementoSchema{u"TipoCassa", u"TipoCassaType", Uno},
    ElementoSchema{u"AlCassa", u"RateType", Uno},
    ElementoSchema{u"ImportoContributoCassa", u"Amount2DecimalType", Uno},
    ElementoSchema{u"ImponibileCassa", u"Amount2DecimalType", Facoltativo},
    ElementoSchema{u"AliquotaIVA", u"RateType", Uno},
    ElementoSchema{u"Ritenuta", u"RitenutaType", Facoltativo},
    ElementoSchema{u"Natura", u"NaturaType", Facoltativo},
    ElementoSchema{u"RiferimentoAmministrazione", u"String20Type", Facoltativo},
};
constexpr std::array ScontoMaggiorazioneType{
    ElementoSchema{u"Tipo", u"TipoScontoMaggiorazioneType", Uno},
    ElementoSchema{u"Percentuale", u"RateType", Facoltativo},
    ElementoSchema{u"Importo", u"Amount8DecimalType", Facoltativo},
};
constexpr std::array DatiSALType{
    ElementoSchema{u"RiferimentoFase", u"RiferimentoFaseType", Uno},
};
constexpr std::array DatiDocumentiCorrelatiType{
    ElementoSchema{u"RiferimentoNumeroLinea", u"RiferimentoNumeroLineaType", Molti},
    ElementoSchema{u"IdDocumento", u"String20Type", Uno},
    ElementoSchema{u"Data", u"xs:date", Facoltativo},
    ElementoSchema{u"NumItem", u"String20Type", Facoltativo},
    ElementoSchema{u"CodiceCommessaConvenzione", u"String100LatinType", Facoltativo},
    ElementoSchema{u"CodiceCUP", u"String15Type", Facoltativo},
    ElementoSchema{u"CodiceCIG", u"String15Type", Facoltativo},
};
constexpr std::array DatiDDTType{
    ElementoSchema{u"NumeroDDT", u"String20Type", Uno},
    ElementoSchema{u"DataDDT", u"xs:date", Uno},
    ElementoSchema{u"RiferimentoNumeroLinea", u"RiferimentoNumeroLineaType", Molti},
};
constexpr std::array DatiTrasportoType{
    ElementoSchema{u"DatiAnagraficiVettore", u"DatiAnagraficiVettoreType", Facoltativo},
    ElementoSchema{u"MezzoTrasporto", u"String80LatinType", Facoltativo},
    ElementoSchema{u"CausaleTrasporto", u"String100LatinType", Facoltativo},
    ElementoSchema{u"NumeroColli", u"NumeroColliType", Facoltativo},
    ElementoSchema{u"Descrizione", u"String100LatinType", Facoltativo},
    ElementoSchema{u"UnitaMisuraPeso", u"String10Type", Facoltativo},
    ElementoSchema{u"PesoLordo", u"PesoType", Facoltativo},
    ElementoSchema{u"PesoNetto", u"PesoType", Facoltativo},
    ElementoSchema{u"DataOraRitiro", u"xs:dateTime", Facoltativo},
    ElementoSchema{u"DataInizioTrasporto", u"xs:date", Facoltativo},
    ElementoSchema{u"TipoResa", u"TipoResaType", Facoltativo},
    ElementoSchema{u"IndirizzoResa", u"IndirizzoType", Facoltativo},
    ElementoSchema{u"DataOraConsegna", u"xs:dateTime", Facoltativo},
};
constexpr std::array IndirizzoType{
    ElementoSchema{u"Indirizzo", u"String60LatinType", Uno},
    ElementoSchema{u"NumeroCivico", u"NumeroCivicoType", Facoltativo},
    ElementoSchema{u"CAP", u"CAPType", Uno},
    ElementoSchema{u"Comune", u"String60LatinType", Uno},
    ElementoSchema{u"Provincia", u"ProvinciaType", Facoltativo},
    ElementoSchema{u"Nazione", u"NazioneType", Uno},
};
constexpr std::array FatturaPrincipaleType{
    ElementoSchema{u"NumeroFatturaPrincipale", u"String20Type", Uno},
    ElementoSchema{u"DataFatturaPrincipale", u"xs:date", Uno},
};
constexpr std::array CedentePrestatoreType{
    ElementoSchema{u"DatiAnagrafici", u"DatiAnagraficiCedenteType", Uno},
    ElementoSchema{u"Sede", u"IndirizzoType", Uno},
    ElementoSchema{u"StabileOrganizzazione", u"IndirizzoType", Facoltativo},
    ElementoSchema{u"IscrizioneREA", u"IscrizioneREAType", Facoltativo},
    ElementoSchema{u"Contatti", u"ContattiType", Facoltativo},
    ElementoSchema{u"RiferimentoAmministrazione", u"String20Type", Facoltativo},
};
constexpr std::array DatiAnagraficiCedenteType{
    ElementoSchema{u"IdFiscaleIVA", u"IdFiscaleType", Uno},
    ElementoSchema{u"CodiceFiscale", u"CodiceFiscaleType", Facoltativo},
    ElementoSchema{u"Anagrafica", u"AnagraficaType", Uno},
    ElementoSchema{u"AlboProfessionale", u"String60LatinType", Facoltativo},
    ElementoSchema{u"ProvinciaAlbo", u"ProvinciaType", Facoltativo},
    ElementoSchema{u"NumeroIscrizioneAlbo", u"String60Type", Facoltativo},
    ElementoSchema{u"DataIscrizioneAlbo", u"xs:date", Facoltativo},
    ElementoSchema{u"RegimeFiscale", u"RegimeFiscaleType", Uno},
};
constexpr std::array AnagraficaType{
    ElementoSchema{u"Denominazione", u"String80LatinType", Uno, 1},
    ElementoSchema{u"Nome", u"String60LatinType", Uno, 2},
    ElementoSchema{u"Cognome", u"String60LatinType", Uno, 2},
    ElementoSchema{u"Titolo", u"TitoloType", Facoltativo},
    ElementoSchema{u"CodEORI", u"CodEORIType", Facoltativo},
};
constexpr std::array DatiAnagraficiVettoreType{
    ElementoSchema{u"IdFiscaleIVA", u"IdFiscaleType", Uno},
    ElementoSchema{u"CodiceFiscale", u"CodiceFiscaleType", Facoltativo},
    ElementoSchema{u"Anagrafica", u"AnagraficaType", Uno},
    ElementoSchema{u"NumeroLicenzaGuida", u"String20Type", Facoltativo},
};
constexpr std::array IscrizioneREAType{
    ElementoSchema{u"Ufficio", u"ProvinciaType", Uno},
    ElementoSchema{u"NumeroREA", u"String20Type", Uno},
    ElementoSchema{u"CapitaleSociale", u"Amount2DecimalType", Facoltativo},
    ElementoSchema{u"SocioUnico", u"SocioUnicoType", Facoltativo},
    ElementoSchema{u"StatoLiquidazione", u"StatoLiquidazioneType", Uno},
};
constexpr std::array ContattiType{
    ElementoSchema{u"Telefono", u"TelFaxType", Facoltativo},
    ElementoSchema{u"Fax", u"TelFaxType", Facoltativo},
    ElementoSchema{u"Email", u"EmailContattiType", Facoltativo},
};
constexpr std::array RappresentanteFiscaleType{
    ElementoSchema{u"DatiAnagrafici", u"DatiAnagraficiRappresentanteType", Uno},
};
constexpr std::array DatiAnagraficiRappresentanteType{
    ElementoSchema{u"IdFiscaleIVA", u"IdFiscaleType", Uno},
    ElementoSchema{u"CodiceFiscale", u"CodiceFiscaleType", Facoltativo},
    ElementoSchema{u"Anagrafica", u"AnagraficaType", Uno},
};
constexpr std::array CessionarioCommittenteType{
    ElementoSchema{u"DatiAnagrafici", u"DatiAnagraficiCessionarioType", Uno},
    ElementoSchema{u"Sede", u"IndirizzoType", Uno},
    ElementoSchema{u"StabileOrganizzazione", u"IndirizzoType", Facoltativo},
    ElementoSchema{u"RappresentanteFiscale", u"RappresentanteFiscaleCessionarioType", Facoltativo},
};
constexpr std::array RappresentanteFiscaleCessionarioType{
    ElementoSchema{u"IdFiscaleIVA", u"IdFiscaleType", Uno},
    ElementoSchema{u"Denominazione", u"String80LatinType", Uno, 1},
    ElementoSchema{u"Nome", u"String60LatinType", Uno, 2},
    ElementoSchema{u"Cognome", u"String60LatinType", Uno, 2},
};
constexpr std::array DatiAnagraficiCessionarioType{
    ElementoSchema{u"IdFiscaleIVA", u"IdFiscaleType", Facoltativo},
    ElementoSchema{u"CodiceFiscale", u"CodiceFiscaleType", Facoltativo},
    ElementoSchema{u"Anagrafica", u"AnagraficaType", Uno},
};
constexpr std::array DatiBeniServiziType{
    ElementoSchema{u"DettaglioLinee", u"DettaglioLineeType", UnoOPiu},
    ElementoSchema{u"DatiRiepilogo", u"DatiRiepilogoType", UnoOPiu},
};
constexpr std::array DatiVeicoliType{
    ElementoSchema{u"Data", u"xs:date", Uno},
    ElementoSchema{u"TotalePercorso", u"String15Type", Uno},
};
constexpr std::array DatiPagamentoType{
    ElementoSchema{u"CondizioniPagamento", u"CondizioniPagamentoType", Uno},
    ElementoSchema{u"DettaglioPagamento", u"DettaglioPagamentoType", UnoOPiu},
};
constexpr std::array DettaglioPagamentoType{
    ElementoSchema{u"Beneficiario", u"String200LatinType", Facoltativo},
    ElementoSchema{u"ModalitaPagamento", u"ModalitaPagamentoType", Uno},
    ElementoSchema{u"DataRiferimentoTerminiPagamento", u"xs:date", Facoltativo},
    ElementoSchema{u"GiorniTerminiPagamento", u"GiorniTerminePagamentoType", Facoltativo},
    ElementoSchema{u"DataScadenzaPagamento", u"xs:date", Facoltativo},
    ElementoSchema{u"ImportoPagamento", u"Amount2DecimalType", Uno},
    ElementoSchema{u"CodUfficioPostale", u"String20Type", Facoltativo},
    ElementoSchema{u"CognomeQuietanzante", u"String60LatinType", Facoltativo},
    ElementoSchema{u"NomeQuietanzante", u"String60LatinType", Facoltativo},
    ElementoSchema{u"CFQuietanzante", u"CodiceFiscalePFType", Facoltativo},
    ElementoSchema{u"TitoloQuietanzante", u"TitoloType", Facoltativo},
    ElementoSchema{u"IstitutoFinanziario", u"String80LatinType", Facoltativo},
    ElementoSchema{u"IBAN", u"IBANType", Facoltativo},
    ElementoSchema{u"ABI", u"ABIType", Facoltativo},
    ElementoSchema{u"CAB", u"CABType", Facoltativo},
    ElementoSchema{u"BIC", u"BICType", Facoltativo},
    ElementoSchema{u"ScontoPagamentoAnticipato", u"Amount2DecimalType", Facoltativo},
    ElementoSchema{u"DataLimitePagamentoAnticipato", u"xs:date", Facoltativo},
    ElementoSchema{u"PenalitaPagamentiRitardati", u"Amount2DecimalType", Facoltativo},
    ElementoSchema{u"DataDecorrenzaPenale", u"xs:date", Facoltativo},
    ElementoSchema{u"CodicePagamento", u"String60Type", Facoltativo},
};
constexpr std::array TerzoIntermediarioSoggettoEmittenteType{
    ElementoSchema{u"DatiAnagrafici", u"DatiAnagraficiTerzoIntermediarioType", Uno},
};
constexpr std::array DatiAnagraficiTerzoIntermediarioType{
    ElementoSchema{u"IdFiscaleIVA", u"IdFiscaleType", Facoltativo},
    ElementoSchema{u"CodiceFiscale", u"CodiceFiscaleType", Facoltativo},
    ElementoSchema{u"Anagrafica", u"AnagraficaType", Uno},
};
constexpr std::array AllegatiType{
    ElementoSchema{u"NomeAttachment", u"String60LatinType", Uno},
    ElementoSchema{u"AlgoritmoCompressione", u"String10Type", Facoltativo},
    ElementoSchema{u"FormatoAttachment", u"String10Type", Facoltativo},
    ElementoSchema{u"DescrizioneAttachment", u"String100LatinType", Facoltativo},
    ElementoSchema{u"Attachment", u"xs:base64Binary", Uno},
};
constexpr std::array DettaglioLineeType{
    ElementoSchema{u"NumeroLinea", u"NumeroLineaType", Uno},
    ElementoSchema{u"TipoCessionePrestazione", u"TipoCessionePrestazioneType", Facoltativo},
    ElementoSchema{u"CodiceArticolo", u"CodiceArticoloType", Molti},
    ElementoSchema{u"Descrizione", u"String1000LatinType", Uno},
    ElementoSchema{u"Quantita", u"QuantitaType", Facoltativo},
    ElementoSchema{u"UnitaMisura", u"String10Type", Facoltativo},
    ElementoSchema{u"DataInizioPeriodo", u"xs:date", Facoltativo},
    ElementoSchema{u"DataFinePeriodo", u"xs:date", Facoltativo},
    ElementoSchema{u"PrezzoUnitario", u"Amount8DecimalType", Uno},
    ElementoSchema{u"ScontoMaggiorazione", u"ScontoMaggiorazioneType", Molti},
    ElementoSchema{u"PrezzoTotale", u"Amount8DecimalType", Uno},
    ElementoSchema{u"AliquotaIVA", u"RateType", Uno},
    ElementoSchema{u"Ritenuta", u"RitenutaType", Facoltativo},
    ElementoSchema{u"Natura", u"NaturaType", Facoltativo},
    ElementoSchema{u"RiferimentoAmministrazione", u"String20Type", Facoltativo},
    ElementoSchema{u"AltriDatiGestionali", u"AltriDatiGestionaliType", Molti},
};
constexpr std::array CodiceArticoloType{
    ElementoSchema{u"CodiceTipo", u"String35Type", Uno},
    ElementoSchema{u"CodiceValore", u"String35LatinExtType", Uno},
};
constexpr std::array AltriDatiGestionaliType{
    ElementoSchema{u"TipoDato", u"String10Type", Uno},
    ElementoSchema{u"RiferimentoTesto", u"String60LatinType", Facoltativo},
    ElementoSchema{u"RiferimentoNumero", u"Amount8DecimalType", Facoltativo},
    ElementoSchema{u"RiferimentoData", u"xs:date", Facoltativo},
};
constexpr std::array DatiRiepilogoType{
    ElementoSchema{u"AliquotaIVA", u"RateType", Uno},
    ElementoSchema{u"Natura", u"NaturaType", Facoltativo},
    ElementoSchema{u"SpeseAccessorie", u"Amount2DecimalType", Facoltativo},
    ElementoSchema{u"Arrotondamento", u"Amount8DecimalType", Facoltativo},
    ElementoSchema{u"ImponibileImporto", u"Amount2DecimalType", Uno},
    ElementoSchema{u"Imposta", u"Amount2DecimalType", Uno},
    ElementoSchema{u"EsigibilitaIVA", u"EsigibilitaIVAType", Facoltativo},
    ElementoSchema{u"RiferimentoNormativo", u"String100LatinType", Facoltativo},
};

constexpr std::array Complessi{
    TipoComplesso{u"FatturaElettronicaType", FatturaElettronicaType},
    TipoComplesso{u"FatturaElettronicaHeaderType", FatturaElettronicaHeaderType},
    TipoComplesso{u"FatturaElettronicaBodyType", FatturaElettronicaBodyType},
    TipoComplesso{u"DatiTrasmissioneType", DatiTrasmissioneType},
    TipoComplesso{u"IdFiscaleType", IdFiscaleType},
    TipoComplesso{u"ContattiTrasmittenteType", ContattiTrasmittenteType},
    TipoComplesso{u"DatiGeneraliType", DatiGeneraliType},
    TipoComplesso{u"DatiGeneraliDocumentoType", DatiGeneraliDocumentoType},
    TipoComplesso{u"DatiRitenutaType", DatiRitenutaType},
    TipoComplesso{u"DatiBolloType", DatiBolloType},
    TipoComplesso{u"DatiCassaPrevidenzialeType", DatiCassaPrevidenzialeType},
    TipoComplesso{u"ScontoMaggiorazioneType", ScontoMaggiorazioneType},
    TipoComplesso{u"DatiSALType", DatiSALType},
    TipoComplesso{u"DatiDocumentiCorrelatiType", DatiDocumentiCorrelatiType},
    TipoComplesso{u"DatiDDTType", DatiDDTType},
    TipoComplesso{u"DatiTrasportoType", DatiTrasportoType},
    TipoComplesso{u"IndirizzoType", IndirizzoType},
    TipoComplesso{u"FatturaPrincipaleType", FatturaPrincipaleType},
    TipoComplesso{u"CedentePrestatoreType", CedentePrestatoreType},
    TipoComplesso{u"DatiAnagraficiCedenteType", DatiAnagraficiCedenteType},
    TipoComplesso{u"AnagraficaType", AnagraficaType},
    TipoComplesso{u"DatiAnagraficiVettoreType", DatiAnagraficiVettoreType},
    TipoComplesso{u"IscrizioneREAType", IscrizioneREAType},
    TipoComplesso{u"ContattiType", ContattiType},
    TipoComplesso{u"RappresentanteFiscaleType", RappresentanteFiscaleType},
    TipoComplesso{u"DatiAnagraficiRappresentanteType", DatiAnagraficiRappresentanteType},
    TipoComplesso{u"CessionarioCommittenteType", CessionarioCommittenteType},
    TipoComplesso{u"RappresentanteFiscaleCessionarioType", RappresentanteFiscaleCessionarioType},
    TipoComplesso{u"DatiAnagraficiCessionarioType", DatiAnagraficiCessionarioType},
    TipoComplesso{u"DatiBeniServiziType", DatiBeniServiziType},
    TipoComplesso{u"DatiVeicoliType", DatiVeicoliType},
    TipoComplesso{u"DatiPagamentoType", DatiPagamentoType},
    TipoComplesso{u"DettaglioPagamentoType", DettaglioPagamentoType},
    TipoComplesso{u"TerzoIntermediarioSoggettoEmittenteType", TerzoIntermediarioSoggettoEmittenteType},
    TipoComplesso{u"DatiAnagraficiTerzoIntermediarioType", DatiAnagraficiTerzoIntermediarioType},
    TipoComplesso{u"AllegatiType", AllegatiType},
    TipoComplesso{u"DettaglioLineeType", DettaglioLineeType},
    TipoComplesso{u"CodiceArticoloType", CodiceArticoloType},
    TipoComplesso{u"AltriDatiGestionaliType", AltriDatiGestionaliType},
    TipoComplesso{u"DatiRiepilogoType", DatiRiepilogoType},
};

}  // namespace

std::span<const TipoComplesso> TipiComplessi()
{
    return Complessi;
}

const TipoComplesso* TipoComplessoDi(QStringView Nome)
{
    const auto Tipo = std::ranges::find(Complessi, Nome, &TipoComplesso::Nome);
    return Tipo == Complessi.end() ? nullptr : &*Tipo;
}
