#include "feenote/file/modPassword.h"

#include "core/modTesti.h"
#include "feenote/file/colonne.h"
#include "platform/base/paginacodice.h"
#include "platform/base/segni.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString TagliaPsw(const QString& Psw)
{
    // A character of two units at the last place is left out whole.
    const bool Spezza = Psw.size() > MassimoPsw && Psw[MassimoPsw - 1].isHighSurrogate();
    return Psw.left(Spezza ? MassimoPsw - 1 : MassimoPsw);
}

QString PswNelCampo(const QString& Psw)
{
    return Psw.startsWith(PswDaSalvare) ? PswDaSalvare.toString() + Psw : Psw;
}

QString PswDaScrivere(const Parcella& Nota)
{
    const bool Nuova = Nota.Psw.startsWith(PswDaSalvare);
    return CodificaPsw(Nuova ? Nota.Psw.mid(PswDaSalvare.size()) : Nota.Psw);
}

QString CodificaPsw(const QString& Psw)
{
    QString Cifre;
    for (const char Carattere : Cp1252(TagliaPsw(Psw)))
        Cifre += QString::number(uchar(Carattere)).rightJustified(3, u'0');
    return Cifre;
}

QString DecodificaPsw(const QString& Cifre)
{
    QByteArray Codici;
    for (qsizetype i = 0; i + 3 <= Cifre.size() && Codici.size() < MassimoPsw; i += 3) {
        const QString Terna = Cifre.mid(i, 3);
        const bool DiCifre = std::ranges::all_of(Terna, ECifra);
        const uint Codice = Terna.toUInt();
        if (!DiCifre || Codice > 255)
            break;
        Codici.append(char(Codice));
    }
    return DaCp1252(Codici);
}

QString PswDalFile(const QString& Cifre)
{
    if (EVuoto(Cifre))
        return {};
    const QString Decodificata = DecodificaPsw(Cifre);
    return Decodificata.isEmpty() ? Cifre : Decodificata;
}
