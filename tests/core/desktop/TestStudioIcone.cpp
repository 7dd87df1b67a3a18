// The desktop's icons, its own and the user's: how they look, open, and answer keys.
#include "studio.h"

#include "core/aperture.h"
#include "platform/base/errore.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/testobordo.h"

#include <QMap>
#include <QMenu>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

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

/// The colour that the most points have.
QColor Prevalente(const QImage& Immagine)
{
    QMap<QRgb, int> Quanti;
    for (int y = 0; y < Immagine.height(); ++y)
        for (int x = 0; x < Immagine.width(); ++x)
            ++Quanti[Immagine.pixel(x, y)];
    return QColor(std::ranges::max_element(Quanti).key());
}

/// Behind the program's own.
const int PrimaUtente = int(Fisse.size());
/// The program's own stand in three rows.
const int PerRiga = std::max(5, (PrimaUtente + 2) / 3);

/// The place of a word's icon.
int IconaDi(QStringView Comando)
{
    return int(std::ranges::find(Fisse, Comando, &Fissa::Comando) - Fisse.begin());
}

}  // namespace

class TestStudioIcone : public QObject, private BancoStudio
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
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
    void iconePersonali();
    void titoloDiIconaAllaLettera();
    void collegamenti();
    void collegamentoCheManca();
    void titoloLungo();
    void menuDellIcona_data();
    void menuDellIcona();
    void ridisegnaMentreUnaIconaEPremuta();
    void senzaFigura();
    void figuraNonStirata();
    void fileDelleIconeIlleggibile();
    void iconeSenzaLavoro();
    void leScritteHannoUnaMisura_data();
    void leScritteHannoUnaMisura();
    void ilQuadroCresceConLeLettere();
};
PROVA(TestStudioIcone);

void TestStudioIcone::iconeFisse_data()
{
    QTest::addColumn<int>("Indice");
    for (size_t i = 0; i < Fisse.size(); ++i)
        QTest::newRow(qPrintable(Fisse[i].Comando.toString())) << int(i);
}

void TestStudioIcone::iconeFisse()
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

void TestStudioIcone::clicConLaClessidra()
{
    const Registratore Box;
    const frmStudio& Scrivania = Apri();
    S->Clessidre.clear();
    Aperture.Finestre[u"termini"_s] = [this] { S->Annota(u"termini, puntatore "_s + S->Clessidre); };
    QTest::mouseClick(Scrivania.imgMenu(IconaDi(u"termini")), Qt::LeftButton);
    QCOMPARE(S->Eventi, QStringList{u"termini, puntatore +"_s});
    QCOMPARE(S->Clessidre, u"+-"_s);
}

void TestStudioIcone::guastoDiUnComando()
{
    Registratore Box;
    const frmStudio& Scrivania = Apri();
    Aperture.Finestre[u"termini"_s] = [] { throw Errore(7); };
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(7) + u" (7)"_s);
    QTest::mouseClick(Scrivania.imgMenu(IconaDi(u"termini")), Qt::LeftButton);
    QVERIFY(S->Clessidre.endsWith(u'-'));
}

void TestStudioIcone::segnoSottoIlPuntatore()
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

void TestStudioIcone::segnoLeggibile_data()
{
    QTest::addColumn<int>("Sfondo");

    QTest::newRow("the usual green") << 2508052;
    QTest::newRow("red") << 0x0000FF;
    QTest::newRow("white") << 0xFFFFFF;
    QTest::newRow("black") << 0;
}

void TestStudioIcone::segnoLeggibile()
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

void TestStudioIcone::segnoColFuoco()
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

