// Notes of every kind as electronic invoices: sums, codes, and the paper that says the same.
#include "fattura_prova.h"

#include "print/modStampe.h"
#include "print/writers/scrittoretesto.h"

using namespace Qt::StringLiterals;
using namespace fattura_prova;

namespace {

/// One kind of invoice, with what its file must hold beside the sums.
struct Caso
{
    const char* Nome;
    Cifre Note;
    Cedente Studio;
    Cessionario Cliente;
    std::function<void(SceltaFattura&)> Cambia;
    QMap<QString, QStringList> Attesi;  ///< by the end of the path, all values in their order
    qint64 PagaDiMeno = 0;              ///< what the client does not pay to the office beside the withholding
    bool Paga = true;
};

Cifre Ordinaria()
{
    return {.Onorari = {100000}, .SpeseGen = 1500, .CP = 400, .IVA = 2200, .RA = 2000};
}

Cifre Forfettaria()
{
    return {.Onorari = {100000}, .SpeseGen = 1500, .CP = 400, .Agevolato = true};
}

Cifre Con(Cifre Base, const std::function<void(Cifre&)>& Cambia)
{
    Cambia(Base);
    return Base;
}

Cedente Associazione()
{
    Cedente Studio = Avvocato();
    Studio.Genere = GenereStudio::Associazione;
    Studio.CodiceFiscale.clear();
    Studio.Nome.clear();
    Studio.Cognome.clear();
    Studio.Denominazione = u"Studio legale associato Rossi"_s;
    return Studio;
}

QList<Caso> Casi()
{
    const auto Nulla = [](SceltaFattura&) {};
    QList<Caso> Tutti;
    // 1000 + 150 = 1150; fund 46; 22 % of 1196 = 263,12; total 1459,12; withholding 230; net 1229,12
    Tutti += {"ordinaria",
              Ordinaria(),
              Avvocato(),
              Societa(),
              Nulla,
              {{u"ImportoTotaleDocumento"_s, {u"1459.12"_s}},
               {u"ImportoPagamento"_s, {u"1229.12"_s}},
               {u"TipoRitenuta"_s, {u"RT01"_s}},
               {u"CausalePagamento"_s, {u"A"_s}},
               {u"AliquotaRitenuta"_s, {u"20.00"_s}},
               {u"ImportoRitenuta"_s, {u"230.00"_s}},
               {u"TipoCassa"_s, {u"TC01"_s}},
               {u"AlCassa"_s, {u"4.00"_s}},
               {u"ImponibileCassa"_s, {u"1150.00"_s}},
               {u"ImportoContributoCassa"_s, {u"46.00"_s}},
               {u"DatiCassaPrevidenziale/Ritenuta"_s, {}},
               {u"DettaglioLinee/Ritenuta"_s, {u"SI"_s, u"SI"_s}},
               {u"DettaglioLinee/Descrizione"_s, {u"Fase 1"_s, u"Spese generali 15%"_s}},
               {u"PrezzoTotale"_s, {u"1000.00"_s, u"150.00"_s}},
               {u"EsigibilitaIVA"_s, {u"I"_s}},
               {u"DatiBollo"_s, {}},
               {u"RegimeFiscale"_s, {u"RF01"_s}},
               {u"IdTrasmittente/IdCodice"_s, {u"RSSMRA80A01H501U"_s}},
               {u"CedentePrestatore/DatiAnagrafici/IdFiscaleIVA/IdCodice"_s, {u"01234567897"_s}},
               {u"CodiceDestinatario"_s, {u"ABC1234"_s}},
               {u"PECDestinatario"_s, {}},
               {u"DatiGeneraliDocumento/Numero"_s, {u"7/2026"_s}},
               {u"DatiGeneraliDocumento/Data"_s, {u"2026-01-15"_s}},
               {u"ProgressivoInvio"_s, {u"0000A"_s}},
               {u"ModalitaPagamento"_s, {u"MP05"_s}},
               {u"IBAN"_s, {u"IT60X0542811101000000123456"_s}},
               {u"Causale"_s, {u"Oggetto: Rossi contro Bianchi"_s}}}};
    Tutti += {"senza cassa", Con(Ordinaria(), [](Cifre& C) { C.CP = 0; }),
              Avvocato(),    Societa(),
              Nulla,         {{u"DatiCassaPrevidenziale"_s, {}}, {u"ImponibileImporto"_s, {u"1150.00"_s}}}};
    Tutti += {"senza ritenuta, persona",
              Con(Ordinaria(), [](Cifre& C) { C.RA = 0; }),
              Avvocato(),
              Persona(),
              Nulla,
              {{u"DatiRitenuta"_s, {}},
               {u"DettaglioLinee/Ritenuta"_s, {}},
               {u"CodiceDestinatario"_s, {u"0000000"_s}},
               {u"PECDestinatario"_s, {u"laura.bianchi@pec.example.com"_s}},
               {u"CessionarioCommittente/DatiAnagrafici/CodiceFiscale"_s, {u"BNCLRA75C41F205N"_s}},
               {u"CessionarioCommittente/DatiAnagrafici/IdFiscaleIVA"_s, {}}}};
    Tutti += {"spese e anticipazioni",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Spese = {{2550, 0}, {0, 4300}, {1000, 1234}};
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {{u"DettaglioLinee/Natura"_s, {u"N1"_s, u"N1"_s}},
               {u"DatiRiepilogo/Natura"_s, {u"N1"_s}},
               {u"RiferimentoNormativo"_s, {u"Art. 15 DPR 633/1972"_s}},
               {u"DatiBollo"_s, {}}}};
    Tutti += {"sole anticipazioni",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Onorari = {};
                      C.Spese = {{0, 5000}};
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {{u"DatiRitenuta"_s, {}},
               {u"DatiCassaPrevidenziale"_s, {}},
               {u"ImportoTotaleDocumento"_s, {u"50.00"_s}}}};
    // 43,00 + 34,47 = 77,47: not above; one cent more is
    Tutti += {"bollo non ancora dovuto",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Spese = {{0, 7747}};
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {{u"DatiBollo"_s, {}}}};
    Tutti += {"bollo sulle anticipazioni",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Spese = {{0, 7748}};
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {{u"DatiBollo/BolloVirtuale"_s, {u"SI"_s}}, {u"ImportoBollo"_s, {u"2.00"_s}}}};
    Tutti +=
        {"bollo negato", Con(Ordinaria(), [](Cifre& C) { C.Spese = {{0, 7748}}; }),   Avvocato(),
         Societa(),      [](SceltaFattura& S) { S.Bollo = BolloFattura::NonDovuto; }, {{u"DatiBollo"_s, {}}}};
    Tutti += {"IVA per cassa",
              Con(Ordinaria(), [](Cifre& C) { C.PerCassa = true; }),
              Avvocato(u"RF17"_s),
              Societa(),
              Nulla,
              {{u"EsigibilitaIVA"_s, {u"D"_s}},
               {u"RegimeFiscale"_s, {u"RF17"_s}},
               {u"RiferimentoNormativo"_s, {u"IVA per cassa, art. 32-bis DL 83/2012"_s}},
               {u"Causale"_s,
                {u"Oggetto: Rossi contro Bianchi"_s,
                 u"IVA per cassa ai sensi dell'art. 32-bis del DL 83/2012."_s}}}};
    // 1000 + 150 = 1150; fund 46; no VAT: 1196,00, above 77,47
    Tutti += {"forfettaria",
              Forfettaria(),
              Avvocato(u"RF19"_s),
              Societa(),
              Nulla,
              {{u"ImportoTotaleDocumento"_s, {u"1196.00"_s}},
               {u"ImportoPagamento"_s, {u"1196.00"_s}},
               {u"DettaglioLinee/Natura"_s, {u"N2.2"_s, u"N2.2"_s}},
               {u"DatiCassaPrevidenziale/Natura"_s, {u"N2.2"_s}},
               {u"DatiCassaPrevidenziale/AliquotaIVA"_s, {u"0.00"_s}},
               {u"RiferimentoNormativo"_s, {u"Art. 1 c. 54-89 L. 190/2014"_s}},
               {u"ImportoBollo"_s, {u"2.00"_s}},
               {u"DatiRitenuta"_s, {}},
               {u"EsigibilitaIVA"_s, {}}}};
    Tutti += {"forfettaria sotto la soglia",
              Con(Forfettaria(),
                  [](Cifre& C) {
                      C.Onorari = {7747};
                      C.SpeseGen = C.CP = 0;
                  }),
              Avvocato(u"RF19"_s),
              Persona(),
              Nulla,
              {{u"DatiBollo"_s, {}}, {u"ImportoTotaleDocumento"_s, {u"77.47"_s}}}};
    Tutti += {"forfettaria sopra la soglia con la cassa",
              Con(Forfettaria(),
                  [](Cifre& C) {
                      C.Onorari = {7450};
                      C.SpeseGen = 0;
                  }),
              Avvocato(u"RF19"_s),
              Persona(),
              Nulla,
              {{u"ImportoBollo"_s, {u"2.00"_s}}, {u"ImportoTotaleDocumento"_s, {u"77.48"_s}}}};
    Tutti += {"minimi",
              Forfettaria(),
              Avvocato(u"RF02"_s),
              Persona(),
              Nulla,
              {{u"RiferimentoNormativo"_s, {u"Art. 27 c. 1-2 DL 98/2011"_s}},
               {u"DettaglioLinee/Natura"_s, {u"N2.2"_s, u"N2.2"_s}}}};
    Tutti += {"acconti",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Spese = {{5000, 10000}};
                      C.Acconti = {{20000, 1000, 0}, {0, 0, 3000}, {100, 0, 200}};
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {{u"PrezzoTotale"_s,
                {u"1000.00"_s, u"150.00"_s, u"50.00"_s, u"100.00"_s, u"-210.00"_s, u"-30.00"_s, u"-1.00"_s,
                 u"-2.00"_s}},
               {u"DettaglioLinee/Natura"_s, {u"N1"_s, u"N1"_s, u"N1"_s}},
               {u"DettaglioLinee/Ritenuta"_s, {u"SI"_s, u"SI"_s, u"SI"_s, u"SI"_s, u"SI"_s}}}};
    Tutti += {"acconti che pagano tutto l'imponibile",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Spese = {{0, 1000}};
                      C.Acconti = {{115000, 0, 0}};
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {{u"ImponibileImporto"_s, {u"0.00"_s, u"10.00"_s}},
               {u"ImportoRitenuta"_s, {u"0.00"_s}},
               {u"DatiCassaPrevidenziale"_s, {}}}};
    Tutti += {"anticipazioni già pagate in più",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Spese = {{0, 1000}};
                      C.Acconti = {{0, 0, 1500}};
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {{u"ImponibileImporto"_s, {u"1196.00"_s, u"-5.00"_s}}}};
    Tutti +=
        {"sintetica",
         Con(Ordinaria(),
             [](Cifre& C) {
                 C.Tipo = StampaFatturaSintetica;
                 C.Onorari = {60000, 40000};
                 C.Spese = {{2000, 3000}};
                 C.Acconti = {{10000, 0, 500}};
             }),
         Avvocato(),
         Societa(),
         Nulla,
         {{u"DettaglioLinee/Descrizione"_s,
           {u"Onorari"_s, u"Rimborso spese imponibili"_s, u"Spese generali 15%"_s, u"Rimborso spese esenti"_s,
            u"Acconto: bonifico 4"_s, u"Acconto: bonifico 4 (spese esenti)"_s}}}};
    Tutti += {"sintetica che non espone gli acconti",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Tipo = StampaFatturaSintetica;
                      C.Acconti = {{10000, 0, 500}};
                      C.Esposti = false;
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {{u"PrezzoTotale"_s, {u"1000.00"_s, u"150.00"_s}}}};
    Tutti += {"analitica che non espone gli acconti",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Acconti = {{10000, 0, 0}};
                      C.Esposti = false;
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {{u"PrezzoTotale"_s, {u"1000.00"_s, u"150.00"_s, u"-100.00"_s}}}};
    for (const int Iva : {2100, 2200, 1000, 400, 500, 1250})
        Tutti += {"altra aliquota",
                  Con(Ordinaria(),
                      [Iva](Cifre& C) {
                          C.IVA = Iva;
                          C.Onorari = {33333, 33333};
                          C.Spese = {{101, 77}};
                      }),
                  Avvocato(),
                  Societa(),
                  Nulla,
                  {{u"DatiRiepilogo/AliquotaIVA"_s, {InEuro(Iva), u"0.00"_s}}}};
    // ties: 4 % of 1,125 = 0,045; 20 % of 1,125 = 0,225
    Tutti += {"mezzi centesimi",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Onorari = {113};
                      C.SpeseGen = 0;
                      C.CP = 250;
                      C.RA = 1750;
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {}};
    Tutti += {"un centesimo",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Onorari = {1};
                      C.SpeseGen = 0;
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {{u"ImportoTotaleDocumento"_s, {u"0.01"_s}}}};
    Tutti += {"importi grandi",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Onorari = {99999999999, 123456789};
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {}};
    Tutti += {"riga negativa e riga a zero",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Onorari = {100000, 0, -2550};
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {{u"NumeroLinea"_s, {u"1"_s, u"2"_s, u"3"_s}}}};
    Tutti += {"associazione",
              Ordinaria(),
              Associazione(),
              Societa(),
              Nulla,
              {{u"TipoRitenuta"_s, {u"RT02"_s}},
               {u"IdTrasmittente/IdCodice"_s, {u"01234567897"_s}},
               {u"CedentePrestatore/DatiAnagrafici/Anagrafica/Denominazione"_s,
                {u"Studio legale associato Rossi"_s}}}};
    Tutti += {"parcella",
              Ordinaria(),
              Avvocato(),
              Societa(),
              [](SceltaFattura& S) { S.Tipo = u"TD06"_s; },
              {{u"TipoDocumento"_s, {u"TD06"_s}}}};
    Tutti +=
        {"società estera senza IVA",
         Con(Ordinaria(),
             [](Cifre& C) {
                 C.IVA = C.RA = 0;
                 C.Spese = {{0, 1000}};
             }),
         Avvocato(),
         Estera(),
         Nulla,
         {{u"CodiceDestinatario"_s, {u"XXXXXXX"_s}},
          {u"CessionarioCommittente/DatiAnagrafici/IdFiscaleIVA/IdPaese"_s, {u"DE"_s}},
          {u"CessionarioCommittente/DatiAnagrafici/IdFiscaleIVA/IdCodice"_s, {u"123456789"_s}},
          {u"CessionarioCommittente/Sede/CAP"_s, {u"00000"_s}},
          {u"CessionarioCommittente/Sede/Provincia"_s, {}},
          {u"CessionarioCommittente/Sede/Nazione"_s, {u"DE"_s}},
          {u"CessionarioCommittente/DatiAnagrafici/Anagrafica/Denominazione"_s, {u"Müller & Söhne GmbH"_s}},
          {u"DatiRiepilogo/Natura"_s, {u"N2.1"_s, u"N1"_s}},
          {u"RiferimentoNormativo"_s,
           {u"Inversione contabile, art. 7-ter DPR 633/1972"_s, u"Art. 15 DPR 633/1972"_s}},
          {u"ImportoBollo"_s, {u"2.00"_s}}}};
    Tutti += {"persona estera con IVA e senza codici",
              Con(Ordinaria(), [](Cifre& C) { C.RA = 0; }),
              Avvocato(),
              [] {
                  Cessionario Cliente = Estera();
                  Cliente.Genere = GenereCliente::Persona;
                  Cliente.PartitaIva.clear();
                  return Cliente;
              }(),
              Nulla,
              {{u"CessionarioCommittente/DatiAnagrafici/IdFiscaleIVA/IdCodice"_s, {u"0000000"_s}},
               {u"DatiRiepilogo/AliquotaIVA"_s, {u"22.00"_s}}}};
    Tutti += {"italiano residente all'estero",
              Con(Ordinaria(), [](Cifre& C) { C.RA = 0; }),
              Avvocato(),
              [] {
                  Cessionario Cliente = Persona();
                  Cliente.Indirizzo = {u"Bahnhofstrasse"_s, u"3"_s, u"8001"_s, u"Zürich"_s, {}, u"CH"_s};
                  return Cliente;
              }(),
              Nulla,
              {{u"CodiceDestinatario"_s, {u"0000000"_s}},
               {u"PECDestinatario"_s, {u"laura.bianchi@pec.example.com"_s}},
               {u"CessionarioCommittente/DatiAnagrafici/IdFiscaleIVA"_s, {}},
               {u"CessionarioCommittente/DatiAnagrafici/CodiceFiscale"_s, {u"BNCLRA75C41F205N"_s}},
               {u"CessionarioCommittente/Sede/Nazione"_s, {u"CH"_s}}}};
    Tutti += {"impresa fuori dall'Unione",
              Con(Ordinaria(), [](Cifre& C) { C.IVA = C.RA = 0; }),
              Avvocato(),
              [] {
                  Cessionario Cliente = Estera();
                  Cliente.PartitaIva = u"CHE-123.456.789 IVA"_s;
                  Cliente.Indirizzo.Nazione = u"CH"_s;
                  return Cliente;
              }(),
              Nulla,
              {{u"CessionarioCommittente/DatiAnagrafici/IdFiscaleIVA/IdCodice"_s, {u"CHE123456789IVA"_s}},
               {u"RiferimentoNormativo"_s, {u"Artt. da 7 a 7-septies DPR 633/1972"_s}}}};
    Tutti += {"forfettaria verso l'estero, natura scelta",
              Forfettaria(),
              Avvocato(u"RF19"_s),
              Estera(),
              [](SceltaFattura& S) { S.Natura = u"N2.1"_s; },
              {{u"DatiRiepilogo/Natura"_s, {u"N2.1"_s}}, {u"DatiCassaPrevidenziale/Natura"_s, {u"N2.1"_s}}}};
    Tutti += {"estera con la partita IVA italiana",
              Con(Ordinaria(), [](Cifre& C) { C.RA = 0; }),
              Avvocato(),
              [] {
                  Cessionario Cliente = Estera();
                  Cliente.PartitaIva = u"IT 09876543217"_s;
                  return Cliente;
              }(),
              Nulla,
              {{u"CessionarioCommittente/DatiAnagrafici/IdFiscaleIVA/IdPaese"_s, {u"IT"_s}},
               {u"CessionarioCommittente/DatiAnagrafici/IdFiscaleIVA/IdCodice"_s, {u"09876543217"_s}},
               {u"CessionarioCommittente/Sede/Nazione"_s, {u"DE"_s}},
               {u"CodiceDestinatario"_s, {u"0000000"_s}}}};
    Tutti += {"IVA differita verso le amministrazioni",
              Con(Ordinaria(), [](Cifre& C) { C.PerCassa = true; }),
              Avvocato(u"RF16"_s),
              Societa(),
              Nulla,
              {{u"EsigibilitaIVA"_s, {u"D"_s}},
               {u"RiferimentoNormativo"_s, {u"IVA a esigibilità differita, art. 6 c. 5 DPR 633/1972"_s}},
               {u"Causale"_s,
                {u"Oggetto: Rossi contro Bianchi"_s,
                 u"IVA a esigibilità differita, art. 6 c. 5 DPR 633/1972."_s}}}};
    Tutti += {"trenta righe grandi",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Onorari = QList<qint64>(30, 999999999);
                      C.Spese = {{1, 999999999}};
                  }),
              Avvocato(),
              Societa(),
              Nulla,
              {}};
    Tutti += {"natura scelta",
              Con(Ordinaria(), [](Cifre& C) { C.IVA = C.RA = 0; }),
              Avvocato(),
              Societa(),
              [](SceltaFattura& S) { S.Natura = u"N3.5"_s; },
              {{u"DatiRiepilogo/Natura"_s, {u"N3.5"_s}},
               {u"RiferimentoNormativo"_s, {u"Art. 8 c. 1 lett. c DPR 633/1972"_s}}}};
    Tutti += {"pubblica amministrazione",
              Ordinaria(),
              Avvocato(),
              Comune(),
              [](SceltaFattura& S) {
                  S.Formato = u"FPA12"_s;
                  S.Contratto =
                      DocumentoCitato{u"DET. 12"_s, QDate(2025, 3, 1), u"C12D34000560007"_s, u"Z1234567AB"_s};
              },
              {{u"FormatoTrasmissione"_s, {u"FPA12"_s}},
               {u"CodiceDestinatario"_s, {u"UFXX12"_s}},
               {u"DatiContratto/IdDocumento"_s, {u"DET. 12"_s}},
               {u"CodiceCUP"_s, {u"C12D34000560007"_s}},
               {u"CodiceCIG"_s, {u"Z1234567AB"_s}}}};
    // 263,12 of VAT go to the treasury: the client pays 1196,00
    Tutti += {"scissione dei pagamenti",
              Con(Ordinaria(), [](Cifre& C) { C.RA = 0; }),
              Avvocato(),
              Comune(),
              [](SceltaFattura& S) {
                  S.Formato = u"FPA12"_s;
                  S.ScissionePagamenti = true;
              },
              {{u"EsigibilitaIVA"_s, {u"S"_s}},
               {u"ImportoPagamento"_s, {u"1196.00"_s}},
               {u"ImportoTotaleDocumento"_s, {u"1459.12"_s}}},
              26312};
    Tutti += {"nota di credito",
              Con(Ordinaria(),
                  [](Cifre& C) {
                      C.Spese = {{0, 10000}};
                  }),
              Avvocato(),
              Societa(),
              [](SceltaFattura& S) {
                  S.Tipo = u"TD04"_s;
                  S.Collegate = {{u"5/2025"_s, QDate(2025, 12, 30), {}, {}}};
              },
              {{u"TipoDocumento"_s, {u"TD04"_s}},
               {u"DatiFattureCollegate/IdDocumento"_s, {u"5/2025"_s}},
               {u"DatiFattureCollegate/Data"_s, {u"2025-12-30"_s}},
               {u"DatiPagamento"_s, {}}},
              0,
              false};
    Tutti += {"fattura che ne cita un'altra, con scadenza",
              Ordinaria(),
              Avvocato(),
              Societa(),
              [](SceltaFattura& S) {
                  S.Collegate = {{u"5"_s, QDate(2025, 12, 30), {}, {}}};
                  S.Scadenza = QDate(2026, 2, 28);
                  S.Modalita = u"MP01"_s;
              },
              {{u"DatiFattureCollegate/IdDocumento"_s, {u"5"_s}},
               {u"DataScadenzaPagamento"_s, {u"2026-02-28"_s}},
               {u"ModalitaPagamento"_s, {u"MP01"_s}},
               {u"IBAN"_s, {}}}};
    Tutti += {"senza dati di pagamento",
              Ordinaria(),
              Avvocato(),
              Societa(),
              [](SceltaFattura& S) { S.Modalita.clear(); },
              {{u"DatiPagamento"_s, {}}},
              0,
              false};
    return Tutti;
}

