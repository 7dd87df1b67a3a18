#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "campioni.h"
#include "platform/system/file.h"
#include "print/modStampe.h"
#include "print/writers/scrittoretesto.h"

using namespace Qt::StringLiterals;

class TestPrenotula : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void dorati_data();
    void dorati();
    void dueVolteLoStesso();

    void notaNonProntaNonComponeNulla();
    void senzaComposizioneRestaVuoto_data();
    void senzaComposizioneRestaVuoto();
    void margini_data();
    void margini();
    void rigaDiPagina();
    void sfondo_data();
    void sfondo();
    void ogniComposizioneTornaAllaPrimaPagina();

    void numeroEData_data();
    void numeroEData();
    void laControparteSiMostraComeStampata();
    void valore_data();
    void valore();
    void iban_data();
    void iban();
    void firma();
    void caratteri();
    void testiLiberiGiustificati();
    void statoDelTestoNonPassaAlDocumentoDopo();

    void guastoAMetaLasciaIlDisegnato();
};
PROVA(TestPrenotula);

namespace {

QStringList Righe(const QString& Testo)
{
    return Testo.split(u'\n');
}

QString Dorato(const QString& Nome)
{
    return QString::fromUtf8(LeggiFile(FileDiProva(u"dorati/"_s + Nome + u".txt"_s)));
}

Documento Composto(const Parcella& Nota, int Tipo = StampaPrenotula)
{
    Superficie vp;
    [[maybe_unused]] const bool Riuscito = Anteprima(vp, Nota, Tipo);
    return vp.Contenuto();
}

/// The office without address and tax code, as it stands behind the expectation of the empty note.
void StudioSpoglio()
{
    sessione::StudioIndir.clear();
    sessione::StudioCitta.clear();
    sessione::StudioCodFisc.clear();
    sessione::Firma.clear();
}

}  // namespace

void TestPrenotula::init()
{
    campioni::ImpostaStudio();
}

// ---- whole documents

void TestPrenotula::dorati_data()
{
    QTest::addColumn<Parcella>("Nota");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("ConFirma");
    QTest::addColumn<bool>("Spoglio");

    const auto Aggiungi = [](const char* Nome, Parcella Nota, const QString& Sopra, const QString& Sotto,
                             bool ConFirma = true, bool Spoglio = false) {
        campioni::ImpostaTesti(Nota, Sopra, Sotto);
        for (const int Tipo : {StampaPrenotula, StampaSoloContabile})
            QTest::addRow("%s_%d", Nome, Tipo) << Nota << Tipo << ConFirma << Spoglio;
    };
    Parcella ConIban = campioni::Civile();
    ConIban.chkIBAN.Attiva = true;
    Aggiungi("civile", ConIban,
             u"Con la presente si espongono i compensi maturati per la difesa nella causa promossa contro "
             u"Bianchi S.r.l. avanti il Tribunale di Milano,\r\ncome da preventivo."_s,
             u"Distinti saluti."_s);
    Aggiungi("penale", campioni::Penale(), u"Nota dei compensi."_s, {}, false);
    Aggiungi("stragiudiziale", campioni::Stragiudiziale(), {}, u"Salvo errori od omissioni."_s);
    Aggiungi("associata_prima", campioni::ConAssociata(true), u"Testo superiore"_s, u"Testo inferiore"_s);
    Aggiungi("associata_dopo", campioni::ConAssociata(false), u"Testo superiore"_s, u"Testo inferiore"_s);
    Aggiungi("vuota", campioni::Vuota(), {}, {}, false, true);
}

void TestPrenotula::dorati()
{
    QFETCH(Parcella, Nota);
    QFETCH(int, Tipo);
    QFETCH(bool, ConFirma);
    QFETCH(bool, Spoglio);
    if (!ConFirma)
        sessione::Firma.clear();
    if (Spoglio)
        StudioSpoglio();

    Superficie vp;
    QVERIFY(Anteprima(vp, Nota, Tipo));
    const QString Atteso = Dorato(QString::fromUtf8(QTest::currentDataTag()));
    QCOMPARE(Righe(ScriviTesto(vp.Contenuto())), Righe(Atteso));
}

