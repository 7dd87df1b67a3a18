#include "supporto/prova.h"

#include <QDir>
#include <QTemporaryDir>

std::map<QString, std::function<QObject*()>>& ClassiDiProva()
{
    static std::map<QString, std::function<QObject*()>> Classi;
    return Classi;
}

RegistraProva::RegistraProva(const char* Nome, std::function<QObject*()> Crea)
{
    ClassiDiProva()[QString::fromLatin1(Nome)] = std::move(Crea);
}

QString CartellaDiProva()
{
    static const QTemporaryDir Radice(QDir::tempPath() + QStringLiteral("/calcanova-prova-XXXXXX"));
    return Radice.path() + QDir::separator();
}

QString NuovaCartella()
{
    static int Numero = 0;
    const QString Percorso = CartellaDiProva() + QString::number(++Numero);
    QDir().mkpath(Percorso);
    return Percorso + QDir::separator();
}

QString FileDiProva(const QString& Nome)
{
    return QStringLiteral(CARTELLA_PROVE "/") + Nome;
}

QString SorgenteDiProva(const QString& Nome)
{
    return QStringLiteral(CARTELLA_SORGENTE "/") + Nome;
}

QString ProgrammaDiProva()
{
    return QStringLiteral(CARTELLA_PROGRAMMA "/");
}
