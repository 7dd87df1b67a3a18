// Files that are not what they say, and programs that do not answer: one sentence, and everything as it was.
#include "platform/accesso/accesso.h"
#include "platform/accesso/lettore.h"
#include "platform/base/errore.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"
#include "supporto/scrittoreaccess.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QScopedValueRollback>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

TabellaScritta Semplice(const QString& Nome = u"clienti"_s)
{
    return {.Nome = Nome,
            .Colonne = {{.Nome = u"ID"_s, .Tipo = tipoaccess::Lungo, .Contatore = true},
                        {.Nome = u"Nominativo"_s},
                        {.Nome = u"Note"_s, .Tipo = tipoaccess::Memo}},
            .Righe = {{1, u"Rossi"_s, u"nota"_s.repeated(3000)}, {2, u"Bianchi"_s, QVariant()}}};
}

QByteArray Buono(EdizioneAccess Edizione = EdizioneAccess::Jet4)
{
    return ScriviAccess({.Edizione = Edizione, .Tabelle = {Semplice()}});
}

/// The list of tables looks for the map of its pages behind the last row of the map's page: a row without a
/// byte.
QByteArray SenzaMappaDelleTabelle()
{
    constexpr qsizetype Mappa = 2 * qsizetype(4096) + 0x37;
    QByteArray Byte = Buono();
    Byte[Mappa] = char(Byte[Mappa] + 2);
    return Byte;
}

void Scrivi(const QString& Percorso, const QByteArray& Byte)
{
    QFile File(Percorso);
    QVERIFY(File.open(QIODevice::WriteOnly));
    QCOMPARE(File.write(Byte), Byte.size());
}

/// A program in the place of the reading one, as a script.
QString Programma(const QString& Righe)
{
    const QString File = NuovaCartella() + u"lettore"_s;
    Scrivi(File, "#!/bin/sh\n" + Righe.toUtf8());
    QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return File;
}

/// The sanitizers need calls that the filter refuses, and its table is known for these processors.
constexpr bool ConFiltro =
#if !defined(__SANITIZE_ADDRESS__) && (defined(__x86_64__) || defined(__aarch64__))
    true;
#else
    false;
#endif

/// What the system says of the processes that the programs started here have started.
QByteArrayList StatiDeiNipoti()
{
    QHash<QByteArray, QByteArray> Padri;
    QHash<QByteArray, QByteArray> Stati;
    for (const QString& Numero : QDir(u"/proc"_s).entryList({u"[0-9]*"_s}, QDir::Dirs)) {
        QFile File(u"/proc/%1/status"_s.arg(Numero));
        if (!File.open(QIODevice::ReadOnly))
            continue;
        const QByteArray Stato = File.readAll();
        const qsizetype Riga = Stato.indexOf("\nPPid:\t");
        Padri[Numero.toLatin1()] = Stato.sliced(Riga + 7, Stato.indexOf('\n', Riga + 1) - Riga - 7);
        Stati[Numero.toLatin1()] = Stato;
    }
    const QByteArray Mio = QByteArray::number(QCoreApplication::applicationPid());
    QByteArrayList Trovati;
    for (auto Voce = Padri.cbegin(); Voce != Padri.cend(); ++Voce)
        if (Padri.value(Voce.value()) == Mio)
            Trovati.append(Stati.value(Voce.key()));
    return Trovati;
}

}  // namespace

class TestOstili : public QObject
{
    Q_OBJECT

    QString Cartella;
    QString Da;
    QString A;

    /// The refusal of what stands in `Da`; nothing else is in the folder behind it.
    Errore Rifiuto(const ModoAccess& Come = {})
    {
        try {
            (void)ConvertiAccess(Da, A, Come);
        } catch (const Errore& Guasto) {
            if (QDir(Cartella).entryList(QDir::Files | QDir::Hidden) != QStringList{u"da.mdb"_s})
                return Errore(-1, u"something is left in the folder"_s);
            return Guasto;
        }
        return Errore(0, u"accepted"_s);
    }

private Q_SLOTS:
    void init()
    {
        Cartella = NuovaCartella();
        Da = Cartella + u"da.mdb"_s;
        A = Cartella + u"a.mdb"_s;
    }

