#include "platform/system/shell.h"

#include "platform/base/numerierrore.h"
#include "platform/system/percorsi.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QOperatingSystemVersion>
#include <QStandardPaths>
#include <QSysInfo>
#include <QVersionNumber>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

Shell& Installata()
{
    static Shell Tabella;
    return Tabella;
}

QString CartellaDiSistema()
{
#ifdef Q_OS_WIN
    return qEnvironmentVariable("SystemRoot", u"C:\\Windows"_s);
#else
    return QDir::rootPath();
#endif
}

}  // namespace

Shell InstallaShell(Shell Nuova)
{
    return std::exchange(Installata(), std::move(Nuova));
}

int ApriConSistema(const QString& File)
{
    const auto Apri = Installata().ApriFile;
    return Apri ? Apri(File) : errori::NessunProgramma;
}

int ApriIndirizzoConSistema(const QString& Indirizzo)
{
    const auto Apri = Installata().ApriIndirizzo;
    return Apri ? Apri(Indirizzo) : errori::NessunProgramma;
}

bool HaProgramma(const QString& File)
{
    const auto Ha = Installata().HaProgramma;
    return Ha && Ha(File);
}

int ApriPdfConSistema(const QString& File, int Pagina)
{
    const auto Apri = Installata().ApriPdf;
    return Apri ? Apri(File, Pagina) : errori::NessunProgramma;
}

int AvviaProgramma(const QString& Programma, const QStringList& Argomenti, const QString& Cartella)
{
    const auto Avvia = Installata().Avvia;
    return Avvia ? Avvia(Programma, Argomenti, Cartella) : errori::NessunProgramma;
}

int SeguiProgramma(const QString& Programma, const QStringList& Argomenti,
                   std::function<void(int Esito)> AllaFine)
{
    const auto Segui = Installata().Segui;
    return Segui ? Segui(Programma, Argomenti, std::move(AllaFine)) : errori::NessunProgramma;
}

void Clessidra(bool Attiva)
{
    if (const auto& Mostra = Installata().Clessidra)
        Mostra(Attiva);
}

void Campanello()
{
    if (const auto& Suona = Installata().Campanello)
        Suona();
}

void ProssimoCampo()
{
    if (const auto Passa = Installata().ProssimoCampo)
        Passa();
}

bool InternetConnesso()
{
    const auto& Connesso = Installata().Connesso;
    return Connesso && Connesso();
}

void Segnala(const QString& Titolo, const QString& Testo)
{
    if (const auto Manda = Installata().Segnala)
        Manda(Titolo, Testo);
}

QString CartellaEseguibile()
{
    return Barra(QCoreApplication::applicationDirPath());
}

bool EProgramma(const QString& File)
{
    const QFileInfo Info(PercorsoNativo(File));
    return Info.isFile() && Info.isExecutable();
}

QString EstensioneInstallatore()
{
#ifdef Q_OS_WIN
    return u".exe"_s;
#else
    return u".deb"_s;
#endif
}

QString TrovaProgramma(const QString& Nome)
{
    return Nome.isEmpty() || NomeFile(Nome) != Nome ? QString() : QStandardPaths::findExecutable(Nome);
}

QString CartellaSpeciale(int Codice)
{
    switch (Codice) {
    case CartellaDocumenti:
        return Barra(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    case 12:
        return Barra(QDir::tempPath());
    case 36:
        return Barra(CartellaDiSistema());
#ifdef Q_OS_WIN
    case 37:
        return Barra(CartellaDiSistema()) + Barra(u"System32"_s);
#else
    case 37:
        return Barra(u"/usr/lib"_s);
#endif
    default:
        return Barra(QDir::homePath());
    }
}

VersioneSistema LeggiVersioneSistema()
{
#ifdef Q_OS_WIN
    const QOperatingSystemVersion Versione = QOperatingSystemVersion::current();
    return {true, Versione.majorVersion(), Versione.minorVersion(), true};
#else
    // Rules that ask for a version want to know whether the system is a present one; kernels count low.
    constexpr int MaggioreAttuale = 6;
    const QVersionNumber Nucleo = QVersionNumber::fromString(QSysInfo::kernelVersion());
    return {false, std::max(MaggioreAttuale, Nucleo.majorVersion()), Nucleo.minorVersion(), true};
#endif
}

QString NomeSistema()
{
    return u"%1 (%2)"_s.arg(QSysInfo::prettyProductName(), QSysInfo::currentCpuArchitecture());
}

void ImponiUtf8()
{
    qputenv("LC_ALL", "C.UTF-8");
}

void Termina(int Esito)
{
    if (const auto Chiudi = Installata().Termina)
        Chiudi(Esito);
    else
        QCoreApplication::exit(Esito);
}
