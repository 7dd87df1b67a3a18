// The memory of one fee note, window or not.
//
// The record is the source of truth: a change of the user writes it at once, a rule works on it, a
// window only shows it. It can be loaded, reckoned, printed and saved without any window. Members are
// named as the controls that show them.
#pragma once

#include "feenote/modRighe.h"
#include "feenote/modTipiDocumento.h"
#include "feenote/statonota.h"
#include "platform/base/tabellarighe.h"
#include "tariffs/modTariffe.h"
#include "tariffs/variazioni.h"

#include <QList>
#include <QMap>
#include <QString>

#include <optional>

/// A text box.
struct Casella
{
    QString Testo;
    bool Abilitata = true;

    [[nodiscard]] double Numero() const;  ///< 0 when the text is no number
    friend bool operator==(const Casella&, const Casella&) = default;
};

/// A check box.
struct Spunta
{
    bool Attiva = false;
    bool Abilitata = true;

    [[nodiscard]] bool Vale() const { return Attiva && Abilitata; }
    friend bool operator==(const Spunta&, const Spunta&) = default;
};

/// Boxes of the first tab that a rule may want filled in.
enum class CampoNota {
    Nessuno,
    Categoria,
    Autorita,
    Valore,  ///< exact value of the case
    Variazione,
    Cliente,
    Controparte,
    Oggetto,
};

/// Index of a list without a selection.
constexpr int NessunaVoce = -1;

/// Elements of txtDatiPar, the boxes of the print data.
enum DatoStampa {
    DatoNumero = 0,  ///< number and date of pro-forma note and estimate
    DatoData = 1,
    DatoNumFatt = 11,
    DatoDataFatt = 12,
    DatoDepAutorita = 21,  ///< filing data of the court costs note
    DatoDepSezione = 22,
    DatoDepRuolo = 23,
    DatoDepGiudice = 24,
    DatoTestoSuperiore = 31,
    DatoTestoInferiore = 32,
};

/// What a document takes from the fee note associated with this one.
struct NotaAssociata
{
    const Decreto* Tariffa = Decreti.front();
    QString CategMulti;
    QString AutorMulti;
    QString ValoreMulti;  ///< value text, ready
    QString OggettoMulti;
    TabellaRighe xOnorariMulti{OnoColonne};
    TabellaRighe xDirittiMulti{DirColonne};
    TabellaRighe xAccontiMulti{AccColonne};
    double TotOnorariMulti = 0.0;
    double TotSpeseImpMulti = 0.0;
    double TotSpeseEsentiMulti = 0.0;
    int Illeggibili = 0;  ///< amounts of its file that cannot be read, and count 0

    friend bool operator==(const NotaAssociata&, const NotaAssociata&) = default;
};

/// The switches and percent boxes as they stood before a print type forced them.
struct MemoriaStampa
{
    bool Iva = false, RA = false, CP = false, SpeseGen = false, MinMax = false, Acconti = false;
    QString TestoIva, TestoRA, TestoCP, TestoSpeseGen;

    friend bool operator==(const MemoriaStampa&, const MemoriaStampa&) = default;
};

/// Who signs for a client that is a company.
struct Rappresentante
{
    QString Nome;
    QString DataNascita;
    QString LuogoNascita;
    QString Residenza;

    friend bool operator==(const Rappresentante&, const Rappresentante&) = default;
};

/// What the electronic invoice of a note takes from nowhere else, and the file that was written of it.
struct DatiFatturaXml
{
    QString Tipo;          ///< TD06, TD04; empty: TD01
    QString Destinatario;  ///< "PA" or "PR" where the user says so; empty: as the client's card tells
    bool Scissione = false;
    bool BolloAddebitato = false;
    QString Natura;                    ///< of fees without VAT; empty: as regime and client say
    QString Modalita;                  ///< MP01 and so on; empty: MP05, "-": no payment data
    QString Scadenza;                  ///< as typed, dd/mm/yyyy
    QString CitataNumero, CitataData;  ///< an earlier invoice
    QString ContrattoNumero, Cup, Cig;

    QString File;         ///< name of the file written last; empty: none
    QString Quando;       ///< its day, dd/mm/yyyy
    QString Progressivo;  ///< of its name
    QString DiFattura;    ///< number and date of the invoice that it holds, see FirmaFattura

    friend bool operator==(const DatiFatturaXml&, const DatiFatturaXml&) = default;
};

/// What a note's file has chosen from a list of the reference database.
struct SceltaTenuta
{
    int Indice = NessunaVoce;  ///< its place in the list
    int Numero = 0;            ///< its own number, which outlasts a list that is edited; 0: not kept

