// An invoice that has gone out stays what it was: payments behind it pay it, and another number is that of
// another invoice once its electronic file is written.
#include "fatturauscita.h"

#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;
using enum StatoNota;

class TestFatturaUscita : public QObject, private BancoFatturaUscita
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Comincia(); }
    void cleanup() { Finisci(); }
    void unaCopiaDopoUnPagamento_data();
    void unaCopiaDopoUnPagamento();
    void gliAccontiSuoiRestano();
    void elencoCorretto();
    void diNuovoBozza();
    void laProssimaDalloStessoFile();
    void pagataPrimaDellaProssima();
    void ilNumeroDellaProssima();
    void ilNumeroDiUnaDiPrima_data();
    void ilNumeroDiUnaDiPrima();
    void unSecondoFileDiUnaDiPrima();
    void leCifreDelFile();
    void leCifreDiUnaGuasta();
    void leCifreDelFileDiUnaPagata();
    void leCifreDelFileDiUnaDaPagare();
    void ogniFileEDelSuo();
    void unNumeroConLAnno();
    void diNuovoLaPrima();
    void pagataStornataLaProssima();
    void saldateTutte();
    void unaParolaDiPrima();
    void ilFileDiUnaStampataPrima();
    void dueParoleInUnGiorno();
    void pagataAMano();
    void pagataAManoDopoLoStorno();
    void nonPagataLaStornata();
    void laSinteticaDellaStessa();
};
PROVA(TestFatturaUscita);

void TestFatturaUscita::unaCopiaDopoUnPagamento_data()
{
    QTest::addColumn<bool>("ConFile");
    QTest::newRow("printed again") << false;
    QTest::newRow("on paper, then as a file") << true;
}

void TestFatturaUscita::unaCopiaDopoUnPagamento()
{
    QFETCH(bool, ConFile);
    Stampa(Nota);
    const ImportiDocumento Sue = ImportiDellaNota(Nota);
    QCOMPARE(Sue.Totale, Intero);
    Paga(Nota, 400);
    // The paper takes away what is listed; it is not what was asked for.
    QCOMPARE(CatenaFiscale(Nota, StampaFatturaAnalitica).Totale, Meno400);
    QCOMPARE(Totale(Nota), Intero);
    QVERIFY(AccontiFatturati(Nota, StampaFatturaAnalitica).Propri.Vuota());
    if (ConFile)
        ScriviFile(Nota);
    else
        Stampa(Nota);
    QCOMPARE(ImportiDellaNota(Nota), Sue);
    QCOMPARE(RestiDellaNota(Nota).last(), Meno400);
}

void TestFatturaUscita::gliAccontiSuoiRestano()
{
    Paga(Nota, 400);
    Stampa(Nota);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Meno400);
    Paga(Nota, 100);
    Stampa(Nota);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Meno400);
    QCOMPARE(AccontiFatturati(Nota, StampaFatturaAnalitica).Propri.Righe(), 1);
    // A pro-forma note has no number that binds it.
    QCOMPARE(AccontiFatturati(Nota, StampaPrenotula).Propri.Righe(), 2);
}

/// A payment of its own that is put right puts the invoice right.
void TestFatturaUscita::elencoCorretto()
{
    Paga(Nota, 300);
    Stampa(Nota);
    Nota.xAcconti(0, AccCorrispettivi) = 400.0;
    Stampa(Nota);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Meno400);
    Nota.xAcconti.EliminaRiga(0);
    Stampa(Nota);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Intero);
}

void TestFatturaUscita::diNuovoBozza()
{
    Stampa(Nota);
    Paga(Nota, 400);
    (void)ScegliStato(Nota, Bozza);
    QCOMPARE(Totale(Nota), Meno400);
    Stampa(Nota);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Meno400);
}

/// On account, then the rest: both are asked for.
void TestFatturaUscita::laProssimaDalloStessoFile()
{
    ScriviFile(Nota);
    Paga(Nota, 400);
    Numera(Nota, u"30"_s);
    QCOMPARE(Totale(Nota), Meno400);
    ScriviFile(Nota);
    QCOMPARE(Numeri(Nota), u"12 | 30"_s);
    QCOMPARE(Nota.Stato.Emessi[0].Importi.Totale, Intero);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Meno400);
    // Again as a copy, of either.
    Stampa(Nota);
    Numera(Nota, u"12"_s);
    QCOMPARE(Totale(Nota), Intero);
    Stampa(Nota);
    QCOMPARE(Numeri(Nota), u"12 | 30"_s);
}

