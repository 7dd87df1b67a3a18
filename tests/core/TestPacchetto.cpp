// The files that present the program to a desktop say what the program is: version, commands, names.
#include "supporto/prova.h"

#include "core/comandi.h"
#include "core/versione.h"
#include "platform/system/file.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

class TestPacchetto : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void versione_data();
    void versione();
    void azioniDelMenu();
    void comandiDelManuale();
    void nomi();
    void deposito();
};
PROVA(TestPacchetto);

namespace {

QString Testo(const QString& Nome)
{
    return QString::fromUtf8(LeggiFile(SorgenteDiProva(u"pacchetto/"_s + Nome)));
}

/// What the first part of an expression in brackets finds, in the order of the text.
QStringList Trovati(const QString& Testo, const QString& Espressione)
{
    QStringList Tutti;
    auto Passi = QRegularExpression(Espressione, QRegularExpression::MultilineOption).globalMatch(Testo);
    while (Passi.hasNext())
        Tutti << Passi.next().captured(1);
    return Tutti;
}

bool HaIcona(const QString& Parola)
{
    const std::vector<const Comando*> Icone = ComandiDellaScrivania();
    return std::ranges::any_of(Icone, [&](const Comando* Riga) { return Riga->Parola == Parola; });
}

}  // namespace

void TestPacchetto::versione_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Espressione");
    QTest::newRow("the releases") << u"it.calcanova.Calcanova.metainfo.xml"_s
                                  << u"<release version=\"([^\"]+)\""_s;
    QTest::newRow("the changes of the package") << u"changelog"_s << u"^calcanova \\(([^)]+)\\)"_s;
    QTest::newRow("the page of the program") << u"calcanova.1"_s << u"^\\.TH .*\"Calcanova ([^\"]+)\""_s;
    QTest::newRow("the page of the command line")
        << u"calcanova-cli.1"_s << u"^\\.TH .*\"Calcanova ([^\"]+)\""_s;
}

void TestPacchetto::versione()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Espressione);
    const QStringList Versioni = Trovati(Testo(Nome), Espressione);
    QVERIFY(!Versioni.isEmpty());
    QCOMPARE(Versioni.first(), VersioneProgramma());
}

void TestPacchetto::azioniDelMenu()
{
    const QString Voce = Testo(u"calcanova.desktop"_s);
    QCOMPARE(
        Trovati(Voce, u"^Name\\[it\\]=(.*)$"_s),
        (QStringList{u"Calcanova"_s, u"Nuova parcella"_s, u"Computo termini"_s, u"Calcolo interessi"_s}));
    const QStringList Parole = Trovati(Voce, u"^Exec=calcanova --comando (.*)$"_s);
    QCOMPARE(Parole, (QStringList{u"new"_s, u"termini"_s, u"inter"_s}));
    for (const QString& Parola : Parole)
        QVERIFY2(HaIcona(Parola), qPrintable(Parola));
}

void TestPacchetto::comandiDelManuale()
{
    const QString Sezione =
        Testo(u"calcanova.1"_s).section(u".BI \\-\\-comando"_s, 1).section(u".TP"_s, 0, 0);
    const QStringList Parole = Trovati(Sezione, u"^\\.B (.*)$"_s);
    QStringList Icone;
    for (const Comando* Riga : ComandiDellaScrivania())
        Icone << Riga->Parola.toString();
    QVERIFY(Icone.size() > 5);
    QCOMPARE(Parole, Icone);
}

void TestPacchetto::nomi()
{
    const QString Voce = Testo(u"calcanova.desktop"_s);
    const QString Scheda = Testo(u"it.calcanova.Calcanova.metainfo.xml"_s);
    const QStringList Tipo =
        Trovati(Testo(u"calcanova-parcella.xml"_s), u"<mime-type type=\"([^\"]+)\""_s).first(1);
    QCOMPARE(Trovati(Voce, u"^MimeType=(.*);$"_s), Tipo);
    QCOMPARE(Trovati(Scheda, u"<mediatype>(.*)</mediatype>"_s), Tipo);
    QCOMPARE(Trovati(Scheda, u"<launchable type=\"desktop-id\">(.*)</launchable>"_s),
             QStringList{u"calcanova.desktop"_s});
    QCOMPARE(Trovati(Voce, u"^Icon=(.*)$"_s), QStringList{u"calcanova"_s});
}

/// What an engineer who finds the repository reads first.
void TestPacchetto::deposito()
{
    const auto Pagina = [](const QString& Nome) {
        return QString::fromUtf8(LeggiFile(SorgenteDiProva(Nome)));
    };
    const QString Licenza = Pagina(u"LICENSE"_s);
    QVERIFY(Licenza.contains(u"GNU GENERAL PUBLIC LICENSE") && Licenza.contains(u"Version 3, 29 June 2007"));
    if (const QString Sistema = u"/usr/share/common-licenses/GPL-3"_s; EsisteFile(Sistema))
        QCOMPARE(Licenza, QString::fromUtf8(LeggiFile(Sistema)));
    const QStringList Versioni = Trovati(Pagina(u"CHANGELOG.md"_s), u"^## \\[?([0-9.]+)"_s);
    QVERIFY(!Versioni.isEmpty());
    QCOMPARE(Versioni.first(), VersioneProgramma());
    const QString Modi = Pagina(u"CONTRIBUTING.md"_s);
    for (const QString& Comando : {u"./run"_s, u"./test"_s})
        QVERIFY2(Modi.contains(Comando), qPrintable(Comando));
    QVERIFY(Pagina(u"README.md"_s).contains(u"tools/pacchetto"));
    QVERIFY(Pagina(u"REUSE.toml"_s).contains(u"GPL-3.0-or-later"));
}

#include "TestPacchetto.moc"