    [[nodiscard]] bool Nominata() const { return Indice != NessunaVoce || Numero != 0; }
    friend bool operator==(const SceltaTenuta&, const SceltaTenuta&) = default;
};

/// What the parties beyond the first added to the lines of a note's file.
struct AumentoSalvato
{
    int Percento = 0;
    QString Articolo;

    friend bool operator==(const AumentoSalvato&, const AumentoSalvato&) = default;
};

/// What kept the archive of clients from being read, as Errore has it.
struct GuastoTenuto
{
    int Numero = 0;
    QString Descrizione;
    bool DaComporre = true;  ///< the client's block is to be worded; not once he was typed on the first tab

    friend bool operator==(const GuastoTenuto&, const GuastoTenuto&) = default;
};

/// What the parties were called when the archive could not give their names.
struct NomiTenuti
{
    QString Cliente, Controparte;
    bool Nuova = false;  ///< the note had no file then

    friend bool operator==(const NomiTenuti&, const NomiTenuti&) = default;
};

struct Parcella
{
    // ---- parties and subject
    int IDCli = 0;  ///< key in clienti, 0 when the client is free text
    int IDCon = 0;  ///< key in controparti
    /// Name of the linked row as the archive gave it last; empty without a link, and where no row was found.
    QString NomeCli, NomeCon;
    /// Why a document has to wait: the archive of clients could not be read when it was to name or to word
    /// the parties. See RicomponiBlocco.
    std::optional<GuastoTenuto> ArchivioNonLetto;
    /// The archive has still to give the name of a linked party, whether a document waits for it or not.
    std::optional<NomiTenuti> NomiAttesi;
    Casella txtCliente, txtControp, txtOggetto;
    Casella txtDatiStaCli, txtDatiStaControp, txtDatiStaOgg;  ///< the same as they will print
    /// The user has emptied the box of the print: a record that no window has filled has it empty too.
    bool ContropSvuotata = false, OggSvuotato = false;

    // ---- parameters of the proceeding
    const Decreto* Tariffa = Decreti.front();  ///< the decree that the note follows; never null
    QString CodCateg;                          ///< CIV, PEN or STR
    int cmbCateg = NessunaVoce;
    int cmbAutor = NessunaVoce;
    int cmbValore = NessunaVoce;
    QList<Autorita> ListaAutorita;          ///< entries of cmbAutor
    QList<ScaglioneValore> ListaScaglioni;  ///< entries of cmbValore, at most 21
    /// What the file names and the lists cannot give back: a save keeps it until something is chosen.
    SceltaTenuta AutoritaTenuta, ScaglioneTenuto;
    bool cmbAutorAbilitata = false;
    bool cmbValoreAbilitata = false;
    Casella txtImporto;        ///< exact value of the case as shown, euro
    double ImportoPrec = 0.0;  ///< value of the case last accepted, euro; 0 not defined. Not the box
    int IdxValorePrec = NessunaVoce;
    int IdxAutorPrec = NessunaVoce;
    double ValoreMinRich = 0.0;        ///< lower limit of the first bracket that requires the exact value
    bool RicalcoloNecessario = false;  ///< the next entry to the honoraria recalculates
    /// The lines are older than the parameters: set with RicalcoloNecessario when there are lines, kept in
    /// the file with them, cleared by a recalculation that came to its end.
    bool RigheDaRicalcolare = false;
    int Scaglione = 0;     ///< the n of the catalogue columns nMed, nMin, nMax
    int ScaglioneOld = 0;  ///< bracket of the older tariff

    // ---- percent variation
    QList<OpzioneAumRid> ListaVariazioni;  ///< of decree and category; empty: those that the program has
    QList<FasciaParti> ListaParti;         ///< what further parties add; empty: nothing
    int AumRidIdx = 5;                     ///< chosen element of optAumRid, by its number
    /// The option that the file names and the list lacks, kept as AutoritaTenuta; the free one: none.
    int VariazioneTenuta = 5;
    int AumRidVarP = 0;  ///< signed percent in force, 0 none
    /// How the file says that the lines were varied: it holds against the lists, which may have been edited
    /// since, until option or parties change or the lines are recalculated.
    std::optional<OpzioneAumRid> OpzioneSalvata;
    std::optional<AumentoSalvato> PartiSalvate;
    QString AumRidLimiti;         ///< two limits in percent joined by ";", empty: any
    int cmbAumRid = NessunaVoce;  ///< 0 "+", 1 "-"
    bool cmbAumRidAbilitata = true;
    Casella txtAumRid;
    int PartiAssistite = 1;  ///< parties that the note's lawyer assists
    Casella txtParti{QStringLiteral("1")};

