// What is due, as a script gets it: rows, records, the accountant's file.
#include "chiamata.h"

#include "core/sessione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/modInterruttori.h"
#include "feenote/modStato.h"
#include "platform/database/database.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "supporto/maschera.h"
#include "supporto/registratore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

class TestCliScadenzario : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { InstallaOrologio({}); }
    void leRighe();
    void perStato_data();
    void perStato();
    void ilRecord();
    void ilFile();
    void ilFileNonSiScrive();
    void laParcellaNonSiSostituisce();
    void unaRigaPerParcella();
    void gliAccontiDellaDescrizione();
    void unaFatturaEIlSuoStorno();
    void sottoUnFiltro();
    void copiaFuoriDalFiltro();
    void quelloCheNonSiSa();
    void nomiECodiciDallArchivio();
    void nonTutteLette();
    void lArchivioBloccato();
    void nomeConUnACapo();
    void rifiuta_data();
    void rifiuta();

private:
    /// A note of 1.459,12 of net, written by the program's own command, then led to a state.
    void Crea(const QString& Nome, const QString& Cliente, void (*Porta)(Parcella&),
              const QByteArray& Altro = {}) const
    {
        const QString File = Radice + Nome;
        QDir().mkpath(CartellaFile(File));
        const QString Json = NuovaCartella() + u"d.json"_s;
        ScriviFile(
            Json,
            "{\"categoria\":\"CIV\",\"autorita\":2,\"valore\":30000,\"precarica\":false,\"cliente\":\"" +
                Cliente.toUtf8() +
                "\",\"spese\":[{\"descrizione\":\"Copie\",\"imponibili\":1150}],\"percentuali\":"
                "{\"cassa\":4,\"iva\":22}" +
                Altro + "}");
        QCOMPARE(Chiama({u"crea"_s, Json, File}).Guasti, QString());
        if (!Porta)
            return;
        Registratore Messaggi;
        Parcella Nota;
        CaricaDati(Nota, File);
        Porta(Nota);
        ScriviNota(File, Nota);
    }

    QString Radice;
};
PROVA(TestCliScadenzario);

namespace {

const QString InviataRiga =
    u"Rossi; Mario|||Prenotula|||Inviata|22/11/2026||1150,00|46,00|263,12|0,00|1459,12|1459,12|0,00|1459,12|a\n"_s;
const QString PagataRiga =
    u"Verdi|||Fattura analitica|12|09/11/2026|Pagata|22/11/2026||1150,00|46,00|263,12|0,00|1459,12|1459,12|"
    u"1459,12|0,00|b\n"_s;
const QString BozzaRiga =
    u"Neri|||Prenotula|||Bozza|||1150,00|46,00|263,12|0,00|1459,12|1459,12|0,00|0,00|c\n"_s;

void Spedisci(Parcella& Nota)
{
    (void)NotaInviata(Nota, StampaPrenotula);
}

void FatturaEPaga(Parcella& Nota)
{
    Nota.txtDatiPar[DatoNumFatt] = u"12"_s;
    Nota.txtDatiPar[DatoDataFatt] = u"09/11/2026"_s;
    ScegliTipoStampa(Nota, StampaFatturaAnalitica);
    (void)NotaInviata(Nota, StampaFatturaAnalitica);
    (void)ScegliStato(Nota, StatoNota::Pagata);
}

}  // namespace

void TestCliScadenzario::init()
{
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
    Radice = NuovaCartella();
    const QByteArray Prenotula = ",\"stampa\":{\"tipo\":0}";
    Crea(u"a.mdb"_s, u"Rossi; Mario"_s, Spedisci, Prenotula);
    Crea(u"b.mdb"_s, u"Verdi"_s, FatturaEPaga);
    Crea(u"c.mdb"_s, u"Neri"_s, nullptr, Prenotula);
    Crea(u"sotto/d.mdb"_s, u"Rossi; Mario"_s, Spedisci);
    ScriviFile(Radice + u"estraneo.mdb"_s, "x");
}

