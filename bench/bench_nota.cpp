// Opening and saving a fee note of forty lines.
#include "feenote/modNuovaParcella.h"
#include "misura.h"

#include "core/sessione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/modParametri.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int Righe = 40;

/// A civil note at the ordinary court with lines of every kind, forty in all.
Parcella NotaDiQuarantaRighe()
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
    const Parcella Nota = NotaDiQuarantaRighe();
    return MedianaMs(15, [&] { ScriviNota(File, Nota); });
}
const RegistraMisura RegistrataSalva(u"save a note of 40 rows"_s, 30.0, SalvaNota);

double CaricaNota()
{
    const QTemporaryDir Cartella;
    const QString File = Cartella.filePath(u"nota.mdb"_s);
    ScriviNota(File, NotaDiQuarantaRighe());
    return MedianaMs(15, [&] {
        Parcella Nota;
        CaricaDati(Nota, File);
        Consuma(Nota.xOnorari.Righe() + Nota.xDiritti.Righe());
    });
}
const RegistraMisura RegistrataCarica(u"load a note of 40 rows"_s, 20.0, CaricaNota);

}  // namespace
