// The desktop's background and marks, and what a repaint builds anew.
#include "studio.h"

#include "core/aperture.h"
#include "core/indirizzi.h"
#include "core/parametri.h"
#include "platform/kit/aspetto.h"

#include <QMdiArea>
#include <QScopeGuard>
#include <QToolButton>

namespace {

QImage TintaUnita(const QColor& Tinta)
{
    QImage Immagine(8, 8, QImage::Format_RGB32);
    Immagine.fill(Tinta);
    return Immagine;
}

}  // namespace

class TestStudioSfondo : public QObject, private BancoStudio
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void coloreDiSfondo();
    void immagineDiSfondo();
    void immagineDiSfondoGuasta();
    void laPrimaPitturaNonLeggeImmagini();
    void unoSfondoNuovoNonLampeggia();
    void loSfondoSegueLaMisura();
    void versione();
    void ridisegnoNonRaddoppia();
    void laCorniceSegueLoSfondo();
    void preparazioneDueVolte();
    void marchi_data();
    void marchi();

private:
    static void MettiSfondo(const QString& Nome, const QImage& Immagine);
    static QColor Angolo(frmStudio& Scrivania) { return Scrivania.grab().toImage().pixelColor(2, 2); }
};
PROVA(TestStudioSfondo);

void TestStudioSfondo::coloreDiSfondo()
{
    const Registratore Box;  // a picture that is not there is no message
    sessione::SfondoDesktop = u"manca.jpg"_s;
    frmStudio& Scrivania = Apri();
    // 0xBBGGRR
    QCOMPARE(Scrivania.grab().toImage().pixelColor(2, 2), QColor(0x14, 0x45, 0x26));
}

void TestStudioSfondo::immagineDiSfondo()
{
    sessione::PercorsoProg = ProgrammaConIcone({});
    QImage Immagine(1, 2, QImage::Format_RGB32);
    Immagine.setPixelColor(0, 0, Qt::red);
    Immagine.setPixelColor(0, 1, Qt::blue);
    MettiSfondo(u"bandiera.png"_s, Immagine);
    sessione::SfondoDesktop = u"Bandiera.PNG"_s;
    frmStudio& Scrivania = Apri();
    const auto Larga = Scrivania.grab().toImage();
    QVERIFY(Larga.pixelColor(2, 2).red() > 200);
    QVERIFY(Larga.pixelColor(Larga.width() - 3, 2).red() > 200);
    QVERIFY(Larga.pixelColor(2, Larga.height() - 60).blue() > 200);
}

void TestStudioSfondo::immagineDiSfondoGuasta()
{
    Registratore Box;
    sessione::PercorsoProg = ProgrammaConIcone({});
    CreaCartella(sessione::PercorsoProg + u"sfondi"_s);
    const QString File = sessione::PercorsoProg + u"sfondi/lex.jpg"_s;
    ScriviFile(File, "\xFF\xD8\xFF and no picture");
    sessione::SfondoDesktop = u"lex.jpg"_s;
    Box.Attendi(u"L'immagine di sfondo %1 non si può leggere."_s.arg(File), vbOK, u"Errore:"_s);
    frmStudio& Scrivania = Apri();
    Respiro();
    QCOMPARE(Scrivania.grab().toImage().pixelColor(2, 2), aspetto::DaBgr(sessione::ColoreSfondoDesktop));
    Scrivania.LoadGraph();
    Respiro();
    QCOMPARE(Box.Mostrati().size(), 1);
}

void TestStudioSfondo::laPrimaPitturaNonLeggeImmagini()
{
    sessione::PercorsoProg = ProgrammaConIcone({});
    MettiSfondo(u"rossa.png"_s, TintaUnita(Qt::red));
    frmStudio& Scrivania = Singola<frmStudio>();
    QCOMPARE(Angolo(Scrivania), aspetto::DaBgr(sessione::ColoreSfondoDesktop));
    Respiro();
    QCOMPARE(Angolo(Scrivania), QColor(Qt::red));
}

