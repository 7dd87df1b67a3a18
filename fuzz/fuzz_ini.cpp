// Files of sections and keys: any bytes are read, a key is written, and nothing else may change.
#include "platform/base/errore.h"
#include "platform/base/paginacodice.h"
#include "platform/system/profilo.h"

#include <QFile>
#include <QList>
#include <QTemporaryDir>

#include <fuzzer/FuzzedDataProvider.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int Capienza = 1000;
constexpr qsizetype MassimoNomi = 4;

void Pretendi(bool Vero)
{
    if (!Vero)
        __builtin_trap();
}

struct Voce
{
    QString Sezione;
    QString Chiave;
    QString Valore;
};

/// The text as a line of the file holds it: one line, Windows-1252, no blanks around.
QString Scritto(const QString& Testo)
{
    QString Riga = DaCp1252(Cp1252(Testo));
    Riga.replace(u'\r', u' ').replace(u'\n', u' ');
    while (Riga.startsWith(u' ') || Riga.startsWith(u'\t'))
        Riga.remove(0, 1);
    while (Riga.endsWith(u' ') || Riga.endsWith(u'\t'))
        Riga.chop(1);
    return Riga;
}

bool Stesso(const QString& Primo, const QString& Secondo)
{
    return Primo.compare(Secondo, Qt::CaseInsensitive) == 0;
}

QString Leggi(const QString& Sezione, const QString& Chiave, const QString& File)
{
    return GetPrivateProfileString(Sezione, Chiave, u"\uFFFFassente"_s, Capienza, File);
}

/// What looks like a name in the file, with some invention: more than the reader may take for one.
QList<QString> Nomi(const QByteArray& Contenuto, char Fine)
{
    QList<QString> Trovati;
    for (QByteArray Riga : Contenuto.split('\n')) {
        Riga = Riga.left(Riga.indexOf(Fine));
        Trovati << DaCp1252(Riga) << DaCp1252(Riga.mid(Riga.indexOf('[') + 1));
        if (Trovati.size() >= MassimoNomi)
            break;
    }
    return Trovati;
}

QList<Voce> Voci(const QByteArray& Contenuto, const QString& File)
{
    QList<Voce> Tutte;
    for (const QString& Sezione : Nomi(Contenuto, ']'))
        for (const QString& Chiave : Nomi(Contenuto, '='))
            Tutte.append({Sezione, Chiave, Leggi(Sezione, Chiave, File)});
    return Tutte;
}

QByteArray Contenuto(const QString& File)
{
    QFile Aperto(File);
    Pretendi(Aperto.open(QIODevice::ReadOnly));
    return Aperto.readAll();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Dati, size_t Quanti)
{
    static const QTemporaryDir Cartella;
    const QString File = Cartella.filePath(u"prova.ini"_s);

    FuzzedDataProvider Fonte(Dati, Quanti);
    const auto Testo = [&](size_t Massimo) {
        return QString::fromStdString(Fonte.ConsumeRandomLengthString(Massimo));
    };
    const QString Sezione = Testo(16);
    const QString Chiave = Testo(16);
    const QString Valore = Testo(1200);
    const QByteArray Prima = QByteArray::fromStdString(Fonte.ConsumeRemainingBytesAsString());
    {
        QFile Nuovo(File);
        Pretendi(Nuovo.open(QIODevice::WriteOnly) && Nuovo.write(Prima) == Prima.size());
    }

    const QList<Voce> Altre = Voci(Prima, File);
    if (!WritePrivateProfileString(Sezione, Chiave, Valore, File)) {
        Pretendi(Contenuto(File) == Prima);
        return 0;
    }
    Pretendi(Leggi(Sezione, Chiave, File) == Scritto(Valore).left(Capienza - 1));
    for (const Voce& Altra : Altre) {
        const bool Scritta = Stesso(Scritto(Altra.Sezione), Scritto(Sezione)) &&
                             Stesso(Scritto(Altra.Chiave), Scritto(Chiave));
        Pretendi(Scritta || Leggi(Altra.Sezione, Altra.Chiave, File) == Altra.Valore);
    }
    return 0;
}
