// What is done with a row of the address book: card, deletion and its way back, choice.
#include "bancocomandi.h"
#include "platform/system/attese.h"

#include <algorithm>

using namespace Qt::StringLiterals;

class TestComandiRubrica : public QObject, private BancoComandi
{
    Q_OBJECT
private Q_SLOTS:
    void init() { A = std::make_unique<ArchivioDiProva>(); }
    void cleanup() { A.reset(); }
    void laParolaSenzaMaiuscole();
    void doppioClicMostra();
    void invioSceglieOMostra();
    void leColonneNascosteNonCiSono();
    void iTastiDeiComandi_data();
    void iTastiDeiComandi();
    void nuovoDaUnaParcella();
    void nuovoColFiltro();
    void laSchedaCominciaDalCampo();
    void modificaEAvvisa();
    void menuStartConLaChiave_data();
    void menuStartConLaChiave();
    void menuStartUnaVolta();
    void eliminaELaPrimaRiga();
    void eliminaDomandaENo();
    void eliminaLUltima();
    void eliminaERimetti();
    void rimessaNellaSuaTabella();
    void laChiaveNonTorna_data();
    void laChiaveNonTorna();
    void laRigaSparitaAltrove_data();
    void laRigaSparitaAltrove();
    void dueProgrammi();
    void lArchivioBloccato();
    void lArchivioDiSolaLettura();
    void laSceltaDiChiNonHaNome();
    void laSceltaDaUnArchivioDiverso();
    void laSceltaSenzaLeColonne();
};
PROVA(TestComandiRubrica);

void TestComandiRubrica::laParolaSenzaMaiuscole()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    F->Comando(u"VIEW"_s);
    QVERIFY(Scheda(F));
    QCOMPARE(Scheda(F)->Modalità(), u"view"_s);
}

void TestComandiRubrica::doppioClicMostra()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    VaiA(F, 2);
    DoppioClic(Lista(F), 2);
    QVERIFY(Scheda(F));
    QCOMPARE(Scheda(F)->Modalità(), u"view"_s);
    QVERIFY(A->Scelte.empty());
    Premuto(F, u"off"_s);
    QVERIFY(!Scheda(F));
    QCOMPARE(Corrente(F), u"BRUNI Carla"_s);
}