void TestFatturaUscita::pagataPrimaDellaProssima()
{
    ScriviFile(Nota);
    Paga(Nota, 1150);
    (void)SegueStato(Nota, Vista);
    QCOMPARE(Nota.Stato.Stato, Pagata);
    Nota.xOnorari(0, OnoImporto) = 2000.0;
    Numera(Nota, u"30"_s);
    ScriviFile(Nota);
    QCOMPARE(Numeri(Nota), u"12 | 30"_s);
    QCOMPARE(Nota.Stato.Stato, Fatturata);
    // A copy of a paid one stays what it was.
    Parcella Copia = NotaDaMille(StampaFatturaAnalitica);
    Copertura Sua;
    Numera(Copia, u"12"_s);
    ScriviFile(Copia);
    Paga(Copia, 1150);
    (void)SegueStato(Copia, Sua);
    Stampa(Copia);
    QCOMPARE(Copia.Stato.Stato, Pagata);
    QCOMPARE(Numeri(Copia), u" | 12"_s);
}

/// Typed, the next number is not that of the file that is written; without a file it puts the number right.
void TestFatturaUscita::ilNumeroDellaProssima()
{
    ScriviFile(Nota);
    Numera(Nota, u"30"_s);
    (void)SegueStato(Nota, Vista);
    QCOMPARE(Nota.Stato.Numero, u"12"_s);
    Parcella Carta = NotaDaMille(StampaFatturaAnalitica);
    Copertura Sua;
    Numera(Carta, u"12"_s);
    Stampa(Carta);
    Numera(Carta, u"30"_s);
    (void)SegueStato(Carta, Sua);
    QCOMPARE(Carta.Stato.Numero, u"30"_s);
    Stampa(Carta);
    QCOMPARE(Numeri(Carta), u" | 30"_s);
}

void TestFatturaUscita::ilNumeroDiUnaDiPrima_data()
{
    QTest::addColumn<QStringList>("Scritti");
    QTest::newRow("written at once") << QStringList{u"12"_s};
    QTest::newRow("letter by letter") << QStringList{u"3"_s, QString(), u"1"_s, u"12"_s};
}

/// The number of an earlier invoice is typed, for a copy of it: the last one keeps its own.
void TestFatturaUscita::ilNumeroDiUnaDiPrima()
{
    QFETCH(QStringList, Scritti);
    ScriviFile(Nota);
    Paga(Nota, 400);
    Numera(Nota, u"30"_s);
    (void)SegueStato(Nota, Vista);
    Stampa(Nota);
    for (const QString& Numero : Scritti) {
        Numera(Nota, Numero);
        (void)SegueStato(Nota, Vista);
    }
    Stampa(Nota);
    QCOMPARE(Numeri(Nota), u"12 | 30"_s);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Meno400);
    Numera(Nota, u"30"_s);
    (void)SegueStato(Nota, Vista);
    QCOMPARE(Numeri(Nota), u"12 | 30"_s);
    // On paper alone, it is put right as before.
    Numera(Nota, u"31"_s);
    (void)SegueStato(Nota, Vista);
    QCOMPARE(Numeri(Nota), u"12 | 31"_s);
    Stampa(Nota);
    Numera(Nota, u"12"_s);
    (void)SegueStato(Nota, Vista);
    QCOMPARE(Numeri(Nota), u"12 | 31"_s);
}

/// The file in the record is that of the earlier one by now; the last one has its own none the less.
void TestFatturaUscita::unSecondoFileDiUnaDiPrima()
{
    ScriviFile(Nota);
    for (const QString& Numero : {u"30"_s, u"12"_s}) {
        Numera(Nota, Numero);
        (void)SegueStato(Nota, Vista);
        ScriviFile(Nota);
    }
    QCOMPARE(Numeri(Nota), u"12 | 30"_s);
    Numera(Nota, u"31"_s);
    (void)SegueStato(Nota, Vista);
    QCOMPARE(Numeri(Nota), u"12 | 30"_s);
    Stampa(Nota);
    QCOMPARE(Numeri(Nota), u"12 30 | 31"_s);
    // That one is on paper alone.
    Numera(Nota, u"32"_s);
    (void)SegueStato(Nota, Vista);
    QCOMPARE(Numeri(Nota), u"12 30 | 32"_s);
}

