// A file of names, whoever has written it, through the whole road of an import: rows of a spreadsheet, cards,
// an archive of another program. The source and its folder stay as they are, what goes into the archive is
// read back, and the import can be undone.
#include "basedati.h"
#include "fonte.h"

#include "addressbook/exchange/annullo.h"
#include "addressbook/exchange/colonneimporta.h"
#include "addressbook/exchange/importa.h"
#include "addressbook/exchange/rigaimporta.h"
#include "addressbook/exchange/sorgente.h"
#include "platform/database/database.h"
#include "platform/database/recordset.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QByteArray& Sana()
{
    static const QByteArray Letta = [] {
        const QString File = Posa(u"altrui_sano.mdb"_s, Contenuto(CartellaCostruita() + u"DatiStudio.mdb"_s));
        OpenDatabase(File).Execute(
            u"INSERT INTO clienti (Nominativo, CodFis, Citta) VALUES "
            "('Rossi Maria', 'RSSMRA80A41H501X', 'Roma'), ('Verdi', NULL, 'Pistoia')"_s);
        return Contenuto(File);
    }();
    return Letta;
}

QStringList Cartella()
{
    return QDir(CartellaDiLavoro() + u"altrui"_s).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

void Importa(const TabellaEstranea& Lette)
{
    const QString File = Posa(u"in.mdb"_s, Contenuto(CartellaCostruita() + u"DatiStudio.mdb"_s));
    const QByteArray Era = Contenuto(File);
    const Database Db = OpenDatabase(File);
    const QStringList Chiavi = AbbinaColonne(Lette.Titoli, Db.Campi(u"clienti"_s));
    Pretendi(Chiavi.size() == Lette.Titoli.size());
    const ComposizioneRighe Composizione(Lette.Titoli, Chiavi, Db.Campi(u"clienti"_s));
    for (const QStringList& Riga : Lette.Righe) {
        const RigaComposta Fatta = Composizione.Componi(Riga);
        Pretendi(Fatta.Valori.size() == Composizione.Campi().size());
        for (qsizetype i = 0; i < Fatta.Valori.size(); ++i)
            if (const Campo& In = Composizione.Campi()[i];
                In.Type == TipoCampo::Testo && Fatta.Valori[i].isValid())
                Pretendi(Fatta.Valori[i].toString().size() <= In.Size);
    }
    ImportaNominativi Opera(Db, u"clienti"_s, Lette, Chiavi, Doppioni::Salta);
    Pretendi(Opera.Prepara());
    if (!Opera.DaScrivere())
        return;
    const int Nuovi = Opera.Conto().Aggiunti;
    Pretendi(Opera.Scrivi(u"nomi"_s));
    Pretendi(Db.OpenRecordset(u"clienti"_s).RecordCount() == Nuovi);
    AnnullaImportazione(File);
    Pretendi(Contenuto(File) == Era);
    QFile::remove(File + u".chiavi"_s);
}

/// The first word of the input says what the file is called; "sql", "byte" and "tronca" make an archive.
void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    static const bool Qui = QDir().mkpath(CartellaDiLavoro() + u"altrui"_s);
    Pretendi(Qui);
    for (const QString& Nome : Cartella())
        QFile::remove(CartellaDiLavoro() + u"altrui/"_s + Nome);
    const qsizetype Fine = Dati.indexOf('\n');
    const QByteArray Come = Dati.first(std::max<qsizetype>(Fine, 0));
    const QString Nome = Come == "csv"   ? u"altrui/nomi.csv"_s
                         : Come == "vcf" ? u"altrui/nomi.vcf"_s
                                         : QString();
    const QString File = Nome.isEmpty() ? PosaDatabase(u"altrui/studio.mdb"_s, Sana(), Dati)
                                        : Posa(Nome, Dati.sliced(Fine + 1));
    const QByteArray Prima = Contenuto(File);
    const QStringList Accanto = Cartella();
    Riesce([&] {
        const SorgenteNominativi Da(File);
        QStringList Tabelle = Da.Tabelle();
        if (Da.Genere() != GenereSorgente::Archivio)
            Tabelle = QStringList{QString()};
        for (const QString& Una : Tabelle.mid(0, 4)) {
            OpzioniSorgente Opzioni;
            Opzioni.Tabella = Una;
            Riesce([&] {
                const TabellaEstranea Lette = Da.Leggi(Opzioni);
                Pretendi(Lette.Righe.size() == Lette.Numeri.size());
                Pretendi(Lette.Titoli.size() <= limiti::Colonne);
                for (const QStringList& Riga : Lette.Righe)
                    Pretendi(Riga.size() == Lette.Titoli.size());
                Importa(Lette);
            });
        }
    });
    Pretendi(Contenuto(File) == Prima && Cartella() == Accanto);
}

}  // namespace

BERSAGLIO(fuzz_sorgente, Prova);
