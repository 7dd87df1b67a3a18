// Sizes and places of the windows of notes in their frame, and what is remembered of them.
#include "cornice.h"

using namespace Qt::StringLiterals;

namespace {

QString Misura(const QString& Chiave)
{
    return GetSetting(u"KR5"_s, u"Parametri"_s, Chiave);
}

}  // namespace

class TestFinestreCornice : public QObject, private BancoCornice
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void dimensioniPredefinite();
    void inCascata();
    void inUnoSchermoPiccoloStaTutta();
    void leDimensioniSiRicordano();
    void massimizzataSiRicordaLaNormale();
    void laDisposizioneDiNessunoNonSiRicorda();
    void laDisposizioneSiRicorda();
    void leMisureCheNonSiScrivono();
    void minimizzataTornaSu();
    void minimizzataEChiusaSiRiapreNormale();
    void massimizzataRestaDovE();
    void chiusaLaMassimizzataLAltraLoEAncora();
    void laCascataNonRimpicciolisce();
    void siRicordaSoloQuelCheHaSceltoLUtente();
    void unLatoDellUtenteLasciaCrescereLAltro();
    void massimizzataLaCorniceNonSiRicorda();
    void senzaPostoRiempieLaCornice();
    void unaCornicePiuBassaDellaCascata();
    void cheRiempiaLaCorniceNonSiRicorda();
};
PROVA(TestFinestreCornice);

void TestFinestreCornice::dimensioniPredefinite()
{
    ApriParcella({}, 0, {});
    Respiro();
    QCOMPARE(Sotto(1)->geometry(), QRect(15, 10, 853, 587));  // 220, 150, 12800, 8800 twips
}

void TestFinestreCornice::inCascata()
{
    for (int i = 1; i <= 3; ++i) {
        ApriParcella({}, 0, {});
        Parcelle(i)->SetModificata(true);
    }
    QCOMPARE(Sotto(3)->pos() - Sotto(2)->pos(), QPoint(9, 26));  // 140 and 380 twips, of the two sums
    for (int i = 1; i <= 3; ++i)
        Parcelle(i)->SetModificata(false);
}

void TestFinestreCornice::inUnoSchermoPiccoloStaTutta()
{
    // A screen of 1366 x 768 at 150 % leaves the frame about this much.
    Cornice->resize(910, 430);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    QVERIFY(Area->viewport()->rect().contains(Sotto(1)->geometry()));
    QCOMPARE(Sotto(1)->width(), 853);
}

void TestFinestreCornice::leDimensioniSiRicordano()
{
    ApriParcella({}, 0, {});
    Sotto(1)->resize(900, 620);
    Respiro();
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormWidth"_s), u"13500"_s);
    QCOMPARE(Misura(u"FormHeight"_s), u"9300"_s);
    QCOMPARE(Misura(u"FormState"_s), u"0"_s);
    ApriParcella({}, 0, {});
    QCOMPARE(Sotto(1)->size(), QSize(900, 620));
}

void TestFinestreCornice::massimizzataSiRicordaLaNormale()
{
    ApriParcella({}, 0, {});
    Sotto(1)->resize(900, 620);
    Respiro();
    Sotto(1)->showMaximized();
    Respiro();
    QVERIFY(Sotto(1)->isMaximized());
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormWidth"_s), u"13500"_s);
    QCOMPARE(Misura(u"FormState"_s), u"2"_s);
    AzzeraFinestre();
    ApriParcella({}, 0, {});
    QVERIFY(Sotto(1)->isMaximized());
}

void TestFinestreCornice::laDisposizioneDiNessunoNonSiRicorda()
{
    ApriParcella({}, 0, {});
    CompilaCivile(Parcelle(1));
    ClicScheda(Parcelle(1), SchedaListaOnorari);
    Parcelle(1)->resize(Parcelle(1)->size() + QSize(60, 40));
    Controllo<Griglia>(Parcelle(1), "tdbOnor")->Vista()->setColumnWidth(OnoData, 123);
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    for (const char* Nome : {"tdbOnor", "tdbListaOno", "divisoreOno"})
        QCOMPARE(Impostazione(u"Disposizione_"_s + QLatin1String(Nome)), QString());
}

