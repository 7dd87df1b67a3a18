#include "cli/riga.h"

#include "platform/system/percorsi.h"
#include "tariffs/decreto.h"

using namespace Qt::StringLiterals;

namespace {

QString Sigle()
{
    QStringList Tutte;
    for (const Decreto* Legge : Decreti)
        Tutte += Legge->Sigla.toString();
    return Tutte.join(u" e "_s);
}

}  // namespace

RigaComando LeggiRiga(const QStringList& Argomenti)
{
    RigaComando Riga;
    bool Opzioni = true;
    for (qsizetype i = 0; i < Argomenti.size(); ++i) {
        const QString& Parola = Argomenti[i];
        const auto Seguente = [&](const QString& Cosa) {
            // An empty value is what a script has forgotten to fill, not an option that was left out.
            if (i + 1 >= Argomenti.size() || Argomenti[i + 1].isEmpty())
                throw ErroreUso{u"L'opzione %1 vuole una %2."_s.arg(Parola, Cosa)};
            return Argomenti[++i];
        };
        if (Opzioni && Parola == u"--")
            Opzioni = false;
        else if (Opzioni && Parola == u"--json")
            Riga.Json = true;
        else if (Opzioni && Parola == u"--batch")
            Riga.Batch = true;
        else if (Opzioni && Parola == u"--righe")
            Riga.Righe = true;
        else if (Opzioni && (Parola == u"--help" || Parola == u"--aiuto"))
            Riga.Aiuto = true;
        else if (Opzioni && Parola == u"--programma")
            Riga.Programma = Seguente(u"cartella"_s);
        else if (Opzioni && Parola == u"--utente")
            Riga.Utente = Seguente(u"cartella"_s);
        else if (Opzioni && Parola == u"--archivio")
            Riga.Archivio = PercorsoNativo(Seguente(u"file"_s));
        else if (Opzioni && Parola == u"--stato")
            Riga.Stato = Seguente(u"parola"_s);
        else if (Opzioni && Parola == u"--tariffa")
            Riga.Tariffa = Seguente(u"sigla"_s);
        else if (Opzioni && Parola == u"--norme")
            Riga.Norme = Seguente(u"scelta"_s);
        else if (Opzioni && Parola == u"--spiega")
            Riga.Spiega = true;
        else if (Opzioni && Parola == u"--ics")
            Riga.Ics = PercorsoNativo(Seguente(u"destinazione"_s));
        else if (Opzioni && Parola == u"--multipla")
            Riga.Multipla = Seguente(u"parcella"_s);
        else if (Opzioni && Parola == u"--in")
            Riga.In = Seguente(u"tabella"_s);
        else if (Opzioni && Parola == u"--prova")
            Riga.Prova = true;
        else if (Opzioni && Parola == u"--controlla")
            Riga.Controlla = true;
        else if (Opzioni && Parola == u"--leggi")
            Riga.Leggi = true;
        else if (Opzioni && (Parola == u"--csv" || Parola == u"--vcard")) {
            Riga.Esporta = PercorsoNativo(Seguente(u"destinazione"_s));
            Riga.InSchede = Parola == u"--vcard";
        } else if (Opzioni && Parola == u"--prima")
            Riga.Prima = true;
        else if (Opzioni && Parola.startsWith(u"--"))
            throw ErroreUso{u"Opzione sconosciuta: %1"_s.arg(Parola)};
        else if (Riga.Comando.isEmpty())
            Riga.Comando = Parola;
        else
            Riga.Valori.append(Parola);
    }
    if (Riga.Prima && Riga.Multipla.isEmpty())
        throw ErroreUso{u"L'opzione --prima vale solo con --multipla."_s};
    if (!Riga.Tariffa.isEmpty() && !DecretoDi(Riga.Tariffa))
        throw ErroreUso{u"Tariffa sconosciuta: %1. Le tariffe sono %2."_s.arg(Riga.Tariffa, Sigle())};
    if (!Riga.Norme.isEmpty() && Riga.Norme != u"programma" && Riga.Norme != u"vigenti")
        throw ErroreUso{u"Norme sconosciute: %1. Le norme sono programma e vigenti."_s.arg(Riga.Norme)};
    if (Riga.Batch && !Riga.Ics.isEmpty())
        throw ErroreUso{u"L'opzione --ics non vale con --batch."_s};
    if (Riga.Batch && Riga.Spiega && !Riga.Json)
        throw ErroreUso{u"Con --batch l'opzione --spiega vale solo insieme a --json."_s};
    if (Riga.Prova && Riga.In.isEmpty())
        throw ErroreUso{u"L'opzione --prova vale solo con --in."_s};
    return Riga;
}

QStringList DividiCaso(const QString& Riga, bool AllUltimo)
{
    if (!AllUltimo)
        return Riga.split(u';');
    const qsizetype Ultimo = Riga.lastIndexOf(u';');
    return Ultimo < 0 ? QStringList{Riga} : QStringList{Riga.left(Ultimo), Riga.mid(Ultimo + 1)};
}
