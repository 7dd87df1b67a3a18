// The documents as a whole: expected texts written by hand.
#include "supporto/prova.h"

#include "documenti.h"
#include "platform/system/file.h"
#include "print/writers/scrittoretesto.h"

#include <functional>

using namespace Qt::StringLiterals;

class TestDocumenti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void dorati_data();
    void dorati();
    void dueVolteLoStesso_data();
    void dueVolteLoStesso();
    void clienteDiMilleLettere_data();
    void clienteDiMilleLettere();
    void studioSenzaDati_data();
    void studioSenzaDati();
    void testiOstili_data();
    void testiOstili();
    void controparteTolta_data();
    void controparteTolta();
    void aCapoNeiTesti_data();
    void aCapoNeiTesti();
    void importiAlLimite_data();
    void importiAlLimite();
    void accontiRestituiti();
    void duemilaRighe_data();
    void duemilaRighe();

private:
    documenti::DataFissa Oggi{QDate(2014, 1, 10)};
};
PROVA(TestDocumenti);

namespace {

/// What stands behind a row of expected texts.
struct Caso
{
    Parcella Nota;
    std::function<void()> Studio = [] {};
};

Caso CasoCivile()
{
    Caso Uno{documenti::Completa(campioni::Civile())};
    Uno.Nota.chkIvaDiff.Attiva = true;
    Uno.Nota.chkIBAN.Attiva = true;
    return Uno;
}

Caso CasoPenale()
{
    return {documenti::Completa(campioni::Penale()), [] { sessione::Firma.clear(); }};
}

Caso CasoAssociata()
{
    Caso Uno{documenti::Completa(campioni::ConAssociata(true))};
    Uno.Nota.optContrTipo = 1;
    return Uno;
}

Caso CasoAssociataDopo()
{
    Caso Uno{documenti::Completa(campioni::ConAssociata(false))};
    Uno.Nota.Multi.OggettoMulti = u"parere sul contratto"_s;
    return Uno;
}

/// More paid on account than is due.
Caso CasoOltre()
{
    Caso Uno{documenti::Completa(campioni::Vuota())};
    Parcella& Nota = Uno.Nota;
    campioni::ApplicaTutte(Nota);
    Nota.CodCateg = u"PEN"_s;
    Nota.cmbCateg = 1;
    Nota.chkAcconti.Attiva = true;
    Nota.txtDatiStaCli.Testo = u"Luca Verdi"_s;
    campioni::AggiungiOnorario(Nota.xOnorari, u"Consulenza"_s, 1.0, 1000.0);
    campioni::AggiungiSpesa(Nota.xDiritti, u"Bolli"_s, 1.0, 0.0, 10.0);
    campioni::AggiungiAcconto(Nota.xAcconti, u"Bonifico del 05/02/2013"_s, u"E"_s, 2562.5, 0.0, 25.0);
    return Uno;
}

/// The subsidised regime, on an invoice whose number is written by hand.
Caso CasoRegime()
{
    Caso Uno{documenti::Completa(campioni::Civile()), [] { sessione::Firma.clear(); }};
    Uno.Nota.txtDatiPar[DatoNumFatt] = u"  "_s;
    Uno.Nota.txtDatiPar[DatoDataFatt].clear();
    RicordaStampa(Uno.Nota);
    CambiaRegime(Uno.Nota, true);
    return Uno;
}

Caso CasoVuota()
{
    return {campioni::Vuota(), [] {
                sessione::StudioIndir.clear();
                sessione::StudioCitta.clear();
                sessione::StudioCodFisc.clear();
                sessione::Firma.clear();
            }};
}

/// Marks of every format that a document is exported to, and signs beyond the plane of the common ones.
QString TestoOstile()
{
    return u"{\\rtf1 \\b x} <b>&amp;</b> 100%d %1 \U0001F600 é"_s;
}

}  // namespace

void TestDocumenti::init()
{
    campioni::ImpostaStudio();
    sessione::PercorsoProg = NuovaCartella();  // no clauses beside it
}

