// Every option beside every command: taken by those that do something with it, refused by all others; and
// options that exclude each other.
#include "chiamata.h"

using namespace Qt::StringLiterals;

class TestOpzioni : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup();
    void ogniComando_data();
    void ogniComando();
    void tutteNellaTabella();
    void insieme_data();
    void insieme();
    void valori_data();
    void valori();
    void parolaInMaiuscolo();
};
PROVA(TestOpzioni);

namespace {

/// An option, what follows it, and the commands that take it.
struct Attesa
{
    QString Opzione;
    QString Segue;
    QStringList Comandi;
};

QList<Attesa> Attese()
{
    const QStringList Note{u"riepilogo"_s, u"stampa"_s, u"fattura"_s};
    const QStringList Termini{u"termini"_s, u"sequenziali"_s, u"scadenza"_s};
    return {
        {u"--righe"_s, {}, {u"interessi"_s}},
        {u"--multipla"_s, u"n.mdb"_s, Note},
        {u"--prima --multipla"_s, u"n.mdb"_s, Note},
        {u"--archivio"_s, u"a.mdb"_s,
         Note + QStringList{u"nota"_s, u"trova"_s, u"scadenzario"_s, u"rubrica"_s}},
        {u"--in"_s, u"clienti"_s, {u"importa"_s}},
        {u"--prova --in"_s, u"clienti"_s, {u"importa"_s}},
        {u"--archivio a.mdb --in"_s, u"clienti"_s, {u"importa"_s}},
        {u"--csv"_s, u"x.csv"_s, {u"rubrica"_s, u"scadenzario"_s}},
        {u"--vcard"_s, u"x.vcf"_s, {u"rubrica"_s}},
        {u"--stato"_s, u"bozza"_s, {u"scadenzario"_s}},
        {u"--tariffa"_s, u"55"_s, {u"voci"_s}},
        {u"--norme"_s, u"vigenti"_s, Termini + QStringList{u"contributo"_s, u"interessi"_s}},
        {u"--spiega"_s, {}, Termini + QStringList{u"contributo"_s}},
        {u"--ics"_s, u"x.ics"_s, Termini},
        {u"--controlla"_s, {}, {u"fattura"_s}},
        {u"--leggi"_s, {}, {u"codfis"_s}},
        {u"--json"_s, {}, {u"*"_s}},
        {u"--batch"_s, {}, {u"*"_s}},
        {u"--utente"_s, u"u"_s, {u"*"_s}},
        {u"--programma"_s, u"p"_s, {u"*"_s}},
        {u"--aiuto"_s, {}, {u"*"_s}},
        {u"--help"_s, {}, {u"*"_s}},
    };
}

QStringList Parole(const QString& Testo)
{
    return Testo.split(u' ', Qt::SkipEmptyParts);
}

}  // namespace

void TestOpzioni::cleanup()
{
    AzzeraSessione();
}

void TestOpzioni::ogniComando_data()
{
    QTest::addColumn<QStringList>("Opzione");
    QTest::addColumn<QString>("Comando");
    QTest::addColumn<bool>("Vale");
    for (const Attesa& Una : Attese())
        for (const ComandoCli& Comando : ComandiCli()) {
            const QString Nome = Comando.Nome.toString();
            if (Nome == u"importa" && Una.Opzione == u"--archivio")
                continue;  // it depends on another one: see insieme()
            QTest::newRow(qPrintable(Nome + u' ' + Una.Opzione))
                << Parole(Una.Opzione + u' ' + Una.Segue) << Nome
                << (Una.Comandi.contains(Nome) || Una.Comandi.contains(u"*"_s));
        }
}

// Too many values: what takes the option refuses them behind it, and does nothing.
void TestOpzioni::ogniComando()
{
    QFETCH(QStringList, Opzione);
    QFETCH(QString, Comando);
    QFETCH(bool, Vale);
    const Esito Avuto = Chiama(Opzione + QStringList{Comando} + QStringList(13, u"1"_s));
    const bool Aiuto = Opzione.contains(u"--aiuto"_s) || Opzione.contains(u"--help"_s);
    QCOMPARE(Avuto.Stato, Aiuto ? 0 : 2);
    if (!Vale)
        QVERIFY2(Avuto.Guasti.endsWith(u" non vale per il comando "_s + Comando + u'\n'),
                 qPrintable(Avuto.Guasti));
    else if (Opzione.contains(u"--batch"_s))
        QCOMPARE(Avuto.Guasti, u"Con --batch i valori arrivano dallo standard input.\n"_s);
    else if (!Aiuto)
        QVERIFY2(Avuto.Guasti.startsWith(u"Uso: calcanova-cli "_s + Comando), qPrintable(Avuto.Guasti));
}

