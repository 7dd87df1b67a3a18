// The list of the last notes: what is kept of it, in which order, what of a damaged store is believed.
#include "core/modRecenti.h"

#include "core/parametri.h"
#include "platform/system/blocco.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QThread>

#include <cmath>
#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

NotaRecente Nota(const QString& Nome, double Netto = 1190.70)
{
    return {.Percorso = PercorsoNativo(u"/studio/Parcelle/"_s + Nome + u".mdb"_s),
            .Cliente = u"Rossi"_s,
            .Documento = u"Fattura analitica"_s,
            .Netto = Netto,
            .Data = QDate(2026, 11, 21)};
}

QStringList Nomi()
{
    QStringList Tutti;
    for (const NotaRecente& Una : NoteRecenti())
        Tutti << NomeRecente(Una);
    return Tutti;
}

}  // namespace

class TestRecenti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QFile::remove(PercorsoImpostazioni(NomeApplicazione.toString())); }
    void tornaComeFuScritta();
    void lUltimaStaInTesta();
    void dieciAlMassimo();
    void siToglie();
    void segueIlNome();
    void dueProgrammi_data();
    void dueProgrammi();
    void cioCheSiToglieNonTace();
    void diUnDepositoIlleggibileSiDice();
    void laNotaDiAltroveTaceIlDanno();
    void cioCheNonSiCapisceResta();
    void soloLUtenteLaLegge();
    void unaRigaSola();
    void depositoGuasto_data();
    void depositoGuasto();
    void leRigheBuoneRestano();
    void cioCheNonENotaNonEntra_data();
    void cioCheNonENotaNonEntra();
    void laFrase();
    void ilTitolo_data();
    void ilTitolo();
};
PROVA(TestRecenti);

void TestRecenti::tornaComeFuScritta()
{
    QCOMPARE(NoteRecenti(), QList<NotaRecente>());
    NotaRecente Una = Nota(u"perù - \"così\" & =[x];%41"_s);
    Una.Cliente = u"Società \"Dell'Orto\" & figli; s.r.l. € 日本"_s;
    Una.Netto = -0.1 - 0.2;
    RicordaRecente(Una);
    QCOMPARE(NoteRecenti(), QList<NotaRecente>{Una});
}

void TestRecenti::lUltimaStaInTesta()
{
    for (const QString& Nome : {u"a"_s, u"b"_s, u"c"_s, u"a"_s})
        RicordaRecente(Nota(Nome));
    QCOMPARE(Nomi(), (QStringList{u"a"_s, u"c"_s, u"b"_s}));
    // Another way of writing the same path.
    NotaRecente Altra = Nota(u"b"_s, 7);
    Altra.Percorso = u"\\studio\\Parcelle\\\\b.mdb"_s;
    RicordaRecente(Altra);
    QCOMPARE(Nomi(), (QStringList{u"b"_s, u"a"_s, u"c"_s}));
    QCOMPARE(NoteRecenti().constFirst().Netto, 7.0);
}

void TestRecenti::dieciAlMassimo()
{
    for (int i = 0; i < 13; ++i)
        RicordaRecente(Nota(QString::number(i)));
    QCOMPARE(Nomi().size(), MassimoRecenti);
    QCOMPARE(Nomi().constFirst(), u"12"_s);
    QCOMPARE(Nomi().constLast(), u"3"_s);
}

void TestRecenti::siToglie()
{
    for (const QString& Nome : {u"a"_s, u"b"_s, u"c"_s})
        RicordaRecente(Nota(Nome));
    DimenticaRecente(u"\\studio\\Parcelle\\b.mdb"_s);
    QCOMPARE(Nomi(), (QStringList{u"c"_s, u"a"_s}));
    DimenticaRecente(u"/altrove/a.mdb"_s);
    QCOMPARE(Nomi().size(), 2);
    SvuotaRecenti();
    QCOMPARE(Nomi(), QStringList());
    QVERIFY2(!Impostazione(u"NoteRecenti"_s).contains(u"Rossi"), "no name stays behind");
}