void TestDocumenti::dorati_data()
{
    QTest::addColumn<Caso>("Quale");
    QTest::addColumn<int>("Tipo");
    const auto Aggiungi = [](const char* Nome, const Caso& Quale, const QList<int>& Tipi) {
        for (const int Tipo : Tipi)
            QTest::addRow("%s_%d", Nome, Tipo) << Quale << Tipo;
    };
    const QList<int> Tutti{StampaPreventivo,     StampaFatturaSintetica, StampaFatturaAnalitica,
                           StampaNotaGiudiziale, StampaContratto,        StampaInformativa};
    const QList<int> Contabili{StampaPreventivo, StampaFatturaSintetica, StampaFatturaAnalitica,
                               StampaNotaGiudiziale};
    Aggiungi("civile", CasoCivile(), Tutti);
    Aggiungi("associata_prima", CasoAssociata(), Tutti);
    Aggiungi("associata_dopo", CasoAssociataDopo(), Contabili);
    Aggiungi("associata_parametri", {documenti::ConParametri()},
             {StampaPrenotula, StampaFatturaSintetica, StampaNotaGiudiziale});
    Aggiungi("penale", CasoPenale(), Contabili);
    Aggiungi("stragiudiziale", {documenti::Completa(campioni::Stragiudiziale())}, Contabili);
    Aggiungi("regime", CasoRegime(),
             {StampaPrenotula, StampaFatturaSintetica, StampaFatturaAnalitica, StampaNotaGiudiziale});
    Aggiungi("oltre", CasoOltre(), {StampaPrenotula, StampaFatturaSintetica, StampaNotaGiudiziale});
    Aggiungi("vuota", CasoVuota(), Contabili);
    Aggiungi("vuota", CasoVuota(), {StampaContratto});
}

void TestDocumenti::dorati()
{
    QFETCH(Caso, Quale);
    QFETCH(int, Tipo);
    Quale.Studio();
    const QString Nome = u"dorati/"_s + QString::fromUtf8(QTest::currentDataTag()) + u".txt"_s;
    const QString Atteso = QString::fromUtf8(LeggiFile(FileDiProva(Nome)));
    QCOMPARE(ScriviTesto(documenti::Composto(Quale.Nota, Tipo)).split(u'\n'), Atteso.split(u'\n'));
}

void TestDocumenti::dueVolteLoStesso_data()
{
    documenti::RighePerTipo();
}

void TestDocumenti::dueVolteLoStesso()
{
    QFETCH(int, Tipo);
    const Parcella Nota = documenti::ScegliTipo(CasoAssociata().Nota, Tipo);
    Superficie vp;
    QVERIFY(Anteprima(vp, Nota, Tipo));
    const Documento Prima = vp.Contenuto();
    vp.FontBold(true);  // the text state of one document is not that of the next
    vp.TextAlign(Allineamento::Destra);
    QVERIFY(Anteprima(vp, Nota, Tipo));
    QCOMPARE(ScriviTesto(vp.Contenuto()), ScriviTesto(Prima));
    QCOMPARE(vp.Contenuto().MargineAltoCm, Prima.MargineAltoCm);
}

// ---- input that nobody would like

void TestDocumenti::clienteDiMilleLettere_data()
{
    documenti::RighePerTipo();
}

void TestDocumenti::clienteDiMilleLettere()
{
    QFETCH(int, Tipo);
    const QString Nome = u"{\\Ditta} <Rossi & \U0001F600> "_s.repeated(40).trimmed();
    Parcella Nota = documenti::ScegliTipo(CasoCivile().Nota, Tipo);
    Nota.txtDatiStaCli.Testo = Nome;
    const QString Testo = ScriviTesto(documenti::ComeSta(Nota, Tipo)).simplified();
    QVERIFY(Tipo == StampaSoloContabile || Testo.count(u"{\\Ditta} <Rossi & \U0001F600>"_s) == 40);
}

void TestDocumenti::studioSenzaDati_data()
{
    documenti::RighePerTipo();
}

/// Settings that nobody has filled in: nothing of the office stands there, and nothing asks for it.
void TestDocumenti::studioSenzaDati()
{
    QFETCH(int, Tipo);
    AzzeraSessione();
    sessione::PercorsoProg = NuovaCartella();
    Parcella Nota = CasoCivile().Nota;
    const QString Testo = ScriviTesto(documenti::Composto(Nota, Tipo));
    QVERIFY(Testo.contains(u"4.500,00"_s) || Tipo == StampaInformativa);
    for (const QString& Etichetta : {u"P.I."_s, u"C.F. \n"_s, u"Neri"_s})
        QVERIFY2(!Testo.contains(Etichetta), qPrintable(Testo));
    if (Tipo == StampaPrenotula || Tipo == StampaFatturaAnalitica)  // the client is where it always is
        QVERIFY(Testo.startsWith(u"\n"_s + QString(43, u' ') + u"Mario Rossi\n"_s));
}

