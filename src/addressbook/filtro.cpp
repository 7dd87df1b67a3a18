#include "addressbook/filtro.h"

#include "platform/base/testopiano.h"

#include <algorithm>
#include <numeric>
#include <string_view>

namespace {

constexpr QChar FraCelle = u'\x1f';
constexpr char FineRiga = '\n';

std::string_view VistaSuiByte(QByteArrayView Byte)
{
    return {Byte.data(), size_t(Byte.size())};
}

}  // namespace

QByteArray RigaPiana(const QStringList& Celle)
{
    QString Piana = TestoPiano(Celle.join(FraCelle));
    Piana.replace(u'\n', u' ');
    return Piana.toUtf8();
}

void AccodaCella(QByteArray& Riga, QByteArrayView Utf8)
{
    if (!Riga.isEmpty())
        Riga += FraCelle.toLatin1();
    const qsizetype Da = Riga.size();
    AccodaPiano(Riga, Utf8);
    std::replace(Riga.begin() + Da, Riga.end(), FineRiga, ' ');
}

Filtro::Filtro(const QString& Testo)
{
    for (const QString& Parola : TestoPiano(Testo).simplified().split(u' ', Qt::SkipEmptyParts))
        Parole.append(Parola.toUtf8());
    std::ranges::stable_sort(Parole, std::ranges::greater(), &QByteArray::size);
}

bool Filtro::Passa(QByteArrayView Riga) const
{
    return std::ranges::all_of(Parole, [&](const QByteArray& Parola) {
        return VistaSuiByte(Riga).find(VistaSuiByte(Parola)) != std::string_view::npos;
    });
}

void RighePiane::Azzera()
{
    Testi = {};
    Inizi = {};
}

int RighePiane::Aggiungi(QByteArrayView Riga)
{
    Inizi.push_back(size_t(Testi.size()));
    Testi.append(Riga).append(FineRiga);
    return Righe() - 1;
}

QByteArrayView RighePiane::Riga(int Posto) const
{
    const size_t Da = Inizi[size_t(Posto)];
    const size_t A = Posto + 1 < Righe() ? Inizi[size_t(Posto) + 1] : size_t(Testi.size());
    return QByteArrayView(Testi).sliced(qsizetype(Da), qsizetype(A - Da - 1));
}

std::vector<int> RighePiane::Cerca(const Filtro& Per) const
{
    std::vector<int> Trovate;
    if (Per.Vuoto()) {
        Trovate.resize(Inizi.size());
        std::iota(Trovate.begin(), Trovate.end(), 0);
        return Trovate;
    }
    PerOgni(Per, [&](int Posto, size_t) { Trovate.push_back(Posto); });
    return Trovate;
}
