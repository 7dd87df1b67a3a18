// What is worth a look before printing among lines, payments and rates: for each check a note just within
// and one just beyond.
#include "controlli.h"

#include "feenote/modStato.h"
#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;
using enum GenereRilievo;

class TestControlliNota : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Ufficio = std::make_unique<Studio>(); }
    void cleanup() { Ufficio.reset(); }
    void inRegolaNonDiceNulla_data();
    void inRegolaNonDiceNulla();
    void limiti_data();
    void limiti();
    void iLimitiSonoQuelliMostrati();
    void onorariAZero();
    void speseAZero_data();
    void speseAZero();
    void moltiOnorari_data();
    void moltiOnorari();
    void aliquote_data();
    void aliquote();
    void senzaAliquotaSulDocumento();
    void acconti_data();
    void acconti();
    void accontiDellaMultipla();
    void accontiDopoLaFattura();
    void notaDiCredito();
    void daRicalcolare();
    void gliErroriDavanti();
    void ogniLuogoHaLaSuaRiga();

private:
    std::unique_ptr<Studio> Ufficio;
};
PROVA(TestControlliNota);

void TestControlliNota::inRegolaNonDiceNulla_data()
{
    QTest::addColumn<int>("Tipo");
    for (int Tipo = 0; Tipo < int(TipiDocumento.size()); ++Tipo)
        QTest::newRow(qPrintable(TipiDocumento[size_t(Tipo)].Nome.toString())) << Tipo;
    QTest::newRow("nessun documento") << NessunaVoce;
}

void TestControlliNota::inRegolaNonDiceNulla()
{
    QFETCH(const int, Tipo);
    Parcella Nota = FatturaInRegola();
    if (Tipo == NessunaVoce)
        Nota.cmbTipoStampa = NessunaVoce;
    else
        ScegliTipoStampa(Nota, Tipo);
    QCOMPARE(Guarda(Nota).Frasi.join(u'|'), QString());
}

void TestControlliNota::limiti_data()
{
    QTest::addColumn<double>("Importo");
    QTest::addColumn<int>("NVoce");
    QTest::addColumn<double>("Min");
    QTest::addColumn<double>("Max");
    QTest::addColumn<QString>("Frase");
    const auto Riga = [](const char* Nome, double Importo, int NVoce, double Min, double Max,
                         const QString& Frase) {
        QTest::newRow(Nome) << Importo << NVoce << Min << Max << Frase;
    };
    Riga("al massimo", 1920, 1, 600, 1920, {});
    Riga("un centesimo oltre", 1920.01, 1, 600, 1920, u"oltre il massimo di 1.920,00"_s);
    Riga("di molto oltre", 99999, 1, 600, 1920, u"oltre il massimo di 1.920,00"_s);
    Riga("al minimo", 600, 1, 600, 1920, {});
    Riga("un centesimo sotto", 599.99, 1, 600, 1920, u"sotto il minimo di 600,00"_s);
    Riga("negativo", -5, 1, 600, 1920, u"sotto il minimo di 600,00"_s);
    Riga("minimo in centesimi", 236.25, 1, 236.25, 1000, {});
    Riga("limiti non noti", 5000, 1, 0, 0, {});
    Riga("senza minimo", 1, 1, 0, 100, {});
    Riga("senza minimo, oltre", 101, 1, 0, 100, u"oltre il massimo di 100,00"_s);
    Riga("limiti rovesciati", 5000, 1, 900, 100, {});
    Riga("voce libera", 5000, VoceLibera, 100, 100, {});
    Riga("senza numero di voce", 5000, 0, 100, 100, {});
    Riga("ultima voce sotto la libera", 5000, VoceLibera - 1, 100, 200, u"oltre il massimo di 200,00"_s);
}

