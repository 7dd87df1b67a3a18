#include "feenote/file/modDocumento.h"

#include "addressbook/modClienti.h"
#include "core/modErrori.h"
#include "core/modTesti.h"
#include "core/sessione.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modParametri.h"
#include "feenote/modTotali.h"
#include "feenote/modVariazione.h"
#include "platform/base/paginacodice.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"

using namespace Qt::StringLiterals;

namespace {

// ---- columns of the two line kinds in ParcellaRighe ---------------------------------------------

/// A column of the file and the column of the line table it holds.
struct Corrispondenza
{
    QStringView Campo;
    int Colonna;
    bool Importo;  ///< an amount, written through FormatNum
};

constexpr std::array CampiOnorari{
    Corrispondenza{u"NVoce", OnoNVoce, false}, Corrispondenza{u"CodOnoDir", OnoCodVoce, false},
    Corrispondenza{u"Qta", OnoQta, false},     Corrispondenza{u"Importo", OnoImporto, true},
    Corrispondenza{u"Imp1", OnoMedio, true},   Corrispondenza{u"Imp2", OnoMin, true},
    Corrispondenza{u"Imp3", OnoMax, true},     Corrispondenza{u"Imp4", OnoBaseMedio, true},
    Corrispondenza{u"Imp5", OnoBaseMin, true}, Corrispondenza{u"Imp6", OnoBaseMax, true},
    Corrispondenza{u"VarP", OnoVarPerc, true},
};

// NVoce takes the key of the item and CodOnoDir its number, crossed against their names: files have always
// been written so, and nothing reads their meaning.
constexpr std::array CampiDiritti{
    Corrispondenza{u"NVoce", DirIDDir, false}, Corrispondenza{u"CodOnoDir", DirNVoce, false},
    Corrispondenza{u"Qta", DirQta, false},     Corrispondenza{u"Importo", DirImponibile, true},
    Corrispondenza{u"Imp1", DirEsente, true},
};

struct CampoDati
{
    QStringView Campo;
    int Indice;
};

/// Filing data of the court costs note.
constexpr std::array CampiDeposito{
    CampoDati{u"DepAut", DatoDepAutorita},
    CampoDati{u"DepSez", DatoDepSezione},
    CampoDati{u"DepRuolo", DatoDepRuolo},
    CampoDati{u"DepGiud", DatoDepGiudice},
};

// ---- writing ------------------------------------------------------------------------------------

/// An amount as the file holds it: what FormatNum shows of the cell.
double ImportoFile(const QVariant& Cella)
{
    return Arrotonda2(NumeroDi(Cella));
}

double PercentoSe(bool Attiva, const QString& Testo)
{
    return Attiva ? NumeroDi(Testo) : 0.0;
}

/// The beginning of a text; a character of two units is not cut in half.
QString PrimiCaratteri(const QString& Testo, int Massimo)
{
    const bool Spezza = Testo.size() > Massimo && Testo[Massimo - 1].isHighSurrogate();
    return Testo.left(Spezza ? Massimo - 1 : Massimo);
}

QVariant DataONull(const QString& Testo)
{
    const std::optional<QDate> Data = LeggiData(Testo);
    return Data ? QVariant(*Data) : QVariant();
}

void ScriviParti(Recordset& Param, const Parcella& Nota)
{
    Param.ImpostaValue(u"IDCli"_s, Nota.IDCli);
    Param.ImpostaValue(u"IDCon"_s, Nota.IDCon);
    Param.ImpostaValue(u"Cliente"_s, Nota.txtCliente.Testo);
    Param.ImpostaValue(u"Controp"_s, Nota.txtControp.Testo);
    Param.ImpostaValue(u"Oggetto"_s, Nota.txtOggetto.Testo);
}

void ScriviParametri(Recordset& Param, const Parcella& Nota)
{
    Param.ImpostaValue(u"Categ"_s, Nota.cmbCateg);
    Param.ImpostaValue(u"Autor"_s, Nota.cmbAutor);
    Param.ImpostaValue(u"Valore"_s, Nota.cmbValore);
    Param.ImpostaValue(u"Importo"_s, ImportoFile(Nota.txtImporto.Testo));
    Param.ImpostaValue(u"TipoStampa"_s, Nota.cmbTipoStampa);
    Param.ImpostaValue(u"AumRidVarP"_s, Nota.AumRidVarP);
    Param.ImpostaValue(u"AumRidIdx"_s, Nota.AumRidIdx);
}

void ScriviStampa(Recordset& Param, const Parcella& Nota)
{
    Param.ImpostaValue(u"Testo1"_s, Nota.DatiPar(DatoTestoSuperiore));
    Param.ImpostaValue(u"Testo2"_s, Nota.DatiPar(DatoTestoInferiore));
    const MemoriaStampa Propria = StampaPropria(Nota);
    Param.ImpostaValue(u"VisMinMax"_s, Propria.MinMax ? 1 : 0);
    Param.ImpostaValue(u"IVA"_s, PercentoSe(Propria.Iva, Propria.TestoIva));
    Param.ImpostaValue(u"RA"_s, PercentoSe(Propria.RA, Propria.TestoRA));
    Param.ImpostaValue(u"CP"_s, Arrotonda2(PercentoSe(Propria.CP, Propria.TestoCP)));
    Param.ImpostaValue(u"SpeseGen"_s, Arrotonda2(PercentoSe(Propria.SpeseGen, Propria.TestoSpeseGen)));
    Param.ImpostaValue(u"DataFatt"_s, DataONull(Nota.DatiPar(DatoDataFatt)));
    Param.ImpostaValue(u"NumFatt"_s, Nota.DatiPar(DatoNumFatt));
    for (const CampoDati& Voce : CampiDeposito)
        Param.ImpostaValue(Voce.Campo.toString(), Nota.DatiPar(Voce.Indice));
}

QString PswDaScrivere(const Parcella& Nota)
{
    const bool Nuova = Nota.Psw.startsWith(PswDaSalvare);
    return CodificaPsw(Nuova ? Nota.Psw.mid(PswDaSalvare.size()) : Nota.Psw);
}

void ScriviParam(const Database& File, const Parcella& Nota)
{
    Recordset Param = File.OpenRecordset(u"ParcellaParam"_s);
    Param.AddNew();
    ScriviParti(Param, Nota);
    ScriviParametri(Param, Nota);
    ScriviStampa(Param, Nota);
    if (!sessione::RichiestaPV2.ID.isEmpty())
        Param.ImpostaValue(u"NsRif"_s, sessione::RichiestaPV2.ID);
    Param.ImpostaValue(u"Psw"_s, PswDaScrivere(Nota));
    Param.Update();
}

template <size_t N>
void ScriviRighe(Recordset& Righe, const TabellaRighe& Tabella, const QString& Genere,
                 const std::array<Corrispondenza, N>& Campi)
{
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        Righe.AddNew();
        Righe.ImpostaValue(u"OnoDir"_s, Genere);
        Righe.ImpostaValue(u"Data"_s, DataONull(CStr(Tabella(Riga, OnoData))));
        Righe.ImpostaValue(u"Descr"_s, PrimiCaratteri(CStr(Tabella(Riga, OnoDescr)), MassimoDescr));
        for (const Corrispondenza& Voce : Campi) {
            const QVariant& Cella = Tabella(Riga, Voce.Colonna);
            Righe.ImpostaValue(Voce.Campo.toString(),
                               Voce.Importo ? QVariant(ImportoFile(Cella)) : QVariant(CStr(Cella)));
        }
        Righe.Update();
    }
}

