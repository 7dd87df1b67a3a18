// The names that saves and exports propose, and what of a text a file's name may hold.
#include "nota_prova.h"

#include "core/modTesti.h"
#include "feenote/modNomiProposti.h"
#include "platform/system/percorsi.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

class TestNomiProposti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parte_data();
    void parte();
    void lunga_data();
    void lunga();
    void dellaNota_data();
    void dellaNota();
    void delDocumento_data();
    void delDocumento();
    void unNomeDiSistema();
    void sempreAmmesso();
};
PROVA(TestNomiProposti);

void TestNomiProposti::parte_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Nome");

    QTest::newRow("as it is") << u"Rossi Mario"_s << u"Rossi Mario"_s;
    QTest::newRow("accents stay") << u"Perù Cirò D'Àngelo"_s << u"Perù Cirò D'Àngelo"_s;
    QTest::newRow("separators") << u"Rossi/Bianchi\\Verdi|Neri"_s << u"Rossi-Bianchi-Verdi-Neri"_s;
    QTest::newRow("quotes and signs") << u"causa \"x\": <a> *b? [c]!"_s << u"causa x a b c"_s;
    QTest::newRow("stops of a company") << u"Rossi S.r.l."_s << u"Rossi Srl"_s;
    QTest::newRow("a date") << u"udienza del 1.2.2026."_s << u"udienza del 1-2-2026"_s;
    QTest::newRow("a file above") << u"../../etc"_s << u"etc"_s;
    QTest::newRow("lines and tabs") << u"Rossi\nMario\t\r\n"_s << u"Rossi Mario"_s;
    QTest::newRow("a null") << (u"Ros"_s + QChar(0) + u"si"_s) << u"Ros si"_s;
    QTest::newRow("signs that turn the writing") << u"Rossi\u202Egpj\u200B"_s << u"Rossigpj"_s;
    QTest::newRow("ends") << u" - .-Rossi-. - "_s << u"Rossi"_s;
    QTest::newRow("nothing left") << u" ?*:./\\ "_s << QString();
    QTest::newRow("half a character") << (u"Ros"_s + QChar(0xD83D) + u"si"_s) << u"Rossi"_s;
    QTest::newRow("a whole one") << u"Rossi \U0001F600"_s << u"Rossi \U0001F600"_s;
}

void TestNomiProposti::parte()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Nome);
    QCOMPARE(ParteDiNome(Testo, 60), Nome);
}

void TestNomiProposti::lunga_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Nome");

    QTest::newRow("between words") << u"uno due tre quattro"_s << u"uno due tre"_s;
    QTest::newRow("just whole words") << u"uno due treq cinque"_s << u"uno due treq"_s;
    QTest::newRow("one long word") << u"precipitevolissimo"_s << u"precipitevol"_s;
    QTest::newRow("a short word before it") << u"il precipitevolissimo"_s << u"il precipite"_s;
    QTest::newRow("bytes, not letters") << u"èèèèèèèè"_s << u"èèèèèè"_s;
    QTest::newRow("a letter and its accent") << u"abcdefghijke\u0301x"_s << u"abcdefghijk"_s;
    QTest::newRow("no half of a pair") << u"abcdefghij\U0001F600"_s << u"abcdefghij"_s;
}

void TestNomiProposti::lunga()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Nome);
    const QString Corto = ParteDiNome(Testo, 12);
    QCOMPARE(Corto, Nome);
    QVERIFY(ByteDelNome(Corto) <= 12);
}

void TestNomiProposti::dellaNota_data()
{
    QTest::addColumn<QString>("Cliente");
    QTest::addColumn<QString>("Oggetto");
    QTest::addColumn<QString>("Nome");

    QTest::newRow("both") << u"Rossi"_s << u"appalto"_s << u"Rossi - appalto"_s;
    QTest::newRow("no subject") << u"Rossi"_s << u" "_s << u"Rossi"_s;
    QTest::newRow("no client") << u"\n"_s << u"appalto"_s << u"appalto"_s;
    QTest::newRow("neither") << QString() << u"?"_s << QString();
    QTest::newRow("as it was typed once")
        << u"Rossi/Bianchi"_s << u"\"appalto\" del 2.5.2026"_s << u"Rossi-Bianchi - appalto del 2-5-2026"_s;
}

void TestNomiProposti::dellaNota()
{
    QFETCH(QString, Cliente);
    QFETCH(QString, Oggetto);
    QFETCH(QString, Nome);
    Parcella Nota;
    Nota.txtCliente.Testo = Cliente;
    Nota.txtOggetto.Testo = Oggetto;
    QCOMPARE(NomeProposto(Nota), Nome);
}

