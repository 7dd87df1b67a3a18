// parcelle55.mdb held against the decree, figure by figure: tests/casi/compensi55.csv is copied from its
// tables, and what follows from them is said here once more in other words.
#include "supporto/prova.h"

#include "creadati/creadati.h"
#include "creadati/tabellatesto.h"
#include "platform/database/database.h"
#include "tariffs/modEvaluate.h"
#include "tariffs/modTariffe.h"

#include <QSet>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// A row of the decree's tables.
struct Fatto
{
    QString Tabella, Titolo, Fase, Unita;
    double Da = 0.0;
    double A = 0.0;  ///< 0: no upper limit
    qint64 Centesimi = 0;
    bool Aperto = false;
};

const QList<Fatto>& Fatti()
{
    static const QList<Fatto> Tutti = [] {
        const TabellaTesto Tabella(FileDiProva(u"casi/compensi55.csv"_s),
                                   {u"tabella"_s, u"titolo"_s, u"fase"_s, u"da"_s, u"a"_s, u"medio"_s,
                                    u"unità"_s, u"aumento"_s, u"diminuzione"_s, u"fonte"_s});
        QList<Fatto> Letti;
        for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
            const auto Testo = [&](const QString& Colonna) { return Tabella.Testo(Riga, Colonna); };
            // Half up and half down since 2022, for every phase.
            if (Testo(u"aumento"_s) != u"50" || Testo(u"diminuzione"_s) != u"50")
                QTest::qFail("una forbice diversa", __FILE__, __LINE__);
            Letti += {Testo(u"tabella"_s),
                      Testo(u"titolo"_s),
                      Testo(u"fase"_s),
                      Testo(u"unità"_s),
                      Testo(u"da"_s).toDouble(),
                      Testo(u"a"_s).toDouble(),
                      std::llround(Testo(u"medio"_s).toDouble() * 100),
                      Testo(u"a"_s).isEmpty()};
        }
        return Letti;
    }();
    return Tutti;
}

/// The offices of a civil table, and the only item of one that has no phases.
struct TabellaCivile
{
    const char* Numero;
    QList<int> Uffici;
    QString Voce;  ///< empty: the phase's own name
};

const QList<TabellaCivile>& Civili()
{
    static const QList<TabellaCivile> Tutte{
        {"1", {101}, {}},
        {"2", {102, 125}, {}},
        {"3", {103}, {}},
        {"4", {104}, {}},
        {"5", {105}, {}},
        {"6", {106}, u"Atto di precetto"_s},
        {"7", {107}, u"Procedimento di volontaria giurisdizione"_s},
        {"8", {108}, u"Procedimento monitorio: studio, istruttoria, conclusiva"_s},
        {"9", {109}, {}},
        {"10", {110}, {}},
        {"11", {111}, {}},
        {"12", {112}, {}},
        {"13", {113}, {}},
        {"14", {114}, {}},
        {"16", {115}, {}},
        {"17", {116}, {}},
        {"18", {117}, {}},
        {"19", {118}, u"Iscrizione ipotecaria o affare tavolare"_s},
        {"20", {119}, u"Procedimento per la liquidazione giudiziale (fallimento)"_s},
        {"20-bis", {120}, {}},
        {"21", {121}, {}},
        {"22", {122}, {}},
        {"23", {123}, {}},
        {"24", {124}, {}},
        {"26", {126}, u"Compenso dell'arbitro"_s},
    };
    return Tutte;
}

/// The offices that take the figures of a part of table 15.
struct PartePenale
{
    const char* Titolo;
    QList<int> Uffici;
};

const QList<PartePenale>& Penali()
{
    static const QList<PartePenale> Tutte{
        {"Giudice di Pace", {131}},
        {"Indagini preliminari", {132}},
        {"Indagini difensive", {133}},
        {"Convalida dell'arresto", {134}},
        {"Cautelari personali", {135}},
        {"Cautelari reali", {136}},
        {"GIP e GUP", {137}},
        {"Tribunale monocratico", {138, 146}},
        {"Tribunale collegiale", {139, 147}},
        {"Corte di assise", {140, 148}},
        {"Tribunale di sorveglianza", {141}},
        {"Magistrato di sorveglianza", {142}},
        {"Corte di appello", {143}},
        {"Corte di assise di appello", {144}},
        {"Corte di cassazione", {145}},
    };
    return Tutte;
}

/// Brackets of the tables: number and limits. What is beyond them, or has no value, is derived.
struct Gradone
{
    int Numero;
    double Fino;
};
constexpr std::array<Gradone, 6> DelleTabelle{
    {{1, 1100.0}, {2, 5200.0}, {3, 26000.0}, {4, 52000.0}, {5, 260000.0}, {6, 520000.0}}};
