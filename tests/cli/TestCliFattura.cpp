// The electronic invoice from the command line: a note becomes a file, a file is looked at.
#include "ufficio.h"

#include "core/modTrasmissioni.h"
#include "core/sessione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modInterruttori.h"
#include "feenote/modNuovaParcella.h"
#include "platform/database/database.h"
#include "platform/database/primariga.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/orologio.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

QString Campione(const QString& Nome)
{
    return FileDiProva(u"feenote/einvoice/esempi/"_s + Nome);
}

}  // namespace

class TestCliFattura : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void gliEsempi_data();
    void gliEsempi();
    void ilFileCattivo();
    void ilFileCattivoInJson();
    void iFileInFila();
    void chiamataSbagliata_data();
    void chiamataSbagliata();
    void laNotaDiventaFile();
    void ilContatoreVaAvanti();
    void cioCheManca();
    void leScelteSbagliate_data();
    void leScelteSbagliate();
    void ilFileTroppoGrande();
    void unFileCheCE();
    void unaNotaCheNonEUnaFattura();
    void ilContatoreAllaFine();
    void laParcellaRicordaIlFile();
    void conUnAltraParcella();
    void nientAltroDellaParcellaCambia();
    void laParcellaLoSaPrima();
    void ilFileNonScrittoNonSiRicorda();
    void chiNonPuoRicordare_data();
    void chiNonPuoRicordare();
};
PROVA(TestCliFattura);

void TestCliFattura::init()
{
    AzzeraSessione();
}

void TestCliFattura::gliEsempi_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Ultima");
    QTest::newRow("ufficiale") << u"IT01234567890_FPR01.xml"_s << u"0 rifiuti, 3 avvisi"_s;
    QTest::newRow("altro ufficiale") << u"IT01234567890_FPR02.xml"_s << u"0 rifiuti, 3 avvisi"_s;
    QTest::newRow("con un altro nome") << u"ordinario.xml"_s << u"0 rifiuti, 1 avviso"_s;
}

void TestCliFattura::gliEsempi()
{
    QFETCH(QString, Nome);
    const Esito Risposta = Chiama({u"fattura"_s, u"--controlla"_s, Campione(Nome)});
    QCOMPARE(Risposta.Stato, 0);
    QTEST(Risposta.Uscita.trimmed().section(u'\n', -1), "Ultima");
    QCOMPARE(Risposta.Guasti, QString());
}

void TestCliFattura::ilFileCattivo()
{
    const QString File = NuovaCartella() + u"a.xml"_s;
    ScriviFile(
        File,
        LeggiFile(Campione(u"ordinario.xml"_s)).replace("<PrezzoUnitario>150.00", "<PrezzoUnitario>151.00"));
    const Esito Risposta = Chiama({u"fattura"_s, u"--controlla"_s, File});
    QCOMPARE(Risposta.Stato, 1);
    QVERIFY2(Risposta.Uscita.contains(u"Rifiuto, linea "_s) && Risposta.Uscita.contains(u"(00423)"_s),
             qPrintable(Risposta.Uscita));
    QVERIFY(Risposta.Uscita.endsWith(u"1 rifiuto, 1 avviso\n"_s));
    const Esito Manca = Chiama({u"fattura"_s, u"--controlla"_s, NuovaCartella() + u"b.xml"_s});
    QCOMPARE(Manca.Stato, 1);
    QVERIFY(Manca.Guasti.contains(u"(53)"_s));
}

void TestCliFattura::ilFileCattivoInJson()
{
    const QString File = NuovaCartella() + u"IT01234567897_00001.xml"_s;
    ScriviFile(File, LeggiFile(Campione(u"ordinario.xml"_s)).replace("<Imposta>263.12", "<Imposta>263.20"));
    const Esito Risposta = Chiama({u"--json"_s, u"fattura"_s, u"--controlla"_s, File});
    QCOMPARE(Risposta.Stato, 0);
    const QJsonArray Esiti = QJsonDocument::fromJson(Risposta.Uscita.toUtf8()).object()[u"esiti"_s].toArray();
    QCOMPARE(Esiti.size(), 2);  // the tax, and the total that no longer is the sum
    QStringList Codici;
    for (const QJsonValue& Uno : Esiti) {
        Codici += Uno[u"codice"_s].toString();
        QVERIFY(!Uno[u"rifiuto"_s].toBool() && Uno[u"linea"_s].toInt() > 0);
    }
    QVERIFY(Codici.contains(u"00421"_s));
}

