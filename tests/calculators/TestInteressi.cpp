// Interest: worked examples, lines, messages, and the arithmetic once more over integers.
#include "archivio_prova.h"
#include "casi.h"
#include "supporto/alcaso.h"
#include "supporto/guasti.h"
#include "supporto/registratore.h"

#include "calculators/modInteressi.h"
#include "platform/base/regionale.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

const auto NonAggiornati = u"Attenzione: i tassi di interessi non sono aggiornati.\n"
                           "Si vuole procedere all'aggiornamento degli indici?"_s;
const auto UltimoIndice = u"Il calcolo verrà effettuato con l'ultimo indice disponibile."_s;

DatiInteressi Legali(const QString& Capitale, const QString& Dal, const QString& Al)
{
    return {InteressiLegali, Capitale, ValutaEuro, {}, Dal, Al, false};
}

EsitoInteressi Calcola(const DatiInteressi& Dati, const QString& Archivio = ArchivioConsegnato())
{
    QString UltimoAumento = Dati.Aumento;
    return CalcolaInteressi(Archivio, Dati, UltimoAumento);
}

/// "01/01/2012 31/12/2012 2,5 366 25,07" of each line.
QStringList Righe(const EsitoInteressi& Esito)
{
    QStringList Tutte;
    for (int i = 0; i < Esito.Righe.Righe(); ++i) {
        QStringList Celle;
        for (int Colonna = 0; Colonna < ColonneInteressi; ++Colonna)
            Celle << CStr(Esito.Righe(i, Colonna));
        Tutte << Celle.join(u' ');
    }
    return Tutte;
}

/// The interest of one period in cents, over whole numbers: the rate is the exact binary fraction that the
/// single holds.
qint64 InteressiCentesimi(qint64 Centesimi, float Tasso, int Giorni)
{
    int Esponente = 0;
    const auto Mantissa = qint64(std::ldexp(double(std::frexp(Tasso, &Esponente)), 24));
    const qint64 Numeratore = Centesimi * Mantissa * Giorni;
    const qint64 Denominatore = qint64(36500) << (24 - Esponente);
    const qint64 Intero = Numeratore / Denominatore;
    const qint64 Doppio = 2 * (Numeratore % Denominatore);
    const bool InSu = Doppio > Denominatore || (Doppio == Denominatore && Intero % 2 != 0);
    return Intero + InSu;
}

}  // namespace

class TestInteressi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void esempi_data();
    void esempi();
    void righeDiDuePeriodi();
    void puntoInPiu();
    void tassoSingolo();
    void lireConvertitePrima();
    void fineSenzaRiga();
    void controlli_data();
    void controlli();
    void avvisoDellAumentoUnaVolta();
    void oltreLUltimaRigaNo();
    void oltreLUltimaRigaSi();
    void inizioDopoLUltimaRiga();
    void inizioPrimaDellaPrimaRiga_data();
    void inizioPrimaDellaPrimaRiga();
    void dopoUnErroreIGiorniRicominciano();
    void periodiACaso();
    void periodiPerDifferenza();
};
PROVA(TestInteressi);

void TestInteressi::esempi_data()
{
    QTest::addColumn<QStringList>("Riga");
    const auto Tutte = Casi(u"interessi.csv"_s);
    QVERIFY(Tutte.size() >= 15);
    for (size_t i = 0; i < Tutte.size(); ++i)
        QTest::newRow(NomeCaso(i, Tutte[i]).constData()) << Tutte[i];
}

void TestInteressi::esempi()
{
    QFETCH(QStringList, Riga);
    QCOMPARE(Riga.size(), 10);
    const Registratore Box;
    const DatiInteressi Dati{Riga[0].toInt(), Riga[1], Riga[2].toInt(), Riga[3],
                             Riga[4],         Riga[5], Riga[6] == u"1"};
    QVERIFY(!CheckInteressi(Dati));
    const EsitoInteressi Esito = Calcola(Dati);
    QCOMPARE(Esito.Fine, FineInteressi::Completa);
    QCOMPARE(Format(Esito.TotaleInteressi, u"#,##0.00"), Riga[7]);
    QCOMPARE(Esito.Righe.Righe(), Riga[8].toInt());
}

void TestInteressi::righeDiDuePeriodi()
{
    const EsitoInteressi Esito = Calcola(Legali(u"1000"_s, u"30/12/2013"_s, u"02/01/2014"_s));
    QCOMPARE(Righe(Esito),
             (QStringList{u"30/12/2013 31/12/2013 2,5 2 0,14"_s, u"01/01/2014 02/01/2014 1 2 0,05"_s}));
}

