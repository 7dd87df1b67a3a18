// The card of a row: what it is made of, what it shows, its keys.
#include "addressbook/windows/tavoloscheda.h"

#include <filesystem>

using namespace Qt::StringLiterals;

class TestFrmScheda : public QObject, private TavoloScheda
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Apparecchia(); }
    void cleanup() { Sparecchia(); }

    void titoli_data();
    void titoli();
    void coppieDalleColonne();
    void unaSolaColonna();
    void colonnaNascostaDallUtente();
    void larghezzePerTipo_data();
    void larghezzePerTipo();
    void lunghezze();
    void altezza_data();
    void altezza();
    void nonOltreLoSchermo();
    void allargandoSiStirano();
    void valoriMostrati();
    void inVistaSoloChiudi();
    void inScritturaISuoiTasti();
    void stampaSpenta();
    void contatoreBloccato();
    void letturaDiAdesso();
    void nonSiApre_data();
    void nonSiApre();
    void ordineEInvio();
    void invioInUnaNota();
    void lettereDellaBarra();
    void segnoDellaBarra();
    void tastiPerSalvare_data();
    void tastiPerSalvare();
    void paginaSuEGiu();
    void paginaConUnPassoSuo();
    void paginaNelMemo();
    void paginaFermaInScrittura();
    void avvisi();
    void senzaNominativo();
    void finestraDelBrowserFerma();
    void laGrigliaMostraIlFile();
    void lettereDiverse();
    void ogniControlloHaUnNome();
};
PROVA(TestFrmScheda);

void TestFrmScheda::titoli_data()
{
    QTest::addColumn<QString>("Modo");
    QTest::addColumn<QString>("Titolo");
    QTest::newRow("nuova") << u"new"_s << u"Inserimento dati"_s;
    QTest::newRow("modifica") << u"edit"_s << u"Modifica dati - Verdi Anna"_s;
    QTest::newRow("vista") << u"view"_s << u"Visualizzazione dati - Verdi Anna"_s;
}

void TestFrmScheda::titoli()
{
    QFETCH(QString, Modo);
    QTEST(Apri(Modo).windowTitle(), "Titolo");
    QCOMPARE(Scheda->Modalità(), Modo);
}

void TestFrmScheda::coppieDalleColonne()
{
    Colonne = {Colonna(u"CodFis"_s, u"Codice fiscale"_s), Colonna(u"Nominativo"_s, u"R&D"_s),
               Colonna(u"Anni"_s)};
    Apri(u"view"_s);
    QCOMPARE(Scheda->findChildren<QLineEdit*>().size(), 3);
    const QStringList Campi{u"CodFis"_s, u"Nominativo"_s, u"Anni"_s};
    const QStringList Scritte{u"Codice fiscale:"_s, u"R&D:"_s, u"Anni:"_s};
    int Sotto = 0;
    for (int i = 0; i < 3; ++i) {
        auto* Etichetta = Controllo<QLabel>(Scheda, qPrintable(u"lblFieldName_%1"_s.arg(i)));
        auto* Riga = Controllo<QLineEdit>(Scheda, qPrintable(u"txtFieldData_%1"_s.arg(i)));
        QCOMPARE(Riga->property("Tag").toString(), Campi[i]);
        QCOMPARE(Etichetta->buddy(), Riga);
        QCOMPARE(Etichetta->text().replace(u"&&"_s, u"\1"_s).remove(u'&').replace(u'\1', u'&'), Scritte[i]);
        QVERIFY(Riga->isVisible() && Etichetta->isVisible());
        QVERIFY(Riga->y() >= Sotto);
        Sotto = Riga->geometry().bottom();
    }
}

void TestFrmScheda::unaSolaColonna()
{
    Colonne = {Colonna(u"Nominativo"_s)};
    Apri(u"view"_s);
    QCOMPARE(Scheda->findChildren<QLineEdit*>().size(), 1);
    QCOMPARE(Controllo<QLineEdit>(Scheda, "txtFieldData_0")->text(), u"Verdi Anna"_s);
    QVERIFY(!Scheda->findChild<QWidget*>(u"txtFieldData_1"_s));
    QVERIFY(!Scheda->findChild<QWidget*>(u"lblFieldName_1"_s));
}