void ScriviAcconti(const Database& File, const TabellaRighe& Tabella)
{
    Recordset Righe = File.OpenRecordset(u"ParcellaAcconti"_s);
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        Righe.AddNew();
        Righe.ImpostaValue(u"DesAcc"_s, CStr(Tabella(Riga, AccDescr)));
        Righe.ImpostaValue(u"Valuta"_s, CStr(Tabella(Riga, AccValuta)));
        // Kept to the digit: payments are written and read without conversion.
        Righe.ImpostaValue(u"Corr"_s, NumeroDi(Tabella(Riga, AccCorrispettivi)));
        Righe.ImpostaValue(u"SpImp"_s, NumeroDi(Tabella(Riga, AccSpeseImp)));
        Righe.ImpostaValue(u"SpEse"_s, NumeroDi(Tabella(Riga, AccSpeseEsenti)));
        Righe.Update();
    }
}

}  // namespace

QString TagliaPsw(const QString& Psw)
{
    return PrimiCaratteri(Psw, MassimoPsw);
}

QString PswNelCampo(const QString& Psw)
{
    return Psw.startsWith(PswDaSalvare) ? PswDaSalvare.toString() + Psw : Psw;
}

QString CodificaPsw(const QString& Psw)
{
    QString Cifre;
    for (const char Carattere : Cp1252(TagliaPsw(Psw)))
        Cifre += QString::number(uchar(Carattere)).rightJustified(3, u'0');
    return Cifre;
}

