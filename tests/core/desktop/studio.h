// What the tests of the desktop share: the stage, the desktop in front, its fixed icons, pictures to look at.
#pragma once

#include "core/app/scena.h"

#include "core/desktop/iconastudio.h"
#include "platform/system/file.h"

#include <QImage>

#include <array>
#include <memory>

struct Fissa
{
    QStringView Etichetta;
    QStringView Comando;
};

inline constexpr std::array Fisse{
    Fissa{u"Parcellazione nuove tariffe", u"new"},
    Fissa{u"Parcellazione vecchie tariffe", u"kr2"},
    Fissa{u"Rubrica clienti", u"clienti"},
    Fissa{u"Computo termini", u"termini"},
    Fissa{u"Termini sequenziali", u"sequenz"},
    Fissa{u"Calcolo interessi", u"inter"},
    Fissa{u"Rivalutazione Istat", u"istat"},
    Fissa{u"Codice fiscale", u"codfis"},
    Fissa{u"Contributo unificato", u"contrib"},
    Fissa{u"Documentazione normativa", u"docum"},
    Fissa{u"Guida giuridica", u"guida"},
    Fissa{u"Elenco siti web utili", u"link"},
    Fissa{u"Novità", u"novita"},
    Fissa{u"Aggiorna programma", u"upgrade"},
    Fissa{u"Impostazioni", u"setup"},
};

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
