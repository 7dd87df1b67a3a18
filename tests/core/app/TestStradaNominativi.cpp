// The address book from the desktop: a name found, found again, sorted, filtered; and what stands on the disk
// while it is written, and behind a program that was killed over an open card.
#include "scena.h"

#include "addressbook/windows/frmRicerche.h"
#include "addressbook/windows/frmRubrica.h"
#include "addressbook/windows/frmScheda.h"
#include "addressbook/windows/rubriche.h"
#include "core/app/apritori.h"
#include "core/app/avvio.h"
#include "core/comandi.h"
#include "platform/database/connessione.h"
#include "platform/grid/griglia.h"
#include "platform/system/file.h"
#include "supporto/altroprogramma.h"
#include "supporto/guasti.h"

#include <QComboBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>

#include <memory>

class TestStradaNominativi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void lAltro();

    void siTrovaSiOrdinaSiFiltra();
    void nullaAccantoAllArchivio();
    void uccisoConUnaSchedaAperta();

private:
    /// The book of the desktop, in front.
    [[nodiscard]] static frmRubrica* Libro();
    [[nodiscard]] static frmScheda* Scheda(const frmRubrica* Rubrica);
    /// Types the name into the card that is open.
    static void Compila(const frmRubrica* Rubrica, const QString& Nome);
    [[nodiscard]] static QString Corrente(const frmRubrica* Rubrica)
    {
        return Rubrica->RigheMostrate().Value(u"Nominativo"_s).toString();
    }
    [[nodiscard]] static int ColonnaDelNome(const Griglia* Lista);
    [[nodiscard]] static QStringList Nomi(const frmRubrica* Rubrica);

    std::unique_ptr<Scena> S;
    std::unique_ptr<Registratore> Box;
    QString Archivio;
};
PROVA(TestStradaNominativi);

void TestStradaNominativi::init()
{
    S = std::make_unique<Scena>();
    Box = std::make_unique<Registratore>();
    if (!AltroProgramma::Parte().isEmpty()) {
        Archivio = AltroProgramma::Cartella() + u"DatiStudio.mdb"_s;
        sessione::ArchivioCliCon = Archivio;
        RiempiApritori();
        return;
    }
    Archivio = Scena::AllestisciStudio();
    OpenDatabase(Archivio).Execute(
        u"INSERT INTO clienti (Nominativo, Citta) VALUES ('Verdi Anna','Pisa'), "
        "('Rossi Mario','Lucca'), ('Bruni Carla','Pisa'), ('Rossi Ada','Forlì')"_s);
    RiempiApritori();
    Main({});
}

void TestStradaNominativi::cleanup()
{
    Box->Tollera();
    delete RubricaDi(0);
    Box.reset();
    S.reset();
}