    void siRifiuta_data()
    {
        QTest::addColumn<QByteArray>("Byte");
        QTest::addColumn<QString>("Frase");
        const QString Estraneo = u"Il file non è un archivio di Access"_s;
        const QString Corto = u"Il file non è intero: copiarlo di nuovo dall'originale"_s;
        QTest::newRow("empty") << QByteArray() << Estraneo;
        QTest::newRow("foreign") << QByteArray("%PDF-1.4\n").repeated(1000) << Estraneo;
        QTest::newRow("native") << QByteArray("SQLite format 3\0", 16).repeated(300) << Estraneo;
        QTest::newRow("head alone") << Buono().first(20) << Corto;
        QTest::newRow("two pages") << Buono().first(8192) << Corto;
        QTest::newRow("cut in the map") << Buono().chopped(4096) << Corto;
        QTest::newRow("cut in the rows") << Buono().chopped(2 * 4096) << Corto;
        QByteArray Cifrato = Buono(EdizioneAccess::Ace2007);
        for (qsizetype i = 4096; i < Cifrato.size(); ++i)
            Cifrato[i] = char(i * 7919 >> 3);
        QTest::newRow("encrypted")
            << Cifrato << u"Il file è cifrato con una password di Access: toglierla con Access e ripetere"_s;
        QByteArray Guasto = Buono();
        Guasto[2 * 4096] = '\7';
        QTest::newRow("no list of tables")
            << Guasto << u"Il file è danneggiato: ripararlo con Access, o copiarlo di nuovo"_s;
        QTest::newRow("no map of the list")
            << SenzaMappaDelleTabelle()
            << u"Il file è danneggiato: ripararlo con Access, o copiarlo di nuovo"_s;
        FileScritto Tante;
        for (int i = 0; i < 1001; ++i)
            Tante.Tabelle.append({.Nome = u"T%1"_s.arg(i), .Colonne = {{.Nome = u"N"_s}}});
        QTest::newRow("1001 tables")
            << ScriviAccess(Tante)
            << u"Il file ha più di 1000 tabelle: non è un archivio di questo programma"_s;
    }
    void siRifiuta()
    {
        QFETCH(QByteArray, Byte);
        QFETCH(QString, Frase);
        Scrivi(Da, Byte);
        const Errore Guasto = Rifiuto();
        QCOMPARE(Guasto.Descrizione, Frase);
        QCOMPARE(Guasto.Numero, errori::FormatoDatabase);
    }

    /// A file as large as no archive is, most of it empty: refused before it is read.
    void enorme()
    {
        Scrivi(Da, Buono());
        QFile File(Da);
        QVERIFY(File.open(QIODevice::ReadWrite));
        QVERIFY(File.resize((qint64(2) << 30) + 4096));
        File.close();
        QElapsedTimer Tempo;
        Tempo.start();
        QCOMPARE(Rifiuto().Descrizione,
                 u"Il file supera i 2 GB, che un archivio di Access non ha: scegliere il file giusto"_s);
        QVERIFY(Tempo.elapsed() < 2000);
        // At the limit what it holds is read, and the emptiness behind it is not.
        QVERIFY(File.open(QIODevice::ReadWrite));
        QVERIFY(File.resize(qint64(2) << 30));
        File.close();
        QCOMPARE(ConvertiAccess(Da, A)->Tabelle, (QList<TabellaAccess>{{u"clienti"_s, 2}}));
    }

    void quelCheNonEUnFile()
    {
        QCOMPARE(Rifiuto().Numero, -1);  // the folder is empty
        QVERIFY(QDir().mkpath(Da));
        const ErroreVisto Guasto = ErroreDi([&] { (void)ConvertiAccess(Da, A); });
        QCOMPARE(Guasto.Numero, errori::Accesso);
    }

