#include "print/modCorpo.h"

#include "feenote/modAcconti.h"
#include "feenote/modStorno.h"
#include "platform/base/regionale.h"
#include "print/modRiepilogo.h"
#include "print/modTestata.h"

#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView FilettoImporto = u"________";                // over an amount
constexpr QStringView FilettoSomme = u"________________________";  // over the three sums

struct ModelloColonna
{
    QStringView Titolo;
    QStringView Larghezza;
    Allineamento Allinea;
    int FontSize;
    int Campo;
};

constexpr auto Sinistra = Allineamento::Sinistra;
constexpr auto Centro = Allineamento::Centro;
constexpr auto Destra = Allineamento::Destra;

constexpr std::array ColonneOnorari{
    ModelloColonna{u"ONORARI", u"9cm", Sinistra, 10, CampoTesto},
    ModelloColonna{u"", u"1cm", Sinistra, 9, CampoQuantita},
    ModelloColonna{u"Importo", u"1.8cm", Destra, 9, CampoImporto},
};
constexpr std::array ColonnaTripla{
    ModelloColonna{u"(Medio-Minimo-Massimo)", u"5.5cm", Centro, 9, CampoTripla},
};
constexpr std::array ColonneSpese{
    ModelloColonna{u"SPESE", u"9cm", Sinistra, 10, CampoTesto},
    ModelloColonna{u"", u"1cm", Sinistra, 9, CampoQuantita},
    ModelloColonna{u"Imponibile", u"1.8cm", Destra, 9, CampoImporto},
    ModelloColonna{u"Esente", u"1.8cm", Destra, 9, CampoEsente},
};
constexpr std::array ColonneAcconti{
    ModelloColonna{u"ACCONTI", u"10cm", Sinistra, 10, CampoAcconto},
    ModelloColonna{u"Corrispett.", u"1.8cm", Destra, 9, AccCorrispettivi},
    ModelloColonna{u"Spese imp.", u"1.8cm", Destra, 9, AccSpeseImp},
    ModelloColonna{u"Sp.esenti", u"1.8cm", Destra, 9, AccSpeseEsenti},
};

// A field is the number of the line's column, in fees and expenses alike.
static_assert(int{OnoDescr} == CampoTesto && int{OnoQta} == CampoQuantita && int{OnoImporto} == CampoImporto);
static_assert(int{DirDescr} == CampoTesto && int{DirQta} == CampoQuantita &&
              int{DirImponibile} == CampoImporto);
static_assert(int{DirEsente} == CampoEsente && int{AccDescr} == CampoAcconto);

void AddCol(std::vector<DescrColonna>& Colonne, std::span<const ModelloColonna> Modelli)
{
    for (const ModelloColonna& Modello : Modelli)
        Colonne.push_back({Modello.Titolo.toString(), Modello.Larghezza.toString(), Modello.Allinea,
                           u"Times New Roman"_s, Modello.FontSize, false, false, Modello.Campo});
}

// ---- the shape that the three tables have in common

using Colonne = std::vector<DescrColonna>;

int Ultima(const Colonne& Tutte)
{
    return static_cast<int>(Tutte.size());
}

void ApriTabella(Superficie& vp, const Colonne& Tutte)
{
    vp.StartTable();
    vp.TableCell(AttrTabella::Colonne, QVariant(Ultima(Tutte)));
    const int Titoli = AggiungiRigaTab(vp);
    for (int Colonna = 1; Colonna <= Ultima(Tutte); ++Colonna)
        TestoInCella(vp, Titoli, Colonna, Tutte[static_cast<std::size_t>(Colonna) - 1].Titolo);
    AggiungiRigaTab(vp);
}

