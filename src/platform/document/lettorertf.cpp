#include "platform/document/lettorertf.h"

#include "platform/base/paginacodice.h"
#include "platform/document/lettorertf_parole.h"

#include <QByteArray>
#include <QHash>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t MassimoGruppi = 256;  // deeper ones are passed over
constexpr qsizetype MassimoFont = 4096;
constexpr qsizetype MassimoNomeFont = 64;
constexpr qsizetype MassimoParola = 32;
constexpr int MassimoSostituti = 255;
constexpr double TwipPerCm = 1440.0 / 2.54;
constexpr double TwipPerPunto = 20.0;
constexpr char16_t PrimoPrivato = 0xF000;  // codes of symbol fonts stand from here on in Unicode

/// What a group gives back when it ends.
struct Gruppo
{
    enum Scopo { Testo, Font, Niente };
    Scopo Dove = Testo;
    int Sostituti = 1;
    int NumeroFont = 0;
    double Punti = 12.0;
    bool Grassetto = false;
    bool Corsivo = false;
    bool Sottolineato = false;
    bool Maiuscole = false;
    bool Nascosto = false;
    bool PaginaPrima = false;
    bool ConSeguente = false;
    Allineamento Allinea = Allineamento::Sinistra;
    Rientri Spazi;
};

struct FontRtf
{
    QString Nome;
    int Pagina = 0;  ///< code page, 0 the document's
};

bool Lettera(QChar C)
{
    return (C >= u'a' && C <= u'z') || (C >= u'A' && C <= u'Z');
}

bool Cifra(QChar C)
{
    return C >= u'0' && C <= u'9';
}

/// Value of a hexadecimal digit, -1 of another character.
int Esadecimale(QChar C)
{
    if (Cifra(C))
        return C.unicode() - u'0';
    if (C >= u'a' && C <= u'f')
        return C.unicode() - u'a' + 10;
    if (C >= u'A' && C <= u'F')
        return C.unicode() - u'A' + 10;
    return -1;
}

class Lettore
{
public:
    explicit Lettore(QStringView Tutto) : Testo(Tutto) { Gruppi.emplace_back(); }

    std::vector<Paragrafo> Leggi()
    {
        while (Posto < Testo.size() && !Finito)
            Passo();
        Scarica();
        if (!Riga.Tratti.empty())
            ChiudiParagrafo();
        return std::move(Fatti);
    }

private:
    // ---- the stream of tokens

    void Passo()
    {
        switch (Testo[Posto].unicode()) {
        case u'{':
            ++Posto;
            Apri();
            break;
        case u'}':
            ++Posto;
            Chiudi();
            break;
        case u'\\':
            ++Posto;
            Comando();
            break;
        case u'\r':
        case u'\n':
        case u'\0':
            ++Posto;
            break;
        default:
            Brano();
        }
    }

    void Apri()
    {
        Scarica();
        DaSaltare = 0;
        if (Gruppi.size() < MassimoGruppi)
            Gruppi.push_back(Gruppi.back());
        else
            ++Profondi;
    }

    void Chiudi()
    {
        Scarica();
        DaSaltare = 0;
        if (Profondi > 0) {
            --Profondi;
            return;
        }
        if (Io().Dove == Gruppo::Font)
            ChiudiFont();
        FontCambiato = true;
        // The last group stays: it says how an unfinished paragraph stands. What follows it is no text.
        Finito = Finito || Gruppi.size() == 2;
        if (!Finito)
            Gruppi.pop_back();
    }

    /// Plain characters up to the next sign of the syntax.
    void Brano()
    {
        const auto Segno = [](QChar C) {
            return C == u'\\' || C == u'{' || C == u'}' || C == u'\r' || C == u'\n' || C == u'\0';
        };
        const auto Inizio = Testo.begin() + Posto;
        const auto Fine = std::find_if(Inizio, Testo.end(), Segno);
        QStringView Pezzo = Testo.sliced(Posto, Fine - Inizio);
        Posto += Pezzo.size();
        const auto Via = std::min<qsizetype>(DaSaltare, Pezzo.size());
        DaSaltare -= static_cast<int>(Via);
        Pezzo = Pezzo.sliced(Via);
        if (!Pezzo.isEmpty())
            Scrivi(Pezzo);
    }

    void Comando()
    {
        if (Posto == Testo.size())
            return;
        if (Lettera(Testo[Posto]))
            Parola();
        else
            Simbolo(Testo[Posto++]);
    }

