// Work on a thread of its own, and the end of the process before it.
#include "platform/system/attese.h"
#include "supporto/prova.h"

#include "platform/system/aparte.h"
#include "platform/system/file.h"
#include "supporto/cartellaferma.h"

#include <QFile>
#include <QScopedValueRollback>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>
#include <utility>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class TestAParte : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void siAspetta();
    void anchePerCioCheTiene();
    void siFinisceSenzaSmontare_data();
    void siFinisceSenzaSmontare();
    void unFileEntroIlTempo();
};
PROVA(TestAParte);

void TestAParte::siAspetta()
{
    bool Fatto = false;
    FaiAParte([&Fatto] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        Fatto = true;
    });
    AttendiOFinisci(10000, 1);
    QVERIFY(Fatto);
}

/// What the work holds may reach for what is taken down at the end.
void TestAParte::anchePerCioCheTiene()
{
    static std::atomic<bool> Lasciato;
    Lasciato = false;
    auto Lento = std::shared_ptr<void>(nullptr, [](void*) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        Lasciato = true;
    });
    FaiAParte([Suo = std::move(Lento)] {});
    QVERIFY(AttendiLavoriAParte(10000));
    QVERIFY(Lasciato);
}

void TestAParte::siFinisceSenzaSmontare_data()
{
    QTest::addColumn<int>("DuraMs");
    QTest::addColumn<int>("Esito");
    constexpr int Torna = 3;
    constexpr int Finisce = 7;
    QTest::newRow("work that ends") << 1 << Torna;
    QTest::newRow("work that goes on") << 60000 << Finisce;
}

/// A process of its own: its exit status says who has ended it, and its stream has lost nothing.
void TestAParte::siFinisceSenzaSmontare()
{
    QFETCH(int, DuraMs);
    QFETCH(int, Esito);
    const QString File = NuovaCartella() + u"detto.txt"_s;
    const QByteArray Nome = QFile::encodeName(File);
    const pid_t Figlio = ::fork();
    if (Figlio == 0) {
        // Whatever is taken down at a plain end would show.
        constexpr int Smontato = 9;
        (void)std::atexit([] { std::_Exit(Smontato); });
        FILE* Detto = std::fopen(Nome.constData(), "w");
        (void)std::fputs("fine", Detto);
        FaiAParte([DuraMs] { std::this_thread::sleep_for(std::chrono::milliseconds(DuraMs)); });
        AttendiOFinisci(DuraMs > 1 ? 50 : 10000, 7);
        (void)std::fflush(Detto);
        std::_Exit(3);
    }
    QVERIFY(Figlio > 0);
    int Stato = 0;
    QCOMPARE(::waitpid(Figlio, &Stato, 0), Figlio);
    QVERIFY(WIFEXITED(Stato));
    QCOMPARE(WEXITSTATUS(Stato), Esito);
    QCOMPARE(LeggiFile(File), "fine");
}

void TestAParte::unFileEntroIlTempo()
{
    const QString Cartella = NuovaCartella();
    const QString File = Cartella + u"nota.mdb"_s;
    QCOMPARE(EsisteFileEntro(File), std::optional(false));
    ScriviFile(File, "x");
    QCOMPARE(EsisteFileEntro(File), std::optional(true));
    QCOMPARE(EsisteFileEntro(Cartella), std::optional(false));
    const QScopedValueRollback Attesa(attese::CartellaMs, 20);
    const CartellaFerma Muta(Cartella);
    QCOMPARE(EsisteFileEntro(File), std::optional<bool>());
    QVERIFY2(EsisteCartellaEntro(Cartella), "a folder that says nothing counts as there");
}

#include "TestAParte.moc"
