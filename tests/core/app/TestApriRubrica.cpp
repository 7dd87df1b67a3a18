// The command of the address book: what it opens, and what the end of the program asks of it.
#include "scena.h"

#include "addressbook/windows/frmRubrica.h"
#include "addressbook/windows/frmScheda.h"
#include "addressbook/windows/rubriche.h"
#include "core/aperture.h"
#include "core/app/apritori.h"
#include "core/comandi.h"
#include "supporto/mani.h"

#include <QLineEdit>

#include <memory>

class TestApriRubrica : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void iClientiSenzaSelezione();
    void unaSola();
    void ilComandoPuoAgire();
    void laFineDelProgrammaChiede();

private:
    std::unique_ptr<Scena> S;
};
PROVA(TestApriRubrica);

void TestApriRubrica::init()
{
    S = std::make_unique<Scena>();
    sessione::ArchivioCliCon = NuovaCartella() + u"DatiStudio.mdb"_s;
    QVERIFY(QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, sessione::ArchivioCliCon));
    QFile::setPermissions(sessione::ArchivioCliCon, QFile::ReadOwner | QFile::WriteOwner);
    OpenDatabase(sessione::ArchivioCliCon).Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Rossi')"_s);
    RiempiApritori();
}

void TestApriRubrica::cleanup()
{
    delete RubricaDi(0);
    S.reset();
    Aperture = {};
}

void TestApriRubrica::iClientiSenzaSelezione()
{
    EseguiComando(u"clienti"_s, 0, {});
    const frmRubrica* Rubrica = RubricaDi(0);
    QVERIFY(Rubrica);
    const RichiestaRubrica Attesa{.DataSource = sessione::ArchivioCliCon,
                                  .RecordSource = u"clienti"_s,
                                  .Modifiche = true,
                                  .Selezione = false,
                                  .Parent = u"cli"_s,
                                  .MenuStart = {},
                                  .KeyStart = {}};
    QVERIFY(Rubrica->Chiesta() == Attesa);
    QCOMPARE(Rubrica->RigheMostrate().RecordCount(), 1);
    QCOMPARE(Rubrica->windowTitle(), u"Archivio: clienti"_s);
}

void TestApriRubrica::unaSola()
{
    EseguiComando(u"clienti"_s, 0, {});
    const frmRubrica* Prima = RubricaDi(0);
    Clic(Controllo(Prima, "optArchivio_1"));
    QCOMPARE(Prima->windowTitle(), u"Archivio: controparti"_s);
    EseguiComando(u"clienti"_s, 0, {});
    QCOMPARE(RubricaDi(0), Prima);
    QCOMPARE(Prima->windowTitle(), u"Archivio: clienti"_s);
}

void TestApriRubrica::ilComandoPuoAgire()
{
    QVERIFY(Aperture.Ha(u"clienti"));
    QCOMPARE(Impedimento(u"clienti"), QString());
}

/// A card that is not saved keeps the desktop, and with it the program.
void TestApriRubrica::laFineDelProgrammaChiede()
{
    Registratore Box;
    EseguiComando(u"clienti"_s, 0, {});
    frmRubrica* Rubrica = RubricaDi(0);
    QVERIFY(Rubrica);
    Rubrica->Comando(u"edit"_s);
    auto* Scheda = Rubrica->findChild<frmScheda*>();
    QVERIFY(Scheda);
    QApplication::setActiveWindow(Scheda);
    Scrivi(Controllo<QLineEdit>(Scheda, "txtFieldData_1"), u"Verdi"_s);
    const QString Domanda = u"Salvare le modifiche alla scheda?"_s;
    Box.Attendi(Domanda, vbCancel);
    QVERIFY(!Aperture.ChiudiRubriche());
    QCOMPARE(RubricaDi(0), Rubrica);
    Box.Attendi(Domanda, vbYes);
    QVERIFY(Aperture.ChiudiRubriche());
    QVERIFY(!RubricaDi(0));
    const Recordset Righe = OpenDatabase(sessione::ArchivioCliCon).OpenRecordset(u"clienti"_s);
    QCOMPARE(Righe.Value(u"Nominativo"_s).toString(), u"Verdi"_s);
}

#include "TestApriRubrica.moc"