void TestCliFattura::iFileInFila()
{
    const Esito Risposta = Chiama(
        {u"fattura"_s, u"--controlla"_s, u"--batch"_s, u"--json"_s},
        {Campione(u"ordinario.xml"_s).toUtf8(), "niente.xml", Campione(u"forfettario.xml"_s).toUtf8()});
    QCOMPARE(Risposta.Stato, 0);
    const QStringList Righe = Risposta.Uscita.trimmed().split(u'\n');
    QCOMPARE(Righe.size(), 3);
    QVERIFY(Righe[1].contains(u"errore"_s));
    QVERIFY(Righe[2].contains(u"0 rifiuti, 1 avviso"_s));
}

void TestCliFattura::chiamataSbagliata_data()
{
    QTest::addColumn<QStringList>("Argomenti");
    QTest::newRow("senza uscita") << QStringList{u"fattura"_s, u"a.mdb"_s};
    QTest::newRow("controllo di due") << QStringList{u"fattura"_s, u"--controlla"_s, u"a.xml"_s, u"b.xml"_s};
    QTest::newRow("controllo d'altro") << QStringList{u"nota"_s, u"--controlla"_s, u"a.mdb"_s};
}

void TestCliFattura::chiamataSbagliata()
{
    QFETCH(QStringList, Argomenti);
    QCOMPARE(Chiama(Argomenti).Stato, 2);
}

void TestCliFattura::laNotaDiventaFile()
{
    const Ufficio Studio;
    const QString File = Studio.Cartella + u"ITRSSMRA80A01H501U_00001.xml"_s;
    const Esito Risposta = Studio.Fattura(Studio.Nota(), File);
    QCOMPARE(Risposta.Guasti, QString());
    QCOMPARE(Risposta.Stato, 0);
    QCOMPARE(Risposta.Uscita, File + u'\n');
    const QByteArray Byte = LeggiFile(File);
    for (const QByteArray& Parola :
         {"<ProgressivoInvio>00001<"_ba, "<ImportoTotaleDocumento>1459.12<"_ba, "<ImportoRitenuta>230.00<"_ba,
          "<ImportoPagamento>1229.12<"_ba, "<Denominazione>Alfa S.r.l.<"_ba, "<NumeroCivico>2<"_ba,
          "<Cognome>Rossi<"_ba, "<Numero>7/2026<"_ba, "<Descrizione>Fase di studio<"_ba,
          "<Causale>Oggetto: Rossi contro Bianchi<"_ba})
        QVERIFY2(Byte.contains(Parola), Parola);
    const Esito Controllo = Chiama({u"fattura"_s, u"--controlla"_s, File});
    QCOMPARE(Controllo.Uscita, u"0 rifiuti, 0 avvisi\n"_s);
    QCOMPARE(Controllo.Stato, 0);
}

void TestCliFattura::ilContatoreVaAvanti()
{
    const Ufficio Studio;
    const QString Nota = Studio.Nota();
    const QString Primo = Studio.Cartella + u"a.xml"_s;
    const Esito Risposta = Studio.Fattura(Nota, Primo, {u"--json"_s});
    QCOMPARE(Risposta.Stato, 0);
    QVERIFY2(Risposta.Guasti.contains(u"va chiamato ITRSSMRA80A01H501U_00001.xml"_s),
             qPrintable(Risposta.Guasti));
    const QJsonObject Detto = QJsonDocument::fromJson(Risposta.Uscita.toUtf8()).object();
    QCOMPARE(Detto[u"nome"_s].toString(), u"ITRSSMRA80A01H501U_00001.xml"_s);
    QCOMPARE(Detto[u"totale"_s].toDouble(), 1459.12);
    QCOMPARE(Detto[u"daPagare"_s].toDouble(), 1229.12);
    const QString Secondo = Studio.Cartella + u"ITRSSMRA80A01H501U_00002.xml"_s;
    QCOMPARE(Studio.Fattura(Studio.Nota(), Secondo).Stato, 0);
    QVERIFY(LeggiFile(Secondo).contains("<ProgressivoInvio>00002<"));
    QCOMPARE(ProssimaTrasmissione(), 3);
}

