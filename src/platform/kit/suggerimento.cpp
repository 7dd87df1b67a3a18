#include "platform/kit/suggerimento.h"

#include "platform/kit/aspetto.h"

#include <QPalette>
#include <QStringList>
#include <QWidget>

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

void SuggerisciLeggibile(QWidget* Box)
{
    constexpr double Grigio = 0.6;
    QPalette Colori = Box->palette();
    Colori.setColor(QPalette::PlaceholderText,
                    aspetto::Mischia(Colori.color(QPalette::Text), Colori.color(QPalette::Base), Grigio));
    Box->setPalette(Colori);
}
