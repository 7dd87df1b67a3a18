#include "architettura/regole.h"
#include "architettura/sorgenti.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

#include <functional>

using namespace Qt::StringLiterals;

QStringList Righe(const QString& Percorso)
{
    QFile Aperto(Percorso);
    if (!Aperto.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(Aperto.readAll()).split(u'\n');
}

QStringList Sorgenti(const Casa& Questa, const QStringList& Estensioni)
{
    QStringList Trovati;
    QDirIterator Cammino(Questa.Radice, Estensioni, QDir::Files, QDirIterator::Subdirectories);
    while (Cammino.hasNext())
        Trovati += QDir(Questa.Radice).relativeFilePath(Cammino.next());
    Trovati.sort();
    return Trovati;
}

QString CartellaDi(const QString& Percorso)
{
    return Percorso.left(std::max<qsizetype>(0, Percorso.lastIndexOf(u'/')));
}

QString Posto(const QString& Percorso, qsizetype Riga)
{
    return u"src/%1:%2 "_s.arg(Percorso).arg(Riga + 1);
}

namespace {

/// True for a header of the tree, and for the one that the build makes of a form: room/ui_name.h of
/// room/name.ui.
bool Esiste(const Casa& Questa, const QString& Incluso)
{
    static const QRegularExpression DaDisegno(u"/ui_(\\w+)\\.h$"_s);
    QString Disegno = Incluso;
    Disegno.replace(DaDisegno, u"/\\1.ui"_s);
    return QFileInfo::exists(Questa.Radice + Incluso) ||
           (Disegno != Incluso && QFileInfo::exists(Questa.Radice + Disegno));
}

/// What a source includes, line by line. A header is ours by a path in quotes, or because it stands below the
/// root, whatever brackets are around it.
void PerOgniInclude(
    const Casa& Questa,
    const std::function<void(const QString& File, qsizetype Riga, const QString& Incluso, bool Nostro)>& Fai)
{
    static const QRegularExpression Forma(u"^\\s*#\\s*include\\s*([\"<])([^\">]+)[\">]"_s);
    static const QRegularExpression FormaUi(u"<header( location=\"global\")?>([^<]+)</header>"_s);
    for (const QString& File : Sorgenti(Questa, {u"*.h"_s, u"*.cpp"_s, u"*.ui"_s})) {
        const bool Disegno = File.endsWith(u".ui");
        const QStringList Testo = Righe(Questa.Radice + File);
        for (qsizetype i = 0; i < Testo.size(); ++i) {
            const QRegularExpressionMatch Trovato = (Disegno ? FormaUi : Forma).match(Testo[i]);
            if (Trovato.hasMatch()) {
                const QString Incluso = Trovato.captured(2);
                const bool ColPercorso = Trovato.captured(1) == u"\""_s && Incluso.contains(u'/');
                Fai(File, i, Incluso, Disegno || ColPercorso || QFileInfo::exists(Questa.Radice + Incluso));
            }
        }
    }
}

/// What belongs to the operating system, and the rooms under which it may stand.
struct Chiamata
{
    QStringView Intestazione;
    bool NomeIntero;  ///< otherwise the header begins so
};

constexpr Chiamata DelSistema[] = {
    {u"QLockFile", true},
    {u"QSettings", true},
    {u"QProcess", true},
    {u"QStandardPaths", true},
    {u"QLocalSocket", true},
    {u"QLocalServer", true},
    {u"fcntl", true},
    {u"unistd", true},
    {u"windows", true},
    {u"sys/", false},
    {u"QDesktopServices", true},
    {u"QSysInfo", true},
    {u"csignal", true},
    {u"signal", true},
    {u"dlfcn", true},
    {u"pwd", true},
    {u"grp", true},
    {u"poll", true},
};

/// A header of a library without its Qt module: <QtCore/QProcess> is <QProcess>.
QString SenzaModulo(QString Incluso)
{
    static const QRegularExpression Modulo(u"^Qt\\w+/"_s);
    return Incluso.remove(Modulo);
}

bool EDelSistema(const QString& Incluso)
{
    // Qt has each class twice: <QSettings> and <qsettings.h>.
    QString Nome = SenzaModulo(Incluso);
    if (Nome.endsWith(u".h", Qt::CaseInsensitive))
        Nome.chop(2);
    return std::any_of(std::begin(DelSistema), std::end(DelSistema), [&](const Chiamata& Nota) {
        return Nota.NomeIntero ? Nome.compare(Nota.Intestazione, Qt::CaseInsensitive) == 0
                               : Nome.startsWith(Nota.Intestazione, Qt::CaseInsensitive);
    });
}

/// Names that a header declares for everybody: types, functions and variables outside every class, with the
/// namespace in front. Declarations begin at the first column, as the formatter writes them.
QStringList NomiDichiarati(const QStringList& Testo)
{
    static const QRegularExpression Spazio(u"^(?:inline )?namespace ([\\w:]+) \\{"_s);
    static const QRegularExpression Tipo(
        u"^(?:struct|class|enum class|enum) (?!\\w+(?: : [\\w:]+)?;)(\\w+)"_s);
    static const QRegularExpression Variabile(
        u"^(?:(?:inline|static|extern|constexpr) )+[\\w:<>,&* ]+[ &*](\\w+)(?:\\[.*\\])?\\s*[={;]"_s);
    static const QRegularExpression Alias(u"^using (\\w+) ="_s);
    static const QRegularExpression Funzione(
        u"^(?!using|return|template|#|//|\\})(?:\\[\\[nodiscard\\]\\] )?[\\w:<>,&* \\[\\]]+[ &*](\\w+)\\("_s);
    QStringList Nomi;
    QStringList Spazi;
    int Profondita = 0;  // braces of classes and bodies, not of namespaces
    for (const QString& Riga : Testo) {
        if (Profondita == 0) {
            if (const auto Trovato = Spazio.match(Riga); Trovato.hasMatch()) {
                Spazi += Trovato.captured(1);
                continue;
            }
            if (Riga.startsWith(u'}') && !Spazi.isEmpty()) {
                Spazi.removeLast();
                continue;
            }
            for (const QRegularExpression* Forma : {&Tipo, &Alias, &Variabile, &Funzione}) {
                const auto Trovato = Forma->match(Riga);
                if (!Trovato.hasMatch())
                    continue;
                Nomi += (Spazi + QStringList{Trovato.captured(1)}).join(u"::");
                break;
            }
        }
        const QString Codice = Riga.section(u"//"_s, 0, 0);
        Profondita += int(Codice.count(u'{')) - int(Codice.count(u'}'));
    }
    return Nomi;
}

}  // namespace

Casa LeggiCasa(const QString& Radice, const QString& Registro)
{
    Casa Letta;
    Letta.Radice = Radice;
    for (const QString& Riga : Righe(Registro)) {
        if (Riga.isEmpty() || Riga.startsWith(u'#'))
            continue;
        const QStringList Parti = Riga.split(u'|');
        Letta.Ordine += Parti.value(0);
        Letta.Stanze.insert(Parti.value(0), {Parti.value(1).split(u' ', Qt::SkipEmptyParts),
                                             Parti.value(2).split(u' ', Qt::SkipEmptyParts)});
    }
    return Letta;
}

QStringList IncludiProibiti(const Casa& Questa)
{
    QStringList Frasi;
    for (const QString& File : Sorgenti(Questa, {u"*.h"_s, u"*.cpp"_s, u"*.ui"_s}))
        if (!Questa.Stanze.contains(CartellaDi(File)))
            Frasi += u"src/%1 stands in a folder that is no room of src/CMakeLists.txt"_s.arg(File);
    PerOgniInclude(Questa, [&](const QString& File, qsizetype Riga, const QString& Incluso, bool Nostro) {
        if (!Nostro || !Incluso.contains(u'/'))
            return;  // of a library, or made by a tool of Qt
        const QString Da = CartellaDi(File);
        const QString Verso = CartellaDi(Incluso);
        if (!Esiste(Questa, Incluso))
            Frasi += Posto(File, Riga) + u"includes %1, which is not there"_s.arg(Incluso);
        else if (Verso != Da && !Questa.Stanze.value(Da).PuoConoscere.contains(Verso))
            Frasi += Posto(File, Riga) + u"includes %1, which %2 may not know"_s.arg(Incluso, Da);
    });
    return Frasi;
}

QStringList FrecceSenzaUso(const Casa& Questa)
{
    QHash<QString, QSet<QString>> Usate;
    PerOgniInclude(Questa, [&](const QString& File, qsizetype, const QString& Incluso, bool Nostro) {
        if (Nostro)
            Usate[CartellaDi(File)].insert(CartellaDi(Incluso));
    });
    QStringList Frasi;
    for (const QString& Nome : Questa.Ordine)
        for (const QString& Altra : Questa.Stanze[Nome].PuoConoscere)
            if (!Usate.value(Nome).contains(Altra))
                Frasi += u"%1 may know %2 and includes nothing of it"_s.arg(Nome, Altra);
    return Frasi;
}

QStringList Disegno(const Casa& Questa)
{
    constexpr int Colonna = 24;
    constexpr int Larghezza = 110;
    QHash<QString, QSet<QString>> Sotto;  // all that a room reaches
    QStringList Linee;
    for (const QString& Nome : Questa.Ordine) {
        const QStringList Sue = Questa.Stanze[Nome].PuoConoscere;
        for (const QString& Altra : Sue)
            Sotto[Nome] += Sotto[Altra] + QSet<QString>{Altra};
        QStringList Vicine;
        for (const QString& Una : Sue)
            if (std::ranges::none_of(Sue, [&](const QString& Altra) { return Sotto[Altra].contains(Una); }))
                Vicine += Una;
        QStringList Parti{Nome.leftJustified(Colonna)};
        for (const QString& Una : std::as_const(Vicine)) {
            if (Parti.last().size() + Una.size() > Larghezza)
                Parti += QString(Colonna, u' ');
            Parti.last() += Una + u"  "_s;
        }
        for (qsizetype i = Parti.size() - 1; i >= 0; --i)
            Linee.prepend(i == 0 ? Parti[0].trimmed() : Parti[i].chopped(2));
    }
    return Linee;
}

QStringList FrecceInSu(const Casa& Questa)
{
    QStringList Frasi;
    for (const QString& Nome : Questa.Ordine)
        for (const QString& Altra : Questa.Stanze[Nome].PuoConoscere)
            if (Questa.Ordine.indexOf(Altra) < 0 ||
                Questa.Ordine.indexOf(Altra) >= Questa.Ordine.indexOf(Nome))
                Frasi += u"%1 may know %2, which does not stand above it in the table"_s.arg(Nome, Altra);
    return Frasi;
}

QStringList LibrerieProibite(const Casa& Questa, const QString& IntestazioniQt)
{
    /// What a room without windows knows nothing of; pages are painted by Qt Gui, and by it alone.
    const auto DiFinestre = [&](const QString& Stanza, const QString& Nome) {
        QStringList Moduli{u"QtWidgets"_s, u"QtPrintSupport"_s, u"QtSvg"_s};
        if (Stanza != u"platform/pages")
            Moduli += u"QtGui"_s;
        return std::ranges::any_of(Moduli, [&](const QString& Modulo) {
            return QFileInfo::exists(IntestazioniQt + u'/' + Modulo + u'/' + Nome);
        });
    };
    QStringList Frasi;
    PerOgniInclude(Questa, [&](const QString& File, qsizetype Riga, const QString& Incluso, bool Nostro) {
        if (Nostro)
            return;
        const QString Stanza = CartellaDi(File);
        if (Incluso.startsWith(u"sqlite3") && Stanza != u"platform/database")
            Frasi += Posto(File, Riga) + u"includes %1, which is for platform/database alone"_s.arg(Incluso);
        if (Stanza != u"platform/network" &&
            (SenzaModulo(Incluso) == u"sodium.h" || Incluso.startsWith(u"QtNetwork/") ||
             SenzaModulo(Incluso).startsWith(u"QNetwork") || SenzaModulo(Incluso).startsWith(u"QSsl")))
            Frasi += Posto(File, Riga) + u"includes %1, which is for platform/network alone"_s.arg(Incluso);
        if (EDelSistema(Incluso) && !Stanza.startsWith(u"platform/"))
            Frasi +=
                Posto(File, Riga) + u"includes %1: only platform/ calls the operating system"_s.arg(Incluso);
        if (!Questa.Stanze.value(Stanza).HaFinestre() && DiFinestre(Stanza, SenzaModulo(Incluso)))
            Frasi +=
                Posto(File, Riga) + u"includes %1, and %2 is a room without windows"_s.arg(Incluso, Stanza);
    });
    return Frasi;
}

QStringList ComandiDelDesktop(const Casa& Questa)
{
    static const QRegularExpression Comando(u"u?\"xdg-[a-z]+"_s);
    QStringList Frasi;
    for (const QString& File : Sorgenti(Questa, {u"*.h"_s, u"*.cpp"_s})) {
        const QStringList Testo = Righe(Questa.Radice + File);
        for (qsizetype i = 0; i < Testo.size() && !File.startsWith(u"platform/"); ++i)
            if (Comando.match(Testo[i]).hasMatch())
                Frasi += Posto(File, i) + u"names a command of the desktop: that is for platform/ alone"_s;
    }
    return Frasi;
}

namespace {

/// Where a word stands that the rooms of platform/ alone may use; the driver of the demonstration is no room.
/// @param Frase what is said of it, with %1 for the word
QStringList SoloDiPlatform(const Casa& Questa, const QRegularExpression& Parola, const QString& Frase)
{
    static const QRegularExpression Commento(u"//.*$"_s);
    QStringList Frasi;
    for (const QString& File : Sorgenti(Questa, {u"*.h"_s, u"*.cpp"_s})) {
        if (File.startsWith(u"platform/") || File.startsWith(u"demo/"))
            continue;
        const QStringList Testo = Righe(Questa.Radice + File);
        for (qsizetype i = 0; i < Testo.size(); ++i)
            if (const auto Trovato = Parola.match(QString(Testo[i]).remove(Commento)); Trovato.hasMatch())
                Frasi += Posto(File, i) + Frase.arg(Trovato.captured());
    }
    return Frasi;
}

}  // namespace

QStringList AmbienteToccato(const Casa& Questa)
{
    static const QRegularExpression Chiamata(
        u"\\b(?:secure_getenv|getenv|setenv|putenv|qgetenv|qputenv|qunsetenv|qEnvironmentVariable\\w*|"
        "QProcessEnvironment|popen|dlopen|std::system|std::signal)\\b"_s);
    return SoloDiPlatform(Questa, Chiamata, u"calls %1: only platform/ calls the operating system"_s);
}

QStringList ErroriSenzaNome(const Casa& Questa)
{
    static const QRegularExpression Nudo(u"\\b(?:Errore|DescrizioneErrore|Rifiuto)[({]\\d+"_s);
    QStringList Frasi;
    for (const QString& File : Sorgenti(Questa, {u"*.h"_s, u"*.cpp"_s})) {
        const QStringList Testo = Righe(Questa.Radice + File);
        for (qsizetype i = 0; i < Testo.size(); ++i)
            if (const auto Trovato = Nudo.match(Testo[i]); Trovato.hasMatch())
                Frasi += Posto(File, i) + u"says %1: the numbers have names"_s.arg(Trovato.captured());
    }
    return Frasi;
}

QStringList DiscoToccato(const Casa& Questa)
{
    static const QRegularExpression Classe(
        u"\\b(?:Q(?:File|Dir|DirIterator|SaveFile|TemporaryFile|TemporaryDir|StorageInfo|FileSystemWatcher)"
        "|std::filesystem|std::[io]?fstream)\\b"_s);
    return SoloDiPlatform(Questa, Classe, u"names %1: only platform/ touches the disk"_s);
}

QStringList NomiDoppi(const Casa& Questa)
{
    QMap<QString, QMap<QString, QString>> Dove;  // bare name, then room, then header
    for (const QString& File : Sorgenti(Questa, {u"*.h"_s}))
        for (const QString& Nome : NomiDichiarati(Righe(Questa.Radice + File)))
            Dove[Nome.section(u"::"_s, -1)].insert(CartellaDi(File), File);
    QStringList Frasi;
    for (auto Uno = Dove.cbegin(); Uno != Dove.cend(); ++Uno)
        if (Uno->size() > 1)
            Frasi += u"%1 is declared in src/%2"_s.arg(Uno.key(), Uno->values().join(u" and in src/"_s));
    return Frasi;
}

QStringList ProveCondizionate(const QString& Cartella)
{
    static const QRegularExpression Membro(
        u"^ {4}[^ #{}/]"_s);  // what stands deeper is the body of a function
    QStringList Frasi;
    QDirIterator Cammino(Cartella, {u"Test*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (Cammino.hasNext()) {
        const QString File = Cammino.next();
        const QStringList Testo = Righe(File);
        int Aperte = 0;
        bool NellaClasse = false;
        for (qsizetype i = 0; i < Testo.size(); ++i) {
            if (Testo[i].startsWith(u"#if"))
                ++Aperte;
            else if (Testo[i].startsWith(u"#endif"))
                --Aperte;
            else if (Testo[i].startsWith(u"};"))
                NellaClasse = false;
            else if (Testo[i].trimmed() == u"Q_OBJECT")
                NellaClasse = true;
            if (NellaClasse && Aperte > 0 && Membro.match(Testo[i]).hasMatch()) {
                Frasi += u"%1:%2: a class of tests stands behind no condition and holds none"_s.arg(File).arg(
                    i + 1);
                break;
            }
        }
    }
    return Frasi;
}

QStringList StanzeTroppoGrandi(const Casa& Questa)
{
    QMap<QString, qsizetype> QuanteRighe;
    qsizetype Tutte = 0;
    for (const QString& File : Sorgenti(Questa, {u"*.h"_s, u"*.cpp"_s})) {
        const qsizetype Sue = Righe(Questa.Radice + File).size() - 1;
        QuanteRighe[CartellaDi(File)] += Sue;
        Tutte += Sue;
    }
    QStringList Frasi;
    for (auto Una = QuanteRighe.cbegin(); Una != QuanteRighe.cend(); ++Una)
        if (Una.value() * 10 > Tutte)
            Frasi +=
                u"%1 holds %2 of %3 lines, more than a tenth"_s.arg(Una.key()).arg(Una.value()).arg(Tutte);
    return Frasi;
}
