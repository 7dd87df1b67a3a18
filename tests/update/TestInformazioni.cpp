#include "supporto/prova.h"

#include "core/modAvvio.h"
#include "core/sessione.h"
#include "core/versione.h"
#include "platform/database/database.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "update/modInformazioni.h"

#include <QFile>

using namespace Qt::StringLiterals;

class TestInformazioni : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void gruppi();
    void cartelle();
    void dateDegliArchivi();
    void archiviForniti();
    void archiviMancanti();
    void archivioGuasto();
    void licenze();
    void testo();

private:
    /// The line of a group by its name; empty when there is none.
    static QString Riga(const QString& Titolo, const QString& Nome)
    {
        for (const GruppoInformazioni& Gruppo : Informazioni())
            for (const RigaInformazione& Una : Gruppo.Righe)
                if (Gruppo.Titolo == Titolo && Una.Nome == Nome)
                    return Una.Valore;
        return {};
    }
    static void Data(const QString& File, const QDate& Giorno)
    {
        QFile Aperto(File);
        QVERIFY(Aperto.open(QIODevice::ReadWrite));
        QVERIFY(Aperto.setFileTime(QDateTime(Giorno, QTime(12, 0)), QFileDevice::FileModificationTime));
    }
};
PROVA(TestInformazioni);

void TestInformazioni::init()
{
    AzzeraSessione();
    sessione::TitoloProdotto = u"Calcanova 3"_s;
    sessione::Mesi = {u""_s,        u"Gennaio"_s,  u"Febbraio"_s, u"Marzo"_s,  u"Aprile"_s,
                      u"Maggio"_s,  u"Giugno"_s,   u"Luglio"_s,   u"Agosto"_s, u"Settembre"_s,
                      u"Ottobre"_s, u"Novembre"_s, u"Dicembre"_s};
    sessione::PercorsoProg = ProgrammaDiProva();
    sessione::UserFolder = NuovaCartella();
}

void TestInformazioni::cleanup()
{
    AzzeraSessione();
}

void TestInformazioni::gruppi()
{
    QStringList Titoli;
    for (const GruppoInformazioni& Gruppo : Informazioni())
        Titoli << Gruppo.Titolo;
    QCOMPARE(Titoli,
             (QStringList{u"Programma"_s, u"Cartelle in uso"_s, u"Archivi"_s, u"Componenti e licenze"_s}));
    QCOMPARE(Riga(u"Programma"_s, u"Versione"_s), VersioneProgramma());
    QCOMPARE(Riga(u"Programma"_s, u"Server degli aggiornamenti"_s), u"nessuno"_s);
}

void TestInformazioni::cartelle()
{
    sessione::ParcellePath = sessione::UserFolder + u"che non c'è/"_s;
    const QString Titolo = u"Cartelle in uso"_s;
    QCOMPARE(Riga(Titolo, u"Programma"_s), ProgrammaDiProva());
    QCOMPARE(Riga(Titolo, u"Parcelle"_s), sessione::ParcellePath + u" (non si trova)"_s);
    QCOMPARE(Riga(Titolo, u"Modelli"_s), u"non impostata"_s);
    QCOMPARE(Riga(Titolo, u"Utente"_s), sessione::UserFolder);
}

void TestInformazioni::dateDegliArchivi()
{
    const QString Archivio = sessione::UserFolder + u"tassi.DAT"_s;
    const Database Db = CreateDatabase(Archivio);
    for (const QString& Nome : {u"InteressiLegali"_s, u"InteressiMora"_s})
        Db.CreaTabella(Nome,
                       {{u"Dal"_s, TipoCampo::Data, 0, {}, false}, {u"Al"_s, TipoCampo::Data, 0, {}, false}});
    Db.CreaTabella(u"IndiciIstat"_s, {{u"Anno"_s, TipoCampo::Intero, 0, {}, false},
                                      {u"Mese"_s, TipoCampo::Intero, 0, {}, false}});
    const auto Periodo = [&](const QString& Tabella, const QDate& Dal, const QDate& Al) {
        Db.Execute(u"INSERT INTO %1 (Dal, Al) VALUES (?, ?)"_s.arg(Tabella), {Dal, Al});
    };
    // The latest one is not the last that was written.
    Periodo(u"InteressiLegali"_s, QDate(2026, 1, 1), QDate(2026, 12, 31));
    Periodo(u"InteressiLegali"_s, QDate(2025, 1, 1), QDate(2025, 12, 31));
    Db.Execute(u"INSERT INTO IndiciIstat (Anno, Mese) VALUES (2025, 12), (2026, 8), (2026, 7)"_s);
    Data(Archivio, QDate(2026, 9, 14));
    QCOMPARE(
        Riga(u"Archivi"_s, u"Tassi"_s),
        u"del 14/09/2026; interessi legali fino al 31/12/2026, di mora nessuno, indici Istat fino ad agosto "
        u"2026"_s);
}

