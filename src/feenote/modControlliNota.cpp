#include "feenote/modControlliNota.h"

#include "addressbook/modClienti.h"
#include "core/modAliquote.h"
#include "core/modControlli.h"
#include "feenote/modCodiciScritti.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modInterruttori.h"
#include "feenote/modOfferte.h"
#include "feenote/modStato.h"
#include "feenote/modStorno.h"
#include "feenote/modTotali.h"
#include "platform/base/regionale.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Less than this is no difference of amounts in cents.
constexpr double MezzoCentesimo = 0.005;

/// First day of the term of GiorniEmissione: D.L. 119/2018, article 11.
const QDate TermineDal(2019, 7, 1);

QString Giorno(const QDate& Data)
{
    return Format(Data, ModelloData);
}

/// "Onorario 3 (Fase decisoria)": the number finds the line, the words say which it is.
QString NomeRiga(QStringView Cosa, int Riga, const QVariant& Descrizione)
{
    constexpr qsizetype Massimo = 38;
    QString Nome = Cosa.toString() + u' ' + CStr(Riga + 1);
    const QString Detta = CStr(Descrizione).simplified();
    if (Detta.isEmpty())
        return Nome;
    return Nome + u" ("_s + (Detta.size() > Massimo ? Detta.left(Massimo - 1).trimmed() + u'…' : Detta) +
           u')';
}

/// The remarks of one note while they are gathered.
class RaccoltaRilievi
{
public:
    RaccoltaRilievi(const Parcella& DaVedere, const DatiControllo& Intorno)
        : Nota(DaVedere), Dati(Intorno),
          Tipo(ETipoStampa(Nota.cmbTipoStampa) ? Nota.cmbTipoStampa : int(StampaPrenotula)),
          Documento(TipoDi(Tipo)), DataFattura(LeggiData(Nota.DatiPar(DatoDataFatt)))
    {}

    void Parti();
    void Controparte();
    void Numerazione();
    void Termini();
    void Onorari();
    void Spese();
    void Acconti();
    void Aliquote();

    QList<Rilievo> Trovati;

private:
    void Avvisa(GenereRilievo Genere, LuogoRilievo Luogo, const QString& Frase, int Riga = 0, int Colonna = 0)
    {
        Trovati.append({Genere, GravitaRilievo::Avviso, Frase, Luogo, Riga, Colonna});
    }
    void Segnala(GenereRilievo Genere, LuogoRilievo Luogo, const QString& Frase)
    {
        Trovati.append({Genere, GravitaRilievo::Errore, Frase, Luogo});
    }
    void CodiciDellaScheda();
    void CodiciDelBlocco();
    void TermineDelPagamento();
    void TermineDellAcconto();
    void TermineDelFile();
    template <class Frase>
    void Righe(const TabellaRighe& Tabella, GenereRilievo Genere, LuogoRilievo Luogo, int Colonna,
               const QString& Altre, Frase Di);

    const Parcella& Nota;
    const DatiControllo& Dati;
    int Tipo;
    const TipoDocumento& Documento;
    std::optional<QDate> DataFattura;
};

/// Lines of one kind, the first of them one by one. A line without a sentence is in order.
template <class Frase>
void RaccoltaRilievi::Righe(const TabellaRighe& Tabella, GenereRilievo Genere, LuogoRilievo Luogo,
                            int Colonna, const QString& Altre, Frase Di)
{
    int Quante = 0;
    int PrimaTaciuta = 0;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const bool Taciuta = Quante >= MassimoRilieviDiRighe;
        const std::optional<QString> Detta = Di(Riga, Taciuta);
        if (!Detta)
            continue;
        if (Quante++ == MassimoRilieviDiRighe)
            PrimaTaciuta = Riga;
        if (!Taciuta)
            Avvisa(Genere, Luogo, *Detta, Riga, Colonna);
    }
    const int Resto = Quante - MassimoRilieviDiRighe;
    if (Resto > 0)
        Avvisa(Genere, Luogo, Altre.arg(Resto), PrimaTaciuta, Colonna);
}