void TestStudioSfondo::unoSfondoNuovoNonLampeggia()
{
    sessione::PercorsoProg = ProgrammaConIcone({});
    MettiSfondo(u"rossa.png"_s, TintaUnita(Qt::red));
    frmStudio& Scrivania = Apri();
    MettiSfondo(u"blu.png"_s, TintaUnita(Qt::blue));
    Scrivania.LoadGraph();
    QCOMPARE(Angolo(Scrivania), QColor(Qt::blue));
}

void TestStudioSfondo::loSfondoSegueLaMisura()
{
    sessione::PercorsoProg = ProgrammaConIcone({});
    // Many columns: stretched from a narrower window they are blurred.
    QImage Righe(1200, 1, QImage::Format_RGB32);
    for (int x = 0; x < Righe.width(); ++x)
        Righe.setPixelColor(x, 0, x % 2 == 0 ? Qt::black : Qt::white);
    MettiSfondo(u"righe.png"_s, Righe);
    frmStudio& Scrivania = Apri();
    const auto NeriEBianchi = [&] {
        const QImage Striscia = Scrivania.grab(QRect(0, 2, Scrivania.width(), 1)).toImage();
        return Conta(Striscia, Qt::black) + Conta(Striscia, Qt::white) == Scrivania.width();
    };
    Scrivania.resize(Righe.width() / 2, Scrivania.height());
    QTRY_VERIFY(!NeriEBianchi());
    Scrivania.resize(Righe.width(), Scrivania.height());
    // Until it is read anew the picture is stretched, never gone.
    QVERIFY(!NeriEBianchi());
    QVERIFY(Angolo(Scrivania) != aspetto::DaBgr(sessione::ColoreSfondoDesktop));
    QTRY_VERIFY(NeriEBianchi());
}

void TestStudioSfondo::versione()
{
    const frmStudio& Scrivania = Singola<frmStudio>();
    QCOMPARE(Scrivania.findChild<QLabel*>(u"lblRelease"_s)->text(), u"Release 3.0.14"_s);
}

void TestStudioSfondo::ridisegnoNonRaddoppia()
{
    sessione::PercorsoProg = ProgrammaConIcone("L0=A\r\nL0_c=/a\r\nL0_i=a.gif\r\n");
    frmStudio& Scrivania = Singola<frmStudio>();
    Scrivania.Menu(15);
    Scrivania.LoadGraph();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()) + 1);
    QCOMPARE(Scrivania.findChildren<IconaStudio*>().size(), qsizetype(Fisse.size()) + 1);
    QCOMPARE(Scrivania.Marcata(), frmStudio::NessunaIcona);
    QVERIFY(QFile::remove(sessione::PercorsoProg + u"kr5.ini"_s));
    Scrivania.LoadGraph();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()));
}

void TestStudioSfondo::laCorniceSegueLoSfondo()
{
    sessione::PercorsoProg = ProgrammaConIcone({});
    auto* Area = Singola<frmMain>().Area();
    QVERIFY(Area->background().texture().isNull());
    MettiSfondo(u"rossa.png"_s, TintaUnita(Qt::red));
    frmStudio& Scrivania = Singola<frmStudio>();
    Scrivania.LoadGraph();
    const auto Stesa = [Area] { return Area->background().texture().toImage(); };
    QCOMPARE(Stesa().pixelColor(1, 1), QColor(Qt::red));
    // One that is loaded later takes the session's by itself.
    Singola<frmMain>().hide();
    MettiSfondo(u"blu.png"_s, TintaUnita(Qt::blue));
    Scrivania.LoadGraph();
    QVERIFY(Singola<frmMain>().Area());
    QCOMPARE(Stesa().pixelColor(1, 1), QColor(Qt::blue));
    sessione::SfondoDesktop.clear();
    Scrivania.LoadGraph();
    QVERIFY(Area->background().texture().isNull());
}

