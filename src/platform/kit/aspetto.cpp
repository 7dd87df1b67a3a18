#include "platform/kit/aspetto.h"

#include "platform/kit/icona.h"
#include "platform/kit/listaaccessibile.h"
#include "platform/kit/predefinito.h"
#include "platform/kit/stile.h"
#include "platform/kit/suggerimento.h"
#include "platform/kit/traduzioni.h"
#include "platform/system/diagnosi.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QGroupBox>
#include <QImageReader>
#include <QLocale>
#include <QPalette>
#include <QPixmap>
#include <QRawFont>

#include <cmath>

using namespace Qt::StringLiterals;

/// Resources of a static library come in only when they are asked for; the macro wants to stand outside
/// every namespace.
static void CaricaIcone()
{
    Q_INIT_RESOURCE(icone);
}

namespace {

constexpr int TwipPerPixel = 15;

void PreparaCarattere()
{
    // On a machine without a desktop the family asked for exists in no file and a monospaced one is taken.
    constexpr int CorpoPunti = 9;
    if (!QFontDatabase::hasFamily(QApplication::font().family()))
        QApplication::setFont(QFont(u"DejaVu Sans"_s, CorpoPunti));
    // Families have names even where no font is installed, and boxes stand for letters. No window could say
    // it.
    if (QRawFont::fromFont(QApplication::font()).fontTable("head").isEmpty())
        qCWarning(Diario,
                  "Nessun carattere installato: le finestre restano senza testo. Installare per esempio i "
                  "caratteri DejaVu e Liberation.");
}

void PreparaLingua()
{
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    InstallaTraduzioni();
}

}  // namespace

namespace aspetto {

int Pixel(int Twip)
{
    return int(std::lround(double(Twip) / TwipPerPixel));
}

int Twip(int Pixel)
{
    return Pixel * TwipPerPixel;
}

QColor DaBgr(int Colore)
{
    if (Colore < 0)
        return QApplication::palette().color(QPalette::Window);
    return QColor(Colore & 0xFF, (Colore >> 8) & 0xFF, (Colore >> 16) & 0xFF);
}

int ABgr(const QColor& Colore)
{
    return Colore.red() | (Colore.green() << 8) | (Colore.blue() << 16);
}

bool Scuro()
{
    const QPalette Colori = QApplication::palette();
    return Colori.color(QPalette::WindowText).lightness() > Colori.color(QPalette::Window).lightness();
}

QColor Accento()
{
    return Scuro() ? QColor(0x8F, 0xBC, 0xE6) : QColor(0x1F, 0x4E, 0x79);
}

QColor Sbagliato()
{
    return Scuro() ? QColor(0xF0, 0x90, 0x90) : QColor(0x80, 0x00, 0x00);
}

QColor RigaSelezionata()
{
    return QColor(247, 223, 111);
}

QColor TestoRigaSelezionata()
{
    return QColor(0x20, 0x20, 0x20);
}

QColor Filo()
{
    const QPalette Colori = QApplication::palette();
    constexpr double Tenue = 0.18;
    return Mischia(Colori.color(QPalette::Text), Colori.color(QPalette::Base), Tenue);
}

QColor Mischia(const QColor& Sopra, const QColor& Sotto, double Parte)
{
    const auto Canale = [Parte](int A, int B) { return int(std::lround(A * Parte + B * (1 - Parte))); };
    return QColor(Canale(Sopra.red(), Sotto.red()), Canale(Sopra.green(), Sotto.green()),
                  Canale(Sopra.blue(), Sotto.blue()));
}

void Prepara()
{
    CaricaIcone();
    QApplication::setStyle(new StileProgramma);
    PreparaCarattere();
    PreparaLingua();
    InstallaListeAccessibili();
    SuggerimentiLeggibili();
    SeguiInvio();
    QApplication::setWindowIcon(Icona(u"calcanova"_s));
    QApplication::setDesktopFileName(
        u"calcanova"_s);  // of its entry in the menu, by which a desktop groups its windows
}

void TitoliInGrassetto(QWidget* Modulo)
{
    for (QGroupBox* Gruppo : Modulo->findChildren<QGroupBox*>()) {
        // A child without a weight of its own takes its parent's.
        for (QWidget* Figlio : Gruppo->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            QFont Suo = Figlio->font();
            Suo.setWeight(Suo.weight());
            Figlio->setFont(Suo);
        }
        QFont Grande = Gruppo->font();
        Grande.setBold(true);
        Gruppo->setFont(Grande);
    }
}

QPixmap LeggiImmagine(const QString& File, const QSize& Misura)
{
    if (File.isEmpty())
        return {};
    QImageReader Lettore(File);
    Lettore.setScaledSize(Misura);
    return QPixmap::fromImageReader(&Lettore);
}

QIcon Icona(const QString& Nome)
{
    CaricaIcone();
    auto* Motore = new MotoreIcona(Nome);
    if (!Motore->isNull())
        return QIcon(Motore);
    delete Motore;
    return {};
}

}  // namespace aspetto
