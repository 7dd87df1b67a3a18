#include "core/app/primouso.h"

#include "core/impostazioni.h"
#include "core/modAvvio.h"
#include "core/modErrori.h"
#include "core/parametri.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/database/database.h"
#include "platform/database/recordset.h"
#include "platform/system/cartelle.h"
#include "platform/system/datarifiutata.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "tariffs/decreto.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int Documenti = 5;

/// The program's own folder. What cannot be read is not taken for what nobody has chosen: the office's
/// archive would be another one then.
QString CartellaDelProgramma()
{
    const QString Scelta = ImpostazioneSicura(chiavi::PercorsoProcedura.toString());
    return Scelta.isEmpty() ? CartellaProgramma() : Barra(Scelta);
}

/// Copies a file of the program beside the user's data, unless one of that name, in any case, is there.
/// @param ConData the copy has the age of what it is made of, from the first moment on: nothing stands there
/// without it
void CopiaSeManca(const QString& Nome, const QString& Cartella, bool ConData)
{
    const QString Origine = TrovaFile(CartellaDelProgramma() + Nome);
    if (!EsisteFile(Origine) || EsisteFile(TrovaFile(Cartella + Nome)))
        return;
    // Two programs may be started at once: of two copies the first one counts, it may be in use already.
    (void)CreaFile(Cartella + Nome, LeggiFile(Origine), Lettori::Cartella,
                   ConData ? DataFile(Origine) : QDateTime());
}

void PreparaCartellaUtente()
{
    const QString Cartella = CartellaUtente(LeggiVersioneSistema());
    const QString Salvata = ImpostazioneSicura(chiavi::UserFolder.toString());
    // The folder that the program chose by itself is made again; only one of the user's is missed.
    if (Salvata.isEmpty() || Salvata == Cartella)
        CreaCartellaDiUtente(Cartella);
    if (!Salvata.isEmpty())
        return;
    SalvaImpostazione(chiavi::UserFolder.toString(), Cartella);
}

/// True when a folder holds databases that the program has not come with: notes, or templates.
bool HaParcelle(const QString& Cartella)
{
    QStringList Fornite{u"datistudio.mdb"_s, u"comuni.mdb"_s, u"norme.mdb"_s};
    for (const Decreto* Legge : Decreti)
        Fornite.append(Legge->File.toString().toLower());
    const QStringList Trovate = NomiDeiFile(Cartella, u".mdb"_s);
    return std::ranges::any_of(Trovate,
                               [&](const QString& Nome) { return !Fornite.contains(Nome.toLower()); });
}

/// True when an archive holds a client or a counterparty, or cannot be read: nobody knows then what it holds.
bool HaRighe(const QString& Archivio)
{
    if (!EsisteFile(Archivio))
        return false;
    try {
        Database Db = ApriArchivio(Archivio, true);
        return std::ranges::any_of(std::array{u"clienti"_s, u"controparti"_s}, [&](const QString& Tabella) {
            return !Db.OpenRecordset(u"SELECT * FROM "_s + Tabella).Eof();
        });
    } catch (const Errore&) {
        return true;
    }
}

void PreparaParcelle()
{
    if (!ImpostazioneSicura(chiavi::ParcellePath.toString()).isEmpty())
        return;
    // An office that has its notes beside the program goes on there: nothing is stored, the default holds.
    const QString Programma = CartellaDelProgramma();
    for (const QString& Sotto : {u""_s, u"Parcelle"_s, u"Modelli"_s, u"Parcelle/Modelli"_s})
        if (HaParcelle(Programma + Sotto))
            return;
    const QString Cartella = CartellaDelPrimoUso() + Barra(u"Parcelle"_s);
    // Without this one the templates would go beside the program, where a user may not write.
    CreaCartellaDiUtente(Cartella + u"Modelli"_s);
    SalvaImpostazione(chiavi::ParcellePath.toString(), Cartella);
}

void PreparaArchivio()
{
    if (!ImpostazioneSicura(chiavi::ArchivioCliCon.toString()).isEmpty())
        return;
    const QString Nome = u"DatiStudio.mdb"_s;
    // A copy would part from the archive that the office works with.
    if (HaRighe(TrovaFile(CartellaDelProgramma() + Nome)))
        return;
    CreaCartellaDiUtente(CartellaDelPrimoUso());
    CopiaSeManca(Nome, CartellaDelPrimoUso(), false);
    SalvaImpostazione(chiavi::ArchivioCliCon.toString(), CartellaDelPrimoUso() + Nome);
}