void TestDocumenti::testiOstili_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QStringList>("Righe");
    const QString Ostile = TestoOstile();
    QTest::newRow("prenotula") << int(StampaPrenotula)
                               << QStringList{u"Preavviso di parcella n. "_s + Ostile + u" del "_s + Ostile,
                                              u"Controparte: "_s + Ostile, u"Oggetto: "_s + Ostile};
    QTest::newRow("preventivo") << int(StampaPreventivo)
                                << QStringList{u"Preventivo n. "_s + Ostile + u" Data "_s + Ostile,
                                               u"Oggetto: "_s + Ostile, u"Controparte: "_s + Ostile};
    QTest::newRow("fattura sintetica")
        << int(StampaFatturaSintetica)
        << QStringList{u"Fattura N° "_s + Ostile + u"/2014 del "_s + Ostile, u"Controparte: "_s + Ostile,
                       u"Oggetto: "_s + Ostile, u"   "_s + Ostile};
    QTest::newRow("fattura analitica") << int(StampaFatturaAnalitica)
                                       << QStringList{u"Fattura N° "_s + Ostile + u"/2014 del "_s + Ostile,
                                                      u"Controparte: "_s + Ostile, u"Oggetto: "_s + Ostile};
    QTest::newRow("nota giudiziale") << int(StampaNotaGiudiziale)
                                     << QStringList{Ostile.toUpper() + u" - SEZ. "_s + Ostile.toUpper(),
                                                    u"Giudice: dott. "_s + Ostile + u"     Rgn. "_s + Ostile,
                                                    u"per "_s + Ostile, Ostile};
    QTest::newRow("parte contabile") << int(StampaSoloContabile) << QStringList{Ostile};
}

/// What is written stands in the document as it was written: nothing in it is a command to anybody.
void TestDocumenti::testiOstili()
{
    QFETCH(int, Tipo);
    QFETCH(QStringList, Righe);
    const QString Ostile = TestoOstile();
    Parcella Nota = CasoAssociata().Nota;
    for (QString& Dato : Nota.txtDatiPar)
        Dato = Ostile;
    campioni::ImpostaTesti(Nota, Ostile, Ostile);
    for (Casella* Box : {&Nota.txtDatiStaCli, &Nota.txtControp, &Nota.txtDatiStaControp, &Nota.txtDatiStaOgg})
        Box->Testo = Ostile;
    Nota.Multi.OggettoMulti = Ostile;
    Nota.xOnorari(0, OnoDescr) = Ostile;
    campioni::AggiungiSpesa(Nota.xDiritti, Ostile, 1.0, 1.0, 1.0);
    campioni::AggiungiAcconto(Nota.xAcconti, Ostile, u"E"_s, 1.0);
    const Documento Doc = documenti::ComeSta(documenti::ScegliTipo(Nota, Tipo), Tipo);
    const QStringList Testi = campioni::TestiBlocchi(Doc);
    for (const QString& Riga : std::as_const(Righe))
        QVERIFY2(Testi.contains(Riga), qPrintable(Riga + u'\n' + Testi.join(u'\n')));
    int Celle = 0;
    for (int Quale = 0; Quale < campioni::NumeroTabelle(Doc); ++Quale)
        for (const std::vector<Cella>& Riga : campioni::TabellaDi(Doc, Quale).Righe)
            Celle += Riga[0].Testo == Ostile || Riga[0].Testo == u" - "_s + Ostile;
    // fee, expense, payment; the short invoice has the payment alone, the costs note no payment
    QCOMPARE(Celle, Tipo == StampaFatturaSintetica ? 1 : Tipo == StampaNotaGiudiziale ? 2 : 3);
}

