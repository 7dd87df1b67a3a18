// The card: what is written to the row, and how the card is left.
#include "addressbook/windows/frmScheda.h"

#include "addressbook/modScheda.h"
#include "core/modErrori.h"
#include "platform/base/errore.h"
#include "platform/kit/campo.h"
#include "platform/system/messaggi.h"
#include "platform/system/shell.h"

#include "addressbook/windows/ui_frmScheda.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <algorithm>

using namespace Qt::StringLiterals;

void frmScheda::barScheda_ButtonClick(const QString& Chiave)
{
    if (Chiave == u"do")
        (void)Salva();
    else if (Chiave == u"undo")
        Annulla();
    else if (Chiave == u"off")
        (void)Lascia(false);
}

// ---- keys ---------------------------------------------------------------------------------------

bool frmScheda::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Evento->type() == QEvent::KeyPress && qobject_cast<QLineEdit*>(Oggetto)) {
        const auto& Tasto = *static_cast<QKeyEvent*>(Evento);
        const bool Solo = (Tasto.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        if (Solo && EInvio(Tasto.key())) {
            PassaOltre(Oggetto);
            return true;
        }
    }
    return QDialog::eventFilter(Oggetto, Evento);
}

/// Enter: the next box that the Tab key reaches too, behind the last one the first.
void frmScheda::PassaOltre(const QObject* Da)
{
    const auto Qui = std::ranges::find_if(Coppie, [Da](const Coppia& Di) { return Di.Box() == Da; });
    const auto Raggiungibile = [](const Coppia& Di) { return Di.Box()->focusPolicy() != Qt::ClickFocus; };
    if (Qui == Coppie.end())
        return;
    auto Prossima = std::find_if(Qui + 1, Coppie.end(), Raggiungibile);
    if (Prossima == Coppie.end())
        Prossima = std::ranges::find_if(Coppie, Raggiungibile);
    Prossima->Box()->setFocus(Qt::TabFocusReason);
    ui->areaScheda->ensureWidgetVisible(Prossima->Box());
}

void frmScheda::Vicina(bool Avanti)
{
    if (InScrittura())
        return;
    const bool Mossa = Sposta ? Sposta(Avanti) : SpostaRecordset(Avanti);
    if (!Mossa) {
        Campanello();
        return;
    }
    Riempi();
    Q_EMIT RigaSpostata();
}

/// Rows that another program has deleted are passed over.
bool frmScheda::SpostaRecordset(bool Avanti)
{
    const QVariant Prima = Righe.Bookmark();
    while (true) {
        if (Avanti)
            Righe.MoveNext();
        else
            Righe.MovePrevious();
        if (Righe.Eof() || Righe.Bof()) {
            Righe.ImpostaBookmark(Prima);
            return false;
        }
        try {
            (void)Righe.Value(Coppie.front().Colonna.Name);
            return true;
        } catch (const Errore& Guasto) {
            if (Guasto.Numero != errori::RecordEliminato)
                throw;
        }
    }
}

// ---- writing ------------------------------------------------------------------------------------

void frmScheda::Cambiata(int Numero)
{
    Indice = Numero;
    // What was said of the former text holds no more; of the new one something is said when it is left.
    const Coppia& Di = Coppie[size_t(Numero) - 1];
    Di.Box()->setToolTip({});
    if (Di.Segno)
        Di.Segno->setVisible(false);
}

/// Writes the box that was changed to the row. A value that the field refuses is reported; it stays pending,
/// and the box gets the focus back.
bool frmScheda::ScriviPendente()
{
    if (Indice == 0)
        return true;
    const Coppia& Di = Coppie[size_t(Indice) - 1];
    if (!Protetta([&] { ScriviScheda(Righe, Di.Colonna, Di.Testo()); })) {
        RidaiFuoco(Di.Box());
        return false;
    }
    Indice = 0;
    RiempiCoppia(Di);
    for (const Coppia& Altra : Coppie)
        if (Altra.Colonna.Name.compare(u"Controp", Qt::CaseInsensitive) == 0 && &Altra != &Di)
            RiempiCoppia(Altra);
    return true;
}

bool frmScheda::Salva()
{
    if (!ScriviPendente())
        return false;
    bool Salvata = false;
    // Whatever hinders the update, card, texts and edit stay as they are.
    (void)Protetta([&] { Salvata = SalvaScheda(Righe, ChiaveNuova); });
    if (Salvata)
        Scarica(true);
    return Salvata;
}

void frmScheda::Annulla()
{
    if (InScrittura())
        Righe.CancelUpdate();
    Scarica(false);
}

/// Closes the card and leaves the edit open, with what was typed last in it.
/// @param Comunque also when the field refuses that: it is lost then, as the user has said
bool frmScheda::Lascia(bool Comunque)
{
    if (!Comunque && !ScriviPendente())
        return false;
    try {
        if (Indice > 0)
            ScriviScheda(Righe, Coppie[size_t(Indice) - 1].Colonna, Coppie[size_t(Indice) - 1].Testo());
    } catch (const Errore&) {
        Indice = 0;
    }
    Scarica(false);
    return true;
}

// ---- leaving ------------------------------------------------------------------------------------

void frmScheda::reject()
{
    (void)Domanda(false);
}

bool frmScheda::Congeda()
{
    return Domanda(true);
}

/// With nothing changed there is nothing to ask, and nothing is left behind.
bool frmScheda::Domanda(bool BrowserVia)
{
    if (Indice == 0 && !Righe.Toccato()) {
        Annulla();
        return true;
    }
    switch (ChiediSeSalvareScheda()) {
    case vbYes:
        return Salva();
    case vbNo:
        if (BrowserVia)
            Annulla();
        else
            (void)Lascia(true);
        return true;
    default:
        return false;
    }
}

void frmScheda::Scarica(bool Salvata)
{
    Indice = 0;
    done(Salvata ? Accepted : Rejected);
    deleteLater();
    Q_EMIT Chiusa(Salvata);
}
