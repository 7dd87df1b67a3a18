// The state of a note in its file: round trips, files from before it, values that are none.
#include "file_prova.h"

#include "feenote/file/memoriastato.h"
#include "feenote/file/modSalvataggio.h"
#include "feenote/modAcconti.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modStato.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"

#include <QDir>

#include <functional>

using namespace Qt::StringLiterals;
using enum StatoNota;

using Passo = std::function<void(Parcella&)>;

class TestMemoriaStato : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { InstallaOrologio({}); }
    void torna_data();
    void torna();
    void leVoci();
    void laNotaPagataTornaIndietro();
    void fileDiPrima();
    void valoriOstili_data();
    void valoriOstili();
    void documentiOstili_data();
    void documentiOstili();
    void documentiNonNoti();
    void soloDelFileElettronico();
    void modello();
    void modelloNonScritto();
    void modelloDiPrima();
    void bozzaDopoLaFattura();
};
PROVA(TestMemoriaStato);

namespace {

void Paga(Parcella& Nota)
{
    Copertura Vista;
    const int Riga = NuovoAcconto(Nota);
    Nota.xAcconti(Riga, AccCorrispettivi) = 1e6;
    (void)SegueStato(Nota, Vista);
}

}  // namespace

void TestMemoriaStato::init()
{
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
}

