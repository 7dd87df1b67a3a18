// What the tests of fee notes share: an office with its archive, and notes filled as a user fills them.
#pragma once

#include "core/sessione.h"
#include "feenote/modInterruttori.h"
#include "feenote/modNuovaParcella.h"
#include "feenote/modOnorari.h"
#include "feenote/modParametri.h"
#include "feenote/modQuantita.h"
#include "feenote/modTotali.h"
#include "feenote/parcella.h"
#include "platform/base/numerierrore.h"
#include "platform/database/database.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include <QFile>

/// An office: the session of its own and an archive of clients, both gone with the object.
class Studio
{
public:
    Studio() : Radice(NuovaCartella())
    {
        AzzeraSessione();
        sessione::PercorsoProg = ProgrammaDiProva();
        sessione::ParcellePath = Radice;
        sessione::ArchivioCliCon = Radice + QStringLiteral("DatiStudio.mdb");
        QFile::copy(ProgrammaDiProva() + QStringLiteral("DatiStudio.mdb"), sessione::ArchivioCliCon);
    }
    ~Studio() { AzzeraSessione(); }
    Studio(const Studio&) = delete;
    Studio& operator=(const Studio&) = delete;

    [[nodiscard]] const QString& Cartella() const { return Radice; }
    [[nodiscard]] QString File(const QString& Nome) const { return Radice + Nome; }

    /// Keys of what is added.
    int AggiungiCliente(const QString& Nominativo) const
    {
        return Aggiungi(QStringLiteral("clienti"), {{QStringLiteral("Nominativo"), Nominativo}});
    }
    int AggiungiCliente(const QList<std::pair<QString, QVariant>>& Valori) const
    {
        return Aggiungi(QStringLiteral("clienti"), Valori);
    }
    int AggiungiControparte(const QString& Nominativo, const QVariant& Controp = {}) const
    {
        return Aggiungi(QStringLiteral("controparti"),
                        {{QStringLiteral("Nominativo"), Nominativo}, {QStringLiteral("Controp"), Controp}});
    }

    /// A reference database of this test's own, which it may spoil.
    [[nodiscard]] Database TariffeProprie() const
    {
        const QString Propria = Radice + QStringLiteral("parcelle.mdb");
        if (!QFile::exists(Propria)) {
            QFile::copy(ProgrammaDiProva() + QStringLiteral("parcelle.mdb"), Propria);
            QFile::setPermissions(Propria, QFile::ReadOwner | QFile::WriteOwner);
        }
        sessione::PercorsoProg = Radice;
        return OpenDatabase(Propria);
    }

private:
    static int Aggiungi(const QString& Tabella, const QList<std::pair<QString, QVariant>>& Valori)
    {
        Recordset Righe = OpenDatabase(sessione::ArchivioCliCon).OpenRecordset(Tabella);
        Righe.AddNew();
        for (const auto& [Colonna, Valore] : Valori)
            Righe.ImpostaValue(Colonna, Valore);
        Righe.Update();
        Righe.MoveLast();
        return Righe.Value(QStringLiteral("ID")).toInt();
    }

    QString Radice;
};

// Authorities of the decree's tables by their key.
constexpr int IDGiudiceDiPace = 1;
constexpr int IDTribunale = 2;
constexpr int IDCorteAppello = 4;
constexpr int IDTribunaleIngiunzione = 14;
constexpr int IDMonocratico = 23;
constexpr int IDStragiudiziale = 41;

enum IndiceCategoria { CategCivile = 0, CategPenale = 1, CategStragiudiziale = 2 };

inline int IndiceAutorita(const Parcella& Nota, int IDAut)
{
    for (int i = 0; i < Nota.ListaAutorita.size(); ++i)
        if (Nota.ListaAutorita[i].IDAut == IDAut)
            return i;
    return NessunaVoce;
}

inline Parcella NotaNuova(int Categoria, int IDAut)
{
    Parcella Nota;
    NuovaParcella(Nota);
    CambiaCategoria(Nota, Categoria);
    CambiaAutorita(Nota, IndiceAutorita(Nota, IDAut));
    return Nota;
}

