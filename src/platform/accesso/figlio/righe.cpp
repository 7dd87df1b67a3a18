#include "platform/accesso/figlio/righe.h"

#include "platform/base/paginacodice.h"

#include <QDateTime>
#include <QtEndian>

#include <array>
#include <bit>
#include <cmath>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

/// Bytes with their end: what lies beyond it is never read, and leaves a mark.
class Lettura
{
public:
    explicit Lettura(QByteArrayView Byte) : Tutti(Byte) {}

    [[nodiscard]] bool Buona() const { return !Oltre; }
    [[nodiscard]] QByteArrayView Pezzo(qsizetype Da, qsizetype Quanti)
    {
        if (Da < 0 || Quanti < 0 || Da > Tutti.size() || Quanti > Tutti.size() - Da) {
            Oltre = true;
            return {};
        }
        return Tutti.sliced(Da, Quanti);
    }
    template <class Numero>
    [[nodiscard]] Numero Intero(qsizetype Da)
    {
        const QByteArrayView Byte = Pezzo(Da, qsizetype(sizeof(Numero)));
        return Byte.isEmpty() ? Numero(0) : qFromLittleEndian<Numero>(Byte.data());
    }
    [[nodiscard]] int Corto(qsizetype Da) { return Intero<quint16>(Da); }
    [[nodiscard]] int Byte(qsizetype Da) { return Intero<quint8>(Da); }

private:
    QByteArrayView Tutti;
    bool Oltre = false;
};

/// Where the values of variable length begin in a row, and where the last one ends.
std::vector<int> PostiVariabili(Lettura& Da, qsizetype Lunga, qsizetype Maschera, Formato Come)
{
    std::vector<int> Posti;
    if (Come == Formato::Jet4) {
        const qsizetype Fine = Lunga - Maschera;
        const int Quanti = Da.Corto(Fine - 2);
        for (int i = 0; i <= Quanti && Da.Buona(); ++i)
            Posti.push_back(Da.Corto(Fine - 4 - qsizetype(2) * i));
        return Posti;
    }
    // One byte each: a table of jumps says from which column on 256 is to be added.
    constexpr qsizetype Salto = 256;
    const qsizetype Ultimo = Lunga - 1;
    const int Quanti = Da.Byte(Ultimo - Maschera);
    qsizetype Salti = Ultimo / Salto;
    const qsizetype Primo = Ultimo - Maschera - Salti - 1;
    if ((Primo - Quanti) / Salto < Salti)
        --Salti;
    qsizetype Usati = 0;
    for (int i = 0; i <= Quanti && Da.Buona(); ++i) {
        while (Usati < Salti && i == Da.Byte(Ultimo - Maschera - Usati - 1))
            ++Usati;
        Posti.push_back(int(Da.Byte(Primo - i) + Usati * Salto));
    }
    return Posti;
}

bool EBooleano(const ColonnaAccess& Colonna)
{
    return Colonna.Tipo == 1;
}

QString TestoJet4(QByteArrayView Byte)
{
    QString Testo;
    const auto Due = [&](qsizetype Da) { return QChar(qFromLittleEndian<quint16>(Byte.data() + Da)); };
    if (!Byte.startsWith("\xff\xfe")) {
        for (qsizetype i = 0; i + 1 < Byte.size(); i += 2)
            Testo += Due(i);
        return Testo;
    }
    // A zero switches between letters of one byte and of two.
    bool Stretto = true;
    for (qsizetype i = 2; i < Byte.size();) {
        if (Byte[i] == 0) {
            Stretto = !Stretto;
            ++i;
        } else if (Stretto) {
            Testo += QLatin1Char(Byte[i]);
            ++i;
        } else if (i + 1 < Byte.size()) {
            Testo += Due(i);
            i += 2;
        } else {
            break;
        }
    }
    return Testo;
}