void TestFinestreCornice::laDisposizioneSiRicorda()
{
    ApriParcella({}, 0, {});
    CompilaCivile(Parcelle(1));
    ClicScheda(Parcelle(1), SchedaListaOnorari);
    auto* Divisore = Controllo<QSplitter>(Parcelle(1), "divisoreOno");
    QVERIFY2(Divisore->sizes()[0] * 3 < Divisore->sizes()[1] * 2, "il catalogo parte da un terzo");
    TrascinaCon(Divisore->handle(1), QPoint(2, 2), QPoint(2, 122));
    const QList<int> Scelte = Divisore->sizes();
    QHeaderView* Testata = Controllo<Griglia>(Parcelle(1), "tdbOnor")->Vista()->horizontalHeader();
    const int Prima = Testata->sectionSize(OnoData);
    const QPoint Orlo(Testata->sectionViewportPosition(OnoData) + Prima - 1, Testata->height() / 2);
    TrascinaCon(Testata->viewport(), Orlo, Orlo + QPoint(31, 0));
    QCOMPARE(Testata->sectionSize(OnoData), Prima + 31);
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));

    AzzeraFinestre();
    ApriParcella({}, 0, {});
    CompilaCivile(Parcelle(1));
    ClicScheda(Parcelle(1), SchedaListaOnorari);
    QCOMPARE(Controllo<QSplitter>(Parcelle(1), "divisoreOno")->sizes(), Scelte);
    QCOMPARE(Controllo<Griglia>(Parcelle(1), "tdbOnor")->Vista()->columnWidth(OnoData), Prima + 31);
    Parcelle(1)->SetModificata(false);
}

void TestFinestreCornice::leMisureCheNonSiScrivono()
{
    // A folder stands where the settings' file should be.
    const QString File =
        QSettings(QSettings::IniFormat, QSettings::UserScope, u"Calcanova"_s, u"KR5"_s).fileName();
    ApriParcella({}, 0, {});
    Respiro();
    const QByteArray Contenuto = QFile::exists(File) ? LeggiFile(File) : QByteArray();
    QFile::remove(File);
    QDir().mkpath(File);
    T->Voce.Tollera();
    int Ultime = 0;
    Aperture.UltimaParcellaChiusa = [&] { ++Ultime; };
    QVERIFY(ChiudiParcella(1));
    QDir(File).removeRecursively();
    ScriviFile(File, Contenuto);
    QVERIFY2(!T->Voce.Mostrati().isEmpty(), "si dice");
    QCOMPARE(Ultime, 1);
}

void TestFinestreCornice::minimizzataTornaSu()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    Sotto(1)->showMinimized();
    Respiro();
    QVERIFY(Sotto(1)->isMinimized());
    AttivaParcella(1);
    QVERIFY(!Sotto(1)->isMinimized());
    QCOMPARE(Area->activeSubWindow(), Sotto(1));
    Parcelle(1)->SetModificata(false);
}

void TestFinestreCornice::minimizzataEChiusaSiRiapreNormale()
{
    ApriParcella({}, 0, {});
    Respiro();
    Sotto(1)->move(50, 60);
    Sotto(1)->showMinimized();
    Respiro();
    QVERIFY(ChiudiParcella(1));
    ApriParcella({}, 0, {});
    QVERIFY(!Sotto(1)->isMinimized());
    QCOMPARE(Sotto(1)->geometry(), QRect(15, 10, 853, 587));
    QVERIFY(Parcelle(1)->isVisible());
}

void TestFinestreCornice::massimizzataRestaDovE()
{
    ApriParcella({}, 0, {});
    Respiro();
    Sotto(1)->showMaximized();
    Respiro();
    const QRect Massima = Sotto(1)->geometry();
    ApriParcella({}, 0, {});  // the untouched first one once more
    Respiro();
    QVERIFY(Sotto(1)->isMaximized());
    QCOMPARE(Sotto(1)->geometry(), Massima);
}

void TestFinestreCornice::chiusaLaMassimizzataLAltraLoEAncora()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    Sotto(2)->showMaximized();
    Respiro();
    Sotto(2)->close();
    Respiro();
    QCOMPARE(Area->activeSubWindow(), Sotto(1));
    QVERIFY(Sotto(1)->isMaximized());
    Parcelle(1)->SetModificata(false);
}

