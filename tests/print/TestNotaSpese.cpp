#include "supporto/prova.h"

#include "documenti.h"

using namespace Qt::StringLiterals;

class TestNotaSpese : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void intestazione_data();
    void intestazione();
    void parti_data();
    void parti();
    void titoliAlCentroCorpoASinistra();
    void gliAccontiNonEsistono();
    void chiusura_data();
    void chiusura();
    void ilTotaleEOnorariESpese();
    void firma();
};
PROVA(TestNotaSpese);

namespace {

using campioni::TestiBlocchi;
using documenti::Completa;

Documento NotaSpese(const Parcella& Nota)
{
    return documenti::Composto(Nota, StampaNotaGiudiziale);
}

/// The summary's rows as "label|amount".
QStringList Riepilogo(const Documento& Doc)
{
    const Tabella Ultima = campioni::TabellaDi(Doc, campioni::NumeroTabelle(Doc) - 1);
    QStringList Righe;
    for (int Riga = 0; Riga < static_cast<int>(Ultima.Righe.size()); ++Riga)
        Righe += campioni::TestiRiga(Ultima, Riga).join(u'|');
    return Righe;
}

}  // namespace

void TestNotaSpese::init()
{
    campioni::ImpostaStudio();
}

void TestNotaSpese::intestazione_data()
{
    QTest::addColumn<QString>("Autorita");
    QTest::addColumn<QString>("Sezione");
    QTest::addColumn<QString>("Ruolo");
    QTest::addColumn<QString>("Giudice");
    QTest::addColumn<QStringList>("Righe");
    const QString Titolo = u"NOTA SPESE GIUDIZIALE"_s;
    QTest::newRow("tutto") << u"Tribunale di Forlì"_s << u"v civile"_s << u"12/2013"_s << u"B. Conti"_s
                           << QStringList{u"TRIBUNALE DI FORLÌ - SEZ. V CIVILE"_s,
                                          u"Giudice: dott. B. Conti     Rgn. 12/2013"_s, Titolo};
    QTest::newRow("senza sezione né giudice")
        << u"Tribunale di Forlì"_s << QString() << u"12/2013"_s << QString()
        << QStringList{u"TRIBUNALE DI FORLÌ"_s, u"     Rgn. 12/2013"_s, Titolo};
    QTest::newRow("senza ruolo") << u"Tribunale di Forlì"_s << QString() << QString() << u"B. Conti"_s
                                 << QStringList{u"TRIBUNALE DI FORLÌ"_s, u"Giudice: dott. B. Conti"_s,
                                                Titolo};
    QTest::newRow("niente") << QString() << QString() << QString() << QString()
                            << QStringList{QString(), QString(), Titolo};
}

void TestNotaSpese::intestazione()
{
    QFETCH(QString, Autorita);
    QFETCH(QString, Sezione);
    QFETCH(QString, Ruolo);
    QFETCH(QString, Giudice);
    Parcella Nota = campioni::Civile();
    Nota.txtDatiPar[DatoDepAutorita] = Autorita;
    Nota.txtDatiPar[DatoDepSezione] = Sezione;
    Nota.txtDatiPar[DatoDepRuolo] = Ruolo;
    Nota.txtDatiPar[DatoDepGiudice] = Giudice;
    const QStringList Testi = TestiBlocchi(NotaSpese(Nota));  // it begins here: no office head
    QTEST(Testi.mid(0, 3), "Righe");
}

void TestNotaSpese::parti_data()
{
    QTest::addColumn<QString>("Cliente");
    QTest::addColumn<QString>("Controparte");
    QTest::addColumn<QString>("Categoria");
    QTest::addColumn<QStringList>("Righe");
    const QString Titolo = u"NOTA SPESE GIUDIZIALE"_s;
    const QString Valore = u"Valore: 30.000,00 €"_s;
    QTest::newRow("tutti e due") << u"Rossi"_s << u"Bianchi"_s << u"CIV"_s
                                 << QStringList{Titolo, u"per Rossi"_s, u"contro"_s, u"Bianchi"_s,
                                                Valore, QString(),      u"#"_s};
    QTest::newRow("senza cliente") << QString() << u"Bianchi"_s << u"CIV"_s
                                   << QStringList{Titolo, u"contro"_s, u"Bianchi"_s,
                                                  Valore, QString(),   u"#"_s};
    QTest::newRow("senza controparte") << u"Rossi"_s << QString() << u"CIV"_s
                                       << QStringList{Titolo, u"per Rossi"_s, Valore, QString(), u"#"_s};
    QTest::newRow("penale: senza valore")
        << u"Rossi"_s << QString() << u"PEN"_s << QStringList{Titolo, u"per Rossi"_s, QString(), u"#"_s};
}

