// The archive of clients: changed, imported into, taken over from another program.
#include "feenote/file/file_prova.h"
#include "guasti/origine.h"
#include "uccisioni/imprese.h"

#include "addressbook/chiavi.h"
#include "addressbook/exchange/annullo.h"
#include "addressbook/exchange/archiviointero.h"
#include "addressbook/exchange/archivionativo.h"
#include "addressbook/exchange/colonneimporta.h"
#include "addressbook/exchange/importa.h"
#include "addressbook/exchange/notevecchie.h"
#include "addressbook/exchange/sorgente.h"
#include "addressbook/modColonneFattura.h"
#include "compagna/archivio.h"
#include "feenote/companion/modPV2.h"
#include "platform/accesso/accesso.h"
#include "platform/accesso/copie.h"
#include "platform/base/errore.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

void PreparaArchivio(const QString& Cartella)
{
    QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, Cartella + u"DatiStudio.mdb"_s);
    QFile::setPermissions(Cartella + u"DatiStudio.mdb"_s, QFile::ReadOwner | QFile::WriteOwner);
    Recordset Righe = OpenDatabase(Cartella + u"DatiStudio.mdb"_s).OpenRecordset(u"clienti"_s);
    Righe.AddNew();
    Righe.ImpostaValue(u"Nominativo"_s, u"prima"_s);
    Righe.ImpostaValue(u"Indirizzo"_s, u"prima"_s);
    Righe.Update();
}

QString DifettoArchivio(const QString& Cartella)
{
    Recordset Righe = OpenDatabase(Cartella + u"DatiStudio.mdb"_s).OpenRecordset(u"clienti"_s);
    if (Righe.RecordCount() != 1)
        return u"%1 clienti"_s.arg(Righe.RecordCount());
    return NonUna(Righe.Value(u"Nominativo"_s).toString() + u'/' + Righe.Value(u"Indirizzo"_s).toString(),
                  {u"prima/prima"_s, u"dopo/dopo"_s});
}

/// What names come into the archive.
TabellaEstranea DaImportare()
{
    TabellaEstranea Tabella;
    Tabella.Titoli = {u"Nominativo"_s, u"Indirizzo"_s};
    for (int i = 0; i < Linee; ++i) {
        Tabella.Righe.push_back({u"dopo %1"_s.arg(i), u"dopo"_s.repeated(50)});
        Tabella.Numeri.push_back(i + 1);
    }
    return Tabella;
}

void ImportaNomi(const QString& Cartella)
{
    const Database Db = OpenDatabase(Cartella + u"DatiStudio.mdb"_s);
    const TabellaEstranea Da = DaImportare();
    ImportaNominativi Opera(Db, u"clienti"_s, Da, AbbinaColonne(Da.Titoli, Db.Campi(u"clienti"_s)),
                            Doppioni::Salta);
    if (!Opera.Prepara() || !Opera.Scrivi(u"nomi.csv"_s))
        throw Errore(errori::Imprevisto);
}

/// All names or none, and where they are there the way back too.
QString DifettoImportati(const QString& Cartella)
{
    const QString File = Cartella + u"DatiStudio.mdb"_s;
    const int Quanti = OpenDatabase(File).OpenRecordset(u"clienti"_s).RecordCount();
    if (Quanti != 1 && Quanti != 1 + Linee)
        return u"%1 clienti"_s.arg(Quanti);
    if (UltimaImportazione(File).has_value() != (Quanti > 1))
        return Quanti > 1 ? u"senza ritorno"_s : u"un'importazione che non c'è stata"_s;
    if (Quanti == 1)
        return {};
    const QString Prova = NuovaCartella();
    for (const QString& Nome : ContenutoDi(Cartella))
        QFile::copy(Cartella + Nome, Prova + Nome);
    AnnullaImportazione(Prova + u"DatiStudio.mdb"_s);
    return DifettoArchivio(Prova);
}

// ---- columns that an older archive gets -------------------------------------------------------------

void PreparaAntico(const QString& In)
{
    PreparaArchivio(In);
    const Database Db = OpenDatabase(In + u"DatiStudio.mdb"_s);
    for (const QString& Tabella : {u"clienti"_s, u"controparti"_s})
        for (const QString& Colonna : {u"Pec"_s, u"CodDestinatario"_s})
            Db.Execute(u"ALTER TABLE %1 DROP COLUMN %2"_s.arg(Tabella, Colonna));
}

