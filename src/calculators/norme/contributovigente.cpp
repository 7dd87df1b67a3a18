#include "calculators/norme/contributovigente.h"

#include "calculators/norme/rifiuto.h"
#include "calculators/norme/terminiricorrenti.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimoRicorrenti = 9999;
constexpr QStringView CodiceNotifiche = u"notifiche";

bool EProcedimento(const VoceContributo& Voce)
{
    return Voce.Genere == GenereContributo::Scaglione || Voce.Genere == GenereContributo::Fisso;
}

QString TestoVoce(const VoceContributo& Voce)
{
    if (Voce.Genere != GenereContributo::Scaglione)
        return Voce.Categoria;
    const QString Da = Format(*Voce.DaEuro, ModelloImporto);
    return Voce.AEuro ? u"Scaglione da %1 a %2 euro"_s.arg(Da, Format(*Voce.AEuro, ModelloImporto))
                      : u"Scaglione da %1 euro"_s.arg(Da);
}

/// One fee, norm by norm.
class ContoContributo
{
public:
    ContoContributo(const Norme& DiLegge, const RichiestaContributo& Chiesto)
        : Insieme(DiLegge), Richiesta(Chiesto)
    {}

    EsitoContributo Esegui()
    {
        if (!Richiesta.Deposito.isValid())
            Rifiuta(u"La data del deposito non è valida"_s);
        Voce = &Trova();
        Esito.ContributoEuro = Voce->Valore;
        Aggiungi(TestoVoce(*Voce), *Voce, Esito.ContributoEuro);
        if (Voce->PerCiascuno)
            PerCiascuno();
        else if (Richiesta.Ricorrenti != 1)
            Rifiuta(u"%1: l'importo non è dovuto per ciascun ricorrente"_s.arg(Voce->Categoria));
        Varianti();
        Aggiunte();
        Annota();
        return Esito;
    }

private:
    /// The row of the proceeding on the day of filing, and for the value where it counts.
    const VoceContributo& Trova() const
    {
        const VoceContributo* Ultima = nullptr;
        for (const VoceContributo& Una : Insieme.Contributi()) {
            if (!EProcedimento(Una) || Una.Codice.compare(Richiesta.Procedimento, Qt::CaseInsensitive) != 0)
                continue;
            Ultima = &Una;
            if (Una.Quando.Contiene(Richiesta.Deposito) && Richiesta.Deposito >= PrimoNoto() &&
                Comprende(Una))
                return Una;
        }
        if (!Ultima)
            Rifiuta(u"Nessun procedimento si chiama «%1»"_s.arg(Richiesta.Procedimento.left(40)));
        Rifiuta(u"%1: importi noti dal %2"_s.arg(Ultima->Categoria, Format(PrimoGiorno(), ModelloData)));
    }

    /// The first day on which an amount of any proceeding is known: no undated one holds before.
    QDate PrimoNoto() const
    {
        QDate Primo;
        for (const VoceContributo& Una : Insieme.Contributi())
            if (EProcedimento(Una) && Una.Quando.Dal.isValid() &&
                (!Primo.isValid() || Una.Quando.Dal < Primo))
                Primo = Una.Quando.Dal;
        return Primo;
    }

    /// The first day on which an amount of the proceeding holds.
    QDate PrimoGiorno() const
    {
        QDate Primo;
        for (const VoceContributo& Una : Insieme.Contributi())
            if (EProcedimento(Una) && Una.Codice.compare(Richiesta.Procedimento, Qt::CaseInsensitive) == 0 &&
                (!Primo.isValid() || Una.Quando.Dal < Primo))
                Primo = Una.Quando.Dal;
        return Primo.isValid() ? Primo : PrimoNoto();
    }

    bool Comprende(const VoceContributo& Una) const
    {
        if (Una.Genere != GenereContributo::Scaglione)
            return true;
        if (!Richiesta.ValoreEuro)
            Rifiuta(u"%1: manca il valore"_s.arg(Una.Categoria));
        const double Valore = Round(*Richiesta.ValoreEuro, 2);
        if (!(Valore >= 0))
            Rifiuta(u"%1: il valore non può essere negativo"_s.arg(Una.Categoria));
        return !Una.AEuro || Valore <= *Una.AEuro;  // the brackets stand from the lowest up
    }

