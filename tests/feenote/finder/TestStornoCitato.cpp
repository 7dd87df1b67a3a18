// A credit note in the file of several invoices takes back the one that it cites, in lists as in the note.
#include "finder_prova.h"

#include "feenote/file/memoriastato.h"
#include "feenote/finder/scadenzario.h"
#include "feenote/modAcconti.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modInterruttori.h"
#include "feenote/modStato.h"
#include "feenote/notadamille.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;

namespace {

void Emetti(Parcella& Nota, int Numero, bool Credito = false)
{
    Nota.FatturaXml.Tipo = Credito ? u"TD04"_s : QString();
    Nota.txtDatiPar[DatoNumFatt] = QString::number(Numero);
    Nota.txtDatiPar[DatoDataFatt] = u"09/11/2026"_s;
    SegnaFatturaScritta(Nota, u"IT1_%1.xml"_s.arg(Numero), QString::number(Numero));
}

void Cita(Parcella& Nota, const QString& Numero, const QString& Data)
{
    Nota.FatturaXml.CitataNumero = Numero;
    Nota.FatturaXml.CitataData = Data;
}

/// As a list reads the note's file.
VoceTrova Letta(const Parcella& Nota)
{
    MemoriaFile Memoria;
    ScriviStato(Nota, Memoria);
    VoceTrova Voce;
    Voce.Genere = GenereVoce::Nota;
    Voce.Percorso = u"/note/una.mdb"_s;
    Voce.Cliente = u"Rossi Mario"_s;
    Voce.Dati.Stato = LeggiStatoLetto(Memoria);
    return Voce;
}

/// Document, number, net, paid, open.
QStringList Tabella(const VoceTrova& Voce)
{
    QStringList Righe;
    for (const QStringList& Celle : RigheScadenzario({&Voce}, [](int) { return CodiciCliente(); }))
        Righe += QStringList{Celle[3], Celle[4], Celle[14], Celle[15], Celle[16]}.join(u'|');
    return Righe;
}

/// Number, state, since when.
QStringList Giorni(const VoceTrova& Voce)
{
    QStringList Righe;
    for (const QStringList& Celle : RigheScadenzario({&Voce}, [](int) { return CodiciCliente(); }))
        Righe += QStringList{Celle[4], Celle[6], Celle[7]}.join(u' ');
    return Righe;
}

void Il(int Giorno)
{
    InstallaOrologio([Giorno] { return QDateTime(QDate(2026, 11, Giorno), QTime(10, 0)); });
}

}  // namespace

class TestStornoCitato : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        AzzeraSessione();
        InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
        Nota = NotaDaMille(StampaFatturaAnalitica);
    }
    void cleanup() { InstallaOrologio({}); }
    void laPiuVecchia();
    void dueDellaStessa();
    void iGiorni();
    void ilGiornoDiChiLaDicePagata();
    void nessunoHaPagatoLaStornata();
    void citataAltrove();
    void pagataDaiDue();
    void rimandataPiuGrande();
    void ilRestoGuasto_data();
    void ilRestoGuasto();
    void pagataEPoiResa_data();
    void pagataEPoiResa();
    void resaEPoiPagata_data();
    void resaEPoiPagata();

private:
    Parcella Nota;
};
PROVA(TestStornoCitato);

/// Nobody owes the older of two invoices that was taken back, also when a further one has followed.
void TestStornoCitato::laPiuVecchia()
{
    Emetti(Nota, 12);
    Emetti(Nota, 30);
    Cita(Nota, u"12"_s, u"9/11/2026"_s);
    Emetti(Nota, 31, true);
    Parcella Pagata = Nota;
    Pagata.xAcconti(NuovoAcconto(Pagata), AccCorrispettivi) = 500.0;
    const QStringList Attese{u"Fattura analitica|12|1459,12|0,00|0,00"_s,
                             u"Fattura analitica|30|1459,12|634,40|824,72"_s,
                             u"Nota di credito della fattura 12|31|-1459,12|0,00|0,00"_s};
    QCOMPARE(Tabella(Letta(Pagata)), Attese);
    QCOMPARE(ApertoDi(Letta(Pagata)), std::optional(824.72));
    Cita(Nota, {}, {});
    Emetti(Nota, 32);
    Nota.xAcconti(NuovoAcconto(Nota), AccCorrispettivi) = 500.0;
    QCOMPARE(Tabella(Letta(Nota)), Attese + QStringList{u"Fattura analitica|32|1459,12|0,00|1459,12"_s});
}

