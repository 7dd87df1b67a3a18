// How old the data are: both sides of each day on which the grade changes.
#include "banconorme.h"

#include "calculators/modInteressi.h"
#include "calculators/norme/etadati.h"

using namespace Qt::StringLiterals;

namespace {

QString Detto(const EtaDati& Eta)
{
    constexpr std::array Gradi{u"fresco", u"vecchio", u"stantio"};
    return QString::fromUtf16(Gradi[size_t(Eta.Grado)]) + u": "_s + Eta.Frase + u' ' + Eta.Attesa;
}

const CoperturaTassi Copertura{{2026, 12, 31}, {2026, 12, 31}, {2026, 8, 31}};

}  // namespace

class TestEtaDati : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void consegnati();
    void senzaRighe();
    void legali_data();
    void legali();
    void mora_data();
    void mora();
    void indici_data();
    void indici();
    void norme_data();
    void norme();
    void oltre();
    void moraProposta_data();
    void moraProposta();
};
PROVA(TestEtaDati);

void TestEtaDati::consegnati()
{
    const CoperturaTassi Letta = LeggiCopertura(ProgrammaDiProva() + u"Tassi.dat"_s);
    QCOMPARE(Letta.Legali, QDate(2026, 12, 31));
    QCOMPARE(Letta.Mora, QDate(2026, 12, 31));
    QCOMPARE(Letta.Indici, QDate(2026, 8, 31));
}

void TestEtaDati::senzaRighe()
{
    const QString File = NuovaCartella() + u"Tassi.dat"_s;
    QVERIFY(QFile::copy(ProgrammaDiProva() + u"Tassi.dat"_s, File));
    QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner);
    {
        const Database Db = OpenDatabase(File);
        Db.Execute(u"DELETE FROM InteressiLegali"_s);
        Db.Execute(u"DELETE FROM IndiciIstat"_s);
        Db.Execute(u"UPDATE InteressiMora SET Al=NULL"_s);
    }
    const CoperturaTassi Letta = LeggiCopertura(File);
    const QDate Oggi(2026, 11, 22);
    QCOMPARE(Detto(EtaLegali(Letta, Oggi)), u"stantio: Tassi legali mancanti. "_s);
    QCOMPARE(Detto(EtaIndici(Letta, Oggi)), u"stantio: Indici FOI mancanti. "_s);
    QCOMPARE(Detto(EtaMora(Letta, Oggi)), u"fresco: Tassi di mora fino al 31/12/9999. "_s);
    {
        const Database Db = OpenDatabase(File);
        for (const int Anno : {-4000000, 0, 1899, 10000}) {
            Db.Execute(u"DELETE FROM IndiciIstat"_s);
            Db.Execute(u"INSERT INTO IndiciIstat (Anno, Mese) VALUES (?, 1)"_s, {Anno});
            QCOMPARE(LeggiCopertura(File).Indici, QDate());
        }
    }
    QCOMPARE(NotaOltre(EtaLegali(Letta, Oggi), Oggi),
             u"Il risultato va oltre i dati: tassi legali mancanti."_s);
}

void TestEtaDati::legali_data()
{
    QTest::addColumn<QDate>("Oggi");
    QTest::addColumn<QString>("Attesa");
    const QString Tassi = u"Tassi legali fino al 31/12/2026. Saggio 2027 "_s;
    QTest::newRow("oggi") << QDate(2026, 11, 22)
                          << u"fresco: "_s + Tassi +
                                 u"non ancora pubblicato: è atteso entro il 15/12/2026."_s;
    QTest::newRow("15 dicembre") << QDate(2026, 12, 15)
                                 << u"fresco: "_s + Tassi +
                                        u"non ancora pubblicato: è atteso entro il 15/12/2026."_s;
    QTest::newRow("16 dicembre") << QDate(2026, 12, 16)
                                 << u"vecchio: "_s + Tassi +
                                        u"non nell'archivio: era atteso entro il 15/12/2026."_s;
    QTest::newRow("31 gennaio") << QDate(2027, 1, 31)
                                << u"vecchio: "_s + Tassi +
                                       u"non nell'archivio: era atteso entro il 15/12/2026."_s;
    QTest::newRow("1 febbraio") << QDate(2027, 2, 1)
                                << u"stantio: "_s + Tassi +
                                       u"non nell'archivio: era atteso entro il 15/12/2026."_s;
}

void TestEtaDati::legali()
{
    QFETCH(QDate, Oggi);
    QTEST(Detto(EtaLegali(Copertura, Oggi)), "Attesa");
}

void TestEtaDati::mora_data()
{
    QTest::addColumn<QDate>("Oggi");
    QTest::addColumn<QString>("Attesa");
    const QString Tassi = u"Tassi di mora fino al 31/12/2026. Saggio del primo semestre 2027 "_s;
    QTest::newRow("ultimo giorno") << QDate(2026, 12, 31)
                                   << u"fresco: "_s + Tassi + u"non ancora pubblicato."_s;
    QTest::newRow("il giorno dopo") << QDate(2027, 1, 1) << u"vecchio: "_s + Tassi + u"non nell'archivio."_s;
    QTest::newRow("31 gennaio") << QDate(2027, 1, 31) << u"vecchio: "_s + Tassi + u"non nell'archivio."_s;
    QTest::newRow("1 febbraio") << QDate(2027, 2, 1) << u"stantio: "_s + Tassi + u"non nell'archivio."_s;
}