inline void ScriviValore(Parcella& Nota, const QString& Testo)
{
    Nota.txtImporto.Testo = Testo;
    LasciaImporto(Nota);
}

/// Ordinary court, 30.000 euro: third bracket. No lines yet.
inline Parcella NotaCivile(int IDAut = IDTribunale)
{
    Parcella Nota = NotaNuova(CategCivile, IDAut);
    ScriviValore(Nota, QStringLiteral("30000"));
    return Nota;
}

/// Single judge of the criminal court. No lines yet.
inline Parcella NotaPenale()
{
    return NotaNuova(CategPenale, IDMonocratico);
}

/// Out-of-court work on 30.000 euro: third bracket. No lines yet.
inline Parcella NotaStragiudiziale()
{
    Parcella Nota = NotaNuova(CategStragiudiziale, IDStragiudiziale);
    ScriviValore(Nota, QStringLiteral("30000"));
    return Nota;
}

/// A line made by hand, without a catalogue.
inline int RigaOnorario(Parcella& Nota, const QString& Descr, double Importo, int NVoce = 1, int Codice = 1)
{
    DatiOnorario Dati;
    Dati.NVoce = NVoce;
    Dati.Descr = Descr;
    Dati.Importo = Dati.Medio = Dati.Min = Dati.Max = Importo;
    Dati.CodVoce = Codice;
    return AddModOnor(Nota, Dati, RigaNuova);
}

inline int RigaSpesa(Parcella& Nota, const QVariant& Imponibile, const QVariant& Esente)
{
    const int Riga = Nota.xDiritti.AggiungiRiga();
    Nota.xDiritti(Riga, DirImponibile) = Imponibile;
    Nota.xDiritti(Riga, DirEsente) = Esente;
    return Riga;
}

inline int RigaAcconto(Parcella& Nota, const QString& Valuta, const QVariant& Corr, const QVariant& SpImp,
                       const QVariant& SpEse)
{
    const int Riga = Nota.xAcconti.AggiungiRiga();
    Nota.xAcconti(Riga, AccValuta) = Valuta;
    Nota.xAcconti(Riga, AccCorrispettivi) = Corr;
    Nota.xAcconti(Riga, AccSpeseImp) = SpImp;
    Nota.xAcconti(Riga, AccSpeseEsenti) = SpEse;
    return Riga;
}

/// Moves a catalogue to an item by its key.
inline bool VaiAVoce(Catalogo& Voci, int Chiave)
{
    Voci.datOno.FindFirst(Voci.ChiaveOno + QStringLiteral("=%1").arg(Chiave));
    return !Voci.datOno.NoMatch();
}

/// The numbers of a row in the order of the columns given.
inline QList<double> Numeri(const TabellaRighe& Tabella, int Riga, const QList<int>& Colonne)
{
    QList<double> Valori;
    for (const int Colonna : Colonne)
        Valori.append(Tabella(Riga, Colonna).toDouble());
    return Valori;
}

/// "Importo", "Medio", "Min.", "Max" of a line.
inline QList<double> Importi(const Parcella& Nota, int Riga)
{
    return Numeri(Nota.xOnorari, Riga, {OnoImporto, OnoMedio, OnoMin, OnoMax});
}

/// The base amounts of a line: medium, minimum, maximum before the variation.
inline QList<double> Base(const Parcella& Nota, int Riga)
{
    return Numeri(Nota.xOnorari, Riga, {OnoBaseMedio, OnoBaseMin, OnoBaseMax});
}

/// What is asked where fees would be worked out by other parameters.
inline const QString DomandaRicalcolo = QStringLiteral(
    "Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo con i nuovi parametri.\n"
    "Confermi la modifica?");

/// What the error report shows.
inline QString TestoErrore(int Numero)
{
    return QStringLiteral("Errore: %1 (%2)").arg(DescrizioneErrore(Numero)).arg(Numero);
}
