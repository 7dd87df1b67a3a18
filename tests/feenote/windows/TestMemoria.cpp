// Notes that were opened and closed leave nothing behind, however many they were.
#include "tavolo.h"

#include "platform/preview/vistastampa.h"
#include "supporto/memoria.h"

using namespace Qt::StringLiterals;

namespace {

int FinestreDiNote()
{
    int Quante = 0;
    for (const QWidget* Una : QApplication::allWidgets())
        Quante += qobject_cast<const frmParcelle*>(Una) != nullptr;
    return Quante;
}

/// Timers of the windows, queued calls, what is to be deleted.
void Assesta()
{
    for (int i = 0; i < 3; ++i) {
        Respiro();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void ApriEChiudi(const QString& File)
{
    ApriParcella(File, 0, {});
    for (const int Scheda : {SchedaListaOnorari, SchedaBase, SchedaDiStampa})
        Parcelle(1)->VaiAllaScheda(Scheda);
    QVERIFY(!Controllo<VistaStampa>(Parcelle(1), "vp")->Pagine().Testo().isEmpty());
    Controllo<QAbstractButton>(Parcelle(1), "cmdFatturaXml")->click();
    QVERIFY(Controllo(Parcelle(1), "PannelloFattura")->isVisible());
    QVERIFY(ChiudiParcella(1));
    Assesta();
}

}  // namespace

class TestMemoria : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void centoNoteComeUna();
    void leFinestreInPiuVanno();
};
PROVA(TestMemoria);

void TestMemoria::centoNoteComeUna()
{
    constexpr int Prime = 5;
    constexpr int Note = 100;
    constexpr qint64 PerNota = 2000;  // bytes; a window takes more than a million
    const Tavolo T;
    QStringList File;
    for (int i = 0; i < Prime + Note; ++i) {
        File += T.Ufficio.File(u"nota %1.mdb"_s.arg(i));
        ScriviNota(File.last(), NotaPiena());
    }
    for (int i = 0; i < Prime; ++i)
        ApriEChiudi(File[i]);
    const Resti Lasciati;
    for (int i = Prime; i < Prime + Note; ++i)
        ApriEChiudi(File[i]);
    QCOMPARE(Lasciati.Widget(), 0);
    const qint64 Cresciuti = Lasciati.Byte();
    QVERIFY2(Cresciuti < Note * PerNota, qPrintable(QString::number(Cresciuti)));
}

/// Of many notes that were open together a few windows stay, for the next ones.
void TestMemoria::leFinestreInPiuVanno()
{
    constexpr int Note = 10;
    constexpr int Pronte = 8;
    const Tavolo T;
    const auto ApriTutte = [&T] {
        for (int i = 0; i < Note; ++i) {
            const QString File = T.Ufficio.File(u"nota %1.mdb"_s.arg(i));
            if (!QFile::exists(File))
                ScriviNota(File, NotaPiena());
            ApriParcella(File, 0, {});
        }
    };
    ApriTutte();
    const int Aperte = UltimaParcella();
    QCOMPARE(FinestreDiNote(), Aperte);
    QVERIFY(Aperte > Pronte);
    for (int i = 1; i < Aperte; ++i)
        QVERIFY(ChiudiParcella(i));
    Assesta();
    QCOMPARE(FinestreDiNote(), Aperte);
    QVERIFY(ChiudiParcella(Aperte));
    Assesta();
    QTRY_COMPARE(FinestreDiNote(), Pronte);

    // A place whose window has gone is taken by a new one.
    ApriTutte();
    QVERIFY(Parcelle(Aperte) && Parcelle(Aperte)->isVisible());
    QCOMPARE(FinestreDiNote(), UltimaParcella());
}

#include "TestMemoria.moc"
