// The card of a row: what is written, how it is left, the line of changes that are not saved.
#include "addressbook/windows/tavoloscheda.h"
#include "platform/system/guasti.h"

#include <filesystem>

using namespace Qt::StringLiterals;

class TestSchedaScrittura : public QObject, private TavoloScheda
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Apparecchia(); }
    void cleanup() { Sparecchia(); }

    void ogniCasellaSiScrive_data();
    void ogniCasellaSiScrive();
    void riempireNonECambiare();
    void indiceModificato();
    void lasciandoSiScrive();
    void valoreRifiutato();
    void rifiutatoAncheSalvando();
    void salvaScriveQuelloInSospeso();
    void nuovaRiga();
    void nuovaInUnOrdine();
    void annulla();
    void chiudiLasciaAperta_data();
    void chiudiLasciaAperta();
    void chiudiConUnRifiuto();
    void esc_data();
    void esc();
    void escSenzaModifiche();
    void congeda_data();
    void congeda();
    void aggiornamentoFallito_data();
    void aggiornamentoFallito();
    void archivioBloccato();
    void discoPieno();
    void cambiataDaUnAltroProgramma();
    void contropSegue();
    void linea_data();
    void linea();
    void lineaChiede_data();
    void lineaChiede();
    void lineaSenzaModifiche();
    void lineaNonSalva();
};
PROVA(TestSchedaScrittura);

void TestSchedaScrittura::ogniCasellaSiScrive_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Battuto");
    QTest::addColumn<QVariant>("Scritto");
    const auto Riga = [](const char* Perche, const QString& Nome, const QString& Battuto, const QVariant& V) {
        QTest::newRow(Perche) << Nome << Battuto << V;
    };
    Riga("testo", u"Nominativo"_s, u"Gallo Ugo"_s, u"Gallo Ugo"_s);
    Riga("data senza separatori", u"DataNascita"_s, u"290220"_s, QDate(2020, 2, 29));
    Riga("logico", u"Attivo"_s, u"no"_s, false);
    Riga("byte", u"Classe"_s, u"9"_s, 9);
    Riga("intero", u"Anni"_s, u"50"_s, 50);
    Riga("lungo", u"Numero"_s, u"1.250"_s, 1250);
    Riga("valuta", u"Saldo"_s, u"0,75"_s, 0.75);
    Riga("singolo", u"Peso"_s, u"3,5"_s, 3.5);
    Riga("doppio", u"Misura"_s, u"-1"_s, -1.0);
    Riga("testo svuotato", u"Nominativo"_s, {}, QString(u""_s));
    Riga("data svuotata", u"DataNascita"_s, {}, {});
    Riga("logico svuotato", u"Attivo"_s, {}, false);
    Riga("intero svuotato", u"Anni"_s, {}, {});
    Riga("valuta svuotata", u"Saldo"_s, {}, {});
}

void TestSchedaScrittura::ogniCasellaSiScrive()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Battuto);
    QFETCH(QVariant, Scritto);
    Apri(u"edit"_s);
    Battere(Nome, Battuto);
    Premuto("barScheda_do");
    QCOMPARE(Chiusure, QList<bool>{true});
    QCOMPARE(NelFile(Nome), Scritto);
    QCOMPARE(NelFile(Nome).isNull(), Scritto.isNull());
    for (const Campo& Altro : Righe.Campi())  // what nobody touched stays
        if (Altro.Name != Nome)
            QVERIFY2(!NelFile(Altro.Name).isNull(), qPrintable(Altro.Name));
}

void TestSchedaScrittura::riempireNonECambiare()
{
    Apri(u"edit"_s);
    QCOMPARE(Scheda->IndiceModificato(), 0);
    for (int i = 0; i < 14; ++i)
        Premi(Qt::Key_Tab);
    QCOMPARE(Scheda->IndiceModificato(), 0);
    QVERIFY(!Righe.Toccato());
    Premuto("barScheda_do");
    QCOMPARE(Chiusure, QList<bool>{true});
    Apri(u"edit"_s, 4);
    Premuto("barScheda_do");
    QVERIFY(NelFile(u"CodFis"_s, 4).isNull());  // an untouched box stays Null
}

