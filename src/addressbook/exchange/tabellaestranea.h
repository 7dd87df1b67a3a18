// Rows of a file that another program has written, as text.
#pragma once

#include "platform/base/numerierrore.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// What of a foreign file is taken at most; beyond it the file is refused with a sentence.
namespace limiti {

inline constexpr qint64 ByteFile = qint64(64) << 20;
inline constexpr int Colonne = 1'000;
inline constexpr int Righe = 500'000;
inline constexpr qsizetype Celle = 5'000'000;
inline constexpr qsizetype CaratteriCella = 1'000'000;

}  // namespace limiti

/// Rows below titles; each row has as many cells as there are titles.
struct TabellaEstranea
{
    QStringList Titoli;
    std::vector<QStringList> Righe;
    std::vector<int> Numeri;                 ///< of each row in its file: line, card or row, from 1
    QString Unita = QStringLiteral("riga");  ///< what the numbers count
    QStringList Avvisi = {};                 ///< what of the file could not be read
};

/// Long reading says how far it is, in units of its own. @return false when it is to stop
using AvanzamentoLettura = std::function<bool(qint64 Fatti, qint64 Tutti)>;

/// Asks now and then, however long the pieces are that a reader takes. Stopped, it throws Interrotto.
class PassiDiLettura
{
public:
    PassiDiLettura(const AvanzamentoLettura& DaChiedere, qint64 DiTutti) : Chiedi(DaChiedere), Tutti(DiTutti)
    {}
    void A(qint64 Fatti)
    {
        constexpr qint64 Passo = qint64(128) << 10;
        if (!Chiedi || Fatti < Prossimo)
            return;
        Prossimo = Fatti + Passo;
        if (!Chiedi(Fatti, Tutti))
            Ferma();
    }

private:
    [[noreturn]] static void Ferma();
    const AvanzamentoLettura& Chiedi;
    qint64 Tutti;
    qint64 Prossimo = 0;
};

/// The number of the error of a file that is not taken; its description says what is wrong with it and what
/// to do.
inline constexpr int NumeroFileRifiutato = errori::FileRifiutato;

/// A file that is not taken: one sentence with what to do.
[[noreturn]] void RifiutaFile(const QString& Frase);
