#include "core/app/primouso.h"

#include "core/modAvvio.h"
#include "core/modErrori.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int Documenti = 5;

QString Parametro(const QString& Chiave, const QString& Predefinito = {})
{
    return GetSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave, Predefinito);
}

void Salva(const QString& Chiave, const QString& Valore)
{
    SaveSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave, Valore);
}

/// The program's own folder among the user's documents.
QString CartellaDocumenti()
{
    return CartellaSpeciale(Documenti) + Barra(u"Calcanova"_s);
}

/// Copies a file of the program beside the user's data, unless one of that name, in any case, is there.
void CopiaSeManca(const QString& Nome, const QString& Cartella)
{
    const QString Origine = TrovaFile(Barra(Parametro(u"PercorsoProcedura"_s, CartellaEseguibile())) + Nome);
    // Two programs may be started at once: of two copies the first one counts, it may be in use already.
    if (EsisteFile(Origine) && !EsisteFile(TrovaFile(Cartella + Nome)))
        CreaFile(Cartella + Nome, LeggiFile(Origine));
}

void PreparaCartellaUtente()
{
    if (!Parametro(u"UserFolder"_s).isEmpty())
        return;
    const QString Cartella = CartellaUtente(LeggiVersioneSistema());
    CreaCartella(Cartella);
    Salva(u"UserFolder"_s, Cartella);
}

void PreparaParcelle()
{
    if (!Parametro(u"ParcellePath"_s).isEmpty())
        return;
    const QString Cartella = CartellaDocumenti() + Barra(u"Parcelle"_s);
    // Without this one the templates would go beside the program, where a user may not write.
    CreaCartella(Cartella + u"Modelli"_s);
    Salva(u"ParcellePath"_s, Cartella);
}

void PreparaArchivio()
{
    if (!Parametro(u"ArchivioCliCon"_s).isEmpty())
        return;
    const QString Nome = u"DatiStudio.mdb"_s;
    CreaCartella(CartellaDocumenti());
    CopiaSeManca(Nome, CartellaDocumenti());
    Salva(u"ArchivioCliCon"_s, CartellaDocumenti() + Nome);
}

void PreparaTassi()
{
    const QString Cartella = Barra(Parametro(u"UserFolder"_s));
    if (EsisteCartella(Cartella))
        CopiaSeManca(u"Tassi.dat"_s, Cartella);
}

}  // namespace

void PrimoUso()
{
    for (const auto Passo : {PreparaCartellaUtente, PreparaParcelle, PreparaArchivio, PreparaTassi})
        Protetta(Passo);
}
