#include "feenote/modParametri.h"

#include "core/modErrori.h"
#include "core/rapportiunici.h"
#include "feenote/domandeparametri.h"
#include "feenote/modNuovaParcella.h"
#include "feenote/modVariazione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/messaggi.h"

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int IndicePenale = 1;  ///< entry of cmbCateg

constexpr std::array<QStringView, 8> FrasiDeiParametri{
    u"Non è stata specificata la categoria della pratica!",
    u"Non è stato specificato il campo Autorità",
    u"Non è stato specificato lo scaglione di valore della causa!",
    u"Occorre specificare il valore esatto della causa!",
    u"Il valore inserito è superiore a quello massimo dello scaglione!",
    u"Il valore della causa specificato non è compreso nello scaglione!",
    u"La variazione deve essere compreso tra %1 e %2!",
    u"Il valore della causa supera € %1, limite degli scaglioni della tariffa %2!\nPer un valore maggiore si "
    u"sceglie l'ultimo scaglione senza indicare il valore, e si correggono gli importi.",
};
static_assert(size_t(FraseParametri::OltreLaTariffa) == FrasiDeiParametri.size() - 1);

QString CodiceCategoria(int Indice)
{
    return VociCategoria().value(Indice).left(3).toUpper();
}

/// Which boxes a category uses: criminal matters have no value, out-of-court ones find their bracket by it.
void StatiPerCategoria(Parcella& Nota)
{
    Nota.cmbValoreAbilitata = Nota.CodCateg == Civile;
    Nota.txtImporto.Abilitata = Nota.CodCateg != Penale;
}

/// What the office or the category that has just been chosen does not know, as sentences.
QStringList VariazioneCheSiPerde(const Parcella& Nota, const QString& Dove)
{
    return VariazioneAltrui(Nota) ? QStringList{FraseVariazioneTolta(Nota, Dove)} : QStringList{};
}

bool Fuori(const ScaglioneValore& Sca, double Valore)
{
    return Valore < Sca.DaVal || Valore > Sca.AVal;
}

/// Index of the first bracket that holds the value, -1 for none.
int ScaglionePer(const Parcella& Nota, double Valore)
{
    for (int i = 0; i < Nota.ListaScaglioni.size(); ++i)
        if (!Fuori(Nota.ListaScaglioni[i], Valore))
            return i;
    return NessunaVoce;
}

/// The value in the box as the rules take it: rounded to 2 decimals, 0 unless above 0.
double ValoreCasella(const Parcella& Nota)
{
    const double Valore = Nota.txtImporto.Numero();
    return Valore > 0 ? Round(Valore, 2) : 0.0;
}

/// True when the value belongs to another bracket than the selected one.
bool CercaScaglione(const Parcella& Nota, double Valore)
{
    const ScaglioneValore* Scelto = Nota.ScaglioneSelezionato();
    return Valore > 0 && (!Scelto || Fuori(*Scelto, Valore) || Indeterminato(*Scelto));
}

/// A note whose office and bracket stand in its file alone, because its reference database could not be read:
/// there is nothing to choose from, and its amounts are looked at and printed all the same. A new note has no
/// such file.
bool SenzaElenchi(const Parcella& Nota)
{
    return (Nota.AutoritaTenuta.Nominata() || Nota.ScaglioneTenuto.Nominata()) &&
           Nota.ListaAutorita.isEmpty() && Nota.ListaScaglioni.isEmpty();
}

/// What is said of a value that lies beyond the last bracket of a decree whose brackets end.
QString OltreGliScaglioni(const Parcella& Nota)
{
    if (!Nota.Tariffa->ScaglioniFiniti || Nota.CodCateg == Penale || Nota.ListaScaglioni.isEmpty())
        return {};
    const double Ultimo = std::ranges::max(Nota.ListaScaglioni, std::less{}, &ScaglioneValore::AVal).AVal;
    if (Nota.txtImporto.Numero() <= Ultimo)
        return {};
    return TestoFrase(FraseParametri::OltreLaTariffa).arg(Format(Ultimo, ModelloImporto), Nota.Tariffa->Nome);
}

