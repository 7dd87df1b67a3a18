#include "addressbook/exchange/sorgente.h"

#include "addressbook/exchange/archivionativo.h"
#include "addressbook/exchange/colonneimporta.h"
#include "addressbook/exchange/vcard.h"
#include "addressbook/modScheda.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/database/database.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QByteArray LeggiLimitato(const QString& File, const AvanzamentoLettura& Prosegui)
{
    const qint64 Lungo = QFileInfo(File).size();
    PassiDiLettura Passi(Prosegui, Lungo);
    QByteArray Byte;
    qint64 Letti = Lungo;  // a file that says how long it is need not be read for that
    if (Lungo <= limiti::ByteFile) {
        Byte.reserve(Lungo);
        LeggiAPezzi(File, [&](QByteArrayView Pezzo) {
            Byte += Pezzo;
            Letti = Byte.size();
            Passi.A(Letti);
            return Letti <= limiti::ByteFile;
        });
    }
    constexpr int Mega = 20;
    if (Letti > limiti::ByteFile)
        RifiutaFile(u"Il file \"%1\" è più grande di %2 MB: dividerlo e importarne una parte alla volta."_s
                        .arg(NomeFile(File))
                        .arg(limiti::ByteFile >> Mega));
    return Byte;
}

/// True for a text that begins as a card.
bool EVcard(const QByteArray& Byte)
{
    constexpr qsizetype Guardati = 4096;
    const QString Inizio =
        Byte.startsWith("\xFF\xFE") || Byte.startsWith("\xFE\xFF")
            ? LeggiTestoEstraneo(Byte.first(std::min(Byte.size(), Guardati) & ~1), CodificaTesto::Automatica)
            : QString::fromLatin1(Byte.first(std::min(Byte.size(), Guardati)));
    QStringView Vista(Inizio);
    if (Vista.startsWith(u"\u00ef\u00bb\u00bf"))
        Vista = Vista.sliced(3);
    return Vista.trimmed().startsWith(u"BEGIN:VCARD", Qt::CaseInsensitive);
}

TabellaEstranea DaRighe(RigheCsv&& Lette, std::optional<bool>& PrimaRigaTitoli)
{
    TabellaEstranea Tabella;
    if (Lette.Righe.empty())
        RifiutaFile(u"Il file non contiene righe: ripetere l'esportazione dal programma d'origine."_s);
    if (!PrimaRigaTitoli)
        PrimaRigaTitoli = SembranoTitoli(Lette.Righe.front());
    if (*PrimaRigaTitoli) {
        for (const QString& Titolo : Lette.Righe.front())
            Tabella.Titoli.append(Titolo.simplified());
        Lette.Righe.erase(Lette.Righe.begin());
        Lette.Linee.erase(Lette.Linee.begin());
    }
    for (int i = 0; i < Lette.Colonne; ++i) {
        const QString Senza = u"Colonna "_s + QString::number(i + 1);
        if (i >= Tabella.Titoli.size())
            Tabella.Titoli.append(Senza);
        else if (Tabella.Titoli[i].isEmpty())
            Tabella.Titoli[i] = Senza;
    }
    for (QStringList& Riga : Lette.Righe)
        Riga.resize(Lette.Colonne);
    Tabella.Righe = std::move(Lette.Righe);
    Tabella.Numeri = std::move(Lette.Linee);
    return Tabella;
}

/// Tables of clients and counterparties before others.
QStringList InOrdine(QStringList Nomi)
{
    const auto Rango = [](const QString& Nome) {
        const QStringList Primi{u"clienti"_s, u"controparti"_s};
        const qsizetype Posto = Primi.indexOf(Nome.toLower());
        return Posto < 0 ? Primi.size() : Posto;
    };
    std::ranges::stable_sort(Nomi, {}, Rango);
    return Nomi;
}

}  // namespace

struct SorgenteNominativi::Nativo
{
    Nativo(const QString& File, const AvanzamentoLettura& Prosegui)
        : Copia(File, [&](qint64 Fatti) { return !Prosegui || Prosegui(Fatti, 0); }),
          Db(OpenDatabase(Copia.File(), true))
    {}
    ArchivioNativo Copia;
    Database Db;
};

SorgenteNominativi::SorgenteNominativi(const QString& DiFile, const AvanzamentoLettura& Prosegui)
    : Percorso(DiFile)
{
    if (EArchivio(Percorso)) {
        Che = GenereSorgente::Archivio;
        Archivio = std::make_unique<Nativo>(Percorso, Prosegui);
        NomiTabelle = InOrdine(Archivio->Db.Tabelle());
        if (NomiTabelle.isEmpty())
            RifiutaFile(
                u"L'archivio \"%1\" non contiene tabelle: sceglierne un altro."_s.arg(NomeFile(Percorso)));
        return;
    }
    Byte = LeggiLimitato(Percorso, Prosegui);
    Che = EVcard(Byte) ? GenereSorgente::Vcard : GenereSorgente::Csv;
}

SorgenteNominativi::~SorgenteNominativi() = default;

TabellaEstranea SorgenteNominativi::Leggi(OpzioniSorgente& Come, const AvanzamentoLettura& Prosegui) const
{
    if (Che == GenereSorgente::Vcard)
        return LeggiVcard(Byte, Prosegui);
    if (Che == GenereSorgente::Csv) {
        RigheCsv Lette = LeggiCsv(Byte, Come.Csv, Prosegui);
        Come.Csv.Separatore = Lette.Separatore;
        Come.Csv.Codifica = Lette.Codifica;
        return DaRighe(std::move(Lette), Come.PrimaRigaTitoli);
    }
    const QString Quale =
        NomiTabelle.contains(Come.Tabella, Qt::CaseInsensitive) ? Come.Tabella : NomiTabelle.first();
    const Recordset Righe = Archivio->Db.OpenRecordset(Quale);
    TabellaEstranea Tabella;
    for (const Campo& Uno : Righe.Campi())
        Tabella.Titoli.append(Uno.Name);
    if (Tabella.Titoli.size() > limiti::Colonne || Righe.RecordCount() > limiti::Righe ||
        Tabella.Titoli.size() * qsizetype(Righe.RecordCount()) > limiti::Celle)
        RifiutaFile(u"La tabella \"%1\" ha troppe righe o colonne per una sola volta: usare \"Usa questo "
                    "archivio\", che lo prende intero."_s.arg(Quale));
    // What other tables lack is no matter of this one.
    for (const QString& Detto : Archivio->Copia.Lasciati())
        if (Detto.startsWith(Quale + u'.', Qt::CaseInsensitive))
            Tabella.Avvisi.append(u"tralasciato, "_s + Detto);
    constexpr int Porzione = 1000;
    int Numero = 0;
    std::optional<qint64> Ultima;
    do {
        if (Prosegui && !Prosegui(Numero, Righe.RecordCount()))
            throw Interrotto();
        Ultima = Righe.Scorri(Tabella.Titoli, Ultima, Porzione, [&](const RigaScorsa& Riga) {
            QStringList Celle;
            for (int i = 0; i < Tabella.Titoli.size(); ++i)
                Celle.append(TestoScheda(Riga.Valore(i)));
            Tabella.Righe.push_back(Celle);
            Tabella.Numeri.push_back(++Numero);
        });
    } while (Ultima);
    Come.Tabella = Quale;
    return Tabella;
}