void TestSchedaScrittura::indiceModificato()
{
    Colonne = {Colonna(u"Nominativo"_s), Colonna(u"Anni"_s), Colonna(u"Note"_s)};
    Apri(u"edit"_s);
    Battere(u"Nominativo"_s, u"A"_s);
    QCOMPARE(Scheda->IndiceModificato(), 1);  // the first box counts too
    Premi(Qt::Key_Tab);
    QCOMPARE(Scheda->IndiceModificato(), 0);
    Digita(u"5"_s);
    QCOMPARE(Scheda->IndiceModificato(), 2);
    Premi(Qt::Key_Tab);
    Digita(u"z"_s);
    QCOMPARE(Scheda->IndiceModificato(), 3);
    Premi(Qt::Key_Tab);
    QCOMPARE(Scheda->IndiceModificato(), 0);
    Premuto("barScheda_do");
    QCOMPARE(NelFile(u"Nominativo"_s).toString(), u"A"_s);
    QVERIFY(NelFile(u"Note"_s).toString().contains(u'z'));
}

void TestSchedaScrittura::lasciandoSiScrive()
{
    Apri(u"edit"_s);
    Battere(u"DataNascita"_s, u"010285"_s);
    QCOMPARE(Righe.Value(u"DataNascita"_s), QVariant(QDate(1980, 1, 1)));
    Premi(Qt::Key_Tab);
    QCOMPARE(Righe.Value(u"DataNascita"_s), QVariant(QDate(1985, 2, 1)));
    QCOMPARE(Casella(u"DataNascita"_s)->text(), u"01/02/1985"_s);
    QCOMPARE(NelFile(u"DataNascita"_s), QVariant(QDate(1980, 1, 1)));
    Premuto("barScheda_undo");
    QCOMPARE(NelFile(u"DataNascita"_s), QVariant(QDate(1980, 1, 1)));
}

void TestSchedaScrittura::valoreRifiutato()
{
    Apri(u"edit"_s);
    Battere(u"DataNascita"_s, u"31/02/2020"_s);
    Voce->Attendi(u"Errore: Il valore non è del tipo richiesto dal campo: DataNascita (3421)"_s, vbOK,
                  u"Errore:"_s);
    Premi(Qt::Key_Tab);
    QTRY_VERIFY(Casella(u"DataNascita"_s)->hasFocus());
    QCOMPARE(Casella(u"DataNascita"_s)->text(), u"31/02/2020"_s);
    QCOMPARE(Scheda->IndiceModificato(), 5);
    QVERIFY(Scheda->isVisible());
    QCOMPARE(Righe.Value(u"DataNascita"_s), QVariant(QDate(1980, 1, 1)));
    Digita(u"28/02/2020"_s);  // over it, since it came back selected
    Premuto("barScheda_do");
    QCOMPARE(NelFile(u"DataNascita"_s), QVariant(QDate(2020, 2, 28)));
}

/// A refused value is not left out by saving twice.
void TestSchedaScrittura::rifiutatoAncheSalvando()
{
    Apri(u"edit"_s);
    Battere(u"Saldo"_s, u"12.5"_s);
    for (int i = 0; i < 2; ++i) {
        Voce->Attendi(u"Errore: Il valore non è del tipo richiesto dal campo: Saldo (3421)"_s);
        Premuto("barScheda_do");
        QVERIFY(Scheda && Scheda->isVisible());
        QTRY_VERIFY(Casella(u"Saldo"_s)->hasFocus());
        QCOMPARE(Casella(u"Saldo"_s)->text(), u"12.5"_s);
    }
    QCOMPARE(Righe.EditMode(), 1);
    QCOMPARE(NelFile(u"Saldo"_s), QVariant(1234.5));
    QVERIFY(Chiusure.isEmpty());
    Premuto("barScheda_undo");  // undo asks for nothing
    QCOMPARE(Chiusure, QList<bool>{false});
    QCOMPARE(NelFile(u"Saldo"_s), QVariant(1234.5));
}