    /// A row whose first day no source gives is certain from the day on which the norms were read.
    QString NotaDecorrenza(const VoceContributo& Una) const
    {
        const bool Ignota = !Una.Quando.Dal.isValid() && Richiesta.Deposito < Insieme.NoteFinoAl();
        QStringList Note;
        if (Ignota)
            Note << u"decorrenza non riscontrata"_s;
        if (!Una.Nota.isEmpty())
            Note << Una.Nota;
        return Note.join(u"; "_s);
    }

    void Aggiungi(const QString& Testo, const VoceContributo& Una, double Euro)
    {
        const bool Ignota = !Una.Quando.Dal.isValid() && Richiesta.Deposito < Insieme.NoteFinoAl();
        Esito.Passi.append({Testo, Euro, Una.Norma, Ignota, NotaDecorrenza(Una)});
    }

    void PerCiascuno()
    {
        if (Richiesta.Ricorrenti < 1 || Richiesta.Ricorrenti > MassimoRicorrenti)
            Rifiuta(u"%1: il numero va da 1 a %2"_s.arg(Voce->Categoria).arg(MassimoRicorrenti));
        if (Richiesta.Ricorrenti == 1)
            return;
        Esito.ContributoEuro = Arrotonda2(Esito.ContributoEuro * Richiesta.Ricorrenti);
        Aggiungi(u"Per %1"_s.arg(Richiesta.Ricorrenti), *Voce, Esito.ContributoEuro);
    }

    /// The row of a rule or of an amount besides; nullptr when none holds on that day.
    const VoceContributo* InVigore(QStringView Codice) const
    {
        for (const VoceContributo& Una : Insieme.Contributi())
            if (!EProcedimento(Una) && Una.Codice == Codice && Una.Quando.Contiene(Richiesta.Deposito))
                return &Una;
        return nullptr;
    }

    const VoceContributo& PrimaDi(QStringView Codice) const
    {
        for (const VoceContributo& Una : Insieme.Contributi())
            if (!EProcedimento(Una) && Una.Codice == Codice)
                return Una;
        throw Errore(errori::Indice);
    }

    /// A rule that is not yet in force on that day changes nothing, and says so.
    void Moltiplica(QStringView Codice)
    {
        const VoceContributo* Regola = InVigore(Codice);
        if (!Regola) {
            const VoceContributo& Prima = PrimaDi(Codice);
            Esito.Passi.append({Prima.Categoria, Esito.ContributoEuro, Prima.Norma, false,
                                u"in vigore "_s + TestoVigenza(Prima.Quando)});
            return;
        }
        Esito.ContributoEuro = Arrotonda2(Esito.ContributoEuro * Regola->Valore);
        Aggiungi(u"%1 (x %2)"_s.arg(Regola->Categoria, CStr(Regola->Valore)), *Regola, Esito.ContributoEuro);
    }

    void Varianti()
    {
        const bool AMeta = Richiesta.Dimezzato || Richiesta.Lavoro;
        if ((AMeta || Richiesta.Imprese) && !(Civile() && Voce->ConGradi))
            Rifiuta(u"%1: nessuna norma nota lo dimezza o lo raddoppia"_s.arg(Voce->Categoria));
        if (AMeta)
            Dimezza();
        if (Richiesta.Imprese)
            Moltiplica(u"imprese");
        if (Richiesta.Grado != GradoGiudizio::Primo)
            Moltiplica(CodiceGrado());
        if (Richiesta.OmessiDati)
            Moltiplica(u"dati omessi");
        if (!Richiesta.Respinta)
            return;
        if (Richiesta.Grado == GradoGiudizio::Primo)
            Rifiuta(u"L'altro importo per l'impugnazione respinta vale solo nelle impugnazioni"_s);
        Moltiplica(u"respinta");
    }

