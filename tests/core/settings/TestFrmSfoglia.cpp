// The folder chooser, by mouse and keys on the real form.
#include "core/app/scena.h"

#include "core/settings/frmSfoglia.h"
#include "platform/system/file.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include <memory>

class TestFrmSfoglia : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void siSceglieQuellaDiPartenza();
    void siEntraESiEsce();
    void laTastiera();
    void annullaNonSceglie_data();
    void annullaNonSceglie();
    void quelloCheSiVedeSiSceglie();
    void unaCartellaScritta_data();
    void unaCartellaScritta();
    void unNomeSenzaRadice();
    void unaCartellaChiusa();
    void laPartenzaCheManca();
    void leUnita();
    void ognunoHaUnNome();

private:
    /// Asks, and does something with the form while it is open; it must end the form.
    QString Chiedi(const QString& Inizio, const std::function<void()>& Fai)
    {
        QTimer::singleShot(0, F.get(), [this, Fai] {
            QVERIFY(QTest::qWaitForWindowActive(F.get()));
            Fai();
            if (F->isVisible())
                F->reject();
        });
        return F->Scegli(u"Scegli qui"_s, Inizio);
    }
    template <class T>
    T* Controllo(const char* Nome) const
    {
        return F->findChild<T*>(QString::fromLatin1(Nome));
    }
    QListWidget* Lista() const { return Controllo<QListWidget>("dirDir"); }
    QString Scritta() const { return Controllo<QLineEdit>("txtCartella")->text(); }
    QListWidgetItem* Riga(const QString& Nome) const
    {
        for (int i = 0; i < Lista()->count(); ++i)
            if (Lista()->item(i)->text().trimmed() == Nome)
                return Lista()->item(i);
        return nullptr;
    }
    void Clic(const QString& Nome, bool Doppio = false) const
    {
        QListWidgetItem* Voce = Riga(Nome);
        QVERIFY2(Voce, qPrintable(Nome));
        Lista()->scrollToItem(Voce);
        const QPoint Dove = Lista()->visualItemRect(Voce).center();
        QTest::mouseClick(Lista()->viewport(), Qt::LeftButton, Qt::NoModifier, Dove);
        if (Doppio)
            QTest::mouseDClick(Lista()->viewport(), Qt::LeftButton, Qt::NoModifier, Dove);
    }
    void Premuto(const char* Bottone) const
    {
        QTest::mouseClick(Controllo<QPushButton>(Bottone), Qt::LeftButton);
    }

    std::unique_ptr<Scena> S;
    std::unique_ptr<frmSfoglia> F;
    QString Radice;
};
PROVA(TestFrmSfoglia);

void TestFrmSfoglia::init()
{
    S = std::make_unique<Scena>();
    F = std::make_unique<frmSfoglia>();
    Radice = NuovaCartella();
    for (const QString& Nome : {u"nota 10"_s, u"nota 9"_s, u"altra/dentro"_s, u".nascosta"_s})
        QVERIFY(QDir().mkpath(Radice + Nome));
    ScriviFile(Radice + u"file.txt"_s, "x");
}

void TestFrmSfoglia::cleanup()
{
    F.reset();
    S.reset();
}

void TestFrmSfoglia::siSceglieQuellaDiPartenza()
{
    QString Titolo;
    bool Modale = false;
    QCOMPARE(Chiedi(Radice,
                    [&] {
                        Titolo = F->windowTitle();
                        Modale = F->isModal();
                        Premuto("cmdSeleziona");
                    }),
             Radice);
    QCOMPARE(Titolo, u"Scegli qui"_s);
    QVERIFY(Modale);
}

void TestFrmSfoglia::siEntraESiEsce()
{
    QStringList Dentro;
    QCOMPARE(Chiedi(Radice,
                    [&] {
                        for (int i = Lista()->row(Lista()->currentItem()) + 1; i < Lista()->count(); ++i)
                            Dentro += Lista()->item(i)->text().trimmed();
                        Clic(u"altra"_s, true);
                        QCOMPARE(Scritta(), Radice + u"altra/"_s);
                        Clic(u"dentro"_s, true);
                        QCOMPARE(Scritta(), Radice + u"altra/dentro/"_s);
                        Clic(u"altra"_s, true);
                        Premuto("cmdSeleziona");
                    }),
             Radice + u"altra/"_s);
    QCOMPARE(Dentro, (QStringList{u"altra"_s, u"nota 9"_s, u"nota 10"_s}));
}

void TestFrmSfoglia::laTastiera()
{
    QCOMPARE(Chiedi(Radice,
                    [&] {
                        QCOMPARE(QApplication::focusWidget(), Lista());
                        Premi(Qt::Key_Down);
                        Premi(Qt::Key_Return);
                        QCOMPARE(Scritta(), Radice + u"altra/"_s);
                        Premi(Qt::Key_Backspace);
                        QCOMPARE(Scritta(), Radice);
                        Premi(Qt::Key_Down);
                        Premi(Qt::Key_Down);
                        QCOMPARE(Scritta(), Radice + u"nota 9/"_s);
                        Premi(Qt::Key_Tab);
                        Premi(Qt::Key_Return);
                    }),
             Radice + u"nota 9/"_s);
}

void TestFrmSfoglia::annullaNonSceglie_data()
{
    QTest::addColumn<bool>("Bottone");
    QTest::newRow("the button") << true;
    QTest::newRow("the key") << false;
}