void TestInformazioni::archiviForniti()
{
    QVERIFY2(Riga(u"Archivi"_s, u"Tariffa D.m. 140/2012"_s)
                 .contains(u"; D.m. 20 luglio 2012, n. 140, 29 autorità"),
             qPrintable(Riga(u"Archivi"_s, u"Tariffa D.m. 140/2012"_s)));
    QVERIFY2(
        Riga(u"Archivi"_s, u"Tariffa D.m. 55/2014"_s).contains(u"; D.m. 10 marzo 2014, n. 55, 47 autorità"),
        qPrintable(Riga(u"Archivi"_s, u"Tariffa D.m. 55/2014"_s)));
    QVERIFY2(Riga(u"Archivi"_s, u"Comuni"_s).endsWith(u"; 10.930 comuni e Stati esteri, al 31/05/2024"),
             qPrintable(Riga(u"Archivi"_s, u"Comuni"_s)));
    QVERIFY2(Riga(u"Archivi"_s, u"Norme in vigore"_s)
                 .endsWith(u"; 115 termini ricorrenti, norme note fino al 21/11/2026"),
             qPrintable(Riga(u"Archivi"_s, u"Norme in vigore"_s)));
    sessione::ArchivioCliCon = ProgrammaDiProva() + u"DatiStudio.mdb"_s;
    QVERIFY2(Riga(u"Archivi"_s, u"Clienti"_s)
                 .endsWith(u" 0 clienti, 0 controparti, in "_s + sessione::ArchivioCliCon),
             qPrintable(Riga(u"Archivi"_s, u"Clienti"_s)));
}

void TestInformazioni::archiviMancanti()
{
    sessione::PercorsoProg = NuovaCartella();
    QCOMPARE(Riga(u"Archivi"_s, u"Tariffa D.m. 140/2012"_s),
             u"manca: "_s + sessione::PercorsoProg + u"parcelle.mdb"_s);
    QCOMPARE(Riga(u"Archivi"_s, u"Tariffa D.m. 55/2014"_s),
             u"manca: "_s + sessione::PercorsoProg + u"parcelle55.mdb"_s);
    QVERIFY(Riga(u"Archivi"_s, u"Tassi"_s).startsWith(u"manca: "_s + sessione::UserFolder));
    QCOMPARE(Riga(u"Archivi"_s, u"Clienti"_s), u"non impostato"_s);
}

void TestInformazioni::archivioGuasto()
{
    sessione::PercorsoProg = NuovaCartella();
    ScriviFile(sessione::PercorsoProg + u"Comuni.mdb"_s, "non è un archivio, è un testo");
    Data(sessione::PercorsoProg + u"Comuni.mdb"_s, QDate(2024, 5, 31));
    const QString Letta = Riga(u"Archivi"_s, u"Comuni"_s);
    QVERIFY2(Letta.startsWith(u"del 31/05/2024; non si legge: "), qPrintable(Letta));
}

void TestInformazioni::licenze()
{
    const QString Titolo = u"Componenti e licenze"_s;
    QVERIFY(Riga(Titolo, u"Qt "_s + QString::fromLatin1(qVersion())).contains(u"LGPL"));
    QVERIFY(Riga(Titolo, u"SQLite"_s).contains(u"pubblico dominio"));
    QVERIFY(Riga(Titolo, u"libsodium"_s).contains(u"ISC"));
    QVERIFY(Riga(Titolo, u"Calcanova"_s).contains(u"GPL versione 3"));
    QVERIFY(Riga(Titolo, u"OpenSSL"_s).contains(u"Apache 2.0"));
}

void TestInformazioni::testo()
{
    QCOMPARE(TestoInformazioni(
                 {{u"Primo"_s, {{u"a"_s, u"1"_s}, {u"b"_s, u"2"_s}}}, {u"Secondo"_s, {{u"c"_s, u"3"_s}}}}),
             u"Calcanova 3\n\nPrimo\na: 1\nb: 2\n\nSecondo\nc: 3\n"_s);
}

#include "TestInformazioni.moc"