    void doveNonSiScrive()
    {
        Scrivi(Da, Buono());
        QCOMPARE(NumeroErrore([&] { (void)ConvertiAccess(Da, Cartella + u"manca/a.mdb"_s); }),
                 errori::CartellaMancante);
        Scrivi(A, "mio");
        QCOMPARE(NumeroErrore([&] { (void)ConvertiAccess(Da, A); }), errori::DatabasePresente);
        QFile Mio(A);
        QVERIFY(Mio.open(QIODevice::ReadOnly));
        QCOMPARE(Mio.readAll(), "mio");
    }

    /// More columns than a table has: named, and the other tables come.
    void diecimilaColonne()
    {
        TabellaScritta Larga{.Nome = u"Larga"_s};
        for (int i = 0; i < 10000; ++i)
            Larga.Colonne.append({.Nome = u"C%1"_s.arg(i), .Tipo = tipoaccess::Intero});
        ScriviAccess(Da, {.Tabelle = {Larga, Semplice()}});
        const RapportoAccess Rapporto = ConvertiAccess(Da, A).value();
        QCOMPARE(Rapporto.Tabelle, (QList<TabellaAccess>{{u"clienti"_s, 2}}));
        QCOMPARE(Rapporto.Tralasciati,
                 (QList<TralasciatoAccess>{{u"Larga"_s, u"tabella danneggiata: 10000 campi"_s}}));
    }

    /// A memo beyond a cell's measure is left out and named; one below it is whole.
    void cellaDiSediciMega()
    {
        TabellaScritta Tabella = Semplice();
        Tabella.Righe[0][2] = QByteArray(17 * 1024 * 1024, 'x');
        Tabella.Righe[1][2] = QByteArray("ab").repeated(4 * 1024 * 1024);
        ScriviAccess(Da, {.Tabelle = {Tabella}});
        const RapportoAccess Rapporto = ConvertiAccess(Da, A).value();
        QCOMPARE(Rapporto.Tralasciati,
                 (QList<TralasciatoAccess>{{u"clienti.Note"_s, u"oltre 16 MB: 1 celle"_s}}));
        Recordset Righe = OpenDatabase(A).OpenRecordset(u"clienti"_s);
        QVERIFY(Righe.Value(u"Note"_s).isNull());
        QCOMPARE(Righe.Value(u"Nominativo"_s).toString(), u"Rossi"_s);
        Righe.MoveNext();
        QCOMPARE(Righe.Value(u"Note"_s).toString().size(), 4 * 1024 * 1024);
    }

    void nomiDiControllo()
    {
        TabellaScritta Tabella = Semplice(u"cli\u0001en\u0007ti"_s);
        Tabella.Colonne[1].Nome = u"No\u0002mi\"nativo"_s;
        Tabella.Colonne[2].Nome = u"\u0003\u0004"_s;
        TabellaScritta Vuota = Semplice(u"\u0001\u0002"_s);
        ScriviAccess(Da, {.Tabelle = {Tabella, Vuota}});
        const RapportoAccess Rapporto = ConvertiAccess(Da, A).value();
        QCOMPARE(Rapporto.Tabelle, (QList<TabellaAccess>{{u"clienti"_s, 2}}));
        QCOMPARE(Rapporto.Tralasciati,
                 (QList<TralasciatoAccess>{{QString(), u"tabella senza un nome leggibile"_s}}));
        const QList<Campo> Campi = OpenDatabase(A).Campi(u"clienti"_s);
        QCOMPARE(Campi[1].Name, u"Nomi\"nativo"_s);
        QCOMPARE(Campi[2].Name, u"Campo3"_s);
    }