void RaccoltaRilievi::Parti()
{
    const bool Blocco = !Nota.txtDatiStaCli.Testo.trimmed().isEmpty();
    // The name of a linked client comes with his archive; the page may bear him in the user's own words
    // before.
    const bool Scritto =
        !Nota.txtCliente.Testo.trimmed().isEmpty() || (Nota.IDCli > 0 && Documento.Parti && Blocco);
    const bool Stampato = !Documento.Parti || Blocco;
    if (!Scritto || !Stampato) {
        const LuogoRilievo Luogo = Scritto ? LuogoRilievo::BloccoCliente : LuogoRilievo::Cliente;
        if (Documento.EFattura)
            Segnala(GenereRilievo::SenzaCliente, Luogo, u"La fattura è senza cliente"_s);
        else
            Avvisa(GenereRilievo::SenzaCliente, Luogo, u"Manca il cliente"_s);
        return;
    }
    // The court's document says the client's name alone, and some say nothing of him.
    const bool ConCodici =
        Documento.Persona != FormaBlocco::Nessuna && Documento.Persona != FormaBlocco::Nome;
    if (!ConCodici)
        return;
    if (Nota.IDCli > 0)
        CodiciDellaScheda();
    else if (Documento.EFattura)
        CodiciDelBlocco();
}

/// Who empties the box lets the counterparty go: one that is linked has lost its name. The archive has none
/// for notes, or could not be read when a new note was saved. One that the archive has still to name is no
/// matter yet.
void RaccoltaRilievi::Controparte()
{
    const bool Legata = Nota.IDCon > 0;
    if (!Documento.Parti || (Legata && Nota.NomiAttesi))
        return;
    const bool Nominata = !Nota.txtControp.Testo.trimmed().isEmpty();
    const bool InStampa = !Nota.txtDatiStaControp.Testo.trimmed().isEmpty();
    const auto Di = [this](LuogoRilievo Luogo, const QString& Frase) {
        Avvisa(GenereRilievo::ControparteSenzaNome, Luogo, Frase);
    };
    const QString SenzaNome = u"La controparte non ha un nome"_s;
    if (Documento.Persona == FormaBlocco::Testata) {
        // The head says him where there is anything in the box; whoever empties the words of the print leaves
        // him out.
        if (Legata && !Nominata && (Nota.txtControp.Testo.isEmpty() || !InStampa))
            Di(LuogoRilievo::Controparte, SenzaNome);
        return;
    }
    // The other documents print the words of the print alone, and one sentence has a gap without them,
    // whether there is a counterparty or not.
    if (InStampa || (!Legata && Tipo != StampaInformativa))
        return;
    if (Nominata)
        Di(LuogoRilievo::BloccoControparte, u"La controparte non è indicata nel documento"_s);
    else
        Di(LuogoRilievo::Controparte, Legata ? SenzaNome : u"Manca la controparte"_s);
}

void RaccoltaRilievi::CodiciDellaScheda()
{
    if (!Dati.ArchivioLetto)
        return;
    if (!Dati.Cliente) {
        Avvisa(GenereRilievo::ClienteAssente, LuogoRilievo::Cliente,
               u"Il cliente collegato non si trova nell'archivio"_s);
        return;
    }
    // Codes of other countries follow other rules.
    if (SoggettoDi(*Dati.Cliente) == TipoSoggetto::Estero)
        return;
    const QString CodFis = CodiceInUnPezzo(Dati.Cliente->CodFis);
    const QString PIva = CodiceInUnPezzo(Dati.Cliente->PIva);
    if (CodFis.isEmpty() && PIva.isEmpty())
        Avvisa(GenereRilievo::ClienteSenzaCodici, LuogoRilievo::CodiceFiscale,
               u"Il cliente è senza codice fiscale e senza partita IVA"_s);
    if (!CodFis.isEmpty() && !CodiceFiscaleTorna(CodFis))
        Segnala(GenereRilievo::CodiceFiscaleErrato, LuogoRilievo::CodiceFiscale,
                u"Il codice fiscale del cliente non torna: %1"_s.arg(CodFis));
    if (!PIva.isEmpty() && !PartitaIvaTorna(PIva))
        Segnala(GenereRilievo::PartitaIvaErrata, LuogoRilievo::PartitaIva,
                u"La partita IVA del cliente non torna: %1"_s.arg(PIva));
}

/// A client of free text has no card: what the invoice prints of him has to say his codes. What was only
/// guessed to be a code is not called an error.
void RaccoltaRilievi::CodiciDelBlocco()
{
    const CodiciScritti Letti = LeggiCodici(Nota.txtDatiStaCli.Testo);
    for (const CodiceScritto& Uno : Letti.Codici) {
        if (Uno.Torna)
            continue;
        const QString Frase = (Uno.Partita ? u"La partita IVA del cliente non torna: %1"_s
                                           : u"Il codice fiscale del cliente non torna: %1"_s)
                                  .arg(Uno.Codice);
        Trovati.append({Uno.Partita ? GenereRilievo::PartitaIvaErrata : GenereRilievo::CodiceFiscaleErrato,
                        Uno.Nominato ? GravitaRilievo::Errore : GravitaRilievo::Avviso, Frase,
                        LuogoRilievo::BloccoCliente});
    }
    if (Letti.Codici.isEmpty() && !Letti.Esteri)
        Avvisa(GenereRilievo::ClienteSenzaCodici, LuogoRilievo::BloccoCliente,
               u"Fra i dati del cliente non si trova codice fiscale né partita IVA"_s);
}