void ApplicaColonne(Superficie& vp, const Colonne& Tutte)
{
    for (int Colonna = 1; Colonna <= Ultima(Tutte); ++Colonna) {
        const DescrColonna& Sua = Tutte[static_cast<std::size_t>(Colonna) - 1];
        vp.ColonnaTabella(AttrTabella::Allinea, Colonna, static_cast<int>(Sua.Allinea));
        vp.ColonnaTabella(AttrTabella::LarghezzaColonna, Colonna, Sua.Larghezza);
        vp.ColonnaTabella(AttrTabella::FontDimensione, Colonna, Sua.FontSize);
        vp.ColonnaTabella(AttrTabella::FontNome, Colonna, Sua.FontName);
        vp.ColonnaTabella(AttrTabella::Grassetto, Colonna, Sua.Grassetto);
        vp.ColonnaTabella(AttrTabella::Corsivo, Colonna, Sua.Corsivo);
    }
}

// ---- fees and expenses

QString TestoTripla(double Medio, double Minimo, double Massimo)
{
    return u'(' + ImportoStampa(Medio) + u'-' + ImportoStampa(Minimo) + u'-' + ImportoStampa(Massimo) + u')';
}

QString TestoQuantita(const QVariant& Quantita)
{
    return NumeroDi(Quantita) > 0 ? u"n. "_s + CStr(Quantita) : QString();
}

/// What a column shows of a line of fees or expenses.
QString TestoVoce(int Campo, const TabellaRighe& Righe, int Riga)
{
    switch (Campo) {
    case CampoQuantita:
        return TestoQuantita(Righe(Riga, Campo));
    case CampoImporto:
    case CampoEsente:
        return ImportoStampa(NumeroDi(Righe(Riga, Campo)));
    case CampoTripla:
        return TestoTripla(NumeroDi(Righe(Riga, OnoMedio)), NumeroDi(Righe(Riga, OnoMin)),
                           NumeroDi(Righe(Riga, OnoMax)));
    case CampoNullo:
        return {};
    default:
        return CStr(Righe(Riga, Campo));
    }
}

void ScriviVoci(Superficie& vp, const Colonne& Tutte, const TabellaRighe& Righe)
{
    for (int Riga = 0; Riga <= Righe.UpperBound(1); ++Riga) {
        const int RigaTab = AggiungiRigaTab(vp);
        for (int Colonna = 1; Colonna <= Ultima(Tutte); ++Colonna)
            TestoInCella(vp, RigaTab, Colonna,
                         TestoVoce(Tutte[static_cast<std::size_t>(Colonna) - 1].Campo, Righe, Riga));
    }
}

/// A rule and the figure below it, in the last two rows of the table.
void ScriviTotale(Superficie& vp, int RigaFiletto, int Colonna, QStringView Trattini, const QString& Totale)
{
    TestoInCella(vp, RigaFiletto, Colonna, Trattini.toString());
    TestoInCella(vp, RigaFiletto + 1, Colonna, Totale);
}

/// The tables of fees and expenses leave a blank row before what follows.
void ChiudiVoci(Superficie& vp, const Colonne& Tutte)
{
    ApplicaColonne(vp, Tutte);
    AggiungiRigaTab(vp);
    ChiudiTabella(vp);
}

/// A row of its own above the fees that it is about.
void StampaTariffa(Superficie& vp, const Decreto& Legge, const TabellaRighe& Onorari)
{
    const QString Frase = FraseTariffa(Legge, Onorari);
    if (Frase.isEmpty())
        return;
    vp.Text(Frase);
    vp.SpaceAfter(SpazioVoce);
    vp.KeepNext();
    vp.Paragraph({});
}

/// Fees and expenses of the associated note under their title.
void StampaAssociata(Superficie& vp, StatoStampa& Stato, const Parcella& Nota)
{
    TitoloSezione(vp, Stato, Nota.Multi.CategMulti, Nota.Multi.AutorMulti, Nota.Multi.ValoreMulti);
    StampaTariffa(vp, *Nota.Multi.Tariffa, Nota.Multi.xOnorariMulti);
    StampaOnorari(vp, Nota, Nota.Multi.xOnorariMulti, true);
    StampaSpese(vp, Nota, Nota.Multi.xDirittiMulti, true);
}