/// A value that is not defined shows an empty box.
void ScriviImporto(Parcella& Nota, double Valore)
{
    Nota.txtImporto.Testo = Valore > 0 ? Format(Valore, ModelloImporto) : QString();
}

}  // namespace

void LasciaTenute(Parcella& Nota)
{
    Nota.AutoritaTenuta = {};
    Nota.ScaglioneTenuto = {};
    Nota.VariazioneTenuta = AumRidLibera;
    Nota.OpzioneSalvata.reset();
    Nota.PartiSalvate.reset();
}

QString TestoFrase(FraseParametri Quale)
{
    return FrasiDeiParametri[size_t(Quale)].toString();
}

bool Indeterminato(const ScaglioneValore& Sca)
{
    return Sca.DesVal.left(20) == u"Valore Indeterminato";
}

void LoadAutorità(Parcella& Nota, const QString& Cat)
{
    Nota.cmbAutor = NessunaVoce;
    Nota.IdxAutorPrec = NessunaVoce;  // an index into the former list may not point into the new one
    const Letti<Autorita> Elenco = LeggiAutorita(*Nota.Tariffa, Cat);
    Nota.ListaAutorita = Elenco.Voci;
    if (Elenco.Guasto)
        GestioneErrori(*Elenco.Guasto);
    Nota.cmbAutorAbilitata = !Nota.ListaAutorita.isEmpty();
}

void LoadScaglioni(Parcella& Nota, const QString& Cat)
{
    if (Nota.CodCateg.isEmpty())
        return;
    Nota.cmbValore = NessunaVoce;
    const Letti<ScaglioneValore> Elenco = LeggiScaglioni(*Nota.Tariffa, Cat);
    Nota.ListaScaglioni = Elenco.Voci;
    Nota.ValoreMinRich = 0.0;
    for (const ScaglioneValore& Sca : Nota.ListaScaglioni) {
        if (Sca.RicValore && Nota.ValoreMinRich == 0.0)
            Nota.ValoreMinRich = Sca.DaVal;
    }
    if (Elenco.Guasto)
        GestioneErrori(*Elenco.Guasto);
    Nota.IdxValorePrec = NessunaVoce;
}

bool SelSca(Parcella& Nota, double Valore)
{
    const int Indice = ScaglionePer(Nota, Valore);
    return Indice == NessunaVoce || CambiaScaglione(Nota, Indice);
}

void CambiaCategoria(Parcella& Nota, int Indice)
{
    if (Indice != Nota.cmbCateg)
        SetModificata(Nota, true);
    Nota.cmbCateg = Indice;
    const QString Codice = CodiceCategoria(Indice);
    if (Codice.isEmpty() || Codice == Nota.CodCateg)
        return;

    const RapportiUnici UnaVolta;
    SegnaRicalcolo(Nota);
    Nota.CodCateg = Codice;
    Nota.Scaglione = 0;  // a column of the former category's tables
    LasciaTenute(Nota);
    LoadAutorità(Nota, Codice);
    StatiPerCategoria(Nota);
    if (Codice == Stragiudiziale)
        Nota.Fuoco = CampoNota::Valore;
    LoadScaglioni(Nota, Codice);
    const QString Tolta = FraseVariazioneTolta(Nota, u"per la categoria selezionata"_s);
    LoadVariazioni(Nota);
    if (VariazioneAltrui(Nota))
        AvvisaPerdite({Tolta});
    LasciaVariazioneAltrui(Nota);
}

bool CheckAutorCompatib(const Parcella& Nota)
{
    if (!HaRighe(Nota))
        return true;
    bool Compatibile = false;
    Protetta([&] {
        const int Precedente = Nota.ListaAutorita.value(Nota.IdxAutorPrec).IDAut;
        const std::optional<QString> Elenco = LeggiCompatib(*Nota.Tariffa, Precedente, Nota.CodCateg);
        const QString Cercato = u","_s + QString::number(Nota.IDAutSelezionata()) + u","_s;
        Compatibile = !Elenco || *Elenco == u"*" || Elenco->contains(Cercato);
    });
    return Compatibile;
}