void TestSchedaScrittura::salvaScriveQuelloInSospeso()
{
    Apri(u"edit"_s);
    Battere(u"Nominativo"_s, u"Verdi Ada"_s);
    QCOMPARE(Scheda->IndiceModificato(), 2);
    Premi(Qt::Key_F10);
    QCOMPARE(Chiusure, QList<bool>{true});
    QCOMPARE(NelFile(u"Nominativo"_s).toString(), u"Verdi Ada"_s);
    QCOMPARE(Righe.EditMode(), 0);
    QTRY_VERIFY(!Scheda);  // unloaded
}

void TestSchedaScrittura::nuovaRiga()
{
    Apri(u"new"_s);
    for (const QLineEdit* Riga : Scheda->findChildren<QLineEdit*>())
        QCOMPARE(Riga->text(), QString());
    QVERIFY(Casella(u"Nominativo"_s)->hasFocus());  // the counter takes nothing
    Digita(u"Nuovo Luca"_s);
    Premi(Qt::Key_Return);
    Digita(u"x"_s);
    Premuto("barScheda_do");
    QCOMPARE(Righe.RecordCount(), 5);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(5));  // current
    QCOMPARE(NelFile(u"Nominativo"_s, 5).toString(), u"Nuovo Luca"_s);
    QVERIFY(NelFile(u"Anni"_s, 5).isNull());
}

void TestSchedaScrittura::nuovaInUnOrdine()
{
    Righe = Db.OpenRecordset(u"SELECT * FROM clienti ORDER BY Nominativo DESC"_s);
    ApriPresto(u"new"_s);
    Battere(u"Nominativo"_s, u"Mario"_s);
    Premuto("barScheda_do");
    QCOMPARE(Righe.AbsolutePosition(), 4);
    QCOMPARE(Righe.Value(u"Nominativo"_s).toString(), u"Mario"_s);
}

void TestSchedaScrittura::annulla()
{
    Apri(u"edit"_s);
    Battere(u"Nominativo"_s, u"x"_s);
    Premi(Qt::Key_Tab);
    Battere(u"Anni"_s, u"1"_s);
    Premuto("barScheda_undo");
    QCOMPARE(Chiusure, QList<bool>{false});
    QCOMPARE(Righe.EditMode(), 0);
    QCOMPARE(Righe.Value(u"Nominativo"_s).toString(), u"Verdi Anna"_s);
    Apri(u"new"_s);
    Battere(u"Nominativo"_s, u"x"_s);
    Premuto("barScheda_undo");
    QCOMPARE(Righe.RecordCount(), 4);
    QCOMPARE(Righe.EditMode(), 0);
}

void TestSchedaScrittura::chiudiLasciaAperta_data()
{
    QTest::addColumn<QString>("Modo");
    QTest::addColumn<int>("Aperta");
    QTest::newRow("modifica") << u"edit"_s << 1;
    QTest::newRow("nuova") << u"new"_s << 2;
}

void TestSchedaScrittura::chiudiLasciaAperta()
{
    QFETCH(QString, Modo);
    QFETCH(int, Aperta);
    Apri(Modo);
    Battere(u"Nominativo"_s, u"In sospeso"_s);
    Premuto("barScheda_off");  // with no question
    QCOMPARE(Chiusure, QList<bool>{false});
    QCOMPARE(Righe.EditMode(), Aperta);
    QCOMPARE(Righe.Value(u"Nominativo"_s).toString(), u"In sospeso"_s);
    QCOMPARE(NelFile(u"Nominativo"_s).toString(), u"Verdi Anna"_s);
    QVERIFY(Linea->isVisible());
    Righe.Update();
    QCOMPARE(NelFile(u"Nominativo"_s, Aperta == 1 ? 1 : 5).toString(), u"In sospeso"_s);
}

void TestSchedaScrittura::chiudiConUnRifiuto()
{
    Apri(u"edit"_s);
    Battere(u"Anni"_s, u"molti"_s);
    Voce->Attendi(u"Errore: Il valore non è del tipo richiesto dal campo: Anni (3421)"_s);
    Premuto("barScheda_off");
    QVERIFY(Scheda && Scheda->isVisible());
    QTRY_VERIFY(Casella(u"Anni"_s)->hasFocus());
    // Said to be thrown away, it is.
    Voce->Attendi(u"Salvare le modifiche alla scheda?"_s, vbNo);
    Premi(Qt::Key_Escape);
    QCOMPARE(Chiusure, QList<bool>{false});
    QCOMPARE(Righe.EditMode(), 1);
    QCOMPARE(Righe.Value(u"Anni"_s), QVariant(43));
}

