// A note that is saved, closed and opened again shows the document that was printed, and leaves its export
// alone.
#include "salvataggi.h"

#include "platform/preview/vistastampa.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"

#include <QPlainTextEdit>

#include <functional>

using namespace Qt::StringLiterals;
using namespace salvataggi;

using Mani = std::function<void(const frmParcelle*)>;

class TestDocumentoRiaperto : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void loStessoDocumento_data();
    void loStessoDocumento();

private:
    [[nodiscard]] QString Pagine() const { return Controllo<VistaStampa>(F, "vp")->Pagine().Testo(); }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};
PROVA(TestDocumentoRiaperto);

void TestDocumentoRiaperto::init()
{
    T = std::make_unique<Tavolo>();
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 21), QTime(10, 0)); });
    sessione::StudioNome = u"Avv. Laura Conti"_s;
    sessione::Iban = u"IT60X0542811101000000123456"_s;
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Rossi Mario"_s);
    RigaOnorario(F->Nota, u"Studio"_s, 1200.0);
    RigaAcconto(F->Nota, u"E"_s, 100.0, 0.0, 0.0);
    ClicScheda(F, SchedaDiStampa);
}

void TestDocumentoRiaperto::cleanup()
{
    InstallaOrologio({});
    T.reset();
}

void TestDocumentoRiaperto::loStessoDocumento_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<Mani>("Fai");
    QTest::addColumn<QString>("SiLegge");

    QTest::newRow("fattura in regime agevolato")
        << int(StampaFatturaSintetica)
        << Mani([](const frmParcelle* Di) { Clic(Controllo(Di, "chkRegSempl")); }) << u"art. 27"_s;
    QTest::newRow("fattura con IVA differita")
        << int(StampaFatturaAnalitica)
        << Mani([](const frmParcelle* Di) { Clic(Controllo(Di, "chkIvaDiff")); }) << u"i.v.a. per cassa"_s;
    QTest::newRow("prenotula con IBAN, numero e data")
        << int(StampaPrenotula) << Mani([](const frmParcelle* Di) {
               Clic(Controllo(Di, "chkIBAN"));
               Scrivi(Controllo<QLineEdit>(Di, "txtDatiPar_0"), u"7/bis"_s);
               Scrivi(Controllo<QLineEdit>(Di, "txtDatiPar_1"), u"20/11/2026"_s);
               Premi(Qt::Key_Tab);
           })
        << u"7/bis"_s;
    QTest::newRow("contratto con una società") << int(StampaContratto) << Mani([](const frmParcelle* Di) {
        Clic(Controllo(Di, "optContrTipo_1"));
        Scrivi(Controllo<QLineEdit>(Di, "txtContrRappr"), u"Verdi Anna"_s);
        Premi(Qt::Key_Tab);
    }) << u"Verdi Anna"_s;
    QTest::newRow("cliente scritto per la stampa") << int(StampaPrenotula) << Mani([](const frmParcelle* Di) {
        auto* Blocco = Controllo<QPlainTextEdit>(Di, "txtDatiStaCli");
        Blocco->setFocus();
        Blocco->selectAll();
        Digita(u"Spett.le Rossi Mario"_s);
        Premi(Qt::Key_Tab);
    }) << u"Spett.le"_s;
}

void TestDocumentoRiaperto::loStessoDocumento()
{
    QFETCH(int, Tipo);
    QFETCH(Mani, Fai);
    QFETCH(QString, SiLegge);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), Tipo);
    Fai(F);
    Respiro();
    const QString File = SalvaCome(*T, u"nota.mdb"_s);
    const QString Stampato = Pagine();
    QVERIFY2(Stampato.contains(SiLegge), qPrintable(Stampato));

    QFile Documento(sessione::UserFolder + Barra(u"doc"_s) + u"nota.doc"_s);
    const QByteArray Prima = LeggiFile(Documento.fileName());
    const QDateTime Allora(QDate(2020, 1, 2), QTime(3, 4, 5));
    QVERIFY(Documento.open(QIODevice::ReadWrite));
    QVERIFY(Documento.setFileTime(Allora, QFileDevice::FileModificationTime));
    Documento.close();

    QVERIFY(F->close());
    F = T->Apri(File);
    QVERIFY(F);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(Pagine(), Stampato);
    QVERIFY(!F->Nota.Modificata);
    QCOMPARE(LeggiFile(Documento.fileName()), Prima);
    QCOMPARE(QFileInfo(Documento.fileName()).lastModified(), Allora);
}

#include "TestDocumentoRiaperto.moc"