/// One line with all that is missing; no file, and no number taken.
void TestCliFattura::cioCheManca()
{
    const Ufficio Studio;
    const QString File = Studio.Cartella + u"a.xml"_s;
    const Esito Risposta = Studio.Fattura(Studio.Nota([](Parcella& Nota) {
        Nota.txtDatiPar[DatoNumFatt].clear();
        Nota.IDCli = 0;
    }),
                                          File);
    QCOMPARE(Risposta.Stato, 1);
    QVERIFY2(Risposta.Guasti.startsWith(u"Errore: Collegare la parcella a un cliente"_s) &&
                 Risposta.Guasti.contains(u"indirizzo; Manca il numero della fattura (322)"_s),
             qPrintable(Risposta.Guasti));
    QCOMPARE(Risposta.Guasti.count(u'\n'), 1);
    QVERIFY(!EsisteFile(File));
    QCOMPARE(ProssimaTrasmissione(), 1);
}

void TestCliFattura::leScelteSbagliate_data()
{
    QTest::addColumn<QString>("Scadenza");
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Dice");
    QTest::newRow("scadenza") << u"31/11/2026"_s << QString() << QString()
                              << u"Errore: La scadenza non è una data: 31/11/2026 (322)\n"_s;
    QTest::newRow("data sola") << QString() << QString() << u"01/02/2025"_s
                               << u"Errore: Manca il numero della fattura citata (322)\n"_s;
    QTest::newRow("data sbagliata") << QString() << u"7"_s << u"ieri"_s
                                    << u"Errore: La data della fattura citata non è una data: ieri (322)\n"_s;
}

/// What the panel refuses the command refuses, in the same words.
void TestCliFattura::leScelteSbagliate()
{
    QFETCH(QString, Scadenza);
    QFETCH(QString, Numero);
    QFETCH(QString, Data);
    const Ufficio Studio;
    const QString File = Studio.Cartella + u"a.xml"_s;
    const Esito Risposta = Studio.Fattura(Studio.Nota([&](Parcella& Nota) {
        Nota.FatturaXml.Scadenza = Scadenza;
        Nota.FatturaXml.CitataNumero = Numero;
        Nota.FatturaXml.CitataData = Data;
    }),
                                          File);
    QCOMPARE(Risposta.Stato, 1);
    QTEST(Risposta.Guasti, "Dice");
    QVERIFY(!EsisteFile(File));
    QCOMPARE(ProssimaTrasmissione(), 1);
}

/// Whatever its size, it is the check that says so.
void TestCliFattura::ilFileTroppoGrande()
{
    QFile Grande(NuovaCartella() + u"a.xml"_s);
    QVERIFY(Grande.open(QIODevice::WriteOnly) && Grande.write("<a>") == 3 && Grande.resize(70 << 20));
    Grande.close();
    const Esito Risposta = Chiama({u"fattura"_s, u"--controlla"_s, Grande.fileName()});
    QCOMPARE(Risposta.Guasti, QString());
    QCOMPARE(Risposta.Uscita, u"Rifiuto: Il file è più grande di 5 MB. (00003)\n1 rifiuto, 0 avvisi\n"_s);
    QCOMPARE(Risposta.Stato, 1);
}

void TestCliFattura::unFileCheCE()
{
    const Ufficio Studio;
    const QString File = Studio.Cartella + u"a.xml"_s;
    ScriviFile(File, "mio");
    const Esito Risposta = Studio.Fattura(Studio.Nota(), File);
    QCOMPARE(Risposta.Stato, 1);
    QCOMPARE(Risposta.Guasti, u"Errore: Il file a.xml esiste già (58)\n"_s);
    QCOMPARE(LeggiFile(File), "mio"_ba);
    QCOMPARE(ProssimaTrasmissione(), 1);
}

void TestCliFattura::unaNotaCheNonEUnaFattura()
{
    const Ufficio Studio;
    const Esito Risposta =
        Studio.Fattura(Studio.Nota([](Parcella& Nota) { Nota.cmbTipoStampa = StampaPrenotula; }),
                       Studio.Cartella + u"a.xml"_s);
    QCOMPARE(Risposta.Stato, 1);
    QVERIFY(Risposta.Guasti.contains(u"Fattura sintetica o dalla Fattura analitica"_s));
}

void TestCliFattura::ilContatoreAllaFine()
{
    const Ufficio Studio;
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"ProgTrasm"_s, QString::number(UltimoProgTrasm));
    const QString File = Studio.Cartella + u"a.xml"_s;
    const Esito Risposta = Studio.Fattura(Studio.Nota(), File);
    QCOMPARE(Risposta.Stato, 1);
    QVERIFY(!Risposta.Guasti.isEmpty());
    QVERIFY(!EsisteFile(File));
}