void TestCliScadenzario::leRighe()
{
    Esito Fatto = Chiama({u"scadenzario"_s, Radice});
    QCOMPARE(Fatto.Guasti, QString());
    QCOMPARE(Fatto.Stato, 0);
    QCOMPARE(Fatto.Uscita, InviataRiga + PagataRiga + BozzaRiga +
                               u"Aperto: 1.459,12 in 1 parcella; Rossi; Mario 1.459,12\n"_s);
    Fatto = Chiama({u"scadenzario"_s, Radice, u"1"_s});
    QCOMPARE(Fatto.Uscita.count(u'\n'), 5);
    QVERIFY(Fatto.Uscita.endsWith(u"Aperto: 2.918,24 in 2 parcelle; Rossi; Mario 2.918,24\n"_s));
}

void TestCliScadenzario::perStato_data()
{
    QTest::addColumn<QString>("Stato");
    QTest::addColumn<QString>("Righe");
    QTest::newRow("all") << u"tutte"_s << InviataRiga + PagataRiga + BozzaRiga;
    QTest::newRow("open") << u"aperte"_s << InviataRiga;
    QTest::newRow("drafts") << u"bozza"_s << BozzaRiga;
    QTest::newRow("in capitals") << u" Bozza"_s << BozzaRiga;
    QTest::newRow("sent") << u"inviata"_s << InviataRiga;
    QTest::newRow("invoiced") << u"fatturata"_s << QString();
    QTest::newRow("paid") << u"pagata"_s << PagataRiga;
    QTest::newRow("unknown") << u"ignoto"_s << QString();
}

void TestCliScadenzario::perStato()
{
    QFETCH(QString, Stato);
    QFETCH(QString, Righe);
    const Esito Fatto = Chiama({u"scadenzario"_s, Radice, u"--stato"_s, Stato});
    QCOMPARE(Fatto.Guasti, QString());
    QCOMPARE(Fatto.Stato, 0);
    QCOMPARE(Fatto.Uscita.section(u"Aperto:"_s, 0, 0), Righe);
}

void TestCliScadenzario::ilRecord()
{
    const Esito Fatto = Chiama({u"--json"_s, u"scadenzario"_s, Radice});
    const QJsonObject Record = QJsonDocument::fromJson(Fatto.Uscita.toUtf8()).object();
    QCOMPARE(Record[u"aperto"_s].toDouble(), 1459.12);
    QCOMPARE(Record[u"aperte"_s].toInt(), 1);
    QCOMPARE(Record[u"ignote"_s].toInt(-1), 0);
    const QJsonObject Prima = Record[u"note"_s].toArray().at(0).toObject();
    QCOMPARE(Prima[u"Cliente"_s].toString(), u"Rossi; Mario"_s);
    QCOMPARE(Prima[u"Stato"_s].toString(), u"Inviata"_s);
    QCOMPARE(Record[u"clienti"_s].toArray().at(0).toObject()[u"note"_s].toInt(), 1);
    const QJsonObject Trovata =
        QJsonDocument::fromJson(Chiama({u"--json"_s, u"trova"_s, Radice}).Uscita.toUtf8())
            .object()[u"note"_s]
            .toArray()
            .at(1)
            .toObject();
    QCOMPARE(Trovata[u"stato"_s].toString(), u"pagata"_s);
}

void TestCliScadenzario::ilFile()
{
    const QString File = NuovaCartella() + u"due.csv"_s;
    ApriAlGruppo(CartellaFile(File));
    const Esito Fatto = Chiama({u"scadenzario"_s, Radice, u"--stato"_s, u"aperte"_s, u"--csv"_s, File});
    QCOMPARE(Fatto.Guasti, QString());
    QCOMPARE(Fatto.Stato, 0);
    QCOMPARE(Fatto.Uscita, u"1\n"_s);
    QCOMPARE(LeggiFile(File),
             QByteArray("\xEF\xBB\xBF"
                        "Cliente;Codice fiscale;Partita IVA;Documento;Numero;Data;Stato;Dal;Scadenza;"
                        "Imponibile;Cassa;IVA;Ritenuta;Totale;Netto;Pagato;Aperto;Parcella\r\n"
                        "\"Rossi; Mario\";;;Prenotula;;;Inviata;22/11/2026;;"
                        "1150,00;46,00;263,12;0,00;1459,12;1459,12;0,00;1459,12;a\r\n"));
    QVERIFY(!(QFileInfo(File).permissions() & DiAltri));
}