void CambiaAutorita(Parcella& Nota, int Indice)
{
    if (Indice == Nota.cmbAutor || Indice < 0 || Indice >= Nota.ListaAutorita.size())
        return;
    const int Precedente = Nota.IdxAutorPrec;
    Nota.cmbAutor = Indice;
    SetModificata(Nota, true);
    const QStringList Perdite = VariazioneCheSiPerde(Nota, u"per l'autorità selezionata"_s);
    bool Detto = false;

    if (Precedente >= 0 && Precedente != Indice &&
        Nota.ListaAutorita[Precedente].IDAut != Nota.ListaAutorita[Indice].IDAut) {
        if (!CheckAutorCompatib(Nota)) {
            MsgErrore(u"L'autorità selezionata non è compatibile con la precedente!"_s);
            Nota.cmbAutor = Precedente;
            return;
        }
        if (!Nota.xOnorari.Vuota() && !ConfermaRicalcolo(Perdite)) {
            Nota.cmbAutor = Precedente;
            return;
        }
        Detto = !Nota.xOnorari.Vuota();
        SegnaRicalcolo(Nota);
    }
    if (!Detto)
        AvvisaPerdite(Perdite);
    SelezionaAutoritaInSilenzio(Nota, Indice);
    LasciaVariazioneAltrui(Nota);
}

bool CambiaScaglione(Parcella& Nota, int Indice)
{
    if (Indice < 0 || Indice >= Nota.ListaScaglioni.size())
        return true;
    double Nuovo = ValoreCasella(Nota);
    Nota.cmbValore = Indice;
    if (Indice == Nota.IdxValorePrec)
        return true;
    if (HaRighe(Nota) && !ConfermaRicalcolo()) {
        Nota.txtImporto.Testo = Format(Nota.ImportoPrec, ModelloImporto);  // "0,00" where there is none, too
        Nota.cmbValore = Nota.IdxValorePrec;
        return false;
    }

    const ScaglioneValore& Sca = Nota.ListaScaglioni[Indice];
    if (Nuovo > 0 && Fuori(Sca, Nuovo)) {
        Nota.txtImporto.Testo.clear();
        Nota.Fuoco = CampoNota::Valore;
    }
    if (Indeterminato(Sca) && Nuovo > 0) {
        Nuovo = 0.0;
        Nota.txtImporto.Testo.clear();
    }
    // A value rejected by the bracket stays the stored one while the box shows empty: CheckOK goes by the
    // box.
    Nota.ImportoPrec = Nuovo;
    Nota.Scaglione = Sca.NumSca;
    Nota.ScaglioneTenuto = {};
    SegnaRicalcolo(Nota);
    Nota.IdxValorePrec = Indice;
    SetModificata(Nota, true);
    return true;
}

bool ImportoInSospeso(const Parcella& Nota)
{
    const double Imp = ValoreCasella(Nota);
    // A value that lies in no bracket at all is told by CheckOK; looking for its bracket again helps nobody.
    return Imp != Nota.ImportoPrec || (CercaScaglione(Nota, Imp) && ScaglionePer(Nota, Imp) != NessunaVoce);
}

int ScaglioneProposto(const Parcella& Nota)
{
    const double Imp = ValoreCasella(Nota);
    return Nota.txtImporto.Abilitata && CercaScaglione(Nota, Imp) ? ScaglionePer(Nota, Imp) : NessunaVoce;
}

void LasciaImporto(Parcella& Nota)
{
    const double ImpPrima = Nota.ImportoPrec;
    const bool RicalcoloPrima = Nota.RicalcoloNecessario;
    const bool DaRicalcolarePrima = Nota.RigheDaRicalcolare;
    const double Imp = ValoreCasella(Nota);
    if (Imp > 0)
        ScriviImporto(Nota, Imp);
    if ((Nota.ImportoPrec > 0 || Imp > 0) && Nota.ImportoPrec != Imp) {
        SegnaRicalcolo(Nota);
        Nota.ImportoPrec = Imp;
    }
    if (CercaScaglione(Nota, Imp) && !SelSca(Nota, Imp)) {
        // The bracket was refused, and the value with it: everything as before it was typed.
        Nota.ImportoPrec = ImpPrima;
        Nota.RicalcoloNecessario = RicalcoloPrima;
        Nota.RigheDaRicalcolare = DaRicalcolarePrima;
        ScriviImporto(Nota, ImpPrima);
        return;
    }
    if (Nota.ImportoPrec != ImpPrima)
        Nota.ScaglioneTenuto = {};  // it was that of the former value
    SetModificata(Nota, true);
}

