// Two notes in one, as a script has them.
#include "chiamata.h"

#include "platform/base/regionale.h"
#include "platform/system/file.h"

using namespace Qt::StringLiterals;

class TestCliMultipla : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void ilRiepilogoDelleDue();
    void leSezioni_data();
    void leSezioni();
    void rifiuta_data();
    void rifiuta();

private:
    /// The figure of a row of the summary.
    static QString Voce(const QString& Riepilogo, const QString& Etichetta)
    {
        for (const QString& Riga : Riepilogo.split(u'|'))
            if (Riga.startsWith(Etichetta + u'='))
                return Riga.section(u'=', 1);
        return {};
    }

    QString Civile;
    QString Penale;
};
PROVA(TestCliMultipla);

void TestCliMultipla::initTestCase()
{
    const QString Qui = NuovaCartella();
    Civile = Qui + u"civile.mdb"_s;
    Penale = Qui + u"penale.mdb"_s;
    for (const auto& [Nome, File] :
         {std::pair(u"civile.json"_s, Civile), std::pair(u"penale.json"_s, Penale)})
        QCOMPARE(Chiama({u"crea"_s, SorgenteDiProva(u"dati/esempi/"_s + Nome), File}).Guasti, QString());
}

void TestCliMultipla::ilRiepilogoDelleDue()
{
    const QString Sola = Chiama({u"riepilogo"_s, Civile}).Uscita;
    const QString Altra = Chiama({u"riepilogo"_s, Penale}).Uscita;
    const Esito Due = Chiama({u"riepilogo"_s, Civile, u"--multipla"_s, Penale});
    QCOMPARE(Due.Guasti, QString());
    QCOMPARE(Due.Stato, 0);
    // 4.500 of the civil note, 1.620 and what else the criminal one holds.
    const auto Somma = [&](const QString& Etichetta) {
        return Format(NumeroDi(Voce(Sola, Etichetta)) + NumeroDi(Voce(Altra, Etichetta)), u"#,##0.00");
    };
    QCOMPARE(Voce(Due.Uscita, u"Onorari"_s), Somma(u"Onorari"_s));
    QCOMPARE(Voce(Due.Uscita, u"Spese imponibili"_s), u"42,50"_s);
    QVERIFY(Voce(Due.Uscita, u"Onorari"_s) != Voce(Sola, u"Onorari"_s));
    QCOMPARE(Chiama({u"riepilogo"_s, Civile}).Uscita, Sola);
}

void TestCliMultipla::leSezioni_data()
{
    QTest::addColumn<bool>("Prima");
    QTest::newRow("behind") << false;
    QTest::newRow("before") << true;
}

void TestCliMultipla::leSezioni()
{
    QFETCH(bool, Prima);
    const QString Uscita = NuovaCartella() + u"due.txt"_s;
    QStringList Chiamata{u"stampa"_s, Civile, u"0"_s, Uscita, u"--multipla"_s, Penale};
    if (Prima)
        Chiamata += u"--prima"_s;
    const Esito Fatto = Chiama(Chiamata);
    QCOMPARE(Fatto.Guasti, QString());
    const QString Testo = QString::fromUtf8(LeggiFile(Uscita));
    const qsizetype Istanza = Testo.indexOf(u"Redazione di istanza al magistrato"_s);
    const qsizetype Riepilogo = Testo.indexOf(u"3) RIEPILOGO"_s);
    const qsizetype Fase = Testo.indexOf(u"Fase"_s);
    QVERIFY2(Istanza > 0 && Riepilogo > Istanza && Fase > 0, qPrintable(Testo));
    QCOMPARE(Istanza < Testo.indexOf(u"Fase di studio"_s, Prima ? Istanza : 0), Prima);
}

void TestCliMultipla::rifiuta_data()
{
    QTest::addColumn<QStringList>("Argomenti");
    QTest::addColumn<int>("Stato");
    QTest::addColumn<QString>("Guasti");
    const QString Stessa = u"La parcella non può essere associata a se stessa!"_s;
    QTest::newRow("the note itself") << QStringList{u"riepilogo"_s, Civile, u"--multipla"_s, Civile} << 1
                                     << Stessa;
    QTest::newRow("a file that is not there")
        << QStringList{u"riepilogo"_s, Civile, u"--multipla"_s, u"/manca.mdb"_s} << 1
        << u"Errore: Database non trovato: /manca.mdb (3024)"_s;
    QTest::newRow("a command without it") << QStringList{u"lettere"_s, u"1"_s, u"--multipla"_s, Penale} << 2
                                          << u"L'opzione --multipla non vale per il comando lettere"_s;
    QTest::newRow("before nothing") << QStringList{u"riepilogo"_s, Civile, u"--prima"_s} << 2
                                    << u"L'opzione --prima vale solo con --multipla."_s;
    QTest::newRow("without a note") << QStringList{u"riepilogo"_s, Civile, u"--multipla"_s} << 2
                                    << u"L'opzione --multipla vuole una parcella."_s;
}

void TestCliMultipla::rifiuta()
{
    QFETCH(QStringList, Argomenti);
    QFETCH(QString, Guasti);
    const Esito Fatto = Chiama(Argomenti);
    QTEST(Fatto.Stato, "Stato");
    QVERIFY2(Fatto.Guasti.contains(Guasti), qPrintable(Fatto.Guasti));
    QCOMPARE(Fatto.Uscita, QString());
}

#include "TestCliMultipla.moc"