/// The window then knows of it, and the command writes no second one; another number of the invoice is
/// another one.
void TestCliFattura::laParcellaRicordaIlFile()
{
    const Ufficio Studio;
    const QString File = Studio.Nota();
    QCOMPARE(Studio.Fattura(File, Studio.Cartella + u"a.xml"_s).Stato, 0);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.FatturaXml.File, u"ITRSSMRA80A01H501U_00001.xml"_s);
    QCOMPARE(Letta.FatturaXml.Progressivo, u"00001"_s);
    QVERIFY(FatturaGiaScritta(Letta));
    QCOMPARE(Letta.xOnorari.Righe(), 1);
    const Esito Ancora = Studio.Fattura(File, Studio.Cartella + u"b.xml"_s);
    QCOMPARE(Ancora.Stato, 1);
    QVERIFY2(Ancora.Guasti.contains(u"già stata scritta il 20/01/2026 come ITRSSMRA80A01H501U_00001.xml"_s),
             qPrintable(Ancora.Guasti));
    QVERIFY(!EsisteFile(Studio.Cartella + u"b.xml"_s));
    QCOMPARE(ProssimaTrasmissione(), 2);
    Letta.txtDatiPar[DatoNumFatt] = u"8"_s;
    ScriviNota(File, Letta);
    QCOMPARE(Studio.Fattura(File, Studio.Cartella + u"b.xml"_s).Stato, 0);
}

void TestCliFattura::conUnAltraParcella()
{
    const Ufficio Studio;
    const QString Altra = Studio.Nota([](Parcella& Nota) { Nota.xOnorari(0, OnoImporto) = 500.0; });
    const QString Seconda = Studio.Cartella + u"seconda.mdb"_s;
    QVERIFY(QFile::rename(Altra, Seconda));
    // A note that remembers another one is no invoice by itself.
    const QString File = Studio.Nota([&](Parcella& Nota) {
        Nota.txtParcMultipla = u"seconda"_s;
        Nota.txtPathParcMult = Seconda;
    });
    const Esito Sola = Studio.Fattura(File, Studio.Cartella + u"a.xml"_s);
    QCOMPARE(Sola.Stato, 1);
    QVERIFY2(Sola.Guasti.contains(u"indicarla con --multipla"_s), qPrintable(Sola.Guasti));
    const Esito Insieme =
        Studio.Fattura(File, Studio.Cartella + u"a.xml"_s, {u"--multipla"_s, Seconda, u"--prima"_s});
    QCOMPARE(Insieme.Stato, 0);
    const QByteArray Byte = LeggiFile(Studio.Cartella + u"a.xml"_s);
    // 1500 + 225 = 1725; fund 69; 22 % of 1794 = 394,68
    QVERIFY(Byte.contains("<ImportoTotaleDocumento>2188.68<"));
    QVERIFY(Byte.indexOf("<PrezzoTotale>500.00<") < Byte.indexOf("<PrezzoTotale>1000.00<"));
}

/// Of a note that a newer version has written stays what this one does not know; only the invoice's rows are
/// new.
void TestCliFattura::nientAltroDellaParcellaCambia()
{
    const Ufficio Studio;
    const QString File = Studio.Nota();
    const auto Tutto = [&] {
        const Database Db = OpenDatabase(File, true);
        QMap<QString, QString> Righe = Db.Annotazioni();
        for (const QString& Tabella : Db.Tabelle()) {
            Recordset Lette = Db.OpenRecordset(Tabella);
            for (int Numero = 0; !Lette.Eof(); Lette.MoveNext(), ++Numero)
                for (const Campo& Colonna : Db.Campi(Tabella))
                    Righe[Tabella + QString::number(Numero) + Colonna.Name] =
                        Lette.Value(Colonna.Name).toString();
        }
        return Righe;
    };
    {
        const Database Db = OpenDatabase(File);
        QMap<QString, QString> Memoria = Db.Annotazioni();
        Memoria[u"Ignota.Voce"_s] = u"domani"_s;
        Db.Annota(Memoria);
        Db.Execute(u"CREATE TABLE Mia (Testo TEXT(10))"_s);
        Db.Execute(u"INSERT INTO Mia (Testo) VALUES ('mio')"_s);
        Db.Execute(u"UPDATE ParcellaParam SET Cliente='x'"_s);
    }
    QMap<QString, QString> Prima = Tutto();
    QVERIFY(Prima.values().contains(u"mio"_s) && Prima.values().contains(u"x"_s));
    Prima[u"FatturaXml.File"_s] = u"ITRSSMRA80A01H501U_00001.xml"_s;
    Prima[u"FatturaXml.Quando"_s] = u"20/01/2026"_s;
    Prima[u"FatturaXml.Progressivo"_s] = u"00001"_s;
    Prima[u"FatturaXml.DiFattura"_s] = u"7|15/01/2026"_s;
    // The note is invoiced by it; its figures are what they were.
    Prima[u"Stato"_s] = u"Fatturata"_s;
    Prima[u"Stato.Documento"_s] = u"3"_s;
    Prima[u"Stato.Emessa"_s] = u"1"_s;
    Prima[u"Stato.ConFile"_s] = u"1"_s;
    Prima[u"Stato.Fattura"_s] = u"15/01/2026;7"_s;
    Prima[u"Stato.Dal.Fatturata"_s] = u"20/01/2026"_s;
    QVERIFY(Prima.contains(u"Stato.Importi"_s));
    QCOMPARE(Studio.Fattura(File, Studio.Cartella + u"a.xml"_s).Stato, 0);
    QCOMPARE(Tutto(), Prima);
}

