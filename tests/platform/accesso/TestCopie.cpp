// The copies that serve in the place of Access files: made once, private, swept.
#include "platform/accesso/accesso.h"
#include "platform/accesso/copie.h"
#include "platform/base/errore.h"
#include "platform/system/attese.h"
#include "platform/system/blocco.h"
#include "platform/system/file.h"
#include "supporto/altroprogramma.h"
#include "supporto/danni.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"
#include "supporto/scrittoreaccess.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QScopedValueRollback>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

FileScritto Con(const QString& Nome)
{
    return {.Tabelle = {{.Nome = u"clienti"_s,
                         .Colonne = {{.Nome = u"ID"_s, .Tipo = tipoaccess::Lungo, .Contatore = true},
                                     {.Nome = u"Nominativo"_s}},
                         .Righe = {{1, Nome}}}}};
}

QString Nominativo(const QString& Archivio)
{
    return ApriArchivio(Archivio).OpenRecordset(u"clienti"_s).Value(u"Nominativo"_s).toString();
}

void Invecchia(const QString& File, int Giorni)
{
    QFile Aperto(File);
    QVERIFY(Aperto.open(QIODevice::ReadOnly));
    QVERIFY(Aperto.setFileTime(QDateTime::currentDateTimeUtc().addDays(-Giorni),
                               QFileDevice::FileModificationTime));
}

}  // namespace

class TestCopie : public QObject
{
    Q_OBJECT

    QString Archivio;
    QString Copie;

