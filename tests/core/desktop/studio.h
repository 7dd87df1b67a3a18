// What the tests of the desktop share: the stage, the desktop in front, its fixed icons, pictures to look at.
#pragma once

#include "core/app/scena.h"

#include "core/comandi.h"
#include "core/desktop/iconastudio.h"
#include "platform/system/file.h"

#include <QImage>

#include <memory>
#include <vector>

struct Fissa
{
    QStringView Etichetta;
    QStringView Comando;
};

/// The icons of every desktop, in their order; TestComandi has written down what they are.
inline const std::vector<Fissa> Fisse = [] {
    std::vector<Fissa> Tutte;
    for (const Comando* Riga : ComandiDellaScrivania())
        Tutte.push_back({Riga->Icona.Etichetta, Riga->Parola});
    return Tutte;
}();

/// A program folder with the icons of a user in it.
inline QString ProgrammaConIcone(const QByteArray& Righe)
{
    const QString Cartella = NuovaCartella();
    ScriviFile(Cartella + u"parcelle.mdb"_s, "x");
    ScriviFile(Cartella + u"kr5.ini"_s, "[desktop]\r\n" + Righe);
    return Cartella;
}

inline int Conta(const QImage& Immagine, const QColor& Colore)
{
    int Quanti = 0;
    for (int y = 0; y < Immagine.height(); ++y)
        for (int x = 0; x < Immagine.width(); ++x)
            Quanti += Immagine.pixelColor(x, y) == Colore;
    return Quanti;
}

/// Inherited by a class of tests, which calls Prepara and Sgombra around each of them.
class BancoStudio
{
protected:
    void Prepara()
    {
        S = std::make_unique<Scena>();
        S->Preparata();
    }
    void Sgombra() { S.reset(); }

    static frmStudio& Apri()
    {
        frmStudio& Scrivania = Singola<frmStudio>();
        Scrivania.Mostra();
        (void)QTest::qWaitForWindowActive(&Scrivania);
        Respiro();
        return Scrivania;
    }

    std::unique_ptr<Scena> S;
};
