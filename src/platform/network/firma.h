// Signatures: what tells the publisher's bytes from anybody else's. Ed25519; keys and signatures are text in
// files.
#pragma once

#include <QByteArray>
#include <QString>

/// The two halves of a key, as their files hold them: base64, without a line break.
struct CoppiaChiavi
{
    QByteArray Pubblica;
    QByteArray Segreta;
};

/// A new pair. @throws Errore 1000 when the machine gives no chance
[[nodiscard]] CoppiaChiavi NuoveChiavi();

/// The detached signature of some bytes, base64. @throws Errore 5 for what is no secret key
[[nodiscard]] QByteArray FirmaByte(const QByteArray& Byte, const QByteArray& Segreta);

/// Whether a signature was made for exactly these bytes with the other half of a key. Blanks and line breaks
/// around key and signature do not count; what is none of them is false.
[[nodiscard]] bool FirmaValida(const QByteArray& Byte, const QByteArray& Firma, const QByteArray& Pubblica);

/// The publisher's public key: the file calcanova.pub beside the executable, which the package lays there.
/// Empty where there is none.
[[nodiscard]] QByteArray ChiavePubblica();
/// Why it proves nothing: a sentence that names the file where it is there and holds no key (cut off,
/// emptied, a folder, not to be read); empty where it is a key, and where there is none.
[[nodiscard]] QString DifettoChiave();
/// Another file in its place; an empty path brings it back. Returns the former one; serves tests.
QString InstallaFileChiave(const QString& File);
