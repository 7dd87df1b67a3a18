#include "platform/network/firma.h"

#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <sodium.h>

#include <utility>

namespace {

QString& AltroFile()
{
    static QString File;
    return File;
}

QString FileChiave()
{
    return AltroFile().isEmpty() ? CartellaEseguibile() + QStringLiteral("calcanova.pub") : AltroFile();
}

/// @throws Errore 1000
void Prepara()
{
    if (sodium_init() < 0)
        throw Errore(errori::Imprevisto);
}

/// The bytes behind a text of exactly that many; empty for any other text.
QByteArray Decodifica(const QByteArray& Testo, qsizetype Quanti)
{
    const auto Letto =
        QByteArray::fromBase64Encoding(Testo.trimmed(), QByteArray::AbortOnBase64DecodingErrors);
    return Letto && Letto.decoded.size() == Quanti ? Letto.decoded : QByteArray();
}

const unsigned char* Dati(const QByteArray& Byte)
{
    return reinterpret_cast<const unsigned char*>(Byte.constData());
}

unsigned char* Dati(QByteArray& Byte)
{
    return reinterpret_cast<unsigned char*>(Byte.data());
}

}  // namespace

CoppiaChiavi NuoveChiavi()
{
    Prepara();
    QByteArray Pubblica(crypto_sign_PUBLICKEYBYTES, '\0');
    QByteArray Segreta(crypto_sign_SECRETKEYBYTES, '\0');
    if (crypto_sign_keypair(Dati(Pubblica), Dati(Segreta)) != 0)
        throw Errore(errori::Imprevisto);
    return {Pubblica.toBase64(), Segreta.toBase64()};
}

QByteArray FirmaByte(const QByteArray& Byte, const QByteArray& Segreta)
{
    Prepara();
    const QByteArray Chiave = Decodifica(Segreta, crypto_sign_SECRETKEYBYTES);
    if (Chiave.isEmpty())
        throw Errore(errori::Argomento);
    QByteArray Firma(crypto_sign_BYTES, '\0');
    crypto_sign_detached(Dati(Firma), nullptr, Dati(Byte), static_cast<unsigned long long>(Byte.size()),
                         Dati(Chiave));
    return Firma.toBase64();
}

bool FirmaValida(const QByteArray& Byte, const QByteArray& Firma, const QByteArray& Pubblica)
{
    Prepara();
    const QByteArray Chiave = Decodifica(Pubblica, crypto_sign_PUBLICKEYBYTES);
    const QByteArray Segno = Decodifica(Firma, crypto_sign_BYTES);
    return !Chiave.isEmpty() && !Segno.isEmpty() &&
           crypto_sign_verify_detached(Dati(Segno), Dati(Byte), static_cast<unsigned long long>(Byte.size()),
                                       Dati(Chiave)) == 0;
}

QByteArray ChiavePubblica()
{
    constexpr qint64 Massimo = 1000;
    try {
        return LeggiFile(FileChiave(), Massimo);
    } catch (const Errore&) {
        return {};
    }
}

QString DifettoChiave()
{
    const QString File = FileChiave();
    const bool Presente = EsisteFile(File) || EsisteCartella(File);
    if (!Presente || !Decodifica(ChiavePubblica(), crypto_sign_PUBLICKEYBYTES).isEmpty())
        return {};
    return QStringLiteral("il file \"%1\" è danneggiato, reinstallare il programma").arg(File);
}

QString InstallaFileChiave(const QString& File)
{
    return std::exchange(AltroFile(), File);
}