    void Parola()
    {
        const qsizetype Inizio = Posto;
        while (Posto < Testo.size() && Lettera(Testo[Posto]))
            ++Posto;
        const QStringView Nome = Testo.sliced(Inizio, Posto - Inizio);
        const std::optional<int> Numero = LeggiNumero();
        if (Posto < Testo.size() && Testo[Posto] == u' ')
            ++Posto;
        const ParolaRtf* Sua = Nome.size() <= MassimoParola ? CercaParolaRtf(Nome) : nullptr;
        if (Sua && Sua->Azione == AzioneRtf::Byte)
            Posto += std::clamp<qsizetype>(Numero.value_or(0), 0, Testo.size() - Posto);
        if (DaSaltare > 0) {
            --DaSaltare;  // it stands in the place of a character
            return;
        }
        Scarica();
        if (Sua && Profondi == 0)
            Esegui(*Sua, Numero);
    }

    /// The number behind a word; one beyond 32 bits stops at the nearest of them.
    std::optional<int> LeggiNumero()
    {
        const bool Meno = Posto + 1 < Testo.size() && Testo[Posto] == u'-' && Cifra(Testo[Posto + 1]);
        Posto += Meno ? 1 : 0;
        if (Posto == Testo.size() || !Cifra(Testo[Posto]))
            return std::nullopt;
        qint64 Valore = 0;
        for (; Posto < Testo.size() && Cifra(Testo[Posto]); ++Posto)
            Valore = std::min<qint64>(Valore * 10 + (Testo[Posto].unicode() - u'0'),
                                      std::numeric_limits<int>::max());
        return static_cast<int>(Meno ? -Valore : Valore);
    }