void TestInteressi::puntoInPiu()
{
    const QString Archivio =
        ArchivioConTassi(u"InteressiMora"_s, {{QDate(2013, 1, 1), QDate(2030, 12, 31), 8.0}});
    DatiInteressi Dati{InteressiMora, u"36500"_s, ValutaEuro, {}, u"01/01/2013"_s, u"10/01/2013"_s, true};
    QCOMPARE(Righe(Calcola(Dati, Archivio)), QStringList{u"01/01/2013 10/01/2013 9 10 90"_s});
    Dati.Dopo2012 = false;
    QCOMPARE(Righe(Calcola(Dati, Archivio)), QStringList{u"01/01/2013 10/01/2013 8 10 80"_s});
    // The option hides with legal interest and counts for nothing there.
    DatiInteressi Altri = Legali(u"36500"_s, u"01/01/2012"_s, u"10/01/2012"_s);
    Altri.Dopo2012 = true;
    QCOMPARE(Righe(Calcola(Altri)), QStringList{u"01/01/2012 10/01/2012 2,5 10 25"_s});
}

// 10.35 in single precision is 10.3500003815: with a large capital the cents tell.
void TestInteressi::tassoSingolo()
{
    QCOMPARE(Interessi(365, 10.35F, 1e9), 103500003.81);
    const EsitoInteressi Esito =
        Calcola({InteressiMora, u"1.000.000.000"_s, ValutaEuro, {}, u"01/10/2002"_s, u"31/12/2002"_s, false});
    QCOMPARE(Esito.Righe(0, IntTasso).toDouble(), 10.35);
    QCOMPARE(Esito.TotaleInteressi, Interessi(92, 10.35F, 1e9));

    // 7.05 in single precision and 0.01 in double make a single above 7.06.
    DatiInteressi Aumentati{InteressiMora,   u"1.000.000.000"_s, ValutaEuro, u"0,01"_s,
                            u"01/07/2015"_s, u"31/12/2015"_s,    false};
    const EsitoInteressi Altro = Calcola(Aumentati);
    QCOMPARE(Altro.Righe(0, IntTasso).toDouble(), 7.06);
    QCOMPARE(Altro.TotaleInteressi, Interessi(184, 7.0600004F, 1e9));
    QVERIFY(Altro.TotaleInteressi > Interessi(184, 7.06F, 1e9));
}

// 999.999 lire are 516,46 euro to the cent before any rate is applied.
void TestInteressi::lireConvertitePrima()
{
    DatiInteressi Dati = Legali(u"999999"_s, u"30/12/2013"_s, u"02/01/2014"_s);
    Dati.Valuta = ValutaLire;
    const EsitoInteressi Esito = Calcola(Dati);
    QCOMPARE(Esito.Righe(0, IntImporto).toDouble(), Interessi(2, 2.5F, 516.46));
    QCOMPARE(Esito.Righe(1, IntImporto).toDouble(), Interessi(2, 1.0F, 516.46));
}

void TestInteressi::fineSenzaRiga()
{
    const Registratore Box;
    // Nothing is reckoned, so that not even the capital is read.
    const EsitoInteressi Esito = Calcola(Legali(u"abc"_s, u"02/01/2012"_s, u"01/01/2012"_s));
    QCOMPARE(Esito.Fine, FineInteressi::Completa);
    QVERIFY(Esito.Righe.Vuota());
    QCOMPARE(Format(Esito.TotaleInteressi, u"#,##0.00"), u"0,00"_s);
}

