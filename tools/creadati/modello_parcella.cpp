#include "creadati/modello_parcella.h"

#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace {

/// A column of the templates; `Caratteri` counts for Testo alone.
struct Colonna
{
    const char16_t* Nome;
    TipoCampo Tipo;
    int Caratteri = 0;
};

constexpr auto Lungo = TipoCampo::Lungo;
constexpr auto Intero = TipoCampo::Intero;
constexpr auto Singolo = TipoCampo::Singolo;
constexpr auto Doppio = TipoCampo::Doppio;
constexpr auto Data = TipoCampo::Data;
constexpr auto Testo = TipoCampo::Testo;
constexpr auto Memo = TipoCampo::Memo;

constexpr std::array Parametri{
    Colonna{u"IDCli", Lungo},
    Colonna{u"IDCon", Lungo},
    Colonna{u"Categ", Lungo},
    Colonna{u"Autor", Lungo},
    Colonna{u"Valore", Lungo},
    Colonna{u"Importo", Doppio},
    Colonna{u"TipoStampa", Lungo},
    Colonna{u"AumRidVarP", Doppio},
    Colonna{u"AumRidIdx", Lungo},
    Colonna{u"Testo1", Memo},
    Colonna{u"Testo2", Memo},
    Colonna{u"VisMinMax", Intero},
    Colonna{u"IVA", Doppio},
    Colonna{u"RA", Doppio},
    Colonna{u"CP", Doppio},
    Colonna{u"SpeseGen", Singolo},
    Colonna{u"NsRif", Testo, 255},
    Colonna{u"Cliente", Memo},
    Colonna{u"Controp", Memo},
    Colonna{u"Oggetto", Memo},
    Colonna{u"DataFatt", Data},
    Colonna{u"NumFatt", Testo, 255},
    Colonna{u"DepAut", Testo, 255},
    Colonna{u"DepSez", Testo, 255},
    Colonna{u"DepRuolo", Testo, 255},
    Colonna{u"DepGiud", Testo, 255},
    // Six characters of a password, three digits each.
    Colonna{u"Psw", Testo, 18},
};

// A cell of the grid takes what is typed or pasted, and number, code and quantity come back as typed.
constexpr std::array Righe{
    Colonna{u"OnoDir", Testo, 1}, Colonna{u"Data", Data},           Colonna{u"Descr", Testo, 60},
    Colonna{u"NVoce", Testo, 50}, Colonna{u"CodOnoDir", Testo, 50}, Colonna{u"Qta", Testo, 50},
    Colonna{u"Importo", Doppio},  Colonna{u"Imp1", Doppio},         Colonna{u"Imp2", Doppio},
    Colonna{u"Imp3", Doppio},     Colonna{u"Imp4", Doppio},         Colonna{u"Imp5", Doppio},
    Colonna{u"Imp6", Doppio},     Colonna{u"VarP", Doppio},
};

constexpr std::array Acconti{
    Colonna{u"DesAcc", Testo, 255}, Colonna{u"Valuta", Testo, 10}, Colonna{u"Corr", Doppio},
    Colonna{u"SpImp", Doppio},      Colonna{u"SpEse", Doppio},
};

TabellaNuova Tabella(const QString& Nome, std::span<const Colonna> Colonne)
{
    TabellaNuova Nuova{Nome, {}};
    for (const Colonna& Una : Colonne)
        Nuova.Colonne.append({QString::fromUtf16(Una.Nome), Una.Tipo, Una.Caratteri, {}, false});
    return Nuova;
}

}  // namespace

QList<TabellaNuova> TabelleParcella()
{
    return {Tabella(u"ParcellaParam"_s, Parametri), Tabella(u"ParcellaRighe"_s, Righe),
            Tabella(u"ParcellaAcconti"_s, Acconti)};
}