void TestRecenti::segueIlNome()
{
    for (const QString& Nome : {u"a"_s, u"b"_s, u"c"_s})
        RicordaRecente(Nota(Nome));
    SpostaRecente(Nota(u"b"_s).Percorso, u"/studio/Parcelle/nuovo.mdb"_s);
    QCOMPARE(Nomi(), (QStringList{u"c"_s, u"nuovo"_s, u"a"_s}));
    SpostaRecente(Nota(u"manca"_s).Percorso, u"/studio/Parcelle/altro.mdb"_s);
    QCOMPARE(Nomi(), (QStringList{u"c"_s, u"nuovo"_s, u"a"_s}));
    SpostaRecente(Nota(u"c"_s).Percorso, Nota(u"a"_s).Percorso);
    QCOMPARE(Nomi(), (QStringList{u"a"_s, u"nuovo"_s}));
}

void TestRecenti::dueProgrammi_data()
{
    QTest::addColumn<int>("Che");
    QTest::addColumn<QStringList>("Restano");
    QTest::newRow("a note is opened") << 0 << QStringList{u"mia"_s, u"loro"_s, u"b"_s, u"a"_s};
    QTest::newRow("a note is taken out") << 1 << QStringList{u"loro"_s, u"b"_s};
    QTest::newRow("a note gets another name") << 2 << QStringList{u"loro"_s, u"b"_s, u"nuova"_s};
    QTest::newRow("the list is emptied") << 3 << QStringList();
}

/// What another program has put there while this one waited for the store stays.
void TestRecenti::dueProgrammi()
{
    QFETCH(int, Che);
    QFETCH(QStringList, Restano);
    const QString File = PercorsoImpostazioni(NomeApplicazione.toString());
    for (const QString& Nome : {u"a"_s, u"b"_s, u"loro"_s})
        RicordaRecente(Nota(Nome));
    const QByteArray DopoDiLoro = LeggiFile(File);
    DimenticaRecente(Nota(u"loro"_s).Percorso);

    auto Turno = std::make_unique<FileBlocco>(File + u".lock"_s);
    QCOMPARE(Turno->Prendi(1000), FileBlocco::Esito::Preso);
    const std::unique_ptr<QThread> Questo(QThread::create([Che] {
        if (Che == 0)
            RicordaRecente(Nota(u"mia"_s));
        else if (Che == 1)
            DimenticaRecente(Nota(u"a"_s).Percorso);
        else if (Che == 2)
            SpostaRecente(Nota(u"a"_s).Percorso, Nota(u"nuova"_s).Percorso);
        else
            SvuotaRecenti();
    }));
    Questo->start();
    QVERIFY(!Questo->wait(300));  // it has seen the list, and waits for the store
    ScriviFile(File, DopoDiLoro, Lettori::SoloUtente);
    Turno.reset();
    QVERIFY(Questo->wait(10000));
    QCOMPARE(Nomi(), Restano);
}

/// A client's name that was to go and stays is told each time; what the program remembers by itself once.
void TestRecenti::cioCheSiToglieNonTace()
{
    RicordaRecente(Nota(u"a"_s));
    const QString File = PercorsoImpostazioni(NomeApplicazione.toString());
    QVERIFY(QFile::setPermissions(File, QFile::ReadOwner));
    QCOMPARE(NumeroErrore([] { RicordaRecente(Nota(u"b"_s)); }), 75);
    QCOMPARE(NumeroErrore([] { RicordaRecente(Nota(u"b"_s)); }), 0);
    for (int Volta = 0; Volta < 2; ++Volta) {
        QCOMPARE(NumeroErrore([] { DimenticaRecente(Nota(u"a"_s).Percorso); }), 75);
        QCOMPARE(NumeroErrore([] { SvuotaRecenti(); }), 75);
    }
    QCOMPARE(NumeroErrore([] { DimenticaCancellata(Nota(u"a"_s).Percorso); }), 0);
    QCOMPARE(Nomi(), QStringList{u"a"_s});
    QVERIFY(QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner));
    RicordaRecente(Nota(u"b"_s));
    DimenticaCancellata(Nota(u"a"_s).Percorso);
    QCOMPARE(Nomi(), QStringList{u"b"_s});
    SvuotaRecenti();
    QCOMPARE(Nomi(), QStringList());
}

