#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "core/comandi.h"
#include "core/tasti.h"
#include "creaguide/aiuto.h"
#include "creaguide/creaguide.h"
#include "creaguide/paginaaiuto.h"
#include "platform/system/file.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>

#include <memory>

using namespace Qt::StringLiterals;

/// The help: contents, pages, references; as it is made, and as it was built.
class TestAiuto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void ancore_data();
    void ancore();
    void pagina();
    void elenchi();
    void elenco();
    void capitoliDiUnaGuida();
    void leCalcolatriciCheRestano();
    void iTastiCheRestano();
    void rifiuti_data();
    void rifiuti();
    void pagineDiPrima();
    void numeriDiPagina();
    void sullaCartaESulloSchermo();

    // ---- as built
    void unaPaginaPerFinestra_data();
    void unaPaginaPerFinestra();
    void rimandi_data();
    void rimandi();
    void tutteNellIndice();
    void pianeENonCollegamenti();
    void nelManuale();

private:
    void Scrivi(const QString& Nome, const QByteArray& Testo) const
    {
        ScriviFile(Entrata + u"guide/"_s + Nome, Testo);
    }
    int Crea()
    {
        Detto.clear();
        QTextStream Errori(&Detto);
        return CreaGuide({Entrata, Uscita}, Errori);
    }
    [[nodiscard]] QString Scritta(const QString& Nome) const
    {
        return QString::fromUtf8(LeggiFile(Uscita + u"aiuto/"_s + Nome));
    }

    QString Entrata;
    QString Uscita;
    QString Detto;
};
PROVA(TestAiuto);

namespace {

QString Costruite()
{
    return ProgrammaDiProva() + u"aiuto/"_s;
}

QString Leggi(const QString& Nome)
{
    return QString::fromUtf8(LeggiFile(Costruite() + Nome));
}

QStringList PagineCostruite()
{
    return QDir(Costruite()).entryList({u"*.htm"_s}, QDir::Files, QDir::Name);
}

QStringList Trovati(const QString& Testo, const QString& Espressione)
{
    const QRegularExpression Cercata(Espressione);
    QStringList Tutti;
    auto Passi = Cercata.globalMatch(Testo);
    while (Passi.hasNext())
        Tutti << Passi.next().captured(1);
    return Tutti;
}

}  // namespace

void TestAiuto::init()
{
    Entrata = NuovaCartella();
    Uscita = NuovaCartella();
    CreaCartella(Entrata + u"guide/aiuto"_s);
    Scrivi(u"aiuto/indice.txt"_s, "# Guida\n\nIntro.\n\n## Primo\n\n- uno\n- due\n");
    Scrivi(u"aiuto/uno.txt"_s,
           "# Pagina uno\n\nTesto **forte** e [altrove](due#da-qui).\n\n## Un esempio\n\nParole.\n");
    Scrivi(u"aiuto/due.txt"_s,
           "# Pagina due\n\nTesto.\n\n## Da qui\n\n- una voce\n- altra\n\n1. prima\n2. poi\n");
}

void TestAiuto::ancore_data()
{
    QTest::addColumn<QString>("Titolo");
    QTest::addColumn<QString>("Ancora");
    QTest::newRow("words") << u"Un esempio"_s << u"un-esempio"_s;
    QTest::newRow("accents, signs") << u"Più 1, «già»: l'età!"_s << u"piu-1-gia-l-eta"_s;
    QTest::newRow("nothing") << u"..."_s << QString();
}

void TestAiuto::ancore()
{
    QFETCH(QString, Titolo);
    QFETCH(QString, Ancora);
    QCOMPARE(AncoraDi(Titolo), Ancora);
}

