#include "supporto/prova.h"

#include "documenti.h"

using namespace Qt::StringLiterals;

class TestPreventivo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void numeroEData_data();
    void numeroEData();
    void partiEOggetto();
    void firma_data();
    void firma();
    void riserveGiustificateInUnaRiga();
    void accontiEIban();
};
PROVA(TestPreventivo);

namespace {

using campioni::TestiBlocchi;

Documento Preventivo(const Parcella& Nota)
{
    return documenti::Composto(Nota, StampaPreventivo);
}

const QString Massima = u"Preventivo di massima, redatto ai sensi dell'art. 13, comma  5, della legge n. 247 "
                        u"del 31 dicembre 2012, "
                        u"per l'incarico professionale relativo a:"_s;

}  // namespace

void TestPreventivo::init()
{
    campioni::ImpostaStudio();
}

void TestPreventivo::numeroEData_data()
{
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QStringList>("Righe");
    QTest::newRow("numero e data") << u"3"_s << u"15/03/2013"_s
                                   << QStringList{u"Preventivo n. 3 Data 15/03/2013"_s, Massima};
    QTest::newRow("solo numero") << u"3"_s << QString() << QStringList{u"Preventivo n. 3"_s, Massima};
    QTest::newRow("solo data") << QString() << u"15/03/2013"_s << QStringList{u" Data 15/03/2013"_s, Massima};
    QTest::newRow("nessuno dei due: subito la frase")
        << QString() << QString() << QStringList{Massima, u"Oggetto: recupero di un credito commerciale"_s};
}

void TestPreventivo::numeroEData()
{
    QFETCH(QString, Numero);
    QFETCH(QString, Data);
    Parcella Nota = campioni::Civile();
    Nota.txtDatiPar[DatoNumero] = Numero;
    Nota.txtDatiPar[DatoData] = Data;
    const QStringList Testi = TestiBlocchi(Preventivo(Nota));
    QCOMPARE(Testi.value(0), u"#"_s);
    QTEST(Testi.mid(1, 2), "Righe");
}

void TestPreventivo::partiEOggetto()
{
    Parcella Nota = campioni::Civile();
    Nota.txtDatiStaControp.Testo = u"come va stampata"_s;
    QCOMPARE(TestiBlocchi(Preventivo(Nota)).mid(3, 4),
             (QStringList{u"Oggetto: recupero di un credito commerciale"_s,
                          u"Controparte: come va stampata"_s, u"Valore: 30.000,00 €"_s, u"#"_s}));
    Nota.txtControp.Testo.clear();  // it alone decides
    Nota.txtDatiStaOgg.Testo.clear();
    QCOMPARE(TestiBlocchi(Preventivo(Nota)).mid(3, 2), (QStringList{u"Valore: 30.000,00 €"_s, u"#"_s}));
    Nota.CodCateg = u"PEN"_s;
    QCOMPARE(TestiBlocchi(Preventivo(Nota)).mid(3, 2), (QStringList{QString(), u"#"_s}));
}

void TestPreventivo::firma_data()
{
    QTest::addColumn<QString>("Firma");
    QTest::addColumn<QString>("Fine");
    QTest::newRow("dello studio") << u"Avv. Giulia Neri"_s << u"Avv. Giulia Neri"_s;
    QTest::newRow("di due avvocati, sotto di sé")
        << u"Avv. Maria Antonietta De Gregoriis Avv. Giovanni Battista Della Rovere"_s
        << u"Avv. Maria Antonietta De Gregoriis Avv. Giovanni\n"_s + QString(79, u' ') +
               u"Battista Della Rovere"_s;
    QTest::newRow("nessuna") << QString() << u"L'avvocato"_s;
}

void TestPreventivo::firma()
{
    QFETCH(QString, Firma);
    QFETCH(QString, Fine);
    sessione::Firma = Firma;
    const QStringList Testi = TestiBlocchi(Preventivo(campioni::Civile()));
    QCOMPARE(Testi.last().trimmed(), u"Il Cliente"_s + QString(60, u' ') + Fine);
    QCOMPARE(Testi[Testi.size() - 2], u"Data"_s);
}

void TestPreventivo::riserveGiustificateInUnaRiga()
{
    const Documento Doc = Preventivo(campioni::Civile());
    const auto& Riserve = std::get<Paragrafo>(Doc.Blocchi[Doc.Blocchi.size() - 3]);
    QCOMPARE(Riserve.Allinea, Allineamento::Giustificato);
    QVERIFY(Riserve.Testo().startsWith(u"N.B.: il presente preventivo è formulato"_s));
    QVERIFY(Riserve.Testo().contains(u"imprevedibilmente più gravoso. Negli importi del preventivo, se"_s));
    QVERIFY(Riserve.Testo().endsWith(u"a qualsiasi titolo dovuti."_s));
}

void TestPreventivo::accontiEIban()
{
    Parcella Nota = campioni::Stragiudiziale();
    Nota.chkIBAN.Attiva = true;
    const Documento Doc = Preventivo(Nota);
    QCOMPARE(campioni::NumeroTabelle(Doc), 5);  // head, fees, expenses, payments, summary
    QCOMPARE(campioni::TestiRiga(campioni::TabellaDi(Doc, 3), 0).value(0), u"ACCONTI"_s);
    QCOMPARE(TestiBlocchi(Doc).filter(u"IBAN"_s).size(), 0);
}

#include "TestPreventivo.moc"