/// A decimal number: a sign, and 128 bits in four words, the highest first.
double Decimale(QByteArrayView Byte, int Scala)
{
    constexpr int Cifre = 10;
    std::array<quint32, 4> Parole{};
    for (size_t i = 0; i < Parole.size(); ++i)
        Parole[i] = qFromLittleEndian<quint32>(Byte.data() + 1 + i * sizeof(quint32));
    QByteArray Testo;
    while (std::ranges::any_of(Parole, [](quint32 P) { return P != 0; })) {
        quint64 Resto = 0;
        for (quint32& Parola : Parole) {
            const quint64 Tutto = (Resto << 32) | Parola;
            Parola = quint32(Tutto / Cifre);
            Resto = Tutto % Cifre;
        }
        Testo.prepend(char('0' + Resto));
    }
    if (Testo.isEmpty())
        Testo = "0";
    Testo += 'e' + QByteArray::number(-Scala);
    const double Numero = Testo.toDouble();
    return Byte[0] & '\x80' ? -Numero : Numero;
}

QString Guid(QByteArrayView B)
{
    const auto Esa = [&](qsizetype Da, qsizetype Quanti, bool Rovescio) {
        QByteArray Pezzo = B.sliced(Da, Quanti).toByteArray();
        if (Rovescio)
            std::ranges::reverse(Pezzo);
        return QString::fromLatin1(Pezzo.toHex().toUpper());
    };
    return u"{%1-%2-%3-%4-%5}"_s.arg(Esa(0, 4, true), Esa(4, 2, true), Esa(6, 2, true), Esa(8, 2, false),
                                     Esa(10, 6, false));
}

/// Days from 30 December 1899; the part of a day counts onwards before that date too.
std::optional<QVariant> Data(double Giorni)
{
    constexpr double Primo = -657434;   // 1 January 100
    constexpr double Ultimo = 2958466;  // 1 January 10000
    constexpr double SecondiPerGiorno = 86400;
    if (!(Giorni >= Primo && Giorni < Ultimo))
        return std::nullopt;
    double Interi = std::trunc(Giorni);
    double Secondi = std::round(std::abs(Giorni - Interi) * SecondiPerGiorno);
    if (Secondi >= SecondiPerGiorno) {
        Secondi = 0;
        ++Interi;
    }
    const QDate Giorno = QDate(1899, 12, 30).addDays(qint64(Interi));
    if (Secondi == 0)
        return QVariant(Giorno);
    return QVariant(QDateTime(Giorno, QTime(0, 0).addSecs(int(Secondi)), Qt::UTC));
}

std::optional<QVariant> Finito(double Numero)
{
    return std::isfinite(Numero) ? std::optional(QVariant(Numero)) : std::nullopt;
}

/// Bytes of a value of each type; 0 for one of any length.
qsizetype ByteDelTipo(int Tipo)
{
    switch (Tipo) {
    case 2:
        return 1;
    case 3:
        return 2;
    case 4:
    case 6:
        return 4;
    case 5:
    case 7:
    case 8:
    case 0x13:
        return 8;
    case 0x0f:
        return 16;
    case 0x10:
        return 17;
    default:
        return 0;
    }
}

/// Where the parts of a table's definition stand.
struct Misure
{
    qsizetype Contatore, Colonne, Indici, IndiciVeri, Inizio, PerIndiceVero, PerColonna, CorpoVero, DaVero,
        CorpoIndice, DaNumero, Nome;
};
constexpr Misure MisureJet3{16, 25, 27, 31, 43, 8, 18, 39, 0, 20, 0, 1};
constexpr Misure MisureJet4{20, 45, 47, 51, 63, 12, 25, 52, 4, 28, 4, 2};

const Misure& MisureDi(Formato Come)
{
    return Come == Formato::Jet3 ? MisureJet3 : MisureJet4;
}

/// A name with its length before it; moves the place on.
QString LeggiNome(Lettura& Da, qsizetype& Posto, Formato Come, int Pagina)
{
    const int Lungo = Come == Formato::Jet3 ? Da.Byte(Posto) : Da.Corto(Posto);
    Posto += MisureDi(Come).Nome;
    const QByteArrayView Byte = Da.Pezzo(Posto, Lungo);
    Posto += Lungo;
    return TestoAccess(Byte, Come, Pagina);
}

}  // namespace

