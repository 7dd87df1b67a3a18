#include "programma.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int AttesaMs = 15000;

QString Ambiente(const char* Nome)
{
    return qEnvironmentVariable(Nome);
}

void Scrivi(const QString& Percorso, const QByteArray& Contenuto)
{
    QDir().mkpath(QFileInfo(Percorso).path());
    QFile File(Percorso);
    if (!File.open(QIODevice::WriteOnly) || File.write(Contenuto) != Contenuto.size())
        QTest::qFail(qPrintable(u"non si scrive "_s + Percorso), __FILE__, __LINE__);
}

/// Dark colours as a desktop gives them to every program, and large letters: the toolkit reads them from that
/// desktop's settings.
constexpr const char* ColoriScuri = R"([Colors:Window]
BackgroundNormal=42,46,50
ForegroundNormal=252,252,252
[Colors:View]
BackgroundNormal=27,30,32
BackgroundAlternate=35,38,41
ForegroundNormal=252,252,252
ForegroundInactive=161,169,177
ForegroundLink=29,153,243
ForegroundVisited=155,89,182
[Colors:Button]
BackgroundNormal=49,54,59
BackgroundAlternate=30,87,116
ForegroundNormal=252,252,252
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252
[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
)";

}  // namespace

Programma::Programma(const QStringList& Argomenti, const QString& Impostazioni)
{
    const QString Radice = Cartella.path();
    const QString Utente = Radice + u"/Documenti/KR5/"_s;
    Scrivi(Utente + u"avvisokr5.ini"_s, "[avvisokr5]\nletto=S\n");
    Scrivi(Radice + u"/config/Calcanova/KR5.ini"_s,
           "[Parametri]\nstudionome=Studio Prova\nstudiocitta=Roma\ncercaagg=N\nuserfolder=" +
               Utente.toUtf8() + '\n' + Impostazioni.toUtf8());
    QProcessEnvironment Intorno = QProcessEnvironment::systemEnvironment();
    for (const auto& [Nome, Valore] : {std::pair{u"HOME"_s, Radice},
                                       {u"XDG_CONFIG_HOME"_s, Radice + u"/config"_s},
                                       {u"XDG_DATA_HOME"_s, Radice + u"/data"_s},
                                       {u"XDG_CACHE_HOME"_s, Radice + u"/cache"_s},
                                       {u"XDG_DOCUMENTS_DIR"_s, Radice + u"/Documenti"_s},
                                       {u"QT_QPA_PLATFORM"_s, u"xcb"_s},
                                       {u"QT_QPA_GENERIC_PLUGINS"_s, u"spia"_s},
                                       {u"QT_PLUGIN_PATH"_s, Ambiente("CALCANOVA_PLUGIN")},
                                       {u"CALCANOVA_SPIA"_s, Radice + u"/spia"_s},
                                       {u"QT_LOGGING_RULES"_s, u"qt.qpa.*=false"_s}})
        Intorno.insert(Nome, Valore);
    const QByteArray Corpo = qgetenv("CALCANOVA_CORPO");
    if (qEnvironmentVariableIsSet("CALCANOVA_SCURO") || !Corpo.isEmpty()) {
        Scrivi(Radice + u"/config/kdeglobals"_s,
               (qEnvironmentVariableIsSet("CALCANOVA_SCURO") ? QByteArray(ColoriScuri) : QByteArray()) +
                   (Corpo.isEmpty() ? QByteArray()
                                    : "[General]\nfont=DejaVu Sans," + Corpo + ",-1,5,50,0,0,0,0,0\n"));
        Intorno.insert(u"XDG_CURRENT_DESKTOP"_s, u"KDE"_s);
        Intorno.insert(u"KDE_SESSION_VERSION"_s, u"5"_s);
        Intorno.insert(u"QT_QPA_PLATFORMTHEME"_s, u"kde"_s);
    }
    Processo.setProcessEnvironment(Intorno);
    Processo.setProcessChannelMode(QProcess::MergedChannels);
    Processo.start(Ambiente("CALCANOVA_CARTELLA") + u"/calcanova"_s, Argomenti);
    QElapsedTimer Orologio;
    Orologio.start();
    while (Filo.state() != QLocalSocket::ConnectedState && Orologio.elapsed() < 2 * AttesaMs) {
        Filo.connectToServer(Radice + u"/spia"_s);
        if (!Filo.waitForConnected(200))
            QTest::qWait(100);
    }
    if (Filo.state() != QLocalSocket::ConnectedState)
        QTest::qFail("il programma non risponde: " + Processo.readAll(), __FILE__, __LINE__);
}

Programma::~Programma()
{
    Filo.abort();
    Processo.kill();
    Processo.waitForFinished(AttesaMs);
}

QString Programma::Chiedi(const QString& Domanda)
{
    if (Filo.state() != QLocalSocket::ConnectedState)
        return {};
    Filo.write(Domanda.toUtf8() + '\n');
    QElapsedTimer Orologio;
    Orologio.start();
    while (!Filo.canReadLine() && Filo.state() == QLocalSocket::ConnectedState &&
           Orologio.elapsed() < AttesaMs)
        Filo.waitForReadyRead(500);
    return QString::fromUtf8(Filo.readLine()).chopped(Filo.state() == QLocalSocket::ConnectedState ? 1 : 0);
}

