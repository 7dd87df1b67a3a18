#include "calculators/modInteressi.h"

#include "calculators/modTassi.h"
#include "core/modTesti.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/database/database.h"
#include "platform/system/messaggi.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int GiorniAnno = 365;
constexpr int DecimaliTasso = 3;
constexpr QStringView TitoloAvvertimento = u"Avvertimento:";

const QDate PrimoGiornoLegali(1957, 1, 1);
const QDate PrimoGiornoMora(2002, 8, 9);  // art. 11 D.lgs. 231/2002: contracts from 8 August 2002 on
const QDate PrimoGiornoDopo2012(2013, 1, 1);

constexpr QStringView NonAggiornati = u"Attenzione: i tassi di interessi non sono aggiornati.";

/// The sum of a rate as the formula takes it. @throws Errore 6 beyond single precision
float InSingolo(double Tasso)
{
    if (!(std::abs(Tasso) <= double(std::numeric_limits<float>::max())))
        throw Errore(errori::Eccedenza);
    return float(Tasso);
}

/// The calculation between its first day and its last line.
class Calcolo
{
public:
    Calcolo(const DatiInteressi& Caselle, QString& Avvertito) : Dati(Caselle), UltimoAumento(Avvertito) {}

    EsitoInteressi Esegui(const QString& Archivio);

private:
    bool Cerca(const QString& Archivio);
    void LeggiRiga();
    bool Giorni(const QDate& Fine);
    bool AddInter(bool UltimoPeriodo);
    void ScriviRiga();
    bool ProssimoTasso();
    void AvvertiAumento();

    const DatiInteressi& Dati;
    QString& UltimoAumento;
    EsitoInteressi Esito;

    Recordset rsTassi;
    float TassoCorrente = 0.0F;
    std::optional<QDate> FinePeriodo;  ///< none: no day ever exceeds it
    bool UltimoTasso = false;          ///< the table has run out, the last rate is kept
    QDate GiornoCorrente;
    QDate InizioPeriodo;
    int GiorniPeriodo = 0;
};

/// True when a row holds for the start date or one holds before it; the table is left on it.
bool Calcolo::Cerca(const QString& Archivio)
{
    const QString Tabella = Dati.Tipo == InteressiLegali ? u"InteressiLegali"_s : u"InteressiMora"_s;
    rsTassi = ApriArchivio(Archivio, true).OpenRecordset(Tabella);
    rsTassi.ImpostaIndex(u"Dal"_s);
    rsTassi.Seek(u"<="_s, CDate(Dati.DataIni));
    return !rsTassi.Eof();
}

void Calcolo::LeggiRiga()
{
    const QVariant Al = rsTassi.Value(u"Al"_s);
    TassoCorrente = rsTassi.Value(u"Tasso"_s).toFloat();
    FinePeriodo = Al.isValid() ? std::optional(Al.toDate()) : std::nullopt;
}

/// One day at a time up to `Fine`, both included. @return false when the calculation stops
bool Calcolo::Giorni(const QDate& Fine)
{
    for (; GiornoCorrente <= Fine; GiornoCorrente = GiornoCorrente.addDays(1)) {
        if (FinePeriodo && GiornoCorrente > *FinePeriodo && !AddInter(UltimoTasso))
            return false;
        // No rate of the law is zero: it is a row that nobody filled in.
        if (TassoCorrente == 0.0F)
            return false;
        ++GiorniPeriodo;
    }
    return true;
}

/// Closes the open period into a line; unless it is the last one, goes on to the next rate.
bool Calcolo::AddInter(bool UltimoPeriodo)
{
    AvvertiAumento();
    ScriviRiga();
    return UltimoPeriodo || ProssimoTasso();
}

void Calcolo::AvvertiAumento()
{
    if (Dati.Aumento.isEmpty() || Dati.Aumento == UltimoAumento)
        return;
    MsgBox(u"I tassi di interessi saranno aumentati del "_s + Dati.Aumento + u'%', vbExclamation,
           TitoloAvvertimento.toString());
    UltimoAumento = Dati.Aumento;
}

void Calcolo::ScriviRiga()
{
    const double Piu = Dati.Tipo == InteressiMora && Dati.Dopo2012 ? 1.0 : 0.0;
    const double Aumento = Dati.Aumento.isEmpty() ? 0.0 : Round(CDbl(Dati.Aumento), 2);
    const double Capitale = Dati.Valuta == ValutaEuro ? CDbl(Dati.Capitale) : LireEuro(CDbl(Dati.Capitale));
    // The rate of the table is single, the sum double; what the formula gets is single again.
    const double Tasso = double(TassoCorrente) + Aumento + Piu;
    const double Importo = Interessi(GiorniPeriodo, InSingolo(Tasso), Capitale);

    const int Riga = Esito.Righe.AggiungiRiga();
    Esito.Righe(Riga, IntDal) = InizioPeriodo;
    Esito.Righe(Riga, IntAl) = GiornoCorrente.addDays(-1);
    Esito.Righe(Riga, IntTasso) = Round(Tasso, DecimaliTasso);
    Esito.Righe(Riga, IntGiorni) = GiorniPeriodo;
    Esito.Righe(Riga, IntImporto) = Importo;
    Esito.TotaleInteressi += Importo;
    GiorniPeriodo = 0;
    InizioPeriodo = GiornoCorrente;
}