    /// Labour cases are halved in the degrees of merit alone; the row of the rule says so.
    void Dimezza()
    {
        constexpr QStringView Codice = u"dimezzato";
        if (!Richiesta.Lavoro || Richiesta.Grado != GradoGiudizio::Cassazione)
            return Moltiplica(Codice);
        const VoceContributo& Regola = PrimaDi(Codice);
        Aggiungi(Regola.Categoria, Regola, Esito.ContributoEuro);
    }

    QString CodiceGrado() const
    {
        const bool Cassazione = Richiesta.Grado == GradoGiudizio::Cassazione;
        if (Civile() && Voce->ConGradi)
            return Cassazione ? u"cassazione"_s : u"impugnazione"_s;
        if (!Voce->ConGradi || Cassazione)
            Rifiuta(u"%1: nessuna norma nota dà il contributo per quel grado"_s.arg(Voce->Categoria));
        return u"impugnazione amministrativa"_s;
    }

    /// @return the amount, 0 when none holds on that day
    double Aggiunta(QStringView Codice)
    {
        const VoceContributo* Una = InVigore(Codice);
        if (!Una)
            return 0.0;
        Esito.AggiunteEuro += Una->Valore;
        Aggiungi(Una->Categoria, *Una, Una->Valore);
        return Una->Valore;
    }

    bool Civile() const { return Voce->Processo == ProcessoContributo::Civile; }

    void Aggiunte()
    {
        if (Richiesta.Notifiche && !Richiesta.Lavoro && Voce->ConNotifiche)
            Esito.NotificheEuro = Aggiunta(CodiceNotifiche);
        if (Richiesta.Grado == GradoGiudizio::Cassazione)
            (void)Aggiunta(u"registro cassazione");
        const VoceContributo* Minimo = InVigore(u"minimo");
        if (!Minimo || !Civile() || Esito.ContributoEuro <= 0)
            return;
        Esito.MinimoEuro = std::min(Minimo->Valore, Esito.ContributoEuro);
        Esito.NormaMinimo = Minimo->Norma;
    }

    void Annota()
    {
        const QString Oltre = Insieme.AvvisoOltre(Richiesta.Deposito);
        if (!Oltre.isEmpty())
            Esito.Note << Oltre;
        Esito.Note << Insieme.Avvisi(AmbitoContributo, Richiesta.Deposito);
        if (std::ranges::any_of(Esito.Passi, &PassoContributo::NonRiscontrato))
            Esito.Note << NotaNonRiscontrato.toString();
    }

    const Norme& Insieme;
    const RichiestaContributo& Richiesta;
    const VoceContributo* Voce = nullptr;
    EsitoContributo Esito;
};

}  // namespace

QList<ProcedimentoContributo> ProcedimentiContributo(const Norme& Insieme)
{
    QList<ProcedimentoContributo> Tutti;
    for (const VoceContributo& Voce : Insieme.Contributi())
        if (EProcedimento(Voce) &&
            std::ranges::find(Tutti, Voce.Codice, &ProcedimentoContributo::Codice) == Tutti.end())
            Tutti.append({Voce.Codice, Voce.Categoria, Voce.Genere == GenereContributo::Scaglione,
                          Voce.ConGradi, Voce.PerCiascuno, Voce.ConNotifiche});
    return Tutti;
}

EsitoContributo ContributoVigente(const Norme& Insieme, const RichiestaContributo& Richiesta)
{
    return ContoContributo(Insieme, Richiesta).Esegui();
}

std::optional<ImportoDiLegge> AnticipazioneNotifiche(const Norme& Insieme, const QDate& Giorno)
{
    for (const VoceContributo& Voce : Insieme.Contributi())
        if (Voce.Genere == GenereContributo::Aggiunge && Voce.Codice == CodiceNotifiche &&
            Voce.Quando.Contiene(Giorno))
            return ImportoDiLegge{Voce.Valore, Voce.Norma, Voce.Nota};
    return std::nullopt;
}

std::optional<ImportoDiLegge> AnticipazioneInVigore(const QDate& Giorno)
{
    try {
        return AnticipazioneNotifiche(*NormeVigenti(), Giorno);
    } catch (const Errore&) {
        return std::nullopt;
    }
}
