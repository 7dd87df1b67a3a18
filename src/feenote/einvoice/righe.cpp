#include "feenote/einvoice/righe.h"

#include "feenote/codicifattura.h"
#include "feenote/modAcconti.h"
#include "feenote/modStorno.h"
#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;

namespace {

/// Appends lines of either kind.
class Elenco
{
public:
    explicit Elenco(const TrattamentoFiscale& Fiscale) : Fisco(Fiscale) {}

    void Imponibile(const QString& Descrizione, double Importo)
    {
        Aggiungi({Descrizione, Importo, Fisco.AliquotaIva, Fisco.Ritenuta, Fisco.Natura});
    }
    void Esente(const QString& Descrizione, double Importo)
    {
        Aggiungi({Descrizione, Importo, 0.0, false, codici::NaturaEsenti.toString()});
    }
    void Bollo(const QString& Descrizione)
    {
        Aggiungi({Descrizione, ImportoBollo, 0.0, false, Fisco.NaturaBollo});
    }

    QList<LineaFattura> Linee;

private:
    void Aggiungi(LineaFattura Linea)
    {
        if (Arrotonda2(Linea.Importo) == 0)
            return;
        Linea.Importo = Arrotonda2(Linea.Importo);
        Linee += Linea;
    }

    const TrattamentoFiscale& Fisco;
};

QString Descrizione(const QVariant& Cella, const QVariant& Quantita, const QString& SeVuota)
{
    const QString Testo = CStr(Cella).trimmed();
    const QString Base = Testo.isEmpty() ? SeVuota : Testo;
    return NumeroDi(Quantita) > 1 ? Base + u" (n. "_s + CStr(Quantita).trimmed() + u')' : Base;
}

/// The tables of the note and of the one associated with it, in the order in which they are printed.
QList<const TabellaRighe*> InOrdine(const Parcella& Nota, const TabellaRighe& Propria,
                                    const TabellaRighe& Altra)
{
    if (!Nota.Multipla())
        return {&Propria};
    return Nota.optMultiAntPos == 1 ? QList<const TabellaRighe*>{&Altra, &Propria}
                                    : QList<const TabellaRighe*>{&Propria, &Altra};
}

// ---- the detailed invoice: a line for each row

void RigheOnorari(Elenco& Tutte, const TabellaRighe& Righe)
{
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga)
        Tutte.Imponibile(Descrizione(Righe(Riga, OnoDescr), Righe(Riga, OnoQta), u"Onorari"_s),
                         NumeroDi(Righe(Riga, OnoImporto)));
}

void RigheSpese(Elenco& Tutte, const TabellaRighe& Righe)
{
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga)
        Tutte.Imponibile(Descrizione(Righe(Riga, DirDescr), Righe(Riga, DirQta), u"Spese imponibili"_s),
                         NumeroDi(Righe(Riga, DirImponibile)));
}

void RigheEsenti(Elenco& Tutte, const TabellaRighe& Righe, const AddebitoBollo& Bollo)
{
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga) {
        const QString Testo = Descrizione(Righe(Riga, DirDescr), Righe(Riga, DirQta), u"Spese esenti"_s);
        if (Bollo.Spese == &Righe && Bollo.Riga == Riga)
            Tutte.Bollo(Testo);
        else
            Tutte.Esente(Testo, NumeroDi(Righe(Riga, DirEsente)));
    }
}

QString RigaSpeseGenerali(const Catena& Conti)
{
    return u"Spese generali "_s + Conti.Dati.SpeseGen.Testo + u'%';
}

void RigheAnalitica(Elenco& Tutte, const Parcella& Nota, const Catena& Conti, bool ConBollo)
{
    for (const TabellaRighe* Righe : InOrdine(Nota, Nota.xOnorari, Nota.Multi.xOnorariMulti))
        RigheOnorari(Tutte, *Righe);
    Tutte.Imponibile(RigaSpeseGenerali(Conti), Conti.SpeseGen);
    for (const TabellaRighe* Righe : InOrdine(Nota, Nota.xDiritti, Nota.Multi.xDirittiMulti))
        RigheSpese(Tutte, *Righe);
    for (const TabellaRighe* Righe : InOrdine(Nota, Nota.xDiritti, Nota.Multi.xDirittiMulti))
        RigheEsenti(Tutte, *Righe, ConBollo ? TrovaAddebitoBollo(Nota) : AddebitoBollo());
}

