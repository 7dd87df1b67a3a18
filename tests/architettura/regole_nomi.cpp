#include "architettura/regole.h"
#include "architettura/sorgenti.h"

#include <QList>
#include <QMap>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

struct NomeProprio
{
    QString Nome;  ///< with the namespaces around it; a function with the types of its parameters
    qsizetype Riga;
};

/// A line as the braces are counted in it: no comment, nothing between quotes.
QString Nuda(QString Riga)
{
    static const QRegularExpression Testi(uR"("(?:\\.|[^"\\])*"|'(?:\\.|[^'\\])+'|//.*$)"_s);
    return Riga.replace(Testi, u"\"\""_s);
}

/// The types of the parameters between two brackets; `Resto` begins behind the first of them.
QString Tipi(const QString& Resto)
{
    static const QRegularExpression ConNome(u"^(.*[\\s&*>])\\w+$"_s);
    QStringList Parti{QString()};
    int Aperte = 0;
    for (const QChar C : Resto) {
        if (Aperte == 0 && C == u')')
            break;
        Aperte += u"(<[{"_s.contains(C) ? 1 : u")>]}"_s.contains(C) ? -1 : 0;
        if (Aperte == 0 && C == u',')
            Parti += QString();
        else
            Parti.last() += C;
    }
    for (QString& Parte : Parti) {
        Parte = Parte.section(u'=', 0, 0).simplified();
        if (const auto Trovato = ConNome.match(Parte);
            Trovato.hasMatch() && Trovato.captured(1).trimmed() != u"const")
            Parte = Trovato.captured(1).trimmed();
    }
    return Parti.join(u", "_s);
}

/// The name that a declaration gives; empty for what gives none.
QString NomeDato(QString Detta)
{
    static const QRegularExpression Forma(u"^template <[^>]*(?:<[^>]*>[^>]*)*>\\s*"_s);
    static const QRegularExpression Tipo(u"^(?:struct|class|enum class|enum|using) (\\w+)[^;(]*[{=]"_s);
    static const QRegularExpression Funzione(
        u"^(?!using |return )(?:\\[\\[\\w+\\]\\] )*[\\w:<>,&* ]+[ &*](\\w+)\\((.*)$"_s);
    static const QRegularExpression Variabile(
        u"^(?!(?:struct|class|enum|using|friend|return|namespace) )[\\w:<>,&* ]+[ &*>](\\w+)"
        "(?:\\[[^\\]]*\\])*\\s*[={;]"_s);
    Detta.remove(Forma);
    if (const auto Trovato = Tipo.match(Detta); Trovato.hasMatch())
        return Trovato.captured(1);
    if (const auto Trovato = Variabile.match(Detta); Trovato.hasMatch())
        return Trovato.captured(1);
    if (const auto Trovato = Funzione.match(Detta); Trovato.hasMatch())
        return Trovato.captured(1) + u'(' + Tipi(Trovato.captured(2)) + u')';
    return {};
}

/// What a source declares without a name for others: static, or in a namespace without a name. Declarations
/// begin at the first column, and the end of a namespace says so, as the formatter writes them.
QList<NomeProprio> NomiPropri(const QStringList& Testo)
{
    static const QRegularExpression Spazio(u"^(?:inline )?namespace(?: ([\\w:]+))? \\{"_s);
    static const QRegularExpression Intera(u"[{;]"_s);
    QList<NomeProprio> Nomi;
    QStringList Spazi;
    int Profondita = 0;
    for (qsizetype i = 0; i < Testo.size(); ++i) {
        if (Testo[i].startsWith(u"}  // namespace")) {
            Profondita = 0;
            if (!Spazi.isEmpty())
                Spazi.removeLast();
            continue;
        }
        const QString Riga = Nuda(Testo[i]);
        if (Profondita == 0) {
            if (const auto Trovato = Spazio.match(Riga); Trovato.hasMatch()) {
                Spazi += Trovato.captured(1);
                continue;
            }
            if (Riga.startsWith(u'}') && !Spazi.isEmpty()) {
                Spazi.removeLast();
                continue;
            }
            if (!Riga.isEmpty() && !u" #{}"_s.contains(Riga.front()) &&
                (Spazi.contains(QString()) || Riga.startsWith(u"static "))) {
                QString Detta = Riga;
                for (qsizetype j = i + 1; !Detta.contains(Intera) && j < Testo.size(); ++j)
                    Detta = Detta.trimmed() + u' ' + Nuda(Testo[j]).trimmed();
                QStringList Intero = Spazi + QStringList{NomeDato(Detta)};
                const bool Dato = !Intero.last().isEmpty();
                Intero.removeAll(QString());
                if (Dato)
                    Nomi += {Intero.join(u"::"), i};
            }
        }
        Profondita += int(Riga.count(u'{')) - int(Riga.count(u'}'));
    }
    return Nomi;
}

}  // namespace

QStringList SenzaIntestazione(const Casa& Questa)
{
    QStringList Frasi;
    for (const QString& File : Sorgenti(Questa, {u"*.cpp"_s})) {
        QString Nome = File.chopped(4);
        if (Nome.endsWith(u"/main"))
            continue;
        const QStringList Testo = Righe(Questa.Radice + File);
        const auto Inclusa = [&] { return Testo.contains(u"#include \"%1.h\""_s.arg(Nome)); };
        while (!Inclusa() && Nome.section(u'/', -1).contains(u'_'))
            Nome = Nome.left(Nome.lastIndexOf(u'_'));
        if (!Inclusa())
            Frasi += u"src/%1 includes no header of its name"_s.arg(File);
    }
    return Frasi;
}

QStringList NomiDiDueSorgenti(const Casa& Questa)
{
    QMap<QString, QMap<QString, QStringList>> Dove;  // room, then name, then the sources that have it
    QStringList Frasi;
    for (const QString& File : Sorgenti(Questa, {u"*.cpp"_s}))
        for (const NomeProprio& Uno : NomiPropri(Righe(Questa.Radice + File))) {
            QStringList& Altri = Dove[CartellaDi(File)][Uno.Nome];
            if (!Altri.isEmpty() && Altri.last() != File)
                Frasi +=
                    Posto(File, Uno.Riga) +
                    u"has %1 for itself, and so has src/%2: sources of a room are compiled together"_s.arg(
                        Uno.Nome, Altri.first());
            if (!Altri.contains(File))
                Altri += File;
        }
    return Frasi;
}
