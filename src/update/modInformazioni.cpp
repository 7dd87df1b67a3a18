#include "update/modInformazioni.h"

#include "calculators/modTassi.h"
#include "core/indirizzi.h"
#include "core/sessione.h"
#include "core/versione.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/database/database.h"
#include "platform/system/file.h"
#include "platform/system/shell.h"
#include "tariffs/decreto.h"

#include <QFileInfo>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView NonImpostata = u"non impostata";

QString Cartella(const QString& Percorso)
{
    if (Percorso.isEmpty())
        return NonImpostata.toString();
    return EsisteCartella(Percorso) ? Percorso : Percorso + u" (non si trova)"_s;
}

QString Giorno(const QDate& Data)
{
    return Format(Data, ModelloData);
}

/// What an archive holds, behind the day of its file.
QString Archivio(const QString& Percorso, const std::function<QString(const Database& Db)>& Contenuto)
{
    const QString File = TrovaFile(Percorso);
    if (!EsisteFile(File))
        return u"manca: "_s + File;
    const QString Del = u"del "_s + Giorno(QFileInfo(File).lastModified().date());
    try {
        return Del + u"; "_s + Contenuto(ApriArchivio(File, true));
    } catch (const Errore& Guasto) {
        return Del + u"; non si legge: "_s + Guasto.Descrizione;
    }
}

/// The last day that the rates of a table hold for.
QString UltimoTasso(const Database& Db, const QString& Tabella)
{
    Recordset Righe = Db.OpenRecordset(u"SELECT Al FROM "_s + Tabella + u" ORDER BY Al DESC"_s);
    return Righe.Eof() ? u"nessuno"_s : u"fino al "_s + Giorno(Righe.Value(u"Al"_s).toDate());
}

QString UltimoIndice(const Database& Db)
{
    Recordset Righe = Db.OpenRecordset(u"SELECT Anno, Mese FROM IndiciIstat ORDER BY Anno DESC, Mese DESC"_s);
    if (Righe.Eof())
        return u"nessuno"_s;
    const int Mese = Righe.Value(u"Mese"_s).toInt();
    const QString Nome = Mese >= 1 && Mese <= 12 ? sessione::Mesi[size_t(Mese)].toLower() : QString();
    return u"fino %1 %2 %3"_s.arg(Nome.startsWith(u'a') ? u"ad"_s : u"a"_s, Nome,
                                  Righe.Value(u"Anno"_s).toString());
}

QString ContenutoTassi(const Database& Db)
{
    return u"interessi legali %1, di mora %2, indici Istat %3"_s.arg(
        UltimoTasso(Db, u"InteressiLegali"_s), UltimoTasso(Db, u"InteressiMora"_s), UltimoIndice(Db));
}

QString Quanti(const Database& Db, const QString& Tabella)
{
    return Format(
        Db.OpenRecordset(u"SELECT COUNT(*) AS Quanti FROM "_s + Tabella).Value(u"Quanti"_s).toDouble(),
        u"#,##0");
}

QString ContenutoComuni(const Database& Db)
{
    const QString Al = Db.Annotazioni().value(u"Al"_s);
    return Quanti(Db, u"Comuni"_s) + u" comuni e Stati esteri"_s + (Al.isEmpty() ? Al : u", al "_s + Al);
}

QString ContenutoNorme(const Database& Db)
{
    const QString Al = Db.Annotazioni().value(u"Al"_s);
    return Quanti(Db, u"Termini"_s) + u" termini ricorrenti"_s +
           (Al.isEmpty() ? Al : u", norme note fino al "_s + Al);
}

GruppoInformazioni Programma()
{
    const QString Server = indirizzi::Server();
    return {u"Programma"_s,
            {{u"Versione"_s, VersioneProgramma()},
             {u"Sistema"_s, NomeSistema()},
             {u"Server degli aggiornamenti"_s, Server.isEmpty() ? u"nessuno"_s : Server}}};
}

GruppoInformazioni Cartelle()
{
    return {u"Cartelle in uso"_s,
            {{u"Programma"_s, Cartella(sessione::PercorsoProg)},
             {u"Parcelle"_s, Cartella(sessione::ParcellePath)},
             {u"Modelli"_s, Cartella(sessione::ModelliPath)},
             {u"Utente"_s, Cartella(sessione::UserFolder)}}};
}

QString ArchivioTariffa(const Decreto& Legge)
{
    return Archivio(sessione::PercorsoProg + Legge.File.toString(), [&Legge](const Database& Db) {
        return u"%1, %2 autorità"_s.arg(Legge.NomeIntero.toString(), Quanti(Db, u"Autorità"_s));
    });
}

GruppoInformazioni Archivi()
{
    const QString& Prog = sessione::PercorsoProg;
    GruppoInformazioni Gruppo{u"Archivi"_s, {}};
    for (const Decreto* Legge : Decreti)
        Gruppo.Righe.append({u"Tariffa %1"_s.arg(Legge->Nome), ArchivioTariffa(*Legge)});
    Gruppo.Righe += QList<RigaInformazione>{
        {u"Tassi"_s, Archivio(ArchivioTassi(), ContenutoTassi)},
        {u"Comuni"_s, Archivio(Prog + u"Comuni.mdb"_s, ContenutoComuni)},
        {u"Norme in vigore"_s, Archivio(Prog + u"Norme.mdb"_s, ContenutoNorme)},
        {u"Clienti"_s, sessione::ArchivioCliCon.isEmpty()
                           ? u"non impostato"_s
                           : Archivio(sessione::ArchivioCliCon, [](const Database& Db) {
                                 return u"%1 clienti, %2 controparti, in %3"_s.arg(
                                     Quanti(Db, u"clienti"_s), Quanti(Db, u"controparti"_s),
                                     TrovaFile(sessione::ArchivioCliCon));
                             })}};
    return Gruppo;
}

GruppoInformazioni Licenze()
{
    return {
        u"Componenti e licenze"_s,
        {{u"Calcanova"_s, u"software libero; GNU GPL versione 3 o successiva"_s},
         {u"Qt %1"_s.arg(QString::fromLatin1(qVersion())),
          u"The Qt Company e collaboratori; GNU LGPL versione 3. Le librerie sono file a parte e si possono "
          u"sostituire"_s},
         {u"OpenSSL"_s, u"The OpenSSL Project; licenza Apache 2.0. Protegge le connessioni https di Qt"_s},
         {u"SQLite"_s, u"D. Richard Hipp e collaboratori; pubblico dominio"_s},
         {u"libsodium"_s, u"Frank Denis e collaboratori; licenza ISC"_s},
         {u"Caratteri Liberation"_s, u"Red Hat; SIL Open Font License 1.1"_s},
         {u"Caratteri DejaVu"_s, u"Bitstream e collaboratori; licenza libera Bitstream Vera"_s}}};
}

}  // namespace

QList<GruppoInformazioni> Informazioni()
{
    return {Programma(), Cartelle(), Archivi(), Licenze()};
}

QString TestoInformazioni(const QList<GruppoInformazioni>& Gruppi)
{
    QString Testo = sessione::TitoloProdotto + u'\n';
    for (const GruppoInformazioni& Gruppo : Gruppi) {
        Testo += u'\n' + Gruppo.Titolo + u'\n';
        for (const RigaInformazione& Riga : Gruppo.Righe)
            Testo += Riga.Nome + u": "_s + Riga.Valore + u'\n';
    }
    return Testo;
}
