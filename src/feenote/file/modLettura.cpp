#include "feenote/file/modLettura.h"

#include "addressbook/modClienti.h"
#include "core/modErrori.h"
#include "core/modTesti.h"
#include "core/rapportiunici.h"
#include "feenote/file/colonne.h"
#include "feenote/file/errorecarico.h"
#include "feenote/file/memorianota.h"
#include "feenote/file/modPassword.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/file/nomenota.h"
#include "feenote/modBloccoCliente.h"
#include "feenote/modInterruttori.h"
#include "feenote/modNuovaParcella.h"
#include "feenote/modParametri.h"
#include "feenote/modParti.h"
#include "feenote/modSelezioni.h"
#include "feenote/modVariazione.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "tariffs/modTariffe.h"

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

void AggiornaSchema(const QString& Percorso)
{
    if (!DaAggiornare(Percorso))
        return;
    // A template, or a file on a medium that is read-only.
    SolaLettura(Percorso) ? AggiornaProtetta(Percorso) : AggiornaColonne(Percorso);
}

void ApplicaPsw(const NotaLetta& Letta)
{
    if (Letta.Psw.isEmpty())
        return;
    Letta.Nota.Psw = PswNelCampo(PswDalFile(Letta.Psw));
    MsgBox(u"Attenzione, la parcella è protetta! Le modifiche potranno essere salvate\n"
           u"solo dopo aver specificato la chiave di protezione."_s,
           vbInformation, TitoloMessaggio.toString());
}

/// The linked party by its key, and the stored name where the link gives none.
/// @return what the archive has for a row that was found
QString ApplicaParte(int Chiave, const std::optional<QString>& Nome, const QString& Salvato, Casella& Box)
{
    if (Chiave > 0)
        Box.Testo = Nome.value_or(QString());
    if (Box.Testo.isEmpty())
        Box.Testo = Salvato;
    return Chiave > 0 && Nome ? Box.Testo : QString();
}

/// What the archive has for the links of a note.
struct NomiTrovati
{
    std::optional<QString> Cliente, Controparte;
    std::optional<ArchivioIlleggibile> Guasto;
};

NomiTrovati CercaNomi(const Parcella& Nota)
{
    NomiTrovati Nomi;
    try {
        if (Nota.IDCli > 0 && !(Nomi.Cliente = CercaCliente(Nota.IDCli)))
            MsgErrore(u"Il cliente associato alla parcella non è stato trovato!"_s);
        if (Nota.IDCon > 0 && !(Nomi.Controparte = CercaControparte(Nota.IDCon, u"Controp"_s)))
            MsgErrore(u"La controparte associata alla parcella non è stata trovata!"_s);
    } catch (const ArchivioIlleggibile& Guasto) {
        GestioneErrori(Guasto);
        Nomi.Guasto = Guasto;
    }
    return Nomi;
}

/// An archive that cannot be read leaves the parties as the note names them.
NomiTrovati ApplicaParti(const NotaLetta& Letta)
{
    Parcella& Nota = Letta.Nota;
    NomiTrovati Nomi = CercaNomi(Nota);
    Nota.NomeCli = ApplicaParte(Nota.IDCli, Nomi.Cliente, Letta.Cliente, Nota.txtCliente);
    Nota.NomeCon = ApplicaParte(Nota.IDCon, Nomi.Controparte, Letta.Controp, Nota.txtControp);
    Nota.txtDatiStaCli.Testo = Nota.txtCliente.Testo;
    Nota.txtDatiStaControp.Testo = Nota.txtControp.Testo;
    Nota.txtDatiStaOgg.Testo = Nota.txtOggetto.Testo;
    return Nomi;
}

void ApplicaParametri(const NotaLetta& Letta, const MemoriaFile& Memoria)
{
    const SelezioniTenute Tenute = SelezioniDella(Memoria);
    SelezionaInSilenzio(Letta.Nota, Letta.Categ, Letta.Autor, Letta.Valore);
    VerificaSelezioni(Letta.Nota, {Letta.Autor, Tenute.IDAut}, {Letta.Valore, Tenute.NumSca});
    ImpostaValoreInSilenzio(Letta.Nota, Letta.Importo);
    CaricaVariazione(Letta.Nota, Letta.AumRidIdx, Letta.AumRidVarP);
}