/// The amount at the end of the printed row that begins with a label, in cents.
qint64 Stampato(const QString& Carta, const QString& Etichetta)
{
    for (const QString& Riga : Carta.split(u'\n'))
        if (Riga.trimmed().startsWith(Etichetta))
            return Centesimi(Riga.trimmed().section(u' ', -1).remove(u'.').remove(u','));
    return -1;
}

}  // namespace

class TestComposizione : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ogniFattura_data();
    void ogniFattura();
    void laCartaDiceLoStesso_data() { ogniFattura_data(); }
    void laCartaDiceLoStesso();
};
PROVA(TestComposizione);

void TestComposizione::ogniFattura_data()
{
    QTest::addColumn<int>("Quale");
    const QList<Caso> Tutti = Casi();
    for (qsizetype i = 0; i < Tutti.size(); ++i)
        QTest::addRow("%s (%d)", Tutti[i].Nome, int(i)) << int(i);
}

void TestComposizione::ogniFattura()
{
    QFETCH(int, Quale);
    const Caso Uno = Casi()[Quale];
    const Composizione Fatta = Componi(Uno.Note, Uno.Studio, Uno.Cliente, Uno.Cambia);
    const QString File = NuovaCartella() + NomeFileFattura(Fatta.Fattura);
    ScriviEControlla(Fatta, File);
    if (QTest::currentTestFailed())
        return;
    const QByteArray Byte = Contenuto(File);
    const Totali Attesi = Calcola(Uno.Note);
    QCOMPARE(TotaliTornano(Byte, Attesi, Uno.Paga ? Attesi.Netto - Uno.PagaDiMeno : 0), QString());
    for (auto Atteso = Uno.Attesi.cbegin(); Atteso != Uno.Attesi.cend(); ++Atteso)
        QVERIFY2(Testi(Byte, Atteso.key()) == *Atteso,
                 qPrintable(Atteso.key() + u'=' + Testi(Byte, Atteso.key()).join(u'|') + u" instead of "_s +
                            Atteso->join(u'|')));
}