void TestCliScadenzario::ilFileNonSiScrive()
{
    const Esito Fatto = Chiama({u"scadenzario"_s, Radice, u"--csv"_s, Radice + u"manca/due.csv"_s});
    QCOMPARE(Fatto.Stato, 1);
    QVERIFY(Fatto.Guasti.startsWith(u"Errore: "_s));
    QCOMPARE(Fatto.Uscita, QString());
}

/// A pattern of the shell puts a note behind the option: it stays, by its name and by what it holds.
void TestCliScadenzario::laParcellaNonSiSostituisce()
{
    const QByteArray Prima = LeggiFile(Radice + u"a.mdb"_s);
    const QString Copia = Radice + u"a.csv"_s;
    ScriviFile(Copia, Prima);
    const auto Rifiutato = [&](const QStringList& Argomenti) {
        const Esito Fatto = Chiama(Argomenti);
        return Fatto.Stato == 1 && Fatto.Guasti.endsWith(u"(58)\n"_s) && Fatto.Uscita.isEmpty();
    };
    for (const QString& File : {Radice + u"a.mdb"_s, Copia, Radice + u"nuova.MDB"_s}) {
        QVERIFY2(Rifiutato({u"scadenzario"_s, Radice, u"--csv"_s, File}), qPrintable(File));
        QVERIFY2(Rifiutato({u"rubrica"_s, u"clienti"_s, u"--vcard"_s, File}), qPrintable(File));
    }
    const QString Testo = Radice + u"a.txt"_s;
    ScriviFile(Testo, Prima);
    QVERIFY(Rifiutato({u"stampa"_s, Radice + u"b.mdb"_s, u"0"_s, Testo}));
    const QString Agenda = Radice + u"a.ics"_s;
    ScriviFile(Agenda, Prima);
    QVERIFY(Rifiutato(u"--norme vigenti --ics"_s.split(u' ') + QStringList{Agenda} +
                      u"termini 10/03/2026 10 giorni"_s.split(u' ')));
    for (const QString& File : {Radice + u"a.mdb"_s, Copia, Testo, Agenda})
        QCOMPARE(LeggiFile(File), Prima);
    QVERIFY(!QFile::exists(Radice + u"nuova.MDB"_s));
    // A list that is there already is replaced, as its own earlier answer.
    const QString Foglio = Radice + u"lista.csv"_s;
    ScriviFile(Foglio, "Cliente;\r\n");
    QCOMPARE(Chiama({u"scadenzario"_s, Radice, u"--csv"_s, Foglio}).Stato, 0);
}

/// A name may hold a break of lines and the sign between the cells: scripts count both.
void TestCliScadenzario::unaRigaPerParcella()
{
    for (const QString& Nome : {u"a"_s, u"b"_s, u"c"_s})
        QVERIFY(QFile::remove(Radice + Nome + u".mdb"_s));
    Crea(u"due\nrighe|e celle.mdb"_s, u"Neri"_s, nullptr);
    for (const QString& Comando : {u"scadenzario"_s, u"trova"_s}) {
        const QStringList Righe = Chiama({Comando, Radice}).Uscita.trimmed().split(u'\n');
        const QStringList Note = Righe.filter(u"due righe e celle"_s);
        QCOMPARE(Note.size(), 1);
        QCOMPARE(Note.first().count(u'|'), Comando == u"trova"_s ? 5 : 17);
        QVERIFY(Righe.filter(u"righe|e"_s).isEmpty());
    }
}

/// Payments that a description has cover the net.
void TestCliScadenzario::gliAccontiDellaDescrizione()
{
    Crea(u"e.mdb"_s, u"Gialli"_s, nullptr,
         ",\"acconti\":[{\"descrizione\":\"saldo\",\"valuta\":\"E\",\"speseImponibili\":1150}]");
    const Esito Fatto = Chiama({u"scadenzario"_s, Radice, u"--stato"_s, u"pagata"_s});
    QVERIFY2(Fatto.Uscita.contains(u"Gialli|||"_s), qPrintable(Fatto.Uscita));
    QVERIFY(Fatto.Uscita.contains(u"|1459,12|1459,12|0,00|e\n"_s));
}