void RaccoltaRilievi::Numerazione()
{
    using enum GenereRilievo;
    if (Documento.EFattura) {
        const QString Scritta = Nota.DatiPar(DatoDataFatt).trimmed();
        if (Nota.DatiPar(DatoNumFatt).trimmed().isEmpty())
            Segnala(NumeroMancante, LuogoRilievo::NumeroFattura, u"La fattura è senza numero"_s);
        if (ENotaDiCredito(Nota))
            Avvisa(CartaDiFattura, LuogoRilievo::FatturaXml,
                   u"La nota di credito si stampa col titolo «Fattura»"_s);
        if (CitataAltrove(Nota))
            Avvisa(CitataIgnota, LuogoRilievo::FatturaXml, FraseCitataAltrove.toString());
        if (Scritta.isEmpty())
            Segnala(DataMancante, LuogoRilievo::DataFattura, u"La fattura è senza data"_s);
        else if (!DataFattura)
            Segnala(DataNonValida, LuogoRilievo::DataFattura,
                    u"La data della fattura non è una data: «%1»"_s.arg(Scritta));
        else if (*DataFattura > Dati.Oggi)
            Avvisa(DataFutura, LuogoRilievo::DataFattura,
                   u"La data della fattura deve ancora venire: %1"_s.arg(Giorno(*DataFattura)));
        return;
    }
    // Pro-forma note and estimate may go without both.
    const QString Scritta = Nota.DatiPar(DatoData).trimmed();
    if (Documento.Pannello == PannelloStampa::Numero && !Scritta.isEmpty() && !IsDate(Scritta))
        Avvisa(DataNonValida, LuogoRilievo::DataDocumento,
               u"La data del documento non è una data: «%1»"_s.arg(Scritta));
}

void RaccoltaRilievi::Termini()
{
    TermineDelPagamento();
    if (!Documento.EFattura)
        return;
    TermineDellAcconto();
    TermineDelFile();
}

/// A note that is paid wants its invoice. When the money came nobody knows but by the day on which that was
/// said; an office that numbers its invoices elsewhere, and payments that had invoices of theirs, are left
/// alone.
void RaccoltaRilievi::TermineDelPagamento()
{
    if (Nota.Stato.Stato != StatoNota::Pagata || !Dati.Numera || !ChiedePagamento(Tipo) ||
        FatturaNumerata(Nota))
        return;
    for (int Riga = 0; Riga < Nota.xAcconti.Righe(); ++Riga)
        if (CStr(Nota.xAcconti(Riga, AccDescr)).contains(u"fatt", Qt::CaseInsensitive))
            return;
    const auto Dal = LeggiData(Nota.Stato.Dal());
    if (!Dal || Dal->addYears(1) < Dati.Oggi || Dati.Oggi <= Dal->addDays(GiorniEmissione))
        return;
    Avvisa(GenereRilievo::TermineScaduto,
           Documento.EFattura ? LuogoRilievo::NumeroFattura : LuogoRilievo::Documento,
           u"Manca la fattura di questa parcella, segnata come pagata il %1"_s.arg(Giorno(*Dal)));
}

/// The payments have no date of their own: their words may. They count for an invoice on account alone, since
/// those that a final invoice takes away had invoices of theirs.
void RaccoltaRilievi::TermineDellAcconto()
{
    if (!Nota.chkFattAcc.Attiva)
        return;
    QDate Ultimo;
    int Posto = 0;
    for (int Riga = 0; Riga < Nota.xAcconti.Righe(); ++Riga) {
        const auto Giorno = GiornoPagato(CStr(Nota.xAcconti(Riga, AccDescr)), Dati.Oggi);
        if (Giorno && (!Ultimo.isValid() || *Giorno > Ultimo)) {
            Ultimo = *Giorno;
            Posto = Riga;
        }
    }
    // Before, an invoice was due on the day of the payment itself.
    if (!Ultimo.isValid() || Ultimo < TermineDal ||
        DataFattura.value_or(Dati.Oggi) <= Ultimo.addDays(GiorniEmissione))
        return;
    Avvisa(GenereRilievo::TermineScaduto, LuogoRilievo::Acconti,
           u"L'acconto del %1 andava fatturato entro il %2: %3 giorni dal pagamento"_s
               .arg(Giorno(Ultimo), Giorno(Ultimo.addDays(GiorniEmissione)))
               .arg(GiorniEmissione),
           Posto, AccDescr);
}