void TestNotaSpese::parti()
{
    QFETCH(QString, Cliente);
    QFETCH(QString, Controparte);
    QFETCH(QString, Categoria);
    QFETCH(QStringList, Righe);
    Parcella Nota = Completa(campioni::Civile());
    Nota.CodCateg = Categoria;
    Nota.txtDatiStaCli.Testo = Cliente;
    Nota.txtDatiStaControp.Testo = Controparte;
    QCOMPARE(TestiBlocchi(NotaSpese(Nota)).mid(2, Righe.size()), Righe);
}

void TestNotaSpese::titoliAlCentroCorpoASinistra()
{
    const Documento Doc = NotaSpese(Completa(campioni::Civile()));
    for (std::size_t Riga = 0; Riga < 7; ++Riga) {
        const auto& Titolo = std::get<Paragrafo>(Doc.Blocchi[Riga]);
        QCOMPARE(Titolo.Allinea, Allineamento::Centro);
        QCOMPARE(Titolo.Tratti[0].Font, (Carattere{u"Times New Roman"_s, 12.0}));
    }
    QCOMPARE(std::get<Paragrafo>(Doc.Blocchi.back()).Allinea, Allineamento::Sinistra);
}

void TestNotaSpese::gliAccontiNonEsistono()
{
    Parcella Nota = Completa(campioni::Stragiudiziale());
    const Documento Doc = NotaSpese(Nota);
    QCOMPARE(campioni::NumeroTabelle(Doc), 3);  // fees, expenses, summary
    QCOMPARE(Riepilogo(Doc).filter(u"Acconti"_s).size(), 0);
    QVERIFY(Riepilogo(Doc).contains(u"TOTALE EURO|5.708,25"_s));  // nothing is taken away
    QVERIFY(!documenti::ScegliTipo(Nota, StampaNotaGiudiziale).chkAcconti.Abilitata);
}

void TestNotaSpese::chiusura_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<bool>("Chiusa");
    QTest::newRow("nessuna tassa") << -1 << true;
    QTest::newRow("iva") << int(Imposta::IVA) << false;
    QTest::newRow("cassa previdenza") << int(Imposta::CP) << false;
    QTest::newRow("spese generali") << int(Imposta::SpeseGen) << false;
}

void TestNotaSpese::chiusura()
{
    QFETCH(int, Quale);
    Parcella Nota = documenti::ScegliTipo(Completa(campioni::Civile()), StampaNotaGiudiziale);
    if (Quale >= 0)
        (void)ClicImposta(Nota, Imposta(Quale), true);
    const QStringList Righe = Riepilogo(documenti::ComeSta(Nota, StampaNotaGiudiziale));
    QTEST(Righe.last().startsWith(u"Oltre a iva, c.p. avv., come per legge"_s), "Chiusa");
}

void TestNotaSpese::ilTotaleEOnorariESpese()
{
    const QStringList Righe = Riepilogo(NotaSpese(Completa(campioni::Penale())));
    QCOMPARE(Righe,
             (QStringList{u"RIEPILOGO: |"_s, u"Onorari|2.610,00"_s, u"Spese imponibili|25,50"_s,
                          u"|___________"_s, u"|2.635,50"_s, u"Spese esenti art. 15 d.p.r. 633/72|16,00"_s,
                          u"|___________"_s, u"TOTALE EURO|2.651,50"_s, u"(duemilaseicentocinquantuno/50)|"_s,
                          u"|"_s, u"Oltre a iva, c.p. avv., come per legge|"_s}));
}

void TestNotaSpese::firma()
{
    const QStringList Firmata = TestiBlocchi(NotaSpese(campioni::Civile()));
    QCOMPARE(Firmata.mid(Firmata.size() - 4),
             (QStringList{u"#"_s, QString(), QString(), QString(65, u' ') + u"Avv. Giulia Neri"_s}));
    sessione::Firma.clear();
    const QStringList Nuda = TestiBlocchi(NotaSpese(campioni::Civile()));
    QCOMPARE(Nuda.mid(Nuda.size() - 2), (QStringList{u"#"_s, QString()}));
}

#include "TestNotaSpese.moc"