/// Beyond 520,000 each bracket is the one before and three tenths of it.
constexpr std::array<std::pair<int, int>, 5> Composti{{{6, 7}, {7, 9}, {9, 10}, {10, 11}, {11, 12}}};
/// A case of no certain value is one between two values.
constexpr std::array<std::pair<int, int>, 3> SenzaValore{{{4, 8}, {5, 13}, {6, 14}}};

/// Half of an amount and the amount with its half, half a cent being a cent.
std::array<qint64, 3> MedioMinimoMassimo(qint64 Medio)
{
    const qint64 Meta = Medio / 2 + Medio % 2;
    return {Medio, Meta, Medio + Meta};
}

qint64 InCentesimi(const QVariant& Cella)
{
    return Cella.isValid() ? std::llround(Cella.toDouble() * 100) : -1;
}

QString Apice(QString Testo)
{
    return u'\'' + Testo.replace(u'\'', u"''"_s) + u'\'';
}

/// Every cell met, so that those of the database that nothing stands behind are counted.
class Celle
{
public:
    void Confronta(const Recordset& Riga, const QString& Dove, int Numero, qint64 Medio)
    {
        const auto Attese = MedioMinimoMassimo(Medio);
        for (const size_t i : {0U, 1U, 2U}) {
            const QString Colonna = QString::number(Numero) + std::array{u"Med"_s, u"Min"_s, u"Max"_s}[i];
            const qint64 Avuta = InCentesimi(Riga.Value(Colonna));
            if (Avuta != Attese[i])
                Diverse += u"%1 %2: %3 invece di %4"_s.arg(Dove, Colonna).arg(Avuta).arg(Attese[i]);
            const QString Cella = Dove + u'/' + Colonna;
            if (Viste.contains(Cella))
                Diverse += Cella + u" due volte"_s;
            Viste.insert(Cella);
        }
    }

    QSet<QString> Viste;
    QStringList Diverse;
};

/// Cells of a catalogue that hold an amount, the free item left out.
int CellePiene(const Database& Base, const QString& Tabella)
{
    Recordset Righe = Base.OpenRecordset(u"SELECT * FROM %1 WHERE NVoce<>'999'"_s.arg(Tabella));
    QStringList Colonne;
    for (const Campo& Cella : Base.Campi(Tabella))
        if (Cella.Name[0].isDigit())
            Colonne += Cella.Name;
    int Piene = 0;
    for (; !Righe.Eof(); Righe.MoveNext())
        for (const QString& Colonna : Colonne)
            Piene += Righe.Value(Colonna).isValid() ? 1 : 0;
    return Piene;
}

}  // namespace

class TestTariffa55 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void ogniCifraCivile();
    void ogniCifraPenale();
    void ogniCifraStragiudiziale();
    void quoteStragiudiziali_data();
    void quoteStragiudiziali();
    void esempioPubblicato();
    void senzaImporto_data();
    void senzaImporto();
    void scaglioni();
    void uffici();

private:
    [[nodiscard]] Recordset Riga(const QString& Sql) const { return Base.OpenRecordset(Sql); }
    [[nodiscard]] QStringList Colonna(const QString& Sql, const QString& Nome) const
    {
        QStringList Valori;
        for (Recordset Righe = Riga(Sql); !Righe.Eof(); Righe.MoveNext())
            Valori += Righe.Value(Nome).toString();
        return Valori;
    }

    Database Base;
};
PROVA(TestTariffa55);

void TestTariffa55::initTestCase()
{
    const QString Uscita = NuovaCartella();
    QString Detto;
    QTextStream Errori(&Detto);
    QCOMPARE(CreaDati({SorgenteDiProva(u"dati/"_s), Uscita}, Errori), 0);
    Base = OpenDatabase(Uscita + u"parcelle55.mdb"_s, true);
    QCOMPARE(Fatti().size(), 549);
}

// ---- Every figure --------------------------------------------------------------------------------

