// Lines of a note that are selected.
#pragma once

#include "core/aperture.h"
#include "platform/system/shell.h"
#include "selettore.h"

using namespace Qt::StringLiterals;

inline const QString NienteScelto =
    u"Evidenziare prima la prestazione cliccando sulla colonna di selezione!"_s;

inline const QString TagliarneUna = u"Confermi la cancellazione della voce selezionata?"_s;

/// A note of some lines in view, each called by a letter.
class BancoRigheScelte
{
protected:
    void Prepara();
    void Sgombra();

    [[nodiscard]] QToolButton* Tasto(const char* Chiave) const
    {
        const QByteArray Nome = QByteArray("barListaOnoDir_") + Chiave;
        return PaginaIn(F)->findChild<QToolButton*>(QString::fromLatin1(Nome));
    }
    /// The lines by their letters.
    [[nodiscard]] QString Nomi() const { return Testi(F->Nota.xOnorari, {OnoDescr}).join(QString()); }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    Griglia* Righe = nullptr;
    Griglia* Spese = nullptr;
};

inline void BancoRigheScelte::Prepara()
{
    T = std::make_unique<Tavolo>();
    F = ApriSenzaRighe(*T);
    QVERIFY(F);
    for (int i = 0; i < 5; ++i)
        RigaOnorario(F->Nota, QString(QChar(u'a' + i)), 100.0 * (i + 1), i + 1, i + 1);
    F->MostraTutto();
    Righe = Controllo<Griglia>(F, "tdbOnor");
    Spese = Controllo<Griglia>(F, "tdbDir");
    QCOMPARE(Nomi(), u"abcde"_s);
    F->SetModificata(false);
}

inline void BancoRigheScelte::Sgombra()
{
    T.reset();
}
