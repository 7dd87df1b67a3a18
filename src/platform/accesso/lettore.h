// The reading program at work: started, asked, and ended where it does not answer.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

/// One running program that takes a request by its standard input and answers by its standard output, a line
/// each. It ends with this object; nothing that happens to it ends the caller.
class Lettore
{
public:
    /// @throws Errore 31 when the program is missing or does not start
    explicit Lettore(const QString& Programma);
    ~Lettore();
    Lettore(const Lettore&) = delete;
    Lettore& operator=(const Lettore&) = delete;

    /// How a request ended.
    enum class Fine {
        Risposta,  ///< its last line is there
        Fermata,   ///< the caller has stopped it: the program is ended
        Scaduta,   ///< no answer in time: the program is ended
        Morto,     ///< the program has ended by itself
    };

    /// Asks and waits. Lines of progress go to `Avanza`, which also runs now and then without one; false
    /// stops the request.
    /// @param Ultima true for the line that ends the answer
    Fine Chiedi(const QByteArray& Domanda, int AttesaMs,
                const std::function<bool(QByteArrayView Riga)>& Ultima, const std::function<bool()>& Avanza);

    /// The last line of the last answer.
    [[nodiscard]] const QByteArray& Risposta() const { return Letta; }
    [[nodiscard]] bool Vivo() const { return Processo > 0; }

private:
    void Uccidi() noexcept;
    bool Scrivi(QByteArrayView Domanda) const;

    QByteArray Letta;
    QByteArray Resto;  ///< read behind the last line
    int Verso = -1;
    int Da = -1;
    int Processo = -1;
};
