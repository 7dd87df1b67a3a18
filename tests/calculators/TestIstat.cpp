// Revaluation: worked examples, questions, captions, and the amounts once more over integers.
#include "archivio_prova.h"
#include "casi.h"
#include "supporto/alcaso.h"
#include "supporto/guasti.h"
#include "supporto/registratore.h"

#include "calculators/modIstat.h"
#include "platform/base/regionale.h"
#include "platform/system/orologio.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

const auto Domanda = u"Domanda:"_s;
const auto Aggiornare = u"\nSi vuole procedere all'aggiornamento degli indici?"_s;
const auto UltimoIndice = u"Il calcolo verrà effettuato utilizzando l'ultimo indice disponibile."_s;

/// Quotient of whole numbers, ties to even.
qint64 Diviso(qint64 Numeratore, qint64 Denominatore)
{
    const qint64 Intero = Numeratore / Denominatore;
    const qint64 Doppio = 2 * (Numeratore % Denominatore);
    return Intero + (Doppio > Denominatore || (Doppio == Denominatore && Intero % 2 != 0));
}

/// A caption as a whole number of its last decimal.
qint64 Intero(const QString& Etichetta, int Decimali)
{
    return std::llround(CDbl(Etichetta) * std::pow(10.0, Decimali));
}

}  // namespace

class TestIstat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void esempi_data();
    void esempi();
    void daCentoACentodieci();
    void mesiSottoGliIndici();
    void controlli_data();
    void controlli();
    void indiceInizialeMancante_data();
    void indiceInizialeMancante();
    void indiceFinaleMancanteNo();
    void dopoUnSiNonSiChiedePiu();
    void coefficienteMancante_data();
    void coefficienteMancante();
    void giornoCheDivideIlMese();
    void importiACaso();
    void serieDegliIndici();

private:
    FineIstat Calcola(const DatiIstat& Dati, const QString& Archivio = ArchivioConsegnato())
    {
        Etichette = RisultatiIstat();
        return CalcolaRivalutazione(Archivio, Dati, Chiesto, Etichette);
    }
    [[nodiscard]] static QString Copia()
    {
        const QString File = NuovaCartella() + u"Tassi.dat"_s;
        QFile::copy(ArchivioConsegnato(), File);
        return File;
    }

    RisultatiIstat Etichette;
    bool Chiesto = false;
};
PROVA(TestIstat);

void TestIstat::init()
{
    Chiesto = false;
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 20), QTime(10, 0)); });
}

void TestIstat::cleanup()
{
    InstallaOrologio({});
}

void TestIstat::esempi_data()
{
    QTest::addColumn<QStringList>("Riga");
    const auto Righe = Casi(u"istat.csv"_s);
    QVERIFY(Righe.size() >= 10);
    for (size_t i = 0; i < Righe.size(); ++i)
        QTest::newRow(NomeCaso(i, Righe[i]).constData()) << Righe[i];
}

void TestIstat::esempi()
{
    QFETCH(QStringList, Riga);
    QCOMPARE(Riga.size(), 9);
    const Registratore Box;
    const DatiIstat Dati{Riga[2], Riga[3], Riga[0], Riga[1].toInt()};
    QVERIFY(!CheckIstat(Dati));
    QCOMPARE(Calcola(Dati), FineIstat::Completa);
    QCOMPARE(Etichette.lblCoeffRiv, Riga[4]);
    QCOMPARE(Etichette.lblImpRival, Riga[5] + u"  "_s);
    QCOMPARE(Etichette.lblRivalutaz, Riga[6] + u"  "_s);
    QCOMPARE(Etichette.lblVarPerc, Riga[7]);
}

void TestIstat::daCentoACentodieci()
{
    RisultatiIstat Testi;
    Testi.lblIndIni = u"100"_s;
    Testi.lblIndFin = u"110"_s;
    ScriviRisultati(Testi, 1000.0, 1.0);
    QCOMPARE(Testi, (RisultatiIstat{u"1.000,00  "_s, u"110"_s, u"1"_s, u"100"_s, u"1,1"_s, u"1.100,00  "_s,
                                    u"100,00  "_s, u"10"_s}));
}

void TestIstat::mesiSottoGliIndici()
{
    QCOMPARE(Calcola({u"15/01/2020"_s, u"01/12/2025"_s, u"1000"_s, 0}), FineIstat::Completa);
    QCOMPARE(Etichette.lblIndIni, u"102,7\ngen 2020"_s);
    QCOMPARE(Etichette.lblIndFin, u"121,5\ndic 2025"_s);
    QCOMPARE(Etichette.lblCoeffRacc, u"1"_s);
    QCOMPARE(Etichette.lblImporto, u"1.000,00  "_s);
}

