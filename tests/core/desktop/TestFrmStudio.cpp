#include "core/app/scena.h"

#include "core/aperture.h"
#include "core/desktop/iconastudio.h"
#include "core/indirizzi.h"
#include "core/parametri.h"
#include "core/posti.h"
#include "platform/base/errore.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/testobordo.h"
#include "platform/system/file.h"

#include <QImage>
#include <QMap>
#include <QMdiArea>
#include <QMenu>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScopeGuard>
#include <QTextDocument>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <memory>

class TestFrmStudio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void iconeFisse_data();
    void iconeFisse();
    void clicConLaClessidra();
    void guastoDiUnComando();
    void segnoSottoIlPuntatore();
    void segnoLeggibile_data();
    void segnoLeggibile();
    void segnoColFuoco();
    void frecce_data();
    void frecce();
    void invioApre();
    void bordoDelTesto();
    void ogniControlloHaUnNome();

    void coloreDiSfondo();
    void immagineDiSfondo();
    void immagineDiSfondoGuasta();
    void laPrimaPitturaNonLeggeImmagini();
    void unoSfondoNuovoNonLampeggia();
    void loSfondoSegueLaMisura();
    void versione();
    void iconePersonali();
    void titoloDiIconaAllaLettera();
    void ridisegnoNonRaddoppia();
    void collegamenti();
    void collegamentoCheManca();
    void laCorniceSegueLoSfondo();
    void titoloLungo();
    void menuDellIcona_data();
    void menuDellIcona();
    void preparazioneDueVolte();
    void ridisegnaMentreUnaIconaEPremuta();
    void senzaFigura();
    void figuraNonStirata();
    void fileDelleIconeIlleggibile();
    void ridottaTornaInVista();

    void archivioParcelleMancante_data();
    void archivioParcelleMancante();
    void studioSenzaNome();
    void laRispostaNonRiattiva();
    void laCorniceSparisce();
    void ordineDellAttivazione();
    void nascostaSiRidisegnaTornando();
    void aggiornamentiUnaVolta();
    void recuperoOffertoUnaVolta();
    void traccia();
    void tracciaPrimaDiUnErrore();

    void chiusura();
    void chiusuraSenzaImpostazioniScrivibili();
    void uscita();
    void marchi_data();
    void marchi();
    void iconeSenzaLavoro();
    void leScritteHannoUnaMisura_data();
    void leScritteHannoUnaMisura();
    void ilPrimoFuocoEDellaPrimaIcona();
    void unaSolaPrimaAttivazione();
    void laTracciaNonAllargaLaProssima();
    void ricordaIlPosto();
    void laPrimaAttivazioneFinisceUnaVolta();

private:
    frmStudio& Apri();
    static void MettiSfondo(const QString& Nome, const QImage& Immagine);
    static QColor Angolo(frmStudio& Scrivania) { return Scrivania.grab().toImage().pixelColor(2, 2); }
    static QPoint Centro(const QWidget* Uno) { return Uno->rect().center(); }

    std::unique_ptr<Scena> S;
};
PROVA(TestFrmStudio);

