#include "platform/system/profilo.h"

#include "platform/base/errore.h"
#include "platform/base/paginacodice.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/permessi.h"
#include "platform/system/sincrono.h"
#include "platform/system/turno.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MassimoProfilo = qint64{1024} * 1024;

bool Bianco(char Byte)
{
    return Byte == ' ' || Byte == '\t';
}

/// A stretch of the file: first byte and the one behind the last.
struct Tratto
{
    qsizetype Inizio = 0;
    qsizetype Fine = 0;
};

Tratto SenzaBianchi(QByteArrayView Contenuto, Tratto Intero)
{
    while (Intero.Inizio < Intero.Fine && Bianco(Contenuto[Intero.Inizio]))
        ++Intero.Inizio;
    while (Intero.Fine > Intero.Inizio && Bianco(Contenuto[Intero.Fine - 1]))
        --Intero.Fine;
    return Intero;
}

QByteArrayView Byte(QByteArrayView Contenuto, Tratto Parte)
{
    return Contenuto.sliced(Parte.Inizio, Parte.Fine - Parte.Inizio);
}

/// The line that starts at `Inizio`, without its end.
Tratto RigaDa(QByteArrayView Contenuto, qsizetype Inizio)
{
    const auto* Fine = std::find_if(Contenuto.begin() + Inizio, Contenuto.end(),
                                    [](char Byte) { return Byte == '\n' || Byte == '\r'; });
    return {Inizio, Fine - Contenuto.begin()};
}

/// The end of line that stands at `Fine`: "\r\n", "\n", "\r", or nothing at the end of the file.
QByteArrayView FineRigaA(QByteArrayView Contenuto, qsizetype Fine)
{
    const QByteArrayView Resto = Contenuto.sliced(Fine);
    return Resto.first(Resto.startsWith("\r\n") ? 2 : std::min<qsizetype>(1, Resto.size()));
}

bool StessoNome(QByteArrayView Scritto, const QString& Cercato)
{
    // Every byte is one character, so that most lines need no conversion to be told apart.
    return Scritto.size() == Cercato.size() &&
           DaCp1252(Scritto.toByteArray()).compare(Cercato, Qt::CaseInsensitive) == 0;
}

/// The name in "[name]", nothing for any other line.
std::optional<QByteArrayView> NomeSezione(QByteArrayView Contenuto, Tratto Riga)
{
    const QByteArrayView Testo = Byte(Contenuto, Riga);
    const qsizetype Chiusa = Testo.indexOf(']');
    if (!Testo.startsWith('[') || Chiusa < 0)
        return std::nullopt;
    return Byte(Testo, SenzaBianchi(Testo, {1, Chiusa}));
}

/// The value in "key=value" when the line has this key. Comments and broken headings have none.
std::optional<Tratto> ValoreDi(QByteArrayView Contenuto, Tratto Riga, const QString& Chiave)
{
    const QByteArrayView Testo = Byte(Contenuto, Riga);
    const qsizetype Uguale = Testo.indexOf('=');
    if (Uguale < 0 || Testo.startsWith(';') || Testo.startsWith('['))
        return std::nullopt;
    if (!StessoNome(Byte(Testo, SenzaBianchi(Testo, {0, Uguale})), Chiave))
        return std::nullopt;
    return SenzaBianchi(Contenuto, {Riga.Inizio + Uguale + 1, Riga.Fine});
}

/// Where a key stands, or would stand, in a file.
struct Posto
{
    std::optional<Tratto> Valore;          ///< the value of the key
    std::optional<qsizetype> FineSezione;  ///< behind the last written line of the section
};

Posto Cerca(QByteArrayView Contenuto, const QString& Sezione, const QString& Chiave)
{
    Posto Trovato;
    for (qsizetype Inizio = 0; Inizio < Contenuto.size();) {
        const Tratto Intera = RigaDa(Contenuto, Inizio);
        const qsizetype Prossima = Intera.Fine + FineRigaA(Contenuto, Intera.Fine).size();
        const Tratto Riga = SenzaBianchi(Contenuto, Intera);
        Inizio = Prossima;

        if (const auto Nome = NomeSezione(Contenuto, Riga)) {
            if (Trovato.FineSezione)
                return Trovato;
            if (StessoNome(*Nome, Sezione))
                Trovato.FineSezione = Prossima;
        } else if (Trovato.FineSezione && Riga.Fine > Riga.Inizio) {
            Trovato.FineSezione = Prossima;
            Trovato.Valore = ValoreDi(Contenuto, Riga, Chiave);
            if (Trovato.Valore)
                return Trovato;
        }
    }
    return Trovato;
}

