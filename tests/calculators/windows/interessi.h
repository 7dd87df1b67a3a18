// The window of interest over rates of a test.
#pragma once

#include "banco.h"
#include "calculators/archivio_prova.h"
#include "calculators/windows/frmInteressi.h"
#include "platform/base/regionale.h"
#include "platform/calendar/calendario.h"
#include "platform/grid/griglia.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"

#include <filesystem>

using namespace Qt::StringLiterals;

inline const auto NonAggiornati = u"Attenzione: i tassi di interessi non sono aggiornati.\n"
                                  "Si vuole procedere all'aggiornamento degli indici?"_s;

inline const auto UltimoIndice = u"Il calcolo verrà effettuato con l'ultimo indice disponibile."_s;

/// The window, open, and hands to fill it.
class BancoInteressi
{
protected:
    void Prepara();
    void Sgombra();

    void Compila(const QString& Capitale, const QString& Dal, const QString& Al) const
    {
        Scrivi(F, "txtCapitale", Capitale);
        Controllo<MascheraData>(F, "mskDataIni")->ImpostaTesto(Dal);
        Controllo<MascheraData>(F, "mskDataFin")->ImpostaTesto(Al);
    }
    void Calcola() const { Controllo<QPushButton>(F, "cmdCalcola")->click(); }
    [[nodiscard]] Griglia* Grid() const { return Controllo<Griglia>(F, "tdbInter"); }
    [[nodiscard]] QString Cella(int Riga, int Colonna) const
    {
        const auto* Modello = Grid()->Vista()->model();
        return Modello->index(Riga, Colonna).data().toString();
    }
    /// Another archive takes the place of the delivered one.
    void Sostituisci(const QString& Archivio) const
    {
        QVERIFY(QFile::remove(B->Tassi()));
        QVERIFY(QFile::copy(Archivio, B->Tassi()));
    }

    std::unique_ptr<Banco> B;
    QPointer<frmInteressi> F;
};

inline void BancoInteressi::Prepara()
{
    B = std::make_unique<Banco>();
    B->ConTassi();
    F = Apri<frmInteressi>();
    QVERIFY(F);
}

inline void BancoInteressi::Sgombra()
{
    B.reset();
    QVERIFY(!F);
}