void TestMemoriaStato::torna_data()
{
    QTest::addColumn<Passo>("Che");
    QTest::addColumn<StatoNota>("Stato");
    const auto Caso = [](const char* Nome, StatoNota Stato, const Passo& Che) {
        QTest::newRow(Nome) << Che << Stato;
    };
    Caso("bozza", Bozza, [](Parcella&) {});
    Caso("senza stato", Ignoto, [](Parcella& Nota) { Nota.Stato = {}; });
    Caso("inviata", Inviata, [](Parcella& Nota) { (void)NotaInviata(Nota, StampaPrenotula); });
    Caso("fatturata", Fatturata, [](Parcella& Nota) { (void)NotaInviata(Nota, StampaFatturaAnalitica); });
    Caso("fatturata col file", Fatturata, [](Parcella& Nota) { (void)NotaFatturata(Nota); });
    Caso("pagata dopo la fattura", Pagata, [](Parcella& Nota) {
        (void)NotaFatturata(Nota);
        Paga(Nota);
    });
    Caso("pagata in bozza", Pagata, Paga);
    Caso("pagata senza stato prima", Pagata, [](Parcella& Nota) {
        Nota.Stato = {};
        Paga(Nota);
    });
    Caso("scelta a mano", Pagata, [](Parcella& Nota) { (void)ScegliStato(Nota, Pagata); });
    Caso("nota di credito", Fatturata, [](Parcella& Nota) {
        Nota.FatturaXml.Tipo = u"TD04"_s;
        (void)NotaFatturata(Nota);
        QVERIFY(Nota.Stato.Storno);
        Nota.Stato.CitataNumero = u"7;8"_s;
        Nota.Stato.CitataData = u"01/02/2026"_s;
    });
    Caso("fattura e nota di credito", Fatturata, [](Parcella& Nota) {
        for (const int Numero : {12, 13, 14, 15, 16}) {
            Nota.FatturaXml.Tipo = Numero % 2 == 1 ? u"TD04"_s : QString();
            Nota.FatturaXml.CitataNumero = Numero % 2 == 1 ? u";%1;"_s.arg(Numero - 1) : QString();
            Nota.FatturaXml.CitataData = Numero == 13 ? u"9/11/2026"_s : QString();
            Nota.txtDatiPar[DatoNumFatt] = u";%1;"_s.arg(Numero);
            Nota.txtDatiPar[DatoDataFatt] = u"09/11/2026"_s;
            SegnaFatturaScritta(Nota, u"x"_s, u"x"_s);
        }
        QCOMPARE(Nota.Stato.Emessi.size(), MassimiEmessi);
        QCOMPARE(Nota.Stato.Emessi[1].CitataNumero, u";12;"_s);
        QCOMPARE(Nota.Stato.Emessi[1].CitataData, u"09/11/2026"_s);
    });
    Caso("dopo una pagata a mano", Fatturata, [](Parcella& Nota) {
        for (const int Numero : {12, 30}) {
            (void)ScegliStato(Nota, Numero == 12 ? Bozza : Pagata);
            Nota.txtDatiPar[DatoNumFatt] = QString::number(Numero);
            Nota.txtDatiPar[DatoDataFatt] = u"09/11/2026"_s;
            SegnaFatturaScritta(Nota, u"x"_s, u"x"_s);
        }
        QVERIFY(Nota.Stato.Emessi[0].AMano > 0 && Nota.Stato.ConFile);
        Nota.Stato.Emessi[0].Dal = u"09/11/2026"_s;
        QVERIFY(Nota.Stato.Emessi[0].ConFile);
        Nota.Stato.Emessi[0].DalPrima = u"08/11/2026"_s;
    });
    Caso("fattura senza numero", Fatturata, [](Parcella& Nota) {
        Nota.txtDatiPar.remove(DatoNumFatt);
        (void)NotaFatturata(Nota);
        Nota.FatturaXml.Tipo = u"TD04"_s;
        (void)NotaFatturata(Nota);
        QCOMPARE(Nota.Stato.Emessi.size(), 1);
        QCOMPARE(Nota.Stato.Emessi[0].Numero, QString());
    });
    Caso("con un'altra nota", Inviata, [](Parcella& Nota) {
        Nota.txtPathParcMult = u"/note/altra.mdb"_s;
        Nota.txtParcMultipla = u"altra"_s;
        Nota.Multi.TotOnorariMulti = 123.45;
        (void)NotaInviata(Nota, StampaPrenotula);
        QVERIFY(Nota.Stato.ConSocio && Nota.Stato.Socio);
        Nota.txtParcMultipla.clear();
    });
    Caso("due con un'altra nota", Fatturata, [](Parcella& Nota) {
        Nota.txtPathParcMult = u"/note/altra.mdb"_s;
        Nota.txtParcMultipla = u"altra"_s;
        Nota.Multi.TotOnorariMulti = 1000;
        const int Riga = Nota.Multi.xAccontiMulti.AggiungiRiga();
        Nota.Multi.xAccontiMulti(Riga, AccValuta) = u"E"_s;
        Nota.Multi.xAccontiMulti(Riga, AccCorrispettivi) = 100.0;
        Nota.Multi.xAccontiMulti(Riga, AccSpeseImp) = 20.5;
        Nota.Multi.xAccontiMulti(Riga, AccSpeseEsenti) = 3.25;
        for (const int Numero : {12, 13}) {
            Nota.txtDatiPar[DatoNumFatt] = QString::number(Numero);
            Nota.txtDatiPar[DatoDataFatt] = u"09/11/2026"_s;
            SegnaFatturaScritta(Nota, u"x"_s, QString::number(Numero));
        }
        const AccontiTenuti Suoi{100, 20.5, 3.25};
        QCOMPARE(Nota.Stato.Importi->DelSocio, std::optional(Suoi));
        QCOMPARE(Nota.Stato.Emessi[0].Importi.DelSocio, std::optional(Suoi));
        Nota.txtParcMultipla.clear();
    });
    Caso("con un'altra nota da un file di prima", Inviata, [](Parcella& Nota) {
        Nota.txtPathParcMult = u"/note/altra.mdb"_s;
        Nota.txtParcMultipla = u"altra"_s;
        Nota.Multi.TotOnorariMulti = 1000;
        (void)NotaInviata(Nota, StampaPrenotula);
        Nota.Stato.Importi->DelSocio.reset();
        Nota.txtParcMultipla.clear();
    });
    Caso("bozza con un'altra nota", Bozza, [](Parcella& Nota) {
        Nota.txtPathParcMult = u"/note/altra.mdb"_s;
        Nota.Stato.Socio = SocioTenuto{1, 2, 3, 4, 5, 6.78};
    });
    Caso("importi senza misura", Inviata, [](Parcella& Nota) {
        Nota.xOnorari(0, OnoImporto) = 123456789012345.675;
        (void)NotaInviata(Nota, StampaPrenotula);
    });
}

