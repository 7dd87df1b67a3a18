// What the program that reads Access files answers, should it be another than ours, or have gone mad over a
// file: a report, or an error with its sentence, in its time; no copy is left where it failed.
#include "basedati.h"
#include "fonte.h"

#include "platform/accesso/accesso.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// Makes the copy that it is asked for, says what stands in its file, and ends.
QString Programma()
{
    static const QString Pronto = [] {
        const QString File = Posa(u"risponde"_s, "#!/bin/sh\nread riga\na=${riga#*\\\"a\\\":\\\"}\n"
                                                 ": > \"${a%%\\\"*}\"\nexec cat '" +
                                                     QFile::encodeName(CartellaDiLavoro()) + "risposta'\n");
        Pretendi(QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        return File;
    }();
    return Pronto;
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    accesso::Programma = Programma();
    (void)Posa(u"risposta"_s, Dati);
    const QString Da =
        Posa(u"vecchio.mdb"_s, QByteArray("\0\1\0\0Standard Jet DB\0", 20) + QByteArray(4096, '\0'));
    QDir().mkpath(CartellaDiLavoro() + u"nuovi"_s);
    const QString A = CartellaDiLavoro() + u"nuovi/nuovo.mdb"_s;
    QFile::remove(A);
    std::optional<RapportoAccess> Rapporto;
    const bool Riuscita = Riesce([&] { Rapporto = ConvertiAccess(Da, A, {.Secondi = 1}); });
    Pretendi(Riuscita == Rapporto.has_value() && Riuscita == QFileInfo::exists(A));
    Pretendi(QDir(CartellaDiLavoro() + u"nuovi"_s).entryList(QDir::Files | QDir::Hidden).size() ==
             int(Riuscita));
    if (Rapporto) {
        constexpr qsizetype Massimo = 1000;
        for (const TabellaAccess& Una : Rapporto->Tabelle)
            Pretendi(Una.Nome.size() <= Massimo);
        for (const TralasciatoAccess& Uno : Rapporto->Tralasciati)
            Pretendi(Uno.Cosa.size() <= Massimo && Uno.Perche.size() <= Massimo);
    }
    accesso::Programma.clear();
}

}  // namespace

BERSAGLIO(fuzz_risposta, Prova);