/// What is not written here may have gone by another road: only an office that writes its files with this
/// program hears of it, and of an invoice of the last year.
void RaccoltaRilievi::TermineDelFile()
{
    if (!Dati.ScriveXml || !FatturaNumerata(Nota) || FatturaGiaScritta(Nota))
        return;
    const QDate Termine = DataFattura->addDays(GiorniEmissione);
    if (Dati.Oggi <= Termine || DataFattura->addYears(1) < Dati.Oggi)
        return;
    Avvisa(GenereRilievo::TermineScaduto, LuogoRilievo::FatturaXml,
           u"Il file della fattura elettronica non è scritto: il termine era il %1"_s.arg(Giorno(Termine)));
}

void RaccoltaRilievi::Onorari()
{
    if (RicalcoloInSospeso(Nota))
        Avvisa(GenereRilievo::DaRicalcolare, LuogoRilievo::Ricalcolo,
               u"Gli onorari sono da ricalcolare con i nuovi parametri"_s);
    const TabellaRighe& Lette = Nota.xOnorari;
    // Entering them recalculates: the amount complained of would be gone before it is seen.
    const LuogoRilievo Luogo = Nota.RicalcoloNecessario && RicalcoloInSospeso(Nota) ? LuogoRilievo::Ricalcolo
                                                                                    : LuogoRilievo::Onorari;
    const auto Nome = [&](int Riga) { return NomeRiga(u"Onorario", Riga, Lette(Riga, OnoDescr)); };
    Righe(Lette, GenereRilievo::FuoriLimiti, Luogo, OnoImporto,
          u"Altri onorari oltre il massimo o sotto il minimo: %1"_s,
          [&](int Riga, bool Taciuta) -> std::optional<QString> {
              const auto Passato = LimiteDiRiga(Lette, Riga);
              if (!Passato)
                  return std::nullopt;
              return Taciuta ? QString()
                             : Nome(Riga) + u": "_s + TestoImporto(NumeroDi(Lette(Riga, OnoImporto))) +
                                   u", "_s + FraseLimite(*Passato);
          });
    Righe(Lette, GenereRilievo::OnorarioAZero, Luogo, OnoImporto, u"Altri onorari a 0: %1"_s,
          [&](int Riga, bool Taciuta) -> std::optional<QString> {
              if (NumeroDi(Lette(Riga, OnoImporto)) != 0 || LimiteDiRiga(Lette, Riga))
                  return std::nullopt;
              return Taciuta ? QString() : Nome(Riga) + u": l'importo è 0"_s;
          });
}

void RaccoltaRilievi::Spese()
{
    const TabellaRighe& Lette = Nota.xDiritti;
    Righe(Lette, GenereRilievo::SpesaAZero, LuogoRilievo::Spese, DirImponibile, u"Altre spese a 0: %1"_s,
          [&](int Riga, bool Taciuta) -> std::optional<QString> {
              if (!SenzaImporti(Nota, Riga))
                  return std::nullopt;
              return Taciuta ? QString()
                             : NomeRiga(u"Spesa", Riga, Lette(Riga, DirDescr)) + u": l'importo è 0"_s;
          });
}

/// Each part of the payments against what it pays; the fees are paid with the general expenses on them.
void RaccoltaRilievi::Acconti()
{
    if (!Documento.Riepilogo)
        return;
    const Catena Conti = CatenaFiscale(Nota, Tipo);
    const SommeAcconti& Pagati = Conti.Dati.Acconti;
    if (const double Uscita = CatenaFiscale(RaccogliFattura(Nota, Tipo)).Totale;
        std::abs(Uscita - Conti.Totale) > MezzoCentesimo)
        Avvisa(GenereRilievo::AccontiDopo, LuogoRilievo::Acconti, FraseAccontiDopo(Nota, Tipo, Uscita), 0,
               AccCorrispettivi);
    const auto Confronta = [&](double Pagato, double Dovuto, int Colonna, const QString& Frase) {
        if (Pagato > Dovuto + MezzoCentesimo)
            Avvisa(GenereRilievo::AccontiEccedenti, LuogoRilievo::Acconti,
                   Frase.arg(Format(Pagato, ModelloImporto), Format(Dovuto, ModelloImporto)), 0, Colonna);
    };
    Confronta(Pagati.AccontiCorrispettivi, Conti.Dati.Onorari + Conti.SpeseGen, AccCorrispettivi,
              Conti.SpeseGen != 0
                  ? u"Gli acconti sui corrispettivi, %1, superano onorari e spese generali, %2"_s
                  : u"Gli acconti sui corrispettivi, %1, superano gli onorari, %2"_s);
    Confronta(Pagati.AccontiSpeseImp, Conti.Dati.SpeseImp, AccSpeseImp,
              u"Gli acconti sulle spese imponibili, %1, superano le spese imponibili, %2"_s);
    Confronta(Pagati.AccontiSpeseEsenti, Conti.Dati.SpeseEsenti, AccSpeseEsenti,
              u"Gli acconti sulle spese esenti, %1, superano le spese esenti, %2"_s);
}