namespace {

struct Fissa
{
    QStringView Etichetta;
    QStringView Comando;
};

constexpr std::array Fisse{
    Fissa{u"Parcellazione nuove tariffe", u"new"},
    Fissa{u"Parcellazione vecchie tariffe", u"kr2"},
    Fissa{u"Rubrica clienti", u"clienti"},
    Fissa{u"Computo termini", u"termini"},
    Fissa{u"Termini sequenziali", u"sequenz"},
    Fissa{u"Calcolo interessi", u"inter"},
    Fissa{u"Rivalutazione Istat", u"istat"},
    Fissa{u"Codice fiscale", u"codfis"},
    Fissa{u"Contributo unificato", u"contrib"},
    Fissa{u"Documentazione normativa", u"docum"},
    Fissa{u"Guida giuridica", u"guida"},
    Fissa{u"Elenco siti web utili", u"link"},
    Fissa{u"Novità", u"novita"},
    Fissa{u"Aggiorna programma", u"upgrade"},
    Fissa{u"Impostazioni", u"setup"},
};

/// A program folder with the icons of a user in it.
QString ProgrammaConIcone(const QByteArray& Righe)
{
    const QString Cartella = NuovaCartella();
    ScriviFile(Cartella + u"parcelle.mdb"_s, "x");
    ScriviFile(Cartella + u"kr5.ini"_s, "[desktop]\r\n" + Righe);
    return Cartella;
}

/// Contrast of two colours, from 1 to 21, as the rules for readable pages reckon it.
double Contrasto(const QColor& Uno, const QColor& Altro)
{
    const auto Luce = [](const QColor& C) {
        const auto Canale = [](double V) {
            return V <= 0.03928 ? V / 12.92 : std::pow((V + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * Canale(C.redF()) + 0.7152 * Canale(C.greenF()) + 0.0722 * Canale(C.blueF());
    };
    const auto [Scura, Chiara] = std::minmax({Luce(Uno), Luce(Altro)});
    return (Chiara + 0.05) / (Scura + 0.05);
}

QImage TintaUnita(const QColor& Tinta)
{
    QImage Immagine(8, 8, QImage::Format_RGB32);
    Immagine.fill(Tinta);
    return Immagine;
}

int Conta(const QImage& Immagine, const QColor& Colore)
{
    int Quanti = 0;
    for (int y = 0; y < Immagine.height(); ++y)
        for (int x = 0; x < Immagine.width(); ++x)
            Quanti += Immagine.pixelColor(x, y) == Colore;
    return Quanti;
}

/// The colour that the most points have.
QColor Prevalente(const QImage& Immagine)
{
    QMap<QRgb, int> Quanti;
    for (int y = 0; y < Immagine.height(); ++y)
        for (int x = 0; x < Immagine.width(); ++x)
            ++Quanti[Immagine.pixel(x, y)];
    return QColor(std::ranges::max_element(Quanti).key());
}

}  // namespace

void TestFrmStudio::init()
{
    S = std::make_unique<Scena>();
    S->Preparata();
}

void TestFrmStudio::cleanup()
{
    S.reset();
}

frmStudio& TestFrmStudio::Apri()
{
    frmStudio& Scrivania = Singola<frmStudio>();
    Scrivania.Mostra();
    (void)QTest::qWaitForWindowActive(&Scrivania);
    Respiro();
    return Scrivania;
}

/// A picture among those of the program folder, and the one of the session.
void TestFrmStudio::MettiSfondo(const QString& Nome, const QImage& Immagine)
{
    CreaCartella(sessione::PercorsoProg + u"sfondi"_s);
    QVERIFY(Immagine.save(sessione::PercorsoProg + u"sfondi/"_s + Nome));
    sessione::SfondoDesktop = Nome;
}

void TestFrmStudio::iconeFisse_data()
{
    QTest::addColumn<int>("Indice");
    for (size_t i = 0; i < Fisse.size(); ++i)
        QTest::newRow(qPrintable(Fisse[i].Comando.toString())) << int(i);
}

void TestFrmStudio::iconeFisse()
{
    QFETCH(int, Indice);
    const frmStudio& Scrivania = Singola<frmStudio>();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()));
    const IconaStudio* Icona = Scrivania.imgMenu(Indice);
    QCOMPARE(Icona->text(), Fisse[size_t(Indice)].Etichetta.toString());
    QCOMPARE(Icona->Tag(), Fisse[size_t(Indice)].Comando.toString());
    QCOMPARE(Icona->objectName(), u"imgMenu_%1"_s.arg(Indice));
    QVERIFY2(!aspetto::Icona(Icona->Tag()).isNull(), "without a picture");
    for (int i = 0; i < Scrivania.NumeroIcone(); ++i)
        QVERIFY(i == Indice || !Icona->geometry().intersects(Scrivania.imgMenu(i)->geometry()));
}

void TestFrmStudio::clicConLaClessidra()
{
    const Registratore Box;
    const frmStudio& Scrivania = Apri();
    S->Clessidre.clear();
    Aperture.Finestre[u"termini"_s] = [this] { S->Annota(u"termini, puntatore "_s + S->Clessidre); };
    QTest::mouseClick(Scrivania.imgMenu(3), Qt::LeftButton);
    QCOMPARE(S->Eventi, QStringList{u"termini, puntatore +"_s});
    QCOMPARE(S->Clessidre, u"+-"_s);
}

void TestFrmStudio::guastoDiUnComando()
{
    Registratore Box;
    const frmStudio& Scrivania = Apri();
    Aperture.Finestre[u"termini"_s] = [] { throw Errore(7); };
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(7) + u" (7)"_s);
    QTest::mouseClick(Scrivania.imgMenu(3), Qt::LeftButton);
    QVERIFY(S->Clessidre.endsWith(u'-'));
}

