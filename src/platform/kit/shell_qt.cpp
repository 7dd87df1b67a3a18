#include "platform/kit/shell_qt.h"

#include "platform/base/numerierrore.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/system/file.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <QUrl>

#include <array>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

int ApriUrl(const QUrl& Indirizzo)
{
    return Indirizzo.isValid() && QDesktopServices::openUrl(Indirizzo) ? 0 : errori::NessunProgramma;
}

int ApriFile(const QString& File)
{
    // A folder opens too, in the system's file manager.
    if (!EsisteFile(File) && !EsisteCartella(File))
        return errori::FileMancante;
    return ApriUrl(QUrl::fromLocalFile(File));
}

#ifndef Q_OS_WIN
/// The desktop entry of the program that the system associates with a file, "org.gnome.Evince.desktop", and
/// empty where there is none; nothing where the system cannot be asked.
std::optional<QString> Associato(const QString& File)
{
    const QString Tipo = QMimeDatabase().mimeTypeForFile(File, QMimeDatabase::MatchExtension).name();
    QProcess Domanda;
    Domanda.start(u"xdg-mime"_s, {u"query"_s, u"default"_s, Tipo}, QIODevice::ReadOnly);
    constexpr int AttesaMs = 3000;
    if (!Domanda.waitForFinished(AttesaMs)) {
        Domanda.kill();
        Domanda.waitForFinished(AttesaMs);
        return std::nullopt;
    }
    return QString::fromLocal8Bit(Domanda.readAllStandardOutput()).trimmed();
}
#endif

/// A viewer that opens at a page, and how it is told which.
struct Lettore
{
    QStringView Programma;
    QStringView Argomento;
    bool Unito;  ///< argument and number are one word
};

constexpr std::array Lettori{
    Lettore{u"evince", u"--page-index=", true}, Lettore{u"okular", u"--page", false},
    Lettore{u"atril", u"--page-index=", true},  Lettore{u"xreader", u"--page-index=", true},
    Lettore{u"zathura", u"--page=", true},
};

/// The viewers that may show a PDF at a page: the associated one alone, if it is of those that can; each that
/// is installed, where the system cannot be asked.
std::vector<Lettore> LettoriPer(const QString& File)
{
    std::vector<Lettore> Adatti;
#ifndef Q_OS_WIN
    const std::optional<QString> Voluto = Associato(File);
    for (const Lettore& Voce : Lettori)
        if ((!Voluto || Voluto->contains(Voce.Programma, Qt::CaseInsensitive)) &&
            !QStandardPaths::findExecutable(Voce.Programma.toString()).isEmpty())
            Adatti.push_back(Voce);
#endif
    return Adatti;
}

bool ProgrammaPer(const QString& File)
{
#ifdef Q_OS_WIN
    return !File.isEmpty();  // the system itself offers a choice for a type it does not know
#else
    const std::optional<QString> Voluto = Associato(File);
    return Voluto ? !Voluto->isEmpty() : !LettoriPer(File).empty();
#endif
}

int ApriPdf(const QString& File, int Pagina)
{
    if (!EsisteFile(File))
        return errori::FileMancante;
    if (Pagina > 0) {
        for (const Lettore& Voce : LettoriPer(File)) {
            const QString Trovato = QStandardPaths::findExecutable(Voce.Programma.toString());
            const QString Argomento = Voce.Argomento.toString();
            const QString Numero = QString::number(Pagina);
            const QStringList Argomenti =
                Voce.Unito ? QStringList{Argomento + Numero, File} : QStringList{Argomento, Numero, File};
            if (QProcess::startDetached(Trovato, Argomenti))
                return 0;
        }
    }
    return ApriFile(File);
}

int Avvia(const QString& Programma, const QStringList& Argomenti, const QString& Cartella)
{
    return QProcess::startDetached(Programma, Argomenti, Cartella) ? 0 : errori::Argomento;
}

/// The programs that are followed. Their objects belong to nobody else, and outlive the application's end:
/// the end of such an object would be that of a program which goes on behind this one.
QList<QProcess*>& Seguiti()
{
    static auto* const Tutti = new QList<QProcess*>;
    return *Tutti;
}

int Segui(const QString& Programma, const QStringList& Argomenti, std::function<void(int Esito)> AllaFine)
{
    auto* Avviato = new QProcess;
    Avviato->setProgram(Programma);
    Avviato->setArguments(Argomenti);
    Avviato->setStandardInputFile(QProcess::nullDevice());
    Avviato->setStandardOutputFile(QProcess::nullDevice());
    Avviato->setStandardErrorFile(QProcess::nullDevice());
    const auto Finito = [Avviato, AllaFine = std::move(AllaFine)](int Esito, QProcess::ExitStatus Come) {
        Seguiti().removeOne(Avviato);
        Avviato->deleteLater();
        AllaFine(Come == QProcess::NormalExit ? Esito : -1);
    };
    Collega(Avviato, &QProcess::finished, qApp, Finito);
    Avviato->start(QIODevice::NotOpen);
    constexpr int AttesaMs = 3000;
    if (!Avviato->waitForStarted(AttesaMs)) {
        delete Avviato;
        return errori::NessunProgramma;
    }
    if (Avviato->state() != QProcess::NotRunning)
        Seguiti().append(Avviato);
    return 0;
}

/// On and off do not add up: one "off" is enough, however many procedures have asked for it.
void PuntatoreOccupato(bool Attiva)
{
    if (Attiva && !QApplication::overrideCursor())
        QApplication::setOverrideCursor(Qt::WaitCursor);
    while (!Attiva && QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
}

void FuocoAvanti()
{
    if (QWidget* Campo = QApplication::focusWidget())
        PassaAvanti(Campo);
}

/// Settings are on the disk after each save, so that only the loop is left. An exit asked for before the
/// loop runs would be lost: it is queued.
void Esci(int Esito)
{
    if (QThread::currentThread()->loopLevel() > 0)
        QCoreApplication::exit(Esito);
    else
        QMetaObject::invokeMethod(
            qApp, [Esito] { QCoreApplication::exit(Esito); }, Qt::QueuedConnection);
}

}  // namespace

Shell ShellQt()
{
    Shell Servizi;
    Servizi.ApriFile = ApriFile;
    Servizi.ApriIndirizzo = [](const QString& Indirizzo) { return ApriUrl(QUrl(Indirizzo)); };
    Servizi.HaProgramma = ProgrammaPer;
    Servizi.ApriPdf = ApriPdf;
    Servizi.Avvia = Avvia;
    Servizi.Segui = Segui;
    Servizi.Clessidra = PuntatoreOccupato;
    Servizi.Campanello = [] { QApplication::beep(); };
    Servizi.ProssimoCampo = FuocoAvanti;
    Servizi.Termina = Esci;
    return Servizi;
}