/// The general expenses are left out: by what they are agreed is the office's own matter.
void RaccoltaRilievi::Aliquote()
{
    struct Voce
    {
        Imposta Tassa;
        QStringView Chiave;
        QStringView Nome;
    };
    constexpr std::array Voci{
        Voce{Imposta::IVA, u"IVA", u"I.V.A."},
        Voce{Imposta::CP, u"CP", u"Cassa di previdenza"},
        Voce{Imposta::RA, u"RA", u"Ritenuta d'acconto"},
    };
    constexpr double Minima = 0.001;
    if (!Documento.Riepilogo)
        return;
    // An invoice of former years keeps the rates of its day.
    const QDate Del = Documento.EFattura ? DataFattura.value_or(Dati.Oggi) : Dati.Oggi;
    const QList<AliquotaDatata> InVigore = AliquoteAl(Del);
    for (const Voce& Di : Voci) {
        const VoceImposta& Tenuta = DatiImposta(Di.Tassa);
        if (!(Nota.*Tenuta.Tick).Vale())
            continue;
        const double Percento = (Nota.*Tenuta.Box).Numero();
        if (Percento <= 0) {
            Avvisa(GenereRilievo::AliquotaMancante, LuogoRilievo::Imposta,
                   u"%1 senza percentuale: conta come 0"_s.arg(Di.Nome), 0, int(Di.Tassa));
            continue;
        }
        const auto Giusta = std::ranges::find(InVigore, Di.Chiave, &AliquotaDatata::Chiave);
        if (Giusta == InVigore.end() || std::abs(Giusta->Percento - Percento) < Minima)
            continue;
        const QString Quando = Giusta->Al.isValid() ? u"il %1 era il"_s.arg(Giorno(Del))
                                                    : u"dal %1 è il"_s.arg(Giorno(Giusta->Dal));
        Avvisa(GenereRilievo::AliquotaDiversa, LuogoRilievo::Imposta,
               u"%1 al %2%: %3 %4%"_s.arg(Di.Nome, CStr(Percento), Quando, CStr(Giusta->Percento)), 0,
               int(Di.Tassa));
    }
}

}  // namespace

QList<Rilievo> ControllaNota(const Parcella& Nota, const DatiControllo& Dati)
{
    RaccoltaRilievi Note(Nota, Dati);
    Note.Parti();
    Note.Controparte();
    Note.Numerazione();
    Note.Termini();
    Note.Onorari();
    Note.Spese();
    Note.Acconti();
    Note.Aliquote();
    std::ranges::stable_sort(Note.Trovati, std::ranges::greater(), &Rilievo::Gravita);
    return Note.Trovati;
}

std::optional<LimitePassato> LimiteDiRiga(const TabellaRighe& Onorari, int Riga)
{
    if (Riga < 0 || Riga >= Onorari.Righe())
        return std::nullopt;
    const double NVoce = NumeroDi(Onorari(Riga, OnoNVoce));
    if (NVoce == 0 || NVoce == VoceLibera)
        return std::nullopt;
    const double Importo = NumeroDi(Onorari(Riga, OnoImporto));
    const double Min = NumeroDi(Onorari(Riga, OnoMin));
    const double Max = NumeroDi(Onorari(Riga, OnoMax));
    if (Max <= 0 || Min > Max)
        return std::nullopt;
    if (Importo > Max + MezzoCentesimo)
        return LimitePassato{true, Max};
    if (Importo < Min - MezzoCentesimo)
        return LimitePassato{false, Min};
    return std::nullopt;
}

QString FraseLimite(const LimitePassato& Passato)
{
    return (Passato.Massimo ? u"oltre il massimo di "_s : u"sotto il minimo di "_s) +
           TestoImporto(Passato.Limite);
}

QString FraseLimite(const TabellaRighe& Onorari, int Riga)
{
    const auto Passato = LimiteDiRiga(Onorari, Riga);
    return Passato ? FraseLimite(*Passato) : QString();
}
