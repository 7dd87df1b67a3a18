// A note with three lines of its own and the panel that modifies their amounts.
#pragma once

#include "tavolo.h"

#include "feenote/modGraduazione.h"
#include "platform/base/regionale.h"

#include <QListWidget>
#include <QSlider>

#include <memory>

class BancoModOno
{
protected:
    void Prepara();
    [[nodiscard]] QWidget* Pannello() const { return Controllo(F, "pctInsModOno"); }
    [[nodiscard]] QToolButton* Variaz() const
    {
        return Controllo<QToolButton>(PaginaIn(F), "barListaOnoDir_variaz");
    }
    [[nodiscard]] QSlider* Cursore() const { return Controllo<QSlider>(F, "sldGraduaOno"); }
    [[nodiscard]] QListWidget* Fasce() const { return Controllo<QListWidget>(F, "tdbFasceOno"); }
    [[nodiscard]] QPushButton* Conferma() const { return Controllo<QPushButton>(F, "cmdModOno"); }
    [[nodiscard]] QString Testo(const char* Etichetta) const
    {
        return Controllo<QLabel>(F, Etichetta)->text();
    }
    [[nodiscard]] double Importo(int Riga) const { return NumeroDi(F->Nota.xOnorari(Riga, OnoImporto)); }
    [[nodiscard]] int Evidenziata() const
    {
        const QList<QListWidgetItem*> Scelte = Fasce()->selectedItems();
        return Scelte.isEmpty() ? NessunaFascia : Fasce()->row(Scelte.first());
    }
    /// A line with a range of its own.
    void Riga(double Importo, double Min, double Medio, double Max, int NVoce) const;
    void ClicFascia(int Quale) const;
    void Apri(int Riga) const;

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    Griglia* Righe = nullptr;
};

inline void BancoModOno::Riga(double Importo, double Min, double Medio, double Max, int NVoce) const
{
    TabellaRighe& Tabella = F->Nota.xOnorari;
    const int Nuova = RigaOnorario(F->Nota, QStringLiteral("Fase %1").arg(NVoce), Importo, NVoce, NVoce);
    Tabella(Nuova, OnoMin) = Min;
    Tabella(Nuova, OnoMedio) = Medio;
    Tabella(Nuova, OnoMax) = Max;
}

inline void BancoModOno::Prepara()
{
    T = std::make_unique<Tavolo>();
    F = ApriSenzaRighe(*T);
    QVERIFY(F);
    Riga(1200, 600, 1200, 1920, 1);
    Riga(777, 300, 500, 1000, 2);
    Riga(90, 90, 90, 90, VoceLibera);
    F->MostraTutto();
    Righe = Controllo<Griglia>(F, "tdbOnor");
    F->SetModificata(false);
    QVERIFY(!Pannello()->isVisible());
}

inline void BancoModOno::Apri(int Riga) const
{
    ClicCella(Righe, Riga, OnoDescr);
    Clic(Variaz());
    Respiro();
}

inline void BancoModOno::ClicFascia(int Quale) const
{
    const QRect Dove = Fasce()->visualItemRect(Fasce()->item(Quale));
    QTest::mouseClick(Fasce()->viewport(), Qt::LeftButton, Qt::NoModifier, Dove.center());
}
