// What parcelle55.mdb has beside the amounts, held against the decree's articles as tests/casi/regole55.csv
// copies them: the variations, the parties assisted, what corresponds to the tariff before.
#include "supporto/prova.h"

#include "creadati/creadati.h"
#include "creadati/tabellatesto.h"
#include "platform/database/database.h"

#include <QRegularExpression>
#include <QSet>

#include <cmath>

using namespace Qt::StringLiterals;

class TestVariazioni55 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void ogniVariazione();
    void variazioniAlPosto_data();
    void variazioniAlPosto();
    void partiAssistite();
    void corrispondenze();
    void compensoATempo();

private:
    [[nodiscard]] Recordset Riga(const QString& Sql) const { return Base.OpenRecordset(Sql); }

    Database Base;
    Database Prima;
};
PROVA(TestVariazioni55);

void TestVariazioni55::initTestCase()
{
    const QString Uscita = NuovaCartella();
    QString Detto;
    QTextStream Errori(&Detto);
    QCOMPARE(CreaDati({SorgenteDiProva(u"dati/"_s), Uscita}, Errori), 0);
    Base = OpenDatabase(Uscita + u"parcelle55.mdb"_s, true);
    Prima = OpenDatabase(Uscita + u"parcelle.mdb"_s, true);
}

/// Which option stands for which rule of the decree; by article and by words of the rule.
void TestVariazioni55::ogniVariazione()
{
    struct Regola
    {
        const char* Articolo;
        const char* Parole;
        QList<int> Opzioni;
    };
    const QList<Regola> Regole{
        {"4 c.1-bis", "telematici", {101}},
        {"4 c.6", "conciliazione", {102}},
        {"4 c.3", "entrambi i coniugi", {103}},
        {"4 c.8", "manifestamente fondate", {104}},
        {"4 c.10", "140-bis", {105}},
        {"4 c.10-bis", "motivi aggiunti", {106}},
        {"4 c.10-bis", "ricorso incidentale", {107}},
        {"4 c.10-quater", "378", {108}},
        {"4 c.4", "senza distinte", {111}},
        {"4 c.9", "art. 96", {112}},
        {"4 c.9", "inammissibile", {113}},
        {"4 c.10-quinquies", "lavoro dipendente", {114}},
        {"DPR 115/2002 art.130", "civile", {115}},
        {"9 - 17 - 24", "praticante", {116, 124, 132}},
        {"12 c.3-bis", "indagini difensive", {121}},
        {"12 c.2", "senza distinte", {122}},
        {"DPR 115/2002 art.106-bis", "penale", {123}},
        {"20 c.1-bis", "accordo", {131}},
    };
    const TabellaTesto Tabella(FileDiProva(u"casi/regole55.csv"_s),
                               {u"articolo"_s, u"regola"_s, u"valore"_s});
    QSet<int> Provate;
    for (const Regola& Prevista : Regole) {
        QString Valore;
        for (int Riga = 0; Riga < Tabella.Righe(); ++Riga)
            if (Tabella.Testo(Riga, u"articolo"_s) == QLatin1String(Prevista.Articolo) &&
                Tabella.Testo(Riga, u"regola"_s).contains(QLatin1String(Prevista.Parole)))
                Valore = Tabella.Testo(Riga, u"valore"_s);
        QVERIFY2(!Valore.isEmpty(), Prevista.Articolo);

        // "fino a" leaves a choice from one in the hundred on; else the measure is one.
        const bool FinoA = Valore.startsWith(u"fino a "_s);
        const QString Misura = FinoA ? Valore.mid(7) : Valore;
        double Percento = QString(Misura).remove(u'%').toDouble();
        if (Misura.endsWith(u"1/3"))
            Percento = Misura.startsWith(u'-') ? -100.0 / 3 : 100.0 / 3;
        else if (Misura == u"x3")
            Percento = 200;
        else if (Misura.endsWith(u"x 1.25"))
            Percento = 25;
        else if (QLatin1String(Prevista.Articolo) == "9 - 17 - 24"_L1)
            Percento = Percento - 100;  // half of what is due
        QVERIFY2(Percento != 0, qPrintable(Valore));
        const int Proposto = int(Percento);
        const int Ultimo = FinoA ? (Proposto > 0 ? 1 : -1) : Proposto;

        for (const int Opzione : Prevista.Opzioni) {
            const Recordset Voce = Riga(u"SELECT * FROM Variazioni WHERE IDVar=%1"_s.arg(Opzione));
            QVERIFY2(Voce.RecordCount() == 1, qPrintable(QString::number(Opzione)));
            QCOMPARE(Voce.Value(u"Limiti"_s).toString(), u"%1;%2"_s.arg(Proposto).arg(Ultimo));
            const double Esatto = Voce.Value(u"Esatto"_s).toDouble();
            QVERIFY(Percento == Proposto ? !Voce.Value(u"Esatto"_s).isValid()
                                         : std::abs(Esatto - std::abs(Percento)) < 1e-9);
            const QString Frase = Voce.Value(u"Frase"_s).toString();
            QVERIFY2(Frase.startsWith(Proposto > 0 ? u"Aumento del %1% "_s : u"Riduzione del %1% "_s),
                     qPrintable(Frase));
            QVERIFY2(Frase.contains(Voce.Value(u"Articolo"_s).toString()), qPrintable(Frase));
            Provate.insert(Opzione);
        }
    }
    QCOMPARE(Provate.size(), Riga(u"Variazioni"_s).RecordCount());
}

