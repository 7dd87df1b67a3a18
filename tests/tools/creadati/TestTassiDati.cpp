// The rate archive as delivered, and the tables that creadati refuses.
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "creadati/archivio_tassi.h"
#include "platform/database/database.h"
#include "platform/system/file.h"

using namespace Qt::StringLiterals;

namespace {

QString Dati()
{
    return SorgenteDiProva(u"dati/"_s);
}

const QStringList Tabelle{u"tassi_legali.csv"_s, u"tassi_mora.csv"_s, u"indici_foi.csv"_s, u"basi_foi.csv"_s};

}  // namespace

class TestTassiDati : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void colonne_data();
    void colonne();
    void tassi_data();
    void tassi();
    void periodiContigui_data();
    void periodiContigui();
    void ogniMeseDal1947();
    void indici_data();
    void indici();
    void unRaccordoPerOgniCoppiaDiMesi();
    void raccordi_data();
    void raccordi();
    void laDataEQuellaDeiDati();
    void rifiuta_data();
    void rifiuta();

private:
    Database Archivio;
};
PROVA(TestTassiDati);

void TestTassiDati::initTestCase()
{
    Archivio = OpenDatabase(ProgrammaDiProva() + u"Tassi.dat"_s, true);
}

void TestTassiDati::colonne_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<QString>("Colonne");
    QTest::addColumn<QString>("Indice");

    QTest::newRow("legali") << u"InteressiLegali"_s << u"Dal:8 Al:8 Tasso:6"_s << u"Dal"_s;
    QTest::newRow("mora") << u"InteressiMora"_s << u"Dal:8 Al:8 Tasso:6"_s << u"Dal"_s;
    QTest::newRow("indici") << u"IndiciIstat"_s << u"Anno:3 Mese:3 Indice:7"_s << u"Indice"_s;
    QTest::newRow("raccordi") << u"CoefficientiRaccordo"_s
                              << u"Coefficiente:7 DataIni_Dal:8 DataIni_Al:8 DataFin_Dal:8 DataFin_Al:8"_s
                              << QString();
}

void TestTassiDati::colonne()
{
    QFETCH(QString, Tabella);
    QFETCH(QString, Indice);
    QStringList Lette;
    for (const Campo& Uno : Archivio.Campi(Tabella))
        Lette << u"%1:%2"_s.arg(Uno.Name).arg(int(Uno.Type));
    QTEST(Lette.join(u' '), "Colonne");
    if (!Indice.isEmpty()) {
        Recordset Righe = Archivio.OpenRecordset(Tabella);
        Righe.ImpostaIndex(Indice);
        QVERIFY(!Righe.Eof());
    }
}

void TestTassiDati::tassi_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<QDate>("Giorno");
    QTest::addColumn<float>("Tasso");

    const auto Legali = u"InteressiLegali"_s;
    const auto Mora = u"InteressiMora"_s;
    QTest::newRow("codice civile, testo originario") << Legali << QDate(1957, 1, 1) << 5.0F;
    QTest::newRow("vigilia della l. 353/1990") << Legali << QDate(1990, 12, 15) << 5.0F;
    QTest::newRow("l. 353/1990") << Legali << QDate(1990, 12, 16) << 10.0F;
    QTest::newRow("2012") << Legali << QDate(2012, 6, 30) << 2.5F;
    QTest::newRow("il più basso") << Legali << QDate(2021, 12, 31) << 0.01F;
    QTest::newRow("2026") << Legali << QDate(2026, 12, 31) << 1.6F;
    QTest::newRow("primo semestre di mora") << Mora << QDate(2002, 8, 9) << 10.35F;
    QTest::newRow("mora, secondo semestre 2013, senza il punto in più") << Mora << QDate(2013, 7, 1) << 7.5F;
    QTest::newRow("mora, 4,25 + 7") << Mora << QDate(2024, 7, 1) << 11.25F;
}