void TestFrmStudio::segnoSottoIlPuntatore()
{
    frmStudio& Scrivania = Apri();
    const QColor Normale = aspetto::DaBgr(sessione::ColoreEtichette);
    const QColor Segno = aspetto::DaBgr(sessione::ColoreEtichettaSel);
    Scrivania.Menu(2);
    QCOMPARE(Scrivania.imgMenu(2)->ColoreTesto(), Segno);
    Scrivania.Menu(5);
    QCOMPARE(Scrivania.imgMenu(2)->ColoreTesto(), Normale);
    QCOMPARE(Scrivania.imgMenu(5)->ColoreTesto(), Segno);
    Scrivania.Menu(frmStudio::NessunaIcona);
    QCOMPARE(Scrivania.imgMenu(5)->ColoreTesto(), Normale);

    QEnterEvent Entra(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    QCoreApplication::sendEvent(Scrivania.imgMenu(7), &Entra);
    QCOMPARE(Scrivania.Marcata(), 7);
    QCOMPARE(Scrivania.imgMenu(7)->ColoreTesto(), Segno);
    QEvent Esce(QEvent::Leave);
    QCoreApplication::sendEvent(Scrivania.imgMenu(7), &Esce);
    QCOMPARE(Scrivania.Marcata(), frmStudio::NessunaIcona);
    QCOMPARE(Scrivania.imgMenu(7)->ColoreTesto(), Normale);
}

void TestFrmStudio::segnoLeggibile_data()
{
    QTest::addColumn<int>("Sfondo");

    QTest::newRow("the usual green") << 2508052;
    QTest::newRow("red") << 0x0000FF;
    QTest::newRow("white") << 0xFFFFFF;
    QTest::newRow("black") << 0;
}

void TestFrmStudio::segnoLeggibile()
{
    QFETCH(int, Sfondo);
    sessione::ColoreSfondoDesktop = Sfondo;
    sessione::SfondoDesktop = u"manca.jpg"_s;
    frmStudio& Scrivania = Apri();
    const QRect Icona(Scrivania.imgMenu(8)->mapTo(&Scrivania, QPoint()), Scrivania.imgMenu(8)->size());
    Scrivania.Menu(8);
    const QImage Vista = Scrivania.grab(Icona).toImage();
    constexpr int MezzaScritta = 25;
    const QRect Riga(Vista.width() / 2 - MezzaScritta, IconaStudio::Immagine + 7, 2 * MezzaScritta, 10);
    const double Visto =
        Contrasto(aspetto::DaBgr(sessione::ColoreEtichettaSel), Prevalente(Vista.copy(Riga)));
    QVERIFY2(Visto >= 3.5, qPrintable(QString::number(Visto)));
    // The plate is no wider than its label needs.
    QCOMPARE(Vista.pixelColor(0, Riga.center().y()), aspetto::DaBgr(Sfondo));
}

void TestFrmStudio::segnoColFuoco()
{
    frmStudio& Scrivania = Apri();
    Scrivania.imgMenu(4)->setFocus();
    QCOMPARE(Scrivania.Marcata(), 4);
    Scrivania.imgMenu(5)->setFocus();
    QCOMPARE(Scrivania.Marcata(), 5);
    // The activation unmarks, whatever has the focus.
    Scrivania.Form_Activate();
    QCOMPARE(Scrivania.Marcata(), frmStudio::NessunaIcona);
}

void TestFrmStudio::frecce_data()
{
    QTest::addColumn<int>("Da");
    QTest::addColumn<int>("Tasto");
    QTest::addColumn<int>("A");

    QTest::newRow("right") << 0 << int(Qt::Key_Right) << 1;
    QTest::newRow("left") << 7 << int(Qt::Key_Left) << 6;
    QTest::newRow("down") << 3 << int(Qt::Key_Down) << 8;
    QTest::newRow("up") << 14 << int(Qt::Key_Up) << 9;
    QTest::newRow("right at the end of a row") << 4 << int(Qt::Key_Right) << 4;
    QTest::newRow("left at the beginning of a row") << 5 << int(Qt::Key_Left) << 5;
    QTest::newRow("up from the first row") << 2 << int(Qt::Key_Up) << 2;
    QTest::newRow("down from the last row") << 12 << int(Qt::Key_Down) << 12;
    QTest::newRow("home") << 12 << int(Qt::Key_Home) << 0;
    QTest::newRow("end") << 2 << int(Qt::Key_End) << 14;
}

void TestFrmStudio::frecce()
{
    QFETCH(int, Da);
    QFETCH(int, Tasto);
    QFETCH(int, A);
    const frmStudio& Scrivania = Apri();
    Scrivania.imgMenu(Da)->setFocus();
    Premi(Qt::Key(Tasto));
    QCOMPARE(QApplication::focusWidget(), Scrivania.imgMenu(A));
    QCOMPARE(Scrivania.Marcata(), A);
}

void TestFrmStudio::invioApre()
{
    const Registratore Box;
    frmStudio& Scrivania = Apri();
    Aperture.Finestre[u"sequenz"_s] = [this] { S->Annota(u"sequenziali"_s); };
    // From the desktop itself the first arrow comes to the first icon.
    Scrivania.setFocus();
    QKeyEvent Giu(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(&Scrivania, &Giu);
    QCOMPARE(QApplication::focusWidget(), Scrivania.imgMenu(0));
    Premi(Qt::Key_End);
    Premi(Qt::Key_Up);
    Premi(Qt::Key_Up);
    for (const Qt::Key Tasto : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        S->Eventi.clear();
        Premi(Tasto);
        QCOMPARE(S->Eventi, QStringList{u"sequenziali"_s});
    }
}

void TestFrmStudio::bordoDelTesto()
{
    QFont Carattere;
    Carattere.setPixelSize(40);
    Carattere.setStyleStrategy(QFont::NoAntialias);
    const auto Disegna = [&](const QColor& Testo, const QColor& Bordo) {
        QImage Immagine(80, 80, QImage::Format_RGB32);
        Immagine.fill(Qt::green);
        QPainter Pennello(&Immagine);
        Pennello.setFont(Carattere);
        TextBorder(Pennello, Immagine.rect(), Qt::AlignCenter, u"I"_s, Testo, Bordo);
        return Immagine;
    };
    const QImage Solo = Disegna(Qt::white, Qt::white);
    const QImage Bordato = Disegna(Qt::white, Qt::black);
    const int Bianchi = Conta(Bordato, Qt::white);
    QVERIFY(Bianchi > 0);
    QVERIFY(Conta(Bordato, Qt::black) > 0);
    // The copies lie behind: where the text is, nothing of them shows.
    QCOMPARE(Conta(Solo, Qt::white), Bianchi + Conta(Bordato, Qt::black));
}

void TestFrmStudio::ogniControlloHaUnNome()
{
    QCOMPARE(SenzaNome(&Apri()).join(u", "_s), QString());
}

void TestFrmStudio::coloreDiSfondo()
{
    sessione::SfondoDesktop = u"manca.jpg"_s;
    frmStudio& Scrivania = Apri();
    // 0xBBGGRR
    QCOMPARE(Scrivania.grab().toImage().pixelColor(2, 2), QColor(0x14, 0x45, 0x26));
}

void TestFrmStudio::immagineDiSfondo()
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

void TestFrmStudio::immagineDiSfondoGuasta()
{
    const Registratore Box;
    sessione::PercorsoProg = ProgrammaConIcone({});
    CreaCartella(sessione::PercorsoProg + u"sfondi"_s);
    ScriviFile(sessione::PercorsoProg + u"sfondi/lex.jpg"_s, "\xFF\xD8\xFF and no picture");
    sessione::SfondoDesktop = u"lex.jpg"_s;
    QCOMPARE(Apri().grab().toImage().pixelColor(2, 2), aspetto::DaBgr(sessione::ColoreSfondoDesktop));
}

void TestFrmStudio::laPrimaPitturaNonLeggeImmagini()
{
    sessione::PercorsoProg = ProgrammaConIcone({});
    MettiSfondo(u"rossa.png"_s, TintaUnita(Qt::red));
    frmStudio& Scrivania = Singola<frmStudio>();
    QCOMPARE(Angolo(Scrivania), aspetto::DaBgr(sessione::ColoreSfondoDesktop));
    Respiro();
    QCOMPARE(Angolo(Scrivania), QColor(Qt::red));
}

void TestFrmStudio::unoSfondoNuovoNonLampeggia()
{
    sessione::PercorsoProg = ProgrammaConIcone({});
    MettiSfondo(u"rossa.png"_s, TintaUnita(Qt::red));
    frmStudio& Scrivania = Apri();
    MettiSfondo(u"blu.png"_s, TintaUnita(Qt::blue));
    Scrivania.LoadGraph();
    QCOMPARE(Angolo(Scrivania), QColor(Qt::blue));
}

void TestFrmStudio::loSfondoSegueLaMisura()
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

void TestFrmStudio::versione()
{
    const frmStudio& Scrivania = Singola<frmStudio>();
    QCOMPARE(Scrivania.findChild<QLabel*>(u"lblRelease"_s)->text(), u"Release 3.0.14"_s);
}

void TestFrmStudio::iconePersonali()
{
    sessione::PercorsoProg = ProgrammaConIcone("L0=Sito\r\nL0_c=www.calcanova.example\r\nL0_i=sito.gif\r\n"
                                               "L1=Agenda\r\nL1_c=/opt/agenda\r\nL1_i=agenda.gif\r\n"
                                               "L2=Senza figura\r\nL2_c=/opt/altro\r\n"
                                               "L3=Mai letta\r\nL3_c=/opt/ultimo\r\nL3_i=ultimo.gif\r\n");
    const frmStudio& Scrivania = Singola<frmStudio>();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()) + 2);
    QCOMPARE(IconeUtente.Righe(), 2);
    const IconaStudio* Prima = Scrivania.imgMenu(15);
    QCOMPARE(Prima->text(), u"Sito"_s);
    QCOMPARE(Prima->Tag(), u"user0"_s);
    QCOMPARE(Prima->toolTip(), u"Icona personale: Sito"_s);
    QCOMPARE(Scrivania.imgMenu(16)->Tag(), u"user1"_s);
    QCOMPARE(Scrivania.imgMenu(16)->x() - Prima->x(), 100);
    QCOMPARE(Prima->y() - Scrivania.imgMenu(14)->y(), 100);
}