void TestControlliNota::limiti()
{
    QFETCH(const double, Importo);
    QFETCH(const int, NVoce);
    QFETCH(const double, Min);
    QFETCH(const double, Max);
    QFETCH(const QString, Frase);
    Parcella Nota = FatturaInRegola();
    const int Riga = RigaOnorario(Nota, u"Fase decisoria"_s, Importo, NVoce);
    Nota.xOnorari(Riga, OnoImporto) = Importo;
    Nota.xOnorari(Riga, OnoMin) = Min;
    Nota.xOnorari(Riga, OnoMax) = Max;
    QCOMPARE(FraseLimite(Nota.xOnorari, Riga), Frase);
    const Guardata Esito = Guarda(Nota);
    QCOMPARE(Esito.Generi, Frase.isEmpty() ? QList<GenereRilievo>() : QList{FuoriLimiti});
    if (Frase.isEmpty())
        return;
    QCOMPARE(Esito.Frasi.first(), u"Onorario 2 (Fase decisoria): %1, %2"_s.arg(TestoImporto(Importo), Frase));
    QCOMPARE(Esito.Tutti.first().Luogo, LuogoRilievo::Onorari);
    QCOMPARE(Esito.Tutti.first().Riga, Riga);
    QCOMPARE(Esito.Tutti.first().Colonna, int(OnoImporto));
}

/// Three hours with 50% more: the line's own limits, not the item's.
void TestControlliNota::iLimitiSonoQuelliMostrati()
{
    Parcella Nota = FatturaInRegola();
    DatiOnorario Dati;
    Dati.Quant = 3;
    Dati.NVoce = 5;
    Dati.Descr = u"Consultazione"_s;
    Dati.Importo = Dati.Medio = 300;
    Dati.Min = 150;
    Dati.Max = 600;
    Dati.VarPerc = 50;
    Dati.CodVoce = 5;
    const int Riga = AddModOnor(Nota, Dati, RigaNuova);
    Nota.xOnorari(Riga, OnoImporto) = 900.0;
    QCOMPARE(Guarda(Nota).Generi, QList<GenereRilievo>());
    Nota.xOnorari(Riga, OnoImporto) = 901.0;
    QCOMPARE(FraseLimite(Nota.xOnorari, Riga), u"oltre il massimo di 900,00"_s);
    Nota.xOnorari(Riga, OnoImporto) = 224.0;
    QCOMPARE(FraseLimite(Nota.xOnorari, Riga), u"sotto il minimo di 225,00"_s);
    QCOMPARE(FraseLimite(Nota.xOnorari, Riga + 1), QString());  // no such line
    QCOMPARE(FraseLimite(Nota.xOnorari, -1), QString());
}

void TestControlliNota::onorariAZero()
{
    Parcella Nota = FatturaInRegola();
    const int Riga = RigaOnorario(Nota, {}, 0, VoceLibera);
    const Guardata Esito = Guarda(Nota);
    QCOMPARE(Esito.Generi, QList{OnorarioAZero});
    QCOMPARE(Esito.Frasi, QStringList{u"Onorario 2: l'importo è 0"_s});
    QCOMPARE(Esito.Tutti.first().Riga, Riga);
    // Below its minimum it is told as such, once.
    Nota.xOnorari(Riga, OnoNVoce) = 3;
    Nota.xOnorari(Riga, OnoMin) = 100.0;
    Nota.xOnorari(Riga, OnoMax) = 200.0;
    QCOMPARE(Guarda(Nota).Generi, QList{FuoriLimiti});
    Nota.xOnorari(Riga, OnoImporto) = 100.0;
    QCOMPARE(Guarda(Nota).Generi, QList<GenereRilievo>());
}

void TestControlliNota::speseAZero_data()
{
    QTest::addColumn<QVariant>("Imponibile");
    QTest::addColumn<QVariant>("Esente");
    QTest::addColumn<bool>("Detta");
    QTest::newRow("come viene dal catalogo") << QVariant(0.0) << QVariant() << true;
    QTest::newRow("vuota") << QVariant() << QVariant() << true;
    QTest::newRow("svuotata") << QVariant(QString()) << QVariant(QString()) << true;
    QTest::newRow("un centesimo") << QVariant(0.01) << QVariant() << false;
    QTest::newRow("esente") << QVariant(0.0) << QVariant(27.0) << false;
    QTest::newRow("storno") << QVariant(-5.0) << QVariant() << false;
}

