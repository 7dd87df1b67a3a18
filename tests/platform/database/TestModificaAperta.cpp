// An edit that is open on a row: what is told of it, and what others have written meanwhile.
#include "supporto/prova.h"

#include "platform/database/clienti.h"
#include "supporto/guasti.h"

using namespace Qt::StringLiterals;

class TestModificaAperta : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void siDiceCosaEAperto();
    void laRigaSiRileggeIniziando();
    void cambiatoDaAltri();
    void soloLaRigaInModifica();
    void nuovaNonEDiNessuno();
    void eliminataNelFrattempo();
    void nienteDiAperto();
    void nellOrdineDiUnaColonna();

private:
    /// The same file as another program has it open.
    Database AltroProgramma() const { return AltraConnessione(Db); }
    Database Db;
    Recordset Righe;
};
PROVA(TestModificaAperta);

void TestModificaAperta::init()
{
    Db = ArchivioClienti();
    Righe = Db.OpenRecordset(u"Clienti"_s);
}

void TestModificaAperta::siDiceCosaEAperto()
{
    QCOMPARE(Righe.EditMode(), 0);
    QVERIFY(!Righe.Toccato());
    Righe.Edit();
    QCOMPARE(Righe.EditMode(), 1);
    QVERIFY(!Righe.Toccato());
    Righe.ImpostaValue(u"Anni"_s, 9);
    QVERIFY(Righe.Toccato());
    Righe.CancelUpdate();
    QCOMPARE(Righe.EditMode(), 0);
    QVERIFY(!Righe.Toccato());
    Righe.AddNew();
    QCOMPARE(Righe.EditMode(), 2);
    Righe.ImpostaValue(u"Anni"_s, 9);
    QVERIFY(Righe.Toccato());
    Righe.Update();
    QCOMPARE(Righe.EditMode(), 0);
    QVERIFY(!Righe.Toccato());
}

/// The row may have been current for long.
void TestModificaAperta::laRigaSiRileggeIniziando()
{
    QCOMPARE(Righe.Value(u"Anni"_s), QVariant(3));
    AltroProgramma().Execute(u"UPDATE Clienti SET Anni=8 WHERE ID=1"_s);
    Righe.Edit();
    QCOMPARE(Righe.Value(u"Anni"_s), QVariant(8));
    QVERIFY(!Righe.CambiatoDaAltri());
}

void TestModificaAperta::cambiatoDaAltri()
{
    for (const bool Fuori : {false, true}) {
        Righe.Edit();
        Righe.ImpostaValue(u"Codice"_s, u"mio"_s);
        QVERIFY(!Righe.CambiatoDaAltri());
        const Database Altro = Fuori ? AltroProgramma() : Db;
        Altro.Execute(u"UPDATE Clienti SET Anni=Anni+1 WHERE ID=1"_s);
        QVERIFY(Righe.CambiatoDaAltri());
        QCOMPARE(Righe.EditMode(), 1);
        QCOMPARE(Righe.Value(u"Codice"_s), QVariant(u"mio"_s));
        Altro.Execute(u"UPDATE Clienti SET Anni=Anni-1 WHERE ID=1"_s);  // as it was
        QVERIFY(!Righe.CambiatoDaAltri());
        Righe.CancelUpdate();
    }
}

void TestModificaAperta::soloLaRigaInModifica()
{
    Righe.Edit();
    AltroProgramma().Execute(u"UPDATE Clienti SET Anni=77 WHERE ID=2"_s);
    QVERIFY(!Righe.CambiatoDaAltri());
}

void TestModificaAperta::nuovaNonEDiNessuno()
{
    Righe.AddNew();
    Db.Execute(u"UPDATE Clienti SET Anni=77"_s);
    QVERIFY(!Righe.CambiatoDaAltri());
}

void TestModificaAperta::eliminataNelFrattempo()
{
    Righe.Edit();
    Righe.ImpostaValue(u"Anni"_s, 9);
    AltroProgramma().Execute(u"DELETE FROM Clienti WHERE ID=1"_s);
    QCOMPARE(NumeroErrore([&] { (void)Righe.CambiatoDaAltri(); }), 3167);
    QCOMPARE(NumeroErrore([&] { Righe.Update(); }), 3167);
    QCOMPARE(Righe.EditMode(), 1);  // kept, with what was set
    QCOMPARE(Righe.Value(u"Anni"_s), QVariant(9));
    Righe.CancelUpdate();
    QCOMPARE(NumeroErrore([&] { Righe.Edit(); }), 3167);
    QCOMPARE(Righe.EditMode(), 0);
}

void TestModificaAperta::nienteDiAperto()
{
    QCOMPARE(NumeroErrore([&] { (void)Righe.CambiatoDaAltri(); }), 3020);
    Recordset Chiuso;
    QVERIFY(!Chiuso.Toccato());
    QCOMPARE(Chiuso.EditMode(), 0);
    Righe.MoveLast();
    Righe.MoveNext();
    QCOMPARE(NumeroErrore([&] { Righe.Edit(); }), 3021);
}

void TestModificaAperta::nellOrdineDiUnaColonna()
{
    Righe = Db.OpenRecordset(u"SELECT * FROM Clienti ORDER BY Nominativo DESC"_s);
    Righe.ImpostaAbsolutePosition(2);
    const int ID = Righe.Value(u"ID"_s).toInt();
    Righe.Edit();
    Db.Execute(u"UPDATE Clienti SET Anni=55 WHERE ID=?"_s, {ID});
    QVERIFY(Righe.CambiatoDaAltri());
    QCOMPARE(Righe.AbsolutePosition(), 2);
}

#include "TestModificaAperta.moc"