void TestFrmStudio::titoloDiIconaAllaLettera()
{
    sessione::PercorsoProg = ProgrammaConIcone("L0=Rossi & Bianchi\r\nL0_c=/a\r\nL0_i=a.gif\r\n"
                                               "L1=<b>Ruolo</b> &Atti\r\nL1_c=/a\r\nL1_i=a.gif\r\n");
    const frmStudio& Scrivania = Singola<frmStudio>();
    // No letter of a title is a key.
    QCOMPARE(Scrivania.imgMenu(15)->text(), u"Rossi & Bianchi"_s);
    for (const int Indice : {15, 16})
        QVERIFY(Scrivania.imgMenu(Indice)->shortcut().isEmpty());
    // The hint shows the title as it is written.
    QCOMPARE(Scrivania.imgMenu(15)->toolTip(), u"Icona personale: Rossi & Bianchi"_s);
    QTextDocument Mostrato;
    Mostrato.setHtml(Scrivania.imgMenu(16)->toolTip());
    QCOMPARE(Mostrato.toPlainText(), u"Icona personale: <b>Ruolo</b> &Atti"_s);
}

void TestFrmStudio::ridisegnoNonRaddoppia()
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

void TestFrmStudio::collegamenti()
{
    const Registratore Box;
    sessione::PercorsoProg =
        ProgrammaConIcone("L0=Sito\r\nL0_c=www.calcanova.example/Una/Pagina\r\nL0_i=s.gif\r\n"
                          "L1=Sicuro\r\nL1_c=https://calcanova.example\r\nL1_i=s.gif\r\n"
                          "L2=Agenda\r\nL2_c=agenda\r\nL2_i=a.gif\r\n");
    const QString Agenda = sessione::PercorsoProg + u"agenda"_s;
    ScriviFile(Agenda, "#!/bin/sh\n");
    QVERIFY(QFile::setPermissions(Agenda, QFile::ReadOwner | QFile::ExeOwner));
    const frmStudio& Scrivania = Apri();
    for (int i = 15; i < Scrivania.NumeroIcone(); ++i)
        Scrivania.imgMenu(i)->click();
    QCOMPARE(S->Eventi, (QStringList{u"indirizzo http://www.calcanova.example/Una/Pagina"_s,
                                     u"indirizzo https://calcanova.example"_s,
                                     u"avvia "_s + Agenda + u" in "_s + sessione::PercorsoProg}));
}

