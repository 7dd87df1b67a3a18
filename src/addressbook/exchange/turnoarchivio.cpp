#include "addressbook/exchange/turnoarchivio.h"

#include "addressbook/exchange/tabellaestranea.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

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
    switch (Turno.Prendi(AttesaMs)) {
    case FileBlocco::Esito::Preso:
        return;
    case FileBlocco::Esito::Altrui:
        RifiutaFile(u"Un altro programma sta importando nello stesso archivio: riprovare fra poco."_s);
    case FileBlocco::Esito::Abbandonato:
        // Without a signature it may be this computer's.
        RifiutaFile(u"%1 ha cominciato un'importazione nello stesso archivio, e non si sa se l'abbia finita: "
                    "se nessuno sta importando, eliminare il file \"%2\" e riprovare."_s.arg(
                        Turno.Titolare().Processo != 0 ? u"Un altro computer"_s
                                                       : u"Qualcuno, non si sa da quale computer,"_s,
                        Turno.Percorso()));
    case FileBlocco::Esito::Rifiutato:
        throw Errore(errori::Accesso,
                     DescrizioneErrore(errori::Accesso) + u": "_s + CartellaFile(Turno.Percorso()));
    case FileBlocco::Esito::Impedito:
        throw Errore(errori::SpazioDatabase);
    }
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
