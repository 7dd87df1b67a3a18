#include "feenote/file/modPosaFile.h"

#include "feenote/file/colonne.h"
#include "feenote/file/modScrittura.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/database/database.h"
#include "platform/database/giornale.h"
#include "platform/system/attese.h"
#include "platform/system/blocco.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/sincrono.h"
#include "platform/system/stessofile.h"

#include <QDateTime>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString FileTurno(const QString& Destinazione)
{
    return CartellaFile(Destinazione) + u".~"_s + NomeFile(Destinazione) + u".turno"_s;
}

QString FraseNonConfermato(const QString& Scostato)
{
    return u"; il giornale di una parcella che non c'è più, che gli stava accanto, ha ora il nome %1"_s.arg(
        Scostato);
}

/// The file while it is being built, beside the place it will take; gone unless it was put there. Programs
/// that save under one name take turns, or one would put the other's half-built file there.
class FileInCostruzione
{
public:
    explicit FileInCostruzione(const QString& Destinazione)
        : Finale(Destinazione), Accanto(CartellaFile(Destinazione) + u".~"_s + NomeFile(Destinazione)),
          Provvisorio(Accanto + u".tmp"_s), Turno(FileTurno(Destinazione))
    {
        PrendiTurno();
        TogliProvvisorio();  // what a crash may have left
    }
    ~FileInCostruzione() { TogliProvvisorio(); }
    FileInCostruzione(const FileInCostruzione&) = delete;
    FileInCostruzione& operator=(const FileInCostruzione&) = delete;

    [[nodiscard]] const QString& Percorso() const { return Provvisorio; }

    /// @return the name under which a former note's journal was put aside; empty where there was none
    QString MettiAlPosto(Lettori Chi, bool ComeModello = false) const
    {
        const bool CEra = EsisteFile(Finale);
        const bool DiAccess = CEra && EDiAccessDiSicuro(Finale);
        if (CEra)
            DiAccess ? TieniAccess(Chi) : Sgombra();
        DaiPermessi(Provvisorio, Finale, Chi);
        // A colleague has begun to write since the way was free: it would go with the file.
        if (CEra && !DiAccess && EsisteFile(Finale + u"-journal"_s))
            throw Errore(errori::DatiBloccati);
        QString Scostato = ScostaGiornale(Finale);
        try {
            // Last: some systems delete no read-only file, and what is left of a save would stop the next.
            if (ComeModello)
                ImpostaSolaLettura(Provvisorio, true);
            SostituisciFile(Provvisorio, Finale);
        } catch (NonConfermato& Guasto) {
            // Nobody else says it: who is told of the disk gets no name back.
            if (!Scostato.isEmpty())
                static_cast<Errore&>(Guasto) =
                    Errore(Guasto.Numero, Guasto.Descrizione + FraseNonConfermato(Scostato));
            throw;
        } catch (const Errore&) {
            // The former note that comes back finds its journal; whatever else has the name by now does not.
            if (DiAccess || !EsisteFile(Finale))
                RimettiGiornale(Finale, Scostato);
            throw;
        }
        return Scostato;
    }

private:
    void PrendiTurno()
    {
        const QString Cartella = QFileInfo(Finale).path();
        if (!EsisteCartella(Cartella))
            throw Errore(errori::CartellaMancante);
        if (ByteDelNome(NomeFile(Finale)) > MassimoNomeNota)
            throw Errore(errori::NomeNonValido);
        // A folder, a pipe or a device is no note that a save replaces.
        if (const QFileInfo Presente(Finale); Presente.exists() && !Presente.isFile())
            throw Errore(errori::Accesso);
        if (!CartellaScrivibile(Cartella))
            throw Errore(errori::Accesso);
        switch (Turno.Prendi(attese::TurnoMs)) {
        case FileBlocco::Esito::Preso:
            return;
        case FileBlocco::Esito::Altrui:
            throw Errore(errori::DatiBloccati);
        case FileBlocco::Esito::Abbandonato:
            throw Errore(errori::DatiBloccati, FraseTurno({Turno.Percorso(), Turno.Titolare()}) +
                                                   u": se nessuno sta salvando, si può eliminare"_s);
        case FileBlocco::Esito::Rifiutato:
            throw Errore(errori::Accesso);
        case FileBlocco::Esito::Impedito:
            throw Errore(errori::SpazioDatabase);
        }
    }