/// A step of the first use, and what the user loses where it fails.
struct PassoPrimoUso
{
    void (*Fai)();
    QStringView Cosa;
};
constexpr std::array PassiPrimoUso{
    PassoPrimoUso{PreparaCartellaUtente, u"la cartella dei dati dell'utente"},
    PassoPrimoUso{PreparaParcelle, u"la cartella delle parcelle"},
    PassoPrimoUso{PreparaArchivio, u"l'archivio dei clienti"},
    PassoPrimoUso{PreparaTassi, u"l'archivio dei tassi"},
};

/// Told by itself: no folder's permissions mend it, and all else is saved there.
struct TassiSenzaData : Errore
{
    TassiSenzaData(const Errore& Guasto, const QString& Cartella)
        : Errore(Guasto.Numero,
                 u"L'archivio dei tassi non è stato copiato nella cartella %1, dove i file non possono avere "
                 u"la data dell'originale: tassi vecchi vi sembrerebbero nuovi. Per calcolare interessi e "
                 u"rivalutazioni scegliere nelle impostazioni, scheda \"Setup\", un'altra cartella utente "
                 u"locale"_s.arg(Cartella))
    {}
};

}  // namespace

void PreparaTassi()
{
    const QString Nome = u"Tassi.dat"_s;
    const QString Cartella = Barra(ImpostazioneSicura(chiavi::UserFolder.toString()));
    const QString Fornito = TrovaFile(CartellaDelProgramma() + Nome);
    if (!EsisteCartella(Cartella) || EsisteFile(TrovaFile(Cartella + Nome)) || !EsisteFile(Fornito))
        return;
    // A copy stays for good: of a damaged archive none is made, so that the next start, or an update, brings
    // a sound one.
    {
        const Database Tassi = ApriArchivio(Fornito, true);
        for (const QString& Tabella :
             {u"InteressiLegali"_s, u"InteressiMora"_s, u"IndiciIstat"_s, u"CoefficientiRaccordo"_s})
            (void)Tassi.OpenRecordset(Tabella);
    }
    // The age of the rates is that of their archive: one that looks new would be asked for no update.
    try {
        CopiaSeManca(Nome, Cartella, true);
    } catch (const DataRifiutata& Guasto) {
        throw TassiSenzaData(Guasto, Cartella);
    }
}

void PreparaDatiUtente()
{
    PreparaCartellaUtente();
    PreparaTassi();
}

void PrimoUso()
{
    QStringList Mancate;
    QString Ultimo;  // what has failed for one reason stands in one line
    for (const PassoPrimoUso& Passo : PassiPrimoUso) {
        try {
            Passo.Fai();
        } catch (const TassiSenzaData& Guasto) {
            GestioneErrori(Guasto);
        } catch (...) {
            const Errore Guasto = ErroreCorrente();
            if (Guasto.Numero == errori::FormatoDatabase || Guasto.Numero == errori::TabellaMancante) {
                GestioneErrori(Guasto);  // a damaged file, which no folder's permissions mend
                continue;
            }
            const QString Perche =
                u": %1%2 (%3)"_s.arg(Guasto.Descrizione.left(1).toLower(), Guasto.Descrizione.mid(1),
                                     QString::number(Guasto.Numero));
            if (Perche == Ultimo)
                Mancate.last().insert(Mancate.last().size() - Perche.size(), u", "_s + Passo.Cosa.toString());
            else
                Mancate << u"- "_s + Passo.Cosa.toString() + Perche;
            Ultimo = Perche;
        }
    }
    if (!Mancate.isEmpty())
        MsgErrore(u"Non è stato possibile preparare:\n%1\nIl programma si apre, ma ciò che vi si salva "
                  u"può andare perduto: verificare i permessi delle cartelle\n%2\n%3"_s.arg(
                      Mancate.join(u'\n'), CartellaSpeciale(Documenti),
                      CartellaFile(PercorsoImpostazioni(NomeApplicazione.toString()))));
}
