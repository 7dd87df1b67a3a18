#include "platform/system/percorsi.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace {

bool ESeparatore(QChar C)
{
    return C == u'\\' || C == u'/';
}

qsizetype PosUltimoSeparatore(const QString& Percorso)
{
    return std::max(Percorso.lastIndexOf(u'\\'), Percorso.lastIndexOf(u'/'));
}

}  // namespace

QString PercorsoNativo(const QString& Percorso)
{
    QString Nativo;
    Nativo.reserve(Percorso.size());
    for (qsizetype I = 0; I < Percorso.size(); ++I) {
        const bool Separatore = ESeparatore(Percorso[I]);
        // The second separator may repeat the first alone: "\\server\cartella".
        if (Separatore && I > 1 && ESeparatore(Percorso[I - 1]))
            continue;
        Nativo += Separatore ? QDir::separator() : Percorso[I];
    }
    return Nativo;
}

QString Barra(const QString& Percorso)
{
    if (Percorso.isEmpty())
        return {};
    QString Cartella = PercorsoNativo(Percorso);
    while (Cartella.endsWith(QDir::separator()))
        Cartella.chop(1);
    return Cartella + QDir::separator();
}

QString PercorsoIntero(const QString& Percorso, const QString& Cartella)
{
    const QString Nativo = PercorsoNativo(Percorso);
    if (QDir::isAbsolutePath(Nativo))
        return Nativo;
    return Cartella.isEmpty() ? PercorsoNativo(QDir::current().absoluteFilePath(Nativo))
                              : Barra(Cartella) + Nativo;
}

qsizetype ByteDelNome(const QString& Nome)
{
    return QFile::encodeName(Nome).size();
}

QString NomeFile(const QString& Percorso)
{
    return Percorso.mid(PosUltimoSeparatore(Percorso) + 1);
}

QString CartellaFile(const QString& Percorso)
{
    return Percorso.left(PosUltimoSeparatore(Percorso) + 1);
}

bool FinisceInCartella(const QString& Percorso, const QString& Nome)
{
    if (Percorso.isEmpty() || Nome.isEmpty())
        return false;
    return NomeFile(Barra(Percorso).chopped(1)).compare(Nome, Qt::CaseInsensitive) == 0;
}