void TestAiuto::pagina()
{
    QCOMPARE(Crea(), 0);
    const QString Html = Scritta(u"uno.htm"_s);
    QVERIFY(Html.startsWith(u"<html>"));
    QVERIFY(Html.contains(u"<p class=\"piede\">Primo</p>\n<h1>Pagina uno</h1>"));
    QVERIFY(Html.contains(u"<p>Testo <b>forte</b> e <a href=\"due.htm#da-qui\">altrove</a>.</p>"));
    QVERIFY(Html.contains(u"<h2><a name=\"un-esempio\"></a>Un esempio</h2>"));
    QVERIFY2(Html.contains(u"<a href=\"indice.htm\">Indice</a>") &&
                 Html.contains(u"<a href=\"due.htm\">Pagina due →</a>"),
             qPrintable(Html));
    QVERIFY(!Html.contains(u"←"));
    QVERIFY(Scritta(u"due.htm"_s).contains(u"<a href=\"uno.htm\">← Pagina uno</a>"));
    for (const QStringView Segno : {u"style=", u"color", u"font"})
        QVERIFY2(!Html.contains(Segno), qPrintable(Segno.toString()));
}

void TestAiuto::elenchi()
{
    Scrivi(u"aiuto/due.txt"_s, "# Pagina due\n\n## Da qui\n\n- una voce\n- altra\n\n1. prima\n2. poi\n\n1. "
                               "di nuovo\n\n|= 3 1>\n| Voce | Euro\n| <a> | 1,00\n");
    QCOMPARE(Crea(), 0);
    const QString Html = Scritta(u"due.htm"_s).simplified();
    QVERIFY2(Html.contains(u"<ul> <li>una voce</li> <li>altra</li> </ul> <ol> <li>prima</li> <li>poi</li> "
                           u"</ol> <ol> <li>di nuovo</li> </ol>"),
             qPrintable(Html));
    QVERIFY2(Html.contains(u"<th width=\"75%\">Voce</th><th class=\"cifre\" width=\"25%\">Euro</th>"),
             qPrintable(Html));
    QVERIFY(Html.contains(u"<td width=\"75%\">&lt;a&gt;</td><td class=\"cifre\" width=\"25%\">1,00</td>"));
}

void TestAiuto::elenco()
{
    QCOMPARE(Crea(), 0);
    QCOMPARE(Scritta(u"elenco.txt"_s),
             u"C\tPrimo\n"
             u"P\tuno.htm\tPagina uno\nS\tuno.htm\tPagina uno\tTesto forte e altrove.\n"
             u"S\tuno.htm#un-esempio\tUn esempio\tParole.\n"
             u"P\tdue.htm\tPagina due\nS\tdue.htm\tPagina due\tTesto.\n"
             u"S\tdue.htm#da-qui\tDa qui\tuna voce altra prima poi\n"_s);
    const QString Indice = Scritta(u"indice.htm"_s);
    QVERIFY(Indice.contains(u"<h1>Guida</h1>\n<p>Intro.</p>\n<h2>Primo</h2>"));
    QVERIFY(Indice.contains(
        u"<li><a href=\"uno.htm\">Pagina uno</a></li>\n<li><a href=\"due.htm\">Pagina due</a></li>"));
}

void TestAiuto::capitoliDiUnaGuida()
{
    Scrivi(u"aiuto/indice.txt"_s, "# Guida\n\n## Primo\n\n- uno\n- due\n\n## Legge\n\n- guida:Legge\n");
    Scrivi(u"Legge.txt"_s,
           "# La legge\n\nInizio.\n\n%solo carta\n## Indice\n\n%solo\n## Avviso\n\nDetto.\n\n"
           "## Capitolo 1. Uno\n\nPrimo.\n\n### Parte\n\nDi più.\n\n## Capitolo 2. Due\n\nSecondo.\n");
    QCOMPARE(Crea(), 0);
    QVERIFY(Scritta(u"Legge.htm"_s).contains(u"<h1>La legge</h1>"));
    QVERIFY(Scritta(u"Legge.htm"_s).contains(u"Detto.") && !Scritta(u"Legge.htm"_s).contains(u"Primo."));
    QVERIFY(Scritta(u"Legge-1.htm"_s).contains(u"<h1>Capitolo 1. Uno</h1>"));
    QVERIFY(Scritta(u"Legge-1.htm"_s).contains(u"<h2><a name=\"parte\"></a>Parte</h2>"));
    QVERIFY(Scritta(u"Legge-2.htm"_s).contains(u"<h1>Capitolo 2. Due</h1>"));
    QVERIFY(EsisteFile(Uscita + u"Legge.pdf"_s));
}

