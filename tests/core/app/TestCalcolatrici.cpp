// The commands of the calculators open their windows: one of each, anew after it was closed.
#include "scena.h"

#include "calculators/windows/frmCodFis.h"
#include "calculators/windows/frmContrib.h"
#include "calculators/windows/frmInteressi.h"
#include "calculators/windows/frmIstat.h"
#include "core/app/apritori.h"
#include "core/comandi.h"

#include <QLineEdit>

namespace {

/// A window by the name of its class, null when none is on screen.
QWidget* SulloSchermo(const QString& Classe)
{
    for (QWidget* Finestra : QApplication::topLevelWidgets())
        if (Finestra->isVisible() && QString::fromLatin1(Finestra->metaObject()->className()) == Classe)
            return Finestra;
    return nullptr;
}

}  // namespace

class TestCalcolatrici : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ogniComandoLaSua_data();
    void ogniComandoLaSua();
};
PROVA(TestCalcolatrici);

void TestCalcolatrici::ogniComandoLaSua_data()
{
    QTest::addColumn<QString>("Comando");
    QTest::addColumn<QString>("Classe");
    QTest::addColumn<QString>("Campo");
    QTest::newRow("interessi") << u"inter"_s << u"frmInteressi"_s << u"txtCapitale"_s;
    QTest::newRow("rivalutazione") << u"istat"_s << u"frmIstat"_s << u"txtImporto"_s;
    QTest::newRow("codice fiscale") << u"codfis"_s << u"frmCodFis"_s << u"txtCognome"_s;
    QTest::newRow("contributo") << u"contrib"_s << u"frmContrib"_s << u"txtValore_0"_s;
}

void TestCalcolatrici::ogniComandoLaSua()
{
    QFETCH(QString, Comando);
    QFETCH(QString, Classe);
    QFETCH(QString, Campo);
    Scena Palco;
    const Registratore Voce;
    Palco.Preparata();
    sessione::UserFolder = ProgrammaDiProva();
    RiempiApritori();

    EseguiComando(Comando, 0, {});
    const QPointer<QWidget> Prima = SulloSchermo(Classe);
    QVERIFY(Prima);
    Prima->findChild<QLineEdit*>(Campo)->setText(u"12"_s);
    EseguiComando(Comando, 0, {});
    QCOMPARE(SulloSchermo(Classe), Prima.data());
    QCOMPARE(Prima->findChild<QLineEdit*>(Campo)->text(), u"12"_s);

    Prima->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!Prima);
    EseguiComando(Comando, 0, {});
    QWidget* Dopo = SulloSchermo(Classe);
    QVERIFY(Dopo);
    QCOMPARE(Dopo->findChild<QLineEdit*>(Campo)->text(), QString());
    Dopo->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

#include "TestCalcolatrici.moc"