void TestFrmStudio::collegamentoCheManca()
{
    Registratore Box;
    sessione::PercorsoProg = ProgrammaConIcone("L0=Agenda\r\nL0_c=/opt/agenda\r\nL0_i=a.gif\r\n");
    const frmStudio& Scrivania = Apri();
    S->Clessidre.clear();
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(errori::FileMancante) + u": /opt/agenda (53)"_s, vbOK,
                u"Errore:"_s);
    Scrivania.imgMenu(15)->click();
    QVERIFY(S->Clessidre.endsWith(u'-'));
    // A row that has gone since does nothing.
    IconeUtente.Azzera(ColonneIcona);
    Scrivania.imgMenu(15)->click();
    QCOMPARE(S->Eventi, QStringList());
}

void TestFrmStudio::laCorniceSegueLoSfondo()
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

void TestFrmStudio::titoloLungo()
{
    const QByteArray Lungo = QByteArray("Elenco dei procedimenti della sezione ").repeated(3).trimmed();
    sessione::PercorsoProg =
        ProgrammaConIcone("L0=" + Lungo +
                          "\r\nL0_c=/a\r\nL0_i=a.gif\r\n"
                          "L1=Precipitevolissimevolmentissimamente\r\nL1_c=/a\r\nL1_i=a.gif\r\n");
    sessione::ColoreEtichette = 0x0000FF;
    sessione::ColoreEtichetteBordo = 0x0000FF;
    sessione::ColoreSfondoDesktop = 0xFFFFFF;
    frmStudio& Scrivania = Apri();
    for (const int Indice : {15, 16}) {
        const QImage Vista = Scrivania.imgMenu(Indice)->grab().toImage();
        // Nothing of the label is cut at the edges: they stay clear of its colour.
        for (int x = 0; x < Vista.width(); ++x)
            QVERIFY(Vista.pixelColor(x, Vista.height() - 1) != QColor(Qt::red));
    }
    QCOMPARE(Scrivania.imgMenu(15)->toolTip(), u"Icona personale: "_s + QString::fromLatin1(Lungo));
}

void TestFrmStudio::menuDellIcona_data()
{
    QTest::addColumn<QString>("Voce");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("edit") << u"Modifica..."_s << u"icona 1 modifica"_s;
    QTest::newRow("delete") << u"Elimina..."_s << u"icona 1 elimina"_s;
    QTest::newRow("neither") << u""_s << u""_s;
}

void TestFrmStudio::menuDellIcona()
{
    QFETCH(QString, Voce);
    QFETCH(QString, Atteso);
    sessione::PercorsoProg = ProgrammaConIcone("L0=A\r\nL0_c=/a\r\nL0_i=a.gif\r\n"
                                               "L1=B\r\nL1_c=/b\r\nL1_i=b.gif\r\n");
    Aperture.IconaPersonale = [this](int Riga, bool Elimina) {
        S->Annota(u"icona %1 "_s.arg(Riga) + (Elimina ? u"elimina"_s : u"modifica"_s));
    };
    const frmStudio& Scrivania = Apri();
    QTimer::singleShot(0, this, [&] {
        auto* Menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(Menu);
        for (QAction* Azione : Menu->actions())
            if (Azione->text().remove(u'&') == Voce)
                Menu->setActiveAction(Azione);
        QTest::keyClick(Menu, Voce.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        if (QApplication::activePopupWidget())
            Menu->close();
    });
    QContextMenuEvent Chiesto(QContextMenuEvent::Mouse, QPoint(5, 5),
                              Scrivania.imgMenu(16)->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(Scrivania.imgMenu(16), &Chiesto);
    QCOMPARE(S->Eventi.join(u' '), Atteso);
}

void TestFrmStudio::preparazioneDueVolte()
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

void TestFrmStudio::ridisegnaMentreUnaIconaEPremuta()
{
    const Registratore Box;
    sessione::PercorsoProg = ProgrammaConIcone("L0=Sito\r\nL0_c=www.x.example\r\nL0_i=s.gif\r\n");
    frmStudio& Scrivania = Apri();
    // The click of the icon saves the settings, and the icon goes behind it.
    Shell Nuova;
    Nuova.ApriIndirizzo = [&](const QString&) {
        QFile::remove(sessione::PercorsoProg + u"kr5.ini"_s);
        Scrivania.SegnaRidisegno();
        return 0;
    };
    Shell Prima = InstallaShell(std::move(Nuova));
    Scrivania.imgMenu(15)->click();
    InstallaShell(std::move(Prima));
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()) + 1);
    Respiro();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()));
}

void TestFrmStudio::senzaFigura()
{
    sessione::PercorsoProg = ProgrammaConIcone("L0=A\r\nL0_c=/a\r\nL0_i=manca.gif\r\n");
    frmStudio& Scrivania = Apri();
    QVERIFY(Scrivania.imgMenu(15)->isVisible());
    QVERIFY(!Scrivania.grab().isNull());
}