namespace {

void FatturaEStorna(Parcella& Nota)
{
    Nota.txtDatiPar[DatoNumFatt] = u"7"_s;
    Nota.txtDatiPar[DatoDataFatt] = u"01/11/2026"_s;
    ScegliTipoStampa(Nota, StampaFatturaAnalitica);
    (void)NotaInviata(Nota, StampaFatturaAnalitica);
    Nota.FatturaXml.Tipo = u"TD04"_s;
    Nota.FatturaXml.CitataNumero = u"7/2026"_s;
    Nota.FatturaXml.CitataData = u"01/11/2026"_s;
    Nota.txtDatiPar[DatoNumFatt] = u"8"_s;
    (void)NotaInviata(Nota, StampaFatturaAnalitica);
}

void Storna12(Parcella& Nota)
{
    Nota.FatturaXml.Tipo = u"TD04"_s;
    Nota.FatturaXml.CitataNumero = u"12/2026"_s;
    Nota.FatturaXml.CitataData = u"09/11/2026"_s;
    Nota.txtDatiPar[DatoNumFatt] = u"13"_s;
    Nota.txtDatiPar[DatoDataFatt] = u"09/11/2026"_s;
    ScegliTipoStampa(Nota, StampaFatturaAnalitica);
    (void)NotaInviata(Nota, StampaFatturaAnalitica);
}

void Fattura12(Parcella& Nota)
{
    FatturaEPaga(Nota);
    (void)ScegliStato(Nota, StatoNota::Fatturata);
}

}  // namespace

/// Both documents of a file have a row, and both go into the accountant's file.
void TestCliScadenzario::unaFatturaEIlSuoStorno()
{
    Crea(u"f.mdb"_s, u"Gialli"_s, FatturaEStorna);
    const Esito Fatto = Chiama({u"scadenzario"_s, Radice, u"--stato"_s, u"fatturata"_s});
    QCOMPARE(Fatto.Uscita, u"Gialli|||Fattura "
                           u"analitica|7|01/11/2026|Fatturata|22/11/"
                           u"2026||1150,00|46,00|263,12|0,00|1459,12|1459,12|0,00|0,00|f\n"
                           u"Gialli|||Nota di credito della fattura "
                           u"7/2026|8|01/11/2026|Fatturata|22/11/2026||-1150,00|-46,00|-263,12|"
                           u"0,00|-1459,12|-1459,12|0,00|0,00|f\nAperto: 0,00 in 0 parcelle\n"_s);
    const QString File = Radice + u"due.csv"_s;
    QCOMPARE(Chiama({u"scadenzario"_s, Radice, u"--stato"_s, u"fatturata"_s, u"--csv"_s, File}).Uscita,
             u"2\n"_s);
    QCOMPARE(LeggiFile(File).count("\r\n"), 3);
}

/// A credit note in a file that the filter leaves out takes its invoice back all the same.
void TestCliScadenzario::sottoUnFiltro()
{
    Crea(u"b.mdb"_s, u"Verdi"_s, Fattura12);
    QVERIFY(
        Chiama({u"scadenzario"_s, Radice, u"--stato"_s, u"aperte"_s})
            .Uscita.endsWith(u"Aperto: 2.918,24 in 2 parcelle; Rossi; Mario 1.459,12; Verdi 1.459,12\n"_s));
    Crea(u"g.mdb"_s, u"Verdi"_s, Storna12);
    const Esito Fatto = Chiama({u"scadenzario"_s, Radice, u"--stato"_s, u"aperte"_s});
    QCOMPARE(Fatto.Uscita, InviataRiga + u"Aperto: 1.459,12 in 1 parcella; Rossi; Mario 1.459,12\n"_s);
    const QString File = Radice + u"due.csv"_s;
    QCOMPARE(Chiama({u"scadenzario"_s, Radice, u"--stato"_s, u"aperte"_s, u"--csv"_s, File}).Uscita,
             u"1\n"_s);
}