QString Programma::Stato()
{
    if (!InVita())
        return u"il programma è terminato: "_s + QString::fromUtf8(Processo.readAll());
    return u"finestra [%1] fuoco [%2] messaggio [%3]"_s.arg(Chiedi(u"attiva"_s), Fuoco(), Messaggio());
}

bool Programma::Attendi(const QString& Domanda, const std::function<bool(const QString&)>& Buona)
{
    QElapsedTimer Orologio;
    Orologio.start();
    while (InVita() && Orologio.elapsed() < AttesaMs) {
        if (Buona(Chiedi(Domanda)))
            return true;
        QTest::qWait(50);
    }
    return false;
}

bool Programma::Aperta(const QString& Titolo)
{
    return Attendi(u"attiva"_s,
                   [&Titolo](const QString& Titoli) {
                       return Titoli.startsWith(Titolo) || Titoli.contains(u'|' + Titolo);
                   }) &&
           Attendi(u"dipinta"_s, [](const QString& Risposta) { return Risposta == u"1"; });
}

bool Programma::AllaScrivania()
{
    return Attendi(u"finestra"_s, [](const QString& Nome) { return Nome == u"frmStudio"; }) &&
           Aperta(u"Calcanova 3"_s);
}

bool Programma::NuovaParcella()
{
    if (!AllaScrivania())
        return false;
    Clic(u"imgMenu_0"_s);
    if (Aperta(u"Nuova parcella"_s))
        return true;
    Fotografa(u"senza_parcella"_s);
    return false;
}

bool Programma::CompilaDatiBase()
{
    for (const QString& Lista : {u"cmbCateg"_s, u"cmbAutor"_s}) {
        Clic(Lista);
        if (!Attendi(u"popup"_s, [](const QString& Aperta) { return !Aperta.isEmpty(); }))
            return false;
        Premi({u"Home"_s, u"Down"_s, u"Return"_s});
        if (!Attendi(u"popup"_s, [](const QString& Aperta) { return Aperta.isEmpty(); }) ||
            Testo(Lista).isEmpty())
            return false;
    }
    Clic(u"txtImporto"_s);
    Digita(u"30000"_s);
    Premi(u"Tab"_s);
    return Messaggio().isEmpty();
}

bool Programma::AllaScheda(const QString& Titolo)
{
    constexpr int Schede = 5;
    for (int i = 0; i < Schede && Testo(u"tabParcelle"_s) != Titolo; ++i) {
        const QString Prima = Testo(u"tabParcelle"_s);
        Premi(u"ctrl+Next"_s);
        if (!Attendi(u"testo tabParcelle"_s, [&Prima](const QString& Ora) { return Ora != Prima; }))
            break;
    }
    return Testo(u"tabParcelle"_s) == Titolo && Messaggio().isEmpty();
}

bool Programma::AlleImpostazioni(const QString& Titolo)
{
    Premi(u"ctrl+shift+p"_s);
    if (!Aperta(u"Calcanova - Personalizzazione programma"_s))
        return false;
    constexpr int Schede = 6;
    for (int i = 0; i < Schede && Testo(u"tabSetup"_s) != Titolo; ++i) {
        const QString Prima = Testo(u"tabSetup"_s);
        Premi(u"ctrl+Tab"_s);
        if (!Attendi(u"testo tabSetup"_s, [&Prima](const QString& Ora) { return Ora != Prima; }))
            break;
    }
    return Testo(u"tabSetup"_s) == Titolo && Messaggio().isEmpty();
}

bool Programma::VaiA(const QString& Nome)
{
    constexpr int Massimo = 80;
    for (int i = 0; i < Massimo && Fuoco() != Nome; ++i)
        Premi(u"Tab"_s);
    return Fuoco() == Nome;
}

QRect Programma::Posto(const QString& Nome)
{
    const QStringList Numeri = Chiedi(u"posto "_s + Nome).split(u' ');
    if (Numeri.size() < 4) {
        QTest::qFail(qPrintable(u"non si vede "_s + Nome + u": "_s + Stato()), __FILE__, __LINE__);
        return {};
    }
    return {Numeri[0].toInt(), Numeri[1].toInt(), Numeri[2].toInt(), Numeri[3].toInt()};
}

QRect Programma::Cella(const QString& Griglia, int Riga, int Colonna)
{
    const QStringList Numeri = Chiedi(u"cella %1 %2 %3"_s.arg(Griglia).arg(Riga).arg(Colonna)).split(u' ');
    if (Numeri.size() < 4) {
        QTest::qFail(qPrintable(u"nessuna cella in "_s + Griglia + u": "_s + Stato()), __FILE__, __LINE__);
        return {};
    }
    return {Numeri[0].toInt(), Numeri[1].toInt(), Numeri[2].toInt(), Numeri[3].toInt()};
}