void TestMemoriaStato::torna()
{
    QFETCH(Passo, Che);
    QFETCH(StatoNota, Stato);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = Riletta(Ufficio, NotaPiena());
    QCOMPARE(Nota.Stato, StatoDiNuova());
    Che(Nota);
    QCOMPARE(Nota.Stato.Stato, Stato);
    const Parcella Letta = Riletta(Ufficio, Nota);
    QVERIFY(Letta.Stato == Nota.Stato);
    QVERIFY(!Letta.Modificata);
}

void TestMemoriaStato::leVoci()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = Riletta(Ufficio, NotaPiena());
    Nota.xAcconti.Azzera(AccColonne);
    (void)NotaInviata(Nota, StampaFatturaAnalitica);
    const Catena Conti = CatenaFiscale(Nota, StampaFatturaAnalitica);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    const MemoriaFile Memoria = MemoriaDi(File);
    QCOMPARE(Memoria.value(u"Stato"_s), u"Fatturata"_s);
    QCOMPARE(Memoria.value(u"Stato.Documento"_s), u"3"_s);
    QCOMPARE(Memoria.value(u"Stato.Dal.Fatturata"_s), u"22/11/2026"_s);
    const auto Decimale = [](double Euro) { return QString::number(Arrotonda2(Euro), 'f', 2); };
    QCOMPARE(Memoria.value(u"Stato.Importi"_s),
             (QStringList{Decimale(Conti.Imponibile), Decimale(Conti.CP), Decimale(Conti.IVA),
                          Decimale(Conti.Totale), Decimale(Conti.RA), Decimale(Conti.Netto), u"0.00"_s,
                          u"0.00"_s, u"0.00"_s, Decimale(Conti.Netto)})
                 .join(u';'));
    QVERIFY(Conti.RA > 0 && Conti.IVA > 0 && Conti.CP > 0);
    QVERIFY(!HaVociIgnote(Memoria));
    const StatoLetto Letto = LeggiStatoLetto(Memoria);
    QCOMPARE(Letto.Stato, Fatturata);
    QCOMPARE(Letto.Dal, u"22/11/2026"_s);
    QCOMPARE(Letto.Documento, int(StampaFatturaAnalitica));
    QCOMPARE(Letto.Importi, std::optional(ImportiDellaNota(Nota)));
    QCOMPARE(Letto.Resto, Arrotonda2(Conti.Netto));
}

void TestMemoriaStato::laNotaPagataTornaIndietro()
{
    const Studio Ufficio;
    Registratore Messaggi;
    for (const StatoNota Prima : {Ignoto, Bozza, Inviata}) {
        Parcella Nota = Riletta(Ufficio, NotaPiena());
        Nota.Stato = {};
        Nota.Stato.Stato = Prima;
        Paga(Nota);
        Nota = Riletta(Ufficio, Nota);
        QCOMPARE(Nota.Stato.Stato, Pagata);
        Copertura Vista = CoperturaDi(Nota);
        QVERIFY(Vista.Coperta);
        Nota.xAcconti.Azzera(AccColonne);
        QVERIFY(SegueStato(Nota, Vista));
        QCOMPARE(Nota.Stato.Stato, Prima);
    }
}

void TestMemoriaStato::fileDiPrima()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = Riletta(Ufficio, NotaPiena());
    (void)NotaFatturata(Nota);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    EseguiSu(File, u"DELETE FROM \"_Calcanova\" WHERE Nome LIKE 'Stato%'"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Stato, StatoTenuto());
    QVERIFY(!Letta.Modificata);
    // Saved again it still has none: nothing has happened to it.
    ScriviNota(File, Letta);
    QVERIFY(!MemoriaDi(File).contains(u"Stato"_s));
    QVERIFY(MemoriaDi(File).contains(u"Stato.Importi"_s));
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Stato, StatoTenuto());
}