/// Both tables have them, or none; the names are as they were.
QString DifettoColonne(const QString& In)
{
    const Database Db = OpenDatabase(In + u"DatiStudio.mdb"_s);
    const qsizetype DeiClienti = ColonneFatturaMancanti(Db.Campi(u"clienti"_s)).size();
    if (DeiClienti != ColonneFatturaMancanti(Db.Campi(u"controparti"_s)).size())
        return u"una tabella sola"_s;
    return DeiClienti == 0 || DeiClienti == 2 ? DifettoArchivio(In) : u"mancano %1"_s.arg(DeiClienti);
}

// ---- an import that is undone -----------------------------------------------------------------------

/// An archive with its import and the way back, made once.
void PreparaImportato(const QString& In)
{
    static const QString Fatto = [] {
        const QString Dove = NuovaCartella();
        PreparaArchivio(Dove);
        ImportaNomi(Dove);
        return Dove;
    }();
    for (const QString& Nome : ContenutoDi(Fatto))
        QFile::copy(Fatto + Nome, In + Nome);
}

/// The archive is one of the two, with its way back as long as there is one; and no key of a name that goes
/// is given again.
QString DifettoAnnullata(const QString& In)
{
    if (const QString Difetto = DifettoImportati(In); !Difetto.isEmpty())
        return Difetto;
    const Database Db = OpenDatabase(In + u"DatiStudio.mdb"_s, true);
    return UltimaChiaveData(Db, u"clienti"_s) < 1 + Linee ? u"una chiave si darebbe due volte"_s : QString();
}

// ---- what comes from another program ----------------------------------------------------------------

void UsaLettore()
{
    accesso::Programma = ProgrammaDiProva() + u"calcanova-accesso"_s;
}

/// A copy is whole and nobody else's, or not there; what it was made of is as it was.
QString DifettoPreso(const QString& Da, const QString& A, bool DiAccess)
{
    if (!origine::Intatto(Da, DiAccess))
        return u"l'originale è cambiato"_s;
    if (!EsisteFile(A))
        return {};
    if (QFile::permissions(A) & origine::Altri)
        return u"di tutti"_s;
    return origine::HaTutti(A) ? QString() : u"copiato a metà"_s;
}

Impresa Prendi(bool DiAccess)
{
    const auto Da = [](const QString& In) { return In + u"vecchio.mdb"_s; };
    const auto A = [](const QString& In) { return In + u"studio/DatiStudio.mdb"_s; };
    QStringList Rimane{u"studio"_s, u"studio/DatiStudio.mdb"_s, u"vecchio.mdb"_s};
    if (!DiAccess)
        Rimane += u"vecchio.mdb-journal"_s;
    return {.Nome = DiAccess ? u"archivio di Access preso"_s : u"archivio preso"_s,
            .Prepara = [=](const QString& In) { origine::PosaVecchio(Da(In), DiAccess); },
            .Fa =
                [=](const QString& In) {
                    UsaLettore();
                    TogliRestiDiArchivi(In + u"studio/"_s);
                    TogliRestiDiNote(In + u"studio/"_s);
                    if (!EsisteFile(A(In)) && !PrendiArchivio(Da(In), In + u"studio/"_s))
                        throw Errore(errori::Imprevisto);
                },
            .Difetto = [=](const QString& In) { return DifettoPreso(Da(In), A(In), DiAccess); },
            .Rimane = Rimane,
            .Poi = [](const QString& In) { Invecchia(In, 60); },
            .DaCapo = true,
            .SoloChieste = DiAccess};
}