void TestOpzioni::tutteNellaTabella()
{
    QStringList Dette;
    for (const Attesa& Una : Attese())
        for (const QString& Parola : Parole(Una.Opzione))
            if (Parola.startsWith(u"--"))
                Dette << Parola;
    QStringList Sue;
    for (const RigaOpzione& Una : Opzioni())
        Sue << Una.Parola.toString();
    Dette.removeDuplicates();
    Dette.sort();
    Sue.sort();
    QCOMPARE(Dette, Sue);
}

void TestOpzioni::insieme_data()
{
    QTest::addColumn<QString>("Argomenti");
    QTest::addColumn<QString>("Guasti");
    const auto Riga = [](const QString& Argomenti, const QString& Guasti) {
        QTest::newRow(qPrintable(Argomenti)) << Argomenti << Guasti;
    };
    Riga(u"rubrica clienti --csv a.csv --vcard b.vcf"_s, u"L'opzione --vcard non vale con --csv."_s);
    Riga(u"rubrica clienti --vcard b.vcf --csv a.csv"_s, u"L'opzione --vcard non vale con --csv."_s);
    Riga(u"fattura --controlla x.xml --multipla n.mdb"_s,
         u"L'opzione --multipla non vale con --controlla."_s);
    Riga(u"fattura --archivio a.mdb --controlla x.xml"_s,
         u"L'opzione --archivio non vale con --controlla."_s);
    Riga(u"rubrica --batch --csv a.csv"_s, u"L'opzione --csv non vale con --batch."_s);
    Riga(u"rubrica --vcard a.vcf --batch"_s, u"L'opzione --vcard non vale con --batch."_s);
    Riga(u"termini --ics a.ics --batch"_s, u"L'opzione --ics non vale con --batch."_s);
    Riga(u"termini --spiega --batch"_s, u"Con --batch l'opzione --spiega vale solo insieme a --json."_s);
    Riga(u"stampa --prima n.mdb 0 x.txt"_s, u"L'opzione --prima vale solo con --multipla."_s);
    Riga(u"importa a.csv x.mdb --prova"_s, u"L'opzione --prova vale solo con --in."_s);
    Riga(u"importa a.mdb x.mdb --archivio b.mdb"_s,
         u"Con il comando importa l'opzione --archivio vale solo con --in."_s);
    Riga(u"scadenza --norme programma CPC-166 15/06/2026"_s,
         u"Il comando scadenza segue soltanto le norme vigenti"_s);
}

void TestOpzioni::insieme()
{
    QFETCH(QString, Argomenti);
    const Esito Avuto = Chiama(Parole(Argomenti));
    QCOMPARE(Avuto.Stato, 2);
    QCOMPARE(Avuto.Uscita, QString());
    QTEST(Avuto.Guasti.trimmed(), "Guasti");
}

void TestOpzioni::valori_data()
{
    QTest::addColumn<QString>("Opzione");
    QTest::addColumn<QString>("Manca");
    for (const auto& [Opzione, Manca] : {std::pair{u"--programma"_s, u"una cartella"_s},
                                         {u"--utente"_s, u"una cartella"_s},
                                         {u"--multipla"_s, u"una parcella"_s},
                                         {u"--archivio"_s, u"un file"_s},
                                         {u"--in"_s, u"una tabella"_s},
                                         {u"--csv"_s, u"una destinazione"_s},
                                         {u"--vcard"_s, u"una destinazione"_s},
                                         {u"--stato"_s, u"una parola"_s},
                                         {u"--tariffa"_s, u"una sigla"_s},
                                         {u"--norme"_s, u"una scelta"_s},
                                         {u"--ics"_s, u"una destinazione"_s}})
        QTest::newRow(qPrintable(Opzione)) << Opzione << Manca;
}

void TestOpzioni::valori()
{
    QFETCH(QString, Opzione);
    QFETCH(QString, Manca);
    const QString Attesa = u"L'opzione %1 vuole %2.\n"_s.arg(Opzione, Manca);
    for (const QStringList& Argomenti :
         {QStringList{u"lettere"_s, u"1"_s, Opzione}, {Opzione, QString(), u"lettere"_s, u"1"_s}}) {
        const Esito Avuto = Chiama(Argomenti);
        QCOMPARE(Avuto.Stato, 2);
        QCOMPARE(Avuto.Guasti, Attesa);
    }
}

// An option's own word counts whatever its case: the rule it chooses is the one that is followed.
void TestOpzioni::parolaInMaiuscolo()
{
    const QString Chiesto = u"contributo 6000 ordinario 06/07/2011"_s;
    QCOMPARE(Chiama(Parole(u"--norme VIGENTI "_s + Chiesto)).Uscita, u"206,00\n"_s);
    QCOMPARE(Chiama(Parole(u"--norme Programma contributo 6000"_s)).Uscita, u"237,00\n"_s);
    QCOMPARE(Chiama(Parole(u"scadenzario /manca --stato APERTE"_s)).Stato, 1);
}

#include "TestOpzioni.moc"