QString DecodificaPsw(const QString& Cifre)
{
    QByteArray Codici;
    for (qsizetype i = 0; i + 3 <= Cifre.size() && Codici.size() < MassimoPsw; i += 3) {
        const QString Terna = Cifre.mid(i, 3);
        const bool DiCifre = std::ranges::all_of(Terna, [](QChar C) { return C >= u'0' && C <= u'9'; });
        const uint Codice = Terna.toUInt();
        if (!DiCifre || Codice > 255)
            break;
        Codici.append(char(Codice));
    }
    return DaCp1252(Codici);
}

void ScriviDati(const Database& File, const Parcella& Nota)
{
    Transazione Insieme(File);
    ScriviParam(File, Nota);
    Recordset Righe = File.OpenRecordset(u"ParcellaRighe"_s);
    ScriviRighe(Righe, Nota.xOnorari, u"O"_s, CampiOnorari);
    ScriviRighe(Righe, Nota.xDiritti, u"D"_s, CampiDiritti);
    ScriviAcconti(File, Nota.xAcconti);
    Insieme.Conferma();
}

// ---- reading ------------------------------------------------------------------------------------

namespace {

/// The one row of parameters, tolerant of columns that old files lack.
class Parametri
{
public:
    explicit Parametri(const Database& File) : Riga(File.OpenRecordset(u"ParcellaParam"_s))
    {
        if (Riga.Eof())
            throw Errore(3021);
    }

    /// A column that every file has. @throws Errore 3265 when it is missing: parameters guessed in its place
    /// would be another note's.
    [[nodiscard]] QVariant Esigi(QStringView Colonna) const { return Riga.Value(Colonna.toString()); }

