// Fee-note files in tests: a note that fills every field, and looks into the file behind the reader's back.
#pragma once

#include "feenote/nota_prova.h"

#include "feenote/file/colonne.h"
#include "feenote/file/memorianota.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPassword.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/modSpese.h"

/// Every field of a note with a value of its own.
inline Parcella NotaPiena()
{
    Parcella Nota = NotaCivile();
    Nota.IDCli = 0;
    Nota.txtCliente.Testo = QStringLiteral("Rossi Mario");
    Nota.txtControp.Testo = QStringLiteral("Bianchi Srl");
    Nota.txtOggetto.Testo = QStringLiteral("Sfratto & c.d. \"morosità\"");
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    Nota.xOnorari(0, OnoData) = QStringLiteral("05/03/2024");
    Voci.datDir.MoveFirst();
    InserisciSpesa(Nota, Voci);
    Nota.xDiritti(0, DirImponibile) = 10.5;
    Nota.xDiritti(0, DirEsente) = 27.0;
    Nota.xDiritti(0, DirData) = QStringLiteral("06/03/2024");
    RigaAcconto(Nota, QStringLiteral("L"), 1936270.0, 12.345, 0.0);
    Nota.xAcconti(0, AccDescr) = QStringLiteral("Fondo spese");
    Nota.txtDatiPar[DatoTestoSuperiore] = QStringLiteral("sopra");
    Nota.txtDatiPar[DatoTestoInferiore] = QStringLiteral("sotto");
    Nota.txtDatiPar[DatoNumFatt] = QStringLiteral("12/A");
    Nota.txtDatiPar[DatoDataFatt] = QStringLiteral("29/02/2024");
    Nota.txtDatiPar[DatoDepAutorita] = QStringLiteral("Tribunale di Lucca");
    Nota.txtDatiPar[DatoDepSezione] = QStringLiteral("II");
    Nota.txtDatiPar[DatoDepRuolo] = QStringLiteral("77/2024");
    Nota.txtDatiPar[DatoDepGiudice] = QStringLiteral("dott. Neri");
    (void)ClicImposta(Nota, Imposta::RA, true);
    (void)ClicImposta(Nota, Imposta::SpeseGen, true);
    CambiaMinMax(Nota, true);
    ScegliTipoStampa(Nota, StampaFatturaAnalitica);
    return Nota;
}

/// Saves and loads again.
inline Parcella Riletta(const Studio& Ufficio, const Parcella& Nota)
{
    const QString File = Ufficio.File(QStringLiteral("nota.mdb"));
    ScriviNota(File, Nota);
    Parcella Letta;
    CaricaDati(Letta, File);
    return Letta;
}

/// The value of a column of the one row of parameters.
inline QVariant Parametro(const QString& File, const QString& Colonna)
{
    return OpenDatabase(File, true).OpenRecordset(QStringLiteral("ParcellaParam")).Value(Colonna);
}

/// Some columns of the lines, row by row.
inline QList<QVariantList> Celle(const QString& File, const QString& Tabella, const QStringList& Colonne)
{
    QList<QVariantList> Righe;
    Recordset Letta = OpenDatabase(File, true).OpenRecordset(Tabella);
    for (; !Letta.Eof(); Letta.MoveNext()) {
        QVariantList Riga;
        for (const QString& Colonna : Colonne)
            Riga.append(Letta.Value(Colonna));
        Righe.append(Riga);
    }
    return Righe;
}

inline int NumeroRighe(const QString& File, const QString& Tabella)
{
    return OpenDatabase(File, true).OpenRecordset(Tabella).RecordCount();
}

inline void EseguiSu(const QString& File, const QString& Sql, const QVariantList& Valori = {})
{
    OpenDatabase(File).Execute(Sql, Valori);
}

inline MemoriaFile MemoriaDi(const QString& File)
{
    return LeggiMemoria(OpenDatabase(File, true));
}