/// The matter's reference. What it makes of the session is for the one who opens the note.
void ApplicaRiferimento(const NotaLetta& Letta)
{
    if (!EVuoto(Letta.NsRif))
        Letta.Nota.NsRif = CStr(Letta.NsRif);
}

/// An amount that another program, or a damage, has made a text which is no number. It counts 0.
bool NonSiLegge(const CellaNota& Come, const QVariant& Valore)
{
    const bool Importo = Come.Forma == FormaCella::Importo || Come.Forma == FormaCella::Numero;
    if (!Importo || Valore.typeId() != QMetaType::QString)
        return false;
    const QString Testo = Valore.toString().trimmed();
    return !Testo.isEmpty() && !IsNumeric(Testo);
}

/// @return how many of its amounts cannot be read
int LeggiLinea(const RigaScorsa& Riga, TabellaRighe& Tabella, std::span<const ColonnaLinea> Colonne,
               CellaDi Cella)
{
    const int Nuova = Tabella.AggiungiRiga();
    int Illeggibili = 0;
    for (int i = 0; i < int(Colonne.size()); ++i) {
        const CellaNota& Come = Colonne[size_t(i)].*Cella;
        if (Come.Forma == FormaCella::Assente)
            continue;
        const QVariant Valore = Riga.Valore(i);
        Illeggibili += NonSiLegge(Come, Valore);
        Tabella(Nuova, Come.Colonna) = CellaDalFile(Come, Valore);
    }
    return Illeggibili;
}

/// Bytes of text in the lines of a note, each table by itself: a hundred thousand full lines
/// hold less. A file from outside may give every row as much text as its declaration has.
constexpr qsizetype MassimoTestoLinee = qsizetype(64) << 20;

/// Reads a table of lines in one go: one by one each row would ask for the file's lock.
/// @param Troppe what is said of a table that holds more than a note has
void LeggiLinee(const Database& File, QStringView Tabella, std::span<const ColonnaLinea> Colonne,
                const QString& Troppe, const std::function<void(const RigaScorsa& Riga)>& Prendi)
{
    const Recordset Righe = File.OpenRecordset(Tabella.toString());
    if (Righe.RecordCount() > MassimoRigheFile)
        throw Errore(errori::Imprevisto, Troppe);
    if (Righe.Eof())
        return;
    QStringList Nomi;
    for (const ColonnaLinea& Colonna : Colonne)
        Nomi.append(Colonna.Nome.toString());
    qsizetype Byte = 0;
    (void)Righe.Scorri(Nomi, std::nullopt, MassimoRigheFile, [&](const RigaScorsa& Riga) {
        for (int i = 0; i < int(Nomi.size()); ++i)
            Byte += Riga.Byte(i);
        if (Byte > MassimoTestoLinee)
            throw Errore(errori::Imprevisto, u"La parcella contiene troppi dati"_s);
        Prendi(Riga);
    });
}

/// @return how many of their amounts cannot be read
int CaricaRighe(Parcella& Nota, const Database& File)
{
    constexpr int OnoDir = 0;  // the first of the columns
    int Illeggibili = 0;
    LeggiLinee(File, TabellaRigheNota, ColonneRighe(), u"La parcella contiene troppe righe"_s,
               [&](const RigaScorsa& Riga) {
                   const QString Genere = CStr(Riga.Valore(OnoDir));
                   if (Genere == u"O")
                       Illeggibili += LeggiLinea(Riga, Nota.xOnorari, ColonneRighe(), &ColonnaLinea::Prima);
                   else if (Genere == u"D")
                       Illeggibili += LeggiLinea(Riga, Nota.xDiritti, ColonneRighe(), &ColonnaLinea::Seconda);
               });
    return Illeggibili;
}

