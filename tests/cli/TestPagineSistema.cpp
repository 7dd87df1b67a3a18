// The page of the manual and the completion of the shell know every command and every option.
#include "chiamata.h"

#include "platform/system/file.h"
#include "tariffs/decreto.h"

#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

class TestPagineSistema : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void paginaDelManuale();
    void completamento();
    void valoriOfferti();
    void opzioni();
    void decreti_data();
    void decreti();
};
PROVA(TestPagineSistema);

namespace {

QString Pagina()
{
    return QString::fromUtf8(LeggiFile(SorgenteDiProva(u"pacchetto/calcanova-cli.1"_s)));
}

/// What the shell offers for the last of the words behind the program's name, sorted. The program is in PATH.
/// @param Nome how it was typed
QStringList Offerte(const QStringList& Parole, const QString& Nome = ProgrammaDiProva() + u"calcanova-cli"_s)
{
    QStringList Righe{u"source \"$1\"; shift"_s, u"COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1))"_s,
                      u"_calcanova_cli \"$1\" \"${COMP_WORDS[COMP_CWORD]}\""_s,
                      u"printf '%s\\n' \"${COMPREPLY[@]}\""_s};
    QProcess Guscio;
    QProcessEnvironment Ambiente = QProcessEnvironment::systemEnvironment();
    Ambiente.insert(u"PATH"_s, ProgrammaDiProva() + u':' + Ambiente.value(u"PATH"_s));
    Guscio.setProcessEnvironment(Ambiente);
    Guscio.start(u"bash"_s, QStringList{u"-c"_s, Righe.join(u'\n'), u"bash"_s,
                                        SorgenteDiProva(u"pacchetto/calcanova-cli.completamento"_s), Nome} +
                                Parole);
    if (!Guscio.waitForFinished())
        return {u"bash: "_s + Guscio.errorString()};
    QStringList Trovate = QString::fromUtf8(Guscio.readAllStandardOutput() + Guscio.readAllStandardError())
                              .split(u'\n', Qt::SkipEmptyParts);
    Trovate.sort();
    return Trovate;
}

QStringList Ordinate(QStringList Parole)
{
    Parole.sort();
    return Parole;
}

/// The options that the command line takes: those of its help, and the help's own.
QStringList OpzioniDelProgramma()
{
    QStringList Trovate{u"--aiuto"_s, u"--help"_s};
    const QString Uso = Chiama({u"--aiuto"_s}).Uscita.section(u'\n', 0, 0);
    auto Passi = QRegularExpression(u"--[a-z]+"_s).globalMatch(Uso);
    while (Passi.hasNext())
        Trovate << Passi.next().captured();
    Trovate.removeDuplicates();
    Trovate.sort();
    return Trovate;
}

}  // namespace

void TestPagineSistema::paginaDelManuale()
{
    QStringList Attese;
    for (const ComandoCli& Comando : ComandiCli())
        Attese << u".BI \"%1 \" \"%2\""_s.arg(Comando.Nome, Comando.Valori);
    QStringList Scritte = Pagina().section(u".SH COMANDI"_s, 1).section(u".SH"_s, 0, 0).split(u'\n');
    Scritte.removeIf([](const QString& Riga) { return !Riga.startsWith(u".BI \""); });
    QVERIFY(Attese.size() > 10);
    QCOMPARE(Scritte, Attese);
}

void TestPagineSistema::completamento()
{
    QStringList Attese;
    for (const ComandoCli& Comando : ComandiCli())
        Attese << Comando.Nome.toString();
    Attese.sort();
    QVERIFY(Attese.size() > 10);
    QCOMPARE(Offerte({QString()}), Attese);
    QCOMPARE(Offerte({u"--json"_s, Attese.last().left(2)}), QStringList{Attese.last()});
    QCOMPARE(Offerte({u"--"_s}), OpzioniDelProgramma());
    // The shell hands on what was typed, variables and all.
    QCOMPARE(Offerte({QString()}, u"$HOME/bin/calcanova-cli"_s), Attese);
}

/// Behind an option that has a few words the shell offers these; what follows one that takes any text is no
/// command.
void TestPagineSistema::valoriOfferti()
{
    const QStringList Mora{u"legali"_s, u"mora"_s};
    for (const RigaOpzione& Una : Opzioni()) {
        const QString Parola = Una.Parola.toString();
        if (Una.Parole)
            QCOMPARE(Offerte({Parola, QString()}), Ordinate(Una.Parole()));
        const QStringList Prima =
            Una.Valore.isEmpty() ? QStringList{Parola} : QStringList{Parola, u"istat"_s};
        QCOMPARE(Offerte(Prima + QStringList{u"interessi"_s, QString()}), Mora);
    }
    // What is no option is no pattern either.
    QCOMPARE(Offerte({u"interessi"_s, u"--[a/b"_s, QString()}), Mora);
}

void TestPagineSistema::opzioni()
{
    const QStringList Attese = OpzioniDelProgramma();
    QVERIFY(Attese.size() >= 9);
    const QString Sezione = Pagina().section(u".SH OPZIONI"_s, 1).section(u".SH"_s, 0, 0).remove(u'\\');
    for (const QString& Opzione : Attese)
        QVERIFY2(Sezione.contains(Opzione), qPrintable(Opzione));
    QStringList Tariffe;
    for (const Decreto* Legge : Decreti)
        Tariffe << Legge->Sigla.toString();
    const QString Scelta = u"--tariffa \" %1\""_s.arg(Tariffe.join(u'|'));
    QVERIFY2(Sezione.contains(Scelta), qPrintable(Scelta));
}

void TestPagineSistema::decreti_data()
{
    QTest::addColumn<QString>("Nome");
    for (const char* Nome :
         {"pacchetto/CMakeLists.txt", "pacchetto/it.calcanova.Calcanova.metainfo.xml",
          "pacchetto/calcanova.1", "pacchetto/calcanova-cli.1", "README.md", "CHANGELOG.md"})
        QTest::newRow(Nome) << QString::fromLatin1(Nome);
}

/// Whoever looks for a program for the decree in force finds out by these pages that this one has it.
void TestPagineSistema::decreti()
{
    QFETCH(QString, Nome);
    const QString Testo = QString::fromUtf8(LeggiFile(SorgenteDiProva(Nome))).simplified();
    for (const Decreto* Legge : Decreti)
        QVERIFY2(Testo.contains(Legge->Nome.toString().section(u' ', -1)),
                 qPrintable(Legge->Nome.toString()));
}

#include "TestPagineSistema.moc"
