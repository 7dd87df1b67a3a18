#include "platform/document/lettorertf.h"

#include "platform/document/lettorertf_classe.h"

#include <algorithm>
#include <utility>

using rtf::Gruppo;

namespace {

constexpr std::size_t MassimoGruppi = 256;  // deeper ones are passed over
constexpr qsizetype MassimaParola = 32;
constexpr std::size_t MassimoPesoTabella = 20 * 1000;  // cells; a longer table goes on as another
constexpr char16_t PrimoPrivato = 0xF000;              // codes of symbol fonts stand from here on in Unicode

/// What may stand before "{\rtf": blanks, and the mark for the order of bytes.
qsizetype InizioRtf(QStringView Testo)
{
    const auto Prima = std::find_if_not(Testo.begin(), Testo.end(),
                                        [](QChar C) { return C.isSpace() || C == QChar::ByteOrderMark; });
    const qsizetype Inizio = Prima - Testo.begin();
    return Testo.sliced(Inizio).startsWith(u"{\\rtf") ? Inizio : -1;
}

}  // namespace

bool ComeRtf(QStringView Testo)
{
    return InizioRtf(Testo) >= 0;
}

std::vector<BloccoDocumento> LeggiRtf(QStringView Testo)
{
    const qsizetype Inizio = InizioRtf(Testo);
    return Inizio < 0 ? std::vector<BloccoDocumento>() : LettoreRtf(Testo.sliced(Inizio)).Leggi();
}

// ---- signs ------------------------------------------------------------------------------------------

LettoreRtf::LettoreRtf(QStringView Tutto) : Segni(Tutto)
{
    Gruppi.emplace_back();
}

std::vector<BloccoDocumento> LettoreRtf::Leggi()
{
    for (SegnoRtf Segno = Segni.Prossimo(); Segno.Quale != SegnoRtf::Fine && !Finito;
         Segno = Segni.Prossimo())
        Esegui(Segno);
    Scarica();
    if (!Riga.Tratti.empty())
        ChiudiParagrafo();
    ChiudiTabella();
    return std::move(Fatti);
}

void LettoreRtf::Esegui(const SegnoRtf& Segno)
{
    switch (Segno.Quale) {
    case SegnoRtf::Apre:
        Apri();
        break;
    case SegnoRtf::Chiude:
        Chiudi();
        break;
    case SegnoRtf::Parola:
        LeggiParola(Segno);
        break;
    case SegnoRtf::Simbolo:
        LeggiSimbolo(Segno.Segno);
        break;
    case SegnoRtf::Byte:
        LeggiByte(Segno.Carattere);
        break;
    case SegnoRtf::Brano:
        LeggiBrano(Segno.Testo);
        break;
    case SegnoRtf::Fine:
        break;
    }
}

void LettoreRtf::Apri()
{
    Scarica();
    DaSaltare = 0;
    if (Gruppi.size() < MassimoGruppi)
        Gruppi.push_back(Gruppi.back());
    else
        ++Profondi;
}

void LettoreRtf::Chiudi()
{
    Scarica();
    DaSaltare = 0;
    if (Profondi > 0) {
        --Profondi;
        return;
    }
    if (Corrente().Dove == Gruppo::Font)
        Font.Chiudi(Corrente().Caratteri.NumeroFont);
    FontCambiato = true;
    // The last group stays: it says how an unfinished paragraph stands. What follows it is no text.
    Finito = Finito || Gruppi.size() == 2;
    if (!Finito)
        Gruppi.pop_back();
}

void LettoreRtf::LeggiBrano(QStringView Testo)
{
    const auto Via = std::min<qsizetype>(DaSaltare, Testo.size());
    DaSaltare -= static_cast<int>(Via);
    if (Via < Testo.size())
        Scrivi(Testo.sliced(Via));
}

void LettoreRtf::LeggiParola(const SegnoRtf& Segno)
{
    if (DaSaltare > 0) {
        --DaSaltare;  // it stands in the place of a character
        return;
    }
    Scarica();
    const ParolaRtf* Nota = Segno.Testo.size() <= MassimaParola ? CercaParolaRtf(Segno.Testo) : nullptr;
    if (Nota && Profondi == 0)
        EseguiParola(*Nota, Segno.Numero);
}

void LettoreRtf::LeggiSimbolo(QChar C)
{
    if (DaSaltare > 0) {
        --DaSaltare;
        return;
    }
    Scarica();
    switch (C.unicode()) {
    case u'*':  // a group that older readers are to pass over
        SaltaGruppo();
        break;
    case u'~':
        Scrivi(u"\u00a0");
        break;
    case u'_':
        Scrivi(u"\u2011");
        break;
    case u'\t':
        Scrivi(u"\t");
        break;
    case u'\r':
    case u'\n':
        FineParagrafo();
        break;
    case u'\\':
    case u'{':
    case u'}':
        Scrivi(QStringView(&C, 1));
        break;
    default:  // "\-", where a word may be divided, and what no reader needs
        break;
    }
}

void LettoreRtf::LeggiByte(std::optional<char> Carattere)
{
    if (DaSaltare > 0)
        --DaSaltare;
    else if (Carattere && SiLegge())
        Bytes.append(*Carattere);
}

// ---- text -------------------------------------------------------------------------------------------

bool LettoreRtf::SiLegge() const
{
    return Profondi == 0 && Gruppi.size() > 1 && Corrente().Dove != Gruppo::Niente;
}

void LettoreRtf::SaltaGruppo()
{
    if (Profondi == 0)
        Corrente().Dove = Gruppo::Niente;
}

int LettoreRtf::PaginaCorrente() const
{
    const int Propria = Font.Pagina(Corrente().Caratteri.NumeroFont);
    return Propria == 0 ? PaginaDocumento : Propria;
}