void TestNomiProposti::delDocumento_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Nome");

    QTest::newRow("invoice") << int(StampaFatturaAnalitica) << u"12"_s << u"03/05/2025"_s
                             << u"Rossi - appalto - Fattura 12-2025"_s;
    QTest::newRow("short invoice") << int(StampaFatturaSintetica) << u" 12 "_s << u"03/05/2025"_s
                                   << u"Rossi - appalto - Fattura 12-2025"_s;
    QTest::newRow("number with a letter") << int(StampaFatturaAnalitica) << u"12/A"_s << u"03/05/2025"_s
                                          << u"Rossi - appalto - Fattura 12-A-2025"_s;
    QTest::newRow("number with its year") << int(StampaFatturaAnalitica) << u"12/2024"_s << u"03/05/2025"_s
                                          << u"Rossi - appalto - Fattura 12-2024"_s;
    QTest::newRow("without a date: the year of today")
        << int(StampaFatturaAnalitica) << u"12"_s << QString() << u"Rossi - appalto - Fattura 12-2026"_s;
    QTest::newRow("a date that is none")
        << int(StampaFatturaAnalitica) << u"12"_s << u"32/13/25"_s << u"Rossi - appalto - Fattura 12-2026"_s;
    QTest::newRow("no number") << int(StampaFatturaAnalitica) << QString() << u"03/05/2025"_s
                               << u"Rossi - appalto - Fattura"_s;
    QTest::newRow("pro-forma") << int(StampaPrenotula) << u"3"_s << u"03/05/2025"_s
                               << u"Rossi - appalto - Prenotula 3-2025"_s;
    QTest::newRow("estimate") << int(StampaPreventivo) << QString() << QString()
                              << u"Rossi - appalto - Preventivo"_s;
    QTest::newRow("costs note") << int(StampaNotaGiudiziale) << u"9"_s << u"03/05/2025"_s
                                << u"Rossi - appalto - Nota spese giudiziale"_s;
    QTest::newRow("contract") << int(StampaContratto) << QString() << QString()
                              << u"Rossi - appalto - Contratto cliente"_s;
    QTest::newRow("accounts alone") << int(StampaSoloContabile) << QString() << QString()
                                    << u"Rossi - appalto - Solo parte contabile"_s;
    QTest::newRow("none chosen") << NessunaVoce << QString() << QString() << u"Rossi - appalto"_s;
}

void TestNomiProposti::delDocumento()
{
    QFETCH(int, Tipo);
    QFETCH(QString, Numero);
    QFETCH(QString, Data);
    const auto Prima = InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 42)); });
    const auto Torna = qScopeGuard([&] { InstallaOrologio(Prima); });
    Parcella Nota;
    Nota.txtCliente.Testo = u"Rossi"_s;
    Nota.txtOggetto.Testo = u"appalto"_s;
    const bool Fattura = TipoDi(Tipo).Pannello == PannelloStampa::Fattura;
    Nota.txtDatiPar[Fattura ? DatoNumFatt : DatoNumero] = Numero;
    Nota.txtDatiPar[Fattura ? DatoDataFatt : DatoData] = Data;
    QTEST(NomeDocumentoProposto(Nota, Tipo), "Nome");
    QFETCH(QString, Nome);
    Nota.FatturaXml.Tipo = u"TD04"_s;
    QCOMPARE(NomeDocumentoProposto(Nota, Tipo), Nome.replace(u"- Fattura"_s, u"- Nota di credito"_s));
}

/// Some systems take these for devices, whatever they end in.
void TestNomiProposti::unNomeDiSistema()
{
    Parcella Nota;
    Nota.txtCliente.Testo = u"Con"_s;
    QCOMPARE(NomeProposto(Nota), u"-Con"_s);
    Nota.txtCliente.Testo.clear();
    Nota.Nome = u"nuova parcella:2"_s;
    QCOMPARE(NomeDocumentoProposto(Nota, StampaPrenotula), u"nuova parcella 2 - Prenotula"_s);
    QCOMPARE(NomeDocumentoProposto(Nota, NessunaVoce), u"nuova parcella 2"_s);
}

/// Whatever is typed, what comes out is a name that files of any system and notes may have.
void TestNomiProposti::sempreAmmesso()
{
    const QString Segni =
        u"aB9 ./\\:*?\"<>|[]!-_'èß\t\n\u202E\u0301\u2028%$€"_s + QChar(0) + QChar(0xD83D) + QChar(0xDE00);
    quint32 Caso = 12345;
    for (int Giro = 0; Giro < 3000; ++Giro) {
        Parcella Nota;
        for (Casella* Box : {&Nota.txtCliente, &Nota.txtOggetto})
            for (int i = 0; i < Giro % 90; ++i) {
                Caso = Caso * 1664525U + 1013904223U;
                Box->Testo += Segni[qsizetype((Caso >> 8U) % quint32(Segni.size()))];
            }
        const QString Nome = NomeDocumentoProposto(Nota, Giro % 9 - 1);
        const QString Detto = QString::number(Giro) + u": "_s + Nome;
        QVERIFY2(NomeValido(Nome) && NomeValido(Nome, u"[]!."_s), qPrintable(Detto));
        QVERIFY2(ByteDelNome(Nome) <= 200, qPrintable(Detto));
        QVERIFY2(Nome == Nome.trimmed(), qPrintable(Detto));
        QVERIFY2(NomePerFile(Nome) == Nome, qPrintable(Detto));
        QVERIFY2(QString::fromUtf8(Nome.toUtf8()) == Nome, qPrintable(Detto));
    }
}

#include "TestNomiProposti.moc"
