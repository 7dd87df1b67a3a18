// The rows of a note as lines of its electronic invoice: the stamp duty among them, the associated note,
// quantities.
#include "fattura_prova.h"

using namespace Qt::StringLiterals;
using namespace fattura_prova;

namespace {

Cifre Ordinaria()
{
    return {.Onorari = {100000}, .SpeseGen = 1500, .CP = 400, .IVA = 2200, .RA = 2000};
}

Cifre Forfettaria()
{
    return {.Onorari = {100000}, .SpeseGen = 1500, .CP = 400, .Agevolato = true};
}

}  // namespace

class TestRigheFattura : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ilBolloAddebitato();
    void ilBolloAddebitatoSenzaRiga();
    void laNotaAssociata_data();
    void laNotaAssociata();
    void laQuantitaStaNellaDescrizione();
    void ilNumeroDellaNota_data();
    void ilNumeroDellaNota();
    void lireInEuro();
    void qualeRigaEIlBollo();
};
PROVA(TestRigheFattura);

void TestRigheFattura::ilBolloAddebitato()
{
    Cifre Base = Forfettaria();
    Base.Spese = {{0, 200}, {0, 200}, {0, 1000}};
    for (const int Tipo : {StampaFatturaAnalitica, StampaFatturaSintetica}) {
        Base.Tipo = Tipo;
        Parcella DaNota = Nota(Base);
        DaNota.xDiritti(1, DirDescr) = u"Imposta di Bollo"_s;
        SceltaFattura Sua = Scelta(DaNota);
        Sua.BolloAddebitato = true;
        const Composizione Fatta =
            ComponiFatturaElettronica(DaNota, Avvocato(u"RF19"_s), Societa(), Sua, Giorno);
        const QString File = NuovaCartella() + u"a.xml"_s;
        ScriviEControlla(Fatta, File);
        const QByteArray Byte = Contenuto(File);
        // 1196,00 of fees with the fund and the duty bear N2.2; what was laid out stays N1
        QCOMPARE(Testi(Byte, u"DatiRiepilogo/Natura"_s).join(u' '),
                 Tipo == StampaFatturaAnalitica ? u"N2.2 N1"_s : u"N2.2 N1"_s);
        QCOMPARE(Testi(Byte, u"ImponibileImporto"_s), (QStringList{u"1198.00"_s, u"12.00"_s}));
        QCOMPARE(Testi(Byte, u"ImportoBollo"_s), QStringList{u"2.00"_s});
        QCOMPARE(Testo(Byte, u"ImportoTotaleDocumento"_s), u"1210.00"_s);
    }
}

void TestRigheFattura::ilBolloAddebitatoSenzaRiga()
{
    const Composizione Fatta = Componi(Forfettaria(), Avvocato(u"RF19"_s), Societa(),
                                       [](SceltaFattura& S) { S.BolloAddebitato = true; });
    QCOMPARE(Fatta.Mancanze.size(), 1);
    QCOMPARE(Fatta.Mancanze[0].Dove, CampoFattura::NotaSpese);
    QVERIFY(Fatta.Mancanze[0].Messaggio.contains(u"2,00 euro esenti"));
    // The two euro themselves are none of the sums that the duty is due on.
    Cifre Poche{.Onorari = {7700}, .Spese = {{0, 200}}, .Agevolato = true};
    Parcella DaNota = Nota(Poche);
    DaNota.xDiritti(0, DirDescr) = u"bollo"_s;
    SceltaFattura Sua = Scelta(DaNota);
    Sua.BolloAddebitato = true;
    const Composizione Sotto = ComponiFatturaElettronica(DaNota, Avvocato(u"RF19"_s), Societa(), Sua, Giorno);
    QCOMPARE(Sotto.Fattura.Bollo, 0.0);
    QVERIFY(Frasi(Sotto.Avvisi).join(u' ').contains(u"non è dovuto"));
}

void TestRigheFattura::laNotaAssociata_data()
{
    QTest::addColumn<int>("Prima");
    QTest::addColumn<QStringList>("Righe");
    QTest::newRow("accodata") << 0 << QStringList{u"propria"_s, u"altra"_s, u"Spese generali 15%"_s};
    QTest::newRow("anteposta") << 1 << QStringList{u"altra"_s, u"propria"_s, u"Spese generali 15%"_s};
}