void TestTariffa55::ogniCifraCivile()
{
    Celle Confronto;
    QHash<QString, QHash<int, qint64>> Medi;  // by office and phase
    QHash<QString, Recordset> Righe;
    int Usati = 0;
    for (const Fatto& Figura : Fatti()) {
        const auto Tabella = std::ranges::find_if(Civili(), [&](const TabellaCivile& Candidata) {
            return Figura.Tabella == QLatin1String(Candidata.Numero);
        });
        if (Tabella == Civili().end())
            continue;
        ++Usati;
        const QString Voce = Tabella->Voce.isEmpty() ? Figura.Fase : Tabella->Voce;
        for (const int Ufficio : Tabella->Uffici) {
            const QString Dove = u"%1 %2"_s.arg(Ufficio).arg(Voce);
            if (!Righe.contains(Dove)) {
                Righe[Dove] =
                    Riga(u"SELECT * FROM OnorariCiv WHERE IDAutor=%1 AND DescrOno=%2"_s.arg(Ufficio).arg(
                        Apice(Voce)));
                QVERIFY2(Righe[Dove].RecordCount() == 1, qPrintable(Dove));
            }
            for (const Gradone& Gradino : DelleTabelle)
                if (Gradino.Fino > Figura.Da && Gradino.Fino <= Figura.A)
                    Medi[Dove][Gradino.Numero] = Figura.Centesimi;
        }
    }
    for (auto [Dove, Importi] : Medi.asKeyValueRange()) {
        for (const auto& [Da, A] : Composti)
            if (Importi.contains(Da))
                Importi[A] = Importi[Da] * 13 / 10 + (Importi[Da] * 13 % 10 >= 5 ? 1 : 0);
        for (const auto& [Da, A] : SenzaValore)
            if (Importi.contains(Da))
                Importi[A] = Importi[Da];
        for (const auto& [Numero, Medio] : Importi.asKeyValueRange())
            Confronto.Confronta(Righe[Dove], Dove, Numero, Medio);
    }
    QCOMPARE(Confronto.Diverse, QStringList());
    QCOMPARE(Confronto.Viste.size(), CellePiene(Base, u"OnorariCiv"_s));
    QCOMPARE(Usati, 460);
}

void TestTariffa55::ogniCifraPenale()
{
    Celle Confronto;
    int Usati = 0;
    for (const Fatto& Figura : Fatti()) {
        if (Figura.Tabella != u"15")
            continue;
        ++Usati;
        const QString Titolo = Figura.Titolo.section(u" - "_s, 1);
        const auto Parte = std::ranges::find_if(Penali(), [&](const PartePenale& Candidata) {
            return Titolo == QString::fromUtf8(Candidata.Titolo);
        });
        QVERIFY2(Parte != Penali().end(), qPrintable(Titolo));
        const Recordset Voce = Riga(u"SELECT * FROM OnorariPen WHERE DescrOno=%1"_s.arg(Apice(Figura.Fase)));
        QVERIFY2(Voce.RecordCount() == 1, qPrintable(Figura.Fase));
        for (const int Ufficio : Parte->Uffici)
            Confronto.Confronta(Voce, Figura.Fase, Ufficio, Figura.Centesimi);
    }
    QCOMPARE(Confronto.Diverse, QStringList());
    QCOMPARE(Confronto.Viste.size(), CellePiene(Base, u"OnorariPen"_s));
    QCOMPARE(Usati, 53);
}

void TestTariffa55::ogniCifraStragiudiziale()
{
    const QHash<QString, QString> Voci{
        {u"25 Compenso"_s, u"Assistenza stragiudiziale"_s},
        {u"25-bis Fase della attivazione"_s, u"Mediazione o negoziazione: fase dell'attivazione"_s},
        {u"25-bis Fase di negoziazione"_s, u"Mediazione o negoziazione: fase di negoziazione"_s},
        {u"25-bis Conciliazione"_s, u"Mediazione o negoziazione: conciliazione"_s},
    };
    int Confrontate = 0;
    QStringList Diverse;
    for (const Fatto& Figura : Fatti()) {
        const QString Voce = Voci.value(Figura.Tabella + u' ' + Figura.Fase);
        if (Voce.isEmpty() || Figura.Unita != u"euro")
            continue;
        const Recordset Riga = this->Riga(u"SELECT * FROM OnorariStra WHERE DescrOno=%1"_s.arg(Apice(Voce)));
        QCOMPARE(Riga.RecordCount(), 1);
        const auto Gradino = std::ranges::find(DelleTabelle, Figura.A, &Gradone::Fino);
        QVERIFY(Gradino != DelleTabelle.end());
        const auto Attese = MedioMinimoMassimo(Figura.Centesimi);
        for (const auto& [Estremo, Attesa] :
             {std::pair{u"Min"_s, Attese[1]}, std::pair{u"Max"_s, Attese[2]}}) {
            const QString Testo = Riga.Value(QString::number(Gradino->Numero) + Estremo).toString();
            bool Numero = false;
            if (std::llround(Testo.toDouble(&Numero) * 100) != Attesa || !Numero)
                Diverse += u"%1 %2%3: %4"_s.arg(Voce).arg(Gradino->Numero).arg(Estremo, Testo);
            ++Confrontate;
        }
        QVERIFY(!Riga.Value(QString::number(Gradino->Numero) + u"Med"_s).isValid());
    }
    QCOMPARE(Diverse, QStringList());
    QCOMPARE(Confrontate, 24 * 2);
    // Beside these: twelve brackets of the share of the value and eighteen of the hour.
    QCOMPARE(CellePiene(Base, u"OnorariStra"_s), 24 * 2 + 12 * 2 + 18 * 2);
}