std::optional<Mancanza<CampoNota>> PrimaMancanza(const Parcella& Nota)
{
    const auto Manca = [](FraseParametri Quale, CampoNota Dove) { return Mancanza{TestoFrase(Quale), Dove}; };
    if (Nota.cmbCateg < 0)
        return Manca(FraseParametri::Categoria, CampoNota::Categoria);
    if (SenzaElenchi(Nota))
        return std::nullopt;
    if (Nota.cmbAutor < 0 && Nota.CodCateg != Stragiudiziale)
        return Manca(FraseParametri::Autorita, CampoNota::Autorita);

    const ScaglioneValore* Scelto = Nota.ScaglioneSelezionato();
    if (const QString Oltre = OltreGliScaglioni(Nota); !Oltre.isEmpty())
        return Mancanza{Oltre, CampoNota::Valore};
    if (!Scelto && Nota.CodCateg != Penale)
        return Manca(FraseParametri::Scaglione, CampoNota::Valore);
    if (!Scelto)
        return std::nullopt;
    const double Valore = Nota.txtImporto.Numero();
    if (Valore <= 0 && Scelto->RicValore && Scelto->NumSca >= 1)
        return Manca(FraseParametri::ValoreEsatto, CampoNota::Valore);
    if (Valore > 0 && Fuori(*Scelto, Valore))
        return Manca(FraseParametri::FuoriScaglione, CampoNota::Valore);
    return std::nullopt;
}

bool CheckOK(Parcella& Nota, bool ShowMessage)
{
    if (const std::optional<Mancanza<CampoNota>> Trovata = PrimaMancanza(Nota)) {
        if (ShowMessage)
            MsgErrore(Trovata->Messaggio);
        Nota.Fuoco = Trovata->Dove;
        return false;
    }
    return CheckVarPerc(Nota, ShowMessage);
}

namespace {

/// The banner with its parts in some form; an empty one is left out.
QString DatiBaseCon(const Parcella& Nota, const QString& Categoria, const QString& Autorita,
                    const QString& Limiti)
{
    // A decree that notes name stands in front: the end of a long row is cut.
    QString Testo = Nota.Tariffa->Dichiarato ? Nota.Tariffa->Nome.toString() : QString();
    if (!Categoria.isEmpty())
        Testo += (Testo.isEmpty() ? QString() : u" - "_s) + Categoria;
    if (Nota.cmbAutor >= 0)
        Testo += (Testo.isEmpty() && TestoCategoria(Nota) != Categoria ? QString() : u" - "_s) + Autorita;
    if (!Limiti.isEmpty())
        Testo += u" - "_s + Limiti;
    const double Valore = Nota.txtImporto.Numero();
    if (Valore > 0)
        Testo += u" - Valore: "_s + Format(Valore, ModelloImporto) + u" €"_s;
    if (Nota.Multipla())
        Testo += u" (Parcella multipla)"_s;
    return Testo;
}

}  // namespace

QString TestoDatiBase(const Parcella& Nota)
{
    return DatiBaseCon(Nota, TestoCategoria(Nota), TestoAutorita(Nota),
                       Nota.cmbValore >= 0 ? TestoScaglione(Nota) : QString());
}

QStringList DatiBaseInBreve(const Parcella& Nota)
{
    const QString Categoria = TestoCategoria(Nota);
    const QString Autorita = TestoAutorita(Nota);
    QString Limiti = Nota.cmbValore >= 0 ? ScaglioneInBreve(TestoScaglione(Nota))[1] : QString();
    QStringList Forme{DatiBaseCon(Nota, Categoria, Autorita, Limiti)};
    // A value tells its bracket, and a court what it judges.
    if (Nota.txtImporto.Numero() > 0)
        Limiti.clear();
    Forme.append(DatiBaseCon(Nota, Categoria, Autorita, Limiti));
    if (Nota.cmbAutor >= 0) {
        Forme.append(DatiBaseCon(Nota, {}, Autorita, Limiti));
        Forme.append(DatiBaseCon(Nota, {}, Autorita.section(u" - "_s, 0, 0), Limiti));
    }
    Forme.removeDuplicates();
    return Forme;
}