void TestControlliNota::speseAZero()
{
    QFETCH(const QVariant, Imponibile);
    QFETCH(const QVariant, Esente);
    QFETCH(const bool, Detta);
    Parcella Nota = FatturaInRegola();
    const int Riga = RigaSpesa(Nota, Imponibile, Esente);
    Nota.xDiritti(Riga, DirDescr) = u"Anticipazione forfettaria ex art. 30 del D.P.R. 115/2002 (€ 27,00)"_s;
    const Guardata Esito = Guarda(Nota);
    if (!Detta) {
        QCOMPARE(Esito.Frasi, QStringList());
        return;
    }
    QCOMPARE(Esito.Generi, QList{SpesaAZero});
    QCOMPARE(Esito.Frasi, QStringList{u"Spesa 2 (Anticipazione forfettaria ex art. 30…): l'importo è 0"_s});
    QCOMPARE(Esito.Tutti.first().Luogo, LuogoRilievo::Spese);
    QCOMPARE(Esito.Tutti.first().Riga, Riga);
    QCOMPARE(Esito.Tutti.first().Colonna, int(DirImponibile));
}

void TestControlliNota::moltiOnorari_data()
{
    QTest::addColumn<int>("Quanti");
    QTest::newRow("tanti quanti se ne dicono") << MassimoRilieviDiRighe;
    QTest::newRow("uno di piu'") << MassimoRilieviDiRighe + 1;
    QTest::newRow("mille") << 1000;
}

void TestControlliNota::moltiOnorari()
{
    QFETCH(const int, Quanti);
    Parcella Nota = FatturaInRegola();
    for (int i = 0; i < Quanti; ++i)
        Nota.xOnorari(RigaOnorario(Nota, u"Udienza"_s, 100), OnoImporto) = 101.0;
    const Guardata Esito = Guarda(Nota);
    const int Altri = Quanti - MassimoRilieviDiRighe;
    QCOMPARE(Esito.Generi.size(), MassimoRilieviDiRighe + (Altri > 0 ? 1 : 0));
    if (Altri <= 0)
        return;
    QCOMPARE(Esito.Frasi.last(), u"Altri onorari oltre il massimo o sotto il minimo: %1"_s.arg(Altri));
    QCOMPARE(Esito.Tutti.last().Riga, 1 + MassimoRilieviDiRighe);  // the first that is not told by itself
}

void TestControlliNota::aliquote_data()
{
    QTest::addColumn<int>("Tassa");
    QTest::addColumn<QString>("Percento");
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Frase");
    const auto Riga = [](const char* Nome, Imposta Tassa, const QString& Percento, const QString& Data,
                         const QString& Frase) {
        QTest::newRow(Nome) << int(Tassa) << Percento << Data << Frase;
    };
    const QString Oggi = u"22/11/2026"_s;
    Riga("IVA di oggi", Imposta::IVA, u"22"_s, Oggi, {});
    Riga("IVA di oggi coi decimali", Imposta::IVA, u"22,00"_s, Oggi, {});
    Riga("IVA di prima", Imposta::IVA, u"21"_s, Oggi, u"I.V.A. al 21%: dal 01/10/2013 è il 22%"_s);
    Riga("IVA di quel giorno", Imposta::IVA, u"21"_s, u"30/09/2013"_s, {});
    Riga("IVA del giorno dopo", Imposta::IVA, u"21"_s, u"01/10/2013"_s,
         u"I.V.A. al 21%: dal 01/10/2013 è il 22%"_s);
    Riga("IVA di oggi su una vecchia", Imposta::IVA, u"22"_s, u"30/09/2013"_s,
         u"I.V.A. al 22%: il 30/09/2013 era il 21%"_s);
    Riga("data che non è una data", Imposta::IVA, u"21"_s, {}, u"I.V.A. al 21%: dal 01/10/2013 è il 22%"_s);
    Riga("IVA vuota", Imposta::IVA, {}, Oggi, u"I.V.A. senza percentuale: conta come 0"_s);
    Riga("IVA che non è un numero", Imposta::IVA, u"2,2,"_s, Oggi,
         u"I.V.A. senza percentuale: conta come 0"_s);
    Riga("cassa", Imposta::CP, u"4"_s, Oggi, {});
    Riga("cassa di prima", Imposta::CP, u"2"_s, Oggi, u"Cassa di previdenza al 2%: dal 01/01/2010 è il 4%"_s);
    Riga("ritenuta", Imposta::RA, u"20"_s, Oggi, {});
    Riga("ritenuta di prima", Imposta::RA, u"19"_s, Oggi,
         u"Ritenuta d'acconto al 19%: dal 01/01/1998 è il 20%"_s);
    Riga("spese generali come convenute", Imposta::SpeseGen, u"10"_s, Oggi, {});
}