// ---- payments

bool ImportoAcconto(int Campo)
{
    return Campo == AccCorrispettivi || Campo == AccSpeseImp || Campo == AccSpeseEsenti;
}

void ScriviAcconti(Superficie& vp, const Colonne& Tutte, const TabellaRighe& Righe)
{
    for (int Riga = 0; Riga <= Righe.UpperBound(1); ++Riga) {
        const int RigaTab = AggiungiRigaTab(vp);
        for (int Colonna = 1; Colonna <= Ultima(Tutte); ++Colonna) {
            const int Campo = Tutte[static_cast<std::size_t>(Colonna) - 1].Campo;
            const QVariant& Valore = Righe(Riga, Campo);
            TestoInCella(vp, RigaTab, Colonna,
                         ImportoAcconto(Campo) ? ImportoStampa(AccontoInEuro(Valore, Righe(Riga, AccValuta)))
                                               : CStr(Valore));
        }
    }
}

void StampaAcconti(Superficie& vp, const Parcella& Nota, int Tipo, const SommeAcconti& Totali)
{
    const AccontiDetratti Acconti = AccontiDelDocumento(Nota, Tipo);
    if (!Nota.chkAcconti.Vale() || (Acconti.Propri.Vuota() && Acconti.Altri.Vuota()))
        return;
    const Colonne Tutte = PreparaColonne(Nota, TabellaStampa::Acconti);
    ApriTabella(vp, Tutte);
    ScriviAcconti(vp, Tutte, Acconti.Propri);
    ScriviAcconti(vp, Tutte, Acconti.Altri);

    const int RigaFiletto = AggiungiRigaTab(vp);
    AggiungiRigaTab(vp);
    int Colonna = Ultima(Tutte) - 2;
    for (const double Totale :
         {Totali.AccontiCorrispettivi, Totali.AccontiSpeseImp, Totali.AccontiSpeseEsenti})
        ScriviTotale(vp, RigaFiletto, Colonna++, FilettoImporto, ImportoStampa(Totale));
    ApplicaColonne(vp, Tutte);
    ChiudiTabella(vp);
}

// ---- section titles

bool Comincia(const QString& Categ, QStringView Lettere)
{
    return Categ.startsWith(Lettere, Qt::CaseInsensitive);
}

/// One line of a section title.
void RigaTitolo(Superficie& vp, const QString& Testo)
{
    vp.Text(Testo);
    vp.Paragraph({});
}

}  // namespace

std::vector<DescrColonna> PreparaColonne(const Parcella& Nota, TabellaStampa Quale)
{
    Colonne Tutte;
    switch (Quale) {
    case TabellaStampa::Onorari:
        AddCol(Tutte, ColonneOnorari);
        // The contract disables the switch without clearing it: its table has three columns.
        if (Nota.chkMinMax.Vale())
            AddCol(Tutte, ColonnaTripla);
        break;
    case TabellaStampa::Spese:
        AddCol(Tutte, ColonneSpese);
        break;
    case TabellaStampa::Acconti:
        AddCol(Tutte, ColonneAcconti);
        break;
    }
    return Tutte;
}

int AggiungiRigaTab(Superficie& vp)
{
    const int Riga = vp.TableCell(AttrTabella::Righe).toInt() + 1;
    vp.TableCell(AttrTabella::Righe, QVariant(Riga));
    return Riga;
}

void TitoloSezione(Superficie& vp, StatoStampa& Stato, const QString& Categ, const QString& Autor,
                   const QString& Valore)
{
    ++Stato.ContaSezioni;
    vp.FontSize(12);
    RigaTitolo(vp, QString::number(Stato.ContaSezioni) + u") Prestazioni in materia: "_s + Categ);
    vp.FontSize(10);
    if (!Comincia(Categ, u"stragiud"))
        RigaTitolo(vp, u"Autorità: "_s + Autor);
    if (!Comincia(Categ, u"penale"))
        RigaTitolo(vp, u"Valore: "_s + Valore);
    vp.Paragraph({});
}

