#include "feenote/parcella.h"

#include "platform/base/regionale.h"

#include <algorithm>

using namespace Qt::StringLiterals;

double Casella::Numero() const
{
    return NumeroDi(Testo);
}

int Parcella::IDAutSelezionata() const
{
    return cmbAutor >= 0 && cmbAutor < ListaAutorita.size() ? ListaAutorita[cmbAutor].IDAut : 0;
}

const ScaglioneValore* Parcella::ScaglioneSelezionato() const
{
    return cmbValore >= 0 && cmbValore < ListaScaglioni.size() ? &ListaScaglioni[cmbValore] : nullptr;
}

namespace {

template <class Voce>
int PostoDi(const QList<Voce>& Elenco, int Numero, int Voce::*Membro)
{
    const auto Trovata = std::ranges::find(Elenco, Numero, Membro);
    return Trovata == Elenco.end() ? NessunaVoce : int(Trovata - Elenco.begin());
}

}  // namespace

int PostoAutorita(const Parcella& Nota, int IDAut)
{
    return PostoDi(Nota.ListaAutorita, IDAut, &Autorita::IDAut);
}

int PostoScaglione(const Parcella& Nota, int NumSca)
{
    return PostoDi(Nota.ListaScaglioni, NumSca, &ScaglioneValore::NumSca);
}

QStringList VociCategoria()
{
    return {u"Civile o Amministrativa"_s, u"Penale"_s, u"Stragiudiziale"_s};
}

QString TestoCategoria(const Parcella& Nota)
{
    return VociCategoria().value(Nota.cmbCateg);
}

QString TestoAutorita(const Parcella& Nota)
{
    return Nota.IDAutSelezionata() == 0 ? QString() : Nota.ListaAutorita[Nota.cmbAutor].DesAut;
}

QString TestoScaglione(const Parcella& Nota)
{
    const ScaglioneValore* Scelto = Nota.ScaglioneSelezionato();
    return Scelto ? Scelto->DesVal : QString();
}

QString TestoValore(const Parcella& Nota)
{
    const double Valore = Nota.txtImporto.Numero();
    return Valore > 0 ? Format(Valore, ModelloImporto) + u" €"_s : TestoScaglione(Nota).toLower();
}

void SetModificata(Parcella& Nota, bool Valore)
{
    Nota.Modificata = Valore;
}

void SegnaRicalcolo(Parcella& Nota)
{
    Nota.RicalcoloNecessario = true;
    if (!Nota.xOnorari.Vuota())
        Nota.RigheDaRicalcolare = true;
}

bool RicalcoloInSospeso(const Parcella& Nota)
{
    return Nota.RigheDaRicalcolare && !Nota.xOnorari.Vuota();
}
