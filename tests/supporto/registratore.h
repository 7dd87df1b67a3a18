// The message seam in tests: answers prepared beforehand, everything shown written down.
#pragma once

#include "platform/system/messaggi.h"

#include <QList>
#include <QString>

#include <algorithm>
#include <functional>

/// One box as it was shown.
struct MessaggioMostrato
{
    QString Testo;
    int Bandiere = 0;
    QString Titolo;
};

/// Installs itself for its lifetime. A box that nobody expects fails the test at once and is answered
/// the safe way; an answer left over fails it when the object goes.
class Registratore
{
public:
    Registratore();
    ~Registratore();
    Registratore(const Registratore&) = delete;
    Registratore& operator=(const Registratore&) = delete;

    /// The next box has this text (whole) and gets this answer.
    void Attendi(const QString& Testo, int Risposta = vbOK, const QString& Titolo = {});
    /// The next input box, asked with a text that contains this, gets this answer.
    void AttendiImmissione(const QString& Contiene, const QString& Risposta);
    /// The next save or open dialog gets this path; an empty one cancels it. A dialog that nobody expects
    /// fails the test and is cancelled.
    void AttendiSalva(const QString& Percorso) { Attese.append({Domanda::Salva, {}, {}, vbOK, Percorso}); }
    void AttendiApri(const QString& Percorso) { Attese.append({Domanda::Apri, {}, {}, vbOK, Percorso}); }
    /// Title, starting point and filter of the last save or open dialog.
    [[nodiscard]] const QString& TitoloDialogo() const { return UltimoTitolo; }
    [[nodiscard]] const QString& InizioDialogo() const { return UltimoInizio; }
    [[nodiscard]] const QString& FiltroDialogo() const { return UltimoFiltro; }
    /// Sets the printer up in the place of the user; false cancels. A print dialog without it fails the test.
    std::function<bool(QPrinter& Scelta)> ScegliStampante;
    /// What a box does to the windows before it is answered: BoxDavanti in the programs that test windows.
    static std::function<void()>& AlMostrare();
    /// Between two rows that share a window: an answer left over fails as at the end, and what was shown is
    /// forgotten.
    void Sparecchia();
    /// From now on boxes that nobody expects are only written down, answered the safe way.
    void Tollera() { Tollerante = true; }

    [[nodiscard]] const QList<MessaggioMostrato>& Mostrati() const { return Visti; }
    /// A box by its number from 0, and the last one. Where there is none the test fails, and an empty box
    /// comes back: the functions behind it still run.
    [[nodiscard]] MessaggioMostrato Mostrato(qsizetype Quale) const;
    [[nodiscard]] MessaggioMostrato Ultimo() const
    {
        return Mostrato(std::max<qsizetype>(Visti.size() - 1, 0));
    }
    [[nodiscard]] QString UltimoTesto() const { return Visti.isEmpty() ? QString() : Visti.last().Testo; }

private:
    enum class Domanda { Box, Immissione, Salva, Apri };
    struct Attesa
    {
        Domanda Quale = Domanda::Box;
        QString Testo;
        QString Titolo;
        int Risposta = vbOK;
        QString Digitato;
    };
    int Box(const QString& Testo, int Bandiere, const QString& Titolo);
    QString Chiedi(const QString& Testo, const QString& Titolo);
    QString Scegli(Domanda Quale, const QString& Titolo, const QString& Iniziale);
    [[nodiscard]] bool Tocca(Domanda Quale) const
    {
        return !Attese.isEmpty() && Attese.first().Quale == Quale;
    }

    Messaggi Precedenti;
    QList<Attesa> Attese;
    QList<MessaggioMostrato> Visti;
    QString UltimoTitolo;
    QString UltimoInizio;
    QString UltimoFiltro;
    bool Tollerante = false;
};