QString FraseTariffa(const Decreto& Legge, const TabellaRighe& Onorari)
{
    return Legge.Dichiarato && !Onorari.Vuota()
               ? u"Onorari secondo i parametri del "_s + Legge.NomeIntero.toString()
               : QString();
}

void StampaOnorari(Superficie& vp, const Parcella& Nota, const TabellaRighe& Righe, bool SenzaTotale)
{
    if (Righe.UpperBound(1) < 0)
        return;
    const Colonne Tutte = PreparaColonne(Nota, TabellaStampa::Onorari);
    const bool MinMax = Nota.chkMinMax.Vale();
    ApriTabella(vp, Tutte);
    ScriviVoci(vp, Tutte, Righe);

    const int RigaFiletto = AggiungiRigaTab(vp);
    AggiungiRigaTab(vp);
    if (MinMax)
        ScriviTotale(vp, RigaFiletto, Ultima(Tutte), FilettoSomme,
                     TestoTripla(SommaColonna(Righe, OnoMedio), SommaColonna(Righe, OnoMin),
                                 SommaColonna(Righe, OnoMax)));
    const double Totale = SenzaTotale ? Nota.Multi.TotOnorariMulti : CalcolaSomme(Nota).TotOnorari;
    ScriviTotale(vp, RigaFiletto, Ultima(Tutte) - (MinMax ? 1 : 0), FilettoImporto, ImportoStampa(Totale));
    ChiudiVoci(vp, Tutte);
}

void StampaSpese(Superficie& vp, const Parcella& Nota, const TabellaRighe& Righe, bool SenzaTotale)
{
    if (Righe.UpperBound(1) < 0)
        return;
    const Colonne Tutte = PreparaColonne(Nota, TabellaStampa::Spese);
    ApriTabella(vp, Tutte);
    ScriviVoci(vp, Tutte, Righe);

    const int RigaFiletto = AggiungiRigaTab(vp);
    AggiungiRigaTab(vp);
    const Somme Proprie = CalcolaSomme(Nota);
    const double Imponibili = SenzaTotale ? Nota.Multi.TotSpeseImpMulti : Proprie.TotSpeseImp;
    const double Esenti = SenzaTotale ? Nota.Multi.TotSpeseEsentiMulti : Proprie.TotSpeseEsenti;
    ScriviTotale(vp, RigaFiletto, Ultima(Tutte) - 1, FilettoImporto, ImportoStampa(Imponibili));
    ScriviTotale(vp, RigaFiletto, Ultima(Tutte), FilettoImporto, ImportoStampa(Esenti));
    ChiudiVoci(vp, Tutte);
}

void StampaCorpo(Superficie& vp, StatoStampa& Stato, const Parcella& Nota, int Tipo)
{
    constexpr int Anteponi = 1;
    vp.FontSize(10);
    if (Nota.Multipla() && Nota.optMultiAntPos == Anteponi)
        StampaAssociata(vp, Stato, Nota);
    if (Nota.Multipla() && Nota.chkMultiParam)
        TitoloSezione(vp, Stato, TestoCategoria(Nota), TestoAutorita(Nota), TestoValore(Nota));
    StampaTariffa(vp, *Nota.Tariffa, Nota.xOnorari);
    StampaOnorari(vp, Nota, Nota.xOnorari, false);
    StampaSpese(vp, Nota, Nota.xDiritti, false);
    if (Nota.Multipla() && Nota.optMultiAntPos != Anteponi)
        StampaAssociata(vp, Stato, Nota);

    Stato.Acconti = CalcolaAcconti(Nota, Tipo);
    StampaAcconti(vp, Nota, Tipo, Stato.Acconti);
}

void ChiudiTabella(Superficie& vp)
{
    vp.TableBorder(0);
    vp.EndTable();
}