void TestPrenotula::dueVolteLoStesso()
{
    const Parcella Nota = campioni::ConAssociata(true);
    Superficie vp;
    QVERIFY(Anteprima(vp, Nota, StampaPrenotula));
    const QString Prima = ScriviTesto(vp.Contenuto());
    QVERIFY(Anteprima(vp, Nota, StampaPrenotula));
    QCOMPARE(ScriviTesto(vp.Contenuto()), Prima);  // the section numbers begin anew
}

// ---- the frame of a composition

void TestPrenotula::notaNonProntaNonComponeNulla()
{
    Superficie vp;
    vp.StartDoc();
    vp.Paragraph(u"di prima"_s);
    vp.EndDoc();
    vp.Tag = u"4"_s;

    Parcella Nota = campioni::Civile();
    Nota.Pronta = false;
    QVERIFY(!Anteprima(vp, Nota, StampaPrenotula));
    QCOMPARE(campioni::TestiBlocchi(vp.Contenuto()), QStringList{u"di prima"_s});
    QCOMPARE(vp.Tag, u"4"_s);
}

void TestPrenotula::senzaComposizioneRestaVuoto_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::newRow("nessun documento scelto") << NessunaVoce;
    QTest::newRow("oltre la lista") << StampaSoloContabile + 1;
}

void TestPrenotula::senzaComposizioneRestaVuoto()
{
    QFETCH(int, Tipo);
    Superficie vp;
    QVERIFY(Anteprima(vp, campioni::Civile(), StampaPrenotula));
    QVERIFY(!Anteprima(vp, campioni::Civile(), Tipo));
    QVERIFY(vp.Contenuto().Blocchi.empty());
    QVERIFY(!vp.InCorso());
}

void TestPrenotula::margini_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<double>("AltoCm");
    QTest::addColumn<double>("BassoCm");
    QTest::newRow("prenotula") << int(StampaPrenotula) << 1.5 << 3.2;
    QTest::newRow("preventivo") << int(StampaPreventivo) << 1.5 << 3.2;
    QTest::newRow("carta intestata") << int(StampaFatturaSintetica) << 3.0 << 1.5;
    QTest::newRow("fattura analitica") << int(StampaFatturaAnalitica) << 1.5 << 3.2;
    QTest::newRow("nota giudiziale") << int(StampaNotaGiudiziale) << 1.5 << 3.2;
    QTest::newRow("parte contabile") << int(StampaSoloContabile) << 1.5 << 3.2;
}

void TestPrenotula::margini()
{
    QFETCH(int, Tipo);
    const Documento Doc = Composto(campioni::Civile(), Tipo);
    QTEST(Doc.MargineAltoCm, "AltoCm");
    QTEST(Doc.MargineBassoCm, "BassoCm");
    QCOMPARE(Doc.MargineSinistroCm, 2.0);
    QCOMPARE(Doc.MargineDestroCm, 1.4);
}

void TestPrenotula::rigaDiPagina()
{
    const Documento Doc = Composto(campioni::Civile());
    QCOMPARE(Doc.PiePagina, QString(124, u' ') + u"Pagina %d"_s);
    QCOMPARE(Doc.FontPiePagina, (Carattere{u"Times New Roman"_s, 8.0}));
}

void TestPrenotula::sfondo_data()
{
    QTest::addColumn<QString>("Associata");
    QTest::addColumn<int>("IDMultipla");
    QTest::addColumn<int>("Colore");
    QTest::newRow("nota sola") << QString() << 0 << -1;
    QTest::newRow("ha una nota associata") << u"altra"_s << 0 << 0xFEF8ED;
    QTest::newRow("l'associata è aperta in una finestra") << QString() << 2 << 0xFEF8ED;
}

void TestPrenotula::sfondo()
{
    Parcella Nota = campioni::Civile();
    QFETCH(QString, Associata);
    QFETCH(int, IDMultipla);
    Nota.txtParcMultipla = Associata;
    Nota.IDMultipla = IDMultipla;
    Superficie vp;
    QVERIFY(Anteprima(vp, Nota, StampaPrenotula));
    QTEST(vp.BackColor, "Colore");
}