void TestEtaDati::mora()
{
    QFETCH(QDate, Oggi);
    QTEST(Detto(EtaMora(Copertura, Oggi)), "Attesa");
}

void TestEtaDati::indici_data()
{
    QTest::addColumn<QDate>("Oggi");
    QTest::addColumn<QString>("Attesa");
    const QString Indici = u"Indici FOI fino ad agosto 2026. "_s;
    QTest::newRow("prima che esca") << QDate(2026, 10, 19)
                                    << u"fresco: "_s + Indici +
                                           u"Indice di settembre 2026 non ancora pubblicato."_s;
    QTest::newRow("il giorno in cui esce")
        << QDate(2026, 10, 20) << u"vecchio: "_s + Indici + u"Indice di settembre 2026 non nell'archivio."_s;
    QTest::newRow("due mancano") << QDate(2026, 11, 22)
                                 << u"vecchio: "_s + Indici +
                                        u"Indici da settembre 2026 a ottobre 2026 non nell'archivio."_s;
    QTest::newRow("vigilia del terzo")
        << QDate(2026, 12, 19)
        << u"vecchio: "_s + Indici + u"Indici da settembre 2026 a ottobre 2026 non nell'archivio."_s;
    QTest::newRow("tre mancano") << QDate(2026, 12, 20)
                                 << u"stantio: "_s + Indici +
                                        u"Indici da settembre 2026 a novembre 2026 non nell'archivio."_s;
}

void TestEtaDati::indici()
{
    QFETCH(QDate, Oggi);
    QTEST(Detto(EtaIndici(Copertura, Oggi)), "Attesa");
}

void TestEtaDati::norme_data()
{
    QTest::addColumn<int>("Giorni");
    QTest::addColumn<QString>("Attesa");
    const QString Norme = u"Norme note fino al 21/11/2026. "_s;
    QTest::newRow("lette oggi") << 0 << u"fresco: "_s + Norme;
    QTest::newRow("120 giorni") << 120 << u"fresco: "_s + Norme;
    QTest::newRow("121 giorni") << 121
                                << u"vecchio: "_s + Norme + u"Leggi più recenti possono averle cambiate."_s;
    QTest::newRow("400 giorni") << 400
                                << u"vecchio: "_s + Norme + u"Leggi più recenti possono averle cambiate."_s;
    QTest::newRow("401 giorni") << 401
                                << u"stantio: "_s + Norme + u"Leggi più recenti possono averle cambiate."_s;
}

void TestEtaDati::norme()
{
    QFETCH(int, Giorni);
    QTEST(Detto(EtaNorme(NormeConsegnate(), QDate(2026, 11, 21).addDays(Giorni))), "Attesa");
}

void TestEtaDati::oltre()
{
    const EtaDati Eta = EtaLegali(Copertura, {2026, 11, 22});
    QCOMPARE(NotaOltre(Eta, {2026, 12, 31}), QString());
    QCOMPARE(NotaOltre(Eta, {2027, 1, 1}),
             u"Il risultato va oltre i dati: tassi legali fino al 31/12/2026."_s);
    QCOMPARE(NotaOltre(EtaIndici(Copertura, {2026, 11, 22}), {2026, 9, 1}),
             u"Il risultato va oltre i dati: indici FOI fino ad agosto 2026."_s);
}

void TestEtaDati::moraProposta_data()
{
    QTest::addColumn<bool>("Vigenti");
    QTest::addColumn<QDate>("DataIni");
    QTest::addColumn<bool>("Dopo2012");
    QTest::addColumn<bool>("InGiudizio");
    QTest::newRow("del programma") << false << QDate(2026, 1, 1) << false << false;
    QTest::newRow("fino al 2012") << true << QDate(2012, 12, 31) << false << false;
    QTest::newRow("dal 2013") << true << QDate(2013, 1, 1) << true << false;
    QTest::newRow("vigilia") << true << QDate(2014, 12, 10) << true << false;
    QTest::newRow("in giudizio") << true << QDate(2014, 12, 11) << true << true;
    QTest::newRow("senza data") << true << QDate() << false << false;
}

void TestEtaDati::moraProposta()
{
    QFETCH(bool, Vigenti);
    QFETCH(QDate, DataIni);
    const PropostaMora Avuta =
        ProponiMora(Vigenti ? InsiemeNorme::Vigenti : InsiemeNorme::Programma, DataIni);
    QTEST(Avuta.Dopo2012, "Dopo2012");
    QTEST(Avuta.Nota.contains(u"1284"), "InGiudizio");
    QCOMPARE(Avuta.Nota.isEmpty(), !Avuta.Dopo2012);
    // A proposal that the form's own check would refuse is none.
    if (Avuta.Dopo2012)
        QVERIFY(!CheckInteressi({InteressiMora,
                                 u"1"_s,
                                 ValutaEuro,
                                 {},
                                 DataIni.toString(u"dd/MM/yyyy"_s),
                                 u"31/12/2026"_s,
                                 true}));
}

#include "TestEtaDati.moc"