/// One line stands for the calculators that no line names, in the order of the desktop.
void TestAiuto::leCalcolatriciCheRestano()
{
    QStringList Tutte;
    for (const Comando* Riga : ComandiDellaScrivania())
        if (!Riga->Finestra.isEmpty()) {
            Tutte << Riga->Finestra.toString();
            Scrivi(u"aiuto/%1.txt"_s.arg(Tutte.last()), "# " + Tutte.last().toUtf8() + "\n\nTesto.\n");
        }
    QVERIFY(Tutte.size() > 2);
    Scrivi(u"aiuto/indice.txt"_s,
           "# G\n\n## P\n\n- uno\n- calcolatrici\n- due\n- " + Tutte[1].toUtf8() + "\n");
    QCOMPARE(Crea(), 0);
    QStringList Pagine;
    for (const QString& Riga : Scritta(u"elenco.txt"_s).split(u'\n'))
        if (Riga.startsWith(u"P\t"))
            Pagine << Riga.section(u'\t', 1, 1).chopped(4);
    const QString Nominata = Tutte.takeAt(1);
    QCOMPARE(Pagine.join(u' '), (u"uno "_s + Tutte.join(u' ') + u" due "_s + Nominata));
}

void TestAiuto::iTastiCheRestano()
{
    Scrivi(u"aiuto/uno.txt"_s, "# U\n\n## Proprio\n\n%tabella tasti:frmPrint\n\n%tasti\n\n## Poi\n\nFine.\n");
    QCOMPARE(Crea(), 0);
    QStringList Attesi{u"Proprio"_s};
    for (const GruppoTasti& Gruppo : GruppiTasti())
        if (Gruppo.Finestra != u"frmPrint")
            Attesi << Gruppo.Titolo.toString().toHtmlEscaped();
    QCOMPARE(Trovati(Scritta(u"uno.htm"_s), u"</a>([^<]*)</h2>"_s), Attesi + QStringList{u"Poi"_s});
}

void TestAiuto::rifiuti_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QByteArray>("Testo");
    QTest::addColumn<QString>("Motivo");

    const QString Uno = u"aiuto/uno.txt"_s;
    const QString Indice = u"aiuto/indice.txt"_s;
    QTest::newRow("dead link") << Uno << QByteArray("# U\n\n[x](tre)\n")
                               << u"aiuto/uno.txt, riga 4: «tre» non porta da nessuna parte"_s;
    QTest::newRow("dead anchor") << Uno << QByteArray("# U\n\n[x](due#li)\n") << u"«due#li» non porta"_s;
    QTest::newRow("dead anchor of its own") << Uno << QByteArray("# U\n\n[x](#li)\n") << u"«#li» non porta"_s;
    QTest::newRow("no such document")
        << Uno << QByteArray("# U\n\n[x](pdf:Manca)\n") << u"«pdf:Manca» non porta"_s;
    QTest::newRow("link without a target")
        << Uno << QByteArray("# U\n\n[x]()\n") << u"un rimando senza meta: [x]()"_s;
    QTest::newRow("page in no contents")
        << Indice << QByteArray("# G\n\n## P\n\n- uno\n") << u"manca la pagina due"_s;
    QTest::newRow("page twice") << Indice << QByteArray("# G\n\n## P\n\n- uno\n- due\n- uno\n")
                                << u"uno vi sta due volte"_s;
    QTest::newRow("page without a chapter")
        << Indice << QByteArray("# G\n\n- uno\n") << u"una pagina senza capitolo"_s;
    QTest::newRow("proof without an answer")
        << Uno << QByteArray("# U\n\n%prova lettere 1\n") << u"riga 3: una prova è una chiamata"_s;
    QTest::newRow("neither paper nor screen")
        << Uno << QByteArray("# U\n\n%solo vetro\n") << u"«vetro» non è carta né schermo"_s;
}

