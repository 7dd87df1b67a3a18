#include "uccisioni/imprese.h"

#include <QDateTime>
#include <QDirIterator>
#include <QFile>

#include <array>

using namespace Qt::StringLiterals;

QString NonUna(const QString& Trovata, const QStringList& Ammesse)
{
    return Ammesse.contains(Trovata) ? QString() : u"trovato «%1»"_s.arg(Trovata);
}

namespace {

constexpr std::array VariabiliDiCasa{"XDG_CONFIG_HOME", "XDG_DATA_HOME"};

const QList<QByteArray>& Originali()
{
    static const QList<QByteArray> Valori = [] {
        QList<QByteArray> Letti;
        for (const char* Nome : VariabiliDiCasa)
            Letti.append(qgetenv(Nome));
        return Letti;
    }();
    return Valori;
}

}  // namespace

void ConCasaIn(const QString& Cartella)
{
    (void)Originali();
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(Cartella.chopped(1)));
    qputenv("XDG_DATA_HOME", QFile::encodeName(Cartella + u"dati"_s));
}

void CasaDiPrima()
{
    for (size_t i = 0; i < VariabiliDiCasa.size(); ++i)
        qputenv(VariabiliDiCasa[i], Originali()[qsizetype(i)]);
}

void Invecchia(const QString& Cartella, int Secondi)
{
    const QDateTime Quando = QDateTime::currentDateTime().addSecs(-Secondi);
    QDirIterator Cammino(Cartella, {u".*"_s, u"*.parziale"_s, u"*.blocco"_s, u"*.lock"_s},
                         QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (Cammino.hasNext()) {
        QFile File(Cammino.next());
        if (File.open(QIODevice::ReadWrite))
            File.setFileTime(Quando, QFileDevice::FileModificationTime);
    }
}