Impresa CopiaVecchie(bool DiAccess)
{
    const auto Da = [](const QString& In) { return In + u"vecchie/nota.mdb"_s; };
    const auto A = [](const QString& In) { return In + u"nuove/nota.mdb"_s; };
    QStringList Rimane{u"nuove"_s, u"nuove/nota.mdb"_s, u"vecchie"_s, u"vecchie/nota.mdb"_s};
    if (!DiAccess)
        Rimane += u"vecchie/nota.mdb-journal"_s;
    return {.Nome = DiAccess ? u"note di Access copiate"_s : u"note copiate"_s,
            .Prepara =
                [=](const QString& In) {
                    origine::PosaVecchio(Da(In), DiAccess);
                    ImpostaDataFile(Da(In), QDateTime(QDate(2020, 3, 5), QTime(10, 0)));
                },
            .Fa =
                [=](const QString& In) {
                    UsaLettore();
                    TogliRestiDiNote(In + u"nuove/"_s);
                    const auto Esiti = CopiaNote(In + u"vecchie"_s, In + u"nuove"_s);
                    if (!Esiti)
                        throw Errore(errori::Imprevisto);
                    for (const EsitoNota& Esito : *Esiti)
                        if (!Esito.Copiata && !Esito.Detto.startsWith(u"c'è già"))
                            throw Errore(errori::Accesso, Esito.Detto);
                },
            .Difetto =
                [=](const QString& In) {
                    // The list of notes goes by their dates.
                    if (EsisteFile(A(In)) && DataFile(A(In)) != DataFile(Da(In)))
                        return u"con la data della copia"_s;
                    return DifettoPreso(Da(In), A(In), DiAccess);
                },
            .Rimane = Rimane,
            .Poi = [](const QString& In) { Invecchia(In, 60); },
            .DaCapo = true,
            .SoloChieste = true};
}

/// A look at the names of a source, through a native form that names people.
Impresa Guardata(bool DiAccess)
{
    const auto Da = [](const QString& In) { return In + u"vecchio.mdb"_s; };
    QStringList Rimane{u"dati"_s, u"dati/Calcanova"_s, u"dati/Calcanova/importa"_s, u"vecchio.mdb"_s};
    if (!DiAccess)
        Rimane += u"vecchio.mdb-journal"_s;
    return {.Nome = DiAccess ? u"sorgente di Access"_s : u"sorgente con giornale"_s,
            .Prepara = [=](const QString& In) { origine::PosaVecchio(Da(In), DiAccess); },
            .Fa =
                [=](const QString& In) {
                    UsaLettore();
                    TogliRestiDiSorgenti();
                    const SorgenteNominativi Aperta(Da(In));
                    OpzioniSorgente Come;
                    if (Aperta.Leggi(Come).Righe.size() != origine::Nomi)
                        throw Errore(errori::Imprevisto);
                },
            .Difetto =
                [=](const QString& In) {
                    return origine::Intatto(Da(In), DiAccess) ? QString() : u"l'originale è cambiato"_s;
                },
            .Rimane = Rimane,
            .Poi = [](const QString& In) { Invecchia(In, 60); },
            .DaCapo = true,
            .SoloChieste = true};
}

/// The native copy of an Access file, which serves as long as the file stays.
Impresa CopiaTenuta()
{
    return {.Nome = u"copia nativa tenuta"_s,
            .Prepara = [](const QString& In) { origine::PosaVecchio(In + u"vecchio.mdb"_s, true); },
            .Fa =
                [](const QString& In) {
                    UsaLettore();
                    accesso::CartellaCopie = In + u"copie"_s;
                    const Database Db = OpenDatabase(CopiaNativa(In + u"vecchio.mdb"_s), true);
                    if (Db.OpenRecordset(u"clienti"_s).RecordCount() != origine::Nomi)
                        throw Errore(errori::Imprevisto);
                },
            .Difetto =
                [](const QString& In) {
                    if (!origine::Intatto(In + u"vecchio.mdb"_s, true))
                        return u"l'originale è cambiato"_s;
                    for (const QString& Nome : NomiDeiFile(In + u"copie/"_s, u".mdb"_s))
                        if (!Nome.startsWith(u'.') && !origine::HaTutti(In + u"copie/"_s + Nome))
                            return u"una copia a metà"_s;
                    return QString();
                },
            .Rimane = {u"copie"_s, u"vecchio.mdb"_s},
            .Infine =
                [](const QString& In) {
                    // A day later what is no copy goes; the copy itself is taken away here, for its name.
                    const QString Qui = In + u"copie/"_s;
                    Invecchia(Qui, 2 * 86400);
                    accesso::CartellaCopie = Qui;
                    SpazzaCopie();
                    const QStringList Copie = NomiDeiFile(Qui, u".mdb"_s);
                    if (Copie.size() != 1 || !origine::HaTutti(Qui + Copie.first()))
                        return u"restano %1"_s.arg(Copie.join(u", "_s));
                    QFile::remove(Qui + Copie.first());
                    return QString();
                },
            .DaCapo = true,
            .SoloChieste = true};
}