/// The file of an earlier invoice, written again because it was wrong, says what is asked for; a sheet of it
/// is a copy.
void TestFatturaUscita::leCifreDelFile()
{
    ScriviFile(Nota);
    Numera(Nota, u"30"_s);
    ScriviFile(Nota);
    Paga(Nota, 1150);
    Paga(Nota, 1150);
    (void)SegueStato(Nota, Vista);
    QCOMPARE(Nota.Stato.Stato, Pagata);
    Numera(Nota, u"12"_s);
    Nota.xOnorari(0, OnoImporto) = 1100.0;
    Stampa(Nota);
    QCOMPARE(Nota.Stato.Emessi[0].Importi.Totale, Intero);
    QCOMPARE(Totale(Nota), 1605.03);
    ScriviFile(Nota);
    QCOMPARE(Numeri(Nota), u"12 | 30"_s);
    QCOMPARE(Nota.Stato.Emessi[0].Importi.Totale, 1605.03);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Intero);
    QCOMPARE(Nota.Stato.Stato, Fatturata);
    QCOMPARE(RestiDellaNota(Nota), (QList<double>{0.0, 145.91}));
}

/// Of an entry that could not be read the file tells again what it asks for.
void TestFatturaUscita::leCifreDiUnaGuasta()
{
    ScriviFile(Nota);
    Numera(Nota, u"30"_s);
    ScriviFile(Nota);
    Nota.Stato.Emessi[0].Guasto = u"3;0;0;x;09/11/2026;12"_s;
    Nota.Stato.Emessi[0].Importi = {};
    Numera(Nota, u"12"_s);
    ScriviFile(Nota);
    QCOMPARE(Nota.Stato.Emessi[0].Guasto, QString());
    QCOMPARE(Nota.Stato.Emessi[0].Importi.Totale, Intero);
}

/// So does the file of a paid one under its own number.
void TestFatturaUscita::leCifreDelFileDiUnaPagata()
{
    ScriviFile(Nota);
    Paga(Nota, 1150);
    (void)SegueStato(Nota, Vista);
    ScriviFile(Nota);
    QCOMPARE(Nota.Stato.Stato, Pagata);
    Nota.xOnorari(0, OnoImporto) = 1100.0;
    Stampa(Nota);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Intero);
    ScriviFile(Nota);
    QCOMPARE(ImportiDellaNota(Nota).Totale, 1605.03);
    QCOMPARE(Nota.Stato.Stato, Fatturata);
    QCOMPARE(RestiDellaNota(Nota), QList<double>{145.91});
}

/// Whichever invoice of the note is in hand, its file is known for written, and no other one's is.
void TestFatturaUscita::ogniFileEDelSuo()
{
    const auto Scritte = [this] {
        QString Quali;
        for (const QString& Numero : {u"12"_s, u"30"_s, u"31"_s}) {
            Numera(Nota, Numero);
            if (FatturaGiaScritta(Nota))
                Quali += Numero + u' ';
        }
        return Quali;
    };
    Stampa(Nota);
    QCOMPARE(Scritte(), QString());
    Numera(Nota, u"12"_s);
    ScriviFile(Nota);
    QCOMPARE(Scritte(), u"12 "_s);
    Numera(Nota, u"30"_s);
    Stampa(Nota);
    QCOMPARE(Scritte(), u"12 "_s);
    Numera(Nota, u"12"_s);
    QCOMPARE(FraseGiaScritta(Nota), u"La fattura è già stata scritta il 22/11/2026 come IT1.xml"_s);
    Numera(Nota, u"30"_s);
    ScriviFile(Nota);
    QCOMPARE(Scritte(), u"12 30 "_s);
    Numera(Nota, u"12"_s);
    QCOMPARE(FraseGiaScritta(Nota), u"La fattura 12 è già stata scritta come file"_s);
    Nota.FatturaXml.Tipo = u"TD04"_s;
    QCOMPARE(Scritte(), u"30 "_s);  // by the name of the file alone, whatever its kind
    Nota.FatturaXml.Tipo.clear();
    // A credit note is called one.
    Parcella Credito = Nota;
    Credito.FatturaXml.Tipo = u"TD04"_s;
    for (const QString& Numero : {u"13"_s, u"14"_s}) {
        Numera(Credito, Numero);
        ScriviFile(Credito);
    }
    QCOMPARE(FraseGiaScritta(Credito),
             u"La nota di credito è già stata scritta il 22/11/2026 come IT1.xml"_s);
    Numera(Credito, u"13"_s);
    QCOMPARE(FraseGiaScritta(Credito), u"La nota di credito 13 è già stata scritta come file"_s);
    // Again the first, on the user's word: that of the last one is known none the less.
    Numera(Nota, u"12"_s);
    ScriviFile(Nota);
    QCOMPARE(Scritte(), u"12 30 "_s);
    QCOMPARE(Numeri(Nota), u"12 | 30"_s);
    (void)ScegliStato(Nota, Bozza);
    QCOMPARE(Scritte(), u"12 "_s);
}

