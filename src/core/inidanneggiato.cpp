#include "core/inidanneggiato.h"

#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/profilo.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// How a file stands on the disk.
QString StatoSulDisco(const QString& File)
{
    const QFileInfo Ora(File);
    return u"%1 %2 %3 %4"_s.arg(Ora.isDir())
        .arg(Ora.size())
        .arg(Ora.lastModified().toMSecsSinceEpoch())
        .arg(int(Ora.permissions()));
}

}  // namespace

Lettura EsaminaIni(const QString& File, QStringView Sezione)
{
    if (!EsisteFile(File) && !EsisteCartella(File))
        return Lettura::Assente;
    QByteArray Byte;
    try {
        Byte = InizioDelProfilo(File);
    } catch (const Errore& Guasto) {
        DiDelFile(File, QString::number(Guasto.Numero) + u' ' + Guasto.Descrizione);
        return Lettura::Illeggibile;
    }
    if (!SezioneNelProfilo(Byte, Sezione.toString()) || Byte.contains('\0'))
        return Lettura::Guasta;
    // A heading, or a key without its value, is nobody's last line.
    const QByteArray Ultima =
        Byte.sliced(std::max(Byte.lastIndexOf('\n'), Byte.lastIndexOf('\r')) + 1).trimmed();
    if (!Ultima.isEmpty() && !Ultima.contains('=') && !Ultima.startsWith(';'))
        return Lettura::Guasta;
    return Ultima.isEmpty() ? Lettura::Intera : Lettura::Troncata;
}

void DiDelFile(const QString& File, const QString& Frase)
{
    static QHash<QString, QString> Detti;
    const QString Ora = StatoSulDisco(File);
    if (Detti.value(File) == Ora)
        return;
    Detti.insert(File, Ora);
    MsgBox(Frase);
}
