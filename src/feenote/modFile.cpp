#include "feenote/modFile.h"

#include "feenote/modDocumento.h"
#include "platform/database.h"
#include "platform/errore.h"
#include "platform/percorsi.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::array TabelleNota{u"ParcellaParam", u"ParcellaRighe", u"ParcellaAcconti"};

/// The file while it is being built, beside the place it will take; gone unless it was put there.
class FileInCostruzione
{
public:
    explicit FileInCostruzione(const QString& Destinazione)
        : Finale(Destinazione), Provvisorio(CartellaFile(Destinazione) + u".~"_s + NomeFile(Destinazione) + u".tmp"_s)
    {
        QFile::remove(Provvisorio);  // what a crash may have left
    }
    ~FileInCostruzione()
    {
        QFile::remove(Provvisorio);
        QFile::remove(Provvisorio + u"-journal"_s);
    }
    FileInCostruzione(const FileInCostruzione&) = delete;
    FileInCostruzione& operator=(const FileInCostruzione&) = delete;

    [[nodiscard]] const QString& Percorso() const { return Provvisorio; }
    void MettiAlPosto() const { SostituisciFile(Provvisorio, Finale); }

private:
    QString Finale;
    QString Provvisorio;
};

/// The three empty tables, put on the disk together: each by itself would wait for it three times.
void CopiaTabelle(const Database& Tariffe, const Database& File)
{
    Transazione Insieme(File);
    for (const QStringView Tabella : TabelleNota)
        Tariffe.CopiaTabella(Tabella.toString(), File);
    Insieme.Conferma();
}

void AggiornaTariffe()
{
    if (!EsisteCampo(PercorsoTariffe(), u"ParcellaParam"_s, u"SpeseGen"_s))
        OpenDatabase(PercorsoTariffe()).Execute(u"ALTER TABLE ParcellaParam ADD SpeseGen Single"_s);
}

}  // namespace

void ScriviNota(const QString& Percorso, const Parcella& Nota, bool ComeModello)
{
    const QString Destinazione = PercorsoNativo(Percorso);
    if (EsisteFile(Destinazione) && SolaLettura(Destinazione))
        throw Errore(70);
    AggiornaTariffe();

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
