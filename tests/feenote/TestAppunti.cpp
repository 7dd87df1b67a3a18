// Cut, copy, paste, undo and move of lines, without a window.
#include "nota_prova.h"

#include "feenote/modAppunti.h"
#include "feenote/modSpese.h"
#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;

namespace {

const QString NienteDaIncollare = u"Non è presente alcuna voce da incollare!"_s;
const QString NienteDaAnnullare = u"Impossibile annullare!"_s;
const QString NienteScelto = u"Evidenziare prima la prestazione cliccando sulla colonna di selezione!"_s;

/// Honoraria called "a", "b", ... with amounts 1, 2, ...
Parcella NotaConRighe(int Quante)
{
    Parcella Nota;
    for (int i = 0; i < Quante; ++i)
        RigaOnorario(Nota, QString(QChar(u'a' + i)), i + 1, i + 1, i + 1);
    return Nota;
}

QString Nomi(const TabellaRighe& Righe)
{
    QString Tutti;
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga)
        Tutti += CStr(Righe(Riga, OnoDescr));
    return Tutti;
}

}  // namespace

class TestAppunti : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void taglia_data();
    void taglia();
    void tagliaSenzaScelta();
    void tagliaChiede_data();
    void tagliaChiede();
    void copiaNonTocca();
    void copiaDopoIlTaglioSostituisce();
    void incolla_data();
    void incolla();
    void unaVoltaSola();
    void tutteEPoiAllaPrima();
    void annulla_data();
    void annulla();
    void dopoUnaCopiaNonSiAnnulla();
    void onorariFraLeSpese();
    void speseFraGliOnorari();
    void ilTestoIncollatoContaZero();
    void sposta_data();
    void sposta();
    void spostaNo();
    void spostaSenzaScelta();
    void elimina_data();
    void elimina();
};
PROVA(TestAppunti);

void TestAppunti::taglia_data()
{
    QTest::addColumn<QList<int>>("Scelte");
    QTest::addColumn<QString>("Restano");
    QTest::addColumn<QString>("Tagliate");
    QTest::addColumn<int>("RigaTagliata");
    QTest::newRow("una") << QList{2} << u"abde"_s << u"c"_s << 2;
    QTest::newRow("l'ultima") << QList{4} << u"abcd"_s << u"e"_s << 4;
    QTest::newRow("in ordine") << QList{1, 3} << u"ace"_s << u"bd"_s << 1;
    QTest::newRow("dal basso in alto: ordine di selezione") << QList{3, 1} << u"ace"_s << u"db"_s << 1;
    QTest::newRow("alla rinfusa") << QList{2, 4, 0} << u"bd"_s << u"cea"_s << 0;
    QTest::newRow("tutte") << QList{0, 1, 2, 3, 4} << QString() << u"abcde"_s << 0;
}

void TestAppunti::taglia()
{
    QFETCH(QList<int>, Scelte);
    Parcella Nota = NotaConRighe(5);
    AppuntiRighe Copiate;
    QVERIFY(TagliaVoci(Copiate, Nota.xOnorari, Scelte, false));
    QTEST(Nomi(Nota.xOnorari), "Restano");
    QTEST(Nomi(Copiate.Appunti), "Tagliate");
    QTEST(Copiate.RigaTagliata, "RigaTagliata");
    QCOMPARE(Copiate.Appunti.UpperBound(2), 12);
    QVERIFY(Copiate.PuoIncollare() && Copiate.PuoAnnullare());
}

void TestAppunti::tagliaSenzaScelta()
{
    Registratore Voce;
    Parcella Nota = NotaConRighe(2);
    AppuntiRighe Copiate;
    Voce.Attendi(NienteScelto, vbOK, u"Errore:"_s);
    QVERIFY(!TagliaVoci(Copiate, Nota.xOnorari, {}, true));
    QCOMPARE(Voce.Ultimo().Bandiere, vbExclamation);
    Voce.Attendi(NienteScelto, vbOK, u"Errore:"_s);
    QVERIFY(!CopiaVoci(Copiate, Nota.xOnorari, {}));
    QCOMPARE(Nomi(Nota.xOnorari), u"ab"_s);
    QVERIFY(!Copiate.PuoIncollare());
}

