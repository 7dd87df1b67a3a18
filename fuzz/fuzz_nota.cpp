// Fee-note files: any bytes are opened as one. What comes out is a note, or an error; never anything else.
#include "basedati.h"
#include "fonte.h"

#include "feenote/file/colonne.h"
#include "feenote/file/modDescrizione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modMultipla.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/file/modRecupero.h"
#include "feenote/file/modSalvataggio.h"
#include "platform/database/primariga.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// A sound note with a line of each kind.
const QByteArray& Sana()
{
    static const QByteArray Letta = [] {
        const QString File = CartellaDiLavoro() + u"sana.mdb"_s;
        ScriviNota(File, CreaDaDescrizione(R"({"categoria": "CIV", "autorita": 2, "valore": 30000,
            "spese": [{"voce": 3, "imponibili": 16}], "acconti": [{"corrispettivi": 100}],
            "cliente": "Rossi", "password": "chiave"})"));
        return Contenuto(File);
    }();
    return Letta;
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    const QString File = PosaDatabase(u"nota.mdb"_s, Sana(), Dati);
    // What a list of files reads of it, before anybody opens it. A cell is cut, a character being two units
    // of its text at most.
    constexpr int Massimo = 255;
    Riesce([&] {
        const auto Celle =
            LeggiPrimaRiga(File, TabellaParam.toString(), {u"Cliente"_s, u"Controp"_s}, Massimo);
        Pretendi(!Celle || Celle->size() == 2);
        Pretendi(!Celle || (Celle->at(0).size() <= 2 * Massimo && Celle->at(1).size() <= 2 * Massimo));
    });

    Parcella Nota;
    const bool Letta = Riesce([&] { CaricaDati(Nota, File); });
    Pretendi(Nota.Percorso.isEmpty() != Letta);
    Pretendi(Letta || (Nota.xOnorari.Vuota() && Nota.xDiritti.Vuota() && Nota.xAcconti.Vuota()));
    Pretendi(!Nota.Modificata && !Nota.RicalcoloNecessario);
    PretendiSolaLettura(File);

    // The other roads to the same file: as the second of two notes, as what a lost session has left, as what
    // it keeps of its invoice by now. The first of them takes the read-only attribute away.
    Riesce([&] {
        const NotaAssociata Altra = LeggiMulti(File);
        Pretendi(std::isfinite(Altra.TotOnorariMulti) && Altra.Illeggibili >= 0);
    });
    Parcella Persa;
    CopiaRecupero Copia;
    Copia.File = File;
    Copia.Percorso = u"/note/causa.mdb"_s;
    Copia.Nome = u"causa"_s;
    if (Riesce([&] { RecuperaNota(Persa, Copia); }))
        Pretendi(Persa.Modificata && Persa.Percorso == Copia.Percorso && Persa.Nome == Copia.Nome);
    else
        Pretendi(Persa.Percorso.isEmpty());
    Persa.Percorso = File;
    Riesce([&] { (void)FatturaNelFile(Persa); });

    // A password that cannot be decoded comes as it stands, however long.
    Riesce([&] { (void)LeggiPsw(File); });
    PretendiVicini(File);
}

}  // namespace

BERSAGLIO(fuzz_nota, Prova);
