#include "addressbook/modColonneFattura.h"

#include "addressbook/modRubrica.h"
#include "core/sessione.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

const QStringList Tabelle{u"clienti"_s, u"controparti"_s};

Campo Testo(const QString& Nome, int Caratteri, const QString& Descrizione)
{
    return {Nome, TipoCampo::Testo, Caratteri, Descrizione, false};
}

QString FileArchivio()
{
    return FileRubrica(sessione::ArchivioCliCon);
}

}  // namespace

QList<Campo> ColonneFattura()
{
    return {
        Testo(u"Indirizzo"_s, 100, u"L=Indirizzo,S=30"_s),
        Testo(u"Cap"_s, 5, u"L=CAP,S=5"_s),
        Testo(u"Citta"_s, 60, u"L=Città,S=20"_s),
        Testo(u"Prov"_s, 2, u"L=Prov.,S=2"_s),
        // Of two letters, as ISO 3166-1 has it; empty: Italy.
        Testo(u"Nazione"_s, 2, u"L=Nazione,S=2"_s),
        Testo(u"CodFis"_s, 16, u"L=Codice fiscale,S=16"_s),
        // A foreign VAT number carries its country and is longer than the 11 Italian digits.
        Testo(u"PIva"_s, 28, u"L=Partita IVA,S=13"_s),
        Testo(u"Pec"_s, 254, u"L=PEC,S=30"_s),
        Testo(u"CodDestinatario"_s, 7, u"L=Codice destinatario,S=7"_s),
        Testo(u"TipoSoggetto"_s, 10, u"L=Tipo soggetto,S=10"_s),
    };
}

QList<Campo> ColonneFatturaMancanti(const QList<Campo>& Campi)
{
    QList<Campo> Mancanti = ColonneFattura();
    Mancanti.removeIf([&](const Campo& Una) { return HaColonna(Campi, Una.Name); });
    return Mancanti;
}

StatoColonne StatoColonneFattura(QStringList* Mancano)
{
    try {
        const Database Archivio = ApriArchivio(FileArchivio(), true);
        const QList<Campo> Mancanti = ColonneFatturaMancanti(Archivio.Campi(Tabelle.front()));
        if (Mancano)
            for (const Campo& Una : Mancanti)
                Mancano->append(ColonnaDi(Una).value_or(ColonnaRubrica()).Titolo);
        if (Mancanti.isEmpty())
            return StatoColonne::Intere;
    } catch (const Errore&) {
        return StatoColonne::Intere;
    }
    return EDiAccess(FileArchivio()) || SolaLettura(FileArchivio()) ? StatoColonne::Bloccate
                                                                    : StatoColonne::Mancanti;
}

void AggiungiColonneFattura()
{
    const Database Archivio = OpenDatabase(FileArchivio());
    Transazione Tutte(Archivio);
    for (const QString& Tabella : Tabelle)
        if (Archivio.EsisteTabella(Tabella))
            Archivio.AggiungiColonne(Tabella, ColonneFatturaMancanti(Archivio.Campi(Tabella)));
    Tutte.Conferma();
}
