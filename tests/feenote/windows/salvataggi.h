// What the tests of the save share: its messages, a note that is touched, a note that is saved.
#pragma once

#include "core/comandi.h"
#include "core/posti.h"
#include "platform/base/numerierrore.h"
#include "platform/system/percorsi.h"
#include "tavolo.h"

namespace salvataggi {

inline QString Salvata(const QString& Nome)
{
    return QStringLiteral("La parcella ") + Nome + QStringLiteral(" è stata salvata correttamente!");
}

inline QString GiaEsiste(const QString& Nome)
{
    return QStringLiteral("La parcella ") + Nome + QStringLiteral(" già esiste: confermi la sovrascrittura?");
}

inline QString NonSovrascrivibile(const QString& Nome)
{
    return QStringLiteral("La parcella ") + Nome + QStringLiteral(" non può essere sovrascritta!");
}

inline QString NomeSbagliato()
{
    return QStringLiteral("Il nome specificato non è valido: non usare i caratteri [ ] ! .\n"
                          "Salvataggio non effettuato!");
}

inline QString Guasto(int Numero)
{
    return QStringLiteral("Codice errore: ") + QString::number(Numero) + QStringLiteral("\n") +
           DescrizioneErrore(Numero);
}

/// Writes the client into the first tab, which modifies the note.
inline void Tocca(const frmParcelle* Finestra, const QString& Cliente = QStringLiteral("Rossi"))
{
    Scrivi(Controllo<QLineEdit>(Finestra, "txtCliente"), Cliente);
    QVERIFY(InfoParcelle[size_t(Finestra->Indice())].Modificata);
}

/// Saves the note of a place by the command; the dialog is answered with this file.
inline void Salva(Tavolo& T, const QString& File, bool ComeModello = false, int Posto = 1)
{
    T.Voce.AttendiSalva(File);
    T.Voce.Attendi(Salvata(NomeFile(File)), vbOK, QStringLiteral("Messaggio:"));
    EseguiComando(ComeModello ? QStringLiteral("savemod") : QStringLiteral("savepar"), Posto, {});
}

/// The same by the name alone, in the folder of notes or of templates. @return the file
inline QString SalvaCome(Tavolo& T, const QString& Nome, bool ComeModello = false, int Posto = 1)
{
    const QString File = (ComeModello ? sessione::ModelliPath : sessione::ParcellePath) + Nome;
    Salva(T, File, ComeModello, Posto);
    return File;
}

}  // namespace salvataggi