    /// A column that an old file may lack: empty when it is missing, an invalid QVariant when it is Null.
    [[nodiscard]] std::optional<QVariant> Leggi(QStringView Colonna) const
    {
        try {
            return Riga.Value(Colonna.toString());
        } catch (const Errore& Guasto) {
            if (Guasto.Numero == 3265)
                return std::nullopt;
            throw;
        }
    }
    [[nodiscard]] QString Testo(QStringView Colonna) const
    {
        return CStr(Leggi(Colonna).value_or(QVariant()));
    }

private:
    Recordset Riga;
};

int Intero(const QVariant& Valore)
{
    return int(std::clamp(NumeroDi(Valore), -2147483648.0, 2147483647.0));
}

/// A list index; Null is no selection.
int Indice(const QVariant& Valore)
{
    return Valore.isValid() ? Intero(Valore) : NessunaVoce;
}

/// Clears the read-only attribute where an upgrade has to write, and puts it back on every way out.
class AttributoSospeso
{
public:
    explicit AttributoSospeso(const QString& File) : Percorso(File), Era(SolaLettura(File))
    {
        if (Era)
            ImpostaSolaLettura(Percorso, false);
    }
    ~AttributoSospeso()
    {
        try {
            if (Era)
                ImpostaSolaLettura(Percorso, true);
        } catch (const Errore& Guasto) {
            GestioneErrori(Guasto);
        }
    }
    AttributoSospeso(const AttributoSospeso&) = delete;
    AttributoSospeso& operator=(const AttributoSospeso&) = delete;

private:
    QString Percorso;
    bool Era;
};

/// Files from before the general expenses get the column; its value is Null and reads as not ticked.
void AggiornaSchema(const QString& Percorso)
{
    if (EsisteCampo(Percorso, u"ParcellaParam"_s, u"SpeseGen"_s))
        return;
    const AttributoSospeso Attributo(Percorso);
    OpenDatabase(Percorso).Execute(u"ALTER TABLE ParcellaParam ADD SpeseGen Single"_s);
}

void CaricaPsw(Parcella& Nota, const Parametri& Param)
{
    const QString Cifre = CStr(Param.Esigi(u"Psw"));
    if (Cifre.isEmpty())
        return;
    Nota.Psw = PswNelCampo(DecodificaPsw(Cifre));
    MsgBox(u"Attenzione, la parcella è protetta! Le modifiche potranno essere salvate\n"
           u"solo dopo aver specificato la chiave di protezione."_s,
           vbInformation, TitoloMessaggio.toString());
}

/// The linked party by its key, and the stored name where the link gives none.
void CaricaParte(int Chiave, const std::optional<QString>& Nome, const QString& Assente,
                 const QString& Salvato, Casella& Box)
{
    if (Chiave > 0) {
        if (!Nome)
            MsgErrore(Assente);
        Box.Testo = Nome.value_or(QString());
    }
    if (Box.Testo.isEmpty())
        Box.Testo = Salvato;
}

void CaricaParti(Parcella& Nota, const Parametri& Param)
{
    Nota.IDCli = Intero(Param.Esigi(u"IDCli"));
    Nota.IDCon = Intero(Param.Esigi(u"IDCon"));
    CaricaParte(Nota.IDCli, Nota.IDCli > 0 ? CercaCliente(Nota.IDCli) : std::nullopt,
                u"Il cliente associato alla parcella non è stato trovato!"_s, Param.Testo(u"Cliente"),
                Nota.txtCliente);
    CaricaParte(Nota.IDCon, Nota.IDCon > 0 ? CercaControparte(Nota.IDCon, u"Controp"_s) : std::nullopt,
                u"La controparte associata alla parcella non è stata trovata!"_s, Param.Testo(u"Controp"),
                Nota.txtControp);
    Nota.txtOggetto.Testo = Param.Testo(u"Oggetto");
    Nota.txtDatiStaCli.Testo = Nota.txtCliente.Testo;
    Nota.txtDatiStaControp.Testo = Nota.txtControp.Testo;
    Nota.txtDatiStaOgg.Testo = Nota.txtOggetto.Testo;
}

void CaricaParametri(Parcella& Nota, const Parametri& Param)
{
    SelezionaInSilenzio(Nota, Indice(Param.Esigi(u"Categ")), Indice(Param.Esigi(u"Autor")),
                        Indice(Param.Esigi(u"Valore")));
    ImpostaValoreInSilenzio(Nota, NumeroDi(Param.Esigi(u"Importo")));
    CaricaVariazione(Nota, Indice(Param.Esigi(u"AumRidIdx")), NumeroDi(Param.Esigi(u"AumRidVarP")));
}

/// A percentage with its box; a column that the file lacks leaves the state of a new note.
void CaricaPercento(const Parametri& Param, QStringView Colonna, Spunta& Tick, Casella& Box)
{
    const std::optional<QVariant> Letto = Param.Leggi(Colonna);
    if (!Letto)
        return;
    const double Valore = NumeroDi(*Letto);
    Tick.Attiva = Valore > 0;
    // A whole percent shows without decimals, 0 as an empty box.
    Box.Testo = Format(Valore, Valore == std::floor(Valore) ? u"##" : u"##.##");
}

void CaricaStampa(Parcella& Nota, const Parametri& Param)
{
    CaricaPercento(Param, u"SpeseGen", Nota.chkSpeseGen, Nota.txtSpeGen);
    CaricaPercento(Param, u"IVA", Nota.chkIva, Nota.txtIVA);
    CaricaPercento(Param, u"RA", Nota.chkRA, Nota.txtRA);
    CaricaPercento(Param, u"CP", Nota.chkCP, Nota.txtCP);
    Nota.chkMinMax.Attiva = NumeroDi(Param.Leggi(u"VisMinMax").value_or(QVariant())) != 0;

    const auto Dato = [&](int Indice, QStringView Colonna) {
        const QString Testo = Param.Testo(Colonna);
        if (!Testo.isEmpty())
            Nota.txtDatiPar[Indice] = Testo;
    };
    Dato(DatoTestoSuperiore, u"Testo1");
    Dato(DatoTestoInferiore, u"Testo2");
    Dato(DatoNumFatt, u"NumFatt");
    Dato(DatoDataFatt, u"DataFatt");
    for (const CampoDati& Voce : CampiDeposito)
        Dato(Voce.Indice, Voce.Campo);
}

/// The matter's reference makes the session one of the companion application's, an ordinary open too.
void CaricaRiferimento(Parcella& Nota, const Parametri& Param)
{
    const std::optional<QVariant> Letto = Param.Leggi(u"NsRif");
    if (!Letto || EVuoto(*Letto))
        return;
    Nota.NsRif = CStr(*Letto);
    sessione::RichiestaPV2.ID = Nota.NsRif;
}

/// A quantity is text in the file; in the lines a number is a number again, and one too large to be held
/// stays the text that it was.
QVariant NumeroOTesto(const QVariant& Valore)
{
    try {
        return CDbl(CStr(Valore));
    } catch (const Errore&) {
        return CStr(Valore);
    }
}

template <size_t N>
int LeggiRiga(const Recordset& File, TabellaRighe& Tabella, const std::array<Corrispondenza, N>& Campi)
{
    const int Riga = Tabella.AggiungiRiga();
    Tabella(Riga, OnoData) = CStr(File.Value(u"Data"_s));
    Tabella(Riga, OnoDescr) = CStr(File.Value(u"Descr"_s));
    for (const Corrispondenza& Voce : Campi) {
        const QVariant Valore = File.Value(Voce.Campo.toString());
        Tabella(Riga, Voce.Colonna) = Voce.Importo ? QVariant(NumeroDi(Valore)) : QVariant(CStr(Valore));
    }
    return Riga;
}

void CaricaRighe(Parcella& Nota, const Database& File)
{
    Recordset Righe = File.OpenRecordset(u"ParcellaRighe"_s);
    if (Righe.RecordCount() > MassimoRigheFile)
        throw Errore(1000, u"La parcella contiene troppe righe"_s);
    for (; !Righe.Eof(); Righe.MoveNext()) {
        const QString Genere = CStr(Righe.Value(u"OnoDir"_s));
        if (Genere == u"O") {
            const int Riga = LeggiRiga(Righe, Nota.xOnorari, CampiOnorari);
            QVariant& Quantita = Nota.xOnorari(Riga, OnoQta);
            Quantita = NumeroOTesto(Quantita);
            QVariant& NVoce = Nota.xOnorari(Riga, OnoNVoce);
            NVoce = int(std::clamp(NumeroDi(NVoce), -2147483648.0, 2147483647.0));
            QVariant& VarP = Nota.xOnorari(Riga, OnoVarPerc);
            VarP = int(std::clamp(VarP.toDouble(), -2147483648.0, 2147483647.0));
        } else if (Genere == u"D") {
            LeggiRiga(Righe, Nota.xDiritti, CampiDiritti);
        }
    }
}

void CaricaAcconti(Parcella& Nota, const Database& File)
{
    Recordset Righe = File.OpenRecordset(u"ParcellaAcconti"_s);
    if (Righe.RecordCount() > MassimoRigheFile)
        throw Errore(1000, u"La parcella contiene troppi acconti"_s);
    for (; !Righe.Eof(); Righe.MoveNext()) {
        const int Riga = Nota.xAcconti.AggiungiRiga();
        Nota.xAcconti(Riga, AccDescr) = CStr(Righe.Value(u"DesAcc"_s));
        Nota.xAcconti(Riga, AccValuta) = CStr(Righe.Value(u"Valuta"_s));
        Nota.xAcconti(Riga, AccCorrispettivi) = NumeroDi(Righe.Value(u"Corr"_s));
        Nota.xAcconti(Riga, AccSpeseImp) = NumeroDi(Righe.Value(u"SpImp"_s));
        Nota.xAcconti(Riga, AccSpeseEsenti) = NumeroDi(Righe.Value(u"SpEse"_s));
    }
}

void CaricaTutto(Parcella& Nota, const QString& Percorso)
{
    AggiornaSchema(Percorso);
    const Database File = OpenDatabase(Percorso, true);
    const Parametri Param(File);
    Nota.Percorso = Percorso;
    CaricaPsw(Nota, Param);
    CaricaParametri(Nota, Param);
    CaricaParti(Nota, Param);
    CaricaStampa(Nota, Param);
    CaricaRighe(Nota, File);
    CaricaAcconti(Nota, File);
    CaricaRiferimento(Nota, Param);

    // The memory takes the loaded switches before a print type forces its own on them.
    RicordaStampa(Nota);
    Nota.Pronta = true;
    const int Tipo = Indice(Param.Leggi(u"TipoStampa").value_or(QVariant()));
    if (Tipo >= 0 && Tipo < VociTipoStampa().size())
        ScegliTipoStampa(Nota, Tipo);
    // A client that is gone has been told already.
    if (Nota.IDCli > 0 && CercaCliente(Nota.IDCli))
        RicomponiBlocco(Nota);
}

}  // namespace

void CaricaDati(Parcella& Nota, const QString& Percorso)
{
    const QString File = Percorso;  // which may be the path of this very record
    NuovaParcella(Nota);
    const Parcella Vuota = Nota;
    Nota.Pronta = false;  // the messages of the load must not compose half a note
    try {
        CaricaTutto(Nota, File);
    } catch (...) {
        Nota = Vuota;
        throw;
    }
    Nota.RicalcoloNecessario = false;
    Nota.Fuoco.clear();
    SetModificata(Nota, false);
}

QString LeggiPsw(const QString& Percorso)
{
    const Recordset Param = OpenDatabase(Percorso, true).OpenRecordset(u"ParcellaParam"_s);
    const QVariant Psw = Param.Value(u"Psw"_s);
    if (EVuoto(Psw))
        return {};
    const QString Decodificata = DecodificaPsw(CStr(Psw));
    return Decodificata.isEmpty() ? CStr(Psw) : Decodificata;
}
