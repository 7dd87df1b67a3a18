// What the tests of the print tab share: a note with its parties, the tab in view, the page.
#pragma once

#include "core/posti.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/file.h"
#include "tavolo.h"

/// Inherited by a class of tests, which calls Prepara and Sgombra around each of them.
class BancoStampa
{
protected:
    void Prepara()
    {
        T = std::make_unique<Tavolo>();
        sessione::StudioNome = QStringLiteral("Avv. Laura Conti");
        F = T->Apri();
        QVERIFY(F);
        CompilaCivile(F);
        Scrivi(Controllo<QLineEdit>(F, "txtCliente"), QStringLiteral("Rossi Mario"));
        Scrivi(Controllo<QLineEdit>(F, "txtControp"), QStringLiteral("Bianchi Srl"));
        Scrivi(Controllo<QLineEdit>(F, "txtOggetto"), QStringLiteral("Sfratto"));
        F->resize(845, 555);
        ClicScheda(F, SchedaDiStampa);
        QCOMPARE(F->Scheda(), int(SchedaDiStampa));
        vp = Controllo<VistaStampa>(F, "vp");
    }
    void Sgombra() { T.reset(); }

    void Documento(int Tipo)
    {
        Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), Tipo);
        Respiro();
        QCOMPARE(F->Nota.cmbTipoStampa, Tipo);
    }
    /// Lines, many of them enough for several pages.
    void Riempi(int Righe)
    {
        for (int i = 0; i < Righe; ++i) {
            const int Riga = F->Nota.xOnorari.AggiungiRiga();
            F->Nota.xOnorari(Riga, OnoDescr) = QStringLiteral("Prestazione %1").arg(i + 1);
            F->Nota.xOnorari(Riga, OnoImporto) = 100.0;
        }
    }
    [[nodiscard]] QString Pagine() const { return vp->Pagine().Testo(); }
    /// Marks the document on view; a composition takes the mark away.
    void Segna() const { vp->Foglio().Tag = QStringLiteral("segno"); }
    [[nodiscard]] bool Composto() const { return vp->Foglio().Tag != u"segno"; }
    [[nodiscard]] QString txtPage() const { return Controllo<QLabel>(F, "txtPage")->text(); }
    void Premuto(const char* Chiave) const { Clic(Controllo(F, Chiave)); }
    /// The word-processor document of the note on view, as bytes; empty while there is none.
    [[nodiscard]] QByteArray Esportato() const
    {
        return EsisteFile(FileDocumento(1)) ? LeggiFile(FileDocumento(1)) : QByteArray();
    }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    VistaStampa* vp = nullptr;
};