void TestMemoriaStato::valoriOstili_data()
{
    QTest::addColumn<QString>("Voce");
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<bool>("SenzaImporti");
    const auto Riga = [](const char* Nome, const QString& Voce, const QString& Valore, bool Senza) {
        QTest::newRow(Nome) << Voce << Valore << Senza;
    };
    const QString Importi = u"Stato.Importi"_s;
    Riga("unknown state", u"Stato"_s, u"Sollecitata"_s, false);
    Riga("a long one", u"Stato"_s, QString(100'000, u'x'), false);
    Riga("a document that there is not", u"Stato.Documento"_s, u"8"_s, false);
    Riga("a negative document", u"Stato.Documento"_s, u"-1"_s, false);
    Riga("a document that is no number", u"Stato.Documento"_s, u"3 fatture"_s, false);
    Riga("a day of no calendar", u"Stato.Dal.Fatturata"_s, u"31/02/2026"_s, false);
    Riga("no number of an invoice", u"Stato.Fattura"_s, u"09/11/2026"_s, false);
    Riga("an invoice of no day", u"Stato.Fattura"_s, u"31/11/2026;12"_s, false);
    Riga("no figures", Importi, u""_s, true);
    Riga("too few", Importi, u"1;2;3;4;5;6;7;8;9"_s, true);
    Riga("too many", Importi, u"1;2;3;4;5;6;7;8;9;10;11"_s, true);
    Riga("no number", Importi, u"1;2;3;4;5;sei;7;8;9;10"_s, true);
    Riga("not finite", Importi, u"1;2;3;4;5;inf;7;8;9;10"_s, true);
    Riga("no number by name", Importi, u"1;2;3;4;5;nan;7;8;9;10"_s, true);
    Riga("beyond all limits", Importi, u"1;2;3;4;5;1e300;7;8;9;10"_s, true);
    Riga("less than nothing is open", Importi, u"1;2;3;4;5;6;7;8;9;-0.01"_s, true);
}

void TestMemoriaStato::valoriOstili()
{
    QFETCH(QString, Voce);
    QFETCH(QString, Valore);
    QFETCH(bool, SenzaImporti);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = Riletta(Ufficio, NotaPiena());
    (void)NotaFatturata(Nota);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    EseguiSu(File, u"UPDATE \"_Calcanova\" SET Valore=? WHERE Nome=?"_s, {Valore, Voce});
    const StatoLetto Letto = LeggiStatoLetto(MemoriaDi(File));
    QCOMPARE(Letto.Stato, Voce == u"Stato" ? Ignoto : Fatturata);
    QCOMPARE(Letto.Documento, Voce == u"Stato.Documento" ? -1 : int(StampaFatturaAnalitica));
    QCOMPARE(Letto.Dal, Voce.startsWith(u"Stato.Dal") || Voce == u"Stato" ? QString() : u"22/11/2026"_s);
    QCOMPARE(!Letto.Importi, SenzaImporti);
    QCOMPARE(Letto.Resto, SenzaImporti ? 0.0 : Letto.Resto);
    // The note opens, and a save puts things right.
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Stato.Stato, Letto.Stato);
    QVERIFY(Letta.Stato.Documento == Letto.Documento);
    QCOMPARE(Letta.Stato.Emessa, Letto.Documento >= 0);
    ScriviNota(File, Letta);
    QVERIFY(LeggiStatoLetto(MemoriaDi(File)).Importi);
}

void TestMemoriaStato::documentiOstili_data()
{
    QTest::addColumn<QString>("Emesso");
    QTest::addColumn<QString>("Socio");
    const QString Buono = u"3;0;0;1;2;3;4;5;6;7;8;9;0;09/11/2026;12"_s;
    QTest::newRow("too few parts") << u"3;0;0;1;2;3;4;5;6;7;8;9;0;12"_s << u"1;2;3;4;5"_s;
    QTest::newRow("too many figures") << QString() << u"1;2;3;4;5;6;7"_s;
    QTest::newRow("no document") << u"99"_s + Buono.mid(1) << u";;;;;"_s;
    QTest::newRow("a document that is no number") << u"x"_s + Buono.mid(1) << u"1;2;3;4;5;x"_s;
    QTest::newRow("not finite") << QString(Buono).replace(u";5;"_s, u";nan;"_s) << u"1;2;inf;4;5;6"_s;
    QTest::newRow("beyond all limits")
        << QString(Buono).replace(u";5;"_s, u";1e300;"_s) << u"1;2;3;4;5;1e19"_s;
    QTest::newRow("less than nothing is open")
        << QString(Buono).replace(u";9;0;"_s, u";9;-1;"_s) << u"nulla"_s;
    QTest::newRow("empty") << u""_s << u""_s;
}

/// A document whose figures are none is not known; the note opens and is saved.
void TestMemoriaStato::documentiOstili()
{
    QFETCH(QString, Emesso);
    QFETCH(QString, Socio);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = Riletta(Ufficio, NotaPiena());
    (void)NotaFatturata(Nota);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    const QString Inserisci = u"INSERT INTO \"_Calcanova\" VALUES (?,?)"_s;
    EseguiSu(File, Inserisci, {u"Stato.Emesso.1"_s, Emesso});
    EseguiSu(File, Inserisci, {u"Stato.Emesso.3"_s, u"3;1;0;1;2;3;4;5;6;7;8;9;0;31/02/2026;13"_s});
    EseguiSu(File, Inserisci, {u"Stato.Socio"_s, Socio});
    const StatoLetto Letto = LeggiStatoLetto(MemoriaDi(File));
    QCOMPARE(Letto.Emessi.size(), Emesso.isEmpty() ? 1 : 2);
    QCOMPARE(Letto.Emessi.first().Importi, Emesso.isEmpty());
    QCOMPARE(Letto.Emessi.last().Che.Numero, u"13"_s);
    QCOMPARE(Letto.Emessi.last().Che.Data, QString());
    QVERIFY(Letto.Emessi.last().Che.Storno);
    QVERIFY(Letto.Emessi.last().Importi);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Stato.Emessi.size(), Letto.Emessi.size());
    QCOMPARE(Letta.Stato.Emessi.last(), Letto.Emessi.last().Che);
    QCOMPARE(Letta.Stato.Socio, std::nullopt);
    ScriviNota(File, Letta);
    QVERIFY(!MemoriaDi(File).contains(u"Stato.Socio"_s));
    QVERIFY(!MemoriaDi(File).contains(u"Stato.Emesso.3"_s));
    // What cannot be read is nobody's to throw away.
    QVERIFY(MemoriaDi(File).contains(u"Stato.Emesso.1"_s));
    if (!Emesso.isEmpty())
        QCOMPARE(MemoriaDi(File).value(u"Stato.Emesso.1"_s), Emesso);
}