/// A list that cannot be read looks empty, and is not.
void TestRecenti::diUnDepositoIlleggibileSiDice()
{
    RicordaRecente(Nota(u"a"_s));
    const QString File = PercorsoImpostazioni(NomeApplicazione.toString());
    const QByteArray Sano = LeggiFile(File);
    QVERIFY(QFile::remove(File));
    QVERIFY(QDir().mkpath(File));
    const int Svuotata = NumeroErrore(SvuotaRecenti);
    const int Dimenticata = NumeroErrore([] { DimenticaRecente(Nota(u"a"_s).Percorso); });
    QVERIFY(QDir().rmdir(File));
    ScriviFile(File, Sano, Lettori::SoloUtente);
    QCOMPARE(Svuotata, 75);
    QCOMPARE(Dimenticata, 75);
    QCOMPARE(Nomi(), QStringList{u"a"_s});
}

/// A note that is renamed or deleted may never have been in the list: the damage is none of its matters. One
/// that was picked there is.
void TestRecenti::laNotaDiAltroveTaceIlDanno()
{
    const QString File = PercorsoImpostazioni(NomeApplicazione.toString());
    QFile::remove(File);
    QVERIFY(QDir().mkpath(File));
    const int Spostata = NumeroErrore([] { SpostaRecente(Nota(u"a"_s).Percorso, Nota(u"b"_s).Percorso); });
    const int Cancellata = NumeroErrore([] { DimenticaCancellata(Nota(u"a"_s).Percorso); });
    const int Sparita = NumeroErrore([] { DimenticaSparita(Nota(u"a"_s).Percorso); });
    const int DettaUnaVolta = NumeroErrore([] { DimenticaSparita(Nota(u"a"_s).Percorso); });
    QVERIFY(QDir().rmdir(File));
    QCOMPARE(Spostata, 0);
    QCOMPARE(Cancellata, 0);
    QCOMPARE(Sparita, 75);
    QCOMPARE(DettaUnaVolta, 0);
    // A store that takes something ends the silence.
    RicordaRecente(Nota(u"a"_s));
}

/// A store of somebody else's is not cleaned by a note that it does not list.
void TestRecenti::cioCheNonSiCapisceResta()
{
    const QString Altrui = u"{\"versione\":9}"_s;
    SalvaImpostazione(u"NoteRecenti"_s, Altrui);
    DimenticaRecente(Nota(u"a"_s).Percorso);
    SpostaRecente(Nota(u"a"_s).Percorso, Nota(u"b"_s).Percorso);
    QCOMPARE(Impostazione(u"NoteRecenti"_s), Altrui);
}