void TestControlliNota::aliquote()
{
    QFETCH(const int, Tassa);
    QFETCH(const QString, Percento);
    QFETCH(const QString, Data);
    QFETCH(const QString, Frase);
    Parcella Nota = FatturaInRegola();
    Nota.txtDatiPar[DatoDataFatt] = Data;
    // The others ask nothing of these rows.
    for (const Imposta Altra : Imposte)
        (Nota.*DatiImposta(Altra).Tick).Attiva = false;
    const VoceImposta& Tenuta = DatiImposta(Imposta(Tassa));
    (Nota.*Tenuta.Tick).Attiva = true;
    (Nota.*Tenuta.Box).Testo = Percento;
    Guardata Esito = Guarda(Nota);
    Esito.Frasi.removeAll(u"La fattura è senza data"_s);
    QCOMPARE(Esito.Frasi, Frase.isEmpty() ? QStringList() : QStringList{Frase});
    if (Frase.isEmpty())
        return;
    QCOMPARE(Esito.Tutti.last().Luogo, LuogoRilievo::Imposta);
    QCOMPARE(Esito.Tutti.last().Colonna, Tassa);
    (Nota.*Tenuta.Tick).Attiva = false;
    Esito = Guarda(Nota);
    Esito.Frasi.removeAll(u"La fattura è senza data"_s);
    QCOMPARE(Esito.Frasi, QStringList());
}

/// Rates of documents without taxes, and of the subsidised regime, which has neither VAT nor withholding.
void TestControlliNota::senzaAliquotaSulDocumento()
{
    Parcella Nota = FatturaInRegola();
    Nota.txtIVA.Testo = u"21"_s;
    RicordaStampa(Nota);
    QCOMPARE(Guarda(Nota).Generi, QList{AliquotaDiversa});
    Parcella Agevolata = Nota;
    CambiaRegime(Agevolata, true);
    QCOMPARE(Guarda(Agevolata).Generi, QList<GenereRilievo>());
    ScegliTipoStampa(Nota, StampaContratto);
    QCOMPARE(Guarda(Nota).Generi, QList<GenereRilievo>());
}

