// Fee-note files: any bytes are opened as one. What comes out is a note, or an error; never anything else.
//
// A file made of random bytes is refused at its first page, so half of the inputs change bytes of a sound
// file instead: pairs of a position and a value.
#include "core/sessione.h"
#include "feenote/file/colonne.h"
#include "feenote/file/modDescrizione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPosaFile.h"
#include "platform/base/errore.h"
#include "platform/database/primariga.h"
#include "platform/system/messaggi.h"

#include <QFile>
#include <QTemporaryDir>

#include <fuzzer/FuzzedDataProvider.h>

using namespace Qt::StringLiterals;

namespace {

void Pretendi(bool Vero)
{
    if (!Vero)
        __builtin_trap();
}

/// A sound note with a line of each kind; empty when the program's databases are not beside the target.
QByteArray NotaSana(const QString& Cartella)
{
    const QString File = Cartella + u"/sana.mdb"_s;
    try {
        ScriviNota(File, CreaDaDescrizione(R"({"categoria": "CIV", "autorita": 2, "valore": 30000,
            "spese": [{"voce": 3, "imponibili": 16}], "acconti": [{"corrispettivi": 100}],
            "cliente": "Rossi", "password": "chiave"})"));
    } catch (const Errore&) {
        return {};
    }
    QFile Aperto(File);
    return Aperto.open(QIODevice::ReadOnly) ? Aperto.readAll() : QByteArray();
}

QByteArray ContenutoDaProvare(FuzzedDataProvider& Fonte, QByteArray Sana)
{
    if (Sana.isEmpty() || !Fonte.ConsumeBool())
        return QByteArray::fromStdString(Fonte.ConsumeRemainingBytesAsString());
    while (Fonte.remaining_bytes() > 0) {
        const qsizetype Posto = Fonte.ConsumeIntegralInRange<qsizetype>(0, Sana.size() - 1);
        Sana[Posto] = Fonte.ConsumeIntegral<char>();
    }
    return Sana;
}

template <class F>
bool Riesce(F&& Prova)
{
    try {
        Prova();
        return true;
    } catch (const Errore& Guasto) {
        Pretendi(Guasto.Numero > 0);
        return false;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Dati, size_t Quanti)
{
    static const QTemporaryDir Cartella;
    static const bool Muta =
        (InstallaMessaggi({}), sessione::PercorsoProg = QStringLiteral(CARTELLA_PROGRAMMA "/"), true);
    static const QByteArray Sana = NotaSana(Cartella.path());
    Pretendi(Muta);

    FuzzedDataProvider Fonte(Dati, Quanti);
    const QString File = Cartella.filePath(u"nota.mdb"_s);
    {
        QFile Nuovo(File);
        const QByteArray Contenuto = ContenutoDaProvare(Fonte, Sana);
        Pretendi(Nuovo.open(QIODevice::WriteOnly) && Nuovo.write(Contenuto) == Contenuto.size());
    }
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

    // A password that cannot be decoded comes as it stands, however long.
    Riesce([&] { (void)LeggiPsw(File); });
    return 0;
}
