// Saved notes in folders, as the tests of the finder want them.
#pragma once

#include "feenote/file/file_prova.h"
#include "feenote/finder/modTrova.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QStringList>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

/// Saves a note with its parties; the folder is made.
inline QString SalvaNota(const QString& File, const QString& Cliente = {}, const QString& Controparte = {},
                         int IDCli = 0, int IDCon = 0)
{
    QDir().mkpath(CartellaFile(File));
    Parcella Nota;
    NuovaParcella(Nota);
    Nota.txtCliente.Testo = Cliente;
    Nota.txtControp.Testo = Controparte;
    Nota.txtOggetto.Testo = QStringLiteral("Oggetto di ") + NomeFile(File);
    Nota.IDCli = IDCli;
    Nota.IDCon = IDCon;
    ScriviNota(File, Nota);
    return File;
}

/// Gives a file a date of change.
inline void Data(const QString& File, const QDateTime& Quando)
{
    QFile Aperto(File);
    QVERIFY(Aperto.open(QIODevice::ReadOnly));
    QVERIFY(Aperto.setFileTime(Quando, QFileDevice::FileModificationTime));
}

/// Many notes, "0.mdb" and so on: links to one, since each save, and even each copy, waits for the disk.
inline void SalvaMolte(const QString& Cartella, int Quante)
{
    const QString Prima = SalvaNota(Cartella + QStringLiteral("0.mdb"), QStringLiteral("Rossi"));
    for (int i = 1; i < Quante; ++i)
        QVERIFY(QFile::link(Prima, Cartella + QString::number(i) + QStringLiteral(".mdb")));
}

/// A folder that does not answer as long as the object lives, as one on a network that is gone.
class CartellaFerma
{
public:
    explicit CartellaFerma(const QString& Cartella)
    {
        guasti::PrimaDiScorrere = [Cartella, Insieme = Comune](const QString& Chiesta) {
            if (Chiesta != Cartella)
                return;
            ++Insieme->Dentro;
            while (!Insieme->Risponde)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            --Insieme->Dentro;
        };
    }
    /// Those who wait are let go first, and are through.
    ~CartellaFerma()
    {
        Comune->Risponde = true;
        while (Attesa())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        guasti::PrimaDiScorrere = {};
    }
    CartellaFerma(const CartellaFerma&) = delete;
    CartellaFerma& operator=(const CartellaFerma&) = delete;

    /// True while somebody waits for it.
    [[nodiscard]] bool Attesa() const { return Comune->Dentro > 0; }

private:
    struct Stato
    {
        std::atomic<int> Dentro = 0;
        std::atomic<bool> Risponde = false;
    };
    std::shared_ptr<Stato> Comune = std::make_shared<Stato>();
};
