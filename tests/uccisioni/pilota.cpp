// Loaded into the real program by its environment: writes into the subject of the note on view and saves,
// again and again, answering every message, until somebody kills the program.
//
//   CALCANOVA_PILOTA     the file that is told how far it is: the last number written, and the last one saved
//   CALCANOVA_PILOTA_FA  something else instead, once: "scrive", a change that is not saved; "fattura", the
//                        electronic invoice of the note as it is; "cambia e fattura", of one with a change
//                        that is not saved. The first number is 1 behind the change and 2 when the invoice
//                        begins, the second 1 when it has ended, 2 where the note was known to be invoiced;
//                        "cancella", the note "n" deleted in the browser of notes; "cambia e cancella", the
//                        same behind a change of the note in view. The first number is 2 when it begins, the
//                        second 1 when it has ended, 2 where the browser did not list it
//   CALCANOVA_PILOTA_FINE  set: the program ends behind the invoice as a command would, with what was said on
//                        its error stream, 0 where the file was written
//   CALCANOVA_PILOTA_ANCORA  set: an invoice that is known to be written is written again
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGenericPlugin>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <dlfcn.h>
#include <unistd.h>

namespace {

/// Long enough for several pages of the file.
constexpr int Ripetizioni = 40;

class Pilota : public QObject
{
public:
    explicit Pilota(const QString& DiChi) : Conto(DiChi), Compito(qEnvironmentVariable("CALCANOVA_PILOTA_FA"))
    {
        Prossimo();
    }

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
        if (DentroUnPasso)
            return;
        if (QWidget* Elenco = Aperto("frmTrovaParcella")) {
            DentroUnPasso = true;
            Cancella(*Elenco);
            DentroUnPasso = false;
            return;
        }
        if (QApplication::activeModalWidget())
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
        if (!Compito.isEmpty())
            Svolgi(*Oggetto);
        else if (DaSalvare)
            Salva(*Oggetto);
        else
            Scrivi(*Oggetto);
        DentroUnPasso = false;
    }

    void Rispondi(QMessageBox& Box)
    {
        Dette += Box.text();
        if (Box.text().contains(QStringLiteral("Scriverla di nuovo"))) {
            const bool Ancora = qEnvironmentVariableIsSet("CALCANOVA_PILOTA_ANCORA");
            GiaNota = !Ancora;
            Box.button(Ancora ? QMessageBox::Yes : QMessageBox::No)->click();
            return;
        }
        QAbstractButton* Si = Box.button(QMessageBox::Yes);
        if (!Si)
            Si = Box.button(QMessageBox::Ok);
        if (Si)
            Si->click();
    }

    static QWidget* Aperto(const char* Nome)
    {
        for (QWidget* Finestra : QApplication::topLevelWidgets())
            if (Finestra->objectName() == QLatin1String(Nome) && Finestra->isVisible())
                return Finestra;
        return nullptr;
    }

    /// What the program's driver waits for begins here.
    void Comincia()
    {
        Scritto = 2;
        Segna();
        for (const char* Nome : {"morte_comincia", "guasto_comincia"})
            if (const auto Funzione = reinterpret_cast<void (*)()>(dlsym(RTLD_DEFAULT, Nome)))
                Funzione();
    }

    void Cancella(QWidget& Elenco)
    {
        // The list is finished when it can be handed on.
        auto* Esporta = Elenco.findChild<QAction*>(QStringLiteral("csv"));
        auto* Elimina = Elenco.findChild<QAction*>(QStringLiteral("delete"));
        auto* Righe = Elenco.findChild<QTableView*>();
        if (!Esporta || !Elimina || !Righe)
            qFatal("no list in this window");
        if (Salvato > 0 || !Esporta->isEnabled())
            return;
        for (int Riga = 0; Riga < Righe->model()->rowCount(); ++Riga) {
            const QModelIndex Nome = Righe->model()->index(Riga, 0);
            if (Nome.data().toString() != QStringLiteral("n"))
                continue;
            Righe->setCurrentIndex(Nome);
            if (!Elimina->isEnabled())
                return;
            Comincia();
            Elimina->trigger();
            Salvato = 1;
            Segna();
            return;
        }
        Scritto = Salvato = 2;
        Segna();
    }

    QLineEdit* InVista()
    {
        for (QWidget* Finestra : QApplication::topLevelWidgets())
            for (auto* Campo : Finestra->findChildren<QLineEdit*>(QStringLiteral("txtOggetto")))
                if (DellaNota && Campo->window() == DellaNota->window())
                    return Campo;  // behind another tab by now
                else if (Campo->isVisible() && Campo->isEnabled())
                    return DellaNota = Campo;
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

    /// One step of what is done once.
    void Svolgi(QLineEdit& Oggetto)
    {
        if (Salvato > 0)
            return;
        if (Scritto == 0 && Compito != QStringLiteral("fattura") && Compito != QStringLiteral("cancella")) {
            Scrivi(Oggetto);
            return;
        }
        if (Compito == QStringLiteral("scrive"))
            return;
        if (Compito.endsWith(QStringLiteral("cancella"))) {
            // What was changed is in its copy first.
            const QDir Copie(QFileInfo(Conto).path() + QStringLiteral("/utente/recupero"));
            if (Scritto == 0 || !Copie.entryList({QStringLiteral("*.mdb")}, QDir::Files).isEmpty())
                QTest::keyClick(Oggetto.window(), Qt::Key_O, Qt::ControlModifier);
            return;
        }
        auto* Schede = Oggetto.window()->findChild<QTabWidget*>(QStringLiteral("tabParcelle"));
        auto* Pannello = Oggetto.window()->findChild<QAbstractButton*>(QStringLiteral("cmdFatturaXml"));
        auto* Bottone = Oggetto.window()->findChild<QAbstractButton*>(QStringLiteral("cmdSalvaXml"));
        if (!Schede || !Pannello || !Bottone)
            qFatal("no invoice in this window");
        if (!Pannello->isVisible()) {
            for (int i = 0; i < Schede->count(); ++i)
                if (Schede->widget(i)->isAncestorOf(Pannello))
                    Schede->setCurrentIndex(i);
        } else if (!Bottone->isVisible()) {
            Pannello->click();
        } else {
            Fattura(*Bottone);
        }
    }

    void Fattura(QAbstractButton& Bottone)
    {
        if (!Bottone.isEnabled())
            qFatal("something is missing for the invoice");
        Comincia();
        Dette.clear();
        Bottone.click();
        if (qEnvironmentVariableIsSet("CALCANOVA_PILOTA_FINE")) {
            const QByteArray Frasi = Dette.join(u'\n').toUtf8() + '\n';
            (void)!::write(STDERR_FILENO, Frasi.constData(), size_t(Frasi.size()));
            ::_exit(Frasi.contains("è stata scritta nel file") ? 0 : 1);
        }
        Salvato = GiaNota ? 2 : 1;
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
    QString Compito;
    QPointer<QLineEdit> DellaNota;
    QStringList Dette;
    bool GiaNota = false;
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
