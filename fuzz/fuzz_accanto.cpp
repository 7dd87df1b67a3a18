// The small files that the program keeps beside others, and that anybody who may write there can change:
// locks, the record of an import, the keys beside an archive, what stands beside a recovery copy and a sent
// document, the publisher's key and a signature. The first line names the reader.
#include "basedati.h"
#include "fonte.h"

#include "addressbook/chiavi.h"
#include "addressbook/exchange/annullo.h"
#include "core/modInvii.h"
#include "feenote/file/modDescrizione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/file/modRecupero.h"
#include "platform/network/firma.h"
#include "platform/system/blocco.h"
#include "platform/system/cartelle.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

/// Sets the date of a file or folder so many seconds back.
void Invecchia(const QString& Percorso, qint64 Secondi)
{
    timespec Tempi[2]{};
    Tempi[0].tv_sec = Tempi[1].tv_sec = QDateTime::currentSecsSinceEpoch() - Secondi;
    (void)::utimensat(AT_FDCWD, QFile::encodeName(Percorso).constData(), Tempi, 0);
}

/// The first byte says how old the file is; the rest is the lock.
void Blocco(const QByteArray& Dati)
{
    const QString File = Posa(u"atto.lock"_s, Dati.mid(1));
    Invecchia(File, Dati.isEmpty() ? 0 : qint64(uchar(Dati[0])) * 10);
    {
        FileBlocco Turno(File);
        const FileBlocco::Esito Esito = Turno.Prendi(0);
        Pretendi(Turno.Titolare().Processo >= 0 && Esito != FileBlocco::Esito::Impedito);
        if (Esito == FileBlocco::Esito::Preso)
            Pretendi(
                Contenuto(File).startsWith(QByteArray::number(QCoreApplication::applicationPid()) + '\n'));
        else
            Pretendi(Contenuto(File) == Dati.mid(1));
    }
    const bool Libero = TogliBlocco(File);
    Pretendi(Libero == !QFileInfo::exists(File));
    QFile::remove(File);
}

const QByteArray& Archivio()
{
    static const QByteArray Letto = [] {
        const QString File = Posa(u"fatto.mdb"_s, Contenuto(CartellaCostruita() + u"DatiStudio.mdb"_s));
        OpenDatabase(File).Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Rossi'), ('Verdi')"_s);
        return Contenuto(File);
    }();
    return Letto;
}

/// Whatever the record says, the archive is as it was, or as its copy.
void Importazione(const QByteArray& Dati)
{
    const QByteArray Copia = Contenuto(CartellaCostruita() + u"DatiStudio.mdb"_s);
    const QString File = Posa(u"nomi.mdb"_s, Archivio());
    (void)Posa(u"nomi.mdb.prima"_s, Copia);
    (void)Posa(u"nomi.mdb.prima.json"_s, Dati);
    Riesce([&] {
        if (const auto Ultima = UltimaImportazione(File))
            Pretendi(Ultima->Quando.isValid() && !ImportazioneIlleggibile(File));
    });
    const bool Annullata = Riesce([&] { AnnullaImportazione(File); });
    Pretendi(Contenuto(File) == (Annullata ? Copia : Archivio()));
    TogliRestiDiImportazioni(File);
    Pretendi(QFileInfo::exists(File));
    for (const QString& Fine : {u".prima"_s, u".prima.json"_s, u".chiavi"_s})
        QFile::remove(File + Fine);
}

/// No key is given twice, and none that is none.
void Chiavi(const QByteArray& Dati)
{
    const QString File = Posa(u"chiavi.mdb"_s, Archivio());
    const QString Accanto = Posa(u"chiavi.mdb.chiavi"_s, Dati);
    const Database Db = OpenDatabase(File);
    for (const QString& Tabella : {u"clienti"_s, u"controparti"_s}) {
        qint64 Ultima = 0;
        const bool Letta = Riesce([&] { Ultima = UltimaChiaveData(Db, Tabella); });
        Pretendi(Ultima >= 0);
        Riesce([&] {
            const auto Libera = PrimaChiaveLibera(Db, Tabella);
            Pretendi(Letta && (!Libera || *Libera > Ultima));
        });
        constexpr qint64 Fino = 1000;
        if (Riesce([&] { TrattieniAccanto(File, Tabella, Fino); }))
            Pretendi(UltimaChiaveData(Db, Tabella) >= std::max(Fino, Ultima));
        else
            Pretendi(Contenuto(Accanto) == Dati);
    }
    QFile::remove(Accanto);
}

