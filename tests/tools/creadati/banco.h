// The command creadati on copies of the program's tables, one of them spoilt.
#pragma once

#include "supporto/prova.h"

#include "creadati/creadati.h"

inline QString Dati()
{
    using namespace Qt::StringLiterals;
    return SorgenteDiProva(u"dati/"_s);
}

inline QString CopiaTabelle()
{
    using namespace Qt::StringLiterals;
    const QString Cartella = NuovaCartella();
    for (const QString& Nome : QDir(Dati()).entryList({u"*.csv"_s}))
        QFile::copy(Dati() + Nome, Cartella + Nome);
    return Cartella;
}

inline QByteArray Contenuto(const QString& Percorso)
{
    QFile File(Percorso);
    return File.open(QIODevice::ReadOnly) ? File.readAll() : QByteArray();
}

inline void Scrivi(const QString& Percorso, const QByteArray& Nuovo)
{
    QFile File(Percorso);
    QVERIFY(File.open(QIODevice::WriteOnly));
    QCOMPARE(File.write(Nuovo), Nuovo.size());
}

/// Runs the command and gives what it said.
inline QString Esegui(const QStringList& Argomenti, int& Stato)
{
    QString Detto;
    QTextStream Errori(&Detto);
    Stato = CreaDati(Argomenti, Errori);
    Errori.flush();
    return Detto;
}

/// Row `Numero` of a table has `Prima` replaced by `Dopo`: the command says `Frase` and touches no database.
inline void RifiutaRiga(const QString& Tabella, int Numero, const QString& Prima, const QString& Dopo,
                        const QString& Frase)
{
    using namespace Qt::StringLiterals;
    const QString Cartella = CopiaTabelle();
    QStringList Righe = QString::fromUtf8(Contenuto(Cartella + Tabella)).split(u'\n');
    QCOMPARE(Righe[Numero - 1].count(Prima), 1);
    Righe[Numero - 1].replace(Prima, Dopo);
    Scrivi(Cartella + Tabella, Righe.join(u'\n').toUtf8());
    const QString Altra = NuovaCartella();
    Scrivi(Altra + u"parcelle.mdb"_s, "di prima");

    int Stato = -1;
    const QString Detto = Esegui({Cartella, Altra}, Stato);
    QCOMPARE(Detto, Frase);
    QCOMPARE(Stato, 1);
    QCOMPARE(Contenuto(Altra + u"parcelle.mdb"_s), QByteArray("di prima"));
    QCOMPARE(QDir(Altra).entryList(QDir::Files | QDir::Hidden), QStringList{u"parcelle.mdb"_s});
}
