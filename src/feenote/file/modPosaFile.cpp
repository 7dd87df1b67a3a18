#include "feenote/file/modPosaFile.h"

#include "feenote/file/colonne.h"
#include "feenote/file/modScrittura.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/database/database.h"
#include "platform/system/blocco.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "platform/system/sincrono.h"

#include <QDateTime>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// The file while it is being built, beside the place it will take; gone unless it was put there. Programs
/// that save under one name take turns, or one would put the other's half-built file there.
class FileInCostruzione
{
public:
    explicit FileInCostruzione(const QString& Destinazione)
        : Finale(Destinazione), Accanto(CartellaFile(Destinazione) + u".~"_s + NomeFile(Destinazione)),
          Provvisorio(Accanto + u".tmp"_s), Turno(Accanto + u".turno"_s)
    {
        PrendiTurno();
        TogliProvvisorio();  // what a crash may have left
    }
    ~FileInCostruzione() { TogliProvvisorio(); }
    FileInCostruzione(const FileInCostruzione&) = delete;
    FileInCostruzione& operator=(const FileInCostruzione&) = delete;

    [[nodiscard]] const QString& Percorso() const { return Provvisorio; }

    void MettiAlPosto() const
    {
        if (EDiAccess(Finale))
            TieniAccess();
        else if (EsisteFile(Finale))
            Sgombra();
        SostituisciFile(Provvisorio, Finale);
    }

private:
    void PrendiTurno()
    {
        const QString Cartella = QFileInfo(Finale).path();
        if (!EsisteCartella(Cartella))
            throw Errore(3044);
        if (ByteDelNome(NomeFile(Finale)) > MassimoNomeNota)
            throw Errore(52);
        if (EsisteCartella(Finale))
            throw Errore(75);
        if (!CartellaScrivibile(Cartella))
            throw Errore(75);
        switch (Turno.Prendi(guasti::AttesaTurnoMs)) {
        case FileBlocco::Esito::Preso:
            return;
        case FileBlocco::Esito::Altrui:
            throw Errore(3260);
        case FileBlocco::Esito::Rifiutato:
            throw Errore(75);
        case FileBlocco::Esito::Impedito:
            throw Errore(3026);
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
            if (Guasto.Numero == errori::DatiBloccati)
                throw;  // anything else: a file that is no database, where nobody writes
        }
        ScartaFile(Finale + u"-journal"_s);
    }

    /// A note that the former program may still want stays beside its new file, as it was. The copy is whole
    /// before the new file takes the name.
    void TieniAccess() const
    {
        constexpr qint64 Massimo = qint64(2) << 30;
        const QString Copia = Accanto + u".access"_s;
        const QDateTime Quando = DataFile(Finale);
        QString Libero = Finale + u".access"_s;
        for (int Numero = 2; EsisteFile(Libero); ++Numero)
            Libero = Finale + u".access.%1"_s.arg(Numero);
        try {
            (void)CopiaFile(Finale, Copia, Massimo);
            ScriviSulDisco(Copia);
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

}  // namespace

void ScriviNota(const QString& Percorso, const Parcella& Nota, bool ComeModello)
{
    const QString Destinazione = PercorsoNativo(Percorso);
    if (EsisteFile(Destinazione) && SolaLettura(Destinazione))
        throw Errore(70);
    AggiornaColonne(PercorsoTariffe());

    const FileInCostruzione Nuovo(Destinazione);
    {
        const Database Tariffe = ApriTariffe();
        const Database File = CreateDatabase(Nuovo.Percorso());
        CopiaTabelle(Tariffe, File);
        ScriviDati(File, Nota);
    }
    Nuovo.MettiAlPosto();
    if (ComeModello)
        ImpostaSolaLettura(Destinazione, true);
}
