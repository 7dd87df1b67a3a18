#include "core/modLogo.h"

#include "platform/base/errore.h"
#include "platform/base/segni.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace logo {

namespace {

constexpr qsizetype CifreImpronta = 64;
constexpr qsizetype CifreNome = 16;
const QString Prefisso = u"logo-"_s;

}  // namespace

QString PostoNoto(const QString& Valore)
{
    return Valore == u"S" || Valore == u"C" || Valore == u"D" ? Valore : QString();
}

QString ImprontaValida(const QString& Valore)
{
    const bool Esadecimale =
        std::ranges::all_of(Valore, [](QChar C) { return ECifra(C) || (C >= u'a' && C <= u'f'); });
    return Esadecimale && Valore.size() == CifreImpronta ? Valore : QString();
}

QString Impronta(const QByteArray& Png)
{
    return QString::fromLatin1(QCryptographicHash::hash(Png, QCryptographicHash::Sha256).toHex());
}

QString File(const QString& Impronta)
{
    return ImprontaValida(Impronta).isEmpty()
               ? QString()
               : CartellaDati() + Prefisso + Impronta.left(CifreNome) + u".png"_s;
}

QString Conserva(const QByteArray& Png)
{
    QString Fatta = Impronta(Png);
    if (Leggi(Fatta))
        return Fatta;  // a disk that is full refuses nothing that is there
    CreaCartellaPrivata(CartellaDati());
    ScriviFile(File(Fatta), Png, Lettori::SoloUtente);
    return Fatta;
}

void TogliAltri(const QString& Impronta)
{
    const QString Tenuto = File(Impronta);
    const QDateTime Ieri = Adesso().addDays(-1);
    for (const QString& Nome : NomiDeiFile(CartellaDati(), u".png"_s))
        if (Nome.startsWith(Prefisso) && CartellaDati() + Nome != Tenuto &&
            DataFile(CartellaDati() + Nome) < Ieri)
            ScartaFile(CartellaDati() + Nome);
}

std::optional<QByteArray> Leggi(const QString& Voluta)
{
    try {
        QByteArray Png = LeggiFile(File(Voluta), MassimoByte);
        if (!Voluta.isEmpty() && Impronta(Png) == Voluta)
            return Png;
    } catch (const Errore&) {
        // One that cannot be read is as good as none.
    }
    return std::nullopt;
}

std::optional<Misure> MisurePng(const QByteArray& Png)
{
    constexpr qsizetype PrimaDellaLarghezza = 16;  // signature, length and name of the first record
    constexpr qsizetype Cifra = 4;
    if (!Png.startsWith("\x89PNG\r\n\x1a\n") || Png.size() < PrimaDellaLarghezza + 2 * Cifra)
        return std::nullopt;
    const auto Intero = [&](qsizetype Dove) { return qFromBigEndian<qint32>(Png.constData() + Dove); };
    const Misure Lette{Intero(PrimaDellaLarghezza), Intero(PrimaDellaLarghezza + Cifra)};
    return Lette.Larghezza > 0 && Lette.Altezza > 0 ? std::optional(Lette) : std::nullopt;
}

}  // namespace logo