void TestAppunti::tagliaChiede_data()
{
    QTest::addColumn<QList<int>>("Scelte");
    QTest::addColumn<QString>("Domanda");
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<QString>("Restano");
    const QString Una = u"Confermi la cancellazione della voce selezionata?"_s;
    const QString Piu = u"Confermi la cancellazione delle voci selezionate?"_s;
    QTest::newRow("una, sì") << QList{0} << Una << vbYes << u"bc"_s;
    QTest::newRow("una, no") << QList{0} << Una << vbNo << u"abc"_s;
    QTest::newRow("due, sì") << QList{0, 2} << Piu << vbYes << u"b"_s;
    QTest::newRow("due, no") << QList{0, 2} << Piu << vbNo << u"abc"_s;
}

void TestAppunti::tagliaChiede()
{
    QFETCH(QList<int>, Scelte);
    QFETCH(QString, Domanda);
    QFETCH(int, Risposta);
    Registratore Voce;
    Parcella Nota = NotaConRighe(3);
    AppuntiRighe Copiate;
    Voce.Attendi(Domanda, Risposta, u"Domanda:"_s);
    QCOMPARE(TagliaVoci(Copiate, Nota.xOnorari, Scelte, true), Risposta == vbYes);
    QTEST(Nomi(Nota.xOnorari), "Restano");
    QCOMPARE(Copiate.PuoAnnullare(), Risposta == vbYes);
}

void TestAppunti::copiaNonTocca()
{
    Parcella Nota = NotaConRighe(3);
    const TabellaRighe Prima = Nota.xOnorari;
    AppuntiRighe Copiate;
    QVERIFY(CopiaVoci(Copiate, Nota.xOnorari, {2, 0}));
    QCOMPARE(Nota.xOnorari, Prima);
    QCOMPARE(Nomi(Copiate.Appunti), u"ca"_s);
    QVERIFY(Copiate.PuoIncollare() && !Copiate.PuoAnnullare());
}

void TestAppunti::copiaDopoIlTaglioSostituisce()
{
    Parcella Nota = NotaConRighe(4);
    AppuntiRighe Copiate;
    QVERIFY(CopiaVoci(Copiate, Nota.xOnorari, {0}));
    QVERIFY(TagliaVoci(Copiate, Nota.xOnorari, {1}, false));
    QCOMPARE(Nomi(Copiate.Appunti), u"b"_s);
    QVERIFY(CopiaVoci(Copiate, Nota.xOnorari, {2}));
    QCOMPARE(Nomi(Copiate.Appunti), u"d"_s);
}

void TestAppunti::incolla_data()
{
    QTest::addColumn<int>("Riga");
    QTest::addColumn<int>("Posto");
    QTest::addColumn<QString>("Dopo");
    QTest::addColumn<int>("Prima");
    QTest::newRow("al posto delle nuove") << RigaDiPosto << 1 << u"acdb"_s << 1;
    QTest::newRow("in testa") << RigaDiPosto << 0 << u"cdab"_s << 0;
    QTest::newRow("in coda") << RigaDiPosto << 2 << u"abcd"_s << 2;
    QTest::newRow("a una riga") << 1 << 99 << u"acdb"_s << 1;
    QTest::newRow("oltre la fine: in coda") << 50 << 0 << u"abcd"_s << 2;
}

void TestAppunti::incolla()
{
    QFETCH(int, Riga);
    QFETCH(int, Posto);
    Parcella Nota = NotaConRighe(4);
    AppuntiRighe Copiate;
    QVERIFY(TagliaVoci(Copiate, Nota.xOnorari, {2, 3}, false));
    const std::optional<int> Incollata = IncollaVoci(Copiate, Nota.xOnorari, Riga, Posto);
    QVERIFY(Incollata.has_value());
    QTEST(*Incollata, "Prima");
    QTEST(Nomi(Nota.xOnorari), "Dopo");
    QCOMPARE(Importi(Nota, *Incollata), (QList<double>{3, 3, 3, 3}));
    QCOMPARE(Base(Nota, *Incollata), (QList<double>{3, 3, 3}));
}

void TestAppunti::unaVoltaSola()
{
    Registratore Voce;
    Parcella Nota = NotaConRighe(2);
    AppuntiRighe Copiate;
    QVERIFY(CopiaVoci(Copiate, Nota.xOnorari, {0}));
    QVERIFY(IncollaVoci(Copiate, Nota.xOnorari, RigaDiPosto, 2).has_value());
    QCOMPARE(Copiate.Appunti.UpperBound(2), 12);
    Voce.Attendi(NienteDaIncollare, vbOK, u"Errore:"_s);
    QVERIFY(!IncollaVoci(Copiate, Nota.xOnorari, RigaDiPosto, 2).has_value());
    QCOMPARE(Voce.Ultimo().Bandiere, vbExclamation);
    Voce.Attendi(NienteDaAnnullare, vbOK, u"Errore:"_s);
    QVERIFY(!IncollaVoci(Copiate, Nota.xOnorari, 0, 2).has_value());
    QCOMPARE(Nomi(Nota.xOnorari), u"aba"_s);
}

