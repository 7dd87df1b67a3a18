// Opening and saving a fee note of forty lines, associating one of a thousand.
#include "feenote/modNuovaParcella.h"
#include "misura.h"

#include "core/sessione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modMultipla.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/modParametri.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int RigheComuni = 40;
constexpr int RigheLunghe = 1000;

/// A civil note at the ordinary court with lines of every kind, so many in all.
Parcella NotaDi(int Righe)
{
    sessione::PercorsoProg = QStringLiteral(CARTELLA_PROGRAMMA "/");
    Parcella Nota;
    NuovaParcella(Nota);
    SelezionaInSilenzio(Nota, 0, 2, 2);
    ImpostaValoreInSilenzio(Nota, 30000);
    for (int i = 0; i < Righe / 2; ++i) {
        const int Onorario = Nota.xOnorari.AggiungiRiga();
        Nota.xOnorari(Onorario, OnoDescr) = u"Fase istruttoria, udienza %1"_s.arg(i);
        Nota.xOnorari(Onorario, OnoQta) = 1.0;
        for (const int Colonna : {OnoImporto, OnoMedio, OnoMin, OnoMax, OnoBaseMedio, OnoBaseMin, OnoBaseMax})
            Nota.xOnorari(Onorario, Colonna) = 1200.0 + i;
        const int Spesa = Nota.xDiritti.AggiungiRiga();
        Nota.xDiritti(Spesa, DirDescr) = u"Diritti di copia"_s;
        Nota.xDiritti(Spesa, DirQta) = u"1"_s;
        Nota.xDiritti(Spesa, DirImponibile) = 12.5;
    }
    return Nota;
}

double SalvaNota()
{
    const QTemporaryDir Cartella;
    const QString File = Cartella.filePath(u"nota.mdb"_s);
    const Parcella Nota = NotaDi(RigheComuni);
    return MedianaMs(15, [&] { ScriviNota(File, Nota); });
}
const RegistraMisura RegistrataSalva(u"save a note of 40 rows"_s, 30.0, SalvaNota);

double CaricaNota()
{
    const QTemporaryDir Cartella;
    const QString File = Cartella.filePath(u"nota.mdb"_s);
    ScriviNota(File, NotaDi(RigheComuni));
    return MedianaMs(15, [&] {
        Parcella Nota;
        CaricaDati(Nota, File);
        Consuma(Nota.xOnorari.Righe() + Nota.xDiritti.Righe());
    });
}
const RegistraMisura RegistrataCarica(u"load a note of 40 rows"_s, 20.0, CaricaNota);

double AssociaNota()
{
    const QTemporaryDir Cartella;
    const QString File = Cartella.filePath(u"altra.mdb"_s);
    ScriviNota(File, NotaDi(RigheLunghe));
    Parcella Nota = NotaDi(RigheComuni);
    return MedianaMs(15, [&] { Consuma(AssociaMulti(Nota, File) ? Nota.Multi.xOnorariMulti.Righe() : 0); });
}
const RegistraMisura RegistrataAssocia(u"associate a note of 1,000 rows"_s, 20.0, AssociaNota);

}  // namespace
