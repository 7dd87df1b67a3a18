// The line that the companion application starts the program with: read whole or not at all, and what is read
// of it fits a new note.
#include "fonte.h"

#include "core/sessione.h"
#include "feenote/companion/modRichiesta.h"
#include "feenote/modNuovaParcella.h"
#include "feenote/parcella.h"

#include <QFile>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

bool In16Bit(int Numero)
{
    return Numero >= std::numeric_limits<qint16>::min() && Numero <= std::numeric_limits<qint16>::max();
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    sessione::ArchivioCliCon = CartellaCostruita() + u"DatiStudio.mdb"_s;
    const QString Riga = QString::fromUtf8(Dati.left(4000));
    if (!LeggiRichiestaPV2(Riga)) {
        Pretendi(sessione::RichiestaPV2 == Richiesta());
        return;
    }
    const Richiesta Letta = sessione::RichiestaPV2;
    Pretendi(Riga.count(u'|') >= 7 && !Letta.ID.contains(u'|') && Riga.startsWith(Letta.ID + u'|'));
    Pretendi(In16Bit(Letta.Categoria) && In16Bit(Letta.Autorita) && In16Bit(Letta.Scelta));
    Pretendi(std::isfinite(Letta.Valore));
    Riesce([&] {
        Parcella Nota;
        NuovaParcella(Nota);
        ApplicaRichiesta(Nota, Letta);
        Pretendi(!Nota.Modificata && Nota.NsRif == Letta.ID && Nota.Scelta == Letta.Scelta);
        Pretendi(Nota.cmbAutor < int(Nota.ListaAutorita.size()));
        Pretendi(Nota.cmbValore < int(Nota.ListaScaglioni.size()));
        AdottaRiferimento(Nota);
    });
    sessione::RichiestaPV2 = {};
}

}  // namespace

BERSAGLIO(fuzz_richiesta, Prova);
