// An update as it is announced, signed and laid out in a folder.
#pragma once

#include "guasti/posa.h"
#include "platform/database/database.h"
#include "platform/network/firma.h"
#include "supporto/prova.h"
#include "update/versioni.h"

#include <QCryptographicHash>

namespace pubblicato {

/// The delivered archive of rates.
inline const QByteArray& Vecchi()
{
    static const QByteArray Byte = Contenuto(ProgrammaDiProva() + QStringLiteral("Tassi.dat"));
    return Byte;
}

/// The delivered archive with one month more.
inline const QByteArray& Nuovi()
{
    static const QByteArray Byte = [] {
        const QString File = NuovaCartella() + QStringLiteral("Tassi.dat");
        Posa(File, Vecchi());
        OpenDatabase(File).Execute(
            QStringLiteral("INSERT INTO IndiciIstat (Anno, Mese, Indice) VALUES (2030, 1, 130.5)"));
        return Contenuto(File);
    }();
    return Byte;
}

inline const QByteArray Installatore = QByteArray(200'000, 'i') + "fine";

/// A folder with a signed update, made once for everybody.
inline const QString& Pubblicato()
{
    static const QString Cartella = [] {
        const QString Dove = NuovaCartella();
        const CoppiaChiavi Chiavi = NuoveChiavi();
        QByteArray Elenco = "versione=[3.0.99]\n01/12/2026\nnota=Nuovi tassi";
        const auto Aggiungi = [&](const QString& Nome, const QByteArray& Byte) {
            Posa(Dove + Nome, Byte);
            Elenco += '\n' + RigaElenco({Nome, Byte.size(),
                                         QCryptographicHash::hash(Byte, QCryptographicHash::Sha256)})
                                 .toLatin1();
        };
        Aggiungi(QStringLiteral("tassi.dat"), Nuovi());
        Aggiungi(QStringLiteral("upgrade3.0.99.exe"), Installatore);
        Posa(Dove + QStringLiteral("versioni.txt"), Elenco);
        Posa(Dove + QStringLiteral("versioni.txt.sig"), FirmaByte(Elenco, Chiavi.Segreta));
        Posa(Dove + QStringLiteral("calcanova.pub"), Chiavi.Pubblica);
        return Dove;
    }();
    return Cartella;
}

}  // namespace pubblicato