/// "12" and "12/2026" are one number, as lists and citations have it.
void TestFatturaUscita::unNumeroConLAnno()
{
    ScriviFile(Nota);
    Numera(Nota, u"12/2026"_s);
    QVERIFY(FatturaGiaScritta(Nota));
    Stampa(Nota);
    ScriviFile(Nota);
    QCOMPARE(Numeri(Nota), u" | 12/2026"_s);
    Numera(Nota, u"30"_s);
    ScriviFile(Nota);
    Numera(Nota, u"12"_s);
    QVERIFY(FatturaGiaScritta(Nota));
    Stampa(Nota);
    QCOMPARE(Numeri(Nota), u"12/2026 | 30"_s);
}

/// Called a draft again, a note begins anew, with whatever number.
void TestFatturaUscita::diNuovoLaPrima()
{
    ScriviFile(Nota);
    Numera(Nota, u"30"_s);
    ScriviFile(Nota);
    (void)ScegliStato(Nota, Bozza);
    Numera(Nota, u"12"_s);
    ScriviFile(Nota);
    QCOMPARE(Nota.Stato.Stato, Fatturata);
    QCOMPARE(Numeri(Nota), u" | 12"_s);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Intero);
    QVERIFY(Nota.Stato.ConFile);
}

/// What has paid an invoice that was taken back has not paid the one behind it.
void TestFatturaUscita::pagataStornataLaProssima()
{
    ScriviFile(Nota);
    Paga(Nota, 1150);
    (void)SegueStato(Nota, Vista);
    QCOMPARE(Nota.Stato.Stato, Pagata);
    Nota.FatturaXml.Tipo = u"TD04"_s;
    Numera(Nota, u"13"_s);
    ScriviFile(Nota);
    QCOMPARE(Nota.Stato.Stato, Pagata);
    Nota.FatturaXml.Tipo.clear();
    Nota.xOnorari(0, OnoImporto) = 3000.0;
    Numera(Nota, u"14"_s);
    ScriviFile(Nota);
    QCOMPARE(Numeri(Nota), u"12 13 | 14"_s);
    QCOMPARE(Nota.Stato.Stato, Fatturata);
    QVERIFY(RestiDellaNota(Nota).last() > 0);
}

/// Of an invoice that has taken all of itself away nothing is left.
void TestFatturaUscita::saldateTutte()
{
    ScriviFile(Nota);
    Paga(Nota, 1150);
    (void)SegueStato(Nota, Vista);
    InstallaOrologio([] { return QDateTime(QDate(2026, 12, 1), QTime(10, 0)); });
    Numera(Nota, u"30"_s);
    ScriviFile(Nota);
    QCOMPARE(Numeri(Nota), u"12 | 30"_s);
    QCOMPARE(ImportiDellaNota(Nota).Netto, 0.0);
    QCOMPARE(Nota.Stato.Stato, Pagata);
    QCOMPARE(Nota.Stato.Dal(), u"22/11/2026"_s);
    QCOMPARE(Nota.Stato.Prima, std::optional(Fatturata));
}

/// Printed first, an earlier invoice gets its file later.
void TestFatturaUscita::ilFileDiUnaStampataPrima()
{
    Stampa(Nota);
    Nota.FatturaXml.Tipo = u"TD04"_s;
    Numera(Nota, u"13"_s);
    Stampa(Nota);
    Nota.FatturaXml.Tipo.clear();
    Numera(Nota, u"12"_s);
    QVERIFY(!FatturaGiaScritta(Nota));
    ScriviFile(Nota);
    Numera(Nota, u"30"_s);
    ScriviFile(Nota);
    Numera(Nota, u"12"_s);
    QVERIFY(FatturaGiaScritta(Nota));
}

