#include "core/modLancio.h"

#include "core/modErrori.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/shell.h"

using namespace Qt::StringLiterals;

void ApriPDF(const QString& Percorso, int Pagina)
{
    Protetta([&] {
        const QString File = TrovaFile(Percorso);
        if (!EsisteFile(File)) {
            MsgErrore(u"Documento "_s + Percorso + u" non trovato!"_s);
            return;
        }
        // The desktop does not report that it has no reader for the file.
        if (!HaProgramma(File))
            MsgErrore(u"Percorso Acrobat reader non trovato!"_s);
        VerificaEsito(ApriPdfConSistema(File, Pagina));
    });
}

void ApriUrl(const QString& Indirizzo)
{
    QString Completo = Indirizzo.toLower();
    if (!Completo.startsWith(u"mailto:") && !Completo.startsWith(u"http://") &&
        !Completo.startsWith(u"https://"))
        Completo.prepend(u"http://");
    const int Esito = ApriIndirizzoConSistema(Completo);
    if (Esito == 0)
        return;
    // The title speaks of printing although nothing is printed: users know the box by it.
    MsgBox(u"Codice errore: "_s + QString::number(Esito) +
               u"\nIl tentativo di apertura automatica della pagina web "_s + Completo +
               u"\nnon è andato a buon fine: lanciare manualmente il browser e digitare l'indirizzo."_s,
           vbCritical, u"Errore in fase di stampa:"_s);
}

void ApriDocWord(const QString& Percorso)
{
    Protetta([&] {
        Clessidra(true);
        VerificaEsito(ApriConSistema(Percorso));
        Clessidra(false);
    });
}
