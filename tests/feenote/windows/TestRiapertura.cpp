// A note reopened composes what it printed: looking at its document changes no byte of the exported file.
#include "supporto/prova.h"

#include "feenote/modTipiDocumento.h"
#include "platform/system/file.h"
#include "salvataggi.h"

#include <QDateTime>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

class TestRiapertura : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ilDocumentoNonCambia_data();
    void ilDocumentoNonCambia();
    void laControparteToltaDallaStampaNonTorna();
};
PROVA(TestRiapertura);

namespace {

const QDateTime Allora(QDate(2020, 5, 4), QTime(10, 30));

/// Writes into every box of the print data that the document shows, and ticks what it offers.
int Riempi(const frmParcelle* Finestra)
{
    int Scritte = 0;
    const auto* Colonna = Controllo(Finestra, "datiStampa");
    for (const char* Nome : {"optContrTipo_1", "chkIBAN", "chkRegSempl", "chkFattAcc"})
        if (auto* Segno = Controllo<QAbstractButton>(Finestra, Nome); Segno->isVisible()) {
            Segno->click();
            Respiro();
            ++Scritte;
        }
    for (QLineEdit* Box : Colonna->findChildren<QLineEdit*>())
        if (Box->isVisible()) {
            // The invoice's date has a column of dates: what is none is not kept.
            const bool DataFattura = Box->objectName() == u"txtDatiPar_%1"_s.arg(int(DatoDataFatt));
            Scrivi(Box, DataFattura ? u"05/03/2024"_s : u"x"_s + QString::number(Scritte));
            ++Scritte;
            Premi(Qt::Key_Tab);
        }
    for (QPlainTextEdit* Box : Colonna->findChildren<QPlainTextEdit*>())
        if (Box->isVisible()) {
            Box->setFocus();
            Box->selectAll();
            Digita(u"riga "_s + QString::number(++Scritte));
            Box->insertPlainText(u"\naltra riga"_s);
            Controllo(Finestra, "cmbTipoStampa")->setFocus();
        }
    return Scritte;
}

}  // namespace

void TestRiapertura::ilDocumentoNonCambia_data()
{
    QTest::addColumn<int>("Tipo");
    for (int Tipo = 0; ETipoStampa(Tipo); ++Tipo)
        QTest::newRow(qPrintable(TipoDi(Tipo).Nome.toString())) << Tipo;
}

void TestRiapertura::ilDocumentoNonCambia()
{
    QFETCH(int, Tipo);
    Tavolo T;
    sessione::StudioNome = u"Avv. Laura Conti"_s;
    sessione::Iban = u"IT60X0542811101000000123456"_s;
    frmParcelle* F = Tavolo::Apri();
    QVERIFY(F);
    CompilaCivile(F);
    salvataggi::Tocca(F);
    Scrivi(Controllo<QLineEdit>(F, "txtControp"), u"Bianchi Srl"_s);
    ClicScheda(F, SchedaDiStampa);
    // Another form of the client block first, with words of its own.
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"),
           Tipo == StampaContratto ? StampaPrenotula : StampaContratto);
    QVERIFY(Riempi(F) >= 3);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), Tipo);
    QVERIFY(Riempi(F) >= 2);
    const QString File = salvataggi::SalvaCome(T, u"nota.mdb"_s);
    const QByteArray Stampato = LeggiFile(FileDocumento(1));
    QFile Esportato(FileDocumento(1));
    QVERIFY(Esportato.open(QIODevice::ReadWrite) &&
            Esportato.setFileTime(Allora, QFileDevice::FileModificationTime));
    Esportato.close();

    AzzeraFinestre();
    F = Tavolo::Apri(File);
    QVERIFY(F);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(F->Nota.cmbTipoStampa, Tipo);
    QCOMPARE(LeggiFile(FileDocumento(1)), Stampato);
    QCOMPARE(QFileInfo(FileDocumento(1)).lastModified(), Allora);
    QVERIFY(!F->Nota.Modificata);
}

/// A linked counterparty keeps its name on the first tab, whatever is printed of it.
void TestRiapertura::laControparteToltaDallaStampaNonTorna()
{
    Tavolo T;
    frmParcelle* F = Tavolo::Apri();
    QVERIFY(F);
    CompilaCivile(F);
    salvataggi::Tocca(F);
    Scrivi(Controllo<QLineEdit>(F, "txtControp"), u"Bianchi Srl"_s);
    F->Nota.IDCon = T.Ufficio.AggiungiControparte(u"Bianchi Srl"_s, u"Bianchi Srl"_s);
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaContratto);
    auto* Box = Controllo<QPlainTextEdit>(F, "txtDatiStaControp");
    QCOMPARE(Box->toPlainText(), u"Bianchi Srl"_s);
    Box->setFocus();
    Box->selectAll();
    Premi(Qt::Key_Delete);
    Premi(Qt::Key_Tab);
    const QString File = salvataggi::SalvaCome(T, u"nota.mdb"_s);

    AzzeraFinestre();
    F = Tavolo::Apri(File);
    QVERIFY(F);
    QCOMPARE(TestoDi(F, "txtControp"), u"Bianchi Srl"_s);
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtDatiStaControp")->toPlainText(), QString());
    QVERIFY(!F->Nota.Modificata);
}

#include "TestRiapertura.moc"