void TestAppunti::tutteEPoiAllaPrima()
{
    Parcella Nota = NotaConRighe(3);
    AppuntiRighe Copiate;
    QVERIFY(TagliaVoci(Copiate, Nota.xOnorari, {0, 1, 2}, false));
    QCOMPARE(Nota.xOnorari.UpperBound(1), -1);
    const int Posto = RowIns(Nota, TipoRiga::Onorari, std::nullopt);
    QCOMPARE(IncollaVoci(Copiate, Nota.xOnorari, RigaDiPosto, Posto), std::optional(0));
    QCOMPARE(Nomi(Nota.xOnorari), u"abc"_s);
}

void TestAppunti::annulla_data()
{
    QTest::addColumn<QList<int>>("Scelte");
    QTest::addColumn<QString>("Dopo");
    QTest::newRow("l'ultima torna ultima") << QList{4} << u"abcde"_s;
    QTest::newRow("la prima") << QList{0} << u"abcde"_s;
    QTest::newRow("due vicine") << QList{1, 2} << u"abcde"_s;
    QTest::newRow("due vicine scelte dal basso") << QList{2, 1} << u"acbde"_s;
    QTest::newRow("due lontane tornano insieme") << QList{1, 3} << u"abdce"_s;
}

void TestAppunti::annulla()
{
    QFETCH(QList<int>, Scelte);
    Parcella Nota = NotaConRighe(5);
    AppuntiRighe Copiate;
    QVERIFY(TagliaVoci(Copiate, Nota.xOnorari, Scelte, false));
    QVERIFY(AnnullaTaglio(Copiate, Nota.xOnorari).has_value());
    QTEST(Nomi(Nota.xOnorari), "Dopo");
    Registratore Voce;
    Voce.Attendi(NienteDaAnnullare, vbOK, u"Errore:"_s);
    QVERIFY(!AnnullaTaglio(Copiate, Nota.xOnorari).has_value());
}

void TestAppunti::dopoUnaCopiaNonSiAnnulla()
{
    Registratore Voce;
    Parcella Nota = NotaConRighe(3);
    AppuntiRighe Copiate;
    QVERIFY(TagliaVoci(Copiate, Nota.xOnorari, {0}, false));
    QVERIFY(CopiaVoci(Copiate, Nota.xOnorari, {0}));
    Voce.Attendi(NienteDaAnnullare, vbOK, u"Errore:"_s);
    QVERIFY(!AnnullaTaglio(Copiate, Nota.xOnorari).has_value());
    QCOMPARE(Nomi(Nota.xOnorari), u"bc"_s);
    QVERIFY2(Copiate.PuoIncollare(), "la copia resta da incollare");
}

void TestAppunti::onorariFraLeSpese()
{
    Parcella Nota = NotaConRighe(2);
    Nota.xOnorari(1, OnoImporto) = 700.0;
    Nota.xOnorari(1, OnoMedio) = 800.0;
    RigaSpesa(Nota, 10.0, 20.0);
    AppuntiRighe Copiate;
    QVERIFY(CopiaVoci(Copiate, Nota.xOnorari, {1}));
    QCOMPARE(IncollaVoci(Copiate, Nota.xDiritti, RigaDiPosto, 1), std::optional(1));
    QCOMPARE(Nota.xDiritti.UpperBound(2), DirColonne - 1);
    for (int Colonna = 0; Colonna < DirColonne; ++Colonna)
        QCOMPARE(Nota.xDiritti(1, Colonna), Nota.xOnorari(1, Colonna));
    const Somme Sommate = CalcolaSomme(Nota);
    QCOMPARE(Sommate.TotSpeseImp, 710.0);
    QCOMPARE(Sommate.TotSpeseEsenti, 820.0);
}

void TestAppunti::speseFraGliOnorari()
{
    Parcella Nota;
    AddDiritti(Nota, QDate(2012, 8, 23), u"Copie"_s, u"1"_s, 7, 70);
    Nota.xDiritti(0, DirImponibile) = 12.5;
    AppuntiRighe Copiate;
    QVERIFY(TagliaVoci(Copiate, Nota.xDiritti, {0}, false));
    QVERIFY(IncollaVoci(Copiate, Nota.xOnorari, RigaDiPosto, 0).has_value());
    QCOMPARE(Nota.xOnorari.UpperBound(2), OnoColonne - 1);
    QCOMPARE(Nota.xOnorari(0, OnoImporto).toDouble(), 12.5);
    QVERIFY(!Nota.xOnorari(0, OnoNVoce).isValid());
    QCOMPARE(CalcolaSomme(Nota).TotOnorari, 12.5);
}

