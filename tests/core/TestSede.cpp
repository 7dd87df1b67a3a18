// An address in one line, parted as an electronic invoice wants it.
#include "supporto/prova.h"

#include "core/modSede.h"

using namespace Qt::StringLiterals;

class TestSede : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void vie_data();
    void vie();
    void citta_data();
    void citta();
    void interi_data();
    void interi();
};
PROVA(TestSede);

void TestSede::vie_data()
{
    QTest::addColumn<QString>("Intero");
    QTest::addColumn<QString>("Via");
    QTest::addColumn<QString>("Civico");
    const auto Riga = [](const char* Nome, const QString& Intero, const QString& Via, const QString& Civico) {
        QTest::newRow(Nome) << Intero << Via << Civico;
    };
    Riga("comma", u"Via Roma, 12"_s, u"Via Roma"_s, u"12"_s);
    Riga("blank", u"Via Roma 12"_s, u"Via Roma"_s, u"12"_s);
    Riga("letter", u"Via Roma, 12/a"_s, u"Via Roma"_s, u"12/A"_s);
    Riga("letter behind a blank", u"via Roma 12 B"_s, u"via Roma"_s, u"12B"_s);
    Riga("n.", u"Corso Vittorio Emanuele II n. 5"_s, u"Corso Vittorio Emanuele II"_s, u"5"_s);
    Riga("comma and n.", u"Piazza Duomo, n. 1"_s, u"Piazza Duomo"_s, u"1"_s);
    Riga("the number of the street's name", u"Via 4 Novembre"_s, u"Via 4 Novembre"_s, {});
    Riga("both numbers", u"Via 4 Novembre, 27"_s, u"Via 4 Novembre"_s, u"27"_s);
    Riga("without a number", u"Località Fontanelle"_s, u"Località Fontanelle"_s, {});
    Riga("snc", u"Contrada Bosco, s.n.c."_s, u"Contrada Bosco"_s, u"SNC"_s);
    Riga("double number", u"Viale Milano 12/14"_s, u"Viale Milano"_s, u"12/14"_s);
    Riga("blanks", u"  Via   Roma ,12 "_s, u"Via Roma"_s, u"12"_s);
    Riga("what follows the number stays with it", u"Via Roma 12 scala B"_s, u"Via Roma 12 scala B"_s, {});
    Riga("provincial road", u"Strada Provinciale 12"_s, u"Strada Provinciale 12"_s, {});
    Riga("its initials", u"S.P. 12"_s, u"S.P. 12"_s, {});
    Riga("kilometre", u"SS 16, km 5"_s, u"SS 16, km 5"_s, {});
    Riga("house on such a road", u"Strada Provinciale 12, 5"_s, u"Strada Provinciale 12"_s, u"5"_s);
    Riga("a street called by a number", u"Via 12"_s, u"Via 12"_s, {});
    Riga("nothing", {}, {}, {});
}

void TestSede::vie()
{
    QFETCH(QString, Intero);
    const PartiIndirizzo Parti = SpezzaVia(Intero);
    QTEST(Parti.Via, "Via");
    QTEST(Parti.Civico, "Civico");
    QVERIFY(Parti.Cap.isEmpty() && Parti.Comune.isEmpty() && Parti.Prov.isEmpty());
}

void TestSede::citta_data()
{
    QTest::addColumn<QString>("Intera");
    QTest::addColumn<QString>("Cap");
    QTest::addColumn<QString>("Comune");
    QTest::addColumn<QString>("Prov");
    const auto Riga = [](const char* Nome, const QString& Intera, const QString& Cap, const QString& Comune,
                         const QString& Prov) { QTest::newRow(Nome) << Intera << Cap << Comune << Prov; };
    Riga("all", u"20121 Milano (MI)"_s, u"20121"_s, u"Milano"_s, u"MI"_s);
    Riga("hyphen", u"20121 - Milano MI"_s, u"20121"_s, u"Milano"_s, u"MI"_s);
    Riga("small letters between brackets", u"00184 Roma (rm)"_s, u"00184"_s, u"Roma"_s, u"RM"_s);
    Riga("town alone", u"Reggio nell'Emilia"_s, {}, u"Reggio nell'Emilia"_s, {});
    Riga("town and province", u"Forlì, FC"_s, {}, u"Forlì"_s, u"FC"_s);
    Riga("capitals", u"38122 TRENTO"_s, u"38122"_s, u"TRENTO"_s, {});
    Riga("I- before the code", u"I-39100 Bolzano (BZ)"_s, u"39100"_s, u"Bolzano"_s, u"BZ"_s);
    Riga("a word of two small letters stays", u"Cavallino Treporti ve"_s, {}, u"Cavallino Treporti ve"_s, {});
    Riga("nothing", {}, {}, {}, {});
}

void TestSede::citta()
{
    QFETCH(QString, Intera);
    const PartiIndirizzo Parti = SpezzaCitta(Intera);
    QTEST(Parti.Cap, "Cap");
    QTEST(Parti.Comune, "Comune");
    QTEST(Parti.Prov, "Prov");
}

void TestSede::interi_data()
{
    QTest::addColumn<QString>("Indirizzo");
    QTest::addColumn<QString>("Citta");
    QTest::addColumn<QStringList>("Attese");
    QTest::newRow("two lines") << u"Via Roma, 12"_s << u"20121 Milano (MI)"_s
                               << QStringList{u"Via Roma"_s, u"12"_s, u"20121"_s, u"Milano"_s, u"MI"_s};
    QTest::newRow("all in the first")
        << u"Via Roma, 12 - 20121 Milano (MI)"_s << QString()
        << QStringList{u"Via Roma"_s, u"12"_s, u"20121"_s, u"Milano"_s, u"MI"_s};
    QTest::newRow("the second line counts")
        << u"Via Roma, 12 - 20121 Milano (MI)"_s << u"Monza"_s
        << QStringList{u"Via Roma"_s, u"12"_s, u"20121"_s, u"Monza"_s, u"MI"_s};
    QTest::newRow("nothing") << QString() << QString() << QStringList{{}, {}, {}, {}, {}};
}

void TestSede::interi()
{
    QFETCH(QString, Indirizzo);
    QFETCH(QString, Citta);
    const PartiIndirizzo Parti = SpezzaIndirizzo(Indirizzo, Citta);
    QTEST((QStringList{Parti.Via, Parti.Civico, Parti.Cap, Parti.Comune, Parti.Prov}), "Attese");
}

#include "TestSede.moc"
