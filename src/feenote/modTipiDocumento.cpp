#include "feenote/modTipiDocumento.h"

using namespace Qt::StringLiterals;

bool ETipoStampa(int Tipo)
{
    return Tipo >= 0 && Tipo < int(TipiDocumento.size());
}

const TipoDocumento& TipoDi(int Tipo)
{
    static constexpr TipoDocumento Nessuno;
    return ETipoStampa(Tipo) ? TipiDocumento[size_t(Tipo)] : Nessuno;
}

QStringList VociTipoStampa()
{
    QStringList Voci;
    for (const TipoDocumento& Documento : TipiDocumento)
        Voci.append(Documento.Nome.toString());
    return Voci;
}

QString FraseTipiStampa()
{
    return u"i tipi di stampa vanno da 0 a "_s + QString::number(TipiDocumento.size() - 1);
}
