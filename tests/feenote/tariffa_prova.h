// What the tests of notes under D.m. 55/2014 share. Figures are those of the decree's tables as published,
// and the rules of its articles in these tests' own words.
#pragma once

#include "nota_prova.h"

#include "platform/base/regionale.h"

// Offices of the decree's database by their number.
constexpr int IDGiudiceDiPace55 = 101;
constexpr int IDTribunale55 = 102;
constexpr int IDLavoro55 = 103;
constexpr int IDMonitorio55 = 108;
constexpr int IDTar55 = 121;
constexpr int IDConsiglioDiStato55 = 122;
constexpr int IDMonocratico55 = 138;
constexpr int IDCassazionePenale55 = 145;
constexpr int IDStragiudiziale55 = 161;

inline Parcella Nota55(int Categoria, int IDAut, const QString& Valore = {})
{
    Parcella Nota;
    NuovaParcella(Nota, Dm55);
    CambiaCategoria(Nota, Categoria);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDAut));
    if (!Valore.isEmpty())
        ScriviValore(Nota, Valore);
    return Nota;
}

/// The same with the lines that come by themselves.
inline Parcella Nota55ConFasi(int Categoria, int IDAut, const QString& Valore = {})
{
    Parcella Nota = Nota55(Categoria, IDAut, Valore);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    return Nota;
}

/// An amount in cents.
inline qint64 Centesimi(const QVariant& Euro)
{
    return qRound64(NumeroDi(Euro) * 100);
}

inline QList<qint64> Colonna(const Parcella& Nota, int Quale)
{
    QList<qint64> Importi;
    for (int Riga = 0; Riga < Nota.xOnorari.Righe(); ++Riga)
        Importi += Centesimi(Nota.xOnorari(Riga, Quale));
    return Importi;
}

/// A reference database of D.m. 55/2014 of the test's own, in a program folder of its own, which it may
/// spoil.
inline Database Tariffa55Propria(const Studio& Ufficio)
{
    (void)Ufficio.TariffeProprie();
    const QString Propria = Ufficio.File(QStringLiteral("parcelle55.mdb"));
    if (!QFile::exists(Propria)) {
        QFile::copy(ProgrammaDiProva() + QStringLiteral("parcelle55.mdb"), Propria);
        QFile::setPermissions(Propria, QFile::ReadOwner | QFile::WriteOwner);
    }
    return OpenDatabase(Propria);
}
