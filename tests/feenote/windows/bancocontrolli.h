// What the tests of "Da controllare" share: an invoice with nothing to check, the list, hands to use it.
#pragma once

#include "fattura.h"

#include "feenote/modControlliNota.h"
#include "feenote/modInterruttori.h"
#include "feenote/modParti.h"

class BancoControlli : protected BancoFattura
{
protected:
    enum class Gesto { Clic, Invio, Spazio };

    void PreparaControlli()
    {
        SalvaImpostazioni({{QStringLiteral("Disposizione_lstControlli"), {}}});
        PreparaFattura();
        // The office that PreparaFattura makes has the VAT of a first start.
        F->Nota.txtIVA.Testo = QStringLiteral("22");
        RicordaStampa(F->Nota);
        F->MostraTutto();
        Respiro();
    }
    void SgombraControlli()
    {
        Sgombra();
        SalvaImpostazioni(
            {{QStringLiteral("Disposizione_lstControlli"), {}}, {QStringLiteral("ProgTrasm"), {}}});
    }
    [[nodiscard]] QListWidget* Elenco() const { return Controllo<QListWidget>(F, "lstControlli"); }
    [[nodiscard]] QToolButton* Testa() const { return Controllo<QToolButton>(F, "cmdControlli"); }
    [[nodiscard]] QStringList Voci() const
    {
        Respiro();
        QStringList Lette;
        for (int i = 0; i < Elenco()->count(); ++i)
            Lette += Elenco()->item(i)->text();
        return Lette;
    }
    [[nodiscard]] int PostoDi(const QString& Inizio) const
    {
        const QStringList Lette = Voci();
        for (int i = 0; i < Lette.size(); ++i)
            if (Lette[i].startsWith(Inizio))
                return i;
        return -1;
    }
    void Fai(Gesto Come, int Riga) const
    {
        Elenco()->scrollToItem(Elenco()->item(Riga));
        if (Come == Gesto::Clic) {
            QTest::mouseClick(Elenco()->viewport(), Qt::LeftButton, Qt::NoModifier,
                              Elenco()->visualItemRect(Elenco()->item(Riga)).center());
        } else {
            Elenco()->setFocus();
            Premi(Qt::Key_Home);
            for (int i = 0; i < Riga; ++i)
                Premi(Qt::Key_Down);
            QCOMPARE(Elenco()->currentRow(), Riga);
            Premi(Come == Gesto::Invio ? Qt::Key_Return : Qt::Key_Space);
        }
        for (int i = 0; i < 5; ++i)
            Respiro();
    }
    /// A line of the tariff, with a range of its own.
    int RigaConLimiti(double Importo, double Min, double Max) const
    {
        const int Riga = RigaOnorario(F->Nota, QStringLiteral("Fase decisoria"), Importo, 4, 4);
        F->Nota.xOnorari(Riga, OnoMin) = Min;
        F->Nota.xOnorari(Riga, OnoMedio) = Min + (Max - Min) / 3;
        F->Nota.xOnorari(Riga, OnoMax) = Max;
        F->Nota.RicalcoloNecessario = false;  // entering the honoraria leaves them as they are
        F->MostraTutto();
        return Riga;
    }
};