QString Programma::TestoCella(const QString& Griglia, int Riga, int Colonna)
{
    return Chiedi(u"cella %1 %2 %3"_s.arg(Griglia).arg(Riga).arg(Colonna)).section(u' ', 4);
}

bool Programma::Fermo(const QString& Dove)
{
    return Messaggio().isEmpty() && Chiedi(u"popup"_s).isEmpty() && Fuoco() == Dove;
}

void Programma::Xdotool(const QStringList& Argomenti)
{
    QProcess Comando;
    Comando.start(u"xdotool"_s, Argomenti);
    if (!Comando.waitForFinished(AttesaMs) || Comando.exitCode() != 0)
        QTest::qFail("xdotool: " + Comando.readAllStandardError(), __FILE__, __LINE__);
}

int Programma::Contati(int Quale)
{
    return Chiedi(u"contati"_s).section(u' ', Quale, Quale).toInt();
}

/// What was sent has arrived: nothing is judged before, not even that nothing happens.
void Programma::AttendiContati(int Quale, int Almeno)
{
    QElapsedTimer Orologio;
    Orologio.start();
    while (InVita() && Contati(Quale) < Almeno && Orologio.elapsed() < AttesaMs)
        QTest::qWait(10);
}

void Programma::Premi(const QStringList& Tasti)
{
    for (const QString& Tasto : Tasti) {
        const int Prima = Contati(0);
        Xdotool({u"key"_s, Tasto});
        AttendiContati(0, Prima + 1 + int(Tasto.count(u'+')));
    }
}

void Programma::Rispondi(const QString& Tasto)
{
    if (!Attendi(u"davanti"_s, [](const QString& Risposta) { return Risposta == u"1"; }))
        QTest::qFail(qPrintable(u"nessun messaggio davanti: "_s + Stato()), __FILE__, __LINE__);
    Premi(Tasto);
}

void Programma::Digita(const QString& Testo)
{
    const int Prima = Contati(0);
    Xdotool({u"type"_s, u"--delay"_s, u"15"_s, Testo});
    AttendiContati(0, Prima + int(Testo.size()));
}

void Programma::Giu(const QString& Tasto)
{
    const int Prima = Contati(0);
    Xdotool({u"keydown"_s, Tasto});
    AttendiContati(0, Prima + 1);
}

void Programma::Su(const QString& Tasto)
{
    Xdotool({u"keyup"_s, Tasto});
}

void Programma::Sfiora(const QString& Modificatore)
{
    Giu(Modificatore);
    Su(Modificatore);
}

void Programma::Clic(const QRect& Dove, int Volte)
{
    const QPoint Centro = Dove.center();
    Xdotool({u"mousemove"_s, QString::number(Centro.x()), QString::number(Centro.y()), u"click"_s,
             u"--repeat"_s, QString::number(Volte), u"--delay"_s, u"40"_s, u"1"_s});
}

void Programma::ClicDestro(const QRect& Dove)
{
    const QPoint Centro = Dove.center();
    Xdotool({u"mousemove"_s, QString::number(Centro.x()), QString::number(Centro.y()), u"click"_s, u"3"_s});
}

void Programma::Trascina(const QPoint& Da, const QPoint& A)
{
    const QPoint Mezzo = (Da + A) / 2;
    QStringList Passi{u"mousemove"_s, QString::number(Da.x()), QString::number(Da.y()), u"mousedown"_s,
                      u"1"_s};
    for (const QPoint& Punto : {Mezzo, A, A})
        Passi << u"mousemove"_s << QString::number(Punto.x()) << QString::number(Punto.y()) << u"sleep"_s
              << u"0.05"_s;
    Xdotool(Passi + QStringList{u"mouseup"_s, u"1"_s});
}

void Programma::Rotella(const QRect& Dove, int Scatti)
{
    const int Prima = Contati(1);
    const QPoint Centro = Dove.center();
    Xdotool({u"mousemove"_s, QString::number(Centro.x()), QString::number(Centro.y()), u"click"_s,
             u"--repeat"_s, QString::number(std::abs(Scatti)), u"--delay"_s, u"30"_s,
             Scatti > 0 ? u"5"_s : u"4"_s});
    AttendiContati(1, Prima + 1);
}

void Programma::Fotografa(const QString& Nome)
{
    // What has just changed is painted with the next frame; nothing is judged by a picture.
    constexpr int AlcuniQuadriMs = 200;
    QTest::qWait(AlcuniQuadriMs);
    const QString Foto = Ambiente("CALCANOVA_FOTO");
    QDir().mkpath(Foto);
    QProcess Comando;
    Comando.start(u"import"_s, {u"-window"_s, u"root"_s, Foto + u'/' + Nome + u".png"_s});
    if (!Comando.waitForFinished(2 * AttesaMs) || Comando.exitCode() != 0)
        QTest::qFail("import: " + Comando.readAllStandardError(), __FILE__, __LINE__);
}

QString Appunti()
{
    QProcess Comando;
    Comando.start(u"xclip"_s, {u"-o"_s, u"-selection"_s, u"clipboard"_s});
    return Comando.waitForFinished(AttesaMs) ? QString::fromUtf8(Comando.readAllStandardOutput()) : QString();
}