bool Calcolo::ProssimoTasso()
{
    rsTassi.MoveNext();
    if (!rsTassi.Eof()) {
        LeggiRiga();
        return true;
    }
    if (ChiediAggiornamento(NonAggiornati.toString())) {
        Esito.Fine = FineInteressi::Aggiorna;
        return false;
    }
    MsgBox(u"Il calcolo verrà effettuato con l'ultimo indice disponibile."_s, vbExclamation,
           TitoloAvvertimento.toString());
    UltimoTasso = true;
    FinePeriodo.reset();
    return true;
}

EsitoInteressi Calcolo::Esegui(const QString& Archivio)
{
    if (!Cerca(Archivio)) {
        const bool Aggiorna = ChiediAggiornamento(NonAggiornati.toString());
        Esito.Fine = Aggiorna ? FineInteressi::AggiornaEChiudi : FineInteressi::Chiudi;
        return Esito;
    }
    LeggiRiga();
    InizioPeriodo = GiornoCorrente = CDate(Dati.DataIni);
    if (!Giorni(CDate(Dati.DataFin)))
        return Esito;
    if (GiorniPeriodo > 0)
        (void)AddInter(true);
    Esito.Fine = FineInteressi::Completa;
    return Esito;
}

}  // namespace

std::optional<Mancanza<CampoInteressi>> CheckInteressi(const DatiInteressi& Dati)
{
    const auto DataIni = LeggiData(Dati.DataIni);
    const bool Mora = Dati.Tipo == InteressiMora;
    std::optional<Mancanza<CampoInteressi>> Trovata;
    // Each test overwrites what the one before has found: the last to fail is shown.
    if (Dati.Capitale.isEmpty())
        Trovata = Mancanza{u"Non è stato specificato l'importo del capitale"_s, CampoInteressi::Capitale};
    if (Mora && DataIni && *DataIni < PrimoGiornoMora)
        Trovata = Mancanza{u"Per il tasso di mora, non sono ammesse date antecedenti al 9 agosto 2002"_s,
                           CampoInteressi::DataIni};
    if (!Mora && DataIni && *DataIni < PrimoGiornoLegali)
        Trovata = Mancanza{u"Per il tasso legale, non sono ammesse date antecedenti al 1° gennaio 1957"_s,
                           CampoInteressi::DataIni};
    if (!DataIni)
        Trovata = Mancanza{u"La data iniziale non è valida"_s, CampoInteressi::DataIni};
    if (!LeggiData(Dati.DataFin))
        Trovata = Mancanza{u"La data finale non è valida"_s, CampoInteressi::DataFin};
    if (Mora && Dati.Dopo2012 && DataIni && *DataIni < PrimoGiornoDopo2012)
        Trovata = Mancanza{u"La data iniziale non può essere antecedente al 01/01/2013!"_s,
                           CampoInteressi::DataIni};
    return Trovata;
}

double Interessi(int Giorni, float Tasso, double Capitale)
{
    const double Importo = Capitale / GiorniAnno * double(Tasso) * Giorni / 100;
    if (!std::isfinite(Importo))
        throw Errore(errori::Eccedenza);
    return Round(Importo, 2);
}

EsitoInteressi CalcolaInteressi(const QString& Archivio, const DatiInteressi& Dati, QString& UltimoAumento)
{
    return Calcolo(Dati, UltimoAumento).Esegui(Archivio);
}

int DecimaliTassi(const TabellaRighe& Righe)
{
    int Decimali = 0;
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga) {
        const QString Cifre = QString::number(Righe(Riga, IntTasso).toDouble(), 'f', DecimaliTasso);
        int Servono = DecimaliTasso;
        while (Servono > 0 && Cifre[Cifre.size() - 1 - (DecimaliTasso - Servono)] == u'0')
            --Servono;
        Decimali = std::max(Decimali, Servono);
    }
    return Decimali;
}

QString CellaInteressi(int Colonna, const QVariant& Valore, int Decimali)
{
    if (Colonna == IntImporto && Valore.isValid())
        return Format(Valore.toDouble(), ModelloImporto);
    if (Colonna == IntTasso && Valore.isValid() && Decimali > 0)
        return Format(Valore.toDouble(), u"0."_s + QString(Decimali, u'0'));
    return CStr(Valore);
}

QStringList CelleInteressi(const TabellaRighe& Righe, int Riga, int Decimali)
{
    QStringList Celle;
    for (int Colonna = 0; Colonna < ColonneInteressi; ++Colonna)
        Celle << CellaInteressi(Colonna, Righe(Riga, Colonna), Decimali);
    return Celle;
}
