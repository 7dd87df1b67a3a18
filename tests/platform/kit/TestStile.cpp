// What the program's style draws otherwise than the toolkit's.
#include "platform/kit/campo.h"
#include "platform/kit/predefinito.h"
#include "supporto/prova.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOptionComboBox>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

class TestStile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void iBottoniDeiBoxSonoSenzaDisegni();
    void laFrecciaDelMenu();
    void laParolaNonToccaLaFreccia();
    void laVoceLungaLoDice();
    void laVoceCheCiStaRestaIntera();
    void ilMenuSpentoNonHaToppe();
    void ilPredefinitoSiAccendeDoveInvioLoPreme();
};
PROVA(TestStile);

namespace {

/// The box of what is drawn on a button from a column on.
QRect Segno(const QImage& Disegno, int Da)
{
    QRect Tutto;
    constexpr int Orlo = 4;
    for (int y = Orlo; y < Disegno.height() - Orlo; ++y)
        for (int x = Da; x < Disegno.width() - Orlo; ++x)
            if (Disegno.pixelColor(x, y).lightness() < 128)
                Tutto |= QRect(x, y, 1, 1);
    return Tutto;
}

QToolButton* Bottone(QWidget* Padre, bool ConMenu)
{
    auto* Nuovo = new QToolButton(Padre);
    Nuovo->setText(u"Per cliente"_s);
    Nuovo->setPopupMode(QToolButton::InstantPopup);
    if (ConMenu)
        Nuovo->setMenu(new QMenu(Nuovo));
    Nuovo->resize(Nuovo->sizeHint());
    return Nuovo;
}

}  // namespace

void TestStile::iBottoniDeiBoxSonoSenzaDisegni()
{
    QMessageBox Box;
    Box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel | QMessageBox::Ok);
    QCOMPARE(Box.buttons().size(), 4);
    for (const QAbstractButton* Suo : Box.buttons())
        QVERIFY2(Suo->icon().isNull(), qPrintable(Suo->text()));
    QCOMPARE(Box.style()->styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons, nullptr, &Box), 0);
}

/// As large as that of a list, and in the middle of the height.
void TestStile::laFrecciaDelMenu()
{
    QWidget Padre;
    QToolButton* Suo = Bottone(&Padre, true);
    const int Stretto = Bottone(&Padre, false)->width();
    QVERIFY2(Suo->width() >= Stretto + 10, "la freccia ha il suo posto");
    const QRect Freccia = Segno(Suo->grab().toImage(), Stretto - 4);
    QVERIFY2(Freccia.width() >= 6 && Freccia.height() >= 3,
             qPrintable(u"%1 x %2"_s.arg(Freccia.width()).arg(Freccia.height())));
    QVERIFY2(qAbs(Freccia.center().y() - Suo->rect().center().y()) <= 2, "a mezza altezza");
}

void TestStile::laParolaNonToccaLaFreccia()
{
    QWidget Padre;
    QToolButton* Con = Bottone(&Padre, true);
    QToolButton* Senza = Bottone(&Padre, false);
    constexpr int Orlo = 4;
    const QRect Parola = Segno(Senza->grab().toImage(), Orlo);
    const QImage Tutto = Con->grab().toImage();
    QCOMPARE(Segno(Tutto.copy(0, 0, Parola.right() + 5, Tutto.height()), Orlo), Parola);
}

void TestStile::laVoceLungaLoDice()
{
    const auto Elenco = [](const QString& Voce) {
        auto Nuovo = std::make_unique<QComboBox>();
        Nuovo->addItem(Voce);
        Nuovo->resize(160, Nuovo->sizeHint().height());
        return Nuovo;
    };
    const QString Lunga = u"Tribunale - cognizione ordinaria e sommaria"_s;
    const auto Cercata = Elenco(Lunga);
    const QImage Disegno = Cercata->grab().toImage();
    QStyleOptionComboBox Opzioni;
    Opzioni.initFrom(Cercata.get());
    const int Campo =
        Cercata->style()
            ->subControlRect(QStyle::CC_ComboBox, &Opzioni, QStyle::SC_ComboBoxEditField, Cercata.get())
            .width();
    bool Detto = false;
    for (int Meno = 0; Meno <= 8 && !Detto; ++Meno) {
        const QString Corta = Cercata->fontMetrics().elidedText(Lunga, Qt::ElideRight, Campo - Meno);
        Detto = Corta.endsWith(u'…') && Elenco(Corta)->grab().toImage() == Disegno;
    }
    QVERIFY2(Detto, "le parole finiscono coi puntini");
}