void TestStudioIcone::frecce_data()
{
    QTest::addColumn<int>("Da");
    QTest::addColumn<int>("Tasto");
    QTest::addColumn<int>("A");

    const int Ultima = PrimaUtente - 1;
    QTest::newRow("right") << 0 << int(Qt::Key_Right) << 1;
    QTest::newRow("left") << PerRiga + 2 << int(Qt::Key_Left) << PerRiga + 1;
    QTest::newRow("down") << 3 << int(Qt::Key_Down) << PerRiga + 3;
    QTest::newRow("up") << Ultima << int(Qt::Key_Up) << Ultima - PerRiga;
    QTest::newRow("right at the end of a row") << PerRiga - 1 << int(Qt::Key_Right) << PerRiga - 1;
    QTest::newRow("left at the beginning of a row") << PerRiga << int(Qt::Key_Left) << PerRiga;
    QTest::newRow("up from the first row") << 2 << int(Qt::Key_Up) << 2;
    QTest::newRow("down from the last row") << 2 * PerRiga + 1 << int(Qt::Key_Down) << 2 * PerRiga + 1;
    QTest::newRow("home") << 2 * PerRiga + 1 << int(Qt::Key_Home) << 0;
    QTest::newRow("end") << 2 << int(Qt::Key_End) << Ultima;
}

void TestStudioIcone::frecce()
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

void TestStudioIcone::invioApre()
{
    const Registratore Box;
    frmStudio& Scrivania = Apri();
    Aperture.Finestre[u"sequenz"_s] = [this] { S->Annota(u"sequenziali"_s); };
    // From the desktop itself the first arrow comes to the first icon.
    Scrivania.setFocus();
    QKeyEvent Giu(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(&Scrivania, &Giu);
    QCOMPARE(QApplication::focusWidget(), Scrivania.imgMenu(0));
    Scrivania.imgMenu(IconaDi(u"sequenz"))->setFocus();
    for (const Qt::Key Tasto : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        S->Eventi.clear();
        Premi(Tasto);
        QCOMPARE(S->Eventi, QStringList{u"sequenziali"_s});
    }
}

void TestStudioIcone::bordoDelTesto()
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

void TestStudioIcone::ogniControlloHaUnNome()
{
    QCOMPARE(SenzaNome(&Apri()).join(u", "_s), QString());
}

void TestStudioIcone::iconePersonali()
{
    sessione::PercorsoProg = ProgrammaConIcone("L0=Sito\r\nL0_c=www.calcanova.example\r\nL0_i=sito.gif\r\n"
                                               "L1=Agenda\r\nL1_c=/opt/agenda\r\nL1_i=agenda.gif\r\n"
                                               "L2=Senza figura\r\nL2_c=/opt/altro\r\n"
                                               "L3=Mai letta\r\nL3_c=/opt/ultimo\r\nL3_i=ultimo.gif\r\n");
    const frmStudio& Scrivania = Singola<frmStudio>();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()) + 2);
    QCOMPARE(IconeUtente.Righe(), 2);
    const IconaStudio* Prima = Scrivania.imgMenu(PrimaUtente);
    QCOMPARE(Prima->text(), u"Sito"_s);
    QCOMPARE(Prima->Tag(), u"user0"_s);
    QCOMPARE(Prima->toolTip(), u"Icona personale: Sito"_s);
    QCOMPARE(Scrivania.imgMenu(PrimaUtente + 1)->Tag(), u"user1"_s);
    QCOMPARE(Scrivania.imgMenu(PrimaUtente + 1)->x() - Prima->x(), 100);
    QCOMPARE(Prima->y() - Scrivania.imgMenu(PrimaUtente - 1)->y(), 100);
}

void TestStudioIcone::titoloDiIconaAllaLettera()
{
    sessione::PercorsoProg = ProgrammaConIcone("L0=Rossi & Bianchi\r\nL0_c=/a\r\nL0_i=a.gif\r\n"
                                               "L1=<b>Ruolo</b> &Atti\r\nL1_c=/a\r\nL1_i=a.gif\r\n");
    const frmStudio& Scrivania = Singola<frmStudio>();
    // No letter of a title is a key.
    QCOMPARE(Scrivania.imgMenu(PrimaUtente)->text(), u"Rossi & Bianchi"_s);
    for (const int Indice : {PrimaUtente, PrimaUtente + 1})
        QVERIFY(Scrivania.imgMenu(Indice)->shortcut().isEmpty());
    // The hint shows the title as it is written.
    QCOMPARE(Scrivania.imgMenu(PrimaUtente)->toolTip(), u"Icona personale: Rossi & Bianchi"_s);
    QCOMPARE(Scrivania.imgMenu(PrimaUtente + 1)->toolTip(), u"Icona personale: <b>Ruolo</b> &Atti"_s);
}

