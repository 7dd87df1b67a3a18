// A grid of four columns over three rows.
#pragma once

#include "platform/grid/griglia.h"
#include "platform/kit/collega.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

enum Colonna { Data, Descrizione, Importo, Nota };

inline QList<ColonnaGriglia> QuattroColonne()
{
    QList<ColonnaGriglia> Colonne(4);
    Colonne[Data].Titolo = u"Data"_s;
    Colonne[Data].Filtro = u"d"_s;
    Colonne[Descrizione].Titolo = u"Descrizione"_s;
    Colonne[Descrizione].Massimo = 20;
    Colonne[Importo].Titolo = u"Importo"_s;
    Colonne[Importo].Filtro = u","_s;
    Colonne[Nota].Titolo = u"Nota"_s;
    for (int i = 0; i < Colonne.size(); ++i) {
        Colonne[i].Campo = i;
        Colonne[i].Modificabile = i != Nota;
    }
    return Colonne;
}

/// A window with a grid over three rows and a box behind it.
struct FinestraCelle : QWidget
{
    FinestraCelle() : Righe(4), Griglia_(new Griglia(this)), Dopo(new QLineEdit(this))
    {
        for (const QString& Testo : {u"prima"_s, u"seconda"_s, u"terza"_s})
            Righe(Righe.AggiungiRiga(), Descrizione) = Testo;
        auto* Disposizione = new QVBoxLayout(this);
        Disposizione->addWidget(Griglia_);
        Disposizione->addWidget(Dopo);
        Griglia_->ImpostaColonne(QuattroColonne());
        Griglia_->Lega(&Righe);
        resize(600, 300);
    }

    [[nodiscard]] QTableView* Vista() const { return Griglia_->Vista(); }
    [[nodiscard]] QLineEdit* Cella() const { return Vista()->viewport()->findChild<QLineEdit*>(u"cella"_s); }

    /// Every column has the same check.
    void Convalida(const std::function<bool(int Riga, const QString& Testo)>& Controllo)
    {
        QList<ColonnaGriglia> Colonne = QuattroColonne();
        for (ColonnaGriglia& Colonna : Colonne)
            Colonna.Convalida = Controllo;
        Griglia_->ImpostaColonne(Colonne);
    }

    void Vai(int Riga, int Colonna)
    {
        Griglia_->setFocus();
        Griglia_->ImpostaRigaCorrente(Riga, Colonna);
    }
    [[nodiscard]] QPoint Centro(int Riga, int Colonna) const
    {
        return Vista()->visualRect(Vista()->model()->index(Riga, Colonna)).center();
    }
    void Clic(int Riga, int Colonna)
    {
        QTest::mouseClick(Vista()->viewport(), Qt::LeftButton, Qt::NoModifier, Centro(Riga, Colonna));
    }

    TabellaRighe Righe;
    Griglia* Griglia_;
    QLineEdit* Dopo;
};

/// A window with the grid, gone with the test.
class BancoCelle
{
protected:
    void Prepara();
    void Sgombra();

    std::unique_ptr<FinestraCelle> F;
};

inline void BancoCelle::Prepara()
{
    F = std::make_unique<FinestraCelle>();
    QVERIFY(MostraAttiva(*F));
}

inline void BancoCelle::Sgombra()
{
    F.reset();
}