void TestFrmSfoglia::annullaNonSceglie()
{
    QFETCH(bool, Bottone);
    QCOMPARE(Chiedi(Radice,
                    [&] {
                        Clic(u"altra"_s, true);
                        if (Bottone)
                            Premuto("cmdAnnulla");
                        else
                            Premi(Qt::Key_Escape);
                    }),
             QString());
    QVERIFY(!F->isVisible());
}

void TestFrmSfoglia::quelloCheSiVedeSiSceglie()
{
    QCOMPARE(Chiedi(Radice,
                    [&] {
                        Clic(u"nota 10"_s);
                        QCOMPARE(Scritta(), Radice + u"nota 10/"_s);
                        Premuto("cmdSeleziona");
                    }),
             Radice + u"nota 10/"_s);
}

void TestFrmSfoglia::unaCartellaScritta_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<int>("Numero");
    QTest::newRow("without the separator") << u"altra"_s << 0;
    QTest::newRow("the other separator") << u"altra\\dentro"_s << 0;
    QTest::newRow("not there") << u"manca"_s << 76;
    QTest::newRow("a file") << u"file.txt"_s << 76;
}

void TestFrmSfoglia::unaCartellaScritta()
{
    QFETCH(QString, Nome);
    QFETCH(int, Numero);
    Registratore Box;
    if (Numero != 0) {
        Box.Attendi(u"Errore: Percorso non trovato (76)"_s, vbOK, u"Errore:"_s);
        Box.Attendi(u"Errore: Percorso non trovato (76)"_s, vbOK, u"Errore:"_s);
    }
    const QString Scelta = Chiedi(Radice, [&] {
        auto* Campo = Controllo<QLineEdit>("txtCartella");
        Campo->setFocus();
        Campo->selectAll();
        Digita(Radice + Nome);
        Premi(Qt::Key_Return);
        Respiro();
        QCOMPARE(QApplication::focusWidget() == Campo, Numero != 0);
        QVERIFY2(Riga(u"altra"_s), "the list is that of before, or leads to the new one");
        Premuto("cmdSeleziona");
        QCOMPARE(F->isVisible(), Numero != 0);
    });
    QCOMPARE(Scelta, Numero == 0 ? Barra(Radice + Nome) : QString());
}

/// The settings store what comes back: a path that counts from wherever the program was started is none.
void TestFrmSfoglia::unNomeSenzaRadice()
{
    Registratore Box;
    const auto Scrivi = [this](const QString& Testo) { Controllo<QLineEdit>("txtCartella")->setText(Testo); };
    QCOMPARE(Chiedi(Radice,
                    [&] {
                        Scrivi(u"altra"_s);
                        Controllo<QLineEdit>("txtCartella")->setFocus();
                        Premi(Qt::Key_Return);
                        QCOMPARE(Scritta(), Radice + u"altra/"_s);
                        Scrivi(u"dentro"_s);
                        Premuto("cmdSeleziona");
                    }),
             Radice + u"altra/dentro/"_s);
    // What the process's own folder holds is not what is on view.
    const QString Prima = QDir::currentPath();
    QVERIFY(QDir::setCurrent(Radice));
    Box.Attendi(u"Errore: Percorso non trovato (76)"_s, vbOK, u"Errore:"_s);
    QCOMPARE(Chiedi(Radice + u"altra"_s,
                    [&] {
                        Scrivi(u"nota 9"_s);
                        Premuto("cmdSeleziona");
                    }),
             QString());
    QVERIFY(QDir::setCurrent(Prima));
}

void TestFrmSfoglia::unaCartellaChiusa()
{
    QVERIFY(QFile::setPermissions(Radice + u"altra"_s, {}));
    Registratore Box;
    Box.Attendi(u"Errore: Errore di accesso al percorso o al file (75)"_s, vbOK, u"Errore:"_s);
    QCOMPARE(Chiedi(Radice,
                    [&] {
                        Clic(u"altra"_s, true);
                        QVERIFY(Riga(u"nota 9"_s));
                        Clic(u"nota 9"_s);
                        Premuto("cmdSeleziona");
                    }),
             Radice + u"nota 9/"_s);
    QVERIFY(
        QFile::setPermissions(Radice + u"altra"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void TestFrmSfoglia::laPartenzaCheManca()
{
    const Registratore Box;  // nothing is said of it
    QCOMPARE(Chiedi(Radice + u"altra/manca/ancora"_s, [&] { Premuto("cmdSeleziona"); }),
             Radice + u"altra/"_s);
    QCOMPARE(Chiedi({}, [&] { Premuto("cmdSeleziona"); }), Barra(QDir::homePath()));
}

void TestFrmSfoglia::leUnita()
{
    QCOMPARE(Chiedi(QDir::homePath(),
                    [&] {
                        auto* Unita = Controllo<QComboBox>("drvDir");
                        QCOMPARE(Unita->currentText(), QDir::homePath());
                        Unita->setFocus();
                        Premi(Qt::Key_Home);
                        QCOMPARE(Scritta(), u"/"_s);
                        QCOMPARE(Unita->currentText(), u"/"_s);
                        Premi(Qt::Key_Down);
                        QCOMPARE(Scritta(), Barra(QDir::homePath()));
                        Premuto("cmdSeleziona");
                    }),
             Barra(QDir::homePath()));
}

void TestFrmSfoglia::ognunoHaUnNome()
{
    QCOMPARE(SenzaNome(F.get()), QStringList());
}

#include "TestFrmSfoglia.moc"