void TestVariazioni55::variazioniAlPosto_data()
{
    QTest::addColumn<int>("Opzione");
    QTest::addColumn<QString>("Voci");
    QTest::addColumn<QString>("Uffici");

    QTest::newRow("la conciliazione tocca la decisione") << 102 << u",304,"_s << u"*"_s;
    QTest::newRow("i motivi aggiunti stanno davanti al TAR") << 106 << u",302,"_s << u",121,122,"_s;
    QTest::newRow("il ricorso incidentale anche") << 107 << u",302,"_s << u",121,122,"_s;
    QTest::newRow("la memoria è della cassazione") << 108 << u",304,"_s << u",113,"_s;
    QTest::newRow("il passivo ha la sua tabella") << 114 << u"*"_s << u",120,"_s;
    QTest::newRow("le indagini sono difensive") << 121 << u"*"_s << u",133,"_s;
    QTest::newRow("l'accordo lascia ferma la conciliazione") << 131 << u",502,503,"_s << u"*"_s;
    QTest::newRow("l'articolo 96 tocca tutto") << 112 << u"*"_s << u"*"_s;
}

void TestVariazioni55::variazioniAlPosto()
{
    QFETCH(int, Opzione);
    const Recordset Voce = Riga(u"SELECT * FROM Variazioni WHERE IDVar=%1"_s.arg(Opzione));
    QTEST(Voce.Value(u"Voci"_s).toString(), "Voci");
    QTEST(Voce.Value(u"Uffici"_s).toString(), "Uffici");
}

void TestVariazioni55::partiAssistite()
{
    const TabellaTesto Regole(FileDiProva(u"casi/regole55.csv"_s), {u"articolo"_s, u"regola"_s, u"valore"_s});
    static const QRegularExpression Parti(u"\\+([0-9]+)% (?:per soggetto )?dal ([0-9]+) al ([0-9]+)"_s);
    QStringList Attese;
    for (int Riga = 0; Riga < Regole.Righe(); ++Riga) {
        const QString Articolo = Regole.Testo(Riga, u"articolo"_s);
        const QString Categ = Articolo == u"4 c.2" ? u"CIV"_s : Articolo == u"12 c.2" ? u"PEN"_s : QString();
        for (auto Trovata = Parti.globalMatch(Regole.Testo(Riga, u"valore"_s));
             !Categ.isEmpty() && Trovata.hasNext();) {
            const QRegularExpressionMatch Fascia = Trovata.next();
            Attese += u"%1 %2 %3 %4"_s.arg(Categ, Fascia.captured(2), Fascia.captured(3), Fascia.captured(1));
        }
    }
    QCOMPARE(Attese.size(), 4);
    QStringList Avute;
    for (Recordset Righe = Riga(u"PartiAssistite"_s); !Righe.Eof(); Righe.MoveNext())
        Avute += u"%1 %2 %3 %4"_s.arg(Righe.Value(u"Categ"_s).toString(), Righe.Value(u"Da"_s).toString(),
                                      Righe.Value(u"A"_s).toString(), Righe.Value(u"Perc"_s).toString());
    QCOMPARE(Avute, Attese);
}