std::optional<std::vector<CellaAccess>> SpezzaRiga(QByteArrayView Riga, Formato Come,
                                                   const std::vector<ColonnaAccess>& Colonne, bool Variabili)
{
    Lettura Da(Riga);
    const qsizetype Conto = Come == Formato::Jet3 ? 1 : 2;
    const int DiRiga = Come == Formato::Jet3 ? Da.Byte(0) : Da.Corto(0);
    const qsizetype ByteMaschera = (DiRiga + 7) / 8;
    const QByteArrayView Maschera = Da.Pezzo(Riga.size() - ByteMaschera, ByteMaschera);
    std::vector<int> Posti;
    if (Variabili)
        Posti = PostiVariabili(Da, Riga.size(), ByteMaschera, Come);
    if (!Da.Buona())
        return std::nullopt;
    std::vector<CellaAccess> Celle;
    Celle.reserve(Colonne.size());
    for (const ColonnaAccess& Colonna : Colonne) {
        // A row that is older than a column has no bit for it.
        const bool Presente = Colonna.Numero >= 0 && Colonna.Numero < DiRiga &&
                              (Maschera[Colonna.Numero / 8] >> (Colonna.Numero % 8) & 1) != 0;
        if (!Presente) {
            Celle.emplace_back(std::nullopt);
        } else if (EBooleano(Colonna)) {
            Celle.emplace_back(QByteArrayView(""));
        } else if (Colonna.Fissa) {
            const qsizetype Propri = ByteDelTipo(Colonna.Tipo);
            Celle.emplace_back(
                Da.Pezzo(Conto + Colonna.PostoFisso, Propri > 0 ? Propri : qsizetype(Colonna.Dimensione)));
        } else if (size_t(Colonna.PostoVariabile) + 1 < Posti.size()) {
            const int Inizio = Posti[size_t(Colonna.PostoVariabile)];
            const int Fine = Posti[size_t(Colonna.PostoVariabile) + 1];
            Celle.emplace_back(Da.Pezzo(Inizio, Fine - Inizio));
        } else {
            Celle.emplace_back(std::nullopt);
        }
    }
    return Da.Buona() ? std::optional(std::move(Celle)) : std::nullopt;
}

QString TestoAccess(QByteArrayView Byte, Formato Come, int Pagina)
{
    QString Testo = Come == Formato::Jet4 ? TestoJet4(Byte) : TestoDaPagina(Byte.toByteArray(), Pagina);
    Testo.remove(QChar(0));
    // Half a pair stands for no character, and UTF-8 has no bytes for it.
    return QString::fromUtf8(Testo.toUtf8());
}

std::optional<QVariant> ValoreAccess(const CellaAccess& Cella, const ColonnaAccess& Colonna, Formato Come,
                                     int Pagina)
{
    constexpr double Diecimillesimi = 10000;
    if (EBooleano(Colonna))
        return QVariant(Cella.has_value());
    if (!Cella)
        return QVariant();
    Lettura Da(*Cella);
    if (Cella->size() < ByteDelTipo(Colonna.Tipo))
        return std::nullopt;
    switch (Colonna.Tipo) {
    case 2:
        return QVariant(Da.Byte(0));
    case 3:
        return QVariant(int(Da.Intero<qint16>(0)));
    case 4:
        return QVariant(int(Da.Intero<qint32>(0)));
    case 5:
        return QVariant(double(Da.Intero<qint64>(0)) / Diecimillesimi);
    case 6: {
        const float Numero = std::bit_cast<float>(Da.Intero<quint32>(0));
        return std::isfinite(Numero) ? std::optional(QVariant(Numero)) : std::nullopt;
    }
    case 7:
        return Finito(std::bit_cast<double>(Da.Intero<quint64>(0)));
    case 8:
        return Data(std::bit_cast<double>(Da.Intero<quint64>(0)));
    case 0x0f:
        return QVariant(Guid(*Cella));
    case 0x10:
        return Finito(Decimale(*Cella, Colonna.Scala));
    case 0x13:
        return QVariant(double(Da.Intero<qint64>(0)));
    default:
        return QVariant(TestoAccess(*Cella, Come, Pagina));
    }
}

std::optional<MemoAccess> LeggiMemo(QByteArrayView Cella)
{
    if (Cella.size() < TestataMemo)
        return std::nullopt;
    const quint32 Testata = qFromLittleEndian<quint32>(Cella.data());
    const bool Dentro = (Testata & 0x80000000U) != 0;
    return MemoAccess{Dentro, Dentro ? qint64(Cella.size() - TestataMemo) : qint64(Testata & 0x3fffffffU)};
}

