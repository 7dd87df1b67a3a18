#include "creaguide/creaguide.h"

#include "creadati/tassi.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/pages/impaginazione.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QDirIterator>

using namespace Qt::StringLiterals;

namespace {

TabellaDati TabellaTassi(const QList<TassoPeriodo>& Periodi)
{
    TabellaDati Fatta{{4.0, 4.0, 3.5}, {false, false, true}, {{u"Dal"_s, u"Al"_s, u"Tasso %"_s}}};
    for (const TassoPeriodo& Uno : Periodi)
        Fatta.Righe +=
            {Format(Uno.Dal, u"dd/mm/yyyy"), Format(Uno.Al, u"dd/mm/yyyy"), Format(Uno.TassoPerc, u"0.00")};
    return Fatta;
}

void Scrivi(const QString& File, const QString& Relativo, const QString& Tabelle, const QString& Uscita)
{
    const Guida Letta = LeggiGuida(Relativo, QString::fromUtf8(LeggiFile(File)), TabelleDi(Tabelle));
    const QString Pdf = Uscita + Relativo.chopped(4) + u".pdf"_s;
    CreaCartella(CartellaFile(Pdf));
    Impaginazione(Letta.Doc).ScriviPdf(Pdf, Letta.Titolo);
}

void ScriviTutte(const QString& Tabelle, const QString& Uscita)
{
    const QString Testi = Barra(Tabelle + u"guide"_s);
    QDirIterator Passo(Testi, {u"*.txt"_s}, QDir::Files, QDirIterator::Subdirectories);
    if (!Passo.hasNext())
        throw Errore(errori::FileMancante, u"Non ci sono guide in "_s + Testi);
    while (Passo.hasNext()) {
        const QString File = Passo.next();
        Scrivi(File, QDir(Testi).relativeFilePath(File), Tabelle, Uscita);
    }
}

}  // namespace

FonteTabelle TabelleDi(const QString& Cartella)
{
    return [Cartella](const QString& Nome) {
        if (Nome == u"tassi_mora")
            return TabellaTassi(LeggiTassi(Cartella).Mora);
        if (Nome == u"tassi_legali")
            return TabellaTassi(LeggiTassi(Cartella).Legali);
        throw Errore(errori::Argomento, u"Tabella sconosciuta: "_s + Nome);
    };
}

int CreaGuide(const QStringList& Argomenti, QTextStream& Errori)
{
    if (Argomenti.size() != 2) {
        Errori << u"Uso: creaguide <cartella delle tabelle> <cartella di uscita>\n"_s;
        return 2;
    }
    try {
        ScriviTutte(Barra(Argomenti[0]), Barra(Argomenti[1]));
        return 0;
    } catch (...) {
        Errori << ErroreCorrente().Descrizione << u'\n';
        return 1;
    }
}
