#include "cli/riga.h"

#include "feenote/finder/scadenzario.h"
#include "platform/base/errore.h"
#include "platform/system/percorsi.h"
#include "tariffs/decreto.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

QStringList Sigle()
{
    QStringList Tutte;
    for (const Decreto* Legge : Decreti)
        Tutte += Legge->Sigla.toString();
    return Tutte;
}

QStringList InsiemiNorme()
{
    return {u"programma"_s, u"vigenti"_s};
}

/// In the place of a name.
constexpr QStringView LeSueParole = u"|";

constexpr std::array TabellaOpzioni{
    RigaOpzione{Opzione::Programma, u"--programma", u"DIR", u"una cartella", true},
    RigaOpzione{Opzione::Utente, u"--utente", u"DIR", u"una cartella", true},
    RigaOpzione{Opzione::Json, u"--json", {}, {}, true},
    RigaOpzione{Opzione::Batch, u"--batch", {}, {}, true},
    RigaOpzione{Opzione::Righe, u"--righe"},
    RigaOpzione{Opzione::Multipla, u"--multipla", u"NOTA", u"una parcella"},
    RigaOpzione{Opzione::Prima, u"--prima"},
    RigaOpzione{Opzione::Archivio, u"--archivio", u"FILE", u"un file", false, true},
    RigaOpzione{Opzione::In, u"--in", u"TABELLA", u"una tabella"},
    RigaOpzione{Opzione::Prova, u"--prova"},
    RigaOpzione{Opzione::Csv, u"--csv", u"FILE", u"una destinazione", false, true},
    RigaOpzione{Opzione::Vcard, u"--vcard", u"FILE", u"una destinazione", false, true},
    RigaOpzione{Opzione::Stato, u"--stato", u"STATO", u"una parola", false, false, ParoleFiltroStato,
                u"Stato sconosciuto: %1. Gli stati sono "},
    RigaOpzione{Opzione::Tariffa, u"--tariffa", LeSueParole, u"una sigla", false, false, Sigle,
                u"Tariffa sconosciuta: %1. Le tariffe sono "},
    RigaOpzione{Opzione::Norme, u"--norme", LeSueParole, u"una scelta", false, false, InsiemiNorme,
                u"Norme sconosciute: %1. Le norme sono "},
    RigaOpzione{Opzione::Spiega, u"--spiega"},
    RigaOpzione{Opzione::Ics, u"--ics", u"FILE", u"una destinazione", false, true},
    RigaOpzione{Opzione::Controlla, u"--controlla"},
    RigaOpzione{Opzione::Leggi, u"--leggi"},
    RigaOpzione{Opzione::Aiuto, u"--aiuto", {}, {}, true},
    RigaOpzione{Opzione::Aiuto, u"--help", {}, {}, true},
};

/// Two of which a call may have one: the other would be ignored.
constexpr std::array Contrarie{
    std::pair{Opzione::Vcard, Opzione::Csv},          std::pair{Opzione::Multipla, Opzione::Controlla},
    std::pair{Opzione::Archivio, Opzione::Controlla}, std::pair{Opzione::Csv, Opzione::Batch},
    std::pair{Opzione::Vcard, Opzione::Batch},        std::pair{Opzione::Ics, Opzione::Batch},
};

/// The first says how the second is done.
constexpr std::array Legate{
    std::pair{Opzione::Prima, Opzione::Multipla},
    std::pair{Opzione::Prova, Opzione::In},
};

/// "140 e 55", "tutte, aperte e bozza".
QString Elenco(QStringList Parole)
{
    const QString Ultima = Parole.takeLast();
    return Parole.isEmpty() ? Ultima : Parole.join(u", "_s) + u" e "_s + Ultima;
}

/// The word of the option's own that was written, whatever its case. @throws ErroreUso
QString ParolaNota(const RigaOpzione& Quale, const QString& Scritta)
{
    const QStringList Parole = Quale.Parole();
    for (const QString& Una : Parole)
        if (Una.compare(Scritta.trimmed(), Qt::CaseInsensitive) == 0)
            return Una;
    throw ErroreUso{Quale.Sconosciuta.toString().arg(Scritta) + Elenco(Parole) + u'.'};
}

/// What follows an option. @throws ErroreUso
QString LeggiValore(const RigaOpzione& Quale, const QString& Scritto)
{
    // An empty value is what a script has forgotten to fill, not an option that was left out.
    if (Scritto.isEmpty())
        throw ErroreUso{u"L'opzione %1 vuole %2."_s.arg(Quale.Parola, Quale.Manca)};
    if (Quale.Parole)
        return ParolaNota(Quale, Scritto);
    return Quale.Percorso ? PercorsoNativo(Scritto) : Scritto;
}

void ControllaInsieme(const RigaComando& Riga)
{
    for (const auto& [Una, Altra] : Contrarie)
        if (Riga.Ha(Una) && Riga.Ha(Altra))
            throw ErroreUso{u"L'opzione %1 non vale con %2."_s.arg(ParolaDi(Una), ParolaDi(Altra))};
    for (const auto& [Una, Altra] : Legate)
        if (Riga.Ha(Una) && !Riga.Ha(Altra))
            throw ErroreUso{u"L'opzione %1 vale solo con %2."_s.arg(ParolaDi(Una), ParolaDi(Altra))};
    if (Riga.Ha(Opzione::Batch) && Riga.Ha(Opzione::Spiega) && !Riga.Ha(Opzione::Json))
        throw ErroreUso{u"Con --batch l'opzione --spiega vale solo insieme a --json."_s};
}

}  // namespace

std::span<const RigaOpzione> Opzioni()
{
    return TabellaOpzioni;
}

QString ValoreNellAiuto(const RigaOpzione& Una)
{
    return Una.Valore == LeSueParole ? Una.Parole().join(LeSueParole) : Una.Valore.toString();
}

QString ParolaDi(Opzione Codice)
{
    return std::ranges::find(TabellaOpzioni, Codice, &RigaOpzione::Codice)->Parola.toString();
}

RigaComando LeggiRiga(const QStringList& Argomenti)
{
    RigaComando Riga;
    bool Finite = false;
    for (qsizetype i = 0; i < Argomenti.size(); ++i) {
        const QString& Parola = Argomenti[i];
        if (Finite || !Parola.startsWith(u"--")) {
            if (Riga.Comando.isEmpty())
                Riga.Comando = Parola;
            else
                Riga.Valori.append(Parola);
            continue;
        }
        Finite = Parola == u"--";
        if (Finite)
            continue;
        const auto Quale = std::ranges::find(TabellaOpzioni, Parola, &RigaOpzione::Parola);
        if (Quale == TabellaOpzioni.end())
            throw ErroreUso{u"Opzione sconosciuta: %1"_s.arg(Parola)};
        const bool Segue = !Quale->Valore.isEmpty();
        Riga.Date[Quale->Codice] = Segue ? LeggiValore(*Quale, Argomenti.value(++i)) : QString();
    }
    ControllaInsieme(Riga);
    return Riga;
}

QStringList DividiCaso(const QString& Riga, bool AllUltimo)
{
    if (!AllUltimo)
        return Riga.split(u';');
    const qsizetype Ultimo = Riga.lastIndexOf(u';');
    return Ultimo < 0 ? QStringList{Riga} : QStringList{Riga.left(Ultimo), Riga.mid(Ultimo + 1)};
}