void TestComposizione::laCartaDiceLoStesso()
{
    QFETCH(int, Quale);
    const Caso Uno = Casi()[Quale];
    const Composizione Fatta = Componi(Uno.Note, Uno.Studio, Uno.Cliente, Uno.Cambia);
    const QByteArray Byte = XmlFattura(Fatta.Fattura);
    Superficie vp;
    QVERIFY(Anteprima(vp, Nota(Uno.Note), Uno.Note.Tipo));
    const QString Carta = ScriviTesto(vp.Contenuto());
    const bool Sintetica = Uno.Note.Tipo == StampaFatturaSintetica;
    const qint64 Totale = Stampato(Carta, Sintetica ? u"Totale fattura: euro"_s : u"TOTALE EURO"_s);
    QCOMPARE(Centesimi(Testo(Byte, u"ImportoTotaleDocumento"_s)), Totale);
    if (Uno.Note.RA == 0 || Uno.Note.Agevolato)
        return;
    const qint64 Ritenuta = Stampato(Carta, Sintetica ? u"Ritenuta d'acconto"_s : u"Ritenuta Acconto"_s);
    QCOMPARE(Centesimi(Testo(Byte, u"ImportoRitenuta"_s)), std::abs(Ritenuta));
    const qint64 Netto =
        Stampato(Carta, Sintetica ? u"Totale dovuto al netto"_s : u"Importo dovuto al netto"_s);
    if (Uno.Paga)
        QCOMPARE(Centesimi(Testo(Byte, u"ImportoPagamento"_s)), Netto);
}

#include "TestComposizione.moc"