void TestRecenti::soloLUtenteLaLegge()
{
    RicordaRecente(Nota(u"a"_s));
    const auto Altri = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                       QFile::WriteOther | QFile::ExeOther;
    const QString File = PercorsoImpostazioni(NomeApplicazione.toString());
    QVERIFY(!(QFile::permissions(File) & Altri));
    // Somebody has opened it to all: the next note closes it.
    QVERIFY(QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
    RicordaRecente(Nota(u"b"_s));
    QVERIFY(!(QFile::permissions(File) & Altri));
}

void TestRecenti::unaRigaSola()
{
    NotaRecente Una = Nota(u"a"_s);
    Una.Cliente = u"Ros\nsi\t\u202Eoirav  "_s + QString(500, u'x');
    RicordaRecente(Una);
    const QString Letto = NoteRecenti().constFirst().Cliente;
    QVERIFY(Letto.startsWith(u"Ros si oirav xxx"));
    QCOMPARE(Letto.size(), 120);
    // A character of two units is not cut in the middle.
    Una.Cliente = QString(119, u'x') + u"\U0001F600fine"_s;
    RicordaRecente(Una);
    QCOMPARE(NoteRecenti().constFirst().Cliente, QString(119, u'x') + u'…');
    Una.Cliente = QString(118, u'x') + u"\U0001F600fine"_s;
    RicordaRecente(Una);
    QCOMPARE(NoteRecenti().constFirst().Cliente, QString(118, u'x') + u'…');
}

void TestRecenti::depositoGuasto_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::newRow("no list") << u"ciao"_s;
    QTest::newRow("half of one") << u"[{\"percorso\":\"/a.mdb\""_s;
    QTest::newRow("an object") << u"{\"percorso\":\"/a.mdb\",\"data\":\"2026-11-21\"}"_s;
    QTest::newRow("numbers") << u"[1,2,null,[],\"x\"]"_s;
    QTest::newRow("no path") << u"[{\"netto\":1,\"data\":\"2026-11-21\"}]"_s;
    QTest::newRow("relative path") << u"[{\"percorso\":\"a.mdb\",\"data\":\"2026-11-21\"}]"_s;
    QTest::newRow("another kind of file") << u"[{\"percorso\":\"/etc/passwd\",\"data\":\"2026-11-21\"}]"_s;
    QTest::newRow("a null in the path") << u"[{\"percorso\":\"/a\\u0000b.mdb\",\"data\":\"2026-11-21\"}]"_s;
    QTest::newRow("no day") << u"[{\"percorso\":\"/a.mdb\",\"data\":\"2026-13-41\"}]"_s;
    QTest::newRow("an amount beyond all")
        << u"[{\"percorso\":\"/a.mdb\",\"data\":\"2026-11-21\",\"netto\":1e300}]"_s;
    QTest::newRow("too long a path") << u"[{\"percorso\":\"/%1.mdb\",\"data\":\"2026-11-21\"}]"_s.arg(
        QString(5000, u'a'));
    QTest::newRow("too long a list") << u"[%1{\"percorso\":\"/a.mdb\",\"data\":\"2026-11-21\"}]"_s.arg(
        QString(100'001, u' '));
}

void TestRecenti::depositoGuasto()
{
    QFETCH(QString, Testo);
    SalvaImpostazione(u"NoteRecenti"_s, Testo);
    QCOMPARE(NoteRecenti(), QList<NotaRecente>());
    // And the next note begins a sound one.
    RicordaRecente(Nota(u"a"_s));
    QCOMPARE(Nomi(), QStringList{u"a"_s});
}

void TestRecenti::leRigheBuoneRestano()
{
    QString Testo = u"[7,{\"percorso\":\"/x.txt\",\"data\":\"2026-11-21\"}"_s;
    for (int i = 0; i < 30; ++i)
        Testo += u",{\"percorso\":\"/%1.mdb\",\"data\":\"2026-11-21\",\"cliente\":5}"_s.arg(i / 2);
    SalvaImpostazione(u"NoteRecenti"_s, Testo + u']');
    QCOMPARE(Nomi(),
             (QStringList{u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s}));
    QCOMPARE(NoteRecenti().constFirst().Cliente, QString());
}

void TestRecenti::cioCheNonENotaNonEntra_data()
{
    QTest::addColumn<QString>("Percorso");
    QTest::addColumn<double>("Netto");
    QTest::newRow("no path") << QString() << 1.0;
    QTest::newRow("relative") << u"a.mdb"_s << 1.0;
    QTest::newRow("no note") << u"/a.txt"_s << 1.0;
    QTest::newRow("no number") << u"/a.mdb"_s << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("infinite") << u"/a.mdb"_s << std::numeric_limits<double>::infinity();
}

void TestRecenti::cioCheNonENotaNonEntra()
{
    QFETCH(QString, Percorso);
    QFETCH(double, Netto);
    NotaRecente Una = Nota(u"a"_s, Netto);
    Una.Percorso = Percorso;
    RicordaRecente(Una);
    QCOMPARE(NoteRecenti(), QList<NotaRecente>());
}

void TestRecenti::laFrase()
{
    QCOMPARE(FraseRecente(Nota(u"rossi - appalto"_s)),
             u"rossi - appalto, Rossi, Fattura analitica, netto 1.190,70 €, 21/11/2026, cartella Parcelle"_s);
    NotaRecente Nuda = Nota(u"x"_s, 0);
    Nuda.Cliente.clear();
    Nuda.Documento.clear();
    QCOMPARE(FraseRecente(Nuda), u"x, netto 0,00 €, 21/11/2026, cartella Parcelle"_s);
}

void TestRecenti::ilTitolo_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Cliente");
    QTest::addColumn<QString>("Titolo");
    QTest::newRow("nobody") << u"appalto"_s << QString() << u"appalto"_s;
    QTest::newRow("not in the name") << u"appalto"_s << u"Rossi & C."_s << u"Rossi & C. - appalto"_s;
    QTest::newRow("in it") << u"rossi - appalto"_s << u"Rossi"_s << u"rossi - appalto"_s;
    QTest::newRow("as a name can hold him")
        << u"Rossi-Bianchi Srl - appalto"_s << u"Rossi/Bianchi S.r.l."_s << u"Rossi-Bianchi Srl - appalto"_s;
}

void TestRecenti::ilTitolo()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Cliente);
    NotaRecente Una = Nota(Nome);
    Una.Cliente = Cliente;
    QTEST(TitoloRecente(Una), "Titolo");
}

#include "TestRecenti.moc"
