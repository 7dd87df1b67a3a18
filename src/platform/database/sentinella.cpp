#include "platform/database/sentinella.h"

#include <QByteArrayView>

#include <sqlite3.h>

namespace {

sqlite3_vfs* DelSistema()
{
    static sqlite3_vfs* Strato = sqlite3_vfs_find(nullptr);
    return Strato;
}

bool Finisce(const char* Nome, QByteArrayView Con)
{
    return Nome && QByteArrayView(Nome).endsWith(Con);
}

/// A journal that names another one belongs to a write into several databases at once, which the program
/// never makes; the engine would look into the file of that name and delete it.
int Apri(sqlite3_vfs* Strato, sqlite3_filename Nome, sqlite3_file* File, int Bandiere, int* Esito)
{
    if (Bandiere & SQLITE_OPEN_SUPER_JOURNAL)
        return SQLITE_CANTOPEN;
    return DelSistema()->xOpen(Strato, Nome, File, Bandiere, Esito);
}

int Elimina(sqlite3_vfs* Strato, const char* Nome, int Sincrona)
{
    if (!Finisce(Nome, "-journal") && !Finisce(Nome, "-wal"))
        return SQLITE_IOERR_DELETE;
    return DelSistema()->xDelete(Strato, Nome, Sincrona);
}

/// A database that is kept with such a log says so in its first page, and the engine opens the log for that.
int Esiste(sqlite3_vfs* Strato, const char* Nome, int Bandiere, int* Esito)
{
    if (Bandiere == SQLITE_ACCESS_EXISTS && Finisce(Nome, "-wal")) {
        *Esito = 0;
        return SQLITE_OK;
    }
    return DelSistema()->xAccess(Strato, Nome, Bandiere, Esito);
}

}  // namespace

const char* StratoFile()
{
    static sqlite3_vfs Nostro = [] {
        // Nobody asks how much the engine holds, and the count is a lock that all threads share at each
        // allocation.
        sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
        sqlite3_initialize();
        sqlite3_vfs Copia = *DelSistema();
        Copia.zName = "calcanova";
        Copia.pNext = nullptr;
        Copia.xOpen = Apri;
        Copia.xDelete = Elimina;
        Copia.xAccess = Esiste;
        return Copia;
    }();
    static const bool Iscritto = sqlite3_vfs_register(&Nostro, 0) == SQLITE_OK;
    return Iscritto ? Nostro.zName : nullptr;
}