void TestStudioIcone::collegamenti()
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
    for (int i = PrimaUtente; i < Scrivania.NumeroIcone(); ++i)
        Scrivania.imgMenu(i)->click();
    QCOMPARE(S->Eventi, (QStringList{u"indirizzo http://www.calcanova.example/Una/Pagina"_s,
                                     u"indirizzo https://calcanova.example"_s,
                                     u"avvia "_s + Agenda + u" in "_s + sessione::PercorsoProg}));
}

void TestStudioIcone::collegamentoCheManca()
{
    Registratore Box;
    sessione::PercorsoProg = ProgrammaConIcone("L0=Agenda\r\nL0_c=/opt/agenda\r\nL0_i=a.gif\r\n");
    const frmStudio& Scrivania = Apri();
    S->Clessidre.clear();
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(errori::FileMancante) + u": /opt/agenda (53)"_s, vbOK,
                u"Errore:"_s);
    Scrivania.imgMenu(PrimaUtente)->click();
    QVERIFY(S->Clessidre.endsWith(u'-'));
    // A row that has gone since does nothing.
    IconeUtente.Azzera(ColonneIcona);
    Scrivania.imgMenu(PrimaUtente)->click();
    QCOMPARE(S->Eventi, QStringList());
}

void TestStudioIcone::titoloLungo()
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
    for (const int Indice : {PrimaUtente, PrimaUtente + 1}) {
        const QImage Vista = Scrivania.imgMenu(Indice)->grab().toImage();
        // Nothing of the label is cut at the edges: they stay clear of its colour.
        for (int x = 0; x < Vista.width(); ++x)
            QVERIFY(Vista.pixelColor(x, Vista.height() - 1) != QColor(Qt::red));
    }
    QCOMPARE(Scrivania.imgMenu(PrimaUtente)->toolTip(), u"Icona personale: "_s + QString::fromLatin1(Lungo));
}

void TestStudioIcone::menuDellIcona_data()
{
    QTest::addColumn<QString>("Voce");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("edit") << u"Modifica..."_s << u"icona 1 modifica"_s;
    QTest::newRow("delete") << u"Elimina..."_s << u"icona 1 elimina"_s;
    QTest::newRow("neither") << u""_s << u""_s;
}

void TestStudioIcone::menuDellIcona()
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
                              Scrivania.imgMenu(PrimaUtente + 1)->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(Scrivania.imgMenu(PrimaUtente + 1), &Chiesto);
    QCOMPARE(S->Eventi.join(u' '), Atteso);
}

void TestStudioIcone::ridisegnaMentreUnaIconaEPremuta()
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
    Scrivania.imgMenu(PrimaUtente)->click();
    InstallaShell(std::move(Prima));
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()) + 1);
    Respiro();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()));
}

void TestStudioIcone::senzaFigura()
{
    sessione::PercorsoProg = ProgrammaConIcone("L0=A\r\nL0_c=/a\r\nL0_i=manca.gif\r\n");
    frmStudio& Scrivania = Apri();
    QVERIFY(Scrivania.imgMenu(PrimaUtente)->isVisible());
    QVERIFY(!Scrivania.grab().isNull());
}

void TestStudioIcone::figuraNonStirata()
{
    sessione::PercorsoProg = ProgrammaConIcone("L0=A\r\nL0_c=/a\r\nL0_i=larga.png\r\n");
    CreaCartella(sessione::PercorsoProg + u"icone"_s);
    QImage Larga(68, 17, QImage::Format_RGB32);
    Larga.fill(Qt::magenta);
    QVERIFY(Larga.save(sessione::PercorsoProg + u"icone/larga.png"_s));
    const int Visti = Conta(Apri().imgMenu(PrimaUtente)->grab().toImage(), Qt::magenta);
    // Four times as wide as high, as it is in its file.
    QVERIFY2(Visti >= 34 * 7 && Visti <= 34 * 10, qPrintable(QString::number(Visti)));
}