/// Both ends of a row are there, and what one decree has once leads to one thing of the other.
void TestVariazioni55::corrispondenze()
{
    const auto Esiste = [&](const Database& Archivio, bool Ufficio, const QString& Categ, int Codice) {
        const QString Sql =
            Ufficio ? u"SELECT * FROM Autorità WHERE TipoAut='%1' AND IDAut=%2"_s.arg(Categ).arg(Codice)
            : Categ == u"CIV" ? u"SELECT * FROM OnorariCiv WHERE CodOno='%1'"_s.arg(Codice)
            : Categ == u"PEN" ? u"SELECT * FROM OnorariPen WHERE IDOno=%1"_s.arg(Codice)
                              : u"SELECT * FROM OnorariStra WHERE IDOno=%1"_s.arg(Codice);
        return Archivio.OpenRecordset(Sql).RecordCount() > 0;
    };
    QHash<QString, QString> Andata;
    for (Recordset Righe = Riga(u"Corrispondenze"_s); !Righe.Eof(); Righe.MoveNext()) {
        const bool Ufficio = Righe.Value(u"Genere"_s).toString() == u"A";
        const QString Categ = Righe.Value(u"Categ"_s).toString();
        const int Vecchio = Righe.Value(u"Codice140"_s).toInt();
        const int Nuovo = Righe.Value(u"Codice"_s).toInt();
        QVERIFY2(Esiste(Prima, Ufficio, Categ, Vecchio), qPrintable(QString::number(Vecchio)));
        QVERIFY2(Esiste(Base, Ufficio, Categ, Nuovo), qPrintable(QString::number(Nuovo)));
        const QString Chiave = u"%1 %2 %3"_s.arg(Ufficio).arg(Categ).arg(Vecchio);
        if (!Andata.contains(Chiave))
            Andata.insert(Chiave, QString::number(Nuovo));
    }
    QCOMPARE(Andata.value(u"1 CIV 2"_s), u"102"_s);
    QCOMPARE(Andata.value(u"1 CIV 11"_s), u"114"_s);
    QCOMPARE(Andata.value(u"1 CIV 14"_s), u"108"_s);
    QCOMPARE(Andata.value(u"1 PEN 22"_s), u"137"_s);
    QCOMPARE(Andata.value(u"0 CIV 4"_s), u"304"_s);
    QCOMPARE(Andata.value(u"0 CIV 20"_s), u"311"_s);
    QCOMPARE(Andata.value(u"0 STR 999"_s), u"599"_s);
}

/// The hour that is agreed upon has the two amounts of its article, at any value.
void TestVariazioni55::compensoATempo()
{
    const TabellaTesto Regole(FileDiProva(u"casi/regole55.csv"_s), {u"articolo"_s, u"regola"_s, u"valore"_s});
    static const QRegularExpression Misura(u"\\Ada ([0-9]+) a ([0-9]+) euro\\z"_s);
    QStringList Attesi;
    for (int Riga = 0; Riga < Regole.Righe(); ++Riga)
        if (Regole.Testo(Riga, u"articolo"_s) == u"22-bis c.1")
            Attesi = Misura.match(Regole.Testo(Riga, u"valore"_s)).capturedTexts().mid(1);
    QCOMPARE(Attesi.size(), 2);
    const Recordset Ora = Riga(u"SELECT * FROM OnorariStra WHERE IDOno=505"_s);
    for (int Scaglione = 1; Scaglione <= 18; ++Scaglione) {
        QCOMPARE(Ora.Value(QString::number(Scaglione) + u"Min"_s).toString(), Attesi[0]);
        QCOMPARE(Ora.Value(QString::number(Scaglione) + u"Max"_s).toString(), Attesi[1]);
    }
    QVERIFY(!Ora.Value(u"QtaOno"_s).toString().isEmpty());
}

#include "TestVariazioni55.moc"
