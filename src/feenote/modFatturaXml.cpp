#include "feenote/modFatturaXml.h"

#include "feenote/codicifattura.h"
#include "feenote/modEmessi.h"
#include "feenote/modStato.h"
#include "platform/base/regionale.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;

QString FirmaFattura(const Parcella& Nota)
{
    return Nota.DatiPar(DatoNumFatt).trimmed() + u'|' + Nota.DatiPar(DatoDataFatt).trimmed();
}

bool FatturaNumerata(const Parcella& Nota)
{
    return !Nota.DatiPar(DatoNumFatt).trimmed().isEmpty() && IsDate(Nota.DatiPar(DatoDataFatt).trimmed());
}

namespace {

QString Nome(const DatiFatturaXml& Dati)
{
    return Dati.Tipo == codici::NotaDiCredito ? u"La nota di credito"_s : u"La fattura"_s;
}

/// The file that the note names is that of the invoice that it has now.
bool ENominata(const Parcella& Nota)
{
    return !Nota.FatturaXml.File.isEmpty() && Nota.FatturaXml.DiFattura == FirmaFattura(Nota);
}

}  // namespace

bool FatturaGiaScritta(const Parcella& Nota)
{
    return ENominata(Nota) || HaFileScritto(Nota);
}

QString FraseGiaScritta(const DatiFatturaXml& Scritta)
{
    return Nome(Scritta) + u" è già stata scritta il %1 come %2"_s.arg(Scritta.Quando, Scritta.File);
}

QString FraseGiaScritta(const Parcella& Nota)
{
    return ENominata(Nota)
               ? FraseGiaScritta(Nota.FatturaXml)
               : Nome(Nota.FatturaXml) +
                     u" %1 è già stata scritta come file"_s.arg(Nota.DatiPar(DatoNumFatt).simplified());
}

void SegnaFatturaScritta(Parcella& Nota, const QString& File, const QString& Progressivo)
{
    (void)NotaFatturata(Nota);  // while it is known of which invoice the file before is
    Nota.FatturaXml.File = File;
    Nota.FatturaXml.Quando = Format(Oggi(), ModelloData);
    Nota.FatturaXml.Progressivo = Progressivo;
    Nota.FatturaXml.DiFattura = FirmaFattura(Nota);
    SetModificata(Nota, true);
}

bool CambiaFatturaXml(Parcella& Nota, const DatiFatturaXml& Scelte)
{
    if (Nota.FatturaXml == Scelte)
        return false;
    Nota.FatturaXml = Scelte;
    SetModificata(Nota, true);
    return true;
}