void TestComandiRubrica::invioSceglieOMostra()
{
    frmRubrica* F = A->Apri(A->DaScrivania());
    QVERIFY(F);
    VaiA(F, 1);
    Premi(Qt::Key_Return);
    QVERIFY(Scheda(F));
    Premuto(F, u"off"_s);
    QVERIFY(ChiudiRubriche());
    F = A->Apri(A->DaNota(4));
    VaiA(F, 1);
    Premi(Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(A->Scelte.size(), std::size_t(1));
    QCOMPARE(A->Scelte[0].Indice, 4);
    QCOMPARE(A->Scelte[0].Numero, 74);
    QCOMPARE(A->Scelte[0].Parent, u"cli"_s);
    QVERIFY(!RubricaDi(4));
}

/// A hidden column is neither handed over nor on the card.
void TestComandiRubrica::leColonneNascosteNonCiSono()
{
    OpenDatabase(A->File).Execute(u"UPDATE clienti SET CodFis='segreto', Cap='55100' WHERE ID=1"_s);
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    F->Comando(u"view"_s);
    QVERIFY(Scheda(F));
    for (const QLineEdit* Box : Scheda(F)->findChildren<QLineEdit*>())
        QVERIFY(Box->text() != u"segreto"_s);
    Premuto(F, u"off"_s);
    // Neither does the order in which the user has dragged the columns play a part.
    Lista(F)->Vista()->horizontalHeader()->moveSection(3, 0);
    F->Comando(u"selez"_s);
    QCOMPARE(A->Scelte.size(), std::size_t(1));
    QCOMPARE(A->Scelte[0].Valori, (QVariantList{1, u"verdi Anna"_s, u"Lucca"_s, u"55100"_s}));
}

void TestComandiRubrica::iTastiDeiComandi_data()
{
    QTest::addColumn<int>("Tasto");
    QTest::addColumn<int>("Modificatore");
    QTest::addColumn<QString>("Modo");
    QTest::newRow("Ins") << int(Qt::Key_Insert) << 0 << u"new"_s;
    QTest::newRow("F2") << int(Qt::Key_F2) << 0 << u"edit"_s;
}

void TestComandiRubrica::iTastiDeiComandi()
{
    QFETCH(int, Tasto);
    QFETCH(int, Modificatore);
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    VaiA(F, 1);
    QTest::keyClick(Lista(F)->Vista(), Qt::Key(Tasto), Qt::KeyboardModifiers(Modificatore));
    QVERIFY(Scheda(F));
    QTEST(Scheda(F)->Modalità(), "Modo");
    QCOMPARE(Scheda(F)->windowModality(), Qt::WindowModal);
    // While the card is open the browser does nothing else.
    F->Comando(u"delete"_s);
    F->Comando(u"selez"_s);
    QVERIFY(A->Scelte.empty());
}

void TestComandiRubrica::nuovoDaUnaParcella()
{
    RichiestaRubrica Chiesta = A->DaNota();
    Chiesta.MenuStart = u"new"_s;
    frmRubrica* F = A->Apri(Chiesta);
    QVERIFY(F);
    ScriviScheda(F, 1, u"Zeta Srl"_s);
    Premuto(F, u"do"_s);
    QVERIFY(!Scheda(F));
    QCOMPARE(Corrente(F), u"Zeta Srl"_s);
    QCOMPARE(A->Cambiati, QStringList{u"clienti 6"_s});
    QCOMPARE(Conto(F), u"6 nominativi"_s);
    QVERIFY(A->Scelte.empty());  // nothing is handed over unasked
    QApplication::setActiveWindow(F);
    QVERIFY(Lista(F)->Vista()->hasFocus());
    Premi(Qt::Key_Return);
    QCOMPARE(A->Scelte.size(), std::size_t(1));
    QCOMPARE(A->Scelte[0].Valori.first().toInt(), 6);
}

/// A new name stays on view, whatever the filter says, and is of the table when the filter goes.
void TestComandiRubrica::nuovoColFiltro()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    ClicTitolo(F, 1);
    Vaglio(F)->setText(u"rossi"_s);
    QTRY_COMPARE(Conto(F), u"2 di 5"_s);
    F->Comando(u"new"_s);
    ScriviScheda(F, 1, u"Abate"_s);
    Premuto(F, u"do"_s);
    QCOMPARE(Corrente(F), u"Abate"_s);
    QCOMPARE(Conto(F), u"3 di 6"_s);
    Vaglio(F)->clear();
    QTRY_COMPARE(Conto(F), u"6 nominativi"_s);
    QCOMPARE(Nomi(F).first(), u"Abate"_s);
    QCOMPARE(Corrente(F), u"Abate"_s);
}

/// The card begins where whoever asked for it wants the user to write.
void TestComandiRubrica::laSchedaCominciaDalCampo()
{
    RichiestaRubrica Chiesta = A->DaNota();
    Chiesta.MenuStart = u"edit"_s;
    Chiesta.KeyStart = u"ID=2"_s;
    Chiesta.CampoStart = u"citta"_s;
    frmRubrica* F = A->Apri(Chiesta);
    QVERIFY(F);
    QTRY_COMPARE(Scheda(F)->focusWidget()->property("Tag").toString(), u"Citta"_s);
    Premuto(F, u"undo"_s);
    QVERIFY(F->Chiesta().CampoStart.isEmpty());
    // A column that the archive does not have leaves the card at its first box.
    Chiesta.CampoStart = u"CodDestinatario"_s;
    F = A->Apri(Chiesta);
    QVERIFY(F);
    QTRY_COMPARE(Scheda(F)->focusWidget()->property("Tag").toString(), u"Nominativo"_s);
    Premuto(F, u"undo"_s);
}

void TestComandiRubrica::modificaEAvvisa()
{
    RichiestaRubrica Chiesta = A->DaNota();
    Chiesta.RecordSource = u"controparti"_s;
    Chiesta.MenuStart = u"EDIT"_s;
    Chiesta.KeyStart = u"ID=2"_s;
    frmRubrica* F = A->Apri(Chiesta);
    QVERIFY(F);
    ScriviScheda(F, 1, u"Omega Spa"_s);
    Premuto(F, u"do"_s);
    QCOMPARE(Corrente(F), u"Omega Spa"_s);
    QCOMPARE(A->Cambiati, QStringList{u"controparti 2"_s});
    // A card that was only looked at tells nobody.
    F->Comando(u"edit"_s);
    Premuto(F, u"undo"_s);
    QCOMPARE(A->Cambiati.size(), 1);
}

