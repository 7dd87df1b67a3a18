// Saved notes in folders, as the tests of the finder want them.
#pragma once

#include "feenote/file/file_prova.h"
#include "feenote/finder/modTrova.h"
#include "feenote/modInterruttori.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "supporto/cartellaferma.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QStringList>

#include <memory>

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

/// A new note of one line of 1.000,00: 1.459,12 of net.
inline Parcella NotaDiRossi()
{
    Parcella Nuova;
    NuovaParcella(Nuova);
    const int Riga = Nuova.xOnorari.AggiungiRiga();
    Nuova.xOnorari(Riga, OnoImporto) = 1000.0;
    Nuova.chkSpeseGen.Attiva = true;
    Nuova.txtSpeGen.Testo = QStringLiteral("15");
    Nuova.txtCP.Testo = QStringLiteral("4");
    Nuova.txtIVA.Testo = QStringLiteral("22");
    RicordaStampa(Nuova);
    Nuova.txtCliente.Testo = QStringLiteral("Rossi Mario");
    return Nuova;
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