void TestAppunti::ilTestoIncollatoContaZero()
{
    Parcella Nota = NotaConRighe(1);
    Nota.xOnorari(0, OnoImporto) = u"gratis"_s;
    AppuntiRighe Copiate;
    QVERIFY(CopiaVoci(Copiate, Nota.xOnorari, {0}));
    QVERIFY(IncollaVoci(Copiate, Nota.xDiritti, RigaDiPosto, 0).has_value());
    QCOMPARE(CalcolaSomme(Nota).TotSpeseImp, 0.0);
    QCOMPARE(CalcolaSomme(Nota).TotSpeseEsenti, 1.0);
}

void TestAppunti::sposta_data()
{
    QTest::addColumn<QList<int>>("Scelte");
    QTest::addColumn<int>("Destinazione");
    QTest::addColumn<QString>("Dopo");
    QTest::newRow("in giù: prende il numero della riga") << QList{0} << 3 << u"bcdae"_s;
    QTest::newRow("in su") << QList{4} << 1 << u"aebcd"_s;
    QTest::newRow("in fondo") << QList{1} << 5 << u"acdeb"_s;
    QTest::newRow("in testa") << QList{3} << 0 << u"dabce"_s;
    QTest::newRow("due, in ordine di selezione") << QList{3, 1} << 0 << u"dbace"_s;
    QTest::newRow("due oltre quel che resta: in fondo") << QList{0, 1} << 4 << u"cdeab"_s;
    QTest::newRow("su se stessa") << QList{2} << 2 << u"abcde"_s;
}

void TestAppunti::sposta()
{
    QFETCH(QList<int>, Scelte);
    QFETCH(int, Destinazione);
    Registratore Voce;
    Parcella Nota = NotaConRighe(5);
    AppuntiRighe Copiate;
    Voce.Attendi(Scelte.size() == 1 ? u"Confermi lo spostamento della riga?"_s
                                    : u"Confermi lo spostamento delle righe?"_s,
                 vbYes, u"Domanda:"_s);
    QVERIFY(SpostaVoci(Copiate, Nota.xOnorari, Scelte, Destinazione).has_value());
    QTEST(Nomi(Nota.xOnorari), "Dopo");
    QVERIFY(!Copiate.PuoIncollare() && !Copiate.PuoAnnullare());
}

void TestAppunti::spostaNo()
{
    Registratore Voce;
    Parcella Nota = NotaConRighe(3);
    AppuntiRighe Copiate;
    QVERIFY(CopiaVoci(Copiate, Nota.xOnorari, {2}));
    Voce.Attendi(u"Confermi lo spostamento della riga?"_s, vbNo, u"Domanda:"_s);
    QVERIFY(!SpostaVoci(Copiate, Nota.xOnorari, {0}, 2).has_value());
    QCOMPARE(Nomi(Nota.xOnorari), u"abc"_s);
    QCOMPARE(Nomi(Copiate.Appunti), u"c"_s);
}

void TestAppunti::spostaSenzaScelta()
{
    Registratore Voce;
    Parcella Nota = NotaConRighe(3);
    AppuntiRighe Copiate;
    Voce.Attendi(u"Selezionare la riga cliccando nella colonna di selezione!"_s, vbOK, u"Errore:"_s);
    QVERIFY(!SpostaVoci(Copiate, Nota.xOnorari, {}, 2).has_value());
    QCOMPARE(Voce.Ultimo().Bandiere, vbCritical);
}

void TestAppunti::elimina_data()
{
    QTest::addColumn<QList<int>>("Quali");
    QTest::addColumn<QString>("Restano");
    QTest::newRow("in qualunque ordine") << QList{3, 0, 2} << u"be"_s;
    QTest::newRow("quelle che non ci sono") << QList{9, 1} << u"acde"_s;
    QTest::newRow("nessuna") << QList<int>{} << u"abcde"_s;
}

void TestAppunti::elimina()
{
    QFETCH(QList<int>, Quali);
    Parcella Nota = NotaConRighe(5);
    EliminaRighe(Nota.xOnorari, Quali);
    QTEST(Nomi(Nota.xOnorari), "Restano");
}

#include "TestAppunti.moc"
