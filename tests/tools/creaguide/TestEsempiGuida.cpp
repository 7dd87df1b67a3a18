#include "cli/chiamata.h"

#include "creaguide/aiuto.h"
#include "creaguide/creaguide.h"
#include "platform/base/regionale.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

/// The figures of the guides, reckoned again by the program.
class TestEsempiGuida : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void figure_data();
    void figure();
    void nessunaSenzaProva_data();
    void nessunaSenzaProva();
    void unEsempioPerPagina();
};
PROVA(TestEsempiGuida);

namespace {

QString Guide()
{
    return SorgenteDiProva(u"dati/guide/"_s);
}

/// Every text that may hold examples, by its path in the folder of the guides.
QStringList Testi()
{
    QStringList Tutti = QDir(Guide()).entryList({u"*.txt"_s}, QDir::Files, QDir::Name);
    for (const QString& Nome : QDir(Guide() + u"aiuto"_s).entryList({u"*.txt"_s}, QDir::Files, QDir::Name))
        Tutti << u"aiuto/"_s + Nome;
    return Tutti;
}

TestoGuida Leggi(const QString& Nome)
{
    return LeggiTesto(Nome, QString::fromUtf8(LeggiFile(Guide() + Nome)),
                      TabelleDi(SorgenteDiProva(u"dati/"_s)));
}

/// A fragment stands by itself, not inside another figure.
bool Contiene(const QString& Testo, const QString& Frammento)
{
    const QRegularExpression Intero(u"(?<![0-9.,])"_s + QRegularExpression::escape(Frammento) +
                                    u"(?![0-9]|[.,][0-9])"_s);
    return Intero.match(Testo).hasMatch();
}

/// The parts of a call, in double quotes where one is empty or has blanks.
QStringList Parti(const QString& Chiamata)
{
    static const QRegularExpression Parte(u"\"([^\"]*)\"|(\\S+)"_s);
    QStringList Tutte;
    auto Passi = Parte.globalMatch(Chiamata);
    while (Passi.hasNext()) {
        const auto Passo = Passi.next();
        Tutte << (Passo.captured(2).isEmpty() ? Passo.captured(1) : Passo.captured(2));
    }
    return Tutte;
}

/// Every number of a record, as the windows show it.
void ScriviNumeri(const QJsonValue& Valore, QStringList& In)
{
    if (Valore.isDouble())
        In << Format(Valore.toDouble(), u"#,##0.00");
    for (const QJsonValue& Dentro : Valore.toArray())
        ScriviNumeri(Dentro, In);
    const QJsonObject Record = Valore.toObject();
    for (const QJsonValue& Dentro : Record)
        ScriviNumeri(Dentro, In);
}

/// What the program says of a note made from a description: its lines, then its tax chain.
QString DiUnaNota(const QString& Descrizione)
{
    const QString Cartella = NuovaCartella();
    ScriviFile(Cartella + u"nota.json"_s, Descrizione.toUtf8());
    const QString Nota = Cartella + u"nota.mdb"_s;
    const Esito Fatta = Chiama({u"crea"_s, Cartella + u"nota.json"_s, Nota});
    if (Fatta.Stato != 0)
        return Fatta.Guasti;
    QStringList Numeri;
    ScriviNumeri(QJsonDocument::fromJson(Chiama({u"nota"_s, Nota}).Uscita.toUtf8()).object(), Numeri);
    return Numeri.join(u'|') + u'\n' + Chiama({u"riepilogo"_s, Nota}).Uscita;
}

QString DelProgramma(const QString& Chiamata)
{
    if (Chiamata.startsWith(u"nota "))
        return DiUnaNota(Chiamata.mid(5));
    const Esito Data = Chiama(Parti(Chiamata));
    return Data.Uscita + Data.Guasti;
}

/// The amounts with cents of a text.
QStringList Importi(const QString& Testo)
{
    static const QRegularExpression Importo(u"(?<![0-9.,])[0-9]{1,3}(?:[.][0-9]{3})*,[0-9]{2}(?![0-9])"_s);
    QStringList Tutti;
    auto Passi = Importo.globalMatch(Testo);
    while (Passi.hasNext())
        Tutti << Passi.next().captured();
    return Tutti;
}

/// True when a call is made with an amount, in whatever form.
bool DatoIn(const QString& Chiamata, const QString& Importo)
{
    QString Semplice = QString(Importo).remove(u'.');
    if (Semplice.endsWith(u",00"))
        Semplice.chop(3);
    return Contiene(Chiamata, Semplice);
}

}  // namespace

void TestEsempiGuida::figure_data()
{
    QTest::addColumn<QString>("Chiamata");
    QTest::addColumn<QStringList>("Attesi");
    QTest::addColumn<QString>("Sezione");
    for (const QString& Nome : Testi()) {
        const TestoGuida Letto = Leggi(Nome);
        for (const ProvaGuida& Prova : Letto.Prove)
            QTest::addRow("%s:%d", qPrintable(Nome), Prova.Riga)
                << Prova.Chiamata << Prova.Attesi << Letto.TestoDellaSezione(Prova.Blocco);
    }
}

void TestEsempiGuida::figure()
{
    QFETCH(QString, Chiamata);
    QFETCH(QStringList, Attesi);
    QFETCH(QString, Sezione);
    const QString Detto = DelProgramma(Chiamata);
    for (const QString& Atteso : Attesi) {
        QVERIFY2(Contiene(Detto, Atteso), qPrintable(Atteso + u" non è in: "_s + Detto));
        QVERIFY2(Contiene(Sezione, Atteso), qPrintable(Atteso + u" non è nel testo: "_s + Sezione));
    }
}

void TestEsempiGuida::nessunaSenzaProva_data()
{
    QTest::addColumn<QString>("Nome");
    for (const QString& Nome : Testi())
        if (Nome.startsWith(u"aiuto/"))
            QTest::newRow(qPrintable(Nome)) << Nome;
}

void TestEsempiGuida::nessunaSenzaProva()
{
    // An amount of a page is what a proof of its section answers, or what one is called with.
    QFETCH(QString, Nome);
    const TestoGuida Letto = Leggi(Nome);
    for (size_t i = 0; i < Letto.Blocchi.size(); ++i)
        for (const QString& Importo : Importi(Letto.Blocchi[i].Testo())) {
            const QString Sezione = Letto.TestoDellaSezione(i);
            const bool Provato = std::ranges::any_of(Letto.Prove, [&](const ProvaGuida& Prova) {
                return Letto.TestoDellaSezione(Prova.Blocco) == Sezione &&
                       (Prova.Attesi.contains(Importo) || DatoIn(Prova.Chiamata, Importo));
            });
            QVERIFY2(Provato, qPrintable(u"riga %1: %2"_s.arg(Letto.Blocchi[i].Riga).arg(Importo)));
        }
}

void TestEsempiGuida::unEsempioPerPagina()
{
    int Prove = 0;
    for (const QString& Nome : Testi()) {
        const TestoGuida Letto = Leggi(Nome);
        Prove += int(Letto.Prove.size());
        if (!Nome.startsWith(u"aiuto/") || Nome == u"aiuto/indice.txt")
            continue;
        const auto Esempio = std::ranges::find_if(Letto.Blocchi, [](const BloccoGuida& Blocco) {
            return Blocco.Che == BloccoGuida::Genere::Sezione && Blocco.Testo() == u"Un esempio";
        });
        QVERIFY2(Esempio != Letto.Blocchi.end(), qPrintable(Nome));
    }
    QVERIFY(Prove >= 40);
}

#include "TestEsempiGuida.moc"