/// At the width that a list asks for, whatever the letters.
void TestStile::laVoceCheCiStaRestaIntera()
{
    const std::unique_ptr<QStyle> Comune(QStyleFactory::create(u"Fusion"_s));
    for (const QString& Voce : {u"Euro"_s, u"del programma"_s, u"Tribunale - cognizione ordinaria"_s}) {
        for (int Corpo = 8; Corpo <= 16; ++Corpo) {
            const auto Disegno = [&](QStyle* Stile) {
                QComboBox Elenco;
                if (Stile)
                    Elenco.setStyle(Stile);
                QFont Lettere = Elenco.font();
                Lettere.setPointSize(Corpo);
                Elenco.setFont(Lettere);
                Elenco.addItem(Voce);
                Elenco.resize(Elenco.sizeHint());
                return Elenco.grab().toImage();
            };
            QVERIFY2(Disegno(nullptr) == Disegno(Comune.get()), qPrintable(Voce + QString::number(Corpo)));
        }
    }
}

/// Where the palette has another ground for what is disabled, as dark ones have.
void TestStile::ilMenuSpentoNonHaToppe()
{
    QPalette Colori;
    Colori.setColor(QPalette::Window, QColor(0x20, 0x20, 0x20));
    Colori.setColor(QPalette::Disabled, QPalette::Window, QColor(0xF0, 0x00, 0x00));
    QMenuBar Barra;
    Barra.setPalette(Colori);
    Barra.addAction(u"Stampa"_s)->setEnabled(false);
    Barra.resize(200, Barra.sizeHint().height());
    const QImage Disegno = Barra.grab().toImage();
    for (int x = 0; x < Disegno.width(); ++x)
        QVERIFY(Disegno.pixelColor(x, Disegno.height() / 2).red() < 0xC0);
}

/// A default button is lit where Enter presses it, and looks like any other where a field keeps Enter.
void TestStile::ilPredefinitoSiAccendeDoveInvioLoPreme()
{
    QDialog Finestra;
    auto* Colonna = new QVBoxLayout(&Finestra);
    QLineEdit Semplice;
    QLineEdit Filtrata;
    QLineEdit ConCaso;
    QPlainTextEdit Righe;
    QPushButton Calcola(u"Calcola"_s);
    QPushButton Copia(u"Copia"_s);
    QToolButton Sfoglia;
    Sfoglia.setFocusPolicy(Qt::StrongFocus);
    for (QWidget* Parte :
         std::initializer_list<QWidget*>{&Semplice, &Filtrata, &ConCaso, &Righe, &Calcola, &Copia, &Sfoglia})
        Colonna->addWidget(Parte);
    for (QPushButton* Bottone : {&Calcola, &Copia})
        Bottone->setAutoDefault(false);
    Calcola.setDefault(true);
    FiltraTasti(&Filtrata, u"d"_s);
    bool Tiene = true;
    TieneInvio(&ConCaso, [&Tiene] { return Tiene; });
    int Premuto = 0;
    connect(&Calcola, &QPushButton::clicked, &Finestra, [&Premuto] { ++Premuto; });
    Finestra.show();
    QVERIFY(QTest::qWaitForWindowActive(&Finestra));

    const auto Disegno = [&] { return Calcola.grab().toImage(); };
    Semplice.setFocus();
    const QImage Acceso = Disegno();
    Calcola.setDefault(false);
    const QImage Comune = Disegno();
    Calcola.setDefault(true);
    QVERIFY(Acceso != Comune);
    struct Passo
    {
        QWidget* Dove;
        bool Acceso;
    };
    int Copiato = 0;
    connect(&Copia, &QPushButton::clicked, &Finestra, [&Copiato] { ++Copiato; });
    connect(&Sfoglia, &QToolButton::clicked, &Finestra, [&Copiato] { ++Copiato; });
    for (const Passo& P : {Passo{&Semplice, true}, Passo{&Filtrata, false}, Passo{&Copia, false},
                           Passo{&Sfoglia, false}, Passo{&Righe, false}, Passo{&ConCaso, false}}) {
        P.Dove->setFocus();
        Premuto = 0;
        Copiato = 0;
        QCOMPARE(InvioPreme(&Calcola), P.Acceso);
        QCOMPARE(Disegno() == Acceso, P.Acceso);
        QCOMPARE(Disegno() == Comune, !P.Acceso);
        if (P.Dove == &ConCaso)
            continue;
        QTest::keyClick(P.Dove, Qt::Key_Return);
        QCOMPARE(Premuto, int(P.Acceso));
        QCOMPARE(Copiato, int(P.Dove == &Copia || P.Dove == &Sfoglia));  // whose button it is
    }
    Tiene = false;
    QVERIFY(InvioPreme(&Calcola));
    Calcola.setFocus();
    QVERIFY(InvioPreme(&Calcola));
    QTest::keyClick(&Calcola, Qt::Key_Return);
    QCOMPARE(Premuto, 1);
}

#include "TestStile.moc"