/// An invoice that was paid in the file that was saved last is not owed in the other one, which alone passes.
void TestCliScadenzario::copiaFuoriDalFiltro()
{
    Crea(u"a1.mdb"_s, u"Verdi"_s, Fattura12);
    QFile Prima(Radice + u"a1.mdb"_s);
    QVERIFY(Prima.open(QIODevice::ReadWrite));
    QVERIFY(Prima.setFileTime(QDateTime::currentDateTime().addDays(-9), QFileDevice::FileModificationTime));
    Prima.close();
    const QStringList Chiesta{u"scadenzario"_s, Radice, u"--stato"_s, u"fatturata"_s};
    QCOMPARE(Chiama(Chiesta).Uscita,
             u"Verdi|||Fattura analitica "
             u"(copia)|12|09/11/2026|Fatturata|22/11/2026||1150,00|46,00|263,12|0,00|1459,12|"
             u"1459,12|1459,12|0,00|a1\n"
             u"Aperto: 0,00 in 0 parcelle\n"_s);
    const QJsonObject Record =
        QJsonDocument::fromJson(Chiama(QStringList{u"--json"_s} + Chiesta).Uscita.toUtf8()).object();
    QCOMPARE(Record[u"copie"_s].toInt(), 0);
    const QString File = Radice + u"due.csv"_s;
    const Esito Fatto = Chiama(QStringList{u"--json"_s} + Chiesta + QStringList{u"--csv"_s, File});
    QCOMPARE(QJsonDocument::fromJson(Fatto.Uscita.toUtf8()).object()[u"esportate"_s].toInt(), 1);
    QVERIFY(LeggiFile(File).contains(
        "\r\nVerdi;;;Fattura analitica (copia);12;09/11/2026;Fatturata;22/11/2026;;1150,00;46,00;263,12;"
        "0,00;1459,12;1459,12;1459,12;0,00;a1\r\n"));
}

/// A note of before is counted beside the sum.
void TestCliScadenzario::quelloCheNonSiSa()
{
    OpenDatabase(Radice + u"c.mdb"_s).Execute(u"DROP TABLE \"_Calcanova\""_s);
    const Esito Fatto = Chiama({u"--json"_s, u"scadenzario"_s, Radice});
    QCOMPARE(QJsonDocument::fromJson(Fatto.Uscita.toUtf8()).object()[u"ignote"_s].toInt(), 1);
}

void TestCliScadenzario::nomiECodiciDallArchivio()
{
    const QString Suo = NuovaCartella() + u"DatiStudio.mdb"_s;
    QVERIFY(QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, Suo));
    QVERIFY(QFile::setPermissions(Suo, QFile::ReadOwner | QFile::WriteOwner));
    OpenDatabase(Suo).Execute(u"INSERT INTO clienti (ID, Nominativo, CodFis, PIva) VALUES "
                              u"(71,'Gialli Anna','GLLNNA80A41F205X','01234567897')"_s);
    Crea(u"h.mdb"_s, u"come nella parcella"_s, [](Parcella& Nota) {
        Nota.IDCli = 71;
        (void)NotaInviata(Nota, StampaPrenotula);
    });
    const Esito Fatto = Chiama({u"--archivio"_s, Suo, u"scadenzario"_s, Radice, u"--stato"_s, u"inviata"_s});
    QVERIFY2(Fatto.Uscita.contains(u"\nGialli Anna|GLLNNA80A41F205X|01234567897|Prenotula|"_s),
             qPrintable(Fatto.Uscita));
}

/// A file that is damaged may hold anything: the sum says so, and a file for the accountant is not called
/// done.
void TestCliScadenzario::nonTutteLette()
{
    QFile Tagliata(Radice + u"c.mdb"_s);
    QVERIFY(Tagliata.resize(Tagliata.size() - 4096));
    Esito Fatto = Chiama({u"scadenzario"_s, Radice});
    QCOMPARE(Fatto.Stato, 0);
    QVERIFY(Fatto.Uscita.endsWith(u"Rossi; Mario 1.459,12; 1 file non letto\n"_s));
    Fatto = Chiama({u"--json"_s, u"scadenzario"_s, Radice});
    QCOMPARE(QJsonDocument::fromJson(Fatto.Uscita.toUtf8()).object()[u"nonLetti"_s].toInt(), 1);
    Fatto = Chiama({u"scadenzario"_s, Radice, u"--csv"_s, Radice + u"due.csv"_s});
    QCOMPARE(Fatto.Stato, 1);
    QCOMPARE(Fatto.Uscita, u"2; 1 file non letto\n"_s);
    QCOMPARE(LeggiFile(Radice + u"due.csv"_s).count("\r\n"), 3);
}