/// The end of line that the file uses; the classic one where it has none yet.
QByteArray FineRigaDi(QByteArrayView Contenuto)
{
    const QByteArrayView Usata = FineRigaA(Contenuto, RigaDa(Contenuto, 0).Fine);
    return Usata.isEmpty() ? QByteArrayLiteral("\r\n") : Usata.toByteArray();
}

QByteArray ConValore(QByteArray Contenuto, const QString& Sezione, const QString& Chiave,
                     const QByteArray& Valore)
{
    const Posto Trovato = Cerca(Contenuto, Sezione, Chiave);
    if (Trovato.Valore)
        return Contenuto.replace(Trovato.Valore->Inizio, Trovato.Valore->Fine - Trovato.Valore->Inizio,
                                 Valore);

    const QByteArray FineRiga = FineRigaDi(Contenuto);
    QByteArray Nuove = Cp1252(Chiave) + '=' + Valore + FineRiga;
    if (!Trovato.FineSezione)
        Nuove.prepend('[' + Cp1252(Sezione) + ']' + FineRiga);
    const qsizetype Dove = Trovato.FineSezione.value_or(Contenuto.size());
    const bool RigaAperta = Dove > 0 && Contenuto[Dove - 1] != '\n' && Contenuto[Dove - 1] != '\r';
    return Contenuto.insert(Dove, RigaAperta ? FineRiga + Nuove : Nuove);
}

/// The file without the lines of a section whose key is to go.
QByteArray SenzaChiavi(QByteArrayView Contenuto, const QString& Sezione,
                       const std::function<bool(const QString& Chiave)>& DaTogliere)
{
    QByteArray Rimasto;
    bool Dentro = false;
    bool Passata = false;
    for (qsizetype Inizio = 0; Inizio < Contenuto.size();) {
        const Tratto Intera = RigaDa(Contenuto, Inizio);
        const qsizetype Prossima = Intera.Fine + FineRigaA(Contenuto, Intera.Fine).size();
        const QByteArrayView Riga = Byte(Contenuto, SenzaBianchi(Contenuto, Intera));
        if (const auto Nome = NomeSezione(Contenuto, SenzaBianchi(Contenuto, Intera))) {
            // Of two sections of a name the first one counts.
            Dentro = !Passata && StessoNome(*Nome, Sezione);
            Passata = Passata || Dentro;
        }
        const qsizetype Uguale = Riga.indexOf('=');
        const bool DaChiave = Dentro && Uguale >= 0 && !Riga.startsWith(';') && !Riga.startsWith('[');
        if (!DaChiave || !DaTogliere(DaCp1252(Byte(Riga, SenzaBianchi(Riga, {0, Uguale})).toByteArray())))
            Rimasto += Contenuto.sliced(Inizio, Prossima - Inizio);
        Inizio = Prossima;
    }
    return Rimasto;
}

QString InUnaRiga(QString Testo)
{
    return Testo.replace(u'\r', u' ').replace(u'\n', u' ');
}

/// The name as it would come back from the file.
QString NomeScritto(const QString& Nome)
{
    const QByteArray Testo = Cp1252(InUnaRiga(Nome));
    return DaCp1252(Byte(Testo, SenzaBianchi(Testo, {0, Testo.size()})).toByteArray());
}

bool ChiaveScrivibile(const QString& Chiave)
{
    return !Chiave.isEmpty() && !Chiave.contains(u'=') && !Chiave.startsWith(u'[') &&
           !Chiave.startsWith(u';');
}

/// The file as it was before a write that the disk has not confirmed.
void Rimetti(const QString& Percorso, const QByteArray& Contenuto, bool CEra)
{
    try {
        CEra ? ScriviFile(Percorso, Contenuto) : ScartaFile(Percorso);
    } catch (const Errore&) {
        return;  // it is, though no more sure than the other one was
    }
}