/// Two credit notes that cite none take back the last invoice before them.
void TestStornoCitato::dueDellaStessa()
{
    Emetti(Nota, 12);
    Emetti(Nota, 30);
    Nota.xOnorari(0, OnoImporto) = 100.0;
    Emetti(Nota, 31, true);
    Emetti(Nota, 32, true);
    QCOMPARE(Tabella(Letta(Nota)), (QStringList{u"Fattura analitica|12|1459,12|0,00|1459,12"_s,
                                                u"Fattura analitica|30|1459,12|0,00|1167,30"_s,
                                                u"Nota di credito|31|-145,91|0,00|0,00"_s,
                                                u"Nota di credito|32|-145,91|0,00|0,00"_s}));
}

/// Each document is invoiced since its own day, whatever has followed it.
void TestStornoCitato::iGiorni()
{
    Il(9);
    Emetti(Nota, 12);
    Il(15);
    Emetti(Nota, 13, true);
    QCOMPARE(Giorni(Letta(Nota)), (QStringList{u"12 Fatturata 09/11/2026"_s, u"13 Fatturata 15/11/2026"_s}));
    Il(21);
    Emetti(Nota, 30);
    QCOMPARE(Giorni(Letta(Nota)), (QStringList{u"12 Fatturata 09/11/2026"_s, u"13 Fatturata 15/11/2026"_s,
                                               u"30 Fatturata 21/11/2026"_s}));
    // A copy changes no day.
    Il(22);
    Emetti(Nota, 30);
    Emetti(Nota, 12);
    QCOMPARE(Letta(Nota).Dati.Stato.Dal, u"21/11/2026"_s);
    QCOMPARE(Giorni(Letta(Nota))[0], u"12 Fatturata 09/11/2026"_s);
    // Which payment has paid which is not kept.
    Copertura Vista;
    Nota.xAcconti(NuovoAcconto(Nota), AccCorrispettivi) = 2300.0;
    QVERIFY(SegueStato(Nota, Vista));
    QCOMPARE(Giorni(Letta(Nota)), (QStringList{u"12 Pagata "_s, u"13 Pagata "_s, u"30 Pagata 22/11/2026"_s}));
}

void TestStornoCitato::ilGiornoDiChiLaDicePagata()
{
    Il(9);
    Emetti(Nota, 12);
    Il(15);
    (void)ScegliStato(Nota, StatoNota::Pagata);
    Il(21);
    Emetti(Nota, 30);
    QCOMPARE(Giorni(Letta(Nota)), (QStringList{u"12 Pagata 15/11/2026"_s, u"30 Fatturata 21/11/2026"_s}));
}

/// The user's word "paid" is of what was still owed.
void TestStornoCitato::nessunoHaPagatoLaStornata()
{
    Emetti(Nota, 12);
    Cita(Nota, u"12"_s, u"9/11/2026"_s);
    Emetti(Nota, 13, true);
    Cita(Nota, {}, {});
    Emetti(Nota, 14);
    (void)ScegliStato(Nota, StatoNota::Pagata);
    QStringList Attese{u"Fattura analitica|12|1459,12|0,00|0,00"_s,
                       u"Nota di credito della fattura 12|13|-1459,12|0,00|0,00"_s,
                       u"Fattura analitica|14|1459,12|1459,12|0,00"_s};
    QCOMPARE(Tabella(Letta(Nota)), Attese);
    QCOMPARE(Giorni(Letta(Nota))[0], u"12 Fatturata "_s);
    Emetti(Nota, 16);
    QCOMPARE(Nota.Stato.Emessi[0].AMano, 0.0);
    Attese += u"Fattura analitica|16|1459,12|0,00|1459,12"_s;
    QCOMPARE(Tabella(Letta(Nota)), Attese);
    QCOMPARE(Giorni(Letta(Nota))[0], u"12 Fatturata 22/11/2026"_s);
    // Of one that was taken back in part the rest is paid.
    Nota.xOnorari(0, OnoImporto) = 100.0;
    Cita(Nota, u"16"_s, u"9/11/2026"_s);
    Emetti(Nota, 17, true);
    (void)ScegliStato(Nota, StatoNota::Pagata);
    Cita(Nota, {}, {});
    Emetti(Nota, 18);
    QVERIFY(Tabella(Letta(Nota)).contains(u"Fattura analitica|16|1459,12|1313,21|0,00"_s));
}

