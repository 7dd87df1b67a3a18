#include "cli/letture.h"

#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

using namespace Qt::StringLiterals;

namespace {

/// As much of a wrong value as a sentence should hold.
QString Citato(const QString& Nome, const QString& Valore)
{
    constexpr int Massimo = 40;
    return u"%1: «%2»"_s.arg(Nome, Valore.left(Massimo));
}

/// What would make two lines, or none that a terminal shows, of one.
bool Spezza(QChar Lettera)
{
    const QChar::Category Genere = Lettera.category();
    return Genere == QChar::Other_Control || Genere == QChar::Separator_Line ||
           Genere == QChar::Separator_Paragraph;
}

}  // namespace

double Numero(const QString& Nome, const QString& Valore)
{
    try {
        return CDbl(Valore);
    } catch (const Errore& Guasto) {
        throw Errore(Guasto.Numero, u"%1: %2"_s.arg(Citato(Nome, Valore), Guasto.Descrizione));
    }
}

double NumeroOZero(const QString& Nome, const QString& Valore)
{
    return Valore.trimmed().isEmpty() ? 0.0 : Numero(Nome, Valore);
}

bool LeggiBit(const QString& Nome, const QString& Valore, bool Vuoto)
{
    const QString Testo = Valore.trimmed();
    if (Testo.isEmpty())
        return Vuoto;
    if (Testo != u"0" && Testo != u"1")
        throw Errore(errori::Tipo, u"%1 non è 0 né 1"_s.arg(Citato(Nome, Valore)));
    return Testo == u"1";
}

int LeggiParola(const QString& Nome, const QString& Valore, const QStringList& Parole)
{
    const qsizetype Posto = Parole.indexOf(Valore.trimmed().toLower());
    if (Posto < 0)
        throw Errore(errori::Argomento, u"%1 non è fra %2"_s.arg(Citato(Nome, Valore), Parole.join(u", "_s)));
    return int(Posto);
}

void ControllaUscita(const QString& File)
{
    if (File.endsWith(u".mdb", Qt::CaseInsensitive) || File.endsWith(u".accdb", Qt::CaseInsensitive))
        throw Errore(errori::FilePresente,
                     u"%1 è il nome di una parcella o di un archivio"_s.arg(NomeFile(File)));
    if (!EsisteFile(File))
        return;
    QByteArray Inizio;
    LeggiAPezzi(File, [&Inizio](QByteArrayView Pezzo) {
        Inizio = Pezzo.toByteArray();
        return false;
    });
    if (Inizio.startsWith("SQLite format 3") || EDiAccess(File))
        throw Errore(errori::FilePresente,
                     u"Il file %1 esiste già ed è una parcella o un archivio"_s.arg(NomeFile(File)));
}

QString CelleInRiga(QStringList Celle)
{
    for (QString& Cella : Celle)
        for (QChar& Lettera : Cella)
            if (Lettera == u'|' || Spezza(Lettera))
                Lettera = u' ';
    return Celle.join(u'|');
}

QString Giorno(const QDate& Data)
{
    return Format(Data, ModelloData);
}