/// Writes what a change makes of a file. @return false when it cannot be written or grows too large
/// @param Conserva what stands there now, which is about to be replaced
bool Riscrivi(const QString& File, const std::function<QByteArray(const QByteArray&)>& Cambia,
              const std::function<void(const QByteArray&)>& Conserva = {})
{
    try {
        bool Scritto = false;
        const QString Percorso = TrovaFile(File);
        ATurno(Percorso, u".~"_s + NomeFile(Percorso) + u".lock"_s, [&] {
            const QByteArray Contenuto =
                EsisteFile(Percorso) ? LeggiFile(Percorso, MassimoProfilo) : QByteArray();
            const QByteArray Nuovo = Cambia(Contenuto);
            if (Nuovo.size() > MassimoProfilo)
                return;
            const bool CEra = EsisteFile(Percorso);
            if (CEra && Conserva)
                Conserva(Contenuto);
            try {
                ScriviFile(Percorso, Nuovo);
                Scritto = true;
            } catch (const NonConfermato&) {
                Rimetti(Percorso, Contenuto, CEra);  // who is told that nothing was written finds it so
            }
        });
        return Scritto;
    } catch (const Errore&) {
        return false;
    }
}

/// The file up to the limit, empty when it is missing.
QByteArray LeggiInizio(const QString& Percorso)
{
    const QFileInfo Info(Percorso);
    if (!Info.exists())
        return {};
    QFile Aperto(Percorso);
    if (!Info.isFile() || !Leggibile(Info) || !Aperto.open(QIODevice::ReadOnly))
        throw Errore(errori::Accesso, DescrizioneErrore(errori::Accesso) + u": "_s + Percorso);
    return Aperto.read(MassimoProfilo);
}

}  // namespace

QString GetPrivateProfileString(const QString& Sezione, const QString& Chiave, const QString& Predefinito,
                                int Massimo, const QString& File)
{
    const QByteArray Contenuto = LeggiInizio(TrovaFile(File));
    const Posto Trovato = Cerca(Contenuto, NomeScritto(Sezione), NomeScritto(Chiave));
    if (!Trovato.Valore)
        return Predefinito;
    return DaCp1252(Byte(Contenuto, *Trovato.Valore).toByteArray()).left(std::max(0, Massimo - 1));
}

QString ValoreDelProfilo(const QByteArray& Contenuto, const QString& Sezione, const QString& Chiave)
{
    const Posto Trovato = Cerca(Contenuto, NomeScritto(Sezione), NomeScritto(Chiave));
    return Trovato.Valore ? DaCp1252(Byte(Contenuto, *Trovato.Valore).toByteArray()) : QString();
}

QByteArray InizioDelProfilo(const QString& File)
{
    return LeggiInizio(TrovaFile(File));
}

bool SezioneNelProfilo(QByteArrayView Contenuto, const QString& Sezione)
{
    return Cerca(Contenuto, NomeScritto(Sezione), {}).FineSezione.has_value();
}

bool WritePrivateProfileString(const QString& Sezione, const QString& Chiave, const QString& Valore,
                               const QString& File)
{
    const QString NomeSezioneScritto = NomeScritto(Sezione);
    const QString NomeChiaveScritto = NomeScritto(Chiave);
    if (NomeSezioneScritto.contains(u']') || !ChiaveScrivibile(NomeChiaveScritto))
        return false;
    return Riscrivi(File, [&](const QByteArray& Contenuto) {
        return ConValore(Contenuto, NomeSezioneScritto, NomeChiaveScritto, Cp1252(InUnaRiga(Valore)));
    });
}

QStringList ChiaviDelProfilo(const QByteArray& Contenuto, const QString& Sezione)
{
    QStringList Trovate;
    (void)SenzaChiavi(Contenuto, NomeScritto(Sezione), [&](const QString& Chiave) {
        Trovate.append(Chiave);
        return false;
    });
    return Trovate;
}

bool SostituisciChiavi(const QString& Sezione, const std::function<bool(const QString& Chiave)>& DaTogliere,
                       const QList<std::pair<QString, QString>>& Nuove, const QString& File,
                       const std::function<void(const QByteArray& Ora)>& Conserva)
{
    const QString NomeSezioneScritto = NomeScritto(Sezione);
    const bool Scrivibili = std::ranges::all_of(
        Nuove, [](const auto& Nuova) { return ChiaveScrivibile(NomeScritto(Nuova.first)); });
    if (NomeSezioneScritto.contains(u']') || !Scrivibili)
        return false;
    return Riscrivi(
        File,
        [&](const QByteArray& Contenuto) {
            QByteArray Nuovo = SenzaChiavi(Contenuto, NomeSezioneScritto, DaTogliere);
            for (const auto& [Chiave, Valore] : Nuove)
                Nuovo = ConValore(Nuovo, NomeSezioneScritto, NomeScritto(Chiave), Cp1252(InUnaRiga(Valore)));
            return Nuovo;
        },
        Conserva);
}
