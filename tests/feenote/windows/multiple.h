// What the tests of two notes in one share: a note on screen, another on the disk, a finder that answers.
#pragma once

#include "salvataggi.h"

/// Inherited by a class of tests, which calls Prepara and Sgombra around each of them.
class BancoMultipla
{
protected:
    void Prepara()
    {
        using namespace Qt::StringLiterals;
        T = std::make_unique<Tavolo>();
        Altra = NotaPiena();
        File = T->Ufficio.File(u"Altra Nota.mdb"_s);
        ScriviNota(File, Altra);
        const QString Mia = T->Ufficio.File(u"principale.mdb"_s);
        ScriviNota(Mia, NotaCivile());
        F = T->Apri(Mia);
        QVERIFY(F);
        ClicScheda(F, SchedaImposte);
        QCOMPARE(F->Scheda(), int(SchedaImposte));
        Richieste = 0;
        Aperture.TrovaParcella = [this](int Selettore, const QString& Cartella, int Indice,
                                        const QString& Parent) {
            ++Richieste;
            const bool Giusta = Selettore == 0 && Cartella.isEmpty() && Indice == 1 && Parent == u"multiple";
            return Giusta ? Scelta : u"chiamata sbagliata"_s;
        };
        F->MostraTutto();
    }
    void Sgombra() { T.reset(); }

    /// By the finder's button.
    void Associa(const QString& Percorso)
    {
        Scelta = Percorso;
        Clic(Controllo(F, "cmdOpenPar"));
    }
    /// By the pencil. @return the window of the second place
    frmParcelle* ApriAltra()
    {
        Clic(Controllo(F, "cmdModPar"));
        return Parcelle(2);
    }
    [[nodiscard]] QString Esenti() const { return TestoDi(F, "lblSpese"); }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    QString File;    ///< the note to associate
    QString Scelta;  ///< what the finder answers
    int Richieste = 0;
    Parcella Altra;
};