void Recupero(const QByteArray& Dati)
{
    static const QByteArray Nota = [] {
        const QString File = CartellaDiLavoro() + u"recuperata.mdb"_s;
        ScriviNota(File, CreaDaDescrizione(R"({"categoria": "CIV", "autorita": 2, "valore": 30000})"));
        QDir().mkpath(CartellaDiLavoro() + u"recupero"_s);
        return Contenuto(File);
    }();
    const QString Copia = Posa(u"recupero/1-1-1.mdb"_s, Nota);
    (void)Posa(u"recupero/1-1-1.json"_s, Dati);
    const QList<CopiaRecupero> Trovate = NoteDaRecuperare();
    Pretendi(Trovate.size() == 1 && Trovate[0].File == Copia);
    Riesce([&] {
        Parcella Recuperata;
        RecuperaNota(Recuperata, Trovate[0]);
        // The copy itself is what is saved last: only a save of its own writes to the note's file.
        Pretendi(Recuperata.Modificata && Recuperata.Percorso == Trovate[0].Percorso);
        Pretendi(Recuperata.Nome == Trovate[0].Nome && Contenuto(Copia) == Nota);
    });
    EliminaCopia(Trovate[0]);
    Pretendi(!QFileInfo::exists(Copia));
}

/// A mark names a file of its own folder, and nothing else goes.
void Inviato(const QByteArray& Dati)
{
    const QString Cartella = CartellaDati() + u"invii/20200101-000000-1/"_s;
    QDir().mkpath(Cartella);
    const auto Scrivi = [](const QString& File, const QByteArray& Byte) {
        QFile Nuovo(File);
        Pretendi(Nuovo.open(QIODevice::WriteOnly) && Nuovo.write(Byte) == Byte.size());
    };
    const QString Fuori = CartellaDati() + u"invii/altro.pdf"_s;
    Scrivi(Fuori, "x");
    Scrivi(Cartella + u"nota.pdf"_s, "documento");
    Scrivi(Cartella + u".inviato"_s, Dati);
    constexpr qint64 DueOre = 7200;
    Invecchia(Cartella, DueOre);
    SpazzaInvii();
    Pretendi(Contenuto(Fuori) == "x");
    const QByteArray Nome = Dati.split('\n').first();
    if (Nome != "nota.pdf")
        Pretendi(Contenuto(Cartella + u"nota.pdf"_s) == "documento");
    Pretendi(QFileInfo::exists(Cartella + u"nota.pdf"_s) == QFileInfo::exists(Cartella));
    QDir(Cartella).removeRecursively();
}

/// Nobody guesses a signature: what is valid is the publisher's own.
void Firma(Fonte& Dati)
{
    static const CoppiaChiavi Sue = NuoveChiavi();
    const QByteArray Byte = "versioni";
    static const QByteArray Vera = FirmaByte(Byte, Sue.Segreta);
    const QByteArray Chiave = Dati.Riga().toLatin1();
    const QByteArray Segno = Dati.Tutto();
    Pretendi(!FirmaValida(Byte, Segno, Chiave) && !FirmaValida(Byte, Segno, Sue.Pubblica));
    Pretendi(!FirmaValida(Byte, Vera, Chiave) && FirmaValida(Byte, Vera, Sue.Pubblica));
    InstallaFileChiave(Posa(u"calcanova.pub"_s, Segno));
    const QByteArray Letta = QByteArray::fromBase64(Segno.trimmed(), QByteArray::AbortOnBase64DecodingErrors);
    constexpr qsizetype Lunga = 32;
    if (Letta.size() != Lunga)
        Pretendi(DifettoChiave().contains(u"calcanova.pub"_s) && !FirmaValida(Byte, Vera, ChiavePubblica()));
    InstallaFileChiave({});
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    const qsizetype Fine = Dati.indexOf('\n');
    const QByteArray Chi = Dati.first(std::max<qsizetype>(Fine, 0));
    const QByteArray Resto = Dati.sliced(Fine + 1);
    if (Chi == "importazione") {
        Importazione(Resto);
    } else if (Chi == "chiavi") {
        Chiavi(Resto);
    } else if (Chi == "recupero") {
        Recupero(Resto);
    } else if (Chi == "inviato") {
        Inviato(Resto);
    } else if (Chi == "firma") {
        Fonte Righe(Resto);
        Firma(Righe);
    } else {
        Blocco(Resto);
    }
}

}  // namespace

BERSAGLIO(fuzz_accanto, Prova);