void TestSchedaScrittura::esc_data()
{
    QTest::addColumn<bool>("ConLaCroce");
    QTest::addColumn<int>("Risposta");
    for (const bool Croce : {false, true})
        for (const auto& [Nome, Risposta] : {std::pair{"si", vbYes}, {"no", vbNo}, {"annulla", vbCancel}})
            QTest::addRow("%s %s", Croce ? "croce" : "esc", Nome) << Croce << Risposta;
}

void TestSchedaScrittura::esc()
{
    QFETCH(bool, ConLaCroce);
    QFETCH(int, Risposta);
    Apri(u"edit"_s);
    Battere(u"Nominativo"_s, u"Verdi Eva"_s);
    Voce->Attendi(u"Salvare le modifiche alla scheda?"_s, Risposta, u"Domanda:"_s);
    if (ConLaCroce)
        Scheda->close();
    else
        Premi(Qt::Key_Escape);
    QCOMPARE(Voce->Ultimo().Bandiere, vbYesNoCancel | vbQuestion);
    const bool Restata = Risposta == vbCancel;
    QCOMPARE(Scheda && Scheda->isVisible(), Restata);
    QCOMPARE(Chiusure, Restata ? QList<bool>() : QList<bool>{Risposta == vbYes});
    QCOMPARE(NelFile(u"Nominativo"_s).toString(), Risposta == vbYes ? u"Verdi Eva"_s : u"Verdi Anna"_s);
    QCOMPARE(Righe.EditMode(), Risposta == vbYes ? 0 : 1);  // No leaves the edit open
    if (Risposta == vbNo)
        QCOMPARE(Righe.Value(u"Nominativo"_s).toString(), u"Verdi Eva"_s);
    if (Restata)
        QCOMPARE(Casella(u"Nominativo"_s)->text(), u"Verdi Eva"_s);
    Righe.CancelUpdate();
}

void TestSchedaScrittura::escSenzaModifiche()
{
    for (const QString& Modo : {u"new"_s, u"edit"_s, u"view"_s}) {
        Apri(Modo);
        Premi(Qt::Key_Escape);
        QVERIFY(!Scheda || !Scheda->isVisible());
        QCOMPARE(Righe.EditMode(), 0);
        QVERIFY(!Linea->isVisible());
        Respiro();
    }
    QCOMPARE(Righe.RecordCount(), 4);
}

void TestSchedaScrittura::congeda_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<bool>("Via");
    QTest::newRow("si") << vbYes << true;
    QTest::newRow("no") << vbNo << true;
    QTest::newRow("annulla") << vbCancel << false;
}

/// The browser closes with a card open: one question, and no edit that would be asked about again.
void TestSchedaScrittura::congeda()
{
    QFETCH(int, Risposta);
    QFETCH(bool, Via);
    Apri(u"edit"_s);
    Battere(u"Nominativo"_s, u"Verdi Eva"_s);
    Voce->Attendi(u"Salvare le modifiche alla scheda?"_s, Risposta);
    QCOMPARE(Scheda->Congeda(), Via);
    QCOMPARE(Righe.EditMode(), Via ? 0 : 1);
    if (Via)
        QVERIFY(Linea->Consenti());
    QCOMPARE(NelFile(u"Nominativo"_s).toString(), Risposta == vbYes ? u"Verdi Eva"_s : u"Verdi Anna"_s);
    Righe.CancelUpdate();
}

void TestSchedaScrittura::aggiornamentoFallito_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Messaggio");
    QTest::newRow("riga eliminata") << u"DELETE FROM clienti WHERE ID=1"_s
                                    << u"Errore: Il record è stato eliminato (3167)"_s;
    QTest::newRow("valore doppio")
        << u"CREATE UNIQUE INDEX Solo ON clienti (Nominativo COLLATE NOCASE)"_s
        << u"Errore: La modifica creerebbe un valore doppio in una chiave univoca (3022)"_s;
}