    // ---- taxes and switches of the print
    Spunta chkSpeseGen, chkCP, chkIva, chkRA;
    Casella txtSpeGen, txtCP, txtIVA, txtRA;  ///< percent
    Spunta chkAcconti, chkMinMax;
    Spunta chkRegSempl, chkIvaDiff, chkIBAN, chkFattAcc;
    bool UnaPagina = false;  ///< documents that pass their page by little are tightened to take one
    MemoriaStampa Memoria;
    /// The general expenses are the user's own, and no change of the tariff takes them away.
    bool SpeseGenProprie = false;
    bool AvvisoNotaGiudiziale = false;  ///< the once-per-window warning was shown

    // ---- print data
    int cmbTipoStampa = NessunaVoce;
    QMap<int, QString> txtDatiPar;  ///< by DatoStampa; a missing element is empty
    int optContrTipo = 0;           ///< client type: 0 person, 1 company
    int ContrTipoDi = 0;            ///< key of the client whose type was proposed or chosen, 0 none
    Rappresentante Rappr;
    int RapprDi = 0;      ///< key of the client whose row has given the representative, 0 none
    QString RapprLegato;  ///< the name that this row gave
    QMap<FormaBlocco, QString> BlocchiScritti;  ///< client blocks of the user's own, by form; see
                                                ///< RicomponiBlocco

    DatiFatturaXml FatturaXml;

    StatoTenuto Stato;  ///< how far the note has come; see modStato

    // ---- lines
    TabellaRighe xOnorari{OnoColonne};
    TabellaRighe xDiritti{DirColonne};
    TabellaRighe xAcconti{AccColonne};
    bool InsUltimaOno = true;  ///< new lines go to the last row
    bool InsUltimaDir = true;

    // ---- associated note
    QString txtParcMultipla;  ///< its name; empty: none
    QString txtPathParcMult;
    int optMultiAntPos = 0;  ///< 0 after this note, 1 before it
    bool chkMultiParam = false;
    int IDMultipla = 0;  ///< window in which it is open, 0 none
    NotaAssociata Multi;

    // ---- file and window
    QString Percorso;  ///< full path, empty for an unsaved note
    QString Psw;       ///< decoded password, or "->>" + one set and not yet saved
    QString Nome;      ///< name in lower case without ".mdb", or "Nuova parcella"
    QString NsRif;     ///< reference of the matter, as shown by lblRif; empty: labels hidden
    int Scelta = 0;    ///< accounting counter of the request, kept for the invoice
    bool Modificata = false;
    bool Pronta = false;  ///< finished loading: no composition before
    /// Box that a rule wants focused; whoever shows the record empties it.
    CampoNota Fuoco = CampoNota::Nessuno;

    /// Text of an element of txtDatiPar.
    [[nodiscard]] QString DatiPar(int Indice) const { return txtDatiPar.value(Indice); }
    /// True while an associated note counts.
    [[nodiscard]] bool Multipla() const { return !txtParcMultipla.isEmpty(); }
    /// IDAut of the selected authority, 0 when none is.
    [[nodiscard]] int IDAutSelezionata() const;
    /// The selected bracket, null when none is.
    [[nodiscard]] const ScaglioneValore* ScaglioneSelezionato() const;

    friend bool operator==(const Parcella&, const Parcella&) = default;
};

/// Index of the authority, of the bracket with a number; NessunaVoce when the list has none.
[[nodiscard]] int PostoAutorita(const Parcella& Nota, int IDAut);
[[nodiscard]] int PostoScaglione(const Parcella& Nota, int NumSca);

/// Entries of cmbCateg, in order.
[[nodiscard]] QStringList VociCategoria();
/// Text of the selected category, authority, bracket; empty without a selection.
[[nodiscard]] QString TestoCategoria(const Parcella& Nota);
[[nodiscard]] QString TestoAutorita(const Parcella& Nota);
[[nodiscard]] QString TestoScaglione(const Parcella& Nota);

/// Value of the case as documents show it: the exact value "30.000,00 €" when the box reads above 0, else
/// the bracket's text in lower case.
[[nodiscard]] QString TestoValore(const Parcella& Nota);

/// A parameter of the amounts has changed: the next entry to the honoraria recalculates the lines.
void SegnaRicalcolo(Parcella& Nota);
/// True while lines stand that are older than the parameters.
[[nodiscard]] bool RicalcoloInSospeso(const Parcella& Nota);

/// The modified mark.
void SetModificata(Parcella& Nota, bool Valore);
