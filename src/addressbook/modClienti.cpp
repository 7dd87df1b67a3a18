#include "addressbook/modClienti.h"

#include "addressbook/modRubrica.h"
#include "core/modControlli.h"
#include "core/modSede.h"
#include "core/sessione.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/base/segni.h"
#include "platform/database/database.h"
#include "platform/system/percorsi.h"

#include <QDate>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The row of a table by its key. @throws ArchivioIlleggibile
template <class Lettura>
auto CercaRiga(const QString& Tabella, int Chiave, Lettura Leggi)
    -> std::optional<decltype(Leggi(Recordset()))>
{
    try {
        const Database Archivio = ApriArchivio(FileRubrica(sessione::ArchivioCliCon), true);
        const Recordset Trovato =
            Archivio.OpenRecordset(u"SELECT * FROM "_s + Tabella + u" WHERE ID=?"_s, {Chiave});
        if (Trovato.Eof())
            return std::nullopt;
        return Leggi(Trovato);
    } catch (const Errore& Guasto) {
        throw ArchivioIlleggibile(Guasto);
    }
}

/// A column as text; empty where an older archive does not have it.
QString TestoColonna(const Recordset& Riga, const QString& Colonna)
{
    return HaColonna(Riga.Campi(), Colonna) ? CStr(Riga.Value(Colonna, QString())).trimmed() : QString();
}

std::optional<QString> CercaNome(const QString& Tabella, int Chiave, const QString& Colonna)
{
    return CercaRiga(Tabella, Chiave, [&](const Recordset& Trovato) {
        return HaColonna(Trovato.Campi(), Colonna) ? Trovato.Value(Colonna, QString()).toString() : QString();
    });
}

DatiCliente LeggiRiga(const Recordset& Riga)
{
    DatiCliente Cliente;
    Cliente.Nominativo = TestoColonna(Riga, u"Nominativo"_s);
    Cliente.Indirizzo = TestoColonna(Riga, u"Indirizzo"_s);
    Cliente.Cap = TestoColonna(Riga, u"Cap"_s);
    Cliente.Citta = TestoColonna(Riga, u"Citta"_s);
    Cliente.Prov = TestoColonna(Riga, u"Prov"_s);
    Cliente.CodFis = TestoColonna(Riga, u"CodFis"_s);
    Cliente.PIva = TestoColonna(Riga, u"PIva"_s);
    Cliente.DataNascita = TestoColonna(Riga, u"DataNascita"_s);
    Cliente.ComuneNascita = TestoColonna(Riga, u"ComuneNascita"_s);
    Cliente.RapprLegale = TestoColonna(Riga, u"RapprLegale"_s);
    Cliente.Nazione = TestoColonna(Riga, u"Nazione"_s).toUpper();
    Cliente.Email = TestoColonna(Riga, u"Email"_s);
    Cliente.Pec = TestoColonna(Riga, u"Pec"_s);
    Cliente.CodDestinatario = TestoColonna(Riga, u"CodDestinatario"_s).toUpper();
    Cliente.TipoSoggetto = TestoColonna(Riga, u"TipoSoggetto"_s);
    return Cliente;
}

/// The engine's own word for a lock speaks of a change that nobody wants here.
QString FraseIlleggibile(const Errore& Causa)
{
    const QString File = PercorsoNativo(FileRubrica(sessione::ArchivioCliCon));
    if (Causa.Numero == errori::DatiBloccati)
        return u"L'archivio dei clienti è occupato da un altro programma: "_s + File;
    const QString Frase = u"L'archivio dei clienti non si legge: "_s + Causa.Descrizione;
    return Frase.contains(NomeFile(File)) ? Frase : Frase + u": "_s + File;
}

}  // namespace

ArchivioIlleggibile::ArchivioIlleggibile(const Errore& Causa) : Errore(Causa.Numero, FraseIlleggibile(Causa))
{}

std::optional<QString> CercaCliente(int IDCli)
{
    return CercaNome(u"clienti"_s, IDCli, u"Nominativo"_s);
}

std::optional<QString> CercaControparte(int IDCon, const QString& Colonna)
{
    return CercaNome(u"controparti"_s, IDCon, Colonna);
}

std::optional<DatiCliente> LeggiCliente(int IDCli)
{
    return CercaRiga(u"clienti"_s, IDCli, LeggiRiga);
}

std::optional<TipoSoggetto> SoggettoScritto(const QString& Testo)
{
    struct Parola
    {
        QStringView Inizio;
        TipoSoggetto Tipo;
    };
    // The longer beginnings first: "P.A." is no person.
    constexpr std::array Parole{
        Parola{u"pa", TipoSoggetto::Amministrazione},
        Parola{u"pubblica", TipoSoggetto::Amministrazione},
        Parola{u"amministraz", TipoSoggetto::Amministrazione},
        Parola{u"persona giu", TipoSoggetto::Societa},
        Parola{u"pers", TipoSoggetto::Persona},
        Parola{u"pf", TipoSoggetto::Persona},
        Parola{u"soc", TipoSoggetto::Societa},
        Parola{u"ditta", TipoSoggetto::Societa},
        Parola{u"ente", TipoSoggetto::Societa},
        Parola{u"ester", TipoSoggetto::Estero},
        Parola{u"stranier", TipoSoggetto::Estero},
    };
    QString Nudo = Testo.simplified();
    Nudo.remove(u'.');
    const auto Trovata = std::ranges::find_if(Parole, [&](const Parola& Una) {
        const bool Sigla = Una.Inizio.size() == 2;
        return Sigla ? Nudo.compare(Una.Inizio, Qt::CaseInsensitive) == 0
                     : Nudo.startsWith(Una.Inizio, Qt::CaseInsensitive);
    });
    return Trovata != Parole.end() ? std::optional(Trovata->Tipo) : std::nullopt;
}

TipoSoggetto SoggettoDi(const DatiCliente& Cliente)
{
    constexpr qsizetype CodiceUfficio = 6;
    if (const auto Scritto = SoggettoScritto(Cliente.TipoSoggetto))
        return *Scritto;
    if (!Cliente.Nazione.isEmpty() && Cliente.Nazione != Italia)
        return TipoSoggetto::Estero;
    if (Cliente.CodDestinatario.size() == CodiceUfficio)
        return TipoSoggetto::Amministrazione;
    return ESocieta(Cliente) ? TipoSoggetto::Societa : TipoSoggetto::Persona;
}

bool ESocieta(const DatiCliente& Cliente)
{
    const std::optional<TipoSoggetto> Scritto = SoggettoScritto(Cliente.TipoSoggetto);
    if (Scritto == TipoSoggetto::Persona)
        return false;
    if (Scritto == TipoSoggetto::Societa || Scritto == TipoSoggetto::Amministrazione)
        return true;
    return !Cliente.RapprLegale.isEmpty() ||
           (Cliente.CodFis.size() == CifrePartitaIva && std::ranges::all_of(Cliente.CodFis, ECifra));
}