void TestTassiDati::tassi()
{
    QFETCH(QString, Tabella);
    QFETCH(QDate, Giorno);
    Recordset Righe = Archivio.OpenRecordset(Tabella);
    Righe.ImpostaIndex(u"Dal"_s);
    Righe.Seek(u"<="_s, Giorno);
    QVERIFY(!Righe.NoMatch());
    QVERIFY(Righe.Value(u"Al"_s).toDate() >= Giorno);
    QTEST(Righe.Value(u"Tasso"_s).toFloat(), "Tasso");
}

void TestTassiDati::periodiContigui_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<int>("Periodi");
    QTest::newRow("legali") << u"InteressiLegali"_s << 24;
    QTest::newRow("mora") << u"InteressiMora"_s << 49;
}

void TestTassiDati::periodiContigui()
{
    QFETCH(QString, Tabella);
    Recordset Righe = Archivio.OpenRecordset(Tabella);
    Righe.ImpostaIndex(u"Dal"_s);
    QTEST(Righe.RecordCount(), "Periodi");
    for (QDate Atteso = Righe.Value(u"Dal"_s).toDate(); !Righe.Eof(); Righe.MoveNext()) {
        QCOMPARE(Righe.Value(u"Dal"_s).toDate(), Atteso);
        Atteso = Righe.Value(u"Al"_s).toDate().addDays(1);
    }
}

void TestTassiDati::ogniMeseDal1947()
{
    Recordset Righe = Archivio.OpenRecordset(u"IndiciIstat"_s);
    Righe.ImpostaIndex(u"Indice"_s);
    QCOMPARE(Righe.RecordCount(), 956);
    for (QDate Atteso(1947, 1, 1); !Righe.Eof(); Righe.MoveNext(), Atteso = Atteso.addMonths(1)) {
        QCOMPARE(Righe.Value(u"Anno"_s).toInt(), Atteso.year());
        QCOMPARE(Righe.Value(u"Mese"_s).toInt(), Atteso.month());
        QVERIFY(Righe.Value(u"Indice"_s).toDouble() > 0.0);
    }
}

void TestTassiDati::indici_data()
{
    QTest::addColumn<int>("Anno");
    QTest::addColumn<int>("Mese");
    QTest::addColumn<double>("Indice");

    QTest::newRow("il primo") << 1947 << 1 << 51.68;
    QTest::newRow("due decimali fino al 1961") << 1947 << 6 << 66.10;
    QTest::newRow("l'ultimo") << 2026 << 8 << 103.7;
    QTest::newRow("ultimo della base 2015") << 2025 << 12 << 121.5;
}

void TestTassiDati::indici()
{
    QFETCH(int, Anno);
    QFETCH(int, Mese);
    Recordset Righe = Archivio.OpenRecordset(u"IndiciIstat"_s);
    Righe.ImpostaIndex(u"Indice"_s);
    Righe.Seek(u"="_s, QVariantList{Anno, Mese});
    QVERIFY(!Righe.NoMatch());
    QTEST(Righe.Value(u"Indice"_s).toDouble(), "Indice");
}

void TestTassiDati::unRaccordoPerOgniCoppiaDiMesi()
{
    struct Riga
    {
        QDate IniDal, IniAl, FinDal, FinAl;
    };
    std::vector<Riga> Righe;
    Recordset Tutte = Archivio.OpenRecordset(u"CoefficientiRaccordo"_s);
    for (; !Tutte.Eof(); Tutte.MoveNext())
        Righe.push_back({Tutte.Value(u"DataIni_Dal"_s).toDate(), Tutte.Value(u"DataIni_Al"_s).toDate(),
                         Tutte.Value(u"DataFin_Dal"_s).toDate(), Tutte.Value(u"DataFin_Al"_s).toDate()});
    const auto Quante = [&Righe](const QDate& Ini, const QDate& Fin) {
        return std::ranges::count_if(Righe, [&](const Riga& Una) {
            return Una.IniDal <= Ini && Ini <= Una.IniAl && Una.FinDal <= Fin && Fin <= Una.FinAl;
        });
    };
    // Every seventh month, first and last day, and the months about a change of base.
    for (QDate Ini(1947, 1, 1); Ini < QDate(2027, 1, 1); Ini = Ini.addMonths(7))
        for (QDate Fin = Ini; Fin < QDate(2027, 1, 1); Fin = Fin.addMonths(1))
            if (Quante(Ini, Fin) != 1 ||
                Quante(Ini.addMonths(1).addDays(-1), Fin.addMonths(1).addDays(-1)) != 1)
                QFAIL(qPrintable(Ini.toString(Qt::ISODate) + u' ' + Fin.toString(Qt::ISODate)));
    QCOMPARE(Quante(QDate(1992, 1, 31), QDate(1992, 2, 1)), 1);
}