void TestDocumenti::controparteTolta_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::newRow("prenotula") << int(StampaPrenotula);
    QTest::newRow("preventivo") << int(StampaPreventivo);
    QTest::newRow("fattura sintetica") << int(StampaFatturaSintetica);
    QTest::newRow("fattura analitica") << int(StampaFatturaAnalitica);
    QTest::newRow("nota giudiziale") << int(StampaNotaGiudiziale);
}

/// One of the archive stays linked when its box of the print is emptied: the paper has no row for it, neither
/// bare nor as a space.
void TestDocumenti::controparteTolta()
{
    QFETCH(int, Tipo);
    Parcella Nota = CasoCivile().Nota;
    Nota.IDCon = 5;
    Nota.txtControp.Testo = u"Bianchi Srl"_s;
    Nota.txtDatiStaControp.Testo = u"Bianchi Srl"_s;
    const auto Testi = [Tipo](const Parcella& Di) {
        return campioni::TestiBlocchi(documenti::ComeSta(documenti::ScegliTipo(Di, Tipo), Tipo));
    };
    const bool Giudiziale = Tipo == StampaNotaGiudiziale;
    QVERIFY(Testi(Nota).contains(Giudiziale ? u"Bianchi Srl"_s : u"Controparte: Bianchi Srl"_s));
    Nota.txtDatiStaControp.Testo.clear();
    const QStringList Senza = Testi(Nota);
    QVERIFY2(Senza.filter(u"Controparte"_s).isEmpty() && Senza.filter(u"Bianchi"_s).isEmpty(),
             qPrintable(Senza.join(u'\n')));
    Nota.IDCon = 0;
    Nota.txtControp.Testo.clear();
    QCOMPARE(Senza, Testi(Nota));
}

void TestDocumenti::aCapoNeiTesti_data()
{
    QTest::addColumn<QString>("ACapo");
    QTest::newRow("di questo sistema") << u"\n"_s;
    QTest::newRow("di un file venuto da fuori") << u"\r\n"_s;
}

void TestDocumenti::aCapoNeiTesti()
{
    QFETCH(QString, ACapo);
    Parcella Nota = CasoCivile().Nota;
    Nota.txtDatiStaOgg.Testo = u"appello"_s + ACapo + u"e cautelare"_s;
    campioni::ImpostaTesti(Nota, u"prima"_s + ACapo + ACapo + u"terza"_s, {});
    for (const int Tipo : {StampaPrenotula, StampaPreventivo, StampaFatturaSintetica, StampaFatturaAnalitica})
        QVERIFY(
            ScriviTesto(documenti::Composto(Nota, Tipo)).contains(u"\nOggetto: appello\ne cautelare\n"_s));
    QVERIFY(ScriviTesto(documenti::Composto(Nota, StampaSoloContabile)).startsWith(u"prima\n\nterza\n\n"_s));
}

void TestDocumenti::importiAlLimite_data()
{
    QTest::addColumn<double>("Euro");
    QTest::addColumn<QString>("Onorari");
    QTest::addColumn<QString>("Lettere");
    QTest::newRow("meno di mezzo centesimo") << 0.004 << u"0"_s << u"(/00)"_s;
    QTest::newRow("un centesimo") << 0.01 << u"0,01"_s << u"(/01)"_s;
    QTest::newRow("dodici cifre") << 999999999999.99 << u"999.999.999.999,99"_s
                                  << u"(novecentonovantanovemiliardinovecentonovantanovemilioni"
                                     "novecentonovantanovemilanovecentonovantanove/99)"_s;
    QTest::newRow("dodici cifre in meno") << -1000000000000.0 + 1 << u"-999.999.999.999,00"_s
                                          << u"(menonovecentonovantanovemiliardinovecentonovantanovemilioni"
                                             "novecentonovantanovemilanovecentonovantanove/00)"_s;
    // Whole beyond 15 digits; the words read the first 12.
    QTest::newRow("quanto tiene un numero doppio")
        << 1e15 << u"1.000.000.000.000.000,00"_s << u"(centomiliardi/00)"_s;
    QTest::newRow("cento gruppi di cifre")
        << 1e300 << u'1' + u".000"_s.repeated(100) + u",00"_s << u"(centomiliardi/00)"_s;
}

