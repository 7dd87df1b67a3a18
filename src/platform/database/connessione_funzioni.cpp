// What the program adds to the engine's SQL: a collation and two functions, for its own queries only.
#include "platform/base/regionale.h"
#include "platform/base/testopiano.h"
#include "platform/database/connessione.h"
#include "platform/database/somiglianza.h"
#include "platform/database/valori.h"

#include <sqlite3.h>

namespace {

constexpr int Bandiere = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;

int Confronta(void*, int LungoA, const void* A, int LungoB, const void* B)
{
    return ConfrontaSenzaMaiuscole({static_cast<const char*>(A), LungoA},
                                   {static_cast<const char*>(B), LungoB});
}

int ConfrontaPiani(void*, int LungoA, const void* A, int LungoB, const void* B)
{
    const auto Piano = [](const void* Byte, int Lungo) {
        QByteArray Testo;
        AccodaPiano(Testo, {static_cast<const char*>(Byte), Lungo});
        return Testo;
    };
    try {
        return Piano(A, LungoA).compare(Piano(B, LungoB));
    } catch (...) {
        return 0;  // the engine calls from C, and an order is no place for an error
    }
}

QByteArrayView TestoDi(sqlite3_value* Valore)
{
    const auto* Inizio = reinterpret_cast<const char*>(sqlite3_value_text(Valore));
    return Inizio ? QByteArrayView(Inizio, sqlite3_value_bytes(Valore)) : QByteArrayView();
}

/// The engine calls from C: what is thrown here becomes its error.
template <class Funzione>
void Riparata(sqlite3_context* Contesto, Funzione Fai)
{
    try {
        Fai();
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(Contesto);
    } catch (...) {
        sqlite3_result_error_code(Contesto, SQLITE_MISMATCH);
    }
}

// The pattern is read once per query: the engine keeps it beside the constant argument.
void Corrisponde(sqlite3_context* Contesto, int, sqlite3_value** Argomenti)
{
    if (sqlite3_value_type(Argomenti[0]) == SQLITE_NULL || sqlite3_value_type(Argomenti[1]) == SQLITE_NULL)
        return;
    Riparata(Contesto, [&] {
        const auto* Pronto = static_cast<const Somiglianza*>(sqlite3_get_auxdata(Contesto, 0));
        std::unique_ptr<Somiglianza> Nuovo;
        if (!Pronto) {
            Nuovo = std::make_unique<Somiglianza>(QString::fromUtf8(TestoDi(Argomenti[0])));
            Pronto = Nuovo.get();
        }
        sqlite3_result_int(Contesto, Pronto->Corrisponde(TestoDi(Argomenti[1])));
        if (Nuovo)
            sqlite3_set_auxdata(Contesto, 0, Nuovo.release(),
                                [](void* Vecchio) { delete static_cast<Somiglianza*>(Vecchio); });
    });
}

void ValoreData(sqlite3_context* Contesto, int, sqlite3_value** Argomenti)
{
    Riparata(Contesto, [&] {
        const auto Data = LeggiData(QString::fromUtf8(TestoDi(Argomenti[0])));
        if (!Data)
            return sqlite3_result_error_code(Contesto, SQLITE_MISMATCH);
        const QByteArray Iso = DataIso(*Data).toLatin1();
        sqlite3_result_text(Contesto, Iso.constData(), int(Iso.size()), SQLITE_TRANSIENT);
    });
}

void Raccogli(sqlite3_context* Contesto, int, sqlite3_value** Argomenti)
{
    auto* A = static_cast<RaccoltaTesti*>(sqlite3_value_pointer(Argomenti[0], TipoRaccolta));
    if (!A)
        return sqlite3_result_error_code(Contesto, SQLITE_MISUSE);
    Riparata(Contesto, [&] {
        const int Forma = sqlite3_value_type(Argomenti[2]);
        const auto Che = Forma == SQLITE_NULL   ? RaccoltaTesti::Cella::Nulla
                         : Forma == SQLITE_TEXT ? RaccoltaTesti::Cella::Testo
                                                : RaccoltaTesti::Cella::Altro;
        const QByteArrayView Testo =
            Che == RaccoltaTesti::Cella::Testo ? TestoDi(Argomenti[2]) : QByteArrayView();
        sqlite3_result_int(Contesto, int(A->Prendi(sqlite3_value_int64(Argomenti[1]), Che, Testo)));
    });
}

}  // namespace

void RegistraFunzioni(const Connessione& Conn)
{
    sqlite3* const Db = Conn.Motore();
    Conn.Verifica(sqlite3_create_collation_v2(Db, Collazione, SQLITE_UTF8, nullptr, Confronta, nullptr));
    Conn.Verifica(
        sqlite3_create_collation_v2(Db, CollazionePiana, SQLITE_UTF8, nullptr, ConfrontaPiani, nullptr));
    constexpr int OgniVolta = SQLITE_UTF8 | SQLITE_DIRECTONLY;
    Conn.Verifica(sqlite3_create_function_v2(Db, "raccogli", 3, OgniVolta, nullptr, Raccogli, nullptr,
                                             nullptr, nullptr));
    Conn.Verifica(sqlite3_create_function_v2(Db, "corrisponde", 2, Bandiere, nullptr, Corrisponde, nullptr,
                                             nullptr, nullptr));
    Conn.Verifica(sqlite3_create_function_v2(Db, "datevalue", 1, Bandiere, nullptr, ValoreData, nullptr,
                                             nullptr, nullptr));
}
