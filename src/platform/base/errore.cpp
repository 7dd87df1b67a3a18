#include "platform/base/errore.h"

#include <QStringView>

#include <algorithm>
#include <array>
#include <new>

using namespace Qt::StringLiterals;

namespace {

struct Voce
{
    int Numero;
    QStringView Descrizione;
};

constexpr std::array Descrizioni{
    Voce{5, u"Chiamata di procedura o argomento non valido"},
    Voce{6, u"Valore troppo grande per essere contenuto"},
    Voce{7, u"Memoria insufficiente"},
    Voce{9, u"Indice fuori dai limiti"},
    Voce{11, u"Divisione per zero"},
    Voce{13, u"Tipo di dato non corrispondente"},
    Voce{31, u"Nessun programma è associato al documento"},
    Voce{52, u"Nome di file non valido"},
    Voce{53, u"File non trovato"},
    Voce{55, u"File già in uso"},
    Voce{61, u"Disco pieno"},
    Voce{70, u"Autorizzazione negata"},
    Voce{75, u"Errore di accesso al percorso o al file"},
    Voce{76, u"Percorso non trovato"},
    Voce{1000, u"Errore imprevisto"},
    Voce{1025, u"Espressione troppo complessa"},
    Voce{3010, u"La tabella esiste già"},
    Voce{3015, u"L'indice indicato non esiste nella tabella"},
    Voce{3019, u"Operazione non valida senza un indice corrente"},
    Voce{3020, u"Il record non è stato preparato per la modifica"},
    Voce{3021, u"Nessun record corrente"},
    Voce{3022, u"La modifica creerebbe un valore doppio in una chiave univoca"},
    Voce{3024, u"Database non trovato"},
    Voce{3026, u"Spazio su disco insufficiente per il database"},
    Voce{3027, u"Impossibile aggiornare: il database o i dati sono di sola lettura"},
    Voce{3044, u"La cartella indicata per il database non esiste"},
    Voce{3061, u"La query contiene un nome di campo sconosciuto"},
    Voce{3070, u"Il criterio contiene un nome di campo sconosciuto"},
    Voce{3077, u"Errore di sintassi nel criterio di ricerca"},
    Voce{3078, u"Tabella o query non trovata"},
    Voce{3144, u"Errore di sintassi nell'istruzione SQL"},
    Voce{3159, u"Segnalibro non valido"},
    Voce{3163, u"Il testo è troppo lungo per il campo"},
    Voce{3167, u"Il record è stato eliminato"},
    Voce{3204, u"Il database esiste già"},
    Voce{3260, u"Impossibile aggiornare: i dati sono bloccati da un altro utente"},
    Voce{3265, u"Elemento non trovato nell'insieme"},
    Voce{3343, u"Formato del database non riconosciuto"},
    Voce{3421, u"Il valore non è del tipo richiesto dal campo"},
};
static_assert(std::ranges::is_sorted(Descrizioni, {}, &Voce::Numero));

}  // namespace

QString DescrizioneErrore(int Numero)
{
    const auto Trovata = std::ranges::lower_bound(Descrizioni, Numero, {}, &Voce::Numero);
    if (Trovata == Descrizioni.end() || Trovata->Numero != Numero)
        return u"Errore definito dall'applicazione"_s;
    return Trovata->Descrizione.toString();
}

Errore::Errore(int Codice) : Errore(Codice, DescrizioneErrore(Codice))
{}

Errore::Errore(int Codice, const QString& Frase) : Numero(Codice), Descrizione(Frase), Utf8(Frase.toUtf8())
{}

const char* Errore::what() const noexcept
{
    return Utf8.constData();
}

Errore ErroreCorrente()
{
    try {
        throw;
    } catch (const Errore& Noto) {
        return Noto;
    } catch (const std::bad_alloc&) {
        return Errore(7);
    } catch (...) {
        return Errore(1000);
    }
}