/// @return as CaricaRighe
int CaricaAcconti(Parcella& Nota, const Database& File)
{
    int Illeggibili = 0;
    LeggiLinee(File, TabellaAccontiNota, ColonneAcconti(), u"La parcella contiene troppi acconti"_s,
               [&](const RigaScorsa& Riga) {
                   Illeggibili += LeggiLinea(Riga, Nota.xAcconti, ColonneAcconti(), &ColonnaLinea::Prima);
               });
    return Illeggibili;
}

/// Nobody may take such a 0 for what was written.
void AvvisaIlleggibili(int Quanti)
{
    if (Quanti == 1)
        MsgBox(u"Attenzione, un importo della parcella non si legge: al suo posto è 0.\n"
               u"Prima di salvarla occorre scriverlo di nuovo."_s,
               vbExclamation, TitoloAvvertenza.toString());
    else if (Quanti > 1)
        MsgBox(u"Attenzione, %1 importi della parcella non si leggono: al loro posto è 0.\n"
               u"Prima di salvarla occorre scriverli di nuovo."_s.arg(Quanti),
               vbExclamation, TitoloAvvertenza.toString());
}

/// Lines written when the catalogues of two categories had keys in common get the present key of their item.
void TraduciChiavi(Parcella& Nota)
{
    if (Nota.xOnorari.Vuota())
        return;
    const ChiaviTradotte Chiavi = LeggiChiaviPrecedenti(*Nota.Tariffa, Nota.CodCateg);
    for (int Riga = 0; Riga < Nota.xOnorari.Righe(); ++Riga) {
        QVariant& Chiave = Nota.xOnorari(Riga, OnoCodVoce);
        Chiave = Chiavi.value(CStr(Chiave), CStr(Chiave));
    }
}

/// A note of a newer version is read for what this one knows of it, and the user told what a save would cost.
void AvvisaVersioneNuova(const Database& File, const MemoriaFile& Memoria)
{
    if (HaColonneIgnote(File) || (File.Specie() == SpecieNota && HaVociIgnote(Memoria)))
        MsgBox(
            u"Attenzione, la parcella è stata scritta da una versione più recente del programma! I dati che "
            u"questa\nversione non conosce non vengono mostrati, e andrebbero perduti salvandola."_s,
            vbExclamation, TitoloAvvertenza.toString());
}

/// @return true when some of its amounts cannot be read
bool CaricaTutto(Parcella& Nota, const QString& Percorso, const std::function<void()>& Aperta)
{
    // A note of Access is read from its copy, where its missing columns go too.
    const QString Nativo = CopiaNativa(Percorso);
    AggiornaSchema(Nativo);
    if (Aperta)
        Aperta();
    const Database File = OpenDatabase(Nativo, true);
    NotaLetta Letta{Nota};
    LeggiParametri(File, Letta);
    const MemoriaFile Memoria = LeggiMemoria(File);
    AvvisaVersioneNuova(File, Memoria);
    Nota.Percorso = Percorso;
    ApplicaPsw(Letta);
    const NomiTrovati Nomi = ApplicaParti(Letta);
    ApplicaParametri(Letta, Memoria);
    const int DelleRighe = CaricaRighe(Nota, File);
    const int Illeggibili = DelleRighe + CaricaAcconti(Nota, File);
    AvvisaIlleggibili(Illeggibili);
    if (!ChiaviDisgiunte(Memoria))
        TraduciChiavi(Nota);
    ApplicaRiferimento(Letta);
    ApplicaMemoria(Nota, Memoria);
    if (Nota.Stato.Stato == StatoNota::Ignoto && NellaCartellaModelli(Percorso))
        Nota.Stato = StatoDiNuova();  // what begins from a template of before is new
    VerificaParti(Nota);

    // The memory takes the loaded switches before a print type forces its own on them.
    RicordaStampa(Nota);
    Nota.Pronta = true;
    if (ETipoStampa(Letta.TipoStampa))
        ScegliTipoStampa(Nota, Letta.TipoStampa);
    ApplicaMemoriaDelTipo(Nota, Memoria);
    // A client that is gone, and an archive that is shut, have been shown as such already; what the user
    // wrote for him stays.
    if (Nomi.Guasto)
        SegnaNonLetto(Nota, *Nomi.Guasto);
    else if (Nomi.Cliente || BloccoScritto(Nota, FormaDelBlocco(Nota)))
        RicomponiBlocco(Nota);
    return Illeggibili > 0;
}