/// A column that the grid was never to show has no pair.
void TestFrmScheda::colonnaNascostaDallUtente()
{
    Griglia Lista;
    Lista.ImpostaColonne(Colonne);
    Lista.MostraColonna(1, false);  // the user's doing
    Colonne[2].Visibile = false;
    Apri(u"view"_s);
    QVERIFY(Box(u"Nominativo"_s));
    for (const QWidget* Figlio : Scheda->findChildren<QWidget*>())
        QVERIFY(Figlio->property("Tag").toString() != u"CodFis");
    QCOMPARE(Controllo<QLineEdit>(Scheda, "txtFieldData_2")->property("Tag").toString(), u"PIva"_s);
}

void TestFrmScheda::larghezzePerTipo_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<int>("Twip");
    QTest::newRow("logico") << u"Attivo"_s << 850;
    QTest::newRow("byte") << u"Classe"_s << 650;
    QTest::newRow("intero") << u"Anni"_s << 900;
    QTest::newRow("lungo") << u"Numero"_s << 1100;
    QTest::newRow("valuta") << u"Saldo"_s << 1800;
    QTest::newRow("singolo") << u"Peso"_s << 1800;
    QTest::newRow("doppio") << u"Misura"_s << 2200;
    QTest::newRow("data") << u"DataNascita"_s << 2000;
    QTest::newRow("testo") << u"Nominativo"_s << 3250;
    QTest::newRow("memo") << u"Note"_s << 3250;
}

void TestFrmScheda::larghezzePerTipo()
{
    QFETCH(QString, Nome);
    Apri(u"view"_s);
    QFETCH(int, Twip);
    QCOMPARE(Box(Nome)->width(), aspetto::Pixel(Twip));
}

void TestFrmScheda::lunghezze()
{
    Db.Execute(u"UPDATE clienti SET PIva=? WHERE ID=1"_s, {QString(40, u'9')});
    Apri(u"edit"_s);
    QCOMPARE(Casella(u"Nominativo"_s)->maxLength(), 20);
    QCOMPARE(Casella(u"PIva"_s)->text().size(), 40);  // longer than its field: not cut
    Battere(u"CodFis"_s, u"ABCDEFGHIJKLMNOPQRST"_s);
    QCOMPARE(Casella(u"CodFis"_s)->text(), u"ABCDEFGHIJKLMNOP"_s);
    Premuto("barScheda_off");
    QCOMPARE(Righe.Value(u"PIva"_s).toString().size(), 40);
    Righe.CancelUpdate();
}

void TestFrmScheda::altezza_data()
{
    QTest::addColumn<int>("Quante");
    for (const int Quante : {1, 2, 6, 12})
        QTest::addRow("%d colonne", Quante) << Quante;
}

void TestFrmScheda::altezza()
{
    QFETCH(int, Quante);
    Colonne.resize(Quante);
    Apri(u"view"_s);
    QCOMPARE(Scheda->height(), aspetto::Pixel(Quante * 360 + 800));
    auto* Area = Controllo<QScrollArea>(Scheda, "areaScheda");
    QCOMPARE(Area->verticalScrollBar()->maximum(), 0);
    QCOMPARE(Area->horizontalScrollBar()->maximum(), 0);
}