    void Simbolo(QChar C)
    {
        if (C == u'\'') {
            ByteEsadecimale();
            return;
        }
        if (DaSaltare > 0) {
            --DaSaltare;
            return;
        }
        Scarica();
        switch (C.unicode()) {
        case u'*':  // a group that older readers are to pass over
            Salta();
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

    void ByteEsadecimale()
    {
        int Valore = 0;
        int Cifre = 0;
        for (; Cifre < 2 && Posto < Testo.size(); ++Cifre, ++Posto) {
            const int Una = Esadecimale(Testo[Posto]);
            if (Una < 0)
                break;
            Valore = Valore * 16 + Una;
        }
        if (DaSaltare > 0)
            --DaSaltare;
        else if (Cifre == 2 && SiLegge())
            Bytes.append(static_cast<char>(Valore));
    }

    // ---- words

    void Esegui(const ParolaRtf& Una, std::optional<int> Numero)
    {
        if (Io().Dove == Gruppo::Niente)
            return;
        if (Una.Azione < AzioneRtf::Salta)
            EseguiTesto(Una, Numero);
        else if (Una.Azione < AzioneRtf::Semplice)
            EseguiTabelle(Una, Numero);
        else if (Una.Azione < AzioneRtf::ParagrafoSemplice)
            EseguiCarattere(Una, Numero);
        else
            EseguiParagrafo(Una, Numero);
    }

    void EseguiTesto(const ParolaRtf& Una, std::optional<int> Numero)
    {
        switch (Una.Azione) {
        case AzioneRtf::Carattere:
            ScriviUno(static_cast<char16_t>(Una.Valore));
            break;
        case AzioneRtf::Paragrafo:
            FineParagrafo();
            break;
        case AzioneRtf::Pagina:
            if (!Riga.Tratti.empty())
                FineParagrafo();
            NuovaPagina = true;
            break;
        case AzioneRtf::Cella:
            ScriviUno(u'\t');
            break;
        case AzioneRtf::Riga:
            TogliUltimaTabulazione();
            FineParagrafo();
            break;
        case AzioneRtf::Unicode:
            if (Numero) {
                ScriviCodice(static_cast<char16_t>(*Numero));
                DaSaltare = Io().Sostituti;
            }
            break;
        case AzioneRtf::Sostituti:
            Io().Sostituti = std::clamp(Numero.value_or(1), 0, MassimoSostituti);
            break;
        default:
            break;
        }
    }

    void EseguiTabelle(const ParolaRtf& Una, std::optional<int> Numero)
    {
        switch (Una.Azione) {
        case AzioneRtf::Salta:
            Salta();
            break;
        case AzioneRtf::TabellaFont:
            Io().Dove = Gruppo::Font;
            break;
        case AzioneRtf::Codifica:
            PaginaDocumento = Numero.value_or(PaginaWindows);
            break;
        case AzioneRtf::CodificaFissa:
            PaginaDocumento = Una.Valore;
            break;
        case AzioneRtf::FontIniziale:
            FontIniziale = Numero.value_or(0);
            Io().NumeroFont = FontIniziale;
            FontCambiato = true;
            break;
        case AzioneRtf::SetCaratteri:
            if (Io().Dove == Gruppo::Font)
                Corrente.Pagina = PaginaDelSet(Numero.value_or(0));
            break;
        case AzioneRtf::CodificaFont:
            if (Io().Dove == Gruppo::Font)
                Corrente.Pagina = Numero.value_or(0);
            break;
        default:
            break;
        }
    }

    void EseguiCarattere(const ParolaRtf& Una, std::optional<int> Numero)
    {
        const bool Acceso = Numero.value_or(1) != 0;
        FontCambiato = true;
        switch (Una.Azione) {
        case AzioneRtf::Semplice:
            CaratteriIniziali();
            break;
        case AzioneRtf::Font:
            if (Io().Dove == Gruppo::Font)
                ChiudiFont();
            Io().NumeroFont = Numero.value_or(FontIniziale);
            break;
        case AzioneRtf::Dimensione:
            Io().Punti = std::clamp(Numero.value_or(24) / 2.0, 1.0, 200.0);
            break;
        case AzioneRtf::Grassetto:
            Io().Grassetto = Acceso;
            break;
        case AzioneRtf::Corsivo:
            Io().Corsivo = Acceso;
            break;
        case AzioneRtf::Sottolineato:
            Io().Sottolineato = Acceso;
            break;
        case AzioneRtf::NonSottolineato:
            Io().Sottolineato = false;
            break;
        case AzioneRtf::Maiuscole:
            Io().Maiuscole = Acceso;
            break;
        case AzioneRtf::Nascosto:
            Io().Nascosto = Acceso;
            break;
        default:
            break;
        }
    }

    void EseguiParagrafo(const ParolaRtf& Una, std::optional<int> Numero)
    {
        constexpr double MassimoCm = 12.0;
        constexpr double MassimoPunti = 100.0;
        const double Cm = Numero.value_or(0) / TwipPerCm;
        const double Punti = std::clamp(Numero.value_or(0) / TwipPerPunto, 0.0, MassimoPunti);
        Rientri& Suoi = Io().Spazi;
        switch (Una.Azione) {
        case AzioneRtf::ParagrafoSemplice:
            Suoi = {};
            Io().Allinea = Allineamento::Sinistra;
            Io().PaginaPrima = Io().ConSeguente = false;
            break;
        case AzioneRtf::Allinea:
            Io().Allinea = static_cast<Allineamento>(Una.Valore);
            break;
        case AzioneRtf::RientroSinistro:
            Suoi.SinistroCm = std::clamp(Cm, 0.0, MassimoCm);
            break;
        case AzioneRtf::RientroDestro:
            Suoi.DestroCm = std::clamp(Cm, 0.0, MassimoCm);
            break;
        case AzioneRtf::PrimaRiga:
            Suoi.PrimaRigaCm = std::clamp(Cm, -MassimoCm, MassimoCm);
            break;
        case AzioneRtf::Sopra:
            Suoi.SopraPunti = Punti;
            break;
        case AzioneRtf::Sotto:
            Suoi.SottoPunti = Punti;
            break;
        case AzioneRtf::PaginaPrima:
            Io().PaginaPrima = Numero.value_or(1) != 0;
            break;
        case AzioneRtf::ConSeguente:
            Io().ConSeguente = Numero.value_or(1) != 0;
            break;
        default:
            break;
        }
    }

    void CaratteriIniziali()
    {
        const Gruppo Nuovo;
        Gruppo& Mio = Io();
        Mio.NumeroFont = FontIniziale;
        Mio.Punti = Nuovo.Punti;
        Mio.Grassetto = Mio.Corsivo = Mio.Sottolineato = Mio.Maiuscole = Mio.Nascosto = false;
    }

    // ---- fonts

    void ChiudiFont()
    {
        const QString Nome = Corrente.Nome.trimmed();
        if (!Nome.isEmpty() && Font.size() < MassimoFont)
            Font.insert(Io().NumeroFont, {TestoPulito(Nome), Corrente.Pagina});
        Corrente = {};
    }

    /// A name ends at its semicolon.
    void ScriviNome(QStringView Pezzo)
    {
        for (const QChar C : Pezzo) {
            if (C == u';')
                ChiudiFont();
            else if (Corrente.Nome.size() < MassimoNomeFont)
                Corrente.Nome += C;
        }
    }

    [[nodiscard]] int PaginaCorrente() const
    {
        const auto Suo = Font.constFind(Io().NumeroFont);
        return Suo == Font.constEnd() || Suo->Pagina == 0 ? PaginaDocumento : Suo->Pagina;
    }

    /// Signs of a symbol font are written in the document's own: its letters are none there.
    [[nodiscard]] Carattere CarattereCorrente() const
    {
        Carattere Fatto;
        auto Suo = Font.constFind(Io().NumeroFont);
        if (Suo == Font.constEnd() || Suo->Pagina == PaginaSimboli)
            Suo = Font.constFind(FontIniziale);
        if (Suo != Font.constEnd() && Suo->Pagina != PaginaSimboli)
            Fatto.Nome = Suo->Nome;
        Fatto.Punti = Io().Punti;
        Fatto.Grassetto = Io().Grassetto;
        Fatto.Corsivo = Io().Corsivo;
        Fatto.Sottolineato = Io().Sottolineato;
        return Fatto;
    }

    // ---- text

    [[nodiscard]] Gruppo& Io() { return Gruppi.back(); }
    [[nodiscard]] const Gruppo& Io() const { return Gruppi.back(); }

    /// Text stands here: in the outermost group at least, and in none that is passed over.
    [[nodiscard]] bool SiLegge() const
    {
        return Profondi == 0 && Gruppi.size() > 1 && Io().Dove != Gruppo::Niente;
    }

    void Salta() { Io().Dove = Profondi == 0 ? Gruppo::Niente : Io().Dove; }

    /// Bytes that were gathered become text.
    void Scarica()
    {
        if (Bytes.isEmpty())
            return;
        const QString Letto = TestoDaPagina(Bytes, PaginaCorrente());
        Bytes.clear();
        Scrivi(Letto);
    }

    void ScriviUno(char16_t Codice)
    {
        const QChar C(Codice);
        Scrivi(QStringView(&C, 1));
    }

    void ScriviCodice(char16_t Codice)
    {
        const bool Simbolo = Codice >= PrimoPrivato && Codice <= PrimoPrivato + 0xFF;
        ScriviUno(Simbolo ? SegnoDiSimboli(Codice - PrimoPrivato).unicode() : Codice);
    }

    void Scrivi(QStringView Pezzo)
    {
        if (!Bytes.isEmpty())
            Scarica();
        if (!SiLegge())
            return;
        if (Io().Dove == Gruppo::Font) {
            ScriviNome(Pezzo);
            return;
        }
        if (Io().Nascosto)
            return;
        Pezzo = Pezzo.first(std::min(Pezzo.size(), Restano));
        Restano -= Pezzo.size();
        Finito = Finito || Restano == 0;
        Accoda(Pezzo);
    }

    void Accoda(QStringView Pezzo)
    {
        if (Riga.Tratti.empty() || (FontCambiato && Riga.Tratti.size() < MassimoTrattiRtf)) {
            Carattere Suo = CarattereCorrente();
            FontCambiato = false;
            if (Riga.Tratti.empty() || !(Riga.Tratti.back().Font == Suo))
                Riga.Tratti.push_back({{}, std::move(Suo)});
        }
        QString& Ultimo = Riga.Tratti.back().Testo;
        if (Io().Maiuscole)
            Ultimo += Pezzo.toString().toUpper();
        else
            Ultimo += Pezzo;
    }

    void TogliUltimaTabulazione()
    {
        if (!Riga.Tratti.empty() && Riga.Tratti.back().Testo.endsWith(u'\t'))
            Riga.Tratti.back().Testo.chop(1);
    }

    /// A paragraph ends where text may stand.
    void FineParagrafo()
    {
        if (SiLegge() && Io().Dove == Gruppo::Testo)
            ChiudiParagrafo();
    }

    void ChiudiParagrafo()
    {
        for (Tratto& Uno : Riga.Tratti)
            Uno.Testo = TestoPulito(std::move(Uno.Testo));
        std::erase_if(Riga.Tratti, [](const Tratto& Uno) { return Uno.Testo.isEmpty(); });
        Riga.Font = CarattereCorrente();
        Riga.Allinea = Io().Allinea;
        Riga.Spazi = Io().Spazi;
        Riga.Spazi.PrimaRigaCm = std::max(Riga.Spazi.PrimaRigaCm, -Riga.Spazi.SinistroCm);
        Riga.NuovaPagina = NuovaPagina || Io().PaginaPrima;
        Riga.ConSeguente = Io().ConSeguente;
        NuovaPagina = false;
        Fatti.push_back(std::exchange(Riga, {}));
        Finito = Finito || Fatti.size() >= MassimoParagrafiRtf;
    }

    QStringView Testo;
    qsizetype Posto = 0;
    bool Finito = false;
    std::vector<Gruppo> Gruppi;  ///< the first one stands outside the text
    qsizetype Profondi = 0;      ///< groups beyond MassimoGruppi
    int DaSaltare = 0;           ///< substitutes still to come
    QByteArray Bytes;            ///< given in hexadecimal, not yet text
    int PaginaDocumento = PaginaWindows;
    int FontIniziale = 0;
    QHash<int, FontRtf> Font;
    FontRtf Corrente;  ///< of the table of fonts
    bool FontCambiato = true;
    bool NuovaPagina = false;
    qsizetype Restano = MassimoCaratteriRtf;
    Paragrafo Riga;
    std::vector<Paragrafo> Fatti;
};

}  // namespace

std::vector<Paragrafo> LeggiRtf(QStringView Testo)
{
    return Testo.startsWith(u"{\\rtf") ? Lettore(Testo).Leggi() : std::vector<Paragrafo>();
}
