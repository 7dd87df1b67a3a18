// calcanova-demo: the real windows used by a script, with settings, folders and a date of its own.
//
// calcanova-demo FOLDER    plays the script and leaves what it made in the folder
// calcanova-demo --schermo succeeds where a display can be used
#include "core/app/programma.h"
#include "core/modAvvio.h"
#include "demo/copione.h"
#include "feenote/file/modRecupero.h"
#include "feenote/windows/finestre.h"
#include "platform/kit/servizi_qt.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"

#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int UsoErrato = 2;

/// Whatever the script does stays in a home of its own.
void UsaCasa(const QString& Casa)
{
    for (const char* Nome :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_DOCUMENTS_DIR"})
        qputenv(Nome, QFile::encodeName(Casa));
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY") &&
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // A bare machine has no place for the session's files.
    const QByteArray Sessione = QFile::encodeName(Casa + u"/sessione"_s);
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR") && QDir(Casa).mkdir(u"sessione"_s)) {
        QFile::setPermissions(QFile::decodeName(Sessione),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", Sessione);
    }
}

/// The platform without a screen says at each window what it cannot do with it.
void TaciSenzaSchermo(QtMsgType, const QMessageLogContext&, const QString& Detto)
{
    if (!Detto.startsWith(u"This plugin does not support"))
        std::fputs((Detto + u'\n').toLocal8Bit().constData(), stderr);
}

/// The settings of an office that has used the program before: it has a name, and has read the notice.
void ImpostaStudio(const QString& Utente)
{
    const auto Salva = [](const QString& Chiave, const QString& Valore) {
        SaveSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave, Valore);
    };
    Salva(u"UserFolder"_s, Utente);
    CreaCartella(Utente);
    ScriviFile(Utente + u"avvisokr5.ini"_s, {});
    Salva(u"StudioNome"_s, u"Avv. Giulia Bianchi"_s);
    Salva(u"StudioIndir"_s, u"Via della Consulta 12"_s);
    Salva(u"StudioCitta"_s, u"00184 Roma"_s);
    Salva(u"StudioMail"_s, u"studio@bianchi.example"_s);
    Salva(u"StudioCodFisc"_s, u"BNCGLI80A41H501W"_s);
    Salva(u"StudioPIva"_s, u"01234567890"_s);
    Salva(u"Firma"_s, u"Avv. Giulia Bianchi"_s);
    Salva(u"CercaAgg"_s, u"N"_s);
    Salva(u"FormState"_s, u"2"_s);  // notes fill the frame
}

int Recitata(int& argc, char** argv, const QString& Cartella)
{
    const QTemporaryDir Casa;
    UsaCasa(Casa.path());
    qInstallMessageHandler(TaciSenzaSchermo);
    Applicazione Programma(argc, argv);
    InstallaOrologio([] { return QDateTime(QDate(2024, 3, 15), QTime(10, 30)); });
    PreparaProgramma();
    ImpostaStudio(Barra(Barra(Casa.path()) + u"utente"_s));
    CreaCartella(Cartella);
    QTimer::singleShot(0, &Programma,
                       [&Cartella] { QCoreApplication::exit(Recita(Barra(Cartella)) ? 0 : 1); });
    const int Esito = QApplication::exec();
    // Windows and their recovery copies go before the folder that these stand in.
    AzzeraFinestre();
    LasciaRecupero();
    return Esito;
}

}  // namespace

int main(int argc, char** argv)
{
    const QString Primo = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (Primo == u"--schermo") {
        const QGuiApplication Prova(argc, argv);  // ends the process where there is none
        return QGuiApplication::platformName() == u"offscreen" ? 1 : 0;
    }
    if (Primo.isEmpty() || Primo.startsWith(u'-')) {
        std::fputs("calcanova-demo CARTELLA\ncalcanova-demo --schermo\n", stderr);
        return UsoErrato;
    }
    return Recitata(argc, argv, Primo);
}