void TestIstat::controlli_data()
{
    QTest::addColumn<DatiIstat>("Dati");
    QTest::addColumn<QString>("Messaggio");
    QTest::addColumn<CampoIstat>("Dove");

    const auto Da = u"01/01/2020"_s;
    const auto A = u"01/01/2021"_s;
    const auto Uno = u"1"_s;
    const auto NonSuperiore = u"La data di arrivo non è superiore di quella di partenza."_s;
    QTest::newRow("in ordine") << DatiIstat{Da, A, Uno, 0} << QString() << CampoIstat();
    QTest::newRow("iniziale inesistente")
        << DatiIstat{u"31/02/2020"_s, u"31/02/2020"_s, {}, 0}
        << u"E' stata inserita una data iniziale non valida!"_s << CampoIstat::DataIni;
    QTest::newRow("finale vuota") << DatiIstat{Da, u"__/__/____"_s, {}, 0}
                                  << u"E' stata inserita una data finale non valida!"_s
                                  << CampoIstat::DataFin;
    QTest::newRow("importo vuoto") << DatiIstat{A, Da, {}, 0}
                                   << u"Non è stato specificato l'importo da rivalutare."_s
                                   << CampoIstat::Importo;
    QTest::newRow("date uguali") << DatiIstat{Da, Da, Uno, 0} << NonSuperiore << CampoIstat::DataFin;
    QTest::newRow("date rovesciate") << DatiIstat{A, Da, Uno, 0} << NonSuperiore << CampoIstat::DataFin;
    QTest::newRow("oggi") << DatiIstat{Da, u"20/11/2026"_s, Uno, 0} << QString() << CampoIstat();
    QTest::newRow("domani")
        << DatiIstat{Da, u"21/11/2026"_s, Uno, 0}
        << u"La rivalutazione non può essere calcolata per date successive a quella odierna."_s
        << CampoIstat::DataFin;
}

void TestIstat::controlli()
{
    QFETCH(DatiIstat, Dati);
    const auto Trovato = CheckIstat(Dati);
    QTEST(Trovato ? Trovato->Messaggio : QString(), "Messaggio");
    if (Trovato)
        QTEST(Trovato->Dove, "Dove");
}

void TestIstat::indiceInizialeMancante_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<FineIstat>("Fine");
    QTest::newRow("aggiornare") << vbYes << FineIstat::Aggiorna;
    QTest::newRow("lasciar stare") << vbNo << FineIstat::Interrotta;
}

// Never the last row instead: only the update is offered.
void TestIstat::indiceInizialeMancante()
{
    QFETCH(int, Risposta);
    Registratore Box;
    Box.Attendi(u"Attenzione: indici Istat non aggiornati (9/2026)."_s + Aggiornare, Risposta, Domanda);
    QTEST(Calcola({u"01/09/2026"_s, u"20/11/2026"_s, u"1000"_s, 0}), "Fine");
    QCOMPARE(Box.Mostrato(0).Bandiere, vbYesNo + vbQuestion);
    QCOMPARE(Etichette, RisultatiIstat());
    QVERIFY(!Chiesto);
}

void TestIstat::indiceFinaleMancanteNo()
{
    Registratore Box;
    Box.Attendi(u"Attenzione: ultimo indice disponibile Agosto 2026. "_s + Aggiornare, vbNo, Domanda);
    Box.Attendi(UltimoIndice, vbOK, u"Avvertenza:"_s);
    QCOMPARE(Calcola({u"01/07/2026"_s, u"20/11/2026"_s, u"1000"_s, 0}), FineIstat::Completa);
    QCOMPARE(Etichette.lblIndFin, u"103,7\nago 2026"_s);
    QCOMPARE(Etichette.lblCoeffRiv, u"1,00582"_s);  // 103,7 / 103,1
    QVERIFY(!Chiesto);
}

void TestIstat::dopoUnSiNonSiChiedePiu()
{
    Registratore Box;
    const DatiIstat Dati{u"01/07/2026"_s, u"20/11/2026"_s, u"1000"_s, 0};
    Box.Attendi(u"Attenzione: ultimo indice disponibile Agosto 2026. "_s + Aggiornare, vbYes, Domanda);
    QCOMPARE(Calcola(Dati), FineIstat::Aggiorna);
    QVERIFY(Chiesto);
    QCOMPARE(Etichette.lblImpRival, QString());
    for (int i = 0; i < 2; ++i) {
        Box.Attendi(UltimoIndice, vbOK, u"Avvertenza:"_s);
        QCOMPARE(Calcola(Dati), FineIstat::Completa);
    }
}

