#include "feenote/modSpese.h"

#include "platform/base/regionale.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;

int AddDiritti(Parcella& Nota, const QDate&, const QString& Descr, const QString& Quant,
               const QVariant& NVoce, const QVariant& IDDir, std::optional<int> Corrente)
{
    const int Riga = RowIns(Nota, TipoRiga::Diritti, Corrente);
    TabellaRighe& Righe = Nota.xDiritti;
    Righe.InserisciRiga(Riga);
    Righe(Riga, DirData) = QString();
    Righe(Riga, DirDescr) = Descr;
    Righe(Riga, DirQta) = Quant;
    Righe(Riga, DirImponibile) = 0.0;
    // Item number and key are kept as text, the form in which the file holds them.
    Righe(Riga, DirNVoce) = CStr(NVoce);
    Righe(Riga, DirIDDir) = CStr(IDDir);
    SetModificata(Nota, true);
    return Riga;
}

int InserisciSpesa(Parcella& Nota, const Catalogo& Voci, std::optional<int> Corrente)
{
    const Recordset& Voce = Voci.datDir;
    return AddDiritti(Nota, Oggi(), Voce.Value(u"DescrDir"_s, QString()).toString(), u"1"_s,
                      Voce.Value(u"NVoce"_s), Voce.Value(u"IDDir"_s), Corrente);
}