/// Payments make no note paid of which a document is not known; and where the last one is not known, those
/// before it outlive a save.
void TestMemoriaStato::documentiNonNoti()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = Riletta(Ufficio, NotaPiena());
    (void)NotaFatturata(Nota);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    const QString Buono = u"3;0;0;1.00;2.00;3.00;4.00;5.00;6.00;7.00;8.00;9.00;0.50;09/11/2026;12"_s;
    const QString Inserisci = u"INSERT INTO \"_Calcanova\" VALUES (?,?)"_s;
    const QString Cambia = u"UPDATE \"_Calcanova\" SET Valore=? WHERE Nome=?"_s;
    EseguiSu(File, Inserisci, {u"Stato.Emesso.1"_s, QString(Buono).replace(u";5.00;"_s, u";x;"_s)});
    Parcella Letta;
    CaricaDati(Letta, File);
    const int Riga = Letta.xAcconti.AggiungiRiga();
    Letta.xAcconti(Riga, AccValuta) = u"E"_s;
    Letta.xAcconti(Riga, AccCorrispettivi) = 1e6;
    QVERIFY(!CoperturaDi(Letta).Coperta);

    EseguiSu(File, Cambia, {Buono, u"Stato.Emesso.1"_s});
    CaricaDati(Letta, File);
    const int Altra = Letta.xAcconti.AggiungiRiga();
    Letta.xAcconti(Altra, AccValuta) = u"E"_s;
    Letta.xAcconti(Altra, AccCorrispettivi) = 1e6;
    QVERIFY(CoperturaDi(Letta).Coperta);
    EseguiSu(File, Cambia, {u"1;2;tre"_s, u"Stato.Importi"_s});
    CaricaDati(Letta, File);
    ScriviNota(File, Letta);
    QCOMPARE(MemoriaDi(File).value(u"Stato.Emesso.1"_s), Buono);
}

