#include "addressbook/exchange/turnoarchivio.h"

#include "addressbook/exchange/tabellaestranea.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

QString FileDelTurno(const QString& Archivio)
{
    return FileVero(Archivio) + u".prima.blocco"_s;
}

void PrendiTurno(FileBlocco& Turno)
{
    constexpr int AttesaMs = 2000;  // longer than the lock counts that a killed program has left unsigned
    if (Turno.Prendi(AttesaMs) == FileBlocco::Esito::Altrui)
        RifiutaFile(u"Un altro programma sta importando nello stesso archivio: riprovare fra poco."_s);
}

bool NonEQuello(const Errore& Guasto)
{
    constexpr std::array Numeri{errori::FormatoDatabase, errori::DatabaseMancante, errori::TabellaMancante,
                                errori::CampoSconosciuto};
    return std::ranges::find(Numeri, Guasto.Numero) != Numeri.end();
}

ArchivioFermo::ArchivioFermo(const QString& Archivio)
{
    try {
        Db = OpenDatabase(Archivio);
        Sola.emplace(Db);
    } catch (const Errore& Guasto) {
        // To a file that is no archive, or a read-only one, nobody writes.
        if (!NonEQuello(Guasto) && Guasto.Numero != errori::DatabaseSolaLettura)
            throw;
    }
}