void TestFrmScheda::nonOltreLoSchermo()
{
    QList<Campo> Campi{CampoScheda(u"Nominativo"_s, TipoCampo::Testo, 20)};
    for (int i = 0; i < 60; ++i)
        Campi += CampoScheda(u"Campo%1"_s.arg(i), TipoCampo::Testo, 10);
    Db.CreaTabella(u"larga"_s, Campi);
    Db.Execute(u"INSERT INTO larga (Nominativo) VALUES ('x')"_s);
    Righe = Db.OpenRecordset(u"larga"_s);
    Colonne.clear();
    for (const Campo& Descritto : Campi)
        Colonne += Colonna(Descritto.Name);
    ApriPresto(u"edit"_s);
    QApplication::setActiveWindow(Scheda);
    QVERIFY(QTest::qWaitForWindowActive(Scheda));
    QVERIFY(Scheda->frameGeometry().height() <= Scheda->screen()->availableGeometry().height());
    auto* Area = Controllo<QScrollArea>(Scheda, "areaScheda");
    QVERIFY(Area->verticalScrollBar()->maximum() > 0);
    QCOMPARE(Area->horizontalScrollBar()->maximum(), 0);  // nothing is cut beside the bar
    // The focus takes the page along, so that no box is typed into unseen.
    for (int i = 0; i < 60; ++i)
        Premi(Qt::Key_Return);
    QCOMPARE(NomeFuoco(), u"txtFieldData_60"_s);
    QVERIFY(Area->viewport()->rect().contains(
        Box(u"Campo59"_s)->mapTo(Area->viewport(), Box(u"Campo59"_s)->rect().center())));
    Premuto("barScheda_undo");
}

void TestFrmScheda::allargandoSiStirano()
{
    Apri(u"view"_s);
    const int Testo = Box(u"Nominativo"_s)->width();
    const int Memo = Box(u"Note"_s)->width();
    const int Numero = Box(u"Anni"_s)->width();
    // Three lines fit, and no bar beside them.
    auto* Note = qobject_cast<QPlainTextEdit*>(Box(u"Note"_s));
    Note->setPlainText(u"a\nb\nc"_s);
    Respiro();
    QCOMPARE(Note->verticalScrollBar()->maximum(), 0);
    const int Alta = Box(u"Note"_s)->height();
    Scheda->resize(Scheda->width() + 100, Scheda->height() + 60);
    Respiro();
    QCOMPARE(Box(u"Nominativo"_s)->width(), Testo + 100);
    QCOMPARE(Box(u"Note"_s)->width(), Memo + 100);
    QCOMPARE(Box(u"Anni"_s)->width(), Numero);
    QVERIFY(Box(u"Note"_s)->height() > Alta);
}

void TestFrmScheda::valoriMostrati()
{
    Apri(u"view"_s);
    const QMap<QString, QString> Attesi{
        {u"ID"_s, u"1"_s},
        {u"Nominativo"_s, u"Verdi Anna"_s},
        {u"DataNascita"_s, u"01/01/1980"_s},
        {u"Attivo"_s, u"Sì"_s},
        {u"Classe"_s, u"7"_s},
        {u"Numero"_s, u"100000"_s},
        {u"Saldo"_s, u"1234,5"_s},
        {u"Peso"_s, u"12,7"_s},
        {u"Misura"_s, u"-0,25"_s},
    };
    for (auto Uno = Attesi.cbegin(); Uno != Attesi.cend(); ++Uno)
        QCOMPARE(Casella(Uno.key())->text(), Uno.value());
    QCOMPARE(qobject_cast<QPlainTextEdit*>(Box(u"Note"_s))->toPlainText(), u"prima riga\nseconda"_s);
    delete Scheda;
    Apri(u"view"_s, 4);  // Null all over
    for (auto Uno = Attesi.cbegin(); Uno != Attesi.cend(); ++Uno)
        QVERIFY2(Uno.key() == u"ID" || Casella(Uno.key())->text().isEmpty(), qPrintable(Uno.key()));
}

void TestFrmScheda::inVistaSoloChiudi()
{
    Apri(u"view"_s);
    QVERIFY(!Controllo<QToolButton>(Scheda, "barScheda_do")->isVisible());
    QVERIFY(!Controllo<QToolButton>(Scheda, "barScheda_undo")->isVisible());
    QVERIFY(Controllo<QToolButton>(Scheda, "barScheda_print")->isVisible());
    QVERIFY(Controllo<QToolButton>(Scheda, "barScheda_off")->isEnabled());
    for (const QLineEdit* Riga : Scheda->findChildren<QLineEdit*>())
        QVERIFY(Riga->isReadOnly());
    QVERIFY(qobject_cast<QPlainTextEdit*>(Box(u"Note"_s))->isReadOnly());
    Casella(u"Nominativo"_s)->setFocus();
    Digita(u"x"_s);
    Premi(Qt::Key_F10);
    QCOMPARE(Casella(u"Nominativo"_s)->text(), u"Verdi Anna"_s);
    QVERIFY(Scheda->isVisible());
    Premuto("barScheda_off");
    QCOMPARE(Chiusure, QList<bool>{false});
    QCOMPARE(Righe.EditMode(), 0);
}