/// A wrong word behind the credit note takes none of what an earlier one has said.
void TestFatturaUscita::unaParolaDiPrima()
{
    ScriviFile(Nota);
    (void)ScegliStato(Nota, Pagata);
    Numera(Nota, u"14"_s);
    ScriviFile(Nota);
    QCOMPARE(Nota.Stato.Emessi[0].AMano, Intero);
    Nota.FatturaXml.Tipo = u"TD04"_s;
    Nota.FatturaXml.CitataNumero = u"12"_s;
    Nota.FatturaXml.CitataData = u"9/11/2026"_s;
    Nota.xOnorari(0, OnoImporto) = 100.0;
    Numera(Nota, u"15"_s);
    ScriviFile(Nota);
    (void)ScegliStato(Nota, Pagata);
    (void)ScegliStato(Nota, Fatturata);
    QCOMPARE(Nota.Stato.Emessi[0].AMano, Intero);
}

/// Nor does one of the same day, which was said of the credit note's own invoice.
void TestFatturaUscita::dueParoleInUnGiorno()
{
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 9), QTime(10, 0)); });
    ScriviFile(Nota);
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
    (void)ScegliStato(Nota, Pagata);
    Numera(Nota, u"14"_s);
    ScriviFile(Nota);
    (void)ScegliStato(Nota, Pagata);
    Nota.FatturaXml.Tipo = u"TD04"_s;
    Nota.FatturaXml.CitataNumero = u"14"_s;
    Nota.FatturaXml.CitataData = u"9/11/2026"_s;
    Numera(Nota, u"15"_s);
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 23), QTime(10, 0)); });
    ScriviFile(Nota);
    const auto Pagate = [this] {
        QStringList Tutte;
        for (const DocumentoEmesso& Uno : Nota.Stato.Emessi)
            Tutte += u"%1 %2 %3"_s.arg(Uno.Numero).arg(Uno.AMano).arg(Uno.Dal);
        return Tutte;
    };
    QCOMPARE(Pagate(), (QStringList{u"12 1459.12 22/11/2026"_s, u"14 1459.12 22/11/2026"_s}));
    (void)ScegliStato(Nota, Fatturata);
    QCOMPARE(Pagate(), (QStringList{u"12 1459.12 22/11/2026"_s, u"14 0 22/11/2026"_s}));
    // The day on which it was invoiced comes back, not that of the word.
    Parcella Una = NotaDaMille(StampaFatturaAnalitica);
    Numera(Una, u"12"_s);
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 9), QTime(10, 0)); });
    ScriviFile(Una);
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 15), QTime(10, 0)); });
    (void)ScegliStato(Una, Pagata);
    Una.FatturaXml.Tipo = u"TD04"_s;
    Numera(Una, u"13"_s);
    ScriviFile(Una);
    QCOMPARE(Una.Stato.Emessi[0].Dal, u"15/11/2026"_s);
    (void)ScegliStato(Una, Fatturata);
    QCOMPARE(Una.Stato.Emessi[0].Dal, u"09/11/2026"_s);
}

/// By hand, as in an office that writes no payments down: the next invoice is open, this one is not.
void TestFatturaUscita::pagataAMano()
{
    ScriviFile(Nota);
    (void)ScegliStato(Nota, Pagata);
    Numera(Nota, u"30"_s);
    ScriviFile(Nota);
    QCOMPARE(Numeri(Nota), u"12 | 30"_s);
    QCOMPARE(Nota.Stato.Stato, Fatturata);
    QCOMPARE(RestiDellaNota(Nota), (QList<double>{0.0, Intero}));
    QCOMPARE(Nota.Stato.Emessi[0].AMano, Intero);
    // What comes now is the next one's.
    Paga(Nota, 400);
    QCOMPARE(RestiDellaNota(Nota), (QList<double>{0.0, Meno400}));
    // The next one is paid by hand, and so is all that stands before the one behind it.
    (void)ScegliStato(Nota, Pagata);
    Numera(Nota, u"31"_s);
    ScriviFile(Nota);
    QCOMPARE(Nota.Stato.Stato, Fatturata);
    QCOMPARE(RestiDellaNota(Nota), (QList<double>{0.0, 0.0, Meno400}));
    QCOMPARE(Nota.Stato.Emessi[1].AMano, Meno400);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Meno400);
}

