#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "core/tasti.h"
#include "creaguide/creaguide.h"
#include "platform/base/nometasti.h"
#include "platform/system/file.h"

#include <QDir>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

/// The keys that the guide speaks of, held against the program's own table.
class TestTastiGuida : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tabella();
    void nessunTasto();
    void laPaginaLiHaTutti();
    void ognunoEsiste_data();
    void ognunoEsiste();
    void nessunoManca_data();
    void nessunoManca();
};
PROVA(TestTastiGuida);

namespace {

QString Sorgente(const QString& Pagina)
{
    return SorgenteDiProva(u"dati/guide/aiuto/"_s + Pagina + u".txt"_s);
}

QStringList Pagine()
{
    QStringList Nomi;
    for (const QString& File :
         QDir(SorgenteDiProva(u"dati/guide/aiuto"_s)).entryList({u"*.txt"_s}, QDir::Files, QDir::Name))
        Nomi << File.chopped(4);
    return Nomi;
}

/// The rows of the tables of keys of a page: keys, effect.
QList<QStringList> RigheDi(const QString& Pagina)
{
    QList<QStringList> Righe;
    bool Dentro = false;
    for (const QString& Riga : QString::fromUtf8(LeggiFile(Sorgente(Pagina))).split(u'\n')) {
        if (!Riga.startsWith(u'|')) {
            Dentro = false;
            continue;
        }
        const QStringList Celle = Riga.mid(1).split(u'|');
        if (Celle.first().trimmed() == u"Tasti")
            Dentro = true;
        else if (Dentro)
            Righe << QStringList{Celle.first().trimmed(), Celle.value(1).trimmed()};
    }
    return Righe;
}

/// The keys that a cell names: those with modifiers, but for the letters of captions, and those of functions.
QStringList TastiNominati(const QString& Cella)
{
    static const QRegularExpression Separatori(u", o |, | o | \\.\\.\\. "_s);
    static const QRegularExpression Tasto(u"\\A((Ctrl|Maiusc|Alt)\\+.+|F[0-9]+)\\z"_s);
    static const QRegularExpression Lettera(u"\\AAlt\\+[A-Z]\\z"_s);
    QStringList Tasti;
    for (const QString& Parte : Cella.split(Separatori, Qt::SkipEmptyParts))
        if (Tasto.match(Parte).hasMatch() && !Lettera.match(Parte).hasMatch())
            Tasti << Parte.toLower();
    return Tasti;
}

/// The table's keys, as the guide writes them, of some of its parts.
QStringList TastiDelleParti(const QStringList& Parti)
{
    QStringList Tutti;
    for (const RigaTasti& Riga : TabellaTasti())
        if (Parti.isEmpty() || Parti.contains(Riga.Finestra.toString()))
            for (const QString& Uno : Riga.Tasti.toString().split(u' '))
                Tutti << NomeTasti(Uno).toLower();
    return Tutti;
}

}  // namespace

void TestTastiGuida::tabella()
{
    const TabellaDati Fatta = TabelleDi({})(u"tasti:frmParcelle"_s);
    QCOMPARE(Fatta.Righe.first(), (QStringList{u"Tasti"_s, u"Effetto"_s}));
    QVERIFY(Fatta.Righe.contains(QStringList{u"Ctrl+Y, Ctrl+Maiusc+Z"_s, u"ripete la modifica annullata"_s}));
    QCOMPARE(TabelleDi({})(u"tasti:ovunque"_s).Righe.size(), 3);
    // The two enters are one key in words.
    QVERIFY(TabelleDi({})(u"tasti:frmScheda"_s)
                .Righe.contains(QStringList{u"F10, Ctrl+S, Ctrl+Invio"_s, u"salva e chiude"_s}));
}

void TestTastiGuida::nessunTasto()
{
    QVERIFY(NumeroErrore([&] { (void)TabelleDi({})(u"tasti:frmNessuna"_s); }) != 0);
}

