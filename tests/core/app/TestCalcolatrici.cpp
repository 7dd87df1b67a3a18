// The commands of the calculators open their windows: one of each, anew after it was closed.
#include "scena.h"

#include "calculators/calcolatrici.h"
#include "calculators/windows/frmCodFis.h"
#include "calculators/windows/frmContrib.h"
#include "calculators/windows/frmInteressi.h"
#include "calculators/windows/frmIstat.h"
#include "core/app/apritori.h"
#include "core/comandi.h"
#include "core/tasti.h"

#include <QAction>
#include <QFile>
#include <QLineEdit>

#include <algorithm>

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
    void ognunaHaTuttoIlSuo_data();
    void ognunaHaTuttoIlSuo();
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

void TestCalcolatrici::ognunaHaTuttoIlSuo_data()
{
    QTest::addColumn<QString>("Comando");
    QTest::addColumn<QString>("DaRiga");
    for (const NomiCalcolatrice& Una : TabellaCalcolatrici)
        QTest::newRow(qPrintable(Una.NelFile.toString())) << Una.Comando.toString() << Una.DaRiga.toString();
}

/// A calculator is known in many places, none of which is missed by the compiler: the sentences name what was
/// forgotten. docs/architecture.md has them in one row.
void TestCalcolatrici::ognunaHaTuttoIlSuo()
{
    QFETCH(QString, Comando);
    QFETCH(QString, DaRiga);
    QStringList Mancano;
    const auto Chiede = [&](bool Ce, const QString& Dove) {
        if (!Ce)
            Mancano << Dove;
    };
    const auto Testo = [](const QString& File) {
        QFile Aperto(SorgenteDiProva(File));
        return Aperto.open(QIODevice::ReadOnly) ? QString::fromUtf8(Aperto.readAll()) : QString();
    };
    const auto Riga =
        std::ranges::find_if(Comandi(), [&](const struct Comando& Una) { return Una.Parola == Comando; });
    QVERIFY2(Riga != Comandi().end() && ApreFinestra(*Riga), "src/core/comandi.cpp: its row");
    Chiede(!Riga->Tasti.isEmpty() && !Riga->Effetto.isEmpty(), u"src/core/comandi.cpp: its keys"_s);
    Chiede(Riga->Icona.Posto > 0, u"src/core/comandi.cpp: its icon of the desktop"_s);
    Chiede(QFile::exists(u":/icone/%1.svg"_s.arg(Comando)), u"src/platform/kit/icone: its picture"_s);

    Scena Palco;
    const Registratore Voce;
    Palco.Preparata();
    sessione::UserFolder = ProgrammaDiProva();
    RiempiApritori();
    const QWidgetList Prima = QApplication::topLevelWidgets();
    EseguiComando(Comando, 0, {});
    QWidget* Finestra = nullptr;
    for (QWidget* Una : QApplication::topLevelWidgets())
        if (Una->isVisible() && !Prima.contains(Una))
            Finestra = Una;
    QVERIFY2(Finestra, "src/core/app/apritori.cpp: its registration");
    const QString Classe = QString::fromLatin1(Finestra->metaObject()->className());
    Chiede(Finestra->findChild<QAction*>(u"mnuUltimi"_s), u"%1: its last calculations"_s.arg(Classe));
    Finestra->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    Chiede(Riga->Finestra == Classe, u"src/core/comandi.cpp: its window, of which keys and pages follow"_s);
    const auto Copia = [&](const RigaTasti& Una) { return Una.Finestra == Classe && Una.Tasti == u"Ctrl+C"; };
    Chiede(std::ranges::any_of(TabellaTasti(), Copia), u"src/core/comandi.cpp: what it copies"_s);
    const QString Guida = u"dati/guide/aiuto/"_s;
    Chiede(!Testo(Guida + Classe + u".txt"_s).isEmpty(), Guida + Classe + u".txt: its page"_s);
    Chiede(Testo(u"pacchetto/calcanova.1"_s).contains(u"\n.B %1\n"_s.arg(Comando)),
           u"pacchetto/calcanova.1: its word"_s);
    Chiede(Testo(u"pacchetto/calcanova-cli.1"_s).contains(u"\n.BI \"%1 "_s.arg(DaRiga)),
           u"pacchetto/calcanova-cli.1: its command"_s);
    Chiede(Testo(u"docs/cli.md"_s).contains(u"\n| `%1 "_s.arg(DaRiga)), u"docs/cli.md: its command"_s);
    Chiede(Testo(Guida + u"frmStudio.txt"_s).contains(Riga->Icona.Etichetta),
           Guida + u"frmStudio.txt: its icon"_s);
    Chiede(Testo(Guida + u"frmMain.txt"_s).contains(Riga->Pulsante.Scritta),
           Guida + u"frmMain.txt: its button"_s);
    Chiede(Testo(Guida + u"rigadicomando.txt"_s).contains(DaRiga),
           Guida + u"rigadicomando.txt: its command"_s);
    Chiede(Testo(u"tests/cli/TestCalcoli.cpp"_s).contains(u" u\"%1 "_s.arg(DaRiga)),
           u"tests/cli/TestCalcoli.cpp: figures of its command"_s);
    Chiede(Testo(u"tests/video/ordine/%1.txt"_s.arg(DaRiga)).contains(u"\n\n"),
           u"tests/video/ordine: where Tab and Enter lead in it"_s);
    QVERIFY2(Mancano.isEmpty(), qPrintable(u'\n' + Mancano.join(u'\n')));
}

#include "TestCalcolatrici.moc"