void TestFatturaUscita::pagataAManoDopoLoStorno()
{
    ScriviFile(Nota);
    (void)ScegliStato(Nota, Pagata);
    Nota.FatturaXml.Tipo = u"TD04"_s;
    Numera(Nota, u"13"_s);
    ScriviFile(Nota);
    QCOMPARE(Nota.Stato.Stato, Pagata);
    Nota.FatturaXml.Tipo.clear();
    Numera(Nota, u"14"_s);
    ScriviFile(Nota);
    QCOMPARE(Numeri(Nota), u"12 13 | 14"_s);
    QCOMPARE(Nota.Stato.Stato, Fatturata);
    QCOMPARE(Nota.Stato.Emessi[0].AMano, Intero);
    QCOMPARE(Nota.Stato.Emessi[1].AMano, 0.0);
    QCOMPARE(RestiDellaNota(Nota).last(), Intero);
}

/// A wrong word is put right by the former state, behind a credit note too; one that is said behind it is of
/// nothing that was taken back.
void TestFatturaUscita::nonPagataLaStornata()
{
    ScriviFile(Nota);
    (void)ScegliStato(Nota, Pagata);
    Nota.FatturaXml.Tipo = u"TD04"_s;
    Numera(Nota, u"13"_s);
    ScriviFile(Nota);
    QCOMPARE(Nota.Stato.Emessi[0].AMano, Intero);
    (void)ScegliStato(Nota, Fatturata);
    QCOMPARE(Nota.Stato.Emessi[0].AMano, 0.0);
    (void)ScegliStato(Nota, Pagata);
    Nota.FatturaXml.Tipo.clear();
    Numera(Nota, u"14"_s);
    ScriviFile(Nota);
    QCOMPARE(Numeri(Nota), u"12 13 | 14"_s);
    QCOMPARE(Nota.Stato.Emessi[0].AMano, 0.0);
}

/// The short invoice without its payments is a sheet of the same invoice.
void TestFatturaUscita::laSinteticaDellaStessa()
{
    Paga(Nota, 400);
    Stampa(Nota);
    const ImportiDocumento Sue = ImportiDellaNota(Nota);
    QCOMPARE(Sue.Totale, Meno400);
    ScegliTipoStampa(Nota, StampaFatturaSintetica);
    Nota.chkAcconti.Attiva = false;
    QCOMPARE(CatenaFiscale(Nota, StampaFatturaSintetica).Totale, Intero);
    QCOMPARE(AccontiFatturati(Nota, StampaFatturaSintetica).Propri.Righe(), 1);
    (void)NotaInviata(Nota, StampaFatturaSintetica);
    QCOMPARE(ImportiDellaNota(Nota), Sue);
    ScriviFile(Nota);
    QCOMPARE(ImportiDellaNota(Nota), Sue);
    QCOMPARE(FraseAccontiDopo(Nota, StampaFatturaSintetica, Meno400),
             u"La fattura è di 951,60 euro, tolti gli acconti con cui è uscita, e resta tale, ma la carta "
             u"stampata "
             "ora non li toglie e dice 1.459,12 euro."_s);
    // What the client was given back is no payment; the paper counts it.
    Parcella Resa = Nota;
    Paga(Resa, -200);
    QCOMPARE(
        FraseAccontiDopo(Resa, StampaFatturaAnalitica, Meno400),
        u"La fattura è di 951,60 euro e resta tale: ciò che è scritto dopo fra gli acconti non la cambia, "
        "ma la carta stampata ora lo conta e dice 1.205,36 euro."_s);
    // One that has not gone out yet is as its sheet says.
    (void)ScegliStato(Nota, Bozza);
    QVERIFY(AccontiFatturati(Nota, StampaFatturaSintetica).Propri.Vuota());
}

/// What the client has received is asked for: a sheet that is printed behind it with other lines is no
/// invoice.
void TestFatturaUscita::leCifreDelFileDiUnaDaPagare()
{
    ScriviFile(Nota);
    Nota.xOnorari(0, OnoImporto) = 1100.0;
    Stampa(Nota);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Intero);
    QCOMPARE(Nota.Stato.Stato, Fatturata);
    ScriviFile(Nota);
    QCOMPARE(ImportiDellaNota(Nota).Totale, 1605.03);
}

#include "TestFatturaUscita.moc"