void TestControlliNota::acconti_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("SpeseGen");
    QTest::addColumn<QString>("Valuta");
    QTest::addColumn<double>("Corr");
    QTest::addColumn<double>("SpImp");
    QTest::addColumn<double>("SpEse");
    QTest::addColumn<QStringList>("Frasi");
    const auto Riga = [](const char* Nome, int Tipo, const QString& SpeseGen, const QString& Valuta,
                         double Corr, double SpImp, double SpEse, const QStringList& Frasi) {
        QTest::newRow(Nome) << Tipo << SpeseGen << Valuta << Corr << SpImp << SpEse << Frasi;
    };
    const int Fattura = StampaFatturaAnalitica;
    const QString E = u"E"_s;
    // 1.200,00 of fees, 12,50 of taxable expenses, none exempt.
    Riga("tutti gli onorari", Fattura, {}, E, 1200, 0, 0, {});
    Riga("un centesimo di più", Fattura, {}, E, 1200.01, 0, 0,
         {u"Gli acconti sui corrispettivi, 1.200,01, superano gli onorari, 1.200,00"_s});
    Riga("con le spese generali", Fattura, u"15"_s, E, 1380, 0, 0, {});
    Riga("oltre le spese generali", Fattura, u"15"_s, E, 1380.01, 0, 0,
         {u"Gli acconti sui corrispettivi, 1.380,01, superano onorari e spese generali, 1.380,00"_s});
    Riga("spese imponibili", Fattura, {}, E, 0, 12.5, 0, {});
    Riga("oltre le spese imponibili", Fattura, {}, E, 0, 12.51, 0,
         {u"Gli acconti sulle spese imponibili, 12,51, superano le spese imponibili, 12,50"_s});
    Riga("oltre le spese esenti", Fattura, {}, E, 0, 0, 0.01,
         {u"Gli acconti sulle spese esenti, 0,01, superano le spese esenti, 0,00"_s});
    Riga("lire", Fattura, {}, u"L"_s, 1936270, 0, 0, {});
    Riga("la nota spese non ne conosce", StampaNotaGiudiziale, {}, E, 9000, 9000, 9000, {});
    Riga("il contratto non ha riepilogo", StampaContratto, {}, E, 9000, 9000, 9000, {});
}

void TestControlliNota::acconti()
{
    QFETCH(const int, Tipo);
    QFETCH(const QString, SpeseGen);
    QFETCH(const QString, Valuta);
    QFETCH(const double, Corr);
    QFETCH(const double, SpImp);
    QFETCH(const double, SpEse);
    QFETCH(const QStringList, Frasi);
    Parcella Nota = FatturaInRegola();
    ScegliTipoStampa(Nota, Tipo);
    Nota.chkSpeseGen.Attiva = !SpeseGen.isEmpty();
    Nota.txtSpeGen.Testo = SpeseGen;
    RigaAcconto(Nota, Valuta, Corr, SpImp, SpEse);
    const Guardata Esito = Guarda(Nota);
    QCOMPARE(Esito.Frasi, Frasi);
    for (const Rilievo& Detto : Esito.Tutti) {
        QCOMPARE(Detto.Luogo, LuogoRilievo::Acconti);
        QCOMPARE(Detto.Colonna, Corr > 0 ? AccCorrispettivi : SpImp > 0 ? AccSpeseImp : AccSpeseEsenti);
    }
}

/// The sheet takes away what came behind the invoice; the invoice is what it was.
void TestControlliNota::accontiDopoLaFattura()
{
    Parcella Nota = FatturaInRegola();
    Nota.Stato = StatoDiNuova();
    (void)NotaInviata(Nota, Nota.cmbTipoStampa);
    QCOMPARE(Guarda(Nota).Generi, QList<GenereRilievo>());
    const QString Intera = Format(CatenaFiscale(Nota, Nota.cmbTipoStampa).Totale, u"#,##0.00");
    RigaAcconto(Nota, u"E"_s, 100.0, 0.0, 0.0);
    const QString Carta = Format(CatenaFiscale(Nota, Nota.cmbTipoStampa).Totale, u"#,##0.00");
    QCOMPARE(Guarda(Nota).Generi, QList{AccontiDopo});
    QCOMPARE(Guarda(Nota).Frasi.first(),
             u"La fattura è di %1 euro e resta tale: gli acconti scritti dopo la pagano, ma la carta "
             "stampata ora li toglie e dice %2 euro."_s.arg(Intera, Carta));
    QCOMPARE(Guarda(Nota).Tutti.first().Luogo, LuogoRilievo::Acconti);
}