void TestComandiRubrica::menuStartConLaChiave_data()
{
    QTest::addColumn<QString>("MenuStart");
    QTest::addColumn<QString>("KeyStart");
    QTest::addColumn<QString>("Modo");  // of the card; empty: there is none
    QTest::addColumn<QString>("Riga");
    QTest::addColumn<int>("Guasto");
    QTest::newRow("trovata") << u"edit"_s << u"ID=4"_s << u"edit"_s << u"Rossi Mario"_s << 0;
    QTest::newRow("non trovata") << u"edit"_s << u"ID=99"_s << QString() << u"verdi Anna"_s << 0;
    QTest::newRow("criterio illeggibile") << u"edit"_s << u"ID==4"_s << QString() << u"verdi Anna"_s << 3077;
    QTest::newRow("campo che non c'è") << u"edit"_s << u"Chiave=4"_s << QString() << u"verdi Anna"_s << 3070;
    QTest::newRow("chiave senza comando") << QString() << u"ID=4"_s << QString() << u"verdi Anna"_s << 0;
    QTest::newRow("comando senza chiave") << u"view"_s << QString() << u"view"_s << u"verdi Anna"_s << 0;
    QTest::newRow("comando ignoto") << u"altro"_s << QString() << QString() << u"verdi Anna"_s << 0;
}

void TestComandiRubrica::menuStartConLaChiave()
{
    RichiestaRubrica Chiesta = A->DaNota();
    QFETCH(QString, MenuStart);
    QFETCH(QString, KeyStart);
    QFETCH(QString, Modo);
    QFETCH(int, Guasto);
    Chiesta.MenuStart = MenuStart;
    Chiesta.KeyStart = KeyStart;
    if (Guasto != 0)
        A->Voce.Tollera();
    frmRubrica* F = A->Apri(Chiesta);
    QVERIFY(F);
    QCOMPARE(A->Voce.Mostrati().size(), Guasto != 0 ? 1 : 0);
    if (Guasto != 0)
        QVERIFY(A->Voce.UltimoTesto().endsWith(u"(%1)"_s.arg(Guasto)));
    QCOMPARE(Scheda(F) ? Scheda(F)->Modalità() : QString(), Modo);
    QTEST(Corrente(F), "Riga");
}

void TestComandiRubrica::menuStartUnaVolta()
{
    RichiestaRubrica Chiesta = A->DaNota();
    Chiesta.MenuStart = u"edit"_s;
    Chiesta.KeyStart = u"ID=99"_s;
    frmRubrica* F = A->Apri(Chiesta);
    QVERIFY(F);
    QVERIFY(F->Chiesta().MenuStart.isEmpty());
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(F);
    QVERIFY(!Scheda(F));
}

void TestComandiRubrica::eliminaELaPrimaRiga()
{
    frmRubrica* F = A->Apri(A->DaScrivania());
    QVERIFY(F);
    VaiA(F, 3);
    AttendiElimina(vbYes);
    Premi(Qt::Key_Delete);
    const MessaggioMostrato Domanda = A->Voce.Ultimo();
    QCOMPARE(Domanda.Bandiere, vbYesNo + vbQuestion + vbDefaultButton2);
    QCOMPARE(Corrente(F), u"verdi Anna"_s);
    QCOMPARE(Chiavi(A->File), (QList<int>{1, 2, 3, 5}));
    QCOMPARE(Conto(F), u"4 nominativi"_s);
}

void TestComandiRubrica::eliminaDomandaENo()
{
    frmRubrica* F = A->Apri(A->DaScrivania());
    QVERIFY(F);
    VaiA(F, 3);
    AttendiElimina(vbNo);
    F->Comando(u"delete"_s);
    QCOMPARE(Corrente(F), u"Rossi Mario"_s);
    QCOMPARE(Chiavi(A->File).size(), 5);
    QVERIFY(!Azione(F, "rimetti")->isEnabled());
}

void TestComandiRubrica::eliminaLUltima()
{
    OpenDatabase(A->File).Execute(u"DELETE FROM clienti WHERE ID>1"_s);
    frmRubrica* F = A->Apri(A->DaScrivania());
    QVERIFY(F);
    AttendiElimina(vbYes);
    F->Comando(u"delete"_s);
    QCOMPARE(Lista(F)->Righe(), 0);
    QCOMPARE(F->RigheMostrate().AbsolutePosition(), -1);
    QVERIFY(!Azione(F, "delete")->isEnabled());
    F->Comando(u"delete"_s);  // no question
    QCOMPARE(Conto(F), u"0 nominativi"_s);
}