void TestInteressi::controlli_data()
{
    QTest::addColumn<DatiInteressi>("Dati");
    QTest::addColumn<QString>("Messaggio");
    QTest::addColumn<CampoInteressi>("Dove");

    const auto DaLegali = u"Per il tasso legale, non sono ammesse date antecedenti al 1° gennaio 1957"_s;
    const auto DaMora = u"Per il tasso di mora, non sono ammesse date antecedenti al 9 agosto 2002"_s;
    const auto Iniziale = u"La data iniziale non è valida"_s;
    const auto Finale = u"La data finale non è valida"_s;
    const auto Dal2013 = u"La data iniziale non può essere antecedente al 01/01/2013!"_s;
    const auto Riga = [](const char* Nome, int Tipo, const QString& Capitale, const QString& Dal,
                         const QString& Al, bool Dopo, const QString& Messaggio,
                         CampoInteressi Dove = CampoInteressi::DataIni) {
        QTest::newRow(Nome) << DatiInteressi{Tipo, Capitale, ValutaEuro, {}, Dal, Al, Dopo} << Messaggio
                            << Dove;
    };
    const auto Uno = u"1"_s;
    const auto Al = u"31/12/2013"_s;
    Riga("in ordine", 0, Uno, u"01/01/2013"_s, Al, false, {});
    Riga("capitale vuoto", 0, {}, u"01/01/2013"_s, Al, false,
         u"Non è stato specificato l'importo del capitale"_s, CampoInteressi::Capitale);
    Riga("legali dal 01/01/1957", 0, Uno, u"01/01/1957"_s, Al, false, {});
    Riga("legali dal giorno prima", 0, Uno, u"31/12/1956"_s, Al, false, DaLegali);
    Riga("mora dal 09/08/2002", 1, Uno, u"09/08/2002"_s, Al, false, {});
    Riga("mora dal giorno prima", 1, Uno, u"08/08/2002"_s, Al, false, DaMora);
    Riga("mora conclusa dopo il 2012, dal primo giorno", 1, Uno, u"01/01/2013"_s, Al, true, {});
    Riga("mora conclusa dopo il 2012, dal giorno prima", 1, Uno, u"31/12/2012"_s, Al, true, Dal2013);
    Riga("legali con l'opzione della mora", 0, Uno, u"31/12/2012"_s, Al, true, {});
    Riga("iniziale inesistente", 0, Uno, u"31/02/2012"_s, Al, false, Iniziale);
    Riga("finale vuota", 0, Uno, u"01/01/2013"_s, u"__/__/____"_s, false, Finale, CampoInteressi::DataFin);
    Riga("vale l'ultimo difetto", 1, {}, u"__/__/____"_s, u"31/02/2012"_s, true, Finale,
         CampoInteressi::DataFin);
    Riga("anche il limite del 2013", 1, Uno, u"01/01/2000"_s, u"__/__/____"_s, true, Dal2013);
    Riga("fine prima dell'inizio", 0, Uno, u"01/01/2013"_s, u"01/01/2012"_s, false, {});
    Riga("capitale che non è un numero", 0, u"abc"_s, u"01/01/2013"_s, Al, false, {});
}

void TestInteressi::controlli()
{
    QFETCH(DatiInteressi, Dati);
    const auto Trovata = CheckInteressi(Dati);
    QTEST(Trovata ? Trovata->Messaggio : QString(), "Messaggio");
    if (Trovata)
        QTEST(Trovata->Dove, "Dove");
}

void TestInteressi::avvisoDellAumentoUnaVolta()
{
    Registratore Box;
    Box.Attendi(u"I tassi di interessi saranno aumentati del 2%"_s, vbOK, u"Avvertimento:"_s);
    DatiInteressi Dati = Legali(u"1000"_s, u"01/01/2010"_s, u"31/12/2014"_s);
    Dati.Aumento = u"2"_s;
    QString UltimoAumento;
    QCOMPARE(CalcolaInteressi(ArchivioConsegnato(), Dati, UltimoAumento).Righe.Righe(), 4);
    QCOMPARE(UltimoAumento, u"2"_s);
    (void)CalcolaInteressi(ArchivioConsegnato(), Dati, UltimoAumento);
    Box.Attendi(u"I tassi di interessi saranno aumentati del 2,0%"_s, vbOK, u"Avvertimento:"_s);
    Dati.Aumento = u"2,0"_s;
    (void)CalcolaInteressi(ArchivioConsegnato(), Dati, UltimoAumento);
    QCOMPARE(Box.Mostrati().size(), 2);
    QCOMPARE(Box.Mostrato(1).Bandiere, vbExclamation);
}

void TestInteressi::oltreLUltimaRigaNo()
{
    const QString Archivio =
        ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2012, 12, 31), 5.0}});
    Registratore Box;
    Box.Attendi(NonAggiornati, vbNo, u"Domanda:"_s);
    Box.Attendi(UltimoIndice, vbOK, u"Avvertimento:"_s);
    // Three thousand years on: asked once, and the last rate stays.
    const EsitoInteressi Esito = Calcola(Legali(u"36500"_s, u"31/12/2012"_s, u"01/01/3013"_s), Archivio);
    QCOMPARE(Esito.Fine, FineInteressi::Completa);
    QCOMPARE(Box.Mostrato(0).Bandiere, vbYesNo + vbQuestion);
    const qint64 Giorni = QDate(2013, 1, 1).daysTo(QDate(3013, 1, 1)) + 1;
    QCOMPARE(Righe(Esito), (QStringList{u"31/12/2012 31/12/2012 5 1 5"_s,
                                        u"01/01/2013 01/01/3013 5 %1 %2"_s.arg(Giorni).arg(Giorni * 5)}));
}

void TestInteressi::oltreLUltimaRigaSi()
{
    const QString Archivio =
        ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2012, 12, 31), 5.0}});
    Registratore Box;
    Box.Attendi(NonAggiornati, vbYes, u"Domanda:"_s);
    QCOMPARE(Calcola(Legali(u"36500"_s, u"31/12/2012"_s, u"01/01/2013"_s), Archivio).Fine,
             FineInteressi::Aggiorna);
}