void TestTassiDati::raccordi_data()
{
    QTest::addColumn<QDate>("Iniziale");
    QTest::addColumn<QDate>("Finale");
    QTest::addColumn<double>("Coefficiente");

    QTest::newRow("stessa base") << QDate(1996, 1, 1) << QDate(2010, 12, 31) << 1.0;
    QTest::newRow("una base avanti") << QDate(1966, 12, 31) << QDate(1967, 1, 1) << 1.274;
    QTest::newRow("due: 1,274 x 1,116") << QDate(1947, 1, 1) << QDate(1971, 1, 1) << 1.421784;
    QTest::newRow("dai tabacchi ai senza") << QDate(1992, 1, 31) << QDate(1992, 2, 1) << 1.0009;
    QTest::newRow("1,0009 x 1,189") << QDate(1990, 1, 1) << QDate(1993, 1, 1) << 1.1900701;
    QTest::newRow("tre: 1,373 x 1,071 x 1,214") << QDate(2010, 12, 31) << QDate(2026, 8, 1) << 1.785166362;
}

void TestTassiDati::raccordi()
{
    QFETCH(QDate, Iniziale);
    QFETCH(QDate, Finale);
    const Recordset Riga = Archivio.OpenRecordset(u"SELECT Coefficiente FROM CoefficientiRaccordo WHERE "
                                                  u"DataIni_Dal<=? AND DataIni_Al>=? AND DataFin_Dal<=? "
                                                  u"AND DataFin_Al>=?"_s,
                                                  {Iniziale, Iniziale, Finale, Finale});
    QCOMPARE(Riga.RecordCount(), 1);
    QTEST(Riga.Value(u"Coefficiente"_s).toDouble(), "Coefficiente");
}

void TestTassiDati::laDataEQuellaDeiDati()
{
    Tassi Pochi;
    Pochi.Legali = {{QDate(2025, 1, 1), QDate(2025, 12, 31), 2.0},
                    {QDate(2026, 1, 1), QDate(2026, 12, 31), 1.6}};
    Pochi.Mora = {{QDate(2026, 7, 1), QDate(2026, 12, 31), 9.4}};
    Pochi.Indici = {{2024, 1, 120.0}, {2024, 2, 120.1}};
    QCOMPARE(DataDeiTassi(Pochi), QDate(2026, 7, 1));
    Pochi.Indici.append({2028, 2, 130.0});
    QCOMPARE(DataDeiTassi(Pochi), QDate(2028, 2, 29));
    // The archive as delivered is as old as its figures, not as the build.
    QCOMPARE(DataFile(ProgrammaDiProva() + u"Tassi.dat"_s).date(), DataDeiTassi(LeggiTassi(Dati())));
}