void TestPrenotula::ogniComposizioneTornaAllaPrimaPagina()
{
    Superficie vp;
    vp.Impaginatore = [](const Documento& Doc) { return static_cast<int>(Doc.Blocchi.size()); };
    QVERIFY(Anteprima(vp, campioni::Civile(), StampaPrenotula));
    vp.Tag = u"3"_s;
    vp.PreviewPage = 3;
    QVERIFY(Anteprima(vp, campioni::Vuota(), StampaPrenotula));
    QCOMPARE(vp.Tag, u"1"_s);
    QCOMPARE(vp.PreviewPage, 1);
    QCOMPARE(vp.PageCount(), static_cast<int>(vp.Contenuto().Blocchi.size()));  // the document is finished
    QVERIFY(vp.PageCount() > 0);
}

// ---- head and foot

void TestPrenotula::numeroEData_data()
{
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Riga");
    QTest::newRow("numero e data") << u"12"_s << u"15/03/2013"_s
                                   << u"Preavviso di parcella n. 12 del 15/03/2013"_s;
    QTest::newRow("solo numero") << u"12"_s << QString() << u"Preavviso di parcella n. 12"_s;
    QTest::newRow("solo data, con due spazi")
        << QString() << u"15/03/2013"_s << u"Preavviso di parcella  del 15/03/2013"_s;
    QTest::newRow("nessuno dei due") << QString() << QString() << u"Preavviso di parcella "_s;
}

void TestPrenotula::numeroEData()
{
    Parcella Nota = campioni::Civile();
    QFETCH(QString, Numero);
    QFETCH(QString, Data);
    Nota.txtDatiPar[DatoNumero] = Numero;
    Nota.txtDatiPar[DatoData] = Data;
    const QStringList Testi = campioni::TestiBlocchi(Composto(Nota));
    QCOMPARE(Testi.value(1), QString());  // behind the head
    QTEST(Testi.value(2), "Riga");
}

void TestPrenotula::laControparteSiMostraComeStampata()
{
    Parcella Nota = campioni::Civile();
    Nota.txtControp.Testo = u"nome dell'archivio"_s;
    Nota.txtDatiStaControp.Testo = u"come va stampata"_s;
    QVERIFY(campioni::TestiBlocchi(Composto(Nota)).contains(u"Controparte: come va stampata"_s));

    Nota.txtControp.Testo.clear();  // it alone decides
    for (const QString& Riga : campioni::TestiBlocchi(Composto(Nota)))
        QVERIFY2(!Riga.startsWith(u"Controparte"_s), qPrintable(Riga));
}

void TestPrenotula::valore_data()
{
    QTest::addColumn<QString>("Categoria");
    QTest::addColumn<QString>("Importo");
    QTest::addColumn<QString>("Associata");
    QTest::addColumn<QString>("Riga");
    QTest::newRow("valore esatto") << u"CIV"_s << u"30.000,00"_s << QString() << u"Valore: 30.000,00 €"_s;
    QTest::newRow("zero: lo scaglione")
        << u"CIV"_s << u"0"_s << QString() << u"Valore: da € 25.001 a € 50.000"_s;
    QTest::newRow("nessun numero: lo scaglione")
        << u"STR"_s << QString() << QString() << u"Valore: da € 25.001 a € 50.000"_s;
    QTest::newRow("penale: nessuna riga") << u"PEN"_s << u"30.000,00"_s << QString() << QString();
    QTest::newRow("nota associata: lo dicono i titoli")
        << u"CIV"_s << u"30.000,00"_s << u"altra"_s << QString();
}

void TestPrenotula::valore()
{
    Parcella Nota = campioni::Civile();
    QFETCH(QString, Importo);
    QFETCH(QString, Categoria);
    QFETCH(QString, Associata);
    Nota.txtImporto.Testo = Importo;
    Nota.CodCateg = Categoria;
    Nota.txtParcMultipla = Associata;
    Nota.Multi.CategMulti = u"Penale"_s;
    const QStringList Righe = campioni::TestiBlocchi(Composto(Nota)).filter(u"Valore: "_s);
    QTEST(Righe.join(u'|'), "Riga");
}

