// A session of the desktop ends while a calculator has a box open: the window is closed behind it.
#include "tuttelecalcolatrici.h"

#include <QDialog>
#include <QEventLoop>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// Boxes with an event loop of their own, as real ones have it. Each closes all windows while it is up.
class BoxCheChiudono
{
public:
    BoxCheChiudono()
    {
        Messaggi Nuovi;
        Nuovi.Box = [this](const QString&, int, const QString&) {
            ++Quanti;
            constexpr int Ms = 20;
            QEventLoop Giro;
            QTimer::singleShot(0, [] { QApplication::closeAllWindows(); });
            QTimer::singleShot(Ms, &Giro, &QEventLoop::quit);
            Giro.exec();
            return vbOK;
        };
        Precedenti = InstallaMessaggi(std::move(Nuovi));
    }
    ~BoxCheChiudono() { InstallaMessaggi(std::move(Precedenti)); }
    BoxCheChiudono(const BoxCheChiudono&) = delete;
    BoxCheChiudono& operator=(const BoxCheChiudono&) = delete;

    int Quanti = 0;

private:
    Messaggi Precedenti;
};

}  // namespace

class TestFineSessione : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laFinestraAspettaIlBox_data() { RigheCalcolatrici(true); }
    void laFinestraAspettaIlBox();
};
PROVA(TestFineSessione);

/// The procedure that has shown the box finds its window when it goes on; the window goes afterwards.
void TestFineSessione::laFinestraAspettaIlBox()
{
    const CalcolatriceProvata& Provata = QuestaCalcolatrice();
    const Banco Tavolo;
    sessione::PercorsoProg = NuovaCartella();
    const BoxCheChiudono Chiudono;
    const QPointer<QDialog> Finestra = Provata.Apri();
    QVERIFY(Finestra);
    Clic(Controllo(Finestra, Provata.Chiede));  // of an empty form, with no document beside the program
    QVERIFY2(Chiudono.Quanti > 0, "it has asked for what is missing");
    QVERIFY(Finestra);
    QVERIFY(!Finestra->isVisible());
    QTRY_VERIFY(!Finestra);
}

#include "TestFineSessione.moc"