void TestFrmStudio::figuraNonStirata()
{
    sessione::PercorsoProg = ProgrammaConIcone("L0=A\r\nL0_c=/a\r\nL0_i=larga.png\r\n");
    CreaCartella(sessione::PercorsoProg + u"icone"_s);
    QImage Larga(68, 17, QImage::Format_RGB32);
    Larga.fill(Qt::magenta);
    QVERIFY(Larga.save(sessione::PercorsoProg + u"icone/larga.png"_s));
    const int Visti = Conta(Apri().imgMenu(15)->grab().toImage(), Qt::magenta);
    // Four times as wide as high, as it is in its file.
    QVERIFY2(Visti >= 34 * 7 && Visti <= 34 * 10, qPrintable(QString::number(Visti)));
}

void TestFrmStudio::fileDelleIconeIlleggibile()
{
    Registratore Box;
    sessione::PercorsoProg = ProgrammaConIcone("L0=A\r\nL0_c=/a\r\nL0_i=a.gif\r\n");
    QVERIFY(QFile::setPermissions(sessione::PercorsoProg + u"kr5.ini"_s, {}));
    Box.Attendi(u"75 "_s + DescrizioneErrore(75));
    const frmStudio& Scrivania = Apri();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()));
    Aperture.Finestre[u"termini"_s] = [this] { S->Annota(u"termini"_s); };
    QTest::mouseClick(Scrivania.imgMenu(3), Qt::LeftButton);
    QCOMPARE(S->Eventi, QStringList{u"termini"_s});
}

void TestFrmStudio::ridottaTornaInVista()
{
    frmStudio& Scrivania = Apri();
    Scrivania.showMinimized();
    Scrivania.Mostra();
    QVERIFY(!Scrivania.isMinimized());
    QVERIFY(Scrivania.isVisible());
}

void TestFrmStudio::archivioParcelleMancante_data()
{
    QTest::addColumn<bool>("Vuoto");

    QTest::newRow("no program folder") << true;
    QTest::newRow("a folder without the archive") << false;
}

void TestFrmStudio::archivioParcelleMancante()
{
    QFETCH(bool, Vuoto);
    Registratore Box;
    sessione::PercorsoProg = Vuoto ? QString() : NuovaCartella();
    sessione::StudioNome.clear();  // the archive comes first
    Box.Attendi(u"Impostare la cartella dell'archivio parcelle!"_s, vbOK, u"Errore:"_s);
    const ChiudeImpostazioni Chiude;
    Apri();
    QTRY_COMPARE(Chiude.Aperte(), 1);
    QCOMPARE(Box.Mostrato(0).Bandiere, vbCritical);
}

void TestFrmStudio::studioSenzaNome()
{
    Registratore Box;
    sessione::StudioNome.clear();
    Box.Attendi(u"Il programma non è stato ancora personalizzato. E' pertanto necessario procedere\n"
                u"all'inserimento dei dati identificativi dello studio."_s,
                vbOK, u"Messaggio:"_s);
    const ChiudeImpostazioni Chiude;
    Apri();
    QTRY_COMPARE(Chiude.Aperte(), 1);
    QCOMPARE(Box.Mostrato(0).Bandiere, vbInformation);
}

void TestFrmStudio::laRispostaNonRiattiva()
{
    // Whoever closes the settings without a name is not asked again by the desktop that comes back.
    Registratore Box;
    Box.Tollera();
    sessione::StudioNome.clear();
    const ChiudeImpostazioni Chiude;
    frmStudio& Scrivania = Apri();
    QTRY_VERIFY(SeCaricato<frmSetup> && !SeCaricato<frmSetup>->isVisible());
    QApplication::setActiveWindow(&Scrivania);
    QTest::qWait(50);
    QCOMPARE(Box.Mostrati().size(), 1);
}

void TestFrmStudio::laCorniceSparisce()
{
    frmMain& Cornice = Singola<frmMain>();
    QVERIFY(Cornice.Area());
    Scena::ApriPosti(1);
    frmStudio& Scrivania = Apri();
    Scrivania.Form_Activate();
    Respiro();
    QVERIFY2(Cornice.isVisible(), "a note is open");
    InfoParcelle[1].Libera = true;
    Scrivania.Form_Activate();
    QVERIFY2(Cornice.isVisible(), "it may be closing its child still");
    QTRY_VERIFY(!Cornice.isVisible());
}

void TestFrmStudio::ordineDellAttivazione()
{
    Registratore Box;
    const QString Buona = sessione::PercorsoProg;
    frmStudio& Scrivania = Singola<frmStudio>();
    frmMain& Cornice = Singola<frmMain>();
    QVERIFY(Cornice.Area());
    sessione::PercorsoProg = NuovaCartella();
    ScriviFile(sessione::PercorsoProg + u"kr5.ini"_s, "[desktop]\r\nL0=A\r\nL0_c=/a\r\nL0_i=a.gif\r\n");
    sessione::ModoDebug = true;
    sessione::CercaAgg = true;
    const auto Segna = [&](const QString& Passo) {
        // What a step has put off is done before it is looked at.
        Respiro();
        S->Annota(u"%1: %2 personali, cornice %3"_s.arg(Passo)
                      .arg(Scrivania.NumeroIcone() - int(Fisse.size()))
                      .arg(Cornice.isVisible()));
    };
    Aperture.MostraTraccia = [this, &Scrivania](const QString& Testo) {
        S->Annota(u"%1: %2 personali"_s.arg(Testo.trimmed().section(u"- "_s, -1))
                      .arg(Scrivania.NumeroIcone() - int(Fisse.size())));
    };
    Aperture.Impostazioni = [&](int Scheda, bool) {
        Segna(u"impostazioni %1"_s.arg(Scheda));
        sessione::PercorsoProg = Buona;
    };
    Aperture.CercaAggiornamenti = [&] {
        Segna(u"aggiornamenti"_s);
        sessione::CercaAgg = false;
    };
    Aperture.OffriRecupero = [&] { S->Annota(u"recupero"_s); };
    Box.Attendi(u"Impostare la cartella dell'archivio parcelle!"_s, vbOK, u"Errore:"_s);
    Scrivania.show();
    Scrivania.SegnaRidisegno();
    Scrivania.Form_Activate();
    QCOMPARE(S->Eventi,
             (QStringList{u"avvio form programma: 0 personali"_s, u"impostazioni 2: 1 personali, cornice 1"_s,
                          u"aggiornamenti: 1 personali, cornice 0"_s, u"fine form programma: 1 personali"_s,
                          u"recupero"_s}));
}

