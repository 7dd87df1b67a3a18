#include "creaschede/creaschede.h"

#include "creadati/tariffe.h"
#include "creaschede/paginascheda.h"
#include "feenote/modOnorari.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QDir>
#include <QMap>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

void Componi(const QString& Tabelle, const Tariffe& Dati, QMap<QString, QByteArray>& Schede)
{
    for (const QStringView Categ : {Civile, Penale, Stragiudiziale}) {
        const QString Sua = Categ.toString();
        const TestiSchede Testi = LeggiTesti(Tabelle + u"schede"_s, Sua, Dati);
        for (const VoceTariffa& Voce : Dati.Voci[Sua])
            Schede.insert(FileScheda(Sua, Voce.Codice), PaginaScheda(Dati, Sua, Voce, Testi).toUtf8());
    }
}

/// The sheets of both tariffs lie in one folder: no key is in both.
QMap<QString, QByteArray> ComponiSchede(const QString& Tabelle)
{
    const Tariffe Del2012 = LeggiTariffe(Tabelle);
    const Tariffe Del2014 = LeggiTariffa55(Tabelle);
    ConfrontaTariffe(Del2012, Del2014);
    QMap<QString, QByteArray> Schede;
    Componi(Tabelle, Del2012, Schede);
    Componi(Tabelle, Del2014, Schede);
    return Schede;
}

/// A sheet left by a catalogue of before would tell of an item that is another now, or none.
void TogliSuperflue(const QString& Cartella, const QMap<QString, QByteArray>& Schede)
{
    static const QRegularExpression Scheda(u"\\A[CPS][0-9]{3,5}[.]htm\\z"_s);
    for (const QString& Nome : QDir(Cartella).entryList(QDir::Files))
        if (Scheda.match(Nome).hasMatch() && !Schede.contains(Nome) && !QFile::remove(Cartella + Nome))
            throw Errore(errori::Accesso);
}

void ScriviSchede(const QMap<QString, QByteArray>& Schede, const QString& Cartella)
{
    CreaCartella(Cartella);
    for (const auto& [Nome, Pagina] : Schede.asKeyValueRange())
        ScriviFile(Cartella + Nome, Pagina);
    TogliSuperflue(Cartella, Schede);
}

}  // namespace

int CreaSchede(const QStringList& Argomenti, QTextStream& Errori)
{
    if (Argomenti.size() != 2) {
        Errori << u"Uso: creaschede <cartella delle tabelle> <cartella del programma>\n"_s;
        return 2;
    }
    try {
        ScriviSchede(ComponiSchede(Barra(Argomenti[0])), Barra(Argomenti[1]) + Barra(u"note"_s));
        return 0;
    } catch (...) {
        Errori << ErroreCorrente().Descrizione << u'\n';
        return 1;
    }
}
