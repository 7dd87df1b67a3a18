#include "platform/document/setacciortf.h"

#include <algorithm>
#include <array>

namespace {

constexpr qsizetype MassimoParola = 32;
constexpr qsizetype MassimeCifre = 10;

bool LetteraDiParola(char C)
{
    return (C >= 'a' && C <= 'z') || (C >= 'A' && C <= 'Z');
}

bool CifraDiNumero(char C)
{
    return C >= '0' && C <= '9';
}

/// Words whose group is data, as long as a file can be.
bool DiDati(const QByteArray& Parola)
{
    constexpr std::array<QByteArrayView, 8> Tutte{"blipuid", "datastore", "fontemb", "nonshppict",
                                                  "objdata", "objhtml",   "pict",    "themedata"};
    return std::ranges::any_of(Tutte, [&](QByteArrayView Singola) { return Parola == Singola; });
}

}  // namespace

void SetaccioRtf::Passa(QByteArrayView Pezzo)
{
    const char* C = Pezzo.begin();
    while (C != Pezzo.end() && Dove != Fuori) {
        if (Dove == Grezzi) {
            const qint64 Quanti = std::min<qint64>(DaSaltare, Pezzo.end() - C);
            C += Quanti;
            DaSaltare -= Quanti;
            Dove = DaSaltare > 0 ? Grezzi : Testo;
        } else if (Dove == Testo && SaltatoDa > 0) {
            C = std::find_if(C, Pezzo.end(), [](char D) { return D == '{' || D == '}' || D == '\\'; });
            if (C != Pezzo.end())
                Leggi(*C++);
        } else {
            Leggi(*C++);
        }
    }
    Oltre = Oltre || std::any_of(C, Pezzo.end(), [](char D) {
                return D != '\0' && D != '\x1A' && D != ' ' && (D < '\t' || D > '\r');
            });
}

void SetaccioRtf::Tieni(char C)
{
    if (SaltatoDa == 0)
        Tenuti += C;
}

void SetaccioRtf::Leggi(char C)
{
    switch (Dove) {
    case Testo:
        LeggiTesto(C);
        break;
    case Barra:
        Tieni(C);
        Parola = LetteraDiParola(C) ? QByteArray(1, C) : QByteArray();
        Cifre.clear();
        Dove = LetteraDiParola(C) ? Nome : Testo;
        break;
    case Nome:
    case Numero:
        if (Dove == Nome && LetteraDiParola(C) && Parola.size() <= MassimoParola) {
            Parola += C;
        } else if (CifraDiNumero(C) && Cifre.size() < MassimeCifre) {
            Cifre += C;
            Dove = Numero;
        } else {
            FineParola();
            if (Dove != Grezzi || C != ' ')
                Leggi(C);
            return;
        }
        Tieni(C);
        break;
    case Grezzi:  // the byte that ended their word is not one of them unless it is no blank
        --DaSaltare;
        Dove = DaSaltare > 0 ? Grezzi : Testo;
        break;
    case Fuori:
        break;
    }
}

void SetaccioRtf::LeggiTesto(char C)
{
    if (C == '\\') {
        Tieni(C);
        Dove = Barra;
        return;
    }
    if (C == '{')
        ++Profondo;
    if (C == '}' && SaltatoDa == Profondo)
        SaltatoDa = 0;
    Zeri = Zeri || (C == '\0' && SaltatoDa == 0);
    Tieni(C);
    if (C == '}' && --Profondo <= 0)
        Dove = Fuori;
}

/// Raw bytes follow their word behind one blank; a group of data runs by from here.
void SetaccioRtf::FineParola()
{
    Dove = Testo;
    if (Parola == "bin") {
        DaSaltare = Cifre.toLongLong();
        if (DaSaltare > 0)
            Dove = Grezzi;
        if (SaltatoDa == 0 && DaSaltare > 0) {
            Tenuti.chop(Cifre.size());  // nobody is to look for them
            Tenuti += "0 ";
        }
    } else if (SaltatoDa == 0 && Profondo > 0 && DiDati(Parola)) {
        SaltatoDa = Profondo;
    }
}
