#include "feenote/file/modMultipla.h"

#include "core/modErrori.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/nomenota.h"
#include "feenote/modStato.h"
#include "feenote/modTotali.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/database/database.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// Whoever could not be written to is read none the less: the attribute is no reason to do without the note.
void TogliSolaLettura(const QString& File)
{
    try {
        if (SolaLettura(File))
            ImpostaSolaLettura(File, false);
    } catch (const Errore&) {
        return;  // a medium that is read-only as a whole
    }
}

}  // namespace

NotaAssociata DatiMulti(const Parcella& Altra)
{
    const Somme Totali = CalcolaSomme(Altra);
    NotaAssociata Dati;
    Dati.Tariffa = Altra.Tariffa;
    Dati.CategMulti = TestoCategoria(Altra);
    Dati.AutorMulti = TestoAutorita(Altra);
    Dati.ValoreMulti = TestoValore(Altra);
    Dati.OggettoMulti = Altra.txtOggetto.Testo;
    Dati.xOnorariMulti = Altra.xOnorari;
    Dati.xDirittiMulti = Altra.xDiritti;
    Dati.xAccontiMulti = Altra.xAcconti;
    Dati.TotOnorariMulti = Totali.TotOnorari;
    Dati.TotSpeseImpMulti = Totali.TotSpeseImp;
    Dati.TotSpeseEsentiMulti = Totali.TotSpeseEsenti;
    return Dati;
}

NotaAssociata LeggiMulti(const QString& Percorso)
{
    const QString File = PercorsoNativo(Percorso);
    Parcella Altra;
    const int Illeggibili = LeggiInSilenzio(Altra, ApriArchivio(File, true));
    TogliSolaLettura(File);
    NotaAssociata Dati = DatiMulti(Altra);
    Dati.Illeggibili = Illeggibili;
    return Dati;
}

bool SuoFile(const Parcella& Nota, const QString& Percorso)
{
    const QString Uno = PercorsoNativo(Nota.Percorso);
    const QString Altro = PercorsoNativo(Percorso);
    if (Uno.isEmpty() || Altro.isEmpty())
        return false;
    const QString Vero = QFileInfo(Uno).canonicalFilePath();
    return Uno == Altro || (!Vero.isEmpty() && Vero == QFileInfo(Altro).canonicalFilePath());
}

bool AssociaMulti(Parcella& Nota, const QString& Percorso, const Parcella* Aperta)
{
    const QString File = PercorsoNativo(Percorso);
    if (Aperta == &Nota || SuoFile(Nota, File)) {
        MsgErrore(StessaParcella.toString());
        return false;
    }
    Nota.Multi = Aperta ? DatiMulti(*Aperta) : LeggiMulti(File);
    Nota.txtPathParcMult = File;
    Nota.txtParcMultipla = NomeMostrato(File);
    return true;
}

void AvvisaIlleggibiliMulti(const Parcella& Nota)
{
    const int Quanti = Nota.Multi.Illeggibili;
    if (Quanti <= 0)
        return;
    const QString Detto =
        Quanti == 1
            ? u"un importo della parcella associata \"%1\" non si legge: al suo posto è 0.\nPrima di "
              u"stamparle "
              u"insieme occorre aprirla, scriverlo di nuovo e salvarla."_s.arg(Nota.txtParcMultipla)
            : u"%1 importi della parcella associata \"%2\" non si leggono: al loro posto è 0.\nPrima di "
              u"stamparle insieme occorre aprirla, scriverli di nuovo e salvarla."_s.arg(
                  QString::number(Quanti), Nota.txtParcMultipla);
    MsgBox(u"Attenzione, "_s + Detto, vbExclamation, TitoloAvvertenza.toString());
}

void TogliMulti(Parcella& Nota)
{
    TieniSocio(Nota);
    Nota.Multi = {};
    Nota.txtParcMultipla.clear();
    Nota.txtPathParcMult.clear();
}