void TestSchedaScrittura::aggiornamentoFallito()
{
    QFETCH(QString, Sql);
    QFETCH(QString, Messaggio);
    Apri(u"edit"_s);
    Battere(u"Nominativo"_s, u"Bianchi"_s);
    Db.Execute(Sql);
    for (int i = 0; i < 2; ++i) {
        Voce->Attendi(Messaggio, vbOK, u"Errore:"_s);
        Premuto("barScheda_do");
        QVERIFY(Scheda && Scheda->isVisible());
        QCOMPARE(Casella(u"Nominativo"_s)->text(), u"Bianchi"_s);
        QCOMPARE(Righe.EditMode(), 1);
    }
    Premuto("barScheda_undo");
    QCOMPARE(Chiusure, QList<bool>{false});
}

/// Another program is writing: the card waits a while, then says so and stays as it is.
void TestSchedaScrittura::archivioBloccato()
{
    Apri(u"edit"_s);
    Battere(u"Nominativo"_s, u"Verdi Eva"_s);
    {
        const QString Altro = NuovaCartella() + u"altro.mdb"_s;
        std::filesystem::create_hard_link(Db.Percorso().toStdString(), Altro.toStdString());
        const Database AltroProgramma = OpenDatabase(Altro);
        const Transazione Scrive(AltroProgramma);
        Voce->Attendi(u"Errore: Impossibile aggiornare: i dati sono bloccati da un altro utente (3260)"_s);
        Premuto("barScheda_do");
        QVERIFY(Scheda && Scheda->isVisible());
        QCOMPARE(Casella(u"Nominativo"_s)->text(), u"Verdi Eva"_s);
        QCOMPARE(Righe.EditMode(), 1);
    }
    Premuto("barScheda_do");
    QCOMPARE(Chiusure, QList<bool>{true});
    QCOMPARE(NelFile(u"Nominativo"_s).toString(), u"Verdi Eva"_s);
}