// The first round writes a line of no days before the question.
void TestInteressi::inizioDopoLUltimaRiga()
{
    const QString Archivio =
        ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2012, 12, 31), 5.0}});
    Registratore Box;
    Box.Attendi(NonAggiornati, vbNo, u"Domanda:"_s);
    Box.Attendi(UltimoIndice, vbOK, u"Avvertimento:"_s);
    QCOMPARE(Righe(Calcola(Legali(u"36500"_s, u"10/03/2013"_s, u"11/03/2013"_s), Archivio)),
             (QStringList{u"10/03/2013 09/03/2013 5 0 0"_s, u"10/03/2013 11/03/2013 5 2 10"_s}));
}

void TestInteressi::inizioPrimaDellaPrimaRiga_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<FineInteressi>("Fine");
    QTest::newRow("aggiornare") << vbYes << FineInteressi::AggiornaEChiudi;
    QTest::newRow("lasciar stare") << vbNo << FineInteressi::Chiudi;
}

void TestInteressi::inizioPrimaDellaPrimaRiga()
{
    QFETCH(int, Risposta);
    const QString Archivio =
        ArchivioConTassi(u"InteressiLegali"_s, {{QDate(2012, 1, 1), QDate(2012, 12, 31), 5.0}});
    Registratore Box;
    Box.Attendi(NonAggiornati, Risposta, u"Domanda:"_s);
    QTEST(Calcola(Legali(u"1000"_s, u"31/12/2011"_s, u"01/03/2012"_s), Archivio).Fine, "Fine");
}

void TestInteressi::dopoUnErroreIGiorniRicominciano()
{
    QString UltimoAumento;
    QCOMPARE(NumeroErrore([&] {
                 (void)CalcolaInteressi(ArchivioConsegnato(),
                                        Legali(u"abc"_s, u"01/01/2012"_s, u"31/12/2012"_s), UltimoAumento);
             }),
             13);
    QCOMPARE(Calcola(Legali(u"1000"_s, u"01/01/2012"_s, u"31/12/2012"_s)).Righe(0, IntGiorni).toInt(), 366);
}

void TestInteressi::periodiACaso()
{
    const int Casi = CasiAlCaso(10'000);
    QRandomGenerator Sorte(1284);
    for (int i = 0; i < Casi; ++i) {
        const qint64 Centesimi = Sorte.bounded(1, 100000000);
        const float Tasso = float(Sorte.bounded(1, 1500)) / 100;
        const int Giorni = Sorte.bounded(1, 3660);
        const double Avuto = Interessi(Giorni, Tasso, double(Centesimi) / 100);
        if (std::llround(Avuto * 100) != InteressiCentesimi(Centesimi, Tasso, Giorni))
            QFAIL(qPrintable(u"%1 centesimi al %2 per %3 giorni: %4"_s.arg(Centesimi)
                                 .arg(double(Tasso))
                                 .arg(Giorni)
                                 .arg(Avuto)));
    }
}

// The days of each period by subtraction, over random spans of the delivered archive.
void TestInteressi::periodiPerDifferenza()
{
    struct Periodo
    {
        QDate Dal, Al;
    };
    std::vector<Periodo> Periodi;
    Recordset Tassi = OpenDatabase(ArchivioConsegnato(), true).OpenRecordset(u"InteressiLegali"_s);
    for (; !Tassi.Eof(); Tassi.MoveNext())
        Periodi.push_back({Tassi.Value(u"Dal"_s).toDate(), Tassi.Value(u"Al"_s).toDate()});

    QRandomGenerator Sorte(1957);
    for (int i = 0; i < 100; ++i) {
        const QDate Dal = QDate(1957, 1, 1).addDays(Sorte.bounded(25000));
        const QDate Al = Dal.addDays(Sorte.bounded(int(Dal.daysTo(QDate(2026, 12, 31))) + 1));
        const EsitoInteressi Esito =
            Calcola(Legali(u"1000"_s, Dal.toString(u"dd/MM/yyyy"_s), Al.toString(u"dd/MM/yyyy"_s)));
        int Riga = 0;
        for (const Periodo& Uno : Periodi) {
            const QDate Da = std::max(Dal, Uno.Dal);
            const QDate Fino = std::min(Al, Uno.Al);
            if (Da > Fino)
                continue;
            QVERIFY(Riga < Esito.Righe.Righe());
            QCOMPARE(Esito.Righe(Riga, IntDal).toDate(), Da);
            QCOMPARE(Esito.Righe(Riga, IntAl).toDate(), Fino);
            QCOMPARE(Esito.Righe(Riga, IntGiorni).toInt(), int(Da.daysTo(Fino)) + 1);
            ++Riga;
        }
        QCOMPARE(Esito.Righe.Righe(), Riga);
    }
}

#include "TestInteressi.moc"