/// Without the archive names and codes would be missing: nothing is written then.
void TestCliScadenzario::lArchivioBloccato()
{
    const QString Suo = NuovaCartella() + u"DatiStudio.mdb"_s;
    QVERIFY(QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, Suo));
    Crea(u"h.mdb"_s, u"Gialli"_s, [](Parcella& Nota) { Nota.IDCli = 1; });
    ScriviFile(Suo, QByteArray(5000, 'x'));
    const QString File = Radice + u"due.csv"_s;
    const Esito Fatto = Chiama({u"--archivio"_s, Suo, u"scadenzario"_s, Radice, u"--csv"_s, File});
    QCOMPARE(Fatto.Stato, 1);
    QVERIFY2(Fatto.Guasti.startsWith(u"Errore: "_s), qPrintable(Fatto.Guasti));
    QVERIFY(!QFile::exists(File));
}

void TestCliScadenzario::nomeConUnACapo()
{
    QVERIFY(QFile::rename(Radice + u"c.mdb"_s, Radice + u"c\nd|e.mdb"_s));
    QVERIFY(Chiama({u"scadenzario"_s, Radice, u"--stato"_s, u"bozza"_s})
                .Uscita.contains(u"|0,00|0,00|c d e\n"_s));
    QVERIFY(Chiama({u"trova"_s, Radice}).Uscita.contains(u"c d e|"_s));
}

void TestCliScadenzario::rifiuta_data()
{
    QTest::addColumn<QStringList>("Argomenti");
    QTest::addColumn<int>("Stato");
    QTest::addColumn<QString>("Guasti");
    QTest::newRow("no such folder") << QStringList{u"scadenzario"_s, u"/manca/qui"_s} << 1
                                    << u"Errore: Percorso non trovato (76)\n"_s;
    QTest::newRow("without a folder") << QStringList{u"scadenzario"_s} << 2
                                      << u"Uso: calcanova-cli scadenzario CARTELLA [SOTTOCARTELLE]\n"_s;
    QTest::newRow("unknown state")
        << QStringList{u"scadenzario"_s, u"."_s, u"--stato"_s, u"smarrita"_s} << 2
        << u"Stato sconosciuto: smarrita. Gli stati sono tutte, aperte, bozza, inviata, fatturata, pagata e ignoto.\n"_s;
    QTest::newRow("an empty state") << QStringList{u"scadenzario"_s, u"."_s, u"--stato"_s, QString()} << 2
                                    << u"L'opzione --stato vuole una parola.\n"_s;
    QTest::newRow("an empty file") << QStringList{u"scadenzario"_s, u"."_s, u"--csv"_s, QString()} << 2
                                   << u"L'opzione --csv vuole una destinazione.\n"_s;
    QTest::newRow("without a state") << QStringList{u"scadenzario"_s, u"."_s, u"--stato"_s} << 2
                                     << u"L'opzione --stato vuole una parola.\n"_s;
    QTest::newRow("cards") << QStringList{u"scadenzario"_s, u"."_s, u"--vcard"_s, u"x.vcf"_s} << 2
                           << u"L'opzione --vcard non vale per il comando scadenzario\n"_s;
    QTest::newRow("a file in a batch") << QStringList{u"--batch"_s, u"scadenzario"_s, u"--csv"_s, u"x.csv"_s}
                                       << 2 << u"L'opzione --csv non vale con --batch.\n"_s;
    QTest::newRow("another command") << QStringList{u"trova"_s, u"."_s, u"--stato"_s, u"bozza"_s} << 2
                                     << u"L'opzione --stato non vale per il comando trova\n"_s;
}

void TestCliScadenzario::rifiuta()
{
    QFETCH(QStringList, Argomenti);
    const Esito Fatto = Chiama(Argomenti);
    QTEST(Fatto.Stato, "Stato");
    QTEST(Fatto.Guasti, "Guasti");
    QCOMPARE(Fatto.Uscita, QString());
}

#include "TestCliScadenzario.moc"
