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
class TestiColonna
{
public:
    TestiColonna(Sorgente DiRighe, int DiColonna) : Da(std::move(DiRighe)), Colonna(DiColonna) {}

    /// More text than this is not held; the tests set it.
    static inline qsizetype MassimoByte = qsizetype(128) << 20;

    [[nodiscard]] bool EDi(int AltraColonna) const { return Colonna == AltraColonna; }
    /// Forgets what is no longer as the file has it. To be called once per search.
    void Verifica();
    /// False for a column that holds something else than text, or too much of it: the engine must be asked.
    [[nodiscard]] bool Usabili() const { return Buoni; }

    /// Place, counted from 0 in the order of the keys, of the first row from this one on that meets the
    /// question; reads on as far as that takes. -1 when there is none.
    [[nodiscard]] qsizetype Avanti(const DomandaTesto& Domanda, qsizetype DaPosto);
    /// The same backwards; all rows are read first.
    [[nodiscard]] qsizetype Indietro(const DomandaTesto& Domanda, qsizetype DaPosto) const;
    void LeggiTutti();

    [[nodiscard]] qint64 Chiave(qsizetype Posto) const { return Chiavi[size_t(Posto)]; }
    [[nodiscard]] qsizetype Righe() const { return qsizetype(Chiavi.size()); }
    /// Place of the first row that has this key or a higher one, among those that have been read.
    [[nodiscard]] qsizetype PostoDa(qint64 Chiave) const;
    /// Reads on until a row of this key or a higher one is there, or the end is reached.
    void LeggiFino(qint64 Chiave);

private:
    struct Voce
    {
        quint32 Inizio = 0;
        qint32 Lunga = -1;  ///< bytes; -1 for Null
    };
    void LeggiAncora();
    [[nodiscard]] bool Vale(const DomandaTesto& Domanda, qsizetype Posto) const;

    Sorgente Da;
    int Colonna;
    std::vector<qint64> Chiavi;
    std::vector<Voce> Voci;
    QByteArray Testi;
    quint64 Versione = 0;
    int Prossime = 0;  ///< rows to be read in one go next
    bool Finiti = false;
    bool Buoni = true;
};
