// The card of a row: real boxes, keys, buttons, rows in a file.
#include "addressbook/archivio_schede.h"
#include "addressbook/windows/frmScheda.h"
#include "addressbook/windows/lineamodifiche.h"
#include "platform/kit/aspetto.h"
#include "platform/system/shell.h"
#include "supporto/guasti.h"
#include "supporto/mani.h"
#include "supporto/registratore.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

class TestFrmScheda : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

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
    void cambiataDaUnAltroProgramma();
    void letturaDiAdesso();
    void nonSiApre_data();
    void nonSiApre();
    void ordineEInvio();
    void invioInUnaNota();
    void tastiPerSalvare_data();
    void tastiPerSalvare();
    void paginaSuEGiu();
    void paginaConUnPassoSuo();
    void paginaFermaInScrittura();
    void avvisi();
    void senzaNominativo();
    void contropSegue();
    void finestraDelBrowserFerma();
    void laGrigliaMostraIlFile();
    void lettereDiverse();
    void ogniControlloHaUnNome();
    void linea_data();
    void linea();
    void lineaChiede_data();
    void lineaChiede();
    void lineaSenzaModifiche();
    void lineaNonSalva();

private:
    frmScheda& Apri(const QString& Modo, int ID = 1);
    frmScheda& ApriPresto(const QString& Modo);
    static ColonnaGriglia Colonna(const QString& Nome, const QString& Titolo = {});
    QLineEdit* Casella(const QString& Nome) const;
    QWidget* Box(const QString& Nome) const;
    void Battere(const QString& Nome, const QString& Testo) const;
    void Premuto(const char* Chiave) const { Clic(Controllo<QToolButton>(Scheda, Chiave)); }
    QVariant NelFile(const QString& Colonna, int ID = 1) const;
    QString Avviso() const { return Controllo<QLabel>(Scheda, "lblAvviso")->text(); }

    Database Db;
    Recordset Righe;
    QList<ColonnaGriglia> Colonne;
    std::unique_ptr<QWidget> Browser;
    LineaModifiche* Linea = nullptr;
    QPointer<frmScheda> Scheda;
    std::unique_ptr<Registratore> Voce;
    QList<bool> Chiusure;
};
PROVA(TestFrmScheda);

void TestFrmScheda::init()
{
    Voce = std::make_unique<Registratore>();
    Db = ArchivioSchede();
    Righe = Db.OpenRecordset(u"clienti"_s);
    Colonne.clear();
    for (const Campo& Descritto : Righe.Campi())
        Colonne += Colonna(Descritto.Name);
    Browser = std::make_unique<QWidget>();
    Browser->resize(400, 300);
    auto* Disposizione = new QVBoxLayout(Browser.get());
    Linea = new LineaModifiche;
    Disposizione->addWidget(Linea);
    Disposizione->addStretch();
    QVERIFY(MostraAttiva(*Browser));
    Chiusure.clear();
}

void TestFrmScheda::cleanup()
{
    delete Scheda;
    Browser.reset();
    Righe.Close();
    Db = {};
    Voce.reset();
}

ColonnaGriglia TestFrmScheda::Colonna(const QString& Nome, const QString& Titolo)
{
    ColonnaGriglia Nuova;
    Nuova.NomeCampo = Nome;
    Nuova.Titolo = Titolo.isEmpty() ? Nome : Titolo;
    return Nuova;
}

/// On view, but perhaps not yet with the focus.
frmScheda& TestFrmScheda::ApriPresto(const QString& Modo)
{
    Scheda = new frmScheda(Browser.get());
    Scheda->ImpostaModalità(Modo);
    Scheda->Consegna(Righe, Colonne);
    Linea->Segui(Righe);
    connect(Scheda.data(), &frmScheda::Chiusa, this, [this](bool Salvata) {
        Chiusure += Salvata;
        Linea->Aggiorna();
    });
    (void)Scheda->Carica();
    return *Scheda;
}

frmScheda& TestFrmScheda::Apri(const QString& Modo, int ID)
{
    Righe.FindFirst(u"ID=%1"_s.arg(ID));
    frmScheda& Nuova = ApriPresto(Modo);
    QApplication::setActiveWindow(&Nuova);
    if (!QTest::qWaitForWindowActive(&Nuova))
        QTest::qFail("not active", __FILE__, __LINE__);
    return Nuova;
}

QWidget* TestFrmScheda::Box(const QString& Nome) const
{
    for (QWidget* Figlio : Scheda->findChildren<QWidget*>())
        if (Figlio->property("Tag").toString() == Nome)
            return Figlio;
    QTest::qFail(qPrintable(Nome), __FILE__, __LINE__);
    return nullptr;
}

QLineEdit* TestFrmScheda::Casella(const QString& Nome) const
{
    return qobject_cast<QLineEdit*>(Box(Nome));
}

/// Types over what a box holds, and stays in it.
void TestFrmScheda::Battere(const QString& Nome, const QString& Testo) const
{
    QLineEdit* Dove = Casella(Nome);
    Dove->setFocus();
    Dove->selectAll();
    if (Testo.isEmpty())
        Premi(Qt::Key_Delete);
    else
        Digita(Testo);
}

QVariant TestFrmScheda::NelFile(const QString& Quale, int ID) const
{
    return Db.OpenRecordset(u"SELECT * FROM clienti WHERE ID=?"_s, {ID}).Value(Quale);
}

// ---- what the card is made of -------------------------------------------------------------------

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
    QVERIFY(Box(u"Note"_s)->height() >= 3 * Box(u"Note"_s)->fontMetrics().lineSpacing());
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

// ---- writing ------------------------------------------------------------------------------------

