#include "platform/document/lettorertf_font.h"

#include "platform/base/paginacodice.h"

namespace {

constexpr qsizetype MassimoFont = 4096;
constexpr qsizetype MassimoNome = 64;

}  // namespace

void FontRtf::Aggiungi(QStringView Nome, int Numero)
{
    for (const QChar C : Nome) {
        if (C == u';')
            Chiudi(Numero);
        else if (Corrente.Nome.size() < MassimoNome)
            Corrente.Nome += C;
    }
}

void FontRtf::Chiudi(int Numero)
{
    const QString Nome = Corrente.Nome.trimmed();
    if (!Nome.isEmpty() && Tutti.size() < MassimoFont)
        Tutti.insert(Numero, {SenzaControlli(Nome), Corrente.Pagina});
    Corrente = {};
}

int FontRtf::Pagina(int Numero) const
{
    return Tutti.value(Numero).Pagina;
}

QString FontRtf::Nome(int Numero) const
{
    return Tutti.value(Numero).Nome;
}
