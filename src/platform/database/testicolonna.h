// The texts of one column, kept in memory without their case, for searches that look at all of them.
#pragma once

#include "platform/database/criterio.h"
#include "platform/database/insieme.h"
#include "platform/database/somiglianza.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <vector>

/// What a comparison of texts asks, ready to be asked often. It means the same as the engine's own
/// comparison: Null meets nothing, not even "differs".
class DomandaTesto
{
public:
    explicit DomandaTesto(const ConfrontoTesto& Chiesto);

    /// @param Piegato a text without its case, in UTF-8
    [[nodiscard]] bool Vale(QByteArrayView Piegato) const;

private:
    enum class Come { Ordine, Dentro, Inizio, Fine, Modello };

    SegnoTesto Segno;
    Come Modo = Come::Ordine;
    QByteArray Cercato;  ///< without its case
    Somiglianza Modello;
};

/// The texts of a column in the order of the row keys, read from the file as far as a search has come. They
/// hold as long as nobody writes to the file.
class TestiColonna : private RaccoltaTesti
{
public:
    TestiColonna(Sorgente DiRighe, int DiColonna) : Da(std::move(DiRighe)), Colonna(DiColonna) {}

    /// More text than this is not held; the tests set it.
    static inline qsizetype MassimoByte = qsizetype(128) << 20;

    [[nodiscard]] bool EDi(int AltraColonna) const { return Colonna == AltraColonna; }
    /// Forgets what is no longer as the file has it. To be called once per search, which then sees the file
    /// at one moment (Sguardo).
    /// @param Attese rows that will be read at most, roughly
    void Verifica(qsizetype Attese);
    /// False for a column that holds something else than text, or too much of it: the engine must be asked.
    [[nodiscard]] bool Usabili() const { return Buoni; }

    /// Place, in the order of the keys, of the first row from this key on that meets the question; reads on
    /// as far as that takes. -1 when there is none.
    [[nodiscard]] qsizetype Avanti(const DomandaTesto& Domanda, qint64 DaChiave);
    /// The nearest row up to this key, backwards; all rows are read first.
    [[nodiscard]] qsizetype Indietro(const DomandaTesto& Domanda, qint64 DaChiave);
    /// The same behind, or before, a row that was found.
    [[nodiscard]] qsizetype Oltre(const DomandaTesto& Domanda, qsizetype Posto);
    [[nodiscard]] qsizetype PrimaDi(const DomandaTesto& Domanda, qsizetype Posto) const;

    [[nodiscard]] qint64 Chiave(qsizetype Posto) const { return Voci[size_t(Posto)].Chiave; }

private:
    struct Voce
    {
        qint64 Chiave = 0;
        quint32 Inizio = 0;
        qint32 Lunga = -1;  ///< bytes; -1 for Null
    };
    bool Prendi(qint64 Chiave, Cella Che, QByteArrayView Utf8) override;
    /// Reads on to the first row from this key on that meets the question, to the end without one.
    void Leggi(const DomandaTesto* Domanda, qint64 DaChiave = 0);
    [[nodiscard]] bool Vale(const DomandaTesto& Domanda, const Voce& Qui) const;
    [[nodiscard]] qsizetype Righe() const { return qsizetype(Voci.size()); }
    [[nodiscard]] qsizetype PostoDa(qint64 Chiave) const;

    Sorgente Da;
    int Colonna;
    std::vector<Voce> Voci;
    QByteArray Testi;
    std::optional<quint64> Versione;
    bool Finiti = false;
    bool Buoni = true;

    // While the engine walks the rows.
    const DomandaTesto* Cercata = nullptr;
    qint64 CercataDa = 0;
};