void TestControlliNota::notaDiCredito()
{
    Parcella Nota = FatturaInRegola();
    Nota.FatturaXml.Tipo = u"TD04"_s;
    QCOMPARE(Guarda(Nota).Generi, QList{CartaDiFattura});
    ScegliTipoStampa(Nota, StampaPrenotula);
    QCOMPARE(Guarda(Nota).Generi, QList<GenereRilievo>());
}

/// What the associated note charges counts, and what was paid for it too.
void TestControlliNota::accontiDellaMultipla()
{
    Parcella Nota = FatturaInRegola();
    RigaAcconto(Nota, u"E"_s, 1500.0, 0.0, 0.0);
    QCOMPARE(Guarda(Nota).Generi, QList{AccontiEccedenti});
    Nota.txtParcMultipla = u"altra"_s;
    Nota.Multi.TotOnorariMulti = 300.0;
    QCOMPARE(Guarda(Nota).Generi, QList<GenereRilievo>());
    Nota.Multi.TotOnorariMulti = 299.0;
    QCOMPARE(Guarda(Nota).Generi, QList{AccontiEccedenti});
}

void TestControlliNota::daRicalcolare()
{
    Parcella Nota = FatturaInRegola();
    SegnaRicalcolo(Nota);
    const Guardata Esito = Guarda(Nota);
    QCOMPARE(Esito.Generi, QList{DaRicalcolare});
    QCOMPARE(Esito.Tutti.first().Luogo, LuogoRilievo::Ricalcolo);
    // The visit would change the very amount: the way leads by the recalculation.
    Nota.xOnorari(0, OnoImporto) = 5000.0;
    QCOMPARE(Guarda(Nota).Tutti.last().Genere, FuoriLimiti);
    QCOMPARE(Guarda(Nota).Tutti.last().Luogo, LuogoRilievo::Ricalcolo);
    Nota.RicalcoloNecessario = false;  // as a reopened note has it: entering leaves the lines
    QCOMPARE(Guarda(Nota).Tutti.last().Luogo, LuogoRilievo::Onorari);
    Nota.xOnorari.Azzera(OnoColonne);
    QCOMPARE(Guarda(Nota).Generi, QList<GenereRilievo>());
}

void TestControlliNota::gliErroriDavanti()
{
    Parcella Nota = FatturaInRegola();
    Nota.xOnorari(0, OnoImporto) = 5000.0;
    Nota.txtDatiPar[DatoNumFatt].clear();
    Nota.txtDatiPar[DatoDataFatt].clear();
    DatiCliente Senza;
    QCOMPARE(Guarda(Nota, Senza).Generi,
             QList({NumeroMancante, DataMancante, ClienteSenzaCodici, FuoriLimiti}));
}

/// A spoilt note has rows of nearly every kind, each with a sentence of its own.
void TestControlliNota::ogniLuogoHaLaSuaRiga()
{
    Parcella Nota = FatturaInRegola();
    Nota.txtDatiPar[DatoNumFatt].clear();
    Nota.txtDatiPar[DatoDataFatt] = u"pippo"_s;
    Nota.xOnorari(0, OnoImporto) = 5000.0;
    RigaSpesa(Nota, 0.0, QVariant());
    RigaAcconto(Nota, u"E"_s, 9000.0, 0.0, 0.0);
    Nota.txtIVA.Testo = u"21"_s;
    SegnaRicalcolo(Nota);
    Guardata Esito = Guarda(Nota, std::nullopt);
    QCOMPARE(Esito.Generi, QList({NumeroMancante, DataNonValida, ClienteAssente, DaRicalcolare, FuoriLimiti,
                                  SpesaAZero, AccontiEccedenti, AliquotaDiversa}));
    QCOMPARE(Esito.Frasi.removeDuplicates(), 0);
    for (const QString& Frase : std::as_const(Esito.Frasi))
        QVERIFY2(!Frase.contains(u"%1") && Frase.size() < 130, qPrintable(Frase));
}

#include "TestControlliNota.moc"