void TestPrenotula::iban_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("Spunta");
    QTest::addColumn<int>("Quante");
    QTest::newRow("esposto") << int(StampaPrenotula) << true << 1;
    QTest::newRow("non esposto") << int(StampaPrenotula) << false << 0;
    QTest::newRow("la parte contabile non lo ha") << int(StampaSoloContabile) << true << 0;
}

void TestPrenotula::iban()
{
    QFETCH(int, Tipo);
    QFETCH(bool, Spunta);
    Parcella Nota = campioni::Civile();
    Nota.chkIBAN.Attiva = Spunta;
    const QStringList Righe = campioni::TestiBlocchi(Composto(Nota, Tipo));
    QTEST(
        int(Righe.count(u"Il pagamento può essere effettuato mediante bonifico su c/c con il seguente IBAN: "
                        u"IT60X0542811101000000123456"_s)),
        "Quante");
}

void TestPrenotula::firma()
{
    const QStringList Firmato = campioni::TestiBlocchi(Composto(campioni::Civile()));
    QCOMPARE(Firmato.last(), QString(65, u' ') + u"Avv. Giulia Neri"_s);
    QCOMPARE(Firmato[Firmato.size() - 2], QString());

    sessione::Firma.clear();
    // The last blank line ends the sentence and nothing follows.
    QCOMPARE(campioni::TestiBlocchi(Composto(campioni::Civile())).last(),
             u"N.B. : la presente parcella non costituisce fattura che sarà emessa quietanzata alla data del "
             u"pagamento"_s);
}

void TestPrenotula::caratteri()
{
    const Documento Doc = Composto(campioni::Civile());
    QCOMPARE(std::get<Paragrafo>(Doc.Blocchi[2]).Tratti[0].Font, (Carattere{u"Times New Roman"_s, 12.0}));
    QCOMPARE(std::get<Paragrafo>(Doc.Blocchi.back()).Tratti[0].Font, (Carattere{u"Times New Roman"_s, 11.0}));
}

void TestPrenotula::testiLiberiGiustificati()
{
    Parcella Nota = campioni::Civile();
    campioni::ImpostaTesti(Nota, u"sopra"_s, u"sotto"_s);
    const Documento Doc = Composto(Nota, StampaSoloContabile);
    const auto& Sopra = std::get<Paragrafo>(Doc.Blocchi.front());
    const auto& Sotto = std::get<Paragrafo>(Doc.Blocchi.back());
    QCOMPARE(Sopra.Testo(), u"sopra"_s);
    QCOMPARE(Sopra.Allinea, Allineamento::Giustificato);
    QCOMPARE(Sotto.Testo(), u"sotto"_s);
    QCOMPARE(Sotto.Allinea, Allineamento::Giustificato);
}

void TestPrenotula::statoDelTestoNonPassaAlDocumentoDopo()
{
    Superficie vp;
    vp.FontBold(true);
    vp.FontName(u"Arial"_s);
    vp.TextAlign(Allineamento::Destra);
    QVERIFY(Anteprima(vp, campioni::Civile(), StampaPrenotula));
    const auto& Titolo = std::get<Paragrafo>(vp.Contenuto().Blocchi[2]);
    QCOMPARE(Titolo.Tratti[0].Font, (Carattere{u"Times New Roman"_s, 12.0}));
    QCOMPARE(Titolo.Allinea, Allineamento::Sinistra);
}

// ---- failures and what is left behind

void TestPrenotula::guastoAMetaLasciaIlDisegnato()
{
    Parcella Nota = campioni::Civile();
    Nota.xDiritti = TabellaRighe(2);  // no column of amounts
    Nota.xDiritti.AggiungiRiga();
    Superficie vp;
    QVERIFY(NumeroErrore([&] { (void)Anteprima(vp, Nota, StampaPrenotula); }) != 0);
    QVERIFY(!vp.InCorso());
    QVERIFY(campioni::TestiBlocchi(vp.Contenuto()).contains(u"Controparte: Bianchi S.r.l."_s));
    QCOMPARE(campioni::TestiRiga(campioni::TabellaDi(vp.Contenuto(), 1), 0).value(0), u"ONORARI"_s);
}

#include "TestPrenotula.moc"
