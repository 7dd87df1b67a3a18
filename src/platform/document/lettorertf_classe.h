// The reader of rich text: one pass over its signs.
#pragma once

#include "platform/base/paginacodice.h"
#include "platform/document/lettorertf.h"
#include "platform/document/lettorertf_font.h"
#include "platform/document/lettorertf_parole.h"
#include "platform/document/lettorertf_segni.h"
#include "platform/document/lettorertf_stato.h"
#include "platform/document/lettorertf_tabella.h"

#include <QByteArray>

#include <optional>
#include <vector>

class LettoreRtf
{
public:
    explicit LettoreRtf(QStringView Tutto);

    [[nodiscard]] std::vector<BloccoDocumento> Leggi();

private:
    // ---- signs
    void Esegui(const SegnoRtf& Segno);
    void Apri();
    void Chiudi();
    void LeggiBrano(QStringView Testo);
    void LeggiParola(const SegnoRtf& Segno);
    void LeggiSimbolo(QChar C);
    void LeggiByte(std::optional<char> Carattere);

    // ---- words, by what they are about
    void EseguiParola(const ParolaRtf& Parola, std::optional<int> Numero);
    void EseguiTesto(const ParolaRtf& Parola, std::optional<int> Numero);
    void EseguiTabelle(const ParolaRtf& Parola, std::optional<int> Numero);
    void EseguiCarattere(const ParolaRtf& Parola, std::optional<int> Numero);
    void EseguiParagrafo(const ParolaRtf& Parola, std::optional<int> Numero);
    void EseguiRientri(AzioneRtf Azione, int Twip);
    void EseguiRiga(const ParolaRtf& Parola, std::optional<int> Numero);
    void AggiungiFermo(int Twip);

    // ---- text
    [[nodiscard]] rtf::Gruppo& Corrente() { return Gruppi.back(); }
    [[nodiscard]] const rtf::Gruppo& Corrente() const { return Gruppi.back(); }
    /// Text stands here: in the outermost group at least, and in none that is passed over.
    [[nodiscard]] bool SiLegge() const;
    void SaltaGruppo();
    void Scarica();  ///< bytes that were gathered become text
    void Scrivi(QStringView Pezzo);
    void ScriviUno(char16_t Codice);
    void ScriviCodice(char16_t Codice);
    void Accoda(QStringView Pezzo);
    [[nodiscard]] Carattere CarattereCorrente() const;
    [[nodiscard]] int PaginaCorrente() const;

    // ---- paragraphs and tables; both end where text may stand alone
    void FineParagrafo();
    void FineCella();
    void FineRiga();
    [[nodiscard]] bool ParagrafiAmmessi() const;
    [[nodiscard]] Paragrafo ParagrafoLetto();
    void ChiudiParagrafo();
    void ChiudiTabella();
    void Conta(std::size_t Quanti);

    SegniRtf Segni;
    bool Finito = false;
    std::vector<rtf::Gruppo> Gruppi;  ///< the first one stands outside the text
    qsizetype Profondi = 0;           ///< groups beyond those that are kept
    int DaSaltare = 0;                ///< substitutes still to come
    QByteArray Bytes;                 ///< given in hexadecimal, not yet text
    int PaginaDocumento = PaginaWindows;
    int FontIniziale = 0;
    FontRtf Font;
    TabellaRtf Tab;
    bool FontCambiato = true;
    bool NuovaPagina = false;
    qsizetype Restano = MassimoCaratteriRtf;
    std::size_t Contati = 0;  ///< paragraphs, those of cells included
    Paragrafo Riga;
    std::vector<BloccoDocumento> Fatti;
};
