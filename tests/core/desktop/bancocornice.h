// The frame with notes that only note what they are asked.
#pragma once

#include "core/aperture.h"
#include "core/app/avvio.h"
#include "core/app/scena.h"
#include "core/posti.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/system/percorsi.h"

#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScreen>
#include <QToolBar>
#include <QToolButton>
#include <memory>

/// A frame in a scene of its own.
class BancoCornice
{
protected:
    void Prepara();
    void Sgombra();

    QToolBar* Barra_() { return Cornice->findChild<QToolBar*>(u"barParcelle"_s); }
    void Clic(const QString& Chiave)
    {
        QTest::mouseClick(Cornice->findChild<QWidget*>(u"barParcelle_"_s + Chiave), Qt::LeftButton);
    }
    void RegistraChiusure(const QList<bool>& Risposte);

    std::unique_ptr<Scena> S;
    frmMain* Cornice = nullptr;
    QList<bool> RisposteChiusura;
};

inline void BancoCornice::Prepara()
{
    S = std::make_unique<Scena>();
    S->Preparata();
    Cornice = &Singola<frmMain>();
    Aperture.ApriParcella = [this](const QString&, int Socio, const QString&) {
        S->Annota(u"parcella %1"_s.arg(Socio));
    };
    Aperture.TrovaParcella = [this](int Selettore, const QString&, int, const QString&) {
        S->Annota(u"trova %1"_s.arg(Selettore));
        return QString();
    };
    Aperture.Proteggi = [this](int Indice) { S->Annota(u"proteggi %1"_s.arg(Indice)); };
    Aperture.SalvaParcella = [this](int Indice, bool) { S->Annota(u"salva %1"_s.arg(Indice)); };
    Aperture.Finestre[u"termini"_s] = [this] { S->Annota(u"termini"_s); };
    Aperture.Finestre[u"about"_s] = [this] { S->Annota(u"informazioni"_s); };
}

inline void BancoCornice::Sgombra()
{
    S.reset();
}

/// Each close is answered in turn; a granted one frees the place and, if it is the last, goes its road.
inline void BancoCornice::RegistraChiusure(const QList<bool>& Risposte)
{
    RisposteChiusura = Risposte;
    Aperture.ChiudiParcella = [this](int Indice) {
        S->Annota(u"chiudi %1"_s.arg(Indice));
        const bool Chiusa = RisposteChiusura.takeFirst();
        InfoParcelle[size_t(Indice)].Libera = Chiusa;
        if (!ParcellaAperta())
            DopoUltimaParcella();
        return Chiusa;
    };
}