void TestFrmScheda::inScritturaISuoiTasti()
{
    Apri(u"edit"_s);
    for (const char* Chiave : {"barScheda_do", "barScheda_undo", "barScheda_off"}) {
        QVERIFY(Controllo<QToolButton>(Scheda, Chiave)->isVisible());
        QVERIFY(Controllo<QToolButton>(Scheda, Chiave)->isEnabled());
    }
    QCOMPARE(Righe.EditMode(), 1);
    Premuto("barScheda_undo");
    Apri(u"new"_s);
    QCOMPARE(Righe.EditMode(), 2);
    Premuto("barScheda_undo");
    QCOMPARE(Righe.EditMode(), 0);
}

void TestFrmScheda::stampaSpenta()
{
    for (const QString& Modo : {u"new"_s, u"edit"_s, u"view"_s}) {
        Apri(Modo);
        auto* Stampa = Controllo<QToolButton>(Scheda, "barScheda_print");
        QVERIFY(Stampa->isVisible() && !Stampa->isEnabled());
        Scheda->barScheda_ButtonClick(u"print"_s);
        QVERIFY(Scheda->isVisible());
        Righe.CancelUpdate();
        delete Scheda;
    }
}

void TestFrmScheda::contatoreBloccato()
{
    Apri(u"edit"_s);
    QVERIFY(Casella(u"ID"_s)->isReadOnly());
    Casella(u"ID"_s)->setFocus();
    Digita(u"9"_s);
    QCOMPARE(Scheda->IndiceModificato(), 0);
    QCOMPARE(Casella(u"ID"_s)->text(), u"1"_s);
    Battere(u"Anni"_s, u"50"_s);
    Premuto("barScheda_do");
    QCOMPARE(NelFile(u"Anni"_s), QVariant(50));
}

/// The row may have been current for long: the card shows what the file holds now.
void TestFrmScheda::letturaDiAdesso()
{
    for (const QString& Modo : {u"view"_s, u"edit"_s}) {
        Righe.FindFirst(u"ID=1"_s);
        QCOMPARE(Righe.Value(u"ID"_s), QVariant(1));
        const QString Altro = NuovaCartella() + u"altro.mdb"_s;  // another program's connection
        std::filesystem::create_hard_link(Db.Percorso().toStdString(), Altro.toStdString());
        OpenDatabase(Altro).Execute(u"UPDATE clienti SET Nominativo=? WHERE ID=1"_s, {u"Da "_s + Modo});
        ApriPresto(Modo);
        QCOMPARE(Casella(u"Nominativo"_s)->text(), u"Da "_s + Modo);
        Righe.CancelUpdate();
        delete Scheda;
    }
}

void TestFrmScheda::nonSiApre_data()
{
    QTest::addColumn<QString>("Modo");
    QTest::addColumn<QString>("Prima");
    QTest::addColumn<bool>("Lettura");
    QTest::addColumn<QString>("Messaggio");
    const QString Sola =
        u"Errore: Impossibile aggiornare: il database o i dati sono di sola lettura (3027)"_s;
    QTest::newRow("nuova di sola lettura") << u"new"_s << QString() << true << Sola;
    QTest::newRow("modifica di sola lettura") << u"edit"_s << QString() << true << Sola;
    for (const QString& Modo : {u"edit"_s, u"view"_s})
        QTest::newRow(qPrintable(Modo + u" eliminata"_s))
            << Modo << u"DELETE FROM clienti WHERE ID=1"_s << false
            << u"Errore: Il record è stato eliminato (3167)"_s;
}