void TestTastiGuida::laPaginaLiHaTutti()
{
    const QString Html = QString::fromUtf8(LeggiFile(ProgrammaDiProva() + u"aiuto/tastiera.htm"_s));
    for (const GruppoTasti& Gruppo : GruppiTasti())
        QVERIFY2(Html.contains(u"</a>"_s + Gruppo.Titolo.toString().toHtmlEscaped() + u"</h2>"_s),
                 qPrintable(Gruppo.Titolo.toString()));
    for (const RigaTasti& Riga : TabellaTasti()) {
        const QString Primo = NomeTasti(Riga.Tasti.toString().section(u' ', 0, 0));
        const QRegularExpression Insieme(u">%1[^<]*</td>\\s*<td[^>]*>%2</td>"_s.arg(
            QRegularExpression::escape(Primo.toHtmlEscaped()),
            QRegularExpression::escape(Riga.Effetto.toString().toHtmlEscaped())));
        QVERIFY2(Insieme.match(Html).hasMatch(),
                 qPrintable(Riga.Finestra.toString() + u": "_s + Primo + u' ' + Riga.Effetto.toString()));
    }
}

void TestTastiGuida::ognunoEsiste_data()
{
    QTest::addColumn<QString>("Pagina");
    for (const QString& Pagina : Pagine())
        if (!RigheDi(Pagina).isEmpty())
            QTest::newRow(qPrintable(Pagina)) << Pagina;
}

/// What a page names works in its window, or where the page says that it opens the window from.
void TestTastiGuida::ognunoEsiste()
{
    QFETCH(QString, Pagina);
    static const QRegularExpression Altrove(u"^apre |^dalla |apre la finestra|sceglie|cartella superiore"_s);
    const QStringList Suoi = TastiDelleParti({Pagina,
                                              {},
                                              u"frmMain"_s,
                                              u"cornice"_s,
                                              u"frmParcelle"_s,
                                              u"SchedaOnorari"_s,
                                              u"Griglia"_s,
                                              u"VistaStampa"_s});
    const QStringList Tutti = TastiDelleParti({});
    for (const QStringList& Riga : RigheDi(Pagina))
        for (const QString& Tasto : TastiNominati(Riga.first())) {
            const QStringList& Dove = Altrove.match(Riga[1]).hasMatch() ? Tutti : Suoi;
            const bool Esiste = std::ranges::any_of(Dove, [&](const QString& Uno) {
                return Uno == Tasto || (Uno.startsWith(Tasto + u' ') && Tasto.endsWith(u"freccia"));
            });
            const bool DialogoDelSistema = Pagina.startsWith(u"scelta");
            QVERIFY2(Esiste || DialogoDelSistema || Tasto == u"ctrl+rotella" || Tasto.startsWith(u"ctrl+7"),
                     qPrintable(Tasto + u": "_s + Riga[1]));
        }
}

void TestTastiGuida::nessunoManca_data()
{
    QTest::addColumn<QString>("Pagina");
    const QStringList Tutte = Pagine();
    for (const GruppoTasti& Gruppo : GruppiTasti())
        if (Tutte.contains(Gruppo.Finestra.toString()) && Gruppo.Finestra != u"frmMain")
            QTest::newRow(qPrintable(Gruppo.Finestra.toString())) << Gruppo.Finestra.toString();
}

/// A window's own page names its keys.
void TestTastiGuida::nessunoManca()
{
    QFETCH(QString, Pagina);
    QStringList Nominati;
    for (const QStringList& Riga : RigheDi(Pagina))
        Nominati += TastiNominati(Riga.first());
    for (const RigaTasti& Riga : TabellaTasti()) {
        const QString Primo = NomeTasti(Riga.Tasti.toString().section(u' ', 0, 0));
        if (Riga.Finestra == Pagina && !TastiNominati(Primo).isEmpty())
            QVERIFY2(Nominati.contains(Primo.toLower()), qPrintable(Primo));
    }
}

#include "TestTastiGuida.moc"
