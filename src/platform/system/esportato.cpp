#include "platform/system/esportato.h"

#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

using namespace Qt::StringLiterals;

void MostraEsportato(const QString& Testo, const QString& File)
{
    if (MsgBoxPulsanti(Testo, vbYesNo + vbInformation + vbDefaultButton2, TitoloMessaggio.toString(),
                       {u"Apri cartella"_s, u"OK"_s}) == vbYes)
        ApriCartellaDi(File);
}

bool Sostituibile(const QString& File)
{
    return !EsisteFile(File) ||
           MsgBox(u"Il file "_s + NomeFile(File) + u" esiste già: si vuole sostituirlo?"_s,
                  vbYesNo | vbQuestion, TitoloDomanda.toString()) == vbYes;
}

void ApriCartellaDi(const QString& File)
{
    const QString Cartella = CartellaFile(PercorsoNativo(File));
    if (ApriConSistema(Cartella) != 0)
        MsgBox(
            u"Non è stato possibile aprire la cartella %1: aprirla con il gestore dei file."_s.arg(Cartella),
            vbExclamation, TitoloAvvertenza.toString());
}