    /// The former file has no writer and no journal when it goes: what somebody is writing into it would go
    /// with it, and a journal left behind would be taken for the new file's.
    void Sgombra() const
    {
        try {
            const Database Prima = OpenDatabase(Finale);
            const Transazione Sola(Prima);
        } catch (const Errore& Guasto) {
            // Refused for its journal it is a note all the same, and that journal may mend another file.
            if (GiornaleAltrui(Finale))
                throw;
            // Into what is no database nobody writes, nor into a read-only file. A journal that could not be
            // played back stays: by it the former file is mended.
            const bool Protetta =
                Guasto.Numero == errori::DatabaseSolaLettura && !EsisteFile(Finale + u"-journal"_s);
            if (Guasto.Numero != errori::FormatoDatabase && !Protetta)
                throw;
        }
        for (const QString& Coda : {u"-journal"_s, u"-wal"_s, u"-shm"_s})
            ScartaFile(Finale + Coda);
    }

    /// A note that the former program may still want stays beside its new file, as it was. The copy is whole
    /// before the new file takes the name.
    void TieniAccess(Lettori Chi) const
    {
        constexpr qint64 Massimo = qint64(2) << 30;
        const QString Copia = Accanto + u".tmp-access"_s;
        const QDateTime Quando = DataFile(Finale);
        QString Libero = Finale + u".access"_s;
        for (int Numero = 2; EsisteFile(Libero); ++Numero) {
            // A save that has failed behind this has kept the file already.
            if (DataFile(Libero) == Quando && QFileInfo(Libero).size() == QFileInfo(Finale).size())
                return;
            Libero = Finale + u".access.%1"_s.arg(Numero);
        }
        try {
            (void)CopiaFile(Finale, Copia, Massimo, {}, Lettori::SoloUtente);
            ScriviSulDisco(Copia);
            DaiPermessi(Copia, Finale, Chi);
            ImpostaDataFile(Copia, Quando);
            RinominaFile(Copia, Libero);
        } catch (const Errore&) {
            ScartaFile(Copia);
            throw;
        }
    }

    void TogliProvvisorio() const
    {
        ScartaFile(Provvisorio);
        ScartaFile(Provvisorio + u"-journal"_s);
    }

    QString Finale;
    QString Accanto;
    QString Provvisorio;
    FileBlocco Turno;
};

/// The three empty tables, put on the disk together: each by itself would wait for it three times.
void CopiaTabelle(const Database& Tariffe, const Database& File)
{
    Transazione Insieme(File);
    for (const TabellaNota& Tabella : TabelleNota())
        Tariffe.CopiaTabella(Tabella.Nome, File);
    Insieme.Conferma();
}

bool ENota(const QString& Nome)
{
    return Nome.endsWith(u".mdb");
}

/// Once for each folder and process, behind its first save there.
void TogliRestiUnaVolta(const QString& Cartella)
{
    static QStringList Passate;
    if (Passate.contains(Cartella))
        return;
    Passate.append(Cartella);
    TogliRestiDiNote(Cartella);
}

}  // namespace

namespace {

/// @param Immutata empty: whatever stands there is replaced
/// @return as MettiAlPosto; nothing at all where the file was not replaced
std::optional<QString> Scrivi(const QString& Percorso, const Parcella& Nota, bool ComeModello, Lettori Chi,
                              const std::function<bool()>& Immutata)
{
    const QString Destinazione = FileVero(Percorso);
    if (EsisteFile(Destinazione) && SolaLettura(Destinazione))
        throw Errore(errori::Autorizzazione);
    const Decreto& Legge = *Nota.Tariffa;
    (void)ApriTariffe(Legge);  // what is wrong with it is said in its own words
    AggiornaColonne(PercorsoTariffe(Legge));

    QString Scostato;
    {
        const FileInCostruzione Nuovo(Destinazione);
        {
            const Database Tariffe = ApriTariffe(Legge);
            const Database File = CreaDatabasePrivato(Nuovo.Percorso());
            CopiaTabelle(Tariffe, File);
            ScriviDati(File, Nota);
        }
        if (Immutata && !Immutata())
            return std::nullopt;
        Scostato = Nuovo.MettiAlPosto(Chi, ComeModello);
    }
    TogliRestiUnaVolta(CartellaFile(Destinazione));
    return Scostato;
}

}  // namespace

QString ScriviNota(const QString& Percorso, const Parcella& Nota, bool ComeModello, Lettori Chi)
{
    return Scrivi(Percorso, Nota, ComeModello, Chi, {}).value_or(QString());
}

bool ScriviNotaSe(const QString& Percorso, const Parcella& Nota, const std::function<bool()>& Immutata)
{
    return Scrivi(Percorso, Nota, false, Lettori::Cartella, Immutata).has_value();
}