void TestFrmScheda::ogniCasellaSiScrive_data()
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

void TestFrmScheda::ogniCasellaSiScrive()
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

void TestFrmScheda::riempireNonECambiare()
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

void TestFrmScheda::indiceModificato()
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

void TestFrmScheda::lasciandoSiScrive()
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

void TestFrmScheda::valoreRifiutato()
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
void TestFrmScheda::rifiutatoAncheSalvando()
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

void TestFrmScheda::salvaScriveQuelloInSospeso()
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

void TestFrmScheda::nuovaRiga()
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

void TestFrmScheda::nuovaInUnOrdine()
{
    Righe = Db.OpenRecordset(u"SELECT * FROM clienti ORDER BY Nominativo DESC"_s);
    ApriPresto(u"new"_s);
    Battere(u"Nominativo"_s, u"Mario"_s);
    Premuto("barScheda_do");
    QCOMPARE(Righe.AbsolutePosition(), 4);
    QCOMPARE(Righe.Value(u"Nominativo"_s).toString(), u"Mario"_s);
}

void TestFrmScheda::annulla()
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

// ---- leaving ------------------------------------------------------------------------------------

void TestFrmScheda::chiudiLasciaAperta_data()
{
    QTest::addColumn<QString>("Modo");
    QTest::addColumn<int>("Aperta");
    QTest::newRow("modifica") << u"edit"_s << 1;
    QTest::newRow("nuova") << u"new"_s << 2;
}

void TestFrmScheda::chiudiLasciaAperta()
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

void TestFrmScheda::chiudiConUnRifiuto()
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

void TestFrmScheda::esc_data()
{
    QTest::addColumn<bool>("ConLaCroce");
    QTest::addColumn<int>("Risposta");
    for (const bool Croce : {false, true})
        for (const auto& [Nome, Risposta] : {std::pair{"si", vbYes}, {"no", vbNo}, {"annulla", vbCancel}})
            QTest::addRow("%s %s", Croce ? "croce" : "esc", Nome) << Croce << Risposta;
}

void TestFrmScheda::esc()
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

void TestFrmScheda::escSenzaModifiche()
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

void TestFrmScheda::congeda_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<bool>("Via");
    QTest::newRow("si") << vbYes << true;
    QTest::newRow("no") << vbNo << true;
    QTest::newRow("annulla") << vbCancel << false;
}

/// The browser closes with a card open: one question, and no edit that would be asked about again.
void TestFrmScheda::congeda()
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

void TestFrmScheda::aggiornamentoFallito_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Messaggio");
    QTest::newRow("riga eliminata") << u"DELETE FROM clienti WHERE ID=1"_s
                                    << u"Errore: Il record è stato eliminato (3167)"_s;
    QTest::newRow("valore doppio")
        << u"CREATE UNIQUE INDEX Solo ON clienti (Nominativo COLLATE NOCASE)"_s
        << u"Errore: La modifica creerebbe un valore doppio in una chiave univoca (3022)"_s;
}

void TestFrmScheda::aggiornamentoFallito()
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

void TestFrmScheda::cambiataDaUnAltroProgramma()
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

/// The row may have been current for long: the card shows what the file holds now.
void TestFrmScheda::letturaDiAdesso()
{
    for (const QString& Modo : {u"view"_s, u"edit"_s}) {
        Righe.FindFirst(u"ID=1"_s);
        QCOMPARE(Righe.Value(u"ID"_s), QVariant(1));
        const QString File = Db.Percorso();
        const QString Copia = NuovaCartella() + u"altro.mdb"_s;
        QVERIFY(QFile::link(File, Copia));  // another program's connection
        OpenDatabase(Copia).Execute(u"UPDATE clienti SET Nominativo=? WHERE ID=1"_s, {u"Da "_s + Modo});
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

// ---- keys ---------------------------------------------------------------------------------------

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

void TestFrmScheda::tastiPerSalvare_data()
{
    QTest::addColumn<int>("Tasto");
    QTest::addColumn<int>("Modificatori");
    QTest::newRow("F10") << int(Qt::Key_F10) << int(Qt::NoModifier);
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

void TestFrmScheda::paginaFermaInScrittura()
{
    Apri(u"edit"_s);
    Battere(u"Anni"_s, u"60"_s);
    Premi(Qt::Key_PageDown);
    QCOMPARE(Casella(u"ID"_s)->text(), u"1"_s);
    QCOMPARE(Righe.EditMode(), 1);
    Premuto("barScheda_undo");
}

// ---- hints --------------------------------------------------------------------------------------

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

void TestFrmScheda::contropSegue()
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

// ---- beside others ------------------------------------------------------------------------------

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

// ---- the line of unsaved changes ----------------------------------------------------------------

void TestFrmScheda::linea_data()
{
    QTest::addColumn<bool>("Salva");
    QTest::newRow("salva") << true;
    QTest::newRow("annulla") << false;
}

void TestFrmScheda::linea()
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

void TestFrmScheda::lineaChiede_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<bool>("Consente");
    QTest::newRow("si") << vbYes << true;
    QTest::newRow("no") << vbNo << true;
    QTest::newRow("annulla") << vbCancel << false;
}

void TestFrmScheda::lineaChiede()
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

void TestFrmScheda::lineaSenzaModifiche()
{
    QVERIFY(Linea->Consenti());  // nothing was ever open
    Apri(u"edit"_s);
    Premuto("barScheda_off");
    QVERIFY(Linea->isVisible());
    QVERIFY(Linea->Consenti());
    QVERIFY(!Linea->isVisible());
    QCOMPARE(Righe.EditMode(), 0);
}

void TestFrmScheda::lineaNonSalva()
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

#include "TestFrmScheda.moc"