/// Signs of a symbol font are written in the document's own: its letters are none there.
Carattere LettoreRtf::CarattereCorrente() const
{
    const rtf::FormatoCarattere& Come = Corrente().Caratteri;
    Carattere Fatto;
    for (const int Numero : {Come.NumeroFont, FontIniziale}) {
        const QString Nome = Font.Nome(Numero);
        if (Nome.isEmpty() || Font.Pagina(Numero) == PaginaSimboli)
            continue;
        Fatto.Nome = Nome;
        break;
    }
    Fatto.Punti = Come.Punti;
    Fatto.Grassetto = Come.Grassetto;
    Fatto.Corsivo = Come.Corsivo;
    Fatto.Sottolineato = Come.Sottolineato;
    Fatto.Barrato = Come.Barrato;
    Fatto.Posto = Come.Posto;
    return Fatto;
}

void LettoreRtf::Scarica()
{
    if (Bytes.isEmpty())
        return;
    const QString Letto = TestoDaPagina(Bytes, PaginaCorrente());
    Bytes.clear();
    Scrivi(Letto);
}

void LettoreRtf::ScriviUno(char16_t Codice)
{
    const QChar C(Codice);
    Scrivi(QStringView(&C, 1));
}

void LettoreRtf::ScriviCodice(char16_t Codice)
{
    const bool Simbolo = Codice >= PrimoPrivato && Codice <= PrimoPrivato + 0xFF;
    ScriviUno(Simbolo ? SegnoDiSimboli(Codice - PrimoPrivato).unicode() : Codice);
}

void LettoreRtf::Scrivi(QStringView Pezzo)
{
    if (!Bytes.isEmpty())
        Scarica();
    if (!SiLegge())
        return;
    if (Corrente().Dove == Gruppo::Font) {
        Font.Aggiungi(Pezzo, Corrente().Caratteri.NumeroFont);
        return;
    }
    if (Corrente().Caratteri.Nascosto)
        return;
    Pezzo = Pezzo.first(std::min(Pezzo.size(), Restano));
    Restano -= Pezzo.size();
    Finito = Finito || Restano == 0;
    Accoda(Pezzo);
}

void LettoreRtf::Accoda(QStringView Pezzo)
{
    if (Riga.Tratti.empty() || (FontCambiato && Riga.Tratti.size() < MassimoTrattiRtf)) {
        Carattere Nuovo = CarattereCorrente();
        FontCambiato = false;
        if (Riga.Tratti.empty() || !(Riga.Tratti.back().Font == Nuovo))
            Riga.Tratti.push_back({{}, std::move(Nuovo)});
    }
    QString& Ultimo = Riga.Tratti.back().Testo;
    if (Corrente().Caratteri.Maiuscole)
        Ultimo += Pezzo.toString().toUpper();
    else
        Ultimo += Pezzo;
}

// ---- paragraphs and tables --------------------------------------------------------------------------

bool LettoreRtf::ParagrafiAmmessi() const
{
    return SiLegge() && Corrente().Dove == Gruppo::Testo;
}

void LettoreRtf::FineParagrafo()
{
    if (ParagrafiAmmessi())
        ChiudiParagrafo();
}

void LettoreRtf::FineCella()
{
    if (!ParagrafiAmmessi())
        return;
    Tab.AggiungiParagrafo(ParagrafoLetto());
    Tab.ChiudiCella();
}

/// What is left of a row behind its last cell is one more cell, if it is anything.
void LettoreRtf::FineRiga()
{
    if (!ParagrafiAmmessi())
        return;
    if (!Riga.Tratti.empty())
        FineCella();
    if (!Tab.ChiudiRiga())
        return;
    if (Tab.Peso() > MassimoPesoTabella)
        ChiudiTabella();
}

Paragrafo LettoreRtf::ParagrafoLetto()
{
    for (Tratto& Singolo : Riga.Tratti)
        Singolo.Testo = SenzaControlli(std::move(Singolo.Testo));
    std::erase_if(Riga.Tratti, [](const Tratto& Singolo) { return Singolo.Testo.isEmpty(); });
    const rtf::FormatoParagrafo& Come = Corrente().Paragrafi;
    Riga.Font = CarattereCorrente();
    Riga.Allinea = Come.Allinea;
    Riga.Spazi = Come.Spazi;
    Riga.Spazi.PrimaRigaCm = std::max(Riga.Spazi.PrimaRigaCm, -Riga.Spazi.SinistroCm);
    Riga.Fermi = Come.Fermi;
    Riga.Righe = Come.Righe();
    Riga.NuovaPagina = NuovaPagina || Come.PaginaPrima;
    Riga.ConSeguente = Come.ConSeguente;
    Riga.Intera = Come.Intera;
    NuovaPagina = false;
    Conta(1);
    return std::exchange(Riga, {});
}

/// A paragraph of a cell waits for the cell; any other one ends the table above it.
void LettoreRtf::ChiudiParagrafo()
{
    Paragrafo Letto = ParagrafoLetto();
    if (Corrente().Paragrafi.InTabella) {
        Tab.AggiungiParagrafo(std::move(Letto));
        return;
    }
    ChiudiTabella();
    Fatti.emplace_back(std::move(Letto));
}

void LettoreRtf::ChiudiTabella()
{
    std::vector<Paragrafo> Dopo = Tab.Sciolti();
    if (!Tab.Vuota()) {
        const std::size_t Peso = Tab.Peso();
        Fatti.emplace_back(Tab.Chiudi());
        Conta(Peso);
    }
    std::ranges::move(Dopo, std::back_inserter(Fatti));
}

void LettoreRtf::Conta(std::size_t Quanti)
{
    Contati += Quanti;
    Finito = Finito || Contati >= MassimoParagrafiRtf;
}
