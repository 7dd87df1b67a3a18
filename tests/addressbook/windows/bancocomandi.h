// The browser of an archive with hands for its cards.
#pragma once

#include "addressbook/windows/frmRicerche.h"
#include "addressbook/windows/frmScheda.h"
#include "archivio.h"
#include "platform/base/numerierrore.h"
#include "platform/database/connessione.h"
#include "platform/system/guasti.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QFile>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

/// An archive of its own for each test.
class BancoComandi
{
protected:
    static frmScheda* Scheda(const frmRubrica* F)
    {
        for (auto* Una : F->findChildren<frmScheda*>())
            if (Una->isVisible())
                return Una;
        return nullptr;
    }
    /// Types into the box of a card by its place.
    static void ScriviScheda(const frmRubrica* F, int Posto, const QString& Testo)
    {
        frmScheda* Aperta = Scheda(F);
        QVERIFY(Aperta);
        QApplication::setActiveWindow(Aperta);
        Scrivi(Aperta->findChild<QLineEdit*>(u"txtFieldData_%1"_s.arg(Posto)), Testo);
    }
    static void Premuto(const frmRubrica* F, const QString& Chiave)
    {
        frmScheda* Aperta = Scheda(F);
        QVERIFY(Aperta);
        Aperta->barScheda_ButtonClick(Chiave);
        Respiro();
    }
    void AttendiErrore(int Numero)
    {
        A->Voce.Attendi(u"Errore: %1 (%2)"_s.arg(DescrizioneErrore(Numero)).arg(Numero), vbOK, u"Errore:"_s);
    }
    void AttendiElimina(int Risposta)
    {
        A->Voce.Attendi(u"Confermi la cancellazione del nominativo selezionato?"_s, Risposta, u"Domanda:"_s);
    }

    std::unique_ptr<ArchivioDiProva> A;
};
