#include "bersaglio.h"

#include "core/sessione.h"
#include "platform/system/messaggi.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

void Pretendi(bool Vero)
{
    if (!Vero)
        __builtin_trap();
}

QString CartellaDiLavoro()
{
    static const QTemporaryDir Radice(QDir::tempPath() + u"/calcanova-fuzz-XXXXXX"_s);
    // Nothing of the machine's user is read or written.
    static const bool Propria = [] {
        const QByteArray Casa = QFile::encodeName(Radice.path());
        qputenv("HOME", Casa);
        qputenv("XDG_CONFIG_HOME", Casa + "/config");
        qputenv("XDG_DATA_HOME", Casa + "/data");
        qputenv("XDG_DOCUMENTS_DIR", Casa + "/Documenti");
        qputenv("XDG_RUNTIME_DIR", Casa + "/sessione");
        return Radice.isValid();
    }();
    Pretendi(Propria);
    return Radice.path() + u'/';
}

QString CartellaCostruita()
{
    return QStringLiteral(CARTELLA_PROGRAMMA "/");
}

void PreparaSessione()
{
    static const bool Pronta = [] {
        InstallaMessaggi({});
        sessione::PercorsoProg = CartellaCostruita();
        sessione::UserFolder = CartellaDiLavoro();
        sessione::ParcellePath = CartellaDiLavoro();
        sessione::ArchivioCliCon = CartellaDiLavoro() + u"DatiStudio.mdb"_s;
        return true;
    }();
    Pretendi(Pronta);
}

QString Posa(const QString& Nome, const QByteArray& Contenuto)
{
    const QString File = CartellaDiLavoro() + Nome;
    QFile Nuovo(File);
    Pretendi(Nuovo.open(QIODevice::WriteOnly) && Nuovo.write(Contenuto) == Contenuto.size());
    return File;
}

QByteArray Contenuto(const QString& File)
{
    QFile Aperto(File);
    Pretendi(Aperto.open(QIODevice::ReadOnly));
    return Aperto.readAll();
}

#ifdef CON_LIBFUZZER
/// What the library of fonts keeps to its end is its own.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}
#endif