void TestRigheFattura::laNotaAssociata()
{
    QFETCH(int, Prima);
    QFETCH(QStringList, Righe);
    Parcella DaNota = Nota(Ordinaria());
    DaNota.xOnorari(0, OnoDescr) = u"propria"_s;
    DaNota.txtParcMultipla = u"seconda"_s;
    DaNota.optMultiAntPos = Prima;
    const int Riga = DaNota.Multi.xOnorariMulti.AggiungiRiga();
    DaNota.Multi.xOnorariMulti(Riga, OnoDescr) = u"altra"_s;
    DaNota.Multi.xOnorariMulti(Riga, OnoImporto) = 500.0;
    DaNota.Multi.TotOnorariMulti = 500.0;
    const Composizione Fatta =
        ComponiFatturaElettronica(DaNota, Avvocato(), Societa(), Scelta(DaNota), Giorno);
    const QString File = NuovaCartella() + u"a.xml"_s;
    ScriviEControlla(Fatta, File);
    QCOMPARE(Testi(Contenuto(File), u"DettaglioLinee/Descrizione"_s), Righe);
    // 1500 + 225 = 1725
    QCOMPARE(Testo(Contenuto(File), u"ImponibileCassa"_s), u"1725.00"_s);
}

void TestRigheFattura::laQuantitaStaNellaDescrizione()
{
    Parcella DaNota = Nota(Ordinaria());
    DaNota.xOnorari(0, OnoQta) = u"3"_s;
    const Composizione Fatta =
        ComponiFatturaElettronica(DaNota, Avvocato(), Societa(), Scelta(DaNota), Giorno);
    QCOMPARE(Fatta.Fattura.Linee[0].Descrizione, u"Fase 1 (n. 3)"_s);
}

void TestRigheFattura::ilNumeroDellaNota_data()
{
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Atteso");
    QTest::newRow("l'anno della data") << u" 12 "_s << u"31/12/2025"_s << u"12/2025"_s;
    QTest::newRow("l'anno c'è già") << u"12/2025"_s << u"31/12/2025"_s << u"12/2025"_s;
    QTest::newRow("senza cifre") << u"bis"_s << u"31/12/2025"_s << u"bis"_s;
    QTest::newRow("senza data") << u"12"_s << QString() << u"12"_s;
    QTest::newRow("senza numero") << QString() << u"31/12/2025"_s << QString();
}

void TestRigheFattura::ilNumeroDellaNota()
{
    QFETCH(QString, Numero);
    QFETCH(QString, Data);
    Parcella DaNota = Nota(Ordinaria());
    DaNota.txtDatiPar[DatoNumFatt] = Numero;
    DaNota.txtDatiPar[DatoDataFatt] = Data;
    QTEST(SceltaDaNota(DaNota).Numero, "Atteso");
}

void TestRigheFattura::lireInEuro()
{
    Cifre Base = Ordinaria();
    Base.Acconti = {{193627000, 0, 0}};
    Parcella DaNota = Nota(Base);
    DaNota.xAcconti(0, AccValuta) = u"L"_s;
    DaNota.xAcconti(0, AccCorrispettivi) = 1000000.0;  // 516,4569 euro
    const Composizione Fatta =
        ComponiFatturaElettronica(DaNota, Avvocato(), Societa(), Scelta(DaNota), Giorno);
    const QString File = NuovaCartella() + u"a.xml"_s;
    ScriviEControlla(Fatta, File);
    QCOMPARE(Testi(Contenuto(File), u"PrezzoTotale"_s).last(), u"-516.46"_s);
}

/// Of two rows of two euro the one that says so is the duty; another is told by its name.
void TestRigheFattura::qualeRigaEIlBollo()
{
    Cifre Base = Forfettaria();
    Base.Spese = {{0, 200}, {0, 200}};
    Parcella DaNota = Nota(Base);
    DaNota.xDiritti(0, DirDescr) = u"Marca da bollo per copia"_s;
    DaNota.xDiritti(1, DirDescr) = u"Imposta di bollo"_s;
    SceltaFattura Sua = Scelta(DaNota);
    Sua.BolloAddebitato = true;
    const auto Fatta = [&] {
        return ComponiFatturaElettronica(DaNota, Avvocato(u"RF19"_s), Societa(), Sua, Giorno);
    };
    QStringList Nature;
    for (const LineaFattura& Linea : Fatta().Fattura.Linee)
        Nature += Linea.Descrizione + u'=' + Linea.Natura;
    QVERIFY(Nature.contains(u"Marca da bollo per copia=N1"_s) && Nature.contains(u"Imposta di bollo=N2.2"_s));
    QCOMPARE(Frasi(Fatta().Avvisi), QStringList());
    DaNota.xDiritti(1, DirDescr) = u"Copie"_s;
    QCOMPARE(Frasi(Fatta().Avvisi),
             QStringList{u"Per il bollo della fattura vale la spesa «Marca da bollo per copia»."_s});
    Sua.BolloAddebitato = false;
    QCOMPARE(Fatta().Avvisi.size(), 1);
    QVERIFY(Fatta().Avvisi[0].Messaggio.contains(u"è scritta come anticipazione (N1)"));
    QCOMPARE(Fatta().Avvisi[0].Dove, CampoFattura::SceltaBollo);
}

#include "TestRigheFattura.moc"
