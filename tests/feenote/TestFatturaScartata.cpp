// An invoice that stands for one which the exchange system has discarded.
#include "fatturauscita.h"

#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;
using enum StatoNota;

class TestFatturaScartata : public QObject, private BancoFatturaUscita
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Comincia(); }
    void cleanup() { Finisci(); }
    void forseScartata();
    void alPostoDellaScartata();
    void alPostoDopoLaCarta_data();
    void alPostoDopoLaCarta();
    void alPostoDiUnaPagata();
};
PROVA(TestFatturaScartata);

/// Number or total of the former one, of the same kind, whose file is written: it may stand for it.
void TestFatturaScartata::forseScartata()
{
    const auto Forse = [this](const QString& Numero, const QString& Data) {
        Nota.txtDatiPar[DatoNumFatt] = Numero;
        Nota.txtDatiPar[DatoDataFatt] = Data;
        const auto Primo = ForseScartato(Nota);
        return Primo ? Primo->Numero + u' ' + Primo->Data : QString();
    };
    const QString Dodici = u"12 09/11/2026"_s;
    const QString Ieri = u"21/11/2026"_s;
    QCOMPARE(Forse(u"12"_s, u"09/11/2026"_s), QString());
    Stampa(Nota);
    QCOMPARE(Forse(u"12"_s, Ieri), QString());  // on paper alone it is put right
    (void)Forse(u"12"_s, u"09/11/2026"_s);
    ScriviFile(Nota);
    QCOMPARE(Forse(u"12"_s, u"09/11/2026"_s), QString());
    QCOMPARE(Forse(u"12"_s, Ieri), Dodici);
    QCOMPARE(Forse(u"13"_s, Ieri), Dodici);
    // What was paid since is paid of either.
    Paga(Nota, 400);
    QCOMPARE(Forse(u"13"_s, Ieri), Dodici);
    Nota.xOnorari(0, OnoImporto) = 1200.0;
    QCOMPARE(Forse(u"13"_s, Ieri), QString());
    QCOMPARE(Forse(u"12"_s, Ieri), Dodici);
    Nota.FatturaXml.Tipo = u"TD04"_s;
    QCOMPARE(Forse(u"12"_s, Ieri), QString());
    Nota.FatturaXml.Tipo.clear();
    // Printed before it is written.
    Stampa(Nota);
    QCOMPARE(Numeri(Nota), u"12 | 12"_s);
    QCOMPARE(Forse(u"12"_s, Ieri), Dodici);
    PrendiIlPosto(Nota);
    QCOMPARE(Numeri(Nota), u" | 12"_s);
    QCOMPARE(Nota.Stato.Data, Ieri);
}

/// It is one invoice of the whole sum, since the day on which it has gone out, and what was paid is paid of
/// it.
void TestFatturaScartata::alPostoDellaScartata()
{
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 9), QTime(10, 0)); });
    ScriviFile(Nota);
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
    Paga(Nota, 400);
    Numera(Nota, u"13"_s);
    QVERIFY(ForseScartato(Nota));
    QCOMPARE(Totale(Nota), Meno400);
    PrendiIlPosto(Nota);
    QCOMPARE(Totale(Nota), Intero);
    ScriviFile(Nota);
    QCOMPARE(Numeri(Nota), u" | 13"_s);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Intero);
    QCOMPARE(RestiDellaNota(Nota), QList<double>{Meno400});
    QCOMPARE(Nota.Stato.Dal(), u"22/11/2026"_s);
    QVERIFY(FatturaGiaScritta(Nota));
}

void TestFatturaScartata::alPostoDopoLaCarta_data()
{
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<QString>("Data");
    QTest::newRow("another day") << u"12"_s << u"21/11/2026"_s;
    QTest::newRow("another number") << u"13"_s << u"9/11/2026"_s;
}

/// The sheet is shown to the client before the file is written: it is one invoice of the whole sum none the
/// less.
void TestFatturaScartata::alPostoDopoLaCarta()
{
    QFETCH(QString, Numero);
    QFETCH(QString, Data);
    ScriviFile(Nota);
    Paga(Nota, 400);
    Nota.txtDatiPar[DatoNumFatt] = Numero;
    Nota.txtDatiPar[DatoDataFatt] = Data;
    Stampa(Nota);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Meno400);
    QVERIFY(ForseScartato(Nota));
    PrendiIlPosto(Nota);
    QCOMPARE(Totale(Nota), Intero);
    ScriviFile(Nota);
    QCOMPARE(Numeri(Nota), u" | "_s + Numero);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Intero);
    QCOMPARE(RestiDellaNota(Nota), QList<double>{Meno400});
}

/// The one in the place of a paid one has its own figures, and is paid as far as the payments go.
void TestFatturaScartata::alPostoDiUnaPagata()
{
    ScriviFile(Nota);
    Paga(Nota, 1150);
    (void)SegueStato(Nota, Vista);
    QCOMPARE(Nota.Stato.Stato, Pagata);
    Parcella Uguale = Nota;
    Nota.xOnorari(0, OnoImporto) = 1100.0;
    Nota.txtDatiPar[DatoDataFatt] = u"21/11/2026"_s;
    QVERIFY(ForseScartato(Nota));
    PrendiIlPosto(Nota);
    ScriviFile(Nota);
    QCOMPARE(Numeri(Nota), u" | 12"_s);
    QCOMPARE(Nota.Stato.Stato, Fatturata);
    QCOMPARE(RestiDellaNota(Nota), QList<double>{145.91});
    Numera(Uguale, u"13"_s);
    QVERIFY(ForseScartato(Uguale));
    PrendiIlPosto(Uguale);
    ScriviFile(Uguale);
    QCOMPARE(Numeri(Uguale), u" | 13"_s);
    QCOMPARE(Uguale.Stato.Stato, Pagata);
    QCOMPARE(Uguale.Stato.Prima, std::optional(Fatturata));
}

#include "TestFatturaScartata.moc"
