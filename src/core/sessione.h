// The session: flat public variables, read by everybody.
//
// ImpostaVariabili writes them at the start and after a save of the settings; Main and the fee-note
// logic write the few named so. No object owns them.
#pragma once

#include <QDate>
#include <QString>

#include <array>
#include <optional>

/// The request of the companion application, fields in the order in which they are sent.
struct Richiesta
{
    QString ID;         ///< reference of the matter; empty: the session was started by nobody else
    int Categoria = 0;  ///< list index of the category; 16 bits in the request
    int Autorita = 0;   ///< list index of the authority; 16 bits in the request
    double Valore = 0;  ///< from 100 up the exact value in euro, below a list index of the bracket
    int IDCli = 0;      ///< key in clienti, 0 none
    int IDCon = 0;      ///< key in controparti, 0 none
    int Scelta = 0;     ///< accounting counter of the matter; junk reads 0

    friend bool operator==(const Richiesta&, const Richiesta&) = default;
};

namespace sessione {

inline QString PercorsoProg;    ///< program folder, with the separator at its end
inline QString ArchivioCliCon;  ///< law-office database, full path
inline QString StudioNome;      ///< empty: the program was never personalised
inline QString StudioIndir;
inline QString StudioCitta;
inline QString StudioCodFisc;
inline QString StudioMail;
inline QString StudioPIva;
inline QString Firma;            ///< signature line of prints
inline QString ParcellePath;     ///< folder of saved fee notes
inline QString ModelliPath;      ///< folder of templates; derived, never stored
inline float IVA = 21.0F;        ///< VAT, percent
inline float RA = 20.0F;         ///< withholding tax, percent
inline float SpeseGen = 12.5F;   ///< general expenses, percent
inline float CP = 4.0F;          ///< pension fund, percent
inline QString Tariffa;          ///< short name of the decree of new notes; empty: the office has not chosen
inline QString NormeDiPartenza;  ///< the rules that the calculators begin with, see NormeInVigore
inline bool RicordaCalcoli = true;  ///< the calculators keep a list of the last ones
inline QString Iban;
inline QString TipoStudio = QStringLiteral("P");  ///< P a person, A an association, S a company
inline QString StudioTitolareNome;                ///< first and family name of an office that is a person
inline QString StudioTitolareCognome;
inline QString RegimeFiscale = QStringLiteral("RF01");  ///< code of the electronic invoice's list
inline QString StudioVia;                               ///< the seat, as the electronic invoice parts it
inline QString StudioCivico;
inline QString StudioCap;
inline QString StudioComune;
inline QString StudioProv;
inline QString StudioPec;
inline bool CercaAgg = true;               ///< look for updates at the start
inline QString WP = QStringLiteral("-1");  ///< path of an alternative editor
inline int ProgFatt = 0;                   ///< last invoice number used
inline QString UserFolder;                 ///< per-user data, with the separator at its end when derived
inline QString SfondoDesktop = QStringLiteral("lex.jpg");
inline int ColoreSfondoDesktop = 2508052;  ///< colours as 0xBBGGRR
inline int ColoreEtichette = 16777215;
inline int ColoreEtichetteBordo = 0;
inline int ColoreEtichettaSel = 255;
inline QString PostaOggetto;  ///< templates of the mail that brings a document, see feenote/modLettera.h
inline QString PostaTesto;
inline QString LogoImpronta;         ///< of the office's logo, see core/modLogo.h; empty: none
inline QString LogoPosto;            ///< "S" left, "C" middle, "D" right; empty: the logo is not printed
inline float LogoAltezza = 2.0F;     ///< centimetres
inline QString LogoDocumenti;        ///< digits of the print types that bear it, logo::VoceSchede
inline QString ServerAggiornamenti;  ///< where updates are looked for, as indirizzi::Server; empty: nowhere

inline QString TitoloProdotto;             ///< "Calcanova 3"
inline QString PrefissoOdbc;               ///< connection prefix before a database path
inline std::array<QString, 8> GiorniSett;  ///< 1 Monday .. 7 Sunday, 0 empty
inline std::array<QString, 13> Mesi;       ///< 1 January .. 12 December, 0 empty

inline QString PercorsoVDM;                 ///< folder of the earlier product
inline bool RicercaFatta = false;           ///< the search for updates of this session has run
inline QString VersioneDisp;                ///< version that the last check has found; empty: none
inline std::optional<QDate> DataTassiDisp;  ///< date of the rates that it has found
inline QString NotaAgg;                     ///< note to the user that came with them
inline bool ModoLow = false;
inline bool ModoDebug = false;
inline QString CartellaLocale;  ///< companion application, automation start only
inline QString ArchivioPrat;
inline Richiesta RichiestaPV2;
inline QString TestoDebug;

}  // namespace sessione

/// Puts every session variable back to the state before the start; serves tests.
void AzzeraSessione();