void TestStudioIcone::fileDelleIconeIlleggibile()
{
    Registratore Box;
    sessione::PercorsoProg = ProgrammaConIcone("L0=A\r\nL0_c=/a\r\nL0_i=a.gif\r\n");
    QVERIFY(QFile::setPermissions(sessione::PercorsoProg + u"kr5.ini"_s, {}));
    Box.Attendi(u"75 %1: %2kr5.ini"_s.arg(DescrizioneErrore(75), sessione::PercorsoProg));
    const frmStudio& Scrivania = Apri();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()));
    Aperture.Finestre[u"termini"_s] = [this] { S->Annota(u"termini"_s); };
    QTest::mouseClick(Scrivania.imgMenu(IconaDi(u"termini")), Qt::LeftButton);
    QCOMPARE(S->Eventi, QStringList{u"termini"_s});
}

void TestStudioIcone::iconeSenzaLavoro()
{
    const Registratore Box;
    Aperture.Finestre.erase(u"clienti"_s);
    frmStudio& Scrivania = Apri();
    for (const IconaStudio* Icona : Scrivania.findChildren<IconaStudio*>()) {
        const QString Motivo = Impedimento(Icona->Tag());
        QCOMPARE(Icona->isEnabled(), Motivo.isEmpty());
        QCOMPARE(Icona->toolTip(), Motivo.isEmpty() ? QString() : Icona->text() + u": "_s + Motivo);
    }
    const int Spenta = IconaDi(u"clienti");
    QVERIFY(!Scrivania.imgMenu(Spenta)->isEnabled());
    QTest::mouseClick(Scrivania.imgMenu(Spenta), Qt::LeftButton);
    Scrivania.Menu(Spenta);
    QCOMPARE(Scrivania.Marcata(), frmStudio::NessunaIcona);
    // The arrows pass over it.
    Scrivania.imgMenu(Spenta - 1)->setFocus();
    Premi(Qt::Key_Right);
    QCOMPARE(QApplication::focusWidget(), Scrivania.imgMenu(Spenta + 1));
}

void TestStudioIcone::leScritteHannoUnaMisura_data()
{
    QTest::addColumn<int>("Punti");
    for (const int Punti : {9, 10, 13, 16})
        QTest::addRow("%d pt", Punti) << Punti;
}

void TestStudioIcone::leScritteHannoUnaMisura()
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

/// Larger letters have larger icons in larger steps, as far as the screen has room.
void TestStudioIcone::ilQuadroCresceConLeLettere()
{
    QCOMPARE(frmStudio::ScalaDelQuadro(QSize(1366, 768), 1), 1.0);
    QCOMPARE(frmStudio::ScalaDelQuadro(QSize(1366, 768), 1.4), 1.4);
    QCOMPARE(frmStudio::ScalaDelQuadro(QSize(683, 384), 1.4), 1.0);
    const double Mezza = frmStudio::ScalaDelQuadro(QSize(1024, 768), 1.4);
    QVERIFY2(Mezza > 1 && Mezza < 1.4, qPrintable(QString::number(Mezza)));

    const QString Lunga = u"Documentazione normativa"_s;
    QFont Grande = QApplication::font();
    Grande.setPixelSize(19);
    const int Piccolo = IconaStudio::AltezzaCarattere(Grande, Lunga, 1);
    const int Cresciuto = IconaStudio::AltezzaCarattere(Grande, Lunga, 1.4);
    QVERIFY2(Cresciuto >= Piccolo * 13 / 10, qPrintable(u"%1 %2"_s.arg(Piccolo).arg(Cresciuto)));
    QWidget Quadro;
    IconaStudio Icona(Lunga, {}, 1.5, &Quadro);
    Icona.MettiImmagine(QPoint(136, 312));
    QCOMPARE(Icona.size(), QSize(147, 141));
    QCOMPARE(Icona.geometry().center().x(), 204 + 83 / 2);  // below the middle of its picture
    QCOMPARE(Icona.y(), 468 - 1);
}

#include "TestStudioIcone.moc"
