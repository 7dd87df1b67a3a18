// Fee-note files: any bytes are opened as one. What comes out is a note, or an error; never anything else.
#include "basedati.h"
#include "fonte.h"

#include "feenote/file/colonne.h"
#include "feenote/file/memoriastato.h"
#include "feenote/file/modDescrizione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPosaFile.h"
#include "platform/database/primariga.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"

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

constexpr int Massimo = 255;

/// What a list of files reads of one, and whether it could.
struct Elencata
{
    bool Letta = false;
    std::optional<QStringList> Celle;
    QMap<QString, QString> Annotate;

    friend bool operator==(const Elencata&, const Elencata&) = default;
};

Elencata InElenco(const QString& File, bool SoloMotore)
{
    guasti::SoloMotore = SoloMotore;
    AnnotazioniChieste Anche{VociStatoLetto(), {}};
    Elencata Trovata;
    Trovata.Letta = Riesce([&] {
        Trovata.Celle =
            LeggiPrimaRiga(File, TabellaParam.toString(), {u"Cliente"_s, u"Controp"_s}, Massimo, &Anche);
    });
    if (Trovata.Letta)
        Trovata.Annotate = Anche.Trovate;
    (void)LeggiStatoLetto(Trovata.Annotate);
    return Trovata;
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    // What a list reads of it, before anybody opens it: the pages say what the engine says, once it has read
    // a file of that schema. A cell is cut, a character being two units of its text at most.
    static const bool Imparata = [] {
        const QString File = CartellaDiLavoro() + u"prima.mdb"_s;
        ScriviFile(File, Sana());
        return InElenco(File, false).Letta;
    }();
    Pretendi(Imparata);
    const QString File = PosaDatabase(u"nota.mdb"_s, Sana(), Dati);
    const Elencata Motore = InElenco(File, true);
    Pretendi(InElenco(File, false) == Motore);
    Pretendi(!Motore.Celle || Motore.Celle->size() == 2);
    for (const QString& Cella : Motore.Celle.value_or(QStringList()))
        Pretendi(Cella.size() <= 2 * Massimo);

    Parcella Nota;
    const bool Letta = Riesce([&] { CaricaDati(Nota, File); });
    Pretendi(Nota.Percorso.isEmpty() != Letta);
    Pretendi(Letta || (Nota.xOnorari.Vuota() && Nota.xDiritti.Vuota() && Nota.xAcconti.Vuota()));
    Pretendi(!Nota.Modificata && !Nota.RicalcoloNecessario);

    // A password that cannot be decoded comes as it stands, however long.
    Riesce([&] { (void)LeggiPsw(File); });
}

}  // namespace

BERSAGLIO(fuzz_nota, Prova);