void TestAiuto::rifiuti()
{
    QFETCH(QString, Nome);
    QFETCH(QByteArray, Testo);
    QFETCH(QString, Motivo);
    Scrivi(Nome, Testo);
    QCOMPARE(Crea(), 1);
    QVERIFY2(Detto.contains(Motivo), qPrintable(Detto));
    QVERIFY(QDir(Uscita).isEmpty());
}

void TestAiuto::pagineDiPrima()
{
    QCOMPARE(Crea(), 0);
    QVERIFY(EsisteFile(Uscita + u"aiuto/due.htm"_s));
    QFile::remove(Entrata + u"guide/aiuto/due.txt"_s);
    Scrivi(u"aiuto/indice.txt"_s, "# Guida\n\n## Primo\n\n- uno\n");
    Scrivi(u"aiuto/uno.txt"_s, "# Pagina uno\n");
    QCOMPARE(Crea(), 0);
    QVERIFY(!EsisteFile(Uscita + u"aiuto/due.htm"_s));
    QVERIFY(EsisteFile(Uscita + u"aiuto/uno.htm"_s));
}

void TestAiuto::numeriDiPagina()
{
    QByteArray Lunga("# Pagina uno\n\n");
    for (int i = 0; i < 80; ++i)
        Lunga += "Un paragrafo.\n\n";
    Scrivi(u"aiuto/uno.txt"_s, Lunga);
    Scrivi(u"Manuale.txt"_s, "# Manuale\n\nInizio.\n\n%capitoli\n");
    QCOMPARE(Crea(), 0);
    const QByteArray Pdf = LeggiFile(Uscita + u"Manuale.pdf"_s);
    const QString Indice = pagine::ParoleDiPagina(Pdf, 1).join(u' ');
    QVERIFY2(Indice.contains(u"Pagina uno 2") && Indice.contains(u"Pagina due 4"), qPrintable(Indice));
    QVERIFY(pagine::ParoleDiPagina(Pdf, 4).join(u' ').contains(u"Pagina due"));
}

void TestAiuto::sullaCartaESulloSchermo()
{
    Scrivi(
        u"aiuto/uno.txt"_s,
        "# Pagina uno\n\n%solo carta\nper la stampa\n\n%solo schermo\nper la lettura\n\n%solo\nper tutti\n");
    Scrivi(u"Manuale.txt"_s, "# Manuale\n\n%capitoli\n");
    QCOMPARE(Crea(), 0);
    const QString Html = Scritta(u"uno.htm"_s);
    QVERIFY(!Html.contains(u"per la stampa") && Html.contains(u"per la lettura") &&
            Html.contains(u"per tutti"));
    const QString Carta =
        pagine::Leggi(u"pdftotext"_s, {u"-layout"_s, u"%"_s, u"-"_s}, LeggiFile(Uscita + u"Manuale.pdf"_s));
    QVERIFY(Carta.contains(u"per la stampa") && !Carta.contains(u"per la lettura") &&
            Carta.contains(u"per tutti"));
    QVERIFY(!Scritta(u"elenco.txt"_s).contains(u"per la stampa"));
}

// ---- as built -------------------------------------------------------------------------------------