/// Not a test of its own: a user who has saved one card and is killed over the next.
void TestStradaNominativi::lAltro()
{
    if (AltroProgramma::Parte().isEmpty())
        return;
    const frmRubrica* Rubrica = Libro();
    QVERIFY(Rubrica);
    Premi(Qt::Key_F2);
    Compila(Rubrica, u"Verdi Bruno"_s);
    Premi(Qt::Key_F10);
    QTRY_VERIFY(!Scheda(Rubrica));
    QVERIFY(Libro());
    Premi(Qt::Key_Down);
    Premi(Qt::Key_F2);
    Compila(Rubrica, u"Rossi non salvato"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(Rubrica->RigheMostrate().EditMode(), 1);
    AltroProgramma::Segnala(AltroProgramma::Cartella() + u"aperta"_s);
    (void)AltroProgramma::Aspetta(AltroProgramma::Cartella() + u"mai"_s);
}

frmRubrica* TestStradaNominativi::Libro()
{
    if (!RubricaDi(0))
        EseguiComando(u"clienti"_s, 0, {});
    frmRubrica* Rubrica = RubricaDi(0);
    return Rubrica && MostraAttiva(*Rubrica) ? Rubrica : nullptr;
}

frmScheda* TestStradaNominativi::Scheda(const frmRubrica* Rubrica)
{
    for (auto* Trovata : Rubrica->findChildren<frmScheda*>())
        if (Trovata->isVisible())  // one that was closed goes with the next events
            return Trovata;
    return nullptr;
}

void TestStradaNominativi::Compila(const frmRubrica* Rubrica, const QString& Nome)
{
    frmScheda* Aperta = Scheda(Rubrica);
    QVERIFY(Aperta && MostraAttiva(*Aperta));
    for (auto* Trovato : Aperta->findChildren<QLineEdit*>())
        if (Trovato->property("Tag").toString() == u"Nominativo")
            return Scrivi(Trovato, Nome);
    QFAIL("Nominativo");
}

int TestStradaNominativi::ColonnaDelNome(const Griglia* Lista)
{
    const QAbstractItemModel* Modello = Lista->Vista()->model();
    int Colonna = 0;
    while (Colonna < Modello->columnCount() &&
           Modello->headerData(Colonna, Qt::Horizontal).toString() != u"Nominativo")
        ++Colonna;
    return Colonna;
}

QStringList TestStradaNominativi::Nomi(const frmRubrica* Rubrica)
{
    const auto* Lista = Controllo<Griglia>(Rubrica, "tdbRubrica");
    const QAbstractItemModel* Modello = Lista->Vista()->model();
    const int Colonna = ColonnaDelNome(Lista);
    QStringList Trovati;
    for (int Riga = 0; Riga < Lista->Righe(); ++Riga)
        Trovati += Modello->index(Riga, Colonna).data().toString();
    return Trovati;
}

/// Ctrl+F, the next one by F3, a click on a heading, letters typed on the list, Enter on the one that is
/// left.
void TestStradaNominativi::siTrovaSiOrdinaSiFiltra()
{
    frmRubrica* Rubrica = Libro();
    QVERIFY(Rubrica);
    auto* Lista = Controllo<Griglia>(Rubrica, "tdbRubrica");
    QCOMPARE(Corrente(Rubrica), u"Verdi Anna"_s);
    Premi(Qt::Key_F, Qt::ControlModifier);
    auto* Cerca = Rubrica->findChild<frmRicerche*>();
    QVERIFY(Cerca && MostraAttiva(*Cerca));
    auto* Confronto = Controllo<QComboBox>(Cerca, "cmbOper");
    Scegli(Confronto, Confronto->findText(u"Contiene"_s, Qt::MatchFixedString));
    Scrivi(Controllo<QLineEdit>(Cerca, "txtValore"), u"ross"_s);
    Clic(Controllo(Cerca, "cmdFind_0"));
    QCOMPARE(Corrente(Rubrica), u"Rossi Mario"_s);
    QVERIFY(MostraAttiva(*Cerca));
    Premi(Qt::Key_F3);
    QCOMPARE(Corrente(Rubrica), u"Rossi Ada"_s);
    Premi(Qt::Key_Escape);
    QVERIFY(!Cerca->isVisible());
    QVERIFY(Libro());
    Lista->setFocus();
    Premi(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Corrente(Rubrica), u"Rossi Mario"_s);

    QHeaderView* Testata = Lista->Vista()->horizontalHeader();
    const int Colonna = ColonnaDelNome(Lista);
    const QPoint Titolo(Testata->sectionViewportPosition(Colonna) + 20, Testata->height() / 2);
    QTest::mouseClick(Testata->viewport(), Qt::LeftButton, Qt::NoModifier, Titolo);
    QCOMPARE(Nomi(Rubrica),
             (QStringList{u"Bruni Carla"_s, u"Rossi Ada"_s, u"Rossi Mario"_s, u"Verdi Anna"_s}));
    QCOMPARE(Corrente(Rubrica), u"Rossi Mario"_s);

    Lista->setFocus();
    Digita(u"pisa"_s);
    QTRY_COMPARE(Nomi(Rubrica), (QStringList{u"Bruni Carla"_s, u"Verdi Anna"_s}));
    QCOMPARE(Controllo<QLabel>(Rubrica, "datNom")->text(), u"2 di 4"_s);
    Premi(Qt::Key_Return);
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Return);
    QVERIFY(Scheda(Rubrica));
    QCOMPARE(Scheda(Rubrica)->Modalità(), u"view"_s);
    QCOMPARE(Corrente(Rubrica), u"Verdi Anna"_s);
}