void TestFrmStudio::nascostaSiRidisegnaTornando()
{
    sessione::PercorsoProg = ProgrammaConIcone("L0=A\r\nL0_c=/a\r\nL0_i=a.gif\r\n");
    frmStudio& Scrivania = Apri();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()) + 1);
    Scrivania.hide();
    QVERIFY(QFile::remove(sessione::PercorsoProg + u"kr5.ini"_s));
    Scrivania.SegnaRidisegno();
    Respiro();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()) + 1);
    Scrivania.show();
    Scrivania.Form_Activate();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()));
}

void TestFrmStudio::aggiornamentiUnaVolta()
{
    sessione::CercaAgg = true;
    // The search itself lowers the flag.
    Aperture.CercaAggiornamenti = [this] {
        S->Annota(u"aggiornamenti"_s);
        sessione::CercaAgg = false;
    };
    frmStudio& Scrivania = Apri();
    QTRY_COMPARE(S->Eventi, QStringList{u"aggiornamenti"_s});
    Scrivania.Form_Activate();
    QCOMPARE(S->Eventi.size(), 1);
    // A save of the settings brings the flag back, not the search.
    sessione::CercaAgg = true;
    Scrivania.Form_Activate();
    QCOMPARE(S->Eventi.size(), 1);
}

void TestFrmStudio::recuperoOffertoUnaVolta()
{
    Aperture.OffriRecupero = [this] {
        S->Annota(SeCaricato<frmStudio>->isVisible() ? u"recupero"_s : u"senza scrivania"_s);
    };
    frmStudio& Scrivania = Apri();
    QTRY_COMPARE(S->Eventi, QStringList{u"recupero"_s});
    Scrivania.hide();
    Scrivania.Mostra();
    (void)QTest::qWaitForWindowActive(&Scrivania);
    Respiro();
    QCOMPARE(S->Eventi.size(), 1);
}

void TestFrmStudio::traccia()
{
    frmStudio& Scrivania = Apri();
    const auto* Riquadro = Scrivania.findChild<QPlainTextEdit*>(u"txtTraceError"_s);
    QVERIFY(!Riquadro->isVisible());
    QCOMPARE(sessione::TestoDebug, QString());
    sessione::ModoDebug = true;
    Scrivania.Form_Activate();
    QVERIFY(Riquadro->isVisible());
    QCOMPARE(Riquadro->toPlainText(), u"FINESTRA DEBUG:\n- avvio form programma- fine form programma\n"_s);
}

void TestFrmStudio::tracciaPrimaDiUnErrore()
{
    Registratore Box;
    frmStudio& Scrivania = Apri();
    sessione::TestoDebug = u"- qualcosa"_s;
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(7) + u" (7)"_s);
    GestioneErrori(Errore(7));
    QCOMPARE(Scrivania.findChild<QPlainTextEdit*>(u"txtTraceError"_s)->toPlainText(),
             u"FINESTRA DEBUG:\n- qualcosa"_s);
}

