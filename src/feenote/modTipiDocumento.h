// The documents of a fee note: one row each, and all that the program knows of a kind of document.
//
// A new document is a row here, at the end, and a composer in print/modStampe.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <algorithm>
#include <array>

/// The print types, in the order of their list.
enum TipoStampa {
    StampaPrenotula = 0,
    StampaPreventivo = 1,
    StampaFatturaSintetica = 2,
    StampaFatturaAnalitica = 3,
    StampaNotaGiudiziale = 4,
    StampaContratto = 5,
    StampaInformativa = 6,
    StampaSoloContabile = 7,
};

/// How a document words its client.
enum class FormaBlocco {
    Nessuna,  ///< the document names no client
    Testata,  ///< name, address and tax codes on rows of their own, in the head of the page
    Nome,     ///< the name alone
    Persona,  ///< one sentence: born, resident
    Societa,  ///< one sentence: with its seat
};

/// The panels of the print data; a document shows one of them.
enum class PannelloStampa { Nessuno, Numero, Fattura, Deposito, Incarico, Testi };

/// Whether a document takes payments on account away.
enum class UsoAcconti {
    Mai,        ///< it knows none
    SeEsposti,  ///< those that it lists
    Sempre,     ///< all of them, listed or not
};

/// What is particular to a document.
struct TipoDocumento
{
    QStringView Nome;          ///< entry of cmbTipoStampa
    QStringView NellaLettera;  ///< what the mail calls it that brings it
    PannelloStampa Pannello = PannelloStampa::Nessuno;
    QStringView Titolo;                          ///< of the panel
    bool Parti = false;                          ///< client, subject and counterparty are shown
    bool Iban = false;                           ///< chkIBAN is shown
    FormaBlocco Persona = FormaBlocco::Nessuna;  ///< how it words a client that is a person
    FormaBlocco Societa = FormaBlocco::Nessuna;  ///< and one that is a company
    UsoAcconti Acconti = UsoAcconti::Sempre;
    bool ForzaSenzaImposte = false;  ///< the four taxes are cleared while it is chosen; what the user ticks
                                     ///< then is not remembered
    bool ImponeAcconti = false;      ///< chkAcconti on and chkMinMax off while it is chosen
    bool DisabilitaMinMax = false;
    bool DisabilitaAcconti = false;
    bool EFattura = false;        ///< an invoice: it goes to the companion application
    bool Riepilogo = true;        ///< the chain of taxes stands on it
    bool Credito = false;         ///< it asks the client for its net
    bool CartaIntestata = false;  ///< its upper margin leaves room for a printed letterhead
};

/// All documents, by TipoStampa.
inline constexpr std::array TipiDocumento{
    TipoDocumento{
        .Nome = u"Prenotula",
        .NellaLettera = u"Preavviso di parcella",
        .Pannello = PannelloStampa::Numero,
        .Titolo = u" Dati stampa prenotula: ",
        .Parti = true,
        .Iban = true,
        .Persona = FormaBlocco::Testata,
        .Societa = FormaBlocco::Testata,
        .Credito = true,
    },
    TipoDocumento{
        .Nome = u"Preventivo",
        .NellaLettera = u"Preventivo",
        .Pannello = PannelloStampa::Numero,
        .Titolo = u" Dati stampa preventivo: ",
        .Parti = true,
        .Persona = FormaBlocco::Testata,
        .Societa = FormaBlocco::Testata,
    },
    // Totals alone, on paper of the office's: never the three sums of a line, always what was paid.
    TipoDocumento{
        .Nome = u"Fattura sintetica",
        .NellaLettera = u"Fattura",
        .Pannello = PannelloStampa::Fattura,
        .Titolo = u" Dati stampa fattura: ",
        .Parti = true,
        .Iban = true,
        .Persona = FormaBlocco::Testata,
        .Societa = FormaBlocco::Testata,
        .Acconti = UsoAcconti::SeEsposti,
        .ImponeAcconti = true,
        .DisabilitaMinMax = true,
        .EFattura = true,
        .Credito = true,
        .CartaIntestata = true,
    },
    TipoDocumento{
        .Nome = u"Fattura analitica",
        .NellaLettera = u"Fattura",
        .Pannello = PannelloStampa::Fattura,
        .Titolo = u" Dati stampa fattura: ",
        .Parti = true,
        .Iban = true,
        .Persona = FormaBlocco::Testata,
        .Societa = FormaBlocco::Testata,
        .EFattura = true,
        .Credito = true,
    },
    // The judge awards fees and expenses: taxes follow by law, and payments are no matter of his.
    TipoDocumento{
        .Nome = u"Nota spese giudiziale",
        .NellaLettera = u"Nota spese",
        .Pannello = PannelloStampa::Deposito,
        .Titolo = u" Dati stampa nota spese: ",
        .Parti = true,
        .Persona = FormaBlocco::Nome,
        .Societa = FormaBlocco::Nome,
        .Acconti = UsoAcconti::Mai,
        .ForzaSenzaImposte = true,
        .DisabilitaAcconti = true,
    },
    TipoDocumento{
        .Nome = u"Contratto cliente",
        .NellaLettera = u"Contratto di affidamento dell'incarico",
        .Pannello = PannelloStampa::Incarico,
        .Titolo = u" Dati stampa contratto: ",
        .Parti = true,
        .Persona = FormaBlocco::Persona,
        .Societa = FormaBlocco::Societa,
        .DisabilitaMinMax = true,
        .DisabilitaAcconti = true,
        .Riepilogo = false,
    },
    TipoDocumento{
        .Nome = u"Resa informativa",
        .NellaLettera = u"Resa informativa",
        .Pannello = PannelloStampa::Incarico,
        .Titolo = u" Dati stampa informativa: ",
        .Parti = true,
        .Persona = FormaBlocco::Persona,
        .Societa = FormaBlocco::Societa,
        .DisabilitaMinMax = true,
        .DisabilitaAcconti = true,
        .Riepilogo = false,
    },
    // Rows of figures between two texts: it names nobody.
    TipoDocumento{
        .Nome = u"Solo parte contabile!",
        .NellaLettera = u"Prospetto contabile",
        .Pannello = PannelloStampa::Testi,
        .Titolo = u" Dati stampa parte contabile: ",
        .Credito = true,
    },
};
static_assert(TipiDocumento[StampaFatturaSintetica].CartaIntestata &&
              TipiDocumento[StampaNotaGiudiziale].ForzaSenzaImposte &&
              TipiDocumento[StampaSoloContabile].Pannello == PannelloStampa::Testi);

// A mail that calls its document nothing would be written without a word.
static_assert(std::ranges::none_of(TipiDocumento, &QStringView::isEmpty, &TipoDocumento::NellaLettera));

/// @param Tipo a TipoStampa; any other number is a document without a name that asks for nothing
[[nodiscard]] const TipoDocumento& TipoDi(int Tipo);

/// True for the number of a document.
[[nodiscard]] bool ETipoStampa(int Tipo);

/// Entries of cmbTipoStampa, in order.
[[nodiscard]] QStringList VociTipoStampa();

/// "i tipi di stampa vanno da 0 a ...", for who has given another number.
[[nodiscard]] QString FraseTipiStampa();