void TestTariffa55::quoteStragiudiziali_data()
{
    QTest::addColumn<double>("Valore");
    QTest::addColumn<int>("Scaglione");

    int Scaglione = 7;
    for (const Fatto& Figura : Fatti()) {
        if (Figura.Unita != u"percento_del_valore")
            continue;
        const double Fino = Figura.Aperto ? 100'000'000.0 : Figura.A;
        for (const double Valore : {Figura.Da, (Figura.Da + Fino) / 2, Fino})
            QTest::addRow("%.2f", Valore) << Valore << Scaglione;
        ++Scaglione;
    }
    QCOMPARE(Scaglione, 19);
}

/// Each slice of the value beyond 520,000 takes its own percentage, on top of what 520,000 are worth.
void TestTariffa55::quoteStragiudiziali()
{
    QFETCH(double, Valore);
    QFETCH(int, Scaglione);
    double Medio = 0;
    for (const Fatto& Figura : Fatti()) {
        if (Figura.Tabella != u"25")
            continue;
        if (Figura.Unita == u"euro" && Figura.A == 520000.0)
            Medio += double(Figura.Centesimi) / 100;
        const double Sotto = std::floor(Figura.Da);
        if (Figura.Unita != u"euro" && Valore > Sotto)
            Medio += (std::min(Valore, Figura.Aperto ? Valore : Figura.A) - Sotto) *
                     double(Figura.Centesimi) / 10000;
    }
    const Recordset Voce = Riga(u"SELECT * FROM OnorariStra WHERE IDOno=501"_s);
    const auto Formula = [&](const QString& Estremo) {
        int Codice = -1;
        const double Dato = ValutaEspressione(FormulaCatalogo(Voce, Scaglione, Estremo), Valore, Codice);
        return Codice == 0 ? Dato : -1.0;
    };
    constexpr double MezzoCentesimo = 0.005;
    QVERIFY2(std::abs(Formula(u"Min"_s) - Medio * 0.5) < MezzoCentesimo, qPrintable(QString::number(Medio)));
    QVERIFY2(std::abs(Formula(u"Max"_s) - Medio * 1.5) < MezzoCentesimo, qPrintable(QString::number(Medio)));
}

/// The steps beyond 520,000 euro as they were published for the study of an ordinary case.
void TestTariffa55::esempioPubblicato()
{
    const Recordset Studio = Riga(u"SELECT * FROM OnorariCiv WHERE IDAutor=102 AND CodOno='301'"_s);
    const std::pair<int, double> Gradini[] = {{6, 3544.0}, {7, 4607.2}, {9, 5989.36}, {10, 7786.17}};
    for (const auto& [Numero, Medio] : Gradini)
        QCOMPARE(Studio.Value(QString::number(Numero) + u"Med"_s).toDouble(), Medio);
    // From there on each step starts from the cents of the one before.
    QCOMPARE(Studio.Value(u"11Med"_s).toDouble(), 10122.02);
    QCOMPARE(Studio.Value(u"12Med"_s).toDouble(), 13158.63);
    QCOMPARE(Studio.Value(u"10Min"_s).toDouble(), 3893.09);
    QCOMPARE(Studio.Value(u"10Max"_s).toDouble(), 11679.26);
}

// ---- What has no amount --------------------------------------------------------------------------

void TestTariffa55::senzaImporto_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<QString>("Voce");
    QTest::addColumn<QString>("Colonne");

    QTest::newRow("giudice di pace oltre 26.000")
        << u"OnorariCiv"_s << u"IDAutor=101 AND CodOno='301'"_s << u"4 5 6 7 8 9 10 11 12 13 14"_s;
    QTest::newRow("indagini difensive e convalida senza introduttiva")
        << u"OnorariPen"_s << u"IDOno=402"_s << u"133 134"_s;
    QTest::newRow("cautelari, magistrato di sorveglianza e cassazione senza istruttoria")
        << u"OnorariPen"_s << u"IDOno=403"_s << u"135 136 142 145"_s;
    QTest::newRow("indagini difensive senza decisionale") << u"OnorariPen"_s << u"IDOno=404"_s << u"133"_s;
    QTest::newRow("ovunque lo studio") << u"OnorariPen"_s << u"IDOno=401"_s << QString();
    QTest::newRow("mediazione oltre 520.000")
        << u"OnorariStra"_s << u"IDOno=503"_s << u"7 8 9 10 11 12 13 14 15 16 17 18"_s;
    QTest::newRow("stragiudiziale senza limite") << u"OnorariStra"_s << u"IDOno=501"_s << QString();
}