void TestMemoriaStato::soloDelFileElettronico()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = Riletta(Ufficio, NotaPiena());
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    EseguiSu(File, u"INSERT INTO \"_Calcanova\" VALUES ('DelFuturo','1')"_s);
    const QString Era = Nota.FatturaXml.CitataNumero;
    Nota.FatturaXml.CitataNumero = u"7"_s;
    (void)NotaInviata(Nota, StampaPrenotula);
    AnnotaStato(OpenDatabase(File), Nota);
    QCOMPARE(LeggiStatoLetto(MemoriaDi(File)).Stato, Inviata);
    QCOMPARE(MemoriaDi(File).value(u"DelFuturo"_s), u"1"_s);
    QVERIFY(!MemoriaDi(File).contains(u"FatturaXml.CitataNumero"_s));  // the state alone
    Nota.FatturaXml.CitataNumero = Era;
    (void)NotaFatturata(Nota);
    AnnotaFattura(OpenDatabase(File), Nota);
    const MemoriaFile Memoria = MemoriaDi(File);
    QCOMPARE(LeggiStatoLetto(Memoria).Stato, Fatturata);
    QCOMPARE(Memoria.value(u"DelFuturo"_s), u"1"_s);
    // Taken back, its entries go.
    (void)ScegliStato(Nota, Bozza);
    AnnotaFattura(OpenDatabase(File), Nota);
    QVERIFY(!MemoriaDi(File).contains(u"Stato.Documento"_s));
    QVERIFY(!MemoriaDi(File).contains(u"Stato.Dal.Fatturata"_s));
}

void TestMemoriaStato::modello()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = Riletta(Ufficio, NotaPiena());
    (void)NotaFatturata(Nota);
    const QString File = Ufficio.File(u"modello.mdb"_s);
    Messaggi.AttendiSalva(File);
    QVERIFY(SalvaConDialogo(Nota, true));
    QCOMPARE(Nota.Stato, StatoDiNuova());
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Stato, StatoDiNuova());
}

void TestMemoriaStato::modelloNonScritto()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = Riletta(Ufficio, NotaPiena());
    (void)NotaFatturata(Nota);
    const StatoTenuto Era = Nota.Stato;
    Messaggi.AttendiSalva(Ufficio.File(u"non/c'è/modello.mdb"_s));
    QVERIFY(NumeroErrore([&] { (void)SalvaConDialogo(Nota, true); }) != 0);
    QCOMPARE(Nota.Stato, Era);
}

/// What begins from a template of before the states is a draft; any other note of before has none.
void TestMemoriaStato::modelloDiPrima()
{
    const Studio Ufficio;
    Registratore Messaggi;
    for (const QString& Cartella : {u"Modelli/"_s, u"altre/"_s}) {
        QDir().mkpath(Ufficio.File(Cartella));
        const QString File = Ufficio.File(Cartella + u"a.mdb"_s);
        ScriviNota(File, NotaPiena());
        EseguiSu(File, u"DROP TABLE \"_Calcanova\""_s);
        Parcella Letta;
        CaricaDati(Letta, File);
        QCOMPARE(Letta.Stato.Stato, Cartella == u"Modelli/" ? Bozza : Ignoto);
    }
}

/// A save keeps of a draft that it is one.
void TestMemoriaStato::bozzaDopoLaFattura()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = Riletta(Ufficio, NotaPiena());
    (void)NotaFatturata(Nota);
    (void)ScegliStato(Nota, Bozza);
    const QString File = Ufficio.File(u"bozza.mdb"_s);
    Messaggi.AttendiSalva(File);
    QVERIFY(SalvaConDialogo(Nota, false));
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Stato, Nota.Stato);
    QCOMPARE(Letta.Stato.Documento, -1);
    QCOMPARE(Letta.Stato.Dal(), u"22/11/2026"_s);
}

#include "TestMemoriaStato.moc"