void TestComandiRubrica::eliminaERimetti()
{
    frmRubrica* F = A->Apri(A->DaScrivania());
    QVERIFY(F);
    for (const int Riga : {1, 1}) {
        VaiA(F, Riga);
        AttendiElimina(vbYes);
        F->Comando(u"delete"_s);
    }
    QCOMPARE(Chiavi(A->File), (QList<int>{1, 4, 5}));
    Lista(F)->setFocus();
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Corrente(F), u"BRUNI Carla"_s);
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Corrente(F), u"Àlvari Nicolò"_s);
    QCOMPARE(Chiavi(A->File), (QList<int>{1, 2, 3, 4, 5}));
    QCOMPARE(Conto(F), u"5 nominativi"_s);
    QVERIFY(!Azione(F, "rimetti")->isEnabled());
}

void TestComandiRubrica::rimessaNellaSuaTabella()
{
    frmRubrica* F = A->Apri(A->DaScrivania());
    QVERIFY(F);
    AttendiElimina(vbYes);
    F->Comando(u"delete"_s);
    Clic(Controllo(F, "optArchivio_1"));
    QVERIFY(!Azione(F, "rimetti")->isEnabled());
    Clic(Controllo(F, "optArchivio_0"));
    Vaglio(F)->setText(u"lucca"_s);
    QTRY_COMPARE(Conto(F), u"1 di 4"_s);
    F->Comando(u"rimetti"_s);
    QCOMPARE(Corrente(F), u"verdi Anna"_s);
    QCOMPARE(Conto(F), u"2 di 5"_s);
    // With the window goes the way back.
    AttendiElimina(vbYes);
    F->Comando(u"delete"_s);
    QVERIFY(ChiudiRubriche());
    Respiro();
    F = A->Apri(A->DaScrivania());
    QVERIFY(!Azione(F, "rimetti")->isEnabled());
}

void TestComandiRubrica::laChiaveNonTorna_data()
{
    QTest::addColumn<bool>("Numero");
    QTest::newRow("contatore") << false;
    QTest::newRow("numero") << true;  // as archives of other programs may have it
}

void TestComandiRubrica::laChiaveNonTorna()
{
    QFETCH(bool, Numero);
    if (Numero) {
        const Database Db = OpenDatabase(A->File);
        for (const QString& Sql : {u"CREATE TABLE nuova AS SELECT * FROM clienti"_s, u"DROP TABLE clienti"_s,
                                   u"ALTER TABLE nuova RENAME TO clienti"_s})
            Db.Execute(Sql);
    }
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    VaiA(F, 4);
    AttendiElimina(vbYes);
    F->Comando(u"delete"_s);
    F->Comando(u"new"_s);
    ScriviScheda(F, 1, u"Nuovo"_s);
    Premuto(F, u"do"_s);
    QCOMPARE(Chiavi(A->File), (QList<int>{1, 2, 3, 4, 6}));
    F->Comando(u"rimetti"_s);
    QList<int> Rimesse = Chiavi(A->File);
    std::ranges::sort(Rimesse);
    QCOMPARE(Rimesse, (QList<int>{1, 2, 3, 4, 5, 6}));
}

void TestComandiRubrica::laRigaSparitaAltrove_data()
{
    QTest::addColumn<QString>("Comando");
    for (const QString& Parola : {u"edit"_s, u"view"_s, u"delete"_s, u"selez"_s})
        QTest::newRow(qPrintable(Parola)) << Parola;
}

void TestComandiRubrica::laRigaSparitaAltrove()
{
    QFETCH(QString, Comando);
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    VaiA(F, 3);
    {
        Connessione AltroProgramma(A->File, Connessione::Modo::Scrittura);
        AltroProgramma.Esegui(u"DELETE FROM clienti WHERE ID=4"_s);
    }
    if (Comando == u"delete"_s)
        AttendiElimina(vbYes);
    AttendiErrore(3167);
    F->Comando(Comando);
    Respiro();
    QVERIFY(!Scheda(F));
    QVERIFY(A->Scelte.empty());
    QCOMPARE(Conto(F), u"4 nominativi"_s);
    QCOMPARE(Corrente(F), u"Rossi Ada"_s);  // the one that stood behind it
}