std::optional<std::vector<quint32>>
PagineDiMappa(QByteArrayView Mappa, qsizetype BytePerPagina, quint32 Pagine,
              const std::function<QByteArray(quint32 Pagina)>& LeggiPagina)
{
    constexpr qsizetype TestataPagina = 4;
    Lettura Da(Mappa);
    std::vector<quint32> Elenco;
    const auto Segna = [&](QByteArrayView Bit, quint64 Prima) {
        for (qsizetype i = 0; i < Bit.size() * 8; ++i) {
            if ((Bit[i / 8] >> (i % 8) & 1) == 0)
                continue;
            const quint64 Pagina = std::min<quint64>(Prima + quint64(i), Pagine);
            if (Elenco.empty() || Elenco.back() < Pagina)
                Elenco.push_back(quint32(Pagina));
        }
    };
    switch (Mappa.isEmpty() ? -1 : Da.Byte(0)) {
    case 0:
        if (Mappa.size() >= 5)
            Segna(Mappa.sliced(5), Da.Intero<quint32>(1));
        return Elenco;
    case 1:
        for (qsizetype i = 0; 5 + 4 * i <= Mappa.size(); ++i) {
            const quint32 Numero = Da.Intero<quint32>(1 + 4 * i);
            if (Numero == 0)
                continue;
            const QByteArray Bit = LeggiPagina(Numero);
            if (Bit.size() != BytePerPagina)
                return std::nullopt;
            Segna(QByteArrayView(Bit).sliced(TestataPagina),
                  quint64(i * (BytePerPagina - TestataPagina) * 8));
        }
        return Elenco;
    default:
        return std::nullopt;
    }
}

QList<IndiceAccess> IndiciAccess(QByteArrayView Definizione, Formato Come, int Pagina)
{
    constexpr int MassimiIndici = 256;
    constexpr int ColonnePerIndice = 10;
    constexpr int NessunaColonna = 0xffff;
    const Misure& M = MisureDi(Come);
    Lettura Da(Definizione);
    const int Colonne = Da.Corto(M.Colonne);
    const auto Logici = Da.Intero<quint32>(M.Indici);
    const auto Veri = Da.Intero<quint32>(M.IndiciVeri);
    if (Logici > MassimiIndici || Veri > MassimiIndici)
        return {};
    qsizetype Posto = M.Inizio + qsizetype(Veri) * M.PerIndiceVero + qsizetype(Colonne) * M.PerColonna;
    for (int i = 0; i < Colonne && Da.Buona(); ++i)
        (void)LeggiNome(Da, Posto, Come, Pagina);
    const qsizetype Corpi = Posto;
    const qsizetype Teste = Corpi + qsizetype(Veri) * M.CorpoVero;
    Posto = Teste + qsizetype(Logici) * M.CorpoIndice;
    QList<IndiceAccess> Trovati;
    for (quint32 i = 0; i < Logici && Da.Buona(); ++i) {
        constexpr int Relazione = 2;
        const qsizetype Testa = Teste + qsizetype(i) * M.CorpoIndice + M.DaNumero;
        const auto Vero = Da.Intero<quint32>(Testa + 4);
        const int Genere = Da.Byte(Testa + 19);
        IndiceAccess Nuovo;
        Nuovo.Nome = LeggiNome(Da, Posto, Come, Pagina);
        if (Genere == Relazione || Vero >= Veri)
            continue;
        const qsizetype Corpo = Corpi + qsizetype(Vero) * M.CorpoVero + M.DaVero;
        for (int c = 0; c < ColonnePerIndice; ++c) {
            const int Numero = Da.Corto(Corpo + qsizetype(3) * c);
            if (Numero != NessunaColonna)
                Nuovo.Colonne.append(Numero);
        }
        Nuovo.Primario = Genere == 1;
        Nuovo.Unico = Nuovo.Primario || (Da.Byte(Corpo + 38) & 1) != 0;
        if (Da.Buona() && !Nuovo.Colonne.isEmpty())
            Trovati.append(Nuovo);
    }
    return Trovati;
}

qint64 ContatoreAccess(QByteArrayView Definizione, Formato Come)
{
    Lettura Da(Definizione);
    return Da.Intero<quint32>(MisureDi(Come).Contatore);
}