// ---- the companion's row ----------------------------------------------------------------------------

/// Her own rows as they were, and of this matter none or the whole one.
QString DifettoFattura(const QString& In, bool Finita)
{
    const Database Db = OpenDatabase(In + u"pratiche.mdb"_s, true);
    if (Db.OpenRecordset(u"SELECT * FROM Fatture WHERE Rif='P7' AND CorriF=250.5"_s).RecordCount() != 1 ||
        Db.OpenRecordset(u"Agenda"_s).RecordCount() != 1)
        return u"perduto il resto"_s;
    const Recordset Sua = Db.OpenRecordset(u"SELECT * FROM Fatture WHERE Rif='P12'"_s);
    if (Sua.Eof() && !Finita)
        return {};
    return Sua.RecordCount() == 1 && Sua.Value(u"CorriF"_s).toDouble() == 1234.5 &&
                   Sua.Value(u"NumF"_s).toString() == u"9" && Sua.Value(u"IDContab"_s).toInt() == 3
               ? QString()
               : u"%1 righe"_s.arg(Sua.RecordCount());
}

Impresa Consegnata()
{
    return {.Nome = u"fattura alla compagna"_s,
            .Prepara = [](const QString& In) { CreaArchivioPratiche(In + u"pratiche.mdb"_s); },
            .Fa =
                [](const QString& In) {
                    sessione::ArchivioPrat = In + u"pratiche.mdb"_s;
                    sessione::RichiestaPV2.ID = u"P12"_s;
                    MemorizzaUltimaStampa({1234.5, u"9"_s, u"22/11/2026"_s, false});
                    if (!SalvaFatturaPV2(3))
                        throw Errore(errori::Accesso);
                },
            .Difetto = [](const QString& In) { return DifettoFattura(In, false); },
            .Rimane = {u"pratiche.mdb"_s},
            .Infine = [](const QString& In) { return DifettoFattura(In, true); },
            .DaCapo = true};
}

}  // namespace

QList<Impresa> ImpreseArchivi()
{
    return {
        {u"archivio"_s,
         PreparaArchivio,
         [](const QString& In) {
             Recordset Righe = OpenDatabase(In + u"DatiStudio.mdb"_s).OpenRecordset(u"clienti"_s);
             Righe.Edit();
             Righe.ImpostaValue(u"Nominativo"_s, u"dopo"_s);
             Righe.ImpostaValue(u"Indirizzo"_s, u"dopo"_s);
             Righe.Update();
         },
         DifettoArchivio,
         {u"DatiStudio.mdb"_s}},
        {u"importazione"_s,
         PreparaArchivio,
         ImportaNomi,
         DifettoImportati,
         {u"DatiStudio.mdb"_s, u"DatiStudio.mdb.prima"_s, u"DatiStudio.mdb.prima.json"_s}},
        {.Nome = u"archivio completato"_s,
         .Prepara = PreparaAntico,
         .Fa =
             [](const QString& In) {
                 sessione::ArchivioCliCon = In + u"DatiStudio.mdb"_s;
                 AggiungiColonneFattura();
             },
         .Difetto = DifettoColonne,
         .Rimane = {u"DatiStudio.mdb"_s},
         .Infine =
             [](const QString& In) {
                 const Database Db = OpenDatabase(In + u"DatiStudio.mdb"_s);
                 return ColonneFatturaMancanti(Db.Campi(u"clienti"_s)).isEmpty() ? QString()
                                                                                 : u"non completato"_s;
             },
         .DaCapo = true,
         .SoloChieste = true},
        {.Nome = u"importazione annullata"_s,
         .Prepara = PreparaImportato,
         .Fa =
             [](const QString& In) {
                 const QString File = In + u"DatiStudio.mdb"_s;
                 TogliRestiDiImportazioni(File);
                 if (UltimaImportazione(File))
                     AnnullaImportazione(File);
             },
         .Difetto = DifettoAnnullata,
         .Rimane = {u"DatiStudio.mdb"_s, u"DatiStudio.mdb.chiavi"_s},
         .Infine = DifettoArchivio,
         .DaCapo = true},
        Prendi(false),
        Prendi(true),
        CopiaVecchie(false),
        CopiaVecchie(true),
        Guardata(false),
        Guardata(true),
        CopiaTenuta(),
        Consegnata(),
    };
}