    QStringList Tenute() const { return QDir(Copie).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

private Q_SLOTS:
    void init()
    {
        Archivio = ScriviAccess(NuovaCartella() + u"Studio.mdb"_s, Con(u"Rossi"_s));
        Copie = NuovaCartella() + u"copie/"_s;
        accesso::CartellaCopie = Copie;
    }
    void cleanup() { accesso::CartellaCopie.clear(); }

    void unaPerStato()
    {
        QCOMPARE(Nominativo(Archivio), u"Rossi"_s);
        QCOMPARE(Tenute().size(), 1);
        {
            const QScopedValueRollback Senza(accesso::Programma, u"/bin/false"_s);
            QCOMPARE(Nominativo(Archivio), u"Rossi"_s);
        }
        ScriviAccess(Archivio, Con(u"Un altro nome"_s));
        Invecchia(Archivio, 3);
        QCOMPARE(Nominativo(Archivio), u"Un altro nome"_s);
        QCOMPARE(Tenute().size(), 2);
    }

    void soloSue()
    {
        (void)CopiaNativa(Archivio);
        QCOMPARE(QFile::permissions(Copie) & (QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                              QFile::ReadOther | QFile::WriteOther | QFile::ExeOther),
                 QFile::Permissions());
    }

    void laCopiaSiLeggeSoltanto()
    {
        const Database Db = ApriArchivio(Archivio);
        QVERIFY(Db.DiSolaLettura());
        const ErroreVisto Guasto = ErroreDi([&] { Db.Execute(u"DELETE FROM clienti"_s); });
        QCOMPARE(Guasto.Numero, errori::DatabaseSolaLettura);
        QCOMPARE(Nominativo(Archivio), u"Rossi"_s);
    }

    void unNativoRestaSe()
    {
        const QString Nativo = NuovaCartella() + u"n.mdb"_s;
        {
            const Database Db = CreateDatabase(Nativo);
            Db.CreaTabella(u"clienti"_s, {{u"Nominativo"_s, TipoCampo::Testo, 60, {}, false}});
        }
        QCOMPARE(CopiaNativa(Nativo), Nativo);
        QVERIFY(!ApriArchivio(Nativo).DiSolaLettura());
        QVERIFY(Tenute().isEmpty());
        QVERIFY(!EDiAccess(Nativo));
        QVERIFY(!EDiAccess(Nativo + u"x"_s));
        QVERIFY(!EDiAccess(NuovaCartella()));
        const ErroreVisto Guasto = ErroreDi([&] { (void)ApriArchivio(Nativo + u"x"_s); });
        QCOMPARE(Guasto.Numero, errori::DatabaseMancante);
    }

    void copiaDanneggiata_data()
    {
        QTest::addColumn<int>("Come");
        for (int Come = 0; Come < Danni; ++Come)
            QTest::newRow(NomiDanni[size_t(Come)]) << Come;
    }
    /// Nobody has lost anything by it: the archive is whole.
    void copiaDanneggiata()
    {
        QFETCH(int, Come);
        Rovina(CopiaNativa(Archivio), Come);
        for (int i = 0; i < 2; ++i)
            QCOMPARE(Nominativo(Archivio), u"Rossi"_s);
        QCOMPARE(Tenute().size(), 1);
    }

    /// A copy that a loss of power has cut is made again.
    void copiaTagliata()
    {
        const QString Copia = CopiaNativa(Archivio);
        QVERIFY(QFile::resize(Copia, QFile(Copia).size() / 2));
        QCOMPARE(Nominativo(Archivio), u"Rossi"_s);
        QVERIFY(QFile::resize(Copia, 0));
        QCOMPARE(Nominativo(Archivio), u"Rossi"_s);
        // The journal of a note's upgrade that it cut too is none of the new copy's.
        QFile Giornale(Copia + u"-journal"_s);
        QVERIFY(Giornale.open(QIODevice::WriteOnly));
        // No page, of a file that had one when it began.
        Giornale.write(QByteArray::fromHex("d9d505f920a163d7"
                                           "00000000"
                                           "00000001"
                                           "00000001"
                                           "00000200"
                                           "00001000") +
                       QByteArray(512 - 28, '\0'));
        Giornale.close();
        QVERIFY(QFile::resize(Copia, 0));
        QCOMPARE(Nominativo(Archivio), u"Rossi"_s);
        QVERIFY(!Giornale.exists());
    }

    /// A file that was refused is not read again until it changes.
    void ilRifiutoSiRicorda()
    {
        QFile File(Archivio);
        QVERIFY(File.resize(5000));
        QVERIFY(NumeroErrore([&] { (void)CopiaNativa(Archivio); }) != 0);
        const QScopedValueRollback Senza(accesso::Programma, u"/bin/false"_s);
        const ErroreVisto Guasto = ErroreDi([&] { (void)CopiaNativa(Archivio); });
        QCOMPARE(Guasto.Descrizione, u"Il file non è intero: copiarlo di nuovo dall'originale"_s);
    }

    void siSpazza()
    {
        const QString Vecchia = CopiaNativa(Archivio);
        ScriviAccess(Archivio, Con(u"Bianchi"_s));
        Invecchia(Archivio, 5);
        const QString Nuova = CopiaNativa(Archivio);
        Invecchia(Vecchia, 31);
        Invecchia(Nuova, 29);
        QFile Resto(Copie + u".~1.x.mdb.tmp"_s);
        QVERIFY(Resto.open(QIODevice::WriteOnly));
        Resto.close();
        SpazzaCopie();
        QVERIFY(!QFile::exists(Vecchia));
        QVERIFY(QFile::exists(Nuova));
        QVERIFY2(Resto.exists(), "of a conversion that may still run");
        Invecchia(Resto.fileName(), 2);
        SpazzaCopie();
        QVERIFY(!Resto.exists());
        // A copy that is used is young again.
        (void)CopiaNativa(Archivio);
        QVERIFY(QFileInfo(Nuova).lastModified().daysTo(QDateTime::currentDateTime()) < 1);
    }

    void traTroppeLePiuVecchie()
    {
        QStringList Fatte;
        for (int i = 0; i < 4; ++i) {
            ScriviAccess(Archivio, Con(u"Nome %1"_s.arg(i)));
            Invecchia(Archivio, 10 + i);
            Fatte += CopiaNativa(Archivio);
        }
        for (int i = 0; i < 4; ++i)
            Invecchia(Fatte[i], 20 - i);
        const QScopedValueRollback Poco(accesso::MassimoCopie, 2 * QFileInfo(Fatte[0]).size());
        SpazzaCopie();
        QVERIFY(!QFile::exists(Fatte[0]));
        QVERIFY(!QFile::exists(Fatte[1]));
        QVERIFY(QFile::exists(Fatte[2]));
        QVERIFY(QFile::exists(Fatte[3]));
    }

    /// Several threads ask for the same and for other files at once.
    void piuFili()
    {
        QStringList File;
        for (int i = 0; i < 6; ++i)
            File += ScriviAccess(NuovaCartella() + u"n.mdb"_s, Con(u"Nome %1"_s.arg(i)));
        std::vector<QStringList> Avute(4);
        std::vector<std::thread> Fili;
        for (size_t i = 0; i < Avute.size(); ++i)
            Fili.emplace_back([&, i] {
                for (const QString& Uno : File)
                    Avute[i] += CopiaNativa(Uno);
            });
        for (std::thread& Filo : Fili)
            Filo.join();
        for (const QStringList& Una : Avute)
            QCOMPARE(Una, Avute[0]);
        QCOMPARE(Tenute().size(), 6);
        for (int i = 0; i < 6; ++i)
            QCOMPARE(Nominativo(File[i]), u"Nome %1"_s.arg(i));
    }

    /// What the main thread is writing to a copy is neither touched by another thread nor taken for damage.
    void unFiloViScrive()
    {
        const QScopedValueRollback Poco(attese::BlocchiMs, 50);
        const QString Copia = CopiaNativa(Archivio);
        const qint64 Lunga = QFileInfo(Copia).size();
        const Database Db = OpenDatabase(Copia);
        Transazione Tutto(Db);
        // More than the engine keeps in memory.
        for (int i = 0; i < 200; ++i)
            Db.Execute(u"INSERT INTO clienti (Nominativo) VALUES (?)"_s, {u"x"_s.repeated(50'000)});
        QVERIFY2(QFileInfo(Copia).size() > Lunga, "the file has not grown");
        QString Avuta;
        std::thread Filo([&] {
            try {
                const QScopedValueRollback Senza(accesso::Programma, u"/bin/false"_s);
                Avuta = CopiaNativa(Archivio);
            } catch (const Errore& Guasto) {
                Avuta = Guasto.Descrizione;
            }
        });
        Filo.join();
        QCOMPARE(Avuta, Copia);
        Tutto.Conferma();
        QCOMPARE(ApriArchivio(Archivio).OpenRecordset(u"clienti"_s).RecordCount(), 201);
    }

    /// Another program makes the copy: this one waits for it, and makes none of its own.
    void unoSoloLaFa()
    {
        const QString Copia = CopiaNativa(Archivio);
        const QByteArray Fatta = LeggiFile(Copia);
        QVERIFY(QFile::remove(Copia));
        const QScopedValueRollback Senza(accesso::Programma, u"/bin/false"_s);
        auto Altrui = std::make_unique<FileBlocco>(Copia + u".blocco"_s);
        QCOMPARE(Altrui->Prendi(0), FileBlocco::Esito::Preso);
        QString Avuta;
        std::thread Filo([&] {
            try {
                Avuta = CopiaNativa(Archivio);
            } catch (const Errore& Guasto) {
                Avuta = Guasto.Descrizione;
            }
        });
        QTest::qWait(200);
        ScriviFile(Copia, Fatta);
        Altrui.reset();
        Filo.join();
        QCOMPARE(Avuta, Copia);
        QCOMPARE(Tenute(), QStringList{QFileInfo(Copia).fileName()});
    }

    /// Who waits for another program's copy keeps nobody from another file.
    void nessunoAspettaPerUnAltroFile()
    {
        const QString Copia = CopiaNativa(Archivio);
        QVERIFY(QFile::remove(Copia));
        const QString Pronto = ScriviAccess(NuovaCartella() + u"n.mdb"_s, Con(u"Verdi"_s));
        (void)CopiaNativa(Pronto);
        const QString Nuovo = ScriviAccess(NuovaCartella() + u"n.mdb"_s, Con(u"Neri"_s));
        auto Altrui = std::make_unique<FileBlocco>(Copia + u".blocco"_s);
        QCOMPARE(Altrui->Prendi(0), FileBlocco::Esito::Preso);
        std::atomic<bool> Finito = false;
        std::atomic<int> Guasti = 0;
        std::thread Filo([&] {
            try {
                (void)CopiaNativa(Archivio);
            } catch (const Errore&) {
                Guasti = 1;
            }
            Finito = true;
        });
        QTest::qWait(200);
        const QStringList Letti{Nominativo(Pronto), Nominativo(Nuovo)};
        const bool Aspettava = !Finito;
        Altrui.reset();
        Filo.join();
        QVERIFY(Aspettava);
        QCOMPARE(int(Guasti), 0);
        QCOMPARE(Letti, (QStringList{u"Verdi"_s, u"Neri"_s}));
        QCOMPARE(Nominativo(Archivio), u"Rossi"_s);
    }

    /// Not a test of its own: a program that writes to a copy, as when a note gets its missing columns.
    void lAltro()
    {
        if (AltroProgramma::Parte().isEmpty())
            return;
        const QString Insieme = AltroProgramma::Cartella();
        const QString Copia = QString::fromUtf8(LeggiFile(Insieme + u"copia"_s));
        const Database Db = OpenDatabase(Copia);
        Transazione Tutto(Db);
        // More than the engine keeps in memory: the file grows, and its head does not say so yet.
        for (int i = 0; i < 200; ++i)
            Db.Execute(u"INSERT INTO clienti (Nominativo) VALUES (?)"_s, {u"x"_s.repeated(50'000)});
        AltroProgramma::Segnala(Insieme + u"scrive"_s);
        QVERIFY(AltroProgramma::Aspetta(Copia + u".blocco"_s));
        QTest::qWait(200);
        Tutto.Conferma();
    }

    /// A copy that another program is writing to is none that is damaged.
    void unAltroViScrive()
    {
        const QString Copia = CopiaNativa(Archivio);
        const QString Insieme = NuovaCartella();
        ScriviFile(Insieme + u"copia"_s, Copia.toUtf8());
        const qint64 Lunga = QFileInfo(Copia).size();
        AltroProgramma Altro(u"TestCopie"_s, u"scrive"_s, Insieme);
        QVERIFY(AltroProgramma::Aspetta(Insieme + u"scrive"_s));
        QVERIFY2(QFileInfo(Copia).size() > Lunga, "the file has not grown");
        QCOMPARE(CopiaNativa(Archivio), Copia);
        QVERIFY(Altro.Finito());
        QCOMPARE(ApriArchivio(Archivio).OpenRecordset(u"clienti"_s).RecordCount(), 201);
    }
};

PROVA(TestCopie);
#include "TestCopie.moc"
