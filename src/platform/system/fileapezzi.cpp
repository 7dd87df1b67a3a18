#include "platform/system/fileapezzi.h"

#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// The path that no link hides. @throws Errore 75, 76 nothing may be put there
QString Ammesso(const QString& Percorso)
{
    const QString Nativo = FileVero(Percorso);
    const QString Detta = CartellaFile(Nativo);
    const QString Cartella = Detta.isEmpty() ? u"."_s : Detta;
    if (!EsisteCartella(Cartella))
        throw Errore(errori::PercorsoMancante);
    // The rename would replace a read-only file, so the attribute is asked first; a pipe or a device is no
    // file.
    const QFileInfo Presente(Nativo);
    if (Nativo.isEmpty() || (Presente.exists() && !Presente.isFile()) || SolaLettura(Nativo) ||
        !CartellaScrivibile(Cartella))
        throw Errore(errori::Accesso);
    return Nativo;
}

}  // namespace

FileAPezzi::FileAPezzi(const QString& Percorso, Lettori Chi) : Nuovo(Ammesso(Percorso), Chi)
{}

void FileAPezzi::Scrivi(QByteArrayView Byte)
{
    Scritti += Byte.size();
    if (guasti::LimiteFile > 0 && Scritti > guasti::LimiteFile)
        throw Errore(errori::DiscoPieno);
    Nuovo.Scrivi(Byte);
}

void FileAPezzi::Posa()
{
    Nuovo.Posa();
}
