#include "addressbook/exchange/notevecchie.h"

#include "addressbook/exchange/archivionativo.h"
#include "addressbook/exchange/tabellaestranea.h"
#include "platform/base/regionale.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimoFondo = 16;
constexpr int MassimoFile = 50'000;

/// Paths of the databases below a folder, from it on, in the order of a reader.
void Raccogli(const QString& Radice, const QString& Sotto, int Fondo, QStringList& Trovati)
{
    QStringList Dentro;
    const qsizetype Prima = Trovati.size();
    (void)ScorriCartella(Radice + Sotto, [&](VoceCartella&& Voce) {
        if (Voce.Cartella && !Voce.Collegamento && Fondo < MassimoFondo)
            Dentro.append(Barra(Sotto + Voce.Nome));
        else if (!Voce.Cartella && (Voce.Nome.endsWith(u".mdb", Qt::CaseInsensitive) ||
                                    Voce.Nome.endsWith(u".accdb", Qt::CaseInsensitive)))
            Trovati.append(Sotto + Voce.Nome);
        return Trovati.size() < MassimoFile;
    });
    std::sort(Trovati.begin() + Prima, Trovati.end());
    Dentro.sort();
    for (const QString& Cartella : std::as_const(Dentro))
        Raccogli(Radice, Cartella, Fondo + 1, Trovati);
}

/// A note of this program is called ".mdb".
QString NomeNuovo(const QString& Nome)
{
    return Nome.endsWith(u".accdb", Qt::CaseInsensitive) ? Nome.chopped(6) + u".mdb"_s : Nome;
}

}  // namespace

std::optional<QList<EsitoNota>> CopiaNote(const QString& Da, const QString& A,
                                          const std::function<bool(int, int)>& Prosegui)
{
    const QString Origine = Barra(PercorsoIntero(Da));
    const QString Arrivo = Barra(PercorsoIntero(A));
    if (PercorsoNativo(Origine) == PercorsoNativo(Arrivo))
        RifiutaFile(u"Le copie andrebbero nella cartella delle vecchie parcelle: sceglierne un'altra."_s);
    QStringList File;
    Raccogli(Origine, QString(), 0, File);
    if (File.isEmpty())
        RifiutaFile(
            u"Nella cartella \"%1\" non ci sono parcelle (file .mdb): sceglierne un'altra."_s.arg(Da));
    QList<EsitoNota> Esiti;
    QStringList Fatti;
    QStringList Fatte;  // folders, the outer ones first
    const auto FaiCartella = [&](const QString& Cartella) {
        QStringList Mancanti;
        for (QString Una = Barra(Cartella); !Una.isEmpty() && !EsisteCartella(Una);
             Una = CartellaSuperiore(Una))
            Mancanti.prepend(Una);
        Fatte += Mancanti;
        CreaCartellaDiUtente(Cartella);
    };
    const auto Ferma = [&]() -> std::optional<QList<EsitoNota>> {
        for (const QString& Copia : std::as_const(Fatti))
            ScartaFile(Copia);
        // One that somebody has put a file into stays.
        while (!Fatte.isEmpty())
            ScartaCartella(Fatte.takeLast());
        return std::nullopt;
    };
    for (const QString& Nome : std::as_const(File)) {
        const auto Ancora = [&] { return !Prosegui || Prosegui(int(Esiti.size()), int(File.size())); };
        if (!Ancora())
            return Ferma();
        const QString Nuovo = Arrivo + NomeNuovo(Nome);
        EsitoNota Esito{.Nome = Nome, .Detto = {}};
        try {
            if (EsisteFile(TrovaFile(Nuovo))) {
                Esito.Detto = u"c'è già, resta com'è"_s;
            } else if (!EArchivio(Origine + Nome)) {
                Esito.Detto = u"non è una parcella"_s;
            } else {
                FaiCartella(CartellaFile(Nuovo));
                const auto Fuori = ScriviNativo(Origine + Nome, Nuovo, [&](qint64) { return Ancora(); });
                if (!Fuori)
                    return Ferma();
                Fatti.append(Nuovo);
                ImpostaDataFile(Nuovo, DataFile(Origine + Nome));
                Esito.Copiata = true;
                QStringList Detti = *Fuori;
                Detti.removeIf(TabellaDiSistema);
                Esito.Detto = Detti.join(u"; "_s);
            }
        } catch (const Errore& Guasto) {
            Esito.Detto = Guasto.Descrizione;
            if (Guasto.Numero == errori::DiscoPieno || Guasto.Numero == errori::SpazioDatabase) {
                (void)Ferma();
                throw;
            }
        }
        Esiti.append(Esito);
    }
    return Esiti;
}

QString ResocontoNote(const QString& Da, const QString& A, const QList<EsitoNota>& Esiti)
{
    const auto Copiate = std::ranges::count_if(Esiti, &EsitoNota::Copiata);
    QStringList Righe{u"Copia delle vecchie parcelle del "_s + Adesso().toString(u"dd/MM/yyyy HH:mm"),
                      u"Da: "_s + Da,
                      u"In: "_s + A,
                      QString(),
                      u"Copiate: "_s + Format(double(Copiate), u"#,##0") + u" di "_s +
                          Format(double(Esiti.size()), u"#,##0"),
                      u"I file d'origine sono rimasti come erano."_s,
                      QString()};
    for (const EsitoNota& Esito : Esiti)
        Righe.append(Esito.Nome + (Esito.Copiata ? u": copiata"_s : u": non copiata"_s) +
                     (Esito.Detto.isEmpty()
                          ? QString()
                          : (Esito.Copiata ? u"; tralasciati: "_s : u", "_s) + Esito.Detto));
    return Righe.join(u'\n') + u'\n';
}
