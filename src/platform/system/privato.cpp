#include "platform/system/privato.h"

#include "platform/base/errore.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "platform/system/sincrono.h"

#include <QFile>
#include <QUuid>

namespace {

constexpr auto SoloSuoi = QFile::ReadOwner | QFile::WriteOwner;

/// Removes a file that was not finished.
class Provvisorio
{
public:
    explicit Provvisorio(const QString& Nome) : File(Nome) {}
    ~Provvisorio()
    {
        if (!Finito)
            QFile::remove(File);
    }
    Provvisorio(const Provvisorio&) = delete;
    Provvisorio& operator=(const Provvisorio&) = delete;
    void Tieni() { Finito = true; }

private:
    QString File;
    bool Finito = false;
};

void Accoda(QFile& A, QByteArrayView Pezzo)
{
    if ((guasti::LimiteFile > 0 && A.size() + Pezzo.size() > guasti::LimiteFile) ||
        A.write(Pezzo.data(), Pezzo.size()) != Pezzo.size())
        throw Errore(errori::DiscoPieno);
}

}  // namespace

void ScriviFilePrivato(const QString& Percorso, const QByteArray& Contenuto)
{
    const QString Nativo = PercorsoNativo(Percorso);
    const QString Cartella = CartellaFile(Nativo);
    if (!Cartella.isEmpty() && !EsisteCartella(Cartella))
        throw Errore(errori::PercorsoMancante);
    if (EsisteCartella(Nativo) || SolaLettura(Nativo) ||
        (!Cartella.isEmpty() && !CartellaScrivibile(Cartella)))
        throw Errore(errori::Accesso);
    const QString Nome = Nativo + QLatin1Char('.') + QUuid::createUuid().toString(QUuid::Id128);
    QFile Nuovo(Nome);
    if (!Nuovo.open(QIODevice::WriteOnly | QIODevice::NewOnly, SoloSuoi))
        throw Errore(errori::Accesso);
    Provvisorio Guardia(Nome);
    Accoda(Nuovo, Contenuto);
    if (!Nuovo.flush())
        throw Errore(errori::DiscoPieno);
    Nuovo.close();
    ScriviSulDisco(Nome);
    SostituisciFile(Nome, Nativo);
    Guardia.Tieni();
}

void CopiaFilePrivato(const QString& Da, const QString& A)
{
    const QString Nome = PercorsoNativo(A);
    QFile::remove(Nome);
    QFile Copia(Nome);
    if (!Copia.open(QIODevice::WriteOnly | QIODevice::NewOnly, SoloSuoi))
        throw Errore(errori::Accesso);
    Provvisorio Guardia(Nome);
    LeggiAPezzi(Da, [&](QByteArrayView Pezzo) {
        Accoda(Copia, Pezzo);
        return true;
    });
    if (!Copia.flush())
        throw Errore(errori::DiscoPieno);
    Copia.close();
    ScriviSulDisco(Nome);
    Guardia.Tieni();
}

void CopiaPermessi(const QString& Da, const QString& A)
{
    if (!QFile::setPermissions(PercorsoNativo(A), QFile::permissions(PercorsoNativo(Da))))
        throw Errore(errori::Accesso);
}
