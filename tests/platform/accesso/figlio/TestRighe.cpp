// The bytes of rows, texts and maps: every length may lie.
#include "platform/accesso/figlio/limiti.h"
#include "platform/accesso/figlio/righe.h"
#include "supporto/prova.h"

#include <QDate>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <limits>
#include <random>

using namespace Qt::StringLiterals;

namespace {

const std::vector<ColonnaAccess> Colonne{
    {.Tipo = 4, .Dimensione = 4, .Numero = 0, .Fissa = true},
    {.Tipo = 10, .Dimensione = 100, .Numero = 1},
    {.Tipo = 1, .Numero = 2, .Fissa = true, .PostoFisso = 4},
    {.Tipo = 10, .Dimensione = 100, .Numero = 3, .PostoVariabile = 1},
};

/// Four columns: 7, "ab", true, Null.
QByteArray Riga4()
{
    return QByteArray::fromHex("0400"
                               "07000000"
                               "6162"
                               "080008000600"
                               "0200"
                               "07");
}

}  // namespace

class TestRighe : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void unaRiga()
    {
        const QByteArray Riga = Riga4();
        const auto Celle = SpezzaRiga(Riga, Formato::Jet4, Colonne, true);
        QVERIFY(Celle.has_value());
        QCOMPARE(ValoreAccess(Celle->at(0), Colonne[0], Formato::Jet4, 1252).value(), QVariant(7));
        QCOMPARE(Celle->at(1)->toByteArray(), "ab");
        QCOMPARE(ValoreAccess(Celle->at(2), Colonne[2], Formato::Jet4, 1252).value(), QVariant(true));
        QVERIFY(!Celle->at(3));
    }

    /// Any change of any byte gives cells within the row, or no row.
    void ogniByte()
    {
        const QByteArray Sana = Riga4();
        for (qsizetype Dove = 0; Dove < Sana.size(); ++Dove)
            for (int Valore = 0; Valore < 256; ++Valore) {
                QByteArray Riga = Sana;
                Riga[Dove] = char(Valore);
                for (const Formato Come : {Formato::Jet3, Formato::Jet4}) {
                    const auto Celle = SpezzaRiga(Riga, Come, Colonne, true);
                    if (!Celle)
                        continue;
                    QCOMPARE(Celle->size(), Colonne.size());
                    for (const CellaAccess& Cella : *Celle)
                        if (Cella && !Cella->isEmpty())
                            QVERIFY(Cella->data() >= Riga.constData() &&
                                    Cella->data() + Cella->size() <= Riga.constData() + Riga.size());
                }
            }
        for (qsizetype Lunga = 0; Lunga < Sana.size(); ++Lunga)
            (void)SpezzaRiga(Sana.first(Lunga), Formato::Jet4, Colonne, true);
    }

    void testi_data()
    {
        QTest::addColumn<QByteArray>("Byte");
        QTest::addColumn<QString>("Testo");
        QTest::newRow("wide") << QByteArray::fromHex("4100ac20") << u"A€"_s;
        QTest::newRow("odd byte behind") << QByteArray::fromHex("4100ac") << u"A"_s;
        QTest::newRow("narrow") << QByteArray::fromHex("fffe41e842") << u"AèB"_s;
        QTest::newRow("both") << QByteArray::fromHex("fffe4100ac200042") << u"A€B"_s;
        QTest::newRow("cut in a wide one") << QByteArray::fromHex("fffe4100ac") << u"A"_s;
        QTest::newRow("zero") << QByteArray::fromHex("410000004200") << u"AB"_s;
        QTest::newRow("pair") << QByteArray::fromHex("3dd801de") << u"😁"_s;
        QTest::newRow("half a pair") << QByteArray::fromHex("3dd84100") << u"?A"_s;
        QTest::newRow("none") << QByteArray() << QString();
    }
    void testi()
    {
        QFETCH(QByteArray, Byte);
        QFETCH(QString, Testo);
        QCOMPARE(TestoAccess(Byte, Formato::Jet4, 1252), Testo);
    }

    void giorni_data()
    {
        QTest::addColumn<double>("Numero");
        QTest::addColumn<QVariant>("Giorno");
        QTest::newRow("zero") << 0.0 << QVariant(QDate(1899, 12, 30));
        QTest::newRow("today") << 46348.0 << QVariant(QDate(2026, 11, 22));
        QTest::newRow("before, half a day")
            << -1.5 << QVariant(QDateTime(QDate(1899, 12, 29), QTime(12, 0), Qt::UTC));
        QTest::newRow("a breath before midnight") << 1.9999999999 << QVariant(QDate(1900, 1, 1));
        QTest::newRow("the first") << -657434.0 << QVariant(QDate(100, 1, 1));
        QTest::newRow("too early") << -657435.0 << QVariant();
        QTest::newRow("too late") << 2958466.0 << QVariant();
        QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << QVariant();
    }
    void giorni()
    {
        QFETCH(double, Numero);
        QFETCH(QVariant, Giorno);
        const QByteArray Byte(reinterpret_cast<const char*>(&Numero), sizeof Numero);
        const auto Letto = ValoreAccess(QByteArrayView(Byte), {.Tipo = 8}, Formato::Jet4, 1252);
        QCOMPARE(Letto.has_value(), Giorno.isValid());
        if (Letto)
            QCOMPARE(*Letto, Giorno);
    }

    void mappe()
    {
        const auto Senza = [](quint32) { return QByteArray(); };
        const QByteArray Dentro = QByteArray::fromHex("0003000000"
                                                      "05");
        QCOMPARE(PagineDiMappa(Dentro, 4096, 100, Senza).value(), (std::vector<quint32>{3, 5}));
        // Of what lies behind the end one page is named: it will be missed.
        QCOMPARE(PagineDiMappa(Dentro, 4096, 4, Senza).value(), (std::vector<quint32>{3, 4}));
        QCOMPARE(PagineDiMappa(QByteArray::fromHex("00ffffffff") + QByteArray(100, '\xff'), 4096, 4, Senza)
                     .value(),
                 (std::vector<quint32>{4}));
        QVERIFY(!PagineDiMappa(QByteArray::fromHex("07"), 4096, 100, Senza));
        QVERIFY(!PagineDiMappa(QByteArray(), 4096, 100, Senza));
        QVERIFY(!PagineDiMappa(QByteArray::fromHex("0109000000"), 4096, 100, Senza));
        const auto Pagina = [](quint32) { return QByteArray(4, '\0') + '\2' + QByteArray(4091, '\0'); };
        QCOMPARE(PagineDiMappa(QByteArray::fromHex("010000000009000000"), 4096, 100000, Pagina).value(),
                 (std::vector<quint32>{4092 * 8 + 1}));
    }

    /// Definitions of chance give indices with columns, or none.
    void definizioniACaso()
    {
        std::mt19937 Caso(7);
        for (int i = 0; i < 2000; ++i) {
            QByteArray Byte(qsizetype(Caso() % 600), '\0');
            for (char& Uno : Byte)
                Uno = Caso() % 3 == 0 ? char(Caso()) : '\0';
            for (const Formato Come : {Formato::Jet3, Formato::Jet4}) {
                for (const IndiceAccess& Indice : IndiciAccess(Byte, Come, 1252))
                    QVERIFY(!Indice.Colonne.isEmpty());
                QVERIFY(ContatoreAccess(Byte, Come) >= 0);
            }
        }
    }

    /// Behind closed doors a process has its open files, and nothing else.
    void porteChiuse()
    {
#if !defined(__SANITIZE_ADDRESS__) && (defined(__x86_64__) || defined(__aarch64__))
        const QByteArray Nome = (NuovaCartella() + u"aperto"_s).toLocal8Bit();
        const int Aperto = ::open(Nome.constData(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
        QVERIFY(Aperto >= 0);
        const pid_t Figlio = ::fork();
        if (Figlio == 0) {
            LimitaRisorse(5, 1000);
            ChiudiPorte();
            int Trovato = 0;
            if (::open("/etc/passwd", O_RDONLY | O_CLOEXEC) >= 0)
                Trovato |= 1;
            if (::socket(AF_INET, SOCK_STREAM, 0) >= 0 || ::socket(AF_UNIX, SOCK_STREAM, 0) >= 0)
                Trovato |= 2;
            if (::unlink(Nome.constData()) == 0)
                Trovato |= 4;
            if (::fork() >= 0)
                Trovato |= 8;
            char Byte[600] = {};
            if (::write(Aperto, Byte, sizeof Byte) != ssize_t(sizeof Byte))
                Trovato |= 16;
            if (::write(Aperto, Byte, sizeof Byte) == ssize_t(sizeof Byte))
                Trovato |= 32;  // beyond what it may write
            ::_exit(Trovato);
        }
        int Stato = 0;
        QCOMPARE(::waitpid(Figlio, &Stato, 0), Figlio);
        (void)::close(Aperto);
        QVERIFY(WIFEXITED(Stato));
        QCOMPARE(WEXITSTATUS(Stato), 0);
#else
        QSKIP("no filter on this machine, or under the sanitizers");
#endif
    }

    /// Time and memory end the process that takes too much of them.
    void troppo_data()
    {
        QTest::addColumn<bool>("Memoria");
        QTest::newRow("processor") << false;
        QTest::newRow("memory") << true;
    }
    void troppo()
    {
        QFETCH(bool, Memoria);
#if defined(__SANITIZE_ADDRESS__)
        if (Memoria)
            QSKIP("the sanitizers need their own");
#endif
        const pid_t Figlio = ::fork();
        if (Figlio == 0) {
            LimitaRisorse(1, 1000);
            if (Memoria)
                ::_exit(std::malloc(size_t(600) << 20) ? 1 : 0);
            for (volatile bool Ancora = true; Ancora;)
                continue;
        }
        int Stato = 0;
        QCOMPARE(::waitpid(Figlio, &Stato, 0), Figlio);
        if (Memoria)
            QVERIFY(WIFEXITED(Stato) && WEXITSTATUS(Stato) == 0);
        else
            QVERIFY(WIFSIGNALED(Stato));
    }
};

PROVA(TestRighe);
#include "TestRighe.moc"