void TestIstat::coefficienteMancante_data()
{
    indiceInizialeMancante_data();
}

void TestIstat::coefficienteMancante()
{
    QFETCH(int, Risposta);
    const QString File = Copia();
    OpenDatabase(File).Execute(u"DELETE FROM CoefficientiRaccordo WHERE DataIni_Dal<='2020-01-01' AND "
                               "DataIni_Al>='2020-01-01'"_s);
    Registratore Box;
    Box.Attendi(u"Attenzione: coefficienti di rivalutazione Istat non aggiornati."_s + Aggiornare, Risposta,
                Domanda);
    QTEST(Calcola({u"01/01/2020"_s, u"01/01/2024"_s, u"1000"_s, 0}, File), "Fine");
    // The two indices were found and stay written.
    QCOMPARE(Etichette.lblIndIni, u"102,7"_s);
    QCOMPARE(Etichette.lblIndFin, u"119,3"_s);
    QCOMPARE(Etichette.lblImpRival, QString());
}

// The rows of the coefficients hold for days: they may cut a month in two.
void TestIstat::giornoCheDivideIlMese()
{
    const QString File = Copia();
    const Database Db = OpenDatabase(File);
    Db.Execute(u"DELETE FROM CoefficientiRaccordo"_s);
    Db.Execute(
        u"INSERT INTO CoefficientiRaccordo VALUES (1,'2020-01-01','2020-01-14','2020-01-01','2030-12-31'),"
        "(2,'2020-01-15','2030-12-31','2020-01-01','2030-12-31')"_s);
    QCOMPARE(Calcola({u"14/01/2020"_s, u"01/01/2024"_s, u"1000"_s, 0}, File), FineIstat::Completa);
    QCOMPARE(Etichette.lblCoeffRiv, u"1,16164"_s);
    QCOMPARE(Calcola({u"15/1/2020"_s, u"01/01/2024"_s, u"1000"_s, 0}, File), FineIstat::Completa);
    QCOMPARE(Etichette.lblCoeffRacc, u"2"_s);
    QCOMPARE(Etichette.lblCoeffRiv, u"2,32327"_s);
}

void TestIstat::importiACaso()
{
    const int Casi = CasiAlCaso(10'000);
    QRandomGenerator Sorte(1938);
    for (int i = 0; i < Casi; ++i) {
        const qint64 Centesimi = Sorte.bounded(1, 100000000);
        const qint64 Raccordo = Sorte.bounded(10000, 60000);  // four decimals
        const qint64 Iniziale = Sorte.bounded(5000, 20000);   // two decimals
        const qint64 Finale = Sorte.bounded(5000, 20000);
        RisultatiIstat Testi;
        Testi.lblIndIni = CStr(double(Iniziale) / 100);
        Testi.lblIndFin = CStr(double(Finale) / 100);
        ScriviRisultati(Testi, double(Centesimi) / 100, double(Raccordo) / 10000);

        const qint64 Coefficiente = Diviso(Raccordo * Finale * 10, Iniziale);  // five decimals
        const qint64 Rivalutato = Diviso(Centesimi * Coefficiente, 100000);
        if (Intero(Testi.lblCoeffRiv, 5) != Coefficiente || Intero(Testi.lblImpRival, 2) != Rivalutato ||
            Intero(Testi.lblRivalutaz, 2) != Rivalutato - Centesimi ||
            Intero(Testi.lblVarPerc, 3) != Coefficiente - 100000)
            QFAIL(
                qPrintable(u"%1 %2 %3 %4: %5 %6"_s.arg(Centesimi).arg(Raccordo).arg(Iniziale).arg(Finale).arg(
                    Testi.lblCoeffRiv, Testi.lblImpRival)));
    }
}

void TestIstat::serieDegliIndici()
{
    const QList<PuntoIndice> Serie =
        SerieIndici(ArchivioConsegnato(), QDate(2010, 11, 15), QDate(2011, 2, 1));
    QCOMPARE(Serie.size(), 4);
    QCOMPARE(Serie[0].Anno, 2010);
    QCOMPARE(Serie[0].Mese, 11);
    QCOMPARE(Serie[1].Valore, 138.4);
    QCOMPARE(Round(Serie[2].Valore, 4), 138.9476);  // 101,2 x 1,373
    const QList<PuntoIndice> Ultimi =
        SerieIndici(ArchivioConsegnato(), QDate(2026, 7, 1), QDate(2026, 11, 20));
    QCOMPARE(Ultimi.size(), 2);
    QVERIFY(SerieIndici(ArchivioConsegnato(), QDate(1940, 1, 1), QDate(1940, 12, 1)).isEmpty());
}

#include "TestIstat.moc"