/// The cited invoice stands in another file, which is not in the list, or nowhere: this one's stays open.
void TestStornoCitato::citataAltrove()
{
    Emetti(Nota, 12);
    Cita(Nota, u"7"_s, u"9/11/2026"_s);
    Emetti(Nota, 13, true);
    QCOMPARE(Tabella(Letta(Nota)), (QStringList{u"Fattura analitica|12|1459,12|0,00|1459,12"_s,
                                                u"Nota di credito della fattura 7|13||0,00|0,00"_s}));
    QCOMPARE(ApertoDi(Letta(Nota)), std::optional(1459.12));
}

/// A part by payments, the rest by the user's word, then it was taken back: all of it had been paid.
void TestStornoCitato::pagataDaiDue()
{
    Emetti(Nota, 12);
    Nota.xAcconti(NuovoAcconto(Nota), AccCorrispettivi) = 400.0;
    (void)ScegliStato(Nota, StatoNota::Pagata);
    Emetti(Nota, 13, true);
    QCOMPARE(Tabella(Letta(Nota))[0], u"Fattura analitica|12|1459,12|1459,12|0,00"_s);
}

/// Called paid, then discarded and sent again for more: the rest is open.
void TestStornoCitato::rimandataPiuGrande()
{
    Emetti(Nota, 12);
    (void)ScegliStato(Nota, StatoNota::Pagata);
    Emetti(Nota, 30);
    Nota.xOnorari(0, OnoImporto) = 1100.0;
    Emetti(Nota, 12);
    QCOMPARE(Tabella(Letta(Nota)), (QStringList{u"Fattura analitica|12|1605,03|1459,12|145,91"_s,
                                                u"Fattura analitica|30|1459,12|0,00|1459,12"_s}));
    QCOMPARE(ApertoDi(Letta(Nota)), std::optional(1605.03));
    QCOMPARE(Giorni(Letta(Nota))[0].section(u' ', 1, 1), u"Fatturata"_s);
}

void TestStornoCitato::ilRestoGuasto_data()
{
    QTest::addColumn<QString>("Resto");
    for (const QString& Uno : {u"nan"_s, u"inf"_s, u"-5"_s, u"1e300"_s, u"x"_s})
        QTest::newRow(qPrintable(Uno)) << Uno;
}

/// An entry that is damaged makes no sum unknown.
void TestStornoCitato::ilRestoGuasto()
{
    QFETCH(QString, Resto);
    Emetti(Nota, 12);
    Nota.xAcconti(NuovoAcconto(Nota), AccCorrispettivi) = 400.0;
    (void)ScegliStato(Nota, StatoNota::Pagata);
    Emetti(Nota, 13, true);
    VoceTrova Voce = Letta(Nota);
    MemoriaFile Memoria;
    ScriviStato(Nota, Memoria);
    Memoria[u"Stato.Resto.Emesso.1"_s] = Resto;
    Voce.Dati.Stato = LeggiStatoLetto(Memoria);
    QCOMPARE(Tabella(Voce)[0], u"Fattura analitica|12|1459,12|1459,12|0,00"_s);
}

void TestStornoCitato::pagataEPoiResa_data()
{
    QTest::addColumn<double>("Onorari");
    QTest::newRow("whole") << 1000.0;
    QTest::newRow("part") << 100.0;
}