void TestFrmStudio::chiusura()
{
    const Registratore Box;
    frmStudio& Scrivania = Apri();
    Scena::ApriPosti(2);
    InfoParcelle[1].Modificata = true;
    Aperture.ChiudiParcella = [this](int) { return S->Annota(u"chiudi"_s) == 0; };
    Scrivania.close();
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestFrmStudio::chiusuraSenzaImpostazioniScrivibili()
{
    const Registratore Box;
    frmStudio& Scrivania = Apri();
    QFile::remove(Scena::FileImpostazioni());
    QVERIFY(QDir().mkpath(Scena::FileImpostazioni() + u"/x"_s));
    Scrivania.close();
    QVERIFY(QDir(Scena::FileImpostazioni()).removeRecursively());
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestFrmStudio::uscita()
{
    const Registratore Box;
    const frmStudio& Scrivania = Apri();
    QTest::mouseClick(Scrivania.findChild<QWidget*>(u"imgClose"_s), Qt::LeftButton);
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestFrmStudio::marchi_data()
{
    QTest::addColumn<QString>("Server");
    QTest::addColumn<bool>("ConPagina");
    QTest::addColumn<QStringList>("Eventi");

    const QString Pagina = u"pagina assistenza.htm#%1 [Assistenza tecnica]"_s;
    QTest::newRow("a page of the program's own")
        << QString() << true << QStringList{Pagina.arg(u"editore"), Pagina.arg(u"sviluppo")};
    QTest::newRow("sites") << u"https://www.esempio.it"_s << false
                           << QStringList{u"indirizzo https://www.esempio.it/"_s,
                                          u"indirizzo https://www.esempio.it/sviluppo.htm"_s};
    QTest::newRow("neither") << QString() << false << QStringList();
}

void TestFrmStudio::marchi()
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

void TestFrmStudio::iconeSenzaLavoro()
{
    const Registratore Box;
    Aperture.Finestre.erase(u"clienti"_s);
    frmStudio& Scrivania = Apri();
    for (const IconaStudio* Icona : Scrivania.findChildren<IconaStudio*>()) {
        const QString Motivo = Impedimento(Icona->Tag());
        QCOMPARE(Icona->isEnabled(), Motivo.isEmpty());
        QCOMPARE(Icona->toolTip(), Motivo.isEmpty() ? QString() : Icona->text() + u": "_s + Motivo);
    }
    QVERIFY(!Scrivania.imgMenu(2)->isEnabled());
    QTest::mouseClick(Scrivania.imgMenu(2), Qt::LeftButton);
    Scrivania.Menu(2);
    QCOMPARE(Scrivania.Marcata(), frmStudio::NessunaIcona);
    // The arrows pass over it.
    Scrivania.imgMenu(1)->setFocus();
    Premi(Qt::Key_Right);
    QCOMPARE(QApplication::focusWidget(), Scrivania.imgMenu(3));
}

void TestFrmStudio::leScritteHannoUnaMisura_data()
{
    QTest::addColumn<int>("Punti");
    for (const int Punti : {9, 10, 13, 16})
        QTest::addRow("%d pt", Punti) << Punti;
}

void TestFrmStudio::leScritteHannoUnaMisura()
{
    QFETCH(int, Punti);
    const QFont Prima = QApplication::font();
    QFont Grande = Prima;
    Grande.setPointSize(Punti);
    QApplication::setFont(Grande);
    const frmStudio& Scrivania = Apri();
    const int Pixel = Scrivania.imgMenu(0)->AltezzaCarattere();
    QFont Carattere = Scrivania.font();
    Carattere.setPixelSize(Pixel);
    const QFontMetrics Misure(Carattere);
    for (int i = 0; i < int(Fisse.size()); ++i) {
        const IconaStudio* Icona = Scrivania.imgMenu(i);
        QCOMPARE(Icona->AltezzaCarattere(), Pixel);
        const QRect Spazio(0, 0, IconaStudio::Larghezza - 2,
                           IconaStudio::Altezza - IconaStudio::Immagine - 6);
        const QRect Scritta = Misure.boundingRect(Spazio, Qt::TextWordWrap | Qt::AlignHCenter, Icona->text());
        QVERIFY2(Spazio.contains(Scritta), qPrintable(Icona->text()));
    }
    QApplication::setFont(Prima);
    QVERIFY2(Pixel >= 9, "readable");
}

void TestFrmStudio::ilPrimoFuocoEDellaPrimaIcona()
{
    const frmStudio& Scrivania = Apri();
    QCOMPARE(QApplication::focusWidget(), Scrivania.imgMenu(0));
}

void TestFrmStudio::unaSolaPrimaAttivazione()
{
    sessione::ModoDebug = true;
    frmStudio& Scrivania = Apri();
    QTRY_VERIFY(!sessione::TestoDebug.isEmpty());
    QTest::qWait(50);
    QCOMPARE(sessione::TestoDebug, u"- avvio form programma- fine form programma\n"_s);
    QVERIFY(Scrivania.isVisible());
}

void TestFrmStudio::laTracciaNonAllargaLaProssima()
{
    frmStudio& Scrivania = Apri();
    const QSize Prima = Scrivania.size();
    Aperture.MostraTraccia(u"FINESTRA DEBUG:\n- prova"_s);
    Respiro();
    QVERIFY(Scrivania.height() > Prima.height());
    Scrivania.close();
    QVERIFY2(Scena::Parametro(u"Posto_frmStudio"_s).isEmpty(), "nobody has touched it");
}

void TestFrmStudio::ricordaIlPosto()
{
    ProvaPosto(u"frmStudio"_s, [this] {
        frmStudio& Scrivania = Apri();
        Scrivania.Mostra();
        return &Scrivania;
    });
    frmStudio& Scrivania = Apri();
    SpostaDaUtente(Scrivania, QRect(12, 54, 700, 400));
    Aperture.MostraTraccia(u"FINESTRA DEBUG:\n- prova"_s);
    Respiro();
    Scrivania.close();
    QCOMPARE(Scena::Parametro(u"Posto_frmStudio"_s), u"12,54,700,400"_s);
}

void TestFrmStudio::laPrimaAttivazioneFinisceUnaVolta()
{
    Registratore Box;
    sessione::StudioNome.clear();
    Box.Tollera();
    const ChiudeImpostazioni Chiude([this] { S->Annota(u"impostazioni chiuse"_s); });
    QObject::connect(&Singola<frmStudio>(), &frmStudio::PrimaAttivazione, this,
                     [this] { S->Annota(u"pronta"_s); });
    frmStudio& Scrivania = Apri();
    QTRY_COMPARE(S->Eventi, (QStringList{u"impostazioni chiuse"_s, u"pronta"_s}));
    sessione::StudioNome = u"Studio Bianchi"_s;
    Scrivania.Form_Activate();
    QCOMPARE(S->Eventi.size(), 2);
}

#include "TestFrmStudio.moc"
