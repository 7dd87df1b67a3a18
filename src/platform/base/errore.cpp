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
    Voce{errori::Argomento, u"Chiamata di procedura o argomento non valido"},
    Voce{errori::Eccedenza, u"Valore troppo grande per essere contenuto"},
    Voce{errori::Memoria, u"Memoria insufficiente"},
    Voce{errori::Indice, u"Indice fuori dai limiti"},
    Voce{errori::DivisionePerZero, u"Divisione per zero"},
    Voce{errori::Tipo, u"Tipo di dato non corrispondente"},
    Voce{errori::NessunProgramma, u"Nessun programma è associato al documento"},
    Voce{errori::NomeNonValido, u"Nome di file non valido"},
    Voce{errori::FileMancante, u"File non trovato"},
    Voce{errori::GiaInUso, u"File già in uso"},
    Voce{errori::Periferica, u"Errore di lettura o scrittura del disco"},
    Voce{errori::FilePresente, u"Il file esiste già"},
    Voce{errori::DiscoPieno, u"Disco pieno"},
    Voce{errori::Autorizzazione, u"Autorizzazione negata"},
    Voce{errori::Accesso, u"Errore di accesso al percorso o al file"},
    Voce{errori::PercorsoMancante, u"Percorso non trovato"},
    Voce{errori::FileRifiutato, u"Formato del file non valido"},
    Voce{errori::Stampante, u"Errore della stampante"},
    Voce{errori::Imprevisto, u"Errore imprevisto"},
    Voce{errori::TroppoComplessa, u"Espressione troppo complessa"},
    Voce{errori::TabellaPresente, u"La tabella esiste già"},
    Voce{errori::IndiceMancante, u"L'indice indicato non esiste nella tabella"},
    Voce{errori::SenzaIndice, u"Operazione non valida senza un indice corrente"},
    Voce{errori::NonInModifica, u"Il record non è stato preparato per la modifica"},
    Voce{errori::NessunRecord, u"Nessun record corrente"},
    Voce{errori::ValoreDoppio, u"La modifica creerebbe un valore doppio in una chiave univoca"},
    Voce{errori::DatabaseMancante, u"Database non trovato"},
    Voce{errori::SpazioDatabase, u"Spazio su disco insufficiente per il database"},
    Voce{errori::DatabaseSolaLettura, u"Impossibile aggiornare: il database o i dati sono di sola lettura"},
    Voce{errori::TransazioneAnnullata, u"La transazione è già stata annullata"},
    Voce{errori::DiscoORete, u"Errore del disco o della rete"},
    Voce{errori::CartellaMancante, u"La cartella indicata per il database non esiste"},
    Voce{errori::RecordGrande, u"Il record è troppo grande"},
    Voce{errori::CampoSconosciuto, u"La query contiene un nome di campo sconosciuto"},
    Voce{errori::CampoDelCriterio, u"Il criterio contiene un nome di campo sconosciuto"},
    Voce{errori::SintassiCriterio, u"Errore di sintassi nel criterio di ricerca"},
    Voce{errori::TabellaMancante, u"Tabella o query non trovata"},
    Voce{errori::FunzioneSconosciuta, u"Funzione sconosciuta nell'istruzione SQL"},
    Voce{errori::OltreLaFine, u"L'istruzione SQL continua dopo la sua fine"},
    Voce{errori::SintassiSql, u"Errore di sintassi nell'istruzione SQL"},
    Voce{errori::Segnalibro, u"Segnalibro non valido"},
    Voce{errori::TestoLungo, u"Il testo è troppo lungo per il campo"},
    Voce{errori::RecordEliminato, u"Il record è stato eliminato"},
    Voce{errori::DatabasePresente, u"Il database esiste già"},
    Voce{errori::InTransazione, u"Operazione non valida dentro una transazione"},
    Voce{errori::DatiBloccati, u"Impossibile aggiornare: i dati sono bloccati da un altro utente"},
    Voce{errori::ElementoMancante, u"Elemento non trovato nell'insieme"},
    Voce{errori::IndicePresente, u"L'indice esiste già"},
    Voce{errori::CampoObbligatorio, u"Un campo obbligatorio non ha valore"},
    Voce{errori::RegolaDiConvalida, u"Il valore non rispetta una regola di convalida della tabella"},
    Voce{errori::FormatoDatabase, u"Formato del database non riconosciuto"},
    Voce{errori::CampoPresente, u"Il campo esiste già nella tabella"},
    Voce{errori::TipoDelValore, u"Il valore non è del tipo richiesto dal campo"},
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
        return Errore(errori::Memoria);
    } catch (...) {
        return Errore(errori::Imprevisto);
    }
}