// ---- the short one: a line for each sum

void RigheSintetica(Elenco& Tutte, const Catena& Conti, bool ConBollo)
{
    Tutte.Imponibile(u"Onorari"_s, Conti.Dati.Onorari);
    Tutte.Imponibile(u"Rimborso spese imponibili"_s, Conti.Dati.SpeseImp);
    Tutte.Imponibile(RigaSpeseGenerali(Conti), Conti.SpeseGen);
    Tutte.Esente(u"Rimborso spese esenti"_s, Conti.Dati.SpeseEsenti - (ConBollo ? ImportoBollo : 0.0));
    if (ConBollo)
        Tutte.Bollo(u"Imposta di bollo"_s);
}

// ---- payments on account

void RigheAcconti(Elenco& Tutte, const TabellaRighe& Righe)
{
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga) {
        const QVariant& Valuta = Righe(Riga, AccValuta);
        const QString Suo = CStr(Righe(Riga, AccDescr)).trimmed();
        const QString Testo = Suo.isEmpty() ? u"Acconto"_s : u"Acconto: "_s + Suo;
        Tutte.Imponibile(Testo, -(AccontoInEuro(Righe(Riga, AccCorrispettivi), Valuta) +
                                  AccontoInEuro(Righe(Riga, AccSpeseImp), Valuta)));
        Tutte.Esente(Testo + u" (spese esenti)"_s, -AccontoInEuro(Righe(Riga, AccSpeseEsenti), Valuta));
    }
}

}  // namespace

QString AddebitoBollo::Descrizione() const
{
    return Spese ? CStr((*Spese)(Riga, DirDescr)).trimmed() : QString();
}

AddebitoBollo TrovaAddebitoBollo(const Parcella& Nota)
{
    for (const QString& Parole : {u"imposta di bollo"_s, u"bollo"_s})
        for (const TabellaRighe* Righe : InOrdine(Nota, Nota.xDiritti, Nota.Multi.xDirittiMulti))
            for (int Riga = 0; Riga < Righe->Righe(); ++Riga)
                if (Arrotonda2(NumeroDi((*Righe)(Riga, DirEsente))) == ImportoBollo &&
                    CStr((*Righe)(Riga, DirDescr)).contains(Parole, Qt::CaseInsensitive))
                    return {Righe, Riga};
    return {};
}

bool HaFrazioni(const Parcella& Nota, int Tipo)
{
    constexpr int DecimaliGuardati = 6;
    const auto Spezzato = [](const QList<const TabellaRighe*>& Tabelle, const QList<int>& Colonne,
                             bool InValuta) {
        for (const TabellaRighe* Righe : Tabelle)
            for (int Riga = 0; Riga < Righe->Righe(); ++Riga)
                for (const int Colonna : Colonne) {
                    const double Importo =
                        InValuta ? AccontoInEuro((*Righe)(Riga, Colonna), (*Righe)(Riga, AccValuta))
                                 : NumeroDi((*Righe)(Riga, Colonna));
                    if (Round(Importo, DecimaliGuardati) != Arrotonda2(Importo))
                        return true;
                }
        return false;
    };
    const AccontiDetratti Acconti = AccontiFatturati(Nota, Tipo);
    return Spezzato(InOrdine(Nota, Nota.xOnorari, Nota.Multi.xOnorariMulti), {OnoImporto}, false) ||
           Spezzato(InOrdine(Nota, Nota.xDiritti, Nota.Multi.xDirittiMulti), {DirImponibile, DirEsente},
                    false) ||
           Spezzato({&Acconti.Propri, &Acconti.Altri}, {AccCorrispettivi, AccSpeseImp, AccSpeseEsenti}, true);
}

QList<LineaFattura> LineeFattura(const Parcella& Nota, const Catena& Conti, const TrattamentoFiscale& Fisco,
                                 bool ConBollo)
{
    Elenco Tutte(Fisco);
    if (Conti.Dati.Tipo == StampaFatturaSintetica)
        RigheSintetica(Tutte, Conti, ConBollo);
    else
        RigheAnalitica(Tutte, Nota, Conti, ConBollo);
    const AccontiDetratti Acconti = AccontiFatturati(Nota, Conti.Dati.Tipo);
    RigheAcconti(Tutte, Acconti.Propri);
    RigheAcconti(Tutte, Acconti.Altri);
    return Tutte.Linee;
}
