#include "platform/kit/suggerimento.h"

#include "platform/kit/aspetto.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>
#include <QScopedValueRollback>
#include <QStringList>
#include <QWidget>

#include <cstdlib>

QString SuPiuRighe(const QString& Testo)
{
    constexpr qsizetype Lunga = 80;
    QStringList Righe;
    const QStringList Capoversi = Testo.split(u'\n');
    for (QString Resto : Capoversi) {
        while (Resto.size() > Lunga) {
            const qsizetype Bianco = Resto.lastIndexOf(u' ', Lunga);
            qsizetype Taglio = Bianco > 0 ? Bianco : Lunga;
            if (Resto[Taglio - 1].isHighSurrogate())
                --Taglio;  // the halves of a letter stay together
            Righe << Resto.left(Taglio);
            Resto = Resto.mid(Bianco > 0 ? Taglio + 1 : Taglio);
        }
        Righe << Resto;
    }
    return Righe.join(u'\n');
}

namespace {

/// Grey between the letters and their ground.
QColor ColoreSuggerito(const QPalette& Colori)
{
    constexpr double Grigio = 0.6;
    return aspetto::Mischia(Colori.color(QPalette::Text), Colori.color(QPalette::Base), Grigio);
}

/// A palette of the program's own is set only where it must be: the style then paints for each widget anew.
bool SiLegge(const QPalette& Colori)
{
    constexpr int Distanza = 70;  // of greys
    const QColor Fondo = Colori.color(QPalette::Base);
    QColor Detto = Colori.color(QPalette::PlaceholderText);
    const double Coprente = double(Detto.alphaF());
    Detto.setAlpha(255);
    const QColor Visto = aspetto::Mischia(Detto, Fondo, Coprente);
    return std::abs(qGray(Visto.rgb()) - qGray(Fondo.rgb())) >= Distanza;
}

/// Desktops change their colours while the program runs.
class SegueIColori : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        if (Oggetto == qApp && Evento->type() == QEvent::ApplicationPaletteChange)
            Mischia();
        return false;
    }

    void Mischia()
    {
        QPalette Colori = QApplication::palette();
        if (InCorso || SiLegge(Colori))
            return;
        const QScopedValueRollback Guardia(InCorso, true);
        Colori.setColor(QPalette::PlaceholderText, ColoreSuggerito(Colori));
        QApplication::setPalette(Colori);
    }

private:
    bool InCorso = false;
};

}  // namespace

void SuggerisciLeggibile(QWidget* Box)
{
    QPalette Colori = Box->palette();
    Colori.setColor(QPalette::PlaceholderText, ColoreSuggerito(Colori));
    Box->setPalette(Colori);
}

void SuggerimentiLeggibili()
{
    auto* Segue = new SegueIColori(qApp);
    Segue->Mischia();
    qApp->installEventFilter(Segue);
}