void TestAiuto::unaPaginaPerFinestra_data()
{
    // Whatever the sources name a window, a tab or a panel; a form of a designer file or a class of its own.
    static const QRegularExpression Classe(
        u"class ((?:frm|Scheda|Pannello)[A-Za-z]+)\\s*(?:final)?\\s*: public Q"_s);
    QTest::addColumn<QString>("Nome");
    QStringList Nomi;
    QDirIterator Passo(SorgenteDiProva(u"src"_s), {u"*.ui"_s, u"*.h"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (Passo.hasNext()) {
        const QString File = Passo.next();
        if (File.endsWith(u".ui"))
            Nomi << QFileInfo(File).completeBaseName();
        else
            Nomi << Trovati(QString::fromUtf8(LeggiFile(File)), Classe.pattern());
    }
    // Parts of a window that its own page speaks of.
    for (const QString& Parte : {u"PannelloGuida"_s, u"PannelloContributo"_s, u"PannelloVigente"_s,
                                 u"PannelloRecenti"_s, u"PannelloTermini"_s})
        Nomi.removeAll(Parte);
    Nomi.removeDuplicates();
    QVERIFY(Nomi.size() >= 30);
    for (const QString& Nome : Nomi)
        QTest::newRow(qPrintable(Nome)) << Nome;
}

void TestAiuto::unaPaginaPerFinestra()
{
    QFETCH(QString, Nome);
    QVERIFY2(EsisteFile(Costruite() + Nome + u".htm"_s), "dati/guide/aiuto has no page of this name");
}

void TestAiuto::rimandi_data()
{
    QTest::addColumn<QString>("Nome");
    QVERIFY(PagineCostruite().size() >= 45);
    for (const QString& Nome : PagineCostruite())
        QTest::newRow(qPrintable(Nome)) << Nome;
}

void TestAiuto::rimandi()
{
    QFETCH(QString, Nome);
    const QString Html = Leggi(Nome);
    const QStringList Tutti = Trovati(Html, u"href=\"([^\"]+)\""_s);
    QVERIFY(!Tutti.isEmpty());
    for (const QString& Rimando : Tutti) {
        const QString File = Rimando.section(u'#', 0, 0);
        const QString Dove = File.isEmpty() ? Nome : File;
        QVERIFY2(EsisteFile(Costruite() + Dove), qPrintable(Rimando));
        if (Rimando.contains(u'#'))
            QVERIFY2(Leggi(Dove).contains(u"<a name=\"%1\">"_s.arg(Rimando.section(u'#', 1))),
                     qPrintable(Rimando));
    }
    for (const QStringView Segno : {u"**", u"__", u"%prova", u"%solo", u"]("})
        QVERIFY2(!Html.contains(Segno), qPrintable(Segno.toString()));
}

void TestAiuto::tutteNellIndice()
{
    const QString Indice = Leggi(u"indice.htm"_s);
    const QStringList Elencate = Trovati(Leggi(u"elenco.txt"_s), u"(?:^|\\n)P\\t([^\\t]+)\\t"_s);
    QStringList Presenti = PagineCostruite();
    Presenti.removeAll(u"indice.htm"_s);
    for (const QString& Nome : Presenti) {
        QVERIFY2(Elencate.contains(Nome), qPrintable(Nome));
        QVERIFY2(Indice.contains(u"href=\"%1\""_s.arg(Nome)), qPrintable(Nome));
    }
    QCOMPARE(Elencate.size(), Presenti.size());
}

void TestAiuto::pianeENonCollegamenti()
{
    // The viewer shows nothing that lies behind a symbolic link.
    for (const QFileInfo& File : QDir(Costruite()).entryInfoList(QDir::Files))
        QVERIFY2(!File.isSymLink() && File.size() < (qint64(1) << 20), qPrintable(File.fileName()));
}

void TestAiuto::nelManuale()
{
    // The same pages on paper, each under its title.
    const QString Carta = pagine::Leggi(u"pdftotext"_s, {u"-layout"_s, u"%"_s, u"-"_s},
                                        LeggiFile(ProgrammaDiProva() + u"GuidaOperativa.pdf"_s))
                              .remove(u'\f');
    const QStringList Righe = Carta.split(u'\n');
    int Trovate = 0;
    for (const QString& Riga : Leggi(u"elenco.txt"_s).split(u'\n'))
        if (Riga.startsWith(u"P\t") && !Riga.contains(u"GuidaGiuridica") && !Riga.contains(u"NovitaKR5")) {
            QVERIFY2(Righe.contains(Riga.section(u'\t', 2)), qPrintable(Riga));
            ++Trovate;
        }
    QVERIFY(Trovate >= 40);
    QVERIFY(!Carta.contains(u"%prova") && !Carta.contains(u"]("));
}

#include "TestAiuto.moc"