/// Whoever is killed between the two has a note that knows of a file rather than a file that no note knows.
void TestCliFattura::laParcellaLoSaPrima()
{
    const Ufficio Studio;
    const QString File = Studio.Nota();
    const QString Uscita = Studio.Cartella + u"a.xml"_s;
    bool Prima = false;
    // The invoice asks for the day just before it is put on the disk.
    InstallaOrologio([&] {
        AnnotazioniChieste Chieste{{u"FatturaXml.File"_s}, {}};
        (void)LeggiPrimaRiga(File, u"ParcellaParam"_s, {u"Oggetto"_s}, 255, &Chieste);
        Prima = Prima || (!Chieste.Trovate.isEmpty() && !EsisteFile(Uscita));
        return QDateTime(QDate(2026, 1, 20), QTime(10, 0));
    });
    QCOMPARE(Studio.Fattura(File, Uscita).Stato, 0);
    QVERIFY(Prima);
    // As it stands where the program was killed there.
    QFile::remove(Uscita);
    const Esito Dopo = Studio.Fattura(File, Uscita);
    QCOMPARE(Dopo.Stato, 1);
    QVERIFY2(Dopo.Guasti.contains(u"che qui non si trova"_s), qPrintable(Dopo.Guasti));
    ScriviFile(Studio.Cartella + u"ITRSSMRA80A01H501U_00001.xml"_s, "x");
    QVERIFY(!Studio.Fattura(File, Uscita).Guasti.contains(u"che qui non si trova"_s));
}

void TestCliFattura::ilFileNonScrittoNonSiRicorda()
{
    const Ufficio Studio;
    const QString File = Studio.Nota();
    const auto Memoria = [&] { return OpenDatabase(File, true).Annotazioni(); };
    const QMap<QString, QString> Era = Memoria();
    const Esito Mancata = Studio.Fattura(File, Studio.Cartella + u"manca/a.xml"_s);
    QCOMPARE(Mancata.Stato, 1);
    QVERIFY2(!Mancata.Guasti.contains(u"per scritta"_s), qPrintable(Mancata.Guasti));
    QCOMPARE(Memoria(), Era);
    QCOMPARE(Studio.Fattura(File, Studio.Cartella + u"a.xml"_s).Stato, 0);
    QVERIFY(Memoria() != Era);
}

void TestCliFattura::chiNonPuoRicordare_data()
{
    QTest::addColumn<bool>("Protetta");
    QTest::addColumn<QString>("Dice");
    QTest::newRow("con la password") << true
                                     << u"La parcella non ricorda il file scritto: è protetta da password."_s;
    QTest::newRow("di sola lettura") << false
                                     << u"La parcella non ricorda il file scritto: è di sola lettura."_s;
}

void TestCliFattura::chiNonPuoRicordare()
{
    QFETCH(bool, Protetta);
    QFETCH(QString, Dice);
    const Ufficio Studio;
    const QString File = Studio.Nota([&](Parcella& Nota) { Nota.Psw = Protetta ? u"segre"_s : QString(); });
    if (!Protetta)
        ImpostaSolaLettura(File, true);
    const QByteArray Prima = LeggiFile(File);
    const Esito Risposta = Studio.Fattura(File, Studio.Cartella + u"a.xml"_s);
    QCOMPARE(Risposta.Stato, 0);
    QVERIFY2(Risposta.Guasti.contains(Dice), qPrintable(Risposta.Guasti));
    QVERIFY(EsisteFile(Studio.Cartella + u"a.xml"_s));
    QCOMPARE(LeggiFile(File), Prima);
    ImpostaSolaLettura(File, false);
}

#include "TestCliFattura.moc"
