// Files of sections and keys: any bytes are read, a key is written, and nothing else may change.
#include "fonte.h"

#include "platform/base/paginacodice.h"
#include "platform/system/profilo.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace {

constexpr int Capienza = 1000;
constexpr qsizetype MassimoNomi = 4;

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
QList<QString> Nomi(const QByteArray& Byte, char Fine)
{
    QList<QString> Trovati;
    for (QByteArray Riga : Byte.split('\n')) {
        Riga = Riga.left(Riga.indexOf(Fine));
        Trovati << DaCp1252(Riga) << DaCp1252(Riga.mid(Riga.indexOf('[') + 1));
        if (Trovati.size() >= MassimoNomi)
            break;
    }
    return Trovati;
}

QList<Voce> Voci(const QByteArray& Byte, const QString& File)
{
    QList<Voce> Tutte;
    for (const QString& Sezione : Nomi(Byte, ']'))
        for (const QString& Chiave : Nomi(Byte, '='))
            Tutte.append({Sezione, Chiave, Leggi(Sezione, Chiave, File)});
    return Tutte;
}

void Prova(const QByteArray& Dati)
{
    Fonte Da(Dati);
    const QString Sezione = Da.Riga();
    const QString Chiave = Da.Riga();
    const QString Valore = Da.Riga();
    const QByteArray Prima = Da.Tutto();
    const QString File = Posa(u"prova.ini"_s, Prima);

    const QList<Voce> Altre = Voci(Prima, File);
    if (!WritePrivateProfileString(Sezione, Chiave, Valore, File)) {
        Pretendi(Contenuto(File) == Prima);
        return;
    }
    Pretendi(Leggi(Sezione, Chiave, File) == Scritto(Valore).left(Capienza - 1));
    for (const Voce& Altra : Altre) {
        const bool Scritta = Stesso(Scritto(Altra.Sezione), Scritto(Sezione)) &&
                             Stesso(Scritto(Altra.Chiave), Scritto(Chiave));
        Pretendi(Scritta || Leggi(Altra.Sezione, Altra.Chiave, File) == Altra.Valore);
    }
}

}  // namespace

BERSAGLIO(fuzz_ini, Prova);