    /// Values that no column can hold are Null, and counted.
    void valoriImpossibili()
    {
        TabellaScritta Tabella{.Nome = u"T"_s,
                               .Colonne = {{.Nome = u"D"_s, .Tipo = tipoaccess::Data},
                                           {.Nome = u"N"_s, .Tipo = tipoaccess::Doppio}},
                               .Righe = {{1e300, std::numeric_limits<double>::infinity()},
                                         {-1e9, std::numeric_limits<double>::quiet_NaN()},
                                         {1.0, 1.0}}};
        ScriviAccess(Da, {.Tabelle = {Tabella}});
        const RapportoAccess Rapporto = ConvertiAccess(Da, A).value();
        QCOMPARE(Rapporto.Tabelle, (QList<TabellaAccess>{{u"T"_s, 3}}));
        QCOMPARE(Rapporto.Tralasciati, (QList<TralasciatoAccess>{{u"T.D"_s, u"valori illeggibili: 2"_s},
                                                                 {u"T.N"_s, u"valori illeggibili: 2"_s}}));
    }

    /// A definition that speaks of more rows than there are.
    void righeMancanti()
    {
        TabellaScritta Tabella = Semplice();
        Tabella.RigheDichiarate = 50;
        ScriviAccess(Da, {.Tabelle = {Tabella}});
        QCOMPARE(ConvertiAccess(Da, A)->Tralasciati,
                 (QList<TralasciatoAccess>{{u"clienti"_s, u"righe illeggibili: 48"_s}}));
    }

    /// Somebody works with the file: a copy of it is read, and nothing of that stays.
    void aperto()
    {
        for (const QString& Blocco : {u"da.ldb"_s, u"DA.LDB"_s, u"da.laccdb"_s}) {
            init();
            Scrivi(Da, Buono());
            Scrivi(Cartella + Blocco, "x");
            QCOMPARE(ConvertiAccess(Da, A)->Tabelle, (QList<TabellaAccess>{{u"clienti"_s, 2}}));
            QStringList Attesi{u"a.mdb"_s, u"da.mdb"_s, Blocco};
            Attesi.sort(Qt::CaseInsensitive);
            QStringList Presenti = QDir(Cartella).entryList(QDir::Files | QDir::Hidden);
            Presenti.sort(Qt::CaseInsensitive);
            QCOMPARE(Presenti, Attesi);
        }
    }

    /// Chains of pages that come back to themselves: one memo is lost, or its file; the next file is read.
    void catenaSenzaFine_data()
    {
        QTest::addColumn<int>("Passo");
        QTest::newRow("to itself") << 0;
        QTest::newRow("two in a ring") << 1;
    }
    void catenaSenzaFine()
    {
        QFETCH(int, Passo);
        QByteArray Byte = Buono();
        QList<qsizetype> Pezzi;
        for (qsizetype Pagina = 1; Pagina * 4096 < Byte.size(); ++Pagina)
            if (QByteArrayView(Byte).sliced(Pagina * 4096 + 4, 4) == "LVAL")
                Pezzi.append(Pagina);
        QVERIFY(Pezzi.size() > 1);
        for (qsizetype i = 0; i < Pezzi.size(); ++i) {
            char* const Inizio = Byte.data() + Pezzi[i] * 4096;
            const int Posto = qFromLittleEndian<quint16>(Inizio + 14);
            qToLittleEndian(quint32(Pezzi[(i + Passo) % Pezzi.size()] << 8), Inizio + Posto);
        }
        Scrivi(Da, Byte);
        try {
            const RapportoAccess Rapporto = ConvertiAccess(Da, A, {.Secondi = 1}).value();
            QCOMPARE(Rapporto.Tralasciati,
                     (QList<TralasciatoAccess>{{u"clienti.Note"_s, u"valori illeggibili: 1"_s}}));
            QVERIFY(QFile::remove(A));
        } catch (const Errore& Guasto) {
            QCOMPARE(Guasto.Numero, errori::FormatoDatabase);
            QCOMPARE(Guasto.Descrizione,
                     u"La lettura del file si è interrotta: il file è danneggiato, o chiede troppo"_s);
        }
        Scrivi(Da, Buono());
        QCOMPARE(ConvertiAccess(Da, A)->Tabelle, (QList<TabellaAccess>{{u"clienti"_s, 2}}));
    }

