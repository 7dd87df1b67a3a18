#include "creaimmagini/gif.h"

#include <QHash>
#include <QImage>
#include <QList>

#include <array>
#include <map>
#include <utility>

namespace {

constexpr int LatoMassimo = 65535;
constexpr int Colori = 256;
constexpr int BitColori = 8;
constexpr int Trasparente = 255;  // number of the transparent colour, the last of the table
constexpr int Meta = 128;         // least opacity of a point that is seen

/// The table of colours and the number of each point's colour.
struct Tavola
{
    QList<QRgb> Tinte;
    QByteArray Punti;
};

bool SiVede(QRgb Punto)
{
    return qAlpha(Punto) >= Meta;
}

/// A colour without its last bits.
QRgb Gruppo(QRgb Punto, int Bit)
{
    const QRgb Maschera = (0xFFU << unsigned(Bit)) & 0xFFU;
    return Punto & (Maschera << 16U | Maschera << 8U | Maschera);
}

/// Sums of the colours of a group, for their mean.
struct Somma
{
    qint64 Rosso = 0;
    qint64 Verde = 0;
    qint64 Blu = 0;
    qint64 Quanti = 0;

    void Aggiungi(QRgb Punto)
    {
        Rosso += qRed(Punto);
        Verde += qGreen(Punto);
        Blu += qBlue(Punto);
        ++Quanti;
    }
    [[nodiscard]] QRgb Media() const
    {
        return qRgb(int(Rosso / Quanti), int(Verde / Quanti), int(Blu / Quanti));
    }
};

/// Colours that share their upper bits become one; as few bits are dropped as the table needs.
Tavola Riduci(const QImage& Immagine)
{
    std::map<QRgb, Somma> Gruppi;
    int Bit = 0;
    for (;; ++Bit) {
        Gruppi.clear();
        for (int y = 0; y < Immagine.height(); ++y)
            for (int x = 0; x < Immagine.width(); ++x)
                if (const QRgb Punto = Immagine.pixel(x, y); SiVede(Punto))
                    Gruppi[Gruppo(Punto, Bit)].Aggiungi(Punto);
        if (Gruppi.size() <= size_t(Trasparente))
            break;
    }
    Tavola Ridotta;
    QHash<QRgb, int> Numeri;
    for (const auto& [Chiave, Tinte] : Gruppi) {
        Numeri.insert(Chiave, int(Ridotta.Tinte.size()));
        Ridotta.Tinte << Tinte.Media();
    }
    Ridotta.Punti.reserve(qsizetype(Immagine.width()) * Immagine.height());
    for (int y = 0; y < Immagine.height(); ++y)
        for (int x = 0; x < Immagine.width(); ++x) {
            const QRgb Punto = Immagine.pixel(x, y);
            Ridotta.Punti += char(SiVede(Punto) ? Numeri.value(Gruppo(Punto, Bit)) : Trasparente);
        }
    return Ridotta;
}

/// Codes of a growing number of bits, packed from the lowest bit up, in blocks of at most 255 bytes.
class Blocchi
{
public:
    void Scrivi(int Codice, int Bit)
    {
        Resto |= quint32(Codice) << unsigned(BitResto);
        BitResto += Bit;
        while (BitResto >= 8) {
            Byte(char(Resto & 0xFFU));
            Resto >>= 8U;
            BitResto -= 8;
        }
    }

    [[nodiscard]] QByteArray Finiti()
    {
        if (BitResto > 0)
            Byte(char(Resto & 0xFFU));
        Chiudi();
        Fatti += '\0';
        return Fatti;
    }

private:
    void Byte(char Uno)
    {
        constexpr qsizetype Massimo = 255;
        Aperto += Uno;
        if (Aperto.size() == Massimo)
            Chiudi();
    }

    void Chiudi()
    {
        if (Aperto.isEmpty())
            return;
        Fatti += char(Aperto.size());
        Fatti += Aperto;
        Aperto.clear();
    }

    QByteArray Fatti;
    QByteArray Aperto;
    quint32 Resto = 0;
    int BitResto = 0;
};

/// The points in the compression of the format: a dictionary of runs that begins anew when it is full.
QByteArray Comprimi(const QByteArray& Punti)
{
    constexpr int Ricomincia = 1 << BitColori;
    constexpr int Fine = Ricomincia + 1;
    constexpr int MassimoCodice = 4095;
    QHash<int, int> Dizionario;  // run and next point -> code of the longer run
    int Prossimo = Fine + 1;
    int Bit = BitColori + 1;
    Blocchi Uscita;
    Uscita.Scrivi(Ricomincia, Bit);
    int Corrente = -1;
    for (const char Carattere : Punti) {
        const int Punto = quint8(Carattere);
        if (Corrente < 0) {
            Corrente = Punto;
            continue;
        }
        const int Chiave = Corrente * Colori + Punto;
        if (const auto Nota = Dizionario.constFind(Chiave); Nota != Dizionario.constEnd()) {
            Corrente = *Nota;
            continue;
        }
        Uscita.Scrivi(Corrente, Bit);
        Corrente = Punto;
        if (Prossimo > MassimoCodice) {
            Uscita.Scrivi(Ricomincia, Bit);
            Dizionario.clear();
            Prossimo = Fine + 1;
            Bit = BitColori + 1;
            continue;
        }
        Dizionario.insert(Chiave, Prossimo);
        // The reader learns a code one step later than the writer, so that the width grows behind it.
        if (Prossimo == 1 << Bit)
            ++Bit;
        ++Prossimo;
    }
    if (Corrente >= 0)
        Uscita.Scrivi(Corrente, Bit);
    Uscita.Scrivi(Fine, Bit);
    return char(BitColori) + Uscita.Finiti();
}

QByteArray DueByte(int Numero)
{
    return QByteArray(1, char(Numero & 0xFF)) + char(Numero >> 8 & 0xFF);
}

}  // namespace

QByteArray Gif(const QImage& Immagine)
{
    if (Immagine.isNull() || Immagine.width() > LatoMassimo || Immagine.height() > LatoMassimo)
        return {};
    const Tavola Ridotta = Riduci(Immagine.convertToFormat(QImage::Format_ARGB32));
    const QByteArray Misura = DueByte(Immagine.width()) + DueByte(Immagine.height());
    // A table of 256 colours of 8 bits each.
    QByteArray File = "GIF89a" + Misura + '\xF7' + '\0' + '\0';
    for (int i = 0; i < Colori; ++i) {
        const QRgb Tinta = i < Ridotta.Tinte.size() ? Ridotta.Tinte[i] : qRgb(0, 0, 0);
        for (const int Parte : {qRed(Tinta), qGreen(Tinta), qBlue(Tinta)})
            File += char(Parte);
    }
    // The extension that names the transparent colour, then the one picture.
    File += QByteArrayLiteral("\x21\xF9\x04\x01\x00\x00") + char(Trasparente) + '\0';
    File += ',' + DueByte(0) + DueByte(0) + Misura + '\0';
    return File + Comprimi(Ridotta.Punti) + ';';
}