QString FraseScostato(const QString& Percorso, const QString& Scostato)
{
    return u"Accanto c'era il giornale di una parcella %1 che non c'è più: è stato conservato, nella stessa "
           "cartella, con il nome %2.\nServe solo se quella parcella torna al suo posto, e allora con il "
           "nome "
           "%1-journal; altrimenti si può eliminare."_s.arg(NomeFile(FileVero(Percorso)), Scostato);
}

void AggiornaProtetta(const QString& Percorso)
{
    constexpr qint64 Massimo = qint64(1) << 30;
    const QString Destinazione = FileVero(Percorso);
    const FileInCostruzione Nuovo(Destinazione);
    CopiaFile(Destinazione, Nuovo.Percorso(), Massimo, {}, Lettori::SoloUtente);
    AggiornaColonne(Nuovo.Percorso());
    (void)Nuovo.MettiAlPosto(Lettori::Cartella);
}

void SeparaNomi(const QString& Percorso)
{
    constexpr qint64 Massimo = qint64(1) << 30;
    const QString Destinazione = FileVero(Percorso);
    if (!HaAltriNomi(Destinazione))
        return;
    const FileInCostruzione Nuovo(Destinazione);
    {
        // What was cut off is undone before it is copied.
        const Database Intera = OpenDatabase(Destinazione);
        const Transazione Sola(Intera);
    }
    const QDateTime Quando = DataFile(Destinazione);
    CopiaFile(Destinazione, Nuovo.Percorso(), Massimo, {}, Lettori::SoloUtente);
    ImpostaDataFile(Nuovo.Percorso(), Quando);
    (void)Nuovo.MettiAlPosto(Lettori::Cartella);
}

std::optional<TurnoLasciato> TurnoAbbandonato(const QString& Percorso)
{
    FileBlocco Turno(FileTurno(FileVero(Percorso)));
    if (Turno.Prendi(0) != FileBlocco::Esito::Abbandonato)
        return std::nullopt;
    return TurnoLasciato{Turno.Percorso(), Turno.Titolare()};
}

QString FraseTurno(const TurnoLasciato& Trovato)
{
    const QString Chi = Trovato.Firma.Macchina.isEmpty() ? u"non si sa da chi"_s
                                                         : u"dal computer "_s + Trovato.Firma.Macchina;
    return u"Il salvataggio è trattenuto dal file %1, nella cartella %2, lasciato %3 il %4"_s.arg(
        NomeFile(Trovato.File), CartellaFile(Trovato.File), Chi,
        Trovato.Firma.Quando.toString(u"dd/MM/yyyy 'alle' hh:mm"_s));
}

void TogliRestiDiNote(const QString& Cartella)
{
    const QRegularExpression Forma(u"^\\.~(?:\\.~)?(.+?)\\.(turno(\\.rmlock)?|"
                                   "tmp(-access|(\\.letto)?(-journal|-wal|-shm)?)(\\.tmp)?)\\z"_s);
    // What a program copies or converts bears its number; behind a kill no other one builds under that name.
    const QRegularExpression InCopia(u"^\\d+\\..+\\.mdb(\\.nuovo)?\\z"_s,
                                     QRegularExpression::CaseInsensitiveOption);
    constexpr int Fine = 2;
    const QString Qui = Barra(Cartella);
    if (!CartellaScrivibile(Qui))
        return;
    QMap<QString, QStringList> Note;
    for (const QString& Nome : NomiDeiFile(Qui, u".t*"_s)) {
        const auto Parti = Forma.match(Nome);
        const QString Nota = Parti.captured(1);
        // A file of another kind that is being written has no turn: what it leaves goes otherwise.
        const bool SoloMentreSiRisana = !ENota(Nota) && !InCopia.match(Nota).hasMatch() &&
                                        Parti.captured(Fine).startsWith(u"tmp") &&
                                        Parti.captured(Fine) != u"tmp-journal";
        if (Parti.hasMatch() && !SoloMentreSiRisana)
            Note[Nota].append(Nome);
    }
    for (const auto& [Nota, Nomi] : Note.asKeyValueRange()) {
        FileBlocco Turno(FileTurno(Qui + Nota));
        if (Turno.Prendi(0) != FileBlocco::Esito::Preso)
            continue;
        for (const QString& Nome : Nomi)
            if (Qui + Nome != Turno.Percorso())
                ScartaFile(Qui + Nome);
    }
    // What is written in place has its journal beside it.
    const QString Coda = u"-journal"_s;
    for (const QString& Nome : NomiDeiFile(Qui, u".mdb"_s + Coda))
        TogliGiornale(Qui + Nome.chopped(Coda.size()));
}