void TestSchedaScrittura::discoPieno()
{
    const QString File = Db.Percorso();
    Righe.Close();
    Db = {};
    guasti::LimitePagine = 20;
    Db = OpenDatabase(File);
    guasti::LimitePagine = 0;
    Righe = Db.OpenRecordset(u"clienti"_s);
    Apri(u"edit"_s);
    auto* Note = qobject_cast<QPlainTextEdit*>(Box(u"Note"_s));
    Note->setFocus();
    Note->insertPlainText((QString(99, u'x') + u'\n').repeated(1000));
    Voce->Attendi(u"Errore: Spazio su disco insufficiente per il database (3026)"_s);
    Premuto("barScheda_do");
    QVERIFY(Scheda && Scheda->isVisible());
    QVERIFY(Note->toPlainText().size() >= 100'000);
    QCOMPARE(Righe.EditMode(), 1);
    QCOMPARE(NelFile(u"Note"_s).toString(), u"prima riga\nseconda"_s);
    Premuto("barScheda_undo");
}

void TestSchedaScrittura::cambiataDaUnAltroProgramma()
{
    Apri(u"edit"_s);
    Battere(u"Anni"_s, u"50"_s);
    Db.Execute(u"UPDATE clienti SET Anni=44 WHERE ID=1"_s);
    const QString Domanda = u"Nel frattempo un altro programma ha cambiato questa scheda.\n"
                            "Salvare le proprie modifiche al posto delle sue?"_s;
    Voce->Attendi(Domanda, vbNo);
    Premuto("barScheda_do");
    QVERIFY(Scheda && Scheda->isVisible());
    QCOMPARE(NelFile(u"Anni"_s), QVariant(44));
    Voce->Attendi(Domanda, vbYes);
    Premuto("barScheda_do");
    QCOMPARE(Chiusure, QList<bool>{true});
    QCOMPARE(NelFile(u"Anni"_s), QVariant(50));
}

void TestSchedaScrittura::contropSegue()
{
    CreaControparti(Db);
    Righe = Db.OpenRecordset(u"controparti"_s);
    for (const bool Visibile : {false, true}) {
        Colonne = {Colonna(u"Nominativo"_s)};
        if (Visibile)
            Colonne += Colonna(u"Controp"_s);
        Apri(u"edit"_s);
        Battere(u"Nominativo"_s, Visibile ? u"Russi"_s : u"Russo"_s);
        Premi(Qt::Key_Tab);
        if (Visibile)
            QCOMPARE(Casella(u"Controp"_s)->text(), u"Russi"_s);
        Premuto("barScheda_do");
        QCOMPARE(Righe.Value(u"Controp"_s).toString(), Visibile ? u"Russi"_s : u"Russo"_s);
        Respiro();
    }
}

void TestSchedaScrittura::linea_data()
{
    QTest::addColumn<bool>("Salva");
    QTest::newRow("salva") << true;
    QTest::newRow("annulla") << false;
}

void TestSchedaScrittura::linea()
{
    QFETCH(bool, Salva);
    QSignalSpy Conclusa(Linea, &LineaModifiche::Conclusa);
    Apri(u"edit"_s);
    QVERIFY(!Linea->isVisible());
    Battere(u"Nominativo"_s, u"Sospeso"_s);
    Premuto("barScheda_off");
    QVERIFY(Linea->isVisible());
    QCOMPARE(Controllo<QLabel>(Linea, "lblModifiche")->text(), u"Modifiche non salvate:"_s);
    auto* Si = Controllo<QPushButton>(Linea, "cmdSalvaModifiche");
    auto* No = Controllo<QPushButton>(Linea, "cmdAnnullaModifiche");
    QCOMPARE(Si->text(), u"Salva"_s);
    QCOMPARE(No->text(), u"Annulla"_s);
    Respiro();
    Clic(Salva ? Si : No);
    QCOMPARE(Conclusa.size(), 1);
    QCOMPARE(Conclusa[0][0].toBool(), Salva);
    QVERIFY(!Linea->isVisible());
    QCOMPARE(Righe.EditMode(), 0);
    QCOMPARE(NelFile(u"Nominativo"_s).toString(), Salva ? u"Sospeso"_s : u"Verdi Anna"_s);
}

void TestSchedaScrittura::lineaChiede_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<bool>("Consente");
    QTest::newRow("si") << vbYes << true;
    QTest::newRow("no") << vbNo << true;
    QTest::newRow("annulla") << vbCancel << false;
}

void TestSchedaScrittura::lineaChiede()
{
    QFETCH(int, Risposta);
    Apri(u"edit"_s);
    Battere(u"Nominativo"_s, u"Sospeso"_s);
    Premuto("barScheda_off");
    Voce->Attendi(u"Salvare le modifiche alla scheda?"_s, Risposta);
    QTEST(Linea->Consenti(), "Consente");
    QCOMPARE(Linea->isVisible(), Risposta == vbCancel);
    QCOMPARE(NelFile(u"Nominativo"_s).toString(), Risposta == vbYes ? u"Sospeso"_s : u"Verdi Anna"_s);
    Righe.CancelUpdate();
}

void TestSchedaScrittura::lineaSenzaModifiche()
{
    QVERIFY(Linea->Consenti());  // nothing was ever open
    Apri(u"edit"_s);
    Premuto("barScheda_off");
    QVERIFY(Linea->isVisible());
    QVERIFY(Linea->Consenti());
    QVERIFY(!Linea->isVisible());
    QCOMPARE(Righe.EditMode(), 0);
}

void TestSchedaScrittura::lineaNonSalva()
{
    Apri(u"edit"_s);
    Battere(u"Nominativo"_s, u"Sospeso"_s);
    Premuto("barScheda_off");
    Db.Execute(u"DELETE FROM clienti WHERE ID=1"_s);
    Voce->Attendi(u"Salvare le modifiche alla scheda?"_s, vbYes);
    Voce->Attendi(u"Errore: Il record è stato eliminato (3167)"_s);
    QVERIFY(!Linea->Consenti());
    QVERIFY(Linea->isVisible());
    QCOMPARE(Righe.EditMode(), 1);
    Clic(Controllo<QPushButton>(Linea, "cmdAnnullaModifiche"));
    QCOMPARE(Righe.EditMode(), 0);
}

#include "TestSchedaScrittura.moc"
