// A grid of three columns, and hands for its row headers.
#pragma once

#include "platform/base/regionale.h"
#include "platform/database/database.h"
#include "platform/grid/griglia.h"
#include "platform/grid/griglia_pie.h"
#include "platform/kit/aspetto.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QVBoxLayout>
#include <functional>

using namespace Qt::StringLiterals;

inline QList<ColonnaGriglia> TreColonne()
{
    QList<ColonnaGriglia> Colonne(3);
    const QStringList Titoli{u"Voce"_s, u"Descrizione"_s, u"Importo"_s};
    for (int i = 0; i < Colonne.size(); ++i) {
        Colonne[i].Titolo = Titoli[i];
        Colonne[i].Campo = i;
        Colonne[i].NomeCampo = Titoli[i];
    }
    Colonne[1].Stira = true;
    Colonne[1].Caratteri = 20;
    Colonne[2].Allinea = Qt::AlignRight;
    return Colonne;
}

struct FinestraRighe : QWidget
{
    explicit FinestraRighe(int Quante = 6) : Righe(3), Griglia_(new Griglia(this))
    {
        for (int i = 0; i < Quante; ++i)
            Righe(Righe.AggiungiRiga(), 0) = i;
        auto* Disposizione = new QVBoxLayout(this);
        Disposizione->addWidget(Griglia_);
        Griglia_->ImpostaColonne(TreColonne());
        Griglia_->Lega(&Righe);
        resize(500, 320);
    }

    [[nodiscard]] QTableView* Vista() const { return Griglia_->Vista(); }
    [[nodiscard]] QWidget* Selettore() const { return Vista()->verticalHeader()->viewport(); }
    [[nodiscard]] QPoint SuRiga(int Riga, double Parte = 0.5) const
    {
        const QRect Cella = Vista()->visualRect(Vista()->model()->index(Riga, 0));
        return {8, Cella.top() + int(Cella.height() * Parte)};
    }
    void Clic(int Riga, Qt::KeyboardModifiers Modificatori = Qt::NoModifier)
    {
        QTest::mouseClick(Selettore(), Qt::LeftButton, Modificatori, SuRiga(Riga));
    }
    /// QTest's own moves carry no button.
    void Muovi(const QPoint& Punto)
    {
        QMouseEvent Evento(QEvent::MouseMove, Punto, Selettore()->mapToGlobal(Punto), Qt::NoButton,
                           Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(Selettore(), &Evento);
    }
    void Trascina(int Da, const QPoint& A)
    {
        QTest::mousePress(Selettore(), Qt::LeftButton, Qt::NoModifier, SuRiga(Da));
        Muovi((SuRiga(Da) + A) / 2);
        Muovi(A);
        QTest::mouseRelease(Selettore(), Qt::LeftButton, Qt::NoModifier, A);
    }

    TabellaRighe Righe;
    Griglia* Griglia_;
};