    /// Programs that die, hang or talk nonsense cost their own file.
    void programmiGuasti_data()
    {
        QTest::addColumn<QString>("Righe");
        QTest::addColumn<QString>("Frase");
        const QString Interrotta = u"La lettura del file si è interrotta: il file è danneggiato"_s;
        QTest::newRow("dies at once") << u"exit 1\n"_s << Interrotta;
        QTest::newRow("dies when asked") << u"read Riga; kill -SEGV $$\n"_s << Interrotta;
        QTest::newRow("hangs")
            << u"read Riga; exec sleep 1000\n"_s
            << u"La lettura del file ha richiesto troppo tempo: il file è danneggiato o troppo grande"_s;
        QTest::newRow("talks without end")
            << u"read Riga; exec cat /dev/zero\n"_s
            << u"La lettura del file ha richiesto troppo tempo: il file è danneggiato o troppo grande"_s;
        QTest::newRow("nonsense") << u"while read Riga; do echo ciao; done\n"_s << DescrizioneErrore(3343);
        QTest::newRow("says it is done")
            << u"while read Riga; do echo '{\"errore\":0}'; done\n"_s << DescrizioneErrore(3343);
        QTest::newRow("an error of no number")
            << u"while read Riga; do echo '{\"errore\":-3}'; done\n"_s << DescrizioneErrore(3343);
    }
    void programmiGuasti()
    {
        QFETCH(QString, Righe);
        QFETCH(QString, Frase);
        Scrivi(Da, Buono());
        {
            const QScopedValueRollback Altro(accesso::Programma, Programma(Righe));
            const QScopedValueRollback Poco(accesso::AttesaPerSecondo, 1);
            QCOMPARE(Rifiuto({.Secondi = 0}).Descrizione, Frase);
        }
        QCOMPARE(ConvertiAccess(Da, A)->Tabelle, (QList<TabellaAccess>{{u"clienti"_s, 2}}));
    }

    /// A program that is kept for the next file and ends meanwhile costs none: only while it was at a file
    /// does its end speak of that one.
    void ilLettoreFinitoDaSolo()
    {
        const QString Uno = u"IFS= read -r Riga; printf '%s\\n' \"$Riga\" | '%1'\n"_s.arg(
            QString(accesso::Programma).replace(u'\'', u"'\\''"_s));
        const QScopedValueRollback Altro(accesso::Programma, Programma(Uno));
        const QScopedValueRollback Copie(accesso::CartellaCopie, NuovaCartella());
        const QList<TabellaAccess> Sue{{u"clienti"_s, 2}};
        Scrivi(Da, Buono());
        for (int Volta = 0; Volta < 3; ++Volta) {
            QCOMPARE(ConvertiAccess(Da, A)->Tabelle, Sue);
            QVERIFY(QFile::remove(A));
            // Somebody has the file open: the copy that is read in its place serves the second time too.
            Scrivi(Cartella + u"da.ldb"_s, "x");
        }
        QCOMPARE(OpenDatabase(CopiaNativa(Da), true).OpenRecordset(u"clienti"_s).Campi().size(), 3);
        QVERIFY(QFile::remove(Cartella + u"da.ldb"_s));
        // One that ends at the file is asked no third time.
        const QString Conta = Cartella + u"volte"_s;
        accesso::Programma = Programma(u"echo x >>'%1'; read Riga; kill -SEGV $$\n"_s.arg(Conta));
        QVERIFY(ErroreDi([&] { (void)ConvertiAccess(Da, A); }).Numero == errori::FormatoDatabase);
        QFile Contate(Conta);
        QVERIFY(Contate.open(QIODevice::ReadOnly));
        QCOMPARE(Contate.readAll(), QByteArray("x\n"));
    }

