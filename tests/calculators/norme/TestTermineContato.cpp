// Due dates as windows, sheets and the calendar call them.
#include "banconorme.h"

#include "calculators/norme/terminecontato.h"

using namespace Qt::StringLiterals;

class TestTermineContato : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void misure_data();
    void misure();
    void quelCheSiEChiesto();
    void anelliDiDueInsiemi();
    void identita();
};
PROVA(TestTermineContato);

void TestTermineContato::misure_data()
{
    QTest::addColumn<int>("Numero");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("Libero");
    QTest::addColumn<bool>("Antecedente");
    QTest::addColumn<QString>("Attesa");
    QTest::newRow("uno") << 1 << TipoGiorni << false << false << u"1 giorno"_s;
    QTest::newRow("uno libero") << 1 << TipoGiorni << true << false << u"1 giorno libero"_s;
    QTest::newRow("un mese libero") << 1 << TipoMesi << true << false << u"1 mese libero"_s;
    QTest::newRow("liberi prima") << 20 << TipoGiorni << true << true << u"20 giorni liberi prima"_s;
    QTest::newRow("anni") << 2 << TipoAnni << false << false << u"2 anni"_s;
}

void TestTermineContato::misure()
{
    QFETCH(int, Numero);
    QFETCH(int, Tipo);
    QFETCH(bool, Libero);
    QFETCH(bool, Antecedente);
    RichiestaTermine Chiesto;
    Chiesto.Numero = Numero;
    Chiesto.Tipo = Tipo;
    Chiesto.Opzioni.Libero = Libero;
    Chiesto.Opzioni.Antecedente = Antecedente;
    QTEST(MisuraRichiesta(Chiesto), "Attesa");
}

// What was asked stands over what the catalogue proposes; what only the catalogue knows stays.
void TestTermineContato::quelCheSiEChiesto()
{
    TermineContato Proposto;
    Proposto.Atto = u"Appello"_s;
    Proposto.Codice = u"CPC-325"_s;
    Proposto.Misura = u"30 giorni"_s;
    RichiestaTermine Chiesto;
    Chiesto.Numero = 20;
    Chiesto.Tipo = TipoGiorni;
    Chiesto.Decorrenza = QDate(2026, 11, 22);
    Chiesto.Opzioni.Antecedente = true;
    EsitoTermine Esito;
    Esito.Scadenza = QDate(2026, 11, 2);
    const TermineContato Contato = ContatoDi(Chiesto, Esito, Proposto);
    QCOMPARE(Contato.Atto, Proposto.Atto);
    QCOMPARE(Contato.Codice, Proposto.Codice);
    QCOMPARE(Contato.Misura, u"20 giorni prima"_s);
    QCOMPARE(Contato.Decorrenza, Chiesto.Decorrenza);
    QVERIFY(Contato.Antecedente);
    QCOMPARE(Contato.Esito.Scadenza, Esito.Scadenza);
    QCOMPARE(ContatoDi(Chiesto, Esito).Atto, QString());
}

// A link says what was counted and from what, by either set.
void TestTermineContato::anelliDiDueInsiemi()
{
    const CatenaTermini& Catena = *TrovaCatena(NormeConsegnate(), u"CPP-585-45-ASSENTE");
    for (const InsiemeNorme Insieme : {InsiemeNorme::Programma, InsiemeNorme::Vigenti}) {
        const QList<TermineContato> Date = ContaCatena(Insieme, NormeConsegnate(), Catena, {2025, 10, 20});
        QCOMPARE(Date.size(), 2);
        QCOMPARE(Date[1].Misura, u"60 giorni"_s);
        QCOMPARE(Date[1].Evento, Catena.Evento);
        QCOMPARE(Date[1].Decorrenza, QDate(2025, 10, 20));
    }
}

// A link that runs from another date keeps its identity when that date is another one.
void TestTermineContato::identita()
{
    const CatenaTermini& Catena = *TrovaCatena(NormeConsegnate(), u"CPC-183");
    const QDate Udienza(2022, 7, 10);
    const auto Chiavi = [&](InsiemeNorme Insieme, QList<QDate>& Date) {
        QStringList Tutte;
        for (const TermineContato& Uno : ContaCatena(Insieme, NormeConsegnate(), Catena, Udienza)) {
            Tutte << AgendaDi(Uno, Insieme).Chiave;
            Date << Uno.Esito.Scadenza;
        }
        return Tutte;
    };
    QList<QDate> DelProgramma;
    QList<QDate> DiLegge;
    const QStringList Prime = Chiavi(InsiemeNorme::Programma, DelProgramma);
    QCOMPARE(Chiavi(InsiemeNorme::Vigenti, DiLegge), Prime);
    for (qsizetype i = 0; i < Prime.size(); ++i)
        QVERIFY(DelProgramma[i] != DiLegge[i]);
    QCOMPARE(Prime.first(), u"CPC-183-1-V 2022-07-10"_s);
    QVERIFY(Prime.last() != Prime.first());
}

#include "TestTermineContato.moc"