void TestTariffa55::senzaImporto()
{
    QFETCH(QString, Tabella);
    QFETCH(QString, Voce);
    const Recordset Righe = Riga(u"SELECT * FROM %1 WHERE %2"_s.arg(Tabella, Voce));
    QCOMPARE(Righe.RecordCount(), 1);
    QStringList Vuote;
    for (const Campo& Cella : Base.Campi(Tabella))
        if (Cella.Name.endsWith(u"Min") && !Righe.Value(Cella.Name).isValid())
            Vuote += Cella.Name.chopped(3);
    std::ranges::sort(Vuote, [&](const QString& A, const QString& B) { return A.toInt() < B.toInt(); });
    QTEST(Vuote.join(u' '), "Colonne");
}

// ---- Lists ---------------------------------------------------------------------------------------

void TestTariffa55::scaglioni()
{
    QStringList Avuti;
    for (Recordset Righe = Riga(u"SELECT * FROM Scaglioni WHERE Materia='C'"_s); !Righe.Eof();
         Righe.MoveNext()) {
        Avuti += u"%1 %2 %3"_s.arg(Righe.Value(u"NumSca"_s).toInt())
                     .arg(Righe.Value(u"DaVal"_s).toDouble(), 0, 'f', 2)
                     .arg(Righe.Value(u"AVal"_s).toDouble(), 0, 'f', 2);
        QVERIFY(!Righe.Value(u"RicValore"_s).toBool());
    }
    QCOMPARE(Avuti, (QStringList{u"1 0.01 1100.00"_s, u"2 1100.01 5200.00"_s, u"3 5200.01 26000.00"_s,
                                 u"4 26000.01 52000.00"_s, u"5 52000.01 260000.00"_s,
                                 u"6 260000.01 520000.00"_s, u"7 520000.01 1000000.00"_s,
                                 u"9 1000000.01 2000000.00"_s, u"10 2000000.01 4000000.00"_s,
                                 u"11 4000000.01 8000000.00"_s, u"12 8000000.01 16000000.00"_s,
                                 u"8 0.00 0.00"_s, u"13 0.00 0.00"_s, u"14 0.00 0.00"_s}));
    QCOMPARE(Colonna(u"SELECT DesVal FROM Scaglioni WHERE Materia='C' AND AVal=0"_s, u"DesVal"_s),
             (QStringList{u"Valore Indeterminato (26.000 - 52.000)"_s,
                          u"Valore Indeterminato (52.000 - 260.000)"_s,
                          u"Valore Indeterminato di particolare importanza (fino a 520.000)"_s}));
    const QStringList Limiti = Colonna(u"SELECT AVal FROM Scaglioni WHERE Materia='S'"_s, u"AVal"_s);
    QCOMPARE(Limiti.size(), 18);
    QCOMPARE(Limiti[6].toDouble(), 2e6);
    QCOMPARE(Limiti[16].toDouble(), 22e6);
    QCOMPARE(Riga(u"SELECT * FROM Scaglioni WHERE Materia='S' AND RicValore=0"_s).RecordCount(), 0);
}

void TestTariffa55::uffici()
{
    const auto Quanti = [&](const QString& Categ) {
        return Riga(u"SELECT * FROM Autorità WHERE TipoAut='%1'"_s.arg(Categ)).RecordCount();
    };
    QCOMPARE(Quanti(u"CIV"_s), 26);
    QCOMPARE(Quanti(u"PEN"_s), 18);
    QCOMPARE(Quanti(u"STR"_s), 3);
    // Each table has its office, each office its table.
    QSet<int> Serviti;
    for (const TabellaCivile& Tabella : Civili())
        for (const int Ufficio : Tabella.Uffici)
            Serviti.insert(Ufficio);
    for (const PartePenale& Parte : Penali())
        for (const int Ufficio : Parte.Uffici)
            Serviti.insert(Ufficio);
    for (const QString& Numero : Colonna(u"SELECT IDAut FROM Autorità WHERE TipoAut<>'STR'"_s, u"IDAut"_s))
        QVERIFY2(Serviti.remove(Numero.toInt()), qPrintable(Numero));
    QVERIFY(Serviti.isEmpty());
}

#include "TestTariffa55.moc"