/// What is missing from a file that bears the program's number was not taken out by anybody: a newer version
/// keeps it otherwise.
template <class F>
void Riportando(const QString& Percorso, F&& Lettura)
try {
    Lettura();
} catch (const Errore& Guasto) {
    const bool Manca = Guasto.Numero == errori::ElementoMancante ||
                       Guasto.Numero == errori::TabellaMancante || Guasto.Numero == errori::CampoSconosciuto;
    if (Manca && OpenDatabase(Percorso, true).Specie() == SpecieNota)
        throw Errore(Guasto.Numero, u"La parcella è stata scritta da una versione più recente del programma: "
                                    u"per aprirla occorre aggiornarlo"_s);
    throw;
}

/// The decree of a note's file. One that cannot be looked into is no note of the first decree: it may be
/// readable again a moment later, and would then have the other one's lists.
const Decreto& TariffaDelFile(const QString& Percorso)
{
    return TariffaDella(EDiAccess(Percorso) ? MemoriaFile() : LeggiMemoria(OpenDatabase(Percorso, true)));
}

/// A note that keeps the numbers of its office and bracket opens without the lists: its amounts are in its
/// lines, and no save goes without the reference database. Of any other the selections would be lost, and the
/// next save would lose them for good.
void PretendiElenchi(const Decreto& Legge)
{
    if (!Legge.Dichiarato)
        (void)ApriTariffe(Legge);
}

}  // namespace

void CaricaDati(Parcella& Nota, const QString& Percorso, const std::function<void()>& Aperta)
{
    // The path may be that of this very record, which is emptied.
    const QString File = Percorso;  // NOLINT(performance-unnecessary-copy-initialization)
    const RapportiUnici UnaVolta;
    AzzeraNota(Nota);
    const Decreto* Legge = nullptr;
    bool Illeggibili = false;
    try {
        Riportando(File, [&] { Legge = &TariffaDelFile(File); });
        PretendiElenchi(*Legge);
        NuovaParcella(Nota, *Legge);
        Nota.Pronta = false;  // the messages of the load must not compose half a note
        Riportando(File, [&] { Illeggibili = CaricaTutto(Nota, File, Aperta); });
    } catch (...) {
        // As "Nuova" would make it: of a file that is not shown the decree counts for nothing.
        NuovaParcella(Nota);
        const Errore Guasto = ErroreCorrente();
        throw ErroreCarico(Guasto, Legge ? Legge : Nota.Tariffa);
    }
    Nota.RicalcoloNecessario = false;
    Nota.Fuoco = CampoNota::Nessuno;
    // What is on screen is not what the file holds: its state and figures are not written unasked.
    SetModificata(Nota, Illeggibili);
}

int LeggiInSilenzio(Parcella& Nota, const Database& File)
{
    const MemoriaFile Memoria = LeggiMemoria(File);
    NuovaParcella(Nota, TariffaDella(Memoria));
    NotaLetta Letta{Nota};
    LeggiParametri(File, Letta);
    ApplicaParametri(Letta, Memoria);
    const int DelleRighe = CaricaRighe(Nota, File);
    return DelleRighe + CaricaAcconti(Nota, File);
}

QString LeggiPsw(const QString& Percorso)
{
    const Recordset Param = ApriArchivio(Percorso, true).OpenRecordset(TabellaParam.toString());
    const QVariant Psw = Param.Value(u"Psw"_s);
    return EVuoto(Psw) ? QString() : PswDalFile(CStr(Psw));
}
