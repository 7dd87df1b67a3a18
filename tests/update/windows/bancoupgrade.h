// What the tests of the form of updates share: the desk of updates, the form, its hands, its sentences.
#pragma once

#include "supporto/mani.h"
#include "update/banco.h"

#include "core/aperture.h"
#include "core/posti.h"
#include "core/versione.h"
#include "platform/kit/servizi_qt.h"
#include "update/windows/frmUpgrade.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include <functional>

/// Calls somebody behind each drawing of the bar of a transfer, from the queue, as the transfer breathes. A
/// call that queued itself again would leave the transfer no breath.
class AdOgniPasso : public QObject
{
public:
    AdOgniPasso(QWidget* Barra, std::function<void()> Chiamata) : Chiama(std::move(Chiamata))
    {
        Barra->installEventFilter(this);
    }
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        if (Evento->type() == QEvent::Paint)
            QMetaObject::invokeMethod(
                this, [this] { Chiama(); }, Qt::QueuedConnection);
        return QObject::eventFilter(Oggetto, Evento);
    }

private:
    std::function<void()> Chiama;
};

class BancoUpgrade
{
public:
    void Prepara()
    {
        B = std::make_unique<BancoAggiornamenti>();
        Aperture = {};
        AzzeraParcelle();
    }
    void Sgombera()
    {
        F.reset();
        B.reset();
        Aperture = {};
        AzzeraParcelle();
    }
    void Apri(const QString& Parola = {})
    {
        F = std::make_unique<frmUpgrade>();
        F->Mostra(Parola);
        QVERIFY(QTest::qWaitForWindowActive(F.get()));
    }
    void Clicca(const char* Nome) const
    {
        auto* Bottone = Controllo<QPushButton>(F.get(), Nome);
        QVERIFY2(Bottone->isVisible() && Bottone->isEnabled(), Nome);
        Clic(Bottone);
    }
    void ConProgramma(const QString& Nome = u"upgrade3.0.15.exe"_s)
    {
        B->Posa(Nome, "installatore");
        B->Annunciate(SoloProgramma);
        Apri();
        Clicca("cmdVerifica");
    }
    [[nodiscard]] QString Testo(const char* Nome) const { return TestoDi(F.get(), Nome); }
    [[nodiscard]] bool SiVede(const char* Nome) const { return Controllo(F.get(), Nome)->isVisible(); }

    std::unique_ptr<BancoAggiornamenti> B;
    std::unique_ptr<frmUpgrade> F;
};

inline const QString Iniziale =
    u"Clicca sul pulsante di verifica per controllare la presenza di nuovi aggiornamenti..."_s;
inline const QString Pronto = u"Clicca sul pulsante Aggiorna per avviare l'aggiornamento..."_s;
inline const QString Completato = u"L'aggiornamento dell'archivio è stato correttamente completato."_s;
inline const QString Scaricato = u"Il download è stato correttamente completato.\n"
                                 "Il programma verrà ora chiuso ed avviato l'aggiornamento."_s;
inline const QString TassiErrore =
    u"Errore di download dell'archivio indici interessi. Contatattare l'assistenza."_s;

inline QString ProgrammaErrore(const QString& Dettaglio)
{
    return u"Errore di download del file di aggiornamento upgrade3.0.15.exe ("_s + Dettaglio +
           u"). Contatattare l'assistenza."_s;
}