/// Order, filter and count take up what another program has written.
void TestComandiRubrica::dueProgrammi()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    Vaglio(F)->setText(u"rossi"_s);
    QTRY_COMPARE(Conto(F), u"2 di 5"_s);
    {
        Connessione AltroProgramma(A->File, Connessione::Modo::Scrittura);
        AltroProgramma.Esegui(u"DELETE FROM clienti WHERE ID=4"_s);
        AltroProgramma.Esegui(u"INSERT INTO clienti (Nominativo) VALUES ('Rossetti')"_s);
    }
    ClicTitolo(F, 1);
    QCOMPARE(Nomi(F), (QStringList{u"Rossi Ada"_s}));
    Vaglio(F)->setText(u"ross"_s);
    QTRY_COMPARE(Nomi(F), (QStringList{u"Rossetti"_s, u"Rossi Ada"_s}));
    QCOMPARE(Conto(F), u"2 di 5"_s);
    Premi(Qt::Key_F5);
    QCOMPARE(Conto(F), u"2 di 5"_s);
}

void TestComandiRubrica::lArchivioBloccato()
{
    const QScopedValueRollback Breve(attese::BlocchiMs, 30);
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    Connessione AltroProgramma(A->File, Connessione::Modo::Scrittura);
    AltroProgramma.Esegui(u"BEGIN EXCLUSIVE"_s);
    AttendiErrore(3260);
    RichiestaRubrica Altra = A->DaNota(2);
    QVERIFY(!A->Apri(Altra));
    AltroProgramma.Esegui(u"COMMIT"_s);
    QVERIFY(A->Apri(Altra));
}

void TestComandiRubrica::lArchivioDiSolaLettura()
{
    QVERIFY(QFile::setPermissions(A->File, QFile::ReadOwner | QFile::ReadUser));
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    for (const char* Chiave : {"new", "edit", "delete", "rimetti"})
        QVERIFY2(!Azione(F, Chiave)->isEnabled(), Chiave);
    QVERIFY(Azione(F, "view")->isEnabled());
    QCOMPARE(Controllo<QLabel>(F, "lblArchivio")->text(), u"L'archivio è di sola lettura"_s);
    F->Comando(u"selez"_s);
    QCOMPARE(A->Scelte.size(), std::size_t(1));
}

void TestComandiRubrica::laSceltaDiChiNonHaNome()
{
    OpenDatabase(A->File).Execute(u"UPDATE clienti SET Nominativo=' ' WHERE ID=1"_s);
    OpenDatabase(A->File).Execute(u"UPDATE clienti SET Nominativo=NULL WHERE ID=2"_s);
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    for (const int Riga : {0, 1}) {
        VaiA(F, Riga);
        A->Voce.Attendi(u"Il nominativo scelto non ha un nome!"_s, vbOK, u"Avvertenza:"_s);
        F->Comando(u"selez"_s);
    }
    QVERIFY(A->Scelte.empty());
    QVERIFY(RubricaDi(1));
}

void TestComandiRubrica::laSceltaDaUnArchivioDiverso()
{
    const Database Db = OpenDatabase(A->File);
    Db.Execute(u"DROP TABLE clienti"_s);
    Db.CreaTabella(u"clienti"_s, {{u"Citta"_s, TipoCampo::Testo, 20, {}, false},
                                  {u"ID"_s, TipoCampo::Lungo, 0, u"V=N"_s, true},
                                  {u"Nominativo"_s, TipoCampo::Testo, 20, {}, false}});
    Db.Execute(u"INSERT INTO clienti (ID, Citta, Nominativo) VALUES (8, 'Lucca', 'Rossi')"_s);
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    F->Comando(u"selez"_s);
    QCOMPARE(A->Scelte.size(), std::size_t(1));
    QCOMPARE(A->Scelte[0].Valori, (QVariantList{8, u"Rossi"_s, u"Lucca"_s, u"Rossi"_s}));
}

void TestComandiRubrica::laSceltaSenzaLeColonne()
{
    const Database Db = OpenDatabase(A->File);
    Db.Execute(u"DROP TABLE clienti"_s);
    Db.CreaTabella(u"clienti"_s, {{u"Ditta"_s, TipoCampo::Testo, 20, {}, false}});
    Db.Execute(u"INSERT INTO clienti VALUES ('Alfa')"_s);
    RichiestaRubrica Chiesta = A->DaNota();
    Chiesta.ID = 1;
    frmRubrica* F = A->Apri(Chiesta);
    QVERIFY(F);
    A->Voce.Tollera();
    F->Comando(u"selez"_s);
    QVERIFY(A->Voce.UltimoTesto().endsWith(u"(3265)"_s));
    QVERIFY(A->Scelte.empty());
    F->Comando(u"edit"_s);
    ScriviScheda(F, 0, u"Beta"_s);
    Premuto(F, u"do"_s);
    QCOMPARE(Cella(F, 0, 0), u"Beta"_s);
    QVERIFY(A->Cambiati.isEmpty());
}

#include "TestComandiRubrica.moc"
