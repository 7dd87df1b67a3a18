#include "feenote/windows/piedecatena.h"

#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int TraVoci = 12;
constexpr int AiLati = 4;

/// A figure of the line.
struct Cifra
{
    QStringView Intero;
    QStringView Corto;
    double Catena::*Valore;
    int Peso;  ///< the lightest goes first where there is no room
};

constexpr std::array Cifre{
    Cifra{u"Imponibile", u"Imp.", &Catena::Imponibile, 2},
    Cifra{u"Cassa", u"CP", &Catena::CP, 0},
    Cifra{u"I.V.A.", u"IVA", &Catena::IVA, 3},
    Cifra{u"Totale documento", u"Lordo", &Catena::Totale, 4},
    Cifra{u"Ritenuta", u"R.A.", &Catena::RA, 1},
    Cifra{u"Netto", u"Netto", &Catena::Netto, 5},
};

QString Euro(double Valore)
{
    return Format(Valore, ModelloImporto);
}

}  // namespace

struct PiedeCatena::Voce
{
    QString Testo;
    int Peso;
};

PiedeCatena::PiedeCatena(QWidget* Padre) : QAbstractButton(Padre)
{
    // A name and no text: what is drawn are the figures, and a text would be given a letter for Alt that
    // nobody sees.
    setAccessibleName(u"Importi del documento"_s);
    setFocusPolicy(Qt::NoFocus);  // Tab stays among the fields; the keys of the chain are in its hint
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PiedeCatena::Segui(std::function<Catena()> Fonte)
{
    Da = std::move(Fonte);
    Cambiata();
}

void PiedeCatena::Cambiata()
{
    Vecchia = true;
    update();
}

const Catena& PiedeCatena::Conti()
{
    if (!std::exchange(Vecchia, false) || !Da)
        return Ultima;
    Ultima = Da();
    QStringList Parti;
    for (const Cifra& Una : Cifre)
        Parti += Una.Intero.toString() + u' ' + Euro(Ultima.*Una.Valore);
    if (const QString Detto = Parti.join(u", "_s); Detto != accessibleDescription())
        setAccessibleDescription(Detto);
    Q_EMIT Ricalcolata();
    return Ultima;
}

QFont PiedeCatena::Marcato() const
{
    QFont Carattere = font();
    Carattere.setBold(true);
    return Carattere;
}

int PiedeCatena::Larga(const QList<Voce>& Tutte) const
{
    int Somma = 2 * AiLati + TraVoci * int(std::max<qsizetype>(Tutte.size() - 1, 0));
    for (const Voce& Una : Tutte)
        Somma += QFontMetrics(&Una == &Tutte.constLast() ? Marcato() : font()).horizontalAdvance(Una.Testo);
    return Somma;
}

QList<PiedeCatena::Voce> PiedeCatena::Voci(int Larghezza)
{
    const Catena& Ora = Conti();
    const auto Tutte = [&](QStringView Cifra::*Nome) {
        QList<Voce> Scelte;
        for (const Cifra& Una : Cifre) {
            // A figure of 0 is the first to go, but for the net.
            const double Valore = Ora.*Una.Valore;
            const bool Nulla = Valore == 0 && Una.Valore != &Catena::Netto;
            Scelte.append(
                {(Una.*Nome).toString() + u' ' + Euro(Valore), Una.Peso - (Nulla ? int(Cifre.size()) : 0)});
        }
        return Scelte;
    };
    if (QList<Voce> Intere = Tutte(&Cifra::Intero); Larga(Intere) <= Larghezza)
        return Intere;
    QList<Voce> Corte = Tutte(&Cifra::Corto);
    while (Corte.size() > 1 && Larga(Corte) > Larghezza)
        Corte.erase(std::ranges::min_element(Corte, {}, &Voce::Peso));
    return Corte;
}

QString PiedeCatena::Scritta(int Larghezza)
{
    QStringList Testi;
    for (const Voce& Una : Voci(Larghezza))
        Testi += Una.Testo;
    return Testi.join(u"  "_s);
}

QSize PiedeCatena::sizeHint() const
{
    QList<Voce> Tutte;
    for (const Cifra& Una : Cifre)
        Tutte.append({Una.Corto.toString() + u" 99.999,99"_s, Una.Peso});
    return {Larga(Tutte), fontMetrics().height()};
}

QSize PiedeCatena::minimumSizeHint() const
{
    return {Larga({{u"Netto 9.999.999,99"_s, 0}}), fontMetrics().height()};
}

void PiedeCatena::paintEvent(QPaintEvent*)
{
    QPainter Pennello(this);
    const QList<Voce> Tutte = Voci(width());
    const QColor Colore = underMouse() ? aspetto::Accento() : palette().color(QPalette::WindowText);
    int Destra = width() - AiLati;
    for (auto Una = Tutte.crbegin(); Una != Tutte.crend(); ++Una) {
        const bool Ultimo = Una == Tutte.crbegin();
        Pennello.setFont(Ultimo ? Marcato() : font());
        Pennello.setPen(Colore);
        const int Lunga = Pennello.fontMetrics().horizontalAdvance(Una->Testo);
        Pennello.drawText(QRect(Destra - Lunga, 0, Lunga, height()),
                          Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, Una->Testo);
        Destra -= Lunga + TraVoci;
    }
}

bool PiedeCatena::event(QEvent* Evento)
{
    if (Evento->type() == QEvent::ToolTip) {
        (void)Conti();
        QToolTip::showText(
            static_cast<QHelpEvent*>(Evento)->globalPos(),
            accessibleDescription().replace(u", "_s, u"\n"_s) + u"\nTutti i conti: "_s + toolTip(), this);
        return true;
    }
    return QAbstractButton::event(Evento);
}

#include "moc_piedecatena.cpp"