/// The archive may lie on a share, where a write-ahead log loses data: none is ever beside it, nor anything
/// else between two writes.
void TestStradaNominativi::nullaAccantoAllArchivio()
{
    const QString Cartella = QFileInfo(Archivio).path();
    const QStringList Solo{QFileInfo(Archivio).fileName()};
    const frmRubrica* Rubrica = Libro();
    QVERIFY(Rubrica);
    int Viste = 0;
    const auto DaSolo = [&] {
        QCOMPARE(ContenutoDi(Cartella), Solo);
        // The journal's kind, as the file's own header says it: 2 is a write-ahead log.
        QFile File(Archivio);
        QVERIFY(File.open(QIODevice::ReadOnly));
        const QByteArray Testata = File.read(20);
        QCOMPARE(int(Testata.at(18)), 1);
        QCOMPARE(int(Testata.at(19)), 1);
        ++Viste;
    };
    const auto Prima = Aperture.NominativoCambiato;
    Aperture.NominativoCambiato = [&](const QString& Tabella, int ID) {
        DaSolo();
        if (Prima)
            Prima(Tabella, ID);
    };
    for (const Qt::Key Tasto : {Qt::Key_F2, Qt::Key_Insert}) {
        Premi(Tasto);
        Compila(Rubrica, u"Neri Ugo"_s);
        DaSolo();
        Premi(Qt::Key_F10);
        QTRY_VERIFY(!Scheda(Rubrica));
        DaSolo();
        QVERIFY(Libro());
    }
    Box->Attendi(u"Confermi la cancellazione del nominativo selezionato?"_s, vbYes, u"Domanda:"_s);
    Premi(Qt::Key_Delete);
    DaSolo();
    QCOMPARE(Viste, 7);
    QCOMPARE(Rubrica->RigheMostrate().RecordCount(), 4);
}

void TestStradaNominativi::uccisoConUnaSchedaAperta()
{
    const QString Cartella = QFileInfo(Archivio).path() + u'/';
    AltroProgramma Altro(u"TestStradaNominativi"_s, u"scheda"_s, Cartella);
    QVERIFY(AltroProgramma::Aspetta(Cartella + u"aperta"_s));
    Altro.Uccidi();
    QVERIFY(QFile::remove(Cartella + u"aperta"_s));
    QCOMPARE(ContenutoDi(Cartella), QStringList{QFileInfo(Archivio).fileName()});
    {
        const Connessione Controllo(Archivio, Connessione::Modo::SolaLettura);
        Istruzione Esito(Controllo, u"PRAGMA integrity_check"_s);
        QVERIFY(Esito.Avanza());
        QCOMPARE(Esito.Testo(0), u"ok"_s);
    }
    // What was saved is there, what was typed is not, and the archive takes the next write.
    const frmRubrica* Rubrica = Libro();
    QVERIFY(Rubrica);
    const QStringList Salvati{u"Verdi Bruno"_s, u"Rossi Mario"_s, u"Bruni Carla"_s, u"Rossi Ada"_s};
    QCOMPARE(Nomi(Rubrica), Salvati);
    Premi(Qt::Key_Insert);
    Compila(Rubrica, u"Neri Ugo"_s);
    Premi(Qt::Key_F10);
    QTRY_VERIFY(!Scheda(Rubrica));
    QCOMPARE(Nomi(Rubrica), Salvati + QStringList{u"Neri Ugo"_s});
}

#include "TestStradaNominativi.moc"