/// The client had paid it, and was given back by a credit note of another file: paid it was.
void TestStornoCitato::pagataEPoiResa()
{
    QFETCH(double, Onorari);
    Parcella Altra = Nota;
    Il(9);
    Emetti(Nota, 12);
    Il(15);
    (void)ScegliStato(Nota, StatoNota::Pagata);
    Il(20);
    Altra.xOnorari(0, OnoImporto) = Onorari;
    Cita(Altra, u"12"_s, u"9/11/2026"_s);
    Emetti(Altra, 13, true);
    const VoceTrova Sua = Letta(Nota);
    VoceTrova Storno = Letta(Altra);
    Storno.Percorso = u"/note/altra.mdb"_s;
    const std::vector<QStringList> Righe =
        RigheScadenzario({&Sua, &Storno}, [](int) { return CodiciCliente(); });
    QCOMPARE(qsizetype(Righe.size()), 2);
    QCOMPARE(Righe[1][3], u"Nota di credito della fattura 12"_s);
    QVERIFY(Righe[1][14].startsWith(u'-'));
    QCOMPARE(QStringList({Righe[0][4], Righe[0][6], Righe[0][7], Righe[0][15], Righe[0][16]}).join(u' '),
             u"12 Pagata 15/11/2026 1459,12 0,00"_s);
}

void TestStornoCitato::resaEPoiPagata_data()
{
    QTest::addColumn<int>("Resa");
    QTest::addColumn<int>("Detta");
    QTest::addColumn<bool>("UnAltra");
    QTest::addColumn<bool>("DietroLoStorno");
    QTest::addColumn<int>("PagatoLoStorno");
    QTest::addColumn<QString>("Attesa");
    const QString Resto = u"12 Pagata 20/11/2026 1313,21 0,00"_s;
    const QString Intera = u"12 Pagata 15/11/2026 1459,12 0,00"_s;
    QTest::newRow("sola") << 15 << 20 << false << false << 0 << Resto;
    QTest::newRow("un'altra dietro") << 15 << 20 << true << false << 0 << u"12 Pagata  1313,21 0,00"_s;
    QTest::newRow("un'altra, pagate prima") << 20 << 15 << true << false << 0 << u"12 Pagata  1459,12 0,00"_s;
    QTest::newRow("una fattura dietro lo storno") << 15 << 20 << false << true << 0 << Resto;
    QTest::newRow("dietro lo storno, pagata") << 15 << 20 << false << true << 21 << Resto;
    QTest::newRow("lo storno pagato poi") << 15 << 20 << false << false << 21 << Resto;
    QTest::newRow("pagata prima, lo storno pagato poi") << 16 << 15 << false << false << 21 << Intera;
    QTest::newRow("lo stesso giorno") << 20 << 20 << false << false << 0 << Resto;
}

/// A credit note of another file for a part of it before the client pays the rest: that much was paid. Behind
/// the word all of it was, and whatever has followed in either file changes neither.
void TestStornoCitato::resaEPoiPagata()
{
    QFETCH(int, Resa);
    QFETCH(int, Detta);
    QFETCH(bool, UnAltra);
    QFETCH(bool, DietroLoStorno);
    QFETCH(int, PagatoLoStorno);
    Parcella Altra = Nota;
    Il(9);
    Emetti(Nota, 12);
    if (UnAltra)
        Emetti(Nota, 30);
    Il(Resa);
    Altra.xOnorari(0, OnoImporto) = 100.0;
    Cita(Altra, u"12"_s, u"9/11/2026"_s);
    Emetti(Altra, 13, true);
    if (DietroLoStorno) {
        Cita(Altra, {}, {});
        Emetti(Altra, 14);
    }
    Il(Detta);
    (void)ScegliStato(Nota, StatoNota::Pagata);
    if (PagatoLoStorno > 0) {
        Il(PagatoLoStorno);
        (void)ScegliStato(Altra, StatoNota::Pagata);
    }
    const VoceTrova Sua = Letta(Nota);
    VoceTrova Storno = Letta(Altra);
    Storno.Percorso = u"/note/altra.mdb"_s;
    const std::vector<QStringList> Righe =
        RigheScadenzario({&Sua, &Storno}, [](int) { return CodiciCliente(); });
    QTEST(QStringList({Righe[0][4], Righe[0][6], Righe[0][7], Righe[0][15], Righe[0][16]}).join(u' '),
          "Attesa");
}

#include "TestStornoCitato.moc"