void TestTassiDati::rifiuta_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<QByteArray>("Prima");
    QTest::addColumn<QByteArray>("Dopo");
    QTest::addColumn<QString>("Frase");

    const auto Legali = u"tassi_legali.csv"_s;
    const auto Indici = u"indici_foi.csv"_s;
    const auto Basi = u"basi_foi.csv"_s;
    QTest::newRow("un giorno scoperto")
        << Legali << QByteArray("1990-12-16;") << QByteArray("1990-12-17;")
        << u"riga 3, colonna dal: il periodo doveva cominciare il 1990-12-16"_s;
    QTest::newRow("un giorno coperto due volte")
        << u"tassi_mora.csv"_s << QByteArray("2003-01-01;") << QByteArray("2002-12-31;")
        << u"riga 3, colonna dal: il periodo doveva cominciare il 2003-01-01"_s;
    QTest::newRow("periodo rovesciato")
        << Legali << QByteArray("1990-12-16;1996-12-31") << QByteArray("1990-12-16;1990-12-15")
        << u"riga 3, colonna al: il periodo finisce prima di cominciare"_s;
    QTest::newRow("tasso a zero") << Legali << QByteArray(";0.05\n") << QByteArray(";0.00\n")
                                  << u"riga 19, colonna tasso: il tasso è zero"_s;
    QTest::newRow("tasso con la virgola")
        << Legali << QByteArray(";0.05\n") << QByteArray(";0,05\n")
        << u"riga 19, colonna tasso: «0,05» non è un numero con al massimo 2 decimali"_s;
    QTest::newRow("giorno che non c'è") << Legali << QByteArray("1997-01-01") << QByteArray("1997-02-29")
                                        << u"riga 4, colonna dal: «1997-02-29» non è una data aaaa-mm-gg"_s;
    QTest::newRow("mese vuoto in mezzo") << Indici << QByteArray(";59.15;") << QByteArray(";;")
                                         << u"riga 2, colonna aprile: manca l'indice di 1947-04"_s;
    QTest::newRow("mese vuoto nell'ultimo anno")
        << Indici << QByteArray(";101.5;102.5;") << QByteArray(";101.5;;")
        << u"riga 81, colonna maggio: manca l'indice di 2026-04"_s;
    QTest::newRow("anno saltato") << Indici << QByteArray("\n1948;") << QByteArray("\n1949;")
                                  << u"riga 3, colonna gennaio: manca l'indice di 1948-01"_s;
    QTest::newRow("indice a zero") << Indici << QByteArray(";59.15;") << QByteArray(";0;")
                                   << u"riga 2, colonna aprile: l'indice è zero"_s;
    QTest::newRow("indici oltre l'ultima base")
        << Basi << QByteArray("2030-12-31") << QByteArray("2026-07-31")
        << u"indici_foi.csv, riga 81, colonna agosto: nessuna base arriva a questo mese"_s;
    QTest::newRow("base che comincia a metà mese")
        << Basi << QByteArray("1947-01-01;") << QByteArray("1947-01-02;")
        << u"riga 2, colonna dal: una base va da un primo a un ultimo del mese"_s;
    QTest::newRow("prima base con un raccordo")
        << Basi << QByteArray("1966-12-31;1\n") << QByteArray("1966-12-31;1.1\n")
        << u"riga 2, colonna raccordo: il raccordo della prima base è 1, nessuno è zero"_s;
    QTest::newRow("raccordo a zero")
        << Basi << QByteArray(";1.274") << QByteArray(";0")
        << u"riga 3, colonna raccordo: il raccordo della prima base è 1, nessuno è zero"_s;
}

void TestTassiDati::rifiuta()
{
    QFETCH(QString, Tabella);
    QFETCH(QByteArray, Prima);
    QFETCH(QByteArray, Dopo);
    QFETCH(QString, Frase);
    const QString Cartella = NuovaCartella();
    for (const QString& Nome : Tabelle)
        QVERIFY(QFile::copy(Dati() + Nome, Cartella + Nome));
    QByteArray Testo = LeggiFile(Cartella + Tabella);
    QCOMPARE(Testo.count(Prima), 1);
    ScriviFile(Cartella + Tabella, Testo.replace(Prima, Dopo));
    const ErroreVisto Guasto = ErroreDi([&] { (void)LeggiTassi(Cartella); });
    QCOMPARE(Guasto.Numero, 5);
    QCOMPARE(Guasto.Descrizione, Frase.contains(u".csv") ? Frase : Tabella + u", "_s + Frase);
}

#include "TestTassiDati.moc"