    void senzaProgramma()
    {
        Scrivi(Da, Buono());
        const QScopedValueRollback Altro(accesso::Programma, Cartella + u"manca"_s);
        QCOMPARE(Rifiuto().Numero, errori::NessunProgramma);
    }

    void siFerma()
    {
        Scrivi(Da, Buono());
        const QScopedValueRollback Altro(accesso::Programma, Programma(u"read Riga; exec sleep 1000\n"_s));
        int Chiesto = 0;
        QVERIFY(!ConvertiAccess(Da, A, {.Prosegui = [&](qint64) { return ++Chiesto < 3; }}).has_value());
        QCOMPARE(Chiesto, 3);
        QCOMPARE(QDir(Cartella).entryList(QDir::Files | QDir::Hidden), QStringList{u"da.mdb"_s});
    }

    /// The rows are counted while they are written.
    void avanza()
    {
        TabellaScritta Tabella{.Nome = u"T"_s, .Colonne = {{.Nome = u"N"_s, .Tipo = tipoaccess::Lungo}}};
        for (int i = 0; i < 9000; ++i)
            Tabella.Righe.append(RigaScritta{i});
        ScriviAccess(Da, {.Tabelle = {Tabella}});
        QList<qint64> Contate;
        QVERIFY(ConvertiAccess(Da, A,
                               {.Prosegui =
                                    [&](qint64 Righe) {
                                        Contate.append(Righe);
                                        return true;
                                    }})
                    .has_value());
        QVERIFY(std::ranges::is_sorted(Contate));
        QVERIFY2(Contate.last() >= 2000, qPrintable(QString::number(Contate.last())));
    }

    /// Whoever reads rows has the files that he needs open, and no way to any other.
    void chiLeggeHaLePorteChiuse()
    {
        TabellaScritta Tabella{.Nome = u"T"_s,
                               .Colonne = {{.Nome = u"N"_s, .Tipo = tipoaccess::Lungo}, {.Nome = u"A"_s}}};
        for (int i = 0; i < 30000; ++i)
            Tabella.Righe.append(RigaScritta{i, u"una riga"_s});
        ScriviAccess(Da, {.Tabelle = {Tabella}});
        int Visti = 0;
        int Chiusi = 0;
        QVERIFY(ConvertiAccess(Da, A,
                               {.Prosegui =
                                    [&](qint64 Righe) {
                                        for (const QByteArray& Stato :
                                             Righe > 0 ? StatiDeiNipoti() : QByteArrayList()) {
                                            ++Visti;
                                            Chiusi += int(Stato.contains("\nSeccomp:\t2\n"));
                                        }
                                        return true;
                                    }})
                    .has_value());
        QVERIFY(Visti > 0);
        QCOMPARE(Chiusi, ConFiltro ? Visti : 0);
    }

    /// Requests that are none are answered, and the next one is served.
    void richiesteSbagliate()
    {
        Scrivi(Da, Buono());
        Lettore Prova(accesso::Programma);
        const auto Chiedi = [&](const QByteArray& Riga) {
            if (Prova.Chiedi(
                    Riga + '\n', 20000, [](QByteArrayView) { return true; }, [] { return true; }) !=
                Lettore::Fine::Risposta)
                return QByteArray("none");
            return Prova.Risposta();
        };
        for (const QByteArray& Riga :
             {QByteArray("ciao"), QByteArray("{}"), QByteArray(R"({"da":"x","a":"y","secondi":100000})")})
            QVERIFY2(Chiedi(Riga).contains("\"errore\":5"), Riga);
        QVERIFY(Chiedi(R"({"da":"/dev/zero","a":"/nonexistent/y","secondi":1})").contains("\"errore\":3343"));
        const QByteArray Vera = QStringLiteral(R"({"da":"%1","a":"%2","secondi":10})").arg(Da, A).toUtf8();
        QVERIFY2(Chiedi(Vera).contains("\"errore\":0"), Prova.Risposta());
    }
};

PROVA(TestOstili);
#include "TestOstili.moc"
