#include "feenote/finder/finder_prova.h"
#include "feenote/finder/ricerca.h"
#include "platform/base/errore.h"
#include "platform/system/aparte.h"

#include <memory>

using namespace Qt::StringLiterals;

/// The walk for saved notes in a thread of its own.
class TestRicercaNote : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void inUnFiloSuo();
    void ilFiloSiFerma();
    void ilGuastoDelFilo();
    void laCartellaCheNonRisponde();

private:
    CriterioTrova Qui() const { return {Radice, Radice, {}, false}; }

    std::unique_ptr<Studio> Ufficio;
    QString Radice;
};
PROVA(TestRicercaNote);

void TestRicercaNote::init()
{
    Ufficio = std::make_unique<Studio>();
    Radice = Ufficio->File(u"note/"_s);
    QDir().mkpath(Radice);
}

void TestRicercaNote::cleanup()
{
    Ufficio.reset();
}

void TestRicercaNote::inUnFiloSuo()
{
    SalvaMolte(Radice, 30);
    RicercaNote Ricerca(Qui());
    QList<QString> Nomi;
    const auto Prendi = [&] {
        for (const VoceTrova& Voce : Ricerca.Prendi())
            Nomi += Voce.Nome;
    };
    QTRY_VERIFY((Prendi(), Ricerca.Finita()));
    Prendi();
    QCOMPARE(Nomi.size(), 30);
    QCOMPARE(Nomi.at(2), u"2"_s);
    QCOMPARE(Ricerca.Conto().Archivi, 30);
    QVERIFY(!Ricerca.Conto().Interrotta && !Ricerca.Guasto());
}

void TestRicercaNote::ilFiloSiFerma()
{
    SalvaMolte(Radice, 5000);  // more than are read before the stop
    RicercaNote Ricerca(Qui());
    size_t Prime = 0;
    QTRY_VERIFY((Prime += Ricerca.Prendi().size()) > 0);
    Ricerca.Ferma();
    QVERIFY(Ricerca.Finita());
    const auto Resto = Ricerca.Prendi();
    QVERIFY(Ricerca.Conto().Interrotta);
    QCOMPARE(size_t(Ricerca.Conto().Archivi), Prime + Resto.size());
    QTest::qWait(50);
    QVERIFY2(Ricerca.Prendi().empty(), "nothing comes behind the end");
}

void TestRicercaNote::ilGuastoDelFilo()
{
    RicercaNote Ricerca({Radice + u"manca"_s, Radice, {}, false});
    QTRY_VERIFY(Ricerca.Finita());
    QVERIFY(Ricerca.Guasto());
    QCOMPARE(Ricerca.Guasto()->Numero, 76);
}

/// The thread that waits is left alone; it ends by itself when the folder answers.
void TestRicercaNote::laCartellaCheNonRisponde()
{
    SalvaNota(Radice + u"ferma/uno.mdb"_s);
    SalvaNota(Radice + u"viva/due.mdb"_s);
    const CartellaFerma Rete(Radice + u"ferma/"_s);
    {
        RicercaNote Ricerca({Radice + u"ferma"_s, Radice, {}, false});
        QTRY_VERIFY(Rete.Attesa());
        QVERIFY(!Ricerca.Finita());
        Ricerca.Ferma();
        QVERIFY(Ricerca.Finita() && Ricerca.Conto().Interrotta);
        // Another one goes on meanwhile.
        RicercaNote Altra({Radice + u"viva"_s, Radice, {}, false});
        QTRY_VERIFY(Altra.Finita());
        QCOMPARE(Altra.Conto().Archivi, 1);
        for (const VoceTrova& Voce : Ricerca.Prendi())
            QCOMPARE(Voce.Genere, GenereVoce::Torna);
    }
    QVERIFY2(Rete.Attesa(), "its end has waited for nobody");
    QVERIFY2(!AttendiLavoriAParte(0), "the end of the program knows of it");
}

#include "TestRicercaNote.moc"
