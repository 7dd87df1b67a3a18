#include "print/writers/misuretesto.h"

#include "platform/document/misura.h"

#include <QList>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double QuotaRiga = 1.15;  // of the size, in both families
constexpr char16_t Primo = u' ';
constexpr char16_t Ultimo = u'~';
constexpr double Migliaia = 1000.0;

using Avanzamenti = std::array<int, Ultimo - Primo + 1>;

/// Advances of the printable ASCII characters in thousandths of the size.
constexpr Avanzamenti ConGrazie{
    250, 333, 408, 500, 500, 833, 778, 180, 333, 333, 500, 564, 250, 333, 250, 278, 500, 500, 500,
    500, 500, 500, 500, 500, 500, 500, 278, 278, 564, 564, 564, 444, 921, 722, 667, 667, 722, 611,
    556, 722, 722, 333, 389, 722, 611, 889, 722, 722, 556, 722, 667, 556, 611, 722, 722, 944, 722,
    722, 611, 333, 278, 333, 469, 500, 333, 444, 500, 444, 500, 444, 333, 500, 500, 278, 278, 500,
    278, 778, 500, 500, 500, 500, 333, 389, 278, 500, 500, 722, 500, 500, 444, 480, 200, 480, 541,
};
constexpr Avanzamenti SenzaGrazie{
    278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333,  278, 278, 556, 556, 556,
    556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556, 1015, 667, 667, 722, 722, 667,
    611, 778, 722, 278, 500, 667, 556, 833, 722, 778, 667, 778, 722, 667,  611, 722, 667, 944, 667,
    667, 611, 278, 278, 278, 469, 556, 333, 556, 556, 500, 556, 556, 278,  556, 556, 222, 222, 500,
    222, 833, 556, 556, 556, 556, 333, 500, 278, 556, 500, 722, 500, 500,  500, 334, 260, 334, 584,
};

const Avanzamenti& AvanzamentiDi(const Carattere& Font)
{
    const bool Bastoni = Font.Nome.contains("Arial"_L1) || Font.Nome.contains("Sans"_L1);
    return Bastoni ? SenzaGrazie : ConGrazie;
}

int Avanzamento(QChar C, const Avanzamenti& Tutti)
{
    if (C.unicode() > Ultimo && !C.decomposition().isEmpty())
        C = C.decomposition().front();
    const bool Noto = C.unicode() >= Primo && C.unicode() <= Ultimo;
    return Tutti[(Noto ? C.unicode() : u'0') - Primo];
}

}  // namespace

double LarghezzaTesto(QStringView Testo, const Carattere& Font)
{
    const Avanzamenti& Tutti = AvanzamentiDi(Font);
    int Somma = 0;
    for (const QChar C : Testo)
        Somma += Avanzamento(C, Tutti);
    return Somma / Migliaia * Font.Punti * CmPerPunto;
}

int RigheTesto(QStringView Testo, const Carattere& Font, double LarghezzaCm)
{
    const double Bianco = LarghezzaTesto(u" ", Font);
    int Righe = 0;
    for (const QStringView Linea : Testo.split(u'\n')) {
        double Piena = 0.0;
        ++Righe;
        for (const QStringView Parola : Linea.split(u' ')) {
            const double Larga = LarghezzaTesto(Parola, Font);
            if (Piena > 0.0 && Piena + Larga > LarghezzaCm) {
                ++Righe;
                Piena = 0.0;
            }
            if (Larga > LarghezzaCm && LarghezzaCm > 0.0)
                Righe += static_cast<int>(Larga / LarghezzaCm);
            Piena += (Larga > LarghezzaCm ? std::fmod(Larga, LarghezzaCm) : Larga) + Bianco;
        }
    }
    return Righe;
}

double AltezzaRigaPunti(const Carattere& Font)
{
    return Font.Punti * QuotaRiga;
}
