#include "creadati/creadati.h"

#include "creadati/archivio_studio.h"
#include "creadati/archivio_tariffe.h"
#include "creadati/archivio_tassi.h"
#include "creadati/comuni.h"
#include "creadati/norme.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "tariffs/decreto.h"

#include <QTemporaryDir>

#include <array>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Who reads the tables of each decree, in the order of `Decreti`.
constexpr std::array LettoriTariffe{&LeggiTariffe, &LeggiTariffa55};
static_assert(LettoriTariffe.size() == Decreti.size());

void CreaBasi(const QString& Tabelle, const QString& Uscita)
{
    std::vector<Tariffe> Tariffari;
    for (const auto& Leggi : LettoriTariffe)
        Tariffari.push_back(Leggi(Tabelle));
    for (size_t i = 1; i < Tariffari.size(); ++i)
        ConfrontaTariffe(Tariffari.front(), Tariffari[i]);
    const Tassi Archivio = LeggiTassi(Tabelle);
    const QList<ComuneTabella> Comuni = LeggiComuni(Tabelle);
    const QDate ComuniAl = LeggiStatoComuni(Tabelle);
    const TabelleNorme Vigenti = LeggiNorme(Tabelle);
    const QTemporaryDir Cartella;
    if (!Cartella.isValid())
        throw Errore(errori::Accesso);
    const QString Provvisoria = Barra(Cartella.path());
    QStringList Nomi{u"DatiStudio.mdb"_s, u"Tassi.dat"_s, u"Comuni.mdb"_s, u"Norme.mdb"_s};
    for (size_t i = 0; i < Tariffari.size(); ++i) {
        Nomi << Decreti[i]->File.toString();
        ScriviTariffe(Tariffari[i], Provvisoria + Nomi.last());
    }
    ScriviArchivioStudio(Provvisoria + u"DatiStudio.mdb"_s);
    ScriviTassi(Archivio, Provvisoria + u"Tassi.dat"_s);
    ScriviComuni(Comuni, ComuniAl, Provvisoria + u"Comuni.mdb"_s);
    ScriviNorme(Vigenti, Provvisoria + u"Norme.mdb"_s);

    CreaCartella(Uscita);
    for (const QString& Nome : std::as_const(Nomi))
        ScriviFile(Uscita + Nome, LeggiFile(Provvisoria + Nome));
    // The program tells the age of the rates by the date of their file.
    ImpostaDataFile(Uscita + u"Tassi.dat"_s, QDateTime(DataDeiTassi(Archivio), QTime(12, 0)));
}

}  // namespace

int CreaDati(const QStringList& Argomenti, QTextStream& Errori)
{
    if (Argomenti.size() != 2) {
        Errori << u"Uso: creadati <cartella delle tabelle> <cartella di uscita>\n"_s;
        return 2;
    }
    try {
        CreaBasi(Barra(Argomenti[0]), Barra(Argomenti[1]));
        return 0;
    } catch (...) {
        Errori << ErroreCorrente().Descrizione << u'\n';
        return 1;
    }
}