QStringList ScaglioneInBreve(const QString& Limiti)
{
    const QString SenzaSegni = QString(Limiti).remove(u"€ "_s);
    QString Breve = QString(SenzaSegni).remove(u",00"_s).remove(u",01"_s);
    if (Breve.startsWith(u"da "))
        Breve = Breve.mid(3).replace(u" a "_s, u"–"_s);
    QStringList Forme{SenzaSegni, Breve};
    // Brackets end at whole hundreds of euro.
    const QStringList Estremi = Breve.split(u'–');
    if (Estremi.size() == 2 && IsNumeric(Estremi[0]) && IsNumeric(Estremi[1])) {
        constexpr double Mille = 1000;
        const auto Migliaia = [](const QString& Estremo) { return CStr(CDbl(Estremo) / Mille); };
        Forme.append(Migliaia(Estremi[0]) + u'–' + Migliaia(Estremi[1]) + u" mila"_s);
    }
    return Forme;
}

void SelezionaAutoritaInSilenzio(Parcella& Nota, int Indice)
{
    if (Indice < 0 || Indice >= Nota.ListaAutorita.size())
        return;
    Nota.cmbAutor = Indice;
    Nota.IdxAutorPrec = Indice;
    Nota.AutoritaTenuta = {};
    // In criminal matters the court plays the role of the bracket.
    if (Nota.cmbCateg == IndicePenale)
        Nota.Scaglione = Nota.IDAutSelezionata();
}

void SelezionaScaglioneInSilenzio(Parcella& Nota, int Indice)
{
    if (Indice < 0 || Indice >= Nota.ListaScaglioni.size())
        return;
    Nota.cmbValore = Indice;
    Nota.IdxValorePrec = Indice;
    Nota.Scaglione = Nota.ListaScaglioni[Indice].NumSca;
    Nota.ScaglioneTenuto = {};
}

void ImpostaValoreInSilenzio(Parcella& Nota, double Valore)
{
    Nota.ImportoPrec = Valore > 0 ? Valore : 0.0;
    Nota.txtImporto.Testo.clear();
    if (Nota.ImportoPrec > 0)
        ScriviImporto(Nota, Nota.ImportoPrec);
}

void SelezionaScaglioneDelValore(Parcella& Nota)
{
    SelezionaScaglioneInSilenzio(Nota, ScaglionePer(Nota, Nota.ImportoPrec));
}

namespace {

/// The reference database, so that what is read from it one after the other opens it once; none where it
/// cannot be opened, which is for the readers to say.
std::optional<Database> TieniTariffe(const Decreto& Legge)
{
    try {
        return ApriTariffe(Legge);
    } catch (const Errore&) {
        return std::nullopt;
    }
}

}  // namespace

void SelezionaInSilenzio(Parcella& Nota, int Categ, int Autor, int Valore)
{
    const QString Codice = CodiceCategoria(Categ);
    Nota.cmbCateg = Codice.isEmpty() ? NessunaVoce : Categ;
    Nota.CodCateg = Codice.isEmpty() ? Civile.toString() : Codice;
    Nota.Scaglione = 0;
    LasciaTenute(Nota);
    const RapportiUnici UnaVolta;
    const std::optional<Database> Tenuta = TieniTariffe(*Nota.Tariffa);
    LoadAutorità(Nota, Nota.CodCateg);
    LoadScaglioni(Nota, Nota.CodCateg);
    LoadVariazioni(Nota);
    StatiPerCategoria(Nota);

    SelezionaAutoritaInSilenzio(Nota, Autor);
    if (Nota.CodCateg != Penale)
        SelezionaScaglioneInSilenzio(Nota, Valore);
}
