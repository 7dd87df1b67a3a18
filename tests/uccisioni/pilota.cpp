// Loaded into the real program by its environment: writes into the subject of the note on view and saves,
// again and again, answering every message, until somebody kills the program.
//
//   CALCANOVA_PILOTA  the file that is told how far it is: the last number written, and the last one saved
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QGenericPlugin>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

/// Long enough for several pages of the file.
constexpr int Ripetizioni = 40;

class Pilota : public QObject
{
public:
    explicit Pilota(const QString& DiChi) : Conto(DiChi) { Prossimo(); }

private:
    /// A timer of its own for each step: one that repeats stands still while its own step waits in a dialog.
    void Prossimo()
    {
        constexpr int OgniMs = 2;
        QTimer::singleShot(OgniMs, this, [this] {
            Prossimo();
            Passo();
        });
    }

    void Passo()
    {
        if (auto* Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            Rispondi(*Box);
            return;
        }
        if (auto* Dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            QMetaObject::invokeMethod(Dialogo, "accept", Qt::QueuedConnection);
            return;
        }
        if (QApplication::activeModalWidget() || DentroUnPasso)
            return;
        QLineEdit* Oggetto = InVista();
        if (!Oggetto)
            return;
        // Keys of commands count in the window in front, which a closed dialog does not always bring back
        // here.
        if (!Oggetto->window()->isActiveWindow()) {
            Oggetto->window()->activateWindow();
            return;
        }
        DentroUnPasso = true;
        if (DaSalvare)
            Salva(*Oggetto);
        else
            Scrivi(*Oggetto);
        DentroUnPasso = false;
    }

    static void Rispondi(QMessageBox& Box)
    {
        QAbstractButton* Si = Box.button(QMessageBox::Yes);
        if (!Si)
            Si = Box.button(QMessageBox::Ok);
        if (Si)
            Si->click();
    }

    static QLineEdit* InVista()
    {
        for (QWidget* Finestra : QApplication::topLevelWidgets())
            for (auto* Campo : Finestra->findChildren<QLineEdit*>(QStringLiteral("txtOggetto")))
                if (Campo->isVisible() && Campo->isEnabled())
                    return Campo;
        return nullptr;
    }

    void Scrivi(QLineEdit& Oggetto)
    {
        ++Scritto;
        const QString Versione = QStringLiteral("versione %1 ").arg(Scritto).repeated(Ripetizioni);
        Oggetto.setFocus();
        Oggetto.selectAll();
        QKeyEvent Tasto(QEvent::KeyPress, 0, Qt::NoModifier, Versione);
        QApplication::sendEvent(&Oggetto, &Tasto);
        // Some changes wait for their recovery copy, others go to the disk at once.
        DaSalvare = Scritto % 2 == 0;
        Segna();
    }

    void Salva(QLineEdit& Oggetto)
    {
        DaSalvare = false;
        const int Questo = Scritto;
        Oggetto.setFocus();
        QTest::keyClick(Oggetto.window(), Qt::Key_S, Qt::ControlModifier);
        Salvato = Questo;
        Segna();
    }

    void Segna() const
    {
        // In one piece over what was there: who kills the program reads it whole.
        constexpr qsizetype Larghezza = 24;
        QFile File(Conto);
        if (File.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
            File.write(
                (QByteArray::number(Scritto) + ' ' + QByteArray::number(Salvato)).leftJustified(Larghezza));
    }

    QString Conto;
    int Scritto = 0;
    int Salvato = 0;
    bool DaSalvare = false;
    bool DentroUnPasso = false;
};

}  // namespace

class PluginPilota : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "pilota.json")

public:
    QObject* create(const QString& Nome, const QString&) override
    {
        const QString Conto = qEnvironmentVariable("CALCANOVA_PILOTA");
        return Nome == QLatin1String("pilota") && !Conto.isEmpty() ? new Pilota(Conto) : nullptr;
    }
};

#include "pilota.moc"