void TestFinestreCornice::laCascataNonRimpicciolisce()
{
    Cornice->resize(1366, 620);
    Respiro();
    for (int i = 1; i <= 6; ++i) {
        ApriParcella({}, 0, {});
        Parcelle(i)->SetModificata(true);
    }
    Respiro();
    QVERIFY2(Sotto(6)->height() < 587, "non ci sta tutta");
    for (int i = 1; i <= 6; ++i) {
        Parcelle(i)->SetModificata(false);
        QVERIFY(ChiudiParcella(i));
    }
    QCOMPARE(Misura(u"FormWidth"_s), u"12800"_s);
    QCOMPARE(Misura(u"FormHeight"_s), u"8800"_s);
}

void TestFinestreCornice::siRicordaSoloQuelCheHaSceltoLUtente()
{
    Cornice->resize(1366, 430);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    QVERIFY(Sotto(1)->height() < 587);
    Sotto(1)->resize(900, Sotto(1)->height());
    Respiro();
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormWidth"_s), u"13500"_s);
    QCOMPARE(Misura(u"FormHeight"_s), u"8800"_s);
}

/// In large letters a note whose height alone was dragged comes up as wide as it was.
void TestFinestreCornice::unLatoDellUtenteLasciaCrescereLAltro()
{
    const QFont Prima = QApplication::font();
    const auto Rimetti = qScopeGuard([&] { QApplication::setFont(Prima); });
    QFont Grande = Prima;
    Grande.setPointSize(14);
    QApplication::setFont(Grande);
    Cornice->resize(1900, 1400);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    const int Larga = Sotto(1)->width();
    QVERIFY(Larga > 853 + 100);  // the design's
    Sotto(1)->resize(Larga, 700);
    Respiro();
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormHeight"_s), u"10500"_s);
    AzzeraFinestre();
    ApriParcella({}, 0, {});
    Respiro();
    QCOMPARE(Sotto(1)->size(), QSize(Larga, 700));
}

void TestFinestreCornice::massimizzataLaCorniceNonSiRicorda()
{
    ApriParcella({}, 0, {});
    Respiro();
    Sotto(1)->showMaximized();
    Respiro();
    for (const QSize& Ampia : {QSize(1500, 900), QSize(960, 720)}) {
        Cornice->resize(Ampia);
        Respiro();
    }
    Cornice->showMaximized();
    Respiro();
    QVERIFY(Sotto(1)->isMaximized());
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormWidth"_s), u"12800"_s);
    QCOMPARE(Misura(u"FormHeight"_s), u"8800"_s);
    QCOMPARE(Misura(u"FormState"_s), u"2"_s);
}

/// A frame at 200 % on a small screen: one pair of bars, not two.
void TestFinestreCornice::senzaPostoRiempieLaCornice()
{
    Cornice->resize(560, 260);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    QVERIFY(Sotto(1)->isMaximized());
    // The user's own change of it is kept.
    Sotto(1)->showNormal();
    Respiro();
    QVERIFY(!Area->property(RiempionoLaCornice).toBool());
    Sotto(1)->showMaximized();
    Respiro();
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormState"_s), u"2"_s);
}

/// In a low frame the notes behind the first stand higher than their place, and none is maximised.
void TestFinestreCornice::unaCornicePiuBassaDellaCascata()
{
    Cornice->resize(1300, 480);
    Respiro();
    const QRect Vista = Area->viewport()->rect();
    for (int Posto = 1; Posto <= 6; ++Posto) {
        ApriParcella({}, 0, {});
        Respiro();
        Parcelle(Posto)->SetModificata(true);  // an untouched note would be taken for the next
        QVERIFY2(Sotto(Posto)->minimumSizeHint().height() <= Vista.height(), "the frame has room for a note");
        for (int Altra = 1; Altra <= Posto; ++Altra) {
            QVERIFY2(!Sotto(Altra)->isMaximized(), qPrintable(QString::number(Posto)));
            QVERIFY2(Vista.contains(Sotto(Altra)->geometry()), qPrintable(QString::number(Altra)));
        }
    }
    for (int Posto = 1; Posto <= 6; ++Posto)
        Parcelle(Posto)->SetModificata(false);
}

void TestFinestreCornice::cheRiempiaLaCorniceNonSiRicorda()
{
    Cornice->resize(560, 260);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    QVERIFY(Sotto(1)->isMaximized());
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormState"_s), u"0"_s);
    AzzeraFinestre();
    Cornice->resize(1300, 740);
    Respiro();
    ApriParcella({}, 0, {});
    QVERIFY(!Sotto(1)->isMaximized());
}

#include "TestFinestreCornice.moc"