void TestStudioSfondo::preparazioneDueVolte()
{
    Registratore Box;
    sessione::StudioNome.clear();
    const QString Buona = sessione::PercorsoProg;
    sessione::PercorsoProg = NuovaCartella();
    QList<int> Schede;
    // The first time the folder is put right, the name is not; then the name.
    Aperture.Impostazioni = [&](int Scheda, bool Modale) {
        QVERIFY(Modale);
        Schede << Scheda;
        if (Schede.size() == 1)
            sessione::PercorsoProg = Buona;
        else
            sessione::StudioNome = u"Studio"_s;
    };
    Box.Attendi(u"Impostare la cartella dell'archivio parcelle!"_s);
    Box.Attendi(u"Il programma non è stato ancora personalizzato. E' pertanto necessario procedere\n"
                u"all'inserimento dei dati identificativi dello studio."_s);
    Apri();
    QTRY_COMPARE(Schede, (QList<int>{2, 0}));
}

void TestStudioSfondo::marchi_data()
{
    QTest::addColumn<QString>("Server");
    QTest::addColumn<bool>("ConPagina");
    QTest::addColumn<QStringList>("Eventi");

    const QString Pagina = u"pagina assistenza.htm#%1 [Assistenza tecnica]"_s;
    QTest::newRow("a page of the program's own")
        << QString() << true << QStringList{Pagina.arg(u"editore"), Pagina.arg(u"sviluppo")};
    QTest::newRow("sites") << u"https://www.esempio.it"_s << false
                           << QStringList{u"indirizzo https://www.esempio.it/vdm.asp#editore"_s,
                                          u"indirizzo https://www.esempio.it/vdm.asp#sviluppo"_s};
    QTest::newRow("neither") << QString() << false << QStringList();
}

void TestStudioSfondo::marchi()
{
    QFETCH(QString, Server);
    QFETCH(bool, ConPagina);
    QFETCH(QStringList, Eventi);
    const Registratore Box;
    const auto Ripristino = qScopeGuard([] { SalvaImpostazione(indirizzi::ChiaveServer.toString(), {}); });
    SalvaImpostazione(indirizzi::ChiaveServer.toString(), Server);
    Aperture.PaginaWeb = [this](const QString& Mostrata, const QString& Titolo) {
        S->Annota(u"pagina %1 [%2]"_s.arg(NomeFile(Mostrata), Titolo));
    };
    sessione::PercorsoProg = NuovaCartella();
    ScriviFile(sessione::PercorsoProg + u"parcelle.mdb"_s, "archivio");
    if (ConPagina)
        ScriviFile(sessione::PercorsoProg + u"assistenza.htm"_s, "<p>pagina</p>");
    const frmStudio& Scrivania = Apri();
    for (const QString& Nome : {u"imgMarvenna"_s, u"imgQB"_s}) {
        auto* Marchio = Scrivania.findChild<QToolButton*>(Nome);
        QCOMPARE(Marchio->isEnabled(), !Eventi.isEmpty());
        QCOMPARE(Marchio->toolTip(),
                 Marchio->text() +
                     (Eventi.isEmpty() ? u": la pagina manca dalla cartella del programma"_s : u": chi è"_s));
        QTest::mouseClick(Marchio, Qt::LeftButton);
    }
    QCOMPARE(S->Eventi, Eventi);
}

/// A picture among those of the program folder, and the one of the session.
void TestStudioSfondo::MettiSfondo(const QString& Nome, const QImage& Immagine)
{
    CreaCartella(sessione::PercorsoProg + u"sfondi"_s);
    QVERIFY(Immagine.save(sessione::PercorsoProg + u"sfondi/"_s + Nome));
    sessione::SfondoDesktop = Nome;
}

#include "TestStudioSfondo.moc"
