#include "fonte.h"

#include <algorithm>

QByteArray Fonte::Grezza()
{
    const qsizetype Fine = Resto.indexOf('\n');
    const QByteArray Presa = Fine < 0 ? Resto : Resto.first(Fine);
    Resto = Fine < 0 ? QByteArray() : Resto.sliced(Fine + 1);
    return Presa;
}

QString Fonte::Riga()
{
    const QByteArray Presa = Grezza();
    QByteArray Letta;
    for (qsizetype i = 0; i < Presa.size(); ++i) {
        const char Dopo = Presa[i] == '\\' && i + 1 < Presa.size() ? Presa[i + 1] : '\0';
        if (Dopo == 'n' || Dopo == '\\') {
            Letta += Dopo == 'n' ? '\n' : '\\';
            ++i;
        } else {
            Letta += Presa[i];
        }
    }
    return QString::fromUtf8(Letta);
}

int Fonte::Intero(int Da, int A)
{
    const int Letto = Grezza().trimmed().toInt();
    return std::clamp(Letto, Da, A);
}

QByteArray Fonte::Tutto()
{
    const QByteArray Preso = Resto;
    Resto.clear();
    return Preso;
}