void TestFrmScheda::nonSiApre()
{
    QFETCH(QString, Modo);
    QFETCH(QString, Prima);
    QFETCH(bool, Lettura);
    QFETCH(QString, Messaggio);
    if (Lettura)
        Righe = OpenDatabase(Db.Percorso(), true).OpenRecordset(u"clienti"_s);
    if (!Prima.isEmpty())
        Db.Execute(Prima);
    Voce->Attendi(Messaggio);
    ApriPresto(Modo);
    QVERIFY(!Scheda->isVisible());
    QCOMPARE(Chiusure, QList<bool>{false});
    QCOMPARE(Righe.EditMode(), 0);
    QTRY_VERIFY(!Scheda);
}

void TestFrmScheda::ordineEInvio()
{
    Colonne = {Colonna(u"ID"_s), Colonna(u"Nominativo"_s), Colonna(u"Anni"_s), Colonna(u"Note"_s)};
    Apri(u"edit"_s);
    QCOMPARE(OrdineTab(Casella(u"Nominativo"_s), 5),
             (QStringList{u"txtFieldData_1"_s, u"txtFieldData_2"_s, u"txtFieldData_3"_s, u"barScheda_do"_s,
                          u"barScheda_undo"_s}));
    Casella(u"Nominativo"_s)->setFocus();
    Premi(Qt::Key_Return);
    QCOMPARE(NomeFuoco(), u"txtFieldData_2"_s);
    Premi(Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(NomeFuoco(), u"txtFieldData_3"_s);
    Colonne.removeLast();
    Premuto("barScheda_undo");
    Apri(u"edit"_s);
    Casella(u"Anni"_s)->setFocus();
    Premi(Qt::Key_Return);
    QCOMPARE(NomeFuoco(), u"txtFieldData_1"_s);  // behind the last the first that takes a text
    QVERIFY(Scheda->isVisible());
    Premuto("barScheda_undo");
}

void TestFrmScheda::invioInUnaNota()
{
    Apri(u"edit"_s);
    auto* Note = qobject_cast<QPlainTextEdit*>(Box(u"Note"_s));
    Note->setFocus();
    Note->selectAll();
    Digita(u"uno"_s);
    Premi(Qt::Key_Return);
    Digita(u"due"_s);
    Premi(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(NelFile(u"Note"_s).toString(), u"uno\ndue"_s);
    QCOMPARE(Chiusure, QList<bool>{true});
}

void TestFrmScheda::lettereDellaBarra()
{
    Apri(u"edit"_s);
    for (const char* Nome : {"barScheda_do", "barScheda_undo", "barScheda_off"})
        QVERIFY2(!Controllo<QToolButton>(Scheda, Nome)->shortcut().isEmpty(), Nome);
    const auto* Annulla = Controllo<QToolButton>(Scheda, "barScheda_undo");
    QVERIFY(Annulla->text().contains(u'&'));
    const QKeyCombination Tasto = Annulla->shortcut()[0];
    QTest::keyClick(Scheda->windowHandle(), Tasto.key(), Tasto.keyboardModifiers());
    QTRY_COMPARE(Chiusure.size(), 1);  // the button is seen to go down
}

/// The sign of what has no room is drawn in the colours of the desktop.
void TestFrmScheda::segnoDellaBarra()
{
    const auto* Altri = Apri(u"edit"_s).findChild<QToolButton*>(u"qt_toolbar_ext_button"_s);
    QCOMPARE(Altri->icon().pixmap(16).toImage(), aspetto::Icona(u"annodopo"_s).pixmap(16).toImage());
}

void TestFrmScheda::tastiPerSalvare_data()
{
    QTest::addColumn<int>("Tasto");
    QTest::addColumn<int>("Modificatori");
    QTest::newRow("F10") << int(Qt::Key_F10) << int(Qt::NoModifier);
    QTest::newRow("Ctrl+S") << int(Qt::Key_S) << int(Qt::ControlModifier);
    QTest::newRow("Ctrl+Invio") << int(Qt::Key_Return) << int(Qt::ControlModifier);
}

void TestFrmScheda::tastiPerSalvare()
{
    QFETCH(int, Tasto);
    QFETCH(int, Modificatori);
    Apri(u"edit"_s);
    Battere(u"Anni"_s, u"60"_s);
    Premi(Qt::Key(Tasto), Qt::KeyboardModifiers(Modificatori));
    QCOMPARE(NelFile(u"Anni"_s), QVariant(60));
    QCOMPARE(Chiusure, QList<bool>{true});
}

void TestFrmScheda::paginaSuEGiu()
{
    int Campane = 0;
    Shell Prima;
    Prima.Campanello = [&Campane] { ++Campane; };
    Prima = InstallaShell(Prima);
    Apri(u"view"_s);
    QSignalSpy Spostata(Scheda.data(), &frmScheda::RigaSpostata);
    Premi(Qt::Key_PageDown);
    QCOMPARE(Casella(u"Nominativo"_s)->text(), u"Bianchi"_s);
    QCOMPARE(Scheda->windowTitle(), u"Visualizzazione dati - Bianchi"_s);
    QCOMPARE(Righe.AbsolutePosition(), 1);
    Db.Execute(u"DELETE FROM clienti WHERE ID=3"_s);  // passed over
    Premi(Qt::Key_PageDown);
    QCOMPARE(Righe.AbsolutePosition(), 3);
    QCOMPARE(Casella(u"ID"_s)->text(), u"4"_s);
    QCOMPARE(Scheda->windowTitle(), u"Visualizzazione dati"_s);  // a row without a name
    Premi(Qt::Key_PageDown);
    QCOMPARE(Righe.AbsolutePosition(), 3);
    QCOMPARE(Campane, 1);
    Premi(Qt::Key_PageUp);
    Premi(Qt::Key_PageUp);
    QCOMPARE(Casella(u"ID"_s)->text(), u"1"_s);
    Premi(Qt::Key_PageUp);
    QCOMPARE(Casella(u"ID"_s)->text(), u"1"_s);
    QCOMPARE(Campane, 2);
    QCOMPARE(Spostata.size(), 4);
    InstallaShell(Prima);
}

void TestFrmScheda::paginaConUnPassoSuo()
{
    Apri(u"view"_s);
    Scheda->Sposta = [this](bool Avanti) {
        Righe.ImpostaAbsolutePosition(Avanti ? 2 : 0);
        return true;
    };
    Premi(Qt::Key_PageDown);
    QCOMPARE(Casella(u"Nominativo"_s)->text(), u"Nicolò"_s);
}

/// While writing the keys belong to the memo.
void TestFrmScheda::paginaNelMemo()
{
    Apri(u"edit"_s);
    auto* Note = qobject_cast<QPlainTextEdit*>(Box(u"Note"_s));
    QVERIFY(Note);
    Note->setFocus();
    Note->setPlainText(u"riga\n"_s.repeated(99));
    Premi(Qt::Key_PageDown);
    const int Sotto = Note->textCursor().blockNumber();
    QVERIFY2(Sotto > 0, qPrintable(QString::number(Sotto)));
    Premi(Qt::Key_PageUp);
    QCOMPARE(Note->textCursor().blockNumber(), 0);
    Voce->Attendi(u"Salvare le modifiche alla scheda?"_s, vbNo);
    Premi(Qt::Key_Escape);
}

void TestFrmScheda::paginaFermaInScrittura()
{
    Apri(u"edit"_s);
    Battere(u"Anni"_s, u"60"_s);
    Premi(Qt::Key_PageDown);
    QCOMPARE(Casella(u"ID"_s)->text(), u"1"_s);
    QCOMPARE(Righe.EditMode(), 1);
    Premuto("barScheda_undo");
}

void TestFrmScheda::avvisi()
{
    const QString CodFis = u"Il codice fiscale non torna: controllare le cifre"_s;
    Apri(u"edit"_s);
    QCOMPARE(Avviso(), QString());
    Battere(u"CodFis"_s, u"RSSMRA80A01H501X"_s);
    QCOMPARE(Avviso(), QString());  // not while it is typed
    Premi(Qt::Key_Tab);
    QCOMPARE(Avviso(), CodFis);
    QCOMPARE(Box(u"CodFis"_s)->toolTip(), CodFis);
    QVERIFY(Scheda->isVisible());
    Battere(u"PIva"_s, u"123"_s);
    Premi(Qt::Key_F10);  // no refusal
    QCOMPARE(NelFile(u"CodFis"_s).toString(), u"RSSMRA80A01H501X"_s);
    QCOMPARE(NelFile(u"PIva"_s).toString(), u"123"_s);
    Respiro();
    Apri(u"view"_s);
    QCOMPARE(Avviso(), CodFis);
    QVERIFY(!Controllo<QLabel>(Scheda, "lblAvviso")->text().isEmpty());
    QVERIFY(Box(u"PIva"_s)->toolTip().contains(u"partita IVA"_s));
}

void TestFrmScheda::senzaNominativo()
{
    const QString Segno = u"senza nominativo: non si potrà scegliere"_s;
    Apri(u"edit"_s);
    QCOMPARE(Avviso(), QString());
    Battere(u"Nominativo"_s, {});
    Premi(Qt::Key_Tab);
    QCOMPARE(Avviso(), Segno);
    // What is put right is not told any longer, while it is typed.
    Battere(u"Nominativo"_s, u"Ro"_s);
    QCOMPARE(Avviso(), QString());
    Battere(u"Nominativo"_s, {});
    Premi(Qt::Key_Tab);
    QCOMPARE(Avviso(), Segno);
    Premuto("barScheda_do");  // saved as it is
    QCOMPARE(NelFile(u"Nominativo"_s).toString(), QString());
    Respiro();
    Apri(u"view"_s, 4);
    QCOMPARE(Avviso(), Segno);
    delete Scheda;
    // A table that has no such column bears no mark.
    Colonne = {Colonna(u"Anni"_s)};
    Apri(u"view"_s, 4);
    QCOMPARE(Avviso(), QString());
}

void TestFrmScheda::finestraDelBrowserFerma()
{
    Apri(u"edit"_s);
    QCOMPARE(Scheda->windowModality(), Qt::WindowModal);
    QCOMPARE(Scheda->parentWidget(), Browser.get());
    QVERIFY(QApplication::activeModalWidget() == Scheda);
    Premuto("barScheda_undo");
}

/// A repaint of the grid must not show what is being typed on the card.
void TestFrmScheda::laGrigliaMostraIlFile()
{
    Griglia Lista;
    Lista.ImpostaColonne(Colonne);
    Lista.Lega(Righe);
    Lista.show();
    const auto Cella = [&] { return Lista.Vista()->model()->index(0, 1).data().toString(); };
    Apri(u"edit"_s);
    Battere(u"Nominativo"_s, u"Altro"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(Righe.Value(u"Nominativo"_s).toString(), u"Altro"_s);
    Lista.Vista()->viewport()->repaint();
    QCOMPARE(Cella(), u"Verdi Anna"_s);
    QCOMPARE(Righe.EditMode(), 1);  // and painting leaves the edit open
    Premuto("barScheda_do");
    Lista.Rilega();
    QCOMPARE(Cella(), u"Altro"_s);
}

/// Eighteen labels, each with a letter of its own or none.
void TestFrmScheda::lettereDiverse()
{
    for (int i = 0; i < 5; ++i)
        Colonne += Colonna(u"Nominativo"_s, u"Nominativo %1"_s.arg(i));
    Apri(u"view"_s);
    QStringList Lettere;
    for (const QLabel* Etichetta : Scheda->findChildren<QLabel*>()) {
        const QString Sequenza = QKeySequence::mnemonic(Etichetta->text()).toString();
        if (!Sequenza.isEmpty())
            Lettere += Sequenza;
    }
    QVERIFY(Lettere.size() >= 15);
    QCOMPARE(Lettere.removeDuplicates(), 0);
}

void TestFrmScheda::ogniControlloHaUnNome()
{
    Apri(u"edit"_s);
    QCOMPARE(SenzaNome(Scheda), QStringList());
    QCOMPARE(Box(u"CodFis"_s)->accessibleName(), u"CodFis"_s);
    Premuto("barScheda_undo");
}

#include "TestFrmScheda.moc"