void TestDocumenti::importiAlLimite()
{
    QFETCH(double, Euro);
    QFETCH(QString, Onorari);
    QFETCH(QString, Lettere);
    Parcella Nota = documenti::Completa(campioni::Vuota());
    Nota.chkIva.Attiva = Nota.chkCP.Attiva = false;
    campioni::AggiungiOnorario(Nota.xOnorari, u"Voce"_s, 1.0, Euro);
    for (const int Tipo : {StampaPrenotula, StampaPreventivo, StampaFatturaSintetica, StampaFatturaAnalitica,
                           StampaNotaGiudiziale, StampaSoloContabile}) {
        const Documento Doc = documenti::Composto(Nota, Tipo);
        QStringList Celle;
        for (int Quale = 0; Quale < campioni::NumeroTabelle(Doc); ++Quale)
            for (int Riga = 0; !campioni::TestiRiga(campioni::TabellaDi(Doc, Quale), Riga).isEmpty(); ++Riga)
                Celle += campioni::TestiRiga(campioni::TabellaDi(Doc, Quale), Riga);
        QCOMPARE(Celle.value(Celle.indexOf(u"Onorari"_s) + 1), Onorari);
        QVERIFY(Celle.contains(Lettere));
    }
}

/// More given back than was paid: no row of the summary takes away, the chain and the lists go on all the
/// same.
void TestDocumenti::accontiRestituiti()
{
    Parcella Nota = documenti::Completa(campioni::Vuota());
    Nota.chkIva.Attiva = Nota.chkCP.Attiva = false;
    Nota.chkAcconti.Attiva = true;
    campioni::AggiungiOnorario(Nota.xOnorari, u"Voce"_s, 1.0, 1000.0);
    campioni::AggiungiAcconto(Nota.xAcconti, u"Restituzione"_s, u"E"_s, -100.0, -20.0, -3.0);
    QStringList Righe = ScriviTesto(documenti::Composto(Nota, StampaPrenotula)).split(u'\n');
    QCOMPARE(Righe.filter(u"Acconti "_s), QStringList());
    QCOMPARE(Righe.filter(u"Restituzione"_s).join(QString()).simplified(),
             u"Restituzione -100,00 -20,00 -3,00"_s);
    QCOMPARE(Righe.filter(u"TOTALE EURO"_s).join(QString()).simplified(), u"TOTALE EURO 1.123,00"_s);

    Righe = ScriviTesto(documenti::Composto(Nota, StampaFatturaSintetica)).split(u'\n');
    QCOMPARE(Righe.filter(u"Restituzione"_s).join(QString()).simplified(),
             u"- Restituzione --120,00 --3,00"_s);
    QCOMPARE(Righe.filter(u"Totali:"_s).join(QString()).simplified(), u"Totali: 1.120,00 3,00"_s);
}

void TestDocumenti::duemilaRighe_data()
{
    documenti::RighePerTipo();
}

void TestDocumenti::duemilaRighe()
{
    constexpr int Quante = 2000;
    QFETCH(int, Tipo);
    Parcella Nota = documenti::Completa(campioni::Vuota());
    Nota.chkAcconti.Attiva = true;
    for (int i = 1; i <= Quante; ++i) {
        campioni::AggiungiOnorario(Nota.xOnorari, u"voce %1"_s.arg(i), 1.0, 3.0);
        campioni::AggiungiSpesa(Nota.xDiritti, u"spesa %1"_s.arg(i), 1.0, 2.0, 1.0);
        campioni::AggiungiAcconto(Nota.xAcconti, u"acconto %1"_s.arg(i), u"E"_s, 1.0);
    }
    const QStringList Righe = ScriviTesto(documenti::Composto(Nota, Tipo)).split(u'\n');
    const bool Voci = Tipo != StampaFatturaSintetica && Tipo != StampaInformativa;
    const bool Acconti = Tipo <= StampaFatturaAnalitica || Tipo == StampaSoloContabile;
    const auto Conta = [&](const QString& Inizio) {
        return std::ranges::count_if(Righe, [&](const QString& Riga) { return Riga.startsWith(Inizio); });
    };
    QCOMPARE(Conta(u"voce "_s), Voci ? Quante : 0);
    QCOMPARE(Conta(u"spesa "_s), Voci ? Quante : 0);
    QCOMPARE(Conta(u"acconto "_s) + Conta(u" - acconto "_s), Acconti ? Quante : 0);
}

#include "TestDocumenti.moc"
